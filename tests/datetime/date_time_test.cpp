// lu_date_time: day numbers against textbook Julian-day formulas, the rounding
// of the time of day, the null value, failures, and the strftime-like printer.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <sstream>

#include "kai18n/datetime/lu_date_time.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/ucs2string_formatter.h"
#include "test_support.h"

namespace {

using test_support::ThrownCode;
using DT = lu_date_time;
using Values = std::vector<long long>;
template <class... T>
Values V(T... values) {
    return {static_cast<long long>(values)...};
}

// The reference calendar. Julian day numbers (day 0 is a Monday) by Fliegel and
// Van Flandern for the Gregorian calendar and the 367-day form for the Julian
// one; every divided term is positive from -4712 on, so truncation is floor.
struct Ref {
    static long Jdn(long y, long m, long d) {
        if (y < 1582 || (y == 1582 && (m < 10 || (m == 10 && d < 5)))) {
            return 367 * y - (7 * (y + 5001 + (m - 9) / 7)) / 4 + (275 * m) / 9 + d + 1729777;
        }
        const long a = (m - 14) / 12;
        return (1461 * (y + 4800 + a)) / 4 + (367 * (m - 2 - 12 * a)) / 12 -
               (3 * ((y + 4900 + a) / 100)) / 4 + d - 32075;
    }
    static long Next(long y, long m) { return m == 12 ? Jdn(y + 1, 1, 1) : Jdn(y, m + 1, 1); }
    static long Length(long y, long m) { return Next(y, m) - Jdn(y, m, 1); }  // 21: Oct 1582
    static bool Valid(long y, long m, long d) {
        return y >= -4712 && y <= 32766 && m >= 1 && m <= 12 && d >= 1 &&
               !(y == 1582 && m == 10 && d > 4 && d < 15) && Jdn(y, m, d) < Next(y, m);
    }
};

std::u16string U(const unsigned short* text) {
    return test_support::U16(ucs2string(text));
}
std::u16string Print(const DT& value, const std::u16string& format,
                     const lu_locale& locale = lu_locale::classic()) {
    ucs2string_formatter out;
    value.Print(out, test_support::Str(format).data(), locale);  // zero-terminated
    return U(out.c_str());
}

// Ymd, then Hmsms, then Hms.
Values Parts(const DT& v) {
    int y = 0, m = 0, d = 0, h = 0, mi = 0, s = 0, ms = 0, hs = 0, mis = 0, ss = 0;
    v.Ymd(y, m, d);
    v.Hmsms(h, mi, s, ms);
    v.Hms(hs, mis, ss);
    return V(y, m, d, h, mi, s, ms, hs, mis, ss);
}

// Validity, Set, weekdays, year days and weeks of one date, and a random time of
// day on it read back (never 500 ms, which has no nearest second).
void CheckDate(int y, int m, int d, std::mt19937& rng) {
    const bool valid = Ref::Valid(y, m, d), julian = valid && Ref::Jdn(y, m, d) < 2299161;
    DT v;
    const long code = v.Set(y, m, d, 0.0);
    ASSERT_EQ(V(valid, julian, valid && !julian, valid ? LU_S_OK : LU_E_INVALID_ARG),
              V(DT::IsValid(y, m, d), DT::IsJulianCalendar(y, m, d),
                DT::IsGregorianCalendar(y, m, d), code))
        << y << "-" << m << "-" << d;
    if (!valid) return;
    const long j = Ref::Jdn(y, m, d), j1 = Ref::Jdn(y, 1, 1), off = j - j1;
    const int th = rng() % 24, tmi = rng() % 60, ts = rng() % 60, tms = (rng() % 999 + 501) % 1000;
    const DT t(y, m, d, th, tmi, ts, tms);
    const int secs = th * 3600 + tmi * 60 + ts + (tms > 500 ? 1 : 0);
    const bool y1582 = y == 1582;  // its year days count the ten days; its weeks are skipped
    EXPECT_EQ(
        V(j - 2400001, true, !julian, j % 7, (j + 1) % 7, off + 1 + (y1582 && !julian ? 10 : 0),
          y1582 ? 0 : (off + j1 % 7) / 7 + 1, y1582 ? 0 : (off + (j1 + 1) % 7) / 7 + 1,
          j - 2400001),
        V(v.Day(), v.Day() == std::floor(v.Day()), v.IsGregorian(), v.WeekDay(0), v.WeekDay(6),
          v.YearDay(), y1582 ? 0 : v.YearWeek(0), y1582 ? 0 : v.YearWeek(6), std::floor(t.Day())))
        << y << "-" << m << "-" << d;
    EXPECT_EQ(V(y, m, d, th, tmi, ts, tms, secs / 3600, secs / 60 % 60, secs % 60), Parts(t));
}

const DT kMarch5(2004, 3, 5, 9, 7, 3, 250);

}  // namespace

TEST(DateTimeTest, AgreesWithJulianDayFormulas) {
    std::mt19937 rng(20040305);
    // 6700, 13100, 25500 and 25900: century years whose 1 March a rounded
    // reciprocal once turned into a 29 February.
    for (int y :
         {-4713, -4712, -4711, -101, -100, -5,   -4,   -1,   0,     1,     4,     100,   1500,
          1581,  1582,  1583,  1600, 1700, 1900, 2000, 6700, 13100, 25500, 25900, 32766, 32767}) {
        for (int m = 0; m <= 13; ++m) {
            for (int d = -1; d <= 32; ++d) CheckDate(y, m, d, rng);
        }
        if (y < -4712 || y > 32766) continue;
        for (int m = 1; m <= 12; ++m) EXPECT_EQ(Ref::Length(y, m), DT::DaysInMonth(y, m)) << y;
        EXPECT_EQ(Ref::Length(y, 2) == 29, DT::IsLeapYear(y)) << y;
        EXPECT_EQ(Ref::Jdn(y + 1, 1, 1) - Ref::Jdn(y, 1, 1), DT::DaysInYear(y)) << y;
    }
    for (int i = 0; i < 200000 && !HasFailure(); ++i) {
        const int y = std::uniform_int_distribution<int>(-4712, 32766)(rng), m = rng() % 12 + 1;
        CheckDate(y, m, rng() % Ref::Length(y, m) + 1, rng);
    }
    EXPECT_EQ(Ref::Jdn(1582, 10, 15) - 2400001, DT::kGregorianStart);
    EXPECT_EQ(Ref::Jdn(32767, 1, 1) - 2400001, DT::kEndModifiedJulianDate);
    EXPECT_EQ(Ref::Jdn(-4712, 1, 1) - 2400000.5, DT::kMinModifiedJulianDate);  // Julian Date 0
}

TEST(DateTimeTest, TimeOfDayRoundsWithoutCarryIntoTheDate) {
    const double ms = 1.0 / 86400000, sec = 1.0 / 86400;
    // Fraction, then hour, minute, second and millisecond of Hmsms, then Hms.
    const double rows[][8] = {{1 - 0.4 * ms, 24, 0, 0, 0, 24, 0, 0},
                              {1 - 0.6 * ms, 23, 59, 59, 999, 24, 0, 0},
                              {1 - 0.4 * sec, 23, 59, 59, 600, 24, 0, 0},
                              {1 - 0.6 * sec, 23, 59, 59, 400, 23, 59, 59},
                              {0.4 * ms, 0, 0, 0, 0, 0, 0, 0},
                              {0.6 * ms, 0, 0, 0, 1, 0, 0, 0}};
    for (int year : {2004, 1600, -4000}) {
        for (const auto& r : rows) {
            Values want(r + 1, r + 8);
            want.insert(want.begin(), {year, 3, 5});
            EXPECT_EQ(want, Parts(DT(year, 3, 5.0, r[0]))) << r[0];
        }
    }
}

TEST(DateTimeTest, NullValueFailuresAndTheLongYmd) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &DT::kNullValue, sizeof bits);
    EXPECT_EQ(0xC14312D00FBE76C9u, bits);
    const DT null(nullptr), low(DT::kMinModifiedJulianDate);
    DT v = kMarch5, from_jd;
    v.SetNull();
    EXPECT_TRUE(null.IsNull() && v.IsNull() && DT(DT::kNullValue).IsNull() && !DT().IsNull() &&
                !low.IsNull() && null < low && null == v && !(null != v) && low < kMarch5);
    EXPECT_TRUE(from_jd.Set(2400000.5) == LU_S_OK && from_jd == DT(0.0) && DT(0.0) == DT() &&
                DT(1858, 11, 17.0, 0.0) == DT());
    for (double mjd : {std::nan(""), DT::kEndModifiedJulianDate, HUGE_VAL,
                       std::nextafter(DT::kMinModifiedJulianDate, -HUGE_VAL)}) {
        EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([mjd] { (void)DT(mjd); })) << mjd;
    }
    EXPECT_EQ(0, ThrownCode([] { (void)DT(std::nextafter(DT::kEndModifiedJulianDate, 0.0)); }));
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { (void)DT(1582, 10, 10.0, 0.0); }));
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { (void)DT(2004, 3, 5, 24, 0, 0, 0); }));
    v = kMarch5;
    std::tm leap_second = {};
    leap_second.tm_year = 104, leap_second.tm_mon = 2, leap_second.tm_mday = 5;
    leap_second.tm_sec = 60;
    for (long code : {v.Set(leap_second), v.Set(32767, 1, 1.0, 0.0), v.Set(2004, 3, 5, 0, 60, 0, 0),
                      v.Set(2004, 3, 5, 0, 0, 0, 1000), v.Set(2004, 3, 0.5, 0.0), v.Set(-0.25),
                      v.Set(DT::kEndJulianDate), v.Set(2001, 2, 29.0, 0.0)}) {
        EXPECT_EQ(LU_E_INVALID_ARG, code);
    }
    EXPECT_EQ(kMarch5, v);
    EXPECT_EQ(LU_S_OK, v.Set(32766, 12, 31.0, 0.0));
    EXPECT_EQ(DT::kEndModifiedJulianDate - 1.0, v.Day());
    EXPECT_EQ(V(-430315, 20040305), V(DT(-43, 3, 15.0, 0.0).Ymd(), kMarch5.Ymd()));
}

TEST(DateTimeTest, BrokenDownTimeMatchesGmtime) {
    std::mt19937_64 rng(1970);
    const long long end = (static_cast<long long>(DT::kEndModifiedJulianDate) - 40587) * 86400;
    const auto fields = [](const std::tm& t) {
        return V(t.tm_year, t.tm_mon, t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec, t.tm_wday,
                 t.tm_yday, t.tm_isdst);
    };
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        const std::time_t t = i == 0 ? 0 : static_cast<std::time_t>(rng() % end);
        std::tm want = {}, got = {};
        gmtime_r(&t, &want);
        const DT v(static_cast<double>(40587 + t / 86400) + (t % 86400) / 86400.0);
        DT from_tm;
        v.GetTM(got);
        EXPECT_EQ(LU_S_OK, from_tm.Set(want));
        EXPECT_NEAR(v.Day(), from_tm.Day(), 1e-8);
        EXPECT_EQ(fields(want), fields(got)) << t;
    }
}

TEST(DateTimePrintTest, ConversionsFlagsAndWidthsInTheClassicLocale) {
    const DT year_m43(-43, 3, 15.0, 0.5), year0(0, 1, 1.0, 0.0), year1(1, 6, 1.0, 0.0),
        first_day(-4712, 1, 1.0, 0.75), midnight(2004, 3, 5.0, 1 - 0.4 / 86400000), null(nullptr);
    const struct {
        const DT& value;
        std::u16string format, text;
    } rows[] = {
        {kMarch5, u"%a %b %e %H:%M:%S %Y", u"Fri Mar  5 09:07:03 2004"},
        {kMarch5, u"%m/%d/%y|%I:%M:%S %p|%q|%j|%", u"03/05/04|09:07:03 AM|250|065|%"},
        {kMarch5, u"%#d|%5d|%-5d|%05d|%1Y|%f|%Q|%%", u"5|   05|05   |00005|#|2004|Q|%"},
        {kMarch5, u"%A|%B|%c|%C|%D|%E", u"Friday|March|03/05/04 09:07:03|20|03/05/04|2004"},
        {kMarch5, u"%k|%l|%n|%P|%r|%s|%t|%T", u" 9| 9|\n|A.D.|09:07:03 AM|2004|\t|09:07:03"},
        {kMarch5, u"%U|%w|%W|%x|%X|%Z|%y|%M|%S|%H", u"10|5|10|03/05/04|09:07:03||04|07|03|09"},
        {kMarch5, u"%#5d|%-05d|%00d|%4C|%-4C|%04C|%6Y|%-6Y|%06Y",
         u"    5|05   |05|  20|20  |0020|  2004|2004  |002004"},
        {kMarch5, u"%3Q|%-3%|%#e|%10D|%#|ab%#", u"  Q|%  | 5|  03/05/04||ab#"},
        {year_m43, u"%s|%P|%Y|%f|%05Y|%E|%C|%y|%I %p",
         u"44|B.C.|-44|44 B.C.|00-44|0044|0|##|12 PM"},
        {year0, u"%s|%Y|%P|%E|%C|%j", u"1|-1|B.C.|0001|0|001"},
        {year1, u"%s|%Y|%P|%E|%f", u"1|1|B.C.|0000|1 B.C."},  // a first year: the era before
        {first_day, u"%s|%Y|%C|%w|%H", u"4713|-4713|-47|1|18"},
        {midnight, u"%H|%I|%p|%d", u"24|12|PM|05"},
        {null, u"%Y abc", u""},
    };
    for (const auto& r : rows) {
        EXPECT_EQ(r.text, Print(r.value, r.format)) << test_support::Str(r.format);
    }
}

TEST(DateTimePrintTest, OverloadsTraceAndStreamOutput) {
    const ucs2string date = test_support::Str(u"%x"), wide = test_support::Str(u"%40000d%40000d");
    const lu_locale classic = lu_locale::classic(), none(nullptr);
    ucs2string_formatter out(test_support::Utf8("<"));
    ucs2string text = test_support::Str(u"<");
    kMarch5.Print(out, date.data(), classic);
    kMarch5.Print(text, date.data(), classic);
    DT(nullptr).Print(out, date.data(), none);  // nothing, and no facet needed
    DT(nullptr).Print(text, date.data(), none);
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { kMarch5.Print(out, date.data(), none); }));
    EXPECT_EQ(LU_E_STRING_TOO_LONG, ThrownCode([&] { kMarch5.Print(out, wide.data(), classic); }));
    EXPECT_EQ(LU_E_STRING_TOO_LONG, ThrownCode([&] { kMarch5.Print(text, wide.data(), classic); }));
    EXPECT_TRUE(U(out.c_str()) == u"<03/05/04" && test_support::U16(text) == u"<03/05/04");
    std::ostringstream trace, streamed;
    kMarch5.Trace(trace);
    DT(nullptr).Trace(trace);
    streamed << DT(nullptr) << '|' << kMarch5;
    EXPECT_EQ("2004/ 3/ 5  9: 7: 3.0250 (53069.379899)Null date/time\n", trace.str());
    EXPECT_EQ("Null datetime|Fri Mar  5 09:07:03 2004", streamed.str());
}

// The words and the default formats come from the locale's facet.
TEST(DateTimePrintTest, CatalogLocalesPrintTheirOwnWords) {
    EXPECT_EQ(u"Freitag, 05. M\u00E4rz 2004|05.03.04",
              Print(kMarch5, u"%A, %d. %B %Y|%x", lu_locale("de_DE")));
    EXPECT_EQ(u"\u91D1|3\u6708|\u5348\u524D|\u897F\u66A6|2004/03/05 9:07:03",
              Print(kMarch5, u"%a|%b|%p|%P|%c", lu_locale("ja_JP")));
}

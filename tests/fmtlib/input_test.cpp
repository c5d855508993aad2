// Number and date input against readings worked out by hand from the reading and token rules,
// the calendar's verdict on fields that make no date, and a Format/Scan round trip of dates.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_input_date.h"
#include "kai18n/fmtlib/lu_input_number.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/timelib/lu_calendar_time.h"

using namespace FmtLib;
using namespace TimeLib;
using namespace fmt_test;

namespace {

constexpr double kUntouched = -7777.0;

std::unique_ptr<luInputNumber> NumberInput(const char* locale, Prefs prefs = {}) {
    auto settings = Settings(lu_locale(locale), prefs);
    luInputNumber* input = nullptr;
    EXPECT_EQ(0, CreateInputNumber(settings, input));
    return std::unique_ptr<luInputNumber>(input);
}

struct Scanned {
    bool ok;
    int position;
    double value;
};

Scanned ScanText(luInputNumber& input, const std::string& utf8) {
    Scanned s{false, -1, kUntouched};
    s.ok = input.Scan(U(utf8).c_str(), s.value, s.position);
    return s;
}

template <class T>
std::string Formatted(luInputNumber& input, T value) {
    EXPECT_TRUE(input.Format(value));
    return Utf8(input.c_str());
}

// The integer columns: 1 when IsInteger / IsUnsignedInteger give the value (0 for an unwritten
// one), 0 when they refuse it.
TEST(InputNumberTest, ReadsTheFreeFormAndStopsWhereItEnds) {
    // clang-format off
    const struct {
        const char* text;
        bool ok;
        int position;
        double value;  // kUntouched: the result must not be written
        int integer, whole;
    } rows[] = {
        {"", false, 0, kUntouched, 1, 1}, {" \t- 12.50e1x", true, 11, -125, 0, 0},
        {"5.", true, 2, 5, 0, 0}, {".5", true, 2, 0.5, 0, 0},
        {".", false, 1, kUntouched, 0, 0}, {".x", false, 1, kUntouched, 0, 0},  // no fraction
        {"-x", false, 1, kUntouched, 1, 0}, {"1e", false, 2, kUntouched, 1, 1},
        {"1 e 5", true, 5, 100000, 1, 1}, {"1 E - 2", true, 7, 0.01, 0, 0},
        {"1 x", true, 1, 1, 1, 1}, {"+007", true, 4, 7, 1, 1}, {"-0", true, 2, -0.0, 1, 0},
        {"0.000120", true, 8, 0.00012, 0, 0}, {"12e-0", true, 5, 12, 0, 0},
        {"1e309", false, 5, kUntouched, 0, 0}, {"0e999", false, 5, kUntouched, 1, 1},
        {"1e-400", true, 6, 0.0, 0, 0}, {"5e-324", true, 6, 5e-324, 0, 0},
        {"1e-320", true, 6, 1e-320, 0, 0}, {"12e99999999999", false, 14, kUntouched, 0, 0},
        {"2147483647", true, 10, 2147483647.0, 1, 1}, {"2147483648", true, 10, 2147483648.0, 0, 1},
        {"-2147483648", true, 11, -2147483648.0, 1, 0},
        {"-2147483649", true, 11, -2147483649.0, 0, 0},
        {"4294967295", true, 10, 4294967295.0, 0, 1}, {"4294967296", true, 10, 4294967296.0, 0, 0},
        {"100000000000000000000000000001", true, 30, 1e29, 0, 0},
        // the first twenty digits are kept, the last ten only scale
        {"123456789123456789123456789123", true, 30, 1.2345678912345679e29, 0, 0},
    };
    // clang-format on
    auto input = NumberInput("en_US");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const Scanned s = ScanText(*input, row.text);
        EXPECT_EQ(row.ok, s.ok);
        EXPECT_EQ(row.position, s.position);
        EXPECT_DOUBLE_EQ(row.value, s.value);
        EXPECT_EQ(std::signbit(row.value), std::signbit(s.value));
        const double value = row.value == kUntouched ? 0 : row.value;
        long integer = -1;
        unsigned long whole = 1;
        EXPECT_EQ(row.integer == 1, input->IsInteger(integer));
        EXPECT_EQ(row.whole == 1, input->IsUnsignedInteger(whole));
        EXPECT_EQ(row.integer == 1 ? static_cast<long>(value) : -1, integer);  // else untouched
        EXPECT_EQ(row.whole == 1 ? static_cast<unsigned long>(value) : 1, whole);
    }
}

// The grouping point ends a number; '.' is no decimal point in ar_EG; digits of any script, three
// in one number.
TEST(InputNumberTest, LocaleSignsPointsAndDigitsOfAnyScript) {
    const struct {
        const char *locale, *text;
        int position;
        double value;
    } rows[] = {{"de_DE", "-12,5e1 kg", 7, -125},
                {"de_DE", "1.000", 1, 1},
                {"de_DE", ",25", 3, 0.25},
                {"ar_EG", "\u0663\u066B\u0661\u0664", 4, 3.14},
                {"ar_EG", "3.5", 1, 3},
                {"ar_EG", "\u0661\u06F22\u0663", 4, 1223},
                {"ja_JP", "\uFF11\uFF12\uFF13.5", 5, 123.5},
                {"en_US", "\u0967\u0966e\u0968", 4, 1000}};
    for (const auto& row : rows) {
        const Scanned s = ScanText(*NumberInput(row.locale), row.text);
        EXPECT_TRUE(s.ok && s.position == row.position && s.value == row.value)
            << row.locale << " " << row.text << ": " << s.position << " " << s.value;
    }
    // The user's decimal point goes before the locale's.
    auto dotted = NumberInput("de_DE", {{"decimal_point", "."}});
    EXPECT_EQ(0.5, ScanText(*dotted, ".5").value);
    EXPECT_EQ("2.25", Formatted(*dotted, 2.25));
}

TEST(InputNumberTest, FormatWritesWhatScanReads) {
    auto english = NumberInput("en_US");
    // clang-format off
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {1e15, "1e15"},       {999999999999999.0, "999999999999999"},
        {-2.5e16, "-2.5e16"}, {0.0001, "0.0001"},
        {0.00005, "5e-5"},    {-0.000012345, "-1.2345e-5"},
        {-1234.5, "-1234.5"}, {0.1 + 0.2, "0.3"}, {HUGE_VAL, "1.#INF"}, {std::nan(""), "0.#IND"},
    };
    // clang-format on
    for (const auto& row : rows) EXPECT_EQ(row.text, Formatted(*english, row.value)) << row.value;

    // A 64-bit value from 1e15 on keeps its exponent.
    EXPECT_EQ("-42 4294967295 1e17", Formatted(*english, -42l) + " " +
                                         Formatted(*english, 4294967295ul) + " " +
                                         Formatted(*english, 100000000000000000l));
    auto arabic = NumberInput("ar_EG");
    EXPECT_EQ("-\u0661\u0662\u066B\u0665 \u0661e-\u0665",
              Formatted(*arabic, -12.5) + " " + Formatted(*arabic, 0.00001));
    EXPECT_EQ("\u0660", Formatted(*arabic, 0l));
}

// Random values written and read back: exactly for any value of at most 15 significant digits,
// within 1e-14 for any finite bit pattern (extreme exponents included).
TEST(InputNumberTest, ScanOfFormatGivesTheValueBack) {
    std::mt19937_64 random(20261124);
    for (const char* locale : {"en_US", "de_DE", "ar_EG", "ja_JP"}) {
        auto input = NumberInput(locale);
        for (int i = 0; i < 5000; ++i) {
            const double mantissa =
                static_cast<double>(random() % 1000000000000000ull) * (random() % 2 ? 1 : -1);
            const int scale = static_cast<int>(random() % 30) - 15;
            const double exact =
                scale < 0 ? mantissa / std::pow(10.0, -scale) : mantissa * std::pow(10.0, scale);
            double any = 0;
            do {
                const std::uint64_t bits = random();
                std::memcpy(&any, &bits, sizeof any);
            } while (!std::isfinite(any) || std::fabs(any) < 1e-290);
            for (double value : {exact, any}) {
                input->Format(value);
                const std::string text = Utf8(input->c_str());
                const Scanned back = ScanText(*input, text);
                ASSERT_TRUE(back.ok) << locale << " " << text;
                ASSERT_EQ(static_cast<int>(ucs2string(input->c_str()).length()), back.position);
                if (value == exact)
                    ASSERT_EQ(value, back.value) << locale << " " << text;
                else
                    ASSERT_NEAR(value, back.value, std::fabs(value) * 1e-14)
                        << locale << " " << text;
            }
        }
    }
}

std::unique_ptr<luInputDate> DateInput(const char* locale, const std::string& pattern,
                                       int pivot = 2000) {
    std::unique_ptr<luStringFormatDate> serial(CreateSerialStringFormatDate());
    auto settings = Settings(lu_locale(locale));
    luInputDate* input = nullptr;
    EXPECT_EQ(0, CreateInputDate(settings, Parse(*serial, pattern).get(), input, pivot)) << pattern;
    return std::unique_ptr<luInputDate>(input);
}

luCalendarTime At(int year, int month, int day, int hour, int minute, int second) {
    luFields f;
    f.set(Year, year).set(Month, month - 1).set(Day_of_month, day);
    f.set(Hour_of_day, hour).set(Minute, minute).set(Second, second);
    return luCalendarTime(f, luTimeZone::utc());
}

std::string Show(const luCalendarTime& t) {
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.year(), t.month() + 1,
                  t.day_of_month(), t.hour_of_day(), t.minute(), t.second());
    return text;
}

// A row's time after the scan: the date and time read, or kFailed (the value is left as it
// was) or kNoDate (the same, and the calendar refused the fields).
const char *const kFailed = nullptr, *const kNoDate = "";

TEST(InputDateTest, ReadsTokenByTokenAndLeavesTheRestToTheCaller) {
    struct Row {
        const char* text;
        int position;
        const char* time;
    };
    const struct {
        const char *locale, *pattern;
        int pivot;
        std::vector<Row> rows;
    } groups[] = {
        // clang-format off
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, {
            {"31/12/99", 8, "1999-12-31 04:05:06"}, {"1 / 2 / 3", 9, "1903-02-01 04:05:06"},
            {"31/12", 5, kFailed}, {"x", 0, kFailed}, {"123/1/1", 2, kFailed},
            {"31/02/99", 8, kNoDate}, {"1/13/99", 7, kNoDate}}},
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2029, {
            {"1/1/29", 6, "2029-01-01 04:05:06"}, {"1/1/30", 6, "1930-01-01 04:05:06"}}},
        {"en_US", "T[y4]", 2000, {
            {"99", 2, "1999-02-03 04:05:06"}, {"099", 3, "0099-02-03 04:05:06"},
            {" 99", 3, "0099-02-03 04:05:06"}}},  // the blank counts
        {"en_US", "T[12]L[:]T[0m]L[ ]T[am]", 2000, {
            {"12:30 PM", 8, "2001-02-03 12:30:06"}, {"12:30am", 5, kFailed},
            {"12:30  am", 9, "2001-02-03 00:30:06"}, {"13:30 xyz", 6, "2001-02-03 13:30:06"}}},
        {"en_US", "T[023]T[ts]T[0m]", 2000, {
            {"1230", 4, "2001-02-03 12:00:06"}, {"24", 2, kFailed}, {"12x30", 2, kFailed}}},
        {"en_US", "T[024]T[ts]", 2000, {{"24", 2, "2001-02-03 00:05:06"}}},
        // the day name is read past, not checked
        {"en_US", "T[dn]L[, ]T[amt]L[ ]T[d]L[, ]T[y4]", 2000, {
            {"FRIDAY, mAr 5, 2024", 19, "2024-03-05 04:05:06"}}},
        {"en_US", "T[mt]T[0d]", 2000, {{"7", 1, "2001-02-07 04:05:06"}}},
        {"en_US", "T[0d]T[da]T[0M]", 2000, {{"24.11", 2, kFailed}}},
        {"en_US", "T[Adi]", 2000, {{"3/5/2024", 8, "2024-03-05 04:05:06"}}},
        {"de_DE", "T[0d]T[da]T[0M]T[da]T[y4]", 2000, {{"24.11.2026", 10, "2026-11-24 04:05:06"}}},
        {"de_DE", "T[d]L[. ]T[mt]L[ ]T[y4]", 2000, {
            {"3. M\u00C4RZ 2024", 12, "2024-03-03 04:05:06"}, {"3.m\u00E4rz 2024", 2, kFailed},
            {"3. Foo 2024", 3, kFailed}}},
        {"ar_EG", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, {
            {"\u0663\u0661/\u0661\u0662/\u0669\u0669", 8, "1999-12-31 04:05:06"}}},
        {"ar_EG", "T[12]L[:]T[0m]L[ ]T[am]", 2000, {
            {"\u0660\u0662:\u0661\u0665 \u0645", 7, "2001-02-03 14:15:06"}}},
        {"ja_JP", "T[iy2]L[\u5E74]T[M]L[\u6708]T[d]L[\u65E5]", 2000, {
            {"\u5E73\u621011\u5E743\u67085\u65E5", 9, "1999-03-05 04:05:06"},
            {"\u662D\u548C64\u5E741\u67087\u65E5", 9, "1989-01-07 04:05:06"}}},
        {"ja_JP", "T[iy2]L[\u5E74]", 2000, {{"\u4EE4\u548C5\u5E74", 0, kFailed}}},
        {"ja_JP", "T[iyg]L[.]T[0M]L[.]T[0d]", 2000, {{"H11.03.05", 9, "1999-03-05 04:05:06"}}},
        {"ja_JP", "T[iy1]", 2000, {{"11", 2, "1999-02-03 04:05:06"}}},
        {"ja_JP", "T[y4]L[\u5E74]T[mt]T[d]L[\u65E5]", 2000, {
            {"2024\u5E743\u67085\u65E5", 9, "2024-03-05 04:05:06"}}},
        // clang-format on
    };
    for (const auto& group : groups) {
        auto input = DateInput(group.locale, group.pattern, group.pivot);
        for (const Row& row : group.rows) {
            SCOPED_TRACE(std::string(group.locale) + " " + group.pattern + " \"" + row.text + "\"");
            const bool ok = row.time != kFailed && row.time != kNoDate;
            luCalendarTime time = At(2001, 2, 3, 4, 5, 6);
            int position = -1;
            EXPECT_EQ(ok, input->Scan(U(row.text).c_str(), time, position));
            EXPECT_EQ(row.position, position);
            EXPECT_EQ(ok ? row.time : "2001-02-03 04:05:06", Show(time));
            EXPECT_EQ(row.time == kNoDate, input->IsCalendarError());
        }
    }
}

TEST(InputDateTest, PatternsItCannotReadAreRefused) {
    std::unique_ptr<luStringFormatDate> serial(CreateSerialStringFormatDate());
    auto settings = Settings(lu_locale("en_US"));
    for (const char* text : {"T[0ms]", "T[0d]T[era]", "T[tz]", "T[0d]T[FS]L[x]", "T[Cr]T[0d]"}) {
        luInputDate* input = nullptr;
        EXPECT_EQ(LU_E_FAIL, CreateInputDate(settings, Parse(*serial, text).get(), input)) << text;
        EXPECT_EQ(nullptr, input);
    }
    std::unique_ptr<luFmtPattern> empty(CreateDateFmtPattern());
    luInputDate* input = nullptr;
    EXPECT_EQ(LU_E_FAIL, CreateInputDate(settings, empty.get(), input));
    EXPECT_EQ(LU_E_FAIL, CreateInputDate(settings, nullptr, input));
    EXPECT_EQ(nullptr, input);
}

// What Format writes in the locales' own input formats, Scan reads back to the same fields (the
// names, eras and two-digit years of other patterns are read in the rows above).
TEST(InputDateTest, ScanOfFormatGivesTheDateBack) {
    std::mt19937 random(1124);
    for (const char* locale : {"en_US", "de_DE", "ar_EG", "ja_JP"}) {
        auto input = DateInput(locale, "T[Adti]");
        for (int i = 0; i < 1000; ++i) {
            const luCalendarTime when =
                At(1000 + random() % 100, 1 + random() % 12, 1 + random() % 28, random() % 24,
                   random() % 60, random() % 60);
            ASSERT_TRUE(input->Format(when));
            const ucs2string text(input->c_str());
            luCalendarTime back = At(2001, 2, 3, 0, 0, 0);
            int position = -1;
            ASSERT_TRUE(input->Scan(text.c_str(), back, position)) << locale << " " << Utf8(text);
            ASSERT_EQ(static_cast<int>(text.length()), position) << locale << " " << Utf8(text);
            ASSERT_EQ(Show(when), Show(back)) << locale << " " << Utf8(text);
        }
    }
}

}  // namespace

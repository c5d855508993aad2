// The date formatter against texts worked out by hand from the token rules
// and each locale's words, separators and digits.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fmtlib/number_test_support.h"
#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/timelib/lu_calendar_time.h"

using namespace FmtLib;
using namespace TimeLib;
using namespace fmt_test;

namespace {

struct When {
    int era, year, month, day, hour, minute, second, millisecond;
};

// Weekdays by Zeller's congruence, weeks by ISO rules (Monday, four days).
const When kSat1989{1, 1989, 1, 7, 0, 5, 9, 47};     // midnight hour; Showa 64
const When kSun1989{1, 1989, 1, 8, 12, 30, 0, 999};  // noon; Heisei 1
const When kNewYear1989{1, 1989, 1, 1, 6, 0, 0, 0};  // ISO week 52 of 1988
const When kTue2024{1, 2024, 3, 5, 23, 59, 58, 500};
const When kYear987{1, 987, 6, 15, 8, 0, 0, 0};
const When kBc44{0, 44, 3, 15, 10, 0, 0, 0};
const When kMeiji45{1, 1912, 7, 29, 0, 0, 0, 0};
const When kTaisho1{1, 1912, 7, 30, 0, 0, 0, 0};
const When kTaisho15{1, 1926, 12, 24, 0, 0, 0, 0};
const When kShowa1{1, 1926, 12, 25, 0, 0, 0, 0};
const When kMeiji3{1, 1870, 1, 1, 0, 0, 0, 0};
const When kLastOf1869{1, 1869, 12, 31, 0, 0, 0, 0};
const When kYear1868{1, 1868, 10, 23, 0, 0, 0, 0};

luCalendarTime At(const When& w) {
    return luCalendarTime(luFields()
                              .set(Era, w.era)
                              .set(Year, w.year)
                              .set(Month, w.month - 1)
                              .set(Day_of_month, w.day)
                              .set(Hour_of_day, w.hour)
                              .set(Minute, w.minute)
                              .set(Second, w.second)
                              .set(Millisecond, w.millisecond),
                          luTimeZone::utc());
}

std::unique_ptr<luDateFormat> Make(const char* locale, const luFmtPattern* pattern,
                                   long expected = 0) {
    auto settings = Settings(lu_locale(locale));
    luDateFormat* format = nullptr;
    EXPECT_EQ(expected, CreateDateFormat(settings, const_cast<luFmtPattern*>(pattern), format));
    return std::unique_ptr<luDateFormat>(format);
}

// A formatter of a pattern in canonical notation.
std::unique_ptr<luDateFormat> Make(const char* locale, const std::string& text) {
    std::unique_ptr<luStringFormatDate> serial(CreateSerialStringFormatDate());
    auto pattern = Parse(*serial, text);
    return Make(locale, pattern.get());
}

std::string Render(luDateFormat& format, const When& when) {
    format.Format(At(when));
    return Utf8(ucs2string(format.c_str()));
}

struct Row {
    const char* locale;
    const char* pattern;
    When when;
    const char* expected;
};

const Row kRows[] = {
    {"en_US", "T[dn]L[ ]T[dnu]L[ ]T[dnl]L[ ]T[dnc]", kTue2024, "Tuesday TUESDAY tuesday Tuesday"},
    {"en_US", "T[adn]L[ ]T[adnu]L[ ]T[adnl]L[ ]T[adnc]", kSun1989, "Sun SUN sun Sun"},
    {"en_US", "T[mt]L[ ]T[mtu]L[ ]T[mtl]L[ ]T[mtc]", kTue2024, "March MARCH march March"},
    {"en_US", "T[amt]T[amtu]T[amtl]T[amtc]", kYear987, "JunJUNjunJun"},
    {"en_US", "T[am]L[ ]T[amu]L[ ]T[aml]L[ ]T[amc]", kTue2024, "PM PM pm PM"},
    {"en_US", "T[023]T[ts]T[0m]T[ts]T[0s]L[.]T[0ms]L[ ]T[0cs]L[ ]T[tens]", kTue2024,
     "23:59:58.500 50 5"},
    {"en_US", "T[m]L[ ]T[s]L[.]T[0ms]L[ ]T[0cs]L[ ]T[tens]", kSat1989, "5 9.047 04 0"},
    {"en_US", "T[0cs]L[ ]T[tens]", kSun1989, "99 9"},
    {"en_US", "T[12]L[ ]T[012]L[ ]T[11]L[ ]T[011]L[ ]T[24]L[ ]T[024]L[ ]T[23]L[ ]T[023]", kSat1989,
     "12 12 0 00 24 24 0 00"},
    {"en_US", "T[12]L[ ]T[012]L[ ]T[11]L[ ]T[011]L[ ]T[24]L[ ]T[024]L[ ]T[23]L[ ]T[023]", kSun1989,
     "12 12 0 00 12 12 12 12"},
    {"en_US", "T[12]L[ ]T[011]L[ ]T[24]L[ ]T[am]", kTue2024, "11 11 23 PM"},
    {"en_US", "T[M]T[da]T[d]T[da]T[y2]L[ ]T[0M]T[da]T[0d]T[da]T[y4]", kTue2024,
     "3/5/24 03/05/2024"},
    {"en_US", "T[yd]L[ ]T[0yd]L[ ]T[00yd]L[ ]T[0yd]", kNewYear1989, "1 01 001 01"},
    {"en_US", "T[yd]L[ ]T[0yd]L[ ]T[00yd]", kTue2024, "65 65 065"},
    {"en_US", "T[wy]L[ ]T[0wy]L[ ]T[wm]L[ ]T[dowim]L[ ]T[ywoy4]L[ ]T[ywoy2]", kTue2024,
     "10 10 1 1 2024 24"},
    {"en_US", "T[0wy]L[ ]T[ywoy4]L[ ]T[ywoy2]L[ ]T[y4]", kNewYear1989, "52 1988 88 1989"},
    {"en_US", "T[0wy]L[ ]T[ywoy4]", kSat1989, "01 1989"},
    {"en_US", "T[y4]L[-]T[0M]L[-]T[0d]L[ ]T[y2]L[ ]T[era]", kYear987, "0987-06-15 87 AD"},
    {"en_US", "T[y4]L[ ]T[y2]L[ ]T[era]L[ ]T[d]L[ ]T[amt]", kBc44, "0044 44 BC 15 Mar"},
    {"en_US", "T[023]L[ ]T[tz]", kTue2024, "23 "},
    {"en_US", "T[zz]", kTue2024, "#FORMAT"},
    {"de_DE", "T[dnc]L[, ]T[d]L[. ]T[mt]L[ ]T[y4]L[ ]T[era]", kTue2024,
     "Dienstag, 5. März 2024 n. Chr."},
    {"de_DE", "T[mtu]L[ ]T[adnu]L[ ]T[amtl]T[da]T[0d]", kTue2024, "MÄRZ DI. märz.05"},
    {"de_DE", "T[amt]L[ ]T[adn]L[ ]T[era]", kSat1989, "Jan. Sa. n. Chr."},
    {"ja_JP", "T[ip]T[jy]L[年]L[ ]T[iy2]L[ ]T[iyg]L[ ]T[iy1]L[ ]T[jy2]", kSat1989,
     "昭和64年 昭和 64 S64 64 64"},
    {"ja_JP", "T[ip]T[jy]L[年]L[ ]T[iy2]L[ ]T[iyg]L[ ]T[iy1]L[ ]T[jy2]", kSun1989,
     "平成1年 平成 1 H1 1 01"},
    {"ja_JP", "T[iyg]", kMeiji45, "M45"},
    {"ja_JP", "T[iyg]", kTaisho1, "T1"},
    {"ja_JP", "T[iyg]", kTaisho15, "T15"},
    {"ja_JP", "T[iyg]", kShowa1, "S1"},
    {"ja_JP", "T[iyg]L[ ]T[ip]", kMeiji3, "M3 明治"},
    {"ja_JP", "L[<]T[iyg]T[ip]T[iy2]T[iy1]T[jy]T[jy2]L[>]T[y4]", kLastOf1869, "<>1869"},
    {"ja_JP", "L[x]T[ip]T[jy]L[y]T[0M]T[da]T[0d]", kYear1868, "xy10/23"},
    {"ja_JP", "L[<]T[iyg]L[>]T[y4]T[era]", kBc44, "<>0044紀元前"},
    {"ja_JP", "T[y4]L[年]T[M]L[月]T[d]L[日]T[dn]L[ ]T[am]T[12]T[ts]T[0m]L[ ]T[era]", kSat1989,
     "1989年1月7日土曜日 午前12:05 西暦"},
    {"ja_JP", "T[adn]T[amt]T[am]", kSun1989, "日1月午後"},
    {"ar_EG", "T[0d]T[da]T[0M]T[da]T[y4]L[ ]T[023]T[ts]T[0m]", kTue2024, "٠٥/٠٣/٢٠٢٤ ٢٣:٥٩"},
    {"ar_EG", "T[dn]L[ ]T[mt]L[ ]T[am]L[ ]T[era]", kTue2024, "الثلاثاء مارس م م"},
    {"ar_EG", "T[jy2]L[ ]T[adn]L[ ]T[am]L[ ]T[0ms]", kSun1989, "٠١ الأحد م ٩٩٩"},
    {"ar_EG", "T[y4]L[ ]T[era]", kBc44, "٠٠٤٤ ق.م"},
    {"hi_IN", "T[dn]L[, ]T[d]L[ ]T[mt]L[ ]T[y4]", kTue2024, "मंगलवार, 5 मार्च 2024"},
    {"hi_IN", "T[amt]L[ ]T[adn]L[ ]T[am]L[ ]T[amu]L[ ]T[era]", kSat1989, "जन॰ शनि am AM ईस्वी"},
    {"hi_IN", "T[amc]L[ ]T[12]T[ts]T[0m]", kTue2024, "Pm 11:59"},
};

TEST(DateFormatTest, RendersEachTokenByTheLocalesWordsAndDigits) {
    for (const Row& row : kRows) {
        auto format = Make(row.locale, row.pattern);
        ASSERT_TRUE(format != nullptr) << row.pattern;
        EXPECT_EQ(row.expected, Render(*format, row.when)) << row.locale << " " << row.pattern;
        EXPECT_EQ(0, format->Color());
    }
}

// One formatter: the era found for one call is not kept for the next.
TEST(DateFormatTest, EachCallFindsItsOwnJapaneseEra) {
    auto format = Make("ja_JP", "T[iyg]L[ ]T[ip]");
    EXPECT_EQ("S64 昭和", Render(*format, kSat1989));
    EXPECT_EQ("H1 平成", Render(*format, kSun1989));
    EXPECT_EQ(" ", Render(*format, kYear1868));
    EXPECT_EQ("T1 大正", Render(*format, kTaisho1));
}

TEST(DateFormatTest, SectionsGiveColourAndErrorText) {
    auto format = Make("en_US", "T[Cr]T[y4]L[!]T[FS]L[no ]T[Cb]T[y4]L[date]T[FS]L[third]T[Cg]");
    EXPECT_EQ("2024!", Render(*format, kTue2024));
    EXPECT_EQ(3, format->Color());
    EXPECT_TRUE(format->FormatError());
    EXPECT_EQ("no date", Utf8(ucs2string(format->c_str())));
    EXPECT_EQ(5, format->Color());
    EXPECT_EQ("2024!", Render(*format, kTue2024));  // the value section again

    auto plain = Make("en_US", "L[x]T[Cw]L[y]");
    EXPECT_EQ("xy", Render(*plain, kTue2024));
    EXPECT_EQ(2, plain->Color());
    plain->FormatError();
    EXPECT_EQ("", Utf8(ucs2string(plain->c_str())));
    EXPECT_EQ(0, plain->Color());
}

TEST(DateFormatTest, NumberTokensWriteNothing) {
    std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
    pattern->push_back(U("<"));
    for (luFmtTokens t : {TokDigitOrZero, TokDigitOrNothing, TokDecimalSeparator, TokTrue, TokBool,
                          TokTimes100AndSign, TokSign, TokDefaultNumeric})
        pattern->push_back(t);
    pattern->push_back(U(">"));
    pattern->push_back(TokMonthDay0);
    EXPECT_EQ("<>5", Render(*Make("en_US", pattern.get()), kTue2024));
}

TEST(DateFormatTest, ANamedDefaultFormatReplacesThePattern) {
    EXPECT_EQ("3/5/24", Render(*Make("en_US", "T[Cr]L[x]T[Ads]T[FS]L[e]"), kTue2024));
    const struct {
        const char* locale;
        fmtLibDefaultFormats format;
        When when;
        const char* expected;
    } rows[] = {
        {"en_US", FULL_DATE, kSat1989, "Saturday, January 7, 1989"},
        {"en_US", FULL_TIME, kSat1989,
         "12:05:09\u202F"
         "AM "},
        {"de_DE", SHORT_DATE_TIME, kTue2024, "05.03.24, 23:59"},
        {"ja_JP", FULL_TIME, kSat1989, "0時05分09秒 "},
        {"ar_EG", FULL_DATE, kTue2024, "الثلاثاء، ٥ مارس ٢٠٢٤"},
        {"hi_IN", SHORT_DATE, kTue2024, "5/3/24"},
        {"en_US", STANDARD, kTue2024, "#FORMAT"},
        {"en_US", BOOLEAN, kTue2024, "#FORMAT"},
    };
    for (const auto& row : rows) {
        auto settings = Settings(lu_locale(row.locale));
        luDateFormat* format = nullptr;
        ASSERT_EQ(0, CreateDefaultDateFormat(settings, row.format, format)) << row.format;
        std::unique_ptr<luDateFormat> owned(format);
        EXPECT_EQ(row.expected, Render(*owned, row.when)) << row.locale << " " << row.format;
        owned->FormatError();
        EXPECT_EQ("", Utf8(ucs2string(owned->c_str())));
    }
}

TEST(DateFormatTest, FactoriesFailWithoutAUsablePattern) {
    auto settings = Settings(lu_locale("en_US"));
    for (int value : {-1, 15, 19, 21 + 4, 1000}) {
        luDateFormat* format = reinterpret_cast<luDateFormat*>(&settings);
        EXPECT_EQ(LU_E_FAIL, CreateDefaultDateFormat(
                                 settings, static_cast<fmtLibDefaultFormats>(value), format))
            << value;
        EXPECT_EQ(reinterpret_cast<luDateFormat*>(&settings), format);  // untouched
    }
    std::unique_ptr<luFmtPattern> number(CreateNumberFmtPattern());
    number->push_back(TokDigitOrZero);
    EXPECT_EQ(nullptr, Make("en_US", number.get(), LU_E_FAIL));
    EXPECT_EQ(nullptr, Make("en_US", nullptr, LU_E_FAIL));
    ilu_ptr<luSettings> none;
    luDateFormat* format = nullptr;
    EXPECT_EQ(LU_E_FAIL, CreateDefaultDateFormat(none, FULL_DATE, format));
}

}  // namespace

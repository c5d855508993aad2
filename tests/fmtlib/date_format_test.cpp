// The date formatter against texts worked out by hand.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fmt_test_support.h"
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

const When kSat1989{1, 1989, 1, 7, 0, 5, 9, 47};     // midnight hour; Showa 64
const When kSun1989{1, 1989, 1, 8, 12, 30, 0, 999};  // noon; Heisei 1
const When kTue2024{1, 2024, 3, 5, 23, 59, 58, 500};
const When kBc44{0, 44, 3, 15, 10, 0, 0, 0};

std::unique_ptr<luDateFormat> Make(const char* locale, const std::string& text) {
    std::unique_ptr<luStringFormatDate> serial(CreateSerialStringFormatDate());
    auto settings = Settings(lu_locale(locale));
    luDateFormat* format = nullptr;
    EXPECT_EQ(0, CreateDateFormat(settings, Parse(*serial, text).get(), format));
    return std::unique_ptr<luDateFormat>(format);
}

std::string Render(luDateFormat& format, const When& w) {
    luFields f;
    f.set(Era, w.era).set(Year, w.year).set(Month, w.month - 1).set(Day_of_month, w.day);
    f.set(Hour_of_day, w.hour).set(Minute, w.minute).set(Second, w.second);
    format.Format(luCalendarTime(f.set(Millisecond, w.millisecond), luTimeZone::utc()));
    return Utf8(format.c_str());
}

// clang-format off
const struct {
    const char *locale, *pattern;
    When when;
    const char* expected;
} kRows[] = {
    {"en_US", "T[dn]L[ ]T[dnu]L[ ]T[dnl]L[ ]T[adnc]L[ ]T[mtu]L[ ]T[amtl]L[ ]T[amc]", kTue2024,
     "Tuesday TUESDAY tuesday Tue MARCH mar PM"},
    {"en_US", "T[023]T[ts]T[0m]T[ts]T[0s]L[.]T[0ms]L[ ]T[0cs]L[ ]T[tens]T[tz]", kTue2024,
     "23:59:58.500 50 5"},
    {"en_US", "T[m]L[ ]T[s]L[.]T[0ms]L[ ]T[0cs]L[ ]T[tens]L[ ]T[0wy]L[ ]T[ywoy4]", kSat1989,
     "5 9.047 04 0 01 1989"},
    {"en_US", "T[12]L[ ]T[012]L[ ]T[11]L[ ]T[011]L[ ]T[24]L[ ]T[024]L[ ]T[23]L[ ]T[023]", kSat1989,
     "12 12 0 00 24 24 0 00"},
    {"en_US", "T[12]L[ ]T[012]L[ ]T[11]L[ ]T[011]L[ ]T[24]L[ ]T[024]L[ ]T[23]L[ ]T[am]", kSun1989,
     "12 12 0 00 12 12 12 PM"},
    {"en_US", "T[M]T[da]T[d]T[da]T[y2]L[ ]T[0M]T[da]T[0d]T[da]T[y4]", kTue2024,
     "3/5/24 03/05/2024"},
    {"en_US", "T[yd]L[ ]T[0yd]L[ ]T[00yd]L[ ]T[0wy]L[ ]T[ywoy4]L[ ]T[ywoy2]",
     {1, 1989, 1, 1, 6, 0, 0, 0}, "1 01 001 52 1988 88"},  // in ISO week 52 of 1988
    {"en_US", "T[yd]L[ ]T[wy]L[ ]T[wm]L[ ]T[dowim]L[ ]T[ywoy4]", kTue2024, "65 10 1 1 2024"},
    {"en_US", "T[y4]L[-]T[0M]L[-]T[0d]L[ ]T[y2]L[ ]T[era]", {1, 987, 6, 15, 8, 0, 0, 0},
     "0987-06-15 87 AD"},
    {"en_US", "T[y4]L[ ]T[y2]L[ ]T[era]L[ ]T[d]L[ ]T[amt]", kBc44, "0044 44 BC 15 Mar"},
    {"en_US", "T[zz]", kTue2024, "#FORMAT"},
    {"en_US", "T[Cr]L[x]T[Ads]T[FS]L[e]", kTue2024, "3/5/24"},  // a default replaces all
    {"ar_EG", "T[Adf]", kTue2024, "الثلاثاء، ٥ مارس ٢٠٢٤"},
    {"ja_JP", "L[<]T[iyg]L[>]T[y4]T[era]", kBc44, "<>0044紀元前"},
    {"ja_JP", "T[y4]L[年]T[M]L[月]T[d]L[日]T[dn]L[ ]T[am]T[12]T[ts]T[0m]L[ ]T[era]", kSat1989,
     "1989年1月7日土曜日 午前12:05 西暦"},
    {"ar_EG", "T[0d]T[da]T[0M]T[da]T[y4]L[ ]T[023]T[ts]T[0m]", kTue2024, "٠٥/٠٣/٢٠٢٤ ٢٣:٥٩"},
    {"ar_EG", "T[jy2]L[ ]T[adn]L[ ]T[am]L[ ]T[0ms]", kSun1989, "٠١ الأحد م ٩٩٩"},
};
// clang-format on

TEST(DateFormatTest, RendersEachTokenByTheLocalesWordsAndDigits) {
    for (const auto& row : kRows) {
        auto format = Make(row.locale, row.pattern);
        EXPECT_EQ(row.expected, Render(*format, row.when)) << row.locale << " " << row.pattern;
        EXPECT_EQ(0, format->Color());
    }
}

TEST(DateFormatTest, EachCallFindsItsOwnJapaneseEra) {
    auto format = Make("ja_JP", "T[ip]T[jy]L[年]L[ ]T[iy2]L[ ]T[iyg]L[ ]T[iy1]L[ ]T[jy2]");
    EXPECT_EQ("昭和64年 昭和 64 S64 64 64", Render(*format, kSat1989));
    EXPECT_EQ("平成1年 平成 1 H1 1 01", Render(*format, kSun1989));
    EXPECT_EQ("年    ", Render(*format, {1, 1869, 12, 31, 0, 0, 0, 0}));
    EXPECT_EQ("明治3年 明治 3 M3 3 03", Render(*format, {1, 1870, 1, 1, 0, 0, 0, 0}));
    EXPECT_EQ("明治45年 明治 45 M45 45 45", Render(*format, {1, 1912, 7, 29, 0, 0, 0, 0}));
    EXPECT_EQ("大正1年 大正 1 T1 1 01", Render(*format, {1, 1912, 7, 30, 0, 0, 0, 0}));
    EXPECT_EQ("大正15年 大正 15 T15 15 15", Render(*format, {1, 1926, 12, 24, 0, 0, 0, 0}));
    EXPECT_EQ("昭和1年 昭和 1 S1 1 01", Render(*format, {1, 1926, 12, 25, 0, 0, 0, 0}));
}

TEST(DateFormatTest, SectionsGiveColourAndErrorText) {
    auto format = Make("en_US", "T[Cr]T[y4]L[!]T[FS]L[no ]T[Cb]T[y4]L[date]T[FS]L[third]T[Cg]");
    EXPECT_EQ("2024!", Render(*format, kTue2024));
    EXPECT_EQ(3, format->Color());
    EXPECT_TRUE(format->FormatError());
    EXPECT_EQ("no date", Utf8(format->c_str()));
    EXPECT_EQ(5, format->Color());
    EXPECT_EQ("2024!", Render(*format, kTue2024));
    auto plain = Make("en_US", "L[x]T[Cw]L[y]");
    EXPECT_EQ("xy", Render(*plain, kTue2024));
    EXPECT_EQ(2, plain->Color());
    plain->FormatError();
    EXPECT_EQ("", Utf8(plain->c_str()));
    EXPECT_EQ(0, plain->Color());
}

TEST(DateFormatTest, Factories) {
    auto settings = Settings(lu_locale("en_US"));
    std::unique_ptr<luFmtPattern> date(CreateDateFmtPattern()), number(CreateNumberFmtPattern());
    date->push_back(U("<"));
    for (luFmtTokens t : {TokMonthDay0, TokDigitOrZero, TokDigitOrNothing, TokDecimalSeparator,
                          TokTrue, TokBool, TokTimes100AndSign, TokSign, TokDefaultNumeric})
        date->push_back(t);  // number tokens write nothing
    date->push_back(U(">"));
    number->push_back(TokDigitOrZero);
    luDateFormat* format = nullptr;
    EXPECT_EQ(LU_E_FAIL, CreateDateFormat(settings, number.get(), format));
    EXPECT_EQ(nullptr, format);
    EXPECT_EQ(LU_E_FAIL, CreateDateFormat(settings, nullptr, format));
    EXPECT_EQ(nullptr, format);
    ASSERT_EQ(0, CreateDateFormat(settings, date.get(), format));
    EXPECT_EQ("<5>", Render(*std::unique_ptr<luDateFormat>(format), kTue2024));
    for (auto named : {FULL_DATE, STANDARD}) {
        ASSERT_EQ(0, CreateDefaultDateFormat(settings, named, format));
        std::unique_ptr<luDateFormat> owned(format);
        EXPECT_EQ(named == STANDARD ? "#FORMAT" : "Saturday, January 7, 1989",
                  Render(*owned, kSat1989));
    }
    auto* const untouched = reinterpret_cast<luDateFormat*>(&settings);
    for (int value : {-1, 15, 19, 25}) {
        format = untouched;
        EXPECT_EQ(LU_E_FAIL,
                  CreateDefaultDateFormat(settings, fmtLibDefaultFormats(value), format));
        EXPECT_EQ(untouched, format) << value;
    }
    ilu_ptr<luSettings> none;
    EXPECT_EQ(LU_E_FAIL, CreateDefaultDateFormat(none, FULL_DATE, format));
}

}  // namespace

// Date input against readings worked out by hand from the token rules, the
// calendar's verdict on fields that make no date, and Format/Scan round trips.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <random>
#include <string>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_input_date.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/timelib/lu_calendar_time.h"

using namespace FmtLib;
using namespace TimeLib;
using namespace fmt_test;

namespace {

std::unique_ptr<luInputDate> Make(const char* locale, const std::string& pattern,
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

const char kBase[] = "2001-02-03 04:05:06";  // what a failed scan leaves

TEST(InputDateTest, ReadsTokenByTokenAndLeavesTheRestToTheCaller) {
    const struct {
        const char *locale, *pattern;
        int pivot;
        const char* text;
        bool ok;
        int position;
        const char* time;  // after the scan
        bool calendarError = false;
    } rows[] = {
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, "31/12/99", true, 8, "1999-12-31 04:05:06"},
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, "1 / 2 / 3", true, 9, "1903-02-01 04:05:06"},
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, "31/12", false, 5, kBase},
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, "x", false, 0, kBase},
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, "123/1/1", false, 2, kBase},
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, "31/02/99", false, 8, kBase, true},
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, "1/13/99", false, 7, kBase, true},
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2029, "1/1/29", true, 6, "2029-01-01 04:05:06"},
        {"en_US", "T[0d]L[/]T[0M]L[/]T[y2]", 2029, "1/1/30", true, 6, "1930-01-01 04:05:06"},
        {"en_US", "T[y4]", 2000, "99", true, 2, "1999-02-03 04:05:06"},
        {"en_US", "T[y4]", 2000, "099", true, 3, "0099-02-03 04:05:06"},
        {"en_US", "T[y4]", 2000, " 99", true, 3, "0099-02-03 04:05:06"},  // the blank counts
        {"en_US", "T[12]L[:]T[0m]L[ ]T[am]", 2000, "12:30 PM", true, 8, "2001-02-03 12:30:06"},
        {"en_US", "T[12]L[:]T[0m]L[ ]T[am]", 2000, "12:30am", false, 5, kBase},
        {"en_US", "T[12]L[:]T[0m]L[ ]T[am]", 2000, "12:30  am", true, 9, "2001-02-03 00:30:06"},
        {"en_US", "T[12]L[:]T[0m]L[ ]T[am]", 2000, "13:30 xyz", true, 6, "2001-02-03 13:30:06"},
        {"en_US", "T[023]T[ts]T[0m]", 2000, "1230", true, 4, "2001-02-03 12:00:06"},
        {"en_US", "T[023]T[ts]T[0m]", 2000, "24", false, 2, kBase},
        {"en_US", "T[024]T[ts]", 2000, "24", true, 2, "2001-02-03 00:05:06"},
        {"en_US", "T[023]T[ts]T[0m]", 2000, "12x30", false, 2, kBase},
        {"en_US", "T[dn]L[, ]T[amt]L[ ]T[d]L[, ]T[y4]", 2000, "FRIDAY, mAr 5, 2024", true, 19,
         "2024-03-05 04:05:06"},  // the day name is read past, not checked
        {"en_US", "T[mt]T[0d]", 2000, "7", true, 1, "2001-02-07 04:05:06"},
        {"en_US", "T[0d]T[da]T[0M]", 2000, "24.11", false, 2, kBase},
        {"en_US", "T[Adi]", 2000, "3/5/2024", true, 8, "2024-03-05 04:05:06"},
        {"de_DE", "T[0d]T[da]T[0M]T[da]T[y4]", 2000, "24.11.2026", true, 10, "2026-11-24 04:05:06"},
        {"de_DE", "T[d]L[. ]T[mt]L[ ]T[y4]", 2000, "3. M\u00C4RZ 2024", true, 12,
         "2024-03-03 04:05:06"},
        {"de_DE", "T[d]L[. ]T[mt]L[ ]T[y4]", 2000, "3.m\u00E4rz 2024", false, 2, kBase},
        {"de_DE", "T[d]L[. ]T[mt]L[ ]T[y4]", 2000, "3. Foo 2024", false, 3, kBase},
        {"ar_EG", "T[0d]L[/]T[0M]L[/]T[y2]", 2000, "\u0663\u0661/\u0661\u0662/\u0669\u0669", true,
         8, "1999-12-31 04:05:06"},
        {"ar_EG", "T[12]L[:]T[0m]L[ ]T[am]", 2000, "\u0660\u0662:\u0661\u0665 \u0645", true, 7,
         "2001-02-03 14:15:06"},
        {"ja_JP", "T[iy2]L[\u5E74]T[M]L[\u6708]T[d]L[\u65E5]", 2000,
         "\u5E73\u621011\u5E743\u67085\u65E5", true, 9, "1999-03-05 04:05:06"},
        {"ja_JP", "T[iy2]L[\u5E74]T[M]L[\u6708]T[d]L[\u65E5]", 2000,
         "\u662D\u548C64\u5E741\u67087\u65E5", true, 9, "1989-01-07 04:05:06"},
        {"ja_JP", "T[iy2]L[\u5E74]", 2000, "\u4EE4\u548C5\u5E74", false, 0, kBase},
        {"ja_JP", "T[iyg]L[.]T[0M]L[.]T[0d]", 2000, "H11.03.05", true, 9, "1999-03-05 04:05:06"},
        {"ja_JP", "T[iy1]", 2000, "11", true, 2, "1999-02-03 04:05:06"},
        {"ja_JP", "T[y4]L[\u5E74]T[mt]T[d]L[\u65E5]", 2000, "2024\u5E743\u67085\u65E5", true, 9,
         "2024-03-05 04:05:06"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.locale) + " " + row.pattern + " \"" + row.text + "\"");
        auto input = Make(row.locale, row.pattern, row.pivot);
        luCalendarTime time = At(2001, 2, 3, 4, 5, 6);
        int position = -1;
        EXPECT_EQ(row.ok, input->Scan(U(row.text).c_str(), time, position));
        EXPECT_EQ(row.position, position);
        EXPECT_EQ(row.time, Show(time));
        EXPECT_EQ(row.calendarError, input->IsCalendarError());
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

// What Format writes, Scan reads back to the same fields: the locales' own
// input formats and patterns with names, eras and two-digit years.
TEST(InputDateTest, ScanOfFormatGivesTheDateBack) {
    // clang-format off
    const struct {
        const char *locale, *pattern;
        int pivot, firstYear;
        bool hasTime;
    } cases[] = {
        {"en_US", "T[Adti]", 2000, 1000, true}, {"de_DE", "T[Adti]", 2000, 1000, true},
        {"ar_EG", "T[Adti]", 2000, 1000, true}, {"ja_JP", "T[Adti]", 2000, 1000, true},
        {"de_DE", "T[dn]L[, ]T[d]L[. ]T[mt]L[ ]T[y4]L[ ]T[023]T[ts]T[0m]T[ts]T[0s]", 2000, 1000,
         true},
        {"en_US", "T[adnc]L[ ]T[amtu]L[ ]T[0d]L[ ]T[y2]", 2050, 1951, false},
        {"ja_JP", "T[iy2]L[\u5E74]T[M]L[\u6708]T[d]L[\u65E5]", 2000, 1990, false},
    };
    // clang-format on
    std::mt19937 random(1124);
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.locale) + " " + c.pattern);
        auto input = Make(c.locale, c.pattern, c.pivot);
        const int years = c.firstYear == 1990 ? 29 : 100;
        for (int i = 0; i < 1000; ++i) {
            const luCalendarTime when =
                At(c.firstYear + static_cast<int>(random() % years), 1 + random() % 12,
                   1 + random() % 28, c.hasTime ? random() % 24 : 0, c.hasTime ? random() % 60 : 0,
                   c.hasTime ? random() % 60 : 0);
            ASSERT_TRUE(input->Format(when));
            const ucs2string text(input->c_str());
            luCalendarTime back = At(2001, 2, 3, 0, 0, 0);
            int position = -1;
            ASSERT_TRUE(input->Scan(text.c_str(), back, position)) << Utf8(text);
            ASSERT_EQ(static_cast<int>(text.length()), position) << Utf8(text);
            ASSERT_EQ(Show(when), Show(back)) << Utf8(text);
        }
    }
}

}  // namespace

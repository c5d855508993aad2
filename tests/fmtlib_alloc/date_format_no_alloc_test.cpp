// The date formatter allocates nothing while a result fits its 500 inline units.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fmtlib/number_test_support.h"
#include "fmtlib_alloc/allocation_counter.h"
#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/timelib/lu_calendar_time.h"

using namespace FmtLib;
using namespace TimeLib;
using namespace fmt_test;

namespace {

luCalendarTime At(int era, int year, int month, int day, int hour) {
    luFields f;
    f.set(Era, era).set(Year, year).set(Month, month - 1).set(Day_of_month, day);
    f.set(Hour_of_day, hour).set(Minute, 7).set(Second, 8).set(Millisecond, 9);
    return luCalendarTime(f, luTimeZone::utc());
}

TEST(DateFormatNoAllocTest, FormattingAllocatesNothing) {
    if (!CountsTheCHeap()) GTEST_SKIP() << "the C heap is not counted in this build";
    EXPECT_LE(1, AllocationsOf([] { ucs2string text(U("a text on the heap")); }));  // counted
    // Every date token behind a literal, tokens that write nothing or "#FORMAT", an error section.
    std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
    for (int id = 10; id <= 71; ++id) {
        pattern->push_back(U("|"));
        pattern->push_back(static_cast<luFmtTokens>(id));
    }
    for (luFmtTokens id : {TokError, TokDigitOrZero, TokRed, TokFormatSeparator})
        pattern->push_back(id);
    pattern->push_back(U("no date"));
    const luCalendarTime times[] = {At(1, 1989, 1, 7, 0),  At(1, 1989, 1, 8, 12),
                                    At(1, 2024, 3, 5, 23), At(1, 987, 6, 15, 8),
                                    At(0, 44, 3, 15, 10),  At(1, 1868, 10, 23, 1)};
    for (const char* name : {"en_US", "de_DE", "ja_JP", "ar_EG", "hi_IN"}) {
        auto settings = Settings(lu_locale(name));
        luDateFormat *format = nullptr, *byName = nullptr;
        ASSERT_EQ(0, CreateDateFormat(settings, pattern.get(), format));
        ASSERT_EQ(0, CreateDefaultDateFormat(settings, FULL_DATE_TIME, byName));
        std::unique_ptr<luDateFormat> owned(format), ownedByName(byName);
        for (const luCalendarTime& time : times) {
            EXPECT_EQ(0, AllocationsOf([&] { format->Format(time); })) << name;
            EXPECT_LT(100u, ucs2string(format->c_str()).length());
            EXPECT_EQ(0, AllocationsOf([&] { byName->Format(time); })) << name;
        }
        EXPECT_EQ(0, AllocationsOf([&] { format->FormatError(); })) << name;
    }
    // 499 units and the terminator fill the inline buffer; one more unit needs the heap once.
    auto settings = Settings(lu_locale("en_US"));
    for (unsigned int literal : {497u, 498u}) {
        pattern.reset(CreateDateFmtPattern());
        pattern->push_back(U(std::string(literal, 'x')));
        pattern->push_back(TokMonthDay00);
        luDateFormat* format = nullptr;
        ASSERT_EQ(0, CreateDateFormat(settings, pattern.get(), format));
        std::unique_ptr<luDateFormat> owned(format);
        EXPECT_EQ(literal == 497u, AllocationsOf([&] { format->Format(times[0]); }) == 0);
        EXPECT_EQ(literal + 2, ucs2string(format->c_str()).length());
        EXPECT_EQ(0, AllocationsOf([&] { format->Format(times[0]); })) << literal;
    }
}

}  // namespace

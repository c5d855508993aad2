// The date formatter allocates nothing while it formats, as long as a result
// stays within its 500 inline units; 500 units allocate once.
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
    return luCalendarTime(luFields()
                              .set(Era, era)
                              .set(Year, year)
                              .set(Month, month - 1)
                              .set(Day_of_month, day)
                              .set(Hour_of_day, hour)
                              .set(Minute, 7)
                              .set(Second, 8)
                              .set(Millisecond, 9),
                          luTimeZone::utc());
}

std::unique_ptr<luDateFormat> Make(ilu_ptr<luSettings>& settings, const luFmtPattern& pattern) {
    luDateFormat* format = nullptr;
    EXPECT_EQ(0, CreateDateFormat(settings, const_cast<luFmtPattern*>(&pattern), format));
    return std::unique_ptr<luDateFormat>(format);
}

// Every date token, each behind a literal, then tokens that write nothing or
// "#FORMAT", and an error section.
std::unique_ptr<luFmtPattern> EveryToken() {
    std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
    for (int id = 10; id <= 71; ++id) {
        pattern->push_back(U("|"));
        pattern->push_back(static_cast<luFmtTokens>(id));
    }
    for (luFmtTokens id : {TokError, TokDigitOrZero, TokRed, TokFormatSeparator})
        pattern->push_back(id);
    pattern->push_back(U("no date"));
    return pattern;
}

// The library's strings take their memory from malloc, which is counted only
// outside AddressSanitizer.
bool Counting() {
    return CountsTheCHeap();
}

TEST(DateFormatNoAllocTest, TheCounterCounts) {
    if (!Counting()) GTEST_SKIP() << "the C heap is not counted in this build";
    // Through a volatile pointer, which the compiler may not see through, so
    // that it keeps the allocations.
    static int* volatile number;
    static void* volatile block;
    EXPECT_EQ(1, AllocationsOf([] { number = new int(1); }));
    delete number;
    EXPECT_EQ(1, AllocationsOf([] { block = std::calloc(2, 8); }));
    std::free(block);
    EXPECT_LE(1, AllocationsOf([] { ucs2string text(U("a text on the heap")); }));
}

TEST(DateFormatNoAllocTest, FormattingAllocatesNothing) {
    if (!Counting()) GTEST_SKIP() << "the C heap is not counted in this build";
    const auto pattern = EveryToken();
    const luCalendarTime times[] = {At(1, 1989, 1, 7, 0),  At(1, 1989, 1, 8, 12),
                                    At(1, 2024, 3, 5, 23), At(1, 987, 6, 15, 8),
                                    At(0, 44, 3, 15, 10),  At(1, 1868, 10, 23, 1)};
    for (const char* name : {"en_US", "de_DE", "ja_JP", "ar_EG", "hi_IN"}) {
        auto settings = Settings(lu_locale(name));
        auto format = Make(settings, *pattern);
        ASSERT_TRUE(format != nullptr);
        for (const luCalendarTime& time : times) {
            EXPECT_EQ(0, AllocationsOf([&] { format->Format(time); })) << name;
            EXPECT_LT(100u, ucs2string(format->c_str()).length());
        }
        EXPECT_EQ(0, AllocationsOf([&] { format->FormatError(); })) << name;
        for (fmtLibDefaultFormats named : {FULL_DATE_TIME, SHORT_DATE, STANDARD}) {
            luDateFormat* byName = nullptr;
            ASSERT_EQ(0, CreateDefaultDateFormat(settings, named, byName));
            std::unique_ptr<luDateFormat> owned(byName);
            EXPECT_EQ(0, AllocationsOf([&] { owned->Format(times[0]); })) << name << named;
        }
    }
}

// 499 units and the terminator fill the inline buffer; one more unit needs
// the heap, and the room is kept for the next results.
TEST(DateFormatNoAllocTest, TheInlineBufferEndsAt500Units) {
    if (!Counting()) GTEST_SKIP() << "the C heap is not counted in this build";
    auto settings = Settings(lu_locale("en_US"));
    const luCalendarTime time = At(1, 2024, 3, 5, 23);
    for (unsigned int literal : {497u, 498u}) {
        std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
        pattern->push_back(U(std::string(literal, 'x')));
        pattern->push_back(TokMonthDay00);  // two units
        auto format = Make(settings, *pattern);
        const bool fits = literal + 2 < 500;
        EXPECT_EQ(fits, AllocationsOf([&] { format->Format(time); }) == 0) << literal;
        EXPECT_EQ(literal + 2, ucs2string(format->c_str()).length());
        EXPECT_EQ(0, AllocationsOf([&] { format->Format(time); })) << literal;
    }
}

}  // namespace

// The number and date formatters allocate nothing while a result fits their
// 500 inline units. The program counts every call of malloc and realloc,
// where operator new takes its memory too; under AddressSanitizer, which owns
// the C heap, nothing is counted and the tests are skipped.
#include <gtest/gtest.h>

#include <atomic>
#include <climits>
#include <cstdlib>
#include <limits>
#include <memory>
#include <string>

#include "fmtlib/fmt_test_support.h"
#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/timelib/lu_calendar_time.h"

#if defined(__SANITIZE_ADDRESS__)
#define KAI18N_COUNTED 0
#elif defined(__has_feature)
#define KAI18N_COUNTED !__has_feature(address_sanitizer)
#else
#define KAI18N_COUNTED 1
#endif

namespace {
std::atomic<long> g_allocations{0};
}  // namespace

#if KAI18N_COUNTED
// Counted and handed on to the C library, so that either side may free.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* malloc(std::size_t size) noexcept {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}
void* realloc(void* memory, std::size_t size) noexcept {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(memory, size);
}
}
#endif

using namespace FmtLib;
using namespace TimeLib;
using namespace fmt_test;

namespace {

template <class Action>
long AllocationsOf(Action&& action) {
    const long before = g_allocations.load();
    action();
    return g_allocations.load() - before;
}

class NoAllocTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!KAI18N_COUNTED) GTEST_SKIP() << "the C heap is not counted in this build";
        // The pointer passes through a volatile store: a new-expression whose
        // memory is never looked at may be left out by the compiler.
        ASSERT_EQ(1, AllocationsOf([] {
                      char* volatile p = new char[3];
                      delete[] p;
                  }));
    }
};

std::unique_ptr<luNumberFormat> MakeNumber(ilu_ptr<luSettings>& settings, const std::string& text) {
    std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("en", nullptr));
    luNumberFormat* format = nullptr;
    EXPECT_EQ(0, CreateNumberFormat(settings, Parse(*ombrin, text).get(), format)) << text;
    return std::unique_ptr<luNumberFormat>(format);
}

TEST_F(NoAllocTest, NumberFormatsWithinTheInlineBuffer) {
    auto settings = Settings(GroupedLocale({3}), {{"true_word", "yes"}});
    const double kNaN = std::numeric_limits<double>::quiet_NaN();
    for (const char* text :
         {"#,##0.00", "##0.0E+0", "0.0<times 100 and sign>", "<bool>", "STANDARD",
          "[Red]#,##0' EUR';[Blue](#,##0)' EUR';[Green]'0';'none'", "0\\"}) {
        auto format = MakeNumber(settings, text);
        luNumberFormat& f = *format;
        for (double value : {0.0, -1234.5, 0.125, 1e300, -1e-300, kNaN, 123456789012345678.0})
            EXPECT_EQ(0, AllocationsOf([&] { f.Format(value); })) << text << " " << value;
        EXPECT_EQ(0, AllocationsOf([&] { f.Format(LONG_MIN); })) << text;
        EXPECT_EQ(0, AllocationsOf([&] { f.Format(ULONG_MAX); })) << text;
        EXPECT_EQ(0, AllocationsOf([&] { f.FormatError(); })) << text;
    }
    // 499 units and the terminator fill the buffer; beyond it a result
    // allocates once and keeps the room for later results.
    const std::string x498(498, 'x'), x600(600, 'x'), e600(600, 'e');
    // clang-format off
    const struct {
        std::string pattern;
        double value;
        std::size_t length;
        bool allocates;
    } rows[] = {{"#,##0", 9.99999999999999e255, 341, false},  // 256 digits, 85 separators
                {"'" + x498 + "'0", 5, 499, false}, {"'x" + x498 + "'0", 5, 500, true},
                {"'" + x600 + "'0;;;'" + e600 + "'", 1, 601, true}};
    // clang-format on
    for (const auto& row : rows) {
        auto format = MakeNumber(settings, row.pattern);
        EXPECT_EQ(row.allocates, AllocationsOf([&] { format->Format(row.value); }) > 0);
        EXPECT_EQ(row.length, ucs2string(format->c_str()).length());
        EXPECT_EQ(0, AllocationsOf([&] { format->Format(2L); })) << row.length;
        EXPECT_EQ(0, AllocationsOf([&] { format->FormatError(); })) << row.length;
    }
    auto error = MakeNumber(settings, "0;;;'" + e600 + "'");  // the error text alone
    EXPECT_EQ(0, AllocationsOf([&] { error->Format(3.0); }));
    EXPECT_LE(1, AllocationsOf([&] { error->FormatError(); }));
}

TEST_F(NoAllocTest, DatesFormatWithinTheInlineBuffer) {
    // Every date token behind a literal, tokens that write nothing or
    // "#FORMAT", and an error section.
    std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
    for (int id = 10; id <= 71; ++id) {
        pattern->push_back(U("|"));
        pattern->push_back(static_cast<luFmtTokens>(id));
    }
    for (luFmtTokens id : {TokError, TokDigitOrZero, TokRed, TokFormatSeparator})
        pattern->push_back(id);
    pattern->push_back(U("no date"));
    luFields f;
    f.set(Year, 44).set(Month, 2).set(Day_of_month, 7).set(Hour_of_day, 12).set(Minute, 7);
    const luCalendarTime times[] = {
        luCalendarTime(f.set(Era, 0), luTimeZone::utc()),
        luCalendarTime(f.set(Era, 1).set(Year, 1989), luTimeZone::utc())};
    auto settings = Settings(lu_locale("ja_JP"));
    luDateFormat* format = nullptr;
    ASSERT_EQ(0, CreateDateFormat(settings, pattern.get(), format));
    std::unique_ptr<luDateFormat> owned(format);
    for (const luCalendarTime& time : times) {
        EXPECT_EQ(0, AllocationsOf([&] { format->Format(time); }));
        EXPECT_LT(100u, ucs2string(format->c_str()).length());
    }
    EXPECT_EQ(0, AllocationsOf([&] { format->FormatError(); }));
    for (unsigned int literal : {497u, 498u}) {
        pattern.reset(CreateDateFmtPattern());
        pattern->push_back(U(std::string(literal, 'x')));
        pattern->push_back(TokMonthDay00);
        ASSERT_EQ(0, CreateDateFormat(settings, pattern.get(), format));
        owned.reset(format);
        EXPECT_EQ(literal == 497u, AllocationsOf([&] { format->Format(times[1]); }) == 0);
        EXPECT_EQ(literal + 2, ucs2string(format->c_str()).length());
        EXPECT_EQ(0, AllocationsOf([&] { format->Format(times[1]); })) << literal;
    }
}

}  // namespace

// The number formatter allocates nothing while it formats, as long as a
// result stays within its 500 inline units; a result longer than the inline
// buffer shows that the counting works.
#include <gtest/gtest.h>

#include <atomic>
#include <climits>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <string>

#include "fmtlib/number_test_support.h"
#include "fmtlib_alloc/allocation_counter.h"
#include "kai18n/fmtlib/lu_number_format.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

std::unique_ptr<luNumberFormat> Make(ilu_ptr<luSettings>& settings, const std::string& text) {
    std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("en", nullptr));
    auto pattern = Parse(*ombrin, text);
    luNumberFormat* format = nullptr;
    EXPECT_EQ(0, CreateNumberFormat(settings, pattern.get(), format)) << text;
    return std::unique_ptr<luNumberFormat>(format);
}

// The pointers pass through volatile stores: a new-expression whose memory
// is never looked at may be left out by the compiler.
TEST(NumberFormatNoAllocTest, TheCounterCounts) {
    struct alignas(64) Wide {
        char bytes[64];
    };
    EXPECT_EQ(1, AllocationsOf([] {
                  int* volatile p = new int(1);
                  delete p;
              }));
    EXPECT_EQ(1, AllocationsOf([] {
                  char* volatile p = new (std::nothrow) char[3];
                  delete[] p;
              }));
    EXPECT_EQ(1, AllocationsOf([] {
                  Wide* volatile p = new Wide();
                  delete p;
              }));
    if (CountsTheCHeap()) {
        EXPECT_EQ(1, AllocationsOf([] {
                      void* volatile p = std::malloc(10);
                      std::free(p);
                  }));
        // The library's strings take their memory from malloc.
        EXPECT_LE(1, AllocationsOf([] { ucs2string text(U("a text on the heap")); }));
    }
}

TEST(NumberFormatNoAllocTest, FormattingAllocatesNothing) {
    auto settings = Settings(GroupedLocale({3}), {{"true_word", "yes"}});
    // The last one cannot be read: #FORMAT.
    const char* const patterns[] = {
        "#,##0.00",
        "0.00E+00",
        "##0.0E+0",
        "0.0<times 100 and sign>",
        "<bool>",
        "<true>;<true>;<false>",
        "BOOLEAN",
        "STANDARD",
        "SCIENTIFIC",
        "[Red]#,##0.00' EUR';[Blue](#,##0.00)' EUR';[Green]'nothing';[Cyan]'no value'",
        "0\\"};
    const double doubles[] = {0,     -0.0,    1234.5, -1234.5, 0.125, 1e15,
                              1e300, -1e-300, kNaN,   kInf,    -kInf, 123456789012345678.0};
    const long longs[] = {0, 7, -1234567, LONG_MIN, LONG_MAX};
    const unsigned long unsigneds[] = {0, 42, ULONG_MAX};
    for (const char* text : patterns) {
        auto format = Make(settings, text);
        ASSERT_TRUE(format != nullptr) << text;
        luNumberFormat& f = *format;
        for (double value : doubles)
            EXPECT_EQ(0, AllocationsOf([&] { f.Format(value); })) << text << " " << value;
        for (long value : longs)
            EXPECT_EQ(0, AllocationsOf([&] { f.Format(value); })) << text << " " << value;
        for (unsigned long value : unsigneds)
            EXPECT_EQ(0, AllocationsOf([&] { f.Format(value); })) << text << " " << value;
        EXPECT_EQ(0, AllocationsOf([&] { f.FormatError(); })) << text;
    }
}

// The result buffer holds 500 units inline, its terminator included; beyond
// that it allocates once and keeps the room for later results.
TEST(NumberFormatNoAllocTest, TheInlineBufferEndsAt500Units) {
    auto settings = Settings(GroupedLocale({3}));
    const std::string x498(498, 'x'), x600(600, 'x'), e600(600, 'e');
    const struct {
        std::string pattern;
        double value;
        std::size_t length;
        bool allocates;
    } rows[] = {{"#,##0", 9.99999999999999e255, 341, false},  // 256 digits, 85 separators
                {"'" + x498 + "'0", 5, 499, false},
                {"'x" + x498 + "'0", 5, 500, true},
                {"'" + x600 + "'0;;;'" + e600 + "'", 1, 601, true},
                {"0;;;'" + e600 + "'", 3, 1, false}};
    for (const auto& row : rows) {
        auto format = Make(settings, row.pattern);
        ASSERT_TRUE(format != nullptr);
        EXPECT_EQ(row.allocates, AllocationsOf([&] { format->Format(row.value); }) > 0)
            << row.length;
        EXPECT_EQ(row.length, ucs2string(format->c_str()).length());
    }
    // The room is kept: the next results of that size need nothing.
    auto kept = Make(settings, "'" + x600 + "'0;;;'" + e600 + "'");
    kept->Format(1.0);
    EXPECT_EQ(0, AllocationsOf([&] { kept->Format(2L); }));
    EXPECT_EQ(0, AllocationsOf([&] { kept->FormatError(); }));
    EXPECT_EQ(602u, ucs2string(kept->c_str()).length());  // quotes and all
    // The error text alone may outgrow the buffer too.
    auto error = Make(settings, "0;;;'" + e600 + "'");
    EXPECT_LE(1, AllocationsOf([&] { error->FormatError(); }));
}

}  // namespace

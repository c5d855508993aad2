#include "kai18n/strings/strprintf.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <utility>

#include "test_support.h"

using namespace test_support;

namespace {

const unsigned short* W(const char16_t* text) {
    return reinterpret_cast<const unsigned short*>(text);
}

// The result of strprintf and the text it leaves in the target.
using Formatted = std::pair<int, std::u16string>;

// Formats twice from one va_list, which vstrprintf reads through a copy, so both agree.
Formatted FormatTwice(const unsigned short* format, ...) {
    va_list args;
    va_start(args, format);
    ucs2string first = Str(u"previous"), second;
    const int result = vstrprintf(first, format, args);
    EXPECT_EQ(vstrprintf(second, format, args), result);
    va_end(args);
    EXPECT_EQ(U16(second), U16(first));
    return Formatted(result, U16(first));
}

template <class... Args>
Formatted Format(const std::u16string& format, Args... args) {
    return FormatTwice(W(format.c_str()), args...);
}

// Numbers and pointers are compared with the narrow printf of the C runtime, a formatter
// independent of the code under test. Formats and results are ASCII, so each char is one unit.
template <class... Args>
void ExpectLikeSnprintf(const std::string& format, Args... args) {
    char expected[4096];
    const int length = std::snprintf(expected, sizeof expected, format.c_str(), args...);
    ASSERT_TRUE(length >= 0 && length < 4096) << format;
    EXPECT_EQ(Format(std::u16string(format.begin(), format.end()), args...),
              Formatted(length, std::u16string(expected, expected + length)));
}

TEST(StrprintfTest, NumbersAndPointersMatchTheRuntime) {
    for (const int value : {0, 1, -42, INT_MAX, INT_MIN}) {
        for (const char* format : {"%d", "%i", "[%6d]", "[%-6d]", "%06d", "%+d", "% d", "%.4d",
                                   "%+.0d", "%u", "%#o", "%x", "%#X", "[%08.3x]", "%.0x"})
            ExpectLikeSnprintf(format, value);
        ExpectLikeSnprintf("[%*d|%*d|%.*d|%.*d]", 7, value, -7, value, 5, value, -5, value);
    }
    // Each length modifier reads its own type; narrow ones convert the int.
    ExpectLikeSnprintf("%hhd %hhu %hd %hu", 0x1F0, -1, 70000, -1);
    ExpectLikeSnprintf("%ld %lu %lld %llX", LONG_MIN, ULONG_MAX, LLONG_MIN, 0xDEADBEEFCAFEull);
    ExpectLikeSnprintf("%jd %ju %zu %td", INTMAX_MIN, UINTMAX_MAX, SIZE_MAX, PTRDIFF_MIN);
    EXPECT_EQ(
        Format(u"%I64d %I32d %qd %Iu", LLONG_MIN, -7, -9000000000ll, std::size_t{5000000000u}),
        Formatted(46, u"-9223372036854775808 -7 -9000000000 5000000000"));
    for (const double value : {0.0, -0.0, -1.5, 0.1, 1e-300, 1e308, HUGE_VAL, std::nan("")}) {
        for (const char* format : {"%f", "%F", "%.2e", "%E", "%g", "%#G", "%.17g", "%a", "%A",
                                   "[%12.3f]", "[%-12.3e]", "%+.0f", "% 015.4f", "%lf"})
            ExpectLikeSnprintf(format, value);
    }
    ExpectLikeSnprintf("%Lf %.3Le %Lg %La", -2.5L, 1.1e1000L, -2.5L, 1.1e1000L);
    int object = 0;
    ExpectLikeSnprintf("%p [%20p]", static_cast<void*>(&object), static_cast<void*>(nullptr));
}

TEST(StrprintfTest, StringsAndCharactersAreUtf16AndMeasuredInUnits) {
    // A pair counts two units, in widths and precisions too.
    const Formatted plain = Format(u"<%s>%ls%ws%lS%wS[%3s][%.2s]", W(u"a\U0001F600b"), W(u"1"),
                                   W(u"2"), W(u"3"), W(u"4"), W(u"\U0001F600"), W(u"\U0001F600x"));
    EXPECT_EQ(plain, Formatted(19, u"<a\U0001F600b>1234[ \U0001F600][\U0001F600]"));
    const unsigned short* ab = W(u"ab");
    EXPECT_EQ(Format(u"[%5s][%-5s][%1s][%.1s][%.0s][%5.1s][%05s][%*s][%*s][%.*s][%.*s]", ab, ab, ab,
                     ab, ab, ab, ab, 4, ab, -4, ab, 1, ab, -1, ab),
              Formatted(56, u"[   ab][ab   ][ab][a][][    a][   ab][  ab][ab  ][a][ab]"));
    // Nothing past the precision is read: the text need not be terminated.
    const unsigned short unterminated[3] = {'x', 'y', 'z'};
    EXPECT_EQ(Format(u"%.3s", unterminated), Formatted(3, u"xyz"));
    EXPECT_EQ(Format(u"[%s][%8S]", W(nullptr), static_cast<const char*>(nullptr)),
              Formatted(18, u"[(null)][  (null)]"));
    // Narrow strings and characters widen byte by byte; only the low byte of a narrow %c counts.
    EXPECT_EQ(Format(u"%hs/%S/[%-6hS]/[%.2S]", "one", "two", "na\xEFve", "abc"),
              Formatted(21, u"one/two/[na\u00EFve ]/[ab]"));
    EXPECT_EQ(Format(u"%c%lc%wc%lC|%hc%C%hC|[%3c][%-3c]", 'a', 0x20AC, 0xE9, 'z', 0x1E9, 'q', 0x141,
                     'x', 'y'),
              Formatted(19, u"a\u20AC\u00E9z|\u00E9qA|[  x][y  ]"));
    // A zero unit ends the text but not the count.
    EXPECT_EQ(Format(u"a%cbc", 0), Formatted(4, u"a"));
}

TEST(StrprintfTest, WhatIsNotAConversion) {
    EXPECT_EQ(Format(u"100%% %%d \U0001F600"), Formatted(10, u"100% %d \U0001F600"));
    // Unknown conversions are copied and take no argument.
    EXPECT_EQ(Format(u"%y|%-5k|%d|end%-08.3l", 7), Formatted(20, u"%y|%-5k|7|end%-08.3l"));
    // %n is refused: the text before it is kept and the call fails.
    int written = 12345;
    EXPECT_EQ(Format(u"%d %hhn after", 1, &written), Formatted(-1, u"1 "));
    EXPECT_EQ(written, 12345);
    ucs2string target = Str(u"old");
    EXPECT_EQ(strprintf(target, nullptr), -1);
    EXPECT_EQ(U16(target), u"");
}

TEST(StrprintfTest, TextsOf4095UnitsAreCompleteAndLongerOnesAreCutAndFail) {
    const std::u16string q(4096, u'q'), blanks(4095, u' ');
    const std::pair<Formatted, Formatted> cases[] = {
        // 4,095 units, then one more; a pair across the limit keeps its first unit.
        {Format(u"%s", W(q.c_str() + 1)), {4095, q.substr(1)}},
        {Format(q.substr(1)), {4095, q.substr(1)}},
        {Format(q.substr(6) + u"%d", 12345), {4095, q.substr(6) + u"12345"}},
        {Format(u"%4095d", 5), {4095, blanks.substr(1) + u"5"}},
        {Format(u"%4095s", W(u"")), {4095, blanks}},
        {Format(u"%s", W(q.c_str())), {-1, q.substr(1)}},
        {Format(q), {-1, q.substr(1)}},
        {Format(q.substr(6) + u"%d", 123456), {-1, q.substr(6) + u"12345"}},
        {Format(q.substr(2) + u"%s", W(u"\U0001F600")), {-1, q.substr(2) + u"\xD83D"}},
        // Huge widths and precisions give the first units of the field.
        {Format(u"%4096d", 5), {-1, blanks}},
        {Format(u"%-*d", INT_MAX, 5), {-1, u"5" + blanks.substr(1)}},
        {Format(u"%0*d", 100000, -5), {-1, u"-" + std::u16string(4094, u'0')}},
        {Format(u"%*s", INT_MAX, W(u"x")), {-1, blanks}},
        {Format(u"%-*s", -INT_MAX, W(u"x")), {-1, u"x" + blanks.substr(1)}},
        {Format(u"%.5000d", 1), {-1, std::u16string(4095, u'0')}},
    };
    for (const auto& [actual, expected] : cases) EXPECT_EQ(actual, expected);
}

}  // namespace

#include "kai18n/strings/strprintf.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "test_support.h"

using namespace test_support;

namespace {

const unsigned short* W(const char16_t* text) {
    return reinterpret_cast<const unsigned short*>(text);
}

std::u16string Widen(const char* text) {
    std::u16string out;
    for (const char* p = text; *p != 0; ++p) out += static_cast<unsigned char>(*p);
    return out;
}

struct Formatted {
    int result;
    std::u16string text;
};

template <class... Args>
Formatted Format(const std::u16string& format, Args... args) {
    ucs2string target = Str(u"previous");
    const int result = strprintf(target, W(format.c_str()), args...);
    return {result, U16(target)};
}

// Numbers and pointers are compared with the narrow printf of the C runtime,
// a formatter independent of the code under test.
template <class... Args>
void ExpectLikeSnprintf(const char* format, Args... args) {
    std::vector<char> expected(4096);
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#endif
    const int length = std::snprintf(expected.data(), expected.size(), format, args...);
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
    ASSERT_TRUE(length >= 0 && length < 4096) << format;
    const Formatted actual = Format(Widen(format), args...);
    EXPECT_EQ(actual.text, Widen(expected.data())) << format;
    EXPECT_EQ(actual.result, length) << format;
}

TEST(StrprintfTest, IntegersMatchTheRuntime) {
    for (const int value : {0, 1, -42, INT_MAX, INT_MIN}) {
        for (const char* format : {"%d", "%i", "[%6d]", "[%-6d]", "%06d", "%+d", "% d", "%.4d",
                                   "%+.0d", "%u", "%#o", "%x", "%#X", "[%08.3x]", "%.0x"}) {
            ExpectLikeSnprintf(format, value);
        }
        ExpectLikeSnprintf("[%*d|%*d|%.*d|%.*d]", 7, value, -7, value, 5, value, -5, value);
    }
    // Each length modifier reads its own type; narrow ones convert the int.
    ExpectLikeSnprintf("%hhd %hhu %hd %hu", 300, -1, 70000, -1);
    ExpectLikeSnprintf("%ld %lu %lld %llX", LONG_MIN, ULONG_MAX, LLONG_MIN, 0xDEADBEEFCAFEull);
    ExpectLikeSnprintf("%jd %ju %zu %td", INTMAX_MIN, UINTMAX_MAX, SIZE_MAX,
                       static_cast<std::ptrdiff_t>(-123456789012345));
    ExpectLikeSnprintf("%lld-%d-%hhd-%lu", -1ll, 2, 3, 4ul);
    // Windows forms.
    EXPECT_EQ(Format(u"%I64d %I64u %I32d %qd", LLONG_MIN, ULLONG_MAX, -7, -9ll).text,
              u"-9223372036854775808 18446744073709551615 -7 -9");
    EXPECT_EQ(Format(u"%Id %Iu", static_cast<std::ptrdiff_t>(-5000000000),
                     static_cast<std::size_t>(5000000000u))
                  .text,
              u"-5000000000 5000000000");
}

TEST(StrprintfTest, FloatingPointAndPointersMatchTheRuntime) {
    for (const double value : {0.0, -0.0, -1.5, 0.1, 1e-300, DBL_MAX, HUGE_VAL, std::nan("")}) {
        for (const char* format : {"%f", "%F", "%.2f", "%E", "%.10e", "%g", "%#g", "%.17g", "%a",
                                   "[%12.3f]", "[%-12.3e]", "%+.0f", "% 015.4f", "%lf"}) {
            ExpectLikeSnprintf(format, value);
        }
    }
    for (const long double value : {-2.5L, 1.1e1000L}) {
        for (const char* format : {"%Lf", "%.3Le", "%Lg", "%La"}) ExpectLikeSnprintf(format, value);
    }
    int object = 0;
    ExpectLikeSnprintf("%p [%20p] %p", static_cast<void*>(&object), static_cast<void*>(&object),
                       static_cast<void*>(nullptr));
}

TEST(StrprintfTest, StringsAreUtf16AndMeasuredInUnits) {
    const Formatted plain =
        Format(u"<%s>%ls%ws%lS%wS", W(u"a\U0001F600b"), W(u"1"), W(u"2"), W(u"3"), W(u"4"));
    EXPECT_EQ(plain.text, u"<a\U0001F600b>1234");
    EXPECT_EQ(plain.result, 10);  // the pair counts two units

    const unsigned short* ab = W(u"ab");
    const Formatted padded =
        Format(u"[%5s][%-5s][%1s][%.1s][%.0s][%5.1s][%05s][%*s][%*s][%.*s][%.*s]", ab, ab, ab, ab,
               ab, ab, ab, 4, ab, -4, ab, 1, ab, -1, ab);
    EXPECT_EQ(padded.text, u"[   ab][ab   ][ab][a][][    a][   ab][  ab][ab  ][a][ab]");
    EXPECT_EQ(Format(u"[%3s][%.2s]", W(u"\U0001F600"), W(u"\U0001F600x")).text,
              u"[ \U0001F600][\U0001F600]");

    // Nothing past the precision is read: the text need not be terminated.
    const unsigned short unterminated[3] = {'x', 'y', 'z'};
    EXPECT_EQ(Format(u"%.3s", unterminated).text, u"xyz");

    EXPECT_EQ(Format(u"[%s][%8S]", static_cast<const unsigned short*>(nullptr),
                     static_cast<const char*>(nullptr))
                  .text,
              u"[(null)][  (null)]");
}

TEST(StrprintfTest, NarrowStringsAndCharactersWidenByteByByte) {
    EXPECT_EQ(Format(u"%hs/%S/[%-6hS]/[%.2S]", "one", "two", "na\xEFve", "abc").text,
              u"one/two/[na\u00EFve ]/[ab]");
    EXPECT_EQ(Format(u"%c%lc%wc%lC", 'a', 0x20AC, 0xE9, 'z').text, u"a\u20AC\u00E9z");
    EXPECT_EQ(Format(u"%hc%C%hC", 0x1E9, 'q', 0x141).text, u"\u00E9qA");  // low byte only
    EXPECT_EQ(Format(u"[%3c][%-3c]", 'x', 'y').text, u"[  x][y  ]");
    EXPECT_EQ(Format(u"%c", 0xD83D).text, u"\xD83D");
    // A zero unit ends the text but not the count.
    const Formatted zero = Format(u"a%cbc", 0);
    EXPECT_EQ(zero.text, u"a");
    EXPECT_EQ(zero.result, 4);
}

TEST(StrprintfTest, WhatIsNotAConversion) {
    EXPECT_EQ(Format(u"100%% %%d").text, u"100% %d");
    const Formatted literal = Format(u"Gr\u00FC\u00DFe \U0001F600");
    EXPECT_EQ(literal.text, u"Gr\u00FC\u00DFe \U0001F600");
    EXPECT_EQ(literal.result, 8);
    // Unknown conversions are copied and take no argument.
    EXPECT_EQ(Format(u"%y|%-5k|%d|end%-08.3l", 7).text, u"%y|%-5k|7|end%-08.3l");

    // %n is refused: the text before it is kept and the call fails.
    int written = 12345;
    const Formatted n = Format(u"%d %hhn after", 1, &written);
    EXPECT_EQ(n.result, -1);
    EXPECT_EQ(n.text, u"1 ");
    EXPECT_EQ(written, 12345);

    ucs2string target = Str(u"old");
    EXPECT_EQ(strprintf(target, nullptr), -1);
    EXPECT_EQ(U16(target), u"");
}

TEST(StrprintfTest, TextsUpTo4095UnitsAreComplete) {
    const std::u16string full(4095, u'q');
    const std::u16string prefix(4090, u'a');
    for (const Formatted& f : {Format(u"%s", W(full.c_str())), Format(full),
                               Format(prefix + u"%d", 12345), Format(u"%4095d", 5)}) {
        EXPECT_EQ(f.result, 4095);
        EXPECT_EQ(f.text.size(), 4095u);
    }
    EXPECT_EQ(Format(prefix + u"%d", 12345).text, prefix + u"12345");
}

TEST(StrprintfTest, LongerTextsAreCutTo4095UnitsAndFail) {
    const std::u16string longer(4096, u'q');
    const std::u16string prefix(4090, u'a');
    const std::u16string blanks(4095, u' ');
    struct Case {
        Formatted formatted;
        std::u16string expected;
    };
    const Case cases[] = {
        {Format(u"%s", W(longer.c_str())), longer.substr(0, 4095)},
        {Format(longer), longer.substr(0, 4095)},
        {Format(prefix + u"%d", 123456), prefix + u"12345"},
        // A pair that would straddle the limit keeps its first unit.
        {Format(std::u16string(4094, u'b') + u"%s", W(u"\U0001F600")),
         std::u16string(4094, u'b') + u"\xD83D"},
        // Huge widths and precisions give the first units of the field.
        {Format(u"%4096d", 5), blanks},
        {Format(u"%*d", INT_MAX, 5), blanks},
        {Format(u"%-*d", INT_MAX, 5), u"5" + blanks.substr(1)},
        {Format(u"%0*d", 100000, -5), u"-" + std::u16string(4094, u'0')},
        {Format(u"%*s", INT_MAX, W(u"x")), blanks},
        {Format(u"%-*s", -INT_MAX, W(u"x")), u"x" + blanks.substr(1)},
        {Format(u"%.5000d", 1), std::u16string(4095, u'0')},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.formatted.result, -1);
        EXPECT_EQ(c.formatted.text, c.expected);
    }
}

// The va_list form reads a copy of the arguments, so they can be read again.
int TwiceFromOneList(ucs2string& first, ucs2string& second, const unsigned short* format, ...) {
    va_list args;
    va_start(args, format);
    const int a = vstrprintf(first, format, args);
    const int b = vstrprintf(second, format, args);
    va_end(args);
    return a == b ? a : -2;
}

TEST(StrprintfTest, VaListFormLeavesTheListToTheCaller) {
    ucs2string first;
    ucs2string second;
    EXPECT_EQ(TwiceFromOneList(first, second, W(u"%d-%s-%.1f"), 8, W(u"v"), 0.25), 7);
    EXPECT_EQ(U16(first), u"8-v-0.2");
    EXPECT_EQ(U16(second), u"8-v-0.2");
}

}  // namespace

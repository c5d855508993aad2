// UTF-16 strings: ucs2string, the formatter and its fields, stream insertion, and strprintf.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <new>
#include <random>
#include <sstream>
#include <string>
#include <utility>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/strprintf.h"
#include "kai18n/strings/ucs2string.h"
#include "kai18n/strings/ucs2string_formatter.h"
#include "test_support.h"

// Out-of-memory paths are reached through a nothrow array new that fails on demand; Clang's
// AddressSanitizer links its own operators statically, so those builds leave them untested.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KAI18N_TEST_NO_NEW_REPLACEMENT 1
#endif
#endif

namespace {
thread_local bool g_failNothrowArrayNew = false;
}  // namespace

#ifndef KAI18N_TEST_NO_NEW_REPLACEMENT
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return g_failNothrowArrayNew ? nullptr : ::operator new[](size);
}
#endif

using namespace test_support;
using us = unsigned short;

namespace {

constexpr unsigned int npos = ucs2string::npos;

// Whatever leaves the length at 0 keeps a null string null, and copies and moves carry it; a heap
// string emptied is nil, not null.
TEST(Ucs2StringTest, NullStaysNullAndAnEmptiedHeapStringIsNil) {
    ucs2string s{null_string()}, target = Str(u"abc"), heap = Str(u"x");
    s.assign(static_cast<const us*>(nullptr), 0).append(static_cast<const unsigned char*>(nullptr));
    (s += Str(u"")).erase().resize(0);
    target = ucs2string(s);
    heap.resize(0);
    EXPECT_TRUE(s.isnull() && s.c_str()[0] == 0 && target.isnull() && !ucs2string().isnull());
    EXPECT_TRUE(!heap.isnull() && heap.empty() && heap.capacity() == 0);
    ucs2string moved(std::move(s));              // leaves the source empty, not null
    EXPECT_TRUE(moved.isnull() && !s.isnull());  // NOLINT(bugprone-use-after-move)
}

// Every replace of every range of short strings against std::u16string (erase and insert too).
TEST(Ucs2StringTest, ReplaceInsertEraseAtEveryPositionMatchModel) {
    const std::u16string bases[] = {u"", u"a", u"ab", u"abcde", u"abcdef", u"abcdefghi"};
    const std::u16string texts[] = {u"", u"X", u"XYZ", u"XYZUVW"};
    for (const std::u16string& base : bases) {
        for (unsigned int pos = 0; pos <= base.size() + 1; ++pos) {
            for (unsigned int n : {0u, 1u, 2u, 3u, 9u, npos}) {
                for (const std::u16string& text : texts) {
                    ucs2string s = Str(base), repeated = Str(base);
                    if (pos > base.size()) {
                        EXPECT_EQ(ThrownCode([&] { s.replace(pos, n, Str(text)); }),
                                  LU_E_OUT_OF_RANGE);
                        EXPECT_EQ(U16(s), base);
                        continue;
                    }
                    s.replace(pos, n, Str(text));
                    ASSERT_EQ(U16(s), std::u16string(base).replace(pos, n, text)) << pos << n;
                    EXPECT_EQ(s.c_str()[s.length()], 0);
                    EXPECT_EQ(s.capacity(),
                              s.empty() ? 0u : (ucs2string::allocation_size(s.length()) - 6) / 2);
                    repeated.replace(pos, n, us(0x2323), 2u);  // equal bytes: filled bytewise
                    ASSERT_EQ(U16(repeated), std::u16string(base).replace(pos, n, u"\u2323\u2323"));
                }
            }
        }
    }
    // Size classes decide when the buffer moves: 2 -> 3 units stay in one.
    const unsigned int sizes[][2] = {{0, 0}, {1, 8}, {2, 16}, {5, 16}, {6, 24}, {9, 24}, {10, 32}};
    for (const auto& row : sizes) EXPECT_EQ(ucs2string::allocation_size(row[0]), row[1]) << row[0];
    ucs2string s = Str(u"ab");
    const us* before = s.data();
    EXPECT_TRUE((s += us('c')).data() == before && s.capacity() == 5u);
    s = Str(u"abcdef");
    EXPECT_EQ(U16(s.substr(2, 2)), u"cd");
    EXPECT_EQ(U16(s.substr(6)), u"");
    EXPECT_EQ(ThrownCode([&] { (void)s.substr(7); }), LU_E_OUT_OF_RANGE);
    s.resize(8, 'z');
    EXPECT_EQ(U16(s), u"abcdefzz");
    // Lengths beyond the limit are refused before anything is allocated.
    EXPECT_EQ(ThrownCode([&] { s.replace(1, 0, us('x'), 0xFFFFFFFEu); }), LU_E_STRING_TOO_LONG);
    EXPECT_EQ(ThrownCode([&] { s.append(us('x'), 0x7FFFFFF8u); }), LU_E_STRING_TOO_LONG);
    EXPECT_EQ(U16(s), u"abcdefzz");
}

TEST(Ucs2StringTest, ElementAccessAndIteratorsAreChecked) {
    ucs2string s = Str(u"xyz");
    EXPECT_TRUE(s[2] == 'z' && s.get_at(0) == 'x' && s.begin()[2] == 'z');
    EXPECT_EQ(ThrownCode([&] { (void)s.at(3); }), LU_E_OUT_OF_RANGE);
    EXPECT_EQ(ThrownCode([&] { (void)s[3]; }), LU_E_OUT_OF_RANGE);
    EXPECT_EQ(ThrownCode([&] { (void)*s.end(); }), LU_E_OUT_OF_RANGE);
    EXPECT_EQ(ThrownCode([&] { (void)s.begin()[3]; }), LU_E_OUT_OF_RANGE);
    s.put_at(3, 'w');  // at the length: appends
    s.put_at(0, 'X');
    EXPECT_EQ(U16(s), u"Xyzw");
    EXPECT_EQ(ThrownCode([&] { s.put_at(5, 'v'); }), LU_E_OUT_OF_RANGE);
    // Iterators go through the string, so they survive reallocation.
    ucs2string::iterator it = s.begin() + 1;
    s.append(Str(u"0123456789"));
    EXPECT_TRUE(*it == 'y' && ucs2string::distance(s.begin(), s.end()) == s.length());
    // The iterator forms read through checked iterators.
    const ucs2string source = Str(u"12345");
    s = Str(u"ab");
    s.append(source.begin() + 1, source.begin() + 3);
    EXPECT_EQ(U16(s), u"ab23");
    s.replace(s.begin() + 1, s.begin() + 3, source.begin(), source.begin() + 2);
    s.insert(s.begin() + 4, us('!'));
    s.erase(s.begin(), s.begin() + 1);
    EXPECT_EQ(U16(s), u"123!");
    EXPECT_EQ(ThrownCode([&] { s.append(source.begin() + 3, source.begin() + 7); }),
              LU_E_OUT_OF_RANGE);
    // An empty insert by iterators builds a new buffer: null becomes empty.
    ucs2string n{null_string()}, m{null_string()};
    n.insert(n.begin(), source.begin(), source.begin());
    m.append(source.begin(), source.begin());
    EXPECT_TRUE(!n.isnull() && n.empty() && m.isnull());
}

TEST(Ucs2StringTest, CompareGivesTheDifferenceNotTheSign) {
    EXPECT_EQ(Str(u"a").compare(Str(u"c")), -2);
    EXPECT_EQ(Str(u"ab").compare(Str(u"abcd")), -2);
    EXPECT_EQ(Str(u"\xffff").compare(Str(u"a")), 0xFFFF - 'a');  // units compare unsigned
    EXPECT_EQ(Str(u"hello").compare(1, 3, Str(u"xxellxx"), 2, 3), 0);
    EXPECT_EQ(Str(u"hello").compare(4, npos, Str(u"o")), 0);
    const Units units = UnitsOf(std::u16string(u"ell") + u'\0');
    // The pointer form takes `n` as the length of the other text.
    EXPECT_EQ(Str(u"hello").compare(units.data(), 1, 3), 1);  // n is the other length: 5-1-3
    EXPECT_EQ(Str(u"ell").compare(units.data()), 0);
    EXPECT_EQ(Str(u"hello").compare(1, 3, units.data(), 3), 0);
    EXPECT_EQ(Str(u"hello").compare(units.data(), 5, 0), 0);  // from the very end
    // Parts of another string: assigned, and appended with a terminated text of unknown length.
    ucs2string part;
    part.assign(Str(u"hello"), 1, 3).append(units.data()).append(Str(u"hello"), 5, 1);
    EXPECT_EQ(U16(part), u"ellell");
    EXPECT_EQ(ThrownCode([&] { (void)Str(u"ab").compare(3, 1, Str(u"x")); }), LU_E_OUT_OF_RANGE);
    EXPECT_TRUE(Str(u"abc") != Str(u"abd") && Str(u"abc") < Str(u"abd"));
}

// find and friends against std::u16string on random strings over a small alphabet.
TEST(Ucs2StringTest, SearchAgreesWithStandardStringModel) {
    std::mt19937 rng(42);
    const auto randomText = [&](unsigned int n) {
        std::u16string text;
        while (text.size() < n) text.push_back(static_cast<char16_t>(u'a' + rng() % 3));
        return text;
    };
    const std::size_t stdNpos = std::u16string::npos;
    const auto asStd = [](unsigned int ours) { return ours == npos ? stdNpos : std::size_t{ours}; };
    for (int round = 0; round < 3000; ++round) {
        const std::u16string text = randomText(rng() % 9), pattern = randomText(rng() % 4);
        const ucs2string s = Str(text);
        const Units p = UnitsOf(pattern);
        const auto count = static_cast<unsigned int>(p.size()), size = s.length();
        for (unsigned int pos : {0u, 1u, 3u, size, size + 1, npos}) {
            const std::size_t at = pos == npos ? stdNpos : pos;
            // find_last_of and find_last_not_of do not examine the unit at `pos`.
            const std::size_t before = pos == 0 ? stdNpos : at - 1;
            SCOPED_TRACE(std::string(text.begin(), text.end()) + "/" +
                         std::string(pattern.begin(), pattern.end()) + std::to_string(pos));
            EXPECT_EQ(asStd(s.rfind(p.data(), pos, count)), text.rfind(pattern, at));
            EXPECT_EQ(asStd(s.find_last_of(p.data(), pos, count)),
                      pos == 0 ? stdNpos : text.find_last_of(pattern, before));
            EXPECT_EQ(asStd(s.find_last_not_of(p.data(), pos, count)),
                      pos == 0 ? stdNpos : text.find_last_not_of(pattern, before));
            if (pos == npos) continue;
            EXPECT_EQ(asStd(s.find(p.data(), pos, count)), text.find(pattern, at));
            EXPECT_EQ(asStd(s.find_first_of(p.data(), pos, count)),
                      text.find_first_of(pattern, at));
            EXPECT_EQ(asStd(s.find_first_not_of(p.data(), pos, count)),
                      text.find_first_not_of(pattern, at));
        }
    }
}

const unsigned short* W(const char16_t* text) {
    return reinterpret_cast<const unsigned short*>(text);
}

std::u16string Text(const ucs2string_formatter& f) {
    return std::u16string(f.data(), f.data() + f.length());
}

// Capacity: 500 inline, then steps of 500. Every writer keeps 499 units inline, not 500.
TEST(Ucs2StringFormatterTest, CapacityGrowsInStepsOf500UpTo65500) {
    const unsigned int steps[][2] = {{500, 500}, {501, 1000}, {1000, 1500}, {65499, 65500}};
    for (const auto& step : steps) {
        ucs2string_formatter f;
        f.reserve(step[0]);
        EXPECT_EQ(f.capacity(), step[1]) << "reserve(" << step[0] << ")";
    }
    const std::u16string units(500, u'x');
    for (const unsigned int n : {499u, 500u}) {
        ucs2string_formatter f[5];
        f[0].append(static_cast<unsigned short>('x'), n);
        f[1].assign_helper(W(units.c_str()), n);
        f[2].append_helper(W(units.c_str()), n);
        f[3].append_helper(Utf8(std::string(500, 'x').c_str()), n);
        f[4].append_formatted(W(u""), static_cast<int>(n), 2, 'x');
        for (const ucs2string_formatter& g : f) {
            EXPECT_EQ(g.capacity(), n == 499 ? 500u : 1000u) << n;
            EXPECT_TRUE(Text(g) == units.substr(0, n) && g.c_str()[n] == 0);
        }
    }
    // 16 bits cannot hold the next step.
    ucs2string_formatter f(Utf8("kept"));
    EXPECT_EQ(ThrownCode([&] { f.reserve(65500); }), LU_E_STRING_TOO_LONG);
    EXPECT_EQ(ThrownCode([&] { f.append_formatted(W(u"x"), INT_MAX, 1, ' '); }),
              LU_E_STRING_TOO_LONG);
    EXPECT_EQ(Text(f), u"kept");
    // Resize uncovers the units that were there, the terminator of "ke" among them.
    f.resize(2);
    f.resize(4);
    f.resize(800);
    EXPECT_TRUE(f.capacity() == 1000u && f.c_str()[800] == 0);
    EXPECT_EQ(Text(f).substr(0, 4), std::u16string(u"ke\0t", 4));
}

TEST(Ucs2StringFormatterTest, AssignsAndAppendsUtf8AndUtf16) {
    // "h", e acute, "!", U+1F600: a four-byte sequence gives a pair, a cut one is left out.
    const unsigned char* text = Utf8("h\xC3\xA9!\xF0\x9F\x98\x80");
    ucs2string_formatter f(text, 5);
    f.append(text);
    EXPECT_EQ(Text(f), u"h\u00E9!h\u00E9!\U0001F600");
    // UTF-16 counts are units; npos reads to the terminator.
    f.assign_helper(W(u"abc\0def"), 5);
    f.append_helper(W(u"xyz"), 1);
    f.append_helper(W(u"\U0001F600"), ucs2string_formatter::npos);
    EXPECT_EQ(Text(f), std::u16string(u"abc\0dx\U0001F600", 8));
    // Five- and six-byte sequences throw and keep the length, with nothing written behind.
    const unsigned char* five = Utf8("ok\xF8\x88\x80\x80\x80");
    f.assign(Utf8("abc"));
    EXPECT_EQ(ThrownCode([&] { f.append(five); }), LU_E_INVALID_ARG);
    EXPECT_EQ(ThrownCode([&] { f.assign(Utf8("\xFC\x84\x80\x80\x80\x80")); }), LU_E_INVALID_ARG);
    EXPECT_EQ(ThrownCode([&] { f.append_formatted(five, 20, 2, ' '); }), LU_E_INVALID_ARG);
    EXPECT_EQ(f.c_str()[3], 0);
    // A text dropped from a narrow field is never decoded.
    f.append_formatted(five, 2, 1, ' ');
    EXPECT_EQ(Text(f), u"abc##");
}

TEST(Ucs2StringFormatterTest, SourcesInsideTheFormatterSurviveAMoveAndCopiesAreDeep) {
    std::u16string digits;
    for (int i = 0; i < 600; ++i) digits += static_cast<char16_t>(u'0' + i % 10);
    ucs2string_formatter f[2];
    for (ucs2string_formatter& g : f) g.assign(W(digits.c_str()));  // 1000 units on the heap
    // Each grows to 1500 units, freeing the array it reads from: the later array first, so that
    // neither freed array merges with a free neighbour and keeps its units by chance.
    f[1].append_helper(f[1].data(), f[1].length());
    f[0].append_formatted(f[0], -1, 0, ' ');
    for (const ucs2string_formatter& g : f) EXPECT_EQ(Text(g), digits + digits);
    EXPECT_EQ(f[0].capacity(), 1500u);
    f[0].assign_helper(f[0].data() + 4, 3);
    EXPECT_EQ(Text(f[0]), u"456");
    // Copies are deep, and keep small texts inline.
    ucs2string_formatter copy(f[1]);
    f[1].assign(W(u"small"));
    EXPECT_EQ(Text(copy), digits + digits);
    copy = f[1];
    copy = static_cast<const ucs2string_formatter&>(copy);
    EXPECT_TRUE(Text(copy) == u"small" && ucs2string_formatter(copy).capacity() == 500u);
}

// The field of `utf8` behind "<", which every source form must give alike.
std::u16string Field(const char* utf8, int width, int align, unsigned short fill) {
    const ucs2string_formatter source(Utf8(utf8));
    ucs2string_formatter f[4];
    for (ucs2string_formatter& result : f) result.assign(Utf8("<"));
    f[0].append_formatted(source.c_str(), width, align, fill);
    f[1].append_formatted(Utf8(utf8), width, align, fill);
    f[2].append_formatted(lu_utf8string(Utf8(utf8)), width, align, fill);
    f[3].append_formatted(source, width, align, fill);
    for (const ucs2string_formatter& result : f) EXPECT_EQ(Text(result), Text(f[0]));
    return Text(f[0]);
}

// No width, or an align other than 1 and 2: the text alone. Too narrow: number signs when aligned,
// nothing when not. A unit beyond ASCII counts one; a pair counts two. For integers the fill stands
// before the sign, which counts in the width.
TEST(Ucs2StringFormatterTest, FieldsOfTextsFromEverySourceAndOfIntegers) {
    EXPECT_EQ(Field("abc", -1, 2, '*') + Field("abc", 5, 3, '*'), u"<abc<abc");
    EXPECT_EQ(Field("abc", 5, 1, '*') + Field("abc", 2, 1, '*') + Field("abc", 2, 0, '*'),
              u"<abc**<##<");
    EXPECT_EQ(Field("\xC3\xA9\xE2\x82\xAC", 3, 2, u'\u00B7'), u"<\u00B7\u00E9\u20AC");
    EXPECT_EQ(Field("\xF0\x9F\x98\x80", 4, 1, '_'), u"<\U0001F600__");
    const auto field = [](auto value, int width, unsigned short fill) {
        return Text(ucs2string_formatter().append_formatted(value, width, 2, fill));
    };
    EXPECT_EQ(field(0L, -1, ' ') + field(-5L, 4, '0') + field(-5L, 1, '0'), u"000-5#");
    EXPECT_EQ(field(LONG_MIN, 21, ' '), u" -9223372036854775808");
    EXPECT_EQ(field(ULONG_MAX, -1, ' '), u"18446744073709551615");
    EXPECT_EQ(field(-7, 3, '0') + field(8u, 3, '_'), u"0-7__8");  // int, unsigned int
}

std::string Inserted(const ucs2string& s) {
    std::ostringstream out;
    out << s;
    return out.str();
}

// The measure counts the terminator: 2042 letters and a pair make 2047 bytes, paired; one letter
// more takes the path that encodes unit by unit. A failed conversion writes a marker.
TEST(Ucs2StringStreamInsertionTest, PairsSurrogatesOnlyBelow2048Bytes) {
    const std::u16string letters(2042, u'a');
    const std::string bytes(2042, 'a');
    EXPECT_EQ(Inserted(Str(letters + u"\U0001F600")) + Inserted(Str(u"ab\xD800")),
              bytes + "\xF0\x9F\x98\x80" + "ab");  // a high surrogate alone is dropped
    EXPECT_EQ(Inserted(Str(letters + u"a\U0001F600")), bytes + "a\xED\xA0\xBD\xED\xB8\x80");
    ucs2string text = Str(u"gone");
    text.setnull();
    EXPECT_EQ(Inserted(text), "");
#ifndef KAI18N_TEST_NO_NEW_REPLACEMENT
    const ucs2string longText = Str(std::u16string(4000, u'z'));
    g_failNothrowArrayNew = true;
    const std::string inserted = Inserted(longText);
    g_failNothrowArrayNew = false;
    EXPECT_EQ(inserted, "<UTF8 conversion failed!>");
#endif
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

// A pair counts two units; nothing past the precision is read; narrow texts widen bytewise. "%%"
// and unknown conversions are copied, %n is refused.
TEST(StrprintfTest, StringsAreUtf16MeasuredInUnitsAndOthersAreNoConversions) {
    const unsigned short unterminated[3] = {'x', 'y', 'z'};
    EXPECT_EQ(Format(u"<%s>%ls[%3s][%.2s][%-4s][%*s]%.3s", W(u"a\U0001F600b"), W(u"1"),
                     W(u"\U0001F600"), W(u"\U0001F600x"), W(u"ab"), -3, W(u"c"), unterminated),
              Formatted(30, u"<a\U0001F600b>1[ \U0001F600][\U0001F600][ab  ][c  ]xyz"));
    EXPECT_EQ(Format(u"[%s][%8S]", W(nullptr), static_cast<const char*>(nullptr)),
              Formatted(18, u"[(null)][  (null)]"));
    EXPECT_EQ(Format(u"%hs/[%.2S]%c%lc%hc|[%3c]", "na\xEFve", "abc", 'a', 0x20AC, 0x1E9, 'x'),
              Formatted(19, u"na\u00EFve/[ab]a\u20AC\u00E9|[  x]"));
    EXPECT_EQ(Format(u"a%cbc", 0), Formatted(4, u"a"));  // a zero unit ends the text only
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
        {Format(u"%.5000d", 1), {-1, std::u16string(4095, u'0')}},
    };
    for (const auto& [actual, expected] : cases) EXPECT_EQ(actual, expected);
}

}  // namespace

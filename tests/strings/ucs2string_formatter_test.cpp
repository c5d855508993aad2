#include "kai18n/strings/ucs2string_formatter.h"

#include <gtest/gtest.h>

#include <climits>
#include <new>
#include <sstream>
#include <string>
#include <utility>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8string.h"
#include "test_support.h"

// Out-of-memory paths are reached through a nothrow array new that fails on demand (a real
// shortage ends the program). Clang's AddressSanitizer links its own operators statically and
// could clash with it, so those builds leave the paths untested.
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

namespace {

const unsigned short* W(const char16_t* text) {
    return reinterpret_cast<const unsigned short*>(text);
}

std::u16string Text(const ucs2string_formatter& f) {
    return std::u16string(f.data(), f.data() + f.length());
}

// The capacity is 500 exactly while the text is held inline.
TEST(Ucs2StringFormatterTest, ReserveAndResizeGrowInStepsOf500) {
    // {request, capacity}: a request within the capacity changes nothing.
    const unsigned int steps[][2] = {{500, 500}, {501, 1000}, {1000, 1500}, {65499, 65500}};
    for (const auto& step : steps) {
        ucs2string_formatter f;
        f.reserve(step[0]);
        EXPECT_EQ(f.capacity(), step[1]) << "reserve(" << step[0] << ")";
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
    EXPECT_EQ(f.capacity(), 1000u);
    EXPECT_EQ(Text(f).substr(0, 4), std::u16string(u"ke\0t", 4));
    EXPECT_EQ(f.c_str()[800], 0);
}

// Each writer keeps 499 units and the terminator inline and moves 500 to the heap.
TEST(Ucs2StringFormatterTest, EveryWriterUsesTheHeapOnlyBeyond499Units) {
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
            EXPECT_EQ(Text(g), units.substr(0, n));
            EXPECT_EQ(g.c_str()[n], 0);
        }
    }
}

#ifndef KAI18N_TEST_NO_NEW_REPLACEMENT
TEST(Ucs2StringFormatterTest, ReserveWithoutMemoryThrowsAndKeepsTheText) {
    ucs2string_formatter f(Utf8("kept"));
    for (const unsigned int capacity : {500u, 1000u}) {  // inline, then on the heap
        f.reserve(capacity - 1);
        g_failNothrowArrayNew = true;
        const long code = ThrownCode([&] { f.append_formatted(7L, 2000, 2, ' '); });
        g_failNothrowArrayNew = false;
        EXPECT_EQ(code, LU_E_OUT_OF_MEMORY);
        EXPECT_EQ(f.capacity(), capacity);
        EXPECT_EQ(Text(f), u"kept");
    }
}
#endif

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
}

TEST(Ucs2StringFormatterTest, FiveAndSixByteSequencesThrowAndKeepTheLength) {
    const unsigned char* five = Utf8("ok\xF8\x88\x80\x80\x80");
    const unsigned char* six = Utf8("\xFC\x84\x80\x80\x80\x80");
    ucs2string_formatter f(Utf8("abc"));
    EXPECT_EQ(ThrownCode([&] { f.append(five); }), LU_E_INVALID_ARG);
    EXPECT_EQ(ThrownCode([&] { f.assign(six); }), LU_E_INVALID_ARG);
    EXPECT_EQ(ThrownCode([&] { f.append_formatted(five, 20, 2, ' '); }), LU_E_INVALID_ARG);
    EXPECT_EQ(f.c_str()[3], 0);  // nothing written behind the text either
    // A text dropped from a narrow field is never decoded.
    f.append_formatted(five, 2, 1, ' ');
    EXPECT_EQ(Text(f), u"abc##");
}

TEST(Ucs2StringFormatterTest, SourceInsideTheFormatterSurvivesAMove) {
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
}

TEST(Ucs2StringFormatterTest, CopiesAreDeepAndKeepSmallTextsInline) {
    ucs2string_formatter large;
    large.append(static_cast<unsigned short>('L'), 1200);
    ucs2string_formatter copy(large);
    large.assign(W(u"small"));
    EXPECT_EQ(Text(copy), std::u16string(1200, u'L'));
    const ucs2string_formatter small(large);
    EXPECT_EQ(small.capacity(), 500u);
    copy = small;
    copy = static_cast<const ucs2string_formatter&>(copy);
    EXPECT_EQ(Text(copy), u"small");
}

// The field of `utf8` behind "<", which every source form must give alike.
std::u16string Field(const char* utf8, int width, int align, unsigned short fill) {
    SCOPED_TRACE(testing::Message() << utf8 << " width " << width << " align " << align);
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

TEST(Ucs2StringFormatterTest, FieldsAreTheSameFromEverySource) {
    // No width: never padded.
    EXPECT_EQ(Field("abc", -1, 2, '*'), u"<abc");
    EXPECT_EQ(Field("abc", INT_MIN, 1, '*'), u"<abc");
    // Wider fields; an align other than 1 and 2 writes the text alone.
    EXPECT_EQ(Field("abc", 5, 1, '*'), u"<abc**");
    EXPECT_EQ(Field("abc", 5, 2, '*'), u"<**abc");
    EXPECT_EQ(Field("abc", 5, 0, '*'), u"<abc");
    EXPECT_EQ(Field("abc", 5, 3, '*'), u"<abc");
    EXPECT_EQ(Field("abc", 3, 2, '*'), u"<abc");
    // Too narrow: number signs when aligned, nothing when not.
    EXPECT_EQ(Field("abc", 2, 1, '*'), u"<##");
    EXPECT_EQ(Field("abc", 2, 0, '*'), u"<");
    // A unit beyond ASCII counts one; a pair counts two.
    EXPECT_EQ(Field("\xC3\xA9\xE2\x82\xAC", 3, 2, u'\u00B7'), u"<\u00B7\u00E9\u20AC");
    EXPECT_EQ(Field("\xF0\x9F\x98\x80", 4, 1, '_'), u"<\U0001F600__");
}

TEST(Ucs2StringFormatterTest, IntegerFieldsFromZeroToTheExtremes) {
    const auto field = [](auto value, int width, unsigned short fill) {
        return Text(ucs2string_formatter().append_formatted(value, width, 2, fill));
    };
    EXPECT_EQ(field(0L, -1, ' '), u"0");
    EXPECT_EQ(field(-5L, 4, '0'), u"00-5");  // the fill stands before the sign
    EXPECT_EQ(field(-5L, 1, '0'), u"#");     // the sign counts in the width
    EXPECT_EQ(field(-2147483647L - 1, -1, ' '), u"-2147483648");
    EXPECT_EQ(field(LONG_MIN, 21, ' '), u" -9223372036854775808");
    EXPECT_EQ(field(ULONG_MAX, -1, ' '), u"18446744073709551615");
    EXPECT_EQ(field(-7, 3, '0'), u"0-7");  // int
    EXPECT_EQ(field(8u, 3, '_'), u"__8");  // unsigned int
}

std::string Inserted(const ucs2string& s) {
    std::ostringstream out;
    out << s;
    return out.str();
}

TEST(Ucs2StringStreamInsertionTest, PairsSurrogatesOnlyBelow2048Bytes) {
    ucs2string null_text = Str(u"gone");
    null_text.setnull();
    EXPECT_EQ(Inserted(null_text), "");
    const std::u16string letters(2042, u'a');
    const std::string bytes(2042, 'a');
    const std::pair<std::u16string, std::string> cases[] = {
        {u"a\u00E9\u20AC\U0001F600", "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"},
        // A high surrogate without its partner is dropped, at the end as well.
        {u"ab\xD800", "ab"},
        {std::u16string(u"ab\0cd", 5), "ab"},  // a char string ends at the first zero
        // The measure counts the terminator: 2042 letters and a pair make 2047 bytes ...
        {letters + u"\U0001F600", bytes + "\xF0\x9F\x98\x80"},
        // ... one letter more makes 2048 and takes the path that encodes unit by unit.
        {letters + u"a\U0001F600", bytes + "a\xED\xA0\xBD\xED\xB8\x80"},
    };
    for (const auto& c : cases) EXPECT_EQ(Inserted(Str(c.first)), c.second) << c.first.size();
}

#ifndef KAI18N_TEST_NO_NEW_REPLACEMENT
TEST(Ucs2StringStreamInsertionTest, FailedConversionWritesAMarker) {
    const ucs2string longText = Str(std::u16string(4000, u'z'));
    const ucs2string shortText = Str(u"short");
    g_failNothrowArrayNew = true;
    const std::string inserted[] = {Inserted(longText), Inserted(shortText)};
    g_failNothrowArrayNew = false;
    EXPECT_EQ(inserted[0], "<UTF8 conversion failed!>");
    EXPECT_EQ(inserted[1], "short");  // short texts never allocate
}
#endif

}  // namespace

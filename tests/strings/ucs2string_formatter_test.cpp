#include "kai18n/strings/ucs2string_formatter.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <new>
#include <sstream>
#include <string>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8string.h"
#include "test_support.h"

// Out-of-memory paths are reached by replacing the nothrow array new, which the
// formatter and the UTF-8 conversion use, with one that fails on demand.
// Clang's AddressSanitizer links its own operators statically and could clash
// with the replacement, so those builds leave the paths untested.
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
    if (g_failNothrowArrayNew) return nullptr;
    try {
        return ::operator new[](size);
    } catch (...) {
        return nullptr;
    }
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

// True while the text is held in the object itself, not on the heap.
bool UsesInlineBuffer(const ucs2string_formatter& f) {
    const auto self = reinterpret_cast<std::uintptr_t>(&f);
    const auto text = reinterpret_cast<std::uintptr_t>(f.data());
    return text >= self && text < self + sizeof f;
}

struct FailingArrayNew {
    FailingArrayNew() { g_failNothrowArrayNew = true; }
    ~FailingArrayNew() { g_failNothrowArrayNew = false; }
};

// ---------------------------------------------------------------------------
// Storage

TEST(Ucs2StringFormatterTest, ReserveGrowsInStepsOf500) {
    const unsigned int steps[][2] = {{0, 500},     {500, 500},   {501, 1000},   {999, 1000},
                                     {1000, 1500}, {1500, 2000}, {65499, 65500}};
    for (const auto& step : steps) {
        ucs2string_formatter f;
        f.reserve(step[0]);
        EXPECT_EQ(f.capacity(), step[1]) << "reserve(" << step[0] << ")";
        EXPECT_EQ(UsesInlineBuffer(f), step[1] == 500) << "reserve(" << step[0] << ")";
    }
    ucs2string_formatter f;
    f.assign(W(u"kept"));
    f.reserve(501);
    const unsigned short* heap = f.data();
    f.reserve(1000);  // not beyond the capacity: nothing moves
    EXPECT_EQ(f.data(), heap);
    f.reserve(1001);
    EXPECT_EQ(f.capacity(), 1500u);
    EXPECT_EQ(Text(f), u"kept");
    // 16 bits cannot hold the next step.
    EXPECT_EQ(ThrownCode([&] { f.reserve(65500); }), LU_E_STRING_TOO_LONG);
    EXPECT_EQ(ThrownCode([&] { f.append_formatted(W(u"x"), INT_MAX, 1, ' '); }),
              LU_E_STRING_TOO_LONG);
    EXPECT_EQ(Text(f), u"kept");
    // Emptying keeps the storage: there is no way back.
    f.clear();
    EXPECT_EQ(f.capacity(), 1500u);
    EXPECT_EQ(f.c_str()[0], 0);
}

TEST(Ucs2StringFormatterTest, HeapIsUsedOnlyBeyond499Units) {
    ucs2string_formatter f;
    EXPECT_EQ(f.c_str()[0], 0);
    f.append(static_cast<unsigned short>('a'), 499);
    EXPECT_TRUE(UsesInlineBuffer(f));
    std::u16string expected(499, u'a');
    for (int i = 0; i < 735; ++i) {
        const auto unit = static_cast<unsigned short>(u'A' + i % 26);
        f.push_back(unit);
        expected.push_back(static_cast<char16_t>(unit));
        ASSERT_EQ(f.c_str()[f.length()], 0);
    }
    EXPECT_FALSE(UsesInlineBuffer(f));
    EXPECT_EQ(Text(f), expected);
    EXPECT_EQ(f.capacity(), 1500u);

    // A field that crosses the limit.
    ucs2string_formatter g;
    g.append(static_cast<unsigned short>('.'), 495);
    g.append_formatted(1234567890L, 12, 2, ' ');
    EXPECT_EQ(g.capacity(), 1000u);
    EXPECT_EQ(Text(g).substr(493), u"..  1234567890");
}

TEST(Ucs2StringFormatterTest, ResizeUncoversTheUnitsThatWereThere) {
    ucs2string_formatter f;
    f.assign(W(u"abcdef"));
    f.resize(3);
    EXPECT_EQ(Text(f), u"abc");
    EXPECT_EQ(f.c_str()[3], 0);
    // The terminator of the shorter text is among the old units.
    f.resize(5);
    EXPECT_EQ(Text(f), std::u16string(u"abc\0e", 5));
    f.resize(800);
    EXPECT_EQ(f.capacity(), 1000u);
    EXPECT_EQ(Text(f).substr(0, 5), std::u16string(u"abc\0e", 5));
    EXPECT_EQ(f.c_str()[800], 0);
}

#ifndef KAI18N_TEST_NO_NEW_REPLACEMENT
TEST(Ucs2StringFormatterTest, ReserveWithoutMemoryThrowsAndKeepsTheText) {
    ucs2string_formatter f;
    f.assign(W(u"inline"));
    {
        FailingArrayNew failing;
        EXPECT_EQ(ThrownCode([&] { f.reserve(600); }), LU_E_OUT_OF_MEMORY);
    }
    EXPECT_TRUE(UsesInlineBuffer(f));
    f.reserve(700);
    const unsigned short* heap = f.data();
    {
        FailingArrayNew failing;
        EXPECT_EQ(ThrownCode([&] { f.append_formatted(7L, 2000, 2, ' '); }), LU_E_OUT_OF_MEMORY);
    }
    EXPECT_EQ(f.data(), heap);
    EXPECT_EQ(f.capacity(), 1000u);
    EXPECT_EQ(Text(f), u"inline");
}
#endif

// ---------------------------------------------------------------------------
// Assign and append

TEST(Ucs2StringFormatterTest, AssignsAndAppendsUtf8AndUtf16) {
    // "h", e acute, "!", U+1F600; a four-byte sequence gives a pair.
    const unsigned char* text = Utf8("h\xC3\xA9!\xF0\x9F\x98\x80");
    EXPECT_EQ(Text(ucs2string_formatter(text)), u"h\u00E9!\U0001F600");
    EXPECT_EQ(Text(ucs2string_formatter(text, 3)), u"h\u00E9");
    EXPECT_EQ(Text(ucs2string_formatter(text, 5)), u"h\u00E9!");  // a cut sequence is left out

    ucs2string_formatter f;
    f.assign(Utf8("ab")).append(Utf8("\xE2\x82\xAC"));
    EXPECT_EQ(Text(f), u"ab\u20AC");
    // UTF-16 counts are units; npos reads to the terminator.
    f.assign_helper(W(u"abc\0def"), 5);
    f.append_helper(W(u"xyz"), 1);
    f.append_helper(W(u"\U0001F600"), ucs2string_formatter::npos);
    EXPECT_EQ(Text(f), std::u16string(u"abc\0dx\U0001F600", 8));

    EXPECT_EQ(U16(f.str()), Text(f));
    ucs2string target = Str(u"old");
    f.assign(W(u"pi \u03C0")).assign_to(target);
    f.append_to(target);
    EXPECT_EQ(U16(target), u"pi \u03C0pi \u03C0");
}

TEST(Ucs2StringFormatterTest, FiveAndSixByteSequencesThrowAndKeepTheLength) {
    const unsigned char* five = Utf8("ok\xF8\x88\x80\x80\x80");
    const unsigned char* six = Utf8("\xFC\x84\x80\x80\x80\x80");
    ucs2string_formatter f;
    f.assign(W(u"abc"));
    EXPECT_EQ(ThrownCode([&] { f.append(five); }), LU_E_INVALID_ARG);
    EXPECT_EQ(ThrownCode([&] { f.assign(six); }), LU_E_INVALID_ARG);
    EXPECT_EQ(ThrownCode([&] { f.append_formatted(five, 20, 2, ' '); }), LU_E_INVALID_ARG);
    EXPECT_EQ(Text(f), u"abc");
    EXPECT_EQ(f.c_str()[3], 0);
    EXPECT_EQ(ThrownCode([&] { ucs2string_formatter g(six); }), LU_E_INVALID_ARG);
    // A text dropped from a narrow field is never decoded.
    f.append_formatted(five, 2, 1, ' ');
    EXPECT_EQ(Text(f), u"abc##");
}

TEST(Ucs2StringFormatterTest, SourceInsideTheFormatterSurvivesAMove) {
    ucs2string_formatter f;
    for (int i = 0; i < 400; ++i) f.push_back(static_cast<unsigned short>('0' + i % 10));
    const std::u16string original = Text(f);
    f.append_formatted(f, -1, 0, ' ');      // inline to heap
    f.append_helper(f.data(), f.length());  // heap to heap: the source is freed
    EXPECT_EQ(f.capacity(), 2000u);
    EXPECT_EQ(Text(f), original + original + original + original);

    ucs2string_formatter g;
    g.assign(W(u"0123456789"));
    g.append_formatted_helper(g.data() + 2, 3, 600, 1, '-');
    EXPECT_EQ(Text(g).substr(0, 14), u"0123456789234-");
    g.assign_helper(g.data() + 4, 3);
    EXPECT_EQ(Text(g), u"456");
}

TEST(Ucs2StringFormatterTest, CopiesAreDeepAndOwnTheirInlineBuffer) {
    ucs2string_formatter small;
    small.assign(W(u"small"));
    ucs2string_formatter copy(small);
    EXPECT_TRUE(UsesInlineBuffer(copy));
    copy.push_back('!');
    EXPECT_EQ(Text(small), u"small");

    ucs2string_formatter large;
    large.append(static_cast<unsigned short>('L'), 1200);
    const ucs2string_formatter largeCopy(large);
    EXPECT_NE(largeCopy.data(), large.data());
    large.clear();
    EXPECT_EQ(Text(largeCopy), std::u16string(1200, u'L'));

    copy = largeCopy;
    EXPECT_EQ(Text(copy), Text(largeCopy));
    copy = small;
    EXPECT_EQ(Text(copy), u"small");
    const ucs2string_formatter& self = copy;
    copy = self;
    EXPECT_EQ(Text(copy), u"small");
}

// ---------------------------------------------------------------------------
// Fields

struct FieldCase {
    const char16_t* utf16;
    const char* utf8;
    int width;
    int align;
    char16_t fill;
    const char16_t* expected;
};

const FieldCase kFieldCases[] = {
    // No width: never padded.
    {u"abc", "abc", -1, 2, u'*', u"abc"},
    {u"abc", "abc", INT_MIN, 1, u'*', u"abc"},
    // Wider fields; an align other than 1 and 2 writes the text alone.
    {u"abc", "abc", 5, 1, u'*', u"abc**"},
    {u"abc", "abc", 5, 2, u'*', u"**abc"},
    {u"abc", "abc", 5, 0, u'*', u"abc"},
    {u"abc", "abc", 5, 3, u'*', u"abc"},
    {u"abc", "abc", 3, 2, u'*', u"abc"},
    // Too narrow: number signs when aligned, nothing when not.
    {u"abc", "abc", 2, 1, u'*', u"##"},
    {u"abc", "abc", 2, 2, u' ', u"##"},
    {u"abc", "abc", 2, 0, u'*', u""},
    {u"abc", "abc", 0, 2, u'*', u""},
    {u"", "", 3, 2, u'.', u"..."},
    {u"", "", 3, 0, u'.', u""},
    // A unit beyond ASCII counts one; a pair counts two.
    {u"\u00E9\u20AC", "\xC3\xA9\xE2\x82\xAC", 3, 2, u'\u00B7', u"\u00B7\u00E9\u20AC"},
    {u"\U0001F600", "\xF0\x9F\x98\x80", 4, 1, u'_', u"\U0001F600__"},
    {u"\U0001F600", "\xF0\x9F\x98\x80", 1, 1, u'_', u"#"},
};

// Every source form gives the same units, appended behind the text already there.
TEST(Ucs2StringFormatterTest, FieldsAreTheSameFromEverySource) {
    for (const FieldCase& c : kFieldCases) {
        const std::u16string expected = std::u16string(u"<") + c.expected;
        const auto fill = static_cast<unsigned short>(c.fill);
        SCOPED_TRACE(testing::Message() << c.utf8 << " width " << c.width << " align " << c.align);
        ucs2string_formatter source;
        source.assign(W(c.utf16));
        ucs2string_formatter f[4] = {
            ucs2string_formatter(Utf8("<")), ucs2string_formatter(Utf8("<")),
            ucs2string_formatter(Utf8("<")), ucs2string_formatter(Utf8("<"))};
        f[0].append_formatted(W(c.utf16), c.width, c.align, fill);
        f[1].append_formatted(Utf8(c.utf8), c.width, c.align, fill);
        f[2].append_formatted(lu_utf8string(Utf8(c.utf8)), c.width, c.align, fill);
        f[3].append_formatted(source, c.width, c.align, fill);
        for (const ucs2string_formatter& result : f) {
            EXPECT_EQ(Text(result), expected);
            EXPECT_EQ(result.c_str()[result.length()], 0);
        }
    }
    ucs2string_formatter counted;
    counted.append_formatted_helper(W(u"abcdef"), 2, 4, 2, ' ');
    counted.append_formatted_helper(Utf8("abcde\xE2\x82\xAC"), 7, 6, 2, '+');  // euro sign cut
    EXPECT_EQ(Text(counted), u"  ab+abcde");
}

TEST(Ucs2StringFormatterTest, IntegerFields) {
    struct Case {
        long value;
        int width;
        int align;
        char16_t fill;
        const char16_t* expected;
    };
    const Case signedCases[] = {
        {0, -1, 0, u' ', u"0"},
        {-1, -1, 0, u' ', u"-1"},
        {12345, 3, 2, u' ', u"###"},
        {12345, 3, 0, u' ', u""},
        {-5, 4, 2, u'0', u"00-5"},  // the fill stands before the sign
        {-5, 4, 1, u'*', u"-5**"},
        {-5, 1, 2, u'0', u"#"},  // the sign counts in the width
        {-2147483647L - 1, -1, 0, u' ', u"-2147483648"},
        {LONG_MIN, 21, 2, u' ', u" -9223372036854775808"},
        {LONG_MIN, 19, 2, u' ', u"###################"},
        {LONG_MAX, -1, 1, u' ', u"9223372036854775807"},
    };
    for (const Case& c : signedCases) {
        ucs2string_formatter f;
        f.append_formatted(c.value, c.width, c.align, static_cast<unsigned short>(c.fill));
        EXPECT_EQ(Text(f), c.expected) << c.value << " width " << c.width;
    }
    ucs2string_formatter u;
    u.append_formatted(7ul, -1, 1, '*')
        .append_formatted(0ul, 3, 2, '0')
        .append_formatted(ULONG_MAX, 20, 2, ' ')
        .append_formatted(42ul, 1, 1, '0')
        .append_formatted(-7, 3, 2, '0')
        .append_formatted(8u, 2, 1, '_');
    EXPECT_EQ(Text(u), u"700018446744073709551615#0-78_");
}

// ---------------------------------------------------------------------------
// Stream insertion of ucs2string

std::string Inserted(const ucs2string& s) {
    std::ostringstream out;
    out << s;
    return out.str();
}

ucs2string Repeated(char16_t unit, unsigned int n, const std::u16string& tail) {
    return Str(std::u16string(n, unit) + tail);
}

TEST(Ucs2StringStreamInsertionTest, ShortTextsPairSurrogates) {
    ucs2string null_text = Str(u"gone");
    null_text.setnull();
    EXPECT_EQ(Inserted(null_text), "");
    EXPECT_EQ(Inserted(Str(u"a\u00E9\u20AC\U0001F600")), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    // A high surrogate without its partner is dropped, at the end as well.
    EXPECT_EQ(Inserted(Str(u"ab\xD800")), "ab");
    EXPECT_EQ(Inserted(Str(u"\xDC00")), "\xED\xB0\x80");
    // A char string ends at the first zero.
    EXPECT_EQ(Inserted(Str(std::u16string(u"ab\0cd", 5))), "ab");
}

TEST(Ucs2StringStreamInsertionTest, TextsOf2047BytesOrMoreWritePairsUnitByUnit) {
    // The measure counts the terminator: 2042 letters and a pair make 2046
    // bytes, 2047 measured, and stay on the stack ...
    EXPECT_EQ(Inserted(Repeated(u'a', 2042, u"\U0001F600")),
              std::string(2042, 'a') + "\xF0\x9F\x98\x80");
    // ... one letter more measures 2048 and takes the allocating path.
    const std::string unpaired = "\xED\xA0\xBD\xED\xB8\x80";
    EXPECT_EQ(Inserted(Repeated(u'a', 2043, u"\U0001F600")), std::string(2043, 'a') + unpaired);
    EXPECT_EQ(Inserted(Repeated(u'a', 2044, u"\U0001F600")), std::string(2044, 'a') + unpaired);
    // On that path a lone high surrogate is written like any unit.
    EXPECT_EQ(Inserted(Repeated(u'\u20AC', 683, u"\xD800")).size(), 2049u + 3u);
}

#ifndef KAI18N_TEST_NO_NEW_REPLACEMENT
TEST(Ucs2StringStreamInsertionTest, FailedConversionWritesAMarker) {
    const ucs2string longText = Repeated(u'z', 4000, u"");
    const ucs2string shortText = Str(u"short");
    FailingArrayNew failing;
    EXPECT_EQ(Inserted(longText), "<UTF8 conversion failed!>");
    EXPECT_EQ(Inserted(shortText), "short");  // short texts never allocate
}
#endif

}  // namespace

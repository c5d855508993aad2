// UTF-8: the free conversions and the traits (against ICU), and lu_utf8string.
#include <gtest/gtest.h>
#include <unicode/ustring.h>

#include <cstring>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/utf8_conversion.h"
#include "test_support.h"

using namespace test_support;

namespace {

template <class V>
unsigned int Size(const V& v) {
    return static_cast<unsigned int>(v.size());
}

Bytes ToUtf8(const Units& units) {
    unsigned char* out = nullptr;
    unsigned int bytes = 12345;
    EXPECT_EQ(UCS2_ConvertToUTF8(units.data(), Size(units), &out, &bytes), LU_S_OK);
    EXPECT_NE(out, nullptr);  // not null even for no units
    Bytes result(out, out + bytes);
    delete[] out;
    return result;
}

// Returns the code; on failure both outputs must have been reset.
long ToUcs2(const Bytes& bytes, Units* units) {
    unsigned short* out = reinterpret_cast<unsigned short*>(1);
    unsigned int count = 999;
    const long rc = UTF8_ConvertToUCS2(bytes.data(), Size(bytes), &out, &count);
    EXPECT_TRUE(rc >= 0 || (out == nullptr && count == 0));
    units->assign(out, out + count);
    delete[] out;
    return rc;
}

// clang-format off
TEST(Utf8ConversionTest, DecodesWithoutCheckingContinuationBytes) {
    const long ok = LU_S_OK, bad = LU_E_INVALID_ARG;
    const std::tuple<Bytes, long, Units> cases[] = {
        {{0x80}, ok, {0x0080}},  // a stray continuation byte is a sequence of one
        // Encoded surrogates decode to the surrogate units.
        {{0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}, ok, {0xD83D, 0xDE00}},
        // Wrong continuation bytes still add their values, kept to 16 bits.
        {{0xC3, 0x41}, ok, {0x0081}}, {{0xE0, 0x00, 0x00}, ok, {0xDF80}}, {{0xC0, 0x80}, ok, {0x0000}},
        // Empty, overrunning, and four- or six-byte sequences are refused.
        {Bytes{}, bad, Units{}}, {{0x41, 0xE2, 0x82}, bad, Units{}}, {{0x41, 0xF0, 0x9F, 0x98, 0x80}, bad, Units{}},
        {{0xFC, 0x80, 0x80, 0x80, 0x80, 0x80, 0x41}, bad, Units{}},
    };
    for (const auto& [bytes, code, expected] : cases) {
        Units units;
        EXPECT_EQ(ToUcs2(bytes, &units), code);
        EXPECT_EQ(units, expected);
    }
    // Every continuation byte alone is a sequence of one; a long ASCII line is widened whole.
    for (unsigned char b = 0x80; b < 0xC0; ++b) {
        Units units;
        EXPECT_EQ(ToUcs2({b, 'A'}, &units), ok);
        EXPECT_EQ(units, (Units{b, 'A'})) << int{b};
    }
    const std::string line = "The quick brown fox jumps over the lazy dog";
    Units units;
    EXPECT_EQ(ToUcs2(Bytes(line.begin(), line.end()), &units), ok);
    EXPECT_EQ(units, Units(line.begin(), line.end()));
    // Nine ASCII bytes, then a sequence cut short, and whole.
    EXPECT_EQ(UTF8_GetCharCount(Utf8("ABCDEFGHI\xC3\xA9"), 11) + UTF8_GetCharCount(Utf8("ABCDEFGHI\xC3"), 10), 10u);
    unsigned short* out = nullptr;
    unsigned int count = 5;
    EXPECT_EQ(UTF8_ConvertToUCS2(nullptr, 3, &out, &count), LU_E_INVALID_ARG);
    EXPECT_EQ(count, 0u);
}
// clang-format on

// Each step: the last byte that may be read, the unit, the cursor after it.
TEST(Utf8ConversionTest, NextCharAdvancesOrReportsFfffAndStays) {
    const unsigned char text[] = {0x41, 0xC3, 0xA9, 0xE2, 0x82, 0xAC, 0xF0, 0x9F, 0x98, 0x80};
    const unsigned char* const last = text + sizeof text - 1;
    const std::tuple<const unsigned char*, unsigned short, int> steps[] = {
        {last, 0x41, 1},
        {last, 0xE9, 3},
        {text + 4, 0xFFFF, 3},  // one byte short of the euro
        {text + 5, 0x20AC, 6},
        {last, 0xFFFF, 6}};  // a four-byte sequence
    const unsigned char* cursor = text;
    for (const auto& [end, unit, after] : steps) {
        EXPECT_EQ(UTF8_ConvertNextChar(&cursor, end), unit);
        EXPECT_EQ(cursor, text + after);
    }
}

TEST(Utf8TraitsTest, SequenceShapesByteCountsAndOrder) {
    const std::pair<unsigned int, unsigned int> codePoints[] = {
        {0x7F, 1},     {0x80, 2},      {0x7FF, 2},     {0x800, 3},
        {0xFFFF, 3},   {0x10000, 4},   {0x10FFFF, 4},  {0x1FFFFF, 4},
        {0x200000, 5}, {0x3FFFFFF, 5}, {0x4000000, 6}, {0x80000000u, 6}};
    for (const auto& [cp, size] : codePoints) EXPECT_EQ(lu_utf8_traits::GetUTF8Bytes(cp), size);
    // By the lead byte: continuation bytes count one, 0xFE and 0xFF six.
    for (unsigned int lead = 0; lead < 256; ++lead) {
        const unsigned int size =
            lead < 0xC0 ? 1 : 2 + (lead >= 0xE0) + (lead >= 0xF0) + (lead >= 0xF8) + (lead >= 0xFC);
        EXPECT_EQ(lu_utf8_traits::GetNbBytes(static_cast<unsigned char>(lead)), size) << lead;
        EXPECT_EQ(lu_utf8_traits::is_lead_byte(static_cast<unsigned char>(lead)),
                  lead < 0x80 || lead >= 0xC0);
    }
    EXPECT_EQ(lu_utf8_traits::compare(Utf8("\xFF"), Utf8("\x01"), 1), 1);  // unsigned bytes
    EXPECT_TRUE(lu_utf8_traits::compare(Utf8("ab"), Utf8("ac"), 2) == -1 &&
                lu_utf8_traits::compare(Utf8("ab"), Utf8("ac"), 1) == 0);
    const unsigned short unit = 0x41;
    EXPECT_THROW(lu_utf8_traits::compare(Utf8("A"), &unit, 1), int);
    // A sequence cut short by the end is not counted; a five-byte one counts two units.
    EXPECT_EQ(lu_utf8_traits::char_length(Utf8("A\xE2\x82")), 1u);
    EXPECT_EQ(lu_utf8_traits::char_length(Utf8("\xF8\x88\x80\x80\x80"), 5), 2u);
    // A stray continuation byte, a cut sequence, a lead without its continuation.
    for (const std::string bad : {"a\x80", "a\xE2\x82", "\xC3\x41"})
        EXPECT_FALSE(lu_utf8_traits::_is_valid_utf8(Utf8(bad.c_str()), Size(bad))) << bad;
}

// Random text; surrogates come only as well-formed pairs, when `pairs` is set.
Units RandomText(std::mt19937& rng, std::size_t length, bool pairs) {
    const unsigned limits[] = {0x7F, 0x7FF, 0xD7FF, 0xFFFF, 0x10FFFF};
    Units units;
    while (units.size() < length) {
        const unsigned cp = 1 + rng() % limits[rng() % (pairs ? 5 : 4)];
        if (cp < 0x10000 && (cp < 0xD800 || cp > 0xDFFF)) units.push_back(cp);
        if (cp < 0x10000) continue;
        units.push_back(static_cast<unsigned short>(0xD800 + ((cp - 0x10000) >> 10)));
        units.push_back(static_cast<unsigned short>(0xDC00 + (cp & 0x3FF)));
    }
    return units;
}

Bytes IcuToUtf8(const Units& units) {
    UErrorCode status = U_ZERO_ERROR;
    Bytes bytes(units.size() * 3);
    int32_t length = 0;
    u_strToUTF8(reinterpret_cast<char*>(bytes.data()), static_cast<int32_t>(bytes.size()), &length,
                reinterpret_cast<const UChar*>(units.data()), static_cast<int32_t>(units.size()),
                &status);
    EXPECT_TRUE(U_SUCCESS(status));
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

Units IcuFromUtf8(const Bytes& bytes) {
    UErrorCode status = U_ZERO_ERROR;
    Units units(bytes.size());
    int32_t length = 0;
    u_strFromUTF8(reinterpret_cast<UChar*>(units.data()), static_cast<int32_t>(units.size()),
                  &length, reinterpret_cast<const char*>(bytes.data()),
                  static_cast<int32_t>(bytes.size()), &status);
    EXPECT_TRUE(U_SUCCESS(status));
    units.resize(static_cast<std::size_t>(length));
    return units;
}

// The free functions encode a pair as two units of three bytes; the traits join it into four.
TEST(Utf8DifferentialTest, ConversionsAgreeWithIcu) {
    EXPECT_EQ(ToUtf8({0xD83D, 0xDE00}), (Bytes{0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}));
    std::mt19937 rng(20261122);
    for (int round = 0; round < 200; ++round) {
        const Units units = RandomText(rng, 1 + round * 7, false);
        const Bytes bytes = ToUtf8(units);
        ASSERT_EQ(bytes, IcuToUtf8(units)) << "round " << round;
        EXPECT_EQ(UTF8_GetCharCount(bytes.data(), Size(bytes)), Size(units));
        Units back;
        ASSERT_EQ(ToUcs2(bytes, &back), LU_S_OK);
        ASSERT_EQ(back, IcuFromUtf8(bytes)) << "round " << round;

        const Units pairs = RandomText(rng, 1 + round * 5, true);
        Bytes joined(lu_utf8_traits::length(pairs.data(), Size(pairs)));
        lu_utf8_traits::assign(joined.data(), Size(joined), pairs.data());
        ASSERT_EQ(joined, IcuToUtf8(pairs)) << "round " << round;
        EXPECT_TRUE(lu_utf8_traits::_is_valid_utf8(joined.data(), Size(joined)));
        Units split(lu_utf8_traits::char_length(joined.data(), Size(joined)));
        lu_utf8_traits::copy(split.data(), joined.data(), Size(split));
        ASSERT_EQ(split, IcuFromUtf8(joined)) << "round " << round;
    }
}

constexpr unsigned int npos = lu_utf8string::npos;
// 0x80041128, 0x8004112a, 0x80041123, 0x80041127 sign-extended: written out to catch a slip.
constexpr long kOutOfRange = -0x7FFBEED8L, kTooLong = -0x7FFBEED6L, kInvalidArg = -0x7FFBEEDDL,
               kBadUtf8Lead = -0x7FFBEED9L;
using uc = unsigned char;
using us = unsigned short;
const unsigned char* const kNil = lu_utf8string().data();

std::string BytesOf(const lu_utf8string& s) {
    return std::string(reinterpret_cast<const char*>(s.data()), s.length());
}
lu_utf8string U8(const std::string& b) {
    return lu_utf8string(Utf8(b.c_str()), static_cast<unsigned int>(b.size()));
}

struct Probe : lu_utf8string {  // reaches the protected layer
    using lu_utf8string::allocate, lu_utf8string::allocation_size;
};

// The content, the terminator, the capacity and, empty and not null, the nil buffer. Size classes
// are 8 bytes wide, with boundaries after 3, 11, 19, ... bytes: class (n + 4) / 8.
void ExpectString(const lu_utf8string& s, const std::string& expected) {
    ASSERT_EQ(BytesOf(s), expected);
    EXPECT_EQ(s.data()[s.length()], 0);
    EXPECT_EQ(s.capacity(), expected.empty() ? 0 : (expected.size() + 4) / 8 * 8 + 3);
    EXPECT_TRUE(!expected.empty() || s.isnull() || s.data() == kNil);
}

// Every edit at every position of strings of 0 to 12 bytes against std::string; the buffer stays
// within its size class. Then sources inside the string, moved over or freed.
TEST(LuUtf8StringEditTest, EveryEditAtEveryPositionAgainstStdString) {
    const std::string digits = "0123456789";
    for (std::size_t len = 0; len <= 12; ++len) {
        const std::string model = std::string("abcdefghijkl").substr(0, len);
        for (std::size_t pos = 0; pos <= len; ++pos) {
            for (const std::size_t n : std::vector<std::size_t>{0, 1, 2, len - pos, npos}) {
                SCOPED_TRACE(::testing::Message() << len << " " << pos << " " << n);
                for (unsigned int k = 0; k <= 9; ++k) {
                    const std::string expected = std::string(model).replace(pos, n, digits, 0, k);
                    lu_utf8string s = U8(model);
                    const unsigned char* before = s.data();
                    ExpectString(s.replace(pos, n, Utf8(digits.c_str()), k), expected);
                    EXPECT_TRUE(len == 0 || expected.empty() ||
                                (len + 4) / 8 != (expected.size() + 4) / 8 || s.data() == before);
                    ExpectString(U8(model).replace(pos, n, U8(digits), 10 - k, npos),
                                 std::string(model).replace(pos, n, digits, 10 - k, npos));
                    ExpectString(U8(model).replace(pos, n, k, uc('#')),
                                 std::string(model).replace(pos, n, k, '#'));
                }
                for (std::size_t from = 0; from <= len; ++from)
                    for (unsigned int k = 0; k <= len - from; ++k) {
                        lu_utf8string s = U8(model);
                        ASSERT_EQ(BytesOf(s.replace(pos, n, s.data() + from, k)),
                                  std::string(model).replace(pos, n, model, from, k))
                            << from << " " << k;
                    }
                ExpectString(U8(model).erase(pos, n), std::string(model).erase(pos, n));
            }
        }
    }
    lu_utf8string s("abc");
    EXPECT_EQ(BytesOf(s.append(s).insert(1, s)), "aabcabcbcabc");
    // UTF-16 units read from the string's own bytes, which the edit moves or frees.
    for (const std::string model : {"ABCD", "ABCDEFGHIJ"}) {
        lu_utf8string t = U8(model);
        us unit;
        std::memcpy(&unit, model.data() + 2, sizeof unit);
        EXPECT_EQ(BytesOf(t.insert(0, reinterpret_cast<const us*>(t.data() + 2), 1u)),
                  BytesOf(lu_utf8string(&unit, 1u)) + model);
    }
}

// In (E): a lone low surrogate stays, a high one goes, with the unit after it unless that is a low
// one. Out, by ucs2string (D): a zero byte is a character, a cut sequence is left out.
TEST(LuUtf8StringUtf16Test, PairsBecomeOneSequenceAndBrokenPairsAreDropped) {
    enum { E = 1, D = 2 };
    const std::tuple<std::u16string, std::string, int> rows[] = {
        {u"", "", E | D},
        {u"\U00010000\U0010FFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", E | D},
        {u"\xDC00", "\xED\xB0\x80", E | D},
        {u"\xD800\x41", "", E},
        {u"A\xD83D", "A", E},
        {u"\xD83D\xD83D\xDE00", "\xED\xB8\x80", E},
        {u"A\u07FF\u0800", "A\xDF\xBF\xE0\xA0\x80", E | D},
        {std::u16string(u"x\0y", 3), std::string("x\0y", 3), D},
        {u"A", "A\xE2\x82", D},
        {u"", "\xF0\x9F\x98", D}};
    for (const auto& [text, bytes, ways] : rows) {
        EXPECT_TRUE(!(ways & D) || (U16(ucs2string(U8(bytes))) == text &&
                                    U16(Str(u"old").assign(U8(bytes))) == text))
            << bytes;
        if (!(ways & E)) continue;
        ExpectString(lu_utf8string(UnitsOf(text + u'\0').data()), bytes);
        ExpectString(lu_utf8string("<->").replace(1, 1, Str(text)), "<" + bytes + ">");
    }
    // Unit ranges that cut a pair; repeated units, in either argument order.
    const ucs2string text = Str(u"a\U0001F600b");
    EXPECT_EQ(BytesOf(lu_utf8string(text, 2)), "\xED\xB8\x80\x62");  // a lone low surrogate, b
    EXPECT_EQ(BytesOf(lu_utf8string().append(text, 1, 2)), "\xF0\x9F\x98\x80");
    lu_utf8string s;
    s.append(us(0x20AC), 2u).append(uc(0xE2), 2u).append(2u, us('y')).append(2u, uc('z'));
    EXPECT_EQ(BytesOf(s), "\xE2\x82\xAC\xE2\x82\xAC\xE2\xE2yyzz");  // ASCII units are bytes
    EXPECT_EQ(BytesOf(s.assign(us(0xD800), 1u)), "\xED\xA0\x80");   // a surrogate unit alone
}

TEST(LuUtf8StringBufferTest, NullNilAndHeapBuffers) {
    lu_utf8string s("x");
    s.setnull();  // and whatever leaves the length at 0 keeps it null
    s.assign(Utf8("")).append(lu_utf8string()).insert(0, Str(u"")).erase().remove();
    s.resize(0);
    EXPECT_TRUE(s.isnull() && s.size() == 0 && s.c_str()[0] == 0);
    // Whole copies carry null, range forms do not; ucs2string takes it on construction only.
    const ucs2string nullUnits{null_string()};
    lu_utf8string t("abc");
    EXPECT_TRUE(lu_utf8string(s).isnull() && (t = s).isnull() &&
                lu_utf8string(nullUnits).isnull() &&
                lu_utf8string("x").assign(nullUnits).isnull() && ucs2string(s).isnull() &&
                ucs2string(nullUnits).assign(lu_utf8string()).isnull());
    EXPECT_FALSE(s.substr().isnull() || lu_utf8string(nullUnits, 0).isnull() ||
                 lu_utf8string("x").assign(s, 0, 0).isnull() || lu_utf8string().isnull() ||
                 ucs2string(nullUnits).assign(s).isnull());
    // Moves carry null along and leave an empty string behind; swap exchanges buffers.
    lu_utf8string moved(std::move(t)), heap("xy");
    EXPECT_TRUE(moved.isnull() && !t.isnull());  // NOLINT(bugprone-use-after-move)
    heap.swap(moved);
    EXPECT_TRUE(heap.isnull() && BytesOf(moved) == "xy");
    // An empty result is nil; clear() gives nil even from null, as for ucs2string.
    EXPECT_TRUE(BytesOf(moved.erase(0, 1)) == "y" && moved.erase().data() == kNil);
    heap.clear();
    EXPECT_EQ(heap.data(), kNil);
    // resize cuts in place (the class then follows the new length), pads, and at 0 gives nil.
    lu_utf8string r("0123456789");
    const unsigned char* before = r.data();
    r.resize(2);
    EXPECT_EQ(r.append(Utf8("2")).data(), before);  // 3 bytes, in the class of 2
    ExpectString(r.append(Utf8("3")), "0123");      // a new class, grown at the end
    r.resize(6, uc('x'));
    r.resize(7);
    ExpectString(r, std::string("0123xx\0", 7));
    r.resize(0);
    EXPECT_EQ(r.data(), kNil);
    // size() only stores length and terminator, within the class of the length.
    lu_utf8string z("abcdefghij");
    z.size(4);
    z.size(10);
    EXPECT_EQ(BytesOf(z), std::string("abcd\0fghij", 10));
    EXPECT_EQ(ThrownCode([&] { z.size(40); }), kOutOfRange);              // beyond the class of 10
    EXPECT_EQ(ThrownCode([] { lu_utf8string().size(1); }), kOutOfRange);  // static buffer
    EXPECT_EQ(ThrownCode([] { Probe::allocate(npos); }), kTooLong);
    EXPECT_EQ(Probe::allocation_size(0xFFFFFFFEu), 0x100000008ull);  // no wrap to a small class
}

// Out of range: a position beyond the length, or an index at it. Too long: npos or beyond 32 bits.
// Invalid: a five-byte sequence, which ucs2string refuses. The string stays as it was.
TEST(LuUtf8StringAccessTest, ElementsViewsComparisonsAndFailureCodes) {
    lu_utf8string s("abc");
    const lu_utf8string& cs = s;
    const unsigned char* buffer = s.data();
    const ucs2string units = Str(u"xy");
    const us euro[] = {0x20AC, 0};
    const lu_utf8string five(Utf8("\xF8\x88\x80\x80\x80"));
    const std::pair<long, std::vector<std::function<void()>>> rows[] = {
        {kOutOfRange,
         {[&] { s.insert(4, euro); }, [&] { s.erase(4, 1); }, [&] { s.insert(0, s, 4, 1); },
          [&] { s.append(units, 3, 1); }, [&] { s.assign(units, 3, 0); },
          [&] { s.copy(nullptr, 1, 4); }, [&] { lu_utf8string(s, 4); }, [&] { s.at(3); },
          [&] { cs.at(3); }, [&] { s[3]; }, [&] { cs[4]; }, [&] { s.compare(4, 1, s); },
          [&] { s.compare(0, 1, s, 4, 1); }, [&] { s.compare(Utf8("a"), 4); }}},
        {kTooLong,
         {[&] { s.append(uc('x'), 0xFFFFFFFCu); }, [&] { s.replace(0, 1, 0xFFFFFFFDu, uc(0)); },
          [&] { s.append(us(0x20AC), 0x55555556u); }, [&] { s.assign(us(0x20AC), 0x55555555u); },
          [&] { lu_utf8string(0xFFFFFFFFu, uc('x')); }}},
        {kInvalidArg, {[&] { ucs2string u(five); }, [&] { Str(u"x").assign(five); }}},
    };
    for (const auto& [code, actions] : rows)
        for (std::size_t i = 0; i < actions.size(); ++i) {
            EXPECT_EQ(ThrownCode(actions[i]), code) << i;
            EXPECT_TRUE(BytesOf(s) == "abc" && s.data() == buffer) << i;
        }
    s[0] = 'x';
    s.at(1) = 'y';
    EXPECT_TRUE(s.get_at(1) == 'y' && BytesOf(s) == "xyc" && cs[3] == 0);  // the terminator
    unsigned char target[4] = {'X', 'X', 'X', 'X'};
    EXPECT_TRUE(s.copy(target, 2, 1) == 2u && s.copy(target, 10, 2) == 1u);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(target), 4), "ccXX");  // no terminator
    EXPECT_EQ(BytesOf(s.substr(1, 2)), "yc");
    std::ostringstream out;
    out << s << '|' << lu_utf8string("ab\0cd", 5u);
    EXPECT_EQ(out.str(), "xyc|ab");  // up to the first zero byte
    // compare: unsigned bytes, then lengths; the difference, not its sign.
    const lu_utf8string t("abcdef");
    EXPECT_TRUE(t.compare("abd") == -1 && lu_utf8string("\x7F").compare(Utf8("\x80")) == -1);
    EXPECT_TRUE(!(t == "abcde") && t < "b" && lu_utf8string("").compare("abc") == -3);
    EXPECT_EQ(t.compare(2, npos, lu_utf8string("cd")), 2);
    EXPECT_EQ(t.compare(2, 3, lu_utf8string("xcdx"), 1, npos), -1);  // 'e' against 'x'
    EXPECT_EQ(t.compare(Utf8("cd"), 2, 2), 2);  // n is the length of the other text
    EXPECT_EQ(t.compare(Utf8("cdefgh"), 2, 6), -2);
    EXPECT_EQ(t.compare(0, npos, Utf8("abcz"), 3), 3);
}

TEST(LuUtf8PosTest, ReadsOneUnitAtABytePosition) {
    // A continuation byte reads as itself, the terminator as 0; four bytes or a cut are refused.
    const std::tuple<std::string, unsigned int, long> rows[] = {
        {"\xC3\xA9", 0, 0xE9},     {"x\xE2\x82\xAC", 1, 0x20AC},
        {"\xE2\x82\xAC", 1, 0x82}, {"abc", 3, 0},
        {"abc", 4, kOutOfRange},   {"\xF0\x9F\x98\x80", 0, kBadUtf8Lead},
        {"a\xC3", 1, kBadUtf8Lead}};
    for (const auto& [bytes, offset, unitOrCode] : rows) {
        const lu_utf8string s = U8(bytes);
        long unit = -1;
        const lu_utf8_pos position(&s, offset);  // a binding cannot be captured before C++20
        const long code = ThrownCode([&] { unit = *position; });
        EXPECT_EQ(code != 0 ? code : unit, unitOrCode) << bytes << " @" << offset;
    }
    EXPECT_EQ(ThrownCode([] { return *lu_utf8_pos(nullptr, 0); }), kOutOfRange);
}

}  // namespace

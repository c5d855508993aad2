#include "kai18n/strings/lu_utf8string.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <sstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "kai18n/strings/lu_utf8_traits.h"
#include "test_support.h"

using namespace test_support;

namespace {

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

// The content, the terminator, the capacity and, empty and not null, the nil buffer. Size
// classes are 8 bytes wide, with boundaries after 3, 11, 19, ... bytes: class (n + 4) / 8.
void ExpectString(const lu_utf8string& s, const std::string& expected) {
    ASSERT_EQ(BytesOf(s), expected);
    EXPECT_EQ(s.data()[s.length()], 0);
    EXPECT_EQ(s.capacity(), expected.empty() ? 0 : (expected.size() + 4) / 8 * 8 + 3);
    EXPECT_TRUE(!expected.empty() || s.isnull() || s.data() == kNil);
}

// Every edit at every position of strings of 0 to 12 bytes against std::string; within its
// size class the buffer stays (across classes, growth at the end may be done in place by
// realloc). Then sources inside the string, moved over or freed.
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
    // Positions are bytes: an insert may split a sequence, and that is no failure.
    ExpectString(lu_utf8string(Utf8("\xE2\x82\xAC")).insert(1, Utf8("x")), "\xE2x\x82\xAC");
}

// Encoding on the way in (E): a lone low surrogate stays, a high one goes, and so does
// the unit after it if that is not a low one. Decoding by ucs2string on the way out (D):
// a zero byte is a character, and a last sequence cut short is left out.
TEST(LuUtf8StringUtf16Test, PairsBecomeOneSequenceAndBrokenPairsAreDropped) {
    enum { E = 1, D = 2 };
    const std::tuple<std::u16string, std::string, int> rows[] = {
        {u"", "", E | D},
        {u"A\x7F\x80", "A\x7F\xC2\x80", E | D},
        {u"\x7FF\x800\xFFFF", "\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF", E | D},
        {u"\U00010000\U0010FFFF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", E | D},
        {u"\xDC00", "\xED\xB0\x80", E | D},
        {u"\xD800\x41", "", E},
        {u"A\xD83D", "A", E},
        {u"\xD83D\xD83D\xDE00", "\xED\xB8\x80", E},
        {std::u16string(u"x\0y", 3), std::string("x\0y", 3), D},
        {u"A", "A\xE2\x82", D}};
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
    s.append(us(0x20AC), 2u).append(uc(0xE2), 2u).append(2u, us(0xE9)).append(2u, uc('z'));
    EXPECT_EQ(BytesOf(s), "\xE2\x82\xAC\xE2\x82\xAC\xE2\xE2\xC3\xA9\xC3\xA9zz");
    EXPECT_EQ(BytesOf(s.assign(us(0xD800), 1u)), "\xED\xA0\x80");  // a surrogate unit alone
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
    lu_utf8string moved(std::move(t)), heap("xy"), target("zz");
    const unsigned char* buffer = heap.data();
    EXPECT_TRUE(moved.isnull() && !t.isnull());
    target = std::move(heap);  // releases its own buffer
    target.swap(s);
    EXPECT_TRUE(target.isnull() && s.data() == buffer);
    // An empty result is nil; clear() gives nil even from null, as for ucs2string.
    EXPECT_TRUE(BytesOf(s.erase(0, 1)) == "y" && s.erase().data() == kNil);
    moved.clear();
    EXPECT_EQ(moved.data(), kNil);
    alignas(lu_utf8string) unsigned char storage[sizeof(lu_utf8string)];
    std::memset(storage, 0xA5, sizeof storage);  // init() is for raw storage: it releases nothing
    auto* raw = reinterpret_cast<lu_utf8string*>(storage);
    raw->init();
    EXPECT_EQ(BytesOf(raw->append(Utf8("ok"))), "ok");
    raw->~lu_utf8string();
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
    z.size(0);  // a heap buffer of length 0, in which no byte fits
    EXPECT_EQ(ThrownCode([&] { z.size(1); }), kOutOfRange);
    EXPECT_EQ(ThrownCode([] { lu_utf8string().size(1); }), kOutOfRange);  // static buffer
    // data() installs a buffer, the same one again without a release, nil for null.
    Probe p;
    lu_utf8string::buffer_type* b = Probe::allocate(3);
    std::memcpy(b->text, "xyz", 3);
    p.data(b);
    p.data(b);
    EXPECT_EQ(BytesOf(p), "xyz");
    p.data(nullptr);
    EXPECT_EQ(p.data(), kNil);
    EXPECT_EQ(ThrownCode([] { Probe::allocate(npos); }), kTooLong);
    EXPECT_EQ(Probe::allocation_size(0xFFFFFFFEu), 0x100000008ull);  // no wrap to a small class
}

TEST(LuUtf8StringCompareTest, UnsignedBytesThenLengths) {
    const std::tuple<const char*, const char*, int> rows[] = {
        {"abc", "abc", 0},  {"abc", "abd", -1}, {"\xFF", "\x01", 1}, {"\x7F", "\x80", -1},
        {"ab", "abcd", -2}, {"abcd", "ab", 2},  {"", "abc", -3},     {"b", "abc", 1}};
    for (const auto& [a, b, expected] : rows) {
        const lu_utf8string x(a);
        EXPECT_TRUE(x.compare(b) == expected && x.compare(Utf8(b)) == expected &&
                    (x == b) == (expected == 0) && (x < b) == (expected < 0))
            << a << " " << b;
    }
    const lu_utf8string s("abcdef");
    EXPECT_EQ(s.compare(2, npos, lu_utf8string("cd")), 2);
    EXPECT_EQ(s.compare(2, 3, lu_utf8string("xcdx"), 1, npos), -1);  // 'e' against 'x'
    EXPECT_EQ(s.compare(Utf8("cdef"), 2), 0);
    EXPECT_EQ(s.compare(Utf8("cd"), 2, 2), 2);  // n is the length of the other text
    EXPECT_EQ(s.compare(Utf8("cdefgh"), 2, 6), -2);
    EXPECT_EQ(s.compare(0, npos, Utf8("abcz"), 3), 3);
}

// Out of range: a position beyond the length, of this string or a source, or an index at it.
// Too long: a length of npos (0xFFFFFFFF) or beyond 32 bits, by repeated bytes or units.
// Invalid argument: a five-byte sequence, which ucs2string refuses. The string stays as it was.
TEST(LuUtf8StringAccessTest, ElementsViewsAndFailureCodes) {
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
    EXPECT_EQ(s.copy(target, 2, 1), 2u);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(target), 4), "ycXX");  // no terminator
    EXPECT_TRUE(s.copy(target, 10, 2) == 1u && s.copy(target, 1, 3) == 0u);
    EXPECT_EQ(BytesOf(s.substr(1, 2)), "yc");
    std::ostringstream out;
    out << s << '|' << lu_utf8string("ab\0cd", 5u);
    EXPECT_EQ(out.str(), "xyc|ab");  // up to the first zero byte
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

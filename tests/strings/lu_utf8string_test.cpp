#include "kai18n/strings/lu_utf8string.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/ucs2string.h"
#include "test_support.h"

using namespace test_support;

namespace {

constexpr unsigned int npos = lu_utf8string::npos;
// Written out, so that a wrong constant or a missing sign extension shows.
constexpr long kOutOfRange = -0x7FFBEED8L;   // 0x80041128
constexpr long kTooLong = -0x7FFBEED6L;      // 0x8004112a
constexpr long kInvalidArg = -0x7FFBEEDDL;   // 0x80041123
constexpr long kBadUtf8Lead = -0x7FFBEED9L;  // 0x80041127

using uc = unsigned char;
using us = unsigned short;

std::string BytesOf(const lu_utf8string& s) {
    return std::string(reinterpret_cast<const char*>(s.data()), s.length());
}
lu_utf8string U8(const std::string& b) {
    return lu_utf8string(Utf8(b.c_str()), static_cast<unsigned int>(b.size()));
}
const unsigned char* NilData() {
    return lu_utf8string().data();
}
// Classes are 8 bytes wide, with boundaries after 3, 11, 19, ... bytes.
int SizeClass(std::size_t length) {
    return length == 0 ? -1 : static_cast<int>((length + 4) / 8);
}

struct Probe : lu_utf8string {  // reaches the protected layer
    using lu_utf8string::allocate;
    using lu_utf8string::allocation_size;
    using lu_utf8string::lu_utf8string;
};

// The content, the terminator, the capacity of the class, and the nil buffer
// for an empty non-null result.
void ExpectString(const lu_utf8string& s, const std::string& expected) {
    ASSERT_EQ(BytesOf(s), expected);
    EXPECT_EQ(s.data()[s.length()], 0);
    if (expected.empty()) {
        EXPECT_EQ(s.capacity(), 0u);
        EXPECT_TRUE(s.isnull() || s.data() == NilData());
    } else {
        EXPECT_EQ(SizeClass(s.capacity()), SizeClass(s.length()));
        EXPECT_EQ(SizeClass(s.capacity() + 1), SizeClass(s.length()) + 1);
    }
}

TEST(LuUtf8StringBufferTest, SizeClassesDecideWhenTheBufferMoves) {
    const unsigned int rows[][3] = {{0, 0, 0},    {1, 8, 3},    {3, 8, 3},   {4, 16, 11},
                                    {11, 16, 11}, {12, 24, 19}, {20, 32, 27}};
    for (const auto& row : rows) {
        EXPECT_EQ(Probe::allocation_size(row[0]), row[1]) << row[0];
        EXPECT_EQ(lu_utf8string(uc('q'), row[0]).capacity(), row[2]) << row[0];
    }
    EXPECT_EQ(Probe::allocation_size(0xFFFFFFFEu), 0x100000008ull);  // no wrap to a small class

    lu_utf8string s("ab");
    const unsigned char* before = s.data();
    s.append(uc('c'), 1u);
    EXPECT_EQ(s.data(), before);  // 2 -> 3 bytes: one class
    s.append(uc('d'), 1u);
    EXPECT_NE(s.data(), before);  // 3 -> 4 bytes: the buffer is replaced

    // resize cuts in place; capacity then follows the new length.
    lu_utf8string ten("0123456789");
    before = ten.data();
    ten.resize(2);
    EXPECT_EQ(ten.data(), before);
    EXPECT_EQ(ten.capacity(), 3u);
    ten.append(Utf8("2"));
    EXPECT_EQ(ten.data(), before);
    ten.append(Utf8("3"));  // leaving the class reallocates as usual
    EXPECT_NE(ten.data(), before);
    ten.resize(6, uc('x'));
    EXPECT_EQ(BytesOf(ten), "0123xx");
    ten.resize(7);
    EXPECT_EQ(BytesOf(ten), std::string("0123xx\0", 7));
    ten.resize(0);
    EXPECT_EQ(ten.data(), NilData());

    // size() only stores length and terminator, within the class of the length.
    lu_utf8string z("abcdefghij");
    z.size(4);
    z.size(10);
    EXPECT_EQ(BytesOf(z), std::string("abcd\0fghij", 10));
    z.size(0);  // a heap buffer of length 0
    EXPECT_TRUE(z.empty());
    EXPECT_EQ(ThrownCode([&] { z.size(1); }), kOutOfRange);
    EXPECT_EQ(ThrownCode([] { lu_utf8string().size(1); }), kOutOfRange);  // static buffer

    Probe p;
    lu_utf8string::buffer_type* b = Probe::allocate(3);
    std::memcpy(b->text, "xyz", 3);
    p.data(b);
    p.data(b);  // the installed buffer again: no release
    EXPECT_EQ(BytesOf(p), "xyz");
    p.data(nullptr);
    EXPECT_EQ(p.data(), NilData());
    EXPECT_EQ(ThrownCode([] { Probe::allocate(0xFFFFFFFFu); }), kTooLong);
}

TEST(LuUtf8StringEditTest, EveryEditAtEveryPositionAgainstStdString) {
    const std::string digits = "0123456789";
    const lu_utf8string digitString(digits.c_str());
    for (std::size_t len = 0; len <= 12; ++len) {
        const std::string model = std::string("abcdefghijkl").substr(0, len);
        for (std::size_t pos = 0; pos <= len; ++pos) {
            for (std::size_t n :
                 {std::size_t{0}, std::size_t{1}, std::size_t{2}, len - pos, std::size_t{npos}}) {
                SCOPED_TRACE(::testing::Message() << len << " " << pos << " " << n);
                for (unsigned int k = 0; k <= 9; ++k) {
                    std::string expected = model;
                    expected.replace(pos, n, digits.substr(0, k));
                    lu_utf8string s = U8(model);
                    const unsigned char* before = s.data();
                    s.replace(pos, n, Utf8(digits.c_str()), k);
                    ExpectString(s, expected);
                    if (len != 0 && !expected.empty()) {
                        EXPECT_EQ(s.data() == before, SizeClass(len) == SizeClass(expected.size()));
                    }
                    lu_utf8string r = U8(model);
                    ExpectString(r.replace(pos, n, digitString, 10 - k, npos),
                                 model.substr(0, pos) + digits.substr(10 - k) +
                                     model.substr(std::min(len, pos + n)));
                    std::string filled = model;
                    lu_utf8string f = U8(model);
                    ExpectString(f.replace(pos, n, k, uc('#')), filled.replace(pos, n, k, '#'));
                    if (n == 0)
                        ExpectString(U8(model).insert(pos, U8(digits.substr(0, k))), expected);
                }
                std::string erased = model;
                ExpectString(U8(model).erase(pos, n), erased.erase(pos, n));
            }
        }
    }
    // Positions are bytes: an insert may split a sequence, and that is no failure.
    ExpectString(lu_utf8string(Utf8("\xE2\x82\xAC")).insert(1, Utf8("x")), "\xE2x\x82\xAC");
}

TEST(LuUtf8StringEditTest, SourceInsideTheStringItself) {
    // Every range of the string as the source of every replace: the tail moves,
    // or the buffer goes, while the source is read.
    for (std::size_t len = 1; len <= 12; ++len) {
        const std::string model = std::string("abcdefghijkl").substr(0, len);
        for (std::size_t pos = 0; pos <= len; ++pos) {
            for (std::size_t n = 0; n <= len - pos; ++n) {
                for (std::size_t from = 0; from <= len; ++from) {
                    for (std::size_t k = 0; k <= len - from; ++k) {
                        lu_utf8string s = U8(model);
                        s.replace(pos, n, s.data() + from, k);
                        std::string expected = model;
                        ASSERT_EQ(BytesOf(s), expected.replace(pos, n, model.substr(from, k)))
                            << len << " " << pos << " " << n << " " << from << " " << k;
                    }
                }
            }
        }
    }
    lu_utf8string s("abc");
    s.append(s).insert(1, s);
    EXPECT_EQ(BytesOf(s), "aabcabcbcabc");
    s.assign(s.c_str() + 9).replace(0, 1, s, 1, 2);
    EXPECT_EQ(BytesOf(s), "bcbc");
    const lu_utf8string& alias = s;
    s = alias;
    EXPECT_EQ(BytesOf(s.assign(s, 1, 2)), "cb");

    // UTF-16 units read from the string's own bytes, within and across a class.
    for (const std::string model : {"ABCD", "ABCDEFGHIJ"}) {
        lu_utf8string t = U8(model);
        us unit;
        std::memcpy(&unit, t.data(), sizeof unit);
        t.insert(0, reinterpret_cast<const us*>(t.data()), 1u);
        EXPECT_EQ(BytesOf(t), BytesOf(lu_utf8string(&unit, 1u)) + model);
    }
}

TEST(LuUtf8StringUtf16Test, PairsBecomeOneSequenceAndBrokenPairsAreDropped) {
    const struct {
        std::vector<us> units;
        std::string bytes;
    } rows[] = {
        {{0x41, 0x7F, 0x80}, "A\x7F\xC2\x80"},
        {{0x7FF, 0x800, 0xFFFF}, "\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"},
        {{0x20AC}, "\xE2\x82\xAC"},
        {{0xD83D, 0xDE00}, "\xF0\x9F\x98\x80"},  // U+1F600
        {{0xD800, 0xDC00}, "\xF0\x90\x80\x80"},  // U+10000
        {{0xDBFF, 0xDFFF}, "\xF4\x8F\xBF\xBF"},  // U+10FFFF
        {{0xD800, 0x41}, ""},                    // high then not low: both go
        {{0xDC00}, "\xED\xB0\x80"},              // a lone low surrogate stays
        {{0x41, 0xD83D}, "A"},                   // a final high surrogate goes
        {{0xD83D, 0xD83D, 0xDE00}, "\xED\xB8\x80"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes);
        std::vector<us> terminated = row.units;
        terminated.push_back(0);
        const auto count = static_cast<unsigned int>(row.units.size());
        const ucs2string units(row.units.data(), count);
        ExpectString(lu_utf8string(terminated.data()), row.bytes);
        ExpectString(lu_utf8string(units), row.bytes);
        ExpectString(lu_utf8string("<>").insert(1, row.units.data(), count), "<" + row.bytes + ">");
        ExpectString(lu_utf8string("<->").replace(1, 1, units), "<" + row.bytes + ">");
        ExpectString(lu_utf8string("<").append(terminated.data()), "<" + row.bytes);
    }
    // Unit ranges that cut a pair; repeated units take GetUTF8Bytes each.
    const ucs2string text = Str(u"a\U0001F600b");
    EXPECT_EQ(BytesOf(lu_utf8string(text, 0, 2)), "a");
    EXPECT_EQ(BytesOf(lu_utf8string(text, 2)),
              "\xED\xB8\x80"
              "b");
    EXPECT_EQ(BytesOf(lu_utf8string().append(text, 1, 2)), "\xF0\x9F\x98\x80");
    lu_utf8string s;
    s.append(us(0x20AC), 2u).append(uc(0xE2), 2u).append(1u, us(0xE9)).append(1u, uc('z'));
    EXPECT_EQ(BytesOf(s), "\xE2\x82\xAC\xE2\x82\xAC\xE2\xE2\xC3\xA9z");
    EXPECT_EQ(BytesOf(s.assign(us(0xD800), 1u)), "\xED\xA0\x80");  // a surrogate unit alone
}

TEST(LuUtf8StringStateTest, NullNilAndHeap) {
    lu_utf8string s;
    EXPECT_FALSE(s.isnull());
    s.setnull();
    EXPECT_TRUE(s.isnull());
    EXPECT_EQ(s.size(), 0u);
    EXPECT_EQ(s.c_str()[0], 0);
    // Whatever leaves the length at 0 keeps a null string null.
    s.assign(Utf8("")).append(lu_utf8string()).insert(0, Str(u"")).erase().remove();
    s.resize(0);
    EXPECT_TRUE(s.isnull());

    // Whole copies carry null, range forms do not.
    EXPECT_TRUE(lu_utf8string(s).isnull());
    lu_utf8string t("abc");
    t = s;
    EXPECT_TRUE(t.isnull());
    EXPECT_FALSE(s.substr().isnull());
    const ucs2string nullUnits{null_string()};
    EXPECT_TRUE(lu_utf8string(nullUnits).isnull());
    t = Utf8("abc");
    EXPECT_TRUE(t.assign(nullUnits).isnull());
    EXPECT_FALSE(lu_utf8string(nullUnits, 0).isnull());

    // Moves leave an empty string behind and carry null along.
    lu_utf8string moved(std::move(t));
    EXPECT_TRUE(moved.isnull());
    EXPECT_FALSE(t.isnull());  // a moved-from string is empty
    lu_utf8string heap("xy");
    const unsigned char* buffer = heap.data();
    moved = std::move(heap);
    EXPECT_EQ(moved.data(), buffer);
    moved.swap(s);
    EXPECT_TRUE(moved.isnull());
    EXPECT_EQ(s.data(), buffer);

    // An empty result is nil; clear() gives nil even from null, as for ucs2string.
    s.erase(0, 1);
    EXPECT_EQ(BytesOf(s), "y");
    s.erase();
    EXPECT_EQ(s.data(), NilData());
    moved.clear();
    EXPECT_FALSE(moved.isnull());

    // init() is for raw storage: it releases nothing.
    alignas(lu_utf8string) unsigned char storage[sizeof(lu_utf8string)];
    std::memset(storage, 0xA5, sizeof storage);
    auto* raw = reinterpret_cast<lu_utf8string*>(storage);
    raw->init();
    EXPECT_EQ(BytesOf(raw->append(Utf8("ok"))), "ok");
    raw->~lu_utf8string();
}

TEST(LuUtf8StringAccessTest, ElementsViewsAndStream) {
    lu_utf8string s(Utf8("a\xFF"));
    const lu_utf8string& cs = s;
    EXPECT_EQ(cs[2], 0);  // the terminator
    s[0] = 'b';
    s.at(1) = 'c';
    EXPECT_EQ(s.get_at(1), 'c');
    EXPECT_EQ(BytesOf(s), "bc");
    for (const auto& access :
         std::vector<std::function<void()>>{[&] { s.at(2); }, [&] { cs.at(2); },
                                            [&] { s.get_at(2); }, [&] { s[2]; }, [&] { cs[3]; }}) {
        EXPECT_EQ(ThrownCode(access), kOutOfRange);
    }

    const lu_utf8string abc("abcdef");
    unsigned char target[4] = {'X', 'X', 'X', 'X'};
    EXPECT_EQ(abc.copy(target, 3, 2), 3u);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(target), 4), "cdeX");  // no terminator
    EXPECT_EQ(abc.copy(target, 10, 4), 2u);
    EXPECT_EQ(abc.copy(target, 1, 6), 0u);
    EXPECT_EQ(BytesOf(abc.substr(2, 2)), "cd");

    std::ostringstream out;
    out << abc << '|' << lu_utf8string("ab\0cd", 5u);
    EXPECT_EQ(out.str(), "abcdef|ab");  // up to the first zero byte
}

TEST(LuUtf8StringCompareTest, UnsignedBytesThenLengths) {
    const struct {
        const char* a;
        const char* b;
        int expected;
    } rows[] = {{"abc", "abc", 0},  {"abc", "abd", -1}, {"\xFF", "\x01", 1}, {"\x7F", "\x80", -1},
                {"ab", "abcd", -2}, {"abcd", "ab", 2},  {"", "abc", -3},     {"b", "abc", 1}};
    for (const auto& row : rows) {
        const lu_utf8string a(row.a), b(row.b);
        EXPECT_EQ(a.compare(b), row.expected) << row.a << " " << row.b;
        EXPECT_EQ(a.compare(Utf8(row.b)), row.expected) << row.a << " " << row.b;
        EXPECT_EQ(a == b, row.expected == 0);
        EXPECT_EQ(a < b, row.expected < 0);
        EXPECT_EQ(a != b, row.expected != 0);
    }
    const lu_utf8string s("abcdef");
    EXPECT_EQ(s.compare(2, npos, lu_utf8string("cd")), 2);
    EXPECT_EQ(s.compare(2, 3, lu_utf8string("xcdx"), 1, npos), -1);  // 'e' against 'x'
    EXPECT_EQ(s.compare(Utf8("cdef"), 2), 0);
    // The pointer forms take n as the length of the other text.
    EXPECT_EQ(s.compare(Utf8("cd"), 2, 2), 2);
    EXPECT_EQ(s.compare(Utf8("cdefgh"), 2, 6), -2);
    EXPECT_EQ(s.compare(0, npos, Utf8("abcz"), 3), 3);
    EXPECT_EQ(ThrownCode([&] { s.compare(7, 1, s); }), kOutOfRange);
    EXPECT_EQ(ThrownCode([&] { s.compare(0, 1, s, 7, 1); }), kOutOfRange);
    EXPECT_EQ(ThrownCode([&] { s.compare(Utf8("a"), 7); }), kOutOfRange);
}

TEST(LuUtf8StringFailureTest, CodesLeaveTheStringUnchanged) {
    lu_utf8string s("abc");
    const unsigned char* buffer = s.data();
    const ucs2string units = Str(u"xy");
    const us euro[] = {0x20AC, 0};
    const std::pair<long, std::function<void()>> rows[] = {
        {kOutOfRange, [&] { s.replace(4, 0, Utf8("q")); }},
        {kOutOfRange, [&] { s.insert(4, euro); }},
        {kOutOfRange, [&] { s.erase(4, 1); }},
        {kOutOfRange, [&] { s.insert(0, s, 4, 1); }},
        {kOutOfRange, [&] { s.append(units, 3, 1); }},
        {kOutOfRange, [&] { s.assign(units, 3, 0); }},
        {kOutOfRange, [&] { s.copy(nullptr, 1, 4); }},
        {kOutOfRange, [&] { lu_utf8string(s, 4); }},
        {kTooLong, [&] { s.append(uc('x'), 0xFFFFFFFCu); }},  // length 0xFFFFFFFF
        {kTooLong, [&] { s.replace(0, 1, 0xFFFFFFFDu, uc(0)); }},
        {kTooLong, [&] { s.append(us(0x20AC), 0x55555556u); }},  // beyond 32 bits
        {kTooLong, [&] { s.assign(us(0x20AC), 0x55555555u); }},  // exactly 0xFFFFFFFF
        {kTooLong, [&] { lu_utf8string(0xFFFFFFFFu, uc('x')); }},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ThrownCode(row.second), row.first);
        EXPECT_EQ(BytesOf(s), "abc");
        EXPECT_EQ(s.data(), buffer);
    }
    EXPECT_EQ(BytesOf(s.replace(3, 5, Utf8("d"))), "abcd");  // pos at the length appends
    EXPECT_EQ(LU_E_OUT_OF_RANGE, kOutOfRange);
    EXPECT_EQ(LU_E_STRING_TOO_LONG, kTooLong);
}

TEST(LuUtf8StringToUcs2Test, DecodesAndCarriesNullOnlyOnConstruction) {
    const std::pair<std::string, std::u16string> rows[] = {
        {"", u""},
        {"\xC3\xA9\xE2\x82\xAC", u"\u00E9\u20AC"},
        {"a\xF0\x9F\x98\x80", u"a\U0001F600"},
        {std::string("x\0y", 3), std::u16string(u"x\0y", 3)},
        {"A\xE2\x82", u"A"},  // a last sequence cut short is left out
    };
    for (const auto& row : rows) {
        EXPECT_EQ(U16(ucs2string(U8(row.first))), row.second);
        ucs2string assigned = Str(u"old");
        EXPECT_EQ(U16(assigned.assign(U8(row.first))), row.second);
    }
    const ucs2string text = Str(u"k\u00E9\u20AC\U0010FFFF.");
    EXPECT_EQ(U16(ucs2string(lu_utf8string(text))), U16(text));

    const lu_utf8string null{null_string()};
    EXPECT_TRUE(ucs2string(null).isnull());
    ucs2string target{null_string()};
    EXPECT_FALSE(target.assign(null).isnull());
    target = null;
    EXPECT_FALSE(target.isnull());
    target.setnull();
    EXPECT_TRUE(target.assign(lu_utf8string()).isnull());  // an empty text keeps null

    const lu_utf8string five(Utf8("\xF8\x88\x80\x80\x80"));
    EXPECT_EQ(ThrownCode([&] { ucs2string u(five); }), kInvalidArg);
    EXPECT_EQ(ThrownCode([&] { target.assign(five); }), kInvalidArg);
}

TEST(LuUtf8PosTest, ReadsOneUnitAtABytePosition) {
    const struct {
        std::string bytes;
        unsigned int offset;
        long unitOrCode;
    } rows[] = {
        {"A", 0, 0x41},
        {"\xC3\xA9", 0, 0xE9},
        {"x\xE2\x82\xAC", 1, 0x20AC},
        {"\xEF\xBF\xBF", 0, 0xFFFF},
        {"\xE2\x82\xAC", 1, 0x82},  // a continuation byte reads as itself
        {"\xC3\x41", 0, 0x81},      // continuation bits are not checked
        {"abc", 3, 0},              // the terminator
        {"abc", 4, kOutOfRange},
        {"\xF0\x9F\x98\x80", 0, kBadUtf8Lead},
        {"\xFF", 0, kBadUtf8Lead},
        {"\xE2\x82", 0, kBadUtf8Lead},  // cut short by the end of the text
        {"a\xC3", 1, kBadUtf8Lead},
    };
    for (const auto& row : rows) {
        const lu_utf8string s = U8(row.bytes);
        long unit = -1;
        const long code = ThrownCode([&] { unit = *lu_utf8_pos(&s, row.offset); });
        EXPECT_EQ(code != 0 ? code : unit, row.unitOrCode) << row.bytes << " @" << row.offset;
    }
    EXPECT_EQ(ThrownCode([] { return *lu_utf8_pos(nullptr, 0); }), kOutOfRange);
    EXPECT_EQ(LU_E_BAD_UTF8_LEAD, kBadUtf8Lead);
}

}  // namespace

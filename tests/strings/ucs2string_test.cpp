#include <gtest/gtest.h>

#include <random>
#include <string>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/ucs2string.h"
#include "test_support.h"

using namespace test_support;

namespace {

constexpr unsigned int npos = ucs2string::npos;

TEST(Ucs2StringTest, NullNilAndHeapStates) {
    ucs2string s;
    EXPECT_FALSE(s.isnull());
    EXPECT_TRUE(s.empty());
    s.setnull();
    EXPECT_TRUE(s.isnull());
    EXPECT_EQ(s.size(), 0u);
    EXPECT_EQ(s.c_str()[0], 0);

    // Operations that leave the length at 0 keep a null string null.
    s.assign(static_cast<const unsigned short*>(nullptr), 0);
    s += Str(u"");
    s.erase();
    s.resize(0);
    EXPECT_TRUE(s.isnull());
    const ucs2string copy(s);
    EXPECT_TRUE(copy.isnull());
    ucs2string target = Str(u"abc");
    target = copy;
    EXPECT_TRUE(target.isnull());

    // The first unit makes it a heap string; back at length 0 it is nil.
    s.append(static_cast<unsigned short>('x'), 1u);
    EXPECT_FALSE(s.isnull());
    EXPECT_EQ(U16(s), u"x");
    s.resize(0);
    EXPECT_FALSE(s.isnull());
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(s.capacity(), 0u);

    ucs2string n{null_string()};
    EXPECT_TRUE(n.isnull());
    n.clear();
    EXPECT_FALSE(n.isnull());
}

TEST(Ucs2StringTest, SizeClassesDecideWhenTheBufferMoves) {
    const unsigned int sizes[][2] = {{0, 0}, {1, 8}, {2, 16}, {5, 16}, {6, 24}, {9, 24}, {10, 32}};
    for (const auto& row : sizes) EXPECT_EQ(ucs2string::allocation_size(row[0]), row[1]) << row[0];

    ucs2string s = Str(u"ab");
    EXPECT_EQ(s.capacity(), 5u);
    const unsigned short* before = s.data();
    s += static_cast<unsigned short>('c');
    EXPECT_EQ(s.data(), before);  // 2 -> 3 units: same class

    ucs2string t = Str(u"abcde");
    t += static_cast<unsigned short>('f');  // 5 -> 6 units: a new class
    EXPECT_EQ(t.capacity(), 9u);
    EXPECT_EQ(U16(t), u"abcdef");

    // A shrink that leaves the class gives memory back at once.
    t.resize(1);
    EXPECT_EQ(t.capacity(), 1u);
    EXPECT_EQ(U16(t), u"a");
}

// Every replace of every range of short strings, against std::u16string; an
// empty text is an erase, a count of 0 an insert.
TEST(Ucs2StringTest, ReplaceInsertEraseAtEveryPositionMatchModel) {
    const std::u16string bases[] = {u"", u"a", u"ab", u"abcde", u"abcdef", u"abcdefghi"};
    const std::u16string texts[] = {u"", u"X", u"XYZ", u"XYZUVW"};
    const unsigned int counts[] = {0, 1, 2, 3, 9, npos};
    for (const std::u16string& base : bases) {
        for (unsigned int pos = 0; pos <= base.size() + 1; ++pos) {
            for (unsigned int n : counts) {
                for (const std::u16string& text : texts) {
                    ucs2string s = Str(base);
                    const ucs2string source = Str(text);
                    if (pos > base.size()) {
                        EXPECT_EQ(ThrownCode([&] { s.replace(pos, n, source); }),
                                  LU_E_OUT_OF_RANGE);
                        EXPECT_EQ(U16(s), base);
                        continue;
                    }
                    std::u16string model = base;
                    model.replace(pos, n, text);
                    s.replace(pos, n, source);
                    ASSERT_EQ(U16(s), model) << "pos " << pos << " n " << n;
                    EXPECT_EQ(s.c_str()[s.length()], 0);
                    EXPECT_EQ(s.capacity(),
                              s.empty() ? 0u : (ucs2string::allocation_size(s.length()) - 6) / 2);

                    ucs2string repeated = Str(base);
                    repeated.replace(pos, n, static_cast<unsigned short>('#'), 2u);
                    std::u16string repeatedModel = base;
                    repeatedModel.replace(pos, n, u"##");
                    ASSERT_EQ(U16(repeated), repeatedModel);
                }
            }
        }
    }
}

TEST(Ucs2StringTest, SourcesInsideTheStringItself) {
    ucs2string s = Str(u"abcdef");
    s.append(s);
    EXPECT_EQ(U16(s), u"abcdefabcdef");
    s = Str(u"abcdef");
    s.replace(1, 2, s.data() + 2, 3);  // in place: the moving tail must not clobber the source
    EXPECT_EQ(U16(s), u"acdedef");
    s = Str(u"abcdef");
    s.insert(0, s);
    EXPECT_EQ(U16(s), u"abcdefabcdef");
    s = Str(u"abcdef");
    s.assign(s.data() + 1, 3);
    EXPECT_EQ(U16(s), u"bcd");
    const ucs2string& alias = s;
    s = alias;
    EXPECT_EQ(U16(s), u"bcd");
}

TEST(Ucs2StringTest, ElementAccessAndIteratorsAreChecked) {
    ucs2string s = Str(u"xyz");
    EXPECT_EQ(s[2], 'z');
    EXPECT_EQ(s.get_at(0), 'x');
    EXPECT_EQ(ThrownCode([&] { (void)s.at(3); }), LU_E_OUT_OF_RANGE);
    EXPECT_EQ(ThrownCode([&] { (void)s[3]; }), LU_E_OUT_OF_RANGE);
    EXPECT_EQ(ThrownCode([&] { (void)*s.end(); }), LU_E_OUT_OF_RANGE);
    EXPECT_EQ(ThrownCode([&] { (void)s.begin()[3]; }), LU_E_OUT_OF_RANGE);
    EXPECT_EQ(s.begin()[2], 'z');

    s.put_at(3, 'w');  // at the length: appends
    EXPECT_EQ(U16(s), u"xyzw");
    s.put_at(0, 'X');
    EXPECT_EQ(U16(s), u"Xyzw");
    EXPECT_EQ(ThrownCode([&] { s.put_at(5, 'v'); }), LU_E_OUT_OF_RANGE);

    // Iterators go through the string, so they survive reallocation.
    ucs2string::iterator it = s.begin() + 1;
    s.append(Str(u"0123456789"));
    EXPECT_EQ(*it, 'y');
    *it = 'Y';
    EXPECT_EQ(s[1], 'Y');
    EXPECT_EQ(ucs2string::distance(s.begin(), s.end()), s.length());

    std::u16string walked;
    for (unsigned short unit : Str(u"loop")) walked.push_back(unit);
    EXPECT_EQ(walked, u"loop");
}

TEST(Ucs2StringTest, IteratorFormsReadThroughCheckedIterators) {
    const ucs2string source = Str(u"12345");
    ucs2string s = Str(u"ab");
    s.append(source.begin() + 1, source.begin() + 3);
    EXPECT_EQ(U16(s), u"ab23");
    s.assign(source.begin(), source.end());
    EXPECT_EQ(U16(s), u"12345");
    s.replace(s.begin() + 1, s.begin() + 4, source.begin(), source.begin() + 2);
    EXPECT_EQ(U16(s), u"1125");
    s.insert(s.begin() + 4, static_cast<unsigned short>('!'));
    EXPECT_EQ(U16(s), u"1125!");
    s.erase(s.begin(), s.begin() + 2);
    EXPECT_EQ(U16(s), u"25!");
    // A source range that runs beyond its string.
    EXPECT_EQ(ThrownCode([&] { s.append(source.begin() + 3, source.begin() + 7); }),
              LU_E_OUT_OF_RANGE);

    // An empty insert by iterators builds a new buffer: null becomes empty.
    ucs2string n{null_string()};
    n.insert(n.begin(), source.begin(), source.begin());
    EXPECT_FALSE(n.isnull());
    EXPECT_TRUE(n.empty());
    ucs2string m{null_string()};
    m.append(source.begin(), source.begin());
    EXPECT_TRUE(m.isnull());
}

TEST(Ucs2StringTest, CompareGivesTheDifferenceNotTheSign) {
    EXPECT_EQ(Str(u"a").compare(Str(u"c")), -2);
    EXPECT_EQ(Str(u"abc").compare(Str(u"ab")), 1);
    EXPECT_EQ(Str(u"ab").compare(Str(u"abcd")), -2);
    EXPECT_EQ(Str(u"abc").compare(Str(u"abc")), 0);
    EXPECT_EQ(Str(u"\xffff").compare(Str(u"a")), 0xFFFF - 'a');  // units compare unsigned
    EXPECT_EQ(Str(u"hello").compare(1, 3, Str(u"ell")), 0);
    EXPECT_EQ(Str(u"hello").compare(1, 3, Str(u"xxellxx"), 2, 3), 0);
    EXPECT_EQ(Str(u"hello").compare(4, npos, Str(u"o")), 0);

    const std::u16string ell = u"ell";
    const Units units = UnitsOf(ell + u'\0');
    // The pointer form takes `n` as the length of the other text.
    EXPECT_EQ(Str(u"hello").compare(units.data(), 1, 3), 1);  // 5 - 1 - 3
    EXPECT_EQ(Str(u"hel").compare(units.data(), 1, 3), -1);   // 3 - 1 - 3
    EXPECT_EQ(Str(u"hello").compare(units.data(), 1), 1);
    EXPECT_EQ(Str(u"ell").compare(units.data()), 0);
    EXPECT_EQ(Str(u"hello").compare(1, 3, units.data(), 3), 0);
    EXPECT_EQ(ThrownCode([&] { (void)Str(u"ab").compare(3, 1, Str(u"x")); }), LU_E_OUT_OF_RANGE);

    EXPECT_TRUE(Str(u"abc") != Str(u"abd"));
    EXPECT_TRUE(Str(u"abc") < Str(u"abd"));
}

// find and friends against std::u16string on random strings over a small alphabet.
TEST(Ucs2StringTest, SearchAgreesWithStandardStringModel) {
    std::mt19937 rng(42);
    std::uniform_int_distribution<int> letter(0, 2), length(0, 8), setLength(0, 3);
    auto randomText = [&](int n) {
        std::u16string text;
        for (int i = 0; i < n; ++i) text.push_back(static_cast<char16_t>(u'a' + letter(rng)));
        return text;
    };
    const std::size_t stdNpos = std::u16string::npos;
    auto same = [&](unsigned int ours, std::size_t theirs) {
        return theirs == stdNpos ? ours == npos : ours == theirs;
    };
    for (int round = 0; round < 3000; ++round) {
        const std::u16string text = randomText(length(rng));
        const std::u16string pattern = randomText(setLength(rng));
        const ucs2string s = Str(text);
        const Units p = UnitsOf(pattern);
        const auto count = static_cast<unsigned int>(p.size());
        for (unsigned int pos : {0u, 1u, 3u, static_cast<unsigned int>(text.size()),
                                 static_cast<unsigned int>(text.size()) + 1, npos}) {
            const std::size_t stdPos = pos == npos ? stdNpos : pos;
            SCOPED_TRACE(testing::Message()
                         << "text '" << std::string(text.begin(), text.end()) << "' pattern '"
                         << std::string(pattern.begin(), pattern.end()) << "' pos " << pos);
            if (pos != npos) {
                EXPECT_TRUE(same(s.find(p.data(), pos, count), text.find(pattern, stdPos)));
            }
            EXPECT_TRUE(same(s.rfind(p.data(), pos, count), text.rfind(pattern, stdPos)));
            if (pos != npos) {
                EXPECT_TRUE(same(s.find_first_of(p.data(), pos, count),
                                 text.find_first_of(pattern, stdPos)));
                EXPECT_TRUE(same(s.find_first_not_of(p.data(), pos, count),
                                 text.find_first_not_of(pattern, stdPos)));
            }
            // Here `pos` counts units from the start: the unit at `pos` is not examined.
            const std::size_t before = pos == 0 ? stdNpos : stdPos - 1;
            const bool none = pos == 0;
            EXPECT_TRUE(same(s.find_last_of(p.data(), pos, count),
                             none ? stdNpos : text.find_last_of(pattern, before)));
            EXPECT_TRUE(same(s.find_last_not_of(p.data(), pos, count),
                             none ? stdNpos : text.find_last_not_of(pattern, before)));
        }
    }
}

TEST(Ucs2StringTest, SubstrResizeAndTruncation) {
    ucs2string s = Str(u"abcdef");
    EXPECT_EQ(U16(s.substr(2)), u"cdef");
    EXPECT_EQ(U16(s.substr(2, 2)), u"cd");
    EXPECT_EQ(U16(s.substr(6)), u"");
    EXPECT_EQ(ThrownCode([&] { (void)s.substr(7); }), LU_E_OUT_OF_RANGE);
    s.replace(3, npos, static_cast<const unsigned short*>(nullptr), 0);
    EXPECT_EQ(U16(s), u"abc");
    s.resize(5, 'z');
    EXPECT_EQ(U16(s), u"abczz");
    s.resize(2);
    EXPECT_EQ(U16(s), u"ab");
}

TEST(Ucs2StringTest, LengthLimitsAreEnforcedBeforeAllocating) {
    ucs2string s = Str(u"a");
    EXPECT_EQ(ThrownCode([&] { s.replace(1, 0, static_cast<unsigned short>('x'), 0xFFFFFFFEu); }),
              LU_E_STRING_TOO_LONG);
    EXPECT_EQ(ThrownCode([&] { s.append(static_cast<unsigned short>('x'), 0x7FFFFFFFu); }),
              LU_E_STRING_TOO_LONG);
    EXPECT_EQ(U16(s), u"a");
}

TEST(Ucs2StringTest, Utf8SourcesDecodeOrFailWithoutChangingTheString) {
    ucs2string s(Utf8("gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80"));
    EXPECT_EQ(U16(s), u"grüß 😀");
    s.append(Utf8("\xE2\x82\xAC"));
    EXPECT_EQ(U16(s), u"grüß 😀€");
    s.replace(0, 2, Utf8("G"), 1);
    EXPECT_EQ(U16(s), u"Güß 😀€");
    s.insert(1, Utf8("\xC3\xA9"));
    EXPECT_EQ(U16(s), u"Géüß 😀€");
    const ucs2string before = s;
    EXPECT_EQ(ThrownCode([&] { s.append(Utf8("x\xF8\x88\x80\x80\x80")); }), LU_E_INVALID_ARG);
    EXPECT_EQ(ThrownCode([&] { s.assign(Utf8("\xFC\x80\x80\x80\x80\x80")); }), LU_E_INVALID_ARG);
    EXPECT_EQ(s, before);
    // A sequence cut short at the end of the text is dropped.
    s.assign(Utf8("ab\xE2\x82"), 4);
    EXPECT_EQ(U16(s), u"ab");
}

TEST(Ucs2StringTest, MovesLeaveTheSourceEmpty) {
    ucs2string a = Str(u"moved");
    ucs2string b(std::move(a));
    EXPECT_EQ(U16(b), u"moved");
    EXPECT_TRUE(a.empty());  // NOLINT(bugprone-use-after-move): the state is specified
    a = std::move(b);
    EXPECT_EQ(U16(a), u"moved");
    EXPECT_FALSE(b.isnull());
}

}  // namespace

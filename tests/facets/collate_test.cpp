// The lu_collate facet: the classic code-unit order, the tailored orders
// through kaCollation, sort keys, the hash, the comparator and the by-name form.
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "kai18n/facets/lu_collate.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/ka_collation.h"
#include "test_support.h"

namespace {

using test_support::Bytes;
using test_support::Str;
using test_support::ThrownCode;
using test_support::Units;

using Facet = ilu_ptr<lu_collate>;

Facet Classic() {
    return Facet(new lu_collate(0u));
}
Facet Named(const char* name) {
    return Facet(new lu_collate(std::string(name)));
}

int Compare(const lu_collate& facet, const Units& a, const Units& b) {
    return facet.compare(a.data(), a.data() + a.size(), b.data(), b.data() + b.size());
}

int Compare(const lu_collate& facet, const Bytes& a, const Bytes& b) {
    return facet.compare(a.data(), a.data() + a.size(), b.data(), b.data() + b.size());
}

std::string Key(const lu_collate& facet, const Units& a) {
    return facet.transform(a.data(), a.data() + a.size());
}

long Hash(const lu_collate& facet, const Units& a) {
    return facet.hash(a.data(), a.data() + a.size());
}

Units U(const std::u16string& text) {
    return test_support::UnitsOf(text);
}

Bytes Utf8Of(const std::u16string& text) {
    Bytes out;
    for (const char16_t unit : text) {
        const unsigned c = unit;
        if (c < 0x80) {
            out.push_back(static_cast<unsigned char>(c));
        } else if (c < 0x800) {
            out.push_back(static_cast<unsigned char>(0xC0 | (c >> 6)));
            out.push_back(static_cast<unsigned char>(0x80 | (c & 0x3F)));
        } else {
            out.push_back(static_cast<unsigned char>(0xE0 | (c >> 12)));
            out.push_back(static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F)));
            out.push_back(static_cast<unsigned char>(0x80 | (c & 0x3F)));
        }
    }
    return out;
}

int Sign(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

// --- The classic form -------------------------------------------------------

struct UnitCase {
    const char* what;
    Units left;
    Units right;
    int expected;
};

void PrintTo(const UnitCase& c, std::ostream* os) {
    *os << c.what;
}

class ClassicUnitOrderTest : public ::testing::TestWithParam<UnitCase> {};

TEST_P(ClassicUnitOrderTest, ComparesByUnitValueThenLength) {
    const UnitCase& c = GetParam();
    const Facet facet = Classic();
    EXPECT_EQ(Compare(*facet, c.left, c.right), c.expected) << c.what;
    EXPECT_EQ(Compare(*facet, c.right, c.left), -c.expected) << c.what << ", swapped";
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ClassicUnitOrderTest,
    ::testing::Values(UnitCase{"b before a-umlaut", {0x0062}, {0x00E4}, -1},
                      UnitCase{"a-umlaut after z", {0x00E4}, {0x007A}, 1},
                      UnitCase{"two empty ranges", {}, {}, 0},
                      UnitCase{"empty before non-empty", {}, {0x0000}, -1},
                      UnitCase{"prefix first", {'a', 'b'}, {'a', 'b', 'c'}, -1},
                      UnitCase{
                          "first difference decides, not length", {'a', 'c'}, {'a', 'b', 'z'}, 1},
                      UnitCase{"equal texts", {'a', 0x00E4, 0xFFFF}, {'a', 0x00E4, 0xFFFF}, 0},
                      UnitCase{"upper case before lower case", {'Z'}, {'a'}, -1},
                      UnitCase{"units are unsigned", {0x0001}, {0xFFFF}, -1},
                      UnitCase{"high units by value", {0xD800}, {0x8000}, 1}));

struct ByteCase {
    const char* what;
    Bytes left;
    Bytes right;
    int expected;
};

void PrintTo(const ByteCase& c, std::ostream* os) {
    *os << c.what;
}

class ClassicByteOrderTest : public ::testing::TestWithParam<ByteCase> {};

TEST_P(ClassicByteOrderTest, ComparesByUnsignedByteThenLength) {
    const ByteCase& c = GetParam();
    const Facet facet = Classic();
    EXPECT_EQ(Compare(*facet, c.left, c.right), c.expected) << c.what;
    EXPECT_EQ(Compare(*facet, c.right, c.left), -c.expected) << c.what << ", swapped";
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ClassicByteOrderTest,
    ::testing::Values(ByteCase{"bytes are unsigned: 0xC3 after 0x7A", {0xC3, 0xA4}, {0x7A}, 1},
                      ByteCase{"0xFF after 0x01", {0xFF}, {0x01}, 1},
                      ByteCase{"two empty ranges", {}, {}, 0},
                      ByteCase{"empty before non-empty", {}, {'a'}, -1},
                      ByteCase{"prefix first", {'a', 'b'}, {'a', 'b', 0x00}, -1},
                      ByteCase{"equal texts", {'x', 0xC3, 0xA4}, {'x', 0xC3, 0xA4}, 0}));

TEST(CollateFacetTest, ClassicFormHasNoEngine) {
    EXPECT_EQ(Classic()->GetImpl(), nullptr);
    EXPECT_NE(Named("de")->GetImpl(), nullptr);
}

TEST(CollateFacetTest, ClassicKeyIsTwoBytesPerUnitHighByteFirst) {
    const Facet facet = Classic();
    EXPECT_EQ(Key(*facet, {}), std::string());
    EXPECT_EQ(Key(*facet, {0x0041, 0x01FF, 0xFF00}), std::string("\x00\x41\x01\xFF\xFF\x00", 6));
}

// --- Named forms ------------------------------------------------------------

struct NamedCase {
    const char* locale;
    std::u16string left;
    std::u16string right;
    int expected;
};

void PrintTo(const NamedCase& c, std::ostream* os) {
    const Bytes left = Utf8Of(c.left), right = Utf8Of(c.right);
    *os << '"' << c.locale << "\": " << std::string(left.begin(), left.end()) << " vs "
        << std::string(right.begin(), right.end());
}

class NamedOrderTest : public ::testing::TestWithParam<NamedCase> {};

TEST_P(NamedOrderTest, FollowsTheLocaleInBothWidths) {
    const NamedCase& c = GetParam();
    const Facet facet = Named(c.locale);
    EXPECT_EQ(Sign(Compare(*facet, U(c.left), U(c.right))), c.expected);
    EXPECT_EQ(Sign(Compare(*facet, Utf8Of(c.left), Utf8Of(c.right))), c.expected);
    EXPECT_EQ(Sign(Key(*facet, U(c.left)).compare(Key(*facet, U(c.right)))), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Locales, NamedOrderTest,
    ::testing::Values(NamedCase{"de", u"a", u"\u00E4", -1}, NamedCase{"de", u"\u00E4", u"b", -1},
                      NamedCase{"sv_SE", u"z", u"\u00E4", -1},
                      NamedCase{"sv_SE", u"\u00E4", u"b", 1},
                      NamedCase{"en_US", u"\u00E4", u"b", -1},
                      NamedCase{"i18n", u"a", u"\u00E4", -1},
                      NamedCase{"i18n", u"\u00E4", u"b", -1},
                      // The classic order would put 0x00E4 after z; root does not.
                      NamedCase{"i18n", u"\u00E4", u"z", -1}, NamedCase{"", u"\u00E4", u"z", -1}));

TEST(CollateFacetTest, I18nIsTheRootOrder) {
    const Facet facet = Named("i18n");
    ASSERT_NE(facet->GetImpl(), nullptr);
    EXPECT_EQ(facet->GetImpl()->GetActualLocale(), "root");
}

// Words drawn from Latin letters of both cases, accented letters, Greek and
// punctuation; a third of the pairs differ in one letter only.
std::vector<std::pair<Units, Units>> RandomWordPairs(std::size_t count, unsigned seed) {
    static const std::u16string alphabet =
        u"abcdefghijklmnopqrstuvwxyzAEOZ\u00E4\u00F6\u00FC\u00E5\u00C4\u00D6\u00E9\u00E8"
        u"\u00DF\u00E6\u00F8\u00F1\u03B1\u03C9 -";
    std::mt19937 rng(seed);
    std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
    std::uniform_int_distribution<int> length(0, 7);
    auto word = [&] {
        Units w;
        for (int i = length(rng); i > 0; --i) w.push_back(alphabet[letter(rng)]);
        return w;
    };
    std::vector<std::pair<Units, Units>> pairs;
    for (std::size_t i = 0; i < count; ++i) {
        Units a = word();
        Units b = word();
        if (i % 3 == 0 && !a.empty()) {
            b = a;
            b[std::uniform_int_distribution<std::size_t>(0, a.size() - 1)(rng)] =
                alphabet[letter(rng)];
        }
        pairs.emplace_back(a, b);
    }
    return pairs;
}

class KeyOrderTest : public ::testing::TestWithParam<const char*> {};

// transform() keys, compared as std::string, order as compare() does; and the
// UTF-8 compare agrees with the UTF-16 one.
TEST_P(KeyOrderTest, KeysAndBothWidthsAgreeWithCompare) {
    const std::string name = GetParam();
    const Facet facet = name == "classic" ? Classic() : Named(name.c_str());
    int less = 0, equal = 0, greater = 0;
    for (const auto& pair : RandomWordPairs(3000, 5)) {
        const Units& a = pair.first;
        const Units& b = pair.second;
        const int order = Sign(Compare(*facet, a, b));
        ASSERT_EQ(Sign(Key(*facet, a).compare(Key(*facet, b))), order) << name;
        if (name != "classic") {  // classic UTF-8 order is byte order, not unit order
            const std::u16string sa(a.begin(), a.end()), sb(b.begin(), b.end());
            ASSERT_EQ(Sign(Compare(*facet, Utf8Of(sa), Utf8Of(sb))), order) << name;
        }
        (order < 0 ? less : order > 0 ? greater : equal)++;
    }
    EXPECT_GT(less, 100);
    EXPECT_GT(greater, 100);
    EXPECT_GT(equal, 0);
}

INSTANTIATE_TEST_SUITE_P(Forms, KeyOrderTest,
                         ::testing::Values("classic", "en_US", "de", "sv_SE", "i18n"));

// --- Hash -------------------------------------------------------------------

TEST(CollateFacetTest, HashOfEmptyRangeIsTheStartValue) {
    EXPECT_EQ(Hash(*Classic(), {}), static_cast<long>(0xDEADBEEFu));
    EXPECT_EQ(Classic()->hash(nullptr, nullptr), static_cast<long>(0xDEADBEEFu));
    EXPECT_EQ(Hash(*Named("de"), {}), static_cast<long>(0xDEADBEEFu));
}

// One step by hand: 0xDEADBEEF << 7 is 0x56DF7780 in 32 bits, >> 31 is 1, so
// the state before 'a' is 0x56DF7781, and 0x56DF7781 ^ 0x61 = 0x56DF77E0.
TEST(CollateFacetTest, HashMixesEachUnitIntoTheState) {
    EXPECT_EQ(Hash(*Classic(), {'a'}), static_cast<long>(0x56DF77E0u));
    // Units of 16 bits reach the state whole: 0x56DF7781 ^ 0xFFFF = 0x56DF887E.
    EXPECT_EQ(Hash(*Classic(), {0xFFFF}), static_cast<long>(0x56DF887Eu));
    // The state goes into the long without sign extension: where long is
    // wider than 32 bits, never negative and never above 0xFFFFFFFF.
    if (sizeof(long) <= 4) GTEST_SKIP() << "long has 32 bits";
    for (const auto& pair : RandomWordPairs(200, 3)) {
        const long h = Hash(*Classic(), pair.first);
        ASSERT_GE(h, 0);
        ASSERT_LE(h, static_cast<long>(0xFFFFFFFFu));
    }
}

TEST(CollateFacetTest, EqualRangesHashEqual) {
    const Facet classic = Classic();
    const Facet swedish = Named("sv_SE");
    int differing = 0;
    for (const auto& pair : RandomWordPairs(500, 9)) {
        const Units copy = pair.first;  // another buffer, the same units
        ASSERT_EQ(Hash(*classic, pair.first), Hash(*classic, copy));
        ASSERT_EQ(Hash(*swedish, pair.first), Hash(*classic, copy));
        if (pair.first != pair.second && Hash(*classic, pair.first) != Hash(*classic, pair.second))
            ++differing;
    }
    EXPECT_GT(differing, 400);
    EXPECT_NE(Hash(*classic, {'a', 'b'}), Hash(*classic, {'b', 'a'}));
}

// --- Comparator, by-name form ---------------------------------------------

std::vector<ucs2string> Words() {
    return {Str(u"\u00F6ga"), Str(u"zebra"),    Str(u"\u00E4ra"),
            Str(u"apa"),      Str(u"\u00E5ka"), Str(u"banan")};
}

std::vector<std::u16string> Sorted(const lu_collate& facet) {
    std::vector<ucs2string> words = Words();
    std::sort(words.begin(), words.end(), facet.GetComparator());
    std::vector<std::u16string> out;
    for (const ucs2string& w : words) out.push_back(test_support::U16(w));
    return out;
}

TEST(CollateFacetTest, ComparatorIsAStrictOrderOnUcs2Strings) {
    const Facet swedish = Named("sv_SE");
    const lu_collate::less_predicate less = swedish->GetComparator();
    EXPECT_FALSE(less(Str(u"apa"), Str(u"apa")));
    EXPECT_FALSE(less(ucs2string(), ucs2string()));
    EXPECT_TRUE(less(ucs2string(), Str(u"a")));
    EXPECT_TRUE(less(Str(u"zebra"), Str(u"\u00E4ra")));
    EXPECT_FALSE(less(Str(u"\u00E4ra"), Str(u"zebra")));
}

TEST(CollateFacetTest, ComparatorSortsByTheFacetsOrder) {
    EXPECT_EQ(Sorted(*Named("sv_SE")),
              (std::vector<std::u16string>{u"apa", u"banan", u"zebra", u"\u00E5ka", u"\u00E4ra",
                                           u"\u00F6ga"}));
    EXPECT_EQ(Sorted(*Named("de")), (std::vector<std::u16string>{u"\u00E5ka", u"apa", u"\u00E4ra",
                                                                 u"banan", u"\u00F6ga", u"zebra"}));
    EXPECT_EQ(Sorted(*Classic()),
              (std::vector<std::u16string>{u"apa", u"banan", u"zebra", u"\u00E4ra", u"\u00E5ka",
                                           u"\u00F6ga"}));
}

TEST(CollateFacetTest, ComparatorOrdersUtf8Strings) {
    const Facet swedish = Named("sv_SE");
    const lu_collate::less_predicate less = swedish->GetComparator();
    const auto text = [](const std::u16string& s) {
        const Bytes b = Utf8Of(s);
        return lu_utf8string(b.data(), static_cast<unsigned int>(b.size()));
    };
    std::vector<lu_utf8string> words = {text(u"\u00E4ra"), text(u"zebra"), text(u"apa")};
    std::sort(words.begin(), words.end(), less);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(words[0].c_str())), "apa");
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(words[1].c_str())), "zebra");
    EXPECT_FALSE(less(text(u"apa"), text(u"apa")));
    EXPECT_TRUE(less(text(u"zebra"), text(u"\u00E4ra")));
    EXPECT_FALSE(less(text(u"\u00E4ra"), text(u"zebra")));
}

TEST(CollateFacetTest, ByNameFormAlwaysThrows) {
    EXPECT_EQ(ThrownCode([] { Facet facet(new lu_collate("de", 0u)); }), LU_E_FACET_BY_NAME);
    EXPECT_EQ(ThrownCode([] { Facet facet(new lu_collate("", 1u)); }), LU_E_FACET_BY_NAME);
}

// Reached through a locale, the facet is the one that was installed.
TEST(CollateFacetTest, LocaleHandsOutTheInstalledFacet) {
    auto* impl = new lu_locale::_Impl(2, 0);
    impl->_M_install_facet(&lu_collate::id, new lu_collate(std::string("sv_SE")));
    const lu_locale locale(impl);
    const lu_collate& facet = lu_use_facet<lu_collate>(locale);
    EXPECT_EQ(Compare(facet, U(u"\u00E4"), U(u"z")), 1);
    EXPECT_EQ(facet.GetImpl()->GetActualLocale(), "sv");
}

}  // namespace

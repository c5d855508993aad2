// kaCollation: tailored orders of the locales the library names, UTF-8 against
// UTF-16, sort keys against comparison, shared copies, and use from threads.
#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/ka_collation.h"
#include "test_support.h"

namespace {

using test_support::Units;

// UTF-8 of a BMP text, encoded here so that the test does not lean on the
// library's conversions.
std::string Utf8Of(const std::u16string& text) {
    std::string out;
    for (const char16_t unit : text) {
        const unsigned c = unit;
        if (c < 0x80) {
            out.push_back(static_cast<char>(c));
        } else if (c < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (c >> 6)));
            out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xE0 | (c >> 12)));
            out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        }
    }
    return out;
}

int Compare16(const kaCollation& collation, const std::u16string& a, const std::u16string& b) {
    const Units x(a.begin(), a.end());
    const Units y(b.begin(), b.end());
    return collation.CompareStrings(x.data(), x.data() + x.size(), y.data(), y.data() + y.size());
}

int Compare8(const kaCollation& collation, const std::u16string& a, const std::u16string& b) {
    const std::string x = Utf8Of(a);
    const std::string y = Utf8Of(b);
    const auto* px = reinterpret_cast<const unsigned char*>(x.data());
    const auto* py = reinterpret_cast<const unsigned char*>(y.data());
    return collation.CompareStrings(px, px + x.size(), py, py + y.size());
}

std::string KeyOf(const kaCollation& collation, const std::u16string& text) {
    const Units units(text.begin(), text.end());
    std::string key = "stale";
    collation.BuildSortKey(key, units.data(), units.data() + units.size());
    return key;
}

int Sign(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

// Words over Latin letters of both cases, accented letters that the locales
// below treat differently, and a few Greek letters. A third of the pairs are
// a word and a copy with one letter changed, so that pairs often differ only
// in an accent or a case.
std::vector<std::pair<std::u16string, std::u16string>> RandomWordPairs(std::size_t count,
                                                                       unsigned seed) {
    static const std::u16string alphabet =
        u"abcdefghijklmnopqrstuvwxyzABCDEZaeo\u00E4\u00F6\u00FC\u00E5\u00C4\u00D6\u00C5\u00E9"
        u"\u00E8\u00DF\u00E6\u00F8\u00F1\u00E7\u03B1\u03B2 -";
    std::mt19937 rng(seed);
    std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
    std::uniform_int_distribution<int> length(0, 8);
    auto word = [&] {
        std::u16string w;
        for (int i = length(rng); i > 0; --i) w.push_back(alphabet[letter(rng)]);
        return w;
    };
    std::vector<std::pair<std::u16string, std::u16string>> pairs;
    for (std::size_t i = 0; i < count; ++i) {
        std::u16string a = word();
        std::u16string b;
        if (i % 3 == 0 && !a.empty()) {
            b = a;
            b[std::uniform_int_distribution<std::size_t>(0, a.size() - 1)(rng)] =
                alphabet[letter(rng)];
        } else {
            b = word();
        }
        pairs.emplace_back(a, b);
    }
    return pairs;
}

struct OrderCase {
    const char* locale;
    std::u16string left;
    std::u16string right;
    int expected;  // sign of CompareStrings(left, right)
};

void PrintTo(const OrderCase& c, std::ostream* os) {
    *os << '"' << c.locale << "\": " << Utf8Of(c.left) << " vs " << Utf8Of(c.right);
}

class KaCollationOrderTest : public ::testing::TestWithParam<OrderCase> {};

TEST_P(KaCollationOrderTest, OrdersPairAsTheLocaleDoes) {
    const OrderCase& c = GetParam();
    const kaCollation collation(c.locale);
    EXPECT_EQ(Compare16(collation, c.left, c.right), c.expected);
    EXPECT_EQ(Compare16(collation, c.right, c.left), -c.expected);
    EXPECT_EQ(Compare8(collation, c.left, c.right), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Locales, KaCollationOrderTest,
    ::testing::Values(
        // German: a-umlaut is an a with an accent, so between a and b.
        OrderCase{"de", u"a", u"\u00E4", -1}, OrderCase{"de", u"\u00E4", u"b", -1},
        OrderCase{"de", u"\u00E4rger", u"Apfel", 1}, OrderCase{"de", u"\u00E4", u"z", -1},
        // Swedish: a-umlaut is a letter of its own after z (and after a-ring).
        OrderCase{"sv_SE", u"z", u"\u00E4", -1}, OrderCase{"sv_SE", u"\u00E5", u"\u00E4", -1},
        OrderCase{"sv_SE", u"\u00E4", u"\u00F6", -1}, OrderCase{"sv_SE", u"\u00E4rger", u"zon", 1},
        // US English: accents and case weigh less than letters.
        OrderCase{"en_US", u"role", u"r\u00F4le", -1},
        OrderCase{"en_US", u"r\u00F4le", u"roles", -1}, OrderCase{"en_US", u"a", u"A", -1},
        OrderCase{"en_US", u"abc", u"abc", 0}, OrderCase{"en_US", u"", u"a", -1},
        OrderCase{"en_US", u"", u"", 0},
        // "i18n" is the root order: no tailoring, a-umlaut before b.
        OrderCase{"i18n", u"a", u"\u00E4", -1}, OrderCase{"i18n", u"\u00E4", u"b", -1},
        OrderCase{"i18n", u"\u00E4", u"z", -1},
        // A name that no locale has gives the root order too.
        OrderCase{"xx_YY", u"\u00E4", u"b", -1}));

// US English has no tailoring of its own in the engine's data, so the
// default shows in answering as "en_US" does, and in not being Swedish.
TEST(KaCollationTest, DefaultLocaleIsUsEnglish) {
    const kaCollation byDefault;
    const kaCollation english("en_US");
    EXPECT_EQ(byDefault.GetActualLocale(), english.GetActualLocale());
    EXPECT_EQ(Compare16(byDefault, u"\u00E4", u"z"), -1);
    for (const auto& [a, b] : RandomWordPairs(500, 3))
        ASSERT_EQ(Compare16(byDefault, a, b), Compare16(english, a, b))
            << Utf8Of(a) << " / " << Utf8Of(b);
}

TEST(KaCollationTest, I18nEmptyAndUnknownNamesAreTheRootOrder) {
    EXPECT_EQ(kaCollation("i18n").GetActualLocale(), "root");
    EXPECT_EQ(kaCollation("").GetActualLocale(), "root");
    EXPECT_EQ(kaCollation(nullptr).GetActualLocale(), "root");
    EXPECT_EQ(kaCollation("xx_YY").GetActualLocale(), "root");
    EXPECT_EQ(kaCollation("sv_SE").GetActualLocale(), "sv");
    // The same answers as a collator on the root locale itself, pair by pair.
    const kaCollation i18n("i18n");
    const kaCollation root("root");
    for (const auto& [a, b] : RandomWordPairs(500, 7))
        ASSERT_EQ(Compare16(i18n, a, b), Compare16(root, a, b)) << Utf8Of(a) << " / " << Utf8Of(b);
}

TEST(KaCollationTest, EmptyRangesMayBeNullPointers) {
    const kaCollation collation("en_US");
    const unsigned short a[] = {'a'};
    const unsigned char b[] = {'b'};
    EXPECT_EQ(collation.CompareStrings(static_cast<const unsigned short*>(nullptr), nullptr,
                                       static_cast<const unsigned short*>(nullptr), nullptr),
              0);
    EXPECT_EQ(collation.CompareStrings(nullptr, nullptr, a, a + 1), -1);
    EXPECT_EQ(collation.CompareStrings(a, a + 1, nullptr, nullptr), 1);
    EXPECT_EQ(collation.CompareStrings(nullptr, nullptr, b, b + 1), -1);
    std::string empty = "stale";
    collation.BuildSortKey(empty, nullptr, nullptr);
    EXPECT_NE(empty, "stale");
    EXPECT_LT(empty, KeyOf(collation, u"a"));
}

TEST(KaCollationTest, RangeEndingBeforeItsStartIsRefused) {
    const kaCollation collation("en_US");
    const unsigned short units[] = {'a', 'b'};
    const unsigned char bytes[] = {'a', 'b'};
    std::string key;
    EXPECT_EQ(test_support::ThrownCode(
                  [&] { collation.CompareStrings(units + 2, units, units, units + 2); }),
              LU_E_INVALID_ARG);
    EXPECT_EQ(test_support::ThrownCode(
                  [&] { collation.CompareStrings(bytes, bytes + 2, bytes + 1, bytes); }),
              LU_E_INVALID_ARG);
    EXPECT_EQ(test_support::ThrownCode([&] { collation.BuildSortKey(key, units + 1, units); }),
              LU_E_INVALID_ARG);
}

// A malformed byte orders as U+FFFD would, after every letter.
TEST(KaCollationTest, MalformedUtf8OrdersAsReplacementCharacter) {
    const kaCollation collation("en_US");
    const unsigned char bad[] = {'a', 0xFF};
    const std::string good = Utf8Of(u"a\uFFFD");
    const auto* g = reinterpret_cast<const unsigned char*>(good.data());
    EXPECT_EQ(collation.CompareStrings(bad, bad + 2, g, g + good.size()), 0);
    const unsigned char z[] = {'a', 'z'};
    EXPECT_EQ(collation.CompareStrings(z, z + 2, bad, bad + 2), -1);
}

TEST(KaCollationTest, Utf8AndUtf16CompareAlike) {
    for (const char* locale : {"en_US", "de", "sv_SE", "i18n"}) {
        const kaCollation collation(locale);
        for (const auto& [a, b] : RandomWordPairs(2000, 11))
            ASSERT_EQ(Compare8(collation, a, b), Compare16(collation, a, b))
                << locale << ": " << Utf8Of(a) << " / " << Utf8Of(b);
    }
}

// Keys compared as std::string (unsigned bytes) order as CompareStrings does;
// no key holds a zero byte, and the old content of the string is replaced.
TEST(KaCollationTest, SortKeysOrderAsCompare) {
    for (const char* locale : {"en_US", "de", "sv_SE", "i18n"}) {
        const kaCollation collation(locale);
        int equal = 0;
        for (const auto& [a, b] : RandomWordPairs(3000, 23)) {
            const std::string ka = KeyOf(collation, a);
            const std::string kb = KeyOf(collation, b);
            ASSERT_EQ(ka.find('\0'), std::string::npos) << Utf8Of(a);
            const int order = Compare16(collation, a, b);
            ASSERT_EQ(Sign(ka.compare(kb)), order)
                << locale << ": " << Utf8Of(a) << " / " << Utf8Of(b);
            if (order == 0) ++equal;
        }
        EXPECT_GT(equal, 0) << "no equal pair was drawn: equal keys went untested";
    }
}

// Long texts, and units that expand into many collation elements (U+FDFA is
// an Arabic ligature of eighteen letters), need keys longer than a first
// guess from the length; the key must still be whole.
TEST(KaCollationTest, LongAndExpandingTextsGetWholeSortKeys) {
    const kaCollation collation("de");
    std::u16string longer(3000, u'\u00E4');
    std::u16string shorter = longer;
    shorter.back() = u'a';
    EXPECT_EQ(Sign(KeyOf(collation, shorter).compare(KeyOf(collation, longer))), -1);
    EXPECT_EQ(Compare16(collation, shorter, longer), -1);

    const std::u16string expanding(8, u'\uFDFA');
    const std::string keyA = KeyOf(collation, expanding + u"a");
    const std::string keyB = KeyOf(collation, expanding + u"b");
    EXPECT_GT(keyA.size(), 4 * (expanding.size() + 1) + 16) << "the case needs a long key";
    EXPECT_EQ(keyA.find('\0'), std::string::npos);
    EXPECT_EQ(Sign(keyA.compare(keyB)), -1);
    EXPECT_EQ(Compare16(collation, expanding + u"a", expanding + u"b"), -1);
}

TEST(KaCollationTest, CopiesAndAssignmentShareTheCollator) {
    auto* swedish = new kaCollation("sv_SE");
    const kaCollation copy(*swedish);
    kaCollation assigned("de");
    EXPECT_EQ(Compare16(assigned, u"\u00E4", u"z"), -1);
    assigned = *swedish;
    delete swedish;  // the copies keep the shared collator alive
    EXPECT_EQ(Compare16(copy, u"\u00E4", u"z"), 1);
    EXPECT_EQ(Compare16(assigned, u"\u00E4", u"z"), 1);
    kaCollation& self = assigned;
    assigned = self;
    EXPECT_EQ(Compare16(assigned, u"\u00E4", u"z"), 1);
    EXPECT_EQ(assigned.GetActualLocale(), "sv");
}

// One collator and copies of it used from several threads at once give the
// answers of a single thread. (ThreadSanitizer builds would see a race.)
TEST(KaCollationTest, ConcurrentConstCallsAgreeWithOneThread) {
    const kaCollation shared("sv_SE");
    const auto pairs = RandomWordPairs(1000, 31);
    std::vector<int> expected;
    std::vector<std::string> keys;
    for (const auto& [a, b] : pairs) {
        expected.push_back(Compare16(shared, a, b));
        keys.push_back(KeyOf(shared, a));
    }
    std::vector<int> mismatches(4, 0);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            const kaCollation own(shared);
            for (int round = 0; round < 3; ++round) {
                for (std::size_t i = 0; i < pairs.size(); ++i) {
                    const kaCollation& use = (i + t) % 2 == 0 ? shared : own;
                    if (Compare16(use, pairs[i].first, pairs[i].second) != expected[i] ||
                        Compare8(use, pairs[i].first, pairs[i].second) != expected[i] ||
                        KeyOf(use, pairs[i].first) != keys[i])
                        ++mismatches[t];
                }
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(mismatches, std::vector<int>(4, 0));
}

}  // namespace

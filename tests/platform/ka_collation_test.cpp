// kaCollation: tailored orders, UTF-8 against UTF-16, sort keys, shared copies and threads.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/ka_collation.h"
#include "test_support.h"

namespace {

using test_support::ThrownCode;
using test_support::Units;

// UTF-8 of a BMP text, encoded here so that the test does not lean on the library's conversions.
std::string Utf8Of(const std::u16string& text) {
    std::string out;
    for (const unsigned c : text) {
        if (c >= 0x800) out += {char(0xE0 | c >> 12), char(0x80 | (c >> 6 & 0x3F))};
        if (c >= 0x80 && c < 0x800) out += char(0xC0 | c >> 6);
        out += c < 0x80 ? char(c) : char(0x80 | (c & 0x3F));
    }
    return out;
}

// The sort key, which must replace the old content and hold no zero byte.
std::string KeyOf(const kaCollation& collation, const std::u16string& text) {
    const Units units = test_support::UnitsOf(text);
    std::string key = "stale";
    collation.BuildSortKey(key, units.data(), units.data() + units.size());
    EXPECT_EQ(key.find('\0'), std::string::npos) << Utf8Of(text);
    return key;
}

// CompareStrings on UTF-16 and on UTF-8, and the order of the sort keys as std::string (unsigned
// bytes), as three digits 0, 1, 2 for -1, 0, 1.
std::string Orders(const kaCollation& c, const std::u16string& a, const std::u16string& b) {
    const Units x = test_support::UnitsOf(a), y = test_support::UnitsOf(b);
    const std::string p = Utf8Of(a), q = Utf8Of(b), key = KeyOf(c, a);
    const auto* u = reinterpret_cast<const unsigned char*>(p.data());
    const auto* v = reinterpret_cast<const unsigned char*>(q.data());
    const int keys = key.compare(KeyOf(c, b));
    return {
        char('1' + c.CompareStrings(x.data(), x.data() + x.size(), y.data(), y.data() + y.size())),
        char('1' + c.CompareStrings(u, u + p.size(), v, v + q.size())),
        char('1' + (keys > 0) - (keys < 0))};
}

// Every pair of the words of up to two letters from a few that the locales below treat differently:
// they differ in a letter, an accent, a case or length.
std::vector<std::pair<std::u16string, std::u16string>> WordPairs() {
    std::vector<std::u16string> words = {u""};
    for (const char16_t a : std::u16string(u"aäAzåöß"))
        words.push_back({a}), words.push_back({a, u'b'});
    std::vector<std::pair<std::u16string, std::u16string>> pairs;
    for (const auto& a : words) {
        for (const auto& b : words) pairs.emplace_back(a, b);
    }
    return pairs;
}

// Each locale's texts ascending: German puts ä between a and b, Swedish after z and å; US English,
// the default, weighs accents and case below letters; "i18n", "" and unknown names give root. The
// three orders agree on every word pair. Long texts, and U+FDFA (a ligature of eighteen letters),
// need keys longer than a first guess from the length.
TEST(KaCollationTest, OrdersTextsAsTheLocaleDoesInKeysAndUtf8Too) {
    const std::pair<const char*, std::vector<std::u16string>> rows[] = {
        {"de", {u"a", u"ä", u"Apfel", u"ärger", u"b", u"z"}},
        {"sv_SE", {u"b", u"z", u"zon", u"å", u"ä", u"ärger", u"ö"}},
        {"en_US", {u"", u"a", u"A", u"abc", u"role", u"rôle", u"roles"}},
        {"i18n", {u"a", u"ä", u"b", u"z"}}};
    for (const auto& [locale, texts] : rows) {
        const kaCollation collation(locale);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            for (std::size_t j = 0; j < texts.size(); ++j)
                EXPECT_EQ(Orders(collation, texts[i], texts[j]),
                          std::string(3, '1' + (i > j) - (i < j)))
                    << locale << i << j;
        }
        int equal = 0;
        for (const auto& [a, b] : WordPairs()) {
            const std::string orders = Orders(collation, a, b);
            ASSERT_EQ(orders, std::string(3, orders[0])) << locale << Utf8Of(a + u"/" + b);
            equal += orders[0] == '1';
        }
        EXPECT_EQ(equal, 15) << "each word equals itself alone";
    }
    EXPECT_EQ(kaCollation("sv_SE").GetActualLocale(), "sv");
    EXPECT_EQ(kaCollation().GetActualLocale(), kaCollation("en_US").GetActualLocale());
    EXPECT_EQ(Orders(kaCollation(), u"ä", u"z"), "000");
    for (const char* root : {"i18n", "", static_cast<const char*>(nullptr), "xx_YY"})
        EXPECT_EQ(kaCollation(root).GetActualLocale(), "root");
    const kaCollation german("de");
    const std::u16string longer(3000, u'ä'), expanding(8, u'\uFDFA');
    EXPECT_EQ(Orders(german, longer.substr(1) + u"a", longer), "000");
    EXPECT_EQ(Orders(german, expanding + u"a", expanding + u"b"), "000");
    EXPECT_GT(KeyOf(german, expanding).size(), 4 * expanding.size() + 16) << "needs a long key";
}

// Empty ranges may be null pointers; a range ending before its start is refused; a malformed byte
// orders as U+FFFD would, after every letter.
TEST(KaCollationTest, NullEmptyReversedAndMalformedRanges) {
    const kaCollation collation("en_US");
    const unsigned short a[] = {'a', 'b'}, *none = nullptr;
    const unsigned char b[] = {'b', 'a'}, bad[] = {'a', 0xFF}, az[] = {'a', 'z'};
    EXPECT_EQ(collation.CompareStrings(none, none, none, none), 0);
    EXPECT_EQ(collation.CompareStrings(nullptr, nullptr, a, a + 1), -1);
    EXPECT_EQ(collation.CompareStrings(a, a + 1, nullptr, nullptr), 1);
    EXPECT_EQ(collation.CompareStrings(nullptr, nullptr, b, b + 1), -1);
    std::string key = "stale";
    collation.BuildSortKey(key, nullptr, nullptr);
    EXPECT_LT(key, KeyOf(collation, u"a"));
    EXPECT_EQ(ThrownCode([&] { collation.CompareStrings(a + 2, a, a, a + 2); }), LU_E_INVALID_ARG);
    EXPECT_EQ(ThrownCode([&] { collation.CompareStrings(b, b + 2, b + 1, b); }), LU_E_INVALID_ARG);
    EXPECT_EQ(ThrownCode([&] { collation.BuildSortKey(key, a + 1, a); }), LU_E_INVALID_ARG);
    const std::string replacement = Utf8Of(u"a\uFFFD");
    const auto* r = reinterpret_cast<const unsigned char*>(replacement.data());
    EXPECT_EQ(collation.CompareStrings(bad, bad + 2, r, r + replacement.size()), 0);
    EXPECT_EQ(collation.CompareStrings(az, az + 2, bad, bad + 2), -1);
}

// Copies share the collator, which outlives the original; one collator and copies of it used from
// several threads at once give one thread's answers.
TEST(KaCollationTest, CopiesShareTheCollatorAcrossThreads) {
    auto* swedish = new kaCollation("sv_SE");
    const kaCollation copy(*swedish);
    kaCollation assigned("de");
    EXPECT_EQ(Orders(assigned, u"ä", u"z"), "000");
    assigned = *swedish;
    delete swedish;
    assigned = static_cast<const kaCollation&>(assigned);
    EXPECT_EQ(Orders(copy, u"ä", u"z") + Orders(assigned, u"ä", u"z"), "222222");

    const auto pairs = WordPairs();
    std::vector<std::string> expected;
    for (const auto& [a, b] : pairs) expected.push_back(Orders(copy, a, b) + KeyOf(copy, a));
    std::vector<int> mismatches(4, 0);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            const kaCollation own(copy);
            for (int round = 0; round < 3; ++round) {
                for (std::size_t i = 0; i < pairs.size(); ++i) {
                    const kaCollation& use = (i + t) % 2 == 0 ? copy : own;
                    const auto& [a, b] = pairs[i];
                    mismatches[t] += Orders(use, a, b) + KeyOf(use, a) != expected[i];
                }
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(mismatches, std::vector<int>(4, 0));
}

}  // namespace

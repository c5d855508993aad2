// The lu_collate facet: the classic order, tailored orders through kaCollation, keys and hash.
#include <gtest/gtest.h>

#include <string>

#include "kai18n/facets/lu_collate.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/ka_collation.h"
#include "test_support.h"

namespace {

using test_support::Bytes;
using test_support::Str;
using test_support::Units;
using Facet = ilu_ptr<lu_collate>;

// The signs of compare() on UTF-16 and on UTF-8, and of the keys' order, as three digits 0, 1, 2
// for less, equal, greater.
std::string Orders(const lu_collate& facet, const Units& a, const Units& b) {
    const auto sign = [](int order) { return order < 0 ? '0' : order > 0 ? '2' : '1'; };
    const lu_utf8string x(Str(std::u16string(a.begin(), a.end()))),
        y(Str(std::u16string(b.begin(), b.end())));
    return {sign(facet.compare(a.data(), a.data() + a.size(), b.data(), b.data() + b.size())),
            sign(facet.compare(x.data(), x.data() + x.length(), y.data(), y.data() + y.length())),
            sign(facet.transform(a.data(), a.data() + a.size())
                     .compare(facet.transform(b.data(), b.data() + b.size())))};
}

// By unsigned unit, the first difference deciding, then by length (in UTF-8 by byte, which orders
// the last three alike); the key is two bytes per unit, high byte first; the hash starts at
// 0xDEADBEEF (not sign-extended), and turns it by 7 to the left, or'ed with the top bit, before
// mixing each unit in whole: 0x56DF7781 ^ 'a' = 0x56DF77E0, ^ 0xFFFF = 0x56DF887E.
TEST(CollateFacetTest, ClassicFormComparesUnitsThenLength) {
    const Facet facet(new lu_collate(0u));
    const std::u16string ascending[] = {u"",  u"\u0001", u"ab",     u"abc",    u"abz",   u"ac",
                                        u"b", u"\u00E4", u"\uE000", u"\uF900", u"\uFFFF"};
    for (const std::u16string& a : ascending) {
        for (const std::u16string& b : ascending) {
            const char order = &a < &b ? '0' : &a > &b ? '2' : '1';
            EXPECT_EQ(Orders(*facet, test_support::UnitsOf(a), test_support::UnitsOf(b)),
                      std::string(3, order));
        }
    }
    const Bytes ab = {'a', 'b'}, ab0 = {'a', 'b', 0}, high = {0xC3, 0xA4};
    EXPECT_EQ(facet->compare(&ab[0], &ab[0] + 2, &ab0[0], &ab0[0] + 3), -1);
    EXPECT_EQ(facet->compare(&high[0], &high[0] + 2, &ab[0], &ab[0] + 2), 1);  // unsigned bytes
    const Units units = {0x0041, 0x01FF, 0xFF00};
    EXPECT_EQ(facet->transform(&units[0], &units[0] + 3), std::string("\0A\x01\xFF\xFF\0", 6));
    const auto hash = [&](const Units& a) { return facet->hash(a.data(), a.data() + a.size()); };
    EXPECT_EQ(hash({}), static_cast<long>(0xDEADBEEFu));
    EXPECT_EQ(hash({'a'}), static_cast<long>(0x56DF77E0u));
    EXPECT_EQ(hash({0xFFFF}), static_cast<long>(0x56DF887Eu));
    EXPECT_NE(hash({'a', 'b'}), hash({'b', 'a'}));
}

// Each locale's letters in ascending order (classic puts ä after z); the comparator orders by the
// facet; the by-name form is refused.
TEST(CollateFacetTest, NamedFormsFollowTheLocale) {
    const std::pair<const char*, std::u16string> rows[] = {
        {"de", u"aäb"}, {"sv_SE", u"bzä"}, {"en_US", u"äb"}, {"i18n", u"aäz"}, {"", u"äz"}};
    for (const auto& [locale, letters] : rows) {
        const Facet facet(new lu_collate(std::string(locale)));
        for (std::size_t at = 0; at + 1 < letters.size(); ++at)
            EXPECT_EQ(Orders(*facet, {letters[at]}, {letters[at + 1]}), "000") << locale << at;
    }
    EXPECT_EQ(Facet(new lu_collate(std::string("i18n")))->GetImpl()->GetActualLocale(), "root");
    EXPECT_EQ(test_support::ThrownCode([] { Facet facet(new lu_collate("de", 0u)); }),
              LU_E_FACET_BY_NAME);
    const Facet swedish(new lu_collate(std::string("sv_SE")));
    const lu_collate::less_predicate less = swedish->GetComparator();
    EXPECT_TRUE(less(Str(u"zebra"), Str(u"ära")) && !less(Str(u"ära"), Str(u"zebra")));
    EXPECT_TRUE(less(ucs2string(), Str(u"a")) && !less(Str(u"apa"), Str(u"apa")));
    const lu_utf8string apa(Str(u"apa")), zebra(Str(u"zebra")), ara(Str(u"ära"));
    EXPECT_TRUE(less(zebra, ara) && !less(ara, zebra) && !less(apa, apa));
}

}  // namespace

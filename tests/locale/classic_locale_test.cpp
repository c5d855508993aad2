// The classic and global locales, categories, and comparing through a locale.
#include <gtest/gtest.h>

#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_collate.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_num_get.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/facets/lu_reserved_facets.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "kai18n/strings/lu_utf8string.h"
#include "test_support.h"

using test_support::Str;
using test_support::ThrownCode;

namespace {

// A copy of the classic locale whose numeric facets are new instances.
lu_locale ClassicWithOwnNumbers() {
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    auto* punct = new lu_numpunct(0u);
    impl->_M_install_facet(&lu_numpunct::id, punct);
    impl->_M_install_facet(&lu_num_get::id, new lu_num_get(punct, nullptr, 0u));
    impl->_M_install_facet(&lu_num_put::id, new lu_num_put(punct, 0u));
    impl->names()[3] = "numbers";
    return lu_locale(impl);
}

template <class F>
const void* FacetOf(const lu_locale& locale) {
    return &lu_use_facet<F>(locale);
}

}  // namespace

TEST(ClassicLocaleTest, HoldsOneFacetOfEachClassButTheIdentity) {
    const lu_locale classic = lu_locale::classic();
    EXPECT_EQ("*", classic.name());
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<lu_locale_ident>(classic); }));
    const void* facets[] = {FacetOf<lu_collate>(classic),   FacetOf<lu_ctype>(classic),
                            FacetOf<lu_codecvt>(classic),   FacetOf<lu_moneypunct>(classic),
                            FacetOf<lu_money_get>(classic), FacetOf<lu_money_put>(classic),
                            FacetOf<lu_numpunct>(classic),  FacetOf<lu_num_get>(classic),
                            FacetOf<lu_num_put>(classic),   FacetOf<lu_time_get>(classic),
                            FacetOf<lu_time_put>(classic),  FacetOf<lu_ctime>(classic)};
    for (size_t i = 0; i < 12; ++i) {
        for (size_t j = i + 1; j < 12; ++j) EXPECT_NE(facets[i], facets[j]) << i << " " << j;
    }
    EXPECT_EQ(nullptr, lu_use_facet<lu_collate>(classic).GetImpl());
    EXPECT_EQ(classic, lu_locale::classic());
    EXPECT_EQ(std::vector<std::string>(7, "*"), classic._M_get_impl()->names());
}

TEST(ClassicLocaleTest, CategoryArgumentsNormalise) {
    const struct {
        int category;
        int mask;  // 0: throws
    } rows[] = {{0, 0x7F00},      {1, 0x0100}, {2, 0x0200}, {3, 0x0400},      {4, 0x0800},
                {5, 0x1000},      {6, 0},      {-1, 0},     {0x2000, 0x2000}, {0x4100, 0x4100},
                {0x7F00, 0x7F00}, {0x8000, 0}, {0x0180, 0}, {0x00FF, 0}};
    for (const auto& row : rows) {
        if (row.mask == 0) {
            EXPECT_EQ(LU_E_BAD_CATEGORY,
                      ThrownCode([&] { lu_locale::_S_normalize_category(row.category); }))
                << row.category;
        } else {
            EXPECT_EQ(row.mask, lu_locale::_S_normalize_category(row.category)) << row.category;
        }
    }
}

TEST(ClassicLocaleTest, CombiningTakesTheFacetsOfOneCategory) {
    const lu_locale classic = lu_locale::classic();
    const lu_locale numbers = ClassicWithOwnNumbers();
    const lu_locale mixed(classic, numbers, lu_locale::numeric);
    EXPECT_EQ(FacetOf<lu_numpunct>(numbers), FacetOf<lu_numpunct>(mixed));
    EXPECT_EQ(FacetOf<lu_num_get>(numbers), FacetOf<lu_num_get>(mixed));
    EXPECT_EQ(FacetOf<lu_num_put>(numbers), FacetOf<lu_num_put>(mixed));
    EXPECT_EQ(FacetOf<lu_ctype>(classic), FacetOf<lu_ctype>(mixed));
    EXPECT_EQ(FacetOf<lu_ctime>(classic), FacetOf<lu_ctime>(mixed));
    EXPECT_EQ("numbers", mixed._M_get_impl()->names()[3]);
    EXPECT_EQ("*", mixed._M_get_impl()->names()[2]);
    EXPECT_NE(classic, mixed);

    // Category 4 (numeric) and a mask of two categories.
    const lu_locale byIndex(numbers, classic, 4);
    EXPECT_EQ(FacetOf<lu_numpunct>(classic), FacetOf<lu_numpunct>(byIndex));
    const lu_locale two(classic, numbers, lu_locale::numeric | lu_locale::collate);
    EXPECT_EQ(FacetOf<lu_num_put>(numbers), FacetOf<lu_num_put>(two));
    EXPECT_EQ("numbers", two._M_get_impl()->names()[3]);
}

TEST(ClassicLocaleTest, CombiningFailsOnMissingFacetsAndBadCategories) {
    const lu_locale classic = lu_locale::classic();
    EXPECT_EQ(LU_E_NO_FACET,
              ThrownCode([&] { lu_locale(classic, classic, lu_locale::identification); }));
    EXPECT_EQ(LU_E_BAD_CATEGORY, ThrownCode([&] { lu_locale(classic, classic, 6); }));

    // A named base stays named; an unnamed base gives an unnamed result.
    auto* namedImpl = new lu_locale::_Impl(*classic._M_get_impl(), 0);
    namedImpl->set_named(true);
    const lu_locale named(namedImpl);
    EXPECT_EQ("named", lu_locale(named, classic, lu_locale::ctype).name());
    EXPECT_EQ("*", lu_locale(classic, named, lu_locale::ctype).name());
}

TEST(ClassicLocaleTest, GlobalReturnsThePreviousOne) {
    const lu_locale before = lu_locale();
    EXPECT_EQ(lu_locale::classic(), before);
    const lu_locale numbers = ClassicWithOwnNumbers();
    const lu_locale previous = lu_locale::global(numbers);
    EXPECT_EQ(before._M_get_impl(), previous._M_get_impl());
    EXPECT_EQ(numbers._M_get_impl(), lu_locale()._M_get_impl());
    const lu_locale back = lu_locale::global(previous);
    EXPECT_EQ(numbers._M_get_impl(), back._M_get_impl());
    EXPECT_EQ(lu_locale::classic()._M_get_impl(), lu_locale()._M_get_impl());
}

TEST(ClassicLocaleTest, ComparingOrdersByCodeUnitInTheClassicLocale) {
    const lu_locale classic = lu_locale::classic();
    const struct {
        std::u16string left, right;
        bool before;
    } rows[] = {{u"b", u"\u00E4", true}, {u"\u00E4", u"b", false}, {u"", u"", false},
                {u"", u"a", true},       {u"ab", u"abc", true},    {u"abc", u"ab", false}};
    for (const auto& row : rows) {
        EXPECT_EQ(row.before, classic(Str(row.left), Str(row.right)));
        EXPECT_EQ(row.before, classic(lu_utf8string(Str(row.left)), lu_utf8string(Str(row.right))));
    }
    EXPECT_EQ(LU_E_NO_FACET,
              ThrownCode([] { lu_locale(new lu_locale::_Impl(1, 0))(Str(u"a"), Str(u"b")); }));
}

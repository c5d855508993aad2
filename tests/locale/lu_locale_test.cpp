#include "kai18n/locale/lu_locale.h"

#include <gtest/gtest.h>

#include "locale/test_facets.h"
#include "test_support.h"

using test_facets::Probe;
using test_support::ThrownCode;

namespace {

// A fresh body with one count held by the returned handle.
lu_locale MakeLocale(unsigned int slots) {
    return lu_locale(new lu_locale::_Impl(slots, 0));
}

}  // namespace

TEST(LuLocaleTest, InstallingOverAFacetReleasesTheOldOne) {
    lu_locale loc = MakeLocale(1);
    bool firstGone = false, secondGone = false;
    auto* first = new Probe<1>(&firstGone);
    auto* second = new Probe<1>(&secondGone);
    loc._M_get_impl()->_M_install_facet(&Probe<1>::id, first);
    EXPECT_EQ(1u, first->GetReferenceCount());
    loc._M_get_impl()->_M_install_facet(&Probe<1>::id, second);
    EXPECT_TRUE(firstGone);
    EXPECT_FALSE(secondGone);
    EXPECT_EQ(second, &lu_use_facet<Probe<1>>(loc));

    // Installing the facet that already stands there keeps it alive.
    loc._M_get_impl()->_M_install_facet(&Probe<1>::id, second);
    EXPECT_FALSE(secondGone);
    EXPECT_EQ(1u, second->GetReferenceCount());

    loc._M_get_impl()->_M_install_facet(&Probe<1>::id, nullptr);
    EXPECT_EQ(second, &lu_use_facet<Probe<1>>(loc));
}

TEST(LuLocaleTest, InstallGivesIdsNumbersAndGrowsTheTable) {
    lu_locale loc = MakeLocale(0);
    EXPECT_EQ(0u, Probe<2>::id.value());
    loc._M_get_impl()->_M_install_facet(&Probe<2>::id, new Probe<2>);
    loc._M_get_impl()->_M_install_facet(&Probe<3>::id, new Probe<3>);
    const unsigned int second = Probe<2>::id.value();
    const unsigned int third = Probe<3>::id.value();
    EXPECT_NE(0u, second);
    EXPECT_GT(third, second);
    EXPECT_EQ(third + 1, loc._M_get_impl()->facets().size());
    EXPECT_EQ(nullptr, loc._M_get_impl()->facets()[0]);

    // A number, once given, stays.
    lu_locale other = MakeLocale(1);
    other._M_get_impl()->_M_install_facet(&Probe<2>::id, new Probe<2>);
    EXPECT_EQ(second, Probe<2>::id.value());
}

TEST(LuLocaleTest, MissingFacetsThrowNoFacet) {
    lu_locale empty = MakeLocale(0);
    lu_locale null(nullptr);
    lu_locale small = MakeLocale(1);
    small._M_get_impl()->_M_install_facet(&Probe<4>::id, new Probe<4>);
    lu_locale withSlot = MakeLocale(1);
    withSlot._M_get_impl()->_M_install_facet(&Probe<5>::id, new Probe<5>);

    // Never assigned, a table without storage, no body, a slot past the end,
    // a slot inside the table that is empty.
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<Probe<6>>(small); }));
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<Probe<4>>(empty); }));
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<Probe<4>>(null); }));
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<Probe<5>>(small); }));
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<Probe<4>>(withSlot); }));
    EXPECT_EQ(0, ThrownCode([&] { lu_use_facet<Probe<4>>(small); }));
    EXPECT_TRUE(lu_has_facet<Probe<4>>(small));
    EXPECT_FALSE(lu_has_facet<Probe<4>>(withSlot));
    EXPECT_EQ(0xFFFFFFFF8004112BL, static_cast<unsigned long>(LU_E_NO_FACET));
}

TEST(LuLocaleTest, ReplaceFacetCopiesOrThrowsLeavingTargetUnchanged) {
    lu_locale source = MakeLocale(1);
    auto* shared = new Probe<7>;
    source._M_get_impl()->_M_install_facet(&Probe<7>::id, shared);
    lu_locale target = MakeLocale(1);
    bool ownGone = false;
    auto* own = new Probe<8>(&ownGone);
    target._M_get_impl()->_M_install_facet(&Probe<8>::id, own);

    target._M_get_impl()->_M_replace_facet(source._M_get_impl(), &Probe<7>::id);
    EXPECT_EQ(shared, &lu_use_facet<Probe<7>>(target));
    EXPECT_EQ(2u, shared->GetReferenceCount());

    const std::vector<lu_locale::facet*> before = target._M_get_impl()->facets();
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] {
                  target._M_get_impl()->_M_replace_facet(source._M_get_impl(), &Probe<8>::id);
              }));
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] {
                  target._M_get_impl()->_M_replace_facet(source._M_get_impl(), &Probe<9>::id);
              }));
    EXPECT_EQ(before, target._M_get_impl()->facets());
    EXPECT_FALSE(ownGone);
    EXPECT_EQ(own, &lu_use_facet<Probe<8>>(target));
}

TEST(LuLocaleTest, CopiedBodyCountsItsFacetsAndReleasesThemOnce) {
    bool gone = false;
    auto* probe = new Probe<10>(&gone);
    {
        lu_locale original = MakeLocale(1);
        original._M_get_impl()->_M_install_facet(&Probe<10>::id, probe);
        original._M_get_impl()->names()[2] = "monetary";
        original._M_get_impl()->set_named(true);
        lu_locale copy(new lu_locale::_Impl(*original._M_get_impl(), 0));
        EXPECT_EQ(2u, probe->GetReferenceCount());
        EXPECT_EQ(original._M_get_impl()->names(), copy._M_get_impl()->names());
        EXPECT_TRUE(copy._M_get_impl()->named());
        EXPECT_EQ(7u, copy._M_get_impl()->names().size());
    }
    EXPECT_TRUE(gone);
}

TEST(LuLocaleTest, HandlesShareOneCountedBody) {
    lu_locale::_Impl* impl = new lu_locale::_Impl(1, 0);
    lu_locale a(impl);
    EXPECT_EQ(1u, impl->GetReferenceCount());
    {
        lu_locale b(a);
        lu_locale c = MakeLocale(1);
        c = b;
        EXPECT_EQ(3u, impl->GetReferenceCount());
        const lu_locale& same = c;
        c = same;  // self-assignment keeps the count
        EXPECT_EQ(3u, impl->GetReferenceCount());
    }
    EXPECT_EQ(1u, impl->GetReferenceCount());
}

TEST(LuLocaleTest, EqualityIsSharingOrANamedLeftSideWithTheSameName) {
    lu_locale unnamed = MakeLocale(1);
    lu_locale unnamedCopy(new lu_locale::_Impl(*unnamed._M_get_impl(), 0));
    lu_locale named = MakeLocale(1);
    named._M_get_impl()->set_named(true);
    lu_locale otherNamed = MakeLocale(1);
    otherNamed._M_get_impl()->set_named(true);

    const struct {
        const lu_locale& left;
        const lu_locale& right;
        bool equal;
    } cases[] = {
        {unnamed, lu_locale(unnamed), true},
        {unnamed, unnamedCopy, false},
        {named, otherNamed, true},
        {named, unnamed, false},
        {unnamed, named, false},
        {lu_locale(nullptr), lu_locale(nullptr), true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.equal, c.left == c.right) << c.left.name() << " vs " << c.right.name();
        EXPECT_EQ(!c.equal, c.left != c.right);
    }
    EXPECT_EQ("*", unnamed.name());
    EXPECT_EQ("named", named.name());
}

TEST(LuLocaleTest, LocaleIdsJoinAndSplitAtTheFirstUnderscore) {
    const struct {
        const char* language;
        const char* country;
        const char* joined;
    } joins[] = {{"en", "US", "en_US"}, {"en", "", "en"}, {"", "US", "_US"}, {"", "", ""}};
    for (const auto& j : joins) {
        EXPECT_EQ(j.joined, lu_locale::makeLocaleId(j.language, j.country));
    }
    const struct {
        const char* id;
        const char* first;
        const char* second;
    } splits[] = {{"en_US", "en", "US"},
                  {"en", "en", ""},
                  {"zh_Hant_TW", "zh", "Hant_TW"},
                  {"_US", "", "US"},
                  {"en_", "en", ""},
                  {"", "", ""},
                  {"de_DE.UTF-8", "de", "DE.UTF-8"}};
    for (const auto& s : splits) {
        const auto parts = lu_locale::splitLocaleId(s.id);
        EXPECT_EQ(s.first, parts.first) << s.id;
        EXPECT_EQ(s.second, parts.second) << s.id;
    }
}

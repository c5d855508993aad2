// Helpers of the number formatter tests: a locale with chosen group sizes and
// settings made from a locale and a few preferences.
#ifndef KAI18N_TESTS_NUMBER_TEST_SUPPORT_H
#define KAI18N_TESTS_NUMBER_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "fmt_test_support.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/fmtlib/lu_settings.h"

namespace fmt_test {

// The classic locale with "." and "," and the given group sizes.
inline lu_locale GroupedLocale(std::initializer_list<unsigned short> sizes) {
    ucs2string grouping;
    for (unsigned short size : sizes) grouping.push_back(size);
    auto* punct = new lu_numpunct(0u);
    punct->init('.', ',', grouping, lu_numeric_punctuation::kDefaultBlock);
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    impl->_M_install_facet(&lu_numpunct::id, punct);
    impl->_M_install_facet(&lu_num_put::id, new lu_num_put(punct, 0));
    return lu_locale(impl);
}

// Settings of `locale` with the given string preferences, built.
inline ilu_ptr<FmtLib::luSettings> Settings(
    const lu_locale& locale,
    std::initializer_list<std::pair<const char*, const char*>> prefs = {}) {
    ilu_ptr<FmtLib::luPreferences> preferences;
    EXPECT_EQ(0, FmtLib::CreatePreferences(preferences));
    for (const auto& p : prefs) preferences->AddPreference(p.first, U(p.second));
    preferences->EndBuild();
    ilu_ptr<FmtLib::luSettings> settings;
    EXPECT_EQ(0, FmtLib::CreateSettings(locale, preferences, settings));
    return settings;
}

}  // namespace fmt_test

#endif  // KAI18N_TESTS_NUMBER_TEST_SUPPORT_H

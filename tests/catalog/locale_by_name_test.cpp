// Locales by name and from a locale record.
#include <gtest/gtest.h>

#include <string>

#include "catalog/catalog_test_support.h"
#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_collate.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_num_get.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/facets/lu_reserved_facets.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "test_support.h"

using catalog_test::IdsOf;
using catalog_test::Intersect;
using catalog_test::ModuleLoaded;
using catalog_test::ReadTrace;
using test_support::Str;
using test_support::ThrownCode;
using test_support::U16;

namespace {

class LocaleByNameTest : public ::testing::Test {
  protected:
    void SetUp() override { lu_locale_catalog::ClearInstance(); }
    void TearDown() override { lu_locale_catalog::ClearInstance(); }
};

std::u16string Units(const unsigned short* text) {
    std::u16string units;
    if (text == nullptr) return units;
    while (*text != 0) units.push_back(static_cast<char16_t>(*text++));
    return units;
}

const unsigned short kGrouping[] = {3, 0};

}  // namespace

// ---- the classic names

TEST_F(LocaleByNameTest, CAndPosixShareTheClassicBody) {
    const lu_locale c("C");
    const lu_locale posix("POSIX");
    EXPECT_TRUE(c == lu_locale::classic());
    EXPECT_TRUE(posix == lu_locale::classic());
    EXPECT_EQ(lu_locale::classic()._M_get_impl(), c._M_get_impl());
    EXPECT_EQ(lu_locale::classic()._M_get_impl(), posix._M_get_impl());
    // The catalog was not asked.
    EXPECT_FALSE(ModuleLoaded());
}

TEST_F(LocaleByNameTest, LowerCaseCIsANameForTheCatalog) {
    lu_locale_catalog& catalog = *lu_locale_catalog::GetInstance();
    catalog.GetStorage(lu_locale_catalog::kNeutralLocaleId);
    const auto sections = ReadTrace(catalog);
    ASSERT_TRUE(IdsOf(sections, 0, "c").empty());
    ASSERT_TRUE(IdsOf(sections, 1, "c").empty());
    lu_locale_catalog::ClearInstance();

    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale("c"); }));
    EXPECT_TRUE(ModuleLoaded());
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale("posix"); }));
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale("C "); }));
}

TEST_F(LocaleByNameTest, NullEmptyAndUnknownNamesThrow) {
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale(static_cast<const char*>(nullptr)); }));
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale(""); }));
    EXPECT_FALSE(ModuleLoaded());
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale("zz_ZZ"); }));
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale("de_ZZ"); }));
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale("de_DE@nonesuch"); }));
}

// ---- names from the data module

TEST_F(LocaleByNameTest, GermanForGermanyHasGermanPunctuationAndNames) {
    const lu_locale german("de_DE");
    EXPECT_EQ("named", german.name());
    const lu_numpunct& punct = lu_use_facet<lu_numpunct>(german);
    EXPECT_EQ(u',', punct.decimal_point());
    EXPECT_EQ(u'.', punct.thousands_sep());
    const lu_ctime& time = lu_use_facet<lu_ctime>(german);
    EXPECT_EQ(u"März", Units(time.GetNameOfMonth(3)));
    EXPECT_EQ(u"Montag", Units(time.GetNameOfDay(0)));
    const lu_locale_ident& identity = lu_use_facet<lu_locale_ident>(german);
    EXPECT_STREQ("de", identity.language_code_2());
    EXPECT_STREQ("DE", identity.country_code_2());
    // Collation by the German order: a before ä before b.
    EXPECT_TRUE(german(Str(u"a"), Str(u"ä")));
    EXPECT_TRUE(german(Str(u"ä"), Str(u"b")));
}

TEST_F(LocaleByNameTest, TheNameTakesTheLowestMatchingLocale) {
    const lu_locale german("de_DE");
    std::vector<unsigned int> ids;
    lu_locale_catalog& catalog = *lu_locale_catalog::GetInstance();
    ASSERT_EQ(LU_S_OK, catalog.QueryMatchingLocales("de", "DE", "", "", ids, false));
    EXPECT_EQ(catalog.GetLocaleInstance(ids.front()).get(), german._M_get_impl());
    // One body for every handle of the name.
    const lu_locale again("de_DE");
    EXPECT_EQ(german._M_get_impl(), again._M_get_impl());
    EXPECT_TRUE(german == again);
}

TEST_F(LocaleByNameTest, NamesWithAnEncodingWork) {
    const lu_locale american("en_US.UTF-8");
    EXPECT_STREQ("UTF-8", lu_use_facet<lu_locale_ident>(american).encoding_technical_name());
    EXPECT_STREQ("en", lu_use_facet<lu_locale_ident>(american).language_code_2());
    EXPECT_EQ(u'.', lu_use_facet<lu_numpunct>(american).decimal_point());

    const lu_locale german("de_DE.CP1252");
    EXPECT_STREQ("CP1252", lu_use_facet<lu_locale_ident>(german).encoding_technical_name());
    EXPECT_EQ(u',', lu_use_facet<lu_numpunct>(german).decimal_point());
    ucs2string text;
    const char bytes[] = "M\xE4rz";
    lu_use_facet<lu_codecvt>(german).SetString(bytes, bytes + 4, text);
    EXPECT_EQ(u"März", U16(text));
}

TEST_F(LocaleByNameTest, ABareCodeFindsItsLocales) {
    const lu_locale german("de");
    EXPECT_STREQ("de", lu_use_facet<lu_locale_ident>(german).language_code_2());
    const lu_locale american("US");
    EXPECT_STREQ("US", lu_use_facet<lu_locale_ident>(american).country_code_2());
}

TEST_F(LocaleByNameTest, ANameNoLocaleMatchesMakesACustomLocaleOnce) {
    lu_locale_catalog& catalog = *lu_locale_catalog::GetInstance();
    catalog.GetStorage(lu_locale_catalog::kNeutralLocaleId);
    const auto sections = ReadTrace(catalog);
    const auto german = Intersect(IdsOf(sections, 0, "de"), IdsOf(sections, 1, "DE"));
    std::string encoding;
    for (const std::string& key : catalog_test::KeysOf(sections, 2)) {
        if (Intersect(IdsOf(sections, 2, key), german).empty()) encoding = key;
    }
    ASSERT_FALSE(encoding.empty());
    const std::string name = "de_DE." + encoding;

    const lu_locale first(name.c_str());
    EXPECT_EQ(encoding, lu_use_facet<lu_locale_ident>(first).encoding_technical_name());
    EXPECT_EQ(u',', lu_use_facet<lu_numpunct>(first).decimal_point());
    const lu_locale second(name.c_str());
    EXPECT_EQ(first._M_get_impl(), second._M_get_impl());
    EXPECT_EQ(catalog.GetLocaleInstance(32001).get(), first._M_get_impl());
    EXPECT_EQ(nullptr, catalog.GetStorage(32002));
}

// ---- locales from a record

TEST(LocaleFromStorageTest, ARecordGivesANamedLocaleWithEveryFacet) {
    static const lu_locale_ident_impl::StaticStorage kIdentity = {
        "CH",
        "de",
        test_support::Utf8("Unicode collation"),
        "i18n",
        test_support::Utf8("Western (Windows-1252)"),
        "CP1252",
        nullptr};
    static const lu_numeric_punctuation::StaticStorage kNumeric = {
        1,
        u'.',
        u'\'',
        kGrouping,
        lu_numeric_punctuation::kDefaultBlock,
        lu_numeric_punctuation::kDefaultFormats};
    static const lu_locale_storage kRecord = {99003, &kIdentity, nullptr, &kNumeric, nullptr};

    const lu_locale locale(&kRecord);
    EXPECT_EQ("named", locale.name());
    EXPECT_EQ(1u, locale._M_get_impl()->GetReferenceCount());
    EXPECT_GE(locale._M_get_impl()->facets().size(), 14u);
    EXPECT_TRUE(lu_has_facet<lu_ctime>(locale));
    EXPECT_TRUE(lu_has_facet<lu_ctype>(locale));
    EXPECT_TRUE(lu_has_facet<lu_collate>(locale));
    EXPECT_TRUE(lu_has_facet<lu_codecvt>(locale));
    EXPECT_TRUE(lu_has_facet<lu_moneypunct>(locale));
    EXPECT_TRUE(lu_has_facet<lu_money_get>(locale));
    EXPECT_TRUE(lu_has_facet<lu_money_put>(locale));
    EXPECT_TRUE(lu_has_facet<lu_numpunct>(locale));
    EXPECT_TRUE(lu_has_facet<lu_num_get>(locale));
    EXPECT_TRUE(lu_has_facet<lu_num_put>(locale));
    EXPECT_TRUE(lu_has_facet<lu_time_get>(locale));
    EXPECT_TRUE(lu_has_facet<lu_time_put>(locale));
    EXPECT_TRUE(lu_has_facet<lu_locale_ident>(locale));

    // Each facet's slot holds one count; the number facets hold one more on
    // the locale's own punctuation and character facets, which shows what
    // they were built on.
    const lu_locale::facet* punct = &lu_use_facet<lu_numpunct>(locale);
    const lu_locale::facet* ctype = &lu_use_facet<lu_ctype>(locale);
    for (const lu_locale::facet* f : locale._M_get_impl()->facets()) {
        if (f == nullptr) continue;
        const unsigned int expected = f == punct ? 3u : f == ctype ? 2u : 1u;
        EXPECT_EQ(expected, f->GetReferenceCount());
    }
    EXPECT_EQ(u'\'', lu_use_facet<lu_numpunct>(locale).thousands_sep());
    EXPECT_STREQ("CH", lu_use_facet<lu_locale_ident>(locale).country_code_2());
    EXPECT_NE(nullptr, lu_use_facet<lu_collate>(locale).GetImpl());
    // The built-in character tables stand in for a null pointer.
    EXPECT_EQ(u'Q', lu_use_facet<lu_ctype>(locale).toupper(u'q'));
    // The reserved facets are the locale's own.
    EXPECT_NE(&lu_use_facet<lu_moneypunct>(locale),
              &lu_use_facet<lu_moneypunct>(lu_locale::classic()));
    // Two locales from one record are two bodies, equal by name.
    const lu_locale other(&kRecord);
    EXPECT_NE(locale._M_get_impl(), other._M_get_impl());
    EXPECT_TRUE(locale == other);
}

TEST(LocaleFromStorageTest, ANullRecordGivesFourteenEmptySlots) {
    const lu_locale locale(static_cast<const lu_locale_storage*>(nullptr));
    EXPECT_EQ("*", locale.name());
    ASSERT_EQ(14u, locale._M_get_impl()->facets().size());
    for (const lu_locale::facet* f : locale._M_get_impl()->facets()) EXPECT_EQ(nullptr, f);
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<lu_ctype>(locale); }));
}

TEST(LocaleFromStorageTest, AnEncodingTheConvertersDoNotKnowFailsTheBuild) {
    static const lu_locale_ident_impl::StaticStorage kIdentity = {
        "DE",
        "de",
        test_support::Utf8("Unicode collation"),
        "i18n",
        test_support::Utf8("?"),
        "nonesuch-encoding",
        nullptr};
    static const lu_locale_storage kRecord = {99004, &kIdentity, nullptr, nullptr, nullptr};
    EXPECT_EQ(LU_E_ENCODING, ThrownCode([] { lu_locale locale(&kRecord); }));
}

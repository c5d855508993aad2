// The catalog's rules, case by case, on records of the test's own in a catalog
// apart from the process-wide one: registration, the key maps and their
// trace, the four-part query, names, custom locales, and look-ups by id.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalog/catalog_test_support.h"
#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "test_support.h"

using catalog_test::Ids;
using catalog_test::LoadSharedCatalog;
using catalog_test::PrivateCatalog;
using catalog_test::ReadTrace;
using test_support::ThrownCode;
using test_support::Utf8;

namespace {

using Ident = lu_locale_ident_impl::StaticStorage;

const unsigned char* const kUnicodeOrder = Utf8("Unicode collation");
const unsigned char* const kPhoneBookOrder = Utf8("Phone book");
const unsigned char* const kWestern = Utf8("Western European (Windows)");
const unsigned char* const kCyrillic = Utf8("Cyrillic (Windows)");
const unsigned char* const kUtf8Name = Utf8("Unicode (UTF-8)");
const unsigned short kInternational[] = {'I', 'n', 't', 'l', 0};

const Ident kNeutral = {"i18n", nullptr, kUnicodeOrder, "i18n", kWestern, "CP1252", kInternational};
const Ident kDeDe = {"DE", "de", kUnicodeOrder, "i18n", kWestern, "CP1252", nullptr};
const Ident kDeDeUtf8 = {"DE", "de", kUnicodeOrder, "i18n", kUtf8Name, "UTF-8", nullptr};
const Ident kDeDePhone = {"DE", "de", kPhoneBookOrder, "phonebook", kWestern, "CP1252", nullptr};
const Ident kDeAt = {"AT", "de", kUnicodeOrder, "i18n", kWestern, "CP1252", kInternational};
const Ident kEnUs = {"US", "en", kUnicodeOrder, "i18n", kWestern, "CP1252", nullptr};
const Ident kEnUsUtf8 = {"US", "en", kUnicodeOrder, "i18n", kUtf8Name, "UTF-8", nullptr};
const Ident kRuRu = {"RU", "ru", kUnicodeOrder, "i18n", kCyrillic, "CP1251", nullptr};
const Ident kNoLanguage = {"XX", nullptr, kUnicodeOrder, "i18n", kUtf8Name, "UTF-8", nullptr};
// A second record for a taken id: registering it must change nothing.
const Ident kImpostor = {"FR", "fr", kUnicodeOrder, "i18n", kWestern, "CP1252", nullptr};

// Tables that only their addresses matter for: no locale is built on them.
const lu_ctype_impl::StaticStorage kAtCtype = {};
const lu_numeric_punctuation::StaticStorage kAtNumeric = {};
const lu_ctime_impl::StaticStorage kAtTime = {};

const lu_locale_storage kNeutralRecord = {31000, &kNeutral, nullptr, nullptr, nullptr};
const lu_locale_storage kDeDeRecord = {10, &kDeDe, nullptr, nullptr, nullptr};
const lu_locale_storage kDeDeUtf8Record = {11, &kDeDeUtf8, nullptr, nullptr, nullptr};
const lu_locale_storage kDeDePhoneRecord = {12, &kDeDePhone, nullptr, nullptr, nullptr};
const lu_locale_storage kDeAtRecord = {13, &kDeAt, &kAtCtype, &kAtNumeric, &kAtTime};
const lu_locale_storage kEnUsRecord = {20, &kEnUs, nullptr, nullptr, nullptr};
const lu_locale_storage kEnUsUtf8Record = {21, &kEnUsUtf8, nullptr, nullptr, nullptr};
const lu_locale_storage kRuRuRecord = {30, &kRuRu, nullptr, nullptr, nullptr};
const lu_locale_storage kNoLanguageRecord = {40, &kNoLanguage, nullptr, nullptr, nullptr};

// Registered out of id order, so that every answer shows its sorting.
const lu_locale_storage* const kRecords[] = {
    &kDeAtRecord,     &kDeDePhoneRecord, &kNeutralRecord, &kDeDeUtf8Record,  &kDeDeRecord,
    &kEnUsUtf8Record, &kEnUsRecord,      &kRuRuRecord,    &kNoLanguageRecord};

const long kNoMatch = LU_S_NO_MATCH;

class CatalogRulesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        LoadSharedCatalog();
        for (const lu_locale_storage* record : kRecords) {
            ASSERT_EQ(LU_S_OK, catalog.Register(record)) << record->locale_id;
        }
    }

    // The four-part query's answer; `code` receives its result.
    Ids Query(const char* language, const char* territory, const char* encoding,
              const char* collation, bool create, long* code = nullptr) {
        Ids result;
        const long outcome =
            catalog.QueryMatchingLocales(language, territory, encoding, collation, result, create);
        if (code != nullptr) *code = outcome;
        return result;
    }

    // The name query's answer; `code` receives its result.
    Ids QueryName(const char* name, bool create, long* code = nullptr) {
        Ids result;
        const long outcome = catalog.QueryMatchingLocales(name, result, create);
        if (code != nullptr) *code = outcome;
        return result;
    }

    const Ident& IdentityOf(unsigned int id) { return *catalog.GetStorage(id)->identity; }

    PrivateCatalog catalog;
};

}  // namespace

// ---- the pieces

TEST(CatalogKeyTest, LessStrComparesBytesAsUnsignedValues) {
    const lu_locale_storage_less_str less;
    EXPECT_TRUE(less("a", "b"));
    EXPECT_FALSE(less("b", "a"));
    EXPECT_TRUE(less("a", "ab"));
    EXPECT_FALSE(less("ab", "a"));
    EXPECT_FALSE(less("de", "de"));
    EXPECT_TRUE(less("", "a"));
    EXPECT_FALSE(less("", ""));
    EXPECT_TRUE(less("DE", "de"));
    // A byte above 0x7F orders after every ASCII byte.
    EXPECT_TRUE(less("z", "\xC3\xA9"));
    EXPECT_FALSE(less("\xC3\xA9", "z"));
}

TEST(CatalogKeyTest, BindMatchedValueGivesTheId) {
    const std::pair<const char* const, unsigned int> entry("de", 1031u);
    EXPECT_EQ(1031u, lu_locale_catalog::bind_matched_value(entry));
}

TEST(CatalogKeyTest, MatchLocaleAppendsEveryEqualKeyInMapOrder) {
    lu_locale_catalog::key_map map;
    map.emplace("en", 7u);
    map.emplace("de", 5u);
    map.emplace("de", 3u);
    map.emplace("det", 9u);
    map.emplace("de", 4u);
    Ids result = {100};
    PrivateCatalog::MatchLocale("de", map, result);
    EXPECT_EQ((Ids{100, 5, 3, 4}), result);
    PrivateCatalog::MatchLocale("fr", map, result);
    EXPECT_EQ((Ids{100, 5, 3, 4}), result);
}

// ---- registration and the key maps

TEST_F(CatalogRulesTest, TraceWritesEachMapUnderItsHeadingInMapOrder) {
    std::ostringstream out;
    catalog.Trace(out);
    EXPECT_EQ(
        "***** Languages *****\n"
        "de,13\nde,12\nde,11\nde,10\nen,21\nen,20\nru,30\n"
        "**** Territories ****\n"
        "AT,13\nDE,12\nDE,11\nDE,10\nRU,30\nUS,21\nUS,20\nXX,40\ni18n,31000\n"
        "***** Encoding ******\n"
        "CP1251,30\nCP1252,13\nCP1252,12\nCP1252,31000\nCP1252,10\nCP1252,20\n"
        "UTF-8,11\nUTF-8,21\nUTF-8,40\n"
        "***** Collation *****\n"
        "i18n,13\ni18n,31000\ni18n,11\ni18n,10\ni18n,21\ni18n,20\ni18n,30\ni18n,40\n"
        "phonebook,12\n",
        out.str());
}

TEST(CatalogTraceTest, AnEmptyCatalogWritesTheFourHeadings) {
    PrivateCatalog empty;
    std::ostringstream out;
    empty.Trace(out);
    EXPECT_EQ(
        "***** Languages *****\n**** Territories ****\n***** Encoding ******\n"
        "***** Collation *****\n",
        out.str());
}

TEST_F(CatalogRulesTest, RegisterTakesEachIdOnceAndTheFirstRecordStands) {
    const lu_locale_storage impostor = {10, &kImpostor, nullptr, nullptr, nullptr};
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.Register(&impostor));
    EXPECT_EQ(&kDeDeRecord, catalog.GetStorage(10));
    EXPECT_EQ(std::string("de"), catalog.GetLocaleIdentification(10)->language_code_2());
    const auto sections = ReadTrace(catalog);
    EXPECT_TRUE(catalog_test::IdsOf(sections, 0, "fr").empty());
    EXPECT_TRUE(catalog_test::IdsOf(sections, 1, "FR").empty());
    EXPECT_EQ((Ids{10, 12, 13, 20, 31000}), catalog_test::IdsOf(sections, 2, "CP1252"));
}

TEST_F(CatalogRulesTest, ALocaleWithoutLanguageIsKnownByItsIdentificationCode) {
    const auto sections = ReadTrace(catalog);
    EXPECT_EQ((Ids{40}), catalog_test::IdsOf(sections, 1, "XX"));
    EXPECT_EQ((Ids{31000}), catalog_test::IdsOf(sections, 1, "i18n"));
    for (const auto& entry : sections[0].entries) {
        EXPECT_NE(40u, entry.second);
        EXPECT_NE(31000u, entry.second);
    }
}

TEST_F(CatalogRulesTest, ARecordWithoutIdentityIsKeyedByTheBuiltInIdentity) {
    const lu_locale_storage bare = {50, nullptr, nullptr, nullptr, nullptr};
    ASSERT_EQ(LU_S_OK, catalog.Register(&bare));
    const Ident& builtIn = *lu_locale_ident_impl::GetDefaultIdent();
    const auto sections = ReadTrace(catalog);
    EXPECT_EQ((Ids{50, 31000}), catalog_test::IdsOf(sections, 1, builtIn.country));
    EXPECT_EQ((Ids{10, 12, 13, 20, 50, 31000}),
              catalog_test::IdsOf(sections, 2, builtIn.encoding_technical_name));
    EXPECT_EQ(catalog_test::IdsOf(sections, 3, builtIn.sort_order_technical_name).size(), 9u);
    EXPECT_EQ((Ids{50, 31000}), Query("", builtIn.country, "", "", false));
}

TEST_F(CatalogRulesTest, ANullRecordIsRefused) {
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.Register(nullptr));
}

TEST_F(CatalogRulesTest, IdentityFacetsAreMadeOncePerLocale) {
    const ilu_const_ptr<lu_locale_ident> first = catalog.GetLocaleIdentification(13);
    ASSERT_TRUE(first);
    EXPECT_EQ(first, catalog.GetLocaleIdentification(13));
    EXPECT_EQ(std::string("de"), first->language_code_2());
    EXPECT_EQ(std::string("AT"), first->country_code_2());
    EXPECT_EQ(std::string("CP1252"), first->encoding_technical_name());
    EXPECT_FALSE(catalog.GetLocaleIdentification(14));
    EXPECT_EQ(nullptr, catalog.GetStorage(14));
}

// ---- the four-part query

TEST_F(CatalogRulesTest, LanguageAndTerritoryIntersectAscending) {
    long code = 0;
    EXPECT_EQ((Ids{10, 11, 12}), Query("de", "DE", "", "", false, &code));
    EXPECT_EQ(LU_S_OK, code);
    EXPECT_EQ((Ids{10, 11, 12, 13}), Query("de", "", "", "", false, &code));
    EXPECT_EQ(LU_S_OK, code);
    EXPECT_EQ((Ids{10, 11, 12}), Query("", "DE", "", "", false, &code));
    EXPECT_EQ((Ids{20, 21}), Query(nullptr, "US", nullptr, nullptr, false, &code));
    EXPECT_EQ((Ids{31000}), Query("", "i18n", "", "", false, &code));
    EXPECT_EQ(LU_S_OK, code);
}

TEST_F(CatalogRulesTest, AnUnknownPartIsNoMatchAndLeavesTheResultAlone) {
    const struct {
        const char* language;
        const char* territory;
        const char* encoding;
        const char* collation;
        bool create;
    } cases[] = {
        {"fr", "", "", "", true},         // unknown language
        {"", "FR", "", "", true},         // unknown territory
        {"fr", "DE", "", "", true},       // territory known, language not
        {"de", "US", "", "", true},       // both known, nothing in common
        {"de", "DE", "", "ducet", true},  // unknown sort order
        {"de", "DE", "KOI8-R", "", false}, {"DE", "", "", "", true},  // case counts
        {"", "de", "", "", true},          {"", "", "", "", false},
    };
    for (const auto& c : cases) {
        Ids result = {4711};
        EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales(c.language, c.territory, c.encoding,
                                                         c.collation, result, c.create))
            << c.language << "|" << c.territory << "|" << c.encoding << "|" << c.collation;
        EXPECT_EQ((Ids{4711}), result) << c.language << "|" << c.territory;
    }
    // Nothing was made on the way.
    EXPECT_EQ(nullptr, catalog.GetStorage(32001));
}

TEST_F(CatalogRulesTest, AMatchReplacesWhatTheResultHeld) {
    Ids result = {1, 2, 3, 4, 5, 6};
    EXPECT_EQ(LU_S_OK, catalog.QueryMatchingLocales("ru", "", "", "", result, false));
    EXPECT_EQ((Ids{30}), result);
}

TEST_F(CatalogRulesTest, SortOrderAndEncodingFilterTheSelection) {
    EXPECT_EQ((Ids{12}), Query("de", "DE", "", "phonebook", false));
    EXPECT_EQ((Ids{10, 11}), Query("de", "DE", "", "i18n", false));
    EXPECT_EQ((Ids{11}), Query("de", "DE", "UTF-8", "", false));
    EXPECT_EQ((Ids{10, 12, 13}), Query("de", "", "CP1252", "", false));
    EXPECT_EQ((Ids{10}), Query("de", "DE", "CP1252", "i18n", false));
    EXPECT_EQ((Ids{40}), Query("", "XX", "UTF-8", "i18n", false));
}

TEST_F(CatalogRulesTest, SortOrderOrEncodingAloneSelectsNothing) {
    long code = 0;
    EXPECT_TRUE(Query("", "", "UTF-8", "", false, &code).empty());
    EXPECT_EQ(kNoMatch, code);
    EXPECT_TRUE(Query("", "", "", "phonebook", false, &code).empty());
    EXPECT_EQ(kNoMatch, code);
    EXPECT_TRUE(Query("", "", "CP1252", "i18n", false, &code).empty());
    EXPECT_EQ(kNoMatch, code);
}

TEST_F(CatalogRulesTest, AFilterThatLeavesNothingIsNoMatchWithoutCreate) {
    long code = 0;
    EXPECT_TRUE(Query("de", "AT", "UTF-8", "", false, &code).empty());
    EXPECT_EQ(kNoMatch, code);
    EXPECT_TRUE(Query("en", "US", "", "phonebook", false, &code).empty());
    EXPECT_EQ(kNoMatch, code);
}

// ---- custom locales

TEST_F(CatalogRulesTest, AnEmptyQueryWithCreateMakesACustomLocaleOnTheNeutralRecord) {
    long code = 0;
    EXPECT_EQ((Ids{32001}), Query("", "", "", "", true, &code));
    EXPECT_EQ(LU_S_OK, code);
    const lu_locale_storage* made = catalog.GetStorage(32001);
    ASSERT_NE(nullptr, made);
    EXPECT_EQ(32001u, made->locale_id);
    EXPECT_EQ(kNeutralRecord.character_tables, made->character_tables);
    EXPECT_EQ(kNeutralRecord.numeric, made->numeric);
    EXPECT_EQ(kNeutralRecord.time, made->time);
    ASSERT_NE(nullptr, made->identity);
    EXPECT_NE(&kNeutral, made->identity);
    EXPECT_EQ(kNeutral.country, made->identity->country);
    EXPECT_EQ(nullptr, made->identity->language);
    EXPECT_EQ(kNeutral.sort_order_display_name, made->identity->sort_order_display_name);
    EXPECT_EQ(kNeutral.sort_order_technical_name, made->identity->sort_order_technical_name);
    EXPECT_EQ(kNeutral.encoding_display_name, made->identity->encoding_display_name);
    EXPECT_EQ(kNeutral.encoding_technical_name, made->identity->encoding_technical_name);
    EXPECT_EQ(nullptr, made->identity->display_name);
    // It is a locale like any other: keyed, and found by its parts.
    EXPECT_EQ((Ids{31000, 32001}), Query("", "i18n", "", "", false));
}

TEST_F(CatalogRulesTest, CustomIdsCountUpFrom32001) {
    EXPECT_EQ((Ids{32001}), Query("", "", "", "", true));
    EXPECT_EQ((Ids{32002}), Query(nullptr, nullptr, nullptr, nullptr, true));
    EXPECT_EQ((Ids{32003}), Query("de", "AT", "UTF-8", "", true));
}

TEST_F(CatalogRulesTest, AnEncodingOthersHaveMakesACustomLocaleWithThatEncoding) {
    long code = 0;
    EXPECT_EQ((Ids{32001}), Query("de", "AT", "UTF-8", "", true, &code));
    EXPECT_EQ(LU_S_OK, code);
    const lu_locale_storage* made = catalog.GetStorage(32001);
    ASSERT_NE(nullptr, made);
    // Language, territory and data from de_AT ...
    EXPECT_EQ(&kAtCtype, made->character_tables);
    EXPECT_EQ(&kAtNumeric, made->numeric);
    EXPECT_EQ(&kAtTime, made->time);
    EXPECT_EQ(kDeAt.language, made->identity->language);
    EXPECT_EQ(kDeAt.country, made->identity->country);
    // ... the encoding of the lowest locale that has it (de_DE UTF-8) ...
    EXPECT_EQ(kDeDeUtf8.encoding_display_name, made->identity->encoding_display_name);
    EXPECT_EQ(kDeDeUtf8.encoding_technical_name, made->identity->encoding_technical_name);
    // ... the sort order of the neutral locale, and no display name of its own.
    EXPECT_EQ(kNeutral.sort_order_technical_name, made->identity->sort_order_technical_name);
    EXPECT_EQ(kNeutral.sort_order_display_name, made->identity->sort_order_display_name);
    EXPECT_EQ(nullptr, made->identity->display_name);
    EXPECT_EQ((Ids{32001}), Query("de", "AT", "UTF-8", "", false));
}

TEST_F(CatalogRulesTest, ASortOrderOthersHaveMakesACustomLocaleWithThatOrder) {
    EXPECT_EQ((Ids{32001}), Query("en", "US", "", "phonebook", true));
    const Ident& made = IdentityOf(32001);
    EXPECT_EQ(std::string("en"), made.language);
    EXPECT_EQ(std::string("US"), made.country);
    EXPECT_EQ(kDeDePhone.sort_order_technical_name, made.sort_order_technical_name);
    EXPECT_EQ(kDeDePhone.sort_order_display_name, made.sort_order_display_name);
    // An open encoding comes from the neutral locale.
    EXPECT_EQ(kNeutral.encoding_technical_name, made.encoding_technical_name);
    EXPECT_EQ(kNeutral.encoding_display_name, made.encoding_display_name);
}

TEST_F(CatalogRulesTest, AnUnknownEncodingWithCreateKeepsWhatTheLanguageSelected) {
    long code = 0;
    EXPECT_EQ((Ids{10, 11, 12, 13}), Query("de", "", "CP437", "", true, &code));
    EXPECT_EQ(LU_S_OK, code);
    EXPECT_EQ((Ids{10, 11, 12}), Query("de", "DE", "KOI8-nonesuch", "", true, &code));
    EXPECT_EQ(LU_S_OK, code);
    EXPECT_EQ((Ids{12}), Query("de", "DE", "CP437", "phonebook", true, &code));
    EXPECT_EQ(nullptr, catalog.GetStorage(32001));
}

TEST_F(CatalogRulesTest, AnEncodingKnownOnlyToTheEncodingTableMakesACustomLocale) {
    const char* tableName = "CP437";
    const unsigned char* displayName = lu_codecvt::GetEncodingDisplayName(tableName);
    ASSERT_NE(nullptr, displayName);
    // The caller's text need not outlive the query: the table's copy is kept.
    std::string asked = "CP437";
    long code = 0;
    EXPECT_EQ((Ids{32001}), Query("", "", asked.c_str(), "", true, &code));
    EXPECT_EQ(LU_S_OK, code);
    asked = "XXXXX";
    const lu_locale_storage* made = catalog.GetStorage(32001);
    ASSERT_NE(nullptr, made);
    EXPECT_EQ(kNeutralRecord.numeric, made->numeric);
    EXPECT_EQ(kNeutral.country, made->identity->country);
    EXPECT_EQ(tableName, made->identity->encoding_technical_name);
    EXPECT_EQ(displayName, made->identity->encoding_display_name);
    EXPECT_EQ(kNeutral.sort_order_technical_name, made->identity->sort_order_technical_name);
    EXPECT_EQ((Ids{32001}), Query("", "i18n", "CP437", "", false));
    // Without create, nothing is made.
    long code850 = 0;
    EXPECT_TRUE(Query("", "", "CP850", "", false, &code850).empty());
    EXPECT_EQ(kNoMatch, code850);
    EXPECT_EQ(nullptr, catalog.GetStorage(32002));
}

TEST_F(CatalogRulesTest, AnEncodingUnknownEverywhereMakesNothing) {
    Ids result = {8};
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales("", "", "nonesuch", "", result, true));
    // The query got as far as making a locale, which clears the result.
    EXPECT_TRUE(result.empty());
    EXPECT_EQ(nullptr, catalog.GetStorage(32001));
    EXPECT_EQ((Ids{32001}), Query("", "", "", "", true));
}

TEST_F(CatalogRulesTest, AnUnknownSortOrderIsNoMatchEvenWithCreate) {
    Ids result = {8};
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales("de", "DE", "", "ducet", result, true));
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales("", "", "", "ducet", result, true));
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales("", "", "UTF-8", "ducet", result, true));
    EXPECT_EQ((Ids{8}), result);
    EXPECT_EQ(nullptr, catalog.GetStorage(32001));
}

TEST_F(CatalogRulesTest, RegisterCustomLocaleChecksItsSources) {
    unsigned int id = 77;
    EXPECT_EQ(LU_E_INVALID_ARG,
              catalog.RegisterCustomLocale(999, 31000, 31000, id, nullptr, nullptr));
    EXPECT_EQ(77u, id);
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.RegisterCustomLocale(10, 31000, 999, id, nullptr, nullptr));
    EXPECT_EQ(77u, id);
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.RegisterCustomLocale(10, 999, 31000, id, nullptr, nullptr));
    EXPECT_EQ(0u, id);
    id = 77;
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.RegisterCustomLocale(10, 0, 31000, id, nullptr, "X"));
    EXPECT_EQ(0u, id);
    EXPECT_EQ(LU_E_INVALID_ARG,
              catalog.RegisterCustomLocale(10, 0, 31000, id, Utf8("Display"), nullptr));
    EXPECT_EQ(nullptr, catalog.GetStorage(32001));

    // No failed call used up an id.
    EXPECT_EQ(LU_S_OK, catalog.RegisterCustomLocale(10, 0, 12, id, Utf8("Display"), "TECH"));
    EXPECT_EQ(32001u, id);
    const Ident& made = IdentityOf(32001);
    EXPECT_EQ(std::string("de"), made.language);
    EXPECT_EQ(std::string("DE"), made.country);
    EXPECT_EQ(std::string("phonebook"), made.sort_order_technical_name);
    EXPECT_EQ(std::string("TECH"), made.encoding_technical_name);
    EXPECT_EQ(std::string("Display"), catalog_test::TextOr(made.encoding_display_name));
    EXPECT_EQ((Ids{32001}), Query("de", "DE", "TECH", "phonebook", false));

    EXPECT_EQ(LU_S_OK, catalog.RegisterCustomLocale(13, 30, 31000, id, nullptr, nullptr));
    EXPECT_EQ(32002u, id);
    EXPECT_EQ(std::string("CP1251"), IdentityOf(32002).encoding_technical_name);
    EXPECT_EQ(nullptr, IdentityOf(32002).display_name);
}

TEST_F(CatalogRulesTest, CustomLocalesAreListedByTrace) {
    Query("de", "AT", "UTF-8", "", true);
    const auto sections = ReadTrace(catalog);
    EXPECT_EQ((Ids{13, 32001}), catalog_test::IdsOf(sections, 1, "AT"));
    EXPECT_EQ((Ids{10, 11, 12, 13, 32001}), catalog_test::IdsOf(sections, 0, "de"));
    EXPECT_EQ((Ids{11, 21, 40, 32001}), catalog_test::IdsOf(sections, 2, "UTF-8"));
}

// ---- names

TEST_F(CatalogRulesTest, ANameSplitsIntoLanguageTerritoryEncodingAndSortOrder) {
    const struct {
        const char* name;
        Ids expected;
    } cases[] = {
        {"de_DE", {10, 11, 12}},
        {"de_DE.UTF-8", {11}},
        {"de.UTF-8", {11}},      // language and encoding
        {"de@phonebook", {12}},  // language and sort order
        {"de_DE.CP1252@phonebook", {12}},
        {"de_DE@i18n", {10, 11}},
        {"de.CP1252@i18n", {10, 13}},
        {"_DE", {10, 11, 12}},
        {"de_DE.", {10, 11, 12}},
        {"ru_RU.CP1251@", {30}},
        {"de", {10, 11, 12, 13}},
    };
    for (const auto& c : cases) {
        long code = 0;
        EXPECT_EQ(c.expected, QueryName(c.name, false, &code)) << c.name;
        EXPECT_EQ(LU_S_OK, code) << c.name;
    }
}

TEST_F(CatalogRulesTest, ASingleCodeIsTriedAsALanguageThenAsATerritory) {
    long code = 0;
    EXPECT_TRUE(Query("US", "", "", "", false, &code).empty());
    EXPECT_EQ(kNoMatch, code);
    EXPECT_EQ((Ids{20, 21}), QueryName("US", false, &code));
    EXPECT_EQ(LU_S_OK, code);
    EXPECT_EQ((Ids{31000}), QueryName("i18n", false, &code));
    EXPECT_EQ((Ids{40}), QueryName("XX.UTF-8", false, &code));
    EXPECT_EQ((Ids{11}), QueryName("DE.UTF-8", false, &code));
    EXPECT_EQ(LU_S_OK, code);

    Ids result = {3};
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales("zz", result, true));
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales("de_FR", result, true));
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales("de@ducet", result, true));
    EXPECT_EQ((Ids{3}), result);
    EXPECT_EQ(nullptr, catalog.GetStorage(32001));
}

TEST_F(CatalogRulesTest, ANameThatMadeACustomLocaleIsAnsweredFromMemory) {
    long code = 0;
    EXPECT_EQ((Ids{32001}), QueryName("de_AT.UTF-8", true, &code));
    EXPECT_EQ(LU_S_OK, code);
    // The second answer is appended, and nothing new is made.
    Ids result = {9};
    EXPECT_EQ(LU_S_OK, catalog.QueryMatchingLocales("de_AT.UTF-8", result, true));
    EXPECT_EQ((Ids{9, 32001}), result);
    EXPECT_EQ(LU_S_OK, catalog.QueryMatchingLocales("de_AT.UTF-8", result, false));
    EXPECT_EQ((Ids{9, 32001, 32001}), result);
    EXPECT_EQ(nullptr, catalog.GetStorage(32002));

    // The territory road remembers its name too.
    EXPECT_EQ((Ids{32002}), QueryName("RU.UTF-8", true));
    EXPECT_EQ(std::string("ru"), IdentityOf(32002).language);
    EXPECT_EQ((Ids{32002}), QueryName("RU.UTF-8", true));
    EXPECT_EQ(nullptr, catalog.GetStorage(32003));
}

TEST_F(CatalogRulesTest, OnlyNameQueriesAreRemembered) {
    // With every part open nothing is ever selected, so each query makes one.
    EXPECT_EQ((Ids{32001}), Query("", "", "", "", true));
    EXPECT_EQ((Ids{32002}), Query("", "", "", "", true));
    EXPECT_EQ((Ids{32003}), QueryName("", true));
    EXPECT_EQ((Ids{32003}), QueryName("", true));
    EXPECT_EQ((Ids{32004}), Query("", "", "", "", true));
}

TEST_F(CatalogRulesTest, ANameQueryLeavesNoNameBehind) {
    EXPECT_EQ((Ids{32001}), QueryName("en@phonebook", true));
    // A later four-part query that makes a locale must not claim the name.
    EXPECT_EQ((Ids{32002}), Query("ru", "", "", "phonebook", true));
    EXPECT_EQ((Ids{32001}), QueryName("en@phonebook", true));
    EXPECT_EQ((Ids{32002}), QueryName("ru@phonebook", true));
}

TEST_F(CatalogRulesTest, NamesThatMatchAreQueriedAfreshEachTime) {
    EXPECT_EQ((Ids{10, 11, 12}), QueryName("de_DE", true));
    const lu_locale_storage another = {14, &kDeDe, nullptr, nullptr, nullptr};
    ASSERT_EQ(LU_S_OK, catalog.Register(&another));
    EXPECT_EQ((Ids{10, 11, 12, 14}), QueryName("de_DE", true));
}

TEST_F(CatalogRulesTest, AnEmptyOrNullNameIsTheEmptyQuery) {
    long code = 0;
    EXPECT_TRUE(QueryName("", false, &code).empty());
    EXPECT_EQ(kNoMatch, code);
    EXPECT_TRUE(QueryName(nullptr, false, &code).empty());
    EXPECT_EQ(kNoMatch, code);
    EXPECT_EQ((Ids{32001}), QueryName("", true, &code));
    EXPECT_EQ((Ids{32001}), QueryName(nullptr, true, &code));
}

// ---- locales by id

TEST_F(CatalogRulesTest, GetLocaleInstanceBuildsOnceAndShares) {
    const ilu_ptr<lu_locale::_Impl> first = catalog.GetLocaleInstance(10);
    ASSERT_TRUE(first);
    // One count for the catalog, one for this pointer: the temporary handle
    // gave its own back.
    EXPECT_EQ(2u, first->GetReferenceCount());
    EXPECT_TRUE(first->named());
    const ilu_ptr<lu_locale::_Impl> second = catalog.GetLocaleInstance(10);
    EXPECT_EQ(first.get(), second.get());
    EXPECT_EQ(3u, first->GetReferenceCount());

    const lu_locale locale(first.get());
    EXPECT_EQ("named", locale.name());
    const lu_locale_ident& identity = lu_use_facet<lu_locale_ident>(locale);
    EXPECT_EQ(std::string("de"), identity.language_code_2());
    EXPECT_EQ(std::string("CP1252"), identity.encoding_technical_name());
    // The identity facet of a locale is its own, not the catalog's.
    EXPECT_NE(catalog.GetLocaleIdentification(10).get(), &identity);
    EXPECT_NE(first.get(), catalog.GetLocaleInstance(11).get());
}

TEST_F(CatalogRulesTest, GetLocaleInstanceOfAnUnknownIdIsABadLcid) {
    try {
        catalog.GetLocaleInstance(999);
        ADD_FAILURE() << "no exception";
    } catch (const LUException& error) {
        EXPECT_EQ(LU_E_INVALID_ARG, error.GetResult());
        EXPECT_EQ("bad lcid", error.GetMessage());
    }
}

TEST_F(CatalogRulesTest, ACustomLocaleIsBuiltLikeAnyOther) {
    ASSERT_EQ((Ids{32001}), Query("en", "US", "", "phonebook", true));
    const ilu_ptr<lu_locale::_Impl> impl = catalog.GetLocaleInstance(32001);
    const lu_locale locale(impl.get());
    const lu_locale_ident& identity = lu_use_facet<lu_locale_ident>(locale);
    EXPECT_EQ(std::string("en"), identity.language_code_2());
    EXPECT_EQ(std::string("phonebook"), identity.sort_order_technical_name());
    EXPECT_EQ(std::string("CP1252"), identity.encoding_technical_name());
}

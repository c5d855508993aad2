// The catalog's rules on records of the test's own, in a catalog apart from the
// process-wide one: registration, the key maps, the four-part and name queries,
// custom locales, and look-ups by id.
#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "catalog/catalog_test_support.h"
#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "test_support.h"

using catalog_test::Ids;
using catalog_test::IdsOf;
using catalog_test::PrivateCatalog;
using catalog_test::ReadTrace;
using test_support::Utf8;

namespace {

using Ident = lu_locale_ident_impl::StaticStorage;

const unsigned char* const kUnicodeOrder = Utf8("Unicode collation");
const unsigned char* const kWestern = Utf8("Western European (Windows)");
const unsigned char* const kUtf8Name = Utf8("Unicode (UTF-8)");
const unsigned short kInternational[] = {'I', 'n', 't', 'l', 0};

const Ident kNeutral = {"i18n", nullptr, kUnicodeOrder, "i18n", kWestern, "CP1252", kInternational};
const Ident kDeDe = {"DE", "de", kUnicodeOrder, "i18n", kWestern, "CP1252", nullptr};
const Ident kDeDeUtf8 = {"DE", "de", kUnicodeOrder, "i18n", kUtf8Name, "UTF-8", nullptr};
const Ident kDeDePhone = {"DE", "de", Utf8("Phone book"), "phonebook", kWestern, "CP1252", nullptr};
const Ident kDeAt = {"AT", "de", kUnicodeOrder, "i18n", kWestern, "CP1252", kInternational};
const Ident kEnUs = {"US", "en", kUnicodeOrder, "i18n", kWestern, "CP1252", nullptr};
const Ident kEnUsUtf8 = {"US", "en", kUnicodeOrder, "i18n", kUtf8Name, "UTF-8", nullptr};
const Ident kRuRu = {"RU", "ru", kUnicodeOrder, "i18n", Utf8("Cyrillic"), "CP1251", nullptr};
const Ident kNoLanguage = {"XX", nullptr, kUnicodeOrder, "i18n", kUtf8Name, "UTF-8", nullptr};

// Only their addresses matter: no locale is built on them.
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
        catalog_test::LoadSharedCatalog();
        for (const lu_locale_storage* record : kRecords) {
            ASSERT_EQ(LU_S_OK, catalog.Register(record)) << record->locale_id;
        }
    }

    Ids Query(const char* language, const char* territory, const char* encoding,
              const char* collation, bool create) {
        Ids result;
        EXPECT_EQ(LU_S_OK, catalog.QueryMatchingLocales(language, territory, encoding, collation,
                                                        result, create));
        return result;
    }

    Ids QueryName(const char* name, bool create) {
        Ids result;
        EXPECT_EQ(LU_S_OK, catalog.QueryMatchingLocales(name, result, create)) << name;
        return result;
    }

    const Ident& IdentityOf(unsigned int id) { return *catalog.GetStorage(id)->identity; }

    // A custom locale: data, language and territory from `base`, the sort order
    // from `sort`, the encoding from `encoding`, no display name, an identity
    // record of its own.
    void ExpectMade(unsigned int id, const lu_locale_storage& base, const Ident& sort,
                    const Ident& encoding) {
        SCOPED_TRACE(id);
        const lu_locale_storage* made = catalog.GetStorage(id);
        ASSERT_NE(nullptr, made);
        EXPECT_EQ(id, made->locale_id);
        EXPECT_EQ(base.character_tables, made->character_tables);
        EXPECT_EQ(base.numeric, made->numeric);
        EXPECT_EQ(base.time, made->time);
        ASSERT_NE(nullptr, made->identity);
        EXPECT_NE(base.identity, made->identity);
        EXPECT_EQ(base.identity->language, made->identity->language);
        EXPECT_EQ(base.identity->country, made->identity->country);
        EXPECT_EQ(sort.sort_order_display_name, made->identity->sort_order_display_name);
        EXPECT_EQ(sort.sort_order_technical_name, made->identity->sort_order_technical_name);
        EXPECT_EQ(encoding.encoding_display_name, made->identity->encoding_display_name);
        EXPECT_EQ(encoding.encoding_technical_name, made->identity->encoding_technical_name);
        EXPECT_EQ(nullptr, made->identity->display_name);
    }

    PrivateCatalog catalog;
};

}  // namespace

// Byte values compared unsigned: a byte above 0x7F orders after every ASCII one.
TEST(CatalogKeyTest, LessStrComparesBytesAsUnsignedValues) {
    const char* const ascending[] = {"", "DE", "a", "ab", "b", "de", "z", "\xC3\xA9"};
    const lu_locale_storage_less_str less;
    for (size_t i = 0; i < std::size(ascending); ++i) {
        for (size_t j = 0; j < std::size(ascending); ++j) {
            EXPECT_EQ(i < j, less(ascending[i], ascending[j])) << i << " " << j;
        }
    }
}

TEST(CatalogKeyTest, MatchLocaleAppendsEveryEqualKeyInMapOrder) {
    lu_locale_catalog::key_map map;
    for (const auto& entry :
         {std::make_pair("en", 7u), {"de", 5u}, {"de", 3u}, {"det", 9u}, {"de", 4u}}) {
        map.emplace(entry.first, entry.second);
    }
    Ids result = {100};
    PrivateCatalog::MatchLocale("de", map, result);
    EXPECT_EQ((Ids{100, 5, 3, 4}), result);
    PrivateCatalog::MatchLocale("fr", map, result);
    EXPECT_EQ((Ids{100, 5, 3, 4}), result);
}

// A locale without language is keyed by its identification code as a
// territory (XX, i18n) and not as a language.
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

    PrivateCatalog empty;
    std::ostringstream emptyOut;
    empty.Trace(emptyOut);
    EXPECT_EQ(
        "***** Languages *****\n**** Territories ****\n***** Encoding ******\n"
        "***** Collation *****\n",
        emptyOut.str());
}

TEST_F(CatalogRulesTest, RegisterRefusesNullAndTakenIdsAndTheFirstRecordStands) {
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.Register(nullptr));
    const Ident impostor = {"FR", "fr", kUnicodeOrder, "i18n", kWestern, "CP1252", nullptr};
    const lu_locale_storage record = {10, &impostor, nullptr, nullptr, nullptr};
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.Register(&record));
    EXPECT_EQ(&kDeDeRecord, catalog.GetStorage(10));
    EXPECT_EQ(std::string("de"), catalog.GetLocaleIdentification(10)->language_code_2());
    const auto sections = ReadTrace(catalog);
    EXPECT_TRUE(IdsOf(sections, 0, "fr").empty());
    EXPECT_TRUE(IdsOf(sections, 1, "FR").empty());
    EXPECT_EQ((Ids{10, 12, 13, 20, 31000}), IdsOf(sections, 2, "CP1252"));
}

TEST_F(CatalogRulesTest, ARecordWithoutIdentityIsKeyedByTheBuiltInIdentity) {
    const lu_locale_storage bare = {50, nullptr, nullptr, nullptr, nullptr};
    ASSERT_EQ(LU_S_OK, catalog.Register(&bare));
    const Ident& builtIn = *lu_locale_ident_impl::GetDefaultIdent();
    const auto sections = ReadTrace(catalog);
    EXPECT_EQ((Ids{50, 31000}), IdsOf(sections, 1, builtIn.country));
    EXPECT_EQ((Ids{10, 12, 13, 20, 50, 31000}),
              IdsOf(sections, 2, builtIn.encoding_technical_name));
    EXPECT_EQ(9u, IdsOf(sections, 3, builtIn.sort_order_technical_name).size());
    EXPECT_EQ((Ids{50, 31000}), Query("", builtIn.country, "", "", false));
}

TEST_F(CatalogRulesTest, IdentityFacetsAreMadeOncePerLocale) {
    const ilu_const_ptr<lu_locale_ident> first = catalog.GetLocaleIdentification(13);
    ASSERT_TRUE(first);
    EXPECT_EQ(first, catalog.GetLocaleIdentification(13));
    EXPECT_EQ(std::string("AT"), first->country_code_2());
    EXPECT_FALSE(catalog.GetLocaleIdentification(14));
    EXPECT_EQ(nullptr, catalog.GetStorage(14));
}

struct Parts {
    const char* language;
    const char* territory;
    const char* encoding;
    const char* collation;
    bool create;
};

const Ids kMiss = {4711};  // what the result held before

// Language and territory select (intersected, ascending); sort order and
// encoding only filter that selection. A match replaces the result; no match
// leaves it alone and makes nothing, also with create.
TEST_F(CatalogRulesTest, TheFourPartQuery) {
    const struct {
        Parts parts;
        Ids expected;
    } cases[] = {{{"de", "DE", "", "", false}, {10, 11, 12}},
                 {{"de", "", "", "", false}, {10, 11, 12, 13}},
                 {{"", "DE", "", "", false}, {10, 11, 12}},
                 {{nullptr, "US", nullptr, nullptr, false}, {20, 21}},
                 {{"", "i18n", "", "", false}, {31000}},
                 {{"de", "DE", "", "phonebook", false}, {12}},
                 {{"de", "DE", "", "i18n", false}, {10, 11}},
                 {{"de", "DE", "UTF-8", "", false}, {11}},
                 {{"de", "", "CP1252", "", false}, {10, 12, 13}},
                 {{"de", "DE", "CP1252", "i18n", false}, {10}},
                 {{"", "XX", "UTF-8", "i18n", false}, {40}},
                 // An encoding no locale has, with create: the selection stands.
                 {{"de", "", "CP437", "", true}, {10, 11, 12, 13}},
                 {{"de", "DE", "KOI8-nonesuch", "", true}, {10, 11, 12}},
                 {{"de", "DE", "CP437", "phonebook", true}, {12}},
                 {{"fr", "", "", "", true}, kMiss},
                 {{"", "FR", "", "", true}, kMiss},
                 {{"fr", "DE", "", "", true}, kMiss},
                 {{"de", "US", "", "", true}, kMiss},  // nothing in common
                 {{"de", "DE", "", "ducet", true}, kMiss},
                 {{"", "", "", "ducet", true}, kMiss},
                 {{"", "", "UTF-8", "ducet", true}, kMiss},
                 {{"de", "DE", "KOI8-R", "", false}, kMiss},
                 {{"", "", "CP850", "", false}, kMiss},
                 {{"DE", "", "", "", true}, kMiss},  // case counts
                 {{"", "de", "", "", true}, kMiss},
                 // Nothing selected, or a filter that leaves nothing, without create.
                 {{"", "", "", "", false}, kMiss},
                 {{"", "", "UTF-8", "", false}, kMiss},
                 {{"", "", "", "phonebook", false}, kMiss},
                 {{"", "", "CP1252", "i18n", false}, kMiss},
                 {{"de", "AT", "UTF-8", "", false}, kMiss},
                 {{"en", "US", "", "phonebook", false}, kMiss}};
    for (const auto& c : cases) {
        const Parts& p = c.parts;
        Ids result = kMiss;
        EXPECT_EQ(c.expected == kMiss ? kNoMatch : LU_S_OK,
                  catalog.QueryMatchingLocales(p.language, p.territory, p.encoding, p.collation,
                                               result, p.create))
            << &c - cases;
        EXPECT_EQ(c.expected, result) << &c - cases;
    }
    // An encoding unknown even to the encoding table: the query got as far as
    // making a locale, which clears the result.
    Ids result = kMiss;
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales("", "", "nonesuch", "", result, true));
    EXPECT_TRUE(result.empty());
    // Nothing was made, and no id used up.
    EXPECT_EQ(nullptr, catalog.GetStorage(32001));
    EXPECT_EQ((Ids{32001}), Query("", "", "", "", true));
}

TEST_F(CatalogRulesTest, CreateMakesCustomLocalesFromThePartsOfOthers) {
    // Everything open: the neutral record.
    EXPECT_EQ((Ids{32001}), Query("", "", "", "", true));
    ExpectMade(32001, kNeutralRecord, kNeutral, kNeutral);
    EXPECT_EQ((Ids{31000, 32001}), Query("", "i18n", "", "", false));
    // de_AT with the encoding of the lowest locale that has it (de_DE UTF-8);
    // an open sort order comes from the neutral locale.
    EXPECT_EQ((Ids{32002}), Query("de", "AT", "UTF-8", "", true));
    ExpectMade(32002, kDeAtRecord, kNeutral, kDeDeUtf8);
    EXPECT_EQ((Ids{32002}), Query("de", "AT", "UTF-8", "", false));
    // A sort order others have; an open encoding comes from the neutral locale.
    EXPECT_EQ((Ids{32003}), Query("en", "US", "", "phonebook", true));
    ExpectMade(32003, kEnUsRecord, kDeDePhone, kNeutral);

    const auto sections = ReadTrace(catalog);
    EXPECT_EQ((Ids{13, 32002}), IdsOf(sections, 1, "AT"));
    EXPECT_EQ((Ids{10, 11, 12, 13, 32002}), IdsOf(sections, 0, "de"));
    EXPECT_EQ((Ids{11, 21, 40, 32002}), IdsOf(sections, 2, "UTF-8"));

    // It is built like any other locale.
    const lu_locale locale(catalog.GetLocaleInstance(32003).get());
    const lu_locale_ident& identity = lu_use_facet<lu_locale_ident>(locale);
    EXPECT_EQ(std::string("en"), identity.language_code_2());
    EXPECT_EQ(std::string("phonebook"), identity.sort_order_technical_name());
    EXPECT_EQ(std::string("CP1252"), identity.encoding_technical_name());
}

TEST_F(CatalogRulesTest, AnEncodingKnownOnlyToTheEncodingTableMakesACustomLocale) {
    const char* tableName = "CP437";  // becomes the table's own copy
    const unsigned char* displayName = lu_codecvt::GetEncodingDisplayName(tableName);
    ASSERT_NE(nullptr, displayName);
    // The caller's text need not outlive the query: the table's copy is kept.
    std::string asked = "CP437";
    EXPECT_EQ((Ids{32001}), Query("", "", asked.c_str(), "", true));
    asked = "XXXXX";
    const Ident table = {nullptr, nullptr, nullptr, nullptr, displayName, tableName, nullptr};
    ExpectMade(32001, kNeutralRecord, kNeutral, table);
    EXPECT_EQ((Ids{32001}), Query("", "i18n", "CP437", "", false));
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

    // No failed call used up an id.
    EXPECT_EQ(LU_S_OK, catalog.RegisterCustomLocale(10, 0, 12, id, Utf8("Display"), "TECH"));
    EXPECT_EQ(32001u, id);
    const Ident& made = IdentityOf(32001);
    EXPECT_EQ(std::string("phonebook"), made.sort_order_technical_name);
    EXPECT_EQ(std::string("Display"), catalog_test::TextOr(made.encoding_display_name));
    EXPECT_EQ((Ids{32001}), Query("de", "DE", "TECH", "phonebook", false));

    EXPECT_EQ(LU_S_OK, catalog.RegisterCustomLocale(13, 30, 31000, id, nullptr, nullptr));
    EXPECT_EQ(32002u, id);
    EXPECT_EQ(std::string("CP1251"), IdentityOf(32002).encoding_technical_name);
    EXPECT_EQ(nullptr, IdentityOf(32002).display_name);
}

// "language_territory.encoding@sortorder"; a single code is tried as a
// language, then as a territory or identification code. Each name is asked
// with and without create; none of them makes a locale.
TEST_F(CatalogRulesTest, ANameSplitsIntoItsFourParts) {
    const struct {
        const char* name;
        long code;
        Ids expected;
    } cases[] = {{"de_DE", LU_S_OK, {10, 11, 12}},
                 {"de_DE.UTF-8", LU_S_OK, {11}},
                 {"de.UTF-8", LU_S_OK, {11}},
                 {"de@phonebook", LU_S_OK, {12}},
                 {"de_DE.CP1252@phonebook", LU_S_OK, {12}},
                 {"de_DE@i18n", LU_S_OK, {10, 11}},
                 {"de.CP1252@i18n", LU_S_OK, {10, 13}},
                 {"_DE", LU_S_OK, {10, 11, 12}},
                 {"de_DE.", LU_S_OK, {10, 11, 12}},
                 {"ru_RU.CP1251@", LU_S_OK, {30}},
                 {"de", LU_S_OK, {10, 11, 12, 13}},
                 {"US", LU_S_OK, {20, 21}},
                 {"i18n", LU_S_OK, {31000}},
                 {"XX.UTF-8", LU_S_OK, {40}},
                 {"DE.UTF-8", LU_S_OK, {11}},
                 {"zz", kNoMatch, {3}},
                 {"de_FR", kNoMatch, {3}},
                 {"de@ducet", kNoMatch, {3}}};
    for (const bool create : {false, true}) {
        for (const auto& c : cases) {
            Ids result = {3};
            EXPECT_EQ(c.code, catalog.QueryMatchingLocales(c.name, result, create)) << c.name;
            EXPECT_EQ(c.expected, result) << c.name << " create " << create;
        }
    }
    EXPECT_EQ(nullptr, catalog.GetStorage(32001));
}

TEST_F(CatalogRulesTest, ANameThatMadeACustomLocaleIsAnsweredFromMemory) {
    EXPECT_EQ((Ids{32001}), QueryName("de_AT.UTF-8", true));
    // Appended, and nothing new is made.
    Ids result = {9};
    EXPECT_EQ(LU_S_OK, catalog.QueryMatchingLocales("de_AT.UTF-8", result, true));
    EXPECT_EQ(LU_S_OK, catalog.QueryMatchingLocales("de_AT.UTF-8", result, false));
    EXPECT_EQ((Ids{9, 32001, 32001}), result);
    // The territory road remembers its name too.
    EXPECT_EQ((Ids{32002}), QueryName("RU.UTF-8", true));
    EXPECT_EQ(std::string("ru"), IdentityOf(32002).language);
    EXPECT_EQ((Ids{32002}), QueryName("RU.UTF-8", true));
    EXPECT_EQ(nullptr, catalog.GetStorage(32003));
    // A later four-part query that makes a locale does not claim a name.
    EXPECT_EQ((Ids{32003}), QueryName("en@phonebook", true));
    EXPECT_EQ((Ids{32004}), Query("ru", "", "", "phonebook", true));
    EXPECT_EQ((Ids{32003}), QueryName("en@phonebook", true));
    EXPECT_EQ((Ids{32004}), QueryName("ru@phonebook", true));
}

TEST_F(CatalogRulesTest, OnlyNameQueriesAreRemembered) {
    // With every part open nothing is selected, so each query makes one.
    EXPECT_EQ((Ids{32001}), Query("", "", "", "", true));
    EXPECT_EQ((Ids{32002}), Query(nullptr, nullptr, nullptr, nullptr, true));
    Ids result = {5};
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales("", result, false));
    EXPECT_EQ(kNoMatch, catalog.QueryMatchingLocales(nullptr, result, false));
    EXPECT_EQ((Ids{5}), result);
    EXPECT_EQ((Ids{32003}), QueryName("", true));
    EXPECT_EQ((Ids{32003}), QueryName(nullptr, true));
    EXPECT_EQ((Ids{32004}), Query("", "", "", "", true));
}

TEST_F(CatalogRulesTest, NamesThatMatchAreQueriedAfreshEachTime) {
    EXPECT_EQ((Ids{10, 11, 12}), QueryName("de_DE", true));
    const lu_locale_storage another = {14, &kDeDe, nullptr, nullptr, nullptr};
    ASSERT_EQ(LU_S_OK, catalog.Register(&another));
    EXPECT_EQ((Ids{10, 11, 12, 14}), QueryName("de_DE", true));
}

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
    EXPECT_EQ(std::string("CP1252"), identity.encoding_technical_name());
    // The locale has an identity facet of its own, not the catalog's.
    EXPECT_NE(catalog.GetLocaleIdentification(10).get(), &identity);
    EXPECT_NE(first.get(), catalog.GetLocaleInstance(11).get());
    try {
        catalog.GetLocaleInstance(999);
        ADD_FAILURE() << "no exception for an unknown id";
    } catch (const LUException& error) {
        EXPECT_EQ(LU_E_INVALID_ARG, error.GetResult());
        EXPECT_EQ("bad lcid", error.GetMessage());
    }
}

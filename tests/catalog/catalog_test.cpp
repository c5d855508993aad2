// The catalog's rules on records of the test's own, then the data module and locales by name.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "platform/module_loader.h"
#include "test_support.h"

using test_support::Str;
using test_support::ThrownCode;
using test_support::Utf8;

namespace {

using Ids = std::vector<unsigned int>;
using Ident = lu_locale_ident_impl::StaticStorage;

struct PrivateCatalog : lu_locale_catalog {
    using lu_locale_catalog::RegisterCustomLocale;
};

const unsigned char* const kOrder = Utf8("Unicode collation");
const unsigned char* const kWestern = Utf8("Western European (Windows)");
const unsigned char* const kUtf8Name = Utf8("Unicode (UTF-8)");
const unsigned short kIntl[] = {'I', 'n', 't', 'l', 0};

const Ident kNeutral = {"i18n", nullptr, kOrder, "i18n", kWestern, "CP1252", kIntl};
const Ident kDeDe = {"DE", "de", kOrder, "i18n", kWestern, "CP1252", nullptr};
const Ident kDeDeUtf8 = {"DE", "de", kOrder, "i18n", kUtf8Name, "UTF-8", nullptr};
const Ident kDeDePhone = {"DE", "de", Utf8("Phone book"), "phonebook", kWestern, "CP1252", nullptr};
const Ident kDeAt = {"AT", "de", kOrder, "i18n", kWestern, "CP1252", kIntl};
const Ident kEnUs = {"US", "en", kOrder, "i18n", kWestern, "CP1252", nullptr};
const Ident kEnUsUtf8 = {"US", "en", kOrder, "i18n", kUtf8Name, "UTF-8", nullptr};
const Ident kRuRu = {"RU", "ru", kOrder, "i18n", Utf8("Cyrillic"), "CP1251", nullptr};
const Ident kNoLanguage = {"XX", nullptr, kOrder, "i18n", kUtf8Name, "UTF-8", nullptr};

// Only the addresses of de_AT's data matter: no locale is built on them.
const lu_ctype_impl::StaticStorage kAtCtype = {};
const lu_numeric_punctuation::StaticStorage kAtNumeric = {};
const lu_ctime_impl::StaticStorage kAtTime = {};

// Registered out of id order, so that every answer shows its sorting.
const lu_locale_storage kRecords[] = {
    {13, &kDeAt, &kAtCtype, &kAtNumeric, &kAtTime}, {12, &kDeDePhone, nullptr, nullptr, nullptr},
    {31000, &kNeutral, nullptr, nullptr, nullptr},  {11, &kDeDeUtf8, nullptr, nullptr, nullptr},
    {10, &kDeDe, nullptr, nullptr, nullptr},        {21, &kEnUsUtf8, nullptr, nullptr, nullptr},
    {20, &kEnUs, nullptr, nullptr, nullptr},        {30, &kRuRu, nullptr, nullptr, nullptr},
    {40, &kNoLanguage, nullptr, nullptr, nullptr}};
const Ids kMiss = {4711};  // what the result held before

class CatalogRulesTest : public ::testing::Test {
  protected:
    // The process-wide catalog loads the data module first: this one's look-ups load it
    // too, and its records, registered there, must not outlive it.
    void SetUp() override {
        lu_locale_catalog::GetInstance()->GetStorage(lu_locale_catalog::kNeutralLocaleId);
        for (const lu_locale_storage& record : kRecords) catalog.Register(&record);
    }
    // The ids of a match, "-" for LU_S_NO_MATCH with the result left alone, or the code.
    static std::string Answer(long code, const Ids& result) {
        if (code == LU_S_NO_MATCH && result == kMiss) return "-";
        std::string text = code == LU_S_OK ? "" : "code " + std::to_string(code);
        for (unsigned int id : result) text += (text.empty() ? "" : " ") + std::to_string(id);
        return text;
    }
    std::string Query(const char* language, const char* territory, const char* encoding,
                      const char* collation, bool create) {
        Ids result = kMiss;
        const long code =
            catalog.QueryMatchingLocales(language, territory, encoding, collation, result, create);
        return Answer(code, result);
    }
    std::string QueryName(const char* name, bool create) {
        Ids result = kMiss;
        return Answer(catalog.QueryMatchingLocales(name, result, create), result);
    }
    std::string Trace() {
        std::ostringstream out;
        catalog.Trace(out);
        return out.str();
    }
    PrivateCatalog catalog;
};

// Without language, a locale is keyed by its identification code as a territory. Equal keys
// stand in the order of registration. A taken id is refused; the first record stands.
TEST_F(CatalogRulesTest, RegisterKeysEachRecordOnceAndTraceWritesTheMaps) {
    const std::string trace =
        "***** Languages *****\nde,13\nde,12\nde,11\nde,10\nen,21\nen,20\nru,30\n"
        "**** Territories ****\nAT,13\nDE,12\nDE,11\nDE,10\nRU,30\nUS,21\nUS,20\nXX,40\n"
        "i18n,31000\n***** Encoding ******\nCP1251,30\nCP1252,13\nCP1252,12\nCP1252,31000\n"
        "CP1252,10\nCP1252,20\nUTF-8,11\nUTF-8,21\nUTF-8,40\n***** Collation *****\n"
        "i18n,13\ni18n,31000\ni18n,11\ni18n,10\ni18n,21\ni18n,20\ni18n,30\ni18n,40\n"
        "phonebook,12\n";
    EXPECT_EQ(trace, Trace());
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.Register(nullptr));
    const Ident impostor = {"FR", "fr", kOrder, "i18n", kWestern, "CP1252", nullptr};
    const lu_locale_storage record = {10, &impostor, nullptr, nullptr, nullptr};
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.Register(&record));
    EXPECT_EQ(&kRecords[4], catalog.GetStorage(10));
    EXPECT_EQ(trace, Trace());
    const lu_locale_storage bare = {50, nullptr, nullptr, nullptr, nullptr};
    EXPECT_TRUE(catalog.Register(&bare) == LU_S_OK &&
                Query("", "i18n", "CP1252", "i18n", false) == "50 31000");
    EXPECT_EQ(catalog.GetLocaleIdentification(10), catalog.GetLocaleIdentification(10));
    EXPECT_STREQ("de", catalog.GetLocaleIdentification(10)->language_code_2());
    EXPECT_TRUE(!catalog.GetLocaleIdentification(14) && !catalog.GetStorage(14));
}

// "language_territory.encoding@sortorder"; one code is a language, else a territory. Language
// and territory select, ascending; the others filter. No match leaves the result alone.
TEST_F(CatalogRulesTest, QueriesByPartsAndByName) {
    // clang-format off
    const char* const names[] = {
        "de_DE=10 11 12", "de_DE.UTF-8=11", "de.UTF-8=11", "de@phonebook=12", "DE.UTF-8=11",
        "de_DE.CP1252@phonebook=12", "de.CP1252@i18n=10 13", "_DE=10 11 12", "de_DE.=10 11 12",
        "ru_RU.CP1251@=30", "de=10 11 12 13", "US=20 21", "i18n=31000", "zz=-", "de_FR=-",
        "de@ducet=-"};
    const struct {
        const char *language, *territory, *encoding, *collation;
        bool create;
        const char* expected;
    } parts[] = {
        {nullptr, "US", nullptr, nullptr, false, "20 21"}, {"", "XX", "UTF-8", "i18n", false, "40"},
        // An encoding no locale has, with create: the selection stands.
        {"de", "", "CP437", "", true, "10 11 12 13"},
        {"fr", "DE", "", "", true, "-"},     {"de", "US", "", "", true, "-"},  // nothing in common
        {"de", "DE", "", "ducet", true, "-"}, {"de", "DE", "KOI8-R", "", false, "-"},
        // Nothing selected, or a filter that leaves nothing, without create.
        {"", "", "", "", false, "-"},        {"", "", "CP1252", "i18n", false, "-"},
        {"de", "AT", "UTF-8", "", false, "-"}, {"en", "US", "", "phonebook", false, "-"}};
    // clang-format on
    for (const bool create : {false, true}) {
        for (const std::string c : names) {
            const std::string name = c.substr(0, c.find('='));
            EXPECT_EQ(c.substr(name.size() + 1), QueryName(name.c_str(), create)) << name;
        }
    }
    for (const auto& p : parts) {
        EXPECT_EQ(p.expected, Query(p.language, p.territory, p.encoding, p.collation, p.create))
            << &p - parts;
    }
    EXPECT_EQ("-", QueryName(nullptr, false));
    // An encoding unknown even to the encoding table: the query got as far as making a
    // locale, which clears the result (LU_S_NO_MATCH, 0x41121), and made none.
    EXPECT_EQ("code 266529", Query("", "", "nonesuch", "", true));
    EXPECT_EQ(nullptr, catalog.GetStorage(32001));
}

// A custom locale: data, language and territory of the selection, the encoding of the lowest
// locale with it, an open sort order of the neutral one; a table encoding keeps the table's name.
TEST_F(CatalogRulesTest, CreateMakesCustomLocalesFromThePartsOfOthers) {
    EXPECT_EQ("32001", Query("de", "AT", "UTF-8", "", true));
    const lu_locale_storage& m = *catalog.GetStorage(32001);
    const Ident& i = *m.identity;
    EXPECT_TRUE(m.character_tables == &kAtCtype && m.numeric == &kAtNumeric && m.time == &kAtTime &&
                &i != &kDeAt && i.country == kDeAt.country && i.language == kDeAt.language &&
                !i.display_name && i.encoding_display_name == kUtf8Name &&
                i.encoding_technical_name == kDeDeUtf8.encoding_technical_name &&
                i.sort_order_technical_name == kNeutral.sort_order_technical_name);
    std::string asked = "CP437";
    EXPECT_EQ("32002", Query("", "", asked.c_str(), "", true));
    asked = "XXXXX";
    EXPECT_STREQ("CP437", catalog.GetStorage(32002)->identity->encoding_technical_name);
    EXPECT_EQ("32002", Query("", "i18n", "CP437", "", false));
}

// Unknown sources and missing encoding names fail (the id is zeroed after the first two).
TEST_F(CatalogRulesTest, RegisterCustomLocaleChecksItsSources) {
    unsigned int id = 77;
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.RegisterCustomLocale(999, 31000, 31000, id, 0, 0));
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.RegisterCustomLocale(10, 31000, 999, id, 0, 0));
    EXPECT_EQ(77u, id);
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.RegisterCustomLocale(10, 999, 31000, id, 0, 0));
    EXPECT_EQ(0u, id);
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.RegisterCustomLocale(10, 0, 31000, id, nullptr, "X"));
    EXPECT_EQ(LU_E_INVALID_ARG, catalog.RegisterCustomLocale(10, 0, 31000, id, kOrder, nullptr));
    EXPECT_EQ(LU_S_OK, catalog.RegisterCustomLocale(10, 0, 12, id, kOrder, "TECH"));
    EXPECT_EQ("32001", Query("de", "DE", "TECH", "phonebook", false));
}

const unsigned int kNeutralId = lu_locale_catalog::kNeutralLocaleId;

// Whether the data module is in the process now: the loader finds it without loading it.
bool ModuleLoaded() {
    void* module =
        dlopen((kaLibraryDirectory() + "libkai18nloc.so").c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (module != nullptr) dlclose(module);
    return module != nullptr;
}

// Every test starts on a new catalog, whose first look-up loads the module.
class CatalogModuleTest : public ::testing::Test {
  protected:
    void SetUp() override { lu_locale_catalog::ClearInstance(); }
    void TearDown() override { lu_locale_catalog::ClearInstance(); }
    static lu_locale_catalog& Catalog() { return *lu_locale_catalog::GetInstance(); }
};

// Look-ups load the module; making the catalog, registering and tracing do not, and a record
// registered before stands beside the module's. ClearInstance unloads it.
TEST_F(CatalogModuleTest, LookUpsLoadTheModuleAndClearInstanceUnloadsIt) {
    static const Ident kXq = {"XQ", "xq", kOrder, "i18n", kUtf8Name, "UTF-8", nullptr};
    static const lu_locale_storage kOwn = {99002, &kXq, nullptr, nullptr, nullptr};
    std::ostringstream trace;
    ASSERT_EQ(LU_S_OK, Catalog().Register(&kOwn));
    Catalog().Trace(trace);
    EXPECT_FALSE(ModuleLoaded());
    EXPECT_TRUE(Catalog().GetLocaleIdentification(99002) && ModuleLoaded());
    EXPECT_TRUE(Catalog().GetLocaleIdentification(kNeutralId));
    lu_locale_catalog::ClearInstance();
    EXPECT_FALSE(ModuleLoaded());
    EXPECT_TRUE(Catalog().GetLocaleInstance(kNeutralId) && ModuleLoaded());
}

// C and POSIX are classic; null and empty are refused unasked. A name takes the lowest match,
// or makes one (no German locale for Germany is in CP1251), once, and remembers it.
TEST_F(CatalogModuleTest, LocalesByName) {
    EXPECT_EQ(lu_locale::classic()._M_get_impl(), lu_locale("C")._M_get_impl());
    EXPECT_EQ(lu_locale::classic()._M_get_impl(), lu_locale("POSIX")._M_get_impl());
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale(static_cast<const char*>(nullptr)); }));
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { lu_locale(""); }));
    EXPECT_FALSE(ModuleLoaded());
    for (const char* unknown : {"c", "posix", "zz_ZZ", "de_DE@nonesuch"}) {
        EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([&] { lu_locale{unknown}; })) << unknown;
    }
    const lu_locale german("de_DE"), custom("de_DE.CP1251");
    Ids ids;
    ASSERT_EQ(LU_S_OK, Catalog().QueryMatchingLocales("de", "DE", "", "", ids, false));
    // The catalog, the handle and the pointer hold the body: the temporary handle that
    // built it gave its count back.
    EXPECT_EQ(Catalog().GetLocaleInstance(ids.front()).get(), german._M_get_impl());
    EXPECT_EQ(3u, Catalog().GetLocaleInstance(ids.front())->GetReferenceCount());
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([] { Catalog().GetLocaleInstance(31999); }));
    EXPECT_TRUE(german(Str(u"a"), Str(u"\u00E4")) && german(Str(u"\u00E4"), Str(u"b")));
    // A slot holds one count; the number facets one more on the locale's own numpunct, ctype.
    const lu_locale::facet* punct = &lu_use_facet<lu_numpunct>(german);
    const lu_locale::facet* ctype = &lu_use_facet<lu_ctype>(german);
    for (const lu_locale::facet* f : german._M_get_impl()->facets()) {
        EXPECT_TRUE(!f || f->GetReferenceCount() == (f == punct ? 3u : f == ctype ? 2u : 1u));
    }
    EXPECT_EQ(u',', lu_use_facet<lu_numpunct>(custom).decimal_point());
    EXPECT_STREQ("CP1251", lu_use_facet<lu_locale_ident>(custom).encoding_technical_name());
    EXPECT_EQ(custom._M_get_impl(), lu_locale("de_DE.CP1251")._M_get_impl());
    EXPECT_EQ(Catalog().GetLocaleInstance(32001).get(), custom._M_get_impl());
    // A name that made a custom locale answers with it when asked again, and makes no other.
    ids.clear();
    ASSERT_EQ(LU_S_OK, Catalog().QueryMatchingLocales("fr_FR.CP1251", ids, true));
    ASSERT_EQ(LU_S_OK, Catalog().QueryMatchingLocales("fr_FR.CP1251", ids, true));
    EXPECT_EQ(ids, (Ids{32002, 32002}));
    EXPECT_EQ(nullptr, Catalog().GetStorage(32003));
    // A locale from a record: a null record gives empty slots; an encoding the converters
    // do not know fails the build.
    EXPECT_EQ(std::vector<lu_locale::facet*>(14),
              lu_locale(static_cast<const lu_locale_storage*>(nullptr))._M_get_impl()->facets());
    static const Ident kUnknown = {"DE", "de", kOrder, "i18n", kWestern, "nonesuch", nullptr};
    static const lu_locale_storage kBad = {99004, &kUnknown, nullptr, nullptr, nullptr};
    EXPECT_EQ(LU_E_ENCODING, ThrownCode([] { lu_locale locale(&kBad); }));
}

}  // namespace

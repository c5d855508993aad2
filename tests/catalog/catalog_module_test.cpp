// The process-wide catalog over the real locale data module: loading and
// unloading it, and the catalog's rules on the locales it registers. The
// expected answers are worked out from the catalog's own trace, so the tests
// hold for any module that registers German for Germany and the neutral
// record 31000.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "catalog/catalog_test_support.h"
#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "test_support.h"

using catalog_test::Ids;
using catalog_test::IdsOf;
using catalog_test::Intersect;
using catalog_test::KeysOf;
using catalog_test::ModuleLoaded;
using catalog_test::ReadTrace;
using catalog_test::TraceSection;

namespace {

const unsigned int kNeutral = lu_locale_catalog::kNeutralLocaleId;

enum Section { kLanguages = 0, kTerritories = 1, kEncodings = 2, kCollations = 3 };

// Every test starts on a new catalog, whose first look-up loads the module.
class CatalogModuleTest : public ::testing::Test {
  protected:
    void SetUp() override {
        lu_locale_catalog::ClearInstance();
        ASSERT_FALSE(ModuleLoaded());
    }
    void TearDown() override { lu_locale_catalog::ClearInstance(); }

    static lu_locale_catalog& Catalog() { return *lu_locale_catalog::GetInstance(); }

    // The key maps of the catalog, with the module loaded.
    static std::vector<TraceSection> Loaded() {
        Catalog().GetStorage(kNeutral);
        return ReadTrace(Catalog());
    }

    static Ids GermanForGermany(const std::vector<TraceSection>& sections) {
        return Intersect(IdsOf(sections, kLanguages, "de"), IdsOf(sections, kTerritories, "DE"));
    }

    static const lu_locale_ident_impl::StaticStorage& IdentityOf(unsigned int id) {
        return *Catalog().GetStorage(id)->identity;
    }
};

}  // namespace

// ---- the module

TEST_F(CatalogModuleTest, MakingTheCatalogDoesNotLoadTheModule) {
    lu_locale_catalog* catalog = lu_locale_catalog::GetInstance();
    EXPECT_EQ(catalog, lu_locale_catalog::GetInstance());
    EXPECT_FALSE(ModuleLoaded());
}

TEST_F(CatalogModuleTest, TheFirstGetStorageLoadsTheModuleAndTheSecondDoesNot) {
    const lu_locale_storage* neutral = Catalog().GetStorage(kNeutral);
    ASSERT_NE(nullptr, neutral);
    EXPECT_TRUE(ModuleLoaded());
    EXPECT_EQ(neutral, Catalog().GetStorage(kNeutral));
    EXPECT_NE(nullptr, Catalog().GetStorage(GermanForGermany(ReadTrace(Catalog())).at(0)));
    // One unloading takes the module out of the process: it was loaded once.
    lu_locale_catalog::ClearInstance();
    EXPECT_FALSE(ModuleLoaded());
}

TEST_F(CatalogModuleTest, EveryLookUpLoadsTheModule) {
    Catalog().GetLocaleIdentification(kNeutral);
    EXPECT_TRUE(ModuleLoaded());
    lu_locale_catalog::ClearInstance();
    Catalog().GetLocaleInstance(kNeutral);
    EXPECT_TRUE(ModuleLoaded());
    lu_locale_catalog::ClearInstance();
    std::vector<unsigned int> result;
    Catalog().QueryMatchingLocales("nonesuch", "", "", "", result, false);
    EXPECT_TRUE(ModuleLoaded());
    lu_locale_catalog::ClearInstance();
    Catalog().QueryMatchingLocales("de_DE", result, false);
    EXPECT_TRUE(ModuleLoaded());
}

TEST_F(CatalogModuleTest, RegisteringAndTracingDoNotLoadTheModule) {
    static const lu_locale_storage kOwn = {99001, nullptr, nullptr, nullptr, nullptr};
    EXPECT_EQ(LU_S_OK, Catalog().Register(&kOwn));
    std::ostringstream out;
    Catalog().Trace(out);
    EXPECT_FALSE(ModuleLoaded());
}

TEST_F(CatalogModuleTest, AfterClearInstanceTheNextLookUpLoadsTheModuleAgain) {
    const std::vector<TraceSection> first = Loaded();
    const unsigned int german = GermanForGermany(first).at(0);
    lu_locale_catalog::ClearInstance();
    EXPECT_FALSE(ModuleLoaded());
    EXPECT_NE(nullptr, Catalog().GetStorage(german));
    EXPECT_TRUE(ModuleLoaded());
    // The module registered everything again.
    const std::vector<TraceSection> second = ReadTrace(Catalog());
    ASSERT_EQ(first.size(), second.size());
    for (size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i].heading, second[i].heading);
        EXPECT_EQ(first[i].entries, second[i].entries) << first[i].heading;
    }
}

TEST_F(CatalogModuleTest, RecordsRegisteredBeforeTheFirstLookUpStandBesideTheModule) {
    static const lu_locale_ident_impl::StaticStorage kIdentity = {
        "XQ",
        "xq",
        test_support::Utf8("Unicode collation"),
        "i18n",
        test_support::Utf8("Unicode (UTF-8)"),
        "UTF-8",
        nullptr};
    static const lu_locale_storage kOwn = {99002, &kIdentity, nullptr, nullptr, nullptr};
    ASSERT_EQ(LU_S_OK, Catalog().Register(&kOwn));
    std::vector<unsigned int> result;
    EXPECT_EQ(LU_S_OK, Catalog().QueryMatchingLocales("xq_XQ", result, false));
    EXPECT_EQ((Ids{99002}), result);
    EXPECT_NE(nullptr, Catalog().GetStorage(kNeutral));
    EXPECT_EQ(LU_E_INVALID_ARG, Catalog().Register(&kOwn));
}

// ---- what the module registers

TEST_F(CatalogModuleTest, TraceWritesTheFourHeadingsInOrder) {
    const std::vector<TraceSection> sections = Loaded();
    ASSERT_EQ(4u, sections.size());
    EXPECT_EQ("***** Languages *****", sections[kLanguages].heading);
    EXPECT_EQ("**** Territories ****", sections[kTerritories].heading);
    EXPECT_EQ("***** Encoding ******", sections[kEncodings].heading);
    EXPECT_EQ("***** Collation *****", sections[kCollations].heading);
    for (const TraceSection& section : sections) EXPECT_FALSE(section.entries.empty());
    // Every locale has an encoding and a sort order.
    EXPECT_EQ(sections[kEncodings].entries.size(), sections[kCollations].entries.size());
    EXPECT_EQ(sections[kEncodings].entries.size(), sections[kTerritories].entries.size());
}

TEST_F(CatalogModuleTest, TheNeutralRecordHasNoLanguage) {
    const lu_locale_storage* neutral = Catalog().GetStorage(kNeutral);
    ASSERT_NE(nullptr, neutral);
    EXPECT_EQ(kNeutral, neutral->locale_id);
    const ilu_const_ptr<lu_locale_ident> identity = Catalog().GetLocaleIdentification(kNeutral);
    ASSERT_TRUE(identity);
    EXPECT_STREQ("", identity->language_code_2());
    const std::vector<TraceSection> sections = ReadTrace(Catalog());
    EXPECT_EQ(
        (Ids{kNeutral}),
        Intersect(IdsOf(sections, kTerritories, identity->identification_code()), Ids{kNeutral}));
}

TEST_F(CatalogModuleTest, GermanForGermanyGivesEveryGermanLocaleForGermanyAscending) {
    const Ids expected = GermanForGermany(Loaded());
    ASSERT_FALSE(expected.empty());
    std::vector<unsigned int> result = {1, 2, 3};
    EXPECT_EQ(LU_S_OK, Catalog().QueryMatchingLocales("de", "DE", "", "", result, false));
    EXPECT_EQ(expected, result);
    for (size_t i = 1; i < result.size(); ++i) EXPECT_LT(result[i - 1], result[i]);
    for (unsigned int id : result) {
        EXPECT_STREQ("de", IdentityOf(id).language) << id;
        EXPECT_STREQ("DE", IdentityOf(id).country) << id;
    }
}

TEST_F(CatalogModuleTest, TheEmptyQueryIsNoMatchAndWithCreateMakes32001OnTheNeutralRecord) {
    std::vector<unsigned int> result = {5};
    EXPECT_EQ(LU_S_NO_MATCH, Catalog().QueryMatchingLocales("", "", "", "", result, false));
    EXPECT_EQ((Ids{5}), result);
    EXPECT_EQ(LU_S_OK, Catalog().QueryMatchingLocales("", "", "", "", result, true));
    EXPECT_EQ((Ids{32001}), result);

    const lu_locale_storage* neutral = Catalog().GetStorage(kNeutral);
    const lu_locale_storage* made = Catalog().GetStorage(32001);
    ASSERT_NE(nullptr, made);
    EXPECT_EQ(neutral->character_tables, made->character_tables);
    EXPECT_EQ(neutral->numeric, made->numeric);
    EXPECT_EQ(neutral->time, made->time);
    EXPECT_EQ(neutral->identity->country, made->identity->country);
    EXPECT_EQ(neutral->identity->language, made->identity->language);
    EXPECT_EQ(neutral->identity->encoding_technical_name, made->identity->encoding_technical_name);
    EXPECT_EQ(neutral->identity->sort_order_technical_name,
              made->identity->sort_order_technical_name);
    EXPECT_EQ(nullptr, made->identity->display_name);
}

TEST_F(CatalogModuleTest, AnEncodingOthersHaveMakesAGermanLocaleWithThatEncoding) {
    const std::vector<TraceSection> sections = Loaded();
    const Ids german = GermanForGermany(sections);
    // The first encoding that some locale has and no German one for Germany.
    std::string encoding;
    for (const std::string& key : KeysOf(sections, kEncodings)) {
        if (Intersect(IdsOf(sections, kEncodings, key), german).empty()) {
            encoding = key;
            break;
        }
    }
    ASSERT_FALSE(encoding.empty());
    const unsigned int source = IdsOf(sections, kEncodings, encoding).at(0);

    std::vector<unsigned int> result;
    EXPECT_EQ(LU_S_NO_MATCH,
              Catalog().QueryMatchingLocales("de", "DE", encoding.c_str(), "", result, false));
    EXPECT_EQ(LU_S_OK,
              Catalog().QueryMatchingLocales("de", "DE", encoding.c_str(), "", result, true));
    ASSERT_EQ((Ids{32001}), result);
    const lu_locale_storage* made = Catalog().GetStorage(32001);
    const lu_locale_storage* base = Catalog().GetStorage(german.at(0));
    EXPECT_EQ(base->numeric, made->numeric);
    EXPECT_EQ(base->time, made->time);
    EXPECT_EQ(base->character_tables, made->character_tables);
    EXPECT_STREQ("de", made->identity->language);
    EXPECT_STREQ("DE", made->identity->country);
    EXPECT_EQ(IdentityOf(source).encoding_technical_name, made->identity->encoding_technical_name);
    EXPECT_EQ(IdentityOf(source).encoding_display_name, made->identity->encoding_display_name);
    EXPECT_EQ(IdentityOf(kNeutral).sort_order_technical_name,
              made->identity->sort_order_technical_name);
    // The new locale is German for Germany too, with that encoding.
    EXPECT_EQ(LU_S_OK,
              Catalog().QueryMatchingLocales("de", "DE", encoding.c_str(), "", result, false));
    EXPECT_EQ((Ids{32001}), result);
}

TEST_F(CatalogModuleTest, ALanguageWithAnEncodingNoLocaleHasAnswersWithTheLanguage) {
    const std::vector<TraceSection> sections = Loaded();
    const Ids german = IdsOf(sections, kLanguages, "de");
    std::vector<unsigned int> result;
    EXPECT_EQ(LU_S_OK, Catalog().QueryMatchingLocales("de", "", "nonesuch-8", "", result, true));
    EXPECT_EQ(german, result);
    EXPECT_EQ(LU_S_NO_MATCH,
              Catalog().QueryMatchingLocales("de", "", "nonesuch-8", "", result, false));
    EXPECT_EQ(nullptr, Catalog().GetStorage(32001));
}

TEST_F(CatalogModuleTest, AnEncodingKnownOnlyToTheEncodingTableMakesALocaleOnTheNeutralRecord) {
    const std::set<std::string> registered = KeysOf(Loaded(), kEncodings);
    const char* const candidates[] = {"CP437", "CP850", "CP852",       "CP855",
                                      "CP857", "CP860", "CP861",       "CP862",
                                      "CP865", "CP869", "ISO-8859-14", "Adobe-Standard-Encoding"};
    const char* tableName = nullptr;
    const unsigned char* displayName = nullptr;
    for (const char* candidate : candidates) {
        const char* name = candidate;
        const unsigned char* display = lu_codecvt::GetEncodingDisplayName(name);
        if (display != nullptr && registered.count(candidate) == 0) {
            tableName = name;
            displayName = display;
            break;
        }
    }
    ASSERT_NE(nullptr, tableName);

    std::vector<unsigned int> result;
    EXPECT_EQ(LU_S_NO_MATCH, Catalog().QueryMatchingLocales("", "", tableName, "", result, false));
    EXPECT_EQ(LU_S_OK, Catalog().QueryMatchingLocales("", "", tableName, "", result, true));
    ASSERT_EQ((Ids{32001}), result);
    const lu_locale_storage* made = Catalog().GetStorage(32001);
    EXPECT_EQ(Catalog().GetStorage(kNeutral)->numeric, made->numeric);
    EXPECT_EQ(IdentityOf(kNeutral).country, made->identity->country);
    EXPECT_EQ(tableName, made->identity->encoding_technical_name);
    EXPECT_EQ(displayName, made->identity->encoding_display_name);
    EXPECT_EQ(std::string(tableName),
              Catalog().GetLocaleIdentification(32001)->encoding_technical_name());
}

TEST_F(CatalogModuleTest, TheSameNameTwiceMakesOneCustomLocale) {
    const std::vector<TraceSection> sections = Loaded();
    const Ids german = GermanForGermany(sections);
    std::string encoding;
    for (const std::string& key : KeysOf(sections, kEncodings)) {
        if (Intersect(IdsOf(sections, kEncodings, key), german).empty()) encoding = key;
    }
    ASSERT_FALSE(encoding.empty());
    const std::string name = "de_DE." + encoding;

    std::vector<unsigned int> result;
    EXPECT_EQ(LU_S_OK, Catalog().QueryMatchingLocales(name.c_str(), result, true));
    EXPECT_EQ((Ids{32001}), result);
    EXPECT_EQ(LU_S_OK, Catalog().QueryMatchingLocales(name.c_str(), result, true));
    EXPECT_EQ((Ids{32001, 32001}), result);
    EXPECT_EQ(nullptr, Catalog().GetStorage(32002));
}

TEST_F(CatalogModuleTest, UsAsANameFailsAsALanguageThenMatchesAsATerritory) {
    const std::vector<TraceSection> sections = Loaded();
    const Ids american = IdsOf(sections, kTerritories, "US");
    ASSERT_FALSE(american.empty());
    ASSERT_TRUE(IdsOf(sections, kLanguages, "US").empty());
    std::vector<unsigned int> result;
    EXPECT_EQ(LU_S_NO_MATCH, Catalog().QueryMatchingLocales("US", "", "", "", result, false));
    EXPECT_EQ(LU_S_OK, Catalog().QueryMatchingLocales("US", result, false));
    EXPECT_EQ(american, result);
}

TEST_F(CatalogModuleTest, AnUnknownSortOrderIsNoMatchEvenWithCreate) {
    std::vector<unsigned int> result = {5};
    EXPECT_EQ(LU_S_NO_MATCH,
              Catalog().QueryMatchingLocales("de", "DE", "", "nonesuch", result, true));
    EXPECT_EQ(LU_S_NO_MATCH, Catalog().QueryMatchingLocales("de_DE@nonesuch", result, true));
    EXPECT_EQ((Ids{5}), result);
    EXPECT_EQ(nullptr, Catalog().GetStorage(32001));
}

TEST_F(CatalogModuleTest, GetLocaleInstanceTwiceGivesOneBody) {
    const unsigned int german = GermanForGermany(Loaded()).at(0);
    const ilu_ptr<lu_locale::_Impl> first = Catalog().GetLocaleInstance(german);
    const ilu_ptr<lu_locale::_Impl> second = Catalog().GetLocaleInstance(german);
    ASSERT_TRUE(first);
    EXPECT_EQ(first.get(), second.get());
    EXPECT_TRUE(first->named());
    EXPECT_EQ(LU_E_INVALID_ARG,
              test_support::ThrownCode([] { Catalog().GetLocaleInstance(31999); }));
}

TEST_F(CatalogModuleTest, EveryRegisteredLocaleCanBeBuilt) {
    const std::vector<TraceSection> sections = Loaded();
    std::set<unsigned int> ids;
    for (const auto& entry : sections[kEncodings].entries) ids.insert(entry.second);
    for (unsigned int id : ids) {
        try {
            const ilu_ptr<lu_locale::_Impl> impl = Catalog().GetLocaleInstance(id);
            const lu_locale locale(impl.get());
            EXPECT_EQ(std::string(IdentityOf(id).encoding_technical_name),
                      lu_use_facet<lu_locale_ident>(locale).encoding_technical_name());
        } catch (const LUException& error) {
            ADD_FAILURE() << id << ": " << error.what();
        }
    }
}

// The code tables, locales and facets, the identity facet, and the locale data module.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/locale/lu_countries.h"
#include "kai18n/locale/lu_languages.h"
#include "kai18n/locale/lu_locale_ident_impl.h"
#include "kai18n/strings/lu_utf8string.h"
#include "locale/test_facets.h"
#include "module_records.h"
#include "test_support.h"

using test_facets::Probe;
using test_support::Str;
using test_support::ThrownCode;
using test_support::U16;

namespace {

// FNV-1a over every field of every row, so that a changed letter anywhere shows.
struct Fingerprint {
    std::uint64_t hash = 0xCBF29CE484222325ull;
    void Add(std::uint32_t value) { hash = (hash ^ value) * 0x100000001B3ull; }
    void Add(const char* text) {
        while (*text != 0) Add(static_cast<unsigned char>(*text++));
        Add(0u);
    }
    void Add(const unsigned short* units) {
        if (units == nullptr) return Add(0xFFFFu);
        while (*units != 0) Add(*units++);
        Add(0u);
    }
};

// The rows as released (a deliberate change of any row changes these values too), each found
// by its codes; case and sign count; "ind" finds the first row with the code, "id".
TEST(CodeTableTest, EveryFieldOfEveryRowIsAsPublishedAndFoundByItsCodes) {
    Fingerprint languages, countries;
    for (auto row = lu_languages::begin(); row != lu_languages::end(); ++row) {
        languages.Add(row->GetIsoCode2());
        languages.Add(row->GetIsoCode3());
        languages.Add(row->GetEnglishName());
        languages.Add(row->GetDisplayName());
        EXPECT_EQ(row, lu_languages::LookUpByTwoLetters(row->GetIsoCode2()));
    }
    EXPECT_EQ(0x91121D5553F8AAF0ull, languages.hash);
    for (auto row = lu_countries::begin(); row != lu_countries::end(); ++row) {
        countries.Add(row->GetIsoCode2());
        countries.Add(row->GetIsoCode3());
        countries.Add(row->GetNumericCode());
        countries.Add(row->GetName());
        countries.Add(row->GetLongName());
        EXPECT_EQ(row, lu_countries::LookUpByThreeLetters(row->GetIsoCode3()));
    }
    EXPECT_EQ(0x68C3E690741A10FDull, countries.hash);
    EXPECT_EQ(std::string(lu_languages::LookUpByTwoLetters("en_US")->GetIsoCode2()) +
                  lu_languages::LookUpByThreeLetters("ind")->GetIsoCode2(),
              "enid");
    for (const char* missing :
         {"zz", "d", "", "EN", "a", "{a", "\xE9n", "ger", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(lu_languages::end(), lu_languages::LookUpByTwoLetters(missing)) << missing;
        EXPECT_EQ(lu_languages::end(), lu_languages::LookUpByThreeLetters(missing)) << missing;
    }
}

lu_locale MakeLocale(unsigned int slots) {
    return lu_locale(new lu_locale::_Impl(slots, 0));
}

// Ids are numbered once; the table grows to the slot; the new facet is counted before the old
// one, maybe the same, goes. Missing: no id, no slots, no body, past the end, an empty slot.
TEST(LuLocaleTest, FacetsAreInstalledReplacedAndMissing) {
    lu_locale loc = MakeLocale(0), empty = MakeLocale(0), null(nullptr), other = MakeLocale(1);
    bool firstGone = false, secondGone = false;
    auto* second = new Probe<1>(&secondGone);
    EXPECT_EQ(0u, Probe<1>::id.value());
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<Probe<1>>(loc); }));
    loc._M_get_impl()->_M_install_facet(&Probe<1>::id, new Probe<1>(&firstGone));
    loc._M_get_impl()->_M_install_facet(&Probe<2>::id, new Probe<2>);
    loc._M_get_impl()->_M_install_facet(&Probe<1>::id, second);
    loc._M_get_impl()->_M_install_facet(&Probe<1>::id, second);
    loc._M_get_impl()->_M_install_facet(&Probe<1>::id, nullptr);
    EXPECT_TRUE(firstGone && !secondGone && second->GetReferenceCount() == 1u);
    const unsigned int first = Probe<1>::id.value();
    EXPECT_TRUE(first != 0 && Probe<2>::id.value() == first + 1);
    EXPECT_EQ(first + 2, loc._M_get_impl()->facets().size());
    other._M_get_impl()->_M_install_facet(&Probe<1>::id, new Probe<1>);
    EXPECT_EQ(first, Probe<1>::id.value());
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<Probe<1>>(empty); }));
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<Probe<1>>(null); }));
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<Probe<2>>(other); }));
    other._M_get_impl()->_M_install_facet(&Probe<3>::id, new Probe<3>);
    EXPECT_TRUE(lu_has_facet<Probe<1>>(other) && !lu_has_facet<Probe<2>>(other));
    // Replacing copies the facet of the other body, or throws and leaves the target alone.
    other._M_get_impl()->_M_replace_facet(loc._M_get_impl(), &Probe<2>::id);
    EXPECT_EQ(2u, lu_use_facet<Probe<2>>(other).GetReferenceCount());
    const std::vector<lu_locale::facet*> before = other._M_get_impl()->facets();
    for (const lu_locale::id* id : {&Probe<4>::id, &Probe<3>::id}) {
        EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] {
                      other._M_get_impl()->_M_replace_facet(empty._M_get_impl(), id);
                  }));
    }
    EXPECT_EQ(before, other._M_get_impl()->facets());
}

// Bodies count their facets, handles their body. Equal: shared, or named alike on the left.
TEST(LuLocaleTest, BodiesAndHandlesCountAndCompare) {
    bool gone = false;
    {
        lu_locale original = MakeLocale(1);
        original._M_get_impl()->_M_install_facet(&Probe<5>::id, new Probe<5>(&gone));
        original._M_get_impl()->names()[2] = "monetary";
        original._M_get_impl()->set_named(true);
        lu_locale copy(new lu_locale::_Impl(*original._M_get_impl(), 0)), b(copy),
            c = MakeLocale(1);
        EXPECT_EQ(2u, lu_use_facet<Probe<5>>(copy).GetReferenceCount());
        EXPECT_TRUE(copy == original && copy._M_get_impl()->names()[2] == "monetary");
        c = b;
        c = static_cast<const lu_locale&>(c);
        EXPECT_EQ(3u, copy._M_get_impl()->GetReferenceCount());
    }
    EXPECT_TRUE(gone);
    lu_locale unnamed = MakeLocale(1), unnamedCopy(new lu_locale::_Impl(*unnamed._M_get_impl(), 0));
    EXPECT_TRUE(unnamed == lu_locale(unnamed) && lu_locale(nullptr) == lu_locale(nullptr));
    EXPECT_TRUE(unnamed != unnamedCopy && unnamed.name() == "*");
    EXPECT_TRUE(lu_locale::makeLocaleId("en", "US") == "en_US" &&
                lu_locale::makeLocaleId("en", "") == "en");
    EXPECT_TRUE(lu_locale::splitLocaleId("zh_Hant_TW").second == "Hant_TW" &&
                lu_locale::splitLocaleId("en") == std::make_pair(std::string("en"), std::string()));
}

// The classic locale: one facet of each class but the identity; global until another is set.
// Combining takes the facets and names of a category, and the flag of the base.
TEST(ClassicLocaleTest, ClassicGlobalAndCombinedLocales) {
    const lu_locale classic = lu_locale::classic();
    const std::vector<lu_locale::facet*>& facets = classic._M_get_impl()->facets();
    EXPECT_EQ(12, std::count_if(facets.begin(), facets.end(), [](auto f) { return f != nullptr; }));
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([&] { lu_use_facet<lu_locale_ident>(classic); }));
    EXPECT_EQ(std::vector<std::string>(7, "*"), classic._M_get_impl()->names());
    auto* impl = new lu_locale::_Impl(*classic._M_get_impl(), 0);
    auto* punct = new lu_numpunct(0u);
    impl->_M_install_facet(&lu_numpunct::id, punct);
    impl->_M_install_facet(&lu_num_put::id, new lu_num_put(punct, 0u));
    impl->names()[3] = "numbers";
    impl->set_named(true);
    const lu_locale numbers(impl), mixed(classic, numbers, lu_locale::numeric),
        byIndex(numbers, classic, 4);
    EXPECT_TRUE(&lu_use_facet<lu_numpunct>(mixed) == punct &&
                &lu_use_facet<lu_ctype>(mixed) == &lu_use_facet<lu_ctype>(classic));
    EXPECT_EQ(std::vector<std::string>({"*", "*", "*", "numbers", "*", "*", "*"}),
              mixed._M_get_impl()->names());
    EXPECT_TRUE(mixed.name() == "*" && byIndex.name() == "named");
    EXPECT_EQ(&lu_use_facet<lu_numpunct>(classic), &lu_use_facet<lu_numpunct>(byIndex));
    EXPECT_EQ(punct, &lu_use_facet<lu_numpunct>(lu_locale(classic, numbers, 0x0900)));
    EXPECT_EQ(LU_E_NO_FACET,
              ThrownCode([&] { lu_locale(classic, classic, lu_locale::identification); }));
    // {category, mask}; a mask of 0: throws.
    const int rows[][2] = {{0, 0x7F00}, {1, 0x0100},      {5, 0x1000}, {6, 0},
                           {-1, 0},     {0x2000, 0x2000}, {0x8000, 0}, {0x0180, 0}};
    for (const auto& row : rows) {
        const long code = ThrownCode(
            [&] { EXPECT_EQ(row[1], lu_locale::_S_normalize_category(row[0])) << row[0]; });
        EXPECT_EQ(row[1] == 0 ? LU_E_BAD_CATEGORY : 0, code) << row[0];
    }
    EXPECT_EQ(classic, lu_locale());
    const lu_locale previous = lu_locale::global(numbers);
    EXPECT_EQ(classic._M_get_impl(), previous._M_get_impl());
    EXPECT_EQ(numbers._M_get_impl(), lu_locale()._M_get_impl());
    EXPECT_EQ(numbers._M_get_impl(), lu_locale::global(previous)._M_get_impl());
    EXPECT_EQ(classic._M_get_impl(), lu_locale()._M_get_impl());
}

TEST(ClassicLocaleTest, ComparingOrdersByCodeUnitInTheClassicLocale) {
    const lu_locale c = lu_locale::classic();
    for (const auto& [a, b] : {std::make_pair(u"b", u"\u00E4"), {u"", u"a"}, {u"ab", u"abc"}}) {
        EXPECT_TRUE(c(Str(a), Str(b)) && !c(Str(b), Str(a)) && !c(Str(a), Str(a)));
        const lu_utf8string x(Str(a)), y(Str(b));
        EXPECT_TRUE(c(x, y) && !c(y, x) && !c(x, x));
    }
    EXPECT_EQ(LU_E_NO_FACET, ThrownCode([] { MakeLocale(1)(Str(u"a"), Str(u"b")); }));
}

// Opens the protected slots, so that a test sees null where the public members give an
// empty string.
class Ident : public lu_locale_ident_impl {
  public:
    using lu_locale_ident_impl::do_country_long_name, lu_locale_ident_impl::do_country_name,
        lu_locale_ident_impl::do_language_display_name;
    using lu_locale_ident_impl::lu_locale_ident_impl;
};
ilu_const_ptr<Ident> Held(const lu_locale_ident_impl::StaticStorage* storage) {
    return ilu_const_ptr<Ident>(new Ident(storage, 0));
}

std::u16string W(const char* bytes) {
    return bytes == nullptr ? u"<null>" : std::u16string(bytes, bytes + std::strlen(bytes));
}
std::u16string Text(const unsigned short* units) {
    return units == nullptr ? u"<null>" : U16(ucs2string(units));
}

// Names, codes and display names of a facet, with null slots shown.
std::u16string Describe(const Ident& f) {
    return W(f.locale_name().c_str()) + u"|" + U16(f.locale_display_name(false)) + u"|" +
           W(f.identification_code()) + u"|" + W(f.country_code_2()) + u"|" +
           W(f.country_code_3()) + u"|" + Text(f.do_country_name()) + u"|" +
           Text(f.do_country_long_name()) + u"|" + W(f.language_code_2()) + u"|" +
           W(f.language_code_3()) + u"|" + Text(f.do_language_display_name()) + u"|" +
           Text(f.language_english_name());
}

lu_locale_ident_impl::StaticStorage Record(const char* country, const char* language) {
    static const unsigned char kCollation[] = "Unicode collation";
    static const unsigned char kWestern[] = "Western European (Windows)";
    return {country, language, kCollation, "i18n", kWestern, "CP1252", nullptr};
}

TEST(LocaleIdentTest, NamesAndCodesWithAndWithoutALanguageAndForUnknownCodes) {
    const struct {
        const char *country, *language;
        const char16_t* expected;
    } cases[] = {
        {"DE", "de",
         u"de_DE.CP1252@i18n|Deutsch (Federal Republic of Germany)||DE|DEU|Germany|"
         u"Federal Republic of Germany|de|deu|Deutsch|German"},
        // Without a language the identification code stands.
        {"i18n", nullptr, u"i18n.CP1252@i18n|i18n|i18n|||||||language neutral|language neutral"},
        // Codes not in the tables: null slots.
        {"ZZ", "qq", u"qq_ZZ.CP1252@i18n| ()||ZZ|<null>|<null>|<null>|qq|<null>|<null>|<null>"},
        // The English name without a display name; the name without a long name.
        {"AU", "ab",
         u"ab_AU.CP1252@i18n|Abkhazian "
         u"(Australia)||AU|AUS|Australia|Australia|ab|abk|Abkhazian|Abkhazian"},
        // No record: the built-in identity, with its display name.
        {nullptr, "-",
         u"i18n.CP1252@i18n|International|i18n|||||||language neutral|language neutral"}};
    for (const auto& c : cases) {
        const auto record = Record(c.country, c.language);
        EXPECT_EQ(c.expected, Describe(*Held(c.country ? &record : nullptr))) << c.country;
    }
    auto record = Record("DE", "de");
    EXPECT_EQ(u"Deutsch (Federal Republic of Germany).Western European (Windows)@Unicode collation",
              U16(Held(&record)->locale_display_name(true)));
    record.country = nullptr;  // without a display name, no field 0 gives nothing
    EXPECT_TRUE(Held(&record)->locale_display_name(true).empty());
}

std::string Bytes(const unsigned char* text) {
    return reinterpret_cast<const char*>(text);
}

// The neutral record 31000 comes last; the others have codes of the tables and an encoding
// of the encoding table, or UTF-8 from id 26000 on. A locale builds on every record.
TEST(LocaleDataTest, EveryRecordIsRegisteredWellFormedAndBuilds) {
    const std::vector<const lu_locale_storage*> records = kai18n_test::ModuleRecords();
    ASSERT_GT(records.size(), 600u);
    EXPECT_TRUE(records.back()->locale_id == 31000 && !records.back()->identity->language &&
                records.back()->time == &lu_ctime_impl::kDefaultCtimeStorage);
    unsigned int previous = 0;
    for (const lu_locale_storage* record : records) {
        SCOPED_TRACE(record->locale_id);
        EXPECT_GT(record->locale_id, previous);  // ascending, so unique
        EXPECT_EQ(record,
                  lu_locale_catalog::GetInstance()->GetStorage(previous = record->locale_id));
        const lu_locale_ident_impl::StaticStorage& id = *record->identity;
        const char* encoding = id.encoding_technical_name;
        const unsigned char* display = lu_codecvt::GetEncodingDisplayName(encoding);
        EXPECT_STREQ(encoding,
                     lu_use_facet<lu_locale_ident>(lu_locale(record)).encoding_technical_name());
        if (record == records.back()) continue;
        EXPECT_NE(lu_languages::end(), lu_languages::LookUpByTwoLetters(id.language));
        EXPECT_NE(lu_countries::end(), lu_countries::LookUpByTwoLetters(id.country));
        const bool utf8 = std::strcmp(encoding, "UTF-8") == 0;
        EXPECT_EQ(utf8, record->locale_id >= 26000);
        EXPECT_EQ(utf8 ? "Unicode (UTF-8)" : Bytes(display), Bytes(id.encoding_display_name));
    }
}

TEST(LocaleDataTest, CldrDataOfSomeLocales) {
    std::vector<unsigned int> ids;
    lu_locale_catalog::GetInstance()->QueryMatchingLocales("de_DE", ids, false);
    EXPECT_EQ(1031u, ids.at(0));  // the Windows LCID of de-DE, in CP1252
    const lu_locale de("de_DE.UTF-8");
    EXPECT_EQ(u',', lu_use_facet<lu_numpunct>(de).decimal_point());
    EXPECT_EQ(u"M\u00E4rz", U16(ucs2string(lu_use_facet<lu_ctime>(de).GetNameOfMonth(3))));
    EXPECT_EQ(u"T[0d]L[.]T[0M]L[.]T[y2]",
              U16(ucs2string(lu_use_facet<lu_ctime>(de).GetFmtLibDefaultFormat(3))));
    ucs2string grouping;  // Hindi groups by 3, then 2
    lu_use_facet<lu_numpunct>(lu_locale("hi_IN")).grouping(grouping);
    EXPECT_EQ(u"\3\2", U16(grouping));
}

}  // namespace

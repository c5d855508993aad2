// Preferences (the keyed store of what a user wants to differ from the locale)
// and settings (a locale joined to preferences): building, copying, counting,
// which side wins, the grouping map and the half-day names.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/frame/result_codes.h"
#include "number_test_support.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

// Null stays null in a comparison; anything else becomes UTF-8.
std::string Text(const unsigned short* units) {
    return units == nullptr ? std::string("(null)") : Utf8(ucs2string(units));
}

const luPreferencesImp& Imp(const ilu_ptr<luPreferences>& prefs) {
    return *prefs->GetImp();
}

// The string stored under `key`, or "(absent)" / "(number)".
std::string StoredString(const luPreferences& prefs, const char* key) {
    bool found = false;
    const luPref& pref = prefs.GetAt(key, found);
    if (!found) return "(absent)";
    ucs2string text;
    if (!pref.GetString(text)) return "(number)";
    return Utf8(text);
}

long StoredNumber(const luPreferences& prefs, const char* key) {
    bool found = false;
    const luPref& pref = prefs.GetAt(key, found);
    EXPECT_TRUE(found) << key;
    long number = -999;
    EXPECT_TRUE(pref.GetLong(number)) << key;
    return number;
}

ilu_ptr<luPreferences> NewPreferences() {
    ilu_ptr<luPreferences> prefs;
    EXPECT_EQ(0, CreatePreferences(prefs));
    return prefs;
}

TEST(PreferencesTest, FreshStoreIsOpenEmptyAndCountedOnce) {
    ilu_ptr<luPreferences> prefs = NewPreferences();
    ASSERT_TRUE(prefs);
    EXPECT_EQ(1u, prefs->GetReferenceCount());
    const luPreferencesImp& imp = Imp(prefs);
    EXPECT_EQ(prefs.get(), static_cast<const luPreferences*>(&imp));
    EXPECT_FALSE(imp.IsBuild());
    EXPECT_FALSE(imp.IsDecimalPoint());
    EXPECT_FALSE(imp.IsThousandsSep());
    EXPECT_FALSE(imp.IsTrue());
    EXPECT_FALSE(imp.IsFalse());
    EXPECT_EQ(0, imp.decimal_point());
    EXPECT_EQ(0, imp.thousands_sep());
    EXPECT_EQ(nullptr, imp.true_string());
    EXPECT_EQ(nullptr, imp.false_string());
    EXPECT_EQ("(absent)", StoredString(*prefs, "decimal_point"));
}

TEST(PreferencesTest, EndBuildTakesTheFourStringKeys) {
    ilu_ptr<luPreferences> prefs = NewPreferences();
    EXPECT_TRUE(prefs->AddPreference("decimal_point", U("<>")));
    EXPECT_TRUE(prefs->AddPreference("thousands_sep", U("\xE2\x80\xAF")));  // U+202F
    EXPECT_TRUE(prefs->AddPreference("true_word", U("oui")));
    EXPECT_TRUE(prefs->AddPreference("false_word", U("non")));
    EXPECT_TRUE(prefs->AddPreference("colour_scheme", U("dark")));  // means nothing
    EXPECT_TRUE(prefs->AddPreference("precision", 7L));
    // Nothing is taken before EndBuild.
    EXPECT_FALSE(Imp(prefs).IsDecimalPoint());
    EXPECT_EQ(nullptr, Imp(prefs).true_string());

    EXPECT_FALSE(prefs->EndBuild());  // the result carries no information
    const luPreferencesImp& imp = Imp(prefs);
    EXPECT_TRUE(imp.IsBuild());
    EXPECT_TRUE(imp.IsDecimalPoint());
    EXPECT_TRUE(imp.IsThousandsSep());
    EXPECT_TRUE(imp.IsTrue());
    EXPECT_TRUE(imp.IsFalse());
    EXPECT_EQ(u'<', imp.decimal_point());  // the first unit only
    EXPECT_EQ(0x202F, imp.thousands_sep());
    EXPECT_EQ("oui", Text(imp.true_string()));
    EXPECT_EQ("non", Text(imp.false_string()));
    EXPECT_EQ("dark", StoredString(*prefs, "colour_scheme"));
    EXPECT_EQ(7L, StoredNumber(*prefs, "precision"));
}

TEST(PreferencesTest, NumberUnderAMeaningfulKeyHasNoEffect) {
    ilu_ptr<luPreferences> prefs = NewPreferences();
    EXPECT_TRUE(prefs->AddPreference("decimal_point", 44L));
    EXPECT_TRUE(prefs->AddPreference("true_word", 1L));
    prefs->EndBuild();
    EXPECT_FALSE(Imp(prefs).IsDecimalPoint());
    EXPECT_EQ(0, Imp(prefs).decimal_point());
    EXPECT_FALSE(Imp(prefs).IsTrue());
    EXPECT_EQ(nullptr, Imp(prefs).true_string());
    // The number is still stored and reads back as a number, not as a string.
    bool found = false;
    const luPref& pref = prefs->GetAt("decimal_point", found);
    ASSERT_TRUE(found);
    EXPECT_FALSE(pref.IsString());
    ucs2string untouched = U("keep");
    EXPECT_FALSE(pref.GetString(untouched));
    EXPECT_EQ("keep", Utf8(untouched));
    EXPECT_EQ(44L, StoredNumber(*prefs, "decimal_point"));
}

TEST(PreferencesTest, FirstValueOfAKeyStays) {
    ilu_ptr<luPreferences> prefs = NewPreferences();
    EXPECT_TRUE(prefs->AddPreference("decimal_point", U(",")));
    EXPECT_FALSE(prefs->AddPreference("decimal_point", U(";")));
    EXPECT_FALSE(prefs->AddPreference("decimal_point", 46L));
    EXPECT_TRUE(prefs->AddPreference("digits", 3L));
    EXPECT_FALSE(prefs->AddPreference("digits", 4L));
    EXPECT_FALSE(prefs->AddPreference("digits", U("four")));
    prefs->EndBuild();
    EXPECT_EQ(u',', Imp(prefs).decimal_point());
    EXPECT_EQ(",", StoredString(*prefs, "decimal_point"));
    EXPECT_EQ(3L, StoredNumber(*prefs, "digits"));
}

TEST(PreferencesTest, RemoveBeforeBuildAndNothingChangesAfter) {
    ilu_ptr<luPreferences> prefs = NewPreferences();
    EXPECT_TRUE(prefs->AddPreference("true_word", U("yes")));
    EXPECT_TRUE(prefs->AddPreference("false_word", U("no")));
    EXPECT_FALSE(prefs->RemovePreference("absent"));
    EXPECT_TRUE(prefs->RemovePreference("true_word"));
    EXPECT_FALSE(prefs->RemovePreference("true_word"));
    EXPECT_EQ("(absent)", StoredString(*prefs, "true_word"));
    EXPECT_TRUE(prefs->AddPreference("true_word", U("ja")));  // the key is free again

    prefs->EndBuild();
    EXPECT_FALSE(prefs->AddPreference("decimal_point", U(",")));
    EXPECT_FALSE(prefs->AddPreference("digits", 2L));
    EXPECT_FALSE(prefs->RemovePreference("false_word"));
    EXPECT_FALSE(prefs->EndBuild());  // a second EndBuild does nothing
    EXPECT_EQ("(absent)", StoredString(*prefs, "decimal_point"));
    EXPECT_EQ("no", StoredString(*prefs, "false_word"));
    EXPECT_FALSE(Imp(prefs).IsDecimalPoint());
    EXPECT_EQ("ja", Text(Imp(prefs).true_string()));
    EXPECT_EQ("no", Text(Imp(prefs).false_string()));
}

TEST(PreferencesTest, EmptyStringsSetTheFlags) {
    ilu_ptr<luPreferences> prefs = NewPreferences();
    prefs->AddPreference("thousands_sep", U(""));
    prefs->AddPreference("false_word", U(""));
    prefs->EndBuild();
    EXPECT_TRUE(Imp(prefs).IsThousandsSep());
    EXPECT_EQ(0, Imp(prefs).thousands_sep());
    EXPECT_TRUE(Imp(prefs).IsFalse());
    ASSERT_NE(nullptr, Imp(prefs).false_string());
    EXPECT_EQ(0, Imp(prefs).false_string()[0]);
}

TEST(PreferencesTest, GetAtReportsFound) {
    ilu_ptr<luPreferences> prefs = NewPreferences();
    prefs->AddPreference("name", U("value"));
    prefs->AddPreference("count", -12L);
    bool found = true;
    prefs->GetAt("missing", found);
    EXPECT_FALSE(found);
    found = false;
    const luPref& name = prefs->GetAt("name", found);
    EXPECT_TRUE(found);
    EXPECT_TRUE(name.IsString());
    long untouched = 5;
    EXPECT_FALSE(name.GetLong(untouched));
    EXPECT_EQ(5L, untouched);
    EXPECT_EQ("value", StoredString(*prefs, "name"));
    EXPECT_EQ(-12L, StoredNumber(*prefs, "count"));
    // Keys are whole texts.
    prefs->GetAt("nam", found);
    EXPECT_FALSE(found);
}

TEST(PreferencesTest, CopyOfABuiltStoreIsOpen) {
    ilu_ptr<luPreferences> source = NewPreferences();
    source->AddPreference("true_word", U("wahr"));
    source->AddPreference("decimal_point", U(","));
    source->AddPreference("digits", 9L);
    source->EndBuild();
    ASSERT_TRUE(Imp(source).IsTrue());

    ilu_ptr<luPreferences> copy;
    ASSERT_EQ(0, CreatePreferences(*source, copy));
    ASSERT_TRUE(copy);
    EXPECT_NE(source.get(), copy.get());
    EXPECT_EQ(1u, copy->GetReferenceCount());
    EXPECT_FALSE(Imp(copy).IsBuild());
    EXPECT_FALSE(Imp(copy).IsTrue());
    EXPECT_FALSE(Imp(copy).IsDecimalPoint());
    EXPECT_EQ(nullptr, Imp(copy).true_string());
    // Every entry is there, of its own kind, and the copy may be changed.
    EXPECT_EQ("wahr", StoredString(*copy, "true_word"));
    EXPECT_EQ(9L, StoredNumber(*copy, "digits"));
    EXPECT_TRUE(copy->AddPreference("false_word", U("falsch")));
    EXPECT_TRUE(copy->RemovePreference("decimal_point"));
    copy->EndBuild();
    EXPECT_TRUE(Imp(copy).IsTrue());
    EXPECT_EQ("wahr", Text(Imp(copy).true_string()));
    EXPECT_EQ("falsch", Text(Imp(copy).false_string()));
    EXPECT_FALSE(Imp(copy).IsDecimalPoint());
    // The source is as it was.
    EXPECT_EQ(u',', Imp(source).decimal_point());
    EXPECT_EQ("(absent)", StoredString(*source, "false_word"));
}

TEST(PreferencesTest, AssignmentGivesTheTargetItsOwnValues) {
    ilu_ptr<luPreferencesImp> target(new luPreferencesImp());
    target->AddPreference("only_in_target", U("gone"));

    {
        ilu_ptr<luPreferencesImp> source(new luPreferencesImp());
        source->AddPreference("decimal_point", U(","));
        source->AddPreference("thousands_sep", U("."));
        source->AddPreference("false_word", U("nein"));
        source->AddPreference("note", U("kept"));
        source->AddPreference("digits", 4L);
        source->EndBuild();
        *target = *source;
        EXPECT_EQ(1u, source->GetReferenceCount());
        EXPECT_EQ(1u, target->GetReferenceCount());  // the count is not copied
    }                                                // the source and its values are deleted here

    EXPECT_TRUE(target->IsBuild());
    EXPECT_TRUE(target->IsDecimalPoint());
    EXPECT_TRUE(target->IsThousandsSep());
    EXPECT_FALSE(target->IsTrue());
    EXPECT_TRUE(target->IsFalse());
    EXPECT_EQ(u',', target->decimal_point());
    EXPECT_EQ(u'.', target->thousands_sep());
    EXPECT_EQ("nein", Text(target->false_string()));
    EXPECT_EQ("kept", StoredString(*target, "note"));
    EXPECT_EQ("nein", StoredString(*target, "false_word"));
    EXPECT_EQ(4L, StoredNumber(*target, "digits"));
    EXPECT_EQ("(absent)", StoredString(*target, "only_in_target"));
    EXPECT_FALSE(target->AddPreference("other", U("x")));  // built, like its source

    // An open source gives an open target, which takes its values at its own
    // EndBuild.
    ilu_ptr<luPreferencesImp> open(new luPreferencesImp());
    open->AddPreference("true_word", U("si"));
    *target = *open;
    EXPECT_FALSE(target->IsBuild());
    EXPECT_FALSE(target->IsDecimalPoint());
    EXPECT_EQ("(absent)", StoredString(*target, "note"));
    target->EndBuild();
    EXPECT_EQ("si", Text(target->true_string()));
    EXPECT_FALSE(open->IsBuild());
}

// --- settings --------------------------------------------------------------

ilu_ptr<luPreferences> BuiltPreferences(
    std::initializer_list<std::pair<const char*, const char*>> prefs = {}) {
    ilu_ptr<luPreferences> preferences = NewPreferences();
    for (const auto& p : prefs) preferences->AddPreference(p.first, U(p.second));
    preferences->EndBuild();
    return preferences;
}

const luSettingsImp& Imp(const ilu_ptr<luSettings>& settings) {
    return *settings->GetImp();
}

TEST(SettingsTest, DefaultFormatsByNumber) {
    for (const char* name : {"C", "de_DE"}) {
        SCOPED_TRACE(name);
        const lu_locale locale =
            std::strcmp(name, "C") == 0 ? lu_locale::classic() : lu_locale(name);
        ilu_ptr<luSettings> settings = Settings(locale);
        ASSERT_TRUE(settings);
        const lu_ctime& dates = lu_use_facet<lu_ctime>(locale);
        const lu_numpunct& numbers = lu_use_facet<lu_numpunct>(locale);
        for (int i = 0; i <= 14; ++i) {
            ASSERT_NE(nullptr, settings->GetFmtLibDefaultFormat(i)) << i;
            EXPECT_EQ(Text(dates.GetFmtLibDefaultFormat(i)),
                      Text(settings->GetFmtLibDefaultFormat(i)))
                << i;
        }
        for (int i = 20; i <= 23; ++i)
            EXPECT_EQ(Text(numbers.GetFmtLibDefaultFormat(i - 20)),
                      Text(settings->GetFmtLibDefaultFormat(i)))
                << i;
        EXPECT_EQ("T[bt]T[FS]T[bt]T[FS]T[bf]", Text(settings->GetFmtLibDefaultFormat(24)));
        for (int i : {-1, 15, 16, 17, 18, 19, 25, 26, 100, 350})
            EXPECT_EQ(nullptr, settings->GetFmtLibDefaultFormat(i)) << i;
    }
    // The classic locale's own texts, as a fixed point of reference.
    ilu_ptr<luSettings> classic = Settings(lu_locale::classic());
    EXPECT_EQ("T[#]T[gs]T[#]T[#]T[0]T[ds]T[#]T[#]", Text(classic->GetFmtLibDefaultFormat(20)));
    EXPECT_EQ("T[#]T[gs]T[#]T[#]T[0]L[%]", Text(classic->GetFmtLibDefaultFormat(22)));
    EXPECT_EQ("T[dn]L[ ]T[d]L[ ]T[mt]L[ ]T[y4]", Text(classic->GetFmtLibDefaultFormat(0)));
}

TEST(SettingsTest, PreferencesWinOverTheLocale) {
    const lu_locale locale = GroupedLocale({3});
    ilu_ptr<luSettings> plain = Settings(locale);
    EXPECT_EQ(u'.', Imp(plain).DecimalPoint());
    EXPECT_EQ(u',', Imp(plain).ThousandsSep());
    EXPECT_EQ("true", Text(Imp(plain).TrueString()));
    EXPECT_EQ("false", Text(Imp(plain).FalseString()));

    ilu_ptr<luSettings> wished = Settings(locale, {{"decimal_point", ","},
                                                   {"thousands_sep", "'"},
                                                   {"true_word", "vrai"},
                                                   {"false_word", "faux"}});
    EXPECT_EQ(u',', Imp(wished).DecimalPoint());
    EXPECT_EQ(u'\'', Imp(wished).ThousandsSep());
    EXPECT_EQ("vrai", Text(Imp(wished).TrueString()));
    EXPECT_EQ("faux", Text(Imp(wished).FalseString()));

    // One wish leaves the other three to the locale; an empty separator wins
    // too, as no separator at all.
    ilu_ptr<luSettings> one = Settings(locale, {{"thousands_sep", ""}});
    EXPECT_EQ(u'.', Imp(one).DecimalPoint());
    EXPECT_EQ(0, Imp(one).ThousandsSep());
    EXPECT_EQ("true", Text(Imp(one).TrueString()));
}

TEST(SettingsTest, OpenPreferencesCountOnlyOnceBuilt) {
    ilu_ptr<luPreferences> prefs = NewPreferences();
    prefs->AddPreference("decimal_point", U(","));
    ilu_ptr<luSettings> settings;
    ASSERT_EQ(0, CreateSettings(GroupedLocale({3}), prefs, settings));
    EXPECT_EQ(u'.', Imp(settings).DecimalPoint());
    // The settings read the store at every call.
    prefs->EndBuild();
    EXPECT_EQ(u',', Imp(settings).DecimalPoint());
}

// The classic locale with a number facet whose signs and exponent letter are
// not the usual ones: positive "p", negative "m", exponent "x" / "X".
lu_locale SignedLocale() {
    static const unsigned short kBlock[] = {u'p', u'm', u'0', u'1', u'2', u'3', u'4', u'5', u'6',
                                            u'7', u'8', u'9', u'a', u'b', u'c', u'd', u'e', u'f',
                                            u'0', u'1', u'2', u'3', u'4', u'5', u'6', u'7', u'8',
                                            u'9', u'A', u'B', u'C', u'D', u'E', u'F', u'x', u'X'};
    auto* punct = new lu_numpunct(0u);
    punct->init('.', ',', ucs2string(), kBlock);
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    impl->_M_install_facet(&lu_numpunct::id, punct);
    return lu_locale(impl);
}

TEST(SettingsTest, SignsComeFromTheLocaleOnly) {
    ilu_ptr<luSettings> settings = Settings(
        SignedLocale(), {{"negative_sign", "~"}, {"positive_sign", "^"}, {"exponent_sign", "E"}});
    EXPECT_EQ(u'm', Imp(settings).NegativeSign());
    EXPECT_EQ(u'p', Imp(settings).PositiveSign());
    EXPECT_EQ(u'x', Imp(settings).ExponentSign());
    ilu_ptr<luSettings> classic = Settings(lu_locale::classic());
    EXPECT_EQ(u'-', Imp(classic).NegativeSign());
    EXPECT_EQ(u'+', Imp(classic).PositiveSign());
    EXPECT_EQ(u'e', Imp(classic).ExponentSign());
    EXPECT_EQ(u'0', Imp(classic).Digits()[0]);
    EXPECT_EQ(u'9', Imp(classic).Digits()[9]);
}

std::vector<int> GroupPositions(std::initializer_list<unsigned short> sizes) {
    ilu_ptr<luSettings> settings = Settings(GroupedLocale(sizes));
    std::vector<int> bits;
    for (int n = -5; n < 300; ++n)
        if (Imp(settings).IsGroupPosition(n)) bits.push_back(n);
    return bits;
}

std::vector<int> Every(int first, int step) {
    std::vector<int> bits;
    for (int n = first; n < 256; n += step) bits.push_back(n);
    return bits;
}

TEST(SettingsTest, GroupingMap) {
    EXPECT_EQ(Every(2, 3), GroupPositions({3}));  // 2, 5, ..., 254
    EXPECT_EQ(85u, GroupPositions({3}).size());
    EXPECT_EQ(Every(2, 2), GroupPositions({3, 2}));  // 2, 4, ..., 254
    EXPECT_EQ(Every(0, 1), GroupPositions({1}));
    EXPECT_EQ((std::vector<int>{}), GroupPositions({}));
    EXPECT_EQ((std::vector<int>{}), GroupPositions({0xFFFF}));
    EXPECT_EQ((std::vector<int>{}), GroupPositions({257}));
    // A size of 0 ends the list: 3, 0, 5 is 3 repeated.
    EXPECT_EQ(Every(2, 3), GroupPositions({3, 0, 5}));
    // Each size moves on from the last position; the last one repeats.
    std::vector<int> stepped{3, 5};
    for (int n : Every(6, 1)) stepped.push_back(n);
    EXPECT_EQ(stepped, GroupPositions({4, 2, 1}));
    // Positions running past 255 end the map there.
    EXPECT_EQ((std::vector<int>{249, 252, 255}), GroupPositions({250, 3}));
    EXPECT_EQ((std::vector<int>{199}), GroupPositions({200, 100}));
    EXPECT_EQ((std::vector<int>{255}), GroupPositions({256}));
    EXPECT_EQ((std::vector<int>{1}), GroupPositions({2, 255}));
    EXPECT_EQ((std::vector<int>{2}), GroupPositions({3, 0xFFFF}));
}

TEST(SettingsTest, GroupingMapOfTheLocaleData) {
    EXPECT_EQ((std::vector<int>{}), [] {
        ilu_ptr<luSettings> settings = Settings(lu_locale::classic());
        std::vector<int> bits;
        for (int n = 0; n < 256; ++n)
            if (Imp(settings).IsGroupPosition(n)) bits.push_back(n);
        return bits;
    }());
    ilu_ptr<luSettings> hindi = Settings(lu_locale("hi_IN"));  // groups of 3, then 2
    for (int n = 0; n < 256; ++n)
        EXPECT_EQ(n >= 2 && n % 2 == 0, Imp(hindi).IsGroupPosition(n)) << n;
}

// The classic locale with its date names replaced by `storage`.
lu_locale WithDateNames(const lu_ctime_impl::StaticStorage* storage) {
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    impl->_M_install_facet(&lu_ctime::id, new lu_ctime(storage, 0));
    return lu_locale(impl);
}

TEST(SettingsTest, HalfDayNames) {
    ilu_ptr<luSettings> classic = Settings(lu_locale::classic());
    EXPECT_EQ("AM", Text(Imp(classic).AmPmName(0)));
    EXPECT_EQ("PM", Text(Imp(classic).AmPmName(1)));
    ilu_ptr<luSettings> hindi = Settings(lu_locale("hi_IN"));
    EXPECT_EQ(Text(lu_use_facet<lu_ctime>(lu_locale("hi_IN")).GetAmPm(0)),
              Text(Imp(hindi).AmPmName(0)));
    EXPECT_EQ("am", Text(Imp(hindi).AmPmName(0)));
    EXPECT_EQ("pm", Text(Imp(hindi).AmPmName(1)));

    static const unsigned short kMorning[] = {u'v', u'o', u'r', u'm', u'.', 0};
    static const unsigned short kEmpty[] = {0};
    static const unsigned short* const kFirstEmpty[] = {kEmpty, kMorning};
    static const unsigned short* const kSecondNull[] = {kMorning, nullptr};
    static lu_ctime_impl::StaticStorage firstEmpty = lu_ctime_impl::kDefaultCtimeStorage;
    static lu_ctime_impl::StaticStorage secondNull = lu_ctime_impl::kDefaultCtimeStorage;
    firstEmpty.am_pm = kFirstEmpty;
    secondNull.am_pm = kSecondNull;

    ilu_ptr<luSettings> a = Settings(WithDateNames(&firstEmpty));
    EXPECT_EQ("AM", Text(Imp(a).AmPmName(0)));
    EXPECT_EQ("vorm.", Text(Imp(a).AmPmName(1)));
    ilu_ptr<luSettings> b = Settings(WithDateNames(&secondNull));
    EXPECT_EQ("vorm.", Text(Imp(b).AmPmName(0)));
    EXPECT_EQ("PM", Text(Imp(b).AmPmName(1)));
}

TEST(SettingsTest, CreateSettingsFailures) {
    ilu_ptr<luPreferences> prefs = BuiltPreferences();
    ilu_ptr<luSettings> existing = Settings(lu_locale::classic());
    ilu_ptr<luSettings> out = existing;

    ilu_ptr<luPreferences> none;
    EXPECT_EQ(LU_E_FAIL, CreateSettings(lu_locale::classic(), none, out));
    EXPECT_EQ(existing.get(), out.get());

    // A locale with date names and character classes but no number facet.
    auto* impl = new lu_locale::_Impl(20, 0);
    impl->_M_install_facet(&lu_ctime::id, new lu_ctime(0u));
    impl->_M_install_facet(&lu_ctype::id, new lu_ctype(0u));
    const lu_locale noNumbers(impl);
    EXPECT_EQ(LU_E_FAIL, CreateSettings(noNumbers, prefs, out));
    EXPECT_EQ(existing.get(), out.get());
    // No facets at all.
    EXPECT_EQ(LU_E_FAIL, CreateSettings(lu_locale(nullptr), prefs, out));
    EXPECT_EQ(existing.get(), out.get());
    EXPECT_EQ(1u, prefs->GetReferenceCount());  // nothing kept a count

    // An empty out stays empty.
    ilu_ptr<luSettings> empty;
    EXPECT_EQ(LU_E_FAIL, CreateSettings(noNumbers, prefs, empty));
    EXPECT_FALSE(empty);
}

TEST(SettingsTest, CountsAndLifetimes) {
    ilu_ptr<luPreferences> prefs = BuiltPreferences({{"decimal_point", ","}});
    EXPECT_EQ(1u, prefs->GetReferenceCount());
    ilu_ptr<luSettings> settings;
    {
        const lu_locale local = GroupedLocale({3});  // the settings keep a copy
        ASSERT_EQ(0, CreateSettings(local, prefs, settings));
    }
    EXPECT_EQ(1u, settings->GetReferenceCount());
    EXPECT_EQ(2u, prefs->GetReferenceCount());  // held by the settings
    EXPECT_EQ(u',', Imp(settings).DecimalPoint());
    EXPECT_EQ(u',', Imp(settings).ThousandsSep());
    EXPECT_TRUE(Imp(settings).IsGroupPosition(2));

    luNumberFormat* format = nullptr;
    ASSERT_EQ(0, CreateDefaultNumberFormat(settings, STANDARD, format));
    EXPECT_EQ(2u, settings->GetReferenceCount());  // held by the formatter
    delete format;
    EXPECT_EQ(1u, settings->GetReferenceCount());

    settings = nullptr;
    EXPECT_EQ(1u, prefs->GetReferenceCount());
}

}  // namespace

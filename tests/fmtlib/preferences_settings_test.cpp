// Preferences (what a user wants to differ from the locale) and settings (a
// locale joined to preferences): building, copying, counting, which side
// wins, the grouping map and the half-day names.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
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

std::string Text(const unsigned short* units) {
    return units == nullptr ? std::string("(null)") : Utf8(ucs2string(units));
}

std::string Unit(unsigned short unit) {
    return unit == 0 ? "" : Utf8(ucs2string(&unit, 1));
}

// Adds each "key=value"; a value "#7" is the number 7. Returns how many were
// taken.
int Add(luPreferences& prefs, std::initializer_list<std::string> entries) {
    int taken = 0;
    for (const std::string& entry : entries) {
        const std::string key = entry.substr(0, entry.find('='));
        const std::string value = entry.substr(key.size() + 1);
        taken += value[0] == '#' ? prefs.AddPreference(key.c_str(), std::atol(value.c_str() + 1))
                                 : prefs.AddPreference(key.c_str(), U(value));
    }
    return taken;
}

// "(absent)", the text, or "#n" for a number; an entry is of exactly one kind
// and the other getter leaves its argument alone.
std::string Stored(const luPreferences& prefs, const char* key) {
    bool found = false;
    const luPref& pref = prefs.GetAt(key, found);
    if (!found) return "(absent)";
    ucs2string text = U("untouched");
    long number = -999;
    const bool isText = pref.GetString(text);
    EXPECT_NE(isText, pref.GetLong(number)) << key;
    EXPECT_EQ(isText, pref.IsString()) << key;
    if (isText) {
        EXPECT_EQ(-999, number) << key;
        return Utf8(text);
    }
    EXPECT_EQ("untouched", Utf8(text)) << key;
    return "#" + std::to_string(number);
}

// "open"/"built", then what EndBuild took for decimal_point|thousands_sep|
// true_word|false_word, "-" for one not taken.
std::string Taken(const luPreferencesImp& p) {
    auto unit = [](bool has, unsigned short u) { return has ? Unit(u) : u == 0 ? "-" : "?"; };
    auto text = [](bool has, const unsigned short* t) { return has ? Text(t) : t ? "?" : "-"; };
    return std::string(p.IsBuild() ? "built " : "open ") +
           unit(p.IsDecimalPoint(), p.decimal_point()) + "|" +
           unit(p.IsThousandsSep(), p.thousands_sep()) + "|" + text(p.IsTrue(), p.true_string()) +
           "|" + text(p.IsFalse(), p.false_string());
}
std::string Taken(const ilu_ptr<luPreferences>& prefs) {
    return Taken(*prefs->GetImp());
}

ilu_ptr<luPreferences> NewPreferences(std::initializer_list<std::string> entries = {}) {
    ilu_ptr<luPreferences> prefs;
    EXPECT_EQ(0, CreatePreferences(prefs));
    Add(*prefs, entries);
    return prefs;
}

TEST(PreferencesTest, FreshStoreIsOpenEmptyAndCountedOnce) {
    ilu_ptr<luPreferences> prefs = NewPreferences();
    ASSERT_TRUE(prefs);
    EXPECT_EQ(1u, prefs->GetReferenceCount());
    EXPECT_EQ("open -|-|-|-", Taken(prefs));
    EXPECT_EQ("(absent)", Stored(*prefs, "decimal_point"));
}

TEST(PreferencesTest, EndBuildTakesTheFourStringKeys) {
    const struct {
        std::initializer_list<std::string> entries;
        const char* taken;
    } rows[] = {
        // the first unit only; other keys mean nothing
        {{"decimal_point=<>", "thousands_sep=\u202F", "true_word=oui", "false_word=non",
          "colour_scheme=dark", "precision=#7"},
         "built <|\u202F|oui|non"},
        {{"decimal_point=#44", "true_word=#1"}, "built -|-|-|-"},  // numbers have no effect
        {{"thousands_sep=", "false_word="}, "built -||-|"},        // empty texts count
    };
    for (const auto& row : rows) {
        ilu_ptr<luPreferences> prefs;
        ASSERT_EQ(0, CreatePreferences(prefs));
        EXPECT_EQ(static_cast<int>(row.entries.size()), Add(*prefs, row.entries));
        EXPECT_EQ("open -|-|-|-", Taken(prefs));  // nothing is taken before EndBuild
        EXPECT_FALSE(prefs->EndBuild());          // the result carries no information
        EXPECT_EQ(row.taken, Taken(prefs));
        for (const std::string& e : row.entries) {
            const std::string key = e.substr(0, e.find('='));
            EXPECT_EQ(e.substr(key.size() + 1), Stored(*prefs, key.c_str()));
        }
    }
    ilu_ptr<luPreferences> prefs = NewPreferences({"name=value"});
    bool found = true;
    prefs->GetAt("missing", found);
    EXPECT_FALSE(found);
    EXPECT_EQ("(absent)", Stored(*prefs, "nam"));  // keys are whole texts
}

TEST(PreferencesTest, AddAndRemoveWhileOpenOnly) {
    ilu_ptr<luPreferences> prefs =
        NewPreferences({"decimal_point=,", "digits=#3", "true_word=yes", "false_word=no"});
    // The first value of a key stays, whatever its kind.
    EXPECT_EQ(0, Add(*prefs, {"decimal_point=;", "decimal_point=#46", "digits=#4", "digits=4"}));
    EXPECT_FALSE(prefs->RemovePreference("absent"));
    EXPECT_TRUE(prefs->RemovePreference("true_word"));
    EXPECT_FALSE(prefs->RemovePreference("true_word"));
    EXPECT_EQ("(absent)", Stored(*prefs, "true_word"));
    EXPECT_EQ(1, Add(*prefs, {"true_word=ja"}));  // the key is free again

    prefs->EndBuild();
    EXPECT_EQ(0, Add(*prefs, {"thousands_sep=.", "number=#2"}));
    EXPECT_FALSE(prefs->RemovePreference("false_word"));
    EXPECT_FALSE(prefs->EndBuild());  // a second EndBuild does nothing
    EXPECT_EQ("built ,|-|ja|no", Taken(prefs));
    EXPECT_EQ("(absent)", Stored(*prefs, "thousands_sep"));
    EXPECT_EQ(",", Stored(*prefs, "decimal_point"));
    EXPECT_EQ("#3", Stored(*prefs, "digits"));
    EXPECT_EQ("no", Stored(*prefs, "false_word"));
}

TEST(PreferencesTest, CopiesHaveTheirOwnValues) {
    ilu_ptr<luPreferences> source = NewPreferences({"true_word=x", "decimal_point=,", "n=#9"});
    source->EndBuild();
    ilu_ptr<luPreferences> copy;
    ASSERT_EQ(0, CreatePreferences(*source, copy));
    ASSERT_TRUE(copy);
    EXPECT_NE(source.get(), copy.get());
    EXPECT_EQ(1u, copy->GetReferenceCount());
    // A copy of a built store is open, with every entry of its own kind.
    EXPECT_EQ("open -|-|-|-", Taken(copy));
    EXPECT_EQ("#9", Stored(*copy, "n"));
    EXPECT_EQ(1, Add(*copy, {"false_word=falsch"}));
    EXPECT_TRUE(copy->RemovePreference("decimal_point"));
    copy->EndBuild();
    EXPECT_EQ("built -|-|x|falsch", Taken(copy));
    EXPECT_EQ("built ,|-|x|-", Taken(source));
    EXPECT_EQ("(absent)", Stored(*source, "false_word"));

    // Assignment copies the state and the values, not the count.
    ilu_ptr<luPreferencesImp> target(new luPreferencesImp());
    Add(*target, {"only_in_target=gone"});
    {
        ilu_ptr<luPreferencesImp> built(new luPreferencesImp());
        Add(*built, {"decimal_point=,", "thousands_sep=.", "false_word=nein", "note=kept", "n=#4"});
        built->EndBuild();
        *target = *built;
        EXPECT_EQ(1u, built->GetReferenceCount());
        EXPECT_EQ(1u, target->GetReferenceCount());
    }  // the source and its values are deleted here
    EXPECT_EQ("built ,|.|-|nein", Taken(*target));
    EXPECT_EQ("kept", Stored(*target, "note"));
    EXPECT_EQ("#4", Stored(*target, "n"));
    EXPECT_EQ("(absent)", Stored(*target, "only_in_target"));
    EXPECT_EQ(0, Add(*target, {"other=x"}));  // built, like its source
    // An open source gives an open target, which takes its values at its own
    // EndBuild.
    ilu_ptr<luPreferencesImp> open(new luPreferencesImp());
    Add(*open, {"true_word=si"});
    *target = *open;
    EXPECT_EQ("open -|-|-|-", Taken(*target));
    EXPECT_EQ("(absent)", Stored(*target, "note"));
    target->EndBuild();
    EXPECT_EQ("built -|-|si|-", Taken(*target));
    EXPECT_FALSE(open->IsBuild());
}

// --- settings --------------------------------------------------------------

const luSettingsImp& Imp(const ilu_ptr<luSettings>& settings) {
    return *settings->GetImp();
}

// Point|separator|true|false|signs and exponent letter|digits 0 and 9.
std::string Answers(const ilu_ptr<luSettings>& settings) {
    const luSettingsImp& s = Imp(settings);
    return Unit(s.DecimalPoint()) + "|" + Unit(s.ThousandsSep()) + "|" + Text(s.TrueString()) +
           "|" + Text(s.FalseString()) + "|" + Unit(s.NegativeSign()) + Unit(s.PositiveSign()) +
           Unit(s.ExponentSign()) + "|" + Unit(s.Digits()[0]) + Unit(s.Digits()[9]);
}

TEST(SettingsTest, DefaultFormatsByNumber) {
    for (const lu_locale& locale : {lu_locale::classic(), lu_locale("de_DE")}) {
        ilu_ptr<luSettings> settings = Settings(locale);
        auto at = [&](int i) { return Text(settings->GetFmtLibDefaultFormat(i)); };
        for (int i = 0; i <= 14; ++i) {
            EXPECT_EQ(Text(lu_use_facet<lu_ctime>(locale).GetFmtLibDefaultFormat(i)), at(i));
            EXPECT_NE("(null)", at(i)) << i;
        }
        for (int i = 20; i <= 23; ++i)
            EXPECT_EQ(Text(lu_use_facet<lu_numpunct>(locale).GetFmtLibDefaultFormat(i - 20)),
                      at(i));
        EXPECT_EQ("T[bt]T[FS]T[bt]T[FS]T[bf]", at(24));
        for (int i : {-1, 15, 19, 25, 350}) EXPECT_EQ("(null)", at(i)) << i;
    }
    // The classic locale's own texts, as a fixed point of reference.
    ilu_ptr<luSettings> classic = Settings(lu_locale::classic());
    EXPECT_EQ("T[#]T[gs]T[#]T[#]T[0]T[ds]T[#]T[#]", Text(classic->GetFmtLibDefaultFormat(20)));
    EXPECT_EQ("T[#]T[gs]T[#]T[#]T[0]L[%]", Text(classic->GetFmtLibDefaultFormat(22)));
    EXPECT_EQ("T[dn]L[ ]T[d]L[ ]T[mt]L[ ]T[y4]", Text(classic->GetFmtLibDefaultFormat(0)));
}

TEST(SettingsTest, PreferencesWinOverTheLocaleButNotForSigns) {
    const lu_locale locale = GroupedLocale({3});
    EXPECT_EQ(".|,|true|false|-+e|09", Answers(Settings(locale)));
    EXPECT_EQ(",|'|vrai|faux|-+e|09", Answers(Settings(locale, {{"decimal_point", ","},
                                                                {"thousands_sep", "'"},
                                                                {"true_word", "vrai"},
                                                                {"false_word", "faux"}})));
    // One wish leaves the rest to the locale; an empty separator wins too.
    EXPECT_EQ(".||true|false|-+e|09", Answers(Settings(locale, {{"thousands_sep", ""}})));

    // Signs "p" and "m", exponent letters "x" and "X": no preference changes them.
    static const unsigned short kBlock[] = {u'p', u'm', u'0', u'1', u'2', u'3', u'4', u'5', u'6',
                                            u'7', u'8', u'9', u'a', u'b', u'c', u'd', u'e', u'f',
                                            u'0', u'1', u'2', u'3', u'4', u'5', u'6', u'7', u'8',
                                            u'9', u'A', u'B', u'C', u'D', u'E', u'F', u'x', u'X'};
    auto* punct = new lu_numpunct(0u);
    punct->init('.', ',', ucs2string(), kBlock);
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    impl->_M_install_facet(&lu_numpunct::id, punct);
    EXPECT_EQ(".|,|true|false|mpx|09",
              Answers(Settings(
                  lu_locale(impl),
                  {{"negative_sign", "~"}, {"positive_sign", "^"}, {"exponent_sign", "E"}})));

    // Open preferences count only once built: the settings read the store at
    // every call.
    ilu_ptr<luPreferences> prefs = NewPreferences({"decimal_point=,"});
    ilu_ptr<luSettings> settings;
    ASSERT_EQ(0, CreateSettings(locale, prefs, settings));
    EXPECT_EQ(u'.', Imp(settings).DecimalPoint());
    prefs->EndBuild();
    EXPECT_EQ(u',', Imp(settings).DecimalPoint());
}

// first, first + step, ... below 256, after the positions in `head`.
std::vector<int> Every(int first, int step, std::vector<int> head = {}) {
    for (int n = first; n < 256; n += step) head.push_back(n);
    return head;
}

// A size of 0 ends the list; each size moves on from the last position and
// the last one repeats; positions running past 255 end the map there.
TEST(SettingsTest, GroupingMap) {
    const struct {
        lu_locale locale;
        std::vector<int> positions;
    } rows[] = {{GroupedLocale({3}), Every(2, 3)},
                {GroupedLocale({3, 2}), Every(2, 2)},
                {GroupedLocale({1}), Every(0, 1)},
                {GroupedLocale({3, 0, 5}), Every(2, 3)},
                {GroupedLocale({4, 2, 1}), Every(6, 1, {3, 5})},
                {GroupedLocale({}), {}},
                {GroupedLocale({0xFFFF}), {}},
                {GroupedLocale({257}), {}},
                {GroupedLocale({250, 3}), {249, 252, 255}},
                {GroupedLocale({200, 100}), {199}},
                {GroupedLocale({256}), {255}},
                {GroupedLocale({2, 255}), {1}},
                {GroupedLocale({3, 0xFFFF}), {2}},
                {lu_locale::classic(), {}},
                {lu_locale("hi_IN"), Every(2, 2)}};
    for (const auto& row : rows) {
        ilu_ptr<luSettings> settings = Settings(row.locale);
        std::vector<int> positions;
        for (int n = -5; n < 300; ++n)
            if (Imp(settings).IsGroupPosition(n)) positions.push_back(n);
        EXPECT_EQ(row.positions, positions) << "row " << &row - rows;
    }
}

// An empty or missing name falls back to AM / PM.
TEST(SettingsTest, HalfDayNames) {
    static const unsigned short kMorning[] = {u'v', u'o', u'r', u'm', u'.', 0}, kEmpty[] = {0};
    static const unsigned short* const kNames[][2] = {
        {nullptr, nullptr}, {nullptr, nullptr}, {kEmpty, kMorning}, {kMorning, nullptr}};
    static lu_ctime_impl::StaticStorage storage[4];
    const char* expected[] = {"AM PM", "am pm", "AM vorm.", "vorm. PM"};
    for (int i = 0; i < 4; ++i) {
        lu_locale locale = i == 0 ? lu_locale::classic() : lu_locale("hi_IN");
        if (i >= 2) {
            storage[i] = lu_ctime_impl::kDefaultCtimeStorage;
            storage[i].am_pm = kNames[i];
            auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
            impl->_M_install_facet(&lu_ctime::id, new lu_ctime(&storage[i], 0));
            locale = lu_locale(impl);
        }
        ilu_ptr<luSettings> settings = Settings(locale);
        EXPECT_EQ(expected[i],
                  Text(Imp(settings).AmPmName(0)) + " " + Text(Imp(settings).AmPmName(1)));
    }
}

TEST(SettingsTest, CreateSettingsFailures) {
    ilu_ptr<luPreferences> prefs = NewPreferences(), none;
    prefs->EndBuild();
    ilu_ptr<luSettings> existing = Settings(lu_locale::classic());
    ilu_ptr<luSettings> out = existing, empty;
    // Date names and character classes but no number facet.
    auto* impl = new lu_locale::_Impl(20, 0);
    impl->_M_install_facet(&lu_ctime::id, new lu_ctime(0u));
    impl->_M_install_facet(&lu_ctype::id, new lu_ctype(0u));
    const lu_locale noNumbers(impl);

    EXPECT_EQ(LU_E_FAIL, CreateSettings(lu_locale::classic(), none, out));
    EXPECT_EQ(LU_E_FAIL, CreateSettings(noNumbers, prefs, out));
    EXPECT_EQ(LU_E_FAIL, CreateSettings(lu_locale(nullptr), prefs, out));
    EXPECT_EQ(existing.get(), out.get());       // out is left alone
    EXPECT_EQ(1u, prefs->GetReferenceCount());  // nothing kept a count
    EXPECT_EQ(LU_E_FAIL, CreateSettings(noNumbers, prefs, empty));
    EXPECT_FALSE(empty);
}

TEST(SettingsTest, CountsAndLifetimes) {
    ilu_ptr<luPreferences> prefs = NewPreferences({"decimal_point=,"});
    prefs->EndBuild();
    ilu_ptr<luSettings> settings;
    {
        const lu_locale local = GroupedLocale({3});  // the settings keep a copy
        ASSERT_EQ(0, CreateSettings(local, prefs, settings));
    }
    EXPECT_EQ(1u, settings->GetReferenceCount());
    EXPECT_EQ(2u, prefs->GetReferenceCount());  // held by the settings
    EXPECT_EQ(",|,|true|false|-+e|09", Answers(settings));
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

// Preferences (what a user wants to differ from the locale) and settings (a locale joined to
// preferences): building, copying, which side wins, the default formats by number, the grouping
// map and the half-day names.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "fmt_test_support.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/frame/result_codes.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

std::string Text(const unsigned short* units) {
    return units == nullptr ? std::string("(null)") : Utf8(units);
}
std::string Unit(unsigned short unit) {
    return unit == 0 ? "" : Utf8(ucs2string(&unit, 1));
}

// Adds each "key=value"; a value "#7" is the number 7. Returns how many were taken.
int Add(luPreferences& prefs, std::initializer_list<std::string> entries) {
    int taken = 0;
    for (const std::string& entry : entries) {
        const std::string key = entry.substr(0, entry.find('=')),
                          value = entry.substr(key.size() + 1);
        taken += value[0] == '#' ? prefs.AddPreference(key.c_str(), std::atol(value.c_str() + 1))
                                 : prefs.AddPreference(key.c_str(), U(value));
    }
    return taken;
}

// "(absent)", the text, or "#n" for a number.
std::string Stored(const luPreferences& prefs, const char* key) {
    bool found = false;
    const luPref& pref = prefs.GetAt(key, found);
    ucs2string text;
    long number = -1;
    if (!found) return "(absent)";
    return pref.GetString(text)   ? Utf8(text)
           : pref.GetLong(number) ? "#" + std::to_string(number)
                                  : "?";
}

// "open"/"built", then what EndBuild took for decimal_point|thousands_sep|true_word|false_word,
// "-" for one not taken.
std::string Taken(const luPreferences& prefs) {
    const luPreferencesImp& p = *prefs.GetImp();
    auto unit = [](bool has, unsigned short u) { return has ? Unit(u) : u == 0 ? "-" : "?"; };
    auto text = [](bool has, const unsigned short* t) { return has ? Text(t) : t ? "?" : "-"; };
    return std::string(p.IsBuild() ? "built " : "open ") +
           unit(p.IsDecimalPoint(), p.decimal_point()) + "|" +
           unit(p.IsThousandsSep(), p.thousands_sep()) + "|" + text(p.IsTrue(), p.true_string()) +
           "|" + text(p.IsFalse(), p.false_string());
}

ilu_ptr<luPreferences> NewPreferences(std::initializer_list<std::string> entries) {
    ilu_ptr<luPreferences> prefs;
    EXPECT_EQ(0, CreatePreferences(prefs));
    Add(*prefs, entries);
    return prefs;
}

// The first unit only; numbers have no effect; empty texts count. Nothing is taken before
// EndBuild, and after it the store is fixed.
TEST(PreferencesTest, EndBuildTakesTheFourStringKeysAndFixesTheStore) {
    const struct {
        std::initializer_list<std::string> entries;
        const char* taken;
    } rows[] = {{{"decimal_point=<>", "thousands_sep=\u202F", "true_word=oui", "false_word=non"},
                 "built <|\u202F|oui|non"},
                {{"decimal_point=#44", "true_word=#1", "precision=#7"}, "built -|-|-|-"},
                {{"thousands_sep=", "false_word="}, "built -||-|"}};
    for (const auto& row : rows) {
        ilu_ptr<luPreferences> prefs = NewPreferences(row.entries);
        EXPECT_EQ("open -|-|-|-", Taken(*prefs));
        EXPECT_FALSE(prefs->EndBuild());  // the result carries no information
        EXPECT_EQ(row.taken, Taken(*prefs));
        for (const std::string& e : row.entries)
            EXPECT_EQ(e.substr(e.find('=') + 1), Stored(*prefs, e.substr(0, e.find('=')).c_str()));
    }
    ilu_ptr<luPreferences> prefs =
        NewPreferences({"decimal_point=,", "digits=#3", "true_word=yes"});
    // The first value of a key stays, whatever its kind; keys are whole texts.
    EXPECT_EQ(0, Add(*prefs, {"decimal_point=;", "decimal_point=#46", "digits=#4", "digits=4"}));
    EXPECT_EQ("(absent)", Stored(*prefs, "digit"));
    EXPECT_FALSE(prefs->RemovePreference("absent"));
    EXPECT_TRUE(prefs->RemovePreference("true_word"));
    EXPECT_FALSE(prefs->RemovePreference("true_word"));
    EXPECT_EQ(1, Add(*prefs, {"true_word=ja"}));  // the key is free again
    prefs->EndBuild();
    EXPECT_EQ(0, Add(*prefs, {"thousands_sep=.", "number=#2"}));
    EXPECT_FALSE(prefs->RemovePreference("digits"));
    EXPECT_FALSE(prefs->EndBuild());  // a second one takes nothing more
    EXPECT_EQ("built ,|-|ja|-", Taken(*prefs));
    EXPECT_EQ("#3", Stored(*prefs, "digits"));
}

// A copy holds values of its own, of their own kind; an assigned one also the source's state: a
// copy of an open store is open and takes its values at its own EndBuild.
TEST(PreferencesTest, CopiesHaveTheirOwnValues) {
    ilu_ptr<luPreferences> source = NewPreferences({"true_word=x", "decimal_point=,", "n=#9"});
    source->EndBuild();
    ilu_ptr<luPreferences> copy;
    ASSERT_EQ(0, CreatePreferences(*source, copy));
    EXPECT_TRUE(copy->RemovePreference("decimal_point"));  // made from a built store, but open
    copy->EndBuild();
    EXPECT_EQ("built -|-|x|- #9", Taken(*copy) + " " + Stored(*copy, "n"));
    EXPECT_EQ("built ,|-|x|-", Taken(*source));
    ilu_ptr<luPreferencesImp> target(new luPreferencesImp()), built(new luPreferencesImp());
    Add(*target, {"only_in_target=gone"});
    Add(*built, {"decimal_point=,", "thousands_sep=.", "false_word=nein", "n=#4"});
    built->EndBuild();
    *target = *built;
    built = new luPreferencesImp();  // the first source and its values are deleted
    EXPECT_EQ("built ,|.|-|nein #4 (absent)", Taken(*target) + " " + Stored(*target, "n") + " " +
                                                  Stored(*target, "only_in_target"));
    Add(*built, {"true_word=si"});
    *target = *built;
    target->EndBuild();
    EXPECT_EQ("built -|-|si|-", Taken(*target));
}

const luSettingsImp& Imp(const ilu_ptr<luSettings>& settings) {
    return *settings->GetImp();
}

// Which side wins for each value is seen in the number formats' output; here, when.
TEST(SettingsTest, PreferencesCountOnceBuiltAndDefaultFormatsByNumber) {
    const lu_locale locale = GroupedLocale({3});
    // Open preferences count only once built: the settings read the store at every call.
    ilu_ptr<luPreferences> prefs = NewPreferences({"decimal_point=,"});
    ilu_ptr<luSettings> settings;
    ASSERT_EQ(0, CreateSettings(locale, prefs, settings));
    EXPECT_EQ(u'.', Imp(settings).DecimalPoint());
    prefs->EndBuild();
    EXPECT_EQ(u',', Imp(settings).DecimalPoint());
    // The default formats by number: dates 0 to 14, numbers 20 to 23, the boolean layout 24.
    const lu_locale german("de_DE");
    settings = Settings(german);
    auto at = [&](int i) { return Text(settings->GetFmtLibDefaultFormat(i)); };
    for (int i : {0, 14})
        EXPECT_EQ(Text(lu_use_facet<lu_ctime>(german).GetFmtLibDefaultFormat(i)), at(i));
    for (int i : {20, 23})
        EXPECT_EQ(Text(lu_use_facet<lu_numpunct>(german).GetFmtLibDefaultFormat(i - 20)), at(i));
    EXPECT_NE("(null)", at(14));
    EXPECT_EQ("T[bt]T[FS]T[bt]T[FS]T[bf]", at(24));
    for (int i : {-1, 15, 19, 25}) EXPECT_EQ("(null)", at(i)) << i;
}

// first, first + step, ... below 256, after the positions in `head`.
std::vector<int> Every(int first, int step, std::vector<int> head = {}) {
    for (int n = first; n < 256; n += step) head.push_back(n);
    return head;
}

// A size of 0 ends the list; each size moves on from the last position and the last one repeats;
// positions running past 255 end the map there.
TEST(SettingsTest, GroupingMap) {
    // clang-format off
    const struct {
        lu_locale locale;
        std::vector<int> positions;
    } rows[] = {
        {GroupedLocale({3}), Every(2, 3)}, {GroupedLocale({1}), Every(0, 1)},
        {GroupedLocale({3, 0, 5}), Every(2, 3)}, {GroupedLocale({4, 2, 1}), Every(6, 1, {3, 5})},
        {GroupedLocale({}), {}}, {GroupedLocale({0xFFFF}), {}}, {GroupedLocale({257}), {}},
        {GroupedLocale({250, 3}), {249, 252, 255}}, {GroupedLocale({200, 100}), {199}},
        {GroupedLocale({256}), {255}}, {GroupedLocale({3, 0xFFFF}), {2}},
        {lu_locale("hi_IN"), Every(2, 2)}};
    // clang-format on
    for (const auto& row : rows) {
        ilu_ptr<luSettings> settings = Settings(row.locale);
        std::vector<int> positions;
        for (int n = -5; n < 300; ++n)
            if (Imp(settings).IsGroupPosition(n)) positions.push_back(n);
        EXPECT_EQ(row.positions, positions) << "row " << &row - rows;
    }
}

// An empty or missing half-day name falls back to AM / PM.
TEST(SettingsTest, HalfDayNames) {
    static const unsigned short kMorning[] = {u'v', u'o', u'r', u'm', u'.', 0}, kEmpty[] = {0};
    static const unsigned short* const kNames[][2] = {{kEmpty, kMorning}, {kMorning, nullptr}};
    static lu_ctime_impl::StaticStorage storage[2] = {lu_ctime_impl::kDefaultCtimeStorage,
                                                      lu_ctime_impl::kDefaultCtimeStorage};
    for (int i = 0; i < 2; ++i) {
        storage[i].am_pm = kNames[i];
        auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
        impl->_M_install_facet(&lu_ctime::id, new lu_ctime(&storage[i], 0));
        ilu_ptr<luSettings> settings = Settings(lu_locale(impl));
        EXPECT_EQ(i == 0 ? "AM vorm." : "vorm. PM",
                  Text(Imp(settings).AmPmName(0)) + " " + Text(Imp(settings).AmPmName(1)));
    }
}

TEST(SettingsTest, FailuresLeaveTheResultAlone) {
    ilu_ptr<luPreferences> prefs = NewPreferences({"decimal_point=,"}), none;
    prefs->EndBuild();
    ilu_ptr<luSettings> existing = Settings(lu_locale::classic());
    ilu_ptr<luSettings> out = existing;
    auto* impl = new lu_locale::_Impl(20, 0);  // date names and classes, no number facet
    impl->_M_install_facet(&lu_ctime::id, new lu_ctime(0u));
    impl->_M_install_facet(&lu_ctype::id, new lu_ctype(0u));
    EXPECT_EQ(LU_E_FAIL, CreateSettings(lu_locale::classic(), none, out));
    EXPECT_EQ(LU_E_FAIL, CreateSettings(lu_locale(impl), prefs, out));
    EXPECT_EQ(existing.get(), out.get());
    EXPECT_EQ(1u, prefs->GetReferenceCount());  // nothing kept a count
    {
        const lu_locale local = GroupedLocale({3});  // the settings keep a copy
        ASSERT_EQ(0, CreateSettings(local, prefs, out));
    }
    EXPECT_EQ(2u, prefs->GetReferenceCount());  // held by the settings
    EXPECT_EQ(u',', Imp(out).DecimalPoint());
}

}  // namespace

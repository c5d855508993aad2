// The character classes against the Unicode 3.0 files, read here without the library's help.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "facets/ctype_i18n_tables.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/frame/result_codes.h"
#include "test_support.h"

namespace {
namespace ucd {

struct Unit {
    bool assigned = false;
    std::string category, bidi;  // "Lu", "L", ...; empty when unassigned
    int combining = 0;
    bool mirrored = false, whiteSpace = false;  // whiteSpace: "White space" in PropList
    int upper = -1, lower = -1;                 // the simple mappings, -1 for none
    int numerator = 0, denominator = 0;         // (0, 0) when the numeric field is empty
};

int Hex(const std::string& text) {
    return text.empty() ? -1 : static_cast<int>(std::stoul(text, nullptr, 16));
}

std::vector<Unit> Read() {
    std::vector<Unit> units(0x10000);
    std::ifstream data(KAI18N_UCD_DIR "/UnicodeData-3.0.0.txt");
    int rangeFirst = -1;
    for (std::string line; std::getline(data, line);) {
        std::vector<std::string> f;
        std::istringstream in(line);
        for (std::string field; std::getline(in, field, ';');) f.push_back(field);
        if (f.size() < 14 || Hex(f[0]) > 0xFFFF) continue;
        Unit u{true, f[2], f[4], std::stoi(f[3]), f[9] == "Y", false, Hex(f[12]), Hex(f[13])};
        if (!f[8].empty()) {
            const std::size_t slash = f[8].find('/');
            u.numerator = std::stoi(f[8].substr(0, slash));
            u.denominator = slash == std::string::npos ? 1 : std::stoi(f[8].substr(slash + 1));
        }
        const int code = Hex(f[0]);
        if (f[1].find(", First>") != std::string::npos) {
            rangeFirst = code;
            continue;
        }
        const bool last = f[1].find(", Last>") != std::string::npos;
        for (int c = last ? rangeFirst : code; c <= code; ++c) units[c] = u;
    }
    // PropList: "XXXX" or "XXXX..YYYY" lines between the "(White space)" header and the next.
    std::ifstream props(KAI18N_UCD_DIR "/PropList-3.0.1.txt");
    bool inSection = false;
    for (std::string line; std::getline(props, line);) {
        if (line.find("Property dump for:") != std::string::npos)
            inSection = line.find("(White space)") != std::string::npos;
        if (!inSection || line.empty() || !std::isxdigit(static_cast<unsigned char>(line[0])))
            continue;
        const int first = Hex(line.substr(0, 4));
        const int last = line.compare(4, 2, "..") == 0 ? Hex(line.substr(6, 4)) : first;
        for (int c = first; c <= last; ++c) units[c].whiteSpace = true;
    }
    return units;
}

// Whether unit `c` with record `u` has one of the space-separated properties of `set`: a category
// ("Lu"; "L*" for every "L?"), a direction ("AL"), or "white", "mirrored", "unassigned",
// "undefined" (unassigned, not U+FFFF).
bool Holds(unsigned short c, const Unit& u, const std::string& set) {
    std::istringstream in(set);
    for (std::string t; in >> t;) {
        if (t == u.category || t == u.bidi || (t[1] == '*' && t[0] == u.category[0]) ||
            (t == "white" && u.whiteSpace) || (t == "mirrored" && u.mirrored) ||
            (t == "unassigned" && !u.assigned) || (t == "undefined" && !u.assigned && c != 0xFFFF))
            return true;
    }
    return false;
}

// The lu_ctype_abc mask that unit `c` with record `u` must have.
unsigned int ExpectedMask(unsigned short c, const Unit& u) {
    const char* const bits[] = {"", "Zs L* N* P* S* M*", "Cc Cf Zl Zp", "Lu", "Ll", "L*", "Nd", "",
                                "", "L* N* P* S* M*"};
    unsigned int mask = u.whiteSpace ? 0x200000u : 0;
    for (int bit = 0; bit < 10; ++bit) mask |= Holds(c, u, bits[bit]) ? 1u << bit : 0;
    const bool hex = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    return mask | (hex ? 0x0100u : 0);
}

}  // namespace ucd

using test_support::Str;
using test_support::ThrownCode;
using test_support::U16;
using test_support::Units;
using ucd::Unit;
using Impl = lu_ctype_impl;

const Impl::StaticStorage& kTables = Impl::kCtype_i18n;

// A locale holding `facet` (null: the built-in lu_ctype) as its only owner.
lu_locale LocaleWith(lu_ctype* facet = nullptr) {
    auto* impl = new lu_locale::_Impl(2, 0);
    impl->_M_install_facet(&lu_ctype::id, facet != nullptr ? facet : new lu_ctype(0));
    return lu_locale(impl);
}

// Every unit against its record: the facet's masks, case mappings, numeric value, combining class
// (0 for a unit with a case mapping; U+0345 has 240 in the file), each predicate (an unassigned
// unit counts as strong: direction 0 is below PDF), and the expanded tables against their runs.
TEST(CtypeTablesTest, EveryUnitFollowsTheUnicodeData) {
    using Test = bool (Impl::*)(unsigned short) const;
    const Test tests[] = {
        &Impl::IsCntrl,     &Impl::IsPrint,      &Impl::IsGraph,       &Impl::IsAlnum,
        &Impl::IsAlpha,     &Impl::IsNumber,     &Impl::IsPunct,       &Impl::IsSymbol,
        &Impl::IsMark,      &Impl::IsIsoCntrl,   &Impl::IsFmtCntrl,    &Impl::IsLsep,
        &Impl::IsPsep,      &Impl::IsBlank,      &Impl::IsUpper,       &Impl::IsLower,
        &Impl::IsTitle,     &Impl::IsModif,      &Impl::IsDigit,       &Impl::IsLetnum,
        &Impl::IsOpenPunct, &Impl::IsClosePunct, &Impl::IsConnect,     &Impl::IsDash,
        &Impl::IsMath,      &Impl::IsCurrency,   &Impl::IsModifSymbol, &Impl::IsNsMark,
        &Impl::IsSpMark,    &Impl::IsEnclosing,  &Impl::IsPrivate,     &Impl::IsSurrogate,
        &Impl::IsSpace,     &Impl::IsMirroring,  &Impl::IsLtr,         &Impl::IsRtl,
        &Impl::IsStrong,    &Impl::IsWeak,       &Impl::IsNeutral,     &Impl::IsSeparator,
        &Impl::IsUndefined};
    std::vector<std::string> sets;
    std::istringstream in(
        "Cc Cf Zl Zp|Zs L* N* P* S* M*|L* N* P* S* M*|L* N*|L*|N*|P*|S*|M*|Cc|Cf|Zl|Zp|Zs|Lu|Ll|"
        "Lt|Lm|Nd|Nl|Ps Pi|Pe Pf|Pc|Pd|Sm|Sc|Sk|Mn|Mc|Me|Co|Cs|white|mirrored|L LRE LRO EN ES ET|"
        "R AL RLE RLO AN|unassigned L LRE LRO R AL RLE RLO|PDF EN ES ET AN CS NSM BN B S WS ON|"
        "B S WS ON|B S|undefined");
    for (std::string set; std::getline(in, set, '|');) sets.push_back(set);
    ASSERT_EQ(sets.size(), std::size(tests));
    const lu_locale locale = LocaleWith();
    Units all(0x10000);
    for (unsigned int c = 0; c < all.size(); ++c) all[c] = static_cast<unsigned short>(c);
    std::vector<lu_ctype_abc::mask> masks(all.size(), 0xDEAD);
    const unsigned short* const end = all.data() + all.size();
    EXPECT_EQ(lu_use_facet<lu_ctype>(locale).is(all.data(), end, masks.data()), end);
    const Impl impl;
    const std::vector<Unit> records = ucd::Read();
    int failures = 0;
    for (unsigned int c = 0; c <= 0xFFFF && failures < 5; ++c) {
        const Unit& u = records[c];
        int denominator = -1;
        const int numerator = impl.getnumber(c, denominator);
        std::string bad;
        if (!u.assigned && impl.FindProperty(c) != 0) bad += " unassigned but a word";
        if (impl.ToUpper(c) != (u.upper >= 0 ? u.upper : c)) bad += " ToUpper";
        if (impl.ToLower(c) != (u.lower >= 0 ? u.lower : c)) bad += " ToLower";
        if (numerator != u.numerator || denominator != u.denominator) bad += " number";
        if (impl.getdigit(c) != u.numerator) bad += " digit";
        if (impl.getclass(c) != (u.upper >= 0 || u.lower >= 0 ? 0 : u.combining)) bad += " class";
        if (masks[c] != ucd::ExpectedMask(c, u)) bad += " mask " + std::to_string(masks[c]);
        if (impl.FindProperty(c) != Impl::FindPropertyInRuns(kTables, c)) bad += " runs";
        for (std::size_t i = 0; i < sets.size(); ++i) {
            if ((impl.*tests[i])(c) != ucd::Holds(c, u, sets[i])) bad += " [" + sets[i] + "]";
        }
        failures += !bad.empty();
        EXPECT_EQ(bad, "") << "U+" << std::hex << c;  // the first five failing units
    }
    // Only the built-in record (by its five pointers) is expanded: one with a word table of its own
    // is read through its runs.
    std::vector<unsigned int> own(kTables.properties, kTables.properties + kCtypeI18nPropertyCount);
    std::replace(own.begin(), own.end(), impl.FindProperty('A'), 0x58800000u);  // A is now Sc
    Impl::StaticStorage storage = kTables;
    storage.properties = own.data();
    EXPECT_EQ(Impl(&storage).FindProperty('A'), 0x58800000u);
    EXPECT_EQ(Impl(&storage).FindProperty('b'), impl.FindProperty('b'));
    // A null storage stands for the built-in tables.
    EXPECT_EQ(Impl(nullptr).FindProperty('A'), impl.FindProperty('A'));
    const lu_locale builtIn = LocaleWith(new lu_ctype(nullptr, 0));
    EXPECT_EQ(lu_use_facet<lu_ctype>(builtIn).impl().FindProperty('A'), 0x50418001u);
}

// Each digraph form maps to its title form; the Greek symbols keep their shape; others go upper.
TEST(CtypeImplTest, TitleCaseOfDigraphsAndGreekSymbols) {
    const std::u16string from =
        u"\u01C4\u01C5\u01C6\u01C7\u01C8\u01C9\u01CA\u01CB\u01CC\u01F1\u01F2"
        u"\u01F3\u03D0\u03D1\u03D5\u03D6\u03F0\u03F1a\u00B5\u01CE\uFFFF";
    std::u16string title;
    for (const char16_t c : from) title += static_cast<char16_t>(Impl().totitle(c));
    EXPECT_EQ(title,
              u"\u01C5\u01C5\u01C5\u01C8\u01C8\u01C8\u01CB\u01CB\u01CB\u01F2\u01F2\u01F2"
              u"\u03D0\u03D1\u03D5\u03D6\u03F0\u03F1A\u039C\u01CD\uFFFF");
}

// is() wants every bit of the mask, scan_is any one, scan_not none; the case of ranges is mapped in
// place; only units below 0xFF narrow.
TEST(CtypeFacetTest, ClassesCaseWidenAndNarrowOfRanges) {
    const lu_locale locale = LocaleWith();
    const lu_ctype& ctype = lu_use_facet<lu_ctype>(locale);
    const lu_ctype_abc::mask alnum = lu_ctype_abc::alpha | lu_ctype_abc::digit;
    EXPECT_FALSE(ctype.is(alnum, 'a'));
    EXPECT_TRUE(ctype.is(lu_ctype_abc::alpha | lu_ctype_abc::lower | lu_ctype_abc::xdigit, 'a'));
    const Units scanned = {'+', ' ', 'a', '1', '-'};
    const unsigned short* const first = scanned.data();
    const unsigned short* const last = first + scanned.size();
    EXPECT_EQ(ctype.scan_is(alnum, first, last), first + 2);
    EXPECT_EQ(ctype.scan_is(lu_ctype_abc::upper, first, last), last);
    EXPECT_EQ(ctype.scan_not(alnum, first + 2, last), first + 4);
    EXPECT_EQ(ctype.scan_not(alnum, first + 2, first + 3), first + 3);  // '1' behind is not read
    lu_ctype_abc::mask two[3] = {0, 0, 0xDEAD};
    EXPECT_EQ(ctype.is(first + 2, first + 4, two), first + 4);
    EXPECT_EQ(std::vector<unsigned int>(two, two + 3),
              (std::vector<unsigned int>{ctype.impl().GetPropertyMask('a'),
                                         ctype.impl().GetPropertyMask('1'), 0xDEAD}));
    EXPECT_EQ(ctype.scan_not(lu_ctype_abc::print, first, last), last);

    Units text = {'a', 0x00B5, '1', 0x0130, 0x03C3};
    unsigned short* const end = text.data() + text.size();
    EXPECT_EQ(ctype.toupper(text.data(), end), end);
    EXPECT_EQ(text, (Units{'A', 0x039C, '1', 0x0130, 0x03A3}));
    EXPECT_EQ(ctype.tolower(text.data(), end - 1), end - 1);
    EXPECT_EQ(text, (Units{'a', 0x03BC, '1', 0x0069, 0x03A3}));
    EXPECT_EQ(ctype.toupper(0x00B5) * 0x10000 + ctype.tolower(0x0130), 0x039C0069);

    const unsigned char bytes[] = {0x00, 'A', 0x80, 0xFF};
    Units wide(4, 0x1234);
    EXPECT_EQ(ctype.widen(bytes, bytes + 4, wide.data()), bytes + 4);
    EXPECT_EQ(wide, (Units{0x0000, 'A', 0x0080, 0x00FF}));
    EXPECT_EQ(ctype.widen(0xFF), 0x00FF);
    const Units units = {'A', 0x00FE, 0x00FF, 0x0100};
    std::vector<unsigned char> narrow(4, 0);
    EXPECT_EQ(ctype.narrow(units.data(), units.data() + 4, '?', narrow.data()), units.data() + 4);
    EXPECT_EQ(narrow, (std::vector<unsigned char>{'A', 0xFE, '?', '?'}));
    EXPECT_EQ(ctype.narrow(0x00FE, '?') * 0x100 + ctype.narrow(0x00FF, '?'), 0xFE00 + '?');
}

TEST(CtypeFacetTest, StringsAreMappedThroughTheLocaleOrThrow) {
    const lu_locale locale = LocaleWith();
    ucs2string text = Str(u"Stra\u00DFe \u00B5 \u0130!");
    lu_toupper(text, text, locale);  // one string as target and source
    EXPECT_EQ(U16(text), u"STRA\u00DFE \u039C \u0130!");
    ucs2string lower = Str(u"a much longer text than the source");
    lu_tolower(lower, text, locale);
    EXPECT_EQ(U16(lower), u"stra\u00DFe \u03BC i!");
    lu_toupper(lower, Str(u""), locale);
    EXPECT_EQ(U16(lower), u"");

    const lu_locale empty(new lu_locale::_Impl(1, 0));
    EXPECT_EQ(ThrownCode([&] { lu_toupper(text, text, empty); }), LU_E_NO_FACET);
    EXPECT_EQ(ThrownCode([&] { lu_tolower(text, text, empty); }), LU_E_NO_FACET);
    EXPECT_EQ(U16(text), u"STRA\u00DFE \u039C \u0130!");
    EXPECT_EQ(ThrownCode([] { new lu_ctype_byname("x", 0); }), LU_E_FACET_BY_NAME);
}

}  // namespace

// The character classes: the built-in tables and every classification against
// the Unicode 3.0 files, hand-made tables, and the lu_ctype facet over them.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "facets/ctype_i18n_tables.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/frame/result_codes.h"
#include "test_support.h"
#include "ucd_files.h"

namespace {

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

// Every unit against its record: the mask of the facet's is() over the whole
// range; case mappings by their deltas, the numeric value, and the combining
// class, 0 for a unit with a case mapping (U+0345 has 240 in the file); each
// predicate, by the properties of ucd::Holds that make it true (an unassigned
// unit has direction value 0, below PDF, so it counts as strong); and the
// two-load expansion of the built-in tables against their runs.
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
    const std::string failures = ucd::FailingUnits([&](unsigned short c) -> std::string {
        const Unit& u = ucd::Records()[c];
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
        return bad;
    });
    EXPECT_TRUE(failures.empty()) << failures;
    // Only the built-in record (by its five pointers) is expanded: one with a
    // word table of its own is read through its runs.
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

// Each digraph form maps to its title form; the Greek symbols keep their shape.
TEST(CtypeImplTest, TitleCaseOfDigraphsAndGreekSymbols) {
    const Units from = {0x01C4, 0x01C5, 0x01C6, 0x01C7, 0x01C8, 0x01C9, 0x01CA, 0x01CB,
                        0x01CC, 0x01F1, 0x01F2, 0x01F3, 0x03D0, 0x03D1, 0x03D5, 0x03D6,
                        0x03F0, 0x03F1, 'a',    0x00B5, 0x01CE, 0xFFFF};
    const Units to = {0x01C5, 0x01C5, 0x01C5, 0x01C8, 0x01C8, 0x01C8, 0x01CB, 0x01CB,
                      0x01CB, 0x01F2, 0x01F2, 0x01F2, 0x03D0, 0x03D1, 0x03D5, 0x03D6,
                      0x03F0, 0x03F1, 'A',    0x039C, 0x01CD, 0xFFFF};
    const Impl impl;
    Units title;
    for (unsigned short c : from) title.push_back(impl.totitle(c));
    EXPECT_EQ(title, to);
}

// is() wants every bit of the mask, scan_is any one, scan_not none; the case
// of ranges is mapped in place; only units below 0xFF narrow.
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

// The lu_ctype facet: its slots, its tables, and case mapping of strings
// through a locale.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kai18n/facets/lu_ctype.h"
#include "kai18n/frame/result_codes.h"
#include "test_support.h"
#include "ucd_files.h"

namespace {

using test_support::Str;
using test_support::ThrownCode;
using test_support::U16;
using test_support::Units;

// A locale holding `facet` (null: the built-in lu_ctype) as its only owner.
lu_locale LocaleWith(lu_ctype* facet = nullptr) {
    auto* impl = new lu_locale::_Impl(2, 0);
    impl->_M_install_facet(&lu_ctype::id, facet != nullptr ? facet : new lu_ctype(0));
    return lu_locale(impl);
}

const lu_ctype& CtypeOf(const lu_locale& locale) {
    return lu_use_facet<lu_ctype>(locale);
}

TEST(CtypeFacetTest, CaseOfRangesIsMappedInPlace) {
    const lu_locale locale = LocaleWith();
    Units text = {'a', 0x00B5, '1', 0x0130, 0x03C3};
    unsigned short* const end = text.data() + text.size();
    EXPECT_EQ(CtypeOf(locale).toupper(text.data(), end), end);
    EXPECT_EQ(text, (Units{'A', 0x039C, '1', 0x0130, 0x03A3}));
    EXPECT_EQ(CtypeOf(locale).tolower(text.data(), end - 1), end - 1);
    EXPECT_EQ(text, (Units{'a', 0x03BC, '1', 0x0069, 0x03A3}));
    EXPECT_EQ(CtypeOf(locale).toupper(0x00B5), 0x039C);
    EXPECT_EQ(CtypeOf(locale).tolower(0x0130), 0x0069);
}

TEST(CtypeFacetTest, WidenKeepsBytesAndNarrowKeepsUnitsBelowFF) {
    const lu_locale locale = LocaleWith();
    const lu_ctype& ctype = CtypeOf(locale);
    const unsigned char bytes[] = {0x00, 'A', 0x80, 0xFE, 0xFF};
    Units wide(5, 0x1234);
    EXPECT_EQ(ctype.widen(bytes, bytes + 5, wide.data()), bytes + 5);
    EXPECT_EQ(wide, (Units{0x0000, 'A', 0x0080, 0x00FE, 0x00FF}));
    EXPECT_EQ(ctype.widen(0xFF), 0x00FF);

    const Units units = {'A', 0x00FE, 0x00FF, 0x0100, 0xFFFE};
    std::vector<unsigned char> narrow(5, 0);
    EXPECT_EQ(ctype.narrow(units.data(), units.data() + 5, '?', narrow.data()), units.data() + 5);
    EXPECT_EQ(narrow, (std::vector<unsigned char>{'A', 0xFE, '?', '?', '?'}));
    EXPECT_EQ(ctype.narrow(0x00FE, '?'), 0xFE);
    EXPECT_EQ(ctype.narrow(0x00FF, '?'), '?');
}

TEST(CtypeFacetTest, MasksOfEveryUnitFollowTheUnicodeData) {
    const lu_locale locale = LocaleWith();
    Units all(0x10000);
    for (unsigned int c = 0; c < all.size(); ++c) all[c] = static_cast<unsigned short>(c);
    std::vector<lu_ctype_abc::mask> masks(all.size(), 0xDEAD);
    const unsigned short* const end = all.data() + all.size();
    EXPECT_EQ(CtypeOf(locale).is(all.data(), end, masks.data()), end);
    const std::string failures = ucd::FailingUnits([&](unsigned short c) -> std::string {
        const unsigned int expected = ucd::ExpectedMask(c, ucd::Records()[c]);
        return masks[c] == expected ? "" : "mask " + std::to_string(masks[c]);
    });
    EXPECT_TRUE(failures.empty()) << failures;
}

// is() wants every bit of the mask, scan_is any one, scan_not none.
TEST(CtypeFacetTest, IsWantsAllBitsScanIsAnyScanNotNone) {
    const lu_locale locale = LocaleWith();
    const lu_ctype& ctype = CtypeOf(locale);
    const lu_ctype_abc::mask alnum = lu_ctype_abc::alpha | lu_ctype_abc::digit;
    EXPECT_FALSE(ctype.is(alnum, 'a'));
    EXPECT_TRUE(ctype.is(lu_ctype_abc::alpha | lu_ctype_abc::lower | lu_ctype_abc::xdigit, 'a'));
    EXPECT_FALSE(ctype.is(lu_ctype_abc::upper, 'a'));
    EXPECT_TRUE(ctype.is(lu_ctype_abc::space | lu_ctype_abc::print, ' '));
    EXPECT_TRUE(ctype.is(lu_ctype_abc::digit, 0x0660));

    const Units text = {'+', ' ', 'a', '1', '-'};
    const unsigned short* const first = text.data();
    const unsigned short* const last = first + text.size();
    EXPECT_EQ(ctype.scan_is(alnum, first, last), first + 2);
    EXPECT_EQ(ctype.scan_is(lu_ctype_abc::digit, first, last), first + 3);
    EXPECT_EQ(ctype.scan_is(lu_ctype_abc::upper, first, last), last);
    EXPECT_EQ(ctype.scan_not(lu_ctype_abc::graph, first, last), first + 1);
    EXPECT_EQ(ctype.scan_not(alnum, first + 2, last), first + 4);
    EXPECT_EQ(ctype.scan_not(lu_ctype_abc::print, first, last), last);
}

TEST(CtypeFacetTest, StringsAreMappedThroughTheLocale) {
    const lu_locale locale = LocaleWith();
    ucs2string text = Str(u"Stra\u00DFe \u00B5 \u0130!");
    lu_toupper(text, text, locale);  // one string as target and source
    EXPECT_EQ(U16(text), u"STRA\u00DFE \u039C \u0130!");
    ucs2string lower = Str(u"a much longer text than the source");
    lu_tolower(lower, text, locale);
    EXPECT_EQ(U16(lower), u"stra\u00DFe \u03BC i!");
    ucs2string empty = Str(u"xyz");
    lu_toupper(empty, Str(u""), locale);
    EXPECT_EQ(U16(empty), u"");
}

TEST(CtypeFacetTest, LocaleWithoutCtypeRefusesToMapCase) {
    const lu_locale empty(new lu_locale::_Impl(1, 0));
    ucs2string text = Str(u"abc");
    EXPECT_EQ(ThrownCode([&] { lu_toupper(text, text, empty); }), LU_E_NO_FACET);
    EXPECT_EQ(ThrownCode([&] { lu_tolower(text, text, empty); }), LU_E_NO_FACET);
    EXPECT_EQ(LU_E_NO_FACET, static_cast<long>(static_cast<int>(0x8004112bu)));
    EXPECT_EQ(U16(text), u"abc");
}

TEST(CtypeFacetTest, CtypeByNameCannotBeBuilt) {
    EXPECT_EQ(ThrownCode([] { new lu_ctype_byname("x", 0); }), LU_E_FACET_BY_NAME);
    EXPECT_EQ(LU_E_FACET_BY_NAME, static_cast<long>(static_cast<int>(0x80041130u)));
}

// Block 0 is one run of word A; every other block is 64 units of word B, then 64 of A.
// A: Lu, R, lower-case mapping, number 1 (3/4), delta 1 (+5). B: Mn, NSM, class 230.
const unsigned int kWordA = 0x50400000 | 0x40000 | 0x8000 | 0x0100 | 0x01;
const unsigned int kWordB = 0x5C000000 | 0xE0000 | 0x02;
const unsigned short kRuns[] = {1 << 7, (2 << 7) | 64, (1 << 7) | 64};
const unsigned int kWords[] = {0, kWordA, kWordB};
const lu_ctype_number kNumbers[] = {{0, 0}, {3, 4}};
const short kDeltas[] = {0, 5, 230};
const unsigned short* HandMadeIndex() {
    static unsigned short index[512];
    for (unsigned short& entry : index) entry = 1;
    index[0] = 0;
    return index;
}
const lu_ctype_impl::StaticStorage kHandMade = {HandMadeIndex(), kRuns, kWords, kNumbers, kDeltas};

TEST(CtypeFacetTest, HandMadeTablesAreHonoured) {
    const lu_locale locale = LocaleWith(new lu_ctype(&kHandMade, 0));
    const lu_ctype& ctype = CtypeOf(locale);
    const lu_ctype_impl& impl = ctype.impl();
    const struct {
        unsigned short unit;
        unsigned int word;
    } rows[] = {{0x0000, kWordA}, {0x007F, kWordA}, {0x0080, kWordB}, {0x00BF, kWordB},
                {0x00C0, kWordA}, {0x00FF, kWordA}, {0x4E00, kWordB}, {0xFFFF, kWordA}};
    for (const auto& row : rows) EXPECT_EQ(impl.FindProperty(row.unit), row.word) << row.unit;
    EXPECT_EQ(ctype.tolower(0x0041), 0x0046);
    EXPECT_EQ(ctype.toupper(0x0061), 0x0061);
    EXPECT_TRUE(ctype.is(lu_ctype_abc::upper | lu_ctype_abc::alpha, 0x0031));
    EXPECT_FALSE(ctype.is(lu_ctype_abc::alpha, 0x0080));
    EXPECT_TRUE(impl.IsRtl(0x00C0));
    EXPECT_TRUE(impl.IsNsMark(0x0080));
    EXPECT_EQ(impl.getclass(0x0080), 230);
    EXPECT_EQ(impl.getclass(0x0041), 0);
    int denominator = 0;
    EXPECT_EQ(impl.getnumber(0x0041, denominator), 3);
    EXPECT_EQ(denominator, 4);
    ucs2string text = Str(u"AB");
    lu_tolower(text, text, locale);
    EXPECT_EQ(U16(text), u"FG");
    // A null storage stands for the built-in tables.
    const lu_locale builtIn = LocaleWith(new lu_ctype(nullptr, 0));
    EXPECT_EQ(CtypeOf(builtIn).impl().FindProperty('A'), 0x50418001u);
}

}  // namespace

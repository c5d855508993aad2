// The tests of lu_ctype_impl: each classification against the category and
// direction that the Unicode 3.0 files give, the tests on the unit alone, case.
#include <gtest/gtest.h>

#include <string>

#include "kai18n/facets/lu_ctype_impl.h"
#include "ucd_files.h"

namespace {

using ucd::Category;
using ucd::Direction;
using Unit = ucd::Unit;

struct Predicate {
    const char* name;
    bool (lu_ctype_impl::*test)(unsigned short) const;
    bool (*holds)(unsigned short c, const Unit& u);
};

const Predicate kPredicates[] = {
    {"IsCntrl", &lu_ctype_impl::IsCntrl, [](auto, auto& u) { return Category(u, "Cc Cf Zl Zp"); }},
    {"IsPrint", &lu_ctype_impl::IsPrint,
     [](auto, auto& u) { return Category(u, "Zs L* N* P* S* M*"); }},
    {"IsGraph", &lu_ctype_impl::IsGraph,
     [](auto, auto& u) { return Category(u, "L* N* P* S* M*"); }},
    {"IsAlnum", &lu_ctype_impl::IsAlnum, [](auto, auto& u) { return Category(u, "L* N*"); }},
    {"IsAlpha", &lu_ctype_impl::IsAlpha, [](auto, auto& u) { return Category(u, "L*"); }},
    {"IsNumber", &lu_ctype_impl::IsNumber, [](auto, auto& u) { return Category(u, "N*"); }},
    {"IsPunct", &lu_ctype_impl::IsPunct, [](auto, auto& u) { return Category(u, "P*"); }},
    {"IsSymbol", &lu_ctype_impl::IsSymbol, [](auto, auto& u) { return Category(u, "S*"); }},
    {"IsMark", &lu_ctype_impl::IsMark, [](auto, auto& u) { return Category(u, "M*"); }},
    {"IsIsoCntrl", &lu_ctype_impl::IsIsoCntrl, [](auto, auto& u) { return Category(u, "Cc"); }},
    {"IsFmtCntrl", &lu_ctype_impl::IsFmtCntrl, [](auto, auto& u) { return Category(u, "Cf"); }},
    {"IsLsep", &lu_ctype_impl::IsLsep, [](auto, auto& u) { return Category(u, "Zl"); }},
    {"IsPsep", &lu_ctype_impl::IsPsep, [](auto, auto& u) { return Category(u, "Zp"); }},
    {"IsBlank", &lu_ctype_impl::IsBlank, [](auto, auto& u) { return Category(u, "Zs"); }},
    {"IsUpper", &lu_ctype_impl::IsUpper, [](auto, auto& u) { return Category(u, "Lu"); }},
    {"IsLower", &lu_ctype_impl::IsLower, [](auto, auto& u) { return Category(u, "Ll"); }},
    {"IsTitle", &lu_ctype_impl::IsTitle, [](auto, auto& u) { return Category(u, "Lt"); }},
    {"IsModif", &lu_ctype_impl::IsModif, [](auto, auto& u) { return Category(u, "Lm"); }},
    {"IsDigit", &lu_ctype_impl::IsDigit, [](auto, auto& u) { return Category(u, "Nd"); }},
    {"IsLetnum", &lu_ctype_impl::IsLetnum, [](auto, auto& u) { return Category(u, "Nl"); }},
    {"IsOpenPunct", &lu_ctype_impl::IsOpenPunct,
     [](auto, auto& u) { return Category(u, "Ps Pi"); }},
    {"IsClosePunct", &lu_ctype_impl::IsClosePunct,
     [](auto, auto& u) { return Category(u, "Pe Pf"); }},
    {"IsConnect", &lu_ctype_impl::IsConnect, [](auto, auto& u) { return Category(u, "Pc"); }},
    {"IsDash", &lu_ctype_impl::IsDash, [](auto, auto& u) { return Category(u, "Pd"); }},
    {"IsMath", &lu_ctype_impl::IsMath, [](auto, auto& u) { return Category(u, "Sm"); }},
    {"IsCurrency", &lu_ctype_impl::IsCurrency, [](auto, auto& u) { return Category(u, "Sc"); }},
    {"IsModifSymbol", &lu_ctype_impl::IsModifSymbol,
     [](auto, auto& u) { return Category(u, "Sk"); }},
    {"IsNsMark", &lu_ctype_impl::IsNsMark, [](auto, auto& u) { return Category(u, "Mn"); }},
    {"IsSpMark", &lu_ctype_impl::IsSpMark, [](auto, auto& u) { return Category(u, "Mc"); }},
    {"IsEnclosing", &lu_ctype_impl::IsEnclosing, [](auto, auto& u) { return Category(u, "Me"); }},
    {"IsPrivate", &lu_ctype_impl::IsPrivate, [](auto, auto& u) { return Category(u, "Co"); }},
    {"IsSurrogate", &lu_ctype_impl::IsSurrogate, [](auto, auto& u) { return Category(u, "Cs"); }},
    {"IsSpace", &lu_ctype_impl::IsSpace, [](auto, auto& u) { return u.whiteSpace; }},
    {"IsMirroring", &lu_ctype_impl::IsMirroring, [](auto, auto& u) { return u.mirrored; }},
    {"IsLtr", &lu_ctype_impl::IsLtr,
     [](auto, auto& u) { return Direction(u, "L LRE LRO EN ES ET"); }},
    {"IsRtl", &lu_ctype_impl::IsRtl, [](auto, auto& u) { return Direction(u, "R AL RLE RLO AN"); }},
    // An unassigned unit has direction value 0, below PDF: it counts as strong.
    {"IsStrong", &lu_ctype_impl::IsStrong,
     [](auto, auto& u) { return !u.assigned || Direction(u, "L LRE LRO R AL RLE RLO"); }},
    {"IsWeak", &lu_ctype_impl::IsWeak,
     [](auto, auto& u) { return Direction(u, "PDF EN ES ET AN CS NSM BN B S WS ON"); }},
    {"IsNeutral", &lu_ctype_impl::IsNeutral,
     [](auto, auto& u) { return Direction(u, "B S WS ON"); }},
    {"IsSeparator", &lu_ctype_impl::IsSeparator, [](auto, auto& u) { return Direction(u, "B S"); }},
    {"IsUndefined", &lu_ctype_impl::IsUndefined,
     [](auto c, auto& u) { return c != 0xFFFF && !u.assigned; }},
};

TEST(CtypeImplTest, EveryPredicateFollowsTheUnitsCategoryAndDirection) {
    const lu_ctype_impl impl;
    for (const Predicate& p : kPredicates) {
        const std::string failures = ucd::FailingUnits([&](unsigned short c) -> std::string {
            const bool expected = p.holds(c, ucd::Records()[c]);
            if ((impl.*p.test)(c) == expected) return "";
            return expected ? "false, should be true" : "true, should be false";
        });
        EXPECT_TRUE(failures.empty()) << p.name << ": " << failures;
    }
}

TEST(CtypeImplTest, PropertyMaskGathersTheClassTests) {
    const lu_ctype_impl impl;
    const std::string failures = ucd::FailingUnits([&](unsigned short c) -> std::string {
        const unsigned int expected = ucd::ExpectedMask(c, ucd::Records()[c]);
        const unsigned int mask = impl.GetPropertyMask(c);
        return mask == expected ? "" : std::to_string(mask) + " not " + std::to_string(expected);
    });
    EXPECT_TRUE(failures.empty()) << failures;
}

TEST(CtypeImplTest, UnitOnlyTestsChangeAtTheirBoundaries) {
    const struct {
        const char* name;
        bool (*test)(unsigned short);
        unsigned short unit;
        bool expected;
    } rows[] = {
        {"IsXDigit", lu_ctype_impl::IsXDigit, '/', false},
        {"IsXDigit", lu_ctype_impl::IsXDigit, '0', true},
        {"IsXDigit", lu_ctype_impl::IsXDigit, '9', true},
        {"IsXDigit", lu_ctype_impl::IsXDigit, ':', false},
        {"IsXDigit", lu_ctype_impl::IsXDigit, '@', false},
        {"IsXDigit", lu_ctype_impl::IsXDigit, 'A', true},
        {"IsXDigit", lu_ctype_impl::IsXDigit, 'F', true},
        {"IsXDigit", lu_ctype_impl::IsXDigit, 'G', false},
        {"IsXDigit", lu_ctype_impl::IsXDigit, '`', false},
        {"IsXDigit", lu_ctype_impl::IsXDigit, 'a', true},
        {"IsXDigit", lu_ctype_impl::IsXDigit, 'f', true},
        {"IsXDigit", lu_ctype_impl::IsXDigit, 'g', false},
        {"IsXDigit", lu_ctype_impl::IsXDigit, 0xFF10, false},  // FULLWIDTH DIGIT ZERO
        {"IsHan", lu_ctype_impl::IsHan, 0x4DB5, false},        // extension A is not Han here
        {"IsHan", lu_ctype_impl::IsHan, 0x4DFF, false},
        {"IsHan", lu_ctype_impl::IsHan, 0x4E00, true},
        {"IsHan", lu_ctype_impl::IsHan, 0x9FFF, true},
        {"IsHan", lu_ctype_impl::IsHan, 0xA000, false},
        {"IsHan", lu_ctype_impl::IsHan, 0xF8FF, false},
        {"IsHan", lu_ctype_impl::IsHan, 0xF900, true},
        {"IsHan", lu_ctype_impl::IsHan, 0xFAFF, true},
        {"IsHan", lu_ctype_impl::IsHan, 0xFB00, false},
        {"IsHangul", lu_ctype_impl::IsHangul, 0xABFF, false},
        {"IsHangul", lu_ctype_impl::IsHangul, 0xAC00, true},
        {"IsHangul", lu_ctype_impl::IsHangul, 0xD7FF, true},
        {"IsHangul", lu_ctype_impl::IsHangul, 0xD800, false},
        {"IsReplacement", lu_ctype_impl::IsReplacement, 0xFFFC, false},
        {"IsReplacement", lu_ctype_impl::IsReplacement, 0xFFFD, true},
        {"IsReplacement", lu_ctype_impl::IsReplacement, 0xFFFE, false},
        {"IsObjReplacement", lu_ctype_impl::IsObjReplacement, 0xFFFB, false},
        {"IsObjReplacement", lu_ctype_impl::IsObjReplacement, 0xFFFC, true},
        {"IsObjReplacement", lu_ctype_impl::IsObjReplacement, 0xFFFD, false},
        {"IsSwapped", lu_ctype_impl::IsSwapped, 0xFEFF, false},
        {"IsSwapped", lu_ctype_impl::IsSwapped, 0xFFFE, true},
        {"IsSwapped", lu_ctype_impl::IsSwapped, 0xFFFF, false},
        {"IsZigamorph", lu_ctype_impl::IsZigamorph, 0xFFFE, false},
        {"IsZigamorph", lu_ctype_impl::IsZigamorph, 0xFFFF, true},
        {"IsZigamorph", lu_ctype_impl::IsZigamorph, 0x0000, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.test(row.unit), row.expected) << row.name << std::hex << " U+" << row.unit;
    const lu_ctype_impl impl;
    EXPECT_FALSE(impl.IsUndefined(0xFFFF));
    EXPECT_TRUE(impl.IsUndefined(0xFFFE));
    EXPECT_TRUE(impl.IsUndefined(0x03F4));
    EXPECT_FALSE(impl.IsUndefined(0x20AF));
}

// Deltas far from the unit and of either sign, kept to 16 bits.
TEST(CtypeImplTest, CaseMapsAcrossLargeDeltas) {
    const lu_ctype_impl impl;
    EXPECT_EQ(impl.ToUpper(0x00B5), 0x039C);  // MICRO SIGN
    EXPECT_EQ(impl.ToLower(0x0130), 0x0069);  // I WITH DOT ABOVE
    EXPECT_EQ(impl.ToUpper(0x00FF), 0x0178);
    EXPECT_EQ(impl.ToLower(0x212A), 0x006B);  // KELVIN SIGN
    EXPECT_EQ(impl.ToUpper(0x1E9B), 0x1E60);
    EXPECT_EQ(impl.ToLower(0x00B5), 0x00B5);
    EXPECT_EQ(impl.ToUpper(0x0345), 0x0399);
    EXPECT_EQ(impl.getclass(0x0345), 0);  // class 240 in the file, but it has a case mapping
    EXPECT_EQ(impl.getclass(0x0301), 230);
}

TEST(CtypeImplTest, TitleCaseOfDigraphsAndGreekSymbols) {
    const unsigned short rows[][2] = {
        {0x01C4, 0x01C5}, {0x01C5, 0x01C5}, {0x01C6, 0x01C5}, {0x01C7, 0x01C8}, {0x01C8, 0x01C8},
        {0x01C9, 0x01C8}, {0x01CA, 0x01CB}, {0x01CB, 0x01CB}, {0x01CC, 0x01CB}, {0x01F1, 0x01F2},
        {0x01F2, 0x01F2}, {0x01F3, 0x01F2}, {0x03D0, 0x03D0}, {0x03D1, 0x03D1}, {0x03D5, 0x03D5},
        {0x03D6, 0x03D6}, {0x03F0, 0x03F0}, {0x03F1, 0x03F1}, {'a', 'A'},       {'A', 'A'},
        {'1', '1'},       {0x00B5, 0x039C}, {0x03C3, 0x03A3}, {0x01CD, 0x01CD}, {0x01CE, 0x01CD},
        {0x03D2, 0x03D2}, {0xFFFF, 0xFFFF}};
    const lu_ctype_impl impl;
    for (const auto& row : rows)
        EXPECT_EQ(impl.totitle(row[0]), row[1]) << std::hex << "U+" << row[0];
}

TEST(CtypeImplTest, SpaceIsWeakAndNeutralButNoSeparator) {
    const lu_ctype_impl impl;
    EXPECT_TRUE(impl.IsWeak(' '));
    EXPECT_TRUE(impl.IsNeutral(' '));
    EXPECT_FALSE(impl.IsStrong(' '));
    EXPECT_FALSE(impl.IsSeparator(' '));
    EXPECT_TRUE(impl.IsSeparator('\t'));    // S
    EXPECT_TRUE(impl.IsSeparator(0x2029));  // B
    EXPECT_EQ(impl.getbidi(' '), 0x80030000u);
}

}  // namespace

// Token definitions and format patterns through their own interfaces: the
// order of a definition's entries, which text prints a token, freezing and
// copying; a pattern's ownership of its tokens, editing and assignment.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_tokens_definition.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

std::vector<std::string> Texts(const luTokensDefinition& definition) {
    std::vector<std::string> texts;
    for (const tokenDef& entry : definition) texts.push_back(Utf8(entry.text));
    return texts;
}

TEST(TokensDefinitionTest, SortsByCodeUnitPrintsTheFirstTextAndFreezes) {
    luTokensDefinition definition(Ombrin, true);
    // U+FF21 (fullwidth A) sorts after U+00E9, which a signed 16-bit
    // comparison would get wrong, and "<" before letters.
    for (const char* text : {"mm", "\xEF\xBC\xA1", "\xC3\xA9", "m", "<m>"})
        EXPECT_TRUE(definition.AddTokenDefinition(TokMinute0, U(text), true)) << text;
    // An equal text for another token is refused for recognition, but that
    // token gains it for printing; without recognition only printing is set.
    EXPECT_FALSE(definition.AddTokenDefinition(TokHour0To23, U("mm"), true));
    EXPECT_TRUE(definition.AddTokenDefinition(TokHour0To23, U("H"), true));
    EXPECT_FALSE(definition.AddTokenDefinition(TokMinute00, U("ss"), false));
    luTokensDefinition building(definition);  // a copy while building has its own table
    EXPECT_TRUE(building.AddTokenDefinition(TokError, U("x"), true));
    definition.EndBuild();
    definition.EndBuild();  // a second call changes nothing
    EXPECT_FALSE(definition.AddTokenDefinition(TokEra, U("G"), true));
    EXPECT_EQ((std::vector<std::string>{"<m>", "H", "m", "mm", "\xC3\xA9", "\xEF\xBC\xA1"}),
              Texts(definition));
    EXPECT_EQ(TokHour0To23, definition[1].token);
    EXPECT_EQ("mm", Utf8(definition.TokenString(TokMinute0)));
    EXPECT_EQ("mm", Utf8(definition.TokenString(TokHour0To23)));
    EXPECT_EQ("ss", Utf8(definition.TokenString(TokMinute00)));
    EXPECT_TRUE(definition.TokenString(TokEra).empty());

    luTokensDefinition assigned(Velora, false);  // still building
    assigned = building;
    EXPECT_TRUE(assigned.IsOmbrin() && assigned.IsDate() && !assigned.IsBuild());
    EXPECT_FALSE(assigned.IsVelora() || assigned.IsSerial() || assigned.IsLuLoc());
    EXPECT_TRUE(luTokensDefinition(LuLoc, true).IsLuLoc());
    assigned.EndBuild();
    EXPECT_EQ(7u, assigned.size());
    assigned = definition;
    EXPECT_EQ(Texts(definition), Texts(assigned));
    EXPECT_TRUE(assigned.IsBuild());
}

TEST(FmtPatternTest, TokensEnterAsCopiesAndEditingKeepsPositionsRight) {
    std::unique_ptr<luToken> hour(luToken::MakeToken(TokHour00To23));
    EXPECT_TRUE(hour->LiteralText() == nullptr && hour->LiteralLength() == 0);
    std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
    ucs2string text = U("kg");
    std::unique_ptr<luToken> mine(luToken::MakeToken(text));
    text = U("changed");
    pattern->push_back(mine.get());
    mine.reset();  // the pattern holds its own clone
    const unsigned short units[] = {u'x', u'y'};
    pattern->push_back(units, units + 2);
    pattern->push_back(hour.get());
    EXPECT_EQ((TokenList{{1, 1, 22}, {"kg", "xy"}}), Tokens(*pattern));
    std::unique_ptr<luFmtPattern> copy(CreateFmtPattern(*pattern));
    EXPECT_EQ(Tokens(*pattern), Tokens(*copy));
    EXPECT_NE((*pattern)[0], (*copy)[0]);  // deep: distinct token objects

    std::unique_ptr<luToken> seconds(luToken::MakeToken(TokSecond00));
    // Each edit is made before its result is compared: the order in which a
    // comparison's two sides are evaluated is unspecified.
    auto at = pattern->insert(pattern->end(), seconds.get());
    EXPECT_EQ(pattern->begin() + 3, at);
    at = pattern->insert(pattern->begin(), seconds.get());
    EXPECT_EQ(pattern->begin(), at);
    EXPECT_EQ((TokenList{{34, 1, 1, 22, 34}, {"kg", "xy"}}), Tokens(*pattern));
    at = pattern->erase(pattern->end() - 1);
    EXPECT_EQ(pattern->end(), at);
    EXPECT_TRUE((*pattern->erase(pattern->begin()))->IsLiteral());  // now the next token's place
    at = pattern->erase(pattern->begin() + 1, pattern->begin() + 2);
    EXPECT_EQ(pattern->begin() + 1, at);
    EXPECT_EQ((TokenList{{1, 22}, {"kg"}}), Tokens(*pattern));

    // Assignment copies between patterns of one kind only; otherwise the
    // target is emptied and keeps its kind.
    *copy = *pattern;
    EXPECT_EQ(Tokens(*pattern), Tokens(*copy));
    std::unique_ptr<luFmtPattern> number(CreateNumberFmtPattern());
    number->push_back(TokDigitOrZero);
    *number = *pattern;
    EXPECT_EQ(0u, number->size());
    EXPECT_FALSE(number->IsDate());
    *pattern = *pattern;  // self-assignment keeps the tokens
    EXPECT_EQ(2u, pattern->size());
}

}  // namespace

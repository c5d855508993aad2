// Token definitions: the order of their entries, which text prints a token,
// and what happens once a definition is frozen.
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

TEST(TokensDefinitionTest, EntriesSortByCodeUnitWithPrefixesFirst) {
    luTokensDefinition definition(Ombrin, true);
    // Added out of order; U+FF21 (fullwidth A) must sort after U+00E9, which a
    // signed 16-bit comparison would get wrong, and "<" before letters.
    for (const char* text : {"mmm", "mm", "\xEF\xBC\xA1", "\xC3\xA9", "m", "M", "<m>", "mmmm"})
        EXPECT_TRUE(definition.AddTokenDefinition(TokMinute0, U(text), true)) << text;
    EXPECT_EQ(0u, definition.size());
    definition.EndBuild();
    const std::vector<std::string> expected{"<m>", "M",    "m",        "mm",
                                            "mmm", "mmmm", "\xC3\xA9", "\xEF\xBC\xA1"};
    EXPECT_EQ(expected, Texts(definition));
    EXPECT_EQ(8u, definition.size());
    EXPECT_EQ("mm", Utf8(definition[3].text));
    EXPECT_EQ(definition.begin() + definition.size(), definition.end());
}

TEST(TokensDefinitionTest, FirstTextAddedPrintsWhateverItsSortedPlace) {
    luTokensDefinition definition(Ombrin, true);
    EXPECT_TRUE(definition.AddTokenDefinition(TokHour00To23, U("HH"), true));
    EXPECT_TRUE(definition.AddTokenDefinition(TokHour00To23, U("<hour 00-23>"), true));
    // An equal text for another token is refused for recognition, but that
    // token had no printing text yet and gains this one; a later text does
    // not replace it.
    EXPECT_FALSE(definition.AddTokenDefinition(TokHour0To23, U("HH"), true));
    EXPECT_TRUE(definition.AddTokenDefinition(TokHour0To23, U("H"), true));
    // Without recognition nothing enters the entries, but printing is set.
    EXPECT_FALSE(definition.AddTokenDefinition(TokMinute00, U("mm"), false));

    // Before EndBuild the printing table already answers.
    EXPECT_EQ("HH", Utf8(definition.TokenString(TokHour00To23)));
    definition.EndBuild();
    EXPECT_EQ((std::vector<std::string>{"<hour 00-23>", "H", "HH"}), Texts(definition));
    EXPECT_EQ(TokHour00To23, definition[2].token);
    EXPECT_EQ("HH", Utf8(definition.TokenString(TokHour00To23)));
    EXPECT_EQ("HH", Utf8(definition.TokenString(TokHour0To23)));
    EXPECT_EQ("mm", Utf8(definition.TokenString(TokMinute00)));
    EXPECT_TRUE(definition.TokenString(TokEra).empty());
}

TEST(TokensDefinitionTest, FrozenDefinitionRefusesAdditions) {
    luTokensDefinition definition(Velora, false);
    EXPECT_FALSE(definition.IsBuild());
    definition.AddTokenDefinition(TokDigitOrZero, U("0"), true);
    definition.EndBuild();
    definition.EndBuild();  // a second call changes nothing
    EXPECT_TRUE(definition.IsBuild());
    EXPECT_FALSE(definition.AddTokenDefinition(TokDigitOrNothing, U("#"), true));
    EXPECT_FALSE(definition.AddTokenDefinition(TokDigitOrZero, U("zero"), false));
    EXPECT_EQ((std::vector<std::string>{"0"}), Texts(definition));
    EXPECT_TRUE(definition.TokenString(TokDigitOrNothing).empty());

    EXPECT_TRUE(definition.IsVelora());
    EXPECT_FALSE(definition.IsOmbrin() || definition.IsSerial() || definition.IsLuLoc());
    EXPECT_FALSE(definition.IsDate());
    EXPECT_TRUE(luTokensDefinition(LuLoc, true).IsLuLoc());
}

TEST(TokensDefinitionTest, CopiesAreIndependent) {
    luTokensDefinition source(Serial, true);
    source.AddTokenDefinition(TokFormatSeparator, U("T[FS]"), true);
    luTokensDefinition unbuilt(source);  // still building: gets its own table
    unbuilt.AddTokenDefinition(TokError, U("T[Err]"), true);
    source.EndBuild();
    unbuilt.EndBuild();
    EXPECT_EQ(1u, source.size());
    EXPECT_EQ(2u, unbuilt.size());

    luTokensDefinition assigned(Ombrin, false);
    assigned = unbuilt;
    EXPECT_TRUE(assigned.IsSerial() && assigned.IsDate() && assigned.IsBuild());
    EXPECT_EQ(Texts(unbuilt), Texts(assigned));
    EXPECT_EQ("T[Err]", Utf8(assigned.TokenString(TokError)));
}

TEST(FmtTokenTest, MadeTokensCarryTheirValueOrACopyOfTheirText) {
    std::unique_ptr<luToken> hour(luToken::MakeToken(TokHour00To23));
    EXPECT_EQ(22, hour->TokenId());
    EXPECT_FALSE(hour->IsLiteral());
    EXPECT_EQ(nullptr, hour->LiteralText());
    EXPECT_EQ(0u, hour->LiteralLength());

    ucs2string text = U("h ");
    std::unique_ptr<luToken> literal(luToken::MakeToken(text));
    text = U("changed");
    EXPECT_EQ(1, literal->TokenId());
    EXPECT_TRUE(literal->IsLiteral());
    EXPECT_EQ("h ", Utf8(ucs2string(literal->LiteralText())));
    EXPECT_EQ(2u, literal->LiteralLength());

    const unsigned short units[] = {u'a', u'b', u'c', 0};
    std::unique_ptr<luToken> range(luToken::MakeToken(units + 1, units + 3));
    EXPECT_EQ("bc", Utf8(ucs2string(range->LiteralText(), range->LiteralLength())));
    EXPECT_EQ(0, range->LiteralText()[2]);
}

}  // namespace

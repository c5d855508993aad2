// Format patterns: ownership of their tokens, editing, and assignment
// between kinds.
#include <gtest/gtest.h>

#include "fmt_test_support.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

std::unique_ptr<luFmtPattern> TimePattern() {
    std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
    pattern->push_back(TokHour00To23);
    pattern->push_back(U(":"));
    pattern->push_back(TokMinute00);
    return pattern;
}

TEST(FmtPatternTest, TokensEnterAsCopies) {
    std::unique_ptr<luFmtPattern> pattern(CreateNumberFmtPattern());
    EXPECT_FALSE(pattern->IsDate());
    EXPECT_EQ(0u, pattern->size());
    EXPECT_EQ(pattern->begin(), pattern->end());

    std::unique_ptr<luToken> mine(luToken::MakeToken(U("kg")));
    pattern->push_back(mine.get());
    mine.reset();  // the pattern holds its own clone
    const unsigned short units[] = {u'x', u'y'};
    pattern->push_back(units, units + 2);
    pattern->push_back(TokDigitOrZero);
    EXPECT_EQ((TokenList{{1, 1, 102}, {"kg", "xy"}}), Tokens(*pattern));
    EXPECT_NE(nullptr, (*pattern)[0]);

    std::unique_ptr<luFmtPattern> copy(CreateFmtPattern(*pattern));
    EXPECT_EQ(Tokens(*pattern), Tokens(*copy));
    EXPECT_NE((*pattern)[0], (*copy)[0]);  // deep: distinct token objects
    EXPECT_FALSE(copy->IsDate());
}

TEST(FmtPatternTest, InsertAndEraseKeepPositionsRight) {
    auto pattern = TimePattern();
    std::unique_ptr<luToken> seconds(luToken::MakeToken(TokSecond00));
    auto at = pattern->insert(pattern->end(), seconds.get());
    EXPECT_EQ(pattern->begin() + 3, at);
    EXPECT_EQ(34, (*at)->TokenId());
    at = pattern->insert(pattern->begin(), seconds.get());
    EXPECT_EQ(pattern->begin(), at);
    EXPECT_EQ((TokenList{{34, 22, 1, 32, 34}, {":"}}), Tokens(*pattern));

    // Erasing the last token returns end().
    at = pattern->erase(pattern->end() - 1);
    EXPECT_EQ(pattern->end(), at);
    EXPECT_EQ(4u, pattern->size());
    // Erasing one returns the position, which now holds the next token.
    at = pattern->erase(pattern->begin());
    EXPECT_EQ(22, (*at)->TokenId());
    // A range: returns first.
    at = pattern->erase(pattern->begin() + 1, pattern->begin() + 3);
    EXPECT_EQ(pattern->end(), at);
    EXPECT_EQ((TokenList{{22}, {}}), Tokens(*pattern));
}

TEST(FmtPatternTest, AssignmentCopiesOnlyBetweenPatternsOfOneKind) {
    auto date = TimePattern();
    std::unique_ptr<luFmtPattern> other(CreateDateFmtPattern());
    other->push_back(TokEra);
    *other = *date;
    EXPECT_EQ(Tokens(*date), Tokens(*other));

    std::unique_ptr<luFmtPattern> number(CreateNumberFmtPattern());
    number->push_back(TokDigitOrZero);
    *number = *date;  // kinds differ: the target is emptied and keeps its kind
    EXPECT_EQ(0u, number->size());
    EXPECT_FALSE(number->IsDate());

    *date = *date;  // self-assignment keeps the tokens
    EXPECT_EQ(3u, date->size());
}

}  // namespace

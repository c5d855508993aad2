// luSimpleShaper: sentences in Arabic and Hebrew with numbers and Latin words
// turned into their visual form in place, and what a refused render leaves.
//
// The expected texts were worked out by hand. Arabic joining: kaf teh alef beh
// ("kitab") gives kaf initial U+FEDB, teh medial U+FE98, alef final U+FE8E,
// and beh isolated U+FE8F, because alef never joins the letter after it; seen
// lam alef meem ("salam") gives seen initial U+FEB3, the final lam-alef
// ligature U+FEFC, and meem isolated U+FEE1. Reordering: digits after Arabic
// letters become Arabic numbers, which sit one level above a right-to-left
// run and two above a left-to-right paragraph; a Latin word sits one level
// above a right-to-left paragraph; spaces take the direction of their
// neighbours when both agree (numbers count as right to left), else the
// paragraph's; each run of a raised level keeps its inner order.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "kai18n/facets/lu_simple_shaper.h"
#include "test_support.h"

namespace {

using test_support::Str;
using test_support::U16;

// "kitab salam 42 web", logical order.
const std::u16string kArabic = u"\u0643\u062A\u0627\u0628 \u0633\u0644\u0627\u0645 42 web";
// "shalom 42 (ICU) olam.", logical order.
const std::u16string kHebrew = u"\u05E9\u05DC\u05D5\u05DD 42 (ICU) \u05E2\u05D5\u05DC\u05DD.";

struct ShapeCase {
    const char* what;
    std::u16string text;
    unsigned char direction;
    std::u16string expected;
};

void PrintTo(const ShapeCase& c, std::ostream* os) {
    *os << c.what;
}

class SimpleShaperSentenceTest : public ::testing::TestWithParam<ShapeCase> {};

TEST_P(SimpleShaperSentenceTest, ComesOutInVisualOrderWithJoinedForms) {
    const ShapeCase& c = GetParam();
    luSimpleShaper shaper;
    ucs2string text = Str(c.text);
    EXPECT_TRUE(shaper.BidiAndShape(text, c.direction)) << c.what;
    EXPECT_EQ(U16(text), c.expected) << c.what;
    EXPECT_EQ(text.c_str()[text.length()], 0) << c.what;
}

INSTANTIATE_TEST_SUITE_P(
    Sentences, SimpleShaperSentenceTest,
    ::testing::Values(
        // Right to left: the Latin word and the number stand in their own
        // order, the Arabic words reversed, the ligature one unit shorter.
        ShapeCase{"Arabic, right to left", kArabic, 1,
                  u"web 42 \uFEE1\uFEFC\uFEB3 \uFE8F\uFE8E\uFE98\uFEDB"},
        ShapeCase{"Arabic, direction from the first letter", kArabic, 2,
                  u"web 42 \uFEE1\uFEFC\uFEB3 \uFE8F\uFE8E\uFE98\uFEDB"},
        // Left to right: the space before "web" takes the paragraph's
        // direction, so the Arabic run with its number comes first.
        ShapeCase{"Arabic, left to right", kArabic, 0,
                  u"42 \uFEE1\uFEFC\uFEB3 \uFE8F\uFE8E\uFE98\uFEDB web"},
        // The brackets hold Latin but follow right-to-left text, so they
        // belong to the right-to-left run and are mirrored; the full stop
        // ends the sentence at the left.
        ShapeCase{"Hebrew, right to left", kHebrew, 1,
                  u".\u05DD\u05DC\u05D5\u05E2 (ICU) 42 \u05DD\u05D5\u05DC\u05E9"},
        ShapeCase{"Hebrew, direction from the first letter", kHebrew, 2,
                  u".\u05DD\u05DC\u05D5\u05E2 (ICU) 42 \u05DD\u05D5\u05DC\u05E9"},
        // Left to right: the number joins the first Hebrew word's run, the
        // bracketed Latin word and the full stop stay left to right.
        ShapeCase{"Hebrew, left to right", kHebrew, 0,
                  u"42 \u05DD\u05D5\u05DC\u05E9 (ICU) \u05DD\u05DC\u05D5\u05E2."}));

TEST(SimpleShaperTest, EmptyTextPassesWithLengthZero) {
    luSimpleShaper shaper;
    for (unsigned char direction = 0; direction <= 2; ++direction) {
        ucs2string text;
        EXPECT_TRUE(shaper.BidiAndShape(text, direction));
        EXPECT_EQ(text.length(), 0u);
    }
}

TEST(SimpleShaperTest, FalseResultLeavesTextUnchanged) {
    luSimpleShaper shaper;
    for (unsigned char direction : {3, 7, 255}) {
        ucs2string text = Str(kArabic);
        EXPECT_FALSE(shaper.BidiAndShape(text, direction));
        EXPECT_EQ(U16(text), kArabic);
    }
    ucs2string empty;
    EXPECT_FALSE(shaper.BidiAndShape(empty, 7));
    EXPECT_TRUE(empty.empty());
    EXPECT_FALSE(empty.isnull());
}

TEST(SimpleShaperTest, OneShaperServesSeveralTexts) {
    luSimpleShaper shaper;
    ucs2string arabic = Str(kArabic);
    ucs2string hebrew = Str(kHebrew);
    ucs2string latin = Str(u"plain text");
    ucs2string refused = Str(u"\u05D0\u05D1");
    ucs2string empty;
    EXPECT_TRUE(shaper.BidiAndShape(arabic, 1));
    EXPECT_TRUE(shaper.BidiAndShape(hebrew, 2));
    EXPECT_FALSE(shaper.BidiAndShape(refused, 7));
    EXPECT_TRUE(shaper.BidiAndShape(latin, 0));
    EXPECT_TRUE(shaper.BidiAndShape(empty, 1));
    EXPECT_EQ(U16(arabic), u"web 42 \uFEE1\uFEFC\uFEB3 \uFE8F\uFE8E\uFE98\uFEDB");
    EXPECT_EQ(U16(hebrew), u".\u05DD\u05DC\u05D5\u05E2 (ICU) 42 \u05DD\u05D5\u05DC\u05E9");
    EXPECT_EQ(U16(refused), u"\u05D0\u05D1");
    EXPECT_EQ(U16(latin), u"plain text");
    EXPECT_EQ(empty.length(), 0u);
    // Shaping the visual form again reverses the right-to-left runs back.
    ucs2string twice = Str(u"\u05D0\u05D1 \u05D2");
    EXPECT_TRUE(shaper.BidiAndShape(twice, 1));
    EXPECT_EQ(U16(twice), u"\u05D2 \u05D1\u05D0");
    EXPECT_TRUE(shaper.BidiAndShape(twice, 1));
    EXPECT_EQ(U16(twice), u"\u05D0\u05D1 \u05D2");
}

TEST(SimpleShaperTest, CopiesWorkOnTheirOwn) {
    luSimpleShaper first;
    ucs2string text = Str(u"\u0644\u0627");
    ASSERT_TRUE(first.BidiAndShape(text, 1));
    luSimpleShaper copy(first);
    luSimpleShaper assigned;
    assigned = first;
    ucs2string a = Str(u"\u0628\u0628");
    ucs2string b = Str(u"\u0628\u062F");
    EXPECT_TRUE(copy.BidiAndShape(a, 1));
    EXPECT_TRUE(assigned.BidiAndShape(b, 1));
    EXPECT_EQ(U16(text), u"\uFEFB");
    EXPECT_EQ(U16(a), u"\uFE90\uFE91");
    EXPECT_EQ(U16(b), u"\uFEAA\uFE91");
}

}  // namespace

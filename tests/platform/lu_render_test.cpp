// luRender: Arabic joining forms, bidirectional reordering, mirroring, and
// what a failed render leaves behind. Every expected text was worked out by
// hand from the joining classes of the letters (isolated, final, initial and
// medial forms follow each other in the presentation forms block) and from
// the rules of the bidirectional algorithm.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "kai18n/platform/lu_render.h"
#include "test_support.h"

namespace {

using test_support::Units;

std::u16string Render(luRender& render, const std::u16string& text, unsigned char direction) {
    const Units units(text.begin(), text.end());
    EXPECT_TRUE(render.renderString(units.data(), static_cast<int>(units.size()), direction));
    return std::u16string(render.c_str(), render.c_str() + render.size());
}

std::u16string Result(const luRender& render) {
    return std::u16string(render.c_str(), render.c_str() + render.size());
}

struct RenderCase {
    const char* what;
    std::u16string text;
    unsigned char direction;
    std::u16string expected;
};

void PrintTo(const RenderCase& c, std::ostream* os) {
    *os << c.what;
}

class LuRenderCaseTest : public ::testing::TestWithParam<RenderCase> {};

TEST_P(LuRenderCaseTest, GivesTheVisualForm) {
    const RenderCase& c = GetParam();
    luRender render;
    EXPECT_EQ(Render(render, c.text, c.direction), c.expected) << c.what;
    EXPECT_EQ(render.c_str()[render.size()], 0) << "the result ends with a zero unit";
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LuRenderCaseTest,
    ::testing::Values(
        // Joining forms. An Arabic run is right to left in either paragraph
        // direction, so its shaped letters come out reversed.
        RenderCase{"beh alone is isolated", u"\u0628", 0, u"\uFE8F"},
        RenderCase{"beh beh: initial, final", u"\u0628\u0628", 1, u"\uFE90\uFE91"},
        RenderCase{"beh beh beh: initial, medial, final", u"\u0628\u0628\u0628", 1,
                   u"\uFE90\uFE92\uFE91"},
        RenderCase{"dal does not join the next letter: both isolated", u"\u062F\u0628", 1,
                   u"\uFE8F\uFEA9"},
        RenderCase{"beh dal: initial, final", u"\u0628\u062F", 1, u"\uFEAA\uFE91"},
        RenderCase{"a space breaks the joining", u"\u0628 \u0628", 1, u"\uFE8F \uFE8F"},
        RenderCase{"lam alef alone: one isolated ligature", u"\u0644\u0627", 1, u"\uFEFB"},
        RenderCase{"seen lam alef meem: initial, final ligature, isolated",
                   u"\u0633\u0644\u0627\u0645", 1, u"\uFEE1\uFEFC\uFEB3"},
        // Reordering without Arabic letters.
        RenderCase{"Latin in a left-to-right paragraph stays", u"abc 12", 0, u"abc 12"},
        RenderCase{"Latin from the text stays", u"abc 12", 2, u"abc 12"},
        RenderCase{"Latin in a right-to-left paragraph keeps its own order", u"abc", 1, u"abc"},
        RenderCase{"Hebrew is reversed", u"\u05D0\u05D1\u05D2", 0, u"\u05D2\u05D1\u05D0"},
        // Latin, space, Hebrew in a right-to-left paragraph: the space
        // between L and R takes the paragraph direction, so the Latin word
        // ends up on the right.
        RenderCase{"mixed runs in a right-to-left paragraph", u"ab \u05D0\u05D1", 1,
                   u"\u05D1\u05D0 ab"},
        RenderCase{"the same from the text: the first strong letter is Latin", u"ab \u05D0\u05D1",
                   2, u"ab \u05D1\u05D0"},
        // Without a strong character the text gives a left-to-right
        // paragraph; a right-to-left one puts the numbers in reverse order.
        RenderCase{"no strong character: left to right", u"12 34", 2, u"12 34"},
        RenderCase{"numbers in a right-to-left paragraph", u"12 34", 1, u"34 12"},
        // Brackets resolve to the right-to-left run around them and are
        // mirrored there.
        RenderCase{"brackets are mirrored in a right-to-left run", u"\u05D0(\u05D1)", 1,
                   u"(\u05D1)\u05D0"},
        // Directional marks are left out.
        RenderCase{"a left-to-right mark is removed", u"a\u200Eb", 0, u"ab"},
        RenderCase{"a right-to-left mark is removed", u"\u05D0\u200F\u05D1", 1, u"\u05D1\u05D0"}));

TEST(LuRenderTest, StartsWithAnEmptyZeroTerminatedResult) {
    const luRender render;
    ASSERT_NE(render.c_str(), nullptr);
    EXPECT_EQ(render.size(), 0);
    EXPECT_EQ(render.c_str()[0], 0);
}

TEST(LuRenderTest, EmptyTextRendersEmpty) {
    luRender render;
    Render(render, u"abc", 0);
    EXPECT_TRUE(render.renderString(nullptr, 0, 1));
    EXPECT_EQ(render.size(), 0);
    EXPECT_EQ(render.c_str()[0], 0);
}

struct BadCall {
    const char* what;
    bool nullText;
    int length;
    unsigned char direction;
};

void PrintTo(const BadCall& c, std::ostream* os) {
    *os << c.what;
}

class LuRenderFailureTest : public ::testing::TestWithParam<BadCall> {};

// A refused render returns false and keeps the previous result.
TEST_P(LuRenderFailureTest, ReturnsFalseAndKeepsThePreviousResult) {
    const BadCall& c = GetParam();
    luRender render;
    ASSERT_EQ(Render(render, u"\u0628\u0628", 1), u"\uFE90\uFE91");
    const unsigned short text[] = {'x', 'y'};
    EXPECT_FALSE(render.renderString(c.nullText ? nullptr : text, c.length, c.direction)) << c.what;
    EXPECT_EQ(Result(render), u"\uFE90\uFE91") << c.what;
}

INSTANTIATE_TEST_SUITE_P(Calls, LuRenderFailureTest,
                         ::testing::Values(BadCall{"direction 3", false, 2, 3},
                                           BadCall{"direction 7", false, 2, 7},
                                           BadCall{"direction 255", false, 2, 255},
                                           BadCall{"direction 7 on empty text", false, 0, 7},
                                           BadCall{"negative length", false, -1, 0},
                                           BadCall{"null text with a length", true, 2, 0}));

TEST(LuRenderTest, CopiesKeepTheirOwnResult) {
    luRender first;
    Render(first, u"\u05D0\u05D1", 1);
    luRender copy(first);
    luRender assigned;
    assigned = first;
    Render(first, u"xyz", 0);
    EXPECT_EQ(Result(copy), u"\u05D1\u05D0");
    EXPECT_EQ(Result(assigned), u"\u05D1\u05D0");
    EXPECT_EQ(Result(first), u"xyz");
    // A copy renders on its own.
    EXPECT_EQ(Render(copy, u"\u0644\u0627", 1), u"\uFEFB");
    EXPECT_EQ(Result(first), u"xyz");
}

}  // namespace

// luRender: Arabic joining forms, bidirectional reordering, mirroring, and
// what a failed render leaves behind. Every expected text was worked out by
// hand from the joining classes of the letters (isolated, final, initial and
// medial forms follow each other in the presentation forms block) and from
// the rules of the bidirectional algorithm.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "kai18n/platform/lu_render.h"
#include "test_support.h"

namespace {

std::u16string Result(const luRender& render) {
    EXPECT_EQ(render.c_str()[render.size()], 0) << "the result ends with a zero unit";
    return std::u16string(render.c_str(), render.c_str() + render.size());
}

std::u16string Render(luRender& render, const std::u16string& text, unsigned char direction) {
    const test_support::Units units = test_support::UnitsOf(text);
    EXPECT_TRUE(render.renderString(units.data(), static_cast<int>(units.size()), direction));
    return Result(render);
}

// Rows "direction|text|visual text", the direction 0 (left to right), 1
// (right to left) or 2 (from the first strong letter).
TEST(LuRenderTest, GivesTheVisualForm) {
    const std::u16string rows[] = {
        // Joining forms. An Arabic run is right to left in either paragraph
        // direction: beh alone, two, three; dal does not join the next letter;
        // a space breaks the joining; lam alef is one ligature, isolated or final.
        u"0|\u0628|\uFE8F", u"1|\u0628\u0628|\uFE90\uFE91",
        u"1|\u0628\u0628\u0628|\uFE90\uFE92\uFE91", u"1|\u062F\u0628|\uFE8F\uFEA9",
        u"1|\u0628\u062F|\uFEAA\uFE91", u"1|\u0628 \u0628|\uFE8F \uFE8F", u"1|\u0644\u0627|\uFEFB",
        u"1|\u0633\u0644\u0627\u0645|\uFEE1\uFEFC\uFEB3",
        // Latin stays in its order; Hebrew is reversed; between L and R a space
        // takes the paragraph's direction; without a strong letter the text is
        // left to right; brackets in a right-to-left run are mirrored.
        u"0|abc 12|abc 12", u"2|abc 12|abc 12", u"1|abc|abc",
        u"0|\u05D0\u05D1\u05D2|\u05D2\u05D1\u05D0", u"1|ab \u05D0\u05D1|\u05D1\u05D0 ab",
        u"2|ab \u05D0\u05D1|ab \u05D1\u05D0", u"2|12 34|12 34", u"1|12 34|34 12",
        u"1|\u05D0(\u05D1)|(\u05D1)\u05D0",
        // Directional marks are left out.
        u"0|a\u200Eb|ab", u"1|\u05D0\u200F\u05D1|\u05D1\u05D0"};
    for (const std::u16string& row : rows) {
        const std::size_t bar = row.find(u'|', 2);
        luRender render;
        EXPECT_EQ(Render(render, row.substr(2, bar - 2), static_cast<unsigned char>(row[0] - u'0')),
                  row.substr(bar + 1));
    }
}

// A refused render returns false and keeps the previous result; copies keep
// their own result.
TEST(LuRenderTest, EmptyRefusedAndCopied) {
    luRender render;
    EXPECT_EQ(Result(render), u"");
    Render(render, u"abc", 0);
    EXPECT_TRUE(render.renderString(nullptr, 0, 1));
    EXPECT_EQ(Result(render), u"");
    ASSERT_EQ(Render(render, u"\u0628\u0628", 1), u"\uFE90\uFE91");
    const unsigned short xy[] = {'x', 'y'};
    for (const auto& [length, direction] : {std::pair{2, 3}, {0, 255}, {-1, 0}}) {
        EXPECT_FALSE(render.renderString(xy, length, static_cast<unsigned char>(direction)));
        EXPECT_EQ(Result(render), u"\uFE90\uFE91");
    }
    EXPECT_FALSE(render.renderString(nullptr, 2, 0));
    EXPECT_EQ(Result(render), u"\uFE90\uFE91");
    luRender copy(render), assigned;
    assigned = render;
    Render(render, u"xyz", 0);
    EXPECT_EQ(Result(copy) + Result(assigned) + Result(render), u"\uFE90\uFE91\uFE90\uFE91xyz");
    EXPECT_EQ(Render(copy, u"\u0644\u0627", 1) + Result(render), u"\uFEFBxyz");
}

}  // namespace

// luRender and luSimpleShaper over it. Every expected text was worked out by hand from the joining
// classes of the letters and the rules of the bidirectional algorithm.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "kai18n/facets/lu_simple_shaper.h"
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

// Rows "direction|text|visual text", the direction 0 (left to right), 1 (right to left) or 2 (from
// the first strong letter).
TEST(LuRenderTest, GivesTheVisualForm) {
    const std::u16string rows[] = {
        // Joining forms. An Arabic run is right to left in either paragraph direction: beh alone,
        // two, three; dal does not join the next letter; a space breaks the joining; lam alef is
        // one ligature, isolated or final.
        u"0|\u0628|\uFE8F", u"1|\u0628\u0628|\uFE90\uFE91",
        u"1|\u0628\u0628\u0628|\uFE90\uFE92\uFE91", u"1|\u062F\u0628|\uFE8F\uFEA9",
        u"1|\u0628\u062F|\uFEAA\uFE91", u"1|\u0628 \u0628|\uFE8F \uFE8F", u"1|\u0644\u0627|\uFEFB",
        u"1|\u0633\u0644\u0627\u0645|\uFEE1\uFEFC\uFEB3",
        // Latin stays in its order; Hebrew is reversed; between L and R a space takes the
        // paragraph's direction; without a strong letter the text is left to right; brackets in a
        // right-to-left run are mirrored.
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

// A refused render returns false and keeps the previous result.
TEST(LuRenderTest, EmptyAndRefused) {
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
}

// luSimpleShaper renders in place: "kitab salam 42", the lam-alef ligature one unit shorter.
TEST(SimpleShaperTest, ShapesInPlaceAndLeavesARefusedTextAlone) {
    luSimpleShaper shaper;
    const std::u16string arabic = u"\u0643\u062A\u0627\u0628 \u0633\u0644\u0627\u0645 42";
    ucs2string text = test_support::Str(arabic), refused = test_support::Str(arabic), empty;
    EXPECT_TRUE(shaper.BidiAndShape(text, 1) && shaper.BidiAndShape(empty, 1) && empty.empty());
    EXPECT_EQ(test_support::U16(text), u"42 \uFEE1\uFEFC\uFEB3 \uFE8F\uFE8E\uFE98\uFEDB");
    EXPECT_EQ(text.c_str()[text.length()], 0);
    EXPECT_FALSE(shaper.BidiAndShape(refused, 3));
    EXPECT_EQ(test_support::U16(refused), arabic);
}

}  // namespace

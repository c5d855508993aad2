// luSimpleShaper: a text turned into its visual form in place (the forms are
// luRender's, tested in tests/platform), and what a refused render leaves.
#include <gtest/gtest.h>

#include "kai18n/facets/lu_simple_shaper.h"
#include "test_support.h"

namespace {

using test_support::Str;
using test_support::U16;

// "kitab salam 42": joined forms, the lam-alef ligature one unit shorter.
TEST(SimpleShaperTest, ShapesInPlaceAndLeavesARefusedTextAlone) {
    luSimpleShaper shaper, copy;
    const std::u16string arabic = u"\u0643\u062A\u0627\u0628 \u0633\u0644\u0627\u0645 42";
    ucs2string text = Str(arabic), refused = Str(arabic), empty;
    EXPECT_TRUE(shaper.BidiAndShape(text, 1));
    EXPECT_EQ(U16(text), u"42 \uFEE1\uFEFC\uFEB3 \uFE8F\uFE8E\uFE98\uFEDB");
    EXPECT_EQ(text.c_str()[text.length()], 0);
    EXPECT_FALSE(shaper.BidiAndShape(refused, 3));
    EXPECT_EQ(U16(refused), arabic);
    EXPECT_TRUE(shaper.BidiAndShape(empty, 1) && empty.empty());
    copy = shaper;
    ucs2string again = Str(u"\u0644\u0627");
    EXPECT_TRUE(luSimpleShaper(copy).BidiAndShape(again, 2));
    EXPECT_EQ(U16(again), u"\uFEFB");
}

}  // namespace

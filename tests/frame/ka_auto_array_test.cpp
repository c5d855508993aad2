#include "kai18n/frame/ka_auto_array.h"

#include <gtest/gtest.h>

namespace {

// Counts destructor runs, so that a missing or a second release shows as a
// wrong count (and, under AddressSanitizer, as a leak or a double free).
struct Tracked {
    inline static int destroyed = 0;
    ~Tracked() { ++destroyed; }
};
using Array = kaAutoArray<Tracked>;

TEST(KaAutoArrayTest, CopyMovesOwnershipAndSourceKeepsPointer) {
    Tracked::destroyed = 0;
    Tracked *p = new Tracked[3], *q = new Tracked[4];
    {
        Array source(p), viewer(q);
        {
            const Array copy(source), second(source);  // the source no longer owns
            EXPECT_TRUE(copy.get() == p && second.get() == p && source.get() == p && &*copy == p);
        }
        EXPECT_EQ(Tracked::destroyed, 3);                         // released by `copy` alone
        EXPECT_TRUE(viewer.release() == q && viewer.get() == q);  // keeps it, stops owning
    }
    EXPECT_EQ(Tracked::destroyed, 3);
    delete[] q;
}

// Another array: the target releases its own and takes pointer and ownership, if
// the source has it. The same array: only the ownership moves, and `a = a` keeps it.
TEST(KaAutoArrayTest, AssignmentReleasesAnotherArrayOrMovesOnlyOwnership) {
    Tracked::destroyed = 0;
    Tracked* p = new Tracked[2];
    Array source(p), target(new Tracked[5]);
    target = source;
    EXPECT_TRUE(Tracked::destroyed == 5 && target.get() == p && source.get() == p);
    target = static_cast<Array&>(target);  // keeps ownership
    {
        Array viewer(new Tracked[1]), other(target);  // other owns p
        viewer = source;  // the source does not own p: neither does the viewer
        viewer = source;  // the same array again: nothing moves
        other = target;   // target does not own p either: other keeps ownership
        target = other;   // ownership comes back
    }
    EXPECT_EQ(Tracked::destroyed, 6);
    target = Array(new Tracked[1]);
    EXPECT_EQ(Tracked::destroyed, 8);  // p, by its last owner
}

TEST(KaAutoArrayTest, ExportedInstantiationsGiveTheFirstElement) {
    kaAutoArray<unsigned int> ints(new unsigned int[2]{5, 6});
    kaAutoArray<unsigned short> shorts(new unsigned short[1]{0xFFFF});
    kaAutoArray<unsigned char> bytes(new unsigned char[1]{'a'}), none;
    *ints = 9;
    EXPECT_TRUE(ints.get()[0] == 9u && *shorts == 0xFFFF && *bytes == 'a' && !none.get());
}

}  // namespace

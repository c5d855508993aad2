#include "kai18n/frame/ka_auto_array.h"

#include <gtest/gtest.h>

namespace {

// Counts destructor runs, so that a missing or a second release shows as a
// wrong count (and, under AddressSanitizer, as a leak or a double free).
struct Tracked {
    static int destroyed;
    ~Tracked() { ++destroyed; }
};
int Tracked::destroyed = 0;

class KaAutoArrayTest : public ::testing::Test {
  protected:
    void SetUp() override { Tracked::destroyed = 0; }
};

TEST_F(KaAutoArrayTest, CopyMovesOwnershipAndSourceKeepsPointer) {
    Tracked* p = new Tracked[3];
    {
        kaAutoArray<Tracked> source(p);
        {
            const kaAutoArray<Tracked> copy(source);
            const kaAutoArray<Tracked> second(source);  // the source no longer owns
            EXPECT_TRUE(copy.get() == p && second.get() == p && source.get() == p);
        }
        EXPECT_EQ(Tracked::destroyed, 3);  // released by `copy` alone
    }
    EXPECT_EQ(Tracked::destroyed, 3);
    { kaAutoArray<Tracked> nothing; }
}

TEST_F(KaAutoArrayTest, AssignmentOfAnotherArrayReleasesOwnAndTakesOwnership) {
    Tracked* p = new Tracked[2];
    kaAutoArray<Tracked> source(p);
    {
        kaAutoArray<Tracked> target(new Tracked[5]);
        target = source;
        EXPECT_EQ(Tracked::destroyed, 5);
        EXPECT_TRUE(target.get() == p && source.get() == p);
    }
    EXPECT_EQ(Tracked::destroyed, 7);

    Tracked* q = new Tracked[4];
    kaAutoArray<Tracked> viewer(q);
    EXPECT_EQ(viewer.release(), q);  // keeps the pointer, stops owning
    EXPECT_EQ(viewer.get(), q);
    viewer = kaAutoArray<Tracked>(new Tracked[1]);  // q is not released
    EXPECT_EQ(Tracked::destroyed, 7);
    delete[] q;
}

TEST_F(KaAutoArrayTest, AssignmentOfTheSameArrayMovesOnlyOwnership) {
    {
        kaAutoArray<Tracked> a(new Tracked[2]);
        kaAutoArray<Tracked>& alias = a;
        a = alias;  // keeps ownership
        {
            kaAutoArray<Tracked> b(a);  // b owns
            a = b;                      // ownership comes back to a
        }
        EXPECT_EQ(Tracked::destroyed, 0);
        {
            kaAutoArray<Tracked> c(a);  // c owns
            c = a;                      // a does not: c keeps ownership
        }
        EXPECT_EQ(Tracked::destroyed, 2);
    }
    EXPECT_EQ(Tracked::destroyed, 2);
}

TEST_F(KaAutoArrayTest, ExportedInstantiationsGiveTheFirstElement) {
    kaAutoArray<unsigned int> ints(new unsigned int[3]{5, 6, 7});
    *ints = 9;
    EXPECT_EQ(ints.get()[0], 9u);
    kaAutoArray<unsigned short> shorts(new unsigned short[1]{0xFFFF});
    EXPECT_EQ(*shorts, 0xFFFF);
    kaAutoArray<unsigned char> bytes(new unsigned char[2]{'a', 'b'});
    kaAutoArray<unsigned char> other(new unsigned char[1]{'z'});
    other = bytes;
    EXPECT_EQ(*other, 'a');
}

}  // namespace

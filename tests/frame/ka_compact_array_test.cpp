#include "kai18n/frame/ka_compact_array.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <new>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

// The out-of-memory paths are reached by replacing the nothrow array new, which
// the table uses for every allocation, with one that fails on demand. It serves
// the whole test program, the library included; unarmed, it is the standard one.
namespace {
int g_allocationsBeforeFailure = 0;  // 0: never fail; n: the n-th allocation from now fails
}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (g_allocationsBeforeFailure > 0 && --g_allocationsBeforeFailure == 0) return nullptr;
    try {
        return ::operator new[](size);
    } catch (...) {
        return nullptr;
    }
}

namespace {

constexpr unsigned int kKeys = 65536;

// Reads the representation, which the class keeps protected for this purpose.
template <class T>
class Inspectable : public kaCompactArray<T> {
  public:
    using kaCompactArray<T>::kaCompactArray;
    const unsigned short* Index() const { return this->m_index; }
    const T* Data() const { return this->m_data; }
    unsigned int DataCount() const { return this->m_dataCount; }
    bool IsCompact() const { return this->m_compact; }
    bool Owns() const { return this->m_owns; }
    std::vector<T> Values() const {
        std::vector<T> values(kKeys);
        for (unsigned int k = 0; k < kKeys; ++k) values[k] = this->GetAt(k);
        return values;
    }
    bool IsExpanded() const {
        for (unsigned int i = 0; i < 512; ++i) {
            if (Index()[i] != i * 128) return false;
        }
        return !IsCompact() && Owns() && DataCount() == kKeys;
    }
    // Builds the table run by run, through the range form of SetAt.
    static Inspectable FromValues(const std::vector<T>& values) {
        Inspectable table;
        for (unsigned int first = 0, last = 0; first < kKeys; first = ++last) {
            while (last + 1 < kKeys && values[last + 1] == values[first]) ++last;
            table.SetAt(first, last, values[first]);
        }
        return table;
    }
};

// Long runs, copies of a few block patterns placed on block boundaries, noise
// from a small alphabet (so that some blocks coincide by chance) and noise over
// the whole range of T.
template <class T>
std::vector<T> RandomValues(std::uint32_t seed) {
    std::mt19937 rng(seed);
    std::vector<std::vector<T>> patterns(3, std::vector<T>(128));
    for (auto& pattern : patterns) {
        for (T& v : pattern) v = static_cast<T>(rng() % 5);
    }
    std::vector<T> values(kKeys);
    for (unsigned int key = 0; key < kKeys;) {
        const unsigned int kind = rng() % 4;
        const T run = static_cast<T>(rng() % 4);
        const std::vector<T>& pattern = patterns[rng() % patterns.size()];
        const unsigned int pad = (128 - key % 128) % 128;
        const unsigned int length = kind == 1 ? pad + 128 : 1 + rng() % 3000;
        for (unsigned int n = 0; n < length && key < kKeys; ++n, ++key) {
            values[key] = kind == 0   ? run
                          : kind == 1 ? (n < pad ? run : pattern[key % 128])
                          : kind == 2 ? static_cast<T>(rng() % 3)
                                      : static_cast<T>(rng());
        }
    }
    return values;
}

void ExpectThrows(long code, const std::function<void()>& f, int failingAllocation = 0) {
    g_allocationsBeforeFailure = failingAllocation;
    try {
        f();
        ADD_FAILURE() << "no exception";
    } catch (const LUException& e) {
        EXPECT_EQ(e.GetResult(), code);
    }
    g_allocationsBeforeFailure = 0;
}

// Index: even blocks at 0, odd blocks at 128. Data: 0..127, then 1000..1127.
template <class T>
struct ConstantArrays {
    std::array<unsigned short, 512> index{};
    std::array<T, 256> data{};
    constexpr ConstantArrays() {
        for (unsigned int i = 0; i < 512; ++i) index[i] = static_cast<unsigned short>(i % 2 * 128);
        for (unsigned int k = 0; k < 128; ++k) {
            data[k] = static_cast<T>(k);
            data[128 + k] = static_cast<T>(1000 + k);
        }
    }
    typename kaCompactArray<T>::StaticStorage Storage() const {
        return {512, 256, const_cast<unsigned short*>(index.data()), const_cast<T*>(data.data())};
    }
};

template <class T>
class KaCompactArrayTest : public ::testing::Test {
  protected:
    // In read-only memory: a write through a table would fault.
    static constexpr ConstantArrays<T> kConstant{};
};
using ElementTypes = ::testing::Types<unsigned short, unsigned int>;
TYPED_TEST_SUITE(KaCompactArrayTest, ElementTypes);

// Compact keeps every value, gives one 128-value slot to each distinct block in
// order of first appearance and shares exactly the identical blocks; Expand
// restores the values; compacting again gives the same size.
TYPED_TEST(KaCompactArrayTest, CompactAndExpandKeepEveryValue) {
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE(seed);
        const std::vector<TypeParam> expected = RandomValues<TypeParam>(seed);
        auto table = Inspectable<TypeParam>::FromValues(expected);
        ASSERT_EQ(table.Values(), expected);
        table.Compact();
        EXPECT_TRUE(table.IsCompact() && table.Owns());
        EXPECT_EQ(table.Values(), expected);
        std::map<std::vector<TypeParam>, unsigned int> slots;
        for (unsigned int b = 0; b < 512; ++b) {
            const auto block = expected.begin() + b * 128;
            const auto found = slots.emplace(std::vector<TypeParam>(block, block + 128),
                                             static_cast<unsigned int>(slots.size() * 128));
            ASSERT_EQ(table.Index()[b], found.first->second) << "block " << b;
        }
        const unsigned int compactSize = table.DataCount();
        EXPECT_EQ(compactSize, slots.size() * 128);
        table.Expand();
        EXPECT_TRUE(table.IsExpanded());
        EXPECT_EQ(table.Values(), expected);
        table.Compact();
        EXPECT_EQ(table.DataCount(), compactSize);
    }
}

TYPED_TEST(KaCompactArrayTest, CompactSharesOnlyIdenticalWholeBlocks) {
    Inspectable<TypeParam> uniform(TypeParam(9));
    EXPECT_TRUE(uniform.IsExpanded());
    uniform.Compact();
    EXPECT_EQ(uniform.DataCount(), 128u);
    for (unsigned int i = 0; i < 512; ++i) EXPECT_EQ(uniform.Index()[i], 0) << i;
    EXPECT_EQ(uniform.Values(), std::vector<TypeParam>(kKeys, 9));

    // Blocks 3 and 7 are equal; block 5 differs from them in its last value;
    // block 9 starts with the second half of block 3, an unaligned overlap.
    Inspectable<TypeParam> table;
    for (unsigned int k = 0; k < 128; ++k) {
        table.SetAt(3 * 128 + k, TypeParam(k + 1));
        table.SetAt(7 * 128 + k, TypeParam(k + 1));
        table.SetAt(5 * 128 + k, TypeParam(k == 127 ? 0 : k + 1));
        table.SetAt(9 * 128 + k, TypeParam(k + 65));
    }
    const std::vector<TypeParam> before = table.Values();
    table.Compact();
    const unsigned short* index = table.Index();
    const std::vector<unsigned short> starts(index, index + 10);
    EXPECT_EQ(starts, (std::vector<unsigned short>{0, 0, 0, 128, 0, 256, 0, 128, 0, 384}));
    EXPECT_EQ(table.DataCount(), 512u);
    EXPECT_EQ(table.Values(), before);

    const TypeParam* data = table.Data();
    table.Compact();  // a second time changes nothing, not even the arrays
    EXPECT_TRUE(table.Data() == data && table.Index() == index && table.DataCount() == 512u);
}

TYPED_TEST(KaCompactArrayTest, SetAtExpandsAndStoresExactlyTheRange) {
    std::vector<TypeParam> model = RandomValues<TypeParam>(99);
    auto table = Inspectable<TypeParam>::FromValues(model);
    table.Compact();
    const TypeParam* compactData = table.Data();
    table.SetAt(10, 0, TypeParam(5));  // first > last: nothing, not even an expansion
    EXPECT_TRUE(table.IsCompact() && table.Data() == compactData);

    const std::pair<unsigned short, unsigned short> ranges[] = {
        {1000, 1000}, {0xFFFF, 0xFFFF}, {100, 300}, {0xFF80, 0xFFFF}, {0, 0}};
    for (const auto& [first, last] : ranges) {
        table.Compact();
        table.SetAt(first, last, TypeParam(first + 3));
        for (unsigned int k = first; k <= last; ++k) model[k] = TypeParam(first + 3);
        EXPECT_TRUE(table.IsExpanded());
        ASSERT_EQ(table.Values(), model) << first << ".." << last;
    }
    table.Compact();
    table.SetAt(0x1234, TypeParam(77));
    model[0x1234] = TypeParam(77);
    EXPECT_TRUE(table.IsExpanded());
    EXPECT_EQ(table.Values(), model);
}

TYPED_TEST(KaCompactArrayTest, TableOnConstantStorageNeverWritesIt) {
    const auto& constant = TestFixture::kConstant;
    const ConstantArrays<TypeParam> copy = constant;
    std::vector<TypeParam> expected(kKeys);
    for (unsigned int k = 0; k < kKeys; ++k) expected[k] = TypeParam(k / 128 % 2 * 1000 + k % 128);

    Inspectable<TypeParam> table(constant.Storage());
    EXPECT_TRUE(table.IsCompact() && !table.Owns());
    EXPECT_EQ(table.Index(), constant.index.data());
    EXPECT_EQ(table.Values(), expected);
    const Inspectable<TypeParam> duplicate(table);
    EXPECT_TRUE(duplicate.Owns() && duplicate.Index() != constant.index.data());
    EXPECT_EQ(duplicate.Values(), expected);

    table.Compact();
    table.SetAt(5, TypeParam(77));
    expected[5] = TypeParam(77);
    EXPECT_TRUE(table.IsExpanded());
    EXPECT_EQ(table.Values(), expected);
    Inspectable<TypeParam> expanded(constant.Storage());
    expanded.Expand();
    EXPECT_EQ(expanded.Values(), duplicate.Values());
    expanded = Inspectable<TypeParam>(constant.Storage());
    EXPECT_EQ(constant.index, copy.index);
    EXPECT_EQ(constant.data, copy.data);
}

// Rejected arrays stay the caller's, who releases them here: under
// AddressSanitizer a release by the constructor shows as a double free, and
// accepted arrays that the table does not release show as a leak.
TYPED_TEST(KaCompactArrayTest, AdoptingConstructorChecksBeforeTakingOwnership) {
    struct Case {
        unsigned int indexCount;
        unsigned short entry;  // stored at index[300]; the data count is 200
        bool nullIndex, accepted;
    } const cases[] = {{512, 327, false, true},
                       {512, 328, false, false},
                       {511, 0, false, false},
                       {513, 0, false, false},
                       {512, 0, true, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.entry);
        unsigned short* index = c.nullIndex ? nullptr : new unsigned short[513]();
        if (index != nullptr) index[300] = c.entry;
        TypeParam* data = new TypeParam[455]();
        data[c.entry] = TypeParam(11);
        if (c.accepted) {
            const Inspectable<TypeParam> table(index, c.indexCount, data, 200);
            EXPECT_TRUE(table.IsCompact() && table.Owns());
            EXPECT_EQ(table.GetAt(300 * 128), TypeParam(11));
        } else {
            ExpectThrows(LU_E_OUT_OF_RANGE,
                         [&] { Inspectable<TypeParam>(index, c.indexCount, data, 200); });
            delete[] index;
            delete[] data;
        }
    }
}

TYPED_TEST(KaCompactArrayTest, CopiesAreDeep) {
    const std::vector<TypeParam> expected = RandomValues<TypeParam>(5);
    auto compact = Inspectable<TypeParam>::FromValues(expected);
    compact.Compact();
    Inspectable<TypeParam> copy(compact);
    EXPECT_TRUE(copy.IsCompact() && copy.DataCount() == compact.DataCount());
    EXPECT_TRUE(copy.Data() != compact.Data() && copy.Index() != compact.Index());
    copy.SetAt(7, TypeParam(1234));
    EXPECT_EQ(compact.Values(), expected);

    Inspectable<TypeParam> target(TypeParam(8));
    target = compact;
    EXPECT_TRUE(target.IsCompact() && target.DataCount() == compact.DataCount());
    compact = copy;
    EXPECT_TRUE(compact.IsExpanded() && compact.GetAt(7) == TypeParam(1234));
    EXPECT_EQ(target.Values(), expected);
    const TypeParam* data = target.Data();
    Inspectable<TypeParam>& alias = target;
    target = alias;  // does nothing
    EXPECT_EQ(target.Data(), data);
    EXPECT_EQ(target.Values(), expected);

    // The stream constructor's empty table: a copy of it allocates nothing,
    // and it expands to zeros.
    const Inspectable<TypeParam> empty(static_cast<const kaInByteStream*>(nullptr));
    EXPECT_TRUE(empty.Index() == nullptr && empty.Data() == nullptr && empty.DataCount() == 0);
    EXPECT_TRUE(empty.IsCompact() && !empty.Owns());
    Inspectable<TypeParam> emptyCopy(empty);
    EXPECT_TRUE(emptyCopy.Index() == nullptr && emptyCopy.Data() == nullptr);
    emptyCopy.SetAt(3, TypeParam(4));
    std::vector<TypeParam> zeros(kKeys, 0);
    zeros[3] = 4;
    EXPECT_EQ(emptyCopy.Values(), zeros);
}

TYPED_TEST(KaCompactArrayTest, TraceWritesTheAddressOnly) {
    Inspectable<TypeParam> a, b;
    std::ostringstream out;
    out << std::uppercase << std::showbase;
    a.Trace(out);
    const std::string text = out.str();
    ASSERT_TRUE(text.size() > 5 && text.substr(0, 3) == "(0x" &&
                text.substr(text.size() - 2) == ")\n");
    const std::string digits = text.substr(3, text.size() - 5);
    EXPECT_EQ(digits.find_first_not_of("0123456789abcdef"), std::string::npos) << digits;
    EXPECT_EQ(std::strtoull(digits.c_str(), nullptr, 16), reinterpret_cast<std::uintptr_t>(&a));
    out << 255;  // the caller's flags are back
    EXPECT_EQ(out.str(), text + "255");

    a.SetAt(1, TypeParam(2));
    std::ostringstream again, other;
    a.Trace(again);
    b.Trace(other);
    EXPECT_EQ(again.str(), text);
    EXPECT_NE(other.str(), text);
}

TYPED_TEST(KaCompactArrayTest, OutOfMemoryLeavesTablesUsable) {
    using Table = Inspectable<TypeParam>;
    const long oom = LU_E_OUT_OF_MEMORY;
    for (int n : {1, 2})
        ExpectThrows(
            oom, [] { Table table; }, n);

    const std::vector<TypeParam> expected = RandomValues<TypeParam>(3);
    Table table = Table::FromValues(expected);
    for (int n : {1, 2}) {  // the work array, then the new data
        ExpectThrows(
            oom, [&] { table.Compact(); }, n);
        EXPECT_TRUE(table.IsExpanded());
        EXPECT_EQ(table.Values(), expected);
    }
    table.Compact();
    ExpectThrows(
        oom, [&] { table.SetAt(4, TypeParam(1)); }, 1);
    EXPECT_TRUE(table.IsCompact());
    EXPECT_EQ(table.Values(), expected);

    Table onConstant(TestFixture::kConstant.Storage());
    ExpectThrows(
        oom, [&] { onConstant.Expand(); }, 2);  // its own index
    EXPECT_EQ(onConstant.Index(), TestFixture::kConstant.index.data());

    for (int n : {1, 2})
        ExpectThrows(
            oom, [&] { Table copy(table); }, n);
    Table target(TypeParam(6));
    ExpectThrows(
        oom, [&] { target = table; }, 2);
    EXPECT_TRUE(target.Index() == nullptr && target.Data() == nullptr && target.DataCount() == 0);
}

}  // namespace

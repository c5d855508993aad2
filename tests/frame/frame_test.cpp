// The compact table, result codes, LUException and the encoding exception translator.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <map>
#include <new>
#include <random>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <vector>

#include "frame/encoding_exception_translator.h"
#include "kai18n/frame/ka_compact_array.h"
#include "kai18n/frame/result_codes.h"
#include "platform/encoding/encoding_exceptions.h"
#include "test_support.h"

using test_support::ThrownCode;

// The table allocates through the nothrow array new, replaced here for the whole
// program: after `g_failAt = n` the n-th allocation fails, which disarms it.
static int g_failAt = 0;
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (g_failAt > 0 && --g_failAt == 0) return nullptr;
    return ::operator new[](size);  // a real shortage would end the program
}

namespace {

constexpr unsigned int kKeys = 65536;
constexpr long kOutOfMemory = LU_E_OUT_OF_MEMORY;

// Shows the representation, which the class keeps protected for this purpose.
template <class T>
struct Inspectable : kaCompactArray<T> {
    using Base = kaCompactArray<T>;
    using Base::Base, Base::m_index, Base::m_data, Base::m_dataCount, Base::m_compact, Base::m_owns;
    std::vector<T> Values() const {
        std::vector<T> values(kKeys);
        for (unsigned int k = 0; k < kKeys; ++k) values[k] = this->GetAt(k);
        return values;
    }
    bool IsExpanded() const {
        for (unsigned int i = 0; i < 512; ++i)
            if (m_index[i] != i * 128) return false;
        return !m_compact && m_owns && m_dataCount == kKeys;
    }
    static Inspectable FromValues(const std::vector<T>& values) {  // by runs, SetAt(first, last)
        Inspectable table;
        for (unsigned int first = 0, last = 0; first < kKeys; first = ++last) {
            while (last + 1 < kKeys && values[last + 1] == values[first]) ++last;
            table.SetAt(first, last, values[first]);
        }
        return table;
    }
};

// Seed 0: zeros but for blocks 3 and 7, equal; block 5, unlike them in its last value only;
// block 9, from the middle of block 3. Others: runs of one value, of noise or of patterns.
template <class T>
std::vector<T> TestValues(std::uint32_t seed) {
    std::vector<T> values(kKeys);
    for (unsigned int k = 0; seed == 0 && k < 128; ++k) {
        values[3 * 128 + k] = values[7 * 128 + k] = static_cast<T>(k + 1);
        values[5 * 128 + k] = static_cast<T>(k == 127 ? 0 : k + 1);
        values[9 * 128 + k] = static_cast<T>(k + 65);
    }
    std::mt19937 rng(seed);
    for (unsigned int key = 0; seed != 0 && key < kKeys;) {
        const unsigned int kind = rng() % 4, pattern = 7 + rng() % 3, run = rng() % 4;
        const unsigned int end = kind == 1 ? (key / 128 + 2) * 128 : key + 1 + rng() % 3000;
        for (; key < end && key < kKeys; ++key) {
            const unsigned int noise = rng(),
                               choices[] = {run, key % 128 * pattern % 5, noise % 3, noise};
            values[key] = static_cast<T>(choices[kind]);
        }
    }
    return values;
}

// Index: even blocks at 0, odd blocks at 128. Data: 0..127, then 1000..1127.
template <class T>
struct ConstantArrays {
    std::array<unsigned short, 512> index{};
    std::array<T, 256> data{};
    constexpr ConstantArrays() {
        for (unsigned int i = 0; i < 512; ++i) index[i] = static_cast<unsigned short>(i % 2 * 128);
        for (unsigned int k = 0; k < 256; ++k) data[k] = static_cast<T>(k < 128 ? k : 872 + k);
    }
};

template <class T>
struct KaCompactArrayTest : ::testing::Test {
    static constexpr ConstantArrays<T> kConstant{};  // read-only memory: a write would fault
    static typename kaCompactArray<T>::StaticStorage Storage() {
        return {512, 256, const_cast<unsigned short*>(kConstant.index.data()),
                const_cast<T*>(kConstant.data.data())};
    }
};
using ElementTypes = ::testing::Types<unsigned short, unsigned int>;
TYPED_TEST_SUITE(KaCompactArrayTest, ElementTypes);

// Compact keeps every value and gives each distinct block one slot, in order of appearance;
// SetAt expands and stores exactly its keys, but first > last does nothing at all.
TYPED_TEST(KaCompactArrayTest, CompactSharesOnlyIdenticalBlocksAndSetAtExpands) {
    const std::pair<unsigned short, unsigned short> ranges[] = {
        {1000, 1000}, {0xFFFF, 0xFFFF}, {100, 300}, {0xFF80, 0xFFFF}, {0, 0}, {10, 0}, {0, 0xFFFF}};
    for (std::uint32_t seed = 0; seed <= 8; ++seed) {
        SCOPED_TRACE(seed);
        std::vector<TypeParam> model = TestValues<TypeParam>(seed);
        auto table = Inspectable<TypeParam>::FromValues(model);
        table.Compact();
        const TypeParam* data = table.m_data;
        table.Compact();
        EXPECT_TRUE(table.m_compact && table.m_owns && table.m_data == data);
        EXPECT_EQ(table.Values(), model);
        std::map<std::vector<TypeParam>, unsigned int> slots;
        for (unsigned int b = 0; b < 512; ++b) {
            const auto block = model.begin() + b * 128;
            const auto found = slots.emplace(std::vector<TypeParam>(block, block + 128),
                                             static_cast<unsigned int>(slots.size() * 128));
            ASSERT_EQ(table.m_index[b], found.first->second) << "block " << b;
        }
        EXPECT_EQ(table.m_dataCount, slots.size() * 128);
        const auto [first, last] = ranges[seed % 7];
        table.SetAt(first, last, TypeParam(first + 3));
        for (unsigned int k = first; k <= last; ++k) model[k] = TypeParam(first + 3);
        EXPECT_EQ(table.m_compact, first > last);
        // Copies are deep, of compact and expanded tables; self-assignment does nothing.
        Inspectable<TypeParam> copy(table), target(TypeParam(8));
        target = table;
        table.Expand();
        EXPECT_TRUE(table.IsExpanded() && table.Values() == model);
        EXPECT_TRUE(copy.m_data != table.m_data && target.m_data != copy.m_data &&
                    copy.Values() == model && target.Values() == model);
        const TypeParam* expanded = table.m_data;
        table = static_cast<Inspectable<TypeParam>&>(table);
        target = table;
        EXPECT_TRUE(table.m_data == expanded && target.IsExpanded() && target.Values() == model);
    }
}

TYPED_TEST(KaCompactArrayTest, TableOnConstantStorageNeverWritesIt) {
    Inspectable<TypeParam> table(TestFixture::Storage());
    EXPECT_TRUE(table.m_compact && !table.m_owns && table.GetAt(129) == 1001);
    table.SetAt(5, TypeParam(77));
    EXPECT_TRUE(table.IsExpanded() && table.GetAt(5) == 77 && table.GetAt(0xFFFF) == 1127);
    EXPECT_TRUE(TestFixture::kConstant.index == ConstantArrays<TypeParam>().index &&
                TestFixture::kConstant.data == ConstantArrays<TypeParam>().data);
    // Trace: lower-case digits and one "0x", whatever the caller's flags, which come back.
    std::ostringstream out, address;
    table.Trace(out << std::uppercase << std::showbase);
    out << 255;
    address << "(0x" << std::hex << reinterpret_cast<std::uintptr_t>(&table) << ")\n255";
    EXPECT_EQ(out.str(), address.str());
}

// Rejected arrays stay the caller's, who releases them: under AddressSanitizer a release by
// the constructor shows as a double free, accepted arrays that the table keeps as a leak.
TYPED_TEST(KaCompactArrayTest, AdoptingConstructorChecksBeforeTakingOwnership) {
    // {index count, index[300] (the data count is 200), no index, no data}; only the first passes.
    const std::tuple<unsigned int, unsigned short, bool, bool> cases[] = {
        {512, 327, false, false}, {512, 328, false, false}, {511, 0, false, false},
        {513, 0, false, false},   {512, 0, true, false},    {512, 0, false, true}};
    for (const auto& [count, entry, noIndex, noData] : cases) {
        unsigned short* index = noIndex ? nullptr : new unsigned short[513]();
        TypeParam* data = noData ? nullptr : new TypeParam[455]();
        if (index && data) index[300] = entry, data[entry] = TypeParam(11);
        if (entry == 327) {
            const Inspectable<TypeParam> table(index, count, data, 200);
            EXPECT_TRUE(table.m_compact && table.m_owns && table.GetAt(300 * 128) == 11);
            continue;
        }
        EXPECT_EQ(ThrownCode([&, n = count] { Inspectable<TypeParam>(index, n, data, 200); }),
                  LU_E_OUT_OF_RANGE);
        delete[] index;
        delete[] data;
    }
}

TYPED_TEST(KaCompactArrayTest, OutOfMemoryLeavesTablesUsable) {
    using Table = Inspectable<TypeParam>;
    const std::vector<TypeParam> expected = TestValues<TypeParam>(3);
    Table table = Table::FromValues(expected);
    for (int n : {1, 2}) {  // index, then data; the work array, then the compact data
        EXPECT_EQ(ThrownCode([&] { g_failAt = n, Table(); }), kOutOfMemory);
        EXPECT_EQ(ThrownCode([&] { g_failAt = n, table.Compact(); }), kOutOfMemory);
        EXPECT_TRUE(table.IsExpanded() && table.Values() == expected);
    }
    table.Compact();
    EXPECT_EQ(ThrownCode([&] { g_failAt = 1, table.SetAt(4, TypeParam(1)); }), kOutOfMemory);
    EXPECT_TRUE(table.m_compact && table.Values() == expected);
    for (int n : {1, 2}) EXPECT_EQ(ThrownCode([&] { g_failAt = n, Table{table}; }), kOutOfMemory);
    Table onConstant(TestFixture::Storage()), target(TypeParam(6)),
        empty(static_cast<const kaInByteStream*>(nullptr));
    EXPECT_EQ(ThrownCode([&] { g_failAt = 2, onConstant.Expand(); }), kOutOfMemory);  // own index
    EXPECT_EQ(onConstant.m_index, TestFixture::kConstant.index.data());
    // A failed copy leaves the table empty, like the stream constructor's table:
    // no arrays, counts 0, compact. A copy of it allocates nothing; it expands to zeros.
    EXPECT_EQ(ThrownCode([&] { g_failAt = 2, target = table; }), kOutOfMemory);
    for (Table* t : {&target, &empty}) {
        EXPECT_TRUE(!t->m_index && !t->m_data && !t->m_dataCount && t->m_compact && !t->m_owns);
        const Table copy(*t);
        EXPECT_TRUE(!copy.m_index && !copy.m_data);
        t->Expand();
        EXPECT_EQ(t->Values(), std::vector<TypeParam>(kKeys, 0));
    }
}

// The codes keep their 32-bit meaning in a 64-bit long; the scan overflow is the mask
// added to success. Without a message, what() gives the text of the code.
TEST(LUExceptionTest, CodesMessagesAndTexts) {
    EXPECT_TRUE(LU_E_OUT_OF_RANGE == -2147217112L && LU_S_NO_MATCH == 0x00041121L);
    EXPECT_TRUE(kaFailed(LU_E_FAIL) && !kaFailed(LU_S_SUCCESS));
    EXPECT_EQ(kaResultCode(static_cast<std::uint32_t>(LU_S_OK) + LU_SCAN_OVERFLOW_MASK),
              LU_E_SCAN_OVERFLOW);
    LUException error(LU_E_OUT_OF_RANGE);
    EXPECT_STREQ(error.what(), "position or index out of range");
    EXPECT_EQ(std::string(LUException(-5).what()) + LUException(5).what(),
              "unknown failureunknown success");
    error.SetMessage("first");
    error.SetMessage(nullptr);  // leaves it
    EXPECT_STREQ(static_cast<const std::exception&>(error).what(), "first");
}

// The code and message of the LUException the translator throws, or another's text.
template <class E>
std::pair<long, std::string> Translated(const E& thrown) {
    try {
        try {
            throw thrown;
        } catch (...) {
            kaTranslateEncodingException();
        }
    } catch (const LUException& error) {
        return {error.GetResult(), error.GetMessage()};
    } catch (const std::exception& error) {
        return {0, error.what()};
    }
    return {-1, "nothing"};
}

// clang-format off
TEST(EncodingExceptionTranslatorTest, EachTypeGetsItsCodeAndMessageAndOthersPass) {
    const std::pair<std::pair<long, std::string>, std::pair<long, std::string>> cases[] = {
        {Translated(InvalidOutputEncoding("x")), {LU_E_ENCODING, "Invalid ouput encoding"}},
        {Translated(TextEncodingID::Malformed("x")), {LU_E_ENCODING, "Malformed encoding variation"}},
        {Translated(TextEncodingID::TooManyVariations("x")), {LU_E_ENCODING, "Too many encoding variations"}},
        {Translated(EncodingVariationID::Malformed("x")), {LU_E_ENCODING, "Malformed encoding variation"}},
        {Translated(EncodingVariationID::TooManyVariations("x")), {LU_E_ENCODING, "Too many encoding variations"}},
        {Translated(EncodingNotLoaded("x")), {LU_E_ENCODING, "Encoding not loaded"}},
        {Translated(UnicodeLibraryException("x")), {LU_E_ENCODING, "Unicode library error"}},
        {Translated(bt_out_of_range("x")), {LU_E_OUT_OF_RANGE, "Unicode library error"}},
        {Translated(bt_exception("x")), {LU_E_ENCODING, "Unicode library error"}},
        {Translated(std::length_error("kept")), {0, "kept"}},
    };
    for (const auto& [translated, expected] : cases) EXPECT_EQ(translated, expected);
}
// clang-format on

}  // namespace

// The number formatter allocates nothing while it formats, as long as a
// result stays within its 500 inline units. This program replaces the global
// operator new (every form) and, outside AddressSanitizer, malloc, calloc,
// realloc and free, and counts each call; a result longer than the inline
// buffer shows that the counting works.
#include <gtest/gtest.h>

#include <atomic>
#include <climits>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <string>

#include "fmtlib/number_test_support.h"
#include "kai18n/fmtlib/lu_number_format.h"

#if defined(__SANITIZE_ADDRESS__)
#define KAI18N_COUNT_MALLOC 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KAI18N_COUNT_MALLOC 0
#endif
#endif
#ifndef KAI18N_COUNT_MALLOC
#define KAI18N_COUNT_MALLOC 1
#endif

#if KAI18N_COUNT_MALLOC
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);
}
#endif

namespace {

std::atomic<long> g_allocations{0};

// The heap without counting, so that operator new counts once.
void* RawMalloc(std::size_t size) {
#if KAI18N_COUNT_MALLOC
    return __libc_malloc(size);
#else
    return std::malloc(size);
#endif
}

void Count() {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
}

long Allocations() {
    return g_allocations.load(std::memory_order_relaxed);
}

void* Allocate(std::size_t size) {
    Count();
    return RawMalloc(size == 0 ? 1 : size);
}

void* AllocateAligned(std::size_t size, std::align_val_t alignment) {
    Count();
    void* memory = nullptr;
    std::size_t align = static_cast<std::size_t>(alignment);
    if (align < sizeof(void*)) align = sizeof(void*);
    if (posix_memalign(&memory, align, size == 0 ? 1 : size) != 0) return nullptr;
    return memory;
}

}  // namespace

// Each form of the global allocation functions, counted.
void* operator new(std::size_t size) {
    if (void* memory = Allocate(size)) return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
    if (void* memory = Allocate(size)) return memory;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    if (void* memory = AllocateAligned(size, alignment)) return memory;
    throw std::bad_alloc();
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    if (void* memory = AllocateAligned(size, alignment)) return memory;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return AllocateAligned(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return AllocateAligned(size, alignment);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    std::free(memory);
}

#if KAI18N_COUNT_MALLOC
// The C heap, counted and handed on to the C library's own functions, so that
// memory from either side may be freed by the other.
extern "C" {
void* malloc(std::size_t size) noexcept {
    Count();
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) noexcept {
    Count();
    return __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) noexcept {
    Count();
    return __libc_realloc(memory, size);
}
void free(void* memory) noexcept {
    __libc_free(memory);
}
}
#endif

using namespace FmtLib;
using namespace fmt_test;

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

std::unique_ptr<luNumberFormat> Make(ilu_ptr<luSettings>& settings, const std::string& text) {
    std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("en", nullptr));
    auto pattern = Parse(*ombrin, text);
    luNumberFormat* format = nullptr;
    EXPECT_EQ(0, CreateNumberFormat(settings, pattern.get(), format)) << text;
    return std::unique_ptr<luNumberFormat>(format);
}

// The allocations made by one call of `action`.
template <class Action>
long AllocationsOf(Action&& action) {
    const long before = Allocations();
    action();
    return Allocations() - before;
}

TEST(NumberFormatNoAllocTest, TheCounterCounts) {
    EXPECT_EQ(1, AllocationsOf([] { delete new int(1); }));
    EXPECT_EQ(1, AllocationsOf([] { delete[] new (std::nothrow) char[3]; }));
    EXPECT_EQ(1, AllocationsOf([] {
                  struct alignas(64) Wide {
                      char bytes[64];
                  };
                  delete new Wide();
              }));
#if KAI18N_COUNT_MALLOC
    EXPECT_EQ(1, AllocationsOf([] { std::free(std::malloc(10)); }));
    // The library's strings take their memory from malloc.
    EXPECT_LE(1, AllocationsOf([] { ucs2string text(U("a text on the heap")); }));
#endif
}

TEST(NumberFormatNoAllocTest, FormattingAllocatesNothing) {
    auto settings = Settings(GroupedLocale({3}), {{"true_word", "yes"}});
    const char* const patterns[] = {
        "#,##0.00",
        "0.00E+00",
        "##0.0E+0",
        "[Red]#,##0.00' EUR';[Blue](#,##0.00)' EUR';[Green]'nothing';[Cyan]'no value'",
        "0.0<times 100 and sign>",
        "<bool>",
        "<true>;<true>;<false>",
        "BOOLEAN",
        "STANDARD",
        "SCIENTIFIC",
        "0\\",  // unreadable: #FORMAT
    };
    const double doubles[] = {0,     -0.0,    1234.5, -1234.5, 0.125, 1e15,
                              1e300, -1e-300, kNaN,   kInf,    -kInf, 123456789012345678.0};
    const long longs[] = {0, 7, -1234567, LONG_MIN, LONG_MAX};
    const unsigned long unsigneds[] = {0, 42, ULONG_MAX};
    for (const char* text : patterns) {
        auto format = Make(settings, text);
        ASSERT_TRUE(format != nullptr) << text;
        luNumberFormat& f = *format;
        for (double value : doubles)
            EXPECT_EQ(0, AllocationsOf([&] { f.Format(value); })) << text << " " << value;
        for (long value : longs)
            EXPECT_EQ(0, AllocationsOf([&] { f.Format(value); })) << text << " " << value;
        for (unsigned long value : unsigneds)
            EXPECT_EQ(0, AllocationsOf([&] { f.Format(value); })) << text << " " << value;
        EXPECT_EQ(0, AllocationsOf([&] { f.FormatError(); })) << text;
    }
}

TEST(NumberFormatNoAllocTest, LongResultsWithinTheInlineBuffer) {
    auto settings = Settings(GroupedLocale({3}));
    // 256 integer digits with 85 separators: 341 units.
    auto grouped = Make(settings, "#,##0");
    ASSERT_TRUE(grouped != nullptr);
    EXPECT_EQ(0, AllocationsOf([&] { grouped->Format(9.99999999999999e255); }));
    EXPECT_EQ(341u, ucs2string(grouped->c_str()).length());

    // 499 units fit the inline buffer with its terminator; 500 do not.
    auto fits = Make(settings, "'" + std::string(498, 'x') + "'0");
    ASSERT_TRUE(fits != nullptr);
    EXPECT_EQ(0, AllocationsOf([&] { fits->Format(5.0); }));
    EXPECT_EQ(499u, ucs2string(fits->c_str()).length());
    auto over = Make(settings, "'" + std::string(499, 'x') + "'0");
    ASSERT_TRUE(over != nullptr);
    EXPECT_LE(1, AllocationsOf([&] { over->Format(5.0); }));
    EXPECT_EQ(500u, ucs2string(over->c_str()).length());
}

TEST(NumberFormatNoAllocTest, ResultsBeyondTheInlineBufferAllocate) {
    auto settings = Settings(GroupedLocale({3}));
    auto format =
        Make(settings, "'" + std::string(600, 'x') + "'0;;;'" + std::string(600, 'e') + "'");
    ASSERT_TRUE(format != nullptr);
    EXPECT_LE(1, AllocationsOf([&] { format->Format(1.0); }));
    EXPECT_EQ(601u, ucs2string(format->c_str()).length());
    // The buffer keeps its room: the next results of that size need nothing.
    EXPECT_EQ(0, AllocationsOf([&] { format->Format(2L); }));
    EXPECT_EQ(0, AllocationsOf([&] { format->FormatError(); }));
    EXPECT_EQ(602u, ucs2string(format->c_str()).length());  // quotes and all

    // The error text alone may outgrow the buffer too.
    auto error = Make(settings, "0;;;'" + std::string(600, 'e') + "'");
    ASSERT_TRUE(error != nullptr);
    EXPECT_EQ(0, AllocationsOf([&] { error->Format(3.0); }));
    EXPECT_LE(1, AllocationsOf([&] { error->FormatError(); }));
}

}  // namespace

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

// Counted once: the heap underneath is not counted again.
void* Allocate(std::size_t size, std::size_t align, bool throwing) {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    void* memory = nullptr;
    if (size == 0) size = 1;
    if (align == 0) {
#if KAI18N_COUNT_MALLOC
        memory = __libc_malloc(size);
#else
        memory = std::malloc(size);
#endif
    } else if (posix_memalign(&memory, align < sizeof(void*) ? sizeof(void*) : align, size) != 0) {
        memory = nullptr;
    }
    if (memory == nullptr && throwing) throw std::bad_alloc();
    return memory;
}

}  // namespace

// Every form of the global allocation functions; all memory is freed alike.
#define KAI18N_COUNTED_NEW(mark, align, throwing, ...)        \
    void* operator new(std::size_t size __VA_ARGS__) mark {   \
        return Allocate(size, align, throwing);               \
    }                                                         \
    void* operator new[](std::size_t size __VA_ARGS__) mark { \
        return Allocate(size, align, throwing);               \
    }
#define KAI18N_FREE(...)                                        \
    void operator delete(void* memory __VA_ARGS__) noexcept {   \
        std::free(memory);                                      \
    }                                                           \
    void operator delete[](void* memory __VA_ARGS__) noexcept { \
        std::free(memory);                                      \
    }
#define KAI18N_ALIGN static_cast<std::size_t>(alignment)
KAI18N_COUNTED_NEW(, 0, true, )
KAI18N_COUNTED_NEW(noexcept, 0, false, , const std::nothrow_t&)
KAI18N_COUNTED_NEW(, KAI18N_ALIGN, true, , std::align_val_t alignment)
KAI18N_COUNTED_NEW(noexcept, KAI18N_ALIGN, false, , std::align_val_t alignment,
                   const std::nothrow_t&)
KAI18N_FREE()
KAI18N_FREE(, std::size_t)
KAI18N_FREE(, const std::nothrow_t&)
KAI18N_FREE(, std::align_val_t)
KAI18N_FREE(, std::size_t, std::align_val_t)
KAI18N_FREE(, std::align_val_t, const std::nothrow_t&)

#if KAI18N_COUNT_MALLOC
// The C heap, counted and handed on to the C library, so that memory from
// either side may be freed by the other.
extern "C" {
void* malloc(std::size_t size) noexcept {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) noexcept {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) noexcept {
    g_allocations.fetch_add(1, std::memory_order_relaxed);
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
    const long before = g_allocations.load();
    action();
    return g_allocations.load() - before;
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
    // The last one cannot be read: #FORMAT.
    const char* const patterns[] = {
        "#,##0.00",
        "0.00E+00",
        "##0.0E+0",
        "0.0<times 100 and sign>",
        "<bool>",
        "<true>;<true>;<false>",
        "BOOLEAN",
        "STANDARD",
        "SCIENTIFIC",
        "[Red]#,##0.00' EUR';[Blue](#,##0.00)' EUR';[Green]'nothing';[Cyan]'no value'",
        "0\\"};
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

// The result buffer holds 500 units inline, its terminator included; beyond
// that it allocates once and keeps the room for later results.
TEST(NumberFormatNoAllocTest, TheInlineBufferEndsAt500Units) {
    auto settings = Settings(GroupedLocale({3}));
    const std::string x498(498, 'x'), x600(600, 'x'), e600(600, 'e');
    const struct {
        std::string pattern;
        double value;
        std::size_t length;
        bool allocates;
    } rows[] = {{"#,##0", 9.99999999999999e255, 341, false},  // 256 digits, 85 separators
                {"'" + x498 + "'0", 5, 499, false},
                {"'x" + x498 + "'0", 5, 500, true},
                {"'" + x600 + "'0;;;'" + e600 + "'", 1, 601, true},
                {"0;;;'" + e600 + "'", 3, 1, false}};
    for (const auto& row : rows) {
        auto format = Make(settings, row.pattern);
        ASSERT_TRUE(format != nullptr);
        EXPECT_EQ(row.allocates, AllocationsOf([&] { format->Format(row.value); }) > 0)
            << row.length;
        EXPECT_EQ(row.length, ucs2string(format->c_str()).length());
    }
    // The room is kept: the next results of that size need nothing.
    auto kept = Make(settings, "'" + x600 + "'0;;;'" + e600 + "'");
    kept->Format(1.0);
    EXPECT_EQ(0, AllocationsOf([&] { kept->Format(2L); }));
    EXPECT_EQ(0, AllocationsOf([&] { kept->FormatError(); }));
    EXPECT_EQ(602u, ucs2string(kept->c_str()).length());  // quotes and all
    // The error text alone may outgrow the buffer too.
    auto error = Make(settings, "0;;;'" + e600 + "'");
    EXPECT_LE(1, AllocationsOf([&] { error->FormatError(); }));
}

}  // namespace

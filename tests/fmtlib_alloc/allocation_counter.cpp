// Counts every call of the global allocation functions (every form of
// operator new and, outside AddressSanitizer, malloc, calloc and realloc) in
// the test program that links it; all memory is freed alike.
#include "fmtlib_alloc/allocation_counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

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

long AllocationCount() {
    return g_allocations.load();
}

bool CountsTheCHeap() {
    return KAI18N_COUNT_MALLOC != 0;
}

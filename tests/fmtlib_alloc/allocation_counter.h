// The allocation counter of the no-allocation test program.
#ifndef KAI18N_TESTS_FMTLIB_ALLOC_ALLOCATION_COUNTER_H
#define KAI18N_TESTS_FMTLIB_ALLOC_ALLOCATION_COUNTER_H

/// Calls of the global allocation functions so far.
long AllocationCount();
/// Whether malloc, calloc and realloc are counted too (not under AddressSanitizer).
bool CountsTheCHeap();

/// The allocations made by one call of `action`.
template <class Action>
long AllocationsOf(Action&& action) {
    const long before = AllocationCount();
    action();
    return AllocationCount() - before;
}

#endif  // KAI18N_TESTS_FMTLIB_ALLOC_ALLOCATION_COUNTER_H

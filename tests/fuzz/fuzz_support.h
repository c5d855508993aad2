// Checks shared by the fuzz targets: a failed check aborts, which libFuzzer
// reports as a crash with the input that caused it.
#ifndef KAI18N_TESTS_FUZZ_FUZZ_SUPPORT_H
#define KAI18N_TESTS_FUZZ_FUZZ_SUPPORT_H

#include <cstdlib>

#include "kai18n/platform/kalib.h"

inline void Check(bool condition) {
    if (!condition) std::abort();
}

// Runs `action`; an LUException may come out only with `code`. Returns
// whether one came out.
template <class Action>
bool ThrowsOnly(long code, Action&& action) {
    try {
        action();
    } catch (const LUException& error) {
        Check(error.GetResult() == code);
        return true;
    }
    return false;
}

#endif  // KAI18N_TESTS_FUZZ_FUZZ_SUPPORT_H

// The integer scanner of lu_num_get: a 32-bit magnitude with its sign and an
// overflow flag, read with the locale's signs, negative mode, thousands
// separator and grouping. Narrowing to a C++ type is the facet's business.
#ifndef KAI18N_FACETS_INTEGER_SCANNER_H
#define KAI18N_FACETS_INTEGER_SCANNER_H

#include <cstdint>

#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/strings/ucs2string.h"

struct lu_integer_scan {
    /// 0 when the scan failed; at most 4294967295.
    std::uint32_t magnitude;
    /// Set by a sign or a parenthesis, and kept when the scan fails.
    bool negative;
    /// A digit would have taken the magnitude past 4294967295.
    bool overflow;
    /// Behind the last unit used; `first` when the scan failed.
    const_ucs2string_iterator end;
};

/// Reads one integer from [first, last). White space is that of the built-in
/// character tables. Raises LUException LU_E_OUT_OF_RANGE when it must read a
/// unit at or past the string's length (the unit behind a sign at the very end,
/// for one).
lu_integer_scan lu_scan_integer(const_ucs2string_iterator first, const_ucs2string_iterator last,
                                const lu_numpunct& punct);

/// The grouping check over `count` units that are all separators or ASCII
/// digits, the first of them a digit: how many of them, from the start, the
/// digit loop may read. `grouping` is the zero-terminated list of group sizes,
/// counted from the right, its first unit neither 0 nor 0xFFFF; `separator`
/// isn't 0.
unsigned int lu_grouping_limit(const unsigned short* units, unsigned int count,
                               unsigned short separator, const unsigned short* grouping);

#endif  // KAI18N_FACETS_INTEGER_SCANNER_H

// The floating scanner of lu_num_get: a decimal number with an optional
// fraction and exponent, digits of any script, no separators and no failure
// report.
#ifndef KAI18N_FACETS_FLOAT_SCANNER_H
#define KAI18N_FACETS_FLOAT_SCANNER_H

#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/strings/ucs2string.h"

/// Reads one number from [first, last) and stores in `end` the place where
/// reading stopped. White space, digits and the case of the exponent letter are
/// those of `ctype`; signs, decimal point and exponent letter those of `punct`.
/// Text without a digit reads 0.0. Never reads at `last`, so it raises nothing
/// for a `last` that lies in the string.
double lu_scan_float(const_ucs2string_iterator first, const_ucs2string_iterator last,
                     const lu_numpunct& punct, const lu_ctype& ctype,
                     const_ucs2string_iterator& end);

#endif  // KAI18N_FACETS_FLOAT_SCANNER_H

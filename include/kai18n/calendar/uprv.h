// Numeric helpers of the calendar engine, with plain external names. The
// tests for NaN and infinity look at the bit pattern, so they hold whatever
// the compiler assumes about floating point.
#ifndef KAI18N_CALENDAR_UPRV_H
#define KAI18N_CALENDAR_UPRV_H

#include <cstdint>

/// Seconds since 1970-01-01 00:00:00 UTC, as a 32-bit integer.
std::int32_t uprv_getUTCtime();

double uprv_floor(double x);
double uprv_ceil(double x);
double uprv_fabs(double x);
double uprv_fmod(double x, double y);
double uprv_modf(double x, double* integral);
std::int32_t uprv_max(std::int32_t a, std::int32_t b);
std::int32_t uprv_min(std::int32_t a, std::int32_t b);

/// Exponent bits all ones and a fraction that is not 0.
bool uprv_isNaN(double x);
/// The bits other than the sign are 0x7FF0000000000000.
bool uprv_isInfinite(double x);
bool uprv_isPositiveInfinity(double x);
bool uprv_isNegativeInfinity(double x);
/// The double with the bits 0x7FF8000000000000.
double uprv_getNaN();
/// The double with the bits 0x7FF0000000000000.
double uprv_getInfinity();
/// NaN gives NaN; an infinity of either sign gives positive infinity; else
/// ceil for a negative x, floor for the rest.
double uprv_trunc(double x);

#endif  // KAI18N_CALENDAR_UPRV_H

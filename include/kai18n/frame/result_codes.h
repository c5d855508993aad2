// Result codes of kai18n.
//
// Codes have the shape of a Windows HRESULT: a signed 32-bit value where a
// negative number is a failure. They are held in a `long`; on a 64-bit
// platform the value is the sign-extended 32-bit code, so a failure always
// compares less than zero. Callers test `code < 0`, never equality with one
// success value: 0 and LU_S_OK are both success, and LU_S_NO_MATCH is a soft
// result for an empty match.
#ifndef KAI18N_FRAME_RESULT_CODES_H
#define KAI18N_FRAME_RESULT_CODES_H

#include <cstdint>

// Turns the 32-bit pattern of a code into its signed `long` value.
constexpr long kaResultCode(std::uint32_t bits) {
    return static_cast<std::int32_t>(bits);
}

/// Plain success, returned by the format library's factories.
constexpr long LU_S_SUCCESS = kaResultCode(0x00000000u);
/// Success of the library's own operations.
constexpr long LU_S_OK = kaResultCode(0x00041100u);
/// Soft result: nothing matches. Not negative.
constexpr long LU_S_NO_MATCH = kaResultCode(0x00041121u);
/// General failure.
constexpr long LU_E_FAIL = kaResultCode(0x80004005u);
/// Out of memory.
constexpr long LU_E_OUT_OF_MEMORY = kaResultCode(0x80041122u);
/// Invalid argument or value.
constexpr long LU_E_INVALID_ARG = kaResultCode(0x80041123u);
/// Unknown numeric format flag.
constexpr long LU_E_BAD_NUMERIC_FORMAT = kaResultCode(0x80041124u);
/// Malformed UTF-8 lead byte.
constexpr long LU_E_BAD_UTF8_LEAD = kaResultCode(0x80041127u);
/// Position or index out of range.
constexpr long LU_E_OUT_OF_RANGE = kaResultCode(0x80041128u);
/// A value scanned from text does not fit the target integer type.
constexpr long LU_E_SCAN_OVERFLOW = kaResultCode(0x80041129u);
/// String too long.
constexpr long LU_E_STRING_TOO_LONG = kaResultCode(0x8004112au);
/// The locale has no such facet.
constexpr long LU_E_NO_FACET = kaResultCode(0x8004112bu);
/// Unknown locale category.
constexpr long LU_E_BAD_CATEGORY = kaResultCode(0x8004112cu);
/// Internal error.
constexpr long LU_E_INTERNAL = kaResultCode(0x8004112du);
/// Facet cannot be built by name.
constexpr long LU_E_FACET_BY_NAME = kaResultCode(0x80041130u);
/// Encoding failure.
constexpr long LU_E_ENCODING = kaResultCode(0x80041131u);

/// The scanners add this mask to LU_S_OK to report an overflow; the sum is
/// LU_E_SCAN_OVERFLOW in 32 bits.
constexpr std::uint32_t LU_SCAN_OVERFLOW_MASK = 0x80000029u;

/// True if `code` reports a failure.
constexpr bool kaFailed(long code) {
    return code < 0;
}

/// A short English description of a result code, for diagnostics; never null.
const char* kaResultText(long code);

#endif  // KAI18N_FRAME_RESULT_CODES_H

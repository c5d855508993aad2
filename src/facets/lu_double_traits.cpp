#include "kai18n/facets/lu_double_traits.h"

#include <cstdint>
#include <cstring>

int lu_double_traits::GetIeeeClass(double value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    const bool negative = (bits >> 63) != 0;
    const std::uint64_t exponent = (bits >> 52) & 0x7FF;
    const std::uint64_t mantissa = bits & 0xFFFFFFFFFFFFFull;
    if (exponent == 0x7FF) {
        if (mantissa == 0) return negative ? kNegativeInfinity : kPositiveInfinity;
        // The top mantissa bit tells a quiet NaN from a signalling one.
        return (mantissa >> 51) != 0 ? kQuietNaN : kSignalingNaN;
    }
    if (exponent == 0) {
        if (mantissa == 0) return negative ? kNegativeZero : kPositiveZero;
        return negative ? kNegativeDenormal : kPositiveDenormal;
    }
    return negative ? kNegativeNormal : kPositiveNormal;
}

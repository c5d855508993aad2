// uprv_*: the numeric helpers of the calendar engine.
//
// The tests for NaN and infinity read the bit pattern of the double instead of
// asking the compiler, so that they keep their meaning whatever the compiler
// is allowed to assume about floating point.
#include "kai18n/calendar/uprv.h"

#include <cmath>
#include <cstring>
#include <ctime>

namespace {

constexpr std::uint64_t kSignBit = 0x8000000000000000ULL;
constexpr std::uint64_t kExponentBits = 0x7FF0000000000000ULL;
constexpr std::uint64_t kFractionBits = 0x000FFFFFFFFFFFFFULL;
constexpr std::uint64_t kQuietNaNBits = 0x7FF8000000000000ULL;
constexpr std::uint64_t kInfinityBits = 0x7FF0000000000000ULL;

inline std::uint64_t BitsOf(double x) {
    std::uint64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
}

inline double DoubleOf(std::uint64_t bits) {
    double x;
    std::memcpy(&x, &bits, sizeof x);
    return x;
}

}  // namespace

std::int32_t uprv_getUTCtime() {
    // The count is 32 bits wide by contract; from 2038 on the seconds wrap
    // modulo 2^32 (made explicit here, so that the conversion is defined).
    const std::time_t now = std::time(nullptr);
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(now));
}

double uprv_floor(double x) {
    return std::floor(x);
}

double uprv_ceil(double x) {
    return std::ceil(x);
}

double uprv_fabs(double x) {
    return std::fabs(x);
}

double uprv_fmod(double x, double y) {
    return std::fmod(x, y);
}

double uprv_modf(double x, double* integral) {
    return std::modf(x, integral);
}

std::int32_t uprv_max(std::int32_t a, std::int32_t b) {
    return a > b ? a : b;
}

std::int32_t uprv_min(std::int32_t a, std::int32_t b) {
    return a < b ? a : b;
}

bool uprv_isNaN(double x) {
    const std::uint64_t bits = BitsOf(x);
    return (bits & kExponentBits) == kExponentBits && (bits & kFractionBits) != 0;
}

bool uprv_isInfinite(double x) {
    return (BitsOf(x) & ~kSignBit) == kInfinityBits;
}

bool uprv_isPositiveInfinity(double x) {
    return x > 0 && uprv_isInfinite(x);
}

bool uprv_isNegativeInfinity(double x) {
    return x < 0 && uprv_isInfinite(x);
}

// Both values are built from their bit patterns on each call: nothing is
// cached, so there is no shared state for threads to race on.
double uprv_getNaN() {
    return DoubleOf(kQuietNaNBits);
}

double uprv_getInfinity() {
    return DoubleOf(kInfinityBits);
}

double uprv_trunc(double x) {
    if (uprv_isNaN(x)) return uprv_getNaN();
    // The engine's truncation gives positive infinity for an infinity of
    // either sign.
    if (uprv_isInfinite(x)) return uprv_getInfinity();
    return x < 0 ? std::ceil(x) : std::floor(x);
}

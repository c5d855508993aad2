#include "facets/decimal_exponent.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

// Exponents of the thresholds: every finite double above 0 lies between
// 10^(-324 + 0.005) and 10^(308 + 0.005).
constexpr int kLowest = -325;
constexpr int kHighest = 309;
constexpr int kCount = kHighest - kLowest + 1;

// 10^(k + 0.005): floor(log10(v) - 0.005) is k for v from the threshold of k
// up to that of k + 1, in exact arithmetic. The table need not be exact
// itself: values closer to a threshold than kMargin go to std::log10. It is
// filled while the library loads, so that a look-up needs no guard.
const std::array<double, kCount> kThresholds = [] {
    std::array<double, kCount> t{};
    for (int k = kLowest; k <= kHighest; ++k) t[k - kLowest] = std::pow(10.0, k + 0.005);
    return t;
}();

// Far above the error of std::log10 and of the subtraction (a few units in
// the last place of a logarithm below 400, under 1e-13 relative in v), and
// of std::pow in the table.
constexpr double kMargin = 1e-11;

}  // namespace

int EstimateDecimalExponent(double v) {
    const std::array<double, kCount>& t = kThresholds;
    // Zero until the library's initialisers have run: a caller from another
    // initialiser of the library gets the logarithm.
    if (t[kCount - 1] == 0.0) return static_cast<int>(std::floor(std::log10(v) - 0.005));
    // The binary exponent from the bits (subnormals count as the lowest);
    // times 78913 / 2^18, just below log10(2), it gives floor(log10(2^b)) or
    // one less, for every exponent of a double. One lower still, so that the
    // walk below only goes up.
    std::uint64_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    const int binary = static_cast<int>((bits >> 52) & 0x7FF) - 1023;
    int k = ((binary * 78913) >> 18) - 2;
    if (k < kLowest) k = kLowest;
    while (k + 1 <= kHighest && v >= t[k + 1 - kLowest]) ++k;
    while (k > kLowest && v < t[k - kLowest]) --k;
    const double below = t[k - kLowest];
    const double above = k + 1 <= kHighest ? t[k + 1 - kLowest] : HUGE_VAL;
    if (v - below <= below * kMargin || above - v <= above * kMargin)
        return static_cast<int>(std::floor(std::log10(v) - 0.005));
    return k;
}

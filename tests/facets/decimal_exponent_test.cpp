// The decimal exponent estimate against the logarithm it stands for, on
// random doubles of every magnitude and on the doubles next to each boundary.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstring>
#include <random>

#include "facets/decimal_exponent.h"

namespace {

int ByLogarithm(double v) {
    return static_cast<int>(std::floor(std::log10(v) - 0.005));
}

TEST(DecimalExponentTest, AgreesWithTheLogarithmEverywhere) {
    std::mt19937_64 rng(2026);
    std::uniform_int_distribution<unsigned long long> bits(1, 0x7FEFFFFFFFFFFFFFull);
    for (int i = 0; i < 200000; ++i) {
        const unsigned long long b = bits(rng);
        double v;
        std::memcpy(&v, &b, sizeof v);
        ASSERT_EQ(ByLogarithm(v), EstimateDecimalExponent(v)) << v;
    }
    // Around each boundary 10^(k + 0.005), and at powers of ten and their
    // neighbours, where the 0.005 bias matters.
    for (int k = -323; k <= 307; ++k) {
        for (double centre : {std::pow(10.0, k + 0.005), std::pow(10.0, k)}) {
            double v = centre;
            for (int step = 0; step < 40; ++step) v = std::nextafter(v, 0.0);
            for (int step = 0; step < 80; ++step, v = std::nextafter(v, HUGE_VAL))
                ASSERT_EQ(ByLogarithm(v), EstimateDecimalExponent(v)) << v;
        }
    }
    for (double v : {DBL_MIN, DBL_MAX, DBL_TRUE_MIN, 1.0, 1.0116, 0.99, 5e-324, 9.99e307})
        EXPECT_EQ(ByLogarithm(v), EstimateDecimalExponent(v)) << v;
}

}  // namespace

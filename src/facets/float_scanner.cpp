#include "facets/float_scanner.h"

#include <cstdint>

#include "kai18n/facets/lu_double_traits.h"

namespace {

// Digits beyond this many are dropped; they only move the decimal exponent.
const int kMaxDigits = 20;
// The largest and smallest powers of ten that the scaling uses directly.
const long long kMaxPower = 308;
// How far below 1e-308 a value may still be scaled before it counts as 0.0.
const long long kMaxExtraPower = 20;

double PowerOfTen(long long power) {
    return lu_double_traits::kPowersOfTen[lu_double_traits::kPowerOfTenZero + power];
}

}  // namespace

double lu_scan_float(const_ucs2string_iterator first, const_ucs2string_iterator last,
                     const lu_numpunct& punct, const lu_ctype& ctype,
                     const_ucs2string_iterator& end) {
    const lu_ctype_impl& tables = ctype.impl();
    const_ucs2string_iterator p = first;

    // White space once, at the very start; none after a sign or around the
    // exponent.
    while (p != last && tables.IsSpace(*p)) ++p;

    bool negative = false;
    if (p != last) {
        const unsigned short c = *p;
        if (c == punct.negative_sign()) {
            negative = true;
            ++p;
        } else if (c == punct.positive_sign()) {
            ++p;
        }
    }

    // The mantissa: at most kMaxDigits digit values from the first non-zero
    // one, `trailing_zeros` of them zeros at the end, and `x` the power of ten
    // of the first stored digit.
    int digits[kMaxDigits];
    int n = 0;
    int trailing_zeros = 0;
    long long x = -1;
    bool any_digit = false;
    auto store = [&](int d) {
        digits[n++] = d;
        trailing_zeros = d != 0 ? 0 : trailing_zeros + 1;
    };

    for (; p != last && tables.IsDigit(*p); ++p) {
        const int d = tables.getdigit(*p);
        any_digit = true;
        if (n == 0) {
            if (d != 0) {
                digits[n++] = d;
                ++x;
            }
        } else if (n < kMaxDigits) {
            store(d);
            ++x;
        } else {
            ++x;
        }
    }
    if (p != last && *p == punct.decimal_point()) {
        ++p;
        for (; p != last && tables.IsDigit(*p); ++p) {
            const int d = tables.getdigit(*p);
            any_digit = true;
            if (n == 0) {
                if (d == 0) {
                    --x;
                } else {
                    digits[n++] = d;
                }
            } else if (n < kMaxDigits) {
                store(d);
            }
        }
    }
    if (!any_digit) {
        end = p;  // past a sign or a lone decimal point
        return 0.0;
    }

    // The exponent: the letter in either case, an optional sign, digits into a
    // 32-bit integer (which wraps, as such an integer does).
    std::int32_t exponent = 0;
    if (p != last && ctype.tolower(*p) == ctype.tolower(punct.exponent_sign())) {
        ++p;
        bool exponent_negative = false;
        if (p != last) {
            const unsigned short c = *p;
            if (c == punct.negative_sign()) {
                exponent_negative = true;
                ++p;
            } else if (c == punct.positive_sign()) {
                ++p;
            }
        }
        std::uint32_t e = 0;
        bool exponent_digit = false;
        for (; p != last && tables.IsDigit(*p); ++p) {
            e = e * 10u + static_cast<std::uint32_t>(tables.getdigit(*p));
            exponent_digit = true;
        }
        if (!exponent_digit) {
            end = p;  // behind the letter and its sign
            return 0.0;
        }
        if (exponent_negative) e = 0u - e;
        exponent = static_cast<std::int32_t>(e);
    }
    end = p;

    // The digits as an integer, the most significant first, then scaled by
    // 10 to the power `power`.
    const int m = n - trailing_zeros;
    double value = 0.0;
    for (int i = 0; i < m; ++i) value += digits[i] * PowerOfTen(m - 1 - i);
    const long long power = x - m + exponent + 1;
    if (power > kMaxPower) {
        // Not 10 to the power: 1e308 alone, so the digits 1 (as in "1e309")
        // give 1e308, and any larger digit value gives infinity.
        value = value * 1e308;
    } else if (power < -kMaxPower) {
        const long long extra = -kMaxPower - power;
        value = extra > kMaxExtraPower ? 0.0 : value / 1e308 / PowerOfTen(extra);
    } else if (power > 0) {
        value = PowerOfTen(power) * value;
    } else {
        value = value / PowerOfTen(-power);
    }
    if (negative) value *= -1.0;
    return value;
}

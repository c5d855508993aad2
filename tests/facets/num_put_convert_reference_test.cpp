// lu_num_put::convert against the exact decimal value of the double.
//
// The reference takes the exact expansion from the C library's printf (glibc
// prints every digit of a double exactly), keeps the digits down to the place
// that the rules give (max_fraction places in fixed notation, behind the
// exponent in scientific notation, never more than 15 significant digits),
// rounds on the first dropped digit alone (5 and up go up), and chooses fixed
// or scientific notation as convert does, once more after a carry into a new
// leading digit.
//
// convert makes its digits with double arithmetic instead: each product
// w * 10^k is rounded twice (the power in the table, then the product), three
// times when the value is first brought to the units place, five when that
// takes the power 10^126, which the table holds one unit in the last place
// high. So convert works on some v' with |v' - v| <= delta * v, and its
// rounding can differ from the exact one only when a rounding midpoint
// (m + 1/2) * u, u the unit of the last kept digit, lies between v and v':
// when the exact digits from the first dropped one on read 4999... or 5000...
// for as long as the error reaches, plus a small tail (see RoundingWindow). A
// disagreement outside this window, or more of them than the bounds below,
// fails the test.
//
// The fixed seed gives 2,280,000 comparisons and 23,514 disagreements, all in
// the window (at most 0.660 of its reach from a midpoint): 23,383 among the
// 963,446 results kept to 15 significant digits (2.43 per cent) and 131 among
// the 1,316,554 shorter ones (0.01 per cent). The window holds 252,478.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "kai18n/facets/lu_num_put.h"
#include "kai18n/frame/ilu_ptr.h"

namespace {

struct Params {
    int max_fraction;
    int min_fraction;
    int max_integer;
    int exponent_step;
    int min_exponent_digits;
    bool scientific;
};

// A result as one text: integer digits, '.', fraction digits, and with an
// exponent 'e', '-' if negative, and its digits. Different results give
// different texts.
std::string Convert(const lu_num_put& facet, double v, const Params& p) {
    ucs2string_formatter integer, fraction, exponent;
    bool negative = false, has_exponent = false, exponent_negative = false;
    EXPECT_TRUE(facet.convert(v, p.max_fraction, p.min_fraction, p.max_integer, p.exponent_step,
                              p.min_exponent_digits, p.scientific, false, integer, fraction,
                              exponent, negative, has_exponent, exponent_negative));
    EXPECT_EQ(negative, v < 0);
    std::string text;
    for (const auto* f : {&integer, &fraction, &exponent}) {
        for (unsigned int i = 0; i < f->length(); ++i) text += static_cast<char>((*f)[i]);
        if (f == &integer) text += '.';
        if (f == &fraction && has_exponent) text += exponent_negative ? "e-" : "e";
    }
    return text;
}

// convert's estimate of the decimal exponent of v: never too high, one too
// low just above a power of ten.
int Estimate(double v) {
    return v == 0.0 ? 0 : static_cast<int>(std::floor(std::log10(v) - 0.005));
}

// The exact decimal expansion of a non-negative double; digit(x) is the digit
// of 10^x, and top() the exponent of the first non-zero digit. A value whose
// estimate lies below 10^-308, the smallest power in convert's table, is zero
// to convert; it is held here as a zero with the estimate as top(), which
// places the exponent of scientific notation (0 for zero itself).
class ExactDecimal {
  public:
    explicit ExactDecimal(double v) {
        if (Estimate(v) < -308) m_top = Estimate(v);
        if (v == 0.0 || Estimate(v) < -308) return;
        char text[900];
        std::snprintf(text, sizeof text, "%.780e", v);  // 781 digits: more than any double has
        const char* mark = std::strchr(text, 'e');
        m_top = std::atoi(mark + 1);
        m_digits.assign(1, text[0]);
        m_digits.append(text + 2, static_cast<std::size_t>(mark - (text + 2)));
        while (!m_digits.empty() && m_digits.back() == '0') m_digits.pop_back();
    }
    bool zero() const { return m_digits.empty(); }
    int top() const { return m_top; }
    int digit(int x) const {
        const long i = static_cast<long>(m_top) - x;
        return i < 0 || i >= static_cast<long>(m_digits.size()) ? 0 : m_digits[i] - '0';
    }
    // The value in units of 10^top(), from 17 digits.
    double Mantissa() const {
        double m = 0.0, scale = 1.0;
        for (int k = 0; k < 17; ++k, scale /= 10) m += digit(m_top - k) * scale;
        return m;
    }
    // The part below 10^x in units of 10^x, from 30 digits.
    double Below(int x) const {
        double f = 0.0, scale = 0.1;
        for (int k = x - 1; k >= x - 30; --k, scale /= 10) f += digit(k) * scale;
        return f;
    }

  private:
    int m_top = 0;
    std::string m_digits;
};

int FloorMultiple(int b, int step) {
    int q = b / step;
    if (b % step != 0 && b < 0) --q;
    return q * step;
}

// The exact digits rounded at 10^keep: digits for the exponents top+1 down to keep.
struct Rounded {
    int high = 0, keep = 0;
    std::vector<int> d;
    int lead = 0, low = 0;
    bool zero = true;
    int digit(int x) const { return x > high || x < keep ? 0 : d[high - x]; }
};

Rounded RoundAt(const ExactDecimal& x, int keep) {
    Rounded r;
    r.high = x.top() + 1;
    r.keep = keep;
    for (int ex = r.high; ex >= keep; --ex) r.d.push_back(x.digit(ex));
    if (!r.d.empty() && x.digit(keep - 1) >= 5) {
        int j = static_cast<int>(r.d.size()) - 1;
        for (++r.d[j]; j > 0 && r.d[j] > 9; --j) {
            r.d[j] = 0;
            ++r.d[j - 1];
        }
    }
    for (int ex = r.high; ex >= keep; --ex) {
        if (r.digit(ex) == 0) continue;
        if (r.zero) r.lead = ex;
        r.zero = false;
        r.low = ex;
    }
    return r;
}

// The place at which the exact value is first rounded, and the notation.
struct Layout {
    bool scientific;
    int max_fraction, min_fraction, step, exponent, keep;
};

Layout FirstLayout(const ExactDecimal& x, const Params& p) {
    Layout l{p.scientific, p.max_fraction, p.min_fraction, std::max(p.exponent_step, 1), 0, 0};
    if (!l.scientific && std::max(x.top() + 1, 1) > p.max_integer) {
        l = Layout{true, 14, 0, 1, 0, 0};
    }
    if (l.scientific) l.exponent = FloorMultiple(x.top(), l.step);
    l.keep = std::max(l.exponent - l.max_fraction, x.top() - 14);
    return l;
}

std::string Reference(const ExactDecimal& x, const Params& p) {
    Layout l = FirstLayout(x, p);
    Rounded r = RoundAt(x, l.keep);
    if (!r.zero && r.lead == x.top() + 1) {
        // One integer digit more: the notation is chosen again, and the value
        // rounded again at the new place (to the same power of ten).
        if (!l.scientific && x.top() + 2 > p.max_integer) l = Layout{true, 14, 0, 1, 0, 0};
        if (l.scientific) l.exponent = FloorMultiple(x.top() + 1, l.step);
        r = RoundAt(x, std::max(l.exponent - l.max_fraction, x.top() - 13));
    }
    std::string integer, fraction;
    if (!r.zero) {
        for (int ex = r.lead; ex >= l.exponent; --ex) integer += char('0' + r.digit(ex));
        if (r.lead >= l.exponent - l.max_fraction) {
            for (int ex = l.exponent - 1; ex > r.lead; --ex) fraction += '0';
            for (int ex = std::min(l.exponent - 1, r.lead); ex >= r.low; --ex) {
                fraction += char('0' + r.digit(ex));
            }
        }
    }
    if (static_cast<int>(fraction.size()) < l.min_fraction) fraction.resize(l.min_fraction, '0');
    std::string text = integer + "." + fraction;
    if (l.scientific) {
        const std::string q = l.exponent == 0 ? "" : std::to_string(std::abs(l.exponent));
        text += l.exponent < 0 ? "e-" : "e";
        text += std::string(std::max(0, p.min_exponent_digits - int(q.size())), '0') + q;
    }
    return text;
}

// Where convert and the exact value may part: the distance of the exact value
// from the nearest rounding midpoint, and the reach of convert's error, both
// in units of the last kept digit.
struct Window {
    double distance, reach;
    bool Holds() const { return distance <= reach; }
};

Window RoundingWindow(const ExactDecimal& x, double v, const Params& p) {
    const Layout l = FirstLayout(x, p);
    // The roundings on convert's way to its digits (see the top of this file),
    // with its exponent estimate and digit count.
    const int e = Estimate(v);
    const int n =
        l.scientific ? e - FloorMultiple(e, l.step) + l.max_fraction + 1 : e + l.max_fraction + 1;
    const int made = std::min(n + 2, 17);
    const bool scaled = 308 - e + made > 316;
    const double roundings = !scaled ? 2.0 : (e == -126 ? 5.0 : 3.0);
    const double delta = roundings * std::ldexp(1.0, -53) * (1 + 1e-9);
    const double units = x.Mantissa() * std::pow(10.0, x.top() - l.keep);  // v / u
    // The last made digit is truncated: one unit of it, u/100. With 17 digits
    // the running sum passes 2^53 and is rounded (by up to 18 units of the
    // 17th digit): u/50 in the second try, whose first digit is at index 0,
    // and u/5 in the first try, once its 16 digits pass 2^53.
    const double tail = units >= 9e14 ? 0.2 : 0.02;
    return Window{std::fabs(x.Below(l.keep) - 0.5), units * delta + tail};
}

double FromBits(std::uint64_t bits) {
    double v;
    std::memcpy(&v, &bits, sizeof v);
    return v;
}

ilu_ptr<lu_num_put> Facet() {
    return ilu_ptr<lu_num_put>(new lu_num_put(0u));
}

// The arguments of do_put(double), but for max_fraction and min_fraction.
const Params kFixed{0, 0, 256, 1, 0, false};

TEST(NumPutConvertReferenceTest, KnownDisagreementsLieAtAMidpoint) {
    // Values whose digits convert makes on the other side of a rounding
    // midpoint: the bits, the arguments, convert's digits and the exact ones.
    // The exact expansion of the first is 36.090052444999999776..., so the
    // exact rounding to 8 places is ...44, while the digit stream of convert
    // reads ...445000 and goes up.
    const Params& fixed = kFixed;
    const Params engineering{11, 2, 256, 3, 2, true};
    struct Row {
        std::uint64_t bits;
        int max_fraction;
        const Params& params;
        const char* library;
        const char* exact;
    };
    const Row rows[] = {
        {0xC0420B86D6A91994ull, 8, fixed, "36.09005245", "36.09005244"},
        {0x41DD8052778DDB22ull, 3, fixed, "1979795934.217", "1979795934.216"},
        {0xBFB7E380F330B54Bull, 14, fixed, ".09331518113387", ".09331518113386"},
        {0x3F727108CF7AC583ull, 15, fixed, ".004502329269302", ".004502329269301"},
        {0xC0C1DF836365D598ull, 17, fixed, "9151.02647087984", "9151.02647087983"},
        {0x4995C242048943D6ull, 0, fixed, "31055225427568300000000000000000000000000000000.",
         "31055225427568200000000000000000000000000000000."},
        {0x1046A82B2165AEF2ull, 11, engineering, "29.18730317015e-231", "29.18730317014e-231"},
    };
    const auto facet = Facet();
    for (const Row& row : rows) {
        const double v = FromBits(row.bits);
        Params p = row.params;
        p.max_fraction = row.max_fraction;
        const ExactDecimal x(std::fabs(v));
        EXPECT_EQ(Convert(*facet, v, p), row.library) << std::hex << row.bits;
        EXPECT_EQ(Reference(x, p), row.exact) << std::hex << row.bits;
        EXPECT_TRUE(RoundingWindow(x, std::fabs(v), p).Holds()) << std::hex << row.bits;
    }
}

TEST(NumPutConvertReferenceTest, AgreesWithTheExactExpansionOutsideTheWindow) {
    const auto facet = Facet();
    std::mt19937_64 random(20240611);
    long compared = 0, disagreed = 0, in_window = 0, capped = 0, capped_disagreed = 0;
    double closest = 0.0;  // the largest distance / reach of a disagreement
    auto check = [&](double v, const ExactDecimal& x, const Params& p) {
        const std::string got = Convert(*facet, v, p), want = Reference(x, p);
        const Window w = RoundingWindow(x, std::fabs(v), p);
        const bool at_cap = FirstLayout(x, p).keep == x.top() - 14;
        ++compared;
        in_window += w.Holds();
        capped += at_cap;
        if (got == want) return;
        ++disagreed;
        capped_disagreed += at_cap;
        closest = std::max(closest, w.distance / w.reach);
        EXPECT_TRUE(w.Holds()) << std::hexfloat << v << " mf " << p.max_fraction << ": " << got
                               << " vs exact " << want << ", distance " << w.distance << " reach "
                               << w.reach;
    };
    const Params others[] = {
        {0, 0, 15, 1, 1, false},  // fixed up to 15 integer digits
        {0, 0, 256, 1, 1, true},  // scientific
        {0, 2, 256, 3, 2, true},  // engineering
    };
    for (int n = 0; n < 120000; ++n) {
        double v;
        if (n % 2 == 0) {
            // Any finite double: every magnitude, denormals included.
            do v = FromBits(random());
            while (!std::isfinite(v));
        } else {
            // Magnitudes from 1e-20 to 1e20, where fraction digits are made.
            std::uniform_real_distribution<double> mantissa(1.0, 2.0);
            std::uniform_int_distribution<int> power(-67, 67);
            // One draw a statement: the order is the same for every compiler.
            const double m = mantissa(random);
            const int k = power(random);
            v = std::ldexp(random() % 2 ? -m : m, k);
        }
        const ExactDecimal x(std::fabs(v));
        for (int mf = 0; mf <= 17; ++mf) {
            Params p = kFixed;
            p.max_fraction = mf;
            check(v, x, p);
        }
        Params p = others[n % 3];
        p.max_fraction = static_cast<int>(random() % 18);
        check(v, x, p);
    }
    std::printf(
        "compared %ld: disagreed %ld, %ld of them among the %ld kept to 15 digits; "
        "%ld in the window; largest distance / reach of a disagreement %.3f\n",
        compared, disagreed, capped_disagreed, capped, in_window, closest);
    EXPECT_EQ(compared, 2280000);
    // The figures at the top of this file, with a few per cent to spare.
    EXPECT_LE(capped_disagreed, capped * 25 / 1000);
    EXPECT_LE(disagreed - capped_disagreed, (compared - capped) / 8000);
    EXPECT_LE(disagreed, in_window / 10);
}

}  // namespace

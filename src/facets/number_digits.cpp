// lu_num_put::convert: a double as integer, fraction and exponent digits.
// The steps are numbered as in the comment at the top of lu_num_put.h.
#include <cfloat>
#include <cmath>

#include "facets/decimal_exponent.h"
#include "facets/utf16_literal.h"
#include "kai18n/facets/lu_double_traits.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

// Step 4: the digits depend on every double operation being rounded to 53
// bits once. On x86-64 (SSE2) there is no x87 precision control to save and
// restore; this holds the build to that, and -ffp-contract=off keeps the
// compiler from fusing the multiply and subtract of step 6.
static_assert(FLT_EVAL_METHOD == 0, "double expressions must be evaluated in double precision");

namespace {

typedef lu_double_traits Traits;

constexpr auto kSignalingNaNText = lu_make_utf16(u"#NAN");
constexpr auto kQuietNaNText = lu_make_utf16(u"#IND");
constexpr auto kInfinityText = lu_make_utf16(u"#INF");
constexpr auto kFailureText = lu_make_utf16(u"#ERR");
constexpr unsigned int kMarkLength = 4;

// D and R have the indices 0 to 17: an overflow cell and 17 digits.
constexpr int kCells = 18;
// At most this many digits are made (C of step 6).
constexpr int kMostDigits = 17;
// The highest index kept in the first and in the second try: 15 significant
// digits from index 1, or from index 0.
constexpr int kFirstTryLast = 15;
constexpr int kSecondTryLast = 14;
// Step 6 brings v to the units place first when i + C is above this bound.
constexpr int kLastUnscaledIndex = 316;
// N with all_digits: above every cap, and far from overflowing.
constexpr int kNoLimit = 1 << 24;
// Arguments are held within this bound; see lu_num_put.h.
constexpr int kArgumentLimit = 1000000;

int Bounded(int value) {
    return value < -kArgumentLimit ? -kArgumentLimit
                                   : (value > kArgumentLimit ? kArgumentLimit : value);
}

// Steps 5 to 12 for a finite magnitude v with the exponent estimate e.
class DigitConversion {
  public:
    DigitConversion(int max_fraction, int min_fraction, int max_integer, int exponent_step,
                    int min_exponent_digits, bool scientific, bool all_digits,
                    const unsigned short* digits)
        : m_maxFraction(Bounded(max_fraction)),
          m_minFraction(min_fraction),
          m_maxInteger(Bounded(max_integer)),
          m_step(Bounded(exponent_step)),
          m_minExponentDigits(Bounded(min_exponent_digits)),
          m_scientific(scientific),
          m_allDigits(all_digits),
          m_digits(digits) {}

    void Run(double v, int e, ucs2string_formatter& integer_digits,
             ucs2string_formatter& fraction_digits, ucs2string_formatter& exponent_digits,
             bool& has_exponent, bool& exponent_negative) {
        ChooseNotation(e);
        const int count = MakeDigits(v, e);
        CarryPass(count);
        int first;  // F: the index of the first significant digit
        int last;   // L: the index of the last digit kept
        if (!FirstTry(count, &last)) {
            first = 0;
            SecondTry(e, count, &last);
        } else {
            first = 1;
        }
        while (last >= 0 && m_kept[last] == 0) --last;  // step 10
        WriteDigits(e, first, last, integer_digits, fraction_digits);
        if (m_scientific) WriteExponent(exponent_digits, has_exponent, exponent_negative);
    }

  private:
    // Sets the printed exponent E to the largest multiple of the step not
    // above b, and the width number W from its size and the minimum.
    void ChooseExponent(int b) {
        int quotient = b / m_step;
        if (b % m_step != 0 && b < 0) --quotient;
        m_exponent = quotient * m_step;
        const int magnitude = m_exponent < 0 ? -m_exponent : m_exponent;
        m_width = magnitude <= 9 ? 0 : (magnitude <= 99 ? 1 : 2);
        if (m_minExponentDigits > m_width) m_width = m_minExponentDigits;
    }

    // The switch from fixed to scientific notation of steps 5 and 9.
    void SwitchToScientific() {
        m_scientific = true;
        m_maxFraction = 14;
        m_minFraction = 0;
        m_step = 1;
    }

    // Step 5.
    void ChooseNotation(int e) {
        if (m_allDigits) {
            m_last = kNoLimit;
        } else if (m_scientific) {
            if (m_step < 1) m_step = 1;
            ChooseExponent(e);
            m_last = e - m_exponent + m_maxFraction + 1;
        } else {
            const int integer_count = e > 0 ? e + 1 : 1;
            if (integer_count <= m_maxInteger) {
                m_last = e + m_maxFraction + 1;
            } else {
                SwitchToScientific();
                ChooseExponent(e);
                m_last = e - m_exponent + m_maxFraction + 1;
            }
        }
    }

    // Step 6: the digits of v from the exponent e down, into D[1..K]. Returns K.
    int MakeDigits(double v, int e) {
        const int wanted = m_last + 2 > kMostDigits ? kMostDigits : m_last + 2;
        int i = Traits::kPowerOfTenZero - e;
        double w = v;
        if (i + wanted > kLastUnscaledIndex) {
            w = v * Traits::kPowersOfTen[i];
            i = Traits::kPowerOfTenZero;
        }
        double accumulated = 0.0;
        int k = 0;
        while (k < wanted) {
            const double x = w * Traits::kPowersOfTen[i] - accumulated;
            if (x == 0.0) break;
            const int d = static_cast<int>(x);  // toward zero
            m_made[k + 1] = d;
            accumulated = (accumulated + d) * 10.0;
            ++i;
            ++k;
        }
        return k;
    }

    // Step 7: one treatment of every cell from the last digit to the first.
    void CarryPass(int count) {
        for (int j = count; j >= 1; --j) {
            if (m_made[j] > 9) {
                m_made[j - 1] += 1;
                m_made[j] -= 10;
            } else if (m_made[j] < 0) {
                m_made[j - 1] -= 1;
                m_made[j] += 10;
            }
        }
    }

    // R = D[0..n], raised by one at n when the first dropped digit D[n+1] is
    // 5 or more, with the carry running toward index 0.
    void KeepAndRound(int n) {
        for (int j = 0; j <= n; ++j) m_kept[j] = m_made[j];
        if (m_made[n + 1] >= 5) {
            m_kept[n] += 1;
            for (int j = n; j > 0 && m_kept[j] > 9; --j) {
                m_kept[j] = 0;
                m_kept[j - 1] += 1;
            }
        }
    }

    void KeepAll(int count) {
        for (int j = 0; j <= count; ++j) m_kept[j] = m_made[j];
    }

    // Step 8. True when the first significant digit stands at index 1.
    bool FirstTry(int count, int* last) {
        if (m_last > kFirstTryLast) m_last = kFirstTryLast;
        if (m_made[0] != 0) return false;
        if (m_last < 0 || m_last >= count) {
            KeepAll(count);
            *last = count;
        } else {
            KeepAndRound(m_last);
            *last = m_last;
        }
        return m_kept[0] == 0;
    }

    // Step 9: the number has one integer digit more than e says.
    void SecondTry(int e, int count, int* last) {
        if (!m_allDigits) {
            if (!m_scientific) {
                const int integer_count = e + 2 > 1 ? e + 2 : 1;
                if (integer_count <= m_maxInteger) {
                    m_last = e + m_maxFraction + 1;
                } else {
                    SwitchToScientific();
                }
            }
            if (m_scientific) {
                ChooseExponent(e + 1);
                m_last = e - m_exponent + m_maxFraction + 1;
            }
        }
        if (m_last > kSecondTryLast) m_last = kSecondTryLast;
        if (m_last < count) {
            // Starts again from the unrounded D; below index 0 nothing is kept
            // and nothing rounds.
            if (m_last >= 0) KeepAndRound(m_last);
            *last = m_last;
        } else {
            KeepAll(count);
            *last = count;
        }
    }

    // Step 11.
    void WriteDigits(int e, int first, int last, ucs2string_formatter& integer_digits,
                     ucs2string_formatter& fraction_digits) const {
        const int point = e - m_exponent + 2;  // P
        const unsigned short zero = m_digits[0];
        int q = first;
        const int integer_end = last < point - 1 ? last : point - 1;
        for (; q <= integer_end; ++q) integer_digits.push_back(m_digits[m_kept[q]]);
        if (q > first) integer_digits.append(zero, static_cast<unsigned int>(point - q));

        if (point + m_maxFraction - 1 >= first) {
            if (point < first)
                fraction_digits.append(zero, static_cast<unsigned int>(first - point));
            for (q = point > first ? point : first; q <= last; ++q) {
                fraction_digits.push_back(m_digits[m_kept[q]]);
            }
        }
        if (m_minFraction > 0 &&
            fraction_digits.length() < static_cast<unsigned int>(m_minFraction)) {
            fraction_digits.append(
                zero, static_cast<unsigned int>(m_minFraction) - fraction_digits.length());
        }
    }

    // Step 12.
    void WriteExponent(ucs2string_formatter& exponent_digits, bool& has_exponent,
                       bool& exponent_negative) const {
        has_exponent = true;
        exponent_negative = m_exponent < 0;
        unsigned short text[12];
        unsigned int count = 0;
        for (int magnitude = m_exponent < 0 ? -m_exponent : m_exponent; magnitude != 0;
             magnitude /= 10) {
            text[sizeof text / sizeof text[0] - 1 - count++] = m_digits[magnitude % 10];
        }
        if (m_width > static_cast<int>(count)) {
            exponent_digits.append(m_digits[0], static_cast<unsigned int>(m_width) - count);
        }
        exponent_digits.append(text + (sizeof text / sizeof text[0] - count), count);
    }

    int m_maxFraction;
    int m_minFraction;
    int m_maxInteger;
    int m_step;
    int m_minExponentDigits;
    bool m_scientific;
    bool m_allDigits;
    const unsigned short* m_digits;  // the lower-case digit table
    int m_exponent = 0;              // E
    int m_width = 0;                 // W
    int m_last = 0;                  // N
    int m_made[kCells] = {};         // D
    int m_kept[kCells] = {};         // R
};

}  // namespace

bool lu_num_put::convert(double value, int max_fraction, int min_fraction, int max_integer,
                         int exponent_step, int min_exponent_digits, bool scientific,
                         bool all_digits, ucs2string_formatter& integer_digits,
                         ucs2string_formatter& fraction_digits,
                         ucs2string_formatter& exponent_digits, bool& negative, bool& has_exponent,
                         bool& exponent_negative) const {
    const unsigned short* digits = m_punct->GetDigits(false);

    // Step 1.
    integer_digits.clear();
    fraction_digits.clear();
    exponent_digits.clear();
    negative = false;
    has_exponent = false;

    // Step 2.
    double v;
    switch (Traits::GetIeeeClass(value)) {
        case Traits::kSignalingNaN:
            integer_digits.push_back(digits[0]);
            fraction_digits.append(kSignalingNaNText.units, kMarkLength);
            return false;
        case Traits::kQuietNaN:
            integer_digits.push_back(digits[0]);
            fraction_digits.append(kQuietNaNText.units, kMarkLength);
            return false;
        case Traits::kNegativeInfinity:
            negative = true;
            integer_digits.push_back(digits[1]);
            fraction_digits.append(kInfinityText.units, kMarkLength);
            return false;
        case Traits::kPositiveInfinity:
            integer_digits.push_back(digits[1]);
            fraction_digits.append(kInfinityText.units, kMarkLength);
            return false;
        case Traits::kNegativeNormal:
        case Traits::kNegativeDenormal:
            negative = true;
            v = -value;
            break;
        case Traits::kPositiveNormal:
        case Traits::kPositiveDenormal:
            v = value;
            break;
        case Traits::kNegativeZero:
        case Traits::kPositiveZero:
            v = 0.0;
            break;
        default:
            LUException::Raise(LU_E_BAD_NUMERIC_FORMAT);
    }

    // Step 3: floor(log10(v) - 0.005), found by comparison with thresholds
    // away from the boundaries.
    const int e = v == 0.0 ? 0 : EstimateDecimalExponent(v);

    // Steps 5 to 12, with the failure handling of step 13.
    try {
        DigitConversion conversion(max_fraction, min_fraction, max_integer, exponent_step,
                                   min_exponent_digits, scientific, all_digits, digits);
        conversion.Run(v, e, integer_digits, fraction_digits, exponent_digits, has_exponent,
                       exponent_negative);
    } catch (...) {
        fraction_digits.append(kFailureText.units, kMarkLength);
        return false;
    }
    return true;
}

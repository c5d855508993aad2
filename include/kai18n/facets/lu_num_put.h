// Number output: binary numbers as text in the punctuation of a lu_numpunct.
//
// The heart of the facet is `convert`, which splits a double into three
// strings of locale digits (integer, fraction and exponent digits) and leaves
// the sign, the decimal point and the exponent letter to its caller. It keeps
// at most 15 significant digits, makes them with double arithmetic from the
// table of powers of ten in lu_double_traits, and rounds on the first dropped
// digit alone (5 and up go up, no rounding to even). Its results differ from a
// correctly rounded conversion in the last digit of some values: the steps
// below, not the exact decimal value, define the output.
//
// convert, step by step. D and R are arrays of 18 small signed integers,
// indices 0 to 17; index 1 of D holds the digit of the decimal exponent e, and
// index 0 is an overflow cell for a first digit that comes out as 10 or more.
//
//  1. Empty the three formatters; `negative` and `has_exponent` become false.
//  2. Classify the value (lu_double_traits::GetIeeeClass). A signalling NaN
//     gives digit 0 and "#NAN", a quiet NaN digit 0 and "#IND", an infinity
//     digit 1 and "#INF" (negative infinity also sets `negative`); these texts
//     stand in `fraction_digits` and the result is false. A negative number
//     sets `negative` and goes on with its magnitude v; either zero goes on as
//     +0 without a sign. Any other class raises LU_E_BAD_NUMERIC_FORMAT.
//  3. e = floor(log10(v) - 0.005), 0 for zero. The bias makes e never too
//     high; just above a power of ten it is one too low, and the overflow
//     cell of D makes that good.
//  4. The digits are made in IEEE double precision. On x86-64 every double
//     operation is rounded to 53 bits already (no x87 precision control), so
//     nothing is saved or restored; the build forbids contraction into fused
//     multiply-add.
//  5. Notation. E is the printed exponent (0 in fixed notation) and W the
//     width number of step 12; ChooseExponent(b) sets E to the largest
//     multiple of `exponent_step` not above b, and W to 0, 1 or 2 for |E| up
//     to 9, up to 99, or more, raised to `min_exponent_digits`. N is the index
//     of the last digit to keep:
//     - `all_digits`: N has no limit and E stays 0;
//     - `scientific`: a step below 1 counts as 1, ChooseExponent(e),
//       N = e - E + max_fraction + 1;
//     - else with t = e + 1 if e > 0, else 1: if t <= max_integer, fixed
//       notation with N = e + max_fraction + 1; otherwise switch to scientific
//       notation with max_fraction 14, min_fraction 0, step 1,
//       ChooseExponent(e), N = e - E + max_fraction + 1.
//  6. Digits. C = N + 2, at most 17. i = 308 - e, w = v; if i + C > 316,
//     w = v * kPowersOfTen[i] and i = 308 (an index past the powers gives
//     0.0, so every number with e below -308 is zero here). With a = 0 and
//     k = 0: while k < C, x = w * kPowersOfTen[i] - a; stop when x is 0.0;
//     d = x truncated toward zero, D[k+1] = d, a = (a + d) * 10; next i and
//     k. K is the count of digits made; a d may be negative or above 9.
//  7. Carry pass, each cell once, from D[K] down to D[1]: above 9 gives 1 to
//     the cell before and loses 10, below 0 takes 1 from it and gains 10.
//  8. First try. N is cut down to 15. If D[0] is 0: with N negative or at
//     least K, R = D[0..K] and L = K; else R = D[0..N], L = N, and R[N] is
//     raised by one when D[N+1] >= 5, carrying while a cell is above 9. If
//     R[0] is still 0, the first significant digit is at index F = 1: go to 10.
//  9. Second try, when D[0] isn't 0 or the rounding carried into R[0]: F = 0,
//     and (unless `all_digits`) the notation is chosen again with one more
//     integer digit: in fixed notation t = e + 2 if above 1, else 1, and
//     N = e + max_fraction + 1 while t <= max_integer, else the switch of
//     step 5; in scientific notation ChooseExponent(e + 1) and
//     N = e - E + max_fraction + 1. N is cut down to 14. If N < K, R = D[0..N],
//     L = N, and rounding as in step 8 when N >= 0; else R = D[0..K], L = K.
//     Rounding starts again from the unrounded D.
// 10. Trim: while L >= 0 and R[L] is 0, L goes down by one.
// 11. Write. P = e - E + 2 is the index of the first digit behind the point.
//     Integer digits: R[F] up to R[min(L, P - 1)], and if any was written,
//     digit 0 up to index P - 1; none leaves `integer_digits` empty (the
//     caller supplies a 0). Fraction digits, when P + max_fraction - 1 >= F:
//     digit 0 for the indices from P up to F - 1, then R[max(P, F)] up to
//     R[L]. Then digit 0 until `fraction_digits` has `min_fraction` units.
// 12. Exponent, in scientific notation only: `has_exponent` becomes true and
//     `exponent_negative` tells E < 0; `exponent_digits` are the digits of |E|
//     (none for 0) behind W minus their count zeros.
// 13. A failure in steps 5 to 12 (a formatter out of memory,
//     LU_E_OUT_OF_MEMORY, or past its largest length) is caught: "#ERR" is
//     appended to `fraction_digits` behind whatever was written there, and
//     the result is false.
//
// Every digit is a unit of the lower-case digit table of the lu_numpunct.
// Arguments beyond +-1,000,000 act as +-1,000,000: every result that large
// outgrows a formatter anyway, and the index arithmetic stays within int.
// `all_digits` together with `scientific` has no defined result; here it
// gives an empty exponent with `has_exponent` true.
#ifndef KAI18N_FACETS_LU_NUM_PUT_H
#define KAI18N_FACETS_LU_NUM_PUT_H

#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string_formatter.h"

class lu_num_put : public lu_locale::facet {
  public:
    static lu_locale::id id;

    /// The form that a locale uses: takes a count on `punct`, which may be null
    /// (then no operation may be called). `refs` is the facet's own starting
    /// count. It has no default so that `lu_num_put(0)` is the other form and
    /// never ambiguous: a literal 0 converts to a pointer and to a count alike.
    lu_num_put(const lu_numpunct* punct, unsigned int refs);
    /// A private lu_numpunct with all defaults.
    explicit lu_num_put(unsigned int refs = 0);

    ucs2string_formatter& put(ucs2string_formatter& out, unsigned short fill, double value) const {
        return do_put(out, fill, value);
    }
    ucs2string_formatter& put(ucs2string_formatter& out, unsigned short fill,
                              unsigned long value) const {
        return do_put(out, fill, value);
    }
    ucs2string_formatter& put(ucs2string_formatter& out, unsigned short fill, long value) const {
        return do_put(out, fill, value);
    }
    ucs2string_formatter& put(ucs2string_formatter& out, unsigned short fill, bool value) const {
        return do_put(out, fill, value);
    }

    /// Splits `value` into locale digits by the steps in the comment at the top
    /// of this header. True when the strings hold a number; false for a special
    /// value or a failure, whose text then stands in `fraction_digits`.
    bool convert(double value, int max_fraction, int min_fraction, int max_integer,
                 int exponent_step, int min_exponent_digits, bool scientific, bool all_digits,
                 ucs2string_formatter& integer_digits, ucs2string_formatter& fraction_digits,
                 ucs2string_formatter& exponent_digits, bool& negative, bool& has_exponent,
                 bool& exponent_negative) const;

  protected:
    /// Drops the count on the lu_numpunct, which goes at count zero.
    ~lu_num_put() override;

    // The slots in order, after the destructor. Each appends to `out` and
    // returns it; `fill` is ignored, nothing is padded and no thousands
    // separator is written.

    /// convert(value, 17, 1, 256, 1, 0, false, false); a special value or a
    /// failure is written as its text alone ("#NAN", "#IND", "#INF", "#ERR").
    /// Otherwise: the opening mark of the negative mode (mode 0 "(", mode 1 the
    /// negative sign, mode 2 the sign and a blank), the integer digits or digit
    /// 0, decimal_point() (the virtual one) always, the fraction digits, with
    /// an exponent the lower-case exponent letter, the negative sign for a
    /// negative exponent and the exponent digits, then the closing mark (mode 0
    /// ")", mode 3 the sign, mode 4 a blank and the sign). Any other mode value
    /// writes no sign at all.
    virtual ucs2string_formatter& do_put(ucs2string_formatter& out, unsigned short fill,
                                         double value) const;
    /// Decimal digits, no sign; all 64 bits of the value.
    virtual ucs2string_formatter& do_put(ucs2string_formatter& out, unsigned short fill,
                                         unsigned long value) const;
    /// Decimal digits of the magnitude, and for a negative value the sign where
    /// the mode puts it: 0 "(D)", 2 "S D", 3 "DS", 4 "D S", 1 and any other
    /// value "SD". The library was made for 32-bit `long`; here the whole
    /// 64-bit value is written, the most negative one included.
    virtual ucs2string_formatter& do_put(ucs2string_formatter& out, unsigned short fill,
                                         long value) const;
    /// Digit 1 or digit 0; the boolean names play no part.
    virtual ucs2string_formatter& do_put(ucs2string_formatter& out, unsigned short fill,
                                         bool value) const;

  private:
    // The mode, the negative sign, the digits and the exponent letter are read
    // from the fields directly; only the decimal point goes through its
    // virtual operation.
    ilu_const_ptr<lu_numpunct> m_punct;
};

#endif  // KAI18N_FACETS_LU_NUM_PUT_H

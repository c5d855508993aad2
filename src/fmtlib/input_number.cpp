// Number input: the one free form of a number in user text (sign, digits of
// any script, a decimal point, an exponent) read into a double, and a value
// written back in that form.
#include <cstdint>
#include <new>

#include "fmtlib/input_digits.h"
#include "fmtlib/input_number_imp.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_double_traits.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/frame/result_codes.h"

namespace FmtLib {
namespace {

constexpr int kMaxDigits = 20;
// An exponent read past this is kept at it: any exponent that large already
// puts the number outside the doubles, and the arithmetic stays in 32 bits.
constexpr std::int32_t kExponentCeiling = 100000000;

double PowerOfTen(int exponent) {
    return lu_double_traits::kPowersOfTen[lu_double_traits::kPowerOfTenZero + exponent];
}

// A sign, point or letter that is the terminator itself never matches: the
// scan must not step past the end of the text.
bool Is(unsigned short unit, unsigned short wanted) {
    return unit != 0 && unit == wanted;
}

}  // namespace

struct luInputNumberImp::Mantissa {
    int digits[kMaxDigits];
    int count = 0;          // digits stored
    int trailingZeros = 0;  // zeros at the end of the stored digits
    int exponent = -1;      // the power of ten of the first stored digit
};

luInputNumber::~luInputNumber() = default;

luInputNumberImp::luInputNumberImp(ilu_ptr<luSettings>& settings)
    : m_settings(settings),
      m_values(settings->GetImp()),
      m_numPut(&lu_use_facet<lu_num_put>(m_values->Locale())),
      m_hasFraction(false),
      m_value(0.0),
      m_negative(false) {}

luInputNumberImp::~luInputNumberImp() = default;

const unsigned short* luInputNumberImp::SkipBlanks(const unsigned short* p,
                                                   const lu_ctype_impl& ctype) const {
    while (AsciiDigit(*p) > 9 && ctype.IsSpace(*p)) ++p;
    return p;
}

// Leading zeros are not stored: in the integer part they leave the exponent
// alone, in the fraction they lower it. Digits beyond the twentieth only move
// the exponent (integer part) or are dropped (fraction).
const unsigned short* luInputNumberImp::ReadDigits(const unsigned short* p,
                                                   const lu_ctype_impl& ctype, Mantissa& m,
                                                   bool fraction) const {
    for (int d = DigitValue(ctype, *p); d >= 0; d = DigitValue(ctype, *++p)) {
        if (m.count == 0) {
            if (d == 0) {
                if (fraction) --m.exponent;
                continue;
            }
            m.digits[m.count++] = d;
            if (!fraction) ++m.exponent;
            continue;
        }
        if (m.count < kMaxDigits) {
            m.digits[m.count++] = d;
            m.trailingZeros = d == 0 ? m.trailingZeros + 1 : 0;
        }
        if (!fraction) ++m.exponent;
    }
    return p;
}

// Blanks, an optional sign (the negative one tested first), blanks.
const unsigned short* luInputNumberImp::ReadSign(const unsigned short* p,
                                                 const lu_ctype_impl& ctype, bool& negative) const {
    p = SkipBlanks(p, ctype);
    negative = false;
    if (Is(*p, m_values->NegativeSign())) {
        negative = true;
        ++p;
    } else if (Is(*p, m_values->PositiveSign())) {
        ++p;
    }
    return SkipBlanks(p, ctype);
}

// The exponent behind the mantissa that ends at `p`: the letter in either
// case, then a sign and digits, blanks allowed between them. Without the
// letter there is none and the number ends at `p`; a letter without digits
// fails where the digits should stand.
const unsigned short* luInputNumberImp::ReadExponent(const unsigned short* p,
                                                     const lu_ctype_impl& ctype,
                                                     std::int32_t& exponent, bool& ok) {
    const lu_ctype& cases = m_values->CharacterFacet();
    const unsigned short* q = SkipBlanks(p, ctype);
    exponent = 0;
    if (*q == 0 || cases.tolower(*q) != cases.tolower(m_values->ExponentSign())) return p;
    bool negative = false;
    q = ReadSign(q + 1, ctype, negative);
    if (DigitValue(ctype, *q) < 0) {
        ok = false;
        return q;
    }
    for (int d = DigitValue(ctype, *q); d >= 0; d = DigitValue(ctype, *++q)) {
        exponent = exponent * 10 + d;
        if (exponent > kExponentCeiling) exponent = kExponentCeiling;
    }
    if (negative) {
        exponent = -exponent;
        m_hasFraction = true;  // even for an exponent of 0
    }
    return q;
}

// The digits added up most significant first, then scaled once by the power
// of ten of the last significant digit. False beyond 10^308.
bool luInputNumberImp::Compose(const Mantissa& m, std::int32_t exponent, double& value) const {
    const int significant = m.count - m.trailingZeros;
    value = 0.0;
    for (int i = 0; i < significant; ++i) value += m.digits[i] * PowerOfTen(significant - 1 - i);
    const std::int32_t power = m.exponent - significant + exponent + 1;
    if (power > 308) {
        value *= 1e308;
    } else if (power < -308) {
        const std::int32_t below = -308 - power;
        value = below > 20 ? 0.0 : value / 1e308 / PowerOfTen(below);
    } else if (power > 0) {
        value = PowerOfTen(power) * value;
    } else {
        value = value / PowerOfTen(-power);
    }
    if (m_negative) value *= -1.0;
    return power <= 308;
}

bool luInputNumberImp::Scan(const unsigned short* text, double& result, int& position) {
    const lu_ctype_impl& ctype = m_values->CharacterFacet().impl();
    const unsigned short point = m_values->DecimalPoint();
    m_value = 0.0;
    m_hasFraction = false;
    Mantissa m;
    bool ok = true;

    const unsigned short* p = ReadSign(text, ctype, m_negative);
    if (DigitValue(ctype, *p) >= 0) {
        p = ReadDigits(p, ctype, m, false);
        if (Is(*p, point)) {
            m_hasFraction = true;
            p = ReadDigits(p + 1, ctype, m, true);
        }
    } else if (Is(*p, point)) {
        m_hasFraction = true;
        ++p;
        ok = DigitValue(ctype, *p) >= 0;
        if (ok) p = ReadDigits(p, ctype, m, true);
    } else {
        ok = false;
    }

    std::int32_t exponent = 0;
    if (ok) p = ReadExponent(p, ctype, exponent, ok);
    if (ok) {
        ok = Compose(m, exponent, m_value);
        if (ok) result = m_value;
    }
    position = static_cast<int>(p - text);
    return ok;
}

bool luInputNumberImp::IsInteger(long& value) {
    if (m_hasFraction || m_value > 2147483647.0 || m_value < -2147483648.0) return false;
    value = static_cast<long>(m_value);
    return true;
}

bool luInputNumberImp::IsUnsignedInteger(unsigned long& value) {
    if (m_negative || m_hasFraction || m_value > 4294967295.0) return false;
    value = static_cast<unsigned long>(m_value);
    return true;
}

bool luInputNumberImp::Format(double value) {
    const bool scientific =
        value >= 1e16 || value <= -1e16 || (value > -0.0001 && value < 0.0001 && value != 0.0);
    Write(value, 20, scientific);
    return true;
}

// A whole number has no fraction digits, and up to 15 digits no exponent
// either: the 32-bit values never reach one. A 64-bit value from 1e15 on
// keeps its exponent, so that the text still reads back as the number.
bool luInputNumberImp::Format(long value) {
    Write(static_cast<double>(value), 0, false);
    return true;
}

bool luInputNumberImp::Format(unsigned long value) {
    Write(static_cast<double>(value), 0, false);
    return true;
}

// The sign always in front, whatever the locale's negative mode; digit 0 for
// an empty integer part; a special value's text ("#INF", "#IND") stands where
// the fraction digits would.
void luInputNumberImp::Write(double value, int maxFraction, bool scientific) {
    m_text.clear();
    bool negative = false;
    bool hasExponent = false;
    bool exponentNegative = false;
    m_numPut->convert(value, maxFraction, 0, 15, 1, 1, scientific, false, m_integer, m_fraction,
                      m_exponent, negative, hasExponent, exponentNegative);
    if (negative) m_text.push_back(m_values->NegativeSign());
    if (m_integer.empty())
        m_text.push_back(m_values->Digits()[0]);
    else
        m_text.append(m_integer.c_str(), m_integer.length());
    if (!m_fraction.empty()) {
        m_text.push_back(m_values->DecimalPoint());
        m_text.append(m_fraction.c_str(), m_fraction.length());
    }
    if (hasExponent) {
        m_text.push_back(m_values->ExponentSign());
        if (exponentNegative) m_text.push_back(m_values->NegativeSign());
        m_text.append(m_exponent.c_str(), m_exponent.length());
    }
}

long CreateInputNumber(ilu_ptr<luSettings>& settings, luInputNumber*& out) {
    try {
        out = new (std::nothrow) luInputNumberImp(settings);
    } catch (...) {
        return LU_E_FAIL;
    }
    return LU_S_SUCCESS;
}

}  // namespace FmtLib

#include "kai18n/facets/lu_num_put.h"

lu_locale::id lu_num_put::id;

lu_num_put::lu_num_put(const lu_numpunct* punct, unsigned int refs)
    : lu_locale::facet(refs), m_punct(punct) {}

lu_num_put::lu_num_put(unsigned int refs) : lu_locale::facet(refs), m_punct(new lu_numpunct(0)) {}

lu_num_put::~lu_num_put() = default;

ucs2string_formatter& lu_num_put::do_put(ucs2string_formatter& out, unsigned short,
                                         double value) const {
    // Three formatters on the stack: no heap for any result of these arguments,
    // whose longest is 256 integer digits.
    ucs2string_formatter integer_digits;
    ucs2string_formatter fraction_digits;
    ucs2string_formatter exponent_digits;
    bool negative = false;
    bool has_exponent = false;
    bool exponent_negative = false;
    if (!convert(value, 17, 1, 256, 1, 0, false, false, integer_digits, fraction_digits,
                 exponent_digits, negative, has_exponent, exponent_negative)) {
        // A special value or a failure: its text alone, no digit and no sign.
        out.append(fraction_digits.data(), fraction_digits.length());
        return out;
    }

    const lu_numeric_punctuation::eNegativeMode mode = m_punct->GetMode();
    const unsigned short sign = m_punct->GetNegativeSign();
    if (negative) {
        switch (mode) {
            case lu_numeric_punctuation::eParentheses:
                out.push_back('(');
                break;
            case lu_numeric_punctuation::eSignBefore:
                out.push_back(sign);
                break;
            case lu_numeric_punctuation::eSignBlankBefore:
                out.push_back(sign);
                out.push_back(' ');
                break;
            default:  // behind the number, or no sign for an unknown mode
                break;
        }
    }
    if (integer_digits.empty()) {
        out.push_back(m_punct->GetDigits(false)[0]);
    } else {
        out.append(integer_digits.data(), integer_digits.length());
    }
    out.push_back(m_punct->decimal_point());
    out.append(fraction_digits.data(), fraction_digits.length());
    if (has_exponent) {
        out.push_back(m_punct->GetExponent(false));
        if (exponent_negative) out.push_back(sign);
        out.append(exponent_digits.data(), exponent_digits.length());
    }
    if (negative) {
        switch (mode) {
            case lu_numeric_punctuation::eParentheses:
                out.push_back(')');
                break;
            case lu_numeric_punctuation::eSignAfter:
                out.push_back(sign);
                break;
            case lu_numeric_punctuation::eBlankSignAfter:
                out.push_back(' ');
                out.push_back(sign);
                break;
            default:  // in front of the number, or no sign for an unknown mode
                break;
        }
    }
    return out;
}

namespace {

// The decimal digits of `magnitude` in the lower-case digit table, written
// backwards to end just before `end`; returns the first.
unsigned short* WriteDecimal(unsigned short* end, unsigned long magnitude,
                             const unsigned short* digits) {
    unsigned short* p = end;
    do {
        *--p = digits[magnitude % 10];
        magnitude /= 10;
    } while (magnitude != 0);
    return p;
}

// Room for the 20 digits of the largest 64-bit value.
constexpr unsigned int kDecimalRoom = 24;

}  // namespace

ucs2string_formatter& lu_num_put::do_put(ucs2string_formatter& out, unsigned short,
                                         unsigned long value) const {
    unsigned short text[kDecimalRoom];
    unsigned short* const end = text + kDecimalRoom;
    const unsigned short* first = WriteDecimal(end, value, m_punct->GetDigits(false));
    out.append(first, static_cast<unsigned int>(end - first));
    return out;
}

// `long` had 32 bits where this library was first made; here it has 64, and
// the whole value is written. The magnitude is taken in unsigned arithmetic,
// so the most negative value comes out right too.
ucs2string_formatter& lu_num_put::do_put(ucs2string_formatter& out, unsigned short,
                                         long value) const {
    const unsigned long magnitude =
        value < 0 ? 0ul - static_cast<unsigned long>(value) : static_cast<unsigned long>(value);
    unsigned short text[kDecimalRoom];
    unsigned short* const end = text + kDecimalRoom;
    const unsigned short* first = WriteDecimal(end, magnitude, m_punct->GetDigits(false));
    const unsigned int count = static_cast<unsigned int>(end - first);
    if (value >= 0) {
        out.append(first, count);
        return out;
    }
    const unsigned short sign = m_punct->GetNegativeSign();
    switch (m_punct->GetMode()) {
        case lu_numeric_punctuation::eParentheses:
            out.push_back('(');
            out.append(first, count);
            out.push_back(')');
            break;
        case lu_numeric_punctuation::eSignBlankBefore:
            out.push_back(sign);
            out.push_back(' ');
            out.append(first, count);
            break;
        case lu_numeric_punctuation::eSignAfter:
            out.append(first, count);
            out.push_back(sign);
            break;
        case lu_numeric_punctuation::eBlankSignAfter:
            out.append(first, count);
            out.push_back(' ');
            out.push_back(sign);
            break;
        default:  // mode 1 and every unknown value: the sign in front
            out.push_back(sign);
            out.append(first, count);
            break;
    }
    return out;
}

ucs2string_formatter& lu_num_put::do_put(ucs2string_formatter& out, unsigned short,
                                         bool value) const {
    out.push_back(m_punct->GetDigits(false)[value ? 1 : 0]);
    return out;
}

// Decimal digits as the inputs read them: any unit the character facet calls
// a decimal digit, of any script, with ASCII digits as the fast common case.
#ifndef KAI18N_FMTLIB_INPUT_DIGITS_H
#define KAI18N_FMTLIB_INPUT_DIGITS_H

#include "kai18n/facets/lu_ctype_impl.h"

namespace FmtLib {

/// The value of an ASCII digit; above 9 for any other unit. An ASCII digit
/// needs no table look-up and is never a blank.
inline unsigned int AsciiDigit(unsigned short unit) {
    return static_cast<unsigned int>(unit) - u'0';
}

/// The value of the digit `unit`, or -1 when it is no decimal digit.
inline int DigitValue(const lu_ctype_impl& ctype, unsigned short unit) {
    const unsigned int ascii = AsciiDigit(unit);
    if (ascii <= 9) return static_cast<int>(ascii);
    return ctype.IsDigit(unit) ? ctype.getdigit(unit) : -1;
}

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_INPUT_DIGITS_H

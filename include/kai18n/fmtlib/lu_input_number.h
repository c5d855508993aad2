// Number input: a line of user text read back into a number, in one free
// form with the sign, decimal point and exponent letter of the settings'
// locale and decimal digits of any script, and the same form written for a
// value that pre-fills an input field.
//
//     luInputNumber* input = nullptr;
//     CreateInputNumber(settings, input);
//     double value = 0;
//     int position = 0;
//     input->Scan(text.c_str(), value, position);  // "-12,5e1 kg" in de_DE: -125, position 7
//     long whole = 0;
//     input->IsInteger(whole);  // false: the text had a decimal point
//     input->Format(0.00005);
//     input->c_str();           // "5e-5"
//     delete input;
#ifndef KAI18N_FMTLIB_LU_INPUT_NUMBER_H
#define KAI18N_FMTLIB_LU_INPUT_NUMBER_H

#include "kai18n/fmtlib/lu_settings.h"

namespace FmtLib {

class luInputNumber {
  public:
    virtual ~luInputNumber();

    /// Reads a number from the zero-terminated `text`: blanks, a sign, blanks,
    /// digits with at most one decimal point, and an exponent (the letter in
    /// either case, a sign, digits; blanks allowed between them). True with
    /// the value in `result`, false with `result` untouched when no number
    /// stands there or its power of ten lies beyond 10^308 (a mantissa of
    /// several digits can still overflow to infinity just below that: test
    /// std::isinf where it matters). `position` is always the count of units
    /// read; what follows the number is not looked at.
    virtual bool Scan(const unsigned short* text, double& result, int& position) = 0;
    /// The last scanned value as a 32-bit integer: false when it had a
    /// decimal point or a negative exponent, or lies outside -2147483648 to
    /// 2147483647. True with 0 before any Scan.
    virtual bool IsInteger(long& value) = 0;
    /// The same from 0 to 4294967295; a negative sign, even of zero, is false.
    virtual bool IsUnsignedInteger(unsigned long& value) = 0;
    /// Each writes `value` in the form Scan reads; c_str() gives the text.
    /// Always true. Up to 15 significant digits; scientific notation from
    /// 1e16 on and below 0.0001.
    virtual bool Format(unsigned long value) = 0;
    virtual bool Format(long value) = 0;
    virtual bool Format(double value) = 0;
    /// The text of the last Format, empty before the first.
    virtual const unsigned short* c_str() = 0;

  protected:
    luInputNumber() {}
    luInputNumber(const luInputNumber&) {}
    luInputNumber& operator=(const luInputNumber&) { return *this; }
};

/// A number input for `settings` in `out`, which the caller deletes. 0, with
/// `out` null when no memory was to be had; 0x80004005 when anything was
/// thrown while building it.
long CreateInputNumber(ilu_ptr<luSettings>& settings, luInputNumber*& out);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_INPUT_NUMBER_H

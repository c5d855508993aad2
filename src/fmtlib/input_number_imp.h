// The number input's state: the settings it reads the locale's signs and
// digits from, the number output facet that writes a value back, and what
// the last Scan found.
#ifndef KAI18N_FMTLIB_INPUT_NUMBER_IMP_H
#define KAI18N_FMTLIB_INPUT_NUMBER_IMP_H

#include <cstdint>

#include "kai18n/fmtlib/lu_input_number.h"
#include "kai18n/strings/ucs2string_formatter.h"

class lu_num_put;
class lu_ctype_impl;

namespace FmtLib {

class luInputNumberImp : public luInputNumber {
  public:
    explicit luInputNumberImp(ilu_ptr<luSettings>& settings);
    ~luInputNumberImp() override;

    bool Scan(const unsigned short* text, double& result, int& position) override;
    bool IsInteger(long& value) override;
    bool IsUnsignedInteger(unsigned long& value) override;
    bool Format(unsigned long value) override;
    bool Format(long value) override;
    bool Format(double value) override;
    const unsigned short* c_str() override { return m_text.c_str(); }

  private:
    /// The significant digits of a number being read and the power of ten
    /// of the first of them.
    struct Mantissa;

    const unsigned short* ReadDigits(const unsigned short* p, const lu_ctype_impl& ctype,
                                     Mantissa& mantissa, bool fraction) const;
    const unsigned short* ReadSign(const unsigned short* p, const lu_ctype_impl& ctype,
                                   bool& negative) const;
    const unsigned short* ReadExponent(const unsigned short* p, const lu_ctype_impl& ctype,
                                       std::int32_t& exponent, bool& ok);
    bool Compose(const Mantissa& mantissa, std::int32_t exponent, double& value) const;
    const unsigned short* SkipBlanks(const unsigned short* p, const lu_ctype_impl& ctype) const;
    /// Makes the text `value` as convert() splits it with `maxFraction`
    /// fraction digits at most, at most 15 integer digits, in scientific
    /// notation when asked.
    void Write(double value, int maxFraction, bool scientific);

    ilu_ptr<luSettings> m_settings;
    const luSettingsImp* m_values;
    const lu_num_put* m_numPut;
    ucs2string_formatter m_text;
    bool m_hasFraction;
    double m_value;
    bool m_negative;
    // Scratch for convert(), kept so that Format allocates once.
    ucs2string_formatter m_integer;
    ucs2string_formatter m_fraction;
    ucs2string_formatter m_exponent;
};

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_INPUT_NUMBER_IMP_H

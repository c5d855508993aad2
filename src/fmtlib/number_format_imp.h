// The number formatter's compiled form and its two stages: BuildFrom, which
// compiles a pattern into layout programs, and Format, which runs them.
#ifndef KAI18N_FMTLIB_NUMBER_FORMAT_IMP_H
#define KAI18N_FMTLIB_NUMBER_FORMAT_IMP_H

#include <cstdint>
#include <utility>
#include <vector>

#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/strings/ucs2string_formatter.h"

class lu_num_put;

namespace FmtLib {

/// The operations of a layout program.
enum luNumberLayoutOp : std::int32_t {
    OpError = 0,              // write "#FORMAT"
    OpLiteral = 1,            // write literal number `argument`
    OpBothSigns = 2,          // negative or positive sign
    OpSign = 3,               // negative sign if negative
    OpImplicitSign = 4,       // the same, put first by the compiler
    OpOptionalDigit = 5,      // a digit if enough are left, else count a place off
    OpExcessDigits = 6,       // the digits beyond the places
    OpRequiredDigit = 7,      // the next digit
    OpOptionalFraction = 8,   // the next fraction digit, if any
    OpRequiredFraction = 9,   // the next fraction digit, or zero
    OpOptionalExponent = 10,  // an exponent digit if enough are left
    OpExcessExponent = 11,    // the exponent digits beyond the places
    OpRequiredExponent = 12,  // the next exponent digit
    OpDecimalSeparator = 13,  // if required or fraction digits exist
    OpOpenBracket = 14,       // "(" if negative
    OpCloseBracket = 15,      // ")" if negative
    OpUpperExponentSigned = 16,
    OpUpperExponent = 17,
    OpLowerExponentSigned = 18,
    OpLowerExponent = 19,
    OpPercent = 20,
    OpBoolean = 21,  // false word for exactly zero, else true word
    OpTrue = 22,
    OpFalse = 23,
};

/// One section of a compiled number pattern.
struct luNumberSection {
    bool grouping = false;
    bool hasExponent = false;
    bool decimalRequired = false;
    int integerPlaces = 0;
    int exponentZeros = 0;
    int exponentHashes = 0;
    int minimumFraction = 0;
    int maximumFraction = 0;
    std::vector<ucs2string> literals;
    std::vector<std::pair<std::int32_t, std::int32_t>> program;
    std::vector<char> integerTemplate;   // '#' or '0' per place, in pattern order
    std::vector<char> exponentTemplate;  // likewise for the exponent
    int colour = 0;
    bool percentSign = false;
    int timesHundred = 0;

    /// Back to empty; the vectors keep their room.
    void Reset();
    void Append(luNumberLayoutOp op, std::int32_t argument = 0) {
        program.emplace_back(op, argument);
    }
};

class luNumberFormatImp final : public luNumberFormat {
  public:
    explicit luNumberFormatImp(const ilu_ptr<luSettings>& settings);
    ~luNumberFormatImp() override;

    bool FormatError() override;
    const unsigned short* c_str() const override { return m_result.c_str(); }
    int Color() const override { return m_colour; }
    bool Format(unsigned long value) override;
    bool Format(long value) override;
    bool Format(double value) override;

    /// Compiles `pattern`, replacing what was compiled before. 0, or
    /// 0x80004005 for a date pattern or a default format that is missing.
    virtual long BuildFrom(luFmtPattern* pattern);

    // For tests and diagnostics.
    const luNumberSection& Section(int i) const { return m_sections[i]; }
    int NegativeIndex() const { return m_negativeIndex; }
    int ZeroIndex() const { return m_zeroIndex; }

  private:
    long BuildFrom(luFmtPattern* pattern, int depth);
    long BuildFromDefault(int token, int depth);
    void Reset();
    void FormatValue(double value, bool mayBeNegative);
    void LayOut(const luNumberSection& section);
    void WritePlainForm();
    void PadDigits(const ucs2string_formatter& digits, const std::vector<char>& placeTemplate,
                   ucs2string_formatter& padded);
    void Write(unsigned short unit) {
        if (unit != 0) m_result.push_back(unit);
    }
    void Write(const unsigned short* text);

    ilu_ptr<luSettings> m_settings;
    const luSettingsImp* m_values;
    const lu_num_put* m_numPut;
    ucs2string_formatter m_result;
    int m_colour;
    luNumberSection m_sections[3];
    int m_negativeIndex;
    int m_zeroIndex;
    ucs2string m_errorText;
    int m_errorColour;
    ucs2string_formatter m_integerDigits;
    ucs2string_formatter m_fractionDigits;
    ucs2string_formatter m_exponentDigits;
    bool m_negative;
    bool m_hasExponent;
    bool m_exponentNegative;
    bool m_converted;
    bool m_zero;
    ucs2string_formatter m_paddedInteger;   // reversed: the last digit first
    ucs2string_formatter m_paddedExponent;  // reversed
};

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_NUMBER_FORMAT_IMP_H

// Running a compiled number pattern: pick the section, scale, split the value
// into digits, and lay them out by the section's program.
#include "fmtlib/number_format_imp.h"
#include "kai18n/facets/lu_num_put.h"

namespace FmtLib {
namespace {

const unsigned short kFormatError[] = {u'#', u'F', u'O', u'R', u'M', u'A', u'T', 0};

}  // namespace

void luNumberFormatImp::Write(const unsigned short* text) {
    if (text != nullptr) m_result.append(text);
}

bool luNumberFormatImp::FormatError() {
    m_result.assign(m_errorText.data(), m_errorText.length());
    m_colour = m_errorColour;
    return true;
}

bool luNumberFormatImp::Format(unsigned long value) {
    FormatValue(static_cast<double>(value), false);
    return true;
}

bool luNumberFormatImp::Format(long value) {
    FormatValue(static_cast<double>(value), true);
    return true;
}

bool luNumberFormatImp::Format(double value) {
    FormatValue(value, true);
    return true;
}

void luNumberFormatImp::FormatValue(double value, bool mayBeNegative) {
    m_result.clear();
    m_zero = false;
    // A NaN is neither below zero nor equal to it: it takes the first section.
    int index = 0;
    if (mayBeNegative && value < 0) index = m_negativeIndex;
    if (value == 0) {
        index = m_zeroIndex;
        m_zero = true;
    }
    const luNumberSection& section = m_sections[index];
    if (section.percentSign) {
        value *= 100;
    } else {
        for (int i = 0; i < section.timesHundred; ++i) value *= 100;
    }
    m_colour = section.colour;
    m_converted = m_numPut->convert(
        value, section.maximumFraction, section.minimumFraction, 256, section.integerPlaces,
        section.exponentZeros, section.hasExponent, false, m_integerDigits, m_fractionDigits,
        m_exponentDigits, m_negative, m_hasExponent, m_exponentNegative);
    LayOut(section);
}

// A value the section cannot hold (no number, or an exponent the section has
// no place for) is written plainly: sign, digits, point, fraction, exponent.
void luNumberFormatImp::WritePlainForm() {
    if (m_negative) Write(m_values->NegativeSign());
    m_result.append(m_integerDigits.data(), m_integerDigits.length());
    if (!m_fractionDigits.empty()) {
        Write(m_values->DecimalPoint());
        m_result.append(m_fractionDigits.data(), m_fractionDigits.length());
    }
    if (m_hasExponent) {
        Write(m_values->ExponentSign());
        if (m_exponentNegative) Write(m_values->NegativeSign());
        m_result.append(m_exponentDigits.data(), m_exponentDigits.length());
    }
}

// Right to left: each digit uses up one place; places left over add the
// zero digit for "0" and nothing for "#". The result is reversed.
void luNumberFormatImp::PadDigits(const ucs2string_formatter& digits,
                                  const std::vector<char>& placeTemplate,
                                  ucs2string_formatter& padded) {
    const unsigned int count = digits.length();
    const std::size_t places = placeTemplate.size();
    // The places the digits leave, from the right; only "0" places add a digit.
    std::size_t left = places > count ? places - count : 0;
    unsigned int zeros = 0;
    for (std::size_t p = 0; p < left; ++p) zeros += placeTemplate[p] == '0';
    padded.resize(count + zeros);
    unsigned short* out = &padded[0];
    for (unsigned int i = count; i-- > 0;) *out++ = digits[i];
    const unsigned short zero = m_values->Digits()[0];
    while (left-- > 0)
        if (placeTemplate[left] == '0') *out++ = zero;
}

void luNumberFormatImp::LayOut(const luNumberSection& section) {
    if (!m_converted || (!section.hasExponent && m_hasExponent)) return WritePlainForm();
    PadDigits(m_integerDigits, section.integerTemplate, m_paddedInteger);
    PadDigits(m_exponentDigits, section.exponentTemplate, m_paddedExponent);

    // The settings answer the same within one call; ask them once.
    const unsigned short thousandsSep = m_values->ThousandsSep();
    const unsigned short negativeSign = m_values->NegativeSign();
    const unsigned short positiveSign = m_values->PositiveSign();
    const unsigned short zeroDigit = m_values->Digits()[0];

    int digitsLeft = static_cast<int>(m_paddedInteger.length());
    int placesLeft = section.integerPlaces;
    unsigned int fraction = 0;
    int exponentLeft = static_cast<int>(m_paddedExponent.length());
    int exponentPlacesLeft = section.exponentHashes + section.exponentZeros;
    bool digitWritten = false;

    // The leftmost digit left, with a separator ahead of it where the
    // locale's grouping puts one.
    auto writeDigit = [&] {
        if (digitsLeft <= 0) return;
        if (section.grouping && digitWritten && m_values->IsGroupPosition(digitsLeft - 1))
            Write(thousandsSep);
        m_result.push_back(m_paddedInteger[--digitsLeft]);
        digitWritten = true;
    };
    auto writeExponentDigit = [&] {
        if (exponentLeft > 0) m_result.push_back(m_paddedExponent[--exponentLeft]);
    };
    auto writeExponentMark = [&](unsigned short letter, bool withPlus) {
        m_result.push_back(letter);
        if (m_exponentNegative)
            Write(negativeSign);
        else if (withPlus)
            Write(positiveSign);
    };

    for (const auto& step : section.program) {
        switch (step.first) {
            case OpError:
                Write(kFormatError);
                break;
            case OpLiteral: {
                const ucs2string& literal = section.literals[step.second];
                m_result.append(literal.data(), literal.length());
                break;
            }
            case OpBothSigns:
                Write(m_negative ? negativeSign : positiveSign);
                break;
            case OpSign:
            case OpImplicitSign:
                if (m_negative) Write(negativeSign);
                break;
            case OpOptionalDigit:
                if (digitsLeft >= placesLeft) writeDigit();
                --placesLeft;
                break;
            case OpExcessDigits:
                while (digitsLeft > placesLeft) writeDigit();
                break;
            case OpRequiredDigit:
                writeDigit();
                --placesLeft;
                break;
            case OpOptionalFraction:
                if (fraction < m_fractionDigits.length())
                    m_result.push_back(m_fractionDigits[fraction++]);
                break;
            case OpRequiredFraction:
                m_result.push_back(fraction < m_fractionDigits.length()
                                       ? m_fractionDigits[fraction++]
                                       : zeroDigit);
                break;
            case OpOptionalExponent:
                if (exponentLeft >= exponentPlacesLeft) writeExponentDigit();
                --exponentPlacesLeft;
                break;
            case OpExcessExponent:
                while (exponentLeft > exponentPlacesLeft) writeExponentDigit();
                break;
            case OpRequiredExponent:
                writeExponentDigit();
                --exponentPlacesLeft;
                break;
            case OpDecimalSeparator:
                if (section.decimalRequired || !m_fractionDigits.empty())
                    Write(m_values->DecimalPoint());
                break;
            case OpOpenBracket:
                if (m_negative) m_result.push_back(u'(');
                break;
            case OpCloseBracket:
                if (m_negative) m_result.push_back(u')');
                break;
            case OpUpperExponentSigned:
                writeExponentMark(u'E', true);
                break;
            case OpUpperExponent:
                writeExponentMark(u'E', false);
                break;
            case OpLowerExponentSigned:
                writeExponentMark(u'e', true);
                break;
            case OpLowerExponent:
                writeExponentMark(u'e', false);
                break;
            case OpPercent:
                m_result.push_back(u'%');
                break;
            case OpBoolean:
                Write(m_zero ? m_values->FalseString() : m_values->TrueString());
                break;
            case OpTrue:
                Write(m_values->TrueString());
                break;
            case OpFalse:
                Write(m_values->FalseString());
                break;
            default:
                break;
        }
    }
}

}  // namespace FmtLib

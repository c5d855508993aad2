// Date input: building the input from a pattern, and writing a date back
// through the date formatter on the same pattern.
#include <algorithm>
#include <new>

#include "fmtlib/input_date_imp.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/frame/result_codes.h"

namespace FmtLib {
namespace {

// The tokens Scan can read; any other token makes a pattern unusable.
bool IsReadableToken(int token) {
    return token == TokLiteral || (token >= TokAmPm && token <= TokSecond0) ||
           (token >= TokYear0000 && token <= TokJapaneseImpYearEng) ||
           (token >= TokDayName && token <= TokMonthDay0) || token == TokDateSeparator ||
           token == TokTimeSeparator;
}

bool IsUsable(const luFmtPattern& pattern) {
    if (pattern.size() == 0) return false;
    for (const luToken* token : pattern)
        if (!IsReadableToken(token->TokenId())) return false;
    return true;
}

// The locale's canonical text of a named default format, parsed; null when
// there is no text or it does not parse.
std::unique_ptr<luFmtPattern> DefaultPattern(const luSettings& settings, int token) {
    const unsigned short* text = settings.GetFmtLibDefaultFormat(token - TokFullDate);
    if (text == nullptr) return nullptr;
    std::unique_ptr<luStringFormatDate> serial(CreateSerialStringFormatDate());
    if (serial == nullptr) return nullptr;
    luFmtPattern* parsed = nullptr;
    const long code = serial->ToPattern(ucs2string(text), parsed);
    std::unique_ptr<luFmtPattern> owned(parsed);
    if (code < 0) return nullptr;
    return owned;
}

}  // namespace

luInputDate::~luInputDate() = default;

luInputDateImp::luInputDateImp(ilu_ptr<luSettings>& settings)
    : m_settings(settings),
      m_values(settings->GetImp()),
      m_pivotYear(2000),
      m_calendarError(false) {}

luInputDateImp::~luInputDateImp() = default;

long luInputDateImp::BuildFrom(luFmtPattern& pattern, int pivot_year) {
    m_pivotYear = pivot_year;
    m_calendarError = false;
    m_format.reset();
    m_pattern.reset();
    m_steps.clear();
    try {
        std::unique_ptr<luFmtPattern> named;
        const luFmtPattern* working = &pattern;
        if (pattern.size() > 0 && IsDefaultDateFormatToken(pattern[0]->TokenId())) {
            named = DefaultPattern(*m_settings, pattern[0]->TokenId());
            if (named == nullptr) return LU_E_FAIL;
            working = named.get();
        }
        if (!IsUsable(*working)) return LU_E_FAIL;

        std::unique_ptr<luFmtPattern> copy(CreateFmtPattern(*working));
        luDateFormat* format = nullptr;
        if (copy == nullptr || CreateDateFormat(m_settings, copy.get(), format) < 0)
            return LU_E_FAIL;
        m_format.reset(format);
        m_pattern = std::move(copy);
        m_steps.reserve(m_pattern->size());
        for (const luToken* token : *m_pattern) {
            const bool literal = token->IsLiteral();
            Step step{token->TokenId(), nullptr, 0, false};
            if (literal) {
                step.text = token->LiteralText();
                step.length = static_cast<int>(token->LiteralLength());
                const lu_ctype_impl& ctype = m_values->CharacterFacet().impl();
                step.plain = std::none_of(
                    step.text, step.text + step.length,
                    [&ctype](unsigned short unit) { return unit == 0 || ctype.IsSpace(unit); });
            }
            m_steps.push_back(step);
        }
    } catch (...) {
        m_format.reset();
        m_pattern.reset();
        m_steps.clear();
        return LU_E_FAIL;
    }
    return LU_S_SUCCESS;
}

bool luInputDateImp::Format(const TimeLib::luCalendarTime& value) {
    return m_format != nullptr && m_format->Format(value);
}

const unsigned short* luInputDateImp::c_str() {
    return m_format == nullptr ? nullptr : m_format->c_str();
}

// A year of two digits lies in the hundred years that end with the pivot.
int luInputDateImp::TwoDigitYear(int value) const {
    const int century = m_pivotYear / 100 * 100;
    return m_pivotYear % 100 < value ? value - 100 + century : value + century;
}

long CreateInputDate(ilu_ptr<luSettings>& settings, luFmtPattern* pattern, luInputDate*& out,
                     int pivot_year) {
    if (pattern == nullptr) return LU_E_FAIL;
    std::unique_ptr<luInputDateImp> input;
    try {
        input.reset(new luInputDateImp(settings));
    } catch (...) {
        return LU_E_FAIL;
    }
    if (input->BuildFrom(*pattern, pivot_year) < 0) return LU_E_FAIL;
    out = input.release();
    return LU_S_SUCCESS;
}

}  // namespace FmtLib

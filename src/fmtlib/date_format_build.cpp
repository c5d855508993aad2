// Building a date formatter: the value section of a pattern becomes the
// pattern it formats by, the error section its error text and colour; a named
// default format is read from the locale's canonical text instead.
#include <cstdint>
#include <memory>

#include "fmtlib/date_format_imp.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/frame/result_codes.h"

namespace FmtLib {
namespace {

// Token arithmetic on values that may be anything a caller passes: wraps
// instead of overflowing.
luFmtTokens DefaultFormatToken(fmtLibDefaultFormats format) {
    return static_cast<luFmtTokens>(
        static_cast<std::int32_t>(static_cast<std::uint32_t>(format) + 300u));
}

int DefaultFormatOf(int token) {
    return static_cast<int>(static_cast<std::uint32_t>(token) - 300u);
}

}  // namespace

luDateFormatImp::luDateFormatImp(const ilu_ptr<luSettings>& settings)
    : m_settings(settings),
      m_values(settings->GetImp()),
      m_colour(0),
      m_valueColour(0),
      m_errorColour(0) {}

luDateFormatImp::~luDateFormatImp() = default;

long luDateFormatImp::BuildFrom(luFmtPattern* pattern) {
    if (pattern == nullptr || !pattern->IsDate()) return LU_E_FAIL;
    for (const luToken* token : *pattern)
        if (IsDefaultDateFormatToken(token->TokenId())) return BuildFrom(token);

    m_valueColour = 0;
    m_errorColour = 0;
    m_pattern.reset();
    m_pattern.reset(CreateDateFmtPattern());
    if (m_pattern == nullptr) return LU_E_FAIL;
    TakeSections(*pattern);
    return LU_S_SUCCESS;
}

// The value section is copied without its colour tokens; of the error
// section only literals and a colour count; a third section is not read.
void luDateFormatImp::TakeSections(const luFmtPattern& pattern) {
    auto token = pattern.begin();
    for (; token != pattern.end() && (*token)->TokenId() != TokFormatSeparator; ++token) {
        const int id = (*token)->TokenId();
        if (IsColourToken(id))
            m_valueColour = id - 399;
        else
            m_pattern->push_back(*token);
    }
    if (token == pattern.end()) return;
    for (++token; token != pattern.end(); ++token) {
        const luToken& t = **token;
        const int id = t.TokenId();
        if (id == TokFormatSeparator) return;
        if (t.IsLiteral())
            m_errorText.append(t.LiteralText(), t.LiteralLength());
        else if (IsColourToken(id))
            m_errorColour = id - 399;
    }
}

// A default format's text is taken as it parses: no sections are split off,
// and colours and the error text stay as they were.
long luDateFormatImp::BuildFrom(const luToken* token) {
    if (token == nullptr) return LU_E_FAIL;
    const unsigned short* text =
        m_settings->GetFmtLibDefaultFormat(DefaultFormatOf(token->TokenId()));
    if (text == nullptr) return LU_E_FAIL;
    std::unique_ptr<luStringFormatDate> serial;
    try {
        serial.reset(CreateSerialStringFormatDate());
    } catch (...) {
        return LU_E_FAIL;
    }
    if (serial == nullptr) return LU_E_FAIL;
    luFmtPattern* parsed = nullptr;
    const long code = serial->ToPattern(ucs2string(text), parsed);
    std::unique_ptr<luFmtPattern> owned(parsed);
    if (code < 0 || owned == nullptr) return LU_E_FAIL;
    std::unique_ptr<luFmtPattern> copy(CreateFmtPattern(*owned));
    if (copy == nullptr) return LU_E_FAIL;
    m_pattern = std::move(copy);
    return LU_S_SUCCESS;
}

long CreateDateFormat(ilu_ptr<luSettings>& settings, luFmtPattern* pattern, luDateFormat*& out) {
    try {
        if (!settings) return LU_E_FAIL;
        std::unique_ptr<luDateFormatImp> format(new luDateFormatImp(settings));
        if (format->BuildFrom(pattern) < 0) return LU_E_FAIL;
        out = format.release();
        return LU_S_SUCCESS;
    } catch (...) {
        return LU_E_FAIL;
    }
}

long CreateDefaultDateFormat(ilu_ptr<luSettings>& settings, fmtLibDefaultFormats format,
                             luDateFormat*& out) {
    try {
        if (!settings) return LU_E_FAIL;
        std::unique_ptr<luDateFormatImp> formatter(new luDateFormatImp(settings));
        std::unique_ptr<luToken> token(luToken::MakeToken(DefaultFormatToken(format)));
        if (token == nullptr || formatter->BuildFrom(token.get()) < 0) return LU_E_FAIL;
        out = formatter.release();
        return LU_S_SUCCESS;
    } catch (...) {
        return LU_E_FAIL;
    }
}

}  // namespace FmtLib

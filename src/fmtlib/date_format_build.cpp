// Building a date formatter: the value section of a pattern becomes the
// pattern it formats by, the error section its error text and colour; a named
// default format is read from the locale's canonical text instead. The
// pattern is then compiled into the steps Format runs.
#include <cstdint>
#include <memory>
#include <new>

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
    return Compile();
}

// The value section is copied without its colour tokens; of the error
// section only literals and a colour count; a third section is not read.
// A pattern of one section without colours is copied whole: the copy reserves
// its list once instead of growing it token by token.
void luDateFormatImp::TakeSections(const luFmtPattern& pattern) {
    bool plain = true;
    for (const luToken* t : pattern) {
        const int id = t->TokenId();
        if (id == TokFormatSeparator || IsColourToken(id)) {
            plain = false;
            break;
        }
    }
    if (plain) {
        *m_pattern = pattern;
        return;
    }
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
    return Compile();
}

// Derives the program from the held pattern; must follow every change of
// the pattern. Literal steps point into m_literals, which is filled first and
// not touched again, so the pointers are set once it is complete.
long luDateFormatImp::Compile() {
    m_bounded = false;
    m_program.clear();
    m_literals.clear();
    if (m_pattern == nullptr) return LU_S_SUCCESS;
    try {
        m_program.reserve(m_pattern->size());
        for (const luToken* token : *m_pattern) CompileToken(*token);
    } catch (const std::bad_alloc&) {
        m_pattern.reset();
        m_program.clear();
        return LU_E_FAIL;
    }
    for (luDateStep& step : m_program)
        if (step.kind == luDateStep::Literal) step.text = m_literals.data() + step.offset;
    MeasureBounded();
    return LU_S_SUCCESS;
}

// A number of at most four padded digits takes at most ten units (the most
// digits a 32-bit magnitude has); a word has no bound known here.
void luDateFormatImp::MeasureBounded() {
    constexpr std::uint64_t kLimit = 65535;
    std::uint64_t length = 0;
    for (const luDateStep& step : m_program) {
        if (step.kind == luDateStep::Literal)
            length += step.length;
        else if (step.kind == luDateStep::Number && step.width <= 4)
            length += 10;
        else
            return;
    }
    if (length > kLimit) return;
    m_bounded = true;
    m_boundedLength = static_cast<unsigned int>(length);
}

// Number, default-format and colour tokens, separators and unknown date
// tokens write nothing and get no step.
void luDateFormatImp::CompileToken(const luToken& token) {
    if (token.IsLiteral()) return AddLiteral(token.LiteralText(), token.LiteralLength());
    const int id = token.TokenId();
    if (id == TokError) {
        static const unsigned short kFormatError[] = {u'#', u'F', u'O', u'R', u'M', u'A', u'T'};
        return AddLiteral(kFormatError, 7);
    }
    if (!IsDateToken(id)) return;
    if (CompileName(id) || CompileHour(id) || CompileNumber(id) || CompileJapanese(id)) return;
    CompileWord(id);
}

// Adjacent literals become one step: one copy a run instead of one a token.
void luDateFormatImp::AddLiteral(const unsigned short* text, unsigned int length) {
    if (length == 0) return;
    if (m_program.empty() || m_program.back().kind != luDateStep::Literal) {
        luDateStep step;
        step.offset = static_cast<unsigned int>(m_literals.size());
        m_program.push_back(step);
    }
    m_program.back().length += length;
    m_literals.insert(m_literals.end(), text, text + length);
}

void luDateFormatImp::AddStep(luDateStep::Kind kind, std::uint8_t adjust) {
    luDateStep step;
    step.kind = kind;
    step.adjust = adjust;
    m_program.push_back(step);
}

void luDateFormatImp::AddNumber(const TimeLib::luField& field, int width,
                                luDateStep::Adjust adjust) {
    luDateStep step;
    step.kind = luDateStep::Number;
    step.adjust = adjust;
    step.width = static_cast<std::uint8_t>(width);
    step.field = field;
    m_program.push_back(step);
}

// Groups of four name tokens, whose forms follow in the order plain, upper,
// lower, cap.
bool luDateFormatImp::CompileName(int id) {
    static const struct {
        int base;
        luDateStep::Kind kind;
    } kGroups[] = {{TokAmPm, luDateStep::AmPm},
                   {TokMonthName, luDateStep::MonthName},
                   {TokAbbMonthName, luDateStep::AbbMonthName},
                   {TokDayName, luDateStep::DayName},
                   {TokAbbDayName, luDateStep::AbbDayName}};
    for (const auto& group : kGroups) {
        if (id >= group.base && id < group.base + 4) {
            AddStep(group.kind, static_cast<std::uint8_t>(id - group.base));
            return true;
        }
    }
    return false;
}

bool luDateFormatImp::CompileHour(int id) {
    using namespace TimeLib;
    switch (id) {
        case TokHour00To23:
        case TokHour0To23:
            return AddNumber(Hour_of_day, id == TokHour00To23 ? 2 : 1), true;
        case TokHour01To12:
        case TokHour1To12:
            return AddNumber(Hour, id == TokHour01To12 ? 2 : 1, luDateStep::ZeroAs12), true;
        case TokHour01To24:
        case TokHour1To24:
            return AddNumber(Hour_of_day, id == TokHour01To24 ? 2 : 1, luDateStep::ZeroAs24), true;
        case TokHour00To11:
        case TokHour0To11:
            return AddNumber(Hour, id == TokHour00To11 ? 2 : 1), true;
        default:
            return false;
    }
}

// The number tokens other than hours: a field, perhaps reduced, and a width.
bool luDateFormatImp::CompileNumber(int id) {
    using namespace TimeLib;
    switch (id) {
        case TokMonth01:
        case TokMonth1:
            return AddNumber(Month, id == TokMonth01 ? 2 : 1, luDateStep::PlusOne), true;
        case TokMinute00:
        case TokMinute0:
            return AddNumber(Minute, id == TokMinute00 ? 2 : 1), true;
        case TokSecond00:
        case TokSecond0:
            return AddNumber(Second, id == TokSecond00 ? 2 : 1), true;
        case TokMillisecond000:
            return AddNumber(Millisecond, 3), true;
        case TokHundredthSecond00:
            return AddNumber(Millisecond, 2, luDateStep::Div10), true;
        case TokTenthSecond0:
            return AddNumber(Millisecond, 1, luDateStep::Div100), true;
        case TokYear0000:
            return AddNumber(Year, 4), true;
        case TokYear00:
            return AddNumber(Year, 2, luDateStep::Mod100), true;
        case TokMonthDay00:
        case TokMonthDay0:
            return AddNumber(Day_of_month, id == TokMonthDay00 ? 2 : 1), true;
        case TokDayOfWeekInMonth:
            return AddNumber(Day_of_week_in_month, 1), true;
        case TokDayOfYear000:
        case TokDayOfYear00:
        case TokDayOfYear0:
            return AddNumber(Day_of_year, TokDayOfYear0 - id + 1), true;
        case TokWeekOfYear00:
        case TokWeekOfYear0:
            return AddNumber(Week_of_year, id == TokWeekOfYear00 ? 2 : 1), true;
        case TokWeekOfMonth:
            return AddNumber(Week_of_month, 1), true;
        case TokYearOfWeekOfYear0000:
            return AddNumber(Year_woy, 4), true;
        case TokYearOfWeekOfYear00:
            return AddNumber(Year_woy, 2, luDateStep::Mod100), true;
        default:
            return false;
    }
}

bool luDateFormatImp::CompileJapanese(int id) {
    switch (id) {
        case TokJapaneseImpYear0:
        case TokJapaneseImpYear:
        case TokJapaneseImpYearEng:
        case TokJapaneseImperialPeriod:
        case TokJapaneseImperialYear0:
        case TokJapaneseImperialYear00: {
            luDateStep step;
            step.kind = luDateStep::Japanese;
            step.token = static_cast<std::uint8_t>(id);
            m_program.push_back(step);
            return true;
        }
        default:
            return false;
    }
}

// Era words and separators come from the facet at each Format; the time zone
// token and anything else write nothing.
void luDateFormatImp::CompileWord(int id) {
    if (id == TokEra)
        AddStep(luDateStep::Era);
    else if (id == TokDateSeparator)
        AddStep(luDateStep::DateSeparator);
    else if (id == TokTimeSeparator)
        AddStep(luDateStep::TimeSeparator);
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

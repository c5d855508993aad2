// Compiling a number pattern into layout programs: a state machine over the
// tokens, one section per "T[FS]", then an error section.
#include <memory>

#include "fmtlib/number_format_imp.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/frame/result_codes.h"

namespace FmtLib {
namespace {

enum class State {
    Start,
    Integer,
    FractionStart,
    Fraction,
    ExponentStart,
    Exponent,
    Error,
    Ignore
};

// A default format names a format of the locale, which is itself a pattern
// and may not name another one more than a few times over.
constexpr int kMaxDefaultDepth = 4;

bool InExponent(State state) {
    return state == State::ExponentStart || state == State::Exponent;
}

// The state machine of one pattern; writes into the three sections and the
// error text of the formatter.
class SectionCompiler {
  public:
    SectionCompiler(luNumberSection* sections, ucs2string& errorText, int& errorColour)
        : m_sections(sections), m_errorText(errorText), m_errorColour(errorColour) {}

    void Take(const luToken& token) {
        if (m_state == State::Ignore) return;
        if (m_state == State::Error) return TakeInErrorSection(token);
        if (TakeCommon(token)) return;
        TakeByState(token.TokenId());
    }

    // At the end: a first section with digit places and no sign of its own
    // writes a negative sign first.
    void Finish() {
        const luNumberSection& first = m_sections[0];
        if (m_index == 0 && !m_signSeen && first.maximumFraction + first.integerPlaces != 0)
            InsertImplicitSign();
    }

  private:
    luNumberSection& S() { return m_sections[m_index]; }

    void InsertImplicitSign() {
        auto& program = m_sections[0].program;
        program.insert(program.begin(), {OpImplicitSign, 0});
    }

    void TakeInErrorSection(const luToken& token) {
        const int id = token.TokenId();
        if (token.IsLiteral())
            m_errorText.append(token.LiteralText(), token.LiteralLength());
        else if (IsColourToken(id))
            m_errorColour = id - 399;
        else if (id == TokFormatSeparator)
            m_state = State::Ignore;
    }

    // The tokens that act alike in every state of a number section.
    bool TakeCommon(const luToken& token) {
        const int id = token.TokenId();
        luNumberSection& s = S();
        if (token.IsLiteral()) {
            s.literals.emplace_back(token.LiteralText(), token.LiteralLength());
            s.Append(OpLiteral, static_cast<std::int32_t>(s.literals.size() - 1));
        } else if (IsColourToken(id)) {
            s.colour = id - 399;
        } else {
            switch (id) {
                case TokError:
                    s.Append(OpError);
                    break;
                case TokNegativeOpen:
                    s.Append(OpOpenBracket), m_signSeen = true;
                    break;
                case TokNegativeClose:
                    s.Append(OpCloseBracket), m_signSeen = true;
                    break;
                case TokTimes100:
                    ++s.timesHundred;
                    break;
                case TokTimes100AndSign:
                    s.percentSign = true, s.Append(OpPercent);
                    break;
                case TokBool:
                    s.Append(OpBoolean);
                    break;
                case TokTrue:
                    s.Append(OpTrue);
                    break;
                case TokFalse:
                    s.Append(OpFalse);
                    break;
                case TokFormatSeparator:
                    NextSection();
                    break;
                default:
                    return false;
            }
        }
        return true;
    }

    void NextSection() {
        if (m_state != State::Start && !m_signSeen && m_index == 0) InsertImplicitSign();
        ++m_index;
        m_signSeen = false;
        m_state = m_index > 2 ? State::Error : State::Start;
    }

    void TakeByState(int id) {
        luNumberSection& s = S();
        switch (id) {
            case TokSign:
            case TokPositiveSign:
                if (InExponent(m_state)) return;
                s.Append(id == TokSign ? OpSign : OpBothSigns);
                m_signSeen = true;
                return;
            case TokDigitOrNothing:
            case TokDigitOrZero:
                return TakeDigit(s, id == TokDigitOrZero);
            case TokDecimalSeparator:
                if (m_state == State::Start) s.Append(OpExcessDigits);
                if (m_state == State::Start || m_state == State::Integer) {
                    s.Append(OpDecimalSeparator);
                    m_state = State::FractionStart;
                }
                return;
            case TokGroupingSeparator:
                if (m_state == State::Integer) s.grouping = true;
                return;
            case TokExponentUpperPlus:
                return TakeExponent(s, OpUpperExponentSigned);
            case TokExponentUpperMinus:
                return TakeExponent(s, OpUpperExponent);
            case TokExponentLowerPlus:
                return TakeExponent(s, OpLowerExponentSigned);
            case TokExponentLowerMinus:
                return TakeExponent(s, OpLowerExponent);
            default:
                return;  // not a number token: skipped
        }
    }

    void TakeDigit(luNumberSection& s, bool zero) {
        const char place = zero ? '0' : '#';
        switch (m_state) {
            case State::Start:
                s.Append(OpExcessDigits);
                m_state = State::Integer;
                [[fallthrough]];
            case State::Integer:
                s.Append(zero ? OpRequiredDigit : OpOptionalDigit);
                s.integerTemplate.push_back(place);
                ++s.integerPlaces;
                return;
            case State::FractionStart:
            case State::Fraction:
                ++s.maximumFraction;
                if (!zero) {
                    s.Append(OpOptionalFraction);
                    m_state = State::Fraction;
                    return;
                }
                s.Append(OpRequiredFraction);
                s.decimalRequired = true;
                // Leading zeros of the fraction count towards the minimum.
                if (m_state == State::FractionStart) ++s.minimumFraction;
                return;
            case State::ExponentStart:
                s.Append(OpExcessExponent);
                m_state = State::Exponent;
                [[fallthrough]];
            case State::Exponent:
                s.Append(zero ? OpRequiredExponent : OpOptionalExponent);
                s.exponentTemplate.push_back(place);
                ++(zero ? s.exponentZeros : s.exponentHashes);
                return;
            default:
                return;
        }
    }

    void TakeExponent(luNumberSection& s, luNumberLayoutOp op) {
        if (InExponent(m_state)) return;
        if (m_state == State::Start) s.Append(OpExcessDigits);
        s.Append(op);
        s.hasExponent = true;
        m_state = State::ExponentStart;
    }

    luNumberSection* m_sections;
    ucs2string& m_errorText;
    int& m_errorColour;
    int m_index = 0;
    State m_state = State::Start;
    bool m_signSeen = false;
};

}  // namespace

void luNumberSection::Reset() {
    grouping = hasExponent = decimalRequired = false;
    integerPlaces = exponentZeros = exponentHashes = minimumFraction = maximumFraction = 0;
    literals.clear();
    program.clear();
    integerTemplate.clear();
    exponentTemplate.clear();
    colour = 0;
    percentSign = false;
    timesHundred = 0;
}

luNumberFormatImp::luNumberFormatImp(const ilu_ptr<luSettings>& settings)
    : m_settings(settings),
      m_values(settings->GetImp()),
      m_numPut(&lu_use_facet<lu_num_put>(m_values->Locale())),
      m_colour(0),
      m_negativeIndex(0),
      m_zeroIndex(0),
      m_errorColour(0),
      m_negative(false),
      m_hasExponent(false),
      m_exponentNegative(false),
      m_converted(false),
      m_zero(false) {
    luNumberSection& first = m_sections[0];
    first.literals.reserve(16);
    first.program.reserve(32);
    first.integerTemplate.reserve(32);
    first.exponentTemplate.reserve(16);
}

luNumberFormatImp::~luNumberFormatImp() = default;

void luNumberFormatImp::Reset() {
    for (luNumberSection& section : m_sections) section.Reset();
    m_negativeIndex = 0;
    m_zeroIndex = 0;
    m_errorText.clear();
    m_errorColour = 0;
}

long luNumberFormatImp::BuildFrom(luFmtPattern* pattern) {
    return BuildFrom(pattern, 0);
}

long luNumberFormatImp::BuildFrom(luFmtPattern* pattern, int depth) {
    Reset();
    if (pattern == nullptr || pattern->IsDate()) return LU_E_FAIL;
    for (const luToken* token : *pattern)
        if (IsDefaultNumberFormatToken(token->TokenId()))
            return BuildFromDefault(token->TokenId(), depth);

    SectionCompiler compiler(m_sections, m_errorText, m_errorColour);
    for (const luToken* token : *pattern) compiler.Take(*token);
    compiler.Finish();
    if (!m_sections[1].program.empty()) m_negativeIndex = 1;
    if (!m_sections[2].program.empty()) m_zeroIndex = 2;
    return LU_S_SUCCESS;
}

// A named default format: the rest of the pattern is disregarded, and the
// locale's canonical text for that name is compiled instead.
long luNumberFormatImp::BuildFromDefault(int token, int depth) {
    static const int kFormatOfToken[] = {STANDARD, PERCENT, SCIENTIFIC, BOOLEAN};
    if (depth >= kMaxDefaultDepth) return LU_E_FAIL;
    const unsigned short* text =
        m_settings->GetFmtLibDefaultFormat(kFormatOfToken[token - TokDefaultNumeric]);
    if (text == nullptr) return LU_E_FAIL;
    std::unique_ptr<luStringFormatNumber> serial;
    try {
        serial.reset(CreateSerialStringFormatNumber());
    } catch (...) {
        return LU_E_FAIL;
    }
    if (serial == nullptr) return LU_E_FAIL;
    luFmtPattern* parsed = nullptr;
    if (serial->ToPattern(ucs2string(text), parsed) < 0 || parsed == nullptr) {
        delete parsed;
        return LU_S_SUCCESS;  // nothing could be read: the formatter stays empty
    }
    std::unique_ptr<luFmtPattern> owned(parsed);
    return BuildFrom(owned.get(), depth + 1);
}

luFormat::~luFormat() = default;

long CreateNumberFormat(ilu_ptr<luSettings>& settings, luFmtPattern* pattern,
                        luNumberFormat*& out) {
    try {
        if (!settings) return LU_E_FAIL;
        std::unique_ptr<luNumberFormatImp> format(new luNumberFormatImp(settings));
        if (format->BuildFrom(pattern) < 0) return LU_E_FAIL;
        out = format.release();
        return LU_S_SUCCESS;
    } catch (...) {
        return LU_E_FAIL;
    }
}

long CreateDefaultNumberFormat(ilu_ptr<luSettings>& settings, fmtLibDefaultFormats format,
                               luNumberFormat*& out) {
    luFmtTokens token;
    switch (format) {
        case STANDARD:
            token = TokDefaultNumeric;
            break;
        case PERCENT:
            token = TokDefaultPercent;
            break;
        case SCIENTIFIC:
            token = TokDefaultScientific;
            break;
        case BOOLEAN:
            token = TokDefaultBoolean;
            break;
        default:
            return LU_E_FAIL;
    }
    try {
        std::unique_ptr<luFmtPattern> pattern(CreateNumberFmtPattern());
        if (pattern == nullptr) return LU_E_FAIL;
        pattern->push_back(token);
        return CreateNumberFormat(settings, pattern.get(), out);
    } catch (...) {
        return LU_E_FAIL;
    }
}

}  // namespace FmtLib

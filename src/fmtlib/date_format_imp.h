// The date formatter's state: the pattern of its value section, the program
// compiled from it, the error section's text and colour, the result and
// scratch buffers, and the cache of the Japanese era of the time being
// formatted.
#ifndef KAI18N_FMTLIB_DATE_FORMAT_IMP_H
#define KAI18N_FMTLIB_DATE_FORMAT_IMP_H

#include <cstdint>
#include <memory>
#include <vector>

#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/strings/ucs2string_formatter.h"
#include "kai18n/timelib/lu_field.h"

namespace FmtLib {

/// The era of the time of the current Format call, found at its first
/// Japanese token and kept until the call ends.
struct luJapaneseEraCache {
    bool computed = false;
    bool valid = false;  // false: the date lies before every era
    std::int32_t era = 0;
    std::int32_t yearInEra = 0;
};

/// One step of a compiled pattern. Format runs these instead of the tokens:
/// asking each token what it is costs two virtual calls a token and a chain
/// of tests a call, while a step already says what to write.
struct luDateStep {
    enum Kind : std::uint8_t {
        Literal,  // `length` units at `text`: adjacent literals, error texts
        Number,   // `field`, changed by `adjust`, in `width` digits at least
        AmPm,     // the names below are written in the case form `adjust`
        MonthName,
        AbbMonthName,
        DayName,
        AbbDayName,
        Era,
        DateSeparator,
        TimeSeparator,
        Japanese,  // the Japanese-era token `token`
    };
    /// What a Number step does to its field before writing it.
    enum Adjust : std::uint8_t { AsIs, PlusOne, Div10, Div100, Mod100, ZeroAs12, ZeroAs24 };

    Kind kind = Literal;
    std::uint8_t adjust = AsIs;
    std::uint8_t width = 1;
    std::uint8_t token = 0;
    unsigned int length = 0;  // Literal: units
    unsigned int offset = 0;  // Literal: its first unit in the literal pool
    const unsigned short* text = nullptr;
    // Number: a copy, not a pointer to the named constant, which would cost
    // Format one more load a step.
    TimeLib::luField field = TimeLib::Era;
};

class luDateFormatImp final : public luDateFormat {
  public:
    explicit luDateFormatImp(const ilu_ptr<luSettings>& settings);
    ~luDateFormatImp() override;

    bool FormatError() override;
    const unsigned short* c_str() const override { return m_result.c_str(); }
    int Color() const override { return m_colour; }
    bool Format(const TimeLib::luCalendarTime& time) override;

    /// Takes the value section of `pattern` as the pattern to format by and
    /// the error section's literals and colour for FormatError. A named
    /// default format in it replaces the whole pattern. 0, or 0x80004005 for
    /// a number pattern or a default format that cannot be read.
    virtual long BuildFrom(luFmtPattern* pattern);
    /// Takes the locale's named default format `token` (300 and up) as the
    /// pattern, unchanged. 0, or 0x80004005 when it has no text or cannot be
    /// read.
    virtual long BuildFrom(const luToken* token);

    // For tests and diagnostics.
    const luFmtPattern* Pattern() const { return m_pattern.get(); }
    const ucs2string& ErrorText() const { return m_errorText; }
    int ValueColour() const { return m_valueColour; }
    int ErrorColour() const { return m_errorColour; }

  private:
    enum NameCase { Plain = 0, Upper = 1, Lower = 2, Cap = 3 };

    void TakeSections(const luFmtPattern& pattern);
    long Compile();
    void CompileToken(const luToken& token);
    void AddLiteral(const unsigned short* text, unsigned int length);
    void AddStep(luDateStep::Kind kind, std::uint8_t adjust = 0);
    void AddNumber(const TimeLib::luField& field, int width,
                   luDateStep::Adjust adjust = luDateStep::AsIs);
    bool CompileName(int id);
    bool CompileNumber(int id);
    bool CompileHour(int id);
    bool CompileJapanese(int id);
    void CompileWord(int id);

    void MeasureBounded();
    void Run(const luDateStep& step, const TimeLib::luCalendarTime& time);
    void RunBounded(const TimeLib::luCalendarTime& time);
    unsigned int PutNumber(unsigned short* out, int value, unsigned int width) const;
    unsigned int PutLarge(unsigned short* out, std::uint32_t magnitude) const;
    void RunName(const luDateStep& step, const TimeLib::luCalendarTime& time);
    void RunJapanese(int id, const TimeLib::luCalendarTime& time);
    const luJapaneseEraCache& JapaneseEra(const TimeLib::luCalendarTime& time);
    void WriteName(const unsigned short* name, NameCase form);
    void WriteNumber(int value, int width);
    void WriteNumberSlow(std::uint32_t magnitude, int width);
    void Write(const unsigned short* text);

    ilu_ptr<luSettings> m_settings;
    const luSettingsImp* m_values;
    ucs2string_formatter m_result;
    ucs2string_formatter m_scratch;  // a name in case form, a padded number
    std::unique_ptr<luFmtPattern> m_pattern;
    std::vector<luDateStep> m_program;       // compiled from m_pattern
    std::vector<unsigned short> m_literals;  // the units of the Literal steps
    // A program of literals and numbers of at most four padded digits writes
    // at most m_boundedLength units: Format then checks for room once.
    bool m_bounded = false;
    unsigned int m_boundedLength = 0;
    ucs2string m_errorText;
    int m_colour;
    int m_valueColour;
    int m_errorColour;
    luJapaneseEraCache m_japanese;
};

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_DATE_FORMAT_IMP_H

// The date formatter's state: the pattern of its value section, the error
// section's text and colour, the result and scratch buffers, and the cache of
// the Japanese era of the time being formatted.
#ifndef KAI18N_FMTLIB_DATE_FORMAT_IMP_H
#define KAI18N_FMTLIB_DATE_FORMAT_IMP_H

#include <cstdint>
#include <memory>

#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/strings/ucs2string_formatter.h"

namespace FmtLib {

/// The era of the time of the current Format call, found at its first
/// Japanese token and kept until the call ends.
struct luJapaneseEraCache {
    bool computed = false;
    bool valid = false;  // false: the date lies before every era
    std::int32_t era = 0;
    std::int32_t yearInEra = 0;
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
    void Render(const luToken& token, const TimeLib::luCalendarTime& time);
    bool RenderName(int id, const TimeLib::luCalendarTime& time);
    bool RenderNumber(int id, const TimeLib::luCalendarTime& time);
    bool RenderHour(int id, const TimeLib::luCalendarTime& time);
    bool RenderJapanese(int id, const TimeLib::luCalendarTime& time);
    void RenderWord(int id, const TimeLib::luCalendarTime& time);
    const luJapaneseEraCache& JapaneseEra(const TimeLib::luCalendarTime& time);
    void WriteName(const unsigned short* name, NameCase form);
    void WriteNumber(int value, int width);
    void Write(const unsigned short* text) {
        if (text != nullptr) m_result.append(text);
    }

    ilu_ptr<luSettings> m_settings;
    const luSettingsImp* m_values;
    ucs2string_formatter m_result;
    ucs2string_formatter m_scratch;  // a name in case form, a padded number
    std::unique_ptr<luFmtPattern> m_pattern;
    ucs2string m_errorText;
    int m_colour;
    int m_valueColour;
    int m_errorColour;
    luJapaneseEraCache m_japanese;
};

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_DATE_FORMAT_IMP_H

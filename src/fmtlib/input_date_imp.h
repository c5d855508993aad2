// The date input's state: a private copy of the pattern, the tokens of it
// that Scan walks, the formatter that writes a date back by the same pattern,
// and the pivot of two-digit years.
#ifndef KAI18N_FMTLIB_INPUT_DATE_IMP_H
#define KAI18N_FMTLIB_INPUT_DATE_IMP_H

#include <memory>
#include <vector>

#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/fmtlib/lu_input_date.h"

class lu_ctype_impl;

namespace FmtLib {

class luInputDateImp : public luInputDate {
  public:
    explicit luInputDateImp(ilu_ptr<luSettings>& settings);
    ~luInputDateImp() override;

    bool Scan(const unsigned short* text, TimeLib::luCalendarTime& result, int& position) override;
    bool IsCalendarError() override { return m_calendarError; }
    bool Format(const TimeLib::luCalendarTime& value) override;
    const unsigned short* c_str() override;

    /// Reads by `pattern` from now on, two-digit years by `pivot_year`. A
    /// named default format at its start is replaced by the locale's text.
    /// 0, or 0x80004005 for an empty pattern, a token Scan cannot read, or a
    /// default format without text; the input then has no pattern.
    virtual long BuildFrom(luFmtPattern& pattern, int pivot_year);

  protected:
    /// Skips blanks, then reads up to `max_digits` decimal digits of any
    /// script. True when one was read; `consumed` counts blanks and digits.
    bool xNum(const unsigned short* text, int& value, int max_digits, int& consumed) const;
    /// `length` units of `word` against the text: units equal, blanks of the
    /// text skipped before each unit, a run of blanks in the word wanting a
    /// run of any length in the text. `consumed` counts the text read, also
    /// on failure.
    bool xMatch(const unsigned short* text, const unsigned short* word, int length,
                int& consumed) const;
    /// The same without regard to case; blanks of the text are skipped once,
    /// leading blanks of the word passed over.
    bool ncMatch(const unsigned short* text, const unsigned short* word, int length,
                 int& consumed) const;

  private:
    /// A token of the pattern as Scan reads it: its number and, for a
    /// literal, its text.
    struct Step {
        int token;
        const unsigned short* text;
        int length;
        bool plain;  // a literal without blanks or zero units
    };
    class Reader;

    int TwoDigitYear(int value) const;

    ilu_ptr<luSettings> m_settings;
    const luSettingsImp* m_values;
    std::unique_ptr<luFmtPattern> m_pattern;
    std::unique_ptr<luDateFormat> m_format;
    int m_pivotYear;
    bool m_calendarError;
    std::vector<Step> m_steps;  // points into m_pattern's literals
};

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_INPUT_DATE_IMP_H

// Date input: user text read by a date pattern into a calendar time. Each
// token of the pattern consumes text leniently (blanks skipped, names in any
// case, one or two digits a number, a name that stands nowhere passed over);
// the fields read go to the calendar time in one write, and the calendar
// alone decides whether they make a date.
//
//     luInputDate* input = nullptr;
//     CreateInputDate(settings, pattern, input);  // pattern T[0d]L[.]T[0M]L[.]T[y4]
//     int position = 0;
//     input->Scan(text.c_str(), time, position);  // "24.11.2026": time on 24 November 2026
//     input->Scan(other.c_str(), time, position); // "31.02.2026": false, IsCalendarError()
//     input->Format(time);
//     input->c_str();                               // "24.11.2026"
//     delete input;
#ifndef KAI18N_FMTLIB_LU_INPUT_DATE_H
#define KAI18N_FMTLIB_LU_INPUT_DATE_H

#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_settings.h"

namespace TimeLib {
class luCalendarTime;
}

namespace FmtLib {

class luInputDate {
  public:
    virtual ~luInputDate();

    /// Reads the zero-terminated `text` by the pattern and writes the fields
    /// read into `result` together. False when a token finds no text it can
    /// read (then `result` is untouched) or when the calendar refuses the
    /// fields (IsCalendarError()). `position` is always the count of units
    /// read; what follows the last token is not looked at. Never throws.
    virtual bool Scan(const unsigned short* text, TimeLib::luCalendarTime& result,
                      int& position) = 0;
    /// Whether the last Scan read every token but the calendar refused the
    /// fields, such as 31 February.
    virtual bool IsCalendarError() = 0;
    /// Writes `value` by the same pattern; c_str() gives the text.
    virtual bool Format(const TimeLib::luCalendarTime& value) = 0;
    /// The text of the last Format.
    virtual const unsigned short* c_str() = 0;

  protected:
    luInputDate() {}
    luInputDate(const luInputDate&) {}
    luInputDate& operator=(const luInputDate&) { return *this; }
};

/// A date input for `settings` reading by `pattern` (which stays the
/// caller's) in `out`, which the caller deletes. A two-digit year v is read
/// as the year within the century up to `pivot_year`: with 2000, 00 is 2000
/// and 01 is 1901; with 2029, 29 is 2029 and 30 is 1930. 0, or 0x80004005
/// for an empty pattern, a token that cannot be read (such as milliseconds,
/// eras, zones, number tokens) or a named default format without text.
long CreateInputDate(ilu_ptr<luSettings>& settings, luFmtPattern* pattern, luInputDate*& out,
                     int pivot_year = 2000);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_INPUT_DATE_H

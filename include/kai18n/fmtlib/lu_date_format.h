// Date formatters: a date pattern kept as its token list and interpreted at
// each call, reading the fields of a calendar time and writing them with the
// words and digits of the settings' locale.
//
//     luDateFormat* format = nullptr;
//     CreateDateFormat(settings, pattern, format);  // pattern stays yours
//     format->Format(time);   // a TimeLib::luCalendarTime
//     format->c_str();        // "Saturday, January 7, 1989": a full date in en_US
//     format->Color();        // the colour of the pattern's value section
//     delete format;
#ifndef KAI18N_FMTLIB_LU_DATE_FORMAT_H
#define KAI18N_FMTLIB_LU_DATE_FORMAT_H

#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/fmtlib/lu_settings.h"

namespace TimeLib {
class luCalendarTime;
}

namespace FmtLib {

/// A formatter of calendar times.
class luDateFormat : public luFormat {
  public:
    /// Writes `time` into the result by the pattern's value section; always
    /// true. Exceptions of the field reads pass through. No allocation happens
    /// while the result stays within 500 units.
    virtual bool Format(const TimeLib::luCalendarTime& time) = 0;
};

/// A formatter of `pattern` (which stays the caller's) for `settings` in
/// `out`. 0, or 0x80004005 for a number pattern, a named default format that
/// cannot be read, or any exception; `out` is set on success only. A pattern
/// of T[Err] is no failure: it formats every time as "#FORMAT".
long CreateDateFormat(ilu_ptr<luSettings>& settings, luFmtPattern* pattern, luDateFormat*& out);
/// A formatter of the locale's named date format `format` (FULL_DATE to
/// INPUT_DATE_TIME). 0x80004005 when the settings have no text for the
/// value; a text that is no date pattern formats as "#FORMAT".
long CreateDefaultDateFormat(ilu_ptr<luSettings>& settings, fmtLibDefaultFormats format,
                             luDateFormat*& out);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_DATE_FORMAT_H

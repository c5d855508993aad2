// Number formatters: a number pattern compiled once into up to three layout
// programs (for positive, negative and zero values) and an error text, then
// run for each value into an inline buffer.
//
//     luNumberFormat* format = nullptr;
//     CreateNumberFormat(settings, pattern, format);  // pattern stays yours
//     format->Format(-1234.5);
//     format->c_str();   // "-1,234.50" with "#,##0.00" in English
//     format->Color();   // 0, or 1 to 16 for a colour of the section
//     delete format;
#ifndef KAI18N_FMTLIB_LU_NUMBER_FORMAT_H
#define KAI18N_FMTLIB_LU_NUMBER_FORMAT_H

#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_settings.h"

namespace FmtLib {

/// The base of every formatter: the last result, its colour, and the error
/// text of the pattern.
class luFormat {
  public:
    virtual ~luFormat();
    /// Makes the result the pattern's error text and the colour its error
    /// colour; the caller decides when a value is an error. Always true.
    virtual bool FormatError() = 0;
    /// The last result, zero-terminated; valid until the next call.
    virtual const unsigned short* c_str() const = 0;
    /// The colour of the last result: 0 none, 1 to 16 (black, white, red,
    /// green, blue, yellow, magenta, cyan, dark red, dark green, dark blue,
    /// light brown, purple, dark cyan, light grey, grey).
    virtual int Color() const = 0;

  protected:
    luFormat() = default;
};

class luNumberFormat : public luFormat {
  public:
    /// Each writes the value into the result; always true. No allocation
    /// happens while the result stays within 500 units.
    virtual bool Format(unsigned long value) = 0;
    virtual bool Format(long value) = 0;
    virtual bool Format(double value) = 0;
};

/// Compiles `pattern` (which stays the caller's) for `settings` into a new
/// formatter in `out`. 0, or 0x80004005 for a date pattern, a missing default
/// format or any exception; `out` is set on success only. A pattern of
/// T[Err] is no failure: it formats every value as "#FORMAT".
long CreateNumberFormat(ilu_ptr<luSettings>& settings, luFmtPattern* pattern, luNumberFormat*& out);
/// The locale's STANDARD, PERCENT, SCIENTIFIC or BOOLEAN format; any other
/// value gives 0x80004005.
long CreateDefaultNumberFormat(ilu_ptr<luSettings>& settings, fmtLibDefaultFormats format,
                               luNumberFormat*& out);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_NUMBER_FORMAT_H

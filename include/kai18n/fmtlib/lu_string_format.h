// String formats: translation between a format written in one dialect and a
// luFmtPattern, both ways.
//
//     std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("en", "US"));
//     luFmtPattern* pattern = nullptr;
//     ombrin->ToPattern(ucs2string(reinterpret_cast<const unsigned char*>("#,##0.00")), pattern);
//     std::unique_ptr<luStringFormatNumber> serial(CreateSerialStringFormatNumber());
//     ucs2string canonical;  // becomes T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]
//     serial->FromPattern(*pattern, canonical);
//     delete pattern;
//
// A text that cannot be read is not a failure: it becomes the pattern of the
// single token T[Err], which formatters write as "#FORMAT". In the Ombrin
// dialect and in Velora numbers only a trailing escape character or an open
// quote does that; a Velora date text is never bad (what was read stands); in
// the canonical notation any text outside its items does.
#ifndef KAI18N_FMTLIB_LU_STRING_FORMAT_H
#define KAI18N_FMTLIB_LU_STRING_FORMAT_H

#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/strings/ucs2string.h"

namespace FmtLib {

class luStringFormat {
  public:
    virtual ~luStringFormat();
    /// Deletes what `pattern` points to, if anything, and sets it to a new
    /// pattern of this format's kind read from `text`; the caller owns it.
    /// Returns 0, for a good text or a bad one, or 0x80004005 when an
    /// exception was raised on the way.
    virtual long ToPattern(ucs2string text, luFmtPattern*& pattern) = 0;
    /// Appends the pattern written in this dialect to `text`. Always true.
    virtual bool FromPattern(const luFmtPattern& pattern, ucs2string& text) = 0;

  protected:
    luStringFormat() = default;
};

/// A string format of number patterns.
class luStringFormatNumber : public luStringFormat {};
/// A string format of date patterns.
class luStringFormatDate : public luStringFormat {};

// The factories. Each returns a new string format that the caller owns and
// deletes, or null when memory runs out; when the dialect's definitions are
// not available they raise LUException with 0x8004112d. The escape character
// is the backslash, but "!" for Japanese and Korean ("ja", "ko"; codes "JP",
// "KR"). Null texts count as empty.

/// Ombrin numbers: apostrophe quotes, escapes, colours, three sections.
luStringFormatNumber* CreateStringFormatNumber(const char* lang, const char* country);
/// Ombrin dates: as numbers, but the first ";" ends all tokens: the rest is
/// the text written for a date that cannot be formatted.
luStringFormatDate* CreateStringFormatDate(const char* lang, const char* country);
/// Velora numbers: escapes and colours, no quotes; with `percent`, "%" is the
/// token that multiplies by 100 and writes a sign.
luStringFormatNumber* CreateVeloraStringFormatNumber(const char* code, const char* lang,
                                                     const char* country, bool percent);
/// Velora dates: escapes and colours, no quotes; "m" and "mm" mean month or
/// minute by what stands around them.
luStringFormatDate* CreateVeloraStringFormatDate(const char* code, const char* lang,
                                                 const char* country);
/// The canonical notation of number patterns.
luStringFormatNumber* CreateSerialStringFormatNumber();
/// The canonical notation of date patterns.
luStringFormatDate* CreateSerialStringFormatDate();

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_STRING_FORMAT_H

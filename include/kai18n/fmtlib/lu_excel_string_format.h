// Excel custom format strings: a pattern written out as the format string that
// a spreadsheet cell takes. The direction is one way only; there is no reader.
//
//     ilu_ptr<luSettings> settings = ...;  // CreateSettings
//     std::unique_ptr<luExcelStringFormatNumber> excel(
//         CreateExcelSerialStringFormatNumber(settings));
//     ucs2string text;
//     excel->FromPattern(*pattern, text);  // #,##0.00;\-#,##0.00 for T[-]T[#]T[gs]...
//
// A number pattern is normalised before it is written: its sections are
// completed the way Excel expects them (a negative section of its own when
// the pattern has a sign, booleans in all three), signs and brackets become
// literal text, stray separators are dropped and percent signs settled. A
// date pattern keeps its first section only. Tokens that Excel has no code
// for are left out; colours fold onto Excel's eight names.
#ifndef KAI18N_FMTLIB_LU_EXCEL_STRING_FORMAT_H
#define KAI18N_FMTLIB_LU_EXCEL_STRING_FORMAT_H

#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/fmtlib/lu_string_format.h"

namespace FmtLib {

/// Writes number patterns as Excel format strings, with the boolean words and
/// the default formats of its settings.
class luExcelStringFormatNumber final : public luStringFormatNumber {
  public:
    /// `settings` must hold settings whose GetImp() is not null.
    explicit luExcelStringFormatNumber(const ilu_ptr<luSettings>& settings);
    ~luExcelStringFormatNumber() override;

    /// Cannot be read: deletes what `pattern` points to, sets it to null and
    /// returns 0x80004005.
    long ToPattern(ucs2string text, luFmtPattern*& pattern) override;
    /// Appends the Excel string of `pattern` to `text`; the pattern stays as
    /// it is. A date pattern writes nothing. Always true.
    bool FromPattern(const luFmtPattern& pattern, ucs2string& text) override;

  private:
    ilu_ptr<luSettings> m_settings;
    const luSettingsImp* m_imp;
};

/// Writes date patterns as Excel format strings, with the default formats of
/// its settings.
class luExcelStringFormatDate final : public luStringFormatDate {
  public:
    /// `settings` must hold settings whose GetImp() is not null.
    explicit luExcelStringFormatDate(const ilu_ptr<luSettings>& settings);
    ~luExcelStringFormatDate() override;

    /// Cannot be read: deletes what `pattern` points to, sets it to null and
    /// returns 0x80004005.
    long ToPattern(ucs2string text, luFmtPattern*& pattern) override;
    /// Appends the Excel string of the first section of `pattern` to `text`;
    /// the pattern stays as it is. A number pattern writes nothing. Always
    /// true.
    bool FromPattern(const luFmtPattern& pattern, ucs2string& text) override;

  private:
    ilu_ptr<luSettings> m_settings;
    // Held like the number writer's; no date code depends on a preference.
    [[maybe_unused]] const luSettingsImp* m_imp;
};

/// A new Excel writer of number patterns, owned by the caller; null when
/// memory runs out or when `settings` holds no settings.
luExcelStringFormatNumber* CreateExcelSerialStringFormatNumber(ilu_ptr<luSettings>& settings);
/// A new Excel writer of date patterns, owned by the caller; null when memory
/// runs out or when `settings` holds no settings.
luExcelStringFormatDate* CreateExcelSerialStringFormatDate(ilu_ptr<luSettings>& settings);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_EXCEL_STRING_FORMAT_H

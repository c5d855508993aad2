// The data of one CLDR locale, read through ICU's public API and brought into
// the shape of the library's numeric and time records.
#ifndef KAI18N_TOOLS_GEN_LOCALE_DATA_LOCALE_DATA_H
#define KAI18N_TOOLS_GEN_LOCALE_DATA_LOCALE_DATA_H

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "cldr_patterns.h"
#include "locale_tables.h"

namespace gen {

/// The values of a numeric punctuation record.
struct NumericData {
    int mode = 1;
    char16_t decimal_point = u'.';
    char16_t thousands_sep = 0;
    u16 grouping;    // group sizes, no terminator
    u16 block;       // the 36-unit sign and digit block
    u16 formats[4];  // plain, currency, percent, scientific
    std::string numbering_system;
};

/// The values of a date and time name record.
struct TimeData {
    u16 short_days[7];  // Monday first
    u16 days[7];
    u16 short_months[13];  // the thirteenth stays empty
    u16 months[13];
    u16 am_pm[2];
    std::vector<u16> eras;  // latest first
    std::vector<std::int32_t> era_years;
    u16 ad_bc[2];  // the earlier era first
    u16 date_time_format;
    u16 date_format;
    u16 time_format;
    u16 am_pm_time_format;
    u16 fmtlib[15];
    u16 date_separator;
    u16 time_separator;
};

/// One CLDR locale that becomes records.
struct LocaleData {
    std::string icu_name;  // "de_DE", "sr_Latn_BA"
    std::string language;  // the record's language code ("no" for CLDR's "nb")
    std::string script;    // the locale's script, likely subtags added
    std::string country;
    std::string english_name;
    bool default_script = true;  // the likely script of its language and country
    std::uint32_t lcid = 0;      // its Windows LCID, 0 when it has none we can use
    const Encoding* ansi = nullptr;
    NumericData numeric;
    TimeData time;
    std::set<std::string> notes;        // field and symbol substitutions
    std::vector<std::string> warnings;  // data that did not fit
};

/// The names of `data` (days, months, half-day markers, eras, separators)
/// that `encoding` cannot write, in UTF-8.
std::vector<std::string> Unwritable(const LocaleData& data, const Encoding& encoding);

/// Reads the numeric and time data of `data.icu_name` (the identity fields
/// must be set). Returns false with a reason in `data.warnings` when ICU
/// does not give what a record needs.
bool ReadLocaleData(LocaleData& data);

}  // namespace gen

#endif  // KAI18N_TOOLS_GEN_LOCALE_DATA_LOCALE_DATA_H

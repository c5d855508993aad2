// What the format commands share: their options, the string format of the
// dialect and locale named, patterns read from text, and settings.
#ifndef KAI18N_CLI_FORMAT_OPTIONS_H
#define KAI18N_CLI_FORMAT_OPTIONS_H

#include <memory>
#include <string>
#include <vector>

#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/timelib/lu_time_zone.h"

extern const char* const kColourNames[16];

struct FormatOptions {
    std::string locale = "C";
    std::string dialect = "ombrin";
    std::string code = "EN";  // the Velora language code
    std::string zone;         // for dates: a predefined identifier, else the host's zone
    bool date = false;
    std::vector<std::string> rest;
};

/// Reads the options of a format command; `--date` and `--zone` only where
/// allowed. False, with a one-line message, on bad usage.
bool ReadFormatOptions(int argc, char** argv, bool allowDate, bool allowZone,
                       FormatOptions& options);

ucs2string FromUtf8(const std::string& text);

/// The string format of the options' dialect for the locale: of dates when
/// `options.date`, else of numbers.
std::unique_ptr<FmtLib::luStringFormat> MakeStringFormat(const FormatOptions& options,
                                                         const lu_locale& locale);

/// The pattern of `text`; LUException when the string format fails.
std::unique_ptr<FmtLib::luFmtPattern> ReadPattern(FmtLib::luStringFormat& format,
                                                  const std::string& text);

/// The pattern in the library's canonical (Serial) notation.
std::string Canonical(const FmtLib::luFmtPattern& pattern);

/// The zone handle of a predefined identifier, `fallback` for none; null,
/// with the identifier named on stderr under `command`, for a stranger.
const TimeLib::luTimeZone* ZoneNamed(const char* command, const std::string& id,
                                     const TimeLib::luTimeZone& fallback);

/// Settings of the locale with default preferences; LUException on failure.
ilu_ptr<FmtLib::luSettings> MakeSettings(const lu_locale& locale);

#endif  // KAI18N_CLI_FORMAT_OPTIONS_H

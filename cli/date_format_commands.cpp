// Formatting instants by a date pattern in a locale and a zone, and writing a
// format text out as an Excel custom format string.
#include "date_format_commands.h"

#include <iostream>
#include <memory>
#include <string>

#include "format_options.h"
#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/fmtlib/lu_excel_string_format.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/lu_clock.h"
#include "kai18n/timelib/predefined_time_zones.h"
#include "zone_commands.h"

const char kDateFormatUsage[] =
    "  format-date [--locale NAME] [--zone ID] [--dialect D] [--code XX] PATTERN [INSTANT...]\n"
    "      format each INSTANT (now by default; seconds since 1970 or\n"
    "      YYYY-MM-DDTHH:MM:SSZ) by the date PATTERN, in the zone ID (the\n"
    "      host's zone by default) with the words and digits of the locale\n"
    "  excel [--date] [--locale NAME] [--dialect D] [--code XX] TEXT\n"
    "      write the number (or date) format TEXT as an Excel custom format string\n";

namespace {

using namespace FmtLib;
using namespace TimeLib;

std::unique_ptr<luDateFormat> MakeDateFormat(ilu_ptr<luSettings>& settings, luFmtPattern& pattern) {
    luDateFormat* format = nullptr;
    const long result = CreateDateFormat(settings, &pattern, format);
    if (result < 0) LUException::Raise(result);
    return std::unique_ptr<luDateFormat>(format);
}

}  // namespace

int FormatDateCommand(int argc, char** argv) {
    FormatOptions options;
    options.date = true;
    if (!ReadFormatOptions(argc, argv, false, true, options)) return 2;
    if (options.rest.empty()) {
        std::cerr << "kai18n format-date: expects a pattern\n";
        return 2;
    }
    const luTimeZone* zone = ZoneNamed("format-date", options.zone, luTimeZone::localHost());
    if (zone == nullptr) return 1;
    const lu_locale locale(options.locale.c_str());
    auto pattern = ReadPattern(*MakeStringFormat(options, locale), options.rest[0]);
    ilu_ptr<luSettings> settings = MakeSettings(locale);
    auto format = MakeDateFormat(settings, *pattern);

    if (options.rest.size() == 1) options.rest.push_back("");
    int status = 0;
    for (std::size_t i = 1; i < options.rest.size(); ++i) {
        const std::string& text = options.rest[i];
        luPhysicalTime when = luClock::localHost().now();
        if (!text.empty() && !ReadInstant(text, when)) {
            std::cerr << "kai18n format-date: '" << text
                      << "' is not an instant (seconds since 1970, or YYYY-MM-DDTHH:MM:SSZ)\n";
            status = 1;
            continue;
        }
        format->Format(luCalendarTime(when, *zone));
        if (!text.empty()) std::cout << text << '\t';
        std::cout << ucs2string(format->c_str());
        const int colour = format->Color();
        if (colour >= 1 && colour <= 16) std::cout << "\t[" << kColourNames[colour - 1] << ']';
        std::cout << '\n';
    }
    return status;
}

int ExcelCommand(int argc, char** argv) {
    FormatOptions options;
    if (!ReadFormatOptions(argc, argv, true, false, options)) return 2;
    if (options.rest.size() != 1) {
        std::cerr << "kai18n excel: expects one format text\n";
        return 2;
    }
    const lu_locale locale(options.locale.c_str());
    auto pattern = ReadPattern(*MakeStringFormat(options, locale), options.rest[0]);
    ilu_ptr<luSettings> settings = MakeSettings(locale);
    std::unique_ptr<luStringFormat> excel(
        pattern->IsDate()
            ? static_cast<luStringFormat*>(CreateExcelSerialStringFormatDate(settings))
            : CreateExcelSerialStringFormatNumber(settings));
    if (excel == nullptr) LUException::Raise(LU_E_FAIL);
    ucs2string text;
    excel->FromPattern(*pattern, text);
    std::cout << text << '\n';
    return 0;
}

// Reading numbers and dates back from text as a user types them into an
// input field, with the number and date input of the format library.
#include "parse_commands.h"

#include <cctype>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "format_options.h"
#include "kai18n/fmtlib/lu_input_date.h"
#include "kai18n/fmtlib/lu_input_number.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/predefined_time_zones.h"

const char kParseUsage[] =
    "  parse-number [--locale NAME] TEXT...\n"
    "      read each TEXT as a user's number: blanks, a sign, digits of any\n"
    "      script with the locale's decimal point, an exponent (1,5e3 in de_DE);\n"
    "      show the value, the position (in UTF-16 units) where reading stopped\n"
    "      and the kind: integer (32 bits), unsigned integer (fits only 0 to\n"
    "      4294967295) or number\n"
    "  parse-date [--locale NAME] [--zone ID] [--pivot YEAR] [--dialect D] [--code XX]\n"
    "             PATTERN TEXT...\n"
    "      read each TEXT by the date PATTERN (dialects as for format-date) in the\n"
    "      zone ID (UTC by default) and show the date and time read and the\n"
    "      position where reading stopped; what the pattern does not read stays\n"
    "      at 1970-01-01 00:00:00. A two-digit year falls in the hundred years up\n"
    "      to YEAR (100 to 9999, 2000 by default: 00 is 2000, 01 is 1901)\n";

namespace {

using namespace FmtLib;
using namespace TimeLib;

const int kDefaultPivot = 2000;
const int kMinPivot = 100;
const int kMaxPivot = 9999;

// The options of ReadFormatOptions that take a value: their value is passed
// on untouched even when it looks like an option.
const std::set<std::string> kValueOptions = {"--locale", "--dialect", "--code", "--zone"};

// Takes "--pivot YEAR" (when `pivot` is given) out of the arguments and
// refuses the options in `refused`, so that ReadFormatOptions gets only what
// it knows and a command only what it uses. `kept` starts with the program
// and the command, as argv does. False, with a one-line message, on bad usage.
bool SplitArguments(int argc, char** argv, const std::set<std::string>& refused, std::string* pivot,
                    std::vector<char*>& kept) {
    kept.assign(argv, argv + 2);
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--") {
            kept.insert(kept.end(), argv + i, argv + argc);
            break;
        }
        if (refused.count(arg) != 0) {
            std::cerr << "kai18n: unknown option '" << arg << "'\n";
            return false;
        }
        if (pivot != nullptr && arg == "--pivot") {
            if (!hasValue) {
                std::cerr << "kai18n " << argv[1] << ": --pivot needs a year\n";
                return false;
            }
            *pivot = argv[++i];
            continue;
        }
        kept.push_back(argv[i]);
        if (kValueOptions.count(arg) != 0 && hasValue) kept.push_back(argv[++i]);
    }
    return true;
}

// A pivot year: decimal digits only, from kMinPivot to kMaxPivot. A pivot
// below 100 would put two-digit years before the Christian era.
bool ReadPivot(const std::string& text, int& year) {
    if (text.empty() || !std::isdigit(static_cast<unsigned char>(text[0]))) return false;
    errno = 0;
    char* end = nullptr;
    const long value = std::strtol(text.c_str(), &end, 10);
    if (errno != 0 || *end != '\0' || value < kMinPivot || value > kMaxPivot) return false;
    year = static_cast<int>(value);
    return true;
}

std::string Utf8(const ucs2string& text) {
    return reinterpret_cast<const char*>(lu_utf8string(text).c_str());
}

// Where reading stopped; a scan leaves the rest of the text alone, so the
// rest is shown when there is one.
std::string Position(const ucs2string& text, int position) {
    std::string line = "position " + std::to_string(position);
    if (position >= 0 && static_cast<unsigned int>(position) < text.length()) {
        line += ", before '" + Utf8(text.substr(static_cast<unsigned int>(position))) + "'";
    }
    return line;
}

// The shortest text that reads back as the same double; in plain digits
// where number input itself writes them (from 0.0001 to below 1e16), since
// the shortest form alone writes 100000 as 1e+05.
std::string Shortest(double value) {
    const double magnitude = std::fabs(value);
    const bool plain = magnitude == 0 || (magnitude >= 1e-4 && magnitude < 1e16);
    char text[64];
    const std::to_chars_result end =
        std::to_chars(text, text + sizeof text, value,
                      plain ? std::chars_format::fixed : std::chars_format::scientific);
    return std::string(text, end.ptr);
}

const char* NumberKind(luInputNumber& input) {
    long whole = 0;
    unsigned long natural = 0;
    if (input.IsInteger(whole)) return "integer";
    if (input.IsUnsignedInteger(natural)) return "unsigned integer";
    return "number";
}

// Error lines go to stderr; flushing stdout first keeps the lines in order
// when both streams go to one place.
std::ostream& ErrorLine(const char* command, const std::string& text) {
    std::cout.flush();
    return std::cerr << "kai18n " << command << ": '" << text << "': ";
}

// Reads one argument and shows the result; false when no number stands there.
bool ParseNumber(luInputNumber& input, const std::string& text) {
    const ucs2string units = FromUtf8(text);
    double value = 0;
    int position = 0;
    if (!input.Scan(units.c_str(), value, position)) {
        ErrorLine("parse-number", text) << "not read at position " << position << '\n';
        return false;
    }
    std::cout << text << '\t' << Shortest(value) << '\t' << Position(units, position) << '\t'
              << NumberKind(input) << '\n';
    return true;
}

std::unique_ptr<luInputNumber> MakeNumberInput(ilu_ptr<luSettings>& settings) {
    luInputNumber* input = nullptr;
    const long result = CreateInputNumber(settings, input);
    if (result < 0) LUException::Raise(result);
    if (input == nullptr) LUException::Raise(LU_E_FAIL);
    return std::unique_ptr<luInputNumber>(input);
}

// The date input for the pattern text; null, with the pattern named on
// stderr, when the text is no pattern or one that date input cannot read by
// (milliseconds, eras, zones, ...). Failures of the library itself throw.
std::unique_ptr<luInputDate> MakeDateInput(const FormatOptions& options, const lu_locale& locale,
                                           ilu_ptr<luSettings>& settings, int pivot) {
    const std::string& text = options.rest[0];
    auto format = MakeStringFormat(options, locale);
    std::unique_ptr<luFmtPattern> pattern;
    try {
        pattern = ReadPattern(*format, text);
    } catch (const LUException&) {
        // Reported below, with a pattern date input refuses.
    }
    luInputDate* input = nullptr;
    if (pattern == nullptr || CreateInputDate(settings, pattern.get(), input, pivot) < 0) {
        std::cerr << "kai18n parse-date: '" << text << "' is not a date pattern that can be read\n";
        return nullptr;
    }
    if (input == nullptr) LUException::Raise(LU_E_FAIL);
    return std::unique_ptr<luInputDate>(input);
}

// yyyy-MM-dd HH:mm:ss from the fields; a year before Christ with a minus
// sign, as the date command writes it (1 BC is -0001).
std::string DateAndTime(const luCalendarTime& t) {
    const int year = t.year();
    char line[64];
    std::snprintf(line, sizeof line, "%s%04d-%02d-%02d %02d:%02d:%02d", t.era() == 0 ? "-" : "",
                  year, t.month() + 1, t.day_of_month(), t.hour_of_day(), t.minute(), t.second());
    return line;
}

// Reads one argument and shows the result; false when the text is not read
// or its fields make no date. Every text starts from 1970-01-01 00:00:00 in
// the zone, so that what the pattern leaves out is the same for all.
bool ParseDate(luInputDate& input, const luTimeZone& zone, const std::string& text) {
    const ucs2string units = FromUtf8(text);
    luCalendarTime time(luFields(), zone);
    int position = 0;
    if (input.Scan(units.c_str(), time, position)) {
        std::cout << text << '\t' << DateAndTime(time) << '\t' << Position(units, position)
                  << "\tcalendar date\n";
        return true;
    }
    if (input.IsCalendarError()) {
        ErrorLine("parse-date", text) << "not a calendar date\n";
    } else {
        ErrorLine("parse-date", text) << "not read at position " << position << '\n';
    }
    return false;
}

}  // namespace

int ParseNumberCommand(int argc, char** argv) {
    // Number input has no pattern: the dialect options mean nothing here.
    std::vector<char*> args;
    if (!SplitArguments(argc, argv, {"--dialect", "--code"}, nullptr, args)) return 2;
    FormatOptions options;
    if (!ReadFormatOptions(static_cast<int>(args.size()), args.data(), false, false, options))
        return 2;
    if (options.rest.empty()) {
        std::cerr << "kai18n parse-number: expects at least one text\n";
        return 2;
    }
    const lu_locale locale(options.locale.c_str());
    ilu_ptr<luSettings> settings = MakeSettings(locale);
    auto input = MakeNumberInput(settings);

    int status = 0;
    for (const std::string& text : options.rest) {
        if (!ParseNumber(*input, text)) status = 1;
    }
    return status;
}

int ParseDateCommand(int argc, char** argv) {
    std::vector<char*> args;
    std::string pivotText = std::to_string(kDefaultPivot);
    if (!SplitArguments(argc, argv, {}, &pivotText, args)) return 2;
    FormatOptions options;
    options.date = true;
    if (!ReadFormatOptions(static_cast<int>(args.size()), args.data(), false, true, options))
        return 2;
    int pivot = kDefaultPivot;
    if (!ReadPivot(pivotText, pivot)) {
        std::cerr << "kai18n parse-date: pivot year '" << pivotText << "' is not a year from "
                  << kMinPivot << " to " << kMaxPivot << '\n';
        return 2;
    }
    if (options.rest.size() < 2) {
        std::cerr << "kai18n parse-date: expects a pattern and at least one text\n";
        return 2;
    }
    const luTimeZone* zone = ZoneNamed("parse-date", options.zone, luTimeZone::utc());
    if (zone == nullptr) return 1;
    const lu_locale locale(options.locale.c_str());
    ilu_ptr<luSettings> settings = MakeSettings(locale);
    auto input = MakeDateInput(options, locale, settings, pivot);
    if (input == nullptr) return 2;

    int status = 0;
    for (std::size_t i = 1; i < options.rest.size(); ++i) {
        if (!ParseDate(*input, *zone, options.rest[i])) status = 1;
    }
    return status;
}

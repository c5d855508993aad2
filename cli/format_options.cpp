// What the format commands share.
#include "format_options.h"

#include <cctype>
#include <iostream>
#include <sstream>

#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/timelib/predefined_time_zones.h"

using namespace FmtLib;

const char* const kColourNames[16] = {"black",    "white",      "red",        "green",
                                      "blue",     "yellow",     "magenta",    "cyan",
                                      "dark red", "dark green", "dark blue",  "light brown",
                                      "purple",   "dark cyan",  "light gray", "gray"};

namespace {

// The language and country of a locale, "en" and none for the classic one.
void LanguageAndCountry(const lu_locale& locale, std::string& language, std::string& country) {
    language = "en";
    country.clear();
    if (!lu_has_facet<lu_locale_ident>(locale)) return;
    const lu_locale_ident& ident = lu_use_facet<lu_locale_ident>(locale);
    if (ident.language_code_2() != nullptr) language = ident.language_code_2();
    if (ident.country_code_2() != nullptr) country = ident.country_code_2();
}

}  // namespace

bool ReadFormatOptions(int argc, char** argv, bool allowDate, bool allowZone,
                       FormatOptions& options) {
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--locale" && hasValue) {
            options.locale = argv[++i];
        } else if (arg == "--dialect" && hasValue) {
            options.dialect = argv[++i];
        } else if (arg == "--code" && hasValue) {
            options.code = argv[++i];
        } else if (arg == "--zone" && hasValue && allowZone) {
            options.zone = argv[++i];
        } else if (arg == "--date" && allowDate) {
            options.date = true;
        } else if (arg == "--") {
            options.rest.insert(options.rest.end(), argv + i + 1, argv + argc);
            break;
        } else if (arg.size() > 1 && arg[0] == '-' &&
                   (arg[1] == '-' || std::isalpha(static_cast<unsigned char>(arg[1])))) {
            std::cerr << "kai18n: unknown option '" << arg << "'\n";
            return false;
        } else {
            options.rest.push_back(arg);
        }
    }
    if (options.dialect != "ombrin" && options.dialect != "serial" && options.dialect != "velora") {
        std::cerr << "kai18n: unknown dialect '" << options.dialect
                  << "' (ombrin, serial or velora)\n";
        return false;
    }
    return true;
}

ucs2string FromUtf8(const std::string& text) {
    return ucs2string(reinterpret_cast<const unsigned char*>(text.data()),
                      static_cast<unsigned int>(text.size()));
}

std::unique_ptr<luStringFormat> MakeStringFormat(const FormatOptions& options,
                                                 const lu_locale& locale) {
    std::string language, country;
    LanguageAndCountry(locale, language, country);
    const char* lang = language.c_str();
    const char* ctry = country.empty() ? nullptr : country.c_str();
    const char* code = options.code.c_str();
    luStringFormat* format = nullptr;
    if (options.dialect == "serial") {
        format = options.date ? static_cast<luStringFormat*>(CreateSerialStringFormatDate())
                              : CreateSerialStringFormatNumber();
    } else if (options.dialect == "velora") {
        format = options.date
                     ? static_cast<luStringFormat*>(CreateVeloraStringFormatDate(code, lang, ctry))
                     : CreateVeloraStringFormatNumber(code, lang, ctry, true);
    } else {
        format = options.date ? static_cast<luStringFormat*>(CreateStringFormatDate(lang, ctry))
                              : CreateStringFormatNumber(lang, ctry);
    }
    return std::unique_ptr<luStringFormat>(format);
}

std::unique_ptr<luFmtPattern> ReadPattern(luStringFormat& format, const std::string& text) {
    luFmtPattern* pattern = nullptr;
    const long result = format.ToPattern(FromUtf8(text), pattern);
    std::unique_ptr<luFmtPattern> owned(pattern);
    if (result < 0 || owned == nullptr) LUException::Raise(result < 0 ? result : LU_E_FAIL);
    return owned;
}

std::string Canonical(const luFmtPattern& pattern) {
    std::unique_ptr<luStringFormat> serial(
        pattern.IsDate() ? static_cast<luStringFormat*>(CreateSerialStringFormatDate())
                         : CreateSerialStringFormatNumber());
    ucs2string text;
    serial->FromPattern(pattern, text);
    std::ostringstream out;
    out << text;
    return out.str();
}

ilu_ptr<luSettings> MakeSettings(const lu_locale& locale) {
    ilu_ptr<luPreferences> preferences;
    ilu_ptr<luSettings> settings;
    if (CreatePreferences(preferences) < 0 || !preferences) LUException::Raise(LU_E_FAIL);
    preferences->EndBuild();
    if (CreateSettings(locale, preferences, settings) < 0 || !settings)
        LUException::Raise(LU_E_FAIL);
    return settings;
}

const TimeLib::luTimeZone* ZoneNamed(const char* command, const std::string& id,
                                     const TimeLib::luTimeZone& fallback) {
    if (id.empty()) return &fallback;
    try {
        return &TimeLib::PredefinedTimeZones::timeBelt().availableTimeZone(FromUtf8(id));
    } catch (const TimeLib::UnknownTimeZone&) {
        std::cerr << "kai18n " << command << ": unknown zone '" << id << "' (see kai18n zones)\n";
        return nullptr;
    }
}

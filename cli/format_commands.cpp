// Formatting numbers by a pattern, and showing the canonical notation of a
// format text, in the dialect and locale the user names.
#include "format_commands.h"

#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "kai18n/platform/kalib.h"

using namespace FmtLib;

namespace {

const char* const kColourNames[] = {"black",    "white",      "red",        "green",
                                    "blue",     "yellow",     "magenta",    "cyan",
                                    "dark red", "dark green", "dark blue",  "light brown",
                                    "purple",   "dark cyan",  "light gray", "gray"};

struct Options {
    std::string locale = "C";
    std::string dialect = "ombrin";
    std::string code = "EN";  // the Velora language code
    bool date = false;
    std::vector<std::string> rest;
};

// Reads the options shared by both commands; false on bad usage.
bool ReadOptions(int argc, char** argv, bool allowDate, Options& options) {
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--locale" && hasValue) {
            options.locale = argv[++i];
        } else if (arg == "--dialect" && hasValue) {
            options.dialect = argv[++i];
        } else if (arg == "--code" && hasValue) {
            options.code = argv[++i];
        } else if (arg == "--date" && allowDate) {
            options.date = true;
        } else if (arg == "--") {
            options.rest.insert(options.rest.end(), argv + i + 1, argv + argc);
            break;
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

// The language and country of a locale, "en" and none for the classic one.
void LanguageAndCountry(const lu_locale& locale, std::string& language, std::string& country) {
    language = "en";
    country.clear();
    if (!lu_has_facet<lu_locale_ident>(locale)) return;
    const lu_locale_ident& ident = lu_use_facet<lu_locale_ident>(locale);
    if (ident.language_code_2() != nullptr) language = ident.language_code_2();
    if (ident.country_code_2() != nullptr) country = ident.country_code_2();
}

std::unique_ptr<luStringFormat> MakeStringFormat(const Options& options, const lu_locale& locale) {
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

// Formats one command-line value: an integer through the long overload,
// anything else as a double.
void FormatValue(luNumberFormat& format, const std::string& value) {
    errno = 0;
    char* end = nullptr;
    const long integer = std::strtol(value.c_str(), &end, 10);
    if (!value.empty() && *end == 0 && errno == 0) {
        format.Format(integer);
    } else {
        format.Format(std::strtod(value.c_str(), nullptr));
    }
}

}  // namespace

int FormatNumberCommand(int argc, char** argv) {
    Options options;
    if (!ReadOptions(argc, argv, false, options)) return 2;
    if (options.rest.size() < 2) {
        std::cerr << "kai18n format-number: expects a pattern and at least one value\n";
        return 2;
    }
    const lu_locale locale(options.locale.c_str());
    auto format = MakeStringFormat(options, locale);
    auto pattern = ReadPattern(*format, options.rest[0]);

    ilu_ptr<luPreferences> preferences;
    ilu_ptr<luSettings> settings;
    luNumberFormat* compiled = nullptr;
    if (CreatePreferences(preferences) < 0 || !preferences) LUException::Raise(LU_E_FAIL);
    preferences->EndBuild();
    if (CreateSettings(locale, preferences, settings) < 0 || !settings)
        LUException::Raise(LU_E_FAIL);
    const long result = CreateNumberFormat(settings, pattern.get(), compiled);
    if (result < 0) LUException::Raise(result);
    std::unique_ptr<luNumberFormat> number(compiled);

    for (std::size_t i = 1; i < options.rest.size(); ++i) {
        FormatValue(*number, options.rest[i]);
        std::cout << options.rest[i] << '\t' << ucs2string(number->c_str());
        const int colour = number->Color();
        if (colour >= 1 && colour <= 16) std::cout << "\t[" << kColourNames[colour - 1] << ']';
        std::cout << '\n';
    }
    return 0;
}

int PatternCommand(int argc, char** argv) {
    Options options;
    if (!ReadOptions(argc, argv, true, options)) return 2;
    if (options.rest.size() != 1) {
        std::cerr << "kai18n pattern: expects one format text\n";
        return 2;
    }
    const lu_locale locale(options.locale.c_str());
    auto format = MakeStringFormat(options, locale);
    auto pattern = ReadPattern(*format, options.rest[0]);
    std::cout << Canonical(*pattern) << '\n';
    return 0;
}

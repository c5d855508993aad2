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

#include "format_options.h"
#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/platform/kalib.h"

using namespace FmtLib;

namespace {

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
    FormatOptions options;
    if (!ReadFormatOptions(argc, argv, false, false, options)) return 2;
    if (options.rest.size() < 2) {
        std::cerr << "kai18n format-number: expects a pattern and at least one value\n";
        return 2;
    }
    const lu_locale locale(options.locale.c_str());
    auto format = MakeStringFormat(options, locale);
    auto pattern = ReadPattern(*format, options.rest[0]);

    ilu_ptr<luSettings> settings = MakeSettings(locale);
    luNumberFormat* compiled = nullptr;
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
    FormatOptions options;
    if (!ReadFormatOptions(argc, argv, true, false, options)) return 2;
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

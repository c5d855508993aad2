// kai18n: the command-line tool. Lists the locales of the catalog, shows
// the identity, numeric punctuation and date names of one locale, formats
// numbers by a pattern, shows the canonical notation of a format text,
// prints dates and reads numbers and dates back from text.
//
//   kai18n locales [--language xx] [--country YY]
//   kai18n locale NAME
//   kai18n format-number [--locale NAME] [--dialect D] [--code XX] PATTERN VALUE...
//   kai18n pattern [--locale NAME] [--dialect D] [--code XX] [--date] TEXT
//   kai18n date [--locale NAME] FORMAT [YYYY-MM-DD[THH:MM[:SS[.mmm]]]...]
//   kai18n format-date [--locale NAME] [--zone ID] [--dialect D] [--code XX] PATTERN [INSTANT...]
//   kai18n excel [--date] [--locale NAME] [--dialect D] [--code XX] TEXT
//   kai18n zones [--offset SECONDS]
//   kai18n time [--zone ID] [SECONDS | YYYY-MM-DDTHH:MM:SSZ]
//   kai18n parse-number [--locale NAME] TEXT...
//   kai18n parse-date [--locale NAME] [--zone ID] [--pivot YEAR] [--dialect D] [--code XX]
//                     PATTERN TEXT...
//
// Output is UTF-8. Exit codes: 0 success, 1 failure of the library (an
// unknown locale or zone), an invalid date or instant or a text that could
// not be read, 2 bad usage.
#include <cstdio>
#include <cstring>
#include <iostream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "date_commands.h"
#include "date_format_commands.h"
#include "format_commands.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/locale/lu_countries.h"
#include "kai18n/locale/lu_languages.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/ucs2string.h"
#include "parse_commands.h"
#include "zone_commands.h"

namespace {

const char kUsage[] =
    "usage: kai18n COMMAND [ARGS]\n"
    "\n"
    "commands:\n"
    "  locales [--language xx] [--country YY]\n"
    "      list the catalog's locales: id, locale name, display name;\n"
    "      languages are lower case (de), countries upper case (DE)\n"
    "  locale NAME\n"
    "      show the identity, numeric punctuation and date names of the\n"
    "      locale NAME (de_DE, en_US.UTF-8, fr, ...)\n"
    "  format-number [--locale NAME] [--dialect D] [--code XX] PATTERN VALUE...\n"
    "      format each VALUE by PATTERN, a number format in the dialect D:\n"
    "      ombrin (the default: #,##0.00;[Red]-#,##0.00), serial (the canonical\n"
    "      notation: T[#]T[gs]T[0]) or velora (whose language code XX, EN by\n"
    "      default, picks the letters); the colour of a result follows it\n"
    "  pattern [--locale NAME] [--dialect D] [--code XX] [--date] TEXT\n"
    "      show the canonical notation of the number (or date) format TEXT\n";

const char kUsageEnd[] =
    "  --help\n"
    "      show this text\n";

int Usage(std::ostream& out, int code) {
    out << kUsage << kDateUsage << kDateFormatUsage << kZoneUsage << kParseUsage << kUsageEnd;
    return code;
}

/// A zero-terminated UTF-16 text as a string; null gives the empty string.
ucs2string Text(const unsigned short* units) {
    return units != nullptr ? ucs2string(units) : ucs2string();
}

const char* Text(const char* text) {
    return text != nullptr ? text : "";
}

/// "U+002C ','"; "none" for 0.
std::string CodeUnit(unsigned short unit) {
    if (unit == 0) return "none";
    char code[16];
    std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(unit));
    std::ostringstream out;
    out << code << " '" << ucs2string(unit, 1) << "'";
    return out.str();
}

std::string ResultCode(long result) {
    char code[16];
    std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(result) & 0xFFFFFFFFUL);
    return code;
}

const char* NegativeModeName(lu_numeric_punctuation::eNegativeMode mode) {
    switch (mode) {
        case lu_numeric_punctuation::eParentheses:
            return "parentheses (1.5)";
        case lu_numeric_punctuation::eSignBefore:
            return "sign before -1.5";
        case lu_numeric_punctuation::eSignBlankBefore:
            return "sign and blank before - 1.5";
        case lu_numeric_punctuation::eSignAfter:
            return "sign after 1.5-";
        case lu_numeric_punctuation::eBlankSignAfter:
            return "blank and sign after 1.5 -";
    }
    return "unknown";
}

// --- locales -----------------------------------------------------------------

/// Adds the ids that match `language` and `territory` (either may be empty).
void Collect(const char* language, const char* territory, std::set<unsigned int>& ids) {
    std::vector<unsigned int> found;
    if (lu_locale_catalog::GetInstance()->QueryMatchingLocales(language, territory, "", "", found,
                                                               false) == LU_S_OK) {
        ids.insert(found.begin(), found.end());
    }
}

int ListLocales(int argc, char** argv) {
    std::string language;
    std::string country;
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        if ((arg == "--language" || arg == "--country") && i + 1 < argc) {
            (arg == "--language" ? language : country) = argv[++i];
        } else {
            std::cerr << "kai18n locales: unexpected argument '" << arg << "'\n";
            return Usage(std::cerr, 2);
        }
    }

    std::set<unsigned int> ids;
    if (!language.empty() || !country.empty()) {
        Collect(language.c_str(), country.c_str(), ids);
    } else {
        // The catalog answers queries by part; every locale has a language or
        // a country from the two code tables.
        for (const auto* row = lu_languages::begin(); row != lu_languages::end(); ++row)
            Collect(row->GetIsoCode2(), "", ids);
        for (const auto* row = lu_countries::begin(); row != lu_countries::end(); ++row)
            Collect("", row->GetIsoCode2(), ids);
    }

    for (unsigned int id : ids) {
        ilu_const_ptr<lu_locale_ident> ident =
            lu_locale_catalog::GetInstance()->GetLocaleIdentification(id);
        if (!ident) continue;
        std::cout << id << '\t' << ident->locale_name() << '\t' << ident->locale_display_name(false)
                  << '\n';
    }
    return 0;
}

// --- locale ------------------------------------------------------------------

void PrintIdentity(const lu_locale_ident& ident) {
    std::cout << "identity\n"
              << "  locale name:       " << ident.locale_name() << '\n'
              << "  display name:      " << ident.locale_display_name(true) << '\n'
              << "  language:          " << Text(ident.language_code_2()) << " / "
              << Text(ident.language_code_3()) << "  " << ident.language_display_name() << " ("
              << Text(ident.language_english_name()) << ")\n"
              << "  country:           " << Text(ident.country_code_2()) << " / "
              << Text(ident.country_code_3()) << "  " << ident.country_name() << " ("
              << ident.country_long_name() << ")\n"
              << "  encoding:          " << Text(ident.encoding_technical_name()) << "  "
              << ident.encoding_display_name() << '\n'
              << "  sort order:        " << Text(ident.sort_order_technical_name()) << "  "
              << ident.sort_order_display_name() << '\n';
}

void PrintNumbers(const lu_numpunct& punct) {
    std::cout << "numbers\n"
              << "  decimal point:     " << CodeUnit(punct.decimal_point()) << '\n'
              << "  thousands sep:     " << CodeUnit(punct.thousands_sep()) << '\n'
              << "  grouping:          ";
    const unsigned short* grouping = punct.grouping();
    if (grouping == nullptr || *grouping == 0) {
        std::cout << "none";
    } else {
        for (const unsigned short* g = grouping; *g != 0; ++g)
            std::cout << (g == grouping ? "" : ";") << *g;
    }
    std::cout << '\n'
              << "  negative mode:     " << static_cast<int>(punct.mode()) << ", "
              << NegativeModeName(punct.mode()) << '\n'
              << "  signs:             " << ucs2string(punct.positive_sign(), 1) << ' '
              << ucs2string(punct.negative_sign(), 1) << '\n'
              << "  digits:            " << ucs2string(punct.GetDigits(false), 16) << ' '
              << ucs2string(punct.GetDigits(true), 16) << '\n'
              << "  exponent:          " << ucs2string(punct.GetExponent(false), 1) << ' '
              << ucs2string(punct.GetExponent(true), 1) << '\n'
              << "  true / false:      " << Text(punct.truename()) << " / "
              << Text(punct.falsename()) << '\n';
    for (unsigned int i = 0; i < lu_numeric_punctuation::kFormatCount; ++i) {
        std::cout << "  pattern " << i << ":         "
                  << Text(punct.GetFmtLibDefaultFormat(static_cast<int>(i))) << '\n';
    }
}

void PrintDates(const lu_ctime& names) {
    std::cout << "dates\n  months:           ";
    for (int month = 1; month <= 12; ++month) std::cout << ' ' << Text(names.GetNameOfMonth(month));
    std::cout << "\n  days:             ";
    for (int day = 0; day < 7; ++day) std::cout << ' ' << Text(names.GetNameOfDay(day));
    std::cout << "\n  am / pm:           " << Text(names.GetAmPm(0)) << " / "
              << Text(names.GetAmPm(1)) << "\n  eras:             ";
    for (int i = 0; i < 2; ++i) std::cout << ' ' << Text(names.GetAdBc(i));
    for (unsigned int i = 0; i < names.GetNumberOfEra(); ++i) {
        const long first = names.GetEraYear(static_cast<int>(i));
        std::cout << (i == 0 ? "; named:" : ",") << ' ' << Text(names.GetEra(static_cast<int>(i)));
        if (first == lu_ctime_impl::kBackwardEra) {
            std::cout << " (counting back)";
        } else {
            std::cout << " from " << first;
        }
    }
    std::cout << '\n';
}

int ShowLocale(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "kai18n locale: expects one locale name\n";
        return Usage(std::cerr, 2);
    }
    lu_locale loc(nullptr);
    try {
        loc = lu_locale(argv[2]);
    } catch (const LUException&) {
        std::cerr << "kai18n: unknown locale '" << argv[2] << "'\n";
        throw;
    }
    if (lu_has_facet<lu_locale_ident>(loc)) PrintIdentity(lu_use_facet<lu_locale_ident>(loc));
    PrintNumbers(lu_use_facet<lu_numpunct>(loc));
    PrintDates(lu_use_facet<lu_ctime>(loc));
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return Usage(std::cout, 0);
    const std::string command = argv[1];
    if (command == "--help" || command == "-h" || command == "help") return Usage(std::cout, 0);
    try {
        if (command == "locales") return ListLocales(argc, argv);
        if (command == "locale") return ShowLocale(argc, argv);
        if (command == "format-number") return FormatNumberCommand(argc, argv);
        if (command == "pattern") return PatternCommand(argc, argv);
        if (command == "date") return DateCommand(argc, argv);
        if (command == "format-date") return FormatDateCommand(argc, argv);
        if (command == "excel") return ExcelCommand(argc, argv);
        if (command == "zones") return ZonesCommand(argc, argv);
        if (command == "time") return TimeCommand(argc, argv);
        if (command == "parse-number") return ParseNumberCommand(argc, argv);
        if (command == "parse-date") return ParseDateCommand(argc, argv);
    } catch (const LUException& e) {
        std::cout.flush();
        std::cerr << "kai18n: error " << ResultCode(e.GetResult()) << ": " << e.what() << '\n';
        return 1;
    }
    std::cerr << "kai18n: unknown command '" << command << "'\n";
    return Usage(std::cerr, 2);
}

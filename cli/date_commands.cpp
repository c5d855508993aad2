// Printing dates by a strftime-like format with the names of a locale.
#include "date_commands.h"

#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#include "kai18n/datetime/lu_date_time.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/ucs2string.h"

const char kDateUsage[] =
    "  date [--locale NAME] FORMAT [DATE...]\n"
    "      print each DATE (with none, now in UTC) by FORMAT, a strftime-like\n"
    "      format (%Y-%m-%d %H:%M:%S, %A %e %B %Y, %q for milliseconds, ...)\n"
    "      with the names of the locale NAME. A DATE is\n"
    "      YYYY-MM-DD[THH:MM[:SS[.mmm]]], every digit given; the year has 1 to\n"
    "      5 digits, from -4712 to 32766, and is astronomical: 0 is 1 BC, which\n"
    "      %Y prints as -1. Dates up to 1582-10-04 are Julian, from the next\n"
    "      day, 1582-10-15, Gregorian. '--' ends the options\n";

namespace {

const char kShape[] = "YYYY-MM-DD[THH:MM[:SS[.mmm]]]";

struct Moment {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, millisecond = 0;
};

int DateUsage(const std::string& message) {
    std::cerr << "kai18n date: " << message << "\nusage:\n" << kDateUsage;
    return 2;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Reads exactly `count` digits at `text`; false if one is missing.
bool ReadDigits(const char*& text, int count, int& value) {
    value = 0;
    for (int i = 0; i < count; ++i, ++text) {
        if (!IsDigit(*text)) return false;
        value = value * 10 + (*text - '0');
    }
    return true;
}

bool ReadUnit(const char*& text, char unit) {
    if (*text != unit) return false;
    ++text;
    return true;
}

// YYYY-MM-DD[THH:MM[:SS[.mmm]]]: the year of 1 to 5 digits after an optional
// '-', every other field of exactly its digits, nothing after the last field.
bool ParseMoment(const char* text, Moment& m) {
    const bool negative = *text == '-';
    if (negative) ++text;
    int digits = 0;
    while (IsDigit(text[digits])) ++digits;
    if (digits < 1 || digits > 5 || !ReadDigits(text, digits, m.year)) return false;
    if (negative) m.year = -m.year;
    if (!ReadUnit(text, '-') || !ReadDigits(text, 2, m.month) || !ReadUnit(text, '-') ||
        !ReadDigits(text, 2, m.day))
        return false;
    if (*text == 0) return true;
    if (!ReadUnit(text, 'T') || !ReadDigits(text, 2, m.hour) || !ReadUnit(text, ':') ||
        !ReadDigits(text, 2, m.minute))
        return false;
    if (*text == 0) return true;
    if (!ReadUnit(text, ':') || !ReadDigits(text, 2, m.second)) return false;
    if (*text == 0) return true;
    return ReadUnit(text, '.') && ReadDigits(text, 3, m.millisecond) && *text == 0;
}

// Why a well-formed date does not exist, for the error line; empty if it does.
std::string Invalidity(const Moment& m) {
    if (!lu_date_time::IsValidYear(m.year)) return "years run from -4712 to 32766";
    if (!lu_date_time::IsValidMonth(m.month)) return "months run from 01 to 12";
    if (!lu_date_time::IsValid(m.year, m.month, m.day)) {
        // The switch to the Gregorian calendar left out ten days.
        if (m.year == 1582 && m.month == 10) return "October 1582 has the days 01-04 and 15-31";
        char reason[64];
        std::snprintf(reason, sizeof reason, "the days of that month run from 01 to %02d",
                      lu_date_time::DaysInMonth(m.year, m.month));
        return reason;
    }
    if (!lu_date_time::IsValidTime(m.hour, m.minute, m.second, m.millisecond))
        return "the time runs from 00:00:00.000 to 23:59:59.999";
    return std::string();
}

// Now, from the system clock, in UTC, and its text in the shape of an argument.
Moment Now(std::string& label) {
    using namespace std::chrono;
    const long long kDay = 86400000;
    const long long ms =
        duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
    long long days = ms / kDay;
    long long rest = ms % kDay;
    if (rest < 0) {
        rest += kDay;
        --days;
    }
    Moment m;
    // 1 January 1970 is MJD 40587.
    lu_date_time(40587.0 + static_cast<double>(days)).Ymd(m.year, m.month, m.day);
    m.hour = static_cast<int>(rest / 3600000);
    m.minute = static_cast<int>(rest / 60000 % 60);
    m.second = static_cast<int>(rest / 1000 % 60);
    m.millisecond = static_cast<int>(rest % 1000);
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03d", m.year, m.month, m.day,
                  m.hour, m.minute, m.second, m.millisecond);
    label = text;
    return m;
}

}  // namespace

int DateCommand(int argc, char** argv) {
    const char* localeName = nullptr;
    std::vector<std::string> rest;
    for (int i = 2; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--") {
            rest.insert(rest.end(), argv + i + 1, argv + argc);
            break;
        }
        if (arg == "--locale") {
            if (i + 1 >= argc) return DateUsage("'--locale' needs a locale name");
            localeName = argv[++i];
        } else if (arg.size() > 1 && arg[0] == '-' && !IsDigit(arg[1])) {
            // A '-' and a digit begin a date before the year 1.
            return DateUsage("unknown option '" + arg + "'");
        } else {
            rest.push_back(arg);
        }
    }
    if (rest.empty()) return DateUsage("missing FORMAT");

    lu_locale locale(nullptr);
    try {
        locale = localeName != nullptr ? lu_locale(localeName) : lu_locale::classic();
    } catch (const LUException&) {
        std::cerr << "kai18n: unknown locale '" << localeName << "'\n";
        return 1;
    }
    const ucs2string format(reinterpret_cast<const unsigned char*>(rest[0].c_str()));

    auto print = [&format, &locale](const std::string& label, const Moment& m) {
        lu_date_time value;
        const long result =
            value.Set(m.year, m.month, m.day, m.hour, m.minute, m.second, m.millisecond);
        if (result < 0) LUException::Raise(result);
        ucs2string text;
        value.Print(text, format.c_str(), locale);
        std::cout << label << '\t' << text << '\n';
    };
    if (rest.size() == 1) {
        std::string label;
        const Moment now = Now(label);
        print(label, now);
    }
    int status = 0;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        Moment m;
        if (!ParseMoment(rest[i].c_str(), m)) {
            std::cerr << "kai18n: '" << rest[i] << "' is not a date of the form " << kShape << '\n';
            status = 1;
            continue;
        }
        const std::string why = Invalidity(m);
        if (!why.empty()) {
            std::cerr << "kai18n: '" << rest[i] << "' is not a valid date (" << why << ")\n";
            status = 1;
            continue;
        }
        print(rest[i], m);
    }
    return status;
}

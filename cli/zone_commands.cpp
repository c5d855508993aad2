// Listing the predefined zones and showing an instant's calendar fields in one.
#include "zone_commands.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <string>
#include <vector>

#include "format_options.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/ucs2string.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/lu_clock.h"
#include "kai18n/timelib/predefined_time_zones.h"

const char kZoneUsage[] =
    "  zones [--offset SECONDS]\n"
    "      list the identifiers of the predefined zones; with --offset, the one\n"
    "      chosen for an offset of SECONDS east of Greenwich\n"
    "  time [--zone ID] [INSTANT]\n"
    "      show the calendar fields and the zone and daylight offsets of INSTANT\n"
    "      (now by default) in the zone ID (the host's zone by default). INSTANT\n"
    "      is seconds since 1970-01-01 00:00:00 UTC, or YYYY-MM-DDTHH:MM:SSZ\n";

namespace {

using namespace TimeLib;

int CommandUsage(const char* command, const std::string& message) {
    std::cerr << "kai18n " << command << ": " << message << "\nusage:\n" << kZoneUsage;
    return 2;
}

std::string Utf8(const ucs2string& text) {
    return reinterpret_cast<const char*>(lu_utf8string(text).c_str());
}

// A whole number of the long range, read entirely.
bool ReadInteger(const std::string& text, long long& value) {
    if (text.empty()) return false;
    char* end = nullptr;
    errno = 0;
    value = std::strtoll(text.c_str(), &end, 10);
    return errno == 0 && *end == '\0' && !std::isspace(static_cast<unsigned char>(text[0]));
}

// YYYY-MM-DDTHH:MM:SSZ, every digit given: the shape, then the fields.
bool ReadUtcText(const std::string& text, long long& seconds) {
    static const char kShape[] = "dddd-dd-ddTdd:dd:ddZ";
    if (text.size() != sizeof kShape - 1) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool digit = std::isdigit(static_cast<unsigned char>(text[i])) != 0;
        if (kShape[i] == 'd' ? !digit : text[i] != kShape[i]) return false;
    }
    const auto field = [&text](std::size_t at, std::size_t count) {
        return std::stoi(text.substr(at, count));
    };
    std::tm tm{};
    tm.tm_year = field(0, 4) - 1900, tm.tm_mon = field(5, 2) - 1, tm.tm_mday = field(8, 2);
    tm.tm_hour = field(11, 2), tm.tm_min = field(14, 2), tm.tm_sec = field(17, 2);
    const std::tm asked = tm;
    seconds = timegm(&tm);
    // timegm folds 31 February into March: refuse whatever it had to move.
    return tm.tm_year == asked.tm_year && tm.tm_mon == asked.tm_mon &&
           tm.tm_mday == asked.tm_mday && tm.tm_hour == asked.tm_hour &&
           tm.tm_min == asked.tm_min && tm.tm_sec == asked.tm_sec;
}

void Show(const luCalendarTime& t, const luPhysicalTime& when) {
    const double seconds = (when - luPhysicalTime::Epoch) / luDuration::Second;
    char line[160];
    std::snprintf(line, sizeof line, "%.0f", seconds);
    std::cout << "instant   " << line << " s since 1970-01-01 00:00:00 UTC\n"
              << "zone      " << Utf8(t.time_zone_id()) << '\n';
    std::snprintf(line, sizeof line, "%04d-%02d-%02d %s  %02d:%02d:%02d.%03d", t.year(),
                  t.month() + 1, t.day_of_month(), t.era() == 0 ? "BC" : "AD", t.hour_of_day(),
                  t.minute(), t.second(), t.millisecond());
    std::cout << "local     " << line << '\n';
    std::snprintf(line, sizeof line, "weekday %d (1 = Sunday), day %d of the year, week %d of %d",
                  t.day_of_week(), t.day_of_year(), t.week_of_year(), t.year_woy());
    std::cout << "calendar  " << line << '\n';
    std::cout << "offsets   zone " << t.zone_offset() << " ms, daylight " << t.dst_offset()
              << " ms\n";
}

}  // namespace

bool ReadInstant(const std::string& text, luPhysicalTime& when) {
    long long seconds = 0;
    if (!ReadInteger(text, seconds) && !ReadUtcText(text, seconds)) return false;
    when = luPhysicalTime::Epoch + luDuration::Second * static_cast<double>(seconds);
    return true;
}

int ZonesCommand(int argc, char** argv) {
    std::vector<std::string> args(argv + 2, argv + argc);
    const luTimeBelt& belt = PredefinedTimeZones::timeBelt();
    if (args.empty()) {
        for (const ucs2string& id : belt.availableIDs()) std::cout << Utf8(id) << '\n';
        return 0;
    }
    long long offset = 0;
    if (args[0] != "--offset" || args.size() != 2)
        return CommandUsage("zones", "unexpected argument '" + args[0] + "'");
    if (!ReadInteger(args[1], offset) || offset < -2147483648LL || offset > 2147483647LL)
        return CommandUsage("zones", "'" + args[1] + "' is not a number of seconds");
    ucs2string id;
    PredefinedTimeZones::DefaultTZFromOffset(static_cast<int>(offset), id);
    std::cout << Utf8(id) << '\n';
    return 0;
}

int TimeCommand(int argc, char** argv) {
    std::vector<std::string> args(argv + 2, argv + argc);
    std::string zoneId;
    std::size_t next = 0;
    if (next < args.size() && args[next] == "--zone") {
        if (next + 1 >= args.size()) return CommandUsage("time", "--zone needs an identifier");
        zoneId = args[next + 1];
        next += 2;
    }
    if (next < args.size() && args[next].size() > 1 && args[next][0] == '-' &&
        !std::isdigit(static_cast<unsigned char>(args[next][1])))
        return CommandUsage("time", "unknown option '" + args[next] + "'");
    if (args.size() > next + 1)
        return CommandUsage("time", "unexpected argument '" + args[next + 1] + "'");

    luPhysicalTime when = luClock::localHost().now();
    if (next < args.size() && !ReadInstant(args[next], when)) {
        std::cerr << "kai18n time: '" << args[next]
                  << "' is not an instant (seconds since 1970, or YYYY-MM-DDTHH:MM:SSZ)\n";
        return 1;
    }
    const luTimeZone* zone = ZoneNamed("time", zoneId, luTimeZone::localHost());
    if (zone == nullptr) return 1;
    try {
        Show(luCalendarTime(when, *zone), when);
    } catch (const LUTimeLibException& error) {
        std::cerr << "kai18n time: " << error.text() << '\n';
        return 1;
    }
    return 0;
}

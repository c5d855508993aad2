// The predefined zones: each identifier's zone around its transitions against instants worked out
// here from its record by civil-date arithmetic; the belt; offset to identifier.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/timelib/predefined_time_zones.h"
#include "kai18n/timelib/timelib_init_exit.h"
#include "timelib/predefined_zone_table.h"

namespace {

using namespace TimeLib;
using Zone = std::unique_ptr<TimeZone>;
CalendarTimeInitExit s_calendarTime;  // held like any client of the belt
PredefinedTimeZonesInitExit s_predefinedZones;
constexpr double kDay = 86400000.0, kMinute = 60000.0, kHour = 3600000.0;
ucs2string Wide(const std::string& s) {  // unit by unit, not through the library
    return ucs2string(std::vector<unsigned short>(s.begin(), s.end()).data(), s.size());
}
Zone Make(const char* id) {
    return Zone(PredefinedTimeZones::timeBelt().availableTimeZone(Wide(id)).make());
}
// Days from 1970-01-01 to y-m-d (m from 1), proleptic Gregorian, and back; weekday 1 is Sunday.
long DaysFromCivil(long y, long m, long d) {
    y -= m <= 2;
    const long era = (y >= 0 ? y : y - 399) / 400, yoe = y - era * 400;
    const long doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
    return era * 146097 + yoe * 365 + yoe / 4 - yoe / 100 + doy - 719468;
}
std::array<long, 3> CivilFromDays(long z) {
    z += 719468;
    const long era = (z >= 0 ? z : z - 146096) / 146097, doe = z - era * 146097;
    const long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long doy = doe - (365 * yoe + yoe / 4 - yoe / 100), mp = (5 * doy + 2) / 153;
    const long m = mp < 10 ? mp + 3 : mp - 9;
    return {yoe + era * 400 + (m <= 2), m, doy - (153 * mp + 2) / 5 + 1};
}
int WeekdayOf(long days) {
    return static_cast<int>(((days % 7) + 11) % 7) + 1;
}
long MonthLength(long y, long m) {
    return DaysFromCivil(m == 12 ? y + 1 : y, m == 12 ? 1 : m + 1, 1) - DaysFromCivil(y, m, 1);
}
// A rule's UTC instant in `year`, month from 0 as in the records; wall time is standard +
// wallShift.
double RuleInstant(long year, int month, int day, int dow, int minutes, int mode, double raw,
                   double wallShift) {
    const long m = month + 1, length = MonthLength(year, m);
    const auto weekday = [&](long d) { return WeekdayOf(DaysFromCivil(year, m, d)); };
    long date = day;
    if (dow > 0 && day < 0) date = length - (weekday(length) - dow + 7) % 7 + 7 * (day + 1);
    if (dow < 0 && day > 0) date = day + (-dow - weekday(day) + 7) % 7;   // first on/after
    if (dow < 0 && day < 0) date = -day - (weekday(-day) + dow + 7) % 7;  // last on/before
    const double clock = DaysFromCivil(year, m, date) * kDay + minutes * kMinute;
    return mode == 2 ? clock : clock - raw - (mode == 0 ? wallShift : 0.0);
}
// The zone's offset at a UTC instant, asked with the local standard date.
std::int32_t OffsetAt(const TimeZone& zone, double instant) {
    const double local = instant + zone.getRawOffset();
    const long days = static_cast<long>(std::floor(local / kDay));
    const auto [y, m, d] = CivilFromDays(days);
    UErrorCode status = UErrorNone;
    const std::int32_t offset =
        zone.getOffset(1, y, m - 1, d, WeekdayOf(days),
                       static_cast<std::int32_t>(local - days * kDay), MonthLength(y, m), status);
    EXPECT_EQ(status, UErrorNone);
    return offset;
}

TEST(PredefinedZonesTest, EveryIdentifierFollowsItsRecordAroundEachTransition) {
    for (std::size_t i = 0; i < kPredefinedZoneIdCount; ++i) {
        SCOPED_TRACE(kPredefinedZoneIds[i].text);
        const ZoneRecord& record = kPredefinedZoneRecords[kPredefinedZoneRecordIndexes[i]];
        const Zone zone = Make(kPredefinedZoneIds[i].text);
        ASSERT_NE(zone, nullptr);
        ucs2string zoneId;
        EXPECT_EQ(zone->getID(zoneId), Wide(kPredefinedZoneIds[i].text));
        const DSTZone& z = record.zone.daylight;
        const double raw = record.zone.standard.rawOffset;  // first member of both forms
        const double saving = record.hasDaylight ? z.dstSavings * kMinute : 0.0;
        for (const long year : {1999, 2004, 2023, 2037}) {
            double s = DaysFromCivil(year, 1, 15) * kDay, e = s + 181 * kDay;  // start, end
            if (record.hasDaylight) {
                s = RuleInstant(year, z.startMonth, z.startDay, z.startDayOfWeek, z.startTime,
                                z.startTimeMode, raw, 0.0);
                e = RuleInstant(year, z.endMonth, z.endDay, z.endDayOfWeek, z.endTime,
                                z.endTimeMode, raw, saving);
            }
            for (const double at : {s, e})  // daylight from s to e, over the new year if s > e
                for (const double t : {at - kHour, at - 1, at, at + 1, at + kHour}) {
                    const bool on = saving > 0 && (s < e ? t >= s && t < e : t >= s || t < e);
                    UErrorCode status = UErrorNone;
                    EXPECT_EQ(OffsetAt(*zone, t), raw + (on ? saving : 0.0)) << t;
                    EXPECT_EQ(zone->inDaylightTime(t, status), on) << t;
                }
        }
    }
}

TEST(PredefinedZonesTest, BeltListsIdentifiersInCodeUnitOrderAndThrowsForAStranger) {
    const std::vector<ucs2string> ids = PredefinedTimeZones::timeBelt().availableIDs();
    ASSERT_EQ(ids.size(), 433u);
    EXPECT_TRUE(ids.front() == Wide("ACT") && ids.back() == Wide("localhost_tz"));
    for (std::size_t i = 1; i < ids.size(); ++i) EXPECT_LT(ids[i - 1], ids[i]) << i;
    try {
        Make("europe/paris");
        FAIL() << "no exception";
    } catch (const UnknownTimeZone& error) {
        EXPECT_EQ(error.text(), "TimeLib::UnknownTimeZone : europe/paris");
        EXPECT_EQ(error.GetResult(), 0x00041121);
    }
}

TEST(PredefinedZonesTest, LocalHostClonesTheDefaultAndAliasesShareOnlyRules) {
    const Zone made = Make("localhost_tz"), expected(TimeZone::createDefault());
    EXPECT_TRUE(made && *made == *expected);
    const Zone paris = Make("Europe/Paris"), ect = Make("ECT");
    EXPECT_TRUE(paris->hasSameRules(*ect));
    EXPECT_FALSE(*paris == *ect);
}

// Offsets up to a bound take its identifier, one more the next's; above the table, the last. The
// first and last bounds, a half-hour zone between whole-hour ones, the one bound not on a
// quarter-hour, the clamp and the largest offset.
TEST(PredefinedZonesTest, DefaultIdentifierForAnOffsetAtEachBound) {
    const std::pair<int, const char*> rows[] = {
        {-100000, "Etc/GMT+12"}, {-43200, "Etc/GMT+12"},
        {-43199, "Etc/GMT+11"},  {-12600, "America/St_Johns"},
        {-12599, "Etc/GMT+3"},   {0, "GMT"},
        {1, "Etc/GMT-1"},        {11224, "Asia/Riyadh89"},
        {11225, "Asia/Tehran"},  {50400, "Etc/GMT-14"},
        {50401, "GMT"},          {1000000, "GMT"},
        {1000001, "GMT"},        {2147483647, "GMT"}};
    for (const auto& [offset, expected] : rows) {
        ucs2string id = Wide("unset");
        PredefinedTimeZones::DefaultTZFromOffset(offset, id);
        EXPECT_EQ(id, Wide(expected)) << offset;
    }
}

}  // namespace

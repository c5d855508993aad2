// The host's zone as an engine zone: a raw offset, the host's name of standard
// time as the identifier, and one yearly pair of daylight rules.
//
// The record gives each change as a month, a week of the month and a weekday;
// its time of day is not read, so the zone changes at midnight wall time on
// the right day rather than at the hour the host changes (02:00 or 03:00 in
// most zones). Offsets are therefore right on every day except in the hours
// between midnight and the host's change on the two change days. The record's
// year is not read either: it is taken as a rule for every year.
#include <cstdint>

#include "calendar/engine_arithmetic.h"
#include "calendar/host_zone_record.h"
#include "calendar/local_time_zone.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "platform/host_time_zone.h"

namespace {

using calendar_engine::Wrap32;
using calendar_engine::Wrap8;

constexpr std::int64_t kMillisPerMinute = 60000;
constexpr std::uint32_t kLastResultWithRecord = 2;

// The name up to its terminating zero, and never past the record's field.
ucs2string NameOf(const std::uint16_t (&name)[kaHostZoneNameLength]) {
    unsigned int length = 0;
    while (length < kaHostZoneNameLength && name[length] != 0) ++length;
    return ucs2string(name, length);
}

// Week 5 of the record is the last such weekday, which the zone counts as -1.
std::int8_t DayOf(const kaHostSystemTime& date) {
    return date.wDay == 5 ? static_cast<std::int8_t>(-1) : Wrap8(date.wDay);
}

// Record fields are passed into the zone's byte and word arguments as a 32-bit
// machine passes them: low bits kept. Out-of-range values reach the zone,
// which refuses them and keeps what it could decode.
TimeZone* ZoneWithDaylight(const kaHostTimeZoneInformation& info, std::int32_t raw,
                           const ucs2string& name) {
    const kaHostSystemTime& start = info.DaylightDate;
    const kaHostSystemTime& end = info.StandardDate;
    const std::int32_t savings = Wrap32(
        (static_cast<std::int64_t>(info.StandardBias) - info.DaylightBias) * kMillisPerMinute);
    // A refused rule still gives the zone; there is no one to tell.
    UErrorCode ignored = UErrorNone;
    return new SimpleTimeZone(raw, name, Wrap8(start.wMonth - 1), DayOf(start),
                              Wrap8(start.wDayOfWeek + 1), 0, Wrap8(end.wMonth - 1), DayOf(end),
                              Wrap8(end.wDayOfWeek + 1), 0, savings, ignored);
}

}  // namespace

TimeZone* ZoneFromHostRecord(const kaHostTimeZoneInformation& info, std::uint32_t result) {
    if (result > kLastResultWithRecord) return new SimpleTimeZone(0, ucs2string());
    const std::int32_t raw =
        Wrap32(-(static_cast<std::int64_t>(info.Bias) + info.StandardBias) * kMillisPerMinute);
    const ucs2string name = NameOf(info.StandardName);
    // A zone without daylight time has no date of return to standard time.
    if (info.StandardDate.wMonth == 0) return new SimpleTimeZone(raw, name);
    return ZoneWithDaylight(info, raw, name);
}

void InitLocalTimeZone(TimeZone** zone) {
    kaHostTimeZoneInformation info{};
    const std::uint32_t result = kaGetHostTimeZoneInformation(&info);
    *zone = ZoneFromHostRecord(info, result);
}

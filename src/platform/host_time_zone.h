// The host's time zone as a yearly rule record.
//
// The record has the shape the calendar engine reads a host zone from: a
// standard offset, and for a zone with daylight time the month, week of month
// and weekday of the two yearly changes. The host's own zone database is the
// source: the TZ variable, or else /etc/localtime, read by the C library.
#ifndef KAI18N_PLATFORM_HOST_TIME_ZONE_H
#define KAI18N_PLATFORM_HOST_TIME_ZONE_H

#include <cstdint>

/// A date and time of day; as a yearly rule, wYear is 0 and wDay is the week of
/// the month, 1 to 4 for the first to the fourth wDayOfWeek, 5 for the last.
struct kaHostSystemTime {
    std::uint16_t wYear;
    std::uint16_t wMonth;      // 1 = January; 0 in a zone without daylight time
    std::uint16_t wDayOfWeek;  // 0 = Sunday
    std::uint16_t wDay;
    std::uint16_t wHour;
    std::uint16_t wMinute;
    std::uint16_t wSecond;
    std::uint16_t wMilliseconds;
};

constexpr int kaHostZoneNameLength = 32;

/// Biases are in minutes and are subtracted from local time to give UTC: a
/// zone east of Greenwich has a negative Bias.
struct kaHostTimeZoneInformation {
    std::int32_t Bias;
    /// The host's name of standard time, zero-terminated UTF-16.
    std::uint16_t StandardName[kaHostZoneNameLength];
    /// When daylight time ends, in daylight wall time.
    kaHostSystemTime StandardDate;
    std::int32_t StandardBias;
    std::uint16_t DaylightName[kaHostZoneNameLength];
    /// When daylight time starts, in standard wall time.
    kaHostSystemTime DaylightDate;
    std::int32_t DaylightBias;
};

/// What kaGetHostTimeZoneInformation found.
enum : std::uint32_t {
    /// The zone has no daylight changes this year.
    kaHostZoneUnknown = 0,
    /// Standard time is in force now.
    kaHostZoneStandard = 1,
    /// Daylight time is in force now.
    kaHostZoneDaylight = 2,
    /// The host's clock could not be read: the record is left as it was.
    kaHostZoneInvalid = 0xFFFFFFFFu
};

/// Fills `info` from the host's zone as it stands in the current year. Daylight
/// time is described only when the year has both a change into it and a change
/// out of it; each is given by the date on which it falls this year. The zone
/// settings are read once per process, at the first call. Thread-safe.
std::uint32_t kaGetHostTimeZoneInformation(kaHostTimeZoneInformation* info);

#endif  // KAI18N_PLATFORM_HOST_TIME_ZONE_H

// The table of predefined zones: rule records, and the identifiers that name
// them.
//
// Everything here is constant data without pointers, so that it needs no
// fixing up at load and can stay in read-only pages shared by all processes.
// The time belt turns an identifier into an index into the records, and a
// record into a SimpleTimeZone.
#ifndef KAI18N_TIMELIB_PREDEFINED_ZONE_TABLE_H
#define KAI18N_TIMELIB_PREDEFINED_ZONE_TABLE_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "kai18n/calendar/simple_time_zone.h"

namespace TimeLib {

/// The zone data of a record: a StandardZone when the record has no daylight
/// time, else a DSTZone. Only the member that the flag names is ever read.
union ZoneData {
    constexpr ZoneData(const StandardZone& zone) : standard(zone) {}
    constexpr ZoneData(const DSTZone& zone) : daylight(zone) {}

    StandardZone standard;
    DSTZone daylight;
};

/// One rule record of the table.
struct ZoneRecord {
    /// 0: read `zone.standard`; 1: read `zone.daylight`.
    std::uint8_t hasDaylight;
    ZoneData zone;
};

/// The text of one identifier, zero-padded.
struct ZoneIdText {
    /// Room for the longest identifier, "America/Kentucky/Monticello", and its terminator.
    char text[28];
};

/// The number of rule records.
constexpr std::size_t kPredefinedZoneRecordCount = 122;
/// The number of identifiers that name a record.
constexpr std::size_t kPredefinedZoneIdCount = 432;

/// The rule records. Record 14 is named by no identifier.
extern const ZoneRecord kPredefinedZoneRecords[kPredefinedZoneRecordCount];

/// The identifiers in ascending byte order, then the reserved "localhost_tz",
/// which names the host's own zone and has no record.
extern const std::array<ZoneIdText, kPredefinedZoneIdCount + 1> kPredefinedZoneIds;

/// The record index of each identifier, parallel to the first
/// kPredefinedZoneIdCount entries of kPredefinedZoneIds.
extern const std::array<std::uint32_t, kPredefinedZoneIdCount> kPredefinedZoneRecordIndexes;

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_PREDEFINED_ZONE_TABLE_H

// The host's zone record as an engine zone.
#ifndef KAI18N_CALENDAR_HOST_ZONE_RECORD_H
#define KAI18N_CALENDAR_HOST_ZONE_RECORD_H

#include <cstdint>

#include "platform/host_time_zone.h"

class TimeZone;

/// A new SimpleTimeZone from a host record and the result that came with it.
/// Any record gives a zone: rule fields the zone refuses leave it with the
/// rules as far as they could be decoded.
TimeZone* ZoneFromHostRecord(const kaHostTimeZoneInformation& info, std::uint32_t result);

#endif  // KAI18N_CALENDAR_HOST_ZONE_RECORD_H

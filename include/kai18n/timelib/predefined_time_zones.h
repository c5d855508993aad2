// The predefined time zones: the registry of the library's zone table, and
// the choice of a zone for a bare offset.
//
// The registry, the time belt, lists the identifiers of the table and hands
// out one luAvailableTimeZone per identifier. Zones are made lazily: a zone
// object comes into being only when make() is called on a handle. The belt
// is up while PredefinedTimeZonesInitExit is, and is read without a lock.
#ifndef KAI18N_TIMELIB_PREDEFINED_TIME_ZONES_H
#define KAI18N_TIMELIB_PREDEFINED_TIME_ZONES_H

#include <vector>

#include "kai18n/strings/ucs2string.h"
#include "kai18n/timelib/lu_time_zone.h"

namespace TimeLib {

/// A registry of time zones by identifier.
struct luTimeBelt {
    virtual ~luTimeBelt();

    /// A copy of every identifier, in ascending code-unit order. The belt of
    /// the predefined zones has 433: the table's 432 and "localhost_tz", whose
    /// zone is a clone of the default zone.
    virtual std::vector<ucs2string> availableIDs() const = 0;

    /// The handle for `id`, valid while the belt is up. Identifiers compare
    /// exactly, code unit by code unit; a stranger throws UnknownTimeZone(id).
    virtual const luAvailableTimeZone& availableTimeZone(const ucs2string& id) const = 0;
};

namespace PredefinedTimeZones {

/// The belt of the predefined zones.
const luTimeBelt& timeBelt();

/// Sets `id` to the predefined identifier for an offset in seconds east of
/// Greenwich: the offset is rounded up to the next offset that the table
/// covers, offsets east of every zone give "GMT". Never fails.
void DefaultTZFromOffset(int offsetSeconds, ucs2string& id);

}  // namespace PredefinedTimeZones

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_PREDEFINED_TIME_ZONES_H

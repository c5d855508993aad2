// Zone handles: factories of engine zones for calendar-time values.
//
// A handle has no state of its own: it is passed by const reference, shared
// freely between threads, and makes a new engine zone each time a value is
// built on it. Values own engine objects; handles own nothing.
#ifndef KAI18N_TIMELIB_LU_TIME_ZONE_H
#define KAI18N_TIMELIB_LU_TIME_ZONE_H

#include "kai18n/calendar/time_zone.h"

namespace TimeLib {

class CalendarTimeInitExit;

class luTimeZone {
  public:
    /// The engine object a handle makes.
    using Impl = ::TimeZone;

    luTimeZone() = default;
    luTimeZone(const luTimeZone&) = default;
    luTimeZone& operator=(const luTimeZone&) = default;
    virtual ~luTimeZone();

    /// A new zone, owned by the caller.
    virtual Impl* make() const = 0;

    /// The host's zone: each make() clones the default zone (under the zone lock).
    static const luTimeZone& localHost() { return *localHost_; }
    /// Coordinated universal time: each make() clones TimeZone::GMT, named "GMT".
    static const luTimeZone& utc() { return *utc_; }

    static luTimeZone* localHost_;
    static luTimeZone* utc_;
};

/// A zone that a registry lists, such as the predefined zones.
class luAvailableTimeZone : public luTimeZone {
  public:
    ~luAvailableTimeZone() override;
    Impl* make() const override = 0;
};

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_LU_TIME_ZONE_H

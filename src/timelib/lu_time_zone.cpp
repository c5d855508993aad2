// The zone handles of the host's zone and of UTC.
#include "kai18n/timelib/lu_time_zone.h"

#include <new>

#include "timelib/shared_handles.h"

namespace TimeLib {

namespace {

// The default zone of the process, cloned under the zone lock.
class LocalHostTimeZone : public luTimeZone {
  public:
    Impl* make() const override { return TimeZone::createDefault(); }
};

class UtcTimeZone : public luTimeZone {
  public:
    Impl* make() const override {
        return TimeZone::GMT != nullptr ? TimeZone::GMT->clone() : nullptr;
    }
};

}  // namespace

luTimeZone::~luTimeZone() = default;
luAvailableTimeZone::~luAvailableTimeZone() = default;

luTimeZone* luTimeZone::localHost_ = nullptr;
luTimeZone* luTimeZone::utc_ = nullptr;

void CreateSharedZoneHandles() {
    luTimeZone::localHost_ = new (std::nothrow) LocalHostTimeZone;
    luTimeZone::utc_ = new (std::nothrow) UtcTimeZone;
}

void DeleteSharedZoneHandles() {
    delete luTimeZone::localHost_;
    luTimeZone::localHost_ = nullptr;
    delete luTimeZone::utc_;
    luTimeZone::utc_ = nullptr;
}

}  // namespace TimeLib

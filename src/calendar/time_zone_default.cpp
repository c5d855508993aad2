// The default zone of the process: the host's zone, read once on first use,
// or whatever a caller sets in its place.
#include "calendar/local_time_zone.h"
#include "calendar/zone_lock.h"
#include "kai18n/calendar/time_zone.h"

std::atomic<TimeZone*> TimeZone::fgDefaultZone{nullptr};

void TimeZone::initDefault() {
    // The first read is unlocked: once made, the pointer changes only under
    // the lock, and a reader that sees null takes the lock and looks again.
    if (fgDefaultZone.load(std::memory_order_acquire) != nullptr) return;
    TimeZoneLockGuard lock;
    if (fgDefaultZone.load(std::memory_order_relaxed) != nullptr) return;
    TimeZone* host = nullptr;
    InitLocalTimeZone(&host);
    fgDefaultZone.store(host, std::memory_order_release);
}

TimeZone* TimeZone::createDefault() {
    initDefault();
    TimeZoneLockGuard lock;
    const TimeZone* zone = fgDefaultZone.load(std::memory_order_relaxed);
    return zone != nullptr ? zone->clone() : nullptr;
}

void TimeZone::adoptDefault(TimeZone* zone) {
    if (zone == nullptr) return;
    TimeZone* old;
    {
        TimeZoneLockGuard lock;
        old = fgDefaultZone.exchange(zone, std::memory_order_acq_rel);
    }
    delete old;
}

void TimeZone::setDefault(const TimeZone& zone) {
    adoptDefault(zone.clone());
}

// The zone lock: the one lock of the calendar engine.
//
// ICUTimeZoneInitExit makes the lock with its first count and destroys it
// with its last. It guards the process-wide zone state that is built or
// swapped after start-up (the default zone, the table of identifiers); zone
// objects themselves are never locked, each caller works on its own clone.
// The lock is re-entrant on one thread.
#ifndef KAI18N_CALENDAR_ZONE_LOCK_H
#define KAI18N_CALENDAR_ZONE_LOCK_H

#include "platform/os_thread_toolkit.h"

/// The lock while ICUTimeZoneInitExit is up, null before, after, and when the
/// lock could not be made.
os_critical_section* TimeZoneLock();

/// Holds the zone lock for its lifetime. Without a lock (the guard is down, or
/// start-up ran out of memory) it holds nothing: then there is no zone state to
/// guard either, and failing loudly inside a query would help nobody.
class TimeZoneLockGuard {
  public:
    TimeZoneLockGuard() : m_lock(TimeZoneLock()) {
        if (m_lock != nullptr) m_lock->lock();
    }
    ~TimeZoneLockGuard() {
        if (m_lock != nullptr) m_lock->unlock();
    }

    TimeZoneLockGuard(const TimeZoneLockGuard&) = delete;
    TimeZoneLockGuard& operator=(const TimeZoneLockGuard&) = delete;

  private:
    os_critical_section* m_lock;
};

#endif  // KAI18N_CALENDAR_ZONE_LOCK_H

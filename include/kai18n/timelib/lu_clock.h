// luClock: where the current instant comes from.
#ifndef KAI18N_TIMELIB_LU_CLOCK_H
#define KAI18N_TIMELIB_LU_CLOCK_H

#include "kai18n/timelib/lu_physical_time.h"
#include "kai18n/timelib/timelib_init_exit.h"

namespace TimeLib {

struct luClock {
    virtual ~luClock();
    /// The current instant.
    virtual luPhysicalTime now() const = 0;

    /// The machine's clock: UTC with millisecond resolution. Its readings are
    /// not monotonic: they follow the system clock, and as the seconds and
    /// the milliseconds are read apart, a reading taken as the second turns
    /// over may lie up to a second early. Up while ClockInitExit is.
    static const luClock& localHost() { return *localHost_; }
    static luClock* localHost_;
};

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_LU_CLOCK_H

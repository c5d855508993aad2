// The counting start-up guards of the time library.
//
// Each brings its service up with its first instance and down with its last
// (see kaInitExitCounter). The library holds one instance of each, in this
// order, before any of its other static objects:
//   PhysicalTimeInitExit, ICUTimeZoneInitExit, CalendarTimeInitExit,
//   ClockInitExit, FmtLibInitExit, VeloraCalendarInitExit,
//   PredefinedTimeZonesInitExit.
// A client's compilation unit that uses a service from its own static objects
// defines a file-static instance of the guard too, so that the service
// outlives them during unload.
#ifndef KAI18N_TIMELIB_TIMELIB_INIT_EXIT_H
#define KAI18N_TIMELIB_TIMELIB_INIT_EXIT_H

#include "kai18n/frame/init_exit.h"

namespace TimeLib {

/// The constants of luDuration and luPhysicalTime.
class PhysicalTimeInitExit : public kaInitExitCounter<PhysicalTimeInitExit> {
  public:
    static int count;
    static void init();
    static void exit();
};

/// The field keys and the shared zone and calendar handles: localHost(),
/// utc(), luCalendar::gregorian(), luAvailableCalendar::gregorian(). Holds a
/// count of ICUTimeZoneInitExit while up.
class CalendarTimeInitExit : public kaInitExitCounter<CalendarTimeInitExit> {
  public:
    static int count;
    static void init();
    static void exit();
};

/// The local host clock. Holds a count of CalendarTimeInitExit while up.
class ClockInitExit : public kaInitExitCounter<ClockInitExit> {
  public:
    static int count;
    static void init();
    static void exit();
};

/// The luVeloraCalendar handle.
class VeloraCalendarInitExit : public kaInitExitCounter<VeloraCalendarInitExit> {
  public:
    static int count;
    static void init();
    static void exit();
};

/// The zone index and the time belt of the predefined zones.
class PredefinedTimeZonesInitExit : public kaInitExitCounter<PredefinedTimeZonesInitExit> {
  public:
    static int count;
    static void init();
    static void exit();
};

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_TIMELIB_INIT_EXIT_H

// CalendarTimeInitExit: the zone state below and the shared handles above.
#include <new>

#include "kai18n/calendar/time_zone.h"
#include "kai18n/timelib/timelib_init_exit.h"
#include "timelib/shared_handles.h"

namespace TimeLib {

namespace {
ICUTimeZoneInitExit* s_zoneStateCount = nullptr;
}  // namespace

int CalendarTimeInitExit::count = 0;

// The field keys are constants fixed at compile time: nothing to number here.
void CalendarTimeInitExit::init() {
    s_zoneStateCount = new (std::nothrow) ICUTimeZoneInitExit;
    CreateSharedZoneHandles();
    CreateSharedCalendarHandles();
    kaNoteServiceStart("CalendarTimeInitExit");
}

void CalendarTimeInitExit::exit() {
    DeleteSharedCalendarHandles();
    DeleteSharedZoneHandles();
    delete s_zoneStateCount;
    s_zoneStateCount = nullptr;
}

}  // namespace TimeLib

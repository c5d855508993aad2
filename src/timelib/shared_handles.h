// The shared zone and calendar handles that CalendarTimeInitExit makes.
#ifndef KAI18N_TIMELIB_SHARED_HANDLES_H
#define KAI18N_TIMELIB_SHARED_HANDLES_H

namespace TimeLib {

/// luTimeZone::localHost_ and luTimeZone::utc_; a handle that cannot be
/// made stays null.
void CreateSharedZoneHandles();
void DeleteSharedZoneHandles();

/// luCalendar::gregorian_ and luAvailableCalendar::gregorian_.
void CreateSharedCalendarHandles();
void DeleteSharedCalendarHandles();

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_SHARED_HANDLES_H

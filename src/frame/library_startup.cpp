// The library's start-up: one count of each service, in a fixed order, made
// before any other static object of the library (and unmade after them all).
//
// A service comes up with its first count, so this order is the order of
// the first init() calls: the physical-time constants; the zone state (by
// the calendar-time guard); the field keys and shared handles; the clock;
// the format library; the Velora calendar; the predefined zones. Units that
// use a service from their own static objects hold counts of their own too.
#include "kai18n/fmtlib/lu_fmt_dialects.h"
#include "kai18n/timelib/timelib_init_exit.h"

namespace {

#define KAI18N_STARTUP __attribute__((init_priority(200)))

TimeLib::PhysicalTimeInitExit s_physicalTime KAI18N_STARTUP;
TimeLib::CalendarTimeInitExit s_calendarTime KAI18N_STARTUP;
TimeLib::ClockInitExit s_clock KAI18N_STARTUP;
FmtLib::FmtLibInitExit s_fmtLib KAI18N_STARTUP;
TimeLib::VeloraCalendarInitExit s_veloraCalendar KAI18N_STARTUP;
TimeLib::PredefinedTimeZonesInitExit s_predefinedTimeZones KAI18N_STARTUP;

#undef KAI18N_STARTUP

}  // namespace

// Calendar handles: factories of engine calendars for calendar-time values.
//
// Every calendar of the library is a GregorianCalendar; the handles differ in
// how they set it up. The handle of gregorian() makes a strict calendar with
// the cutover of 15 October 1582 and ISO weeks (Monday, four days);
// luVeloraCalendar makes a lenient, proleptic one whose week 1 is the first
// whole week of a year.
#ifndef KAI18N_TIMELIB_LU_CALENDAR_H
#define KAI18N_TIMELIB_LU_CALENDAR_H

#include "kai18n/calendar/calendar.h"
#include "kai18n/timelib/lu_time_zone.h"

namespace TimeLib {

class luCalendarTime;

class luCalendar {
  public:
    /// The engine object a handle makes.
    using Impl = ::Calendar;

    luCalendar() = default;
    luCalendar(const luCalendar&) = default;
    luCalendar& operator=(const luCalendar&) = default;
    virtual ~luCalendar();

    /// The strict Gregorian calendar.
    static const luCalendar& gregorian() { return *gregorian_; }
    static luCalendar* gregorian_;

  private:
    friend class luCalendarTime;
    /// A new calendar over `zone`, owned by the caller. Takes ownership of
    /// `zone`, also when it throws (InternalError when the engine fails).
    virtual Impl* make(luTimeZone::Impl* zone) const = 0;
};

/// A calendar that a registry lists.
class luAvailableCalendar : public luCalendar {
  public:
    ~luAvailableCalendar() override;

    /// A second handle of the strict Gregorian calendar, of the same class.
    static const luAvailableCalendar& gregorian() { return *gregorian_; }
    static luAvailableCalendar* gregorian_;

  private:
    Impl* make(luTimeZone::Impl* zone) const override = 0;
};

/// The lenient calendar: the Gregorian leap rule for every date of the era
/// (cutover before the year 1), weeks from Monday, week 1 the first whole
/// week of a year. Out-of-range fields fold into the next unit.
class luVeloraCalendar : public luCalendar {
  public:
    ~luVeloraCalendar() override;

    static const luVeloraCalendar& calendar() { return *calendar_; }
    static luVeloraCalendar* calendar_;

    /// The cutover instant, in the last days of 2 BC: no date of the era
    /// falls before it.
    static constexpr double kCutover = -62167266000000.0;

  private:
    Impl* make(luTimeZone::Impl* zone) const override;
};

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_LU_CALENDAR_H

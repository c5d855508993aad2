// luCalendarTime: an instant seen through one calendar and one zone.
//
// A value owns one engine Calendar (which owns its TimeZone), made by the
// handles it is built on. Every write is checked at once: the instant and
// all fields are recomputed, and a write the calendar refuses throws
// IncorrectData and leaves the value at the instant it held before. Between
// operations time and fields are therefore both up to date, and a read is a
// field look-up. Reads whose engine status fails throw InternalError.
//
// A value has no lock; even its const reads fill the calendar's cache, so
// one value serves one thread at a time. Distinct values share nothing.
#ifndef KAI18N_TIMELIB_LU_CALENDAR_TIME_H
#define KAI18N_TIMELIB_LU_CALENDAR_TIME_H

#include <iosfwd>

#include "kai18n/calendar/calendar.h"
#include "kai18n/strings/ucs2string.h"
#include "kai18n/timelib/lu_calendar.h"
#include "kai18n/timelib/lu_field.h"
#include "kai18n/timelib/lu_physical_time.h"
#include "kai18n/timelib/lu_time_zone.h"
#include "kai18n/timelib/timelib_init_exit.h"

namespace TimeLib {

class luCalendarTime {
  public:
    /// The engine calendar a value owns.
    using Impl = ::Calendar;

    /// One field of a value: reads like get(), assigns like set().
    class FieldRef {
      public:
        FieldRef(luCalendarTime* time, const luField& field) : m_time(time), m_field(field) {}
        operator int() const { return m_time->get(m_field); }
        FieldRef& operator=(int value) {
            m_time->set(m_field, value);
            return *this;
        }
        FieldRef& operator=(const FieldRef& other) { return *this = static_cast<int>(other); }

      private:
        luCalendarTime* m_time;
        luField m_field;
    };

    /// The instant of a value: reads like physicalTime(), assigns like reset().
    template <class Time>
    class PhysicalTimeRef {
      public:
        explicit PhysicalTimeRef(Time* time) : m_time(time) {}
        operator luPhysicalTime() const { return static_cast<const Time*>(m_time)->physicalTime(); }
        PhysicalTimeRef& operator=(const luPhysicalTime& when) {
            m_time->reset(when);
            return *this;
        }
        PhysicalTimeRef& operator=(const PhysicalTimeRef& other) {
            return *this = static_cast<luPhysicalTime>(other);
        }

      private:
        Time* m_time;
    };

    /// diff(when) waiting for its field: `t.diff(when)[Month]` moves `t` and
    /// gives the count, as diff(when, Month).
    class Diff_type {
      public:
        Diff_type(luCalendarTime* time, const luPhysicalTime& when) : m_time(time), m_when(when) {}
        int operator[](const luField& field) const { return m_time->diff(m_when, field); }

      private:
        luCalendarTime* m_time;
        luPhysicalTime m_when;
    };

    // ---- construction: the zone is made first, then the calendar over it.

    /// A value at the epoch.
    explicit luCalendarTime(const luTimeZone& zone = luTimeZone::localHost(),
                            const luCalendar& calendar = luCalendar::gregorian());
    luCalendarTime(const luPhysicalTime& when, const luTimeZone& zone,
                   const luCalendar& calendar = luCalendar::gregorian());
    /// A value built from `fields` alone, as reset(fields).
    luCalendarTime(const luFields& fields, const luTimeZone& zone,
                   const luCalendar& calendar = luCalendar::gregorian());
    luCalendarTime(const luCalendarTime& other);
    /// Clones the other's calendar first: a failure leaves this value intact.
    luCalendarTime& operator=(const luCalendarTime& other);
    ~luCalendarTime();
    /// Exchanges the two calendars; nothing is copied.
    void swap(luCalendarTime& other) noexcept;

    // ---- reading

    int get(const luField& field) const {
        UErrorCode status = UErrorNone;
        const int value = m_impl->get(EngineField(field.value()), status);
        if (U_FAILURE(status)) ThrowReadError("get (luField)");
        return value;
    }
    int get(const luROField& field) const {
        UErrorCode status = UErrorNone;
        const int value = m_impl->get(EngineField(field.value()), status);
        if (U_FAILURE(status)) ThrowReadError("get (luROField)");
        return value;
    }
    int operator[](const luField& field) const { return get(field); }
    int operator[](const luROField& field) const { return get(field); }

    int era() const { return get(Era); }
    int year() const { return get(Year); }
    int month() const { return get(Month); }
    int week_of_year() const { return get(Week_of_year); }
    int week_of_month() const { return get(Week_of_month); }
    int day_of_month() const { return get(Day_of_month); }
    int day_of_year() const { return get(Day_of_year); }
    int day_of_week() const { return get(Day_of_week); }
    int day_of_week_in_month() const { return get(Day_of_week_in_month); }
    int am_pm() const { return get(Am_pm); }
    int hour() const { return get(Hour); }
    int hour_of_day() const { return get(Hour_of_day); }
    int minute() const { return get(Minute); }
    int second() const { return get(Second); }
    int millisecond() const { return get(Millisecond); }
    int zone_offset() const { return get(Zone_offset); }
    int dst_offset() const { return get(Dst_offset); }
    int year_woy() const { return get(Year_woy); }
    int dow_local() const { return get(Dow_local); }

    luPhysicalTime physicalTime() const;
    /// The smallest and largest values `field` takes at this value's date.
    int minimum(const luField& field) const;
    int maximum(const luField& field) const;
    /// The calendar's fixed limits of `field`.
    int min_minimum(const luField& field) const;
    int max_minimum(const luField& field) const;
    int min_maximum(const luField& field) const;
    int max_maximum(const luField& field) const;
    /// A copy of the zone's identifier.
    ucs2string time_zone_id() const;

    // ---- proxies: nothing is read or written until they are used

    FieldRef operator[](const luField& field) { return FieldRef(this, field); }
    PhysicalTimeRef<luCalendarTime> physicalTime() { return PhysicalTimeRef<luCalendarTime>(this); }
    Diff_type diff(const luPhysicalTime& when) { return Diff_type(this, when); }
    FieldRef era() { return FieldRef(this, Era); }
    FieldRef year() { return FieldRef(this, Year); }
    FieldRef month() { return FieldRef(this, Month); }
    FieldRef week_of_year() { return FieldRef(this, Week_of_year); }
    FieldRef week_of_month() { return FieldRef(this, Week_of_month); }
    FieldRef day_of_month() { return FieldRef(this, Day_of_month); }
    FieldRef day_of_year() { return FieldRef(this, Day_of_year); }
    FieldRef day_of_week() { return FieldRef(this, Day_of_week); }
    FieldRef day_of_week_in_month() { return FieldRef(this, Day_of_week_in_month); }
    FieldRef am_pm() { return FieldRef(this, Am_pm); }
    FieldRef hour() { return FieldRef(this, Hour); }
    FieldRef hour_of_day() { return FieldRef(this, Hour_of_day); }
    FieldRef minute() { return FieldRef(this, Minute); }
    FieldRef second() { return FieldRef(this, Second); }
    FieldRef millisecond() { return FieldRef(this, Millisecond); }
    FieldRef year_woy() { return FieldRef(this, Year_woy); }
    FieldRef dow_local() { return FieldRef(this, Dow_local); }

    // ---- checked writes: each returns *this, or throws IncorrectData and
    // leaves the value where it was.

    luCalendarTime& reset(const luPhysicalTime& when);
    /// Clears every field, then writes `fields`: fields it does not name take
    /// their defaults (1970, January, day 1, midnight).
    luCalendarTime& reset(const luFields& fields);
    /// Writes the fields together; the calendar judges them as one date.
    luCalendarTime& set(const luFields& fields);
    luCalendarTime& set(const luField& field, int value);
    luCalendarTime& clear(const luField& field);
    /// Moves by `amount` of `field`, carrying into larger fields and pinning the day.
    luCalendarTime& add(const luField& field, int amount);
    /// Moves `field` within its range, leaving larger fields alone.
    luCalendarTime& roll(const luField& field, int amount);
    /// Moves the value by whole steps of `field` towards `when`, as far as it
    /// goes without passing it, and sets `count` to the steps (negative when
    /// `when` is earlier).
    luCalendarTime& diff(const luPhysicalTime& when, const luField& field, int& count);
    int diff(const luPhysicalTime& when, const luField& field);

  private:
    /// The zone first, then the calendar over it, which owns the zone from
    /// then on, also when it throws.
    static Impl* Make(const luTimeZone& zone, const luCalendar& calendar);
    /// Gives the new calendar `impl` its first instant; deletes it on failure.
    template <class Assign>
    void Start(Assign assign);
    static Impl::EDateFields EngineField(int value) {
        return static_cast<Impl::EDateFields>(value);
    }
    [[noreturn]] static void ThrowReadError(const char* detail);

    /// Runs `write` on the calendar as a checked write named `detail`.
    template <class Write>
    luCalendarTime& CheckedWrite(const char* detail, Write write);
    /// The value's instant in engine milliseconds; InternalError on failure.
    double Millis() const;

    Impl* m_impl;
};

// Comparison by instant alone; calendars and zones may differ.
bool operator==(const luCalendarTime& a, const luCalendarTime& b);
bool operator<(const luCalendarTime& a, const luCalendarTime& b);
inline bool operator!=(const luCalendarTime& a, const luCalendarTime& b) {
    return !(a == b);
}
inline bool operator>(const luCalendarTime& a, const luCalendarTime& b) {
    return b < a;
}
inline bool operator<=(const luCalendarTime& a, const luCalendarTime& b) {
    return !(b < a);
}
inline bool operator>=(const luCalendarTime& a, const luCalendarTime& b) {
    return !(a < b);
}

/// Writes year/month/day::hour:minute:seconds, such as "2005/3/14::12:5:7.25";
/// months from 1, no padding, no era.
std::ostream& operator<<(std::ostream& os, const luCalendarTime& time);

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_LU_CALENDAR_TIME_H

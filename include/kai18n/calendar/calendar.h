// Calendar: converts between one instant and nineteen date fields under one
// owned TimeZone.
//
// The instant is a double count of milliseconds since 1970-01-01 00:00:00 UTC.
// A calendar keeps both forms with validity flags and converts lazily: a
// written field invalidates the time, a new time invalidates the fields.
// Each field written by a caller gets a stamp from a running counter, and the
// concrete calendar resolves conflicting fields by those stamps; fields that
// the calendar computed itself carry stamp 1 and lose to every written field.
//
// A calendar has no lock and serves one thread at a time, also through its
// const operations, which fill the cached form.
#ifndef KAI18N_CALENDAR_CALENDAR_H
#define KAI18N_CALENDAR_CALENDAR_H

#include <cstdint>

#include "kai18n/calendar/time_zone.h"
#include "kai18n/calendar/uerror.h"

class Calendar {
  public:
    enum EDateFields {
        ERA,                   // 0 before Christ, 1 after
        YEAR,                  // year of the era
        MONTH,                 // 0 = January
        WEEK_OF_YEAR,          // 1 to 53
        WEEK_OF_MONTH,         // 0 to 6
        DAY_OF_MONTH,          // 1 to 31
        DAY_OF_YEAR,           // 1 to 366
        DAY_OF_WEEK,           // 1 = Sunday
        DAY_OF_WEEK_IN_MONTH,  // ordinal of the weekday in the month; negative from its end
        AM_PM,                 // 0 morning, 1 afternoon
        HOUR,                  // 0 to 11
        HOUR_OF_DAY,           // 0 to 23
        MINUTE,
        SECOND,
        MILLISECOND,
        ZONE_OFFSET,  // raw zone offset, milliseconds
        DST_OFFSET,   // daylight offset, milliseconds
        YEAR_WOY,     // the year to which WEEK_OF_YEAR belongs
        DOW_LOCAL     // weekday counted from the first day of the week, 1 to 7
    };
    static const int kFieldCount = 19;

    enum EDaysOfWeek {
        SUNDAY = 1,
        MONDAY = 2,
        TUESDAY = 3,
        WEDNESDAY = 4,
        THURSDAY = 5,
        FRIDAY = 6,
        SATURDAY = 7
    };

    /// A new GregorianCalendar that adopts `zone`, or null: with a failing
    /// status, or no memory (status 7), `zone` is deleted.
    static Calendar* createInstance(TimeZone* zone, UErrorCode& status);
    /// The same on a clone of `zone`; nothing is created on a failing status.
    static Calendar* createInstance(const TimeZone& zone, UErrorCode& status);

    virtual ~Calendar();
    virtual Calendar* clone() const = 0;
    /// Same class, same instant, leniency, week data and zone.
    virtual bool operator==(const Calendar& that) const;
    /// operator== without the instant.
    virtual bool equivalentTo(const Calendar& other) const;
    virtual void add(EDateFields field, std::int32_t amount, UErrorCode& status) = 0;
    virtual void roll(EDateFields field, std::int32_t amount, UErrorCode& status) = 0;
    /// Steps by `field` towards `when`, one whole step at a time, and returns
    /// the count of steps that did not pass it; the calendar ends on the last
    /// of them.
    virtual std::int32_t fieldDifference(double when, EDateFields field, UErrorCode& status);
    virtual bool inDaylightTime(UErrorCode& status) const = 0;
    virtual std::int32_t getMinimum(EDateFields field) const = 0;
    virtual std::int32_t getMaximum(EDateFields field) const = 0;
    virtual std::int32_t getGreatestMinimum(EDateFields field) const = 0;
    virtual std::int32_t getLeastMaximum(EDateFields field) const = 0;
    virtual UClassID getDynamicClassID() const = 0;

    bool operator!=(const Calendar& that) const { return !operator==(that); }

    /// roll by +1 or -1.
    void roll(EDateFields field, bool up, UErrorCode& status);

    // The zone, owned.
    /// Null is ignored; the instant stays and the fields follow the new zone.
    void adoptTimeZone(TimeZone* zone);
    void setTimeZone(const TimeZone& zone);
    const TimeZone& getTimeZone() const { return *zone; }

    // Reading. A failed status reads as 0; the status tells the failure.
    std::int32_t get(EDateFields field, UErrorCode& status) const {
        // Inline while time and fields are both up to date: a read is then a load.
        if (U_SUCCESS(status) && static_cast<unsigned int>(field) < kFieldCount && timeIsValid &&
            fieldsAreValid)
            return fields[field];
        return completeAndGet(field, status);
    }
    double getTimeInMillis(UErrorCode& status) const;
    double getTime(UErrorCode& status) const { return getTimeInMillis(status); }
    bool isSet(EDateFields field) const { return stamps[field] != kUnset; }

    // Writing. set() checks no range; the next computation of the time does.
    void set(EDateFields field, std::int32_t value);
    void set(std::int32_t year, std::int32_t month, std::int32_t date);
    void set(std::int32_t year, std::int32_t month, std::int32_t date, std::int32_t hour,
             std::int32_t minute);
    void set(std::int32_t year, std::int32_t month, std::int32_t date, std::int32_t hour,
             std::int32_t minute, std::int32_t second);
    void clear();
    void clear(EDateFields field);
    void setTimeInMillis(double millis, UErrorCode& status);
    void setTime(double date, UErrorCode& status) { setTimeInMillis(date, status); }

    void setLenient(bool isLenient) { lenient = isLenient; }
    bool isLenient() const { return lenient; }
    void setFirstDayOfWeek(EDaysOfWeek value) { firstDayOfWeek = value; }
    EDaysOfWeek getFirstDayOfWeek() const { return firstDayOfWeek; }
    void setMinimalDaysInFirstWeek(std::uint8_t value) { minimalDaysInFirstWeek = value; }
    std::uint8_t getMinimalDaysInFirstWeek() const { return minimalDaysInFirstWeek; }

    // Comparison of instants; with the calendar itself nothing is computed.
    bool equals(const Calendar& when, UErrorCode& status) const;
    bool before(const Calendar& when, UErrorCode& status) const;
    bool after(const Calendar& when, UErrorCode& status) const;

    /// The smallest value of `field` that survives in a lenient clone.
    std::int32_t getActualMinimum(EDateFields field, UErrorCode& status) const;
    /// The largest value of `field` that survives in a lenient clone.
    std::int32_t getActualMaximum(EDateFields field, UErrorCode& status) const;

    /// The current time in whole seconds, as milliseconds.
    static double getNow();

    static UClassID getStaticClassID() { return &fgClassID; }
    static char fgClassID;

  protected:
    // Stamps: unset, computed by the calendar, and the first stamp of a write.
    static const std::int32_t kUnset = 0;
    static const std::int32_t kInternallySet = 1;
    static const std::int32_t kMinimumUserStamp = 2;

    /// Adopts `zone`; null sets status 1 and stops at once.
    Calendar(TimeZone* zone, UErrorCode& status);
    /// Clones `zone`.
    Calendar(const TimeZone& zone, UErrorCode& status);
    Calendar(const Calendar& source);
    Calendar& operator=(const Calendar& right);

    virtual void computeTime(UErrorCode& status) = 0;
    virtual void computeFields(UErrorCode& status) = 0;

    /// Computes the time from the fields, then invalidates the fields of a
    /// lenient calendar or of one whose fields were not all computed.
    void updateTime(UErrorCode& status);
    /// Brings time and fields up to date. Tolerates a failing status: the
    /// fields are then marked valid without being computed.
    void complete(UErrorCode& status);

    std::int32_t internalGet(EDateFields field) const { return fields[field]; }
    double internalGetTime() const { return time; }
    void internalSet(EDateFields field, std::int32_t value) { fields[field] = value; }
    void internalSetTime(double t) { time = t; }
    std::int32_t getStamp(EDateFields field) const { return stamps[field]; }
    /// Marks every field computed: stamp 1 and set.
    void setAllFieldsComputed();
    void setWeekCountData();
    /// get() when the status fails, the field is unknown or a conversion is due.
    std::int32_t completeAndGet(EDateFields field, UErrorCode& status) const;

    bool timeIsValid = false;
    bool fieldsAreValid = false;
    bool allFieldsAreValid = false;
    std::int32_t fields[kFieldCount] = {};
    bool fieldIsSet[kFieldCount] = {};
    std::int32_t stamps[kFieldCount] = {};
    std::int32_t nextStamp = kMinimumUserStamp;
    double time = 0.0;
    bool lenient = true;
    TimeZone* zone = nullptr;
    EDaysOfWeek firstDayOfWeek = MONDAY;
    std::uint8_t minimalDaysInFirstWeek = 4;
};

#endif  // KAI18N_CALENDAR_CALENDAR_H

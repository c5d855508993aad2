// SimpleTimeZone: a raw offset and at most one yearly pair of daylight rules.
//
// A rule is given as a month (0 = January), a day code, a weekday code, a
// time of day in milliseconds and a time mode, and is decoded once into a
// normal form (EMode). The day code and weekday code read:
//
//   day        dayOfWeek   rule
//   not 0      0           that day of the month
//   n, not 0   positive    the n-th such weekday; counted from the end when n < 0
//   positive   negative    the first such weekday on or after that day
//   negative   negative    the last such weekday on or before that day
//
// A day of 0 means the rule is absent. Weekdays run from 1 (Sunday) to 7.
// Daylight time is used only when both rules are present.
#ifndef KAI18N_CALENDAR_SIMPLE_TIME_ZONE_H
#define KAI18N_CALENDAR_SIMPLE_TIME_ZONE_H

#include <cstdint>

#include "kai18n/calendar/time_zone.h"

/// A zone record with daylight rules; times and the saving in minutes.
struct DSTZone {
    std::int32_t rawOffset;  // milliseconds
    std::uint16_t dstSavings;
    std::int8_t startMonth;
    std::int8_t startDay;
    std::int8_t startDayOfWeek;
    std::uint16_t startTime;
    std::int8_t startTimeMode;
    std::int8_t endMonth;
    std::int8_t endDay;
    std::int8_t endDayOfWeek;
    std::uint16_t endTime;
    std::int8_t endTimeMode;
};

/// A zone record without daylight time.
struct StandardZone {
    std::int32_t rawOffset;  // milliseconds
};

class SimpleTimeZone : public TimeZone {
  public:
    /// How a rule's time of day is read.
    enum TimeMode {
        /// Local wall time: standard time for the start rule, daylight time for the end rule.
        WALL_TIME = 0,
        STANDARD_TIME = 1,
        UTC_TIME = 2
    };
    /// The normal form of a rule's day.
    enum EMode { DOM_MODE = 1, DOW_IN_MONTH_MODE = 2, DOW_GE_DOM_MODE = 3, DOW_LE_DOM_MODE = 4 };

    /// No rules; the saving is one hour should rules be set later.
    SimpleTimeZone(std::int32_t rawOffset, const ucs2string& id);
    /// Wall-time rules with a saving of one hour.
    SimpleTimeZone(std::int32_t rawOffset, const ucs2string& id, std::int8_t startMonth,
                   std::int8_t startDay, std::int8_t startDayOfWeek, std::int32_t startTime,
                   std::int8_t endMonth, std::int8_t endDay, std::int8_t endDayOfWeek,
                   std::int32_t endTime, UErrorCode& status);
    /// Wall-time rules; a saving of 0 or less sets status 1 after all is stored.
    SimpleTimeZone(std::int32_t rawOffset, const ucs2string& id, std::int8_t startMonth,
                   std::int8_t startDay, std::int8_t startDayOfWeek, std::int32_t startTime,
                   std::int8_t endMonth, std::int8_t endDay, std::int8_t endDayOfWeek,
                   std::int32_t endTime, std::int32_t dstSavings, UErrorCode& status);
    /// Rules with their time modes.
    SimpleTimeZone(std::int32_t rawOffset, const ucs2string& id, std::int8_t startMonth,
                   std::int8_t startDay, std::int8_t startDayOfWeek, std::int32_t startTime,
                   TimeMode startTimeMode, std::int8_t endMonth, std::int8_t endDay,
                   std::int8_t endDayOfWeek, std::int32_t endTime, TimeMode endTimeMode,
                   std::int32_t dstSavings, UErrorCode& status);
    SimpleTimeZone(const StandardZone& record, const ucs2string& id);
    SimpleTimeZone(const DSTZone& record, const ucs2string& id);
    SimpleTimeZone(const SimpleTimeZone& other);
    SimpleTimeZone& operator=(const SimpleTimeZone& other);
    ~SimpleTimeZone() override;

    // Rules. Each stores its side and decodes it; arguments are truncated to
    // their 8-bit fields. The forms without a TimeMode read wall time.
    void setStartYear(std::int32_t year);
    void setStartRule(std::int32_t month, std::int32_t dayOfWeekInMonth, std::int32_t dayOfWeek,
                      std::int32_t time, TimeMode mode, UErrorCode& status);
    void setStartRule(std::int32_t month, std::int32_t dayOfWeekInMonth, std::int32_t dayOfWeek,
                      std::int32_t time, UErrorCode& status);
    void setStartRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t time, TimeMode mode,
                      UErrorCode& status);
    void setStartRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t time,
                      UErrorCode& status);
    void setStartRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t dayOfWeek,
                      std::int32_t time, TimeMode mode, bool after, UErrorCode& status);
    void setStartRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t dayOfWeek,
                      std::int32_t time, bool after, UErrorCode& status);
    void setEndRule(std::int32_t month, std::int32_t dayOfWeekInMonth, std::int32_t dayOfWeek,
                    std::int32_t time, TimeMode mode, UErrorCode& status);
    void setEndRule(std::int32_t month, std::int32_t dayOfWeekInMonth, std::int32_t dayOfWeek,
                    std::int32_t time, UErrorCode& status);
    void setEndRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t time, TimeMode mode,
                    UErrorCode& status);
    void setEndRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t time,
                    UErrorCode& status);
    void setEndRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t dayOfWeek,
                    std::int32_t time, TimeMode mode, bool after, UErrorCode& status);
    void setEndRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t dayOfWeek,
                    std::int32_t time, bool after, UErrorCode& status);

    void setDSTSavings(std::int32_t millisSavedDuringDST);
    /// Stores the value; status 1 when it is 0 or negative.
    void setDSTSavings(std::int32_t millisSavedDuringDST, UErrorCode& status);
    std::int32_t getDSTSavings() const { return dstSavings; }

    // TimeZone
    bool operator==(const TimeZone& other) const override;
    std::int32_t getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                           std::int32_t day, std::uint8_t dayOfWeek, std::int32_t millis,
                           std::int32_t monthLength, UErrorCode& status) const override;
    std::int32_t getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                           std::int32_t day, std::uint8_t dayOfWeek,
                           std::int32_t millis) const override;
    std::int32_t getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                           std::int32_t day, std::uint8_t dayOfWeek, std::int32_t millis,
                           UErrorCode& status) const override;
    void setRawOffset(std::int32_t offsetMillis) override { rawOffset = offsetMillis; }
    std::int32_t getRawOffset() const override { return rawOffset; }
    bool useDaylightTime() const override { return useDaylight; }
    /// Builds a Gregorian calendar on a clone of this zone for each call.
    bool inDaylightTime(double date, UErrorCode& status) const override;
    bool hasSameRules(const TimeZone& other) const override;
    TimeZone* clone() const override;
    UClassID getDynamicClassID() const override { return getStaticClassID(); }
    static UClassID getStaticClassID() { return &fgClassID; }
    static char fgClassID;

    /// The full form: the offset of local standard time `millis` into the
    /// given day, with the lengths of its month and of the month before.
    virtual std::int32_t getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                                   std::int32_t day, std::uint8_t dayOfWeek, std::int32_t millis,
                                   std::int32_t monthLength, std::int32_t prevMonthLength,
                                   UErrorCode& status) const;

    /// Month lengths with a February of 28 days, for validation and for the
    /// short getOffset forms.
    static const std::int8_t staticMonthLength[12];

  private:
    void construct(std::int32_t rawOffset, std::int8_t startMonth, std::int8_t startDay,
                   std::int8_t startDayOfWeek, std::int32_t startTime, TimeMode startTimeMode,
                   std::int8_t endMonth, std::int8_t endDay, std::int8_t endDayOfWeek,
                   std::int32_t endTime, TimeMode endTimeMode, std::int32_t dstSavings,
                   UErrorCode& status);
    void decodeRules(UErrorCode& status);
    void decodeStartRule(UErrorCode& status);
    void decodeEndRule(UErrorCode& status);
    /// Negative, 0 or positive as the date lies before, at or after the rule.
    static std::int32_t compareToRule(std::int8_t month, std::int8_t monthLen,
                                      std::int8_t prevMonthLen, std::int8_t dayOfMonth,
                                      std::int8_t dayOfWeek, std::int32_t millis,
                                      std::int32_t millisDelta, EMode ruleMode,
                                      std::int8_t ruleMonth, std::int8_t ruleDayOfWeek,
                                      std::int8_t ruleDay, std::int32_t ruleMillis);

    std::int8_t startMonth;
    std::int8_t startDay;
    std::int8_t startDayOfWeek;
    std::int32_t startTime;
    TimeMode startTimeMode;
    TimeMode endTimeMode;
    std::int8_t endMonth;
    std::int8_t endDay;
    std::int8_t endDayOfWeek;
    std::int32_t endTime;
    std::int32_t startYear;
    std::int32_t rawOffset;
    bool useDaylight;
    EMode startMode;
    EMode endMode;
    std::int32_t dstSavings;
};

#endif  // KAI18N_CALENDAR_SIMPLE_TIME_ZONE_H

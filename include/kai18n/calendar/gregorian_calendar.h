// GregorianCalendar: the Julian calendar before a cutover instant, the
// Gregorian calendar from it on (by default 15 October 1582).
//
// Years in the fields are years of an era: era 1 counts 1, 2, ... after
// Christ, era 0 counts 1, 2, ... backwards before. Internally years run on
// one continuous numbering where 1 BC is 0. Day arithmetic uses Julian day
// numbers held in doubles and double milliseconds.
#ifndef KAI18N_CALENDAR_GREGORIAN_CALENDAR_H
#define KAI18N_CALENDAR_GREGORIAN_CALENDAR_H

#include <cstdint>

#include "kai18n/calendar/calendar.h"

class GregorianCalendar : public Calendar {
  public:
    static const std::int32_t kEpochStartAsJulianDay = 2440588;  // 1970-01-01
    /// The Julian day number from which the Gregorian 400-year cycles count.
    static const std::int32_t kJan1_1JulianDay = 1721426;
    static const std::int32_t kEpochYear = 1970;
    static const std::int32_t kOneSecond = 1000;
    static const std::int32_t kOneMinute = 60000;
    static const std::int32_t kOneHour = 3600000;
    static constexpr double kOneDay = 86400000.0;
    static constexpr double kOneWeek = 604800000.0;
    /// 1582-10-15 00:00:00 UTC.
    static constexpr double kPapalCutover = -12219292800000.0;
    /// Declared bounds of the instant; nothing clamps to them.
    static constexpr double EARLIEST_SUPPORTED_MILLIS = -4503599627370495.0;
    static constexpr double LATEST_SUPPORTED_MILLIS = 4503599627370495.0;

    /// Days before each month, common and leap year.
    static const std::int32_t kNumDays[12];
    static const std::int32_t kLeapNumDays[12];
    static const std::int32_t kMonthLength[12];
    static const std::int32_t kLeapMonthLength[12];
    /// Limits indexed by EDateFields.
    static const std::int32_t kMinValues[kFieldCount];
    static const std::int32_t kLeastMaxValues[kFieldCount];
    static const std::int32_t kMaxValues[kFieldCount];

    /// Adopts `zone`; the calendar holds the current time in whole seconds.
    GregorianCalendar(TimeZone* zone, UErrorCode& status);
    /// Clones `zone`; the calendar holds the current time in whole seconds.
    GregorianCalendar(const TimeZone& zone, UErrorCode& status);
    GregorianCalendar(const GregorianCalendar& source);
    GregorianCalendar& operator=(const GregorianCalendar& right);
    ~GregorianCalendar() override;

    Calendar* clone() const override;
    bool operator==(const Calendar& that) const override;
    bool equivalentTo(const Calendar& other) const override;
    /// Moves by `amount` of `field`, carrying into larger fields.
    void add(EDateFields field, std::int32_t amount, UErrorCode& status) override;
    /// Moves `field` by `amount` within its range, leaving larger fields alone.
    void roll(EDateFields field, std::int32_t amount, UErrorCode& status) override;
    using Calendar::roll;
    bool inDaylightTime(UErrorCode& status) const override;
    std::int32_t getMinimum(EDateFields field) const override;
    std::int32_t getMaximum(EDateFields field) const override;
    std::int32_t getGreatestMinimum(EDateFields field) const override;
    std::int32_t getLeastMaximum(EDateFields field) const override;
    UClassID getDynamicClassID() const override { return getStaticClassID(); }
    static UClassID getStaticClassID() { return &fgClassID; }
    static char fgClassID;

    /// getMinimum(field).
    std::int32_t getActualMinimum(EDateFields field) const;
    /// The largest value of `field` for the calendar's date.
    std::int32_t getActualMaximum(EDateFields field) const;
    using Calendar::getActualMaximum;
    using Calendar::getActualMinimum;

    /// Julian rule before the cutover year, Gregorian from it on; `year` on
    /// the continuous numbering.
    bool isLeapYear(std::int32_t year) const;
    double getGregorianChange() const { return gregorianCutover; }
    /// Moves the cutover to `date`; the calendar's own fields are not recomputed.
    void setGregorianChange(double date, UErrorCode& status);
    /// Days since 1970-01-01 of the local date.
    std::int32_t getEpochDay(UErrorCode& status);

    // Day-number arithmetic.
    static double julianDayToMillis(double julian);
    static double millisToJulianDay(double millis);
    /// 1 = Sunday; Julian day 2440588 is 5, Thursday.
    static std::uint8_t julianDayToDayOfWeek(double julian);
    static double floorDivide(double numerator, double denominator);
    static std::int32_t floorDivide(std::int32_t numerator, std::int32_t denominator);
    static std::int32_t floorDivide(std::int32_t numerator, std::int32_t denominator,
                                    std::int32_t* remainder);
    static std::int32_t floorDivide(double numerator, std::int32_t denominator,
                                    std::int32_t* remainder);
    /// The Julian day number of the last day before 1 January of `year`.
    static double computeJulianDayOfYear(bool isGregorian, std::int32_t year, bool& isLeap);
    /// 0 when either stamp is 0, else the larger.
    static std::int32_t aggregateStamp(std::int32_t stamp_a, std::int32_t stamp_b);

  protected:
    void computeTime(UErrorCode& status) override;
    void computeFields(UErrorCode& status) override;

    std::int32_t monthLength(std::int32_t month, std::int32_t year) const;
    /// For the field YEAR, read as 1 - YEAR when ERA is set and 0.
    std::int32_t monthLength(std::int32_t month) const;
    std::int32_t yearLength(std::int32_t year) const;
    /// For the raw field YEAR.
    std::int32_t yearLength() const;
    void pinDayOfMonth();
    std::int32_t internalGetEra() const;
    bool boundsCheck(std::int32_t value, EDateFields field) const;
    bool validateFields() const;
    double computeJulianDay(bool isGregorian, std::int32_t year);
    std::int32_t computeRelativeDOW(double julianDay) const;
    std::int32_t computeRelativeDOW() const;
    std::int32_t computeDOYfromWOY(double julianDayOfYear) const;
    std::int32_t weekNumber(std::int32_t dayOfPeriod, std::int32_t dayOfWeek) const;
    /// Date fields from local wall milliseconds `theTime`; `quick` stops
    /// after era, year, month, day of month, day of week and day of year.
    void timeToFields(double theTime, bool quick, UErrorCode& status);

  private:
    /// The start of add and roll: false when the status fails, the amount is
    /// 0 or the field is unknown (illegal argument), or the fields cannot be
    /// computed, which leaves no ground to move from.
    bool completeBeforeMove(EDateFields field, std::int32_t amount, UErrorCode& status);

    double gregorianCutover;
    double normalizedGregorianCutover;
    std::int32_t gregorianCutoverYear;
};

#endif  // KAI18N_CALENDAR_GREGORIAN_CALENDAR_H

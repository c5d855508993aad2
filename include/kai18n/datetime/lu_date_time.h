// lu_date_time: a moment on a continuous day count, held as one double.
//
// The value is a Modified Julian Date (MJD): days since 17 November 1858 at
// 00:00, the whole part counting days and the fraction the time of day. The
// Julian Date is MJD + 2400000.5. Dates follow the Julian calendar up to
// 4 October 1582 and the Gregorian calendar from 15 October 1582 on, with no
// days between them. Years are astronomical: the year before 1 is 0, the one
// before that -1. Valid years run from -4712 to 32766.
//
// The type has no time zone and no link to the calendar engine: its
// conversions are its own constant-time formulas. It has a null state, which
// compares below every valid value. Readers do not test for null; on the null
// value they compute from its sentinel.
//
// Times of day are read from the fraction above the floor of the value, so a
// date before 1858 gives back the time that Set put in, as a later one does.
#ifndef KAI18N_DATETIME_LU_DATE_TIME_H
#define KAI18N_DATETIME_LU_DATE_TIME_H

#include <ctime>
#include <iosfwd>

class lu_locale;
class ucs2string;
class ucs2string_formatter;

class lu_date_time {
  public:
    /// Tag of the null constructor: `lu_date_time(nullptr)` is the null value.
    struct null_date_time;

    /// The sentinel of the null value; its bits are 0xC14312D00FBE76C9.
    static constexpr double kNullValue = -2500000.123;
    /// The smallest valid MJD: Julian Date 0, in the year -4712.
    static constexpr double kMinModifiedJulianDate = -2400000.5;
    /// The first MJD past the valid range: 1 January 32767 at 00:00.
    static constexpr double kEndModifiedJulianDate = 11288960.0;
    /// The first Julian Date past the valid range.
    static constexpr double kEndJulianDate = 13688960.5;
    /// Julian Date minus MJD.
    static constexpr double kJulianDateOffset = 2400000.5;
    /// The MJD of 15 October 1582, the first Gregorian day. Computed by Set
    /// while the library loads; a failure there fails the load.
    static const double kGregorianStart;

    static const int kMinYear = -4712;
    static const int kMaxYear = 32766;

    /// MJD 0.0: 17 November 1858 at 00:00. Not null.
    lu_date_time() : m_mjd(0.0) {}
    /// The null value; the pointer is only a tag and is not read.
    explicit lu_date_time(null_date_time*) : m_mjd(kNullValue) {}
    lu_date_time(const lu_date_time&) = default;
    lu_date_time& operator=(const lu_date_time&) = default;
    /// Stores `mjd`, a Modified Julian Date. Throws LUException
    /// LU_E_INVALID_ARG for NaN or a value outside the valid range, unless it
    /// is the null value. Explicit: a double is not silently a date.
    explicit lu_date_time(double mjd);
    /// Set(year, month, day, fraction); a failure throws LUException with its code.
    lu_date_time(int year, int month, double day, double fraction);
    /// Set(year, ..., millisecond); a failure throws LUException with its code.
    lu_date_time(int year, int month, int day, int hour, int minute, int second, int millisecond);

    // Setting. Each returns LU_S_OK, or LU_E_INVALID_ARG and keeps the old value.

    /// `day` + `fraction` is the day of the month with the time of day as a
    /// fraction; its floor must name a valid day of `month` in `year`.
    long Set(int year, int month, double day, double fraction);
    /// Checks the time against its ranges, then Set(year, month, day, fraction)
    /// with the fraction made from the time of day.
    long Set(int year, int month, int day, int hour, int minute, int second, int millisecond);
    /// From the broken-down time: tm_year + 1900, tm_mon + 1, tm_mday and
    /// tm_hour, tm_min, tm_sec (0 to 59: no leap second).
    long Set(const std::tm& time);
    /// A Julian Date, unlike the constructor from a double, which takes an MJD.
    long Set(double julian_date);
    void Set(const lu_date_time& other) { m_mjd = other.m_mjd; }
    void SetNull() { m_mjd = kNullValue; }

    // Reading.

    /// The 64 bits of the value are those of the null value.
    bool IsNull() const;
    /// The MJD.
    operator double() const { return m_mjd; }
    double Day() const { return m_mjd; }
    double JulianDate() const { return m_mjd + kJulianDateOffset; }
    /// The whole span since the MJD epoch in hours, minutes or seconds; not
    /// the time of day.
    double Hour() const { return m_mjd * 24.0; }
    double Minute() const { return m_mjd * 1440.0; }
    double Second() const { return m_mjd * 86400.0; }

    void Ymd(int& year, int& month, int& day) const;
    /// The time of day rounded to the nearest second. Within half a second of
    /// the next midnight the hour is 24: there is no carry into the date.
    void Hms(int& hour, int& minute, int& second) const;
    /// The time of day rounded to the nearest millisecond; hour 24 as for Hms.
    void Hmsms(int& hour, int& minute, int& second, int& millisecond) const;
    int Year() const;
    unsigned int Month() const;
    unsigned int MonthDay() const;
    /// (year * 100 + month) * 100 + day; for a negative year
    /// (year * 100 - month) * 100 - day, so the order of dates is kept.
    long Ymd() const;
    /// The weekday from 0 to 6, counted from `first`: with 0 Monday is 0, with
    /// 6 Sunday is 0.
    unsigned int WeekDay(unsigned int first) const;
    /// 1 on 1 January. The ten days missing in October 1582 are not subtracted.
    unsigned int YearDay() const;
    /// The week that holds 1 January is week 1; a week starts on weekday 0 of `first`.
    unsigned int YearWeek(unsigned int first) const;
    /// On or after 15 October 1582.
    bool IsGregorian() const { return m_mjd >= kGregorianStart; }
    bool IsJulian() const { return !IsGregorian(); }
    /// The broken-down date and time; tm_wday 0 is Sunday, tm_isdst 0.
    void GetTM(std::tm& time) const;

    // Comparison of the doubles as they are: the null value is below every
    // valid value, and two nulls are equal.
    bool operator==(const lu_date_time& other) const { return m_mjd == other.m_mjd; }
    bool operator!=(const lu_date_time& other) const { return m_mjd != other.m_mjd; }
    bool operator<(const lu_date_time& other) const { return m_mjd < other.m_mjd; }
    bool operator<=(const lu_date_time& other) const { return m_mjd <= other.m_mjd; }
    bool operator>(const lu_date_time& other) const { return m_mjd > other.m_mjd; }
    bool operator>=(const lu_date_time& other) const { return m_mjd >= other.m_mjd; }

    // Calendar facts.

    /// Divisible by 4 and, from 1582 on, not by 100 unless by 400. Negative
    /// years divisible by 4 are leap years too.
    static bool IsLeapYear(int year);
    /// 21 for October 1582; 0 for a month outside 1 to 12.
    static int DaysInMonth(int year, int month);
    /// 365 or 366; 355 for 1582.
    static int DaysInYear(int year);
    static bool IsValidMonth(int month) { return month >= 1 && month <= 12; }
    static bool IsValidYear(int year) { return year >= kMinYear && year <= kMaxYear; }
    static bool IsValidTime(int hour, int minute, int second, int millisecond);
    /// A day that exists: October 1582 has the days 1 to 4 and 15 to 31.
    static bool IsValid(int year, int month, int day);
    /// Valid, and not before 5 October 1582.
    static bool IsGregorianCalendar(int year, int month, int day);
    /// Valid, and before 5 October 1582.
    static bool IsJulianCalendar(int year, int month, int day);
    static bool IsValidJulianDate(double julian_date);
    static bool IsValidModifiedJulianDate(double mjd);

    // Printing.

    /// Appends the value printed by the strftime-like `format` (zero-terminated
    /// UTF-16) with the names and default formats of `locale`'s lu_ctime. A
    /// null value appends nothing. Throws LUException LU_E_NO_FACET for a
    /// locale without lu_ctime, and the formatter's exception when the text
    /// outgrows it; `out` is then as it was.
    void Print(ucs2string_formatter& out, const unsigned short* format,
               const lu_locale& locale) const;
    /// The same, appended to `out`.
    void Print(ucs2string& out, const unsigned short* format, const lu_locale& locale) const;
    /// "yyyy/mm/dd hh:mm:ss.msec (mjd)" for diagnostics, with no line end;
    /// "Null date/time" and a line end for the null value.
    void Trace(std::ostream& stream) const;

  private:
    double m_mjd;
};

/// The value in the classic locale's default date and time format, as UTF-8;
/// "Null datetime" for the null value.
std::ostream& operator<<(std::ostream& stream, const lu_date_time& value);

#endif  // KAI18N_DATETIME_LU_DATE_TIME_H

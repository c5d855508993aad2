// lu_date_time: the value, its calendar arithmetic and its calendar facts.
//
// Every conversion is a constant-time formula. Dates are turned into day
// numbers with the integer month-shift formula (months counted from March, so
// that the leap day ends the shifted year), and day numbers back into dates
// with the classical century/year/month method.
#include "kai18n/datetime/lu_date_time.h"

#include <cmath>
#include <cstdint>
#include <cstring>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

namespace {

// The reciprocals, as the doubles nearest to them: the formulas multiply.
constexpr double kOneSixtieth = 0.016666666666666666;
constexpr double kOneTwentyFourth = 0.041666666666666664;
constexpr double kPerJulianYear = 0.0027378507871321013;  // 1 / 365.25
constexpr double kPerMonthStep = 0.03267963176590926;     // 1 / 30.6001

// Day number of the first Gregorian day (15 October 1582) on the scale of Ymd.
constexpr int kFirstGregorianDayNumber = 2299161;

// Days before each month in a common year.
constexpr unsigned int kDaysBeforeMonth[12] = {0,   31,  59,  90,  120, 151,
                                               181, 212, 243, 273, 304, 334};
constexpr int kDaysOfMonth[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// The whole part of `x` after subtracting 1.0 from a negative `x`: the step
// the day-number formulas take to reach the day below a negative value. (For
// a negative whole number it is one less than the floor; the formulas are
// built around exactly this.)
inline int WholeBelow(double x) {
    if (x < 0.0) x -= 1.0;
    return static_cast<int>(x);
}

// The fraction of the value above its floor: the time of day that Set put in,
// for dates before 1858 as after. The floor by conversion, exact for every
// value the type holds, spares a library call on the printing path.
inline double TimeOfDay(double mjd) {
    double floor = static_cast<double>(static_cast<std::int64_t>(mjd));
    if (floor > mjd) floor -= 1.0;
    return mjd - floor;
}

// The day number n on which weekdays are counted: the whole part of the
// Julian Date shifted to midnight. Held in 32 bits, as the weekday arithmetic is.
inline std::int32_t WeekdayDayNumber(double mjd) {
    return static_cast<std::int32_t>(mjd + 2400001.0);
}

double ComputeGregorianStart() {
    lu_date_time start;
    const long result = start.Set(1582, 10, 15.0, 0.0);
    if (kaFailed(result)) LUException::Raise(result);
    return start;
}

}  // namespace

const double lu_date_time::kGregorianStart = ComputeGregorianStart();

// ---- construction and setting

lu_date_time::lu_date_time(double mjd) : m_mjd(mjd) {
    if (mjd != kNullValue && !IsValidModifiedJulianDate(mjd)) LUException::Raise(LU_E_INVALID_ARG);
}

lu_date_time::lu_date_time(int year, int month, double day, double fraction) : m_mjd(0.0) {
    const long result = Set(year, month, day, fraction);
    if (kaFailed(result)) LUException::Raise(result);
}

lu_date_time::lu_date_time(int year, int month, int day, int hour, int minute, int second,
                           int millisecond)
    : m_mjd(0.0) {
    const long result = Set(year, month, day, hour, minute, second, millisecond);
    if (kaFailed(result)) LUException::Raise(result);
}

long lu_date_time::Set(int year, int month, double day, double fraction) {
    const double when = day + fraction;
    // Outside this range (NaN included) no day of a month is named, and the
    // whole part would not fit an int.
    if (!(when > -2147483647.0 && when < 2147483647.0)) return LU_E_INVALID_ARG;
    if (!IsValid(year, month, WholeBelow(when))) return LU_E_INVALID_ARG;

    // Months counted from March: January and February end the shifted year.
    const int shift = (14 - month) / 12;
    const int shifted_year = year - shift + 4800;
    const int shifted_month = month + 12 * shift;
    const int days_before = (306 * shifted_month - 913) / 10;
    // `day` >= 5.0 is its truncation being at least 5, with no conversion.
    const bool gregorian =
        year > 1582 || (year == 1582 && (month > 10 || (month == 10 && day >= 5.0)));
    int day_number = days_before + 365 * shifted_year + shifted_year / 4;
    if (gregorian) {
        day_number += shifted_year / 400 - shifted_year / 100 - 2432046;
    } else {
        day_number -= 2432084;
    }
    m_mjd = static_cast<double>(day_number) + day + fraction;
    return LU_S_OK;
}

long lu_date_time::Set(int year, int month, int day, int hour, int minute, int second,
                       int millisecond) {
    if (!IsValidTime(hour, minute, second, millisecond)) return LU_E_INVALID_ARG;
    const double fraction =
        (((millisecond * 0.001 + second) * kOneSixtieth + minute) * kOneSixtieth + hour) *
        kOneTwentyFourth;
    return Set(year, month, static_cast<double>(day), fraction);
}

long lu_date_time::Set(const std::tm& time) {
    if (!IsValidTime(time.tm_hour, time.tm_min, time.tm_sec, 0)) return LU_E_INVALID_ARG;
    // A year or month beyond int after the offset is no valid date anyway.
    if (time.tm_year > kMaxYear || time.tm_mon > 12) return LU_E_INVALID_ARG;
    const double fraction =
        ((time.tm_sec * kOneSixtieth + time.tm_min) * kOneSixtieth + time.tm_hour) *
        kOneTwentyFourth;
    return Set(time.tm_year + 1900, time.tm_mon + 1, static_cast<double>(time.tm_mday), fraction);
}

long lu_date_time::Set(double julian_date) {
    if (!IsValidJulianDate(julian_date)) return LU_E_INVALID_ARG;
    m_mjd = julian_date - kJulianDateOffset;
    return LU_S_OK;
}

// ---- reading

bool lu_date_time::IsNull() const {
    std::uint64_t bits, null_bits;
    const double null_value = kNullValue;
    std::memcpy(&bits, &m_mjd, sizeof bits);
    std::memcpy(&null_bits, &null_value, sizeof null_bits);
    return bits == null_bits;
}

void lu_date_time::Ymd(int& year, int& month, int& day) const {
    const int z = WholeBelow(m_mjd + 2400001.0);
    int a = z, b, c, d, e;
    if (z >= 0) {
        // Every day from Julian Date 0 on: the same steps in exact integer
        // arithmetic. The floating form below truncates its rounded
        // reciprocal products one too low where (Z - 1867216.25) / 36524.25
        // is a whole number, and so names 29 February of 6700, 13100, 25500
        // and 25900, which do not exist, for 1 March; on every other day of
        // the valid range the two agree.
        if (z >= kFirstGregorianDayNumber) {
            const int alpha = (4 * z - 7468865) / 146097;
            a = z + 1 + alpha - alpha / 4;
        }
        b = a + 1524;
        c = (20 * b - 2442) / 7305;
        d = (1461 * c) / 4;
        e = (10000 * (b - d)) / 306001;
        day = b - d - (306001 * e) / 10000;
    } else {
        // Below the valid range, which holds only the null sentinel: the
        // floating form, whose steps step down from negative values as
        // written (a negative whole number goes one below its floor).
        b = a + 1524;
        c = WholeBelow((b - 122.1) * kPerJulianYear);
        d = WholeBelow(c * 365.25);
        e = WholeBelow((b - d) * kPerMonthStep);
        day = b - d - WholeBelow(e * 30.6001);
    }
    month = e >= 14 ? e - 13 : e - 1;
    year = c - 4715 - (month > 2 ? 1 : 0);
}

void lu_date_time::Hms(int& hour, int& minute, int& second) const {
    // Not negative, so the conversion is the floor.
    int rest = static_cast<int>(TimeOfDay(m_mjd) * 86400.0 + 0.5);
    hour = rest / 3600;
    rest %= 3600;
    minute = rest / 60;
    second = rest % 60;
}

void lu_date_time::Hmsms(int& hour, int& minute, int& second, int& millisecond) const {
    int rest = static_cast<int>(TimeOfDay(m_mjd) * 86400000.0 + 0.5);
    hour = rest / 3600000;
    rest %= 3600000;
    minute = rest / 60000;
    rest %= 60000;
    second = rest / 1000;
    millisecond = rest % 1000;
}

int lu_date_time::Year() const {
    int year, month, day;
    Ymd(year, month, day);
    return year;
}

unsigned int lu_date_time::Month() const {
    int year, month, day;
    Ymd(year, month, day);
    return static_cast<unsigned int>(month);
}

unsigned int lu_date_time::MonthDay() const {
    int year, month, day;
    Ymd(year, month, day);
    return static_cast<unsigned int>(day);
}

long lu_date_time::Ymd() const {
    int year, month, day;
    Ymd(year, month, day);
    const long y = year;
    return y >= 0 ? (y * 100 + month) * 100 + day : (y * 100 - month) * 100 - day;
}

unsigned int lu_date_time::WeekDay(unsigned int first) const {
    // Unsigned 32-bit arithmetic, as the day number and `first` meet there.
    const std::uint32_t n = static_cast<std::uint32_t>(WeekdayDayNumber(m_mjd));
    return (n - first + 7u) % 7u;
}

unsigned int lu_date_time::YearDay() const {
    int year, month, day;
    Ymd(year, month, day);
    // Ymd gives months 1 to 12 for every value the type can hold.
    const unsigned int before = month >= 1 && month <= 12 ? kDaysBeforeMonth[month - 1] : 0u;
    return before + static_cast<unsigned int>(day) + (month > 2 && IsLeapYear(year) ? 1u : 0u);
}

unsigned int lu_date_time::YearWeek(unsigned int first) const {
    return (YearDay() + 12u - WeekDay(first)) / 7u;
}

void lu_date_time::GetTM(std::tm& time) const {
    std::memset(&time, 0, sizeof time);
    int year, month, day, hour, minute, second;
    Ymd(year, month, day);
    Hms(hour, minute, second);
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    time.tm_wday = static_cast<int>((WeekdayDayNumber(m_mjd) + 1) % 7);
    time.tm_yday = static_cast<int>(YearDay()) - 1;
    time.tm_isdst = 0;
}

// ---- calendar facts

bool lu_date_time::IsLeapYear(int year) {
    return year % 4 == 0 && (year < 1582 || year % 100 != 0 || year % 400 == 0);
}

int lu_date_time::DaysInMonth(int year, int month) {
    if (year == 1582 && month == 10) return 21;
    if (!IsValidMonth(month)) return 0;
    return kDaysOfMonth[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

int lu_date_time::DaysInYear(int year) {
    if (year == 1582) return 355;
    return IsLeapYear(year) ? 366 : 365;
}

bool lu_date_time::IsValidTime(int hour, int minute, int second, int millisecond) {
    return hour >= 0 && hour <= 23 && minute >= 0 && minute <= 59 && second >= 0 && second <= 59 &&
           millisecond >= 0 && millisecond <= 999;
}

bool lu_date_time::IsValid(int year, int month, int day) {
    if (year == 1582 && month == 10) return (day >= 1 && day <= 4) || (day >= 15 && day <= 31);
    return IsValidYear(year) && IsValidMonth(month) && day >= 1 && day <= DaysInMonth(year, month);
}

namespace {

// 5 October 1582 or later: the days from which the Gregorian rules count.
bool FromGregorianReform(int year, int month, int day) {
    if (year != 1582) return year > 1582;
    return month > 10 || (month == 10 && day >= 5);
}

}  // namespace

bool lu_date_time::IsGregorianCalendar(int year, int month, int day) {
    return IsValid(year, month, day) && FromGregorianReform(year, month, day);
}

bool lu_date_time::IsJulianCalendar(int year, int month, int day) {
    return IsValid(year, month, day) && !FromGregorianReform(year, month, day);
}

bool lu_date_time::IsValidJulianDate(double julian_date) {
    return !std::isnan(julian_date) && julian_date >= 0.0 && julian_date < kEndJulianDate;
}

bool lu_date_time::IsValidModifiedJulianDate(double mjd) {
    return !std::isnan(mjd) && mjd >= kMinModifiedJulianDate && mjd < kEndModifiedJulianDate;
}

// GregorianCalendar: the two conversions, from an instant to the fields and
// from the fields to an instant.
//
// An instant's day is a Julian day number. From the cutover on it is split
// into 400-, 100-, 4- and 1-year cycles counted from the Gregorian origin;
// before it, the Julian year follows from the 1461-day four-year cycle. The
// day of the year gives the month by the slope of 367 days to 12 months, once
// the short February is corrected for. Going back, the day number of the eve
// of the year is added to the day that the most recently written fields name.
//
// Days within 2^30 of 1970 take integer paths that give exactly the results of
// those double formulas with fewer dependent steps (each was checked against
// the formulas day by day over the whole range); the formulas themselves serve
// the days beyond, NaN and the infinities.
//
// Arithmetic on values that callers may write stays 32 bits wide, as the
// fields are, and wraps modulo 2^32 where it overflows: it is done in 64 bits
// and brought back explicitly, so that a wrap is never undefined. A double
// turned into a 32-bit integer truncates towards zero, saturates at the ends
// of the 32-bit range, and reads NaN as 0.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <typeinfo>

#include "calendar/engine_arithmetic.h"
#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/calendar/uprv.h"

namespace {

using namespace calendar_engine;

// 1 / 86400000, used as a multiplier: a day count is never found by division.
constexpr double kMillisToDays = 1.1574074074074074e-08;
constexpr std::int32_t kMillisPerDay = 86400000;

// Julian day of the instant's day minus these gives the day count from the
// start of the Gregorian cycles and of the Julian cycles.
constexpr std::int32_t kGregorianShift =
    GregorianCalendar::kEpochStartAsJulianDay - GregorianCalendar::kJan1_1JulianDay;
constexpr std::int32_t kJulianShift = GregorianCalendar::kEpochStartAsJulianDay - 1721424;

// Days within 2^30 of 1970 (about 2.9 million years) are split in integers.
// Every intermediate of the double formulas is an exact integer in that range,
// so both ways give the same fields; the integer way is the fast one.
constexpr double kExactDayLimit = 1073741824.0;

inline std::int32_t Saturate32(std::int64_t value) {
    if (value > INT32_MAX) return INT32_MAX;
    if (value < INT32_MIN) return INT32_MIN;
    return static_cast<std::int32_t>(value);
}

// Below 2^52 an integral double, and its products with a 32-bit divisor, are
// exact, so the integer forms of the divisions give the very same results.
constexpr double kExactLimit = 4503599627370496.0;

// `value` as a 64-bit integer when it is integral and below 2^52 in size.
inline bool ExactInteger(double value, std::int64_t& whole) {
    if (!(std::fabs(value) < kExactLimit)) return false;
    whole = static_cast<std::int64_t>(value);
    return static_cast<double>(whole) == value;
}

// ---- the day-number arithmetic behind the static members, inline for the
// conversions (members of an exported class are called through the symbol
// table)

inline std::int32_t FloorDivide(std::int32_t numerator, std::int32_t denominator) {
    // A zero divisor has no quotient; 0 keeps the call defined.
    if (denominator == 0) return 0;
    return numerator >= 0 ? numerator / denominator : (numerator + 1) / denominator - 1;
}

inline std::int32_t FloorDivide(std::int32_t numerator, std::int32_t denominator,
                                std::int32_t* remainder) {
    if (denominator == 0) {
        if (remainder != nullptr) *remainder = numerator;
        return 0;
    }
    if (numerator >= 0) {
        if (remainder != nullptr) *remainder = numerator % denominator;
        return numerator / denominator;
    }
    const std::int32_t quotient = (numerator + 1) / denominator - 1;
    // In 64 bits: q * b may leave the 32-bit range while the remainder does not.
    if (remainder != nullptr) {
        *remainder = Wrap32(static_cast<std::int64_t>(numerator) -
                            static_cast<std::int64_t>(quotient) * denominator);
    }
    return quotient;
}

inline std::int32_t FloorDivide(double numerator, std::int32_t denominator,
                                std::int32_t* remainder) {
    if (denominator == 0) {
        if (remainder != nullptr) *remainder = ToInt32(numerator);
        return 0;
    }
    std::int64_t whole;
    if (denominator > 0 && ExactInteger(numerator, whole)) {
        // Every step of the double form is exact here, and trunc of a
        // correctly rounded quotient is the integer quotient; this is the
        // same result without fmod.
        std::int64_t quotient;
        std::int64_t rest;
        if (whole >= 0) {
            quotient = whole / denominator;
            rest = whole % denominator;
        } else {
            quotient = (whole + 1) / denominator - 1;
            rest = whole - quotient * denominator;
        }
        if (remainder != nullptr) *remainder = static_cast<std::int32_t>(rest);
        return Saturate32(quotient);
    }
    if (numerator >= 0) {
        if (remainder != nullptr) *remainder = ToInt32(std::fmod(numerator, denominator));
        return ToInt32(uprv_trunc(numerator / denominator));
    }
    const double quotient = uprv_trunc((numerator + 1) / denominator) - 1;
    if (remainder != nullptr) *remainder = ToInt32(numerator - quotient * denominator);
    return ToInt32(quotient);
}

inline double JulianDayToMillis(double julian) {
    return (julian - GregorianCalendar::kEpochStartAsJulianDay) * GregorianCalendar::kOneDay;
}

inline std::int32_t JulianDayToDayOfWeek(double julian) {
    std::int64_t whole;
    std::int32_t c;
    if (ExactInteger(julian, whole)) {
        // fmod of an exact integer is the remainder with the dividend's sign.
        c = static_cast<std::int32_t>((whole + 1) % 7);
    } else {
        c = ToInt32(std::fmod(julian + 1, 7));
    }
    return c >= 0 ? c + 1 : c + 8;
}

inline double ComputeJulianDayOfYear(bool isGregorian, std::int32_t year, bool& isLeap) {
    const std::int32_t y = Wrap32(static_cast<std::int64_t>(year) - 1);
    isLeap = year % 4 == 0;
    double julianDay = 365.0 * y + FloorDivide(y, 4) + 1721423;
    if (isGregorian) {
        isLeap = isLeap && (year % 100 != 0 || year % 400 == 0);
        julianDay += FloorDivide(y, 400) - FloorDivide(y, 100) + 2;
    }
    return julianDay;
}

// Where a day lies in its year.
struct YearPlace {
    std::int32_t rawYear;    // continuous numbering, 1 BC = 0
    std::int32_t dayOfYear;  // from 0
    std::int32_t dayOfWeek;  // 1 = Sunday
    bool leap;
};

// Written with & and | rather than && and ||: the year of a random instant
// leaves a branch unpredictable, and these are cheap to evaluate in full.
inline bool GregorianLeap(std::int32_t year) {
    return (year % 4 == 0) & ((year % 100 != 0) | (year % 400 == 0));
}

// The weekday of a remainder by 7 that carries the sign of the dividend.
inline std::int32_t WeekdayOfRemainder(std::int32_t c) {
    return c + 1 + 7 * (c < 0);
}

// The exact splits count from a start moved back by whole cycles, so that
// every division is one of non-negative numbers in 32 or 64 unsigned bits; the
// cycles are taken back out of the year. A floored remainder by 7 is then the
// plain remainder of a count moved by a multiple of 7.
constexpr std::int64_t kGregorianCycles = 7350;  // of 146097 days, a multiple of 7
constexpr std::int64_t kJulianCycles = 735000;   // of 1461 days
constexpr std::int64_t kWeekShift = 7 * 153500000LL;

// The remainder by 7 of a number below 3.7e9, by one 64-bit multiplication:
// 4908534053 / 2^35 exceeds 1/7 by 3 / (7 * 2^35), too little to reach the
// next multiple of 7 below 2^35 / 3, and the product stays within 64 bits.
inline std::uint32_t Mod7(std::uint32_t value) {
    const std::uint32_t quotient =
        static_cast<std::uint32_t>((static_cast<std::uint64_t>(value) * 4908534053u) >> 35);
    return value - 7 * quotient;
}

// The Gregorian split with the results of the cycle formula, in fewer
// dependent steps: the year is estimated from the mean year of 146097/400 days
// and corrected by the exact count of days before it. With n days from
// 1 January of a year = 1 (mod 400), and S(y) = 365y + y/4 - y/100 + y/400
// the days before its year y, 400 S(y) lies within [146097 y - 591,
// 146097 y + 288]; so (400 n + 1000) / 146097 is the year of the day or the
// one after it.
inline void SplitGregorianExact(std::int64_t day, YearPlace& place) {
    const std::uint32_t n =
        static_cast<std::uint32_t>(day + kGregorianShift + kGregorianCycles * 146097);
    const std::uint32_t estimate =
        static_cast<std::uint32_t>((400 * static_cast<std::uint64_t>(n) + 1000) / 146097);
    const std::uint32_t q4 = estimate / 4;
    const std::uint32_t q100 = estimate / 100;
    const std::uint32_t q400 = estimate / 400;
    const std::uint32_t start = 365 * estimate + q4 - q100 + q400;
    // Year y counted from a year = 1 (mod 400) is leap when y = 3 (mod 4),
    // unless y = 99 (mod 100) and not 399 (mod 400); the year before the
    // estimate is read off the estimate's remainders.
    const std::uint32_t r4 = estimate & 3;
    const std::uint32_t r100 = estimate - 100 * q100;
    const std::uint32_t r400 = estimate - 400 * q400;
    const bool leapEstimate = (r4 == 3) & ((r100 != 99) | (r400 == 399));
    const bool leapBefore = (r4 == 0) & ((r100 != 0) | (r400 == 0));
    const bool yearBefore = n < start;
    const std::uint32_t y = estimate - yearBefore;
    place.rawYear =
        static_cast<std::int32_t>(y) + 1 - static_cast<std::int32_t>(400 * kGregorianCycles);
    place.dayOfYear =
        static_cast<std::int32_t>(yearBefore ? n - start + 365 + leapBefore : n - start);
    place.leap = yearBefore ? leapBefore : leapEstimate;
    place.dayOfWeek = static_cast<std::int32_t>(Mod7(n + 1)) + 1;
}

inline void SplitJulianExact(std::int64_t day, YearPlace& place) {
    const std::int64_t j = day + kJulianShift;
    const std::uint64_t shifted = static_cast<std::uint64_t>(j + kJulianCycles * 1461);
    const std::uint64_t year = (4 * shifted + 1464) / 1461;  // rawYear + 4 * kJulianCycles
    const std::uint64_t y = year - 1;
    const std::int32_t rawYear =
        static_cast<std::int32_t>(static_cast<std::int64_t>(year) - 4 * kJulianCycles);
    place.rawYear = rawYear;
    place.dayOfYear = static_cast<std::int32_t>(shifted - (365 * y + y / 4));
    place.leap = rawYear % 4 == 0;
    place.dayOfWeek =
        static_cast<std::int32_t>(static_cast<std::uint64_t>(j - 1 + kWeekShift) % 7) + 1;
}

// The same splits in double, for days beyond the exact range, NaN and the
// infinities. The years no longer fit the fields there; what matters is that
// every step stays defined and the day of the year stays a day of the year.
void SplitGregorianWide(double day, YearPlace& place) {
    // Added and subtracted in this order: at these sizes each step rounds.
    const double g =
        day + GregorianCalendar::kEpochStartAsJulianDay - GregorianCalendar::kJan1_1JulianDay;
    std::int32_t rest = 0;
    const std::int32_t c400 = FloorDivide(g, 146097, &rest);
    const std::int32_t c100 = FloorDivide(rest, 36524, &rest);
    const std::int32_t c4 = FloorDivide(rest, 1461, &rest);
    const std::int32_t c1 = FloorDivide(rest, 365, &rest);
    std::int32_t rawYear =
        Wrap32(400 * static_cast<std::int64_t>(c400) + 100 * static_cast<std::int64_t>(c100) +
               4 * static_cast<std::int64_t>(c4) + c1);
    if (c100 == 4 || c1 == 4) {
        rest = 365;
    } else {
        rawYear = Wrap32(static_cast<std::int64_t>(rawYear) + 1);
    }
    place.rawYear = rawYear;
    place.dayOfYear = rest;
    place.leap = GregorianLeap(rawYear);
    place.dayOfWeek = WeekdayOfRemainder(ToInt32(std::fmod(g + 1, 7)));
}

void SplitJulianWide(double day, YearPlace& place) {
    const double j = day + GregorianCalendar::kEpochStartAsJulianDay - 1721424;
    const double rawYear = std::floor((4 * j + 1464) / 1461);
    const double y = rawYear - 1;
    place.rawYear = ToInt32(rawYear);
    place.dayOfYear = ToInt32(j - (365 * y + std::floor(y * 0.25)));
    place.leap = std::fmod(rawYear, 4) == 0;
    place.dayOfWeek = WeekdayOfRemainder(ToInt32(std::fmod(j - 1, 7)));
}

// The leap-year rule of isLeapYear and the week count of weekNumber, as
// local functions: members of an exported class are called through the
// symbol table, and these run on every conversion.
inline bool LeapYear(std::int32_t year, std::int32_t cutoverYear) {
    if (year < cutoverYear) return year % 4 == 0;
    return GregorianLeap(year);
}

inline std::int32_t MonthLength(std::int32_t month, std::int32_t year, std::int32_t cutoverYear) {
    if (month < 0 || month > 11) {
        // Only written months lie outside the year; computed ones never do.
        std::int32_t inYear = 0;
        const std::int32_t years = FloorDivide(month, 12, &inYear);
        year = Wrap32(static_cast<std::int64_t>(year) + years);
        month = inYear;
    }
    return LeapYear(year, cutoverYear) ? GregorianCalendar::kLeapMonthLength[month]
                                       : GregorianCalendar::kMonthLength[month];
}

// monthLength(month) of the fields: YEAR is read on the continuous numbering
// when ERA is set and 0.
inline std::int32_t FieldMonthLength(std::int32_t month, std::int32_t yearField, bool eraSetToZero,
                                     std::int32_t cutoverYear) {
    const std::int32_t year =
        eraSetToZero ? Wrap32(1 - static_cast<std::int64_t>(yearField)) : yearField;
    return MonthLength(month, year, cutoverYear);
}

inline std::int32_t WeekNumber(std::int32_t dayOfPeriod, std::int32_t dayOfWeek,
                               std::int32_t firstDay, std::int32_t minimalDays) {
    // The weekday of the period's first day, relative to the first day of the week.
    std::int32_t start =
        Wrap32(static_cast<std::int64_t>(dayOfWeek) - firstDay - dayOfPeriod + 1) % 7;
    start += 7 * (start < 0);
    const std::int32_t week = Wrap32(static_cast<std::int64_t>(dayOfPeriod) + start - 1) / 7;
    return week + (7 - start >= minimalDays);
}

// The time-of-day fields of the milliseconds into a day.
struct ClockReading {
    std::int32_t millisecond, second, minute, hourOfDay, amPm, hour;
};

inline ClockReading ReadClock(std::int32_t m) {
    if (m >= 0) {
        // The usual case, in unsigned arithmetic and by successive remainders
        // (the same quotients, fewer steps).
        std::uint32_t rest = static_cast<std::uint32_t>(m);
        const std::uint32_t hourOfDay = rest / GregorianCalendar::kOneHour;
        rest -= hourOfDay * GregorianCalendar::kOneHour;
        const std::uint32_t minute = rest / GregorianCalendar::kOneMinute;
        rest -= minute * GregorianCalendar::kOneMinute;
        const std::uint32_t second = rest / GregorianCalendar::kOneSecond;
        rest -= second * GregorianCalendar::kOneSecond;
        const std::uint32_t afternoon = hourOfDay / 12;
        return {static_cast<std::int32_t>(rest),
                static_cast<std::int32_t>(second),
                static_cast<std::int32_t>(minute),
                static_cast<std::int32_t>(hourOfDay),
                static_cast<std::int32_t>(afternoon),
                static_cast<std::int32_t>(hourOfDay - 12 * afternoon)};
    }
    // Only a zone with a negative daylight offset gets here.
    const std::int32_t hourOfDay = m / GregorianCalendar::kOneHour;
    return {m % 1000,
            (m / GregorianCalendar::kOneSecond) % 60,
            (m / GregorianCalendar::kOneMinute) % 60,
            hourOfDay,
            hourOfDay / 12,
            hourOfDay % 12};
}

// The stamps of a calendar whose fields were all computed.
constexpr std::int32_t kAllComputed[Calendar::kFieldCount] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1,
                                                              1, 1, 1, 1, 1, 1, 1, 1, 1};

// Quotient and remainder by 7 of a small number: 9363 / 2^16 exceeds 1/7 by
// 5 / (7 * 2^16), too little to reach the next multiple of 7 for any number
// below 13107. The week counts divide numbers below 1000; this is cheaper than
// the general division.
inline std::uint32_t SmallDiv7u(std::uint32_t value) {
    return (value * 9363) >> 16;
}

inline std::int32_t SmallDiv7(std::uint32_t value) {
    return static_cast<std::int32_t>(SmallDiv7u(value));
}

inline std::int32_t SmallMod7(std::uint32_t value) {
    return static_cast<std::int32_t>(value - 7 * SmallDiv7u(value));
}

// Month and day of month of each day of the year (from 0), common and leap:
// the month by the 367/12 slope once the missing days of February are counted
// as present from 1 March on, and the day from the days before that month
// (the values of kNumDays and kLeapNumDays). Worked out by the compiler from
// that very formula; one look-up replaces its chain of steps.
struct MonthAndDate {
    std::uint8_t month;
    std::uint8_t date;
};

struct MonthTable {
    MonthAndDate entry[2][366];
};

constexpr std::int32_t kDaysBeforeMonth[2][12] = {
    {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334},
    {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335}};

constexpr MonthTable BuildMonthTable() {
    MonthTable table{};
    for (int leap = 0; leap < 2; ++leap) {
        for (int dayOfYear = 0; dayOfYear < 365 + leap; ++dayOfYear) {
            const int correction = dayOfYear >= 59 + leap ? 2 - leap : 0;
            const int month = (12 * (dayOfYear + correction) + 6) / 367;
            table.entry[leap][dayOfYear].month = static_cast<std::uint8_t>(month);
            table.entry[leap][dayOfYear].date =
                static_cast<std::uint8_t>(dayOfYear - kDaysBeforeMonth[leap][month] + 1);
        }
    }
    return table;
}

constexpr MonthTable kMonthTable = BuildMonthTable();

// What DayToFields learnt about the year, for the month length that
// computeFields passes to the zone.
struct YearFacts {
    bool leap;      // the year of the day is leap
    bool sameRule;  // isLeapYear(the year) applies the rule that split the day
};

// The place in its year of the day `day`, split by the Gregorian rule or the
// Julian one.
inline YearPlace PlaceDay(bool gregorian, double day) {
    YearPlace place;
    if (std::fabs(day) < kExactDayLimit) {
        const std::int64_t whole = static_cast<std::int64_t>(day);
        if (gregorian) {
            SplitGregorianExact(whole, place);
        } else {
            SplitJulianExact(whole, place);
        }
    } else {
        if (gregorian) {
            SplitGregorianWide(day, place);
        } else {
            SplitJulianWide(day, place);
        }
        // Rounding in the double steps can push a far day outside its year;
        // it is held inside so that it indexes the month tables.
        const std::int32_t lastDay = place.leap ? 365 : 364;
        if (place.dayOfYear < 0) place.dayOfYear = 0;
        if (place.dayOfYear > lastDay) place.dayOfYear = lastDay;
    }
    return place;
}

// An instant `millis` that is a whole number of milliseconds below 2^52 in
// size, as its day and the milliseconds into it. There floor(millis *
// kMillisToDays) is the floored quotient by one day: the product is at most
// 5.3e7 days, the multiplier's relative error (-1.9e-17) and the rounding
// move it by less than 5e-9 of a day, a whole millisecond before midnight lies
// 1.16e-8 of a day below the next day, and a midnight itself rounds back onto
// its day number. So the integer division finds the same day, faster.
inline void SplitWholeCount(std::int64_t whole, std::int64_t& day, std::int32_t& millisInDay) {
    // Moved up by whole days to divide unsigned.
    constexpr std::int64_t kDaysUp = 52200000;  // more than 2^52 ms in days
    const std::uint64_t shifted = static_cast<std::uint64_t>(whole + kDaysUp * kMillisPerDay);
    const std::uint64_t days = shifted / kMillisPerDay;
    millisInDay = static_cast<std::int32_t>(shifted - days * kMillisPerDay);
    day = static_cast<std::int64_t>(days) - kDaysUp;
}

inline bool SplitWholeMillis(double millis, std::int64_t& day, std::int32_t& millisInDay) {
    std::int64_t whole;
    if (!ExactInteger(millis, whole)) return false;
    SplitWholeCount(whole, day, millisInDay);
    return true;
}

// timeToFields from the place of the instant's day (`gregorian` tells the
// rule that found it), with the calendar's cutover and week data; `out` are
// the calendar's fields.
YearFacts FillFields(bool gregorian, const YearPlace& place, bool quick, std::int32_t cutoverYear,
                     std::int32_t firstDay, std::int32_t minimalDays, std::int32_t* out) {
    const std::int32_t rawYear = place.rawYear;
    const bool leap = place.leap;
    const std::int32_t dayOfWeek = place.dayOfWeek;
    std::int32_t dayOfYear = place.dayOfYear;

    const MonthAndDate& monthAndDate = kMonthTable.entry[leap][dayOfYear];
    const std::int32_t month = monthAndDate.month;
    const std::int32_t date = monthAndDate.date;

    std::int32_t era = 1;
    std::int32_t eraYear = rawYear;
    if (rawYear < 1) {
        era = 0;
        eraYear = Wrap32(1 - static_cast<std::int64_t>(rawYear));
    }
    // The ten days dropped at the cutover are not counted in its year.
    if (rawYear == cutoverYear && gregorian) dayOfYear -= 10;

    out[Calendar::ERA] = era;
    out[Calendar::YEAR] = eraYear;
    out[Calendar::MONTH] = month;
    out[Calendar::DAY_OF_MONTH] = date;
    out[Calendar::DAY_OF_WEEK] = dayOfWeek;
    out[Calendar::DAY_OF_YEAR] = dayOfYear + 1;
    const bool sameRule = gregorian == (rawYear >= cutoverYear);
    if (quick) return {leap, sameRule};
    dayOfYear += 1;

    // Weekdays relative to the first day of the week, of the day and of 1 January.
    // The first day of the week is an EDaysOfWeek, 0 to 7, and the day of the
    // year at most 366 (at least -9 after a cutover early in a year), so the
    // dividends of the remainders by 7 below are never negative and divide as
    // small unsigned numbers; where the formula adds 7 to a negative remainder,
    // the dividend is moved up by a multiple of 7 instead, which gives the same
    // floored remainder.
    const std::int32_t relDow = SmallMod7(static_cast<std::uint32_t>(dayOfWeek + 7 - firstDay));
    const std::int32_t relDowJan1 =
        SmallMod7(static_cast<std::uint32_t>(dayOfWeek - dayOfYear - firstDay + 701));
    const std::int32_t daysBefore = dayOfYear - 1 + relDowJan1;
    // (Below 0 only after a cutover early in its year; there the division truncates.)
    std::int32_t woy =
        daysBefore >= 0 ? SmallDiv7(static_cast<std::uint32_t>(daysBefore)) : daysBefore / 7;
    std::int32_t yearOfWeek = eraYear;
    woy += (7 - relDowJan1 >= minimalDays);

    // isLeapYear(YEAR): the leap flag of the split serves when the era year is
    // the continuous year and was split by the calendar that isLeapYear picks.
    const bool lastLeap = (era == 1 && sameRule) ? leap : LeapYear(eraYear, cutoverYear);
    const std::int32_t lastDoy = lastLeap ? 366 : 365;
    const std::int32_t lastRelDow =
        SmallMod7(static_cast<std::uint32_t>(relDow + lastDoy - dayOfYear + 7));
    if (dayOfYear > 359 && minimalDays <= 6 - lastRelDow && dayOfYear + 7 - relDow > lastDoy) {
        // The week that holds the day is week 1 of the next year.
        woy = 1;
        if (era == 1) {
            yearOfWeek = Wrap32(static_cast<std::int64_t>(eraYear) + 1);
        } else {
            yearOfWeek = Wrap32(static_cast<std::int64_t>(eraYear) - 1);
            if (yearOfWeek == 0) yearOfWeek = 1;
        }
    } else if (woy == 0) {
        // The day belongs to the last week of the year before.
        const std::int32_t yearBefore = Wrap32(static_cast<std::int64_t>(rawYear) - 1);
        woy = WeekNumber(dayOfYear + (LeapYear(yearBefore, cutoverYear) ? 366 : 365), dayOfWeek,
                         firstDay, minimalDays);
        if (era == 1) {
            yearOfWeek = Wrap32(static_cast<std::int64_t>(eraYear) - 1);
            if (yearOfWeek == 0) yearOfWeek = 1;
        } else {
            yearOfWeek = Wrap32(static_cast<std::int64_t>(eraYear) + 1);
        }
    }

    std::int32_t dowLocal = dayOfWeek - firstDay + 1;
    dowLocal += 7 * (dowLocal < 1);
    out[Calendar::WEEK_OF_YEAR] = woy;
    out[Calendar::YEAR_WOY] = yearOfWeek;
    // weekNumber(date, dayOfWeek) for a date of 1 to 31: the dividend moved
    // up by 42 is never negative.
    const std::int32_t start =
        SmallMod7(static_cast<std::uint32_t>(dayOfWeek - firstDay - date + 43));
    out[Calendar::WEEK_OF_MONTH] =
        SmallDiv7(static_cast<std::uint32_t>(date + start - 1)) + (7 - start >= minimalDays);
    out[Calendar::DAY_OF_WEEK_IN_MONTH] = SmallDiv7(static_cast<std::uint32_t>(date - 1)) + 1;
    out[Calendar::DOW_LOCAL] = dowLocal;
    return {leap, sameRule};
}

// timeToFields, on the day `day` = floor(theTime / one day) found by the
// caller. A local function, so that computeFields reaches it without a call
// through the symbol table.
YearFacts DayToFields(double theTime, double day, bool quick, double normalizedCutover,
                      std::int32_t cutoverYear, std::int32_t firstDay, std::int32_t minimalDays,
                      std::int32_t* out) {
    const bool gregorian = theTime >= normalizedCutover;
    return FillFields(gregorian, PlaceDay(gregorian, day), quick, cutoverYear, firstDay,
                      minimalDays, out);
}

}  // namespace

// ---- day-number arithmetic

double GregorianCalendar::julianDayToMillis(double julian) {
    return JulianDayToMillis(julian);
}

double GregorianCalendar::millisToJulianDay(double millis) {
    return std::floor(millis * kMillisToDays) + kEpochStartAsJulianDay;
}

std::uint8_t GregorianCalendar::julianDayToDayOfWeek(double julian) {
    return static_cast<std::uint8_t>(JulianDayToDayOfWeek(julian));
}

double GregorianCalendar::floorDivide(double numerator, double denominator) {
    return std::floor(numerator / denominator);
}

std::int32_t GregorianCalendar::floorDivide(std::int32_t numerator, std::int32_t denominator) {
    return FloorDivide(numerator, denominator);
}

std::int32_t GregorianCalendar::floorDivide(std::int32_t numerator, std::int32_t denominator,
                                            std::int32_t* remainder) {
    return FloorDivide(numerator, denominator, remainder);
}

std::int32_t GregorianCalendar::floorDivide(double numerator, std::int32_t denominator,
                                            std::int32_t* remainder) {
    return FloorDivide(numerator, denominator, remainder);
}

double GregorianCalendar::computeJulianDayOfYear(bool isGregorian, std::int32_t year,
                                                 bool& isLeap) {
    return ComputeJulianDayOfYear(isGregorian, year, isLeap);
}

// ---- instant to fields

void GregorianCalendar::timeToFields(double theTime, bool quick, UErrorCode& status) {
    if (U_FAILURE(status)) return;
    std::int64_t day;
    std::int32_t millisInDay;
    if (SplitWholeMillis(theTime, day, millisInDay)) {
        const bool gregorian = theTime >= normalizedGregorianCutover;
        YearPlace place;
        if (gregorian) {
            SplitGregorianExact(day, place);
        } else {
            SplitJulianExact(day, place);
        }
        FillFields(gregorian, place, quick, gregorianCutoverYear, firstDayOfWeek,
                   minimalDaysInFirstWeek, fields);
        return;
    }
    DayToFields(theTime, std::floor(theTime * kMillisToDays), quick, normalizedGregorianCutover,
                gregorianCutoverYear, firstDayOfWeek, minimalDaysInFirstWeek, fields);
}

void GregorianCalendar::computeFields(UErrorCode& status) {
    if (U_FAILURE(status)) return;
    const std::int32_t raw = zone->getRawOffset();
    const double local = internalGetTime() + raw;
    // timeToFields(local, false, status), with the day kept for the time of day.
    std::int64_t wholeDay;
    std::int32_t millisInDay;
    YearFacts facts;
    if (SplitWholeMillis(local, wholeDay, millisInDay)) {
        const bool gregorian = local >= normalizedGregorianCutover;
        YearPlace place;
        if (gregorian) {
            SplitGregorianExact(wholeDay, place);
        } else {
            SplitJulianExact(wholeDay, place);
        }
        facts = FillFields(gregorian, place, false, gregorianCutoverYear, firstDayOfWeek,
                           minimalDaysInFirstWeek, fields);
    } else {
        const double day = std::floor(local * kMillisToDays);
        facts = DayToFields(local, day, false, normalizedGregorianCutover, gregorianCutoverYear,
                            firstDayOfWeek, minimalDaysInFirstWeek, fields);
        millisInDay = ToInt32(local - day * kOneDay);
        if (millisInDay < 0) millisInDay += kMillisPerDay;
    }

    // The era of the date just computed, not only a written one: after
    // clear() no ERA is written, and the era year of a date before Christ
    // would otherwise reach the zone as a year after him, with that year's
    // month lengths (a 29 February it refuses).
    const std::int32_t era = internalGet(ERA);
    const bool eraSetToZero = era == 0;
    const std::int32_t year = internalGet(YEAR);
    const std::int32_t month = internalGet(MONTH);
    const std::int32_t date = internalGet(DAY_OF_MONTH);
    const std::int32_t dayOfWeek = internalGet(DAY_OF_WEEK);

    // The clock reading of standard time, worked out while the zone is asked:
    // without a daylight part in the offset it is the answer.
    ClockReading clock = ReadClock(millisInDay);

    // monthLength(month). Under the rule that split the date, the leap flag
    // of the split answers.
    const std::int32_t length =
        facts.sameRule ? (facts.leap ? kLeapMonthLength[month] : kMonthLength[month])
                       : FieldMonthLength(month, year, eraSetToZero, gregorianCutoverYear);

    // The zone is asked with the local standard time of the day.
    const std::int32_t offset =
        zone->getOffset(static_cast<std::uint8_t>(era), year, month, date,
                        static_cast<std::uint8_t>(dayOfWeek), millisInDay, length, status);
    if (U_FAILURE(status)) return;
    const std::int32_t dst = Wrap32(static_cast<std::int64_t>(offset) - raw);

    // (A day count of an instant beyond 2^52 ms may leave the standard reading
    // at 86400000 already; it carries as a daylight one does.)
    if (dst != 0 || millisInDay >= kMillisPerDay) {
        millisInDay = Wrap32(static_cast<std::int64_t>(millisInDay) + dst);
        if (millisInDay >= kMillisPerDay) {
            // Daylight time carries the wall clock into the next day.
            millisInDay -= kMillisPerDay;
            const double carried = local + dst;
            DayToFields(carried, std::floor(carried * kMillisToDays), false,
                        normalizedGregorianCutover, gregorianCutoverYear, firstDayOfWeek,
                        minimalDaysInFirstWeek, fields);
        }
        clock = ReadClock(millisInDay);
    }

    internalSet(MILLISECOND, clock.millisecond);
    internalSet(SECOND, clock.second);
    internalSet(MINUTE, clock.minute);
    internalSet(HOUR_OF_DAY, clock.hourOfDay);
    internalSet(AM_PM, clock.amPm);
    internalSet(HOUR, clock.hour);
    internalSet(ZONE_OFFSET, raw);
    internalSet(DST_OFFSET, dst);

    // setAllFieldsComputed(), written out as two block copies: computed fields
    // lose to every field that a caller writes afterwards.
    std::memcpy(stamps, kAllComputed, sizeof kAllComputed);
    std::memset(fieldIsSet, true, sizeof fieldIsSet);
}

// ---- fields to instant

std::int32_t GregorianCalendar::computeRelativeDOW(double julianDay) const {
    std::int32_t relative = JulianDayToDayOfWeek(julianDay) - firstDayOfWeek;
    if (relative < 0) relative += 7;
    return relative;
}

std::int32_t GregorianCalendar::computeRelativeDOW() const {
    if (getStamp(DOW_LOCAL) > getStamp(DAY_OF_WEEK)) {
        return Wrap32(static_cast<std::int64_t>(internalGet(DOW_LOCAL)) - 1);
    }
    if (getStamp(DAY_OF_WEEK) != kUnset) {
        std::int32_t relative =
            Wrap32(static_cast<std::int64_t>(internalGet(DAY_OF_WEEK)) - firstDayOfWeek);
        if (relative < 0) relative += 7;
        return relative;
    }
    return 0;
}

std::int32_t GregorianCalendar::computeDOYfromWOY(double julianDayOfYear) const {
    // Week 1 starts on the day `base - fdy` of the year (which may be 0 or
    // less: the last days of the year before).
    const std::int32_t fdy = computeRelativeDOW(julianDayOfYear + 1);
    const std::int32_t base = (7 - fdy < minimalDaysInFirstWeek) ? 8 : 1;
    return Wrap32(7 * static_cast<std::int64_t>(internalGet(WEEK_OF_YEAR)) + (base - fdy) - 7 +
                  computeRelativeDOW());
}

std::int32_t GregorianCalendar::weekNumber(std::int32_t dayOfPeriod, std::int32_t dayOfWeek) const {
    return WeekNumber(dayOfPeriod, dayOfWeek, firstDayOfWeek, minimalDaysInFirstWeek);
}

double GregorianCalendar::computeJulianDay(bool isGregorian, std::int32_t year) {
    const std::int32_t monthStamp = getStamp(MONTH);
    const std::int32_t dateStamp = getStamp(DAY_OF_MONTH);
    const std::int32_t weekOfMonthStamp = getStamp(WEEK_OF_MONTH);
    const std::int32_t ordinalStamp = getStamp(DAY_OF_WEEK_IN_MONTH);
    const std::int32_t dayOfYearStamp = getStamp(DAY_OF_YEAR);
    std::int32_t best = dateStamp > monthStamp ? dateStamp : monthStamp;
    if (weekOfMonthStamp > best) best = weekOfMonthStamp;
    if (ordinalStamp > best) best = ordinalStamp;
    if (dayOfYearStamp > best) best = dayOfYearStamp;
    std::int32_t woyStamp = getStamp(WEEK_OF_YEAR);
    bool isLeap = false;

    if (woyStamp >= best && getStamp(YEAR_WOY) > getStamp(YEAR)) {
        // The week of the year decides, in the year to which that week belongs.
        year = internalGet(YEAR_WOY);
        if (getStamp(ERA) != kUnset && internalGet(ERA) == 0) {
            year = Wrap32(1 - static_cast<std::int64_t>(year));
        }
        woyStamp = Wrap32(static_cast<std::int64_t>(woyStamp) + 1);
        best = woyStamp;
    } else if (woyStamp > best) {
        best = woyStamp;
        if (getStamp(YEAR_WOY) != kUnset && getStamp(YEAR_WOY) >= getStamp(YEAR)) {
            year = internalGet(YEAR_WOY);
        } else if (internalGet(WEEK_OF_YEAR) == 1) {
            // With YEAR the calendar year, a day of week 1 that falls before
            // 1 January of `year` is meant at the end of it, in week 1 of the next.
            const double julianDay = ComputeJulianDayOfYear(isGregorian, year, isLeap);
            const std::int32_t fdy = computeRelativeDOW(julianDay + 1);
            const std::int32_t d = (7 - fdy < minimalDaysInFirstWeek) ? 8 - fdy : 1 - fdy;
            const std::int32_t relative = computeRelativeDOW();
            if (d < 1 && (relative < fdy || relative > d + 5 + fdy)) {
                year = Wrap32(static_cast<std::int64_t>(year) + 1);
            }
        } else if (internalGet(WEEK_OF_YEAR) >= 52) {
            // A last week whose day lies past the end of `year` is the last
            // week of the year before.
            const double julianDay = ComputeJulianDayOfYear(isGregorian, year, isLeap);
            if (computeDOYfromWOY(julianDay) > yearLength(year)) {
                year = Wrap32(static_cast<std::int64_t>(year) - 1);
            }
        }
    }

    // A tie between stamps goes to the month-based fields.
    const bool useMonth = best != kUnset && (best == monthStamp || best == dateStamp ||
                                             best == weekOfMonthStamp || best == ordinalStamp);
    std::int32_t month = 0;
    if (useMonth) {
        month = monthStamp != kUnset ? internalGet(MONTH) : 0;
        if (month < 0 || month > 11) {
            std::int32_t inYear = 0;
            const std::int32_t years = FloorDivide(month, 12, &inYear);
            year = Wrap32(static_cast<std::int64_t>(year) + years);
            month = inYear;
        }
    }

    double julianDay = ComputeJulianDayOfYear(isGregorian, year, isLeap);
    if (useMonth) {
        julianDay += isLeap ? kLeapNumDays[month] : kNumDays[month];
        if (best == dateStamp || best == monthStamp) {
            return julianDay + (dateStamp != kUnset ? internalGet(DAY_OF_MONTH) : 1);
        }
        // A weekday within the month: `date` is the wanted weekday in the week
        // that holds the 1st, counted from the 1st (0 or less before it).
        const std::int32_t fdm = computeRelativeDOW(julianDay + 1);
        std::int32_t relative = 0;
        if (getStamp(DAY_OF_WEEK) != kUnset) {
            relative = Wrap32(static_cast<std::int64_t>(internalGet(DAY_OF_WEEK)) - firstDayOfWeek);
            if (relative < 0) relative += 7;
        }
        std::int32_t date = Wrap32(static_cast<std::int64_t>(1 - fdm) + relative);
        if (best == weekOfMonthStamp) {
            if (7 - fdm < minimalDaysInFirstWeek)
                date = Wrap32(static_cast<std::int64_t>(date) + 7);
            return julianDay + date +
                   Wrap32(7 * static_cast<std::int64_t>(internalGet(WEEK_OF_MONTH))) - 7;
        }
        if (date < 1) date += 7;
        const std::int32_t ordinal = internalGet(DAY_OF_WEEK_IN_MONTH);
        if (ordinal >= 0)
            return julianDay + date + Wrap32(7 * static_cast<std::int64_t>(ordinal)) - 7;
        // Counted from the end: -1 is the last such weekday of the month.
        const std::int32_t length = monthLength(month, year);
        const std::int32_t weeksAfter = Wrap32(static_cast<std::int64_t>(length) - date) / 7;
        return julianDay + date + 7 +
               Wrap32(7 * static_cast<std::int64_t>(
                              Wrap32(static_cast<std::int64_t>(weeksAfter) + ordinal)));
    }

    if (best == kUnset) return julianDay + 1;  // 1 January
    // The days of the cutover year count from its Julian 1 January, ten days
    // after the Gregorian one from which julianDay counts: the count and its
    // weeks start there, and the ten days are added back. (Taking them away
    // instead, as the fields of an instant do, would send DAY_OF_YEAR 298 of
    // 1582 twenty days off; this way every day of the year comes back.)
    const bool cutoverYear = year == gregorianCutoverYear && isGregorian;
    const double countFrom = cutoverYear ? julianDay + 10 : julianDay;
    std::int32_t doy =
        best == dayOfYearStamp ? internalGet(DAY_OF_YEAR) : computeDOYfromWOY(countFrom);
    if (cutoverYear) doy = Wrap32(static_cast<std::int64_t>(doy) + 10);
    return julianDay + doy;
}

bool GregorianCalendar::validateFields() const {
    // A calendar of exactly this class has the limits of the tables; reading
    // them directly saves two virtual calls a field on every strict write.
    const bool ownLimits = typeid(*this) == typeid(GregorianCalendar);
    for (int i = 0; i < kFieldCount; ++i) {
        const EDateFields field = static_cast<EDateFields>(i);
        if (field == DAY_OF_MONTH || field == DAY_OF_YEAR || !isSet(field)) continue;
        const std::int32_t value = internalGet(field);
        const bool inRange = ownLimits ? value >= kMinValues[i] && value <= kMaxValues[i]
                                       : boundsCheck(value, field);
        if (!inRange) return false;
    }
    if (isSet(DAY_OF_MONTH)) {
        const std::int32_t date = internalGet(DAY_OF_MONTH);
        if (date < getMinimum(DAY_OF_MONTH) || date > monthLength(internalGet(MONTH))) return false;
    }
    if (isSet(DAY_OF_YEAR)) {
        const std::int32_t doy = internalGet(DAY_OF_YEAR);
        if (doy < 1 || doy > yearLength()) return false;
    }
    if (isSet(DAY_OF_WEEK_IN_MONTH) && internalGet(DAY_OF_WEEK_IN_MONTH) == 0) return false;
    return true;
}

void GregorianCalendar::computeTime(UErrorCode& status) {
    if (U_FAILURE(status)) return;
    if (!isLenient() && !validateFields()) {
        status = UErrorIllegalArgument;
        return;
    }

    std::int32_t year = isSet(YEAR) ? internalGet(YEAR) : kEpochYear;
    std::int32_t era = 1;
    if (isSet(ERA)) {
        era = internalGet(ERA);
        if (era == 0) {
            year = Wrap32(1 - static_cast<std::int64_t>(year));
        } else if (era != 1) {
            status = UErrorIllegalArgument;
            return;
        }
    }

    // Days of the cutover year can lie on either side of the cutover: the
    // first guess is checked against the instant it gives.
    const bool isGregorian = year >= gregorianCutoverYear;
    double julianDay = computeJulianDay(isGregorian, year);
    double millis = JulianDayToMillis(julianDay);
    if (isGregorian != (millis >= normalizedGregorianCutover) && julianDay != -106749550580.0) {
        julianDay = computeJulianDay(!isGregorian, year);
        millis = JulianDayToMillis(julianDay);
    }

    // The hour written last decides; HOUR_OF_DAY wins a tie.
    const std::int32_t hourStamp = getStamp(HOUR);
    const std::int32_t hourOfDayStamp = getStamp(HOUR_OF_DAY);
    std::int64_t hour = 0;
    if (hourStamp != kUnset || hourOfDayStamp != kUnset) {
        if (hourOfDayStamp >= hourStamp) {
            hour = internalGet(HOUR_OF_DAY);
        } else {
            hour = Wrap32(internalGet(HOUR) + 12 * static_cast<std::int64_t>(internalGet(AM_PM)));
        }
    }
    // A 32-bit sum: written values far out of range wrap.
    const std::int32_t millisInDay =
        Wrap32(((hour * 60 + internalGet(MINUTE)) * 60 + internalGet(SECOND)) * 1000 +
               internalGet(MILLISECOND));

    const bool zoneWritten = getStamp(ZONE_OFFSET) >= kMinimumUserStamp;
    const std::int32_t raw = zoneWritten ? internalGet(ZONE_OFFSET) : zone->getRawOffset();
    millis += millisInDay;

    std::int32_t dst = 0;
    if (zoneWritten) {
        dst = internalGet(DST_OFFSET);
    } else {
        // The remainder of floorDivide(millis, one day), in integers when
        // millis is a whole number of milliseconds (the same remainder).
        std::int32_t dayMillis = 0;
        std::int64_t wholeDay = 0;
        const bool wholeMillis = SplitWholeMillis(millis, wholeDay, dayMillis);
        if (!wholeMillis) FloorDivide(millis, kMillisPerDay, &dayMillis);
        // monthLength(MONTH) reads ERA and YEAR as they stand when the zone is
        // asked, after the quick rewrite of the date fields.
        std::uint8_t weekday;
        std::int32_t length;
        if (!isLenient() && getStamp(MONTH) != kUnset && getStamp(DAY_OF_MONTH) != kUnset &&
            millisInDay == dayMillis) {
            // Validated fields of the same day stand as written.
            weekday = static_cast<std::uint8_t>(JulianDayToDayOfWeek(julianDay));
            length = FieldMonthLength(internalGet(MONTH), internalGet(YEAR),
                                      isSet(ERA) && internalGet(ERA) == 0, gregorianCutoverYear);
        } else if (wholeMillis) {
            // timeToFields(millis, true, status) on the day just found, and
            // monthLength(MONTH) read off its split as in computeFields.
            const bool gregorian = millis >= normalizedGregorianCutover;
            YearPlace place;
            if (gregorian) {
                SplitGregorianExact(wholeDay, place);
            } else {
                SplitJulianExact(wholeDay, place);
            }
            const YearFacts facts = FillFields(gregorian, place, true, gregorianCutoverYear,
                                               firstDayOfWeek, minimalDaysInFirstWeek, fields);
            weekday = static_cast<std::uint8_t>(internalGet(DAY_OF_WEEK));
            const std::int32_t month = internalGet(MONTH);
            const bool eraSetToZero = isSet(ERA) && internalGet(ERA) == 0;
            const bool yearIsContinuous = internalGet(ERA) == 1 || eraSetToZero;
            length = (yearIsContinuous && facts.sameRule)
                         ? (facts.leap ? kLeapMonthLength[month] : kMonthLength[month])
                         : FieldMonthLength(month, internalGet(YEAR), eraSetToZero,
                                            gregorianCutoverYear);
        } else {
            timeToFields(millis, true, status);
            weekday = static_cast<std::uint8_t>(internalGet(DAY_OF_WEEK));
            length = FieldMonthLength(internalGet(MONTH), internalGet(YEAR),
                                      isSet(ERA) && internalGet(ERA) == 0, gregorianCutoverYear);
        }
        const std::int32_t offset =
            zone->getOffset(static_cast<std::uint8_t>(era), internalGet(YEAR), internalGet(MONTH),
                            internalGet(DAY_OF_MONTH), weekday, dayMillis, length, status);
        if (U_FAILURE(status)) return;
        dst = Wrap32(static_cast<std::int64_t>(offset) - raw);
    }

    internalSetTime(millis - raw - dst);
}

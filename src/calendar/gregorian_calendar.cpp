// GregorianCalendar: its constants and limit tables, its life cycle, the
// calendar facts (leap years, month and year lengths) and the cutover. The
// static day-number arithmetic lives with the conversions, in
// gregorian_fields.cpp, where they can use it inline.
//
// Arithmetic on values that callers may write stays 32 bits wide, as the
// fields are, and wraps modulo 2^32 where it overflows: it is done in 64 bits
// and brought back explicitly, so that a wrap is never undefined. A double
// turned into a 32-bit integer truncates towards zero, saturates at the ends
// of the 32-bit range, and reads NaN as 0.
#include "kai18n/calendar/gregorian_calendar.h"

#include <cmath>
#include <cstdint>
#include <new>

#include "calendar/engine_arithmetic.h"
#include "kai18n/calendar/uprv.h"

const std::int32_t GregorianCalendar::kEpochStartAsJulianDay;
const std::int32_t GregorianCalendar::kJan1_1JulianDay;
const std::int32_t GregorianCalendar::kEpochYear;
const std::int32_t GregorianCalendar::kOneSecond;
const std::int32_t GregorianCalendar::kOneMinute;
const std::int32_t GregorianCalendar::kOneHour;

const std::int32_t GregorianCalendar::kNumDays[12] = {0,   31,  59,  90,  120, 151,
                                                      181, 212, 243, 273, 304, 334};
const std::int32_t GregorianCalendar::kLeapNumDays[12] = {0,   31,  60,  91,  121, 152,
                                                          182, 213, 244, 274, 305, 335};
const std::int32_t GregorianCalendar::kMonthLength[12] = {31, 28, 31, 30, 31, 30,
                                                          31, 31, 30, 31, 30, 31};
const std::int32_t GregorianCalendar::kLeapMonthLength[12] = {31, 29, 31, 30, 31, 30,
                                                              31, 31, 30, 31, 30, 31};

// ERA, YEAR, MONTH, WEEK_OF_YEAR, WEEK_OF_MONTH, DAY_OF_MONTH, DAY_OF_YEAR,
// DAY_OF_WEEK, DAY_OF_WEEK_IN_MONTH, AM_PM, HOUR, HOUR_OF_DAY, MINUTE, SECOND,
// MILLISECOND, ZONE_OFFSET, DST_OFFSET, YEAR_WOY, DOW_LOCAL.
const std::int32_t GregorianCalendar::kMinValues[kFieldCount] = {
    0, 1, 0, 1, 0, 1, 1, 1, -1, 0, 0, 0, 0, 0, 0, -43200000, 0, 1, 1};
const std::int32_t GregorianCalendar::kLeastMaxValues[kFieldCount] = {
    1, 140742, 11, 52, 4, 28, 365, 7, 4, 1, 11, 23, 59, 59, 999, 50400000, 3600000, 140742, 7};
const std::int32_t GregorianCalendar::kMaxValues[kFieldCount] = {
    1, 144683, 11, 53, 6, 31, 366, 7, 6, 1, 11, 23, 59, 59, 999, 50400000, 3600000, 144683, 7};

char GregorianCalendar::fgClassID = 0;

namespace {

using namespace calendar_engine;

// 1 / 86400000, used as a multiplier: a day count is never found by division.
constexpr double kMillisToDays = 1.1574074074074074e-08;
// 1 / 86400, for the day count of seconds.
constexpr double kSecondsToDays = 1.1574074074074073e-05;

}  // namespace

// ---- life cycle

GregorianCalendar::GregorianCalendar(TimeZone* zone, UErrorCode& status)
    : Calendar(zone, status),
      gregorianCutover(kPapalCutover),
      normalizedGregorianCutover(kPapalCutover),
      gregorianCutoverYear(1582) {
    setTimeInMillis(getNow(), status);
}

GregorianCalendar::GregorianCalendar(const TimeZone& zone, UErrorCode& status)
    : Calendar(zone, status),
      gregorianCutover(kPapalCutover),
      normalizedGregorianCutover(kPapalCutover),
      gregorianCutoverYear(1582) {
    setTimeInMillis(getNow(), status);
}

GregorianCalendar::GregorianCalendar(const GregorianCalendar& source)
    : Calendar(source),
      gregorianCutover(source.gregorianCutover),
      normalizedGregorianCutover(source.normalizedGregorianCutover),
      gregorianCutoverYear(source.gregorianCutoverYear) {}

GregorianCalendar& GregorianCalendar::operator=(const GregorianCalendar& right) {
    if (this != &right) {
        Calendar::operator=(right);
        gregorianCutover = right.gregorianCutover;
        normalizedGregorianCutover = right.normalizedGregorianCutover;
        gregorianCutoverYear = right.gregorianCutoverYear;
    }
    return *this;
}

GregorianCalendar::~GregorianCalendar() {}

Calendar* GregorianCalendar::clone() const {
    return new (std::nothrow) GregorianCalendar(*this);
}

bool GregorianCalendar::operator==(const Calendar& that) const {
    if (this == &that) return true;
    // Calendar::operator== has matched the dynamic classes, so `that` is one
    // of ours.
    return Calendar::operator==(that) && getDynamicClassID() == that.getDynamicClassID() &&
           gregorianCutover == static_cast<const GregorianCalendar&>(that).gregorianCutover;
}

bool GregorianCalendar::equivalentTo(const Calendar& other) const {
    return Calendar::equivalentTo(other) &&
           gregorianCutover == static_cast<const GregorianCalendar&>(other).gregorianCutover;
}

// ---- limits

std::int32_t GregorianCalendar::getMinimum(EDateFields field) const {
    return IsField(field) ? kMinValues[field] : 0;
}

std::int32_t GregorianCalendar::getMaximum(EDateFields field) const {
    return IsField(field) ? kMaxValues[field] : 0;
}

std::int32_t GregorianCalendar::getGreatestMinimum(EDateFields field) const {
    return IsField(field) ? kMinValues[field] : 0;
}

std::int32_t GregorianCalendar::getLeastMaximum(EDateFields field) const {
    return IsField(field) ? kLeastMaxValues[field] : 0;
}

// ---- calendar facts

bool GregorianCalendar::isLeapYear(std::int32_t year) const {
    if (year < gregorianCutoverYear) return year % 4 == 0;
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

std::int32_t GregorianCalendar::monthLength(std::int32_t month, std::int32_t year) const {
    if (month < 0 || month > 11) {
        // A month written out of range stands for the month it lands on in a
        // neighbouring year, as the lenient reading of the fields has it.
        std::int32_t inYear = 0;
        const std::int32_t years = floorDivide(month, 12, &inYear);
        year = Wrap32(static_cast<std::int64_t>(year) + years);
        month = inYear;
    }
    return isLeapYear(year) ? kLeapMonthLength[month] : kMonthLength[month];
}

std::int32_t GregorianCalendar::monthLength(std::int32_t month) const {
    std::int32_t year = internalGet(YEAR);
    if (isSet(ERA) && internalGet(ERA) == 0) year = Wrap32(1 - static_cast<std::int64_t>(year));
    return monthLength(month, year);
}

std::int32_t GregorianCalendar::yearLength(std::int32_t year) const {
    return isLeapYear(year) ? 366 : 365;
}

std::int32_t GregorianCalendar::yearLength() const {
    return yearLength(internalGet(YEAR));
}

void GregorianCalendar::pinDayOfMonth() {
    const std::int32_t length = monthLength(internalGet(MONTH));
    if (internalGet(DAY_OF_MONTH) > length) set(DAY_OF_MONTH, length);
}

std::int32_t GregorianCalendar::internalGetEra() const {
    return isSet(ERA) ? internalGet(ERA) : 1;
}

bool GregorianCalendar::boundsCheck(std::int32_t value, EDateFields field) const {
    return value >= getMinimum(field) && value <= getMaximum(field);
}

std::int32_t GregorianCalendar::getEpochDay(UErrorCode& status) {
    if (U_FAILURE(status)) return 0;
    complete(status);
    if (U_FAILURE(status)) return 0;
    // The offsets are summed and divided as 32-bit integers, the rest is
    // counted in double seconds.
    const std::int32_t offsetSeconds =
        Wrap32(static_cast<std::int64_t>(internalGet(ZONE_OFFSET)) + internalGet(DST_OFFSET)) /
        1000;
    return ToInt32(uprv_trunc((internalGetTime() * 0.001 + offsetSeconds) * kSecondsToDays));
}

void GregorianCalendar::setGregorianChange(double date, UErrorCode& status) {
    if (U_FAILURE(status)) return;
    gregorianCutover = date;
    normalizedGregorianCutover = std::floor(date * kMillisToDays) * kOneDay;

    // The year of the cutover, found with the default cutover; the probe
    // reads the instant in this calendar's zone.
    GregorianCalendar probe(getTimeZone(), status);
    probe.setTime(date, status);
    const std::int32_t year = probe.get(YEAR, status);
    const std::int32_t era = probe.get(ERA, status);
    if (U_FAILURE(status)) return;
    gregorianCutoverYear = era == 0 ? Wrap32(1 - static_cast<std::int64_t>(year)) : year;
}

// ---- stamps

std::int32_t GregorianCalendar::aggregateStamp(std::int32_t stamp_a, std::int32_t stamp_b) {
    if (stamp_a == kUnset || stamp_b == kUnset) return kUnset;
    return stamp_a > stamp_b ? stamp_a : stamp_b;
}

// SimpleTimeZone: a raw offset and at most one yearly pair of daylight rules.
//
// Each rule is decoded once, when it is set, into a normal form (EMode), so
// that an offset query only compares the date with the two rules; the query
// is asked on every field computation of a calendar and allocates nothing.
//
// The engine's integers are those of a 32-bit machine: rule fields are
// bytes, times and offsets 32-bit words, and arguments stored into a byte
// keep their low 8 bits. Every narrowing, negation and sum below that could
// leave its type is done by the helpers of engine_arithmetic.h, which wrap modulo 2^8 or
// 2^32 as such a machine does, with conversions the language defines. Any
// field or argument, however meaningless, thus gives a defined answer.
#include "kai18n/calendar/simple_time_zone.h"

#include <cstdint>

#include "calendar/engine_arithmetic.h"
#include "kai18n/calendar/gregorian_calendar.h"

namespace {

using namespace calendar_engine;

constexpr std::int32_t kMillisPerDay = 86400000;
constexpr std::int32_t kMillisPerHour = 3600000;
constexpr std::int32_t kMillisPerMinute = 60000;

// A time mode read from a record byte. The enumeration can hold 0 to 3 only;
// any byte outside 0 to 2 becomes 3, which decoding refuses exactly as it
// refuses the byte itself, and which reads as neither wall nor UTC time, as
// the byte would.
inline SimpleTimeZone::TimeMode ModeFromByte(std::int8_t mode) {
    return static_cast<SimpleTimeZone::TimeMode>(mode >= 0 && mode <= 2 ? mode : 3);
}

inline bool IsValidMode(SimpleTimeZone::TimeMode mode) {
    const int value = static_cast<int>(mode);
    return value >= SimpleTimeZone::WALL_TIME && value <= SimpleTimeZone::UTC_TIME;
}

// The length of the month before `month` (0 to 11), January following a
// December of 31 days.
inline std::int32_t PreviousMonthLength(std::int32_t month) {
    return month == 0 ? 31 : SimpleTimeZone::staticMonthLength[month - 1];
}

}  // namespace

char SimpleTimeZone::fgClassID = 0;

const std::int8_t SimpleTimeZone::staticMonthLength[12] = {31, 28, 31, 30, 31, 30,
                                                           31, 31, 30, 31, 30, 31};

// ---------------------------------------------------------------------------
// Construction

SimpleTimeZone::SimpleTimeZone(std::int32_t rawOffsetGMT, const ucs2string& id)
    : TimeZone(id),
      startMonth(0),
      startDay(0),
      startDayOfWeek(0),
      startTime(0),
      startTimeMode(WALL_TIME),
      endTimeMode(WALL_TIME),
      endMonth(0),
      endDay(0),
      endDayOfWeek(0),
      endTime(0),
      startYear(0),
      rawOffset(rawOffsetGMT),
      useDaylight(false),
      startMode(DOM_MODE),
      endMode(DOM_MODE),
      dstSavings(kMillisPerHour) {}

SimpleTimeZone::SimpleTimeZone(std::int32_t rawOffsetGMT, const ucs2string& id,
                               std::int8_t savingsStartMonth, std::int8_t savingsStartDay,
                               std::int8_t savingsStartDayOfWeek, std::int32_t savingsStartTime,
                               std::int8_t savingsEndMonth, std::int8_t savingsEndDay,
                               std::int8_t savingsEndDayOfWeek, std::int32_t savingsEndTime,
                               UErrorCode& status)
    : TimeZone(id),
      startMonth(savingsStartMonth),
      startDay(savingsStartDay),
      startDayOfWeek(savingsStartDayOfWeek),
      startTime(savingsStartTime),
      startTimeMode(WALL_TIME),
      endTimeMode(WALL_TIME),
      endMonth(savingsEndMonth),
      endDay(savingsEndDay),
      endDayOfWeek(savingsEndDayOfWeek),
      endTime(savingsEndTime),
      startYear(0),
      rawOffset(rawOffsetGMT),
      useDaylight(false),
      startMode(DOM_MODE),
      endMode(DOM_MODE),
      dstSavings(kMillisPerHour) {
    decodeRules(status);
}

SimpleTimeZone::SimpleTimeZone(std::int32_t rawOffsetGMT, const ucs2string& id,
                               std::int8_t savingsStartMonth, std::int8_t savingsStartDay,
                               std::int8_t savingsStartDayOfWeek, std::int32_t savingsStartTime,
                               std::int8_t savingsEndMonth, std::int8_t savingsEndDay,
                               std::int8_t savingsEndDayOfWeek, std::int32_t savingsEndTime,
                               std::int32_t savingsDST, UErrorCode& status)
    : TimeZone(id) {
    construct(rawOffsetGMT, savingsStartMonth, savingsStartDay, savingsStartDayOfWeek,
              savingsStartTime, WALL_TIME, savingsEndMonth, savingsEndDay, savingsEndDayOfWeek,
              savingsEndTime, WALL_TIME, savingsDST, status);
}

SimpleTimeZone::SimpleTimeZone(std::int32_t rawOffsetGMT, const ucs2string& id,
                               std::int8_t savingsStartMonth, std::int8_t savingsStartDay,
                               std::int8_t savingsStartDayOfWeek, std::int32_t savingsStartTime,
                               TimeMode savingsStartTimeMode, std::int8_t savingsEndMonth,
                               std::int8_t savingsEndDay, std::int8_t savingsEndDayOfWeek,
                               std::int32_t savingsEndTime, TimeMode savingsEndTimeMode,
                               std::int32_t savingsDST, UErrorCode& status)
    : TimeZone(id) {
    construct(rawOffsetGMT, savingsStartMonth, savingsStartDay, savingsStartDayOfWeek,
              savingsStartTime, savingsStartTimeMode, savingsEndMonth, savingsEndDay,
              savingsEndDayOfWeek, savingsEndTime, savingsEndTimeMode, savingsDST, status);
}

SimpleTimeZone::SimpleTimeZone(const StandardZone& record, const ucs2string& id)
    : SimpleTimeZone(record.rawOffset, id) {
    dstSavings = 0;
}

// Records hold minutes; a product that leaves 32 bits wraps and is then
// refused by decoding (a time) or read as a non-positive saving. Table
// records are valid, so the status is not looked at.
SimpleTimeZone::SimpleTimeZone(const DSTZone& record, const ucs2string& id) : TimeZone(id) {
    UErrorCode status = UErrorNone;
    construct(record.rawOffset, record.startMonth, record.startDay, record.startDayOfWeek,
              Wrap32(static_cast<std::int64_t>(record.startTime) * kMillisPerMinute),
              ModeFromByte(record.startTimeMode), record.endMonth, record.endDay,
              record.endDayOfWeek,
              Wrap32(static_cast<std::int64_t>(record.endTime) * kMillisPerMinute),
              ModeFromByte(record.endTimeMode),
              Wrap32(static_cast<std::int64_t>(record.dstSavings) * kMillisPerMinute), status);
}

SimpleTimeZone::SimpleTimeZone(const SimpleTimeZone& other)
    : TimeZone(other),
      startMonth(other.startMonth),
      startDay(other.startDay),
      startDayOfWeek(other.startDayOfWeek),
      startTime(other.startTime),
      startTimeMode(other.startTimeMode),
      endTimeMode(other.endTimeMode),
      endMonth(other.endMonth),
      endDay(other.endDay),
      endDayOfWeek(other.endDayOfWeek),
      endTime(other.endTime),
      startYear(other.startYear),
      rawOffset(other.rawOffset),
      useDaylight(other.useDaylight),
      startMode(other.startMode),
      endMode(other.endMode),
      dstSavings(other.dstSavings) {}

SimpleTimeZone& SimpleTimeZone::operator=(const SimpleTimeZone& other) {
    if (this == &other) return *this;
    TimeZone::operator=(other);
    startMonth = other.startMonth;
    startDay = other.startDay;
    startDayOfWeek = other.startDayOfWeek;
    startTime = other.startTime;
    startTimeMode = other.startTimeMode;
    endTimeMode = other.endTimeMode;
    endMonth = other.endMonth;
    endDay = other.endDay;
    endDayOfWeek = other.endDayOfWeek;
    endTime = other.endTime;
    startYear = other.startYear;
    rawOffset = other.rawOffset;
    useDaylight = other.useDaylight;
    startMode = other.startMode;
    endMode = other.endMode;
    dstSavings = other.dstSavings;
    return *this;
}

SimpleTimeZone::~SimpleTimeZone() = default;

TimeZone* SimpleTimeZone::clone() const {
    return new SimpleTimeZone(*this);
}

// Every field is stored before anything is checked, so that a refused rule
// leaves the zone as written; the saving is judged last, by its argument,
// even where decoding has put one hour in place of a saving of 0.
void SimpleTimeZone::construct(std::int32_t rawOffsetGMT, std::int8_t savingsStartMonth,
                               std::int8_t savingsStartDay, std::int8_t savingsStartDayOfWeek,
                               std::int32_t savingsStartTime, TimeMode savingsStartTimeMode,
                               std::int8_t savingsEndMonth, std::int8_t savingsEndDay,
                               std::int8_t savingsEndDayOfWeek, std::int32_t savingsEndTime,
                               TimeMode savingsEndTimeMode, std::int32_t savingsDST,
                               UErrorCode& status) {
    rawOffset = rawOffsetGMT;
    startMonth = savingsStartMonth;
    startDay = savingsStartDay;
    startDayOfWeek = savingsStartDayOfWeek;
    startTime = savingsStartTime;
    startTimeMode = savingsStartTimeMode;
    endMonth = savingsEndMonth;
    endDay = savingsEndDay;
    endDayOfWeek = savingsEndDayOfWeek;
    endTime = savingsEndTime;
    endTimeMode = savingsEndTimeMode;
    dstSavings = savingsDST;
    startYear = 0;
    useDaylight = false;
    startMode = DOM_MODE;
    endMode = DOM_MODE;

    decodeRules(status);

    if (savingsDST <= 0) status = UErrorIllegalArgument;
}

// ---------------------------------------------------------------------------
// Rules

void SimpleTimeZone::setStartYear(std::int32_t year) {
    startYear = year;
}

void SimpleTimeZone::setStartRule(std::int32_t month, std::int32_t dayOfWeekInMonth,
                                  std::int32_t dayOfWeek, std::int32_t time, TimeMode mode,
                                  UErrorCode& status) {
    startMonth = Wrap8(month);
    startDay = Wrap8(dayOfWeekInMonth);
    startDayOfWeek = Wrap8(dayOfWeek);
    startTime = time;
    startTimeMode = mode;
    decodeStartRule(status);
}

void SimpleTimeZone::setStartRule(std::int32_t month, std::int32_t dayOfWeekInMonth,
                                  std::int32_t dayOfWeek, std::int32_t time, UErrorCode& status) {
    setStartRule(month, dayOfWeekInMonth, dayOfWeek, time, WALL_TIME, status);
}

void SimpleTimeZone::setStartRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t time,
                                  TimeMode mode, UErrorCode& status) {
    setStartRule(month, dayOfMonth, 0, time, mode, status);
}

void SimpleTimeZone::setStartRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t time,
                                  UErrorCode& status) {
    setStartRule(month, dayOfMonth, 0, time, WALL_TIME, status);
}

// The sign code of the day and weekday says "on or after" or "on or before";
// the negations are taken in 64 bits and kept to their low byte, as the
// fields are.
void SimpleTimeZone::setStartRule(std::int32_t month, std::int32_t dayOfMonth,
                                  std::int32_t dayOfWeek, std::int32_t time, TimeMode mode,
                                  bool after, UErrorCode& status) {
    startMonth = Wrap8(month);
    startDay = after ? Wrap8(dayOfMonth) : Wrap8(-static_cast<std::int64_t>(dayOfMonth));
    startDayOfWeek = Wrap8(-static_cast<std::int64_t>(dayOfWeek));
    startTime = time;
    startTimeMode = mode;
    decodeStartRule(status);
}

void SimpleTimeZone::setStartRule(std::int32_t month, std::int32_t dayOfMonth,
                                  std::int32_t dayOfWeek, std::int32_t time, bool after,
                                  UErrorCode& status) {
    setStartRule(month, dayOfMonth, dayOfWeek, time, WALL_TIME, after, status);
}

void SimpleTimeZone::setEndRule(std::int32_t month, std::int32_t dayOfWeekInMonth,
                                std::int32_t dayOfWeek, std::int32_t time, TimeMode mode,
                                UErrorCode& status) {
    endMonth = Wrap8(month);
    endDay = Wrap8(dayOfWeekInMonth);
    endDayOfWeek = Wrap8(dayOfWeek);
    endTime = time;
    endTimeMode = mode;
    decodeEndRule(status);
}

void SimpleTimeZone::setEndRule(std::int32_t month, std::int32_t dayOfWeekInMonth,
                                std::int32_t dayOfWeek, std::int32_t time, UErrorCode& status) {
    setEndRule(month, dayOfWeekInMonth, dayOfWeek, time, WALL_TIME, status);
}

void SimpleTimeZone::setEndRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t time,
                                TimeMode mode, UErrorCode& status) {
    setEndRule(month, dayOfMonth, 0, time, mode, status);
}

void SimpleTimeZone::setEndRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t time,
                                UErrorCode& status) {
    setEndRule(month, dayOfMonth, 0, time, WALL_TIME, status);
}

void SimpleTimeZone::setEndRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t dayOfWeek,
                                std::int32_t time, TimeMode mode, bool after, UErrorCode& status) {
    endMonth = Wrap8(month);
    endDay = after ? Wrap8(dayOfMonth) : Wrap8(-static_cast<std::int64_t>(dayOfMonth));
    endDayOfWeek = Wrap8(-static_cast<std::int64_t>(dayOfWeek));
    endTime = time;
    endTimeMode = mode;
    decodeEndRule(status);
}

void SimpleTimeZone::setEndRule(std::int32_t month, std::int32_t dayOfMonth, std::int32_t dayOfWeek,
                                std::int32_t time, bool after, UErrorCode& status) {
    setEndRule(month, dayOfMonth, dayOfWeek, time, WALL_TIME, after, status);
}

void SimpleTimeZone::setDSTSavings(std::int32_t millisSavedDuringDST) {
    dstSavings = millisSavedDuringDST;
}

void SimpleTimeZone::setDSTSavings(std::int32_t millisSavedDuringDST, UErrorCode& status) {
    dstSavings = millisSavedDuringDST;
    if (millisSavedDuringDST <= 0) status = UErrorIllegalArgument;
}

void SimpleTimeZone::decodeRules(UErrorCode& status) {
    decodeStartRule(status);
    decodeEndRule(status);
}

// Brings the start rule into its normal form. The fields keep what the
// caller wrote until a check passes, and a refused rule stops where it was
// refused; the negations stay within the byte, as a byte field does.
void SimpleTimeZone::decodeStartRule(UErrorCode& status) {
    if (U_FAILURE(status)) return;

    useDaylight = startDay != 0 && endDay != 0;
    if (useDaylight && dstSavings == 0) dstSavings = kMillisPerHour;
    if (startDay == 0) return;

    if (startMonth < 0 || startMonth > 11 || startTime < 0 || startTime > kMillisPerDay ||
        !IsValidMode(startTimeMode)) {
        status = UErrorIllegalArgument;
        return;
    }
    if (startDayOfWeek == 0) {
        startMode = DOM_MODE;
    } else {
        if (startDayOfWeek > 0) {
            startMode = DOW_IN_MONTH_MODE;
        } else {
            startDayOfWeek = Wrap8(-static_cast<std::int32_t>(startDayOfWeek));
            if (startDay > 0) {
                startMode = DOW_GE_DOM_MODE;
            } else {
                startDay = Wrap8(-static_cast<std::int32_t>(startDay));
                startMode = DOW_LE_DOM_MODE;
            }
        }
        if (startDayOfWeek > 7) {
            status = UErrorIllegalArgument;
            return;
        }
    }
    if (startMode == DOW_IN_MONTH_MODE) {
        if (startDay < -5 || startDay > 5) status = UErrorIllegalArgument;
    } else if (startDay > staticMonthLength[startMonth]) {
        status = UErrorIllegalArgument;
    }
}

// The mirror of decodeStartRule on the end fields.
void SimpleTimeZone::decodeEndRule(UErrorCode& status) {
    if (U_FAILURE(status)) return;

    useDaylight = startDay != 0 && endDay != 0;
    if (useDaylight && dstSavings == 0) dstSavings = kMillisPerHour;
    if (endDay == 0) return;

    if (endMonth < 0 || endMonth > 11 || endTime < 0 || endTime > kMillisPerDay ||
        !IsValidMode(endTimeMode)) {
        status = UErrorIllegalArgument;
        return;
    }
    if (endDayOfWeek == 0) {
        endMode = DOM_MODE;
    } else {
        if (endDayOfWeek > 0) {
            endMode = DOW_IN_MONTH_MODE;
        } else {
            endDayOfWeek = Wrap8(-static_cast<std::int32_t>(endDayOfWeek));
            if (endDay > 0) {
                endMode = DOW_GE_DOM_MODE;
            } else {
                endDay = Wrap8(-static_cast<std::int32_t>(endDay));
                endMode = DOW_LE_DOM_MODE;
            }
        }
        if (endDayOfWeek > 7) {
            status = UErrorIllegalArgument;
            return;
        }
    }
    if (endMode == DOW_IN_MONTH_MODE) {
        if (endDay < -5 || endDay > 5) status = UErrorIllegalArgument;
    } else if (endDay > staticMonthLength[endMonth]) {
        status = UErrorIllegalArgument;
    }
}

// ---------------------------------------------------------------------------
// Offsets

std::int32_t SimpleTimeZone::getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                                       std::int32_t day, std::uint8_t dayOfWeek,
                                       std::int32_t millis) const {
    UErrorCode status = UErrorNone;
    return getOffset(era, year, month, day, dayOfWeek, millis, status);
}

std::int32_t SimpleTimeZone::getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                                       std::int32_t day, std::uint8_t dayOfWeek,
                                       std::int32_t millis, UErrorCode& status) const {
    if (month < 0 || month > 11) {
        status = UErrorIllegalArgument;
        return 0;
    }
    return getOffset(era, year, month, day, dayOfWeek, millis, staticMonthLength[month],
                     PreviousMonthLength(month), status);
}

std::int32_t SimpleTimeZone::getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                                       std::int32_t day, std::uint8_t dayOfWeek,
                                       std::int32_t millis, std::int32_t monthLength,
                                       UErrorCode& status) const {
    if (month < 0 || month > 11) {
        status = UErrorIllegalArgument;
        return -1;
    }
    return getOffset(era, year, month, day, dayOfWeek, millis, monthLength,
                     PreviousMonthLength(month), status);
}

// `millis` is local standard time. The date is checked completely before any
// rule is looked at, so the comparisons below see a month 0 to 11, a day
// within a month of 28 to 31 days, a weekday 1 to 7 and a time within the
// day; only prevMonthLength comes as given, kept to its low byte. Negating
// the raw offset and adding the saving wrap in 32 bits.
std::int32_t SimpleTimeZone::getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                                       std::int32_t day, std::uint8_t dayOfWeek,
                                       std::int32_t millis, std::int32_t monthLength,
                                       std::int32_t prevMonthLength, UErrorCode& status) const {
    if (U_FAILURE(status)) return 0;

    if ((era != 0 && era != 1) || month < 0 || month > 11 || day < 1 || day > monthLength ||
        dayOfWeek < 1 || dayOfWeek > 7 || millis < 0 || millis >= kMillisPerDay ||
        monthLength < 28 || monthLength > 31) {
        status = UErrorIllegalArgument;
        return -1;
    }

    if (!useDaylight || year < startYear || era != 1) return rawOffset;

    const bool southern = startMonth > endMonth;
    const std::int32_t negatedRaw = Wrap32(-static_cast<std::int64_t>(rawOffset));

    const std::int8_t month8 = static_cast<std::int8_t>(month);
    const std::int8_t monthLen8 = static_cast<std::int8_t>(monthLength);
    const std::int8_t prevMonthLen8 = Wrap8(prevMonthLength);
    const std::int8_t day8 = static_cast<std::int8_t>(day);
    const std::int8_t dayOfWeek8 = static_cast<std::int8_t>(dayOfWeek);

    const std::int32_t startCompare =
        compareToRule(month8, monthLen8, prevMonthLen8, day8, dayOfWeek8, millis,
                      startTimeMode == UTC_TIME ? negatedRaw : 0, startMode, startMonth,
                      startDayOfWeek, startDay, startTime);

    // The end rule matters only on the side of the start rule where it can
    // still change the answer.
    std::int32_t endCompare = 0;
    if (southern != (startCompare >= 0)) {
        std::int32_t endDelta = 0;
        if (endTimeMode == WALL_TIME) {
            endDelta = dstSavings;
        } else if (endTimeMode == UTC_TIME) {
            endDelta = negatedRaw;
        }
        endCompare = compareToRule(month8, monthLen8, prevMonthLen8, day8, dayOfWeek8, millis,
                                   endDelta, endMode, endMonth, endDayOfWeek, endDay, endTime);
    }

    const bool inDaylight =
        southern ? (startCompare >= 0 || endCompare < 0) : (startCompare >= 0 && endCompare < 0);
    if (!inDaylight) return rawOffset;
    return Wrap32(static_cast<std::int64_t>(rawOffset) + dstSavings);
}

// The date is first moved by `millisDelta` into the time base of the rule,
// day by day. The sum is formed in 64 bits, so it is exact, and as both terms
// are 32-bit it lies within 2^32 of 0: each loop runs at most 50 times (at
// most 26 from getOffset, whose millis lies within one day). The month and
// day stay bytes throughout and wrap as bytes do.
std::int32_t SimpleTimeZone::compareToRule(std::int8_t month, std::int8_t monthLen,
                                           std::int8_t prevMonthLen, std::int8_t dayOfMonth,
                                           std::int8_t dayOfWeek, std::int32_t millis,
                                           std::int32_t millisDelta, EMode ruleMode,
                                           std::int8_t ruleMonth, std::int8_t ruleDayOfWeek,
                                           std::int8_t ruleDay, std::int32_t ruleMillis) {
    std::int64_t localMillis = static_cast<std::int64_t>(millis) + millisDelta;
    while (localMillis >= kMillisPerDay) {
        localMillis -= kMillisPerDay;
        dayOfMonth = Wrap8(dayOfMonth + 1);
        dayOfWeek = Wrap8(1 + dayOfWeek % 7);
        if (dayOfMonth > monthLen) {
            dayOfMonth = 1;
            month = Wrap8(month + 1);
        }
    }
    while (localMillis < 0) {
        localMillis += kMillisPerDay;
        dayOfMonth = Wrap8(dayOfMonth - 1);
        dayOfWeek = Wrap8(1 + (dayOfWeek + 5) % 7);
        if (dayOfMonth < 1) {
            dayOfMonth = prevMonthLen;
            month = Wrap8(month - 1);
        }
    }

    if (month < ruleMonth) return -1;
    if (month > ruleMonth) return 1;

    // All terms are bytes widened to int: no sum or product below can overflow.
    std::int32_t ruleDayOfMonth = 0;
    switch (ruleMode) {
        case DOM_MODE:
            ruleDayOfMonth = ruleDay;
            break;
        case DOW_IN_MONTH_MODE:
            if (ruleDay > 0) {
                ruleDayOfMonth = (dayOfMonth - dayOfWeek + ruleDayOfWeek + 6) % 7 + 7 * ruleDay - 6;
            } else {
                ruleDayOfMonth = 7 * (ruleDay + 1) + monthLen -
                                 (dayOfWeek - dayOfMonth - ruleDayOfWeek + 7 + monthLen) % 7;
            }
            break;
        case DOW_GE_DOM_MODE:
            ruleDayOfMonth = ruleDay + (dayOfMonth - dayOfWeek - ruleDay + ruleDayOfWeek + 49) % 7;
            break;
        case DOW_LE_DOM_MODE:
            ruleDayOfMonth = ruleDay - (dayOfWeek - dayOfMonth - ruleDayOfWeek + 49 + ruleDay) % 7;
            break;
    }

    if (dayOfMonth < ruleDayOfMonth) return -1;
    if (dayOfMonth > ruleDayOfMonth) return 1;
    if (localMillis < ruleMillis) return -1;
    if (localMillis > ruleMillis) return 1;
    return 0;
}

// ---------------------------------------------------------------------------
// Comparison and daylight query

bool SimpleTimeZone::hasSameRules(const TimeZone& other) const {
    if (this == &other) return true;
    if (other.getDynamicClassID() != getStaticClassID()) return false;
    const SimpleTimeZone& that = static_cast<const SimpleTimeZone&>(other);
    if (rawOffset != that.rawOffset || useDaylight != that.useDaylight) return false;
    if (!useDaylight) return true;
    return dstSavings == that.dstSavings && startMode == that.startMode &&
           startMonth == that.startMonth && startDay == that.startDay &&
           startDayOfWeek == that.startDayOfWeek && startTime == that.startTime &&
           startTimeMode == that.startTimeMode && endMode == that.endMode &&
           endMonth == that.endMonth && endDay == that.endDay &&
           endDayOfWeek == that.endDayOfWeek && endTime == that.endTime &&
           endTimeMode == that.endTimeMode && startYear == that.startYear;
}

bool SimpleTimeZone::operator==(const TimeZone& other) const {
    if (this == &other) return true;
    return getDynamicClassID() == other.getDynamicClassID() && TimeZone::operator==(other) &&
           hasSameRules(other);
}

// A fresh calendar on a private clone each time: the zone keeps no calendar,
// so a const zone can be asked from several threads.
bool SimpleTimeZone::inDaylightTime(double date, UErrorCode& status) const {
    if (U_FAILURE(status)) return false;
    GregorianCalendar calendar(*this, status);
    if (U_FAILURE(status)) return false;
    calendar.setTime(date, status);
    return calendar.inDaylightTime(status);
}

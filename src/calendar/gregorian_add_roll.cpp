// GregorianCalendar: moving a date by a count of one field, with carry into
// the larger fields (add) and without it (roll); the actual limits of a
// field; the daylight query.
//
// The engine's integers are 32 bits wide and wrap as the machine's do. Sums
// and products of fields and caller amounts are formed in 64 bits, where they
// cannot overflow, and brought back modulo 2^32 by Wrap32, so that any amount
// a caller passes gives a defined value, however meaningless, rather than
// undefined behaviour. Every remainder is taken by a divisor that is checked
// to be positive first. Moves of the instant are made in double milliseconds;
// nothing here converts a double to an integer.
#include <cmath>
#include <cstdint>
#include <memory>

#include "calendar/engine_arithmetic.h"
#include "kai18n/calendar/gregorian_calendar.h"

namespace {

using namespace calendar_engine;

constexpr double kDay = GregorianCalendar::kOneDay;
constexpr double kWeek = GregorianCalendar::kOneWeek;
constexpr double kHour = GregorianCalendar::kOneHour;

// The value `amount` steps from `value` on the ring `min`..`max`, each wrap
// of the sum in 32 bits. False, with `result` untouched, when the ring is
// empty: the limit tables never give one, the test keeps a bad limit from
// becoming a remainder by 0.
bool WrapOnRing(std::int32_t value, std::int32_t min, std::int32_t max, std::int32_t amount,
                std::int32_t& result) {
    const std::int64_t gap = static_cast<std::int64_t>(max) - min + 1;
    if (gap < 1 || gap > INT32_MAX) return false;
    const std::int32_t width = static_cast<std::int32_t>(gap);
    std::int32_t v = Wrap32(static_cast<std::int64_t>(value) - min + amount) % width;
    if (v < 0) v += width;
    // v + min lies between min and max, so it fits.
    result = Wrap32(static_cast<std::int64_t>(v) + min);
    return true;
}

// fmod(offset, period) moved up by one period when negative: a position
// within a ring of `period` milliseconds. Every period passed is positive.
inline double PositionInPeriod(double offset, double period) {
    double r = std::fmod(offset, period);
    if (r < 0) r += period;
    return r;
}

}  // namespace

bool GregorianCalendar::completeBeforeMove(EDateFields field, std::int32_t amount,
                                           UErrorCode& status) {
    if (U_FAILURE(status) || amount == 0) return false;
    if (!IsField(field)) {
        status = UErrorIllegalArgument;
        return false;
    }
    complete(status);
    return U_SUCCESS(status);
}

void GregorianCalendar::add(EDateFields field, std::int32_t amount, UErrorCode& status) {
    if (!completeBeforeMove(field, amount, status)) return;

    switch (field) {
        case YEAR:
        case YEAR_WOY: {
            // In era 0 years count backwards, so a step forward lowers the year.
            const std::int32_t era = internalGetEra();
            const std::int64_t step =
                era == 1 ? static_cast<std::int64_t>(amount) : -static_cast<std::int64_t>(amount);
            const std::int32_t year = Wrap32(internalGet(field) + step);
            if (year > 0) {
                set(field, year);
            } else {
                // Year 0 of one era is year 1 of the other.
                set(field, Wrap32(1 - static_cast<std::int64_t>(year)));
                set(ERA, Wrap32(1 - static_cast<std::int64_t>(era)));
            }
            pinDayOfMonth();
            return;
        }
        case MONTH: {
            const std::int32_t m = Wrap32(static_cast<std::int64_t>(internalGet(MONTH)) + amount);
            if (m >= 0) {
                add(YEAR, m / 12, status);
                set(MONTH, m % 12);
            } else {
                // Floor division: -1 is December of the year before. m + 1
                // cannot overflow for a negative m.
                add(YEAR, (m + 1) / 12 - 1, status);
                std::int32_t month = m % 12;
                if (month < 0) month += 12;
                set(MONTH, month);
            }
            pinDayOfMonth();
            return;
        }
        case ERA: {
            std::int32_t e = Wrap32(static_cast<std::int64_t>(internalGet(ERA)) + amount);
            if (e < 0) e = 0;
            if (e > 1) e = 1;
            set(ERA, e);
            return;
        }
        default:
            break;
    }

    // The remaining fields move the instant by a fixed span. Day-based spans
    // keep the clock reading across a daylight change; hours and smaller
    // units are physical time.
    double unit = 0.0;
    bool keepWallTime = true;
    switch (field) {
        case WEEK_OF_YEAR:
        case WEEK_OF_MONTH:
        case DAY_OF_WEEK_IN_MONTH:
            unit = kWeek;
            break;
        case DAY_OF_MONTH:
        case DAY_OF_YEAR:
        case DAY_OF_WEEK:
        case DOW_LOCAL:
            unit = kDay;
            break;
        case AM_PM:
            unit = 43200000.0;
            break;
        case HOUR:
        case HOUR_OF_DAY:
            unit = kHour;
            keepWallTime = false;
            break;
        case MINUTE:
            unit = kOneMinute;
            keepWallTime = false;
            break;
        case SECOND:
            unit = kOneSecond;
            keepWallTime = false;
            break;
        case MILLISECOND:
            unit = 1.0;
            keepWallTime = false;
            break;
        default:
            // ZONE_OFFSET and DST_OFFSET are read from the zone, not moved.
            status = UErrorIllegalArgument;
            return;
    }

    const std::int32_t oldDst = internalGet(DST_OFFSET);
    setTimeInMillis(time + amount * unit, status);
    if (keepWallTime) {
        const std::int32_t newDst = internalGet(DST_OFFSET);
        if (newDst != oldDst) {
            // The offsets are subtracted as doubles: zone offsets need not be small.
            setTimeInMillis(time + (static_cast<double>(oldDst) - newDst), status);
        }
    }
}

void GregorianCalendar::roll(EDateFields field, std::int32_t amount, UErrorCode& status) {
    if (!completeBeforeMove(field, amount, status)) return;

    std::int32_t min = getMinimum(field);
    std::int32_t max = getMaximum(field);

    // The month of the cutover lost ten days: from 4 October 1582 the next
    // day is the 15th. A roll within it runs on the instant, from the month's
    // first day over its real length, rather than on the day number.
    double monthStart = 0.0;
    std::int32_t dom = 0;
    std::int32_t cMonthLen = 0;
    bool inCutoverMonth = false;
    if (field == DAY_OF_MONTH || field == WEEK_OF_MONTH) {
        max = monthLength(internalGet(MONTH));
        const double cutover = getGregorianChange();
        dom = internalGet(DAY_OF_MONTH);
        if (time >= cutover) dom = Wrap32(static_cast<std::int64_t>(dom) - 10);
        monthStart = time - Wrap32(static_cast<std::int64_t>(dom) - 1) * kDay;
        const std::int32_t shortLen = Wrap32(static_cast<std::int64_t>(max) - 10);
        inCutoverMonth = monthStart < cutover && monthStart + shortLen * kDay >= cutover;
        if (inCutoverMonth) cMonthLen = shortLen;
    }

    switch (field) {
        case ERA:
        case YEAR: {
            std::int32_t v = 0;
            if (WrapOnRing(internalGet(field), min, max, amount, v)) set(field, v);
            pinDayOfMonth();
            return;
        }
        case MONTH: {
            std::int32_t m = Wrap32(static_cast<std::int64_t>(internalGet(MONTH)) + amount) % 12;
            if (m < 0) m += 12;
            set(MONTH, m);
            pinDayOfMonth();
            return;
        }
        case WEEK_OF_YEAR: {
            // Count the day of the year from 1 January of the year the week
            // belongs to, which for the edges of a year is the year beside it.
            const std::int32_t year = internalGet(YEAR_WOY);
            std::int32_t doy = internalGet(DAY_OF_YEAR);
            std::int32_t woy = internalGet(WEEK_OF_YEAR);
            if (internalGet(MONTH) == 0 && woy >= 52) {
                doy = Wrap32(static_cast<std::int64_t>(doy) + yearLength(year));
            }
            if (internalGet(MONTH) != 0 && woy == 1) {
                doy = Wrap32(static_cast<std::int64_t>(doy) -
                             yearLength(Wrap32(static_cast<std::int64_t>(year) - 1)));
            }
            woy = Wrap32(static_cast<std::int64_t>(woy) + amount);
            if (woy < 1 || woy > 52) {
                // Find the last week of that year and wrap around it.
                std::int32_t lastDoy = yearLength(year);
                std::int32_t lastRelDow =
                    Wrap32(static_cast<std::int64_t>(internalGet(DAY_OF_WEEK)) - doy + lastDoy -
                           firstDayOfWeek) %
                    7;
                if (lastRelDow < 0) lastRelDow += 7;
                // A short last week belongs to the next year.
                if (6 - lastRelDow >= minimalDaysInFirstWeek) lastDoy -= 7;
                // weekNumber wants the weekday itself (Sunday = 1), not its
                // place in the week: only with weeks from Sunday are they the
                // same, and with others the last week would be miscounted
                // (51 weeks for 2001 with weeks from Monday and 4 days).
                std::int32_t lastDow =
                    Wrap32(static_cast<std::int64_t>(lastRelDow) + firstDayOfWeek - 1) % 7;
                if (lastDow < 0) lastDow += 7;
                const std::int32_t lastWeek = weekNumber(lastDoy, lastDow + 1);
                // lastDoy is at least 358, so lastWeek is at least 51; the test
                // only keeps a broken week count from becoming a remainder by 0.
                if (lastWeek > 0) {
                    // A roll stays within its year: a step below week 1
                    // wraps to the end, as every other wrap does.
                    std::int32_t wrapped =
                        Wrap32(static_cast<std::int64_t>(woy) + lastWeek - 1) % lastWeek;
                    if (wrapped < 0) wrapped += lastWeek;
                    woy = wrapped + 1;
                }
            }
            set(WEEK_OF_YEAR, woy);
            set(YEAR_WOY, year);
            return;
        }
        case WEEK_OF_MONTH: {
            // Step the day by whole weeks over the span from the first day of
            // the month's first week to the last day of its last week, then
            // keep it inside the month.
            std::int32_t dow =
                Wrap32(static_cast<std::int64_t>(internalGet(DAY_OF_WEEK)) - firstDayOfWeek);
            if (dow < 0) dow += 7;
            const std::int32_t d = inCutoverMonth ? dom : internalGet(DAY_OF_MONTH);
            std::int32_t fdm = Wrap32(static_cast<std::int64_t>(dow) - d + 1) % 7;
            if (fdm < 0) fdm += 7;
            const std::int32_t start = (7 - fdm < minimalDaysInFirstWeek ? 8 : 1) - fdm;
            const std::int32_t monthLen =
                inCutoverMonth ? cMonthLen : monthLength(internalGet(MONTH));
            const std::int32_t ldm = Wrap32(static_cast<std::int64_t>(monthLen) - d + dow) % 7;
            const std::int32_t limit =
                Wrap32(static_cast<std::int64_t>(monthLen) - ldm - start + 7);
            // With a day inside its month the span is at least 11 days; the
            // test only keeps inconsistent fields from a remainder by 0.
            if (limit < 1) return;
            std::int32_t v = Wrap32(7 * static_cast<std::int64_t>(amount) - start + d) % limit;
            if (v < 0) v += limit;
            v += start;  // v is below limit, which is below 50: no overflow
            if (v < 1) v = 1;
            if (v > monthLen) v = monthLen;
            if (inCutoverMonth) {
                setTimeInMillis(monthStart + (v - 1) * kDay, status);
            } else {
                set(DAY_OF_MONTH, v);
            }
            return;
        }
        case DAY_OF_MONTH: {
            if (inCutoverMonth) {
                // cMonthLen is the month length less 10, at least 18.
                const double len = cMonthLen * kDay;
                if (len > 0) {
                    const double r = PositionInPeriod(time - monthStart + amount * kDay, len);
                    setTimeInMillis(monthStart + r, status);
                }
            } else {
                std::int32_t v = 0;
                if (WrapOnRing(internalGet(DAY_OF_MONTH), min, max, amount, v)) {
                    set(DAY_OF_MONTH, v);
                }
            }
            return;
        }
        case DAY_OF_YEAR: {
            const double yearStart =
                time - Wrap32(static_cast<std::int64_t>(internalGet(DAY_OF_YEAR)) - 1) * kDay;
            const double len = yearLength() * kDay;  // 365 or 366 days
            const double r = PositionInPeriod(time + amount * kDay - yearStart, len);
            setTimeInMillis(yearStart + r, status);
            return;
        }
        case DAY_OF_WEEK:
        case DOW_LOCAL: {
            // Days since the first day of this week.
            std::int32_t lead =
                field == DAY_OF_WEEK
                    ? Wrap32(static_cast<std::int64_t>(internalGet(DAY_OF_WEEK)) - firstDayOfWeek)
                    : Wrap32(static_cast<std::int64_t>(internalGet(DOW_LOCAL)) - 1);
            if (lead < 0) lead += 7;
            const double weekStart = time - lead * kDay;
            const double r = PositionInPeriod(time + amount * kDay - weekStart, kWeek);
            setTimeInMillis(weekStart + r, status);
            return;
        }
        case DAY_OF_WEEK_IN_MONTH: {
            // The same weekday walks around the weeks of its month.
            const std::int32_t date = internalGet(DAY_OF_MONTH);
            const std::int32_t pre = Wrap32(static_cast<std::int64_t>(date) - 1) / 7;
            const std::int32_t post =
                Wrap32(static_cast<std::int64_t>(monthLength(internalGet(MONTH))) - date) / 7;
            const double first = time - pre * kWeek;
            const double len = Wrap32(static_cast<std::int64_t>(pre) + post + 1) * kWeek;
            // With a day inside its month there is at least one week; the
            // test only keeps inconsistent fields from a remainder by 0.
            if (len > 0) {
                const double r = PositionInPeriod(time + amount * kWeek - first, len);
                setTimeInMillis(first + r, status);
            }
            return;
        }
        case AM_PM:
        case MINUTE:
        case SECOND:
        case MILLISECOND:
        case YEAR_WOY: {
            std::int32_t v = 0;
            if (WrapOnRing(internalGet(field), min, max, amount, v)) set(field, v);
            return;
        }
        case HOUR:
        case HOUR_OF_DAY: {
            // Move the instant by whole hours, so the date stays and a
            // daylight change is passed as physical time.
            const double start = getTimeInMillis(status);
            const std::int32_t value = internalGet(field);
            const std::int64_t hours = static_cast<std::int64_t>(max) + 1;  // 12 or 24
            if (hours < 1 || hours > INT32_MAX) return;
            const std::int32_t period = static_cast<std::int32_t>(hours);
            std::int32_t h = Wrap32(static_cast<std::int64_t>(value) + amount) % period;
            if (h < 0) h += period;
            setTime(start + (static_cast<double>(h) - value) * kHour, status);
            return;
        }
        default:
            // ZONE_OFFSET and DST_OFFSET are read from the zone, not moved.
            status = UErrorIllegalArgument;
            return;
    }
}

std::int32_t GregorianCalendar::getActualMinimum(EDateFields field) const {
    return getMinimum(field);
}

std::int32_t GregorianCalendar::getActualMaximum(EDateFields field) const {
    UErrorCode status = UErrorNone;
    switch (field) {
        case DAY_OF_MONTH:
            return monthLength(get(MONTH, status));
        case DAY_OF_YEAR:
            return yearLength();
        case WEEK_OF_YEAR:
        case WEEK_OF_MONTH:
        case DAY_OF_WEEK_IN_MONTH:
            return Calendar::getActualMaximum(field, status);
        case YEAR:
        case YEAR_WOY:
            break;
        default:
            return getMaximum(field);
    }

    // The largest year that a lenient clone takes without moving it or its
    // era: a binary search between the least and the greatest maximum.
    std::unique_ptr<Calendar> cal(clone());
    if (!cal) return 0;
    cal->setLenient(true);
    const std::int32_t era = cal->get(ERA, status);
    const double good = cal->getTimeInMillis(status);
    if (U_FAILURE(status)) return 0;

    std::int32_t low = kLeastMaxValues[field];
    std::int32_t high = kMaxValues[field] + 1;
    while (low + 1 < high) {
        const std::int32_t y = (low + high) / 2;  // both below 2^18: no overflow
        cal->set(field, y);
        if (cal->get(field, status) == y && cal->get(ERA, status) == era) {
            low = y;
        } else {
            high = y;
            cal->setTimeInMillis(good, status);
        }
    }
    return low;
}

bool GregorianCalendar::inDaylightTime(UErrorCode& status) const {
    if (U_FAILURE(status) || !zone->useDaylightTime()) return false;
    // Reading the offset fills the calendar's cached fields, which is no change
    // of the date it holds; the query is const to its callers.
    const_cast<GregorianCalendar*>(this)->complete(status);
    if (U_FAILURE(status)) return false;
    return internalGet(DST_OFFSET) != 0;
}

// Calendar: the machinery that every concrete calendar shares: the instant and
// the fields with their validity flags, the stamps that tell which field was
// written last, the lazy conversions between the two forms, and the walks that
// find the actual limits of a field in a lenient clone.
#include "kai18n/calendar/calendar.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <new>

#include "calendar/engine_arithmetic.h"
#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/calendar/uprv.h"

char Calendar::fgClassID = 0;

const int Calendar::kFieldCount;
const std::int32_t Calendar::kUnset;
const std::int32_t Calendar::kInternallySet;
const std::int32_t Calendar::kMinimumUserStamp;

namespace {

using namespace calendar_engine;

constexpr std::int32_t kLastStamp = std::numeric_limits<std::int32_t>::max();

}  // namespace

// ---- creation and ownership

Calendar* Calendar::createInstance(TimeZone* zone, UErrorCode& status) {
    if (U_FAILURE(status)) {
        delete zone;
        return nullptr;
    }
    Calendar* calendar = new (std::nothrow) GregorianCalendar(zone, status);
    if (calendar == nullptr) {
        status = UErrorMemoryAllocation;
        delete zone;
        return nullptr;
    }
    if (U_FAILURE(status)) {
        delete calendar;  // owns the zone by now
        return nullptr;
    }
    return calendar;
}

Calendar* Calendar::createInstance(const TimeZone& zone, UErrorCode& status) {
    if (U_FAILURE(status)) return nullptr;
    Calendar* calendar = new (std::nothrow) GregorianCalendar(zone, status);
    if (calendar == nullptr) {
        status = UErrorMemoryAllocation;
        return nullptr;
    }
    if (U_FAILURE(status)) {
        delete calendar;
        return nullptr;
    }
    return calendar;
}

Calendar::Calendar(TimeZone* adopted, UErrorCode& status) : zone(adopted) {
    if (adopted == nullptr) {
        if (U_SUCCESS(status)) status = UErrorIllegalArgument;
        return;
    }
    clear();
    setWeekCountData();
}

Calendar::Calendar(const TimeZone& source, UErrorCode& status) : zone(source.clone()) {
    if (zone == nullptr) {
        // A zone that cannot copy itself leaves nothing to own.
        if (U_SUCCESS(status)) status = UErrorMemoryAllocation;
        return;
    }
    clear();
    setWeekCountData();
}

Calendar::Calendar(const Calendar& source) {
    *this = source;
}

Calendar& Calendar::operator=(const Calendar& right) {
    if (this == &right) return *this;
    for (int i = 0; i < kFieldCount; ++i) {
        fields[i] = right.fields[i];
        fieldIsSet[i] = right.fieldIsSet[i];
        stamps[i] = right.stamps[i];
    }
    time = right.time;
    timeIsValid = right.timeIsValid;
    fieldsAreValid = right.fieldsAreValid;
    allFieldsAreValid = right.allFieldsAreValid;
    lenient = right.lenient;
    firstDayOfWeek = right.firstDayOfWeek;
    minimalDaysInFirstWeek = right.minimalDaysInFirstWeek;
    nextStamp = right.nextStamp;
    // Clone before deleting, so that a clone that throws leaves the old zone.
    TimeZone* copy = right.zone != nullptr ? right.zone->clone() : nullptr;
    delete zone;
    zone = copy;
    return *this;
}

Calendar::~Calendar() {
    delete zone;
}

void Calendar::adoptTimeZone(TimeZone* adopted) {
    if (adopted == nullptr) return;
    if (adopted != zone) {
        delete zone;
        zone = adopted;
    }
    fieldsAreValid = false;
}

void Calendar::setTimeZone(const TimeZone& source) {
    TimeZone* copy = source.clone();
    if (copy == nullptr) return;
    adoptTimeZone(copy);
}

// ---- reading

std::int32_t Calendar::completeAndGet(EDateFields field, UErrorCode& status) const {
    if (U_FAILURE(status)) return 0;
    if (!IsField(field)) {
        status = UErrorIllegalArgument;
        return 0;
    }
    // A const read completes the cached form: the fields are the calendar's
    // cache of its instant, filled on demand, hence the cast.
    const_cast<Calendar*>(this)->complete(status);
    return U_SUCCESS(status) ? fields[field] : 0;
}

double Calendar::getTimeInMillis(UErrorCode& status) const {
    if (U_FAILURE(status)) return 0.0;
    if (!timeIsValid) {
        // A const read completes the cached form: the instant is computed
        // from the written fields on demand, hence the cast.
        const_cast<Calendar*>(this)->updateTime(status);
        if (U_FAILURE(status)) return 0.0;
    }
    return time;
}

// ---- writing

void Calendar::set(EDateFields field, std::int32_t value) {
    if (!IsField(field)) return;
    if (nextStamp == kLastStamp) {
        // The counter has run through 31 bits of writes. The written stamps
        // take the ranks 2, 3, ... in their order, so that the counter can go
        // on while every comparison of stamps keeps its answer.
        std::int32_t old[kFieldCount];
        for (int i = 0; i < kFieldCount; ++i) old[i] = stamps[i];
        std::int32_t rank = kMinimumUserStamp;
        std::int32_t below = kInternallySet;
        for (;;) {
            std::int32_t least = kLastStamp;
            bool found = false;
            for (int i = 0; i < kFieldCount; ++i) {
                if (old[i] > below && old[i] <= least) {
                    least = old[i];
                    found = true;
                }
            }
            if (!found) break;
            for (int i = 0; i < kFieldCount; ++i) {
                if (old[i] == least) stamps[i] = rank;
            }
            ++rank;
            below = least;
        }
        nextStamp = rank;
    }
    timeIsValid = false;
    fieldsAreValid = false;
    fields[field] = value;
    stamps[field] = nextStamp++;
    fieldIsSet[field] = true;
}

void Calendar::set(std::int32_t year, std::int32_t month, std::int32_t date) {
    set(YEAR, year);
    set(MONTH, month);
    set(DAY_OF_MONTH, date);
}

void Calendar::set(std::int32_t year, std::int32_t month, std::int32_t date, std::int32_t hour,
                   std::int32_t minute) {
    set(year, month, date);
    set(HOUR_OF_DAY, hour);
    set(MINUTE, minute);
}

void Calendar::set(std::int32_t year, std::int32_t month, std::int32_t date, std::int32_t hour,
                   std::int32_t minute, std::int32_t second) {
    set(year, month, date, hour, minute);
    set(SECOND, second);
}

void Calendar::clear() {
    // Block fills: 0 is the cleared value, kUnset and false alike.
    static_assert(kUnset == 0, "stamps clear to zero bytes");
    std::memset(fields, 0, sizeof fields);
    std::memset(stamps, 0, sizeof stamps);
    std::memset(fieldIsSet, 0, sizeof fieldIsSet);
    timeIsValid = false;
    fieldsAreValid = false;
    allFieldsAreValid = false;
}

void Calendar::clear(EDateFields field) {
    if (!IsField(field)) return;
    fields[field] = 0;
    stamps[field] = kUnset;
    fieldIsSet[field] = false;
    timeIsValid = false;
    fieldsAreValid = false;
    allFieldsAreValid = false;
}

void Calendar::setTimeInMillis(double millis, UErrorCode& status) {
    if (U_FAILURE(status)) return;
    time = millis;
    timeIsValid = true;
    fieldsAreValid = false;
    computeFields(status);
    // The fields count as computed even when the zone refused: they hold
    // what could be computed, and the status tells the caller.
    fieldsAreValid = true;
    allFieldsAreValid = true;
}

void Calendar::roll(EDateFields field, bool up, UErrorCode& status) {
    roll(field, up ? +1 : -1, status);
}

// ---- comparison

bool Calendar::operator==(const Calendar& that) const {
    if (getDynamicClassID() != that.getDynamicClassID()) return false;
    UErrorCode status = UErrorNone;
    const double mine = getTimeInMillis(status);
    const double theirs = that.getTimeInMillis(status);
    // A time that cannot be computed equals nothing.
    return U_SUCCESS(status) && mine == theirs && lenient == that.lenient &&
           firstDayOfWeek == that.firstDayOfWeek &&
           minimalDaysInFirstWeek == that.minimalDaysInFirstWeek && *zone == *that.zone;
}

bool Calendar::equivalentTo(const Calendar& other) const {
    return getDynamicClassID() == other.getDynamicClassID() && lenient == other.lenient &&
           firstDayOfWeek == other.firstDayOfWeek &&
           minimalDaysInFirstWeek == other.minimalDaysInFirstWeek && *zone == *other.zone;
}

bool Calendar::equals(const Calendar& when, UErrorCode& status) const {
    if (this == &when) return true;
    if (U_FAILURE(status)) return false;
    const double mine = getTimeInMillis(status);
    const double theirs = when.getTimeInMillis(status);
    return U_SUCCESS(status) && mine == theirs;
}

bool Calendar::before(const Calendar& when, UErrorCode& status) const {
    if (this == &when) return false;
    if (U_FAILURE(status)) return false;
    const double mine = getTimeInMillis(status);
    const double theirs = when.getTimeInMillis(status);
    return U_SUCCESS(status) && mine < theirs;
}

bool Calendar::after(const Calendar& when, UErrorCode& status) const {
    if (this == &when) return false;
    if (U_FAILURE(status)) return false;
    const double mine = getTimeInMillis(status);
    const double theirs = when.getTimeInMillis(status);
    return U_SUCCESS(status) && mine > theirs;
}

// ---- walks

std::int32_t Calendar::fieldDifference(double when, EDateFields field, UErrorCode& status) {
    if (U_FAILURE(status)) return 0;
    const double start = getTimeInMillis(status);
    if (U_FAILURE(status)) return 0;
    std::int32_t count = 0;
    double previous = start;
    if (start < when) {
        // A step that does not move the instant can never pass `when`; the
        // walk ends there instead of running on (add(ERA, 1) in the last era
        // is such a step), and the count stops short of its 32-bit end.
        while (count < std::numeric_limits<std::int32_t>::max()) {
            add(field, 1, status);
            const double now = getTimeInMillis(status);
            if (U_FAILURE(status)) return count;
            if (now > when || !(now > previous)) break;
            previous = now;
            ++count;
        }
    } else if (start > when) {
        while (count > std::numeric_limits<std::int32_t>::min()) {
            add(field, -1, status);
            const double now = getTimeInMillis(status);
            if (U_FAILURE(status)) return count;
            if (now < when || !(now < previous)) break;
            previous = now;
            --count;
        }
    } else {
        return 0;
    }
    setTimeInMillis(previous, status);
    return count;
}

namespace {

// The walk of the actual limits: from `from` towards `to`, one by one, in a
// lenient clone, the last value of `field` that survives being set and read
// back; `from` when none does. A week field is probed on the first day of the
// week, so that a week counts as long as it begins inside the period.
std::int32_t LastSurvivingValue(const Calendar& calendar, Calendar::EDateFields field,
                                std::int32_t from, std::int32_t to, UErrorCode& status) {
    if (from == to) return from;
    Calendar* work = calendar.clone();
    if (work == nullptr) {
        status = UErrorMemoryAllocation;
        return 0;
    }
    work->setLenient(true);
    if (to > from && (field == Calendar::WEEK_OF_YEAR || field == Calendar::WEEK_OF_MONTH))
        work->set(Calendar::DAY_OF_WEEK, calendar.getFirstDayOfWeek());
    const int step = to > from ? 1 : -1;
    std::int32_t result = from;
    // 64 bits, so that an end at either limit of 32 bits ends the loop.
    for (std::int64_t candidate = from; candidate != static_cast<std::int64_t>(to) + step;
         candidate += step) {
        const std::int32_t probe = static_cast<std::int32_t>(candidate);
        work->set(field, probe);
        if (work->get(field, status) != probe) break;
        result = probe;
    }
    delete work;
    return result;
}

}  // namespace

std::int32_t Calendar::getActualMinimum(EDateFields field, UErrorCode& status) const {
    if (U_FAILURE(status)) return 0;
    if (!IsField(field)) {
        status = UErrorIllegalArgument;
        return 0;
    }
    return LastSurvivingValue(*this, field, getGreatestMinimum(field), getMinimum(field), status);
}

std::int32_t Calendar::getActualMaximum(EDateFields field, UErrorCode& status) const {
    if (U_FAILURE(status)) return 0;
    if (!IsField(field)) {
        status = UErrorIllegalArgument;
        return 0;
    }
    return LastSurvivingValue(*this, field, getLeastMaximum(field), getMaximum(field), status);
}

// ---- time and the two forms

double Calendar::getNow() {
    return uprv_getUTCtime() * 1000.0;
}

void Calendar::updateTime(UErrorCode& status) {
    computeTime(status);
    if (U_FAILURE(status)) return;
    // A lenient calendar may have moved written values into range, and a
    // calendar whose fields were only partly computed lacks the others.
    if (lenient || !allFieldsAreValid) fieldsAreValid = false;
    timeIsValid = true;
}

void Calendar::complete(UErrorCode& status) {
    if (!timeIsValid) updateTime(status);
    if (!fieldsAreValid) {
        computeFields(status);
        fieldsAreValid = true;
        allFieldsAreValid = true;
    }
}

void Calendar::setAllFieldsComputed() {
    for (int i = 0; i < kFieldCount; ++i) {
        stamps[i] = kInternallySet;
        fieldIsSet[i] = true;
    }
}

void Calendar::setWeekCountData() {
    firstDayOfWeek = MONDAY;
    minimalDaysInFirstWeek = 4;
}

// luCalendarTime: construction, checked writes, the reads that are not inline,
// comparison and the stream form.
#include "kai18n/timelib/lu_calendar_time.h"

#include <new>
#include <ostream>
#include <utility>

#include "kai18n/frame/timelib_exceptions.h"

namespace TimeLib {

namespace {

double ToEngineMillis(const luPhysicalTime& when) {
    return (when - luPhysicalTime::Epoch) / luDuration::Millisecond;
}

luPhysicalTime FromEngineMillis(double millis) {
    return luPhysicalTime::Epoch + luDuration::Millisecond * millis;
}

}  // namespace

// ---- construction

luCalendarTime::Impl* luCalendarTime::Make(const luTimeZone& zone, const luCalendar& calendar) {
    return calendar.make(zone.make());
}

template <class Assign>
void luCalendarTime::Start(Assign assign) {
    try {
        assign();
    } catch (...) {
        delete m_impl;
        throw;
    }
}

luCalendarTime::luCalendarTime(const luTimeZone& zone, const luCalendar& calendar)
    : m_impl(Make(zone, calendar)) {
    Start([this] { reset(luPhysicalTime::Epoch); });
}

luCalendarTime::luCalendarTime(const luPhysicalTime& when, const luTimeZone& zone,
                               const luCalendar& calendar)
    : m_impl(Make(zone, calendar)) {
    Start([this, &when] { reset(when); });
}

luCalendarTime::luCalendarTime(const luFields& fields, const luTimeZone& zone,
                               const luCalendar& calendar)
    : m_impl(Make(zone, calendar)) {
    Start([this, &fields] { reset(fields); });
}

luCalendarTime::luCalendarTime(const luCalendarTime& other) : m_impl(other.m_impl->clone()) {
    if (m_impl == nullptr) throw std::bad_alloc();
}

luCalendarTime& luCalendarTime::operator=(const luCalendarTime& other) {
    if (this == &other) return *this;
    Impl* copy = other.m_impl->clone();
    if (copy == nullptr) throw std::bad_alloc();
    delete m_impl;
    m_impl = copy;
    return *this;
}

luCalendarTime::~luCalendarTime() {
    delete m_impl;
}

void luCalendarTime::swap(luCalendarTime& other) noexcept {
    std::swap(m_impl, other.m_impl);
}

// ---- reading

void luCalendarTime::ThrowReadError(const char* detail) {
    throw InternalError(detail);
}

double luCalendarTime::Millis() const {
    UErrorCode status = UErrorNone;
    const double millis = m_impl->getTimeInMillis(status);
    if (U_FAILURE(status)) ThrowReadError("physicalTime ()");
    return millis;
}

luPhysicalTime luCalendarTime::physicalTime() const {
    return FromEngineMillis(Millis());
}

int luCalendarTime::minimum(const luField& field) const {
    UErrorCode status = UErrorNone;
    const int value = m_impl->getActualMinimum(EngineField(field.value()), status);
    if (U_FAILURE(status)) ThrowReadError("minimum (luField)");
    return value;
}

int luCalendarTime::maximum(const luField& field) const {
    UErrorCode status = UErrorNone;
    const int value = m_impl->getActualMaximum(EngineField(field.value()), status);
    if (U_FAILURE(status)) ThrowReadError("maximum (luField)");
    return value;
}

int luCalendarTime::min_minimum(const luField& field) const {
    return m_impl->getMinimum(EngineField(field.value()));
}

int luCalendarTime::max_minimum(const luField& field) const {
    return m_impl->getGreatestMinimum(EngineField(field.value()));
}

int luCalendarTime::min_maximum(const luField& field) const {
    return m_impl->getLeastMaximum(EngineField(field.value()));
}

int luCalendarTime::max_maximum(const luField& field) const {
    return m_impl->getMaximum(EngineField(field.value()));
}

ucs2string luCalendarTime::time_zone_id() const {
    ucs2string id;
    return m_impl->getTimeZone().getID(id);
}

// ---- checked writes

// The write runs on the calendar; then both conversions are forced, so that
// a strict calendar judges the written fields together and the value leaves
// with time and fields up to date. A refusal puts the old instant back.
template <class Write>
luCalendarTime& luCalendarTime::CheckedWrite(const char* detail, Write write) {
    const double saved = Millis();
    UErrorCode status = UErrorNone;
    write(*m_impl, status);
    m_impl->getTimeInMillis(status);
    m_impl->get(Impl::HOUR, status);
    if (U_FAILURE(status)) {
        UErrorCode restoring = UErrorNone;
        m_impl->setTimeInMillis(saved, restoring);
        m_impl->get(Impl::HOUR, restoring);
        throw IncorrectData(detail);
    }
    return *this;
}

luCalendarTime& luCalendarTime::reset(const luPhysicalTime& when) {
    const double millis = ToEngineMillis(when);
    return CheckedWrite("assign (physicalTime)", [millis](Impl& calendar, UErrorCode& status) {
        calendar.setTimeInMillis(millis, status);
    });
}

luCalendarTime& luCalendarTime::reset(const luFields& fields) {
    return CheckedWrite("assign (luFields)", [&fields](Impl& calendar, UErrorCode&) {
        calendar.clear();
        fields.applyTo(calendar);
    });
}

luCalendarTime& luCalendarTime::set(const luFields& fields) {
    return CheckedWrite("set (luField[s])",
                        [&fields](Impl& calendar, UErrorCode&) { fields.applyTo(calendar); });
}

// One field written straight to the calendar: what a one-entry luFields
// would do, without building one.
luCalendarTime& luCalendarTime::set(const luField& field, int value) {
    return CheckedWrite("set (luField[s])", [&field, value](Impl& calendar, UErrorCode&) {
        calendar.set(EngineField(field.value()), value);
    });
}

luCalendarTime& luCalendarTime::clear(const luField& field) {
    return CheckedWrite("set (luField[s])", [&field](Impl& calendar, UErrorCode&) {
        calendar.clear(EngineField(field.value()));
    });
}

luCalendarTime& luCalendarTime::add(const luField& field, int amount) {
    return CheckedWrite("add (luField)", [&field, amount](Impl& calendar, UErrorCode& status) {
        calendar.add(EngineField(field.value()), amount, status);
    });
}

luCalendarTime& luCalendarTime::roll(const luField& field, int amount) {
    return CheckedWrite("roll (luField)", [&field, amount](Impl& calendar, UErrorCode& status) {
        calendar.roll(EngineField(field.value()), amount, status);
    });
}

// The count reaches the caller only with a move that was kept.
luCalendarTime& luCalendarTime::diff(const luPhysicalTime& when, const luField& field, int& count) {
    const double target = ToEngineMillis(when);
    int steps = 0;
    CheckedWrite("diff (luField)", [&](Impl& calendar, UErrorCode& status) {
        steps = calendar.fieldDifference(target, EngineField(field.value()), status);
    });
    count = steps;
    return *this;
}

int luCalendarTime::diff(const luPhysicalTime& when, const luField& field) {
    int count = 0;
    diff(when, field, count);
    return count;
}

// ---- comparison and printing

bool operator==(const luCalendarTime& a, const luCalendarTime& b) {
    return a.physicalTime() == b.physicalTime();
}

bool operator<(const luCalendarTime& a, const luCalendarTime& b) {
    return a.physicalTime() < b.physicalTime();
}

std::ostream& operator<<(std::ostream& os, const luCalendarTime& time) {
    const double seconds = time.second() + time.millisecond() * 0.001;
    return os << time.year() << '/' << time.month() + 1 << '/' << time.day_of_month()
              << "::" << time.hour_of_day() << ':' << time.minute() << ':' << seconds;
}

}  // namespace TimeLib

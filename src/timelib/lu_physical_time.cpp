// Spans and instants: the operations that can fail, and stream printing.
#include "kai18n/timelib/lu_physical_time.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <ostream>

#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/timelib/timelib_init_exit.h"

namespace TimeLib {

int PhysicalTimeInitExit::count = 0;

void PhysicalTimeInitExit::init() {
    // Nothing to fill: the constants of luDuration and luPhysicalTime are
    // constant-initialised, so they are valid before any guard runs, also for
    // static objects of other units that are built before this guard. The
    // service still comes up, first of all, for the start-up journal.
    kaNoteServiceStart("PhysicalTimeInitExit");
}

void PhysicalTimeInitExit::exit() {}

namespace {

// The whole-unit count of a ratio, truncated toward zero. Out of the 32-bit
// range a cast would be undefined, so the count saturates instead; NaN counts 0.
int TruncatedCount(double ratio) {
    if (std::isnan(ratio)) return 0;
    if (ratio >= 2147483647.0) return std::numeric_limits<std::int32_t>::max();
    if (ratio <= -2147483648.0) return std::numeric_limits<std::int32_t>::min();
    return static_cast<int>(ratio);
}

// Splits off the whole units of `unit` from `rest`; returns their count.
double TakeWhole(double& rest, double unit) {
    const double whole = std::trunc(rest / unit);
    rest -= whole * unit;
    return whole;
}

// Writes an integral double without exponent or fraction, however large: the
// day count of a span can exceed every integer type.
void WriteWhole(std::ostream& os, double whole) {
    char digits[400];  // the largest double has 309 digits
    std::snprintf(digits, sizeof digits, "%.0f", whole);
    os << digits;
}

// Writes one unit's count and its separator when the span reaches that unit.
void WriteUnit(std::ostream& os, bool shown, double whole, const char* separator) {
    if (!shown) return;
    WriteWhole(os, whole);
    os << separator;
}

}  // namespace

luDuration& luDuration::operator/=(double divisor) {
    if (divisor == 0.0) throw IncorrectData("Duration / 0.0");
    m_ms /= divisor;
    return *this;
}

luDuration& luDuration::chop(const luDuration& unit, int& count) {
    const int whole = TruncatedCount(*this / unit);  // throws before any change
    m_ms -= unit.m_ms * whole;
    count = whole;
    return *this;
}

double operator/(const luDuration& a, const luDuration& b) {
    if (b == luDuration::Zero) throw IncorrectData("Duration / Duration::Zero");
    return a.m_ms / b.m_ms;
}

std::ostream& operator<<(std::ostream& os, const luDuration& span) {
    double rest = std::fabs(span.m_ms);
    if (span.m_ms < 0.0) os << '-';
    if (!std::isfinite(rest)) return os << rest;  // no units to split off

    const bool showDays = rest >= luDuration::Day.m_ms;
    const bool showHours = rest >= luDuration::Hour.m_ms;
    const bool showMinutes = rest >= luDuration::Minute.m_ms;
    const double days = TakeWhole(rest, luDuration::Day.m_ms);
    const double hours = TakeWhole(rest, luDuration::Hour.m_ms);
    const double minutes = TakeWhole(rest, luDuration::Minute.m_ms);
    const double seconds = rest / luDuration::Second.m_ms;

    WriteUnit(os, showDays, days, "::");
    WriteUnit(os, showHours, hours, ":");
    WriteUnit(os, showMinutes, minutes, ":");
    // Cut, not rounded, to whole microseconds.
    return os << std::trunc(seconds * 1000000.0) * 1e-06;
}

std::ostream& operator<<(std::ostream& os, const luPhysicalTime& time) {
    return os << (time - luPhysicalTime::Epoch);
}

}  // namespace TimeLib

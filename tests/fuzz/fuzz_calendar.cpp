// Drives a Gregorian calendar through a random sequence of operations over a
// random zone: a simple time zone built from random rule fields through its
// constructors and setters (whatever status they report), or a plain raw
// offset. Fields, amounts, instants (NaN, infinities and huge values among
// them), leniency, week data, the cutover and the zone all change at random;
// nothing may crash or trip a sanitizer.
//
// After setTime(t) with t a whole number of milliseconds within 1e14 of 1970
// and a good status, getTime must give t back. In a zone without daylight time
// and with the default cutover (and t not within a day of it), the era, year,
// month, day of the month, hour of the day, minute, second and millisecond
// read back lie within their ranges and, written into a cleared lenient
// calendar on the same zone, give t again. A clone is equivalent and, when its
// time can be computed, equal to its original (unless a NaN cutover or time
// makes a value unequal to itself).
//
// FUZZ_CALENDAR_TRACE=1 in the environment prints each call as it is made.
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

#include "fuzz_support.h"
#include "kai18n/calendar/calendar.h"
#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/calendar/time_zone.h"

namespace {

using Cal = Calendar;
using Greg = GregorianCalendar;
using STZ = SimpleTimeZone;

constexpr double kDay = 86400000.0;
constexpr double kWholeLimit = 1e14;
constexpr int kMaxOperations = 48;

// With FUZZ_CALENDAR_TRACE set in the environment, every call is printed to
// stderr as it is made: the way to turn a crash input into a reproduction.
bool Tracing() {
    static const bool on = std::getenv("FUZZ_CALENDAR_TRACE") != nullptr;
    return on;
}

__attribute__((format(printf, 1, 2))) void Trace(const char* format, ...) {
    if (!Tracing()) return;
    va_list args;
    va_start(args, format);
    std::vfprintf(stderr, format, args);
    va_end(args);
    std::fputc('\n', stderr);
}

// The bytes of the input, read front to back; past the end every read is 0.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
    bool Done() const { return m_pos >= m_size; }
    unsigned Byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    std::uint32_t U32() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = value << 8 | Byte();
        return value;
    }
    std::uint64_t U64() {
        const std::uint64_t high = U32();
        return high << 32 | U32();
    }
    bool Bool() { return Byte() & 1; }

    // A 32-bit value: mostly small or notable, sometimes any.
    std::int32_t Int() {
        static const std::int32_t kNotable[] = {0,
                                                1,
                                                -1,
                                                2,
                                                7,
                                                11,
                                                12,
                                                13,
                                                -12,
                                                -13,
                                                28,
                                                29,
                                                30,
                                                31,
                                                32,
                                                52,
                                                53,
                                                59,
                                                60,
                                                99,
                                                100,
                                                365,
                                                366,
                                                367,
                                                999,
                                                1000,
                                                1582,
                                                1583,
                                                1969,
                                                1970,
                                                140742,
                                                144683,
                                                144684,
                                                3600000,
                                                -3600000,
                                                43200000,
                                                86399999,
                                                86400000,
                                                86400001,
                                                -43200000,
                                                50400000,
                                                -86400000,
                                                INT32_MAX,
                                                INT32_MIN,
                                                INT32_MAX - 1,
                                                INT32_MIN + 1,
                                                1073741823,
                                                -1073741824};
        switch (Byte() % 8) {
            case 0:
                return static_cast<std::int32_t>(Byte() % 16) - 4;
            case 1:
                return static_cast<std::int32_t>(Byte() % 81) - 40;
            case 2:
                return kNotable[Byte() % (sizeof kNotable / sizeof kNotable[0])];
            case 3:
                return static_cast<std::int16_t>(Byte() << 8 | Byte());
            case 4:
                return static_cast<std::int32_t>(U32() % 2001) - 1000;
            case 5:
                return static_cast<std::int32_t>(Byte());
            default:
                return static_cast<std::int32_t>(U32());
        }
    }

    // A whole number of milliseconds within kWholeLimit of 1970.
    double WholeMillis() {
        const std::uint64_t span = 2 * static_cast<std::uint64_t>(kWholeLimit) + 1;
        return static_cast<double>(static_cast<std::int64_t>(U64() % span) -
                                   static_cast<std::int64_t>(kWholeLimit));
    }

    // An instant: whole milliseconds near notable dates, anywhere in range, or
    // beyond; fractions; NaN, infinities and extremes.
    double Instant() {
        static const double kSpecial[] = {
            std::numeric_limits<double>::quiet_NaN(),
            -std::numeric_limits<double>::quiet_NaN(),
            std::numeric_limits<double>::infinity(),
            -std::numeric_limits<double>::infinity(),
            0.0,
            -0.0,
            std::numeric_limits<double>::max(),
            std::numeric_limits<double>::lowest(),
            std::numeric_limits<double>::min(),
            std::numeric_limits<double>::denorm_min(),
            4503599627370495.0,
            -4503599627370495.0,
            4503599627370496.0,
            -4503599627370496.0,
            9007199254740993.0,
            1e300,
            -1e300,
            1e20,
            -1e20,
            1e15,
            -1e15,
            1073741824.0 * kDay,
            -1073741824.0 * kDay,
            1073741824.0 * kDay - 1,
            -1073741824.0 * kDay + 1,
            185542587187199999.0,
            -185542587187200000.0,
            Greg::kPapalCutover,
            Greg::kPapalCutover - 1,
            -62135596800000.0,  // 0001-01-01
            -62135596800001.0,
            kWholeLimit,
            -kWholeLimit,
        };
        switch (Byte() % 10) {
            case 0:
            case 1:
                return WholeMillis();
            case 2:  // around 2026, at any millisecond of some eighty years
                return 1.7e12 + static_cast<double>(static_cast<std::int32_t>(U32())) * 1000 +
                       Byte() * 4;
            case 3:  // within three days of the default cutover
                return Greg::kPapalCutover +
                       static_cast<double>(static_cast<std::int64_t>(U64() % 518400001) -
                                           259200000);
            case 4:  // on or about midnights and hours
                return std::floor(WholeMillis() / kDay) * kDay +
                       (static_cast<double>(Byte() % 49) - 24) * 3600000.0 +
                       (static_cast<double>(Byte() % 5) - 2);
            case 5:
                return kSpecial[Byte() % (sizeof kSpecial / sizeof kSpecial[0])];
            case 6: {  // any bit pattern
                const std::uint64_t bits = U64();
                double value;
                std::memcpy(&value, &bits, sizeof value);
                return value;
            }
            case 7:  // a fraction of a millisecond
                return WholeMillis() + static_cast<double>(Byte() + 1) / 257.0;
            case 8:  // whole, beyond 1e14 but within 2^53
                return static_cast<double>(static_cast<std::int64_t>(U64() % (1ULL << 54)) -
                                           (1LL << 53));
            default:
                return static_cast<double>(Int()) * kDay + static_cast<double>(Int());
        }
    }

    // Any field index, mostly the nineteen fields, sometimes one of the other
    // values that the enumeration can hold (19 to 31).
    Cal::EDateFields Field() {
        const unsigned b = Byte();
        return static_cast<Cal::EDateFields>(b < 0xF0 ? b % Cal::kFieldCount : b % 32);
    }
    Cal::EDaysOfWeek Weekday() {
        // 0 to 7: the values the enumeration holds; 0 is no weekday.
        const unsigned b = Byte();
        return static_cast<Cal::EDaysOfWeek>(b < 0xF8 ? b % 7 + 1 : 0);
    }
    STZ::TimeMode Mode() {
        // 0 to 3: the values the enumeration holds; 3 is no mode.
        const unsigned b = Byte();
        return static_cast<STZ::TimeMode>(b < 0xF0 ? b % 3 : 3);
    }

    // Rule fields: mostly plausible, sometimes anything.
    std::int32_t Month() {
        const unsigned b = Byte();
        if (b < 0xC0) return static_cast<std::int32_t>(b % 12);
        if (b < 0xF0) return static_cast<std::int32_t>(b % 16) - 2;
        return Int();
    }
    std::int32_t Day() {
        const unsigned b = Byte();
        if (b < 0x80) return static_cast<std::int32_t>(b % 13) - 6;
        if (b < 0xF0) return static_cast<std::int32_t>(b % 65) - 32;
        return Int();
    }
    std::int32_t DayOfWeek() {
        const unsigned b = Byte();
        if (b < 0xF0) return static_cast<std::int32_t>(b % 17) - 8;
        return Int();
    }
    std::int32_t RuleTime() {
        const unsigned b = Byte();
        if (b < 0x80) return static_cast<std::int32_t>(b % 25) * 3600000;
        if (b < 0xC0) return static_cast<std::int32_t>(U32() % 86400002);
        return Int();
    }
    std::int32_t RawOffset() {
        const unsigned b = Byte();
        if (b < 0xC0) return (static_cast<std::int32_t>(Byte() % 105) - 48) * 900000;
        return Int();
    }
    std::int32_t Savings() {
        const unsigned b = Byte();
        if (b < 0x80) return 3600000;
        if (b < 0xC0) return static_cast<std::int32_t>(b % 9) * 900000;
        return Int();
    }

  private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_pos = 0;
};

const ucs2string& ZoneId(unsigned which) {
    static const ucs2string ids[] = {
        ucs2string(reinterpret_cast<const unsigned char*>("UTC")),
        ucs2string(reinterpret_cast<const unsigned char*>("Europe/Paris")),
        ucs2string(reinterpret_cast<const unsigned char*>("Zone")),
        ucs2string(),
    };
    return ids[which % 4];
}

std::int8_t Narrow(std::int32_t value) {
    return static_cast<std::int8_t>(static_cast<std::uint8_t>(value & 0xFF));
}

// One call of a rule setter of either side, in any of its forms.
void SetRule(STZ& zone, Input& in) {
    UErrorCode status = in.Byte() < 0xF8 ? UErrorNone : UErrorIllegalArgument;
    const bool start = in.Bool();
    const unsigned form = in.Byte() % 6;
    const std::int32_t month = in.Month();
    const std::int32_t day = in.Day();
    const std::int32_t dayOfWeek = in.DayOfWeek();
    const std::int32_t time = in.RuleTime();
    const STZ::TimeMode mode = in.Mode();
    const bool after = in.Bool();
    Trace("  %s form %u (month %d, day %d, dayOfWeek %d, time %d, mode %d, after %d, status %d)",
          start ? "setStartRule" : "setEndRule", form, month, day, dayOfWeek, time,
          static_cast<int>(mode), after, static_cast<int>(status));
    if (start) {
        switch (form) {
            case 0:
                zone.setStartRule(month, day, dayOfWeek, time, mode, status);
                break;
            case 1:
                zone.setStartRule(month, day, dayOfWeek, time, status);
                break;
            case 2:
                zone.setStartRule(month, day, time, mode, status);
                break;
            case 3:
                zone.setStartRule(month, day, time, status);
                break;
            case 4:
                zone.setStartRule(month, day, dayOfWeek, time, mode, after, status);
                break;
            default:
                zone.setStartRule(month, day, dayOfWeek, time, after, status);
                break;
        }
    } else {
        switch (form) {
            case 0:
                zone.setEndRule(month, day, dayOfWeek, time, mode, status);
                break;
            case 1:
                zone.setEndRule(month, day, dayOfWeek, time, status);
                break;
            case 2:
                zone.setEndRule(month, day, time, mode, status);
                break;
            case 3:
                zone.setEndRule(month, day, time, status);
                break;
            case 4:
                zone.setEndRule(month, day, dayOfWeek, time, mode, after, status);
                break;
            default:
                zone.setEndRule(month, day, dayOfWeek, time, after, status);
                break;
        }
    }
}

// A zone from random rule fields, by any constructor, then a few setters.
STZ* MakeZone(Input& in) {
    const ucs2string& id = ZoneId(in.Byte());
    UErrorCode status = UErrorNone;  // any outcome will do
    STZ* zone = nullptr;
    switch (in.Byte() % 8) {
        case 0:
        case 1:
            zone = new STZ(in.RawOffset(), id);
            Trace("zone SimpleTimeZone(%d, id)", zone->getRawOffset());
            break;
        case 2: {
            const std::int32_t raw = in.RawOffset();
            const std::int8_t sm = Narrow(in.Month()), sd = Narrow(in.Day()),
                              sw = Narrow(in.DayOfWeek());
            const std::int32_t st = in.RuleTime();
            const std::int8_t em = Narrow(in.Month()), ed = Narrow(in.Day()),
                              ew = Narrow(in.DayOfWeek());
            const std::int32_t et = in.RuleTime();
            zone = new STZ(raw, id, sm, sd, sw, st, em, ed, ew, et, status);
            Trace("zone SimpleTimeZone(%d, id, %d, %d, %d, %d, %d, %d, %d, %d, status) -> %d", raw,
                  sm, sd, sw, st, em, ed, ew, et, static_cast<int>(status));
            break;
        }
        case 3: {
            const std::int32_t raw = in.RawOffset();
            const std::int8_t sm = Narrow(in.Month()), sd = Narrow(in.Day()),
                              sw = Narrow(in.DayOfWeek());
            const std::int32_t st = in.RuleTime();
            const std::int8_t em = Narrow(in.Month()), ed = Narrow(in.Day()),
                              ew = Narrow(in.DayOfWeek());
            const std::int32_t et = in.RuleTime();
            const std::int32_t savings = in.Savings();
            zone = new STZ(raw, id, sm, sd, sw, st, em, ed, ew, et, savings, status);
            Trace("zone SimpleTimeZone(%d, id, %d, %d, %d, %d, %d, %d, %d, %d, %d, status) -> %d",
                  raw, sm, sd, sw, st, em, ed, ew, et, savings, static_cast<int>(status));
            break;
        }
        case 4: {
            const std::int32_t raw = in.RawOffset();
            const std::int8_t sm = Narrow(in.Month()), sd = Narrow(in.Day()),
                              sw = Narrow(in.DayOfWeek());
            const std::int32_t st = in.RuleTime();
            const STZ::TimeMode smode = in.Mode();
            const std::int8_t em = Narrow(in.Month()), ed = Narrow(in.Day()),
                              ew = Narrow(in.DayOfWeek());
            const std::int32_t et = in.RuleTime();
            const STZ::TimeMode emode = in.Mode();
            const std::int32_t savings = in.Savings();
            zone = new STZ(raw, id, sm, sd, sw, st, smode, em, ed, ew, et, emode, savings, status);
            Trace(
                "zone SimpleTimeZone(%d, id, %d, %d, %d, %d, mode %d, %d, %d, %d, %d, mode %d, %d, "
                "status) -> %d",
                raw, sm, sd, sw, st, static_cast<int>(smode), em, ed, ew, et,
                static_cast<int>(emode), savings, static_cast<int>(status));
            break;
        }
        case 5: {
            const StandardZone record = {in.RawOffset()};
            zone = new STZ(record, id);
            Trace("zone SimpleTimeZone(StandardZone{%d}, id)", record.rawOffset);
            break;
        }
        case 6: {
            DSTZone record;
            record.rawOffset = in.RawOffset();
            record.dstSavings = static_cast<std::uint16_t>(in.Byte() < 0xC0 ? 60 : in.Int());
            record.startMonth = Narrow(in.Month());
            record.startDay = Narrow(in.Day());
            record.startDayOfWeek = Narrow(in.DayOfWeek());
            record.startTime =
                static_cast<std::uint16_t>(in.Byte() < 0xC0 ? in.Byte() % 25 * 60 : in.Int());
            record.startTimeMode = Narrow(in.Byte() < 0xF0 ? in.Byte() % 3 : in.Int());
            record.endMonth = Narrow(in.Month());
            record.endDay = Narrow(in.Day());
            record.endDayOfWeek = Narrow(in.DayOfWeek());
            record.endTime =
                static_cast<std::uint16_t>(in.Byte() < 0xC0 ? in.Byte() % 25 * 60 : in.Int());
            record.endTimeMode = Narrow(in.Byte() < 0xF0 ? in.Byte() % 3 : in.Int());
            zone = new STZ(record, id);
            Trace(
                "zone SimpleTimeZone(DSTZone{%d, %u, %d, %d, %d, %u, %d, %d, %d, %d, %u, %d}, id)",
                record.rawOffset, record.dstSavings, record.startMonth, record.startDay,
                record.startDayOfWeek, record.startTime, record.startTimeMode, record.endMonth,
                record.endDay, record.endDayOfWeek, record.endTime, record.endTimeMode);
            break;
        }
        default: {
            // Plausible daylight rules of both hemispheres.
            const bool southern = in.Bool();
            const std::int32_t raw = in.RawOffset();
            const STZ::TimeMode mode = in.Mode();
            const std::int32_t savings = in.Savings();
            zone = southern ? new STZ(raw, id, 9, 1, -1, 7200000, mode, 3, 1, -1, 10800000, mode,
                                      savings, status)
                            : new STZ(raw, id, 2, -1, 1, 3600000, mode, 9, -1, 1, 3600000, mode,
                                      savings, status);
            Trace("zone SimpleTimeZone(%d, id, %s, mode %d, savings %d, status) -> %d", raw,
                  southern ? "9, 1, -1, 7200000, 3, 1, -1, 10800000"
                           : "2, -1, 1, 3600000, 9, -1, 1, 3600000",
                  static_cast<int>(mode), savings, static_cast<int>(status));
            break;
        }
    }
    for (unsigned setters = in.Byte() % 4; setters > 0; --setters) {
        switch (in.Byte() % 6) {
            case 0:
            case 1:
                SetRule(*zone, in);
                break;
            case 2: {
                const std::int32_t year = in.Int();
                zone->setStartYear(year);
                Trace("  setStartYear(%d)", year);
                break;
            }
            case 3:
                zone->setDSTSavings(in.Savings());
                Trace("  setDSTSavings(%d)", zone->getDSTSavings());
                break;
            case 4: {
                UErrorCode savingsStatus = UErrorNone;
                zone->setDSTSavings(in.Savings(), savingsStatus);
                Trace("  setDSTSavings(%d, status)", zone->getDSTSavings());
                break;
            }
            default:
                zone->setRawOffset(in.RawOffset());
                Trace("  setRawOffset(%d)", zone->getRawOffset());
                break;
        }
    }
    return zone;
}

// Keeps a result alive, so that the call that made it is not optimised away.
volatile double g_sink;
void Keep(double value) {
    g_sink = value;
}

[[noreturn]] void Broken(const char* what, double t, double got, const Cal& calendar) {
    const TimeZone& zone = calendar.getTimeZone();
    std::fprintf(stderr, "broken: %s: t=%.17g got=%.17g raw=%d daylight=%d\n", what, t, got,
                 zone.getRawOffset(), zone.useDaylightTime() ? 1 : 0);
    std::abort();
}

// The invariants after setTime(t) with a good status.
void CheckInstant(Greg& calendar, double t) {
    if (!(std::floor(t) == t && std::fabs(t) <= kWholeLimit)) return;
    UErrorCode status = UErrorNone;
    const double back = calendar.getTime(status);
    if (U_FAILURE(status) || back != t) Broken("getTime after setTime", t, back, calendar);

    const TimeZone& zone = calendar.getTimeZone();
    if (zone.useDaylightTime()) return;  // wall times may be doubled or skipped
    if (calendar.getGregorianChange() != Greg::kPapalCutover) return;
    const double local = t + zone.getRawOffset();
    if (std::fabs(t - Greg::kPapalCutover) <= kDay ||
        std::fabs(local - Greg::kPapalCutover) <= kDay)
        return;

    const std::int32_t era = calendar.get(Cal::ERA, status);
    const std::int32_t year = calendar.get(Cal::YEAR, status);
    const std::int32_t month = calendar.get(Cal::MONTH, status);
    const std::int32_t date = calendar.get(Cal::DAY_OF_MONTH, status);
    const std::int32_t hour = calendar.get(Cal::HOUR_OF_DAY, status);
    const std::int32_t minute = calendar.get(Cal::MINUTE, status);
    const std::int32_t second = calendar.get(Cal::SECOND, status);
    const std::int32_t millisecond = calendar.get(Cal::MILLISECOND, status);
    if (U_FAILURE(status)) Broken("reading the fields", t, 0, calendar);
    if (era < 0 || era > 1 || year < 1 || month < 0 || month > 11 || date < 1 || date > 31 ||
        hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59 ||
        millisecond < 0 || millisecond > 999) {
        Broken("a field out of its range", t, 0, calendar);
    }

    UErrorCode freshStatus = UErrorNone;
    Greg fresh(zone, freshStatus);
    if (U_FAILURE(freshStatus)) Broken("a calendar on the same zone", t, 0, calendar);
    fresh.clear();
    fresh.setLenient(true);
    fresh.set(Cal::ERA, era);
    fresh.set(Cal::YEAR, year);
    fresh.set(Cal::MONTH, month);
    fresh.set(Cal::DAY_OF_MONTH, date);
    fresh.set(Cal::HOUR_OF_DAY, hour);
    fresh.set(Cal::MINUTE, minute);
    fresh.set(Cal::SECOND, second);
    fresh.set(Cal::MILLISECOND, millisecond);
    const double again = fresh.getTime(freshStatus);
    if (U_FAILURE(freshStatus) || again != t) {
        std::fprintf(stderr, "fields: era %d %d-%d-%d %d:%d:%d.%d\n", era, year, month, date, hour,
                     minute, second, millisecond);
        Broken("fields written back", t, again, calendar);
    }
    Trace("  round trip of era %d %d-%d-%d %d:%d:%d.%d checked", era, year, month, date, hour,
          minute, second, millisecond);
}

void SetInstant(Greg& calendar, double t, bool failing, bool inMillis) {
    UErrorCode status = failing ? UErrorIllegalArgument : UErrorNone;
    if (inMillis) {
        calendar.setTimeInMillis(t, status);
    } else {
        calendar.setTime(t, status);
    }
    Trace("%s(%.17g, status %s) -> %d", inMillis ? "setTimeInMillis" : "setTime", t,
          failing ? "failing" : "good", static_cast<int>(status));
    if (U_SUCCESS(status)) CheckInstant(calendar, t);
}

// The size of one step of `field` in add, roughly, for fieldDifference.
double StepOf(Cal::EDateFields field) {
    switch (field) {
        case Cal::YEAR:
        case Cal::YEAR_WOY:
        case Cal::ERA:
            return 365.25 * kDay;
        case Cal::MONTH:
            return 30.44 * kDay;
        case Cal::WEEK_OF_YEAR:
        case Cal::WEEK_OF_MONTH:
        case Cal::DAY_OF_WEEK_IN_MONTH:
            return 7 * kDay;
        case Cal::DAY_OF_MONTH:
        case Cal::DAY_OF_YEAR:
        case Cal::DAY_OF_WEEK:
        case Cal::DOW_LOCAL:
            return kDay;
        case Cal::AM_PM:
            return kDay / 2;
        case Cal::HOUR:
        case Cal::HOUR_OF_DAY:
            return 3600000.0;
        case Cal::MINUTE:
            return 60000.0;
        case Cal::SECOND:
            return 1000.0;
        default:
            return 1.0;
    }
}

void ReadAll(const Cal& calendar, bool failing) {
    UErrorCode status = failing ? UErrorIllegalArgument : UErrorNone;
    std::int64_t sum = 0;
    for (int i = 0; i < 32; ++i) {
        UErrorCode own = status;
        sum += calendar.get(static_cast<Cal::EDateFields>(i), own);
    }
    for (int i = 0; i < Cal::kFieldCount; ++i)
        sum += calendar.isSet(static_cast<Cal::EDateFields>(i));
    UErrorCode own = status;
    const double t = calendar.getTime(own) + calendar.getTimeInMillis(own);
    Keep(static_cast<double>(sum) + t);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input in(data, size);
    UErrorCode status = UErrorNone;
    std::unique_ptr<Greg> calendar(new Greg(MakeZone(in), status));
    Check(U_SUCCESS(status));
    // The calendar starts at the current time; start from the input instead.
    Trace("calendar: GregorianCalendar(zone, status)");
    SetInstant(*calendar, in.Instant(), false, false);
    Trace("other: a copy of calendar");
    std::unique_ptr<Greg> other(new Greg(*calendar));
    SetInstant(*other, in.Instant(), false, true);
    Trace("calendar:");

    for (int op = 0; op < kMaxOperations && !in.Done(); ++op) {
        const unsigned code = in.Byte();
        const bool failing = (code & 0xE0) == 0xE0;  // 1 in 8: a status that already fails
        status = failing ? UErrorIllegalArgument : UErrorNone;
        const char* const before = failing ? "failing" : "good";
        Greg& cal = *calendar;
        switch (code % 28) {
            case 0: {
                const Cal::EDateFields field = in.Field();
                const std::int32_t value = in.Int();
                Trace("set(%d, %d)", field, value);
                cal.set(field, value);
                break;
            }
            case 1: {
                const std::int32_t y = in.Int(), m = in.Int(), d = in.Int();
                Trace("set(%d, %d, %d)", y, m, d);
                cal.set(y, m, d);
                break;
            }
            case 2: {
                const std::int32_t y = in.Int(), m = in.Int(), d = in.Int(), h = in.Int(),
                                   mi = in.Int();
                Trace("set(%d, %d, %d, %d, %d)", y, m, d, h, mi);
                cal.set(y, m, d, h, mi);
                break;
            }
            case 3: {
                const std::int32_t y = in.Int(), m = in.Int(), d = in.Int(), h = in.Int(),
                                   mi = in.Int(), s = in.Int();
                Trace("set(%d, %d, %d, %d, %d, %d)", y, m, d, h, mi, s);
                cal.set(y, m, d, h, mi, s);
                break;
            }
            case 4: {
                const Cal::EDateFields field = in.Field();
                const std::int32_t amount = in.Int();
                cal.add(field, amount, status);
                Trace("add(%d, %d, status %s) -> %d", field, amount, before,
                      static_cast<int>(status));
                break;
            }
            case 5: {
                const Cal::EDateFields field = in.Field();
                const std::int32_t amount = in.Int();
                cal.roll(field, amount, status);
                Trace("roll(%d, %d, status %s) -> %d", field, amount, before,
                      static_cast<int>(status));
                break;
            }
            case 6: {
                const Cal::EDateFields field = in.Field();
                const bool up = in.Bool();
                cal.roll(field, up, status);
                Trace("roll(%d, %s, status %s) -> %d", field, up ? "true" : "false", before,
                      static_cast<int>(status));
                break;
            }
            case 7:
            case 8:
                SetInstant(cal, in.Instant(), failing, code % 28 == 8);
                break;
            case 9:
                Trace("clear()");
                cal.clear();
                break;
            case 10: {
                const Cal::EDateFields field = in.Field();
                Trace("clear(%d)", field);
                cal.clear(field);
                break;
            }
            case 11: {
                const bool lenient = in.Byte() >= 0x40;
                Trace("setLenient(%s)", lenient ? "true" : "false");
                cal.setLenient(lenient);
                break;
            }
            case 12: {
                const Cal::EDaysOfWeek day = in.Weekday();
                Trace("setFirstDayOfWeek(%d)", day);
                cal.setFirstDayOfWeek(day);
                break;
            }
            case 13: {
                const unsigned b = in.Byte();
                const std::uint8_t days = static_cast<std::uint8_t>(b < 0xE0 ? b % 8 : b);
                Trace("setMinimalDaysInFirstWeek(%u)", days);
                cal.setMinimalDaysInFirstWeek(days);
                break;
            }
            case 14: {
                const double date = in.Instant();
                cal.setGregorianChange(date, status);
                Trace("setGregorianChange(%.17g, status %s) -> %d", date, before,
                      static_cast<int>(status));
                break;
            }
            case 15:
                Trace("get of every field, status %s", before);
                ReadAll(cal, failing);
                break;
            case 16: {
                const Cal::EDateFields field = in.Field();
                const bool walk = in.Byte() < 0x40;
                Trace("getActualMinimum/Maximum(%d)%s", field, walk ? ", also the walks" : "");
                const Cal& base = cal;
                std::int64_t sum = cal.getActualMinimum(field);
                sum += cal.getActualMaximum(field);
                if (walk) {
                    // The walks of the base: YEAR runs through some 4000 values.
                    UErrorCode own = status;
                    sum += base.getActualMinimum(field, own);
                    sum += base.getActualMaximum(field, own);
                }
                sum += cal.getMinimum(field);
                sum += cal.getMaximum(field);
                sum += cal.getGreatestMinimum(field);
                sum += cal.getLeastMaximum(field);
                Keep(static_cast<double>(sum));
                break;
            }
            case 17: {
                // A walk of at most a few hundred steps from the current time.
                const Cal::EDateFields field = in.Field();
                const double steps = static_cast<double>(in.Byte() % 201) * (in.Bool() ? 1 : -1) +
                                     static_cast<double>(in.Byte()) / 256.0;
                // A day-based step that crosses into daylight time is shortened by the
                // saving: with a saving near a day, each such step moves a millisecond
                // or so and the walk takes millions of them. Savings up to a quarter of
                // a day keep it to a few hundred steps.
                const STZ& zone = static_cast<const STZ&>(cal.getTimeZone());
                const std::int64_t saving = zone.getDSTSavings();
                if (zone.useDaylightTime() && (saving > kDay / 4 || saving < -kDay / 4)) break;
                UErrorCode own = UErrorNone;
                const double now = cal.getTime(own);
                if (U_FAILURE(own)) break;
                const double when = now + steps * StepOf(field);
                const std::int32_t count = cal.fieldDifference(when, field, status);
                Trace("fieldDifference(%.17g, %d, status %s) -> %d, status %d", when, field, before,
                      count, static_cast<int>(status));
                break;
            }
            case 18: {
                Trace("clone and compare");
                std::unique_ptr<Cal> copy(cal.clone());
                Check(copy != nullptr);
                UErrorCode own = UErrorNone;
                const double t = cal.getTime(own);
                // A clone is equivalent to its original, and equal whenever the time can
                // be computed, unless a NaN (cutover or time) compares unequal to itself.
                const double cutover = cal.getGregorianChange();
                if (cutover == cutover) {
                    Check(copy->equivalentTo(cal) && cal.equivalentTo(*copy));
                    if (U_SUCCESS(own) && t == t) Check(*copy == cal && !(*copy != cal));
                }
                if (in.Bool()) {
                    const Cal::EDateFields field = in.Field();
                    copy->add(field, in.Int(), status);
                }
                Keep((*copy == cal) || (cal == *other) || cal.equivalentTo(*other));
                break;
            }
            case 19:
                switch (in.Byte() % 3) {
                    case 0:
                        Trace("other = calendar");
                        *other = cal;
                        break;
                    case 1:
                        Trace("calendar = other");
                        cal = *other;
                        break;
                    default: {
                        Trace("calendar = calendar");
                        Greg& self = cal;
                        cal = self;
                        break;
                    }
                }
                break;
            case 20: {
                const double date = in.Instant();
                Trace("inDaylightTime(status %s); zone.inDaylightTime(%.17g)", before, date);
                Keep(cal.inDaylightTime(status));
                UErrorCode own = failing ? UErrorIllegalArgument : UErrorNone;
                Keep(cal.getTimeZone().inDaylightTime(date, own));
                break;
            }
            case 21:
                Trace("adoptTimeZone(new zone):");
                cal.adoptTimeZone(MakeZone(in));
                break;
            case 22: {
                Trace("setTimeZone(zone):");
                const std::unique_ptr<STZ> zone(MakeZone(in));
                cal.setTimeZone(*zone);
                break;
            }
            case 23:
                Trace("adoptTimeZone(nullptr)");
                cal.adoptTimeZone(nullptr);
                break;
            case 24: {
                Trace("equals/before/after, status %s", before);
                Keep(cal.equals(*other, status) || cal.before(*other, status) ||
                     cal.after(*other, status) || cal.equals(cal, status) ||
                     cal.before(cal, status) || cal.after(cal, status));
                break;
            }
            case 25: {
                const std::int32_t year = in.Int();
                Trace("getEpochDay(status %s), isLeapYear(%d)", before, year);
                Keep(static_cast<double>(cal.getEpochDay(status)) + cal.isLeapYear(year) +
                     cal.getFirstDayOfWeek() + cal.getMinimalDaysInFirstWeek() + cal.isLenient());
                break;
            }
            case 26: {
                // The zone itself, by each offset form, with any arguments.
                const TimeZone& zone = cal.getTimeZone();
                const std::uint8_t era = static_cast<std::uint8_t>(in.Byte() % 3);
                const std::int32_t year = in.Int(), month = in.Month();
                const std::int32_t day =
                    in.Byte() < 0xF0 ? static_cast<std::int32_t>(in.Byte() % 34) : in.Int();
                const std::uint8_t dayOfWeek = static_cast<std::uint8_t>(in.Byte() % 9);
                const std::int32_t millis = in.RuleTime(), length = in.Byte() % 5 + 27;
                const std::int32_t previous = in.Int();
                Trace("zone.getOffset(%u, %d, %d, %d, %u, %d[, %d[, %d]], status %s)", era, year,
                      month, day, dayOfWeek, millis, length, previous, before);
                std::int64_t sum = zone.getOffset(era, year, month, day, dayOfWeek, millis);
                UErrorCode own = status;
                sum += zone.getOffset(era, year, month, day, dayOfWeek, millis, own);
                own = status;
                sum += zone.getOffset(era, year, month, day, dayOfWeek, millis, length, own);
                own = status;
                sum += static_cast<const STZ&>(zone).getOffset(era, year, month, day, dayOfWeek,
                                                               millis, length, previous, own);
                const std::unique_ptr<TimeZone> copy(zone.clone());
                Check(*copy == zone && copy->hasSameRules(zone));
                Keep(static_cast<double>(sum) + (zone == other->getTimeZone()) +
                     zone.hasSameRules(other->getTimeZone()));
                break;
            }
            default: {
                // The factory, adopting or cloning, with a good or failing status.
                std::unique_ptr<Cal> made;
                if (in.Bool()) {
                    Trace("createInstance(new zone, status %s):", before);
                    made.reset(Cal::createInstance(MakeZone(in), status));
                } else {
                    Trace("createInstance(calendar's zone, status %s)", before);
                    made.reset(Cal::createInstance(cal.getTimeZone(), status));
                }
                Check(made == nullptr || (!failing && U_SUCCESS(status)));
                if (made) {
                    made->setTime(in.Instant(), status);
                    Keep(*made == cal);
                }
                break;
            }
        }
    }
    return 0;
}

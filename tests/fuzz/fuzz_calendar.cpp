// Random operations on a Gregorian calendar over a random simple time zone (any constructor and
// setter, whatever status they report), instants from NaN and infinities to huge values: nothing
// may crash or trip a sanitizer. After setTime(t) with a good status, t whole and within 1e14 ms
// of 1970, getTime gives t; in a zone without daylight time, with the default cutover and t not
// within a day of it, era, year, month, day, hour of the day, minute, second and millisecond lie
// in range and give t again in a cleared lenient calendar on the zone. A clone of the calendar or
// zone is equivalent and, when its time can be computed (and neither cutover nor time is NaN),
// equal. The factory makes a calendar only on a good status.
#include "fuzz_support.h"
#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/calendar/simple_time_zone.h"

namespace {

using Cal = Calendar;
using Greg = GregorianCalendar;
using STZ = SimpleTimeZone;
using i32 = std::int32_t;
constexpr double kDay = 86400000.0, kWholeLimit = 1e14, kCut = Greg::kPapalCutover;
// clang-format off
const i32 kNotable[] = {0, 1, -1, 2, 7, 11, 12, 13, -12, -13, 28, 29, 30, 31, 32, 52, 53, 59, 60,
    99, 100, 365, 366, 367, 999, 1000, 1582, 1583, 1969, 1970, 140742, 144683, 144684, 3600000,
    -3600000, 43200000, 86399999, 86400000, 86400001, -43200000, 50400000, -86400000, INT32_MAX,
    INT32_MIN, INT32_MAX - 1, INT32_MIN + 1, 1073741823, -1073741824};
const double kEdges[] = {Limits::quiet_NaN(), Limits::infinity(), 0.0, Limits::max(),
    Limits::min(), Limits::denorm_min(), 4503599627370495.0, 4503599627370496.0,
    9007199254740993.0, 1e300, 1e20, 1e15, kWholeLimit, 1073741824.0 * kDay,
    1073741824.0 * kDay - 1, 185542587187199999.0, 185542587187200000.0, kCut, kCut - 1,
    -62135596800000.0 /* 0001-01-01 */, -62135596800001.0};  // and their negatives
// clang-format on

struct Input : FuzzInput {
    using FuzzInput::FuzzInput;
    bool Bool() { return byte() & 1; }
    // A 32-bit value: mostly small or notable, sometimes any.
    i32 Int() {
        const unsigned kind = byte() % 8;
        if (kind == 0) return i32(byte() % 16) - 4;
        if (kind == 1) return i32(byte() % 81) - 40;
        if (kind == 2) return kNotable[byte() % (sizeof kNotable / sizeof kNotable[0])];
        if (kind == 3) return static_cast<std::int16_t>(unit());
        if (kind == 4) return i32(u32() % 2001) - 1000;
        if (kind == 5) return i32(byte());
        return static_cast<i32>(u32());
    }
    double WholeMillis() {
        const auto limit = static_cast<std::int64_t>(kWholeLimit);
        return double(static_cast<std::int64_t>(u64() % std::uint64_t(2 * limit + 1)) - limit);
    }
    // Whole milliseconds near notable dates, anywhere in range or beyond; fractions; NaN,
    // infinities, extremes and any bit pattern.
    double Instant() {
        const unsigned kind = byte() % 10;
        if (kind <= 1) return WholeMillis();
        if (kind == 2) return 1.7e12 + double(static_cast<i32>(u32())) * 1000 + byte() * 4;
        if (kind == 3) return kCut + double(std::int64_t(u64() % 518400001) - 259200000);
        if (kind == 4) {  // on or about midnights and hours
            const double midnight = std::floor(WholeMillis() / kDay) * kDay;
            const double hours = double(byte() % 49) - 24;
            return midnight + hours * 3600000.0 + (double(byte() % 5) - 2);
        }
        if (kind == 5)
            return (Bool() ? 1 : -1) * kEdges[byte() % (sizeof kEdges / sizeof kEdges[0])];
        if (kind == 6) return bits<double>();
        if (kind == 7) return WholeMillis() + double(byte() + 1) / 257.0;
        if (kind == 8) return double(std::int64_t(u64() % (1ULL << 54)) - (1LL << 53));
        const double days = double(Int()) * kDay;
        return days + double(Int());
    }
    bool Below(unsigned limit) { return (b = byte()) < limit; }
    // Mostly the nineteen fields, sometimes another value the enumeration holds (to 31); 0 (no
    // weekday) and 3 (no mode) now and then. Rule fields: mostly plausible, sometimes anything.
    Cal::EDateFields Field() { return Cal::EDateFields(Below(0xF0) ? b % 19 : b % 32); }
    Cal::EDaysOfWeek Weekday() { return Cal::EDaysOfWeek(Below(0xF8) ? b % 7 + 1 : 0); }
    STZ::TimeMode Mode() { return STZ::TimeMode(Below(0xF0) ? b % 3 : 3); }
    i32 Month() { return Below(0xC0) ? i32(b % 12) : b < 0xF0 ? i32(b % 16) - 2 : Int(); }
    i32 Day() { return Below(0x80) ? i32(b % 13) - 6 : b < 0xF0 ? i32(b % 65) - 32 : Int(); }
    i32 DayOfWeek() { return Below(0xF0) ? i32(b % 17) - 8 : Int(); }
    i32 RuleTime() {
        return Below(0x80) ? i32(b % 25) * 3600000 : b < 0xC0 ? i32(u32() % 86400002) : Int();
    }
    i32 RawOffset() { return Below(0xC0) ? (i32(byte() % 105) - 48) * 900000 : Int(); }
    i32 Savings() { return Below(0x80) ? 3600000 : b < 0xC0 ? i32(b % 9) * 900000 : Int(); }
    unsigned b = 0;
};

// Rule fields, passed as they are to the setters and cut to 8 bits for the constructors.
struct Rule {
    i32 month, day, dayOfWeek, time;
    STZ::TimeMode mode;
};
Rule ReadRule(Input& in) {  // braces evaluate in order
    return Rule{in.Month(), in.Day(), in.DayOfWeek(), in.RuleTime(), in.Mode()};
}

// One call of a rule setter of either side, in any of its forms.
void SetRule(STZ& zone, Input& in) {
    UErrorCode status = in.byte() < 0xF8 ? UErrorNone : UErrorIllegalArgument;
    const bool start = in.Bool(), after = in.Bool();
    const unsigned form = in.byte() % 6;
    const Rule r = ReadRule(in);
    const auto set = [&](auto... a) {
        start ? zone.setStartRule(a..., status) : zone.setEndRule(a..., status);
    };
    if (form == 0) set(r.month, r.day, r.dayOfWeek, r.time, r.mode);
    if (form == 1) set(r.month, r.day, r.dayOfWeek, r.time);
    if (form == 2) set(r.month, r.day, r.time, r.mode);
    if (form == 3) set(r.month, r.day, r.time);
    if (form == 4) set(r.month, r.day, r.dayOfWeek, r.time, r.mode, after);
    if (form == 5) set(r.month, r.day, r.dayOfWeek, r.time, after);
}

// A zone from random rule fields, by any constructor, then a few setters.
STZ* MakeZone(Input& in) {
    static const ucs2string ids[] = {Ascii("UTC"), Ascii("Europe/Paris"), Ascii("Zone"), {}};
    const ucs2string& id = ids[in.byte() % 4];
    UErrorCode status = UErrorNone;  // any outcome will do
    const unsigned kind = in.byte() % 8;
    const i32 raw = in.RawOffset(), savings = in.Savings();
    Rule s = ReadRule(in), e = ReadRule(in);
    using i8 = std::int8_t;
    const auto minutes = [](i32 ms) { return static_cast<std::uint16_t>(ms / 60000); };
    // clang-format off
    const DSTZone record{raw, minutes(savings), i8(s.month), i8(s.day), i8(s.dayOfWeek),
        minutes(s.time), i8(s.mode == 3 ? in.Int() : s.mode), i8(e.month), i8(e.day),
        i8(e.dayOfWeek), minutes(e.time), i8(e.mode == 3 ? in.Int() : e.mode)};
    // clang-format on
    const bool southern = in.Bool();  // kind 7: plausible daylight rules of both hemispheres
    if (kind == 7)
        e = southern ? Rule{3, 1, -1, 10800000, s.mode} : Rule{9, -1, 1, 3600000, s.mode};
    if (kind == 7) s = southern ? Rule{9, 1, -1, 7200000, s.mode} : Rule{2, -1, 1, 3600000, s.mode};
    const auto make = [&](auto... a) { return new STZ(raw, id, s.month, s.day, a..., status); };
    STZ* const zone = kind == 2 ? make(s.dayOfWeek, s.time, e.month, e.day, e.dayOfWeek, e.time)
                      : kind == 3
                          ? make(s.dayOfWeek, s.time, e.month, e.day, e.dayOfWeek, e.time, savings)
                      : kind == 4 || kind == 7 ? make(s.dayOfWeek, s.time, s.mode, e.month, e.day,
                                                      e.dayOfWeek, e.time, e.mode, savings)
                      : kind == 5              ? new STZ(StandardZone{raw}, id)
                      : kind == 6              ? new STZ(record, id)
                                               : new STZ(raw, id);
    for (unsigned setters = in.byte() % 4; setters > 0; --setters) {
        const unsigned which = in.byte() % 6;
        UErrorCode savingsStatus = UErrorNone;
        if (which <= 1) SetRule(*zone, in);
        if (which == 2) zone->setStartYear(in.Int());
        if (which == 3) zone->setDSTSavings(in.Savings());
        if (which == 4) zone->setDSTSavings(in.Savings(), savingsStatus);
        if (which == 5) zone->setRawOffset(in.RawOffset());
    }
    return zone;
}

// The invariants after setTime(t) with a good status.
void CheckInstant(Greg& calendar, double t) {
    if (!(std::floor(t) == t && std::fabs(t) <= kWholeLimit)) return;
    UErrorCode status = UErrorNone;
    Check(calendar.getTime(status) == t && U_SUCCESS(status));
    const TimeZone& zone = calendar.getTimeZone();
    if (zone.useDaylightTime() || calendar.getGregorianChange() != kCut ||
        std::fabs(t - kCut) <= kDay || std::fabs(t + zone.getRawOffset() - kCut) <= kDay)
        return;  // with daylight time, wall times may be doubled or skipped
    // Each field read back lies in its range and, written into a fresh calendar, gives t again.
    const Cal::EDateFields kRead[] = {Cal::ERA,         Cal::YEAR,   Cal::MONTH,  Cal::DAY_OF_MONTH,
                                      Cal::HOUR_OF_DAY, Cal::MINUTE, Cal::SECOND, Cal::MILLISECOND};
    const i32 kLow[] = {0, 1, 0, 1, 0, 0, 0, 0}, kHigh[] = {1, INT32_MAX, 11, 31, 23, 59, 59, 999};
    Greg fresh(zone, status);
    Check(U_SUCCESS(status));
    fresh.clear();
    fresh.setLenient(true);
    for (int i = 0; i < 8; ++i) {
        const i32 value = calendar.get(kRead[i], status);
        Check(U_SUCCESS(status) && value >= kLow[i] && value <= kHigh[i]);
        fresh.set(kRead[i], value);
    }
    Check(fresh.getTime(status) == t && U_SUCCESS(status));
}
void SetInstant(Greg& calendar, double t, bool failing, bool inMillis) {
    UErrorCode status = failing ? UErrorIllegalArgument : UErrorNone;
    inMillis ? calendar.setTimeInMillis(t, status) : calendar.setTime(t, status);
    if (U_SUCCESS(status)) CheckInstant(calendar, t);
}

// The size of one step of `field` in add, roughly, for fieldDifference.
double StepOf(Cal::EDateFields field) {
    // clang-format off
    static const double kSteps[] = {365.25 * kDay, 365.25 * kDay, 30.44 * kDay, 7 * kDay, 7 * kDay,
        kDay, kDay, kDay, 7 * kDay, kDay / 2, 3600000.0, 3600000.0, 60000.0, 1000.0, 1, 1, 1,
        365.25 * kDay, kDay};
    // clang-format on
    return field < Cal::kFieldCount ? kSteps[field] : 1;
}

void ReadAll(const Cal& calendar, UErrorCode status) {
    std::int64_t sum = 0;
    for (int i = 0; i < 32; ++i) {
        UErrorCode own = status;
        sum += calendar.get(Cal::EDateFields(i), own);
        if (i < Cal::kFieldCount) sum += calendar.isSet(Cal::EDateFields(i));
    }
    g_sink = double(sum) + calendar.getTime(status) + calendar.getTimeInMillis(status);
}

// The zone itself, by each offset form, with any arguments; a clone of it is equal.
void AskZone(const TimeZone& zone, const TimeZone& other, Input& in, UErrorCode status) {
    const std::uint8_t era = std::uint8_t(in.byte() % 3);
    const i32 year = in.Int(), month = in.Month();
    const i32 day = in.byte() < 0xF0 ? i32(in.byte() % 34) : in.Int();
    const std::uint8_t dayOfWeek = std::uint8_t(in.byte() % 9);
    const i32 millis = in.RuleTime(), length = in.byte() % 5 + 27, previous = in.Int();
    UErrorCode own[] = {status, status, status};
    const auto ask = [&](const auto& z, auto... rest) {
        return z.getOffset(era, year, month, day, dayOfWeek, millis, rest...);
    };
    g_sink = double(ask(zone)) + ask(zone, own[0]) + ask(zone, length, own[1]) +
             ask(static_cast<const STZ&>(zone), length, previous, own[2]);
    const std::unique_ptr<TimeZone> copy(zone.clone());
    Check(*copy == zone && copy->hasSameRules(zone));
    g_sink = double(zone == other) + zone.hasSameRules(other);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input in(data, size);
    UErrorCode status = UErrorNone;
    const std::unique_ptr<Greg> calendar(new Greg(MakeZone(in), status));
    Check(U_SUCCESS(status));
    SetInstant(*calendar, in.Instant(), false, false);  // not the current time
    const std::unique_ptr<Greg> other(new Greg(*calendar));
    SetInstant(*other, in.Instant(), false, true);
    for (int step = 0; step < 48 && in.more(); ++step) {
        const unsigned code = in.byte(), op = code % 28;
        const bool failing = (code & 0xE0) == 0xE0;  // 1 in 8: a status that already fails
        status = failing ? UErrorIllegalArgument : UErrorNone;
        Greg& cal = *calendar;
        const Cal::EDateFields field = in.Field();
        if (op == 0) cal.set(field, in.Int());
        if (op >= 1 && op <= 3) {
            const i32 y = in.Int(), m = in.Int(), d = in.Int();
            const i32 h = op > 1 ? in.Int() : 0, mi = op > 1 ? in.Int() : 0;
            op == 1   ? cal.set(y, m, d)
            : op == 2 ? cal.set(y, m, d, h, mi)
                      : cal.set(y, m, d, h, mi, in.Int());
        }
        if (op == 4) cal.add(field, in.Int(), status);
        if (op == 5) cal.roll(field, in.Int(), status);
        if (op == 6) cal.roll(field, in.Bool(), status);
        if (op == 7 || op == 8) SetInstant(cal, in.Instant(), failing, op == 8);
        if (op == 9) cal.clear();
        if (op == 10) cal.clear(field);
        if (op == 11) cal.setLenient(in.byte() >= 0x40);
        if (op == 12) cal.setFirstDayOfWeek(in.Weekday());
        if (op == 13) cal.setMinimalDaysInFirstWeek(std::uint8_t(in.Below(0xE0) ? in.b % 8 : in.b));
        if (op == 14) cal.setGregorianChange(in.Instant(), status);
        if (op == 15) ReadAll(cal, status);
        if (op == 16) {
            g_sink = double(cal.getActualMinimum(field)) + cal.getActualMaximum(field) +
                     cal.getMinimum(field) + cal.getMaximum(field) + cal.getGreatestMinimum(field) +
                     cal.getLeastMaximum(field);
            UErrorCode own = status;
            const Cal& base = cal;  // the walks of the base: YEAR runs through some 4000
            if (in.byte() < 0x40)
                g_sink =
                    double(base.getActualMinimum(field, own)) + base.getActualMaximum(field, own);
        }
        if (op == 17) {
            // A walk of a few hundred steps from now. A day-based step into daylight time is
            // shortened by the saving: with one near a day, each moves a millisecond or so and the
            // walk takes millions. Savings up to a quarter of a day keep it short.
            const double steps =
                double(in.byte() % 201) * (in.Bool() ? 1 : -1) + double(in.byte()) / 256.0;
            const STZ& zone = static_cast<const STZ&>(cal.getTimeZone());
            UErrorCode own = UErrorNone;
            const double now = cal.getTime(own);
            if (U_SUCCESS(own) &&
                (!zone.useDaylightTime() || std::fabs(zone.getDSTSavings()) <= kDay / 4))
                g_sink = cal.fieldDifference(now + steps * StepOf(field), field, status);
        }
        if (op == 18) {
            const std::unique_ptr<Cal> copy(cal.clone());
            Check(copy != nullptr);
            UErrorCode own = UErrorNone;
            const double t = cal.getTime(own), cutover = cal.getGregorianChange();
            if (cutover == cutover) {
                Check(copy->equivalentTo(cal) && cal.equivalentTo(*copy));
                if (U_SUCCESS(own) && t == t) Check(*copy == cal && !(*copy != cal));
            }
            if (in.Bool()) copy->add(field, in.Int(), status);
            g_sink = (*copy == cal) || (cal == *other) || cal.equivalentTo(*other);
        }
        if (op == 19)
            field % 3 == 0 ? void(*other = cal) : void(cal = field % 3 == 1 ? *other : *calendar);
        if (op == 20) {
            g_sink = cal.inDaylightTime(status);
            UErrorCode own = failing ? UErrorIllegalArgument : UErrorNone;
            g_sink = cal.getTimeZone().inDaylightTime(in.Instant(), own);
        }
        if (op == 21) cal.adoptTimeZone(MakeZone(in));
        if (op == 22) cal.setTimeZone(*std::unique_ptr<STZ>(MakeZone(in)));
        if (op == 23) cal.adoptTimeZone(nullptr);
        if (op == 24)
            g_sink = cal.equals(*other, status) || cal.before(*other, status) ||
                     cal.after(*other, status) || cal.equals(cal, status) ||
                     cal.before(cal, status) || cal.after(cal, status);
        if (op == 25)
            g_sink = double(cal.getEpochDay(status)) + cal.isLeapYear(in.Int()) +
                     cal.getFirstDayOfWeek() + cal.getMinimalDaysInFirstWeek() + cal.isLenient();
        if (op == 26) AskZone(cal.getTimeZone(), other->getTimeZone(), in, status);
        if (op == 27) {  // the factory, adopting or cloning, with a good or failing status
            const std::unique_ptr<Cal> made(field % 2
                                                ? Cal::createInstance(MakeZone(in), status)
                                                : Cal::createInstance(cal.getTimeZone(), status));
            Check(made == nullptr || (!failing && U_SUCCESS(status)));
            if (made) made->setTime(in.Instant(), status), g_sink = *made == cal;
        }
    }
    return 0;
}

// Calendar-time values on a zone named by random bytes (mostly a predefined identifier) and on
// either calendar, driven by random checked writes and reads. A stranger zone must throw
// UnknownTimeZone; a write passes or throws IncorrectData and leaves the instant as it was; field
// reads never fail, actual limits only with InternalError. No other exception may come out.
#include "fuzz_support.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/predefined_time_zones.h"

namespace {

using namespace TimeLib;

// clang-format off
const luField* const kFields[] = {&Era, &Year, &Month, &Week_of_year, &Week_of_month,
    &Day_of_month, &Day_of_year, &Day_of_week, &Day_of_week_in_month, &Am_pm, &Hour, &Hour_of_day,
    &Minute, &Second, &Millisecond, &Year_woy, &Dow_local};
// clang-format on

// Small amounts most of the time, any 32-bit value now and then.
int Amount(FuzzInput& in) {
    const unsigned kind = in.byte();
    return kind < 200 ? static_cast<int>(kind % 64) - 32 : static_cast<std::int32_t>(in.u32());
}

// About one step of `field`, in days (a negative count: milliseconds).
luDuration StepOf(const luField& field) {
    static const double kDays[] = {365000,   366,      31,     7,     7,  1, 1, 1,   7, 0.5,
                                   -3600000, -3600000, -60000, -1000, -1, 1, 1, 366, 1};
    const double days = kDays[field.value()];
    return days > 0 ? luDuration::Day * days : luDuration::Millisecond * -days;
}

// One random write, which passes or throws IncorrectData.
void Write(luCalendarTime& t, FuzzInput& in) {
    const luField& field = *kFields[in.byte() % std::size(kFields)];
    const unsigned kind = in.byte() % 8;
    if (kind == 0) t.set(field, Amount(in));
    if (kind == 1) t.add(field, Amount(in));
    if (kind == 2) t.roll(field, Amount(in));
    if (kind == 3) t.clear(field);
    if (kind == 4) {
        luFields fields;
        for (int n = in.byte() % 4; n >= 0; --n)
            fields.set(*kFields[in.byte() % std::size(kFields)], Amount(in));
        in.byte() % 2 == 0 ? void(t.set(fields)) : void(t.reset(fields));
    }
    if (kind == 5) {
        const double a = static_cast<std::int32_t>(in.u32()),
                     b = static_cast<std::int32_t>(in.u32());
        t.reset(luPhysicalTime::Epoch + luDuration::Millisecond * (a * b));
    }
    if (kind == 6) {  // diff walks one step at a time: the target lies some hundred steps away
        int count = 0;
        t.diff(t.physicalTime() + StepOf(field) * (int(in.byte()) - 128), field, count);
    }
    if (kind == 7) t.physicalTime() = t.physicalTime();
}

// Every field of a value left by checked writes reads. The actual limits walk a clone through the
// values, which near the ends of the time range can step outside it (InternalError), and which
// takes some ten thousand steps for the two year fields, which are therefore left out.
void ReadAll(const luCalendarTime& t, const luField& limited) {
    long sum = t.zone_offset() + t.dst_offset();
    for (const luField* field : kFields) sum += t.get(*field);
    g_sink = double(sum);
    if (&limited == &Year || &limited == &Year_woy) return;
    try {
        g_sink = double(t.minimum(limited)) + t.maximum(limited);
    } catch (const InternalError&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CalendarTimeInitExit calendarTime;
    static const VeloraCalendarInitExit velora;
    static const PredefinedTimeZonesInitExit predefined;
    static const std::vector<ucs2string> ids = PredefinedTimeZones::timeBelt().availableIDs();
    FuzzInput in(data, size);
    ucs2string id = in.byte() < 240 ? ids[in.unit() % ids.size()] : ucs2string();
    for (int n = id.empty() ? in.byte() % 24 : 0; n > 0; --n)
        id += static_cast<unsigned short>(in.byte());
    const luAvailableTimeZone* zone = nullptr;
    try {
        zone = &PredefinedTimeZones::timeBelt().availableTimeZone(id);
    } catch (const UnknownTimeZone& error) {
        Check(error.zoneId() == id);
        return 0;
    }
    luCalendarTime t(*zone, in.byte() % 2 == 0
                                ? static_cast<const luCalendar&>(luCalendar::gregorian())
                                : luVeloraCalendar::calendar());
    for (int step = 0; step < 32 && in.more(); ++step) {
        const luPhysicalTime before = t.physicalTime();
        try {
            Write(t, in);
        } catch (const IncorrectData&) {
            const luPhysicalTime after = t.physicalTime();
            Check(after == before ||
                  (std::isnan((after - luPhysicalTime::Epoch) / luDuration::Millisecond)));
        }
        ReadAll(t, *kFields[in.byte() % std::size(kFields)]);
    }
    return 0;
}

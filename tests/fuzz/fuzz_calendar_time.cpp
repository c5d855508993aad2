// Calendar-time values on a zone named by random bytes (a predefined
// identifier most of the time, a stranger sometimes) and on either calendar,
// driven by random checked writes and reads. A stranger must throw
// UnknownTimeZone; every write either passes or throws IncorrectData and
// leaves the value's instant as it was; field reads never fail, and the
// actual limits fail only with InternalError. No other exception may come out.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/predefined_time_zones.h"

namespace {

using namespace TimeLib;

const luField* const kFields[] = {&Era,          &Year,          &Month,
                                  &Week_of_year, &Week_of_month, &Day_of_month,
                                  &Day_of_year,  &Day_of_week,   &Day_of_week_in_month,
                                  &Am_pm,        &Hour,          &Hour_of_day,
                                  &Minute,       &Second,        &Millisecond,
                                  &Year_woy,     &Dow_local};
constexpr int kFieldCount = sizeof kFields / sizeof kFields[0];

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
    bool empty() const { return m_at >= m_size; }
    std::uint8_t byte() { return m_at < m_size ? m_data[m_at++] : 0; }
    std::int32_t int32() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = value << 8 | byte();
        return static_cast<std::int32_t>(value);
    }
    // Small amounts most of the time, any 32-bit value now and then.
    int amount() {
        const std::uint8_t kind = byte();
        return kind < 200 ? static_cast<int>(kind % 64) - 32 : int32();
    }

  private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_at = 0;
};

ucs2string ZoneId(Input& in, const std::vector<ucs2string>& ids) {
    const std::uint8_t pick = in.byte();
    if (pick < 240) return ids[(pick << 8 | in.byte()) % ids.size()];
    ucs2string stranger;
    for (int n = in.byte() % 24; n > 0; --n) stranger += static_cast<unsigned short>(in.byte());
    return stranger;
}

// About one step of `field`.
luDuration StepOf(const luField& field) {
    const luDuration day = luDuration::Day;
    const luDuration steps[] = {day * 365000,
                                day * 366,
                                day * 31,
                                day * 7,
                                day * 7,
                                day,
                                day,
                                day,
                                day * 7,
                                luDuration::Hour * 12,
                                luDuration::Hour,
                                luDuration::Hour,
                                luDuration::Minute,
                                luDuration::Second,
                                luDuration::Millisecond};
    const int index = field.value();
    return index < 15 ? steps[index] : index == 17 ? day * 366 : day;
}

// One random write, which passes or throws IncorrectData.
void Write(luCalendarTime& t, Input& in) {
    const luField& field = *kFields[in.byte() % kFieldCount];
    switch (in.byte() % 8) {
        case 0:
            t.set(field, in.amount());
            break;
        case 1:
            t.add(field, in.amount());
            break;
        case 2:
            t.roll(field, in.amount());
            break;
        case 3:
            t.clear(field);
            break;
        case 4: {
            luFields fields;
            for (int n = in.byte() % 4; n >= 0; --n)
                fields.set(*kFields[in.byte() % kFieldCount], in.amount());
            if (in.byte() % 2 == 0)
                t.set(fields);
            else
                t.reset(fields);
            break;
        }
        case 5: {
            const double ms = static_cast<double>(in.int32()) * static_cast<double>(in.int32());
            t.reset(luPhysicalTime::Epoch + luDuration::Millisecond * ms);
            break;
        }
        case 6: {
            // diff walks one step at a time: the target lies some hundred
            // steps of the field away.
            const luPhysicalTime target = t.physicalTime() + StepOf(field) * int(in.byte() - 128);
            int count = 0;
            t.diff(target, field, count);
            break;
        }
        default:
            t.physicalTime() = t.physicalTime();
            break;
    }
}

// Every field of a value left by checked writes reads. The actual limits are
// found by walking a clone through the values; near the ends of the time
// range the walk can step outside it, and the read then throws InternalError.
// The walk takes some ten thousand steps for the two year fields, which are
// therefore left out.
void ReadAll(const luCalendarTime& t, const luField& limited) {
    volatile long sum = t.zone_offset() + t.dst_offset();
    for (const luField* field : kFields) sum = sum + t.get(*field);
    if (&limited == &Year || &limited == &Year_woy) return;
    try {
        sum = sum + t.minimum(limited) + t.maximum(limited);
    } catch (const InternalError&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CalendarTimeInitExit calendarTime;
    static const VeloraCalendarInitExit velora;
    static const PredefinedTimeZonesInitExit predefined;
    static const std::vector<ucs2string> ids = PredefinedTimeZones::timeBelt().availableIDs();
    Input in(data, size);
    const ucs2string id = ZoneId(in, ids);
    const luAvailableTimeZone* zone = nullptr;
    try {
        zone = &PredefinedTimeZones::timeBelt().availableTimeZone(id);
    } catch (const UnknownTimeZone& error) {
        Check(error.zoneId() == id);
        return 0;
    }
    const luCalendar& calendar = in.byte() % 2 == 0
                                     ? static_cast<const luCalendar&>(luCalendar::gregorian())
                                     : luVeloraCalendar::calendar();
    luCalendarTime t(*zone, calendar);
    for (int step = 0; step < 32 && !in.empty(); ++step) {
        const luPhysicalTime before = t.physicalTime();
        try {
            Write(t, in);
        } catch (const IncorrectData&) {
            const luPhysicalTime after = t.physicalTime();
            Check(after == before ||
                  (std::isnan((after - luPhysicalTime::Epoch) / luDuration::Millisecond)));
        }
        ReadAll(t, *kFields[in.byte() % kFieldCount]);
    }
    return 0;
}

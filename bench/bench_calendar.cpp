// The calendar engine against glibc on the same 1,000,000 instants (fixed
// seed; 1970 to 2099, whole milliseconds):
//
//  - SetTimeFields: an instant to fields; ours setTime on a GregorianCalendar
//    over SimpleTimeZone(0, "UTC"), then get of YEAR, MONTH, DAY_OF_MONTH and
//    HOUR_OF_DAY; glibc gmtime_r of the instant's seconds.
//  - FieldsToTime: fields to an instant; ours clear(), set(y, m, d, h, mi, s)
//    and getTime; glibc timegm of a struct tm with the same fields.
//  - ZoneOffset: the offset of a zone with daylight time for a local standard
//    date; ours the 8-argument SimpleTimeZone::getOffset (with the month
//    length, as the calendar asks it) on a zone with the European rules; glibc
//    localtime_r of the matching instant under the same rules as a POSIX TZ
//    string, reading tm_gmtoff.
//  - ZoneHour: the whole road in that zone; ours setTime and
//    get(HOUR_OF_DAY); glibc localtime_r, reading tm_hour.
//
// Before timing, each of ours is checked against glibc on the first 1,000
// values.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <random>
#include <vector>

#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/strings/ucs2string.h"
#include "ratio_reporter.h"

namespace {

constexpr std::size_t kValues = 1000000;
constexpr std::size_t kChecked = 1000;
constexpr std::int64_t kEnd = 4102444800000;  // 2100-01-01 00:00:00 UTC, in milliseconds
constexpr std::int32_t kHour = 3600000;
constexpr char kPosixRules[] = "CET-1CEST,M3.5.0/2,M10.5.0/3";

// Instants from 1970-01-01 to the end of 2099, whole milliseconds, by a fixed seed.
const std::vector<std::int64_t>& Instants() {
    static const auto values = [] {
        std::mt19937_64 rng(20261124);
        std::uniform_int_distribution<std::int64_t> draw(0, kEnd - 1);
        std::vector<std::int64_t> out;
        out.reserve(kValues);
        for (std::size_t i = 0; i < kValues; ++i) out.push_back(draw(rng));
        return out;
    }();
    return values;
}

const std::vector<std::time_t>& Seconds() {
    static const auto values = [] {
        std::vector<std::time_t> out;
        out.reserve(kValues);
        for (std::int64_t ms : Instants()) out.push_back(static_cast<std::time_t>(ms / 1000));
        return out;
    }();
    return values;
}

// The UTC fields of each instant's second.
struct Fields {
    int year, month, day, hour, minute, second;  // month from 0
};

const std::vector<Fields>& UtcFields() {
    static const auto values = [] {
        std::vector<Fields> out;
        out.reserve(kValues);
        for (std::time_t seconds : Seconds()) {
            std::tm tm;
            gmtime_r(&seconds, &tm);
            out.push_back(
                {tm.tm_year + 1900, tm.tm_mon, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec});
        }
        return out;
    }();
    return values;
}

std::tm ToTm(const Fields& f) {
    std::tm tm{};
    tm.tm_year = f.year - 1900;
    tm.tm_mon = f.month;
    tm.tm_mday = f.day;
    tm.tm_hour = f.hour;
    tm.tm_min = f.minute;
    tm.tm_sec = f.second;
    return tm;
}

int MonthLength(int year, int month) {
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return kDays[month] + (month == 1 && leap ? 1 : 0);
}

// The arguments of getOffset for the local standard time (UTC + 1 h) of each instant.
struct LocalDate {
    std::int32_t year, month, day, millis, monthLength;
    std::uint8_t dayOfWeek;
};

const std::vector<LocalDate>& LocalDates() {
    static const auto values = [] {
        std::vector<LocalDate> out;
        out.reserve(kValues);
        for (std::int64_t ms : Instants()) {
            const std::int64_t local = ms + kHour;
            const std::time_t seconds = static_cast<std::time_t>(local / 1000);
            std::tm tm;
            gmtime_r(&seconds, &tm);
            const int year = tm.tm_year + 1900;
            out.push_back({year, tm.tm_mon, tm.tm_mday, static_cast<std::int32_t>(local % 86400000),
                           MonthLength(year, tm.tm_mon),
                           static_cast<std::uint8_t>(tm.tm_wday + 1)});
        }
        return out;
    }();
    return values;
}

ucs2string Id(const char* text) {
    return ucs2string(reinterpret_cast<const unsigned char*>(text));
}

// The European rules: from the last Sunday of March, 01:00 UTC, to the last
// Sunday of October, 01:00 UTC, one hour on top of UTC + 1 h.
SimpleTimeZone* NewParis() {
    UErrorCode status = UErrorNone;
    auto* zone =
        new SimpleTimeZone(3600000, Id("Europe/Paris"), 2, -1, 1, 3600000, SimpleTimeZone::UTC_TIME,
                           9, -1, 1, 3600000, SimpleTimeZone::UTC_TIME, 3600000, status);
    if (U_FAILURE(status)) std::abort();
    return zone;
}

// glibc reads the same rules from TZ; set once, before any localtime_r.
void UsePosixRules() {
    static const bool done = [] {
        setenv("TZ", kPosixRules, 1);
        tzset();
        return true;
    }();
    (void)done;
}

std::unique_ptr<GregorianCalendar> NewCalendar(TimeZone* zone) {
    UErrorCode status = UErrorNone;
    std::unique_ptr<GregorianCalendar> calendar(new GregorianCalendar(zone, status));
    if (U_FAILURE(status)) std::abort();
    return calendar;
}

// ---- an instant to fields

void SetTimeFieldsOurs(benchmark::State& state) {
    const auto calendar = NewCalendar(new SimpleTimeZone(0, Id("UTC")));
    GregorianCalendar& cal = *calendar;
    const std::vector<std::int64_t>& instants = Instants();
    for (std::size_t i = 0; i < kChecked; ++i) {
        UErrorCode status = UErrorNone;
        cal.setTime(static_cast<double>(instants[i]), status);
        const Fields& f = UtcFields()[i];
        if (cal.get(Calendar::YEAR, status) != f.year ||
            cal.get(Calendar::MONTH, status) != f.month ||
            cal.get(Calendar::DAY_OF_MONTH, status) != f.day ||
            cal.get(Calendar::HOUR_OF_DAY, status) != f.hour || U_FAILURE(status)) {
            state.SkipWithError("the fields differ from gmtime_r");
            return;
        }
    }
    for (auto _ : state) {
        UErrorCode status = UErrorNone;
        long sum = 0;
        for (std::int64_t ms : instants) {
            cal.setTime(static_cast<double>(ms), status);
            sum += cal.get(Calendar::YEAR, status) + cal.get(Calendar::MONTH, status) +
                   cal.get(Calendar::DAY_OF_MONTH, status) + cal.get(Calendar::HOUR_OF_DAY, status);
        }
        benchmark::DoNotOptimize(sum);
        if (U_FAILURE(status)) state.SkipWithError("status failed");
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void SetTimeFieldsGlibc(benchmark::State& state) {
    const std::vector<std::time_t>& seconds = Seconds();
    for (auto _ : state) {
        long sum = 0;
        for (std::time_t s : seconds) {
            std::tm tm;
            gmtime_r(&s, &tm);
            sum += tm.tm_year + 1900 + tm.tm_mon + tm.tm_mday + tm.tm_hour;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

// ---- fields to an instant

void FieldsToTimeOurs(benchmark::State& state) {
    const auto calendar = NewCalendar(new SimpleTimeZone(0, Id("UTC")));
    GregorianCalendar& cal = *calendar;
    const std::vector<Fields>& fields = UtcFields();
    for (std::size_t i = 0; i < kChecked; ++i) {
        const Fields& f = fields[i];
        UErrorCode status = UErrorNone;
        cal.clear();
        cal.set(f.year, f.month, f.day, f.hour, f.minute, f.second);
        std::tm tm = ToTm(f);
        if (cal.getTime(status) != static_cast<double>(timegm(&tm)) * 1000 || U_FAILURE(status)) {
            state.SkipWithError("getTime differs from timegm");
            return;
        }
    }
    for (auto _ : state) {
        UErrorCode status = UErrorNone;
        double sum = 0;
        for (const Fields& f : fields) {
            cal.clear();
            cal.set(f.year, f.month, f.day, f.hour, f.minute, f.second);
            sum += cal.getTime(status);
        }
        benchmark::DoNotOptimize(sum);
        if (U_FAILURE(status)) state.SkipWithError("status failed");
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void FieldsToTimeGlibc(benchmark::State& state) {
    const std::vector<Fields>& fields = UtcFields();
    for (auto _ : state) {
        long sum = 0;
        for (const Fields& f : fields) {
            std::tm tm = ToTm(f);
            sum += timegm(&tm);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

// ---- the offset of a zone with daylight time

void ZoneOffsetOurs(benchmark::State& state) {
    UsePosixRules();
    const std::unique_ptr<SimpleTimeZone> paris(NewParis());
    // Asked through the base, as the calendar asks its zone.
    const TimeZone* zone = paris.get();
    benchmark::DoNotOptimize(zone);
    const std::vector<LocalDate>& dates = LocalDates();
    for (std::size_t i = 0; i < kChecked; ++i) {
        const LocalDate& d = dates[i];
        UErrorCode status = UErrorNone;
        const std::int32_t offset = zone->getOffset(1, d.year, d.month, d.day, d.dayOfWeek,
                                                    d.millis, d.monthLength, status);
        std::tm tm;
        localtime_r(&Seconds()[i], &tm);
        if (offset != tm.tm_gmtoff * 1000 || U_FAILURE(status)) {
            state.SkipWithError("the offset differs from localtime_r");
            return;
        }
    }
    for (auto _ : state) {
        UErrorCode status = UErrorNone;
        long sum = 0;
        for (const LocalDate& d : dates) {
            sum += zone->getOffset(1, d.year, d.month, d.day, d.dayOfWeek, d.millis, d.monthLength,
                                   status);
        }
        benchmark::DoNotOptimize(sum);
        if (U_FAILURE(status)) state.SkipWithError("status failed");
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void ZoneOffsetGlibc(benchmark::State& state) {
    UsePosixRules();
    const std::vector<std::time_t>& seconds = Seconds();
    for (auto _ : state) {
        long sum = 0;
        for (std::time_t s : seconds) {
            std::tm tm;
            localtime_r(&s, &tm);
            sum += tm.tm_gmtoff;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

// ---- the whole road in that zone

void ZoneHourOurs(benchmark::State& state) {
    UsePosixRules();
    const auto calendar = NewCalendar(NewParis());
    GregorianCalendar& cal = *calendar;
    const std::vector<std::int64_t>& instants = Instants();
    for (std::size_t i = 0; i < kChecked; ++i) {
        UErrorCode status = UErrorNone;
        cal.setTime(static_cast<double>(instants[i]), status);
        std::tm tm;
        localtime_r(&Seconds()[i], &tm);
        if (cal.get(Calendar::HOUR_OF_DAY, status) != tm.tm_hour || U_FAILURE(status)) {
            state.SkipWithError("the hour differs from localtime_r");
            return;
        }
    }
    for (auto _ : state) {
        UErrorCode status = UErrorNone;
        long sum = 0;
        for (std::int64_t ms : instants) {
            cal.setTime(static_cast<double>(ms), status);
            sum += cal.get(Calendar::HOUR_OF_DAY, status);
        }
        benchmark::DoNotOptimize(sum);
        if (U_FAILURE(status)) state.SkipWithError("status failed");
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void ZoneHourGlibc(benchmark::State& state) {
    UsePosixRules();
    const std::vector<std::time_t>& seconds = Seconds();
    for (auto _ : state) {
        long sum = 0;
        for (std::time_t s : seconds) {
            std::tm tm;
            localtime_r(&s, &tm);
            sum += tm.tm_hour;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

}  // namespace

BENCHMARK(SetTimeFieldsOurs)->Name("SetTimeFields/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(SetTimeFieldsGlibc)->Name("SetTimeFields/glibc")->Unit(benchmark::kMicrosecond);
BENCHMARK(FieldsToTimeOurs)->Name("FieldsToTime/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(FieldsToTimeGlibc)->Name("FieldsToTime/glibc")->Unit(benchmark::kMicrosecond);
BENCHMARK(ZoneOffsetOurs)->Name("ZoneOffset/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(ZoneOffsetGlibc)->Name("ZoneOffset/glibc")->Unit(benchmark::kMicrosecond);
BENCHMARK(ZoneHourOurs)->Name("ZoneHour/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(ZoneHourGlibc)->Name("ZoneHour/glibc")->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return RunBenchmarksWithRatios(argc, argv);
}

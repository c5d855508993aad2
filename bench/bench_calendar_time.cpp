// Calendar-time values on a predefined zone with daylight time against glibc
// localtime_r under the same rules, on the same 100,000 instants (fixed seed;
// 1970 to 2099, whole milliseconds):
//
//  - Build: a new luCalendarTime on "Europe/Paris" at each instant (the zone
//    and the calendar are made each time), then year, month, day of the month
//    and hour; glibc localtime_r of the instant's seconds with
//    TZ=CET-1CEST,M3.5.0/2,M10.5.0/3.
//  - Reset: one existing value moved to each instant by reset(), then the same
//    four reads; glibc as above.
//
// Before timing, the fields of the first 1,000 instants are checked against
// localtime_r.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <random>
#include <vector>

#include "kai18n/strings/ucs2string.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/predefined_time_zones.h"
#include "ratio_reporter.h"

namespace {

using namespace TimeLib;

constexpr std::size_t kValues = 100000;
constexpr std::size_t kChecked = 1000;
constexpr std::int64_t kEnd = 4102444800000;  // 2100-01-01 00:00:00 UTC, in milliseconds

const std::vector<std::int64_t>& Instants() {
    static const auto values = [] {
        std::mt19937_64 rng(20261124);
        std::uniform_int_distribution<std::int64_t> draw(0, kEnd - 1);
        std::vector<std::int64_t> out;
        for (std::size_t i = 0; i < kValues; ++i) out.push_back(draw(rng));
        return out;
    }();
    return values;
}

luPhysicalTime At(std::int64_t ms) {
    return luPhysicalTime::Epoch + luDuration::Millisecond * static_cast<double>(ms);
}

const luAvailableTimeZone& Paris() {
    static const unsigned short id[] = {'E', 'u', 'r', 'o', 'p', 'e', '/',
                                        'P', 'a', 'r', 'i', 's', 0};
    return PredefinedTimeZones::timeBelt().availableTimeZone(ucs2string(id));
}

void UseParisRules() {
    setenv("TZ", "CET-1CEST,M3.5.0/2,M10.5.0/3", 1);
    tzset();
}

int Sum(const luCalendarTime& t) {
    return t.year() + t.month() + t.day_of_month() + t.hour_of_day();
}

int GlibcSum(std::int64_t ms) {
    const std::time_t seconds = static_cast<std::time_t>(ms / 1000);
    std::tm tm;
    localtime_r(&seconds, &tm);
    return tm.tm_year + 1900 + tm.tm_mon + tm.tm_mday + tm.tm_hour;
}

bool AgreesWithGlibc() {
    UseParisRules();
    for (std::size_t i = 0; i < kChecked; ++i) {
        const std::int64_t ms = Instants()[i];
        const luCalendarTime t(At(ms), Paris());
        const std::time_t seconds = static_cast<std::time_t>(ms / 1000);
        std::tm tm;
        localtime_r(&seconds, &tm);
        if (t.year() != tm.tm_year + 1900 || t.month() != tm.tm_mon ||
            t.day_of_month() != tm.tm_mday || t.hour_of_day() != tm.tm_hour)
            return false;
    }
    return true;
}

void BuildOurs(benchmark::State& state) {
    if (!AgreesWithGlibc()) return state.SkipWithError("the fields differ from localtime_r");
    const luAvailableTimeZone& zone = Paris();
    for (auto _ : state) {
        long sum = 0;
        for (std::int64_t ms : Instants()) sum += Sum(luCalendarTime(At(ms), zone));
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void ResetOurs(benchmark::State& state) {
    if (!AgreesWithGlibc()) return state.SkipWithError("the fields differ from localtime_r");
    luCalendarTime t(Paris());
    for (auto _ : state) {
        long sum = 0;
        for (std::int64_t ms : Instants()) sum += Sum(t.reset(At(ms)));
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void LocaltimeGlibc(benchmark::State& state) {
    UseParisRules();
    for (auto _ : state) {
        long sum = 0;
        for (std::int64_t ms : Instants()) sum += GlibcSum(ms);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

}  // namespace

BENCHMARK(BuildOurs)->Name("Build/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(LocaltimeGlibc)->Name("Build/glibc")->Unit(benchmark::kMicrosecond);
BENCHMARK(ResetOurs)->Name("Reset/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(LocaltimeGlibc)->Name("Reset/glibc")->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return RunBenchmarksWithRatios(argc, argv);
}

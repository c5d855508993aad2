// The date formatter against glibc on the same 1,000 instants (fixed seed;
// 1970 to 2099, whole seconds), each formatted 100 times an iteration, in UTC.
// Calendar-time values are heap objects of some hundred bytes; 1,000 of them
// stay in the cache, as the values a program formats at one time would:
//
//  - Iso: Format of the Ombrin pattern "yyyy-MM-dd HH:mm:ss" on the value of
//    each instant (built before timing: a value keeps its fields computed);
//    glibc gmtime_r, then strftime of "%Y-%m-%d %H:%M:%S".
//  - LongDate: Format of the locale's long default date format (en_US);
//    glibc gmtime_r, then strftime of "%A, %B %d, %Y" in the C locale.
//  - Build: a formatter built from the text "yyyy-MM-dd HH:mm:ss" (reading the
//    text into a pattern, then the formatter); no peer: the goal is a time.
//
// Before timing, the Iso text of the first 1,000 instants is checked against
// strftime's.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <ctime>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "ratio_reporter.h"

namespace {

using namespace FmtLib;
using namespace TimeLib;

constexpr std::size_t kValues = 1000;
constexpr int kPasses = 100;
constexpr std::int64_t kEnd = 4102444800;  // 2100-01-01 00:00:00 UTC, in seconds

const std::vector<std::time_t>& Instants() {
    static const auto values = [] {
        std::mt19937_64 rng(20261124);
        std::uniform_int_distribution<std::int64_t> draw(0, kEnd - 1);
        std::vector<std::time_t> out;
        for (std::size_t i = 0; i < kValues; ++i) out.push_back(draw(rng));
        return out;
    }();
    return values;
}

luPhysicalTime At(std::time_t seconds) {
    return luPhysicalTime::Epoch + luDuration::Second * static_cast<double>(seconds);
}

ilu_ptr<luSettings> Settings(const char* name) {
    ilu_ptr<luPreferences> preferences;
    ilu_ptr<luSettings> settings;
    CreatePreferences(preferences);
    preferences->EndBuild();
    CreateSettings(lu_locale(name), preferences, settings);
    return settings;
}

ucs2string Text(const char* ascii) {
    return ucs2string(reinterpret_cast<const unsigned char*>(ascii));
}

std::unique_ptr<luDateFormat> FromText(ilu_ptr<luSettings>& settings, const char* text) {
    std::unique_ptr<luStringFormatDate> reader(CreateStringFormatDate("en", "US"));
    luFmtPattern* pattern = nullptr;
    reader->ToPattern(Text(text), pattern);
    std::unique_ptr<luFmtPattern> owned(pattern);
    luDateFormat* format = nullptr;
    CreateDateFormat(settings, owned.get(), format);
    return std::unique_ptr<luDateFormat>(format);
}

constexpr char kIso[] = "yyyy-MM-dd HH:mm:ss";

bool IsoAgreesWithStrftime(luDateFormat& format) {
    luCalendarTime t(luTimeZone::utc());
    for (std::size_t i = 0; i < kValues; ++i) {
        const std::time_t s = Instants()[i];
        format.Format(t.reset(At(s)));
        std::tm tm;
        gmtime_r(&s, &tm);
        char text[64];
        std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &tm);
        if (ucs2string(format.c_str()) != Text(text)) return false;
    }
    return true;
}

// The values, built once: a calendar-time value holds its fields computed
// between operations, as gmtime_r's result holds them for strftime.
const std::vector<luCalendarTime>& Values() {
    static const auto values = [] {
        std::vector<luCalendarTime> out;
        out.reserve(kValues);
        for (std::time_t s : Instants()) out.emplace_back(At(s), luTimeZone::utc());
        return out;
    }();
    return values;
}

void RunOurs(benchmark::State& state, luDateFormat& format) {
    const std::vector<luCalendarTime>& values = Values();
    for (auto _ : state) {
        long sum = 0;
        for (int pass = 0; pass < kPasses; ++pass) {
            for (const luCalendarTime& t : values) {
                format.Format(t);
                sum += format.c_str()[0];
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues * kPasses));
}

void RunGlibc(benchmark::State& state, const char* pattern) {
    for (auto _ : state) {
        long sum = 0;
        for (int pass = 0; pass < kPasses; ++pass) {
            for (std::time_t s : Instants()) {
                std::tm tm;
                gmtime_r(&s, &tm);
                char text[128];
                sum += static_cast<long>(std::strftime(text, sizeof text, pattern, &tm)) + text[0];
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues * kPasses));
}

void IsoOurs(benchmark::State& state) {
    ilu_ptr<luSettings> settings = Settings("en_US");
    std::unique_ptr<luDateFormat> format = FromText(settings, kIso);
    if (!format || !IsoAgreesWithStrftime(*format))
        return state.SkipWithError("the text differs from strftime");
    RunOurs(state, *format);
}

void IsoGlibc(benchmark::State& state) {
    RunGlibc(state, "%Y-%m-%d %H:%M:%S");
}

void LongDateOurs(benchmark::State& state) {
    ilu_ptr<luSettings> settings = Settings("en_US");
    luDateFormat* format = nullptr;
    if (CreateDefaultDateFormat(settings, LONG_DATE, format) < 0)
        return state.SkipWithError("no long date format");
    std::unique_ptr<luDateFormat> owned(format);
    RunOurs(state, *owned);
}

void LongDateGlibc(benchmark::State& state) {
    RunGlibc(state, "%A, %B %d, %Y");
}

void Build(benchmark::State& state) {
    ilu_ptr<luSettings> settings = Settings("en_US");
    for (auto _ : state) benchmark::DoNotOptimize(FromText(settings, kIso));
}

}  // namespace

BENCHMARK(IsoOurs)->Name("Iso/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(IsoGlibc)->Name("Iso/glibc")->Unit(benchmark::kMicrosecond);
BENCHMARK(LongDateOurs)->Name("LongDate/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(LongDateGlibc)->Name("LongDate/glibc")->Unit(benchmark::kMicrosecond);
BENCHMARK(Build)->Name("BuildFromText")->Unit(benchmark::kNanosecond);

int main(int argc, char** argv) {
    return RunBenchmarksWithRatios(argc, argv);
}

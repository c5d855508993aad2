// The date-time value against glibc on the same 1,000,000 moments: the round
// trip from a broken-down date and time to the serial value and back (ours:
// Set, then Ymd and Hmsms; glibc: timegm, then gmtime_r), and printing by
// "%Y-%m-%d %H:%M:%S" (ours: Print into a formatter in the classic locale;
// glibc: strftime into a char buffer).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <ctime>
#include <random>
#include <vector>

#include "kai18n/datetime/lu_date_time.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string.h"
#include "kai18n/strings/ucs2string_formatter.h"
#include "ratio_reporter.h"

namespace {

constexpr std::size_t kValues = 1000000;
constexpr char kFormat[] = "%Y-%m-%d %H:%M:%S";

struct Moment {
    int year, month, day, hour, minute, second, millisecond;
};

int DaysInGregorianMonth(int year, int month) {
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

// Moments from 1970 to 2099, every field drawn uniformly within its range, by
// a fixed seed.
const std::vector<Moment>& Moments() {
    static const auto values = [] {
        std::mt19937 rng(20261124);
        auto draw = [&rng](int low, int high) {
            return std::uniform_int_distribution<int>(low, high)(rng);
        };
        std::vector<Moment> out;
        out.reserve(kValues);
        for (std::size_t i = 0; i < kValues; ++i) {
            Moment m;
            m.year = draw(1970, 2099);
            m.month = draw(1, 12);
            m.day = draw(1, DaysInGregorianMonth(m.year, m.month));
            m.hour = draw(0, 23);
            m.minute = draw(0, 59);
            m.second = draw(0, 59);
            m.millisecond = draw(0, 999);
            out.push_back(m);
        }
        return out;
    }();
    return values;
}

std::tm ToTm(const Moment& m) {
    std::tm time{};
    time.tm_year = m.year - 1900;
    time.tm_mon = m.month - 1;
    time.tm_mday = m.day;
    time.tm_hour = m.hour;
    time.tm_min = m.minute;
    time.tm_sec = m.second;
    return time;
}

const std::vector<lu_date_time>& Values() {
    static const auto values = [] {
        std::vector<lu_date_time> out;
        out.reserve(kValues);
        for (const Moment& m : Moments())
            out.emplace_back(m.year, m.month, m.day, m.hour, m.minute, m.second, m.millisecond);
        return out;
    }();
    return values;
}

// The broken-down times as gmtime_r gives them, weekday and day of the year
// included.
const std::vector<std::tm>& Tms() {
    static const auto values = [] {
        std::vector<std::tm> out;
        out.reserve(kValues);
        for (const Moment& m : Moments()) {
            std::tm time = ToTm(m);
            const std::time_t seconds = timegm(&time);
            gmtime_r(&seconds, &time);
            out.push_back(time);
        }
        return out;
    }();
    return values;
}

bool Same(const Moment& a, const Moment& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour &&
           a.minute == b.minute && a.second == b.second && a.millisecond == b.millisecond;
}

void RoundTripOurs(benchmark::State& state) {
    for (const Moment& m : Moments()) {
        lu_date_time value;
        Moment back;
        value.Set(m.year, m.month, m.day, m.hour, m.minute, m.second, m.millisecond);
        value.Ymd(back.year, back.month, back.day);
        value.Hmsms(back.hour, back.minute, back.second, back.millisecond);
        if (!Same(m, back)) {
            state.SkipWithError("the round trip changed a moment");
            return;
        }
    }
    lu_date_time value;
    for (auto _ : state) {
        long sum = 0;
        for (const Moment& m : Moments()) {
            int year, month, day, hour, minute, second, millisecond;
            value.Set(m.year, m.month, m.day, m.hour, m.minute, m.second, m.millisecond);
            value.Ymd(year, month, day);
            value.Hmsms(hour, minute, second, millisecond);
            sum += year + month + day + hour + minute + second + millisecond;
            benchmark::DoNotOptimize(sum);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void RoundTripGlibc(benchmark::State& state) {
    Moments();
    for (auto _ : state) {
        long sum = 0;
        for (const Moment& m : Moments()) {
            std::tm time = ToTm(m);
            const std::time_t seconds = timegm(&time);
            std::tm back;
            gmtime_r(&seconds, &back);
            sum += back.tm_year + 1900 + back.tm_mon + 1 + back.tm_mday + back.tm_hour +
                   back.tm_min + back.tm_sec + m.millisecond;
            benchmark::DoNotOptimize(sum);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void PrintOurs(benchmark::State& state) {
    const ucs2string format(reinterpret_cast<const unsigned char*>(kFormat));
    const lu_locale& classic = lu_locale::classic();
    ucs2string_formatter out;
    // Our text must be glibc's, unit for byte.
    char buffer[64];
    for (std::size_t i = 0; i < 1000; ++i) {
        out.clear();
        Values()[i].Print(out, format.c_str(), classic);
        const std::size_t bytes = std::strftime(buffer, sizeof buffer, kFormat, &Tms()[i]);
        bool same = out.length() == bytes;
        for (std::size_t k = 0; same && k < bytes; ++k)
            same = out[static_cast<unsigned int>(k)] == static_cast<unsigned char>(buffer[k]);
        if (!same) {
            state.SkipWithError("Print differs from strftime");
            return;
        }
    }
    for (auto _ : state) {
        std::size_t units = 0;
        for (const lu_date_time& value : Values()) {
            out.clear();
            value.Print(out, format.c_str(), classic);
            units += out.length() + out[3];
        }
        benchmark::DoNotOptimize(units);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void PrintGlibc(benchmark::State& state) {
    char buffer[64];
    Tms();
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (const std::tm& time : Tms())
            bytes += std::strftime(buffer, sizeof buffer, kFormat, &time) +
                     static_cast<unsigned char>(buffer[3]);
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

}  // namespace

BENCHMARK(RoundTripOurs)->Name("RoundTrip/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(RoundTripGlibc)->Name("RoundTrip/glibc")->Unit(benchmark::kMicrosecond);
BENCHMARK(PrintOurs)->Name("Print/kai18n")->Unit(benchmark::kMicrosecond);
BENCHMARK(PrintGlibc)->Name("Print/glibc")->Unit(benchmark::kMicrosecond);

int main(int argc, char** argv) {
    return RunBenchmarksWithRatios(argc, argv);
}

// The number formatter against ICU's LocalizedNumberFormatter on the same
// 10,000 doubles (and longs), with snprintf and std::to_chars as the floor of
// what formatting without grouping or a locale costs; and the cost of
// building a formatter against building ICU's.
#include <benchmark/benchmark.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/unistr.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/locale/lu_locale.h"
#include "ratio_reporter.h"

using namespace FmtLib;

namespace {

constexpr std::size_t kValues = 10000;

// Values from 1e-3 to 1e9 in magnitude, of both signs, so that grouping,
// rounding and the sign all take part.
const std::vector<double>& Doubles() {
    static const auto values = [] {
        std::mt19937_64 rng(7);
        std::uniform_real_distribution<double> exponent(-3.0, 9.0);
        std::vector<double> out;
        for (std::size_t i = 0; i < kValues; ++i) {
            const double magnitude = std::pow(10.0, exponent(rng));
            out.push_back(i % 4 == 0 ? -magnitude : magnitude);
        }
        return out;
    }();
    return values;
}

const std::vector<long>& Longs() {
    static const auto values = [] {
        std::vector<long> out;
        for (double d : Doubles()) out.push_back(static_cast<long>(d * 1000));
        return out;
    }();
    return values;
}

ucs2string Text(const char* utf8) {
    return ucs2string(reinterpret_cast<const unsigned char*>(utf8));
}

// Everything a caller does to get a formatter: a locale from the catalog
// (cached after the first look-up), preferences, settings, the Ombrin text
// read into a pattern, and the pattern compiled.
std::unique_ptr<luNumberFormat> BuildOurs(const char* locale, const char* text) {
    const lu_locale loc(locale);
    ilu_ptr<luPreferences> preferences;
    CreatePreferences(preferences);
    preferences->EndBuild();
    ilu_ptr<luSettings> settings;
    CreateSettings(loc, preferences, settings);
    std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("en", nullptr));
    luFmtPattern* pattern = nullptr;
    ombrin->ToPattern(Text(text), pattern);
    std::unique_ptr<luFmtPattern> owned(pattern);
    luNumberFormat* format = nullptr;
    CreateNumberFormat(settings, pattern, format);
    return std::unique_ptr<luNumberFormat>(format);
}

// ICU's equivalents: two fraction digits with grouping; or scientific with
// a signed exponent of at least two digits, as "0.00E+00" writes it.
icu::number::LocalizedNumberFormatter BuildIcu(const char* locale, bool scientific) {
    using namespace icu::number;
    auto settings = NumberFormatter::with().precision(Precision::fixedFraction(2));
    if (scientific)
        settings = settings.notation(
            Notation::scientific().withMinExponentDigits(2).withExponentSignDisplay(
                UNUM_SIGN_ALWAYS));
    return settings.locale(icu::Locale(locale));
}

void FormatDoublesOurs(benchmark::State& state, const char* locale, const char* text) {
    auto format = BuildOurs(locale, text);
    for (auto _ : state) {
        std::size_t units = 0;
        for (double value : Doubles()) {
            format->Format(value);
            units += format->c_str()[0];
        }
        benchmark::DoNotOptimize(units);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void FormatDoublesIcu(benchmark::State& state, const char* locale, bool scientific) {
    const auto formatter = BuildIcu(locale, scientific);
    UErrorCode status = U_ZERO_ERROR;
    for (auto _ : state) {
        std::size_t units = 0;
        for (double value : Doubles()) {
            const icu::UnicodeString text = formatter.formatDouble(value, status).toString(status);
            units += text.length();
        }
        benchmark::DoNotOptimize(units);
    }
    if (U_FAILURE(status)) state.SkipWithError("ICU failed");
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void FormatDoublesPrintf(benchmark::State& state, const char* conversion) {
    char buffer[64];
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (double value : Doubles())
            bytes +=
                static_cast<std::size_t>(std::snprintf(buffer, sizeof buffer, conversion, value));
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void FormatLongsOurs(benchmark::State& state, const char* locale) {
    auto format = BuildOurs(locale, "#,##0");
    for (auto _ : state) {
        std::size_t units = 0;
        for (long value : Longs()) {
            format->Format(value);
            units += format->c_str()[0];
        }
        benchmark::DoNotOptimize(units);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

void FormatLongsIcu(benchmark::State& state, const char* locale) {
    const auto formatter = icu::number::NumberFormatter::withLocale(icu::Locale(locale));
    UErrorCode status = U_ZERO_ERROR;
    for (auto _ : state) {
        std::size_t units = 0;
        for (long value : Longs()) {
            const icu::UnicodeString text = formatter.formatInt(value, status).toString(status);
            units += text.length();
        }
        benchmark::DoNotOptimize(units);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

// std::to_chars, then a separator every three digits: grouping with no
// locale at all.
void FormatLongsToChars(benchmark::State& state) {
    char digits[32];
    char grouped[48];
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (long value : Longs()) {
            char* end = std::to_chars(digits, digits + sizeof digits, value).ptr;
            const char* first = digits + (digits[0] == '-' ? 1 : 0);
            char* out = grouped;
            if (first != digits) *out++ = '-';
            const long count = end - first;
            for (long i = 0; i < count; ++i) {
                if (i != 0 && (count - i) % 3 == 0) *out++ = ',';
                *out++ = first[i];
            }
            bytes += static_cast<std::size_t>(out - grouped);
        }
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kValues));
}

// Building a formatter from what a caller keeps (settings and a parsed
// pattern) and formatting its first value; ICU's formatter is built from its
// settings and compiles on use, so its first value is included alike.
void BuildOursBench(benchmark::State& state, const char* locale) {
    const lu_locale loc(locale);
    ilu_ptr<luPreferences> preferences;
    CreatePreferences(preferences);
    preferences->EndBuild();
    ilu_ptr<luSettings> settings;
    CreateSettings(loc, preferences, settings);
    std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("en", nullptr));
    luFmtPattern* pattern = nullptr;
    ombrin->ToPattern(Text("#,##0.00"), pattern);
    std::unique_ptr<luFmtPattern> owned(pattern);
    for (auto _ : state) {
        luNumberFormat* format = nullptr;
        CreateNumberFormat(settings, pattern, format);
        format->Format(1234.5);
        benchmark::DoNotOptimize(format->c_str()[0]);
        delete format;
    }
}

void BuildIcuBench(benchmark::State& state, const char* locale) {
    UErrorCode status = U_ZERO_ERROR;
    for (auto _ : state) {
        const auto formatter = BuildIcu(locale, false);
        benchmark::DoNotOptimize(formatter.formatDouble(1234.5, status).toString(status).length());
    }
}

// The whole road from a locale name and a format text: the locale from the
// catalog, preferences, settings, the text read and compiled, a first value.
// ICU's nearest equivalent reads a skeleton text.
void BuildFromTextOurs(benchmark::State& state, const char* locale) {
    for (auto _ : state) {
        auto format = BuildOurs(locale, "#,##0.00");
        format->Format(1234.5);
        benchmark::DoNotOptimize(format->c_str()[0]);
    }
}

void BuildFromTextIcu(benchmark::State& state, const char* locale) {
    UErrorCode status = U_ZERO_ERROR;
    for (auto _ : state) {
        const auto formatter = icu::number::NumberFormatter::forSkeleton(u".00 group-auto", status)
                                   .locale(icu::Locale(locale));
        benchmark::DoNotOptimize(formatter.formatDouble(1234.5, status).toString(status).length());
    }
    if (U_FAILURE(status)) state.SkipWithError("ICU failed");
}

}  // namespace

BENCHMARK_CAPTURE(FormatDoublesOurs, en_fixed, "en_US", "#,##0.00")
    ->Name("FormatDouble/en_US/#,##0.00/kai18n");
BENCHMARK_CAPTURE(FormatDoublesIcu, en_fixed, "en_US", false)
    ->Name("FormatDouble/en_US/#,##0.00/icu");
BENCHMARK_CAPTURE(FormatDoublesPrintf, en_fixed, "%.2f")
    ->Name("FormatDouble/en_US/#,##0.00/snprintf");
BENCHMARK_CAPTURE(FormatDoublesOurs, de_fixed, "de_DE", "#,##0.00")
    ->Name("FormatDouble/de_DE/#,##0.00/kai18n");
BENCHMARK_CAPTURE(FormatDoublesIcu, de_fixed, "de_DE", false)
    ->Name("FormatDouble/de_DE/#,##0.00/icu");
BENCHMARK_CAPTURE(FormatDoublesOurs, en_sci, "en_US", "0.00E+00")
    ->Name("FormatDouble/en_US/0.00E+00/kai18n");
BENCHMARK_CAPTURE(FormatDoublesIcu, en_sci, "en_US", true)->Name("FormatDouble/en_US/0.00E+00/icu");
BENCHMARK_CAPTURE(FormatDoublesPrintf, en_sci, "%.2E")
    ->Name("FormatDouble/en_US/0.00E+00/snprintf");
BENCHMARK_CAPTURE(FormatDoublesOurs, de_sci, "de_DE", "0.00E+00")
    ->Name("FormatDouble/de_DE/0.00E+00/kai18n");
BENCHMARK_CAPTURE(FormatDoublesIcu, de_sci, "de_DE", true)->Name("FormatDouble/de_DE/0.00E+00/icu");
BENCHMARK_CAPTURE(FormatLongsOurs, en, "en_US")->Name("FormatLong/en_US/#,##0/kai18n");
BENCHMARK_CAPTURE(FormatLongsIcu, en, "en_US")->Name("FormatLong/en_US/#,##0/icu");
BENCHMARK(FormatLongsToChars)->Name("FormatLong/en_US/#,##0/to_chars");
BENCHMARK_CAPTURE(FormatLongsOurs, de, "de_DE")->Name("FormatLong/de_DE/#,##0/kai18n");
BENCHMARK_CAPTURE(FormatLongsIcu, de, "de_DE")->Name("FormatLong/de_DE/#,##0/icu");
BENCHMARK_CAPTURE(BuildOursBench, en, "en_US")->Name("BuildFormatter/en_US/kai18n");
BENCHMARK_CAPTURE(BuildIcuBench, en, "en_US")->Name("BuildFormatter/en_US/icu");
BENCHMARK_CAPTURE(BuildOursBench, de, "de_DE")->Name("BuildFormatter/de_DE/kai18n");
BENCHMARK_CAPTURE(BuildIcuBench, de, "de_DE")->Name("BuildFormatter/de_DE/icu");
BENCHMARK_CAPTURE(BuildFromTextOurs, en, "en_US")->Name("BuildFromText/en_US/kai18n");
BENCHMARK_CAPTURE(BuildFromTextIcu, en, "en_US")->Name("BuildFromText/en_US/icu");

int main(int argc, char** argv) {
    return RunBenchmarksWithRatios(argc, argv);
}

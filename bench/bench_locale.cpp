// Locale handles: making a locale by name through the catalog against ICU
// making a locale and its decimal format symbols; copying a handle against
// copying an icu::Locale; and, with no peer, the first load of the locale data
// module (the ratio table leaves unpaired benchmarks out; the console table
// above it shows them).
#include <benchmark/benchmark.h>
#include <unicode/dcfmtsym.h>
#include <unicode/locid.h>
#include <unicode/utypes.h>

#include "kai18n/locale/lu_locale.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "ratio_reporter.h"

namespace {

// --- by name -------------------------------------------------------------------

// A catalog query by name each time, then the shared body of the locale.
void LocaleByNameKai18n(benchmark::State& state) {
    for (auto _ : state) {
        lu_locale loc("de_DE");
        benchmark::DoNotOptimize(loc._M_get_impl());
    }
}

// ICU resolves the locale id; the symbols bring in its number data, which
// the kai18n locale carries in its numeric punctuation facet.
void LocaleByNameIcu(benchmark::State& state) {
    for (auto _ : state) {
        icu::Locale loc("de_DE");
        UErrorCode status = U_ZERO_ERROR;
        icu::DecimalFormatSymbols symbols(loc, status);
        if (U_FAILURE(status)) {
            state.SkipWithError("DecimalFormatSymbols failed");
            break;
        }
        benchmark::DoNotOptimize(&symbols);
    }
}

// --- copy --------------------------------------------------------------------

void LocaleCopyKai18n(benchmark::State& state) {
    const lu_locale loc("de_DE");
    for (auto _ : state) {
        lu_locale copy(loc);
        benchmark::DoNotOptimize(copy._M_get_impl());
    }
}

void LocaleCopyIcu(benchmark::State& state) {
    const icu::Locale loc("de_DE");
    for (auto _ : state) {
        icu::Locale copy(loc);
        benchmark::DoNotOptimize(&copy);
    }
}

// --- module load -------------------------------------------------------------

// Unloads the data module with the catalog, then loads it and queries again.
// The handle dies inside the iteration, before the next unload.
void ModuleLoadKai18n(benchmark::State& state) {
    for (auto _ : state) {
        lu_locale_catalog::ClearInstance();
        lu_locale loc("de_DE");
        benchmark::DoNotOptimize(loc._M_get_impl());
    }
}

void RegisterAll() {
    benchmark::RegisterBenchmark("LocaleByName/kai18n", LocaleByNameKai18n);
    benchmark::RegisterBenchmark("LocaleByName/icu", LocaleByNameIcu);
    benchmark::RegisterBenchmark("LocaleCopy/kai18n", LocaleCopyKai18n);
    benchmark::RegisterBenchmark("LocaleCopy/icu", LocaleCopyIcu);
    benchmark::RegisterBenchmark("ModuleLoad/kai18n", ModuleLoadKai18n);
}

}  // namespace

int main(int argc, char** argv) {
    RegisterAll();
    return RunBenchmarksWithRatios(argc, argv);
}

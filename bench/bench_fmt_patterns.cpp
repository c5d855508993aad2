// Format patterns, with no peer: reading typical format texts into patterns
// (ToPattern) and writing patterns back (FromPattern) in the spreadsheet-style
// Ombrin dialect and in the canonical notation; the start-up of the dialect
// tables; and the Velora date definitions, cached and built. The figures are
// absolute times (the ratio table at the end stays empty); they are the
// baseline that later changes of the format library must not exceed.
#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kai18n/fmtlib/lu_fmt_dialects.h"
#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/strings/ucs2string.h"
#include "ratio_reporter.h"

using namespace FmtLib;

namespace {

struct Sample {
    const char* name;
    const char* text;  // UTF-8
};

const Sample kNumberTexts[] = {
    {"grouped", "#,##0.00"},    {"red_negative", "[Red]-#,##0.00;(#,##0.00)"},
    {"percent", "0.00%"},       {"currency", "#,##0.00 \"\xE2\x82\xAC\""},
    {"scientific", "0.00E+00"}, {"three_sections", "#,##0;[Red](#,##0);\"zero\""},
};

const Sample kDateTexts[] = {
    {"date_time", "dd/MM/yyyy HH:mm:ss"},
    {"long_date", "dddd, MMMM d, yyyy"},
    {"short_date_time", "dd/MM/yyyy HH:mm"},
    {"time_12h", "h:mm:ss a"},
};

const Sample kVeloraDateTexts[] = {
    {"date_time", "dd/mm/yyyy hh:mm:ss"},
};

ucs2string FromUtf8(const char* text) {
    return ucs2string(reinterpret_cast<const unsigned char*>(text));
}

enum Dialect { kOmbrin, kSerial, kVelora };

// A string format of the kind and dialect. The formats are made in each
// benchmark, never kept in statics: they point into the dialect tables, which
// the start-up benchmarks take down and build anew.
std::unique_ptr<luStringFormat> MakeFormat(bool isDate, Dialect dialect) {
    switch (dialect) {
        case kOmbrin:
            if (isDate) return std::unique_ptr<luStringFormat>(CreateStringFormatDate("en", "US"));
            return std::unique_ptr<luStringFormat>(CreateStringFormatNumber("en", "US"));
        case kSerial:
            if (isDate) return std::unique_ptr<luStringFormat>(CreateSerialStringFormatDate());
            return std::unique_ptr<luStringFormat>(CreateSerialStringFormatNumber());
        default:
            if (isDate)
                return std::unique_ptr<luStringFormat>(
                    CreateVeloraStringFormatDate("EN", "en", "US"));
            return std::unique_ptr<luStringFormat>(
                CreateVeloraStringFormatNumber("EN", "en", "US", false));
    }
}

std::unique_ptr<luFmtPattern> Parse(luStringFormat& format, const ucs2string& text) {
    luFmtPattern* pattern = nullptr;
    format.ToPattern(text, pattern);
    return std::unique_ptr<luFmtPattern>(pattern);
}

// The text of the sample in the dialect: as written for Ombrin and Velora,
// and for the canonical notation what the Serial format prints of the Ombrin
// pattern.
ucs2string SampleText(const Sample& sample, bool isDate, Dialect dialect) {
    if (dialect != kSerial) return FromUtf8(sample.text);
    const auto ombrin = MakeFormat(isDate, kOmbrin);
    const auto serial = MakeFormat(isDate, kSerial);
    const auto pattern = Parse(*ombrin, FromUtf8(sample.text));
    ucs2string canonical;
    serial->FromPattern(*pattern, canonical);
    return canonical;
}

// ToPattern of one text; each call deletes the pattern of the call before,
// as a caller that reuses its pointer does.
void ToPatternBench(benchmark::State& state, Sample sample, bool isDate, Dialect dialect) {
    const auto format = MakeFormat(isDate, dialect);
    const ucs2string text = SampleText(sample, isDate, dialect);
    luFmtPattern* pattern = nullptr;
    for (auto _ : state) {
        format->ToPattern(text, pattern);
        benchmark::DoNotOptimize(pattern);
    }
    delete pattern;
    state.SetLabel(std::to_string(text.length()) + " units");
}

// FromPattern of the pattern of one text into a new string.
void FromPatternBench(benchmark::State& state, Sample sample, bool isDate, Dialect dialect) {
    const auto format = MakeFormat(isDate, dialect);
    const auto pattern = Parse(*format, SampleText(sample, isDate, dialect));
    for (auto _ : state) {
        ucs2string text;
        format->FromPattern(*pattern, text);
        benchmark::DoNotOptimize(text.data());
    }
    state.SetLabel(std::to_string(pattern->size()) + " tokens");
}

// --- start-up of the dialect tables ------------------------------------------

// FmtLibInitExit counts its instances: the first builds every dialect table,
// the last takes them all down. The library's own file-static guards keep the
// count above 0 for the whole run, so a guard made here would only count. To
// measure the start-up, the count is brought to 0 through one guard of our
// own (setting it to 1 and destroying that guard takes the tables down); then
// each iteration's guard builds everything from nothing and takes it down
// again. Afterwards a guard builds the tables once more and the count is set
// so that, when that guard goes, it is back to what the library's guards
// hold. No string format may be alive meanwhile: they point into the tables.
class TablesDown {
  public:
    TablesDown() : m_held(FmtLibInitExit::count) {
        std::optional<FmtLibInitExit> last;
        last.emplace();
        FmtLibInitExit::count = 1;
        last.reset();  // 1 -> 0: the tables go
    }
    ~TablesDown() {
        FmtLibInitExit rebuild;              // 0 -> 1: the tables come back
        FmtLibInitExit::count = m_held + 1;  // rebuild's end leaves m_held
    }
    TablesDown(const TablesDown&) = delete;
    TablesDown& operator=(const TablesDown&) = delete;

  private:
    const int m_held;
};

// Builds and takes down every table: Ombrin, Serial, the Velora key maps and
// number tables, the colour names of seventeen languages.
void StartUpBench(benchmark::State& state) {
    const TablesDown down;
    for (auto _ : state) {
        FmtLibInitExit guard;
        benchmark::DoNotOptimize(GetSerialDateTokensDefinition());
    }
}

// The Velora date definition of a triple on first request: the tables are
// built (untimed) each iteration with an empty cache, then the request builds
// the definition (timed), then the tables go (untimed).
void VeloraDateFirstBuildBench(benchmark::State& state) {
    const TablesDown down;
    for (auto _ : state) {
        state.PauseTiming();
        {
            std::optional<FmtLibInitExit> guard;
            guard.emplace();
            state.ResumeTiming();
            benchmark::DoNotOptimize(GetVeloraDateTokensDefinition("FR", "fr", "FR"));
            state.PauseTiming();
            guard.reset();
        }
        state.ResumeTiming();
    }
}

// The same request once the definition is cached: key resolution, the cache
// lock and a look-up.
void VeloraDateCachedBench(benchmark::State& state) {
    benchmark::DoNotOptimize(GetVeloraDateTokensDefinition("FR", "fr", "FR"));
    for (auto _ : state) benchmark::DoNotOptimize(GetVeloraDateTokensDefinition("FR", "fr", "FR"));
}

// A string format as a caller makes one: the definitions' look-up and the
// format's own locale and colour names.
void CreateFormatBench(benchmark::State& state, bool isDate, Dialect dialect) {
    for (auto _ : state) {
        const auto format = MakeFormat(isDate, dialect);
        benchmark::DoNotOptimize(format.get());
    }
}

void RegisterTexts(const char* kind, const Sample* samples, std::size_t count, bool isDate,
                   Dialect dialect) {
    const std::string dialectName = dialect == kOmbrin   ? "ombrin"
                                    : dialect == kSerial ? "serial"
                                                         : "velora";
    for (std::size_t i = 0; i < count; ++i) {
        const std::string stem = dialectName + "_" + kind + "/" + samples[i].name;
        benchmark::RegisterBenchmark(("ToPattern/" + stem).c_str(), ToPatternBench, samples[i],
                                     isDate, dialect);
        benchmark::RegisterBenchmark(("FromPattern/" + stem).c_str(), FromPatternBench, samples[i],
                                     isDate, dialect);
    }
}

void RegisterAll() {
    const std::size_t numbers = sizeof(kNumberTexts) / sizeof(kNumberTexts[0]);
    const std::size_t dates = sizeof(kDateTexts) / sizeof(kDateTexts[0]);
    RegisterTexts("number", kNumberTexts, numbers, false, kOmbrin);
    RegisterTexts("number", kNumberTexts, numbers, false, kSerial);
    RegisterTexts("date", kDateTexts, dates, true, kOmbrin);
    RegisterTexts("date", kDateTexts, dates, true, kSerial);
    RegisterTexts("date", kVeloraDateTexts, 1, true, kVelora);

    benchmark::RegisterBenchmark("CreateFormat/ombrin_number", CreateFormatBench, false, kOmbrin);
    benchmark::RegisterBenchmark("CreateFormat/serial_date", CreateFormatBench, true, kSerial);
    benchmark::RegisterBenchmark("StartUp/dialect_tables", StartUpBench)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("VeloraDateDefinition/first_build", VeloraDateFirstBuildBench)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("VeloraDateDefinition/cached", VeloraDateCachedBench);
}

}  // namespace

int main(int argc, char** argv) {
    RegisterAll();
    return RunBenchmarksWithRatios(argc, argv);
}

// Number and date input against their peers on the same 100,000 texts each,
// built before timing (fixed seeds) and kept in one contiguous block per
// side, as a form's fields would arrive one after the other:
//
//  - Number: luInputNumber::Scan on settings of the classic locale ('.' as
//    decimal point, 'e' as exponent letter) against strtod in the C locale;
//    and on settings of en_US (the same signs) against ICU's
//    icu::DecimalFormat::parse (en_US) into a Formattable, on UnicodeString
//    texts made before timing. The texts mix integers of 1 to 10 digits,
//    decimals of 2 to 15 significant digits and numbers with an exponent such
//    as 1.25e-7 (1 to 15 significant digits, exponents -8 to 8); a quarter
//    are negative. The digits of each fit a double exactly and its power of
//    ten is at most 1e22, exact too, so one rounding gives the value: every
//    side must agree to the last bit.
//  - Date: luInputDate::Scan by the pattern "dd.MM.yyyy HH:mm" (canonical
//    T[0d]L[.]T[0M]L[.]T[y4]L[ ]T[023]L[:]T[0m]) into one calendar-time value
//    on the UTC zone, reused, and a read of its instant; against glibc
//    strptime of "%d.%m.%Y %H:%M" into a cleared struct tm, then timegm. The
//    dates are uniform from 1900 to 2100, every field within its range, but
//    for 31 December of leap years (see DateTexts).
//
// Before the first timing of each side, every text is read once and the
// program stops with a message unless ours gives the value of strtod (the
// instant of timegm, for dates) and reads the whole text, and unless ICU
// reads each text whole to the value strtod gives.
//
// ICU's headers and those of our calendar engine each declare a UErrorCode,
// so they cannot meet in one translation unit: this file is compiled twice
// into the program, once for our side, strtod and glibc, and once with
// KAI18N_BENCH_ICU_SIDE for ICU's side alone. Both build the number texts
// with the same code from the same seed.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#ifdef KAI18N_BENCH_ICU_SIDE
#include <unicode/decimfmt.h>
#include <unicode/fmtable.h>
#include <unicode/locid.h>
#include <unicode/numfmt.h>
#include <unicode/parsepos.h>
#include <unicode/unistr.h>
#else
#include <ctime>
#include <set>

#include "kai18n/fmtlib/lu_input_date.h"
#include "kai18n/fmtlib/lu_input_number.h"
#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "ratio_reporter.h"
#endif

namespace {

constexpr std::size_t kTexts = 100000;

// Texts of one kind in both widths: zero-terminated, one after the other in
// a single block each, with a pointer to the start of every one.
struct Texts {
    std::vector<char> narrowBlock;
    std::vector<unsigned short> wideBlock;
    std::vector<const char*> narrow;
    std::vector<const unsigned short*> wide;
    std::vector<int> lengths;

    explicit Texts(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            narrowBlock.insert(narrowBlock.end(), text.begin(), text.end());
            narrowBlock.push_back('\0');
            wideBlock.insert(wideBlock.end(), text.begin(), text.end());  // ASCII
            wideBlock.push_back(0);
            lengths.push_back(static_cast<int>(text.size()));
        }
        std::size_t offset = 0;
        for (int length : lengths) {
            narrow.push_back(narrowBlock.data() + offset);
            wide.push_back(wideBlock.data() + offset);
            offset += static_cast<std::size_t>(length) + 1;
        }
    }
};

[[noreturn]] void Fail(const char* what) {
    std::fprintf(stderr, "bench_input: %s\n", what);
    std::abort();
}

[[noreturn]] void Fail(const char* what, std::size_t index, const char* text) {
    std::fprintf(stderr, "bench_input: %s at text %zu, \"%s\"\n", what, index, text);
    std::abort();
}

[[noreturn]] void Fail(const char* what, std::size_t index, const char* text, double ours,
                       double peer) {
    std::fprintf(stderr, "bench_input: %s at text %zu, \"%s\": %.17g against %.17g\n", what, index,
                 text, ours, peer);
    std::abort();
}

// ---- number texts, on both sides

std::string Digits(std::mt19937_64& rng, int count) {
    std::uniform_int_distribution<int> first('1', '9');
    std::uniform_int_distribution<int> any('0', '9');
    std::string out(1, static_cast<char>(first(rng)));
    for (int i = 1; i < count; ++i) out += static_cast<char>(any(rng));
    return out;
}

const Texts& NumberTexts() {
    static const Texts texts = [] {
        std::mt19937_64 rng(20261124);
        std::uniform_int_distribution<int> kind(0, 9);
        std::uniform_int_distribution<int> quarter(0, 3);
        std::vector<std::string> out;
        for (std::size_t i = 0; i < kTexts; ++i) {
            std::string text = quarter(rng) == 0 ? "-" : "";
            const int k = kind(rng);
            if (k < 3) {
                // An integer of 1 to 10 digits.
                text += Digits(rng, std::uniform_int_distribution<int>(1, 10)(rng));
            } else if (k < 8) {
                // A decimal of 2 to 15 significant digits; below 1, up to
                // three zeros stand between the point and the first of them.
                const int count = std::uniform_int_distribution<int>(2, 15)(rng);
                const std::string digits = Digits(rng, count);
                const int whole =
                    std::uniform_int_distribution<int>(0, std::min(count - 1, 9))(rng);
                if (whole == 0)
                    text += "0." + std::string(std::uniform_int_distribution<int>(0, 3)(rng), '0') +
                            digits;
                else
                    text += digits.substr(0, whole) + "." + digits.substr(whole);
            } else {
                // d.ddd with 1 to 15 significant digits and an exponent from
                // -8 to 8, written e-7, e7 or e+7.
                const std::string digits =
                    Digits(rng, std::uniform_int_distribution<int>(1, 15)(rng));
                text += digits.substr(0, 1);
                if (digits.size() > 1) text += "." + digits.substr(1);
                const int exponent = std::uniform_int_distribution<int>(-8, 8)(rng);
                text += exponent < 0 ? "e-" : quarter(rng) < 2 ? "e+" : "e";
                text += std::to_string(exponent < 0 ? -exponent : exponent);
            }
            out.push_back(std::move(text));
        }
        return Texts(out);
    }();
    return texts;
}

// strtod's values, the reference of both checks.
const std::vector<double>& StrtodValues() {
    static const std::vector<double> values = [] {
        std::vector<double> out;
        for (const char* text : NumberTexts().narrow) out.push_back(std::strtod(text, nullptr));
        return out;
    }();
    return values;
}

}  // namespace

#ifdef KAI18N_BENCH_ICU_SIDE

namespace {

std::unique_ptr<icu::DecimalFormat> IcuFormat() {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(icu::Locale("en_US"), status));
    if (U_FAILURE(status) || dynamic_cast<icu::DecimalFormat*>(format.get()) == nullptr)
        Fail("no ICU DecimalFormat");
    return std::unique_ptr<icu::DecimalFormat>(static_cast<icu::DecimalFormat*>(format.release()));
}

const std::vector<icu::UnicodeString>& IcuTexts() {
    static const std::vector<icu::UnicodeString> texts = [] {
        std::vector<icu::UnicodeString> out;
        out.reserve(kTexts);
        for (const char* text : NumberTexts().narrow) out.emplace_back(text, -1, US_INV);
        return out;
    }();
    return texts;
}

void CheckIcuNumbers(const icu::DecimalFormat& format) {
    const Texts& texts = NumberTexts();
    icu::Formattable result;
    for (std::size_t i = 0; i < kTexts; ++i) {
        UErrorCode status = U_ZERO_ERROR;
        icu::ParsePosition position(0);
        format.parse(IcuTexts()[i], result, position);
        if (position.getIndex() != texts.lengths[i])
            Fail("ICU did not read the whole text", i, texts.narrow[i]);
        const double value = result.getDouble(status);
        if (value != StrtodValues()[i] || U_FAILURE(status))
            Fail("ICU differs from strtod", i, texts.narrow[i], value, StrtodValues()[i]);
    }
}

void NumberIcu(benchmark::State& state) {
    const std::unique_ptr<icu::DecimalFormat> format = IcuFormat();
    static const bool checked = (CheckIcuNumbers(*format), true);
    benchmark::DoNotOptimize(checked);
    const std::vector<icu::UnicodeString>& texts = IcuTexts();
    icu::Formattable result;
    for (auto _ : state) {
        for (const icu::UnicodeString& text : texts) {
            UErrorCode status = U_ZERO_ERROR;
            icu::ParsePosition position(0);
            format->parse(text, result, position);
            benchmark::DoNotOptimize(result.getDouble(status));
            benchmark::DoNotOptimize(position.getIndex());
        }
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kTexts));
}

}  // namespace

// Called by main, on the other side, so that it runs right after ours.
void RegisterIcuNumberScan() {
    benchmark::RegisterBenchmark("NumberScan/en_US/icu", NumberIcu)->Unit(benchmark::kMicrosecond);
}

#else

namespace {

using namespace FmtLib;
using namespace TimeLib;

ilu_ptr<luSettings> Settings(const char* name) {
    ilu_ptr<luPreferences> preferences;
    ilu_ptr<luSettings> settings;
    CreatePreferences(preferences);
    preferences->EndBuild();
    CreateSettings(lu_locale(name), preferences, settings);
    return settings;
}

// ---- numbers

std::unique_ptr<luInputNumber> OurNumberInput(const char* locale) {
    ilu_ptr<luSettings> settings = Settings(locale);
    luInputNumber* input = nullptr;
    if (CreateInputNumber(settings, input) != 0 || input == nullptr) Fail("no number input");
    return std::unique_ptr<luInputNumber>(input);
}

void CheckOurNumbers(luInputNumber& input) {
    const Texts& texts = NumberTexts();
    for (std::size_t i = 0; i < kTexts; ++i) {
        double value = 0;
        int position = 0;
        if (!input.Scan(texts.wide[i], value, position)) Fail("Scan failed", i, texts.narrow[i]);
        if (position != texts.lengths[i]) Fail("Scan stopped early", i, texts.narrow[i]);
        if (value != StrtodValues()[i])
            Fail("Scan differs from strtod", i, texts.narrow[i], value, StrtodValues()[i]);
    }
}

void NumberOurs(benchmark::State& state, const char* locale) {
    std::unique_ptr<luInputNumber> input = OurNumberInput(locale);
    static std::set<std::string> checked;  // the locales whose results were checked
    if (checked.insert(locale).second) CheckOurNumbers(*input);
    const std::vector<const unsigned short*>& texts = NumberTexts().wide;
    for (auto _ : state) {
        for (const unsigned short* text : texts) {
            double value = 0;
            int position = 0;
            input->Scan(text, value, position);
            benchmark::DoNotOptimize(value);
            benchmark::DoNotOptimize(position);
        }
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kTexts));
}

void NumberStrtod(benchmark::State& state) {
    const std::vector<const char*>& texts = NumberTexts().narrow;
    for (auto _ : state) {
        for (const char* text : texts) {
            char* end = nullptr;
            const double value = std::strtod(text, &end);
            benchmark::DoNotOptimize(value);
            benchmark::DoNotOptimize(end);
        }
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kTexts));
}

// ---- dates

constexpr char kDatePattern[] = "T[0d]L[.]T[0M]L[.]T[y4]L[ ]T[023]L[:]T[0m]";
constexpr char kStrptimeFormat[] = "%d.%m.%Y %H:%M";

bool IsLeap(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

const Texts& DateTexts() {
    static const Texts texts = [] {
        static const int kMonthDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        std::mt19937_64 rng(20261124);
        std::uniform_int_distribution<int> years(1900, 2100);
        std::uniform_int_distribution<int> months(1, 12);
        std::uniform_int_distribution<int> hours(0, 23);
        std::uniform_int_distribution<int> minutes(0, 59);
        std::vector<std::string> out;
        for (std::size_t i = 0; i < kTexts; ++i) {
            const int year = years(rng);
            const int month = months(rng);
            const int days = kMonthDays[month - 1] + (month == 2 && IsLeap(year) ? 1 : 0);
            const int day = std::uniform_int_distribution<int>(1, days)(rng);
            const int hour = hours(rng);
            const int minute = minutes(rng);
            // The value is reused, and the strict calendar validates every
            // field it holds: after the last day of a leap year its day of
            // the year, 366, makes it refuse any date of another year. Such
            // a text (about 1 in 1,500) is therefore left out.
            if (month == 12 && day == 31 && IsLeap(year)) {
                --i;
                continue;
            }
            char text[32];
            std::snprintf(text, sizeof text, "%02d.%02d.%04d %02d:%02d", day, month, year, hour,
                          minute);
            out.emplace_back(text);
        }
        return Texts(out);
    }();
    return texts;
}

std::time_t GlibcInstant(const char* text) {
    std::tm tm{};
    if (strptime(text, kStrptimeFormat, &tm) == nullptr) return -1;
    return timegm(&tm);
}

std::unique_ptr<luInputDate> OurDateInput() {
    std::unique_ptr<luStringFormatDate> serial(CreateSerialStringFormatDate());
    luFmtPattern* pattern = nullptr;
    serial->ToPattern(ucs2string(reinterpret_cast<const unsigned char*>(kDatePattern)), pattern);
    std::unique_ptr<luFmtPattern> owned(pattern);
    ucs2string canonical;
    if (owned) serial->FromPattern(*owned, canonical);
    if (canonical != ucs2string(reinterpret_cast<const unsigned char*>(kDatePattern)))
        Fail("the date pattern does not read back");
    ilu_ptr<luSettings> settings = Settings("en_US");
    luInputDate* input = nullptr;
    if (CreateInputDate(settings, owned.get(), input) != 0 || input == nullptr)
        Fail("no date input");
    return std::unique_ptr<luInputDate>(input);
}

void CheckOurDates(luInputDate& input) {
    const Texts& texts = DateTexts();
    luCalendarTime time(luTimeZone::utc());
    for (std::size_t i = 0; i < kTexts; ++i) {
        int position = 0;
        if (!input.Scan(texts.wide[i], time, position)) Fail("Scan failed", i, texts.narrow[i]);
        if (position != texts.lengths[i]) Fail("Scan stopped early", i, texts.narrow[i]);
        const double seconds = static_cast<double>(GlibcInstant(texts.narrow[i]));
        const luPhysicalTime expected = luPhysicalTime::Epoch + luDuration::Second * seconds;
        if (!(std::as_const(time).physicalTime() == expected))
            Fail("Scan differs from strptime and timegm", i, texts.narrow[i],
                 (std::as_const(time).physicalTime() - luPhysicalTime::Epoch) / luDuration::Second,
                 seconds);
    }
}

void DateOurs(benchmark::State& state) {
    std::unique_ptr<luInputDate> input = OurDateInput();
    static const bool checked = (CheckOurDates(*input), true);
    benchmark::DoNotOptimize(checked);
    const std::vector<const unsigned short*>& texts = DateTexts().wide;
    luCalendarTime time(luTimeZone::utc());
    const luCalendarTime& reader = time;
    for (auto _ : state) {
        for (const unsigned short* text : texts) {
            int position = 0;
            input->Scan(text, time, position);
            const luPhysicalTime when = reader.physicalTime();
            benchmark::DoNotOptimize(when);
            benchmark::DoNotOptimize(position);
        }
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kTexts));
}

void DateGlibc(benchmark::State& state) {
    const std::vector<const char*>& texts = DateTexts().narrow;
    for (auto _ : state) {
        for (const char* text : texts) {
            std::tm tm{};
            const char* end = strptime(text, kStrptimeFormat, &tm);
            const std::time_t when = timegm(&tm);
            benchmark::DoNotOptimize(when);
            benchmark::DoNotOptimize(end);
        }
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kTexts));
}

// The calendar's share of a date scan: the five fields of each text, read
// beforehand, written into the value as one checked write, against timegm of
// the same fields.
struct DateFields {
    std::vector<luFields> ours;
    std::vector<std::tm> glibc;
};

const DateFields& PrebuiltDateFields() {
    static const DateFields fields = [] {
        DateFields out;
        for (const char* text : DateTexts().narrow) {
            std::tm tm{};
            strptime(text, kStrptimeFormat, &tm);
            out.glibc.push_back(tm);
            luFields f;
            f.set(Day_of_month, tm.tm_mday).set(Month, tm.tm_mon).set(Year, tm.tm_year + 1900);
            out.ours.push_back(f.set(Hour_of_day, tm.tm_hour).set(Minute, tm.tm_min));
        }
        return out;
    }();
    return fields;
}

void DateFieldsOurs(benchmark::State& state) {
    const std::vector<luFields>& fields = PrebuiltDateFields().ours;
    luCalendarTime time(luTimeZone::utc());
    const luCalendarTime& reader = time;
    for (auto _ : state) {
        for (const luFields& f : fields) {
            time.set(f);
            const luPhysicalTime when = reader.physicalTime();
            benchmark::DoNotOptimize(when);
        }
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kTexts));
}

void DateFieldsTimegm(benchmark::State& state) {
    std::vector<std::tm> fields = PrebuiltDateFields().glibc;
    for (auto _ : state) {
        for (std::tm& tm : fields) {
            const std::time_t when = timegm(&tm);
            benchmark::DoNotOptimize(when);
        }
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * kTexts));
}

}  // namespace

void RegisterIcuNumberScan();

// Each benchmark is registered here, right before its peer, so that the two
// of a pair run one after the other while the machine's load shifts.
int main(int argc, char** argv) {
    using benchmark::RegisterBenchmark;
    RegisterBenchmark("NumberScan/C/kai18n", NumberOurs, "C")->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("NumberScan/C/strtod", NumberStrtod)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("NumberScan/en_US/kai18n", NumberOurs, "en_US")
        ->Unit(benchmark::kMicrosecond);
    RegisterIcuNumberScan();
    RegisterBenchmark("DateScan/kai18n", DateOurs)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("DateScan/glibc", DateGlibc)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("DateFieldsWrite/kai18n", DateFieldsOurs)->Unit(benchmark::kMicrosecond);
    RegisterBenchmark("DateFieldsWrite/timegm", DateFieldsTimegm)->Unit(benchmark::kMicrosecond);
    return RunBenchmarksWithRatios(argc, argv);
}

#endif  // KAI18N_BENCH_ICU_SIDE

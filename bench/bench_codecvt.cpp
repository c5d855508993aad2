// The encoding-conversion facet against ICU's converters called directly, on
// about 1 MiB of CP1252 and of Shift-JIS text.
//
// Peers:
// - "icu": ucnv_toUChars / ucnv_fromUChars (ucnv_convertEx for UTF-8) with
//   the converter opened once outside the loop, into a buffer allocated once
//   outside the loop: ICU's best case, with no allocation at all.
// - "icu_open_per_call": the same, opening and closing the converter in
//   every iteration.
// - "icu_measure_convert": for the kaConvertion road, which measures and
//   converts with a converter it opens per call: ICU doing that same work.
// Ours builds its result in a string that lives outside the loop, as a
// caller reusing one would.
#include <benchmark/benchmark.h>
#include <unicode/ucnv.h>

#include <random>
#include <string>
#include <vector>

#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/frame/ilu_ptr.h"
#include "ratio_reporter.h"

namespace {

constexpr std::size_t kTextBytes = 1 << 20;

struct Text {
    const char* facetName;  // the name lu_codecvt_byname takes
    const char* icuName;    // the same encoding for ICU
    std::vector<unsigned short> units;
    std::string bytes;
};

// Words of the given letters until the encoded text reaches about 1 MiB.
Text MakeText(const char* facetName, const char* icuName,
              const std::vector<std::pair<unsigned, unsigned>>& ranges) {
    std::mt19937 rng(1234);
    std::uniform_int_distribution<std::size_t> pick(0, ranges.size() - 1);
    std::uniform_int_distribution<int> wordLength(2, 9);
    Text text{facetName, icuName, {}, {}};
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(icuName, &status);
    std::vector<unsigned short> chunk;
    while (text.bytes.size() < kTextBytes) {
        chunk.clear();
        for (int w = 0; w < 64; ++w) {
            const auto& range = ranges[pick(rng)];
            std::uniform_int_distribution<unsigned> letter(range.first, range.second);
            for (int i = wordLength(rng); i > 0; --i) {
                chunk.push_back(static_cast<unsigned short>(letter(rng)));
            }
            chunk.push_back(' ');
        }
        char out[4096];
        status = U_ZERO_ERROR;
        const int32_t n = ucnv_fromUChars(converter, out, sizeof out,
                                          reinterpret_cast<const UChar*>(chunk.data()),
                                          static_cast<int32_t>(chunk.size()), &status);
        text.bytes.append(out, static_cast<std::size_t>(n));
        text.units.insert(text.units.end(), chunk.begin(), chunk.end());
    }
    ucnv_close(converter);
    return text;
}

const Text& TextOf(int kind) {
    // CP1252: ASCII and accented Latin letters that CP1252 holds.
    static const Text cp1252 =
        MakeText("CP1252", "windows-1252", {{'a', 'z'}, {'a', 'z'}, {0xE0, 0xFF}});
    // Shift-JIS: hiragana, katakana, common kanji, ASCII.
    static const Text sjis = MakeText(
        "Shift-JIS", "Shift_JIS",
        {{0x3041, 0x3093}, {0x30A1, 0x30F3}, {0x4E00, 0x4E5F}, {0x65E5, 0x65E5}, {'a', 'z'}});
    return kind == 0 ? cp1252 : sjis;
}

const char* const kKinds[] = {"cp1252", "shift_jis"};

const lu_codecvt& FacetOf(int kind) {
    static const ilu_const_ptr<lu_codecvt> facets[] = {
        ilu_const_ptr<lu_codecvt>(new lu_codecvt_byname("CP1252", 0)),
        ilu_const_ptr<lu_codecvt>(new lu_codecvt_byname("Shift-JIS", 0)),
    };
    return *facets[kind];
}

// The kaConvertion road, by a name the encoding library does not know.
const lu_codecvt& ConversionFacetOf(int kind) {
    static const ilu_const_ptr<lu_codecvt> facets[] = {
        ilu_const_ptr<lu_codecvt>(new lu_codecvt_byname("windows-1252", 0)),
        ilu_const_ptr<lu_codecvt>(new lu_codecvt_byname("Shift_JIS", 0)),
    };
    return *facets[kind];
}

void SetBytes(benchmark::State& state, int kind) {
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * TextOf(kind).bytes.size()));
}

// --- bytes to UTF-16 -------------------------------------------------------

void SetStringKai18n(benchmark::State& state, int kind) {
    const Text& text = TextOf(kind);
    const lu_codecvt& facet = FacetOf(kind);
    ucs2string target;
    for (auto _ : state) {
        facet.SetString(text.bytes.data(), text.bytes.data() + text.bytes.size(), target);
        benchmark::DoNotOptimize(target.data());
    }
    SetBytes(state, kind);
}

void ToUCharsIcu(benchmark::State& state, int kind, bool openPerCall) {
    const Text& text = TextOf(kind);
    std::vector<UChar> out(text.units.size() + 16);
    UErrorCode status = U_ZERO_ERROR;
    UConverter* once = openPerCall ? nullptr : ucnv_open(text.icuName, &status);
    for (auto _ : state) {
        status = U_ZERO_ERROR;
        UConverter* converter = openPerCall ? ucnv_open(text.icuName, &status) : once;
        const int32_t n =
            ucnv_toUChars(converter, out.data(), static_cast<int32_t>(out.size()),
                          text.bytes.data(), static_cast<int32_t>(text.bytes.size()), &status);
        benchmark::DoNotOptimize(n);
        if (openPerCall) ucnv_close(converter);
    }
    if (once != nullptr) ucnv_close(once);
    SetBytes(state, kind);
}

void SetStringIcu(benchmark::State& state, int kind) {
    ToUCharsIcu(state, kind, false);
}
void SetStringIcuOpenPerCall(benchmark::State& state, int kind) {
    ToUCharsIcu(state, kind, true);
}

// --- bytes to UTF-8 --------------------------------------------------------

void SetStringUtf8Kai18n(benchmark::State& state, int kind) {
    const Text& text = TextOf(kind);
    const lu_codecvt& facet = FacetOf(kind);
    lu_utf8string target;
    for (auto _ : state) {
        facet.SetString(text.bytes.data(), text.bytes.data() + text.bytes.size(), target);
        benchmark::DoNotOptimize(target.data());
    }
    SetBytes(state, kind);
}

void SetStringUtf8Icu(benchmark::State& state, int kind) {
    const Text& text = TextOf(kind);
    std::vector<char> out(text.units.size() * 3 + 16);
    UErrorCode status = U_ZERO_ERROR;
    UConverter* from = ucnv_open(text.icuName, &status);
    UConverter* utf8 = ucnv_open("UTF-8", &status);
    for (auto _ : state) {
        status = U_ZERO_ERROR;
        char* target = out.data();
        const char* source = text.bytes.data();
        ucnv_convertEx(utf8, from, &target, out.data() + out.size(), &source,
                       text.bytes.data() + text.bytes.size(), nullptr, nullptr, nullptr, nullptr,
                       true, true, &status);
        benchmark::DoNotOptimize(target);
    }
    ucnv_close(from);
    ucnv_close(utf8);
    SetBytes(state, kind);
}

// --- UTF-16 to bytes -------------------------------------------------------

void SetNarrowStringKai18n(benchmark::State& state, int kind) {
    const Text& text = TextOf(kind);
    const lu_codecvt& facet = FacetOf(kind);
    std::string target;
    for (auto _ : state) {
        facet.SetNarrowString(text.units.data(), text.units.data() + text.units.size(), target);
        benchmark::DoNotOptimize(target.data());
    }
    SetBytes(state, kind);
}

void FromUCharsIcu(benchmark::State& state, int kind, bool openPerCall) {
    const Text& text = TextOf(kind);
    std::vector<char> out(text.bytes.size() + 16);
    const auto* units = reinterpret_cast<const UChar*>(text.units.data());
    UErrorCode status = U_ZERO_ERROR;
    UConverter* once = openPerCall ? nullptr : ucnv_open(text.icuName, &status);
    for (auto _ : state) {
        status = U_ZERO_ERROR;
        UConverter* converter = openPerCall ? ucnv_open(text.icuName, &status) : once;
        const int32_t n = ucnv_fromUChars(converter, out.data(), static_cast<int32_t>(out.size()),
                                          units, static_cast<int32_t>(text.units.size()), &status);
        benchmark::DoNotOptimize(n);
        if (openPerCall) ucnv_close(converter);
    }
    if (once != nullptr) ucnv_close(once);
    SetBytes(state, kind);
}

void SetNarrowStringIcu(benchmark::State& state, int kind) {
    FromUCharsIcu(state, kind, false);
}
void SetNarrowStringIcuOpenPerCall(benchmark::State& state, int kind) {
    FromUCharsIcu(state, kind, true);
}

// --- the kaConvertion road -------------------------------------------------

void SetStringConversionKai18n(benchmark::State& state, int kind) {
    const Text& text = TextOf(kind);
    const lu_codecvt& facet = ConversionFacetOf(kind);
    ucs2string target;
    for (auto _ : state) {
        facet.SetString(text.bytes.data(), text.bytes.data() + text.bytes.size(), target);
        benchmark::DoNotOptimize(target.data());
    }
    SetBytes(state, kind);
}

// Open, measure, convert into a buffer of the measured size, close.
void SetStringConversionIcu(benchmark::State& state, int kind) {
    const Text& text = TextOf(kind);
    std::vector<UChar> out(text.units.size() + 16);
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        UConverter* converter = ucnv_open(text.icuName, &status);
        const int32_t n = ucnv_toUChars(converter, nullptr, 0, text.bytes.data(),
                                        static_cast<int32_t>(text.bytes.size()), &status);
        ucnv_close(converter);
        status = U_ZERO_ERROR;
        converter = ucnv_open(text.icuName, &status);
        ucnv_toUChars(converter, out.data(), n, text.bytes.data(),
                      static_cast<int32_t>(text.bytes.size()), &status);
        ucnv_close(converter);
        benchmark::DoNotOptimize(out.data());
    }
    SetBytes(state, kind);
}

void RegisterAll() {
    using Fn = void (*)(benchmark::State&, int);
    struct Entry {
        const char* stem;
        const char* peer;
        Fn fn;
    };
    const Entry entries[] = {
        {"SetString", "kai18n", SetStringKai18n},
        {"SetString", "icu", SetStringIcu},
        {"SetString", "icu_open_per_call", SetStringIcuOpenPerCall},
        {"SetStringUtf8", "kai18n", SetStringUtf8Kai18n},
        {"SetStringUtf8", "icu", SetStringUtf8Icu},
        {"SetNarrowString", "kai18n", SetNarrowStringKai18n},
        {"SetNarrowString", "icu", SetNarrowStringIcu},
        {"SetNarrowString", "icu_open_per_call", SetNarrowStringIcuOpenPerCall},
        {"SetStringThroughKaConvertion", "kai18n", SetStringConversionKai18n},
        {"SetStringThroughKaConvertion", "icu_measure_convert", SetStringConversionIcu},
    };
    for (int kind = 0; kind < 2; ++kind) {
        for (const Entry& e : entries) {
            const std::string name = std::string(e.stem) + "/" + kKinds[kind] + "/" + e.peer;
            benchmark::RegisterBenchmark(name.c_str(), e.fn, kind);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    RegisterAll();
    return RunBenchmarksWithRatios(argc, argv);
}

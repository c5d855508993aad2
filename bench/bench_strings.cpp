// UTF-8 <-> UTF-16 conversion against ICU, and ucs2string edits against
// std::u16string, on the same data.
#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include <random>
#include <string>
#include <vector>

#include "kai18n/strings/ucs2string.h"
#include "kai18n/strings/utf8_conversion.h"
#include "ratio_reporter.h"

namespace {

constexpr std::size_t kTextBytes = 1 << 20;

void AppendUtf8(std::string* out, unsigned cp) {
    if (cp < 0x80) {
        out->push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out->push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out->push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out->push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out->push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out->push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

// About 1 MiB of UTF-8 in words of the given alphabets, separated by spaces.
std::string MakeText(const std::vector<std::pair<unsigned, unsigned>>& ranges) {
    std::mt19937 rng(1234);
    std::uniform_int_distribution<std::size_t> pick(0, ranges.size() - 1);
    std::uniform_int_distribution<int> wordLength(2, 9);
    std::string text;
    while (text.size() < kTextBytes) {
        const auto& range = ranges[pick(rng)];
        std::uniform_int_distribution<unsigned> letter(range.first, range.second);
        for (int i = wordLength(rng); i > 0; --i) AppendUtf8(&text, letter(rng));
        text.push_back(' ');
    }
    text.resize(kTextBytes);
    // Do not end inside a sequence.
    while ((static_cast<unsigned char>(text.back()) & 0xC0) == 0x80 ||
           static_cast<unsigned char>(text.back()) >= 0xC0)
        text.pop_back();
    return text;
}

const std::string& Text(int kind) {
    static const std::string ascii = MakeText({{'a', 'z'}, {'A', 'Z'}, {'0', '9'}});
    static const std::string mixed =
        MakeText({{'a', 'z'}, {0xE0, 0xFF}, {0x3B1, 0x3C9}, {0x430, 0x44F}});
    static const std::string cjk = MakeText({{0x4E00, 0x9FFF}});
    return kind == 0 ? ascii : kind == 1 ? mixed : cjk;
}

std::vector<unsigned short> Units(int kind) {
    const std::string& text = Text(kind);
    unsigned short* out = nullptr;
    unsigned int count = 0;
    UTF8_ConvertToUCS2(reinterpret_cast<const unsigned char*>(text.data()),
                       static_cast<unsigned int>(text.size()), &out, &count);
    std::vector<unsigned short> units(out, out + count);
    delete[] out;
    return units;
}

const char* const kKinds[] = {"ascii", "latin_greek_cyrillic", "cjk"};

// --- UTF-8 to UTF-16 -------------------------------------------------------

void Utf8ToUtf16Kai18n(benchmark::State& state, int kind) {
    const std::string& text = Text(kind);
    for (auto _ : state) {
        unsigned short* out = nullptr;
        unsigned int count = 0;
        UTF8_ConvertToUCS2(reinterpret_cast<const unsigned char*>(text.data()),
                           static_cast<unsigned int>(text.size()), &out, &count);
        benchmark::DoNotOptimize(out);
        delete[] out;
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

// The same work as ours: measure, allocate exactly, convert.
void Utf8ToUtf16Icu(benchmark::State& state, int kind) {
    const std::string& text = Text(kind);
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t length = 0;
        u_strFromUTF8(nullptr, 0, &length, text.data(), static_cast<int32_t>(text.size()), &status);
        auto* out = new UChar[static_cast<std::size_t>(length)];
        status = U_ZERO_ERROR;
        u_strFromUTF8(out, length, &length, text.data(), static_cast<int32_t>(text.size()),
                      &status);
        benchmark::DoNotOptimize(out);
        delete[] out;
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

// ICU into a buffer allocated once, outside the loop: its best case.
void Utf8ToUtf16IcuPreallocated(benchmark::State& state, int kind) {
    const std::string& text = Text(kind);
    std::vector<UChar> out(text.size());
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t length = 0;
        u_strFromUTF8(out.data(), static_cast<int32_t>(out.size()), &length, text.data(),
                      static_cast<int32_t>(text.size()), &status);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

// --- UTF-16 to UTF-8 -------------------------------------------------------

void Utf16ToUtf8Kai18n(benchmark::State& state, int kind) {
    const std::vector<unsigned short> units = Units(kind);
    for (auto _ : state) {
        unsigned char* out = nullptr;
        unsigned int bytes = 0;
        UCS2_ConvertToUTF8(units.data(), static_cast<unsigned int>(units.size()), &out, &bytes);
        benchmark::DoNotOptimize(out);
        delete[] out;
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Text(kind).size()));
}

void Utf16ToUtf8Icu(benchmark::State& state, int kind) {
    const std::vector<unsigned short> units = Units(kind);
    const auto* src = reinterpret_cast<const UChar*>(units.data());
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t length = 0;
        u_strToUTF8(nullptr, 0, &length, src, static_cast<int32_t>(units.size()), &status);
        auto* out = new char[static_cast<std::size_t>(length)];
        status = U_ZERO_ERROR;
        u_strToUTF8(out, length, &length, src, static_cast<int32_t>(units.size()), &status);
        benchmark::DoNotOptimize(out);
        delete[] out;
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Text(kind).size()));
}

void Utf16ToUtf8IcuPreallocated(benchmark::State& state, int kind) {
    const std::vector<unsigned short> units = Units(kind);
    const auto* src = reinterpret_cast<const UChar*>(units.data());
    std::vector<char> out(units.size() * 3);
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t length = 0;
        u_strToUTF8(out.data(), static_cast<int32_t>(out.size()), &length, src,
                    static_cast<int32_t>(units.size()), &status);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Text(kind).size()));
}

// --- string edits ----------------------------------------------------------

void AppendUnitKai18n(benchmark::State& state) {
    for (auto _ : state) {
        ucs2string s;
        for (int i = 0; i < 10000; ++i) s.push_back(static_cast<unsigned short>('a' + (i & 15)));
        benchmark::DoNotOptimize(s.data());
    }
    state.SetItemsProcessed(state.iterations() * 10000);
}

void AppendUnitStd(benchmark::State& state) {
    for (auto _ : state) {
        std::u16string s;
        for (int i = 0; i < 10000; ++i) s.push_back(static_cast<char16_t>('a' + (i & 15)));
        benchmark::DoNotOptimize(s.data());
    }
    state.SetItemsProcessed(state.iterations() * 10000);
}

// Texts of 1 to 24 units assigned in turn to one string.
const std::vector<std::u16string>& ShortTexts() {
    static const std::vector<std::u16string> texts = [] {
        std::vector<std::u16string> v;
        for (int n = 1; n <= 24; ++n) v.emplace_back(static_cast<std::size_t>(n), u'x');
        return v;
    }();
    return texts;
}

void AssignShortKai18n(benchmark::State& state) {
    const auto& texts = ShortTexts();
    ucs2string s;
    for (auto _ : state) {
        for (const auto& t : texts) {
            s.assign(reinterpret_cast<const unsigned short*>(t.data()),
                     static_cast<unsigned int>(t.size()));
            benchmark::DoNotOptimize(s.data());
        }
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * texts.size()));
}

void AssignShortStd(benchmark::State& state) {
    const auto& texts = ShortTexts();
    std::u16string s;
    for (auto _ : state) {
        for (const auto& t : texts) {
            s.assign(t.data(), t.size());
            benchmark::DoNotOptimize(s.data());
        }
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * texts.size()));
}

void RegisterAll() {
    for (int kind = 0; kind < 3; ++kind) {
        const std::string k = kKinds[kind];
        benchmark::RegisterBenchmark(("Utf8ToUtf16/" + k + "/kai18n").c_str(), Utf8ToUtf16Kai18n,
                                     kind);
        benchmark::RegisterBenchmark(("Utf8ToUtf16/" + k + "/icu").c_str(), Utf8ToUtf16Icu, kind);
        benchmark::RegisterBenchmark(("Utf8ToUtf16/" + k + "/icu_preallocated").c_str(),
                                     Utf8ToUtf16IcuPreallocated, kind);
        benchmark::RegisterBenchmark(("Utf16ToUtf8/" + k + "/kai18n").c_str(), Utf16ToUtf8Kai18n,
                                     kind);
        benchmark::RegisterBenchmark(("Utf16ToUtf8/" + k + "/icu").c_str(), Utf16ToUtf8Icu, kind);
        benchmark::RegisterBenchmark(("Utf16ToUtf8/" + k + "/icu_preallocated").c_str(),
                                     Utf16ToUtf8IcuPreallocated, kind);
    }
    benchmark::RegisterBenchmark("AppendOneUnit10000/kai18n", AppendUnitKai18n);
    benchmark::RegisterBenchmark("AppendOneUnit10000/std_u16string", AppendUnitStd);
    benchmark::RegisterBenchmark("AssignShortTexts/kai18n", AssignShortKai18n);
    benchmark::RegisterBenchmark("AssignShortTexts/std_u16string", AssignShortStd);
}

}  // namespace

int main(int argc, char** argv) {
    RegisterAll();
    return RunBenchmarksWithRatios(argc, argv);
}

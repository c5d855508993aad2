// Collation: the lu_collate facet of a named locale against ICU's collator on
// the same word pairs, for comparison and for sort keys.
#include <benchmark/benchmark.h>
#include <unicode/char16ptr.h>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "kai18n/facets/lu_collate.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string.h"
#include "ratio_reporter.h"

namespace {

constexpr std::size_t kPairs = 10000;

// Word pairs over Latin letters of both cases, accented letters and a few
// Greek ones; a third of the pairs share a prefix, so that comparisons do
// not all end at the first letter.
const std::vector<std::pair<std::u16string, std::u16string>>& WordPairs() {
    static const auto pairs = [] {
        const std::u16string alphabet =
            u"abcdefghijklmnopqrstuvwxyzABCDEZ\u00E4\u00F6\u00FC\u00E5\u00E9\u00E8\u00DF"
            u"\u00F1\u03B1\u03B2";
        std::mt19937 rng(42);
        std::uniform_int_distribution<std::size_t> letter(0, alphabet.size() - 1);
        std::uniform_int_distribution<int> length(3, 10);
        auto word = [&] {
            std::u16string w;
            for (int i = length(rng); i > 0; --i) w.push_back(alphabet[letter(rng)]);
            return w;
        };
        std::vector<std::pair<std::u16string, std::u16string>> out;
        for (std::size_t i = 0; i < kPairs; ++i) {
            std::u16string a = word();
            std::u16string b = i % 3 == 0 ? a.substr(0, a.size() / 2) + word() : word();
            out.emplace_back(a, b);
        }
        return out;
    }();
    return pairs;
}

ucs2string Ucs2(const std::u16string& s) {
    const std::vector<unsigned short> units(s.begin(), s.end());
    return ucs2string(units.data(), static_cast<unsigned int>(units.size()));
}

icu::UnicodeString Icu(const std::u16string& s) {
    return icu::UnicodeString(s.data(), static_cast<int32_t>(s.size()));
}

// What lu_locale::operator() does: the facet's UTF-16 compare over whole texts.
void CompareKai18n(benchmark::State& state) {
    const ilu_ptr<lu_collate> facet(new lu_collate(std::string("en_US")));
    std::vector<std::pair<ucs2string, ucs2string>> pairs;
    for (const auto& [a, b] : WordPairs()) pairs.emplace_back(Ucs2(a), Ucs2(b));
    for (auto _ : state) {
        int sum = 0;
        for (const auto& pair : pairs) {
            const ucs2string& a = pair.first;
            const ucs2string& b = pair.second;
            sum += facet->compare(a.data(), a.data() + a.length(), b.data(), b.data() + b.length());
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * pairs.size()));
}

// lu_locale::operator() on a locale whose collation is en_US: the facet
// look-up and the compare, as callers sorting with a locale pay them.
void LocaleLessKai18n(benchmark::State& state) {
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    impl->_M_install_facet(&lu_collate::id, new lu_collate(std::string("en_US")));
    const lu_locale locale(impl);
    std::vector<std::pair<ucs2string, ucs2string>> pairs;
    for (const auto& [a, b] : WordPairs()) pairs.emplace_back(Ucs2(a), Ucs2(b));
    for (auto _ : state) {
        int before = 0;
        for (const auto& pair : pairs) before += locale(pair.first, pair.second) ? 1 : 0;
        benchmark::DoNotOptimize(before);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * pairs.size()));
}

void LocaleLessIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale("en_US"), status));
    if (U_FAILURE(status)) {
        state.SkipWithError("no collator");
        return;
    }
    std::vector<std::pair<icu::UnicodeString, icu::UnicodeString>> pairs;
    for (const auto& [a, b] : WordPairs()) pairs.emplace_back(Icu(a), Icu(b));
    for (auto _ : state) {
        int before = 0;
        for (const auto& pair : pairs) {
            before += collator->compare(pair.first, pair.second, status) < 0 ? 1 : 0;
        }
        benchmark::DoNotOptimize(before);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * pairs.size()));
}

void CompareIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale("en_US"), status));
    if (U_FAILURE(status)) {
        state.SkipWithError("no collator");
        return;
    }
    std::vector<std::pair<icu::UnicodeString, icu::UnicodeString>> pairs;
    for (const auto& [a, b] : WordPairs()) pairs.emplace_back(Icu(a), Icu(b));
    for (auto _ : state) {
        int sum = 0;
        for (const auto& pair : pairs) sum += collator->compare(pair.first, pair.second, status);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * pairs.size()));
}

// ICU's compare on the very buffers of the ucs2string pairs: what is left
// between this and CompareKai18n is the cost of the facet and engine layers.
void CompareIcuSameBuffers(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale("en_US"), status));
    if (U_FAILURE(status)) {
        state.SkipWithError("no collator");
        return;
    }
    std::vector<std::pair<ucs2string, ucs2string>> pairs;
    for (const auto& [a, b] : WordPairs()) pairs.emplace_back(Ucs2(a), Ucs2(b));
    for (auto _ : state) {
        int sum = 0;
        for (const auto& pair : pairs) {
            const ucs2string& a = pair.first;
            const ucs2string& b = pair.second;
            sum += collator->compare(
                icu::ConstChar16Ptr(a.data()), static_cast<int32_t>(a.length()),
                icu::ConstChar16Ptr(b.data()), static_cast<int32_t>(b.length()), status);
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * pairs.size()));
}

// Sort keys of the first word of each pair, each in a new std::string: the
// facet's transform(), and ICU at its best, one call into a stack buffer that
// is always large enough, then a copy.
void SortKeyKai18n(benchmark::State& state) {
    const ilu_ptr<lu_collate> facet(new lu_collate(std::string("en_US")));
    std::vector<ucs2string> words;
    for (const auto& pair : WordPairs()) words.push_back(Ucs2(pair.first));
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (const ucs2string& w : words)
            bytes += facet->transform(w.data(), w.data() + w.length()).size();
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * words.size()));
}

void SortKeyIcu(benchmark::State& state) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale("en_US"), status));
    if (U_FAILURE(status)) {
        state.SkipWithError("no collator");
        return;
    }
    std::vector<icu::UnicodeString> words;
    for (const auto& pair : WordPairs()) words.push_back(Icu(pair.first));
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (const icu::UnicodeString& w : words) {
            uint8_t buffer[512];
            const int32_t length = collator->getSortKey(w, buffer, sizeof buffer);
            const std::string key(reinterpret_cast<const char*>(buffer),
                                  static_cast<std::size_t>(length));
            bytes += key.size();
        }
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * words.size()));
}

}  // namespace

BENCHMARK(CompareKai18n)->Name("CollateCompare10000Pairs/kai18n");
BENCHMARK(CompareIcu)->Name("CollateCompare10000Pairs/icu");
BENCHMARK(CompareIcuSameBuffers)->Name("CollateCompare10000Pairs/icu_same_buffers");
BENCHMARK(LocaleLessKai18n)->Name("LocaleLess10000Pairs/kai18n");
BENCHMARK(LocaleLessIcu)->Name("LocaleLess10000Pairs/icu");
BENCHMARK(SortKeyKai18n)->Name("CollateSortKey10000Words/kai18n");
BENCHMARK(SortKeyIcu)->Name("CollateSortKey10000Words/icu");

int main(int argc, char** argv) {
    return RunBenchmarksWithRatios(argc, argv);
}

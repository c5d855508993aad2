// Character classes and case of UTF-16 units against ICU, on the same data:
// lu_ctype_impl::IsAlpha, FindProperty and ToUpper against u_isalpha,
// u_charType and u_toupper, unit for unit over 1 MiB (512 Ki units) of text.
//
// The texts are built from sentences: "mixed" shuffles those of every script
// (the benchmarks without a script in their name), and one text per script
// (IsAlphaAscii, FindPropertyCjk, ...) shows where the time goes. Every
// sentence is in the Basic Multilingual Plane, so one unit is one character.
//
// Our tables are those of Unicode 3.0 and ICU 72 has Unicode 15, so a few
// answers may differ; the work done is the same.
//
// A facet on the built-in tables looks words up in their block expansion (two
// loads); FindPropertyByRuns measures the walk through a block's runs that a
// record of another provider costs.
#include <benchmark/benchmark.h>
#include <unicode/uchar.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "kai18n/facets/lu_ctype_impl.h"
#include "ratio_reporter.h"

namespace {

constexpr std::size_t kTextUnits = std::size_t{1} << 19;  // 1 MiB of UTF-16

// --- sentences -------------------------------------------------------------

const std::vector<std::u16string> kEnglish = {
    u"The quick brown fox jumps over the lazy dog.",
    u"International software must handle text in many languages and scripts.",
    u"On 12 March 2024, the committee approved 3 new proposals (see page 47).",
    u"Please send your comments to the editor before Friday, 5:30 p.m.",
    u"A journey of a thousand miles begins with a single step.",
};

const std::vector<std::u16string> kGerman = {
    u"Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich.",
    u"Die Größe der Straße überrascht die Bürger in München.",
    u"Fünf Äpfel kosten 3,50 € – das ist günstig, oder?",
    u"Falsches Üben von Xylophonmusik quält jeden größeren Zwerg.",
};

const std::vector<std::u16string> kRussian = {
    u"Съешь же ещё этих мягких французских булок, да выпей чаю.",
    u"Широкая электрификация южных губерний даст мощный толчок подъёму сельского хозяйства.",
    u"В 2023 году в Москве прошла конференция по интернационализации.",
    u"Эх, чужак, общий съём цен шляп (юфть) — вдрызг!",
};

const std::vector<std::u16string> kGreek = {
    u"Ξεσκεπάζω την ψυχοφθόρα βδελυγμία.",
    u"Η γρήγορη καφέ αλεπού πηδά πάνω από τον τεμπέλη σκύλο.",
    u"Ταχίστη αλώπηξ βαφής ψημένη γη, δρασκελίζει υπέρ νωθρού κυνός.",
    u"Το ΣΥΝΕΔΡΙΟ ΘΑ ΓΙΝΕΙ ΣΤΗΝ ΑΘΗΝΑ τον Μάιο.",
};

const std::vector<std::u16string> kArabic = {
    u"نص حكيم له سر قاطع وذو شأن عظيم مكتوب على ثوب أخضر ومغلف بجلد أزرق.",
    u"تعلم اللغة العربية ممتع ومفيد.",
    u"صِفْ خَلْقَ خَوْدٍ كَمِثْلِ الشَّمْسِ إِذْ بَزَغَتْ.",
    u"يجب أن يدعم البرنامج لغات كثيرة، أليس كذلك؟",
};

const std::vector<std::u16string> kHebrew = {
    u"דג סקרן שט בים מאוכזב ולפתע מצא חברה.",
    u"עטלף אבק נס דרך מזגן שהתפוצץ כי חם.",
    u"שָׁלוֹם עֲלֵיכֶם, מַה שְּׁלוֹמְךָ?",
    u"התוכנה צריכה לתמוך בשפות רבות.",
};

const std::vector<std::u16string> kChinese = {
    u"我能吞下玻璃而不伤身体。",
    u"国际化软件必须正确处理多种语言和文字。",
    u"今天天气很好，我们去公园散步吧！",
    u"学而时习之，不亦说乎？有朋自远方来，不亦乐乎？",
};

const std::vector<std::u16string> kJapanese = {
    u"いろはにほへと ちりぬるを わかよたれそ つねならむ",
    u"私はガラスを食べられます。それは私を傷つけません。",
    u"東京都の天気は晴れのち曇りです。",
    u"ソフトウェアの国際化には、多くの言語への対応が必要です。",
};

const std::vector<std::u16string> kKorean = {
    u"나는 유리를 먹을 수 있어요. 그래도 아프지 않아요.",
    u"다람쥐 헌 쳇바퀴에 타고파.",
    u"국제화 소프트웨어는 여러 언어를 지원해야 합니다.",
    u"키스의 고유조건은 입술끼리 만나야 하고 특별한 기술은 필요치 않다.",
};

const std::vector<std::u16string> kDigits = {
    u"1234567890 + 987654321 = 988888888 (100%).",
    u"Tel. +49 (0)30 1234-5678; Fax: 030/8765-4321.",
    u"«Quotes», “curly quotes”, ‘single’ — and … ellipsis!",
    u"[3.14159] {2.71828} <1.41421> #42 @7 $19.99 &c. *_~^|\\",
};

// --- texts -----------------------------------------------------------------

enum TextKind {
    kMixed,
    kAscii,
    kGermanText,
    kRussianText,
    kGreekText,
    kArabicText,
    kHebrewText,
    kCjk,
    kJapaneseText,
    kKoreanText,
    kDigitsText,
    kTextKinds
};

// The suffix of the benchmark names; the mixed text has none.
const char* const kTextNames[kTextKinds] = {
    "",       "Ascii", "German",   "Russian", "Greek",  "Arabic",
    "Hebrew", "Cjk",   "Japanese", "Korean",  "Digits",
};

std::vector<const std::vector<std::u16string>*> SentencesOf(int kind) {
    switch (kind) {
        case kAscii:
            return {&kEnglish};
        case kGermanText:
            return {&kGerman};
        case kRussianText:
            return {&kRussian};
        case kGreekText:
            return {&kGreek};
        case kArabicText:
            return {&kArabic};
        case kHebrewText:
            return {&kHebrew};
        case kCjk:
            return {&kChinese};
        case kJapaneseText:
            return {&kJapanese};
        case kKoreanText:
            return {&kKorean};
        case kDigitsText:
            return {&kDigits};
        default:
            return {&kEnglish, &kGerman,  &kRussian,  &kGreek,  &kArabic,
                    &kHebrew,  &kChinese, &kJapanese, &kKorean, &kDigits};
    }
}

// Exactly kTextUnits units: sentences drawn in a fixed pseudo-random order
// (mt19937's output is the same everywhere) and separated by spaces, except
// in Chinese and Japanese, which do not use them.
std::vector<unsigned short> MakeText(int kind) {
    std::vector<const std::u16string*> sentences;
    for (const auto* group : SentencesOf(kind))
        for (const auto& s : *group) sentences.push_back(&s);
    std::mt19937 rng(20240601u + static_cast<unsigned>(kind));
    const bool spaces = kind != kCjk && kind != kJapaneseText;
    std::vector<unsigned short> units;
    units.reserve(kTextUnits + 256);
    while (units.size() < kTextUnits) {
        const std::u16string& s = *sentences[rng() % sentences.size()];
        for (char16_t u : s) units.push_back(static_cast<unsigned short>(u));
        if (spaces) units.push_back(' ');
    }
    units.resize(kTextUnits);
    for (unsigned short u : units) {
        if ((u >= 0xD800 && u < 0xE000) || (kind == kAscii && u >= 0x80)) {
            std::fprintf(stderr, "bench_ctype: unexpected unit U+%04X in text %d\n", u, kind);
            std::abort();
        }
    }
    return units;
}

const std::vector<unsigned short>& Text(int kind) {
    static std::vector<unsigned short> texts[kTextKinds];
    if (texts[kind].empty()) texts[kind] = MakeText(kind);
    return texts[kind];
}

const lu_ctype_impl& Impl() {
    static const lu_ctype_impl impl;  // null storage: the built-in tables
    return impl;
}

void SetBytes(benchmark::State& state, const std::vector<unsigned short>& units) {
    state.SetBytesProcessed(
        static_cast<int64_t>(state.iterations() * units.size() * sizeof(unsigned short)));
}

// --- IsAlpha ---------------------------------------------------------------

void IsAlphaKai18n(benchmark::State& state, int kind) {
    const std::vector<unsigned short>& units = Text(kind);
    const lu_ctype_impl& impl = Impl();
    for (auto _ : state) {
        std::size_t count = 0;
        for (unsigned short c : units) count += impl.IsAlpha(c) ? 1 : 0;
        benchmark::DoNotOptimize(count);
    }
    SetBytes(state, units);
}

void IsAlphaIcu(benchmark::State& state, int kind) {
    const std::vector<unsigned short>& units = Text(kind);
    for (auto _ : state) {
        std::size_t count = 0;
        for (unsigned short c : units) count += u_isalpha(c) ? 1 : 0;
        benchmark::DoNotOptimize(count);
    }
    SetBytes(state, units);
}

// --- general class -----------------------------------------------------------

void FindPropertyKai18n(benchmark::State& state, int kind) {
    const std::vector<unsigned short>& units = Text(kind);
    const lu_ctype_impl& impl = Impl();
    for (auto _ : state) {
        unsigned int sum = 0;
        for (unsigned short c : units) sum += impl.FindProperty(c);
        benchmark::DoNotOptimize(sum);
    }
    SetBytes(state, units);
}

// A record of another provider is read through its runs, walking mixed blocks.
void FindPropertyByRunsKai18n(benchmark::State& state, int kind) {
    const std::vector<unsigned short>& units = Text(kind);
    const lu_ctype_impl::StaticStorage& tables = lu_ctype_impl::kCtype_i18n;
    for (auto _ : state) {
        unsigned int sum = 0;
        for (unsigned short c : units) sum += lu_ctype_impl::FindPropertyInRuns(tables, c);
        benchmark::DoNotOptimize(sum);
    }
    SetBytes(state, units);
}

void CharTypeIcu(benchmark::State& state, int kind) {
    const std::vector<unsigned short>& units = Text(kind);
    for (auto _ : state) {
        unsigned int sum = 0;
        for (unsigned short c : units) sum += static_cast<unsigned int>(u_charType(c));
        benchmark::DoNotOptimize(sum);
    }
    SetBytes(state, units);
}

// --- upper case --------------------------------------------------------------

void ToUpperKai18n(benchmark::State& state, int kind) {
    const std::vector<unsigned short>& units = Text(kind);
    const lu_ctype_impl& impl = Impl();
    std::vector<unsigned short> out(units.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < units.size(); ++i) out[i] = impl.ToUpper(units[i]);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    SetBytes(state, units);
}

// Every unit of the texts maps to a unit, so the narrowing keeps the value.
void ToUpperIcu(benchmark::State& state, int kind) {
    const std::vector<unsigned short>& units = Text(kind);
    std::vector<UChar> out(units.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < units.size(); ++i)
            out[i] = static_cast<UChar>(u_toupper(units[i]));
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    SetBytes(state, units);
}

void RegisterAll() {
    using Fn = void (*)(benchmark::State&, int);
    struct Pair {
        const char* name;
        Fn ours;
        Fn icu;
    };
    const Pair pairs[] = {
        {"IsAlpha", IsAlphaKai18n, IsAlphaIcu},
        {"FindProperty", FindPropertyKai18n, CharTypeIcu},
        {"FindPropertyByRuns", FindPropertyByRunsKai18n, CharTypeIcu},
        {"ToUpper", ToUpperKai18n, ToUpperIcu},
    };
    for (const Pair& p : pairs) {
        for (int kind = 0; kind < kTextKinds; ++kind) {
            const std::string stem = std::string(p.name) + kTextNames[kind];
            benchmark::RegisterBenchmark((stem + "/kai18n").c_str(), p.ours, kind);
            benchmark::RegisterBenchmark((stem + "/icu").c_str(), p.icu, kind);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    RegisterAll();
    return RunBenchmarksWithRatios(argc, argv);
}

// The library-wide token definitions of the dialects, built by the first
// FmtLibInitExit and deleted by the last. Everything but the Velora date
// cache is read-only between the two and read without a lock.
#include "kai18n/fmtlib/lu_fmt_dialects.h"

#include <map>
#include <memory>
#include <string>

#include "fmtlib/dialect_tables.h"
#include "fmtlib/token_table.h"
#include "fmtlib/velora_date_definition.h"
#include "kai18n/frame/init_exit.h"
#include "platform/os_thread_toolkit.h"

namespace FmtLib {
namespace {

using definition_map = std::map<std::string, luTokensDefinition*>;
using key_map = std::map<std::string, std::string>;

// Plain pointers, constant-initialised to null before any guard runs.
struct DialectState {
    definition_map* ombrinDate;
    definition_map* ombrinNumber;
    key_map* ombrinKeys;
    luTokensDefinition* serialDate;
    luTokensDefinition* serialNumber;
    bool toolkitStarted;
    os_critical_section* cacheLock;
    definition_map* veloraDateCache;
    definition_map* veloraNumber;
    key_map* veloraDateKeys;
    key_map* veloraSeparatorKeys;
    key_map* veloraNumberKeys;
    definition_map* colours;
    key_map* colourKeysByLanguage;
    key_map* colourKeysByCode;
};
DialectState g_state{};

ucs2string Text(const char16_t* text) {
    return ucs2string(reinterpret_cast<const unsigned short*>(text));
}

void DeleteDefinitions(definition_map*& map) {
    if (map != nullptr)
        for (auto& entry : *map) delete entry.second;
    delete map;
    map = nullptr;
}

template <class T>
void Delete(T*& object) {
    delete object;
    object = nullptr;
}

key_map* NewKeyMap(const luDialectKey* rows, std::size_t count) {
    auto* map = new key_map;
    for (std::size_t i = 0; i < count; ++i) map->emplace(rows[i].text, rows[i].key);
    return map;
}

// The rows of one Ombrin definition: the control token, then the date or the
// number tokens with their named default formats.
bool InOmbrinDefinition(const luTokenTexts& row, bool isDate) {
    if (row.token == TokFormatSeparator) return true;
    return isDate ? IsDateToken(row.token) || IsDefaultDateFormatToken(row.token)
                  : IsNumberToken(row.token) || IsDefaultNumberFormatToken(row.token);
}

// The Ombrin texts first, so that they print; then the labels, which are only
// recognised. The label table also names the colours.
luTokensDefinition* NewOmbrinDefinition(bool isDate) {
    std::unique_ptr<luTokensDefinition> definition(new luTokensDefinition(Ombrin, isDate));
    for (std::size_t i = 0; i < kTokenTextCount; ++i) {
        const luTokenTexts& row = kTokenTexts[i];
        if (row.ombrin != nullptr && InOmbrinDefinition(row, isDate))
            definition->AddTokenDefinition(row.token, Text(row.ombrin), true);
    }
    for (std::size_t i = 0; i < kTokenTextCount; ++i) {
        const luTokenTexts& row = kTokenTexts[i];
        if (row.label != nullptr && (InOmbrinDefinition(row, isDate) || IsColourToken(row.token)))
            definition->AddTokenDefinition(row.token, Text(row.label), true);
    }
    definition->EndBuild();
    return definition.release();
}

bool InSerialDefinition(luFmtTokens token, bool isDate) {
    if (token == TokFormatSeparator || token == TokError || IsColourToken(token)) return true;
    return isDate ? IsDateToken(token) || IsDefaultDateFormatToken(token)
                  : IsNumberToken(token) || IsDefaultNumberFormatToken(token);
}

luTokensDefinition* NewSerialDefinition(bool isDate) {
    std::unique_ptr<luTokensDefinition> definition(new luTokensDefinition(Serial, isDate));
    for (std::size_t i = 0; i < kTokenTextCount; ++i) {
        const luTokenTexts& row = kTokenTexts[i];
        if (InSerialDefinition(row.token, isDate))
            definition->AddTokenDefinition(row.token, Text(row.key), true);
    }
    definition->EndBuild();
    return definition.release();
}

luTokensDefinition* NewVeloraNumberDefinition(const luVeloraNumberTexts& texts) {
    std::unique_ptr<luTokensDefinition> definition(new luTokensDefinition(Velora, false));
    const struct {
        luFmtTokens token;
        const char16_t* text;
    } rows[] = {
        {TokFormatSeparator, u";"},
        {TokSign, u"-"},
        {TokDigitOrNothing, u"#"},
        {TokDigitOrZero, u"0"},
        {TokDecimalSeparator, texts.decimalSeparator},
        {TokGroupingSeparator, texts.groupingSeparator},
        {TokNegativeOpen, u"("},
        {TokNegativeClose, u")"},
        {TokExponentUpperPlus, u"E+"},
        {TokExponentUpperMinus, u"E-"},
        {TokExponentLowerPlus, u"e+"},
        {TokExponentLowerMinus, u"e-"},
    };
    for (const auto& row : rows) definition->AddTokenDefinition(row.token, Text(row.text), true);
    definition->EndBuild();
    return definition.release();
}

// The language's own sixteen names print; the English ones follow so that
// they are understood everywhere.
luTokensDefinition* NewColourDefinition(const luColourNames& names) {
    std::unique_ptr<luTokensDefinition> definition(new luTokensDefinition(Ombrin, false));
    for (const luColourNames* table : {&names, &kColourNames[0]})
        for (int i = 0; i < 16; ++i)
            definition->AddTokenDefinition(static_cast<luFmtTokens>(TokBlack + i),
                                           Text(table->names[i]), true);
    definition->EndBuild();
    return definition.release();
}

// Each start-up step publishes its objects as it makes them, so that one that
// runs out of memory leaves the rest null and shut-down deletes what exists.
void StartOmbrin() {
    g_state.ombrinDate = new definition_map;
    g_state.ombrinNumber = new definition_map;
    g_state.ombrinKeys = new key_map{{"en", "en"}, {"", "en"}};
    (*g_state.ombrinDate)["en"] = NewOmbrinDefinition(true);
    (*g_state.ombrinNumber)["en"] = NewOmbrinDefinition(false);
}

void StartSerial() {
    std::unique_ptr<luTokensDefinition> date(NewSerialDefinition(true));
    g_state.serialNumber = NewSerialDefinition(false);
    g_state.serialDate = date.release();
}

void StartVelora() {
    os_init_thread_toolkit();
    g_state.toolkitStarted = true;
    g_state.cacheLock = new os_critical_section(false);
    g_state.veloraDateCache = new definition_map;
    g_state.veloraNumber = new definition_map;
    g_state.veloraDateKeys = NewKeyMap(kVeloraDateKeys, kVeloraDateKeyCount);
    g_state.veloraSeparatorKeys = NewKeyMap(kVeloraSeparatorKeys, kVeloraSeparatorKeyCount);
    g_state.veloraNumberKeys = NewKeyMap(kVeloraNumberKeys, kVeloraNumberKeyCount);
    for (std::size_t i = 0; i < kVeloraNumberTextCount; ++i) {
        const luVeloraNumberTexts& texts = kVeloraNumberTexts[i];
        (*g_state.veloraNumber)[texts.key] = NewVeloraNumberDefinition(texts);
    }
}

void StartColours() {
    g_state.colours = new definition_map;
    for (std::size_t i = 0; i < kColourNameCount; ++i)
        (*g_state.colours)[kColourNames[i].key] = NewColourDefinition(kColourNames[i]);
    g_state.colourKeysByLanguage = new key_map{{"", "en"}};
    for (std::size_t i = 0; i < kColourNameCount; ++i)
        g_state.colourKeysByLanguage->emplace(kColourNames[i].key, kColourNames[i].key);
    g_state.colourKeysByCode = NewKeyMap(kVeloraColourKeys, kVeloraColourKeyCount);
}

void StopOmbrin() {
    DeleteDefinitions(g_state.ombrinDate);
    DeleteDefinitions(g_state.ombrinNumber);
    Delete(g_state.ombrinKeys);
}

void StopSerial() {
    Delete(g_state.serialDate);
    Delete(g_state.serialNumber);
}

void StopVelora() {
    DeleteDefinitions(g_state.veloraDateCache);
    DeleteDefinitions(g_state.veloraNumber);
    Delete(g_state.veloraDateKeys);
    Delete(g_state.veloraSeparatorKeys);
    Delete(g_state.veloraNumberKeys);
    Delete(g_state.cacheLock);
    if (g_state.toolkitStarted) os_exit_thread_toolkit();
    g_state.toolkitStarted = false;
}

void StopColours() {
    DeleteDefinitions(g_state.colours);
    Delete(g_state.colourKeysByLanguage);
    Delete(g_state.colourKeysByCode);
}

// Start-up reports nothing: a step that fails leaves what it did not finish
// null, and the Get functions answer null for it.
template <class Step>
void RunQuietly(Step step) {
    try {
        step();
    } catch (...) {
    }
}

// Language followed by country, then language alone, then the empty text;
// the key is the empty text if none of them is listed.
std::string ResolveKey(const key_map& keys, const char* lang, const char* country) {
    const std::string language = lang != nullptr ? lang : "";
    if (country != nullptr) {
        const auto found = keys.find(language + country);
        if (found != keys.end()) return found->second;
    }
    for (const std::string& text : {language, std::string()}) {
        const auto found = keys.find(text);
        if (found != keys.end()) return found->second;
    }
    return std::string();
}

const luTokensDefinition* Find(const definition_map* definitions, const key_map* keys,
                               const char* lang, const char* country) {
    if (definitions == nullptr || keys == nullptr) return nullptr;
    try {
        const auto found = definitions->find(ResolveKey(*keys, lang, country));
        return found == definitions->end() ? nullptr : found->second;
    } catch (...) {
        return nullptr;
    }
}

// The row of a constant table whose key is `key`, or null.
template <class Row>
const Row* FindRow(const Row* rows, std::size_t count, const std::string& key) {
    for (std::size_t i = 0; i < count; ++i)
        if (key == rows[i].key) return &rows[i];
    return nullptr;
}

// Under the cache lock: the cached definition of the key, built on first use.
const luTokensDefinition* CachedVeloraDate(const std::string& dateKey,
                                           const std::string& separatorKey) {
    definition_map& cache = *g_state.veloraDateCache;
    const std::string cacheKey = dateKey + separatorKey;
    const auto found = cache.find(cacheKey);
    if (found != cache.end()) return found->second;
    const luVeloraLetters* letters = FindRow(kVeloraLetters, kVeloraLetterCount, dateKey);
    const luVeloraSeparators* separators =
        FindRow(kVeloraSeparators, kVeloraSeparatorCount, separatorKey);
    if (letters == nullptr || separators == nullptr) return nullptr;
    std::unique_ptr<luTokensDefinition> built(BuildVeloraDateDefinition(*letters, *separators));
    cache[cacheKey] = built.get();
    return built.release();
}

}  // namespace

int FmtLibInitExit::count = 0;

FmtLibInitExit::FmtLibInitExit() {
    const int old = count;
    count = old + 1;
    if (old != 0) return;
    RunQuietly(StartOmbrin);
    RunQuietly(StartSerial);
    RunQuietly(StartVelora);
    RunQuietly(StartColours);
    kaNoteServiceStart("FmtLibInitExit");
}

FmtLibInitExit::~FmtLibInitExit() {
    count -= 1;
    if (count != 0) return;
    StopOmbrin();
    StopSerial();
    StopVelora();
    StopColours();
}

const luTokensDefinition* GetDateTokensDefinition(const char* lang, const char* country) {
    return Find(g_state.ombrinDate, g_state.ombrinKeys, lang, country);
}

const luTokensDefinition* GetNumberTokensDefinition(const char* lang, const char* country) {
    return Find(g_state.ombrinNumber, g_state.ombrinKeys, lang, country);
}

const luTokensDefinition* GetOmbrinColorDefinition(const char* lang, const char* country) {
    return Find(g_state.colours, g_state.colourKeysByLanguage, lang, country);
}

const luTokensDefinition* GetVeloraColorDefinition(const char* code) {
    return Find(g_state.colours, g_state.colourKeysByCode, code, nullptr);
}

const luTokensDefinition* GetVeloraNumberTokensDefinition(const char* /*code*/, const char* lang,
                                                          const char* country) {
    return Find(g_state.veloraNumber, g_state.veloraNumberKeys, lang, country);
}

const luTokensDefinition* GetVeloraDateTokensDefinition(const char* code, const char* lang,
                                                        const char* country) {
    if (g_state.cacheLock == nullptr || g_state.veloraDateCache == nullptr ||
        g_state.veloraDateKeys == nullptr || g_state.veloraSeparatorKeys == nullptr)
        return nullptr;
    const luTokensDefinition* result = nullptr;
    try {
        const std::string dateKey = ResolveKey(*g_state.veloraDateKeys, code, nullptr);
        const std::string separatorKey = ResolveKey(*g_state.veloraSeparatorKeys, lang, country);
        g_state.cacheLock->lock();
        try {
            result = CachedVeloraDate(dateKey, separatorKey);
        } catch (...) {
        }
        g_state.cacheLock->unlock();
    } catch (...) {
    }
    return result;
}

const luTokensDefinition* GetSerialDateTokensDefinition() {
    return g_state.serialDate;
}

const luTokensDefinition* GetSerialNumberTokensDefinition() {
    return g_state.serialNumber;
}

// The dialects are up while the library is loaded.
static FmtLibInitExit s_fmtLibInitExit;

}  // namespace FmtLib

// The catalog's queries: matching the four parts of a locale, reading a locale
// name, and making custom locales from the parts of registered ones.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>
#include <string>

#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "locale/catalog_lock.h"

namespace {

using IdSet = std::vector<unsigned int>;

// A part of a query is open when it is null or has no text.
bool IsOpen(const char* part) {
    return part == nullptr || *part == '\0';
}

// Both sets ascending; so is the result.
IdSet Intersect(const IdSet& left, const IdSet& right) {
    IdSet both;
    std::set_intersection(left.begin(), left.end(), right.begin(), right.end(),
                          std::back_inserter(both));
    return both;
}

// The identity record of a locale record; a record without one has the
// built-in identity, as its identity facet does.
const lu_locale_ident_impl::StaticStorage& IdentityOf(const lu_locale_storage* record) {
    return record->identity != nullptr ? *record->identity
                                       : *lu_locale_ident_impl::GetDefaultIdent();
}

// Splits "language_territory.encoding@collation" into its four parts. The
// delimiters are searched for in this order, each in the text behind the last
// one found; a delimiter that is missing leaves the part it introduces empty,
// and the text keeps filling the part before it. So "en.CP1252" gives a
// language and an encoding, and "en@i18n" a language and a sort order.
void SplitLocaleName(const char* name, std::string parts[4]) {
    static const char kDelimiters[4] = {'_', '.', '@', '\0'};
    const char* rest = name;
    int filling = 0;
    for (int k = 0; k < 4; ++k) {
        const char* found = std::strchr(rest, kDelimiters[k]);
        if (found == nullptr) continue;
        parts[filling].assign(rest, found);
        if (kDelimiters[k] == '\0') break;
        rest = found + 1;
        filling = k + 1;
    }
}

// Notes the name that a name query works on for as long as the query runs.
class CurrentNameScope {
  public:
    CurrentNameScope(const char*& current, const char* name)
        : m_current(current), m_saved(current) {
        m_current = name;
    }
    ~CurrentNameScope() { m_current = m_saved; }
    CurrentNameScope(const CurrentNameScope&) = delete;
    CurrentNameScope& operator=(const CurrentNameScope&) = delete;

  private:
    const char*& m_current;
    const char* m_saved;
};

}  // namespace

void lu_locale_catalog::MatchLocale(const char* key, const key_map& map, IdSet& result) {
    const auto range = map.equal_range(key);
    std::transform(range.first, range.second, std::back_inserter(result), bind_matched_value);
}

long lu_locale_catalog::QueryMatchingLocales(const char* language, const char* territory,
                                             const char* encoding, const char* collation,
                                             IdSet& result, bool create) {
    lu_catalog_lock_guard guard;
    LoadLocales();

    IdSet matched;  // the running answer
    IdSet base;     // where a custom locale takes its language and territory from
    if (!IsOpen(territory)) {
        IdSet territoryIds;
        MatchLocale(territory, m_territories, territoryIds);
        if (territoryIds.empty()) return LU_S_NO_MATCH;
        std::sort(territoryIds.begin(), territoryIds.end());
        if (!IsOpen(language)) {
            IdSet languageIds;
            MatchLocale(language, m_languages, languageIds);
            if (languageIds.empty()) return LU_S_NO_MATCH;
            std::sort(languageIds.begin(), languageIds.end());
            matched = Intersect(languageIds, territoryIds);
            if (matched.empty()) return LU_S_NO_MATCH;
        } else {
            matched.swap(territoryIds);
        }
        base = matched;
    } else if (!IsOpen(language)) {
        MatchLocale(language, m_languages, matched);
        if (matched.empty()) return LU_S_NO_MATCH;
        std::sort(matched.begin(), matched.end());
        base = matched;
    } else {
        base.push_back(kNeutralLocaleId);
    }

    // A sort order or an encoding only filters what a language or territory
    // selected: an empty set is never intersected.
    IdSet sortIds;
    if (IsOpen(collation)) {
        sortIds.push_back(kNeutralLocaleId);
    } else {
        MatchLocale(collation, m_collations, sortIds);
        if (sortIds.empty()) return LU_S_NO_MATCH;
        std::sort(sortIds.begin(), sortIds.end());
        if (!matched.empty()) matched = Intersect(matched, sortIds);
    }

    IdSet encodingIds;
    if (IsOpen(encoding)) {
        encodingIds.push_back(kNeutralLocaleId);
    } else {
        MatchLocale(encoding, m_encodings, encodingIds);
        if (encodingIds.empty()) {
            // An encoding no locale has: with `create`, what the language or
            // territory selected stands, or the encoding table may know it.
            if (!create) return LU_S_NO_MATCH;
        } else {
            std::sort(encodingIds.begin(), encodingIds.end());
            if (!matched.empty()) matched = Intersect(matched, encodingIds);
        }
    }

    if (!matched.empty()) {
        result.swap(matched);
        return LU_S_OK;
    }
    if (!create) return LU_S_NO_MATCH;

    long outcome = LU_S_NO_MATCH;
    bool made = false;
    unsigned int id = 0;
    if (!encodingIds.empty()) {
        outcome = RegisterCustomLocale(base[0], encodingIds[0], sortIds[0], id, nullptr, nullptr);
        made = true;
    } else {
        // The table hands back its own copy of the name, which outlives the
        // caller's text.
        const char* technicalName = encoding;
        const unsigned char* displayName = lu_codecvt::GetEncodingDisplayName(technicalName);
        if (displayName != nullptr) {
            outcome = RegisterCustomLocale(base[0], 0, sortIds[0], id, displayName, technicalName);
            made = true;
        }
    }

    result.clear();
    if (made && outcome >= 0) {
        result.push_back(id);
        if (m_currentName != nullptr) m_customNames[m_currentName] = id;
    }
    return outcome;
}

long lu_locale_catalog::QueryMatchingLocales(const char* name, IdSet& result, bool create) {
    lu_catalog_lock_guard guard;
    if (name == nullptr) name = "";

    // A name that made a custom locale once answers with it at once.
    const auto known = m_customNames.find(name);
    if (known != m_customNames.end()) {
        result.push_back(known->second);
        return LU_S_OK;
    }

    const CurrentNameScope scope(m_currentName, name);
    std::string parts[4];
    SplitLocaleName(name, parts);
    const char* first = parts[0].c_str();
    const char* territory = parts[1].c_str();
    const char* encoding = parts[2].c_str();
    const char* collation = parts[3].c_str();

    if (!parts[1].empty()) {
        return QueryMatchingLocales(first, territory, encoding, collation, result, create);
    }
    // A single code is a language ("de") or, failing that, a territory or an
    // identification code ("US", "i18n").
    long outcome = QueryMatchingLocales(first, "", encoding, collation, result, create);
    if (outcome == LU_S_NO_MATCH) {
        outcome = QueryMatchingLocales("", first, encoding, collation, result, create);
    }
    return outcome;
}

long lu_locale_catalog::RegisterCustomLocale(unsigned int base, unsigned int encodingSource,
                                             unsigned int sortSource, unsigned int& id,
                                             const unsigned char* encodingDisplayName,
                                             const char* encodingTechnicalName) {
    const auto baseRecord = m_storage.find(base);
    const auto sortRecord = m_storage.find(sortSource);
    if (baseRecord == m_storage.end() || sortRecord == m_storage.end()) return LU_E_INVALID_ARG;
    id = 0;

    const lu_locale_storage* encodingRecord = nullptr;
    if (encodingSource != 0) {
        const auto found = m_storage.find(encodingSource);
        if (found == m_storage.end()) return LU_E_INVALID_ARG;
        encodingRecord = found->second;
    } else if (encodingDisplayName == nullptr || encodingTechnicalName == nullptr) {
        return LU_E_INVALID_ARG;
    }

    lu_locale_storage* record = nullptr;
    lu_locale_ident_impl::StaticStorage* identity = nullptr;
    try {
        // Room first, so that nothing allocated can miss its list.
        m_customRecords.reserve(m_customRecords.size() + 1);
        m_customIdentities.reserve(m_customIdentities.size() + 1);
        record = new lu_locale_storage(*baseRecord->second);
        m_customRecords.push_back(record);
        identity = new lu_locale_ident_impl::StaticStorage(IdentityOf(baseRecord->second));
        m_customIdentities.push_back(identity);
    } catch (const std::bad_alloc&) {
        return LU_E_OUT_OF_MEMORY;
    }

    // Language, territory and the character, numeric and time data are those
    // of `base`; the strings and tables still belong to their provider.
    record->locale_id = ++m_nextCustomId;
    record->identity = identity;
    const lu_locale_ident_impl::StaticStorage& sortIdentity = IdentityOf(sortRecord->second);
    identity->sort_order_display_name = sortIdentity.sort_order_display_name;
    identity->sort_order_technical_name = sortIdentity.sort_order_technical_name;
    if (encodingRecord != nullptr) {
        const lu_locale_ident_impl::StaticStorage& encodingIdentity = IdentityOf(encodingRecord);
        identity->encoding_display_name = encodingIdentity.encoding_display_name;
        identity->encoding_technical_name = encodingIdentity.encoding_technical_name;
    } else {
        identity->encoding_display_name = encodingDisplayName;
        identity->encoding_technical_name = encodingTechnicalName;
    }
    // The display name of `base` no longer describes the mix.
    identity->display_name = nullptr;

    id = record->locale_id;
    return DoRegister(record);
}

// Writes the records of the locale data module as C++ sources.
#ifndef KAI18N_TOOLS_GEN_LOCALE_DATA_EMIT_H
#define KAI18N_TOOLS_GEN_LOCALE_DATA_EMIT_H

#include <string>
#include <vector>

#include "locale_data.h"

namespace gen {

/// A locale with the ids of its two records.
struct LocaleRecords {
    const LocaleData* data;
    unsigned int ansi_id;  // 0: no ANSI record
    unsigned int utf8_id;
};

/// What every generated file says about its origin.
struct Provenance {
    std::string icu_version;
    std::string cldr_version;
    std::string command;
};

/// The source of the records of one language: `locales` in the order of
/// their ids, defined as the array kai18nloc::kLocales_<language>.
std::string LanguageSource(const std::string& language, const std::vector<LocaleRecords>& locales,
                           const Provenance& provenance);

/// The source of kai18nloc::kRecords, every record of the module (the
/// neutral one included) in ascending order of ids, and kRecordCount.
std::string IndexSource(
    const std::vector<std::pair<std::string, std::vector<LocaleRecords>>>& languages,
    const Provenance& provenance);

}  // namespace gen

#endif  // KAI18N_TOOLS_GEN_LOCALE_DATA_EMIT_H

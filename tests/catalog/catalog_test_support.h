// Helpers of the catalog tests: a catalog of the test's own, a view of the
// loaded modules, and the key maps as Trace prints them.
#ifndef KAI18N_TESTS_CATALOG_CATALOG_TEST_SUPPORT_H
#define KAI18N_TESTS_CATALOG_CATALOG_TEST_SUPPORT_H

#include <link.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "kai18n/locale/lu_locale_catalog.h"

namespace catalog_test {

using Ids = std::vector<unsigned int>;

/// A catalog apart from the process-wide one, for rules tested on the test's
/// own records. Its look-ups load the data module too, which then registers
/// into the process-wide catalog, not into this one; so that the module's
/// records there never outlive the module, make the process-wide catalog load
/// it first (LoadSharedCatalog).
class PrivateCatalog : public lu_locale_catalog {
  public:
    PrivateCatalog() = default;
    ~PrivateCatalog() = default;

    using lu_locale_catalog::DoRegister;
    using lu_locale_catalog::LoadLocales;
    using lu_locale_catalog::MatchLocale;
    using lu_locale_catalog::RegisterCustomLocale;
    using lu_locale_catalog::UnloadLocales;
};

/// Makes the process-wide catalog hold the data module.
inline void LoadSharedCatalog() {
    lu_locale_catalog::GetInstance()->GetStorage(lu_locale_catalog::kNeutralLocaleId);
}

/// The file name of the data module.
inline const char* ModuleFileName() {
    return "libkai18nloc.so";
}

/// Whether the data module is in the process now, by the loader's own list.
inline bool ModuleLoaded() {
    bool found = false;
    dl_iterate_phdr(
        [](dl_phdr_info* info, size_t, void* data) {
            const char* name = info->dlpi_name != nullptr ? info->dlpi_name : "";
            const char* slash = std::strrchr(name, '/');
            const char* base = slash != nullptr ? slash + 1 : name;
            if (std::strcmp(base, ModuleFileName()) == 0) *static_cast<bool*>(data) = true;
            return 0;
        },
        &found);
    return found;
}

/// One section of Trace's output: its heading and its "key,id" entries.
struct TraceSection {
    std::string heading;
    std::vector<std::pair<std::string, unsigned int>> entries;
};

/// Reads Trace's output back into its four sections.
inline std::vector<TraceSection> ReadTrace(const lu_locale_catalog& catalog) {
    std::ostringstream out;
    catalog.Trace(out);
    std::istringstream in(out.str());
    std::vector<TraceSection> sections;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line[0] == '*') {
            sections.push_back(TraceSection{line, {}});
            continue;
        }
        const std::string::size_type comma = line.rfind(',');
        if (sections.empty() || comma == std::string::npos) continue;
        sections.back().entries.emplace_back(
            line.substr(0, comma), static_cast<unsigned int>(std::stoul(line.substr(comma + 1))));
    }
    return sections;
}

/// The ids of `key` in the section at `index` (0 languages, 1 territories,
/// 2 encodings, 3 sort orders), ascending.
inline Ids IdsOf(const std::vector<TraceSection>& sections, size_t index, const std::string& key) {
    Ids ids;
    if (index >= sections.size()) return ids;
    for (const auto& entry : sections[index].entries) {
        if (entry.first == key) ids.push_back(entry.second);
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

/// The distinct keys of the section at `index`.
inline std::set<std::string> KeysOf(const std::vector<TraceSection>& sections, size_t index) {
    std::set<std::string> keys;
    if (index >= sections.size()) return keys;
    for (const auto& entry : sections[index].entries) keys.insert(entry.first);
    return keys;
}

inline Ids Intersect(const Ids& left, const Ids& right) {
    Ids both;
    std::set_intersection(left.begin(), left.end(), right.begin(), right.end(),
                          std::back_inserter(both));
    return both;
}

inline std::string TextOr(const char* text) {
    return text != nullptr ? std::string(text) : std::string("(null)");
}

inline std::string TextOr(const unsigned char* text) {
    return TextOr(reinterpret_cast<const char*>(text));
}

}  // namespace catalog_test

#endif  // KAI18N_TESTS_CATALOG_CATALOG_TEST_SUPPORT_H

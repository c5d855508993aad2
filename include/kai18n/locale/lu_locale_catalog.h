// The catalog of known locales.
//
// Every locale has a number, its locale id, and a constant record
// (`lu_locale_storage`) from which a `lu_locale` is built. The records come
// from the locale data module, libkai18nloc.so, which lives beside this
// library and is loaded at the first look-up: while it loads, its static
// initialisers call `lu_locale_catalog::GetInstance()->Register(&record)` for
// each of its locales. The module registers id 31000, the neutral record,
// which stands for every part that a query leaves open. Custom locales, made
// on request by a query, combine the parts of registered ones and take ids
// from 32001 upwards.
//
// Names have the form language `_` territory `.` encoding `@` sort order, as
// in "en_US.CP1252@i18n"; every part may be left out. Matching is exact, so
// case counts: languages are lower case ("de"), territories upper case ("DE").
//
// Threads: one re-entrant lock, the catalog lock, guards every member; it is
// held while the data module loads. The catalog lock may be held when the
// locale lock is taken, never the reverse.
#ifndef KAI18N_LOCALE_LU_LOCALE_CATALOG_H
#define KAI18N_LOCALE_LU_LOCALE_CATALOG_H

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "kai18n/locale/lu_locale_ident_impl.h"
#include "kai18n/locale/lu_locale_storage.h"

/// Orders two C texts byte by byte as unsigned values, up to the terminator.
struct lu_locale_storage_less_str {
    bool operator()(const char* left, const char* right) const;
};

class lu_locale_catalog {
  public:
    /// The id that stands for a part a query leaves open; the data module
    /// registers a locale with it, and custom locales take such parts from it.
    static constexpr unsigned int kNeutralLocaleId = 31000;
    /// The id before the first custom locale: custom ids start one above.
    static constexpr unsigned int kCustomLocaleIdBase = 32000;

    using key_map = std::multimap<const char*, unsigned int, lu_locale_storage_less_str>;

    /// The catalog, made at the first call under the catalog lock. Does not
    /// load the data module.
    static lu_locale_catalog* GetInstance();
    /// Destroys the catalog under the catalog lock: unloads the data module and
    /// drops every record, custom locale and cached locale body. Locales built
    /// from the catalog point into the module's data and must not be used
    /// afterwards. A later GetInstance() makes a new catalog, whose first
    /// look-up loads the module again.
    static void ClearInstance();

    /// Registers a record under its locale id, taking the catalog lock. Gives
    /// LU_S_OK; LU_E_INVALID_ARG when the id is taken (the first record
    /// stands); LU_E_OUT_OF_MEMORY when an allocation fails. The record and all
    /// it points to must live as long as the catalog. Records registered before
    /// the first look-up are kept beside those of the data module.
    long Register(const lu_locale_storage* storage);

    /// The record of `id`, or null. Loads the data module first.
    const lu_locale_storage* GetStorage(unsigned int id) const;
    /// The identity facet of `id`, or a null pointer. Loads the data module
    /// first. The facet's count is a plain integer: a pointer that several
    /// threads copy or drop at once needs the caller's own lock.
    ilu_const_ptr<lu_locale_ident> GetLocaleIdentification(unsigned int id);
    /// The locale body of `id`, built at the first call and shared from then
    /// on. Loads the data module first. Throws LUException LU_E_INVALID_ARG
    /// ("bad lcid") for an unknown id; what building the facets throws passes
    /// through. The catalog takes the pointer's count under the locale lock,
    /// but copying or dropping the pointer does not: while other threads hold
    /// handles on the same locale, take a `lu_locale` by name instead, whose
    /// counts all go under that lock.
    ilu_ptr<lu_locale::_Impl> GetLocaleInstance(unsigned int id);

    /// The ids of the locales that match every given part, in ascending order,
    /// in `result` (whose content is replaced); a null or empty part is open.
    /// LU_S_OK on a match. LU_S_NO_MATCH, with `result` unchanged, when a given
    /// language, territory or sort order is unknown, or when nothing matches
    /// and `create` is false. With `create` true and nothing matched, a custom
    /// locale is made from the first locale of the language and territory (or
    /// the neutral locale), with the given sort order and encoding, and its id
    /// is the answer; an encoding that no locale has is taken by its name if
    /// the encoding table knows it. Loads the data module first.
    long QueryMatchingLocales(const char* language, const char* territory, const char* encoding,
                              const char* collation, std::vector<unsigned int>& result,
                              bool create);
    /// The same by a name such as "de_DE", "en.CP1252", "en@i18n" or "US". A
    /// name without territory is tried as a language first, then as a
    /// territory. A name that once made a custom locale answers with that
    /// locale's id, appended to `result`.
    long QueryMatchingLocales(const char* name, std::vector<unsigned int>& result, bool create);

    /// Prints the four key maps (languages, territories, encodings, sort
    /// orders), one "key,id" line per entry. Takes no lock: must not run beside
    /// a registration.
    void Trace(std::ostream& out) const;

    /// The id of a key map entry.
    static unsigned int bind_matched_value(const std::pair<const char* const, unsigned int>& entry);

  protected:
    lu_locale_catalog();
    ~lu_locale_catalog();
    lu_locale_catalog(const lu_locale_catalog&) = delete;
    lu_locale_catalog& operator=(const lu_locale_catalog&) = delete;

    /// Loads the data module unless it is loaded; throws LUException LU_E_FAIL
    /// ("Could not load dynamic library"). Expects the catalog lock.
    void LoadLocales() const;
    /// Unloads the data module if it is loaded; throws LUException LU_E_FAIL
    /// ("Could not unload dynamic library"). Expects the catalog lock.
    void UnloadLocales() const;

    /// Enters `storage` in every map. Expects the catalog lock.
    long DoRegister(const lu_locale_storage* storage);
    /// Makes and registers a custom locale: the data of `base`, the sort order
    /// of `sortSource`, and the encoding of `encodingSource` or, when that is
    /// 0, the two given names (which must outlive the catalog). Sets `id` to
    /// the new id. Expects the catalog lock.
    long RegisterCustomLocale(unsigned int base, unsigned int encodingSource,
                              unsigned int sortSource, unsigned int& id,
                              const unsigned char* encodingDisplayName,
                              const char* encodingTechnicalName);

    /// Appends, in the map's order, the ids of every entry whose key is `key`.
    static void MatchLocale(const char* key, const key_map& map, std::vector<unsigned int>& result);

  private:
    static lu_locale_catalog* s_Singleton;

    unsigned int m_nextCustomId;
    std::vector<lu_locale_storage*> m_customRecords;
    std::vector<lu_locale_ident_impl::StaticStorage*> m_customIdentities;
    std::map<unsigned int, const lu_locale_storage*> m_storage;
    std::map<unsigned int, ilu_const_ptr<lu_locale_ident>> m_identities;
    std::map<unsigned int, ilu_ptr<lu_locale::_Impl>> m_instances;
    key_map m_languages;
    key_map m_territories;
    key_map m_encodings;
    key_map m_collations;
    mutable void* m_module;
    std::map<std::string, unsigned int> m_customNames;
    const char* m_currentName;
};

#endif  // KAI18N_LOCALE_LU_LOCALE_CATALOG_H

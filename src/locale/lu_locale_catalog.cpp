// The catalog: the singleton, registration, the data module, look-ups by id,
// tracing and destruction. The queries are in catalog_queries.cpp.
#include "kai18n/locale/lu_locale_catalog.h"

#include <new>

#include "locale/catalog_lock.h"
#include "locale/locale_lock.h"
#include "platform/module_loader.h"

namespace {

// The file name of the locale data module, found beside this library.
const char kLocaleDataModule[] = "libkai18nloc.so";

// Inserts `key` -> `id` unless the record has no such key.
void AddKey(lu_locale_catalog::key_map& map, const char* key, unsigned int id) {
    if (key != nullptr) map.emplace(key, id);
}

}  // namespace

lu_locale_catalog* lu_locale_catalog::s_Singleton = nullptr;

bool lu_locale_storage_less_str::operator()(const char* left, const char* right) const {
    const unsigned char* l = reinterpret_cast<const unsigned char*>(left);
    const unsigned char* r = reinterpret_cast<const unsigned char*>(right);
    while (*l != 0 && *l == *r) {
        ++l;
        ++r;
    }
    return *l < *r;
}

// ---- life

lu_locale_catalog::lu_locale_catalog()
    : m_nextCustomId(kCustomLocaleIdBase), m_module(nullptr), m_currentName(nullptr) {}

lu_locale_catalog::~lu_locale_catalog() {
    bool unloaded = true;
    try {
        UnloadLocales();
    } catch (...) {
        // The module may still be in use; its records stay where they are, and
        // so do the custom records that point into them.
        unloaded = false;
    }
    if (unloaded) {
        for (lu_locale_storage* record : m_customRecords) delete record;
        for (lu_locale_ident_impl::StaticStorage* identity : m_customIdentities) delete identity;
    }
    m_customRecords.clear();
    m_customIdentities.clear();
    m_customNames.clear();
    m_languages.clear();
    m_territories.clear();
    m_encodings.clear();
    m_collations.clear();
    {
        // Locale handles change these counts under the locale lock.
        lu_locale_lock_guard guard;
        m_instances.clear();
    }
    m_identities.clear();
    m_storage.clear();
}

lu_locale_catalog* lu_locale_catalog::GetInstance() {
    lu_catalog_lock_guard guard;
    if (s_Singleton == nullptr) s_Singleton = new lu_locale_catalog();
    return s_Singleton;
}

void lu_locale_catalog::ClearInstance() {
    lu_catalog_lock_guard guard;
    lu_locale_catalog* catalog = s_Singleton;
    s_Singleton = nullptr;
    delete catalog;
}

// ---- the data module

void lu_locale_catalog::LoadLocales() const {
    if (m_module != nullptr) return;
    kaRedirectCriticalErrorMessage quiet(kaRedirectCriticalErrorMessage::kQuiet);
    // The module's initialisers call Register on this thread, which holds the
    // catalog lock already.
    void* module = kaLoadModule(kLocaleDataModule);
    if (module == nullptr) LUException::Raise(LU_E_FAIL, "Could not load dynamic library");
    m_module = module;
}

void lu_locale_catalog::UnloadLocales() const {
    if (m_module == nullptr) return;
    kaRedirectCriticalErrorMessage quiet(kaRedirectCriticalErrorMessage::kQuiet);
    if (!kaUnloadModule(m_module)) {
        LUException::Raise(LU_E_FAIL, "Could not unload dynamic library");
    }
    m_module = nullptr;
}

// ---- registration

long lu_locale_catalog::Register(const lu_locale_storage* storage) {
    lu_catalog_lock_guard guard;
    return DoRegister(storage);
}

long lu_locale_catalog::DoRegister(const lu_locale_storage* storage) {
    if (storage == nullptr) return LU_E_INVALID_ARG;
    try {
        const unsigned int id = storage->locale_id;
        // Made with one count so that it cannot go while the pointer takes
        // its own; that first count is given back at once, and the map then
        // holds the only one.
        const lu_locale_ident_impl* made = new lu_locale_ident_impl(storage->identity, 1);
        const ilu_const_ptr<lu_locale_ident> identity(made);
        made->ReleaseReference();
        if (!m_identities.emplace(id, identity).second) return LU_E_INVALID_ARG;
        if (!m_storage.emplace(id, storage).second) return LU_E_INVALID_ARG;

        // The keys point into the identity record, which lives as long as the
        // record; a null record identity means the built-in one.
        const lu_locale_ident_impl::StaticStorage& fields = made->record();
        if (fields.language != nullptr && *fields.language != '\0') {
            AddKey(m_languages, fields.language, id);
            AddKey(m_territories, fields.country, id);
        } else {
            // A locale without language is known by its identification code.
            AddKey(m_territories, fields.country, id);
        }
        AddKey(m_encodings, fields.encoding_technical_name, id);
        AddKey(m_collations, fields.sort_order_technical_name, id);
    } catch (...) {
        // What was entered stays entered.
        return LU_E_OUT_OF_MEMORY;
    }
    return LU_S_OK;
}

// ---- look-ups by id

const lu_locale_storage* lu_locale_catalog::GetStorage(unsigned int id) const {
    lu_catalog_lock_guard guard;
    LoadLocales();
    const auto found = m_storage.find(id);
    return found != m_storage.end() ? found->second : nullptr;
}

ilu_const_ptr<lu_locale_ident> lu_locale_catalog::GetLocaleIdentification(unsigned int id) {
    lu_catalog_lock_guard guard;
    LoadLocales();
    const auto found = m_identities.find(id);
    return found != m_identities.end() ? found->second : ilu_const_ptr<lu_locale_ident>();
}

ilu_ptr<lu_locale::_Impl> lu_locale_catalog::GetLocaleInstance(unsigned int id) {
    lu_catalog_lock_guard catalogGuard;
    // Loading takes the catalog lock again from the module's initialisers, so
    // it must happen before the locale lock is taken.
    LoadLocales();

    lu_locale::_Impl* impl = nullptr;
    const auto cached = m_instances.find(id);
    if (cached != m_instances.end()) {
        impl = cached->second.get();
        // The count of the returned pointer is taken under the locale lock,
        // like every handle's; the guard outlives the return value's making.
        lu_locale_lock_guard localeGuard;
        return ilu_ptr<lu_locale::_Impl>(impl);
    }

    const auto found = m_storage.find(id);
    if (found == m_storage.end()) LUException::Raise(LU_E_INVALID_ARG, "bad lcid");

    // The temporary handle gives its count back, under the locale lock, when
    // it goes; the catalog lock is held then, which is the allowed order.
    const lu_locale built(found->second);
    impl = built._M_get_impl();
    lu_locale_lock_guard localeGuard;
    m_instances[id] = impl;
    return ilu_ptr<lu_locale::_Impl>(impl);
}

// ---- tracing

unsigned int lu_locale_catalog::bind_matched_value(
    const std::pair<const char* const, unsigned int>& entry) {
    return entry.second;
}

void lu_locale_catalog::Trace(std::ostream& out) const {
    const struct {
        const char* heading;
        const key_map* map;
    } sections[] = {{"***** Languages *****", &m_languages},
                    {"**** Territories ****", &m_territories},
                    {"***** Encoding ******", &m_encodings},
                    {"***** Collation *****", &m_collations}};
    for (const auto& section : sections) {
        out << section.heading << std::endl;
        for (const auto& entry : *section.map) {
            out << entry.first << ',' << bind_matched_value(entry) << std::endl;
        }
    }
}

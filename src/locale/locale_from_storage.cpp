// Locales from the catalog: by name, and from a locale record.
#include <cstring>
#include <string>
#include <vector>

#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_collate.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_num_get.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/facets/lu_reserved_facets.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_ident_impl.h"
#include "kai18n/locale/lu_locale_storage.h"
#include "locale/locale_lock.h"

namespace {

// The table of a locale from a record: the 12 slots it shares with the classic
// locale, the identity facet, and slot 0, which is never used.
const unsigned int kStorageSlots = 14;

// Installs a facet just built with count 0; if installing fails, the facet is
// freed instead of leaking.
template <class Facet>
Facet* Install(lu_locale::_Impl* impl, Facet* facet) {
    try {
        impl->_M_install_facet(&Facet::id, facet);
    } catch (...) {
        facet->AddReference();
        facet->ReleaseReference();
        throw;
    }
    return facet;
}

bool HasText(const char* text) {
    return text != nullptr && *text != '\0';
}

// The text that names the collation: the language, an underscore when both
// language and country are set, then the country or identification code;
// empty without an identity record.
std::string CollationText(const lu_locale_ident_impl::StaticStorage* identity) {
    std::string text;
    if (identity == nullptr) return text;
    if (HasText(identity->language)) text += identity->language;
    if (HasText(identity->language) && HasText(identity->country)) text += '_';
    if (HasText(identity->country)) text += identity->country;
    return text;
}

// Every facet of a locale from a record, in the order of the classic locale,
// then the identity; each facet's slot holds its only count.
void InstallFacets(lu_locale::_Impl* impl, const lu_locale_storage& storage) {
    const lu_locale_ident_impl::StaticStorage* identity = storage.identity;
    Install(impl, new lu_ctime(storage.time, 0u));
    // A null table pointer means the built-in Unicode tables.
    const lu_ctype* ctype = Install(impl, new lu_ctype(storage.character_tables, 0u));
    Install(impl, new lu_collate(CollationText(identity)));
    Install(impl, new lu_codecvt_byname(
                      identity != nullptr ? identity->encoding_technical_name : nullptr, 0u));
    Install(impl, new lu_moneypunct(0u));
    Install(impl, new lu_money_get(0u));
    Install(impl, new lu_money_put(0u));
    const lu_numpunct* numpunct = Install(impl, new lu_numpunct(storage.numeric, 0u));
    Install(impl, new lu_num_get(numpunct, ctype, 0u));
    Install(impl, new lu_num_put(numpunct, 0u));
    Install(impl, new lu_time_get(0u));
    Install(impl, new lu_time_put(0u));
    Install(impl, new lu_locale_ident_impl(identity, 0u));
}

}  // namespace

lu_locale::lu_locale(const lu_locale_storage* const storage) : m_impl(nullptr) {
    // Nobody else can reach the new body yet: no lock is needed.
    _Impl* impl = new _Impl(kStorageSlots, 1);
    if (storage != nullptr) {
        try {
            InstallFacets(impl, *storage);
        } catch (...) {
            impl->ReleaseReference();
            throw;
        }
        impl->set_named(true);
    }
    m_impl = impl;
}

lu_locale::lu_locale(const char* name) : m_impl(nullptr) {
    if (name == nullptr || *name == '\0') LUException::Raise(LU_E_INVALID_ARG);
    classic_imp();
    if (std::strcmp(name, "C") == 0 || std::strcmp(name, "POSIX") == 0) {
        lu_locale_lock_guard guard;
        m_impl = _S_classic.load(std::memory_order_acquire);
        m_impl->AddReference();
        return;
    }

    lu_locale_catalog* catalog = lu_locale_catalog::GetInstance();
    std::vector<unsigned int> ids;
    // A soft "no match" leaves the list empty.
    const long outcome = catalog->QueryMatchingLocales(name, ids, true);
    if (outcome < 0 || ids.empty()) LUException::Raise(LU_E_INVALID_ARG);
    ilu_ptr<_Impl> body = catalog->GetLocaleInstance(ids.front());

    // The catalog lock is free again: the locale lock may be taken now, and
    // the borrowed count is given back under it too.
    lu_locale_lock_guard guard;
    m_impl = body.get();
    m_impl->AddReference();
    body = static_cast<_Impl*>(nullptr);
}

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
#include "locale/facet_install.h"
#include "locale/locale_lock.h"

namespace {

// The table of a locale from a record: the 12 slots it shares with the classic
// locale, the identity facet, and slot 0, which is never used.
const unsigned int kStorageSlots = 14;

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
    lu_install_new_facet(impl, new lu_ctime(storage.time, 0u));
    // A null table pointer means the built-in Unicode tables.
    const lu_ctype* ctype = lu_install_new_facet(impl, new lu_ctype(storage.character_tables, 0u));
    lu_install_new_facet(impl, new lu_collate(CollationText(identity)));
    lu_install_new_facet(
        impl, new lu_codecvt_byname(
                  identity != nullptr ? identity->encoding_technical_name : nullptr, 0u));
    lu_install_new_facet(impl, new lu_moneypunct(0u));
    lu_install_new_facet(impl, new lu_money_get(0u));
    lu_install_new_facet(impl, new lu_money_put(0u));
    const lu_numpunct* numpunct = lu_install_new_facet(impl, new lu_numpunct(storage.numeric, 0u));
    lu_install_new_facet(impl, new lu_num_get(numpunct, ctype, 0u));
    lu_install_new_facet(impl, new lu_num_put(numpunct, 0u));
    lu_install_new_facet(impl, new lu_time_get(0u));
    lu_install_new_facet(impl, new lu_time_put(0u));
    lu_install_new_facet(impl, new lu_locale_ident_impl(identity, 0u));
}

}  // namespace

// The constructor delegates, so if installing throws, the destructor of the
// completed body runs and releases the facets installed so far.
lu_locale::_Impl::_Impl(unsigned int slots, unsigned int refs, const lu_locale_storage* storage)
    : _Impl(slots, refs) {
    if (storage == nullptr) return;
    InstallFacets(this, *storage);
    m_named = true;
}

// Nobody else can reach the new body yet: no lock is needed for its count.
lu_locale::lu_locale(const lu_locale_storage* const storage)
    : m_impl(new _Impl(kStorageSlots, 1, storage)) {}

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

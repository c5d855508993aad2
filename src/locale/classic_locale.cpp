// The classic and global locales, combining locales by category, and
// comparing text through a locale.
#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_collate.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_num_get.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/facets/lu_reserved_facets.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/ucs2string.h"
#include "locale/facet_install.h"
#include "locale/locale_lock.h"

std::atomic<lu_locale::_Impl*> lu_locale::_S_classic{nullptr};
lu_locale::_Impl* lu_locale::_S_global = nullptr;

namespace {}  // namespace

void lu_locale::classic_imp() {
    if (_S_classic.load(std::memory_order_acquire) != nullptr) return;
    lu_locale_lock_guard guard;
    if (_S_classic.load(std::memory_order_relaxed) != nullptr) return;

    // Two counts: one for _S_classic, one for _S_global.
    _Impl* impl = new _Impl(13, 2);
    try {
        lu_install_new_facet(impl, new lu_collate(0u));
        const lu_ctype* ctype = lu_install_new_facet(impl, new lu_ctype(0u));
        lu_install_new_facet(impl, new lu_codecvt(0u));
        lu_install_new_facet(impl, new lu_moneypunct(0u));
        lu_install_new_facet(impl, new lu_money_get(0u));
        lu_install_new_facet(impl, new lu_money_put(0u));
        const lu_numpunct* numpunct = lu_install_new_facet(impl, new lu_numpunct(0u));
        lu_install_new_facet(impl, new lu_num_get(numpunct, ctype, 0u));
        lu_install_new_facet(impl, new lu_num_put(numpunct, 0u));
        lu_install_new_facet(impl, new lu_time_get(0u));
        lu_install_new_facet(impl, new lu_time_put(0u));
        lu_install_new_facet(impl, new lu_ctime(0u));
    } catch (...) {
        // Give both counts back, so that the body goes, and try again next time.
        impl->ReleaseReference();
        impl->ReleaseReference();
        throw;
    }
    _S_global = impl;
    _S_classic.store(impl, std::memory_order_release);
}

lu_locale::lu_locale() : m_impl(nullptr) {
    classic_imp();
    lu_locale_lock_guard guard;
    m_impl = _S_global;
    if (m_impl != nullptr) m_impl->AddReference();
}

lu_locale lu_locale::classic() {
    classic_imp();
    return lu_locale(_S_classic.load(std::memory_order_acquire));
}

lu_locale lu_locale::global(const lu_locale& locale) {
    classic_imp();
    lu_locale_lock_guard guard;
    lu_locale previous(_S_global);  // a new count on the old global, for the caller
    if (locale.m_impl != nullptr) locale.m_impl->AddReference();
    if (_S_global != nullptr) _S_global->ReleaseReference();
    _S_global = locale.m_impl;
    return previous;
}

lu_locale::lu_locale(const lu_locale& base, const lu_locale& other, int category)
    : m_impl(nullptr) {
    const int mask = _S_normalize_category(category);
    lu_locale_lock_guard guard;
    // The copy keeps base's flag: the result is named only if base is.
    _Impl* impl = base.m_impl != nullptr ? new _Impl(*base.m_impl, 1) : new _Impl(0, 1);
    try {
        impl->_M_replace_categories(other.m_impl, mask);
    } catch (...) {
        impl->ReleaseReference();
        throw;
    }
    m_impl = impl;
}

bool lu_locale::operator()(const ucs2string& left, const ucs2string& right) const {
    const lu_collate& collate = lu_use_facet<lu_collate>(*this);
    return collate.compare(left.data(), left.data() + left.length(), right.data(),
                           right.data() + right.length()) < 0;
}

bool lu_locale::operator()(const lu_utf8string& left, const lu_utf8string& right) const {
    const lu_collate& collate = lu_use_facet<lu_collate>(*this);
    return collate.compare(left.data(), left.data() + left.length(), right.data(),
                           right.data() + right.length()) < 0;
}

#include "kai18n/locale/lu_locale.h"

#include "locale/locale_lock.h"

namespace {

// Source of facet id numbers; the first id gets 1, so 0 always means "unset".
std::atomic<unsigned int> g_last_facet_id{0};

}  // namespace

// ---- handles: every change of a body's count happens under the locale lock

lu_locale::lu_locale(const lu_locale& other) : m_impl(nullptr) {
    lu_locale_lock_guard guard;
    m_impl = other.m_impl;
    if (m_impl != nullptr) m_impl->AddReference();
}

lu_locale::lu_locale(_Impl* impl) : m_impl(impl) {
    lu_locale_lock_guard guard;
    if (m_impl != nullptr) m_impl->AddReference();
}

lu_locale::~lu_locale() {
    lu_locale_lock_guard guard;
    if (m_impl != nullptr) m_impl->ReleaseReference();
}

lu_locale& lu_locale::operator=(const lu_locale& other) {
    lu_locale_lock_guard guard;
    if (other.m_impl != m_impl) {
        // The new body gains its count before the old one may go.
        _Impl* old = m_impl;
        m_impl = other.m_impl;
        if (m_impl != nullptr) m_impl->AddReference();
        if (old != nullptr) old->ReleaseReference();
    }
    return *this;
}

bool lu_locale::operator==(const lu_locale& other) const {
    if (m_impl == other.m_impl) return true;
    return m_impl != nullptr && m_impl->named() && name() == other.name();
}

std::string lu_locale::name() const {
    return m_impl != nullptr && m_impl->named() ? "named" : "*";
}

std::string lu_locale::makeLocaleId(const std::string& language, const std::string& country) {
    return country.empty() ? language : language + "_" + country;
}

std::pair<std::string, std::string> lu_locale::splitLocaleId(const std::string& localeId) {
    const std::string::size_type underscore = localeId.find('_');
    if (underscore == std::string::npos) return {localeId, std::string()};
    return {localeId.substr(0, underscore), localeId.substr(underscore + 1)};
}

// ---- facets and ids

lu_locale::facet::facet(unsigned int refs) : iluSharedObject(refs) {}

lu_locale::facet::~facet() = default;

void lu_locale::id::assign_if_unset() const {
    if (m_index.load(std::memory_order_acquire) != 0) return;
    const unsigned int number = g_last_facet_id.fetch_add(1) + 1;
    unsigned int expected = 0;
    // A thread that loses the race leaves its number unused; the id keeps the
    // winner's.
    m_index.compare_exchange_strong(expected, number, std::memory_order_acq_rel);
}

// ---- bodies

lu_locale::_Impl::_Impl(unsigned int slots, unsigned int refs)
    : iluSharedObject(refs),
      m_facets(slots, nullptr),
      m_names(kCategoryCount, "*"),
      m_named(false) {}

lu_locale::_Impl::_Impl(const _Impl& other, unsigned int refs)
    : iluSharedObject(refs),
      m_facets(other.m_facets),
      m_names(other.m_names),
      m_named(other.m_named) {
    for (facet* f : m_facets) {
        if (f != nullptr) f->AddReference();
    }
}

lu_locale::_Impl::~_Impl() {
    for (facet* f : m_facets) {
        if (f != nullptr) f->ReleaseReference();
    }
}

void lu_locale::_Impl::_M_install_facet(const id* index, facet* f) {
    if (f == nullptr) return;
    index->assign_if_unset();
    const unsigned int slot = index->value();
    if (slot >= m_facets.size()) m_facets.resize(slot + 1, nullptr);
    // Count the new facet first: it may be the one already in the slot.
    f->AddReference();
    facet* old = m_facets[slot];
    m_facets[slot] = f;
    if (old != nullptr) old->ReleaseReference();
}

void lu_locale::_Impl::_M_replace_facet(const _Impl* other, const id* index) {
    const unsigned int slot = index->value();
    const facet* source = other != nullptr ? other->_M_find_facet(slot) : nullptr;
    if (slot == 0 || source == nullptr) LUException::Raise(LU_E_NO_FACET);
    _M_install_facet(index, const_cast<facet*>(source));
}

// Locale handles and facets.
//
// A `lu_locale` is one pointer to a shared, counted `lu_locale::_Impl`, which
// holds a table of facets indexed by `lu_locale::id`. Every facet class owns a
// static `id`; the id takes its number, process-wide, when a facet of the class
// is first installed. An `_Impl` is changed only while it is being built, so
// looking a facet up needs no lock.
#ifndef KAI18N_LOCALE_LU_LOCALE_H
#define KAI18N_LOCALE_LU_LOCALE_H

#include <atomic>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

class ucs2string;
class lu_utf8string;
struct lu_locale_storage;

class lu_locale {
  public:
    class facet;
    class id;
    class _Impl;

    // Categories: each groups the facets below; combine them with |.
    static const int collate = 0x0100;         // lu_collate
    static const int ctype = 0x0200;           // lu_ctype, lu_codecvt
    static const int monetary = 0x0400;        // lu_moneypunct, lu_money_get, lu_money_put
    static const int numeric = 0x0800;         // lu_numpunct, lu_num_get, lu_num_put
    static const int time = 0x1000;            // lu_time_get, lu_time_put, lu_ctime
    static const int time_io = 0x2000;         // lu_time_get, lu_time_put
    static const int identification = 0x4000;  // lu_locale_ident
    static const int all = 0x7F00;

    /// A copy of the global locale, which is the classic locale until
    /// global() installs another.
    lu_locale();
    lu_locale(const lu_locale& other);
    /// Takes a new count on `impl`; a null `impl` makes a locale without facets.
    explicit lu_locale(_Impl* impl);
    /// The locale of `name` from the locale catalog ("de_DE", "en_US.UTF-8",
    /// "fr", ...); exactly "C" or "POSIX" is the classic locale. Throws
    /// LUException LU_E_INVALID_ARG for a null, empty or unknown name.
    explicit lu_locale(const char* name);
    /// A new named locale of 14 facet slots built from `storage`, which must
    /// outlive it; a null record gives 14 empty slots, not named.
    explicit lu_locale(const lu_locale_storage* const storage);
    /// A locale without facets, as from a null `_Impl`; it keeps a bare null
    /// from being ambiguous between the pointer constructors.
    explicit lu_locale(std::nullptr_t) : lu_locale(static_cast<_Impl*>(nullptr)) {}
    ~lu_locale();
    lu_locale& operator=(const lu_locale& other);

    /// Equal when both share one `_Impl`; otherwise only a named locale on the
    /// left can be equal, by the texts of `name()`.
    bool operator==(const lu_locale& other) const;
    bool operator!=(const lu_locale& other) const { return !(*this == other); }

    /// `base` with the facets of `category` (a mask of categories, or 0 to 5
    /// for all, collate, ctype, monetary, numeric, time) taken from `other`.
    /// Throws LU_E_BAD_CATEGORY for another category, LU_E_NO_FACET when
    /// `other` lacks a facet of it. Named only if `base` is.
    lu_locale(const lu_locale& base, const lu_locale& other, int category);

    /// "named" for a locale built from a locale record, "*" for any other.
    std::string name() const;

    /// Whether the locale's collation orders `left` before `right`.
    bool operator()(const ucs2string& left, const ucs2string& right) const;
    bool operator()(const lu_utf8string& left, const lu_utf8string& right) const;

    /// The classic locale: built-in tables, one facet of each class but the identity.
    static lu_locale classic();
    /// Installs `locale` as the global locale and returns the one it replaces.
    static lu_locale global(const lu_locale& locale);
    /// The mask of a category argument; throws LU_E_BAD_CATEGORY.
    static int _S_normalize_category(int category);
    /// Builds the classic locale once; a failed build is tried again next time.
    static void classic_imp();

    /// `language`, and when `country` is not empty an underscore and `country`.
    static std::string makeLocaleId(const std::string& language, const std::string& country);
    /// The text before and after the first underscore; without an underscore,
    /// the whole text and an empty string.
    static std::pair<std::string, std::string> splitLocaleId(const std::string& localeId);

    /// The body this handle shares; for the locale layer.
    _Impl* _M_get_impl() const { return m_impl; }

  private:
    // Set once by classic_imp (with two counts, one for each); _S_global then
    // changes only through global(), under the locale lock.
    static std::atomic<_Impl*> _S_classic;
    static _Impl* _S_global;

    _Impl* m_impl;
};

/// Base of every facet: a counted object with a virtual destructor.
class lu_locale::facet : public iluSharedObject {
  public:
    facet(const facet&) = delete;
    facet& operator=(const facet&) = delete;

  protected:
    /// `refs` is the starting count: 0 for a facet whose locale slot is its
    /// only owner.
    explicit facet(unsigned int refs = 0);
    ~facet() override;
};

/// The index of a facet class in every locale: 0 until a facet of the class is
/// first installed, then a number from a process-wide counter starting at 1.
class lu_locale::id {
  public:
    id() : m_index(0) {}
    id(const id&) = delete;
    id& operator=(const id&) = delete;

    unsigned int value() const { return m_index.load(std::memory_order_acquire); }

    /// Gives the id its number if it has none yet, as one atomic step: when two
    /// threads race, both see the same number afterwards.
    void assign_if_unset() const;

  private:
    mutable std::atomic<unsigned int> m_index;
};

/// The shared body of locale handles: the facet table, one name for each of
/// the seven categories, and whether it was built from a locale record.
class lu_locale::_Impl : public iluSharedObject {
  public:
    /// The number of categories, and so of entries in `names()`.
    static const unsigned int kCategoryCount = 7;

    /// A table of `slots` empty entries, every category named "*", not named.
    _Impl(unsigned int slots, unsigned int refs);
    /// The same, then with a non-null `storage` the facets of that locale
    /// record are installed and the body is named.
    _Impl(unsigned int slots, unsigned int refs, const lu_locale_storage* storage);
    /// A copy of `other`'s tables and flag; each facet gains one count.
    _Impl(const _Impl& other, unsigned int refs);
    _Impl& operator=(const _Impl&) = delete;

    /// Installs `f` under `index`, giving the id its number first if needed;
    /// a facet already there is released. A null `f` does nothing.
    void _M_install_facet(const id* index, facet* f);
    /// Installs `other`'s facet of `index`; throws LU_E_NO_FACET (and changes
    /// nothing) when `other` has none.
    void _M_replace_facet(const _Impl* other, const id* index);
    /// _M_replace_facet for each id of a null-terminated list.
    void _M_replace_category(const _Impl* other, const id* const* ids);
    /// Copies the facets and names of every category in `mask` from `other`.
    void _M_replace_categories(const _Impl* other, int mask);

    /// The facet in slot `index`, or null: one bounds test and one load.
    const facet* _M_find_facet(unsigned int index) const {
        return index < m_facets.size() ? m_facets[index] : nullptr;
    }

    const std::vector<facet*>& facets() const { return m_facets; }
    const std::vector<std::string>& names() const { return m_names; }
    std::vector<std::string>& names() { return m_names; }
    bool named() const { return m_named; }
    void set_named(bool named) { m_named = named; }

  private:
    // Reached only through ReleaseReference, when the last count goes.
    ~_Impl() override;

    std::vector<facet*> m_facets;
    std::vector<std::string> m_names;
    bool m_named;
};

/// The facet `F` of `locale`; throws LUException with LU_E_NO_FACET if the
/// locale has none (which includes an `F::id` that never got a number).
template <class F>
const F& lu_use_facet(const lu_locale& locale) {
    const lu_locale::_Impl* impl = locale._M_get_impl();
    const lu_locale::facet* found = impl != nullptr ? impl->_M_find_facet(F::id.value()) : nullptr;
    if (found == nullptr) LUException::Raise(LU_E_NO_FACET);
    return static_cast<const F&>(*found);
}

/// Whether `locale` has a facet `F`.
template <class F>
bool lu_has_facet(const lu_locale& locale) {
    const lu_locale::_Impl* impl = locale._M_get_impl();
    return impl != nullptr && impl->_M_find_facet(F::id.value()) != nullptr;
}

#endif  // KAI18N_LOCALE_LU_LOCALE_H

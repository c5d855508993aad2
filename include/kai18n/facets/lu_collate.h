// The collation facet: the order of texts in a locale, sort keys and hashes.
#ifndef KAI18N_FACETS_LU_COLLATE_H
#define KAI18N_FACETS_LU_COLLATE_H

#include <string>

#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/ucs2string.h"

class kaCollation;

/// The interface of the collation facet, with the public forwards of its
/// virtual operations.
class lu_collate_abc : public lu_locale::facet {
  public:
    /// The order of two UTF-8 ranges: negative, 0 or positive.
    int compare(const unsigned char* first1, const unsigned char* last1,
                const unsigned char* first2, const unsigned char* last2) const {
        return do_compare(first1, last1, first2, last2);
    }
    /// The order of two UTF-16 ranges: negative, 0 or positive.
    int compare(const unsigned short* first1, const unsigned short* last1,
                const unsigned short* first2, const unsigned short* last2) const {
        return do_compare(first1, last1, first2, last2);
    }
    /// A byte string whose order, as a std::string, is the order of compare.
    std::string transform(const unsigned short* first, const unsigned short* last) const {
        return do_transform(first, last);
    }
    /// A hash of the units; equal ranges give equal hashes.
    long hash(const unsigned short* first, const unsigned short* last) const {
        return do_hash(first, last);
    }

  protected:
    explicit lu_collate_abc(unsigned int refs) : lu_locale::facet(refs) {}
    ~lu_collate_abc() override;

    // The slots in order, after the destructor.
    virtual int do_compare(const unsigned char* first1, const unsigned char* last1,
                           const unsigned char* first2, const unsigned char* last2) const = 0;
    virtual int do_compare(const unsigned short* first1, const unsigned short* last1,
                           const unsigned short* first2, const unsigned short* last2) const = 0;
    virtual std::string do_transform(const unsigned short* first,
                                     const unsigned short* last) const = 0;
    virtual long do_hash(const unsigned short* first, const unsigned short* last) const = 0;
};

/// The collation facet: a locale's tailored order through a kaCollation, or,
/// in the classic form, the order of code-unit values.
///
/// Classic form: the common length is compared unit by unit (byte by byte for
/// UTF-8) as unsigned values; the first difference decides, -1 or 1; without
/// one the shorter range gives -1, the longer 1, equal lengths 0. Its sort key
/// holds each unit as two bytes, high byte first, so that keys compared as
/// strings of unsigned bytes (as std::string compares) order as the units do.
///
/// hash, in both forms: a 32-bit state starts at 0xDEADBEEF and takes each
/// unit u in turn as state = ((state << 7) | (state >> 31)) ^ u. The result is
/// the final state converted to `long` without sign extension: where `long` is
/// wider than 32 bits it lies in 0 to 0xFFFFFFFF, and on every platform it
/// equals the unsigned 32-bit value in a comparison. An empty range gives
/// 0xDEADBEEF.
class lu_collate : public lu_collate_abc {
  public:
    static lu_locale::id id;

    /// A functor on the facet: whether the first text orders before the second.
    class less_predicate {
      public:
        explicit less_predicate(const lu_collate* facet) : m_facet(facet) {}
        bool operator()(const ucs2string& left, const ucs2string& right) const {
            return m_facet->compare(left.data(), left.data() + left.length(), right.data(),
                                    right.data() + right.length()) < 0;
        }
        bool operator()(const lu_utf8string& left, const lu_utf8string& right) const {
            return m_facet->compare(left.data(), left.data() + left.length(), right.data(),
                                    right.data() + right.length()) < 0;
        }

      private:
        const lu_collate* m_facet;
    };

    /// The classic form, without a kaCollation.
    explicit lu_collate(unsigned int refs = 0);
    /// The order of the locale text `name` ("en_US", "de", "i18n", ...), with
    /// a starting count of 0. What kaCollation throws passes through.
    explicit lu_collate(const std::string& name);
    /// The by-name form: builds the facet base with `refs`, then throws
    /// LUException with LU_E_FACET_BY_NAME. It takes a C text and a count, both
    /// required, so that no call meant for the other constructors reaches it.
    lu_collate(const char* name, unsigned int refs);

    /// The collation engine, or null in the classic form.
    const kaCollation* GetImpl() const { return m_collation; }
    /// A functor that orders texts by this facet; it must not outlive it.
    less_predicate GetComparator() const { return less_predicate(this); }

  protected:
    /// Deletes the kaCollation.
    ~lu_collate() override;

    int do_compare(const unsigned char* first1, const unsigned char* last1,
                   const unsigned char* first2, const unsigned char* last2) const override;
    int do_compare(const unsigned short* first1, const unsigned short* last1,
                   const unsigned short* first2, const unsigned short* last2) const override;
    std::string do_transform(const unsigned short* first,
                             const unsigned short* last) const override;
    long do_hash(const unsigned short* first, const unsigned short* last) const override;

  private:
    kaCollation* m_collation;  // owned; null in the classic form
};

#endif  // KAI18N_FACETS_LU_COLLATE_H

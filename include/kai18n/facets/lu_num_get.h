// The number-input facet: reads decimal numbers from a range of a ucs2string
// by the punctuation of a lu_numpunct.
//
// Integers go through one scanner with a 32-bit accumulator, which honours the
// locale's thousands separator and grouping, and are then narrowed to the
// requested type; floating numbers go through a second scanner, without
// separators, whose digits may be of any script that the lu_ctype knows.
#ifndef KAI18N_FACETS_LU_NUM_GET_H
#define KAI18N_FACETS_LU_NUM_GET_H

#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string.h"

/// Every `get` reads from `first` up to `last` at most and returns the
/// iterator behind the last unit it used; the integer overloads return `first`
/// when nothing could be read, and store 0.
///
/// Failures: an integer that doesn't fit the requested type raises LUException
/// with LU_E_SCAN_OVERFLOW after the nearest bound (or 0) has been stored; a
/// read of a unit at or past the string's length raises LU_E_OUT_OF_RANGE
/// (`last` must lie in the string). Text that isn't a number raises nothing.
///
/// `long` and `unsigned long` keep the 32-bit meaning of the platform the
/// library was written for: they are read with the bounds of `int` and
/// `unsigned int`.
class lu_num_get : public lu_locale::facet {
  public:
    using const_iterator = const_ucs2string_iterator;

    static lu_locale::id id;

    /// A private lu_numpunct with all defaults and no lu_ctype. Integers are
    /// read as with any other facet. The floating overloads then classify
    /// units by the library's built-in character tables (the tables of the
    /// classic locale) in place of a locale's lu_ctype: white space, digits of
    /// every script and the case of the exponent letter are those of Unicode
    /// 3.0.
    explicit lu_num_get(unsigned int refs = 0);
    /// The form a locale uses: takes a count on each facet. `numpunct` must not
    /// be null; a null `ctype` means the built-in tables, as above.
    lu_num_get(const lu_numpunct* numpunct, const lu_ctype* ctype, unsigned int refs);

    const_iterator get(const_iterator first, const_iterator last, double& value) const {
        return do_get(first, last, value);
    }
    const_iterator get(const_iterator first, const_iterator last, float& value) const {
        return do_get(first, last, value);
    }
    const_iterator get(const_iterator first, const_iterator last, unsigned short& value) const {
        return do_get(first, last, value);
    }
    const_iterator get(const_iterator first, const_iterator last, unsigned int& value) const {
        return do_get(first, last, value);
    }
    const_iterator get(const_iterator first, const_iterator last, unsigned long& value) const {
        return do_get(first, last, value);
    }
    const_iterator get(const_iterator first, const_iterator last, short& value) const {
        return do_get(first, last, value);
    }
    const_iterator get(const_iterator first, const_iterator last, int& value) const {
        return do_get(first, last, value);
    }
    const_iterator get(const_iterator first, const_iterator last, long& value) const {
        return do_get(first, last, value);
    }
    const_iterator get(const_iterator first, const_iterator last, bool& value) const {
        return do_get(first, last, value);
    }

  protected:
    /// Drops the counts on both facets.
    ~lu_num_get() override;

    // The slots in order, after the destructor.
    virtual const_iterator do_get(const_iterator first, const_iterator last, double& value) const;
    /// The double that the floating scanner reads, narrowed to float.
    virtual const_iterator do_get(const_iterator first, const_iterator last, float& value) const;
    virtual const_iterator do_get(const_iterator first, const_iterator last,
                                  unsigned short& value) const;
    virtual const_iterator do_get(const_iterator first, const_iterator last,
                                  unsigned int& value) const;
    virtual const_iterator do_get(const_iterator first, const_iterator last,
                                  unsigned long& value) const;
    virtual const_iterator do_get(const_iterator first, const_iterator last, short& value) const;
    virtual const_iterator do_get(const_iterator first, const_iterator last, int& value) const;
    virtual const_iterator do_get(const_iterator first, const_iterator last, long& value) const;
    /// Whether the integer read is non-zero; the boolean names aren't read and
    /// no integer is too large.
    virtual const_iterator do_get(const_iterator first, const_iterator last, bool& value) const;

  private:
    /// The character facet the floating scanner uses: the locale's, or the
    /// built-in tables when there is none.
    const lu_ctype& float_ctype() const;

    ilu_const_ptr<lu_numpunct> m_numpunct;
    ilu_const_ptr<lu_ctype> m_ctype;
};

#endif  // KAI18N_FACETS_LU_NUM_GET_H

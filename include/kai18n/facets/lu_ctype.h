// The character-class facet: classification and case of 16-bit code units.
#ifndef KAI18N_FACETS_LU_CTYPE_H
#define KAI18N_FACETS_LU_CTYPE_H

#include "kai18n/facets/lu_ctype_impl.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string.h"

/// The interface of the character-class facet, with the classification mask
/// and the public forwards of its virtual operations.
class lu_ctype_abc : public lu_locale::facet {
  public:
    typedef unsigned int mask;
    static const mask print = 0x0002;
    static const mask cntrl = 0x0004;
    static const mask upper = 0x0008;
    static const mask lower = 0x0010;
    static const mask alpha = 0x0020;
    static const mask digit = 0x0040;
    static const mask xdigit = 0x0100;
    static const mask graph = 0x0200;
    static const mask space = 0x200000;

    unsigned short* toupper(unsigned short* first, const unsigned short* last) const {
        return do_toupper(first, last);
    }
    unsigned short toupper(unsigned short c) const { return do_toupper(c); }
    unsigned short* tolower(unsigned short* first, const unsigned short* last) const {
        return do_tolower(first, last);
    }
    unsigned short tolower(unsigned short c) const { return do_tolower(c); }
    const unsigned char* widen(const unsigned char* first, const unsigned char* last,
                               unsigned short* target) const {
        return do_widen(first, last, target);
    }
    unsigned short widen(unsigned char c) const { return do_widen(c); }
    const unsigned short* narrow(const unsigned short* first, const unsigned short* last,
                                 unsigned char fallback, unsigned char* target) const {
        return do_narrow(first, last, fallback, target);
    }
    unsigned char narrow(unsigned short c, unsigned char fallback) const {
        return do_narrow(c, fallback);
    }
    const unsigned short* is(const unsigned short* first, const unsigned short* last,
                             mask* masks) const {
        return do_is(first, last, masks);
    }
    bool is(mask m, unsigned short c) const { return do_is(m, c); }
    const unsigned short* scan_is(mask m, const unsigned short* first,
                                  const unsigned short* last) const {
        return do_scan_is(m, first, last);
    }
    const unsigned short* scan_not(mask m, const unsigned short* first,
                                   const unsigned short* last) const {
        return do_scan_not(m, first, last);
    }

  protected:
    explicit lu_ctype_abc(unsigned int refs) : lu_locale::facet(refs) {}
    ~lu_ctype_abc() override;

    // The slots in order, after the destructor.
    virtual unsigned short* do_toupper(unsigned short* first, const unsigned short* last) const = 0;
    virtual unsigned short do_toupper(unsigned short c) const = 0;
    virtual unsigned short* do_tolower(unsigned short* first, const unsigned short* last) const = 0;
    virtual unsigned short do_tolower(unsigned short c) const = 0;
    virtual const unsigned char* do_widen(const unsigned char* first, const unsigned char* last,
                                          unsigned short* target) const = 0;
    virtual unsigned short do_widen(unsigned char c) const = 0;
    virtual const unsigned short* do_narrow(const unsigned short* first,
                                            const unsigned short* last, unsigned char fallback,
                                            unsigned char* target) const = 0;
    virtual unsigned char do_narrow(unsigned short c, unsigned char fallback) const = 0;
    virtual const unsigned short* do_is(const unsigned short* first, const unsigned short* last,
                                        mask* masks) const = 0;
    virtual bool do_is(mask m, unsigned short c) const = 0;
    virtual const unsigned short* do_scan_is(mask m, const unsigned short* first,
                                             const unsigned short* last) const = 0;
    virtual const unsigned short* do_scan_not(mask m, const unsigned short* first,
                                              const unsigned short* last) const = 0;
};

/// The character-class facet over a lu_ctype_impl.
class lu_ctype : public lu_ctype_abc {
  public:
    static lu_locale::id id;

    /// Uses the built-in tables.
    explicit lu_ctype(unsigned int refs = 0);
    /// Uses `storage`, which must outlive the facet; null means the built-in tables.
    lu_ctype(const lu_ctype_impl::StaticStorage* storage, unsigned int refs);

    /// The tables and every test on them.
    const lu_ctype_impl& impl() const { return m_impl; }

  protected:
    ~lu_ctype() override;

    unsigned short* do_toupper(unsigned short* first, const unsigned short* last) const override;
    unsigned short do_toupper(unsigned short c) const override;
    unsigned short* do_tolower(unsigned short* first, const unsigned short* last) const override;
    unsigned short do_tolower(unsigned short c) const override;
    const unsigned char* do_widen(const unsigned char* first, const unsigned char* last,
                                  unsigned short* target) const override;
    unsigned short do_widen(unsigned char c) const override;
    const unsigned short* do_narrow(const unsigned short* first, const unsigned short* last,
                                    unsigned char fallback, unsigned char* target) const override;
    unsigned char do_narrow(unsigned short c, unsigned char fallback) const override;
    const unsigned short* do_is(const unsigned short* first, const unsigned short* last,
                                mask* masks) const override;
    bool do_is(mask m, unsigned short c) const override;
    const unsigned short* do_scan_is(mask m, const unsigned short* first,
                                     const unsigned short* last) const override;
    const unsigned short* do_scan_not(mask m, const unsigned short* first,
                                      const unsigned short* last) const override;

  private:
    lu_ctype_impl m_impl;
};

/// A character-class facet cannot be built by name: the constructor builds the
/// base and then throws LUException with LU_E_FACET_BY_NAME.
class lu_ctype_byname : public lu_ctype {
  public:
    explicit lu_ctype_byname(const char* name, unsigned int refs = 0);

  protected:
    ~lu_ctype_byname() override;
};

/// `target` becomes `source` mapped unit by unit through the locale's
/// lu_ctype; the length never changes, and `target` may be `source`. Throws
/// LU_E_NO_FACET for a locale without the facet.
void lu_toupper(ucs2string& target, const ucs2string& source, const lu_locale& locale);
void lu_tolower(ucs2string& target, const ucs2string& source, const lu_locale& locale);

#endif  // KAI18N_FACETS_LU_CTYPE_H

// Numeric punctuation: decimal point, thousands separator, grouping, the way a
// negative number is marked, signs, digit tables, exponent letters, boolean
// names and the four default number patterns of a locale.
#ifndef KAI18N_FACETS_LU_NUMPUNCT_H
#define KAI18N_FACETS_LU_NUMPUNCT_H

#include <cstdint>

#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string.h"

class lu_numeric_punctuation : public lu_locale::facet {
  public:
    /// How a negative number is written; shown for minus one point five.
    enum eNegativeMode : std::int32_t {
        eParentheses = 0,      // (1.5)
        eSignBefore = 1,       // -1.5, the default
        eSignBlankBefore = 2,  // - 1.5
        eSignAfter = 3,        // 1.5-
        eBlankSignAfter = 4,   // 1.5 -
    };

    /// Units of the sign and digit block: signs, the lower- and upper-case
    /// digit tables for the values 0 to 15, the exponent letters.
    static const unsigned int kBlockSize = 36;
    static const unsigned int kPositiveSign = 0;
    static const unsigned int kNegativeSign = 1;
    static const unsigned int kLowerDigits = 2;
    static const unsigned int kUpperDigits = 18;
    static const unsigned int kLowerExponent = 34;
    static const unsigned int kUpperExponent = 35;
    /// The number of default number patterns.
    static const unsigned int kFormatCount = 4;

    /// The record in which locale data hands the values over. Every pointer
    /// points into constant data that outlives the facet.
    struct StaticStorage {
        std::int32_t mode;
        unsigned short decimal_point;
        unsigned short thousands_sep;          // 0: the locale has none
        const unsigned short* grouping;        // zero-terminated group sizes
        const unsigned short* block;           // kBlockSize units
        const unsigned short* const* formats;  // kFormatCount patterns
    };

    /// The defaults: mode 1, '.', no separator, no grouping,
    /// "+-0123456789abcdef0123456789ABCDEFeE", the built-in patterns.
    static const unsigned short* const kDefaultBlock;
    static const unsigned short* const kDefaultFormats[kFormatCount];

    explicit lu_numeric_punctuation(unsigned int refs = 0);
    /// Values from `storage`; null gives the defaults.
    lu_numeric_punctuation(const StaticStorage* const storage, unsigned int refs);

    unsigned short decimal_point() const { return do_decimal_point(); }
    unsigned short thousands_sep() const { return do_thousands_sep(); }
    void grouping(ucs2string& target) const { do_grouping(target); }
    const unsigned short* grouping() const { return do_grouping(); }
    eNegativeMode mode() const { return do_mode(); }
    unsigned short negative_sign() const { return do_negative_sign(); }
    unsigned short positive_sign() const { return do_positive_sign(); }
    unsigned short exponent_sign() const { return do_exponent_sign(); }
    const unsigned short* true_string() const { return do_true_string(); }
    const unsigned short* false_string() const { return do_false_string(); }

    // Direct reads of the fields, past any overriding.
    const unsigned short* GetDigits(bool upper) const {
        return m_block + (upper ? kUpperDigits : kLowerDigits);
    }
    unsigned short GetPositiveSign() const { return m_block[kPositiveSign]; }
    unsigned short GetNegativeSign() const { return m_block[kNegativeSign]; }
    unsigned short GetExponent(bool upper) const {
        return m_block[upper ? kUpperExponent : kLowerExponent];
    }
    eNegativeMode GetMode() const { return m_mode; }
    /// Entry `i` (0 to 3) of the default pattern table, unchecked.
    const unsigned short* GetFmtLibDefaultFormat(int i) const { return m_formats[i]; }

    /// Replaces these four values, the block by a copy of its 36 units; for a
    /// facet built by hand, before it is shared.
    void init(unsigned short decimal_point, unsigned short thousands_sep,
              const ucs2string& grouping, const unsigned short* block);

  protected:
    ~lu_numeric_punctuation() override;

    virtual unsigned short do_decimal_point() const;
    virtual unsigned short do_thousands_sep() const;
    virtual void do_grouping(ucs2string& target) const;
    virtual const unsigned short* do_grouping() const;
    virtual eNegativeMode do_mode() const;
    virtual unsigned short do_negative_sign() const;
    virtual unsigned short do_positive_sign() const;
    /// The lower-case letter, never the upper-case one.
    virtual unsigned short do_exponent_sign() const;
    /// "true" and "false", constant: no locale data reaches them.
    virtual const unsigned short* do_true_string() const;
    virtual const unsigned short* do_false_string() const;

  private:
    eNegativeMode m_mode;
    unsigned short m_decimal_point;
    unsigned short m_thousands_sep;
    ucs2string m_grouping;
    unsigned short m_block[kBlockSize];
    const unsigned short* const* m_formats;
};

/// The numeric punctuation facet of a locale, with the names of the two
/// boolean values ("true" and "false" until init_boolnames).
class lu_numpunct : public lu_numeric_punctuation {
  public:
    static lu_locale::id id;

    explicit lu_numpunct(unsigned int refs = 0);
    lu_numpunct(const StaticStorage* const storage, unsigned int refs);

    void truename(ucs2string& target) const { do_truename(target); }
    const unsigned short* truename() const { return do_truename(); }
    void falsename(ucs2string& target) const { do_falsename(target); }
    const unsigned short* falsename() const { return do_falsename(); }

    void init_boolnames(const ucs2string& true_name, const ucs2string& false_name);

  protected:
    ~lu_numpunct() override;

    virtual void do_truename(ucs2string& target) const;
    virtual const unsigned short* do_truename() const;
    virtual void do_falsename(ucs2string& target) const;
    virtual const unsigned short* do_falsename() const;

  private:
    ucs2string m_truename;
    ucs2string m_falsename;
};

#endif  // KAI18N_FACETS_LU_NUMPUNCT_H

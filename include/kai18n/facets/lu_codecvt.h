// The encoding-conversion facet: between the library's UTF-16 text and the
// narrow encoding of a locale.
//
// The facet converts nothing itself. It drives the encoding library (see
// kai18n/platform/char_encoding.h) for the encodings that library knows, and
// a kaConvertion (kai18n/platform/ka_convertion.h) for names known to that
// engine alone. It also holds the table that gives every encoding a locale
// can name its display name.
#ifndef KAI18N_FACETS_LU_CODECVT_H
#define KAI18N_FACETS_LU_CODECVT_H

#include <cstddef>
#include <cwchar>
#include <locale>
#include <string>

#include "kai18n/locale/lu_locale.h"
#include "kai18n/platform/char_encoding.h"
#include "kai18n/platform/ka_convertion.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/ucs2string.h"

/// The interface of the facet: the seven conversion slots after the
/// destructor, and their public forwards. Results are those of
/// std::codecvt_base: ok (0), partial (1), error (2), noconv (3).
class lu_codecvt_abc : public lu_locale::facet, public std::codecvt_base {
  public:
    typedef std::mbstate_t state_type;

    result out(state_type& state, const unsigned short* from, const unsigned short* fromEnd,
               const unsigned short*& fromNext, char* to, char* toEnd, char*& toNext) const {
        return do_out(state, from, fromEnd, fromNext, to, toEnd, toNext);
    }
    result unshift(state_type& state, char* to, char* toEnd, char*& toNext) const {
        return do_unshift(state, to, toEnd, toNext);
    }
    result in(state_type& state, const char* from, const char* fromEnd, const char*& fromNext,
              unsigned short* to, unsigned short* toEnd, unsigned short*& toNext) const {
        return do_in(state, from, fromEnd, fromNext, to, toEnd, toNext);
    }
    int encoding() const { return do_encoding(); }
    bool always_noconv() const { return do_always_noconv(); }
    int length(state_type& state, const char* from, const char* fromEnd, std::size_t max) const {
        return do_length(state, from, fromEnd, max);
    }
    int max_length() const { return do_max_length(); }

  protected:
    explicit lu_codecvt_abc(unsigned int refs) : lu_locale::facet(refs) {}
    ~lu_codecvt_abc() override;

    virtual result do_out(state_type& state, const unsigned short* from,
                          const unsigned short* fromEnd, const unsigned short*& fromNext, char* to,
                          char* toEnd, char*& toNext) const = 0;
    virtual result do_unshift(state_type& state, char* to, char* toEnd, char*& toNext) const = 0;
    virtual result do_in(state_type& state, const char* from, const char* fromEnd,
                         const char*& fromNext, unsigned short* to, unsigned short* toEnd,
                         unsigned short*& toNext) const = 0;
    virtual int do_encoding() const = 0;
    virtual bool do_always_noconv() const = 0;
    virtual int do_length(state_type& state, const char* from, const char* fromEnd,
                          std::size_t max) const = 0;
    virtual int do_max_length() const = 0;
};

/// The facet over an encoding of the encoding library, or over a
/// kaConvertion. Failures of either engine leave as LUException:
/// LU_E_ENCODING, or LU_E_OUT_OF_RANGE for a range the engine refuses.
class lu_codecvt : public lu_codecvt_abc {
  public:
    static lu_locale::id id;

    /// CP1252 and UTF-16, without a kaConvertion.
    explicit lu_codecvt(unsigned int refs = 0);
    /// Stores all four; the facet owns `conversion` from here on, even when
    /// `useConversion` is false, and deletes it.
    lu_codecvt(unsigned int refs, const CharEncoding& external, const Char16Encoding& internal,
               kaConvertion* conversion, bool useConversion);

    /// The bytes [first, last) in the facet's encoding to UTF-16 in `target`,
    /// which loses what it held. Through a kaConvertion an empty input throws
    /// LU_E_OUT_OF_RANGE; through the encoding library it gives an empty
    /// target.
    void SetString(const char* first, const char* last, ucs2string& target) const;
    /// The same text to UTF-8.
    void SetString(const char* first, const char* last, lu_utf8string& target) const;
    /// The units [first, last) to the facet's encoding in `target`.
    void SetNarrowString(const unsigned short* first, const unsigned short* last,
                         std::string& target) const;

    /// The display name of the encoding whose technical name is exactly
    /// `name` (compared byte by byte, so case counts), as UTF-8; `name` then
    /// points at the table's own copy of the name, which lives as long as the
    /// library. Null, with `name` unchanged, for any other name.
    static const unsigned char* GetEncodingDisplayName(const char*& name);

    const CharEncoding& GetExternalEncoding() const { return *m_external; }
    const Char16Encoding& GetInternalEncoding() const { return *m_internal; }
    /// True when text goes through the kaConvertion.
    bool UsesConversion() const { return m_useConversion; }
    const kaConvertion* GetConversion() const { return m_conversion; }

  protected:
    ~lu_codecvt() override;

    /// Converts the whole input into the output range through the encoding
    /// library (never the kaConvertion); what does not fit is dropped.
    /// Reports the whole input consumed and the whole output used, and gives
    /// partial for a non-empty input, ok for an empty one.
    result do_out(state_type& state, const unsigned short* from, const unsigned short* fromEnd,
                  const unsigned short*& fromNext, char* to, char* toEnd,
                  char*& toNext) const override;
    /// noconv, with `toNext` set to `to`.
    result do_unshift(state_type& state, char* to, char* toEnd, char*& toNext) const override;
    /// As do_out in the other direction; always ok.
    result do_in(state_type& state, const char* from, const char* fromEnd, const char*& fromNext,
                 unsigned short* to, unsigned short* toEnd, unsigned short*& toNext) const override;
    /// 1.
    int do_encoding() const override;
    /// false.
    bool do_always_noconv() const override;
    /// The smaller of the byte count and `max`.
    int do_length(state_type& state, const char* from, const char* fromEnd,
                  std::size_t max) const override;
    /// 1.
    int do_max_length() const override;

    const CharEncoding* m_external;
    const Char16Encoding* m_internal;
    bool m_useConversion;
    kaConvertion* m_conversion;

  private:
    void ToUnitsThroughConversion(const char* first, const char* last, ucs2string& target) const;
};

/// The facet for an encoding named as a locale names it. The encoding
/// library serves the names it knows; a name known only to kaConvertion goes
/// through a kaConvertion; a null or empty name gives CP1252. Any other name
/// throws LUException LU_E_ENCODING.
class lu_codecvt_byname : public lu_codecvt {
  public:
    explicit lu_codecvt_byname(const char* name, unsigned int refs = 0);

  protected:
    ~lu_codecvt_byname() override;
};

#endif  // KAI18N_FACETS_LU_CODECVT_H

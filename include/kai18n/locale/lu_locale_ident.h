// The identity facet of a locale: language, country, encoding and sort order,
// as codes for programs and names for people. Only locales from the catalog
// have one; the classic locale has none.
#ifndef KAI18N_LOCALE_LU_LOCALE_IDENT_H
#define KAI18N_LOCALE_LU_LOCALE_IDENT_H

#include <string>

#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string.h"

/// Every public member calls the protected slot of the same name with "do_";
/// the name slots that give a pointer give an empty string for a null one.
class lu_locale_ident : public lu_locale::facet {
  public:
    static lu_locale::id id;

    std::string locale_name() const { return do_locale_name(); }
    ucs2string locale_display_name(bool withDetails) const {
        return do_locale_display_name(withDetails);
    }
    const char* identification_code() const { return do_identification_code(); }
    ucs2string country_long_name() const { return Text(do_country_long_name()); }
    ucs2string country_name() const { return Text(do_country_name()); }
    const char* country_code_2() const { return do_country_code_2(); }
    const char* country_code_3() const { return do_country_code_3(); }
    ucs2string language_display_name() const { return Text(do_language_display_name()); }
    const unsigned short* language_english_name() const { return do_language_english_name(); }
    const char* language_code_2() const { return do_language_code_2(); }
    const char* language_code_3() const { return do_language_code_3(); }
    /// Decoded from UTF-8.
    ucs2string sort_order_display_name() const { return Text(do_sort_order_display_name()); }
    const char* sort_order_technical_name() const { return do_sort_order_technical_name(); }
    /// Decoded from UTF-8.
    ucs2string encoding_display_name() const { return Text(do_encoding_display_name()); }
    const char* encoding_technical_name() const { return do_encoding_technical_name(); }

  protected:
    explicit lu_locale_ident(unsigned int refs) : lu_locale::facet(refs) {}
    ~lu_locale_ident() override;

    // The slots in order, after the destructor.
    virtual std::string do_locale_name() const = 0;
    virtual ucs2string do_locale_display_name(bool withDetails) const = 0;
    virtual const char* do_identification_code() const = 0;
    virtual const unsigned short* do_country_long_name() const = 0;
    virtual const unsigned short* do_country_name() const = 0;
    virtual const char* do_country_code_2() const = 0;
    virtual const char* do_country_code_3() const = 0;
    virtual const unsigned short* do_language_display_name() const = 0;
    virtual const unsigned short* do_language_english_name() const = 0;
    virtual const char* do_language_code_2() const = 0;
    virtual const char* do_language_code_3() const = 0;
    virtual const unsigned char* do_sort_order_display_name() const = 0;
    virtual const char* do_sort_order_technical_name() const = 0;
    virtual const unsigned char* do_encoding_display_name() const = 0;
    virtual const char* do_encoding_technical_name() const = 0;

  private:
    static ucs2string Text(const unsigned short* units);
    static ucs2string Text(const unsigned char* utf8);
};

#endif  // KAI18N_LOCALE_LU_LOCALE_IDENT_H

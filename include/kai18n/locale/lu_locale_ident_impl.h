// The identity facet over a record of seven pointers from locale data.
#ifndef KAI18N_LOCALE_LU_LOCALE_IDENT_IMPL_H
#define KAI18N_LOCALE_LU_LOCALE_IDENT_IMPL_H

#include "kai18n/locale/lu_locale_ident.h"

class lu_locale_ident_impl : public lu_locale_ident {
  public:
    /// The identity record: seven pointers into constant data that outlives
    /// the facet. A locale without a language has a null `language` and its
    /// identification code (such as "i18n") in `country`.
    struct StaticStorage {
        const char* country;                           // two-letter code, or identification code
        const char* language;                          // two-letter code, or null
        const unsigned char* sort_order_display_name;  // UTF-8
        const char* sort_order_technical_name;
        const unsigned char* encoding_display_name;  // UTF-8
        const char* encoding_technical_name;
        const unsigned short* display_name;  // complete display name, or null
    };

    /// The built-in identity: "i18n", no language, "Unicode collation"/"i18n",
    /// "Western European (Windows)"/"CP1252", "International".
    static const StaticStorage* GetDefaultIdent();

    /// The default identity with `refs` 0.
    lu_locale_ident_impl();
    /// Keeps the record's seven fields; null means the default identity.
    lu_locale_ident_impl(const StaticStorage* const storage, unsigned int refs);

    const StaticStorage& record() const { return m_record; }

  protected:
    ~lu_locale_ident_impl() override;

    std::string do_locale_name() const override;
    ucs2string do_locale_display_name(bool withDetails) const override;
    const char* do_identification_code() const override;
    const unsigned short* do_country_long_name() const override;
    const unsigned short* do_country_name() const override;
    const char* do_country_code_2() const override;
    const char* do_country_code_3() const override;
    const unsigned short* do_language_display_name() const override;
    const unsigned short* do_language_english_name() const override;
    const char* do_language_code_2() const override;
    const char* do_language_code_3() const override;
    const unsigned char* do_sort_order_display_name() const override;
    const char* do_sort_order_technical_name() const override;
    const unsigned char* do_encoding_display_name() const override;
    const char* do_encoding_technical_name() const override;

  private:
    StaticStorage m_record;
};

#endif  // KAI18N_LOCALE_LU_LOCALE_IDENT_IMPL_H

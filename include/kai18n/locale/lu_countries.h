// The constant table of countries: ISO 3166 two- and three-letter codes,
// numeric codes, names and formal state names.
#ifndef KAI18N_LOCALE_LU_COUNTRIES_H
#define KAI18N_LOCALE_LU_COUNTRIES_H

#include "kai18n/locale/lu_languages.h"

/// The 240 countries in the order of their two-letter codes, which are in
/// upper case.
class lu_countries {
  public:
    /// The numeric code of a country that has none.
    static const unsigned int kNoNumericCode = 65535;

    /// One row. Every member is constant data of the library.
    struct country {
        const char* m_isoCode2;
        const char* m_isoCode3;
        unsigned int m_numericCode;  // or kNoNumericCode
        const unsigned short* m_name;
        const unsigned short* m_longName;  // the formal state name, or null

        const char* GetIsoCode2() const { return m_isoCode2; }
        const char* GetIsoCode3() const { return m_isoCode3; }
        unsigned int GetNumericCode() const { return m_numericCode; }
        const unsigned short* GetName() const { return m_name; }
        /// The formal state name, or null where the table has none.
        const unsigned short* GetLongName() const { return m_longName; }
    };

    static const country* begin();
    static const country* end();
    /// The row of the first two characters of `code`, case counting ("DE"
    /// finds Germany, "de" nothing); `end()` when there is none.
    static const country* LookUpByTwoLetters(const char* const code);
    /// The first row with the three characters of `code`; `end()` when there
    /// is none.
    static const country* LookUpByThreeLetters(const char* const code);

  private:
    // In src/locale/country_table.cpp, constant-initialised.
    static const country s_rows[];
    static const unsigned int s_rowCount;
};

#endif  // KAI18N_LOCALE_LU_COUNTRIES_H

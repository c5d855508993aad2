// Settings: a locale joined to the user's preferences, with the facets
// resolved once. Immutable after creation and shared by count between the
// formatters built on it.
#ifndef KAI18N_FMTLIB_LU_SETTINGS_H
#define KAI18N_FMTLIB_LU_SETTINGS_H

#include <bitset>
#include <memory>

#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/locale/lu_locale.h"

class lu_numpunct;
class lu_ctime;
class lu_ctype;

namespace FmtLib {

class luSettingsImp;

class luSettings : public iluSharedObject {
  public:
    ~luSettings() override;
    /// The canonical text of a fmtLibDefaultFormats value: 0 to 14 from the
    /// date facet, 20 to 23 from the number facet, 24 the boolean layout;
    /// null for anything else.
    virtual const unsigned short* GetFmtLibDefaultFormat(int format) const = 0;
    virtual const luSettingsImp* GetImp() const = 0;

  protected:
    luSettings() : iluSharedObject(0) {}
};

class luSettingsImp : public luSettings {
  public:
    /// Copies `locale` and resolves its facets; throws LUException with
    /// 0x8004112b when one is missing.
    luSettingsImp(const lu_locale& locale, const ilu_ptr<luPreferences>& preferences);
    ~luSettingsImp() override;
    luSettingsImp(const luSettingsImp&) = delete;
    luSettingsImp& operator=(const luSettingsImp&) = delete;

    const unsigned short* GetFmtLibDefaultFormat(int format) const override;
    const luSettingsImp* GetImp() const override { return this; }

    // Each prefers the preference, when set, to the locale.
    unsigned short DecimalPoint() const;
    unsigned short ThousandsSep() const;
    const unsigned short* TrueString() const;
    const unsigned short* FalseString() const;
    // The locale's own; no preference reaches them.
    unsigned short NegativeSign() const;
    unsigned short PositiveSign() const;
    unsigned short ExponentSign() const;
    /// Whether a grouping separator stands ahead of the digit that has `n`
    /// digits to its right (0 to 255; anything else is false).
    bool IsGroupPosition(int n) const { return n >= 0 && n < 256 && m_grouping[n]; }
    /// The locale's name for before noon (0) or after noon (1), or "AM" / "PM"
    /// when it has none.
    const unsigned short* AmPmName(int index) const;

    /// The locale's digits for the values 0 to 9 (and on to 15), lower case.
    const unsigned short* Digits() const { return m_digits; }
    const lu_locale& Locale() const { return *m_locale; }
    const lu_numpunct& NumberFacet() const { return *m_numpunct; }
    const lu_ctime& DateFacet() const { return *m_ctime; }
    const lu_ctype& CharacterFacet() const { return *m_ctype; }

  private:
    ilu_ptr<luPreferences> m_preferences;
    const luPreferencesImp* m_values;
    std::unique_ptr<lu_locale> m_locale;  // keeps the facets alive
    const lu_numpunct* m_numpunct;
    std::bitset<256> m_grouping;
    const unsigned short* m_digits;
    const lu_ctime* m_ctime;
    const lu_ctype* m_ctype;
};

/// Settings for `locale` and `prefs` (which must hold a store; a caller with
/// no wishes passes an empty, built one) in `out`. 0, or 0x80004005 when a
/// facet is missing or anything else was thrown, with `out` unchanged.
long CreateSettings(const lu_locale& locale, ilu_ptr<luPreferences>& prefs,
                    ilu_ptr<luSettings>& out);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_SETTINGS_H

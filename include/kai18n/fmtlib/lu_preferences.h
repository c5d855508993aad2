// Preferences: a small keyed store of what a user wants to differ from the
// locale. Four keys mean something to the formatters: "decimal_point",
// "thousands_sep", "true_word" and "false_word", each read as a string.
//
//     ilu_ptr<luPreferences> prefs;
//     CreatePreferences(prefs);
//     prefs->AddPreference("decimal_point", ucs2string(reinterpret_cast<const unsigned
//     char*>(","))); prefs->EndBuild();  // the formatters see the values from here on
#ifndef KAI18N_FMTLIB_LU_PREFERENCES_H
#define KAI18N_FMTLIB_LU_PREFERENCES_H

#include <map>
#include <string>

#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/ucs2string.h"

namespace FmtLib {

/// One stored value: a string or a number.
class luPref {
  public:
    virtual bool IsString() const = 0;
    /// Copies the text and returns true for a string; otherwise false.
    virtual bool GetString(ucs2string& value) const = 0;
    /// Copies the number and returns true for a number; otherwise false.
    virtual bool GetLong(long& value) const = 0;
    virtual ~luPref();
};

class luPreferencesImp;

/// The store. Open until EndBuild, read-only after. Counted: hold it through
/// ilu_ptr.
class luPreferences : public iluSharedObject {
  public:
    ~luPreferences() override;
    /// Stores a number under `key`; false once built or if the key is present
    /// (the first value stays).
    virtual bool AddPreference(const char* key, long value) = 0;
    /// Stores a text under `key`; false once built or if the key is present.
    virtual bool AddPreference(const char* key, const ucs2string& value) = 0;
    /// Deletes the value of `key`; false once built or if the key is absent.
    virtual bool RemovePreference(const char* key) = 0;
    /// Freezes the store and takes the four meaningful keys' texts; numbers
    /// under those keys are ignored. Returns false, which means nothing.
    virtual bool EndBuild() = 0;
    /// The value of `key`; meaningful only when `found` comes back true.
    virtual const luPref& GetAt(const char* key, bool& found) const = 0;
    virtual const luPreferencesImp* GetImp() const = 0;

  protected:
    luPreferences() : iluSharedObject(0) {}
};

class luPreferencesImp : public luPreferences {
  public:
    luPreferencesImp();
    ~luPreferencesImp() override;
    /// Copies the four texts, their flags and the built flag, and gives this
    /// store its own copies of the other's values.
    luPreferencesImp& operator=(const luPreferencesImp& other);
    luPreferencesImp(const luPreferencesImp&) = delete;

    bool AddPreference(const char* key, long value) override;
    bool AddPreference(const char* key, const ucs2string& value) override;
    bool RemovePreference(const char* key) override;
    bool EndBuild() override;
    const luPref& GetAt(const char* key, bool& found) const override;
    const luPreferencesImp* GetImp() const override { return this; }

    bool IsBuild() const { return m_built; }
    bool IsDecimalPoint() const { return m_hasDecimalPoint; }
    bool IsThousandsSep() const { return m_hasThousandsSep; }
    bool IsTrue() const { return m_hasTrue; }
    bool IsFalse() const { return m_hasFalse; }
    /// The first unit of the text, or 0 when not set (or set to "").
    unsigned short decimal_point() const { return FirstUnit(m_hasDecimalPoint, m_decimalPoint); }
    unsigned short thousands_sep() const { return FirstUnit(m_hasThousandsSep, m_thousandsSep); }
    /// The text, or null when not set.
    const unsigned short* true_string() const { return m_hasTrue ? m_true.c_str() : nullptr; }
    const unsigned short* false_string() const { return m_hasFalse ? m_false.c_str() : nullptr; }

    /// Each stored key and value, for a copy of the store.
    const std::map<std::string, luPref*>& Entries() const { return m_store; }

  private:
    static unsigned short FirstUnit(bool set, const ucs2string& text) {
        return set && !text.empty() ? text.data()[0] : 0;
    }
    bool Add(const char* key, luPref* value);
    void Clear();

    bool m_built;
    std::map<std::string, luPref*> m_store;  // owns the values
    ucs2string m_decimalPoint;
    ucs2string m_thousandsSep;
    ucs2string m_true;
    ucs2string m_false;
    bool m_hasDecimalPoint;
    bool m_hasThousandsSep;
    bool m_hasTrue;
    bool m_hasFalse;
};

/// A new empty, open store in `out`. 0, or 0x80004005 if anything was thrown;
/// `out` is left empty if no memory could be had.
long CreatePreferences(ilu_ptr<luPreferences>& out);
/// An open copy of `source` in `out`: every entry added again, no flag set, so
/// that the caller may change it and must call EndBuild. Codes as above.
long CreatePreferences(const luPreferences& source, ilu_ptr<luPreferences>& out);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_PREFERENCES_H

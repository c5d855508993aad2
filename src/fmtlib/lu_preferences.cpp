#include "kai18n/fmtlib/lu_preferences.h"

#include <memory>
#include <new>

#include "kai18n/frame/result_codes.h"

namespace FmtLib {
namespace {

class luPrefImp final : public luPref {
  public:
    explicit luPrefImp(long value) : m_isString(false), m_long(value) {}
    explicit luPrefImp(const ucs2string& value) : m_isString(true), m_string(value), m_long(0) {}

    bool IsString() const override { return m_isString; }
    bool GetString(ucs2string& value) const override {
        if (!m_isString) return false;
        value = m_string;
        return true;
    }
    bool GetLong(long& value) const override {
        if (m_isString) return false;
        value = m_long;
        return true;
    }

  private:
    bool m_isString;
    ucs2string m_string;
    long m_long;
};

// A new value of the same kind as `pref`.
luPref* CopyOf(const luPref& pref) {
    ucs2string text;
    if (pref.GetString(text)) return new luPrefImp(text);
    long number = 0;
    pref.GetLong(number);
    return new luPrefImp(number);
}

// Runs a factory body: every exception becomes the general failure, and
// running out of memory leaves `out` empty with success.
template <class Body>
long RunFactory(Body body) {
    try {
        body();
        return LU_S_SUCCESS;
    } catch (const std::bad_alloc&) {
        return LU_S_SUCCESS;
    } catch (...) {
        return LU_E_FAIL;
    }
}

}  // namespace

luPref::~luPref() = default;
luPreferences::~luPreferences() = default;

luPreferencesImp::luPreferencesImp()
    : m_built(false),
      m_hasDecimalPoint(false),
      m_hasThousandsSep(false),
      m_hasTrue(false),
      m_hasFalse(false) {}

luPreferencesImp::~luPreferencesImp() {
    Clear();
}

void luPreferencesImp::Clear() {
    for (auto& entry : m_store) delete entry.second;
    m_store.clear();
}

luPreferencesImp& luPreferencesImp::operator=(const luPreferencesImp& other) {
    if (this == &other) return *this;
    std::map<std::string, luPref*> copies;
    try {
        for (const auto& entry : other.m_store) {
            std::unique_ptr<luPref> copy(CopyOf(*entry.second));
            copies.emplace(entry.first, copy.get());
            copy.release();
        }
    } catch (...) {
        for (auto& entry : copies) delete entry.second;
        throw;
    }
    Clear();
    m_store.swap(copies);
    m_built = other.m_built;
    m_decimalPoint = other.m_decimalPoint;
    m_thousandsSep = other.m_thousandsSep;
    m_true = other.m_true;
    m_false = other.m_false;
    m_hasDecimalPoint = other.m_hasDecimalPoint;
    m_hasThousandsSep = other.m_hasThousandsSep;
    m_hasTrue = other.m_hasTrue;
    m_hasFalse = other.m_hasFalse;
    return *this;
}

bool luPreferencesImp::Add(const char* key, luPref* value) {
    std::unique_ptr<luPref> owned(value);
    if (m_built || key == nullptr || m_store.count(key) != 0) return false;
    m_store.emplace(key, owned.get());
    owned.release();
    return true;
}

bool luPreferencesImp::AddPreference(const char* key, long value) {
    if (m_built) return false;
    return Add(key, new luPrefImp(value));
}

bool luPreferencesImp::AddPreference(const char* key, const ucs2string& value) {
    if (m_built) return false;
    return Add(key, new luPrefImp(value));
}

bool luPreferencesImp::RemovePreference(const char* key) {
    if (m_built || key == nullptr) return false;
    const auto found = m_store.find(key);
    if (found == m_store.end()) return false;
    delete found->second;
    m_store.erase(found);
    return true;
}

bool luPreferencesImp::EndBuild() {
    if (m_built) return false;
    const struct {
        const char* key;
        ucs2string* value;
        bool* flag;
    } keys[] = {
        {"decimal_point", &m_decimalPoint, &m_hasDecimalPoint},
        {"thousands_sep", &m_thousandsSep, &m_hasThousandsSep},
        {"true_word", &m_true, &m_hasTrue},
        {"false_word", &m_false, &m_hasFalse},
    };
    for (const auto& k : keys) {
        const auto found = m_store.find(k.key);
        if (found != m_store.end() && found->second->GetString(*k.value)) *k.flag = true;
    }
    m_built = true;
    return false;
}

const luPref& luPreferencesImp::GetAt(const char* key, bool& found) const {
    static const luPrefImp kNothing(0L);
    const auto entry = key != nullptr ? m_store.find(key) : m_store.end();
    found = entry != m_store.end();
    if (found) return *entry->second;
    return kNothing;
}

long CreatePreferences(ilu_ptr<luPreferences>& out) {
    return RunFactory([&] { out = new luPreferencesImp(); });
}

long CreatePreferences(const luPreferences& source, ilu_ptr<luPreferences>& out) {
    return RunFactory([&] {
        ilu_ptr<luPreferences> copy(new luPreferencesImp());
        for (const auto& entry : source.GetImp()->Entries()) {
            ucs2string text;
            long number = 0;
            if (entry.second->GetString(text))
                copy->AddPreference(entry.first.c_str(), text);
            else if (entry.second->GetLong(number))
                copy->AddPreference(entry.first.c_str(), number);
        }
        out = copy;
    });
}

}  // namespace FmtLib

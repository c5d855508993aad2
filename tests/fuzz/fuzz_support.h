// Checks and readers shared by the fuzz targets: a failed check aborts, which libFuzzer
// reports as a crash with the input that caused it.
#ifndef KAI18N_TESTS_FUZZ_FUZZ_SUPPORT_H
#define KAI18N_TESTS_FUZZ_FUZZ_SUPPORT_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <utility>
#include <vector>

#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/ucs2string.h"

inline void Check(bool condition) {
    if (!condition) std::abort();
}

// Runs `action`; an LUException may come out only with `code`. Returns whether one came out.
template <class Action>
bool ThrowsOnly(long code, Action&& action) {
    try {
        action();
    } catch (const LUException& error) {
        Check(error.GetResult() == code);
        return true;
    }
    return false;
}

using Units = std::vector<unsigned short>;

// The bytes of the input, read front to back; past the end every read is 0.
class FuzzInput {
  public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
    bool more() const { return m_pos < m_size; }
    unsigned byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    unsigned short unit() {
        const unsigned high = byte();
        return static_cast<unsigned short>(high << 8 | byte());
    }
    std::uint32_t u32() {
        const std::uint32_t high = unit();
        return high << 16 | unit();
    }
    std::uint64_t u64() {
        const std::uint64_t high = u32();
        return high << 32 | u32();
    }
    // A value made of the next bytes, bit for bit.
    template <class T>
    T bits() {
        unsigned char bytes[sizeof(T)];
        for (unsigned char& b : bytes) b = static_cast<unsigned char>(byte());
        T value;
        std::memcpy(&value, bytes, sizeof value);
        return value;
    }
    // The rest of the input as text: a byte below 0xC0 picks one of `pieces`; any other byte and
    // the two after it make one UTF-16 unit, a zero unit kept only with `zeros`.
    Units text(const std::vector<Units>& pieces, bool zeros) {
        Units out;
        while (more()) {
            const unsigned b = byte();
            const Units& piece = pieces[b % pieces.size()];
            if (b < 0xC0) out.insert(out.end(), piece.begin(), piece.end());
            const unsigned short u = b < 0xC0 ? 0 : unit();
            if (b >= 0xC0 && (zeros || u != 0)) out.push_back(u);
        }
        return out;
    }

  private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_pos = 0;
};

inline ucs2string Ascii(const char* text) {
    return ucs2string(reinterpret_cast<const unsigned char*>(text));
}
inline ucs2string Ucs2(const Units& units) {
    static const unsigned short none = 0;
    return ucs2string(units.empty() ? &none : units.data(), static_cast<unsigned>(units.size()));
}

// A zero-terminated text copied into a vector of exactly its size, for ASan.
inline Units Exact(const unsigned short* text) {
    std::size_t length = 0;
    while (text[length] != 0) ++length;
    return Units(text, text + length + 1);
}

// The pieces of `text` between the '|'.
inline std::vector<Units> Split(const char16_t* text) {
    std::vector<Units> pieces(1);
    for (; *text != 0; ++text)
        *text == u'|' ? void(pieces.emplace_back()) : pieces.back().push_back(*text);
    return pieces;
}

// Settings of `locale` with the given text preferences.
inline ilu_ptr<FmtLib::luSettings> MakeSettings(
    const lu_locale& locale,
    std::initializer_list<std::pair<const char*, const char*>> wishes = {}) {
    ilu_ptr<FmtLib::luPreferences> prefs;
    Check(FmtLib::CreatePreferences(prefs) == 0 && prefs);
    for (const auto& wish : wishes) prefs->AddPreference(wish.first, Ascii(wish.second));
    prefs->EndBuild();
    ilu_ptr<FmtLib::luSettings> settings;
    Check(FmtLib::CreateSettings(locale, prefs, settings) == 0 && settings);
    return settings;
}

#endif  // KAI18N_TESTS_FUZZ_FUZZ_SUPPORT_H

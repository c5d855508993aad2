// Checks and readers shared by the fuzz targets: a failed check aborts, which libFuzzer
// reports as a crash with the input that caused it.
#ifndef KAI18N_TESTS_FUZZ_FUZZ_SUPPORT_H
#define KAI18N_TESTS_FUZZ_FUZZ_SUPPORT_H

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/lu_utf8_traits.h"
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
// A result stored here keeps the call that made it from being optimised away.
inline volatile double g_sink;
template <class String>
bool Terminated(const String& s) {
    return s.c_str()[s.length()] == 0;
}
// The length of a zero-terminated text, counted to at most `limit` + 1.
inline std::size_t Length(const unsigned short* text, std::size_t limit) {
    std::size_t length = 0;
    while (length <= limit && text[length] != 0) ++length;
    return length;
}

using Units = std::vector<unsigned short>;
using Limits = std::numeric_limits<double>;

// The bytes of the input, read front to back; past the end every read is 0.
class FuzzInput {
  public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
    bool more() const { return m_pos < m_size; }
    unsigned byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    // Values of the next 2, 4 or 8 bytes, big-endian.
    unsigned short unit() { return static_cast<unsigned short>(u64(2)); }
    std::uint32_t u32() { return static_cast<std::uint32_t>(u64(4)); }
    std::uint64_t u64(int bytes = 8) {
        std::uint64_t value = 0;
        while (bytes-- > 0) value = value << 8 | byte();
        return value;
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
    // The rest of the input as text: a byte below `raw` picks one of `pieces`; any other byte and
    // the two after it make one UTF-16 unit, a zero unit kept only with `zeros`.
    Units text(const std::vector<Units>& pieces, bool zeros, unsigned raw = 0xC0) {
        Units out;
        while (more()) {
            const unsigned b = byte();
            const Units& piece = pieces[b % pieces.size()];
            if (b < raw) out.insert(out.end(), piece.begin(), piece.end());
            const unsigned short u = b < raw ? 0 : unit();
            if (b >= raw && (zeros || u != 0)) out.push_back(u);
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
    return Units(text, text + Length(text, SIZE_MAX - 1) + 1);
}
// The pieces of `text` between the '|'.
inline std::vector<Units> Split(const char16_t* text) {
    std::vector<Units> pieces(1);
    for (; *text != 0; ++text)
        *text == u'|' ? void(pieces.emplace_back()) : pieces.back().push_back(*text);
    return pieces;
}

// The pattern that `format` must read from `text`.
inline std::unique_ptr<FmtLib::luFmtPattern> Read(FmtLib::luStringFormat& format,
                                                  const ucs2string& text) {
    FmtLib::luFmtPattern* pattern = nullptr;
    Check(format.ToPattern(text, pattern) == 0 && pattern != nullptr);
    return std::unique_ptr<FmtLib::luFmtPattern>(pattern);
}
// A formatter's result: zero-terminated within `bound` units, with a colour from 0 to 16.
inline void CheckResult(const unsigned short* text, std::size_t bound, int colour) {
    Check(text != nullptr && Length(text, bound) <= bound && colour >= 0 && colour <= 16);
}

// Settings of `locale` with the given text preferences.
using Wishes = std::initializer_list<std::pair<const char*, const char*>>;
inline ilu_ptr<FmtLib::luSettings> MakeSettings(const lu_locale& locale, Wishes wishes = {}) {
    ilu_ptr<FmtLib::luPreferences> prefs;
    Check(FmtLib::CreatePreferences(prefs) == 0 && prefs);
    for (const auto& wish : wishes) prefs->AddPreference(wish.first, Ascii(wish.second));
    prefs->EndBuild();
    ilu_ptr<FmtLib::luSettings> settings;
    Check(FmtLib::CreateSettings(locale, prefs, settings) == 0 && settings);
    return settings;
}
inline std::vector<ilu_ptr<FmtLib::luSettings>> SevenSettings() {
    std::vector<ilu_ptr<FmtLib::luSettings>> all;
    for (const char* name : {"en_US", "de_DE", "ar_EG", "ja_JP", "fr_FR", "hi_IN"})
        all.push_back(MakeSettings(lu_locale(name)));
    all.push_back(MakeSettings(lu_locale::classic()));
    return all;
}

#endif  // KAI18N_TESTS_FUZZ_FUZZ_SUPPORT_H

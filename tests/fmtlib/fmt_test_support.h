// Helpers of the format library tests: UTF-8 in and out, patterns by their text, token lists,
// and settings made from a locale and a few preferences.
#ifndef KAI18N_TESTS_FMT_TEST_SUPPORT_H
#define KAI18N_TESTS_FMT_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/strings/ucs2string.h"

namespace fmt_test {

inline ucs2string U(const std::string& utf8) {
    return ucs2string(reinterpret_cast<const unsigned char*>(utf8.data()),
                      static_cast<unsigned int>(utf8.size()));
}

// Written here rather than by the library, so that expectations stand apart.
inline std::string Utf8(const ucs2string& text) {
    static const unsigned char kLead[] = {0, 0xC0, 0xE0, 0xF0};
    std::string out;
    for (unsigned int i = 0; i < text.length(); ++i) {
        unsigned int c = text.data()[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.length())
            c = 0x10000 + ((c - 0xD800) << 10) + (text.data()[++i] - 0xDC00);
        const int tail = c < 0x80 ? 0 : c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        out += static_cast<char>(kLead[tail] | (c >> (6 * tail)));
        for (int k = tail - 1; k >= 0; --k)
            out += static_cast<char>(0x80 | ((c >> (6 * k)) & 0x3F));
    }
    return out;
}

inline std::string Utf8(const unsigned short* text) {
    return Utf8(ucs2string(text));
}

// The tokens of a pattern as numbers, each literal as 1 with its text in `literals`.
struct TokenList {
    std::vector<int> ids;
    std::vector<std::string> literals;
    bool operator==(const TokenList& o) const { return ids == o.ids && literals == o.literals; }
};

inline void PrintTo(const TokenList& list, std::ostream* os) {
    for (int id : list.ids) *os << id << ' ';
    for (const std::string& text : list.literals) *os << "'" << text << "' ";
}

inline const TokenList kError{{FmtLib::TokError}, {}};

inline TokenList Tokens(const FmtLib::luFmtPattern& pattern) {
    TokenList list;
    for (const FmtLib::luToken* token : pattern) {
        list.ids.push_back(token->TokenId());
        if (token->IsLiteral())
            list.literals.push_back(Utf8(ucs2string(token->LiteralText(), token->LiteralLength())));
    }
    return list;
}

inline std::unique_ptr<FmtLib::luFmtPattern> Parse(FmtLib::luStringFormat& format,
                                                   const std::string& text) {
    FmtLib::luFmtPattern* pattern = nullptr;
    format.ToPattern(U(text), pattern);
    return std::unique_ptr<FmtLib::luFmtPattern>(pattern);
}

inline std::string Print(FmtLib::luStringFormat& format, const FmtLib::luFmtPattern& pattern) {
    ucs2string text;
    format.FromPattern(pattern, text);
    return Utf8(text);
}

// The classic locale with the number punctuation `punct`.
inline lu_locale NumberLocale(lu_numpunct* punct) {
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    impl->_M_install_facet(&lu_numpunct::id, punct);
    impl->_M_install_facet(&lu_num_put::id, new lu_num_put(punct, 0));
    return lu_locale(impl);
}

// The classic locale with "." and "," and the given group sizes.
inline lu_locale GroupedLocale(std::initializer_list<unsigned short> sizes) {
    auto* punct = new lu_numpunct(0u);
    punct->init('.', ',', ucs2string(sizes.begin(), static_cast<unsigned int>(sizes.size())),
                lu_numeric_punctuation::kDefaultBlock);
    return NumberLocale(punct);
}

using Prefs = std::initializer_list<std::pair<const char*, const char*>>;

// Settings of `locale` with the given string preferences, built.
inline ilu_ptr<FmtLib::luSettings> Settings(const lu_locale& locale, Prefs prefs = {}) {
    ilu_ptr<FmtLib::luPreferences> preferences;
    EXPECT_EQ(0, FmtLib::CreatePreferences(preferences));
    for (const auto& p : prefs) preferences->AddPreference(p.first, U(p.second));
    preferences->EndBuild();
    ilu_ptr<FmtLib::luSettings> settings;
    EXPECT_EQ(0, FmtLib::CreateSettings(locale, preferences, settings));
    return settings;
}

}  // namespace fmt_test

#endif  // KAI18N_TESTS_FMT_TEST_SUPPORT_H

// Helpers of the format library tests: UTF-8 in, UTF-8 out, patterns by their
// canonical text.
#ifndef KAI18N_TESTS_FMT_TEST_SUPPORT_H
#define KAI18N_TESTS_FMT_TEST_SUPPORT_H

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/strings/ucs2string.h"

namespace fmt_test {

inline ucs2string U(const std::string& utf8) {
    return ucs2string(reinterpret_cast<const unsigned char*>(utf8.data()),
                      static_cast<unsigned int>(utf8.size()));
}

inline std::string Utf8(const ucs2string& text) {
    std::string out;
    for (unsigned int i = 0; i < text.length(); ++i) {
        unsigned int c = text.data()[i];
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.length()) {
            c = 0x10000 + ((c - 0xD800) << 10) + (text.data()[++i] - 0xDC00);
        }
        if (c < 0x80) {
            out += static_cast<char>(c);
        } else if (c < 0x800) {
            out += static_cast<char>(0xC0 | (c >> 6));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            out += static_cast<char>(0xE0 | (c >> 12));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (c >> 18));
            out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

/// The tokens of a pattern as numbers, with each literal as -1 followed by its
/// text in `literals`.
struct TokenList {
    std::vector<int> ids;
    std::vector<std::string> literals;
    bool operator==(const TokenList& o) const { return ids == o.ids && literals == o.literals; }
};

/// Shows a token list in test failures: ids, with each literal's text.
inline void PrintTo(const TokenList& list, std::ostream* os) {
    std::size_t literal = 0;
    for (int id : list.ids) {
        *os << id;
        if (id == 1 && literal < list.literals.size()) *os << "'" << list.literals[literal++] << "'";
        *os << ' ';
    }
}

inline TokenList Tokens(const FmtLib::luFmtPattern& pattern) {
    TokenList list;
    for (const FmtLib::luToken* token : pattern) {
        list.ids.push_back(token->TokenId());
        if (token->IsLiteral())
            list.literals.push_back(
                Utf8(ucs2string(token->LiteralText(), token->LiteralLength())));
    }
    return list;
}

/// Reads `text` with `format`; the pattern is owned by the result.
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

}  // namespace fmt_test

#endif  // KAI18N_TESTS_FMT_TEST_SUPPORT_H

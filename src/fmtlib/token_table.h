// The texts of every token: its canonical key, its Ombrin text and its label.
#ifndef KAI18N_FMTLIB_TOKEN_TABLE_H
#define KAI18N_FMTLIB_TOKEN_TABLE_H

#include <cstddef>

#include "kai18n/fmtlib/lu_fmt_tokens.h"

namespace FmtLib {

struct luTokenTexts {
    luFmtTokens token;
    const char16_t* key;     // the canonical key, "T[...]"
    const char16_t* ombrin;  // the Ombrin dialect's own text, or null
    const char16_t* label;   // the label every Ombrin definition accepts, or null
};

/// Every token but the literal, by ascending value.
extern const luTokenTexts kTokenTexts[];
extern const std::size_t kTokenTextCount;

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_TOKEN_TABLE_H

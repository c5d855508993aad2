// UTF-16 string constants as arrays of unsigned short, made at compile time
// from u"" literals, so that tables of them are constant-initialised: a facet
// built during another unit's static initialisation finds them ready.
#ifndef KAI18N_FACETS_UTF16_LITERAL_H
#define KAI18N_FACETS_UTF16_LITERAL_H

#include <cstddef>

template <std::size_t N>
struct lu_utf16_literal {
    unsigned short units[N];
};

/// `constexpr auto kName = lu_make_utf16(u"text");` then `kName.units` is a
/// zero-terminated `const unsigned short*`.
template <std::size_t N>
constexpr lu_utf16_literal<N> lu_make_utf16(const char16_t (&text)[N]) {
    lu_utf16_literal<N> result{};
    for (std::size_t i = 0; i < N; ++i) result.units[i] = text[i];
    return result;
}

#endif  // KAI18N_FACETS_UTF16_LITERAL_H

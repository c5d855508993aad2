// Format patterns: the dialect-free form of a format, an owned list of tokens
// of either date or number kind.
//
// A pattern also has a written form, the canonical notation: a sequence of
// items "T[key]" (a token by its canonical key, such as "T[023]" or "T[FS]")
// and "L[text]" (a literal, in which a backslash makes the next character
// literal). Token "T[FS]" divides a pattern into sections; the pattern itself
// stays one flat list. The string formats (lu_string_format.h) read and write
// this notation and the other dialects.
#ifndef KAI18N_FMTLIB_LU_FMT_PATTERN_H
#define KAI18N_FMTLIB_LU_FMT_PATTERN_H

#include "kai18n/fmtlib/lu_fmt_tokens.h"
#include "kai18n/strings/ucs2string.h"

namespace FmtLib {

/// An ordered list of owned tokens with a date or number flag. Every token
/// that enters a pattern is a fresh object (a clone or a new token), never the
/// caller's own. Indexes, iterators and ranges are not checked.
class luFmtPattern {
  public:
    /// A position: a pointer to an element, which is a luToken*.
    using iterator = luToken**;
    using const_iterator = luToken* const*;

    /// Deletes every token.
    virtual ~luFmtPattern();

    virtual iterator begin() = 0;
    virtual const_iterator begin() const = 0;
    virtual iterator end() = 0;
    virtual const_iterator end() const = 0;
    /// Token i; the pattern keeps ownership.
    virtual luToken* operator[](int i) const = 0;
    /// Replaces the tokens by clones of `source`'s when both have the same
    /// kind; otherwise leaves this pattern empty. The kind never changes.
    virtual luFmtPattern& operator=(const luFmtPattern& source) = 0;
    /// Appends a clone of `token`.
    virtual void push_back(const luToken* token) = 0;
    /// Inserts a clone of `token` ahead of `position`; returns its position.
    virtual iterator insert(iterator position, const luToken* token) = 0;
    /// Deletes the tokens of [first, last); returns first.
    virtual iterator erase(iterator first, iterator last) = 0;
    /// Deletes one token; returns the position, which now holds the next one.
    virtual iterator erase(iterator position) = 0;
    virtual unsigned int size() const = 0;
    /// Appends a new token of that value.
    virtual void push_back(luFmtTokens token) = 0;
    /// Appends a new literal with a copy of `text`.
    virtual void push_back(const ucs2string& text) = 0;
    /// Appends a new literal of the units [first, last).
    virtual void push_back(const unsigned short* first, const unsigned short* last) = 0;
    virtual bool IsDate() const = 0;

  protected:
    luFmtPattern() = default;
    luFmtPattern(const luFmtPattern&) = default;
};

/// A new empty pattern of date kind, owned by the caller; null when memory
/// runs out.
luFmtPattern* CreateDateFmtPattern();
/// A new empty pattern of number kind, owned by the caller; null when memory
/// runs out.
luFmtPattern* CreateNumberFmtPattern();
/// A deep copy of `source`, owned by the caller; null when memory runs out.
luFmtPattern* CreateFmtPattern(const luFmtPattern& source);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_FMT_PATTERN_H

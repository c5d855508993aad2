// The engine behind every string format but the Excel one: a table-driven
// parser and printer between a dialect's text and a luFmtPattern. The
// dialects differ only in the definitions and switches they give it.
#ifndef KAI18N_FMTLIB_FMT_STRING_CODEC_H
#define KAI18N_FMTLIB_FMT_STRING_CODEC_H

#include <memory>
#include <vector>

#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_tokens_definition.h"

class lu_locale;
class lu_collate;
class lu_ctype;

namespace FmtLib {

class luFmtStringCodec {
  public:
    /// The switches that make a dialect.
    struct Switches {
        bool escapeOn;          // the escape character works
        unsigned short escape;  // the escape character
        bool quoteOn;           // apostrophes quote literal text
        int sections;           // after this many T[FS] all text is literal; 0: no limit
        bool contextPass;       // tell months from minutes (Velora dates)
        bool serial;            // canonical notation: all literals in L[...]
        bool percent;           // "%" stands for T[pcs]
    };

    /// `definition` and `colours` (null for none) must outlive the codec.
    luFmtStringCodec(const luTokensDefinition* definition, const luTokensDefinition* colours,
                     const Switches& switches);
    ~luFmtStringCodec();

    luFmtStringCodec(const luFmtStringCodec&) = delete;
    luFmtStringCodec& operator=(const luFmtStringCodec&) = delete;

    /// Appends the tokens of `text` to `pattern`; false if the text cannot be
    /// read (the pattern then holds what was read up to there).
    bool Parse(const ucs2string& text, luFmtPattern& pattern) const;
    /// Appends `pattern` written in the dialect to `text`.
    void Print(const luFmtPattern& pattern, ucs2string& text) const;

  private:
    class ParseRun;
    using Units = std::vector<unsigned short>;

    // The length of the colour name that the bracket at `i` encloses, and its
    // token through `token`; 0 if the bracket holds no colour name.
    unsigned int MatchColour(const unsigned short* text, unsigned int length, unsigned int i,
                             luFmtTokens* token) const;
    // Writes the `n` units lower-cased by the character classes to `out`.
    void Lower(const unsigned short* units, unsigned int n, unsigned short* out) const;
    // The entry of the longest text of the definition that starts at `i`, or null.
    const tokenDef* LongestMatch(const unsigned short* text, unsigned int length,
                                 unsigned int i) const;
    void PrintLiteral(const luToken& token, bool quoteOn, bool escapeOn, Units& out) const;

    const luTokensDefinition* m_definition;
    const luTokensDefinition* m_colours;
    bool m_escapeOn;
    unsigned short m_escape;
    bool m_quoteOn;
    bool m_hasColours;
    bool m_contextPass;
    bool m_serial;
    bool m_percent;
    int m_sections;
    std::unique_ptr<lu_locale> m_locale;  // the locale of the two facets
    const lu_collate* m_collation;
    const lu_ctype* m_characterClasses;
};

/// Tells months from minutes in a parsed Velora date pattern: a month token
/// right after an hour, or ahead of seconds, means minutes. Literals and
/// separators do not break the rule.
void RunVeloraContextPass(luFmtPattern& pattern);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_FMT_STRING_CODEC_H

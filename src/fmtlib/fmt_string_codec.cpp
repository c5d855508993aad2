#include "fmtlib/fmt_string_codec.h"

#include <algorithm>
#include <memory>

#include "kai18n/facets/lu_collate.h"
#include "kai18n/facets/lu_ctype.h"

namespace FmtLib {
namespace {

constexpr unsigned short kApostrophe = u'\'';
constexpr unsigned short kBlank = u' ';
constexpr unsigned short kOpenBracket = u'[';
constexpr unsigned short kCloseBracket = u']';

void AppendText(std::vector<unsigned short>& out, const ucs2string& text) {
    out.insert(out.end(), text.data(), text.data() + text.length());
}

// Room for `n` units: on the stack for a short name, else on the heap.
struct LowerBuffer {
    explicit LowerBuffer(unsigned int n) : units(local) {
        if (n > sizeof(local) / sizeof(local[0])) {
            large.reset(new unsigned short[n]);
            units = large.get();
        }
    }
    unsigned short local[64];
    std::unique_ptr<unsigned short[]> large;
    unsigned short* units;
};

}  // namespace

luFmtStringCodec::luFmtStringCodec(const luTokensDefinition* definition,
                                   const luTokensDefinition* colours, const Switches& switches)
    : m_definition(definition),
      m_colours(colours),
      m_escapeOn(switches.escapeOn),
      m_escape(switches.escape),
      m_quoteOn(switches.quoteOn),
      m_hasColours(colours != nullptr),
      m_contextPass(switches.contextPass),
      m_serial(switches.serial),
      m_percent(switches.percent),
      m_sections(switches.sections),
      m_locale(new lu_locale()),
      m_collation(&lu_use_facet<lu_collate>(*m_locale)),
      m_characterClasses(&lu_use_facet<lu_ctype>(*m_locale)) {}

luFmtStringCodec::~luFmtStringCodec() = default;

// Colour names are compared without case: both sides lower-cased unit by
// unit, then compared by the collation of the codec's locale. The entries are
// lowered here, when a bracket is met, rather than when the codec is made:
// most texts have no colour, and lowering every name cost each new codec
// more than its parse.
unsigned int luFmtStringCodec::MatchColour(const unsigned short* text, unsigned int length,
                                           unsigned int i, luFmtTokens* token) const {
    const unsigned short* close = std::find(text + i + 1, text + length, kCloseBracket);
    if (close == text + length) return 0;
    const unsigned int n = static_cast<unsigned int>(close - (text + i + 1));
    if (n == 0) return 0;
    LowerBuffer name(n);
    LowerBuffer entry(n);
    bool lowerDone = false;
    for (unsigned int k = 0; k < m_colours->size(); ++k) {
        const ucs2string& entryText = (*m_colours)[k].text;
        if (entryText.length() != n) continue;
        if (!lowerDone) {
            Lower(text + i + 1, n, name.units);
            lowerDone = true;
        }
        Lower(entryText.data(), n, entry.units);
        if (m_collation->compare(name.units, name.units + n, entry.units, entry.units + n) == 0) {
            *token = (*m_colours)[k].token;
            return n + 2;
        }
    }
    return 0;
}

void luFmtStringCodec::Lower(const unsigned short* units, unsigned int n,
                             unsigned short* out) const {
    for (unsigned int u = 0; u < n; ++u) out[u] = m_characterClasses->tolower(units[u]);
}

// The entries are sorted by code unit, so the walk starts at the first entry
// whose first unit is not below the text's (the earlier ones would all be
// passed over) and ends at the first entry that orders after the text.
const tokenDef* luFmtStringCodec::LongestMatch(const unsigned short* text, unsigned int length,
                                               unsigned int i) const {
    const unsigned short first = text[i];
    const tokenDef* entry =
        std::lower_bound(m_definition->begin(), m_definition->end(), first,
                         [](const tokenDef& def, unsigned short unit) {
                             return def.text.empty() || def.text.data()[0] < unit;
                         });
    const tokenDef* best = nullptr;
    const unsigned int rest = length - i;
    for (; entry != m_definition->end(); ++entry) {
        const unsigned int n = entry->text.length();
        if (n > rest) continue;
        const unsigned short* units = entry->text.data();
        unsigned int k = 0;
        while (k < n && units[k] == text[i + k]) ++k;
        if (k < n) {
            if (units[k] < text[i + k]) continue;
            break;
        }
        if (best == nullptr || n > best->text.length()) best = entry;
    }
    return best;
}

// One parse: the position, the literal text not yet added, and the working
// copies of the switches that the section limit turns off.
class luFmtStringCodec::ParseRun {
  public:
    ParseRun(const luFmtStringCodec& codec, const ucs2string& text, luFmtPattern& pattern)
        : m_codec(codec),
          m_text(text.data()),
          m_length(text.length()),
          m_pattern(pattern),
          m_escapeOn(codec.m_escapeOn),
          m_quoteOn(codec.m_quoteOn) {}

    bool Run() {
        // A branch that cannot go on ends the scan; what was read stays, and
        // the end of the text is handled as usual.
        while (m_i < m_length && Step()) {
        }
        Flush();
        if (m_codec.m_contextPass) {
            RunVeloraContextPass(m_pattern);
            m_ok = true;
        }
        return m_ok;
    }

  private:
    // Reads the item at the position; false when the scan must stop.
    bool Step() {
        const unsigned short unit = m_text[m_i];
        if (unit == kOpenBracket && m_codec.m_hasColours && Colour()) return true;
        if (m_escapeOn && unit == m_codec.m_escape) return Escape();
        if (m_quoteOn && unit == kApostrophe) return Quote();
        if (m_codec.m_serial && unit == u'L') return LiteralItem();
        if (m_codec.m_percent && unit == u'%') {
            Flush();
            m_pattern.push_back(TokTimes100AndSign);
            ++m_i;
            return true;
        }
        if (m_recognise && Token()) return true;
        m_pending.push_back(unit);
        ++m_i;
        return true;
    }

    bool Colour() {
        luFmtTokens colour = TokBlack;
        const unsigned int consumed = m_codec.MatchColour(m_text, m_length, m_i, &colour);
        if (consumed == 0) return false;
        Flush();
        m_pattern.push_back(colour);
        m_i += consumed;
        return true;
    }

    bool Escape() {
        if (++m_i == m_length) return Fail();
        m_pending.push_back(m_text[m_i++]);
        return true;
    }

    // An apostrophe pair is one apostrophe; otherwise a quoted run up to a
    // lone apostrophe, in which pairs are apostrophes and the escape character
    // (if the dialect has one) takes the next unit.
    bool Quote() {
        if (++m_i == m_length) return Fail();
        if (m_text[m_i] == kApostrophe) {
            m_pending.push_back(kApostrophe);
            ++m_i;
            return true;
        }
        for (;;) {
            if (m_i == m_length) return Fail();
            const unsigned short unit = m_text[m_i];
            if (m_codec.m_escapeOn && unit == m_codec.m_escape) {
                if (++m_i == m_length) return Fail();
                m_pending.push_back(m_text[m_i++]);
                // A run that ends behind an escaped unit is complete.
                if (m_i == m_length) return true;
            } else if (unit == kApostrophe) {
                if (m_i + 1 < m_length && m_text[m_i + 1] == kApostrophe) {
                    m_pending.push_back(kApostrophe);
                    m_i += 2;
                } else {
                    ++m_i;
                    return true;
                }
            } else {
                m_pending.push_back(unit);
                ++m_i;
            }
        }
    }

    // L[text], in which the escape character always takes the next unit.
    bool LiteralItem() {
        if (m_i + 1 >= m_length || m_text[m_i + 1] != kOpenBracket) {
            m_pattern.push_back(TokError);
            return Fail();
        }
        m_i += 2;
        std::vector<unsigned short> literal;
        for (;;) {
            if (m_i == m_length) return BadItem();
            const unsigned short unit = m_text[m_i++];
            if (unit == m_codec.m_escape) {
                if (m_i == m_length) return BadItem();
                literal.push_back(m_text[m_i++]);
            } else if (unit == kCloseBracket) {
                Flush();
                if (!literal.empty())
                    m_pattern.push_back(literal.data(), literal.data() + literal.size());
                return true;
            } else {
                literal.push_back(unit);
            }
        }
    }

    bool BadItem() {
        Flush();
        m_pattern.push_back(TokError);
        return Fail();
    }

    bool Token() {
        const tokenDef* match = m_codec.LongestMatch(m_text, m_length, m_i);
        if (match == nullptr) return false;
        Flush();
        m_pattern.push_back(match->token);
        m_i += match->text.length();
        // Past the last section all text is literal, colours apart.
        if (match->token == TokFormatSeparator && m_codec.m_sections != 0 &&
            ++m_separators == m_codec.m_sections) {
            m_escapeOn = false;
            m_quoteOn = false;
            m_recognise = false;
        }
        return true;
    }

    // Loose text becomes a literal, except in the canonical notation, where
    // it cannot stand.
    void Flush() {
        if (m_pending.empty()) return;
        if (m_codec.m_serial) {
            m_pattern.push_back(TokError);
            m_ok = false;
        } else {
            m_pattern.push_back(m_pending.data(), m_pending.data() + m_pending.size());
        }
        m_pending.clear();
    }

    bool Fail() {
        m_ok = false;
        return false;
    }

    const luFmtStringCodec& m_codec;
    const unsigned short* m_text;
    unsigned int m_length;
    luFmtPattern& m_pattern;
    unsigned int m_i = 0;
    std::vector<unsigned short> m_pending;
    bool m_ok = true;
    bool m_escapeOn;
    bool m_quoteOn;
    bool m_recognise = true;
    int m_separators = 0;
};

bool luFmtStringCodec::Parse(const ucs2string& text, luFmtPattern& pattern) const {
    return ParseRun(*this, text, pattern).Run();
}

// The text is gathered in a vector and appended once: a ucs2string keeps no
// spare capacity, so appending unit by unit would copy it every time.
void luFmtStringCodec::Print(const luFmtPattern& pattern, ucs2string& text) const {
    Units out;
    bool escapeOn = m_escapeOn;
    bool quoteOn = m_quoteOn;
    int separators = 0;
    for (const luToken* token : pattern) {
        if (token->IsLiteral()) {
            PrintLiteral(*token, quoteOn, escapeOn, out);
            continue;
        }
        const auto value = static_cast<luFmtTokens>(token->TokenId());
        if (m_hasColours && IsColourToken(value)) {
            out.push_back(kOpenBracket);
            AppendText(out, m_colours->TokenString(value));
            out.push_back(kCloseBracket);
        } else if (value == TokTimes100AndSign && m_percent) {
            out.push_back(u'%');
        } else {
            AppendText(out, m_definition->TokenString(value));
        }
        if (value == TokFormatSeparator && m_sections != 0 && ++separators == m_sections) {
            escapeOn = false;
            quoteOn = false;
        }
    }
    text.append(out.data(), static_cast<unsigned int>(out.size()));
}

void luFmtStringCodec::PrintLiteral(const luToken& token, bool quoteOn, bool escapeOn,
                                    Units& out) const {
    const unsigned short* units = token.LiteralText();
    const unsigned int n = token.LiteralLength();
    if (m_serial) {
        out.push_back(u'L');
        out.push_back(kOpenBracket);
        for (unsigned int k = 0; k < n; ++k) {
            if (units[k] == kCloseBracket || units[k] == m_escape) out.push_back(m_escape);
            out.push_back(units[k]);
        }
        out.push_back(kCloseBracket);
    } else if (quoteOn) {
        if (n == 1 && units[0] == kBlank) {
            out.push_back(kBlank);
        } else if (n == 1 && (units[0] == kApostrophe || units[0] == m_escape)) {
            out.insert(out.end(), 2, units[0]);
        } else {
            out.push_back(kApostrophe);
            for (unsigned int k = 0; k < n; ++k) {
                if (units[k] == kApostrophe || units[k] == m_escape) out.push_back(units[k]);
                out.push_back(units[k]);
            }
            out.push_back(kApostrophe);
        }
    } else if (escapeOn) {
        for (unsigned int k = 0; k < n; ++k) {
            if (units[k] != kBlank) out.push_back(m_escape);
            out.push_back(units[k]);
        }
    } else {
        out.insert(out.end(), units, units + n);
    }
}

}  // namespace FmtLib

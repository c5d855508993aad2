// The two-way dictionary between token values and the texts that stand for
// them in one dialect.
#ifndef KAI18N_FMTLIB_LU_TOKENS_DEFINITION_H
#define KAI18N_FMTLIB_LU_TOKENS_DEFINITION_H

#include <map>
#include <vector>

#include "kai18n/fmtlib/lu_fmt_tokens.h"
#include "kai18n/strings/ucs2string.h"

namespace FmtLib {

/// One dictionary entry: a token and one text that stands for it.
struct tokenDef {
    luFmtTokens token;
    ucs2string text;
};

/// Random access over the entries of a definition, in their sorted order.
using luTokenDefinitionIterator = const tokenDef*;

/// A dictionary of one dialect, built once and then read without a lock.
///
/// While building, texts go into a table ordered by ucs2string comparison
/// (ascending by code unit, a prefix directly before its extensions); EndBuild
/// moves them, in that order, into the entries that the parsers walk. The
/// longest-match scan relies on this order to stop early. A token may have
/// several texts; the first one added is the one printers write.
class luTokensDefinition {
  public:
    luTokensDefinition(tokenDefType type, bool isDate);
    virtual ~luTokensDefinition();

    /// Copies member by member; a definition still being built gets a copy of
    /// its own of the building table.
    luTokensDefinition(const luTokensDefinition& other);
    luTokensDefinition& operator=(const luTokensDefinition& other);

    /// Adds `text` for `token`. With `recognise` the text enters the
    /// dictionary unless it is there already (the result tells whether it
    /// went in); in any case the token gains `text` as its printing text if
    /// it has none yet. Returns false, changing nothing, once built.
    bool AddTokenDefinition(luFmtTokens token, const ucs2string& text, bool recognise);
    /// Freezes the definition; a second call does nothing.
    void EndBuild();

    bool IsBuild() const { return m_built; }
    bool IsOmbrin() const { return m_type == Ombrin; }
    bool IsSerial() const { return m_type == Serial; }
    bool IsVelora() const { return m_type == Velora; }
    bool IsLuLoc() const { return m_type == LuLoc; }
    bool IsDate() const { return m_isDate; }

    /// The number of entries; 0 before EndBuild.
    unsigned int size() const { return static_cast<unsigned int>(m_entries.size()); }
    luTokenDefinitionIterator begin() const { return m_entries.data(); }
    luTokenDefinitionIterator end() const { return m_entries.data() + m_entries.size(); }
    /// Entry i, unchecked.
    const tokenDef& operator[](unsigned int i) const { return m_entries[i]; }

    /// The printing text of `token`, or an empty string if it has none.
    const ucs2string& TokenString(luFmtTokens token) const;

  private:
    using building_table = std::map<ucs2string, tokenDef>;

    bool m_built;
    tokenDefType m_type;
    bool m_isDate;
    building_table* m_building;  // owned; null once built
    std::vector<tokenDef> m_entries;
    std::map<luFmtTokens, ucs2string> m_printing;
    ucs2string m_empty;
};

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_TOKENS_DEFINITION_H

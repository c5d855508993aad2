#include "kai18n/fmtlib/lu_tokens_definition.h"

#include <utility>

namespace FmtLib {

luTokensDefinition::luTokensDefinition(tokenDefType type, bool isDate)
    : m_built(false), m_type(type), m_isDate(isDate), m_building(new building_table) {}

luTokensDefinition::~luTokensDefinition() {
    delete m_building;
}

luTokensDefinition::luTokensDefinition(const luTokensDefinition& other)
    : m_built(other.m_built),
      m_type(other.m_type),
      m_isDate(other.m_isDate),
      m_building(other.m_building ? new building_table(*other.m_building) : nullptr),
      m_entries(other.m_entries),
      m_printing(other.m_printing) {}

luTokensDefinition& luTokensDefinition::operator=(const luTokensDefinition& other) {
    if (this != &other) {
        m_built = other.m_built;
        m_type = other.m_type;
        m_isDate = other.m_isDate;
        building_table* building =
            other.m_building ? new building_table(*other.m_building) : nullptr;
        delete m_building;
        m_building = building;
        m_entries = other.m_entries;
        m_printing = other.m_printing;
    }
    return *this;
}

bool luTokensDefinition::AddTokenDefinition(luFmtTokens token, const ucs2string& text,
                                            bool recognise) {
    if (m_built) return false;
    bool inserted = false;
    if (recognise) inserted = m_building->emplace(text, tokenDef{token, text}).second;
    // The first text added for a token prints it, whatever their sorted order.
    m_printing.emplace(token, text);
    return inserted;
}

void luTokensDefinition::EndBuild() {
    if (m_built) return;
    m_entries.clear();
    m_entries.reserve(m_building->size());
    for (auto& entry : *m_building) m_entries.push_back(std::move(entry.second));
    delete m_building;
    m_building = nullptr;
    m_built = true;
}

const ucs2string& luTokensDefinition::TokenString(luFmtTokens token) const {
    const auto found = m_printing.find(token);
    return found == m_printing.end() ? m_empty : found->second;
}

}  // namespace FmtLib

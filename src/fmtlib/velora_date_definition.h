// Builds the token definition of one Velora date language with one pair of
// separators.
#ifndef KAI18N_FMTLIB_VELORA_DATE_DEFINITION_H
#define KAI18N_FMTLIB_VELORA_DATE_DEFINITION_H

#include "fmtlib/dialect_tables.h"
#include "kai18n/fmtlib/lu_tokens_definition.h"

namespace FmtLib {

/// A new, built definition: the language's tokens in all their case forms,
/// the separators, and the printing texts of the minute tokens.
luTokensDefinition* BuildVeloraDateDefinition(const luVeloraLetters& letters,
                                              const luVeloraSeparators& separators);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_VELORA_DATE_DEFINITION_H

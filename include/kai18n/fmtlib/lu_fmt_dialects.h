// The token definitions of the format dialects and the guard that builds them.
//
// Ombrin is the spreadsheet-style dialect ("#,##0.00", "dd/MM/yyyy"), in one
// set of English texts that also accepts every token's label ("<hour 00-23>").
// Serial is the canonical notation. Velora has tables by language code,
// language and country; its date definitions are built on first request and
// cached. Colour names come in seventeen languages, each also accepting the
// English names.
//
// Every Get function answers a definition that lives until the library's
// format service shuts down, or null; none throws. Null texts count as empty.
#ifndef KAI18N_FMTLIB_LU_FMT_DIALECTS_H
#define KAI18N_FMTLIB_LU_FMT_DIALECTS_H

#include "kai18n/fmtlib/lu_tokens_definition.h"

namespace FmtLib {

/// The counting guard of the format library's dialect tables. The first
/// instance builds, in this order, the Ombrin definitions, the Serial
/// definitions, the Velora key maps, number definitions and cache lock, and
/// the colour definitions; the last instance tears them down in the same
/// order. A unit that uses the dialects defines one file-static instance.
class FmtLibInitExit {
  public:
    FmtLibInitExit();
    ~FmtLibInitExit();

    FmtLibInitExit(const FmtLibInitExit&) = delete;
    FmtLibInitExit& operator=(const FmtLibInitExit&) = delete;

    static int count;
};

/// The Ombrin date tokens; every language gets the one English set.
const luTokensDefinition* GetDateTokensDefinition(const char* lang, const char* country);
/// The Ombrin number tokens; every language gets the one English set.
const luTokensDefinition* GetNumberTokensDefinition(const char* lang, const char* country);
/// The colour names of `lang`, English for a language without its own.
const luTokensDefinition* GetOmbrinColorDefinition(const char* lang, const char* country);
/// The colour names of a Velora language code ("FR", "GE", "JP", ...).
const luTokensDefinition* GetVeloraColorDefinition(const char* code);
/// The Velora number tokens, chosen by language and country (`code` is not
/// consulted): the decimal and grouping separators differ.
const luTokensDefinition* GetVeloraNumberTokensDefinition(const char* code, const char* lang,
                                                          const char* country);
/// The Velora date tokens: letters by language code, separators by language
/// and country. Built on first request under the cache lock and kept; two
/// requests that resolve alike get the same definition.
const luTokensDefinition* GetVeloraDateTokensDefinition(const char* code, const char* lang,
                                                        const char* country);
/// The canonical notation of date patterns.
const luTokensDefinition* GetSerialDateTokensDefinition();
/// The canonical notation of number patterns.
const luTokensDefinition* GetSerialNumberTokensDefinition();

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_FMT_DIALECTS_H

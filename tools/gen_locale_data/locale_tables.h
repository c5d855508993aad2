// The code tables that decide which CLDR locales become records, and the
// encodings those records are written for.
#ifndef KAI18N_TOOLS_GEN_LOCALE_DATA_LOCALE_TABLES_H
#define KAI18N_TOOLS_GEN_LOCALE_DATA_LOCALE_TABLES_H

#include <string>

namespace gen {

/// True for the two-letter language codes of the library's language table.
bool IsKnownLanguage(const std::string& code);
/// True for the two-letter country codes of the library's country table.
bool IsKnownCountry(const std::string& code);

/// The language code under which a CLDR language is entered in the records:
/// "nb" (Norwegian Bokmål) becomes "no", every other code stays.
std::string RecordLanguage(const std::string& cldrLanguage);

/// An encoding as the identity record names it.
struct Encoding {
    const char* technical_name;  // "CP1252", "UTF-8"
    const char* display_name;    // the library's display name, UTF-8
    const char* icu_converter;   // the ICU converter used to check coverage
};

/// The Windows ANSI code page of a language written in a script (an ISO 15924
/// code such as "Latn"), or null when the language has none.
const Encoding* AnsiCodePage(const std::string& language, const std::string& script);

/// The UTF-8 encoding that every locale has a second record in.
const Encoding& Utf8Encoding();

}  // namespace gen

#endif  // KAI18N_TOOLS_GEN_LOCALE_DATA_LOCALE_TABLES_H

// The constant tables of the dialects: colour names by language, and the
// Velora number, letter and separator tables with the keys that select them.
#ifndef KAI18N_FMTLIB_DIALECT_TABLES_H
#define KAI18N_FMTLIB_DIALECT_TABLES_H

#include <cstddef>

namespace FmtLib {

/// A row of a key map: a language (and country) or code, and its table key.
struct luDialectKey {
    const char* text;
    const char* key;
};

/// The sixteen colour names of one language, for the tokens 400 to 415.
struct luColourNames {
    const char* key;
    const char16_t* names[16];
};
extern const luColourNames kColourNames[];
extern const std::size_t kColourNameCount;
/// Colour keys by Velora language code.
extern const luDialectKey kVeloraColourKeys[];
extern const std::size_t kVeloraColourKeyCount;

/// The separators of one Velora number table.
struct luVeloraNumberTexts {
    const char* key;
    const char16_t* decimalSeparator;
    const char16_t* groupingSeparator;
};
extern const luVeloraNumberTexts kVeloraNumberTexts[];
extern const std::size_t kVeloraNumberTextCount;
/// Velora number keys by language followed by country.
extern const luDialectKey kVeloraNumberKeys[];
extern const std::size_t kVeloraNumberKeyCount;

/// The letters of one Velora date language: the half-day word ("AM/PM") and
/// the letters of year, day, hour, month and second, in small letters.
struct luVeloraLetters {
    const char* key;
    const char16_t* amPm;
    char16_t year, day, hour, month, second;
};
extern const luVeloraLetters kVeloraLetters[];
extern const std::size_t kVeloraLetterCount;
/// Velora date keys by language code.
extern const luDialectKey kVeloraDateKeys[];
extern const std::size_t kVeloraDateKeyCount;

/// The date and time separators of one Velora separator table.
struct luVeloraSeparators {
    const char* key;
    const char16_t* date;
    const char16_t* time;
};
extern const luVeloraSeparators kVeloraSeparators[];
extern const std::size_t kVeloraSeparatorCount;
/// Velora separator keys by language followed by country.
extern const luDialectKey kVeloraSeparatorKeys[];
extern const std::size_t kVeloraSeparatorKeyCount;

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_DIALECT_TABLES_H

// Translation of CLDR date and number patterns into the library's canonical
// format notation (T[...] tokens and L[...] literals) and into the
// strftime-style conversions of the date-time printer.
#ifndef KAI18N_TOOLS_GEN_LOCALE_DATA_CLDR_PATTERNS_H
#define KAI18N_TOOLS_GEN_LOCALE_DATA_CLDR_PATTERNS_H

#include <set>
#include <string>
#include <vector>

namespace gen {

using u16 = std::u16string;

/// Bidirectional format marks (LRM, RLM, ALM and the embedding, override and
/// isolate controls), which the records never carry.
bool IsBidiMark(char16_t unit);
u16 StripBidiMarks(const u16& text);

/// One item of a CLDR date pattern: a field (a pattern letter repeated
/// `count` times) or, with `letter` 0, a run of literal text.
struct DateItem {
    char16_t letter;
    int count;
    u16 literal;
};

/// Splits a CLDR date pattern; quoted text and '' become literals, bidi marks
/// are dropped from literals.
std::vector<DateItem> ParseDatePattern(const u16& pattern);

/// Where a translated date pattern is used: the input patterns may hold only
/// the tokens that date input reads.
enum class DateUse { Output, Input };

/// The canonical notation of a parsed date pattern. Every CLDR field without
/// a token of its own is written with its nearest token, or dropped; each
/// such choice is added to `notes` as "<letters> -> <result>".
u16 ToCanonicalDate(const std::vector<DateItem>& items, DateUse use, std::set<std::string>& notes);

/// The strftime-style form of a parsed date pattern, as the date-time printer
/// reads it ("%#d" for an unpadded day, "%b" for a short month name, ...).
u16 ToStrftime(const std::vector<DateItem>& items, std::set<std::string>& notes);

/// The first literal between two numeric date fields (d, M, y), or empty.
u16 DateSeparatorOf(const std::vector<DateItem>& items);
/// The first literal between an hour field and a minute field, or empty.
u16 TimeSeparatorOf(const std::vector<DateItem>& items);

/// The localised symbols that the percent and per-mille characters of a number
/// pattern stand for.
struct NumberSymbols {
    u16 percent;
    u16 permille;
};

/// The canonical notation of a CLDR number pattern. A negative subpattern
/// becomes a second section in which '-' is the sign token T[-].
u16 ToCanonicalNumber(const u16& pattern, const NumberSymbols& symbols,
                      std::set<std::string>& notes);

/// The group sizes of a CLDR decimal pattern, from the decimal point
/// leftwards: "#,##0.###" gives {3}, "#,##,##0.###" {3, 2}, "0.###" none.
u16 GroupingOf(const u16& pattern);

/// The negative mode (0 parentheses, 1 sign before, 2 sign and blank before,
/// 3 sign after, 4 blank and sign after) that a CLDR decimal pattern asks
/// for. Without a negative subpattern CLDR puts the minus sign in front: 1.
int NegativeModeOf(const u16& pattern);

/// UTF-8 of a UTF-16 text, for notes and comments.
std::string ToUtf8(const u16& text);

}  // namespace gen

#endif  // KAI18N_TOOLS_GEN_LOCALE_DATA_CLDR_PATTERNS_H

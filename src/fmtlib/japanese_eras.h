// The four Japanese imperial eras that date formats can write, from Meiji on,
// and the look-up of the era of a Gregorian date.
#ifndef KAI18N_FMTLIB_JAPANESE_ERAS_H
#define KAI18N_FMTLIB_JAPANESE_ERAS_H

#include <cstdint>

namespace FmtLib {

/// One era: its name, its one-letter Latin abbreviation, the date key from
/// which it counts, and the Gregorian year that is its year 0.
struct luJapaneseEra {
    const unsigned short* name;
    unsigned short letter;
    std::int64_t threshold;
    std::int32_t base;
};

constexpr int kJapaneseEraCount = 4;

/// Era `index`, 0 (Meiji) to 3 (Heisei).
const luJapaneseEra& JapaneseEra(int index);

/// The key by which dates are compared with era thresholds: it grows with the
/// date. `year` is on the astronomical scale, `month` counts from 0.
std::int64_t JapaneseEraKey(std::int64_t year, int month, int day);

/// The era of the date with `key`, or -1 for a date before every era.
int FindJapaneseEra(std::int64_t key);

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_JAPANESE_ERAS_H

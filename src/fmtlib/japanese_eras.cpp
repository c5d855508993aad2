// The era table. Each threshold is the key of the era's first formatted day;
// the key of 1 January 1870 is the first that reaches Meiji's.
#include "fmtlib/japanese_eras.h"

namespace FmtLib {
namespace {

const unsigned short kMeiji[] = {0x660E, 0x6CBB, 0};
const unsigned short kTaisho[] = {0x5927, 0x6B63, 0};
const unsigned short kShowa[] = {0x662D, 0x548C, 0};
const unsigned short kHeisei[] = {0x5E73, 0x6210, 0};

const luJapaneseEra kEras[kJapaneseEraCount] = {
    {kMeiji, u'M', 0, 1867},       // from 1 January 1870
    {kTaisho, u'T', 21758, 1911},  // 30 July 1912
    {kShowa, u'S', 29081, 1925},   // 25 December 1926
    {kHeisei, u'H', 60968, 1988},  // 8 January 1989
};

}  // namespace

const luJapaneseEra& JapaneseEra(int index) {
    return kEras[index];
}

std::int64_t JapaneseEraKey(std::int64_t year, int month, int day) {
    return (year * 16 - 29919 + month) * 32 + day;
}

int FindJapaneseEra(std::int64_t key) {
    for (int i = kJapaneseEraCount - 1; i >= 0; --i)
        if (kEras[i].threshold <= key) return i;
    return -1;
}

}  // namespace FmtLib

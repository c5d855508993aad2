// How the engine would recognise and search a loadable zone data file. No such
// file is part of the system and nothing loads one: the tables stay null, and
// a look-up then finds nothing.
#include <cstdint>
#include <cstring>

#include "kai18n/calendar/time_zone.h"

namespace {

constexpr std::uint16_t kMinimumInfoSize = 20;
constexpr std::uint8_t kAsciiFamily = 0;
constexpr std::uint8_t kZoneFormat[4] = {'z', 'o', 'n', 'e'};
constexpr std::uint8_t kZoneFormatVersion = 4;

// The file is a block of bytes: words are copied out rather than read through
// a cast, which would assume an alignment and an object type the block does
// not promise.
template <class T>
T ReadAt(const unsigned char* base, std::uint32_t offset) {
    T value;
    std::memcpy(&value, base + offset, sizeof value);
    return value;
}

// Compares `id` with the zero-terminated UTF-16 text at `offset`, code unit
// by code unit; a text that is a prefix of the other sorts first.
int CompareWithText(const ucs2string& id, const unsigned char* base, std::uint32_t offset) {
    const unsigned short* units = id.data();
    for (unsigned int i = 0;; ++i) {
        const unsigned short unit = ReadAt<unsigned short>(base, offset + 2 * i);
        if (i == id.length()) return unit == 0 ? 0 : -1;
        if (unit == 0) return 1;
        if (units[i] != unit) return units[i] < unit ? -1 : 1;
    }
}

}  // namespace

const TZHeader* TimeZone::DATA = nullptr;
const std::uint32_t* TimeZone::INDEX_BY_ID = nullptr;
const OffsetIndex* TimeZone::INDEX_BY_OFFSET = nullptr;
const CountryIndex* TimeZone::INDEX_BY_COUNTRY = nullptr;

bool TimeZone::isDataAcceptable(void* /*context*/, const char* /*type*/, const char* /*name*/,
                                const UDataInfo* info) {
    return info != nullptr && info->size >= kMinimumInfoSize && info->isBigEndian == 0 &&
           info->charsetFamily == kAsciiFamily &&
           std::memcmp(info->dataFormat, kZoneFormat, sizeof kZoneFormat) == 0 &&
           info->formatVersion[0] == kZoneFormatVersion;
}

const TZEquivalencyGroup* TimeZone::lookupEquivalencyGroup(const ucs2string& id) {
    if (DATA == nullptr || INDEX_BY_ID == nullptr) return nullptr;
    const unsigned char* base = reinterpret_cast<const unsigned char*>(DATA);
    const std::uint32_t names = DATA->nameIndexDelta;
    // Binary search over [low, high).
    std::uint32_t low = 0;
    std::uint32_t high = DATA->count;
    while (low < high) {
        const std::uint32_t mid = low + (high - low) / 2;
        const int order = CompareWithText(id, base, ReadAt<std::uint32_t>(base, names + 4 * mid));
        if (order == 0) {
            return reinterpret_cast<const TZEquivalencyGroup*>(base + INDEX_BY_ID[mid]);
        }
        if (order < 0) {
            high = mid;
        } else {
            low = mid + 1;
        }
    }
    return nullptr;
}

// The three zones that TimeZone::createTimeZone knows by identifier, and the
// list of their identifiers. The time library keeps its own table of
// predefined zones; this is the engine's small built-in door.
#include <cstdint>

#include "calendar/zone_lock.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/calendar/time_zone.h"

namespace {

constexpr std::int32_t kHour = 3600000;
constexpr int kZoneCount = 3;

// Code units, so that loading depends on nothing but the string's storage.
const unsigned short kNewYorkId[] = {'A', 'm', 'e', 'r', 'i', 'c', 'a', '/', 'N',
                                     'e', 'w', '_', 'Y', 'o', 'r', 'k', 0};
const unsigned short kParisId[] = {'E', 'u', 'r', 'o', 'p', 'e', '/', 'P', 'a', 'r', 'i', 's', 0};
const unsigned short kTokyoId[] = {'A', 's', 'i', 'a', '/', 'T', 'o', 'k', 'y', 'o', 0};
const unsigned short kGmtId[] = {'G', 'M', 'T', 0};

// Rules as they stood when these zones were built in: New York changes on the
// first Sunday of April and the last of October at 02:00 wall time, Paris on
// the last Sundays of March and October at 01:00 UTC.
TimeZone* MakeNewYork(const ucs2string& id) {
    UErrorCode status = UErrorNone;
    return new SimpleTimeZone(-5 * kHour, id, 3, 1, -1, 2 * kHour, 9, -1, 1, 2 * kHour, kHour,
                              status);
}

TimeZone* MakeParis(const ucs2string& id) {
    UErrorCode status = UErrorNone;
    return new SimpleTimeZone(kHour, id, 2, -1, 1, kHour, SimpleTimeZone::UTC_TIME, 9, -1, 1, kHour,
                              SimpleTimeZone::UTC_TIME, kHour, status);
}

TimeZone* MakeTokyo(const ucs2string& id) {
    return new SimpleTimeZone(9 * kHour, id);
}

// In the order of ZONE_IDS.
TimeZone* (*const kZoneMakers[kZoneCount])(const ucs2string&) = {MakeNewYork, MakeParis, MakeTokyo};

}  // namespace

const ucs2string* TimeZone::ZONE_IDS = nullptr;
std::atomic<bool> TimeZone::DATA_LOADED{false};

void TimeZone::loadZoneData() {
    // The first read is unlocked; the flag is set, with release order, only
    // after the strings are in place, and a reader that sees it clear takes
    // the lock and looks again.
    if (DATA_LOADED.load(std::memory_order_acquire)) return;
    TimeZoneLockGuard lock;
    if (DATA_LOADED.load(std::memory_order_relaxed)) return;
    ZONE_IDS = new ucs2string[kZoneCount]{ucs2string(kNewYorkId), ucs2string(kParisId),
                                          ucs2string(kTokyoId)};
    DATA_LOADED.store(true, std::memory_order_release);
}

TimeZone* TimeZone::createTimeZone(const ucs2string& id) {
    loadZoneData();
    // ucs2string equality compares length and code units: no case folding,
    // no normalisation.
    for (int i = 0; i < kZoneCount; ++i) {
        if (id == ZONE_IDS[i]) return kZoneMakers[i](id);
    }
    // GMT is missing only when the zone state is down or start-up ran out of
    // memory; the caller still gets the zone it was promised.
    if (GMT != nullptr) return GMT->clone();
    return new SimpleTimeZone(0, ucs2string(kGmtId));
}

const ucs2string** TimeZone::createAvailableIDs(std::int32_t& count) {
    loadZoneData();
    const ucs2string** ids = new const ucs2string*[kZoneCount];
    for (int i = 0; i < kZoneCount; ++i) ids[i] = &ZONE_IDS[i];
    count = kZoneCount;
    return ids;
}

// The zone registry: built-in zones, the default zone, the data-file look-up, the host's zone.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <random>
#include <string>
#include <tuple>

#include "calendar/host_zone_record.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "test_support.h"

namespace {

using test_support::Str;
using test_support::U16;
using Zone = std::unique_ptr<TimeZone>;
constexpr int kHour = 3600000;
std::u16string IdOf(const TimeZone& zone) {
    ucs2string id;
    return U16(zone.getID(id));
}
struct ZoneDataProbe : TimeZone {
    using TimeZone::isDataAcceptable, TimeZone::lookupEquivalencyGroup;
};

// On Sunday 7 April 2024 New York starts daylight time at 02:00 wall time; on Sunday 27 October
// Paris ends it at 01:00 UTC, 02:00 standard time.
TEST(TimeZoneRegistry, CreateTimeZoneMatchesIdentifiersExactlyAndRulesFallOnTheirDates) {
    const auto expect = [](std::u16string id, std::u16string named, int raw, bool daylight) {
        const Zone zone(TimeZone::createTimeZone(Str(id)));
        EXPECT_EQ(IdOf(*zone), named);
        EXPECT_TRUE(zone->getRawOffset() == raw && zone->useDaylightTime() == daylight) << raw;
    };
    expect(u"Europe/Paris", u"Europe/Paris", kHour, true);
    expect(u"Asia/Tokyo", u"Asia/Tokyo", 9 * kHour, false);
    for (const char16_t* other : {u"europe/paris", u"Europe/Paris ", u"Europe/Pari", u""})
        expect(other, u"GMT", 0, false);
    const auto offset = [](std::u16string id, int month, int day, int millis) {
        return Zone(TimeZone::createTimeZone(Str(id)))->getOffset(1, 2024, month, day, 1, millis);
    };
    EXPECT_EQ(offset(u"America/New_York", 3, 7, 1 * kHour), -5 * kHour);
    EXPECT_EQ(offset(u"America/New_York", 3, 7, 3 * kHour), -4 * kHour);
    EXPECT_EQ(offset(u"Europe/Paris", 9, 27, 2 * kHour - 1), 2 * kHour);
    EXPECT_EQ(offset(u"Europe/Paris", 9, 27, 2 * kHour), kHour);
}

TEST(TimeZoneRegistry, AvailableIdsInOrderAndDefaultSwapsAndHandsOutClones) {
    std::int32_t count = 0;
    const std::unique_ptr<const ucs2string*[]> ids(TimeZone::createAvailableIDs(count));
    ASSERT_EQ(count, 3);
    EXPECT_EQ(U16(*ids[0]) + U16(*ids[1]) + U16(*ids[2]),
              u"America/New_YorkEurope/ParisAsia/Tokyo");
    TimeZone* saved = TimeZone::createDefault();
    TimeZone::setDefault(*Zone(TimeZone::createTimeZone(Str(u"Asia/Tokyo"))));
    TimeZone::adoptDefault(nullptr);
    const Zone a(TimeZone::createDefault()), b(TimeZone::createDefault());
    EXPECT_EQ(IdOf(*a), u"Asia/Tokyo");
    EXPECT_NE(a.get(), b.get());
    TimeZone::adoptDefault(saved);
    EXPECT_EQ(IdOf(*Zone(TimeZone::createDefault())), IdOf(*saved));
}

// No data file is loaded; a header passes only for little-endian ASCII "zone" data, version 4.
TEST(ZoneDataFile, NothingLoadedAndHeaderChecks) {
    EXPECT_EQ(ZoneDataProbe::lookupEquivalencyGroup(Str(u"Europe/Paris")), nullptr);
    const UDataInfo good{20, 0, 0, 0, 2, 0, {'z', 'o', 'n', 'e'}, {4, 1, 0, 0}, {1, 0, 0, 0}};
    UDataInfo bad[] = {good, good, good, good, good};
    bad[0].size = 19, bad[1].isBigEndian = 1, bad[2].charsetFamily = 1;
    bad[3].dataFormat[3] = 'a', bad[4].formatVersion[0] = 3;
    EXPECT_TRUE(ZoneDataProbe::isDataAcceptable(nullptr, "dat", "zoneinfo", &good));
    EXPECT_FALSE(ZoneDataProbe::isDataAcceptable(nullptr, "dat", "zoneinfo", nullptr));
    for (const UDataInfo& info : bad) EXPECT_FALSE(ZoneDataProbe::isDataAcceptable(0, 0, 0, &info));
}

// In March 2025 the Sundays are the 2nd, 9th, 16th, 23rd and 30th: week 4 is the 23rd and week 5
// the last, the 30th. Changes fall at midnight. Whatever a record holds, a zone comes back.
TEST(HostZoneRecord, DecodesWeeksChangesAtMidnightAndAnyRecordGivesAZone) {
    const auto make = [](int startWeek, std::uint32_t result, std::uint16_t endMonth = 10) {
        kaHostTimeZoneInformation info{};
        info.Bias = -60, info.StandardName[0] = 'X', info.DaylightBias = -60;
        info.DaylightDate = {0, 3, 0, std::uint16_t(startWeek), 2, 0, 0, 0};
        info.StandardDate = {0, endMonth, 0, 5, 3, 0, 0, 0};
        return Zone(ZoneFromHostRecord(info, result));
    };
    EXPECT_EQ(make(5, 1)->getOffset(1, 2025, 2, 29, 7, 24 * kHour - 1), kHour);
    EXPECT_EQ(make(5, 1)->getOffset(1, 2025, 2, 30, 1, 0), 2 * kHour);
    EXPECT_EQ(make(4, 1)->getOffset(1, 2025, 2, 23, 1, 0), 2 * kHour);
    EXPECT_FALSE(make(0, 0, 0)->useDaylightTime());
    const Zone invalid = make(0, kaHostZoneInvalid, 0);
    EXPECT_TRUE(invalid->getRawOffset() == 0 && IdOf(*invalid).empty());
    std::mt19937 random(7);
    for (int i = 0; i < 3000; ++i) {
        kaHostTimeZoneInformation info;
        for (auto& b : reinterpret_cast<std::uint8_t(&)[sizeof info]>(info))
            b = std::uint8_t(random());
        if (i % 2) info.DaylightDate.wMonth %= 14, info.StandardDate.wDay %= 7;
        const Zone zone(ZoneFromHostRecord(info, i % 4));
        ASSERT_LE(IdOf(*zone).size(), unsigned(kaHostZoneNameLength));
        for (int day = 1; day <= 365; day += 11) zone->getOffset(1, 2025, day / 31, 1, 1, kHour);
    }
}

const std::tuple<const char*, const char16_t*, int, bool> kHostRows[] = {
    {"UTC", u"UTC", 0, false},
    {"Europe/Berlin", u"CET", kHour, true},
    {"America/New_York", u"EST", -5 * kHour, true},
    {"Australia/Sydney", u"AEST", 10 * kHour, true}};
std::tm LocalAt(std::time_t t) {
    std::tm fields{};
    return *localtime_r(&t, &fields);
}

// The host's zone under each TZ, read at first use in a fresh run of this test, agrees with
// localtime_r at noon standard time every day of this year, changing at midnight on change days.
TEST(HostZone, MatchesLocaltimeInChildProcesses) {
    if (const char* child = std::getenv("KAI18N_HOST_ZONE_ROW")) {
        const auto& [tz, name, raw, daylight] = kHostRows[std::atoi(child)];
        const Zone zone(TimeZone::createDefault());
        EXPECT_EQ(IdOf(*zone), name);
        ASSERT_TRUE(zone->getRawOffset() == raw && zone->useDaylightTime() == daylight);
        const std::time_t t = std::time(nullptr);
        const std::tm now = LocalAt(t);
        kaHostTimeZoneInformation info;
        EXPECT_EQ(kaGetHostTimeZoneInformation(&info), daylight ? 1u + (now.tm_isdst > 0) : 0u);
        int changes = 0;  // from noon standard time on 1 January
        std::time_t noon = ((t + now.tm_gmtoff) / 86400 - now.tm_yday) * 86400 + 43200 - raw / 1000;
        for (std::tm before = LocalAt(noon - 86400), at;
             (at = LocalAt(noon)).tm_year == now.tm_year; noon += 86400, before = at) {
            const auto offset = [&](const std::tm& d, int ms) {  // ms: standard time
                return zone->getOffset(1, d.tm_year + 1900, d.tm_mon, d.tm_mday, d.tm_wday + 1, ms);
            };
            EXPECT_EQ(offset(at, 12 * kHour), at.tm_gmtoff * 1000) << noon;
            if (at.tm_isdst == before.tm_isdst) continue;
            ++changes;
            EXPECT_EQ(offset(before, 22 * kHour), before.tm_gmtoff * 1000);
            EXPECT_EQ(offset(at, kHour), at.tm_gmtoff * 1000);
        }
        EXPECT_EQ(changes, daylight ? 2 : 0);
        return;
    }
    if (access("/usr/share/zoneinfo/Europe/Berlin", R_OK) != 0) GTEST_SKIP() << "no tzdata";
    for (const auto& row : kHostRows) {
        const std::string env = "TZ=" + std::string(std::get<0>(row)) + " KAI18N_HOST_ZONE_ROW=";
        const std::string self = " /proc/" + std::to_string(getpid()) + "/exe";
        const std::string args = " --gtest_filter=HostZone.* 2>&1";
        FILE* child = popen((env + std::to_string(&row - kHostRows) + self + args).c_str(), "r");
        ASSERT_NE(child, nullptr);
        std::string text;
        for (int c; (c = std::fgetc(child)) != EOF;) text += static_cast<char>(c);
        EXPECT_TRUE(pclose(child) == 0 && text.find("[  PASSED  ] 1 test.") != std::string::npos)
            << std::get<0>(row) << ":\n" + text;
    }
}

}  // namespace

// Calendar-time values built in 8 threads on predefined zones and on the host's
// zone while another thread keeps swapping the default zone: values on a
// predefined zone give the answers of a single thread, and a host-zone value
// always holds one of the two zones being swapped in, never a torn one.
#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <thread>
#include <vector>

#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/predefined_time_zones.h"
#include "test_support.h"

namespace {

using namespace TimeLib;
using test_support::Str;

const char16_t* const kZones[] = {u"Europe/Paris", u"America/New_York", u"Australia/Sydney",
                                  u"Asia/Tokyo",   u"Pacific/Chatham",  u"America/Sao_Paulo"};

std::vector<long long> Work(int seed) {
    std::vector<long long> out;
    std::mt19937_64 rng(seed);
    const luTimeBelt& belt = PredefinedTimeZones::timeBelt();
    for (int i = 0; i < 1500; ++i) {
        const double ms = static_cast<double>(static_cast<long long>(rng() % 4000000000000ULL));
        const luAvailableTimeZone& zone = belt.availableTimeZone(Str(kZones[i % 6]));
        luCalendarTime t(luPhysicalTime::Epoch + luDuration::Millisecond * ms, zone);
        t.add(Month, 1);
        out.push_back(t.year() * 10000LL + t.month() * 100 + t.day_of_month());
        out.push_back(t.hour_of_day() * 100LL + t.dst_offset() / 60000);
        // The host's zone is whichever default is in place: one of the two offsets.
        const int offset = luCalendarTime(luTimeZone::localHost()).zone_offset();
        out.push_back(offset == 3600000 || offset == -18000000 ? 1 : offset);
    }
    return out;
}

TEST(CalendarTimeThreadsTest, ValuesAgreeWithOneThreadWhileTheDefaultZoneChanges) {
    const SimpleTimeZone first(3600000, Str(u"First"));
    const SimpleTimeZone second(-18000000, Str(u"Second"));
    TimeZone::setDefault(first);
    const std::vector<long long> alone = Work(5);
    std::atomic<bool> done(false);
    std::thread swapper([&] {
        for (bool flip = false; !done; flip = !flip) TimeZone::setDefault(flip ? first : second);
    });
    std::vector<std::vector<long long>> seen(8);
    std::vector<std::thread> threads;
    for (auto& out : seen) threads.emplace_back([&out] { out = Work(5); });
    for (std::thread& thread : threads) thread.join();
    done = true;
    swapper.join();
    for (const auto& out : seen) EXPECT_EQ(out, alone);
}

}  // namespace

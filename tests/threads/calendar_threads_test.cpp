// Calendars in several threads, each thread with calendars of its own made from one
// shared zone: every thread must give the answers of a single thread.
#include <gtest/gtest.h>

#include <random>
#include <thread>
#include <vector>

#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "test_support.h"

namespace {

TEST(CalendarThreadsTest, IndependentCalendarsOnOneZoneAgreeWithOneThread) {
    UErrorCode status = UErrorNone;
    const SimpleTimeZone zone(3600000, test_support::Str(u"Europe/Test"), 2, -1, 1, 3600000,
                              SimpleTimeZone::UTC_TIME, 9, -1, 1, 3600000, SimpleTimeZone::UTC_TIME,
                              3600000, status);
    auto work = [&zone](std::vector<std::int64_t>& out) {
        UErrorCode st = UErrorNone;
        std::unique_ptr<Calendar> cal(Calendar::createInstance(zone, st));
        std::mt19937_64 rng(8);
        for (int i = 0; i < 2000; ++i) {
            const double t = double(std::int64_t(rng() % 40000000000000) - 20000000000000);
            cal->setTime(t, st);
            for (int f = 0; f < Calendar::kFieldCount; ++f)
                out.push_back(cal->get(Calendar::EDateFields(f), st));
            cal->add(Calendar::MONTH, 1, st), cal->roll(Calendar::WEEK_OF_YEAR, 3, st);
            out.push_back(std::int64_t(cal->getTime(st)) + zone.inDaylightTime(t, st));
        }
        out.push_back(st);
    };
    std::vector<std::int64_t> alone;
    work(alone);
    EXPECT_EQ(0, alone.back() + status);
    std::vector<std::vector<std::int64_t>> seen(8);
    std::vector<std::thread> threads;
    for (auto& s : seen) threads.emplace_back(work, std::ref(s));
    for (std::thread& thread : threads) thread.join();
    for (const auto& s : seen) EXPECT_EQ(alone, s);
}

}  // namespace

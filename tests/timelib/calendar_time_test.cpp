// Calendar-time values on the strict Gregorian and the lenient Velora
// calendars: checked writes and their roll-back, handles, the clock and the
// order in which the library's services come up. Instants are worked out with
// timegm, independent of the engine.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/frame/init_exit.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/lu_clock.h"
#include "test_support.h"

namespace {

using namespace TimeLib;
using test_support::Str;

// A zone of a fixed offset, made afresh on each make() as the library's handles do.
class FixedZone : public luTimeZone {
  public:
    FixedZone(int offsetMillis, const char16_t* id) : m_offset(offsetMillis), m_id(Str(id)) {}
    Impl* make() const override { return new SimpleTimeZone(m_offset, m_id); }

  private:
    int m_offset;
    ucs2string m_id;
};

const FixedZone kTokyo(9 * 3600000, u"Tokyo+9");

// The instant of a UTC date and time, by the C library.
luPhysicalTime Utc(int y, int mon, int d, int h = 0, int mi = 0, int s = 0, int ms = 0) {
    std::tm tm{};
    tm.tm_year = y - 1900, tm.tm_mon = mon - 1, tm.tm_mday = d;
    tm.tm_hour = h, tm.tm_min = mi, tm.tm_sec = s;
    const double seconds = static_cast<double>(timegm(&tm));
    return luPhysicalTime::Epoch + luDuration::Millisecond * (seconds * 1000.0 + ms);
}

std::string Ymd(const luCalendarTime& t) {
    std::ostringstream out;
    out << t.year() << '-' << t.month() + 1 << '-' << t.day_of_month() << ' ' << t.hour_of_day();
    return out.str();
}

// The detail of the IncorrectData that `write` throws, or "" when it throws none.
template <class Write>
std::string Refusal(Write write) {
    try {
        write();
    } catch (const IncorrectData& error) {
        return error.detail();
    }
    return "";
}

// A strict calendar judges the fields written together; a refused write
// throws and leaves the value, with no stamp of the refused fields left over.
TEST(CalendarTimeTest, RefusedWritesLeaveTheValueAsItWas) {
    const luPhysicalTime jan31 = Utc(2005, 1, 31, 10);
    luCalendarTime t(jan31, luTimeZone::utc());
    EXPECT_EQ(Refusal([&] { t.set(Month, 1); }), "set (luField[s])");
    EXPECT_EQ(Refusal([&] { t.set(Hour_of_day, 24); }), "set (luField[s])");
    EXPECT_EQ(Refusal([&] { t.set(Era, 2); }), "set (luField[s])");
    EXPECT_EQ(Refusal([&] { t.reset(luFields().set(Day_of_month, 32)); }), "assign (luFields)");
    EXPECT_EQ(t.physicalTime(), jan31);
    EXPECT_EQ(Ymd(t), "2005-1-31 10");
    // The refused Month 1 is gone: a later write of the day alone stays in January.
    t.set(Day_of_month, 15);
    EXPECT_EQ(Ymd(t), "2005-1-15 10");
    // Month and day as one set pass; add pins the day at the month's end.
    t.set(luFields().set(Month, 1).set(Day_of_month, 28));
    EXPECT_EQ(Ymd(t), "2005-2-28 10");
    t.reset(jan31).add(Month, 1);
    EXPECT_EQ(Ymd(t), "2005-2-28 10");
    t.reset(jan31).roll(Day_of_month, 1);
    EXPECT_EQ(Ymd(t), "2005-1-1 10");
}

TEST(CalendarTimeTest, FieldProxiesReadAndWrite) {
    luCalendarTime t(Utc(2004, 2, 10, 23, 59, 58, 999), luTimeZone::utc());
    t.year() = 2005;
    t[Minute] = 7;
    EXPECT_EQ(static_cast<int>(t.month()), 1);
    EXPECT_EQ(t.maximum(Day_of_month), 28);
    EXPECT_EQ(t.max_maximum(Day_of_month), 31);
    EXPECT_EQ(t.min_maximum(Day_of_month), 28);
    t.physicalTime() = Utc(2000, 1, 1);
    EXPECT_EQ(Ymd(t), "2000-1-1 0");
    EXPECT_EQ(t.maximum(Day_of_year), 366);
    const luCalendarTime& readOnly = t;
    EXPECT_EQ(readOnly[Dst_offset], 0);
}

TEST(CalendarTimeTest, ResetAndClearOfFields) {
    luCalendarTime t(luFields().set(Year, 2000), kTokyo);
    EXPECT_EQ(t.physicalTime(), Utc(1999, 12, 31, 15));
    EXPECT_EQ(t.zone_offset(), 9 * 3600000);
    // Year_woy and Week_of_year, still stamped, give the same day back.
    t.reset(Utc(2006, 8, 17, 3)).clear(Year);
    EXPECT_EQ(Ymd(t), "2006-8-17 12");
}

TEST(CalendarTimeTest, ValuesCompareByInstantAcrossZones) {
    const luCalendarTime utc(Utc(2010, 6, 30, 20), luTimeZone::utc());
    const luCalendarTime tokyo(Utc(2010, 6, 30, 20), kTokyo);
    const luCalendarTime later(Utc(2010, 6, 30, 20, 0, 0, 1), luTimeZone::utc());
    EXPECT_TRUE(utc == tokyo);
    EXPECT_EQ(Ymd(utc), "2010-6-30 20");
    EXPECT_EQ(Ymd(tokyo), "2010-7-1 5");
    EXPECT_TRUE(utc < later && later > tokyo && utc <= tokyo && utc >= tokyo && utc != later);
    EXPECT_FALSE(later < utc || later <= utc);
}

TEST(CalendarTimeTest, DiffMovesByWholeSteps) {
    luCalendarTime t(Utc(2005, 1, 31), luTimeZone::utc());
    EXPECT_EQ(t.diff(Utc(2005, 3, 1), Month), 1);
    EXPECT_EQ(Ymd(t), "2005-2-28 0");
    EXPECT_EQ(t.diff(Utc(2004, 2, 28, 12))[Day_of_month], -365);
    EXPECT_EQ(Ymd(t), "2004-2-29 0");
}

TEST(CalendarTimeTest, CopiesAreDeepAndSwapExchanges) {
    luCalendarTime a(Utc(2001, 5, 5), luTimeZone::utc());
    luCalendarTime b(a);
    b.add(Day_of_month, 1);
    luCalendarTime c(kTokyo);
    c = b;
    c.add(Day_of_month, 1);
    EXPECT_EQ(Ymd(a) + Ymd(b) + Ymd(c), "2001-5-5 02001-5-6 02001-5-7 0");
    EXPECT_EQ(c.time_zone_id(), Str(u"GMT"));
    a.swap(c);
    EXPECT_EQ(Ymd(a) + Ymd(c), "2001-5-7 02001-5-5 0");
}

TEST(CalendarTimeTest, StreamForm) {
    std::ostringstream out;
    out << luCalendarTime(Utc(2005, 3, 14, 12, 5, 7, 250), luTimeZone::utc());
    EXPECT_EQ(out.str(), "2005/3/14::12:5:7.25");
}

// The strict handle finds a date of the missing ten days by the Julian rule;
// the Velora calendar has no gap and folds what is out of range.
TEST(CalendarTimeTest, GregorianAndVeloraCalendarsDiffer) {
    const luFields oct10 = luFields().set(Year, 1582).set(Month, 9).set(Day_of_month, 10);
    EXPECT_EQ(Ymd(luCalendarTime(oct10, luTimeZone::utc())), "1582-10-20 0");
    const luVeloraCalendar& velora = luVeloraCalendar::calendar();
    luCalendarTime v(oct10, luTimeZone::utc(), velora);
    EXPECT_EQ(Ymd(v), "1582-10-10 0");
    EXPECT_EQ(v.day_of_week(), 1);  // a Sunday, proleptic Gregorian
    v.set(Hour_of_day, 24);
    EXPECT_EQ(Ymd(v), "1582-10-11 0");
    v.set(luFields().set(Year, 2004).set(Month, 12));
    EXPECT_EQ(Ymd(v), "2005-1-11 0");
    // Week 1 is the first whole week: 2005 begins on a Saturday.
    v.reset(Utc(2005, 1, 3));
    EXPECT_EQ(v.week_of_year(), 1);
    v.reset(Utc(2005, 1, 2));
    EXPECT_EQ(v.week_of_year(), 52);
    EXPECT_EQ(v.year_woy(), 2004);
    EXPECT_EQ(Refusal([&] { v.set(Era, 2); }), "set (luField[s])");
}

TEST(CalendarTimeTest, HandlesMakeIndependentObjects) {
    const luCalendarTime epoch(luTimeZone::utc());
    EXPECT_EQ(epoch.year(), 1970);
    EXPECT_EQ(epoch.physicalTime(), luPhysicalTime::Epoch);
    std::unique_ptr<TimeZone> first(luTimeZone::utc().make());
    std::unique_ptr<TimeZone> second(luTimeZone::utc().make());
    ucs2string id;
    EXPECT_EQ(first->getID(id), Str(u"GMT"));
    first->setRawOffset(3600000);
    EXPECT_EQ(second->getRawOffset(), 0);
    EXPECT_NE(static_cast<const luCalendar*>(&luAvailableCalendar::gregorian()),
              &luCalendar::gregorian());
    const luCalendarTime a(Utc(1582, 10, 15), luTimeZone::utc(), luAvailableCalendar::gregorian());
    EXPECT_EQ(Ymd(a), "1582-10-15 0");
    EXPECT_EQ(Refusal([&] { luCalendarTime(a).set(Month, 13); }), "set (luField[s])");
}

TEST(ClockTest, LocalHostClockReadsUtcMilliseconds) {
    const double before = static_cast<double>(std::time(nullptr)) * 1000.0;
    const luDuration sinceEpoch = luClock::localHost().now() - luPhysicalTime::Epoch;
    const double after = static_cast<double>(std::time(nullptr)) * 1000.0;
    const double millis = sinceEpoch / luDuration::Millisecond;
    EXPECT_GE(millis, before - 1000.0);
    EXPECT_LT(millis, after + 1000.0);
    EXPECT_EQ(millis, static_cast<double>(static_cast<long long>(millis)));
}

// Services come up in a fixed order, each dependency before its users, and
// the format library after the time library that its date formats read.
TEST(StartUpTest, ServicesCameUpInOrder) {
    std::vector<std::string> firstStarts;
    for (int i = 0; i < kaStartedServiceCount(); ++i) {
        const std::string name = kaStartedService(i);
        if (std::find(firstStarts.begin(), firstStarts.end(), name) == firstStarts.end())
            firstStarts.push_back(name);
    }
    const std::vector<std::string> expected = {"PhysicalTimeInitExit",
                                               "ICUTimeZoneInitExit",
                                               "CalendarTimeInitExit",
                                               "ClockInitExit",
                                               "FmtLibInitExit",
                                               "VeloraCalendarInitExit",
                                               "PredefinedTimeZonesInitExit"};
    EXPECT_EQ(firstStarts, expected);
    EXPECT_EQ(kaStartedService(-1), nullptr);
    EXPECT_EQ(kaStartedService(kaStartedServiceCount()), nullptr);
    EXPECT_GE(CalendarTimeInitExit::count, 1);
    {
        const ClockInitExit client;
        EXPECT_EQ(ClockInitExit::count, 2);
    }
    EXPECT_EQ(ClockInitExit::count, 1);
}

}  // namespace

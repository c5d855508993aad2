// Calendar-time values on the strict Gregorian and the lenient Velora calendars: field keys and
// sets of field writes (their trace, how they reach a calendar), checked writes and their
// roll-back, handles, the clock and the order in which the library's services come up. Instants
// are worked out with timegm, independent of the engine.
#include <gtest/gtest.h>

#include <ctime>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "kai18n/calendar/gregorian_calendar.h"
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
struct TokyoZone : luTimeZone {
    Impl* make() const override { return new SimpleTimeZone(9 * 3600000, Str(u"Tokyo+9")); }
} const kTokyo;

// The instant of a UTC date and time, by the C library.
luPhysicalTime Utc(int y, int mon, int d, int h = 0, int mi = 0, int s = 0, int ms = 0) {
    std::tm tm{};
    tm.tm_year = y - 1900, tm.tm_mon = mon - 1, tm.tm_mday = d;
    tm.tm_hour = h, tm.tm_min = mi, tm.tm_sec = s;
    const double seconds = static_cast<double>(timegm(&tm));
    return luPhysicalTime::Epoch + luDuration::Millisecond * (seconds * 1000.0 + ms);
}

std::string Ymd(const luCalendarTime& t) {
    return std::to_string(t.year()) + '-' + std::to_string(t.month() + 1) + '-' +
           std::to_string(t.day_of_month()) + ' ' + std::to_string(t.hour_of_day());
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

std::string Text(const luFields& fields) {
    std::ostringstream os;
    fields.print(os);
    return os.str();
}

TEST(FieldsTest, TraceListsOneWritePerFieldInFieldOrder) {
    const std::string head = "luFields ()";
    const std::pair<luFields, std::string> rows[] = {
        {luFields(), head},
        {luFields().set(Day_of_month, 29).set(Year, 2000).set(Month, 1),
         head + "\n   .set (Year, 2000)\n   .set (Month, 1)\n   .set (Day_of_month, 29)"},
        {luFields().set(Year, 2000).clear(Year), head + "\n   .clear (Year)"},
        {luFields().clear(Year).set(Year, 2000), head + "\n   .set (Year, 2000)"},
        {luFields().set(Dow_local, -3).clear(Era).set(Hour, 7).set(Hour, 8),
         head + "\n   .clear (Era)\n   .set (Hour, 8)\n   .set (Dow_local, -3)"},
    };
    for (const auto& [fields, trace] : rows) EXPECT_EQ(trace, Text(fields));
    luFields original = luFields().set(Minute, 5), copy(original), assigned;
    assigned = original;
    (original = static_cast<luFields&>(original)).clear(Second);
    EXPECT_TRUE(Text(copy) == head + "\n   .set (Minute, 5)" && Text(assigned) == Text(copy));
    EXPECT_EQ(Text(copy) + "\n   .clear (Second)", Text(original));
}

// Applied to a UTC calendar at 1 January 2001 with minute 30 and second 9 set; day 60 is 1 March.
TEST(FieldsTest, ApplyingWritesInFieldOrderLetsTheHigherFieldWinAndClearsUnset) {
    const auto apply = [](const luFields& fields) {
        UErrorCode status = UErrorNone;
        auto calendar =
            std::make_unique<GregorianCalendar>(new SimpleTimeZone(0, ucs2string()), status);
        calendar->clear();
        calendar->set(Calendar::YEAR, 2001), calendar->set(Calendar::MINUTE, 30);
        calendar->set(Calendar::SECOND, 9);
        fields.applyTo(*calendar);
        return calendar;
    };
    // clang-format off
    const struct { luFields fields; Calendar::EDateFields read; int expected; } rows[] = {
        {luFields().set(Hour_of_day, 15).set(Hour, 2).set(Am_pm, 0), Calendar::HOUR_OF_DAY, 15},
        {luFields().set(Hour, 2).set(Am_pm, 0).set(Hour_of_day, 15), Calendar::HOUR_OF_DAY, 15},
        {luFields().set(Day_of_year, 60).set(Month, 5).set(Day_of_month, 10), Calendar::MONTH, 2},
        {luFields().set(Month, 5).set(Day_of_month, 10).set(Day_of_year, 60),
         Calendar::DAY_OF_MONTH, 1},
        {luFields().set(Month, 5).set(Day_of_month, 10).set(Year, 2002), Calendar::YEAR, 2002},
        {luFields().clear(Minute), Calendar::MINUTE, 0}, {luFields(), Calendar::SECOND, 9}};
    // clang-format on
    UErrorCode status = UErrorNone;
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, apply(row.fields)->get(row.read, status)) << Text(row.fields);
    EXPECT_EQ(UErrorNone, status);
    const auto cleared = apply(luFields().clear(Minute));
    EXPECT_TRUE(!cleared->isSet(Calendar::MINUTE) && cleared->isSet(Calendar::SECOND));
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
    EXPECT_EQ(Ymd(t), "2005-2-10 23");
    EXPECT_TRUE(t.minute() == 7 && t.maximum(Day_of_month) == 28 &&
                t.max_maximum(Day_of_month) == 31 && t.min_maximum(Day_of_month) == 28);
    t.physicalTime() = Utc(2000, 1, 1);
    EXPECT_EQ(Ymd(t), "2000-1-1 0");
    EXPECT_EQ(t.maximum(Day_of_year), 366);
    EXPECT_EQ(static_cast<const luCalendarTime&>(t)[Dst_offset], 0);
}

TEST(CalendarTimeTest, ResetAndClearOfFields) {
    luCalendarTime t(luFields().set(Year, 2000), kTokyo);
    EXPECT_EQ(t.physicalTime(), Utc(1999, 12, 31, 15));
    EXPECT_EQ(t.zone_offset(), 9 * 3600000);
    // Year_woy and Week_of_year, still stamped, give the same day back.
    t.reset(Utc(2006, 8, 17, 3)).clear(Year);
    EXPECT_EQ(Ymd(t), "2006-8-17 12");
}

TEST(CalendarTimeTest, ValuesCompareByInstantAndPrintLocalFields) {
    const luCalendarTime utc(Utc(2010, 6, 30, 20), luTimeZone::utc());
    const luCalendarTime tokyo(Utc(2010, 6, 30, 20), kTokyo);
    const luCalendarTime later(Utc(2010, 6, 30, 20, 0, 0, 1), luTimeZone::utc());
    EXPECT_TRUE(utc == tokyo);
    EXPECT_EQ(Ymd(utc), "2010-6-30 20");
    EXPECT_EQ(Ymd(tokyo), "2010-7-1 5");
    EXPECT_TRUE(utc < later && later > tokyo && utc <= tokyo && utc >= tokyo && utc != later);
    EXPECT_FALSE(later < utc || later <= utc);
    std::ostringstream out;  // the local fields, the seconds with their fraction
    out << tokyo << ' ' << luCalendarTime(Utc(2005, 3, 14, 12, 5, 7, 250), luTimeZone::utc());
    EXPECT_EQ(out.str(), "2010/7/1::5:0:0 2005/3/14::12:5:7.25");
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
    luCalendarTime b(a), c(kTokyo);
    b.add(Day_of_month, 1);
    c = b;
    c.add(Day_of_month, 1);
    EXPECT_EQ(Ymd(a) + Ymd(b) + Ymd(c), "2001-5-5 02001-5-6 02001-5-7 0");
    EXPECT_EQ(c.time_zone_id(), Str(u"GMT"));
    a.swap(c);
    EXPECT_EQ(Ymd(a) + Ymd(c), "2001-5-7 02001-5-5 0");
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
    EXPECT_EQ(luCalendarTime(luTimeZone::utc()).physicalTime(), luPhysicalTime::Epoch);
    std::unique_ptr<TimeZone> first(luTimeZone::utc().make()), second(luTimeZone::utc().make());
    ucs2string id;
    EXPECT_EQ(first->getID(id), Str(u"GMT"));
    first->setRawOffset(3600000);
    EXPECT_EQ(second->getRawOffset(), 0);
    luCalendarTime a(Utc(1582, 10, 15), luTimeZone::utc(), luAvailableCalendar::gregorian());
    EXPECT_EQ(Ymd(a), "1582-10-15 0");
    EXPECT_EQ(Refusal([&] { a.set(Month, 13); }), "set (luField[s])");
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
    std::string firstStarts = " ";
    for (int i = 0; i < kaStartedServiceCount(); ++i) {
        const std::string name = kaStartedService(i) + std::string(" ");
        if (firstStarts.find(' ' + name) == std::string::npos) firstStarts += name;
    }
    EXPECT_EQ(firstStarts,
              " PhysicalTimeInitExit ICUTimeZoneInitExit CalendarTimeInitExit ClockInitExit "
              "FmtLibInitExit VeloraCalendarInitExit PredefinedTimeZonesInitExit ");
    EXPECT_TRUE(kaStartedService(-1) == nullptr &&
                kaStartedService(kaStartedServiceCount()) == nullptr);
    EXPECT_GE(CalendarTimeInitExit::count, 1);
    {
        const ClockInitExit client;
        EXPECT_EQ(ClockInitExit::count, 2);
    }
    EXPECT_EQ(ClockInitExit::count, 1);
}

}  // namespace

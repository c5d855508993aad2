// Field keys (numbers, names, order) and sets of field writes: their trace, how they reach a
// calendar.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/timelib/lu_field.h"

namespace {
using namespace TimeLib;
std::string Text(const luFields& fields) {
    std::ostringstream os;
    fields.print(os);
    return os.str();
}

TEST(FieldTest, KeysCarryTheEngineNumbersAndNamesAndCompareByNumber) {
    // clang-format off
    const struct { luField field; int number; const char* name; } keys[] = {
        {Era, 0, "Era"}, {Year, 1, "Year"}, {Month, 2, "Month"}, {Week_of_year, 3, "Week_of_year"},
        {Week_of_month, 4, "Week_of_month"}, {Day_of_month, 5, "Day_of_month"},
        {Day_of_year, 6, "Day_of_year"}, {Day_of_week, 7, "Day_of_week"},
        {Day_of_week_in_month, 8, "Day_of_week_in_month"}, {Am_pm, 9, "Am_pm"}, {Hour, 10, "Hour"},
        {Hour_of_day, 11, "Hour_of_day"}, {Minute, 12, "Minute"}, {Second, 13, "Second"},
        {Millisecond, 14, "Millisecond"}, {Year_woy, 17, "Year_woy"}, {Dow_local, 18, "Dow_local"}};
    // clang-format on
    const auto order = [](auto x, auto y) {  // each comparison operator as one bit
        return (x == y) | (x != y) << 1 | (x < y) << 2 | (x <= y) << 3 | (x > y) << 4 |
               (x >= y) << 5;
    };
    EXPECT_TRUE(Zone_offset.value() == 15 && Dst_offset.value() == 16);
    for (const auto& a : keys) {
        EXPECT_EQ(a.number, a.field.value()) << a.name;
        EXPECT_EQ(a.name, testing::PrintToString(a.field));
        for (const auto& b : keys)
            EXPECT_EQ(order(a.number, b.number), order(a.field, b.field))
                << a.name << " " << b.name;
    }
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

}  // namespace

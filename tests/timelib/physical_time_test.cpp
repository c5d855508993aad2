// Spans and instants: printing, whole-unit removal and its signs, division failures.
#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/timelib/lu_physical_time.h"

namespace {

using namespace TimeLib;
using testing::PrintToString;
const luDuration kMs = luDuration::Millisecond, kSec = luDuration::Second,
                 kMin = luDuration::Minute, kHour = luDuration::Hour, kDay = luDuration::Day;

TEST(DurationTest, PrintsFromTheFirstUnitReachedWithSecondsCutToMicroseconds) {
    const auto sum = [](luDuration span, auto... more) { return (span += ... += more); };
    // clang-format off
    const std::pair<luDuration, const char*> rows[] = {
        {luDuration::Zero, "0"}, {kMs * 500, "0.5"}, {kMs * -1500, "-1.5"}, {kSec * 61, "1:1"},
        {kHour, "1:0:0"}, {-sum(kDay, kMin * 5), "-1::0:5:0"}, {kMs * 59999, "59.999"},
        {sum(kDay * 2, kHour * 3, kMin * 4, kMs * 5006), "2::3:4:5.006"},
        {kMs * 999.9999, "0.999999"}, {kMs * 1.0019, "0.001001"},  // cut, not rounded
        {sum(kDay * 2000000, kSec), "2000000::0:0:1"},  // whole days, never an exponent
        {kMs * 1e308 * 10.0, "inf"}, {kMs * -1e308 * 10.0, "-inf"}};
    // clang-format on
    for (const auto& [span, text] : rows) EXPECT_EQ(text, PrintToString(span)) << text;
}

TEST(PhysicalTimeTest, PrintsAsTheSpanFromTheEpochAndConvertsWithMilliseconds) {
    const luPhysicalTime& epoch = luPhysicalTime::Epoch;
    luPhysicalTime before, back(epoch + kMs * -1234.5);
    before -= kMin * 90;
    EXPECT_EQ(PrintToString(before) + " " + PrintToString(epoch + kHour * 25), "-1:30:0 1::1:0:0");
    EXPECT_TRUE(before < epoch && !(epoch < before) && epoch - epoch == luDuration::Zero);
    EXPECT_EQ(-1234.5, (back - epoch) / kMs);
    EXPECT_TRUE((back += kMs * 1234.5) == epoch);
}

TEST(DurationTest, ChopKeepsTheRemainderWithTheSignOfTheSpan) {
    const double over = 8.64e13 - 2147483647.0;  // a day in ms beyond the 32-bit count
    // clang-format off
    const struct { luDuration span, unit, rest; int count; } rows[] = {
        {kMin * 90, kHour, kMin * 30, 1}, {kMin * -90, kHour, kMin * -30, -1},
        {kMin * 90, -kHour, kMin * 30, -1}, {kMin * -90, -kHour, kMin * -30, 1},
        {kMin * 30, kHour, kMin * 30, 0}, {kSec * 259201, kDay, kSec, 3},
        {kDay * 1000000, kMs, kMs * over, 2147483647},
        {kDay * -1000000, kMs, kMs * -(over - 1), -2147483647 - 1}};
    // clang-format on
    for (const auto& [span, unit, rest, expected] : rows) {
        luDuration a(span), b(span), c(span);
        int count = 99;
        EXPECT_EQ(&a, &(a %= unit));
        EXPECT_TRUE(a == rest && b.chop(unit) == rest && b == rest && c.chop(unit, count) == rest &&
                    count == expected && span.chop(unit) == rest)  // span is const
            << PrintToString(span) << " % " << PrintToString(unit) << " gave " << count;
    }
}

TEST(DurationTest, DivisionByZeroThrowsAndLeavesTheSpanUnchanged) {
    for (const luDuration& zero : {luDuration::Zero, -luDuration::Zero}) {
        int count = 5;
        const std::function<void(luDuration&)> operations[] = {
            [&](luDuration& s) { s /= zero / kHour; },  // by 0.0 or -0.0
            [&](luDuration& s) { s %= zero; }, [&](luDuration& s) { s.chop(zero); },
            [&](luDuration& s) { s.chop(zero, count); }, [&](luDuration& s) { (void)(s / zero); }};
        for (const auto& operation : operations) {
            luDuration span = kMin * 7;
            try {
                operation(span);
                ADD_FAILURE() << "no exception from operation " << &operation - operations;
            } catch (const IncorrectData& error) {
                EXPECT_EQ(&operation == operations ? "Duration / 0.0" : "Duration / Duration::Zero",
                          error.detail());
            }
            EXPECT_TRUE(span == kMin * 7 && count == 5) << &operation - operations;
        }
    }
    luDuration span = kHour;
    EXPECT_TRUE(luDuration::Zero / kHour == 0.0 && (span /= 4.0) == kMin * 15 && !(span >= kHour));
    EXPECT_TRUE(kMin * 15 == 15 * kMin && 0.25 * kHour == span && span >= span && kHour >= span);
}

}  // namespace

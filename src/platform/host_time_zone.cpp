// The host's zone read through the C library: localtime_r on instants of the
// current year, and a search for the instants at which daylight time begins
// and ends. The C library answers for single instants only, so the yearly
// rule is recovered from this year's changes.
#include "platform/host_time_zone.h"

#include <ctime>
#include <mutex>
#include <string>

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

// ---------------------------------------------------------------------------
// Proleptic Gregorian dates, counted in days from 1970-01-01.

std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0);
}

// Shifting the year to start on 1 March puts the leap day last, so that the
// day of the shifted year follows from the month by one linear formula.
std::int64_t DaysFromCivil(std::int64_t year, int month, int day) {
    year -= month <= 2 ? 1 : 0;
    const std::int64_t era = FloorDiv(year, 400);
    const std::int64_t yearOfEra = year - era * 400;
    const int shiftedMonth = month > 2 ? month - 3 : month + 9;
    const std::int64_t dayOfYear = (153 * shiftedMonth + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

struct CivilDate {
    std::int64_t year;
    int month;    // 1 to 12
    int day;      // 1 to 31
    int weekday;  // 0 = Sunday
};

CivilDate CivilFromDays(std::int64_t days) {
    const std::int64_t shifted = days + 719468;
    const std::int64_t era = FloorDiv(shifted, 146097);
    const std::int64_t dayOfEra = shifted - era * 146097;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int shiftedMonth = static_cast<int>((5 * dayOfYear + 2) / 153);
    CivilDate date;
    date.day = static_cast<int>(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
    date.month = shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9;
    date.year = yearOfEra + era * 400 + (date.month <= 2 ? 1 : 0);
    // 1970-01-01 was a Thursday.
    date.weekday = static_cast<int>(days - 7 * FloorDiv(days + 4, 7) + 4);
    return date;
}

int MonthLength(std::int64_t year, int month) {
    static const int kLengths[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kLengths[month - 1];
}

// ---------------------------------------------------------------------------
// The host's answer for one instant.

struct Sample {
    bool daylight;
    long offset;  // seconds east of Greenwich
    std::string name;
};

// The C library reads the zone settings at tzset; localtime_r need not, so
// they are read once here, and every later question gets the same zone.
void ReadZoneSettingsOnce() {
    static std::once_flag once;
    std::call_once(once, [] { tzset(); });
}

bool SampleAt(std::int64_t instant, Sample& sample) {
    const std::time_t t = static_cast<std::time_t>(instant);
    std::tm fields{};
    if (localtime_r(&t, &fields) == nullptr) return false;
    sample.daylight = fields.tm_isdst > 0;
    sample.offset = fields.tm_gmtoff;
    sample.name = fields.tm_zone != nullptr ? fields.tm_zone : "";
    return true;
}

// ---------------------------------------------------------------------------
// This year's changes.

/// A change between standard and daylight time.
struct Change {
    bool found = false;
    std::int64_t instant = 0;  // the first second of the new time
    long oldOffset = 0;
    long newOffset = 0;
    std::string newName;
};

/// What the scan of one year found.
struct YearScan {
    bool readable = true;
    bool hasStandard = false;
    Sample standard;  // the first standard-time sample of the year
    Change toDaylight;
    Change toStandard;
};

// The first second after `before` whose daylight flag differs from it: the
// flag is known to differ at `after`, and bisection narrows the gap to one.
bool FindChange(std::int64_t before, std::int64_t after, const Sample& old, Change& change) {
    Sample probe;
    while (after - before > 1) {
        const std::int64_t middle = before + (after - before) / 2;
        if (!SampleAt(middle, probe)) return false;
        (probe.daylight == old.daylight ? before : after) = middle;
    }
    if (!SampleAt(after, probe)) return false;
    change.found = true;
    change.instant = after;
    change.oldOffset = old.offset;
    change.newOffset = probe.offset;
    change.newName = probe.name;
    return true;
}

// The date of a change as the old time shows it, the reading of a yearly rule.
CivilDate WallDate(const Change& change, std::int64_t* secondOfDay) {
    const std::int64_t wall = change.instant + change.oldOffset;
    *secondOfDay = wall - FloorDiv(wall, kSecondsPerDay) * kSecondsPerDay;
    return CivilFromDays(FloorDiv(wall, kSecondsPerDay));
}

// The first change of each kind whose date falls in `year`. Changes are whole
// hours or half hours apart and months apart, so a daily step sees each one;
// the scan runs a day past either end of the year, whose changes are dated
// by the old time and may lie just outside it in UTC.
YearScan ScanYear(std::int64_t year) {
    YearScan scan;
    const std::int64_t first = (DaysFromCivil(year, 1, 1) - 1) * kSecondsPerDay;
    const std::int64_t last = (DaysFromCivil(year + 1, 1, 1) + 1) * kSecondsPerDay;
    Sample previous;
    Sample current;
    if (!SampleAt(first, previous)) return YearScan{false, false, {}, {}, {}};
    for (std::int64_t t = first + kSecondsPerDay; t <= last; t += kSecondsPerDay) {
        if (!SampleAt(t, current)) return YearScan{false, false, {}, {}, {}};
        if (!current.daylight && !scan.hasStandard) {
            scan.hasStandard = true;
            scan.standard = current;
        }
        if (current.daylight != previous.daylight) {
            Change change;
            if (!FindChange(t - kSecondsPerDay, t, previous, change)) {
                return YearScan{false, false, {}, {}, {}};
            }
            std::int64_t secondOfDay;
            Change& slot = current.daylight ? scan.toDaylight : scan.toStandard;
            if (!slot.found && WallDate(change, &secondOfDay).year == year) slot = change;
        }
        previous = current;
    }
    return scan;
}

// ---------------------------------------------------------------------------
// Filling the record.

// The host's names are ASCII abbreviations; anything else is kept as '?'
// rather than guessed at. Longer names are cut to the record's length.
void CopyName(const std::string& name, std::uint16_t (&out)[kaHostZoneNameLength]) {
    std::size_t i = 0;
    for (; i < name.size() && i + 1 < kaHostZoneNameLength; ++i) {
        const unsigned char byte = static_cast<unsigned char>(name[i]);
        out[i] = byte < 0x80 ? byte : '?';
    }
    for (; i < kaHostZoneNameLength; ++i) out[i] = 0;
}

// A change as a yearly rule: its month, its weekday and which such weekday of
// the month it is, the last one of the month being 5 rather than 4 or 5.
kaHostSystemTime RuleOf(const Change& change) {
    std::int64_t secondOfDay;
    const CivilDate date = WallDate(change, &secondOfDay);
    kaHostSystemTime rule{};
    rule.wMonth = static_cast<std::uint16_t>(date.month);
    rule.wDayOfWeek = static_cast<std::uint16_t>(date.weekday);
    const bool lastOfMonth = date.day + 7 > MonthLength(date.year, date.month);
    rule.wDay = static_cast<std::uint16_t>(lastOfMonth ? 5 : (date.day - 1) / 7 + 1);
    rule.wHour = static_cast<std::uint16_t>(secondOfDay / 3600);
    rule.wMinute = static_cast<std::uint16_t>(secondOfDay / 60 % 60);
    rule.wSecond = static_cast<std::uint16_t>(secondOfDay % 60);
    return rule;
}

void FillStandardOnly(const Sample& standard, kaHostTimeZoneInformation* info) {
    *info = kaHostTimeZoneInformation{};
    info->Bias = static_cast<std::int32_t>(-standard.offset / 60);
    CopyName(standard.name, info->StandardName);
    CopyName(standard.name, info->DaylightName);
}

void FillWithDaylight(const YearScan& scan, kaHostTimeZoneInformation* info) {
    FillStandardOnly(scan.standard, info);
    CopyName(scan.toDaylight.newName, info->DaylightName);
    info->StandardDate = RuleOf(scan.toStandard);
    info->DaylightDate = RuleOf(scan.toDaylight);
    info->StandardBias = 0;
    info->DaylightBias =
        static_cast<std::int32_t>(-(scan.toDaylight.newOffset - scan.standard.offset) / 60);
}

}  // namespace

std::uint32_t kaGetHostTimeZoneInformation(kaHostTimeZoneInformation* info) {
    if (info == nullptr) return kaHostZoneInvalid;
    ReadZoneSettingsOnce();
    const std::int64_t now = static_cast<std::int64_t>(std::time(nullptr));
    Sample current;
    if (now == -1 || !SampleAt(now, current)) return kaHostZoneInvalid;
    const std::int64_t year = CivilFromDays(FloorDiv(now + current.offset, kSecondsPerDay)).year;
    const YearScan scan = ScanYear(year);
    if (!scan.readable) return kaHostZoneInvalid;
    // A year all in daylight time, or one with a change of one kind only, has
    // no yearly rule to give: it is described by the time in force now.
    if (!scan.hasStandard || !scan.toDaylight.found || !scan.toStandard.found) {
        FillStandardOnly(scan.hasStandard ? scan.standard : current, info);
        return kaHostZoneUnknown;
    }
    FillWithDaylight(scan, info);
    return current.daylight ? kaHostZoneDaylight : kaHostZoneStandard;
}

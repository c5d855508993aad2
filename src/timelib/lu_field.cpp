// The field key constants, their names, and the writes of luFields.
#include "kai18n/timelib/lu_field.h"

#include <ostream>

#include "kai18n/calendar/calendar.h"

namespace TimeLib {

// The one maker of keys; the constants below are its only products. Its
// functions are constexpr, so every constant is constant-initialised.
class luFieldKeys {
  public:
    static constexpr luField Field(Calendar::EDateFields field) { return luField(field); }
    static constexpr luROField ROField(Calendar::EDateFields field) { return luROField(field); }
};

const luField Era = luFieldKeys::Field(Calendar::ERA);
const luField Year = luFieldKeys::Field(Calendar::YEAR);
const luField Month = luFieldKeys::Field(Calendar::MONTH);
const luField Week_of_year = luFieldKeys::Field(Calendar::WEEK_OF_YEAR);
const luField Week_of_month = luFieldKeys::Field(Calendar::WEEK_OF_MONTH);
const luField Day_of_month = luFieldKeys::Field(Calendar::DAY_OF_MONTH);
const luField Day_of_year = luFieldKeys::Field(Calendar::DAY_OF_YEAR);
const luField Day_of_week = luFieldKeys::Field(Calendar::DAY_OF_WEEK);
const luField Day_of_week_in_month = luFieldKeys::Field(Calendar::DAY_OF_WEEK_IN_MONTH);
const luField Am_pm = luFieldKeys::Field(Calendar::AM_PM);
const luField Hour = luFieldKeys::Field(Calendar::HOUR);
const luField Hour_of_day = luFieldKeys::Field(Calendar::HOUR_OF_DAY);
const luField Minute = luFieldKeys::Field(Calendar::MINUTE);
const luField Second = luFieldKeys::Field(Calendar::SECOND);
const luField Millisecond = luFieldKeys::Field(Calendar::MILLISECOND);
const luROField Zone_offset = luFieldKeys::ROField(Calendar::ZONE_OFFSET);
const luROField Dst_offset = luFieldKeys::ROField(Calendar::DST_OFFSET);
const luField Year_woy = luFieldKeys::Field(Calendar::YEAR_WOY);
const luField Dow_local = luFieldKeys::Field(Calendar::DOW_LOCAL);

namespace {

// Names by field number; the read-only fields have none, since no luField
// can hold their numbers.
const char* const kFieldNames[Calendar::kFieldCount] = {
    "Era",          "Year",          "Month",
    "Week_of_year", "Week_of_month", "Day_of_month",
    "Day_of_year",  "Day_of_week",   "Day_of_week_in_month",
    "Am_pm",        "Hour",          "Hour_of_day",
    "Minute",       "Second",        "Millisecond",
    nullptr,        nullptr,         "Year_woy",
    "Dow_local"};

const char* FieldName(int field) {
    const bool named = field >= 0 && field < Calendar::kFieldCount && kFieldNames[field];
    return named ? kFieldNames[field] : "Unknown";
}

}  // namespace

std::ostream& operator<<(std::ostream& os, const luField& field) {
    return os << FieldName(field.value());
}

std::ostream& luFields::print(std::ostream& os) const {
    os << "luFields ()";
    for (int field = 0; field < kSlots; ++field) {
        if (!(m_present >> field & 1u)) continue;
        const Entry& entry = m_entries[field];
        os << std::endl;
        if (entry.clear)
            os << "   .clear (" << FieldName(field) << ")";
        else
            os << "   .set (" << FieldName(field) << ", " << entry.value << ")";
    }
    return os;
}

void luFields::applyTo(Calendar& calendar) const {
    // Stops after the highest field that holds a write: a calendar-time value
    // applies a one-entry set on every single-field write.
    for (int field = 0; field < kSlots && (m_present >> field) != 0; ++field) {
        if (!(m_present >> field & 1u)) continue;
        const auto key = static_cast<Calendar::EDateFields>(field);
        if (m_entries[field].clear)
            calendar.clear(key);
        else
            calendar.set(key, m_entries[field].value);
    }
}

}  // namespace TimeLib

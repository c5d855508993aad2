// Field keys of calendar-time values, and sets of field writes.
//
// luField names a calendar field that can be read and set, luROField one of
// the two that can only be read (the zone and daylight offsets). A key holds
// the number of its field in Calendar::EDateFields; the named constants below
// are the only keys there are. They are constant-initialised, so they are
// valid before any start-up code runs.
//
// luFields collects writes so that several fields reach a calendar in one
// checked step: a strict calendar then judges the combination, not each field
// on its own.
#ifndef KAI18N_TIMELIB_LU_FIELD_H
#define KAI18N_TIMELIB_LU_FIELD_H

#include <cstdint>
#include <iosfwd>

class Calendar;

namespace TimeLib {

class luFieldKeys;

/// A calendar field that can be read and set.
class luField {
  public:
    constexpr luField(const luField&) = default;
    luField& operator=(const luField&) = default;

    /// The field's number in Calendar::EDateFields, for handing the key to the
    /// engine: static_cast<Calendar::EDateFields>(key.value()).
    constexpr int value() const { return m_value; }

  private:
    friend class luFieldKeys;  // makes the named constants
    constexpr explicit luField(int value) : m_value(value) {}

    int m_value;
};

/// A calendar field that can only be read.
class luROField {
  public:
    constexpr luROField(const luROField&) = default;
    luROField& operator=(const luROField&) = default;

    /// The field's number in Calendar::EDateFields.
    constexpr int value() const { return m_value; }

  private:
    friend class luFieldKeys;  // makes the named constants
    constexpr explicit luROField(int value) : m_value(value) {}

    int m_value;
};

// The keys, numbered as the engine's fields.
extern const luField Era;                   ///< 0: 0 before Christ, 1 after
extern const luField Year;                  ///< 1: year of the era
extern const luField Month;                 ///< 2: 0 = January
extern const luField Week_of_year;          ///< 3
extern const luField Week_of_month;         ///< 4
extern const luField Day_of_month;          ///< 5
extern const luField Day_of_year;           ///< 6
extern const luField Day_of_week;           ///< 7: 1 = Sunday
extern const luField Day_of_week_in_month;  ///< 8
extern const luField Am_pm;                 ///< 9
extern const luField Hour;                  ///< 10: 0 to 11
extern const luField Hour_of_day;           ///< 11: 0 to 23
extern const luField Minute;                ///< 12
extern const luField Second;                ///< 13
extern const luField Millisecond;           ///< 14
extern const luROField Zone_offset;         ///< 15: raw zone offset, ms
extern const luROField Dst_offset;          ///< 16: daylight offset, ms
extern const luField Year_woy;              ///< 17: the year of Week_of_year
extern const luField Dow_local;             ///< 18: weekday from the first day of the week

/// Keys compare by their field numbers.
constexpr bool operator==(const luField& a, const luField& b) {
    return a.value() == b.value();
}
constexpr bool operator!=(const luField& a, const luField& b) {
    return a.value() != b.value();
}
constexpr bool operator<(const luField& a, const luField& b) {
    return a.value() < b.value();
}
constexpr bool operator<=(const luField& a, const luField& b) {
    return a.value() <= b.value();
}
constexpr bool operator>(const luField& a, const luField& b) {
    return a.value() > b.value();
}
constexpr bool operator>=(const luField& a, const luField& b) {
    return a.value() >= b.value();
}

/// Writes the constant's name, such as "Day_of_month"; "Unknown" for a number
/// that no luField constant has.
std::ostream& operator<<(std::ostream& os, const luField& field);

/// A set of field writes, at most one per field; the last set() or clear() of
/// a field replaces the earlier one. Holds no heap memory.
class luFields {
  public:
    /// The empty set. Only the written entries are ever read, so the others
    /// stay unwritten: a scanner makes one of these per text read.
    luFields() {}
    luFields(const luFields& other) { *this = other; }
    /// Copies the written entries alone.
    luFields& operator=(const luFields& other) {
        m_present = other.m_present;
        for (int field = 0; field < kSlots; ++field)
            if (m_present >> field & 1u) m_entries[field] = other.m_entries[field];
        return *this;
    }
    ~luFields() = default;

    /// Stores the write "set `field` to `value`"; returns *this for chaining.
    luFields& set(const luField& field, int value) {
        Store(field, Entry{false, value});
        return *this;
    }
    /// Stores the write "clear `field`"; returns *this for chaining.
    luFields& clear(const luField& field) {
        Store(field, Entry{true, 0});
        return *this;
    }

    /// A trace: "luFields ()", then for each write in ascending field order a
    /// line break (std::endl) and "   .set (Year, 2000)" or "   .clear (Year)".
    /// No line break after the last.
    std::ostream& print(std::ostream& os) const;

    /// Runs the writes on `calendar` in ascending field order, each by
    /// Calendar::set or Calendar::clear. The order makes conflicts come out
    /// the same whatever the order of the set() calls: the later stamp of the
    /// higher field wins, so Hour_of_day beats Hour and Am_pm, Day_of_year
    /// beats Day_of_month and Month.
    void applyTo(Calendar& calendar) const;

  private:
    struct Entry {
        bool clear;  // true: clear the field; false: set it to value
        int value;
    };
    static constexpr int kSlots = 19;  // one per engine field, by number

    void Store(const luField& field, Entry entry) {
        m_entries[field.value()] = entry;
        m_present |= std::uint32_t{1} << field.value();
    }

    Entry m_entries[kSlots];      // entry n is read only when bit n is set
    std::uint32_t m_present = 0;  // bit n: m_entries[n] holds a write
};

}  // namespace TimeLib

#endif  // KAI18N_TIMELIB_LU_FIELD_H

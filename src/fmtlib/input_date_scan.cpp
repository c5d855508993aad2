// Reading a date: the pattern's tokens walked in order, each consuming text
// in one of three ways (a number, a word as written, a word in any case) and
// noting a field, and the fields handed to the calendar time in one write,
// so that the calendar alone judges whether they make a date.
#include "fmtlib/input_date_imp.h"
#include "fmtlib/input_digits.h"
#include "fmtlib/japanese_eras.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/lu_field.h"

namespace FmtLib {
namespace {

// A run of blanks in a word wants a run of any length in the text: passes
// both runs and tells whether the text had one.
bool MatchBlanks(const lu_ctype_impl& ctype, const unsigned short*& p, const unsigned short*& word,
                 const unsigned short* end) {
    while (word < end && ctype.IsSpace(*word)) ++word;
    const bool match = ctype.IsSpace(*p);
    while (ctype.IsSpace(*p)) ++p;
    return match;
}

int Length(const unsigned short* text) {
    int n = 0;
    if (text != nullptr)
        while (text[n] != 0) ++n;
    return n;
}

}  // namespace

bool luInputDateImp::xNum(const unsigned short* text, int& value, int max_digits,
                          int& consumed) const {
    const lu_ctype_impl& ctype = m_values->CharacterFacet().impl();
    const unsigned short* p = text;
    // An ASCII digit is no blank and needs no table look-up: the common case.
    while (AsciiDigit(*p) > 9 && ctype.IsSpace(*p)) ++p;
    value = 0;
    int digits = 0;
    for (int d = 0; digits < max_digits && (d = DigitValue(ctype, *p)) >= 0; ++digits, ++p)
        value = value * 10 + d;
    consumed = static_cast<int>(p - text);
    return digits > 0;
}

bool luInputDateImp::xMatch(const unsigned short* text, const unsigned short* word, int length,
                            int& consumed) const {
    const lu_ctype_impl& ctype = m_values->CharacterFacet().impl();
    const unsigned short* p = text;
    const unsigned short* const end = word + (length > 0 ? length : 0);
    bool match = true;
    while (match && word < end) {
        if (ctype.IsSpace(*word)) {
            match = MatchBlanks(ctype, p, word, end);
        } else {
            while (ctype.IsSpace(*p)) ++p;
            match = *p != 0 && *p == *word;
            if (match) {
                ++p;
                ++word;
            }
        }
    }
    consumed = static_cast<int>(p - text);
    return match;
}

bool luInputDateImp::ncMatch(const unsigned short* text, const unsigned short* word, int length,
                             int& consumed) const {
    const lu_ctype& cases = m_values->CharacterFacet();
    const lu_ctype_impl& ctype = cases.impl();
    const unsigned short* p = text;
    const unsigned short* const end = word + (length > 0 ? length : 0);
    while (ctype.IsSpace(*p)) ++p;
    while (word < end && ctype.IsSpace(*word)) ++word;
    bool match = true;
    while (match && word < end) {
        if (ctype.IsSpace(*word)) {
            match = MatchBlanks(ctype, p, word, end);
        } else {
            match = *p != 0 && (*p == *word || cases.tolower(*p) == cases.tolower(*word));
            if (match) {
                ++p;
                ++word;
            }
        }
    }
    consumed = static_cast<int>(p - text);
    return match;
}

// The state of one Scan: where it stands in the text, whether every token so
// far was read, and the fields read.
class luInputDateImp::Reader {
  public:
    Reader(const luInputDateImp& input, const unsigned short* text)
        : m_input(input), m_names(input.m_values->DateFacet()), m_p(text) {}

    /// Reads one token; false when the text does not have it.
    bool Read(const Step& step);
    /// Decides what a 12-hour value read means, once every token is read.
    void SettleHour();

    const unsigned short* Place() const { return m_p; }
    const TimeLib::luFields& Fields() const { return m_fields; }

  private:
    /// xNum at the current place; moves on when a digit was read.
    bool Number(int maxDigits, int& value) {
        int consumed = 0;
        if (!m_input.xNum(m_p, value, maxDigits, consumed)) return false;
        m_p += consumed;
        return true;
    }
    bool SetNumber(const TimeLib::luField& field, int maxDigits, int adjust = 0) {
        int value = 0;
        if (!Number(maxDigits, value)) return false;
        m_fields.set(field, value + adjust);
        return true;
    }
    /// ncMatch of a word; moves on when it matches. A word that is missing
    /// or empty matches nothing: it cannot be told apart from no word.
    bool Word(const unsigned short* word) {
        const int length = Length(word);
        int consumed = 0;
        if (length == 0 || !m_input.ncMatch(m_p, word, length, consumed)) return false;
        m_p += consumed;
        return true;
    }
    bool Hour24() {
        int value = 0;
        if (!Number(2, value)) return false;
        m_fields.set(TimeLib::Hour_of_day, value == 24 ? 0 : value);
        return true;
    }
    bool Marker();
    bool MonthName(bool abbreviated);
    bool DayName(bool abbreviated);
    bool Year4();
    bool ImperialYear(bool byLetter);
    bool TimeSeparator();

    const luInputDateImp& m_input;
    const lu_ctime& m_names;
    const unsigned short* m_p;
    TimeLib::luFields m_fields;
    int m_hour12 = -1;
    bool m_noMarker = false;
};

bool luInputDateImp::Reader::Read(const Step& step) {
    switch (step.token) {
        case TokLiteral: {
            // The text holding the literal as it stands reads the same as
            // xMatch would, without its blank tests.
            if (step.plain) {
                int n = 0;
                while (n < step.length && m_p[n] == step.text[n]) ++n;  // stops at the end
                if (n == step.length) {
                    m_p += n;
                    return true;
                }
            }
            int consumed = 0;
            const bool match = m_input.xMatch(m_p, step.text, step.length, consumed);
            m_p += consumed;
            return match;
        }
        case TokAmPm:
        case TokAmPmUpper:
        case TokAmPmLower:
        case TokAmPmCap:
            return Marker();
        case TokMonthName:
        case TokMonthNameUpper:
        case TokMonthNameLower:
        case TokMonthNameCap:
            return MonthName(false);
        case TokAbbMonthName:
        case TokAbbMonthNameUpper:
        case TokAbbMonthNameLower:
        case TokAbbMonthNameCap:
            return MonthName(true);
        case TokHour00To23:
        case TokHour0To23:
        case TokHour01To24:
        case TokHour1To24:
            return Hour24();
        case TokHour01To12:
        case TokHour1To12:
        case TokHour00To11:
        case TokHour0To11:
            return Number(2, m_hour12);
        case TokMonth01:
        case TokMonth1:
            return SetNumber(TimeLib::Month, 2, -1);
        case TokMinute00:
        case TokMinute0:
            return SetNumber(TimeLib::Minute, 2);
        case TokSecond00:
        case TokSecond0:
            return SetNumber(TimeLib::Second, 2);
        case TokYear0000:
            return Year4();
        case TokYear00: {
            int value = 0;
            if (!Number(2, value)) return false;
            m_fields.set(TimeLib::Year, m_input.TwoDigitYear(value));
            return true;
        }
        case TokJapaneseImpYear0:
            return ImperialYear(false);
        case TokJapaneseImpYear:
            return SetNumber(TimeLib::Year, 2, 1988);
        case TokJapaneseImpYearEng:
            return ImperialYear(true);
        case TokDayName:
        case TokDayNameUpper:
        case TokDayNameLower:
        case TokDayNameCap:
            return DayName(false);
        case TokAbbDayName:
        case TokAbbDayNameUpper:
        case TokAbbDayNameLower:
        case TokAbbDayNameCap:
            return DayName(true);
        case TokMonthDay00:
        case TokMonthDay0:
            return SetNumber(TimeLib::Day_of_month, 2);
        case TokDateSeparator: {
            const unsigned short* separator = m_names.GetDateSeparator();
            int consumed = 0;
            if (!m_input.ncMatch(m_p, separator, Length(separator), consumed)) return false;
            m_p += consumed;
            return true;
        }
        case TokTimeSeparator:
            return TimeSeparator();
        default:  // BuildFrom lets no other token through
            return false;
    }
}

// No marker at all leaves the hour as written: a 12-hour token then read a
// 24-hour value after all.
bool luInputDateImp::Reader::Marker() {
    if (Word(m_input.m_values->AmPmName(0))) {
        m_fields.set(TimeLib::Am_pm, 0);
    } else if (Word(m_input.m_values->AmPmName(1))) {
        m_fields.set(TimeLib::Am_pm, 1);
    } else {
        m_noMarker = true;
    }
    return true;
}

// From December down, so that of two names where one begins the other the
// later month is tried first, as the locales' tables were written for.
bool luInputDateImp::Reader::MonthName(bool abbreviated) {
    for (int month = 12; month >= 1; --month) {
        const unsigned short* name =
            abbreviated ? m_names.GetShortNameOfMonth(month) : m_names.GetNameOfMonth(month);
        if (Word(name)) {
            m_fields.set(TimeLib::Month, month - 1);
            break;
        }
    }
    return true;
}

// A day name is read past but sets nothing: the date alone decides the day.
bool luInputDateImp::Reader::DayName(bool abbreviated) {
    for (int day = 0; day < 7; ++day)
        if (Word(abbreviated ? m_names.GetShortNameOfDay(day) : m_names.GetNameOfDay(day))) break;
    return true;
}

// Up to four digits; a short field (under three units, blanks counted) is a
// two-digit year.
bool luInputDateImp::Reader::Year4() {
    int value = 0;
    int consumed = 0;
    if (!m_input.xNum(m_p, value, 4, consumed)) return false;
    m_p += consumed;
    m_fields.set(TimeLib::Year, consumed < 3 ? m_input.TwoDigitYear(value) : value);
    return true;
}

// An era by its name or its letter, then the year within it.
bool luInputDateImp::Reader::ImperialYear(bool byLetter) {
    for (int index = 0; index < kJapaneseEraCount; ++index) {
        const luJapaneseEra& era = JapaneseEra(index);
        int consumed = 0;
        const bool match = byLetter ? m_input.xMatch(m_p, &era.letter, 1, consumed)
                                    : m_input.xMatch(m_p, era.name, Length(era.name), consumed);
        if (!match) continue;
        m_p += consumed;
        return SetNumber(TimeLib::Year, 2, era.base);
    }
    return false;
}

// Without the separator, the end of the text is accepted and a digit in its
// place is passed over, so that "1230" reads as hour 12 and minute 0.
bool luInputDateImp::Reader::TimeSeparator() {
    const unsigned short* separator = m_names.GetTimeSeparator();
    int consumed = 0;
    if (m_input.ncMatch(m_p, separator, Length(separator), consumed)) {
        m_p += consumed;
        return true;
    }
    if (*m_p == 0) return true;
    if (!m_input.m_values->CharacterFacet().impl().IsDigit(*m_p)) return false;
    ++m_p;
    return true;
}

void luInputDateImp::Reader::SettleHour() {
    if (m_hour12 < 0) return;
    if (m_noMarker)
        m_fields.set(TimeLib::Hour_of_day, m_hour12 == 24 ? 0 : m_hour12);
    else
        m_fields.set(TimeLib::Hour, m_hour12 == 12 ? 0 : m_hour12);
}

bool luInputDateImp::Scan(const unsigned short* text, TimeLib::luCalendarTime& result,
                          int& position) {
    m_calendarError = false;
    Reader reader(*this, text);
    bool ok = true;
    for (const Step& step : m_steps)
        if (!(ok = reader.Read(step))) break;
    if (ok) {
        reader.SettleHour();
        try {
            result.set(reader.Fields());
        } catch (...) {
            m_calendarError = true;
            ok = false;
        }
    }
    position = static_cast<int>(reader.Place() - text);
    return ok;
}

}  // namespace FmtLib

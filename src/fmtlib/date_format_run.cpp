// Formatting a calendar time: each token of the pattern reads its field and
// writes it as a number in the locale's digits or as a word of the locale.
#include <cstdint>

#include "fmtlib/date_format_imp.h"
#include "fmtlib/japanese_eras.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/timelib/lu_calendar_time.h"

using TimeLib::luCalendarTime;

namespace FmtLib {
namespace {

const unsigned short kFormatError[] = {u'#', u'F', u'O', u'R', u'M', u'A', u'T', 0};

// The first token of each group of four name tokens, whose forms follow in
// the order plain, upper, lower, cap.
bool NameGroup(int id, int& base) {
    static const int kBases[] = {TokAmPm, TokMonthName, TokAbbMonthName, TokDayName, TokAbbDayName};
    for (int b : kBases)
        if (id >= b && id < b + 4) return base = b, true;
    return false;
}

// The facet's Monday-first index of a Day_of_week (1 for Sunday), or -1.
int MondayFirstDay(int dayOfWeek) {
    if (dayOfWeek < 1 || dayOfWeek > 7) return -1;
    return (dayOfWeek + 5) % 7;
}

}  // namespace

bool luDateFormatImp::FormatError() {
    m_result.assign(m_errorText.data(), m_errorText.length());
    m_colour = m_errorColour;
    return true;
}

bool luDateFormatImp::Format(const luCalendarTime& time) {
    m_japanese.computed = false;
    m_result.clear();
    m_colour = m_valueColour;
    if (m_pattern == nullptr) return true;
    for (const luToken* token : *m_pattern) Render(*token, time);
    return true;
}

void luDateFormatImp::Render(const luToken& token, const luCalendarTime& time) {
    if (token.IsLiteral()) {
        m_result.append_units(token.LiteralText(), token.LiteralLength());
        return;
    }
    const int id = token.TokenId();
    if (id == TokError) return Write(kFormatError);
    if (!IsDateToken(id)) return;  // number, default and colour tokens: nothing
    if (RenderName(id, time) || RenderHour(id, time) || RenderNumber(id, time) ||
        RenderJapanese(id, time))
        return;
    RenderWord(id, time);
}

bool luDateFormatImp::RenderName(int id, const luCalendarTime& time) {
    int base = 0;
    if (!NameGroup(id, base)) return false;
    const lu_ctime& names = m_values->DateFacet();
    const NameCase form = static_cast<NameCase>(id - base);
    if (base == TokAmPm) {
        const int index = time.get(TimeLib::Am_pm);
        if (index == 0 || index == 1) WriteName(m_values->AmPmName(index), form);
    } else if (base == TokMonthName || base == TokAbbMonthName) {
        const int month = time.get(TimeLib::Month);
        if (month < 0 || month > 12) return true;  // the facet holds 13 months
        WriteName(base == TokMonthName ? names.GetNameOfMonth(month + 1)
                                       : names.GetShortNameOfMonth(month + 1),
                  form);
    } else {
        const int day = MondayFirstDay(time.get(TimeLib::Day_of_week));
        if (day < 0) return true;
        WriteName(base == TokDayName ? names.GetNameOfDay(day) : names.GetShortNameOfDay(day),
                  form);
    }
    return true;
}

bool luDateFormatImp::RenderHour(int id, const luCalendarTime& time) {
    switch (id) {
        case TokHour00To23:
        case TokHour0To23:
            WriteNumber(time.get(TimeLib::Hour_of_day), id == TokHour00To23 ? 2 : 1);
            return true;
        case TokHour01To12:
        case TokHour1To12: {
            const int hour = time.get(TimeLib::Hour);
            WriteNumber(hour == 0 ? 12 : hour, id == TokHour01To12 ? 2 : 1);
            return true;
        }
        case TokHour01To24:
        case TokHour1To24: {
            const int hour = time.get(TimeLib::Hour_of_day);
            WriteNumber(hour == 0 ? 24 : hour, id == TokHour01To24 ? 2 : 1);
            return true;
        }
        case TokHour00To11:
        case TokHour0To11:
            WriteNumber(time.get(TimeLib::Hour), id == TokHour00To11 ? 2 : 1);
            return true;
        default:
            return false;
    }
}

// The number tokens other than hours: a field, perhaps reduced, and a width.
bool luDateFormatImp::RenderNumber(int id, const luCalendarTime& time) {
    using namespace TimeLib;
    switch (id) {
        case TokMonth01:
        case TokMonth1:
            return WriteNumber(time.get(Month) + 1, id == TokMonth01 ? 2 : 1), true;
        case TokMinute00:
        case TokMinute0:
            return WriteNumber(time.get(Minute), id == TokMinute00 ? 2 : 1), true;
        case TokSecond00:
        case TokSecond0:
            return WriteNumber(time.get(Second), id == TokSecond00 ? 2 : 1), true;
        case TokMillisecond000:
            return WriteNumber(time.get(Millisecond), 3), true;
        case TokHundredthSecond00:
            return WriteNumber(time.get(Millisecond) / 10, 2), true;
        case TokTenthSecond0:
            return WriteNumber(time.get(Millisecond) / 100, 1), true;
        case TokYear0000:
            return WriteNumber(time.get(Year), 4), true;
        case TokYear00:
            return WriteNumber(time.get(Year) % 100, 2), true;
        case TokMonthDay00:
        case TokMonthDay0:
            return WriteNumber(time.get(Day_of_month), id == TokMonthDay00 ? 2 : 1), true;
        case TokDayOfWeekInMonth:
            return WriteNumber(time.get(Day_of_week_in_month), 1), true;
        case TokDayOfYear000:
        case TokDayOfYear00:
        case TokDayOfYear0:
            return WriteNumber(time.get(Day_of_year), TokDayOfYear0 - id + 1), true;
        case TokWeekOfYear00:
        case TokWeekOfYear0:
            return WriteNumber(time.get(Week_of_year), id == TokWeekOfYear00 ? 2 : 1), true;
        case TokWeekOfMonth:
            return WriteNumber(time.get(Week_of_month), 1), true;
        case TokYearOfWeekOfYear0000:
            return WriteNumber(time.get(Year_woy), 4), true;
        case TokYearOfWeekOfYear00:
            return WriteNumber(time.get(Year_woy) % 100, 2), true;
        default:
            return false;
    }
}

// Era words and separators; the time zone token and anything else write
// nothing.
void luDateFormatImp::RenderWord(int id, const luCalendarTime& time) {
    const lu_ctime& names = m_values->DateFacet();
    if (id == TokEra) {
        const int era = time.get(TimeLib::Era);
        if (era == 0 || era == 1) Write(names.GetAdBc(era));
    } else if (id == TokDateSeparator) {
        Write(names.GetDateSeparator());
    } else if (id == TokTimeSeparator) {
        Write(names.GetTimeSeparator());
    }
}

bool luDateFormatImp::RenderJapanese(int id, const luCalendarTime& time) {
    switch (id) {
        case TokJapaneseImpYear0:
        case TokJapaneseImpYear:
        case TokJapaneseImpYearEng:
        case TokJapaneseImperialPeriod:
        case TokJapaneseImperialYear0:
        case TokJapaneseImperialYear00:
            break;
        default:
            return false;
    }
    const luJapaneseEraCache& cache = JapaneseEra(time);
    if (!cache.valid) return true;
    const luJapaneseEra& era = FmtLib::JapaneseEra(cache.era);
    if (id == TokJapaneseImpYear0 || id == TokJapaneseImperialPeriod) Write(era.name);
    if (id == TokJapaneseImpYear0) m_result.push_back(u' ');
    if (id == TokJapaneseImpYearEng) m_result.push_back(era.letter);
    if (id != TokJapaneseImperialPeriod)
        WriteNumber(cache.yearInEra, id == TokJapaneseImperialYear00 ? 2 : 1);
    return true;
}

// Found once per Format call, at the first Japanese token.
const luJapaneseEraCache& luDateFormatImp::JapaneseEra(const luCalendarTime& time) {
    if (m_japanese.computed) return m_japanese;
    std::int64_t year = time.get(TimeLib::Year);
    if (time.get(TimeLib::Era) == 0) year = 1 - year;
    const int month = time.get(TimeLib::Month);
    const int day = time.get(TimeLib::Day_of_month);
    const int era = FindJapaneseEra(JapaneseEraKey(year, month, day));
    m_japanese.computed = true;
    m_japanese.valid = era >= 0;
    m_japanese.era = era;
    m_japanese.yearInEra =
        era >= 0 ? static_cast<std::int32_t>(year - FmtLib::JapaneseEra(era).base) : 0;
    return m_japanese;
}

// The facet's word, or a copy converted unit by unit by the settings'
// character facet.
void luDateFormatImp::WriteName(const unsigned short* name, NameCase form) {
    if (name == nullptr) return;
    if (form == Plain) return Write(name);
    m_scratch.assign(name);
    const lu_ctype& ctype = m_values->CharacterFacet();
    const unsigned int length = m_scratch.length();
    for (unsigned int i = 0; i < length; ++i) {
        unsigned short& unit = m_scratch[i];
        if (form == Upper || (form == Cap && i == 0))
            unit = ctype.toupper(unit);
        else if (form == Lower)
            unit = ctype.tolower(unit);
    }
    m_result.append_units(m_scratch.data(), length);
}

// The magnitude in the locale's digits, zero-padded on the left to `width`.
// The digits are laid out from the right in a local buffer and appended in
// one call: the scratch formatter's push_back would reload and store its
// length for every digit. Widths are 1 to 4 and a magnitude has at most 10
// digits, so 16 units always hold the text.
void luDateFormatImp::WriteNumber(int value, int width) {
    std::uint32_t magnitude =
        value < 0 ? 0u - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
    const unsigned short* digits = m_values->Digits();
    unsigned short text[16];
    unsigned short* const end = text + 16;
    unsigned short* at = end;
    do {
        *--at = digits[magnitude % 10];
        magnitude /= 10;
    } while (magnitude != 0);
    while (end - at < width && at > text) *--at = digits[0];
    m_result.append_units(at, static_cast<unsigned int>(end - at));
}

}  // namespace FmtLib

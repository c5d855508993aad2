// Formatting a calendar time: each step of the compiled pattern reads its
// field and writes it as a number in the locale's digits or as a word of the
// locale.
#include <cstdint>
#include <cstring>

#include "fmtlib/date_format_imp.h"
#include "fmtlib/japanese_eras.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/timelib/lu_calendar_time.h"

using TimeLib::luCalendarTime;

namespace FmtLib {
namespace {

// The facet's Monday-first index of a Day_of_week (1 for Sunday), or -1.
int MondayFirstDay(int dayOfWeek) {
    if (dayOfWeek < 1 || dayOfWeek > 7) return -1;
    return (dayOfWeek + 5) % 7;
}

int Adjusted(int value, std::uint8_t adjust) {
    switch (adjust) {
        case luDateStep::PlusOne:
            return value + 1;
        case luDateStep::Div10:
            return value / 10;
        case luDateStep::Div100:
            return value / 100;
        case luDateStep::Mod100:
            return value % 100;
        case luDateStep::ZeroAs12:
            return value == 0 ? 12 : value;
        case luDateStep::ZeroAs24:
            return value == 0 ? 24 : value;
        default:
            return value;
    }
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
    if (m_bounded && m_boundedLength < m_result.capacity()) {
        RunBounded(time);
        return true;
    }
    for (const luDateStep& step : m_program) Run(step, time);
    return true;
}

// The room for the longest text was checked, so units are stored without
// further checks and the length is set once. A field that cannot be read
// leaves the text written before it, as the checked path does.
void luDateFormatImp::RunBounded(const luCalendarTime& time) {
    unsigned short* const out = m_result.storage();
    unsigned int length = 0;
    try {
        for (const luDateStep& step : m_program) {
            if (step.kind == luDateStep::Literal) {
                std::memcpy(out + length, step.text, step.length * sizeof(unsigned short));
                length += step.length;
            } else {
                length += PutNumber(out + length, Adjusted(time.get(step.field), step.adjust),
                                    step.width);
            }
        }
    } catch (...) {
        m_result.set_length(length);
        throw;
    }
    m_result.set_length(length);
}

// Stores the magnitude of `value`, padded to `width` (at most 4), at `out`
// without checking for room: the caller leaves ten units. The four digits of
// a magnitude below 10,000 are packed into one word, shifted so that the last
// `count` come first, and stored whole; the units past `count` lie in the
// room left for the number and are overwritten or ignored. The number of
// units written.
inline unsigned int luDateFormatImp::PutNumber(unsigned short* out, int value,
                                               unsigned int width) const {
    const std::uint32_t magnitude =
        value < 0 ? 0u - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
    if (magnitude >= 10000) return PutLarge(out, magnitude);
    const unsigned short* digits = m_values->Digits();
    const std::uint32_t high = magnitude / 100;
    const std::uint32_t low = magnitude % 100;
    const std::uint64_t packed =
        std::uint64_t{digits[high / 10]} | std::uint64_t{digits[high % 10]} << 16 |
        std::uint64_t{digits[low / 10]} << 32 | std::uint64_t{digits[low % 10]} << 48;
    unsigned int count = 1u + (magnitude >= 10) + (magnitude >= 100) + (magnitude >= 1000);
    if (count < width) count = width;
    const std::uint64_t kept = packed >> (16 * (4 - count));
    out[0] = static_cast<unsigned short>(kept);
    out[1] = static_cast<unsigned short>(kept >> 16);
    out[2] = static_cast<unsigned short>(kept >> 32);
    out[3] = static_cast<unsigned short>(kept >> 48);
    return count;
}

// Five digits or more: wider than any padding, so only the digits.
unsigned int luDateFormatImp::PutLarge(unsigned short* out, std::uint32_t magnitude) const {
    const unsigned short* digits = m_values->Digits();
    unsigned short text[10];
    unsigned int at = 10;
    do {
        text[--at] = digits[magnitude % 10];
        magnitude /= 10;
    } while (magnitude != 0);
    std::memcpy(out, text + at, (10 - at) * sizeof(unsigned short));
    return 10 - at;
}

// Each step reads its field once, in the order of the pattern's tokens.
inline void luDateFormatImp::Run(const luDateStep& step, const luCalendarTime& time) {
    switch (step.kind) {
        case luDateStep::Literal:
            return m_result.append_units(step.text, step.length);
        case luDateStep::Number:
            return WriteNumber(Adjusted(time.get(step.field), step.adjust), step.width);
        case luDateStep::Era: {
            const int era = time.get(TimeLib::Era);
            if (era == 0 || era == 1) Write(m_values->DateFacet().GetAdBc(era));
            return;
        }
        case luDateStep::DateSeparator:
            return Write(m_values->DateFacet().GetDateSeparator());
        case luDateStep::TimeSeparator:
            return Write(m_values->DateFacet().GetTimeSeparator());
        case luDateStep::Japanese:
            return RunJapanese(step.token, time);
        default:
            return RunName(step, time);
    }
}

void luDateFormatImp::RunName(const luDateStep& step, const luCalendarTime& time) {
    const lu_ctime& names = m_values->DateFacet();
    const NameCase form = static_cast<NameCase>(step.adjust);
    switch (step.kind) {
        case luDateStep::AmPm: {
            const int index = time.get(TimeLib::Am_pm);
            if (index == 0 || index == 1) WriteName(m_values->AmPmName(index), form);
            return;
        }
        case luDateStep::MonthName:
        case luDateStep::AbbMonthName: {
            const int month = time.get(TimeLib::Month);
            if (month < 0 || month > 12) return;  // the facet holds 13 months
            WriteName(step.kind == luDateStep::MonthName ? names.GetNameOfMonth(month + 1)
                                                         : names.GetShortNameOfMonth(month + 1),
                      form);
            return;
        }
        default: {
            const int day = MondayFirstDay(time.get(TimeLib::Day_of_week));
            if (day < 0) return;
            WriteName(step.kind == luDateStep::DayName ? names.GetNameOfDay(day)
                                                       : names.GetShortNameOfDay(day),
                      form);
            return;
        }
    }
}

void luDateFormatImp::RunJapanese(int id, const luCalendarTime& time) {
    const luJapaneseEraCache& cache = JapaneseEra(time);
    if (!cache.valid) return;
    const luJapaneseEra& era = FmtLib::JapaneseEra(cache.era);
    if (id == TokJapaneseImpYear0 || id == TokJapaneseImperialPeriod) Write(era.name);
    if (id == TokJapaneseImpYear0) m_result.push_back(u' ');
    if (id == TokJapaneseImpYearEng) m_result.push_back(era.letter);
    if (id != TokJapaneseImperialPeriod)
        WriteNumber(cache.yearInEra, id == TokJapaneseImperialYear00 ? 2 : 1);
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

// A zero-terminated word: measured, then copied in one go when it fits;
// otherwise unit by unit while it fits and the rest by the formatter's own
// append, which grows the storage (or throws with the units so far kept).
void luDateFormatImp::Write(const unsigned short* text) {
    if (text == nullptr) return;
    unsigned int count = 0;
    while (text[count] != 0) ++count;
    const unsigned int last = m_result.capacity() - 1;  // the terminator's place
    unsigned int length = m_result.length();
    if (length + count <= last) return m_result.append_units(text, count);
    unsigned short* const out = m_result.storage();
    while (*text != 0 && length < last) out[length++] = *text++;
    m_result.set_length(length);
    if (*text != 0) m_result.append(text);
}

// The magnitude in the locale's digits, zero-padded on the left to `width`
// (1 to 4), written straight into the result's storage by PutNumber. 12
// units of room hold the terminator and any magnitude (at most 10 digits).
inline void luDateFormatImp::WriteNumber(int value, int width) {
    const unsigned int length = m_result.length();
    if (width > 4 || length + 12u > m_result.capacity()) {
        const std::uint32_t magnitude =
            value < 0 ? 0u - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
        return WriteNumberSlow(magnitude, width);
    }
    const unsigned int count =
        PutNumber(m_result.storage() + length, value, static_cast<unsigned int>(width));
    m_result.set_length(length + count);
}

// Large magnitudes and the end of the storage: the digits are laid out from
// the right in a local buffer and appended in one call, which grows the
// storage when needed.
void luDateFormatImp::WriteNumberSlow(std::uint32_t magnitude, int width) {
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

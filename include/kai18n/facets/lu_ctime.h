// Date and time names of a locale: days, months, half-day markers, eras,
// separators, strftime-style default formats and the default format patterns.
#ifndef KAI18N_FACETS_LU_CTIME_H
#define KAI18N_FACETS_LU_CTIME_H

#include <cstdint>

#include "kai18n/locale/lu_locale.h"
#include "kai18n/platform/kalib.h"

namespace lu_ctime_enums {
/// The calendars a date-name facet can stand for; it knows the Gregorian one.
enum calendar { unknown_calendar = 0, gregorian_calendar = 1 };
}  // namespace lu_ctime_enums

/// The body of a lu_ctime: a copy of the record's words, pointing into the
/// record's data. Counted; the count starts at 1.
class lu_ctime_impl : public iluSharedObject {
  public:
    /// The record locale data hands over: 19 words in this order. Strings are
    /// zero-terminated UTF-16; every pointer points into constant data.
    struct StaticStorage {
        std::int32_t reserved0;                     // carried, read by nothing
        std::int32_t reserved1;                     // carried, read by nothing
        const unsigned short* const* short_days;    // 7, Monday first
        const unsigned short* const* days;          // 7, Monday first
        const unsigned short* const* short_months;  // 13, January first
        const unsigned short* const* months;        // 13
        const unsigned short* const* am_pm;         // before noon, after noon
        std::uint32_t era_count;
        const unsigned short* const* eras;       // latest era first
        const std::int32_t* era_years;           // first years, descending
        const unsigned short* date_time_format;  // strftime-style
        const unsigned short* date_format;
        const unsigned short* time_format;
        const unsigned short* am_pm_time_format;
        std::int32_t reserved14;                      // carried, read by nothing
        const unsigned short* const* fmtlib_formats;  // 15 canonical patterns
        const unsigned short* date_separator;
        const unsigned short* time_separator;
        const unsigned short* const* ad_bc;  // the earlier era word first
    };

    /// The number of default format patterns.
    static const int kFmtLibFormatCount = 15;
    /// The start year that marks an era counting backwards from the next one.
    static const std::int32_t kBackwardEra = INT32_MIN;

    /// The built-in English names and formats.
    static const StaticStorage kDefaultCtimeStorage;

    /// A copy of `storage`'s words, or of the defaults for null.
    explicit lu_ctime_impl(const StaticStorage* storage);

    const StaticStorage& record() const { return m_record; }

  protected:
    ~lu_ctime_impl() override;

  private:
    StaticStorage m_record;
};

/// The date and time name facet. No accessor tests its index.
class lu_ctime : public lu_locale::facet {
  public:
    static lu_locale::id id;

    /// The built-in defaults.
    explicit lu_ctime(unsigned int refs = 0);
    /// The given record, which must outlive the facet; null gives the defaults.
    lu_ctime(const lu_ctime_impl::StaticStorage* storage, unsigned int refs);

    /// `day` 0 is Monday, 6 Sunday.
    const unsigned short* GetShortNameOfDay(int day) const { return m().short_days[day]; }
    const unsigned short* GetNameOfDay(int day) const { return m().days[day]; }
    /// `month` 1 is January; 13 is the thirteenth entry (empty by default).
    const unsigned short* GetShortNameOfMonth(int month) const {
        return m().short_months[month - 1];
    }
    const unsigned short* GetNameOfMonth(int month) const { return m().months[month - 1]; }
    /// 0 before noon, 1 after noon.
    const unsigned short* GetAmPm(int i) const { return m().am_pm[i]; }
    unsigned int GetNumberOfEra() const { return m().era_count; }
    /// Era names, latest era first.
    const unsigned short* GetEra(int i) const { return m().eras[i]; }
    long GetEraYear(int i) const { return m().era_years[i]; }
    /// Era words, the earlier one first.
    const unsigned short* GetAdBc(int i) const { return m().ad_bc[i]; }
    const unsigned short* GetDefaultDateTimeFormat() const { return m().date_time_format; }
    const unsigned short* GetDefaultDateFormat() const { return m().date_format; }
    const unsigned short* GetDefaultTimeFormat() const { return m().time_format; }
    const unsigned short* GetDefaultAmPmTimeFormat() const { return m().am_pm_time_format; }
    const unsigned short* GetDateSeparator() const { return m().date_separator; }
    const unsigned short* GetTimeSeparator() const { return m().time_separator; }
    /// Pattern `i` (0 to 14) in canonical notation.
    const unsigned short* GetFmtLibDefaultFormat(int i) const { return m().fmtlib_formats[i]; }
    lu_ctime_enums::calendar GetCalendar() const { return lu_ctime_enums::gregorian_calendar; }

    /// The era of `year` on the astronomical scale (year 0 is the year before
    /// year 1): its name, and through `era_year` (if not null) the year within
    /// it. A year equal to an era's first year falls to the era before. A
    /// year before every era gives the empty string and itself.
    const unsigned short* FindEra(long year, long* era_year) const;
    /// The era year that FindEra gives.
    long FindEraYear(long year) const;

  protected:
    ~lu_ctime() override;

  private:
    const lu_ctime_impl::StaticStorage& m() const { return m_impl->record(); }

    lu_ctime_impl* m_impl;
};

#endif  // KAI18N_FACETS_LU_CTIME_H

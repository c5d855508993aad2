// lu_date_time printing: a strftime of the library's own on UTF-16 text, with
// the names and default formats of a locale's lu_ctime, and the diagnostic
// outlets Trace and operator<<.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <ostream>

#include "kai18n/datetime/lu_date_time.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string.h"
#include "kai18n/strings/ucs2string_formatter.h"

namespace {

// The nested formats that conversions expand to.
const unsigned short kMonthDayYear[] = {'%', 'm', '/', '%', 'd', '/', '%', 'y', 0};
const unsigned short kTwelveHourTime[] = {'%', 'I', ':', '%', 'M', ':', '%', 'S', ' ', '%', 'p', 0};
const unsigned short kTime[] = {'%', 'H', ':', '%', 'M', ':', '%', 'S', 0};
const unsigned short kEraYear[] = {'%', 's', 0};
const unsigned short kEraYearAndName[] = {'%', 's', ' ', '%', 'P', 0};

// How deep conversions that print another format (c, D, f, r, T, x, X) may
// nest. The built-in formats need three levels (c, then x, then D); locale
// data whose default formats name %c or %x would otherwise never end. At the
// limit such a conversion prints nothing.
constexpr int kMaxNesting = 4;

// A width beyond this cannot fit any formatter, which then throws; capping it
// keeps the parse free of overflow.
constexpr int kMaxWidth = 65535;

// append_formatted for a number, with a short road for what a date prints
// most: up to four digits in a field of up to four units. The units are
// chosen without branches on the value, as its digit count varies from date
// to date; the text is the same.
inline __attribute__((always_inline)) void AppendNumber(ucs2string_formatter& out, long value,
                                                        int width, int align, unsigned short fill) {
    if (value < 0 || value > 9999 || width > 4 || align == ucs2string_formatter::align_left) {
        out.append_formatted(value, width, align, fill);
        return;
    }
    const unsigned int v = static_cast<unsigned int>(value);
    const int count = 1 + (v >= 10) + (v >= 100) + (v >= 1000);
    if (width >= 0 && count > width) {
        out.append_formatted(value, width, align, fill);  // a field of '#', or nothing
        return;
    }
    const int total = align == ucs2string_formatter::align_right && width > count ? width : count;
    // The four units a field of four would show, the first in the low bits;
    // a shorter field keeps the last `total` of them.
    const std::uint64_t four =
        static_cast<std::uint64_t>(v >= 1000 ? '0' + v / 1000 : fill) |
        static_cast<std::uint64_t>(v >= 100 ? '0' + v / 100 % 10 : fill) << 16 |
        static_cast<std::uint64_t>(v >= 10 ? '0' + v / 10 % 10 : fill) << 32 |
        static_cast<std::uint64_t>('0' + v % 10) << 48;
    out.append_packed(four >> (16 * (4 - total)), static_cast<unsigned int>(total));
}

// One conversion as parsed behind its '%'.
struct Conversion {
    unsigned short letter;
    int width;            // -1: no width
    int field_align;      // 1 left ('-'), 2 right
    unsigned short fill;  // '0' after the flag '0', else a blank
    int inner_align;      // 2, or 0 after the flag '#'
};

class DatePrinter {
  public:
    DatePrinter(const lu_date_time& value, const lu_ctime& names) : m_value(value), m_names(names) {
        value.Ymd(m_year, m_month, m_day);
        value.Hmsms(m_hour, m_minute, m_second, m_millisecond);
    }

    void Print(ucs2string_formatter& out, const unsigned short* format, int depth) const;

  private:
    // A conversion with a width: its text goes through a field.
    void ConvertField(ucs2string_formatter& out, const Conversion& c, int depth) const;
    // Appends one conversion's text to `text`.
    void Convert(ucs2string_formatter& text, const Conversion& c, int depth) const;
    void Nested(ucs2string_formatter& text, const unsigned short* format, int depth) const {
        if (depth < kMaxNesting) Print(text, format, depth + 1);
    }
    // A number with the conversion's own width and fill, aligned as the flag '#' says.
    static void Number(ucs2string_formatter& text, long value, int width, unsigned short fill,
                       const Conversion& c) {
        AppendNumber(text, value, width, c.inner_align, fill);
    }
    // A number that takes the parsed width, alignment and fill as its own.
    static void ParsedNumber(ucs2string_formatter& text, long value, const Conversion& c) {
        AppendNumber(text, value, c.width, c.inner_align == 0 ? 0 : c.field_align, c.fill);
    }
    static void RightBlanks(ucs2string_formatter& text, long value) {
        AppendNumber(text, value, 2, ucs2string_formatter::align_right, ' ');
    }
    int TwelveHour() const { return m_hour % 12 == 0 ? 12 : m_hour % 12; }

    const lu_date_time& m_value;
    const lu_ctime& m_names;
    int m_year, m_month, m_day, m_hour, m_minute, m_second, m_millisecond;
};

void DatePrinter::Print(ucs2string_formatter& out, const unsigned short* format, int depth) const {
    if (format == nullptr) return;
    const unsigned short* p = format;
    while (*p != 0) {
        if (*p != '%' || p[1] == 0) {
            const unsigned short* const run = p;
            while (*++p != 0 && (*p != '%' || p[1] == 0)) {
            }
            out.append_units(run, static_cast<unsigned int>(p - run));
            continue;
        }
        const unsigned short* const start = p++;
        Conversion c{0, -1, ucs2string_formatter::align_right, ' ',
                     ucs2string_formatter::align_right};
        if (*p == '#' && p[1] != 0) {
            c.inner_align = ucs2string_formatter::align_none;
            ++p;
        }
        if (*p == '-') {
            c.field_align = ucs2string_formatter::align_left;
            ++p;
        } else if (*p == '0') {
            c.fill = '0';
            ++p;
        }
        int width = 0;
        for (; *p >= '0' && *p <= '9'; ++p) width = std::min(width * 10 + (*p - '0'), kMaxWidth);
        if (width > 0) c.width = width;
        if (*p == 0) {
            // The format ends where the conversion was due: what was read of
            // it is copied, as anything not understood is.
            out.append(start, static_cast<unsigned int>(p - start));
            break;
        }
        c.letter = *p++;
        if (c.width < 0) {
            // A field without a width is its text as it stands.
            Convert(out, c, depth);
        } else {
            ConvertField(out, c, depth);
        }
    }
}

// Out of line, so that the scratch buffer is on the stack only for a field.
__attribute__((noinline)) void DatePrinter::ConvertField(ucs2string_formatter& out,
                                                         const Conversion& c, int depth) const {
    ucs2string_formatter scratch;
    Convert(scratch, c, depth);
    out.append_formatted(scratch, c.width, c.field_align, c.fill);
}

inline __attribute__((always_inline)) void DatePrinter::Convert(ucs2string_formatter& text,
                                                                const Conversion& c,
                                                                int depth) const {
    switch (c.letter) {
        case 'a':
            text.append(m_names.GetShortNameOfDay(static_cast<int>(m_value.WeekDay(0))));
            break;
        case 'A':
            text.append(m_names.GetNameOfDay(static_cast<int>(m_value.WeekDay(0))));
            break;
        case 'b':
            text.append(m_names.GetShortNameOfMonth(m_month));
            break;
        case 'B':
            text.append(m_names.GetNameOfMonth(m_month));
            break;
        case 'c':
            Nested(text, m_names.GetDefaultDateFormat(), depth);
            text.push_back(' ');
            Nested(text, m_names.GetDefaultTimeFormat(), depth);
            break;
        case 'C':
            ParsedNumber(text, m_year > 0 ? m_year / 100 : (m_year - 1) / 100, c);
            break;
        case 'd':
            Number(text, m_day, 2, '0', c);
            break;
        case 'D':
            Nested(text, kMonthDayYear, depth);
            break;
        case 'e':
            RightBlanks(text, m_day);
            break;
        case 'E':
            Number(text, m_names.FindEraYear(m_year), 4, '0', c);
            break;
        case 'f':
            Nested(text, m_year < 1000 ? kEraYearAndName : kEraYear, depth);
            break;
        case 'H':
            Number(text, m_hour, 2, '0', c);
            break;
        case 'I':
            Number(text, TwelveHour(), 2, '0', c);
            break;
        case 'j':
            Number(text, static_cast<long>(m_value.YearDay()), 3, '0', c);
            break;
        case 'k':
            RightBlanks(text, m_hour);
            break;
        case 'l':
            RightBlanks(text, TwelveHour());
            break;
        case 'm':
            Number(text, m_month, 2, '0', c);
            break;
        case 'M':
            Number(text, m_minute, 2, '0', c);
            break;
        case 'n':
            text.push_back('\n');
            break;
        case 'p':
            text.append(m_names.GetAmPm(m_hour < 12 ? 0 : 1));
            break;
        case 'P':
            text.append(m_names.FindEra(m_year, nullptr));
            break;
        case 'q':
            Number(text, m_millisecond, 3, '0', c);
            break;
        case 'r':
            Nested(text, kTwelveHourTime, depth);
            break;
        case 's':
            text.append_formatted(static_cast<long>(m_year > 0 ? m_year : 1 - m_year), -1,
                                  ucs2string_formatter::align_left, ' ');
            break;
        case 'S':
            Number(text, m_second, 2, '0', c);
            break;
        case 't':
            text.push_back('\t');
            break;
        case 'T':
            Nested(text, kTime, depth);
            break;
        case 'U':
            Number(text, static_cast<long>(m_value.YearWeek(6)), 2, '0', c);
            break;
        case 'w':
            Number(text, static_cast<long>(m_value.WeekDay(6)), 1, '0', c);
            break;
        case 'W':
            Number(text, static_cast<long>(m_value.YearWeek(0)), 2, '0', c);
            break;
        case 'x':
            Nested(text, m_names.GetDefaultDateFormat(), depth);
            break;
        case 'X':
            Nested(text, m_names.GetDefaultTimeFormat(), depth);
            break;
        case 'y':
            Number(text, m_year % 100, 2, '0', c);
            break;
        case 'Y':
            // There is no year 0 in the text: the year before 1 is -1.
            ParsedNumber(text, m_year > 0 ? m_year : m_year - 1, c);
            break;
        case 'Z':
            break;
        default:  // '%' and every unknown unit stand for themselves
            text.push_back(c.letter);
            break;
    }
}

}  // namespace

void lu_date_time::Print(ucs2string_formatter& out, const unsigned short* format,
                         const lu_locale& locale) const {
    if (IsNull()) return;
    const DatePrinter printer(*this, lu_use_facet<lu_ctime>(locale));
    const unsigned int length = out.length();
    try {
        printer.Print(out, format, 0);
    } catch (...) {
        out.resize(length);  // a failed print leaves no partial text
        throw;
    }
}

void lu_date_time::Print(ucs2string& out, const unsigned short* format,
                         const lu_locale& locale) const {
    ucs2string_formatter text;
    Print(text, format, locale);
    text.append_to(out);
}

void lu_date_time::Trace(std::ostream& stream) const {
    if (IsNull()) {
        stream << "Null date/time" << std::endl;
        return;
    }
    int year, month, day, hour, minute, second, millisecond;
    Ymd(year, month, day);
    Hmsms(hour, minute, second, millisecond);
    char text[96];
    std::snprintf(text, sizeof text, "%4d/%2d/%2d %2d:%2d:%2d.%04d (%.6f)", year, month, day, hour,
                  minute, second, millisecond, m_mjd);
    stream << text;
}

std::ostream& operator<<(std::ostream& stream, const lu_date_time& value) {
    if (value.IsNull()) return stream << "Null datetime";
    const lu_locale classic = lu_locale::classic();
    ucs2string text;
    value.Print(text, lu_use_facet<lu_ctime>(classic).GetDefaultDateTimeFormat(), classic);
    return stream << text;
}

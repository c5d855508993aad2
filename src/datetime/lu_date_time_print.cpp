// lu_date_time printing: a strftime of the library's own on UTF-16 text, with
// the names and default formats of a locale's lu_ctime, and the diagnostic
// outlets Trace and operator<<.
#include <algorithm>
#include <cstddef>
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

// For the functions that a Sink is handed to. A sink stays in registers only
// while no function out of line gets its address, so these are inlined by
// force, also into the large printing loop where the compiler would stop.
#define KAI18N_HOT_INLINE inline __attribute__((always_inline))

// The text a Print appends, written through pointers that the compiler keeps
// in registers. The formatter's own appends load and store its 16-bit length
// around every piece, as any unit they store might be that length; a sink
// sets the length once, when it hands the text back. It asks for room exactly
// as the formatter's appends would, so the text outgrows the formatter at the
// same point, with the same exception, and ends with the same capacity.
//
// A sink is a local seen only by inlined code; what is done out of line is
// done on the formatter itself, through Through.
class Sink {
  public:
    explicit Sink(ucs2string_formatter& out) : m_out(out) { Take(); }

    // Hands the text back to the formatter: its length and terminator.
    KAI18N_HOT_INLINE void Commit() { m_out.set_length(static_cast<unsigned int>(m_at - m_begin)); }

    KAI18N_HOT_INLINE bool HasRoom(unsigned int count) const { return Room() >= count; }
    // Room for `count` units behind the text and the terminator after them.
    KAI18N_HOT_INLINE void MakeRoom(unsigned int count) {
        if (Room() < count) {
            Reserve(m_out, static_cast<unsigned int>(m_at - m_begin), count);
            Take();
        }
    }

    // A unit for which MakeRoom or HasRoom made sure of room.
    KAI18N_HOT_INLINE void PutUnchecked(unsigned short unit) { *m_at++ = unit; }
    KAI18N_HOT_INLINE void Put(unsigned short unit) {
        MakeRoom(1);
        PutUnchecked(unit);
    }

    KAI18N_HOT_INLINE void PutUnits(const unsigned short* text, unsigned int count) {
        MakeRoom(count);
        for (unsigned int i = 0; i < count; ++i) m_at[i] = text[i];
        m_at += count;
    }
    // A zero-terminated text; a null pointer is an empty one.
    KAI18N_HOT_INLINE void PutText(const unsigned short* text) {
        if (text == nullptr) return;
        const unsigned short* end = text;
        while (*end != 0) ++end;
        PutUnits(text, static_cast<unsigned int>(end - text));
    }
    // The first `count` (1 to 4) of the units packed in `units`, the first in
    // the low 16 bits. With room for all four they are stored at once; the
    // ones past `count` lie beyond the text and are overwritten or ignored.
    KAI18N_HOT_INLINE void PutPacked(std::uint64_t units, unsigned int count) {
        if (Room() >= 4) {
            m_at[0] = static_cast<unsigned short>(units);
            m_at[1] = static_cast<unsigned short>(units >> 16);
            m_at[2] = static_cast<unsigned short>(units >> 32);
            m_at[3] = static_cast<unsigned short>(units >> 48);
            m_at += count;
        } else {
            for (unsigned int i = 0; i < count; ++i)
                Put(static_cast<unsigned short>(units >> (16 * i)));
        }
    }

    // For the rare pieces that a formatter function writes: the text is handed
    // back for `append` and taken again after it.
    template <class Append>
    KAI18N_HOT_INLINE void Through(Append append) {
        Commit();
        append(m_out);
        Take();
    }

  private:
    // Units free behind the text, the terminator's place not counted.
    KAI18N_HOT_INLINE std::size_t Room() const { return static_cast<std::size_t>(m_end - m_at); }
    // Out of line, and given no sink, as only a long text gets here. The
    // length is set first, as reserve keeps only the text within it.
    __attribute__((noinline)) static void Reserve(ucs2string_formatter& out, unsigned int length,
                                                  unsigned int count) {
        out.set_length(length);
        out.reserve(length + count + 1u);
    }
    KAI18N_HOT_INLINE void Take() {
        m_begin = m_out.storage();
        m_at = m_begin + m_out.length();
        m_end = m_begin + m_out.capacity() - 1;
    }

    ucs2string_formatter& m_out;
    unsigned short* m_begin;
    unsigned short* m_at;
    unsigned short* m_end;
};

// append_formatted for a number, with a short road for what a date prints
// most: up to four digits in a field of up to four units. The units are
// chosen without branches on the value, as its digit count varies from date
// to date; the text is the same.
KAI18N_HOT_INLINE void PutNumber(Sink& out, long value, int width, int align, unsigned short fill) {
    const auto formatted = [&](ucs2string_formatter& text) {
        text.append_formatted(value, width, align, fill);
    };
    if (value < 0 || value > 9999 || width > 4 || align == ucs2string_formatter::align_left) {
        out.Through(formatted);
        return;
    }
    const unsigned int v = static_cast<unsigned int>(value);
    if (width == 2 && align == ucs2string_formatter::align_right && v < 100) {
        // The field of most conversions, where inlining knows the width and
        // alignment: two units, and no four-digit work.
        const std::uint64_t two = static_cast<std::uint64_t>(v >= 10 ? '0' + v / 10 : fill) |
                                  static_cast<std::uint64_t>('0' + v % 10) << 16;
        out.PutPacked(two, 2);
        return;
    }
    const int count = 1 + (v >= 10) + (v >= 100) + (v >= 1000);
    if (width >= 0 && count > width) {
        out.Through(formatted);  // a field of '#', or nothing
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
    out.PutPacked(four >> (16 * (4 - total)), static_cast<unsigned int>(total));
}

// Whether the unit at `p` is copied as it stands: anything but the '%' of a
// conversion. A '%' that ends the format is such a unit.
constexpr bool IsLiteral(const unsigned short* p) {
    return *p != 0 && (*p != '%' || p[1] == 0);
}

// Writes the run of literal units at `p` and returns its end. The runs
// between conversions are mostly a single separator, so the units are stored
// one at a time rather than measured first. Only when one does not fit is the
// rest of the run measured: room is then asked for all of it, as the
// formatter's append of the run would ask, for the same capacity and the
// same exception.
KAI18N_HOT_INLINE const unsigned short* PutLiteralRun(Sink& out, const unsigned short* p) {
    do {
        if (!out.HasRoom(1)) {
            const unsigned short* end = p;
            while (IsLiteral(end)) ++end;
            out.MakeRoom(static_cast<unsigned int>(end - p));
        }
        out.PutUnchecked(*p++);
    } while (IsLiteral(p));
    return p;
}

// One conversion as parsed behind its '%'.
struct Conversion {
    unsigned short letter;
    int width;            // -1: no width
    int field_align;      // 1 left ('-'), 2 right
    unsigned short fill;  // '0' after the flag '0', else a blank
    int inner_align;      // 2, or 0 after the flag '#'
};

// A conversion with neither flags nor width.
constexpr Conversion Plain(unsigned short letter) {
    return Conversion{letter, -1, ucs2string_formatter::align_right, ' ',
                      ucs2string_formatter::align_right};
}

// Whether a conversion that goes on with `unit` has flags or a width to parse.
constexpr bool StartsFlagsOrWidth(unsigned short unit) {
    return unit == '#' || unit == '-' || (unit >= '0' && unit <= '9');
}

class DatePrinter {
  public:
    DatePrinter(const lu_date_time& value, const lu_ctime& names) : m_value(value), m_names(names) {
        value.Ymd(m_year, m_month, m_day);
        value.Hmsms(m_hour, m_minute, m_second, m_millisecond);
    }

    void Print(ucs2string_formatter& out, const unsigned short* format, int depth) const;

  private:
    // Parses the flags and width of the conversion at `p` (its '%') and
    // prints it; returns where the format goes on.
    const unsigned short* ParseAndConvert(ucs2string_formatter& out, const unsigned short* p,
                                          int depth) const;
    // A conversion with a width: its text goes through a field.
    void ConvertField(ucs2string_formatter& out, const Conversion& c, int depth) const;
    // Appends one conversion's text.
    void Convert(Sink& text, const Conversion& c, int depth) const;
    KAI18N_HOT_INLINE void Nested(Sink& text, const unsigned short* format, int depth) const {
        if (depth < kMaxNesting)
            text.Through([&](ucs2string_formatter& out) { Print(out, format, depth + 1); });
    }
    // A number with the conversion's own width and fill, aligned as the flag '#' says.
    KAI18N_HOT_INLINE static void Number(Sink& text, long value, int width, unsigned short fill,
                                         const Conversion& c) {
        PutNumber(text, value, width, c.inner_align, fill);
    }
    // A number that takes the parsed width, alignment and fill as its own.
    KAI18N_HOT_INLINE static void ParsedNumber(Sink& text, long value, const Conversion& c) {
        PutNumber(text, value, c.width, c.inner_align == 0 ? 0 : c.field_align, c.fill);
    }
    KAI18N_HOT_INLINE static void RightBlanks(Sink& text, long value) {
        PutNumber(text, value, 2, ucs2string_formatter::align_right, ' ');
    }
    int TwelveHour() const { return m_hour % 12 == 0 ? 12 : m_hour % 12; }

    const lu_date_time& m_value;
    const lu_ctime& m_names;
    int m_year, m_month, m_day, m_hour, m_minute, m_second, m_millisecond;
};

void DatePrinter::Print(ucs2string_formatter& text, const unsigned short* format, int depth) const {
    if (format == nullptr) return;
    Sink out(text);
    const unsigned short* p = format;
    while (*p != 0) {
        if (IsLiteral(p)) {
            p = PutLiteralRun(out, p);
        } else if (!StartsFlagsOrWidth(p[1])) {
            // The common conversion: its own copy of Convert, with the
            // defaults folded in.
            Convert(out, Plain(p[1]), depth);
            p += 2;
        } else {
            out.Through(
                [&](ucs2string_formatter& parsed) { p = ParseAndConvert(parsed, p, depth); });
        }
    }
    out.Commit();
}

const unsigned short* DatePrinter::ParseAndConvert(ucs2string_formatter& out,
                                                   const unsigned short* p, int depth) const {
    const unsigned short* const start = p++;
    Conversion c = Plain(0);
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
        // The format ends where the conversion was due: what was read of it
        // is copied, as anything not understood is.
        out.append(start, static_cast<unsigned int>(p - start));
        return p;
    }
    c.letter = *p++;
    if (c.width < 0) {
        // A field without a width is its text as it stands.
        Sink text(out);
        Convert(text, c, depth);
        text.Commit();
    } else {
        ConvertField(out, c, depth);
    }
    return p;
}

// Out of line, so that the scratch buffer is on the stack only for a field.
__attribute__((noinline)) void DatePrinter::ConvertField(ucs2string_formatter& out,
                                                         const Conversion& c, int depth) const {
    ucs2string_formatter scratch;
    Sink text(scratch);
    Convert(text, c, depth);
    text.Commit();
    out.append_formatted(scratch, c.width, c.field_align, c.fill);
}

KAI18N_HOT_INLINE void DatePrinter::Convert(Sink& text, const Conversion& c, int depth) const {
    switch (c.letter) {
        case 'a':
            text.PutText(m_names.GetShortNameOfDay(static_cast<int>(m_value.WeekDay(0))));
            break;
        case 'A':
            text.PutText(m_names.GetNameOfDay(static_cast<int>(m_value.WeekDay(0))));
            break;
        case 'b':
            text.PutText(m_names.GetShortNameOfMonth(m_month));
            break;
        case 'B':
            text.PutText(m_names.GetNameOfMonth(m_month));
            break;
        case 'c':
            Nested(text, m_names.GetDefaultDateFormat(), depth);
            text.Put(' ');
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
            text.Put('\n');
            break;
        case 'p':
            text.PutText(m_names.GetAmPm(m_hour < 12 ? 0 : 1));
            break;
        case 'P':
            text.PutText(m_names.FindEra(m_year, nullptr));
            break;
        case 'q':
            Number(text, m_millisecond, 3, '0', c);
            break;
        case 'r':
            Nested(text, kTwelveHourTime, depth);
            break;
        case 's': {
            const long year = m_year > 0 ? m_year : 1 - m_year;
            text.Through([year](ucs2string_formatter& out) {
                out.append_formatted(year, -1, ucs2string_formatter::align_left, ' ');
            });
            break;
        }
        case 'S':
            Number(text, m_second, 2, '0', c);
            break;
        case 't':
            text.Put('\t');
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
            text.Put(c.letter);
            break;
    }
}

}  // namespace

void lu_date_time::Print(ucs2string_formatter& out, const unsigned short* format,
                         const lu_locale& locale) const {
    // IsNull without a call: no other double compares equal to the sentinel,
    // a finite number that is not zero.
    if (m_mjd == kNullValue) return;
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

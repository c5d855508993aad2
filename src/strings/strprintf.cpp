#include "kai18n/strings/strprintf.h"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cwchar>
#include <type_traits>
#include <vector>

// wchar_t is 32-bit here, so the runtime's vswprintf can neither read a UTF-16
// format nor take a UTF-16 string for %s. The format is therefore walked here;
// only numbers and pointers go to the runtime, one conversion at a time, and
// its wide result is turned back into UTF-16.

namespace {

// The result array: 4,095 units of text and room for a terminator.
constexpr unsigned int kArrayUnits = kStrprintfMaxUnits + 1;

// The largest wide buffer tried for one numeric conversion. Only a precision
// of millions of digits needs more, and the runtime is then taken to fail.
constexpr std::size_t kMaxConversionUnits = std::size_t{1} << 21;

// Collects the result and notices when it would exceed kStrprintfMaxUnits.
class Output {
  public:
    bool overflowed() const { return m_overflowed; }
    unsigned int count() const { return m_count; }
    const unsigned short* units() const { return m_units; }

    void put(unsigned short unit) {
        if (m_count < kStrprintfMaxUnits) {
            m_units[m_count++] = unit;
        } else {
            m_overflowed = true;
        }
    }

    void put_repeated(unsigned short unit, unsigned int n) {
        const unsigned int room = kStrprintfMaxUnits - m_count;
        const unsigned int written = n < room ? n : room;
        for (unsigned int i = 0; i < written; ++i) m_units[m_count + i] = unit;
        m_count += written;
        if (n > room) m_overflowed = true;
    }

    // A code point beyond the basic plane becomes a surrogate pair; a value
    // that is no code point at all becomes the replacement character.
    void put_code_point(unsigned long cp) {
        if (cp <= 0xFFFFul) {
            put(static_cast<unsigned short>(cp));
        } else if (cp <= 0x10FFFFul) {
            const unsigned long v = cp - 0x10000ul;
            put(static_cast<unsigned short>(0xD800ul + (v >> 10)));
            put(static_cast<unsigned short>(0xDC00ul + (v & 0x3FFul)));
        } else {
            put(0xFFFD);
        }
    }

  private:
    unsigned short m_units[kArrayUnits];
    unsigned int m_count = 0;
    bool m_overflowed = false;
};

enum class Length { none, hh, h, l, ll, j, z, t, L, I, w };

struct Directive {
    bool minus = false;
    bool plus = false;
    bool space = false;
    bool hash = false;
    bool zero = false;
    bool hasWidth = false;
    unsigned int width = 0;
    bool hasPrecision = false;
    unsigned int precision = 0;
    Length length = Length::none;
    unsigned short conversion = 0;
};

bool IsDigit(unsigned short unit) {
    return unit >= '0' && unit <= '9';
}

// Reads decimal digits, saturating at INT_MAX as a runtime would refuse
// anything larger anyway.
unsigned int ReadNumber(const unsigned short*& p) {
    unsigned long long value = 0;
    while (IsDigit(*p)) {
        value = value * 10 + (*p - '0');
        if (value > INT_MAX) value = INT_MAX;
        ++p;
    }
    return static_cast<unsigned int>(value);
}

// Parses flags, width, precision and length modifier behind a '%'; `p` ends on
// the conversion unit (0 if the format ends first). A `*` takes an int.
void ParseDirective(const unsigned short*& p, va_list* args, Directive& directive) {
    for (;; ++p) {
        if (*p == '-') {
            directive.minus = true;
        } else if (*p == '+') {
            directive.plus = true;
        } else if (*p == ' ') {
            directive.space = true;
        } else if (*p == '#') {
            directive.hash = true;
        } else if (*p == '0') {
            directive.zero = true;
        } else {
            break;
        }
    }
    if (*p == '*') {
        ++p;
        const int width = va_arg(*args, int);
        directive.hasWidth = true;
        // A negative width is a '-' flag and its magnitude, as in printf.
        if (width < 0) {
            directive.minus = true;
            directive.width = width == INT_MIN ? INT_MAX : static_cast<unsigned int>(-width);
        } else {
            directive.width = static_cast<unsigned int>(width);
        }
    } else if (IsDigit(*p)) {
        directive.hasWidth = true;
        directive.width = ReadNumber(p);
    }
    if (*p == '.') {
        ++p;
        directive.hasPrecision = true;
        if (*p == '*') {
            ++p;
            const int precision = va_arg(*args, int);
            // A negative precision counts as none.
            directive.hasPrecision = precision >= 0;
            directive.precision = precision >= 0 ? static_cast<unsigned int>(precision) : 0;
        } else {
            directive.precision = ReadNumber(p);
        }
    }
    switch (*p) {
        case 'h':
            ++p;
            directive.length = Length::h;
            if (*p == 'h') {
                ++p;
                directive.length = Length::hh;
            }
            break;
        case 'l':
            ++p;
            directive.length = Length::l;
            if (*p == 'l') {
                ++p;
                directive.length = Length::ll;
            }
            break;
        case 'q':
            ++p;
            directive.length = Length::ll;
            break;
        case 'j':
            ++p;
            directive.length = Length::j;
            break;
        case 'z':
            ++p;
            directive.length = Length::z;
            break;
        case 't':
            ++p;
            directive.length = Length::t;
            break;
        case 'L':
            ++p;
            directive.length = Length::L;
            break;
        case 'w':
            ++p;
            directive.length = Length::w;
            break;
        case 'I':
            ++p;
            if (p[0] == '6' && p[1] == '4') {
                p += 2;
                directive.length = Length::ll;
            } else if (p[0] == '3' && p[1] == '2') {
                p += 2;
                directive.length = Length::none;
            } else {
                directive.length = Length::I;
            }
            break;
        default:
            break;
    }
    directive.conversion = *p;
}

// ---------------------------------------------------------------------------
// Numbers and pointers, through the runtime

// Builds the runtime format of one conversion: the parsed flags, width and
// precision, then `modifier` and the conversion.
void BuildWideFormat(const Directive& directive, unsigned int width, const char* modifier,
                     wchar_t* out) {
    *out++ = L'%';
    if (directive.minus) *out++ = L'-';
    if (directive.plus) *out++ = L'+';
    if (directive.space) *out++ = L' ';
    if (directive.hash) *out++ = L'#';
    if (directive.zero) *out++ = L'0';
    auto put_number = [&out](unsigned int value) {
        wchar_t digits[16];
        int n = 0;
        do {
            digits[n++] = static_cast<wchar_t>(L'0' + value % 10);
            value /= 10;
        } while (value != 0);
        while (n > 0) *out++ = digits[--n];
    };
    if (directive.hasWidth) put_number(width);
    if (directive.hasPrecision) {
        *out++ = L'.';
        put_number(directive.precision);
    }
    while (*modifier != 0) *out++ = static_cast<wchar_t>(*modifier++);
    *out++ = static_cast<wchar_t>(directive.conversion);
    *out = 0;
}

// The wide text of one conversion: on the stack for ordinary values, on the
// heap for long ones.
class WideText {
  public:
    const wchar_t* data() const { return m_heap.empty() ? m_local : m_heap.data(); }

    // Formats one value by a one-conversion format; the count of wide
    // characters, or -1 if the runtime fails even with the largest buffer.
    template <class T>
    int format(const wchar_t* format, T value) {
        m_heap.clear();
        int n = print(m_local, sizeof m_local / sizeof m_local[0], format, value);
        // swprintf also fails when the buffer is too small; larger ones tell
        // that case from a real failure.
        for (std::size_t size = 4096; n < 0 && size <= kMaxConversionUnits; size *= 4) {
            m_heap.resize(size);
            n = print(m_heap.data(), size, format, value);
        }
        return n;
    }

  private:
    template <class T>
    static int print(wchar_t* out, std::size_t size, const wchar_t* format, T value) {
        // The format is built from a parsed conversion, and `value` has the
        // type that its length modifier names.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#endif
        return std::swprintf(out, size, format, value);
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
    }

    wchar_t m_local[512];
    std::vector<wchar_t> m_heap;
};

template <class T>
bool PutNumber(const Directive& directive, const char* modifier, T value, Output& out) {
    wchar_t format[64];
    WideText text;
    unsigned int width = directive.width;
    // A width beyond the result array makes the result too long whatever the
    // value. Cut to the value's own length plus the array, it still gives the
    // same first units, without a buffer of the full width.
    if (directive.hasWidth && width > kArrayUnits) {
        Directive bare = directive;
        bare.hasWidth = false;
        BuildWideFormat(bare, 0, modifier, format);
        const int bareLength = text.format(format, value);
        if (bareLength < 0) return false;
        const unsigned long long capped = static_cast<unsigned long long>(bareLength) + kArrayUnits;
        if (capped < width) width = static_cast<unsigned int>(capped);
    }
    BuildWideFormat(directive, width, modifier, format);
    const int n = text.format(format, value);
    if (n < 0) return false;
    const wchar_t* wide = text.data();
    for (int i = 0; i < n && !out.overflowed(); ++i) {
        out.put_code_point(static_cast<unsigned long>(static_cast<std::uint32_t>(wide[i])));
    }
    return true;
}

bool PutSigned(const Directive& directive, va_list* args, Output& out) {
    std::intmax_t value;
    switch (directive.length) {
        case Length::hh:
            value = static_cast<signed char>(va_arg(*args, int));
            break;
        case Length::h:
            value = static_cast<short>(va_arg(*args, int));
            break;
        case Length::l:
            value = va_arg(*args, long);
            break;
        case Length::ll:
        case Length::L:
            value = va_arg(*args, long long);
            break;
        case Length::j:
            value = va_arg(*args, std::intmax_t);
            break;
        case Length::z:
            value = va_arg(*args, std::make_signed_t<std::size_t>);
            break;
        case Length::t:
        case Length::I:
            value = va_arg(*args, std::ptrdiff_t);
            break;
        default:
            value = va_arg(*args, int);
            break;
    }
    return PutNumber(directive, "j", value, out);
}

bool PutUnsigned(const Directive& directive, va_list* args, Output& out) {
    std::uintmax_t value;
    switch (directive.length) {
        case Length::hh:
            value = static_cast<unsigned char>(va_arg(*args, int));
            break;
        case Length::h:
            value = static_cast<unsigned short>(va_arg(*args, int));
            break;
        case Length::l:
            value = va_arg(*args, unsigned long);
            break;
        case Length::ll:
        case Length::L:
            value = va_arg(*args, unsigned long long);
            break;
        case Length::j:
            value = va_arg(*args, std::uintmax_t);
            break;
        case Length::z:
        case Length::I:
            value = va_arg(*args, std::size_t);
            break;
        case Length::t:
            value = va_arg(*args, std::make_unsigned_t<std::ptrdiff_t>);
            break;
        default:
            value = va_arg(*args, unsigned int);
            break;
    }
    return PutNumber(directive, "j", value, out);
}

bool PutFloating(const Directive& directive, va_list* args, Output& out) {
    if (directive.length == Length::L)
        return PutNumber(directive, "L", va_arg(*args, long double), out);
    return PutNumber(directive, "", va_arg(*args, double), out);
}

// ---------------------------------------------------------------------------
// Strings and characters, here

// Writes `n` units produced by `unit_at`, padded with blanks to the width.
template <class UnitAt>
void PutPadded(const Directive& directive, unsigned int n, UnitAt unit_at, Output& out) {
    const unsigned int pad = directive.hasWidth && directive.width > n ? directive.width - n : 0;
    if (!directive.minus) out.put_repeated(' ', pad);
    for (unsigned int i = 0; i < n && !out.overflowed(); ++i) out.put(unit_at(i));
    if (directive.minus) out.put_repeated(' ', pad);
}

template <class Unit>
unsigned int MeasureLimited(const Directive& directive, const Unit* text) {
    unsigned int n = 0;
    // With a precision the text need not be terminated: nothing past the
    // precision is read.
    while ((!directive.hasPrecision || n < directive.precision) && text[n] != 0) ++n;
    return n;
}

void PutWideString(const Directive& directive, va_list* args, Output& out) {
    static const unsigned short kNull[] = {'(', 'n', 'u', 'l', 'l', ')', 0};
    const unsigned short* text = va_arg(*args, const unsigned short*);
    if (text == nullptr) text = kNull;
    PutPadded(
        directive, MeasureLimited(directive, text), [text](unsigned int i) { return text[i]; },
        out);
}

// A narrow string is ASCII by the library's convention; each byte is widened
// to the unit of the same value.
void PutNarrowString(const Directive& directive, va_list* args, Output& out) {
    const char* text = va_arg(*args, const char*);
    if (text == nullptr) text = "(null)";
    PutPadded(
        directive, MeasureLimited(directive, text),
        [text](unsigned int i) {
            return static_cast<unsigned short>(static_cast<unsigned char>(text[i]));
        },
        out);
}

void PutChar(const Directive& directive, unsigned short unit, Output& out) {
    PutPadded(
        directive, 1, [unit](unsigned int) { return unit; }, out);
}

bool IsWideForm(const Directive& directive, bool upperCase) {
    // Lower-case s and c are wide unless marked h; upper-case S and C are
    // narrow unless marked l or w.
    if (upperCase) return directive.length == Length::l || directive.length == Length::w;
    return directive.length != Length::h;
}

unsigned int UnitCount(const unsigned short* first, const unsigned short* last) {
    return static_cast<unsigned int>(last - first);
}

}  // namespace

int vstrprintf(ucs2string& target, const unsigned short* format, va_list args) {
    Output out;
    bool failed = format == nullptr;
    va_list ap;
    va_copy(ap, args);
    const unsigned short* p = format;
    while (!failed && !out.overflowed() && p != nullptr && *p != 0) {
        if (*p != '%') {
            out.put(*p++);
            continue;
        }
        const unsigned short* start = p++;
        Directive directive;
        ParseDirective(p, &ap, directive);
        switch (directive.conversion) {
            case '%':
                out.put('%');
                break;
            case 'd':
            case 'i':
                failed = !PutSigned(directive, &ap, out);
                break;
            case 'u':
            case 'o':
            case 'x':
            case 'X':
                failed = !PutUnsigned(directive, &ap, out);
                break;
            case 'e':
            case 'E':
            case 'f':
            case 'F':
            case 'g':
            case 'G':
            case 'a':
            case 'A':
                failed = !PutFloating(directive, &ap, out);
                break;
            case 'p':
                failed = !PutNumber(directive, "", va_arg(ap, void*), out);
                break;
            case 's':
            case 'S':
                if (IsWideForm(directive, directive.conversion == 'S')) {
                    PutWideString(directive, &ap, out);
                } else {
                    PutNarrowString(directive, &ap, out);
                }
                break;
            case 'c':
            case 'C': {
                const int value = va_arg(ap, int);
                const unsigned short unit =
                    IsWideForm(directive, directive.conversion == 'C')
                        ? static_cast<unsigned short>(value)
                        : static_cast<unsigned short>(static_cast<unsigned char>(value));
                PutChar(directive, unit, out);
                break;
            }
            case 'n':
                // Writing through an argument is the classic way to turn a
                // format into a memory write; it is not offered.
                failed = true;
                break;
            case 0:
                // The format ends inside a conversion: its text stands as it is.
                for (const unsigned short* q = start; q < p; ++q) out.put(*q);
                break;
            default:
                // Not a conversion that is known here: copied, conversion unit included.
                for (const unsigned short* q = start; q <= p; ++q) out.put(*q);
                break;
        }
        if (*p != 0) ++p;
    }
    va_end(ap);

    // The text ends at its first zero unit, which a %c of 0 may have written.
    const unsigned short* text = out.units();
    const unsigned short* end = text;
    const unsigned short* const last = text + out.count();
    while (end < last && *end != 0) ++end;
    target.assign(text, UnitCount(text, end));
    if (failed || out.overflowed()) return -1;
    return static_cast<int>(out.count());
}

int strprintf(ucs2string& target, const unsigned short* format, ...) {
    va_list args;
    va_start(args, format);
    const int result = vstrprintf(target, format, args);
    va_end(args);
    return result;
}

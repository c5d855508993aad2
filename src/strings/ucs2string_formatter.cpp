#include "kai18n/strings/ucs2string_formatter.h"

#include <cstddef>
#include <cstring>
#include <functional>
#include <new>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/lu_utf8string.h"
#include "strings/utf8_codec.h"

namespace {

// Capacity moves in steps of this many units.
constexpr unsigned int kCapacityStep = ucs2string_formatter::inline_capacity;
// The largest capacity that the 16-bit field can hold, rounded down to a step.
constexpr unsigned int kMaxCapacity = 0xFFFFu / kCapacityStep * kCapacityStep;

constexpr unsigned short kNumberSign = '#';

const char kDigits[] = "0123456789";

unsigned int MeasureUnits(const unsigned short* text) {
    const unsigned short* p = text;
    while (*p != 0) ++p;
    return static_cast<unsigned int>(p - text);
}

void MoveUnits(unsigned short* target, const unsigned short* source, unsigned int n) {
    if (n != 0) std::memmove(target, source, n * sizeof(unsigned short));
}

void FillUnits(unsigned short* target, unsigned int n, unsigned short ch) {
    for (unsigned int i = 0; i < n; ++i) target[i] = ch;
}

// Measures UTF-8 in the units it decodes to and refuses, before anything is
// written, a sequence of five or six bytes that no unit can hold.
unsigned int MeasureUtf8(const unsigned char* text, unsigned int* bytes, bool* decodable) {
    if (text == nullptr) {
        *bytes = 0;
        *decodable = true;
        return 0;
    }
    if (*bytes == ucs2string_formatter::npos) *bytes = lu_utf8_traits::length(text);
    return utf8_codec::CountUnits(text, *bytes, decodable);
}

unsigned int DecodableUnits(const unsigned char* text, unsigned int* bytes) {
    bool decodable;
    const unsigned int units = MeasureUtf8(text, bytes, &decodable);
    if (!decodable) LUException::Raise(LU_E_INVALID_ARG);
    return units;
}

// A source inside the buffer must be found again by its offset after reserve,
// which may move the text to a new array and free the old one.
bool IsInside(const unsigned short* p, const unsigned short* first, unsigned int capacity) {
    std::less_equal<const unsigned short*> at_or_before;
    std::less<const unsigned short*> before;
    return at_or_before(first, p) && before(p, first + capacity);
}

// A UTF-16 source of a write: its length, and for a text inside the
// formatter its offset there, so that it can be found again after reserve
// has moved the storage.
class UnitSource {
  public:
    UnitSource(const unsigned short* text, unsigned int count, const unsigned short* data,
               unsigned int capacity)
        : m_text(text),
          m_count(text == nullptr                       ? 0
                  : count == ucs2string_formatter::npos ? MeasureUnits(text)
                                                        : count),
          m_inside(text != nullptr && IsInside(text, data, capacity)),
          m_offset(m_inside ? static_cast<std::size_t>(text - data) : 0) {}

    unsigned int count() const { return m_count; }
    // Where the units are now, given the formatter's current storage.
    const unsigned short* units(const unsigned short* data) const {
        return m_inside ? data + m_offset : m_text;
    }

  private:
    const unsigned short* m_text;
    unsigned int m_count;
    bool m_inside;
    std::size_t m_offset;
};

// Writes the decimal digits of `value` backwards, ending just before `end`,
// and returns the position of the first digit.
unsigned short* WriteDigitsBackwards(unsigned short* end, unsigned long value) {
    unsigned short* p = end;
    do {
        *--p = static_cast<unsigned short>(kDigits[value % 10]);
        value /= 10;
    } while (value != 0);
    return p;
}

}  // namespace

ucs2string_formatter::ucs2string_formatter()
    : m_length(0), m_capacity(inline_capacity), m_data(m_buffer) {
    m_buffer[0] = 0;
}

ucs2string_formatter::ucs2string_formatter(const unsigned char* text, unsigned int bytes)
    : ucs2string_formatter() {
    // The text is measured and checked before any allocation, so a throw here
    // leaves nothing behind for a destructor that will not run.
    assign_helper(text, bytes);
}

ucs2string_formatter::ucs2string_formatter(const ucs2string_formatter& other)
    : ucs2string_formatter() {
    assign_helper(other.m_data, other.m_length);
}

ucs2string_formatter& ucs2string_formatter::operator=(const ucs2string_formatter& other) {
    if (this != &other) assign_helper(other.m_data, other.m_length);
    return *this;
}

ucs2string_formatter::~ucs2string_formatter() {
    if (m_capacity > inline_capacity) delete[] m_data;
}

// ---------------------------------------------------------------------------
// Storage

void ucs2string_formatter::reserve(unsigned int n) {
    if (n <= m_capacity) return;
    const unsigned int capacity = (n / kCapacityStep + 1) * kCapacityStep;
    if (capacity > kMaxCapacity) LUException::Raise(LU_E_STRING_TOO_LONG);
    unsigned short* array = new (std::nothrow) unsigned short[capacity];
    if (array == nullptr) LUException::Raise(LU_E_OUT_OF_MEMORY);
    std::memcpy(array, m_data, (m_length + 1u) * sizeof(unsigned short));
    if (m_capacity > inline_capacity) delete[] m_data;
    m_data = array;
    m_capacity = static_cast<unsigned short>(capacity);
}

void ucs2string_formatter::reserve_checked(unsigned long long n) {
    // A request beyond 32 bits can only come from a width or count far past
    // what the 16-bit capacity could ever hold.
    if (n > kMaxCapacity) LUException::Raise(LU_E_STRING_TOO_LONG);
    reserve(static_cast<unsigned int>(n));
}

void ucs2string_formatter::resize(unsigned int n) {
    reserve_checked(n + 1ull);
    m_length = static_cast<unsigned short>(n);
    m_data[n] = 0;
}

// ---------------------------------------------------------------------------
// Assign and append

void ucs2string_formatter::assign_helper(const unsigned short* text, unsigned int count) {
    put_units(0, text, count);
}

void ucs2string_formatter::assign_helper(const unsigned char* text, unsigned int bytes) {
    put_utf8(0, text, bytes);
}

void ucs2string_formatter::append_helper(const unsigned short* text, unsigned int count) {
    put_units(m_length, text, count);
}

void ucs2string_formatter::append_helper(const unsigned char* text, unsigned int bytes) {
    put_utf8(m_length, text, bytes);
}

// Writes the UTF-16 text at `at` and ends the text behind it. A text inside
// this formatter is found again after reserve may have moved the storage.
void ucs2string_formatter::put_units(unsigned int at, const unsigned short* text,
                                     unsigned int count) {
    const UnitSource source(text, count, m_data, m_capacity);
    reserve_checked(at + 1ull + source.count());
    MoveUnits(m_data + at, source.units(m_data), source.count());
    m_length = static_cast<unsigned short>(at + source.count());
    m_data[m_length] = 0;
}

// Decodes the UTF-8 text at `at` and ends the text behind it; a sequence that
// cannot be decoded is refused before anything changes.
void ucs2string_formatter::put_utf8(unsigned int at, const unsigned char* text,
                                    unsigned int bytes) {
    const unsigned int units = DecodableUnits(text, &bytes);
    reserve_checked(at + 1ull + units);
    if (units != 0) lu_utf8_traits::copy(m_data + at, text, units);
    m_length = static_cast<unsigned short>(at + units);
    m_data[m_length] = 0;
}

ucs2string_formatter& ucs2string_formatter::append(unsigned short ch, unsigned int n) {
    reserve_checked(m_length + 1ull + n);
    FillUnits(m_data + m_length, n, ch);
    m_length = static_cast<unsigned short>(m_length + n);
    m_data[m_length] = 0;
    return *this;
}

// ---------------------------------------------------------------------------
// Fields

template <class WriteText>
void ucs2string_formatter::write_field(unsigned int count, int width, int align,
                                       unsigned short fill, WriteText write_text) {
    unsigned int field = count;
    if (width >= 0) {
        field = static_cast<unsigned int>(width);
        // A number cut short would be misread, so a text that does not fit is
        // replaced by a field of number signs.
        if (field < count) {
            count = 0;
            fill = kNumberSign;
        }
    }
    reserve_checked(m_length + 1ull + field);
    unsigned short* out = m_data + m_length;
    unsigned int written;
    if (align == align_left) {
        write_text(out, count);
        FillUnits(out + count, field - count, fill);
        written = field;
    } else if (align == align_right) {
        FillUnits(out, field - count, fill);
        write_text(out + (field - count), count);
        written = field;
    } else {
        write_text(out, count);
        written = count;
    }
    out[written] = 0;
    m_length = static_cast<unsigned short>(m_length + written);
}

void ucs2string_formatter::append_formatted_helper(const unsigned short* text, unsigned int count,
                                                   int width, int align, unsigned short fill) {
    const UnitSource source(text, count, m_data, m_capacity);
    write_field(source.count(), width, align, fill, [&](unsigned short* out, unsigned int n) {
        MoveUnits(out, source.units(m_data), n);
    });
}

void ucs2string_formatter::append_formatted_helper(const unsigned char* text, unsigned int bytes,
                                                   int width, int align, unsigned short fill) {
    bool decodable;
    const unsigned int units = MeasureUtf8(text, &bytes, &decodable);
    // Only a text that is written gets decoded; one dropped from a narrow
    // field cannot fail.
    const bool written = width < 0 || units <= static_cast<unsigned int>(width);
    if (written && !decodable) LUException::Raise(LU_E_INVALID_ARG);
    write_field(units, width, align, fill, [&](unsigned short* out, unsigned int n) {
        if (n != 0) lu_utf8_traits::copy(out, text, n);
    });
}

ucs2string_formatter& ucs2string_formatter::append_formatted(const unsigned char* text, int width,
                                                             int align, unsigned short fill) {
    append_formatted_helper(text, npos, width, align, fill);
    return *this;
}

ucs2string_formatter& ucs2string_formatter::append_formatted(const unsigned short* text, int width,
                                                             int align, unsigned short fill) {
    append_formatted_helper(text, npos, width, align, fill);
    return *this;
}

ucs2string_formatter& ucs2string_formatter::append_formatted(const lu_utf8string& text, int width,
                                                             int align, unsigned short fill) {
    append_formatted_helper(text.data(), text.length(), width, align, fill);
    return *this;
}

ucs2string_formatter& ucs2string_formatter::append_formatted(const ucs2string_formatter& text,
                                                             int width, int align,
                                                             unsigned short fill) {
    append_formatted_helper(text.m_data, text.m_length, width, align, fill);
    return *this;
}

ucs2string_formatter& ucs2string_formatter::append_formatted(long value, int width, int align,
                                                             unsigned short fill) {
    unsigned short digits[32];
    unsigned short* const end = digits + 32;
    // Negating in unsigned arithmetic gives the magnitude of the most negative
    // value too, which has no positive counterpart in `long`.
    const unsigned long magnitude =
        value < 0 ? 0ul - static_cast<unsigned long>(value) : static_cast<unsigned long>(value);
    unsigned short* first = WriteDigitsBackwards(end, magnitude);
    if (value < 0) *--first = '-';
    append_formatted_helper(first, static_cast<unsigned int>(end - first), width, align, fill);
    return *this;
}

ucs2string_formatter& ucs2string_formatter::append_formatted(unsigned long value, int width,
                                                             int align, unsigned short fill) {
    unsigned short digits[32];
    unsigned short* const end = digits + 32;
    unsigned short* first = WriteDigitsBackwards(end, value);
    append_formatted_helper(first, static_cast<unsigned int>(end - first), width, align, fill);
    return *this;
}

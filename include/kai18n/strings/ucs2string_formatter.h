// ucs2string_formatter: the scratch buffer into which the number and date
// facets write their output.
//
// An appendable, zero-terminated UTF-16 buffer meant to live on the caller's
// stack: 500 units are held inline, so text of up to 499 units needs no heap.
// Beyond that the buffer moves once to a heap array, in steps of 500 units, and
// never moves back. Fields can be padded to a width, and a field too narrow for
// its text is written as number signs instead of being cut.
//
// Length and capacity are 16-bit: a formatter holds at most 65,498 units (the
// largest text whose capacity step still fits in 16 bits); asking for more
// throws LUException LU_E_STRING_TOO_LONG.
#ifndef KAI18N_STRINGS_UCS2STRING_FORMATTER_H
#define KAI18N_STRINGS_UCS2STRING_FORMATTER_H

#include <cstdint>

#include "kai18n/strings/ucs2string.h"

class lu_utf8string;

class ucs2string_formatter {
  public:
    /// As a count: the text ends at its zero terminator.
    static const unsigned int npos = 0xFFFFFFFFu;
    /// Units of the inline buffer, terminator included.
    static const unsigned int inline_capacity = 500;

    /// Field alignments of append_formatted; any other value means no alignment.
    enum { align_none = 0, align_left = 1, align_right = 2 };

    ucs2string_formatter();
    /// Decodes UTF-8; `bytes` npos means zero-terminated. Throws LUException
    /// LU_E_INVALID_ARG for a sequence of five or six bytes.
    explicit ucs2string_formatter(const unsigned char* text, unsigned int bytes = npos);
    /// A deep copy: the copy keeps its text in its own inline buffer when it fits.
    ucs2string_formatter(const ucs2string_formatter& other);
    ucs2string_formatter& operator=(const ucs2string_formatter& other);
    ~ucs2string_formatter();

    // Views. The text is always zero-terminated at length().
    const unsigned short* c_str() const { return m_data; }
    const unsigned short* data() const { return m_data; }
    unsigned int size() const { return m_length; }
    unsigned int length() const { return m_length; }
    bool empty() const { return m_length == 0; }
    /// Units available, terminator included.
    unsigned int capacity() const { return m_capacity; }
    /// The storage of capacity() units, for a writer that stores units behind
    /// the text itself and then sets the length with set_length(); reserve()
    /// or an append may move it.
    unsigned short* storage() { return m_data; }
    /// Sets the length to `n`, below capacity(), and writes the terminator:
    /// resize() without its check for room, for such a writer.
    void set_length(unsigned int n) {
        m_length = static_cast<unsigned short>(n);
        m_data[n] = 0;
    }
    /// No bounds check: the caller keeps `pos` below the length.
    unsigned short& operator[](unsigned int pos) { return m_data[pos]; }
    unsigned short operator[](unsigned int pos) const { return m_data[pos]; }

    // Conversions to ucs2string.
    ucs2string str() const { return ucs2string(m_data, m_length); }
    ucs2string& assign_to(ucs2string& target) const { return target.assign(m_data, m_length); }
    ucs2string& append_to(ucs2string& target) const { return target.append(m_data, m_length); }

    /// Empties the text and keeps the storage.
    void clear() {
        m_length = 0;
        m_data[0] = 0;
    }

    /// Makes room for `n` units, terminator included. Capacity grows to
    /// (n / 500 + 1) * 500. Throws LUException LU_E_OUT_OF_MEMORY if no memory
    /// is given, with the text unchanged.
    void reserve(unsigned int n);
    /// Sets the length to `n` and writes the terminator. Units between the old
    /// and the new length are whatever the buffer held there.
    void resize(unsigned int n);

    // Zero-terminated UTF-8.
    ucs2string_formatter& assign(const unsigned char* text) {
        assign_helper(text, npos);
        return *this;
    }
    ucs2string_formatter& append(const unsigned char* text) {
        append_helper(text, npos);
        return *this;
    }
    // UTF-16; count npos means zero-terminated.
    ucs2string_formatter& assign(const unsigned short* text, unsigned int count = npos) {
        assign_helper(text, count);
        return *this;
    }
    ucs2string_formatter& append(const unsigned short* text, unsigned int count = npos) {
        append_helper(text, count);
        return *this;
    }
    ucs2string_formatter& assign(const ucs2string& text) {
        assign_helper(text.data(), text.length());
        return *this;
    }
    ucs2string_formatter& append(const ucs2string& text) {
        append_helper(text.data(), text.length());
        return *this;
    }
    ucs2string_formatter& append(unsigned short ch, unsigned int n);
    /// One unit; inline while it fits, as formatters write unit by unit.
    void push_back(unsigned short ch) {
        if (m_length + 2u <= m_capacity) {
            m_data[m_length] = ch;
            m_data[++m_length] = 0;
        } else {
            append(ch, 1u);
        }
    }

    /// A few units from outside this formatter, inline while they fit: the
    /// length is read and written once, not once a unit as by push_back,
    /// whose stores the compiler must assume may touch the length.
    void append_units(const unsigned short* text, unsigned int count) {
        const unsigned int length = m_length;
        if (length + count + 1u <= m_capacity) {
            unsigned short* const at = m_data + length;
            for (unsigned int i = 0; i < count; ++i) at[i] = text[i];
            at[count] = 0;
            m_length = static_cast<unsigned short>(length + count);
        } else {
            append_helper(text, count);
        }
    }

    /// Up to four units packed in `units`, the first in the low 16 bits;
    /// inline while they fit. Number writers build their digits in a register
    /// and store them without a round trip through memory.
    void append_packed(std::uint64_t units, unsigned int count) {
        const unsigned int length = m_length;
        if (length + 5u <= m_capacity) {
            unsigned short* const at = m_data + length;
            at[0] = static_cast<unsigned short>(units);
            at[1] = static_cast<unsigned short>(units >> 16);
            at[2] = static_cast<unsigned short>(units >> 32);
            at[3] = static_cast<unsigned short>(units >> 48);
            at[count] = 0;
            m_length = static_cast<unsigned short>(length + count);
        } else {
            for (unsigned int i = 0; i < count; ++i)
                push_back(static_cast<unsigned short>(units >> (16 * i)));
        }
    }

    // Replace or extend the text. A count of npos means zero-terminated; a null
    // pointer is an empty text. The source may lie inside this formatter.
    // UTF-8 with a sequence of five or six bytes throws LUException
    // LU_E_INVALID_ARG and leaves the text as it was.
    void assign_helper(const unsigned short* text, unsigned int count);
    void assign_helper(const unsigned char* text, unsigned int bytes);
    void append_helper(const unsigned short* text, unsigned int count);
    void append_helper(const unsigned char* text, unsigned int bytes);

    // Fields. `width` negative: the field is as wide as its text. A text wider
    // than a non-negative `width` is dropped and the fill becomes '#'. `align`
    // align_left writes the text then the fill, align_right the fill then the
    // text, any other value the text alone (so a too-narrow field is empty).
    ucs2string_formatter& append_formatted(const unsigned char* text, int width, int align,
                                           unsigned short fill);
    ucs2string_formatter& append_formatted(const unsigned short* text, int width, int align,
                                           unsigned short fill);
    ucs2string_formatter& append_formatted(const lu_utf8string& text, int width, int align,
                                           unsigned short fill);
    ucs2string_formatter& append_formatted(const ucs2string_formatter& text, int width, int align,
                                           unsigned short fill);
    /// Decimal digits; a negative value has '-' in front, inside the field, so
    /// the fill of a right-aligned field stands before the sign.
    ucs2string_formatter& append_formatted(long value, int width, int align, unsigned short fill);
    ucs2string_formatter& append_formatted(unsigned long value, int width, int align,
                                           unsigned short fill);
    // An int or unsigned int would otherwise fit both integer forms equally.
    ucs2string_formatter& append_formatted(int value, int width, int align, unsigned short fill) {
        return append_formatted(static_cast<long>(value), width, align, fill);
    }
    ucs2string_formatter& append_formatted(unsigned int value, int width, int align,
                                           unsigned short fill) {
        return append_formatted(static_cast<unsigned long>(value), width, align, fill);
    }

    /// The field algorithm over `count` units (npos: zero-terminated).
    void append_formatted_helper(const unsigned short* text, unsigned int count, int width,
                                 int align, unsigned short fill);
    /// The field algorithm over `bytes` bytes of UTF-8 (npos: zero-terminated),
    /// measured in the units they decode to.
    void append_formatted_helper(const unsigned char* text, unsigned int bytes, int width,
                                 int align, unsigned short fill);

  private:
    // Reserves `n` units after checking that the step stays within 16 bits.
    void reserve_checked(unsigned long long n);
    void put_units(unsigned int at, const unsigned short* text, unsigned int count);
    void put_utf8(unsigned int at, const unsigned char* text, unsigned int bytes);
    // Writes the field around `count` units that `write_text` puts at the
    // given position.
    template <class WriteText>
    void write_field(unsigned int count, int width, int align, unsigned short fill,
                     WriteText write_text);

    unsigned short m_length;
    unsigned short m_capacity;
    unsigned short m_buffer[inline_capacity];
    unsigned short* m_data;
};

#endif  // KAI18N_STRINGS_UCS2STRING_FORMATTER_H

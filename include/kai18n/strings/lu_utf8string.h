// lu_utf8string: the library's counted UTF-8 string, the byte twin of ucs2string.
//
// One pointer wide: the object points to a heap buffer that holds the length
// and the zero-terminated bytes, or to one of two shared static buffers for the
// empty ("nil") and the null string. There is no capacity field: the size of a
// buffer follows from its length, in classes of 8 bytes, and a buffer is
// replaced only when an edit moves the string to another class. Copies are deep.
//
// Every position and count is in bytes; a position may fall inside a multi-byte
// sequence and nothing checks that, nor is text validated on the way in
// (lu_utf8_traits::_is_valid_utf8 is there for callers who need it). UTF-16
// sources are encoded on the way in by lu_utf8_traits: a surrogate pair becomes
// one four-byte sequence and a broken pair is dropped. A count of npos with a
// pointer means that the text ends at its zero terminator; a null pointer is an
// empty text.
//
// The repeated forms take a byte as `unsigned char` and a UTF-16 unit as
// `unsigned short`, in either order with the count; pass exact types, e.g.
// `append(static_cast<unsigned short>(0x20AC), 2u)`.
#ifndef KAI18N_STRINGS_LU_UTF8STRING_H
#define KAI18N_STRINGS_LU_UTF8STRING_H

#include <cstdint>
#include <iosfwd>

#include "kai18n/strings/ucs2string.h"

class lu_utf8string {
  public:
    using value_type = unsigned char;
    using size_type = unsigned int;

    static constexpr unsigned int npos = 0xFFFFFFFFu;

    struct buffer_type {
        unsigned int length;    // bytes, terminator excluded
        unsigned char text[1];  // `length` bytes, then a zero byte
    };

    // Construction. Copying a null string, or building from a null ucs2string,
    // gives null; the range forms give an ordinary string.
    lu_utf8string() : m_buffer(&m_staticNilBuffer) {}
    lu_utf8string(const lu_utf8string& other);
    lu_utf8string(lu_utf8string&& other) noexcept;
    lu_utf8string(const lu_utf8string& other, unsigned int pos, unsigned int n = npos);
    lu_utf8string(const null_string&) : m_buffer(&m_staticNullBuffer) {}
    lu_utf8string(const ucs2string& text);
    lu_utf8string(const ucs2string& text, unsigned int pos, unsigned int n = npos);
    lu_utf8string(const unsigned char* text, unsigned int count = npos);
    lu_utf8string(const char* text, unsigned int count = npos);
    lu_utf8string(const unsigned short* text, unsigned int count = npos);
    lu_utf8string(unsigned char b, unsigned int n);
    lu_utf8string(unsigned int n, unsigned char b);
    lu_utf8string(unsigned short ch, unsigned int n);
    lu_utf8string(unsigned int n, unsigned short ch);
    ~lu_utf8string();

    /// Points the string at the nil buffer without releasing anything: for raw storage only.
    void init() { m_buffer = &m_staticNilBuffer; }

    // Assignment. A whole null string (either class) gives null; a text of
    // length 0 leaves a null string null. A moved-from string is empty.
    lu_utf8string& operator=(const lu_utf8string& other) { return assign(other); }
    lu_utf8string& operator=(lu_utf8string&& other) noexcept;
    lu_utf8string& operator=(const null_string&) {
        setnull();
        return *this;
    }
    lu_utf8string& operator=(const ucs2string& text) { return assign(text); }
    lu_utf8string& operator=(const unsigned char* text) { return assign(text); }
    lu_utf8string& operator=(const unsigned short* text) { return assign(text); }
    lu_utf8string& assign(const lu_utf8string& other);
    lu_utf8string& assign(const lu_utf8string& other, unsigned int pos, unsigned int n);
    lu_utf8string& assign(const ucs2string& text);
    lu_utf8string& assign(const ucs2string& text, unsigned int pos, unsigned int n);
    lu_utf8string& assign(const unsigned char* text, unsigned int count = npos) {
        assign_helper(text, count);
        return *this;
    }
    lu_utf8string& assign(const unsigned short* text, unsigned int count = npos) {
        assign_helper(text, count);
        return *this;
    }
    lu_utf8string& assign(unsigned char b, unsigned int n) {
        assign_helper(b, n);
        return *this;
    }
    lu_utf8string& assign(unsigned int n, unsigned char b) {
        assign_helper(b, n);
        return *this;
    }
    lu_utf8string& assign(unsigned short ch, unsigned int n) {
        assign_helper(ch, n);
        return *this;
    }
    lu_utf8string& assign(unsigned int n, unsigned short ch) {
        assign_helper(ch, n);
        return *this;
    }

    // Append. A null source adds nothing.
    lu_utf8string& operator+=(const lu_utf8string& other) { return append(other); }
    lu_utf8string& operator+=(const ucs2string& text) { return append(text); }
    lu_utf8string& operator+=(const unsigned char* text) { return append(text); }
    lu_utf8string& operator+=(const unsigned short* text) { return append(text); }
    lu_utf8string& append(const lu_utf8string& other) {
        append_helper(other.data(), other.length());
        return *this;
    }
    lu_utf8string& append(const lu_utf8string& other, unsigned int pos, unsigned int n);
    lu_utf8string& append(const ucs2string& text) {
        append_helper(text.data(), text.length());
        return *this;
    }
    lu_utf8string& append(const ucs2string& text, unsigned int pos, unsigned int n);
    lu_utf8string& append(const unsigned char* text, unsigned int count = npos) {
        append_helper(text, count);
        return *this;
    }
    lu_utf8string& append(const unsigned short* text, unsigned int count = npos) {
        append_helper(text, count);
        return *this;
    }
    lu_utf8string& append(unsigned char b, unsigned int n) {
        append_helper(b, n);
        return *this;
    }
    lu_utf8string& append(unsigned int n, unsigned char b) {
        append_helper(b, n);
        return *this;
    }
    lu_utf8string& append(unsigned short ch, unsigned int n) {
        append_helper(ch, n);
        return *this;
    }
    lu_utf8string& append(unsigned int n, unsigned short ch) {
        append_helper(ch, n);
        return *this;
    }

    // Insert, replace, erase by byte position. A position beyond the length
    // throws LU_E_OUT_OF_RANGE; a count is clipped to the end of the string; a
    // position equal to the length appends.
    lu_utf8string& insert(unsigned int pos, const lu_utf8string& other) {
        return replace(pos, 0, other);
    }
    lu_utf8string& insert(unsigned int pos, const lu_utf8string& other, unsigned int pos2,
                          unsigned int n2) {
        return replace(pos, 0, other, pos2, n2);
    }
    lu_utf8string& insert(unsigned int pos, const ucs2string& text) {
        return replace(pos, 0, text);
    }
    lu_utf8string& insert(unsigned int pos, const ucs2string& text, unsigned int pos2,
                          unsigned int n2) {
        return replace(pos, 0, text, pos2, n2);
    }
    lu_utf8string& insert(unsigned int pos, const unsigned char* text, unsigned int count = npos) {
        return replace(pos, 0, text, count);
    }
    lu_utf8string& insert(unsigned int pos, const unsigned short* text, unsigned int count = npos) {
        return replace(pos, 0, text, count);
    }
    lu_utf8string& insert(unsigned int pos, unsigned char b, unsigned int n) {
        return replace(pos, 0, b, n);
    }
    lu_utf8string& insert(unsigned int pos, unsigned int n, unsigned char b) {
        return replace(pos, 0, b, n);
    }
    lu_utf8string& insert(unsigned int pos, unsigned short ch, unsigned int n) {
        return replace(pos, 0, ch, n);
    }
    lu_utf8string& insert(unsigned int pos, unsigned int n, unsigned short ch) {
        return replace(pos, 0, ch, n);
    }

    lu_utf8string& replace(unsigned int pos, unsigned int n, const lu_utf8string& other) {
        replace_helper(pos, n, other.data(), other.length());
        return *this;
    }
    lu_utf8string& replace(unsigned int pos, unsigned int n, const lu_utf8string& other,
                           unsigned int pos2, unsigned int n2);
    lu_utf8string& replace(unsigned int pos, unsigned int n, const ucs2string& text) {
        replace_helper(pos, n, text.data(), text.length());
        return *this;
    }
    lu_utf8string& replace(unsigned int pos, unsigned int n, const ucs2string& text,
                           unsigned int pos2, unsigned int n2);
    lu_utf8string& replace(unsigned int pos, unsigned int n, const unsigned char* text,
                           unsigned int count = npos) {
        replace_helper(pos, n, text, count);
        return *this;
    }
    lu_utf8string& replace(unsigned int pos, unsigned int n, const unsigned short* text,
                           unsigned int count = npos) {
        replace_helper(pos, n, text, count);
        return *this;
    }
    lu_utf8string& replace(unsigned int pos, unsigned int n, unsigned char b, unsigned int count) {
        replace_helper(pos, n, b, count);
        return *this;
    }
    lu_utf8string& replace(unsigned int pos, unsigned int n, unsigned int count, unsigned char b) {
        replace_helper(pos, n, b, count);
        return *this;
    }
    lu_utf8string& replace(unsigned int pos, unsigned int n, unsigned short ch,
                           unsigned int count) {
        replace_helper(pos, n, ch, count);
        return *this;
    }
    lu_utf8string& replace(unsigned int pos, unsigned int n, unsigned int count,
                           unsigned short ch) {
        replace_helper(pos, n, ch, count);
        return *this;
    }

    /// Removes bytes [pos, pos + n). A string that ends empty goes back to the
    /// nil buffer, or stays null if it was null.
    lu_utf8string& erase(unsigned int pos, unsigned int n = npos) {
        replace_helper(pos, n, static_cast<const unsigned char*>(nullptr), 0);
        return *this;
    }
    lu_utf8string& remove(unsigned int pos, unsigned int n = npos) { return erase(pos, n); }
    /// Removes every byte; a null string stays null.
    lu_utf8string& erase() { return erase(0, npos); }
    lu_utf8string& remove() { return erase(0, npos); }
    /// Releases any heap buffer; the string becomes empty, not null, as ucs2string::clear.
    void clear();

    // Element access. An index at or beyond the length throws LU_E_OUT_OF_RANGE,
    // except that the const operator[] gives the terminator, 0, at the length.
    unsigned char& at(unsigned int pos);
    const unsigned char& at(unsigned int pos) const;
    unsigned char get_at(unsigned int pos) const { return at(pos); }
    unsigned char& operator[](unsigned int pos) { return at(pos); }
    const unsigned char& operator[](unsigned int pos) const;

    // Views. data() and c_str() are never null and always zero-terminated.
    const unsigned char* c_str() const { return m_buffer->text; }
    const unsigned char* data() const { return m_buffer->text; }
    unsigned int size() const { return m_buffer->length; }
    unsigned int length() const { return m_buffer->length; }
    unsigned int Length() const { return m_buffer->length; }
    bool empty() const { return m_buffer->length == 0; }
    /// Bytes that the current size class holds, terminator excluded; 0 when empty.
    unsigned int capacity() const;
    unsigned int max_size() const { return 0xFFFFFFFEu; }
    /// Copies min(n, length - pos) bytes, without a terminator; returns that count.
    unsigned int copy(unsigned char* target, unsigned int n, unsigned int pos = 0) const;
    lu_utf8string substr(unsigned int pos = 0, unsigned int n = npos) const {
        return lu_utf8string(*this, pos, n);
    }

    // State.
    bool isnull() const { return m_buffer == &m_staticNullBuffer; }
    /// Releases any heap buffer; the string becomes null.
    void setnull();
    void swap(lu_utf8string& other) noexcept;
    /// Pads with zero bytes or cuts. A cut keeps the buffer; resize(0) releases it.
    void resize(unsigned int n) { resize_helper(n, 0); }
    void resize(unsigned int n, unsigned char b) { resize_helper(n, b); }
    /// Stores a new length and terminator in the current buffer and does
    /// nothing else. Throws LU_E_OUT_OF_RANGE rather than write past the size
    /// class of the current length, or into a shared static buffer.
    void size(unsigned int n);
    /// Installs `buffer`, which the string then owns, releasing the old heap
    /// buffer. A null pointer installs the nil buffer.
    void data(buffer_type* buffer);

    // Comparison by unsigned bytes: -1 or 1 at the first differing byte,
    // else the difference of the compared lengths.
    int compare(const lu_utf8string& other) const { return compare_helper(other, 0, npos); }
    int compare(unsigned int pos, unsigned int n, const lu_utf8string& other) const {
        return compare_helper(other, pos, n);
    }
    int compare(unsigned int pos, unsigned int n, const lu_utf8string& other, unsigned int pos2,
                unsigned int n2) const;
    int compare(const unsigned char* s) const;
    int compare(const unsigned char* s, unsigned int pos) const;
    int compare(const unsigned char* s, unsigned int pos, unsigned int n) const {
        return compare_helper(s, pos, n);
    }
    int compare(unsigned int pos, unsigned int n, const unsigned char* s, unsigned int count) const;

  protected:
    /// A buffer for `n` bytes with its length and terminator set; the nil
    /// buffer for 0. Throws LU_E_STRING_TOO_LONG for npos.
    static buffer_type* allocate(unsigned int n);
    /// Bytes of a heap buffer for `n` bytes: 0 for 0, else n + 12 rounded down
    /// to a multiple of 8 (length, bytes and terminator, rounded up). Computed
    /// in 64 bits so that the longest strings do not wrap into a small class.
    static std::uint64_t allocation_size(unsigned int n) {
        return n == 0 ? 0u : ((std::uint64_t{n} + 12u) & ~std::uint64_t{7});
    }
    static void release(buffer_type* buffer);
    /// Moves to a buffer for `n` bytes, keeping min(n, length) bytes; the
    /// caller sets the length.
    void reallocate(unsigned int n);
    /// Does nothing: a buffer has no spare capacity to ask for.
    void reserve_helper(unsigned int) {}

    void assign_helper(const unsigned char* text, unsigned int count);
    void assign_helper(const unsigned short* text, unsigned int count);
    void assign_helper(unsigned short ch, unsigned int n);
    void assign_helper(unsigned char b, unsigned int n);
    void append_helper(const unsigned char* text, unsigned int count);
    void append_helper(const unsigned short* text, unsigned int count);
    void append_helper(unsigned short ch, unsigned int n);
    void append_helper(unsigned char b, unsigned int n);
    void replace_helper(unsigned int pos, unsigned int n, const unsigned char* text,
                        unsigned int count);
    void replace_helper(unsigned int pos, unsigned int n, const unsigned short* text,
                        unsigned int count);
    void replace_helper(unsigned int pos, unsigned int n, unsigned short ch, unsigned int count);
    void replace_helper(unsigned int pos, unsigned int n, unsigned char b, unsigned int count);
    int compare_helper(const lu_utf8string& other, unsigned int pos, unsigned int n) const;
    /// `n` is the length of `s`: returns length - pos - n when the bytes agree.
    int compare_helper(const unsigned char* s, unsigned int pos, unsigned int n) const;
    void resize_helper(unsigned int n, unsigned char b);
    /// Throws LU_E_OUT_OF_RANGE if `pos` is beyond the length, else clips `*n`.
    void validate_range(unsigned int pos, unsigned int* n) const;

    static unsigned char* nil_data() { return m_staticNilBuffer.text; }
    bool is_valid_buffer() const { return is_valid_buffer(m_buffer); }
    static bool is_valid_buffer(const buffer_type* buffer) {
        return buffer != &m_staticNilBuffer && buffer != &m_staticNullBuffer;
    }

  private:
    // Replaces bytes [pos, pos + n) by a gap of `added` bytes, sets the new
    // length and terminator, and returns the gap for the caller to fill.
    unsigned char* open_gap(unsigned int pos, unsigned int n, unsigned int added);
    bool overlaps(const void* source, std::uint64_t bytes) const;
    void set_length(unsigned int n);

    buffer_type* m_buffer;

    static buffer_type m_staticNilBuffer;
    static buffer_type m_staticNullBuffer;
};

inline bool operator==(const lu_utf8string& a, const lu_utf8string& b) {
    return a.compare(b) == 0;
}
inline bool operator!=(const lu_utf8string& a, const lu_utf8string& b) {
    return !(a == b);
}
inline bool operator<(const lu_utf8string& a, const lu_utf8string& b) {
    return a.compare(b) < 0;
}
inline bool operator>(const lu_utf8string& a, const lu_utf8string& b) {
    return a.compare(b) > 0;
}
inline bool operator<=(const lu_utf8string& a, const lu_utf8string& b) {
    return a.compare(b) <= 0;
}
inline bool operator>=(const lu_utf8string& a, const lu_utf8string& b) {
    return a.compare(b) >= 0;
}

inline void swap(lu_utf8string& a, lu_utf8string& b) noexcept {
    a.swap(b);
}

/// Writes the bytes up to the first zero byte.
std::ostream& operator<<(std::ostream& os, const lu_utf8string& text);

#endif  // KAI18N_STRINGS_LU_UTF8STRING_H

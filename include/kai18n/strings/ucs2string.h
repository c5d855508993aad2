// ucs2string: the library's counted UTF-16 string.
//
// One pointer wide: the object points to a heap buffer that holds the length
// and the zero-terminated units, or to one of two shared static buffers for the
// empty ("nil") and the null string. There is no capacity field: the size of a
// buffer follows from its length, in classes of 8 bytes, and a buffer is
// replaced only when an edit moves the string to another class. Copies are deep.
//
// Positions and counts are unsigned 32-bit. `npos` as a count means "up to the
// end". Overloads taking `const unsigned short*` read UTF-16; overloads taking
// `const unsigned char*` read UTF-8 and decode it. A count of npos with a
// pointer means that the text ends at its zero terminator.
#ifndef KAI18N_STRINGS_UCS2STRING_H
#define KAI18N_STRINGS_UCS2STRING_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <iterator>

class ucs2string;
class lu_utf8string;

/// Tag type: builds or assigns a null string.
struct null_string {};

/// Writes `n` copies of a unit.
struct lu_ucs2_traits {
    static unsigned short* assign(unsigned short* target, unsigned int n, const unsigned short& ch);
};

/// Iterator over the units of a string: a string and an index. It goes through
/// the string on each access, so it survives reallocation, and every access is
/// checked: reading at or beyond the length throws LUException LU_E_OUT_OF_RANGE.
/// Equality compares string and index; order and difference compare the index.
template <class String, class Ref>
class ucs2string_iterator_base {
  public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = unsigned short;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = Ref;

    ucs2string_iterator_base() : m_string(nullptr), m_index(0) {}
    ucs2string_iterator_base(String* string, unsigned int index)
        : m_string(string), m_index(index) {}

    Ref operator*() const { return m_string->at(m_index); }
    Ref operator[](difference_type i) const {
        return m_string->at(static_cast<unsigned int>(m_index + i));
    }

    ucs2string_iterator_base& operator++() {
        ++m_index;
        return *this;
    }
    ucs2string_iterator_base operator++(int) {
        ucs2string_iterator_base old = *this;
        ++m_index;
        return old;
    }
    ucs2string_iterator_base& operator--() {
        --m_index;
        return *this;
    }
    ucs2string_iterator_base operator--(int) {
        ucs2string_iterator_base old = *this;
        --m_index;
        return old;
    }
    ucs2string_iterator_base& operator+=(difference_type n) {
        m_index = static_cast<unsigned int>(m_index + n);
        return *this;
    }
    ucs2string_iterator_base& operator-=(difference_type n) {
        m_index = static_cast<unsigned int>(m_index - n);
        return *this;
    }
    ucs2string_iterator_base operator+(difference_type n) const {
        ucs2string_iterator_base r = *this;
        return r += n;
    }
    ucs2string_iterator_base operator-(difference_type n) const {
        ucs2string_iterator_base r = *this;
        return r -= n;
    }
    difference_type operator-(const ucs2string_iterator_base& other) const {
        return static_cast<difference_type>(m_index) - static_cast<difference_type>(other.m_index);
    }

    bool operator==(const ucs2string_iterator_base& o) const {
        return m_string == o.m_string && m_index == o.m_index;
    }
    bool operator!=(const ucs2string_iterator_base& o) const { return !(*this == o); }
    bool operator<(const ucs2string_iterator_base& o) const { return m_index < o.m_index; }
    bool operator>(const ucs2string_iterator_base& o) const { return m_index > o.m_index; }
    bool operator<=(const ucs2string_iterator_base& o) const { return m_index <= o.m_index; }
    bool operator>=(const ucs2string_iterator_base& o) const { return m_index >= o.m_index; }

    String* string() const { return m_string; }
    unsigned int index() const { return m_index; }

  private:
    String* m_string;
    unsigned int m_index;
};

using ucs2string_iterator = ucs2string_iterator_base<ucs2string, unsigned short&>;

class const_ucs2string_iterator
    : public ucs2string_iterator_base<const ucs2string, const unsigned short&> {
    using Base = ucs2string_iterator_base<const ucs2string, const unsigned short&>;

  public:
    using Base::Base;
    const_ucs2string_iterator(const Base& other) : Base(other) {}
    const_ucs2string_iterator(const ucs2string_iterator& other)
        : Base(other.string(), other.index()) {}
};

class ucs2string {
  public:
    using value_type = unsigned short;
    using size_type = unsigned int;
    using iterator = ucs2string_iterator;
    using const_iterator = const_ucs2string_iterator;

    static constexpr unsigned int npos = 0xFFFFFFFFu;

    struct buffer_type {
        unsigned int length;     // units, terminator excluded
        unsigned short text[1];  // `length` units, then a zero unit
    };

    // Construction.
    ucs2string() : m_buffer(&m_staticNilBuffer) {}
    ucs2string(const ucs2string& other);
    ucs2string(ucs2string&& other) noexcept;
    ucs2string(const ucs2string& other, unsigned int pos, unsigned int n = npos);
    ucs2string(const null_string&) : m_buffer(&m_staticNullBuffer) {}
    ucs2string(const unsigned short* text, unsigned int count = npos);
    ucs2string(const unsigned char* utf8, unsigned int bytes = npos);
    ucs2string(unsigned short ch, unsigned int n);
    /// A null lu_utf8string gives a null string.
    ucs2string(const lu_utf8string& utf8);
    ~ucs2string();

    /// Points the string at the nil buffer without releasing anything: for raw storage only.
    void init() { m_buffer = &m_staticNilBuffer; }

    // Assignment. Copying a null string gives null; a text of length 0 leaves
    // a null string null.
    ucs2string& operator=(const ucs2string& other);
    ucs2string& operator=(ucs2string&& other) noexcept;
    ucs2string& operator=(const null_string&) {
        setnull();
        return *this;
    }
    ucs2string& operator=(const unsigned short* text) { return assign(text); }
    ucs2string& operator=(const unsigned char* utf8) { return assign(utf8); }
    ucs2string& operator=(unsigned short ch) { return assign(ch, 1u); }
    ucs2string& operator=(const lu_utf8string& utf8) { return assign(utf8); }
    ucs2string& assign(const ucs2string& other);
    ucs2string& assign(const ucs2string& other, unsigned int pos, unsigned int n);
    ucs2string& assign(const unsigned short* text, unsigned int count = npos) {
        assign_helper(text, count);
        return *this;
    }
    ucs2string& assign(const unsigned char* utf8, unsigned int bytes = npos) {
        assign_helper(utf8, bytes);
        return *this;
    }
    ucs2string& assign(unsigned short ch, unsigned int n) {
        assign_helper(ch, n);
        return *this;
    }
    /// Unlike the constructor, a null lu_utf8string gives an empty string.
    ucs2string& assign(const lu_utf8string& utf8);
    ucs2string& assign(const_iterator first, const_iterator last);

    // Append.
    ucs2string& operator+=(const ucs2string& other) { return append(other); }
    ucs2string& operator+=(const unsigned short* text) { return append(text); }
    ucs2string& operator+=(const unsigned char* utf8) { return append(utf8); }
    ucs2string& operator+=(unsigned short ch) { return append(ch, 1u); }
    ucs2string& append(const ucs2string& other) {
        append_helper(other.data(), other.length());
        return *this;
    }
    ucs2string& append(const ucs2string& other, unsigned int pos, unsigned int n);
    ucs2string& append(const unsigned short* text, unsigned int count = npos) {
        append_helper(text, count);
        return *this;
    }
    ucs2string& append(const unsigned char* utf8, unsigned int bytes = npos) {
        append_helper(utf8, bytes);
        return *this;
    }
    ucs2string& append(unsigned short ch, unsigned int n) {
        append_helper(ch, n);
        return *this;
    }
    ucs2string& append(const_iterator first, const_iterator last);
    void push_back(unsigned short ch) { append_helper(ch, 1u); }

    // Insert, erase, replace by position. A position beyond the length throws
    // LU_E_OUT_OF_RANGE; a count is clipped to the end of the string.
    ucs2string& insert(unsigned int pos, const ucs2string& other) { return replace(pos, 0, other); }
    ucs2string& insert(unsigned int pos, const ucs2string& other, unsigned int pos2,
                       unsigned int n) {
        return replace(pos, 0, other, pos2, n);
    }
    ucs2string& insert(unsigned int pos, const unsigned short* text, unsigned int count = npos) {
        return replace(pos, 0, text, count);
    }
    ucs2string& insert(unsigned int pos, const unsigned char* utf8, unsigned int bytes = npos) {
        return replace(pos, 0, utf8, bytes);
    }
    ucs2string& insert(unsigned int pos, unsigned short ch, unsigned int n) {
        return replace(pos, 0, ch, n);
    }
    ucs2string& erase(unsigned int pos = 0, unsigned int n = npos) {
        replace_helper(pos, n, static_cast<const unsigned short*>(nullptr), 0);
        return *this;
    }
    ucs2string& replace(unsigned int pos, unsigned int n, const ucs2string& other) {
        replace_helper(pos, n, other.data(), other.length());
        return *this;
    }
    ucs2string& replace(unsigned int pos, unsigned int n, const ucs2string& other,
                        unsigned int pos2, unsigned int n2);
    ucs2string& replace(unsigned int pos, unsigned int n, const unsigned short* text,
                        unsigned int count = npos);
    ucs2string& replace(unsigned int pos, unsigned int n, const unsigned char* utf8,
                        unsigned int bytes = npos);
    ucs2string& replace(unsigned int pos, unsigned int n, unsigned short ch, unsigned int count) {
        replace_helper(pos, n, ch, count);
        return *this;
    }

    // Insert, erase, replace by iterators. Each unit of a source range is read
    // through its checked iterator; insert and replace build a new buffer, so
    // an empty result on a null string leaves it empty, not null.
    iterator insert(iterator p, unsigned short ch);
    void insert(iterator p, const_iterator first, const_iterator last) {
        replace(p, p, first, last);
    }
    iterator erase(iterator p) {
        erase(p.index(), 1);
        return p;
    }
    iterator erase(iterator first, iterator last) {
        erase(first.index(), last.index() - first.index());
        return first;
    }
    ucs2string& replace(iterator first, iterator last, const_iterator first2, const_iterator last2);
    ucs2string& replace(iterator first, iterator last, const ucs2string& other);

    // Element access: an index at or beyond the length throws LU_E_OUT_OF_RANGE.
    unsigned short& operator[](unsigned int pos) { return at(pos); }
    const unsigned short& operator[](unsigned int pos) const { return at(pos); }
    unsigned short& at(unsigned int pos);
    const unsigned short& at(unsigned int pos) const;
    unsigned short get_at(unsigned int pos) const { return at(pos); }
    /// Stores one unit; `pos` equal to the length appends.
    void put_at(unsigned int pos, unsigned short ch);

    // Views. data() and c_str() are never null and always zero-terminated.
    const unsigned short* c_str() const { return m_buffer->text; }
    const unsigned short* data() const { return m_buffer->text; }
    unsigned int size() const { return m_buffer->length; }
    unsigned int length() const { return m_buffer->length; }
    bool empty() const { return m_buffer->length == 0; }
    /// Units that the current buffer holds, terminator excluded.
    unsigned int capacity() const;
    unsigned int max_size() const { return 0x7FFFFFFFu; }
    ucs2string substr(unsigned int pos = 0, unsigned int n = npos) const {
        return ucs2string(*this, pos, n);
    }

    iterator begin() { return iterator(this, 0); }
    iterator end() { return iterator(this, length()); }
    const_iterator begin() const { return const_iterator(this, 0); }
    const_iterator end() const { return const_iterator(this, length()); }
    const_iterator cbegin() const { return begin(); }
    const_iterator cend() const { return end(); }
    /// Steps from `first` to `last` by index.
    static unsigned int distance(const_iterator first, const_iterator last);

    // State.
    bool isnull() const { return m_buffer == &m_staticNullBuffer; }
    /// Releases any heap buffer; the string becomes null.
    void setnull();
    /// Releases any heap buffer; the string becomes empty, not null.
    void clear();
    void swap(ucs2string& other) noexcept;
    void resize(unsigned int n, unsigned short ch = 0) { resize_helper(n, ch); }

    // Comparison: the difference of the first differing units, else the
    // difference of the compared lengths. A value, not just a sign.
    int compare(const ucs2string& other) const { return compare_helper(other, 0, npos); }
    int compare(unsigned int pos, unsigned int n, const ucs2string& other) const {
        return compare_helper(other, pos, n);
    }
    int compare(unsigned int pos, unsigned int n, const ucs2string& other, unsigned int pos2,
                unsigned int n2) const;
    int compare(const unsigned short* text) const;
    int compare(const unsigned short* text, unsigned int pos) const;
    int compare(const unsigned short* text, unsigned int pos, unsigned int n) const {
        return compare_helper(text, pos, n);
    }
    int compare(unsigned int pos, unsigned int n, const unsigned short* text,
                unsigned int count) const;

    // Search. Each returns an index into the whole string, or npos.
    unsigned int find(const unsigned short* s, unsigned int pos, unsigned int count) const;
    unsigned int find(const unsigned short* s, unsigned int pos = 0) const;
    unsigned int find(const ucs2string& s, unsigned int pos = 0) const {
        return find(s.data(), pos, s.length());
    }
    unsigned int find(unsigned short ch, unsigned int pos = 0) const { return find(&ch, pos, 1); }
    unsigned int rfind(const unsigned short* s, unsigned int pos, unsigned int count) const;
    unsigned int rfind(const unsigned short* s, unsigned int pos = npos) const;
    unsigned int rfind(const ucs2string& s, unsigned int pos = npos) const {
        return rfind(s.data(), pos, s.length());
    }
    unsigned int rfind(unsigned short ch, unsigned int pos = npos) const {
        return rfind(&ch, pos, 1);
    }
    unsigned int find_first_of(const unsigned short* s, unsigned int pos, unsigned int count) const;
    unsigned int find_first_of(const ucs2string& s, unsigned int pos = 0) const {
        return find_first_of(s.data(), pos, s.length());
    }
    unsigned int find_first_of(unsigned short ch, unsigned int pos = 0) const {
        return find_first_of(&ch, pos, 1);
    }
    unsigned int find_last_of(const unsigned short* s, unsigned int pos, unsigned int count) const;
    unsigned int find_last_of(const ucs2string& s, unsigned int pos = npos) const {
        return find_last_of(s.data(), pos, s.length());
    }
    unsigned int find_last_of(unsigned short ch, unsigned int pos = npos) const {
        return find_last_of(&ch, pos, 1);
    }
    unsigned int find_first_not_of(const unsigned short* s, unsigned int pos,
                                   unsigned int count) const;
    unsigned int find_first_not_of(const ucs2string& s, unsigned int pos = 0) const {
        return find_first_not_of(s.data(), pos, s.length());
    }
    unsigned int find_first_not_of(unsigned short ch, unsigned int pos = 0) const {
        return find_first_not_of(&ch, pos, 1);
    }
    unsigned int find_last_not_of(const unsigned short* s, unsigned int pos,
                                  unsigned int count) const;
    unsigned int find_last_not_of(const ucs2string& s, unsigned int pos = npos) const {
        return find_last_not_of(s.data(), pos, s.length());
    }
    unsigned int find_last_not_of(unsigned short ch, unsigned int pos = npos) const {
        return find_last_not_of(&ch, pos, 1);
    }

    /// Bytes of a heap buffer for `n` units: 0 for 0, else 2n + 12 rounded
    /// down to a multiple of 8 (length, units and terminator, rounded up).
    /// Computed in the width of size_t, so it does not wrap for long lengths.
    static std::size_t allocation_size(unsigned int n) {
        return n == 0 ? 0u : ((2u * std::size_t{n} + 12u) & ~std::size_t{7});
    }

  protected:
    buffer_type* allocate(unsigned int n);
    static void release(buffer_type* buffer);
    bool is_valid_buffer() const { return is_valid_buffer(m_buffer); }
    static bool is_valid_buffer(const buffer_type* buffer) {
        return buffer != &m_staticNilBuffer && buffer != &m_staticNullBuffer;
    }
    static unsigned short* nil_data() { return m_staticNilBuffer.text; }

    void assign_helper(const unsigned short* text, unsigned int count);
    void assign_helper(const unsigned char* utf8, unsigned int bytes);
    void assign_helper(unsigned short ch, unsigned int n);
    void append_helper(const unsigned short* text, unsigned int count);
    void append_helper(const unsigned char* utf8, unsigned int bytes);
    void append_helper(unsigned short ch, unsigned int n);
    void replace_helper(unsigned int pos, unsigned int n, const unsigned short* text,
                        unsigned int count);
    void replace_helper(unsigned int pos, unsigned int n, unsigned short ch, unsigned int count);
    int compare_helper(const ucs2string& other, unsigned int pos, unsigned int n) const;
    int compare_helper(const unsigned short* text, unsigned int pos, unsigned int n) const;
    void resize_helper(unsigned int n, unsigned short ch);
    /// Does nothing: a buffer has no spare capacity to ask for.
    void reserve_helper(unsigned int) {}

  private:
    // Replaces units [pos, pos + n) by a gap of `count` units and returns it;
    // a replaced buffer comes back through `old` for the caller to release.
    unsigned short* open_gap(unsigned int pos, unsigned int n, unsigned int count,
                             buffer_type** old);
    void set_length(unsigned int n);
    void release_to_nil();

    buffer_type* m_buffer;

    static buffer_type m_staticNilBuffer;
    static buffer_type m_staticNullBuffer;
};

bool operator==(const ucs2string& a, const ucs2string& b);
inline bool operator!=(const ucs2string& a, const ucs2string& b) {
    return !(a == b);
}
inline bool operator<(const ucs2string& a, const ucs2string& b) {
    return a.compare(b) < 0;
}
inline bool operator>(const ucs2string& a, const ucs2string& b) {
    return a.compare(b) > 0;
}
inline bool operator<=(const ucs2string& a, const ucs2string& b) {
    return a.compare(b) <= 0;
}
inline bool operator>=(const ucs2string& a, const ucs2string& b) {
    return a.compare(b) >= 0;
}
ucs2string operator+(const ucs2string& a, const ucs2string& b);

inline void swap(ucs2string& a, ucs2string& b) noexcept {
    a.swap(b);
}

/// Writes the text as UTF-8.
std::ostream& operator<<(std::ostream& os, const ucs2string& text);

namespace std {
template <>
struct hash<ucs2string> {
    size_t operator()(const ucs2string& s) const noexcept;
};
}  // namespace std

#endif  // KAI18N_STRINGS_UCS2STRING_H

#include "kai18n/strings/ucs2string.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <vector>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "strings/utf8_codec.h"

ucs2string::buffer_type ucs2string::m_staticNilBuffer = {0, {0}};
ucs2string::buffer_type ucs2string::m_staticNullBuffer = {0, {0}};

namespace {

constexpr unsigned int kMaxLength = 0x7FFFFFFFu;

unsigned int MeasureUnits(const unsigned short* text) {
    if (text == nullptr) return 0;
    const unsigned short* p = text;
    while (*p != 0) ++p;
    return static_cast<unsigned int>(p - text);
}

void CopyUnits(unsigned short* target, const unsigned short* source, unsigned int n) {
    if (n != 0) std::memcpy(target, source, n * sizeof(unsigned short));
}

void MoveUnits(unsigned short* target, const unsigned short* source, unsigned int n) {
    if (n != 0) std::memmove(target, source, n * sizeof(unsigned short));
}

// Measures UTF-8 in units and rejects, before anything is changed, a
// sequence of five or six bytes that lu_utf8_traits::copy could not decode.
unsigned int DecodableUnits(const unsigned char* utf8, unsigned int bytes) {
    if (utf8 == nullptr) return 0;
    if (bytes == ucs2string::npos) bytes = lu_utf8_traits::length(utf8);
    bool decodable;
    const unsigned int units = utf8_codec::CountUnits(utf8, bytes, &decodable);
    if (!decodable) LUException::Raise(LU_E_INVALID_ARG);
    return units;
}

[[noreturn]] void ThrowOutOfRange() {
    LUException::Raise(LU_E_OUT_OF_RANGE);
}

}  // namespace

unsigned short* lu_ucs2_traits::assign(unsigned short* target, unsigned int n,
                                       const unsigned short& ch) {
    if ((ch >> 8) == (ch & 0xFF)) {
        if (n != 0) std::memset(target, ch & 0xFF, n * sizeof(unsigned short));
    } else {
        std::fill_n(target, n, ch);
    }
    return target;
}

// ---------------------------------------------------------------------------
// Buffers

ucs2string::buffer_type* ucs2string::allocate(unsigned int n) {
    if (n > kMaxLength) LUException::Raise(LU_E_STRING_TOO_LONG);
    if (n == 0) return &m_staticNilBuffer;
    void* memory = std::malloc(allocation_size(n));
    if (memory == nullptr) throw std::bad_alloc();
    return static_cast<buffer_type*>(memory);
}

void ucs2string::release(buffer_type* buffer) {
    if (is_valid_buffer(buffer)) std::free(buffer);
}

void ucs2string::set_length(unsigned int n) {
    m_buffer->length = n;
    m_buffer->text[n] = 0;
}

void ucs2string::release_to_nil() {
    buffer_type* old = m_buffer;
    m_buffer = &m_staticNilBuffer;
    release(old);
}

unsigned int ucs2string::capacity() const {
    if (!is_valid_buffer()) return 0;
    return static_cast<unsigned int>((allocation_size(length()) - 6) / 2);
}

// The one place where a string changes its units: units [pos, pos + n) give
// way to a gap of `count` units, which the caller then fills. The length is
// set and terminated. Within the size class the tail moves in place;
// otherwise a new buffer gets the head and the tail, and the old one comes
// back through `old`, still readable, for the caller to release. A result of
// length 0 is always the nil buffer, or the null one for a null string.
unsigned short* ucs2string::open_gap(unsigned int pos, unsigned int n, unsigned int count,
                                     buffer_type** old) {
    const unsigned int len = length();
    if (pos > len) ThrowOutOfRange();
    n = std::min(n, len - pos);
    if (len - n >= ~count) LUException::Raise(LU_E_STRING_TOO_LONG);
    const unsigned int newLength = len - n + count;
    if (newLength > kMaxLength) LUException::Raise(LU_E_STRING_TOO_LONG);
    const unsigned int tail = len - pos - n;
    *old = nullptr;
    if (newLength == 0) {
        // A heap string becomes nil; a null or nil string stays as it is, and
        // the shared static buffers are never written.
        if (is_valid_buffer()) {
            *old = m_buffer;
            m_buffer = &m_staticNilBuffer;
        }
        return m_buffer->text;
    }
    if (is_valid_buffer() && allocation_size(newLength) == allocation_size(len)) {
        unsigned short* text = m_buffer->text;
        MoveUnits(text + pos + count, text + pos + n, tail);
        set_length(newLength);
        return text + pos;
    }
    if (is_valid_buffer() && tail == 0 && pos != 0) {
        // Growing or cutting at the end keeps the head where it is: the
        // allocator may resize the block in place instead of copying it.
        void* resized = std::realloc(m_buffer, allocation_size(newLength));
        if (resized == nullptr) throw std::bad_alloc();
        m_buffer = static_cast<buffer_type*>(resized);
        set_length(newLength);
        return m_buffer->text + pos;
    }
    buffer_type* fresh = allocate(newLength);
    CopyUnits(fresh->text, m_buffer->text, pos);
    CopyUnits(fresh->text + pos + count, m_buffer->text + pos + n, tail);
    *old = m_buffer;
    m_buffer = fresh;
    set_length(newLength);
    return fresh->text + pos;
}

// ---------------------------------------------------------------------------
// Construction and assignment

ucs2string::ucs2string(const ucs2string& other) : m_buffer(&m_staticNilBuffer) {
    if (other.isnull()) {
        m_buffer = &m_staticNullBuffer;
    } else {
        assign_helper(other.data(), other.length());
    }
}

ucs2string::ucs2string(ucs2string&& other) noexcept : m_buffer(other.m_buffer) {
    other.m_buffer = &m_staticNilBuffer;
}

ucs2string::ucs2string(const ucs2string& other, unsigned int pos, unsigned int n)
    : m_buffer(&m_staticNilBuffer) {
    if (pos > other.length()) ThrowOutOfRange();
    assign_helper(other.data() + pos, std::min(n, other.length() - pos));
}

ucs2string::ucs2string(const unsigned short* text, unsigned int count)
    : m_buffer(&m_staticNilBuffer) {
    assign_helper(text, count);
}

ucs2string::ucs2string(const unsigned char* utf8, unsigned int bytes)
    : m_buffer(&m_staticNilBuffer) {
    assign_helper(utf8, bytes);
}

ucs2string::ucs2string(unsigned short ch, unsigned int n) : m_buffer(&m_staticNilBuffer) {
    assign_helper(ch, n);
}

ucs2string::~ucs2string() {
    release(m_buffer);
}

ucs2string& ucs2string::operator=(const ucs2string& other) {
    if (this != &other) {
        if (other.isnull()) {
            setnull();
        } else {
            assign_helper(other.data(), other.length());
        }
    }
    return *this;
}

ucs2string& ucs2string::operator=(ucs2string&& other) noexcept {
    if (this != &other) {
        release(m_buffer);
        m_buffer = other.m_buffer;
        other.m_buffer = &m_staticNilBuffer;
    }
    return *this;
}

ucs2string& ucs2string::assign(const ucs2string& other) {
    return *this = other;
}

ucs2string& ucs2string::assign(const ucs2string& other, unsigned int pos, unsigned int n) {
    if (pos > other.length()) ThrowOutOfRange();
    assign_helper(other.data() + pos, std::min(n, other.length() - pos));
    return *this;
}

void ucs2string::assign_helper(const unsigned short* text, unsigned int count) {
    if (count == npos || text == nullptr) count = MeasureUnits(text);
    replace_helper(0, npos, text, count);
}

void ucs2string::assign_helper(const unsigned char* utf8, unsigned int bytes) {
    const unsigned int units = DecodableUnits(utf8, bytes);
    buffer_type* old;
    unsigned short* gap = open_gap(0, npos, units, &old);
    lu_utf8_traits::copy(gap, utf8, units);
    release(old);
}

void ucs2string::assign_helper(unsigned short ch, unsigned int n) {
    replace_helper(0, npos, ch, n);
}

// ---------------------------------------------------------------------------
// Append, insert, replace

ucs2string& ucs2string::append(const ucs2string& other, unsigned int pos, unsigned int n) {
    if (pos > other.length()) ThrowOutOfRange();
    append_helper(other.data() + pos, std::min(n, other.length() - pos));
    return *this;
}

void ucs2string::append_helper(const unsigned short* text, unsigned int count) {
    if (count == npos || text == nullptr) count = MeasureUnits(text);
    replace_helper(length(), 0, text, count);
}

void ucs2string::append_helper(const unsigned char* utf8, unsigned int bytes) {
    const unsigned int units = DecodableUnits(utf8, bytes);
    if (units == 0) return;
    buffer_type* old;
    unsigned short* gap = open_gap(length(), 0, units, &old);
    lu_utf8_traits::copy(gap, utf8, units);
    release(old);
}

void ucs2string::append_helper(unsigned short ch, unsigned int n) {
    replace_helper(length(), 0, ch, n);
}

ucs2string& ucs2string::replace(unsigned int pos, unsigned int n, const ucs2string& other,
                                unsigned int pos2, unsigned int n2) {
    if (pos2 > other.length()) ThrowOutOfRange();
    replace_helper(pos, n, other.data() + pos2, std::min(n2, other.length() - pos2));
    return *this;
}

ucs2string& ucs2string::replace(unsigned int pos, unsigned int n, const unsigned short* text,
                                unsigned int count) {
    if (count == npos || text == nullptr) count = MeasureUnits(text);
    replace_helper(pos, n, text, count);
    return *this;
}

ucs2string& ucs2string::replace(unsigned int pos, unsigned int n, const unsigned char* utf8,
                                unsigned int bytes) {
    if (pos > length()) ThrowOutOfRange();
    const unsigned int units = DecodableUnits(utf8, bytes);
    buffer_type* old;
    unsigned short* gap = open_gap(pos, n, units, &old);
    lu_utf8_traits::copy(gap, utf8, units);
    release(old);
    return *this;
}

void ucs2string::replace_helper(unsigned int pos, unsigned int n, const unsigned short* text,
                                unsigned int count) {
    // A source inside this string would be overwritten by the moving tail.
    const auto source = reinterpret_cast<std::uintptr_t>(text);
    const auto own = reinterpret_cast<std::uintptr_t>(m_buffer->text);
    if (count != 0 && source < own + length() * sizeof(unsigned short) &&
        source + count * sizeof(unsigned short) > own) {
        const std::vector<unsigned short> copy(text, text + count);
        replace_helper(pos, n, copy.data(), count);
        return;
    }
    buffer_type* old;
    unsigned short* gap = open_gap(pos, n, count, &old);
    CopyUnits(gap, text, count);
    release(old);
}

void ucs2string::replace_helper(unsigned int pos, unsigned int n, unsigned short ch,
                                unsigned int count) {
    buffer_type* old;
    unsigned short* gap = open_gap(pos, n, count, &old);
    lu_ucs2_traits::assign(gap, count, ch);
    release(old);
}

// ---------------------------------------------------------------------------
// Iterator forms: each source unit is read through its checked iterator.

namespace {

std::vector<unsigned short> ReadRange(const_ucs2string_iterator first,
                                      const_ucs2string_iterator last) {
    std::vector<unsigned short> units;
    for (; first != last; ++first) units.push_back(*first);
    return units;
}

}  // namespace

ucs2string& ucs2string::assign(const_iterator first, const_iterator last) {
    const std::vector<unsigned short> units = ReadRange(first, last);
    assign_helper(units.data(), static_cast<unsigned int>(units.size()));
    return *this;
}

ucs2string& ucs2string::append(const_iterator first, const_iterator last) {
    const std::vector<unsigned short> units = ReadRange(first, last);
    append_helper(units.data(), static_cast<unsigned int>(units.size()));
    return *this;
}

ucs2string& ucs2string::replace(iterator first, iterator last, const_iterator first2,
                                const_iterator last2) {
    const std::vector<unsigned short> units = ReadRange(first2, last2);
    const unsigned int pos = first.index();
    if (pos > length() || last.index() < pos) ThrowOutOfRange();
    // Always a new buffer: an empty result leaves the string empty, not null.
    ucs2string result;
    result.assign_helper(data(), pos);
    result.append_helper(units.data(), static_cast<unsigned int>(units.size()));
    if (last.index() < length())
        result.append_helper(data() + last.index(), length() - last.index());
    swap(result);
    return *this;
}

ucs2string& ucs2string::replace(iterator first, iterator last, const ucs2string& other) {
    return replace(first, last, other.begin(), other.end());
}

ucs2string::iterator ucs2string::insert(iterator p, unsigned short ch) {
    const ucs2string unit(ch, 1u);
    replace(p, p, unit.begin(), unit.end());
    return iterator(this, p.index());
}

unsigned int ucs2string::distance(const_iterator first, const_iterator last) {
    return last.index() - first.index();
}

// ---------------------------------------------------------------------------
// Element access and state

unsigned short& ucs2string::at(unsigned int pos) {
    if (pos >= length()) ThrowOutOfRange();
    return m_buffer->text[pos];
}

const unsigned short& ucs2string::at(unsigned int pos) const {
    if (pos >= length()) ThrowOutOfRange();
    return m_buffer->text[pos];
}

void ucs2string::put_at(unsigned int pos, unsigned short ch) {
    if (pos < length()) {
        m_buffer->text[pos] = ch;
    } else if (pos == length()) {
        append_helper(ch, 1u);
    } else {
        ThrowOutOfRange();
    }
}

void ucs2string::setnull() {
    release(m_buffer);
    m_buffer = &m_staticNullBuffer;
}

void ucs2string::clear() {
    release_to_nil();
}

void ucs2string::swap(ucs2string& other) noexcept {
    std::swap(m_buffer, other.m_buffer);
}

void ucs2string::resize_helper(unsigned int n, unsigned short ch) {
    const unsigned int len = length();
    if (n == 0) {
        if (is_valid_buffer()) release_to_nil();
    } else if (n > len) {
        append_helper(ch, n - len);
    } else if (n < len) {
        replace_helper(n, npos, static_cast<const unsigned short*>(nullptr), 0);
    }
}

// ---------------------------------------------------------------------------
// Comparison

int ucs2string::compare_helper(const ucs2string& other, unsigned int pos, unsigned int n) const {
    if (pos > length()) ThrowOutOfRange();
    const unsigned int a = std::min(length() - pos, n);
    const unsigned int b = other.length();
    const unsigned short* left = data() + pos;
    const unsigned short* right = other.data();
    for (unsigned int i = 0, m = std::min(a, b); i < m; ++i) {
        if (left[i] != right[i]) return int{left[i]} - int{right[i]};
    }
    return static_cast<int>(a) - static_cast<int>(b);
}

int ucs2string::compare_helper(const unsigned short* text, unsigned int pos, unsigned int n) const {
    if (pos > length()) ThrowOutOfRange();
    const unsigned short* left = data() + pos;
    for (unsigned int i = 0, m = std::min(n, length() - pos); i < m; ++i) {
        if (left[i] != text[i]) return int{left[i]} - int{text[i]};
    }
    return static_cast<int>(length() - pos - n);
}

int ucs2string::compare(unsigned int pos, unsigned int n, const ucs2string& other,
                        unsigned int pos2, unsigned int n2) const {
    return compare_helper(ucs2string(other, pos2, n2), pos, n);
}

int ucs2string::compare(const unsigned short* text) const {
    return compare_helper(text, 0, MeasureUnits(text));
}

int ucs2string::compare(const unsigned short* text, unsigned int pos) const {
    return compare_helper(text, pos, MeasureUnits(text));
}

int ucs2string::compare(unsigned int pos, unsigned int n, const unsigned short* text,
                        unsigned int count) const {
    return compare_helper(ucs2string(text, count), pos, n);
}

bool operator==(const ucs2string& a, const ucs2string& b) {
    return a.length() == b.length() &&
           std::memcmp(a.data(), b.data(), a.length() * sizeof(unsigned short)) == 0;
}

ucs2string operator+(const ucs2string& a, const ucs2string& b) {
    ucs2string result(a);
    result.append(b);
    return result;
}

size_t std::hash<ucs2string>::operator()(const ucs2string& s) const noexcept {
    // FNV-1a over the units.
    std::uint64_t h = 1469598103934665603ull;
    for (unsigned int i = 0; i < s.length(); ++i) {
        h = (h ^ s.data()[i]) * 1099511628211ull;
    }
    return static_cast<size_t>(h);
}

// ---------------------------------------------------------------------------
// Search

unsigned int ucs2string::find(const unsigned short* s, unsigned int pos, unsigned int count) const {
    const unsigned int len = length();
    if (std::uint64_t{pos} + count > len) return npos;
    if (count == 0) return pos;
    const unsigned short* text = data();
    for (unsigned int i = pos; i <= len - count; ++i) {
        if (std::memcmp(text + i, s, count * sizeof(unsigned short)) == 0) return i;
    }
    return npos;
}

unsigned int ucs2string::find(const unsigned short* s, unsigned int pos) const {
    return find(s, pos, MeasureUnits(s));
}

unsigned int ucs2string::rfind(const unsigned short* s, unsigned int pos,
                               unsigned int count) const {
    const unsigned int len = length();
    if (count > len) return npos;
    if (count == 0) return std::min(len, pos);
    const unsigned short* text = data();
    for (unsigned int i = std::min(len - count, pos) + 1; i-- > 0;) {
        if (std::memcmp(text + i, s, count * sizeof(unsigned short)) == 0) return i;
    }
    return npos;
}

unsigned int ucs2string::rfind(const unsigned short* s, unsigned int pos) const {
    return rfind(s, pos, MeasureUnits(s));
}

namespace {

// The units of a set, sorted, for membership tests.
class UnitSet {
  public:
    UnitSet(const unsigned short* s, unsigned int count) : m_units(s, s + count) {
        std::sort(m_units.begin(), m_units.end());
    }
    bool contains(unsigned short unit) const {
        return std::binary_search(m_units.begin(), m_units.end(), unit);
    }

  private:
    std::vector<unsigned short> m_units;
};

}  // namespace

// Scans up from `pos` for the first unit whose membership in the set is `wanted`.
static unsigned int ScanUp(const ucs2string& str, const unsigned short* s, unsigned int pos,
                           unsigned int count, bool wanted) {
    if (pos >= str.length()) return ucs2string::npos;
    const UnitSet set(s, count);
    for (unsigned int i = pos; i < str.length(); ++i) {
        if (set.contains(str.data()[i]) == wanted) return i;
    }
    return ucs2string::npos;
}

// Scans down from the unit before min(pos, length): `pos` counts units from
// the start, it is not the first index to examine.
static unsigned int ScanDown(const ucs2string& str, const unsigned short* s, unsigned int pos,
                             unsigned int count, bool wanted) {
    const UnitSet set(s, count);
    for (unsigned int i = std::min(pos, str.length()); i-- > 0;) {
        if (set.contains(str.data()[i]) == wanted) return i;
    }
    return ucs2string::npos;
}

unsigned int ucs2string::find_first_of(const unsigned short* s, unsigned int pos,
                                       unsigned int count) const {
    return ScanUp(*this, s, pos, count, true);
}

unsigned int ucs2string::find_first_not_of(const unsigned short* s, unsigned int pos,
                                           unsigned int count) const {
    return ScanUp(*this, s, pos, count, false);
}

unsigned int ucs2string::find_last_of(const unsigned short* s, unsigned int pos,
                                      unsigned int count) const {
    return ScanDown(*this, s, pos, count, true);
}

unsigned int ucs2string::find_last_not_of(const unsigned short* s, unsigned int pos,
                                          unsigned int count) const {
    return ScanDown(*this, s, pos, count, false);
}

#include "kai18n/strings/lu_utf8string.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <ostream>
#include <vector>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/lu_utf8_traits.h"

lu_utf8string::buffer_type lu_utf8string::m_staticNilBuffer = {0, {0}};
lu_utf8string::buffer_type lu_utf8string::m_staticNullBuffer = {0, {0}};

namespace {

[[noreturn]] void ThrowOutOfRange() {
    LUException::Raise(LU_E_OUT_OF_RANGE);
}

// Bytes of a UTF-8 source: a null pointer is empty, npos means "up to the terminator".
unsigned int MeasureBytes(const unsigned char* text, unsigned int count) {
    if (text == nullptr) return 0;
    return count == lu_utf8string::npos ? lu_utf8_traits::length(text) : count;
}

// Units of a UTF-16 source, by the same rules.
unsigned int MeasureUnits(const unsigned short* text, unsigned int count) {
    if (text == nullptr) return 0;
    if (count != lu_utf8string::npos) return count;
    const unsigned short* p = text;
    while (*p != 0) ++p;
    return static_cast<unsigned int>(p - text);
}

// Bytes of `n` copies of the encoding of `ch`. A product beyond 32 bits cannot
// be a length; one of exactly npos is left for the length test to reject.
unsigned int RepeatedBytes(unsigned short ch, unsigned int n) {
    const std::uint64_t bytes = std::uint64_t{lu_utf8_traits::GetUTF8Bytes(ch)} * n;
    if (bytes > lu_utf8string::npos) LUException::Raise(LU_E_STRING_TOO_LONG);
    return static_cast<unsigned int>(bytes);
}

}  // namespace

// ---------------------------------------------------------------------------
// Buffers

lu_utf8string::buffer_type* lu_utf8string::allocate(unsigned int n) {
    if (n == npos) LUException::Raise(LU_E_STRING_TOO_LONG);
    if (n == 0) return &m_staticNilBuffer;
    const std::uint64_t bytes = allocation_size(n);
    if (bytes != static_cast<std::size_t>(bytes)) throw std::bad_alloc();
    auto* buffer = static_cast<buffer_type*>(std::malloc(static_cast<std::size_t>(bytes)));
    if (buffer == nullptr) throw std::bad_alloc();
    // A fresh buffer is a valid string of `n` bytes at once, so that an
    // installed buffer can be read and sized before its text is filled in.
    buffer->length = n;
    buffer->text[n] = 0;
    return buffer;
}

void lu_utf8string::release(buffer_type* buffer) {
    if (is_valid_buffer(buffer)) std::free(buffer);
}

// Buffers come from malloc so that a string growing or shrinking at its end
// can be resized in place by realloc, instead of copied on every growth.
void lu_utf8string::reallocate(unsigned int n) {
    if (is_valid_buffer(m_buffer) && n != 0 && n != npos) {
        const std::uint64_t bytes = allocation_size(n);
        if (bytes != static_cast<std::size_t>(bytes)) throw std::bad_alloc();
        void* resized = std::realloc(m_buffer, static_cast<std::size_t>(bytes));
        if (resized == nullptr) throw std::bad_alloc();
        m_buffer = static_cast<buffer_type*>(resized);
        set_length(n);
        return;
    }
    buffer_type* fresh = allocate(n);
    lu_utf8_traits::copy(fresh->text, m_buffer->text, std::min(n, length()));
    release(m_buffer);
    m_buffer = fresh;
}

void lu_utf8string::set_length(unsigned int n) {
    m_buffer->length = n;
    m_buffer->text[n] = 0;
}

unsigned int lu_utf8string::capacity() const {
    if (empty()) return 0;
    // Only the longest strings reach past max_size here.
    return static_cast<unsigned int>(
        std::min<std::uint64_t>(allocation_size(length()) - 5, max_size()));
}

// The one place where a string changes its bytes: bytes [pos, pos + n) give
// way to a gap of `added` bytes, which the caller then fills. The length is set
// and terminated. Within the size class the tail moves in place; otherwise a
// new buffer gets the head and the tail and the old one is released, so a
// caller whose source lies inside this string must copy it first. A result of
// length 0 is the nil buffer, or the null one for a null string; the shared
// static buffers are never written.
unsigned char* lu_utf8string::open_gap(unsigned int pos, unsigned int n, unsigned int added) {
    const unsigned int len = length();
    if (pos > len) ThrowOutOfRange();
    n = std::min(n, len - pos);
    if (len - n >= ~added) LUException::Raise(LU_E_STRING_TOO_LONG);
    const unsigned int newLength = len - n + added;
    const unsigned int tail = len - pos - n;
    if (newLength == 0) {
        if (is_valid_buffer()) clear();
        return m_buffer->text;
    }
    if (is_valid_buffer() && allocation_size(newLength) == allocation_size(len)) {
        unsigned char* text = m_buffer->text;
        lu_utf8_traits::move(text + pos + added, text + pos + n, tail);
        set_length(newLength);
        return text + pos;
    }
    if (tail == 0) {
        // Nothing follows the gap: keep the head and grow or shrink behind it.
        reallocate(newLength);
    } else {
        buffer_type* fresh = allocate(newLength);
        lu_utf8_traits::copy(fresh->text, m_buffer->text, pos);
        lu_utf8_traits::copy(fresh->text + pos + added, m_buffer->text + pos + n, tail);
        release(m_buffer);
        m_buffer = fresh;
    }
    set_length(newLength);
    return m_buffer->text + pos;
}

// True if the source bytes touch this string's text or terminator. Such a
// source would be moved by the tail or freed with the old buffer while it is
// being read, so the editing helpers copy it first.
bool lu_utf8string::overlaps(const void* source, std::uint64_t bytes) const {
    if (bytes == 0) return false;
    const auto from = reinterpret_cast<std::uintptr_t>(source);
    const auto own = reinterpret_cast<std::uintptr_t>(m_buffer->text);
    return from < own + length() + 1 && from + bytes > own;
}

void lu_utf8string::validate_range(unsigned int pos, unsigned int* n) const {
    if (pos > length()) ThrowOutOfRange();
    *n = std::min(*n, length() - pos);
}

// ---------------------------------------------------------------------------
// Construction and assignment

lu_utf8string::lu_utf8string(const lu_utf8string& other) : m_buffer(&m_staticNilBuffer) {
    if (other.isnull()) {
        m_buffer = &m_staticNullBuffer;
    } else {
        assign_helper(other.data(), other.length());
    }
}

lu_utf8string::lu_utf8string(lu_utf8string&& other) noexcept : m_buffer(other.m_buffer) {
    other.m_buffer = &m_staticNilBuffer;
}

lu_utf8string::lu_utf8string(const lu_utf8string& other, unsigned int pos, unsigned int n)
    : m_buffer(&m_staticNilBuffer) {
    other.validate_range(pos, &n);
    assign_helper(other.data() + pos, n);
}

lu_utf8string::lu_utf8string(const ucs2string& text) : m_buffer(&m_staticNilBuffer) {
    if (text.isnull()) {
        m_buffer = &m_staticNullBuffer;
    } else {
        assign_helper(text.data(), text.length());
    }
}

lu_utf8string::lu_utf8string(const ucs2string& text, unsigned int pos, unsigned int n)
    : m_buffer(&m_staticNilBuffer) {
    assign(text, pos, n);
}

lu_utf8string::lu_utf8string(const unsigned char* text, unsigned int count)
    : m_buffer(&m_staticNilBuffer) {
    assign_helper(text, count);
}

lu_utf8string::lu_utf8string(const char* text, unsigned int count) : m_buffer(&m_staticNilBuffer) {
    assign_helper(reinterpret_cast<const unsigned char*>(text), count);
}

lu_utf8string::lu_utf8string(const unsigned short* text, unsigned int count)
    : m_buffer(&m_staticNilBuffer) {
    assign_helper(text, count);
}

lu_utf8string::lu_utf8string(unsigned char b, unsigned int n) : m_buffer(&m_staticNilBuffer) {
    assign_helper(b, n);
}

lu_utf8string::lu_utf8string(unsigned int n, unsigned char b) : m_buffer(&m_staticNilBuffer) {
    assign_helper(b, n);
}

lu_utf8string::lu_utf8string(unsigned short ch, unsigned int n) : m_buffer(&m_staticNilBuffer) {
    assign_helper(ch, n);
}

lu_utf8string::lu_utf8string(unsigned int n, unsigned short ch) : m_buffer(&m_staticNilBuffer) {
    assign_helper(ch, n);
}

lu_utf8string::~lu_utf8string() {
    release(m_buffer);
}

lu_utf8string& lu_utf8string::operator=(lu_utf8string&& other) noexcept {
    if (this != &other) {
        release(m_buffer);
        m_buffer = other.m_buffer;
        other.m_buffer = &m_staticNilBuffer;
    }
    return *this;
}

lu_utf8string& lu_utf8string::assign(const lu_utf8string& other) {
    if (this == &other) return *this;
    if (other.isnull()) {
        setnull();
    } else {
        assign_helper(other.data(), other.length());
    }
    return *this;
}

lu_utf8string& lu_utf8string::assign(const lu_utf8string& other, unsigned int pos, unsigned int n) {
    other.validate_range(pos, &n);
    assign_helper(other.data() + pos, n);
    return *this;
}

lu_utf8string& lu_utf8string::assign(const ucs2string& text) {
    if (text.isnull()) {
        setnull();
    } else {
        assign_helper(text.data(), text.length());
    }
    return *this;
}

lu_utf8string& lu_utf8string::assign(const ucs2string& text, unsigned int pos, unsigned int n) {
    if (pos > text.length()) ThrowOutOfRange();
    assign_helper(text.data() + pos, std::min(n, text.length() - pos));
    return *this;
}

// Each helper ends in replace_helper, which handles a source inside this string.
void lu_utf8string::assign_helper(const unsigned char* text, unsigned int count) {
    replace_helper(0, npos, text, count);
}

void lu_utf8string::assign_helper(const unsigned short* text, unsigned int count) {
    replace_helper(0, npos, text, count);
}

void lu_utf8string::assign_helper(unsigned short ch, unsigned int n) {
    replace_helper(0, npos, ch, n);
}

void lu_utf8string::assign_helper(unsigned char b, unsigned int n) {
    replace_helper(0, npos, b, n);
}

// ---------------------------------------------------------------------------
// Append, insert, replace

lu_utf8string& lu_utf8string::append(const lu_utf8string& other, unsigned int pos, unsigned int n) {
    other.validate_range(pos, &n);
    append_helper(other.data() + pos, n);
    return *this;
}

lu_utf8string& lu_utf8string::append(const ucs2string& text, unsigned int pos, unsigned int n) {
    if (pos > text.length()) ThrowOutOfRange();
    append_helper(text.data() + pos, std::min(n, text.length() - pos));
    return *this;
}

void lu_utf8string::append_helper(const unsigned char* text, unsigned int count) {
    replace_helper(length(), 0, text, count);
}

void lu_utf8string::append_helper(const unsigned short* text, unsigned int count) {
    replace_helper(length(), 0, text, count);
}

void lu_utf8string::append_helper(unsigned short ch, unsigned int n) {
    replace_helper(length(), 0, ch, n);
}

void lu_utf8string::append_helper(unsigned char b, unsigned int n) {
    replace_helper(length(), 0, b, n);
}

lu_utf8string& lu_utf8string::replace(unsigned int pos, unsigned int n, const lu_utf8string& other,
                                      unsigned int pos2, unsigned int n2) {
    other.validate_range(pos2, &n2);
    replace_helper(pos, n, other.data() + pos2, n2);
    return *this;
}

lu_utf8string& lu_utf8string::replace(unsigned int pos, unsigned int n, const ucs2string& text,
                                      unsigned int pos2, unsigned int n2) {
    if (pos2 > text.length()) ThrowOutOfRange();
    replace_helper(pos, n, text.data() + pos2, std::min(n2, text.length() - pos2));
    return *this;
}

void lu_utf8string::replace_helper(unsigned int pos, unsigned int n, const unsigned char* text,
                                   unsigned int count) {
    count = MeasureBytes(text, count);
    // A source inside this string (s.append(s), s.insert(0, s.c_str() + 2)...)
    // would be moved by the tail or freed with the old buffer: copy it first.
    if (overlaps(text, count)) {
        const std::vector<unsigned char> copy(text, text + count);
        replace_helper(pos, n, copy.data(), count);
        return;
    }
    unsigned char* gap = open_gap(pos, n, count);
    lu_utf8_traits::copy(gap, text, count);
}

void lu_utf8string::replace_helper(unsigned int pos, unsigned int n, const unsigned short* text,
                                   unsigned int count) {
    // The source is measured before the position is tested.
    const unsigned int units = MeasureUnits(text, count);
    // Units read from inside this string would shift under the edit: copy first.
    if (overlaps(text, std::uint64_t{units} * sizeof(unsigned short))) {
        const std::vector<unsigned short> copy(text, text + units);
        replace_helper(pos, n, copy.data(), units);
        return;
    }
    const unsigned int added = units == 0 ? 0 : lu_utf8_traits::length(text, units);
    unsigned char* gap = open_gap(pos, n, added);
    // Exactly the bytes that length() counted, so no unit beyond them is read.
    lu_utf8_traits::assign(gap, added, text);
}

void lu_utf8string::replace_helper(unsigned int pos, unsigned int n, unsigned short ch,
                                   unsigned int count) {
    const unsigned int added = RepeatedBytes(ch, count);
    unsigned char* gap = open_gap(pos, n, added);
    lu_utf8_traits::assign(gap, added, ch);
}

void lu_utf8string::replace_helper(unsigned int pos, unsigned int n, unsigned char b,
                                   unsigned int count) {
    unsigned char* gap = open_gap(pos, n, count);
    if (count != 0) std::memset(gap, b, count);
}

// ---------------------------------------------------------------------------
// Element access, views and state

unsigned char& lu_utf8string::at(unsigned int pos) {
    if (pos >= length()) ThrowOutOfRange();
    return m_buffer->text[pos];
}

const unsigned char& lu_utf8string::at(unsigned int pos) const {
    if (pos >= length()) ThrowOutOfRange();
    return m_buffer->text[pos];
}

const unsigned char& lu_utf8string::operator[](unsigned int pos) const {
    if (pos > length()) ThrowOutOfRange();
    return m_buffer->text[pos];
}

unsigned int lu_utf8string::copy(unsigned char* target, unsigned int n, unsigned int pos) const {
    validate_range(pos, &n);
    lu_utf8_traits::copy(target, data() + pos, n);
    return n;
}

void lu_utf8string::clear() {
    release(m_buffer);
    m_buffer = &m_staticNilBuffer;
}

void lu_utf8string::setnull() {
    release(m_buffer);
    m_buffer = &m_staticNullBuffer;
}

void lu_utf8string::swap(lu_utf8string& other) noexcept {
    std::swap(m_buffer, other.m_buffer);
}

void lu_utf8string::resize_helper(unsigned int n, unsigned char b) {
    const unsigned int len = length();
    if (n == 0) {
        if (is_valid_buffer()) clear();
    } else if (n > len) {
        append_helper(b, n - len);
    } else if (n < len) {
        // The buffer stays; the next change of size class reallocates.
        set_length(n);
    }
}

void lu_utf8string::size(unsigned int n) {
    if (n == length()) {
        if (is_valid_buffer()) set_length(n);
        return;
    }
    // The only size known for a buffer is the class of its length: refuse to
    // write beyond it, and never write the static buffers.
    if (n != 0 && (!is_valid_buffer() || allocation_size(n) > allocation_size(length()))) {
        ThrowOutOfRange();
    }
    if (is_valid_buffer()) set_length(n);
}

void lu_utf8string::data(buffer_type* buffer) {
    if (buffer == nullptr) buffer = &m_staticNilBuffer;
    if (buffer == m_buffer) return;
    release(m_buffer);
    m_buffer = buffer;
}

// ---------------------------------------------------------------------------
// Comparison

int lu_utf8string::compare_helper(const lu_utf8string& other, unsigned int pos,
                                  unsigned int n) const {
    validate_range(pos, &n);
    const unsigned int b = other.length();
    const int order = lu_utf8_traits::compare(data() + pos, other.data(), std::min(n, b));
    if (order != 0) return order;
    return static_cast<int>(n - b);
}

int lu_utf8string::compare_helper(const unsigned char* s, unsigned int pos, unsigned int n) const {
    if (pos > length()) ThrowOutOfRange();
    if (s == nullptr) n = 0;
    const int order = lu_utf8_traits::compare(data() + pos, s, std::min(n, length() - pos));
    if (order != 0) return order;
    return static_cast<int>(length() - pos - n);
}

int lu_utf8string::compare(unsigned int pos, unsigned int n, const lu_utf8string& other,
                           unsigned int pos2, unsigned int n2) const {
    return compare_helper(lu_utf8string(other, pos2, n2), pos, n);
}

int lu_utf8string::compare(const unsigned char* s) const {
    return compare_helper(s, 0, MeasureBytes(s, npos));
}

int lu_utf8string::compare(const unsigned char* s, unsigned int pos) const {
    return compare_helper(s, pos, MeasureBytes(s, npos));
}

int lu_utf8string::compare(unsigned int pos, unsigned int n, const unsigned char* s,
                           unsigned int count) const {
    return compare_helper(lu_utf8string(s, count), pos, n);
}

std::ostream& operator<<(std::ostream& os, const lu_utf8string& text) {
    return os << reinterpret_cast<const char*>(text.c_str());
}

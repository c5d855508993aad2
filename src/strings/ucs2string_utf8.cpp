// The conversions from lu_utf8string that ucs2string declares. They live apart
// from ucs2string.cpp so that the UTF-16 string builds without the UTF-8 one.
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/ucs2string.h"

// Decoding goes through the UTF-8 path of assign_helper, which rejects a
// sequence of five or six bytes with LU_E_INVALID_ARG before anything is
// allocated, and leaves out a last sequence that the text cuts short.
ucs2string::ucs2string(const lu_utf8string& utf8) : m_buffer(&m_staticNilBuffer) {
    if (utf8.isnull()) {
        m_buffer = &m_staticNullBuffer;
    } else {
        assign_helper(utf8.data(), utf8.length());
    }
}

ucs2string& ucs2string::assign(const lu_utf8string& utf8) {
    if (utf8.isnull()) {
        // Unlike the constructor, assignment does not carry null over.
        clear();
    } else {
        assign_helper(utf8.data(), utf8.length());
    }
    return *this;
}

#include "facets/string_sinks.h"

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

namespace {

// A block longer than a string can hold cannot be written.
unsigned int StringCount(long count) {
    if (count > 0x7FFFFFFFL) LUException::Raise(LU_E_STRING_TOO_LONG);
    return static_cast<unsigned int>(count);
}

}  // namespace

void Ucs2StringSink::DoWrite(const unsigned short* block, long count) {
    const unsigned int units = StringCount(count);
    m_target->replace(m_position, ucs2string::npos, block, units);
    m_position += units;
}

void Ucs2StringSink::DoFlush() {
    if (m_position == 0) m_target->resize(0);
}

void Utf8StringSink::DoWrite(const char* block, long count) {
    const unsigned int bytes = StringCount(count);
    m_target->replace(m_position, lu_utf8string::npos,
                      reinterpret_cast<const unsigned char*>(block), bytes);
    m_position += bytes;
}

void Utf8StringSink::DoFlush() {
    if (m_position == 0) m_target->resize(0);
}

void NarrowStringSink::DoWrite(const char* block, long count) {
    const auto bytes = static_cast<std::size_t>(count);
    m_target->replace(m_position, std::string::npos, block, bytes);
    m_position += bytes;
}

void NarrowStringSink::DoFlush() {
    if (m_position == 0) m_target->resize(0);
}

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/lu_utf8string.h"
#include "strings/utf8_codec.h"

// Reads one sequence of one to three bytes as the free conversion does. The
// position may stand on the terminator, which reads as 0. A sequence that the
// end of the text cuts short is refused like a long one rather than read past
// the terminator.
unsigned short lu_utf8_pos::operator*() const {
    if (m_string == nullptr || m_offset > m_string->length()) {
        LUException::Raise(LU_E_OUT_OF_RANGE);
    }
    const unsigned int remaining = m_string->length() - m_offset;
    if (remaining == 0) return 0;
    const unsigned char* p = m_string->data() + m_offset;
    const unsigned int bytes = lu_utf8_traits::GetNbBytes(p[0]);
    if (bytes > 3 || bytes > remaining) LUException::Raise(LU_E_BAD_UTF8_LEAD);
    switch (bytes) {
        case 1:
            return p[0];
        case 2:
            return utf8_codec::Decode2(p[0], p[1]);
        default:
            return utf8_codec::Decode3(p[0], p[1], p[2]);
    }
}

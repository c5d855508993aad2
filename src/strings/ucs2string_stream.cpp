// Stream insertion of ucs2string: the text as UTF-8.

#include <memory>
#include <ostream>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/ucs2string.h"
#include "kai18n/strings/utf8_conversion.h"

namespace {

// Texts whose UTF-8 form, terminator included, stays below this many bytes are
// encoded on the stack.
constexpr unsigned int kLocalBytes = 2048;

// Both paths write a char string, so the text ends at its first zero unit and
// the stream's width applies to it as to any char string.
void WriteCharString(std::ostream& os, const unsigned char* bytes) {
    os << reinterpret_cast<const char*>(bytes);
}

}  // namespace

std::ostream& operator<<(std::ostream& os, const ucs2string& text) {
    if (text.isnull()) return os;
    // The terminator is measured and encoded with the text, as its one zero byte.
    const unsigned int units = text.length() + 1;
    const unsigned int bytes = lu_utf8_traits::length(text.c_str(), units);
    if (bytes < kLocalBytes) {
        // The walk writes exactly `bytes` bytes. A high surrogate at the end
        // swallows the terminator with it, so a zero byte is put behind them.
        unsigned char local[kLocalBytes];
        lu_utf8_traits::assign(local, bytes, text.c_str());
        local[bytes] = 0;
        WriteCharString(os, local);
        return os;
    }
    // The long path does not pair surrogates: a pair becomes two three-byte
    // sequences. The terminator is converted too, so the bytes end in a zero.
    unsigned char* utf8 = nullptr;
    unsigned int utf8Bytes = 0;
    if (kaFailed(UCS2_ConvertToUTF8(text.c_str(), units, &utf8, &utf8Bytes))) {
        os << "<UTF8 conversion failed!>";
        return os;
    }
    // Owned before the write, which may throw if the stream reports errors so.
    const std::unique_ptr<unsigned char[]> owned(utf8);
    WriteCharString(os, owned.get());
    return os;
}

#include "kai18n/strings/lu_utf8_traits.h"

#include <cstring>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"
#include "strings/utf8_codec.h"

// Length of a sequence by its first byte. A stray continuation byte 0x80 to
// 0xBF counts as a sequence of one; 0xFE and 0xFF count as leads of six.
const unsigned int lu_utf8_traits::sAddBytesFromUTF8[256] = {
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x00
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x10
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x20
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x30
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x40
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x50
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x60
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x70
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x80
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0x90
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0xA0
    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,  // 0xB0
    2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2,  // 0xC0
    2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 2,  // 0xD0
    3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3,  // 0xE0
    4, 4, 4, 4, 4, 4, 4, 4, 5, 5, 5, 5, 6, 6, 6, 6,  // 0xF0
};

namespace {

bool IsHighSurrogate(unsigned unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(unsigned unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

unsigned int lu_utf8_traits::GetUTF8Bytes(unsigned int codePoint) {
    if (codePoint < 0x80u) return 1;
    if (codePoint < 0x800u) return 2;
    if (codePoint < 0x10000u) return 3;
    if (codePoint < 0x200000u) return 4;
    if (codePoint < 0x4000000u) return 5;
    return 6;
}

unsigned int lu_utf8_traits::length(const unsigned char* text) {
    if (text == nullptr) return 0;
    return static_cast<unsigned int>(std::strlen(reinterpret_cast<const char*>(text)));
}

// A high surrogate followed by a low one is a pair of four bytes. A high
// surrogate followed by anything else is dropped together with that unit; at
// the end of the text it is dropped alone.
unsigned int lu_utf8_traits::length(const unsigned short* text) {
    unsigned int bytes = 0;
    const unsigned short* p = text;
    while (p != nullptr && *p != 0) {
        const unsigned unit = *p;
        if (!IsHighSurrogate(unit)) {
            bytes += GetUTF8Bytes(static_cast<unsigned short>(unit));
            ++p;
            continue;
        }
        if (p[1] == 0) break;
        if (IsLowSurrogate(p[1])) bytes += 4;
        p += 2;
    }
    return bytes;
}

unsigned int lu_utf8_traits::length(const unsigned short* text, unsigned int count) {
    unsigned int bytes = 0;
    unsigned int i = 0;
    while (i < count) {
        const unsigned unit = text[i];
        if (!IsHighSurrogate(unit)) {
            bytes += GetUTF8Bytes(static_cast<unsigned short>(unit));
            ++i;
            continue;
        }
        if (i + 1 == count) break;
        if (IsLowSurrogate(text[i + 1])) bytes += 4;
        i += 2;
    }
    return bytes;
}

unsigned int lu_utf8_traits::char_length(const unsigned char* text) {
    return char_length(text, length(text));
}

unsigned int lu_utf8_traits::char_length(const unsigned char* text, unsigned int bytes) {
    bool decodable;
    return utf8_codec::CountUnits(text, bytes, &decodable);
}

unsigned int utf8_codec::CountUnits(const unsigned char* text, unsigned int bytes,
                                    bool* decodable) {
    unsigned int units = 0;
    unsigned int offset = 0;
    bool shortSequencesOnly = true;
    while (offset < bytes) {
        if (bytes - offset >= 8 && AllAscii8(text + offset)) {
            offset += 8;
            units += 8;
            continue;
        }
        const unsigned int sequence = lu_utf8_traits::GetNbBytes(text[offset]);
        if (sequence > bytes - offset) break;
        units += sequence >= 4 ? 2 : 1;
        shortSequencesOnly &= sequence <= 4;
        offset += sequence;
    }
    *decodable = shortSequencesOnly;
    return units;
}

int lu_utf8_traits::compare(const unsigned char* a, const unsigned char* b, unsigned int n) {
    if (n == 0) return 0;
    const int order = std::memcmp(a, b, n);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

int lu_utf8_traits::compare(const unsigned char*, const unsigned short*, unsigned int) {
    throw 0;
}

unsigned char* lu_utf8_traits::copy(unsigned char* target, const unsigned char* src,
                                    unsigned int n) {
    if (n != 0) std::memcpy(target, src, n);
    return target;
}

unsigned char* lu_utf8_traits::move(unsigned char* target, const unsigned char* src,
                                    unsigned int n) {
    if (n != 0) std::memmove(target, src, n);
    return target;
}

unsigned short* lu_utf8_traits::copy(unsigned short* target, const unsigned char* src,
                                     unsigned int units) {
    unsigned short* out = target;
    unsigned short* const end = target + units;
    const unsigned char* p = src;
    while (out < end) {
        if (end - out >= 8 && utf8_codec::AllAscii8(p)) {
            utf8_codec::WidenAscii(out, p, 8);
            out += 8;
            p += 8;
            continue;
        }
        switch (GetNbBytes(*p)) {
            case 1:
                *out++ = *p;
                p += 1;
                break;
            case 2:
                *out++ = utf8_codec::Decode2(p[0], p[1]);
                p += 2;
                break;
            case 3:
                *out++ = utf8_codec::Decode3(p[0], p[1], p[2]);
                p += 3;
                break;
            case 4: {
                // The code point less 0x10000, split over a surrogate pair.
                const unsigned v = (unsigned{p[0]} << 18) + (unsigned{p[1]} << 12) +
                                   (unsigned{p[2]} << 6) + p[3] - 0x3C92080u;
                *out++ = static_cast<unsigned short>(0xD800u + ((v >> 10) & 0x3FFu));
                // A count that splits the pair (never one from char_length) keeps the high half.
                if (out < end) *out++ = static_cast<unsigned short>(0xDC00u + (v & 0x3FFu));
                p += 4;
                break;
            }
            default:
                LUException::Raise(LU_E_INVALID_ARG);
        }
    }
    return target;
}

unsigned char* lu_utf8_traits::assign(unsigned char* target, unsigned int bytes,
                                      const unsigned short* src) {
    unsigned char* out = target;
    unsigned char* const end = target + bytes;
    const unsigned short* p = src;
    // The walk stops when the target is full, so it never looks at a unit that
    // length() did not count; a sequence that would not fit ends it as well.
    while (out < end) {
        const unsigned unit = *p;
        if (!IsHighSurrogate(unit)) {
            if (static_cast<unsigned>(end - out) < GetUTF8Bytes(static_cast<unsigned short>(unit)))
                break;
            out = utf8_codec::EncodeUnit(out, unit);
            ++p;
            continue;
        }
        const unsigned low = p[1];
        if (IsLowSurrogate(low)) {
            if (end - out < 4) break;
            const unsigned v = (((unit & 0x3FFu) + 64u) << 10) + (low & 0x3FFu);
            out[0] = static_cast<unsigned char>(0xF0u | (v >> 18));
            out[1] = static_cast<unsigned char>(0x80u | ((v >> 12) & 0x3Fu));
            out[2] = static_cast<unsigned char>(0x80u | ((v >> 6) & 0x3Fu));
            out[3] = static_cast<unsigned char>(0x80u | (low & 0x3Fu));
            out += 4;
        }
        p += 2;
    }
    return target;
}

unsigned char* lu_utf8_traits::assign(unsigned char* target, unsigned int bytes,
                                      unsigned short ch) {
    const unsigned int size = GetUTF8Bytes(ch);
    if (size == 1) {
        if (bytes != 0) std::memset(target, ch, bytes);
        return target;
    }
    unsigned char sequence[3];
    utf8_codec::EncodeUnit(sequence, ch);
    unsigned char* p = target + bytes;
    while (static_cast<unsigned int>(p - target) >= size) {
        p -= size;
        std::memcpy(p, sequence, size);
    }
    return target;
}

bool lu_utf8_traits::_is_valid_utf8(const unsigned char* text, unsigned int bytes) {
    unsigned int offset = 0;
    while (offset < bytes) {
        const unsigned char lead = text[offset];
        if ((lead & 0xC0) == 0x80) return false;
        const unsigned int sequence = GetNbBytes(lead);
        if (sequence > bytes - offset) return false;
        for (unsigned int k = 1; k < sequence; ++k) {
            if ((text[offset + k] & 0xC0) != 0x80) return false;
        }
        offset += sequence;
    }
    return true;
}

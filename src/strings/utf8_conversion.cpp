#include "kai18n/strings/utf8_conversion.h"

#include <cstdint>
#include <new>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "strings/utf8_codec.h"

namespace {

unsigned TrailingBytes(unsigned char lead) {
    return lu_utf8_traits::GetNbBytes(lead) - 1;
}

// Array new that reports failure by a null pointer, whether the allocator
// returns null or throws.
template <class T>
T* AllocateArray(std::uint64_t count) {
    if (count > 0xFFFFFFFFu) return nullptr;
    try {
        return new (std::nothrow) T[static_cast<std::size_t>(count)];
    } catch (...) {
        return nullptr;
    }
}

// Counts the windows of eight bytes from `offset` that hold only ASCII and
// whole two-byte sequences; returns the bytes they cover.
std::uint64_t CountTwoByteWindows(const unsigned char* src, unsigned int bytes,
                                  std::uint64_t offset, unsigned int* sequences) {
    const std::uint64_t start = offset;
    while (bytes - offset >= 8) {
        const unsigned int covered = utf8_codec::TwoByteWindow(src + offset, sequences);
        if (covered == 0) break;
        offset += covered;
    }
    return offset - start;
}

}  // namespace

long UCS2_ConvertToUTF8(const unsigned short* src, unsigned int count, unsigned char** out,
                        unsigned int* outBytes) {
    // One, two or three bytes a unit; a surrogate is an ordinary unit of three.
    std::uint64_t total = 0;
    for (unsigned int i = 0; i < count; ++i) {
        const unsigned unit = src[i];
        total += 1u + (unit >= 0x80u) + (unit >= 0x800u);
    }
    unsigned char* bytes = AllocateArray<unsigned char>(total);
    if (bytes == nullptr) {
        *out = nullptr;
        *outBytes = 0;
        return LU_E_OUT_OF_MEMORY;
    }
    *out = bytes;
    *outBytes = static_cast<unsigned int>(total);

    unsigned int i = 0;
    while (i < count) {
        if (count - i >= 4 && utf8_codec::AllAscii4(src + i)) {
            bytes[0] = static_cast<unsigned char>(src[i]);
            bytes[1] = static_cast<unsigned char>(src[i + 1]);
            bytes[2] = static_cast<unsigned char>(src[i + 2]);
            bytes[3] = static_cast<unsigned char>(src[i + 3]);
            bytes += 4;
            i += 4;
            continue;
        }
        bytes = utf8_codec::EncodeUnit(bytes, src[i]);
        ++i;
    }
    return LU_S_OK;
}

unsigned int UTF8_GetCharCount(const unsigned char* src, unsigned int bytes) {
    if (src == nullptr || bytes == 0) return 0;
    // The step to the next sequence is chosen by a branch on the lead's high
    // nibble rather than read from the length table: a predicted branch lets
    // the processor run ahead, where a table load would chain every step to
    // the one before.
    std::uint64_t offset = 0;  // wide, so that a six-byte lead near the end cannot wrap
    unsigned int sequences = 0;
    while (offset < bytes) {
        const unsigned char lead = src[offset];
        switch (lead >> 4) {
            case 0x0:
            case 0x1:
            case 0x2:
            case 0x3:
            case 0x4:
            case 0x5:
            case 0x6:
            case 0x7:
                offset += 1;
                ++sequences;
                while (bytes - offset >= 8 && utf8_codec::AllAscii8(src + offset)) {
                    offset += 8;
                    sequences += 8;
                }
                offset += CountTwoByteWindows(src, bytes, offset, &sequences);
                continue;
            case 0x8:
            case 0x9:
            case 0xA:
            case 0xB:
                offset += 1;
                break;
            case 0xC:
            case 0xD:
                // Text of one- and two-byte sequences is counted eight bytes at a time.
                offset += CountTwoByteWindows(src, bytes, offset, &sequences);
                // The block loop may have stopped anywhere: test before each step.
                while (offset < bytes && (src[offset] & 0xE0) == 0xC0) {
                    offset += 2;
                    ++sequences;
                }
                continue;
            case 0xE:
                do {
                    offset += 3;
                    ++sequences;
                } while (offset < bytes && (src[offset] & 0xF0) == 0xE0);
                continue;
            default:
                offset += lu_utf8_traits::GetNbBytes(lead);
                break;
        }
        ++sequences;
    }
    return offset == bytes ? sequences : 0;
}

long UTF8_ConvertToUCS2(const unsigned char* src, unsigned int bytes, unsigned short** out,
                        unsigned int* outUnits) {
    *out = nullptr;
    *outUnits = 0;
    if (bytes == 0 || src == nullptr) return LU_E_INVALID_ARG;
    const unsigned int units = UTF8_GetCharCount(src, bytes);
    if (units == 0) return LU_E_INVALID_ARG;
    unsigned short* target = AllocateArray<unsigned short>(units);
    if (target == nullptr) return LU_E_OUT_OF_MEMORY;
    *out = target;
    *outUnits = units;

    // The count above walked the whole range, so no sequence runs past its end.
    const unsigned char* p = src;
    const unsigned char* const end = src + bytes;
    while (p < end) {
        switch (*p >> 4) {
            case 0x0:
            case 0x1:
            case 0x2:
            case 0x3:
            case 0x4:
            case 0x5:
            case 0x6:
            case 0x7:
                *target++ = *p++;
                while (end - p >= 8 && utf8_codec::AllAscii8(p)) {
                    utf8_codec::WidenAscii(target, p, 8);
                    target += 8;
                    p += 8;
                }
                break;
            case 0x8:
            case 0x9:
            case 0xA:
            case 0xB:
                *target++ = *p++;
                break;
            case 0xC:
            case 0xD:
                while (end - p >= 8 && utf8_codec::FourTwoByteSequences(p)) {
                    for (int k = 0; k < 4; ++k) {
                        target[k] = utf8_codec::Decode2(p[2 * k], p[2 * k + 1]);
                    }
                    target += 4;
                    p += 8;
                }
                while (p < end && (*p & 0xE0) == 0xC0) {
                    *target++ = utf8_codec::Decode2(p[0], p[1]);
                    p += 2;
                }
                break;
            case 0xE:
                do {
                    *target++ = utf8_codec::Decode3(p[0], p[1], p[2]);
                    p += 3;
                } while (p < end && (*p & 0xF0) == 0xE0);
                break;
            default:
                delete[] * out;
                *out = nullptr;
                *outUnits = 0;
                return LU_E_INVALID_ARG;
        }
    }
    return LU_S_OK;
}

unsigned short UTF8_ConvertNextChar(const unsigned char** cursor, const unsigned char* end) {
    if (cursor == nullptr || *cursor == nullptr || *cursor > end) return 0xFFFF;
    const unsigned char* p = *cursor;
    const unsigned trailing = TrailingBytes(*p);
    if (trailing > static_cast<std::size_t>(end - p)) return 0xFFFF;
    switch (trailing) {
        case 0:
            *cursor = p + 1;
            return *p;
        case 1:
            *cursor = p + 2;
            return utf8_codec::Decode2(p[0], p[1]);
        case 2:
            *cursor = p + 3;
            return utf8_codec::Decode3(p[0], p[1], p[2]);
        default:
            return 0xFFFF;
    }
}

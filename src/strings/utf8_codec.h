// The arithmetic of one UTF-8 sequence, shared by the free conversions, the
// traits and the position class. Continuation bytes are not checked: a byte
// with wrong top bits still adds its value, and the result is kept to 16 bits.
#ifndef KAI18N_STRINGS_UTF8_CODEC_H
#define KAI18N_STRINGS_UTF8_CODEC_H

#include <cstdint>
#include <cstring>

namespace utf8_codec {

constexpr bool IsLittleEndian() {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    return false;
#else
    return true;
#endif
}

inline unsigned short Decode2(unsigned b0, unsigned b1) {
    return static_cast<unsigned short>((b0 << 6) + b1 - 0x3080u);
}

inline unsigned short Decode3(unsigned b0, unsigned b1, unsigned b2) {
    return static_cast<unsigned short>((b0 << 12) + (b1 << 6) + b2 - 0x2080u);
}

// Writes the one to three bytes of `unit` and returns the position behind them.
inline unsigned char* EncodeUnit(unsigned char* out, unsigned unit) {
    if (unit < 0x80) {
        *out++ = static_cast<unsigned char>(unit);
    } else if (unit < 0x800) {
        *out++ = static_cast<unsigned char>(0xC0 | (unit >> 6));
        *out++ = static_cast<unsigned char>(0x80 | (unit & 0x3F));
    } else {
        *out++ = static_cast<unsigned char>(0xE0 | (unit >> 12));
        *out++ = static_cast<unsigned char>(0x80 | ((unit >> 6) & 0x3F));
        *out++ = static_cast<unsigned char>(0x80 | (unit & 0x3F));
    }
    return out;
}

// True if the eight bytes at `p` are all below 0x80. Reads through memcpy, so
// `p` need not be aligned.
inline bool AllAscii8(const unsigned char* p) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return (word & 0x8080808080808080ull) == 0;
}

// True if the four units at `p` are all below 0x80.
inline bool AllAscii4(const unsigned short* p) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return (word & 0xFF80FF80FF80FF80ull) == 0;
}

// True if the eight bytes at `p` are four well-formed two-byte sequences:
// leads 110xxxxx at even offsets, continuation bytes 10xxxxxx at odd ones.
inline bool FourTwoByteSequences(const unsigned char* p) {
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    // Bytes in memory order: the lowest byte of the word is p[0] on little-endian
    // machines; compare byte by byte otherwise.
    if constexpr (IsLittleEndian()) {
        return (word & 0xC0E0C0E0C0E0C0E0ull) == 0x80C080C080C080C0ull;
    } else {
        return (word & 0xE0C0E0C0E0C0E0C0ull) == 0xC080C080C080C080ull;
    }
}

// Widens `n` ASCII bytes to units.
inline void WidenAscii(unsigned short* out, const unsigned char* in, unsigned n) {
    for (unsigned i = 0; i < n; ++i) out[i] = in[i];
}

// Counts the UTF-16 units that `bytes` bytes of UTF-8 decode to: one a
// sequence, two for a sequence of four or more bytes. A last sequence cut short
// by the end of the range is left out. `*decodable` becomes false if a counted
// sequence has five or six bytes, which no UTF-16 unit can hold.
unsigned int CountUnits(const unsigned char* text, unsigned int bytes, bool* decodable);

}  // namespace utf8_codec

#endif  // KAI18N_STRINGS_UTF8_CODEC_H

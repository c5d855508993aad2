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
    if constexpr (!IsLittleEndian()) return false;
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return (word & 0xC0E0C0E0C0E0C0E0ull) == 0x80C080C080C080C0ull;
}

// Flags, in bit 7 of each byte, the bytes `b` of `word` for which
// (b & mask) == value. Exact for every byte: no borrow crosses between bytes.
inline std::uint64_t BytesMatching(std::uint64_t word, unsigned char mask, unsigned char value) {
    constexpr std::uint64_t kLow7 = 0x7F7F7F7F7F7F7F7Full;
    const std::uint64_t x =
        (word & (0x0101010101010101ull * mask)) ^ (0x0101010101010101ull * value);
    return ~(((x & kLow7) + kLow7) | x | kLow7);
}

// Looks at the eight bytes at `p`, which start a sequence. If they hold only
// ASCII and whole two-byte sequences, the last byte possibly the lead of one
// that goes on beyond them, returns the bytes up to that lead (7 or 8) and adds
// their sequences to `*sequences`; otherwise returns 0. Such a window needs no
// walk: every byte that is not a continuation byte starts one sequence.
inline unsigned int TwoByteWindow(const unsigned char* p, unsigned int* sequences) {
    if constexpr (!IsLittleEndian()) return 0;
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    constexpr std::uint64_t kHigh = 0x8080808080808080ull;
    const std::uint64_t continuation = BytesMatching(word, 0xC0, 0x80);
    const std::uint64_t lead2 = BytesMatching(word, 0xE0, 0xC0);
    const std::uint64_t lead3Plus = word & (word << 1) & (word << 2) & kHigh;
    // Each lead followed by one continuation and each continuation after a
    // lead, within the window; no longer sequences.
    if (lead3Plus != 0 || continuation != (lead2 << 8)) return 0;
    const unsigned int covered = (lead2 >> 63) != 0 ? 7u : 8u;
    *sequences += covered - static_cast<unsigned int>(__builtin_popcountll(continuation));
    return covered;
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

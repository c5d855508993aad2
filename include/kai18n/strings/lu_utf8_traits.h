// Surrogate-aware measuring, encoding and decoding of UTF-8, used by the
// string classes. A surrogate pair is one four-byte sequence; a high surrogate
// that is not followed by a low one is dropped together with the unit after it.
#ifndef KAI18N_STRINGS_LU_UTF8_TRAITS_H
#define KAI18N_STRINGS_LU_UTF8_TRAITS_H

class lu_utf8string;

class lu_utf8_traits {
  public:
    // The zero-terminated forms take a null pointer as an empty text.

    /// Bytes before the first zero byte.
    static unsigned int length(const unsigned char* text);
    /// UTF-8 bytes needed for the zero-terminated UTF-16 text.
    static unsigned int length(const unsigned short* text);
    /// UTF-8 bytes needed for `count` units.
    static unsigned int length(const unsigned short* text, unsigned int count);
    /// UTF-8 bytes of `n` copies of `ch`.
    static unsigned int length(unsigned short ch, unsigned int n) { return GetUTF8Bytes(ch) * n; }

    /// UTF-16 units that the zero-terminated UTF-8 text decodes to.
    static unsigned int char_length(const unsigned char* text);
    /// UTF-16 units that `bytes` bytes of UTF-8 decode to. A sequence of four
    /// or more bytes counts two units. A last sequence cut short by the end of
    /// the range is not counted, so decoding never reads past the range.
    static unsigned int char_length(const unsigned char* text, unsigned int bytes);

    /// Length of the sequence that starts with `lead`, 1 to 6; a stray
    /// continuation byte counts as 1.
    static unsigned int GetNbBytes(unsigned char lead) { return sAddBytesFromUTF8[lead]; }
    static unsigned int GetUTF8Bytes(unsigned short unit) {
        return unit < 0x80 ? 1u : unit < 0x800 ? 2u : 3u;
    }
    static unsigned int GetUTF8Bytes(unsigned int codePoint);
    static bool is_lead_byte(unsigned char byte) { return (byte & 0xC0) != 0x80; }
    static unsigned char eos() { return 0; }

    /// -1, 0 or 1 by the first differing byte, compared unsigned.
    static int compare(const unsigned char* a, const unsigned char* b, unsigned int n);
    /// Comparing bytes with units is not supported: throws the int 0.
    static int compare(const unsigned char* a, const unsigned short* b, unsigned int n);

    /// Copies `n` bytes forward; the ranges must not overlap. Returns `target`.
    static unsigned char* copy(unsigned char* target, const unsigned char* src, unsigned int n);
    /// Copies `n` bytes; the ranges may overlap. Returns `target`.
    static unsigned char* move(unsigned char* target, const unsigned char* src, unsigned int n);
    /// Decodes UTF-8 until `units` units are written; a four-byte sequence gives
    /// a surrogate pair. Throws LUException LU_E_INVALID_ARG on a five- or
    /// six-byte sequence. `units` must come from char_length. Returns `target`.
    static unsigned short* copy(unsigned short* target, const unsigned char* src,
                                unsigned int units);
    /// Encodes UTF-16 until `bytes` bytes are written; `bytes` must come from
    /// length(). Returns `target`.
    static unsigned char* assign(unsigned char* target, unsigned int bytes,
                                 const unsigned short* src);
    /// Fills `bytes` bytes with repetitions of the encoding of `ch`, from the end
    /// of the range towards its start. Returns `target`.
    static unsigned char* assign(unsigned char* target, unsigned int bytes, unsigned short ch);

    /// Structural validity: every sequence starts with a lead byte, has its
    /// continuation bytes, and ends inside the range. Overlong forms, encoded
    /// surrogates and five- and six-byte sequences pass. A null pointer with
    /// `bytes` 0 is a valid empty range.
    static bool _is_valid_utf8(const unsigned char* text, unsigned int bytes);

  private:
    static const unsigned int sAddBytesFromUTF8[256];
};

/// A byte position in a lu_utf8string, read as one UTF-16 unit.
class lu_utf8_pos {
  public:
    lu_utf8_pos(const lu_utf8string* string, unsigned int offset)
        : m_string(string), m_reserved(0), m_offset(offset) {}

    /// The unit of the sequence at the position. Throws LUException
    /// LU_E_BAD_UTF8_LEAD for a sequence of four or more bytes or one that runs
    /// past the end of the text, LU_E_OUT_OF_RANGE for a position beyond it.
    unsigned short operator*() const;

    unsigned int offset() const { return m_offset; }

  private:
    const lu_utf8string* m_string;
    [[maybe_unused]] unsigned int m_reserved;  // kept for the layout; no operation reads it
    unsigned int m_offset;
};

#endif  // KAI18N_STRINGS_LU_UTF8_TRAITS_H

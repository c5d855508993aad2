// Conversions between UTF-16 code units and UTF-8 bytes as plain sequences of
// units: every unit, a surrogate included, takes at most three bytes, and no
// pair is joined or split. lu_utf8_traits (lu_utf8_traits.h) is the
// surrogate-aware counterpart used by the string classes.
#ifndef KAI18N_STRINGS_UTF8_CONVERSION_H
#define KAI18N_STRINGS_UTF8_CONVERSION_H

/// Allocates and fills a UTF-8 copy of `count` units. Returns LU_S_OK, or
/// LU_E_OUT_OF_MEMORY with `*out` null and `*outBytes` 0. The array belongs to
/// the caller (delete[]) and is not zero-terminated; with `count` 0 it is an
/// empty array, not null.
long UCS2_ConvertToUTF8(const unsigned short* src, unsigned int count, unsigned char** out,
                        unsigned int* outBytes);

/// Allocates and fills a UTF-16 copy of `bytes` bytes of UTF-8. Returns
/// LU_S_OK, LU_E_OUT_OF_MEMORY, or LU_E_INVALID_ARG for empty or null input,
/// a last sequence that runs past the range, or a sequence of four or more
/// bytes; on failure `*out` is null and `*outUnits` 0. Continuation bytes are
/// not checked. The array belongs to the caller (delete[]).
long UTF8_ConvertToUCS2(const unsigned char* src, unsigned int bytes, unsigned short** out,
                        unsigned int* outUnits);

/// Decodes the sequence at `*cursor` and moves the cursor past it. `end` is the
/// address of the last byte that may be read. Returns 0xFFFF and leaves the
/// cursor where it is when the sequence runs past `end` or has four or more
/// bytes; a decoded unit 0xFFFF looks the same.
unsigned short UTF8_ConvertNextChar(const unsigned char** cursor, const unsigned char* end);

/// The number of sequences in the range, or 0 if the last one runs past it.
unsigned int UTF8_GetCharCount(const unsigned char* src, unsigned int bytes);

#endif  // KAI18N_STRINGS_UTF8_CONVERSION_H

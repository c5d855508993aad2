// The table of the encodings that the encoding library knows, and the engine
// converter behind each of them.
#ifndef KAI18N_PLATFORM_ENCODING_ENCODING_TABLE_H
#define KAI18N_PLATFORM_ENCODING_ENCODING_TABLE_H

#include "kai18n/platform/char_encoding.h"

class CharEncodingTable {
  public:
    /// Rows sorted by technical name in byte order. A row whose engine name is
    /// null is an encoding that the engine cannot serve: Lookup gives null.
    static constexpr unsigned int kCount = 60;
    static constexpr unsigned int kCP1252 = 5;
    static constexpr unsigned int kUTF8 = 59;
    static const CharEncoding kEncodings[kCount];
    static const Char16Encoding kUTF16;

    /// The row of exactly `name`, or null; a row without an engine counts.
    static const CharEncoding* Find(const char* name);
};

#endif  // KAI18N_PLATFORM_ENCODING_ENCODING_TABLE_H

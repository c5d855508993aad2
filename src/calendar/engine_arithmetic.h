// The integer arithmetic of the calendar engine, kept defined for any input.
//
// The engine's integers are 32 bits wide, and its sums and products wrap as
// 32-bit machine words do. Such arithmetic is done in 64 bits and brought back
// with Wrap32, so that an overflow is the two's-complement wrap rather than
// undefined behaviour; doubles become integers through ToInt32, which is
// defined for every double.
#ifndef KAI18N_CALENDAR_ENGINE_ARITHMETIC_H
#define KAI18N_CALENDAR_ENGINE_ARITHMETIC_H

#include <cstdint>

#include "kai18n/calendar/calendar.h"

namespace calendar_engine {

/// The low 32 bits of `value`, read as a signed integer: two's-complement wrap.
inline std::int32_t Wrap32(std::int64_t value) {
    const std::uint32_t bits = static_cast<std::uint32_t>(static_cast<std::uint64_t>(value));
    return bits < 0x80000000u
               ? static_cast<std::int32_t>(bits)
               : static_cast<std::int32_t>(static_cast<std::int64_t>(bits) - 0x100000000LL);
}

/// The low 8 bits of `value`, read as a signed byte.
inline std::int8_t Wrap8(std::int64_t value) {
    const unsigned bits = static_cast<unsigned>(static_cast<std::uint64_t>(value) & 0xFFu);
    return static_cast<std::int8_t>(bits < 0x80u ? static_cast<int>(bits)
                                                 : static_cast<int>(bits) - 0x100);
}

/// `value` truncated toward zero; beyond the 32-bit range it saturates at its
/// ends, and NaN reads as 0.
inline std::int32_t ToInt32(double value) {
    if (value >= -2147483648.0 && value < 2147483648.0) return static_cast<std::int32_t>(value);
    if (value != value) return 0;
    return value < 0 ? INT32_MIN : INT32_MAX;
}

/// A field index the field arrays and limit tables can be read with; an
/// EDateFields made from an arbitrary integer may hold anything.
inline bool IsField(Calendar::EDateFields field) {
    return static_cast<unsigned int>(field) < static_cast<unsigned int>(Calendar::kFieldCount);
}

}  // namespace calendar_engine

#endif  // KAI18N_CALENDAR_ENGINE_ARITHMETIC_H

// Checks the structural validity test against what the counting walk sees: a valid range is a
// whole number of sequences, each led by a lead byte, and cutting a valid range after a lead byte
// that needs more bytes makes it invalid.
#include <cstddef>
#include <cstdint>

#include "fuzz_support.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/utf8_conversion.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = static_cast<unsigned int>(size);
    const bool valid = lu_utf8_traits::_is_valid_utf8(data, bytes);
    Check(!valid || size == 0 ||
          (UTF8_GetCharCount(data, bytes) != 0 && lu_utf8_traits::is_lead_byte(data[0])));
    Check(!valid || size <= 1 || lu_utf8_traits::GetNbBytes(data[size - 1]) <= 1);
    return 0;
}

// Drives the free UTF-8 decoders with arbitrary bytes and checks that they
// agree with each other.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/utf8_conversion.h"

namespace {

// The plain walk by sequence length that the fast count must agree with.
unsigned int WalkedCount(const std::uint8_t* data, std::size_t size) {
    std::size_t offset = 0;
    unsigned int sequences = 0;
    while (offset < size) {
        offset += lu_utf8_traits::GetNbBytes(data[offset]);
        ++sequences;
    }
    return offset == size ? sequences : 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = static_cast<unsigned int>(size);
    if (UTF8_GetCharCount(data, bytes) != WalkedCount(data, size)) std::abort();
    unsigned short* units = nullptr;
    unsigned int count = 0;
    const long rc = UTF8_ConvertToUCS2(data, bytes, &units, &count);
    if (rc == LU_S_OK) {
        if (count != UTF8_GetCharCount(data, bytes)) std::abort();
        // Walking with the one-step decoder gives the same units.
        const unsigned char* cursor = data;
        for (unsigned int i = 0; i < count; ++i) {
            const unsigned short unit = UTF8_ConvertNextChar(&cursor, data + size - 1);
            if (unit != units[i]) std::abort();
        }
        if (cursor != data + size) std::abort();
        unsigned char* back = nullptr;
        unsigned int backBytes = 0;
        if (UCS2_ConvertToUTF8(units, count, &back, &backBytes) != LU_S_OK) std::abort();
        delete[] back;
        delete[] units;
    } else if (rc != LU_E_INVALID_ARG || units != nullptr || count != 0) {
        std::abort();
    }
    return 0;
}

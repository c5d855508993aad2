// Drives the free UTF-8 decoders with arbitrary bytes and checks that they agree with each other
// and with the plain walk by sequence length.
#include <cstddef>
#include <cstdint>

#include "fuzz_support.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/utf8_conversion.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = static_cast<unsigned int>(size);
    std::size_t offset = 0;
    unsigned int sequences = 0;
    for (; offset < size; ++sequences) offset += lu_utf8_traits::GetNbBytes(data[offset]);
    Check(UTF8_GetCharCount(data, bytes) == (offset == size ? sequences : 0));
    unsigned short* units = nullptr;
    unsigned int count = 0;
    const long rc = UTF8_ConvertToUCS2(data, bytes, &units, &count);
    Check(rc == LU_S_OK || (rc == LU_E_INVALID_ARG && units == nullptr && count == 0));
    if (rc != LU_S_OK) return 0;
    Check(count == UTF8_GetCharCount(data, bytes));
    const unsigned char* cursor = data;  // the one-step decoder gives the same units
    for (unsigned int i = 0; i < count; ++i)
        Check(UTF8_ConvertNextChar(&cursor, data + size - 1) == units[i]);
    Check(cursor == data + size);
    unsigned char* back = nullptr;
    unsigned int backBytes = 0;
    Check(UCS2_ConvertToUTF8(units, count, &back, &backBytes) == LU_S_OK);
    delete[] back;
    delete[] units;
    return 0;
}

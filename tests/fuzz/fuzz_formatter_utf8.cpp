// Feeds arbitrary bytes to the formatter's UTF-8 paths and fields: only LUException
// LU_E_INVALID_ARG may come out, a field is exactly as wide as asked, and the text stays
// zero-terminated.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/ucs2string_formatter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const int width = static_cast<int>(data[0] % 64) - 8;  // some negative widths
    const int align = data[1] % 4;
    std::vector<unsigned char> text(data + 2, data + size);
    text.push_back(0);

    ucs2string_formatter out;
    ThrowsOnly(LU_E_INVALID_ARG, [&] { out.append(text.data()); });
    Check(out.c_str()[out.length()] == 0);

    const unsigned int before = out.length();
    const bool thrown = ThrowsOnly(LU_E_INVALID_ARG, [&] {
        out.append_formatted(text.data(), width, align, '*');
        const unsigned int count = lu_utf8_traits::char_length(text.data());
        const unsigned int written = out.length() - before;
        const bool fits = width < 0 || count <= static_cast<unsigned int>(width);
        if (width < 0) {
            Check(written == count);
        } else if (align == 1 || align == 2) {
            Check(written == static_cast<unsigned int>(width));  // padded, or all number signs
        } else {
            Check(written == (fits ? count : 0));
        }
    });
    if (thrown) Check(out.length() == before);
    Check(out.c_str()[out.length()] == 0);

    ThrowsOnly(LU_E_INVALID_ARG, [&] {
        const ucs2string_formatter counted(data + 2, static_cast<unsigned int>(size - 2));
        Check(counted.c_str()[counted.length()] == 0);
    });
    return 0;
}

// Assigns arbitrary bytes to a ucs2string as UTF-8, counted and zero-terminated, and edits with
// them: only LUException LU_E_INVALID_ARG may come out, and the string must stay whole.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/ucs2string.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = static_cast<unsigned int>(size);
    std::vector<unsigned char> terminated(data, data + size);
    terminated.push_back(0);
    ucs2string s;
    const auto whole = [](const ucs2string& text) { Check(text.c_str()[text.length()] == 0); };
    const auto edit = [&](auto&& action) {
        ThrowsOnly(LU_E_INVALID_ARG, action);
        whole(s);
    };
    edit([&] {
        s.assign(data, bytes);
        Check(s.length() == lu_utf8_traits::char_length(data, bytes));
    });
    edit([&] { s.assign(terminated.data()); });
    edit([&] { s.append(data, bytes); });
    edit([&] { s.insert(s.length() / 2, data, bytes); });
    edit([&] { s.replace(0, s.length() / 3, terminated.data()); });
    edit([&] { whole(ucs2string(data, bytes)); });
    return 0;
}

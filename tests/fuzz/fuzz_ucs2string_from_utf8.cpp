// Assigns arbitrary bytes to a ucs2string as UTF-8, counted and
// zero-terminated, and edits with them: only LUException LU_E_INVALID_ARG
// may come out, and the string must stay whole.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/ucs2string.h"

namespace {

void CheckWhole(const ucs2string& s) {
    Check(s.c_str()[s.length()] == 0);
}

template <class Action>
void Expect(Action&& action) {
    ThrowsOnly(LU_E_INVALID_ARG, action);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = static_cast<unsigned int>(size);
    std::vector<unsigned char> terminated(data, data + size);
    terminated.push_back(0);

    ucs2string s;
    Expect([&] {
        s.assign(data, bytes);
        Check(s.length() == lu_utf8_traits::char_length(data, bytes));
    });
    CheckWhole(s);
    Expect([&] { s.assign(terminated.data()); });
    CheckWhole(s);
    Expect([&] { s.append(data, bytes); });
    CheckWhole(s);
    Expect([&] { s.insert(s.length() / 2, data, bytes); });
    CheckWhole(s);
    Expect([&] { s.replace(0, s.length() / 3, terminated.data()); });
    CheckWhole(s);
    Expect([&] {
        const ucs2string built(data, bytes);
        CheckWhole(built);
    });
    return 0;
}

// Runs a program of edits, read from the input, on a ucs2string and a lu_utf8string beside
// std::u16string and std::string models. Positions are taken modulo a little more than the
// length, so that out-of-range positions are tried too; those must throw LU_E_OUT_OF_RANGE and
// change nothing.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include "fuzz_support.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/ucs2string.h"

// The string holds exactly the model's units and is zero-terminated.
template <class String, class Model>
void Compare(const String& s, const Model& model) {
    using Unit = std::make_unsigned_t<typename Model::value_type>;
    Check(std::equal(s.data(), s.data() + s.length(), model.begin(), model.end(),
                     [](auto unit, auto expected) { return unit == Unit(expected); }) &&
          s.c_str()[s.length()] == 0);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput in(data, size);
    ucs2string wide;
    std::u16string wideModel;
    lu_utf8string narrow;
    std::string narrowModel;
    while (in.more()) {
        const unsigned op = in.byte() % 7;
        const auto pos = static_cast<unsigned int>(in.byte() % (wideModel.size() + 3));
        const unsigned int n = in.byte() % 6;
        std::u16string text(in.byte() % 5, u'\0');
        for (char16_t& unit : text) unit = static_cast<char16_t>(in.unit() | 1);  // no zero units
        const ucs2string source(reinterpret_cast<const unsigned short*>(text.data()),
                                static_cast<unsigned int>(text.size()));
        const bool outOfRange = pos > wideModel.size();
        if (op == 0) {
            Check(ThrowsOnly(LU_E_OUT_OF_RANGE, [&] { wide.replace(pos, n, source); }) ==
                  outOfRange);
            if (!outOfRange) wideModel.replace(pos, n, text);
        } else if (op == 1) {
            Check(ThrowsOnly(LU_E_OUT_OF_RANGE, [&] { wide.insert(pos, wide); }) == outOfRange);
            if (!outOfRange) wideModel.insert(pos, std::u16string(wideModel));
        } else if (op == 2) {
            Check(ThrowsOnly(LU_E_OUT_OF_RANGE, [&] { wide.erase(pos, n); }) == outOfRange);
            if (!outOfRange) wideModel.erase(pos, n);
        } else if (op == 3) {
            wide.resize(pos, u'#');
            wideModel.resize(pos, u'#');
        } else if (op == 4) {
            // UTF-16 into the UTF-8 string, then back: well-formed BMP text round-trips.
            const auto bytePos = static_cast<unsigned int>(in.byte() % (narrowModel.size() + 3));
            const lu_utf8string encoded(source);
            const bool narrowOutOfRange = bytePos > narrowModel.size();
            Check(ThrowsOnly(LU_E_OUT_OF_RANGE, [&] { narrow.replace(bytePos, n, source); }) ==
                  narrowOutOfRange);
            if (!narrowOutOfRange)
                narrowModel.replace(bytePos, n, reinterpret_cast<const char*>(encoded.c_str()),
                                    encoded.length());
        } else if (op == 5) {
            narrow.append(narrow);
            narrowModel += std::string(narrowModel);
        } else {
            wide.assign(narrow);
            ThrowsOnly(LU_E_INVALID_ARG, [&] { Check(ucs2string(narrow) == wide); });
            wideModel.assign(wide.data(), wide.data() + wide.length());
        }
        if (wideModel.size() > 4096) wide.clear(), wideModel.clear();
        if (narrowModel.size() > 4096) narrow.clear(), narrowModel.clear();
        Compare(wide, wideModel);
        Compare(narrow, narrowModel);
    }
    return 0;
}

// A program of edits, read from the input, on a ucs2string and a lu_utf8string beside models in
// std::u16string and std::string. Positions reach a little past the length: out of range, an
// edit must throw LU_E_OUT_OF_RANGE and change nothing.
#include <type_traits>

#include "fuzz_support.h"
#include "kai18n/strings/lu_utf8string.h"

// The string holds exactly the model's units and is zero-terminated.
template <class String, class Model>
void Compare(const String& s, const Model& model) {
    using Unit = std::make_unsigned_t<typename Model::value_type>;
    Check(std::equal(s.data(), s.data() + s.length(), model.begin(), model.end(),
                     [](auto unit, auto expected) { return unit == Unit(expected); }) &&
          Terminated(s));
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
        // An edit at `at` of a string `length` long throws exactly when out of range.
        const auto edit = [](unsigned at, std::size_t length, auto&& action) {
            Check(ThrowsOnly(LU_E_OUT_OF_RANGE, action) == (at > length));
            return at <= length;
        };
        if (op == 0 && edit(pos, wideModel.size(), [&] { wide.replace(pos, n, source); }))
            wideModel.replace(pos, n, text);
        if (op == 1 && edit(pos, wideModel.size(), [&] { wide.insert(pos, wide); }))
            wideModel.insert(pos, std::u16string(wideModel));
        if (op == 2 && edit(pos, wideModel.size(), [&] { wide.erase(pos, n); }))
            wideModel.erase(pos, n);
        if (op == 3) wide.resize(pos, u'#'), wideModel.resize(pos, u'#');
        if (op == 4) {
            // UTF-16 into the UTF-8 string, then back: well-formed BMP text round-trips.
            const auto bytePos = static_cast<unsigned int>(in.byte() % (narrowModel.size() + 3));
            const lu_utf8string encoded(source);
            if (edit(bytePos, narrowModel.size(), [&] { narrow.replace(bytePos, n, source); }))
                narrowModel.replace(bytePos, n, reinterpret_cast<const char*>(encoded.c_str()),
                                    encoded.length());
        }
        if (op == 5) narrow.append(narrow), narrowModel += std::string(narrowModel);
        if (op == 6) {
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

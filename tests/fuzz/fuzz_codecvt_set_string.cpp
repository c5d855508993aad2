// Random bytes through lu_codecvt in multi-byte encodings: Shift-JIS, EUC-JP, GB18030, Big5,
// UTF-8 and ISO-2022-JP (the first byte picks one). The text goes to UTF-16 and to UTF-8 with
// SetString, into targets that held something before; the UTF-8 result must be the UTF-8 form of
// the UTF-16 result, and valid; the UTF-16 result goes back through SetNarrowString and through
// the out and in slots into a buffer of random size. Nothing may crash, and the only exceptions
// allowed are LUException with the codes of the encoding layer.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"

namespace {

const lu_codecvt& FacetFor(unsigned choice) {
    static const ilu_const_ptr<lu_codecvt> facets[] = {
        new lu_codecvt_byname("Shift-JIS", 0),
        new lu_codecvt_byname("EUC-JP", 0),
        new lu_codecvt_byname("GB18030", 0),
        new lu_codecvt_byname("Big5", 0),
        new lu_codecvt_byname("ISO-2022-JP", 0),
        new lu_codecvt(0, CharEncoding::Unicode20UTF8(), Char16Encoding::UTF16(), nullptr, false)};
    return *facets[choice % 6];
}

void Run(const lu_codecvt& facet, const char* first, const char* last, std::size_t outSize) {
    ucs2string units(reinterpret_cast<const unsigned char*>("previous text"));
    facet.SetString(first, last, units);
    lu_utf8string utf8("previous text");
    facet.SetString(first, last, utf8);

    Check(first != last || units.empty());
    const lu_utf8string expected(units);
    Check(utf8.length() == expected.length());
    Check(utf8.compare(expected) == 0);
    Check(lu_utf8_traits::_is_valid_utf8(utf8.data(), utf8.length()));

    std::string narrow = "previous text";
    facet.SetNarrowString(units.data(), units.data() + units.length(), narrow);
    Check(units.empty() == narrow.empty());

    std::mbstate_t state{};
    std::vector<char> bytes(outSize);
    const unsigned short* fromNext = nullptr;
    char* toNext = nullptr;
    facet.out(state, units.data(), units.data() + units.length(), fromNext, bytes.data(),
              bytes.data() + bytes.size(), toNext);
    Check(fromNext == units.data() + units.length() && toNext == bytes.data() + bytes.size());
    std::vector<unsigned short> back(outSize);
    const char* byteNext = nullptr;
    unsigned short* unitNext = nullptr;
    facet.in(state, first, last, byteNext, back.data(), back.data() + back.size(), unitNext);
    Check(byteNext == last && unitNext == back.data() + back.size());
    // What fits of the UTF-16 result is its prefix.
    for (std::size_t i = 0; i < back.size() && i < units.length(); ++i) {
        Check(back[i] == units.data()[i]);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const lu_codecvt& facet = FacetFor(data[0]);
    const std::size_t outSize = data[1];
    const char* first = reinterpret_cast<const char*>(data + 2);
    const char* last = reinterpret_cast<const char*>(data + size);
    try {
        Run(facet, first, last, outSize);
    } catch (const LUException& error) {
        Check(error.GetResult() == LU_E_ENCODING || error.GetResult() == LU_E_OUT_OF_RANGE);
    }
    return 0;
}

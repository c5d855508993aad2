// Arbitrary bytes as encoded text. As UTF-8: a valid range is a whole number of sequences led by
// a lead byte, not cut after a lead byte that needs more; the free decoders agree with each other
// and the walk by sequence length; assigned to a ucs2string or formatter, counted or zero-
// terminated, and edited with, the bytes may raise only LU_E_INVALID_ARG, and the strings stay
// zero-terminated. With bytes 0 and 1 as width and alignment, the rest as text, a formatter's
// field is exactly as wide as asked. With bytes 0 and 1 as encoding and buffer size, lu_codecvt
// takes the rest to UTF-16 and UTF-8 into strings that held text: the UTF-8 is the valid form of
// the UTF-16, which goes back through SetNarrowString and the out and in slots into the buffer;
// only LUException with the codes of the encoding layer may come out.
#include "fuzz_support.h"
#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/strings/ucs2string_formatter.h"
#include "kai18n/strings/utf8_conversion.h"

namespace {

void Convert(const lu_codecvt& facet, const char* first, const char* last, std::size_t outSize) {
    ucs2string units(reinterpret_cast<const unsigned char*>("previous text"));
    facet.SetString(first, last, units);
    lu_utf8string utf8("previous text");
    facet.SetString(first, last, utf8);
    Check(first != last || units.empty());
    const lu_utf8string expected(units);
    Check(utf8.length() == expected.length() && utf8.compare(expected) == 0);
    Check(lu_utf8_traits::_is_valid_utf8(utf8.data(), utf8.length()));
    std::string narrow = "previous text";
    const unsigned short* const begin = units.data();
    const unsigned short* const end = begin + units.length();
    facet.SetNarrowString(begin, end, narrow);
    Check(units.empty() == narrow.empty());
    std::mbstate_t state{};
    std::vector<char> bytes(outSize);
    const unsigned short* fromNext = nullptr;
    char* toNext = nullptr;
    facet.out(state, begin, end, fromNext, bytes.data(), bytes.data() + outSize, toNext);
    Check(fromNext == end && toNext == bytes.data() + outSize);
    Units back(outSize);
    const char* byteNext = nullptr;
    unsigned short* unitNext = nullptr;
    facet.in(state, first, last, byteNext, back.data(), back.data() + outSize, unitNext);
    Check(byteNext == last && unitNext == back.data() + outSize);
    // What fits of the UTF-16 result is its prefix.
    for (std::size_t i = 0; i < outSize && i < units.length(); ++i) Check(back[i] == begin[i]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = static_cast<unsigned int>(size);
    const bool valid = lu_utf8_traits::_is_valid_utf8(data, bytes);
    Check(!valid || size == 0 ||
          (UTF8_GetCharCount(data, bytes) != 0 && lu_utf8_traits::is_lead_byte(data[0])));
    Check(!valid || size <= 1 || lu_utf8_traits::GetNbBytes(data[size - 1]) <= 1);
    std::size_t offset = 0;
    unsigned int sequences = 0;
    for (; offset < size; ++sequences) offset += lu_utf8_traits::GetNbBytes(data[offset]);
    Check(UTF8_GetCharCount(data, bytes) == (offset == size ? sequences : 0));
    unsigned short* units = nullptr;
    unsigned int count = 0;
    const long rc = UTF8_ConvertToUCS2(data, bytes, &units, &count);
    Check(rc == LU_S_OK || (rc == LU_E_INVALID_ARG && units == nullptr && count == 0));
    if (rc == LU_S_OK) {
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
    }
    std::vector<unsigned char> terminated(data, data + size);
    terminated.push_back(0);
    ucs2string s;
    const auto edit = [&](auto&& action) {
        ThrowsOnly(LU_E_INVALID_ARG, action);
        Check(Terminated(s));
    };
    edit([&] {
        s.assign(data, bytes);
        Check(s.length() == lu_utf8_traits::char_length(data, bytes));
    });
    edit([&] { s.assign(terminated.data()); });
    edit([&] { s.append(data, bytes); });
    edit([&] { s.insert(s.length() / 2, data, bytes); });
    edit([&] { s.replace(0, s.length() / 3, terminated.data()); });
    edit([&] { Check(Terminated(ucs2string(data, bytes))); });
    if (size < 2) return 0;
    const int width = static_cast<int>(data[0] % 64) - 8, align = data[1] % 4;  // width may be < 0
    const unsigned char* const text = terminated.data() + 2;
    ucs2string_formatter out;
    ThrowsOnly(LU_E_INVALID_ARG, [&] { out.append(text); });
    Check(Terminated(out));
    const unsigned int before = out.length();
    const bool thrown = ThrowsOnly(LU_E_INVALID_ARG, [&] {
        out.append_formatted(text, width, align, '*');
        const unsigned int count = lu_utf8_traits::char_length(text), wide = width;
        // Unbounded; padded, or all number signs; padded, or nothing when too long.
        Check(out.length() - before == (width < 0                  ? count
                                        : align == 1 || align == 2 ? wide
                                        : count <= wide            ? count
                                                                   : 0));
    });
    Check((!thrown || out.length() == before) && Terminated(out));
    ThrowsOnly(LU_E_INVALID_ARG, [&] {
        Check(Terminated(ucs2string_formatter(data + 2, static_cast<unsigned int>(size - 2))));
    });
    // clang-format off
    static const ilu_const_ptr<lu_codecvt> facets[] = {new lu_codecvt_byname("Shift-JIS", 0),
        new lu_codecvt_byname("EUC-JP", 0), new lu_codecvt_byname("GB18030", 0),
        new lu_codecvt_byname("Big5", 0), new lu_codecvt_byname("ISO-2022-JP", 0),
        new lu_codecvt(0, CharEncoding::Unicode20UTF8(), Char16Encoding::UTF16(), nullptr, false)};
    // clang-format on
    try {
        Convert(*facets[data[0] % 6], reinterpret_cast<const char*>(data + 2),
                reinterpret_cast<const char*>(data + size), data[1]);
    } catch (const LUException& error) {
        Check(error.GetResult() == LU_E_ENCODING || error.GetResult() == LU_E_OUT_OF_RANGE);
    }
    return 0;
}

// Reads random UTF-16 text with the Ombrin, Velora and Serial string formats and writes it as Excel
// strings of both kinds (byte 0: reader and boolean words; the rest big-endian UTF-16). Checked:
// the Excel writers never read, the other kind writes nothing, the pattern's kind appends a bounded
// result in which quotation marks pair up and, outside them, a backslash always escapes a unit.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/fmtlib/lu_excel_string_format.h"
#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/frame/result_codes.h"

using namespace FmtLib;

namespace {

const char* const kWords[][2] = {
    {"true", "false"}, {"\"", "a\"\"b"}, {"", "x"}, {"\"yes\"", "n\"o"}};

struct Writers {
    luStringFormat* readers[6] = {CreateStringFormatNumber("en", "US"),
                                  CreateStringFormatDate("en", "US"),
                                  CreateVeloraStringFormatNumber("FR", "fr", "FR", true),
                                  CreateVeloraStringFormatDate("FR", "fr", "FR"),
                                  CreateSerialStringFormatNumber(),
                                  CreateSerialStringFormatDate()};
    luStringFormat* excel[4][2];  // by words: number, date

    Writers() {
        for (int i = 0; i < 4; ++i) {
            ilu_ptr<luSettings> settings = MakeSettings(
                lu_locale::classic(), {{"true_word", kWords[i][0]}, {"false_word", kWords[i][1]}});
            excel[i][0] = CreateExcelSerialStringFormatNumber(settings);
            excel[i][1] = CreateExcelSerialStringFormatDate(settings);
            Check(excel[i][0] && excel[i][1]);
        }
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    static const Writers writers;
    const unsigned reader = data[0] % 6, words = data[0] / 6 % 4, isDate = reader % 2;
    std::vector<unsigned short> units(size / 2 + 1);  // never empty
    for (std::size_t i = 1; i + 1 < size; i += 2)
        units[i / 2] = static_cast<unsigned short>(data[i] << 8 | data[i + 1]);
    const ucs2string input(units.data(), static_cast<unsigned int>((size - 1) / 2));
    luFmtPattern* parsed = nullptr;
    Check(writers.readers[reader]->ToPattern(input, parsed) == 0 && parsed);
    const std::unique_ptr<luFmtPattern> pattern(parsed);
    luStringFormat& same = *writers.excel[words][isDate];
    luFmtPattern* none = CreateNumberFmtPattern();
    Check(same.ToPattern(Ascii("0"), none) == LU_E_FAIL && none == nullptr);
    ucs2string text = Ascii("#");
    Check(writers.excel[words][1 - isDate]->FromPattern(*pattern, text) && text.length() == 1);
    Check(same.FromPattern(*pattern, text));

    // Sections at most tripled; a literal unit takes at most four units, a token nine and the
    // quoted boolean words; a named default format, short in the classic locale, at most 256.
    const std::size_t word = std::max(std::strlen(kWords[words][0]), std::strlen(kWords[words][1]));
    std::size_t bound = 256;
    for (const luToken* token : *pattern)
        bound += token->IsLiteral() ? 4 * token->LiteralLength() + 2 : 11 + 4 * word;
    Check(text.length() - 1 <= 3 * bound);
    bool quoted = false;
    for (unsigned int i = 1; i < text.length(); ++i) {
        if (text.data()[i] == u'"')
            quoted = !quoted;
        else if (!quoted && text.data()[i] == u'\\')
            Check(++i < text.length());
    }
    Check(!quoted);
    return 0;
}

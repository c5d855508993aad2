// Reads arbitrary UTF-16 text with the Ombrin, Velora and Serial string
// formats and writes what it reads as Excel strings of both kinds.
//
// The first byte chooses the string format (its value modulo 6: Ombrin,
// Velora and Serial, numbers and dates) and, by the rest, the boolean words
// of the settings, among them words with quotation marks and an empty one.
// The remaining bytes are the text, two bytes (big-endian) a UTF-16 unit.
//
// Checked:
//  - the Excel writers never read: ToPattern fails with 0x80004005 and
//    leaves no pattern;
//  - the writer of the other kind writes nothing;
//  - the writer of the pattern's kind appends to what the string held, no
//    more than a bound taken from the pattern (or the default format that
//    replaces it): sections are at most tripled, a literal unit takes at most
//    four units (three for a quotation mark, and a percent sign may split a
//    run), a token at most nine, a boolean word its own quoted length;
//  - the result reads as Excel text: quotation marks pair up, and outside
//    them a backslash always has a unit behind it.
// A violated property aborts.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/fmtlib/lu_excel_string_format.h"
#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string.h"

using namespace FmtLib;

namespace {

struct Words {
    const char* yes;
    const char* no;
};
const Words kWords[] = {{"true", "false"}, {"\"", "a\"\"b"}, {"", "x"}, {"\"yes\"", "n\"o"}};
constexpr unsigned kWordCount = sizeof(kWords) / sizeof(kWords[0]);

ucs2string Ascii(const char* text) {
    return ucs2string(reinterpret_cast<const unsigned char*>(text));
}

ilu_ptr<luSettings> MakeSettings(const Words& words) {
    ilu_ptr<luPreferences> preferences;
    Check(CreatePreferences(preferences) == 0);
    preferences->AddPreference("true_word", Ascii(words.yes));
    preferences->AddPreference("false_word", Ascii(words.no));
    preferences->EndBuild();
    ilu_ptr<luSettings> settings;
    Check(CreateSettings(lu_locale::classic(), preferences, settings) == 0);
    return settings;
}

std::size_t Bound(const luFmtPattern& pattern, std::size_t wordUnits);

// Made once: string formats and settings each hold a locale of their own.
struct Writers {
    std::unique_ptr<luStringFormat> readers[6];
    std::unique_ptr<luExcelStringFormatNumber> number[kWordCount];
    std::unique_ptr<luExcelStringFormatDate> date[kWordCount];
    std::unique_ptr<luStringFormat> serialNumber;
    std::unique_ptr<luStringFormat> serialDate;
    ilu_ptr<luSettings> settings[kWordCount];
    std::size_t wordUnits[kWordCount];
    std::size_t defaultBound[kWordCount][2];  // number, date

    Writers() {
        readers[0].reset(CreateStringFormatNumber("en", "US"));
        readers[1].reset(CreateStringFormatDate("en", "US"));
        readers[2].reset(CreateVeloraStringFormatNumber("FR", "fr", "FR", true));
        readers[3].reset(CreateVeloraStringFormatDate("FR", "fr", "FR"));
        readers[4].reset(CreateSerialStringFormatNumber());
        readers[5].reset(CreateSerialStringFormatDate());
        serialNumber.reset(CreateSerialStringFormatNumber());
        serialDate.reset(CreateSerialStringFormatDate());
        for (unsigned i = 0; i < kWordCount; ++i) {
            settings[i] = MakeSettings(kWords[i]);
            number[i].reset(CreateExcelSerialStringFormatNumber(settings[i]));
            date[i].reset(CreateExcelSerialStringFormatDate(settings[i]));
            Check(number[i] != nullptr && date[i] != nullptr);
            wordUnits[i] = std::max(Ascii(kWords[i].yes).length(), Ascii(kWords[i].no).length());
        }
        for (unsigned i = 0; i < kWordCount; ++i)
            for (int isDate = 0; isDate < 2; ++isDate)
                defaultBound[i][isDate] = DefaultBound(isDate != 0, i);
    }

    // The bound of the longest default format: one of them may stand for
    // the pattern.
    std::size_t DefaultBound(bool isDate, unsigned words) const;
};

const Writers& AllWriters() {
    static const Writers writers;
    return writers;
}

// The most units a pattern can give: every token once per section copy, as
// the longest thing a token or a quoted unit can become.
std::size_t Bound(const luFmtPattern& pattern, std::size_t wordUnits) {
    std::size_t units = 0;
    for (const luToken* token : pattern)
        units += token->IsLiteral() ? 4 * token->LiteralLength() + 2 : 9 + 4 * wordUnits + 2;
    return 3 * (units + 2);
}

std::size_t Writers::DefaultBound(bool isDate, unsigned words) const {
    luStringFormat& serial = isDate ? *serialDate : *serialNumber;
    std::size_t most = 0;
    for (int format = 0; format <= 24; ++format) {
        const unsigned short* text = settings[words]->GetFmtLibDefaultFormat(format);
        if (text == nullptr) continue;
        luFmtPattern* parsed = nullptr;
        serial.ToPattern(ucs2string(text), parsed);
        const std::unique_ptr<luFmtPattern> owned(parsed);
        if (owned != nullptr) most = std::max(most, Bound(*owned, wordUnits[words]));
    }
    return most;
}

// Quotation marks pair up, and outside them a backslash escapes one unit.
bool ReadsAsExcelText(const ucs2string& text, unsigned int from) {
    bool quoted = false;
    for (unsigned int i = from; i < text.length(); ++i) {
        const unsigned short unit = text.data()[i];
        if (unit == u'"') {
            quoted = !quoted;
        } else if (!quoted && unit == u'\\') {
            if (++i == text.length()) return false;
        }
    }
    return !quoted;
}

void CheckNoReading(luStringFormat& excel) {
    luFmtPattern* pattern = CreateNumberFmtPattern();
    Check(excel.ToPattern(Ascii("0"), pattern) == LU_E_FAIL && pattern == nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const Writers& writers = AllWriters();
    const unsigned reader = data[0] % 6;
    const unsigned words = (data[0] / 6) % kWordCount;
    const bool isDate = reader % 2 == 1;

    std::vector<unsigned short> units;
    for (std::size_t i = 1; i + 1 < size; i += 2)
        units.push_back(static_cast<unsigned short>((data[i] << 8) | data[i + 1]));
    const unsigned short none = 0;
    const ucs2string input(units.empty() ? &none : units.data(),
                           static_cast<unsigned int>(units.size()));

    luFmtPattern* parsed = nullptr;
    Check(writers.readers[reader]->ToPattern(input, parsed) == 0 && parsed != nullptr);
    const std::unique_ptr<luFmtPattern> pattern(parsed);

    luStringFormat& same = isDate ? static_cast<luStringFormat&>(*writers.date[words])
                                  : static_cast<luStringFormat&>(*writers.number[words]);
    luStringFormat& other = isDate ? static_cast<luStringFormat&>(*writers.number[words])
                                   : static_cast<luStringFormat&>(*writers.date[words]);
    CheckNoReading(same);

    ucs2string text = Ascii("#");
    Check(other.FromPattern(*pattern, text) && text.length() == 1);
    Check(same.FromPattern(*pattern, text));

    const std::size_t bound = std::max(Bound(*pattern, writers.wordUnits[words]),
                                       writers.defaultBound[words][isDate ? 1 : 0]);
    Check(text.length() - 1 <= bound);
    Check(ReadsAsExcelText(text, 1));
    return 0;
}

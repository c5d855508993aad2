// Compiles random Ombrin number texts into number formatters and formats
// random and extreme values with them.
//
// Input: byte 0 chooses the settings (the classic locale or a locale with
// groups of 3 and then 2, each with or without preferences) and a default
// format number to ask for; bytes 1 to 24 are three doubles, bit for bit
// (NaN, infinities, subnormals and all); bytes 25 to 32 a long and an unsigned
// long. The rest is the format text: a byte below 0xC0 picks a piece of
// Ombrin text (tokens, labels, colours, quotes, escapes), any other byte and
// the two after it make one UTF-16 unit.
//
// Checked: CreateNumberFormat succeeds for every number pattern; each call of
// Format and FormatError returns true, leaves a colour from 0 to 16 and a
// result that is zero-terminated within the largest length of a formatter;
// CreateDefaultNumberFormat succeeds for the four number defaults and fails
// with 0x80004005 for any other value. ASan and UBSan catch the rest.
#include <cfloat>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/frame/result_codes.h"

using namespace FmtLib;

namespace {

// A formatter never holds more units than this (its length is 16-bit).
constexpr unsigned kLongestResult = 65536;

// The classic locale with "." and "," and groups of 3 and then 2.
lu_locale GroupedLocale() {
    ucs2string grouping;
    grouping.push_back(3);
    grouping.push_back(2);
    auto* punct = new lu_numpunct(0u);
    punct->init('.', ',', grouping, lu_numeric_punctuation::kDefaultBlock);
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    impl->_M_install_facet(&lu_numpunct::id, punct);
    impl->_M_install_facet(&lu_num_put::id, new lu_num_put(punct, 0));
    return lu_locale(impl);
}

ucs2string Text(const char* ascii) {
    return ucs2string(reinterpret_cast<const unsigned char*>(ascii));
}

ilu_ptr<luSettings> MakeSettings(const lu_locale& locale, bool wishes) {
    ilu_ptr<luPreferences> prefs;
    Check(CreatePreferences(prefs) == 0 && prefs);
    if (wishes) {
        prefs->AddPreference("decimal_point", Text(","));
        prefs->AddPreference("thousands_sep", Text(""));
        prefs->AddPreference("true_word", Text("oui"));
        prefs->AddPreference("false_word", Text(""));
    }
    prefs->EndBuild();
    ilu_ptr<luSettings> settings;
    Check(CreateSettings(locale, prefs, settings) == 0 && settings);
    return settings;
}

struct World {
    ilu_ptr<luSettings> settings[4];
    std::unique_ptr<luStringFormatNumber> ombrin;

    World() {
        const lu_locale classic = lu_locale::classic();
        const lu_locale grouped = GroupedLocale();
        settings[0] = MakeSettings(classic, false);
        settings[1] = MakeSettings(classic, true);
        settings[2] = MakeSettings(grouped, false);
        settings[3] = MakeSettings(grouped, true);
        ombrin.reset(CreateStringFormatNumber("en", nullptr));
        Check(ombrin != nullptr);
    }
};

World& TheWorld() {
    static World world;
    return world;
}

// Pieces of Ombrin number text.
const char* const kPieces[] = {"#",
                               "0",
                               "0",
                               "#",
                               ".",
                               ",",
                               ";",
                               "-",
                               "(",
                               ")",
                               "E+",
                               "E-",
                               "e+",
                               "e-",
                               "[%]",
                               "%",
                               "'",
                               "''",
                               "\\",
                               " ",
                               "x",
                               "[Red]",
                               "[blue]",
                               "[Dark Cyan]",
                               "[Gray]",
                               "[",
                               "]",
                               "<bool>",
                               "<true>",
                               "<false>",
                               "<positive sign>",
                               "<times 100 and sign>",
                               "<number>",
                               "<zero>",
                               "<grouping separator>",
                               "<decimal separator>",
                               "<format separator>",
                               "STANDARD",
                               "PERCENT",
                               "SCIENTIFIC",
                               "BOOLEAN",
                               "!",
                               "##########",
                               "0000000000",
                               "#,##0.00",
                               "0.00E+00",
                               "##0.0E+0"};
constexpr unsigned kPieceCount = sizeof(kPieces) / sizeof(kPieces[0]);

// Values every pattern is tried with.
const double kExtremes[] = {0.0,
                            -0.0,
                            0.5,
                            -1234.5,
                            1e15,
                            1e256,
                            -1e300,
                            DBL_MAX,
                            -DBL_MAX,
                            DBL_MIN,
                            std::numeric_limits<double>::denorm_min(),
                            1e-300,
                            std::numeric_limits<double>::quiet_NaN(),
                            std::numeric_limits<double>::signaling_NaN(),
                            std::numeric_limits<double>::infinity(),
                            -std::numeric_limits<double>::infinity()};

// The result is zero-terminated within the largest length and the colour is
// one of the seventeen.
void CheckResult(const luNumberFormat& format) {
    const unsigned short* text = format.c_str();
    Check(text != nullptr);
    unsigned length = 0;
    while (length < kLongestResult && text[length] != 0) ++length;
    Check(length < kLongestResult);
    Check(format.Color() >= 0 && format.Color() <= 16);
}

template <class T>
void FormatOne(luNumberFormat& format, T value) {
    Check(format.Format(value));
    CheckResult(format);
}

void CheckDefault(ilu_ptr<luSettings>& settings, int number) {
    const bool known =
        number == STANDARD || number == PERCENT || number == SCIENTIFIC || number == BOOLEAN;
    luNumberFormat* format = nullptr;
    const long code =
        CreateDefaultNumberFormat(settings, static_cast<fmtLibDefaultFormats>(number), format);
    if (!known) {
        Check(code == LU_E_FAIL && format == nullptr);
        return;
    }
    Check(code == 0 && format != nullptr);
    std::unique_ptr<luNumberFormat> owned(format);
    FormatOne(*owned, 1234.5);
    FormatOne(*owned, -1L);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kHeader = 1 + 3 * sizeof(double) + sizeof(long) + sizeof(unsigned long);
    if (size < kHeader) return 0;
    World& world = TheWorld();
    ilu_ptr<luSettings>& settings = world.settings[data[0] % 4];

    double doubles[3];
    long signedValue;
    unsigned long unsignedValue;
    std::memcpy(doubles, data + 1, sizeof doubles);
    std::memcpy(&signedValue, data + 1 + sizeof doubles, sizeof signedValue);
    std::memcpy(&unsignedValue, data + 1 + sizeof doubles + sizeof signedValue,
                sizeof unsignedValue);

    ucs2string text;
    for (std::size_t i = kHeader; i < size;) {
        const std::uint8_t b = data[i++];
        if (b < 0xC0) {
            text.append(Text(kPieces[b % kPieceCount]));
        } else {
            const unsigned high = i < size ? data[i++] : 0;
            const unsigned low = i < size ? data[i++] : 0;
            const unsigned short unit = static_cast<unsigned short>((high << 8) | low);
            text.append(&unit, 1);
        }
    }

    luFmtPattern* pattern = nullptr;
    Check(world.ombrin->ToPattern(text, pattern) == 0 && pattern != nullptr);
    std::unique_ptr<luFmtPattern> ownedPattern(pattern);
    Check(!pattern->IsDate());

    luNumberFormat* format = nullptr;
    Check(CreateNumberFormat(settings, pattern, format) == 0 && format != nullptr);
    std::unique_ptr<luNumberFormat> owned(format);

    for (double value : doubles) FormatOne(*owned, value);
    for (double value : kExtremes) FormatOne(*owned, value);
    FormatOne(*owned, signedValue);
    FormatOne(*owned, LONG_MIN);
    FormatOne(*owned, 0L);
    FormatOne(*owned, unsignedValue);
    FormatOne(*owned, ULONG_MAX);
    FormatOne(*owned, 0UL);
    Check(owned->FormatError());
    CheckResult(*owned);

    CheckDefault(settings, static_cast<int>(data[0] >> 2) - 4);  // -4 to 59
    return 0;
}

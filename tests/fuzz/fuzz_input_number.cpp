// Scans random texts with the number inputs of eight settings and reads what they write back.
// Byte 0: settings (six locales, the classic one, the classic one with a decimal comma wish);
// bytes 1-24: a double, a long and an unsigned long, bit for bit. The rest is the text: a byte
// below 0xC0 picks a unit numbers are made of (digits of five scripts, signs, points, exponent
// letters, blanks), any other byte and the two after it make one unit.
// Checked: position within the text, a failed scan leaves the result alone, no NaN, IsInteger
// and IsUnsignedInteger agree with the value; Format writes a text that reads whole to the value.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/fmtlib/lu_input_number.h"

using namespace FmtLib;

namespace {

using Units = std::vector<unsigned short>;  // zero-terminated, exactly sized for ASan
const char16_t kUnits[] =
    u"0123456789.,.,-+-+eEeE  \t\u00A0\u2212\u3000\u066B\u0660\u0661\u0669"
    u"\u06F0\u06F5\u0966\u096F\uFF10\uFF19";  // every locale's signs, points and letters too
constexpr unsigned kUnitCount = sizeof kUnits / sizeof kUnits[0] - 1;

struct World {
    std::unique_ptr<luInputNumber> inputs[8];
    World() {
        const char* const names[] = {"en_US", "de_DE", "ar_EG", "ja_JP", "fr_FR", "hi_IN"};
        for (int i = 0; i < 8; ++i) {
            ilu_ptr<luPreferences> prefs;
            Check(CreatePreferences(prefs) == 0 && prefs);
            const unsigned char comma[] = ",";
            if (i == 7) prefs->AddPreference("decimal_point", ucs2string(comma));
            prefs->EndBuild();
            ilu_ptr<luSettings> settings;
            const lu_locale locale = i < 6 ? lu_locale(names[i]) : lu_locale::classic();
            Check(CreateSettings(locale, prefs, settings) == 0 && settings);
            luInputNumber* input = nullptr;
            Check(CreateInputNumber(settings, input) == 0 && input);
            inputs[i].reset(input);
        }
    }
};

Units Exact(const unsigned short* text) {
    std::size_t length = 0;
    while (text[length] != 0) ++length;
    return Units(text, text + length + 1);
}

// Scans `text` and checks what every scan promises, and with `whole` that it reads one number to
// the end; the value, or NaN when none was read.
double Scan(luInputNumber& input, const Units& text, bool whole = false) {
    double value = std::numeric_limits<double>::quiet_NaN();  // a scan never gives NaN
    int position = -1;
    const bool read = input.Scan(text.data(), value, position);
    Check(position >= 0 && position < static_cast<int>(text.size()) && read != std::isnan(value));
    Check(!whole || (read && position + 1 == static_cast<int>(text.size())));
    long integer = 0;
    unsigned long natural = 0;
    const bool isInteger = input.IsInteger(integer), isNatural = input.IsUnsignedInteger(natural);
    Check(integer >= INT32_MIN && integer <= INT32_MAX && natural <= UINT32_MAX);
    Check(!read || !isInteger || static_cast<double>(integer) == value);
    Check(!read || !isNatural || (static_cast<double>(natural) == value && !std::signbit(value)));
    return value;
}

// Formats `value` and reads the text back: to a value within 1e-14 of it, unless too extreme.
void CheckDouble(luInputNumber& input, double value) {
    Check(input.Format(value));
    const double magnitude = std::fabs(value);
    const bool normal = magnitude == 0 || (magnitude >= 1e-300 && magnitude <= 1e300);
    const double back = Scan(input, Exact(input.c_str()), normal);
    Check(!normal || (value == 0 ? back == 0 : std::fabs(back - value) <= 1e-14 * magnitude));
}

// The same for integers: to the value itself when it has at most 15 digits.
template <class Integer>
void CheckInteger(luInputNumber& input, Integer value) {
    Check(input.Format(value));
    const bool fits = value > -1e15 && value < 1e15;
    const double back = Scan(input, Exact(input.c_str()), fits);
    Check(!fits || back == static_cast<double>(value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kHeader = 1 + sizeof(double) + sizeof(long) + sizeof(unsigned long);
    if (size < kHeader) return 0;
    static World world;
    luInputNumber& input = *world.inputs[data[0] % 8];
    double real;
    long whole;
    unsigned long natural;
    std::memcpy(&real, data + 1, sizeof real);
    std::memcpy(&whole, data + 1 + sizeof real, sizeof whole);
    std::memcpy(&natural, data + 1 + sizeof real + sizeof whole, sizeof natural);
    Units text;
    for (std::size_t i = kHeader; i < size;) {
        const unsigned b = data[i++];
        unsigned short unit = kUnits[b % kUnitCount];
        if (b >= 0xC0) {  // the two bytes after it make the unit
            const unsigned high = i < size ? data[i++] : 0, low = i < size ? data[i++] : 0;
            unit = static_cast<unsigned short>(high << 8 | low);
        }
        if (unit != 0) text.push_back(unit);
    }
    text.push_back(0);
    const double value = Scan(input, Units(text.begin(), text.end()));
    if (!std::isnan(value)) CheckDouble(input, value);
    CheckDouble(input, real);
    CheckInteger(input, whole);
    CheckInteger(input, natural);
    return 0;
}

// Scans random texts with the number inputs of eight settings (six locales, the classic one, the
// classic one with a decimal comma wish) and reads back what they write of the value read and of
// a random double, long and unsigned long. Checked: position within the text, a failed scan
// leaves the result alone, no NaN, IsInteger and IsUnsignedInteger agree with the value; Format
// writes a text that reads whole to the value.
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/fmtlib/lu_input_number.h"

using namespace FmtLib;

namespace {

// Units numbers are made of, every locale's signs, points and letters among them.
const std::vector<Units> kUnits = Split(
    u"0|1|2|3|4|5|6|7|8|9|.|,|.|,|-|+|-|+|e|E|e|E| | |\t|\u00A0|\u2212|\u3000|\u066B|\u0660|"
    u"\u0661|\u0669|\u06F0|\u06F5|\u0966|\u096F|\uFF10|\uFF19");

struct World {
    std::unique_ptr<luInputNumber> inputs[8];
    World() {
        const char* const names[] = {"en_US", "de_DE", "ar_EG", "ja_JP", "fr_FR", "hi_IN"};
        for (int i = 0; i < 8; ++i) {
            const lu_locale locale = i < 6 ? lu_locale(names[i]) : lu_locale::classic();
            ilu_ptr<luSettings> settings =
                i == 7 ? MakeSettings(locale, {{"decimal_point", ","}}) : MakeSettings(locale);
            luInputNumber* input = nullptr;
            Check(CreateInputNumber(settings, input) == 0 && input);
            inputs[i].reset(input);
        }
    }
};

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

// Formats `value` and reads the text back: to a value within 1e-14 of it unless too extreme, an
// integer of at most 15 digits to itself.
template <class T>
void CheckWritten(luInputNumber& input, T value) {
    Check(input.Format(value));
    const bool integral = std::is_integral<T>::value;
    const double magnitude = std::fabs(static_cast<double>(value));
    const bool normal =
        integral ? magnitude < 1e15 : magnitude == 0 || (magnitude >= 1e-300 && magnitude <= 1e300);
    const double back = Scan(input, Exact(input.c_str()), normal);
    Check(!normal ||
          std::fabs(back - static_cast<double>(value)) <= (integral ? 0 : 1e-14) * magnitude);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kHeader = 1 + sizeof(double) + sizeof(long) + sizeof(unsigned long);
    if (size < kHeader) return 0;
    static World world;
    luInputNumber& input = *world.inputs[data[0] % 8];
    FuzzInput in(data + 1, size - 1);
    const double real = in.bits<double>();
    const long whole = in.bits<long>();
    const unsigned long natural = in.bits<unsigned long>();
    Units text = in.text(kUnits, false);
    text.push_back(0);
    const double value = Scan(input, text);
    if (!std::isnan(value)) CheckWritten(input, value);
    CheckWritten(input, real);
    CheckWritten(input, whole);
    CheckWritten(input, natural);
    return 0;
}

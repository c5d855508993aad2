// Number formatters and inputs under eleven settings: six locales; the classic one, also with a
// decimal comma wish; the classic locale or one grouping by 3 and then 2 with other wishes or,
// the latter, without. Byte 0: settings; byte 1: a default format; then three doubles, a long, an
// unsigned long and the text. Formatters: the text reads as an Ombrin number pattern that
// CreateNumberFormat takes; each Format and FormatError returns true, leaves a colour from 0 to 16
// and a result zero-terminated within a formatter's largest length; CreateDefaultNumberFormat
// succeeds for the four number defaults, fails with LU_E_FAIL for any other value. Inputs: a scan
// ends within the text, gives no NaN and, when it fails, leaves the result alone; IsInteger and
// IsUnsignedInteger agree with the value; Format writes the value read and the random values in a
// text that reads whole to them.
#include <cfloat>
#include <climits>
#include <type_traits>

#include "fuzz_support.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/fmtlib/lu_input_number.h"
#include "kai18n/fmtlib/lu_number_format.h"

using namespace FmtLib;

namespace {

// The classic locale with "." and "," and groups of 3 and then 2.
lu_locale GroupedLocale() {
    const unsigned short groups[] = {3, 2};
    auto* punct = new lu_numpunct(0u);
    punct->init('.', ',', ucs2string(groups, 2), lu_numeric_punctuation::kDefaultBlock);
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    impl->_M_install_facet(&lu_numpunct::id, punct);
    impl->_M_install_facet(&lu_num_put::id, new lu_num_put(punct, 0));
    return lu_locale(impl);
}

struct World {
    std::vector<ilu_ptr<luSettings>> settings = SevenSettings();
    std::vector<std::unique_ptr<luInputNumber>> inputs;
    std::unique_ptr<luStringFormatNumber> ombrin{CreateStringFormatNumber("en", nullptr)};
    const std::vector<Units> pieces = Split(
        u"#|0|0|#|.|,|;|-|(|)|E+|E-|e+|e-|[%]|%|'|''|\\| |x|[Red]|[blue]|[Dark Cyan]|[Gray]|[|]|"
        u"<bool>|<true>|<false>|<positive sign>|<times 100 and sign>|<number>|<zero>|"
        u"<grouping separator>|<decimal separator>|<format separator>|STANDARD|PERCENT|"
        u"SCIENTIFIC|BOOLEAN|!|##########|0000000000|#,##0.00|0.00E+00|##0.0E+0|"
        u"0|1|2|3|4|5|6|7|8|9|.|,|.|,|-|+|-|+|e|E|e|E| | |\t|\u00A0|\u2212|\u3000|\u066B|\u0660|"
        u"\u0661|\u0669|\u06F0|\u06F5|\u0966|\u096F|\uFF10|\uFF19");
    World() {
        const Wishes wishes = {{"decimal_point", ","},
                               {"thousands_sep", ""},
                               {"true_word", "oui"},
                               {"false_word", ""}};
        const lu_locale classic = lu_locale::classic(), grouped = GroupedLocale();
        settings.push_back(MakeSettings(classic, {{"decimal_point", ","}}));
        settings.push_back(MakeSettings(classic, wishes));
        settings.push_back(MakeSettings(grouped));
        settings.push_back(MakeSettings(grouped, wishes));
        for (ilu_ptr<luSettings>& each : settings) {
            luInputNumber* input = nullptr;
            Check(CreateInputNumber(each, input) == 0 && input);
            inputs.emplace_back(input);
        }
        Check(ombrin != nullptr);
    }
};

// clang-format off
const double kExtremes[] = {0.0, -0.0, 0.5, -1234.5, 1e15, 1e256, -1e300, DBL_MAX, -DBL_MAX,
    DBL_MIN, Limits::denorm_min(), 1e-300, Limits::quiet_NaN(), Limits::signaling_NaN(), HUGE_VAL,
    -HUGE_VAL};
// clang-format on

// The result is zero-terminated within the largest length (a formatter's length is 16-bit).
template <class T>
void FormatOne(luNumberFormat& format, T value, bool error = false) {
    Check(error ? format.FormatError() : format.Format(value));
    CheckResult(format.c_str(), 65535, format.Color());
}

// Scans `text` and checks what every scan promises, and with `whole` that it reads one number to
// the end; the value, or NaN when none was read.
double Scan(luInputNumber& input, const Units& text, bool whole = false) {
    double value = Limits::quiet_NaN();  // a scan never gives NaN
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
    if (size < 2 + 3 * sizeof(double) + sizeof(long) + sizeof(unsigned long)) return 0;
    static World world;
    ilu_ptr<luSettings>& settings = world.settings[data[0] % world.settings.size()];
    luInputNumber& input = *world.inputs[data[0] % world.inputs.size()];
    FuzzInput in(data + 2, size - 2);
    const double doubles[3] = {in.bits<double>(), in.bits<double>(), in.bits<double>()};
    const long whole = in.bits<long>();
    const unsigned long natural = in.bits<unsigned long>();
    Units text = in.text(world.pieces, true);
    const auto pattern = Read(*world.ombrin, Ucs2(text));
    luNumberFormat* format = nullptr;
    Check(!pattern->IsDate() && CreateNumberFormat(settings, pattern.get(), format) == 0 && format);
    std::unique_ptr<luNumberFormat> owned(format);
    for (double value : doubles) FormatOne(*owned, value);
    for (double value : kExtremes) FormatOne(*owned, value);
    for (long value : {whole, LONG_MIN, 0L}) FormatOne(*owned, value);
    for (unsigned long value : {natural, ULONG_MAX, 0UL}) FormatOne(*owned, value);
    FormatOne(*owned, 0.0, true);
    const int number = static_cast<int>(data[1] % 64) - 4;
    format = nullptr;
    const long code =
        CreateDefaultNumberFormat(settings, static_cast<fmtLibDefaultFormats>(number), format);
    owned.reset(format);
    const bool known =
        number == STANDARD || number == PERCENT || number == SCIENTIFIC || number == BOOLEAN;
    Check(known ? code == 0 && format != nullptr : code == LU_E_FAIL && format == nullptr);
    if (owned) FormatOne(*owned, 1234.5), FormatOne(*owned, -1L);
    text.push_back(0);
    const double value = Scan(input, text);
    if (!std::isnan(value)) CheckWritten(input, value);
    for (double each : doubles) CheckWritten(input, each);
    CheckWritten(input, whole);
    CheckWritten(input, natural);
    return 0;
}

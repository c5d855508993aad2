// Compiles random Ombrin number texts into number formatters of four settings (the classic locale
// or groups of 3 and then 2, with or without preferences) and formats random and extreme values
// with them; byte 0 also picks a default format number. Checked: CreateNumberFormat succeeds for
// every number pattern; each Format and FormatError returns true, leaves a colour from 0 to 16 and
// a result zero-terminated within the largest length of a formatter; CreateDefaultNumberFormat
// succeeds for the four number defaults and fails with LU_E_FAIL for any other value.
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>

#include "fuzz_support.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/frame/result_codes.h"

using namespace FmtLib;

namespace {

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

struct World {
    ilu_ptr<luSettings> settings[4];
    std::unique_ptr<luStringFormatNumber> ombrin{CreateStringFormatNumber("en", nullptr)};
    const std::vector<Units> pieces = Split(
        u"#|0|0|#|.|,|;|-|(|)|E+|E-|e+|e-|[%]|%|'|''|\\| |x|[Red]|[blue]|[Dark Cyan]|[Gray]|[|]|"
        u"<bool>|<true>|<false>|<positive sign>|<times 100 and sign>|<number>|<zero>|"
        u"<grouping separator>|<decimal separator>|<format separator>|STANDARD|PERCENT|"
        u"SCIENTIFIC|BOOLEAN|!|##########|0000000000|#,##0.00|0.00E+00|##0.0E+0");
    World() {
        const lu_locale locales[] = {lu_locale::classic(), GroupedLocale()};
        for (int i = 0; i < 4; ++i) {
            settings[i] = i % 2 == 0 ? MakeSettings(locales[i / 2])
                                     : MakeSettings(locales[i / 2], {{"decimal_point", ","},
                                                                     {"thousands_sep", ""},
                                                                     {"true_word", "oui"},
                                                                     {"false_word", ""}});
        }
        Check(ombrin != nullptr);
    }
};

// clang-format off
const double kExtremes[] = {0.0, -0.0, 0.5, -1234.5, 1e15, 1e256, -1e300, DBL_MAX, -DBL_MAX,
    DBL_MIN, std::numeric_limits<double>::denorm_min(), 1e-300,
    std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::signaling_NaN(),
    HUGE_VAL, -HUGE_VAL};
// clang-format on

// The result is zero-terminated within the largest length (a formatter's length is 16-bit) and
// the colour is one of the seventeen.
template <class T>
void FormatOne(luNumberFormat& format, T value, bool error = false) {
    Check(error ? format.FormatError() : format.Format(value));
    const unsigned short* text = format.c_str();
    Check(text != nullptr);
    unsigned length = 0;
    while (length < 65536 && text[length] != 0) ++length;
    Check(length < 65536 && format.Color() >= 0 && format.Color() <= 16);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kHeader = 1 + 3 * sizeof(double) + sizeof(long) + sizeof(unsigned long);
    if (size < kHeader) return 0;
    static World world;
    ilu_ptr<luSettings>& settings = world.settings[data[0] % 4];
    FuzzInput in(data + 1, size - 1);
    const double doubles[3] = {in.bits<double>(), in.bits<double>(), in.bits<double>()};
    const long signedValue = in.bits<long>();
    const unsigned long unsignedValue = in.bits<unsigned long>();
    const ucs2string text = Ucs2(in.text(world.pieces, true));
    luFmtPattern* pattern = nullptr;
    Check(world.ombrin->ToPattern(text, pattern) == 0 && pattern != nullptr);
    std::unique_ptr<luFmtPattern> ownedPattern(pattern);
    Check(!pattern->IsDate());
    luNumberFormat* format = nullptr;
    Check(CreateNumberFormat(settings, pattern, format) == 0 && format != nullptr);
    std::unique_ptr<luNumberFormat> owned(format);
    for (double value : doubles) FormatOne(*owned, value);
    for (double value : kExtremes) FormatOne(*owned, value);
    for (long value : {signedValue, LONG_MIN, 0L}) FormatOne(*owned, value);
    for (unsigned long value : {unsignedValue, ULONG_MAX, 0UL}) FormatOne(*owned, value);
    FormatOne(*owned, 0.0, true);

    const int number = static_cast<int>(data[0] >> 2) - 4;  // -4 to 59
    format = nullptr;
    const long code =
        CreateDefaultNumberFormat(settings, static_cast<fmtLibDefaultFormats>(number), format);
    owned.reset(format);
    if (number != STANDARD && number != PERCENT && number != SCIENTIFIC && number != BOOLEAN) {
        Check(code == LU_E_FAIL && format == nullptr);
        return 0;
    }
    Check(code == 0 && format != nullptr);
    FormatOne(*owned, 1234.5);
    FormatOne(*owned, -1L);
    return 0;
}

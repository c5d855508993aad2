// Prints a date-time (valid, just before midnight, or null) in one of four locales by a random
// UTF-16 format through both overloads: the text is bounded by the format, the overloads agree,
// and a text too long leaves the output unchanged.
#include "fuzz_support.h"
#include "kai18n/datetime/lu_date_time.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/strings/ucs2string_formatter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using DT = lu_date_time;
    static const lu_locale locales[] = {lu_locale::classic(), lu_locale("de_DE"),
                                        lu_locale("ja_JP"), lu_locale("ar_EG")};
    // Format units: mostly what conversions are made of; from 0xF0 on, any unit but zero.
    static const std::vector<Units> common = Split(
        u"%|%|%|%|#|-|0|0|1|2|3|4|5|6|7|8|9|a|A|b|B|c|C|d|D|e|E|f|H|I|j|k|l|m|M|n|p|P|q|r|s|S|"
        u"t|T|U|w|W|x|X|y|Y|Z|Q| |.");
    FuzzInput in(data, size);
    const unsigned kind = in.byte() % 8;
    const lu_locale& locale = locales[in.byte() % 4];
    const int year = DT::kMinYear + static_cast<int>(in.u32() % (DT::kMaxYear - DT::kMinYear + 1));
    const int month = static_cast<int>(in.byte() % 12 + 1);
    const int day = static_cast<int>(in.byte() % DT::DaysInMonth(year, month) + 1);
    DT value(nullptr);
    long code = LU_S_OK;
    if (kind == 1) code = value.Set(year, month, double(day), 1.0 - (in.byte() + 1) * 1e-9);
    if (kind > 1) {
        const int hour = in.byte() % 24, minute = in.byte() % 60, second = in.byte() % 60;
        code = value.Set(year, month, day, hour, minute, second, int(in.unit() % 1000));
    }
    Check(code == LU_S_OK || (year == 1582 && month == 10 && day > 4 && day < 15));
    Units format = in.text(common, false, 0xF0);
    format.push_back(0);  // where it ends, for ASan
    // A conversion writes a few dozen units, or a field as wide as its width.
    unsigned long long bound = 64 * format.size(), width = 0;
    for (unsigned short unit : format) {
        const bool digit = unit >= u'0' && unit <= u'9';
        if (!digit) bound += width;
        width = digit ? std::min(width * 10 + (unit - u'0'), 1000000ull) : 0;
    }
    const unsigned char* const prefix = reinterpret_cast<const unsigned char*>("<");
    ucs2string_formatter out(prefix);
    ucs2string text(prefix);
    const bool out_failed =
        ThrowsOnly(LU_E_STRING_TOO_LONG, [&] { value.Print(out, format.data(), locale); });
    const bool text_failed =
        ThrowsOnly(LU_E_STRING_TOO_LONG, [&] { value.Print(text, format.data(), locale); });
    Check(out[0] == u'<' && out.length() <= 1 + bound && text.data()[0] == u'<');
    Check((!out_failed || out.length() == 1) && (!text_failed || text.length() == 1));
    Check(!text_failed || out_failed);  // its own formatter starts empty, one unit shorter
    Check(!value.IsNull() || out.length() == 1);
    Check(out_failed || text_failed || ucs2string(out.c_str(), out.length()) == text);
    return 0;
}

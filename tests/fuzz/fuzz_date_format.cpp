// Drives random date format texts through the three date dialects into date formatters of five
// locales, which format random instants (byte 0: locale, default format; byte 1: dialect, zone;
// bytes 2-9: milliseconds; then the text). Checked: colours 0 to 16, bounded results, the codes
// of the factories.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/timelib/lu_calendar_time.h"

using namespace FmtLib;
using namespace TimeLib;

namespace {

struct NineHoursEast : luTimeZone {
    Impl* make() const override { return new SimpleTimeZone(9 * 3600000, Ascii("East+9")); }
};

struct World {
    ilu_ptr<luSettings> settings[5] = {
        MakeSettings(lu_locale("en_US")), MakeSettings(lu_locale("de_DE")),
        MakeSettings(lu_locale("ja_JP")), MakeSettings(lu_locale("ar_EG")),
        MakeSettings(lu_locale("hi_IN"))};
    luStringFormatDate* dialects[3] = {CreateStringFormatDate("ja", nullptr),
                                       CreateSerialStringFormatDate(),
                                       CreateVeloraStringFormatDate("FR", "fr", "FR")};
    // Pieces of date text in the three dialects.
    const std::vector<Units> pieces = Split(
        u"yyyy|yy|MMMM|MMM|MM|M|Mmmm|dddd|ddd|dd|d|DDDD|Dddd|HH|H|hh|h|kk|K|mm|m|ss|SSS|SS|S|a|A|G|"
        u"F|eee|ww|W|z|rr|r|g|gg|jy|jyy|FULL_DATE|SHORT_TIME|DATE_TIME|STANDARD|;|'|''|\\|!| |-|/|"
        u":|x|[Red]|[blue]|[|]|T[|L[|T[y4]|T[mtc]|T[012]|T[024]|T[iyg]|T[ip]|T[jy2]|T[era]|T[tz]|"
        u"T[da]|T[ts]|T[FS]|T[Cr]|T[Adf]|T[Err]|T[0ms]|T[ywoy4]|L[text]|jj|aaaa|<era>|<day name>|"
        u"<format separator>");
    NineHoursEast east;
    World() { Check(dialects[0] && dialects[1] && dialects[2]); }
};

// The action succeeds, or the calendar refuses the instant or a field; the result is bounded.
template <class Action>
void Checked(const luDateFormat& format, std::size_t bound, Action&& action) {
    try {
        Check(action());
    } catch (const LUTimeLibException&) {
        return;
    }
    std::size_t length = 0;
    while (length <= bound && format.c_str()[length] != 0) ++length;
    Check(length <= bound && format.Color() >= 0 && format.Color() <= 16);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2 + sizeof(double)) return 0;
    static World world;
    ilu_ptr<luSettings>& settings = world.settings[data[0] % 5];
    const luTimeZone& zone = (data[1] & 0x80) ? world.east : luTimeZone::utc();
    double millis;
    std::memcpy(&millis, data + 2, sizeof millis);
    const ucs2string text = Ucs2(FuzzInput(data + 10, size - 10).text(world.pieces, true));
    luFmtPattern* pattern = nullptr;
    Check(world.dialects[data[1] % 3]->ToPattern(text, pattern) == 0 && pattern != nullptr);
    std::unique_ptr<luFmtPattern> ownedPattern(pattern);
    luDateFormat* format = nullptr;
    Check(pattern->IsDate() && CreateDateFormat(settings, pattern, format) == 0 && format);
    std::unique_ptr<luDateFormat> owned(format);
    millis = std::isfinite(millis) ? std::fmod(millis, 1e15) : 0;
    auto time = [&] {
        return luCalendarTime(luPhysicalTime::Epoch + luDuration::Millisecond * millis, zone);
    };
    // A token writes at most 64 units, a named default format at most 1024.
    Checked(*owned, 64 * text.length() + 1024, [&] { return owned->Format(time()); });
    Checked(*owned, text.length(), [&] { return owned->FormatError(); });  // text from the text
    const int number = static_cast<int>(data[0] >> 3) - 4;                 // -4 to 27
    format = nullptr;
    const long code = CreateDefaultDateFormat(settings, fmtLibDefaultFormats(number), format);
    owned.reset(format);
    Check(settings->GetFmtLibDefaultFormat(number) ? code == 0 && format
                                                   : code == LU_E_FAIL && !format);
    if (owned) Checked(*owned, 1024, [&] { return owned->Format(time()); });
    return 0;
}

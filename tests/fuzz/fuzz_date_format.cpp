// Reads random date format texts in the three date dialects, builds date
// formatters of them, and formats random instants with them.
//
// Input: byte 0 chooses the locale (five) and a default format number to ask
// for; byte 1 the dialect (Ombrin, Serial or Velora) and the zone (UTC or nine
// hours east); bytes 2 to 9 a double of milliseconds from the epoch, bit for
// bit. The rest is the format text: a byte below 0xC0 picks a piece of text
// (tokens of the three dialects, quotes, escapes, colours), any other byte
// and the two after it make one UTF-16 unit.
//
// Checked: every text gives a date pattern and a formatter; Format and
// FormatError return true and leave a colour from 0 to 16 and a result that
// is no longer than the pattern's literals plus a few dozen units a token;
// CreateDefaultDateFormat succeeds exactly for the values that have a text.
// A field read that the calendar refuses may throw a TimeLib exception; that
// is its documented way out. ASan and UBSan catch the rest.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

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

// No token writes more than this: the longest word of a locale, or an era
// name, a blank and a number.
constexpr unsigned kLongestTokenText = 64;
// No default format of a locale writes more than this.
constexpr unsigned kLongestDefault = 1024;

ucs2string Text(const char* ascii) {
    return ucs2string(reinterpret_cast<const unsigned char*>(ascii));
}

class NineHoursEast : public luTimeZone {
  public:
    Impl* make() const override { return new SimpleTimeZone(9 * 3600000, Text("East+9")); }
};

const char* const kLocales[] = {"en_US", "de_DE", "ja_JP", "ar_EG", "hi_IN"};
constexpr unsigned kLocaleCount = sizeof(kLocales) / sizeof(kLocales[0]);

struct World {
    ilu_ptr<luSettings> settings[kLocaleCount];
    std::unique_ptr<luStringFormatDate> dialects[3];
    NineHoursEast east;

    World() {
        for (unsigned i = 0; i < kLocaleCount; ++i) {
            ilu_ptr<luPreferences> prefs;
            Check(CreatePreferences(prefs) == 0 && prefs);
            prefs->EndBuild();
            Check(CreateSettings(lu_locale(kLocales[i]), prefs, settings[i]) == 0 && settings[i]);
        }
        dialects[0].reset(CreateStringFormatDate("ja", nullptr));
        dialects[1].reset(CreateSerialStringFormatDate());
        dialects[2].reset(CreateVeloraStringFormatDate("FR", "fr", "FR"));
        for (auto& dialect : dialects) Check(dialect != nullptr);
    }
};

World& TheWorld() {
    static World world;
    return world;
}

// Pieces of date text in the three dialects.
const char* const kPieces[] = {"yyyy",       "yy",
                               "MMMM",       "MMM",
                               "MM",         "M",
                               "Mmmm",       "dddd",
                               "ddd",        "dd",
                               "d",          "DDDD",
                               "Dddd",       "HH",
                               "H",          "hh",
                               "h",          "kk",
                               "K",          "mm",
                               "m",          "ss",
                               "SSS",        "SS",
                               "S",          "a",
                               "A",          "G",
                               "F",          "eee",
                               "ww",         "W",
                               "z",          "rr",
                               "r",          "g",
                               "gg",         "jy",
                               "jyy",        "FULL_DATE",
                               "SHORT_TIME", "DATE_TIME",
                               "STANDARD",   ";",
                               "'",          "''",
                               "\\",         "!",
                               " ",          "-",
                               "/",          ":",
                               "x",          "[Red]",
                               "[blue]",     "[",
                               "]",          "T[",
                               "L[",         "T[y4]",
                               "T[mtc]",     "T[012]",
                               "T[024]",     "T[iyg]",
                               "T[ip]",      "T[jy2]",
                               "T[era]",     "T[tz]",
                               "T[da]",      "T[ts]",
                               "T[FS]",      "T[Cr]",
                               "T[Adf]",     "T[Err]",
                               "T[0ms]",     "T[ywoy4]",
                               "L[text]",    "jj",
                               "aaaa",       "<era>",
                               "<day name>", "<format separator>"};
constexpr unsigned kPieceCount = sizeof(kPieces) / sizeof(kPieces[0]);

// The instant of the input, or the epoch when it lies outside the calendar.
std::unique_ptr<luCalendarTime> Instant(double millis, const luTimeZone& zone) {
    if (!std::isfinite(millis)) millis = 0;
    try {
        return std::make_unique<luCalendarTime>(
            luPhysicalTime::Epoch + luDuration::Millisecond * std::fmod(millis, 1e15), zone);
    } catch (const LUTimeLibException&) {
        return std::make_unique<luCalendarTime>(luPhysicalTime::Epoch, zone);
    }
}

unsigned Length(const unsigned short* text) {
    unsigned length = 0;
    while (length < 65536 && text[length] != 0) ++length;
    return length;
}

// The most a pattern can write; a named default format in it stands for one
// of the locale's texts, which are short.
unsigned Bound(const luFmtPattern& pattern) {
    unsigned bound = 0;
    for (const luToken* token : pattern) {
        if (IsDefaultDateFormatToken(token->TokenId())) return kLongestDefault;
        bound += token->IsLiteral() ? token->LiteralLength() : kLongestTokenText;
    }
    return bound;
}

void CheckResult(const luDateFormat& format, unsigned bound) {
    Check(format.c_str() != nullptr);
    Check(Length(format.c_str()) <= bound);
    Check(format.Color() >= 0 && format.Color() <= 16);
}

void FormatOne(luDateFormat& format, const luCalendarTime& time, unsigned bound) {
    try {
        Check(format.Format(time));
    } catch (const LUTimeLibException&) {
        return;
    }
    CheckResult(format, bound);
}

void CheckDefault(ilu_ptr<luSettings>& settings, int number, const luCalendarTime& time) {
    luDateFormat* format = nullptr;
    const long code =
        CreateDefaultDateFormat(settings, static_cast<fmtLibDefaultFormats>(number), format);
    if (settings->GetFmtLibDefaultFormat(number) == nullptr) {
        Check(code == LU_E_FAIL && format == nullptr);
        return;
    }
    Check(code == 0 && format != nullptr);
    std::unique_ptr<luDateFormat> owned(format);
    FormatOne(*owned, time, kLongestDefault);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kHeader = 2 + sizeof(double);
    if (size < kHeader) return 0;
    World& world = TheWorld();
    ilu_ptr<luSettings>& settings = world.settings[data[0] % kLocaleCount];
    luStringFormatDate& dialect = *world.dialects[data[1] % 3];
    const luTimeZone& zone =
        (data[1] & 0x80) ? static_cast<const luTimeZone&>(world.east) : luTimeZone::utc();
    double millis;
    std::memcpy(&millis, data + 2, sizeof millis);

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
    Check(dialect.ToPattern(text, pattern) == 0 && pattern != nullptr);
    std::unique_ptr<luFmtPattern> ownedPattern(pattern);
    Check(pattern->IsDate());

    luDateFormat* format = nullptr;
    const long code = CreateDateFormat(settings, pattern, format);
    std::unique_ptr<luDateFormat> owned(format);
    const auto time = Instant(millis, zone);
    // Only a named default format can fail, and none of the locales lacks one.
    Check(code == 0 && format != nullptr);

    const unsigned bound = Bound(*pattern);
    FormatOne(*owned, *time, bound);
    FormatOne(*owned, luCalendarTime(luPhysicalTime::Epoch, zone), bound);
    Check(owned->FormatError());
    CheckResult(*owned, text.length());  // the error text is part of the text

    CheckDefault(settings, static_cast<int>(data[0] >> 3) - 4, *time);  // -4 to 27
    return 0;
}

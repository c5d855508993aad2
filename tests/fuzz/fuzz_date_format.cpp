// Date formatters and inputs of seven locales. Bytes 0-9: locale and default format, dialect
// reading the text as a pattern and zone, milliseconds to format. Bytes 10-17: a safe pattern
// (bit 7; fields written as read, between literals), pivot year, pattern length n, the instant
// (seconds) a safe pattern writes when the text does not read; n bytes of pattern (from 0xF0 a
// token the input cannot read). Then the text. Formatters: colours 0 to 16, bounded results, the
// codes of the factories. Inputs: creation fails, with no object, exactly for empty patterns and
// those with an unreadable token (either way for a named default first); a scan ends within the
// text; a refused text leaves the time alone; a date read is written in a text the input reads
// again, for the safe patterns to its end and to the same fields.
#include "fuzz_support.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/fmtlib/lu_input_date.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/timelib/lu_calendar_time.h"

using namespace FmtLib;
using namespace TimeLib;

namespace {

// Tokens written as they are read, and their fields.
const luFmtTokens kSafe[13] = {
    TokMonthDay00, TokMonthDay0, TokMonth01,  TokMonth1,  TokYear0000, TokHour00To23, TokHour0To23,
    TokHour01To24, TokHour1To24, TokMinute00, TokMinute0, TokSecond00, TokSecond0};
const luField* const kFields[13] = {
    &Day_of_month, &Day_of_month, &Month,  &Month,  &Year,   &Hour_of_day, &Hour_of_day,
    &Hour_of_day,  &Hour_of_day,  &Minute, &Minute, &Second, &Second};
const int kUnreadable[16] = {2, 3, 36, 37, 38, 56, 57, 59, 63, 64, 67, 71, 102, 402, 303, 312};

bool Readable(int token) {
    return (token >= 10 && token <= 35) || (token >= 39 && token <= 43) ||
           (token >= 46 && token <= 55) || token == 65 || token == 66;
}

struct NineHoursEast : luTimeZone {
    Impl* make() const override { return new SimpleTimeZone(9 * 3600000, Ascii("East+9")); }
};

struct World {
    std::vector<ilu_ptr<luSettings>> settings = SevenSettings();
    luStringFormatDate* dialects[3] = {CreateStringFormatDate("ja", nullptr),
                                       CreateSerialStringFormatDate(),
                                       CreateVeloraStringFormatDate("FR", "fr", "FR")};
    std::vector<Units> pieces[7];                                                   // by locale
    const std::vector<Units> literals = Split(u"/|.|-|:| |, |T|h|年|1|\\|  |at ");  // 8 safe
    NineHoursEast east;
    World() {
        Check(dialects[0] && dialects[1] && dialects[2]);
        for (int i = 0; i < 7; ++i) {
            const lu_ctime& facet = settings[i]->GetImp()->DateFacet();
            pieces[i] = Split(
                u"yyyy|yy|MMMM|MMM|MM|M|Mmmm|dddd|ddd|dd|d|DDDD|Dddd|HH|H|hh|h|kk|K|mm|m|ss|SSS|SS|"
                u"S|a|A|G|F|eee|ww|W|z|rr|r|g|gg|jy|jyy|FULL_DATE|SHORT_TIME|DATE_TIME|STANDARD|;|'"
                u"|"
                u"''|\\|!| |-|/|:|x|[Red]|[blue]|[|]|T[|L[|T[y4]|T[mtc]|T[012]|T[024]|T[iyg]|T[ip]|"
                u"T[jy2]|T[era]|T[tz]|T[da]|T[ts]|T[FS]|T[Cr]|T[Adf]|T[Err]|T[0ms]|T[ywoy4]|L[text]"
                u"|"
                u"jj|aaaa|<era>|<day name>|<format separator>|0|1|2|3|4|5|6|7|8|9|12|24|31|1999|"
                u"2026|.|,|\t|\u00A0|\u0661|\u0669|\u06F2|\u0968|\uFF13|p|T|h|明治|平成|年|月|日");
            const auto add = [&](const unsigned short* text) {
                if (text && *text != 0) pieces[i].emplace_back(text, text + Length(text, 4096));
            };
            for (int month = 1; month <= 12; ++month)
                add(facet.GetNameOfMonth(month)), add(facet.GetShortNameOfMonth(month));
            for (int day = 0; day < 7; ++day)
                add(facet.GetNameOfDay(day)), add(facet.GetShortNameOfDay(day));
            add(facet.GetAmPm(0)), add(facet.GetAmPm(1));
            add(facet.GetDateSeparator()), add(facet.GetTimeSeparator());
        }
    }
};

// The action succeeds, or the calendar refuses the instant or a field; the result is bounded.
template <class Action>
void Checked(const luDateFormat& format, std::size_t bound, Action&& action) {
    try {
        Check(action());
    } catch (const LUTimeLibException&) {
        return;
    }
    CheckResult(format.c_str(), bound, format.Color());
}

void FormatDates(World& world, const std::uint8_t* data, const ucs2string& text) {
    ilu_ptr<luSettings>& settings = world.settings[data[0] % 7];
    const luTimeZone& zone = (data[1] & 0x80) ? world.east : luTimeZone::utc();
    const double raw = FuzzInput(data + 2, 8).bits<double>();
    const double millis = std::isfinite(raw) ? std::fmod(raw, 1e15) : 0;
    const auto pattern = Read(*world.dialects[data[1] % 3], text);
    luDateFormat* format = nullptr;
    Check(pattern->IsDate() && CreateDateFormat(settings, pattern.get(), format) == 0 && format);
    std::unique_ptr<luDateFormat> owned(format);
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
}

void ReadDates(World& world, const std::uint8_t* data, std::size_t end, const Units& exact) {
    const bool safe = data[10] & 0x80;
    const int pivot = static_cast<std::int16_t>(data[11] << 8 | data[12]);
    std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
    std::vector<const luField*> fields;
    bool unreadable = false, named = false;
    for (std::size_t i = 18; i < end; ++i) {
        const unsigned b = data[i];
        const Units& literal = world.literals[safe ? (b >> 4) % 8 : b % world.literals.size()];
        if (safe && i > 18) pattern->push_back(literal.data(), literal.data() + literal.size());
        if (safe) pattern->push_back(kSafe[b % 13]), fields.push_back(kFields[b % 13]);
        if (safe) continue;
        if (b >= 0xF0) {
            pattern->push_back(static_cast<luFmtTokens>(kUnreadable[b - 0xF0]));
            named = named || (i == 18 && kUnreadable[b - 0xF0] >= 300), unreadable = true;
        } else if (b < 0xA0 && Readable(10 + b % 57)) {
            pattern->push_back(static_cast<luFmtTokens>(10 + b % 57));
        } else {
            pattern->push_back(literal.data(), literal.data() + literal.size());
        }
    }
    luInputDate* input = nullptr;
    const long code = CreateInputDate(world.settings[data[0] % 7], pattern.get(), input, pivot);
    std::unique_ptr<luInputDate> owned(input);
    Check(code == 0 ? input != nullptr : code == LU_E_FAIL && input == nullptr);
    Check(named || (code == 0) == (!unreadable && pattern->size() > 0));
    if (!input) return;
    luCalendarTime time(luTimeZone::utc());
    const luPhysicalTime before = time.physicalTime();
    int position = -1;
    const bool read = input->Scan(exact.data(), time, position);
    Check(position >= 0 && position < static_cast<int>(exact.size()));
    Check(read ? !input->IsCalendarError()
               : input->IsCalendarError() || time.physicalTime() == before);
    if (!read && !safe) return;
    const double seconds = FuzzInput(data + 14, 4).u32();  // to 2106
    if (!read) time.reset(luPhysicalTime::Epoch + luDuration::Second * seconds);
    Check(input->Format(time));
    const Units written = Exact(input->c_str());
    luCalendarTime again(luFields().set(Year, time.year()), luTimeZone::utc());  // 1 January
    const bool reread = input->Scan(written.data(), again, position);
    Check(position >= 0 && position < static_cast<int>(written.size()));
    if (!safe || time.era() != 1 || time.year() < 1000 || time.year() > 9999) return;
    Check(reread && position + 1 == static_cast<int>(written.size()));
    for (const luField* field : fields) Check(again.get(*field) == time.get(*field));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 18) return 0;
    static World world;
    const std::size_t end = std::min(size, 18 + std::size_t{data[13] % 16u});
    Units text = FuzzInput(data + end, size - end).text(world.pieces[data[0] % 7], true);
    FormatDates(world, data, Ucs2(text));
    text.push_back(0);
    ReadDates(world, data, end, text);
    return 0;
}

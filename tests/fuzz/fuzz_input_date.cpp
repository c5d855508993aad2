// Reads random texts by random date patterns with the date inputs of seven locales, then reads
// what they write back. Byte 0: settings, and (bit 7) a safe pattern, of fields written as they
// are read, between literals; bytes 1-2: the pivot year; byte 3: the pattern length n; bytes 4-7:
// the instant (seconds) a safe pattern writes when the text does not read; n bytes of pattern (a
// token or a literal each; from 0xF0 a token the input cannot read); then the text. Checked:
// creation fails, with no object, exactly for empty patterns and those with a token that cannot
// be read (either way for a named default first); position within the text; a refused text
// leaves the time alone; a date read is written in a text the input reads again, for the safe
// patterns to its end and to the same fields.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "fuzz_support.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/fmtlib/lu_input_date.h"
#include "kai18n/frame/result_codes.h"
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
struct World {
    ilu_ptr<luSettings> settings[7];
    std::vector<Units> pieces[7];
    const std::vector<Units> literals = Split(u"/|.|-|:| |, |T|h|年|1|\\|  |at ");  // 8 safe
    World() {
        const char* const names[] = {"en_US", "de_DE", "ar_EG", "ja_JP", "fr_FR", "hi_IN"};
        for (int i = 0; i < 7; ++i) {
            settings[i] = MakeSettings(i < 6 ? lu_locale(names[i]) : lu_locale::classic());
            const lu_ctime& facet = settings[i]->GetImp()->DateFacet();
            pieces[i] = Split(
                u"0|1|2|3|4|5|6|7|8|9|12|24|31|1999|2026|/|.|-|:|,| |\t|\u00A0|\u0661|"
                u"\u0669|\u06F2|\u0968|\uFF13|a|p|x|T|h|M|H|S|明治|平成|年|月|日");
            const auto add = [&](const unsigned short* text) {
                if (text && *text != 0)
                    pieces[i].push_back(Exact(text)), pieces[i].back().pop_back();
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 8) return 0;
    static World world;
    const bool safe = data[0] & 0x80;
    const int pivot = static_cast<std::int16_t>(data[1] << 8 | data[2]);
    const std::size_t end = std::min(size, 8 + std::size_t{data[3] % 16u});
    std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
    std::vector<const luField*> fields;
    bool unreadable = false, named = false;
    for (std::size_t i = 8; i < end; ++i) {
        const unsigned b = data[i];
        const Units& literal = world.literals[safe ? (b >> 4) % 8 : b % world.literals.size()];
        if (safe && i > 8) pattern->push_back(literal.data(), literal.data() + literal.size());
        if (safe) pattern->push_back(kSafe[b % 13]), fields.push_back(kFields[b % 13]);
        if (safe) continue;
        if (b >= 0xF0) {
            pattern->push_back(static_cast<luFmtTokens>(kUnreadable[b - 0xF0]));
            named = named || (i == 8 && kUnreadable[b - 0xF0] >= 300), unreadable = true;
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
    if (!input) return 0;

    Units exact = FuzzInput(data + end, size - end).text(world.pieces[data[0] % 7], false);
    exact.push_back(0);
    luCalendarTime time(luTimeZone::utc());
    const luPhysicalTime before = time.physicalTime();
    int position = -1;
    const bool read = input->Scan(exact.data(), time, position);
    Check(position >= 0 && position < static_cast<int>(exact.size()));
    Check(read ? !input->IsCalendarError()
               : input->IsCalendarError() || time.physicalTime() == before);
    if (!read && !safe) return 0;
    const std::uint32_t seconds =
        std::uint32_t{data[4]} << 24 | data[5] << 16 | data[6] << 8 | data[7];
    if (!read) time.reset(luPhysicalTime::Epoch + luDuration::Second * double(seconds));  // to 2106

    Check(input->Format(time));
    const Units written = Exact(input->c_str());
    luCalendarTime again(luFields().set(Year, time.year()), luTimeZone::utc());  // 1 January
    const bool reread = input->Scan(written.data(), again, position);
    Check(position >= 0 && position < static_cast<int>(written.size()));
    if (!safe || time.era() != 1 || time.year() < 1000 || time.year() > 9999) return 0;
    Check(reread && position + 1 == static_cast<int>(written.size()));
    for (const luField* field : fields) Check(again.get(*field) == time.get(*field));
    return 0;
}

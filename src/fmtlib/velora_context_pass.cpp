// The Velora date dialect writes months and minutes alike ("mm"); this pass
// decides from the neighbours which one a month token means.
#include <memory>
#include <new>

#include "fmtlib/fmt_string_codec.h"

namespace FmtLib {
namespace {

void Replace(luFmtPattern& pattern, int position, luFmtTokens token) {
    std::unique_ptr<luToken> fresh(luToken::MakeToken(token));
    if (fresh == nullptr) throw std::bad_alloc();
    luFmtPattern::iterator at = pattern.erase(pattern.begin() + position);
    pattern.insert(at, fresh.get());
}

bool IsHour(int t) {
    return t >= TokHour00To23 && t <= TokHour0To11;
}

// Month and day names, years, and day or week numbers.
bool IsDatePart(int t) {
    return (t >= TokMonthName && t <= TokAbbMonthNameCap) ||
           (t >= TokYear0000 && t <= TokJapaneseImpYear) ||
           (t >= TokMonthDay00 && t <= TokWeekOfMonth) || t == TokYearOfWeekOfYear0000 ||
           t == TokYearOfWeekOfYear00;
}

// Day names, days of the month, day counts and weeks: what follows a month.
bool IsDayPart(int t) {
    return (t >= TokDayName && t <= TokMonthDay0) ||
           (t >= TokDayOfWeekInMonth && t <= TokWeekOfMonth);
}

bool IsMonth(int t) {
    return t == TokMonth01 || t == TokMonth1;
}

bool IsMinute(int t) {
    return t == TokMinute00 || t == TokMinute0;
}

}  // namespace

void RunVeloraContextPass(luFmtPattern& pattern) {
    bool afterHour = false;
    bool afterDate = false;
    bool monthPending = false;
    bool minutePending = false;
    int remembered = 0;
    const int size = static_cast<int>(pattern.size());
    for (int i = 0; i < size; ++i) {
        const int t = pattern[i]->TokenId();
        if (afterHour && IsMonth(t)) {
            Replace(pattern, i, t == TokMonth01 ? TokMinute00 : TokMinute0);
            afterHour = false;
        } else if (afterDate && IsMinute(t)) {
            Replace(pattern, i, t == TokMinute00 ? TokMonth01 : TokMonth1);
            afterDate = false;
        } else if (monthPending && (t == TokSecond00 || t == TokSecond0)) {
            const bool twoDigits = pattern[remembered]->TokenId() == TokMonth01;
            Replace(pattern, remembered, twoDigits ? TokMinute00 : TokMinute0);
            monthPending = false;
        } else if (minutePending && !afterHour && IsDayPart(t)) {
            const bool twoDigits = pattern[remembered]->TokenId() == TokMinute00;
            Replace(pattern, remembered, twoDigits ? TokMonth01 : TokMonth1);
            minutePending = false;
        } else if (t == TokLiteral || t == TokDateSeparator || t == TokTimeSeparator) {
            // Literals and separators leave the context as it is.
        } else if (IsHour(t)) {
            afterHour = true;
            afterDate = monthPending = minutePending = false;
        } else if (IsDatePart(t)) {
            afterDate = true;
            afterHour = monthPending = minutePending = false;
        } else if (IsMonth(t)) {
            remembered = i;
            monthPending = true;
        } else if (IsMinute(t)) {
            remembered = i;
            minutePending = true;
        } else {
            afterHour = afterDate = monthPending = minutePending = false;
        }
    }
}

}  // namespace FmtLib

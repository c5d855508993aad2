// Date patterns as Excel format strings. Excel has one section for a date
// and no error text, so only the first section is written, with its colour
// ahead of it, and each token becomes Excel's code for the same field.
#include <algorithm>
#include <memory>
#include <new>

#include "fmtlib/excel_string_writing.h"
#include "kai18n/fmtlib/lu_excel_string_format.h"
#include "kai18n/frame/result_codes.h"

namespace FmtLib {
namespace {

using excel::Units;

// Excel reads one colour, ahead of the section; the last one the first
// section names is the one its formatter shows. 0 for none.
int LastColourOfFirstSection(const luFmtPattern& pattern) {
    int colour = 0;
    for (const luToken* token : pattern) {
        if (token->TokenId() == TokFormatSeparator) break;
        if (IsColourToken(token->TokenId())) colour = token->TokenId();
    }
    return colour;
}

// A named default format stands for the whole pattern and is spelled out
// from the locale; null when the pattern names none.
std::unique_ptr<luFmtPattern> DefaultInstead(const luSettings& settings,
                                             const luFmtPattern& pattern) {
    const auto named = std::find_if(pattern.begin(), pattern.end(), [](const luToken* token) {
        return IsDefaultDateFormatToken(token->TokenId());
    });
    if (named == pattern.end()) return nullptr;
    auto parsed = excel::ParseDefaultFormat(settings, (*named)->TokenId() - TokFullDate,
                                            /*isDate=*/true);
    if (parsed == nullptr) parsed.reset(CreateDateFmtPattern());
    if (parsed == nullptr) throw std::bad_alloc();
    return parsed;
}

// Excel's code for a date token; null for the tokens it has no code for.
// Excel tells months from minutes by their neighbours, as the Velora dates
// do, so both are written the same.
const char* DateCode(int token) {
    switch (token) {
        case TokAmPm:
        case TokAmPmUpper:
        case TokAmPmLower:
        case TokAmPmCap:
            return "AM/PM";
        case TokMonthName:
        case TokMonthNameUpper:
        case TokMonthNameLower:
        case TokMonthNameCap:
            return "mmmm";
        case TokAbbMonthName:
        case TokAbbMonthNameUpper:
        case TokAbbMonthNameLower:
        case TokAbbMonthNameCap:
            return "mmm";
        case TokHour00To23:
        case TokHour01To12:
        case TokHour01To24:
        case TokHour00To11:
            return "hh";
        case TokHour0To23:
        case TokHour1To12:
        case TokHour1To24:
        case TokHour0To11:
            return "h";
        case TokMonth01:
        case TokMinute00:
            return "mm";
        case TokMonth1:
        case TokMinute0:
            return "m";
        case TokSecond00:
            return "ss";
        case TokSecond0:
            return "s";
        case TokMillisecond000:
            return ".000";
        case TokHundredthSecond00:
            return ".00";
        case TokTenthSecond0:
            return ".0";
        case TokYear0000:
            return "yyyy";
        case TokYear00:
            return "yy";
        case TokJapaneseImpYear0:
            return "ggg e";
        case TokJapaneseImpYear:
            return "e";
        case TokJapaneseImpYearEng:
            return "ge";
        case TokDayName:
        case TokDayNameUpper:
        case TokDayNameLower:
        case TokDayNameCap:
            return "dddd";
        case TokAbbDayName:
        case TokAbbDayNameUpper:
        case TokAbbDayNameLower:
        case TokAbbDayNameCap:
            return "ddd";
        case TokMonthDay00:
            return "dd";
        case TokMonthDay0:
            return "d";
        case TokDateSeparator:
            return "/";
        case TokTimeSeparator:
            return ":";
        case TokJapaneseImperialPeriod:
            return "ggg";
        case TokJapaneseImperialYear0:
            return "e";
        case TokJapaneseImperialYear00:
            return "ee";
        default:
            return nullptr;
    }
}

void WriteToken(Units& out, const luToken& token) {
    if (token.IsLiteral())
        return excel::AppendQuoted(out, token.LiteralText(), token.LiteralLength());
    if (const char* code = DateCode(token.TokenId())) excel::AppendAscii(out, code);
}

}  // namespace

luExcelStringFormatDate::luExcelStringFormatDate(const ilu_ptr<luSettings>& settings)
    : m_settings(settings), m_imp(settings->GetImp()) {}

luExcelStringFormatDate::~luExcelStringFormatDate() = default;

long luExcelStringFormatDate::ToPattern(ucs2string /*text*/, luFmtPattern*& pattern) {
    delete pattern;
    pattern = nullptr;
    return LU_E_FAIL;
}

bool luExcelStringFormatDate::FromPattern(const luFmtPattern& pattern, ucs2string& text) {
    // The work is done on a date pattern of its own; one of number kind
    // leaves that empty, as assigning between kinds does.
    if (!pattern.IsDate()) return true;
    const std::unique_ptr<luFmtPattern> named = DefaultInstead(*m_settings, pattern);
    const luFmtPattern& source = named != nullptr ? *named : pattern;
    Units out;
    const int colour = LastColourOfFirstSection(source);
    if (colour != 0) excel::AppendColour(out, colour);
    // Excel has no error text: what follows the first separator is left out.
    for (const luToken* token : source) {
        if (token->TokenId() == TokFormatSeparator) break;
        if (!IsColourToken(token->TokenId())) WriteToken(out, *token);
    }
    excel::Flush(out, text);
    return true;
}

luExcelStringFormatDate* CreateExcelSerialStringFormatDate(ilu_ptr<luSettings>& settings) {
    if (!settings || settings->GetImp() == nullptr) return nullptr;
    return new (std::nothrow) luExcelStringFormatDate(settings);
}

}  // namespace FmtLib

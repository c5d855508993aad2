#include "locale_data.h"

#include <unicode/calendar.h>
#include <unicode/datefmt.h>
#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>
#include <unicode/numfmt.h>
#include <unicode/numsys.h>
#include <unicode/smpdtfmt.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>

#include <climits>
#include <memory>

namespace gen {
namespace {

u16 FromIcu(const icu::UnicodeString& text) {
    return u16(text.getBuffer(), static_cast<std::size_t>(text.length()));
}

// The pattern of one of the locale's number formats (in its default numbering
// system), as ICU's number format for that style holds it.
bool NumberPattern(const icu::Locale& locale, UNumberFormatStyle style, u16& pattern) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(locale, style, status));
    auto* decimal = dynamic_cast<icu::DecimalFormat*>(format.get());
    if (U_FAILURE(status) || decimal == nullptr) return false;
    icu::UnicodeString text;
    decimal->toPattern(text);
    pattern = FromIcu(text);
    return !pattern.empty();
}

u16 PatternOf(icu::DateFormat* format) {
    icu::UnicodeString pattern;
    if (auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format)) simple->toPattern(pattern);
    delete format;
    return FromIcu(pattern);
}

bool SingleUnit(const u16& text) {
    return text.size() == 1;
}

bool ReadNumeric(LocaleData& data) {
    NumericData& n = data.numeric;
    const icu::Locale locale(data.icu_name.c_str());
    UErrorCode status = U_ZERO_ERROR;
    icu::DecimalFormatSymbols symbols(locale, status);
    std::unique_ptr<icu::NumberingSystem> system(
        icu::NumberingSystem::createInstance(locale, status));
    if (U_FAILURE(status) || !system || system->isAlgorithmic() || system->getRadix() != 10) {
        data.warnings.push_back("no decimal numbering system");
        return false;
    }
    n.numbering_system = system->getName();
    auto symbol = [&](icu::DecimalFormatSymbols::ENumberFormatSymbol which) {
        return StripBidiMarks(FromIcu(symbols.getSymbol(which)));
    };

    u16 patterns[4];
    const UNumberFormatStyle kStyles[4] = {UNUM_DECIMAL, UNUM_CURRENCY, UNUM_PERCENT,
                                           UNUM_SCIENTIFIC};
    for (int i = 0; i < 4; ++i) {
        if (!NumberPattern(locale, kStyles[i], patterns[i])) {
            data.warnings.push_back("no number pattern of style " + std::to_string(kStyles[i]));
            return false;
        }
    }

    const u16 decimal = symbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol);
    const u16 group = symbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol);
    if (!SingleUnit(decimal) || !SingleUnit(group)) {
        data.warnings.push_back("decimal or group separator is not one unit");
        return false;
    }
    n.decimal_point = decimal[0];
    n.grouping = GroupingOf(patterns[0]);
    n.thousands_sep = n.grouping.empty() ? 0 : group[0];
    n.mode = NegativeModeOf(patterns[0]);

    u16 plus = symbol(icu::DecimalFormatSymbols::kPlusSignSymbol);
    u16 minus = symbol(icu::DecimalFormatSymbols::kMinusSignSymbol);
    if (!SingleUnit(plus)) {
        data.notes.insert("plus sign '" + ToUtf8(plus) + "' -> '+'");
        plus = u16(1, u'+');
    }
    if (!SingleUnit(minus)) {
        data.notes.insert("minus sign '" + ToUtf8(minus) + "' -> '-'");
        minus = u16(1, u'-');
    }
    static const icu::DecimalFormatSymbols::ENumberFormatSymbol kDigits[10] = {
        icu::DecimalFormatSymbols::kZeroDigitSymbol,  icu::DecimalFormatSymbols::kOneDigitSymbol,
        icu::DecimalFormatSymbols::kTwoDigitSymbol,   icu::DecimalFormatSymbols::kThreeDigitSymbol,
        icu::DecimalFormatSymbols::kFourDigitSymbol,  icu::DecimalFormatSymbols::kFiveDigitSymbol,
        icu::DecimalFormatSymbols::kSixDigitSymbol,   icu::DecimalFormatSymbols::kSevenDigitSymbol,
        icu::DecimalFormatSymbols::kEightDigitSymbol, icu::DecimalFormatSymbols::kNineDigitSymbol};
    u16 digits;
    for (auto which : kDigits) {
        const u16 digit = symbol(which);
        if (!SingleUnit(digit)) {
            data.warnings.push_back("a digit is not one unit");
            return false;
        }
        digits += digit;
    }
    // The exponent letters: CLDR's exponential symbol in lower and upper case
    // when it is one letter with two cases, else 'e' and 'E'.
    const u16 exponent = symbol(icu::DecimalFormatSymbols::kExponentialSymbol);
    char16_t lowerExponent = u'e';
    char16_t upperExponent = u'E';
    if (SingleUnit(exponent) && u_tolower(exponent[0]) != u_toupper(exponent[0])) {
        lowerExponent = static_cast<char16_t>(u_tolower(exponent[0]));
        upperExponent = static_cast<char16_t>(u_toupper(exponent[0]));
    } else {
        data.notes.insert("exponential symbol '" + ToUtf8(exponent) + "' -> e/E");
    }
    n.block =
        plus + minus + digits + u"abcdef" + digits + u"ABCDEF" + lowerExponent + upperExponent;

    NumberSymbols numberSymbols;
    numberSymbols.percent = symbol(icu::DecimalFormatSymbols::kPercentSymbol);
    numberSymbols.permille = symbol(icu::DecimalFormatSymbols::kPerMillSymbol);
    for (int i = 0; i < 4; ++i)
        n.formats[i] = ToCanonicalNumber(patterns[i], numberSymbols, data.notes);
    return true;
}

bool ReadTime(LocaleData& data) {
    TimeData& t = data.time;
    // The library computes Gregorian dates only, so every locale is read in
    // its Gregorian calendar, also where CLDR's default calendar is another.
    const std::string gregorianName = data.icu_name + "@calendar=gregorian";
    const icu::Locale locale(gregorianName.c_str());
    UErrorCode status = U_ZERO_ERROR;
    icu::DateFormatSymbols symbols(locale, status);
    if (U_FAILURE(status)) {
        data.warnings.push_back("no date format symbols");
        return false;
    }
    using Symbols = icu::DateFormatSymbols;
    using Format = icu::DateFormat;
    const Format::EStyle kStyles[4] = {Format::kFull, Format::kLong, Format::kMedium,
                                       Format::kShort};
    std::vector<DateItem> dates[4];
    std::vector<DateItem> times[4];
    std::vector<DateItem> dateTimes[4];
    for (int i = 0; i < 4; ++i) {
        dates[i] = ParseDatePattern(PatternOf(Format::createDateInstance(kStyles[i], locale)));
        times[i] = ParseDatePattern(PatternOf(Format::createTimeInstance(kStyles[i], locale)));
        dateTimes[i] = ParseDatePattern(
            PatternOf(Format::createDateTimeInstance(kStyles[i], kStyles[i], locale)));
        if (dates[i].empty() || times[i].empty() || dateTimes[i].empty()) {
            data.warnings.push_back("missing date or time pattern");
            return false;
        }
    }
    // Names are read in the context that the locale's own patterns write
    // them in: day names as the full date has them (stand-alone for 'c',
    // else the format forms), month names as the long date has them
    // (stand-alone for 'L').
    auto uses = [](const std::vector<DateItem>& items, char16_t letter) {
        for (const DateItem& item : items)
            if (item.letter == letter) return true;
        return false;
    };
    const Symbols::DtContextType dayContext =
        uses(dates[0], u'c') ? Symbols::STANDALONE : Symbols::FORMAT;
    const Symbols::DtContextType monthContext =
        uses(dates[1], u'L') ? Symbols::STANDALONE : Symbols::FORMAT;
    if (dayContext == Symbols::STANDALONE) data.notes.insert("stand-alone day names");
    if (monthContext == Symbols::STANDALONE) data.notes.insert("stand-alone month names");

    int32_t count = 0;
    const icu::UnicodeString* days = symbols.getWeekdays(count, dayContext, Symbols::WIDE);
    const icu::UnicodeString* shortDays =
        symbols.getWeekdays(count, dayContext, Symbols::ABBREVIATED);
    if (count != 8) return false;
    for (int i = 0; i < 7; ++i) {
        // ICU counts from Sunday = 1; the records start on Monday.
        const int icuDay = i == 6 ? UCAL_SUNDAY : UCAL_MONDAY + i;
        t.days[i] = FromIcu(days[icuDay]);
        t.short_days[i] = FromIcu(shortDays[icuDay]);
    }
    const icu::UnicodeString* months = symbols.getMonths(count, monthContext, Symbols::WIDE);
    const icu::UnicodeString* shortMonths =
        symbols.getMonths(count, monthContext, Symbols::ABBREVIATED);
    if (count != 12) return false;
    for (int i = 0; i < 12; ++i) {
        t.months[i] = FromIcu(months[i]);
        t.short_months[i] = FromIcu(shortMonths[i]);
    }
    const icu::UnicodeString* amPm = symbols.getAmPmStrings(count);
    if (count != 2) return false;
    t.am_pm[0] = FromIcu(amPm[0]);
    t.am_pm[1] = FromIcu(amPm[1]);

    // Eras, latest first, with the extended year in which each begins; an era
    // whose years run backwards is marked with INT32_MIN.
    const icu::UnicodeString* eras = symbols.getEras(count);
    std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(locale, status));
    if (U_FAILURE(status) || std::string(calendar->getType()) != "gregorian" || count < 1) {
        data.warnings.push_back("no Gregorian calendar");
        return false;
    }
    auto extendedYear = [&](int era, int year) {
        calendar->clear();
        calendar->set(UCAL_ERA, era);
        calendar->set(UCAL_YEAR, year);
        return calendar->get(UCAL_EXTENDED_YEAR, status);
    };
    for (int era = count - 1; era >= 0; --era) {
        const int32_t first = extendedYear(era, 1);
        const bool backwards = extendedYear(era, 2) < first;
        t.eras.push_back(FromIcu(eras[era]));
        t.era_years.push_back(backwards ? INT32_MIN : first);
    }
    if (U_FAILURE(status) || count != 2) {
        data.warnings.push_back("unexpected Gregorian eras");
        return false;
    }
    t.ad_bc[0] = FromIcu(eras[0]);
    t.ad_bc[1] = FromIcu(eras[1]);

    std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status)) return false;
    // The locale's twelve-hour time with seconds; where CLDR gives it without
    // a half-day marker, its form with the flexible day period (B), whose
    // field the records write with the half-day markers.
    std::vector<DateItem> twelveHour =
        ParseDatePattern(FromIcu(generator->getBestPattern(icu::UnicodeString(u"hms"), status)));
    if (!uses(twelveHour, u'a') && !uses(twelveHour, u'b') && !uses(twelveHour, u'B')) {
        data.notes.insert("twelve-hour time without marker -> the Bhms pattern");
        twelveHour = ParseDatePattern(
            FromIcu(generator->getBestPattern(icu::UnicodeString(u"Bhms"), status)));
    }
    if (U_FAILURE(status) || twelveHour.empty()) {
        data.warnings.push_back("no twelve-hour time pattern");
        return false;
    }

    // The fifteen default patterns: dates, times and date-times from full to
    // short, then the input forms.
    for (int i = 0; i < 4; ++i) {
        t.fmtlib[i] = ToCanonicalDate(dates[i], DateUse::Output, data.notes);
        t.fmtlib[4 + i] = ToCanonicalDate(times[i], DateUse::Output, data.notes);
        t.fmtlib[8 + i] = ToCanonicalDate(dateTimes[i], DateUse::Output, data.notes);
    }
    std::vector<DateItem> inputDate = dates[3];
    for (DateItem& item : inputDate)
        if (item.letter == u'y') item.count = 4;  // four-digit years
    t.fmtlib[12] = ToCanonicalDate(inputDate, DateUse::Input, data.notes);
    t.fmtlib[13] = ToCanonicalDate(twelveHour, DateUse::Input, data.notes);
    std::vector<DateItem> inputDateTime = inputDate;
    inputDateTime.push_back({0, 0, u16(1, u' ')});
    inputDateTime.insert(inputDateTime.end(), twelveHour.begin(), twelveHour.end());
    t.fmtlib[14] = ToCanonicalDate(inputDateTime, DateUse::Input, data.notes);

    t.date_time_format = ToStrftime(dateTimes[2], data.notes);
    t.date_format = ToStrftime(dates[3], data.notes);
    t.time_format = ToStrftime(times[2], data.notes);
    t.am_pm_time_format = ToStrftime(twelveHour, data.notes);

    t.date_separator = DateSeparatorOf(dates[3]);
    if (t.date_separator.empty()) t.date_separator = DateSeparatorOf(dates[2]);
    if (t.date_separator.empty()) {
        data.warnings.push_back("no date separator in the short or medium date");
        t.date_separator = u16(1, u'/');
    }
    t.time_separator = TimeSeparatorOf(times[3]);
    if (t.time_separator.empty()) {
        icu::UnicodeString separator;
        t.time_separator = FromIcu(symbols.getTimeSeparatorString(separator));
        data.notes.insert("time separator from the time separator symbol");
    }
    return true;
}

}  // namespace

std::vector<std::string> Unwritable(const LocaleData& data, const Encoding& encoding) {
    std::vector<std::string> result;
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(encoding.icu_converter, &status);
    if (U_FAILURE(status)) return {std::string("no converter ") + encoding.icu_converter};
    ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    const TimeData& t = data.time;
    std::vector<u16> texts(std::begin(t.days), std::end(t.days));
    texts.insert(texts.end(), std::begin(t.short_days), std::end(t.short_days));
    texts.insert(texts.end(), std::begin(t.months), std::end(t.months));
    texts.insert(texts.end(), std::begin(t.short_months), std::end(t.short_months));
    texts.insert(texts.end(), std::begin(t.am_pm), std::end(t.am_pm));
    texts.insert(texts.end(), t.eras.begin(), t.eras.end());
    texts.push_back(t.date_separator);
    texts.push_back(t.time_separator);
    for (const u16& text : texts) {
        char buffer[512];
        status = U_ZERO_ERROR;
        ucnv_reset(converter);
        ucnv_fromUChars(converter, buffer, sizeof buffer, text.data(),
                        static_cast<int32_t>(text.size()), &status);
        if (U_FAILURE(status)) result.push_back(ToUtf8(text));
    }
    ucnv_close(converter);
    return result;
}

bool ReadLocaleData(LocaleData& data) {
    return ReadNumeric(data) && ReadTime(data);
}

}  // namespace gen

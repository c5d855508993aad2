// The vocabulary of formats: token values, the named default formats, the
// dialects, and the pattern elements that carry a token.
#ifndef KAI18N_FMTLIB_LU_FMT_TOKENS_H
#define KAI18N_FMTLIB_LU_FMT_TOKENS_H

#include <cstdint>

#include "kai18n/strings/ucs2string.h"

namespace FmtLib {

/// Every token a format can hold. Values are sparse and grouped in ranges on
/// which the formatters test numerically (see the Is*Token helpers below); the
/// comment after each value is its canonical key.
enum luFmtTokens : std::int32_t {
    TokLiteral = 1,          // a literal text; no key
    TokFormatSeparator = 2,  // T[FS]
    TokError = 3,            // T[Err]

    // Date tokens, 10 to 71.
    TokAmPm = 10,                    // T[am]
    TokAmPmUpper = 11,               // T[amu]
    TokAmPmLower = 12,               // T[aml]
    TokAmPmCap = 13,                 // T[amc]
    TokMonthName = 14,               // T[mt]
    TokMonthNameUpper = 15,          // T[mtu]
    TokMonthNameLower = 16,          // T[mtl]
    TokMonthNameCap = 17,            // T[mtc]
    TokAbbMonthName = 18,            // T[amt]
    TokAbbMonthNameUpper = 19,       // T[amtu]
    TokAbbMonthNameLower = 20,       // T[amtl]
    TokAbbMonthNameCap = 21,         // T[amtc]
    TokHour00To23 = 22,              // T[023]
    TokHour0To23 = 23,               // T[23]
    TokHour01To12 = 24,              // T[012]
    TokHour1To12 = 25,               // T[12]
    TokHour01To24 = 26,              // T[024]
    TokHour1To24 = 27,               // T[24]
    TokHour00To11 = 28,              // T[011]
    TokHour0To11 = 29,               // T[11]
    TokMonth01 = 30,                 // T[0M]
    TokMonth1 = 31,                  // T[M]
    TokMinute00 = 32,                // T[0m]
    TokMinute0 = 33,                 // T[m]
    TokSecond00 = 34,                // T[0s]
    TokSecond0 = 35,                 // T[s]
    TokMillisecond000 = 36,          // T[0ms]
    TokHundredthSecond00 = 37,       // T[0cs]
    TokTenthSecond0 = 38,            // T[tens]
    TokYear0000 = 39,                // T[y4]
    TokYear00 = 40,                  // T[y2]
    TokJapaneseImpYear0 = 41,        // T[iy2]
    TokJapaneseImpYear = 42,         // T[iy1]
    TokJapaneseImpYearEng = 43,      // T[iyg]
    TokDayName = 46,                 // T[dn]
    TokDayNameUpper = 47,            // T[dnu]
    TokDayNameLower = 48,            // T[dnl]
    TokDayNameCap = 49,              // T[dnc]
    TokAbbDayName = 50,              // T[adn]
    TokAbbDayNameUpper = 51,         // T[adnu]
    TokAbbDayNameLower = 52,         // T[adnl]
    TokAbbDayNameCap = 53,           // T[adnc]
    TokMonthDay00 = 54,              // T[0d]
    TokMonthDay0 = 55,               // T[d]
    TokEra = 56,                     // T[era]
    TokDayOfWeekInMonth = 57,        // T[dowim]
    TokDayOfYear000 = 58,            // T[00yd]
    TokDayOfYear00 = 59,             // T[0yd]
    TokDayOfYear0 = 60,              // T[yd]
    TokWeekOfYear00 = 61,            // T[0wy]
    TokWeekOfYear0 = 62,             // T[wy]
    TokWeekOfMonth = 63,             // T[wm]
    TokTimeZone = 64,                // T[tz]
    TokDateSeparator = 65,           // T[da]
    TokTimeSeparator = 66,           // T[ts]
    TokYearOfWeekOfYear0000 = 67,    // T[ywoy4]
    TokYearOfWeekOfYear00 = 68,      // T[ywoy2]
    TokJapaneseImperialPeriod = 69,  // T[ip]
    TokJapaneseImperialYear0 = 70,   // T[jy]
    TokJapaneseImperialYear00 = 71,  // T[jy2]

    // Number tokens, 100 to 116.
    TokSign = 100,                // T[-]
    TokDigitOrNothing = 101,      // T[#]
    TokDigitOrZero = 102,         // T[0]
    TokDecimalSeparator = 103,    // T[ds]
    TokGroupingSeparator = 104,   // T[gs]
    TokNegativeOpen = 105,        // T[ns]
    TokNegativeClose = 106,       // T[ne]
    TokExponentUpperPlus = 107,   // T[E+]
    TokExponentUpperMinus = 108,  // T[E-]
    TokExponentLowerPlus = 109,   // T[e+]
    TokExponentLowerMinus = 110,  // T[e-]
    TokPositiveSign = 111,        // T[+]
    TokTimes100 = 112,            // T[pc]
    TokTimes100AndSign = 113,     // T[pcs]
    TokBool = 114,                // T[b]
    TokTrue = 115,                // T[bt]
    TokFalse = 116,               // T[bf]

    // The locale's named date formats, 300 to 314; minus 300 is the
    // fmtLibDefaultFormats value.
    TokFullDate = 300,        // T[Adf]
    TokLongDate = 301,        // T[Adl]
    TokMediumDate = 302,      // T[Adm]
    TokShortDate = 303,       // T[Ads]
    TokFullTime = 304,        // T[Atf]
    TokLongTime = 305,        // T[Atl]
    TokMediumTime = 306,      // T[Atm]
    TokShortTime = 307,       // T[Ats]
    TokFullDateTime = 308,    // T[Adtf]
    TokLongDateTime = 309,    // T[Adtl]
    TokMediumDateTime = 310,  // T[Adtm]
    TokShortDateTime = 311,   // T[Adts]
    TokInputDate = 312,       // T[Adi]
    TokInputTime = 313,       // T[Ati]
    TokInputDateTime = 314,   // T[Adti]

    // The locale's named number formats, 350 to 353.
    TokDefaultNumeric = 350,     // T[An]
    TokDefaultPercent = 351,     // T[Ap]
    TokDefaultScientific = 352,  // T[As]
    TokDefaultBoolean = 353,     // T[Ab]

    // Colours, 400 to 415; minus 399 is the colour number a formatter reports.
    TokBlack = 400,       // T[Ck]
    TokWhite = 401,       // T[Cw]
    TokRed = 402,         // T[Cr]
    TokGreen = 403,       // T[Cg]
    TokBlue = 404,        // T[Cb]
    TokYellow = 405,      // T[Cy]
    TokMagenta = 406,     // T[Cm]
    TokCyan = 407,        // T[Cc]
    TokDarkRed = 408,     // T[Cdr]
    TokDarkGreen = 409,   // T[Cdg]
    TokDarkBlue = 410,    // T[Cdb]
    TokLightBrown = 411,  // T[Cdy]
    TokPurple = 412,      // T[Cdm]
    TokDarkCyan = 413,    // T[Cdc]
    TokLightGray = 414,   // T[Cly]
    TokGray = 415,        // T[Cgr]
};

constexpr bool IsDateToken(int token) {
    return token >= 10 && token <= 71;
}
constexpr bool IsNumberToken(int token) {
    return token >= 100 && token <= 116;
}
constexpr bool IsDefaultDateFormatToken(int token) {
    return token >= 300 && token <= 314;
}
constexpr bool IsDefaultNumberFormatToken(int token) {
    return token >= 350 && token <= 353;
}
constexpr bool IsColourToken(int token) {
    return token >= 400 && token <= 415;
}

/// The named default formats a caller can ask for, and the index into the
/// default-format tables of the date and number facets. 21 selects the
/// number facet's currency layout, which no formatter accepts; 15 to 19
/// select nothing.
enum fmtLibDefaultFormats : std::int32_t {
    FULL_DATE = 0,
    LONG_DATE = 1,
    DATE = 2,
    SHORT_DATE = 3,
    FULL_TIME = 4,
    LONG_TIME = 5,
    TIME = 6,
    SHORT_TIME = 7,
    FULL_DATE_TIME = 8,
    LONG_DATE_TIME = 9,
    DATE_TIME = 10,
    SHORT_DATE_TIME = 11,
    INPUT_DATE = 12,
    INPUT_TIME = 13,
    INPUT_DATE_TIME = 14,
    STANDARD = 20,
    CURRENCY = 21,
    PERCENT = 22,
    SCIENTIFIC = 23,
    BOOLEAN = 24,
};

/// The dialect of a token definition. No definition of LuLoc is built; the
/// value exists for IsLuLoc.
enum tokenDefType : std::int32_t { Ombrin = 0, Serial = 1, Velora = 2, LuLoc = 3 };

/// One element of a format pattern: a token value, or a literal text.
class luToken {
  public:
    virtual ~luToken();
    /// The luFmtTokens value; TokLiteral for a literal.
    virtual int TokenId() const = 0;
    virtual bool IsLiteral() const = 0;
    /// The literal's zero-terminated units; null for any other token.
    virtual const unsigned short* LiteralText() const = 0;
    /// The literal's length in units; 0 for any other token.
    virtual unsigned int LiteralLength() const = 0;

    /// A new token of that value, or null when memory runs out. The caller
    /// owns the result.
    static luToken* MakeToken(luFmtTokens token);
    /// A new literal holding a copy of `text`, or null when memory runs out.
    static luToken* MakeToken(const ucs2string& text);
    /// A new literal of the units [first, last), or null when memory runs out.
    static luToken* MakeToken(const unsigned short* first, const unsigned short* last);

    /// A new token equal to `token`: a literal with a copy of its text, or a
    /// token of the same value. Null when memory runs out.
    static luToken* Clone(const luToken& token);

  protected:
    luToken() = default;
    luToken(const luToken&) = default;
    luToken& operator=(const luToken&) = default;
};

}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_LU_FMT_TOKENS_H

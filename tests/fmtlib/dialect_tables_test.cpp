// The dialect tables: which definition a language, country or code selects,
// what the definitions recognise and print, and the service's start and stop.
#include <gtest/gtest.h>

#include <optional>
#include <set>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_fmt_dialects.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

// The token of the entry whose text is exactly `text`, or 0.
int Recognised(const luTokensDefinition* definition, const std::string& text) {
    const ucs2string wanted = U(text);
    for (const tokenDef& entry : *definition)
        if (entry.text == wanted) return entry.token;
    return 0;
}

std::string Printed(const luTokensDefinition* definition, luFmtTokens token) {
    return Utf8(definition->TokenString(token));
}

TEST(DialectTablesTest, OmbrinHasOneDefinitionPerKindForEveryLanguage) {
    const luTokensDefinition* date = GetDateTokensDefinition("en", "US");
    ASSERT_NE(nullptr, date);
    EXPECT_EQ(date, GetDateTokensDefinition("fr", nullptr));
    EXPECT_EQ(date, GetDateTokensDefinition(nullptr, nullptr));
    EXPECT_TRUE(date->IsOmbrin() && date->IsDate() && date->IsBuild());

    EXPECT_EQ(TokHour00To23, Recognised(date, "HH"));
    EXPECT_EQ(TokHour00To23, Recognised(date, "<hour 00-23>"));
    EXPECT_EQ(TokFormatSeparator, Recognised(date, ";"));
    EXPECT_EQ(TokFormatSeparator, Recognised(date, "<format separator>"));
    EXPECT_EQ(TokRed, Recognised(date, "<Red>"));
    EXPECT_EQ(TokFullDate, Recognised(date, "FULL_DATE"));
    EXPECT_EQ(0, Recognised(date, "#"));  // number tokens are not date tokens
    EXPECT_EQ(0, Recognised(date, "<lower exponent ->"));
    EXPECT_EQ("HH", Printed(date, TokHour00To23));
    EXPECT_EQ("<lower am/pm sign>", Printed(date, TokAmPmLower));  // no Ombrin text

    const luTokensDefinition* number = GetNumberTokensDefinition("de", "DE");
    ASSERT_NE(nullptr, number);
    EXPECT_FALSE(number->IsDate());
    EXPECT_EQ(TokTimes100, Recognised(number, "[%]"));
    EXPECT_EQ(TokTimes100AndSign, Recognised(number, "<times 100 and sign>"));
    EXPECT_EQ(TokDefaultBoolean, Recognised(number, "BOOLEAN"));
    EXPECT_EQ(0, Recognised(number, "yyyy"));
    EXPECT_EQ(0, Recognised(number, "%"));
}

TEST(DialectTablesTest, SerialKeysCoverTheirKindOnly) {
    const luTokensDefinition* date = GetSerialDateTokensDefinition();
    const luTokensDefinition* number = GetSerialNumberTokensDefinition();
    ASSERT_NE(nullptr, date);
    ASSERT_NE(nullptr, number);
    // 2, 3, 10-43, 46-71, 300-314 and 400-415; 2, 3, 100-116, 350-353 and 400-415.
    EXPECT_EQ(2u + 34u + 26u + 15u + 16u, date->size());
    EXPECT_EQ(2u + 17u + 4u + 16u, number->size());
    EXPECT_EQ(TokError, Recognised(date, "T[Err]"));
    EXPECT_EQ(TokJapaneseImperialYear00, Recognised(date, "T[jy2]"));
    EXPECT_EQ(TokGray, Recognised(number, "T[Cgr]"));
    EXPECT_EQ(0, Recognised(number, "T[023]"));
    EXPECT_EQ(0, Recognised(date, "T[#]"));
    EXPECT_EQ(0, Recognised(date, "HH"));
}

TEST(DialectTablesTest, ColourNamesByLanguageAndByCode) {
    const luTokensDefinition* french = GetOmbrinColorDefinition("fr", "FR");
    ASSERT_NE(nullptr, french);
    EXPECT_EQ(TokRed, Recognised(french, "Rouge"));
    EXPECT_EQ(TokRed, Recognised(french, "Red"));
    EXPECT_EQ(TokDarkRed, Recognised(french, "Rouge foncé "));  // the blank belongs to it
    EXPECT_EQ("Rouge", Printed(french, TokRed));
    // Names shared with English add no entry: 16 + 16 minus "Magenta" and "Cyan".
    EXPECT_EQ(30u, french->size());

    const luTokensDefinition* english = GetOmbrinColorDefinition("en", nullptr);
    EXPECT_EQ(english, GetOmbrinColorDefinition("xx", "YY"));
    EXPECT_EQ(english, GetOmbrinColorDefinition(nullptr, nullptr));
    EXPECT_EQ(16u, english->size());
    EXPECT_EQ("Light Cyan", Printed(english, TokLightGray));

    EXPECT_EQ("Rot", Printed(GetVeloraColorDefinition("GE"), TokRed));
    EXPECT_EQ("赤", Printed(GetVeloraColorDefinition("JP"), TokRed));
    EXPECT_EQ("Röd", Printed(GetVeloraColorDefinition("SW"), TokRed));
    EXPECT_EQ(english, GetVeloraColorDefinition("TR"));
    EXPECT_EQ(english, GetVeloraColorDefinition("ZZ"));
    EXPECT_EQ(GetOmbrinColorDefinition("cs", nullptr), GetVeloraColorDefinition("CZ"));
}

TEST(DialectTablesTest, VeloraNumberSeparatorsByLanguageAndCountry) {
    const struct {
        const char* lang;
        const char* country;
        const char* decimal;
        const char* grouping;
    } cases[] = {
        {"de", "CH", ".", "'"},    {"de", nullptr, ",", "."}, {"de", "AT", ",", "."},
        {"fr", "CH", ".", "'"},    {"fr", "BE", ",", "."},    {"fr", "FR", ",", "\xC2\xA0"},
        {"es", nullptr, ",", "."}, {"es", "MX", ".", ","},    {"ru", nullptr, ",", "\xC2\xA0"},
        {"ja", "JP", ".", ","},    {"xx", nullptr, ".", ","}, {nullptr, nullptr, ".", ","},
    };
    for (const auto& c : cases) {
        const luTokensDefinition* number = GetVeloraNumberTokensDefinition("EN", c.lang, c.country);
        ASSERT_NE(nullptr, number);
        EXPECT_EQ(c.decimal, Printed(number, TokDecimalSeparator)) << c.lang << c.country;
        EXPECT_EQ(c.grouping, Printed(number, TokGroupingSeparator)) << c.lang << c.country;
        EXPECT_EQ(12u, number->size());
        EXPECT_TRUE(number->TokenString(TokTimes100AndSign).empty());
    }
}

TEST(DialectTablesTest, VeloraDateDefinitionsHoldEveryCaseForm) {
    const luTokensDefinition* english = GetVeloraDateTokensDefinition("EN", "en", "US");
    ASSERT_NE(nullptr, english);
    EXPECT_TRUE(english->IsVelora() && english->IsDate());
    // ";" 1, half-day word 16, month names 16 + 8, day names 16 + 8, hours 4,
    // months 4 + 2, seconds 4 + 1, years 16 + 4, days 4 + 2, separators 2.
    EXPECT_EQ(108u, english->size());
    EXPECT_EQ(116u, GetVeloraDateTokensDefinition("JP", "ja", nullptr)->size());

    const struct {
        luFmtTokens token;
        const char* printed;
    } printed[] = {
        {TokAmPmUpper, "AM/PM"},     {TokAmPmLower, "am/pm"},     {TokAmPmCap, "Am/pm"},
        {TokMonthNameUpper, "MMMM"}, {TokMonthNameLower, "mmmm"}, {TokMonthNameCap, "Mmmm"},
        {TokAbbDayNameCap, "Ddd"},   {TokHour00To23, "HH"},       {TokHour1To12, "h"},
        {TokMonth01, "mm"},          {TokMinute00, "mm"},         {TokMinute0, "m"},
        {TokSecond0, "s"},           {TokYear0000, "yyyy"},       {TokDateSeparator, "/"},
    };
    for (const auto& p : printed) EXPECT_EQ(p.printed, Printed(english, p.token)) << p.token;
    EXPECT_EQ(TokAmPmLower, Recognised(english, "aM/pM"));
    EXPECT_EQ(TokAmPmCap, Recognised(english, "Am/PM"));
    EXPECT_EQ(TokMonthNameUpper, Recognised(english, "MMmM"));
    EXPECT_EQ(TokMonth01, Recognised(english, "mM"));
    EXPECT_EQ(TokYear00, Recognised(english, "Yy"));
    EXPECT_EQ(0, Recognised(english, "S"));  // the single second is small only

    const luTokensDefinition* brazil = GetVeloraDateTokensDefinition("BR", "pt", "BR");
    EXPECT_EQ(TokAmPmCap, Recognised(brazil, "A.m./p.M."));
    EXPECT_EQ("A.m./p.m.", Printed(brazil, TokAmPmCap));
    const luTokensDefinition* russian = GetVeloraDateTokensDefinition("RU", "ru", nullptr);
    EXPECT_EQ("мм", Printed(russian, TokMinute00));
    EXPECT_EQ("ЧЧ", Printed(russian, TokHour00To23));
    EXPECT_EQ(TokYear0000, Recognised(russian, "ГгГг"));
    EXPECT_EQ(".", Printed(russian, TokDateSeparator));
    EXPECT_EQ(". ", Printed(GetVeloraDateTokensDefinition("EN", "hu", nullptr), TokDateSeparator));
    const luTokensDefinition* swedish = GetVeloraDateTokensDefinition("SW", "sv", nullptr);
    EXPECT_EQ(TokYear0000, Recognised(swedish, "ÅåÅå"));
    EXPECT_EQ("åååå", Printed(swedish, TokYear0000));
    EXPECT_EQ("FM/EM", Printed(swedish, TokAmPmUpper));
}

TEST(DialectTablesTest, VeloraDateCacheKeysOnLettersAndSeparators) {
    const luTokensDefinition* en = GetVeloraDateTokensDefinition("EN", "en", nullptr);
    EXPECT_EQ(en, GetVeloraDateTokensDefinition("EN", "en", nullptr));
    EXPECT_EQ(en, GetVeloraDateTokensDefinition("EN", "fr", nullptr));  // same separators
    EXPECT_EQ(en, GetVeloraDateTokensDefinition("XX", "es", "ES"));     // unknown code: EN
    EXPECT_EQ(en, GetVeloraDateTokensDefinition("CZ", "zz", nullptr));
    EXPECT_NE(en, GetVeloraDateTokensDefinition("EN", "fr", "CH"));  // frCH: "." and ":"
    EXPECT_EQ(GetVeloraDateTokensDefinition("EN", "de", nullptr),
              GetVeloraDateTokensDefinition("EN", "fr", "CH"));
    EXPECT_NE(en, GetVeloraDateTokensDefinition("FR", "en", nullptr));
}

// Takes the service down for the life of the object, and back up after.
class DialectsDown {
  public:
    DialectsDown() : m_held(FmtLibInitExit::count) {
        m_last.emplace();
        FmtLibInitExit::count = 1;
        m_last.reset();
    }
    ~DialectsDown() {
        m_last.emplace();
        FmtLibInitExit::count = m_held;
    }

  private:
    int m_held;
    std::optional<FmtLibInitExit> m_last;
};

TEST(DialectTablesTest, StoppedServiceAnswersNullAndFactoriesRaise) {
    {
        DialectsDown down;
        EXPECT_EQ(0, FmtLibInitExit::count);
        EXPECT_EQ(nullptr, GetDateTokensDefinition("en", nullptr));
        EXPECT_EQ(nullptr, GetSerialNumberTokensDefinition());
        EXPECT_EQ(nullptr, GetOmbrinColorDefinition("fr", nullptr));
        EXPECT_EQ(nullptr, GetVeloraNumberTokensDefinition("EN", "en", nullptr));
        EXPECT_EQ(nullptr, GetVeloraDateTokensDefinition("EN", "en", nullptr));
        try {
            delete CreateStringFormatNumber("en", "US");
            FAIL() << "no exception";
        } catch (const LUException& e) {
            EXPECT_EQ(LU_E_INTERNAL, e.GetResult());
        }
        EXPECT_THROW(delete CreateSerialStringFormatDate(), LUException);
        EXPECT_THROW(delete CreateVeloraStringFormatDate("EN", "en", nullptr), LUException);
    }
    // Up again: a fresh cache, rebuilt on request.
    ASSERT_NE(nullptr, GetVeloraDateTokensDefinition("EN", "en", nullptr));
    std::unique_ptr<luStringFormatNumber> format(CreateStringFormatNumber("en", "US"));
    EXPECT_EQ((TokenList{{102}, {}}), Tokens(*Parse(*format, "0")));
}

}  // namespace

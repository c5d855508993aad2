// The default format patterns of every locale record, the dialect tables (which definition a
// language, country or code selects, the service's stop and restart), and token definitions and
// format patterns through their own interfaces.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "fmt_test_support.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/fmtlib/lu_fmt_dialects.h"
#include "kai18n/fmtlib/lu_tokens_definition.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"
#include "module_records.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

// Every default pattern, built in and from the locale data module, is canonical notation of its
// kind: it reads without error and prints back unchanged.
TEST(DefaultPatternsTest, EveryPatternReadsAndPrintsBack) {
    std::unique_ptr<luStringFormat> number(CreateSerialStringFormatNumber());
    std::unique_ptr<luStringFormat> date(CreateSerialStringFormatDate());
    auto check = [&](const unsigned short* units, bool isDate) -> std::string {
        const std::string text = units == nullptr ? std::string() : Utf8(units);
        luStringFormat& format = isDate ? *date : *number;
        auto pattern = Parse(format, text);
        if (pattern->IsDate() != isDate || pattern->size() == 0) return "no pattern: " + text;
        for (int id : Tokens(*pattern).ids)
            if (id == TokError) return "reads as T[Err]: " + text;
        const std::string printed = Print(format, *pattern);
        return printed == text ? std::string() : text + " prints as " + printed;
    };
    std::vector<const lu_locale_storage*> records = kai18n_test::ModuleRecords();
    ASSERT_GT(records.size(), 600u);
    records.push_back(nullptr);  // the built-in defaults, which a record without a part takes
    for (const lu_locale_storage* record : records) {
        const unsigned short* const* numbers = record != nullptr && record->numeric != nullptr
                                                   ? record->numeric->formats
                                                   : lu_numeric_punctuation::kDefaultFormats;
        const lu_ctime_impl::StaticStorage& time = record != nullptr && record->time != nullptr
                                                       ? *record->time
                                                       : lu_ctime_impl::kDefaultCtimeStorage;
        const std::string name = record ? std::to_string(record->locale_id) : "built in";
        for (unsigned int i = 0; i < lu_numeric_punctuation::kFormatCount; ++i)
            EXPECT_EQ("", check(numbers[i], false)) << name << ", number pattern " << i;
        for (int i = 0; i < lu_ctime_impl::kFmtLibFormatCount; ++i)
            EXPECT_EQ("", check(time.fmtlib_formats[i], true)) << name << ", date pattern " << i;
    }
}

// What each dialect reads is seen in the string formats; here, which keys share a definition.
TEST(DialectTablesTest, EachKeySelectsItsDefinition) {
    EXPECT_EQ(GetDateTokensDefinition("en", "US"), GetDateTokensDefinition(nullptr, nullptr));
    EXPECT_FALSE(GetNumberTokensDefinition("de", "DE")->IsDate());
    // Colour names shared with English add no entry: 16 + 16 less "Magenta" and "Cyan".
    const luTokensDefinition* english = GetOmbrinColorDefinition("en", nullptr);
    EXPECT_TRUE(GetOmbrinColorDefinition("fr", "FR")->size() == 30u && english->size() == 16u);
    EXPECT_EQ(english, GetOmbrinColorDefinition(nullptr, nullptr));
    EXPECT_EQ(english, GetVeloraColorDefinition("ZZ"));
    EXPECT_EQ(GetOmbrinColorDefinition("cs", nullptr), GetVeloraColorDefinition("CZ"));
    // The Velora dates are cached by letters and separators.
    const luTokensDefinition* en = GetVeloraDateTokensDefinition("EN", "en", nullptr);
    EXPECT_EQ(en, GetVeloraDateTokensDefinition("EN", "fr", nullptr));  // same separators
    EXPECT_EQ(en, GetVeloraDateTokensDefinition("XX", "es", "ES"));     // unknown code: EN
    EXPECT_NE(en, GetVeloraDateTokensDefinition("EN", "fr", "CH"));     // frCH: "." and ":"
    EXPECT_EQ(GetVeloraDateTokensDefinition("EN", "de", nullptr),
              GetVeloraDateTokensDefinition("EN", "fr", "CH"));
    EXPECT_NE(en, GetVeloraDateTokensDefinition("FR", "en", nullptr));
}

TEST(DialectTablesTest, StoppedServiceAnswersNullAndFactoriesRaise) {
    const int held = FmtLibInitExit::count;
    std::optional<FmtLibInitExit> last;
    last.emplace();
    FmtLibInitExit::count = 1;
    last.reset();  // the last user leaves: the tables go
    EXPECT_EQ(0, FmtLibInitExit::count);
    EXPECT_EQ(nullptr, GetDateTokensDefinition("en", nullptr));
    EXPECT_EQ(nullptr, GetSerialNumberTokensDefinition());
    EXPECT_EQ(nullptr, GetOmbrinColorDefinition("fr", nullptr));
    EXPECT_EQ(nullptr, GetVeloraNumberTokensDefinition("EN", "en", nullptr));
    EXPECT_EQ(nullptr, GetVeloraDateTokensDefinition("EN", "en", nullptr));
    for (auto make : {+[] { delete CreateStringFormatNumber("en", "US"); },
                      +[] { delete CreateSerialStringFormatDate(); },
                      +[] { delete CreateVeloraStringFormatDate("EN", "en", nullptr); }}) {
        try {
            make();
            ADD_FAILURE() << "no exception";
        } catch (const LUException& e) {
            EXPECT_EQ(LU_E_INTERNAL, e.GetResult());
        }
    }
    last.emplace();  // up again: a fresh cache, rebuilt on request
    FmtLibInitExit::count = held;
    ASSERT_NE(nullptr, GetVeloraDateTokensDefinition("EN", "en", nullptr));
    std::unique_ptr<luStringFormatNumber> format(CreateStringFormatNumber("en", "US"));
    EXPECT_EQ((TokenList{{102}, {}}), Tokens(*Parse(*format, "0")));
}

std::vector<std::string> Texts(const luTokensDefinition& definition) {
    std::vector<std::string> texts;
    for (const tokenDef& entry : definition) texts.push_back(Utf8(entry.text));
    return texts;
}

TEST(TokensDefinitionTest, SortsByCodeUnitPrintsTheFirstTextAndFreezes) {
    luTokensDefinition definition(Ombrin, true);
    // U+FF21 (fullwidth A) sorts after U+00E9, which a signed 16-bit comparison would get wrong.
    for (const char* text : {"mm", "\xEF\xBC\xA1", "\xC3\xA9", "m", "<m>"})
        EXPECT_TRUE(definition.AddTokenDefinition(TokMinute0, U(text), true)) << text;
    // An equal text for another token is refused for recognition, but that token gains it for
    // printing; without recognition only printing is set.
    EXPECT_FALSE(definition.AddTokenDefinition(TokHour0To23, U("mm"), true));
    EXPECT_TRUE(definition.AddTokenDefinition(TokHour0To23, U("H"), true));
    EXPECT_FALSE(definition.AddTokenDefinition(TokMinute00, U("ss"), false));
    definition.EndBuild();
    definition.EndBuild();  // a second call changes nothing
    EXPECT_FALSE(definition.AddTokenDefinition(TokEra, U("G"), true));
    EXPECT_EQ((std::vector<std::string>{"<m>", "H", "m", "mm", "\xC3\xA9", "\xEF\xBC\xA1"}),
              Texts(definition));
    EXPECT_EQ(TokHour0To23, definition[1].token);
    EXPECT_EQ("mm mm ss", Utf8(definition.TokenString(TokMinute0)) + " " +
                              Utf8(definition.TokenString(TokHour0To23)) + " " +
                              Utf8(definition.TokenString(TokMinute00)));
    EXPECT_TRUE(definition.TokenString(TokEra).empty());
}

TEST(FmtPatternTest, TokensEnterAsCopiesAndEditingKeepsPositionsRight) {
    std::unique_ptr<luToken> hour(luToken::MakeToken(TokHour00To23));
    std::unique_ptr<luFmtPattern> pattern(CreateDateFmtPattern());
    ucs2string text = U("kg");
    std::unique_ptr<luToken> mine(luToken::MakeToken(text));
    text = U("changed");
    pattern->push_back(mine.get());
    mine.reset();  // the pattern holds its own clone
    const unsigned short units[] = {u'x', u'y'};
    pattern->push_back(units, units + 2);
    pattern->push_back(hour.get());
    EXPECT_EQ((TokenList{{1, 1, 22}, {"kg", "xy"}}), Tokens(*pattern));
    std::unique_ptr<luFmtPattern> copy(CreateFmtPattern(*pattern));
    EXPECT_EQ(Tokens(*pattern), Tokens(*copy));
    EXPECT_NE((*pattern)[0], (*copy)[0]);  // deep: distinct token objects

    std::unique_ptr<luToken> seconds(luToken::MakeToken(TokSecond00));
    // Each edit is made before its result is compared: the order in which a comparison's two
    // sides are evaluated is unspecified.
    auto at = pattern->insert(pattern->end(), seconds.get());
    EXPECT_EQ(pattern->begin() + 3, at);
    at = pattern->insert(pattern->begin(), seconds.get());
    EXPECT_EQ(pattern->begin(), at);
    EXPECT_EQ((TokenList{{34, 1, 1, 22, 34}, {"kg", "xy"}}), Tokens(*pattern));
    at = pattern->erase(pattern->end() - 1);
    EXPECT_EQ(pattern->end(), at);
    at = pattern->erase(pattern->begin());
    EXPECT_TRUE((*at)->IsLiteral());  // now the next token's place
    at = pattern->erase(pattern->begin() + 1, pattern->begin() + 2);
    EXPECT_EQ(pattern->begin() + 1, at);
    EXPECT_EQ((TokenList{{1, 22}, {"kg"}}), Tokens(*pattern));

    // Assignment copies between patterns of one kind only; otherwise the target is emptied.
    *copy = *pattern;
    EXPECT_EQ(Tokens(*pattern), Tokens(*copy));
    std::unique_ptr<luFmtPattern> number(CreateNumberFmtPattern());
    number->push_back(TokDigitOrZero);
    *number = *pattern;
    EXPECT_EQ(0u, number->size());
    EXPECT_FALSE(number->IsDate());
    *pattern = *pattern;  // self-assignment keeps the tokens
    EXPECT_EQ(2u, pattern->size());
}

}  // namespace

// The dialect tables: which definition a language, country or code selects,
// how many entries each holds, and the service's stop and restart.
#include <gtest/gtest.h>

#include <optional>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_fmt_dialects.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

TEST(DialectTablesTest, EachKeySelectsItsDefinitionOfItsKindAndSize) {
    const luTokensDefinition* date = GetDateTokensDefinition("en", "US");
    EXPECT_EQ(date, GetDateTokensDefinition(nullptr, nullptr));
    EXPECT_TRUE(date->IsOmbrin() && date->IsDate() && date->IsBuild());
    EXPECT_FALSE(GetNumberTokensDefinition("de", "DE")->IsDate());
    // The Ombrin texts and the labels of the kind's tokens, and the colour labels.
    EXPECT_EQ(158u, date->size());
    EXPECT_EQ(55u, GetNumberTokensDefinition("de", "DE")->size());
    // 2, 3, 10-43, 46-71, 300-314 and 400-415; 2, 3, 100-116, 350-353 and 400-415.
    EXPECT_EQ(2u + 34u + 26u + 15u + 16u, GetSerialDateTokensDefinition()->size());
    EXPECT_EQ(2u + 17u + 4u + 16u, GetSerialNumberTokensDefinition()->size());
    // Colour names shared with English add no entry: 16 + 16 less "Magenta" and "Cyan".
    const luTokensDefinition* english = GetOmbrinColorDefinition("en", nullptr);
    EXPECT_EQ(30u, GetOmbrinColorDefinition("fr", "FR")->size());
    EXPECT_EQ(16u, english->size());
    EXPECT_EQ(english, GetOmbrinColorDefinition(nullptr, nullptr));
    EXPECT_EQ(english, GetVeloraColorDefinition("ZZ"));
    EXPECT_EQ(GetOmbrinColorDefinition("cs", nullptr), GetVeloraColorDefinition("CZ"));
    EXPECT_EQ(12u, GetVeloraNumberTokensDefinition("EN", "de", "CH")->size());
    // ";" 1, half-day word 16, month names 16 + 8, day names 16 + 8, hours 4,
    // months 4 + 2, seconds 4 + 1, years 16 + 4, days 4 + 2, separators 2.
    const luTokensDefinition* en = GetVeloraDateTokensDefinition("EN", "en", nullptr);
    EXPECT_TRUE(en->IsVelora() && en->IsDate());
    EXPECT_EQ(108u, en->size());
    EXPECT_EQ(116u, GetVeloraDateTokensDefinition("JP", "ja", nullptr)->size());
    // The Velora dates are cached by letters and separators.
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

}  // namespace

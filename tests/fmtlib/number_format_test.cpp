// The number formatter on layouts worked out by hand. Digits: at most 15 significant ones, rounded
// on the first dropped digit (5 and up go up, no rounding to even), trailing fraction zeros dropped
// and then filled up to the "0" places.
#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/frame/result_codes.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();
const char* const kFixed = "T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]";  // #,##0.00

std::unique_ptr<luNumberFormat> Make(ilu_ptr<luSettings>& settings, const std::string& text) {
    std::unique_ptr<luStringFormatNumber> serial(CreateSerialStringFormatNumber());
    luNumberFormat* format = nullptr;
    EXPECT_EQ(0, CreateNumberFormat(settings, Parse(*serial, text).get(), format)) << text;
    return std::unique_ptr<luNumberFormat>(format);
}

template <class T>
std::string Out(luNumberFormat& format, T value) {
    format.Format(value);
    return Utf8(format.c_str());
}

struct Layout {
    const char* pattern;
    std::vector<std::pair<double, const char*>> cases;
};

// Runs each layout's cases; none of these results has a colour.
void Check(ilu_ptr<luSettings>& settings, const std::vector<Layout>& layouts) {
    for (const Layout& layout : layouts) {
        auto format = Make(settings, layout.pattern);
        for (const auto& c : layout.cases) {
            EXPECT_EQ(c.second, Out(*format, c.first)) << layout.pattern << " " << c.first;
            EXPECT_EQ(0, format->Color()) << layout.pattern;
        }
    }
}

class NumberFormatTest : public testing::Test {
  protected:
    ilu_ptr<luSettings> settings = Settings(GroupedLocale({3}));
};

// clang-format off
TEST_F(NumberFormatTest, DigitPlacesFillAndRounding) {
    Check(settings, {
        {kFixed, {{0, "0.00"}, {-1234.5, "-1,234.50"}, {999.999, "1,000.00"}, {-0.001, "-0.00"},
                  {-0.004, "-0.00"},  // the sign stays without a significant digit
                  {12.125, "12.13"},  // up on the 5, not to even
                  {123456789012345678.0, "123,456,789,012,346,000.00"}}},
        {"T[0]", {{-0.4, "-0"}, {-0.0, "0"}}},
        {"T[#]", {{0, ""}, {-0.4, "-"}, {123, "123"}}},  // "#" pads nothing
        {"T[#]T[ds]T[0]", {{0, ".0"}, {-0.5, "-.5"}}}, {"T[0]T[ds]T[0]", {{-0.001, "-0.0"}}},
        {"T[0]T[#]T[#]", {{5, "05"}, {345, "345"}}},  // "0" pads right ahead of the digits
        {"T[0]T[0]T[0]", {{5, "005"}, {0, "000"}}}, {"T[#]T[0]T[#]", {{5, "05"}}},
        {"T[0]T[#]T[0]", {{0, "00"}}},
        {"T[0]T[ds]T[0]T[0]T[#]", {{1.5, "1.50"}, {1.0625, "1.063"}}},
        {"T[0]T[ds]T[#]T[0]", {{5, "5.0"}, {5.125, "5.13"}}},  // a zero, but no minimum
        {"T[0]T[ds]T[#]T[#]", {{5, "5"}, {5.5, "5.5"}}},
        {"T[ds]T[0]T[0]", {{12.5, "12.50"}, {-0.25, "-.25"}}},  // all excess digits
        {"T[ds]T[#]", {{0.5, ".5"}, {0, ""}}}, {"T[ds]T[0]", {{-0.25, "-.3"}}},
    });
}

TEST_F(NumberFormatTest, Grouping) {
    Check(settings, {
        {"T[#]T[gs]T[#]T[#]T[0]",
         {{1234567890, "1,234,567,890"}, {123, "123"}, {999999.5, "1,000,000"}}},
        {"T[0]T[gs]T[0]T[0]T[0]T[0]T[0]", {{5, "000,005"}}},
        // skipped ahead of the first place and in the fraction
        {"T[gs]T[0]T[0]T[0]T[0]", {{12345, "12345"}}},
        {"T[0]T[0]T[0]T[0]T[gs]", {{12345, "12,345"}, {123, "0,123"}}},
        {"T[0]T[ds]T[0]T[gs]T[0]", {{12345.5, "12345.50"}}},
    });
    auto threeTwo = Settings(GroupedLocale({3, 2}));
    Check(threeTwo, {{"T[#]T[gs]T[#]T[#]T[0]", {{1234567890, "1,23,45,67,890"}}},
                     {"T[0]T[gs]T[0]T[0]T[0]T[0]T[0]", {{5, "0,00,005"}}}});
    auto none = Settings(lu_locale::classic());  // no separator, no group sizes
    Check(none, {{kFixed, {{1234567.5, "1234567.50"}}}});
    // clang-format on

    // The ends of the map: 256 integer digits fit (15 significant, then zeros); and no separator
    // stands ahead of a digit with more than 255 digits to its right, so 260 "0" places start
    // with a group of five.
    const std::string digits = std::string(15, '9') + std::string(241, '0');
    std::string grouped;
    for (std::size_t i = 0; i < digits.size(); ++i)
        grouped += ((i != 0 && (digits.size() - i) % 3 == 0) ? "," : "") + digits.substr(i, 1);
    EXPECT_EQ(grouped, Out(*Make(settings, "T[#]T[gs]T[0]"), 9.99999999999999e255));
    std::string wide = "T[0]T[gs]", expected = "00000";
    for (int i = 1; i < 260; ++i) wide += "T[0]";
    for (int i = 0; i < 84; ++i) expected += ",000";
    EXPECT_EQ(expected + ",001", Out(*Make(settings, wide), 1.0));
}

// clang-format off
TEST_F(NumberFormatTest, SignsAndSections) {
    Check(settings, {
        // the implicit sign goes first; an explicit sign or bracket replaces it
        {"L[x]T[0]", {{-5, "-x5"}, {5, "x5"}}}, {"T[-]T[0]", {{-5, "-5"}, {5, "5"}}},
        {"T[+]T[0]", {{5, "+5"}, {-5, "-5"}, {0, "+0"}}},
        {"T[ns]T[0]T[ds]T[0]T[ne]", {{-1.5, "(1.5)"}, {1.5, "1.5"}}}, {"T[ns]T[0]", {{-5, "(5"}}},
        {"T[0]T[ne]", {{-5, "5)"}}},
        // a sign token in the exponent is skipped and counts as no sign
        {"T[0]T[E-]T[+]T[0]", {{5, "5E0"}, {-5, "-5E0"}}}, {"T[0]T[E-]T[0]T[-]", {{-5, "-5E0"}}},
        {"L[none]", {{-5, "none"}}},  // no digit places: no implicit sign
        // the second section has no implicit sign; an empty one leaves negative values in the first
        {"T[0]T[FS]T[0]", {{-5, "5"}, {0, "0"}}},
        {"T[0]T[FS]L[neg]T[0]T[FS]L[zero]",
         {{-5, "neg5"}, {-0.0, "zero"}, {0.4, "0"}, {-0.4, "neg0"}}},
        {"T[0]T[FS]", {{-5, "-5"}}}, {"T[0]T[FS]T[FS]L[zero]", {{-5, "-5"}, {0, "zero"}}},
        {"T[FS]T[0]", {{5, ""}, {-5, "5"}}},
        {"T[b]T[FS]T[0]", {{0, "false"}, {3, "true"}, {-3, "3"}}},  // zero takes the first
        {"T[0]T[FS]T[0]T[FS]T[0]T[FS]L[bad]", {{-1, "1"}, {0, "0"}}},  // the third is the last
        // exponents: the sign of the exponent, engineering steps, places
        {"T[0]T[ds]T[0]T[0]T[E+]T[0]T[0]", {{12345, "1.23E+04"}, {-0.000125, "-1.25E-04"},
            {0, "0.00E+00"}, {1e100, "1.00E+100"}, {9.999e9, "1.00E+10"}, {1235, "1.24E+03"},
            {2.2250738585072014e-308, "2.23E-308"}, {1e-308, "0.00E-309"}, {5e-324, "0.00E-324"}}},
        {"T[0]T[ds]T[0]T[0]T[E-]T[0]T[0]", {{12345, "1.23E04"}, {0.000125, "1.25E-04"}}},
        {"T[0]T[ds]T[0]T[e+]T[0]", {{12345, "1.2e+4"}, {0.000125, "1.3e-4"}}},
        {"T[0]T[e-]T[0]", {{12345, "1e4"}, {0.000125, "1e-4"}}},
        {"T[#]T[#]T[0]T[ds]T[0]T[E+]T[0]", {{12345, "12.3E+3"}, {1234567, "1.2E+6"},
            {123, "123.0E+0"}, {0.5, "500.0E-3"}, {999.96, "1.0E+3"}, {0, "0.0E+0"}}},
        {"T[0]T[0]T[ds]T[0]T[E+]T[0]", {{12345, "01.2E+4"}, {123456, "12.3E+4"}}},
        {"T[0]T[E+]T[0]T[#]", {{500000, "5E+05"}, {5e123, "5E+123"}}},
        {"T[0]T[E+]T[#]", {{5, "5E+"}, {50, "5E+1"}}}, {"T[0]T[E+]T[0]T[0]T[0]", {{5, "5E+000"}}},
        {"T[0]T[E+]T[#]T[#]T[0]", {{5e5, "5E+5"}, {5e123, "5E+123"}}},
        {"T[0]T[E+]T[0]T[#]T[#]", {{1.2e12, "1E+012"}}},
        {"T[E+]T[0]", {{1234, "1E+3"}}},  // every integer digit is an excess digit
        // point, separator, signs and a second exponent are skipped inside it
        {"T[0]T[E+]T[0]T[ds]T[0]", {{1234, "1E+03"}}}, {"T[0]T[ds]T[E+]T[0]", {{1234, "1E+3"}}},
        {"T[0]T[ds]T[#]T[E+]T[0]T[E-]", {{1234, "1.2E+3"}}},
    });
    // clang-format on
}

// clang-format off
TEST_F(NumberFormatTest, PercentBooleansErrorsAndThePlainForm) {
    Check(settings, {
        {"T[0]T[pcs]", {{0.25, "25%"}, {-0.25, "-25%"}}},
        {"T[0]T[ds]T[0]T[pcs]", {{0.0625, "6.3%"}}}, {"T[pcs]T[0]", {{-0.5, "-%50"}}},
        // times hundred: without the sign once per token, with it once in all
        {"T[0]T[pc]T[pc]", {{0.125, "1250"}}}, {"T[0]T[pcs]T[pc]", {{0.25, "25%"}}},
        {"T[pc]T[0]T[pcs]T[pcs]", {{0.25, "25%%"}}},
        {"T[0]T[pcs]T[FS]T[ns]T[0]T[ne]", {{-0.5, "(1)"}, {0.5, "50%"}}},  // each its own
        {"T[b]", {{0, "false"}, {-0.0, "false"}, {0.001, "true"}, {kNaN, "0.#IND"}}},
        {"T[bt]", {{0, "true"}}}, {"T[bf]", {{1, "false"}}}, {"T[0]L[ ]T[b]", {{-2, "-2 true"}}},
        {"T[0]T[Err]", {{-5, "-5#FORMAT"}}}, {"T[0]x", {{1, "#FORMAT"}}},  // x: not canonical
        // whatever the pattern, what it cannot hold is written plainly
        {kFixed, {{1e300, "1e300"}, {-2.5e300, "-2.5e300"}, {1e256, "1e256"}, {kNaN, "0.#IND"},
                  {std::numeric_limits<double>::max(), "1.79769313486232e308"},
                  {kInf, "1.#INF"}, {-kInf, "-1.#INF"}}},
        {"T[0]", {{std::numeric_limits<double>::signaling_NaN(), "0.#NAN"}}},
        {"T[0]T[E+]T[0]", {{1e300, "1E+300"}, {1e-300, "1E-300"}}},  // an exponent holds all
    });
}

TEST_F(NumberFormatTest, ColoursAndTheErrorSection) {
    const char* const kThree = "T[Cr]T[0]T[FS]T[Cb]T[0]T[FS]T[Cg]L[zero]";
    const struct {
        const char *pattern, *expected;
        double value;
        int colour;
    } rows[] = {
        {kThree, "5", 5, 3}, {kThree, "5", -5, 5}, {kThree, "zero", 0, 4},
        {kThree, "0.#IND", kNaN, 3}, {kThree, "-1.#INF", -kInf, 5},
        {"T[Cr]T[0]T[Cg]", "5", 5, 4},  // the last colour of a section wins
        {"T[0]T[FS]T[Cr]T[0]", "0", 0, 0},
        {"T[0]T[FS]T[0]T[FS]T[0]T[FS]T[Cm]L[err]", "5", 5, 0},  // not the error section's
    };
    // clang-format on
    for (const auto& row : rows) {
        auto format = Make(settings, row.pattern);
        EXPECT_EQ(row.expected, Out(*format, row.value)) << row.pattern << " " << row.value;
        EXPECT_EQ(row.colour, format->Color()) << row.pattern << " " << row.value;
    }
    int colour = 0;
    for (const char* name :
         {"k", "w", "r", "g", "b", "y", "m", "c", "dr", "dg", "db", "dy", "dm", "dc", "ly", "gr"}) {
        auto format = Make(settings, std::string("T[C") + name + "]T[0]");
        EXPECT_EQ("1", Out(*format, 1.0));
        EXPECT_EQ(++colour, format->Color()) << name;
    }
    // The error section: its text and colour; a fourth separator ends all reading.
    const struct {
        const char *pattern, *error;
        int colour;
    } errors[] = {{"T[0]T[FS]T[0]T[FS]T[0]T[FS]T[Cm]L[err]T[0]L[!]", "err!", 7},
                  {"T[Cr]T[0]T[FS]T[Cb]T[0]", "", 0},
                  {"T[FS]T[FS]T[FS]L[a]T[FS]L[b]T[Cr]", "a", 0}};
    for (const auto& row : errors) {
        auto format = Make(settings, row.pattern);
        Out(*format, 5.0);
        EXPECT_TRUE(format->FormatError());
        EXPECT_EQ(row.error, Utf8(format->c_str())) << row.pattern;
        EXPECT_EQ(row.colour, format->Color()) << row.pattern;
    }
}

TEST_F(NumberFormatTest, PreferencesOfTheUser) {
    auto prefs = Settings(GroupedLocale({3}), {{"decimal_point", ","},
                                               {"thousands_sep", "."},
                                               {"true_word", "ja"},
                                               {"false_word", "nein"}});
    Check(prefs, {{kFixed, {{1234567.5, "1.234.567,50"}, {kNaN, "0,#IND"}, {2.5e300, "2,5e300"}}},
                  {"T[b]T[bt]T[bf]", {{0, "neinjanein"}, {1, "jajanein"}}}});
    auto noSeparator = Settings(GroupedLocale({3}), {{"thousands_sep", ""}});
    Check(noSeparator, {{kFixed, {{1234567, "1234567.00"}}}});
}

// An unsigned long is never negative, whatever its bits.
TEST_F(NumberFormatTest, LongAndUnsignedLong) {
    auto format = Make(settings, "T[#]T[gs]T[0]T[FS]L[neg]T[0]T[FS]L[zero]");
    EXPECT_EQ("neg9223372036854780000 neg1 zero",
              Out(*format, LONG_MIN) + " " + Out(*format, -1L) + " " + Out(*format, 0L));
    EXPECT_EQ("9,223,372,036,854,780,000 18,446,744,073,709,600,000 zero",
              Out(*format, static_cast<unsigned long>(LONG_MIN)) + " " +
                  Out(*format, static_cast<unsigned long>(-1L)) + " " + Out(*format, 0UL));
}

TEST_F(NumberFormatTest, DefaultFormats) {
    // The classic texts: #,##0.## ; #,##0 and a literal "%" (no scaling); 0.0############E-0 ;
    // the boolean layout.
    const std::pair<fmtLibDefaultFormats, std::pair<double, const char*>> rows[] = {
        {STANDARD, {1234.567, "1,234.57"}},
        {PERCENT, {12.5, "13%"}},
        {SCIENTIFIC, {2.0 / 3, "6.66666666666667E-1"}},
        {SCIENTIFIC, {0, "0.0E0"}},
        {BOOLEAN, {-2, "true"}}};
    for (const auto& [named, row] : rows) {
        luNumberFormat* format = nullptr;
        ASSERT_EQ(0, CreateDefaultNumberFormat(settings, named, format)) << named;
        EXPECT_EQ(row.second, Out(*std::unique_ptr<luNumberFormat>(format), row.first));
    }
    // A default token takes the place of the whole pattern.
    Check(settings, {{"L[x]T[An]T[0]T[FS]L[y]", {{1234.5, "1,234.5"}, {-1, "-1"}}}});
    luNumberFormat* out = nullptr;
    for (int other : {0, 19, 21, 25})
        EXPECT_EQ(LU_E_FAIL, CreateDefaultNumberFormat(
                                 settings, static_cast<fmtLibDefaultFormats>(other), out));
    std::unique_ptr<luStringFormatDate> dates(CreateSerialStringFormatDate());
    EXPECT_EQ(LU_E_FAIL, CreateNumberFormat(settings, Parse(*dates, "T[023]").get(), out));
    EXPECT_EQ(nullptr, out);

    // A locale's own texts: a missing one fails, one that cannot be read formats as an error.
    static const unsigned short kGrouping[] = {3, 0}, kUnreadable[] = {u'x', 0},
                                kPlain[] = {u'L', u'[', u'~', u']', u'T', u'[', u'0', u']', 0};
    static const unsigned short* const kFormats[] = {nullptr, nullptr, kPlain, kUnreadable};
    static const lu_numeric_punctuation::StaticStorage kStorage = {
        1, u'.', u',', kGrouping, lu_numeric_punctuation::kDefaultBlock, kFormats};
    auto own = Settings(NumberLocale(new lu_numpunct(&kStorage, 0)));
    EXPECT_EQ(LU_E_FAIL, CreateDefaultNumberFormat(own, STANDARD, out));
    EXPECT_EQ(nullptr, out);
    Check(own, {{"T[Ap]", {{-12.5, "-~13"}}}, {"T[As]", {{1, "#FORMAT"}}}});
}

}  // namespace

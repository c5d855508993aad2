// The number formatter on tables of (pattern, value, expected text) worked out
// by hand from the layout rules: every layout operation, digit places and
// their fill, grouping, signs and sections, colours, percent, exponents,
// booleans, preferences, the plain form of values a pattern cannot hold, the
// default formats, and the same patterns in the locales of the locale data.
//
// Digits: at most 15 significant ones, rounded on the first dropped digit
// (5 and up go up, no rounding to even), trailing fraction zeros dropped and
// then filled up to the "0" places. Values are chosen so that their
// significant digits are plain (exact binary fractions or digits far from a
// rounding edge).
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/frame/result_codes.h"
#include "number_test_support.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

luStringFormatNumber& Serial() {
    static std::unique_ptr<luStringFormatNumber> serial(CreateSerialStringFormatNumber());
    return *serial;
}

luStringFormatNumber& Ombrin() {
    static std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("en", nullptr));
    return *ombrin;
}

std::string Show(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

// A formatter for `text` read with `dialect`; null (with a failure) if it
// could not be made.
std::unique_ptr<luNumberFormat> Make(ilu_ptr<luSettings>& settings, luStringFormatNumber& dialect,
                                     const std::string& text) {
    auto pattern = Parse(dialect, text);
    EXPECT_TRUE(pattern != nullptr) << text;
    if (pattern == nullptr) return nullptr;
    luNumberFormat* format = nullptr;
    EXPECT_EQ(0, CreateNumberFormat(settings, pattern.get(), format)) << text;
    return std::unique_ptr<luNumberFormat>(format);
}

template <class T>
std::string Out(luNumberFormat& format, T value) {
    format.Format(value);
    return Utf8(ucs2string(format.c_str()));
}

struct Case {
    double value;
    const char* expected;
};

struct Layout {
    const char* pattern;
    std::vector<Case> cases;
};

// Runs each layout's cases; every result here has no colour.
void CheckLayouts(ilu_ptr<luSettings>& settings, luStringFormatNumber& dialect,
                  const std::vector<Layout>& layouts) {
    for (const Layout& layout : layouts) {
        auto format = Make(settings, dialect, layout.pattern);
        if (format == nullptr) continue;
        for (const Case& c : layout.cases) {
            EXPECT_EQ(c.expected, Out(*format, c.value))
                << "pattern " << layout.pattern << ", value " << Show(c.value);
            EXPECT_EQ(0, format->Color()) << layout.pattern;
        }
    }
}

// --- digit places, fill and rounding ---------------------------------------

TEST(NumberFormatTableTest, DigitPlacesAndFill) {
    auto settings = Settings(GroupedLocale({3}));
    CheckLayouts(
        settings, Serial(),
        {
            // #,##0.00
            {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]",
             {{0, "0.00"},
              {1, "1.00"},
              {-1, "-1.00"},
              {0.1, "0.10"},
              {0.005, "0.01"},
              {0.004, "0.00"},
              {5e-324, "0.00"},
              {-0.004, "-0.00"},
              {12.125, "12.13"},  // up on the 5, not to even
              {1234.5, "1,234.50"},
              {-1234.5, "-1,234.50"},
              {999.999, "1,000.00"},
              {1234567.891, "1,234,567.89"},
              {1e15, "1,000,000,000,000,000.00"},
              {123456789012345678.0, "123,456,789,012,346,000.00"}}},
            // 0
            {"T[0]",
             {{0, "0"},
              {5, "5"},
              {-5, "-5"},
              {2.5, "3"},
              {-2.5, "-3"},
              {0.4, "0"},
              {-0.4, "-0"},  // the sign stays without a significant digit
              {-0.0, "0"}}},
            // # pads nothing: zero and values below one write no digit
            {"T[#]", {{0, ""}, {7, "7"}, {123, "123"}, {0.4, ""}, {-0.4, "-"}, {-7, "-7"}}},
            {"T[#]T[ds]T[0]", {{0.5, ".5"}, {0, ".0"}, {3, "3.0"}, {-0.5, "-.5"}}},
            {"T[0]T[ds]T[0]", {{0.5, "0.5"}, {0.25, "0.3"}, {-0.001, "-0.0"}}},
            // a "0" place on the left pads its zero straight ahead of the digits
            {"T[0]T[#]T[#]", {{5, "05"}, {45, "045"}, {345, "345"}, {0, "0"}, {-5, "-05"}}},
            {"T[0]T[0]T[0]", {{5, "005"}, {12345, "12345"}, {-5, "-005"}, {0, "000"}}},
            {"T[#]T[0]T[#]", {{5, "05"}, {0, "0"}, {123, "123"}}},
            {"T[0]T[#]T[0]", {{5, "05"}, {0, "00"}, {1234, "1234"}}},
            // fraction: leading zeros are the minimum, "#" the rest
            {"T[0]T[ds]T[0]T[0]T[#]",
             {{1.5, "1.50"}, {1.125, "1.125"}, {1.0625, "1.063"}, {0, "0.00"}}},
            // a "0" behind a "#" writes a digit or zero but is no minimum
            {"T[0]T[ds]T[#]T[0]", {{5, "5.0"}, {5.5, "5.50"}, {5.25, "5.25"}, {5.125, "5.13"}}},
            {"T[0]T[ds]T[#]T[#]", {{5, "5"}, {5.5, "5.5"}, {5.125, "5.13"}}},
            {"T[0]T[ds]", {{5, "5"}, {5.5, "6"}}},
            // the point first: all integer digits are excess digits
            {"T[ds]T[0]T[0]", {{0.25, ".25"}, {12.5, "12.50"}, {-0.25, "-.25"}, {0, ".00"}}},
            {"T[ds]T[#]", {{5, "5"}, {0.5, ".5"}, {0, ""}}},
            {"T[ds]T[0]", {{-0.25, "-.3"}}},
        });
}

// --- grouping ---------------------------------------------------------------

TEST(NumberFormatTableTest, Grouping) {
    auto settings = Settings(GroupedLocale({3}));
    CheckLayouts(settings, Serial(),
                 {
                     {"T[#]T[gs]T[#]T[#]T[0]",
                      {{1234567890, "1,234,567,890"},
                       {123, "123"},
                       {1234, "1,234"},
                       {-1234, "-1,234"},
                       {0, "0"},
                       {999999.5, "1,000,000"}}},
                     {"T[0]T[gs]T[0]T[0]T[0]T[0]T[0]", {{5, "000,005"}, {1234567, "1,234,567"}}},
                     // ahead of the first place the separator token is skipped
                     {"T[gs]T[0]T[0]T[0]T[0]", {{12345, "12345"}}},
                     // anywhere in the integer part it groups every position
                     {"T[0]T[0]T[0]T[0]T[gs]", {{12345, "12,345"}, {123, "0,123"}}},
                     {"T[0]T[gs]", {{-1234567, "-1,234,567"}}},
                     // in the fraction it is skipped
                     {"T[0]T[ds]T[0]T[gs]T[0]", {{12345.5, "12345.50"}}},
                 });
    auto threeTwo = Settings(GroupedLocale({3, 2}));
    CheckLayouts(threeTwo, Serial(),
                 {
                     {"T[#]T[gs]T[#]T[#]T[0]",
                      {{1234567890, "1,23,45,67,890"},
                       {12345, "12,345"},
                       {123456, "1,23,456"},
                       {123, "123"},
                       {-1234, "-1,234"}}},
                     {"T[0]T[gs]T[0]T[0]T[0]T[0]T[0]", {{5, "0,00,005"}}},
                     {"T[gs]T[0]", {{123456, "123456"}}},
                 });
    auto none = Settings(lu_locale::classic());  // no separator, no group sizes
    CheckLayouts(none, Serial(),
                 {{"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", {{1234567.5, "1234567.50"}}}});
}

// Inserts "," every three digits from the right.
std::string GroupedByThree(const std::string& digits) {
    std::string out;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i != 0 && (digits.size() - i) % 3 == 0) out += ',';
        out += digits[i];
    }
    return out;
}

TEST(NumberFormatTableTest, GroupingAtTheEndsOfTheMap) {
    auto settings = Settings(GroupedLocale({3}));
    // 256 integer digits fit: 15 significant ones, then zeros, grouped.
    auto grouped = Make(settings, Serial(), "T[#]T[gs]T[0]");
    ASSERT_TRUE(grouped != nullptr);
    const std::string digits = std::string(15, '9') + std::string(241, '0');
    EXPECT_EQ(GroupedByThree(digits), Out(*grouped, 9.99999999999999e255));
    EXPECT_EQ(341u, Out(*grouped, 9.99999999999999e255).size());

    // 260 zero places: no separator stands ahead of a digit with more than
    // 255 digits to its right, so the first group is five digits long.
    std::string pattern = "T[0]T[gs]";
    for (int i = 1; i < 260; ++i) pattern += "T[0]";
    auto wide = Make(settings, Serial(), pattern);
    ASSERT_TRUE(wide != nullptr);
    std::string expected = "00000";
    for (int i = 0; i < 84; ++i) expected += ",000";
    expected += ",001";
    EXPECT_EQ(expected, Out(*wide, 1.0));
}

// --- signs, brackets, literals and sections ----------------------------------

TEST(NumberFormatTableTest, SignsAndSections) {
    auto settings = Settings(GroupedLocale({3}));
    CheckLayouts(
        settings, Serial(),
        {
            // the implicit sign goes first, ahead of literals
            {"L[x]T[0]", {{-5, "-x5"}, {5, "x5"}}},
            {"L[a]T[0]L[b]", {{-5, "-a5b"}}},
            {"L[$]T[#]T[gs]T[#]T[#]T[0]", {{-1234, "-$1,234"}}},
            {"T[0]L[ kg]", {{-5, "-5 kg"}, {5, "5 kg"}}},
            // an explicit sign or bracket replaces it
            {"T[-]T[0]", {{-5, "-5"}, {5, "5"}}},
            {"T[0]T[-]", {{-5, "5-"}, {5, "5"}}},
            {"T[+]T[0]", {{5, "+5"}, {-5, "-5"}, {0, "+0"}}},
            {"T[0]T[+]", {{5, "5+"}, {-5, "5-"}}},
            {"T[0]T[ds]T[0]T[-]", {{-1.5, "1.5-"}}},
            {"T[ns]T[0]T[ds]T[0]T[ne]", {{-1.5, "(1.5)"}, {1.5, "1.5"}}},
            {"T[ns]T[0]", {{-5, "(5"}}},
            {"T[0]T[ne]", {{-5, "5)"}}},
            // a sign token in the exponent is skipped and counts as no sign
            {"T[0]T[E-]T[+]T[0]", {{5, "5E0"}, {-5, "-5E0"}}},
            {"T[0]T[E-]T[0]T[-]", {{-5, "-5E0"}}},
            // no digit places: no implicit sign
            {"L[none]", {{-5, "none"}, {5, "none"}, {0, "none"}}},
            // the second section has no implicit sign
            {"T[0]T[FS]T[0]", {{-5, "5"}, {5, "5"}, {0, "0"}}},
            {"T[0]T[FS]T[-]T[0]", {{-5, "-5"}}},
            {"T[0]T[FS]T[ns]T[0]T[ne]", {{-5, "(5)"}}},
            {"T[0]T[FS]L[neg]T[0]T[FS]L[zero]",
             {{5, "5"}, {-5, "neg5"}, {0, "zero"}, {-0.0, "zero"}, {0.4, "0"}, {-0.4, "neg0"}}},
            // an empty second section leaves negative values in the first
            {"T[0]T[FS]", {{-5, "-5"}}},
            {"T[0]T[FS]T[FS]L[zero]", {{-5, "-5"}, {0, "zero"}}},
            // an empty first section
            {"T[FS]T[0]", {{5, ""}, {-5, "5"}}},
            // zero with two sections takes the first, with the zero flag set
            {"T[b]T[FS]T[0]", {{0, "false"}, {3, "true"}, {-3, "3"}}},
            // the third section's sign is its own
            {"T[0]T[FS]T[0]T[FS]T[-]T[0]", {{0, "0"}}},
            // behind a third separator nothing is a number section
            {"T[0]T[FS]T[0]T[FS]T[0]T[FS]L[bad]", {{1, "1"}, {-1, "1"}, {0, "0"}}},
        });
}

TEST(NumberFormatTableTest, TokensOfNoNumberTableAreSkipped) {
    auto settings = Settings(GroupedLocale({3}));
    std::unique_ptr<luFmtPattern> pattern(CreateNumberFmtPattern());
    pattern->push_back(static_cast<luFmtTokens>(22));  // an hour
    pattern->push_back(TokDigitOrZero);
    pattern->push_back(static_cast<luFmtTokens>(56));  // an era
    luNumberFormat* format = nullptr;
    ASSERT_EQ(0, CreateNumberFormat(settings, pattern.get(), format));
    std::unique_ptr<luNumberFormat> owned(format);
    EXPECT_EQ("-5", Out(*owned, -5.0));
}

// --- exponents -------------------------------------------------------------

TEST(NumberFormatTableTest, Exponents) {
    auto settings = Settings(GroupedLocale({3}));
    CheckLayouts(
        settings, Serial(),
        {
            // 0.00E+00
            {"T[0]T[ds]T[0]T[0]T[E+]T[0]T[0]",
             {{12345, "1.23E+04"},
              {0.000125, "1.25E-04"},
              {-0.000125, "-1.25E-04"},
              {0, "0.00E+00"},
              {1, "1.00E+00"},
              {1e100, "1.00E+100"},
              {1.5e-100, "1.50E-100"},
              {1e-300, "1.00E-300"},
              {2.2250738585072014e-308, "2.23E-308"},
              // below 1e-308 no digit is made, and the exponent stays
              {1e-308, "0.00E-309"},
              {5e-324, "0.00E-324"},
              {9.999e9, "1.00E+10"},
              {1234.5, "1.23E+03"},
              {1235, "1.24E+03"}}},
            // 0.00E-00: the sign only for a negative exponent
            {"T[0]T[ds]T[0]T[0]T[E-]T[0]T[0]", {{12345, "1.23E04"}, {0.000125, "1.25E-04"}}},
            {"T[0]T[ds]T[0]T[e+]T[0]", {{12345, "1.2e+4"}, {0.000125, "1.3e-4"}}},
            {"T[0]T[e-]T[0]", {{12345, "1e4"}, {0.000125, "1e-4"}, {-12345, "-1e4"}}},
            // engineering: the exponent steps by the integer places
            {"T[#]T[#]T[0]T[ds]T[0]T[E+]T[0]",
             {{12345, "12.3E+3"},
              {1234567, "1.2E+6"},
              {1234, "1.2E+3"},
              {123, "123.0E+0"},
              {0.5, "500.0E-3"},
              {0.000123456, "123.5E-6"},
              {999.96, "1.0E+3"},
              {0, "0.0E+0"},
              {-12345, "-12.3E+3"}}},
            {"T[0]T[0]T[ds]T[0]T[E+]T[0]", {{12345, "01.2E+4"}, {123456, "12.3E+4"}}},
            // exponent places: "0" pads, "#" does not
            {"T[0]T[E+]T[0]T[#]",
             {{500000, "5E+05"}, {5, "5E+00"}, {5e12, "5E+12"}, {5e123, "5E+123"}}},
            {"T[0]T[E+]T[#]", {{5, "5E+"}, {50, "5E+1"}}},
            {"T[0]T[E+]T[0]T[0]T[0]", {{5, "5E+000"}, {5e12, "5E+012"}}},
            {"T[0]T[E+]T[#]T[#]T[0]",
             {{5, "5E+0"}, {5e5, "5E+5"}, {5e12, "5E+12"}, {5e123, "5E+123"}}},
            {"T[0]T[E+]T[0]T[#]T[#]", {{5e5, "5E+05"}, {1.2e12, "1E+012"}, {5e123, "5E+123"}}},
            // the exponent first: every integer digit is an excess digit
            {"T[E+]T[0]", {{1234, "1E+3"}}},
            // point, separator and signs are skipped inside the exponent
            {"T[0]T[E+]T[0]T[ds]T[0]", {{1234, "1E+03"}}},
            {"T[0]T[ds]T[E+]T[0]", {{1234, "1E+3"}}},
            {"T[0]T[ds]T[#]T[E+]T[0]T[E-]", {{1234, "1.2E+3"}}},
        });
}

// --- percent, booleans, errors ----------------------------------------------

TEST(NumberFormatTableTest, PercentBooleansAndErrors) {
    auto settings = Settings(GroupedLocale({3}));
    CheckLayouts(
        settings, Serial(),
        {
            {"T[0]T[pcs]", {{0.25, "25%"}, {-0.25, "-25%"}, {0, "0%"}, {1, "100%"}}},
            {"T[0]T[ds]T[0]T[pcs]", {{0.125, "12.5%"}, {0.0625, "6.3%"}}},
            {"T[pcs]T[0]", {{0.5, "%50"}, {-0.5, "-%50"}}},
            {"T[#]T[gs]T[#]T[#]T[0]T[pcs]", {{12.5, "1,250%"}}},
            // times hundred without the sign, once per token
            {"T[0]T[pc]", {{0.25, "25"}}},
            {"T[0]T[pc]T[pc]", {{0.125, "1250"}}},
            // with the sign, once in all
            {"T[0]T[pcs]T[pc]", {{0.25, "25%"}}},
            {"T[pc]T[0]T[pcs]T[pcs]", {{0.25, "25%%"}}},
            // each section scales by its own tokens
            {"T[0]T[pcs]T[FS]T[ns]T[0]T[ne]", {{-0.5, "(1)"}, {0.5, "50%"}}},
            {"T[0]T[pcs]T[FS]T[ns]T[0]T[pcs]T[ne]", {{-0.5, "(50%)"}}},
            // booleans
            {"T[b]", {{0, "false"}, {-0.0, "false"}, {1, "true"}, {-1, "true"}, {0.001, "true"}}},
            {"T[b]T[pc]", {{0.001, "true"}}},
            {"T[bt]", {{0, "true"}, {1, "true"}}},
            {"T[bf]", {{0, "false"}, {1, "false"}}},
            {"L[<]T[b]L[>]", {{0, "<false>"}}},
            {"T[0]L[ ]T[b]", {{0, "0 false"}, {-2, "-2 true"}}},
            {"T[bt]T[FS]T[bt]T[FS]T[bf]", {{5, "true"}, {-5, "true"}, {0, "false"}}},
            {"T[Ab]", {{5, "true"}, {-5, "true"}, {0, "false"}}},
            // errors
            {"T[Err]", {{5, "#FORMAT"}, {-5, "#FORMAT"}}},
            {"T[0]T[Err]", {{-5, "-5#FORMAT"}}},
            {"L[a]T[Err]L[b]", {{1, "a#FORMATb"}}},
            // a text the canonical notation cannot read
            {"T[0]x", {{1, "#FORMAT"}}},
        });
}

// --- special values and the plain form ---------------------------------------

TEST(NumberFormatTableTest, PlainForm) {
    auto settings = Settings(GroupedLocale({3}));
    CheckLayouts(
        settings, Serial(),
        {
            {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]",
             {{1e300, "1e300"},
              {-2.5e300, "-2.5e300"},
              {1.2345e300, "1.2345e300"},
              {1e256, "1e256"},
              {2.5e256, "2.5e256"},
              {std::numeric_limits<double>::max(), "1.79769313486232e308"},
              {kNaN, "0.#IND"},
              {kInf, "1.#INF"},
              {-kInf, "-1.#INF"}}},
            // whatever the pattern, in the plain form
            {"T[b]", {{kNaN, "0.#IND"}, {kInf, "1.#INF"}, {1e300, "1e300"}}},
            {"L[x]T[0]T[pcs]", {{kInf, "1.#INF"}}},
            // NaN takes the first section
            {"L[pos]T[0]T[FS]L[neg]T[0]T[FS]L[zero]",
             {{kNaN, "0.#IND"}, {-kInf, "-1.#INF"}, {kInf, "1.#INF"}}},
            {"T[0]", {{std::numeric_limits<double>::signaling_NaN(), "0.#NAN"}, {kNaN, "0.#IND"}}},
            // a section with an exponent holds any finite value
            {"T[0]T[E+]T[0]", {{1e300, "1E+300"}, {1e-300, "1E-300"}}},
        });
}

// --- colours ----------------------------------------------------------------

TEST(NumberFormatTableTest, Colours) {
    auto settings = Settings(GroupedLocale({3}));
    const struct {
        const char* pattern;
        double value;
        const char* expected;
        int colour;
    } cases[] = {
        {"T[Cr]T[0]T[FS]T[Cb]T[0]T[FS]T[Cg]L[zero]", 5, "5", 3},
        {"T[Cr]T[0]T[FS]T[Cb]T[0]T[FS]T[Cg]L[zero]", -5, "5", 5},
        {"T[Cr]T[0]T[FS]T[Cb]T[0]T[FS]T[Cg]L[zero]", 0, "zero", 4},
        {"T[Cr]T[0]T[FS]T[Cb]T[0]T[FS]T[Cg]L[zero]", kNaN, "0.#IND", 3},
        {"T[Cr]T[0]T[FS]T[Cb]T[0]T[FS]T[Cg]L[zero]", -kInf, "-1.#INF", 5},
        {"T[Cr]T[0]T[Cg]", 5, "5", 4},  // the last colour of a section wins
        {"T[0]T[FS]T[Cr]T[0]", 5, "5", 0},
        {"T[0]T[FS]T[Cr]T[0]", 0, "0", 0},
        {"T[Cgr]T[b]", 0, "false", 16},
    };
    for (const auto& c : cases) {
        auto format = Make(settings, Serial(), c.pattern);
        ASSERT_TRUE(format != nullptr);
        EXPECT_EQ(c.expected, Out(*format, c.value)) << c.pattern << " " << Show(c.value);
        EXPECT_EQ(c.colour, format->Color()) << c.pattern << " " << Show(c.value);
    }
    // Each colour token by its number.
    int colour = 0;
    for (const char* name :
         {"k", "w", "r", "g", "b", "y", "m", "c", "dr", "dg", "db", "dy", "dm", "dc", "ly", "gr"}) {
        auto format = Make(settings, Serial(), std::string("T[C") + name + "]T[0]");
        EXPECT_EQ("1", Out(*format, 1.0));
        EXPECT_EQ(++colour, format->Color()) << name;
    }
}

TEST(NumberFormatTableTest, ErrorSection) {
    auto settings = Settings(GroupedLocale({3}));
    const struct {
        const char* pattern;
        const char* error;
        int colour;
    } cases[] = {
        {"T[0]T[FS]T[0]T[FS]T[0]T[FS]T[Cm]L[err]T[0]L[!]", "err!", 7},
        {"T[0]", "", 0},
        {"T[Cr]T[0]T[FS]T[Cb]T[0]", "", 0},
        {"T[FS]T[FS]T[FS]T[Cr]L[a]T[Cb]", "a", 5},
        // a fourth separator ends all reading
        {"T[FS]T[FS]T[FS]L[a]T[FS]L[b]T[Cr]", "a", 0},
    };
    for (const auto& c : cases) {
        auto format = Make(settings, Serial(), c.pattern);
        ASSERT_TRUE(format != nullptr);
        Out(*format, 5.0);
        EXPECT_TRUE(format->FormatError());
        EXPECT_EQ(c.error, Utf8(ucs2string(format->c_str()))) << c.pattern;
        EXPECT_EQ(c.colour, format->Color()) << c.pattern;
    }
    // The error section's literals never reach a number, and its colour
    // never colours one.
    auto format = Make(settings, Serial(), "T[0]T[FS]T[0]T[FS]T[0]T[FS]T[Cm]L[err]");
    EXPECT_EQ("5", Out(*format, 5.0));
    EXPECT_EQ(0, format->Color());
}

// --- preferences --------------------------------------------------------------

TEST(NumberFormatTableTest, PreferencesOfTheUser) {
    auto settings = Settings(GroupedLocale({3}), {{"decimal_point", ","},
                                                  {"thousands_sep", "."},
                                                  {"true_word", "ja"},
                                                  {"false_word", "nein"}});
    CheckLayouts(settings, Serial(),
                 {
                     {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]",
                      {{1234567.5, "1.234.567,50"},
                       {-0.5, "-0,50"},
                       {kNaN, "0,#IND"},
                       {kInf, "1,#INF"},
                       {2.5e300, "2,5e300"}}},
                     {"T[0]T[ds]T[0]T[E+]T[0]", {{12345, "1,2E+4"}}},
                     {"T[b]", {{0, "nein"}, {1, "ja"}}},
                     {"T[bt]", {{0, "ja"}}},
                     {"T[bf]", {{1, "nein"}}},
                     {"T[Ab]", {{-1, "ja"}, {0, "nein"}}},
                 });
    // An empty separator: the positions stay, nothing is written there.
    auto none = Settings(GroupedLocale({3}), {{"thousands_sep", ""}});
    CheckLayouts(none, Serial(), {{"T[#]T[gs]T[#]T[#]T[0]", {{1234567, "1234567"}}}});
    // A longer text gives its first unit.
    auto first = Settings(GroupedLocale({3}), {{"decimal_point", "<>"}});
    CheckLayouts(first, Serial(), {{"T[0]T[ds]T[0]", {{1.5, "1<5"}}}});
}

// --- the three overloads ----------------------------------------------------

TEST(NumberFormatTableTest, LongAndUnsignedLong) {
    auto settings = Settings(GroupedLocale({3}));
    // Beyond 15 significant digits the rest are zeros; an unsigned long is
    // never negative, whatever its bits.
    const struct {
        const char* pattern;
        long value;
        const char* asLong;
        const char* asUnsigned;
    } rows[] = {
        {"T[#]T[gs]T[#]T[#]T[0]", 1234567, "1,234,567", "1,234,567"},
        {"T[#]T[gs]T[#]T[#]T[0]", 0, "0", "0"},
        {"T[#]T[gs]T[#]T[#]T[0]", 999999999999999, "999,999,999,999,999", "999,999,999,999,999"},
        {"T[#]T[gs]T[#]T[#]T[0]", 1234567890123456789, "1,234,567,890,123,460,000",
         "1,234,567,890,123,460,000"},
        {"T[#]T[gs]T[#]T[#]T[0]", LONG_MAX, "9,223,372,036,854,780,000",
         "9,223,372,036,854,780,000"},
        {"T[#]T[gs]T[#]T[#]T[0]", LONG_MIN, "-9,223,372,036,854,780,000",
         "9,223,372,036,854,780,000"},
        {"T[#]T[gs]T[#]T[#]T[0]", -1, "-1", "18,446,744,073,709,600,000"},
        {"T[0]T[FS]L[neg]T[0]T[FS]L[zero]", 5, "5", "5"},
        {"T[0]T[FS]L[neg]T[0]T[FS]L[zero]", 0, "zero", "zero"},
        {"T[0]T[FS]L[neg]T[0]T[FS]L[zero]", -5, "neg5", "18446744073709600000"},
        {"T[0]T[pcs]", 5, "500%", "500%"},
        {"T[b]", 0, "false", "false"},
        {"T[b]", -1, "true", "true"},
    };
    for (const auto& row : rows) {
        auto format = Make(settings, Serial(), row.pattern);
        ASSERT_TRUE(format != nullptr);
        EXPECT_EQ(row.asLong, Out(*format, row.value)) << row.pattern << " " << row.value;
        EXPECT_EQ(row.asUnsigned, Out(*format, static_cast<unsigned long>(row.value)))
            << row.pattern << " " << row.value;
    }
}

// --- default formats ----------------------------------------------------------

TEST(NumberFormatTableTest, DefaultFormats) {
    auto settings = Settings(GroupedLocale({3}));
    // The classic texts: #,##0.## ; #,##0 and a literal "%" (no scaling);
    // 0.0############E-0 ; the boolean layout.
    const struct {
        fmtLibDefaultFormats format;
        double value;
        const char* expected;
    } cases[] = {
        {STANDARD, 1234.567, "1,234.57"},
        {STANDARD, -0.5, "-0.5"},
        {STANDARD, 1e300, "1e300"},
        {PERCENT, 12.5, "13%"},
        {PERCENT, 0.25, "0%"},
        {PERCENT, 1234, "1,234%"},
        {SCIENTIFIC, 1234.5, "1.2345E3"},
        {SCIENTIFIC, 1.0 / 3, "3.33333333333333E-1"},
        {SCIENTIFIC, 2.0 / 3, "6.66666666666667E-1"},
        {SCIENTIFIC, 0, "0.0E0"},
        {SCIENTIFIC, -1, "-1.0E0"},
        {BOOLEAN, 0, "false"},
        {BOOLEAN, 2, "true"},
        {BOOLEAN, -2, "true"},
    };
    for (const auto& c : cases) {
        luNumberFormat* format = nullptr;
        ASSERT_EQ(0, CreateDefaultNumberFormat(settings, c.format, format)) << c.format;
        std::unique_ptr<luNumberFormat> owned(format);
        EXPECT_EQ(c.expected, Out(*owned, c.value)) << c.format << " " << Show(c.value);
    }
    // A default token takes the place of the whole pattern.
    CheckLayouts(settings, Serial(),
                 {{"T[An]", {{1234.5, "1,234.5"}}},
                  {"L[x]T[An]T[0]T[FS]L[y]", {{1234.5, "1,234.5"}, {-1, "-1"}}},
                  {"T[Ap]", {{12.5, "13%"}}},
                  {"T[As]", {{0.000125, "1.25E-4"}}}});

    luNumberFormat* sentinel = reinterpret_cast<luNumberFormat*>(0x10);
    luNumberFormat* out = sentinel;
    for (int other : {0, 1, 14, 15, 19, 21, 25, -1, 350}) {
        EXPECT_EQ(LU_E_FAIL, CreateDefaultNumberFormat(
                                 settings, static_cast<fmtLibDefaultFormats>(other), out))
            << other;
        EXPECT_EQ(sentinel, out);
    }
    // A date pattern is no number pattern.
    std::unique_ptr<luStringFormatDate> dates(CreateSerialStringFormatDate());
    auto date = Parse(*dates, "T[023]L[:]T[0m]");
    ASSERT_TRUE(date != nullptr);
    EXPECT_EQ(LU_E_FAIL, CreateNumberFormat(settings, date.get(), out));
    EXPECT_EQ(sentinel, out);
}

// A grouped locale whose four default texts are `formats`.
lu_locale WithNumberFormats(const unsigned short* const* formats) {
    static const unsigned short kGrouping[] = {3, 0};
    const lu_numeric_punctuation::StaticStorage storage = {
        1, u'.', u',', kGrouping, lu_numeric_punctuation::kDefaultBlock, formats};
    auto* punct = new lu_numpunct(&storage, 0);
    auto* impl = new lu_locale::_Impl(*lu_locale::classic()._M_get_impl(), 0);
    impl->_M_install_facet(&lu_numpunct::id, punct);
    impl->_M_install_facet(&lu_num_put::id, new lu_num_put(punct, 0));
    return lu_locale(impl);
}

TEST(NumberFormatTableTest, DefaultFormatsOfTheLocale) {
    static const unsigned short kUnreadable[] = {u'x', u'T', u'[', 0};
    static const unsigned short kPlain[] = {u'L', u'[', u'~', u']', u'T', u'[', u'0', u']', 0};
    static const unsigned short* const kMissing[] = {nullptr, nullptr, kPlain, kUnreadable};
    auto settings = Settings(WithNumberFormats(kMissing));
    luNumberFormat* out = nullptr;
    // A missing text fails.
    EXPECT_EQ(LU_E_FAIL, CreateDefaultNumberFormat(settings, STANDARD, out));
    EXPECT_EQ(nullptr, out);
    // The locale's own text is used, and one it cannot read formats as an
    // error.
    CheckLayouts(settings, Serial(),
                 {{"T[Ap]", {{12.5, "~13"}, {-1, "-~1"}}}, {"T[As]", {{1, "#FORMAT"}}}});
}

// --- the Ombrin dialect -----------------------------------------------------

TEST(NumberFormatTableTest, OmbrinTexts) {
    auto settings = Settings(GroupedLocale({3}));
    CheckLayouts(settings, Ombrin(),
                 {
                     {"#,##0.00;(#,##0.00);'zero'",
                      {{1234.5, "1,234.50"}, {-1234.5, "(1,234.50)"}, {0, "zero"}}},
                     {"0.00E+00", {{12345, "1.23E+04"}, {0.000125, "1.25E-04"}}},
                     {"##0.0E+0", {{12345, "12.3E+3"}, {0.000123456, "123.5E-6"}}},
                     {"0.0e-0", {{0.000125, "1.3e-4"}}},
                     {"0[%]", {{0.25, "25"}}},
                     {"0%", {{0.25, "0%"}}},  // a plain "%" is literal text here
                     {"0<times 100 and sign>", {{0.25, "25%"}}},
                     {"<positive sign>0", {{5, "+5"}, {-5, "-5"}}},
                     {"-0", {{-5, "-5"}}},
                     {"0-", {{-5, "5-"}}},
                     {"(0)", {{-5, "(5)"}, {5, "5"}}},
                     {"0' kg'", {{-5, "-5 kg"}}},
                     {"<bool>", {{0, "false"}, {7, "true"}}},
                     {"<true>;<true>;<false>", {{-1, "true"}, {0, "false"}}},
                     {"BOOLEAN", {{-1, "true"}, {0, "false"}}},
                     {"STANDARD", {{1234.5, "1,234.5"}}},
                     {"PERCENT", {{12.5, "13%"}}},
                     {"SCIENTIFIC", {{1234.5, "1.2345E3"}}},
                     {"0\\", {{1, "#FORMAT"}}},  // a trailing escape character
                     {"'open", {{1, "#FORMAT"}}},
                     {"#,##0;;'zero'", {{-1234, "-1,234"}, {0, "zero"}}},
                 });
    auto coloured = Make(settings, Ombrin(), "[Red]0.0;[Blue]-0.0;[green]0;[Cyan]'n/a'");
    ASSERT_TRUE(coloured != nullptr);
    EXPECT_EQ("2.3", Out(*coloured, 2.25));
    EXPECT_EQ(3, coloured->Color());
    EXPECT_EQ("-2.3", Out(*coloured, -2.25));
    EXPECT_EQ(5, coloured->Color());
    EXPECT_EQ("0", Out(*coloured, 0.0));
    EXPECT_EQ(4, coloured->Color());
    coloured->FormatError();
    EXPECT_EQ("'n/a'", Utf8(ucs2string(coloured->c_str())));  // all literal there
    EXPECT_EQ(8, coloured->Color());
}

// --- the locales of the locale data -------------------------------------------

// `text` with the digits, "." and "," of Arabic-Indic writing: U+0660 to
// U+0669, U+066B and U+066C.
std::string Arabic(const std::string& text) {
    ucs2string out;
    for (char c : text) {
        unsigned short unit = static_cast<unsigned char>(c);
        if (c >= '0' && c <= '9') unit = static_cast<unsigned short>(0x0660 + (c - '0'));
        if (c == '.') unit = 0x066B;
        if (c == ',') unit = 0x066C;
        out.push_back(unit);
    }
    return Utf8(out);
}

TEST(NumberFormatTableTest, LocaleDataPunctuation) {
    // The facts that the expectations below are derived from.
    const struct {
        const char* name;
        unsigned short decimal, separator;
        std::vector<unsigned short> grouping;
        unsigned short zero;
    } locales[] = {
        {"de_DE", u',', u'.', {3}, u'0'},
        {"fr_FR", u',', 0x202F, {3}, u'0'},
        {"hi_IN", u'.', u',', {3, 2}, u'0'},
        {"ar_EG", 0x066B, 0x066C, {3}, 0x0660},
    };
    for (const auto& l : locales) {
        SCOPED_TRACE(l.name);
        const lu_locale locale(l.name);
        const lu_numpunct& punct = lu_use_facet<lu_numpunct>(locale);
        EXPECT_EQ(l.decimal, punct.decimal_point());
        EXPECT_EQ(l.separator, punct.thousands_sep());
        std::vector<unsigned short> grouping;
        for (const unsigned short* g = punct.grouping(); g != nullptr && *g != 0; ++g)
            grouping.push_back(*g);
        EXPECT_EQ(l.grouping, grouping);
        for (int d = 0; d < 10; ++d) EXPECT_EQ(l.zero + d, punct.GetDigits(false)[d]);
        EXPECT_EQ(u'-', punct.negative_sign());
        EXPECT_EQ(u'+', punct.positive_sign());
        EXPECT_EQ(u'e', punct.exponent_sign());
    }
}

TEST(NumberFormatTableTest, LocaleData) {
    const struct {
        const char* pattern;
        double value;
        const char* de;
        const char* fr;
        const char* hi;
        const char* ar;  // in "." and "," and ASCII digits, see Arabic()
    } rows[] = {
        {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", 1234567.5, "1.234.567,50", "1\u202F234\u202F567,50",
         "12,34,567.50", "1,234,567.50"},
        {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", -1234.5, "-1.234,50", "-1\u202F234,50", "-1,234.50",
         "-1,234.50"},
        {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", 0, "0,00", "0,00", "0.00", "0.00"},
        {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", 12345678901, "12.345.678.901,00",
         "12\u202F345\u202F678\u202F901,00", "12,34,56,78,901.00", "12,345,678,901.00"},
        {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", kNaN, "0,#IND", "0,#IND", "0.#IND", "0.#IND"},
        {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", -kInf, "-1,#INF", "-1,#INF", "-1.#INF", "-1.#INF"},
        {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", 2.5e300, "2,5e300", "2,5e300", "2.5e300", "2.5e300"},
        {"T[0]T[ds]T[0]T[0]T[E+]T[0]T[0]", 12345, "1,23E+04", "1,23E+04", "1.23E+04", "1.23E+04"},
        {"T[0]T[ds]T[0]T[0]T[E+]T[0]T[0]", 0.000125, "1,25E-04", "1,25E-04", "1.25E-04",
         "1.25E-04"},
        {"T[0]T[gs]T[0]T[0]T[0]T[0]T[0]", 5, "000.005", "000\u202F005", "0,00,005", "000,005"},
        {"T[0]T[pcs]", 0.25, "25%", "25%", "25%", "25%"},
        {"T[0]T[ds]T[0]T[FS]T[ns]T[0]T[ds]T[0]T[ne]T[FS]L[-]", -2.25, "(2,3)", "(2,3)", "(2.3)",
         "(2.3)"},
        {"T[0]T[ds]T[0]T[FS]T[ns]T[0]T[ds]T[0]T[ne]T[FS]L[-]", 0, "-", "-", "-", "-"},
        // The locales' default texts.
        {"T[An]", 1234.5678, "1.234,568", "1\u202F234,568", "1,234.568", "1,234.568"},
        {"T[An]", 1234567.5, "1.234.567,5", "1\u202F234\u202F567,5", "12,34,567.5", "1,234,567.5"},
        {"T[As]", 1234.5, "1,2345E3", "1,2345E3", "[1.2345E3]", "1.2345E3"},
        {"T[As]", -1234.5, "-1,2345E3", "-1,2345E3", "-[1.2345E3]", "-1.2345E3"},
        {"T[As]", 1000, "1E3", "1E3", "[1E3]", "1E3"},
        {"T[Ab]", 0, "false", "false", "false", "false"},
        {"T[Ab]", -3, "true", "true", "true", "true"},
    };
    const char* names[] = {"de_DE", "fr_FR", "hi_IN", "ar_EG"};
    for (int l = 0; l < 4; ++l) {
        SCOPED_TRACE(names[l]);
        auto settings = Settings(lu_locale(names[l]));
        for (const auto& row : rows) {
            const std::string expected = l == 0   ? row.de
                                         : l == 1 ? row.fr
                                         : l == 2 ? row.hi
                                                  : Arabic(row.ar);
            auto format = Make(settings, Serial(), row.pattern);
            ASSERT_TRUE(format != nullptr);
            EXPECT_EQ(expected, Out(*format, row.value)) << row.pattern << " " << Show(row.value);
        }
    }
    // The percent texts hold a locale's own sign and no scaling.
    const struct {
        const char* name;
        const char* expected;
    } percent[] = {{"de_DE", "1.234\u00A0%"},
                   {"fr_FR", "1\u202F234\u00A0%"},
                   {"hi_IN", "1,234%"},
                   {"ar_EG", "\u0661\u066C\u0662\u0663\u0664\u066A"}};
    for (const auto& p : percent) {
        auto settings = Settings(lu_locale(p.name));
        luNumberFormat* format = nullptr;
        ASSERT_EQ(0, CreateDefaultNumberFormat(settings, PERCENT, format));
        std::unique_ptr<luNumberFormat> owned(format);
        EXPECT_EQ(p.expected, Out(*owned, 1234.0)) << p.name;
    }
    // Preferences win over the locale data too.
    auto german = Settings(lu_locale("de_DE"), {{"decimal_point", "."}, {"thousands_sep", ","}});
    CheckLayouts(german, Ombrin(), {{"#,##0.00", {{1234.5, "1,234.50"}}}});
}

}  // namespace

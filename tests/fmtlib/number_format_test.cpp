// The number formatter on hand-worked cases: section choice, implicit signs,
// digit places, grouping, exponents, percent, booleans and the error section.
#include <gtest/gtest.h>

#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/frame/result_codes.h"
#include "number_test_support.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

// Formats `value` with the canonical pattern `text`.
template <class T>
std::string Formatted(ilu_ptr<luSettings>& settings, const char* text, T value,
                      int* colour = nullptr) {
    std::unique_ptr<luStringFormatNumber> serial(CreateSerialStringFormatNumber());
    auto pattern = Parse(*serial, text);
    luNumberFormat* format = nullptr;
    EXPECT_EQ(0, CreateNumberFormat(settings, pattern.get(), format)) << text;
    std::unique_ptr<luNumberFormat> owned(format);
    owned->Format(value);
    if (colour != nullptr) *colour = owned->Color();
    return Utf8(ucs2string(owned->c_str()));
}

TEST(NumberFormatTest, HandWorkedLayouts) {
    auto settings = Settings(GroupedLocale({3}));
    const struct {
        const char* pattern;
        double value;
        const char* expected;
    } cases[] = {
        {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[#]T[#]", -1234.5, "-1,234.5"},
        {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", 1234567.891, "1,234,567.89"},
        {"T[#]", 0, ""},
        {"T[#]T[ds]T[0]", 0.5, ".5"},
        {"T[0]T[ds]T[0]", 0.5, "0.5"},
        {"T[0]T[ds]T[0]T[0]", -0.001, "-0.00"},
        {"T[#]T[#]T[0]", 5, "5"},
        {"T[0]T[#]T[#]", 5, "05"},
        {"T[0]T[E+]T[0]T[#]", 500000, "5E+05"},
        {"L[x]T[0]", -5, "-x5"},
        {"T[-]T[0]", -5, "-5"},
        {"T[ns]T[0]T[ne]", -5, "(5)"},
        {"T[0]T[FS]T[0]", -5, "5"},
        {"L[none]", -5, "none"},
        {"T[0]T[FS]", -5, "-5"},
        {"T[0]T[FS]T[0]", 0, "0"},
        {"T[0]T[FS]T[0]T[FS]L[zero]", 0, "zero"},
        {"T[bt]T[FS]T[bt]T[FS]T[bf]", -3, "true"},
        {"T[bt]T[FS]T[bt]T[FS]T[bf]", 0, "false"},
        {"T[b]", 0, "false"},
        {"T[b]T[pc]", 0.001, "true"},
        {"T[gs]T[0]", 12345, "12345"},
        {"T[0]T[pc]", 0.25, "25"},
        {"T[0]T[pcs]T[pc]", 0.25, "25%"},
        {"T[Err]", 1, "#FORMAT"},
        {"T[0]T[FS]T[0]T[FS]T[0]T[FS]L[bad]", 1, "1"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, Formatted(settings, c.pattern, c.value))
            << c.pattern << " " << c.value;
}

TEST(NumberFormatTest, GroupingThreeTwo) {
    auto settings = Settings(GroupedLocale({3, 2}));
    EXPECT_EQ("12,34,567", Formatted(settings, "T[#]T[gs]T[#]T[#]T[0]", 1234567.0));
    EXPECT_EQ("-1,234", Formatted(settings, "T[#]T[gs]T[#]T[#]T[0]", -1234L));
    // The largest unsigned long keeps 15 significant digits.
    EXPECT_EQ("1,84,46,74,40,73,70,96,00,000",
              Formatted(settings, "T[#]T[gs]T[0]", 18446744073709551615UL));
}

TEST(NumberFormatTest, ErrorSectionAndColours) {
    auto settings = Settings(GroupedLocale({3}), {{"true_word", "yes"}, {"decimal_point", ","}});
    std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("en", nullptr));
    // Behind the third ";" all is literal text, quotes included.
    auto pattern = Parse(*ombrin, "[Blue]0.0;[Red]-0.0;0;[Green]'n/a';x");
    luNumberFormat* format = nullptr;
    ASSERT_EQ(0, CreateNumberFormat(settings, pattern.get(), format));
    std::unique_ptr<luNumberFormat> owned(format);
    owned->Format(-2.25);
    EXPECT_EQ("-2,3", Utf8(ucs2string(owned->c_str())));
    EXPECT_EQ(3, owned->Color());
    owned->FormatError();
    EXPECT_EQ("'n/a';x", Utf8(ucs2string(owned->c_str())));
    EXPECT_EQ(4, owned->Color());
    owned->Format(0UL);
    EXPECT_EQ("0", Utf8(ucs2string(owned->c_str())));
    EXPECT_EQ(0, owned->Color());
    owned->Format(1.0);
    EXPECT_EQ("1,0", Utf8(ucs2string(owned->c_str())));
    EXPECT_EQ(5, owned->Color());

    // In the canonical notation a fourth separator ends the error text.
    std::unique_ptr<luStringFormatNumber> serial(CreateSerialStringFormatNumber());
    pattern = Parse(*serial, "T[0]T[FS]T[0]T[FS]T[0]T[FS]L[bad]T[Cr]T[FS]L[more]T[Cb]");
    luNumberFormat* second = nullptr;
    ASSERT_EQ(0, CreateNumberFormat(settings, pattern.get(), second));
    owned.reset(second);
    owned->FormatError();
    EXPECT_EQ("bad", Utf8(ucs2string(owned->c_str())));
    EXPECT_EQ(3, owned->Color());
}

}  // namespace

// Number input against values worked out by hand from the reading rules, and
// Format/Scan round trips.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <random>
#include <string>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_input_number.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

constexpr double kUntouched = -7777.0;

std::unique_ptr<luInputNumber> Make(const char* locale, Prefs prefs = {}) {
    auto settings = Settings(lu_locale(locale), prefs);
    luInputNumber* input = nullptr;
    EXPECT_EQ(0, CreateInputNumber(settings, input));
    return std::unique_ptr<luInputNumber>(input);
}

struct Scanned {
    bool ok;
    int position;
    double value;
};

Scanned ScanText(luInputNumber& input, const std::string& utf8) {
    Scanned s{false, -1, kUntouched};
    s.ok = input.Scan(U(utf8).c_str(), s.value, s.position);
    return s;
}

template <class T>
std::string Formatted(luInputNumber& input, T value) {
    input.Format(value);
    return Utf8(input.c_str());
}

// The integer columns: 1 when IsInteger / IsUnsignedInteger give the value
// (0 for an unwritten one), 0 when they refuse it.
TEST(InputNumberTest, ReadsTheFreeFormAndStopsWhereItEnds) {
    // clang-format off
    const struct {
        const char* text;
        bool ok;
        int position;
        double value;  // kUntouched: the result must not be written
        int integer, whole;
    } rows[] = {
        {"", false, 0, kUntouched, 1, 1}, {" \t- 12.50e1x", true, 11, -125, 0, 0},
        {"5.", true, 2, 5, 0, 0}, {".5", true, 2, 0.5, 0, 0},
        {".", false, 1, kUntouched, 0, 0}, {".x", false, 1, kUntouched, 0, 0},  // no fraction
        {"-x", false, 1, kUntouched, 1, 0}, {"1e", false, 2, kUntouched, 1, 1},
        {"1 e 5", true, 5, 100000, 1, 1}, {"1 E - 2", true, 7, 0.01, 0, 0},
        {"1 x", true, 1, 1, 1, 1}, {"+007", true, 4, 7, 1, 1}, {"-0", true, 2, -0.0, 1, 0},
        {"0.000120", true, 8, 0.00012, 0, 0}, {"12e-0", true, 5, 12, 0, 0},
        {"1e309", false, 5, kUntouched, 0, 0}, {"0e999", false, 5, kUntouched, 1, 1},
        {"1e-400", true, 6, 0.0, 0, 0}, {"5e-324", true, 6, 5e-324, 0, 0},
        {"1e-320", true, 6, 1e-320, 0, 0}, {"12e99999999999", false, 14, kUntouched, 0, 0},
        {"2147483647", true, 10, 2147483647.0, 1, 1}, {"2147483648", true, 10, 2147483648.0, 0, 1},
        {"-2147483648", true, 11, -2147483648.0, 1, 0},
        {"-2147483649", true, 11, -2147483649.0, 0, 0},
        {"4294967295", true, 10, 4294967295.0, 0, 1}, {"4294967296", true, 10, 4294967296.0, 0, 0},
        {"100000000000000000000000000001", true, 30, 1e29, 0, 0},
        // the first twenty digits are kept, the last ten only scale
        {"123456789123456789123456789123", true, 30, 1.2345678912345679e29, 0, 0},
    };
    // clang-format on
    auto input = Make("en_US");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const Scanned s = ScanText(*input, row.text);
        EXPECT_EQ(row.ok, s.ok);
        EXPECT_EQ(row.position, s.position);
        EXPECT_DOUBLE_EQ(row.value, s.value);
        EXPECT_EQ(std::signbit(row.value), std::signbit(s.value));
        const double value = row.value == kUntouched ? 0 : row.value;
        long integer = -1;
        unsigned long whole = 1;
        EXPECT_EQ(row.integer == 1, input->IsInteger(integer));
        EXPECT_EQ(row.whole == 1, input->IsUnsignedInteger(whole));
        EXPECT_EQ(row.integer == 1 ? static_cast<long>(value) : -1, integer);  // else untouched
        EXPECT_EQ(row.whole == 1 ? static_cast<unsigned long>(value) : 1, whole);
    }
}

TEST(InputNumberTest, LocaleSignsPointsAndDigitsOfAnyScript) {
    // clang-format off
    const struct {
        const char *locale, *text;
        bool ok;
        int position;
        double value;
    } rows[] = {
        {"de_DE", "-12,5e1 kg", true, 7, -125},
        {"de_DE", "1.000", true, 1, 1},  // the grouping point ends the number
        {"de_DE", ",25", true, 3, 0.25}, {"ar_EG", "\u0663\u066B\u0661\u0664", true, 4, 3.14},
        {"ar_EG", "\u0661\u06F22\u0663", true, 4, 1223},  // three scripts in one number
        {"ar_EG", "3.5", true, 1, 3},                     // '.' is no decimal point there
        {"ja_JP", "\uFF11\uFF12\uFF13.5", true, 5, 123.5},
        {"en_US", "\u0967\u0966e\u0968", true, 4, 1000},  // Devanagari digits
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.locale) + " " + row.text);
        auto input = Make(row.locale);
        const Scanned s = ScanText(*input, row.text);
        EXPECT_EQ(row.ok, s.ok);
        EXPECT_EQ(row.position, s.position);
        EXPECT_DOUBLE_EQ(row.value, s.value);
    }
    // The user's decimal point goes before the locale's.
    auto dotted = Make("de_DE", {{"decimal_point", "."}});
    EXPECT_EQ(0.5, ScanText(*dotted, ".5").value);
    EXPECT_EQ("2.25", Formatted(*dotted, 2.25));
}

TEST(InputNumberTest, FormatWritesWhatScanReads) {
    auto english = Make("en_US");
    // clang-format off
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {1e15, "1e15"},       {999999999999999.0, "999999999999999"},
        {-2.5e16, "-2.5e16"}, {0.0001, "0.0001"},
        {0.00005, "5e-5"},    {-0.000012345, "-1.2345e-5"},
        {-1234.5, "-1234.5"}, {0.1 + 0.2, "0.3"}, {HUGE_VAL, "1.#INF"}, {std::nan(""), "0.#IND"},
    };
    // clang-format on
    for (const auto& row : rows) EXPECT_EQ(row.text, Formatted(*english, row.value)) << row.value;

    EXPECT_EQ("-42", Formatted(*english, -42l));
    EXPECT_EQ("4294967295", Formatted(*english, 4294967295ul));
    EXPECT_EQ("1e17",
              Formatted(*english, 100000000000000000l));  // a 64-bit value keeps its exponent

    auto arabic = Make("ar_EG");
    EXPECT_EQ("-\u0661\u0662\u066B\u0665", Formatted(*arabic, -12.5));
    EXPECT_EQ("\u0661e-\u0665", Formatted(*arabic, 0.00001));
    EXPECT_EQ("\u0660", Formatted(*arabic, 0l));
}

// A value with at most 15 significant digits comes back exactly: its digits
// add up without rounding and one scaling by an exact power of ten rounds
// once. Any other double comes back within the 15 digits written.
TEST(InputNumberTest, ScanOfFormatGivesTheValueBack) {
    std::mt19937_64 random(20261124);
    for (const char* locale : {"en_US", "de_DE", "ar_EG", "ja_JP"}) {
        auto input = Make(locale);
        for (int i = 0; i < 5000; ++i) {
            const double mantissa =
                static_cast<double>(random() % 1000000000000000ull) * (random() % 2 ? 1 : -1);
            const int scale = static_cast<int>(random() % 30) - 15;
            const double exact =
                scale < 0 ? mantissa / std::pow(10.0, -scale) : mantissa * std::pow(10.0, scale);
            double any = 0;
            do {
                const std::uint64_t bits = random();
                std::memcpy(&any, &bits, sizeof any);
            } while (!std::isfinite(any) || std::fabs(any) < 1e-290);
            for (double value : {exact, any}) {
                input->Format(value);
                double back = kUntouched;
                int position = -1;
                ASSERT_TRUE(input->Scan(input->c_str(), back, position)) << locale << " " << value;
                ASSERT_EQ(static_cast<int>(ucs2string(input->c_str()).length()), position);
                if (value == exact)
                    ASSERT_EQ(value, back) << locale << " " << Utf8(ucs2string(input->c_str()));
                else
                    ASSERT_NEAR(value, back, std::fabs(value) * 1e-14) << locale;
            }
        }
    }
}

}  // namespace

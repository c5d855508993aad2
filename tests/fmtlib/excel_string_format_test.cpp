// Excel format strings written from patterns, on tables of (pattern in the
// canonical notation, expected Excel string) worked out by hand from the
// writing rules: sections and their completion, colours, grouping, decimal
// separators, exponents, signs, booleans, percent, literal quoting and the
// default formats; every date token; and the failure paths.
//
// Settings: the classic locale ("true"/"false" replaced by the preferences
// "yes"/"no", so that a boolean word is told from the locale's), whose default
// formats are PERCENT T[#]T[gs]T[#]T[#]T[0]L[%], SHORT_DATE
// T[0d]L[/]T[0M]L[/]T[y2] and FULL_TIME T[023]L[ h ]T[0m]L[ ]T[tz].
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "kai18n/fmtlib/lu_excel_string_format.h"
#include "kai18n/frame/result_codes.h"
#include "number_test_support.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

struct Case {
    const char* pattern;   // canonical notation
    const char* expected;  // the Excel string
};

void PrintTo(const Case& c, std::ostream* os) {
    *os << c.pattern;
}

ilu_ptr<luSettings>& YesNoSettings() {
    static ilu_ptr<luSettings> settings =
        Settings(lu_locale::classic(), {{"true_word", "yes"}, {"false_word", "no"}});
    return settings;
}

std::string ExcelNumber(const std::string& canonical) {
    std::unique_ptr<luStringFormatNumber> serial(CreateSerialStringFormatNumber());
    std::unique_ptr<luExcelStringFormatNumber> excel(
        CreateExcelSerialStringFormatNumber(YesNoSettings()));
    return Print(*excel, *Parse(*serial, canonical));
}

std::string ExcelDate(const std::string& canonical) {
    std::unique_ptr<luStringFormatDate> serial(CreateSerialStringFormatDate());
    std::unique_ptr<luExcelStringFormatDate> excel(
        CreateExcelSerialStringFormatDate(YesNoSettings()));
    return Print(*excel, *Parse(*serial, canonical));
}

// ---- Numbers

class ExcelNumberTable : public testing::TestWithParam<Case> {};

TEST_P(ExcelNumberTable, WritesTheExcelString) {
    EXPECT_EQ(GetParam().expected, ExcelNumber(GetParam().pattern));
}

INSTANTIATE_TEST_SUITE_P(Plain, ExcelNumberTable,
                         testing::Values(Case{"T[An]", "General"}, Case{"L[x]T[An]T[0]", "General"},
                                         Case{"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", "#,##0.00"},
                                         Case{"T[0]T[E+]T[0]T[0]", "0E+00"},
                                         Case{"T[0]T[E-]T[0]", "0E-0"},
                                         Case{"T[0]T[ds]T[0]T[e+]T[0]", "0.0e+0"},
                                         Case{"T[0]T[e-]T[0]", "0e-0"}, Case{"T[Err]", ""},
                                         Case{"", ""}));

INSTANTIATE_TEST_SUITE_P(
    Separators, ExcelNumberTable,
    testing::Values(
        // Grouping ahead of the first digit place or behind the last goes.
        Case{"T[gs]T[#]T[gs]T[#]T[#]T[0]T[gs]", "#,##0"}, Case{"T[#]T[gs]T[gs]T[0]", "#,,0"},
        // A second decimal separator, and grouping in the fraction, go.
        Case{"T[0]T[ds]T[0]T[ds]T[0]", "0.00"}, Case{"T[0]T[ds]T[0]T[gs]T[0]", "0.00"},
        Case{"T[ds]T[gs]T[0]", ".0"}, Case{"T[0]T[gs]T[ds]T[0]", "0.0"},
        // Behind the exponent: no sign, separator or second exponent.
        Case{"T[0]T[E+]T[0]T[gs]T[ds]T[-]T[+]T[E-]T[0]", "0E+00"},
        // Grouping just ahead of the exponent goes; within the mantissa stays.
        Case{"T[0]T[gs]T[E+]T[0]", "0E+0"}, Case{"T[0]T[gs]T[0]T[E+]T[0]", "0,0E+0"},
        Case{"T[0]T[gs]T[0]T[ds]T[0]T[gs]T[E+]T[0]", "0,0.0E+0"}));

INSTANTIATE_TEST_SUITE_P(
    Sections, ExcelNumberTable,
    testing::Values(
        // A sign in the first section asks for a negative section of its own.
        Case{"T[-]T[#]T[gs]T[#]T[#]T[0]", "#,##0;\\-#,##0"}, Case{"T[ns]T[0]T[ne]", "0;\\(0\\)"},
        Case{"T[0]T[ne]", "0;0\\)"}, Case{"T[-]T[0]T[FS]T[0]T[-]", "0;0\\-"},
        // A positive sign stays in the first section only.
        Case{"T[+]T[0]", "\\+0"}, Case{"T[+]T[0]T[FS]T[+]T[-]T[0]", "\\+0;\\-0"},
        // A zero section without a negative one takes the first as negative.
        Case{"T[0]T[FS]T[FS]T[0]T[ds]T[0]", "0;0;0.0"},
        // The zero section shows no minus; if that leaves it empty it goes.
        Case{"T[0]T[FS]T[#]T[FS]T[-]T[0]", "0;#;0"}, Case{"T[0]T[FS]T[#]T[FS]T[-]", "0;#"},
        Case{"T[0]T[FS]T[#]", "0;#"}, Case{"T[0]T[FS]T[#]T[FS]T[0]T[ds]T[0]T[FS]T[#]", "0;#;0.0"},
        // An empty first section with a zero one: the copy is empty too.
        Case{"T[FS]T[FS]T[0]", ";0"}));

INSTANTIATE_TEST_SUITE_P(Booleans, ExcelNumberTable,
                         testing::Values(Case{"T[b]", "\"yes\";\"yes\";\"no\""},
                                         Case{"T[Ab]", "\"yes\";\"yes\";\"no\""},
                                         Case{"T[b]T[FS]T[0]", "\"yes\";0;\"no\""},
                                         Case{"T[b]T[FS]T[FS]T[0]", "\"yes\";\"yes\";0"},
                                         Case{"T[bf]T[FS]T[bt]", "\"no\";\"yes\""},
                                         Case{"T[0]L[ ]T[b]", "0\" yes\";0\" yes\";0\" no\""}));

INSTANTIATE_TEST_SUITE_P(
    Colours, ExcelNumberTable,
    testing::Values(Case{"T[Ck]T[0]", "[Black]0"}, Case{"T[Cw]T[0]", "[White]0"},
                    Case{"T[Cr]T[0]", "[Red]0"}, Case{"T[Cg]T[0]", "[Green]0"},
                    Case{"T[Cb]T[0]", "[Blue]0"}, Case{"T[Cy]T[0]", "[Yellow]0"},
                    Case{"T[Cm]T[0]", "[Magenta]0"}, Case{"T[Cc]T[0]", "[Cyan]0"},
                    Case{"T[Cdr]T[0]", "[Red]0"}, Case{"T[Cdg]T[0]", "[Green]0"},
                    Case{"T[Cdb]T[0]", "[Blue]0"}, Case{"T[Cdy]T[0]", "[Yellow]0"},
                    Case{"T[Cdm]T[0]", "[Magenta]0"}, Case{"T[Cdc]T[0]", "[Cyan]0"},
                    Case{"T[Cly]T[0]", "[Cyan]0"}, Case{"T[Cgr]T[0]", "[White]0"},
                    // The last colour of a section, written ahead of it.
                    Case{"T[0]T[Cr]T[ds]T[Cb]T[0]", "[Blue]0.0"},
                    Case{"T[Cr]T[0]T[FS]T[Cg]T[0]T[FS]T[Cb]T[0]", "[Red]0;[Green]0;[Blue]0"},
                    // A copied section takes the colour of the first; a colour alone
                    // leaves a section empty.
                    Case{"T[Cr]T[-]T[0]T[FS]T[Cb]", "[Red]0;[Red]\\-0"},
                    Case{"T[Cr]T[0]T[FS]T[FS]T[Cb]T[0]", "[Red]0;[Red]0;[Blue]0"}));

INSTANTIATE_TEST_SUITE_P(Percent, ExcelNumberTable,
                         testing::Values(
                             // A "%" of the text with a percent token prints bare, as one sign.
                             Case{"T[0]L[%]T[pc]", "0%"}, Case{"T[pc]T[0]L[ %]", "0\\ %"},
                             Case{"T[0]T[pc]", "0%"}, Case{"T[0]T[pc]T[pc]L[ %]", "0\\ %%"},
                             Case{"T[0]T[pc]L[%%]", "0%\\%"},
                             Case{"T[0]L[a%b]T[pc]L[%]", "0\\a%\"b%\""},
                             // Without a percent token a "%" of the text stays quoted.
                             Case{"T[0]L[%]", "0\\%"}, Case{"T[Ap]", "#,##0\\%"},
                             // One sign-writing percent token keeps everything; more become text.
                             Case{"T[0]T[pcs]T[pc]L[%]", "0%%\\%"},
                             Case{"T[pcs]T[0]T[pcs]T[pcs]", "%0\"%%\""}));

INSTANTIATE_TEST_SUITE_P(Literals, ExcelNumberTable,
                         testing::Values(Case{"T[0]L[ kg]", "0\" kg\""}, Case{"L[$]T[0]", "\\$0"},
                                         Case{"T[0]L[k]L[g]", "0\"kg\""},
                                         Case{"T[0]L[\"]", "0\\\""},
                                         Case{"L[say \"hi\"]T[0]", "\"say \"\\\"\"hi\"\\\"0"},
                                         Case{"L[a\"]T[0]", "\\a\\\"0"},
                                         Case{"L[\"ab]T[0]", "\\\"\"ab\"0"}));

TEST(ExcelNumber, OmbrinTextWithBracketsWritesBracketsAsText) {
    std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("en", "US"));
    std::unique_ptr<luExcelStringFormatNumber> excel(
        CreateExcelSerialStringFormatNumber(YesNoSettings()));
    EXPECT_EQ("[Red]#,##0.00;\\(#,##0.00\\);\"zero\"",
              Print(*excel, *Parse(*ombrin, "[Red]#,##0.00;(#,##0.00);'zero'")));
}

TEST(ExcelNumber, AppendsAndLeavesThePatternAsItWas) {
    std::unique_ptr<luStringFormatNumber> serial(CreateSerialStringFormatNumber());
    std::unique_ptr<luExcelStringFormatNumber> excel(
        CreateExcelSerialStringFormatNumber(YesNoSettings()));
    const auto pattern = Parse(*serial, "T[Cr]T[-]T[gs]T[0]T[pc]L[%]");
    ucs2string text = U("x");
    EXPECT_TRUE(excel->FromPattern(*pattern, text));
    EXPECT_EQ("x[Red]0%;[Red]\\-0%", Utf8(text));
    EXPECT_EQ("T[Cr]T[-]T[gs]T[0]T[pc]L[%]", fmt_test::Print(*serial, *pattern));
}

TEST(ExcelNumber, DatePatternWritesNothing) {
    std::unique_ptr<luStringFormatDate> serial(CreateSerialStringFormatDate());
    std::unique_ptr<luExcelStringFormatNumber> excel(
        CreateExcelSerialStringFormatNumber(YesNoSettings()));
    EXPECT_EQ("", Print(*excel, *Parse(*serial, "T[y4]")));
}

// ---- Dates

class ExcelDateTable : public testing::TestWithParam<Case> {};

TEST_P(ExcelDateTable, WritesTheExcelString) {
    EXPECT_EQ(GetParam().expected, ExcelDate(GetParam().pattern));
}

INSTANTIATE_TEST_SUITE_P(
    EveryToken, ExcelDateTable,
    testing::Values(Case{"T[am]", "AM/PM"}, Case{"T[amu]", "AM/PM"}, Case{"T[aml]", "AM/PM"},
                    Case{"T[amc]", "AM/PM"}, Case{"T[mt]", "mmmm"}, Case{"T[mtu]", "mmmm"},
                    Case{"T[mtl]", "mmmm"}, Case{"T[mtc]", "mmmm"}, Case{"T[amt]", "mmm"},
                    Case{"T[amtu]", "mmm"}, Case{"T[amtl]", "mmm"}, Case{"T[amtc]", "mmm"},
                    Case{"T[023]", "hh"}, Case{"T[012]", "hh"}, Case{"T[024]", "hh"},
                    Case{"T[011]", "hh"}, Case{"T[23]", "h"}, Case{"T[12]", "h"},
                    Case{"T[24]", "h"}, Case{"T[11]", "h"}, Case{"T[0M]", "mm"},
                    Case{"T[0m]", "mm"}, Case{"T[M]", "m"}, Case{"T[m]", "m"}, Case{"T[0s]", "ss"},
                    Case{"T[s]", "s"}, Case{"T[0ms]", ".000"}, Case{"T[0cs]", ".00"},
                    Case{"T[tens]", ".0"}, Case{"T[y4]", "yyyy"}, Case{"T[y2]", "yy"},
                    Case{"T[iy2]", "ggg e"}, Case{"T[iy1]", "e"}, Case{"T[iyg]", "ge"},
                    Case{"T[dn]", "dddd"}, Case{"T[dnu]", "dddd"}, Case{"T[dnl]", "dddd"},
                    Case{"T[dnc]", "dddd"}, Case{"T[adn]", "ddd"}, Case{"T[adnu]", "ddd"},
                    Case{"T[adnl]", "ddd"}, Case{"T[adnc]", "ddd"}, Case{"T[0d]", "dd"},
                    Case{"T[d]", "d"}, Case{"T[da]", "/"}, Case{"T[ts]", ":"}, Case{"T[ip]", "ggg"},
                    Case{"T[jy]", "e"}, Case{"T[jy2]", "ee"}));

// Tokens Excel has no code for are left out, not quoted.
INSTANTIATE_TEST_SUITE_P(NoCode, ExcelDateTable,
                         testing::Values(Case{"T[y4]T[era]", "yyyy"},
                                         Case{"T[dowim]T[00yd]T[0yd]T[yd]", ""},
                                         Case{"T[0wy]T[wy]T[wm]T[tz]", ""},
                                         Case{"T[ywoy4]T[ywoy2]T[Err]", ""}));

INSTANTIATE_TEST_SUITE_P(
    Patterns, ExcelDateTable,
    testing::Values(Case{"T[0d]L[/]T[0M]L[/]T[y2]", "dd\\/mm\\/yy"},
                    Case{"T[023]L[ h ]T[0m]", "hh\" h \"mm"},
                    Case{"T[0d]T[da]T[0M]T[ts]T[0m]", "dd/mm:mm"}, Case{"T[y4]L[\"]", "yyyy\\\""},
                    // The first section only, with its last colour ahead of it.
                    Case{"T[y4]T[FS]L[no date]", "yyyy"}, Case{"T[y4]T[FS]T[Cr]T[0M]", "yyyy"},
                    Case{"T[y4]T[Cr]T[0M]T[Cdb]", "[Blue]yyyymm"}, Case{"T[Cgr]T[d]", "[White]d"},
                    // A default format replaces the whole pattern.
                    Case{"T[Ads]", "dd\\/mm\\/yy"}, Case{"L[x]T[Ads]T[y4]", "dd\\/mm\\/yy"},
                    Case{"T[Atf]", "hh\" h \"mm\\ "}));

TEST(ExcelDate, NumberPatternWritesNothing) {
    std::unique_ptr<luStringFormatNumber> serial(CreateSerialStringFormatNumber());
    std::unique_ptr<luExcelStringFormatDate> excel(
        CreateExcelSerialStringFormatDate(YesNoSettings()));
    EXPECT_EQ("", Print(*excel, *Parse(*serial, "T[0]")));
}

// ---- Failures

TEST(ExcelStringFormat, CannotBeReadAndDropsThePatternGiven) {
    std::unique_ptr<luExcelStringFormatNumber> number(
        CreateExcelSerialStringFormatNumber(YesNoSettings()));
    std::unique_ptr<luExcelStringFormatDate> date(
        CreateExcelSerialStringFormatDate(YesNoSettings()));
    luFmtPattern* pattern = CreateNumberFmtPattern();
    EXPECT_EQ(LU_E_FAIL, number->ToPattern(U("0"), pattern));
    EXPECT_EQ(nullptr, pattern);
    pattern = CreateDateFmtPattern();
    EXPECT_EQ(LU_E_FAIL, date->ToPattern(U("yyyy"), pattern));
    EXPECT_EQ(nullptr, pattern);
    EXPECT_EQ(LU_E_FAIL, date->ToPattern(U(""), pattern));
    EXPECT_EQ(nullptr, pattern);
}

TEST(ExcelStringFormat, FactoriesWantSettings) {
    ilu_ptr<luSettings> none;
    EXPECT_EQ(nullptr, CreateExcelSerialStringFormatNumber(none));
    EXPECT_EQ(nullptr, CreateExcelSerialStringFormatDate(none));
}

}  // namespace

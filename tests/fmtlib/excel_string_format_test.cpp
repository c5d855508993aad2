// Excel format strings written from patterns, against strings worked out by hand. The settings
// are the classic locale's with the boolean words "yes" and "no".
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_excel_string_format.h"
#include "kai18n/frame/result_codes.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

struct Case {
    const char* pattern;   // canonical notation
    const char* expected;  // the Excel string
};

// clang-format off
const Case kNumbers[] = {
    {"T[An]", "General"}, {"L[x]T[An]T[0]", "General"}, {"T[Err]", ""},
    {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", "#,##0.00"}, {"T[0]T[E+]T[0]T[0]", "0E+00"},
    {"T[0]T[ds]T[0]T[e+]T[0]", "0.0e+0"}, {"T[0]T[E-]T[0]T[FS]T[0]T[e-]T[0]", "0E-0;0e-0"},
    // Grouping, decimal separators and exponents where Excel has no place for them.
    {"T[gs]T[#]T[gs]T[#]T[#]T[0]T[gs]", "#,##0"}, {"T[#]T[gs]T[gs]T[0]", "#,,0"},
    {"T[0]T[ds]T[0]T[ds]T[0]", "0.00"}, {"T[0]T[ds]T[0]T[gs]T[0]", "0.00"},
    {"T[ds]T[gs]T[0]", ".0"},
    {"T[0]T[gs]T[ds]T[0]", "0.0"}, {"T[0]T[E+]T[0]T[gs]T[ds]T[-]T[+]T[E-]T[0]", "0E+00"},
    {"T[0]T[gs]T[E+]T[0]", "0E+0"}, {"T[0]T[gs]T[0]T[E+]T[0]", "0,0E+0"},
    {"T[0]T[gs]T[0]T[ds]T[0]T[gs]T[E+]T[0]", "0,0.0E+0"},
    // Sections and signs.
    {"T[-]T[#]T[gs]T[#]T[#]T[0]", "#,##0;\\-#,##0"}, {"T[ns]T[0]T[ne]", "0;\\(0\\)"},
    {"T[0]T[ne]", "0;0\\)"}, {"T[-]T[0]T[FS]T[0]T[-]", "0;0\\-"}, {"T[+]T[0]", "\\+0"},
    {"T[+]T[0]T[FS]T[+]T[-]T[0]", "\\+0;\\-0"}, {"T[0]T[FS]T[FS]T[0]T[ds]T[0]", "0;0;0.0"},
    {"T[0]T[FS]T[#]T[FS]T[-]T[0]", "0;#;0"}, {"T[0]T[FS]T[#]T[FS]T[-]", "0;#"},
    {"T[0]T[FS]T[#]T[FS]T[0]T[ds]T[0]T[FS]T[#]", "0;#;0.0"}, {"T[FS]T[FS]T[0]", ";0"},
    // Booleans.
    {"T[b]", "\"yes\";\"yes\";\"no\""}, {"T[Ab]", "\"yes\";\"yes\";\"no\""},
    {"T[b]T[FS]T[0]", "\"yes\";0;\"no\""}, {"T[b]T[FS]T[FS]T[0]", "\"yes\";\"yes\";0"},
    {"T[bf]T[FS]T[bt]", "\"no\";\"yes\""}, {"T[0]L[ ]T[b]", "0\" yes\";0\" yes\";0\" no\""},
    // Colours: the last of a section goes ahead of it; a copied section takes the first's.
    {"T[Ck]T[0]T[FS]T[Cw]T[0]T[FS]T[Cr]T[0]", "[Black]0;[White]0;[Red]0"},
    {"T[Cdm]T[0]T[FS]T[Cdc]T[0]T[FS]T[Cly]T[0]", "[Magenta]0;[Cyan]0;[Cyan]0"},
    {"T[Cgr]T[0]", "[White]0"}, {"T[0]T[Cr]T[ds]T[Cb]T[0]", "[Blue]0.0"},
    {"T[Cr]T[-]T[0]T[FS]T[Cb]", "[Red]0;[Red]\\-0"},
    {"T[Cr]T[0]T[FS]T[FS]T[Cb]T[0]", "[Red]0;[Red]0;[Blue]0"},
    // Percent: a "%" of the text prints bare only beside a percent token.
    {"T[0]L[%]T[pc]", "0%"}, {"T[pc]T[0]L[ %]", "0\\ %"}, {"T[0]T[pc]", "0%"},
    {"T[0]T[pc]T[pc]L[ %]", "0\\ %%"}, {"T[0]T[pc]L[%%]", "0%\\%"},
    {"T[0]L[a%b]T[pc]L[%]", "0\\a%\"b%\""}, {"T[0]L[%]", "0\\%"}, {"T[Ap]", "#,##0\\%"},
    {"T[0]T[pcs]T[pc]L[%]", "0%%\\%"}, {"T[pcs]T[0]T[pcs]T[pcs]", "%0\"%%\""},
    // Literals and quoting.
    {"L[$]T[0]", "\\$0"}, {"T[0]L[k]L[g]", "0\"kg\""}, {"T[0]L[\"]", "0\\\""},
    {"L[say \"hi\"]T[0]", "\"say \"\\\"\"hi\"\\\"0"}, {"L[a\"]T[0]", "\\a\\\"0"},
    {"L[\"ab]T[0]", "\\\"\"ab\"0"}};

const Case kDates[] = {
    {"T[am]T[amu]T[aml]T[amc]", "AM/PMAM/PMAM/PMAM/PM"},
    {"T[mt]T[mtu]T[mtl]T[mtc]L[ ]T[amt]T[amtu]T[amtl]T[amtc]", "mmmmmmmmmmmmmmmm\\ mmmmmmmmmmmm"},
    {"T[023]T[012]T[024]T[011]L[ ]T[23]T[12]T[24]T[11]", "hhhhhhhh\\ hhhh"},
    {"T[0M]L[ ]T[0m]L[ ]T[M]L[ ]T[m]L[ ]T[0s]L[ ]T[s]", "mm\\ mm\\ m\\ m\\ ss\\ s"},
    {"T[0ms]T[0cs]T[tens]T[y4]T[y2]", ".000.00.0yyyyyy"},
    {"T[iy2]L[ ]T[iy1]L[ ]T[iyg]L[ ]T[ip]L[ ]T[jy]L[ ]T[jy2]", "ggg e\\ e\\ ge\\ ggg\\ e\\ ee"},
    {"T[dn]T[dnu]T[dnl]T[dnc]L[ ]T[adn]T[adnu]T[adnl]T[adnc]", "dddddddddddddddd\\ dddddddddddd"},
    {"T[0d]L[ ]T[d]T[da]T[ts]", "dd\\ d/:"},
    // Tokens Excel has no code for are left out, not quoted.
    {"T[y4]T[era]T[dowim]T[00yd]T[0yd]T[yd]T[0wy]T[wy]T[wm]T[tz]T[ywoy4]T[ywoy2]T[Err]", "yyyy"},
    {"T[023]L[ h ]T[0m]", "hh\" h \"mm"}, {"T[y4]L[\"]", "yyyy\\\""},
    // The first section only, with its last colour ahead of it.
    {"T[y4]T[FS]L[no date]", "yyyy"}, {"T[y4]T[FS]T[Cr]T[0M]", "yyyy"},
    {"T[y4]T[Cr]T[0M]T[Cdb]", "[Blue]yyyymm"}, {"T[Cgr]T[d]", "[White]d"},
    // A default format replaces the whole pattern.
    {"T[Ads]", "dd\\/mm\\/yy"}, {"L[x]T[Ads]T[y4]", "dd\\/mm\\/yy"}, {"T[Atf]", "hh\" h \"mm\\ "}};
// clang-format on

std::unique_ptr<luStringFormat> Writer(bool date) {
    static ilu_ptr<luSettings> settings =
        Settings(lu_locale::classic(), {{"true_word", "yes"}, {"false_word", "no"}});
    if (date) return std::unique_ptr<luStringFormat>(CreateExcelSerialStringFormatDate(settings));
    return std::unique_ptr<luStringFormat>(CreateExcelSerialStringFormatNumber(settings));
}

TEST(ExcelStringFormat, WritesNumberPatterns) {
    std::unique_ptr<luStringFormat> serial(CreateSerialStringFormatNumber());
    for (const Case& row : kNumbers)
        EXPECT_EQ(row.expected, Print(*Writer(false), *Parse(*serial, row.pattern))) << row.pattern;
    std::unique_ptr<luStringFormat> ombrin(CreateStringFormatNumber("en", "US"));
    EXPECT_EQ("[Red]#,##0.00;\\(#,##0.00\\);\"zero\"",
              Print(*Writer(false), *Parse(*ombrin, "[Red]#,##0.00;(#,##0.00);'zero'")));
    ucs2string text;  // a pattern of the other kind writes nothing, and that is no failure
    EXPECT_TRUE(Writer(true)->FromPattern(*Parse(*serial, "T[0]"), text));
    EXPECT_EQ("", Utf8(text));
}

TEST(ExcelStringFormat, WritesDatePatterns) {
    std::unique_ptr<luStringFormat> serial(CreateSerialStringFormatDate());
    for (const Case& row : kDates)
        EXPECT_EQ(row.expected, Print(*Writer(true), *Parse(*serial, row.pattern))) << row.pattern;
    ucs2string text;
    EXPECT_TRUE(Writer(false)->FromPattern(*Parse(*serial, "T[y4]"), text));
    EXPECT_EQ("", Utf8(text));
}

TEST(ExcelStringFormat, AppendsAndLeavesThePatternAsItWas) {
    std::unique_ptr<luStringFormat> serial(CreateSerialStringFormatNumber());
    const auto pattern = Parse(*serial, "T[Cr]T[-]T[gs]T[0]T[pc]L[%]");
    ucs2string text = U("x");
    EXPECT_TRUE(Writer(false)->FromPattern(*pattern, text));
    EXPECT_EQ("x[Red]0%;[Red]\\-0%", Utf8(text));
    EXPECT_EQ("T[Cr]T[-]T[gs]T[0]T[pc]L[%]", Print(*serial, *pattern));
}

TEST(ExcelStringFormat, CannotBeReadAndDropsThePatternGiven) {
    luFmtPattern* pattern = CreateNumberFmtPattern();
    EXPECT_EQ(LU_E_FAIL, Writer(false)->ToPattern(U("0"), pattern));
    EXPECT_EQ(nullptr, pattern);
    pattern = CreateDateFmtPattern();
    EXPECT_EQ(LU_E_FAIL, Writer(true)->ToPattern(U("yyyy"), pattern));
    EXPECT_EQ(nullptr, pattern);
    EXPECT_EQ(LU_E_FAIL, Writer(true)->ToPattern(U(""), pattern));
    EXPECT_EQ(nullptr, pattern);
    ilu_ptr<luSettings> none;
    EXPECT_EQ(nullptr, CreateExcelSerialStringFormatNumber(none));
    EXPECT_EQ(nullptr, CreateExcelSerialStringFormatDate(none));
}

}  // namespace

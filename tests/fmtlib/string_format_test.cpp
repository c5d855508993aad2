// String formats of the three dialects: texts read to tokens and printed, with the printed texts
// and token lists worked out by hand from each dialect's quoting, escape and section rules; every
// text that reads must read again from its printed text to the same tokens, and print as itself.
// Excel format strings written from patterns, against strings worked out by hand, with the
// classic locale's settings and the boolean words "yes" and "no".
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_excel_string_format.h"
#include "kai18n/frame/result_codes.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

struct Row {
    Row(const char* t, const char* p, TokenList k = {}) : text(t), printed(p), tokens(k) {}
    const char* text;
    const char* printed;  // "=": the text; null: not checked, or without tokens: unreadable
    TokenList tokens;     // empty: not checked
};

// The rows of one string format: 'O'mbrin, 'V'elora or 'S'erial, of 'n'umbers, 'p'ercent numbers
// or 'd'ates.
using Format = std::unique_ptr<luStringFormat>;

struct Group {
    char dialect, kind;
    const char *code, *lang, *country;
    std::vector<Row> rows;
};

std::unique_ptr<luStringFormat> Make(const Group& g) {
    const bool date = g.kind == 'd';
    if (g.dialect == 'O' && date) return Format(CreateStringFormatDate(g.lang, g.country));
    if (g.dialect == 'O') return Format(CreateStringFormatNumber(g.lang, g.country));
    if (g.dialect == 'V' && date)
        return Format(CreateVeloraStringFormatDate(g.code, g.lang, g.country));
    if (g.dialect == 'V')
        return Format(CreateVeloraStringFormatNumber(g.code, g.lang, g.country, g.kind == 'p'));
    return date ? Format(CreateSerialStringFormatDate()) : Format(CreateSerialStringFormatNumber());
}

void Check(const std::vector<Group>& groups) {
    for (const Group& g : groups) {
        auto format = Make(g);
        for (const Row& row : g.rows) {
            SCOPED_TRACE(std::string(1, g.dialect) + g.kind + " " + (g.lang ? g.lang : "") +
                         (g.country ? g.country : "") + " \"" + row.text + "\"");
            const bool given = !row.tokens.ids.empty();
            auto first = Parse(*format, row.text);
            const TokenList read = Tokens(*first);
            if (row.printed == nullptr && !given) {
                EXPECT_EQ(kError, read);
                continue;
            }
            EXPECT_EQ(given ? row.tokens : read, read);
            EXPECT_FALSE(kError == read);
            const std::string printed = Print(*format, *first);
            if (row.printed != nullptr) {
                EXPECT_EQ(std::string(row.printed) == "=" ? row.text : row.printed, printed);
            }
            auto second = Parse(*format, printed);
            EXPECT_EQ(read, Tokens(*second)) << printed;
            EXPECT_EQ(printed, Print(*format, *second));
        }
    }
}

const TokenList kGrouped{{101, 104, 101, 101, 102, 103, 102, 102}, {}};
const std::vector<int> kNumeric{54, 65, 30, 65, 39, 1, 24, 66, 32, 66, 34};  // dd/mm/yyyy hh:mm:ss

// clang-format off
TEST(StringFormatTest, OmbrinQuotesEscapesColoursAndSections) {
    Check({
        {'O', 'n', nullptr, "en", "US", {
            {"0%", "0'%'"}, {"0.0e-00", "="}, {"\"$\"#,##0", "'\"$\"'#,##0"},
            {"#,##0.00 \\€", "#,##0.00' €'"}, {"0''", "="}, {"0\\\\", "="}, {" 0", "="},
            {"'a\\'b'0", "'a''b'0"}, {"'''a'", "="}, {"0;0;0;[Red]x", "="}, {"0;0;0;'", "="},
            {"[red]0;[BLUE]-0", "[Red]0;[Blue]-0"}, {"[Red", "'[Red'"},
            {"[dark red]0", "[Dark Red]0"}, {"[Bogus]0", "'[Bogus]'0"}, {"[]0", "'[]'0"},
            {"<number><grouping separator><number><zero>", "#,#0"}, {"<times 100>", "[%]"},
            {"<def numeric>", "STANDARD"},
            {"<Light Gray>0", "[Light Cyan]0", {{414, 102}, {}}},
            {"#,##0_);[Red](#,##0)", nullptr,
             {{101, 104, 101, 101, 102, 1, 106, 2, 402, 105, 101, 104, 101, 101, 102, 106}, {"_"}}},
            {"_(* \"-\"_);_(@_)", nullptr,
             {{1, 105, 1, 100, 1, 106, 2, 1, 105, 1, 106}, {"_", "* \"", "\"_", "_", "@_"}}},
            {"0;0;0;a;b\\", "=", {{102, 2, 102, 2, 102, 2, 1}, {"a;b\\"}}},
            {"0;0;0;0\\'[Red]x", "=", {{102, 2, 102, 2, 102, 2, 1, 402, 1}, {"0\\'", "x"}}},
            {"0.00%\\ E+0", nullptr, {{102, 103, 102, 102, 1, 107, 102}, {"% "}}},
            {"0 \\\\ ' '''", "0' \\\\  '''", {{102, 1}, {" \\  '"}}},
            // a trailing escape or an open quote
            {"0.00\\", nullptr}, {"'abc", nullptr}, {"'a\\", nullptr}, {"'", nullptr},
            {"'a''", nullptr}, {"0;0;'x", nullptr}}},
        {'O', 'n', nullptr, "fr", nullptr, {
            {"[Red]0", "[Rouge]0"}, {"# ##0,00 €", "# ##0,00' €'"},
            {"[rouge FONCÉ ]0", "[Rouge foncé ]0", {{408, 102}, {}}}}},
        {'O', 'n', nullptr, "de", nullptr, {
            {"[weiß]0", "[Weiß]0"},
            {"[Rot]0;[red]0;[GRÜN]0", "[Rot]0;[Rot]0;[Grün]0",
             {{402, 102, 2, 402, 102, 2, 403, 102}, {}}}}},
        {'O', 'n', nullptr, "ja", nullptr, {  // "!" escapes; the backslash is an ordinary unit
            {"[Red]0", "[赤]0"}, {"#,##0!円", "#,##0'円'"}, {"#,##0\\", "#,##0'\\'"}, {"0!!", "="},
            {"'a!!b'0", "="}, {"0\\!!", nullptr, {{102, 1}, {"\\!"}}}, {"#,##0!", nullptr}}},
        {'O', 'n', nullptr, "ko", nullptr, {{"0!%", "0'%'"}, {"[빨강]0", "="}}},
        {'O', 'n', nullptr, "hu", nullptr, {{"[Piros]0", "="}}},  // the last language
        {'O', 'n', nullptr, "xx", nullptr, {{"[Red]0", "="}, {"[Rouge]0", "'[Rouge]'0"}}},
        // Letters are tokens in dates, so literal text is quoted; after the first ";" everything
        // but colours is literal.
        {'O', 'd', nullptr, "en", nullptr, {
            {"dd/MM/yyyy HH:mm", "dd'/'MM'/'yyyy HH':'mm"}, {"FULL_DATE_TIME", "="},
            {"<hour 00-23>:<minute 00>", "HH':'mm"},
            {"dd/MM/yyyy;'invalid'", "dd'/'MM'/'yyyy;'invalid'"},
            {"yyyy;#ERR dd", "="}, {"HH:mm;[Blue]", "HH':'mm;[Blue]"}, {";", "="}, {"", "="},
            {"HH\\hmm", "HH'h'mm"}, {"[h]:mm", "'['h']:'mm"},
            {"'ab\\c", "'abc'"}, {"\\d d", "'d 'd"}, {"''", "=", {{1}, {"'"}}},
            {"Week ww", "=", {{63, 59, 27, 1, 61}, {" "}}},
            {"yyyy;a;b", "=", {{39, 2, 1}, {"a;b"}}},
            {"'Week' ww", "'Week 'ww", {{1, 61}, {"Week "}}},
            {"dd/MM/yyyy;[Red]x", nullptr, {{54, 1, 30, 1, 39, 2, 402, 1}, {"/", "/", "x"}}},
            {"MMMMM", nullptr, {{15, 31}, {}}}, {"mmmmm", nullptr, {{14, 33}, {}}},
            {"Mmmmm", nullptr, {{17, 33}, {}}}, {"dddddd", nullptr, {{46, 54}, {}}},
            {"SSSS HHH", nullptr, {{36, 38, 1, 22, 23}, {" "}}},
            {"FULL_DATE_TIMEx", nullptr, {{308, 1}, {"x"}}},
            {"FULL_DATx", nullptr, {{57, 1, 11, 1}, {"ULL_D", "Tx"}}},
            {"yyyy'", nullptr}, {"dd/MM/yyyy\\", nullptr}, {"HH:mm'h", nullptr}}},
        {'O', 'd', nullptr, "fr", nullptr, {{"[Red]yyyy", "[Rouge]yyyy"}}},
        {'O', 'd', nullptr, "ja", nullptr, {
            {"yyyy!年MM!月dd!日", "yyyy'年'MM'月'dd'日'"}, {"yyyy\\MM", "yyyy'\\'MM"},
            {"yyyy!", nullptr}}},
    });
}

TEST(StringFormatTest, SerialNotationReadsItemsOnly) {
    Check({
        {'S', 'd', nullptr, nullptr, nullptr, {
            {"T[023]L[:]T[0m]", "=", {{22, 1, 32}, {":"}}},
            {"L[a\\]b\\\\c]T[Err]", "=", {{1, 3}, {"a]b\\c"}}}, {"L[]T[d]", "T[d]", {{55}, {}}},
            {"L[\\x[y]", "L[x[y]", {{1}, {"x[y"}}}, {"T[Adf]T[FS]T[Cr]", "=", {{300, 2, 402}, {}}},
            {"T[023", nullptr}, {"L[abc", nullptr}, {"L[abc\\", nullptr}, {"L", nullptr},
            {"x", nullptr}, {"T[xyz]", nullptr}, {"T[#]", nullptr}, {"T[d] ", nullptr}}},
        {'S', 'n', nullptr, nullptr, nullptr, {
            {"", "="}, {"T[pcs]T[pc]T[+]T[b]T[Ap]", "=", {{113, 112, 111, 114, 351}, {}}},
            {"T[0]T[FS]T[0]T[FS]T[0]T[FS]T[-]T[Cgr]", "=",
             {{102, 2, 102, 2, 102, 2, 100, 415}, {}}},
            {"L[T[0]]", nullptr}, {"T[y4]", nullptr}, {"Lx", nullptr}, {"t[0]", nullptr}}},
    });
}

// Decimal and grouping separators: en ".", ","; fr ",", no-break space; de ",", "."; CH ".", "'".
// The apostrophe quotes nothing.
TEST(StringFormatTest, VeloraNumbersBySeparatorTable) {
    Check({
        {'V', 'n', "EN", "en", "US", {
            {"#,##0;(#,##0)", "=",
             {{101, 104, 101, 101, 102, 2, 105, 101, 104, 101, 101, 102, 106}, {}}},
            {"-0.00E+00", "=", {{100, 102, 103, 102, 102, 107, 102, 102}, {}}},
            {"0.0e-0E-0e+", "=", {{102, 103, 102, 110, 102, 108, 102, 109}, {}}},
            {"0%", "0\\%", {{102, 1}, {"%"}}}, {"0 USD", "0 \\U\\S\\D", {{102, 1}, {" USD"}}},
            {"'x0", "\\'\\x0", {{1, 102}, {"'x"}}},
            {"0;0;0;\\x;y", "=", {{102, 2, 102, 2, 102, 2, 1}, {"\\x;y"}}},
            {"[red]0;[Blue]-0", "[Red]0;[Blue]-0", {{402, 102, 2, 404, 100, 102}, {}}},
            {"0\\", nullptr}, {"#,##0;-0\\", nullptr}}},
        {'V', 'p', "EN", "en", "US", {
            {"0.00%;-0.00%", "=", {{102, 103, 102, 102, 113, 2, 100, 102, 103, 102, 102, 113}, {}}},
            {"\\%0", "=", {{1, 102}, {"%"}}}}},
        {'V', 'n', "FR", "fr", "FR", {
            {"#\u00A0##0,00", "=", kGrouped}, {"[Red]0", "[Rouge]0", {{402, 102}, {}}},
            {"# ##0,00", "=", {{101, 1, 101, 101, 102, 103, 102, 102}, {" "}}},
            {"#,##0.00", "#,##0\\.00", {{101, 103, 101, 101, 102, 1, 102, 102}, {"."}}}}},
        {'V', 'p', "FR", "fr", "FR", {{"0,0 %", "=", {{102, 103, 102, 1, 113}, {" "}}}}},
        {'V', 'n', "GE", "de", "DE", {
            {"#.##0,00%;[Rot]-0", "#.##0,00\\%;[Rot]-0",
             {{101, 104, 101, 101, 102, 103, 102, 102, 1, 2, 402, 100, 102}, {"%"}}}}},
        {'V', 'n', "FR", "fr", "CH", {
            {"#'##0.00", "=", kGrouped},
            {"#,##0.00", "#\\,##0.00", {{101, 1, 101, 101, 102, 103, 102, 102}, {","}}}}},
        {'V', 'n', "JP", "ja", "JP", {
            {"[赤]0", "=", {{402, 102}, {}}}, {"0!x\\", "0!x!\\", {{102, 1}, {"x\\"}}}}},
        {'V', 'n', "KR", "ko", "KR", {{"0!%", "=", {{102, 1}, {"%"}}}, {"0!", nullptr}}},
        {'V', 'n', "XX", "xx", "YY", {{"[Red]0", "=", {{402, 102}, {}}}}},
    });
}

// Letters by code, separators by language and country; months after an hour or before seconds
// are minutes, and literals do not break the rule. The context pass has the last word: a trailing
// escape makes no error.
TEST(StringFormatTest, VeloraDatesByLettersSeparatorsAndContext) {
    Check({
        {'V', 'd', "EN", "en", "US", {
            {"MM/dd/yyyy hh:mm AM/PM", "mm/dd/yyyy hh:mm AM/PM",
             {{30, 65, 54, 65, 39, 1, 24, 66, 32, 1, 11}, {" ", " "}}},
            {"mmmm MMMM Mmmm mmm MMM Mmm", "=",
             {{16, 1, 15, 1, 17, 1, 20, 1, 19, 1, 21}, {" ", " ", " ", " ", " "}}},
            {"mMMM MMmm", "mmmm MMMM", {{16, 1, 15}, {" "}}},
            {"dddd DDDD Dddd ddd DDD Ddd", "=",
             {{48, 1, 47, 1, 49, 1, 52, 1, 51, 1, 53}, {" ", " ", " ", " ", " "}}},
            {"HH H hh h", "=", {{22, 1, 23, 1, 24, 1, 25}, {" ", " ", " "}}},
            {"YYYY/M/D", "yyyy/m/d", {{39, 65, 31, 65, 55}, {}}},
            {"YY SS s", "yy ss s", {{40, 1, 34, 1, 35}, {" ", " "}}},
            {"S y", "\\S \\y", {{1}, {"S y"}}},
            {"am/pm Am/pm AM/pm aM/PM", "am/pm Am/pm AM/PM am/pm",
             {{12, 1, 13, 1, 11, 1, 12}, {" ", " ", " "}}},
            {"mm:ss", "=", {{32, 66, 34}, {}}}, {"h:m", "=", {{25, 66, 33}, {}}},
            {"m:s", "=", {{33, 66, 35}, {}}}, {"yyyy mm", "=", {{39, 1, 30}, {" "}}},
            {"HH 'mm' dd", "HH \\'mm\\' dd", {{22, 1, 32, 1, 54}, {" '", "' "}}},
            {"m", "=", {{31}, {}}}, {"hh:mm mm", "=", {{24, 66, 32, 1, 30}, {" "}}},
            {"hh dd mm", "=", {{24, 1, 54, 1, 30}, {" ", " "}}}, {"[Blue]dd", "=", {{404, 54}, {}}},
            {"mm/dd/yyyy;\\x", "=", {{30, 65, 54, 65, 39, 2, 1}, {"\\x"}}},
            {"yyyy\\y", "=", {{39, 1}, {"y"}}}, {"dd\\", "dd", {{54}, {}}}}},
        {'V', 'd', "FR", "fr", "FR", {
            {"JJJJ jjj AAAA aa", "JJJJ jjj aaaa aa", {{47, 1, 52, 1, 39, 1, 40}, {" ", " ", " "}}},
            {"[Rouge]jj/mm", "=", {{402, 54, 65, 30}, {}}}}},
        {'V', 'd', "FR", "fr", "CA", {{"aaaa-mm-jj", "=", {{39, 65, 30, 65, 54}, {}}}}},
        {'V', 'd', "GE", "de", "DE", {
            {"tttt, t. MMMM JJJJ", "tttt\\, t. MMMM jjjj",
             {{48, 1, 55, 65, 1, 15, 1, 39}, {", ", " ", " "}}}}},
        {'V', 'd', "JP", "ja", "JP", {
            {"g rr!年mm!月dd!日", "=", {{43, 1, 41, 1, 30, 1, 54, 1}, {" ", "年", "月", "日"}}},
            {"G R RR", "g r rr", {{43, 1, 42, 1, 41}, {" ", " "}}},
            {"yyyy\\!", "yyyy!\\", {{39, 1}, {"\\"}}}}},
        {'V', 'd', "SP", "es", "ES", {
            {"dddd d \\de aaaa", "dddd d \\d\\e aaaa", {{48, 1, 55, 1, 39}, {" ", " de "}}}}},
        {'V', 'd', "IT", "it", "IT", {
            {"OO.mm.ss GGGG", "=", {{22, 66, 32, 66, 34, 1, 47}, {" "}}}}},
        {'V', 'd', "NL", "nl", "NL", {{"dd/mm", "dd\\/mm", {{54, 1, 30}, {"/"}}}}},
        {'V', 'd', "SW", "sv", "SE", {
            {"åååå.mm.dd hh:mm FM/EM", "=",
             {{39, 65, 30, 65, 54, 1, 24, 66, 32, 1, 11}, {" ", " "}}},
            {"fm/em Fm/em ÅÅ", "fm/em Fm/em åå", {{12, 1, 13, 1, 40}, {" ", " "}}}}},
        {'V', 'd', "BR", "pt", "BR", {
            {"A.M./P.M. a.m./p.m. A.m./p.m.", "=", {{11, 1, 12, 1, 13}, {" ", " "}}}}},
        {'V', 'd', "RU", "ru", "RU", {
            {"ЧЧ:ММ ДД.ММ.ГГ", "ЧЧ:мм дд.мм.гг", {{22, 66, 32, 1, 54, 65, 30, 65, 40}, {" "}}}}},
        {'V', 'd', "HU", "hu", "HU", {
            {"yyyy. mm. dd.", "yyyy. mm. dd\\.", {{39, 65, 30, 65, 54, 1}, {"."}}},
            {"yyyy. mm. dd. HH:mm", "=", {{39, 65, 30, 65, 54, 65, 22, 66, 32}, {}}}}},
    });
    // The year, day, hour, month and second letters of each code.
    const struct { const char *code, *text; } codes[] = {
        {"FR", "jj/mm/aaaa hh:mm:ss"}, {"GE", "tt/mm/jjjj hh:mm:ss"}, {"SP", "dd/mm/aaaa hh:mm:ss"},
        {"IT", "gg/mm/aaaa oo:mm:ss"}, {"NL", "dd/mm/jjjj uu:mm:ss"}, {"SW", "dd/mm/åååå hh:mm:ss"},
        {"BR", "dd/mm/aaaa hh:mm:ss"}, {"DA", "dd/mm/åååå tt:mm:ss"}, {"RU", "дд/мм/гггг чч:мм:сс"},
        {"PL", "dd/mm/rrrr gg:mm:ss"}, {"JP", "dd/mm/yyyy hh:mm:ss"}};
    for (const auto& c : codes)
        Check({{'V', 'd', c.code, "en", "US", {{c.text, "=", {kNumeric, {" "}}}}}});
}
// clang-format on

// ToPattern deletes the pattern in hand; a text it cannot read still answers 0; printing appends.
TEST(StringFormatTest, ToPatternReplacesThePatternInHand) {
    std::unique_ptr<luStringFormat> format(CreateStringFormatNumber("en", nullptr));
    luFmtPattern* pattern = CreateDateFmtPattern();
    pattern->push_back(TokEra);
    EXPECT_EQ(0, format->ToPattern(U("0"), pattern));
    ASSERT_TRUE(pattern != nullptr && !pattern->IsDate());
    EXPECT_EQ(0, format->ToPattern(U("'"), pattern));
    EXPECT_EQ(kError, Tokens(*pattern));
    ucs2string text = U(">");
    EXPECT_TRUE(format->FromPattern(*pattern, text) && text == U(">"));  // T[Err] prints nothing
    delete pattern;
}

struct Case {
    const char* pattern;   // canonical notation
    const char* expected;  // the Excel string
};

// clang-format off
const Case kNumbers[] = {
    {"T[An]", "General"}, {"L[x]T[An]T[0]", "General"}, {"T[Err]", ""},
    {"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]", "#,##0.00"}, {"T[0]T[ds]T[0]T[e+]T[0]", "0.0e+0"},
    {"T[0]T[E-]T[0]T[FS]T[0]T[e-]T[0]", "0E-0;0e-0"},
    // Grouping, decimal separators and exponents where Excel has no place for them.
    {"T[gs]T[#]T[gs]T[#]T[#]T[0]T[gs]", "#,##0"}, {"T[#]T[gs]T[gs]T[0]", "#,,0"},
    {"T[0]T[ds]T[0]T[ds]T[0]", "0.00"}, {"T[ds]T[gs]T[0]", ".0"}, {"T[0]T[gs]T[ds]T[0]", "0.0"},
    {"T[0]T[E+]T[0]T[gs]T[ds]T[-]T[+]T[E-]T[0]", "0E+00"}, {"T[0]T[gs]T[E+]T[0]", "0E+0"},
    {"T[0]T[gs]T[0]T[ds]T[0]T[gs]T[E+]T[0]", "0,0.0E+0"},
    // Sections and signs.
    {"T[-]T[#]T[gs]T[#]T[#]T[0]", "#,##0;\\-#,##0"}, {"T[ns]T[0]T[ne]", "0;\\(0\\)"},
    {"T[0]T[ne]", "0;0\\)"}, {"T[-]T[0]T[FS]T[0]T[-]", "0;0\\-"},
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

// A pattern of the other kind writes nothing, and that is no failure; writing appends.
TEST(ExcelStringFormat, WritesPatternsOfItsKindAndAppends) {
    std::unique_ptr<luStringFormat> numbers(CreateSerialStringFormatNumber());
    std::unique_ptr<luStringFormat> dates(CreateSerialStringFormatDate());
    for (const Case& row : kNumbers)
        EXPECT_EQ(row.expected, Print(*Writer(false), *Parse(*numbers, row.pattern)))
            << row.pattern;
    for (const Case& row : kDates)
        EXPECT_EQ(row.expected, Print(*Writer(true), *Parse(*dates, row.pattern))) << row.pattern;
    std::unique_ptr<luStringFormat> ombrin(CreateStringFormatNumber("en", "US"));
    EXPECT_EQ("[Red]#,##0.00;\\(#,##0.00\\);\"zero\"",
              Print(*Writer(false), *Parse(*ombrin, "[Red]#,##0.00;(#,##0.00);'zero'")));
    ucs2string none;
    EXPECT_TRUE(Writer(true)->FromPattern(*Parse(*numbers, "T[0]"), none) &&
                Writer(false)->FromPattern(*Parse(*dates, "T[y4]"), none) && none.empty());
    const auto pattern = Parse(*numbers, "T[Cr]T[-]T[gs]T[0]T[pc]L[%]");
    ucs2string text = U("x");
    EXPECT_TRUE(Writer(false)->FromPattern(*pattern, text));
    EXPECT_EQ("x[Red]0%;[Red]\\-0%", Utf8(text));
    EXPECT_EQ("T[Cr]T[-]T[gs]T[0]T[pc]L[%]", Print(*numbers, *pattern));  // left as it was
}

TEST(ExcelStringFormat, CannotBeReadAndDropsThePatternGiven) {
    luFmtPattern* pattern = CreateNumberFmtPattern();
    EXPECT_EQ(LU_E_FAIL, Writer(false)->ToPattern(U("0"), pattern));
    EXPECT_EQ(nullptr, pattern);
    pattern = CreateDateFmtPattern();
    EXPECT_EQ(LU_E_FAIL, Writer(true)->ToPattern(U("yyyy"), pattern));
    EXPECT_EQ(nullptr, pattern);
    ilu_ptr<luSettings> none;
    EXPECT_EQ(nullptr, CreateExcelSerialStringFormatNumber(none));
    EXPECT_EQ(nullptr, CreateExcelSerialStringFormatDate(none));
}

}  // namespace

// The Velora dialect: number texts for each separator table, date texts for
// each language code, read to token lists worked out by hand, printed, and
// read again to the same tokens.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fmt_test_support.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

struct Case {
    const char* text;
    TokenList tokens;
    const char* printed;
};

// The cases of one string format: a number format with `percent`, or a date
// format.
struct Group {
    const char* code;
    const char* lang;
    const char* country;
    bool percent;
    std::vector<Case> cases;
};

// The same tokens on a second reading, and a printed text that prints as
// itself.
void CheckCase(luStringFormat& format, const std::string& text, const TokenList& tokens,
               const std::string& printed) {
    SCOPED_TRACE("\"" + text + "\"");
    auto first = Parse(format, text);
    EXPECT_EQ(tokens, Tokens(*first));
    EXPECT_EQ(printed, Print(format, *first));
    auto second = Parse(format, printed);
    EXPECT_EQ(Tokens(*first), Tokens(*second)) << printed;
    EXPECT_EQ(printed, Print(format, *second));
}

void CheckGroup(luStringFormat* format, const Group& group) {
    SCOPED_TRACE(std::string(group.code) + " " + group.lang + group.country +
                 (group.percent ? " %" : ""));
    ASSERT_NE(nullptr, format);
    for (const Case& c : group.cases) CheckCase(*format, c.text, c.tokens, c.printed);
}

const TokenList kGrouped{{101, 104, 101, 101, 102, 103, 102, 102}, {}};

// clang-format off
// Decimal and grouping separators: en ".", ","; fr ",", no-break space;
// de ",", "."; CH ".", "'".
const Group kNumbers[] = {
    {"EN", "en", "US", false, {
        {"#,##0.00", kGrouped, "#,##0.00"},
        {"#,##0;(#,##0)", {{101, 104, 101, 101, 102, 2, 105, 101, 104, 101, 101, 102, 106}, {}},
         "#,##0;(#,##0)"},
        {"-0.00E+00", {{100, 102, 103, 102, 102, 107, 102, 102}, {}}, "-0.00E+00"},
        {"0.0e-0E-0e+", {{102, 103, 102, 110, 102, 108, 102, 109}, {}}, "0.0e-0E-0e+"},
        {"0%", {{102, 1}, {"%"}}, "0\\%"},
        {"$#,##0", {{1, 101, 104, 101, 101, 102}, {"$"}}, "\\$#,##0"},
        {"0 USD", {{102, 1}, {" USD"}}, "0 \\U\\S\\D"},
        {"0'", {{102, 1}, {"'"}}, "0\\'"},
        {"0\\\\", {{102, 1}, {"\\"}}, "0\\\\"},
        {"0;0;0;\\x;y", {{102, 2, 102, 2, 102, 2, 1}, {"\\x;y"}}, "0;0;0;\\x;y"},
        {"[Red]0;[Blue]-0", {{402, 102, 2, 404, 100, 102}, {}}, "[Red]0;[Blue]-0"},
        {"[red]0", {{402, 102}, {}}, "[Red]0"}}},
    {"EN", "en", "US", true, {
        {"0%", {{102, 113}, {}}, "0%"},
        {"0.00%;-0.00%", {{102, 103, 102, 102, 113, 2, 100, 102, 103, 102, 102, 113}, {}},
         "0.00%;-0.00%"},
        {"\\%0", {{1, 102}, {"%"}}, "\\%0"}}},
    {"FR", "fr", "FR", false, {
        {"#\u00A0##0,00", kGrouped, "#\u00A0##0,00"},
        {"# ##0,00", {{101, 1, 101, 101, 102, 103, 102, 102}, {" "}}, "# ##0,00"},
        {"#,##0.00", {{101, 103, 101, 101, 102, 1, 102, 102}, {"."}}, "#,##0\\.00"},
        {"[Rouge]0,0;[Bleu]-0,0", {{402, 102, 103, 102, 2, 404, 100, 102, 103, 102}, {}},
         "[Rouge]0,0;[Bleu]-0,0"},
        {"[Red]0", {{402, 102}, {}}, "[Rouge]0"},
        {"0 €", {{102, 1}, {" €"}}, "0 \\€"}}},
    {"FR", "fr", "FR", true, {{"0,0 %", {{102, 103, 102, 1, 113}, {" "}}, "0,0 %"}}},
    {"RU", "ru", "RU", false, {{"#\u00A0##0,00", kGrouped, "#\u00A0##0,00"}}},
    {"PL", "pl", "PL", false, {{"#\u00A0##0,00", kGrouped, "#\u00A0##0,00"}}},
    {"GE", "de", "DE", false, {
        {"#.##0,00", kGrouped, "#.##0,00"},
        {"#,##0.00", {{101, 103, 101, 101, 102, 104, 102, 102}, {}}, "#,##0.00"},
        {"[Rot]#.##0", {{402, 101, 104, 101, 101, 102}, {}}, "[Rot]#.##0"}}},
    {"GE", "de", "AT", false, {{"#.##0,00", kGrouped, "#.##0,00"}}},
    {"FR", "fr", "BE", false, {{"#.##0,00", kGrouped, "#.##0,00"}}},
    {"SP", "es", "ES", false, {{"#.##0,00", kGrouped, "#.##0,00"}}},
    {"IT", "it", "IT", false, {{"#.##0,00", kGrouped, "#.##0,00"}}},
    {"FR", "fr", "CH", false, {
        {"#'##0.00", kGrouped, "#'##0.00"},
        {"#,##0.00", {{101, 1, 101, 101, 102, 103, 102, 102}, {","}}, "#\\,##0.00"}}},
    {"GE", "de", "CH", false, {{"#'##0.00", kGrouped, "#'##0.00"}}},
    {"GE", "de", "LI", false, {{"#'##0.00", kGrouped, "#'##0.00"}}},
    {"IT", "it", "CH", false, {{"#'##0.00", kGrouped, "#'##0.00"}}},
    {"SP", "es", "MX", false, {{"#,##0.00", kGrouped, "#,##0.00"}}},
    {"JP", "ja", "JP", false, {
        {"#,##0.00", kGrouped, "#,##0.00"},
        {"[赤]0", {{402, 102}, {}}, "[赤]0"},
        {"0!円", {{102, 1}, {"円"}}, "0!円"},
        {"0\\", {{102, 1}, {"\\"}}, "0!\\"}}},
    {"KR", "ko", "KR", false, {{"0!%", {{102, 1}, {"%"}}, "0!%"}}},
    {"XX", "xx", "YY", false, {
        {"#,##0.00", kGrouped, "#,##0.00"},
        {"[Red]0", {{402, 102}, {}}, "[Red]0"}}},
};

// Letters by code, separators by language and country; months after an hour
// or before seconds are minutes.
const Group kDates[] = {
    {"EN", "en", "US", false, {
        {"MM/dd/yyyy hh:mm AM/PM", {{30, 65, 54, 65, 39, 1, 24, 66, 32, 1, 11}, {" ", " "}},
         "mm/dd/yyyy hh:mm AM/PM"},
        {"mmmm MMMM Mmmm mmm MMM Mmm", {{16, 1, 15, 1, 17, 1, 20, 1, 19, 1, 21},
         {" ", " ", " ", " ", " "}}, "mmmm MMMM Mmmm mmm MMM Mmm"},
        {"mMMM MMmm", {{16, 1, 15}, {" "}}, "mmmm MMMM"},
        {"dddd DDDD Dddd ddd DDD Ddd", {{48, 1, 47, 1, 49, 1, 52, 1, 51, 1, 53},
         {" ", " ", " ", " ", " "}}, "dddd DDDD Dddd ddd DDD Ddd"},
        {"HH H hh h", {{22, 1, 23, 1, 24, 1, 25}, {" ", " ", " "}}, "HH H hh h"},
        {"YYYY/M/D", {{39, 65, 31, 65, 55}, {}}, "yyyy/m/d"},
        {"YY SS s", {{40, 1, 34, 1, 35}, {" ", " "}}, "yy ss s"},
        {"S y", {{1}, {"S y"}}, "\\S \\y"},
        {"am/pm Am/pm AM/pm aM/PM", {{12, 1, 13, 1, 11, 1, 12}, {" ", " ", " "}},
         "am/pm Am/pm AM/PM am/pm"},
        {"hh:mm", {{24, 66, 32}, {}}, "hh:mm"},
        {"mm:ss", {{32, 66, 34}, {}}, "mm:ss"},
        {"h:m", {{25, 66, 33}, {}}, "h:m"},
        {"m:s", {{33, 66, 35}, {}}, "m:s"},
        {"hh mm", {{24, 1, 32}, {" "}}, "hh mm"},
        {"hh \\h mm", {{24, 1, 32}, {" h "}}, "hh \\h mm"},
        {"yyyy mm", {{39, 1, 30}, {" "}}, "yyyy mm"},
        {"m", {{31}, {}}, "m"},
        {"hh:mm mm", {{24, 66, 32, 1, 30}, {" "}}, "hh:mm mm"},
        {"hh dd mm", {{24, 1, 54, 1, 30}, {" ", " "}}, "hh dd mm"},
        {"mm/dd/yyyy;\\x", {{30, 65, 54, 65, 39, 2, 1}, {"\\x"}}, "mm/dd/yyyy;\\x"},
        {"[Blue]dd", {{404, 54}, {}}, "[Blue]dd"},
        {"yyyy\\y", {{39, 1}, {"y"}}, "yyyy\\y"}}},
    {"XX", "en", "US", false, {{"dd/mm/yyyy", {{54, 65, 30, 65, 39}, {}}, "dd/mm/yyyy"}}},
    {"FR", "fr", "FR", false, {
        {"jj/mm/aaaa hh:mm:ss", {{54, 65, 30, 65, 39, 1, 24, 66, 32, 66, 34}, {" "}},
         "jj/mm/aaaa hh:mm:ss"},
        {"JJJJ jjj AAAA aa", {{47, 1, 52, 1, 39, 1, 40}, {" ", " ", " "}}, "JJJJ jjj aaaa aa"},
        {"[Rouge]jj/mm", {{402, 54, 65, 30}, {}}, "[Rouge]jj/mm"}}},
    {"FR", "fr", "CA", false, {{"aaaa-mm-jj", {{39, 65, 30, 65, 54}, {}}, "aaaa-mm-jj"}}},
    {"GE", "de", "DE", false, {
        {"TT.MM.JJJJ HH:mm", {{54, 65, 30, 65, 39, 1, 22, 66, 32}, {" "}}, "tt.mm.jjjj HH:mm"},
        {"tttt, t. mmmm jjjj", {{48, 1, 55, 65, 1, 16, 1, 39}, {", ", " ", " "}},
         "tttt\\, t. mmmm jjjj"}}},
    {"JP", "ja", "JP", false, {
        {"yyyy/mm/dd", {{39, 65, 30, 65, 54}, {}}, "yyyy/mm/dd"},
        {"g rr!年mm!月dd!日", {{43, 1, 41, 1, 30, 1, 54, 1}, {" ", "年", "月", "日"}},
         "g rr!年mm!月dd!日"},
        {"G R RR", {{43, 1, 42, 1, 41}, {" ", " "}}, "g r rr"}}},
    {"SP", "es", "ES", false, {
        {"dd/mm/aa", {{54, 65, 30, 65, 40}, {}}, "dd/mm/aa"},
        {"dddd d \\de mmmm \\de aaaa", {{48, 1, 55, 1, 16, 1, 39}, {" ", " de ", " de "}},
         "dddd d \\d\\e mmmm \\d\\e aaaa"}}},
    {"IT", "it", "IT", false, {
        {"gg/mm/aaaa oo.mm", {{54, 65, 30, 65, 39, 1, 24, 66, 32}, {" "}}, "gg/mm/aaaa oo.mm"},
        {"OO.mm.ss GGGG", {{22, 66, 32, 66, 34, 1, 47}, {" "}}, "OO.mm.ss GGGG"}}},
    {"IT", "it", "CH", false, {
        {"gg.mm.aaaa oo:mm", {{54, 65, 30, 65, 39, 1, 24, 66, 32}, {" "}}, "gg.mm.aaaa oo:mm"}}},
    {"NL", "nl", "NL", false, {
        {"dd-mm-jjjj uu:mm", {{54, 65, 30, 65, 39, 1, 24, 66, 32}, {" "}}, "dd-mm-jjjj uu:mm"},
        {"UU:mm", {{22, 66, 32}, {}}, "UU:mm"},
        {"dd/mm", {{54, 1, 30}, {"/"}}, "dd\\/mm"}}},
    {"SW", "sv", "SE", false, {
        {"åååå.mm.dd hh:mm FM/EM", {{39, 65, 30, 65, 54, 1, 24, 66, 32, 1, 11}, {" ", " "}},
         "åååå.mm.dd hh:mm FM/EM"},
        {"fm/em Fm/em ÅÅ", {{12, 1, 13, 1, 40}, {" ", " "}}, "fm/em Fm/em åå"},
        {"åååå-mm-dd", {{39, 1, 30, 1, 54}, {"-", "-"}}, "åååå\\-mm\\-dd"}}},
    {"BR", "pt", "BR", false, {
        {"dd/mm/aaaa hh:mm A.M./P.M.", {{54, 65, 30, 65, 39, 1, 24, 66, 32, 1, 11}, {" ", " "}},
         "dd/mm/aaaa hh:mm A.M./P.M."},
        {"a.m./p.m. A.m./p.m.", {{12, 1, 13}, {" "}}, "a.m./p.m. A.m./p.m."}}},
    {"DA", "da", "DK", false, {
        {"dd-mm-åååå tt:mm", {{54, 65, 30, 65, 39, 1, 24, 66, 32}, {" "}}, "dd-mm-åååå tt:mm"},
        {"TT:mm", {{22, 66, 32}, {}}, "TT:mm"}}},
    {"RU", "ru", "RU", false, {
        {"дд.мм.гггг чч:мм:сс", {{54, 65, 30, 65, 39, 1, 24, 66, 32, 66, 34}, {" "}},
         "дд.мм.гггг чч:мм:сс"},
        {"ЧЧ:ММ", {{22, 66, 32}, {}}, "ЧЧ:мм"},
        {"ДД.ММ.ГГ", {{54, 65, 30, 65, 40}, {}}, "дд.мм.гг"},
        {"м:сс", {{33, 66, 34}, {}}, "м:сс"},
        {"дддд ММММ мммм", {{48, 1, 15, 1, 16}, {" ", " "}}, "дддд ММММ мммм"}}},
    {"PL", "pl", "PL", false, {
        {"dd.mm.rrrr gg:mm", {{54, 65, 30, 65, 39, 1, 24, 66, 32}, {" "}}, "dd.mm.rrrr gg:mm"},
        {"GG:mm:ss", {{22, 66, 32, 66, 34}, {}}, "GG:mm:ss"}}},
    {"HU", "hu", "HU", false, {
        {"yyyy. mm. dd.", {{39, 65, 30, 65, 54, 1}, {"."}}, "yyyy. mm. dd\\."},
        {"yyyy. mm. dd. HH:mm", {{39, 65, 30, 65, 54, 65, 22, 66, 32}, {}},
         "yyyy. mm. dd. HH:mm"}}},
};
// clang-format on

TEST(VeloraRoundTripTest, NumberTextsReadByTheirSeparatorTable) {
    for (const Group& group : kNumbers) {
        std::unique_ptr<luStringFormatNumber> format(
            CreateVeloraStringFormatNumber(group.code, group.lang, group.country, group.percent));
        CheckGroup(format.get(), group);
    }
}

TEST(VeloraRoundTripTest, DateTextsReadByTheirLettersAndSeparators) {
    for (const Group& group : kDates) {
        std::unique_ptr<luStringFormatDate> format(
            CreateVeloraStringFormatDate(group.code, group.lang, group.country));
        CheckGroup(format.get(), group);
    }
}

TEST(VeloraRoundTripTest, EveryDateCodeHasItsOwnLetters) {
    // The year, day, hour, month and second letters of each code, in that
    // order, written out as a day, month, year, hour, minute, second text.
    const struct {
        const char* code;
        const char* text;
    } codes[] = {
        {"EN", "dd/mm/yyyy hh:mm:ss"}, {"FR", "jj/mm/aaaa hh:mm:ss"}, {"GE", "tt/mm/jjjj hh:mm:ss"},
        {"JP", "dd/mm/yyyy hh:mm:ss"}, {"SP", "dd/mm/aaaa hh:mm:ss"}, {"IT", "gg/mm/aaaa oo:mm:ss"},
        {"NL", "dd/mm/jjjj uu:mm:ss"}, {"SW", "dd/mm/åååå hh:mm:ss"}, {"BR", "dd/mm/aaaa hh:mm:ss"},
        {"DA", "dd/mm/åååå tt:mm:ss"}, {"RU", "дд/мм/гггг чч:мм:сс"}, {"PL", "dd/mm/rrrr gg:mm:ss"},
    };
    const TokenList expected{{54, 65, 30, 65, 39, 1, 24, 66, 32, 66, 34}, {" "}};
    for (const auto& c : codes) {
        SCOPED_TRACE(c.code);
        std::unique_ptr<luStringFormatDate> format(
            CreateVeloraStringFormatDate(c.code, "en", "US"));
        ASSERT_NE(nullptr, format);
        CheckCase(*format, c.text, expected, c.text);
    }
}

TEST(VeloraRoundTripTest, NumberTrailingEscapeReadsAsError) {
    const TokenList error{{TokError}, {}};
    std::unique_ptr<luStringFormatNumber> en(
        CreateVeloraStringFormatNumber("EN", "en", "US", true));
    std::unique_ptr<luStringFormatNumber> kr(
        CreateVeloraStringFormatNumber("KR", "ko", "KR", true));
    EXPECT_EQ(error, Tokens(*Parse(*en, "0\\")));
    EXPECT_EQ(error, Tokens(*Parse(*en, "#,##0;-0\\")));
    EXPECT_EQ(error, Tokens(*Parse(*kr, "0!")));
    // An apostrophe quotes nothing in this dialect, and past the third
    // section a backslash is plain text.
    EXPECT_EQ((TokenList{{1, 102}, {"'x"}}), Tokens(*Parse(*en, "'x0")));
    EXPECT_EQ((TokenList{{102, 2, 102, 2, 102, 2, 1}, {"\\"}}), Tokens(*Parse(*en, "0;0;0;\\")));
}

// The context pass has the last word on a Velora date text, so not even a
// trailing escape makes it bad: what was read stands.
TEST(VeloraRoundTripTest, DateTrailingEscapeKeepsWhatWasRead) {
    std::unique_ptr<luStringFormatDate> en(CreateVeloraStringFormatDate("EN", "en", "US"));
    std::unique_ptr<luStringFormatDate> jp(CreateVeloraStringFormatDate("JP", "ja", "JP"));
    EXPECT_EQ((TokenList{{39}, {}}), Tokens(*Parse(*en, "yyyy\\")));
    EXPECT_EQ((TokenList{{24, 66, 32}, {}}), Tokens(*Parse(*en, "hh:mm\\")));
    EXPECT_EQ((TokenList{{39, 1}, {"\\"}}), Tokens(*Parse(*jp, "yyyy\\!")));
    // Past the first section a backslash is plain text.
    EXPECT_EQ((TokenList{{39, 2, 1}, {"\\"}}), Tokens(*Parse(*en, "yyyy;\\")));
}

}  // namespace

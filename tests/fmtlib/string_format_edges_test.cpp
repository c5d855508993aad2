// String formats at their edges: each case worked out by hand from the rules
// of its dialect.
#include <gtest/gtest.h>

#include "fmt_test_support.h"
#include "kai18n/fmtlib/lu_fmt_dialects.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

using Format = std::unique_ptr<luStringFormat>;

Format OmbrinDate(const char* lang = "en") {
    return Format(CreateStringFormatDate(lang, nullptr));
}
Format OmbrinNumber(const char* lang = "en") {
    return Format(CreateStringFormatNumber(lang, nullptr));
}

const TokenList kError{{TokError}, {}};

struct Case {
    const char* text;
    TokenList tokens;
    const char* printed;  // null: not checked
};

void Check(luStringFormat& format, const Case& c) {
    auto pattern = Parse(format, c.text);
    ASSERT_NE(nullptr, pattern) << c.text;
    EXPECT_EQ(c.tokens, Tokens(*pattern)) << c.text;
    if (c.printed != nullptr) {
        EXPECT_EQ(c.printed, Print(format, *pattern)) << c.text;
    }
}

TEST(StringFormatEdgesTest, OmbrinDates) {
    auto format = OmbrinDate();
    const Case cases[] = {
        {"MMMM", {{15}, {}}, "MMMM"},
        {"MMM", {{19}, {}}, "MMM"},
        {"MMMMM", {{15, 31}, {}}, "MMMMM"},
        {"yyyy-MM-dd HH:mm:ss",
         {{39, 1, 30, 1, 54, 1, 22, 1, 32, 1, 34}, {"-", "-", " ", ":", ":"}},
         "yyyy'-'MM'-'dd HH':'mm':'ss"},
        // The first ";" ends all tokens; quotes after it are plain text.
        {"HH:mm;'no date'", {{22, 1, 32, 2, 1}, {":", "'no date'"}}, "HH':'mm;'no date'"},
        {"<hour 00-23><minute 00>", {{22, 32}, {}}, "HHmm"},
        {"FULL_DATE", {{300}, {}}, "FULL_DATE"},
        {"'Week' ww", {{1, 61}, {"Week "}}, "'Week 'ww"},
        {"h 'h' mm", {{25, 1, 32}, {" h "}}, "h' h 'mm"},
        // Two apostrophes are one, inside a run and outside.
        {"''", {{1}, {"'"}}, "''"},
        {"'it''s' d", {{1, 55}, {"it's "}}, "'it''s 'd"},
        // A quoted run may end behind an escaped unit, with no closing quote.
        {"'ab\\c", {{1}, {"abc"}}, "'abc'"},
        {"\\d d", {{1, 55}, {"d "}}, "'d 'd"},
        {"d\\", kError, nullptr},
        {"d 'open", kError, nullptr},
        {"'", kError, nullptr},
        {"", {{}, {}}, ""},
    };
    for (const Case& c : cases) Check(*format, c);
}

TEST(StringFormatEdgesTest, OmbrinNumbers) {
    auto format = OmbrinNumber();
    const Case cases[] = {
        {"#,##0.00;(#,##0.00);'zero'",
         {{101, 104, 101, 101, 102, 103, 102, 102, 2, 105, 101,
           104, 101, 101, 102, 103, 102, 102, 106, 2, 1},
          {"zero"}},
         "#,##0.00;(#,##0.00);'zero'"},
        {"[Red]-#,##0", {{402, 100, 101, 104, 101, 101, 102}, {}}, "[Red]-#,##0"},
        {"[red]0;[BLUE]0", {{402, 102, 2, 404, 102}, {}}, "[Red]0;[Blue]0"},
        {"[Redd]0", {{1, 102}, {"[Redd]"}}, "'[Redd]'0"},
        {"[]0", {{1, 102}, {"[]"}}, "'[]'0"},
        {"[%]0", {{112, 102}, {}}, "[%]0"},
        {"0.00%", {{102, 103, 102, 102, 1}, {"%"}}, "0.00'%'"},
        // After the third ";" all is literal, colours apart; the escape is a plain unit.
        {"0;0;0;0\\'[Red]x",
         {{102, 2, 102, 2, 102, 2, 1, 402, 1}, {"0\\'", "x"}},
         "0;0;0;0\\'[Red]x"},
        {"0 \\\\ ' '''", {{102, 1}, {" \\  '"}}, "0' \\\\  '''"},
        {"\\", kError, nullptr},
        {"0E+00", {{102, 107, 102, 102}, {}}, "0E+00"},
        {"<zero><decimal separator><number>", {{102, 103, 101}, {}}, "0.#"},
    };
    for (const Case& c : cases) Check(*format, c);
}

TEST(StringFormatEdgesTest, ColoursFollowTheFormatsLanguage) {
    auto german = OmbrinNumber("de");
    Check(*german, {"[Rot]0;[red]0;[GRÜN]0",
                    {{402, 102, 2, 402, 102, 2, 403, 102}, {}},
                    "[Rot]0;[Rot]0;[Grün]0"});
    auto french = OmbrinNumber("fr");
    Check(*french, {"[rouge FONCÉ ]0", {{408, 102}, {}}, "[Rouge foncé ]0"});
    auto japanese = OmbrinNumber("ja");
    // "!" escapes in Japanese; the backslash is an ordinary unit.
    Check(*japanese, {"[赤]0!%\\", {{402, 102, 1}, {"%\\"}}, "[赤]0'%\\'"});
    Check(*japanese, {"0!", kError, nullptr});
}

TEST(StringFormatEdgesTest, SerialNotation) {
    Format date(CreateSerialStringFormatDate());
    Format number(CreateSerialStringFormatNumber());
    const Case dates[] = {
        {"T[023]L[:]T[0m]", {{22, 1, 32}, {":"}}, "T[023]L[:]T[0m]"},
        {"L[a\\]b\\\\c]T[Err]", {{1, 3}, {"a]b\\c"}}, "L[a\\]b\\\\c]T[Err]"},
        {"L[]T[d]", {{55}, {}}, "T[d]"},
        {"T[Adf]T[FS]T[Cr]", {{300, 2, 402}, {}}, "T[Adf]T[FS]T[Cr]"},
        {"T[023", kError, nullptr},
        {"L[abc", kError, nullptr},
        {"L[abc\\", kError, nullptr},
        {"L", kError, nullptr},
        {"Lx", kError, nullptr},
        {"x", kError, nullptr},
        {"T[xyz]", kError, nullptr},
        {"T[#]", kError, nullptr},  // a number token in a date text
        {"T[d] ", kError, nullptr},
    };
    for (const Case& c : dates) Check(*date, c);
    Check(*number,
          {"T[bt]T[FS]T[bt]T[FS]T[bf]", {{115, 2, 115, 2, 116}, {}}, "T[bt]T[FS]T[bt]T[FS]T[bf]"});
    Check(*number, {"T[0]T[FS]T[0]T[FS]T[0]T[FS]T[0]",
                    {{102, 2, 102, 2, 102, 2, 102}, {}},
                    "T[0]T[FS]T[0]T[FS]T[0]T[FS]T[0]"});
}

TEST(StringFormatEdgesTest, VeloraDialect) {
    Format frenchDate(CreateVeloraStringFormatDate("FR", "fr", nullptr));
    Check(*frenchDate, {"jj/mm/aaaa hh:mm:ss",
                        {{54, 65, 30, 65, 39, 1, 24, 66, 32, 66, 34}, {" "}},
                        "jj/mm/aaaa hh:mm:ss"});
    Format englishDate(CreateVeloraStringFormatDate("EN", "en", nullptr));
    const Case dates[] = {
        // A month ahead of seconds is a minute; one ahead of a day is a month.
        {"mm:ss", {{32, 66, 34}, {}}, "mm:ss"},
        {"HH 'mm' dd", {{22, 1, 32, 1, 54}, {" '", "' "}}, "HH \\'mm\\' dd"},
        {"m/d/yy", {{31, 65, 55, 65, 40}, {}}, "m/d/yy"},
        // A trailing escape does not make a Velora date text bad.
        {"dd\\", {{54}, {}}, "dd"},
        {"MMMM Dddd AM/PM", {{15, 1, 49, 1, 11}, {" ", " "}}, "MMMM Dddd AM/PM"},
    };
    for (const Case& c : dates) Check(*englishDate, c);
    Format russian(CreateVeloraStringFormatDate("RU", "ru", nullptr));
    Check(*russian, {"ЧЧ:мм", {{22, 66, 32}, {}}, "ЧЧ:мм"});

    Format percent(CreateVeloraStringFormatNumber("FR", "fr", "FR", true));
    Check(*percent, {"# ##0,0%", {{101, 1, 101, 101, 102, 103, 102, 113}, {" "}}, "# ##0,0%"});
    Format noPercent(CreateVeloraStringFormatNumber("GE", "de", nullptr, false));
    Check(*noPercent, {"#.##0,00%;[Rot]-0",
                       {{101, 104, 101, 101, 102, 103, 102, 102, 1, 2, 402, 100, 102}, {"%"}},
                       "#.##0,00\\%;[Rot]-0"});
    Format japanese(CreateVeloraStringFormatNumber("JP", "ja", nullptr, false));
    Check(*japanese, {"0!x\\", {{102, 1}, {"x\\"}}, "0!x!\\"});
}

TEST(StringFormatEdgesTest, ToPatternReplacesThePatternInHand) {
    auto format = OmbrinNumber();
    luFmtPattern* pattern = CreateDateFmtPattern();
    pattern->push_back(TokEra);
    EXPECT_EQ(0, format->ToPattern(U("0"), pattern));  // the old pattern is deleted
    ASSERT_NE(nullptr, pattern);
    EXPECT_FALSE(pattern->IsDate());
    EXPECT_EQ((TokenList{{102}, {}}), Tokens(*pattern));
    EXPECT_EQ(0, format->ToPattern(U("'"), pattern));  // bad text: still 0
    EXPECT_EQ(kError, Tokens(*pattern));
    // Printing appends.
    ucs2string text = U(">");
    format->FromPattern(*pattern, text);
    EXPECT_EQ(">", Utf8(text));  // T[Err] has no Ombrin text
    delete pattern;
}

}  // namespace

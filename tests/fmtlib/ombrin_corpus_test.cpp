// Spreadsheet formats in the Ombrin dialect: a corpus of number and date texts
// that read, print and read again to the same tokens, with printed texts and
// token lists worked out by hand from the dialect's quoting rules.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include "fmt_test_support.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

struct Entry {
    const char* lang;
    const char* text;
    const char* printed;  // null: only the round trip is checked
};

// clang-format off
// Quoted literals, colours by language, escapes, and the fourth section that
// is all literal text.
const Entry kNumbers[] = {
    {"en", "0", "0"}, {"en", "0.0", "0.0"}, {"en", "0.00", "0.00"}, {"en", "0.000", "0.000"},
    {"en", "0.0000", "0.0000"}, {"en", "#", "#"}, {"en", "#.#", "#.#"}, {"en", "#.##", "#.##"},
    {"en", "#,##0", "#,##0"}, {"en", "#,##0.0", "#,##0.0"}, {"en", "#,##0.00", "#,##0.00"},
    {"en", "#,##0.000", "#,##0.000"}, {"en", "#,###", "#,###"}, {"en", "#,###.##", "#,###.##"},
    {"en", "##0.00", "##0.00"}, {"en", "0000", "0000"}, {"en", "00000", "00000"},
    {"en", "000-00-0000", "000-00-0000"}, {"en", "(000) 000-0000", "(000) 000-0000"},
    {"en", "0%", "0'%'"}, {"en", "0.0%", "0.0'%'"}, {"en", "0.00%", "0.00'%'"},
    {"en", "#,##0%", "#,##0'%'"}, {"en", "0[%]", "0[%]"}, {"en", "0.00[%]", "0.00[%]"},
    {"en", "0.00\\%", "0.00'%'"}, {"en", "0.00 %", "0.00' %'"}, {"en", "0\\ \\%", "0' %'"},
    {"en", "0.00E+00", "0.00E+00"}, {"en", "0.0E+0", "0.0E+0"}, {"en", "##0.0E+0", "##0.0E+0"},
    {"en", "#.##E+00", "#.##E+00"}, {"en", "0.00E-00", "0.00E-00"}, {"en", "0.0e+0", "0.0e+0"},
    {"en", "0.0e-00", "0.0e-00"}, {"en", "#,##0.00;(#,##0.00)", "#,##0.00;(#,##0.00)"},
    {"en", "#,##0;(#,##0)", "#,##0;(#,##0)"},
    {"en", "[Red]-#,##0.00;(#,##0.00)", "[Red]-#,##0.00;(#,##0.00)"},
    {"en", "#,##0.00;[Red](#,##0.00)", "#,##0.00;[Red](#,##0.00)"},
    {"en", "#,##0.00;[Red]-#,##0.00", "#,##0.00;[Red]-#,##0.00"},
    {"en", "0.00;[Red]0.00", "0.00;[Red]0.00"}, {"en", "[Blue]0", "[Blue]0"},
    {"en", "[Green]0.00;[Red]-0.00", "[Green]0.00;[Red]-0.00"},
    {"en", "[Black]#,##0", "[Black]#,##0"}, {"en", "[White]0", "[White]0"},
    {"en", "[Yellow]0", "[Yellow]0"}, {"en", "[Magenta]0", "[Magenta]0"},
    {"en", "[Cyan]0", "[Cyan]0"}, {"en", "[Dark Red]0", "[Dark Red]0"},
    {"en", "[Dark Green]0", "[Dark Green]0"}, {"en", "[Dark Blue]0", "[Dark Blue]0"},
    {"en", "[Light Brown]0", "[Light Brown]0"}, {"en", "[Purple]0", "[Purple]0"},
    {"en", "[Dark Cyan]0", "[Dark Cyan]0"}, {"en", "[Light Cyan]0", "[Light Cyan]0"},
    {"en", "[Gray]0", "[Gray]0"}, {"en", "[RED]0", "[Red]0"},
    {"en", "[red]0;[blue]-0", "[Red]0;[Blue]-0"}, {"en", "[dark red]0", "[Dark Red]0"},
    {"en", "$#,##0.00", "'$'#,##0.00"}, {"en", "$#,##0", "'$'#,##0"},
    {"en", "\\$#,##0.00", "'$'#,##0.00"}, {"en", "\"$\"#,##0", "'\"$\"'#,##0"},
    {"en", "$#,##0.00_);($#,##0.00)", "'$'#,##0.00'_');('$'#,##0.00)"},
    {"en", "$#,##0_);[Red]($#,##0)", "'$'#,##0'_');[Red]('$'#,##0)"},
    {"en", "#,##0_);(#,##0)", "#,##0'_');(#,##0)"},
    {"en", "#,##0.00_);(#,##0.00)", "#,##0.00'_');(#,##0.00)"},
    {"en", "#,##0 \"€\"", "#,##0' \"€\"'"}, {"en", "#,##0.00 €", "#,##0.00' €'"},
    {"en", "€ #,##0.00", "'€ '#,##0.00"}, {"en", "#,##0.00 \\€", "#,##0.00' €'"},
    {"en", "#,##0.00\\ \\€", "#,##0.00' €'"}, {"en", "£#,##0.00", "'£'#,##0.00"},
    {"en", "¥#,##0", "'¥'#,##0"}, {"en", "'USD '#,##0.00", "'USD '#,##0.00"},
    {"en", "#,##0.00' USD'", "#,##0.00' USD'"}, {"en", "#,##0.00 \"kr\"", "#,##0.00' \"kr\"'"},
    {"en", "#,##0 [$€-407]", "#,##0' [$€'-'4'0'7]'"}, {"en", "0 'it''s'", "0' it''s'"},
    {"en", "0''", "0''"}, {"en", "0\\\\", "0\\\\"}, {"en", "0 ", "0 "}, {"en", " 0", " 0"},
    {"en", "(0)", "(0)"}, {"en", "-0.0", "-0.0"}, {"en", "+0.0", "'+'0.0"},
    {"en", "#,##0,,", "#,##0,,"}, {"en", "0.0,,\"M\"", "0.0,,'\"M\"'"},
    {"en", "#,##0,\"K\"", "#,##0,'\"K\"'"}, {"en", "# ?/?", "#' ?/?'"},
    {"en", "# ?\?/?\?", "#' ?\?/?\?'"}, {"en", "0_)", "0'_')"},
    {"en", "#,##0;-#,##0;0", "#,##0;-#,##0;0"},
    {"en", "#,##0.00;[Red]-#,##0.00;0.00", "#,##0.00;[Red]-#,##0.00;0.00"},
    {"en", "0;-0;0;@", "0;-0;0;@"}, {"en", "0;0;0;#,##0.00", "0;0;0;#,##0.00"},
    {"en", "0;0;0;a;b\\", "0;0;0;a;b\\"}, {"en", "0;0;0;[Red]x", "0;0;0;[Red]x"},
    {"en", "0;0;0;'", "0;0;0;'"}, {"en", "0;0;0;'text'", "0;0;0;'text'"},
    {"en", "#,##0;(#,##0);\"-\";'text'", "#,##0;(#,##0);'\"'-'\"';'text'"},
    {"en", "0.00%;[Red]-0.00%", "0.00'%';[Red]-0.00'%'"},
    {"en", "_(* #,##0_);_(* (#,##0);_(* \"-\"_);_(@_)",
     "'_'('* '#,##0'_');'_'('* '(#,##0);'_'('* \"'-'\"_');_(@_)"},
    {"en", "STANDARD", "STANDARD"}, {"en", "PERCENT", "PERCENT"},
    {"en", "SCIENTIFIC", "SCIENTIFIC"}, {"en", "BOOLEAN", "BOOLEAN"},
    {"en", "STANDARD;[Red]PERCENT", "STANDARD;[Red]PERCENT"},
    {"en", "<number><grouping separator><number><zero>", "#,#0"},
    {"en", "<zero><decimal separator><zero>", "0.0"}, {"en", "<sign><zero>", "-0"},
    {"en", "<positive sign>0", "<positive sign>0"},
    {"en", "<times 100 and sign>", "<times 100 and sign>"}, {"en", "<times 100>", "[%]"},
    {"en", "<bool>;<true>;<false>", "<bool>;<true>;<false>"}, {"en", "<Red>0", "[Red]0"},
    {"en", "<Light Gray>0", "[Light Cyan]0"}, {"en", "0<upper exponent +>0", "0E+0"},
    {"en", "<negative opening bracket>0<negative closing bracket>", "(0)"},
    {"en", "<def numeric>", "STANDARD"}, {"en", "[Bogus]0", "'[Bogus]'0"},
    {"en", "[Rouge]0", "'[Rouge]'0"}, {"en", "[Red", "'[Red'"}, {"en", "[]0", "'[]'0"},
    {"en", "'a\\'b'0", "'a''b'0"}, {"en", "'a\\\\b'", "'a\\\\b'"}, {"en", "'''a'", "'''a'"},
    {"en", "0.0#,", nullptr}, {"en", "#0.0#E+#", nullptr}, {"en", "0.00 \"CHF\";-0.00", nullptr},
    {"fr", "[Rouge]0.00", "[Rouge]0.00"}, {"fr", "[Red]0", "[Rouge]0"},
    {"fr", "[Bleu]#,##0;[Rouge]-#,##0", "[Bleu]#,##0;[Rouge]-#,##0"},
    {"fr", "[Rouge foncé ]0", "[Rouge foncé ]0"}, {"fr", "[rouge]0", "[Rouge]0"},
    {"fr", "[Vert]0.00 €", "[Vert]0.00' €'"}, {"fr", "# ##0,00 €", "# ##0,00' €'"},
    {"de", "[rot]#,##0", "[Rot]#,##0"}, {"de", "[Grün]0;[Rot]-0", "[Grün]0;[Rot]-0"},
    {"de", "[Weiß]0", "[Weiß]0"}, {"de", "[weiß]0", "[Weiß]0"}, {"de", "[Blue]0", "[Blau]0"},
    {"de", "#.##0,00 \"€\"", "#.##0,00' \"€\"'"}, {"ja", "[赤]0", "[赤]0"},
    {"ja", "[青]#,##0;[赤]-#,##0", "[青]#,##0;[赤]-#,##0"}, {"ja", "[Red]0", "[赤]0"},
    {"ja", "#,##0!円", "#,##0'円'"}, {"ja", "¥#,##0;¥-#,##0", "'¥'#,##0;'¥'-#,##0"},
    {"ja", "#,##0\\", "#,##0'\\'"}, {"ja", "0!!", "0!!"}, {"ja", "'a!!b'0", "'a!!b'0"},
    {"zh", "[红]0", "[红]0"}, {"ko", "[빨강]0", "[빨강]0"}, {"ko", "0!%", "0'%'"},
    {"es", "[Rojo]0;[Azul]-0", "[Rojo]0;[Azul]-0"}, {"es", "[Verde]0", "[Verde]0"},
    {"it", "[Rosso]0", "[Rosso]0"}, {"it", "[Verde]0", "[Verde]0"}, {"nl", "[Rood]0", "[Rood]0"},
    {"sv", "[Röd]0", "[Röd]0"}, {"ru", "[Красный]0", "[Красный]0"}, {"da", "[Rød]0", "[Rød]0"},
    {"pl", "[Czerwony]0", "[Czerwony]0"}, {"pt", "[Vermelho]0", "[Vermelho]0"},
    {"pt", "[Verde]0", "[Verde]0"}, {"cs", "[červený]0", "[červený]0"},
    {"he", "[אדום]0", "[אדום]0"}, {"hu", "[Piros]0", "[Piros]0"}, {"xx", "[Red]0", "[Red]0"},
    {"xx", "[Rouge]0", "'[Rouge]'0"},
};

// Letters are tokens in dates, so literal text is quoted; after the first ";"
// everything but colours is literal.
const Entry kDates[] = {
    {"en", "dd/MM/yyyy HH:mm", "dd'/'MM'/'yyyy HH':'mm"},
    {"en", "dd/MM/yyyy HH:mm:ss", "dd'/'MM'/'yyyy HH':'mm':'ss"},
    {"en", "yyyy-MM-dd", "yyyy'-'MM'-'dd"}, {"en", "MMMM d, yyyy", "MMMM d', 'yyyy"},
    {"en", "dddd", "dddd"}, {"en", "h:mm a", "h':'mm a"},
    {"en", "HH:mm:ss.SSS", "HH':'mm':'ss'.'SSS"}, {"en", "FULL_DATE", "FULL_DATE"},
    {"en", "LONG_DATE", "LONG_DATE"}, {"en", "DATE", "DATE"}, {"en", "SHORT_DATE", "SHORT_DATE"},
    {"en", "FULL_TIME", "FULL_TIME"}, {"en", "LONG_TIME", "LONG_TIME"}, {"en", "TIME", "TIME"},
    {"en", "SHORT_TIME", "SHORT_TIME"}, {"en", "FULL_DATE_TIME", "FULL_DATE_TIME"},
    {"en", "LONG_DATE_TIME", "LONG_DATE_TIME"}, {"en", "DATE_TIME", "DATE_TIME"},
    {"en", "SHORT_DATE_TIME", "SHORT_DATE_TIME"}, {"en", "INPUT_DATE", "INPUT_DATE"},
    {"en", "INPUT_TIME", "INPUT_TIME"}, {"en", "INPUT_DATE_TIME", "INPUT_DATE_TIME"},
    {"en", "'Week' ww", "'Week 'ww"}, {"en", "Week ww", "Week ww"},
    {"en", "<hour 00-23>:<minute 00>", "HH':'mm"},
    {"en", "<lower month name>", "<lower month name>"},
    {"en", "dd<date separator>MM<date separator>yyyy", "dd<date separator>MM<date separator>yyyy"},
    {"en", "HH<time separator>mm", "HH<time separator>mm"}, {"en", "<upper am/pm sign>", "A"},
    {"en", "<cap am/pm sign>", "<cap am/pm sign>"}, {"en", "<week of year 00>", "ww"},
    {"en", "<year of week of year 0000>", "<year of week of year 0000>"},
    {"en", "dd/MM/yyyy;'invalid'", "dd'/'MM'/'yyyy;'invalid'"},
    {"en", "MM/dd/yyyy;'Invalid date'", "MM'/'dd'/'yyyy;'Invalid date'"},
    {"en", "yyyy;#ERR dd", "yyyy;#ERR dd"}, {"en", "yyyy;a;b\\", "yyyy;a;b\\"},
    {"en", "yyyy;[Red]bad", "yyyy;[Red]bad"}, {"en", "yyyy;dd/MM", "yyyy;dd/MM"},
    {"en", "HH:mm;[Blue]", "HH':'mm;[Blue]"}, {"en", "yyyy;", "yyyy;"}, {"en", ";", ";"},
    {"en", "", ""}, {"en", "dd.MM.yyyy", "dd'.'MM'.'yyyy"}, {"en", "d.M.yy", "d'.'M'.'yy"},
    {"en", "MM/dd/yy", "MM'/'dd'/'yy"}, {"en", "M/d/yyyy h:mm:ss a", "M'/'d'/'yyyy h':'mm':'ss a"},
    {"en", "ddd, MMM d, yyyy", "ddd', 'MMM d', 'yyyy"},
    {"en", "dddd, MMMM dd, yyyy", "dddd', 'MMMM dd', 'yyyy"}, {"en", "Dddd Mmmm", "Dddd Mmmm"},
    {"en", "DDDD", "DDDD"}, {"en", "DDD", "DDD"}, {"en", "Ddd", "Ddd"}, {"en", "mmmm", "mmmm"},
    {"en", "mmm", "mmm"}, {"en", "Mmm", "Mmm"}, {"en", "MMM", "MMM"}, {"en", "HH'h'mm", "HH'h'mm"},
    {"en", "HH\\hmm", "HH'h'mm"}, {"en", "yyyy'年'", "yyyy'年'"},
    {"en", "hh:mm:ss A", "hh':'mm':'ss A"}, {"en", "kk:mm", "kk':'mm"},
    {"en", "K:mm a", "K':'mm a"}, {"en", "H:m:s", "H':'m':'s"}, {"en", "ss.SS", "ss'.'SS"},
    {"en", "s.S", "s'.'S"}, {"en", "mm:ss", "mm':'ss"}, {"en", "G yyyy", "G yyyy"},
    {"en", "F", "F"}, {"en", "eee", "eee"}, {"en", "e", "e"}, {"en", "'week 'w", "'week 'w"},
    {"en", "HH:mm z", "HH':'mm z"}, {"en", "gg rr", "gg rr"}, {"en", "g r", "g r"},
    {"en", "jy", "jy"}, {"en", "jyy", "jyy"}, {"en", "yyyyMMdd", "yyyyMMdd"},
    {"en", "yyyyMMddHHmmss", "yyyyMMddHHmmss"},
    {"en", "yyyy-MM-dd'T'HH:mm:ss", "yyyy'-'MM'-'dd'T'HH':'mm':'ss"},
    {"en", "MMMM yyyy", "MMMM yyyy"}, {"en", "MMM-yy", "MMM'-'yy"}, {"en", "d-MMM", "d'-'MMM"},
    {"en", "h 'o''clock'", "h' o''clock'"}, {"en", "[Red]dd/MM/yyyy", "[Red]dd'/'MM'/'yyyy"},
    {"en", "[h]:mm", "'['h']:'mm"}, {"en", "yy", "yy"}, {"en", "yyy", "yy'y'"},
    {"en", "dd MMM yyyy HH:mm:ss z", nullptr}, {"en", "EEEE, d 'de' MMMM", nullptr},
    {"fr", "[Rouge]yyyy", "[Rouge]yyyy"}, {"fr", "[Red]yyyy", "[Rouge]yyyy"},
    {"de", "dd.MM.yyyy;[Rot]Fehler", "dd'.'MM'.'yyyy;[Rot]Fehler"},
    {"ja", "yyyy!年MM!月dd!日", "yyyy'年'MM'月'dd'日'"}, {"ja", "yyyy年M月d日", "yyyy'年'M'月'd'日'"},
    {"ja", "yyyy!!", "yyyy!!"}, {"ja", "yyyy\\MM", "yyyy'\\'MM"}, {"ja", "HH!hmm", "HH'h'mm"},
    {"ja", "gg rr'年'", "gg rr'年'"}, {"ko", "yyyy!년 M!월 d!일", "yyyy'년 'M'월 'd'일'"},
};

// clang-format on

static_assert(sizeof(kNumbers) / sizeof(kNumbers[0]) + sizeof(kDates) / sizeof(kDates[0]) >= 200,
              "the corpus holds at least 200 formats");

bool HasError(const TokenList& list) {
    for (int id : list.ids)
        if (id == TokError) return true;
    return false;
}

// One string format per language and kind, made on first use.
class Formats {
  public:
    luStringFormat& Number(const std::string& lang) {
        auto& slot = m_numbers[lang];
        if (!slot) slot.reset(CreateStringFormatNumber(lang.c_str(), nullptr));
        return *slot;
    }
    luStringFormat& Date(const std::string& lang) {
        auto& slot = m_dates[lang];
        if (!slot) slot.reset(CreateStringFormatDate(lang.c_str(), nullptr));
        return *slot;
    }

  private:
    std::map<std::string, std::unique_ptr<luStringFormat>> m_numbers, m_dates;
};

// Reads, prints, and reads the printed text again: the same tokens, and the
// printed text prints as itself.
void CheckRoundTrip(luStringFormat& format, const Entry& entry) {
    SCOPED_TRACE(std::string(entry.lang) + " \"" + entry.text + "\"");
    auto first = Parse(format, entry.text);
    const TokenList tokens = Tokens(*first);
    EXPECT_FALSE(HasError(tokens)) << testing::PrintToString(tokens);
    const std::string printed = Print(format, *first);
    if (entry.printed != nullptr) {
        EXPECT_EQ(entry.printed, printed);
    }
    auto second = Parse(format, printed);
    EXPECT_EQ(tokens, Tokens(*second)) << printed;
    EXPECT_EQ(printed, Print(format, *second));
}

TEST(OmbrinCorpusTest, RoundTripsSpreadsheetNumberFormats) {
    Formats formats;
    for (const Entry& entry : kNumbers) CheckRoundTrip(formats.Number(entry.lang), entry);
}

TEST(OmbrinCorpusTest, RoundTripsSpreadsheetDateFormats) {
    Formats formats;
    for (const Entry& entry : kDates) CheckRoundTrip(formats.Date(entry.lang), entry);
}

TEST(OmbrinCorpusTest, ReadsHandWorkedTokenLists) {
    Formats formats;
    const struct {
        bool date;
        const char* lang;
        const char* text;
        TokenList tokens;
    } cases[] = {
        {false,
         "en",
         "#,##0_);[Red](#,##0)",
         {{101, 104, 101, 101, 102, 1, 106, 2, 402, 105, 101, 104, 101, 101, 102, 106}, {"_"}}},
        {false,
         "en",
         "_(* \"-\"_);_(@_)",
         {{1, 105, 1, 100, 1, 106, 2, 1, 105, 1, 106}, {"_", "* \"", "\"_", "_", "@_"}}},
        {false, "en", "0;0;0;a;b\\", {{102, 2, 102, 2, 102, 2, 1}, {"a;b\\"}}},
        {false, "en", "0;0;0;[Blue]'x'", {{102, 2, 102, 2, 102, 2, 404, 1}, {"'x'"}}},
        {false, "fr", "[Rouge]0.00", {{402, 102, 103, 102, 102}, {}}},
        {false, "en", "<Light Gray>0", {{414, 102}, {}}},
        {false, "en", "'it''s' 0", {{1, 102}, {"it's "}}},
        {false, "en", "0.00%\\ E+0", {{102, 103, 102, 102, 1, 107, 102}, {"% "}}},
        {false, "ja", "0\\!!", {{102, 1}, {"\\!"}}},
        {true, "en", "Week ww", {{63, 59, 27, 1, 61}, {" "}}},
        {true, "en", "'Week' ww", {{1, 61}, {"Week "}}},
        {true, "en", "yyyy;a;b", {{39, 2, 1}, {"a;b"}}},
        {true, "en", "dd/MM/yyyy;[Red]x", {{54, 1, 30, 1, 39, 2, 402, 1}, {"/", "/", "x"}}},
        {true, "ja", "yyyy!年MM", {{39, 1, 30}, {"年"}}},
        {true, "en", "MMMMM", {{15, 31}, {}}},
        {true, "en", "mmmmm", {{14, 33}, {}}},
        {true, "en", "Mmmmm", {{17, 33}, {}}},
        {true, "en", "dddddd", {{46, 54}, {}}},
        {true, "en", "SSSS HHH", {{36, 38, 1, 22, 23}, {" "}}},
        {true, "en", "FULL_DATE_TIMEx", {{308, 1}, {"x"}}},
        {true, "en", "FULL_DATx", {{57, 1, 11, 1}, {"ULL_D", "Tx"}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        luStringFormat& format = c.date ? formats.Date(c.lang) : formats.Number(c.lang);
        EXPECT_EQ(c.tokens, Tokens(*Parse(format, c.text)));
    }
}

TEST(OmbrinCorpusTest, TrailingEscapeOrOpenQuoteReadsAsError) {
    Formats formats;
    const struct {
        bool date;
        const char* lang;
        const char* text;
    } cases[] = {
        {false, "en", "0.00\\"}, {false, "en", "\\"},     {false, "en", "'abc"},
        {false, "en", "0 'USD"}, {false, "en", "0;0;'x"}, {false, "en", "'"},
        {false, "en", "'''"},    {false, "en", "'a''"},   {false, "ja", "#,##0!"},
        {false, "ko", "0!"},     {true, "en", "yyyy'"},   {true, "en", "dd/MM/yyyy\\"},
        {true, "en", "'Week"},   {true, "ja", "yyyy!"},   {true, "en", "HH:mm'h"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        luStringFormat& format = c.date ? formats.Date(c.lang) : formats.Number(c.lang);
        EXPECT_EQ((TokenList{{TokError}, {}}), Tokens(*Parse(format, c.text)));
    }
}

}  // namespace

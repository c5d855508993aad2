// The default format patterns, built in and from the locale data module: all
// are canonical notation that reads without error and prints back unchanged.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fmt_test_support.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_numpunct.h"
#include "module_records.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

std::string Text(const unsigned short* units) {
    return units == nullptr ? std::string() : Utf8(ucs2string(units));
}

bool HasError(const TokenList& list) {
    for (int id : list.ids)
        if (id == TokError) return true;
    return false;
}

// Empty when `text` reads without error as a pattern of the format's kind and
// prints back to itself; otherwise what went wrong.
std::string CheckCanonical(luStringFormat& format, const std::string& text, bool isDate) {
    auto pattern = Parse(format, text);
    if (pattern == nullptr) return "no pattern";
    if (pattern->IsDate() != isDate) return "wrong kind";
    if (pattern->size() == 0) return "no tokens";
    if (HasError(Tokens(*pattern))) return "reads as T[Err]";
    const std::string printed = Print(format, *pattern);
    if (printed != text) return "prints as " + printed;
    return std::string();
}

struct Formats {
    std::unique_ptr<luStringFormatNumber> number{CreateSerialStringFormatNumber()};
    std::unique_ptr<luStringFormatDate> date{CreateSerialStringFormatDate()};
};

TEST(DefaultPatternsTest, BuiltInNumberPatternsHaveTheirTokens) {
    Formats formats;
    const TokenList expected[lu_numeric_punctuation::kFormatCount] = {
        {{101, 104, 101, 101, 102, 103, 101, 101}, {}},
        {{101, 104, 101, 101, 102, 103, 102, 102, 1}, {" \u00A4"}},
        {{101, 104, 101, 101, 102, 1}, {"%"}},
        {{102, 103, 102, 101, 101, 101, 101, 101, 101, 101, 101, 101, 101, 101, 101, 101, 108, 102},
         {}},
    };
    for (unsigned int i = 0; i < lu_numeric_punctuation::kFormatCount; ++i) {
        const std::string text = Text(lu_numeric_punctuation::kDefaultFormats[i]);
        SCOPED_TRACE(text);
        EXPECT_EQ("", CheckCanonical(*formats.number, text, false));
        EXPECT_EQ(expected[i], Tokens(*Parse(*formats.number, text)));
    }
    EXPECT_EQ("T[#]T[gs]T[#]T[#]T[0]T[ds]T[#]T[#]",
              Text(lu_numeric_punctuation::kDefaultFormats[0]));
}

TEST(DefaultPatternsTest, BuiltInDatePatternsHaveTheirTokens) {
    Formats formats;
    const unsigned short* const* table = lu_ctime_impl::kDefaultCtimeStorage.fmtlib_formats;
    for (int i = 0; i < lu_ctime_impl::kFmtLibFormatCount; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ("", CheckCanonical(*formats.date, Text(table[i]), true)) << Text(table[i]);
    }
    // The full date, the full time, the short date and time, the input time
    // and the input date and time.
    const struct {
        int index;
        TokenList tokens;
    } cases[] = {
        {0, {{46, 1, 55, 1, 14, 1, 39}, {" ", " ", " "}}},
        {4, {{22, 1, 32, 1, 64}, {" h ", " "}}},
        {11, {{54, 1, 30, 1, 40, 1, 22, 1, 32}, {"/", "/", " ", ":"}}},
        {13, {{25, 1, 32, 1, 34, 1, 10}, {":", ":", " "}}},
        {14, {{31, 1, 55, 1, 39, 1, 25, 1, 32, 1, 34, 1, 10}, {"/", "/", " ", ":", ":", " "}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.index);
        EXPECT_EQ(c.tokens, Tokens(*Parse(*formats.date, Text(table[c.index]))));
    }
}

// A number pattern is not a date pattern: each kind's notation refuses the
// other kind's keys.
TEST(DefaultPatternsTest, EachKindRefusesTheOtherKindsPatterns) {
    Formats formats;
    const std::string number = Text(lu_numeric_punctuation::kDefaultFormats[0]);
    const std::string date = Text(lu_ctime_impl::kDefaultCtimeStorage.fmtlib_formats[0]);
    const TokenList error{{TokError}, {}};
    EXPECT_EQ(error, Tokens(*Parse(*formats.date, number)));
    EXPECT_EQ(error, Tokens(*Parse(*formats.number, date)));
}

TEST(DefaultPatternsTest, EveryLocaleRecordsPatternsReadAndPrintBack) {
    Formats formats;
    const std::vector<const lu_locale_storage*> records = kai18n_test::ModuleRecords();
    ASSERT_GT(records.size(), 600u);
    unsigned int checked = 0;
    for (const lu_locale_storage* record : records) {
        // A record without a part takes the built-in defaults for it.
        const unsigned short* const* numbers = record->numeric != nullptr
                                                   ? record->numeric->formats
                                                   : lu_numeric_punctuation::kDefaultFormats;
        const lu_ctime_impl::StaticStorage& time =
            record->time != nullptr ? *record->time : lu_ctime_impl::kDefaultCtimeStorage;
        ASSERT_NE(nullptr, numbers) << record->locale_id;
        ASSERT_NE(nullptr, time.fmtlib_formats) << record->locale_id;
        for (unsigned int i = 0; i < lu_numeric_punctuation::kFormatCount; ++i, ++checked) {
            const std::string text = Text(numbers[i]);
            const std::string why = CheckCanonical(*formats.number, text, false);
            EXPECT_EQ("", why) << "locale " << record->locale_id << ", number pattern " << i << ": "
                               << text;
        }
        for (int i = 0; i < lu_ctime_impl::kFmtLibFormatCount; ++i, ++checked) {
            const std::string text = Text(time.fmtlib_formats[i]);
            const std::string why = CheckCanonical(*formats.date, text, true);
            EXPECT_EQ("", why) << "locale " << record->locale_id << ", date pattern " << i << ": "
                               << text;
        }
    }
    EXPECT_EQ(records.size() * 19, checked);
}

// The notation itself, on texts worked out by hand: what reads, what prints,
// and what cannot stand.
TEST(DefaultPatternsTest, CanonicalNotationReadsItemsOnly) {
    Formats formats;
    const struct {
        const char* text;
        TokenList tokens;
        const char* printed;  // null: T[Err]
    } cases[] = {
        {"", {{}, {}}, ""},
        {"T[0]T[FS]T[-]T[0]", {{102, 2, 100, 102}, {}}, "T[0]T[FS]T[-]T[0]"},
        {"T[pcs]T[pc]T[+]T[b]T[Ap]", {{113, 112, 111, 114, 351}, {}}, "T[pcs]T[pc]T[+]T[b]T[Ap]"},
        {"T[Cr]T[0]T[Cgr]", {{402, 102, 415}, {}}, "T[Cr]T[0]T[Cgr]"},
        {"L[a\\]b]T[0]", {{1, 102}, {"a]b"}}, "L[a\\]b]T[0]"},
        {"L[\\\\]", {{1}, {"\\"}}, "L[\\\\]"},
        {"L[\\x[y]", {{1}, {"x[y"}}, "L[x[y]"},
        {"L[T[0]]", {}, nullptr},
        {"T[0] ", {{TokError}, {}}, nullptr},
        {"T[y4]", {{TokError}, {}}, nullptr},
        {"T[0", {{TokError}, {}}, nullptr},
        {"L[abc", {{TokError}, {}}, nullptr},
        {"Lx", {{TokError}, {}}, nullptr},
        {"t[0]", {{TokError}, {}}, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        auto pattern = Parse(*formats.number, c.text);
        if (c.printed == nullptr) {
            EXPECT_EQ((TokenList{{TokError}, {}}), Tokens(*pattern));
            continue;
        }
        EXPECT_EQ(c.tokens, Tokens(*pattern));
        EXPECT_EQ(c.printed, Print(*formats.number, *pattern));
    }
}

}  // namespace

// The default format patterns, built in and from the locale data module: all
// are canonical notation that reads without error and prints back unchanged,
// and each kind's notation refuses the other kind's.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fmt_test_support.h"
#include "kai18n/facets/lu_ctime.h"
#include "module_records.h"

using namespace FmtLib;
using namespace fmt_test;

namespace {

TEST(DefaultPatternsTest, EveryPatternReadsAndPrintsBack) {
    std::unique_ptr<luStringFormat> number(CreateSerialStringFormatNumber());
    std::unique_ptr<luStringFormat> date(CreateSerialStringFormatDate());
    // Empty when `text` reads without error as a pattern of the format's kind
    // and prints back to itself; otherwise what went wrong.
    auto check = [&](const unsigned short* units, bool isDate) -> std::string {
        const std::string text = units == nullptr ? std::string() : Utf8(units);
        luStringFormat& format = isDate ? *date : *number;
        auto pattern = Parse(format, text);
        if (pattern->IsDate() != isDate || pattern->size() == 0) return "no pattern: " + text;
        for (int id : Tokens(*pattern).ids)
            if (id == TokError) return "reads as T[Err]: " + text;
        const std::string printed = Print(format, *pattern);
        return printed == text ? std::string() : text + " prints as " + printed;
    };
    std::vector<const lu_locale_storage*> records = kai18n_test::ModuleRecords();
    ASSERT_GT(records.size(), 600u);
    records.push_back(nullptr);  // the built-in defaults
    for (const lu_locale_storage* record : records) {
        // A record without a part takes the built-in defaults for it.
        const unsigned short* const* numbers = record != nullptr && record->numeric != nullptr
                                                   ? record->numeric->formats
                                                   : lu_numeric_punctuation::kDefaultFormats;
        const lu_ctime_impl::StaticStorage& time = record != nullptr && record->time != nullptr
                                                       ? *record->time
                                                       : lu_ctime_impl::kDefaultCtimeStorage;
        const std::string name = record ? std::to_string(record->locale_id) : "built in";
        ASSERT_NE(nullptr, numbers) << name;
        ASSERT_NE(nullptr, time.fmtlib_formats) << name;
        for (unsigned int i = 0; i < lu_numeric_punctuation::kFormatCount; ++i)
            EXPECT_EQ("", check(numbers[i], false)) << name << ", number pattern " << i;
        for (int i = 0; i < lu_ctime_impl::kFmtLibFormatCount; ++i)
            EXPECT_EQ("", check(time.fmtlib_formats[i], true)) << name << ", date pattern " << i;
    }
    const std::string standard = Utf8(lu_numeric_punctuation::kDefaultFormats[0]);
    EXPECT_EQ((TokenList{{101, 104, 101, 101, 102, 103, 101, 101}, {}}),
              Tokens(*Parse(*number, standard)));
    EXPECT_EQ(kError, Tokens(*Parse(*date, standard)));
    EXPECT_EQ(kError,
              Tokens(*Parse(*number, Utf8(lu_ctime_impl::kDefaultCtimeStorage.fmtlib_formats[0]))));
}

}  // namespace

// Numeric punctuation, and the era search of the date-time names.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/frame/ilu_ptr.h"
#include "test_support.h"

namespace {

using test_support::Units;

std::u16string Text(const unsigned short* units) {
    std::u16string result;
    while (*units != 0) result.push_back(*units++);
    return result;
}

// The defaults come from no record or a null one; a record's block and grouping are copied, its
// patterns not, its zero separator stays; init and init_boolnames leave the mode.
TEST(NumpunctTest, DefaultsRecordsAndHandBuiltValues) {
    const ilu_ptr<lu_numpunct> plain(new lu_numpunct(0u)), null(new lu_numpunct(nullptr, 0));
    EXPECT_EQ(Units(null->GetDigits(false) - 2, null->GetDigits(false) + 34),
              test_support::UnitsOf(u"+-0123456789abcdef0123456789ABCDEFeE"));
    EXPECT_EQ(Text(null->grouping()) + Text(plain->truename()) + Text(null->falsename()) +
                  Text(null->GetFmtLibDefaultFormat(2)),
              u"truefalseT[#]T[gs]T[#]T[#]T[0]L[%]");
    Units block = test_support::UnitsOf(u"+\u2212\u0660\u066123456789abcdef0123456789ABCDEFxX");
    unsigned short grouping[] = {3, 2, 0};
    const unsigned short* const formats[4] = {grouping, grouping, grouping, grouping};
    const lu_numeric_punctuation::StaticStorage record = {4,        0x066B,    0,
                                                          grouping, &block[0], formats};
    const ilu_ptr<lu_numpunct> f(new lu_numpunct(&record, 0));
    block[1] = grouping[0] = 9;
    EXPECT_EQ((Units{f->GetDigits(false)[1], f->negative_sign(), f->exponent_sign(),
                     f->GetExponent(true), f->decimal_point(), f->thousands_sep()}),
              (Units{0x0661, 0x2212, 'x', 'X', 0x066B, 0}));
    EXPECT_EQ(Text(f->grouping()) + Text(f->truename()), u"\u0003\u0002true");
    EXPECT_EQ(f->GetFmtLibDefaultFormat(2), grouping);
    block[0] = u'#';
    f->init(u',', u'.', test_support::Str(u"\u0003"), &block[0]);
    f->init_boolnames(test_support::Str(u"wahr"), test_support::Str(u"falsch"));
    ucs2string grouped, name;
    f->grouping(grouped);
    f->falsename(name);
    EXPECT_EQ((Units{f->decimal_point(), f->thousands_sep(), f->positive_sign(),
                     static_cast<unsigned short>(f->mode())}),
              (Units{',', '.', '#', lu_numeric_punctuation::eBlankSignAfter}));
    EXPECT_EQ(test_support::U16(grouped) + Text(f->truename()) + test_support::U16(name) +
                  Text(f->true_string()) + Text(f->false_string()),
              u"\u0003wahrfalschtruefalse");
}

// Rows "year era era-year" ("-" for none): a year equal to an era's start falls to the era before;
// the backward era (B.C.) counts back from the start of the next; before the first era there is
// none.
TEST(CtimeTest, FindEra) {
    const unsigned short heisei[] = {u'H', 0}, showa[] = {u'S', 0}, taisho[] = {u'T', 0};
    const unsigned short* const names[] = {heisei, showa, taisho};
    const std::int32_t starts[] = {1989, 1926, 1912};
    lu_ctime_impl::StaticStorage record = lu_ctime_impl::kDefaultCtimeStorage;
    record.era_count = 3;
    record.eras = names;
    record.era_years = starts;
    const ilu_ptr<lu_ctime> western(new lu_ctime(nullptr, 0)), japanese(new lu_ctime(&record, 0));
    for (const char* row : {"2000 A.D. 2000", "2 A.D. 2", "1 B.C. 0", "0 B.C. 1", "-4712 B.C. 4713",
                            "2147483647 A.D. 2147483647", "J2019 H 31", "J1990 H 2", "J1989 S 64",
                            "J1927 S 2", "J1926 T 15", "J1913 T 2", "J1912 - 1912"}) {
        const lu_ctime& facet = *row == 'J' ? *japanese : *western;
        long year = 0, found = -99, eraYear = 0;
        std::string era;
        std::istringstream(row + (*row == 'J')) >> year >> era >> eraYear;
        const std::u16string name = Text(facet.FindEra(year, &found));
        EXPECT_EQ(std::string(name.begin(), name.end()), era == "-" ? "" : era) << row;
        EXPECT_EQ(found * 1000 + facet.FindEraYear(year), eraYear * 1001) << row;
        EXPECT_EQ(Text(facet.FindEra(year, nullptr)), name) << row;
    }
}

}  // namespace

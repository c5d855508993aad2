// Numeric punctuation and date-time names: defaults, records, hand-built
// facets, and the era search.
#include <gtest/gtest.h>

#include <string>

#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_numpunct.h"
#include "test_support.h"

namespace {

std::u16string Text(const unsigned short* units) {
    std::u16string result;
    while (*units != 0) result.push_back(*units++);
    return result;
}

// Facets have protected destructors and are released through their count.
template <class Facet>
struct Held {
    explicit Held(Facet* f) : facet(f) { facet->AddReference(); }
    ~Held() { facet->ReleaseReference(); }
    Facet* operator->() const { return facet; }
    Facet* facet;
};

// A derived facet whose virtual operations answer differently from its fields.
class CommaPunct : public lu_numpunct {
  public:
    CommaPunct() : lu_numpunct(0u) {}

  protected:
    unsigned short do_decimal_point() const override { return u','; }
    unsigned short do_negative_sign() const override { return 0x2212; }
};

}  // namespace

TEST(NumpunctTest, DefaultsAndANullRecordAgree) {
    Held<lu_numpunct> built(new lu_numpunct(0u));
    Held<lu_numpunct> fromNull(new lu_numpunct(nullptr, 0));
    for (const Held<lu_numpunct>* p : {&built, &fromNull}) {
        const lu_numpunct& f = *p->facet;
        EXPECT_EQ(u'.', f.decimal_point());
        EXPECT_EQ(0, f.thousands_sep());
        EXPECT_EQ(u"", Text(f.grouping()));
        EXPECT_EQ(lu_numeric_punctuation::eSignBefore, f.mode());
        EXPECT_EQ(u'-', f.negative_sign());
        EXPECT_EQ(u'+', f.positive_sign());
        EXPECT_EQ(u'e', f.exponent_sign());
        EXPECT_EQ(u'E', f.GetExponent(true));
        EXPECT_EQ(u"0123456789abcdef", std::u16string(f.GetDigits(false), f.GetDigits(false) + 16));
        EXPECT_EQ(u"0123456789ABCDEF", std::u16string(f.GetDigits(true), f.GetDigits(true) + 16));
        EXPECT_EQ(u"true", Text(f.truename()));
        EXPECT_EQ(u"false", Text(f.falsename()));
        EXPECT_EQ(u"T[#]T[gs]T[#]T[#]T[0]T[ds]T[#]T[#]", Text(f.GetFmtLibDefaultFormat(0)));
        EXPECT_EQ(u"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]L[ \u00A4]",
                  Text(f.GetFmtLibDefaultFormat(1)));
        EXPECT_EQ(u"T[#]T[gs]T[#]T[#]T[0]L[%]", Text(f.GetFmtLibDefaultFormat(2)));
        const std::u16string scientific = Text(f.GetFmtLibDefaultFormat(3));
        EXPECT_EQ(
            u"T[0]T[ds]T[0]" +
                [] {
                    std::u16string hashes;
                    for (int i = 0; i < 13; ++i) hashes += u"T[#]";
                    return hashes;
                }() +
                u"T[E-]T[0]",
            scientific);
    }
}

TEST(NumpunctTest, RecordIsCopiedButItsPatternTableIsShared) {
    unsigned short block[36];
    const std::u16string text =
        u"\u002B\u2212\u0660\u0661\u0662\u0663\u0664\u0665\u0666\u0667"
        u"\u0668\u0669abcdef\u0660\u0661\u0662\u0663\u0664\u0665\u0666"
        u"\u0667\u0668\u0669ABCDEFxX";
    ASSERT_EQ(36u, text.size());
    std::copy(text.begin(), text.end(), block);
    unsigned short grouping[] = {3, 2, 0};
    const unsigned short pattern[] = {u'T', u'[', u'0', u']', 0};
    const unsigned short* const formats[4] = {pattern, pattern, pattern, pattern};
    const lu_numeric_punctuation::StaticStorage record = {4, 0x066B, 0, grouping, block, formats};
    Held<lu_numpunct> f(new lu_numpunct(&record, 0));

    block[1] = u'?';  // the facet holds copies of the block and the grouping
    grouping[0] = 9;
    EXPECT_EQ(0x2212, f->negative_sign());
    EXPECT_EQ(u"\u0660\u0661", std::u16string(f->GetDigits(false), f->GetDigits(false) + 2));
    EXPECT_EQ(u'x', f->exponent_sign());
    EXPECT_EQ(u'X', f->GetExponent(true));
    const unsigned short expectedGrouping[] = {3, 2};
    EXPECT_EQ(std::u16string(expectedGrouping, expectedGrouping + 2), Text(f->grouping()));
    EXPECT_EQ(0, f->thousands_sep());  // a zero separator stays zero
    EXPECT_EQ(0x066B, f->decimal_point());
    EXPECT_EQ(lu_numeric_punctuation::eBlankSignAfter, f->mode());
    EXPECT_EQ(pattern, f->GetFmtLibDefaultFormat(2));
    EXPECT_EQ(u"true", Text(f->truename()));  // records carry no boolean names
}

TEST(NumpunctTest, HandBuiltValuesAndBooleanNames) {
    Held<lu_numpunct> f(new lu_numpunct(0u));
    unsigned short block[36];
    std::copy(lu_numeric_punctuation::kDefaultBlock, lu_numeric_punctuation::kDefaultBlock + 36,
              block);
    block[0] = u'#';
    f->init(u',', u'.', test_support::Str(u"\u0003"), block);
    f->init_boolnames(test_support::Str(u"wahr"), test_support::Str(u"falsch"));
    EXPECT_EQ(u',', f->decimal_point());
    EXPECT_EQ(u'.', f->thousands_sep());
    ucs2string grouping;
    f->grouping(grouping);
    EXPECT_EQ(u"\u0003", test_support::U16(grouping));
    EXPECT_EQ(u'#', f->positive_sign());
    EXPECT_EQ(lu_numeric_punctuation::eSignBefore, f->mode());  // init leaves the mode
    EXPECT_EQ(u"wahr", Text(f->truename()));
    ucs2string name;
    f->falsename(name);
    EXPECT_EQ(u"falsch", test_support::U16(name));
    EXPECT_EQ(u"true", Text(f->true_string()));  // constant, whatever the names
    EXPECT_EQ(u"false", Text(f->false_string()));
}

TEST(NumpunctTest, ForwardsGoThroughOverridesAndGettersDoNot) {
    Held<CommaPunct> f(new CommaPunct);
    EXPECT_EQ(u',', f->decimal_point());
    EXPECT_EQ(0x2212, f->negative_sign());
    EXPECT_EQ(u'-', f->GetNegativeSign());
    EXPECT_EQ(u'+', f->GetPositiveSign());
    EXPECT_EQ(lu_numeric_punctuation::eSignBefore, f->GetMode());
}

TEST(CtimeTest, DefaultNamesFormatsAndPatterns) {
    Held<lu_ctime> t(new lu_ctime(0u));
    EXPECT_EQ(u"Monday", Text(t->GetNameOfDay(0)));
    EXPECT_EQ(u"Sun", Text(t->GetShortNameOfDay(6)));
    EXPECT_EQ(u"January", Text(t->GetNameOfMonth(1)));
    EXPECT_EQ(u"Dec", Text(t->GetShortNameOfMonth(12)));
    EXPECT_EQ(u"", Text(t->GetNameOfMonth(13)));
    EXPECT_EQ(u"PM", Text(t->GetAmPm(1)));
    EXPECT_EQ(2u, t->GetNumberOfEra());
    EXPECT_EQ(u"A.D.", Text(t->GetEra(0)));   // latest era first ...
    EXPECT_EQ(u"B.C.", Text(t->GetAdBc(0)));  // ... but the earlier era word first
    EXPECT_EQ(-2147483648L, t->GetEraYear(1));
    EXPECT_EQ(u"%a %b %e %H:%M:%S %Y", Text(t->GetDefaultDateTimeFormat()));
    EXPECT_EQ(u"%m/%d/%y", Text(t->GetDefaultDateFormat()));
    EXPECT_EQ(u"%H:%M:%S", Text(t->GetDefaultTimeFormat()));
    EXPECT_EQ(u"%I:%M:%S %p", Text(t->GetDefaultAmPmTimeFormat()));
    EXPECT_EQ(u"/", Text(t->GetDateSeparator()));
    EXPECT_EQ(u":", Text(t->GetTimeSeparator()));
    EXPECT_EQ(u"T[dn]L[ ]T[d]L[ ]T[mt]L[ ]T[y4]", Text(t->GetFmtLibDefaultFormat(0)));
    EXPECT_EQ(u"T[023]L[ h ]T[0m]L[ ]T[tz]", Text(t->GetFmtLibDefaultFormat(4)));
    EXPECT_EQ(u"T[M]L[/]T[d]L[/]T[y4]L[ ]T[12]L[:]T[0m]L[:]T[0s]L[ ]T[am]",
              Text(t->GetFmtLibDefaultFormat(14)));
    EXPECT_EQ(lu_ctime_enums::gregorian_calendar, t->GetCalendar());
    // The combined patterns are a date pattern, a blank and a time pattern.
    const struct {
        int combined, date, time;
    } joins[] = {{8, 0, 4}, {9, 1, 5}, {10, 2, 6}, {11, 3, 7}, {14, 12, 13}};
    for (const auto& j : joins) {
        EXPECT_EQ(Text(t->GetFmtLibDefaultFormat(j.date)) + u"L[ ]" +
                      Text(t->GetFmtLibDefaultFormat(j.time)),
                  Text(t->GetFmtLibDefaultFormat(j.combined)))
            << j.combined;
    }
    const lu_ctime_impl::StaticStorage& r = lu_ctime_impl::kDefaultCtimeStorage;
    EXPECT_EQ(0, r.reserved0);
    EXPECT_EQ(1, r.reserved1);
    EXPECT_EQ(1, r.reserved14);
}

TEST(CtimeTest, NullRecordGivesTheDefaultsAndARecordIsNotCopied) {
    Held<lu_ctime> built(new lu_ctime(0u));
    Held<lu_ctime> fromNull(new lu_ctime(nullptr, 0));
    for (int i = 0; i < 15; ++i) {
        EXPECT_EQ(built->GetFmtLibDefaultFormat(i), fromNull->GetFmtLibDefaultFormat(i));
    }
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(built->GetNameOfDay(day), fromNull->GetNameOfDay(day));
    for (int month = 1; month <= 13; ++month) {
        EXPECT_EQ(built->GetShortNameOfMonth(month), fromNull->GetShortNameOfMonth(month));
    }
    lu_ctime_impl::StaticStorage record = lu_ctime_impl::kDefaultCtimeStorage;
    const unsigned short slash[] = {u'.', 0};
    record.date_separator = slash;
    Held<lu_ctime> own(new lu_ctime(&record, 0));
    EXPECT_EQ(slash, own->GetDateSeparator());
}

TEST(CtimeTest, FindEraOnTheDefaultEras) {
    Held<lu_ctime> t(new lu_ctime(0u));
    const struct {
        long year;
        const char16_t* era;
        long eraYear;
    } rows[] = {{2000, u"A.D.", 2000},
                {2, u"A.D.", 2},
                {1, u"B.C.", 0},
                {0, u"B.C.", 1},
                {-1, u"B.C.", 2},
                {-4712, u"B.C.", 4713},
                {2147483647L, u"A.D.", 2147483647L}};
    for (const auto& row : rows) {
        long eraYear = -99;
        EXPECT_EQ(row.era, Text(t->FindEra(row.year, &eraYear))) << row.year;
        EXPECT_EQ(row.eraYear, eraYear) << row.year;
        EXPECT_EQ(row.eraYear, t->FindEraYear(row.year)) << row.year;
        EXPECT_EQ(row.era, Text(t->FindEra(row.year, nullptr)));
    }
}

TEST(CtimeTest, FindEraOnErasWithoutABackwardEra) {
    const unsigned short heisei[] = {u'H', 0}, showa[] = {u'S', 0}, taisho[] = {u'T', 0};
    const unsigned short* const names[] = {heisei, showa, taisho};
    const std::int32_t starts[] = {1989, 1926, 1912};
    lu_ctime_impl::StaticStorage record = lu_ctime_impl::kDefaultCtimeStorage;
    record.era_count = 3;
    record.eras = names;
    record.era_years = starts;
    Held<lu_ctime> t(new lu_ctime(&record, 0));
    const struct {
        long year;
        const char16_t* era;
        long eraYear;
    } rows[] = {{2019, u"H", 31}, {1990, u"H", 2}, {1989, u"S", 64},  {1927, u"S", 2},
                {1926, u"T", 15}, {1913, u"T", 2}, {1912, u"", 1912}, {1800, u"", 1800}};
    for (const auto& row : rows) {
        long eraYear = 0;
        EXPECT_EQ(row.era, Text(t->FindEra(row.year, &eraYear))) << row.year;
        EXPECT_EQ(row.eraYear, eraYear) << row.year;
    }
}

// The locale data module: every record it registers, walked through its one
// entry point and through the catalog, and spot checks of CLDR data in
// locales built by name.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/locale/lu_countries.h"
#include "kai18n/locale/lu_languages.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "module_records.h"

namespace {

using kai18n_test::ModuleRecords;

std::u16string Text(const unsigned short* units) {
    std::u16string text;
    if (units != nullptr)
        for (; *units != 0; ++units) text += static_cast<char16_t>(*units);
    return text;
}

// A text in the canonical notation: tokens T[key] with keys from `keys`, and
// literals L[...] in which a backslash escapes the next character.
bool IsCanonical(const std::u16string& text, const std::set<std::string>& keys, std::string* why) {
    std::size_t i = 0;
    while (i < text.size()) {
        if (i + 1 >= text.size() || text[i + 1] != u'[' || (text[i] != u'T' && text[i] != u'L')) {
            *why = "no item at " + std::to_string(i);
            return false;
        }
        const bool literal = text[i] == u'L';
        i += 2;
        std::string key;
        bool closed = false;
        for (; i < text.size(); ++i) {
            if (literal && text[i] == u'\\') {
                ++i;
                continue;
            }
            if (text[i] == u']') {
                closed = true;
                ++i;
                break;
            }
            if (!literal) key += static_cast<char>(text[i]);
        }
        if (!closed) {
            *why = "unclosed item";
            return false;
        }
        if (!literal && keys.count(key) == 0) {
            *why = "unknown token T[" + key + "]";
            return false;
        }
    }
    return true;
}

const std::set<std::string> kDateKeys = {
    "FS",   "Err",  "am",    "amu",   "aml",  "amc", "mt",  "mtu", "mtl",  "mtc",  "amt",
    "amtu", "amtl", "amtc",  "023",   "23",   "012", "12",  "024", "24",   "011",  "11",
    "0M",   "M",    "0m",    "m",     "0s",   "s",   "0ms", "0cs", "tens", "y4",   "y2",
    "iy2",  "iy1",  "iyg",   "dn",    "dnu",  "dnl", "dnc", "adn", "adnu", "adnl", "adnc",
    "0d",   "d",    "era",   "dowim", "00yd", "0yd", "yd",  "0wy", "wy",   "wm",   "tz",
    "da",   "ts",   "ywoy4", "ywoy2", "ip",   "jy",  "jy2"};
// The tokens that date input reads: the input patterns hold no others.
const std::set<std::string> kInputKeys = {
    "am",   "amu", "aml", "amc",  "mt",   "mtu",  "mtl", "mtc", "amt", "amtu", "amtl",
    "amtc", "023", "23",  "024",  "24",   "012",  "12",  "011", "11",  "0M",   "M",
    "0m",   "m",   "0s",  "s",    "y4",   "y2",   "iy2", "iy1", "iyg", "dn",   "dnu",
    "dnl",  "dnc", "adn", "adnu", "adnl", "adnc", "0d",  "d",   "da",  "ts"};
const std::set<std::string> kNumberKeys = {"FS", "Err", "-",  "#",  "0",  "ds", "gs",
                                           "ns", "ne",  "E+", "E-", "e+", "e-", "+",
                                           "pc", "pcs", "b",  "bt", "bf"};

const lu_locale_storage* FirstMatch(const char* name) {
    std::vector<unsigned int> ids;
    lu_locale_catalog* catalog = lu_locale_catalog::GetInstance();
    if (catalog->QueryMatchingLocales(name, ids, false) < 0 || ids.empty()) return nullptr;
    return catalog->GetStorage(ids.front());
}

}  // namespace

TEST(LocaleDataTest, TheNeutralRecordHoldsTheLibraryDefaults) {
    const lu_locale_storage* neutral = lu_locale_catalog::GetInstance()->GetStorage(31000);
    ASSERT_NE(nullptr, neutral);
    EXPECT_EQ(31000u, neutral->locale_id);
    EXPECT_EQ(nullptr, neutral->character_tables);
    EXPECT_EQ(&lu_ctime_impl::kDefaultCtimeStorage, neutral->time);

    const lu_locale_ident_impl::StaticStorage& id = *neutral->identity;
    const lu_locale_ident_impl::StaticStorage& def = *lu_locale_ident_impl::GetDefaultIdent();
    EXPECT_STREQ(def.country, id.country);
    EXPECT_EQ(nullptr, id.language);
    EXPECT_STREQ(reinterpret_cast<const char*>(def.sort_order_display_name),
                 reinterpret_cast<const char*>(id.sort_order_display_name));
    EXPECT_STREQ(def.sort_order_technical_name, id.sort_order_technical_name);
    EXPECT_STREQ(reinterpret_cast<const char*>(def.encoding_display_name),
                 reinterpret_cast<const char*>(id.encoding_display_name));
    EXPECT_STREQ(def.encoding_technical_name, id.encoding_technical_name);
    EXPECT_EQ(Text(def.display_name), Text(id.display_name));

    const lu_numeric_punctuation::StaticStorage& n = *neutral->numeric;
    EXPECT_EQ(lu_numeric_punctuation::eSignBefore, n.mode);
    EXPECT_EQ(u'.', n.decimal_point);
    EXPECT_EQ(0, n.thousands_sep);
    EXPECT_EQ(0, n.grouping[0]);
    EXPECT_EQ(0, std::memcmp(lu_numeric_punctuation::kDefaultBlock, n.block,
                             lu_numeric_punctuation::kBlockSize * sizeof(unsigned short)));
    EXPECT_EQ(lu_numeric_punctuation::kDefaultFormats, n.formats);
}

TEST(LocaleDataTest, EveryRecordIsRegisteredAndWellFormed) {
    const std::vector<const lu_locale_storage*> records = ModuleRecords();
    ASSERT_GT(records.size(), 600u);
    EXPECT_EQ(31000u, records.back()->locale_id);
    lu_locale_catalog* catalog = lu_locale_catalog::GetInstance();

    unsigned int previous = 0;
    unsigned int utf8Records = 0;
    std::map<std::pair<const void*, const void*>, std::set<std::string>> encodingsOfData;
    for (const lu_locale_storage* record : records) {
        SCOPED_TRACE(record->locale_id);
        EXPECT_GT(record->locale_id, previous);  // ascending, so unique
        previous = record->locale_id;
        EXPECT_EQ(record, catalog->GetStorage(record->locale_id));
        if (record->locale_id == 31000) continue;

        // Identity.
        const lu_locale_ident_impl::StaticStorage& id = *record->identity;
        ASSERT_NE(nullptr, id.language);
        ASSERT_NE(nullptr, id.country);
        EXPECT_NE(lu_languages::end(), lu_languages::LookUpByTwoLetters(id.language));
        EXPECT_NE(lu_countries::end(), lu_countries::LookUpByTwoLetters(id.country));
        EXPECT_EQ(2u, std::strlen(id.language));
        EXPECT_EQ(2u, std::strlen(id.country));
        EXPECT_STREQ("i18n", id.sort_order_technical_name);
        EXPECT_STREQ("Unicode collation",
                     reinterpret_cast<const char*>(id.sort_order_display_name));
        EXPECT_EQ(nullptr, id.display_name);
        EXPECT_EQ(nullptr, record->character_tables);
        const std::string encoding = id.encoding_technical_name;
        if (encoding == "UTF-8") {
            ++utf8Records;
            EXPECT_GE(record->locale_id, 26000u);
            EXPECT_STREQ("Unicode (UTF-8)",
                         reinterpret_cast<const char*>(id.encoding_display_name));
        } else {
            EXPECT_LT(record->locale_id, 26000u);
            const char* name = id.encoding_technical_name;
            const unsigned char* display = lu_codecvt::GetEncodingDisplayName(name);
            ASSERT_NE(nullptr, display) << encoding;
            EXPECT_STREQ(reinterpret_cast<const char*>(display),
                         reinterpret_cast<const char*>(id.encoding_display_name));
        }
        encodingsOfData[{record->numeric, record->time}].insert(encoding);

        // Numeric punctuation.
        const lu_numeric_punctuation::StaticStorage& n = *record->numeric;
        EXPECT_GE(n.mode, 0);
        EXPECT_LE(n.mode, 4);
        EXPECT_NE(0, n.decimal_point);
        EXPECT_NE(n.decimal_point, n.thousands_sep);
        EXPECT_EQ(n.thousands_sep == 0, n.grouping[0] == 0);
        for (const unsigned short* g = n.grouping; *g != 0; ++g) EXPECT_LE(*g, 9);
        const unsigned short* block = n.block;
        for (int i = 0; i < 10; ++i) {
            EXPECT_EQ(block[2] + i, block[2 + i]);
            EXPECT_EQ(block[2 + i], block[18 + i]);
        }
        EXPECT_EQ(std::u16string(u"abcdef"), std::u16string(block + 12, block + 18));
        EXPECT_EQ(std::u16string(u"ABCDEF"), std::u16string(block + 28, block + 34));
        EXPECT_NE(0, block[34]);  // 'e' and 'E' but where CLDR has another letter,
        EXPECT_NE(0, block[35]);  // such as Ukrainian 'е' and 'Е'
        for (unsigned int i = 0; i < lu_numeric_punctuation::kFormatCount; ++i) {
            std::string why;
            EXPECT_TRUE(IsCanonical(Text(n.formats[i]), kNumberKeys, &why)) << i << ": " << why;
        }

        // Date and time names.
        const lu_ctime_impl::StaticStorage& t = *record->time;
        for (int i = 0; i < 7; ++i) {
            EXPECT_FALSE(Text(t.days[i]).empty());
            EXPECT_FALSE(Text(t.short_days[i]).empty());
        }
        for (int i = 0; i < 12; ++i) {
            EXPECT_FALSE(Text(t.months[i]).empty());
            EXPECT_FALSE(Text(t.short_months[i]).empty());
        }
        EXPECT_TRUE(Text(t.months[12]).empty());
        EXPECT_TRUE(Text(t.short_months[12]).empty());
        EXPECT_FALSE(Text(t.am_pm[0]).empty());
        EXPECT_FALSE(Text(t.am_pm[1]).empty());
        ASSERT_EQ(2u, t.era_count);
        EXPECT_EQ(1, t.era_years[0]);
        EXPECT_EQ(INT32_MIN, t.era_years[1]);  // an era counting backwards
        EXPECT_EQ(Text(t.eras[0]), Text(t.ad_bc[1]));
        EXPECT_EQ(Text(t.eras[1]), Text(t.ad_bc[0]));
        EXPECT_FALSE(Text(t.date_separator).empty());
        EXPECT_FALSE(Text(t.time_separator).empty());
        EXPECT_FALSE(Text(t.date_time_format).empty());
        EXPECT_FALSE(Text(t.date_format).empty());
        EXPECT_FALSE(Text(t.time_format).empty());
        EXPECT_NE(std::u16string::npos, Text(t.am_pm_time_format).find(u"%p"));
        for (int i = 0; i < lu_ctime_impl::kFmtLibFormatCount; ++i) {
            std::string why;
            const std::u16string pattern = Text(t.fmtlib_formats[i]);
            EXPECT_FALSE(pattern.empty()) << i;
            EXPECT_TRUE(IsCanonical(pattern, i >= 12 ? kInputKeys : kDateKeys, &why))
                << i << ": " << why;
        }
        EXPECT_NE(std::u16string::npos, Text(t.fmtlib_formats[13]).find(u"T[am]"));
    }
    EXPECT_GT(utf8Records, 300u);
    // Each locale's data serves one UTF-8 record and at most one ANSI record.
    for (const auto& data : encodingsOfData) {
        EXPECT_EQ(1u, data.second.count("UTF-8"));
        EXPECT_LE(data.second.size(), 2u);
    }
}

TEST(LocaleDataTest, GermanHasItsPunctuationAndNames) {
    const lu_locale_storage* record = FirstMatch("de_DE");
    ASSERT_NE(nullptr, record);
    EXPECT_EQ(1031u, record->locale_id);  // the Windows LCID of de-DE, in CP1252
    EXPECT_STREQ("CP1252", record->identity->encoding_technical_name);

    lu_locale locale("de_DE.UTF-8");
    const lu_numpunct& numpunct = lu_use_facet<lu_numpunct>(locale);
    EXPECT_EQ(u',', numpunct.decimal_point());
    EXPECT_EQ(u'.', numpunct.thousands_sep());
    const lu_ctime& ctime = lu_use_facet<lu_ctime>(locale);
    EXPECT_EQ(u"März", Text(ctime.GetNameOfMonth(3)));
    EXPECT_EQ(u"Montag", Text(ctime.GetNameOfDay(0)));
    EXPECT_EQ(u"Sonntag", Text(ctime.GetNameOfDay(6)));
    EXPECT_EQ(u".", Text(ctime.GetDateSeparator()));
    EXPECT_EQ(u"T[0d]L[.]T[0M]L[.]T[y2]", Text(ctime.GetFmtLibDefaultFormat(3)));
}

TEST(LocaleDataTest, FrenchGroupsWithANarrowOrPlainNoBreakSpace) {
    lu_locale locale("fr_FR");
    const lu_numpunct& numpunct = lu_use_facet<lu_numpunct>(locale);
    EXPECT_TRUE(numpunct.thousands_sep() == 0x202F || numpunct.thousands_sep() == 0x00A0);
    EXPECT_EQ(u',', numpunct.decimal_point());
}

TEST(LocaleDataTest, HindiGroupsByThreeThenTwo) {
    // Hindi has no ANSI code page: its one record is in UTF-8.
    const lu_locale_storage* record = FirstMatch("hi_IN");
    ASSERT_NE(nullptr, record);
    EXPECT_STREQ("UTF-8", record->identity->encoding_technical_name);
    lu_locale locale("hi_IN");
    ucs2string grouping;
    lu_use_facet<lu_numpunct>(locale).grouping(grouping);
    ASSERT_EQ(2u, grouping.length());
    EXPECT_EQ(3, grouping[0]);
    EXPECT_EQ(2, grouping[1]);
}

TEST(LocaleDataTest, EgyptianArabicWritesArabicIndicDigits) {
    lu_locale locale("ar_EG");
    const lu_numpunct& numpunct = lu_use_facet<lu_numpunct>(locale);
    const unsigned short* digits = numpunct.GetDigits(false);
    for (int i = 0; i < 10; ++i) EXPECT_EQ(0x0660 + i, digits[i]);
    EXPECT_EQ(0x066B, numpunct.decimal_point());
    EXPECT_EQ(0x066C, numpunct.thousands_sep());
}

TEST(LocaleDataTest, JapaneseHasItsEraAndMonthNames) {
    lu_locale locale("ja_JP");
    EXPECT_STREQ("CP932", lu_use_facet<lu_locale_ident>(locale).encoding_technical_name());
    const lu_ctime& ctime = lu_use_facet<lu_ctime>(locale);
    EXPECT_EQ(u"1月", Text(ctime.GetNameOfMonth(1)));
    EXPECT_EQ(u"12月", Text(ctime.GetNameOfMonth(12)));
    EXPECT_EQ(u"月曜日", Text(ctime.GetNameOfDay(0)));
    EXPECT_EQ(u"午前", Text(ctime.GetAmPm(0)));
    EXPECT_EQ(u"西暦", Text(ctime.GetEra(0)));
    EXPECT_EQ(u"紀元前", Text(ctime.GetAdBc(0)));
    long eraYear = 0;
    EXPECT_EQ(u"西暦", Text(ctime.FindEra(2024, &eraYear)));
    EXPECT_EQ(2024, eraYear);
    EXPECT_EQ(u"紀元前", Text(ctime.FindEra(0, &eraYear)));
    EXPECT_EQ(1, eraYear);
}

TEST(LocaleDataTest, LikelyScriptComesFirstAmongUtf8Records) {
    // Serbian in Bosnia is written in Cyrillic first, by CLDR's likely script.
    const lu_locale_storage* record = FirstMatch("sr_BA.UTF-8");
    ASSERT_NE(nullptr, record);
    const std::u16string monday = Text(record->time->days[0]);
    ASSERT_FALSE(monday.empty());
    EXPECT_TRUE(monday[0] >= 0x0400 && monday[0] <= 0x04FF);
    // The ANSI records keep their LCIDs, one for each script.
    EXPECT_STREQ("CP1251", FirstMatch("sr_BA.CP1251")->identity->encoding_technical_name);
    EXPECT_STREQ("CP1250", FirstMatch("sr_BA.CP1250")->identity->encoding_technical_name);
}

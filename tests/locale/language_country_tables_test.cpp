// The language and country tables: their rows, their order, the rows that
// tell one edition of the ISO lists from another, and the two searches.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "kai18n/locale/lu_countries.h"
#include "kai18n/locale/lu_languages.h"

namespace {

std::u16string Text(const unsigned short* units) {
    if (units == nullptr) return u"<null>";
    std::u16string result;
    while (*units != 0) result.push_back(*units++);
    return result;
}

// FNV-1a over every field of every row, so that a changed letter anywhere shows.
class Fingerprint {
  public:
    void Add(std::uint32_t value) { m_hash = (m_hash ^ value) * 0x100000001B3ull; }
    void Add(const char* text) {
        while (*text != 0) Add(static_cast<unsigned char>(*text++));
        Add(0u);
    }
    void Add(const unsigned short* units) {
        if (units == nullptr) return Add(0xFFFFu);
        while (*units != 0) Add(*units++);
        Add(0u);
    }
    std::uint64_t value() const { return m_hash; }

  private:
    std::uint64_t m_hash = 0xCBF29CE484222325ull;
};

// Orders two codes by their first two characters as signed bytes.
bool Before(const char* a, const char* b) {
    const auto a0 = static_cast<signed char>(a[0]), b0 = static_cast<signed char>(b[0]);
    return a0 < b0 || (a0 == b0 && static_cast<signed char>(a[1]) < static_cast<signed char>(b[1]));
}

// A hand-made table for the search templates.
struct Row {
    const char* code2;
    const char* code3;
    const char* GetIsoCode2() const { return code2; }
    const char* GetIsoCode3() const { return code3; }
};

}  // namespace

TEST(LanguageTableTest, Has139RowsSortedByTwoLetterCode) {
    ASSERT_EQ(139, lu_languages::end() - lu_languages::begin());
    for (const lu_languages::language* row = lu_languages::begin(); row != lu_languages::end();
         ++row) {
        SCOPED_TRACE(row->GetIsoCode2());
        EXPECT_EQ(2u, std::strlen(row->GetIsoCode2()));
        EXPECT_EQ(3u, std::strlen(row->GetIsoCode3()));
        EXPECT_NE(nullptr, row->GetEnglishName());
        if (row != lu_languages::begin()) {
            EXPECT_TRUE(Before((row - 1)->GetIsoCode2(), row->GetIsoCode2()));
        }
    }
    EXPECT_STREQ("aa", lu_languages::begin()->GetIsoCode2());
    EXPECT_STREQ("zu", (lu_languages::end() - 1)->GetIsoCode2());
}

TEST(LanguageTableTest, EveryFieldOfEveryRowIsAsPublished) {
    Fingerprint print;
    for (const lu_languages::language* row = lu_languages::begin(); row != lu_languages::end();
         ++row) {
        print.Add(row->GetIsoCode2());
        print.Add(row->GetIsoCode3());
        print.Add(row->GetEnglishName());
        print.Add(row->GetDisplayName());
    }
    // The rows as released; a deliberate change of any row changes this value too.
    EXPECT_EQ(0x91121D5553F8AAF0ull, print.value());
}

TEST(LanguageTableTest, TellingRowsKeepOldCodesAndSpellings) {
    struct Case {
        const char* code2;
        const char* code3;
        const char16_t* english;
    };
    const Case cases[] = {
        {"aa", "aar", u"Afar"},         {"in", "ind", u"Indonesian"},
        {"id", "ind", u"Indonesian"},   {"iw", "heb", u"Hebrew"},
        {"he", "heb", u"Hebrew"},       {"ji", "yid", u"Yiddish"},
        {"yi", "yid", u"Yiddish"},      {"jw", "jaw", u"Javanese"},
        {"ga", "gai", u"Irish"},        {"gd", "gdh", u"Gaelic"},
        {"kw", "cor", u"Cornish"},      {"se", "smi", u"Sami"},
        {"ts", "tsn", u"Tswana"},       {"tk", "tuk", u"Türkmen"},
        {"tr", "tur", u"Türkish"},      {"lb", "ltz", u"Latzeburgesch"},
        {"be", "bel", u"Byelorussian"}, {"rm", "roh", u"Rhaeto-Romance"},
        {"zu", "zul", u"Zulu"},
    };
    for (const Case& c : cases) {
        const lu_languages::language* row = lu_languages::LookUpByTwoLetters(c.code2);
        ASSERT_NE(lu_languages::end(), row) << c.code2;
        EXPECT_STREQ(c.code3, row->GetIsoCode3());
        EXPECT_EQ(c.english, Text(row->GetEnglishName())) << c.code2;
    }
}

TEST(LanguageTableTest, ExactlyThe37ListedRowsHaveADisplayName) {
    const std::pair<const char*, const char16_t*> listed[] = {
        {"ar", u"العربية"},  {"be", u"беларускі"},  {"bg", u"български"},   {"ca", u"català"},
        {"cs", u"čeština"},  {"da", u"dansk"},      {"de", u"Deutsch"},     {"el", u"ελληνικά"},
        {"en", u"English"},  {"es", u"español"},    {"et", u"Eesti"},       {"fi", u"suomi"},
        {"fr", u"français"}, {"he", u"עברית"},      {"hr", u"hrvatski"},    {"is", u"íslenska"},
        {"it", u"italiano"}, {"iw", u"עברית"},      {"ja", u"日本語"},      {"ko", u"한국어"},
        {"lt", u"Lietuviř"}, {"lv", u"Latviešu"},   {"mk", u"македонски"},  {"nl", u"Nederlands"},
        {"no", u"norsk"},    {"pl", u"polski"},     {"pt", u"português"},   {"ro", u"română"},
        {"ru", u"русский"},  {"sk", u"Slovenčina"}, {"sl", u"Slovenščina"}, {"sr", u"српски"},
        {"sv", u"svenska"},  {"th", u"ไทย"},        {"tr", u"Türkçe"},      {"uk", u"українська"},
        {"zh", u"中文"},
    };
    static_assert(sizeof(listed) / sizeof(listed[0]) == 37, "37 listed rows");
    std::u16string expected, actual;
    for (const auto& entry : listed) {
        expected += std::u16string(entry.first, entry.first + 2) + u"=" + entry.second + u";";
    }
    for (const lu_languages::language* row = lu_languages::begin(); row != lu_languages::end();
         ++row) {
        if (row->GetDisplayName() == nullptr) continue;
        actual += std::u16string(row->GetIsoCode2(), row->GetIsoCode2() + 2) + u"=" +
                  Text(row->GetDisplayName()) + u";";
    }
    EXPECT_EQ(expected, actual);
}

TEST(LanguageLookUpTest, TwoLettersReadsTwoCharactersAndCaseCounts) {
    EXPECT_STREQ("en", lu_languages::LookUpByTwoLetters("en_US")->GetIsoCode2());
    EXPECT_STREQ("eng", lu_languages::LookUpByTwoLetters("en")->GetIsoCode3());
    EXPECT_STREQ("aa", lu_languages::LookUpByTwoLetters("aa")->GetIsoCode2());
    EXPECT_STREQ("zu", lu_languages::LookUpByTwoLetters("zu")->GetIsoCode2());
    for (const char* missing : {"zz", "d", "", "EN", "En", "a", "{a", "\xE9n", "qq"}) {
        EXPECT_EQ(lu_languages::end(), lu_languages::LookUpByTwoLetters(missing)) << missing;
    }
    EXPECT_EQ(lu_languages::end(), lu_languages::LookUpByTwoLetters(nullptr));
    for (const lu_languages::language* row = lu_languages::begin(); row != lu_languages::end();
         ++row) {
        EXPECT_EQ(row, lu_languages::LookUpByTwoLetters(row->GetIsoCode2()));
    }
}

TEST(LanguageLookUpTest, ThreeLettersFindsTheFirstRowWithTheCode) {
    EXPECT_STREQ("id", lu_languages::LookUpByThreeLetters("ind")->GetIsoCode2());
    EXPECT_STREQ("he", lu_languages::LookUpByThreeLetters("heb")->GetIsoCode2());
    EXPECT_STREQ("ji", lu_languages::LookUpByThreeLetters("yid")->GetIsoCode2());
    EXPECT_STREQ("jw", lu_languages::LookUpByThreeLetters("jaw")->GetIsoCode2());
    EXPECT_STREQ("de", lu_languages::LookUpByThreeLetters("deutsch")->GetIsoCode2());
    for (const char* missing : {"ger", "DEU", "de", "", "zzz"}) {
        EXPECT_EQ(lu_languages::end(), lu_languages::LookUpByThreeLetters(missing)) << missing;
    }
    EXPECT_EQ(lu_languages::end(), lu_languages::LookUpByThreeLetters(nullptr));
}

TEST(CodeSearchTest, TwoLetterOrderIsBySignedBytes) {
    // Sorted as signed bytes: 0xE9 is negative and stands first.
    const Row rows[] = {{"\xE9x", "e1"}, {"ab", "a1"}, {"ax", "a2"}, {"b\xE9", "b1"}, {"ba", "b2"}};
    const Row* end = rows + 5;
    EXPECT_EQ(&rows[0], lu_lookup_two_letters(rows, end, "\xE9x"));
    EXPECT_EQ(&rows[3], lu_lookup_two_letters(rows, end, "b\xE9"));
    EXPECT_EQ(&rows[4], lu_lookup_two_letters(rows, end, "ba"));
    EXPECT_EQ(&rows[1], lu_lookup_two_letters(rows, end, "abc"));
    EXPECT_EQ(end, lu_lookup_two_letters(rows, end, "aa"));
    EXPECT_EQ(rows, lu_lookup_two_letters(rows, rows, "ab"));
}

TEST(CountryTableTest, Has240RowsSortedWithDistinctCodes) {
    ASSERT_EQ(240, lu_countries::end() - lu_countries::begin());
    unsigned int withoutNumber = 0;
    for (const lu_countries::country* row = lu_countries::begin(); row != lu_countries::end();
         ++row) {
        SCOPED_TRACE(row->GetIsoCode2());
        EXPECT_EQ(2u, std::strlen(row->GetIsoCode2()));
        EXPECT_EQ(3u, std::strlen(row->GetIsoCode3()));
        EXPECT_NE(nullptr, row->GetName());
        if (row->GetNumericCode() == lu_countries::kNoNumericCode) {
            ++withoutNumber;
        } else {
            EXPECT_GT(1000u, row->GetNumericCode());
        }
        if (row == lu_countries::begin()) continue;
        EXPECT_TRUE(Before((row - 1)->GetIsoCode2(), row->GetIsoCode2()));
        // Every three-letter code and every numeric code stands once.
        EXPECT_EQ(row, lu_countries::LookUpByThreeLetters(row->GetIsoCode3()));
        for (const lu_countries::country* other = lu_countries::begin(); other != row; ++other) {
            EXPECT_NE(other->GetNumericCode(), row->GetNumericCode()) << other->GetIsoCode2();
        }
    }
    EXPECT_EQ(1u, withoutNumber);
}

TEST(CountryTableTest, EveryFieldOfEveryRowIsAsPublished) {
    Fingerprint print;
    for (const lu_countries::country* row = lu_countries::begin(); row != lu_countries::end();
         ++row) {
        print.Add(row->GetIsoCode2());
        print.Add(row->GetIsoCode3());
        print.Add(row->GetNumericCode());
        print.Add(row->GetName());
        print.Add(row->GetLongName());
    }
    // The rows as released; a deliberate change of any row changes this value too.
    EXPECT_EQ(0x68C3E690741A10FDull, print.value());
}

TEST(CountryTableTest, TellingRowsAndNames) {
    struct Case {
        const char* code2;
        const char* code3;
        unsigned int numeric;
        const char16_t* name;
    };
    const Case cases[] = {
        {"FX", "FXX", 249, u"France, Metropolitan"},
        {"TP", "TMP", 626, u"East Timor (provisional)"},
        {"YU", "YUG", 891, u"Yugoslavia"},
        {"AN", "ANT", 530, u"Netherlands Antilles"},
        {"RO", "ROM", 642, u"Romania"},
        {"PS", "PSE", 65535, u"Palestine"},
        {"AD", "AND", 20, u"Andorra"},
        {"CD", "COD", 180, u"Congo, The Democratic Republic of the"},
        {"CI", "CIV", 384, u"Côte d'Ivoire"},
        {"DE", "DEU", 276, u"Germany"},
        {"GP", "GLP", 312, u"Guadaloupe"},
        {"RE", "REU", 638, u"Réunion"},
        {"ST", "STP", 678, u"São Tomé and Príncipe"},
        {"VI", "VIR", 850, u"Virgin Islands, U.S."},
        {"ZW", "ZWE", 716, u"Zimbabwe"},
    };
    for (const Case& c : cases) {
        const lu_countries::country* row = lu_countries::LookUpByTwoLetters(c.code2);
        ASSERT_NE(lu_countries::end(), row) << c.code2;
        EXPECT_STREQ(c.code3, row->GetIsoCode3());
        EXPECT_EQ(c.numeric, row->GetNumericCode()) << c.code2;
        EXPECT_EQ(c.name, Text(row->GetName())) << c.code2;
    }
}

TEST(CountryTableTest, LongNamesFor150Rows) {
    unsigned int count = 0;
    for (const lu_countries::country* row = lu_countries::begin(); row != lu_countries::end();
         ++row) {
        if (row->GetLongName() != nullptr) ++count;
    }
    EXPECT_EQ(150u, count);
    const std::pair<const char*, const char16_t*> cases[] = {
        {"DE", u"Federal Republic of Germany"},
        {"US", u"United States of America"},
        {"CN", u"People's, Republic of China"},
        {"MX", u"United States of Mexico"},
        {"NL", u"Kingdom of the Netherlands"},
        {"GB", u"United Kingdom of Great Britain and Northern Ireland"},
        {"CH", u"Swiss Confederation"},
        {"AU", u"<null>"},
        {"AQ", u"<null>"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.second, Text(lu_countries::LookUpByTwoLetters(c.first)->GetLongName()))
            << c.first;
    }
}

TEST(CountryLookUpTest, CaseCountsAndTwoLettersReadsTwo) {
    EXPECT_STREQ("DE", lu_countries::LookUpByTwoLetters("DEU")->GetIsoCode2());
    EXPECT_STREQ("US", lu_countries::LookUpByTwoLetters("US_x")->GetIsoCode2());
    EXPECT_STREQ("RO", lu_countries::LookUpByThreeLetters("ROM")->GetIsoCode2());
    EXPECT_STREQ("PS", lu_countries::LookUpByThreeLetters("PSE")->GetIsoCode2());
    for (const char* missing : {"de", "ZZ", "D", "", "AA"}) {
        EXPECT_EQ(lu_countries::end(), lu_countries::LookUpByTwoLetters(missing)) << missing;
    }
    for (const char* missing : {"ROU", "deu", "DE", "TLS"}) {
        EXPECT_EQ(lu_countries::end(), lu_countries::LookUpByThreeLetters(missing)) << missing;
    }
    for (const lu_countries::country* row = lu_countries::begin(); row != lu_countries::end();
         ++row) {
        EXPECT_EQ(row, lu_countries::LookUpByTwoLetters(row->GetIsoCode2()));
    }
}

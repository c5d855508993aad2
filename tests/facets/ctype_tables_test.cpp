// The built-in character-class tables: their shape, and every unit's word
// against the Unicode 3.0 files.
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "facets/ctype_i18n_tables.h"
#include "kai18n/facets/lu_ctype_impl.h"
#include "ucd_files.h"

namespace {

const lu_ctype_impl::StaticStorage& kTables = lu_ctype_impl::kCtype_i18n;

unsigned int ClassValue(const std::string& category) {
    static const std::map<std::string, unsigned int> values = {
        {"Cc", 0x20000000}, {"Cf", 0x20400000}, {"Zl", 0x20800000}, {"Zp", 0x20C00000},
        {"Zs", 0x40000000}, {"Lo", 0x50000000}, {"Lu", 0x50400000}, {"Ll", 0x50800000},
        {"Lt", 0x50C00000}, {"Lm", 0x51000000}, {"Nd", 0x52000000}, {"Nl", 0x52400000},
        {"No", 0x52800000}, {"Po", 0x54000000}, {"Ps", 0x54400000}, {"Pi", 0x54400000},
        {"Pe", 0x54800000}, {"Pf", 0x54800000}, {"Pc", 0x54C00000}, {"Pd", 0x55000000},
        {"So", 0x58000000}, {"Sm", 0x58400000}, {"Sc", 0x58800000}, {"Sk", 0x58C00000},
        {"Mn", 0x5C000000}, {"Mc", 0x5C400000}, {"Me", 0x5C800000}, {"Co", 0x60000000},
        {"Cs", 0x60400000}};
    const auto found = values.find(category);
    return found != values.end() ? found->second : 0xFFFFFFFF;
}

unsigned int DirectionValue(const std::string& bidi) {
    static const std::map<std::string, unsigned int> values = {
        {"L", 0x10000},    {"LRE", 0x20000},   {"LRO", 0x30000},  {"R", 0x40000},
        {"AL", 0x50000},   {"RLE", 0x60000},   {"RLO", 0x70000},  {"PDF", 0x80000},
        {"EN", 0x90000},   {"ES", 0xA0000},    {"ET", 0xB0000},   {"AN", 0xC0000},
        {"CS", 0xD0000},   {"NSM", 0xE0000},   {"BN", 0xF0000},   {"B", 0x80010000},
        {"S", 0x80020000}, {"WS", 0x80030000}, {"ON", 0x80040000}};
    const auto found = values.find(bidi);
    return found != values.end() ? found->second : 0xFFFFFFFF;
}

// The reader itself, so that a file it misreads cannot make the comparisons vacuous.
TEST(CtypeTablesTest, DataFilesAreReadCompletely) {
    const std::vector<ucd::Unit>& units = ucd::Records();
    int assigned = 0, white = 0;
    for (const ucd::Unit& u : units) assigned += u.assigned, white += u.whiteSpace;
    EXPECT_EQ(assigned, 57707);  // 10,617 lines, seven First/Last ranges
    EXPECT_EQ(white, 25);
    EXPECT_EQ(units[0x0041].lower, 0x0061);
    EXPECT_EQ(units[0x00BC].numerator * 10 + units[0x00BC].denominator, 14);
    EXPECT_EQ(units[0x0345].combining, 240);
    EXPECT_EQ(units[0x0345].upper, 0x0399);
    EXPECT_EQ(units[0xD7A3].category, "Lo");
    EXPECT_EQ(units[0xDB80].category, "Cs");
    EXPECT_FALSE(units[0xD7A4].assigned);
    EXPECT_TRUE(units[0x3000].whiteSpace);
}

TEST(CtypeTablesTest, EveryUnitAgreesWithUnicodeData) {
    const lu_ctype_impl impl;
    const std::string failures = ucd::FailingUnits([&](unsigned short c) -> std::string {
        const ucd::Unit& u = ucd::Records()[c];
        const unsigned int word = impl.FindProperty(c);
        std::ostringstream bad;
        if (!u.assigned) {
            if (word != 0) bad << "unassigned but word " << std::hex << word;
            return bad.str();
        }
        const int upper = u.upper >= 0 ? u.upper : c;
        const int lower = u.lower >= 0 ? u.lower : c;
        int denominator = -1;
        const int numerator = impl.getnumber(c, denominator);
        const bool hasCase = u.upper >= 0 || u.lower >= 0;
        if ((word & 0x7FC00000) != ClassValue(u.category)) bad << " class " << u.category;
        if ((word & 0x800F0000) != DirectionValue(u.bidi)) bad << " direction " << u.bidi;
        if (((word & 0x00100000) != 0) != u.mirrored) bad << " mirrored";
        if (((word & 0x00200000) != 0) != u.whiteSpace) bad << " white space";
        if (((word & 0x4000) != 0) != (u.upper >= 0)) bad << " upper bit";
        if (((word & 0x8000) != 0) != (u.lower >= 0)) bad << " lower bit";
        if (impl.ToUpper(c) != upper) bad << " ToUpper " << std::hex << impl.ToUpper(c) << std::dec;
        if (impl.ToLower(c) != lower) bad << " ToLower " << std::hex << impl.ToLower(c) << std::dec;
        if (numerator != u.numerator || denominator != u.denominator)
            bad << " number " << numerator << "/" << denominator;
        if (impl.getdigit(c) != u.numerator) bad << " digit " << impl.getdigit(c);
        if (impl.getclass(c) != (hasCase ? 0 : u.combining))
            bad << " combining class " << impl.getclass(c);
        return bad.str();
    });
    EXPECT_TRUE(failures.empty()) << failures;
}

TEST(CtypeTablesTest, TablesHaveTheirSizesAndLeadingEntries) {
    EXPECT_EQ(kCtypeI18nIndexSize, 512u);
    EXPECT_EQ(kCtypeI18nRunCount, 2580u);
    EXPECT_EQ(kCtypeI18nPropertyCount, 354u);
    EXPECT_EQ(kCtypeI18nNumberCount, 49u);
    EXPECT_EQ(kCtypeI18nDeltaCount, 97u);
    EXPECT_EQ(kTables.properties[0], 0u);
    const int numbers[][2] = {{0, 0}, {0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1},
                              {6, 1}, {7, 1}, {8, 1}, {9, 1}, {1, 4}, {1, 2}, {3, 4}};
    for (int i = 0; i < 14; ++i) {
        EXPECT_EQ(kTables.numbers[i].numerator, numbers[i][0]) << "numbers[" << i << "]";
        EXPECT_EQ(kTables.numbers[i].denominator, numbers[i][1]) << "numbers[" << i << "]";
    }
    const short deltas[] = {0, 32, -743, -121, 1, -199};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(kTables.deltas[i], deltas[i]) << "deltas[" << i << "]";
}

// Every block's runs cover exactly its 128 units (or one entry of length 0
// covers all), and every index points inside its table.
TEST(CtypeTablesTest, EveryBlockIsCoveredExactlyByItsRuns) {
    for (unsigned int block = 0; block < kCtypeI18nIndexSize; ++block) {
        unsigned int at = kTables.index[block], covered = 0;
        ASSERT_LT(at, kCtypeI18nRunCount) << "block " << block;
        if ((kTables.runs[at] & 0x7F) == 0) {
            EXPECT_LT(kTables.runs[at] >> 7, kCtypeI18nPropertyCount) << "block " << block;
            continue;
        }
        for (; covered < 128 && at < kCtypeI18nRunCount; ++at) {
            EXPECT_LT(kTables.runs[at] >> 7, kCtypeI18nPropertyCount) << "block " << block;
            if ((kTables.runs[at] & 0x7F) == 0) break;  // length 0 only stands alone
            covered += kTables.runs[at] & 0x7F;
        }
        EXPECT_EQ(covered, 128u) << "block " << block;
    }
    for (unsigned int i = 0; i < kCtypeI18nPropertyCount; ++i) {
        const unsigned int word = kTables.properties[i];
        EXPECT_LT((word >> 8) & 0x3F, kCtypeI18nNumberCount) << "properties[" << i << "]";
        EXPECT_LT(word & 0xFF, kCtypeI18nDeltaCount) << "properties[" << i << "]";
    }
}

// The two-load expansion of the built-in tables gives every unit the word that
// its runs give, and only the built-in record (by its five pointers) uses it.
TEST(CtypeTablesTest, BlockExpansionAgreesWithTheRunsForEveryUnit) {
    const lu_ctype_impl builtIn;
    int mismatches = 0;
    for (unsigned int c = 0; c <= 0xFFFF && mismatches < 5; ++c) {
        const auto unit = static_cast<unsigned short>(c);
        const unsigned int fromRuns = lu_ctype_impl::FindPropertyInRuns(kTables, unit);
        if (builtIn.FindProperty(unit) != fromRuns) {
            ++mismatches;
            ADD_FAILURE() << std::hex << "U+" << c << ": blocks " << builtIn.FindProperty(unit)
                          << ", runs " << fromRuns;
        }
    }
    for (unsigned int block = 0; block < kCtypeI18nIndexSize; ++block) {
        EXPECT_LT(lu_ctype_impl::kCtype_i18n_blocks.block_of[block], kCtypeI18nBlockCount);
    }

    // A record with the built-in tables but one word table of its own must be
    // read through its runs.
    std::vector<unsigned int> words(kTables.properties,
                                    kTables.properties + kCtypeI18nPropertyCount);
    const unsigned int letterA = lu_ctype_impl::FindPropertyInRuns(kTables, 'A');
    for (unsigned int& word : words) {
        if (word == letterA) word = 0x58800000;  // A becomes a currency sign
    }
    lu_ctype_impl::StaticStorage own = kTables;
    own.properties = words.data();
    EXPECT_EQ(lu_ctype_impl(&own).FindProperty('A'), 0x58800000u);
    EXPECT_EQ(lu_ctype_impl(&own).FindProperty('b'), builtIn.FindProperty('b'));
}

TEST(CtypeTablesTest, OrientationRowsHaveTheirWords) {
    const struct {
        unsigned short unit;
        unsigned int word;
    } rows[] = {{'A', 0x50418001},    {'a', 0x50814001},    {'0', 0x52090100},
                {' ', 0xC0230000},    {0x0660, 0x520C0100}, {0x05D0, 0x50040000},
                {0x4E00, 0x50010000}, {0xFFFF, 0},          {0x03F4, 0}};
    const lu_ctype_impl impl;
    for (const auto& row : rows)
        EXPECT_EQ(impl.FindProperty(row.unit), row.word) << std::hex << "U+" << row.unit;
    EXPECT_NE(impl.FindProperty(0x20AF), 0u);  // DRACHMA SIGN, new in 3.0
}

}  // namespace

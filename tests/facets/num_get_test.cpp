// The lu_num_get facet: the integer scanner with its signs, negative modes and
// grouping check, the narrowing to every integer type, the floating scanner
// with digits of any script.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "facets/integer_scanner.h"
#include "kai18n/facets/lu_num_get.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/frame/result_codes.h"
#include "test_support.h"

namespace {

using test_support::Str;
using test_support::ThrownCode;

const long kRange = LU_E_SCAN_OVERFLOW;
const long kOut = LU_E_OUT_OF_RANGE;
// A read that raises before it stores leaves this.
const long long kUntouched = 77;

// A facet over hand-built punctuation and the built-in character facet.
// `grouping` lists the group sizes; '.' is the decimal point.
ilu_const_ptr<lu_num_get> MakeReader(int mode = 1, unsigned short separator = 0,
                                     const std::u16string& grouping = u"",
                                     unsigned short point = u'.',
                                     const unsigned short* block = nullptr) {
    std::vector<unsigned short> sizes(grouping.begin(), grouping.end());
    sizes.push_back(0);
    const lu_numeric_punctuation::StaticStorage storage = {
        mode,
        point,
        separator,
        sizes.data(),
        block != nullptr ? block : lu_numeric_punctuation::kDefaultBlock,
        lu_numeric_punctuation::kDefaultFormats};
    const ilu_const_ptr<lu_numpunct> punct(new lu_numpunct(&storage, 0));
    const ilu_const_ptr<lu_ctype> ctype(new lu_ctype(0));
    return ilu_const_ptr<lu_num_get>(new lu_num_get(punct.get(), ctype.get(), 0));
}

std::string Show(const std::u16string& text) {
    std::string shown;
    for (const char16_t c : text) {
        if (c >= 0x20 && c < 0x7F) {
            shown += static_cast<char>(c);
        } else {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(c));
            shown += escape;
        }
    }
    return shown;
}

enum class Type { UShort, UInt, ULong, Short, Int, Long, Bool };

const char* NameOf(Type type) {
    static const char* const names[] = {
        "unsigned short", "unsigned int", "unsigned long", "short", "int", "long", "bool"};
    return names[static_cast<int>(type)];
}

// The value stored (also when the read raised), the code or 0, the end index.
struct Outcome {
    long long value;
    long code;
    long end;
};

template <class T>
Outcome ReadAs(const lu_num_get& reader, const ucs2string& text, unsigned int first,
               unsigned int last) {
    T value = static_cast<T>(kUntouched);
    Outcome outcome = {0, 0, -1};
    outcome.code = ThrownCode([&] {
        outcome.end = reader.get(text.begin() + first, text.begin() + last, value).index();
    });
    outcome.value = static_cast<long long>(value);
    return outcome;
}

Outcome Read(const lu_num_get& reader, Type type, const ucs2string& text, unsigned int first,
             unsigned int last) {
    using Reader = Outcome (*)(const lu_num_get&, const ucs2string&, unsigned int, unsigned int);
    static const Reader readers[] = {&ReadAs<unsigned short>,
                                     &ReadAs<unsigned int>,
                                     &ReadAs<unsigned long>,
                                     &ReadAs<short>,
                                     &ReadAs<int>,
                                     &ReadAs<long>,
                                     &ReadAs<bool>};
    return readers[static_cast<int>(type)](reader, text, first, last);
}

// Text, type, value stored, end index (ignored when a code is expected), code.
struct Row {
    std::u16string text;
    Type type;
    long long value;
    long end;
    long code;
};

void ExpectRows(const lu_num_get& reader, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE("\"" + Show(row.text) + "\" as " + NameOf(row.type));
        const ucs2string text = Str(row.text);
        const Outcome got = Read(reader, row.type, text, 0, text.length());
        EXPECT_EQ(got.value, row.value);
        EXPECT_EQ(got.code, row.code);
        if (row.code == 0) {
            EXPECT_EQ(got.end, row.end);
        }
    }
}

// Text, value, end index: for the floating scanner.
struct FloatRow {
    std::u16string text;
    double value;
    long end;
};

double ReadDouble(const lu_num_get& reader, const std::u16string& units, long* end = nullptr) {
    const ucs2string text = Str(units);
    double value = -1.0;
    const long index = reader.get(text.begin(), text.end(), value).index();
    if (end != nullptr) *end = index;
    return value;
}

void ExpectFloatRows(const lu_num_get& reader, const std::vector<FloatRow>& rows) {
    for (const FloatRow& row : rows) {
        SCOPED_TRACE("\"" + Show(row.text) + "\"");
        long end = -1;
        const double value = ReadDouble(reader, row.text, &end);
        EXPECT_EQ(value, row.value);
        EXPECT_EQ(end, row.end);
    }
}

TEST(NumGetTest, SignsBlanksAndFailures) {
    const auto reader = MakeReader();
    ExpectRows(*reader, {{u"  42x", Type::Int, 42, 4, 0},
                         {u"+7", Type::Int, 7, 2, 0},
                         {u"- 7", Type::Int, -7, 3, 0},
                         {u"+ 7", Type::Int, 0, 0, 0},
                         {u"\t\n 7", Type::Int, 7, 4, 0},
                         {u"-\u3000 7", Type::Int, -7, 4, 0},  // ideographic space
                         {u"--7", Type::Int, 0, 0, 0},
                         {u"-x", Type::Int, 0, 0, 0},
                         {u"-x", Type::UInt, 0, -1, kRange},  // the sign outlives the failure
                         {u"x", Type::UInt, 0, 0, 0},
                         {u"   ", Type::Int, 0, 0, 0},
                         {u"", Type::Int, 0, 0, 0},
                         // A sign at the string's end: the unit behind it is read.
                         {u"-", Type::Int, kUntouched, -1, kOut},
                         {u"+", Type::Int, kUntouched, -1, kOut},
                         {u"- ", Type::Int, kUntouched, -1, kOut},
                         {u"5-", Type::Int, 5, 1, 0},  // mode 1: no sign behind
                         {u"(5)", Type::Int, 0, 0, 0},
                         {u"1,234", Type::Int, 1, 1, 0},   // no separator in this locale
                         {u"\u0661", Type::Int, 0, 0, 0},  // ASCII digits only
                         {u"007", Type::Int, 7, 3, 0},
                         // Without grouping a unit 0 is passed over like the separator.
                         {std::u16string{u'1', 0, u'2'}, Type::Int, 12, 3, 0}});

    // A range ending before the string's end: a sign at `last` raises nothing.
    const ucs2string text = Str(u"-12345");
    const struct {
        unsigned int first, last;
        long long value;
        long end;
    } ranges[] = {{0, 4, -123, 4}, {0, 1, 0, 0}, {2, 5, 234, 5}};
    for (const auto& r : ranges) {
        const Outcome got = Read(*reader, Type::Int, text, r.first, r.last);
        EXPECT_EQ(got.value, r.value) << r.first << ".." << r.last;
        EXPECT_EQ(got.code, 0) << r.first << ".." << r.last;
        EXPECT_EQ(got.end, r.end) << r.first << ".." << r.last;
    }
}

TEST(NumGetTest, ThousandsGroupsOfThree) {
    const auto reader = MakeReader(1, u',', u"\u0003");
    ExpectRows(*reader, {{u"1,234", Type::Int, 1234, 5, 0},
                         {u"1234,567", Type::Int, 123, 3, 0},
                         {u"12,345,678", Type::Int, 12345678, 10, 0},
                         {u"12345", Type::Int, 12345, 5, 0},   // one long group
                         {u"1,2345", Type::Int, 12345, 6, 0},  // a last group too long
                         {u"1234,5678", Type::Int, 12345678, 9, 0},
                         {u"  -1,234x", Type::Int, -1234, 8, 0},
                         {u"1,234,", Type::Int, 1234, 5, 0},  // a trailing separator
                         {u"1,,234", Type::Int, 1, 1, 0},     // an empty group
                         {u"1234,567,890", Type::Int, 1234, 4, 0},
                         {u",123", Type::Int, 0, 0, 0},
                         {u"-,5", Type::Int, 0, 0, 0},
                         {u"-,5", Type::UShort, 0, -1, kRange},
                         {u"4,294,967,295", Type::UInt, 4294967295LL, 13, 0},
                         {u"4,294,967,296", Type::UInt, 4294967295LL, -1, kRange},
                         {u"4,294,967,296", Type::Int, 2147483647, -1, kRange},
                         // A last group shorter than the size: the digits left
                         // of its separator are read, unchecked.
                         {u"1,23", Type::Int, 1, 1, 0},
                         {u"12,34", Type::Int, 12, 2, 0},
                         {u"1,234,56", Type::Int, 1234, 5, 0},
                         {u"12,3456,78", Type::Int, 123456, 7, 0},
                         {u"1,2,34", Type::Int, 12, 3, 0},
                         {u"-1,23", Type::Int, -1, 2, 0}});
    // The run of digits and separators stops at `last`.
    const ucs2string text = Str(u"1,234");
    const Outcome got = Read(*reader, Type::Int, text, 0, 4);
    EXPECT_EQ(got.value, 1);
    EXPECT_EQ(got.end, 1);
}

TEST(NumGetTest, IndianGroupsAndTheEndOfGrouping) {
    const auto indian = MakeReader(1, u',', u"\u0003\u0002");
    ExpectRows(*indian, {{u"12,34,567", Type::Int, 1234567, 9, 0},
                         {u"1,23,45,678", Type::Int, 12345678, 11, 0},
                         {u"12,345", Type::Int, 12345, 6, 0},
                         {u"123,45,678", Type::Int, 123, 3, 0},
                         {u"1,234,567", Type::Int, 1, 1, 0}});

    // 0xFFFF as a later size: no rules further left.
    const auto stop = MakeReader(1, u',', u"\u0003\uFFFF");
    ExpectRows(*stop, {{u"1234,567", Type::Int, 1234567, 8, 0},
                       {u"12,34,567", Type::Int, 1234567, 9, 0},
                       {u"1,23", Type::Int, 1, 1, 0}});
    const auto late_stop = MakeReader(1, u',', u"\u0002\u0003\uFFFF");
    ExpectRows(*late_stop,
               {{u"1,2,345,67", Type::Int, 1234567, 10, 0}, {u"1,2345,67", Type::Int, 1234, 5, 0}});

    // No grouping: 0xFFFF first, no sizes, or no separator.
    for (const auto& none :
         {MakeReader(1, u',', u"\uFFFF"), MakeReader(1, u',', u""), MakeReader(1, 0, u"\u0003")}) {
        ExpectRows(*none, {{u"1,234", Type::Int, 1, 1, 0}, {u",5", Type::Int, 0, 0, 0}});
    }
}

TEST(NumGetTest, GroupingLimitOverUnits) {
    const auto limit = [](const std::u16string& units, const std::u16string& sizes) {
        const test_support::Units u = test_support::UnitsOf(units);
        test_support::Units g = test_support::UnitsOf(sizes);
        g.push_back(0);
        return lu_grouping_limit(u.data(), static_cast<unsigned int>(u.size()), u',', g.data());
    };
    EXPECT_EQ(limit(u"", u"\u0003"), 0u);
    // A leftmost group longer than a later size gives the attempt up; the
    // next one finds "1" alone.
    EXPECT_EQ(limit(u"12,345", u"\u0003\u0001"), 1u);
    EXPECT_EQ(limit(u"1,2,345", u"\u0003\u0001"), 7u);
}

TEST(NumGetTest, NegativeModes) {
    const auto parentheses = MakeReader(0);
    ExpectRows(*parentheses, {{u"(5)", Type::Int, -5, 3, 0},
                              {u"-5", Type::Int, 0, 0, 0},
                              {u"-5)", Type::Int, -5, 3, 0},
                              {u"- 5)", Type::Int, -5, 4, 0},
                              {u"5)", Type::Int, 5, 1, 0},
                              {u"( 5)", Type::Int, 0, 0, 0},
                              {u"(5", Type::Int, 0, 0, 0},
                              {u"(5", Type::UInt, 0, -1, kRange},
                              {u"(5x", Type::Int, 0, 0, 0},
                              {u"(", Type::Int, kUntouched, -1, kOut},
                              {u"(99999999999)", Type::Int, -2147483647LL - 1, -1, kRange},
                              // A failed scan drops the overflow with the magnitude.
                              {u"(99999999999", Type::Int, 0, 0, 0},
                              {u"(-5)", Type::Int, 0, 0, 0}});
    const auto sign_after = MakeReader(3);
    ExpectRows(*sign_after, {{u"5-", Type::Int, -5, 2, 0},
                             {u"5+", Type::Int, 5, 2, 0},
                             {u"+5+", Type::Int, 5, 2, 0},
                             {u"+5-", Type::Int, -5, 3, 0},
                             {u"-5-", Type::Int, -5, 2, 0},
                             {u"5 -", Type::Int, 5, 1, 0},
                             {u"5-", Type::UInt, 0, -1, kRange},
                             {u"(5)", Type::Int, 0, 0, 0}});
    const auto blank_sign_after = MakeReader(4);
    ExpectRows(*blank_sign_after, {{u"5 -", Type::Int, -5, 3, 0},
                                   {u"5-", Type::Int, -5, 2, 0},
                                   {u"5 x", Type::Int, 5, 2, 0},  // the blank is used up
                                   {u"5  ", Type::Int, 5, 3, 0},
                                   {u"+5 +", Type::Int, 5, 3, 0},
                                   {u"5 +", Type::Int, 5, 3, 0}});
    const auto sign_blank_before = MakeReader(2);
    ExpectRows(*sign_blank_before, {{u"- 5", Type::Int, -5, 3, 0}, {u"5 -", Type::Int, 5, 1, 0}});
}

TEST(NumGetTest, NarrowingAtEveryBound) {
    const auto reader = MakeReader();
    const long long int_min = -2147483647LL - 1;
    ExpectRows(*reader, {
                            {u"65535", Type::UShort, 65535, 5, 0},
                            {u"65536", Type::UShort, 65535, -1, kRange},
                            {u"0", Type::UShort, 0, 1, 0},
                            {u"-0", Type::UShort, 0, -1, kRange},
                            {u"-1", Type::UShort, 0, -1, kRange},
                            {u"4294967296", Type::UShort, 65535, -1, kRange},
                            {u"-4294967296", Type::UShort, 0, -1, kRange},

                            {u"4294967295", Type::UInt, 4294967295LL, 10, 0},
                            {u"4294967296", Type::UInt, 4294967295LL, -1, kRange},
                            {u"-0", Type::UInt, 0, -1, kRange},
                            {u"-4294967296", Type::UInt, 0, -1, kRange},
                            {u"4294967295", Type::ULong, 4294967295LL, 10, 0},
                            {u"-0", Type::ULong, 0, -1, kRange},
                            {u"-1", Type::ULong, 0, -1, kRange},
                            {u"4294967296", Type::ULong, 4294967295LL, -1, kRange},
                            {u"99999999999", Type::ULong, 4294967295LL, -1, kRange},
                            {u"-99999999999", Type::ULong, 0, -1, kRange},

                            {u"32767", Type::Short, 32767, 5, 0},
                            {u"32768", Type::Short, 32767, -1, kRange},
                            {u"-32768", Type::Short, -32768, 6, 0},
                            {u"-32769", Type::Short, -32768, -1, kRange},
                            {u"-4294967295", Type::Short, -32768, -1, kRange},
                            {u"4294967296", Type::Short, 32767, -1, kRange},
                            {u"-4294967296", Type::Short, -32768, -1, kRange},
                            {u"-0", Type::Short, 0, 2, 0},

                            {u"2147483647", Type::Int, 2147483647, 10, 0},
                            {u"2147483648", Type::Int, 2147483647, -1, kRange},
                            {u"-2147483648", Type::Int, int_min, 11, 0},
                            {u"-2147483649", Type::Int, int_min, -1, kRange},
                            {u"4294967295", Type::Int, 2147483647, -1, kRange},
                            {u"-4294967296", Type::Int, int_min, -1, kRange},
                            {u"2147483647", Type::Long, 2147483647, 10, 0},
                            {u"2147483648", Type::Long, 2147483647, -1, kRange},
                            {u"-2147483648", Type::Long, int_min, 11, 0},
                            {u"-2147483649", Type::Long, int_min, -1, kRange},
                            {u"4294967296", Type::Long, 2147483647, -1, kRange},
                            {u"-4294967296", Type::Long, int_min, -1, kRange},

                            {u"4294967296", Type::Bool, 1, 10, 0},
                            {u"0", Type::Bool, 0, 1, 0},
                            {u"5", Type::Bool, 1, 1, 0},
                            {u"-0", Type::Bool, 0, 2, 0},
                            {u"-3", Type::Bool, 1, 2, 0},
                            {u"x", Type::Bool, 0, 0, 0},
                            {u"true", Type::Bool, 0, 0, 0},
                        });
}

// Digits past the overflow are passed over; the magnitude keeps the last
// digit that fit.
TEST(NumGetTest, OverflowKeepsTheMagnitudeAndPassesDigitsOver) {
    const ilu_const_ptr<lu_numpunct> punct(new lu_numpunct(0));
    const struct {
        std::u16string text;
        std::uint32_t magnitude;
        bool overflow;
    } cases[] = {{u"4294967295", 4294967295u, false},
                 {u"4294967296", 429496729u, true},
                 {u"42949672950", 4294967295u, true},
                 {u"-429496730", 429496730u, false},
                 {u"4294967300", 429496730u, true}};
    for (const auto& c : cases) {
        const ucs2string text = Str(c.text);
        const lu_integer_scan s = lu_scan_integer(text.begin(), text.end(), *punct);
        EXPECT_EQ(s.end.index(), text.length()) << Show(c.text);
        EXPECT_EQ(s.magnitude, c.magnitude) << Show(c.text);
        EXPECT_EQ(s.overflow, c.overflow) << Show(c.text);
        EXPECT_EQ(s.negative, c.text[0] == u'-') << Show(c.text);
    }
}

TEST(NumGetTest, FloatsWithDigitsOfAnyScript) {
    const auto reader = MakeReader();
    ExpectFloatRows(*reader, {{u"\u0661\u0662\u0663.\u0664\u0665", 123.45, 6},  // Arabic-Indic
                              {u"\u0967\u096A\u0968e\u0968", 14200.0, 5},       // Devanagari
                              {u"1\u0662\u06F3", 123.0, 3},  // ASCII, Arabic-Indic, Extended
                              {u"\uFF17.\uFF15", 7.5, 3},    // fullwidth
                              {u"\u0664e-\u0661", 0.4, 4},
                              {u"\u3000\u00A01.5", 1.5, 5},  // white space by the facet
                              {u"-1.5", -1.5, 4},
                              {u"+1.5", 1.5, 4},
                              {u".5", 0.5, 2},
                              {u"5.", 5.0, 2},
                              {u"1.5E2", 150.0, 5},
                              {u"1.5e+2", 150.0, 6},
                              {u"1.5e-2", 0.015, 6},
                              {u"1.5e+", 0.0, 5},
                              {u"1.5e", 0.0, 4},
                              {u"1 e2", 1.0, 1},
                              {u"- 1.5", 0.0, 1},
                              {u"1.5ex", 0.0, 4},
                              {u"1.5e 2", 0.0, 4},
                              {u"1.5x", 1.5, 3},
                              {u"1,5", 1.0, 1},
                              {u"1e2.5", 100.0, 3},
                              {u"x", 0.0, 0},
                              {u"  x", 0.0, 2},
                              {u".", 0.0, 1},
                              {u"-.", 0.0, 2},
                              {u".e5", 0.0, 1},
                              {u"-", 0.0, 1},
                              {u"", 0.0, 0},
                              {u"000123", 123.0, 6},
                              {u"0.000123", 0.000123, 8},
                              {u"0.0", 0.0, 3},
                              {u"00.00e5", 0.0, 7},
                              {u"1000000000000000000000000", 1e24, 25},
                              {u"0.0000000000000000000001", 1e-22, 24},
                              // The exponent is a 32-bit integer: 4294967296 wraps to 0.
                              {u"1e4294967296", 1.0, 12}});
    long end = -1;
    EXPECT_TRUE(std::signbit(ReadDouble(*reader, u"-0", &end)));
    EXPECT_EQ(end, 2);
    EXPECT_FALSE(std::signbit(ReadDouble(*reader, u"-x")));

    // Another decimal point, and an exponent letter stored in upper case.
    unsigned short block[lu_numeric_punctuation::kBlockSize];
    std::memcpy(block, lu_numeric_punctuation::kDefaultBlock, sizeof block);
    block[lu_numeric_punctuation::kLowerExponent] = u'E';
    const auto comma = MakeReader(1, 0, u"", u',', block);
    ExpectFloatRows(*comma, {{u"1,5e2", 150.0, 5}, {u"1.5", 1.0, 1}, {u"2E1", 20.0, 3}});
}

TEST(NumGetTest, FloatTheTwentyDigitCap) {
    const auto reader = MakeReader();
    // Zeros before the first digit don't use up the twenty places.
    const double tiny = ReadDouble(*reader, u"0.000000000000000000000000001234");
    EXPECT_NEAR(tiny / 1.234e-27, 1.0, 1e-15);
    // Digits from the 21st on only move the decimal exponent.
    EXPECT_EQ(ReadDouble(*reader, u"123456789012345678909"),
              ReadDouble(*reader, u"123456789012345678901"));
    EXPECT_EQ(ReadDouble(*reader, u"0.123456789012345678909"),
              ReadDouble(*reader, u"0.123456789012345678901"));
    EXPECT_EQ(ReadDouble(*reader, u"12345678901234567890999e-3"),
              ReadDouble(*reader, u"12345678901234567890000e-3"));
    // 2 to the 53, plus 1, is a tie between two doubles: the digit that would
    // break it is the 21st, so the sum of the first twenty rounds to even.
    EXPECT_EQ(ReadDouble(*reader, u"9007199254740993.00001"), 9007199254740992.0);
    const double wide = ReadDouble(*reader, u"123456789012345678909999");
    EXPECT_NEAR(wide / std::strtod("123456789012345678900000", nullptr), 1.0, 1e-15);
}

// Above 10 to the 308 the digits are multiplied by 1e308 alone; below 1e-308
// they are divided by 1e308 and by at most 10 to the 20.
TEST(NumGetTest, FloatExtremesOfThePower) {
    const auto reader = MakeReader();
    const double inf = std::numeric_limits<double>::infinity();
    ExpectFloatRows(*reader, {{u"1e309", 1e308, 5},
                              {u"1e400", 1e308, 5},
                              {u"10e308", 1e308, 6},
                              {u"2e309", inf, 5},
                              {u"-2e309", -inf, 6},
                              {u"1.9e308", inf, 7},
                              {u"1e308", 1e308, 5},
                              {u"1e-400", 0.0, 6},
                              {u"10000000000000000001e-329", 0.0, 25}});
    EXPECT_NEAR(ReadDouble(*reader, u"1e-308") / 1e-308, 1.0, 1e-15);
    EXPECT_NEAR(ReadDouble(*reader, u"10000000000000000001e-328") / 1e-309, 1.0, 1e-12);
    EXPECT_NEAR(ReadDouble(*reader, u"1e-310") / 1e-310, 1.0, 1e-9);
    EXPECT_NEAR(ReadDouble(*reader, u"2.2250738585072014e-308") / DBL_MIN, 1.0, 1e-15);
}

// The double read, then narrowed.
TEST(NumGetTest, FloatNarrowing) {
    const auto reader = MakeReader();
    const float inf = std::numeric_limits<float>::infinity();
    const struct {
        std::u16string text;
        float value;
        long end;
    } cases[] = {{u"1.5", 1.5f, 3},
                 {u"0.1", static_cast<float>(0.1), 3},
                 {u"3.4028235e38", FLT_MAX, 12},
                 {u"1e39", inf, 4},
                 {u"-1e39", -inf, 5},
                 {u"1e-46", 0.0f, 5},
                 {u"-2.5e-3x", static_cast<float>(-0.0025), 7}};
    for (const auto& c : cases) {
        const ucs2string text = Str(c.text);
        float value = -1.0f;
        EXPECT_EQ(reader->get(text.begin(), text.end(), value).index(), c.end) << Show(c.text);
        EXPECT_EQ(value, c.value) << Show(c.text);
    }
}

// printf's shortest exact form of a double, read back. Denormals are left out:
// below 1e-308 the digits are divided by 10 to the 308 and then by a power of
// at most 10 to the 20, so most denormals come back as 0.0 or with few digits.
TEST(NumGetTest, PrintedDoublesReadBack) {
    const auto reader = MakeReader();
    std::mt19937_64 random(20240611);
    int checked = 0;
    for (int i = 0; i < 20000; ++i) {
        std::uint64_t bits = random();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        if (i % 4 == 0) value = std::ldexp(static_cast<double>(bits >> 11), -53) * 1e6;
        if (!std::isfinite(value) || std::fabs(value) < DBL_MIN) continue;
        char printed[40];
        std::snprintf(printed, sizeof printed, "%.17g", value);
        const std::u16string units(printed, printed + std::strlen(printed));
        long end = -1;
        const double back = ReadDouble(*reader, units, &end);
        ASSERT_EQ(end, static_cast<long>(units.size())) << printed;
        ASSERT_LE(std::fabs(back - value), 1e-14 * std::fabs(value)) << printed;
        ++checked;
    }
    EXPECT_GT(checked, 15000);
    EXPECT_EQ(ReadDouble(*reader, u"0"), 0.0);
}

TEST(NumGetTest, WithoutACharacterFacetFloatsUseTheBuiltInTables) {
    const ilu_const_ptr<lu_num_get> reader(new lu_num_get(0));
    ExpectFloatRows(*reader, {{u"\u3000\u0661.\u0665E\u0662", 150.0, 6}, {u"- 1", 0.0, 1}});
    ExpectRows(*reader, {{u" -42", Type::Int, -42, 4, 0}, {u"1,234", Type::Int, 1, 1, 0}});

    const ilu_const_ptr<lu_numpunct> punct(new lu_numpunct(0));
    const ilu_const_ptr<lu_num_get> no_ctype(new lu_num_get(punct.get(), nullptr, 0));
    ExpectFloatRows(*no_ctype, {{u"\u0967.5e1", 15.0, 5}});
}

TEST(NumGetTest, HoldsACountOnEachFacetAndLivesInALocale) {
    lu_numpunct* punct = new lu_numpunct(1);
    lu_ctype* ctype = new lu_ctype(1);
    {
        const ilu_const_ptr<lu_num_get> reader(new lu_num_get(punct, ctype, 0));
        EXPECT_EQ(punct->GetReferenceCount(), 2u);
        EXPECT_EQ(ctype->GetReferenceCount(), 2u);

        auto* impl = new lu_locale::_Impl(4, 0);
        impl->_M_install_facet(&lu_num_get::id, const_cast<lu_num_get*>(reader.get()));
        const lu_locale locale(impl);
        const lu_num_get& found = lu_use_facet<lu_num_get>(locale);
        EXPECT_EQ(&found, reader.get());
        const ucs2string text = Str(u"-17");
        int value = 0;
        EXPECT_EQ(found.get(text.begin(), text.end(), value).index(), 3u);
        EXPECT_EQ(value, -17);
    }
    EXPECT_EQ(punct->GetReferenceCount(), 1u);
    EXPECT_EQ(ctype->GetReferenceCount(), 1u);
    punct->ReleaseReference();
    ctype->ReleaseReference();
}

}  // namespace

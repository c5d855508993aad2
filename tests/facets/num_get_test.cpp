// The lu_num_get facet. A row "text=value@end" stores value and ends at index end; "text=value!"
// raises LU_E_SCAN_OVERFLOW after storing value; "text=77?" raises LU_E_OUT_OF_RANGE first.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "kai18n/facets/lu_num_get.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/frame/result_codes.h"
#include "test_support.h"

namespace {

using test_support::Str;
using Reader = ilu_const_ptr<lu_num_get>;

// A facet over hand-built punctuation, with the group sizes `grouping`.
Reader MakeReader(int mode = 1, unsigned short separator = 0, const std::u16string& grouping = u"",
                  unsigned short point = u'.',
                  const unsigned short* block = lu_numeric_punctuation::kDefaultBlock) {
    const test_support::Units sizes = test_support::UnitsOf(grouping + u'\0');
    const lu_numeric_punctuation::StaticStorage storage = {
        mode, point, separator, sizes.data(), block, lu_numeric_punctuation::kDefaultFormats};
    const ilu_const_ptr<lu_numpunct> punct(new lu_numpunct(&storage, 0));
    const ilu_const_ptr<lu_ctype> ctype(new lu_ctype(0));
    return Reader(new lu_num_get(punct.get(), ctype.get(), 0));
}

// Reads each row's text as a T, from [first, last) of it or all of it.
template <class T>
void Ints(const lu_num_get& reader, const std::vector<std::u16string>& rows, unsigned int first = 0,
          unsigned int last = ~0u) {
    for (const std::u16string& row : rows) {
        const std::u16string text = row.substr(0, row.rfind(u'=') + 1);
        const ucs2string units = Str(text.substr(0, text.size() - 1));
        T value = static_cast<T>(77);
        long end = -1;
        const long code = test_support::ThrownCode([&] {
            const auto stop = units.begin() + std::min(last, units.length());
            end = reader.get(units.begin() + first, stop, value).index();
        });
        const std::string got = std::to_string(static_cast<long long>(value)) +
                                (code == LU_E_SCAN_OVERFLOW  ? "!"
                                 : code == LU_E_OUT_OF_RANGE ? "?"
                                                             : "@" + std::to_string(end));
        EXPECT_EQ(text + std::u16string(got.begin(), got.end()), row);
    }
}

// The double read from `units`, and where the read ended.
double ReadDouble(const lu_num_get& reader, const std::u16string& units, long* end = nullptr) {
    const ucs2string text = Str(units);
    double value = -1.0;
    const long stop = reader.get(text.begin(), text.end(), value).index();
    if (end != nullptr) *end = stop;
    return value;
}

void Floats(const lu_num_get& reader, const std::vector<std::u16string>& rows) {
    for (const std::u16string& row : rows) {
        const std::string expected(row.begin() + row.rfind(u'=') + 1, row.end());
        long end = -1;
        const double value = ReadDouble(reader, row.substr(0, row.rfind(u'=')), &end);
        EXPECT_EQ(value, std::strtod(expected.c_str(), nullptr)) << testing::PrintToString(row);
        EXPECT_EQ("@" + std::to_string(end), expected.substr(expected.find('@')));
    }
}

TEST(NumGetTest, SignsBlanksAndFailures) {
    const Reader reader = MakeReader();
    // Blanks may follow "-" but not "+"; "-x" keeps its sign for an unsigned type; a sign at the
    // string's end reads the unit behind it; mode 1 has no sign behind, and no separator; only
    // ASCII digits count.
    Ints<int>(*reader, {u"  42x=42@4", u"+7=7@2", u"-\u3000 7=-7@4", u"+ 7=0@0", u"--7=0@0",
                        u"-x=0@0", u"   =0@0", u"=0@0", u"-=77?", u"+=77?", u"5-=5@1", u"(5)=0@0",
                        u"1,234=1@1", u"\u0661=0@0"});
    Ints<unsigned int>(*reader, {u"-x=0!"});
    // Without grouping a unit 0 is passed over like the separator.
    Ints<int>(*reader, {std::u16string{u'1', 0, u'2'} + u"=12@3"});
    // A range ending before the string's end: a sign at `last` raises nothing.
    Ints<int>(*reader, {u"-12345=-123@4"}, 0, 4);
    Ints<int>(*reader, {u"-12345=0@0"}, 0, 1);
    Ints<int>(*reader, {u"-12345=234@5"}, 2, 5);
}

TEST(NumGetTest, GroupsOfEverySizeAndTheEndOfGrouping) {
    const Reader reader = MakeReader(1, u',', u"\u0003");
    // A last group shorter than the size leaves the digits left of its separator, unchecked.
    Ints<int>(*reader, {u"1,234=1234@5", u"1234,567=123@3", u"12,345,678=12345678@10",
                        u"12345=12345@5", u"1,2345=12345@6", u"  -1,234x=-1234@8", u"1,234,=1234@5",
                        u"1,,234=1@1", u"1234,567,890=1234@4", u",123=0@0", u"1,23=1@1",
                        u"1,234,56=1234@5", u"12,3456,78=123456@7", u"1,2,34=12@3"});
    Ints<unsigned short>(*reader, {u"-,5=0!"});
    Ints<unsigned int>(*reader, {u"4,294,967,296=4294967295!"});
    Ints<int>(*reader, {u"1,234=1@1"}, 0, 4);  // the run of digits stops at `last`
    // Indian groups; 0xFFFF as a later size: no rules further left.
    Ints<int>(*MakeReader(1, u',', u"\u0003\u0002"),
              {u"12,34,567=1234567@9", u"1,23,45,678=12345678@11", u"12,345=12345@6",
               u"123,45,678=123@3", u"1,234,567=1@1"});
    Ints<int>(*MakeReader(1, u',', u"\u0003\uFFFF"), {u"1234,567=1234567@8", u"1,23=1@1"});
    Ints<int>(*MakeReader(1, u',', u"\u0002\u0003\uFFFF"),
              {u"1,2,345,67=1234567@10", u"1,2345,67=1234@5"});
    // No grouping: 0xFFFF first, no sizes, or no separator.
    for (const Reader& none :
         {MakeReader(1, u',', u"\uFFFF"), MakeReader(1, u',', u""), MakeReader(1, 0, u"\u0003")})
        Ints<int>(*none, {u"1,234=1@1", u",5=0@0"});
    // A leftmost group longer than a later size: the next attempt finds "1".
    Ints<int>(*MakeReader(1, u',', u"\u0003\u0001"), {u"12,345=1@1", u"1,2,345=12345@7", u"x=0@0"});
}

TEST(NumGetTest, NegativeModes) {
    // Parentheses; a failed scan drops the overflow with the magnitude.
    Ints<int>(*MakeReader(0),
              {u"(5)=-5@3", u"-5=0@0", u"- 5)=-5@4", u"5)=5@1", u"( 5)=0@0", u"(5x=0@0", u"(=77?",
               u"(99999999999)=-2147483648!", u"(99999999999=0@0"});
    Ints<unsigned int>(*MakeReader(0), {u"(5=0!"});
    // The sign behind; a second sign, or one after a leading sign, is left.
    Ints<int>(*MakeReader(3),
              {u"5-=-5@2", u"5+=5@2", u"+5+=5@2", u"+5-=-5@3", u"-5-=-5@2", u"5 -=5@1"});
    Ints<unsigned int>(*MakeReader(3), {u"5-=0!"});
    // A blank and the sign behind: the blank is used up.
    Ints<int>(*MakeReader(4), {u"5 -=-5@3", u"5 x=5@2", u"5  =5@3", u"+5 +=5@3"});
    Ints<int>(*MakeReader(2), {u"- 5=-5@3", u"5 -=5@1"});
}

TEST(NumGetTest, NarrowingAtEveryBound) {
    const Reader r = MakeReader();
    Ints<unsigned short>(*r, {u"65535=65535@5", u"65536=65535!", u"-0=0!", u"-4294967296=0!"});
    Ints<unsigned int>(*r, {u"4294967295=4294967295@10", u"4294967296=4294967295!"});
    Ints<unsigned long>(*r, {u"4294967295=4294967295@10", u"-1=0!"});
    Ints<short>(*r, {u"32767=32767@5", u"32768=32767!", u"-32768=-32768@6", u"-32769=-32768!",
                     u"4294967296=32767!", u"-4294967296=-32768!", u"-0=0@2"});
    Ints<int>(*r, {u"2147483647=2147483647@10", u"2147483648=2147483647!",
                   u"-2147483648=-2147483648@11", u"-2147483649=-2147483648!"});
    Ints<long>(*r, {u"2147483648=2147483647!", u"-2147483648=-2147483648@11"});
    Ints<bool>(*r, {u"4294967296=1@10", u"-0=0@2", u"-3=1@2", u"x=0@0"});
}

TEST(NumGetTest, FloatsWithDigitsOfAnyScript) {
    const Reader reader = MakeReader();
    // White space by the facet, never after a sign or around the exponent; an exponent without
    // digits reads nothing; a 32-bit exponent wraps.
    Floats(*reader, {u"\u0661\u0662\u0663.\u0664\u0665=123.45@6", u"1\u0968\u06F3\uFF14=1234@4",
                     u"\u0664e-\u0661=0.4@4", u"\u3000\u00A01.5=1.5@5"});
    Floats(*reader, {u"-1.5=-1.5@4", u"+1.5=1.5@4", u"1.5E+2=150@6", u"1.5e-2=0.015@6",
                     u"1.5e+=0@5", u"1.5ex=0@4", u"1 e2=1@1", u"- 1.5=0@1", u"1,5=1@1",
                     u"1e2.5=100@3", u"  x=0@2", u"-.=0@2", u".e5=0@1", u"=0@0", u"000123=123@6",
                     u"00.00e5=0@7", u"1e4294967296=1@12", u"0.000123=0.000123@8"});
    Floats(*reader, {u"1000000000000000000000000=1e24@25"});
    EXPECT_TRUE(std::signbit(ReadDouble(*reader, u"-0")));
    EXPECT_FALSE(std::signbit(ReadDouble(*reader, u"-x")));

    // Another decimal point, and an exponent letter stored in upper case.
    unsigned short block[lu_numeric_punctuation::kBlockSize];
    std::memcpy(block, lu_numeric_punctuation::kDefaultBlock, sizeof block);
    block[lu_numeric_punctuation::kLowerExponent] = u'E';
    Floats(*MakeReader(1, 0, u"", u',', block), {u"1,5e2=150@5", u"1.5=1@1", u"2E1=20@3"});
    // Without a character facet of its own: the built-in tables.
    const Reader plain(new lu_num_get(0));
    Floats(*plain, {u"\u3000\u0661.\u0665E\u0662=150@6"});
    Ints<int>(*plain, {u" -42=-42@4", u"1,234=1@1"});
    const ilu_const_ptr<lu_numpunct> punct(new lu_numpunct(0));
    Floats(*Reader(new lu_num_get(punct.get(), nullptr, 0)), {u"\u0967.5e1=15@5"});
}

// Twenty digits at most, from the first non-zero; above 1e308 the digits are multiplied by 1e308
// alone; below 1e-308 they are divided by 1e308 and by at most 10 to the 20.
TEST(NumGetTest, FloatTheTwentyDigitCapAndTheExtremesOfThePower) {
    const Reader reader = MakeReader();
    EXPECT_NEAR(ReadDouble(*reader, u"0.000000000000000000000000001234") / 1.234e-27, 1.0, 1e-15);
    EXPECT_EQ(ReadDouble(*reader, u"0.123456789012345678909"),
              ReadDouble(*reader, u"0.123456789012345678901"));
    // 2 to the 53, plus 1, is a tie between two doubles: the digit that would break it is the 21st,
    // so the sum of the first twenty rounds to even.
    EXPECT_EQ(ReadDouble(*reader, u"9007199254740993.00001"), 9007199254740992.0);
    const double wide = ReadDouble(*reader, u"123456789012345678909999");
    EXPECT_NEAR(wide / std::strtod("123456789012345678900000", nullptr), 1.0, 1e-15);

    Floats(*reader,
           {u"1e309=1e308@5", u"10e308=1e308@6", u"2e309=inf@5", u"-2e309=-inf@6", u"1.9e308=inf@7",
            u"1e308=1e308@5", u"1e-400=0@6", u"10000000000000000001e-329=0@25"});
    EXPECT_NEAR(ReadDouble(*reader, u"1e-308") / 1e-308, 1.0, 1e-15);
    EXPECT_NEAR(ReadDouble(*reader, u"10000000000000000001e-328") / 1e-309, 1.0, 1e-12);
    EXPECT_NEAR(ReadDouble(*reader, u"2.2250738585072014e-308") / DBL_MIN, 1.0, 1e-15);
    // Floats: the double read, then narrowed.
    const ucs2string text = Str(u"-1e39x");
    float narrowed = 0.0f;
    EXPECT_EQ(reader->get(text.begin(), text.end(), narrowed).index(), 5u);
    EXPECT_EQ(narrowed, -HUGE_VALF);
    const ucs2string max = Str(u"3.4028235e38");
    EXPECT_EQ(reader->get(max.begin(), max.end(), narrowed).index(), 12u);
    EXPECT_EQ(narrowed, FLT_MAX);
}

// printf's 17 digits of a double read back; not denormals, read as 0.0 or with few digits.
TEST(NumGetTest, PrintedDoublesReadBack) {
    const Reader reader = MakeReader();
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
        const ucs2string units = Str(std::u16string(printed, printed + std::strlen(printed)));
        double back = 0.0;
        ASSERT_EQ(reader->get(units.begin(), units.end(), back).index(), units.length()) << printed;
        ASSERT_LE(std::fabs(back - value), 1e-14 * std::fabs(value)) << printed;
        ++checked;
    }
    EXPECT_GT(checked, 15000);
}

}  // namespace

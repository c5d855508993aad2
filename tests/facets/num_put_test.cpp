// The number output facet lu_num_put: doubles in the default punctuation, the
// digit strings of convert, special values, failures, the integer and boolean
// overloads in every negative mode, native digits, reference counts, unfused
// double arithmetic, allocation, and round trips through strtod.
#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <random>
#include <string>

#include "kai18n/facets/lu_num_put.h"
#include "kai18n/frame/ilu_ptr.h"

// Every allocation of this test program passes through here, so that a test
// can count the allocations of a call or refuse them; for the other tests of
// the program these are plain malloc and free.
namespace {
long g_allocations = 0;
bool g_refuseAllocations = false;

void* Allocate(std::size_t size) {
    ++g_allocations;
    if (g_refuseAllocations) throw std::bad_alloc();
    if (void* p = std::malloc(size != 0 ? size : 1)) return p;
    throw std::bad_alloc();
}
}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return Allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}
void operator delete(void* p) noexcept {
    std::free(p);
}
void operator delete[](void* p) noexcept {
    std::free(p);
}
void operator delete(void* p, std::size_t) noexcept {
    std::free(p);
}
void operator delete[](void* p, std::size_t) noexcept {
    std::free(p);
}

namespace {

typedef lu_numeric_punctuation Punctuation;

std::u16string Text(const ucs2string_formatter& f) {
    return std::u16string(f.data(), f.data() + f.length());
}

ilu_ptr<lu_num_put> Facet(const lu_numpunct* punct = nullptr) {
    return ilu_ptr<lu_num_put>(punct != nullptr ? new lu_num_put(punct, 0) : new lu_num_put(0u));
}

ilu_ptr<lu_numpunct> PunctWithMode(std::int32_t mode) {
    const Punctuation::StaticStorage record{
        mode, '.', 0, nullptr, Punctuation::kDefaultBlock, Punctuation::kDefaultFormats};
    return ilu_ptr<lu_numpunct>(new lu_numpunct(&record, 0));
}

// The text of put(value), which must append to `out` and return it; the fill
// '*' must never appear.
template <class T>
std::u16string Put(const lu_num_put& facet, T value) {
    ucs2string_formatter out(reinterpret_cast<const unsigned char*>(">"));
    EXPECT_EQ(&facet.put(out, '*', value), &out);
    const std::u16string text = Text(out);
    EXPECT_EQ(text.substr(0, 1), u">");
    EXPECT_EQ(text.find(u'*'), std::u16string::npos);
    return text.substr(1);
}

struct Call {
    double value;
    int max_fraction, min_fraction, max_integer, exponent_step, min_exponent_digits;
    bool scientific, all_digits;
};

struct Converted {
    bool ok, negative, has_exponent, exponent_negative;
    std::u16string integer, fraction, exponent;
};

Converted Convert(const lu_num_put& facet, const Call& c) {
    // Filled formatters, to see them emptied; exponent_negative is written only
    // with an exponent, so its starting value shows through otherwise.
    ucs2string_formatter i(reinterpret_cast<const unsigned char*>("x"));
    ucs2string_formatter f(i), e(i);
    Converted r{false, true, true, true, {}, {}, {}};
    r.ok = facet.convert(c.value, c.max_fraction, c.min_fraction, c.max_integer, c.exponent_step,
                         c.min_exponent_digits, c.scientific, c.all_digits, i, f, e, r.negative,
                         r.has_exponent, r.exponent_negative);
    r.integer = Text(i);
    r.fraction = Text(f);
    r.exponent = Text(e);
    return r;
}

double FromBits(std::uint64_t bits) {
    double v;
    std::memcpy(&v, &bits, sizeof v);
    return v;
}

TEST(NumPutTest, DoublesInTheDefaultPunctuation) {
    const std::u16string e255 = u"1" + std::u16string(255, u'0') + u".0";
    const struct {
        double value;
        std::u16string text;
    } rows[] = {
        {0.0, u"0.0"},
        {-0.0, u"0.0"},
        {1.0, u"1.0"},
        {-1.5, u"-1.5"},
        {1234.5678, u"1234.5678"},
        {1.0 / 3.0, u"0.333333333333333"},
        {2.0 / 3.0, u"0.666666666666667"},
        {1.2345678901234567, u"1.23456789012346"},
        {1e15, u"1000000000000000.0"},
        {1e-5, u"0.00001"},
        {1e-18, u"0.0"},  // below 17 places; smallness never leads to an exponent
        {9.5e-18, u"0.00000000000000001"},
        {1e255, e255},
        {1e256, u"1.e256"},                  // min_fraction dropped on the switch; the point stays
        {9.999999999999999e255, u"1.e256"},  // the carry makes the 257th digit
        {1.5e300, u"1.5e300"},
        {-1e300, u"-1.e300"},
        {DBL_MAX, u"1.79769313486232e308"},
        {1e23, u"100000000000000000000000.0"},  // the double is 9.99...92e22
        {123456789012345678.0, u"123456789012346000.0"},
        {5e-324, u"0.0"},
    };
    const auto facet = Facet();
    for (const auto& row : rows) EXPECT_EQ(Put(*facet, row.value), row.text) << row.value;
}

TEST(NumPutTest, ConvertSplitsIntoDigitStrings) {
    const struct {
        Call call;
        std::u16string integer, fraction, exponent;
        bool has_exponent, exponent_negative, negative;
    } rows[] = {
        // Rounding on the first dropped digit, half up, no rounding to even.
        {{1234.5678, 2, 0, 256, 1, 0, false, false}, u"1234", u"57", u"", false, true, false},
        {{999.999, 2, 0, 256, 1, 0, false, false}, u"1000", u"", u"", false, true, false},
        {{0.006, 2, 0, 256, 1, 0, false, false}, u"", u"01", u"", false, true, false},
        {{0.0049, 2, 0, 256, 1, 0, false, false}, u"", u"", u"", false, true, false},
        {{0.5, 0, 0, 256, 1, 0, false, false}, u"1", u"", u"", false, true, false},
        {{2.5, 0, 0, 256, 1, 0, false, false}, u"3", u"", u"", false, true, false},
        {{1.005, 2, 0, 256, 1, 0, false, false}, u"1", u"", u"", false, true, false},
        {{-0.001, 2, 0, 256, 1, 0, false, false}, u"", u"", u"", false, true, true},
        {{1.5, 1, 4, 256, 1, 0, false, false}, u"1", u"5000", u"", false, true, false},
        // Scientific notation, by argument or by max_integer.
        {{9.99, 1, 0, 256, 1, 1, true, false}, u"1", u"", u"1", true, false, false},
        {{12345.0, 3, 0, 256, 3, 2, true, false}, u"12", u"345", u"03", true, false, false},
        {{0.00012, 3, 0, 256, 3, 2, true, false}, u"120", u"", u"06", true, true, false},
        {{0.0, 2, 2, 256, 1, 1, true, false}, u"", u"00", u"0", true, false, false},
        {{5.0, 1, 0, 256, 1, 0, true, false}, u"5", u"", u"", true, false, false},
        {{1.5e-7, 2, 0, 256, 3, 0, true, false}, u"150", u"", u"9", true, true, false},
        {{-4.2e5, 3, 0, 256, 1, 3, true, false}, u"4", u"2", u"005", true, false, true},
        {{12345.0, 3, 0, 256, 0, 0, true, false}, u"1", u"235", u"4", true, false, false},
        {{12345.0, 3, 0, 256, -3, 0, true, false}, u"1", u"235", u"4", true, false, false},
        {{123456.0, 2, 5, 3, 1, 0, false, false}, u"1", u"23456", u"5", true, false, false},
        {{1.1e-308, 1, 0, 256, 1, 0, true, false}, u"1", u"1", u"308", true, true, false},
        // Below 10^-308 every value is zero, with its own exponent.
        {{5e-309, 1, 0, 256, 1, 0, true, false}, u"", u"", u"309", true, true, false},
        // A rounding carry that needs a fourth integer digit where only three
        // may stand: the second try starts again from the unrounded digits,
        // and beyond the few digits made it keeps them all.
        {{999.7, 0, 0, 3, 1, 0, false, false}, u"0", u"9997", u"3", true, false, false},
        // all_digits keeps 15 digits whatever max_fraction and max_integer say.
        {{123456789.123456789, 2, 0, 3, 1, 0, false, true},
         u"123456789",
         u"123457",
         u"",
         false,
         true,
         false},
    };
    const auto facet = Facet();
    for (const auto& row : rows) {
        const Converted r = Convert(*facet, row.call);
        SCOPED_TRACE(testing::Message() << row.call.value << " mf " << row.call.max_fraction);
        EXPECT_TRUE(r.ok);
        EXPECT_EQ(r.integer, row.integer);
        EXPECT_EQ(r.fraction, row.fraction);
        EXPECT_EQ(r.exponent, row.exponent);
        EXPECT_EQ(r.has_exponent, row.has_exponent);
        EXPECT_EQ(r.exponent_negative, row.exponent_negative);
        EXPECT_EQ(r.negative, row.negative);
    }
}

TEST(NumPutTest, SpecialValuesAreTextWithoutSign) {
    const struct {
        double value;
        std::u16string integer, text;
        bool negative;
    } rows[] = {
        {FromBits(0x7FF0000000000001ull), u"0", u"#NAN", false},  // signalling
        {FromBits(0xFFF0000000000001ull), u"0", u"#NAN", false},
        {std::numeric_limits<double>::quiet_NaN(), u"0", u"#IND", false},
        {-std::numeric_limits<double>::quiet_NaN(), u"0", u"#IND", false},
        {HUGE_VAL, u"1", u"#INF", false},
        {-HUGE_VAL, u"1", u"#INF", true},
    };
    for (const auto& row : rows) {
        const Converted r = Convert(*Facet(), {row.value, 2, 2, 256, 1, 2, true, false});
        EXPECT_FALSE(r.ok);
        EXPECT_EQ(r.integer, row.integer);
        EXPECT_EQ(r.fraction, row.text);
        EXPECT_EQ(r.exponent, u"");
        EXPECT_FALSE(r.has_exponent);
        EXPECT_EQ(r.negative, row.negative);
        for (int mode : {0, 1, 2, 3, 4, 9}) {
            EXPECT_EQ(Put(*Facet(PunctWithMode(mode).get()), row.value), row.text) << mode;
        }
    }
}

TEST(NumPutTest, NegativeModesPlaceTheSign) {
    const struct {
        std::int32_t mode;
        std::u16string long_text, double_text, exponent_text;
    } rows[] = {
        {0, u"(42)", u"(1.5)", u"(1.5e300)"},
        {1, u"-42", u"-1.5", u"-1.5e300"},
        {2, u"- 42", u"- 1.5", u"- 1.5e300"},
        {3, u"42-", u"1.5-", u"1.5e300-"},
        {4, u"42 -", u"1.5 -", u"1.5e300 -"},
        // Unknown modes: a long has the sign in front, a double none at all.
        {5, u"-42", u"1.5", u"1.5e300"},
        {-1, u"-42", u"1.5", u"1.5e300"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mode);
        const auto facet = Facet(PunctWithMode(row.mode).get());
        EXPECT_EQ(Put(*facet, -42L), row.long_text);
        EXPECT_EQ(Put(*facet, -1.5), row.double_text);
        EXPECT_EQ(Put(*facet, -1.5e300), row.exponent_text);
        EXPECT_EQ(Put(*facet, 42L), u"42");
        EXPECT_EQ(Put(*facet, 1.5), u"1.5");
        EXPECT_EQ(Put(*facet, 42UL), u"42");
        EXPECT_EQ(Put(*facet, true), u"1");
        EXPECT_EQ(Put(*facet, false), u"0");
    }
}

TEST(NumPutTest, IntegersKeepAllSixtyFourBits) {
    const auto facet = Facet();
    EXPECT_EQ(Put(*facet, 0L), u"0");
    EXPECT_EQ(Put(*facet, -2147483647L - 1), u"-2147483648");
    EXPECT_EQ(Put(*facet, 2147483648L), u"2147483648");
    EXPECT_EQ(Put(*facet, LONG_MIN), u"-9223372036854775808");
    EXPECT_EQ(Put(*facet, LONG_MAX), u"9223372036854775807");
    EXPECT_EQ(Put(*facet, 0UL), u"0");
    EXPECT_EQ(Put(*facet, 4294967295UL), u"4294967295");
    EXPECT_EQ(Put(*facet, ULONG_MAX), u"18446744073709551615");
    EXPECT_EQ(Put(*Facet(PunctWithMode(0).get()), LONG_MIN), u"(9223372036854775808)");
}

// Native digits in the lower-case table: Arabic-Indic, with U+066B as the
// decimal point, U+2212 as the sign and 'x' as the lower exponent letter; the
// upper-case table holds the same digits, or Extended Arabic-Indic ones.
TEST(NumPutTest, EveryDigitComesFromTheLowerCaseTable) {
    const auto native = [](const std::u16string& ascii) {
        std::u16string text;
        for (char16_t c : ascii) {
            text += c >= u'0' && c <= u'9' ? char16_t(0x0660 + (c - u'0'))
                    : c == u'.'            ? char16_t(0x066B)
                    : c == u'-'            ? char16_t(0x2212)
                    : c == u'e'            ? u'x'
                                           : c;
        }
        return text;
    };
    for (char16_t upper_zero : {char16_t(0x0660), char16_t(0x06F0)}) {
        unsigned short block[Punctuation::kBlockSize] = {'+', 0x2212};
        for (int d = 0; d < 16; ++d) {
            block[Punctuation::kLowerDigits + d] = d < 10 ? 0x0660 + d : 'a' + d - 10;
            block[Punctuation::kUpperDigits + d] = d < 10 ? upper_zero + d : 'A' + d - 10;
        }
        block[Punctuation::kLowerExponent] = 'x';
        block[Punctuation::kUpperExponent] = 'X';
        const ilu_ptr<lu_numpunct> punct(new lu_numpunct(0u));
        punct->init(0x066B, 0, ucs2string(), block);
        const auto facet = Facet(punct.get());
        EXPECT_EQ(Put(*facet, -1234.5), native(u"-1234.5"));
        EXPECT_EQ(Put(*facet, 0.0), native(u"0.0"));
        EXPECT_EQ(Put(*facet, 1.5e300), native(u"1.5e300"));
        EXPECT_EQ(Put(*facet, 9876543210.0123), native(u"9876543210.0123"));
        EXPECT_EQ(Put(*facet, -907L), native(u"-907"));
        EXPECT_EQ(Put(*facet, 1234567890UL), native(u"1234567890"));
        EXPECT_EQ(Put(*facet, true), native(u"1"));
        EXPECT_EQ(Put(*facet, false), native(u"0"));
        const Converted r = Convert(*facet, {0.00012, 3, 0, 256, 3, 2, true, false});
        EXPECT_EQ(r.integer + u"|" + r.fraction + u"|" + r.exponent, native(u"120||06"));
        const Converted nan =
            Convert(*facet, {FromBits(0x7FF0000000000001ull), 3, 0, 256, 1, 0, false, false});
        EXPECT_EQ(nan.integer + nan.fraction, native(u"0") + u"#NAN");
    }
}

// The mode, the sign and the exponent letter are read from the fields; only
// the decimal point goes through its virtual operation.
TEST(NumPutTest, OnlyTheDecimalPointIsReadThroughItsSlot) {
    class Overriding : public lu_numpunct {
      public:
        Overriding() : lu_numpunct(0u) {}

      protected:
        unsigned short do_decimal_point() const override { return ','; }
        eNegativeMode do_mode() const override { return eParentheses; }
        unsigned short do_negative_sign() const override { return '~'; }
        unsigned short do_exponent_sign() const override { return 'E'; }
    };
    const ilu_ptr<lu_numpunct> punct(new Overriding);
    const auto facet = Facet(punct.get());
    EXPECT_EQ(Put(*facet, -1.5e300), u"-1,5e300");
    EXPECT_EQ(Put(*facet, -7L), u"-7");
}

TEST(NumPutTest, FailuresInsideConvertAreWrittenAsERR) {
    const auto facet = Facet();
    // Past the largest length of a formatter, in the fraction and the exponent.
    Converted r = Convert(*facet, {0.5, 1, 70000, 256, 1, 0, false, false});
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.fraction, u"5#ERR");
    r = Convert(*facet, {12345.0, 3, 0, 256, 3, 70000, true, false});
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.integer, u"12");
    EXPECT_EQ(r.fraction, u"345#ERR");
    // Out of memory when a formatter must leave its inline buffer.
    ucs2string_formatter integer, fraction, exponent;
    bool negative, has_exponent, exponent_negative;
    for (bool refuse : {true, false}) {
        g_refuseAllocations = refuse;
        const bool ok = facet->convert(0.25, 2, 600, 256, 1, 0, false, false, integer, fraction,
                                       exponent, negative, has_exponent, exponent_negative);
        g_refuseAllocations = false;
        EXPECT_EQ(ok, !refuse);
        EXPECT_EQ(Text(fraction), refuse ? u"25#ERR" : u"25" + std::u16string(598, u'0'));
    }
}

TEST(NumPutTest, AFacetHoldsACountOnItsPunctuation) {
    const ilu_ptr<lu_numpunct> punct(new lu_numpunct(0u));
    {
        const ilu_ptr<lu_num_put> facet(new lu_num_put(punct.get(), 0));
        EXPECT_EQ(punct->GetReferenceCount(), 2u);
        EXPECT_EQ(facet->GetReferenceCount(), 1u);
    }
    EXPECT_EQ(punct->GetReferenceCount(), 1u);
    // A null punctuation is kept (and never used here); a literal 0 is a count.
    lu_num_put* unusable = new lu_num_put(nullptr, 1);
    unusable->ReleaseReference();
    lu_num_put* counted = new lu_num_put(0);
    EXPECT_EQ(counted->GetReferenceCount(), 0u);
    EXPECT_EQ(Put(*counted, -2.5), u"-2.5");
    // Installed in a locale, which owns it.
    auto* impl = new lu_locale::_Impl(4, 0);
    impl->_M_install_facet(&lu_num_put::id, counted);
    const lu_locale locale(impl);
    EXPECT_EQ(&lu_use_facet<lu_num_put>(locale), counted);
    EXPECT_EQ(counted->GetReferenceCount(), 1u);
}

// The digits depend on each double operation being rounded once: no extended
// precision and no fused multiply-add.
TEST(NumPutTest, DoubleArithmeticIsUnfused) {
    static_assert(FLT_EVAL_METHOD == 0, "doubles are evaluated in double precision");
    volatile double x = 1.0 + std::ldexp(1.0, -30), y = x, z = 1.0 + std::ldexp(1.0, -29);
    // x * y is 1 + 2^-29 + 2^-60, rounded to 1 + 2^-29; fused, 2^-60 would remain.
    EXPECT_EQ(x * y - z, 0.0);
    EXPECT_EQ(std::fma(x, y, -z), std::ldexp(1.0, -60));
    // Values whose digits a fused product and difference would change in the
    // last place (to ...976 and ...758119).
    const auto facet = Facet();
    Converted r =
        Convert(*facet, {FromBits(0x3F51617FF535D759ull), 17, 0, 256, 1, 0, false, false});
    EXPECT_EQ(r.integer + u"." + r.fraction, u".00106084342845977");
    r = Convert(*facet, {FromBits(0x41982288B708507Aull), 17, 0, 256, 1, 0, false, false});
    EXPECT_EQ(r.integer + u"." + r.fraction, u"101229101.75812");
}

TEST(NumPutTest, NoAllocationWithinTheInlineBuffers) {
    const auto facet = Facet();
    const double values[] = {0.0,    -0.0,     1.0,          -1.5,         1.0 / 3.0,
                             1e-5,   1e255,    -1e255,       1e256,        DBL_MAX,
                             5e-324, HUGE_VAL, std::nan(""), 123456.789e-3};
    ucs2string_formatter out, integer, fraction, exponent;
    bool negative, has_exponent, exponent_negative;
    const long before = g_allocations;
    for (double v : values) {
        out.clear();
        facet->put(out, ' ', v);
        facet->put(out, ' ', static_cast<long>(v > 0 && v < 1e18 ? v : -5));
        facet->put(out, ' ', ULONG_MAX);
        facet->put(out, ' ', v > 0);
        facet->convert(v, 20, 0, 15, 1, 1, false, false, integer, fraction, exponent, negative,
                       has_exponent, exponent_negative);
        facet->convert(v, 400, 400, 256, 3, 3, true, false, integer, fraction, exponent, negative,
                       has_exponent, exponent_negative);
    }
    EXPECT_EQ(g_allocations, before);
    // A result beyond the inline buffer does allocate: the count sees it.
    facet->convert(0.5, 1, 600, 256, 1, 0, false, false, integer, fraction, exponent, negative,
                   has_exponent, exponent_negative);
    EXPECT_GT(g_allocations, before);
}

// Fixed notation keeps 15 significant digits of every magnitude from 1e-3 up
// (below, 17 places hold fewer), scientific notation from 1e256 on; zero and
// the special values carry no digits to compare. So each text, with its
// decimal point mapped back, reads as the value within one part in 1e14.
TEST(NumPutTest, OutputReadsBackWithinOnePartIn1e14) {
    const ilu_ptr<lu_numpunct> punct(new lu_numpunct(0u));
    punct->init(',', 0, ucs2string(), Punctuation::kDefaultBlock);
    const auto facet = Facet(punct.get());
    std::mt19937_64 random(42);
    std::uniform_real_distribution<double> mantissa(1.0, 2.0);
    std::uniform_int_distribution<int> power(-9, 1023);
    for (int n = 0; n < 20000; ++n) {
        const double m = mantissa(random);
        const double v = std::ldexp(n % 2 ? -m : m, power(random));
        std::string text;
        for (char16_t c : Put(*facet, v)) text += c == u',' ? '.' : static_cast<char>(c);
        char* end = nullptr;
        const double back = std::strtod(text.c_str(), &end);
        ASSERT_EQ(*end, '\0') << text;
        EXPECT_LE(std::fabs(back - v), 1e-14 * std::fabs(v)) << text;
        EXPECT_EQ(text.find('e') != std::string::npos, std::fabs(v) >= 1e256) << text;
    }
}

}  // namespace

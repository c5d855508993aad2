// The number output facet lu_num_put: doubles, the digit strings of convert
// where the exact reference does not reach, special values, failures, every
// negative mode, and native digits.
#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "kai18n/facets/lu_num_put.h"
#include "kai18n/frame/ilu_ptr.h"
#include "test_support.h"

namespace {

using Facet = ilu_ptr<lu_num_put>;

std::u16string Text(const ucs2string_formatter& f) {
    return std::u16string(f.data(), f.data() + f.length());
}

Facet WithMode(std::int32_t mode) {
    using P = lu_numeric_punctuation;
    const P::StaticStorage record{mode, '.', 0, nullptr, P::kDefaultBlock, P::kDefaultFormats};
    return Facet(new lu_num_put(ilu_ptr<lu_numpunct>(new lu_numpunct(&record, 0)).get(), 0));
}

// The text of put(value), which must append to `out`, and never the fill '*'.
template <class T>
std::u16string Put(const lu_num_put& facet, T value) {
    ucs2string_formatter out(reinterpret_cast<const unsigned char*>(">"));
    EXPECT_EQ(&facet.put(out, '*', value), &out);
    const std::u16string text = Text(out);
    EXPECT_EQ(text.substr(0, 1), u">");
    EXPECT_EQ(text.find(u'*'), std::u16string::npos);
    return text.substr(1);
}

double FromBits(std::uint64_t bits) {
    double v;
    std::memcpy(&v, &bits, sizeof v);
    return v;
}

// convert's result as "-" when negative, integer digits, ".", fraction digits,
// "e" or "e-" and exponent digits, and " ok"; into formatters that it must empty.
std::u16string Convert(const lu_num_put& facet, double value, int max_fraction, int min_fraction,
                       int max_integer, int step, int exponent_digits, bool scientific,
                       bool all_digits = false) {
    ucs2string_formatter i(reinterpret_cast<const unsigned char*>("x")), f(i), e(i);
    bool negative = true, has_exponent = true, exponent_negative = true;
    const bool ok =
        facet.convert(value, max_fraction, min_fraction, max_integer, step, exponent_digits,
                      scientific, all_digits, i, f, e, negative, has_exponent, exponent_negative);
    return (negative ? u"-" : u"") + Text(i) + u"." + Text(f) +
           (has_exponent ? (exponent_negative ? u"e-" : u"e") + Text(e) : Text(e)) +
           (ok ? u" ok" : u"");
}

// Rows "value=text" of put(value), and "value max_fraction min_fraction
// max_integer exponent_step min_exponent_digits kind=text" of Convert, the kind
// "f" (fixed), "s" (scientific) or "a" (all digits).
void ExpectRows(const lu_num_put& facet, std::initializer_list<std::string> rows) {
    for (const std::string& row : rows) {
        const std::string head = row.substr(0, row.find('='));
        const std::u16string text(row.begin() + row.find('=') + 1, row.end());
        std::istringstream in(head);
        std::string value;
        int mf = 0, minf = 0, mi = 0, step = 0, digits = 0;
        char kind = 'p';
        in >> value >> mf >> minf >> mi >> step >> digits >> kind;
        const double v = std::strtod(value.c_str(), nullptr);
        EXPECT_EQ(kind == 'p'
                      ? Put(facet, v)
                      : Convert(facet, v, mf, minf, mi, step, digits, kind == 's', kind == 'a'),
                  text)
            << row;
    }
}

TEST(NumPutTest, DoublesAndDigitStrings) {
    const Facet facet(new lu_num_put(0u));
    // put: below 17 places smallness never leads to an exponent; at 1e256 the
    // switch to it drops min_fraction but keeps the point, also when a carry
    // makes the 257th digit; the double 1e23 is 9.99...92e22.
    ExpectRows(*facet,
               {"0=0.0", "-0=0.0", "-1.5=-1.5", "0.3333333333333333=0.333333333333333",
                "1e-5=0.00001", "1e-18=0.0", "9.5e-18=0.00000000000000001", "1e256=1.e256",
                "9.999999999999999e255=1.e256", "1.7976931348623157e308=1.79769313486232e308",
                "1e23=100000000000000000000000.0", "5e-324=0.0"});
    EXPECT_EQ(Put(*facet, 1e255), u"1" + std::u16string(255, u'0') + u".0");
    // convert, with the arguments that the reference test against the exact
    // expansion leaves alone: min_fraction, all_digits, steps below 1,
    // max_integer as the switch. Rounding is half up, never to even; below
    // 10^-308 every value is zero, with its own exponent; a carry needing a
    // fourth integer digit where only three may stand starts again from the
    // unrounded digits and keeps all it made; all_digits keeps 15 digits.
    ExpectRows(
        *facet,
        {"999.999 2 0 256 1 0 f=1000. ok", "0.0049 2 0 256 1 0 f=. ok", "2.5 0 0 256 1 0 f=3. ok",
         "-0.001 2 0 256 1 0 f=-. ok", "1.5 1 4 256 1 0 f=1.5000 ok", "0 2 2 256 1 1 s=.00e0 ok",
         "5 1 0 256 1 0 s=5.e ok", "1.5e-7 2 0 256 3 0 s=150.e-9 ok",
         "-4.2e5 3 0 256 1 3 s=-4.2e005 ok", "12345 3 0 256 0 0 s=1.235e4 ok",
         "12345 3 0 256 -3 0 s=1.235e4 ok", "123456 2 5 3 1 0 f=1.23456e5 ok",
         "1.1e-308 1 0 256 1 0 s=1.1e-308 ok", "5e-309 1 0 256 1 0 s=.e-309 ok",
         "999.7 0 0 3 1 0 f=0.9997e3 ok", "123456789.123456789 2 0 3 1 0 a=123456789.123457 ok",
         // Past the largest length of a formatter: fraction, exponent.
         "0.5 1 70000 256 1 0 f=.5#ERR", "12345 3 0 256 3 70000 s=12.345#ERRe",
         // Special values: text without sign, but for -#INF.
         "nan 2 2 256 1 2 s=0.#IND", "-nan 2 2 256 1 2 s=0.#IND", "inf 2 2 256 1 2 s=1.#INF",
         "-inf 2 2 256 1 2 s=-1.#INF"});
    // Digits that a fused multiply and subtract would change in the last
    // place (to ...976 and ...758119): each operation is rounded once.
    EXPECT_EQ(Convert(*facet, FromBits(0x3F51617FF535D759ull), 17, 0, 256, 1, 0, false),
              u".00106084342845977 ok");
    EXPECT_EQ(Convert(*facet, FromBits(0x41982288B708507Aull), 17, 0, 256, 1, 0, false),
              u"101229101.75812 ok");
    for (const double signalling :
         {FromBits(0x7FF0000000000001ull), FromBits(0xFFF0000000000001ull)})
        EXPECT_EQ(Convert(*facet, signalling, 2, 2, 256, 1, 2, true), u"0.#NAN");
    for (const double special : {FromBits(0x7FF0000000000001ull), -HUGE_VAL, std::nan("")}) {
        const std::u16string text = Convert(*facet, special, 1, 1, 1, 1, 1, false);
        EXPECT_EQ(Put(*WithMode(0), special), text.substr(text.find(u'#')));
    }
}

// Rows "mode|put(-42L)|put(-1.5)|put(-1.5e300)"; unknown modes put the sign
// of a long in front, and none for a double.
TEST(NumPutTest, NegativeModesPlaceTheSign) {
    for (const std::u16string row :
         {u"0|(42)|(1.5)|(1.5e300)", u"1|-42|-1.5|-1.5e300", u"2|- 42|- 1.5|- 1.5e300",
          u"3|42-|1.5-|1.5e300-", u"4|42 -|1.5 -|1.5e300 -", u"5|-42|1.5|1.5e300",
          u"-1|-42|1.5|1.5e300"}) {
        const Facet facet = WithMode(row[0] == u'-' ? -1 : row[0] - u'0');
        EXPECT_EQ(row.substr(0, row.find(u'|') + 1) + Put(*facet, -42L) + u"|" + Put(*facet, -1.5) +
                      u"|" + Put(*facet, -1.5e300),
                  row);
        EXPECT_EQ(Put(*facet, 42L) + Put(*facet, 1.5), u"421.5");
    }
    const Facet facet(new lu_num_put(0u));
    EXPECT_EQ(Put(*facet, 0L) + u" " + Put(*facet, LONG_MIN) + u" " + Put(*facet, LONG_MAX),
              u"0 -9223372036854775808 9223372036854775807");
    EXPECT_EQ(Put(*facet, 0UL) + u" " + Put(*facet, ULONG_MAX), u"0 18446744073709551615");
    EXPECT_EQ(Put(*WithMode(0), LONG_MIN), u"(9223372036854775808)");
}

// Native digits in the lower-case table: Arabic-Indic, with U+066B as the
// decimal point, U+2212 as the sign and 'x' as the lower exponent letter; the
// upper-case table holds Extended Arabic-Indic digits, which must not appear.
TEST(NumPutTest, EveryDigitComesFromTheLowerCaseTable) {
    const test_support::Units block = test_support::UnitsOf(
        u"+\u2212\u0660\u0661\u0662\u0663\u0664\u0665\u0666\u0667\u0668\u0669abcdef"
        u"\u06F0\u06F1\u06F2\u06F3\u06F4\u06F5\u06F6\u06F7\u06F8\u06F9ABCDEFxX");
    const ilu_ptr<lu_numpunct> punct(new lu_numpunct(0u));
    punct->init(0x066B, 0, ucs2string(), block.data());
    const Facet facet(new lu_num_put(punct.get(), 0));
    EXPECT_EQ(Put(*facet, -1234.5) + u" " + Put(*facet, 0.0) + u" " + Put(*facet, 1.5e300),
              u"\u2212\u0661\u0662\u0663\u0664\u066B\u0665 \u0660\u066B\u0660 "
              u"\u0661\u066B\u0665x\u0663\u0660\u0660");
    EXPECT_EQ(Put(*facet, -907L) + u" " + Put(*facet, 1234567890UL) + Put(*facet, true) +
                  Put(*facet, false),
              u"\u2212\u0669\u0660\u0667 \u0661\u0662\u0663\u0664\u0665\u0666\u0667\u0668\u0669"
              u"\u0660\u0661\u0660");
    // The exponent's sign is not written by convert; its zeros are native.
    EXPECT_EQ(Convert(*facet, 0.00012, 3, 0, 256, 3, 2, true),
              u"\u0661\u0662\u0660.e-\u0660\u0666 ok");
    EXPECT_EQ(Convert(*facet, FromBits(0x7FF0000000000001ull), 3, 0, 256, 1, 0, false) +
                  Convert(*facet, HUGE_VAL, 3, 0, 256, 1, 0, false),
              u"\u0660.#NAN\u0661.#INF");
}

}  // namespace

#include <gtest/gtest.h>
#include <unicode/ustring.h>

#include <random>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/utf8_conversion.h"
#include "test_support.h"

using namespace test_support;

namespace {

unsigned int Size(const Bytes& b) {
    return static_cast<unsigned int>(b.size());
}
unsigned int Size(const Units& u) {
    return static_cast<unsigned int>(u.size());
}

Bytes ToUtf8(const Units& units) {
    unsigned char* out = nullptr;
    unsigned int bytes = 12345;
    EXPECT_EQ(UCS2_ConvertToUTF8(units.data(), Size(units), &out, &bytes), LU_S_OK);
    EXPECT_NE(out, nullptr);  // not null even for no units
    Bytes result(out, out + bytes);
    delete[] out;
    return result;
}

// Returns the code; on failure both outputs must have been reset.
long ToUcs2(const Bytes& bytes, Units* units) {
    unsigned short* out = reinterpret_cast<unsigned short*>(1);
    unsigned int count = 999;
    const long rc = UTF8_ConvertToUCS2(bytes.data(), Size(bytes), &out, &count);
    if (rc < 0) {
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(count, 0u);
    }
    units->assign(out, out + count);
    delete[] out;
    return rc;
}

// clang-format off
TEST(Ucs2ConvertToUtf8Test, EncodesEachUnitInOneToThreeBytes) {
    const std::pair<Units, Bytes> cases[] = {
        {{}, {}}, {{0x41}, {0x41}}, {{0x7F}, {0x7F}}, {{0x00}, {0x00}},
        {{0x80}, {0xC2, 0x80}}, {{0x7FF}, {0xDF, 0xBF}}, {{0x800}, {0xE0, 0xA0, 0x80}},
        {{0x20AC}, {0xE2, 0x82, 0xAC}}, {{0xFFFF}, {0xEF, 0xBF, 0xBF}},
        // A surrogate pair is two ordinary units here: six bytes.
        {{0xD83D, 0xDE00}, {0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}},
        {{0x61, 0x62, 0x63, 0x64, 0xE9, 0x65}, {0x61, 0x62, 0x63, 0x64, 0xC3, 0xA9, 0x65}},
    };
    for (const auto& [units, bytes] : cases) EXPECT_EQ(ToUtf8(units), bytes);
}

TEST(Utf8GetCharCountTest, CountsSequencesOrZeroOnOverrun) {
    const std::pair<Bytes, unsigned int> cases[] = {
        {{}, 0}, {{0xE2, 0x82}, 0}, {{0xFE}, 0},
        {{0x80}, 1},  // a stray continuation byte is a sequence of one
        {{0x41, 0xE2, 0x82, 0xAC, 0x42}, 3}, {{0xF0, 0x9F, 0x98, 0x80}, 1},
        {{0xFC, 0x80, 0x80, 0x80, 0x80, 0x80}, 1},
        {{0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0xC3}, 0},
        {{0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0xC3, 0xA9}, 10},
        {{0xC3, 0xA9, 0xC3, 0xA9, 0xC3, 0xA9, 0xC3, 0xA9, 0xC3}, 0},
    };
    for (const auto& [bytes, count] : cases) EXPECT_EQ(UTF8_GetCharCount(bytes.data(), Size(bytes)), count);
}

TEST(Utf8ConvertToUcs2Test, DecodesWithoutCheckingContinuationBytes) {
    const std::pair<Bytes, Units> cases[] = {
        {{0x80}, {0x0080}}, {{0x41, 0xC3, 0xA9}, {0x41, 0xE9}}, {{0xE2, 0x82, 0xAC}, {0x20AC}},
        {{0xEF, 0xBF, 0xBF}, {0xFFFF}},
        // Encoded surrogates decode to the surrogate units.
        {{0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}, {0xD83D, 0xDE00}},
        // Wrong continuation bytes still add their values, kept to 16 bits.
        {{0xC3, 0x41}, {0x0081}}, {{0xE0, 0x00, 0x00}, {0xDF80}}, {{0xC0, 0x80}, {0x0000}},
        // A block of two-byte sequences followed by ASCII.
        {{0xCA, 0xA4, 0xCB, 0x98, 0xC7, 0xA8, 0xDA, 0x86, 0x25}, {0x2A4, 0x2D8, 0x1E8, 0x686, 0x25}},
    };
    for (const auto& [bytes, expected] : cases) {
        Units units;
        EXPECT_EQ(ToUcs2(bytes, &units), LU_S_OK);
        EXPECT_EQ(units, expected);
    }
    // Empty, overrunning, and four- or six-byte sequences are refused.
    for (const Bytes& bad : {Bytes{}, Bytes{0x41, 0xE2, 0x82}, Bytes{0x41, 0xF0, 0x9F, 0x98, 0x80},
                             Bytes{0xFC, 0x80, 0x80, 0x80, 0x80, 0x80, 0x41}}) {
        Units units;
        EXPECT_EQ(ToUcs2(bad, &units), LU_E_INVALID_ARG);
    }
    unsigned short* out = nullptr;
    unsigned int count = 5;
    EXPECT_EQ(UTF8_ConvertToUCS2(nullptr, 3, &out, &count), LU_E_INVALID_ARG);
    EXPECT_EQ(count, 0u);
}
// clang-format on

TEST(Utf8ConvertNextCharTest, AdvancesOrReportsFfffAndStays) {
    const unsigned char text[] = {0x41, 0xC3, 0xA9, 0xE2, 0x82, 0xAC, 0xF0, 0x9F, 0x98, 0x80};
    const unsigned char* const last = text + sizeof text - 1;
    // Each step: the last byte that may be read, the unit, the cursor after it.
    const struct {
        const unsigned char* end;
        unsigned short unit;
        int after;
    } steps[] = {{last, 0x41, 1},
                 {last, 0xE9, 3},
                 {text + 4, 0xFFFF, 3},  // one byte short of the euro sign
                 {text + 5, 0x20AC, 6},
                 {last, 0xFFFF, 6}};  // four-byte sequence
    const unsigned char* cursor = text;
    for (const auto& step : steps) {
        EXPECT_EQ(UTF8_ConvertNextChar(&cursor, step.end), step.unit);
        EXPECT_EQ(cursor, text + step.after);
    }
}

// clang-format off
TEST(Utf8TraitsTest, LengthAndAssignPairSurrogatesAndDropBrokenPairs) {
    const std::pair<Units, Bytes> cases[] = {
        {{0xD83D, 0xDE00}, {0xF0, 0x9F, 0x98, 0x80}}, {{0xDBFF, 0xDFFF}, {0xF4, 0x8F, 0xBF, 0xBF}},
        {{0xD800, 0x0041}, {}},  // the high surrogate and the letter are both dropped
        {{0xDC00}, {0xED, 0xB0, 0x80}},  // a lone low surrogate counts like any unit
        {{0x41, 0xD800}, {0x41}},  // a final high surrogate adds nothing
        {{0x41, 0xD800, 0x42, 0x43}, {0x41, 0x43}},
        {{0xD800, 0xD800, 0xDC00}, {0xED, 0xB0, 0x80}},
        {{0x41, 0x7FF, 0x800}, {0x41, 0xDF, 0xBF, 0xE0, 0xA0, 0x80}},
    };
    // clang-format on
    for (const auto& [units, bytes] : cases) {
        const unsigned int n = lu_utf8_traits::length(units.data(), Size(units));
        ASSERT_EQ(n, bytes.size());
        Units terminated = units;
        terminated.push_back(0);
        EXPECT_EQ(lu_utf8_traits::length(terminated.data()), n);
        Bytes out(n + 1, 0xAA);
        lu_utf8_traits::assign(out.data(), n, units.data());
        EXPECT_EQ(Bytes(out.begin(), out.begin() + n), bytes);
        EXPECT_EQ(out[n], 0xAA);  // nothing written beyond
    }
    EXPECT_EQ(lu_utf8_traits::length(static_cast<unsigned short>(0x20AC), 3u), 9u);
}

TEST(Utf8TraitsTest, AssignRepeatedUnitFillsWholeSequences) {
    const std::pair<unsigned short, Bytes> cases[] = {
        {0x20AC, {0xE2, 0x82, 0xAC, 0xE2, 0x82, 0xAC, 0xE2, 0x82, 0xAC}},
        {'z', {'z', 'z', 'z', 'z'}},
        {0xD800, {0xED, 0xA0, 0x80}},
    };
    for (const auto& [unit, bytes] : cases) {
        Bytes out(bytes.size(), 0);
        lu_utf8_traits::assign(out.data(), Size(out), unit);
        EXPECT_EQ(out, bytes);
    }
}

TEST(Utf8TraitsTest, CharLengthAndCopyDecodeFourByteSequencesAsPairs) {
    const Bytes text = {0x41, 0xF0, 0x9F, 0x98, 0x80, 0xE2, 0x82, 0xAC};
    const unsigned int units = lu_utf8_traits::char_length(text.data(), 8);
    ASSERT_EQ(units, 4u);
    Units out(units + 1, 0xAAAA);
    lu_utf8_traits::copy(out.data(), text.data(), units);
    EXPECT_EQ(out, (Units{0x41, 0xD83D, 0xDE00, 0x20AC, 0xAAAA}));

    // A five-byte sequence counts two units and cannot be decoded.
    const Bytes five = {0xF8, 0x88, 0x80, 0x80, 0x80};
    EXPECT_EQ(lu_utf8_traits::char_length(five.data(), 5), 2u);
    Units two(2);
    EXPECT_EQ(ThrownCode([&] { lu_utf8_traits::copy(two.data(), five.data(), 2); }),
              LU_E_INVALID_ARG);

    // A sequence cut short by the end of the range is not counted.
    EXPECT_EQ(lu_utf8_traits::char_length(Utf8("A\xE2\x82")), 1u);
    EXPECT_EQ(lu_utf8_traits::char_length(Utf8("\xF0\x9F\x98")), 0u);
}

TEST(Utf8TraitsTest, SequenceShapesByteCountsAndOrder) {
    const std::pair<unsigned int, unsigned int> codePoints[] = {
        {0x7F, 1},     {0x80, 2},      {0x7FF, 2},     {0x800, 3},
        {0xFFFF, 3},   {0x10000, 4},   {0x10FFFF, 4},  {0x1FFFFF, 4},
        {0x200000, 5}, {0x3FFFFFF, 5}, {0x4000000, 6}, {0x80000000u, 6}};
    for (const auto& [cp, size] : codePoints) EXPECT_EQ(lu_utf8_traits::GetUTF8Bytes(cp), size);
    const std::pair<unsigned char, unsigned int> leads[] = {
        {0x00, 1}, {0x7F, 1}, {0x80, 1}, {0xBF, 1}, {0xC0, 2}, {0xDF, 2}, {0xE0, 3}, {0xEF, 3},
        {0xF0, 4}, {0xF7, 4}, {0xF8, 5}, {0xFB, 5}, {0xFC, 6}, {0xFD, 6}, {0xFE, 6}, {0xFF, 6}};
    for (const auto& [lead, size] : leads) {
        EXPECT_EQ(lu_utf8_traits::GetNbBytes(lead), size);
        EXPECT_EQ(lu_utf8_traits::is_lead_byte(lead), lead < 0x80 || lead >= 0xC0);
    }
    EXPECT_EQ(lu_utf8_traits::compare(Utf8("\xFF"), Utf8("\x01"), 1), 1);  // unsigned bytes
    EXPECT_EQ(lu_utf8_traits::compare(Utf8("ab"), Utf8("ac"), 2), -1);
    EXPECT_EQ(lu_utf8_traits::compare(Utf8("ab"), Utf8("ac"), 1), 0);
    EXPECT_EQ(lu_utf8_traits::compare(Utf8("x"), Utf8("y"), 0), 0);
    const unsigned short unit = 0x41;
    EXPECT_THROW(lu_utf8_traits::compare(Utf8("A"), &unit, 1), int);
}

// clang-format off
TEST(Utf8TraitsTest, StructuralValidity) {
    const std::pair<Bytes, bool> cases[] = {
        {{0x80}, false}, {{0xE2, 0x82}, false}, {{0xE2, 0x41, 0xAC}, false}, {{0x41, 0xA9}, false},
        {{0xC0, 0x80}, true},        // overlong forms pass,
        {{0xED, 0xA0, 0x80}, true},  // so do encoded surrogates
        {{0xF8, 0x88, 0x80, 0x80, 0x80}, true}, {{0xFE, 0x80, 0x80, 0x80, 0x80, 0x80}, true},
        {{0x41, 0xC3, 0xA9, 0x42}, true},
    };
    for (const auto& [bytes, valid] : cases) EXPECT_EQ(lu_utf8_traits::_is_valid_utf8(bytes.data(), Size(bytes)), valid);
    EXPECT_TRUE(lu_utf8_traits::_is_valid_utf8(nullptr, 0));
}
// clang-format on

// --- differential tests against ICU ---------------------------------------

// Random text; surrogates come only as well-formed pairs, when `pairs` is set.
Units RandomText(std::mt19937& rng, std::size_t length, bool pairs) {
    const std::pair<unsigned, unsigned> ranges[] = {
        {0x01, 0x7F}, {0x80, 0x7FF}, {0x800, 0xD7FF}, {0xE000, 0xFFFF}, {0x10000, 0x10FFFF}};
    std::uniform_int_distribution<int> kind(0, pairs ? 4 : 3);
    Units units;
    while (units.size() < length) {
        const auto& range = ranges[kind(rng)];
        const unsigned cp = std::uniform_int_distribution<unsigned>(range.first, range.second)(rng);
        if (cp < 0x10000) {
            units.push_back(static_cast<unsigned short>(cp));
        } else {
            units.push_back(static_cast<unsigned short>(0xD800 + ((cp - 0x10000) >> 10)));
            units.push_back(static_cast<unsigned short>(0xDC00 + (cp & 0x3FF)));
        }
    }
    return units;
}

Bytes IcuToUtf8(const Units& units) {
    UErrorCode status = U_ZERO_ERROR;
    Bytes bytes(units.size() * 3);
    int32_t length = 0;
    u_strToUTF8(reinterpret_cast<char*>(bytes.data()), static_cast<int32_t>(bytes.size()), &length,
                reinterpret_cast<const UChar*>(units.data()), static_cast<int32_t>(units.size()),
                &status);
    EXPECT_TRUE(U_SUCCESS(status));
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

Units IcuFromUtf8(const Bytes& bytes) {
    UErrorCode status = U_ZERO_ERROR;
    Units units(bytes.size());
    int32_t length = 0;
    u_strFromUTF8(reinterpret_cast<UChar*>(units.data()), static_cast<int32_t>(units.size()),
                  &length, reinterpret_cast<const char*>(bytes.data()),
                  static_cast<int32_t>(bytes.size()), &status);
    EXPECT_TRUE(U_SUCCESS(status));
    units.resize(static_cast<std::size_t>(length));
    return units;
}

TEST(Utf8DifferentialTest, FreeConversionsAgreeWithIcuOnBmpText) {
    std::mt19937 rng(20261122);
    for (int round = 0; round < 200; ++round) {
        const Units units = RandomText(rng, 1 + round * 7, false);
        const Bytes bytes = ToUtf8(units);
        ASSERT_EQ(bytes, IcuToUtf8(units)) << "round " << round;
        Units back;
        ASSERT_EQ(ToUcs2(bytes, &back), LU_S_OK);
        ASSERT_EQ(back, IcuFromUtf8(bytes)) << "round " << round;
    }
}

TEST(Utf8DifferentialTest, TraitsAgreeWithIcuOnTextWithPairs) {
    std::mt19937 rng(7);
    for (int round = 0; round < 200; ++round) {
        const Units units = RandomText(rng, 1 + round * 5, true);
        Bytes bytes(lu_utf8_traits::length(units.data(), Size(units)));
        lu_utf8_traits::assign(bytes.data(), Size(bytes), units.data());
        ASSERT_EQ(bytes, IcuToUtf8(units)) << "round " << round;
        Units back(lu_utf8_traits::char_length(bytes.data(), Size(bytes)));
        lu_utf8_traits::copy(back.data(), bytes.data(), Size(back));
        ASSERT_EQ(back, IcuFromUtf8(bytes)) << "round " << round;
    }
}

}  // namespace

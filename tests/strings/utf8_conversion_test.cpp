#include <gtest/gtest.h>
#include <unicode/ustring.h>

#include <random>

#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/utf8_conversion.h"
#include "test_support.h"

using namespace test_support;

namespace {

Bytes ToUtf8(const Units& units) {
    unsigned char* out = nullptr;
    unsigned int bytes = 12345;
    const long rc =
        UCS2_ConvertToUTF8(units.data(), static_cast<unsigned int>(units.size()), &out, &bytes);
    EXPECT_EQ(rc, LU_S_OK);
    EXPECT_NE(out, nullptr);
    Bytes result(out, out + bytes);
    delete[] out;
    return result;
}

// Returns the code; the units decoded go to `units`.
long ToUcs2(const Bytes& bytes, Units* units) {
    unsigned short* out = reinterpret_cast<unsigned short*>(1);  // must be overwritten
    unsigned int count = 999;
    const long rc =
        UTF8_ConvertToUCS2(bytes.data(), static_cast<unsigned int>(bytes.size()), &out, &count);
    if (rc < 0) {
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(count, 0u);
        units->clear();
    } else {
        units->assign(out, out + count);
        delete[] out;
    }
    return rc;
}

TEST(Ucs2ConvertToUtf8Test, EncodesEachUnitInOneToThreeBytes) {
    struct Case {
        Units units;
        Bytes bytes;
    };
    const Case cases[] = {
        {{0x41}, {0x41}},
        {{0x7F}, {0x7F}},
        {{0x00}, {0x00}},
        {{0x80}, {0xC2, 0x80}},
        {{0x7FF}, {0xDF, 0xBF}},
        {{0x800}, {0xE0, 0xA0, 0x80}},
        {{0x20AC}, {0xE2, 0x82, 0xAC}},
        {{0xFFFF}, {0xEF, 0xBF, 0xBF}},
        // A surrogate pair is two ordinary units here: six bytes.
        {{0xD83D, 0xDE00}, {0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}},
        {{0x61, 0x62, 0x63, 0x64, 0xE9, 0x65}, {0x61, 0x62, 0x63, 0x64, 0xC3, 0xA9, 0x65}},
    };
    for (const Case& c : cases) EXPECT_EQ(ToUtf8(c.units), c.bytes);
}

TEST(Ucs2ConvertToUtf8Test, EmptyInputGivesAnEmptyArrayNotNull) {
    unsigned char* out = nullptr;
    unsigned int bytes = 7;
    EXPECT_EQ(UCS2_ConvertToUTF8(nullptr, 0, &out, &bytes), LU_S_OK);
    EXPECT_NE(out, nullptr);
    EXPECT_EQ(bytes, 0u);
    delete[] out;
}

TEST(Utf8GetCharCountTest, CountsSequencesOrZeroOnOverrun) {
    struct Case {
        Bytes bytes;
        unsigned int count;
    };
    const Case cases[] = {
        {{}, 0},
        {{0xE2, 0x82}, 0},
        {{0x80}, 1},  // a stray continuation byte is a sequence of one
        {{0x41, 0xE2, 0x82, 0xAC, 0x42}, 3},
        {{0xF0, 0x9F, 0x98, 0x80}, 1},
        {{0xFC, 0x80, 0x80, 0x80, 0x80, 0x80}, 1},
        {{0xFE}, 0},
        {{0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0xC3}, 0},
        {{0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0xC3, 0xA9}, 10},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(UTF8_GetCharCount(c.bytes.data(), static_cast<unsigned int>(c.bytes.size())),
                  c.count);
    }
}

TEST(Utf8ConvertToUcs2Test, DecodesWithoutCheckingContinuationBytes) {
    struct Case {
        Bytes bytes;
        Units units;
    };
    const Case cases[] = {
        {{0x80}, {0x0080}},
        {{0x41, 0xC3, 0xA9}, {0x41, 0xE9}},
        {{0xE2, 0x82, 0xAC}, {0x20AC}},
        {{0xEF, 0xBF, 0xBF}, {0xFFFF}},
        // Encoded surrogates decode to the surrogate units.
        {{0xED, 0xA0, 0xBD, 0xED, 0xB8, 0x80}, {0xD83D, 0xDE00}},
        // Wrong continuation bytes still add their values, kept to 16 bits.
        {{0xC3, 0x41}, {0x0081}},
        {{0xE0, 0x00, 0x00}, {0xDF80}},
        {{0xC0, 0x80}, {0x0000}},
    };
    for (const Case& c : cases) {
        Units units;
        EXPECT_EQ(ToUcs2(c.bytes, &units), LU_S_OK);
        EXPECT_EQ(units, c.units);
    }
}

TEST(Utf8ConvertToUcs2Test, RejectsEmptyOverrunningAndLongSequences) {
    Units units;
    EXPECT_EQ(ToUcs2({}, &units), LU_E_INVALID_ARG);
    EXPECT_EQ(ToUcs2({0x41, 0xE2, 0x82}, &units), LU_E_INVALID_ARG);
    EXPECT_EQ(ToUcs2({0x41, 0xF0, 0x9F, 0x98, 0x80}, &units), LU_E_INVALID_ARG);
    EXPECT_EQ(ToUcs2({0xFC, 0x80, 0x80, 0x80, 0x80, 0x80, 0x41}, &units), LU_E_INVALID_ARG);
    unsigned short* out = nullptr;
    unsigned int count = 5;
    EXPECT_EQ(UTF8_ConvertToUCS2(nullptr, 3, &out, &count), LU_E_INVALID_ARG);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(count, 0u);
}

TEST(Utf8ConvertNextCharTest, AdvancesOrReportsFfffAndStays) {
    const unsigned char text[] = {0x41, 0xC3, 0xA9, 0xE2, 0x82, 0xAC, 0xF0, 0x9F, 0x98, 0x80};
    const unsigned char* const last = text + sizeof text - 1;
    const unsigned char* cursor = text;
    EXPECT_EQ(UTF8_ConvertNextChar(&cursor, last), 0x41);
    EXPECT_EQ(cursor, text + 1);
    EXPECT_EQ(UTF8_ConvertNextChar(&cursor, last), 0xE9);
    EXPECT_EQ(cursor, text + 3);
    // `end` is the last byte that may be read: one byte short of the euro sign.
    EXPECT_EQ(UTF8_ConvertNextChar(&cursor, text + 4), 0xFFFF);
    EXPECT_EQ(cursor, text + 3);
    EXPECT_EQ(UTF8_ConvertNextChar(&cursor, text + 5), 0x20AC);
    EXPECT_EQ(cursor, text + 6);
    EXPECT_EQ(UTF8_ConvertNextChar(&cursor, last), 0xFFFF);  // four-byte sequence
    EXPECT_EQ(cursor, text + 6);
}

TEST(Utf8TraitsTest, LengthPairsSurrogatesAndDropsBrokenPairs) {
    struct Case {
        Units units;
        unsigned int bytes;
    };
    const Case cases[] = {
        {{0xD83D, 0xDE00}, 4},
        {{0xD800, 0x0041}, 0},  // the high surrogate and the letter are both dropped
        {{0xDC00}, 3},          // a lone low surrogate counts like any unit
        {{0x41, 0xD800}, 1},    // a final high surrogate adds nothing
        {{0xD800, 0xD800, 0xDC00}, 3},
        {{0x41, 0x7FF, 0x800, 0xFFFF}, 9},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(lu_utf8_traits::length(c.units.data(), static_cast<unsigned int>(c.units.size())),
                  c.bytes);
        Units terminated = c.units;
        terminated.push_back(0);
        EXPECT_EQ(lu_utf8_traits::length(terminated.data()), c.bytes);
    }
    EXPECT_EQ(lu_utf8_traits::length(static_cast<unsigned short>(0x20AC), 3u), 9u);
}

TEST(Utf8TraitsTest, AssignWritesWhatLengthCounted) {
    struct Case {
        Units units;
        Bytes bytes;
    };
    const Case cases[] = {
        {{0xD83D, 0xDE00}, {0xF0, 0x9F, 0x98, 0x80}},
        {{0xDBFF, 0xDFFF}, {0xF4, 0x8F, 0xBF, 0xBF}},
        {{0x41, 0xD800, 0x42, 0x43}, {0x41, 0x43}},
        {{0xDC00, 0x41}, {0xED, 0xB0, 0x80, 0x41}},
    };
    for (const Case& c : cases) {
        const unsigned int n =
            lu_utf8_traits::length(c.units.data(), static_cast<unsigned int>(c.units.size()));
        ASSERT_EQ(n, c.bytes.size());
        Bytes out(n + 1, 0xAA);
        lu_utf8_traits::assign(out.data(), n, c.units.data());
        EXPECT_EQ(Bytes(out.begin(), out.begin() + n), c.bytes);
        EXPECT_EQ(out[n], 0xAA);  // nothing written beyond
    }
}

TEST(Utf8TraitsTest, AssignRepeatedUnitFillsWholeSequences) {
    Bytes out(9, 0);
    lu_utf8_traits::assign(out.data(), 9, static_cast<unsigned short>(0x20AC));
    EXPECT_EQ(out, (Bytes{0xE2, 0x82, 0xAC, 0xE2, 0x82, 0xAC, 0xE2, 0x82, 0xAC}));
    Bytes ascii(4, 0);
    lu_utf8_traits::assign(ascii.data(), 4, static_cast<unsigned short>('z'));
    EXPECT_EQ(ascii, (Bytes{'z', 'z', 'z', 'z'}));
    Bytes surrogate(3, 0);
    lu_utf8_traits::assign(surrogate.data(), 3, static_cast<unsigned short>(0xD800));
    EXPECT_EQ(surrogate, (Bytes{0xED, 0xA0, 0x80}));
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

TEST(Utf8TraitsTest, SequenceShapesAndByteCounts) {
    const unsigned int codePoints[] = {0x7F,     0x80,      0x7FF,     0x800,
                                       0xFFFF,   0x10000,   0x10FFFF,  0x1FFFFF,
                                       0x200000, 0x3FFFFFF, 0x4000000, 0x80000000u};
    const unsigned int sizes[] = {1, 2, 2, 3, 3, 4, 4, 4, 5, 5, 6, 6};
    for (int i = 0; i < 12; ++i) EXPECT_EQ(lu_utf8_traits::GetUTF8Bytes(codePoints[i]), sizes[i]);
    const unsigned int leads[] = {0x00, 0x7F, 0x80, 0xBF, 0xC0, 0xDF, 0xE0, 0xEF,
                                  0xF0, 0xF7, 0xF8, 0xFB, 0xFC, 0xFD, 0xFE, 0xFF};
    const unsigned int lengths[] = {1, 1, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 6, 6};
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(lu_utf8_traits::GetNbBytes(static_cast<unsigned char>(leads[i])), lengths[i]);
    }
    EXPECT_TRUE(lu_utf8_traits::is_lead_byte(0xFF));
    EXPECT_TRUE(lu_utf8_traits::is_lead_byte(0x41));
    EXPECT_FALSE(lu_utf8_traits::is_lead_byte(0x80));
    EXPECT_FALSE(lu_utf8_traits::is_lead_byte(0xBF));
}

TEST(Utf8TraitsTest, CompareIsUnsignedByteOrder) {
    EXPECT_EQ(lu_utf8_traits::compare(Utf8("\xFF"), Utf8("\x01"), 1), 1);
    EXPECT_EQ(lu_utf8_traits::compare(Utf8("ab"), Utf8("ac"), 2), -1);
    EXPECT_EQ(lu_utf8_traits::compare(Utf8("ab"), Utf8("ac"), 1), 0);
    EXPECT_EQ(lu_utf8_traits::compare(Utf8("x"), Utf8("y"), 0), 0);
    const unsigned short unit = 0x41;
    EXPECT_THROW(lu_utf8_traits::compare(Utf8("A"), &unit, 1), int);
}

TEST(Utf8TraitsTest, StructuralValidity) {
    struct Case {
        Bytes bytes;
        bool valid;
    };
    const Case cases[] = {
        {{0x80}, false},
        {{0xC0, 0x80}, true},  // overlong forms pass
        {{0xE2, 0x82}, false},
        {{0xE2, 0x41, 0xAC}, false},
        {{0xED, 0xA0, 0x80}, true},  // so do encoded surrogates
        {{0xF8, 0x88, 0x80, 0x80, 0x80}, true},
        {{0xFE, 0x80, 0x80, 0x80, 0x80, 0x80}, true},
        {{0x41, 0xC3, 0xA9, 0x42}, true},
        {{0x41, 0xA9}, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(lu_utf8_traits::_is_valid_utf8(c.bytes.data(),
                                                 static_cast<unsigned int>(c.bytes.size())),
                  c.valid);
    }
    EXPECT_TRUE(lu_utf8_traits::_is_valid_utf8(nullptr, 0));
}

// --- differential tests against ICU ---------------------------------------

// Random text of the given planes; surrogates come only as well-formed pairs
// when `pairs` is set, and never alone.
Units RandomText(std::mt19937& rng, std::size_t length, bool pairs) {
    std::uniform_int_distribution<int> kind(0, pairs ? 4 : 3);
    std::uniform_int_distribution<unsigned> ascii(0x01, 0x7F), two(0x80, 0x7FF),
        three(0x800, 0xD7FF), upper(0xE000, 0xFFFF), supplementary(0x10000, 0x10FFFF);
    Units units;
    while (units.size() < length) {
        switch (kind(rng)) {
            case 0:
                units.push_back(static_cast<unsigned short>(ascii(rng)));
                break;
            case 1:
                units.push_back(static_cast<unsigned short>(two(rng)));
                break;
            case 2:
                units.push_back(static_cast<unsigned short>(three(rng)));
                break;
            case 3:
                units.push_back(static_cast<unsigned short>(upper(rng)));
                break;
            default: {
                const unsigned cp = supplementary(rng) - 0x10000;
                units.push_back(static_cast<unsigned short>(0xD800 + (cp >> 10)));
                units.push_back(static_cast<unsigned short>(0xDC00 + (cp & 0x3FF)));
            }
        }
    }
    return units;
}

Bytes IcuToUtf8(const Units& units) {
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const auto* src = reinterpret_cast<const UChar*>(units.data());
    u_strToUTF8(nullptr, 0, &length, src, static_cast<int32_t>(units.size()), &status);
    Bytes bytes(static_cast<std::size_t>(length));
    status = U_ZERO_ERROR;
    u_strToUTF8(reinterpret_cast<char*>(bytes.data()), length, &length, src,
                static_cast<int32_t>(units.size()), &status);
    EXPECT_TRUE(U_SUCCESS(status));
    return bytes;
}

Units IcuFromUtf8(const Bytes& bytes) {
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const auto* src = reinterpret_cast<const char*>(bytes.data());
    u_strFromUTF8(nullptr, 0, &length, src, static_cast<int32_t>(bytes.size()), &status);
    Units units(static_cast<std::size_t>(length));
    status = U_ZERO_ERROR;
    u_strFromUTF8(reinterpret_cast<UChar*>(units.data()), length, &length, src,
                  static_cast<int32_t>(bytes.size()), &status);
    EXPECT_TRUE(U_SUCCESS(status));
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
        ASSERT_EQ(back, units);
    }
}

TEST(Utf8DifferentialTest, TraitsAgreeWithIcuOnTextWithPairs) {
    std::mt19937 rng(7);
    for (int round = 0; round < 200; ++round) {
        const Units units = RandomText(rng, 1 + round * 5, true);
        const unsigned int n =
            lu_utf8_traits::length(units.data(), static_cast<unsigned int>(units.size()));
        Bytes bytes(n);
        lu_utf8_traits::assign(bytes.data(), n, units.data());
        ASSERT_EQ(bytes, IcuToUtf8(units)) << "round " << round;
        const unsigned int count = lu_utf8_traits::char_length(bytes.data(), n);
        Units back(count);
        lu_utf8_traits::copy(back.data(), bytes.data(), count);
        ASSERT_EQ(back, IcuFromUtf8(bytes)) << "round " << round;
    }
}

}  // namespace

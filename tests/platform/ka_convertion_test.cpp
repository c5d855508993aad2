// kaConvertion: names the platform knows, measuring and converting in both
// directions, copies, and its failures.
#include <gtest/gtest.h>

#include <string>

#include "kai18n/platform/ka_convertion.h"
#include "platform/encoding/encoding_exceptions.h"
#include "test_support.h"

namespace {

using test_support::Units;

TEST(KaConvertionTest, KnowsThePlatformsNamesInAnySpelling) {
    for (const char* name : {"windows-1252", "cp1252", "KOI8-R", "koi8r", "UTF-8", "Shift_JIS",
                             "ISO-8859-11", "x-mac-greek"}) {
        EXPECT_TRUE(kaConvertion::IsSupported(name)) << name;
    }
    for (const char* name :
         {"", "no-such-encoding", "MacJapanese", "MacThai", "Thai", "MacCroatian"}) {
        EXPECT_FALSE(kaConvertion::IsSupported(name)) << name;
    }
    EXPECT_FALSE(kaConvertion::IsSupported(nullptr));
}

TEST(KaConvertionTest, ToUnicodeMeasuresWithoutATargetThenConverts) {
    const kaConvertion koi8("KOI8-R");
    const std::string bytes = "\xF6\xC9\xDA\xCE\xD8 ok";  // Жизнь ok
    const char* first = bytes.data();
    const char* last = first + bytes.size();
    EXPECT_EQ(koi8.toUnicode(first, last, nullptr, 0), 8);
    EXPECT_EQ(koi8.toUnicode(first, last, nullptr, 100), 8) << "no target: measure only";
    Units target(8, 0xEEEE);
    EXPECT_EQ(koi8.toUnicode(first, last, target.data(), 8), 8);
    EXPECT_EQ(target, (Units{0x0416, 0x0438, 0x0437, 0x043D, 0x044C, ' ', 'o', 'k'}));
}

TEST(KaConvertionTest, TooSmallATargetTakesThePrefixAndStillGivesTheWholeLength) {
    const kaConvertion latin("ISO-8859-1");
    const std::string bytes = "abcdef";
    Units target(6, 0xEEEE);
    EXPECT_EQ(latin.toUnicode(bytes.data(), bytes.data() + 6, target.data(), 3), 6);
    EXPECT_EQ(target, (Units{'a', 'b', 'c', 0xEEEE, 0xEEEE, 0xEEEE}));
}

TEST(KaConvertionTest, FromUnicodeMeasuresThenConverts) {
    const kaConvertion sjis("Shift_JIS");
    const Units text = {'A', 0x65E5, 0x672C};  // A日本
    const unsigned short* first = text.data();
    const unsigned short* last = first + text.size();
    const long bytes = sjis.fromUnicode(first, last, nullptr, 0);
    ASSERT_EQ(bytes, 5);
    std::string target(5, '.');
    EXPECT_EQ(sjis.fromUnicode(first, last, &target[0], bytes), 5);
    EXPECT_EQ(target, "A\x93\xFA\x96\x7B");
}

TEST(KaConvertionTest, EmptyTextsMeasureZero) {
    const kaConvertion koi8("KOI8-R");
    EXPECT_EQ(koi8.toUnicode(nullptr, nullptr, nullptr, 0), 0);
    const Units none;
    EXPECT_EQ(koi8.fromUnicode(none.data(), none.data(), nullptr, 0), 0);
}

TEST(KaConvertionTest, CopiesAndAssignmentsCopyTheName) {
    const kaConvertion original("KOI8-R");
    kaConvertion copy(original);
    EXPECT_EQ(copy.GetName(), "KOI8-R");
    kaConvertion other("UTF-8");
    other = original;
    EXPECT_EQ(other.GetName(), "KOI8-R");
    copy = kaConvertion("UTF-8");
    EXPECT_EQ(copy.GetName(), "UTF-8");
    EXPECT_EQ(original.GetName(), "KOI8-R");
    EXPECT_EQ(kaConvertion(nullptr).GetName(), "");
}

TEST(KaConvertionTest, UnknownNamesFailOnlyWhenUsed) {
    const kaConvertion unknown("no-such-encoding");  // building it succeeds
    const std::string bytes = "abc";
    EXPECT_THROW(unknown.toUnicode(bytes.data(), bytes.data() + 3, nullptr, 0), EncodingNotLoaded);
    const Units text = {'a'};
    EXPECT_THROW(unknown.fromUnicode(text.data(), text.data() + 1, nullptr, 0), EncodingNotLoaded);
    // The empty name would open the platform's default converter: refused too.
    EXPECT_THROW(kaConvertion("").toUnicode(bytes.data(), bytes.data() + 3, nullptr, 0),
                 EncodingNotLoaded);
}

TEST(KaConvertionTest, BadRangesAndCapacitiesAreRefused) {
    const kaConvertion latin("ISO-8859-1");
    const std::string bytes = "abc";
    unsigned short target[4];
    EXPECT_THROW(latin.toUnicode(bytes.data() + 3, bytes.data(), target, 4), bt_out_of_range);
    EXPECT_THROW(latin.toUnicode(bytes.data(), bytes.data() + 3, target, -1), bt_out_of_range);
    EXPECT_THROW(latin.toUnicode(nullptr, bytes.data(), target, 4), bt_out_of_range);
    const Units text = {'a', 'b'};
    char out[4];
    EXPECT_THROW(latin.fromUnicode(text.data() + 2, text.data(), out, 4), bt_out_of_range);
}

// The abstract encoding has no data and is usable as a base.
class EchoEncoding : public kaEncoding {
  public:
    long toUnicode(const char* first, const char* last, unsigned short*, long) const override {
        return static_cast<long>(last - first);
    }
    long fromUnicode(const unsigned short* first, const unsigned short* last, char*,
                     long) const override {
        return static_cast<long>(last - first);
    }
};

TEST(KaConvertionTest, AbstractEncodingIsAnInterfaceWithoutData) {
    EXPECT_TRUE(std::is_abstract<kaEncoding>::value);
    EXPECT_EQ(sizeof(kaEncoding), sizeof(void*));
    EchoEncoding echo;
    EchoEncoding copy(echo);
    copy = echo;
    const kaEncoding& base = copy;
    const char bytes[] = "abcd";
    EXPECT_EQ(base.toUnicode(bytes, bytes + 4, nullptr, 0), 4);
}

}  // namespace

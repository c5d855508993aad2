// The encoding-conversion facet (every encoding's bytes are checked in tests/platform).
#include <gtest/gtest.h>

#include <string>

#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/frame/result_codes.h"
#include "test_support.h"

namespace {

using test_support::Str;
using test_support::Units;
using Facet = ilu_const_ptr<lu_codecvt>;

Facet ByName(const char* name) {
    return Facet(new lu_codecvt_byname(name, 0));
}
Facet Through(kaConvertion* conversion) {
    return Facet(
        new lu_codecvt(0, CharEncoding::CP1252(), Char16Encoding::UTF16(), conversion, true));
}

// Converts `text` to bytes, back to UTF-16, and from the bytes to UTF-8, each into a target with
// old content; checks the ways back and gives the bytes.
std::string RoundTrip(const lu_codecvt& facet, const std::u16string& text) {
    const Units units = test_support::UnitsOf(text);
    std::string bytes = "old content";
    facet.SetNarrowString(units.data(), units.data() + units.size(), bytes);
    ucs2string wide = Str(u"old content");
    facet.SetString(bytes.data(), bytes.data() + bytes.size(), wide);
    lu_utf8string utf8("old content");
    facet.SetString(bytes.data(), bytes.data() + bytes.size(), utf8);
    EXPECT_EQ(test_support::U16(wide), text);
    EXPECT_FALSE(wide.isnull());
    EXPECT_EQ(utf8, lu_utf8string(Str(text)));
    return bytes;
}

// A name found moves the pointer to the table's string; case, prefixes and extensions count; names
// before, between or beyond the rows give null.
TEST(CodecvtTest, DisplayNames) {
    const std::string thai = "Thai";
    const char* name = thai.c_str();
    EXPECT_STREQ(reinterpret_cast<const char*>(lu_codecvt::GetEncodingDisplayName(name)),
                 "Thai (ISO-8859-11)");
    EXPECT_TRUE(name != thai.c_str() && thai == name);
    const char *first = "Adobe-Standard-Encoding", *none = nullptr;
    EXPECT_NE(lu_codecvt::GetEncodingDisplayName(first), nullptr);
    EXPECT_EQ(lu_codecvt::GetEncodingDisplayName(none), nullptr);
    for (const char* other : {"cp1252", "CP125", "CP12520", "", "A", "Thaj", "UTF-8"}) {
        const char* unknown = other;
        EXPECT_EQ(lu_codecvt::GetEncodingDisplayName(unknown), nullptr) << other;
        EXPECT_EQ(unknown, other);
    }
}

// Without a name the facet is CP1252; table names go to the encoding library, other names to
// kaConvertion, unknown ones (MacThai has no engine of either kind) nowhere. Many blocks go
// through.
TEST(CodecvtTest, TheNameChoosesTheEngine) {
    for (const Facet& facet : {Facet(new lu_codecvt(0u)), ByName(""), ByName(nullptr)}) {
        EXPECT_EQ(&facet->GetExternalEncoding(), &CharEncoding::CP1252());
        EXPECT_EQ(RoundTrip(*facet, u"café €") + RoundTrip(*facet, u""), "caf\xE9 \x80");
    }
    EXPECT_EQ(
        ByName(nullptr)->GetConversion()->GetName() + ByName("EUC-JP")->GetConversion()->GetName(),
        "EUC-JP");
    EXPECT_EQ(&ByName("UTF-8")->GetExternalEncoding(), &CharEncoding::Unicode20UTF8());
    EXPECT_EQ(RoundTrip(*ByName("UTF-8"), u"ü 日 \U0001F600"),
              "\xC3\xBC \xE6\x97\xA5 \xF0\x9F\x98\x80");
    EXPECT_EQ(&ByName("EUC-JP")->GetExternalEncoding(), CharEncoding::Lookup("EUC-JP"));
    std::u16string text;
    for (int i = 0; i < 20000; ++i) text += (i % 3 == 0) ? u"日本語" : u"Abc かな ";
    EXPECT_GT(RoundTrip(*ByName("EUC-JP"), text).size(), 4u * CharEncodingConverter::kBlockBytes);
    for (const Facet& koi8 : {ByName("KOI8-R"), Through(new kaConvertion("KOI8-R"))}) {
        EXPECT_TRUE(koi8->UsesConversion());
        EXPECT_EQ(RoundTrip(*koi8, u"Жизнь"), "\xF6\xC9\xDA\xCE\xD8");
    }
    for (const char* name : {"no-such-encoding", "Thai ", "MacThai"})
        EXPECT_EQ(test_support::ThrownCode([name] { ByName(name); }), LU_E_ENCODING) << name;
}

// An empty input through kaConvertion, a missing or unknown conversion, and a reversed range, on
// either engine, arrive as LUException.
TEST(CodecvtTest, FailuresArriveTranslated) {
    const Facet koi8 = ByName("KOI8-R"), missing = Through(new kaConvertion("x")),
                none = Through(nullptr), cp1252 = ByName("CP1252");
    const char bytes[] = "abc";
    const Units two = {'a', 'b'};
    ucs2string units;
    lu_utf8string utf8;
    std::string narrow = "old";
    koi8->SetNarrowString(nullptr, nullptr, narrow);  // the narrow direction takes it
    EXPECT_EQ(narrow, "");
    const auto thrown = [](auto action) {
        try {
            action();
        } catch (const LUException& error) {
            return std::to_string(error.GetResult()) + error.GetMessage();
        }
        return std::string("nothing thrown");
    };
    const std::string encoding = std::to_string(LU_E_ENCODING),
                      range = std::to_string(LU_E_OUT_OF_RANGE);
    EXPECT_EQ(thrown([&] { koi8->SetString(nullptr, nullptr, units); }), range);
    EXPECT_EQ(thrown([&] { koi8->SetString(nullptr, nullptr, utf8); }), range);
    EXPECT_EQ(thrown([&] { missing->SetString(bytes, bytes + 3, units); }),
              encoding + "Encoding not loaded");
    EXPECT_EQ(thrown([&] { missing->SetNarrowString(&two[0], &two[0] + 2, narrow); }),
              encoding + "Encoding not loaded");
    EXPECT_EQ(thrown([&] { none->SetNarrowString(&two[0], &two[0] + 2, narrow); }),
              encoding + "No conversion");
    EXPECT_EQ(thrown([&] { cp1252->SetNarrowString(&two[0] + 2, &two[0], narrow); }),
              range + "Unicode library error");
    EXPECT_EQ(thrown([&] { cp1252->SetString(bytes + 3, bytes, units); }),
              range + "Unicode library error");
}

// out and in convert everything and report the whole ranges as used; too small an output takes what
// fits; a reversed range is out of range.
TEST(CodecvtTest, TheSlots) {
    const Facet facet = ByName("CP1251");
    const Units text = {0x0416, 0x0438, 0x0437, 0x043D, 0x044C};  // Жизнь
    const unsigned short *const end = text.data() + 5, *fromNext = nullptr;
    char buffer[8] = {}, *toNext = nullptr;
    std::mbstate_t state{};
    EXPECT_EQ(facet->out(state, text.data(), end, fromNext, buffer + 1, buffer + 4, toNext),
              lu_codecvt::partial);
    EXPECT_TRUE(fromNext == end && toNext == buffer + 4);
    EXPECT_EQ(std::string(buffer, 5), std::string("\0\xC6\xE8\xE7\0", 5));
    EXPECT_EQ(facet->out(state, end, end, fromNext, buffer, buffer + 8, toNext), lu_codecvt::ok);
    EXPECT_EQ(test_support::ThrownCode(
                  [&] { facet->out(state, end - 1, end, fromNext, buffer + 2, buffer, toNext); }),
              LU_E_OUT_OF_RANGE);
    Units units(3, 0);
    const char* bytesNext = nullptr;
    unsigned short* unitsNext = nullptr;
    EXPECT_EQ(
        facet->in(state, buffer + 1, buffer + 3, bytesNext, &units[0], &units[0] + 3, unitsNext),
        lu_codecvt::ok);
    EXPECT_TRUE(bytesNext == buffer + 3 && unitsNext == &units[0] + 3);
    EXPECT_EQ(units, (Units{0x0416, 0x0438, 0}));
}

}  // namespace

// The encoding-conversion facet: the display-name table, the choice of engine
// by name, the string conversions on both engines, the string sinks, the
// conversion slots, and failures as LUException.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "facets/string_sinks.h"
#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/frame/result_codes.h"
#include "test_support.h"

namespace {

using test_support::Str;
using test_support::ThrownCode;
using test_support::U16;
using test_support::Units;
using test_support::UnitsOf;

using Facet = ilu_const_ptr<lu_codecvt>;

Facet ByName(const char* name) {
    return Facet(new lu_codecvt_byname(name, 0));
}

const unsigned short* Begin(const Units& u) {
    return u.data();
}
const unsigned short* End(const Units& u) {
    return u.data() + u.size();
}

const char* Begin(const std::string& s) {
    return s.data();
}
const char* End(const std::string& s) {
    return s.data() + s.size();
}

std::string Narrow(const lu_codecvt& facet, const std::u16string& text) {
    const Units units = UnitsOf(text);
    std::string out = "old content";
    facet.SetNarrowString(Begin(units), End(units), out);
    return out;
}

std::u16string Wide(const lu_codecvt& facet, const std::string& bytes) {
    ucs2string out = Str(u"old content");
    facet.SetString(Begin(bytes), End(bytes), out);
    return U16(out);
}

std::string Utf8(const lu_codecvt& facet, const std::string& bytes) {
    lu_utf8string out("old content");
    facet.SetString(Begin(bytes), End(bytes), out);
    return std::string(reinterpret_cast<const char*>(out.data()), out.length());
}

// The message and code of the LUException that `action` throws.
template <class Action>
std::string ThrownMessage(Action&& action) {
    try {
        action();
    } catch (const LUException& error) {
        return error.GetMessage();
    }
    return "(nothing thrown)";
}

// ---------------------------------------------------------------------------
// Display names

struct DisplayRow {
    const char* technical;
    const char* display;
};

// The table as published, kept here apart from the library's copy.
const DisplayRow kDisplayRows[] = {
    {"Adobe-Standard-Encoding", "Postscript (Adobe Standart)"},
    {"Big5", "Chinese Traditional (Big5)"},
    {"CNS-11643", "Chinese Traditional (EUC-TW)"},
    {"CP1250", "Central European (Windows-1250)"},
    {"CP1251", "Cyrillic (Windows-1251)"},
    {"CP1252", "Western (Windows-1252)"},
    {"CP1253", "Greek (Windows-1253)"},
    {"CP1254", "Turkish (Windows-1254)"},
    {"CP1255", "Hebrew (Windows-1255)"},
    {"CP1256", "Arabic (Windows-1256)"},
    {"CP1257", "Baltic (Windows-1257)"},
    {"CP1258", "Vietnamese (Windows-1258)"},
    {"CP437", "IBM Latin US (CP437)"},
    {"CP850", "IBM Latin1 (CP850)"},
    {"CP852", "IBM Slavic (CP852)"},
    {"CP855", "IBM Cyrillic (CP855)"},
    {"CP857", "IBM Turkish (CP857)"},
    {"CP860", "IBM Portugese (CP860)"},
    {"CP861", "IBM Icelandic (CP861)"},
    {"CP862", "IBM Hebrew (CP862)"},
    {"CP865", "IBM Nordic (CP865)"},
    {"CP866", "IBM Cyrillic (CP-866)"},
    {"CP869", "IBM Modern Greek (CP-869)"},
    {"CP874", "IBM Thai (CP-874)"},
    {"CP932", "Japanese (Windows-932)"},
    {"CP936", "Chinese Simplified (CP936)"},
    {"CP949", "Korean (Windows-949)"},
    {"CP950", "Chinese Traditional (CP950)"},
    {"EUC-JP", "Japanese (EUC-JP)"},
    {"EUC-KR", "Korean (EUC-KR)"},
    {"GB18030", "Chinese (GB18030)"},
    {"GB2312", "Chinese Simplified (GB2312)"},
    {"HZ-GB-2312", "Chinese Simplified (HZ-GB2312)"},
    {"ISO-2022-JP", "Japanese (ISO-2022-JP)"},
    {"ISO-2022-KR", "Korean (ISO-2022-KR)"},
    {"ISO-8859-1", "Western (ISO-8859-1)"},
    {"ISO-8859-14", "Celtic (ISO-8859-14)"},
    {"ISO-8859-15", "Western (ISO-8859-15)"},
    {"ISO-8859-2", "Central European (ISO-8859-2)"},
    {"ISO-8859-3", "South European (ISO-8859-3)"},
    {"ISO-8859-4", "Baltic (ISO-8859-4)"},
    {"ISO-8859-5", "Cyrillic (ISO-8859-5)"},
    {"ISO-8859-6", "Arabic (ISO-8859-6)"},
    {"ISO-8859-7", "Greek (ISO-8859-7)"},
    {"ISO-8859-8", "Hebrew (ISO-8859-8)"},
    {"ISO-8859-9", "Turkish (ISO-8859-9)"},
    {"MacCentralEuropean", "Central European (MacCE)"},
    {"MacCroatian", "Croatian (MacCroatian)"},
    {"MacCyrillic", "Cyrillic (MacCyrillic)"},
    {"MacGreek", "Greek (MacGreek)"},
    {"MacIcelandic", "Icelandic (MacIcelandic)"},
    {"MacJapanese", "Japanese (MacJapanese)"},
    {"MacRoman", "Western (MacRoman)"},
    {"MacRomanian", "Romanian (MacRomanian)"},
    {"MacThai", "Thai (MacThai)"},
    {"MacTurkish", "Turkish (MacTurkish)"},
    {"MacUkrainian", "Cyrillic/Ukrainian (MacUkrainian)"},
    {"Shift-JIS", "Japanese (Shift_JIS)"},
    {"Thai", "Thai (ISO-8859-11)"},
};

const char* DisplayOf(const char*& name) {
    const unsigned char* display = lu_codecvt::GetEncodingDisplayName(name);
    return reinterpret_cast<const char*>(display);
}

TEST(CodecvtDisplayNameTest, EveryRowIsFoundAndThePointerMovesToTheTable) {
    ASSERT_EQ(std::size(kDisplayRows), 59u);
    for (const DisplayRow& row : kDisplayRows) {
        SCOPED_TRACE(row.technical);
        const std::string copy = row.technical;  // a caller's own buffer
        const char* name = copy.c_str();
        const char* display = DisplayOf(name);
        ASSERT_NE(display, nullptr);
        EXPECT_STREQ(display, row.display);
        EXPECT_NE(name, copy.c_str()) << "the pointer aims at the table's string now";
        EXPECT_STREQ(name, row.technical);
        const char* again = copy.c_str();
        DisplayOf(again);
        EXPECT_EQ(again, name) << "always the same table string";
    }
}

TEST(CodecvtDisplayNameTest, Cp1252FirstAndLastRows) {
    const std::string cp1252 = "CP1252";
    const char* name = cp1252.c_str();
    EXPECT_STREQ(DisplayOf(name), "Western (Windows-1252)");
    EXPECT_NE(name, cp1252.c_str());
    const char* first = "Adobe-Standard-Encoding";
    EXPECT_STREQ(DisplayOf(first), "Postscript (Adobe Standart)");
    const char* last = "Thai";
    EXPECT_STREQ(DisplayOf(last), "Thai (ISO-8859-11)");
}

TEST(CodecvtDisplayNameTest, OtherNamesGiveNullAndKeepThePointer) {
    // Case counts; so do prefixes, extensions and names between or beyond rows.
    const char* const others[] = {"cp1252", "CP125", "CP12520", "",       "A",
                                  "Adobe",  "Thai ", "Thaj",    "ZZZ",    "shift-jis",
                                  "UTF-8",  "Big",   "Big5 ",   "MacRom", "ISO-8859-10"};
    for (const char* other : others) {
        const char* name = other;
        EXPECT_EQ(lu_codecvt::GetEncodingDisplayName(name), nullptr) << other;
        EXPECT_EQ(name, other);
    }
    const char* none = nullptr;
    EXPECT_EQ(lu_codecvt::GetEncodingDisplayName(none), nullptr);
    EXPECT_EQ(none, nullptr);
}

// ---------------------------------------------------------------------------
// Construction and the choice of engine

TEST(CodecvtConstructionTest, DefaultIsCp1252WithoutConversion) {
    const Facet facet(new lu_codecvt(0u));
    EXPECT_EQ(&facet->GetExternalEncoding(), &CharEncoding::CP1252());
    EXPECT_EQ(&facet->GetInternalEncoding(), &Char16Encoding::UTF16());
    EXPECT_FALSE(facet->UsesConversion());
    EXPECT_EQ(facet->GetConversion(), nullptr);
    EXPECT_EQ(Narrow(*facet, u"café"), "caf\xE9");
}

TEST(CodecvtConstructionTest, EmptyAndNullNamesBehaveAsCp1252) {
    for (const char* name : {"", static_cast<const char*>(nullptr)}) {
        const Facet facet = ByName(name);
        EXPECT_EQ(&facet->GetExternalEncoding(), &CharEncoding::CP1252());
        EXPECT_FALSE(facet->UsesConversion());
        ASSERT_NE(facet->GetConversion(), nullptr) << "made, unused";
        EXPECT_EQ(facet->GetConversion()->GetName(), "");
        EXPECT_EQ(Narrow(*facet, u"café €"), "caf\xE9 \x80");
        EXPECT_EQ(Wide(*facet, "caf\xE9 \x80"), u"café €");
        EXPECT_EQ(Utf8(*facet, "caf\xE9"), "caf\xC3\xA9");
    }
}

TEST(CodecvtConstructionTest, NamesOfTheEncodingLibraryUseIt) {
    const Facet facet = ByName("Shift-JIS");
    EXPECT_EQ(&facet->GetExternalEncoding(), CharEncoding::Lookup("Shift-JIS"));
    EXPECT_FALSE(facet->UsesConversion());
    ASSERT_NE(facet->GetConversion(), nullptr);
    EXPECT_EQ(facet->GetConversion()->GetName(), "Shift-JIS");
}

// The locale records name UTF-8 most of all: the encoding library serves it.
TEST(CodecvtConstructionTest, Utf8IsServedByTheEncodingLibrary) {
    const Facet facet = ByName("UTF-8");
    EXPECT_EQ(&facet->GetExternalEncoding(), &CharEncoding::Unicode20UTF8());
    EXPECT_FALSE(facet->UsesConversion());
    const std::u16string text = u"Grüße 日本 \U0001F600";
    const std::string bytes =
        "Gr\xC3\xBC\xC3\x9F"
        "e \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80";
    EXPECT_EQ(Narrow(*facet, text), bytes);
    EXPECT_EQ(Wide(*facet, bytes), text);
    EXPECT_EQ(Utf8(*facet, bytes), bytes);
}

TEST(CodecvtConstructionTest, NamesKnownOnlyToKaConvertionUseIt) {
    for (const char* name : {"KOI8-R", "windows-1252", "cp1252", "x-mac-greek"}) {
        SCOPED_TRACE(name);
        const Facet facet = ByName(name);
        EXPECT_TRUE(facet->UsesConversion());
        EXPECT_EQ(&facet->GetExternalEncoding(), &CharEncoding::CP1252()) << "plays no part";
        EXPECT_EQ(facet->GetConversion()->GetName(), name);
    }
    EXPECT_EQ(Narrow(*ByName("KOI8-R"), u"Жизнь"), "\xF6\xC9\xDA\xCE\xD8");
    EXPECT_EQ(Wide(*ByName("KOI8-R"), "\xF6\xC9\xDA\xCE\xD8"), u"Жизнь");
    EXPECT_EQ(Utf8(*ByName("KOI8-R"), "\xF6"), "\xD0\x96");
}

TEST(CodecvtConstructionTest, UnknownNamesThrowTheEncodingCode) {
    for (const char* name : {"no-such-encoding", "MacJapanese", "MacThai", "MacCroatian",
                             "MacRomanian", "MacIcelandic", "Thai "}) {
        EXPECT_EQ(ThrownCode([name] { ByName(name); }), LU_E_ENCODING) << name;
    }
}

TEST(CodecvtConstructionTest, TheFullConstructorStoresAllFourAndOwnsTheConversion) {
    const CharEncoding& utf8 = CharEncoding::Unicode20UTF8();
    auto* conversion = new kaConvertion("KOI8-R");
    const Facet facet(new lu_codecvt(0, utf8, Char16Encoding::UTF16(), conversion, false));
    EXPECT_EQ(&facet->GetExternalEncoding(), &utf8);
    EXPECT_EQ(facet->GetConversion(), conversion);
    EXPECT_FALSE(facet->UsesConversion());
    EXPECT_EQ(Narrow(*facet, u"Жизнь"), "\xD0\x96\xD0\xB8\xD0\xB7\xD0\xBD\xD1\x8C");

    const Facet through(
        new lu_codecvt(0, utf8, Char16Encoding::UTF16(), new kaConvertion("KOI8-R"), true));
    EXPECT_EQ(Narrow(*through, u"Жизнь"), "\xF6\xC9\xDA\xCE\xD8");
}

TEST(CodecvtConstructionTest, TheFacetLivesInALocale) {
    auto* impl = new lu_locale::_Impl(2, 0);
    impl->_M_install_facet(&lu_codecvt::id, new lu_codecvt_byname("CP1251", 0));
    const lu_locale locale(impl);
    const lu_codecvt& facet = lu_use_facet<lu_codecvt>(locale);
    EXPECT_EQ(Narrow(facet, u"Жизнь"), "\xC6\xE8\xE7\xED\xFC");
}

// ---------------------------------------------------------------------------
// Strings

TEST(CodecvtStringTest, EveryEncodingOfTheTableRoundTripsItsLetters) {
    struct Case {
        const char* name;
        std::u16string text;
    };
    const Case cases[] = {
        {"Adobe-Standard-Encoding", u"Abc \uFB01"},
        {"Big5", u"Abc 中文"},
        {"CNS-11643", u"Abc 中文"},
        {"CP1250", u"Abc Łódź"},
        {"CP1251", u"Abc Жизнь"},
        {"CP1252", u"Abc café"},
        {"CP1253", u"Abc Ελλάς"},
        {"CP1254", u"Abc Ğşİı"},
        {"CP1255", u"Abc אבג"},
        {"CP1256", u"Abc عربي"},
        {"CP1257", u"Abc Rīga"},
        {"CP1258", u"Abc Đơn"},
        {"CP437", u"Abc café"},
        {"CP850", u"Abc café"},
        {"CP852", u"Abc Łódź"},
        {"CP855", u"Abc Жизнь"},
        {"CP857", u"Abc Ğşİı"},
        {"CP860", u"Abc São"},
        {"CP861", u"Abc Þórð"},
        {"CP862", u"Abc אבג"},
        {"CP865", u"Abc Søø"},
        {"CP866", u"Abc Жизнь"},
        {"CP869", u"Abc Ελλάς"},
        {"CP874", u"Abc กขค"},
        {"CP932", u"Abc 日本語"},
        {"CP936", u"Abc 中文"},
        {"CP949", u"Abc 한국어"},
        {"CP950", u"Abc 中文"},
        {"EUC-JP", u"Abc 日本語"},
        {"EUC-KR", u"Abc 한국어"},
        {"GB18030", u"Abc 中文 \U00020000"},
        {"GB2312", u"Abc 中文"},
        {"HZ-GB-2312", u"Abc 中文"},
        {"ISO-2022-JP", u"Abc 日本語"},
        {"ISO-2022-KR", u"Abc 한국어"},
        {"ISO-8859-1", u"Abc café"},
        {"ISO-8859-14", u"Abc Ŵŷ"},
        {"ISO-8859-15", u"Abc €"},
        {"ISO-8859-2", u"Abc Łódź"},
        {"ISO-8859-3", u"Abc Ħġĉ"},
        {"ISO-8859-4", u"Abc Ļū"},
        {"ISO-8859-5", u"Abc Жизнь"},
        {"ISO-8859-6", u"Abc عربي"},
        {"ISO-8859-7", u"Abc Ελλάς"},
        {"ISO-8859-8", u"Abc אבג"},
        {"ISO-8859-9", u"Abc Ğşİı"},
        {"MacCentralEuropean", u"Abc Łódź"},
        {"MacCroatian", u""},
        {"MacCyrillic", u"Abc Жизнь"},
        {"MacGreek", u"Abc Ελλάς"},
        {"MacIcelandic", u""},
        {"MacJapanese", u""},
        {"MacRoman", u"Abc café"},
        {"MacRomanian", u""},
        {"MacThai", u""},
        {"MacTurkish", u"Abc Ğşİı"},
        {"MacUkrainian", u"Abc Ґґ Її"},
        {"Shift-JIS", u"Abc 日本語"},
        {"Thai", u"Abc กขค"},
    };
    ASSERT_EQ(std::size(cases), 59u);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        if (c.text.empty()) {
            EXPECT_EQ(ThrownCode([&] { ByName(c.name); }), LU_E_ENCODING);
            continue;
        }
        const Facet facet = ByName(c.name);
        EXPECT_FALSE(facet->UsesConversion());
        const std::string bytes = Narrow(*facet, c.text);
        EXPECT_NE(bytes.find("Abc"), std::string::npos);
        EXPECT_EQ(Wide(*facet, bytes), c.text);
        const lu_utf8string expected(Str(c.text));
        EXPECT_EQ(Utf8(*facet, bytes),
                  std::string(reinterpret_cast<const char*>(expected.data()), expected.length()));
    }
}

TEST(CodecvtStringTest, EmptyInputGivesAnEmptyTargetWhateverItHeld) {
    const Facet facet = ByName("Shift-JIS");
    ucs2string units = Str(u"old content");
    facet->SetString(nullptr, nullptr, units);
    EXPECT_TRUE(units.empty());
    EXPECT_FALSE(units.isnull());

    lu_utf8string utf8("old content");
    const char bytes[] = "x";
    facet->SetString(bytes, bytes, utf8);
    EXPECT_TRUE(utf8.empty());

    std::string narrow = "old content";
    facet->SetNarrowString(nullptr, nullptr, narrow);
    EXPECT_TRUE(narrow.empty());

    // A null target stays null, and empty.
    ucs2string null = ucs2string(null_string());
    facet->SetString(bytes, bytes, null);
    EXPECT_TRUE(null.empty());
}

TEST(CodecvtStringTest, OldContentIsReplacedNotExtended) {
    const Facet facet = ByName("CP1252");
    EXPECT_EQ(Wide(*facet, "ab"), u"ab");
    EXPECT_EQ(Utf8(*facet, "ab"), "ab");
    EXPECT_EQ(Narrow(*facet, u"ab"), "ab");
    // Longer than the old content too.
    const std::string longer(40, 'z');
    EXPECT_EQ(Wide(*facet, longer), std::u16string(40, u'z'));
}

TEST(CodecvtStringTest, LongTextsStreamThroughManyBlocks) {
    // Far more than one block of each converter, with two-byte characters
    // cut at block boundaries somewhere.
    std::u16string text;
    for (int i = 0; i < 20000; ++i) text += (i % 3 == 0) ? u"日本語" : u"Abc かな ";
    const Facet facet = ByName("Shift-JIS");
    const std::string bytes = Narrow(*facet, text);
    ASSERT_GT(bytes.size(), 4u * CharEncodingConverter::kBlockBytes);
    EXPECT_EQ(Wide(*facet, bytes), text);
    const lu_utf8string expected(Str(text));
    EXPECT_EQ(Utf8(*facet, bytes),
              std::string(reinterpret_cast<const char*>(expected.data()), expected.length()));
}

TEST(CodecvtStringTest, ThroughKaConvertionAnEmptyInputIsOutOfRange) {
    const Facet facet = ByName("KOI8-R");
    ucs2string units = Str(u"kept");
    EXPECT_EQ(ThrownCode([&] { facet->SetString(nullptr, nullptr, units); }), LU_E_OUT_OF_RANGE);
    lu_utf8string utf8("kept");
    EXPECT_EQ(ThrownCode([&] { facet->SetString(nullptr, nullptr, utf8); }), LU_E_OUT_OF_RANGE);
    EXPECT_EQ(U16(units), u"kept");
    // The narrow direction has no such rule.
    std::string narrow = "old";
    facet->SetNarrowString(nullptr, nullptr, narrow);
    EXPECT_TRUE(narrow.empty());
}

TEST(CodecvtStringTest, ThroughKaConvertionOldContentIsReplaced) {
    const Facet facet = ByName("KOI8-R");
    ucs2string units = Str(u"a much longer old content");
    const std::string bytes = "\xF6\xC9";
    facet->SetString(Begin(bytes), End(bytes), units);
    EXPECT_EQ(U16(units), u"Жи");
    EXPECT_EQ(Narrow(*facet, u"Жи"), bytes);
    EXPECT_EQ(Utf8(*facet, bytes), "\xD0\x96\xD0\xB8");
}

TEST(CodecvtStringTest, FailuresOfKaConvertionArriveTranslated) {
    const Facet facet(new lu_codecvt(0, CharEncoding::CP1252(), Char16Encoding::UTF16(),
                                     new kaConvertion("no-such-encoding"), true));
    const std::string bytes = "abc";
    ucs2string units;
    EXPECT_EQ(ThrownCode([&] { facet->SetString(Begin(bytes), End(bytes), units); }),
              LU_E_ENCODING);
    EXPECT_EQ(ThrownMessage([&] { facet->SetString(Begin(bytes), End(bytes), units); }),
              "Encoding not loaded");
    const Units text = {'a'};
    std::string narrow;
    EXPECT_EQ(ThrownMessage([&] { facet->SetNarrowString(Begin(text), End(text), narrow); }),
              "Encoding not loaded");
    // A reversed range is refused by the engine as out of range.
    EXPECT_EQ(ThrownCode([&] { facet->SetString(End(bytes), Begin(bytes), units); }),
              LU_E_OUT_OF_RANGE);
}

TEST(CodecvtStringTest, FailuresOfTheEncodingLibraryArriveTranslated) {
    const Facet facet = ByName("CP1252");
    const std::string bytes = "abc";
    ucs2string units;
    lu_utf8string utf8;
    EXPECT_EQ(ThrownCode([&] { facet->SetString(End(bytes), Begin(bytes), units); }),
              LU_E_OUT_OF_RANGE);
    EXPECT_EQ(ThrownCode([&] { facet->SetString(End(bytes), Begin(bytes), utf8); }),
              LU_E_OUT_OF_RANGE);
    const Units text = {'a', 'b'};
    std::string narrow;
    EXPECT_EQ(ThrownMessage([&] { facet->SetNarrowString(End(text), Begin(text), narrow); }),
              "Unicode library error");
}

// ---------------------------------------------------------------------------
// The string sinks

TEST(CodecvtStringSinkTest, TheFirstBlockReplacesLaterBlocksAppend) {
    ucs2string units = Str(u"0123456789");
    Ucs2StringSink unitSink(units);
    const Units abc = {'a', 'b', 'c'};
    unitSink.Write(abc.data(), 3);
    EXPECT_EQ(U16(units), u"abc");
    EXPECT_EQ(unitSink.Position(), 3u);
    unitSink.Write(abc.data(), 2);
    EXPECT_EQ(U16(units), u"abcab");
    unitSink.Flush();
    EXPECT_EQ(U16(units), u"abcab");

    lu_utf8string utf8("0123456789");
    Utf8StringSink utf8Sink(utf8);
    utf8Sink.Write("xy", 2);
    utf8Sink.Write("z", 1);
    utf8Sink.Flush();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(utf8.data()), utf8.length()), "xyz");

    std::string narrow = "0123456789";
    NarrowStringSink narrowSink(narrow);
    narrowSink.Write("pq", 2);
    narrowSink.Write("r", 1);
    narrowSink.Flush();
    EXPECT_EQ(narrow, "pqr");
    EXPECT_EQ(narrowSink.Position(), 3u);
}

TEST(CodecvtStringSinkTest, FlushWithoutWritesEmptiesTheTarget) {
    ucs2string units = Str(u"old");
    Ucs2StringSink unitSink(units);
    unitSink.Flush();
    EXPECT_TRUE(units.empty());
    lu_utf8string utf8("old");
    Utf8StringSink utf8Sink(utf8);
    utf8Sink.Flush();
    EXPECT_TRUE(utf8.empty());
    std::string narrow = "old";
    NarrowStringSink narrowSink(narrow);
    narrowSink.Flush();
    EXPECT_TRUE(narrow.empty());
}

TEST(CodecvtStringSinkTest, BehaviourAndCapacityAreThoseOfTheBase) {
    std::string narrow;
    NarrowStringSink sink(narrow);
    EXPECT_EQ(sink.RemainingCapacity(), std::numeric_limits<long>::max());
    EXPECT_EQ(sink.GetActor(), nullptr);
    EXPECT_EQ(sink.GetBehavior(), SinkBehavior::kTruncate);
}

// ---------------------------------------------------------------------------
// The slots

TEST(CodecvtSlotTest, OutConvertsAndReportsEverythingUsed) {
    const Facet facet = ByName("CP1251");
    const Units text = UnitsOf(u"Жизнь");
    char buffer[8] = {};
    std::mbstate_t state{};
    const unsigned short* fromNext = nullptr;
    char* toNext = nullptr;
    EXPECT_EQ(facet->out(state, Begin(text), End(text), fromNext, buffer, buffer + 8, toNext),
              lu_codecvt::partial);
    EXPECT_EQ(fromNext, End(text));
    EXPECT_EQ(toNext, buffer + 8) << "the whole output range is reported";
    EXPECT_EQ(std::string(buffer, 5), "\xC6\xE8\xE7\xED\xFC");

    // Too small an output: what fits, and still everything reported.
    char small[2] = {};
    EXPECT_EQ(facet->out(state, Begin(text), End(text), fromNext, small, small + 2, toNext),
              lu_codecvt::partial);
    EXPECT_EQ(std::string(small, 2), "\xC6\xE8");
    EXPECT_EQ(toNext, small + 2);

    // An empty input: ok.
    EXPECT_EQ(facet->out(state, Begin(text), Begin(text), fromNext, buffer, buffer + 8, toNext),
              lu_codecvt::ok);
    EXPECT_EQ(fromNext, Begin(text));
}

TEST(CodecvtSlotTest, InConvertsAndAlwaysSaysOk) {
    const Facet facet = ByName("EUC-JP");
    const std::string bytes = "\xC6\xFC\xCB\xDC";  // 日本
    Units buffer(4, 0);
    std::mbstate_t state{};
    const char* fromNext = nullptr;
    unsigned short* toNext = nullptr;
    EXPECT_EQ(facet->in(state, Begin(bytes), End(bytes), fromNext, buffer.data(), buffer.data() + 4,
                        toNext),
              lu_codecvt::ok);
    EXPECT_EQ(fromNext, End(bytes));
    EXPECT_EQ(toNext, buffer.data() + 4);
    EXPECT_EQ(buffer, (Units{0x65E5, 0x672C, 0, 0}));
    EXPECT_EQ(facet->in(state, Begin(bytes), Begin(bytes), fromNext, buffer.data(),
                        buffer.data() + 4, toNext),
              lu_codecvt::ok);
}

TEST(CodecvtSlotTest, ReversedOutputRangesFailAsOutOfRange) {
    const Facet facet = ByName("CP1252");
    const Units text = {'a'};
    char buffer[2];
    std::mbstate_t state{};
    const unsigned short* fromNext = nullptr;
    char* toNext = nullptr;
    EXPECT_EQ(ThrownCode([&] {
                  facet->out(state, Begin(text), End(text), fromNext, buffer + 2, buffer, toNext);
              }),
              LU_E_OUT_OF_RANGE);
}

TEST(CodecvtSlotTest, TheFixedSlots) {
    const Facet facet = ByName("Shift-JIS");
    std::mbstate_t state{};
    char buffer[4];
    char* toNext = nullptr;
    EXPECT_EQ(facet->unshift(state, buffer, buffer + 4, toNext), lu_codecvt::noconv);
    EXPECT_EQ(toNext, buffer);
    EXPECT_EQ(facet->encoding(), 1);
    EXPECT_FALSE(facet->always_noconv());
    EXPECT_EQ(facet->max_length(), 1);
    EXPECT_EQ(static_cast<int>(lu_codecvt::ok), 0);
    EXPECT_EQ(static_cast<int>(lu_codecvt::partial), 1);
    EXPECT_EQ(static_cast<int>(lu_codecvt::noconv), 3);
}

TEST(CodecvtSlotTest, LengthIsTheSmallerOfBytesAndMax) {
    const Facet facet = ByName("Shift-JIS");
    const std::string bytes =
        "\x93\xFA\x96\x7B"
        "abc";  // 7 bytes, 5 characters
    std::mbstate_t state{};
    struct Case {
        std::size_t max;
        int expected;
    };
    for (const Case c :
         {Case{0, 0}, Case{3, 3}, Case{6, 6}, Case{7, 7}, Case{8, 7}, Case{1000, 7}}) {
        EXPECT_EQ(facet->length(state, Begin(bytes), End(bytes), c.max), c.expected) << c.max;
    }
    EXPECT_EQ(facet->length(state, Begin(bytes), Begin(bytes), 5), 0);
}

}  // namespace

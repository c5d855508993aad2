// The encoding-conversion facet: display names, the choice of engine by name,
// string conversions on both engines, the string sinks, the slots, and
// failures as LUException.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <type_traits>
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

std::string Text(const lu_utf8string& s) {
    return std::string(reinterpret_cast<const char*>(s.data()), s.length());
}

std::string Utf8(const lu_codecvt& facet, const std::string& bytes) {
    lu_utf8string out("old content");
    facet.SetString(Begin(bytes), End(bytes), out);
    return Text(out);
}

std::string Utf8Of(const std::u16string& text) {
    return Text(lu_utf8string(Str(text)));
}

// The message of the LUException that `action` throws.
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

// The published table, kept apart from the library's copy, and for each
// encoding a sample of its letters; empty where ICU has no converter.
struct Row {
    const char* technical;
    const char* display;
    std::u16string sample;
};

const Row kRows[] = {
    {"Adobe-Standard-Encoding", "Postscript (Adobe Standart)", u"Abc \uFB01"},
    {"Big5", "Chinese Traditional (Big5)", u"Abc 中文"},
    {"CNS-11643", "Chinese Traditional (EUC-TW)", u"Abc 中文"},
    {"CP1250", "Central European (Windows-1250)", u"Abc Łódź"},
    {"CP1251", "Cyrillic (Windows-1251)", u"Abc Жизнь"},
    {"CP1252", "Western (Windows-1252)", u"Abc café"},
    {"CP1253", "Greek (Windows-1253)", u"Abc Ελλάς"},
    {"CP1254", "Turkish (Windows-1254)", u"Abc Ğşİı"},
    {"CP1255", "Hebrew (Windows-1255)", u"Abc אבג"},
    {"CP1256", "Arabic (Windows-1256)", u"Abc عربي"},
    {"CP1257", "Baltic (Windows-1257)", u"Abc Rīga"},
    {"CP1258", "Vietnamese (Windows-1258)", u"Abc Đơn"},
    {"CP437", "IBM Latin US (CP437)", u"Abc café"},
    {"CP850", "IBM Latin1 (CP850)", u"Abc café"},
    {"CP852", "IBM Slavic (CP852)", u"Abc Łódź"},
    {"CP855", "IBM Cyrillic (CP855)", u"Abc Жизнь"},
    {"CP857", "IBM Turkish (CP857)", u"Abc Ğşİı"},
    {"CP860", "IBM Portugese (CP860)", u"Abc São"},
    {"CP861", "IBM Icelandic (CP861)", u"Abc Þórð"},
    {"CP862", "IBM Hebrew (CP862)", u"Abc אבג"},
    {"CP865", "IBM Nordic (CP865)", u"Abc Søø"},
    {"CP866", "IBM Cyrillic (CP-866)", u"Abc Жизнь"},
    {"CP869", "IBM Modern Greek (CP-869)", u"Abc Ελλάς"},
    {"CP874", "IBM Thai (CP-874)", u"Abc กขค"},
    {"CP932", "Japanese (Windows-932)", u"Abc 日本語"},
    {"CP936", "Chinese Simplified (CP936)", u"Abc 中文"},
    {"CP949", "Korean (Windows-949)", u"Abc 한국어"},
    {"CP950", "Chinese Traditional (CP950)", u"Abc 中文"},
    {"EUC-JP", "Japanese (EUC-JP)", u"Abc 日本語"},
    {"EUC-KR", "Korean (EUC-KR)", u"Abc 한국어"},
    {"GB18030", "Chinese (GB18030)", u"Abc 中文 \U00020000"},
    {"GB2312", "Chinese Simplified (GB2312)", u"Abc 中文"},
    {"HZ-GB-2312", "Chinese Simplified (HZ-GB2312)", u"Abc 中文"},
    {"ISO-2022-JP", "Japanese (ISO-2022-JP)", u"Abc 日本語"},
    {"ISO-2022-KR", "Korean (ISO-2022-KR)", u"Abc 한국어"},
    {"ISO-8859-1", "Western (ISO-8859-1)", u"Abc café"},
    {"ISO-8859-14", "Celtic (ISO-8859-14)", u"Abc Ŵŷ"},
    {"ISO-8859-15", "Western (ISO-8859-15)", u"Abc €"},
    {"ISO-8859-2", "Central European (ISO-8859-2)", u"Abc Łódź"},
    {"ISO-8859-3", "South European (ISO-8859-3)", u"Abc Ħġĉ"},
    {"ISO-8859-4", "Baltic (ISO-8859-4)", u"Abc Ļū"},
    {"ISO-8859-5", "Cyrillic (ISO-8859-5)", u"Abc Жизнь"},
    {"ISO-8859-6", "Arabic (ISO-8859-6)", u"Abc عربي"},
    {"ISO-8859-7", "Greek (ISO-8859-7)", u"Abc Ελλάς"},
    {"ISO-8859-8", "Hebrew (ISO-8859-8)", u"Abc אבג"},
    {"ISO-8859-9", "Turkish (ISO-8859-9)", u"Abc Ğşİı"},
    {"MacCentralEuropean", "Central European (MacCE)", u"Abc Łódź"},
    {"MacCroatian", "Croatian (MacCroatian)", u""},
    {"MacCyrillic", "Cyrillic (MacCyrillic)", u"Abc Жизнь"},
    {"MacGreek", "Greek (MacGreek)", u"Abc Ελλάς"},
    {"MacIcelandic", "Icelandic (MacIcelandic)", u""},
    {"MacJapanese", "Japanese (MacJapanese)", u""},
    {"MacRoman", "Western (MacRoman)", u"Abc café"},
    {"MacRomanian", "Romanian (MacRomanian)", u""},
    {"MacThai", "Thai (MacThai)", u""},
    {"MacTurkish", "Turkish (MacTurkish)", u"Abc Ğşİı"},
    {"MacUkrainian", "Cyrillic/Ukrainian (MacUkrainian)", u"Abc Ґґ Її"},
    {"Shift-JIS", "Japanese (Shift_JIS)", u"Abc 日本語"},
    {"Thai", "Thai (ISO-8859-11)", u"Abc กขค"},
};

const char* DisplayOf(const char*& name) {
    const unsigned char* display = lu_codecvt::GetEncodingDisplayName(name);
    return reinterpret_cast<const char*>(display);
}

TEST(CodecvtDisplayNameTest, EveryRowIsFoundAndThePointerMovesToTheTable) {
    ASSERT_EQ(std::size(kRows), 59u);
    for (const Row& row : kRows) {
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

// Without a name the facet is CP1252; UTF-8, the name locale records give most,
// is served by the encoding library. Exact bytes in both directions.
TEST(CodecvtConstructionTest, DefaultEmptyNullAndUtf8UseTheEncodingLibrary) {
    const struct {
        Facet facet;
        const CharEncoding& external;
        const char* conversion;  // the kaConvertion's name, null for none
        std::u16string text;
        std::string bytes;
    } cases[] = {
        {Facet(new lu_codecvt(0u)), CharEncoding::CP1252(), nullptr, u"café €", "caf\xE9 \x80"},
        {ByName(""), CharEncoding::CP1252(), "", u"café €", "caf\xE9 \x80"},
        {ByName(nullptr), CharEncoding::CP1252(), "", u"café €", "caf\xE9 \x80"},
        {ByName("UTF-8"), CharEncoding::Unicode20UTF8(), "UTF-8", u"Grüße 日本 \U0001F600",
         "Gr\xC3\xBC\xC3\x9F"
         "e \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        EXPECT_EQ(&c.facet->GetExternalEncoding(), &c.external);
        EXPECT_EQ(&c.facet->GetInternalEncoding(), &Char16Encoding::UTF16());
        EXPECT_FALSE(c.facet->UsesConversion());
        if (c.conversion == nullptr) {
            EXPECT_EQ(c.facet->GetConversion(), nullptr);
        } else {
            ASSERT_NE(c.facet->GetConversion(), nullptr) << "made, unused";
            EXPECT_EQ(c.facet->GetConversion()->GetName(), c.conversion);
        }
        EXPECT_EQ(Narrow(*c.facet, c.text), c.bytes);
        EXPECT_EQ(Wide(*c.facet, c.bytes), c.text);
        EXPECT_EQ(Utf8(*c.facet, c.bytes), Utf8Of(c.text));
    }
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
    for (const char* name : {"no-such-encoding", "Thai "}) {
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
    for (const Row& c : kRows) {
        SCOPED_TRACE(c.technical);
        if (c.sample.empty()) {
            EXPECT_EQ(ThrownCode([&] { ByName(c.technical); }), LU_E_ENCODING);
            continue;
        }
        const Facet facet = ByName(c.technical);
        EXPECT_EQ(&facet->GetExternalEncoding(), CharEncoding::Lookup(c.technical));
        EXPECT_FALSE(facet->UsesConversion());
        ASSERT_NE(facet->GetConversion(), nullptr);
        EXPECT_EQ(facet->GetConversion()->GetName(), c.technical);
        const std::string bytes = Narrow(*facet, c.sample);
        EXPECT_NE(bytes.find("Abc"), std::string::npos);
        EXPECT_EQ(Wide(*facet, bytes), c.sample);
        EXPECT_EQ(Utf8(*facet, bytes), Utf8Of(c.sample));
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

TEST(CodecvtStringTest, LongTextsStreamThroughManyBlocks) {
    // Far more than one block of each converter, with two-byte characters
    // cut at block boundaries somewhere.
    std::u16string text;
    for (int i = 0; i < 20000; ++i) text += (i % 3 == 0) ? u"日本語" : u"Abc かな ";
    const Facet facet = ByName("Shift-JIS");
    const std::string bytes = Narrow(*facet, text);
    ASSERT_GT(bytes.size(), 4u * CharEncodingConverter::kBlockBytes);
    EXPECT_EQ(Wide(*facet, bytes), text);
    EXPECT_EQ(Utf8(*facet, bytes), Utf8Of(text));
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

// Failures of either engine arrive as LUException; a reversed range is out of range.
TEST(CodecvtStringTest, FailuresOfBothEnginesArriveTranslated) {
    const Facet missing(new lu_codecvt(0, CharEncoding::CP1252(), Char16Encoding::UTF16(),
                                       new kaConvertion("no-such-encoding"), true));
    const Facet cp1252 = ByName("CP1252");
    const std::string bytes = "abc";
    const Units text = {'a', 'b'};
    ucs2string units;
    lu_utf8string utf8;
    std::string narrow;
    const struct {
        std::function<void()> action;
        long code;
        const char* message;  // null: not checked
    } cases[] = {
        {[&] { missing->SetString(Begin(bytes), End(bytes), units); }, LU_E_ENCODING,
         "Encoding not loaded"},
        {[&] { missing->SetNarrowString(Begin(text), End(text), narrow); }, LU_E_ENCODING,
         "Encoding not loaded"},
        {[&] { missing->SetString(End(bytes), Begin(bytes), units); }, LU_E_OUT_OF_RANGE, nullptr},
        {[&] { cp1252->SetString(End(bytes), Begin(bytes), units); }, LU_E_OUT_OF_RANGE, nullptr},
        {[&] { cp1252->SetString(End(bytes), Begin(bytes), utf8); }, LU_E_OUT_OF_RANGE, nullptr},
        {[&] { cp1252->SetNarrowString(End(text), Begin(text), narrow); }, LU_E_OUT_OF_RANGE,
         "Unicode library error"},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(ThrownCode(cases[i].action), cases[i].code) << i;
        if (cases[i].message != nullptr) {
            EXPECT_EQ(ThrownMessage(cases[i].action), cases[i].message) << i;
        }
    }
}

// ---------------------------------------------------------------------------
// The string sinks

// Writes ASCII `blocks` through a sink of type Sink into `target`.
template <class Sink, class Target>
Target Written(Target target, const std::vector<std::string>& blocks) {
    Sink sink(target);
    for (const std::string& block : blocks) {
        if constexpr (std::is_same_v<Sink, Ucs2StringSink>) {
            const Units units(block.begin(), block.end());
            sink.Write(units.data(), static_cast<long>(units.size()));
        } else {
            sink.Write(block.data(), static_cast<long>(block.size()));
        }
    }
    sink.Flush();
    EXPECT_EQ(sink.Position(), target.length());
    return target;
}

// The first block replaces the old content, later blocks append; a flush
// without writes empties the target.
TEST(CodecvtStringSinkTest, TheFirstBlockReplacesLaterBlocksAppend) {
    const ucs2string old = Str(u"0123456789");
    EXPECT_EQ(U16(Written<Ucs2StringSink>(old, {"abc", "ab"})), u"abcab");
    EXPECT_TRUE(Written<Ucs2StringSink>(old, {}).empty());
    EXPECT_EQ(Text(Written<Utf8StringSink>(lu_utf8string("0123456789"), {"xy", "z"})), "xyz");
    EXPECT_EQ(Text(Written<Utf8StringSink>(lu_utf8string("old"), {})), "");
    EXPECT_EQ(Written<NarrowStringSink>(std::string("0123456789"), {"pq", "r"}), "pqr");
    EXPECT_EQ(Written<NarrowStringSink>(std::string("old"), {}), "");

    std::string narrow;
    NarrowStringSink sink(narrow);
    EXPECT_EQ(sink.RemainingCapacity(), std::numeric_limits<long>::max());
    EXPECT_EQ(sink.GetActor(), nullptr);
    EXPECT_EQ(sink.GetBehavior(), SinkBehavior::kTruncate);
}

// ---------------------------------------------------------------------------
// The slots

TEST(CodecvtSlotTest, OutConvertsAndReportsEverythingUsedOrFailsOnAReversedRange) {
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

    // A reversed output range.
    EXPECT_EQ(ThrownCode([&] {
                  facet->out(state, Begin(text), End(text), fromNext, buffer + 2, buffer, toNext);
              }),
              LU_E_OUT_OF_RANGE);
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

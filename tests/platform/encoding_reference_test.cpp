// Every encoding of the locale table converts a sample of its own letters
// from UTF-16 to bytes and back unchanged, and the bytes are those that an
// independent converter, the C library's iconv, gives for the same encoding.
//
// Compared with iconv: every served encoding that glibc knows. HZ-GB-2312,
// which glibc lacks, is compared in the decoding direction against HZ bytes
// derived from glibc's GB2312. Only round-tripped (glibc has no such
// converter): Adobe-Standard-Encoding, MacGreek, MacTurkish. The five Mac
// encodings that ICU lacks are checked to be refused.
#include <gtest/gtest.h>
#include <iconv.h>

#include <cstring>
#include <string>
#include <vector>

#include "kai18n/platform/char_encoding.h"
#include "test_support.h"

namespace {

using test_support::Units;
using test_support::UnitsOf;

enum class Reference {
    kIconv,      // bytes compared with glibc's converter of that name
    kHzFromGb,   // HZ bytes derived from glibc's GB2312, compared when decoding
    kRoundTrip,  // glibc has no such converter
    kUnserved,   // the engine has no converter: Lookup gives null
};

struct Sample {
    const char* name;
    Reference reference;
    const char* glibcName;
    std::u16string text;
};

// Each sample holds ASCII letters and the letters the encoding exists for;
// some hold one character that tells the chosen converter from a neighbour
// (the euro sign of CP874 and CP950, a Hangul syllable of CP949 outside
// KS X 1001, ideographs of CNS 11643 planes 2 and 4).
const std::vector<Sample>& Samples() {
    static const std::vector<Sample> samples = {
        {"Adobe-Standard-Encoding", Reference::kRoundTrip, nullptr, u"Abc xyz \uFB01"},
        {"Big5", Reference::kIconv, "BIG5", u"Abc 中文"},
        {"CNS-11643", Reference::kIconv, "EUC-TW", u"Abc 中文 乂丂"},
        {"CP1250", Reference::kIconv, "CP1250", u"Abc Łódź"},
        {"CP1251", Reference::kIconv, "CP1251", u"Abc Жизнь"},
        {"CP1252", Reference::kIconv, "CP1252", u"Abc café €"},
        {"CP1253", Reference::kIconv, "CP1253", u"Abc Ελλάς"},
        {"CP1254", Reference::kIconv, "CP1254", u"Abc Ğşİı"},
        {"CP1255", Reference::kIconv, "CP1255", u"Abc אבג שלום"},
        {"CP1256", Reference::kIconv, "CP1256", u"Abc عربي"},
        {"CP1257", Reference::kIconv, "CP1257", u"Abc Rīga Ąž"},
        {"CP1258", Reference::kIconv, "CP1258", u"Abc Đơn"},
        {"CP437", Reference::kIconv, "CP437", u"Abc café"},
        {"CP850", Reference::kIconv, "CP850", u"Abc café"},
        {"CP852", Reference::kIconv, "CP852", u"Abc Łódź"},
        {"CP855", Reference::kIconv, "CP855", u"Abc Жизнь"},
        {"CP857", Reference::kIconv, "CP857", u"Abc Ğşİı"},
        {"CP860", Reference::kIconv, "CP860", u"Abc São"},
        {"CP861", Reference::kIconv, "CP861", u"Abc Þórð"},
        {"CP862", Reference::kIconv, "CP862", u"Abc אבג שלום"},
        {"CP865", Reference::kIconv, "CP865", u"Abc Søø"},
        {"CP866", Reference::kIconv, "CP866", u"Abc Жизнь"},
        {"CP869", Reference::kIconv, "CP869", u"Abc Ελλάς"},
        {"CP874", Reference::kIconv, "CP874", u"Abc กขค €"},
        {"CP932", Reference::kIconv, "CP932", u"Abc 日本語 かな ｱ"},
        {"CP936", Reference::kIconv, "CP936", u"Abc 中文"},
        {"CP949", Reference::kIconv, "CP949", u"Abc 한국어 똠"},
        {"CP950", Reference::kIconv, "CP950", u"Abc 中文 €"},
        {"EUC-JP", Reference::kIconv, "EUC-JP", u"Abc 日本語 かな ｱ"},
        {"EUC-KR", Reference::kIconv, "EUC-KR", u"Abc 한국어"},
        {"GB18030", Reference::kIconv, "GB18030", u"Abc 中文 € \U00020000"},
        {"GB2312", Reference::kIconv, "GB2312", u"Abc 中文"},
        {"HZ-GB-2312", Reference::kHzFromGb, "GB2312", u"Abc 中文 def"},
        {"ISO-2022-JP", Reference::kIconv, "ISO-2022-JP", u"Abc 日本語 かな"},
        {"ISO-2022-KR", Reference::kIconv, "ISO-2022-KR", u"Abc 한국어"},
        {"ISO-8859-1", Reference::kIconv, "ISO-8859-1", u"Abc café"},
        {"ISO-8859-14", Reference::kIconv, "ISO-8859-14", u"Abc Ŵŷ é"},
        {"ISO-8859-15", Reference::kIconv, "ISO-8859-15", u"Abc café €"},
        {"ISO-8859-2", Reference::kIconv, "ISO-8859-2", u"Abc Łódź"},
        {"ISO-8859-3", Reference::kIconv, "ISO-8859-3", u"Abc Ħġĉ"},
        {"ISO-8859-4", Reference::kIconv, "ISO-8859-4", u"Abc Rīga Ļū"},
        {"ISO-8859-5", Reference::kIconv, "ISO-8859-5", u"Abc Жизнь"},
        {"ISO-8859-6", Reference::kIconv, "ISO-8859-6", u"Abc عربي"},
        {"ISO-8859-7", Reference::kIconv, "ISO-8859-7", u"Abc Ελλάς"},
        {"ISO-8859-8", Reference::kIconv, "ISO-8859-8", u"Abc אבג שלום"},
        {"ISO-8859-9", Reference::kIconv, "ISO-8859-9", u"Abc Ğşİı"},
        {"MacCentralEuropean", Reference::kIconv, "MAC-CENTRALEUROPE", u"Abc Łódź"},
        {"MacCroatian", Reference::kUnserved, nullptr, u""},
        {"MacCyrillic", Reference::kIconv, "MAC-CYRILLIC", u"Abc Жизнь"},
        {"MacGreek", Reference::kRoundTrip, nullptr, u"Abc Ελλάς"},
        {"MacIcelandic", Reference::kUnserved, nullptr, u""},
        {"MacJapanese", Reference::kUnserved, nullptr, u""},
        {"MacRoman", Reference::kIconv, "MACINTOSH", u"Abc café"},
        {"MacRomanian", Reference::kUnserved, nullptr, u""},
        {"MacThai", Reference::kUnserved, nullptr, u""},
        {"MacTurkish", Reference::kRoundTrip, nullptr, u"Abc Ğşİı"},
        {"MacUkrainian", Reference::kIconv, "MAC-UK", u"Abc Жизнь Ґґ Її Єє"},
        {"Shift-JIS", Reference::kIconv, "SHIFT_JIS", u"Abc 日本語 かな ｱ"},
        {"Thai", Reference::kIconv, "ISO-8859-11", u"Abc กขค"},
    };
    return samples;
}

// The text through glibc's iconv from UTF-16 (little-endian, as this
// platform stores it) to `glibcName`, shift state closed at the end.
std::string IconvEncode(const char* glibcName, const std::u16string& text) {
    iconv_t cd = iconv_open(glibcName, "UTF-16LE");
    EXPECT_NE(cd, reinterpret_cast<iconv_t>(-1)) << glibcName;
    if (cd == reinterpret_cast<iconv_t>(-1)) return std::string();
    std::string out(text.size() * 8 + 16, '\0');
    std::string in(reinterpret_cast<const char*>(text.data()), text.size() * 2);
    char* inPtr = &in[0];
    std::size_t inLeft = in.size();
    char* outPtr = &out[0];
    std::size_t outLeft = out.size();
    const std::size_t result = iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft);
    EXPECT_NE(result, static_cast<std::size_t>(-1)) << glibcName << " cannot hold the sample";
    iconv(cd, nullptr, nullptr, &outPtr, &outLeft);
    iconv_close(cd);
    out.resize(out.size() - outLeft);
    return out;
}

// HZ (RFC 1843) by its definition: ASCII as is; a run of GB2312 characters
// between "~{" and "~}" with the high bit of each byte cleared.
std::string HzFromGb2312(const std::u16string& text) {
    const std::string gb = IconvEncode("GB2312", text);
    std::string hz;
    bool inGb = false;
    for (std::size_t i = 0; i < gb.size(); ++i) {
        const auto byte = static_cast<unsigned char>(gb[i]);
        if (byte >= 0x80) {
            if (!inGb) hz += "~{";
            inGb = true;
            hz.push_back(static_cast<char>(byte & 0x7F));
            hz.push_back(static_cast<char>(static_cast<unsigned char>(gb[++i]) & 0x7F));
        } else {
            if (inGb) hz += "~}";
            inGb = false;
            hz.push_back(static_cast<char>(byte));
        }
    }
    if (inGb) hz += "~}";
    return hz;
}

std::string Encode(const Units& text, const CharEncoding& to) {
    std::string out(text.size() * 8 + 16, '\0');
    BufferChar16Source source(text.data(), text.data() + text.size());
    CharEncodingConverter converter(source, Char16Encoding::UTF16(), to);
    BufferCharSink sink(&out[0], static_cast<long>(out.size()));
    sink.Put(converter);
    sink.Flush();
    EXPECT_FALSE(sink.IsTruncated());
    out.resize(static_cast<std::size_t>(sink.Written()));
    return out;
}

Units Decode(const std::string& bytes, const CharEncoding& from) {
    Units out(bytes.size() + 16);
    BufferCharSource source(bytes.data(), bytes.data() + bytes.size());
    Char16EncodingConverter converter(source, from, Char16Encoding::UTF16());
    BufferChar16Sink sink(out.data(), static_cast<long>(out.size()));
    sink.Put(converter);
    sink.Flush();
    out.resize(static_cast<std::size_t>(sink.Written()));
    return out;
}

std::string Hex(const std::string& bytes) {
    static const char kDigits[] = "0123456789ABCDEF";
    std::string hex;
    for (unsigned char b : bytes) {
        hex.push_back(kDigits[b >> 4]);
        hex.push_back(kDigits[b & 15]);
    }
    return hex;
}

TEST(EncodingReferenceTest, TheSamplesCoverEveryRowOfTheLocaleTable) {
    EXPECT_EQ(Samples().size(), 59u);
    for (std::size_t i = 0; i + 1 < Samples().size(); ++i) {
        EXPECT_LT(std::strcmp(Samples()[i].name, Samples()[i + 1].name), 0);
    }
}

TEST(EncodingReferenceTest, EverySampleRoundTripsAndMatchesTheReference) {
    int compared = 0;
    for (const Sample& sample : Samples()) {
        SCOPED_TRACE(sample.name);
        const CharEncoding* encoding = CharEncoding::Lookup(sample.name);
        if (sample.reference == Reference::kUnserved) {
            EXPECT_EQ(encoding, nullptr);
            continue;
        }
        ASSERT_NE(encoding, nullptr);
        const Units text = UnitsOf(sample.text);
        const std::string bytes = Encode(text, *encoding);
        EXPECT_FALSE(bytes.empty());
        EXPECT_EQ(Decode(bytes, *encoding), text) << Hex(bytes);
        // The sample's letters are native to the encoding: no substitution.
        EXPECT_EQ(bytes.find('\x1A'), std::string::npos) << Hex(bytes);
        if (sample.reference == Reference::kIconv) {
            EXPECT_EQ(Hex(bytes), Hex(IconvEncode(sample.glibcName, sample.text)));
            ++compared;
        } else if (sample.reference == Reference::kHzFromGb) {
            EXPECT_EQ(Decode(HzFromGb2312(sample.text), *encoding), text);
            ++compared;
        }
    }
    EXPECT_EQ(compared, 51);
}

// Where Shift_JIS variants part: glibc's SHIFT_JIS reads 0x5C as the yen
// sign, Windows (and the engine) as the backslash; both write a backslash as
// 0x5C. The engine agrees with glibc's CP932 in both directions.
TEST(EncodingReferenceTest, ShiftJisKeepsTheBackslashAsWindowsDoes) {
    const CharEncoding& sjis = *CharEncoding::Lookup("Shift-JIS");
    const std::u16string text = u"C:\\dir~";
    const std::string bytes = Encode(UnitsOf(text), sjis);
    EXPECT_EQ(bytes, "C:\\dir~");
    EXPECT_EQ(bytes, IconvEncode("SHIFT_JIS", text));
    EXPECT_EQ(bytes, IconvEncode("CP932", text));
    EXPECT_EQ(Decode(bytes, sjis), UnitsOf(text));
}

}  // namespace

// The encoding library against glibc's iconv and ICU, its buffers, cache and exceptions.
#include <gtest/gtest.h>
#include <iconv.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <cstring>
#include <sstream>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "frame/encoding_exception_translator.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/char_encoding.h"
#include "kai18n/platform/ka_convertion.h"
#include "platform/encoding/converter_cache.h"
#include "platform/encoding/encoding_exceptions.h"
#include "platform/encoding/engine_status.h"
#include "test_support.h"

namespace {

using test_support::Units;

// Letters for each encoding served, with glibc's name ("NAME=GLIBC", "NAME" when the same, "NAME="
// for none); some tell the converter from a neighbour (the euro of CP874 and CP950, a Hangul
// syllable of CP949 outside KS X 1001, ideographs of CNS 11643 planes 2 and 4).
const std::pair<std::u16string, const char*> kSamples[] = {
    {u"Abc xyz \uFB01", "Adobe-Standard-Encoding="},
    {u"Abc café", "CP437 CP850 ISO-8859-1 MacRoman=MACINTOSH"},
    {u"Abc café €", "CP1252 ISO-8859-15"},
    {u"Abc Łódź", "CP1250 CP852 ISO-8859-2 MacCentralEuropean=MAC-CENTRALEUROPE"},
    {u"Abc Жизнь", "CP1251 CP855 CP866 ISO-8859-5 MacCyrillic=MAC-CYRILLIC"},
    {u"Abc Жизнь Ґґ Її Єє", "MacUkrainian=MAC-UK"},
    {u"Abc Ελλάς", "CP1253 CP869 ISO-8859-7 MacGreek="},
    {u"Abc Ğşİı", "CP1254 CP857 ISO-8859-9 MacTurkish="},
    {u"Abc אבג שלום", "CP1255 CP862 ISO-8859-8"},
    {u"Abc عربي", "CP1256 ISO-8859-6"},
    {u"Abc Rīga Ąž", "CP1257"},
    {u"Abc Rīga Ļū", "ISO-8859-4"},
    {u"Abc Đơn", "CP1258"},
    {u"Abc São", "CP860"},
    {u"Abc Þórð", "CP861"},
    {u"Abc Søø", "CP865"},
    {u"Abc กขค €", "CP874"},
    {u"Abc กขค", "Thai=ISO-8859-11"},
    {u"Abc Ŵŷ é", "ISO-8859-14"},
    {u"Abc Ħġĉ", "ISO-8859-3"},
    {u"Abc 日本語 かな ｱ", "CP932 EUC-JP Shift-JIS=SHIFT_JIS"},
    {u"Abc 日本語 かな", "ISO-2022-JP"},
    {u"Abc 中文", "Big5=BIG5 CP936 GB2312"},
    {u"Abc 中文 €", "CP950"},
    {u"Abc 中文 乂丂", "CNS-11643=EUC-TW"},
    {u"Abc 中文 € \U00020000", "GB18030"},
    {u"Abc 中文 def", "HZ-GB-2312="},
    {u"Abc 한국어 똠", "CP949"},
    {u"Abc 한국어", "EUC-KR ISO-2022-KR"},
};

const CharEncoding& Named(const std::string& name) {
    return *CharEncoding::Lookup(name.c_str());
}

// Yields its text in blocks of `step`.
template <class Base, class Text>
struct SteppingSource : Base {
    SteppingSource(const Text& text, std::size_t step) : text(text), step(step) {}
    long Read(const typename Text::value_type*& block) override {
        const std::size_t n = std::min(step, text.size() - at);
        block = text.data() + at;
        at += n;
        return static_cast<long>(n);
    }
    const Text& text;
    std::size_t step, at = 0;
};

// Keeps every block.
template <class Base, class Text>
struct CollectingSink : Base {
    CollectingSink() : Base(nullptr) {}
    void DoWrite(const typename Text::value_type* block, long count) override {
        text.insert(text.end(), block, block + count);
    }
    Text text;
};

// Converts through the engine, the source giving blocks of `step`.
template <class Converter, class Sink, class Out, class Source, class In, class From, class To>
Out Run(const In& in, const From& from, const To& to, std::size_t step) {
    SteppingSource<Source, In> source(in, step);
    Converter converter(source, from, to);
    CollectingSink<Sink, Out> sink;
    sink.Put(converter);
    return sink.text;
}
std::string Encode(const Units& text, const CharEncoding& to, std::size_t step = 1) {
    return Run<CharEncodingConverter, CharSink, std::string, Char16Source>(
        text, Char16Encoding::UTF16(), to, step);
}
Units Decode(const std::string& bytes, const CharEncoding& from, std::size_t step = 1) {
    return Run<Char16EncodingConverter, Char16Sink, Units, CharSource>(
        bytes, from, Char16Encoding::UTF16(), step);
}
std::string Transcode(const std::string& bytes, const CharEncoding& from, const CharEncoding& to,
                      std::size_t step) {
    return Run<CharEncodingConverter, CharSink, std::string, CharSource>(bytes, from, to, step);
}

// ICU on the whole text in one call; glibc's iconv from UTF-16LE, its shift state closed.
std::string Icu(const char* to, const char* from, const std::string& bytes) {
    UErrorCode status = U_ZERO_ERROR;
    std::string out(bytes.size() * 4 + 16, '\0');
    out.resize(ucnv_convert(to, from, &out[0], static_cast<int32_t>(out.size()), bytes.data(),
                            static_cast<int32_t>(bytes.size()), &status));
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    return out;
}
std::string Le(const Units& text) {
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2);
}
std::string Iconv(const char* glibcName, const Units& text) {
    iconv_t cd = iconv_open(glibcName, "UTF-16LE");
    EXPECT_NE(cd, reinterpret_cast<iconv_t>(-1)) << glibcName;
    std::string out(text.size() * 8 + 16, '\0'), in = Le(text);
    char *inPtr = &in[0], *outPtr = &out[0];
    std::size_t inLeft = in.size(), outLeft = out.size();
    EXPECT_NE(iconv(cd, &inPtr, &inLeft, &outPtr, &outLeft), static_cast<std::size_t>(-1));
    iconv(cd, nullptr, nullptr, &outPtr, &outLeft);
    iconv_close(cd);
    out.resize(out.size() - outLeft);
    return out;
}

// Each sample round-trips without substitution and gives iconv's bytes; the five Mac encodings that
// ICU lacks are not served.
TEST(CharEncodingTableTest, EverySampleRoundTripsAndMatchesIconv) {
    for (const char* mac : {"MacCroatian", "MacIcelandic", "MacJapanese", "MacRomanian", "MacThai"})
        EXPECT_EQ(CharEncoding::Lookup(mac), nullptr) << mac;
    int compared = 0;
    for (const auto& [sample, row] : kSamples) {
        std::istringstream in(row);
        for (std::string name; in >> name;) {
            const std::size_t equals = name.find('=');
            const std::string glibc = equals == std::string::npos ? name : name.substr(equals + 1);
            const CharEncoding& encoding = Named(name.substr(0, equals));
            const Units text = test_support::UnitsOf(sample);
            const std::string bytes = Encode(text, encoding, 4096);
            EXPECT_EQ(Decode(bytes, encoding, 4096), text) << name;
            EXPECT_EQ(bytes.find('\x1A'), std::string::npos) << name;
            EXPECT_TRUE(glibc.empty() || bytes == Iconv(glibc.c_str(), text)) << name;
            compared += !glibc.empty();
        }
    }
    EXPECT_EQ(compared, 50);
    for (const char* other :
         {"cp1252", "CP125", "CP12520", "", "Shift_JIS", static_cast<const char*>(nullptr)})
        EXPECT_EQ(CharEncoding::Lookup(other), nullptr) << other;
    // glibc's SHIFT_JIS reads 0x5C as the yen sign; Windows, the engine and glibc's CP932 as "\\".
    const Units path = test_support::UnitsOf(u"C:\\dir~");
    EXPECT_EQ(Encode(path, Named("Shift-JIS")), Iconv("CP932", path));
    EXPECT_EQ(Decode("C:\\dir~", Named("Shift-JIS")), path);
}

// Mixed scripts and a supplementary character, so that blocks of any size split pairs and shifts
// anywhere, give ICU's one-call result, also bytes to bytes; malformed input is substituted.
TEST(EncodingConverterTest, BlocksOfAnySizeGiveTheOneShotResult) {
    const std::u16string pieces[] = {u"Abc ",   u"日本語",  u"かな ",       u"中文",
                                     u"Жизнь ", u"한국어 ", u"\U00020B9F ", u"x\u00E9y "};
    Units text;
    for (std::size_t i = 0; text.size() < 20000; ++i)
        text.insert(text.end(), pieces[(i * 7) % 8].begin(), pieces[(i * 7) % 8].end());
    for (const char* name :
         {"UTF-8", "Shift-JIS", "GB18030", "ISO-2022-JP", "EUC-KR", "HZ-GB-2312", "CP1251"}) {
        const std::string expected = Icu(Named(name).EngineName(), "UTF-16LE", Le(text));
        const std::string decoded = Icu("UTF-16LE", Named(name).EngineName(), expected);
        for (std::size_t step : {std::size_t{1}, std::size_t{7}, std::size_t{4096}, text.size()}) {
            const std::string bytes = Encode(text, Named(name), step);
            EXPECT_EQ(bytes, expected) << name << step;
            EXPECT_EQ(Le(Decode(bytes, Named(name), step)), decoded) << name << step;
        }
    }
    const CharEncoding &sjis = Named("Shift-JIS"), &utf8 = CharEncoding::Unicode20UTF8();
    const std::string sjisBytes = Icu(sjis.EngineName(), "UTF-16LE", Le(text));
    const std::string utf8Bytes = Icu("UTF-8", sjis.EngineName(), sjisBytes);
    for (std::size_t step : {std::size_t{1}, std::size_t{5}, sjisBytes.size()}) {
        EXPECT_EQ(Transcode(sjisBytes, sjis, utf8, step), utf8Bytes) << step;
        EXPECT_EQ(Transcode(utf8Bytes, utf8, sjis, step), sjisBytes) << step;
    }
    EXPECT_EQ(Transcode("", sjis, utf8, 1) + Encode(Units(), utf8), "");
    EXPECT_EQ(Decode("", utf8), Units());
    for (const std::string bad : {"a\x93", "a\xC0\x80z"})
        EXPECT_EQ(Le(Decode(bad, sjis)), Icu("UTF-16LE", sjis.EngineName(), bad));
    EXPECT_EQ(Encode({'a', 0x4E2D}, CharEncoding::CP1252()), "a\x1A");  // a substitution byte
}

// A buffer sink keeps what fits and marks the rest, or fails when told to; bad ranges, buffers and
// counts are refused. Put stops reading once the sink is full: blocks of 2 into 3 bytes, the third
// read and dropped, the fourth never asked for.
TEST(EncodingSourceAndSinkTest, BuffersKeepWhatFitsAndRefuseBadRanges) {
    const Units units = {1, 2, 3};
    unsigned short two[2] = {0, 0};
    BufferChar16Sink failing(two, 2);
    failing.SetBehavior(SinkBehavior::kFailWhenFull);
    EXPECT_THROW(failing.Write(units.data(), 3), bt_out_of_range);
    EXPECT_TRUE(failing.IsTruncated() && two[1] == 2 && failing.Written() == 2);
    const char bytes[] = "abc";
    EXPECT_THROW(BufferCharSource(bytes + 2, bytes), bt_out_of_range);
    EXPECT_THROW(BufferCharSource(nullptr, bytes), bt_out_of_range);
    EXPECT_THROW(BufferChar16Source(units.data() + 2, units.data()), bt_out_of_range);
    char buffer[4] = {'.', '.', '.', '.'};
    EXPECT_THROW(BufferCharSink(buffer, -1), bt_out_of_range);
    EXPECT_THROW(BufferCharSink(nullptr, 1), bt_out_of_range);
    EXPECT_NO_THROW(BufferCharSink(nullptr, 0));
    BufferCharSink sink(buffer, 3);
    EXPECT_THROW(sink.Write("a", -1), bt_out_of_range);
    const std::string text = "aabbccdd";
    SteppingSource<CharSource, std::string> stepping(text, 2);
    sink.Put(stepping);
    EXPECT_TRUE(sink.IsTruncated() && sink.RemainingCapacity() == 0);
    EXPECT_EQ(std::string(buffer, 4) + text.substr(stepping.at), "aab.dd");
}

// A thread reuses its converter, reset, and never lends a busy one; each thread has its own. A
// converter abandoned in the two-byte shift of ISO-2022-JP leaks no state into the next conversion.
TEST(EncodingEngineLeaseTest, AThreadReusesItsConverterAndNeverSharesABusyOne) {
    const CharEncoding& cp1252 = CharEncoding::CP1252();
    void* first = nullptr;
    {
        const EncodingEngineLease lease(&cp1252);
        first = lease.Engine();
        EXPECT_NE(EncodingEngineLease(&cp1252).Engine(), first);
    }
    void* other = nullptr;
    std::thread([&] { other = EncodingEngineLease(&cp1252).Engine(); }).join();
    EXPECT_EQ(EncodingEngineLease(&cp1252).Engine(), first);
    EXPECT_TRUE(first != nullptr && other != nullptr && other != first);
    EXPECT_EQ(EncodingEngineLease(nullptr).Engine(), nullptr);
    {
        const Units kanji(3 * CharEncodingConverter::kBlockBytes, 0x65E5);
        BufferChar16Source source(kanji.data(), kanji.data() + kanji.size());
        CharEncodingConverter converter(source, Char16Encoding::UTF16(), Named("ISO-2022-JP"));
        const char* block = nullptr;
        ASSERT_EQ(converter.Read(block), CharEncodingConverter::kBlockBytes);
    }
    EXPECT_EQ(Encode({'a'}, Named("ISO-2022-JP")), "a");
}

// Converts in its destructor, after the thread's converter cache has closed, with its own
// converter.
struct ConvertsWhenTheThreadEnds {
    std::string* result = nullptr;
    unsigned int* cachedAfter = nullptr;
    ~ConvertsWhenTheThreadEnds() {
        if (result == nullptr) return;
        *result = Encode({'x', 0x00E9}, CharEncoding::CP1252());
        *cachedAfter = kaCachedConverterCount();
    }
};

TEST(EncodingConvertersThreadTest, ConversionsWorkWhileTheThreadEndsAndAtTheSameTime) {
    std::string late, early;
    unsigned int cachedDuring = 0, cachedAfter = 99;
    std::thread([&] {
        static thread_local ConvertsWhenTheThreadEnds last;  // destroyed after the cache's closer
        last.result = &late;
        last.cachedAfter = &cachedAfter;
        early = Encode({'x', 0x00E9}, CharEncoding::CP1252());
        cachedDuring = kaCachedConverterCount();
    }).join();
    EXPECT_EQ(early + late, "x\xE9x\xE9");
    EXPECT_EQ(cachedDuring * 10 + cachedAfter, 10u);
    const Units text(20000, 0x65E5);
    const std::string expected = Encode(text, Named("Shift-JIS"), text.size());
    std::vector<int> good(4, 0);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 10; ++i)
                good[t] += Encode(text, Named("Shift-JIS"), 100 + t) == expected;
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(good, (std::vector<int>{10, 10, 10, 10}));
}

// kaConvertion (the facet's other engine) measures with too small a target, knows names in any
// spelling, refuses bad ranges and capacities, and fails on an unknown or empty name when used.
TEST(KaConvertionTest, MeasuresAndRefuses) {
    const kaConvertion koi8("KOI8-R"), copy(koi8);
    const char bytes[] = "\xF6\xC9\xDA ok";  // Жиз ok
    Units target(6, 0xEEEE);
    EXPECT_EQ(copy.toUnicode(bytes, bytes + 6, target.data(), 2), 6);
    EXPECT_EQ(target, (Units{0x0416, 0x0438, 0xEEEE, 0xEEEE, 0xEEEE, 0xEEEE}));
    EXPECT_EQ(copy.GetName() + kaConvertion(nullptr).GetName(), "KOI8-R");
    for (const char* name : {"windows-1252", "koi8r", "x-mac-greek"})
        EXPECT_TRUE(kaConvertion::IsSupported(name)) << name;
    for (const char* name : {"", "MacThai", "Thai", static_cast<const char*>(nullptr)})
        EXPECT_FALSE(kaConvertion::IsSupported(name));
    EXPECT_THROW(kaConvertion("no-such").fromUnicode(&target[0], &target[0] + 1, nullptr, 0),
                 EncodingNotLoaded);
    EXPECT_THROW(kaConvertion("").toUnicode(bytes, bytes + 6, nullptr, 0), EncodingNotLoaded);
    EXPECT_THROW(koi8.toUnicode(bytes + 6, bytes, nullptr, 0), bt_out_of_range);
    EXPECT_THROW(koi8.toUnicode(bytes, bytes + 6, target.data(), -1), bt_out_of_range);
    EXPECT_THROW(koi8.toUnicode(nullptr, bytes, nullptr, 0), bt_out_of_range);
    EXPECT_THROW(koi8.fromUnicode(&target[0] + 1, &target[0], nullptr, 0), bt_out_of_range);
}

// Each failure of the engine becomes the exception that the translator knows, its message naming
// the encoding and the status; warnings pass.
TEST(EngineStatusTest, EachFailureBecomesTheExceptionTheTranslatorKnows) {
    const std::tuple<UErrorCode, EngineStep, long, const char*> cases[] = {
        {U_FILE_ACCESS_ERROR, EngineStep::kOpen, LU_E_ENCODING, "Encoding not loaded"},
        {U_UNSUPPORTED_ERROR, EngineStep::kEncode, LU_E_ENCODING, "Invalid ouput encoding"},
        {U_NO_WRITE_PERMISSION, EngineStep::kEncode, LU_E_ENCODING, "Invalid ouput encoding"},
        {U_UNSUPPORTED_ERROR, EngineStep::kDecode, LU_E_ENCODING, "Unicode library error"},
        {U_INDEX_OUTOFBOUNDS_ERROR, EngineStep::kDecode, LU_E_OUT_OF_RANGE,
         "Unicode library error"},
        {U_ILLEGAL_ARGUMENT_ERROR, EngineStep::kEncode, LU_E_OUT_OF_RANGE, "Unicode library error"},
    };
    for (const auto& [status, step, expectedCode, expectedMessage] : cases) {
        std::string what, message;
        long code = 0;
        try {
            try {
                kaCheckEngineStatus(status, step, "MacThai");
            } catch (const std::exception& error) {
                what = error.what();
                kaTranslateEncodingException();
            }
        } catch (const LUException& error) {
            code = error.GetResult();
            message = error.GetMessage();
        }
        EXPECT_EQ(std::to_string(code) + message, std::to_string(expectedCode) + expectedMessage)
            << what;
        EXPECT_NE(what.find(std::string("MacThai: ") + u_errorName(status)), std::string::npos);
    }
    EXPECT_NO_THROW(kaCheckEngineStatus(U_AMBIGUOUS_ALIAS_WARNING, EngineStep::kOpen, "x"));
    EXPECT_THROW(kaCheckEngineStatus(U_INTERNAL_PROGRAM_ERROR, EngineStep::kDecode, nullptr),
                 UnicodeLibraryException);
    // A source that gives a negative length fails the conversion.
    struct NegativeSource : CharSource {
        long Read(const char*& block) override { return block = nullptr, -1; }
    } negative;
    Char16EncodingConverter converter(negative, CharEncoding::CP1252(), Char16Encoding::UTF16());
    const unsigned short* block = nullptr;
    EXPECT_THROW(converter.Read(block), bt_out_of_range);
}

}  // namespace

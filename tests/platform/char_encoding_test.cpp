// The encoding library: its table against ICU's converters, the buffer
// sources and sinks, block-wise conversion, the per-thread converter cache,
// and the exceptions of the engine layer.
#include <gtest/gtest.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "frame/encoding_exception_translator.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/char_encoding.h"
#include "platform/encoding/converter_cache.h"
#include "platform/encoding/encoding_exceptions.h"
#include "platform/encoding/engine_status.h"
#include "test_support.h"

namespace {

using test_support::Units;

// The technical names, in the order of the library's table.
std::vector<std::string> TechnicalNames() {
    std::istringstream in(
        "Adobe-Standard-Encoding Big5 CNS-11643 CP1250 CP1251 "
        "CP1252 CP1253 CP1254 CP1255 "
        "CP1256 CP1257 CP1258 CP437 CP850 CP852 CP855 CP857 "
        "CP860 CP861 CP862 CP865 CP866 "
        "CP869 CP874 CP932 CP936 CP949 CP950 EUC-JP EUC-KR "
        "GB18030 GB2312 HZ-GB-2312 "
        "ISO-2022-JP ISO-2022-KR ISO-8859-1 ISO-8859-14 "
        "ISO-8859-15 ISO-8859-2 ISO-8859-3 "
        "ISO-8859-4 ISO-8859-5 ISO-8859-6 ISO-8859-7 "
        "ISO-8859-8 ISO-8859-9 MacCentralEuropean "
        "MacCroatian MacCyrillic MacGreek MacIcelandic "
        "MacJapanese MacRoman MacRomanian MacThai "
        "MacTurkish MacUkrainian Shift-JIS Thai UTF-8");
    std::vector<std::string> names;
    for (std::string name; in >> name;) names.push_back(name);
    return names;
}

// ICU has no converter for these.
const char* const kUnserved[] = {"MacCroatian", "MacIcelandic", "MacJapanese", "MacRomanian",
                                 "MacThai"};

std::string Bytes(std::initializer_list<int> values) {
    std::string s;
    for (int v : values) s.push_back(static_cast<char>(v));
    return s;
}

const CharEncoding& Named(const char* name) {
    return *CharEncoding::Lookup(name);
}

// Yields its text in blocks of `step`.
template <class Base, class Text>
class SteppingSource : public Base {
  public:
    SteppingSource(const Text& text, std::size_t step) : m_text(text), m_step(step) {}
    long Read(const typename Text::value_type*& block) override {
        const std::size_t n = std::min(m_step, m_text.size() - m_pos);
        block = m_text.data() + m_pos;
        m_pos += n;
        return static_cast<long>(n);
    }

  private:
    const Text& m_text;
    std::size_t m_step;
    std::size_t m_pos = 0;
};
using SteppingCharSource = SteppingSource<CharSource, std::string>;
using SteppingChar16Source = SteppingSource<Char16Source, Units>;

// Keeps every block and its size.
template <class Base, class Text>
class CollectingSink : public Base {
  public:
    CollectingSink() : Base(nullptr) {}
    Text text;
    std::vector<long> blocks;
    int flushes = 0;

  protected:
    void DoWrite(const typename Text::value_type* block, long count) override {
        text.insert(text.end(), block, block + count);
        blocks.push_back(count);
    }
    void DoFlush() override { ++flushes; }
};
using CollectingCharSink = CollectingSink<CharSink, std::string>;
using CollectingChar16Sink = CollectingSink<Char16Sink, Units>;

std::string Encode(const Units& text, const CharEncoding& to, std::size_t step) {
    SteppingChar16Source source(text, step);
    CharEncodingConverter converter(source, Char16Encoding::UTF16(), to);
    CollectingCharSink sink;
    sink.Put(converter);
    sink.Flush();
    return sink.text;
}

Units Decode(const std::string& bytes, const CharEncoding& from, std::size_t step) {
    SteppingCharSource source(bytes, step);
    Char16EncodingConverter converter(source, from, Char16Encoding::UTF16());
    CollectingChar16Sink sink;
    sink.Put(converter);
    return sink.text;
}

std::string Transcode(const std::string& bytes, const CharEncoding& from, const CharEncoding& to,
                      std::size_t step) {
    SteppingCharSource source(bytes, step);
    CharEncodingConverter converter(source, from, to);
    CollectingCharSink sink;
    sink.Put(converter);
    return sink.text;
}

// ICU on the whole text in one call: the reference for block-wise conversion.
std::string IcuEncode(const char* engineName, const Units& text) {
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(engineName, &status);
    std::string out(text.size() * 4 + 16, '\0');
    const int32_t n = ucnv_fromUChars(converter, &out[0], static_cast<int32_t>(out.size()),
                                      reinterpret_cast<const UChar*>(text.data()),
                                      static_cast<int32_t>(text.size()), &status);
    ucnv_close(converter);
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    out.resize(static_cast<std::size_t>(n));
    return out;
}

Units IcuDecode(const char* engineName, const std::string& bytes) {
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(engineName, &status);
    Units out(bytes.size() * 2 + 16);
    const int32_t n = ucnv_toUChars(converter, reinterpret_cast<UChar*>(out.data()),
                                    static_cast<int32_t>(out.size()), bytes.data(),
                                    static_cast<int32_t>(bytes.size()), &status);
    ucnv_close(converter);
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    out.resize(static_cast<std::size_t>(n));
    return out;
}

// ASCII, kana, kanji, Hangul, Cyrillic and a supplementary character mixed so
// that every block boundary falls somewhere else.
Units LongMixedText(std::size_t units) {
    static const char16_t kPieces[][8] = {u"Abc ",   u"日本語",  u"かな ",       u"中文",
                                          u"Жизнь ", u"한국어 ", u"\U00020B9F ", u"x\u00E9y "};
    Units text;
    for (std::size_t i = 0; text.size() < units; ++i) {
        for (const char16_t* p = kPieces[(i * 7) % 8]; *p != 0; ++p) text.push_back(*p);
    }
    return text;
}

// ---------------------------------------------------------------------------
// The table

TEST(CharEncodingTableTest, EveryServedNameIsOneCanonicalIcuConverterAtItsIndex) {
    const std::vector<std::string> names = TechnicalNames();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const char* name = names[i].c_str();
        SCOPED_TRACE(name);
        const CharEncoding* found = CharEncoding::Lookup(name);
        if (std::count(std::begin(kUnserved), std::end(kUnserved), names[i]) != 0) {
            EXPECT_EQ(found, nullptr);
            continue;
        }
        ASSERT_NE(found, nullptr);
        EXPECT_STREQ(found->Name(), name);
        EXPECT_EQ(found->Index(), i);
        EXPECT_EQ(CharEncoding::Lookup(name), found) << "one object for each encoding";
        // The canonical name, so that no alias decides which converter serves.
        UErrorCode status = U_ZERO_ERROR;
        UConverter* converter = ucnv_open(found->EngineName(), &status);
        ASSERT_TRUE(U_SUCCESS(status)) << u_errorName(status);
        EXPECT_STREQ(ucnv_getName(converter, &status), found->EngineName());
        ucnv_close(converter);
    }
    for (const char* other : {"cp1252", "CP125", "CP12520", "", "Shift_JIS", "ZZZ", "A"}) {
        EXPECT_EQ(CharEncoding::Lookup(other), nullptr) << other;
    }
    EXPECT_EQ(CharEncoding::Lookup(nullptr), nullptr);
    EXPECT_EQ(&CharEncoding::CP1252(), CharEncoding::Lookup("CP1252"));
    EXPECT_EQ(&CharEncoding::Unicode20UTF8(), CharEncoding::Lookup("UTF-8"));
    EXPECT_STREQ(CharEncoding::CP1252().EngineName(), "ibm-5348_P100-1997");
    EXPECT_STREQ(CharEncoding::Unicode20UTF8().EngineName(), "UTF-8");
    EXPECT_STREQ(Char16Encoding::UTF16().Name(), "UTF-16");
}

// Why the unserved names stay unserved: ICU has no converter for them.
TEST(CharEncodingTableTest, UnservedNamesAreUnknownToIcu) {
    for (const char* spelling : kUnserved) {
        for (const std::string& name :
             {std::string(spelling), "x-mac-" + std::string(spelling + 3)}) {
            UErrorCode status = U_ZERO_ERROR;
            UConverter* converter = ucnv_open(name.c_str(), &status);
            EXPECT_TRUE(U_FAILURE(status)) << name;
            if (converter != nullptr) ucnv_close(converter);
        }
    }
}

// ---------------------------------------------------------------------------
// Sources and sinks

TEST(EncodingSourceTest, BufferSourcesGiveTheWholeRangeOnceAndRefuseBadRanges) {
    const char bytes[] = "abcdef";
    BufferCharSource source(bytes, bytes + 6);
    const char* block = nullptr;
    EXPECT_EQ(source.Read(block), 6);
    EXPECT_EQ(block, bytes);
    EXPECT_EQ(source.Read(block), 0);
    const Units units = {1, 2, 3};
    BufferChar16Source source16(units.data(), units.data() + 3);
    const unsigned short* block16 = nullptr;
    EXPECT_EQ(source16.Read(block16), 3);
    EXPECT_EQ(block16, units.data());
    EXPECT_EQ(source16.Read(block16), 0);
    BufferCharSource empty(nullptr, nullptr);
    EXPECT_EQ(empty.Read(block), 0);

    EXPECT_THROW(BufferCharSource(bytes + 2, bytes), bt_out_of_range);
    EXPECT_THROW(BufferCharSource(nullptr, bytes), bt_out_of_range);
    EXPECT_THROW(BufferChar16Source(units.data() + 2, units.data()), bt_out_of_range);
}

TEST(EncodingSinkTest, BufferSinkKeepsWhatFitsAndMarksTheRest) {
    char buffer[8];
    std::memset(buffer, '.', sizeof buffer);
    BufferCharSink sink(buffer, 5);
    EXPECT_EQ(sink.RemainingCapacity(), 5);
    sink.Write("abc", 3);
    EXPECT_EQ(sink.RemainingCapacity(), 2);
    EXPECT_FALSE(sink.IsTruncated());
    sink.Write("defg", 4);
    EXPECT_TRUE(sink.IsTruncated());
    EXPECT_EQ(sink.Written(), 5);
    EXPECT_EQ(sink.RemainingCapacity(), 0);
    sink.Flush();
    EXPECT_EQ(std::string(buffer, 8), "abcde...");
    EXPECT_EQ(sink.GetActor(), nullptr);
    EXPECT_EQ(sink.GetBehavior(), SinkBehavior::kTruncate);

    unsigned short units[2] = {0, 0};
    BufferChar16Sink failing(units, 2);
    failing.SetBehavior(SinkBehavior::kFailWhenFull);
    const unsigned short xyz[] = {'x', 'y', 'z'};
    EXPECT_THROW(failing.Write(xyz, 3), bt_out_of_range);
    EXPECT_TRUE(failing.IsTruncated());
    EXPECT_EQ(units[0], 'x');
    EXPECT_EQ(units[1], 'y');
}

TEST(EncodingSinkTest, BadBuffersAndCountsAreRefused) {
    char buffer[1];
    EXPECT_THROW(BufferCharSink(buffer, -1), bt_out_of_range);
    EXPECT_THROW(BufferCharSink(nullptr, 1), bt_out_of_range);
    EXPECT_NO_THROW(BufferCharSink(nullptr, 0));
    BufferCharSink sink(buffer, 1);
    EXPECT_THROW(sink.Write("a", -1), bt_out_of_range);
}

TEST(EncodingSinkTest, PutStopsReadingOnceTheSinkIsFull) {
    // Blocks of 2 into 3 bytes: the second block is cut, the third read and
    // dropped, the fourth never asked for.
    const std::string text = "aabbccdd";
    SteppingCharSource source(text, 2);
    char buffer[3];
    BufferCharSink sink(buffer, 3);
    sink.Put(source);
    EXPECT_TRUE(sink.IsTruncated());
    EXPECT_EQ(std::string(buffer, 3), "aab");
    const char* block = nullptr;
    ASSERT_EQ(source.Read(block), 2) << "the fourth block was left unread";
    EXPECT_EQ(std::string(block, 2), "dd");
}

TEST(EncodingSinkTest, UnboundedSinkTakesEverythingAndFlushesOnlyWhenAsked) {
    const std::string text = "0123456789";
    SteppingCharSource source(text, 3);
    CollectingCharSink sink;
    EXPECT_EQ(sink.RemainingCapacity(), std::numeric_limits<long>::max());
    sink.Put(source);
    EXPECT_EQ(sink.text, text);
    EXPECT_EQ(sink.blocks, (std::vector<long>{3, 3, 3, 1}));
    EXPECT_EQ(sink.flushes, 0);
    sink.Flush();
    EXPECT_EQ(sink.flushes, 1);
    EXPECT_FALSE(sink.IsTruncated());
}

// ---------------------------------------------------------------------------
// Converters

TEST(EncodingConverterTest, BlocksOfAnySizeGiveTheOneShotResult) {
    const Units text = LongMixedText(20000);
    for (const char* name :
         {"UTF-8", "Shift-JIS", "GB18030", "ISO-2022-JP", "EUC-KR", "HZ-GB-2312", "CP1251"}) {
        SCOPED_TRACE(name);
        const CharEncoding& encoding = Named(name);
        const std::string expected = IcuEncode(encoding.EngineName(), text);
        const Units decoded = IcuDecode(encoding.EngineName(), expected);
        for (std::size_t step : {std::size_t{1}, std::size_t{7}, std::size_t{4096}, text.size()}) {
            SCOPED_TRACE(step);
            const std::string bytes = Encode(text, encoding, step);
            EXPECT_EQ(bytes, expected);
            EXPECT_EQ(Decode(bytes, encoding, step), decoded);
        }
    }
}

TEST(EncodingConverterTest, OutputComesInFullBlocksOfTheFixedSize) {
    const Units text = LongMixedText(30000);
    BufferChar16Source source(text.data(), text.data() + text.size());
    CharEncodingConverter converter(source, Char16Encoding::UTF16(), CharEncoding::Unicode20UTF8());
    CollectingCharSink bytes;
    bytes.Put(converter);
    ASSERT_GT(bytes.blocks.size(), 3u);
    for (std::size_t i = 0; i + 1 < bytes.blocks.size(); ++i) {
        EXPECT_EQ(bytes.blocks[i], CharEncodingConverter::kBlockBytes) << i;
    }
    EXPECT_GT(bytes.blocks.back(), 0);
    EXPECT_LE(bytes.blocks.back(), CharEncodingConverter::kBlockBytes);

    BufferCharSource back(bytes.text.data(), bytes.text.data() + bytes.text.size());
    Char16EncodingConverter decoder(back, CharEncoding::Unicode20UTF8(), Char16Encoding::UTF16());
    CollectingChar16Sink units;
    units.Put(decoder);
    EXPECT_EQ(units.text, text);
    for (std::size_t i = 0; i + 1 < units.blocks.size(); ++i) {
        EXPECT_EQ(units.blocks[i], Char16EncodingConverter::kBlockUnits) << i;
    }
}

// Fed one unit at a time: a surrogate pair split between source blocks is
// joined, and a stateful encoding closes its shift at the end.
TEST(EncodingConverterTest, UnitByUnitEncodingJoinsPairsAndClosesShifts) {
    const struct {
        const char* encoding;
        Units text;
        std::string bytes;
    } cases[] = {
        {"UTF-8", {'a', 0xD840, 0xDC00, 'b'}, Bytes({'a', 0xF0, 0xA0, 0x80, 0x80, 'b'})},
        {"GB18030", {'a', 0xD840, 0xDC00, 'b'}, Bytes({'a', 0x95, 0x32, 0x82, 0x36, 'b'})},
        {"ISO-2022-JP",
         {0x65E5, 0x672C},
         Bytes({0x1B, '$', 'B', 0x46, 0x7C, 0x4B, 0x5C, 0x1B, '(', 'B'})},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Encode(c.text, Named(c.encoding), 1), c.bytes) << c.encoding;
    }
}

TEST(EncodingConverterTest, MalformedInputIsSubstitutedAsTheEngineDoes) {
    const CharEncoding& sjis = Named("Shift-JIS");
    const std::string cut = Bytes({'a', 0x93});  // a lead byte cut off at the end
    EXPECT_EQ(Decode(cut, sjis, 1), IcuDecode(sjis.EngineName(), cut));
    EXPECT_EQ(Decode(cut, sjis, 1).size(), 2u);
    const Units decoded = Decode(Bytes({'a', 0xC0, 0x80, 'b'}), CharEncoding::Unicode20UTF8(), 1);
    EXPECT_EQ(decoded.front(), 'a');
    EXPECT_EQ(decoded.back(), 'b');
    EXPECT_NE(std::find(decoded.begin(), decoded.end(), 0xFFFD), decoded.end());
    // A character that CP1252 lacks becomes its substitution byte.
    EXPECT_EQ(Encode(Units{'a', 0x4E2D}, CharEncoding::CP1252(), 1), Bytes({'a', 0x1A}));
}

TEST(EncodingConverterTest, NarrowToNarrowPivotsThroughUtf16) {
    const CharEncoding& sjis = Named("Shift-JIS");
    const CharEncoding& utf8 = CharEncoding::Unicode20UTF8();
    // What Shift-JIS keeps of the text is the common ground.
    const std::string sjisBytes = IcuEncode(sjis.EngineName(), LongMixedText(12000));
    const std::string expected = IcuEncode("UTF-8", IcuDecode(sjis.EngineName(), sjisBytes));
    for (std::size_t step : {std::size_t{1}, std::size_t{5}, sjisBytes.size()}) {
        SCOPED_TRACE(step);
        EXPECT_EQ(Transcode(sjisBytes, sjis, utf8, step), expected);
        EXPECT_EQ(Transcode(expected, utf8, sjis, step), sjisBytes);
    }
    EXPECT_EQ(Transcode(std::string(), sjis, utf8, 1), "");
}

TEST(EncodingConverterTest, EmptySourcesGiveNoBlock) {
    BufferChar16Source source(nullptr, nullptr);
    CharEncodingConverter converter(source, Char16Encoding::UTF16(), CharEncoding::CP1252());
    const char* block = nullptr;
    EXPECT_EQ(converter.Read(block), 0);
    EXPECT_EQ(converter.Read(block), 0);
    EXPECT_EQ(Decode(std::string(), CharEncoding::CP1252(), 1), Units());
}

// Converts again, with the same encoding, inside its write slot: the inner
// conversion cannot share the outer one's converter.
class NestingSink : public CharSink {
  public:
    NestingSink() : CharSink(nullptr) {}
    Units inner;
    std::string outer;

  protected:
    void DoWrite(const char* block, long count) override {
        outer.append(block, static_cast<std::size_t>(count));
        const Units decoded =
            Decode(std::string(block, static_cast<std::size_t>(count)), Named("ISO-2022-JP"), 3);
        inner.insert(inner.end(), decoded.begin(), decoded.end());
    }
};

TEST(EncodingConverterTest, NestedConversionOfTheSameEncodingKeepsBothStates) {
    const Units text = LongMixedText(3000);
    SteppingChar16Source source(text, 11);
    CharEncodingConverter converter(source, Char16Encoding::UTF16(), Named("ISO-2022-JP"));
    NestingSink sink;
    sink.Put(converter);
    EXPECT_EQ(sink.outer, IcuEncode(Named("ISO-2022-JP").EngineName(), text));
    EXPECT_FALSE(sink.inner.empty());
}

// ---------------------------------------------------------------------------
// The converter cache

TEST(EncodingEngineLeaseTest, AThreadReusesItsConverterAndNeverSharesABusyOne) {
    const CharEncoding& cp1252 = CharEncoding::CP1252();
    void* first = nullptr;
    {
        const EncodingEngineLease lease(&cp1252);
        first = lease.Engine();
        ASSERT_NE(first, nullptr);
        const EncodingEngineLease second(&cp1252);
        EXPECT_NE(second.Engine(), first) << "a busy converter is not lent twice";
    }
    const EncodingEngineLease again(&cp1252);
    EXPECT_EQ(again.Engine(), first) << "the thread's converter is reused";
    void* other = nullptr;
    std::thread([&] { other = EncodingEngineLease(&cp1252).Engine(); }).join();
    EXPECT_NE(other, nullptr);
    EXPECT_NE(other, first) << "each thread has its own";
    EXPECT_EQ(EncodingEngineLease(nullptr).Engine(), nullptr);
}

TEST(EncodingEngineLeaseTest, ABorrowedConverterStartsFromTheInitialState) {
    const CharEncoding& jis = Named("ISO-2022-JP");
    {
        const Units kanji(3 * CharEncodingConverter::kBlockBytes, 0x65E5);
        BufferChar16Source source(kanji.data(), kanji.data() + kanji.size());
        CharEncodingConverter converter(source, Char16Encoding::UTF16(), jis);
        const char* block = nullptr;
        ASSERT_EQ(converter.Read(block), CharEncodingConverter::kBlockBytes);
        // Abandoned in the two-byte shift: the state must not leak.
    }
    EXPECT_EQ(Encode(Units{'a'}, jis, 1), "a");
}

// Converts in its destructor, after the thread's converter cache has closed:
// the conversion still works, with a converter of its own that it closes.
struct ConvertsWhenTheThreadEnds {
    std::string* result = nullptr;
    unsigned int* cachedAfter = nullptr;
    ~ConvertsWhenTheThreadEnds() {
        if (result == nullptr) return;
        *result = Encode(Units{'x', 0x00E9}, CharEncoding::CP1252(), 1);
        *cachedAfter = kaCachedConverterCount();
    }
};

TEST(EncodingConvertersThreadTest, ConversionsStillWorkWhileTheThreadEnds) {
    std::string late, early;
    unsigned int cachedDuring = 0, cachedAfter = 99;
    std::thread([&] {
        // Built before the cache's closer, so destroyed after it.
        static thread_local ConvertsWhenTheThreadEnds last;
        last.result = &late;
        last.cachedAfter = &cachedAfter;
        early = Encode(Units{'x', 0x00E9}, CharEncoding::CP1252(), 1);
        cachedDuring = kaCachedConverterCount();
    }).join();
    EXPECT_EQ(early, "x\xE9");
    EXPECT_EQ(cachedDuring, 1u);
    EXPECT_EQ(late, "x\xE9");
    EXPECT_EQ(cachedAfter, 0u);
}

TEST(EncodingConvertersThreadTest, ThreadsConvertAtTheSameTime) {
    const Units text = LongMixedText(20000);
    const std::string expected = IcuEncode(Named("Shift-JIS").EngineName(), text);
    std::vector<int> good(4, 0);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&, t] {
            for (int i = 0; i < 10; ++i) {
                const std::size_t step = 100 + static_cast<std::size_t>(t);
                if (Encode(text, Named("Shift-JIS"), step) == expected) ++good[t];
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(good, (std::vector<int>{10, 10, 10, 10}));
}

// ---------------------------------------------------------------------------
// Failures of the engine

TEST(EngineStatusTest, EachFailureBecomesTheExceptionTheTranslatorKnows) {
    const struct {
        UErrorCode status;
        EngineStep step;
        long code;
        const char* message;
    } cases[] = {
        {U_FILE_ACCESS_ERROR, EngineStep::kOpen, LU_E_ENCODING, "Encoding not loaded"},
        {U_MEMORY_ALLOCATION_ERROR, EngineStep::kOpen, LU_E_ENCODING, "Encoding not loaded"},
        {U_UNSUPPORTED_ERROR, EngineStep::kEncode, LU_E_ENCODING, "Invalid ouput encoding"},
        {U_UNSUPPORTED_ERROR, EngineStep::kDecode, LU_E_ENCODING, "Unicode library error"},
        {U_INDEX_OUTOFBOUNDS_ERROR, EngineStep::kDecode, LU_E_OUT_OF_RANGE,
         "Unicode library error"},
        {U_ILLEGAL_ARGUMENT_ERROR, EngineStep::kEncode, LU_E_OUT_OF_RANGE, "Unicode library error"},
        {U_INVALID_TABLE_FORMAT, EngineStep::kDecode, LU_E_ENCODING, "Unicode library error"},
        {U_INTERNAL_PROGRAM_ERROR, EngineStep::kEncode, LU_E_ENCODING, "Unicode library error"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(u_errorName(c.status));
        try {
            try {
                kaCheckEngineStatus(c.status, c.step, "MacThai");
                ADD_FAILURE() << "no exception";
            } catch (const std::exception& error) {
                // The message of the engine layer names the encoding and the status.
                EXPECT_NE(std::string(error.what()).find("MacThai"), std::string::npos);
                EXPECT_NE(std::string(error.what()).find(u_errorName(c.status)), std::string::npos);
                kaTranslateEncodingException();
            }
        } catch (const LUException& error) {
            EXPECT_EQ(error.GetResult(), c.code);
            EXPECT_EQ(error.GetMessage(), c.message);
        }
    }
    EXPECT_NO_THROW(kaCheckEngineStatus(U_ZERO_ERROR, EngineStep::kOpen, "x"));
    EXPECT_NO_THROW(kaCheckEngineStatus(U_AMBIGUOUS_ALIAS_WARNING, EngineStep::kOpen, "x"));
    EXPECT_NO_THROW(
        kaCheckEngineStatus(U_STRING_NOT_TERMINATED_WARNING, EngineStep::kEncode, nullptr));
}

// A source that breaks its contract fails the conversion with the range code.
class NegativeSource : public CharSource {
  public:
    long Read(const char*& block) override {
        block = nullptr;
        return -1;
    }
};

TEST(EngineStatusTest, ASourceGivingANegativeLengthIsRefused) {
    NegativeSource source;
    Char16EncodingConverter converter(source, CharEncoding::CP1252(), Char16Encoding::UTF16());
    const unsigned short* block = nullptr;
    EXPECT_THROW(converter.Read(block), bt_out_of_range);
}

}  // namespace

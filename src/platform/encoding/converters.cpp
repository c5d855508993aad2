// The converters: sources that read another source through the engine.
//
// Each Read fills the converter's own block as far as it goes, pulling blocks
// from the source underneath as the engine consumes them, and hands the
// engine at most kMaxChunk elements at a time (it refuses ranges of a
// gigabyte and more). The engine keeps the state of the text between calls:
// the shift state of ISO-2022 and HZ, a lead byte or high surrogate cut off
// at the end of a block. When the source is exhausted, one more call with
// the flush flag writes what the state still holds (the final escape of
// ISO-2022-JP, a substitute for an incomplete sequence).
#include <unicode/ucnv.h>

#include <algorithm>

#include "kai18n/platform/char_encoding.h"
#include "platform/encoding/encoding_exceptions.h"
#include "platform/encoding/engine_status.h"

namespace {

const long kMaxChunk = 1L << 20;

// Positions for an exhausted source: the engine is always given real pointers.
const char kNoBytes[1] = {0};
const unsigned short kNoUnits[1] = {0};

UConverter* EngineOf(const EncodingEngineLease& lease) {
    return static_cast<UConverter*>(lease.Engine());
}

// The engine's UTF-16 type holds the same 16-bit units as ours.
static_assert(sizeof(UChar) == sizeof(unsigned short), "UTF-16 units of the same size");

const UChar* AsUChars(const unsigned short* p) {
    return reinterpret_cast<const UChar*>(p);
}

UChar* AsUChars(unsigned short* p) {
    return reinterpret_cast<UChar*>(p);
}

// The next block of a source, checked.
template <class Source, class T>
bool PullBlock(Source& source, const T*& next, const T*& end, const T* none) {
    const T* block = nullptr;
    const long count = source.Read(block);
    if (count < 0) throw bt_out_of_range("a block has a negative length");
    if (count == 0) {
        next = end = none;
        return false;
    }
    next = block;
    end = block + count;
    return true;
}

// A call that neither read, wrote nor finished would be repeated forever.
void CheckProgress(bool progressed) {
    if (!progressed) throw UnicodeLibraryException("the converter made no progress");
}

}  // namespace

// ---------------------------------------------------------------------------
// To narrow bytes

CharEncodingConverter::CharEncodingConverter(Char16Source& source, const Char16Encoding&,
                                             const CharEncoding& to)
    : m_units(&source),
      m_bytes(nullptr),
      m_to(to),
      m_fromEngine(nullptr),
      m_toEngine(&to),
      m_unitNext(kNoUnits),
      m_unitEnd(kNoUnits),
      m_byteNext(kNoBytes),
      m_byteEnd(kNoBytes),
      m_pivotSource(m_pivot),
      m_pivotTarget(m_pivot),
      m_sourceDone(false),
      m_finished(false),
      m_started(false) {}

CharEncodingConverter::CharEncodingConverter(CharSource& source, const CharEncoding& from,
                                             const CharEncoding& to)
    : m_units(nullptr),
      m_bytes(&source),
      m_to(to),
      m_fromEngine(&from),
      m_toEngine(&to),
      m_unitNext(kNoUnits),
      m_unitEnd(kNoUnits),
      m_byteNext(kNoBytes),
      m_byteEnd(kNoBytes),
      m_pivotSource(m_pivot),
      m_pivotTarget(m_pivot),
      m_sourceDone(false),
      m_finished(false),
      m_started(false) {}

CharEncodingConverter::~CharEncodingConverter() = default;

bool CharEncodingConverter::PullFromUnits() {
    return PullBlock(*m_units, m_unitNext, m_unitEnd, kNoUnits);
}

bool CharEncodingConverter::PullFromBytes() {
    return PullBlock(*m_bytes, m_byteNext, m_byteEnd, kNoBytes);
}

long CharEncodingConverter::Read(const char*& block) {
    char* target = m_block;
    char* const limit = m_block + kBlockBytes;
    while (!m_finished && target != limit) {
        UErrorCode status = U_ZERO_ERROR;
        bool flush = false;
        const char* const targetBefore = target;
        const void* inputBefore = nullptr;
        const void* inputAfter = nullptr;
        if (m_units != nullptr) {
            if (m_unitNext == m_unitEnd && !m_sourceDone) m_sourceDone = !PullFromUnits();
            const unsigned short* const chunkEnd =
                m_unitNext + std::min<long>(m_unitEnd - m_unitNext, kMaxChunk);
            flush = m_sourceDone;
            inputBefore = m_unitNext;
            const UChar* next = AsUChars(m_unitNext);
            ucnv_fromUnicode(EngineOf(m_toEngine), &target, limit, &next, AsUChars(chunkEnd),
                             nullptr, flush, &status);
            m_unitNext = reinterpret_cast<const unsigned short*>(next);
            inputAfter = m_unitNext;
        } else {
            if (m_byteNext == m_byteEnd && !m_sourceDone) m_sourceDone = !PullFromBytes();
            const char* const chunkEnd =
                m_byteNext + std::min<long>(m_byteEnd - m_byteNext, kMaxChunk);
            flush = m_sourceDone;
            inputBefore = m_byteNext;
            UChar* pivotSource = AsUChars(m_pivotSource);
            UChar* pivotTarget = AsUChars(m_pivotTarget);
            ucnv_convertEx(EngineOf(m_toEngine), EngineOf(m_fromEngine), &target, limit,
                           &m_byteNext, chunkEnd, AsUChars(m_pivot), &pivotSource, &pivotTarget,
                           AsUChars(m_pivot + kPivotUnits), !m_started, flush, &status);
            m_started = true;
            m_pivotSource = reinterpret_cast<unsigned short*>(pivotSource);
            m_pivotTarget = reinterpret_cast<unsigned short*>(pivotTarget);
            inputAfter = m_byteNext;
        }
        if (status == U_BUFFER_OVERFLOW_ERROR) break;  // the block is full
        // ucnv_convertEx reports an output that fills the block exactly.
        if (status == U_STRING_NOT_TERMINATED_WARNING) status = U_ZERO_ERROR;
        kaCheckEngineStatus(status, EngineStep::kEncode, m_to.Name());
        // Without an overflow, the engine took the whole chunk; after the
        // call with the flush flag, the text is complete.
        if (flush) m_finished = true;
        CheckProgress(m_finished || target != targetBefore || inputAfter != inputBefore);
    }
    block = m_block;
    return static_cast<long>(target - m_block);
}

// ---------------------------------------------------------------------------
// To UTF-16

Char16EncodingConverter::Char16EncodingConverter(CharSource& source, const CharEncoding& from,
                                                 const Char16Encoding&)
    : m_source(source),
      m_from(from),
      m_engine(&from),
      m_next(kNoBytes),
      m_end(kNoBytes),
      m_sourceDone(false),
      m_finished(false) {}

Char16EncodingConverter::~Char16EncodingConverter() = default;

bool Char16EncodingConverter::Pull() {
    return PullBlock(m_source, m_next, m_end, kNoBytes);
}

long Char16EncodingConverter::Read(const unsigned short*& block) {
    UChar* target = AsUChars(m_block);
    UChar* const limit = AsUChars(m_block + kBlockUnits);
    while (!m_finished && target != limit) {
        if (m_next == m_end && !m_sourceDone) m_sourceDone = !Pull();
        const char* const chunkEnd = m_next + std::min<long>(m_end - m_next, kMaxChunk);
        const bool flush = m_sourceDone;
        const UChar* const targetBefore = target;
        const char* const inputBefore = m_next;
        UErrorCode status = U_ZERO_ERROR;
        ucnv_toUnicode(EngineOf(m_engine), &target, limit, &m_next, chunkEnd, nullptr, flush,
                       &status);
        if (status == U_BUFFER_OVERFLOW_ERROR) break;
        kaCheckEngineStatus(status, EngineStep::kDecode, m_from.Name());
        if (flush) m_finished = true;
        CheckProgress(m_finished || target != targetBefore || m_next != inputBefore);
    }
    block = m_block;
    return static_cast<long>(target - AsUChars(m_block));
}

// Buffer sources and the sink bases with their buffer sinks.
#include <algorithm>
#include <climits>
#include <cstring>

#include "kai18n/platform/char_encoding.h"
#include "platform/encoding/encoding_exceptions.h"

namespace {

template <class T>
void CheckRange(const T* first, const T* last) {
    if ((first == nullptr) != (last == nullptr) || last < first) {
        throw bt_out_of_range("a source range ends before it starts");
    }
}

template <class T>
void CheckBuffer(const T* buffer, long capacity) {
    if (capacity < 0 || (buffer == nullptr && capacity > 0)) {
        throw bt_out_of_range("a sink buffer has a negative size or no storage");
    }
}

void CheckCount(long count) {
    if (count < 0) throw bt_out_of_range("a block has a negative length");
}

}  // namespace

CharSource::~CharSource() = default;
Char16Source::~Char16Source() = default;

// ---------------------------------------------------------------------------
// Buffer sources: the whole range as one block, then nothing.

BufferCharSource::BufferCharSource(const char* first, const char* last)
    : m_first(first), m_last(last) {
    CheckRange(first, last);
}

long BufferCharSource::Read(const char*& block) {
    block = m_first;
    const long count = static_cast<long>(m_last - m_first);
    m_first = m_last;
    return count;
}

BufferChar16Source::BufferChar16Source(const unsigned short* first, const unsigned short* last)
    : m_first(first), m_last(last) {
    CheckRange(first, last);
}

long BufferChar16Source::Read(const unsigned short*& block) {
    block = m_first;
    const long count = static_cast<long>(m_last - m_first);
    m_first = m_last;
    return count;
}

// ---------------------------------------------------------------------------
// Sink bases. The two are the same shape over bytes and over units.

CharSink::CharSink(const UnicodeLibActor* actor)
    : m_actor(actor), m_behavior(SinkBehavior::kTruncate), m_truncated(false) {}

CharSink::~CharSink() = default;

void CharSink::Write(const char* block, long count) {
    CheckCount(count);
    DoWrite(block, count);
}

void CharSink::Put(CharSource& source) {
    const char* block = nullptr;
    for (long count = source.Read(block); count != 0; count = source.Read(block)) {
        CheckCount(count);
        if (RemainingCapacity() <= 0) {
            MarkAsTruncated();
            return;
        }
        DoWrite(block, count);
    }
}

void CharSink::SetBehavior(SinkBehavior behavior) {
    m_behavior = behavior;
}

long CharSink::RemainingCapacity() const {
    return LONG_MAX;
}

void CharSink::MarkAsTruncated() {
    m_truncated = true;
    if (m_behavior == SinkBehavior::kFailWhenFull) {
        throw bt_out_of_range("the text does not fit the sink");
    }
}

void CharSink::DoFlush() {}

Char16Sink::Char16Sink(const UnicodeLibActor* actor)
    : m_actor(actor), m_behavior(SinkBehavior::kTruncate), m_truncated(false) {}

Char16Sink::~Char16Sink() = default;

void Char16Sink::Write(const unsigned short* block, long count) {
    CheckCount(count);
    DoWrite(block, count);
}

void Char16Sink::Put(Char16Source& source) {
    const unsigned short* block = nullptr;
    for (long count = source.Read(block); count != 0; count = source.Read(block)) {
        CheckCount(count);
        if (RemainingCapacity() <= 0) {
            MarkAsTruncated();
            return;
        }
        DoWrite(block, count);
    }
}

void Char16Sink::SetBehavior(SinkBehavior behavior) {
    m_behavior = behavior;
}

long Char16Sink::RemainingCapacity() const {
    return LONG_MAX;
}

void Char16Sink::MarkAsTruncated() {
    m_truncated = true;
    if (m_behavior == SinkBehavior::kFailWhenFull) {
        throw bt_out_of_range("the text does not fit the sink");
    }
}

void Char16Sink::DoFlush() {}

// ---------------------------------------------------------------------------
// Buffer sinks: copy what fits, report the rest.

BufferCharSink::BufferCharSink(char* buffer, long capacity)
    : CharSink(nullptr), m_buffer(buffer), m_capacity(capacity), m_written(0) {
    CheckBuffer(buffer, capacity);
}

void BufferCharSink::DoWrite(const char* block, long count) {
    const long taken = std::min(count, m_capacity - m_written);
    if (taken > 0) std::memcpy(m_buffer + m_written, block, static_cast<std::size_t>(taken));
    m_written += taken;
    if (taken < count) MarkAsTruncated();
}

BufferChar16Sink::BufferChar16Sink(unsigned short* buffer, long capacity)
    : Char16Sink(nullptr), m_buffer(buffer), m_capacity(capacity), m_written(0) {
    CheckBuffer(buffer, capacity);
}

void BufferChar16Sink::DoWrite(const unsigned short* block, long count) {
    const long taken = std::min(count, m_capacity - m_written);
    if (taken > 0) {
        std::memcpy(m_buffer + m_written, block, static_cast<std::size_t>(taken) * sizeof *block);
    }
    m_written += taken;
    if (taken < count) MarkAsTruncated();
}

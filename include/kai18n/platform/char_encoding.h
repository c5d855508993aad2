// The encoding library: narrow encodings and UTF-16, sources that yield text
// in blocks, sinks that take it, and converters, which are sources reading
// another source through an encoding.
//
// A conversion is a pump: a buffer source on the input, a converter on that
// source, and a sink that `Put` fills from the converter. Every object of a
// conversion lives on the caller's stack; the converters carry fixed blocks of
// a few KiB, so no buffer grows with the size of the text. The converters
// borrow an engine from a per-thread cache for their lifetime, so a
// conversion opens nothing after the first one of its encoding on a thread.
//
// Failures leave as the exception types of the encoding library (bt_exception
// and its family); the library's facets turn them into LUException.
#ifndef KAI18N_PLATFORM_CHAR_ENCODING_H
#define KAI18N_PLATFORM_CHAR_ENCODING_H

class CharEncodingTable;

/// A narrow (byte) encoding known to the encoding library. The objects are
/// constant, live as long as the library and are compared by address.
class CharEncoding {
  public:
    CharEncoding(const CharEncoding&) = delete;
    CharEncoding& operator=(const CharEncoding&) = delete;

    /// The encoding of that exact technical name (case-sensitive), such as
    /// "CP1252" or "Shift-JIS"; null for a name the library does not know or
    /// cannot serve. Throws EncodingNotLoaded when the name is known but its
    /// tables cannot be loaded.
    static const CharEncoding* Lookup(const char* name);
    /// Windows code page 1252.
    static const CharEncoding& CP1252();
    /// UTF-8, as defined since Unicode 2.0.
    static const CharEncoding& Unicode20UTF8();

    /// The technical name.
    const char* Name() const { return m_name; }
    /// The name of the engine's converter that implements the encoding.
    const char* EngineName() const { return m_engineName; }
    /// The position of the encoding in the library's table.
    unsigned int Index() const { return m_index; }

  private:
    friend class CharEncodingTable;
    constexpr CharEncoding(const char* name, const char* engineName, unsigned int index)
        : m_name(name), m_engineName(engineName), m_index(index) {}

    const char* m_name;
    const char* m_engineName;
    unsigned int m_index;
};

/// A 16-bit encoding; the library has one, UTF-16 in the platform's byte order.
class Char16Encoding {
  public:
    Char16Encoding(const Char16Encoding&) = delete;
    Char16Encoding& operator=(const Char16Encoding&) = delete;

    static const Char16Encoding& UTF16();

    const char* Name() const { return m_name; }

  private:
    friend class CharEncodingTable;
    constexpr explicit Char16Encoding(const char* name) : m_name(name) {}

    const char* m_name;
};

/// Who is told about the work of a sink. The library builds every sink with
/// a null actor.
class UnicodeLibActor;

// ---------------------------------------------------------------------------
// Sources

/// Yields bytes in blocks.
class CharSource {
  public:
    CharSource() = default;
    CharSource(const CharSource&) = delete;
    CharSource& operator=(const CharSource&) = delete;
    virtual ~CharSource();

    /// Points `block` at the next block and gives its length; 0 once the
    /// source is exhausted, and on every call after that. The block stays
    /// valid until the next call.
    virtual long Read(const char*& block) = 0;
};

/// Yields UTF-16 units in blocks.
class Char16Source {
  public:
    Char16Source() = default;
    Char16Source(const Char16Source&) = delete;
    Char16Source& operator=(const Char16Source&) = delete;
    virtual ~Char16Source();

    /// As CharSource::Read, in units.
    virtual long Read(const unsigned short*& block) = 0;
};

/// The bytes [first, last) as one block, without copying them. Throws
/// bt_out_of_range if `last` is before `first` or only one of them is null.
class BufferCharSource : public CharSource {
  public:
    BufferCharSource(const char* first, const char* last);
    long Read(const char*& block) override;

  private:
    const char* m_first;
    const char* m_last;
};

/// The units [first, last) as one block, without copying them.
class BufferChar16Source : public Char16Source {
  public:
    BufferChar16Source(const unsigned short* first, const unsigned short* last);
    long Read(const unsigned short*& block) override;

  private:
    const unsigned short* m_first;
    const unsigned short* m_last;
};

// ---------------------------------------------------------------------------
// Sinks

/// What a sink does when it is given more than it can hold.
enum class SinkBehavior {
    kTruncate,      ///< keep what fits, drop the rest, remember the truncation
    kFailWhenFull,  ///< throw bt_out_of_range
};

/// Takes bytes in blocks. A subclass gives the write slot, and the flush slot
/// if it has work to do when the text ends.
class CharSink {
  public:
    explicit CharSink(const UnicodeLibActor* actor);
    CharSink(const CharSink&) = delete;
    CharSink& operator=(const CharSink&) = delete;
    virtual ~CharSink();

    /// Hands one block to the write slot; throws bt_out_of_range for a
    /// negative count.
    void Write(const char* block, long count);
    /// Ends the text: calls the flush slot.
    void Flush() { DoFlush(); }
    /// Pumps every block of `source` into the write slot. When the sink has
    /// no room left and the source still has text, marks the sink truncated
    /// and stops reading. Does not flush.
    void Put(CharSource& source);

    virtual void SetBehavior(SinkBehavior behavior);
    /// How many more bytes the sink holds; a sink without bound gives the
    /// largest `long`.
    virtual long RemainingCapacity() const;
    /// Records that text was dropped; under SinkBehavior::kFailWhenFull
    /// throws bt_out_of_range instead.
    virtual void MarkAsTruncated();

    SinkBehavior GetBehavior() const { return m_behavior; }
    bool IsTruncated() const { return m_truncated; }
    const UnicodeLibActor* GetActor() const { return m_actor; }

  protected:
    /// The write slot: takes `count` bytes, `count` >= 0.
    virtual void DoWrite(const char* block, long count) = 0;
    /// The flush slot: nothing unless a subclass has work to do.
    virtual void DoFlush();

  private:
    const UnicodeLibActor* m_actor;
    SinkBehavior m_behavior;
    bool m_truncated;
};

/// Takes UTF-16 units in blocks; as CharSink.
class Char16Sink {
  public:
    explicit Char16Sink(const UnicodeLibActor* actor);
    Char16Sink(const Char16Sink&) = delete;
    Char16Sink& operator=(const Char16Sink&) = delete;
    virtual ~Char16Sink();

    void Write(const unsigned short* block, long count);
    void Flush() { DoFlush(); }
    void Put(Char16Source& source);

    virtual void SetBehavior(SinkBehavior behavior);
    virtual long RemainingCapacity() const;
    virtual void MarkAsTruncated();

    SinkBehavior GetBehavior() const { return m_behavior; }
    bool IsTruncated() const { return m_truncated; }
    const UnicodeLibActor* GetActor() const { return m_actor; }

  protected:
    virtual void DoWrite(const unsigned short* block, long count) = 0;
    virtual void DoFlush();

  private:
    const UnicodeLibActor* m_actor;
    SinkBehavior m_behavior;
    bool m_truncated;
};

/// Writes into the `capacity` bytes at `buffer`, in order, without a
/// terminator. What does not fit is handled by the behaviour: truncated by
/// default. Throws bt_out_of_range for a negative capacity, or a null buffer
/// with a capacity.
class BufferCharSink : public CharSink {
  public:
    BufferCharSink(char* buffer, long capacity);

    long RemainingCapacity() const override { return m_capacity - m_written; }
    /// Bytes written so far.
    long Written() const { return m_written; }

  protected:
    void DoWrite(const char* block, long count) override;

  private:
    char* m_buffer;
    long m_capacity;
    long m_written;
};

/// Writes into the `capacity` units at `buffer`; as BufferCharSink.
class BufferChar16Sink : public Char16Sink {
  public:
    BufferChar16Sink(unsigned short* buffer, long capacity);

    long RemainingCapacity() const override { return m_capacity - m_written; }
    long Written() const { return m_written; }

  protected:
    void DoWrite(const unsigned short* block, long count) override;

  private:
    unsigned short* m_buffer;
    long m_capacity;
    long m_written;
};

// ---------------------------------------------------------------------------
// Converters

/// The engine converter of one encoding, borrowed from the calling thread's
/// cache for the life of a conversion (or opened afresh when the thread's is
/// already in use) and given back, reset, on destruction. Opaque outside the
/// platform layer. Throws EncodingNotLoaded if the converter cannot be opened.
class EncodingEngineLease {
  public:
    /// Borrows nothing for a null encoding.
    explicit EncodingEngineLease(const CharEncoding* encoding);
    EncodingEngineLease(const EncodingEngineLease&) = delete;
    EncodingEngineLease& operator=(const EncodingEngineLease&) = delete;
    ~EncodingEngineLease();

    void* Engine() const { return m_engine; }

  private:
    void* m_engine;
    void* m_slot;  // the cache entry it came from; null if opened afresh
};

// Block sizes: 8 KiB of output a block keeps the per-block costs (one engine
// call, one append to the sink's string) to a few per cent of a conversion
// and the block in the first-level cache beside the engine's tables. With
// 1 KiB blocks, 1 MiB of CP1252 decoded into a ucs2string took about 1.4
// times as long, and a lu_utf8string target, which copies itself whenever it
// grows, about 5 times as long.

/// A source of narrow bytes in encoding `to`, read from UTF-16 or from bytes
/// in encoding `from`. A character that `to` cannot hold becomes its
/// substitution character; a malformed input sequence becomes U+FFFD (or the
/// encoding's own substitute) on the way.
class CharEncodingConverter : public CharSource {
  public:
    /// The bytes of the output block.
    static constexpr long kBlockBytes = 8192;
    /// The UTF-16 units that a conversion between two narrow encodings holds
    /// between its two halves.
    static constexpr long kPivotUnits = 1024;

    CharEncodingConverter(Char16Source& source, const Char16Encoding& from, const CharEncoding& to);
    CharEncodingConverter(CharSource& source, const CharEncoding& from, const CharEncoding& to);
    ~CharEncodingConverter() override;

    long Read(const char*& block) override;

  private:
    bool PullFromUnits();
    bool PullFromBytes();

    Char16Source* m_units;  // the source when converting from UTF-16
    CharSource* m_bytes;    // the source when converting from bytes
    const CharEncoding& m_to;
    EncodingEngineLease m_fromEngine;  // empty when converting from UTF-16
    EncodingEngineLease m_toEngine;
    const unsigned short* m_unitNext;
    const unsigned short* m_unitEnd;
    const char* m_byteNext;
    const char* m_byteEnd;
    unsigned short* m_pivotSource;
    unsigned short* m_pivotTarget;
    bool m_sourceDone;
    bool m_finished;
    bool m_started;
    unsigned short m_pivot[kPivotUnits];
    char m_block[kBlockBytes];
};

/// A source of UTF-16 units read from bytes in encoding `from`. A malformed
/// input sequence becomes U+FFFD (or the encoding's own substitute).
class Char16EncodingConverter : public Char16Source {
  public:
    /// The units of the output block.
    static constexpr long kBlockUnits = 4096;

    Char16EncodingConverter(CharSource& source, const CharEncoding& from, const Char16Encoding& to);
    ~Char16EncodingConverter() override;

    long Read(const unsigned short*& block) override;

  private:
    bool Pull();

    CharSource& m_source;
    const CharEncoding& m_from;
    EncodingEngineLease m_engine;
    const char* m_next;
    const char* m_end;
    bool m_sourceDone;
    bool m_finished;
    unsigned short m_block[kBlockUnits];
};

#endif  // KAI18N_PLATFORM_CHAR_ENCODING_H

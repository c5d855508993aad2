// The encodings, and the per-thread cache of their engine converters.
#include <unicode/ucnv.h>

#include "kai18n/platform/char_encoding.h"
#include "platform/encoding/converter_cache.h"
#include "platform/encoding/encoding_table.h"
#include "platform/encoding/engine_status.h"

namespace {

// One converter of each encoding for each thread that has used it. Opening a
// converter costs an alias search and an allocation; resetting one costs
// nothing worth counting, so a conversion borrows the thread's converter and
// resets it, and only a second conversion of the same encoding running at
// the same time on the thread (one nested in a sink, say) opens its own.
//
// The slots are plain thread-local data, which stays usable to the end of
// the thread; a separate object closes the converters when the thread ends
// and marks the cache closed, so that a conversion run later still (by the
// destructor of a static object, say) opens a converter of its own instead
// of finding a closed one.
struct CacheSlot {
    UConverter* converter;
    bool busy;
};

thread_local CacheSlot t_slots[CharEncodingTable::kCount];
thread_local bool t_cacheClosed = false;

class CacheCloser {
  public:
    CacheCloser() = default;
    CacheCloser(const CacheCloser&) = delete;
    CacheCloser& operator=(const CacheCloser&) = delete;
    ~CacheCloser() {
        for (CacheSlot& slot : t_slots) {
            if (slot.converter != nullptr && !slot.busy) ucnv_close(slot.converter);
            slot.converter = nullptr;
        }
        t_cacheClosed = true;
    }

    /// Makes sure the closer exists, and so runs at the end of the thread.
    void Arm() {}
};

thread_local CacheCloser t_closer;

UConverter* OpenConverter(const CharEncoding& encoding) {
    if (encoding.EngineName() == nullptr) {
        kaCheckEngineStatus(U_FILE_ACCESS_ERROR, EngineStep::kOpen, encoding.Name());
    }
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(encoding.EngineName(), &status);
    kaCheckEngineStatus(status, EngineStep::kOpen, encoding.Name());
    return converter;
}

}  // namespace

unsigned int kaCachedConverterCount() {
    unsigned int count = 0;
    for (const CacheSlot& slot : t_slots) count += slot.converter != nullptr ? 1u : 0u;
    return count;
}

const CharEncoding* CharEncoding::Lookup(const char* name) {
    const CharEncoding* found = CharEncodingTable::Find(name);
    if (found == nullptr || found->EngineName() == nullptr) return nullptr;
    // Borrowing the converter loads the encoding's tables, or reports that
    // they cannot be loaded; the converter then stays in the thread's cache.
    const EncodingEngineLease check(found);
    return found;
}

const CharEncoding& CharEncoding::CP1252() {
    return CharEncodingTable::kEncodings[CharEncodingTable::kCP1252];
}

const CharEncoding& CharEncoding::Unicode20UTF8() {
    return CharEncodingTable::kEncodings[CharEncodingTable::kUTF8];
}

const Char16Encoding& Char16Encoding::UTF16() {
    return CharEncodingTable::kUTF16;
}

EncodingEngineLease::EncodingEngineLease(const CharEncoding* encoding)
    : m_engine(nullptr), m_slot(nullptr) {
    if (encoding == nullptr) return;
    CacheSlot& slot = t_slots[encoding->Index()];
    if (t_cacheClosed || slot.busy) {
        m_engine = OpenConverter(*encoding);
        return;
    }
    if (slot.converter == nullptr) {
        t_closer.Arm();
        slot.converter = OpenConverter(*encoding);
    } else {
        ucnv_reset(slot.converter);
    }
    slot.busy = true;
    m_engine = slot.converter;
    m_slot = &slot;
}

EncodingEngineLease::~EncodingEngineLease() {
    // A lease that outlived its thread's cache was skipped by the closer.
    if (m_slot != nullptr && !t_cacheClosed) {
        static_cast<CacheSlot*>(m_slot)->busy = false;
    } else if (m_engine != nullptr) {
        ucnv_close(static_cast<UConverter*>(m_engine));
    }
}

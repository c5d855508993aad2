#include "kai18n/frame/ka_compact_array.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>
#include <ostream>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

namespace {

// An array of `count` elements, or null if memory runs out. A count of 0
// allocates nothing. The nothrow form keeps std::bad_alloc, also one thrown by
// a new-handler, from escaping: the callers report LU_E_OUT_OF_MEMORY instead.
template <class U>
U* AllocateArray(unsigned int count) {
    return count == 0 ? nullptr : new (std::nothrow) U[count];
}

[[noreturn]] void RaiseOutOfMemory() {
    LUException::Raise(LU_E_OUT_OF_MEMORY);
}

}  // namespace

template <class T>
kaCompactArray<T>::kaCompactArray(T initial)
    : m_index(nullptr),
      m_data(nullptr),
      m_indexCount(kIndexCount),
      m_dataCount(kKeyCount),
      m_compact(false),
      m_owns(true) {
    unsigned short* index = AllocateArray<unsigned short>(kIndexCount);
    T* data = index != nullptr ? AllocateArray<T>(kKeyCount) : nullptr;
    if (data == nullptr) {
        delete[] index;
        RaiseOutOfMemory();
    }
    std::fill_n(data, kKeyCount, initial);
    for (unsigned int i = 0; i < kIndexCount; ++i) {
        index[i] = static_cast<unsigned short>(i << kBlockShift);
    }
    m_index = index;
    m_data = data;
}

template <class T>
kaCompactArray<T>::kaCompactArray(const StaticStorage& storage)
    : m_index(storage.index),
      m_data(storage.data),
      m_indexCount(storage.indexCount),
      m_dataCount(storage.dataCount),
      m_compact(true),
      m_owns(false) {}

template <class T>
kaCompactArray<T>::kaCompactArray(unsigned short* const index, unsigned int indexCount,
                                  T* const data, unsigned int dataCount)
    : m_index(nullptr),
      m_data(nullptr),
      m_indexCount(0),
      m_dataCount(0),
      m_compact(true),
      m_owns(false) {
    // The arrays become this table's only once they pass the checks. When a
    // check fails the constructor throws before taking them: the object never
    // held them, its destructor does not run, and the caller, who still owns
    // both arrays, releases them. Releasing them here as well would make every
    // caller's clean-up a double free.
    if (index == nullptr || data == nullptr || indexCount != kIndexCount) {
        LUException::Raise(LU_E_OUT_OF_RANGE);
    }
    // Computed in 64 bits so that a data count near the top of its range
    // cannot wrap the limit round to a small number.
    const std::uint64_t limit = static_cast<std::uint64_t>(dataCount) + kBlockSize;
    for (unsigned int i = 0; i < indexCount; ++i) {
        if (index[i] >= limit) LUException::Raise(LU_E_OUT_OF_RANGE);
    }
    m_index = index;
    m_data = data;
    m_indexCount = indexCount;
    m_dataCount = dataCount;
    m_owns = true;
}

template <class T>
kaCompactArray<T>::kaCompactArray(const kaInByteStream* /*stream*/)
    : m_index(nullptr),
      m_data(nullptr),
      m_indexCount(0),
      m_dataCount(0),
      m_compact(true),
      m_owns(false) {}

template <class T>
kaCompactArray<T>::kaCompactArray(const kaCompactArray& other)
    : m_index(nullptr),
      m_data(nullptr),
      m_indexCount(other.m_indexCount),
      m_dataCount(other.m_dataCount),
      m_compact(other.m_compact),
      m_owns(false) {
    SetCopy(other);
}

template <class T>
kaCompactArray<T>& kaCompactArray<T>::operator=(const kaCompactArray& other) {
    if (this != &other) {
        m_indexCount = other.m_indexCount;
        m_dataCount = other.m_dataCount;
        m_compact = other.m_compact;
        SetCopy(other);
    }
    return *this;
}

template <class T>
kaCompactArray<T>::~kaCompactArray() {
    ReleaseArrays();
}

template <class T>
void kaCompactArray<T>::SetAt(unsigned short key, T value) {
    Expand();
    m_data[key] = value;
}

template <class T>
void kaCompactArray<T>::SetAt(unsigned short first, unsigned short last, T value) {
    if (first > last) return;
    Expand();
    // A 32-bit counter: with a 16-bit one, last == 0xFFFF would never be passed.
    for (unsigned int key = first; key <= last; ++key) m_data[key] = value;
}

template <class T>
void kaCompactArray<T>::Compact() {
    if (m_compact) return;

    // For each position of the compact data being built, the position in the
    // expanded data of the value that will stand there.
    std::unique_ptr<unsigned short[]> work(AllocateArray<unsigned short>(kKeyCount));
    if (!work) RaiseOutOfMemory();

    for (unsigned int k = 0; k < kBlockSize; ++k) work[k] = static_cast<unsigned short>(k);
    m_index[0] = 0;
    unsigned int used = kBlockSize;

    // An expanded table has block i at i << 7, so m_data can be read by
    // expanded position while the index is being rewritten.
    for (unsigned int i = 1; i < kIndexCount; ++i) {
        const unsigned int start = i << kBlockShift;
        const unsigned int pos = FindOverlappingPosition(start, work.get(), used);
        if (pos + kBlockSize > used) {
            for (unsigned int k = used; k < pos + kBlockSize; ++k) {
                work[k] = static_cast<unsigned short>(start - pos + k);
            }
            used = pos + kBlockSize;
        }
        m_index[i] = static_cast<unsigned short>(pos);
    }

    T* data = AllocateArray<T>(used);
    if (data == nullptr) {
        // Only the index has changed so far. Put back the index of an expanded
        // table, so that the table is left as it was.
        for (unsigned int i = 0; i < kIndexCount; ++i) {
            m_index[i] = static_cast<unsigned short>(i << kBlockShift);
        }
        RaiseOutOfMemory();
    }
    for (unsigned int k = 0; k < used; ++k) data[k] = m_data[work[k]];

    if (m_owns) delete[] m_data;
    m_data = data;
    m_dataCount = used;
    m_compact = true;
    m_owns = true;
}

template <class T>
unsigned int kaCompactArray<T>::FindOverlappingPosition(unsigned int start,
                                                        const unsigned short* work,
                                                        unsigned int used) const {
    for (unsigned int p = 0; p < used; p += kBlockSize) {
        const unsigned int limit = std::min(kBlockSize, used - p);
        unsigned int j = 0;
        while (j < limit && m_data[start + j] == m_data[work[p + j]]) ++j;
        if (j == limit) return p;
    }
    return (used + kBlockSize - 1) / kBlockSize * kBlockSize;
}

template <class T>
void kaCompactArray<T>::Expand() {
    if (!m_compact) return;

    T* data = AllocateArray<T>(kKeyCount);
    if (data == nullptr) RaiseOutOfMemory();

    // The index is rewritten below. One that this table does not own belongs
    // to the caller (constant data of a StaticStorage) and must not be
    // touched, so the table takes an index of its own; so it does when it has
    // none or one of another size.
    const bool ownIndex = m_owns && m_index != nullptr && m_indexCount == kIndexCount;
    unsigned short* index = ownIndex ? m_index : AllocateArray<unsigned short>(kIndexCount);
    if (index == nullptr) {
        delete[] data;
        RaiseOutOfMemory();
    }

    if (m_index != nullptr) {
        for (unsigned int key = 0; key < kKeyCount; ++key) {
            data[key] = GetAt(static_cast<unsigned short>(key));
        }
    } else {
        // An empty table (built from a stream, or left by a failed copy) has
        // no values to keep; it expands to zeros, like a default table.
        std::fill_n(data, kKeyCount, T(0));
    }
    for (unsigned int i = 0; i < kIndexCount; ++i) {
        index[i] = static_cast<unsigned short>(i << kBlockShift);
    }

    if (m_owns) {
        delete[] m_data;
        if (!ownIndex) delete[] m_index;
    }
    m_index = index;
    m_data = data;
    m_indexCount = kIndexCount;
    m_dataCount = kKeyCount;
    m_owns = true;
    m_compact = false;
}

template <class T>
void kaCompactArray<T>::SetCopy(const kaCompactArray& other) {
    // The copies are made before the old arrays go, so that copying a table
    // onto itself is safe.
    const unsigned int indexCount = other.m_indexCount;
    const unsigned int dataCount = other.m_dataCount;
    unsigned short* index = AllocateArray<unsigned short>(indexCount);
    T* data = nullptr;
    bool ok = indexCount == 0 || index != nullptr;
    if (ok) {
        data = AllocateArray<T>(dataCount);
        ok = dataCount == 0 || data != nullptr;
    }
    if (!ok) {
        delete[] index;
        delete[] data;
        ReleaseArrays();
        RaiseOutOfMemory();
    }
    std::copy_n(other.m_index, indexCount, index);
    std::copy_n(other.m_data, dataCount, data);

    const bool compact = other.m_compact;
    ReleaseArrays();
    m_index = index;
    m_data = data;
    // The copy constructor and assignment have set these already; a direct
    // call gets them here, so that the counts always describe the arrays.
    m_indexCount = indexCount;
    m_dataCount = dataCount;
    m_compact = compact;
    m_owns = true;
}

template <class T>
void kaCompactArray<T>::ReleaseArrays() {
    if (m_owns) {
        delete[] m_index;
        delete[] m_data;
    }
    m_index = nullptr;
    m_data = nullptr;
    m_indexCount = 0;
    m_dataCount = 0;
    m_compact = true;
    m_owns = false;
}

template <class T>
void kaCompactArray<T>::Trace(std::ostream& os) const {
    const std::ios_base::fmtflags saved = os.flags();
    os << "(0x";
    // Plain lower-case hexadecimal whatever the caller had set; no showbase,
    // since "0x" is already written.
    os.flags(std::ios_base::hex);
    os << reinterpret_cast<std::uintptr_t>(this);
    os.flags(saved);
    os << ")\n";
}

// The instantiations that the library exports.
template class kaCompactArray<unsigned short>;
template class kaCompactArray<unsigned int>;

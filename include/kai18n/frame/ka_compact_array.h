// kaCompactArray: a table from every 16-bit code unit to a value of type T.
//
// The 65,536 keys fall in 512 blocks of 128. The table is two arrays: `index`,
// 512 entries, gives for each block the position in `data` where its 128
// values start, so a look-up is two loads:
//     data[index[key >> 7] + (key & 127)]
// An expanded table has every block at its own place (index entry i is
// i << 7, data holds 65,536 values) and may be written. Compact() lets equal
// blocks share one copy in `data`; a compact table is read-only, and SetAt
// expands it first.
//
// A table may own its arrays or only point at arrays that live elsewhere,
// typically in constant data handed over through StaticStorage. A table that
// does not own its arrays never writes to them: it makes its own copies before
// the first change.
//
// Failures throw LUException: LU_E_OUT_OF_MEMORY when an array cannot be
// allocated, LU_E_OUT_OF_RANGE when adopted arrays are malformed.
//
// The library exports the instantiations for unsigned short and unsigned int;
// the operations other than GetAt are compiled in the library, so these are the
// two element types that clients can use.
#ifndef KAI18N_FRAME_KA_COMPACT_ARRAY_H
#define KAI18N_FRAME_KA_COMPACT_ARRAY_H

#include <iosfwd>

/// The byte stream from which a table could be read. The library declares it
/// only; the constructor that takes one does not read it.
class kaInByteStream;

template <class T>
class kaCompactArray {
  public:
    /// A table in constant data, handed over without copying. The table built
    /// on it neither owns nor writes these arrays.
    struct StaticStorage {
        unsigned int indexCount;
        unsigned int dataCount;
        unsigned short* index;
        T* data;
    };

    /// Number of keys, blocks and keys per block.
    static constexpr unsigned int kKeyCount = 65536;
    static constexpr unsigned int kIndexCount = 512;
    static constexpr unsigned int kBlockSize = 128;
    static constexpr unsigned int kBlockShift = 7;

    /// An expanded table in which every key maps to `initial`. A bare literal 0
    /// would also fit the stream constructor; write `T(0)` or nothing.
    explicit kaCompactArray(T initial = 0);

    /// A compact table on the arrays of `storage`, which it neither copies nor owns.
    explicit kaCompactArray(const StaticStorage& storage);

    /// A compact table that adopts `index` and `data`, both from the array form
    /// of new, and releases them when it goes. They are checked first: neither
    /// may be null, `indexCount` must be 512 and every index entry below
    /// `dataCount` + 128; otherwise LU_E_OUT_OF_RANGE is thrown and the arrays
    /// stay the caller's.
    kaCompactArray(unsigned short* const index, unsigned int indexCount, T* const data,
                   unsigned int dataCount);

    /// An empty table: no arrays, counts 0, compact. The stream is not read.
    explicit kaCompactArray(const kaInByteStream* stream);

    /// Deep copy: the new table owns copies of both arrays of `other`.
    kaCompactArray(const kaCompactArray& other);

    /// Deep copy; assignment to itself does nothing.
    kaCompactArray& operator=(const kaCompactArray& other);

    ~kaCompactArray();

    /// The value of `key`.
    T GetAt(unsigned short key) const {
        return m_data[m_index[key >> kBlockShift] + (key & (kBlockSize - 1))];
    }

    /// Expands the table, then stores `value` for `key`.
    void SetAt(unsigned short key, T value);

    /// Expands the table, then stores `value` for every key from `first` to
    /// `last` inclusive. Nothing happens, not even the expansion, if `first`
    /// is greater than `last`.
    void SetAt(unsigned short first, unsigned short last, T value);

    /// Lets identical blocks share one copy of their values. The table then
    /// owns its arrays and is read-only until the next SetAt or Expand.
    void Compact();

    /// Undoes Compact(): every block gets its own place again. The table then
    /// owns its arrays.
    void Expand();

    /// Releases the arrays that this table owns and replaces them with copies
    /// of those of `other`, taking its counts and compact flag as well. A count
    /// of 0 allocates nothing. If memory runs out, both arrays are released,
    /// this table is left empty (no arrays, counts 0, compact) and
    /// LU_E_OUT_OF_MEMORY is thrown.
    void SetCopy(const kaCompactArray& other);

    /// The first block-aligned position `p` below `used` at which the compact
    /// data being built, described by `work` (for each compact position, the
    /// expanded position of its value), holds the same values as the block that
    /// starts at the expanded position `start`. If there is none, the first
    /// multiple of 128 not below `used`. Only meaningful on an expanded table.
    unsigned int FindOverlappingPosition(unsigned int start, const unsigned short* work,
                                         unsigned int used) const;

    /// Writes "(0x", the address of this object in hexadecimal, ")" and a line
    /// end. The stream's formatting flags are left as they were.
    void Trace(std::ostream& os) const;

  protected:
    // Protected rather than private so that a derived class can inspect the
    // representation, as the unit tests do.
    unsigned short* m_index;
    T* m_data;
    unsigned int m_indexCount;
    unsigned int m_dataCount;
    bool m_compact;  // blocks may be shared: m_data must not be written
    bool m_owns;     // m_index and m_data are released by this object

  private:
    // Releases both arrays if owned and leaves the table empty and compact.
    void ReleaseArrays();
};

// Clients use the library's copies of these.
extern template class kaCompactArray<unsigned short>;
extern template class kaCompactArray<unsigned int>;

#endif  // KAI18N_FRAME_KA_COMPACT_ARRAY_H

// kaAutoArray: an owning pointer to an array made by the array form of new.
//
// Ownership moves on copy, as with the old std::auto_ptr, but the source keeps
// its pointer: after `kaAutoArray b(a)` both point to the array and only `b`
// will release it. The ownership flag is therefore mutable, so that a copy
// taken from a const reference can still move it.
//
// The library exports the instantiations for unsigned char, unsigned short and
// unsigned int; any other element type is instantiated by the client.
#ifndef KAI18N_FRAME_KA_AUTO_ARRAY_H
#define KAI18N_FRAME_KA_AUTO_ARRAY_H

template <class T>
class kaAutoArray {
  public:
    /// Holds `p`, and owns it if it is not null. Explicit, so that a raw
    /// pointer never turns into an owner without the caller saying so.
    explicit kaAutoArray(T* p = 0) : m_owns(p != 0), m_array(p) {}

    /// Takes the pointer and the ownership of `other`; `other` keeps the
    /// pointer but no longer releases it.
    kaAutoArray(const kaAutoArray& other) : m_owns(other.m_owns), m_array(other.m_array) {
        other.m_owns = false;
    }

    /// A different array: releases this one if owned, then takes pointer and
    /// ownership from `other`, which keeps its pointer. The same array: only
    /// the ownership moves here, if `other` had it, so `a = a` keeps it.
    kaAutoArray& operator=(const kaAutoArray& other) {
        if (m_array != other.m_array) {
            if (m_owns) delete[] m_array;
            m_array = other.m_array;
            m_owns = other.m_owns;
            other.m_owns = false;
        } else if (other.m_owns) {
            // Clear the source first: for `a = a` the source is this object.
            other.m_owns = false;
            m_owns = true;
        }
        return *this;
    }

    ~kaAutoArray() {
        if (m_owns) delete[] m_array;
    }

    T* get() const { return m_array; }

    /// The first element; the array must not be null.
    T& operator*() const { return *m_array; }

    /// Gives up ownership and returns the pointer, which this object keeps.
    T* release() {
        m_owns = false;
        return m_array;
    }

  private:
    mutable bool m_owns;
    T* m_array;
};

// Clients use the library's copies of these.
extern template class kaAutoArray<unsigned char>;
extern template class kaAutoArray<unsigned short>;
extern template class kaAutoArray<unsigned int>;

#endif  // KAI18N_FRAME_KA_AUTO_ARRAY_H

// Intrusive smart pointers over iluSharedObject.
#ifndef KAI18N_FRAME_ILU_PTR_H
#define KAI18N_FRAME_ILU_PTR_H

#include "kai18n/platform/kalib.h"

namespace kai18n_detail {

// The behaviour shared by ilu_ptr and ilu_const_ptr; `P` is `T*` or `const T*`.
template <class P>
class ilu_ptr_base {
  public:
    ilu_ptr_base() : m_ptr(nullptr) {}
    /// Takes a reference to `p` if it is not null.
    ilu_ptr_base(P p) : m_ptr(p) { acquire(); }
    ilu_ptr_base(const ilu_ptr_base& other) : m_ptr(other.m_ptr) { acquire(); }
    ~ilu_ptr_base() { release(); }

    ilu_ptr_base& operator=(const ilu_ptr_base& other) { return reset(other.m_ptr); }
    ilu_ptr_base& operator=(P p) { return reset(p); }

    P get() const { return m_ptr; }
    P operator->() const { return m_ptr; }
    auto& operator*() const { return *m_ptr; }
    explicit operator bool() const { return m_ptr != nullptr; }

  protected:
    // Equal pointers: nothing happens. Otherwise the new object gains a
    // reference before the old one loses its own, so that an object reached
    // through the old one stays alive.
    ilu_ptr_base& reset(P p) {
        if (p != m_ptr) {
            P old = m_ptr;
            m_ptr = p;
            acquire();
            if (old != nullptr) old->ReleaseReference();
        }
        return *this;
    }

  private:
    void acquire() const {
        if (m_ptr != nullptr) m_ptr->AddReference();
    }
    void release() const {
        if (m_ptr != nullptr) m_ptr->ReleaseReference();
    }

    P m_ptr;
};

}  // namespace kai18n_detail

/// Holds one counted reference to a `T` derived from iluSharedObject.
template <class T>
class ilu_ptr : public kai18n_detail::ilu_ptr_base<T*> {
    using Base = kai18n_detail::ilu_ptr_base<T*>;

  public:
    using Base::Base;
    using Base::operator=;
};

/// Holds one counted reference to a constant `T` derived from iluSharedObject.
template <class T>
class ilu_const_ptr : public kai18n_detail::ilu_ptr_base<const T*> {
    using Base = kai18n_detail::ilu_ptr_base<const T*>;

  public:
    using Base::Base;
    using Base::operator=;
    ilu_const_ptr(const ilu_ptr<T>& other) : Base(other.get()) {}
};

template <class T, class U>
bool operator==(const ilu_ptr<T>& a, const ilu_ptr<U>& b) {
    return a.get() == b.get();
}
template <class T, class U>
bool operator!=(const ilu_ptr<T>& a, const ilu_ptr<U>& b) {
    return a.get() != b.get();
}
template <class T, class U>
bool operator==(const ilu_const_ptr<T>& a, const ilu_const_ptr<U>& b) {
    return a.get() == b.get();
}
template <class T, class U>
bool operator!=(const ilu_const_ptr<T>& a, const ilu_const_ptr<U>& b) {
    return a.get() != b.get();
}

#endif  // KAI18N_FRAME_ILU_PTR_H

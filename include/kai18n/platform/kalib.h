// The support types that kai18n shares with its sibling modules: the library
// exception, the counted base of shared objects, and the scope that keeps the
// platform quiet while a module is loaded.
#ifndef KAI18N_PLATFORM_KALIB_H
#define KAI18N_PLATFORM_KALIB_H

#include <cstdint>
#include <exception>
#include <string>

/// The exception of the library: a result code (see kai18n/frame/result_codes.h)
/// and a message, empty unless the thrower set one. Thrown by value, caught by
/// reference. Every exception of the library derives from it.
class LUException : public std::exception {
  public:
    explicit LUException(const long& result);
    LUException(const LUException& other);
    LUException& operator=(const LUException& other);
    ~LUException() override;

    /// Throws an LUException with `result` and, if `message` is not null, that message.
    [[noreturn]] static void Raise(long result, const char* message = nullptr);

    long GetResult() const { return m_result; }
    const std::string& GetMessage() const { return m_message; }

    /// Sets the message when `message` is not null; a null pointer leaves it as it is.
    void SetMessage(const char* message);

    /// The message if one was set, else a short description of the result code.
    const char* what() const noexcept override;

  protected:
    long m_result;
    std::string m_message;
};

/// Base of every reference-counted object. The count is a plain integer, not
/// atomic: an object shared across threads needs its owners' own discipline.
/// `ilu_ptr` and `ilu_const_ptr` drive the count; see kai18n/frame/ilu_ptr.h.
class iluSharedObject {
  public:
    /// `refs` is the initial count: 0 for an object that its first `ilu_ptr`
    /// will own, 1 or more for one with an owner that is not a smart pointer.
    explicit iluSharedObject(std::uint32_t refs = 0) : m_refCount(refs) {}
    /// A copy is a new object with a count of its own, starting at 0.
    iluSharedObject(const iluSharedObject&) : m_refCount(0) {}
    /// Assignment copies state, never the count.
    iluSharedObject& operator=(const iluSharedObject&) { return *this; }
    virtual ~iluSharedObject();

    void AddReference() const { ++m_refCount; }

    /// Subtracts one; at zero the count is set back to 1 and the object is
    /// deleted, so that its destructor may take and drop a temporary
    /// reference to it without deleting it a second time.
    void ReleaseReference() const {
        if (--m_refCount == 0) {
            m_refCount = 1;
            delete this;
        }
    }

    std::uint32_t GetReferenceCount() const { return m_refCount; }

  private:
    mutable std::uint32_t m_refCount;
};

/// While an object of this class lives, the platform's critical-error dialogs
/// are suppressed. Used around loading and unloading the locale data module.
/// On POSIX systems there are no such dialogs and the scope does nothing.
class kaRedirectCriticalErrorMessage {
  public:
    static const int kQuiet;

    explicit kaRedirectCriticalErrorMessage(int mode);
    ~kaRedirectCriticalErrorMessage();

    kaRedirectCriticalErrorMessage(const kaRedirectCriticalErrorMessage&) = delete;
    kaRedirectCriticalErrorMessage& operator=(const kaRedirectCriticalErrorMessage&) = delete;

    int GetMode() const { return m_mode; }

  private:
    int m_mode;
};

#endif  // KAI18N_PLATFORM_KALIB_H

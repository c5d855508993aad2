// The thread toolkit: re-entrant locks and the toolkit's start and end calls.
#ifndef KAI18N_PLATFORM_OS_THREAD_TOOLKIT_H
#define KAI18N_PLATFORM_OS_THREAD_TOOLKIT_H

#include <mutex>

/// Starts the toolkit. Calls nest: each must be paired with one
/// os_exit_thread_toolkit().
void os_init_thread_toolkit();
/// Ends one pairing of os_init_thread_toolkit().
void os_exit_thread_toolkit();
/// How many os_init_thread_toolkit() calls are not yet paired; for diagnostics.
int os_thread_toolkit_depth();

/// A lock that the same thread may take again while holding it.
class os_critical_section {
  public:
    /// The flag is the toolkit's own; the library passes false for its lasting locks.
    explicit os_critical_section(bool flag = false);
    ~os_critical_section();

    os_critical_section(const os_critical_section&) = delete;
    os_critical_section& operator=(const os_critical_section&) = delete;

    void lock();
    void unlock();

  private:
    std::recursive_mutex m_mutex;
};

#endif  // KAI18N_PLATFORM_OS_THREAD_TOOLKIT_H

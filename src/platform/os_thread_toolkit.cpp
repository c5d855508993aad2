#include "platform/os_thread_toolkit.h"

#include <atomic>

namespace {
// The toolkit keeps no state of its own on POSIX; the depth is counted so that
// unbalanced start and end calls can be seen in tests.
std::atomic<int> g_toolkitDepth{0};
}  // namespace

void os_init_thread_toolkit() {
    ++g_toolkitDepth;
}

void os_exit_thread_toolkit() {
    --g_toolkitDepth;
}

int os_thread_toolkit_depth() {
    return g_toolkitDepth.load();
}

os_critical_section::os_critical_section(bool /*flag*/) {}

os_critical_section::~os_critical_section() = default;

void os_critical_section::lock() {
    m_mutex.lock();
}

void os_critical_section::unlock() {
    m_mutex.unlock();
}

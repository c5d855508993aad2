#include "locale/locale_lock.h"

#include "platform/os_thread_toolkit.h"

os_critical_section& lu_locale_lock() {
    // Deliberately leaked: a handle in a static object of another unit may be
    // released after this unit's statics are gone.
    static os_critical_section* const lock = new os_critical_section(false);
    return *lock;
}

lu_locale_lock_guard::lu_locale_lock_guard() {
    lu_locale_lock().lock();
}

lu_locale_lock_guard::~lu_locale_lock_guard() {
    lu_locale_lock().unlock();
}

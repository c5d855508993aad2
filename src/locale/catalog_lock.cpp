#include "locale/catalog_lock.h"

#include "platform/os_thread_toolkit.h"

os_critical_section& lu_catalog_lock() {
    // Deliberately leaked, like the locale lock: the data module's initialisers
    // and the static objects of other units may reach the catalog at any time.
    static os_critical_section* const lock = new os_critical_section(false);
    return *lock;
}

lu_catalog_lock_guard::lu_catalog_lock_guard() {
    lu_catalog_lock().lock();
}

lu_catalog_lock_guard::~lu_catalog_lock_guard() {
    lu_catalog_lock().unlock();
}

// The catalog lock: guards every member of the locale catalog, and is held
// while the locale data module loads, whose initialisers register their locales
// on the loading thread. It is re-entrant. The locale lock may be taken while
// it is held; it must never be taken while the locale lock is held.
#ifndef KAI18N_LOCALE_CATALOG_LOCK_H
#define KAI18N_LOCALE_CATALOG_LOCK_H

class os_critical_section;

/// The process-wide catalog lock. It is never destroyed, so that the catalog
/// can still be reached while the process ends.
os_critical_section& lu_catalog_lock();

/// Holds the catalog lock for its lifetime.
class lu_catalog_lock_guard {
  public:
    lu_catalog_lock_guard();
    ~lu_catalog_lock_guard();
    lu_catalog_lock_guard(const lu_catalog_lock_guard&) = delete;
    lu_catalog_lock_guard& operator=(const lu_catalog_lock_guard&) = delete;
};

#endif  // KAI18N_LOCALE_CATALOG_LOCK_H

// The locale lock: guards the counts of locale bodies in handle operations and
// the classic and global locales. It is re-entrant. The catalog lock may be
// held when it is taken; it must never be held when the catalog lock is taken.
#ifndef KAI18N_LOCALE_LOCALE_LOCK_H
#define KAI18N_LOCALE_LOCALE_LOCK_H

class os_critical_section;

/// The process-wide locale lock. It is never destroyed, so that handles held by
/// static objects can still be released while the process ends.
os_critical_section& lu_locale_lock();

/// Holds the locale lock for its lifetime.
class lu_locale_lock_guard {
  public:
    lu_locale_lock_guard();
    ~lu_locale_lock_guard();
    lu_locale_lock_guard(const lu_locale_lock_guard&) = delete;
    lu_locale_lock_guard& operator=(const lu_locale_lock_guard&) = delete;
};

#endif  // KAI18N_LOCALE_LOCALE_LOCK_H

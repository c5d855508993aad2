// The locale data module: registers every record with the catalog while it
// loads, and lists the records for tests and tools.
#include "kai18n/locale/lu_locale_catalog.h"
#include "locale_records.h"

namespace {

// Runs while the catalog loads the module, on the loading thread, which holds
// the catalog lock already (the lock is re-entrant). A record the catalog
// refuses (an id taken before) stays out; nothing may escape a static
// initialiser, so a failure of the catalog itself ends the registration.
struct Registration {
    Registration() {
        try {
            lu_locale_catalog* catalog = lu_locale_catalog::GetInstance();
            for (unsigned int i = 0; i < kai18nloc::kRecordCount; ++i)
                catalog->Register(kai18nloc::kRecords[i]);
        } catch (...) {
        }
    }
};

const Registration kRegistration;

}  // namespace

extern "C" __attribute__((visibility("default"))) const lu_locale_storage* const* kai18nloc_records(
    unsigned int* count) {
    if (count != nullptr) *count = kai18nloc::kRecordCount;
    return kai18nloc::kRecords;
}

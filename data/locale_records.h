// The records of the locale data module, as the generated sources and the
// neutral record define them.
#ifndef KAI18N_DATA_LOCALE_RECORDS_H
#define KAI18N_DATA_LOCALE_RECORDS_H

#include "kai18n/locale/lu_locale_storage.h"

namespace kai18nloc {

/// Every record of the module in ascending order of locale ids; the neutral
/// record (31000) is the last. Generated: generated/locale_index.cpp.
extern const lu_locale_storage* const kRecords[];
extern const unsigned int kRecordCount;

/// The neutral record, id 31000: the library's default identity, numeric
/// punctuation and date and time names.
extern const lu_locale_storage kNeutralLocale;

}  // namespace kai18nloc

/// The one entry point of the module, for tests and tools: every record, as
/// above, with their number in `*count` (when `count` is not null). The
/// catalog does not use it; it learns the records through Register.
extern "C" const lu_locale_storage* const* kai18nloc_records(unsigned int* count);

#endif  // KAI18N_DATA_LOCALE_RECORDS_H

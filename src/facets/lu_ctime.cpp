#include "kai18n/facets/lu_ctime.h"

namespace {

const unsigned short kNoEra[] = {0};

}  // namespace

// ---- lu_ctime_impl

lu_ctime_impl::lu_ctime_impl(const StaticStorage* storage)
    : iluSharedObject(1), m_record(storage != nullptr ? *storage : kDefaultCtimeStorage) {}

lu_ctime_impl::~lu_ctime_impl() = default;

// ---- lu_ctime

lu_locale::id lu_ctime::id;

lu_ctime::lu_ctime(unsigned int refs) : lu_ctime(nullptr, refs) {}

// The body starts with the one count that this facet holds.
lu_ctime::lu_ctime(const lu_ctime_impl::StaticStorage* storage, unsigned int refs)
    : lu_locale::facet(refs), m_impl(new lu_ctime_impl(storage)) {}

lu_ctime::~lu_ctime() {
    m_impl->ReleaseReference();
}

const unsigned short* lu_ctime::FindEra(long year, long* era_year) const {
    const lu_ctime_impl::StaticStorage& record = m();
    // The start years descend: find by bisection the first one strictly below
    // `year`, so that a year equal to a start year falls to the era before.
    unsigned int low = 0, high = record.era_count;
    while (low < high) {
        const unsigned int middle = low + (high - low) / 2;
        if (record.era_years[middle] < year) {
            high = middle;
        } else {
            low = middle + 1;
        }
    }
    long result = year;
    const unsigned short* name = kNoEra;
    if (low < record.era_count) {
        const long start = record.era_years[low];
        if (start != lu_ctime_impl::kBackwardEra) {
            result = year - start + 1;
        } else if (low > 0) {
            // Counting backwards from the start of the next era.
            result = record.era_years[low - 1] - year;
        }
        name = record.eras[low];
    }
    if (era_year != nullptr) *era_year = result;
    return name;
}

long lu_ctime::FindEraYear(long year) const {
    long era_year = 0;
    FindEra(year, &era_year);
    return era_year;
}

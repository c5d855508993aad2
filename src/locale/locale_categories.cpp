#include "locale/locale_categories.h"

#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_collate.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_num_get.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/facets/lu_reserved_facets.h"
#include "kai18n/locale/lu_locale_ident.h"

namespace {

const lu_locale::id* const kCollate[] = {&lu_collate::id, nullptr};
const lu_locale::id* const kCtype[] = {&lu_ctype::id, &lu_codecvt::id, nullptr};
const lu_locale::id* const kMonetary[] = {&lu_moneypunct::id, &lu_money_get::id, &lu_money_put::id,
                                          nullptr};
const lu_locale::id* const kNumeric[] = {&lu_numpunct::id, &lu_num_get::id, &lu_num_put::id,
                                         nullptr};
const lu_locale::id* const kTime[] = {&lu_time_get::id, &lu_time_put::id, &lu_ctime::id, nullptr};
const lu_locale::id* const kTimeIo[] = {&lu_time_get::id, &lu_time_put::id, nullptr};
const lu_locale::id* const kIdentification[] = {&lu_locale_ident::id, nullptr};

// Index i belongs to the category bit 0x0100 << i.
const lu_locale::id* const* const kCategories[lu_locale::_Impl::kCategoryCount] = {
    kCollate, kCtype, kMonetary, kNumeric, kTime, kTimeIo, kIdentification};

}  // namespace

const lu_locale::id* const* lu_category_ids(unsigned int index) {
    return kCategories[index];
}

int lu_locale::_S_normalize_category(int category) {
    if ((category & all) != 0 && (category & ~all) == 0) return category;
    switch (category) {
        case 0:
            return all;
        case 1:
            return collate;
        case 2:
            return ctype;
        case 3:
            return monetary;
        case 4:
            return numeric;
        case 5:
            return time;
        default:
            LUException::Raise(LU_E_BAD_CATEGORY);
    }
}

void lu_locale::_Impl::_M_replace_category(const _Impl* other, const id* const* ids) {
    for (; *ids != nullptr; ++ids) _M_replace_facet(other, *ids);
}

void lu_locale::_Impl::_M_replace_categories(const _Impl* other, int mask) {
    if (mask < collate) return;
    unsigned int index = 0;
    for (int bit = collate; index < kCategoryCount && (mask & ~(bit - 1)) != 0;
         bit <<= 1, ++index) {
        if ((mask & bit) == 0) continue;
        _M_replace_category(other, lu_category_ids(index));
        m_names[index] = other->m_names[index];
    }
}

// The facets of each locale category, in category order.
#ifndef KAI18N_LOCALE_LOCALE_CATEGORIES_H
#define KAI18N_LOCALE_LOCALE_CATEGORIES_H

#include "kai18n/locale/lu_locale.h"

/// The ids of category `index` (0 collate ... 6 identification), as a
/// null-terminated list; `index` must be below lu_locale::_Impl::kCategoryCount.
const lu_locale::id* const* lu_category_ids(unsigned int index);

#endif  // KAI18N_LOCALE_LOCALE_CATEGORIES_H

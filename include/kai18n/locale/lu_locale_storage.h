// The record of one locale, as the locale data module hands it to the catalog.
#ifndef KAI18N_LOCALE_LU_LOCALE_STORAGE_H
#define KAI18N_LOCALE_LU_LOCALE_STORAGE_H

#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype_impl.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/locale/lu_locale_ident_impl.h"

/// Everything needed to build a locale. Every pointer points into constant
/// data of its provider; a null character-table pointer means the built-in
/// Unicode tables.
struct lu_locale_storage {
    unsigned int locale_id;
    const lu_locale_ident_impl::StaticStorage* identity;
    const lu_ctype_impl::StaticStorage* character_tables;
    const lu_numeric_punctuation::StaticStorage* numeric;
    const lu_ctime_impl::StaticStorage* time;
};

#endif  // KAI18N_LOCALE_LU_LOCALE_STORAGE_H

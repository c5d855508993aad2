// The built-in character-class tables (the generated ctype_i18n_tables.cpp):
// their sizes, for checks of the tables' shape.
#ifndef KAI18N_FACETS_CTYPE_I18N_TABLES_H
#define KAI18N_FACETS_CTYPE_I18N_TABLES_H

#include "kai18n/facets/lu_ctype_impl.h"

extern const unsigned int kCtypeI18nIndexSize;
extern const unsigned int kCtypeI18nRunCount;
extern const unsigned int kCtypeI18nPropertyCount;
extern const unsigned int kCtypeI18nNumberCount;
extern const unsigned int kCtypeI18nDeltaCount;
extern const unsigned int kCtypeI18nBlockCount;

#endif  // KAI18N_FACETS_CTYPE_I18N_TABLES_H

// The reserved facets: money punctuation, money input and output, time input
// and output. They have no behaviour; they exist so that every category of a
// locale is complete and a caller can ask a locale whether it has them.
// Money and time text are written by the format library and lu_ctime.
#ifndef KAI18N_FACETS_LU_RESERVED_FACETS_H
#define KAI18N_FACETS_LU_RESERVED_FACETS_H

#include "kai18n/locale/lu_locale.h"

#define KAI18N_RESERVED_FACET(Name)                                      \
    class Name : public lu_locale::facet {                               \
      public:                                                            \
        static lu_locale::id id;                                         \
        explicit Name(unsigned int refs = 0) : lu_locale::facet(refs) {} \
                                                                         \
      protected:                                                         \
        ~Name() override;                                                \
    }

KAI18N_RESERVED_FACET(lu_moneypunct);
KAI18N_RESERVED_FACET(lu_money_get);
KAI18N_RESERVED_FACET(lu_money_put);
KAI18N_RESERVED_FACET(lu_time_get);
KAI18N_RESERVED_FACET(lu_time_put);

#undef KAI18N_RESERVED_FACET

#endif  // KAI18N_FACETS_LU_RESERVED_FACETS_H

// Installing a freshly built facet into a locale body that is being built.
#ifndef KAI18N_LOCALE_FACET_INSTALL_H
#define KAI18N_LOCALE_FACET_INSTALL_H

#include "kai18n/locale/lu_locale.h"

/// Installs `facet`, built with count 0, under its class's id; if installing
/// fails, the facet is freed instead of leaking. Returns the facet.
template <class Facet>
Facet* lu_install_new_facet(lu_locale::_Impl* impl, Facet* facet) {
    try {
        impl->_M_install_facet(&Facet::id, facet);
    } catch (...) {
        facet->AddReference();
        facet->ReleaseReference();
        throw;
    }
    return facet;
}

#endif  // KAI18N_LOCALE_FACET_INSTALL_H

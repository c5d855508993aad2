#include "kai18n/locale/lu_locale_ident.h"

lu_locale::id lu_locale_ident::id;

lu_locale_ident::~lu_locale_ident() = default;

ucs2string lu_locale_ident::Text(const unsigned short* units) {
    return units != nullptr ? ucs2string(units) : ucs2string();
}

ucs2string lu_locale_ident::Text(const unsigned char* utf8) {
    return utf8 != nullptr ? ucs2string(utf8) : ucs2string();
}

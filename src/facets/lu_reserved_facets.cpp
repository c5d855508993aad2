#include "kai18n/facets/lu_reserved_facets.h"

lu_locale::id lu_moneypunct::id;
lu_locale::id lu_money_get::id;
lu_locale::id lu_money_put::id;
lu_locale::id lu_time_get::id;
lu_locale::id lu_time_put::id;

lu_moneypunct::~lu_moneypunct() = default;
lu_money_get::~lu_money_get() = default;
lu_money_put::~lu_money_put() = default;
lu_time_get::~lu_time_get() = default;
lu_time_put::~lu_time_put() = default;

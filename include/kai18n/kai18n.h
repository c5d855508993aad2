// kai18n: every public header of the library.
#ifndef KAI18N_KAI18N_H
#define KAI18N_KAI18N_H

// Library frame
#include "kai18n/frame/ilu_ptr.h"
#include "kai18n/frame/init_exit.h"
#include "kai18n/frame/ka_auto_array.h"
#include "kai18n/frame/ka_compact_array.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/platform/char_encoding.h"
#include "kai18n/platform/ka_collation.h"
#include "kai18n/platform/ka_convertion.h"
#include "kai18n/platform/kalib.h"
#include "kai18n/platform/lu_render.h"

// Unicode strings
#include "kai18n/strings/lu_utf8_traits.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/strprintf.h"
#include "kai18n/strings/ucs2string.h"
#include "kai18n/strings/ucs2string_formatter.h"
#include "kai18n/strings/utf8_conversion.h"

// Locale framework
#include "kai18n/locale/lu_countries.h"
#include "kai18n/locale/lu_languages.h"
#include "kai18n/locale/lu_locale.h"
#include "kai18n/locale/lu_locale_catalog.h"
#include "kai18n/locale/lu_locale_ident.h"
#include "kai18n/locale/lu_locale_ident_impl.h"
#include "kai18n/locale/lu_locale_storage.h"

// Locale facets
#include "kai18n/facets/lu_codecvt.h"
#include "kai18n/facets/lu_collate.h"
#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_ctype_impl.h"
#include "kai18n/facets/lu_double_traits.h"
#include "kai18n/facets/lu_num_get.h"
#include "kai18n/facets/lu_num_put.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/facets/lu_reserved_facets.h"
#include "kai18n/facets/lu_simple_shaper.h"

// Date-time value
#include "kai18n/datetime/lu_date_time.h"

// Calendar engine
#include "kai18n/calendar/calendar.h"
#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/calendar/time_zone.h"
#include "kai18n/calendar/uerror.h"
#include "kai18n/calendar/uprv.h"

// Time library
#include "kai18n/timelib/lu_calendar.h"
#include "kai18n/timelib/lu_calendar_time.h"
#include "kai18n/timelib/lu_clock.h"
#include "kai18n/timelib/lu_field.h"
#include "kai18n/timelib/lu_physical_time.h"
#include "kai18n/timelib/lu_time_zone.h"
#include "kai18n/timelib/predefined_time_zones.h"
#include "kai18n/timelib/timelib_init_exit.h"

// Format library
#include "kai18n/fmtlib/lu_date_format.h"
#include "kai18n/fmtlib/lu_excel_string_format.h"
#include "kai18n/fmtlib/lu_fmt_dialects.h"
#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_fmt_tokens.h"
#include "kai18n/fmtlib/lu_input_date.h"
#include "kai18n/fmtlib/lu_input_number.h"
#include "kai18n/fmtlib/lu_number_format.h"
#include "kai18n/fmtlib/lu_preferences.h"
#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/fmtlib/lu_string_format.h"
#include "kai18n/fmtlib/lu_tokens_definition.h"

#endif  // KAI18N_KAI18N_H

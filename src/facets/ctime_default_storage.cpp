// The built-in date and time names: English, the Gregorian eras, the
// strftime-style default formats and the fifteen default format patterns.
#include "facets/utf16_literal.h"
#include "kai18n/facets/lu_ctime.h"

namespace {

constexpr auto kMon = lu_make_utf16(u"Mon");
constexpr auto kTue = lu_make_utf16(u"Tue");
constexpr auto kWed = lu_make_utf16(u"Wed");
constexpr auto kThu = lu_make_utf16(u"Thu");
constexpr auto kFri = lu_make_utf16(u"Fri");
constexpr auto kSat = lu_make_utf16(u"Sat");
constexpr auto kSun = lu_make_utf16(u"Sun");
const unsigned short* const kShortDays[7] = {kMon.units, kTue.units, kWed.units, kThu.units,
                                             kFri.units, kSat.units, kSun.units};

constexpr auto kMonday = lu_make_utf16(u"Monday");
constexpr auto kTuesday = lu_make_utf16(u"Tuesday");
constexpr auto kWednesday = lu_make_utf16(u"Wednesday");
constexpr auto kThursday = lu_make_utf16(u"Thursday");
constexpr auto kFriday = lu_make_utf16(u"Friday");
constexpr auto kSaturday = lu_make_utf16(u"Saturday");
constexpr auto kSunday = lu_make_utf16(u"Sunday");
const unsigned short* const kDays[7] = {kMonday.units,   kTuesday.units, kWednesday.units,
                                        kThursday.units, kFriday.units,  kSaturday.units,
                                        kSunday.units};

constexpr auto kEmpty = lu_make_utf16(u"");

constexpr auto kJan = lu_make_utf16(u"Jan");
constexpr auto kFeb = lu_make_utf16(u"Feb");
constexpr auto kMar = lu_make_utf16(u"Mar");
constexpr auto kApr = lu_make_utf16(u"Apr");
constexpr auto kMay = lu_make_utf16(u"May");
constexpr auto kJun = lu_make_utf16(u"Jun");
constexpr auto kJul = lu_make_utf16(u"Jul");
constexpr auto kAug = lu_make_utf16(u"Aug");
constexpr auto kSep = lu_make_utf16(u"Sep");
constexpr auto kOct = lu_make_utf16(u"Oct");
constexpr auto kNov = lu_make_utf16(u"Nov");
constexpr auto kDec = lu_make_utf16(u"Dec");
const unsigned short* const kShortMonths[13] = {
    kJan.units, kFeb.units, kMar.units, kApr.units, kMay.units, kJun.units,  kJul.units,
    kAug.units, kSep.units, kOct.units, kNov.units, kDec.units, kEmpty.units};

constexpr auto kJanuary = lu_make_utf16(u"January");
constexpr auto kFebruary = lu_make_utf16(u"February");
constexpr auto kMarch = lu_make_utf16(u"March");
constexpr auto kApril = lu_make_utf16(u"April");
constexpr auto kJune = lu_make_utf16(u"June");
constexpr auto kJuly = lu_make_utf16(u"July");
constexpr auto kAugust = lu_make_utf16(u"August");
constexpr auto kSeptember = lu_make_utf16(u"September");
constexpr auto kOctober = lu_make_utf16(u"October");
constexpr auto kNovember = lu_make_utf16(u"November");
constexpr auto kDecember = lu_make_utf16(u"December");
const unsigned short* const kMonths[13] = {
    kJanuary.units,  kFebruary.units, kMarch.units,  kApril.units,     kMay.units,
    kJune.units,     kJuly.units,     kAugust.units, kSeptember.units, kOctober.units,
    kNovember.units, kDecember.units, kEmpty.units};

constexpr auto kAm = lu_make_utf16(u"AM");
constexpr auto kPm = lu_make_utf16(u"PM");
const unsigned short* const kAmPm[2] = {kAm.units, kPm.units};

constexpr auto kAD = lu_make_utf16(u"A.D.");
constexpr auto kBC = lu_make_utf16(u"B.C.");
const unsigned short* const kEras[2] = {kAD.units, kBC.units};
const std::int32_t kEraYears[2] = {1, lu_ctime_impl::kBackwardEra};
const unsigned short* const kAdBc[2] = {kBC.units, kAD.units};

constexpr auto kDateTimeFormat = lu_make_utf16(u"%a %b %e %H:%M:%S %Y");
constexpr auto kDateFormat = lu_make_utf16(u"%m/%d/%y");
constexpr auto kTimeFormat = lu_make_utf16(u"%H:%M:%S");
constexpr auto kAmPmTimeFormat = lu_make_utf16(u"%I:%M:%S %p");
constexpr auto kDateSeparator = lu_make_utf16(u"/");
constexpr auto kTimeSeparator = lu_make_utf16(u":");

// Entry i serves the default format value i.
constexpr auto kFormat0 = lu_make_utf16(u"T[dn]L[ ]T[d]L[ ]T[mt]L[ ]T[y4]");
constexpr auto kFormat1 = lu_make_utf16(u"T[d]L[ ]T[mt]L[ ]T[y4]");
constexpr auto kFormat2 = lu_make_utf16(u"T[d]L[ ]T[amt]L[ ]T[y2]");
constexpr auto kFormat3 = lu_make_utf16(u"T[0d]L[/]T[0M]L[/]T[y2]");
constexpr auto kFormat4 = lu_make_utf16(u"T[023]L[ h ]T[0m]L[ ]T[tz]");
constexpr auto kFormat5 = lu_make_utf16(u"T[023]L[:]T[0m]L[:]T[0s]L[ ]T[tz]");
constexpr auto kFormat6 = lu_make_utf16(u"T[023]L[:]T[0m]L[:]T[0s]");
constexpr auto kFormat7 = lu_make_utf16(u"T[023]L[:]T[0m]");
constexpr auto kFormat8 =
    lu_make_utf16(u"T[dn]L[ ]T[d]L[ ]T[mt]L[ ]T[y4]L[ ]T[023]L[ h ]T[0m]L[ ]T[tz]");
constexpr auto kFormat9 =
    lu_make_utf16(u"T[d]L[ ]T[mt]L[ ]T[y4]L[ ]T[023]L[:]T[0m]L[:]T[0s]L[ ]T[tz]");
constexpr auto kFormat10 = lu_make_utf16(u"T[d]L[ ]T[amt]L[ ]T[y2]L[ ]T[023]L[:]T[0m]L[:]T[0s]");
constexpr auto kFormat11 = lu_make_utf16(u"T[0d]L[/]T[0M]L[/]T[y2]L[ ]T[023]L[:]T[0m]");
constexpr auto kFormat12 = lu_make_utf16(u"T[M]L[/]T[d]L[/]T[y4]");
constexpr auto kFormat13 = lu_make_utf16(u"T[12]L[:]T[0m]L[:]T[0s]L[ ]T[am]");
constexpr auto kFormat14 =
    lu_make_utf16(u"T[M]L[/]T[d]L[/]T[y4]L[ ]T[12]L[:]T[0m]L[:]T[0s]L[ ]T[am]");
const unsigned short* const kFmtLibFormats[lu_ctime_impl::kFmtLibFormatCount] = {
    kFormat0.units,  kFormat1.units,  kFormat2.units,  kFormat3.units,  kFormat4.units,
    kFormat5.units,  kFormat6.units,  kFormat7.units,  kFormat8.units,  kFormat9.units,
    kFormat10.units, kFormat11.units, kFormat12.units, kFormat13.units, kFormat14.units};

}  // namespace

const lu_ctime_impl::StaticStorage lu_ctime_impl::kDefaultCtimeStorage = {
    0,  // carried
    1,  // carried
    kShortDays,
    kDays,
    kShortMonths,
    kMonths,
    kAmPm,
    2,  // eras
    kEras,
    kEraYears,
    kDateTimeFormat.units,
    kDateFormat.units,
    kTimeFormat.units,
    kAmPmTimeFormat.units,
    1,  // carried
    kFmtLibFormats,
    kDateSeparator.units,
    kTimeSeparator.units,
    kAdBc,
};

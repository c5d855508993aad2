// The neutral record, id 31000, from which the catalog takes every part that a
// query leaves open: the identity of a locale without language ("i18n", as
// lu_locale_ident_impl::GetDefaultIdent() has it), the default numeric
// punctuation and the built-in English date and time names of the library.
#include "facets/utf16_literal.h"
#include "locale_records.h"

namespace kai18nloc {
namespace {

constexpr unsigned char kUnicodeCollation[] = "Unicode collation";
constexpr unsigned char kWesternEuropean[] = "Western European (Windows)";
constexpr auto kInternational = lu_make_utf16(u"International");

const lu_locale_ident_impl::StaticStorage kNeutralIdentity = {
    "i18n", nullptr, kUnicodeCollation, "i18n", kWesternEuropean, "CP1252", kInternational.units};

// The values of lu_numeric_punctuation's defaults; the patterns are the
// library's own table.
constexpr auto kDefaultBlock = lu_make_utf16(u"+-0123456789abcdef0123456789ABCDEFeE");
const unsigned short kNoGrouping[] = {0};
const lu_numeric_punctuation::StaticStorage kNeutralNumeric = {
    lu_numeric_punctuation::eSignBefore,     u'.', 0, kNoGrouping, kDefaultBlock.units,
    lu_numeric_punctuation::kDefaultFormats,
};

}  // namespace

const lu_locale_storage kNeutralLocale = {
    31000, &kNeutralIdentity, nullptr, &kNeutralNumeric, &lu_ctime_impl::kDefaultCtimeStorage,
};

}  // namespace kai18nloc

#include "kai18n/locale/lu_locale_ident_impl.h"

#include "facets/utf16_literal.h"
#include "kai18n/locale/lu_countries.h"
#include "kai18n/locale/lu_languages.h"

namespace {

constexpr auto kEmptyText = lu_make_utf16(u"");
constexpr auto kLanguageNeutral = lu_make_utf16(u"language neutral");
constexpr auto kInternational = lu_make_utf16(u"International");
constexpr unsigned char kUnicodeCollation[] = "Unicode collation";
constexpr unsigned char kWesternEuropean[] = "Western European (Windows)";

// Constant-initialised, like the records of the locale data module.
const lu_locale_ident_impl::StaticStorage kDefaultIdent = {
    "i18n", nullptr, kUnicodeCollation, "i18n", kWesternEuropean, "CP1252", kInternational.units};

const char* OrEmpty(const char* text) {
    return text != nullptr ? text : "";
}

}  // namespace

const lu_locale_ident_impl::StaticStorage* lu_locale_ident_impl::GetDefaultIdent() {
    return &kDefaultIdent;
}

lu_locale_ident_impl::lu_locale_ident_impl() : lu_locale_ident_impl(nullptr, 0) {}

lu_locale_ident_impl::lu_locale_ident_impl(const StaticStorage* const storage, unsigned int refs)
    : lu_locale_ident(refs), m_record(storage != nullptr ? *storage : kDefaultIdent) {}

lu_locale_ident_impl::~lu_locale_ident_impl() = default;

// "de_DE.CP1252@i18n" with a language, "i18n.CP1252@i18n" without.
std::string lu_locale_ident_impl::do_locale_name() const {
    std::string name;
    if (m_record.language != nullptr) {
        name += m_record.language;
        name += '_';
    }
    name += OrEmpty(m_record.country);
    name += '.';
    name += OrEmpty(m_record.encoding_technical_name);
    name += '@';
    name += OrEmpty(m_record.sort_order_technical_name);
    return name;
}

ucs2string lu_locale_ident_impl::do_locale_display_name(bool withDetails) const {
    if (m_record.display_name != nullptr) return ucs2string(m_record.display_name);
    if (m_record.country == nullptr) return ucs2string();
    ucs2string name;
    if (m_record.language != nullptr) {
        name = language_display_name();
        name += static_cast<unsigned short>(u' ');
        name += static_cast<unsigned short>(u'(');
        name += country_long_name();
        name += static_cast<unsigned short>(u')');
    } else {
        name = reinterpret_cast<const unsigned char*>(m_record.country);
    }
    if (withDetails) {
        name += static_cast<unsigned short>(u'.');
        name += encoding_display_name();
        name += static_cast<unsigned short>(u'@');
        name += sort_order_display_name();
    }
    return name;
}

const char* lu_locale_ident_impl::do_identification_code() const {
    return m_record.language != nullptr ? "" : m_record.country;
}

const unsigned short* lu_locale_ident_impl::do_country_long_name() const {
    if (m_record.language == nullptr) return kEmptyText.units;
    const lu_countries::country* row = lu_countries::LookUpByTwoLetters(m_record.country);
    if (row == lu_countries::end()) return nullptr;
    return row->GetLongName() != nullptr ? row->GetLongName() : row->GetName();
}

const unsigned short* lu_locale_ident_impl::do_country_name() const {
    if (m_record.language == nullptr) return kEmptyText.units;
    const lu_countries::country* row = lu_countries::LookUpByTwoLetters(m_record.country);
    return row != lu_countries::end() ? row->GetName() : nullptr;
}

const char* lu_locale_ident_impl::do_country_code_2() const {
    return m_record.language != nullptr ? m_record.country : "";
}

const char* lu_locale_ident_impl::do_country_code_3() const {
    if (m_record.language == nullptr) return "";
    const lu_countries::country* row = lu_countries::LookUpByTwoLetters(m_record.country);
    return row != lu_countries::end() ? row->GetIsoCode3() : nullptr;
}

const unsigned short* lu_locale_ident_impl::do_language_display_name() const {
    if (m_record.language == nullptr) return kLanguageNeutral.units;
    const lu_languages::language* row = lu_languages::LookUpByTwoLetters(m_record.language);
    if (row == lu_languages::end()) return nullptr;
    return row->GetDisplayName() != nullptr ? row->GetDisplayName() : row->GetEnglishName();
}

const unsigned short* lu_locale_ident_impl::do_language_english_name() const {
    if (m_record.language == nullptr) return kLanguageNeutral.units;
    const lu_languages::language* row = lu_languages::LookUpByTwoLetters(m_record.language);
    return row != lu_languages::end() ? row->GetEnglishName() : nullptr;
}

const char* lu_locale_ident_impl::do_language_code_2() const {
    return m_record.language != nullptr ? m_record.language : "";
}

const char* lu_locale_ident_impl::do_language_code_3() const {
    if (m_record.language == nullptr) return "";
    const lu_languages::language* row = lu_languages::LookUpByTwoLetters(m_record.language);
    return row != lu_languages::end() ? row->GetIsoCode3() : nullptr;
}

const unsigned char* lu_locale_ident_impl::do_sort_order_display_name() const {
    return m_record.sort_order_display_name;
}

const char* lu_locale_ident_impl::do_sort_order_technical_name() const {
    return m_record.sort_order_technical_name;
}

const unsigned char* lu_locale_ident_impl::do_encoding_display_name() const {
    return m_record.encoding_display_name;
}

const char* lu_locale_ident_impl::do_encoding_technical_name() const {
    return m_record.encoding_technical_name;
}

// The identity facet: names and codes of a locale with a language, of one
// without, of the built-in identity, and of codes the tables do not know.
#include <gtest/gtest.h>

#include <string>

#include "kai18n/frame/result_codes.h"
#include "kai18n/locale/lu_locale_ident_impl.h"
#include "test_support.h"

using test_support::ThrownCode;
using test_support::U16;

namespace {

// Opens the protected slots, so that a test sees null where the public members
// give an empty string.
class Ident : public lu_locale_ident_impl {
  public:
    explicit Ident(const StaticStorage* storage) : lu_locale_ident_impl(storage, 0) {
        AddReference();
    }
    using lu_locale_ident_impl::do_country_code_3;
    using lu_locale_ident_impl::do_country_long_name;
    using lu_locale_ident_impl::do_country_name;
    using lu_locale_ident_impl::do_encoding_display_name;
    using lu_locale_ident_impl::do_language_code_3;
    using lu_locale_ident_impl::do_language_display_name;
    using lu_locale_ident_impl::do_language_english_name;
    using lu_locale_ident_impl::do_sort_order_display_name;
};

// Facets have protected destructors and go through their count.
struct Held {
    explicit Held(const lu_locale_ident_impl::StaticStorage* storage) : facet(new Ident(storage)) {}
    ~Held() { facet->ReleaseReference(); }
    Ident* operator->() const { return facet; }
    Ident* facet;
};

std::u16string Text(const unsigned short* units) {
    if (units == nullptr) return u"<null>";
    std::u16string result;
    while (*units != 0) result.push_back(*units++);
    return result;
}

const unsigned char kCollation[] = "Unicode collation";
const unsigned char kWestern[] = "Western European (Windows)";

// A record as the locale data module lays it out.
lu_locale_ident_impl::StaticStorage Record(const char* country, const char* language) {
    return {country, language, kCollation, "i18n", kWestern, "CP1252", nullptr};
}

}  // namespace

TEST(LocaleIdentTest, WithALanguageCodesAndNamesComeFromTheTables) {
    const auto record = Record("DE", "de");
    Held f(&record);
    EXPECT_EQ("de_DE.CP1252@i18n", f->locale_name());
    EXPECT_EQ(u"Deutsch (Federal Republic of Germany)", U16(f->locale_display_name(false)));
    EXPECT_EQ(u"Deutsch (Federal Republic of Germany).Western European (Windows)@Unicode collation",
              U16(f->locale_display_name(true)));
    ASSERT_NE(nullptr, f->identification_code());
    EXPECT_STREQ("", f->identification_code());
    EXPECT_STREQ("DE", f->country_code_2());
    EXPECT_STREQ("DEU", f->country_code_3());
    EXPECT_EQ(u"Germany", U16(f->country_name()));
    EXPECT_EQ(u"Federal Republic of Germany", U16(f->country_long_name()));
    EXPECT_STREQ("de", f->language_code_2());
    EXPECT_STREQ("deu", f->language_code_3());
    EXPECT_EQ(u"Deutsch", U16(f->language_display_name()));
    EXPECT_EQ(u"German", Text(f->language_english_name()));
    EXPECT_EQ(kCollation, f->do_sort_order_display_name());
    EXPECT_EQ(kWestern, f->do_encoding_display_name());
    EXPECT_EQ(u"Unicode collation", U16(f->sort_order_display_name()));
    EXPECT_STREQ("i18n", f->sort_order_technical_name());
    EXPECT_EQ(u"Western European (Windows)", U16(f->encoding_display_name()));
    EXPECT_STREQ("CP1252", f->encoding_technical_name());
}

TEST(LocaleIdentTest, FallbacksToEnglishNameAndToCountryName) {
    struct Case {
        const char* language;
        const char* country;
        const char16_t* display;
        const char16_t* countryLong;
    };
    const Case cases[] = {
        {"ab", "AU", u"Abkhazian (Australia)", u"Australia"},
        {"en", "US", u"English (United States of America)", u"United States of America"},
        {"zh", "CN", u"中文 (People's, Republic of China)", u"People's, Republic of China"},
        {"iw", "IL", u"עברית (State of Israel)", u"State of Israel"},
        {"jw", "ID", u"Javanese (Republic of Indonesia)", u"Republic of Indonesia"},
        {"en", "us", u"English ()", u"<null>"},  // case counts
        {"en", "USA", u"English (United States of America)", u"United States of America"},
    };
    for (const Case& c : cases) {
        const auto record = Record(c.country, c.language);
        Held f(&record);
        EXPECT_EQ(c.display, U16(f->locale_display_name(false))) << c.country;
        EXPECT_EQ(c.countryLong, Text(f->do_country_long_name())) << c.country;
    }
}

TEST(LocaleIdentTest, WithoutALanguageTheIdentificationCodeStands) {
    const auto record = Record("i18n", nullptr);
    Held f(&record);
    EXPECT_EQ("i18n.CP1252@i18n", f->locale_name());
    EXPECT_EQ(u"i18n", U16(f->locale_display_name(false)));
    EXPECT_EQ(u"i18n.Western European (Windows)@Unicode collation",
              U16(f->locale_display_name(true)));
    EXPECT_STREQ("i18n", f->identification_code());
    for (const char* code :
         {f->country_code_2(), f->country_code_3(), f->language_code_2(), f->language_code_3()}) {
        ASSERT_NE(nullptr, code);
        EXPECT_STREQ("", code);
    }
    for (const unsigned short* empty : {f->do_country_name(), f->do_country_long_name()}) {
        EXPECT_EQ(u"", Text(empty));
    }
    EXPECT_EQ(u"language neutral", U16(f->language_display_name()));
    EXPECT_EQ(u"language neutral", Text(f->language_english_name()));

    // Field 0 is UTF-8.
    const auto named = Record("Übersetzung", nullptr);
    Held g(&named);
    EXPECT_EQ(u"Übersetzung", U16(g->locale_display_name(false)));
    EXPECT_EQ("Übersetzung.CP1252@i18n", g->locale_name());
}

TEST(LocaleIdentTest, DefaultIdentityIsInternational) {
    const lu_locale_ident_impl::StaticStorage* d = lu_locale_ident_impl::GetDefaultIdent();
    ASSERT_NE(nullptr, d);
    EXPECT_STREQ("i18n", d->country);
    EXPECT_EQ(nullptr, d->language);
    EXPECT_STREQ("Unicode collation", reinterpret_cast<const char*>(d->sort_order_display_name));
    EXPECT_STREQ("i18n", d->sort_order_technical_name);
    EXPECT_STREQ("Western European (Windows)",
                 reinterpret_cast<const char*>(d->encoding_display_name));
    EXPECT_STREQ("CP1252", d->encoding_technical_name);
    EXPECT_EQ(u"International", Text(d->display_name));

    lu_locale_ident_impl* built = new lu_locale_ident_impl;
    built->AddReference();
    Held fromNull(nullptr);
    for (const lu_locale_ident_impl* f :
         {static_cast<const lu_locale_ident_impl*>(built),
          static_cast<const lu_locale_ident_impl*>(fromNull.facet)}) {
        EXPECT_EQ(d->display_name, f->record().display_name);
        EXPECT_EQ("i18n.CP1252@i18n", f->locale_name());
        EXPECT_EQ(u"International", U16(f->locale_display_name(false)));
        EXPECT_EQ(u"International", U16(f->locale_display_name(true)));
        EXPECT_EQ(u"language neutral", Text(f->language_english_name()));
        EXPECT_TRUE(f->country_name().empty());
        EXPECT_FALSE(f->country_name().isnull());
        EXPECT_STREQ("i18n", f->identification_code());
    }
    EXPECT_EQ(1u, built->GetReferenceCount());
    built->ReleaseReference();
}

TEST(LocaleIdentTest, CompleteDisplayNameIsReturnedAlone) {
    const unsigned short own[] = {u'M', u'y', 0};
    auto record = Record("DE", "de");
    record.display_name = own;
    Held f(&record);
    EXPECT_EQ(u"My", U16(f->locale_display_name(false)));
    EXPECT_EQ(u"My", U16(f->locale_display_name(true)));
    EXPECT_EQ("de_DE.CP1252@i18n", f->locale_name());

    // Even when field 0 is null.
    record.country = nullptr;
    Held g(&record);
    EXPECT_EQ(u"My", U16(g->locale_display_name(true)));
}

TEST(LocaleIdentTest, NullFieldZeroGivesAnEmptyDisplayName) {
    for (const char* language : {"de", static_cast<const char*>(nullptr)}) {
        const auto record = Record(nullptr, language);
        Held f(&record);
        const ucs2string name = f->locale_display_name(true);
        EXPECT_TRUE(name.empty());
        EXPECT_FALSE(name.isnull());
    }
}

TEST(LocaleIdentTest, CodesNotInTheTablesGiveNullSlotsAndEmptyStrings) {
    const auto record = Record("ZZ", "qq");
    Held f(&record);
    EXPECT_EQ(nullptr, f->do_country_name());
    EXPECT_EQ(nullptr, f->do_country_long_name());
    EXPECT_EQ(nullptr, f->do_country_code_3());
    EXPECT_EQ(nullptr, f->do_language_display_name());
    EXPECT_EQ(nullptr, f->do_language_english_name());
    EXPECT_EQ(nullptr, f->do_language_code_3());
    for (const ucs2string& text :
         {f->country_name(), f->country_long_name(), f->language_display_name()}) {
        EXPECT_TRUE(text.empty());
        EXPECT_FALSE(text.isnull());
    }
    EXPECT_EQ(nullptr, f->language_english_name());
    EXPECT_EQ(nullptr, f->country_code_3());
    EXPECT_STREQ("ZZ", f->country_code_2());
    EXPECT_STREQ("qq", f->language_code_2());
    EXPECT_EQ(u" ()", U16(f->locale_display_name(false)));
    EXPECT_EQ("qq_ZZ.CP1252@i18n", f->locale_name());

    // Case counts: a lower-case country is not in the table.
    const auto lower = Record("de", "DE");
    Held g(&lower);
    EXPECT_EQ(nullptr, g->do_country_name());
    EXPECT_EQ(nullptr, g->do_language_code_3());
}

TEST(LocaleIdentTest, FiveByteSequenceInADisplayNameThrows) {
    const unsigned char bad[] = {'x', 0xF8, 0x88, 0x80, 0x80, 0x80, 0};
    auto record = Record("DE", "de");
    record.encoding_display_name = bad;
    Held f(&record);
    EXPECT_EQ(0, ThrownCode([&] { f->locale_display_name(false); }));
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([&] { f->locale_display_name(true); }));
    EXPECT_EQ(LU_E_INVALID_ARG, ThrownCode([&] { f->encoding_display_name(); }));
    EXPECT_EQ(0xFFFFFFFF80041123L, static_cast<unsigned long>(LU_E_INVALID_ARG));
}

TEST(LocaleIdentTest, RecordIsCopiedAndTheFacetIsFoundByItsId) {
    auto record = Record("FR", "fr");
    lu_locale loc(new lu_locale::_Impl(0, 0));
    auto* facet = new lu_locale_ident_impl(&record, 0);
    loc._M_get_impl()->_M_install_facet(&lu_locale_ident::id, facet);
    record.country = "BE";
    record.language = "nl";
    const lu_locale_ident& ident = lu_use_facet<lu_locale_ident>(loc);
    EXPECT_EQ(facet, &ident);
    EXPECT_EQ("fr_FR.CP1252@i18n", ident.locale_name());
    EXPECT_EQ(u"français (French Republic)", U16(ident.locale_display_name(false)));
    EXPECT_EQ(u"French Republic", U16(ident.country_long_name()));
    EXPECT_STREQ("FRA", ident.country_code_3());
}

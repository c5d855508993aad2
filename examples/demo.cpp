// A first look at kai18n: a text through UTF-8 and UTF-16 and back, a few
// fields laid out by the string formatter, character classes and case through
// a locale's facet, a real locale, a date, a number format, and a failure
// reported by code.
#include <kai18n/kai18n.h>

#include <iostream>
#include <memory>

namespace {

const unsigned char* Utf8(const char* text) {
    return reinterpret_cast<const unsigned char*>(text);
}

}  // namespace

int main() {
    // UTF-8 in, UTF-16 inside, UTF-8 out.
    const ucs2string greeting(Utf8("Grüße, Κόσμε, Привет, 世界 😀"));
    std::cout << "text:        " << greeting << '\n'
              << "UTF-16 units " << greeting.length() << '\n';

    const lu_utf8string bytes(greeting);
    std::cout << "UTF-8 bytes  " << bytes.length() << '\n';
    const ucs2string back(bytes);
    std::cout << "round trip   " << (back == greeting ? "identical" : "DIFFERENT") << '\n';

    // The free conversions treat every unit alone: the emoji's surrogate pair
    // becomes two three-byte sequences there, one four-byte sequence above.
    unsigned char* raw = nullptr;
    unsigned int rawBytes = 0;
    if (UCS2_ConvertToUTF8(greeting.data(), greeting.length(), &raw, &rawBytes) >= 0) {
        std::cout << "unit by unit " << rawBytes << " bytes\n";
        delete[] raw;
    }

    // Fields: right-aligned with zeros, left-aligned with dots, and one too
    // narrow for its number, which shows as number signs.
    ucs2string_formatter line;
    line.append(Utf8("["));
    line.append_formatted(42L, 6, ucs2string_formatter::align_right, '0');
    line.append(Utf8("] ["));
    line.append_formatted(Utf8("ok"), 6, ucs2string_formatter::align_left, '.');
    line.append(Utf8("] ["));
    line.append_formatted(-123456L, 4, ucs2string_formatter::align_right, ' ');
    line.append(Utf8("]"));
    std::cout << "fields:      " << line.str() << '\n';

    ucs2string summary;
    strprintf(summary, ucs2string(Utf8("%s has %d units")).c_str(), greeting.c_str(),
              static_cast<int>(greeting.length()));
    std::cout << "strprintf:   " << summary << '\n';

    // A locale holds facets; the character-class facet classifies and maps
    // case by the Unicode data.
    auto* body = new lu_locale::_Impl(1, 0);
    body->_M_install_facet(&lu_ctype::id, new lu_ctype(0));
    const lu_locale locale(body);
    ucs2string upper;
    lu_toupper(upper, greeting, locale);
    std::cout << "upper case:  " << upper << '\n';
    const lu_ctype_impl& classes = lu_use_facet<lu_ctype>(locale).impl();
    int letters = 0, han = 0;
    for (unsigned short unit : greeting) {
        letters += classes.IsAlpha(unit);
        han += lu_ctype_impl::IsHan(unit);
    }
    std::cout << "letters      " << letters << ", of them Han " << han << '\n';

    // Real locales come from the catalog: its data module loads on first use.
    const lu_locale german("de_DE");
    const lu_numpunct& punct = lu_use_facet<lu_numpunct>(german);
    std::cout << "de_DE:       decimal point '" << static_cast<char>(punct.decimal_point())
              << "', March is " << ucs2string(lu_use_facet<lu_ctime>(german).GetNameOfMonth(3))
              << ", " << lu_use_facet<lu_locale_ident>(german).locale_name() << '\n';

    // A date is one double counting days; it prints with the locale's names
    // ("%#d": the day without padding).
    ucs2string date;
    lu_date_time(2004, 3, 5, 9, 7, 3, 250)
        .Print(date, ucs2string(Utf8("%A, %#d. %B %Y, %H:%M")).c_str(), german);
    std::cout << "de_DE date:  " << date << '\n';

    // A number format, written as a spreadsheet user writes it, compiled for
    // a locale and run for a few values.
    {
        using namespace FmtLib;
        ilu_ptr<luPreferences> preferences;
        CreatePreferences(preferences);
        preferences->EndBuild();
        ilu_ptr<luSettings> settings;
        CreateSettings(german, preferences, settings);
        std::unique_ptr<luStringFormatNumber> ombrin(CreateStringFormatNumber("de", "DE"));
        luFmtPattern* pattern = nullptr;
        ombrin->ToPattern(ucs2string(Utf8("#,##0.00 €;[Rot]-#,##0.00 €")), pattern);
        std::unique_ptr<luFmtPattern> owned(pattern);
        luNumberFormat* format = nullptr;
        if (CreateNumberFormat(settings, pattern, format) >= 0) {
            std::unique_ptr<luNumberFormat> number(format);
            for (double value : {1234567.891, -42.5}) {
                number->Format(value);
                std::cout << "formatted:   " << ucs2string(number->c_str())
                          << (number->Color() == 3 ? " (red)" : "") << '\n';
            }
        }
    }

    // Failures arrive as LUException with a result code.
    try {
        greeting.substr(1000);
    } catch (const LUException& error) {
        std::cout << "failure:     0x" << std::hex << static_cast<unsigned int>(error.GetResult())
                  << " " << error.what() << '\n';
    }
    return 0;
}

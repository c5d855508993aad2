#include "locale_tables.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace gen {
namespace {

// The 139 rows of the library's language table, by two-letter code.
const char* const kLanguages[] = {
    "aa", "ab", "af", "am", "ar", "as", "ay", "az", "ba", "be", "bg", "bh", "bi", "bn", "bo", "br",
    "ca", "co", "cs", "cy", "da", "de", "dz", "el", "en", "eo", "es", "et", "eu", "fa", "fi", "fj",
    "fo", "fr", "fy", "ga", "gd", "gl", "gn", "gu", "ha", "he", "hi", "hr", "hu", "hy", "ia", "id",
    "ie", "ik", "in", "is", "it", "iu", "iw", "ja", "ji", "jw", "ka", "kk", "kl", "km", "kn", "ko",
    "ks", "ku", "kw", "ky", "la", "lb", "ln", "lo", "lt", "lv", "mg", "mi", "mk", "ml", "mn", "mo",
    "mr", "ms", "mt", "my", "na", "ne", "nl", "no", "oc", "om", "pa", "pl", "ps", "pt", "qu", "rm",
    "rn", "ro", "ru", "rw", "sa", "sd", "se", "sg", "si", "sk", "sl", "sm", "sn", "so", "sq", "sr",
    "ss", "st", "su", "sv", "sw", "ta", "te", "tg", "th", "tk", "tl", "tr", "ts", "tt", "tw", "ug",
    "uk", "ur", "uz", "vi", "vo", "wo", "xh", "yi", "za", "zh", "zu",
};
static_assert(std::size(kLanguages) == 139, "the language table has 139 rows");

// The 240 rows of the library's country table, by two-letter code.
const char* const kCountries[] = {
    "AD", "AE", "AF", "AG", "AI", "AL", "AM", "AN", "AO", "AQ", "AR", "AS", "AT", "AU", "AW", "AZ",
    "BA", "BB", "BD", "BE", "BF", "BG", "BH", "BI", "BJ", "BM", "BN", "BO", "BR", "BS", "BT", "BV",
    "BW", "BY", "BZ", "CA", "CC", "CD", "CF", "CG", "CH", "CI", "CK", "CL", "CM", "CN", "CO", "CR",
    "CU", "CV", "CX", "CY", "CZ", "DE", "DJ", "DK", "DM", "DO", "DZ", "EC", "EE", "EG", "EH", "ER",
    "ES", "ET", "FI", "FJ", "FK", "FM", "FO", "FR", "FX", "GA", "GB", "GD", "GE", "GF", "GH", "GI",
    "GL", "GM", "GN", "GP", "GQ", "GR", "GS", "GT", "GU", "GW", "GY", "HK", "HM", "HN", "HR", "HT",
    "HU", "ID", "IE", "IL", "IN", "IO", "IQ", "IR", "IS", "IT", "JM", "JO", "JP", "KE", "KG", "KH",
    "KI", "KM", "KN", "KP", "KR", "KW", "KY", "KZ", "LA", "LB", "LC", "LI", "LK", "LR", "LS", "LT",
    "LU", "LV", "LY", "MA", "MC", "MD", "MG", "MH", "MK", "ML", "MM", "MN", "MO", "MP", "MQ", "MR",
    "MS", "MT", "MU", "MV", "MW", "MX", "MY", "MZ", "NA", "NC", "NE", "NF", "NG", "NI", "NL", "NO",
    "NP", "NR", "NU", "NZ", "OM", "PA", "PE", "PF", "PG", "PH", "PK", "PL", "PM", "PN", "PR", "PS",
    "PT", "PW", "PY", "QA", "RE", "RO", "RU", "RW", "SA", "SB", "SC", "SD", "SE", "SG", "SH", "SI",
    "SJ", "SK", "SL", "SM", "SN", "SO", "SR", "ST", "SV", "SY", "SZ", "TC", "TD", "TF", "TG", "TH",
    "TJ", "TK", "TM", "TN", "TO", "TP", "TR", "TT", "TV", "TW", "TZ", "UA", "UG", "UM", "US", "UY",
    "UZ", "VA", "VC", "VE", "VG", "VI", "VN", "VU", "WF", "WS", "YE", "YT", "YU", "ZA", "ZM", "ZW",
};
static_assert(std::size(kCountries) == 240, "the country table has 240 rows");

bool Contains(const char* const* first, const char* const* last, const std::string& code) {
    return std::any_of(first, last, [&](const char* entry) { return code == entry; });
}

// Display names as the library's encoding table has them.
const Encoding kCP874 = {"CP874", "IBM Thai (CP-874)", "windows-874"};
const Encoding kCP932 = {"CP932", "Japanese (Windows-932)", "windows-932"};
const Encoding kCP936 = {"CP936", "Chinese Simplified (CP936)", "windows-936"};
const Encoding kCP949 = {"CP949", "Korean (Windows-949)", "windows-949"};
const Encoding kCP950 = {"CP950", "Chinese Traditional (CP950)", "windows-950"};
const Encoding kCP1250 = {"CP1250", "Central European (Windows-1250)", "windows-1250"};
const Encoding kCP1251 = {"CP1251", "Cyrillic (Windows-1251)", "windows-1251"};
const Encoding kCP1252 = {"CP1252", "Western (Windows-1252)", "windows-1252"};
const Encoding kCP1253 = {"CP1253", "Greek (Windows-1253)", "windows-1253"};
const Encoding kCP1254 = {"CP1254", "Turkish (Windows-1254)", "windows-1254"};
const Encoding kCP1255 = {"CP1255", "Hebrew (Windows-1255)", "windows-1255"};
const Encoding kCP1256 = {"CP1256", "Arabic (Windows-1256)", "windows-1256"};
const Encoding kCP1257 = {"CP1257", "Baltic (Windows-1257)", "windows-1257"};
const Encoding kCP1258 = {"CP1258", "Vietnamese (Windows-1258)", "windows-1258"};
const Encoding kUtf8 = {"UTF-8", "Unicode (UTF-8)", "UTF-8"};

struct LanguageCodePage {
    const char* language;
    const char* script;  // null: any script
    const Encoding* encoding;
};

// Our table of ANSI code pages. The first row that fits wins, so a row with a
// script stands ahead of the row of its language. A language that is missing
// has no ANSI code page and gets only its UTF-8 record.
const LanguageCodePage kCodePages[] = {
    // Western European.
    {"af", nullptr, &kCP1252},
    {"br", nullptr, &kCP1252},
    {"ca", nullptr, &kCP1252},
    {"cy", nullptr, &kCP1252},
    {"da", nullptr, &kCP1252},
    {"de", nullptr, &kCP1252},
    {"en", nullptr, &kCP1252},
    {"es", nullptr, &kCP1252},
    {"eu", nullptr, &kCP1252},
    {"fi", nullptr, &kCP1252},
    {"fo", nullptr, &kCP1252},
    {"fr", nullptr, &kCP1252},
    {"fy", nullptr, &kCP1252},
    {"ga", nullptr, &kCP1252},
    {"gd", nullptr, &kCP1252},
    {"gl", nullptr, &kCP1252},
    {"ha", nullptr, &kCP1252},
    {"id", nullptr, &kCP1252},
    {"is", nullptr, &kCP1252},
    {"it", nullptr, &kCP1252},
    {"kl", nullptr, &kCP1252},
    {"kw", nullptr, &kCP1252},
    {"lb", nullptr, &kCP1252},
    {"mg", nullptr, &kCP1252},
    {"ms", nullptr, &kCP1252},
    {"nl", nullptr, &kCP1252},
    {"no", nullptr, &kCP1252},
    {"om", nullptr, &kCP1252},
    {"pt", nullptr, &kCP1252},
    {"qu", nullptr, &kCP1252},
    {"rm", nullptr, &kCP1252},
    {"rn", nullptr, &kCP1252},
    {"rw", nullptr, &kCP1252},
    {"sg", nullptr, &kCP1252},
    {"sn", nullptr, &kCP1252},
    {"so", nullptr, &kCP1252},
    {"su", nullptr, &kCP1252},
    {"sv", nullptr, &kCP1252},
    {"sw", nullptr, &kCP1252},
    {"wo", nullptr, &kCP1252},
    {"xh", nullptr, &kCP1252},
    {"zu", nullptr, &kCP1252},
    // Central European.
    {"cs", nullptr, &kCP1250},
    {"hr", nullptr, &kCP1250},
    {"hu", nullptr, &kCP1250},
    {"pl", nullptr, &kCP1250},
    {"ro", nullptr, &kCP1250},
    {"sk", nullptr, &kCP1250},
    {"sl", nullptr, &kCP1250},
    {"sq", nullptr, &kCP1250},
    {"sr", "Latn", &kCP1250},
    {"tk", nullptr, &kCP1250},
    // Cyrillic.
    {"az", "Cyrl", &kCP1251},
    {"be", nullptr, &kCP1251},
    {"bg", nullptr, &kCP1251},
    {"kk", nullptr, &kCP1251},
    {"ky", nullptr, &kCP1251},
    {"mk", nullptr, &kCP1251},
    {"mn", "Cyrl", &kCP1251},
    {"ru", nullptr, &kCP1251},
    {"sr", "Cyrl", &kCP1251},
    {"tt", nullptr, &kCP1251},
    {"uk", nullptr, &kCP1251},
    {"uz", "Cyrl", &kCP1251},
    // Greek, Turkish, Hebrew, Arabic, Baltic, Vietnamese.
    {"el", nullptr, &kCP1253},
    {"az", "Latn", &kCP1254},
    {"ku", "Latn", &kCP1254},
    {"tr", nullptr, &kCP1254},
    {"uz", "Latn", &kCP1254},
    {"he", nullptr, &kCP1255},
    {"ar", nullptr, &kCP1256},
    {"fa", nullptr, &kCP1256},
    {"ur", nullptr, &kCP1256},
    {"et", nullptr, &kCP1257},
    {"lt", nullptr, &kCP1257},
    {"lv", nullptr, &kCP1257},
    {"vi", nullptr, &kCP1258},
    // Thai and the East Asian double-byte code pages.
    {"th", nullptr, &kCP874},
    {"ja", nullptr, &kCP932},
    {"zh", "Hans", &kCP936},
    {"zh", "Hant", &kCP950},
    {"ko", nullptr, &kCP949},
};

}  // namespace

bool IsKnownLanguage(const std::string& code) {
    return Contains(std::begin(kLanguages), std::end(kLanguages), code);
}

bool IsKnownCountry(const std::string& code) {
    return Contains(std::begin(kCountries), std::end(kCountries), code);
}

std::string RecordLanguage(const std::string& cldrLanguage) {
    return cldrLanguage == "nb" ? std::string("no") : cldrLanguage;
}

const Encoding* AnsiCodePage(const std::string& language, const std::string& script) {
    for (const LanguageCodePage& row : kCodePages) {
        if (language != row.language) continue;
        if (row.script != nullptr && script != row.script) continue;
        return row.encoding;
    }
    return nullptr;
}

const Encoding& Utf8Encoding() {
    return kUtf8;
}

}  // namespace gen

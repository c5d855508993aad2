// gen_locale_data: writes the records of the locale data module from the CLDR
// data that ICU carries.
//
//   gen_locale_data <output directory>
//
// Every CLDR locale of ICU that names a territory, whose language is in the
// library's language table and whose territory is in its country table,
// becomes one record in the Windows ANSI code page of its language (where it
// has one) and one in UTF-8. The output directory receives locale_<language>.cpp
// for each language and locale_index.cpp with the list of all records; older
// locale_*.cpp files there are removed first. A summary goes to stdout.
#include <unicode/locid.h>
#include <unicode/uloc.h>
#include <unicode/ulocdata.h>
#include <unicode/uversion.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "emit.h"
#include "locale_data.h"
#include "locale_tables.h"

namespace {

using namespace gen;

const char kCommand[] = "tools/gen_locale_data/regenerate.sh";

// Ids: Windows LCIDs lie below this bound; ANSI records of locales without a
// usable LCID count up from kFirstOwnAnsiId, UTF-8 records from kFirstUtf8Id.
const unsigned int kLcidBound = 25000;
const unsigned int kFirstOwnAnsiId = 25000;
const unsigned int kFirstUtf8Id = 26000;
const unsigned int kNeutralId = 31000;

std::string Maximized(const std::string& name) {
    char buffer[ULOC_FULLNAME_CAPACITY] = {};
    UErrorCode status = U_ZERO_ERROR;
    uloc_addLikelySubtags(name.c_str(), buffer, sizeof buffer, &status);
    return U_SUCCESS(status) ? std::string(buffer) : name;
}

std::string ScriptOf(const std::string& name) {
    char buffer[ULOC_SCRIPT_CAPACITY] = {};
    UErrorCode status = U_ZERO_ERROR;
    uloc_getScript(name.c_str(), buffer, sizeof buffer, &status);
    return buffer;
}

// The LCID of a locale, when Windows has one for exactly this locale: ICU
// falls back to the LCID of the language or of another script for locales
// Windows does not know, and those answers are not taken. An LCID without
// sublanguage (a neutral one) or at or above kLcidBound is not taken either.
std::uint32_t UsableLcid(const std::string& name) {
    const std::uint32_t lcid = uloc_getLCID(name.c_str());
    if (lcid == 0 || (lcid >> 10) == 0 || lcid >= kLcidBound) return 0;
    char back[ULOC_FULLNAME_CAPACITY] = {};
    UErrorCode status = U_ZERO_ERROR;
    uloc_getLocaleForLCID(lcid, back, sizeof back, &status);
    if (U_FAILURE(status) || Maximized(back) != Maximized(name)) return 0;
    return lcid;
}

std::string Utf8(const icu::UnicodeString& text) {
    std::string out;
    text.toUTF8String(out);
    return out;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: gen_locale_data <output directory>\n";
        return 2;
    }
    const std::filesystem::path outDir = argv[1];

    // The locales that become records.
    std::vector<LocaleData> locales;
    std::map<std::string, std::vector<std::string>> skipped;  // reason -> locales
    for (int32_t i = 0; i < uloc_countAvailable(); ++i) {
        const std::string name = uloc_getAvailable(i);
        const icu::Locale locale(name.c_str());
        const std::string country = locale.getCountry();
        if (country.empty()) continue;
        const std::string language = RecordLanguage(locale.getLanguage());
        if (!IsKnownLanguage(language)) {
            skipped["language not in the table"].push_back(name);
            continue;
        }
        if (!IsKnownCountry(country)) {
            skipped["territory not in the table"].push_back(name);
            continue;
        }
        if (*locale.getVariant() != '\0') {
            skipped["variant"].push_back(name);
            continue;
        }
        LocaleData data;
        data.icu_name = name;
        data.language = language;
        data.country = country;
        data.script = ScriptOf(Maximized(name));
        data.default_script =
            data.script == ScriptOf(Maximized(std::string(locale.getLanguage()) + "_" + country));
        icu::UnicodeString english;
        data.english_name = Utf8(locale.getDisplayName(icu::Locale::getEnglish(), english));
        data.lcid = UsableLcid(name);
        data.ansi = AnsiCodePage(language, data.script);
        if (!ReadLocaleData(data)) {
            std::string reason = "incomplete data";
            for (const std::string& w : data.warnings) reason += "; " + w;
            skipped[reason].push_back(name);
            continue;
        }
        if (data.ansi != nullptr) {
            for (const std::string& text : Unwritable(data, *data.ansi))
                data.warnings.push_back(std::string(data.ansi->technical_name) +
                                        " cannot write \"" + text + "\"");
        }
        locales.push_back(std::move(data));
    }

    // Ids. The order is language, territory, the likely script first, name:
    // where two locales share language and territory, the likely one gets the
    // lower UTF-8 id, and a query by name finds it first.
    std::sort(locales.begin(), locales.end(), [](const LocaleData& a, const LocaleData& b) {
        if (a.language != b.language) return a.language < b.language;
        if (a.country != b.country) return a.country < b.country;
        if (a.default_script != b.default_script) return a.default_script;
        return a.icu_name < b.icu_name;
    });
    std::set<std::uint32_t> lcids;
    for (LocaleData& d : locales) {
        if (d.lcid != 0 && !lcids.insert(d.lcid).second) {
            d.warnings.push_back("LCID taken by another locale");
            d.lcid = 0;
        }
    }
    std::map<std::string, std::vector<LocaleRecords>> byLanguage;
    unsigned int nextOwnAnsi = kFirstOwnAnsiId;
    unsigned int nextUtf8 = kFirstUtf8Id;
    unsigned int ansiCount = 0;
    unsigned int lcidCount = 0;
    for (const LocaleData& d : locales) {
        LocaleRecords records{&d, 0, nextUtf8++};
        if (d.ansi != nullptr) {
            records.ansi_id = d.lcid != 0 ? d.lcid : nextOwnAnsi++;
            ++ansiCount;
            if (d.lcid != 0) ++lcidCount;
        }
        byLanguage[d.language].push_back(records);
    }
    if (nextOwnAnsi > kFirstUtf8Id || nextUtf8 > kNeutralId) {
        std::cerr << "gen_locale_data: the id ranges are full\n";
        return 1;
    }

    // Sources.
    Provenance provenance;
    provenance.icu_version = U_ICU_VERSION;
    UVersionInfo cldr;
    UErrorCode status = U_ZERO_ERROR;
    ulocdata_getCLDRVersion(cldr, &status);
    char cldrText[U_MAX_VERSION_STRING_LENGTH] = {};
    u_versionToString(cldr, cldrText);
    provenance.cldr_version = cldrText;
    provenance.command = kCommand;

    std::filesystem::create_directories(outDir);
    for (const auto& entry : std::filesystem::directory_iterator(outDir)) {
        const std::string file = entry.path().filename().string();
        if (file.rfind("locale_", 0) == 0 && entry.path().extension() == ".cpp")
            std::filesystem::remove(entry.path());
    }
    auto write = [&](const std::string& file, const std::string& text) {
        std::ofstream(outDir / file, std::ios::binary) << text;
    };
    std::vector<std::pair<std::string, std::vector<LocaleRecords>>> languages(byLanguage.begin(),
                                                                              byLanguage.end());
    for (const auto& language : languages)
        write("locale_" + language.first + ".cpp",
              LanguageSource(language.first, language.second, provenance));
    write("locale_index.cpp", IndexSource(languages, provenance));

    // Summary.
    std::map<std::string, std::set<std::string>> notes;  // note -> locales
    std::cout << "ICU " << provenance.icu_version << ", CLDR " << provenance.cldr_version << "\n"
              << locales.size() << " locales, " << ansiCount << " ANSI records (" << lcidCount
              << " with their LCID), " << locales.size() << " UTF-8 records, "
              << "1 neutral record: " << ansiCount + locales.size() + 1 << " records in "
              << languages.size() << " languages\n";
    for (const LocaleData& d : locales) {
        for (const std::string& n : d.notes) notes[n].insert(d.icu_name);
        for (const std::string& w : d.warnings)
            std::cout << "warning: " << d.icu_name << ": " << w << "\n";
    }
    for (const auto& s : skipped) {
        std::cout << "skipped (" << s.first << "): " << s.second.size() << ":";
        for (const std::string& name : s.second) std::cout << " " << name;
        std::cout << "\n";
    }
    for (const auto& n : notes) {
        std::cout << "note: " << n.first << ": " << n.second.size() << " locales:";
        int shown = 0;
        for (const std::string& name : n.second) {
            if (++shown > 12) {
                std::cout << " ...";
                break;
            }
            std::cout << " " << name;
        }
        std::cout << "\n";
    }
    return 0;
}

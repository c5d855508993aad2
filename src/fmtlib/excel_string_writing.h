// What the Excel number and date strings share: the output buffer, Excel's
// colour names, the quoting of literal text and the reading of a locale's
// default format.
#ifndef KAI18N_FMTLIB_EXCEL_STRING_WRITING_H
#define KAI18N_FMTLIB_EXCEL_STRING_WRITING_H

#include <cstddef>
#include <memory>
#include <vector>

#include "kai18n/fmtlib/lu_fmt_pattern.h"
#include "kai18n/fmtlib/lu_settings.h"
#include "kai18n/fmtlib/lu_string_format.h"

namespace FmtLib {
namespace excel {

// Units are gathered here and appended to the caller's string once: a
// ucs2string grows in small steps and would copy itself at every few units.
using Units = std::vector<unsigned short>;

inline void AppendAscii(Units& out, const char* text) {
    while (*text != '\0') out.push_back(static_cast<unsigned char>(*text++));
}

inline void Flush(const Units& out, ucs2string& text) {
    if (!out.empty()) text.append(out.data(), static_cast<unsigned int>(out.size()));
}

/// Excel knows eight colours; the dark and light shades fold onto the nearest
/// of them. `token` must be a colour token.
inline void AppendColour(Units& out, int token) {
    static const char* const kNames[] = {"[Black]",   "[White]",  "[Red]",     "[Green]",
                                         "[Blue]",    "[Yellow]", "[Magenta]", "[Cyan]",
                                         "[Red]",     "[Green]",  "[Blue]",    "[Yellow]",
                                         "[Magenta]", "[Cyan]",   "[Cyan]",    "[White]"};
    AppendAscii(out, kNames[token - TokBlack]);
}

/// Writes literal text so that Excel takes it as such: a run of two or more
/// units in quotation marks, a single unit behind a backslash, and a
/// quotation mark always behind a backslash, outside any quotes.
inline void AppendQuoted(Units& out, const unsigned short* units, std::size_t length) {
    constexpr unsigned short kQuote = u'"';
    constexpr unsigned short kBackslash = u'\\';
    bool open = false;
    for (std::size_t i = 0; i < length; ++i) {
        const unsigned short unit = units[i];
        if (unit == kQuote) {
            if (open) out.push_back(kQuote);
            open = false;
            out.push_back(kBackslash);
        } else {
            if (!open && i + 1 < length && units[i + 1] != kQuote) {
                out.push_back(kQuote);
                open = true;
            }
            if (!open) out.push_back(kBackslash);
        }
        out.push_back(unit);
    }
    if (open) out.push_back(kQuote);
}

/// The locale's default format `format` read in the canonical notation of
/// the kind, or null when the locale has no text for it or the canonical
/// reader cannot be had; a default that stands for nothing writes nothing.
inline std::unique_ptr<luFmtPattern> ParseDefaultFormat(const luSettings& settings, int format,
                                                        bool isDate) {
    const unsigned short* text = settings.GetFmtLibDefaultFormat(format);
    if (text == nullptr) return nullptr;
    try {
        std::unique_ptr<luStringFormat> serial;
        if (isDate)
            serial.reset(CreateSerialStringFormatDate());
        else
            serial.reset(CreateSerialStringFormatNumber());
        if (serial == nullptr) return nullptr;
        luFmtPattern* parsed = nullptr;
        serial->ToPattern(ucs2string(text), parsed);
        return std::unique_ptr<luFmtPattern>(parsed);
    } catch (...) {
        return nullptr;
    }
}

}  // namespace excel
}  // namespace FmtLib

#endif  // KAI18N_FMTLIB_EXCEL_STRING_WRITING_H

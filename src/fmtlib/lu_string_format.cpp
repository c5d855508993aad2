#include "kai18n/fmtlib/lu_string_format.h"

#include <cstring>
#include <memory>
#include <new>

#include "fmtlib/fmt_string_codec.h"
#include "kai18n/fmtlib/lu_fmt_dialects.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

namespace FmtLib {
namespace {

// The dialect tables stay up while this unit's string formats may run.
FmtLibInitExit s_fmtLibInitExit;

constexpr unsigned short kBackslash = u'\\';
constexpr unsigned short kExclamationMark = u'!';

bool Is(const char* text, const char* expected) {
    return text != nullptr && std::strcmp(text, expected) == 0;
}

// Japanese and Korean users write "!" where others write a backslash, which
// their keyboards show as a currency sign.
unsigned short OmbrinEscape(const char* lang) {
    return Is(lang, "ja") || Is(lang, "ko") ? kExclamationMark : kBackslash;
}

unsigned short VeloraEscape(const char* code) {
    return Is(code, "JP") || Is(code, "KR") ? kExclamationMark : kBackslash;
}

template <class Base, bool IsDateKind>
class luStringFormatImp final : public Base {
  public:
    luStringFormatImp(const luTokensDefinition* definition, const luTokensDefinition* colours,
                      const luFmtStringCodec::Switches& switches)
        : m_codec(definition, colours, switches) {}

    long ToPattern(ucs2string text, luFmtPattern*& pattern) override {
        delete pattern;
        pattern = nullptr;
        try {
            pattern = IsDateKind ? CreateDateFmtPattern() : CreateNumberFmtPattern();
            if (pattern == nullptr) return LU_E_FAIL;
            if (!m_codec.Parse(text, *pattern)) {
                pattern->erase(pattern->begin(), pattern->end());
                pattern->push_back(TokError);
            }
            return LU_S_SUCCESS;
        } catch (...) {
            return LU_E_FAIL;
        }
    }

    bool FromPattern(const luFmtPattern& pattern, ucs2string& text) override {
        m_codec.Print(pattern, text);
        return true;
    }

  private:
    luFmtStringCodec m_codec;  // holds the definitions by reference
};

using luStringFormatNumberImp = luStringFormatImp<luStringFormatNumber, false>;
using luStringFormatDateImp = luStringFormatImp<luStringFormatDate, true>;

// Builds a string format: null when memory runs out, LUException with the
// internal-error code when a definition is missing or anything else fails.
template <class Imp>
Imp* MakeStringFormat(const luTokensDefinition* definition, const luTokensDefinition* colours,
                      const luFmtStringCodec::Switches& switches) {
    if (definition == nullptr) LUException::Raise(LU_E_INTERNAL);
    try {
        return new Imp(definition, colours, switches);
    } catch (const std::bad_alloc&) {
        return nullptr;
    } catch (...) {
        LUException::Raise(LU_E_INTERNAL);
    }
}

// Colours are optional in the sense of the codec, but a dialect that has
// them must find them.
const luTokensDefinition* RequiredColours(const luTokensDefinition* colours) {
    if (colours == nullptr) LUException::Raise(LU_E_INTERNAL);
    return colours;
}

}  // namespace

luStringFormat::~luStringFormat() = default;

luStringFormatNumber* CreateStringFormatNumber(const char* lang, const char* country) {
    const luFmtStringCodec::Switches switches{true, OmbrinEscape(lang), true, 3, false, false,
                                              false};
    return MakeStringFormat<luStringFormatNumberImp>(
        GetNumberTokensDefinition(lang, country),
        RequiredColours(GetOmbrinColorDefinition(lang, country)), switches);
}

luStringFormatDate* CreateStringFormatDate(const char* lang, const char* country) {
    const luFmtStringCodec::Switches switches{true, OmbrinEscape(lang), true, 1, false, false,
                                              false};
    return MakeStringFormat<luStringFormatDateImp>(
        GetDateTokensDefinition(lang, country),
        RequiredColours(GetOmbrinColorDefinition(lang, country)), switches);
}

luStringFormatNumber* CreateVeloraStringFormatNumber(const char* code, const char* lang,
                                                     const char* country, bool percent) {
    const luFmtStringCodec::Switches switches{true,   VeloraEscape(code), false, 3, false, false,
                                              percent};
    return MakeStringFormat<luStringFormatNumberImp>(
        GetVeloraNumberTokensDefinition(code, lang, country),
        RequiredColours(GetVeloraColorDefinition(code)), switches);
}

luStringFormatDate* CreateVeloraStringFormatDate(const char* code, const char* lang,
                                                 const char* country) {
    const luFmtStringCodec::Switches switches{true, VeloraEscape(code), false, 1, true, false,
                                              false};
    return MakeStringFormat<luStringFormatDateImp>(
        GetVeloraDateTokensDefinition(code, lang, country),
        RequiredColours(GetVeloraColorDefinition(code)), switches);
}

luStringFormatNumber* CreateSerialStringFormatNumber() {
    const luFmtStringCodec::Switches switches{false, kBackslash, false, 0, false, true, false};
    return MakeStringFormat<luStringFormatNumberImp>(GetSerialNumberTokensDefinition(), nullptr,
                                                     switches);
}

luStringFormatDate* CreateSerialStringFormatDate() {
    const luFmtStringCodec::Switches switches{false, kBackslash, false, 0, false, true, false};
    return MakeStringFormat<luStringFormatDateImp>(GetSerialDateTokensDefinition(), nullptr,
                                                   switches);
}

}  // namespace FmtLib

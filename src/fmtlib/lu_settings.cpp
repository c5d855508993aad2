#include "kai18n/fmtlib/lu_settings.h"

#include <memory>
#include <new>

#include "kai18n/facets/lu_ctime.h"
#include "kai18n/facets/lu_ctype.h"
#include "kai18n/facets/lu_numpunct.h"
#include "kai18n/frame/result_codes.h"

namespace FmtLib {
namespace {

const unsigned short kAm[] = {u'A', u'M', 0};
const unsigned short kPm[] = {u'P', u'M', 0};
const unsigned short kBooleanLayout[] = {u'T', u'[', u'b', u't', u']', u'T', u'[', u'F', u'S',
                                         u']', u'T', u'[', u'b', u't', u']', u'T', u'[', u'F',
                                         u'S', u']', u'T', u'[', u'b', u'f', u']', 0};

// Bit p is set when a separator stands ahead of the digit with p digits to
// its right: each group size moves p on, and the last size repeats to the
// end of the map. A size of 0 ends the list.
std::bitset<256> GroupingMap(const unsigned short* sizes) {
    std::bitset<256> map;
    if (sizes == nullptr) return map;
    long p = -1;
    for (; *sizes != 0; ++sizes) {
        const unsigned short g = *sizes;
        p += g;
        if (p > 255) break;
        map.set(static_cast<std::size_t>(p));
        if (sizes[1] == 0) {
            for (p += g; p < 256; p += g) map.set(static_cast<std::size_t>(p));
            break;
        }
    }
    return map;
}

}  // namespace

luSettings::~luSettings() = default;

luSettingsImp::luSettingsImp(const lu_locale& locale, const ilu_ptr<luPreferences>& preferences)
    : m_preferences(preferences),
      m_values(preferences->GetImp()),
      m_locale(new lu_locale(locale)),
      m_numpunct(nullptr),
      m_digits(nullptr),
      m_ctime(nullptr),
      m_ctype(nullptr) {
    m_numpunct = &lu_use_facet<lu_numpunct>(*m_locale);
    m_ctime = &lu_use_facet<lu_ctime>(*m_locale);
    m_ctype = &lu_use_facet<lu_ctype>(*m_locale);
    m_grouping = GroupingMap(m_numpunct->grouping());
    m_digits = m_numpunct->GetDigits(false);
}

luSettingsImp::~luSettingsImp() = default;

const unsigned short* luSettingsImp::GetFmtLibDefaultFormat(int format) const {
    if (format >= 0 && format <= 14) return m_ctime->GetFmtLibDefaultFormat(format);
    if (format >= 20 && format <= 23) return m_numpunct->GetFmtLibDefaultFormat(format - 20);
    if (format == 24) return kBooleanLayout;
    return nullptr;
}

unsigned short luSettingsImp::DecimalPoint() const {
    return m_values->IsDecimalPoint() ? m_values->decimal_point() : m_numpunct->decimal_point();
}

unsigned short luSettingsImp::ThousandsSep() const {
    return m_values->IsThousandsSep() ? m_values->thousands_sep() : m_numpunct->thousands_sep();
}

const unsigned short* luSettingsImp::TrueString() const {
    return m_values->IsTrue() ? m_values->true_string() : m_numpunct->true_string();
}

const unsigned short* luSettingsImp::FalseString() const {
    return m_values->IsFalse() ? m_values->false_string() : m_numpunct->false_string();
}

unsigned short luSettingsImp::NegativeSign() const {
    return m_numpunct->negative_sign();
}

unsigned short luSettingsImp::PositiveSign() const {
    return m_numpunct->positive_sign();
}

unsigned short luSettingsImp::ExponentSign() const {
    return m_numpunct->exponent_sign();
}

const unsigned short* luSettingsImp::AmPmName(int index) const {
    const unsigned short* name = m_ctime->GetAmPm(index);
    if (name == nullptr || *name == 0) return index == 0 ? kAm : kPm;
    return name;
}

long CreateSettings(const lu_locale& locale, ilu_ptr<luPreferences>& prefs,
                    ilu_ptr<luSettings>& out) {
    try {
        if (!prefs) return LU_E_FAIL;
        out = new luSettingsImp(locale, prefs);
        return LU_S_SUCCESS;
    } catch (const std::bad_alloc&) {
        return LU_S_SUCCESS;
    } catch (...) {
        return LU_E_FAIL;
    }
}

}  // namespace FmtLib

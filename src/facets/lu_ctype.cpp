#include "kai18n/facets/lu_ctype.h"

lu_ctype_abc::~lu_ctype_abc() = default;

lu_locale::id lu_ctype::id;

lu_ctype::lu_ctype(unsigned int refs) : lu_ctype_abc(refs), m_impl(nullptr) {}

lu_ctype::lu_ctype(const lu_ctype_impl::StaticStorage* storage, unsigned int refs)
    : lu_ctype_abc(refs), m_impl(storage) {}

lu_ctype::~lu_ctype() = default;

unsigned short* lu_ctype::do_toupper(unsigned short* first, const unsigned short* last) const {
    for (; first != last; ++first) *first = m_impl.ToUpper(*first);
    return first;
}

unsigned short lu_ctype::do_toupper(unsigned short c) const { return m_impl.ToUpper(c); }

unsigned short* lu_ctype::do_tolower(unsigned short* first, const unsigned short* last) const {
    for (; first != last; ++first) *first = m_impl.ToLower(*first);
    return first;
}

unsigned short lu_ctype::do_tolower(unsigned short c) const { return m_impl.ToLower(c); }

const unsigned char* lu_ctype::do_widen(const unsigned char* first, const unsigned char* last,
                                        unsigned short* target) const {
    for (; first != last; ++first, ++target) *target = *first;
    return last;
}

unsigned short lu_ctype::do_widen(unsigned char c) const { return c; }

const unsigned short* lu_ctype::do_narrow(const unsigned short* first, const unsigned short* last,
                                          unsigned char fallback, unsigned char* target) const {
    for (; first != last; ++first, ++target) *target = do_narrow(*first, fallback);
    return last;
}

// 0xFF itself narrows to the fallback: the rule keeps units below 0xFF only.
unsigned char lu_ctype::do_narrow(unsigned short c, unsigned char fallback) const {
    return c < 0xFF ? static_cast<unsigned char>(c) : fallback;
}

const unsigned short* lu_ctype::do_is(const unsigned short* first, const unsigned short* last,
                                      mask* masks) const {
    for (; first != last; ++first, ++masks) *masks = m_impl.GetPropertyMask(*first);
    return last;
}

bool lu_ctype::do_is(mask m, unsigned short c) const {
    return (m_impl.GetPropertyMask(c) & m) == m;
}

const unsigned short* lu_ctype::do_scan_is(mask m, const unsigned short* first,
                                           const unsigned short* last) const {
    while (first != last && (m_impl.GetPropertyMask(*first) & m) == 0) ++first;
    return first;
}

const unsigned short* lu_ctype::do_scan_not(mask m, const unsigned short* first,
                                            const unsigned short* last) const {
    while (first != last && (m_impl.GetPropertyMask(*first) & m) != 0) ++first;
    return first;
}

lu_ctype_byname::lu_ctype_byname(const char*, unsigned int refs) : lu_ctype(refs) {
    LUException::Raise(LU_E_FACET_BY_NAME);
}

lu_ctype_byname::~lu_ctype_byname() = default;

namespace {

template <class MapUnit>
void MapThroughFacet(ucs2string& target, const ucs2string& source, const lu_locale& locale,
                     MapUnit map) {
    const lu_ctype& ctype = lu_use_facet<lu_ctype>(locale);
    const unsigned int length = source.length();
    target.resize(length, 0);
    // Index by index, each unit read before it is written: target may be source.
    for (unsigned int i = 0; i < length; ++i) target.at(i) = map(ctype, source.at(i));
}

}  // namespace

void lu_toupper(ucs2string& target, const ucs2string& source, const lu_locale& locale) {
    MapThroughFacet(target, source, locale,
                    [](const lu_ctype& ctype, unsigned short c) { return ctype.toupper(c); });
}

void lu_tolower(ucs2string& target, const ucs2string& source, const lu_locale& locale) {
    MapThroughFacet(target, source, locale,
                    [](const lu_ctype& ctype, unsigned short c) { return ctype.tolower(c); });
}

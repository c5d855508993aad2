#include "kai18n/facets/lu_collate.h"

#include <cstdint>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/ka_collation.h"
#include "kai18n/platform/kalib.h"

namespace {

// The classic order: unsigned values over the common length, then length.
template <class Unit>
int CompareUnits(const Unit* first1, const Unit* last1, const Unit* first2, const Unit* last2) {
    for (; first1 != last1 && first2 != last2; ++first1, ++first2) {
        if (*first1 != *first2) return *first1 < *first2 ? -1 : 1;
    }
    if (first1 != last1) return 1;
    return first2 != last2 ? -1 : 0;
}

}  // namespace

lu_collate_abc::~lu_collate_abc() = default;

lu_locale::id lu_collate::id;

lu_collate::lu_collate(unsigned int refs) : lu_collate_abc(refs), m_collation(nullptr) {}

lu_collate::lu_collate(const std::string& name)
    : lu_collate_abc(0), m_collation(new kaCollation(name.c_str())) {}

lu_collate::lu_collate(const char*, unsigned int refs)
    : lu_collate_abc(refs), m_collation(nullptr) {
    LUException::Raise(LU_E_FACET_BY_NAME);
}

lu_collate::~lu_collate() {
    delete m_collation;
}

int lu_collate::do_compare(const unsigned char* first1, const unsigned char* last1,
                           const unsigned char* first2, const unsigned char* last2) const {
    if (m_collation != nullptr) return m_collation->CompareStrings(first1, last1, first2, last2);
    return CompareUnits(first1, last1, first2, last2);
}

int lu_collate::do_compare(const unsigned short* first1, const unsigned short* last1,
                           const unsigned short* first2, const unsigned short* last2) const {
    if (m_collation != nullptr) return m_collation->CompareStrings(first1, last1, first2, last2);
    return CompareUnits(first1, last1, first2, last2);
}

std::string lu_collate::do_transform(const unsigned short* first,
                                     const unsigned short* last) const {
    std::string key;
    if (m_collation != nullptr) {
        m_collation->BuildSortKey(key, first, last);
        return key;
    }
    // Two bytes a unit, high byte first: the first differing unit differs in
    // the first differing byte pair, and a prefix gives a prefix key.
    key.reserve(static_cast<std::size_t>(last - first) * 2);
    for (; first != last; ++first) {
        key.push_back(static_cast<char>(*first >> 8));
        key.push_back(static_cast<char>(*first & 0xFF));
    }
    return key;
}

long lu_collate::do_hash(const unsigned short* first, const unsigned short* last) const {
    std::uint32_t state = 0xDEADBEEFu;
    for (; first != last; ++first) state = ((state << 7) | (state >> 31)) ^ *first;
    return static_cast<long>(state);
}

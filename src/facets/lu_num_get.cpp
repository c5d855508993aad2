#include "kai18n/facets/lu_num_get.h"

#include <cstdint>

#include "facets/float_scanner.h"
#include "facets/integer_scanner.h"
#include "kai18n/frame/result_codes.h"

namespace {

// The bounds of the narrowing, with `long` and `unsigned long` of 32 bits.
const std::uint32_t kMaxUnsignedShort = 65535u;
const std::uint32_t kMaxUnsigned32 = 4294967295u;
const std::uint32_t kMaxShort = 32767u;
const std::uint32_t kMaxInt32 = 2147483647u;

// An unsigned type whose largest value is `max`. A negative number, even -0
// and even a failed "-x", stores 0 and is out of range.
template <class T>
void StoreUnsigned(const lu_integer_scan& scan, std::uint32_t max, T& value) {
    if (scan.overflow) {
        value = scan.negative ? 0 : static_cast<T>(max);
        LUException::Raise(LU_E_SCAN_OVERFLOW);
    }
    if (scan.negative) {
        value = 0;
        LUException::Raise(LU_E_SCAN_OVERFLOW);
    }
    if (scan.magnitude > max) {
        value = static_cast<T>(max);
        LUException::Raise(LU_E_SCAN_OVERFLOW);
    }
    value = static_cast<T>(scan.magnitude);
}

// A signed type from -(max + 1) to max.
template <class T>
void StoreSigned(const lu_integer_scan& scan, std::uint32_t max, T& value) {
    const long long lowest = -static_cast<long long>(max) - 1;
    if (scan.overflow) {
        value = static_cast<T>(scan.negative ? lowest : static_cast<long long>(max));
        LUException::Raise(LU_E_SCAN_OVERFLOW);
    }
    if (scan.negative) {
        if (scan.magnitude > static_cast<std::uint64_t>(max) + 1) {
            value = static_cast<T>(lowest);
            LUException::Raise(LU_E_SCAN_OVERFLOW);
        }
        value = static_cast<T>(-static_cast<long long>(scan.magnitude));
        return;
    }
    if (scan.magnitude > max) {
        value = static_cast<T>(max);
        LUException::Raise(LU_E_SCAN_OVERFLOW);
    }
    value = static_cast<T>(scan.magnitude);
}

}  // namespace

lu_locale::id lu_num_get::id;

lu_num_get::lu_num_get(unsigned int refs)
    : lu_locale::facet(refs), m_numpunct(new lu_numpunct(0)), m_ctype() {}

lu_num_get::lu_num_get(const lu_numpunct* numpunct, const lu_ctype* ctype, unsigned int refs)
    : lu_locale::facet(refs), m_numpunct(numpunct), m_ctype(ctype) {}

lu_num_get::~lu_num_get() = default;

// Without a lu_ctype of its own, the facet reads floating numbers by the
// built-in character tables: one facet over them, made at first need and kept
// for the life of the process (its count never falls to zero).
const lu_ctype& lu_num_get::float_ctype() const {
    if (m_ctype) return *m_ctype;
    static const lu_ctype* const builtin = new lu_ctype(1);
    return *builtin;
}

lu_num_get::const_iterator lu_num_get::do_get(const_iterator first, const_iterator last,
                                              double& value) const {
    const_iterator end = first;
    value = lu_scan_float(first, last, *m_numpunct, float_ctype(), end);
    return end;
}

lu_num_get::const_iterator lu_num_get::do_get(const_iterator first, const_iterator last,
                                              float& value) const {
    const_iterator end = first;
    value = static_cast<float>(lu_scan_float(first, last, *m_numpunct, float_ctype(), end));
    return end;
}

lu_num_get::const_iterator lu_num_get::do_get(const_iterator first, const_iterator last,
                                              unsigned short& value) const {
    const lu_integer_scan scan = lu_scan_integer(first, last, *m_numpunct);
    StoreUnsigned(scan, kMaxUnsignedShort, value);
    return scan.end;
}

lu_num_get::const_iterator lu_num_get::do_get(const_iterator first, const_iterator last,
                                              unsigned int& value) const {
    const lu_integer_scan scan = lu_scan_integer(first, last, *m_numpunct);
    StoreUnsigned(scan, kMaxUnsigned32, value);
    return scan.end;
}

lu_num_get::const_iterator lu_num_get::do_get(const_iterator first, const_iterator last,
                                              unsigned long& value) const {
    const lu_integer_scan scan = lu_scan_integer(first, last, *m_numpunct);
    StoreUnsigned(scan, kMaxUnsigned32, value);
    return scan.end;
}

lu_num_get::const_iterator lu_num_get::do_get(const_iterator first, const_iterator last,
                                              short& value) const {
    const lu_integer_scan scan = lu_scan_integer(first, last, *m_numpunct);
    StoreSigned(scan, kMaxShort, value);
    return scan.end;
}

lu_num_get::const_iterator lu_num_get::do_get(const_iterator first, const_iterator last,
                                              int& value) const {
    const lu_integer_scan scan = lu_scan_integer(first, last, *m_numpunct);
    StoreSigned(scan, kMaxInt32, value);
    return scan.end;
}

lu_num_get::const_iterator lu_num_get::do_get(const_iterator first, const_iterator last,
                                              long& value) const {
    const lu_integer_scan scan = lu_scan_integer(first, last, *m_numpunct);
    StoreSigned(scan, kMaxInt32, value);
    return scan.end;
}

lu_num_get::const_iterator lu_num_get::do_get(const_iterator first, const_iterator last,
                                              bool& value) const {
    const lu_integer_scan scan = lu_scan_integer(first, last, *m_numpunct);
    value = scan.magnitude != 0;
    return scan.end;
}

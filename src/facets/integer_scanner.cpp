#include "facets/integer_scanner.h"

#include "kai18n/facets/lu_ctype_impl.h"

namespace {

// A group size that ends the grouping rules: everything left of it is accepted.
const unsigned short kNoFurtherGrouping = 0xFFFF;
// The largest magnitude that one more digit may still enter: 429496729 × 10 + 5
// is 4294967295.
const std::uint32_t kLastSafeMagnitude = 429496729u;
const std::uint32_t kLastSafeDigit = 5;

bool IsAsciiDigit(unsigned short c) {
    return c >= u'0' && c <= u'9';
}

// White space of the classic locale: the built-in character tables.
const lu_ctype_impl& ClassicTables() {
    static const lu_ctype_impl tables(nullptr);
    return tables;
}

const_ucs2string_iterator SkipSpace(const_ucs2string_iterator p, const_ucs2string_iterator last) {
    const lu_ctype_impl& tables = ClassicTables();
    while (p != last && tables.IsSpace(*p)) ++p;
    return p;
}

// Looks left from `end` (exclusive) down to 0 for the nearest separator. Stores
// the place just behind it in `behind`, or 0 if there is none, and tells
// whether there was one.
bool SeparatorLeftOf(const unsigned short* units, long long end, unsigned short separator,
                     long long& behind) {
    for (long long j = end; j > 0; --j) {
        if (units[j - 1] == separator) {
            behind = j;
            return true;
        }
    }
    behind = 0;
    return false;
}

// The walk over the groups left of the separator at `separator_at`, the group
// right of it having had the first size: each takes the next size of the list,
// the last size repeating once the list ends. True when the walk accepts them.
bool GroupsLeftFit(const unsigned short* units, long long separator_at, unsigned short separator,
                   const unsigned short* grouping) {
    unsigned int index = 0;
    long long group_end = separator_at;
    for (;;) {
        if (grouping[index + 1] != 0) ++index;
        const unsigned int size = grouping[index];
        if (size == kNoFurtherGrouping) return true;
        long long group_start = 0;
        const bool separated = SeparatorLeftOf(units, group_end, separator, group_start);
        const long long length = group_end - group_start;
        // The leftmost group may be shorter than its size, never longer.
        if (!separated) return length <= static_cast<long long>(size);
        if (length != static_cast<long long>(size)) return false;
        group_end = group_start - 1;
    }
}

lu_integer_scan Failed(lu_integer_scan scan, const_ucs2string_iterator first) {
    // The negative flag stays: an unsigned overload reports "-x" as out of
    // range. The overflow flag goes with the magnitude, so that a failed scan
    // always narrows to 0.
    scan.magnitude = 0;
    scan.overflow = false;
    scan.end = first;
    return scan;
}

}  // namespace

unsigned int lu_grouping_limit(const unsigned short* units, unsigned int count,
                               unsigned short separator, const unsigned short* grouping) {
    const long long first_size = grouping[0];
    long long e = count;
    while (e > 0) {
        long long q = 0;
        const bool separated = SeparatorLeftOf(units, e, separator, q);
        const long long n = e - q;
        // A last group that is too long isn't rejected.
        if (n > first_size) return static_cast<unsigned int>(e);
        if (n < first_size) {
            if (!separated) return static_cast<unsigned int>(e);
            // A separator stands left of a last group shorter than the first
            // size ("1,23" with the size 3). The rules end the check here but
            // leave the limit open; ours is the place of that separator. The
            // digits left of it are read, without a check of their own groups,
            // and the separator and the short group are left unread: "1,23"
            // reads 1 and "1,234,56" reads 1234, each stopping at the last
            // comma. This keeps the digits left of a separator, as a failed
            // attempt of the walk below does.
            return static_cast<unsigned int>(q - 1);
        }
        if (!separated) return static_cast<unsigned int>(e);
        if (GroupsLeftFit(units, q - 1, separator, grouping)) return static_cast<unsigned int>(e);
        // Give up this attempt: try again from two units left of the group,
        // so that the unit before the separator goes too ("1234,567" with the
        // size 3 leaves "123").
        e = q - 2;
    }
    return 0;
}

lu_integer_scan lu_scan_integer(const_ucs2string_iterator first, const_ucs2string_iterator last,
                                const lu_numpunct& punct) {
    lu_integer_scan scan = {0, false, false, first};

    // Grouping: none without a size list, with a list that stops at once, or
    // without a separator; the separator then counts as 0.
    const unsigned short* grouping = punct.grouping();
    unsigned short separator = punct.thousands_sep();
    if (grouping[0] == 0 || grouping[0] == kNoFurtherGrouping) separator = 0;
    const bool grouped = separator != 0;

    const_ucs2string_iterator p = SkipSpace(first, last);
    if (p == last) return Failed(scan, first);

    // Sign. Blanks may follow a negative sign, not a positive one nor "(".
    const lu_numeric_punctuation::eNegativeMode mode = punct.mode();
    bool leading_plus = false;
    const unsigned short sign = *p;
    if (sign == punct.negative_sign()) {
        p = SkipSpace(p + 1, last);
        scan.negative = true;
    } else if (sign == punct.positive_sign()) {
        ++p;
        leading_plus = true;
    } else if (mode == lu_numeric_punctuation::eParentheses && sign == u'(') {
        ++p;
        scan.negative = true;
    }

    // The first unit of the digits is read even when it is `last`: behind a
    // sign at the string's very end this raises LU_E_OUT_OF_RANGE.
    const const_ucs2string_iterator f = p;
    const unsigned short at_f = *f;
    const_ucs2string_iterator limit = last;
    if (grouped) {
        if (at_f == separator) {
            limit = f;
        } else {
            const_ucs2string_iterator r = f;
            while (r != last && (IsAsciiDigit(*r) || *r == separator)) ++r;
            // Every unit of [f, r) has been read through the checked iterator.
            const unsigned short* units = f.string()->data() + f.index();
            limit =
                f + lu_grouping_limit(units, static_cast<unsigned int>(r - f), separator, grouping);
        }
    }

    // Digits, ASCII only; separators are passed over. Without grouping the
    // separator counts as 0, so a unit 0 is passed over as well.
    std::uint32_t magnitude = 0;
    while (p != last && p != limit) {
        const unsigned short c = *p;
        if (IsAsciiDigit(c)) {
            const std::uint32_t d = static_cast<std::uint32_t>(c - u'0');
            if (magnitude > kLastSafeMagnitude ||
                (magnitude == kLastSafeMagnitude && d > kLastSafeDigit)) {
                scan.overflow = true;  // the digit is passed over
            } else {
                magnitude = magnitude * 10 + d;
            }
        } else if (c != separator) {
            break;
        }
        ++p;
    }
    if (p == f) return Failed(scan, first);

    if (scan.negative) {
        // In mode 0 a negative number needs its ")", whichever way it began.
        if (mode == lu_numeric_punctuation::eParentheses) {
            if (p == last || *p != u')') return Failed(scan, first);
            ++p;
        }
    } else if (p != last && (mode == lu_numeric_punctuation::eSignAfter ||
                             mode == lu_numeric_punctuation::eBlankSignAfter)) {
        if (mode == lu_numeric_punctuation::eBlankSignAfter) p = SkipSpace(p, last);
        if (p != last) {
            const unsigned short c = *p;
            if (c == punct.negative_sign()) {
                ++p;
                scan.negative = true;
            } else if (c == punct.positive_sign() && !leading_plus) {
                ++p;
            }
        }
    }
    scan.magnitude = magnitude;
    scan.end = p;
    return scan;
}

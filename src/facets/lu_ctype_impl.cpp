#include "kai18n/facets/lu_ctype_impl.h"

#include "kai18n/facets/lu_ctype.h"

namespace {

bool IsBuiltIn(const lu_ctype_impl::StaticStorage& tables) {
    const lu_ctype_impl::StaticStorage& builtIn = lu_ctype_impl::kCtype_i18n;
    return tables.index == builtIn.index && tables.runs == builtIn.runs &&
           tables.properties == builtIn.properties && tables.numbers == builtIn.numbers &&
           tables.deltas == builtIn.deltas;
}

}  // namespace

// A record that points at the built-in tables, as the locale records do, gets
// their expansion too; any other record is read through its runs.
lu_ctype_impl::lu_ctype_impl(const StaticStorage* storage)
    : m_tables(storage != nullptr ? *storage : kCtype_i18n),
      m_blocks(IsBuiltIn(m_tables) ? kCtype_i18n_blocks : BlockTable{nullptr, nullptr}) {}

unsigned int lu_ctype_impl::GetPropertyMask(unsigned short c) const {
    const unsigned int word = FindProperty(c);
    const unsigned int cls = word & kClassMask;
    unsigned int result = 0;
    if ((word & 0x60000000) == 0x40000000) result |= lu_ctype_abc::print;
    if ((word & 0x60000000) == 0x20000000) result |= lu_ctype_abc::cntrl;
    if (cls == kUppercase) result |= lu_ctype_abc::upper;
    if (cls == kLowercase) result |= lu_ctype_abc::lower;
    if ((word & 0x7E000000) == 0x50000000) result |= lu_ctype_abc::alpha;
    if (cls == kDecimalDigit) result |= lu_ctype_abc::digit;
    if (IsXDigit(c)) result |= lu_ctype_abc::xdigit;
    if ((word & 0x70000000) == 0x50000000) result |= lu_ctype_abc::graph;
    if ((word & kWhiteSpaceBit) != 0) result |= lu_ctype_abc::space;
    return result;
}

bool lu_ctype_impl::IsLtr(unsigned short c) const {
    switch (getbidi(c)) {
        case kDirL:
        case kDirLRE:
        case kDirLRO:
        case kDirEN:
        case kDirES:
        case kDirET:
            return true;
        default:
            return false;
    }
}

bool lu_ctype_impl::IsRtl(unsigned short c) const {
    switch (getbidi(c)) {
        case kDirR:
        case kDirAL:
        case kDirRLE:
        case kDirRLO:
        case kDirAN:
            return true;
        default:
            return false;
    }
}

unsigned short lu_ctype_impl::totitle(unsigned short c) const {
    switch (c) {
        // The Latin digraphs DŽ, LJ, NJ, DZ: upper, title and lower form each
        // map to the title form.
        case 0x01C4:
        case 0x01C6:
            return 0x01C5;
        case 0x01C7:
        case 0x01C9:
            return 0x01C8;
        case 0x01CA:
        case 0x01CC:
            return 0x01CB;
        case 0x01F1:
        case 0x01F3:
            return 0x01F2;
        case 0x01C5:
        case 0x01C8:
        case 0x01CB:
        case 0x01F2:
        // The Greek symbol forms keep their shape in titles.
        case 0x03D0:
        case 0x03D1:
        case 0x03D5:
        case 0x03D6:
        case 0x03F0:
        case 0x03F1:
            return c;
        default:
            return ToUpper(c);
    }
}

int lu_ctype_impl::getclass(unsigned short c) const {
    const unsigned int word = FindProperty(c);
    if ((word & (kHasUpperBit | kHasLowerBit)) != 0) return 0;
    return m_tables.deltas[word & 0xFF];
}

int lu_ctype_impl::getnumber(unsigned short c, int& denominator) const {
    const lu_ctype_number& number = m_tables.numbers[(FindProperty(c) >> 8) & 0x3F];
    denominator = number.denominator;
    return number.numerator;
}

int lu_ctype_impl::getdigit(unsigned short c) const {
    return m_tables.numbers[(FindProperty(c) >> 8) & 0x3F].numerator;
}

#include "kai18n/facets/lu_numpunct.h"

#include <algorithm>

#include "facets/utf16_literal.h"

namespace {

constexpr auto kDefaultBlockText = lu_make_utf16(u"+-0123456789abcdef0123456789ABCDEFeE");
static_assert(sizeof(kDefaultBlockText.units) / sizeof(unsigned short) ==
                  lu_numeric_punctuation::kBlockSize + 1,
              "the block is 36 units and a terminator");

// The default number patterns, in canonical notation: plain, currency (a
// blank, then the currency sign U+00A4), percent, scientific.
constexpr auto kPlainNumber = lu_make_utf16(u"T[#]T[gs]T[#]T[#]T[0]T[ds]T[#]T[#]");
constexpr auto kCurrency = lu_make_utf16(u"T[#]T[gs]T[#]T[#]T[0]T[ds]T[0]T[0]L[ \u00A4]");
constexpr auto kPercent = lu_make_utf16(u"T[#]T[gs]T[#]T[#]T[0]L[%]");
constexpr auto kScientific =
    lu_make_utf16(u"T[0]T[ds]T[0]T[#]T[#]T[#]T[#]T[#]T[#]T[#]T[#]T[#]T[#]T[#]T[#]T[#]T[E-]T[0]");

constexpr auto kTrue = lu_make_utf16(u"true");
constexpr auto kFalse = lu_make_utf16(u"false");

const unsigned short kNoGrouping[] = {0};

}  // namespace

const unsigned short* const lu_numeric_punctuation::kDefaultFormats[kFormatCount] = {
    kPlainNumber.units, kCurrency.units, kPercent.units, kScientific.units};

const unsigned short* const lu_numeric_punctuation::kDefaultBlock = kDefaultBlockText.units;

lu_numeric_punctuation::lu_numeric_punctuation(unsigned int refs)
    : lu_numeric_punctuation(nullptr, refs) {}

// A null record gives the defaults field by field; a record's decimal point
// and separator stand as they are, a zero separator included.
lu_numeric_punctuation::lu_numeric_punctuation(const StaticStorage* const storage,
                                               unsigned int refs)
    : lu_locale::facet(refs),
      m_mode(storage != nullptr ? static_cast<eNegativeMode>(storage->mode) : eSignBefore),
      m_decimal_point(storage != nullptr ? storage->decimal_point : u'.'),
      m_thousands_sep(storage != nullptr ? storage->thousands_sep : 0),
      m_grouping(storage != nullptr && storage->grouping != nullptr ? storage->grouping
                                                                    : kNoGrouping),
      m_formats(storage != nullptr ? storage->formats : kDefaultFormats) {
    const unsigned short* block = storage != nullptr ? storage->block : kDefaultBlock;
    std::copy(block, block + kBlockSize, m_block);
}

lu_numeric_punctuation::~lu_numeric_punctuation() = default;

void lu_numeric_punctuation::init(unsigned short decimal_point, unsigned short thousands_sep,
                                  const ucs2string& grouping, const unsigned short* block) {
    m_decimal_point = decimal_point;
    m_thousands_sep = thousands_sep;
    m_grouping = grouping;
    std::copy(block, block + kBlockSize, m_block);
}

unsigned short lu_numeric_punctuation::do_decimal_point() const {
    return m_decimal_point;
}

unsigned short lu_numeric_punctuation::do_thousands_sep() const {
    return m_thousands_sep;
}

void lu_numeric_punctuation::do_grouping(ucs2string& target) const {
    target = m_grouping;
}

const unsigned short* lu_numeric_punctuation::do_grouping() const {
    return m_grouping.c_str();
}

lu_numeric_punctuation::eNegativeMode lu_numeric_punctuation::do_mode() const {
    return m_mode;
}

unsigned short lu_numeric_punctuation::do_negative_sign() const {
    return m_block[kNegativeSign];
}

unsigned short lu_numeric_punctuation::do_positive_sign() const {
    return m_block[kPositiveSign];
}

unsigned short lu_numeric_punctuation::do_exponent_sign() const {
    return m_block[kLowerExponent];
}

const unsigned short* lu_numeric_punctuation::do_true_string() const {
    return kTrue.units;
}

const unsigned short* lu_numeric_punctuation::do_false_string() const {
    return kFalse.units;
}

// ---- lu_numpunct

lu_locale::id lu_numpunct::id;

lu_numpunct::lu_numpunct(unsigned int refs) : lu_numpunct(nullptr, refs) {}

lu_numpunct::lu_numpunct(const StaticStorage* const storage, unsigned int refs)
    : lu_numeric_punctuation(storage, refs), m_truename(kTrue.units), m_falsename(kFalse.units) {}

lu_numpunct::~lu_numpunct() = default;

void lu_numpunct::init_boolnames(const ucs2string& true_name, const ucs2string& false_name) {
    m_truename = true_name;
    m_falsename = false_name;
}

void lu_numpunct::do_truename(ucs2string& target) const {
    target = m_truename;
}

const unsigned short* lu_numpunct::do_truename() const {
    return m_truename.c_str();
}

void lu_numpunct::do_falsename(ucs2string& target) const {
    target = m_falsename;
}

const unsigned short* lu_numpunct::do_falsename() const {
    return m_falsename.c_str();
}

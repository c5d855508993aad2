// Reads every type through lu_num_get from random UTF-16 text, over a random range of it, under
// random punctuation (negative mode 0 to 4, separator, group sizes with 0xFFFF, decimal point,
// signs, exponent letter), with or without a character facet. A read may raise only
// LU_E_OUT_OF_RANGE (only when the range ends at the string's end) or, for an integer type but
// bool, LU_E_SCAN_OVERFLOW; its iterator lies within the range; the integer types agree.
#include "fuzz_support.h"
#include "kai18n/facets/lu_num_get.h"
#include "kai18n/frame/ilu_ptr.h"

namespace {

// One of `choices`, or any unit for the index past them.
unsigned short Pick(FuzzInput& in, std::initializer_list<unsigned short> choices) {
    const unsigned index = in.byte() % (choices.size() + 1);
    return index < choices.size() ? choices.begin()[index] : in.unit();
}

struct Result {
    long code;
    unsigned int end;
};

// Runs one read; checks the code it may raise and where its iterator lies.
template <class T>
Result ReadOne(const lu_num_get& reader, const ucs2string& text, unsigned int first,
               unsigned int last, T& value, bool may_overflow) {
    try {
        const const_ucs2string_iterator end =
            reader.get(text.begin() + first, text.begin() + last, value);
        Check(end.string() == &text && end.index() >= first && end.index() <= last);
        return Result{0, end.index()};
    } catch (const LUException& error) {
        const long code = error.GetResult();
        Check((code == LU_E_OUT_OF_RANGE && last == text.length()) ||
              (code == LU_E_SCAN_OVERFLOW && may_overflow));
        return Result{code, 0};
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput in(data, size);
    const int mode = static_cast<int>(in.byte() % 5);
    const unsigned short point = Pick(in, {u'.', u',', 0x066B});
    const unsigned short separator = Pick(in, {0, u',', u'.', u' ', 0x00A0, u'\''});
    Units grouping;
    for (unsigned count = in.byte() % 4; count > 0; --count) {
        const unsigned short size = Pick(in, {1, 2, 3, 4, 0xFFFF});
        if (size != 0) grouping.push_back(size);
    }
    grouping.push_back(0);
    unsigned short block[lu_numeric_punctuation::kBlockSize];
    std::copy_n(lu_numeric_punctuation::kDefaultBlock, lu_numeric_punctuation::kBlockSize, block);
    block[lu_numeric_punctuation::kNegativeSign] = Pick(in, {u'-', 0x2212, u'('});
    block[lu_numeric_punctuation::kPositiveSign] = Pick(in, {u'+', u'-'});
    block[lu_numeric_punctuation::kLowerExponent] = Pick(in, {u'e', u'E', 0x0665});
    const lu_numeric_punctuation::StaticStorage storage = {
        mode, point, separator, grouping.data(), block, lu_numeric_punctuation::kDefaultFormats};
    const ilu_const_ptr<lu_numpunct> punct(new lu_numpunct(&storage, 0));
    const ilu_const_ptr<lu_ctype> ctype(in.byte() % 2 == 0 ? new lu_ctype(0) : nullptr);
    const ilu_const_ptr<lu_num_get> reader(new lu_num_get(punct.get(), ctype.get(), 0));
    // Text, mostly of the units numbers are made of, and range.
    const unsigned first_pick = in.byte(), last_pick = in.byte();
    std::vector<Units> common = Split(u"0|1|5|9|-|+|,|.| |(|)|e|E|\u0660|\u0969");
    common.push_back({0});
    Units units = in.text(common, true);
    units.resize(std::min<std::size_t>(units.size(), 256));
    const ucs2string text = Ucs2(units);
    const unsigned int length = text.length();
    const unsigned int first = first_pick % (length + 1);
    const unsigned int last = last_pick < 0x80 ? length : first + last_pick % (length - first + 1);
    const auto read = [&](auto& value, bool mayOverflow) {
        return ReadOne(*reader, text, first, last, value, mayOverflow);
    };
    double d = 0;
    float f = 0;
    Check(read(d, false).code == 0 && read(f, false).code == 0 && !std::isnan(d) && !std::isnan(f));
    unsigned short us = 0;
    unsigned int ui = 0;
    unsigned long ul = 0;
    short s = 0;
    int i = 0;
    long l = 0;
    bool b = false;
    const Result rus = read(us, true), rui = read(ui, true), rul = read(ul, true);
    const Result rs = read(s, true), ri = read(i, true), rl = read(l, true), rb = read(b, false);
    // One scanner under all of them: long reads as int, unsigned long as unsigned int, and the end
    // is the same wherever no code came out.
    Check(rl.code == ri.code && l == i && (ri.code != 0 || rl.end == ri.end));
    Check(rul.code == rui.code && ul == ui && (rui.code != 0 || rul.end == rui.end));
    Check(l >= -2147483647L - 1 && l <= 2147483647L && ul <= 4294967295UL);
    if (rb.code == LU_E_OUT_OF_RANGE) {
        for (const Result* other : {&rus, &rui, &rs, &ri}) Check(other->code == LU_E_OUT_OF_RANGE);
        return 0;
    }
    for (const Result* other : {&rus, &rui, &rul, &rs, &ri, &rl})
        Check(other->code != LU_E_OUT_OF_RANGE && (other->code != 0 || other->end == rb.end));
    // Nothing read: the integer types store 0 and end at `first`.
    if (rb.end == first && ri.code == 0) Check(i == 0 && !b);
    // A value that every type holds reads the same in each.
    if (rs.code == 0 && s > 0) Check(rus.code == 0 && us == static_cast<unsigned short>(s));
    if (ri.code == 0 && i > 0) Check(rui.code == 0 && ui == static_cast<unsigned int>(i));
    if (ri.code == 0) Check(b == (i != 0));
    return 0;
}

#!/usr/bin/env python3
"""Writes the built-in character-class tables from the Unicode 3.0 data.

Usage:
    python3 tools/gen_ctype_tables.py --ucd ../shared/data/ucd-3.0 > src/facets/ctype_i18n_tables.cpp

Reads UnicodeData-3.0.0.txt (class, combining class, direction, numeric value,
mirrored flag, case mappings) and PropList-3.0.1.txt (the "White space" list)
and prints a C++ source with the five tables of lu_ctype_impl::kCtype_i18n:

    index       512 entries, one per block of 128 units: the offset of the
                block's first run entry
    runs        run entries: property index << 7 | run length; a block with
                one property has one entry of length 0
    properties  the distinct property words, word 0 first
    numbers     (numerator, denominator) pairs, (0, 0) first
    deltas      case deltas and canonical combining classes, 0 first

    block_of    512 entries: the number of the block of words below that holds
                each 128-unit block
    block_words the distinct blocks of 128 property words, laid end to end

The last two are the same data expanded for speed: a look-up in them is two
loads, where the runs need a walk through a mixed block.

Words, pairs and deltas are numbered in the order in which a walk over the
code points from U+0000 upward first meets them; blocks with the same run
entries share one copy.

Which entries count as distinct.  A property word is a 32-bit value, but the
table keeps one entry per *kind of character*, not per value: besides the
ordinary characters, each range that the data file gives as a First/Last pair
(CJK Ideograph Extension A, CJK Ideograph, Hangul Syllable, the three surrogate
ranges and Private Use) and the CJK compatibility ideographs, whose names the
file derives from their code points ("CJK COMPATIBILITY IDEOGRAPH-F900"), get
their own entries even where the word equals that of other characters.  These
are exactly the characters whose names the data generates rather than lists.
Merging equal words gives 348 words and 2,574 runs; keeping the ranges apart
adds five words and five uniform-block runs (Extension A, CJK and Hangul
split off from the other Lo/L letters, the surrogates into three), and keeping
the compatibility ideographs apart adds one of each, which gives the 354 words
and 2,580 runs of the library's tables.  The data cannot prove that this is
the distinction the tables were first built with; it is the one grounded in
the file's own structure that reproduces both counts, and no lookup depends
on it: equal words answer every question equally.
"""

import argparse
import os
import sys

GENERAL_CLASS = {
    'Cc': 0x20000000, 'Cf': 0x20400000, 'Zl': 0x20800000, 'Zp': 0x20C00000,
    'Zs': 0x40000000, 'Lo': 0x50000000, 'Lu': 0x50400000, 'Ll': 0x50800000,
    'Lt': 0x50C00000, 'Lm': 0x51000000, 'Nd': 0x52000000, 'Nl': 0x52400000,
    'No': 0x52800000, 'Po': 0x54000000, 'Ps': 0x54400000, 'Pi': 0x54400000,
    'Pe': 0x54800000, 'Pf': 0x54800000, 'Pc': 0x54C00000, 'Pd': 0x55000000,
    'So': 0x58000000, 'Sm': 0x58400000, 'Sc': 0x58800000, 'Sk': 0x58C00000,
    'Mn': 0x5C000000, 'Mc': 0x5C400000, 'Me': 0x5C800000, 'Co': 0x60000000,
    'Cs': 0x60400000,
}

DIRECTION = {
    'L': 0x10000, 'LRE': 0x20000, 'LRO': 0x30000, 'R': 0x40000, 'AL': 0x50000,
    'RLE': 0x60000, 'RLO': 0x70000, 'PDF': 0x80000, 'EN': 0x90000,
    'ES': 0xA0000, 'ET': 0xB0000, 'AN': 0xC0000, 'CS': 0xD0000,
    'NSM': 0xE0000, 'BN': 0xF0000, 'B': 0x80010000, 'S': 0x80020000,
    'WS': 0x80030000, 'ON': 0x80040000,
}

WHITE_SPACE_BIT = 1 << 21
MIRRORED_BIT = 1 << 20
HAS_LOWER_BIT = 1 << 15
HAS_UPPER_BIT = 1 << 14
BLOCK = 128
COMPATIBILITY_IDEOGRAPH = 'CJK COMPATIBILITY IDEOGRAPH-'


def read_unicode_data(path):
    """Code point -> (fields, kind); kind names the generated-name group."""
    chars = {}
    first = None
    with open(path, encoding='ascii') as lines:
        for line in lines:
            fields = line.rstrip('\n').split(';')
            code = int(fields[0], 16)
            name = fields[1]
            if name.endswith(', First>'):
                first = code
            elif name.endswith(', Last>'):
                kind = name[1:-len(', Last>')]
                for c in range(first, code + 1):
                    chars[c] = (fields, kind)
                first = None
            elif name.startswith(COMPATIBILITY_IDEOGRAPH):
                chars[code] = (fields, COMPATIBILITY_IDEOGRAPH)
            else:
                chars[code] = (fields, None)
    return chars


def read_white_space(path):
    section = None
    result = set()
    with open(path, encoding='ascii') as lines:
        for line in lines:
            if line.startswith('Property dump for:'):
                section = line[line.index('(') + 1:line.rindex(')')]
                continue
            if section != 'White space' or line[:1] not in '0123456789ABCDEF':
                continue
            span = line.split()[0]
            low, _, high = span.partition('..')
            result.update(range(int(low, 16), int(high or low, 16) + 1))
    return result


def numeric_value(text):
    if not text:
        return (0, 0)
    numerator, _, denominator = text.partition('/')
    return (int(numerator), int(denominator or '1'))


def number_of(table, value):
    """Index of `value` in `table`, appending it when new."""
    if value not in table:
        table.append(value)
    return table.index(value)


def build(chars, white_space):
    numbers = [(0, 0)]
    deltas = [0]
    words = [0]
    word_index = {(0, None): 0}
    per_unit = []
    for c in range(0x10000):
        if c not in chars:
            per_unit.append(0)
            continue
        fields, kind = chars[c]
        word = GENERAL_CLASS[fields[2]] | DIRECTION[fields[4]]
        if c in white_space:
            word |= WHITE_SPACE_BIT
        if fields[9] == 'Y':
            word |= MIRRORED_BIT
        word |= number_of(numbers, numeric_value(fields[8])) << 8
        low_byte = int(fields[3])  # combining class unless a case delta replaces it
        upper, lower = fields[12], fields[13]
        if upper:
            word |= HAS_UPPER_BIT
            low_byte = c - int(upper, 16)
        if lower:
            word |= HAS_LOWER_BIT
            lower_delta = int(lower, 16) - c
            if upper and lower_delta != low_byte:
                sys.exit('U+%04X: upper and lower deltas differ' % c)
            low_byte = lower_delta
        word |= number_of(deltas, low_byte)
        key = (word, kind)
        if key not in word_index:
            word_index[key] = len(words)
            words.append(word)
        per_unit.append(word_index[key])

    index, runs, shared = [], [], {}
    for start in range(0, 0x10000, BLOCK):
        block = per_unit[start:start + BLOCK]
        if block.count(block[0]) == BLOCK:
            entries = (block[0] << 7,)
        else:
            entries, i = [], 0
            while i < BLOCK:
                j = i
                while j < BLOCK and block[j] == block[i]:
                    j += 1
                entries.append(block[i] << 7 | (j - i))
                i = j
            entries = tuple(entries)
        if entries not in shared:
            shared[entries] = len(runs)
            runs.extend(entries)
        index.append(shared[entries])

    block_of, block_words, distinct = [], [], {}
    for start in range(0, 0x10000, BLOCK):
        block = tuple(words[i] for i in per_unit[start:start + BLOCK])
        if block not in distinct:
            distinct[block] = len(distinct)
            block_words.extend(block)
        block_of.append(distinct[block])

    if len(numbers) > 64 or len(deltas) > 256 or len(words) > 512 or len(runs) > 0xFFFF:
        sys.exit('a table outgrew its bit field')
    if len(distinct) > 256:
        sys.exit('too many distinct blocks for one byte')
    return index, runs, words, numbers, deltas, block_of, block_words


def rows(values, per_line, width):
    line = []
    for value in values:
        line.append(value)
        if len(line) == per_line:
            yield ', '.join(x.rjust(width) for x in line)
            line = []
    if line:
        yield ', '.join(x.rjust(width) for x in line)


def emit(out, index, runs, words, numbers, deltas, block_of, block_words):
    out.write('''// Generated by tools/gen_ctype_tables.py from the Unicode Character Database 3.0
// (UnicodeData-3.0.0.txt, PropList-3.0.1.txt). Do not edit; regenerate with
//   python3 tools/gen_ctype_tables.py --ucd ../shared/data/ucd-3.0 > src/facets/ctype_i18n_tables.cpp
// clang-format off
#include "facets/ctype_i18n_tables.h"

namespace {

''')

    def table(decl, values, per_line, width):
        out.write('%s = {\n' % decl)
        for row in rows(values, per_line, width):
            out.write('    %s,\n' % row)
        out.write('};\n\n')

    table('const unsigned short kIndex[%d]' % len(index), ['%d' % v for v in index], 12, 5)
    table('const unsigned short kRuns[%d]' % len(runs), ['0x%04X' % v for v in runs], 10, 6)
    table('const unsigned int kProperties[%d]' % len(words), ['0x%08X' % v for v in words], 6, 10)
    table('const lu_ctype_number kNumbers[%d]' % len(numbers),
          ['{%d, %d}' % v for v in numbers], 6, 10)
    table('const short kDeltas[%d]' % len(deltas), ['%d' % v for v in deltas], 12, 5)
    table('const unsigned char kBlockOf[%d]' % len(block_of), ['%d' % v for v in block_of], 16, 3)
    table('const unsigned int kBlockWords[%d]' % len(block_words),
          ['0x%08X' % v for v in block_words], 8, 10)
    out.write('''}  // namespace

const lu_ctype_impl::StaticStorage lu_ctype_impl::kCtype_i18n = {
    kIndex, kRuns, kProperties, kNumbers, kDeltas,
};

const lu_ctype_impl::BlockTable lu_ctype_impl::kCtype_i18n_blocks = {kBlockOf, kBlockWords};

const unsigned int kCtypeI18nIndexSize = %d;
const unsigned int kCtypeI18nRunCount = %d;
const unsigned int kCtypeI18nPropertyCount = %d;
const unsigned int kCtypeI18nNumberCount = %d;
const unsigned int kCtypeI18nDeltaCount = %d;
const unsigned int kCtypeI18nBlockCount = %d;
''' % (len(index), len(runs), len(words), len(numbers), len(deltas), len(block_words) // BLOCK))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--ucd', required=True, help='folder with the Unicode 3.0 files')
    args = parser.parse_args()
    chars = read_unicode_data(os.path.join(args.ucd, 'UnicodeData-3.0.0.txt'))
    white_space = read_white_space(os.path.join(args.ucd, 'PropList-3.0.1.txt'))
    emit(sys.stdout, *build(chars, white_space))


if __name__ == '__main__':
    main()

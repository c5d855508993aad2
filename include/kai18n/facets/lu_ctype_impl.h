// Character classes and case of 16-bit code units from a three-stage table.
//
// Every unit has one 32-bit property word; every question about a unit is a
// bit test on that word. The word is found through an index of 128-unit
// blocks, a list of runs for each block and a table of words (one entry per
// kind of character; two kinds may share a value):
//
//   index[c >> 7] -> first run entry of c's block
//   run entry     -> high 9 bits: property index, low 7 bits: run length
//                    (length 0: the whole block has that property)
//   properties    -> the words
//
// The bits of a word:
//   31      neutral direction         21      white space
//   30..22  general class             20      mirrored in right-to-left text
//   19..16  direction class           15, 14  has a lower-, an upper-case mapping
//   13..8   index into numbers        7..0    index into deltas: a case delta
//                                             if bit 14 or 15 is set, else the
//                                             canonical combining class
#ifndef KAI18N_FACETS_LU_CTYPE_IMPL_H
#define KAI18N_FACETS_LU_CTYPE_IMPL_H

#include <cstdint>

/// A numeric value as numerator and denominator: 3/4, or 7 as 7/1. The pair
/// (0, 0) stands for "no numeric value".
struct lu_ctype_number {
    int numerator;
    int denominator;
};

class lu_ctype_impl {
  public:
    /// The tables of one provider, read-only and never freed by their users.
    struct StaticStorage {
        const unsigned short* index;     // 512 entries, one per 128-unit block
        const unsigned short* runs;      // run entries, from an index value onward
        const unsigned int* properties;  // property words, by a run entry >> 7
        const lu_ctype_number* numbers;  // by bits 13..8 of a word
        const short* deltas;             // by the low byte of a word
    };

    /// The built-in tables: the Unicode Character Database 3.0.
    static const StaticStorage kCtype_i18n;

    /// Property words by unit, in blocks of 128 with equal blocks shared:
    /// `words[block_of[c >> 7] * 128 + (c & 127)]`.
    struct BlockTable {
        const unsigned char* block_of;
        const unsigned int* words;
    };
    /// The built-in tables expanded so: a facet on the built-in record looks a
    /// word up with two loads instead of a walk through a block's runs.
    static const BlockTable kCtype_i18n_blocks;

    // General classes: the values of `word & kClassMask`.
    static const unsigned int kClassMask = 0x7FC00000;
    static const unsigned int kControl = 0x20000000;         // Cc
    static const unsigned int kFormat = 0x20400000;          // Cf
    static const unsigned int kLineSeparator = 0x20800000;   // Zl
    static const unsigned int kParaSeparator = 0x20C00000;   // Zp
    static const unsigned int kSpaceSeparator = 0x40000000;  // Zs
    static const unsigned int kOtherLetter = 0x50000000;     // Lo
    static const unsigned int kUppercase = 0x50400000;       // Lu
    static const unsigned int kLowercase = 0x50800000;       // Ll
    static const unsigned int kTitlecase = 0x50C00000;       // Lt
    static const unsigned int kModifierLetter = 0x51000000;  // Lm
    static const unsigned int kDecimalDigit = 0x52000000;    // Nd
    static const unsigned int kLetterNumber = 0x52400000;    // Nl
    static const unsigned int kOtherNumber = 0x52800000;     // No
    static const unsigned int kOtherPunct = 0x54000000;      // Po
    static const unsigned int kOpenPunct = 0x54400000;       // Ps, Pi
    static const unsigned int kClosePunct = 0x54800000;      // Pe, Pf
    static const unsigned int kConnectorPunct = 0x54C00000;  // Pc
    static const unsigned int kDashPunct = 0x55000000;       // Pd
    static const unsigned int kOtherSymbol = 0x58000000;     // So
    static const unsigned int kMathSymbol = 0x58400000;      // Sm
    static const unsigned int kCurrencySymbol = 0x58800000;  // Sc
    static const unsigned int kModifierSymbol = 0x58C00000;  // Sk
    static const unsigned int kNonSpacingMark = 0x5C000000;  // Mn
    static const unsigned int kSpacingMark = 0x5C400000;     // Mc
    static const unsigned int kEnclosingMark = 0x5C800000;   // Me
    static const unsigned int kPrivateUse = 0x60000000;      // Co
    static const unsigned int kSurrogate = 0x60400000;       // Cs

    // Direction classes: the values of `word & kDirectionMask`; bit 31 marks
    // the neutrals.
    static const unsigned int kDirectionMask = 0x800F0000;
    static const unsigned int kDirL = 0x10000;
    static const unsigned int kDirLRE = 0x20000;
    static const unsigned int kDirLRO = 0x30000;
    static const unsigned int kDirR = 0x40000;
    static const unsigned int kDirAL = 0x50000;
    static const unsigned int kDirRLE = 0x60000;
    static const unsigned int kDirRLO = 0x70000;
    static const unsigned int kDirPDF = 0x80000;
    static const unsigned int kDirEN = 0x90000;
    static const unsigned int kDirES = 0xA0000;
    static const unsigned int kDirET = 0xB0000;
    static const unsigned int kDirAN = 0xC0000;
    static const unsigned int kDirCS = 0xD0000;
    static const unsigned int kDirNSM = 0xE0000;
    static const unsigned int kDirBN = 0xF0000;
    static const unsigned int kDirB = 0x80010000;
    static const unsigned int kDirS = 0x80020000;
    static const unsigned int kDirWS = 0x80030000;
    static const unsigned int kDirON = 0x80040000;

    static const unsigned int kNeutralBit = 0x80000000;
    static const unsigned int kWhiteSpaceBit = 0x00200000;
    static const unsigned int kMirroredBit = 0x00100000;
    static const unsigned int kHasLowerBit = 0x00008000;
    static const unsigned int kHasUpperBit = 0x00004000;

    /// The built-in tables when `storage` is null, else the given ones.
    explicit lu_ctype_impl(const StaticStorage* storage = nullptr);

    const StaticStorage& storage() const { return m_tables; }

    /// The property word of `c`.
    unsigned int FindProperty(unsigned short c) const {
        if (m_blocks.words != nullptr) {
            return m_blocks
                .words[(static_cast<unsigned int>(m_blocks.block_of[c >> 7]) << 7) | (c & 0x7Fu)];
        }
        return FindPropertyInRuns(m_tables, c);
    }

    /// The property word of `c` read from `tables` by their runs, walking a
    /// mixed block from its start.
    static unsigned int FindPropertyInRuns(const StaticStorage& tables, unsigned short c) {
        const unsigned short* run = tables.runs + tables.index[c >> 7];
        unsigned int entry = *run;
        if ((entry & 0x7F) != 0) {
            unsigned int limit = (c & ~0x7Fu) + (entry & 0x7F);
            while (limit <= c) {
                entry = *++run;
                limit += entry & 0x7F;
            }
        }
        return tables.properties[entry >> 7];
    }

    /// The classification mask of lu_ctype_abc for `c`.
    unsigned int GetPropertyMask(unsigned short c) const;

    bool IsCntrl(unsigned short c) const { return (FindProperty(c) & 0x60000000) == 0x20000000; }
    bool IsIsoCntrl(unsigned short c) const { return ClassOf(c) == kControl; }
    bool IsFmtCntrl(unsigned short c) const { return ClassOf(c) == kFormat; }
    bool IsLsep(unsigned short c) const { return ClassOf(c) == kLineSeparator; }
    bool IsPsep(unsigned short c) const { return ClassOf(c) == kParaSeparator; }
    bool IsPrint(unsigned short c) const { return (FindProperty(c) & 0x60000000) == 0x40000000; }
    bool IsBlank(unsigned short c) const { return ClassOf(c) == kSpaceSeparator; }
    bool IsSpace(unsigned short c) const { return (FindProperty(c) & kWhiteSpaceBit) != 0; }
    bool IsGraph(unsigned short c) const { return (FindProperty(c) & 0x70000000) == 0x50000000; }
    bool IsAlnum(unsigned short c) const { return (FindProperty(c) & 0x7C000000) == 0x50000000; }
    bool IsAlpha(unsigned short c) const { return (FindProperty(c) & 0x7E000000) == 0x50000000; }
    bool IsUpper(unsigned short c) const { return ClassOf(c) == kUppercase; }
    bool IsLower(unsigned short c) const { return ClassOf(c) == kLowercase; }
    bool IsTitle(unsigned short c) const { return ClassOf(c) == kTitlecase; }
    bool IsModif(unsigned short c) const { return ClassOf(c) == kModifierLetter; }
    bool IsNumber(unsigned short c) const { return (FindProperty(c) & 0x7E000000) == 0x52000000; }
    bool IsDigit(unsigned short c) const { return ClassOf(c) == kDecimalDigit; }
    bool IsLetnum(unsigned short c) const { return ClassOf(c) == kLetterNumber; }
    bool IsPunct(unsigned short c) const { return (FindProperty(c) & 0x7C000000) == 0x54000000; }
    bool IsOpenPunct(unsigned short c) const { return ClassOf(c) == kOpenPunct; }
    bool IsClosePunct(unsigned short c) const { return ClassOf(c) == kClosePunct; }
    bool IsConnect(unsigned short c) const { return ClassOf(c) == kConnectorPunct; }
    bool IsDash(unsigned short c) const { return ClassOf(c) == kDashPunct; }
    bool IsSymbol(unsigned short c) const { return (FindProperty(c) & 0x7C000000) == 0x58000000; }
    bool IsMath(unsigned short c) const { return ClassOf(c) == kMathSymbol; }
    bool IsCurrency(unsigned short c) const { return ClassOf(c) == kCurrencySymbol; }
    bool IsModifSymbol(unsigned short c) const { return ClassOf(c) == kModifierSymbol; }
    bool IsMark(unsigned short c) const { return (FindProperty(c) & 0x7C000000) == 0x5C000000; }
    bool IsNsMark(unsigned short c) const { return ClassOf(c) == kNonSpacingMark; }
    bool IsSpMark(unsigned short c) const { return ClassOf(c) == kSpacingMark; }
    bool IsEnclosing(unsigned short c) const { return ClassOf(c) == kEnclosingMark; }
    bool IsPrivate(unsigned short c) const { return ClassOf(c) == kPrivateUse; }
    bool IsSurrogate(unsigned short c) const { return ClassOf(c) == kSurrogate; }
    bool IsMirroring(unsigned short c) const { return (FindProperty(c) & kMirroredBit) != 0; }

    // Direction.
    unsigned int getbidi(unsigned short c) const { return FindProperty(c) & kDirectionMask; }
    bool IsLtr(unsigned short c) const;
    bool IsRtl(unsigned short c) const;
    bool IsStrong(unsigned short c) const {
        const unsigned int d = getbidi(c);
        return (d & kNeutralBit) == 0 && d < kDirPDF;
    }
    /// True for PDF and every weak class, and for every neutral too.
    bool IsWeak(unsigned short c) const { return getbidi(c) >= kDirPDF; }
    bool IsNeutral(unsigned short c) const { return (FindProperty(c) & kNeutralBit) != 0; }
    bool IsSeparator(unsigned short c) const {
        const unsigned int d = getbidi(c);
        return d == kDirB || d == kDirS;
    }

    // Tests on the unit alone.
    static bool IsXDigit(unsigned short c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    }
    static bool IsHan(unsigned short c) {
        return (c >= 0x4E00 && c < 0xA000) || (c >= 0xF900 && c < 0xFB00);
    }
    static bool IsHangul(unsigned short c) { return c >= 0xAC00 && c < 0xD800; }
    static bool IsReplacement(unsigned short c) { return c == 0xFFFD; }
    static bool IsObjReplacement(unsigned short c) { return c == 0xFFFC; }
    static bool IsSwapped(unsigned short c) { return c == 0xFFFE; }
    static bool IsZigamorph(unsigned short c) { return c == 0xFFFF; }
    /// A unit below U+FFFF whose property word is 0.
    bool IsUndefined(unsigned short c) const { return c != 0xFFFF && FindProperty(c) == 0; }

    // Case, in 16 bits.
    unsigned short ToUpper(unsigned short c) const {
        const unsigned int word = FindProperty(c);
        if ((word & kHasUpperBit) == 0) return c;
        return static_cast<unsigned short>(c - m_tables.deltas[word & 0xFF]);
    }
    unsigned short ToLower(unsigned short c) const {
        const unsigned int word = FindProperty(c);
        if ((word & kHasLowerBit) == 0) return c;
        return static_cast<unsigned short>(c + m_tables.deltas[word & 0xFF]);
    }
    /// Title case: the Latin digraphs and the Greek symbol forms, else ToUpper.
    unsigned short totitle(unsigned short c) const;

    /// The canonical combining class; 0 for a unit with a case mapping.
    int getclass(unsigned short c) const;
    /// The numeric value of `c`: returns the numerator and stores the
    /// denominator; (0, 0) for a unit without one.
    int getnumber(unsigned short c, int& denominator) const;
    /// The numerator of the numeric value alone.
    int getdigit(unsigned short c) const;

  private:
    unsigned int ClassOf(unsigned short c) const { return FindProperty(c) & kClassMask; }

    StaticStorage m_tables;
    // kCtype_i18n_blocks when m_tables are the built-in tables, else nulls.
    BlockTable m_blocks;
};

#endif  // KAI18N_FACETS_LU_CTYPE_IMPL_H

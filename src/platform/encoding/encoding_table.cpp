#include "platform/encoding/encoding_table.h"

#include <algorithm>
#include <cstring>

// Each technical name against the exact ICU converter that implements it.
// Canonical converter names are used, not aliases, so that ICU's alias table
// cannot change the choice. Where ICU's own alias for the name leads to a
// different converter, the row says why:
//
// - CNS-11643: ICU's alias "cns11643" is ibm-964, which turns the
//   ideographs of planes 3 and 4 of CNS 11643 into substitutes;
//   euc-tw-2014 is the full EUC-TW that the display name names, and agrees
//   with glibc's EUC-TW on those planes.
// - CP874: ICU's alias "cp874" is IBM's ibm-874, which lacks the euro sign
//   and the quotation marks at 0x80 to 0x9F; code page 874 of Windows is
//   windows-874-2000, which is also what glibc's CP874 gives.
// - CP949: ICU's alias "cp949" is IBM's ibm-949, which lacks the Hangul
//   syllables that Unified Hangul Code adds to KS X 1001; Windows code page
//   949 is windows-949-2000, as glibc's CP949.
// - CP950: ICU's alias "cp950" is IBM's ibm-950, which lacks the euro sign
//   of Windows code page 950; that is windows-950-2000, the converter that
//   ICU also gives for "Big5", as glibc's CP950.
// - MacUkrainian: since Mac OS 9 the Cyrillic encoding holds the Ukrainian
//   letters; ICU lists "x-MacUkraine" as an alias of macos-7_3-10.2, and
//   glibc's MAC-UK gives the same bytes.
//
// ICU has no converter at all for MacCroatian, MacIcelandic, MacJapanese,
// MacRomanian and MacThai: none among its available converters, no alias.
// No converter of ICU stands in for them either. MacCroatian, MacIcelandic
// and MacRomanian put their national letters where MacRoman has symbols, so
// MacRoman would get wrong exactly the letters they exist for. MacJapanese
// keeps the JIS X 0208 rows of Shift_JIS but has single bytes of its own
// (the copyright and trade mark signs and the ellipsis at 0xFD to 0xFF among
// them) where every Shift_JIS converter of ICU has none or others. MacThai
// has its own punctuation rows beside the TIS-620 letters. A stand-in would
// turn text into wrong bytes without a failure; those rows carry no engine,
// Lookup gives null for them, and a facet asked for them reports an unknown
// encoding.
const CharEncoding CharEncodingTable::kEncodings[kCount] = {
    CharEncoding("Adobe-Standard-Encoding", "ibm-1276_P100-1995", 0),
    CharEncoding("Big5", "windows-950-2000", 1),
    CharEncoding("CNS-11643", "euc-tw-2014", 2),
    CharEncoding("CP1250", "ibm-5346_P100-1998", 3),
    CharEncoding("CP1251", "ibm-5347_P100-1998", 4),
    CharEncoding("CP1252", "ibm-5348_P100-1997", 5),
    CharEncoding("CP1253", "ibm-5349_P100-1998", 6),
    CharEncoding("CP1254", "ibm-5350_P100-1998", 7),
    CharEncoding("CP1255", "ibm-9447_P100-2002", 8),
    CharEncoding("CP1256", "ibm-9448_X100-2005", 9),
    CharEncoding("CP1257", "ibm-9449_P100-2002", 10),
    CharEncoding("CP1258", "ibm-5354_P100-1998", 11),
    CharEncoding("CP437", "ibm-437_P100-1995", 12),
    CharEncoding("CP850", "ibm-850_P100-1995", 13),
    CharEncoding("CP852", "ibm-852_P100-1995", 14),
    CharEncoding("CP855", "ibm-855_P100-1995", 15),
    CharEncoding("CP857", "ibm-857_P100-1995", 16),
    CharEncoding("CP860", "ibm-860_P100-1995", 17),
    CharEncoding("CP861", "ibm-861_P100-1995", 18),
    CharEncoding("CP862", "ibm-862_P100-1995", 19),
    CharEncoding("CP865", "ibm-865_P100-1995", 20),
    CharEncoding("CP866", "ibm-866_P100-1995", 21),
    CharEncoding("CP869", "ibm-869_P100-1995", 22),
    CharEncoding("CP874", "windows-874-2000", 23),
    CharEncoding("CP932", "ibm-943_P15A-2003", 24),
    CharEncoding("CP936", "windows-936-2000", 25),
    CharEncoding("CP949", "windows-949-2000", 26),
    CharEncoding("CP950", "windows-950-2000", 27),
    CharEncoding("EUC-JP", "euc-jp-2007", 28),
    CharEncoding("EUC-KR", "ibm-970_P110_P110-2006_U2", 29),
    CharEncoding("GB18030", "gb18030", 30),
    CharEncoding("GB2312", "ibm-1383_P110-1999", 31),
    CharEncoding("HZ-GB-2312", "HZ", 32),
    CharEncoding("ISO-2022-JP", "ISO_2022,locale=ja,version=0", 33),
    CharEncoding("ISO-2022-KR", "ISO_2022,locale=ko,version=0", 34),
    CharEncoding("ISO-8859-1", "ISO-8859-1", 35),
    CharEncoding("ISO-8859-14", "iso-8859_14-1998", 36),
    CharEncoding("ISO-8859-15", "ibm-923_P100-1998", 37),
    CharEncoding("ISO-8859-2", "ibm-912_P100-1995", 38),
    CharEncoding("ISO-8859-3", "ibm-913_P100-2000", 39),
    CharEncoding("ISO-8859-4", "ibm-914_P100-1995", 40),
    CharEncoding("ISO-8859-5", "ibm-915_P100-1995", 41),
    CharEncoding("ISO-8859-6", "ibm-1089_P100-1995", 42),
    CharEncoding("ISO-8859-7", "ibm-9005_X110-2007", 43),
    CharEncoding("ISO-8859-8", "ibm-5012_P100-1999", 44),
    CharEncoding("ISO-8859-9", "ibm-920_P100-1995", 45),
    CharEncoding("MacCentralEuropean", "macos-29-10.2", 46),
    CharEncoding("MacCroatian", nullptr, 47),
    CharEncoding("MacCyrillic", "macos-7_3-10.2", 48),
    CharEncoding("MacGreek", "macos-6_2-10.4", 49),
    CharEncoding("MacIcelandic", nullptr, 50),
    CharEncoding("MacJapanese", nullptr, 51),
    CharEncoding("MacRoman", "macos-0_2-10.2", 52),
    CharEncoding("MacRomanian", nullptr, 53),
    CharEncoding("MacThai", nullptr, 54),
    CharEncoding("MacTurkish", "macos-35-10.2", 55),
    CharEncoding("MacUkrainian", "macos-7_3-10.2", 56),
    CharEncoding("Shift-JIS", "ibm-943_P15A-2003", 57),
    CharEncoding("Thai", "iso-8859_11-2001", 58),
    CharEncoding("UTF-8", "UTF-8", 59),
};

const Char16Encoding CharEncodingTable::kUTF16("UTF-16");

const CharEncoding* CharEncodingTable::Find(const char* name) {
    if (name == nullptr) return nullptr;
    const CharEncoding* const end = kEncodings + kCount;
    const CharEncoding* const found = std::lower_bound(
        kEncodings, end, name,
        [](const CharEncoding& row, const char* key) { return std::strcmp(row.Name(), key) < 0; });
    return found != end && std::strcmp(found->Name(), name) == 0 ? found : nullptr;
}

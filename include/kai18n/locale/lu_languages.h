// The constant table of languages: ISO 639 two- and three-letter codes with
// the English name and, for some, the name in the language itself.
#ifndef KAI18N_LOCALE_LU_LANGUAGES_H
#define KAI18N_LOCALE_LU_LANGUAGES_H

/// The search behind `LookUpByTwoLetters` of both code tables: the lower bound
/// of the first two characters of `code` in [first, last), which must be sorted
/// by the first two characters of `GetIsoCode2()` compared as signed bytes.
/// Returns the row found if it agrees in both characters, else `last`. Reads
/// no more than two characters of `code`, and none after its terminator; a
/// null `code` gives `last`.
template <class Row>
const Row* lu_lookup_two_letters(const Row* first, const Row* last, const char* const code) {
    if (code == nullptr) return last;
    const signed char key0 = static_cast<signed char>(code[0]);
    const signed char key1 = key0 != 0 ? static_cast<signed char>(code[1]) : 0;
    const Row* low = first;
    unsigned long count = static_cast<unsigned long>(last - first);
    while (count > 0) {
        const unsigned long half = count / 2;
        const Row* middle = low + half;
        const char* row = middle->GetIsoCode2();
        const signed char row0 = static_cast<signed char>(row[0]);
        const signed char row1 = static_cast<signed char>(row[1]);
        if (row0 < key0 || (row0 == key0 && row1 < key1)) {
            low = middle + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    if (low == last) return last;
    const char* found = low->GetIsoCode2();
    const bool same =
        static_cast<signed char>(found[0]) == key0 && static_cast<signed char>(found[1]) == key1;
    return same ? low : last;
}

/// The search behind `LookUpByThreeLetters`: the first row from `first` whose
/// `GetIsoCode3()` agrees with `code` in three characters, else `last`. A
/// three-letter code that stands twice finds its earlier row. A null `code`
/// gives `last`.
template <class Row>
const Row* lu_lookup_three_letters(const Row* first, const Row* last, const char* const code) {
    if (code == nullptr) return last;
    for (const Row* row = first; row != last; ++row) {
        const char* candidate = row->GetIsoCode3();
        if (candidate[0] == code[0] && candidate[1] == code[1] && candidate[2] == code[2]) {
            return row;
        }
    }
    return last;
}

/// The 139 languages in the order of their two-letter codes, which are in
/// lower case. The old codes `in`, `iw`, `ji` and `jw` stand beside their
/// successors.
class lu_languages {
  public:
    /// One row. Every member is constant data of the library.
    struct language {
        const char* m_isoCode2;
        const char* m_isoCode3;
        const unsigned short* m_englishName;
        const unsigned short* m_displayName;  // in the language itself, or null

        const char* GetIsoCode2() const { return m_isoCode2; }
        const char* GetIsoCode3() const { return m_isoCode3; }
        const unsigned short* GetEnglishName() const { return m_englishName; }
        /// The name in the language itself, or null where the table has none.
        const unsigned short* GetDisplayName() const { return m_displayName; }
    };

    static const language* begin();
    static const language* end();
    /// The row of the first two characters of `code`, case counting ("en_US"
    /// finds "en"); `end()` when there is none.
    static const language* LookUpByTwoLetters(const char* const code);
    /// The first row with the three characters of `code` ("ind" finds "id",
    /// not "in"); `end()` when there is none.
    static const language* LookUpByThreeLetters(const char* const code);

  private:
    // In src/locale/language_table.cpp, constant-initialised.
    static const language s_rows[];
    static const unsigned int s_rowCount;
};

#endif  // KAI18N_LOCALE_LU_LANGUAGES_H

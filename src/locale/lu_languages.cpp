#include "kai18n/locale/lu_languages.h"

const lu_languages::language* lu_languages::begin() {
    return s_rows;
}

const lu_languages::language* lu_languages::end() {
    return s_rows + s_rowCount;
}

const lu_languages::language* lu_languages::LookUpByTwoLetters(const char* const code) {
    return lu_lookup_two_letters(begin(), end(), code);
}

const lu_languages::language* lu_languages::LookUpByThreeLetters(const char* const code) {
    return lu_lookup_three_letters(begin(), end(), code);
}

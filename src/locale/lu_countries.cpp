#include "kai18n/locale/lu_countries.h"

const lu_countries::country* lu_countries::begin() {
    return s_rows;
}

const lu_countries::country* lu_countries::end() {
    return s_rows + s_rowCount;
}

const lu_countries::country* lu_countries::LookUpByTwoLetters(const char* const code) {
    return lu_lookup_two_letters(begin(), end(), code);
}

const lu_countries::country* lu_countries::LookUpByThreeLetters(const char* const code) {
    return lu_lookup_three_letters(begin(), end(), code);
}

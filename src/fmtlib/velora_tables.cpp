// The Velora dialect's tables: number separators, date letters and date and
// time separators, with the keys that pick them by language code, or by
// language followed by country ("frCH").
#include "fmtlib/dialect_tables.h"

namespace FmtLib {

const luVeloraNumberTexts kVeloraNumberTexts[] = {
    {"en", u".", u","},
    {"fr", u",", u"\u00A0"},  // the no-break space
    {"de", u",", u"."},
    {"CH", u".", u"'"},
};
const std::size_t kVeloraNumberTextCount =
    sizeof(kVeloraNumberTexts) / sizeof(kVeloraNumberTexts[0]);

const luDialectKey kVeloraNumberKeys[] = {
    {"en", "en"},   {"zh", "en"},   {"iw", "en"},   {"he", "en"},   {"ja", "en"},   {"ko", "en"},
    {"esDO", "en"}, {"esGT", "en"}, {"esMX", "en"}, {"esPA", "en"}, {"esPE", "en"}, {"th", "en"},
    {"", "en"},     {"cs", "fr"},   {"et", "fr"},   {"fi", "fr"},   {"fr", "fr"},   {"hu", "fr"},
    {"lv", "fr"},   {"no", "fr"},   {"pl", "fr"},   {"ru", "fr"},   {"sv", "fr"},   {"da", "de"},
    {"nl", "de"},   {"frBE", "de"}, {"de", "de"},   {"el", "de"},   {"is", "de"},   {"it", "de"},
    {"lt", "de"},   {"pt", "de"},   {"es", "de"},   {"tr", "de"},   {"frCH", "CH"}, {"deLI", "CH"},
    {"deCH", "CH"}, {"itCH", "CH"},
};
const std::size_t kVeloraNumberKeyCount = sizeof(kVeloraNumberKeys) / sizeof(kVeloraNumberKeys[0]);

const luVeloraLetters kVeloraLetters[] = {
    {"EN", u"AM/PM", u'y', u'd', u'h', u'm', u's'},
    {"FR", u"AM/PM", u'a', u'j', u'h', u'm', u's'},
    {"GE", u"AM/PM", u'j', u't', u'h', u'm', u's'},
    {"JP", u"AM/PM", u'y', u'd', u'h', u'm', u's'},
    {"SP", u"AM/PM", u'a', u'd', u'h', u'm', u's'},
    {"IT", u"AM/PM", u'a', u'g', u'o', u'm', u's'},
    {"NL", u"AM/PM", u'j', u'd', u'u', u'm', u's'},
    {"SW", u"FM/EM", u'å', u'd', u'h', u'm', u's'},
    {"BR", u"A.M./P.M.", u'a', u'd', u'h', u'm', u's'},
    {"DA", u"AM/PM", u'å', u'd', u't', u'm', u's'},
    {"RU", u"AM/PM", u'г', u'д', u'ч', u'м', u'с'},
    {"PL", u"AM/PM", u'r', u'd', u'g', u'm', u's'},
};
const std::size_t kVeloraLetterCount = sizeof(kVeloraLetters) / sizeof(kVeloraLetters[0]);

const luDialectKey kVeloraDateKeys[] = {
    {"EN", "EN"}, {"CS", "EN"}, {"KR", "EN"}, {"AR", "EN"}, {"CZ", "EN"},
    {"EL", "EN"}, {"HE", "EN"}, {"HU", "EN"}, {"TH", "EN"}, {"TR", "EN"},
    {"LV", "EN"}, {"LT", "EN"}, {"ET", "EN"}, {"", "EN"},   {"FR", "FR"},
    {"GE", "GE"}, {"JP", "JP"}, {"SP", "SP"}, {"IT", "IT"}, {"NL", "NL"},
    {"SW", "SW"}, {"BR", "BR"}, {"DA", "DA"}, {"RU", "RU"}, {"PL", "PL"},
};
const std::size_t kVeloraDateKeyCount = sizeof(kVeloraDateKeys) / sizeof(kVeloraDateKeys[0]);

const luVeloraSeparators kVeloraSeparators[] = {
    {"en", u"/", u":"}, {"de", u".", u":"},  {"nl", u"-", u":"},
    {"it", u"/", u"."}, {"hu", u". ", u":"},
};
const std::size_t kVeloraSeparatorCount = sizeof(kVeloraSeparators) / sizeof(kVeloraSeparators[0]);

const luDialectKey kVeloraSeparatorKeys[] = {
    {"en", "en"},   {"zh", "en"}, {"nlBE", "en"}, {"fr", "en"},   {"el", "en"}, {"iw", "en"},
    {"he", "en"},   {"ja", "en"}, {"ptBR", "en"}, {"es", "en"},   {"th", "en"}, {"", "en"},
    {"zhCN", "nl"}, {"da", "nl"}, {"nl", "nl"},   {"frCA", "nl"}, {"ko", "nl"}, {"pt", "nl"},
    {"cs", "de"},   {"et", "de"}, {"fi", "de"},   {"frCH", "de"}, {"de", "de"}, {"is", "de"},
    {"itCH", "de"}, {"lv", "de"}, {"lt", "de"},   {"no", "de"},   {"pl", "de"}, {"ru", "de"},
    {"sv", "de"},   {"tr", "de"}, {"hu", "hu"},   {"it", "it"},
};
const std::size_t kVeloraSeparatorKeyCount =
    sizeof(kVeloraSeparatorKeys) / sizeof(kVeloraSeparatorKeys[0]);

}  // namespace FmtLib

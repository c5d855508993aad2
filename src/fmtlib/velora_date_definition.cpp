#include "fmtlib/velora_date_definition.h"

#include <memory>
#include <string>
#include <vector>

#include "kai18n/facets/lu_ctype.h"

namespace FmtLib {
namespace {

// The case of each letter of a form: 'U' capital, 'L' small, '*' either.
// Free letters take the preferred case in the first form, which is the one
// printed, and every combination after it.
struct CaseRule {
    luFmtTokens token;
    const char* cases;
    bool preferUpper;
};

class CaseForms {
  public:
    explicit CaseForms(luTokensDefinition& definition)
        : m_definition(definition), m_ctype(lu_use_facet<lu_ctype>(lu_locale::classic())) {}

    // Adds every form of `word` that `rule` allows; the letters are the units
    // that have two cases, taken in order.
    void Add(const CaseRule& rule, const std::u16string& word) {
        std::vector<std::size_t> letters;
        for (std::size_t i = 0; i < word.size(); ++i)
            if (m_ctype.toupper(word[i]) != m_ctype.tolower(word[i])) letters.push_back(i);
        std::vector<std::size_t> free;
        for (std::size_t k = 0; k < letters.size(); ++k)
            if (rule.cases[k] == '*') free.push_back(k);
        // Combination 0 is the preferred form; a set bit flips a free letter.
        for (unsigned combination = 0; combination < (1u << free.size()); ++combination) {
            std::u16string form = word;
            for (std::size_t k = 0; k < letters.size(); ++k) {
                bool upper = rule.cases[k] == 'U';
                if (rule.cases[k] == '*') {
                    const std::size_t bit = FreeIndex(free, k);
                    upper = rule.preferUpper != (((combination >> bit) & 1u) != 0);
                }
                char16_t& unit = form[letters[k]];
                unit = upper ? m_ctype.toupper(unit) : m_ctype.tolower(unit);
            }
            AddText(rule.token, form);
        }
    }

    void AddText(luFmtTokens token, const std::u16string& text) {
        m_definition.AddTokenDefinition(
            token,
            ucs2string(reinterpret_cast<const unsigned short*>(text.data()),
                       static_cast<unsigned int>(text.size())),
            true);
    }

  private:
    static std::size_t FreeIndex(const std::vector<std::size_t>& free, std::size_t letter) {
        std::size_t bit = 0;
        while (free[bit] != letter) ++bit;
        return bit;
    }

    luTokensDefinition& m_definition;
    const lu_ctype& m_ctype;
};

std::u16string Repeat(char16_t letter, std::size_t times) {
    return std::u16string(times, letter);
}

}  // namespace

luTokensDefinition* BuildVeloraDateDefinition(const luVeloraLetters& letters,
                                              const luVeloraSeparators& separators) {
    std::unique_ptr<luTokensDefinition> definition(new luTokensDefinition(Velora, true));
    CaseForms forms(*definition);
    forms.AddText(TokFormatSeparator, u";");

    // The half-day word: its first half's two letters choose the token.
    const std::u16string amPm = letters.amPm;
    forms.Add({TokAmPmUpper, "UU**", true}, amPm);
    forms.Add({TokAmPmLower, "L***", false}, amPm);
    forms.Add({TokAmPmCap, "UL**", false}, amPm);

    // Month and day names: the first two letters choose the token.
    const struct {
        char16_t letter;
        std::size_t length;
        luFmtTokens upper, lower, cap;
    } names[] = {
        {letters.month, 4, TokMonthNameUpper, TokMonthNameLower, TokMonthNameCap},
        {letters.month, 3, TokAbbMonthNameUpper, TokAbbMonthNameLower, TokAbbMonthNameCap},
        {letters.day, 4, TokDayNameUpper, TokDayNameLower, TokDayNameCap},
        {letters.day, 3, TokAbbDayNameUpper, TokAbbDayNameLower, TokAbbDayNameCap},
    };
    for (const auto& name : names) {
        const std::u16string word = Repeat(name.letter, name.length);
        const std::string rest(name.length - 2, '*');
        forms.Add({name.upper, ("UU" + rest).c_str(), true}, word);
        forms.Add({name.lower, ("L*" + rest).c_str(), false}, word);
        forms.Add({name.cap, ("UL" + rest).c_str(), false}, word);
    }

    // Hours: the case of the letter tells 24 hours from 12.
    forms.Add({TokHour00To23, "UU", true}, Repeat(letters.hour, 2));
    forms.Add({TokHour0To23, "U", true}, Repeat(letters.hour, 1));
    forms.Add({TokHour01To12, "LL", false}, Repeat(letters.hour, 2));
    forms.Add({TokHour1To12, "L", false}, Repeat(letters.hour, 1));

    // Numbers, in any case but the single second letter.
    forms.Add({TokMonth01, "**", false}, Repeat(letters.month, 2));
    forms.Add({TokMonth1, "*", false}, Repeat(letters.month, 1));
    forms.Add({TokSecond00, "**", false}, Repeat(letters.second, 2));
    forms.Add({TokSecond0, "L", false}, Repeat(letters.second, 1));
    forms.Add({TokYear0000, "****", false}, Repeat(letters.year, 4));
    forms.Add({TokYear00, "**", false}, Repeat(letters.year, 2));
    forms.Add({TokMonthDay00, "**", false}, Repeat(letters.day, 2));
    forms.Add({TokMonthDay0, "*", false}, Repeat(letters.day, 1));

    if (std::string(letters.key) == "JP") {
        forms.Add({TokJapaneseImpYear0, "**", false}, u"rr");
        forms.Add({TokJapaneseImpYear, "*", false}, u"r");
        forms.Add({TokJapaneseImpYearEng, "*", false}, u"g");
    }

    forms.AddText(TokDateSeparator, separators.date);
    forms.AddText(TokTimeSeparator, separators.time);

    // The month tokens own these texts already, so the minute tokens only
    // gain their printing text; the context pass tells the two apart.
    const bool russian = std::string(letters.key) == "RU";
    forms.AddText(TokMinute00, russian ? u"мм" : u"mm");
    forms.AddText(TokMinute0, russian ? u"м" : u"m");

    definition->EndBuild();
    return definition.release();
}

}  // namespace FmtLib

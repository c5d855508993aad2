// Number patterns as Excel format strings. Excel reads a format with fixed
// section meanings (positive; negative; zero) and no sign tokens, so the
// pattern is first normalised into that shape, section by section, and then
// written token by token.
#include <algorithm>
#include <array>
#include <initializer_list>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "fmtlib/excel_string_writing.h"
#include "kai18n/fmtlib/lu_excel_string_format.h"
#include "kai18n/frame/result_codes.h"

namespace FmtLib {
namespace {

using excel::Units;

constexpr unsigned short kPercentUnit = u'%';

// One token of the working copy; `text` holds a literal's units.
struct Item {
    int token;
    Units text;
};
using Items = std::vector<Item>;

struct Section {
    Items items;
    int colour = 0;  // the colour token, 0 for none
};
using Sections = std::array<Section, 3>;

Item Literal(Units text) {
    return Item{TokLiteral, std::move(text)};
}

Item Literal(const unsigned short* units) {
    Units text;
    if (units != nullptr)
        for (; *units != 0; ++units) text.push_back(*units);
    return Literal(std::move(text));
}

bool IsDigitPlace(int token) {
    return token == TokDigitOrNothing || token == TokDigitOrZero;
}

bool IsExponent(int token) {
    return token >= TokExponentUpperPlus && token <= TokExponentLowerMinus;
}

bool Holds(const Items& items, std::initializer_list<int> tokens) {
    return std::any_of(items.begin(), items.end(), [&](const Item& item) {
        return std::find(tokens.begin(), tokens.end(), item.token) != tokens.end();
    });
}

Items ReadItems(const luFmtPattern& pattern) {
    Items items;
    items.reserve(pattern.size());
    for (const luToken* token : pattern) {
        if (token->IsLiteral())
            items.push_back(Literal(
                Units(token->LiteralText(), token->LiteralText() + token->LiteralLength())));
        else
            items.push_back(Item{token->TokenId(), {}});
    }
    return items;
}

// A named default format stands for the whole pattern. The standard one has
// an Excel name of its own; the others are spelled out from the locale.
void ReplaceDefault(const luSettings& settings, Items& items) {
    static const int kFormatOfToken[] = {STANDARD, PERCENT, SCIENTIFIC, BOOLEAN};
    const auto named = std::find_if(items.begin(), items.end(), [](const Item& item) {
        return IsDefaultNumberFormatToken(item.token);
    });
    if (named == items.end()) return;
    const int token = named->token;
    items.clear();
    if (token == TokDefaultNumeric) {
        items.push_back(Item{token, {}});
        return;
    }
    const auto parsed = excel::ParseDefaultFormat(
        settings, kFormatOfToken[token - TokDefaultNumeric], /*isDate=*/false);
    if (parsed != nullptr) items = ReadItems(*parsed);
}

// Excel has three sections at most; what stands behind a third separator
// has no place in it.
Sections Split(Items items) {
    Sections sections;
    std::size_t index = 0;
    for (Item& item : items) {
        if (item.token == TokFormatSeparator) {
            if (++index == sections.size()) break;
            continue;
        }
        sections[index].items.push_back(std::move(item));
    }
    return sections;
}

// Excel takes one colour ahead of a section; the last one the pattern names
// is the one its formatter shows.
void TakeColour(Section& section) {
    Items& items = section.items;
    for (const Item& item : items)
        if (IsColourToken(item.token)) section.colour = item.token;
    items.erase(std::remove_if(items.begin(), items.end(),
                               [](const Item& item) { return IsColourToken(item.token); }),
                items.end());
}

template <class Step>
void RemoveWhere(Items& items, Step step) {
    int state = 0;
    items.erase(std::remove_if(items.begin(), items.end(),
                               [&](const Item& item) { return step(state, item.token); }),
                items.end());
}

// From the front: no grouping ahead of the first digit place or behind the
// decimal separator, one decimal separator, and behind the exponent nothing
// of the mantissa's or another exponent. States: 0 nothing yet, 1 integer
// digits, 2 behind the decimal separator, 3 behind the exponent.
bool ForwardRemoves(int& state, int token) {
    const bool digit = IsDigitPlace(token);
    const bool ds = token == TokDecimalSeparator;
    const bool gs = token == TokGroupingSeparator;
    if (state == 3)
        return token == TokSign || token == TokPositiveSign || ds || gs || IsExponent(token);
    if (IsExponent(token)) state = 3;
    if (state == 0 && digit) state = 1;
    if (state == 0 && gs) return true;
    if (state == 2 && (ds || gs)) return true;
    if (ds) state = 2;
    return false;
}

// From the back: no grouping behind the last digit place, neither of the
// exponent nor of the mantissa. States: 0 nothing yet, 1 digits, 2 the
// exponent, 3 mantissa digits ahead of it, 4 the decimal separator, 5 integer
// digits ahead of it.
bool BackwardRemoves(int& state, int token) {
    const bool digit = IsDigitPlace(token);
    const bool gs = token == TokGroupingSeparator;
    if (token == TokDecimalSeparator && state <= 3) {
        state = 4;
        return false;
    }
    if (IsExponent(token) && state <= 1) {
        state = 2;
        return false;
    }
    if (gs && (state == 0 || state == 2 || state == 4)) return true;
    if (digit && state == 0) state = 1;
    if (digit && state == 2) state = 3;
    if (digit && state == 4) state = 5;
    return false;
}

void Clean(Items& items) {
    RemoveWhere(items, ForwardRemoves);
    std::reverse(items.begin(), items.end());
    RemoveWhere(items, BackwardRemoves);
    std::reverse(items.begin(), items.end());
}

// Excel writes no sign by itself for a negative section of its own, so a
// pattern that shows the sign, or a boolean, needs the sections spelled out.
void Complete(Sections& sections) {
    auto copyFirstTo = [&](Section& target) {
        target.items = sections[0].items;
        target.colour = sections[0].colour;
    };
    if (Holds(sections[0].items, {TokBool})) {
        if (sections[1].items.empty()) copyFirstTo(sections[1]);
        if (sections[2].items.empty()) copyFirstTo(sections[2]);
    }
    if (Holds(sections[0].items, {TokSign, TokNegativeOpen, TokNegativeClose}) &&
        sections[1].items.empty())
        copyFirstTo(sections[1]);
    if (!sections[2].items.empty() && sections[1].items.empty()) copyFirstTo(sections[1]);
}

void RemoveTokens(Items& items, std::initializer_list<int> tokens) {
    items.erase(std::remove_if(items.begin(), items.end(),
                               [&](const Item& item) {
                                   return std::find(tokens.begin(), tokens.end(), item.token) !=
                                          tokens.end();
                               }),
                items.end());
}

void ReplaceToken(Items& items, int from, int to) {
    for (Item& item : items)
        if (item.token == from) item.token = to;
}

// The positive and zero sections show no negative sign; the negative section
// no positive one. A boolean is true unless the value is zero.
void FitSignsToSections(Sections& sections) {
    RemoveTokens(sections[0].items, {TokSign, TokNegativeOpen, TokNegativeClose});
    ReplaceToken(sections[0].items, TokBool, TokTrue);
    RemoveTokens(sections[1].items, {TokPositiveSign});
    ReplaceToken(sections[1].items, TokBool, TokTrue);
    RemoveTokens(sections[2].items, {TokSign, TokNegativeOpen, TokNegativeClose});
    ReplaceToken(sections[2].items, TokBool, TokFalse);
}

// What Excel has no code for is written as the text it stands for.
void SpellOut(const luSettingsImp& imp, Items& items) {
    static const unsigned short kMinus[] = {u'-', 0};
    static const unsigned short kPlus[] = {u'+', 0};
    static const unsigned short kOpen[] = {u'(', 0};
    static const unsigned short kClose[] = {u')', 0};
    for (Item& item : items) {
        switch (item.token) {
            case TokSign:
                item = Literal(kMinus);
                break;
            case TokPositiveSign:
                item = Literal(kPlus);
                break;
            case TokNegativeOpen:
                item = Literal(kOpen);
                break;
            case TokNegativeClose:
                item = Literal(kClose);
                break;
            case TokTrue:
                item = Literal(imp.TrueString());
                break;
            case TokFalse:
                item = Literal(imp.FalseString());
                break;
            default:
                break;
        }
    }
}

std::size_t CountPercentUnits(const Items& items) {
    std::size_t count = 0;
    for (const Item& item : items)
        if (item.token == TokLiteral)
            count += static_cast<std::size_t>(
                std::count(item.text.begin(), item.text.end(), kPercentUnit));
    return count;
}

// Turns the first `k` percent units of the literals into percent tokens, so
// that they print bare: Excel multiplies by 100 for a bare "%" only.
Items PromotePercentUnits(const Items& items, std::size_t k) {
    Items out;
    for (const Item& item : items) {
        if (item.token != TokLiteral || k == 0) {
            out.push_back(item);
            continue;
        }
        Units run;
        for (unsigned short unit : item.text) {
            if (unit == kPercentUnit && k > 0) {
                if (!run.empty()) out.push_back(Literal(std::move(run)));
                run.clear();
                out.push_back(Item{TokTimes100, {}});
                --k;
            } else {
                run.push_back(unit);
            }
        }
        if (!run.empty()) out.push_back(Literal(std::move(run)));
    }
    return out;
}

// One "%" in an Excel string multiplies by 100 once; a pattern may have said
// so by tokens, by literal text, or both.
void SettlePercent(Items& items) {
    const auto a = static_cast<std::size_t>(std::count_if(
        items.begin(), items.end(), [](const Item& item) { return item.token == TokTimes100; }));
    const auto b =
        static_cast<std::size_t>(std::count_if(items.begin(), items.end(), [](const Item& item) {
            return item.token == TokTimes100AndSign;
        }));
    if (b > 1) {
        static const unsigned short kPercent[] = {kPercentUnit, 0};
        bool first = true;
        for (Item& item : items) {
            if (item.token != TokTimes100AndSign) continue;
            if (!first) item = Literal(kPercent);
            first = false;
        }
        return;
    }
    if (b != 0 || a == 0) return;
    const std::size_t c = CountPercentUnits(items);
    RemoveTokens(items, {TokTimes100});
    items = PromotePercentUnits(items, std::min(a, c));
    for (std::size_t i = c; i < a; ++i) items.push_back(Item{TokTimes100, {}});
}

// Literal text side by side is one run, quoted as one.
void MergeLiterals(Items& items) {
    Items out;
    for (Item& item : items) {
        if (item.token == TokLiteral && !out.empty() && out.back().token == TokLiteral)
            out.back().text.insert(out.back().text.end(), item.text.begin(), item.text.end());
        else
            out.push_back(std::move(item));
    }
    items = std::move(out);
}

void WriteToken(Units& out, const Item& item) {
    switch (item.token) {
        case TokLiteral:
            return excel::AppendQuoted(out, item.text.data(), item.text.size());
        case TokDigitOrNothing:
            return excel::AppendAscii(out, "#");
        case TokDigitOrZero:
            return excel::AppendAscii(out, "0");
        case TokDecimalSeparator:
            return excel::AppendAscii(out, ".");
        case TokGroupingSeparator:
            return excel::AppendAscii(out, ",");
        case TokExponentUpperPlus:
            return excel::AppendAscii(out, "E+");
        case TokExponentUpperMinus:
            return excel::AppendAscii(out, "E-");
        case TokExponentLowerPlus:
            return excel::AppendAscii(out, "e+");
        case TokExponentLowerMinus:
            return excel::AppendAscii(out, "e-");
        case TokTimes100:
        case TokTimes100AndSign:
            return excel::AppendAscii(out, "%");
        case TokDefaultNumeric:
            return excel::AppendAscii(out, "General");
        default:
            // Excel has no code for the rest, and they mean nothing to it.
            return;
    }
}

void WriteSection(Units& out, const Section& section) {
    if (section.colour != 0) excel::AppendColour(out, section.colour);
    for (const Item& item : section.items) WriteToken(out, item);
}

void Write(Units& out, const Sections& sections) {
    WriteSection(out, sections[0]);
    for (std::size_t i = 1; i < sections.size(); ++i) {
        if (sections[i].items.empty()) continue;
        excel::AppendAscii(out, ";");
        WriteSection(out, sections[i]);
    }
}

}  // namespace

luExcelStringFormatNumber::luExcelStringFormatNumber(const ilu_ptr<luSettings>& settings)
    : m_settings(settings), m_imp(settings->GetImp()) {}

luExcelStringFormatNumber::~luExcelStringFormatNumber() = default;

long luExcelStringFormatNumber::ToPattern(ucs2string /*text*/, luFmtPattern*& pattern) {
    delete pattern;
    pattern = nullptr;
    return LU_E_FAIL;
}

bool luExcelStringFormatNumber::FromPattern(const luFmtPattern& pattern, ucs2string& text) {
    // The work is done on a number pattern of its own; one of date kind
    // leaves that empty, as assigning between kinds does.
    if (pattern.IsDate()) return true;
    Items items = ReadItems(pattern);
    ReplaceDefault(*m_settings, items);
    Sections sections = Split(std::move(items));
    for (Section& section : sections) {
        TakeColour(section);
        Clean(section.items);
    }
    Complete(sections);
    FitSignsToSections(sections);
    for (Section& section : sections) {
        SpellOut(*m_imp, section.items);
        SettlePercent(section.items);
        MergeLiterals(section.items);
    }
    Units out;
    Write(out, sections);
    excel::Flush(out, text);
    return true;
}

luExcelStringFormatNumber* CreateExcelSerialStringFormatNumber(ilu_ptr<luSettings>& settings) {
    if (!settings || settings->GetImp() == nullptr) return nullptr;
    return new (std::nothrow) luExcelStringFormatNumber(settings);
}

}  // namespace FmtLib

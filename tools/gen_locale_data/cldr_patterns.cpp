#include "cldr_patterns.h"

#include <cstddef>

namespace gen {
namespace {

bool IsAsciiLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\u00A0' || c == u'\u202F';
}

std::string Letters(char16_t letter, int count) {
    return std::string(count, static_cast<char>(letter));
}

// A canonical literal item; '\' and ']' are escaped with a backslash.
void AppendLiteral(u16& out, const u16& text) {
    if (text.empty()) return;
    out += u"L[";
    for (char16_t c : text) {
        if (c == u'\\' || c == u']') out += u'\\';
        out += c;
    }
    out += u']';
}

u16 FromAscii(const std::string& text) {
    return u16(text.begin(), text.end());
}

// The canonical key of a date field for output, or empty for a field that is
// dropped. Substitutions are noted.
std::string OutputKey(char16_t letter, int count, std::set<std::string>& notes) {
    const std::string field = Letters(letter, count);
    auto nearest = [&](const std::string& key) {
        notes.insert(field + " -> T[" + key + "]");
        return key;
    };
    auto dropped = [&]() {
        notes.insert(field + " -> dropped");
        return std::string();
    };
    switch (letter) {
        case u'G':
            return count <= 3 ? std::string("era") : nearest("era");
        case u'y':
            if (count == 2) return "y2";
            return count == 4 ? std::string("y4") : nearest("y4");
        case u'Y':
            if (count == 2) return "ywoy2";
            return count == 4 ? std::string("ywoy4") : nearest("ywoy4");
        case u'u':
        case u'U':
        case u'r':
            return nearest("y4");
        case u'M':
        case u'L': {
            // The month names of a record are in the context its long date
            // uses, so 'L' (stand-alone) has the same tokens as 'M'.
            static const char* const kKeys[] = {"M", "0M", "amt", "mt", "amt"};
            const std::string key = kKeys[count > 5 ? 4 : count - 1];
            return count >= 5 ? nearest(key) : key;
        }
        case u'd':
            return count == 1 ? std::string("d") : std::string("0d");
        case u'D':
            return count == 1   ? std::string("yd")
                   : count == 2 ? std::string("0yd")
                                : std::string("00yd");
        case u'F':
            return "dowim";
        case u'w':
            return count == 1 ? std::string("wy") : std::string("0wy");
        case u'W':
            return "wm";
        case u'E':
        case u'e':
        case u'c':
            // The day names of a record are in the context its full date uses,
            // so 'c' (stand-alone) and 'e' have the same tokens as 'E'; their
            // numeric forms have none.
            if (letter != u'E' && count <= 2) return dropped();
            if (count == 4) return "dn";
            return count <= 3 ? std::string("adn") : nearest("adn");
        case u'a':
            return "am";
        case u'b':
        case u'B':
            return nearest("am");
        case u'h':
            return count == 1 ? std::string("12") : std::string("012");
        case u'H':
            return count == 1 ? std::string("23") : std::string("023");
        case u'K':
            return count == 1 ? std::string("11") : std::string("011");
        case u'k':
            return count == 1 ? std::string("24") : std::string("024");
        case u'm':
            return count == 1 ? std::string("m") : std::string("0m");
        case u's':
            return count == 1 ? std::string("s") : std::string("0s");
        case u'S':
            if (count == 1) return "tens";
            if (count == 2) return "0cs";
            return count == 3 ? std::string("0ms") : nearest("0ms");
        case u'z':
        case u'Z':
        case u'O':
        case u'v':
        case u'V':
        case u'X':
        case u'x':
            return nearest("tz");
        default:
            return dropped();
    }
}

// The tokens that date input reads.
bool IsInputKey(const std::string& key) {
    static const char* const kInput[] = {"am",  "mt", "amt", "023", "23", "024", "24", "012", "12",
                                         "011", "11", "0M",  "M",   "0m", "m",   "0s", "s",   "y4",
                                         "y2",  "dn", "adn", "0d",  "d",  "da",  "ts"};
    for (const char* k : kInput)
        if (key == k) return true;
    return false;
}

std::string StrftimeConversion(char16_t letter, int count, std::set<std::string>& notes) {
    const std::string field = Letters(letter, count);
    auto nearest = [&](const std::string& conv) {
        notes.insert(field + " -> " + conv);
        return conv;
    };
    auto dropped = [&]() {
        notes.insert(field + " -> dropped");
        return std::string();
    };
    switch (letter) {
        case u'G':
            return "%P";
        case u'y':
            return count == 2 ? std::string("%y") : std::string("%Y");
        case u'Y':
            return nearest(count == 2 ? "%y" : "%Y");
        case u'u':
        case u'U':
        case u'r':
            return nearest("%Y");
        case u'M':
        case u'L': {
            static const char* const kConv[] = {"%#m", "%m", "%b", "%B", "%b"};
            const std::string conv = kConv[count > 5 ? 4 : count - 1];
            return count == 5 ? nearest(conv) : conv;
        }
        case u'd':
            return count == 1 ? std::string("%#d") : std::string("%d");
        case u'D':
            return nearest("%j");
        case u'E':
        case u'e':
        case u'c':
            if (letter != u'E' && count <= 2) return dropped();
            if (count == 4) return "%A";
            return count <= 3 ? std::string("%a") : nearest("%a");
        case u'a':
            return "%p";
        case u'b':
        case u'B':
            return nearest("%p");
        case u'h':
            return count == 1 ? std::string("%#I") : std::string("%I");
        case u'H':
            return count == 1 ? std::string("%#H") : std::string("%H");
        case u'K':
            return nearest(count == 1 ? "%#I" : "%I");
        case u'k':
            return nearest(count == 1 ? "%#H" : "%H");
        case u'm':
            return count == 1 ? std::string("%#M") : std::string("%M");
        case u's':
            return count == 1 ? std::string("%#S") : std::string("%S");
        case u'S':
            return nearest("%q");
        case u'w':
            return nearest("%W");
        case u'z':
        case u'Z':
        case u'O':
        case u'v':
        case u'V':
        case u'X':
        case u'x':
            return nearest("%Z");
        default:
            return dropped();
    }
}

bool IsNumericDateField(const DateItem& item) {
    if (item.letter == u'd') return item.count <= 2;
    if (item.letter == u'M' || item.letter == u'L') return item.count <= 2;
    return item.letter == u'y';
}

bool IsHourField(const DateItem& item) {
    return item.letter == u'h' || item.letter == u'H' || item.letter == u'k' || item.letter == u'K';
}

// A number pattern as tokens: a key ("#", "gs", ...) or a literal text.
struct NumberToken {
    bool literal;
    std::string key;
    u16 text;
};

std::vector<u16> SplitSubpatterns(const u16& pattern) {
    std::vector<u16> parts(1);
    bool quoted = false;
    for (char16_t c : pattern) {
        if (c == u'\'') quoted = !quoted;
        if (c == u';' && !quoted) {
            parts.emplace_back();
            continue;
        }
        parts.back() += c;
    }
    return parts;
}

bool IsNumberChar(char16_t c) {
    return c == u'#' || c == u',' || c == u'.' || c == u'@' || (c >= u'0' && c <= u'9');
}

std::vector<NumberToken> NumberTokens(const u16& sub, const NumberSymbols& symbols,
                                      std::set<std::string>& notes) {
    std::vector<NumberToken> tokens;
    auto key = [&](const char* k) { tokens.push_back({false, k, u16()}); };
    auto literal = [&](const u16& text) {
        if (text.empty()) return;
        if (!tokens.empty() && tokens.back().literal)
            tokens.back().text += text;
        else
            tokens.push_back({true, std::string(), text});
    };
    for (std::size_t i = 0; i < sub.size(); ++i) {
        const char16_t c = sub[i];
        if (c == u'\'') {
            std::size_t end = sub.find(u'\'', i + 1);
            if (end == u16::npos) end = sub.size();
            literal(end == i + 1 ? u16(u"'") : StripBidiMarks(sub.substr(i + 1, end - i - 1)));
            i = end;
        } else if (c == u'#') {
            key("#");
        } else if (c >= u'0' && c <= u'9') {
            if (c != u'0') notes.insert("rounding digit -> T[0]");
            key("0");
        } else if (c == u'@') {
            notes.insert("@ -> T[0]");
            key("0");
        } else if (c == u',') {
            key("gs");
        } else if (c == u'.') {
            key("ds");
        } else if (c == u'E') {
            if (i + 1 < sub.size() && sub[i + 1] == u'+') {
                key("E+");
                ++i;
            } else {
                key("E-");
            }
        } else if (c == u'%') {
            literal(symbols.percent);
        } else if (c == u'\u2030') {
            literal(symbols.permille);
        } else if (c == u'\u00A4') {
            std::size_t end = i;
            while (end + 1 < sub.size() && sub[end + 1] == u'\u00A4') ++end;
            if (end != i) notes.insert("currency code or name -> L[\u00A4]");
            literal(u"\u00A4");
            i = end;
        } else if (c == u'-') {
            key("-");
        } else if (c == u'+') {
            key("+");
        } else if (c == u'*') {
            notes.insert("pad character -> dropped");
            ++i;
        } else if (!IsBidiMark(c)) {
            literal(u16(1, c));
        }
    }
    // CLDR's "#E0" has one integer place and no fraction places: it means a
    // mantissa with one digit before the point and as many significant
    // digits as the value has. Written out with the places of our layouts:
    // one required digit, the point and fourteen optional decimals, the
    // fifteen digits that number output produces at most.
    std::size_t exponent = tokens.size();
    bool zero = false;
    bool point = false;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].literal) continue;
        if (tokens[i].key == "E-" || tokens[i].key == "E+") {
            exponent = i;
            break;
        }
        if (tokens[i].key == "0") zero = true;
        if (tokens[i].key == "ds") point = true;
    }
    if (exponent != tokens.size() && !zero && !point) {
        notes.insert("#E0 mantissa -> T[0]T[ds] and 14 T[#]");
        std::vector<NumberToken> rewritten;
        bool placed = false;
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            const bool mantissa = i < exponent && !tokens[i].literal &&
                                  (tokens[i].key == "#" || tokens[i].key == "gs");
            if (!mantissa) {
                rewritten.push_back(tokens[i]);
                continue;
            }
            if (placed) continue;
            placed = true;
            rewritten.push_back({false, "0", u16()});
            rewritten.push_back({false, "ds", u16()});
            for (int k = 0; k < 14; ++k) rewritten.push_back({false, "#", u16()});
        }
        tokens.swap(rewritten);
    }
    return tokens;
}

void AppendTokens(u16& out, const std::vector<NumberToken>& tokens) {
    for (const NumberToken& t : tokens) {
        if (t.literal)
            AppendLiteral(out, t.text);
        else
            out += u"T[" + FromAscii(t.key) + u"]";
    }
}

}  // namespace

bool IsBidiMark(char16_t c) {
    return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
           (c >= 0x2066 && c <= 0x2069);
}

u16 StripBidiMarks(const u16& text) {
    u16 out;
    for (char16_t c : text)
        if (!IsBidiMark(c)) out += c;
    return out;
}

std::string ToUtf8(const u16& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t cp = text[i];
        if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
            text[i + 1] <= 0xDFFF) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (text[i + 1] - 0xDC00);
            ++i;
        }
        if (cp < 0x80) {
            out += static_cast<char>(cp);
        } else if (cp < 0x800) {
            out += static_cast<char>(0xC0 | (cp >> 6));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        } else if (cp < 0x10000) {
            out += static_cast<char>(0xE0 | (cp >> 12));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (cp >> 18));
            out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        }
    }
    return out;
}

std::vector<DateItem> ParseDatePattern(const u16& pattern) {
    std::vector<DateItem> items;
    auto literal = [&](const u16& text) {
        if (text.empty()) return;
        if (!items.empty() && items.back().letter == 0)
            items.back().literal += text;
        else
            items.push_back({0, 0, text});
    };
    for (std::size_t i = 0; i < pattern.size();) {
        const char16_t c = pattern[i];
        if (c == u'\'') {
            if (i + 1 < pattern.size() && pattern[i + 1] == u'\'') {
                literal(u"'");
                i += 2;
                continue;
            }
            u16 text;
            std::size_t j = i + 1;
            for (; j < pattern.size(); ++j) {
                if (pattern[j] != u'\'') {
                    text += pattern[j];
                } else if (j + 1 < pattern.size() && pattern[j + 1] == u'\'') {
                    text += u'\'';
                    ++j;
                } else {
                    break;
                }
            }
            literal(StripBidiMarks(text));
            i = j + 1;
        } else if (IsAsciiLetter(c)) {
            std::size_t j = i;
            while (j < pattern.size() && pattern[j] == c) ++j;
            items.push_back({c, static_cast<int>(j - i), u16()});
            i = j;
        } else {
            if (!IsBidiMark(c)) literal(u16(1, c));
            ++i;
        }
    }
    return items;
}

u16 ToCanonicalDate(const std::vector<DateItem>& items, DateUse use, std::set<std::string>& notes) {
    struct Part {
        bool literal;
        bool dropped;
        u16 text;
    };
    std::vector<Part> parts;
    for (const DateItem& item : items) {
        if (item.letter == 0) {
            parts.push_back({true, false, item.literal});
            continue;
        }
        std::string key = OutputKey(item.letter, item.count, notes);
        if (!key.empty() && use == DateUse::Input && !IsInputKey(key)) {
            notes.insert("input: T[" + key + "] -> dropped");
            key.clear();
        }
        parts.push_back({false, key.empty(), key.empty() ? u16() : u"T[" + FromAscii(key) + u"]"});
    }
    // A dropped field takes the literal that joined it to the pattern along:
    // the one ahead of it, or the one behind it for a leading field.
    std::vector<Part> kept;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!parts[i].dropped) {
            kept.push_back(parts[i]);
            continue;
        }
        if (!kept.empty() && kept.back().literal)
            kept.pop_back();
        else if (i + 1 < parts.size() && parts[i + 1].literal)
            ++i;
    }
    u16 out;
    u16 literal;  // adjacent literals become one item
    for (const Part& part : kept) {
        if (part.literal) {
            literal += part.text;
            continue;
        }
        AppendLiteral(out, literal);
        literal.clear();
        out += part.text;
    }
    AppendLiteral(out, literal);
    return out;
}

u16 ToStrftime(const std::vector<DateItem>& items, std::set<std::string>& notes) {
    u16 out;
    for (const DateItem& item : items) {
        if (item.letter == 0) {
            for (char16_t c : item.literal) {
                if (c == u'%') out += u'%';
                out += c;
            }
            continue;
        }
        out += FromAscii(StrftimeConversion(item.letter, item.count, notes));
    }
    return out;
}

u16 DateSeparatorOf(const std::vector<DateItem>& items) {
    for (std::size_t i = 1; i + 1 < items.size(); ++i) {
        if (items[i].letter == 0 && IsNumericDateField(items[i - 1]) &&
            IsNumericDateField(items[i + 1]))
            return items[i].literal;
    }
    return u16();
}

u16 TimeSeparatorOf(const std::vector<DateItem>& items) {
    for (std::size_t i = 1; i + 1 < items.size(); ++i) {
        if (items[i].letter == 0 && IsHourField(items[i - 1]) && items[i + 1].letter == u'm')
            return items[i].literal;
    }
    return u16();
}

u16 ToCanonicalNumber(const u16& pattern, const NumberSymbols& symbols,
                      std::set<std::string>& notes) {
    std::vector<u16> subs = SplitSubpatterns(pattern);
    // A negative subpattern that is the minus sign ahead of the positive one
    // (once bidi marks are gone) says what a single section says already.
    if (subs.size() == 2 && StripBidiMarks(subs[1]) == u"-" + StripBidiMarks(subs[0]))
        subs.pop_back();
    u16 out;
    for (std::size_t i = 0; i < subs.size() && i < 2; ++i) {
        if (i > 0) out += u"T[FS]";
        AppendTokens(out, NumberTokens(subs[i], symbols, notes));
    }
    if (subs.size() > 2) notes.insert("third subpattern -> dropped");
    return out;
}

u16 GroupingOf(const u16& pattern) {
    const u16 positive = SplitSubpatterns(pattern)[0];
    std::vector<int> separators;  // digit places counted from the left at each ','
    int places = 0;
    bool inNumber = false;
    bool quoted = false;
    for (char16_t c : positive) {
        if (c == u'\'') quoted = !quoted;
        if (quoted) continue;
        if (c == u'.' || c == u'E') break;
        if (IsNumberChar(c)) {
            inNumber = true;
            if (c == u',')
                separators.push_back(places);
            else
                ++places;
        } else if (inNumber) {
            break;
        }
    }
    u16 grouping;
    if (separators.empty()) return grouping;
    const int primary = places - separators.back();
    grouping += static_cast<char16_t>(primary);
    if (separators.size() >= 2) {
        const int secondary = separators.back() - separators[separators.size() - 2];
        if (secondary != primary) grouping += static_cast<char16_t>(secondary);
    }
    return grouping;
}

int NegativeModeOf(const u16& pattern) {
    const std::vector<u16> subs = SplitSubpatterns(pattern);
    if (subs.size() < 2) return 1;
    const u16 negative = StripBidiMarks(subs[1]);
    std::size_t first = u16::npos;
    std::size_t last = u16::npos;
    for (std::size_t i = 0; i < negative.size(); ++i) {
        if (IsNumberChar(negative[i])) {
            if (first == u16::npos) first = i;
            last = i;
        }
    }
    if (first == u16::npos) return 1;
    const u16 prefix = negative.substr(0, first);
    const u16 suffix = negative.substr(last + 1);
    if (prefix.find(u'(') != u16::npos && suffix.find(u')') != u16::npos) return 0;
    std::size_t minus = prefix.find(u'-');
    if (minus != u16::npos)
        return (minus + 1 < prefix.size() && IsBlank(prefix[minus + 1])) ? 2 : 1;
    minus = suffix.find(u'-');
    if (minus != u16::npos) return (minus > 0 && IsBlank(suffix[minus - 1])) ? 4 : 3;
    return 1;
}

}  // namespace gen

// The Unicode 3.0 data files, read here without the library's help: one record
// for every 16-bit unit, which the character-class tests compare against.
#ifndef KAI18N_TESTS_FACETS_UCD_FILES_H
#define KAI18N_TESTS_FACETS_UCD_FILES_H

#include <cctype>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace ucd {

struct Unit {
    bool assigned = false;
    std::string category, bidi;  // "Lu", "L", ...; empty when unassigned
    int combining = 0;
    bool mirrored = false, whiteSpace = false;  // whiteSpace: "White space" in PropList
    int upper = -1, lower = -1;                 // the simple mappings, -1 for none
    int numerator = 0, denominator = 0;         // (0, 0) when the numeric field is empty
};

inline int Hex(const std::string& text) {
    return text.empty() ? -1 : static_cast<int>(std::stoul(text, nullptr, 16));
}

inline std::vector<Unit> Read() {
    std::vector<Unit> units(0x10000);
    std::ifstream data(KAI18N_UCD_DIR "/UnicodeData-3.0.0.txt");
    int rangeFirst = -1;
    for (std::string line; std::getline(data, line);) {
        std::vector<std::string> f;
        std::istringstream in(line);
        for (std::string field; std::getline(in, field, ';');) f.push_back(field);
        if (f.size() < 14 || Hex(f[0]) > 0xFFFF) continue;
        Unit u{true, f[2], f[4], std::stoi(f[3]), f[9] == "Y", false, Hex(f[12]), Hex(f[13])};
        if (!f[8].empty()) {
            const std::size_t slash = f[8].find('/');
            u.numerator = std::stoi(f[8].substr(0, slash));
            u.denominator = slash == std::string::npos ? 1 : std::stoi(f[8].substr(slash + 1));
        }
        const int code = Hex(f[0]);
        if (f[1].find(", First>") != std::string::npos) {
            rangeFirst = code;
            continue;
        }
        const bool last = f[1].find(", Last>") != std::string::npos;
        for (int c = last ? rangeFirst : code; c <= code; ++c) units[c] = u;
    }
    // PropList: "XXXX" or "XXXX..YYYY" lines between the "(White space)" header and the next.
    std::ifstream props(KAI18N_UCD_DIR "/PropList-3.0.1.txt");
    bool inSection = false;
    for (std::string line; std::getline(props, line);) {
        if (line.find("Property dump for:") != std::string::npos)
            inSection = line.find("(White space)") != std::string::npos;
        if (!inSection || line.empty() || !std::isxdigit(static_cast<unsigned char>(line[0])))
            continue;
        const int first = Hex(line.substr(0, 4));
        const int last = line.compare(4, 2, "..") == 0 ? Hex(line.substr(6, 4)) : first;
        for (int c = first; c <= last; ++c) units[c].whiteSpace = true;
    }
    return units;
}

/// The records, read once for the whole program.
inline const std::vector<Unit>& Records() {
    static const std::vector<Unit> units = Read();
    return units;
}

/// Whether unit `c` with record `u` has one of the space-separated properties
/// of `set`: a category ("Lu"; "L*" for every "L?"), a direction ("AL"), or
/// "white", "mirrored", "unassigned", "undefined" (unassigned, not U+FFFF).
inline bool Holds(unsigned short c, const Unit& u, const std::string& set) {
    std::istringstream in(set);
    for (std::string t; in >> t;) {
        if (t == u.category || t == u.bidi || (t[1] == '*' && t[0] == u.category[0]) ||
            (t == "white" && u.whiteSpace) || (t == "mirrored" && u.mirrored) ||
            (t == "unassigned" && !u.assigned) || (t == "undefined" && !u.assigned && c != 0xFFFF))
            return true;
    }
    return false;
}

/// The lu_ctype_abc mask that unit `c` with record `u` must have.
inline unsigned int ExpectedMask(unsigned short c, const Unit& u) {
    const char* const bits[] = {"", "Zs L* N* P* S* M*", "Cc Cf Zl Zp", "Lu", "Ll", "L*", "Nd", "",
                                "", "L* N* P* S* M*"};
    unsigned int mask = u.whiteSpace ? 0x200000u : 0;
    for (int bit = 0; bit < 10; ++bit) mask |= Holds(c, u, bits[bit]) ? 1u << bit : 0;
    const bool hex = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    return mask | (hex ? 0x0100u : 0);
}

/// Runs `check` on every unit; "" when it returned "" for all, else how many
/// failed and the first, as "U+XXXX: <what check returned>".
template <class Check>
std::string FailingUnits(Check check) {
    std::string first;
    int count = 0;
    for (unsigned int c = 0; c <= 0xFFFF; ++c) {
        const std::string what = check(static_cast<unsigned short>(c));
        if (!what.empty() && count++ == 0) first = "U+" + std::to_string(c) + " (decimal): " + what;
    }
    return count == 0 ? "" : std::to_string(count) + " units fail, first " + first;
}

}  // namespace ucd

#endif  // KAI18N_TESTS_FACETS_UCD_FILES_H

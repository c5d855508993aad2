// The Unicode 3.0 data files, read here without the library's help: one record
// for every 16-bit unit, which the character-class tests compare against.
#ifndef KAI18N_TESTS_FACETS_UCD_FILES_H
#define KAI18N_TESTS_FACETS_UCD_FILES_H

#include <cctype>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace ucd {

struct Unit {
    bool assigned = false;
    std::string category;  // "Lu", "Nd", ...; empty when unassigned
    std::string bidi;      // "L", "AL", "WS", ...; empty when unassigned
    int combining = 0;
    bool mirrored = false;
    bool whiteSpace = false;  // listed under "White space" in PropList
    int upper = -1;           // the simple mappings, -1 for none
    int lower = -1;
    int numerator = 0;  // (0, 0) when the numeric field is empty
    int denominator = 0;
};

inline std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream in(line);
    for (std::string field; std::getline(in, field, ';');) fields.push_back(field);
    return fields;
}

inline int Hex(const std::string& text) {
    return text.empty() ? -1 : static_cast<int>(std::stoul(text, nullptr, 16));
}

inline bool EndsWith(const std::string& text, const std::string& tail) {
    return text.size() >= tail.size() &&
           text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

inline std::vector<Unit> Read() {
    std::vector<Unit> units(0x10000);
    std::ifstream data(KAI18N_UCD_DIR "/UnicodeData-3.0.0.txt");
    int rangeFirst = -1;
    for (std::string line; std::getline(data, line);) {
        const std::vector<std::string> f = Fields(line);
        if (f.size() < 14 || Hex(f[0]) > 0xFFFF) continue;
        Unit u;
        u.assigned = true;
        u.category = f[2];
        u.combining = std::stoi(f[3]);
        u.bidi = f[4];
        u.mirrored = f[9] == "Y";
        u.upper = Hex(f[12]);
        u.lower = Hex(f[13]);
        if (!f[8].empty()) {
            const std::size_t slash = f[8].find('/');
            u.numerator = std::stoi(f[8].substr(0, slash));
            u.denominator = slash == std::string::npos ? 1 : std::stoi(f[8].substr(slash + 1));
        }
        const int code = Hex(f[0]);
        if (EndsWith(f[1], ", First>")) {
            rangeFirst = code;
            continue;
        }
        for (int c = EndsWith(f[1], ", Last>") ? rangeFirst : code; c <= code; ++c) units[c] = u;
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

/// Whether `u`'s category is one of the space-separated `set`; "L*" stands for every "L?".
inline bool Category(const Unit& u, const std::string& set) {
    std::istringstream in(set);
    for (std::string token; in >> token;)
        if (u.assigned && (token == u.category || (token[1] == '*' && token[0] == u.category[0])))
            return true;
    return false;
}

/// Whether `u`'s direction is one of the space-separated `set`.
inline bool Direction(const Unit& u, const std::string& set) {
    std::istringstream in(set);
    for (std::string token; in >> token;)
        if (u.assigned && token == u.bidi) return true;
    return false;
}

/// The lu_ctype_abc mask that unit `c` with record `u` must have.
inline unsigned int ExpectedMask(unsigned short c, const Unit& u) {
    const bool hex = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    return (Category(u, "Zs L* N* P* S* M*") ? 0x0002u : 0) |
           (Category(u, "Cc Cf Zl Zp") ? 0x0004u : 0) | (Category(u, "Lu") ? 0x0008u : 0) |
           (Category(u, "Ll") ? 0x0010u : 0) | (Category(u, "L*") ? 0x0020u : 0) |
           (Category(u, "Nd") ? 0x0040u : 0) | (hex ? 0x0100u : 0) |
           (Category(u, "L* N* P* S* M*") ? 0x0200u : 0) | (u.whiteSpace ? 0x200000u : 0);
}

/// Runs `check` on every unit; "" when it returned "" for all, else how many
/// failed and the first few, each as "U+XXXX: <what check returned>".
template <class Check>
std::string FailingUnits(Check check) {
    std::string shown;
    int count = 0;
    for (unsigned int c = 0; c <= 0xFFFF; ++c) {
        const std::string what = check(static_cast<unsigned short>(c));
        if (what.empty() || ++count > 5) continue;
        char unit[16];
        std::snprintf(unit, sizeof unit, "U+%04X: ", c);
        shown += std::string(unit) + what + "\n";
    }
    return count == 0 ? "" : std::to_string(count) + " units fail, first:\n" + shown;
}

}  // namespace ucd

#endif  // KAI18N_TESTS_FACETS_UCD_FILES_H

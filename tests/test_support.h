// Helpers shared by the test programs.
#ifndef KAI18N_TESTS_TEST_SUPPORT_H
#define KAI18N_TESTS_TEST_SUPPORT_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kai18n/platform/kalib.h"
#include "kai18n/strings/ucs2string.h"

namespace test_support {

using Units = std::vector<unsigned short>;
using Bytes = std::vector<unsigned char>;

inline Units UnitsOf(const std::u16string& text) {
    return Units(text.begin(), text.end());
}

inline Units UnitsOf(const ucs2string& s) {
    return Units(s.data(), s.data() + s.length());
}

// A ucs2string from a UTF-16 literal, built unit by unit so that the test does
// not depend on the conversions under test.
inline ucs2string Str(const std::u16string& text) {
    const Units units = UnitsOf(text);
    return ucs2string(units.data(), static_cast<unsigned int>(units.size()));
}

inline std::u16string U16(const ucs2string& s) {
    return std::u16string(s.data(), s.data() + s.length());
}

inline const unsigned char* Utf8(const char* text) {
    return reinterpret_cast<const unsigned char*>(text);
}

// The result code of the LUException that `action` throws, or 0 if it throws none.
template <class Action>
long ThrownCode(Action&& action) {
    try {
        action();
    } catch (const LUException& error) {
        return error.GetResult();
    }
    return 0;
}

}  // namespace test_support

#endif  // KAI18N_TESTS_TEST_SUPPORT_H

// Runs a program of edits, read from the input, on a ucs2string and a
// lu_utf8string beside std::u16string and std::string models. Positions are
// taken modulo a little more than the length, so that out-of-range positions
// are tried too; those must throw LU_E_OUT_OF_RANGE and change nothing.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/strings/ucs2string.h"

namespace {

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
    bool more() const { return m_pos < m_size; }
    unsigned byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    unsigned short unit() { return static_cast<unsigned short>((byte() << 8) | byte()); }

  private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_pos = 0;
};

template <class Action>
bool ThrowsOutOfRange(Action&& action) {
    return ThrowsOnly(LU_E_OUT_OF_RANGE, action);
}

unsigned Unit(char c) {
    return static_cast<unsigned char>(c);
}
unsigned Unit(char16_t c) {
    return c;
}

// The string holds exactly the model's units and is zero-terminated.
template <class String, class Model>
void Compare(const String& s, const Model& model) {
    Check(s.length() == model.size());
    for (unsigned int i = 0; i < s.length(); ++i) Check(s.data()[i] == Unit(model[i]));
    Check(s.c_str()[s.length()] == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input in(data, size);
    ucs2string wide;
    std::u16string wideModel;
    lu_utf8string narrow;
    std::string narrowModel;
    while (in.more()) {
        const unsigned op = in.byte() % 7;
        const auto pos = static_cast<unsigned int>(in.byte() % (wideModel.size() + 3));
        const unsigned int n = in.byte() % 6;
        std::u16string text(in.byte() % 5, u'\0');
        for (char16_t& unit : text) unit = static_cast<char16_t>(in.unit() | 1);  // no zero units
        const ucs2string source(reinterpret_cast<const unsigned short*>(text.data()),
                                static_cast<unsigned int>(text.size()));
        const bool outOfRange = pos > wideModel.size();
        switch (op) {
            case 0:
                Check(ThrowsOutOfRange([&] { wide.replace(pos, n, source); }) == outOfRange);
                if (!outOfRange) wideModel.replace(pos, n, text);
                break;
            case 1:
                Check(ThrowsOutOfRange([&] { wide.insert(pos, wide); }) == outOfRange);
                if (!outOfRange) wideModel.insert(pos, std::u16string(wideModel));
                if (wideModel.size() > 4096) {
                    wide.clear();
                    wideModel.clear();
                }
                break;
            case 2:
                Check(ThrowsOutOfRange([&] { wide.erase(pos, n); }) == outOfRange);
                if (!outOfRange) wideModel.erase(pos, n);
                break;
            case 3:
                wide.resize(pos, u'#');
                wideModel.resize(pos, u'#');
                break;
            case 4: {
                // UTF-16 into the UTF-8 string, then back: well-formed BMP text round-trips.
                const auto bytePos =
                    static_cast<unsigned int>(in.byte() % (narrowModel.size() + 3));
                const lu_utf8string encoded(source);
                const bool narrowOutOfRange = bytePos > narrowModel.size();
                Check(ThrowsOutOfRange([&] { narrow.replace(bytePos, n, source); }) ==
                      narrowOutOfRange);
                if (!narrowOutOfRange) {
                    narrowModel.replace(bytePos, n, reinterpret_cast<const char*>(encoded.c_str()),
                                        encoded.length());
                }
                break;
            }
            case 5:
                narrow.append(narrow);
                narrowModel += std::string(narrowModel);
                if (narrowModel.size() > 4096) {
                    narrow.clear();
                    narrowModel.clear();
                }
                break;
            default:
                wide.assign(narrow);
                ThrowsOnly(LU_E_INVALID_ARG, [&] { Check(ucs2string(narrow) == wide); });
                wideModel.assign(wide.data(), wide.data() + wide.length());
                break;
        }
        Compare(wide, wideModel);
        Compare(narrow, narrowModel);
    }
    return 0;
}

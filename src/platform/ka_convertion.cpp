#include "kai18n/platform/ka_convertion.h"

#include <unicode/ucnv.h>

#include <cstdint>

#include "platform/encoding/encoding_exceptions.h"
#include "platform/encoding/engine_status.h"

namespace {

static_assert(sizeof(UChar) == sizeof(unsigned short), "UTF-16 units of the same size");

// A converter opened for one call and closed on every way out.
class OpenedConverter {
  public:
    explicit OpenedConverter(const std::string& name) : m_converter(nullptr) {
        UErrorCode status = U_ZERO_ERROR;
        // An empty name would give the platform's default converter.
        if (name.empty()) status = U_FILE_ACCESS_ERROR;
        if (U_SUCCESS(status)) m_converter = ucnv_open(name.c_str(), &status);
        kaCheckEngineStatus(status, EngineStep::kOpen, name.c_str());
    }
    OpenedConverter(const OpenedConverter&) = delete;
    OpenedConverter& operator=(const OpenedConverter&) = delete;
    ~OpenedConverter() {
        if (m_converter != nullptr) ucnv_close(m_converter);
    }

    UConverter* get() const { return m_converter; }

  private:
    UConverter* m_converter;
};

// The length of [first, last) as the engine's 32-bit count, and the capacity
// as one too; a null target measures.
template <class In, class Out>
std::int32_t CheckArguments(const In* first, const In* last, Out*& target, long& capacity) {
    if ((first == nullptr) != (last == nullptr) || last < first) {
        throw bt_out_of_range("a source range ends before it starts");
    }
    if (capacity < 0) throw bt_out_of_range("a negative capacity");
    if (last - first > INT32_MAX) throw bt_out_of_range("a text of 2 GiB or more");
    if (target == nullptr) capacity = 0;
    if (capacity > INT32_MAX) capacity = INT32_MAX;
    return static_cast<std::int32_t>(last - first);
}

}  // namespace

kaConvertion::kaConvertion(const char* name) : m_name(name != nullptr ? name : "") {}

kaConvertion::kaConvertion(const kaConvertion& other) = default;

kaConvertion& kaConvertion::operator=(const kaConvertion& other) = default;

kaConvertion::~kaConvertion() = default;

bool kaConvertion::IsSupported(const char* name) {
    if (name == nullptr || *name == '\0') return false;
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(name, &status);
    if (converter != nullptr) ucnv_close(converter);
    return U_SUCCESS(status);
}

long kaConvertion::toUnicode(const char* first, const char* last, unsigned short* target,
                             long capacity) const {
    const std::int32_t length = CheckArguments(first, last, target, capacity);
    const OpenedConverter converter(m_name);
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t units =
        ucnv_toUChars(converter.get(), reinterpret_cast<UChar*>(target),
                      static_cast<std::int32_t>(capacity), first, length, &status);
    // Too small a target (or none) still gives the whole length.
    if (status == U_BUFFER_OVERFLOW_ERROR) status = U_ZERO_ERROR;
    kaCheckEngineStatus(status, EngineStep::kDecode, m_name.c_str());
    return units;
}

long kaConvertion::fromUnicode(const unsigned short* first, const unsigned short* last,
                               char* target, long capacity) const {
    const std::int32_t length = CheckArguments(first, last, target, capacity);
    const OpenedConverter converter(m_name);
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t bytes =
        ucnv_fromUChars(converter.get(), target, static_cast<std::int32_t>(capacity),
                        reinterpret_cast<const UChar*>(first), length, &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) status = U_ZERO_ERROR;
    kaCheckEngineStatus(status, EngineStep::kEncode, m_name.c_str());
    return bytes;
}

kaEncoding::kaEncoding() = default;
kaEncoding::kaEncoding(const kaEncoding&) = default;
kaEncoding::~kaEncoding() = default;
kaEncoding& kaEncoding::operator=(const kaEncoding&) = default;

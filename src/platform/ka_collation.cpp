// kaCollation on ICU's collator.
//
// Threads: the body holds an icu::Collator and calls only its const members
// (compare, compareUTF8, getSortKey, getLocale). ICU's design guide promises
// that a service object may be used by several threads at once as long as
// every one of them calls only const APIs (const members in C++, functions
// taking a const service pointer in C); only a non-const call (setAttribute,
// setStrength, ...) next to others is unsafe. The collator is never changed
// after it is made here, so no lock and no clone per thread is needed. The
// body's count is atomic, so that handles that share it may be copied and
// destroyed on different threads.
#include "kai18n/platform/ka_collation.h"

#include <unicode/char16ptr.h>
#include <unicode/coll.h>
#include <unicode/locid.h>
#include <unicode/stringpiece.h>

#include <atomic>
#include <climits>
#include <cstring>
#include <memory>

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

class kaCollation::Body {
  public:
    explicit Body(const char* name) : m_count(1) {
        UErrorCode status = U_ZERO_ERROR;
        m_collator.reset(icu::Collator::createInstance(LocaleOf(name), status));
        if (U_FAILURE(status) || !m_collator) {
            LUException::Raise(
                status == U_MEMORY_ALLOCATION_ERROR ? LU_E_OUT_OF_MEMORY : LU_E_INTERNAL,
                "the collation data could not be loaded");
        }
    }

    Body(const Body&) = delete;
    Body& operator=(const Body&) = delete;

    void Acquire() { m_count.fetch_add(1, std::memory_order_relaxed); }
    // The last release deletes; acquire-release so that the deleting thread
    // sees every use that other owners made before they let go.
    void Release() {
        if (m_count.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
    }

    const icu::Collator& collator() const { return *m_collator; }

  private:
    ~Body() = default;

    // "i18n", the identification code of the locale-independent order, and
    // the empty text (a locale without identity) name the root order.
    static icu::Locale LocaleOf(const char* name) {
        if (name == nullptr || *name == '\0' || std::strcmp(name, "i18n") == 0)
            return icu::Locale::getRoot();
        return icu::Locale(name);
    }

    std::atomic<long> m_count;
    std::unique_ptr<icu::Collator> m_collator;
};

namespace {

// A range's length in ICU's 32-bit count; longer ranges are refused.
template <class Unit>
int32_t LengthOf(const Unit* first, const Unit* last) {
    const std::ptrdiff_t length = last - first;
    if (length < 0) LUException::Raise(LU_E_INVALID_ARG, "a range ends before it starts");
    if (length > INT32_MAX) LUException::Raise(LU_E_STRING_TOO_LONG);
    return static_cast<int32_t>(length);
}

// ICU turns away a null pointer only with a non-zero length, but an empty
// range may come as two null pointers; give it a real address all the same.
const unsigned short kNoUnits[1] = {0};
const char kNoBytes[1] = {0};

const char16_t* Utf16(const unsigned short* first, const unsigned short* last) {
    // ConstChar16Ptr is ICU's sanctioned bridge from uint16_t to char16_t.
    return icu::ConstChar16Ptr(first != last ? first : kNoUnits).get();
}

const char* Utf8(const unsigned char* first, const unsigned char* last) {
    return first != last ? reinterpret_cast<const char*>(first) : kNoBytes;
}

int Sign(UCollationResult result) {
    return result < 0 ? -1 : result > 0 ? 1 : 0;
}

void Check(UErrorCode status) {
    if (U_FAILURE(status))
        LUException::Raise(status == U_MEMORY_ALLOCATION_ERROR ? LU_E_OUT_OF_MEMORY
                                                               : LU_E_INTERNAL);
}

}  // namespace

kaCollation::kaCollation(const char* locale) : m_body(new Body(locale)) {}

kaCollation::kaCollation(const kaCollation& other) : m_body(other.m_body) {
    m_body->Acquire();
}

kaCollation& kaCollation::operator=(const kaCollation& other) {
    // Take the new count first: `other` may be this object.
    other.m_body->Acquire();
    m_body->Release();
    m_body = other.m_body;
    return *this;
}

kaCollation::~kaCollation() {
    m_body->Release();
}

int kaCollation::CompareStrings(const unsigned short* first1, const unsigned short* last1,
                                const unsigned short* first2, const unsigned short* last2) const {
    const int32_t length1 = LengthOf(first1, last1);
    const int32_t length2 = LengthOf(first2, last2);
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult result = m_body->collator().compare(
        Utf16(first1, last1), length1, Utf16(first2, last2), length2, status);
    Check(status);
    return Sign(result);
}

int kaCollation::CompareStrings(const unsigned char* first1, const unsigned char* last1,
                                const unsigned char* first2, const unsigned char* last2) const {
    const icu::StringPiece text1(Utf8(first1, last1), LengthOf(first1, last1));
    const icu::StringPiece text2(Utf8(first2, last2), LengthOf(first2, last2));
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult result = m_body->collator().compareUTF8(text1, text2, status);
    Check(status);
    return Sign(result);
}

// ICU ends its key with a zero byte and puts no other zero in it, so that keys
// compare with strcmp(). The terminator is left out: a key that is a proper
// prefix of another already orders first as a shorter std::string, so the
// order stays the same, and the key is exactly the bytes that carry weight.
void kaCollation::BuildSortKey(std::string& key, const unsigned short* first,
                               const unsigned short* last) const {
    const int32_t length = LengthOf(first, last);
    const char16_t* const text = Utf16(first, last);
    const icu::Collator& collator = m_body->collator();
    // Most keys fit in a few bytes a unit; a longer one is asked for again.
    key.resize(static_cast<std::size_t>(length) * 4 + 16);
    int32_t needed = collator.getSortKey(text, length, reinterpret_cast<uint8_t*>(&key[0]),
                                         static_cast<int32_t>(key.size()));
    if (needed > static_cast<int32_t>(key.size())) {
        key.resize(static_cast<std::size_t>(needed));
        needed = collator.getSortKey(text, length, reinterpret_cast<uint8_t*>(&key[0]), needed);
    }
    if (needed <= 0) LUException::Raise(LU_E_INTERNAL, "no sort key");
    key.resize(static_cast<std::size_t>(needed) - 1);
}

std::string kaCollation::GetActualLocale() const {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale actual = m_body->collator().getLocale(ULOC_ACTUAL_LOCALE, status);
    Check(status);
    const char* name = actual.getName();
    return *name == '\0' ? std::string("root") : std::string(name);
}

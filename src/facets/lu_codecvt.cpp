#include "kai18n/facets/lu_codecvt.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "facets/string_sinks.h"
#include "frame/encoding_exception_translator.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"

namespace {

struct EncodingName {
    const char* technical;
    const char* display;
};

// Sorted by technical name in byte order, for the binary search. The display
// names are the library's published texts, spelling included.
const EncodingName kEncodingNames[] = {
    {"Adobe-Standard-Encoding", "Postscript (Adobe Standart)"},
    {"Big5", "Chinese Traditional (Big5)"},
    {"CNS-11643", "Chinese Traditional (EUC-TW)"},
    {"CP1250", "Central European (Windows-1250)"},
    {"CP1251", "Cyrillic (Windows-1251)"},
    {"CP1252", "Western (Windows-1252)"},
    {"CP1253", "Greek (Windows-1253)"},
    {"CP1254", "Turkish (Windows-1254)"},
    {"CP1255", "Hebrew (Windows-1255)"},
    {"CP1256", "Arabic (Windows-1256)"},
    {"CP1257", "Baltic (Windows-1257)"},
    {"CP1258", "Vietnamese (Windows-1258)"},
    {"CP437", "IBM Latin US (CP437)"},
    {"CP850", "IBM Latin1 (CP850)"},
    {"CP852", "IBM Slavic (CP852)"},
    {"CP855", "IBM Cyrillic (CP855)"},
    {"CP857", "IBM Turkish (CP857)"},
    {"CP860", "IBM Portugese (CP860)"},
    {"CP861", "IBM Icelandic (CP861)"},
    {"CP862", "IBM Hebrew (CP862)"},
    {"CP865", "IBM Nordic (CP865)"},
    {"CP866", "IBM Cyrillic (CP-866)"},
    {"CP869", "IBM Modern Greek (CP-869)"},
    {"CP874", "IBM Thai (CP-874)"},
    {"CP932", "Japanese (Windows-932)"},
    {"CP936", "Chinese Simplified (CP936)"},
    {"CP949", "Korean (Windows-949)"},
    {"CP950", "Chinese Traditional (CP950)"},
    {"EUC-JP", "Japanese (EUC-JP)"},
    {"EUC-KR", "Korean (EUC-KR)"},
    {"GB18030", "Chinese (GB18030)"},
    {"GB2312", "Chinese Simplified (GB2312)"},
    {"HZ-GB-2312", "Chinese Simplified (HZ-GB2312)"},
    {"ISO-2022-JP", "Japanese (ISO-2022-JP)"},
    {"ISO-2022-KR", "Korean (ISO-2022-KR)"},
    {"ISO-8859-1", "Western (ISO-8859-1)"},
    {"ISO-8859-14", "Celtic (ISO-8859-14)"},
    {"ISO-8859-15", "Western (ISO-8859-15)"},
    {"ISO-8859-2", "Central European (ISO-8859-2)"},
    {"ISO-8859-3", "South European (ISO-8859-3)"},
    {"ISO-8859-4", "Baltic (ISO-8859-4)"},
    {"ISO-8859-5", "Cyrillic (ISO-8859-5)"},
    {"ISO-8859-6", "Arabic (ISO-8859-6)"},
    {"ISO-8859-7", "Greek (ISO-8859-7)"},
    {"ISO-8859-8", "Hebrew (ISO-8859-8)"},
    {"ISO-8859-9", "Turkish (ISO-8859-9)"},
    {"MacCentralEuropean", "Central European (MacCE)"},
    {"MacCroatian", "Croatian (MacCroatian)"},
    {"MacCyrillic", "Cyrillic (MacCyrillic)"},
    {"MacGreek", "Greek (MacGreek)"},
    {"MacIcelandic", "Icelandic (MacIcelandic)"},
    {"MacJapanese", "Japanese (MacJapanese)"},
    {"MacRoman", "Western (MacRoman)"},
    {"MacRomanian", "Romanian (MacRomanian)"},
    {"MacThai", "Thai (MacThai)"},
    {"MacTurkish", "Turkish (MacTurkish)"},
    {"MacUkrainian", "Cyrillic/Ukrainian (MacUkrainian)"},
    {"Shift-JIS", "Japanese (Shift_JIS)"},
    {"Thai", "Thai (ISO-8859-11)"},
};

const CharEncoding& DefaultExternal() {
    return CharEncoding::CP1252();
}

}  // namespace

lu_codecvt_abc::~lu_codecvt_abc() = default;

lu_locale::id lu_codecvt::id;

lu_codecvt::lu_codecvt(unsigned int refs)
    : lu_codecvt_abc(refs),
      m_external(&DefaultExternal()),
      m_internal(&Char16Encoding::UTF16()),
      m_useConversion(false),
      m_conversion(nullptr) {}

lu_codecvt::lu_codecvt(unsigned int refs, const CharEncoding& external,
                       const Char16Encoding& internal, kaConvertion* conversion, bool useConversion)
    : lu_codecvt_abc(refs),
      m_external(&external),
      m_internal(&internal),
      m_useConversion(useConversion),
      m_conversion(conversion) {}

lu_codecvt::~lu_codecvt() {
    delete m_conversion;
}

// ---------------------------------------------------------------------------
// The slots

lu_codecvt::result lu_codecvt::do_out(state_type&, const unsigned short* from,
                                      const unsigned short* fromEnd,
                                      const unsigned short*& fromNext, char* to, char* toEnd,
                                      char*& toNext) const {
    try {
        BufferChar16Source source(from, fromEnd);
        CharEncodingConverter converter(source, *m_internal, *m_external);
        BufferCharSink sink(to, static_cast<long>(toEnd - to));
        sink.Put(converter);
        sink.Flush();
    } catch (...) {
        kaTranslateEncodingException();
    }
    fromNext = fromEnd;
    toNext = toEnd;
    return from != fromEnd ? partial : ok;
}

lu_codecvt::result lu_codecvt::do_unshift(state_type&, char* to, char*, char*& toNext) const {
    toNext = to;
    return noconv;
}

lu_codecvt::result lu_codecvt::do_in(state_type&, const char* from, const char* fromEnd,
                                     const char*& fromNext, unsigned short* to,
                                     unsigned short* toEnd, unsigned short*& toNext) const {
    try {
        BufferCharSource source(from, fromEnd);
        Char16EncodingConverter converter(source, *m_external, *m_internal);
        BufferChar16Sink sink(to, static_cast<long>(toEnd - to));
        sink.Put(converter);
        sink.Flush();
    } catch (...) {
        kaTranslateEncodingException();
    }
    fromNext = fromEnd;
    toNext = toEnd;
    return ok;
}

int lu_codecvt::do_encoding() const {
    return 1;
}

bool lu_codecvt::do_always_noconv() const {
    return false;
}

int lu_codecvt::do_length(state_type&, const char* from, const char* fromEnd,
                          std::size_t max) const {
    const auto bytes = static_cast<std::size_t>(fromEnd - from);
    return static_cast<int>(std::min(bytes, max));
}

int lu_codecvt::do_max_length() const {
    return 1;
}

// ---------------------------------------------------------------------------
// Strings

// Measure, size the target, convert into it. An empty measure is refused:
// the target would have no unit to convert into.
void lu_codecvt::ToUnitsThroughConversion(const char* first, const char* last,
                                          ucs2string& target) const {
    if (m_conversion == nullptr) LUException::Raise(LU_E_ENCODING, "No conversion");
    const long units = m_conversion->toUnicode(first, last, nullptr, 0);
    if (units <= 0) LUException::Raise(LU_E_OUT_OF_RANGE);
    if (units > 0x7FFFFFFFL) LUException::Raise(LU_E_STRING_TOO_LONG);
    target.resize(static_cast<unsigned int>(units));
    m_conversion->toUnicode(first, last, &target[0], units);
}

void lu_codecvt::SetString(const char* first, const char* last, ucs2string& target) const {
    try {
        if (m_useConversion) {
            ToUnitsThroughConversion(first, last, target);
            return;
        }
        BufferCharSource source(first, last);
        Char16EncodingConverter converter(source, *m_external, *m_internal);
        Ucs2StringSink sink(target);
        sink.Put(converter);
        sink.Flush();
    } catch (...) {
        kaTranslateEncodingException();
    }
}

void lu_codecvt::SetString(const char* first, const char* last, lu_utf8string& target) const {
    try {
        if (m_useConversion) {
            ucs2string units;
            ToUnitsThroughConversion(first, last, units);
            target = units;
            return;
        }
        BufferCharSource source(first, last);
        CharEncodingConverter converter(source, *m_external, CharEncoding::Unicode20UTF8());
        Utf8StringSink sink(target);
        sink.Put(converter);
        sink.Flush();
    } catch (...) {
        kaTranslateEncodingException();
    }
}

void lu_codecvt::SetNarrowString(const unsigned short* first, const unsigned short* last,
                                 std::string& target) const {
    try {
        if (m_useConversion) {
            if (m_conversion == nullptr) LUException::Raise(LU_E_ENCODING, "No conversion");
            const long bytes = m_conversion->fromUnicode(first, last, nullptr, 0);
            target.resize(static_cast<std::size_t>(bytes));
            if (bytes > 0) m_conversion->fromUnicode(first, last, target.data(), bytes);
            return;
        }
        BufferChar16Source source(first, last);
        CharEncodingConverter converter(source, *m_internal, *m_external);
        NarrowStringSink sink(target);
        sink.Put(converter);
        sink.Flush();
    } catch (...) {
        kaTranslateEncodingException();
    }
}

const unsigned char* lu_codecvt::GetEncodingDisplayName(const char*& name) {
    if (name == nullptr) return nullptr;
    const EncodingName* const end = std::end(kEncodingNames);
    const EncodingName* const found = std::lower_bound(
        std::begin(kEncodingNames), end, name, [](const EncodingName& row, const char* key) {
            return std::strcmp(row.technical, key) < 0;
        });
    if (found == end || std::strcmp(found->technical, name) != 0) return nullptr;
    name = found->technical;
    return reinterpret_cast<const unsigned char*>(found->display);
}

// ---------------------------------------------------------------------------
// By name

lu_codecvt_byname::lu_codecvt_byname(const char* name, unsigned int refs) : lu_codecvt(refs) {
    // Made first and held here, so that a throw below cannot leak it.
    std::unique_ptr<kaConvertion> conversion(new kaConvertion(name));
    const CharEncoding* external = &DefaultExternal();
    bool useConversion = false;
    if (name != nullptr && *name != '\0') {
        const CharEncoding* found = nullptr;
        bool lookupFailed = false;
        try {
            found = CharEncoding::Lookup(name);
        } catch (...) {
            if (!kaConvertion::IsSupported(name)) kaTranslateEncodingException();
            lookupFailed = true;
        }
        if (found != nullptr) {
            external = found;
        } else if (lookupFailed || kaConvertion::IsSupported(name)) {
            // CP1252 stays as the external encoding but plays no part.
            useConversion = true;
        } else {
            LUException::Raise(LU_E_ENCODING);
        }
    }
    m_external = external;
    m_internal = &Char16Encoding::UTF16();
    m_useConversion = useConversion;
    m_conversion = conversion.release();
}

lu_codecvt_byname::~lu_codecvt_byname() = default;

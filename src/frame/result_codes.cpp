#include "kai18n/frame/result_codes.h"

namespace {

struct ResultText {
    long code;
    const char* text;
};

constexpr ResultText kResultTexts[] = {
    {LU_S_SUCCESS, "success"},
    {LU_S_OK, "success"},
    {LU_S_NO_MATCH, "nothing matches"},
    {LU_E_FAIL, "general failure"},
    {LU_E_OUT_OF_MEMORY, "out of memory"},
    {LU_E_INVALID_ARG, "invalid argument or value"},
    {LU_E_BAD_NUMERIC_FORMAT, "unknown numeric format flag"},
    {LU_E_BAD_UTF8_LEAD, "malformed UTF-8 lead byte"},
    {LU_E_OUT_OF_RANGE, "position or index out of range"},
    {LU_E_SCAN_OVERFLOW, "value does not fit the target integer type"},
    {LU_E_STRING_TOO_LONG, "string too long"},
    {LU_E_NO_FACET, "the locale has no such facet"},
    {LU_E_BAD_CATEGORY, "unknown locale category"},
    {LU_E_INTERNAL, "internal error"},
    {LU_E_FACET_BY_NAME, "facet cannot be built by name"},
    {LU_E_ENCODING, "encoding failure"},
};

}  // namespace

const char* kaResultText(long code) {
    for (const ResultText& entry : kResultTexts) {
        if (entry.code == code) return entry.text;
    }
    return code < 0 ? "unknown failure" : "unknown success";
}

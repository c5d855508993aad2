#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <tuple>

#include "frame/encoding_exception_translator.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/platform/kalib.h"
#include "platform/encoding/encoding_exceptions.h"
#include "test_support.h"

using test_support::Utf8;

namespace {

TEST(ResultCodeTest, FailuresAreNegativeAndSuccessesAreNot) {
    // The codes keep their 32-bit meaning in a 64-bit long.
    EXPECT_EQ(LU_E_OUT_OF_RANGE, -2147217112L);  // 0x80041128 as a signed 32-bit value
    EXPECT_EQ(LU_E_FAIL, -2147467259L);          // 0x80004005
    for (long code :
         {LU_E_FAIL, LU_E_OUT_OF_MEMORY, LU_E_INVALID_ARG, LU_E_BAD_NUMERIC_FORMAT,
          LU_E_BAD_UTF8_LEAD, LU_E_OUT_OF_RANGE, LU_E_SCAN_OVERFLOW, LU_E_STRING_TOO_LONG,
          LU_E_NO_FACET, LU_E_BAD_CATEGORY, LU_E_INTERNAL, LU_E_FACET_BY_NAME, LU_E_ENCODING}) {
        EXPECT_TRUE(kaFailed(code)) << std::hex << code;
        EXPECT_EQ(static_cast<std::uint32_t>(code) >> 31, 1u);
    }
    for (long code : {LU_S_SUCCESS, LU_S_OK, LU_S_NO_MATCH}) EXPECT_FALSE(kaFailed(code));
    EXPECT_EQ(LU_S_OK, 0x00041100L);
    EXPECT_EQ(LU_S_NO_MATCH, 0x00041121L);
}

TEST(ResultCodeTest, ScanOverflowIsTheMaskAddedToSuccess) {
    const std::uint32_t sum = static_cast<std::uint32_t>(LU_S_OK) + LU_SCAN_OVERFLOW_MASK;
    EXPECT_EQ(kaResultCode(sum), LU_E_SCAN_OVERFLOW);
}

TEST(LUExceptionTest, CopyDuringThrowKeepsCodeAndMessage) {
    try {
        LUException::Raise(LU_E_INVALID_ARG, "bad lcid");
        FAIL() << "Raise returned";
    } catch (const LUException& error) {
        const LUException copy(error);
        EXPECT_EQ(copy.GetResult(), LU_E_INVALID_ARG);
        EXPECT_EQ(copy.GetMessage(), "bad lcid");
        EXPECT_STREQ(copy.what(), "bad lcid");
    }
}

TEST(LUExceptionTest, MessageIsEmptyUnlessSetAndNullLeavesIt) {
    LUException error(LU_E_OUT_OF_RANGE);
    EXPECT_TRUE(error.GetMessage().empty());
    EXPECT_STREQ(error.what(), "position or index out of range");
    error.SetMessage("first");
    error.SetMessage(nullptr);
    EXPECT_EQ(error.GetMessage(), "first");
    // Caught as a standard exception too.
    try {
        throw error;
    } catch (const std::exception& e) {
        EXPECT_STREQ(e.what(), "first");
    }
}

// --- the time library's family -------------------------------------------

std::string Inserted(const TimeLib::LUTimeLibException& error) {
    std::ostringstream os;
    os << error;
    return os.str();
}

TEST(TimeLibExceptionTest, PrintTextsCodesAndInsertionAgree) {
    const TimeLib::InternalError internal("get (luField)");
    const TimeLib::IncorrectData incorrect("GregorianCalendar::make ()");
    const TimeLib::UnknownTimeZone unknown(ucs2string(Utf8("Europe/Zürich")));
    const std::pair<const TimeLib::LUTimeLibException*, const char*> cases[] = {
        {&internal, "TimeLib::InternalError : get (luField)"},
        {&incorrect, "TimeLib::IncorrectData : GregorianCalendar::make ()"},
        {&unknown, "TimeLib::UnknownTimeZone : Europe/Zürich"},
    };
    for (const auto& [error, text] : cases) {
        EXPECT_EQ(Inserted(*error), text);
        EXPECT_EQ(error->text(), text);  // DoWhat gives what the insertion writes
    }
    EXPECT_EQ(internal.GetResult(), LU_E_INTERNAL);
    EXPECT_EQ(incorrect.GetResult(), LU_E_INVALID_ARG);
    // The unknown zone carries a positive code.
    EXPECT_EQ(unknown.GetResult(), LU_S_NO_MATCH);
    EXPECT_FALSE(kaFailed(unknown.GetResult()));
    // Caught as an LUException, the print slot is still the derived one.
    try {
        throw TimeLib::InternalError("physicalTime ()");
    } catch (const LUException& error) {
        EXPECT_EQ(Inserted(dynamic_cast<const TimeLib::LUTimeLibException&>(error)),
                  "TimeLib::InternalError : physicalTime ()");
    }
}

// --- translation of the encoding library's exceptions --------------------

// Throws `thrown` through the translator and gives back what came out.
template <class E>
std::exception_ptr Translated(const E& thrown) {
    try {
        try {
            throw thrown;
        } catch (...) {
            kaTranslateEncodingException();
        }
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

template <class E>
LUException TranslatedCode(const E& thrown) {
    try {
        std::rethrow_exception(Translated(thrown));
    } catch (const LUException& error) {
        return error;
    } catch (...) {
    }
    ADD_FAILURE() << "no LUException came out of the translator";
    return LUException(0);
}

// clang-format off
TEST(EncodingExceptionTranslatorTest, EachTypeGetsItsCodeAndMessage) {
    const std::tuple<LUException, long, const char*> cases[] = {
        {TranslatedCode(InvalidOutputEncoding("x")), LU_E_ENCODING, "Invalid ouput encoding"},
        {TranslatedCode(TextEncodingID::Malformed("x")), LU_E_ENCODING, "Malformed encoding variation"},
        {TranslatedCode(TextEncodingID::TooManyVariations("x")), LU_E_ENCODING, "Too many encoding variations"},
        {TranslatedCode(EncodingVariationID::Malformed("x")), LU_E_ENCODING, "Malformed encoding variation"},
        {TranslatedCode(EncodingVariationID::TooManyVariations("x")), LU_E_ENCODING, "Too many encoding variations"},
        {TranslatedCode(EncodingNotLoaded("x")), LU_E_ENCODING, "Encoding not loaded"},
        {TranslatedCode(UnicodeLibraryException("x")), LU_E_ENCODING, "Unicode library error"},
        {TranslatedCode(bt_out_of_range("x")), LU_E_OUT_OF_RANGE, "Unicode library error"},
        {TranslatedCode(bt_exception("x")), LU_E_ENCODING, "Unicode library error"},
    };
    for (const auto& [translated, code, message] : cases) {
        EXPECT_EQ(translated.GetResult(), code) << message;
        EXPECT_EQ(translated.GetMessage(), message);
    }
}
// clang-format on

TEST(EncodingExceptionTranslatorTest, OtherExceptionsPassUnchanged) {
    try {
        std::rethrow_exception(Translated(std::length_error("kept")));
    } catch (const std::length_error& error) {
        EXPECT_STREQ(error.what(), "kept");
    }
    EXPECT_EQ(TranslatedCode(LUException(LU_E_NO_FACET)).GetResult(), LU_E_NO_FACET);
}

}  // namespace

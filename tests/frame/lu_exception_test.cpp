#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "frame/encoding_exception_translator.h"
#include "kai18n/frame/result_codes.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/platform/kalib.h"
#include "platform/encoding/encoding_exceptions.h"

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
    const TimeLib::UnknownTimeZone unknown(
        ucs2string(reinterpret_cast<const unsigned char*>("Europe/Zürich")));

    EXPECT_EQ(Inserted(internal), "TimeLib::InternalError : get (luField)");
    EXPECT_EQ(Inserted(incorrect), "TimeLib::IncorrectData : GregorianCalendar::make ()");
    EXPECT_EQ(Inserted(unknown), "TimeLib::UnknownTimeZone : Europe/Zürich");
    for (const TimeLib::LUTimeLibException* e :
         {static_cast<const TimeLib::LUTimeLibException*>(&internal),
          static_cast<const TimeLib::LUTimeLibException*>(&incorrect),
          static_cast<const TimeLib::LUTimeLibException*>(&unknown)}) {
        EXPECT_EQ(e->text(), Inserted(*e));
    }
    EXPECT_EQ(internal.GetResult(), LU_E_INTERNAL);
    EXPECT_EQ(incorrect.GetResult(), LU_E_INVALID_ARG);
    // The unknown zone carries a positive code.
    EXPECT_EQ(unknown.GetResult(), LU_S_NO_MATCH);
    EXPECT_FALSE(kaFailed(unknown.GetResult()));
}

TEST(TimeLibExceptionTest, CaughtAsLUExceptionKeepsItsPrintSlot) {
    try {
        throw TimeLib::InternalError("physicalTime ()");
    } catch (const LUException& error) {
        const auto* timeError = dynamic_cast<const TimeLib::LUTimeLibException*>(&error);
        ASSERT_NE(timeError, nullptr);
        EXPECT_EQ(timeError->text(), "TimeLib::InternalError : physicalTime ()");
    }
}

// --- translation of the encoding library's exceptions --------------------

template <class E>
LUException TranslatedFrom(const E& thrown) {
    try {
        try {
            throw thrown;
        } catch (...) {
            kaTranslateEncodingException();
        }
    } catch (const LUException& error) {
        return error;
    }
    ADD_FAILURE() << "no LUException came out of the translator";
    return LUException(0);
}

TEST(EncodingExceptionTranslatorTest, EachTypeGetsItsCodeAndMessage) {
    struct Case {
        LUException translated;
        long code;
        const char* message;
    };
    const Case cases[] = {
        {TranslatedFrom(InvalidOutputEncoding("x")), LU_E_ENCODING, "Invalid ouput encoding"},
        {TranslatedFrom(TextEncodingID::Malformed("x")), LU_E_ENCODING,
         "Malformed encoding variation"},
        {TranslatedFrom(TextEncodingID::TooManyVariations("x")), LU_E_ENCODING,
         "Too many encoding variations"},
        {TranslatedFrom(EncodingVariationID::Malformed("x")), LU_E_ENCODING,
         "Malformed encoding variation"},
        {TranslatedFrom(EncodingVariationID::TooManyVariations("x")), LU_E_ENCODING,
         "Too many encoding variations"},
        {TranslatedFrom(EncodingNotLoaded("x")), LU_E_ENCODING, "Encoding not loaded"},
        {TranslatedFrom(UnicodeLibraryException("x")), LU_E_ENCODING, "Unicode library error"},
        {TranslatedFrom(bt_out_of_range("x")), LU_E_OUT_OF_RANGE, "Unicode library error"},
        {TranslatedFrom(bt_exception("x")), LU_E_ENCODING, "Unicode library error"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.translated.GetResult(), c.code) << c.message;
        EXPECT_EQ(c.translated.GetMessage(), c.message);
    }
}

TEST(EncodingExceptionTranslatorTest, OtherExceptionsPassUnchanged) {
    try {
        try {
            throw std::length_error("kept");
        } catch (...) {
            kaTranslateEncodingException();
        }
    } catch (const std::length_error& error) {
        EXPECT_STREQ(error.what(), "kept");
    } catch (...) {
        FAIL() << "the exception was changed";
    }
    try {
        try {
            throw LUException(LU_E_NO_FACET);
        } catch (...) {
            kaTranslateEncodingException();
        }
    } catch (const LUException& error) {
        EXPECT_EQ(error.GetResult(), LU_E_NO_FACET);
    }
}

}  // namespace

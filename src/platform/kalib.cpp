#include "kai18n/platform/kalib.h"

#include "kai18n/frame/result_codes.h"

LUException::LUException(const long& result) : m_result(result) {}

LUException::LUException(const LUException& other)
    : std::exception(other), m_result(other.m_result), m_message(other.m_message) {}

LUException& LUException::operator=(const LUException& other) {
    m_result = other.m_result;
    m_message = other.m_message;
    return *this;
}

LUException::~LUException() = default;

void LUException::Raise(long result, const char* message) {
    LUException error(result);
    error.SetMessage(message);
    throw error;
}

void LUException::SetMessage(const char* message) {
    if (message != nullptr) m_message = message;
}

const char* LUException::what() const noexcept {
    return m_message.empty() ? kaResultText(m_result) : m_message.c_str();
}

iluSharedObject::~iluSharedObject() = default;

// There are no critical-error dialogs to silence on POSIX systems; the mode is
// kept so that a caller can see which scope it built.
const int kaRedirectCriticalErrorMessage::kQuiet = 1;

kaRedirectCriticalErrorMessage::kaRedirectCriticalErrorMessage(int mode) : m_mode(mode) {}

kaRedirectCriticalErrorMessage::~kaRedirectCriticalErrorMessage() = default;

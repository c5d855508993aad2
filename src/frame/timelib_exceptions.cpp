#include "kai18n/frame/timelib_exceptions.h"

#include <ostream>
#include <sstream>

#include "kai18n/frame/result_codes.h"

namespace TimeLib {

LUTimeLibException::~LUTimeLibException() = default;

std::ostream& LUTimeLibException::print(std::ostream& os) const {
    return os << "TimeLib::Exception";
}

std::string LUTimeLibException::DoWhat() const {
    std::ostringstream text;
    print(text);
    return text.str();
}

InternalError::InternalError(const char* detail)
    : LUTimeLibException(LU_E_INTERNAL), m_detail(detail != nullptr ? detail : "") {}

InternalError::~InternalError() = default;

std::ostream& InternalError::print(std::ostream& os) const {
    return os << "TimeLib::InternalError : " << m_detail;
}

IncorrectData::IncorrectData(const char* detail)
    : LUTimeLibException(LU_E_INVALID_ARG), m_detail(detail != nullptr ? detail : "") {}

IncorrectData::~IncorrectData() = default;

std::ostream& IncorrectData::print(std::ostream& os) const {
    return os << "TimeLib::IncorrectData : " << m_detail;
}

UnknownTimeZone::UnknownTimeZone(const ucs2string& zoneId)
    : LUTimeLibException(LU_S_NO_MATCH), m_zoneId(zoneId) {}

UnknownTimeZone::~UnknownTimeZone() = default;

std::ostream& UnknownTimeZone::print(std::ostream& os) const {
    return os << "TimeLib::UnknownTimeZone : " << m_zoneId;
}

std::ostream& operator<<(std::ostream& os, const LUTimeLibException& error) {
    return error.print(os);
}

}  // namespace TimeLib

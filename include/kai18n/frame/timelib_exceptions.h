// The exceptions of the time library. Each prints itself to a stream; the
// free stream insertion and DoWhat give the same text.
#ifndef KAI18N_FRAME_TIMELIB_EXCEPTIONS_H
#define KAI18N_FRAME_TIMELIB_EXCEPTIONS_H

#include <iosfwd>
#include <string>

#include "kai18n/platform/kalib.h"
#include "kai18n/strings/ucs2string.h"

namespace TimeLib {

/// Base of the time library's exceptions; the code is that of the derived class.
class LUTimeLibException : public LUException {
  public:
    ~LUTimeLibException() override;

    /// Writes "TimeLib::Exception", or the derived class's own text.
    virtual std::ostream& print(std::ostream& os) const;

    /// The text that print() writes.
    std::string text() const { return DoWhat(); }

  protected:
    explicit LUTimeLibException(long result) : LUException(result) {}

    /// Runs print() on a string stream and returns what it wrote.
    virtual std::string DoWhat() const;
};

/// An operation of the time library failed inside the calendar engine; the
/// detail names the operation, such as "get (luField)".
class InternalError : public LUTimeLibException {
  public:
    explicit InternalError(const char* detail);
    ~InternalError() override;
    std::ostream& print(std::ostream& os) const override;
    const std::string& detail() const { return m_detail; }

  private:
    std::string m_detail;
};

/// A value given to the time library was rejected; the detail names the operation.
class IncorrectData : public LUTimeLibException {
  public:
    explicit IncorrectData(const char* detail);
    ~IncorrectData() override;
    std::ostream& print(std::ostream& os) const override;
    const std::string& detail() const { return m_detail; }

  private:
    std::string m_detail;
};

/// No time zone has the identifier. Its code, LU_S_NO_MATCH, is not negative:
/// a handler must not assume that a thrown code is a failure code.
class UnknownTimeZone : public LUTimeLibException {
  public:
    explicit UnknownTimeZone(const ucs2string& zoneId);
    ~UnknownTimeZone() override;
    std::ostream& print(std::ostream& os) const override;
    const ucs2string& zoneId() const { return m_zoneId; }

  private:
    ucs2string m_zoneId;
};

/// Writes the exception through its print().
std::ostream& operator<<(std::ostream& os, const LUTimeLibException& error);

}  // namespace TimeLib

#endif  // KAI18N_FRAME_TIMELIB_EXCEPTIONS_H

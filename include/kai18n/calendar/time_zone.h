// TimeZone: the rule set a calendar asks for offsets, with one identifier.
//
// In the engine's signatures a year, month, day, time or offset is a signed
// 32-bit integer, and an era or weekday an unsigned byte. Offsets are
// milliseconds, positive east of Greenwich; months count from 0, weekdays
// from Sunday = 1.
#ifndef KAI18N_CALENDAR_TIME_ZONE_H
#define KAI18N_CALENDAR_TIME_ZONE_H

#include <cstdint>

#include "kai18n/calendar/uerror.h"
#include "kai18n/strings/ucs2string.h"

class TimeZone {
  public:
    virtual ~TimeZone();

    /// The same dynamic class and equal identifiers.
    virtual bool operator==(const TimeZone& other) const;

    /// The offset of local standard time `millis` into the given day, with the
    /// length of its month.
    virtual std::int32_t getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                                   std::int32_t day, std::uint8_t dayOfWeek, std::int32_t millis,
                                   std::int32_t monthLength, UErrorCode& status) const = 0;
    virtual std::int32_t getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                                   std::int32_t day, std::uint8_t dayOfWeek,
                                   std::int32_t millis) const = 0;
    virtual std::int32_t getOffset(std::uint8_t era, std::int32_t year, std::int32_t month,
                                   std::int32_t day, std::uint8_t dayOfWeek, std::int32_t millis,
                                   UErrorCode& status) const = 0;
    virtual void setRawOffset(std::int32_t offsetMillis) = 0;
    virtual std::int32_t getRawOffset() const = 0;
    virtual bool useDaylightTime() const = 0;
    virtual bool inDaylightTime(double date, UErrorCode& status) const = 0;
    /// Equal raw offsets and equal use of daylight time.
    virtual bool hasSameRules(const TimeZone& other) const;
    virtual TimeZone* clone() const = 0;
    virtual UClassID getDynamicClassID() const = 0;

    bool operator!=(const TimeZone& other) const { return !operator==(other); }

    /// Copies the identifier into `id` and returns it.
    ucs2string& getID(ucs2string& id) const;
    /// Rules do not depend on the identifier.
    void setID(const ucs2string& id);

    static UClassID getStaticClassID() { return &fgClassID; }
    static char fgClassID;

    /// A zone of raw offset 0 named "GMT", made by ICUTimeZoneInitExit.
    static const TimeZone* GMT;

  protected:
    TimeZone();
    explicit TimeZone(const ucs2string& id);
    TimeZone(const TimeZone& other);
    TimeZone& operator=(const TimeZone& other);

  private:
    ucs2string ID;
};

/// Counting guard of the process-wide zone state: the thread toolkit, the
/// zone lock and TimeZone::GMT come up with the first count and go with the last.
class ICUTimeZoneInitExit {
  public:
    ICUTimeZoneInitExit();
    ~ICUTimeZoneInitExit();
    ICUTimeZoneInitExit(const ICUTimeZoneInitExit&) = delete;
    ICUTimeZoneInitExit& operator=(const ICUTimeZoneInitExit&) = delete;

    static int count;
    static void init();
    static void exit();
};

#endif  // KAI18N_CALENDAR_TIME_ZONE_H

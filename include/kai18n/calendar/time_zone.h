// TimeZone: the rule set a calendar asks for offsets, with one identifier.
//
// In the engine's signatures a year, month, day, time or offset is a signed
// 32-bit integer, and an era or weekday an unsigned byte. Offsets are
// milliseconds, positive east of Greenwich; months count from 0, weekdays
// from Sunday = 1.
#ifndef KAI18N_CALENDAR_TIME_ZONE_H
#define KAI18N_CALENDAR_TIME_ZONE_H

#include <atomic>
#include <cstdint>

#include "kai18n/calendar/uerror.h"
#include "kai18n/strings/ucs2string.h"

// The layout of a loadable zone data file. The engine declares how such a file
// would be recognised and searched; no file of this kind is shipped, and
// nothing loads one, so the tables below stay null.

/// The header that precedes a data file: 20 bytes of identification.
struct UDataInfo {
    std::uint16_t size;  // bytes of this header, at least 20
    std::uint16_t reservedWord;
    std::uint8_t isBigEndian;    // 0: little-endian
    std::uint8_t charsetFamily;  // 0: ASCII
    std::uint8_t sizeofUChar;    // bytes of a code unit
    std::uint8_t reservedByte;
    std::uint8_t dataFormat[4];     // "zone"
    std::uint8_t formatVersion[4];  // major, minor, revision, build
    std::uint8_t dataVersion[4];
};

/// The start of a zone data file's body. Every table is placed by its byte
/// offset from the start of the header.
struct TZHeader {
    std::uint32_t versionYear;
    /// Identifiers in the file, and entries of the identifier index.
    std::uint32_t count;
    /// Byte offset of `count` byte offsets, each of a zero-terminated UTF-16
    /// identifier; the identifiers are sorted by code unit.
    std::uint32_t nameIndexDelta;
};

// Layouts that the data file would settle; the engine only hands out pointers.
struct TZEquivalencyGroup;
struct OffsetIndex;
struct CountryIndex;

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

    // The default zone: the host's zone, read on first use, unless a caller
    // sets another. Swapped and cloned under the zone lock.

    /// A clone of the default zone, owned by the caller.
    static TimeZone* createDefault();
    /// Makes `zone` the default and deletes the old one; null is ignored.
    static void adoptDefault(TimeZone* zone);
    /// adoptDefault(zone.clone()).
    static void setDefault(const TimeZone& zone);
    /// Reads the host's zone into the default when there is none yet.
    static void initDefault();

    /// One of three built-in zones ("America/New_York", "Europe/Paris",
    /// "Asia/Tokyo") for an identical identifier, otherwise a clone of GMT
    /// named "GMT". Never fails and parses nothing; the caller owns the zone.
    static TimeZone* createTimeZone(const ucs2string& id);
    /// A new array of `count` = 3 pointers to the identifiers of createTimeZone,
    /// in the order above. The caller deletes the array (delete[]), never the strings.
    static const ucs2string** createAvailableIDs(std::int32_t& count);

  protected:
    // The zone data file. None is loaded: the tables stay null.

    static const TZHeader* DATA;
    /// For each identifier of the sorted name index, the byte offset of its
    /// equivalency group from DATA.
    static const std::uint32_t* INDEX_BY_ID;
    static const OffsetIndex* INDEX_BY_OFFSET;
    static const CountryIndex* INDEX_BY_COUNTRY;

    /// Whether a data file's header describes zone data this engine can read:
    /// at least 20 bytes, little-endian, charset family 0, format "zone",
    /// major format version 4. The other arguments are the loader's and unused.
    static bool isDataAcceptable(void* context, const char* type, const char* name,
                                 const UDataInfo* info);
    /// The equivalency group of `id` in the loaded data file, or null when
    /// there is no data file or the identifier is not in it.
    static const TZEquivalencyGroup* lookupEquivalencyGroup(const ucs2string& id);

    TimeZone();
    explicit TimeZone(const ucs2string& id);
    TimeZone(const TimeZone& other);
    TimeZone& operator=(const TimeZone& other);

  private:
    ucs2string ID;

    // Read without the lock first (double-checked), hence atomic.
    static std::atomic<TimeZone*> fgDefaultZone;
    friend class ICUTimeZoneInitExit;  // deletes the default zone at shut-down

    /// Fills ZONE_IDS once, under the zone lock.
    static void loadZoneData();
    /// The identifiers of createTimeZone: a heap array of three, made by
    /// loadZoneData and kept for the life of the process, so that it exists
    /// whatever the order of static initialisation and destruction.
    static const ucs2string* ZONE_IDS;
    /// ZONE_IDS is filled. Read without the lock first, hence atomic: a reader
    /// that sees it set also sees the strings.
    static std::atomic<bool> DATA_LOADED;
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

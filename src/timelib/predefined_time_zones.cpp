// The predefined time zones: the zone index, the time belt, the handles it
// hands out, and the choice of an identifier for an offset.
#include "kai18n/timelib/predefined_time_zones.h"

#include <cstdint>
#include <map>
#include <memory>
#include <tuple>
#include <utility>

#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/frame/init_exit.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/strings/lu_utf8string.h"
#include "kai18n/timelib/timelib_init_exit.h"
#include "timelib/predefined_zone_table.h"

namespace TimeLib {

namespace {

/// Identifier to record index, for every table identifier and "localhost_tz".
using ZoneIndex = std::map<ucs2string, std::uint32_t>;

ZoneIndex* s_zoneIndex = nullptr;
luTimeBelt* s_timeBelt = nullptr;

const char* LocalHostIdText() {
    return kPredefinedZoneIds[kPredefinedZoneIdCount].text;
}

// The identifiers are kept narrow in the table; callers speak UTF-16.
ucs2string Widened(const char* narrow) {
    return ucs2string(lu_utf8string(narrow));
}

// A rule-less zone, or one with the record's rules; minutes become milliseconds.
TimeZone* ZoneFromRecord(const ZoneRecord& record, const ucs2string& id) {
    if (record.hasDaylight == 0) return new SimpleTimeZone(record.zone.standard.rawOffset, id);
    const DSTZone& rules = record.zone.daylight;
    // Table records are valid rules: the status has nothing to report.
    UErrorCode status = UErrorNone;
    return new SimpleTimeZone(
        rules.rawOffset, id, rules.startMonth, rules.startDay, rules.startDayOfWeek,
        rules.startTime * 60000, static_cast<SimpleTimeZone::TimeMode>(rules.startTimeMode),
        rules.endMonth, rules.endDay, rules.endDayOfWeek, rules.endTime * 60000,
        static_cast<SimpleTimeZone::TimeMode>(rules.endTimeMode), rules.dstSavings * 60000, status);
}

/// The handle of one identifier of the belt. The zone index is fixed once
/// the library is up, so the handle looks its identifier up when it is made,
/// and each make() builds the zone from the record found then.
class PredefinedTimeZone : public luAvailableTimeZone {
  public:
    PredefinedTimeZone(const ucs2string& id, const ZoneIndex& index)
        : m_id(id), m_isLocalHost(id == Widened(LocalHostIdText())), m_record(nullptr) {
        const auto found = index.find(id);
        if (found != index.end() && found->second < kPredefinedZoneRecordCount)
            m_record = &kPredefinedZoneRecords[found->second];
    }

    /// The host's zone for "localhost_tz", else the record's zone named by
    /// this identifier, so that aliases of one record differ only in name.
    /// Null when the identifier has no valid record.
    Impl* make() const override {
        if (m_isLocalHost) return TimeZone::createDefault();
        return m_record != nullptr ? ZoneFromRecord(*m_record, m_id) : nullptr;
    }

  private:
    ucs2string m_id;
    bool m_isLocalHost;
    const ZoneRecord* m_record;
};

class PredefinedTimeBelt : public luTimeBelt {
  public:
    /// One handle for each identifier of `index`.
    explicit PredefinedTimeBelt(const ZoneIndex& index) {
        for (const auto& entry : index) {
            m_zones.emplace(std::piecewise_construct, std::forward_as_tuple(entry.first),
                            std::forward_as_tuple(entry.first, index));
        }
    }

    std::vector<ucs2string> availableIDs() const override {
        std::vector<ucs2string> ids;
        ids.reserve(m_zones.size());
        for (const auto& entry : m_zones) ids.push_back(entry.first);
        return ids;
    }

    const luAvailableTimeZone& availableTimeZone(const ucs2string& id) const override {
        const auto found = m_zones.find(id);
        if (found == m_zones.end()) throw UnknownTimeZone(id);
        return found->second;
    }

  private:
    std::map<ucs2string, PredefinedTimeZone> m_zones;
};

ZoneIndex* NewZoneIndex() {
    auto index = std::make_unique<ZoneIndex>();
    for (std::size_t i = 0; i < kPredefinedZoneIdCount; ++i) {
        index->emplace(Widened(kPredefinedZoneIds[i].text), kPredefinedZoneRecordIndexes[i]);
    }
    // The host's zone has no record; its index is never read.
    index->emplace(Widened(LocalHostIdText()), 0);
    return index.release();
}

/// One row of the offset table: offsets up to and including `bound` seconds
/// take `id`.
struct OffsetBound {
    int bound;
    const char* id;
};

// The standard offsets of the table, each answered by a zone without daylight
// time where there is one. The half-hour rows between whole hours also catch
// the daylight offsets of St. John's (-9000) and Chatham (49500).
const OffsetBound kOffsetBounds[] = {
    {-43200, "Etc/GMT+12"},       {-39600, "Etc/GMT+11"},
    {-36000, "Etc/GMT+10"},       {-34200, "Pacific/Marquesas"},
    {-32400, "Etc/GMT+9"},        {-28800, "Etc/GMT+8"},
    {-25200, "Etc/GMT+7"},        {-21600, "Etc/GMT+6"},
    {-18000, "Etc/GMT+5"},        {-14400, "Etc/GMT+4"},
    {-12600, "America/St_Johns"}, {-10800, "Etc/GMT+3"},
    {-9000, "America/St_Johns"},  {-7200, "Etc/GMT+2"},
    {-3600, "Etc/GMT+1"},         {0, "GMT"},
    {3600, "Etc/GMT-1"},          {7200, "Etc/GMT-2"},
    {10800, "Etc/GMT-3"},         {11224, "Asia/Riyadh89"},
    {12600, "Asia/Tehran"},       {14400, "Etc/GMT-4"},
    {16200, "Asia/Kabul"},        {18000, "Etc/GMT-5"},
    {19800, "Asia/Calcutta"},     {20700, "Asia/Katmandu"},
    {21600, "Etc/GMT-6"},         {23400, "Asia/Rangoon"},
    {25200, "Etc/GMT-7"},         {28800, "Etc/GMT-8"},
    {32400, "Etc/GMT-9"},         {34200, "Australia/Darwin"},
    {36000, "Etc/GMT-10"},        {37800, "Australia/Lord_Howe"},
    {39600, "Etc/GMT-11"},        {41400, "Pacific/Norfolk"},
    {43200, "Etc/GMT-12"},        {45900, "Pacific/Chatham"},
    {46800, "Etc/GMT-13"},        {49500, "Pacific/Chatham"},
    {50400, "Etc/GMT-14"},        {1000000, "GMT"},
};

}  // namespace

luTimeBelt::~luTimeBelt() = default;

namespace PredefinedTimeZones {

const luTimeBelt& timeBelt() {
    return *s_timeBelt;
}

void DefaultTZFromOffset(int offsetSeconds, ucs2string& id) {
    // Every offset up to the clamp finds a row; larger ones count as the clamp.
    const int offset = offsetSeconds > 1000000 ? 1000000 : offsetSeconds;
    for (const OffsetBound& row : kOffsetBounds) {
        if (row.bound >= offset) {
            id = lu_utf8string(row.id);
            return;
        }
    }
}

}  // namespace PredefinedTimeZones

int PredefinedTimeZonesInitExit::count = 0;

void PredefinedTimeZonesInitExit::init() {
    try {
        s_zoneIndex = NewZoneIndex();
        s_timeBelt = new PredefinedTimeBelt(*s_zoneIndex);
    } catch (...) {
        // Start-up reports nothing: what could not be made stays null.
    }
    kaNoteServiceStart("PredefinedTimeZonesInitExit");
}

void PredefinedTimeZonesInitExit::exit() {
    delete s_timeBelt;
    s_timeBelt = nullptr;
    delete s_zoneIndex;
    s_zoneIndex = nullptr;
}

}  // namespace TimeLib

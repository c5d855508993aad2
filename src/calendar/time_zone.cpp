// TimeZone, the base of every zone, and ICUTimeZoneInitExit, the counting
// guard of the process-wide zone state: the thread toolkit, the zone lock and
// TimeZone::GMT.
#include "kai18n/calendar/time_zone.h"

#include "calendar/zone_lock.h"
#include "kai18n/calendar/simple_time_zone.h"
#include "kai18n/frame/init_exit.h"
#include "platform/os_thread_toolkit.h"

namespace {

// One os_critical_section, held through a pointer so that the lock exists
// exactly while the guard is up.
struct TimeZoneLockHolder {
    TimeZoneLockHolder() : section(false) {}
    os_critical_section section;
};

// Constant-initialised, so that it is null before any guard runs, whatever
// the order in which the library's units are initialised.
TimeZoneLockHolder* g_zoneLock = nullptr;

// "GMT" as code units: built without the UTF-8 conversion so that start-up
// depends on nothing but the string's own storage.
const unsigned short kGmtId[] = {'G', 'M', 'T', 0};

}  // namespace

os_critical_section* TimeZoneLock() {
    return g_zoneLock != nullptr ? &g_zoneLock->section : nullptr;
}

// ---------------------------------------------------------------------------
// TimeZone

char TimeZone::fgClassID = 0;

const TimeZone* TimeZone::GMT = nullptr;

TimeZone::TimeZone() = default;

TimeZone::TimeZone(const ucs2string& id) : ID(id) {}

TimeZone::TimeZone(const TimeZone& other) : ID(other.ID) {}

TimeZone& TimeZone::operator=(const TimeZone& other) {
    if (this != &other) ID = other.ID;
    return *this;
}

TimeZone::~TimeZone() = default;

bool TimeZone::operator==(const TimeZone& other) const {
    return getDynamicClassID() == other.getDynamicClassID() && ID == other.ID;
}

bool TimeZone::hasSameRules(const TimeZone& other) const {
    return getRawOffset() == other.getRawOffset() && useDaylightTime() == other.useDaylightTime();
}

ucs2string& TimeZone::getID(ucs2string& id) const {
    id = ID;
    return id;
}

void TimeZone::setID(const ucs2string& id) {
    ID = id;
}

// ---------------------------------------------------------------------------
// ICUTimeZoneInitExit

int ICUTimeZoneInitExit::count = 0;

ICUTimeZoneInitExit::ICUTimeZoneInitExit() {
    const int old = count;
    count = old + 1;
    if (old == 0) init();
}

ICUTimeZoneInitExit::~ICUTimeZoneInitExit() {
    count -= 1;
    if (count == 0) exit();
}

// Start-up reports nothing: an object that cannot be made leaves its pointer
// null, and the users of each pointer test it.
void ICUTimeZoneInitExit::init() {
    os_init_thread_toolkit();
    try {
        g_zoneLock = new TimeZoneLockHolder();
    } catch (...) {
        g_zoneLock = nullptr;
    }
    try {
        TimeZone::GMT = new SimpleTimeZone(0, ucs2string(kGmtId, 3));
    } catch (...) {
        TimeZone::GMT = nullptr;
    }
    kaNoteServiceStart("ICUTimeZoneInitExit");
}

void ICUTimeZoneInitExit::exit() {
    // Nothing of the zone state outlives the guard; a later start reads the
    // host's zone again.
    delete TimeZone::fgDefaultZone.exchange(nullptr);
    delete TimeZone::GMT;
    TimeZone::GMT = nullptr;
    delete g_zoneLock;
    g_zoneLock = nullptr;
    os_exit_thread_toolkit();
}

// The zone state is up while the library is loaded.
static ICUTimeZoneInitExit s_icuTimeZoneInitExit;

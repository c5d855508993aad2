// The local host clock and its start-up guard.
#include "kai18n/timelib/lu_clock.h"

#include <chrono>
#include <ctime>

namespace TimeLib {

namespace {

class LocalHostClock : public luClock {
  public:
    // Whole seconds from the C runtime's UTC clock, milliseconds from the
    // system clock: two reads, not one, so that the seconds are those every
    // other time() user of the process sees.
    luPhysicalTime now() const override {
        const double seconds = static_cast<double>(std::time(nullptr));
        const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
        const auto millis =
            std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count() % 1000;
        return m_origin +
               luDuration::Millisecond * (seconds * 1000.0 + static_cast<double>(millis));
    }

  private:
    luPhysicalTime m_origin;  // the epoch
};

CalendarTimeInitExit* s_calendarTimeCount = nullptr;

}  // namespace

luClock::~luClock() = default;

luClock* luClock::localHost_ = nullptr;

int ClockInitExit::count = 0;

void ClockInitExit::init() {
    try {
        s_calendarTimeCount = new CalendarTimeInitExit;
        luClock::localHost_ = new LocalHostClock;
    } catch (...) {
        // Start-up reports nothing: what could not be made stays null.
    }
    kaNoteServiceStart("ClockInitExit");
}

void ClockInitExit::exit() {
    delete luClock::localHost_;
    luClock::localHost_ = nullptr;
    delete s_calendarTimeCount;
    s_calendarTimeCount = nullptr;
}

}  // namespace TimeLib

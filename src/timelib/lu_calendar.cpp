// The calendar handles: the strict Gregorian calendar and the lenient,
// proleptic Velora calendar, both made as GregorianCalendar.
#include "kai18n/timelib/lu_calendar.h"

#include <memory>
#include <new>

#include "kai18n/calendar/gregorian_calendar.h"
#include "kai18n/frame/timelib_exceptions.h"
#include "kai18n/timelib/timelib_init_exit.h"
#include "timelib/shared_handles.h"

namespace TimeLib {

namespace {

// A new GregorianCalendar that owns `zone`, which is deleted if even the
// allocation fails.
std::unique_ptr<GregorianCalendar> NewGregorianCalendar(luTimeZone::Impl* zone,
                                                        UErrorCode& status) {
    std::unique_ptr<TimeZone> owned(zone);
    std::unique_ptr<GregorianCalendar> calendar(new GregorianCalendar(owned.get(), status));
    owned.release();
    return calendar;
}

// Strict, cutover 15 October 1582, weeks from Monday with four days in week 1.
class GregorianCalendarHandle : public luAvailableCalendar {
    Impl* make(luTimeZone::Impl* zone) const override {
        UErrorCode status = UErrorNone;
        std::unique_ptr<GregorianCalendar> calendar = NewGregorianCalendar(zone, status);
        calendar->setLenient(false);
        if (U_FAILURE(status)) throw InternalError("GregorianCalendar::make ()");
        return calendar.release();
    }
};

}  // namespace

luCalendar::~luCalendar() = default;
luAvailableCalendar::~luAvailableCalendar() = default;
luVeloraCalendar::~luVeloraCalendar() = default;

luCalendar* luCalendar::gregorian_ = nullptr;
luAvailableCalendar* luAvailableCalendar::gregorian_ = nullptr;
luVeloraCalendar* luVeloraCalendar::calendar_ = nullptr;

luCalendar::Impl* luVeloraCalendar::make(luTimeZone::Impl* zone) const {
    UErrorCode status = UErrorNone;
    std::unique_ptr<GregorianCalendar> calendar = NewGregorianCalendar(zone, status);
    calendar->setLenient(true);
    calendar->setFirstDayOfWeek(Calendar::MONDAY);
    // Week 1 is the first week that lies wholly in its year.
    calendar->setMinimalDaysInFirstWeek(7);
    calendar->setGregorianChange(kCutover, status);
    if (U_FAILURE(status)) throw InternalError("luVeloraCalendar::make ()");
    return calendar.release();
}

void CreateSharedCalendarHandles() {
    luCalendar::gregorian_ = new (std::nothrow) GregorianCalendarHandle;
    luAvailableCalendar::gregorian_ = new (std::nothrow) GregorianCalendarHandle;
}

void DeleteSharedCalendarHandles() {
    delete luCalendar::gregorian_;
    luCalendar::gregorian_ = nullptr;
    delete luAvailableCalendar::gregorian_;
    luAvailableCalendar::gregorian_ = nullptr;
}

int VeloraCalendarInitExit::count = 0;

void VeloraCalendarInitExit::init() {
    luVeloraCalendar::calendar_ = new (std::nothrow) luVeloraCalendar;
    kaNoteServiceStart("VeloraCalendarInitExit");
}

void VeloraCalendarInitExit::exit() {
    delete luVeloraCalendar::calendar_;
    luVeloraCalendar::calendar_ = nullptr;
}

}  // namespace TimeLib

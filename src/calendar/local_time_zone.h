// The host's zone as an engine zone.
#ifndef KAI18N_CALENDAR_LOCAL_TIME_ZONE_H
#define KAI18N_CALENDAR_LOCAL_TIME_ZONE_H

class TimeZone;

/// Stores in `*zone` a new SimpleTimeZone with the host's standard offset,
/// daylight rules and standard-time name.
void InitLocalTimeZone(TimeZone** zone);

#endif  // KAI18N_CALENDAR_LOCAL_TIME_ZONE_H

// The zones and time commands of the command-line tool.
#ifndef KAI18N_CLI_ZONE_COMMANDS_H
#define KAI18N_CLI_ZONE_COMMANDS_H

#include <string>

#include "kai18n/timelib/lu_physical_time.h"

/// The lines of the tool's usage text that describe the two commands.
extern const char kZoneUsage[];

/// Seconds since 1970 (a whole number) or YYYY-MM-DDTHH:MM:SSZ; false when
/// `text` is neither.
bool ReadInstant(const std::string& text, TimeLib::luPhysicalTime& when);

/// kai18n zones [--offset SECONDS]
int ZonesCommand(int argc, char** argv);
/// kai18n time [--zone ID] [INSTANT]
int TimeCommand(int argc, char** argv);

#endif  // KAI18N_CLI_ZONE_COMMANDS_H

// The zones and time commands of the command-line tool.
#ifndef KAI18N_CLI_ZONE_COMMANDS_H
#define KAI18N_CLI_ZONE_COMMANDS_H

/// The lines of the tool's usage text that describe the two commands.
extern const char kZoneUsage[];

/// kai18n zones [--offset SECONDS]
int ZonesCommand(int argc, char** argv);
/// kai18n time [--zone ID] [INSTANT]
int TimeCommand(int argc, char** argv);

#endif  // KAI18N_CLI_ZONE_COMMANDS_H

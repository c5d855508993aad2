// The date format commands of the command-line tool.
#ifndef KAI18N_CLI_DATE_FORMAT_COMMANDS_H
#define KAI18N_CLI_DATE_FORMAT_COMMANDS_H

/// The lines of the tool's usage text that describe the two commands.
extern const char kDateFormatUsage[];

/// kai18n format-date [--locale NAME] [--zone ID] [--dialect D] [--code XX] PATTERN [INSTANT...]
int FormatDateCommand(int argc, char** argv);
/// kai18n excel [--date] [--locale NAME] [--dialect D] [--code XX] TEXT
int ExcelCommand(int argc, char** argv);

#endif  // KAI18N_CLI_DATE_FORMAT_COMMANDS_H

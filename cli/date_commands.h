// The date command of the command-line tool.
#ifndef KAI18N_CLI_DATE_COMMANDS_H
#define KAI18N_CLI_DATE_COMMANDS_H

/// The lines of the tool's usage text that describe the date command.
extern const char kDateUsage[];

/// kai18n date [--locale NAME] FORMAT [DATE...]
int DateCommand(int argc, char** argv);

#endif  // KAI18N_CLI_DATE_COMMANDS_H

// The format commands of the command-line tool.
#ifndef KAI18N_CLI_FORMAT_COMMANDS_H
#define KAI18N_CLI_FORMAT_COMMANDS_H

/// kai18n format-number [--locale NAME] [--dialect D] [--code XX] PATTERN VALUE...
int FormatNumberCommand(int argc, char** argv);
/// kai18n pattern [--locale NAME] [--dialect D] [--code XX] [--date] TEXT
int PatternCommand(int argc, char** argv);

#endif  // KAI18N_CLI_FORMAT_COMMANDS_H

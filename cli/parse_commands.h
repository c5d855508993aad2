// The parse commands of the command-line tool.
#ifndef KAI18N_CLI_PARSE_COMMANDS_H
#define KAI18N_CLI_PARSE_COMMANDS_H

/// The lines of the tool's usage text that describe the two commands.
extern const char kParseUsage[];

/// kai18n parse-number [--locale NAME] TEXT...
int ParseNumberCommand(int argc, char** argv);
/// kai18n parse-date [--locale NAME] [--zone ID] [--pivot YEAR] [--dialect D] [--code XX]
///                   PATTERN TEXT...
int ParseDateCommand(int argc, char** argv);

#endif  // KAI18N_CLI_PARSE_COMMANDS_H

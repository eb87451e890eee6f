#pragma once

#include <QStringList>

namespace tessaro::cli {

// One command of tessaro-cli: its name, the lines that list it in tessaro-cli --help,
// its usage (what tessaro-cli COMMAND --help prints, and what a usage error shows),
// and the function that runs it with the arguments after the name (returns the exit
// status).
struct Command
{
    const char *name;
    const char *synopsis;
    const char *usage;
    int (*run)(const QStringList &arguments);
};

// Adds a command to the tool. Each command's file registers itself with a
// file-level Registration object.
struct Registration
{
    explicit Registration(const Command &command);
};

// Runs tessaro-cli with the whole argument list (the program's path first).
int run(const QStringList &arguments);

// A usage error of a command: the problem (when given) and the command's usage on
// standard error. Returns the exit status of a usage error, 2.
int usageError(const char *command, const QString &problem = QString());

} // namespace tessaro::cli

#pragma once

#include <QStringList>

namespace tessaro::cli {

// One command of tessaro-cli: its name, a one-line synopsis for --help, and the
// function that runs it with the arguments after the name (returns the exit status).
struct Command
{
    const char *name;
    const char *synopsis;
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

} // namespace tessaro::cli

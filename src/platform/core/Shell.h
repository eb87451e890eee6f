#pragma once

#include <QString>
#include <QStringList>

namespace tessaro {

// The one way the program starts other programs. Tests install a service that
// records the calls.
class ShellService
{
public:
    virtual ~ShellService() = default;
    // Starts a program detached, without arguments and without setting a working
    // folder; raises run-time error 53 "File not found" when it cannot be started.
    // Returns the new process's id.
    virtual qint64 startProgram(const QString &path) = 0;
    // Starts a generated build script under /bin/sh in a terminal window that stays
    // open until the user closes it; returns at once, captures nothing. Raises 53
    // when no terminal can be found or started.
    virtual qint64 startScript(const QString &scriptPath) = 0;
};

ShellService &shellService();
ShellService *setShellService(ShellService *service);

// Shell(path, 1): starts a program in a normal window with focus.
qint64 Shell(const QString &path, int windowStyle = 1);
// Starts a generated build script the way Shell starts a batch file.
qint64 ShellScript(const QString &scriptPath);

// The terminal command that runs a script, as a program and its arguments before the
// script's path: $TESSARO_TERMINAL when set (split at blanks), else the first of the
// usual terminal emulators found on the search path. Empty when there is none.
QStringList terminalCommand();

} // namespace tessaro

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
    // folder; a bare name is looked up on PATH (programPath). Raises run-time error 53
    // "File not found" when it cannot be found or started.
    // Returns the new process's id.
    virtual qint64 startProgram(const QString &path) = 0;
    // Starts a generated build script under /bin/sh in a terminal window that stays
    // open until the user closes it; returns at once, captures nothing. Raises 53
    // when no terminal can be found or started.
    virtual qint64 startScript(const QString &scriptPath) = 0;
};

ShellService &shellService();
ShellService *setShellService(ShellService *service);

// The program a Shell of `path` starts: a bare name (no "/") is looked up on the search
// path (PATH), as a command typed in a terminal is; "" when it is found nowhere. A path
// with a "/" is taken as it is (relative to the working folder).
QString programPath(const QString &path);

// Shell(path, 1): starts a program in a normal window with focus.
qint64 Shell(const QString &path, int windowStyle = 1);
// Starts a generated build script the way Shell starts a batch file.
qint64 ShellScript(const QString &scriptPath);

// The terminal command that runs a script, as a program and its arguments before the
// command it runs: $TESSARO_TERMINAL when set (split at blanks, double quotes holding a
// word with blanks; a known terminal named without its "run this" switch, such as plain
// "xterm", gets it), else the first of the usual terminal emulators found on the
// search path with its switch. Empty when there is none.
QStringList terminalCommand();

} // namespace tessaro

#include "platform/core/Shell.h"

#include "platform/core/RuntimeError.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace tessaro {

namespace {

qint64 startDetached(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    qint64 pid = 0;
    if (!process.startDetached(&pid))
        throw RuntimeError(RuntimeError::FileNotFound);
    return pid;
}

class ProcessShell : public ShellService
{
public:
    qint64 startProgram(const QString &path) override
    {
        const QString program = programPath(path);
        const QFileInfo info(program);
        if (program.isEmpty() || !info.exists() || info.isDir() || !info.isExecutable())
            throw RuntimeError(RuntimeError::FileNotFound);
        return startDetached(program, {});
    }

    qint64 startScript(const QString &scriptPath) override
    {
        if (!QFileInfo::exists(scriptPath))
            throw RuntimeError(RuntimeError::FileNotFound);
        QStringList command = terminalCommand();
        if (command.isEmpty())
            throw RuntimeError(RuntimeError::FileNotFound);
        const QString program = command.takeFirst();
        // The script runs under /bin/sh; the shell that follows shows how it ended and
        // keeps the window open so the compiler's messages can be read.
        const QString keepOpen =
            QStringLiteral("/bin/sh \"$0\"; status=$?; echo; "
                           "echo \"[exit status $status] Press Enter to close.\"; read _");
        command << QStringLiteral("/bin/sh") << QStringLiteral("-c") << keepOpen << scriptPath;
        return startDetached(program, command);
    }
};

ProcessShell g_processShell;
ShellService *g_service = &g_processShell;

} // namespace

ShellService &shellService()
{
    return *g_service;
}

ShellService *setShellService(ShellService *service)
{
    ShellService *previous = g_service;
    g_service = service ? service : &g_processShell;
    return previous;
}

QString programPath(const QString &path)
{
    if (path.isEmpty() || path.contains(QLatin1Char('/')))
        return path;
    return QStandardPaths::findExecutable(path);
}

qint64 Shell(const QString &path, int /*windowStyle*/)
{
    return g_service->startProgram(path);
}

qint64 ShellScript(const QString &scriptPath)
{
    return g_service->startScript(scriptPath);
}

namespace {

// Terminals and the switch after which each runs the command that follows.
struct Terminal
{
    const char *name;
    const char *runSwitch;
};
// Looked for, in this order, when TESSARO_TERMINAL is not set.
constexpr Terminal kSearchedTerminals[] = {
    {"x-terminal-emulator", "-e"}, {"xterm", "-e"}, {"gnome-terminal", "--"}, {"konsole", "-e"},
    {"xfce4-terminal", "-x"},
};
// Known besides, when TESSARO_TERMINAL names one without its switch.
constexpr Terminal kOtherTerminals[] = {
    {"uxterm", "-e"},    {"lxterminal", "-e"}, {"mate-terminal", "-x"}, {"terminator", "-x"},
    {"tilix", "-e"},     {"urxvt", "-e"},      {"rxvt", "-e"},          {"qterminal", "-e"},
    {"alacritty", "-e"}, {"kitty", "--"},      {"foot", "--"},          {"st", "-e"},
    {"kgx", "--"},       {"ptyxis", "--"},
};

QString runSwitchOf(const QString &program)
{
    const QString name = QFileInfo(program).fileName();
    auto find = [&name](const auto &terminals) {
        for (const Terminal &terminal : terminals)
            if (name == QLatin1String(terminal.name))
                return QString::fromLatin1(terminal.runSwitch);
        return QString();
    };
    const QString runSwitch = find(kSearchedTerminals);
    return runSwitch.isEmpty() ? find(kOtherTerminals) : runSwitch;
}

} // namespace

QStringList terminalCommand()
{
    const QString custom = qEnvironmentVariable("TESSARO_TERMINAL").trimmed();
    if (!custom.isEmpty()) {
        QStringList command = QProcess::splitCommand(custom);
        // A known terminal named alone gets its switch: it would otherwise take the
        // command that follows for options of its own and fail in its own window.
        if (command.size() == 1) {
            const QString runSwitch = runSwitchOf(command.first());
            if (!runSwitch.isEmpty())
                command << runSwitch;
        }
        return command;
    }
    for (const Terminal &terminal : kSearchedTerminals) {
        const QString found = QStandardPaths::findExecutable(QString::fromLatin1(terminal.name));
        if (!found.isEmpty())
            return {found, QString::fromLatin1(terminal.runSwitch)};
    }
    return {};
}

} // namespace tessaro

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
        const QFileInfo info(path);
        if (path.isEmpty() || !info.exists() || info.isDir() || !info.isExecutable())
            throw RuntimeError(RuntimeError::FileNotFound);
        return startDetached(path, {});
    }

    qint64 startScript(const QString &scriptPath) override
    {
        if (!QFileInfo::exists(scriptPath))
            throw RuntimeError(RuntimeError::FileNotFound);
        QStringList command = terminalCommand();
        if (command.isEmpty())
            throw RuntimeError(RuntimeError::FileNotFound);
        const QString program = command.takeFirst();
        // The script runs under /bin/sh; the shell that follows keeps the window open
        // so the compiler's messages can be read.
        const QString keepOpen = QStringLiteral(
            "/bin/sh \"$0\"; echo; echo \"[exit status $?] Press Enter to close.\"; read _");
        command << QStringLiteral("/bin/sh") << QStringLiteral("-c") << keepOpen << scriptPath;
        return startDetached(program, command);
    }
};

ProcessShell g_processShell;
ShellService *g_service = &g_processShell;

} // namespace

ShellService &shellService() { return *g_service; }

ShellService *setShellService(ShellService *service)
{
    ShellService *previous = g_service;
    g_service = service ? service : &g_processShell;
    return previous;
}

qint64 Shell(const QString &path, int /*windowStyle*/) { return g_service->startProgram(path); }

qint64 ShellScript(const QString &scriptPath) { return g_service->startScript(scriptPath); }

QStringList terminalCommand()
{
    const QString custom = qEnvironmentVariable("TESSARO_TERMINAL").trimmed();
    if (!custom.isEmpty())
        return custom.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    static const char *const known[][2] = {
        {"x-terminal-emulator", "-e"}, {"xterm", "-e"},          {"gnome-terminal", "--"},
        {"konsole", "-e"},             {"xfce4-terminal", "-x"},
    };
    for (const auto &entry : known) {
        const QString found = QStandardPaths::findExecutable(QString::fromLatin1(entry[0]));
        if (!found.isEmpty())
            return {found, QString::fromLatin1(entry[1])};
    }
    return {};
}

} // namespace tessaro

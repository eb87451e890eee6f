// tessaro-cli build TARGET WORKSPACE [--set KEY=VALUE]... [--print] [--run]: the build
// script the IDE writes for a workspace, with the user's settings (overridden by
// --set). Writes it where the IDE would and prints its path; --print prints the
// script instead; --run also runs it with /bin/sh in the foreground and returns its
// exit status.

#include "cli/CliCommands.h"

#include "build/core/BuildCommand.h"
#include "platform/core/RuntimeError.h"
#include "state/core/AppState.h"
#include "state/core/Settings.h"
#include "workspace/core/WorkspaceSession.h"

#include <QFile>
#include <QTextStream>

#include <cerrno>
#include <cstdio>
#include <spawn.h>
#include <sys/wait.h>

extern char **environ;

namespace tessaro::cli {

namespace {

struct BuildRequest
{
    build::Target target = build::Target::Game;
    QString workspace;
    QList<std::pair<QString, QString>> overrides;
    bool print = false;
    bool run = false;
};

void reportRuntimeError(const QString &what, const RuntimeError &error)
{
    QTextStream(stderr) << QStringLiteral("tessaro-cli build: %1: run-time error %2: %3\n")
                               .arg(what)
                               .arg(error.number())
                               .arg(error.description());
}

// Parses the arguments after "build"; an error text when they do not fit.
std::optional<QString> parse(const QStringList &arguments, BuildRequest &request)
{
    QStringList positional;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (argument == QLatin1String("--print")) {
            request.print = true;
        } else if (argument == QLatin1String("--run")) {
            request.run = true;
        } else if (argument == QLatin1String("--set") || argument.startsWith("--set=")) {
            QString assignment;
            if (argument == QLatin1String("--set")) {
                if (++i == arguments.size())
                    return QStringLiteral("--set needs KEY=VALUE");
                assignment = arguments.at(i);
            } else {
                assignment = argument.mid(6);
            }
            const int equals = assignment.indexOf(QLatin1Char('='));
            if (equals <= 0)
                return QStringLiteral("--set needs KEY=VALUE, not '%1'").arg(assignment);
            request.overrides.append({assignment.left(equals), assignment.mid(equals + 1)});
        } else if (argument.startsWith(QLatin1String("--"))) {
            return QStringLiteral("unknown option '%1'").arg(argument);
        } else {
            positional << argument;
        }
    }
    if (positional.size() != 2)
        return QStringLiteral("a target and a workspace file are needed");
    const std::optional<build::Target> target = build::targetFromName(positional.first());
    if (!target)
        return QStringLiteral("unknown target '%1'").arg(positional.first());
    if (request.print && request.run)
        return QStringLiteral("--print and --run do not go together");
    request.target = *target;
    request.workspace = positional.at(1);
    return std::nullopt;
}

// Runs the script with /bin/sh in the foreground, sharing this terminal; its exit
// status (128 + the signal when a signal ended it).
int runInForeground(const QString &scriptPath)
{
    std::fflush(stdout);
    const QByteArray path = QFile::encodeName(scriptPath);
    char shell[] = "/bin/sh";
    char *const argv[] = {shell, const_cast<char *>(path.constData()), nullptr};
    pid_t pid = 0;
    if (posix_spawn(&pid, shell, nullptr, nullptr, argv, environ) != 0) {
        QTextStream(stderr) << "tessaro-cli build: /bin/sh could not be started\n";
        return 1;
    }
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            return 1;
    }
    if (WIFEXITED(status))
        return WEXITSTATUS(status);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : 1;
}

int buildCommand(const QStringList &arguments)
{
    BuildRequest request;
    if (const std::optional<QString> problem = parse(arguments, request))
        return usageError("build", *problem);

    AppState state;
    try {
        IniSettingsStore store;
        state.tools = loadSettings(store).tools;
    } catch (const RuntimeError &error) {
        reportRuntimeError(QStringLiteral("reading the settings"), error);
        return 1;
    }
    for (const auto &[key, value] : request.overrides) {
        try {
            if (!state.tools.setValue(key, value))
                return usageError("build", QStringLiteral("unknown setting '%1'").arg(key));
        } catch (const RuntimeError &error) {
            reportRuntimeError(QStringLiteral("--set %1=%2").arg(key, value), error);
            return 2;
        }
    }

    // Opened as the IDE opens it: a reading that stops leaves the workspace closed.
    WorkspaceSession session(state);
    try {
        session.openWorkspaceFile(request.workspace);
    } catch (const RuntimeError &error) {
        reportRuntimeError(QStringLiteral("opening %1").arg(request.workspace), error);
    }

    try {
        const std::optional<build::Script> script = build::composeBuild(
            request.target, state.workspace, state.tools, state.workspaceFolder);
        if (!script) {
            QTextStream(stderr) << build::noWorkspaceMessage() << '\n';
            return 1;
        }
        if (request.print) {
            std::fwrite(script->bytes.constData(), 1, size_t(script->bytes.size()), stdout);
            return 0;
        }
        build::writeScript(*script);
        if (request.run)
            return runInForeground(script->path);
        QTextStream(stdout) << script->path << '\n';
        return 0;
    } catch (const RuntimeError &error) {
        reportRuntimeError(QStringLiteral("building"), error);
        return 1;
    }
}

const Registration registration(
    {"build",
     "build game|cgame|ui|exe|q2 WORKSPACE [--set KEY=VALUE]... [--print] [--run]\n"
     "             write (or print, or run) the build script the IDE writes for a workspace",
     "Usage: tessaro-cli build game|cgame|ui|exe|q2 WORKSPACE [--set KEY=VALUE]... [--print] "
     "[--run]\n"
     "Writes the build script that the IDE writes for WORKSPACE (a .tdi file) where the\n"
     "IDE would and prints its path. --set KEY=VALUE overrides a stored setting (keys as\n"
     "in Tessaro.ini: comPath, asmPath, lnkPath, params, sufparam, lnkparams, lrcPath,\n"
     "lrcparams, comLCC, objOBJ, useLnk); --print prints the script instead of writing\n"
     "it; --run also runs it with /bin/sh in the foreground and exits with its status.\n",
     buildCommand});

} // namespace
} // namespace tessaro::cli

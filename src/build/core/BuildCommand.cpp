#include "build/core/BuildCommand.h"

#include "build/core/ExeBuild.h"
#include "build/core/Quake2Build.h"
#include "build/core/QvmBuild.h"
#include "platform/core/MsgBox.h"
#include "platform/core/Shell.h"
#include "platform/core/TextFile.h"
#include "shell/core/AppState.h"

namespace tessaro::build {

std::optional<Target> targetFromName(const QString &name)
{
    if (name == QLatin1String("game"))
        return Target::Game;
    if (name == QLatin1String("cgame"))
        return Target::CGame;
    if (name == QLatin1String("ui"))
        return Target::UI;
    if (name == QLatin1String("exe"))
        return Target::Exe;
    if (name == QLatin1String("q2"))
        return Target::Quake2;
    return std::nullopt;
}

QString noWorkspaceMessage()
{
    return QStringLiteral("You need to have a Workspace Loaded");
}

std::optional<Script> composeBuild(Target target, const WorkspaceState &workspace,
                                   const ToolSettings &tools, const QString &workspaceFolder)
{
    switch (target) {
    case Target::Quake2:
        // The Quake 2 build looks only at the workspace folder.
        if (workspaceFolder.isEmpty())
            return std::nullopt;
        return composeQuake2Script(workspaceFolder);
    case Target::Exe:
        if (!workspace.open)
            return std::nullopt;
        return composeExeScript(workspace, tools);
    case Target::Game:
    case Target::CGame:
    case Target::UI: break;
    }
    if (!workspace.open)
        return std::nullopt;
    const QvmModule module = target == Target::Game    ? QvmModule::Game
                             : target == Target::CGame ? QvmModule::CGame
                                                       : QvmModule::UI;
    return composeQvmScript(module, workspace, tools);
}

void writeScript(const Script &script)
{
    const QFileDevice::Permissions executable = QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                QFileDevice::ExeOwner | QFileDevice::ReadGroup |
                                                QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                                QFileDevice::ExeOther;
    textfile::writeBytes(script.path, script.bytes, executable);
}

void runBuild(Target target, const AppState &state)
{
    const std::optional<Script> script =
        composeBuild(target, state.workspace, state.tools, state.workspaceFolder);
    if (!script) {
        MsgBox(noWorkspaceMessage(), mb::OKOnly);
        return;
    }
    writeScript(*script);
    // Started and forgotten: no waiting, nothing captured, no working folder set.
    ShellScript(script->path);
}

} // namespace tessaro::build

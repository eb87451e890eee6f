#include "build/core/BuildCommand.h"

#include "build/core/ExeBuild.h"
#include "build/core/Quake2Build.h"
#include "build/core/QvmBuild.h"
#include "platform/core/MsgBox.h"
#include "platform/core/Shell.h"
#include "platform/core/TextFile.h"
#include "state/core/AppState.h"

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
    // The Quake 2 build looks only at the workspace folder, the others at the open flag.
    if (target == Target::Quake2) {
        if (workspaceFolder.isEmpty())
            return std::nullopt;
        return composeQuake2Script(workspaceFolder);
    }
    if (!workspace.open)
        return std::nullopt;
    switch (target) {
    case Target::Game: return composeQvmScript(QvmModule::Game, workspace, tools);
    case Target::CGame: return composeQvmScript(QvmModule::CGame, workspace, tools);
    case Target::UI: return composeQvmScript(QvmModule::UI, workspace, tools);
    case Target::Exe: return composeExeScript(workspace, tools);
    case Target::Quake2: break; // composed above
    }
    return std::nullopt;
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

#pragma once

#include "build/core/BuildScript.h"

#include <optional>

namespace tessaro {
struct AppState;
struct ToolSettings;
struct WorkspaceState;
} // namespace tessaro

namespace tessaro::build {

// What a Build menu command builds.
enum class Target { Game, CGame, UI, Exe, Quake2 };

// "game", "cgame", "ui", "exe", "q2" as typed on a command line.
std::optional<Target> targetFromName(const QString &name);

// The message a build shows when there is nothing to build.
QString noWorkspaceMessage();

// The script the command writes for the target, read from the state at this moment;
// nullopt when the command stops with the no-workspace message instead (no
// workspace open; for Quake 2, an empty workspace folder). Raises the run-time's
// error where composing fails (a full module list, an unreadable q2game.sh).
std::optional<Script> composeBuild(Target target, const WorkspaceState &workspace,
                                   const ToolSettings &tools, const QString &workspaceFolder);

// Replaces the script file atomically, executable (mode 0755). Raises the file's
// run-time error when it cannot be written.
void writeScript(const Script &script);

// The whole Build menu command: the no-workspace message, or write the script and
// start it in a terminal window, returning at once. Installs no error trap: callers
// run it through untrapped().
void runBuild(Target target, const AppState &state);

} // namespace tessaro::build

// tessaro-cli tree WORKSPACE and tessaro-cli structs WORKSPACE: the FileView tree and
// the structure view that opening the workspace in the IDE shows, one line per node.

#include "cli/CliCommands.h"

#include "platform/core/RuntimeError.h"
#include "shell/core/AppState.h"
#include "workspace/core/WorkspaceFile.h"
#include "workspace/core/WorkspaceSession.h"

#include <QTextStream>

namespace tessaro::cli {

namespace {

bool checkArguments(const QStringList &arguments, const char *command)
{
    if (arguments.size() == 1)
        return true;
    QTextStream(stderr)
        << QStringLiteral("Usage: tessaro-cli %1 WORKSPACE\n").arg(QLatin1String(command));
    return false;
}

void reportStop(const char *command, const RuntimeError &error)
{
    QTextStream(stderr) << QStringLiteral("tessaro-cli %1: stopped by run-time error %2: %3\n")
                               .arg(QLatin1String(command))
                               .arg(error.number())
                               .arg(error.description());
}

// The FileView tree as reading the workspace file leaves it, also when the reading
// stopped part-way (the status is then 1).
int printTree(const QStringList &arguments)
{
    if (!checkArguments(arguments, "tree"))
        return 2;
    AppState state;
    WorkspaceSession session(state);
    int status = 0;
    try {
        workspacefile::ReadWorkspaceFile(arguments.first(), state.workspace, session.fileView());
    } catch (const RuntimeError &error) {
        reportStop("tree", error);
        status = 1;
    }
    QTextStream(stdout) << session.fileView().listing();
    return status;
}

// The structure view as opening the workspace leaves it: empty when the workspace
// file could not be read to its end, partial when a source stopped the building.
int printStructs(const QStringList &arguments)
{
    if (!checkArguments(arguments, "structs"))
        return 2;
    AppState state;
    WorkspaceSession session(state);
    int status = 0;
    try {
        session.openWorkspaceFile(arguments.first());
    } catch (const RuntimeError &error) {
        reportStop("structs", error);
        status = 1;
    }
    QTextStream(stdout) << session.structView().listing();
    return status;
}

const Registration treeCommand({"tree", "tree WORKSPACE     the FileView tree of a workspace file",
                                printTree});
const Registration structsCommand(
    {"structs", "structs WORKSPACE  the structure view of a workspace (typedef struct names)",
     printStructs});

} // namespace
} // namespace tessaro::cli

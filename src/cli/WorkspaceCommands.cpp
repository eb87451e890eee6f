// tessaro-cli tree WORKSPACE and tessaro-cli structs WORKSPACE: the FileView tree and
// the structure view that opening the workspace in the IDE shows, one line per node.

#include "cli/CliCommands.h"

#include "platform/core/RuntimeError.h"
#include "state/core/AppState.h"
#include "workspace/core/WorkspaceFile.h"
#include "workspace/core/WorkspaceSession.h"

#include <QTextStream>

namespace tessaro::cli {

namespace {

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
    if (arguments.size() != 1)
        return usageError("tree");
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
    if (arguments.size() != 1)
        return usageError("structs");
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

const Registration treeCommand(
    {"tree", "tree WORKSPACE     the FileView tree of a workspace file",
     "Usage: tessaro-cli tree WORKSPACE\n"
     "Prints the FileView tree that opening WORKSPACE (a .tdi file) shows, one node a\n"
     "line: its key, a tab and its text, indented by two blanks a level. When the file\n"
     "cannot be read to its end, prints what was read, reports the run-time error on\n"
     "standard error and exits with status 1.\n",
     printTree});
const Registration structsCommand(
    {"structs", "structs WORKSPACE  the structure view of a workspace (typedef struct names)",
     "Usage: tessaro-cli structs WORKSPACE\n"
     "Prints the structure view that opening WORKSPACE (a .tdi file) shows: the names\n"
     "declared with \"typedef struct\" in its files under the groups Game, CGame,\n"
     "Headers and UI, one node a line (key, a tab, text). When a file stops the\n"
     "building, prints what was built, reports the run-time error on standard error\n"
     "and exits with status 1.\n",
     printStructs});

} // namespace
} // namespace tessaro::cli

// tessaro-cli find WORKSPACE TEXT: what the output window of Find in Files holds after
// searching the workspace's files for TEXT once.

#include "cli/CliCommands.h"

#include "platform/core/RuntimeError.h"
#include "search/core/OutputSearch.h"
#include "workspace/core/NodeTree.h"
#include "workspace/core/WorkspaceFile.h"

#include <QDir>
#include <QTextStream>

namespace tessaro::cli {

namespace {

// A freshly loaded output window: its caption and the text of its output box.
class OutputText : public search::OutputView
{
public:
    QString caption() const override { return m_caption; }
    void setCaption(const QString &caption) override { m_caption = caption; }
    void append(const QString &text) override { this->text += text; }

    QString text;

private:
    QString m_caption = QStringLiteral("Output");
};

void reportStop(const RuntimeError &error)
{
    QTextStream(stderr) << QStringLiteral("tessaro-cli find: stopped by run-time error %1: %2\n")
                               .arg(error.number())
                               .arg(error.description());
}

// Opens the workspace as Open Workspace reads it, then runs one search with the
// current folder as the search folder. A workspace that cannot be read to its end
// would not be open in the IDE, so nothing is searched. A file that cannot be read
// ends the search: the lines found before it are printed and the status is 1.
int find(const QStringList &arguments)
{
    if (arguments.size() != 2)
        return usageError("find");
    WorkspaceState workspace;
    NodeTree fileView;
    try {
        workspacefile::ReadWorkspaceFile(arguments.at(0), workspace, fileView);
    } catch (const RuntimeError &error) {
        reportStop(error);
        return 1;
    }
    workspace.open = true;

    const search::FindInFilesQuery query{arguments.at(1), QDir::currentPath() + QLatin1Char('/')};
    search::OutputSearch search;
    OutputText output;
    search.load();
    try {
        search.tick(query, workspace, output);
    } catch (const RuntimeError &error) {
        QTextStream(stdout) << output.text;
        reportStop(error);
        return 1;
    }
    QTextStream(stdout) << output.text;
    return 0;
}

const Registration findCommand(
    {"find", "find WORKSPACE TEXT  the files of a workspace that hold TEXT (Find in Files)",
     "Usage: tessaro-cli find WORKSPACE TEXT\n"
     "Prints what the output window of Find in Files holds after searching the files of\n"
     "WORKSPACE (a .tdi file) once for TEXT, without regard to case, with CR LF line\n"
     "ends. A file that cannot be read ends the search: the lines found before it are\n"
     "printed, the run-time error is reported on standard error and the status is 1.\n",
     find});

} // namespace
} // namespace tessaro::cli

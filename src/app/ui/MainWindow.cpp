#include "app/ui/MainWindow.h"

#include "build/ui/BuildCommands.h"
#include "platform/core/AppInfo.h"
#include "platform/core/EventLog.h"
#include "search/ui/SearchCommands.h"
#include "shell/core/ManualLocation.h"
#include "shell/ui/MainCommands.h"
#include "tools/core/SourceAssociations.h"
#include "tools/ui/ToolsCommands.h"
#include "workspace/ui/DocumentCommands.h"
#include "workspace/ui/FileBrowser.h"
#include "workspace/ui/WorkspaceCommands.h"

namespace tessaro {

MainWindow::MainWindow(QWidget *parent) : frmMain(parent)
{
    // Each subsystem connects its own commands to the menu items and controls.
    BuildCommands::install(*this);
    ToolsCommands::install(*this);
    search::SearchCommands::install(*this);
    DocumentCommands::install(*this);
    WorkspaceCommands::install(*this);
    FileBrowser::install(*this);

    // The application's help file is the manual found beside the program.
    const QString manual = manualBeside(programFolder());
    findChild<MainCommands *>()->setHelpFile(manual);
    logEvent(manual.isEmpty() ? QStringLiteral("no help file")
                              : QStringLiteral("help file ") + manual);

    setLoadStep(LoadStep::FileAssociations, [] { registerFileAssociations(); });
    setLoadStep(LoadStep::FileBrowserFolder, [this] { FileBrowser::of(*this)->showStartFolder(); });
}

void MainWindow::LoadDocument(const QString &path)
{
    DocumentCommands::of(*this)->LoadDocument(path);
}

} // namespace tessaro

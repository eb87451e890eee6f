#include "app/ui/MainWindow.h"

#include "build/ui/BuildCommands.h"
#include "search/ui/SearchCommands.h"
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

    setLoadStep(LoadStep::FileAssociations, [] { registerFileAssociations(); });
    setLoadStep(LoadStep::FileBrowserFolder, [this] { FileBrowser::of(*this)->showStartFolder(); });
}

void MainWindow::LoadDocument(const QString &path)
{
    DocumentCommands::of(*this)->LoadDocument(path);
}

} // namespace tessaro

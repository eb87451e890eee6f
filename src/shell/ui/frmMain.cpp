#include "shell/ui/frmMain.h"

#include "platform/core/AppInfo.h"
#include "platform/core/ErrorTraps.h"
#include "shell/core/Settings.h"
#include "shell/core/WindowPlacement.h"
#include "shell/ui/MainWindowSetup.h"
#include "workspace/ui/DocumentCommands.h"
#include "workspace/ui/FileBrowser.h"
#include "workspace/ui/WorkspaceCommands.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace tessaro {

frmMain::frmMain(QWidget *parent) : QMainWindow(parent), m_mdiArea(new QMdiArea(this))
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(appTitle());
    m_mdiArea->setObjectName(QStringLiteral("MDIClient"));
    setCentralWidget(m_mdiArea);
    setUpMainWindow(*this);
    DocumentCommands::install(*this);
    WorkspaceCommands::install(*this);
    FileBrowser::install(*this);
    setLoadStep(LoadStep::FileBrowserFolder, [this] { FileBrowser::of(*this)->showStartFolder(); });
}

QAction *frmMain::action(const QString &name) const
{
    return findChild<QAction *>(name);
}

void frmMain::LoadDocument(const QString &path) { DocumentCommands::install(*this)->LoadDocument(path); }

} // namespace tessaro

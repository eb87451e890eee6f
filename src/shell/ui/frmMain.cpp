#include "shell/ui/frmMain.h"

#include "platform/core/AppInfo.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/TextFile.h"
#include "shell/core/Settings.h"
#include "shell/core/WindowPlacement.h"
#include "shell/ui/MainWindowSetup.h"
#include "workspace/ui/FileBrowser.h"
#include "workspace/ui/WorkspaceCommands.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>

namespace tessaro {

frmMain::frmMain(QWidget *parent) : QMainWindow(parent), m_mdiArea(new QMdiArea(this))
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(appTitle());
    m_mdiArea->setObjectName(QStringLiteral("MDIClient"));
    setCentralWidget(m_mdiArea);
    setUpMainWindow(*this);
    WorkspaceCommands::install(*this);
    FileBrowser::install(*this);
    setLoadStep(LoadStep::FileBrowserFolder,
                [this] { FileBrowser::of(*this)->showFolder(QStringLiteral("/")); });
}

QAction *frmMain::action(const QString &name) const
{
    return findChild<QAction *>(name);
}

void frmMain::LoadDocument(const QString &path)
{
    // A plain text window until the document window with the editor control exists.
    auto *view = new QPlainTextEdit;
    view->setReadOnly(true);
    auto *child = m_mdiArea->addSubWindow(view);
    child->setWindowTitle(path);
    trapped([&] { view->setPlainText(textfile::read(path)); });
    child->show();
}

} // namespace tessaro

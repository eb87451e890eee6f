#include "shell/ui/frmMain.h"

#include "platform/core/AppInfo.h"
#include "shell/core/MenuTable.h"
#include "shell/core/WindowPlacement.h"
#include "shell/ui/LeftPane.h"
#include "shell/ui/MainMenus.h"
#include "shell/ui/MainPanes.h"
#include "shell/ui/MainWindowSetup.h"
#include "state/core/Settings.h"

#include <QMdiArea>
#include <QMenu>

namespace tessaro {

frmMain::frmMain(QWidget *parent) : QMainWindow(parent), m_mdiArea(new QMdiArea(this))
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(appTitle());
    m_mdiArea->setObjectName(QStringLiteral("MDIClient"));
    setCentralWidget(m_mdiArea);

    setMenuBar(buildMenuBar(mainMenuTable(), this));
    for (int i = 0; i < menuItemCount; ++i) {
        const auto item = static_cast<MenuItem>(i);
        m_menuItems[i] = findChild<QAction *>(menuItemName(item));
        Q_ASSERT(m_menuItems[i]);
    }
    const MainWindowParts parts = setUpMainWindow(*this);
    m_panes = parts.panes;
    m_timer = parts.timer;
}

QAction *frmMain::menuItem(MenuItem item) const
{
    return m_menuItems.at(static_cast<std::size_t>(item));
}

QMenu *frmMain::menu(MenuItem item) const
{
    return menuItem(item)->menu();
}

LeftPane &frmMain::Picture1() const { return *m_panes->Picture1(); }
QComboBox *frmMain::fndText() const { return m_panes->fndText(); }
QPushButton *frmMain::cmdFind() const { return m_panes->cmdFind(); }
QListWidget *frmMain::lstOut() const { return m_panes->lstOut(); }
QTreeWidget *frmMain::Code1() const { return Picture1().Code1(); }
QTreeWidget *frmMain::List1() const { return Picture1().List1(); }
QComboBox *frmMain::Drive1() const { return Picture1().Drive1(); }
QListWidget *frmMain::Dir1() const { return Picture1().Dir1(); }
QListWidget *frmMain::File1() const { return Picture1().File1(); }

QAction *frmMain::action(const QString &name) const
{
    return findChild<QAction *>(name);
}

} // namespace tessaro

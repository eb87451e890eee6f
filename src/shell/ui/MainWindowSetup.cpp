#include "shell/ui/MainWindowSetup.h"

#include "build/ui/BuildCommands.h"
#include "search/ui/SearchCommands.h"
#include "shell/core/MenuTable.h"
#include "shell/ui/LeftPane.h"
#include "shell/ui/MainCommands.h"
#include "shell/ui/MainMenus.h"
#include "shell/ui/MainPanes.h"
#include "shell/ui/MainSplitter.h"
#include "shell/ui/MainStatusBar.h"
#include "shell/ui/MainTimer.h"
#include "shell/ui/MainToolbar.h"
#include "shell/ui/frmMain.h"
#include "tools/ui/ToolsCommands.h"

#include <QMenu>
#include <QMenuBar>

namespace tessaro {

void setUpMainWindow(frmMain &frame)
{
    frame.setMenuBar(buildMenuBar(mainMenuTable(), &frame));
    new WindowListMenu(frame.findChild<QMenu *>(QStringLiteral("mnuWindow")), frame.mdiArea());

    // The MDI area moves into the pane container, which aligns the panes around it.
    frame.takeCentralWidget();
    auto *panes = new MainPanes(frame.mdiArea(), &frame);
    frame.setCentralWidget(panes);
    auto *toolbar = new MainToolbar(frame, panes->cmdFind());
    panes->addBands(toolbar->toolbar());

    auto *statusBar = new MainStatusBar(&frame);
    frame.setStatusBar(statusBar);

    new MainSplitter(frame, *panes->Picture1());
    new MainTimer(frame, *panes->Picture1(), *statusBar);
    new MainCommands(frame, *panes, *statusBar);

    // Each subsystem connects its own commands to the menu and toolbar actions.
    BuildCommands::install(frame);
    ToolsCommands::install(frame);
    search::SearchCommands::install(frame);
}

} // namespace tessaro

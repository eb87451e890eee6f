#include "shell/ui/MainWindowSetup.h"

#include "shell/ui/LeftPane.h"
#include "shell/ui/MainCommands.h"
#include "shell/ui/MainMenus.h"
#include "shell/ui/MainPanes.h"
#include "shell/ui/MainSplitter.h"
#include "shell/ui/MainStatusBar.h"
#include "shell/ui/MainTimer.h"
#include "shell/ui/MainToolbar.h"
#include "shell/ui/frmMain.h"

namespace tessaro {

MainWindowParts setUpMainWindow(frmMain &frame)
{
    new WindowListMenu(frame.menu(MenuItem::mnuWindow), frame.mdiArea());

    // The MDI area moves into the pane container, which aligns the panes around it.
    frame.takeCentralWidget();
    auto *panes = new MainPanes(frame.mdiArea(), &frame);
    frame.setCentralWidget(panes);
    auto *toolbar = new MainToolbar(frame, panes->cmdFind());
    panes->addBands(toolbar->toolbar());

    auto *statusBar = new MainStatusBar(&frame);
    frame.setStatusBar(statusBar);

    new MainSplitter(frame, *panes->Picture1());
    auto *timer = new MainTimer(frame, *panes->Picture1(), *statusBar);
    new MainCommands(frame, *panes, *statusBar);
    return {panes, timer};
}

} // namespace tessaro

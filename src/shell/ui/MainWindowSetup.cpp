#include "shell/ui/MainWindowSetup.h"

#include "build/ui/BuildCommands.h"
#include "shell/core/MenuTable.h"
#include "shell/ui/MainMenus.h"
#include "shell/ui/frmMain.h"
#include "tools/ui/ToolsCommands.h"

#include <QMenu>
#include <QMenuBar>

namespace tessaro {

void setUpMainWindow(frmMain &frame)
{
    frame.setMenuBar(buildMenuBar(mainMenuTable(), &frame));
    new WindowListMenu(frame.findChild<QMenu *>(QStringLiteral("mnuWindow")), frame.mdiArea());
    BuildCommands::install(frame);
    ToolsCommands::install(frame);
}

} // namespace tessaro

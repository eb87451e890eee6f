#include "tools/ui/ToolsCommands.h"

#include "shell/ui/frmMain.h"
#include "tools/ui/PublishingWizard.h"
#include "tools/ui/frmOptions.h"

#include <QAction>

namespace tessaro {

void ToolsCommands::install(frmMain &main)
{
    frmMain *window = &main;
    // View > Options stays disabled as designed; it shows the same dialog when enabled.
    for (const char *name : {"mnuToolsOptions", "mnuViewOptions"}) {
        if (QAction *action = main.action(QLatin1String(name)))
            QObject::connect(action, &QAction::triggered, window,
                             [window] { mnuToolsOptions_Click(window); });
    }
    if (QAction *upload = main.action(QStringLiteral("mnuBuildUpload")))
        QObject::connect(upload, &QAction::triggered, window, [] { mnuBuildUpload_Click(); });
}

void ToolsCommands::mnuToolsOptions_Click(QWidget *main)
{
    frmOptions::showModal(main);
}

void ToolsCommands::mnuBuildUpload_Click()
{
    wizard::open();
}

} // namespace tessaro

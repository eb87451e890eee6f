#include "tools/ui/ToolsCommands.h"

#include "shell/ui/frmMain.h"
#include "tools/ui/PublishingWizard.h"
#include "tools/ui/frmOptions.h"

namespace tessaro {

void ToolsCommands::install(frmMain &main)
{
    frmMain *window = &main;
    // View > Options stays disabled as designed; it shows the same dialog when enabled.
    for (const MenuItem item : {MenuItem::mnuToolsOptions, MenuItem::mnuViewOptions})
        main.connectCommand(item, window, [window] { mnuToolsOptions_Click(window); });
    main.connectCommand(MenuItem::mnuBuildUpload, window, [] { mnuBuildUpload_Click(); });
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

#pragma once

class QWidget;

namespace tessaro {

class frmMain;

// The main window's commands for the tool paths and the publishing wizard.
class ToolsCommands
{
public:
    // Connects Tools > Options, View > Options and Build > Publish Mod.
    static void install(frmMain &main);

    // Both options commands: the options dialog, modal, owned by the main window.
    static void mnuToolsOptions_Click(QWidget *main);
    // Publish Mod: the wizard's first page, without waiting for it.
    static void mnuBuildUpload_Click();
};

} // namespace tessaro

#pragma once

namespace tessaro {

class frmMain;

// Builds everything the main window shows around its document area: the menu bar,
// and (as they arrive) panes, toolbar, status bar, timer and window commands. Called
// once from the window's constructor.
void setUpMainWindow(frmMain &frame);

} // namespace tessaro

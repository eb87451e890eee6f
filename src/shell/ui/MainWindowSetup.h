#pragma once

namespace tessaro {

class frmMain;
class MainPanes;
class MainTimer;

// The parts of the main window that the window hands out by type.
struct MainWindowParts
{
    MainPanes *panes = nullptr;
    MainTimer *timer = nullptr;
};

// Builds everything the main window shows around its document area once its menu bar
// is in place: panes, toolbar, status bar, splitter, timer and the window's own
// commands. Called once from the window's constructor.
MainWindowParts setUpMainWindow(frmMain &frame);

} // namespace tessaro

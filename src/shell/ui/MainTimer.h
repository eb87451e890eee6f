#pragma once

#include <QObject>
#include <functional>

class QTimer;

namespace tessaro {

class frmMain;
class LeftPane;
class MainStatusBar;

// The main window's timer `Timer1`: every 100 ms it makes three checks, in order:
// a pending file to open, a pending folder for the file browser, and a moved caret
// whose line goes to the status bar.
class MainTimer : public QObject
{
    Q_OBJECT
public:
    MainTimer(frmMain &frame, LeftPane &pane, MainStatusBar &statusBar);

    QTimer *timer() const { return m_timer; }
    // The caret line (0-based) the last update showed; -1 before the first.
    int currentLine() const { return m_currentLine; }
    // What rebuilds the structure view when the browser moves to a "/source" folder.
    void setStructureViewRebuild(std::function<void()> rebuild) { m_rebuild = std::move(rebuild); }

    // One tick.
    void Timer1_Timer();

private:
    void openPendingFile();
    void followPendingBrowserFolder();
    void showCaretLine();

    frmMain &m_frame;
    LeftPane &m_pane;
    MainStatusBar &m_statusBar;
    QTimer *m_timer;
    std::function<void()> m_rebuild;
    int m_currentLine = -1;
    bool m_ticking = false;
};

} // namespace tessaro

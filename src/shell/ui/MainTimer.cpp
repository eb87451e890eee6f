#include "shell/ui/MainTimer.h"

#include "platform/core/ErrorTraps.h"
#include "shell/ui/ActiveDocument.h"
#include "shell/ui/LeftPane.h"
#include "shell/ui/MainStatusBar.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"

#include <QComboBox>
#include <QListWidget>
#include <QTimer>

namespace tessaro {

MainTimer::MainTimer(frmMain &frame, LeftPane &pane, MainStatusBar &statusBar)
    : QObject(&frame), m_frame(frame), m_pane(pane), m_statusBar(statusBar),
      m_timer(new QTimer(this))
{
    setObjectName(QStringLiteral("mainTimer"));
    m_timer->setObjectName(QStringLiteral("Timer1"));
    m_timer->setInterval(100);
    connect(m_timer, &QTimer::timeout, this, &MainTimer::Timer1_Timer);
    m_timer->start();
}

void MainTimer::Timer1_Timer()
{
    // A tick that arrives while an earlier one still runs (a message box shown while
    // a file opens) is skipped, so a pending file is never opened twice.
    if (m_ticking)
        return;
    m_ticking = true;
    untrapped([this] {
        openPendingFile();
        followPendingBrowserFolder();
        showCaretLine();
    });
    m_ticking = false;
}

void MainTimer::openPendingFile()
{
    AppState &state = app();
    if (state.pendingOpenPath.isEmpty())
        return;
    m_frame.LoadDocument(state.pendingOpenPath);
    state.pendingOpenPath.clear();
}

void MainTimer::followPendingBrowserFolder()
{
    // Start-up leaves the pending folder empty and nothing assigns it later, so this
    // never happens while the program runs; it is kept for the folder it would follow.
    AppState &state = app();
    if (state.pendingBrowserFolder.isEmpty())
        return;
    const QString folder = state.pendingBrowserFolder;
    state.workspaceFolder = folder;
    state.pendingBrowserFolder.clear();
    if (QComboBox *drive = m_pane.Drive1())
        drive->setProperty("Drive", folder.left(2));
    if (QListWidget *dir = m_pane.Dir1())
        dir->setProperty("Path", folder);
    if (folder.right(7) == QLatin1String("/source") && m_rebuild)
        m_rebuild();
}

void MainTimer::showCaretLine()
{
    AppState &state = app();
    if (!state.caretMoved)
        return;
    // Only a document's editor moves the caret; until one is active the flag waits.
    const QVariant line = readByName(codeOf(activeChild(m_frame.mdiArea())), "CurrentLine");
    if (!line.isValid())
        return;
    m_currentLine = line.toInt();
    m_statusBar.setPanelText(1, QStringLiteral("Line ") + QString::number(m_currentLine + 1));
    state.caretMoved = false;
}

} // namespace tessaro

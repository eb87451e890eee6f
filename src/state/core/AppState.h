#pragma once

#include "state/core/Settings.h"
#include "state/core/WorkspaceState.h"

#include <QString>

namespace tessaro {

// The program's process-wide state, kept in one place and shared by the main
// window, the documents, the builds and the search.
struct AppState
{
    ToolSettings tools;
    WorkspaceState workspace;

    // A file the main window's timer opens on its next tick, with an optional caret
    // position (0 = none) that the opened document takes.
    QString pendingOpenPath;
    qint32 pendingCaretPosition = 0;

    // Set when a document's caret moved; the timer shows the line and clears it.
    bool caretMoved = false;
    // The last key pressed in a C document and its pending flag (-1 = pending).
    // Nothing reads them.
    qint16 pendingKey = 0;
    qint16 pendingKeyFlag = 0;

    // The file browser's pending folder (start-up sets it empty and nothing assigns
    // it afterwards) and the workspace folder that the timer would take from it.
    QString pendingBrowserFolder;
    QString workspaceFolder;
};

AppState &app();
// Back to the state of a fresh start (for tests).
void resetApp();

} // namespace tessaro

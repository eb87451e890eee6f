#pragma once

#include "workspace/core/WorkspaceSession.h"

#include <QObject>
#include <QPointer>

class QTreeWidget;
class QTreeWidgetItem;

namespace tessaro {

class frmMain;

// The File menu's workspace commands (New, Open and Close Workspace, Add File(s))
// and the two trees of the left pane that show the workspace: the FileView tree
// `Code1` and the structure view `List1`. Selecting a file node or a structure entry
// schedules the file for the main window's timer, which opens it.
class WorkspaceCommands : public QObject
{
    Q_OBJECT
public:
    // Connects the commands to the window's actions and trees; calling it again
    // returns the same object.
    static WorkspaceCommands *install(frmMain &frame);
    // The object install() made for the window, nullptr before.
    static WorkspaceCommands *of(const frmMain &frame);

    WorkspaceSession &session() { return m_session; }

    void mnuFileNW_Click();
    void mnuFileOW_Click();
    void mnuFileCW_Click();
    void mnuFileInsert_Click();

    // Shows both models in their trees again.
    void refreshTrees();

private:
    explicit WorkspaceCommands(frmMain &frame);
    // Connects the File menu's workspace commands, the two trees and the timer's
    // structure view rebuild.
    void connectToWindow();
    void Code1_NodeClick(QTreeWidgetItem *item);
    void List1_NodeClick(QTreeWidgetItem *item);

    frmMain &m_frame;
    WorkspaceSession m_session;
    QPointer<QTreeWidget> m_code1;
    QPointer<QTreeWidget> m_list1;
};

} // namespace tessaro

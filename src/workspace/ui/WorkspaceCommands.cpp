#include "workspace/ui/WorkspaceCommands.h"

#include "platform/core/ErrorTraps.h"
#include "shell/ui/MainTimer.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "workspace/ui/TreeMirror.h"

#include <QAction>
#include <QTreeWidget>

namespace tessaro {

namespace {
const char kObjectName[] = "workspaceCommands";
}

WorkspaceCommands::WorkspaceCommands(frmMain &frame)
    : QObject(&frame), m_frame(frame), m_session(app())
{
    setObjectName(QLatin1String(kObjectName));
    connectToWindow();
}

WorkspaceCommands *WorkspaceCommands::of(const frmMain &frame)
{
    return frame.findChild<WorkspaceCommands *>(QLatin1String(kObjectName),
                                                Qt::FindDirectChildrenOnly);
}

WorkspaceCommands *WorkspaceCommands::install(frmMain &frame)
{
    if (WorkspaceCommands *commands = of(frame))
        return commands;
    return new WorkspaceCommands(frame);
}

void WorkspaceCommands::connectToWindow()
{
    m_frame.connectCommand(MenuItem::mnuFileNW, this, &WorkspaceCommands::mnuFileNW_Click);
    m_frame.connectCommand(MenuItem::mnuFileOW, this, &WorkspaceCommands::mnuFileOW_Click);
    m_frame.connectCommand(MenuItem::mnuFileCW, this, &WorkspaceCommands::mnuFileCW_Click);
    m_frame.connectCommand(MenuItem::mnuFileInsert, this, &WorkspaceCommands::mnuFileInsert_Click);

    // A click on the current node opens it again; moving with the keys opens too.
    m_code1 = m_frame.Code1();
    m_list1 = m_frame.List1();
    connect(m_code1, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *item) { Code1_NodeClick(item); });
    connect(m_code1, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem *item) { Code1_NodeClick(item); });
    connect(m_list1, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *item) { List1_NodeClick(item); });
    connect(m_list1, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem *item) { List1_NodeClick(item); });
    // The main timer rebuilds the structure view when the browser follows a pending
    // "/source" folder; its run-time errors go to the timer, which traps none.
    m_frame.Timer1().setStructureViewRebuild([this] {
        try {
            m_session.buildStructView();
        } catch (...) {
            refreshTrees();
            throw;
        }
        refreshTrees();
    });
    refreshTrees();
}

void WorkspaceCommands::refreshTrees()
{
    showNodeTree(m_code1, m_session.fileView());
    showNodeTree(m_list1, m_session.structView());
}

void WorkspaceCommands::mnuFileNW_Click()
{
    trapped([this] { m_session.newWorkspace(); });
    refreshTrees();
}

void WorkspaceCommands::mnuFileOW_Click()
{
    trapped([this] { m_session.openWorkspace(); });
    refreshTrees();
}

void WorkspaceCommands::mnuFileCW_Click()
{
    m_session.closeWorkspace();
    refreshTrees();
}

void WorkspaceCommands::mnuFileInsert_Click()
{
    trapped([this] { m_session.addFiles(); });
    refreshTrees();
}

void WorkspaceCommands::Code1_NodeClick(QTreeWidgetItem *item)
{
    if (item)
        m_session.fileNodeSelected(nodeKey(item));
}

void WorkspaceCommands::List1_NodeClick(QTreeWidgetItem *item)
{
    if (item)
        trapped([&] { m_session.structNodeSelected(nodeKey(item)); });
}

} // namespace tessaro

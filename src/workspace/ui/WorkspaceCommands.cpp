#include "workspace/ui/WorkspaceCommands.h"

#include "platform/core/ErrorTraps.h"
#include "shell/core/AppState.h"
#include "shell/ui/MainTimer.h"
#include "shell/ui/frmMain.h"
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
}

WorkspaceCommands *WorkspaceCommands::of(const frmMain &frame)
{
    return frame.findChild<WorkspaceCommands *>(QLatin1String(kObjectName),
                                                Qt::FindDirectChildrenOnly);
}

WorkspaceCommands *WorkspaceCommands::install(frmMain &frame)
{
    WorkspaceCommands *commands = of(frame);
    if (!commands)
        commands = new WorkspaceCommands(frame);
    commands->attach();
    return commands;
}

void WorkspaceCommands::attach()
{
    connectAction("mnuFileNW", &WorkspaceCommands::mnuFileNW_Click);
    connectAction("mnuFileOW", &WorkspaceCommands::mnuFileOW_Click);
    connectAction("mnuFileCW", &WorkspaceCommands::mnuFileCW_Click);
    connectAction("mnuFileInsert", &WorkspaceCommands::mnuFileInsert_Click);

    auto *code1 = m_frame.findChild<QTreeWidget *>(QStringLiteral("Code1"));
    if (code1 && code1 != m_code1) {
        m_code1 = code1;
        // A click on the current node opens it again; moving with the keys opens too.
        connect(code1, &QTreeWidget::itemClicked, this,
                [this](QTreeWidgetItem *item) { Code1_NodeClick(item); });
        connect(code1, &QTreeWidget::currentItemChanged, this,
                [this](QTreeWidgetItem *item) { Code1_NodeClick(item); });
    }
    auto *list1 = m_frame.findChild<QTreeWidget *>(QStringLiteral("List1"));
    if (list1 && list1 != m_list1) {
        m_list1 = list1;
        connect(list1, &QTreeWidget::itemClicked, this,
                [this](QTreeWidgetItem *item) { List1_NodeClick(item); });
        connect(list1, &QTreeWidget::currentItemChanged, this,
                [this](QTreeWidgetItem *item) { List1_NodeClick(item); });
    }
    // The main timer rebuilds the structure view when the browser follows a pending
    // "/source" folder; its run-time errors go to the timer, which traps none.
    if (auto *timer = m_frame.findChild<MainTimer *>()) {
        timer->setStructureViewRebuild([this] {
            try {
                m_session.buildStructView();
            } catch (...) {
                refreshTrees();
                throw;
            }
            refreshTrees();
        });
    }
    refreshTrees();
}

void WorkspaceCommands::connectAction(const char *name, void (WorkspaceCommands::*handler)())
{
    QAction *action = m_frame.action(QLatin1String(name));
    if (!action || m_connected.contains(action))
        return;
    m_connected.append(action);
    connect(action, &QAction::triggered, this, handler);
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

#include "workspace/core/WorkspaceSession.h"

#include "platform/core/CommonDialog.h"
#include "platform/core/TextFile.h"
#include "state/core/AppState.h"
#include "workspace/core/StructScan.h"
#include "workspace/core/WorkspaceFile.h"

namespace tessaro {

namespace {

constexpr Group kAllGroups[] = {Group::Source, Group::UI,        Group::CGame,
                                Group::Game,   Group::Resources, Group::Headers};

bool isGroupKey(const QString &key)
{
    return key == QLatin1String("G") || key == QLatin1String("C") || key == QLatin1String("U") ||
           key == QLatin1String("H");
}

QString tagOf(Group group)
{
    return QLatin1String(groupInfo(group).tag);
}

} // namespace

WorkspaceSession::WorkspaceSession(AppState &state) : m_state(state), m_workspace(state.workspace)
{
}

QString WorkspaceSession::newWorkspaceTitle()
{
    return QStringLiteral("New Workspace");
}
QString WorkspaceSession::openWorkspaceTitle()
{
    return QStringLiteral("Open Workspace");
}
QString WorkspaceSession::addFilesTitle()
{
    return QStringLiteral("Add Files");
}

QString WorkspaceSession::workspaceFilter()
{
    return QStringLiteral("Tessaro Dir Info (*.tdi)|*.tdi");
}

QString WorkspaceSession::addFilesFilter()
{
    return QStringLiteral("C Files (*.c, *.cpp)|*.c;*.cpp|H Files (*.h)|*.h|RC Files (*.rc)|*.rc");
}

void WorkspaceSession::newWorkspace()
{
    closeWorkspace();
    m_workspace.open = true;
    FileDialogRequest request;
    request.kind = FileDialogRequest::Save;
    request.title = newWorkspaceTitle();
    request.filter = workspaceFilter();
    const QString name = showFileDialog(request);
    if (name.isEmpty())
        return;
    workspacefile::CreateWorkspaceFile(name);
    m_workspace.path = name;
}

void WorkspaceSession::openWorkspace()
{
    closeWorkspace();
    FileDialogRequest request;
    request.kind = FileDialogRequest::Open;
    request.title = openWorkspaceTitle();
    request.filter = workspaceFilter();
    request.cancelError = true;
    const QString name = showFileDialog(request);
    if (name.isEmpty())
        return;
    openWorkspaceFile(name);
}

void WorkspaceSession::openWorkspaceFile(const QString &path)
{
    workspacefile::ReadWorkspaceFile(path, m_workspace, m_fileView);
    buildStructView();
    m_workspace.path = path;
}

void WorkspaceSession::closeWorkspace()
{
    if (!m_workspace.open)
        return;
    m_fileView.clear();
    m_structView.clear();
    for (Group group : kAllGroups) {
        FixedList<QString> &list = m_workspace.list(group);
        for (int i = 0; i < list.count(); ++i)
            list.set(i, QString());
    }
    m_workspace.open = false;
    m_workspace.path.clear();
    m_workspace.resetCounts();
}

void WorkspaceSession::addFiles()
{
    if (!m_workspace.open)
        return;
    FileDialogRequest request;
    request.kind = FileDialogRequest::Open;
    request.title = addFilesTitle();
    request.filter = addFilesFilter();
    request.allowMultiSelect = true;
    request.cancelError = true;
    const QString selection = showFileDialog(request);
    if (selection.isEmpty())
        return;
    addSelection(selection);
}

void WorkspaceSession::addSelection(const QString &selection)
{
    // The marks are looked for in a lower-cased copy; the paths keep their case.
    const QString lowered = selection.toLower();
    const Group group = classify(lowered);
    const int blank = selection.indexOf(QLatin1Char(' '));
    if (blank < 0) {
        addSingleFile(group, selection);
        return;
    }
    const QString folder = selection.left(blank);
    const QStringList items = selection.mid(blank + 1).split(QLatin1Char(' '));
    for (const QString &item : items)
        addFileOfSelection(group, folder + QLatin1Char('/') + item.trimmed());
}

Group WorkspaceSession::classify(const QString &lowerCaseSelection)
{
    const QString &name = lowerCaseSelection;
    auto has = [&name](const char *lower, const char *upper) {
        return name.contains(QLatin1String(lower)) || name.contains(QLatin1String(upper));
    };
    if (has(".h", ".H"))
        return Group::Headers;
    if (has(".rc", ".RC"))
        return Group::Resources;
    if (has("/game", "/GAME"))
        return Group::Game;
    if (has("cgame", "CGAME"))
        return Group::CGame;
    if (has("ui", "UI"))
        return Group::UI;
    return Group::Source;
}

// One chosen file: tree, list, then the workspace file.
void WorkspaceSession::addSingleFile(Group group, const QString &path)
{
    workspacefile::addGroupNodeIfFirst(group, m_workspace, m_fileView);
    workspacefile::addFileNode(group, path, m_fileView);
    m_workspace.list(group).append(path);
    workspacefile::AppendWorkspaceEntry(m_workspace.path, tagOf(group), path);
}

// One file of several chosen: the workspace file first, then tree and list.
void WorkspaceSession::addFileOfSelection(Group group, const QString &path)
{
    workspacefile::AppendWorkspaceEntry(m_workspace.path, tagOf(group), path);
    workspacefile::addGroupNodeIfFirst(group, m_workspace, m_fileView);
    workspacefile::addFileNode(group, path, m_fileView);
    m_workspace.list(group).append(path);
}

void WorkspaceSession::buildStructView()
{
    for (Group group : {Group::Game, Group::CGame, Group::Headers, Group::UI}) {
        const GroupInfo &info = groupInfo(group);
        m_structView.add(QString(), QLatin1String(info.nodeKey), QLatin1String(info.nodeText),
                         GroupImage);
        const FixedList<QString> &list = m_workspace.list(group);
        for (int i = 0; i < list.count(); ++i)
            scanFile(group, list.at(i));
    }
    const FixedList<QString> &sources = m_workspace.list(Group::Source);
    for (int i = 0; i < sources.count(); ++i)
        scanFile(Group::Source, sources.at(i));
    m_workspace.open = true;
}

void WorkspaceSession::scanFile(Group group, const QString &path)
{
    const QByteArray text = structscan::withCrLfLineBreaks(textfile::readBytes(path));
    const char *key = groupInfo(group).nodeKey;
    const QString parent = key ? QLatin1String(key) : QString();
    structscan::scanDeclarations(text, [&](qint32 position, const QString &name) {
        m_structView.add(parent, path + QLatin1Char('-') + QString::number(position), name,
                         StructImage);
    });
}

void WorkspaceSession::fileNodeSelected(const QString &key)
{
    if (isGroupKey(key))
        return;
    m_state.pendingOpenPath = key;
}

void WorkspaceSession::structNodeSelected(const QString &key)
{
    if (isGroupKey(key))
        return;
    const int dash = key.indexOf(QLatin1Char('-'));
    if (dash < 0)
        raise(RuntimeError::InvalidProcedureCall);
    m_state.pendingCaretPosition = structscan::val(key.mid(dash + 1));
    m_state.pendingOpenPath = m_state.workspaceFolder + key.left(dash);
}

} // namespace tessaro

#pragma once

#include "state/core/WorkspaceState.h"
#include "workspace/core/NodeTree.h"

#include <QString>

namespace tessaro {

struct AppState;

// The workspace commands of the File menu and the two trees they fill: the FileView
// tree (Code1) and the structure view (List1). The commands work on the process-wide
// state and ask for file names through the common dialog; every error ends the
// command by propagating (the caller traps it) and keeps what was already done.
class WorkspaceSession
{
public:
    explicit WorkspaceSession(AppState &state);

    NodeTree &fileView() { return m_fileView; }
    const NodeTree &fileView() const { return m_fileView; }
    NodeTree &structView() { return m_structView; }
    const NodeTree &structView() const { return m_structView; }

    // File > New Workspace...: closes the open workspace, marks one open (whatever
    // the dialog's outcome) and creates the chosen file empty.
    void newWorkspace();
    // File > Open Workspace...: closes the open workspace, reads the chosen file into
    // the lists and the FileView tree, builds the structure view and takes the path.
    void openWorkspace();
    // Reads a workspace file and builds the structure view, as Open Workspace does
    // after its dialog.
    void openWorkspaceFile(const QString &path);
    // File > Close Workspace: empties both trees and the lists; documents stay open.
    void closeWorkspace();
    // File > Add File(s)...: asks for files, sorts them into a group and appends them
    // to the tree, the lists and the workspace file.
    void addFiles();
    // Adds the text a multiple-selection dialog returned (one full path, or the
    // folder, a blank and the names).
    void addSelection(const QString &selection);

    // Builds the structure view from the Game, CGame, Headers, UI and Source lists and
    // marks the workspace open.
    void buildStructView();

    // A node of the FileView tree was selected: any key but a group's "G", "C", "U" and
    // "H" becomes the file to open.
    void fileNodeSelected(const QString &key);
    // A node of the structure view was selected: opens the entry's file at its
    // declaration (through the pending path and caret position).
    void structNodeSelected(const QString &key);

    // The group of an added selection, decided on its lower-cased text.
    static Group classify(const QString &lowerCaseSelection);

    static QString newWorkspaceTitle();
    static QString openWorkspaceTitle();
    static QString addFilesTitle();
    static QString workspaceFilter();
    static QString addFilesFilter();

    // The structure view's images.
    static constexpr int GroupImage = 1;
    static constexpr int StructImage = 2;

private:
    void addSingleFile(Group group, const QString &path);
    void addFileOfSelection(Group group, const QString &path);
    void scanFile(Group group, const QString &path);

    AppState &m_state;
    WorkspaceState &m_workspace;
    NodeTree m_fileView;
    NodeTree m_structView;
};

} // namespace tessaro

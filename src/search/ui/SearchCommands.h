#pragma once

#include "search/core/FindController.h"
#include "search/core/FindInFiles.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

class QComboBox;
class QMdiSubWindow;

namespace tessaro {
class frmMain;
}

namespace tessaro::search {

class frmFnF;
class frmOut;

// The search commands of the main window: Find (the find box's button, also reached
// by the toolbar's "Find"), Edit > Find Again (F3) and Edit > Find in Files..., with
// the Find in Files dialog and the output window they open as MDI children.
class SearchCommands : public QObject
{
    Q_OBJECT
public:
    // Creates the commands as a child of the main window and connects them to its
    // find box button and its Edit menu items.
    static SearchCommands *install(frmMain &main);

    explicit SearchCommands(frmMain &main);

    void cmdFind_Click();
    void mnuEditFA_Click();
    void mnuEditFindnF_Click();

    const FindController &controller() const { return m_controller; }
    const FindInFilesQuery &query() const { return m_query; }
    // The loaded dialog and output window (null when not loaded).
    frmFnF *findInFilesDialog() const;
    frmOut *outputWindow() const;

    // Where the search folder comes from: the file browser's current folder.
    void setBrowserFolderSource(std::function<QString()> source);

private:
    QComboBox *findBox() const;
    // The active document's editor, or null when no document window is active.
    std::unique_ptr<FindTarget> activeDocument() const;
    void showOutputWindow();
    QMdiSubWindow *addChild(QWidget *form);
    // Shows a loaded form's MDI child window and makes it the active one.
    void showChild(QWidget *form);

    frmMain &m_main;
    FindController m_controller;
    FindInFilesQuery m_query;
    std::function<QString()> m_browserFolder;
    QPointer<frmFnF> m_findInFiles;
    QPointer<frmOut> m_output;
};

} // namespace tessaro::search

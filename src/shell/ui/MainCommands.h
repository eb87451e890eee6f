#pragma once

#include <QObject>
#include <QString>

class QMdiArea;
class QWidget;

namespace tessaro {

class frmMain;
class MainPanes;

// The commands of the menu bar that act on the active document's editor, on the MDI
// area and on the main window itself: clipboard and undo, printing and page set-up,
// window arrangement, the View toggles, the placeholders, help and Exit. Commands of
// other subsystems are connected by those subsystems to the same actions.
class MainCommands : public QObject
{
    Q_OBJECT
public:
    enum ArrangeMode { Cascade = 0, TileHorizontal = 1, TileVertical = 2, ArrangeIcons = 3 };

    MainCommands(frmMain &frame, MainPanes &panes, QWidget &statusBar);

    // The help file the help commands show: the manual's index page, with its search
    // page beside it. Empty until the composed window names the manual it found.
    QString helpFile() const { return m_helpFile; }
    void setHelpFile(const QString &path) { m_helpFile = path; }

    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuEditUndo_Click();
    void mnuFilePrint_Click();
    void mnuFilePageSetup_Click();
    void Arrange(int mode);
    void mnuViewStatusBar_Click();
    void mnuViewOutput_Click();
    void mnuViewToolbar_Click();
    void mnuViewRefresh_Click();
    void mnuFileSend_Click();
    void mnuFilePrintPreview_Click();
    void mnuFileSaveAll_Click();
    // A command of the window that no menu reaches.
    void mnuEditPasteSpecial_Click();
    void mnuHelpContents_Click();
    void mnuHelpSearchForHelpOn_Click();
    void mnuHelpAbout_Click();
    void mnuFileExit_Click();

private:
    void callOnActiveCode(const char *member);
    void showHelp(bool search);

    frmMain &m_frame;
    MainPanes &m_panes;
    QWidget &m_statusBar;
    QString m_helpFile;
};

} // namespace tessaro

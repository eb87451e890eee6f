#pragma once

#include <QObject>
#include <QPointer>

class QMdiSubWindow;

namespace tessaro {

class frmMain;
class frmDocument;

// The document commands of the File menu (New, Open, Save, Save As, Close) and the
// open-by-path operation, LoadDocument, through which the command line, the
// workspace tree, the structure view and the file browser open files. The main
// window's document counter lives here.
class DocumentCommands : public QObject
{
    Q_OBJECT
public:
    // Connects the File menu's document commands; calling it again returns the same
    // object.
    static DocumentCommands *install(frmMain &frame);
    static DocumentCommands *of(const frmMain &frame);

    // A new untitled document window, "Source " + the counter, shown.
    frmDocument *NewDocument();
    // Opens a file in a new document window at the pending caret position. A file
    // that cannot be read leaves the new, empty window with its temporary caption.
    frmDocument *LoadDocument(const QString &path);

    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    void mnuFileClose_Click();

    qint32 documentCounter() const { return m_counter; }
    // The active child window's document; nullptr when there is none or the active
    // child is another kind of window (Find in Files, the output window).
    frmDocument *activeDocument() const;

Q_SIGNALS:
    // A new document window exists (shown, with its first caption).
    void documentCreated(frmDocument *document);

private:
    explicit DocumentCommands(frmMain &frame);

    frmMain &m_frame;
    qint32 m_counter = 0;
};

} // namespace tessaro

#include "shell/ui/MainCommands.h"

#include "platform/core/CommonDialog.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/MsgBox.h"
#include "shell/core/MdiArrange.h"
#include "shell/ui/ActiveDocument.h"
#include "shell/ui/MainPanes.h"
#include "shell/ui/frmMain.h"

#include <QAction>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QUrl>

namespace tessaro {

MainCommands::MainCommands(frmMain &frame, MainPanes &panes, QWidget &statusBar)
    : QObject(&frame), m_frame(frame), m_panes(panes), m_statusBar(statusBar)
{
    setObjectName(QStringLiteral("mainCommands"));
    connectAction("mnuEditCut", &MainCommands::mnuEditCut_Click);
    connectAction("mnuEditCopy", &MainCommands::mnuEditCopy_Click);
    connectAction("mnuEditPaste", &MainCommands::mnuEditPaste_Click);
    connectAction("mnuEditUndo", &MainCommands::mnuEditUndo_Click);
    connectAction("mnuFilePrint", &MainCommands::mnuFilePrint_Click);
    connectAction("mnuFilePageSetup", &MainCommands::mnuFilePageSetup_Click);
    connectAction("mnuViewStatusBar", &MainCommands::mnuViewStatusBar_Click);
    connectAction("mnuViewOutput", &MainCommands::mnuViewOutput_Click);
    connectAction("mnuViewToolbar", &MainCommands::mnuViewToolbar_Click);
    connectAction("mnuViewRefresh", &MainCommands::mnuViewRefresh_Click);
    connectAction("mnuFileSend", &MainCommands::mnuFileSend_Click);
    connectAction("mnuFilePrintPreview", &MainCommands::mnuFilePrintPreview_Click);
    connectAction("mnuFileSaveAll", &MainCommands::mnuFileSaveAll_Click);
    connectAction("mnuHelpContents", &MainCommands::mnuHelpContents_Click);
    connectAction("mnuHelpSearchForHelpOn", &MainCommands::mnuHelpSearchForHelpOn_Click);
    connectAction("mnuFileExit", &MainCommands::mnuFileExit_Click);

    const struct
    {
        const char *name;
        ArrangeMode mode;
    } arrangements[] = {{"mnuWindowCascade", Cascade},
                        {"mnuWindowTileHorizontal", TileHorizontal},
                        {"mnuWindowTileVertical", TileVertical},
                        {"mnuWindowArrangeIcons", ArrangeIcons}};
    for (const auto &a : arrangements) {
        const int mode = a.mode;
        connect(frame.action(QString::fromLatin1(a.name)), &QAction::triggered, this,
                [this, mode] { Arrange(mode); });
    }
    // New Window opens a new document exactly as File > New does.
    connect(frame.action(QStringLiteral("mnuWindowNewWindow")), &QAction::triggered, this,
            [this] { m_frame.action(QStringLiteral("mnuFileNew"))->trigger(); });
}

void MainCommands::connectAction(const char *name, void (MainCommands::*slot)())
{
    connect(m_frame.action(QString::fromLatin1(name)), &QAction::triggered, this, slot);
}

void MainCommands::callOnActiveCode(const char *member)
{
    // The editor may have no such member (it has no Cut): the call fails and the
    // failure is ignored like any other error of the call.
    trapped([&] { callByName(codeOf(activeChild(m_frame.mdiArea())), member); });
}

void MainCommands::mnuEditCut_Click()
{
    callOnActiveCode("Cut");
}

void MainCommands::mnuEditCopy_Click()
{
    callOnActiveCode("Copy");
}

void MainCommands::mnuEditPaste_Click()
{
    callOnActiveCode("Paste");
}

void MainCommands::mnuEditUndo_Click()
{
    QMdiSubWindow *child = activeChild(m_frame.mdiArea());
    if (!child || isOutputOrFindInFiles(child))
        return;
    trapped([&] { callByName(codeOf(child), "Undo"); });
}

void MainCommands::mnuFilePrint_Click()
{
    QMdiSubWindow *child = activeChild(m_frame.mdiArea());
    if (!child)
        return;
    // The editor has no PrintDoc, so this changes nothing with today's documents.
    trapped([&] { callByName(codeOf(child), "PrintDoc", {child->windowTitle()}); });
}

void MainCommands::mnuFilePageSetup_Click()
{
    // A cancel only ends the command.
    trapped([] { commonDialog().printerSetup(QStringLiteral("Page Setup")); });
}

void MainCommands::Arrange(int mode)
{
    QMdiArea *area = m_frame.mdiArea();
    const QRect space = area->viewport()->rect();
    QList<QMdiSubWindow *> windows;
    QList<QMdiSubWindow *> icons;
    for (QMdiSubWindow *child : area->subWindowList()) {
        if (child->isHidden())
            continue;
        (child->isMinimized() ? icons : windows).append(child);
    }
    switch (mode) {
    case Cascade: area->cascadeSubWindows(); break;
    case TileHorizontal:
    case TileVertical: {
        const QVector<QRect> rects = tileRects(space, int(windows.size()), mode == TileHorizontal);
        for (int i = 0; i < windows.size(); ++i) {
            if (windows[i]->isMaximized())
                windows[i]->showNormal();
            windows[i]->setGeometry(rects[i]);
        }
        break;
    }
    case ArrangeIcons: {
        if (icons.isEmpty())
            break;
        const QVector<QRect> rects = iconRects(space, int(icons.size()), icons.first()->size());
        for (int i = 0; i < icons.size(); ++i)
            icons[i]->move(rects[i].topLeft());
        break;
    }
    default: break;
    }
}

// The toggles: the item's check mark has already been inverted by the time its
// command runs (the actions carry their own check mark); the pane follows it.
void MainCommands::mnuViewStatusBar_Click()
{
    m_statusBar.setVisible(m_frame.action(QStringLiteral("mnuViewStatusBar"))->isChecked());
}

void MainCommands::mnuViewOutput_Click()
{
    m_panes.Picture3()->setVisible(m_frame.action(QStringLiteral("mnuViewOutput"))->isChecked());
}

// The toolbar strip itself stays: only the check mark changes.
void MainCommands::mnuViewToolbar_Click() {}

void MainCommands::mnuViewRefresh_Click()
{
    MsgBox(QStringLiteral("Add 'mnuViewRefresh_Click' code."));
}

void MainCommands::mnuFileSend_Click()
{
    MsgBox(QStringLiteral("Add 'mnuFileSend_Click' code."));
}

void MainCommands::mnuFilePrintPreview_Click()
{
    MsgBox(QStringLiteral("Add 'mnuFilePrintPreview_Click' code."));
}

void MainCommands::mnuFileSaveAll_Click()
{
    MsgBox(QStringLiteral("Add 'mnuFileSaveAll_Click' code."));
}

void MainCommands::mnuEditPasteSpecial_Click()
{
    MsgBox(QStringLiteral("Add 'mnuEditPasteSpecial_Click' code."));
}

void MainCommands::mnuHelpContents_Click()
{
    showHelp(false);
}

void MainCommands::mnuHelpSearchForHelpOn_Click()
{
    showHelp(true);
}

void MainCommands::showHelp(bool search)
{
    if (m_helpFile.isEmpty()) {
        MsgBox(QStringLiteral("Unable to display Help Contents. There is no Help associated with "
                              "this project."),
               mb::OKOnly | mb::Information);
        return;
    }
    // The desktop's viewer has no separate search page: both commands open the file.
    Q_UNUSED(search);
    try {
        if (!QFileInfo::exists(m_helpFile))
            raise(RuntimeError::FileNotFound);
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(m_helpFile)))
            throw RuntimeError(RuntimeError::InvalidProcedureCall,
                               QStringLiteral("No program is set up to show %1.").arg(m_helpFile),
                               QStringLiteral("Tessaro"));
    } catch (const RuntimeError &error) {
        MsgBox(error.description());
    }
}

void MainCommands::mnuFileExit_Click()
{
    m_frame.close();
}

} // namespace tessaro

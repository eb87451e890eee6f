#include "shell/ui/MainCommands.h"

#include "platform/core/CommonDialog.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/MsgBox.h"
#include "shell/core/ManualLocation.h"
#include "shell/core/MdiArrange.h"
#include "shell/ui/ActiveDocument.h"
#include "shell/ui/MainPanes.h"
#include "shell/ui/NewChildPlacement.h"
#include "shell/ui/frmAbout.h"
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
    frame.connectCommand(MenuItem::mnuEditCut, this, &MainCommands::mnuEditCut_Click);
    frame.connectCommand(MenuItem::mnuEditCopy, this, &MainCommands::mnuEditCopy_Click);
    frame.connectCommand(MenuItem::mnuEditPaste, this, &MainCommands::mnuEditPaste_Click);
    frame.connectCommand(MenuItem::mnuEditUndo, this, &MainCommands::mnuEditUndo_Click);
    frame.connectCommand(MenuItem::mnuFilePrint, this, &MainCommands::mnuFilePrint_Click);
    frame.connectCommand(MenuItem::mnuFilePageSetup, this, &MainCommands::mnuFilePageSetup_Click);
    frame.connectCommand(MenuItem::mnuViewStatusBar, this, &MainCommands::mnuViewStatusBar_Click);
    frame.connectCommand(MenuItem::mnuViewOutput, this, &MainCommands::mnuViewOutput_Click);
    frame.connectCommand(MenuItem::mnuViewToolbar, this, &MainCommands::mnuViewToolbar_Click);
    frame.connectCommand(MenuItem::mnuViewRefresh, this, &MainCommands::mnuViewRefresh_Click);
    frame.connectCommand(MenuItem::mnuFileSend, this, &MainCommands::mnuFileSend_Click);
    frame.connectCommand(MenuItem::mnuFilePrintPreview, this,
                         &MainCommands::mnuFilePrintPreview_Click);
    frame.connectCommand(MenuItem::mnuFileSaveAll, this, &MainCommands::mnuFileSaveAll_Click);
    frame.connectCommand(MenuItem::mnuHelpContents, this, &MainCommands::mnuHelpContents_Click);
    frame.connectCommand(MenuItem::mnuHelpSearchForHelpOn, this,
                         &MainCommands::mnuHelpSearchForHelpOn_Click);
    frame.connectCommand(MenuItem::mnuFileExit, this, &MainCommands::mnuFileExit_Click);
    frame.connectCommand(MenuItem::mnuHelpAbout, this, &MainCommands::mnuHelpAbout_Click);

    const struct
    {
        MenuItem item;
        ArrangeMode mode;
    } arrangements[] = {{MenuItem::mnuWindowCascade, Cascade},
                        {MenuItem::mnuWindowTileHorizontal, TileHorizontal},
                        {MenuItem::mnuWindowTileVertical, TileVertical},
                        {MenuItem::mnuWindowArrangeIcons, ArrangeIcons}};
    for (const auto &a : arrangements) {
        const int mode = a.mode;
        frame.connectCommand(a.item, this, [this, mode] { Arrange(mode); });
    }
    // New Window opens a new document exactly as File > New does.
    frame.connectCommand(MenuItem::mnuWindowNewWindow, this,
                         [this] { m_frame.menuItem(MenuItem::mnuFileNew)->trigger(); });
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
    case Cascade: cascadeChildren(*area); break;
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
    m_statusBar.setVisible(m_frame.menuItem(MenuItem::mnuViewStatusBar)->isChecked());
}

void MainCommands::mnuViewOutput_Click()
{
    m_panes.Picture3()->setVisible(m_frame.menuItem(MenuItem::mnuViewOutput)->isChecked());
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

void MainCommands::mnuHelpAbout_Click()
{
    frmAbout::showModal(&m_frame);
}

void MainCommands::showHelp(bool search)
{
    if (m_helpFile.isEmpty()) {
        MsgBox(QStringLiteral("Unable to display Help Contents. There is no Help associated with "
                              "this project."),
               mb::OKOnly | mb::Information);
        return;
    }
    // Contents shows the manual's first page, Search For Help On... its search page;
    // the desktop's opener for web pages (xdg-open) shows either.
    const QString page = search ? manualSearchPage(m_helpFile) : m_helpFile;
    try {
        if (!QFileInfo(page).isFile())
            raise(RuntimeError::FileNotFound);
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(page)))
            throw RuntimeError(RuntimeError::InvalidProcedureCall,
                               QStringLiteral("No program is set up to show %1.").arg(page),
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

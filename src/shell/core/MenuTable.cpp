#include "shell/core/MenuTable.h"

namespace tessaro {

namespace {

MenuEntry item(int level, MenuItem id, const QString &caption, const char *shortcut = "")
{
    MenuEntry e;
    e.level = level;
    e.item = id;
    e.name = menuItemName(id);
    e.caption = caption;
    e.shortcut = QString::fromLatin1(shortcut);
    return e;
}

MenuEntry separator(int level, MenuItem id)
{
    return item(level, id, QStringLiteral("-"));
}

MenuEntry disabled(MenuEntry e)
{
    e.enabled = false;
    return e;
}

MenuEntry hidden(MenuEntry e)
{
    e.visible = false;
    return e;
}

MenuEntry checkable(MenuEntry e)
{
    e.checkable = true;
    return e;
}

MenuEntry checked(MenuEntry e)
{
    e.checkable = true;
    e.checked = true;
    return e;
}

QVector<MenuEntry> buildTable()
{
    QVector<MenuEntry> t;
    t << item(0, MenuItem::mnuFile, QStringLiteral("&File"))
      << item(1, MenuItem::mnuFileNew, QStringLiteral("&New"), "Ctrl+N")
      << item(1, MenuItem::mnuFileOpen, QStringLiteral("&Open..."), "Ctrl+O")
      << item(1, MenuItem::mnuFileClose, QStringLiteral("&Close")) << separator(1, MenuItem::mnuFileBar0)
      << item(1, MenuItem::mnuFileNW, QStringLiteral("New Workspace..."))
      << item(1, MenuItem::mnuFileOW, QStringLiteral("Open Workspace..."))
      << item(1, MenuItem::mnuFileCW, QStringLiteral("Close Workspace")) << separator(1, MenuItem::mnuFileBar6)
      << item(1, MenuItem::mnuFileSave, QStringLiteral("&Save"))
      << item(1, MenuItem::mnuFileSaveAs, QStringLiteral("Save &As..."))
      << disabled(item(1, MenuItem::mnuFileSaveAll, QStringLiteral("Save A&ll")))
      << separator(1, MenuItem::mnuFileBar1) << item(1, MenuItem::mnuFileProperties, QStringLiteral("Propert&ies"))
      << item(1, MenuItem::mnuFileInsert, QStringLiteral("Add &File(s)...")) << separator(1, MenuItem::mnuFileBar2)
      << item(1, MenuItem::mnuFilePageSetup, QStringLiteral("Page Set&up..."))
      << disabled(item(1, MenuItem::mnuFilePrintPreview, QStringLiteral("Print Pre&view")))
      << item(1, MenuItem::mnuFilePrint, QStringLiteral("&Print...")) << separator(1, MenuItem::mnuFileBar3)
      << disabled(item(1, MenuItem::mnuFileSend, QStringLiteral("Sen&d..."))) << separator(1, MenuItem::mnuFileBar4)
      << hidden(item(1, MenuItem::mnuFileMRU_1, QString())) << hidden(item(1, MenuItem::mnuFileMRU_2, QString()))
      << hidden(item(1, MenuItem::mnuFileMRU_3, QString())) << hidden(separator(1, MenuItem::mnuFileBar5))
      << item(1, MenuItem::mnuFileExit, QStringLiteral("E&xit"));

    t << item(0, MenuItem::mnuEdit, QStringLiteral("&Edit"))
      << item(1, MenuItem::mnuEditUndo, QStringLiteral("&Undo"))
      << item(1, MenuItem::mnuEditRedo, QStringLiteral("&Redo")) << separator(1, MenuItem::mnuEditBar0)
      << item(1, MenuItem::mnuEditCut, QStringLiteral("Cu&t           Ctrl+X"))
      << item(1, MenuItem::mnuEditCopy, QStringLiteral("&Copy        Ctrl+C"))
      << item(1, MenuItem::mnuEditPaste, QStringLiteral("&Paste       Ctrl+V")) << separator(1, MenuItem::mnuSep1)
      << item(1, MenuItem::mnuEditFindnF, QStringLiteral("Find in Files...")) << separator(1, MenuItem::mnyEditSep5)
      << item(1, MenuItem::mnuEditFA, QStringLiteral("Find &Again"), "F3");

    t << item(0, MenuItem::mnuBuild, QStringLiteral("&Build"))
      << item(1, MenuItem::mnuPUQ3, QStringLiteral("Quake 3"))
      << item(2, MenuItem::mnuBuildcgameQVM, QStringLiteral("Build &cgame QVM"))
      << item(2, MenuItem::mnuBuildgameQVM, QStringLiteral("Build &game QVM"))
      << item(2, MenuItem::mnuBuilduiQVM, QStringLiteral("Build &ui QVM"))
      << item(1, MenuItem::mnuPUQ2, QStringLiteral("Quake 2"))
      << item(2, MenuItem::mnuBuildQ2, QStringLiteral("Build gamex86.dll")) << separator(1, MenuItem::mnubsep2)
      << item(1, MenuItem::mnuBuildEXE, QStringLiteral("Build &EXE/DLL")) << separator(1, MenuItem::mnuBuildSep0)
      << item(1, MenuItem::mnuBuildUpload, QStringLiteral("&Publish Mod..."));

    t << item(0, MenuItem::mnuView, QStringLiteral("&View"))
      << checked(item(1, MenuItem::mnuViewToolbar, QStringLiteral("&Toolbar")))
      << checked(item(1, MenuItem::mnuViewStatusBar, QStringLiteral("Status &Bar")))
      << checkable(item(1, MenuItem::mnuViewOutput, QStringLiteral("&Output")))
      << separator(1, MenuItem::mnuViewBar0)
      << disabled(item(1, MenuItem::mnuViewRefresh, QStringLiteral("&Refresh")))
      << disabled(item(1, MenuItem::mnuViewOptions, QStringLiteral("&Options...")));

    t << item(0, MenuItem::mnuTools, QStringLiteral("&Tools"))
      << item(1, MenuItem::mnuToolsOptions, QStringLiteral("&Options..."));

    MenuEntry window = item(0, MenuItem::mnuWindow, QStringLiteral("&Window"));
    window.windowList = true;
    t << window << item(1, MenuItem::mnuWindowNewWindow, QStringLiteral("&New Window"))
      << separator(1, MenuItem::mnuWindowBar0) << item(1, MenuItem::mnuWindowCascade, QStringLiteral("&Cascade"))
      << item(1, MenuItem::mnuWindowTileHorizontal, QStringLiteral("Tile &Horizontal"))
      << item(1, MenuItem::mnuWindowTileVertical, QStringLiteral("Tile &Vertical"))
      << item(1, MenuItem::mnuWindowArrangeIcons, QStringLiteral("&Arrange Icons"));

    t << item(0, MenuItem::mnuHelp, QStringLiteral("&Help"))
      << item(1, MenuItem::mnuHelpContents, QStringLiteral("&Contents"))
      << item(1, MenuItem::mnuHelpSearchForHelpOn, QStringLiteral("&Search For Help On..."))
      << separator(1, MenuItem::mnuHelpSep2) << separator(1, MenuItem::mnuHelpBar0)
      << item(1, MenuItem::mnuHelpAbout, QStringLiteral("&About "));
    return t;
}

} // namespace

const QVector<MenuEntry> &mainMenuTable()
{
    static const QVector<MenuEntry> table = buildTable();
    return table;
}

bool opensMenu(const QVector<MenuEntry> &table, int index)
{
    return index + 1 < table.size() && table.at(index + 1).level > table.at(index).level;
}

} // namespace tessaro

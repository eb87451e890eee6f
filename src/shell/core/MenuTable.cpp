#include "shell/core/MenuTable.h"

namespace tessaro {

namespace {

MenuEntry item(int level, const char *name, const QString &caption, const char *shortcut = "")
{
    MenuEntry e;
    e.level = level;
    e.name = QString::fromLatin1(name);
    e.caption = caption;
    e.shortcut = QString::fromLatin1(shortcut);
    return e;
}

MenuEntry separator(int level, const char *name)
{
    return item(level, name, QStringLiteral("-"));
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
    t << item(0, "mnuFile", QStringLiteral("&File"))
      << item(1, "mnuFileNew", QStringLiteral("&New"), "Ctrl+N")
      << item(1, "mnuFileOpen", QStringLiteral("&Open..."), "Ctrl+O")
      << item(1, "mnuFileClose", QStringLiteral("&Close")) << separator(1, "mnuFileBar0")
      << item(1, "mnuFileNW", QStringLiteral("New Workspace..."))
      << item(1, "mnuFileOW", QStringLiteral("Open Workspace..."))
      << item(1, "mnuFileCW", QStringLiteral("Close Workspace")) << separator(1, "mnuFileBar6")
      << item(1, "mnuFileSave", QStringLiteral("&Save"))
      << item(1, "mnuFileSaveAs", QStringLiteral("Save &As..."))
      << disabled(item(1, "mnuFileSaveAll", QStringLiteral("Save A&ll")))
      << separator(1, "mnuFileBar1") << item(1, "mnuFileProperties", QStringLiteral("Propert&ies"))
      << item(1, "mnuFileInsert", QStringLiteral("Add &File(s)...")) << separator(1, "mnuFileBar2")
      << item(1, "mnuFilePageSetup", QStringLiteral("Page Set&up..."))
      << disabled(item(1, "mnuFilePrintPreview", QStringLiteral("Print Pre&view")))
      << item(1, "mnuFilePrint", QStringLiteral("&Print...")) << separator(1, "mnuFileBar3")
      << disabled(item(1, "mnuFileSend", QStringLiteral("Sen&d..."))) << separator(1, "mnuFileBar4")
      << hidden(item(1, "mnuFileMRU_1", QString())) << hidden(item(1, "mnuFileMRU_2", QString()))
      << hidden(item(1, "mnuFileMRU_3", QString())) << hidden(separator(1, "mnuFileBar5"))
      << item(1, "mnuFileExit", QStringLiteral("E&xit"));

    t << item(0, "mnuEdit", QStringLiteral("&Edit"))
      << item(1, "mnuEditUndo", QStringLiteral("&Undo"))
      << item(1, "mnuEditRedo", QStringLiteral("&Redo")) << separator(1, "mnuEditBar0")
      << item(1, "mnuEditCut", QStringLiteral("Cu&t           Ctrl+X"))
      << item(1, "mnuEditCopy", QStringLiteral("&Copy        Ctrl+C"))
      << item(1, "mnuEditPaste", QStringLiteral("&Paste       Ctrl+V")) << separator(1, "mnuSep1")
      << item(1, "mnuEditFindnF", QStringLiteral("Find in Files...")) << separator(1, "mnyEditSep5")
      << item(1, "mnuEditFA", QStringLiteral("Find &Again"), "F3");

    t << item(0, "mnuBuild", QStringLiteral("&Build"))
      << item(1, "mnuPUQ3", QStringLiteral("Quake 3"))
      << item(2, "mnuBuildcgameQVM", QStringLiteral("Build &cgame QVM"))
      << item(2, "mnuBuildgameQVM", QStringLiteral("Build &game QVM"))
      << item(2, "mnuBuilduiQVM", QStringLiteral("Build &ui QVM"))
      << item(1, "mnuPUQ2", QStringLiteral("Quake 2"))
      << item(2, "mnuBuildQ2", QStringLiteral("Build gamex86.dll")) << separator(1, "mnubsep2")
      << item(1, "mnuBuildEXE", QStringLiteral("Build &EXE/DLL")) << separator(1, "mnuBuildSep0")
      << item(1, "mnuBuildUpload", QStringLiteral("&Publish Mod..."));

    t << item(0, "mnuView", QStringLiteral("&View"))
      << checked(item(1, "mnuViewToolbar", QStringLiteral("&Toolbar")))
      << checked(item(1, "mnuViewStatusBar", QStringLiteral("Status &Bar")))
      << checkable(item(1, "mnuViewOutput", QStringLiteral("&Output")))
      << separator(1, "mnuViewBar0")
      << disabled(item(1, "mnuViewRefresh", QStringLiteral("&Refresh")))
      << disabled(item(1, "mnuViewOptions", QStringLiteral("&Options...")));

    t << item(0, "mnuTools", QStringLiteral("&Tools"))
      << item(1, "mnuToolsOptions", QStringLiteral("&Options..."));

    MenuEntry window = item(0, "mnuWindow", QStringLiteral("&Window"));
    window.windowList = true;
    t << window << item(1, "mnuWindowNewWindow", QStringLiteral("&New Window"))
      << separator(1, "mnuWindowBar0") << item(1, "mnuWindowCascade", QStringLiteral("&Cascade"))
      << item(1, "mnuWindowTileHorizontal", QStringLiteral("Tile &Horizontal"))
      << item(1, "mnuWindowTileVertical", QStringLiteral("Tile &Vertical"))
      << item(1, "mnuWindowArrangeIcons", QStringLiteral("&Arrange Icons"));

    t << item(0, "mnuHelp", QStringLiteral("&Help"))
      << item(1, "mnuHelpContents", QStringLiteral("&Contents"))
      << item(1, "mnuHelpSearchForHelpOn", QStringLiteral("&Search For Help On..."))
      << separator(1, "mnuHelpSep2") << separator(1, "mnuHelpBar0")
      << item(1, "mnuHelpAbout", QStringLiteral("&About "));
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

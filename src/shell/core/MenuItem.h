#pragma once

#include <QString>

namespace tessaro {

// Every named entry of the main window's menu tree (titles, items and separators), in
// the order of the menu table. The table is written with these values, so a menu item
// reached through its MenuItem always exists: a misspelt name does not compile.
#define TESSARO_MENU_ITEMS(X) \
    X(mnuFile) X(mnuFileNew) X(mnuFileOpen) X(mnuFileClose) X(mnuFileBar0) X(mnuFileNW) \
    X(mnuFileOW) X(mnuFileCW) X(mnuFileBar6) X(mnuFileSave) X(mnuFileSaveAs) X(mnuFileSaveAll) \
    X(mnuFileBar1) X(mnuFileProperties) X(mnuFileInsert) X(mnuFileBar2) X(mnuFilePageSetup) \
    X(mnuFilePrintPreview) X(mnuFilePrint) X(mnuFileBar3) X(mnuFileSend) X(mnuFileBar4) \
    X(mnuFileMRU_1) X(mnuFileMRU_2) X(mnuFileMRU_3) X(mnuFileBar5) X(mnuFileExit) X(mnuEdit) \
    X(mnuEditUndo) X(mnuEditRedo) X(mnuEditBar0) X(mnuEditCut) X(mnuEditCopy) X(mnuEditPaste) \
    X(mnuSep1) X(mnuEditFindnF) X(mnyEditSep5) X(mnuEditFA) X(mnuBuild) X(mnuPUQ3) \
    X(mnuBuildcgameQVM) X(mnuBuildgameQVM) X(mnuBuilduiQVM) X(mnuPUQ2) X(mnuBuildQ2) X(mnubsep2) \
    X(mnuBuildEXE) X(mnuBuildSep0) X(mnuBuildUpload) X(mnuView) X(mnuViewToolbar) \
    X(mnuViewStatusBar) X(mnuViewOutput) X(mnuViewBar0) X(mnuViewRefresh) X(mnuViewOptions) \
    X(mnuTools) X(mnuToolsOptions) X(mnuWindow) X(mnuWindowNewWindow) X(mnuWindowBar0) \
    X(mnuWindowCascade) X(mnuWindowTileHorizontal) X(mnuWindowTileVertical) \
    X(mnuWindowArrangeIcons) X(mnuHelp) X(mnuHelpContents) X(mnuHelpSearchForHelpOn) \
    X(mnuHelpSep2) X(mnuHelpBar0) X(mnuHelpAbout)

enum class MenuItem {
#define TESSARO_MENU_ITEM_VALUE(name) name,
    TESSARO_MENU_ITEMS(TESSARO_MENU_ITEM_VALUE)
#undef TESSARO_MENU_ITEM_VALUE
};

#define TESSARO_MENU_ITEM_ONE(name) +1
inline constexpr int menuItemCount = 0 TESSARO_MENU_ITEMS(TESSARO_MENU_ITEM_ONE);
#undef TESSARO_MENU_ITEM_ONE

// The entry's objectName, which is its identifier ("mnuFileNew").
QString menuItemName(MenuItem item);

} // namespace tessaro

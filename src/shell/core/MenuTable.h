#pragma once

#include "shell/core/MenuItem.h"

#include <QString>
#include <QVector>

namespace tessaro {

// One item of the main window's menu tree, as the tree is designed: the builder
// turns the table into QMenus and QActions, and every QAction carries `name` as its
// objectName; the main window finds each entry's action by its MenuItem.
//
// Control arrays (a name with an index, such as the recent-file slots) are named
// "<name>_<index>": "mnuFileMRU_1" .. "mnuFileMRU_3".
struct MenuEntry
{
    int level = 0;          // 0 = a title on the menu bar, 1 = its items, 2 = items of a submenu
    MenuItem item{};        // which entry this is
    QString name;           // objectName of the QAction (and of the QMenu for a menu)
    QString caption;        // exact text with its access key; "-" for a separator
    QString shortcut;       // the item's own accelerator in portable text ("Ctrl+N"), or ""
    bool checkable = false; // shows a check mark that its command turns on and off
    bool checked = false;
    bool enabled = true;
    bool visible = true;
    bool windowList = false; // the menu lists the open document windows at its end

    bool isSeparator() const { return caption == QLatin1String("-"); }
};

// The whole menu tree in order, depth first. An entry whose next entry is one level
// deeper opens a menu (a title on the bar, or a submenu).
const QVector<MenuEntry> &mainMenuTable();

// True when the entry at `index` of the table opens a menu of its own.
bool opensMenu(const QVector<MenuEntry> &table, int index);

} // namespace tessaro

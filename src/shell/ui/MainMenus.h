#pragma once

#include <QObject>
#include <QVector>

class QMainWindow;
class QMdiArea;
class QMenu;
class QMenuBar;

namespace tessaro {

struct MenuEntry;

// Builds the menu bar of the main window from the menu table: a QMenu for every
// entry that opens a menu and a QAction for every item and separator, each named by
// its objectName, with its caption, shortcut and design state. Items do nothing by
// themselves; the subsystems connect to the actions they own.
QMenuBar *buildMenuBar(const QVector<MenuEntry> &table, QWidget *parent);

// Keeps the list of open document windows at the end of the Window menu: a separator
// and one checkable entry per MDI child ("&1 caption"), the active one checked;
// choosing an entry activates that window. The entries are rebuilt whenever the menu
// opens or the active child changes.
class WindowListMenu : public QObject
{
    Q_OBJECT
public:
    WindowListMenu(QMenu *menu, QMdiArea *mdiArea);

    // Rebuilds the entries now.
    void refresh();

private:
    QMenu *m_menu;
    QMdiArea *m_mdiArea;
};

} // namespace tessaro

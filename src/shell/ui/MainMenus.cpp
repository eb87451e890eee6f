#include "shell/ui/MainMenus.h"

#include "shell/core/MenuTable.h"

#include <QAction>
#include <QKeySequence>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

namespace tessaro {

namespace {

const char *const kWindowListEntry = "windowListEntry";

void applyDesignState(QAction *action, const MenuEntry &entry)
{
    action->setObjectName(entry.name);
    if (!entry.isSeparator()) {
        action->setText(entry.caption);
        if (!entry.shortcut.isEmpty())
            action->setShortcut(QKeySequence(entry.shortcut, QKeySequence::PortableText));
        action->setCheckable(entry.checkable);
        action->setChecked(entry.checked);
    }
    action->setEnabled(entry.enabled);
    action->setVisible(entry.visible);
}

} // namespace

QMenuBar *buildMenuBar(const QVector<MenuEntry> &table, QWidget *parent)
{
    auto *bar = new QMenuBar(parent);
    bar->setObjectName(QStringLiteral("menuBar"));
    // The menu open at each level while walking the table depth first.
    QVector<QMenu *> open;
    for (int i = 0; i < table.size(); ++i) {
        const MenuEntry &entry = table.at(i);
        open.resize(entry.level);
        QWidget *owner = entry.level == 0 ? static_cast<QWidget *>(bar) : open.last();
        if (opensMenu(table, i)) {
            auto *menu = new QMenu(entry.caption, owner);
            menu->setObjectName(entry.name);
            applyDesignState(menu->menuAction(), entry);
            if (entry.level == 0)
                bar->addMenu(menu);
            else
                open.last()->addMenu(menu);
            open.append(menu);
            continue;
        }
        auto *action = new QAction(open.last());
        action->setSeparator(entry.isSeparator());
        applyDesignState(action, entry);
        open.last()->addAction(action);
    }
    return bar;
}

WindowListMenu::WindowListMenu(QMenu *menu, QMdiArea *mdiArea)
    : QObject(menu), m_menu(menu), m_mdiArea(mdiArea)
{
    setObjectName(QStringLiteral("windowList"));
    connect(menu, &QMenu::aboutToShow, this, &WindowListMenu::refresh);
    connect(mdiArea, &QMdiArea::subWindowActivated, this, &WindowListMenu::refresh);
}

void WindowListMenu::refresh()
{
    const QList<QAction *> actions = m_menu->actions();
    for (QAction *action : actions) {
        if (action->property(kWindowListEntry).toBool()) {
            m_menu->removeAction(action);
            action->deleteLater();
        }
    }
    const QList<QMdiSubWindow *> children = m_mdiArea->subWindowList();
    if (children.isEmpty())
        return;
    auto *separator = m_menu->addSeparator();
    separator->setObjectName(QStringLiteral("windowListSeparator"));
    separator->setProperty(kWindowListEntry, true);
    int number = 0;
    for (QMdiSubWindow *child : children) {
        ++number;
        const QString prefix =
            number < 10 ? QStringLiteral("&%1 ").arg(number) : QStringLiteral("%1 ").arg(number);
        QAction *entry = m_menu->addAction(prefix + child->windowTitle());
        entry->setObjectName(QStringLiteral("windowList_%1").arg(number));
        entry->setProperty(kWindowListEntry, true);
        entry->setCheckable(true);
        entry->setChecked(child == m_mdiArea->activeSubWindow());
        QMdiArea *area = m_mdiArea;
        connect(entry, &QAction::triggered, area, [area, child] {
            if (area->subWindowList().contains(child))
                area->setActiveSubWindow(child);
        });
    }
}

} // namespace tessaro

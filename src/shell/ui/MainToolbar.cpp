#include "shell/ui/MainToolbar.h"

#include "shell/core/ToolbarTable.h"
#include "shell/ui/ToolbarIcons.h"

#include <QAction>
#include <QMainWindow>
#include <QPushButton>
#include <QToolBar>

namespace tessaro {

MainToolbar::MainToolbar(QMainWindow &frame, QPushButton *findButton)
    : QObject(&frame), m_frame(frame), m_findButton(findButton), m_images(new ToolbarIcons(this)),
      m_toolbar(new QToolBar)
{
    setObjectName(QStringLiteral("mainToolbar"));
    m_toolbar->setObjectName(QStringLiteral("cToolbar1"));
    m_toolbar->setIconSize(QSize(16, 16));
    m_toolbar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    m_toolbar->setMovable(false);
    m_toolbar->setFloatable(false);
    int number = 0;
    for (const ToolbarButton &b : mainToolbarButtons()) {
        ++number;
        QAction *action = nullptr;
        if (b.isSeparator()) {
            action = m_toolbar->addSeparator();
            action->setObjectName(QStringLiteral("cToolbar1_Separator_%1").arg(number));
        } else {
            action = m_toolbar->addAction(m_images->icon(b.image), QString());
            action->setObjectName(QStringLiteral("cToolbar1_") + b.key);
            action->setToolTip(b.key);
            action->setProperty("Image", b.image);
            connect(action, &QAction::triggered, this, [this, number] { ButtonClick(number); });
        }
        action->setProperty("Key", b.key);
        action->setProperty("Index", number);
    }
}

QAction *MainToolbar::button(int number) const
{
    for (QAction *action : m_toolbar->actions())
        if (action->property("Index").toInt() == number)
            return action;
    return nullptr;
}

void MainToolbar::ButtonClick(int number)
{
    if (QAction *action = button(number))
        dispatchKey(action->property("Key").toString());
}

void MainToolbar::dispatchKey(const QString &key)
{
    run(toolbarCommandForKey(key));
}

void MainToolbar::dispatchButtonKey(const QString &key)
{
    run(toolbarButtonCommandForKey(key));
}

void MainToolbar::run(const QString &command)
{
    if (command.isEmpty())
        return;
    if (command == QLatin1String("cmdFind")) {
        m_findButton->click();
        return;
    }
    if (auto *action = m_frame.findChild<QAction *>(command))
        action->trigger();
}

} // namespace tessaro

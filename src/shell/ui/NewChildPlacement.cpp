#include "shell/ui/NewChildPlacement.h"

#include "shell/core/MdiArrange.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>

namespace tessaro {

namespace {
// A few lines of a few dozen characters: a smaller window is no use for editing.
constexpr QSize kLeastUsableSize(240, 150);

// The `index`-th place of the cascade: each next window one title bar further down
// and right.
QRect cascadeRect(const QMdiArea &area, const QMdiSubWindow *child, int index)
{
    const int step = child->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, child) +
                     child->style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, child);
    return newChildRect(area.viewport()->size(), index, step, kLeastUsableSize);
}
} // namespace

void showNewChild(QMdiArea &area, QMdiSubWindow *child)
{
    int others = 0;
    for (const QMdiSubWindow *window : area.subWindowList())
        if (window != child && window->isVisible())
            ++others;
    child->setGeometry(cascadeRect(area, child, others));
    child->show();
}

void cascadeChildren(QMdiArea &area)
{
    int index = 0;
    for (QMdiSubWindow *window : area.subWindowList(QMdiArea::StackingOrder)) {
        if (window->isHidden() || window->isMinimized())
            continue;
        if (window->isMaximized())
            window->showNormal();
        window->setGeometry(cascadeRect(area, window, index++));
        window->raise();
    }
}

} // namespace tessaro

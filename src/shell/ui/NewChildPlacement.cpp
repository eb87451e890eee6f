#include "shell/ui/NewChildPlacement.h"

#include "shell/core/MdiArrange.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>

namespace tessaro {

namespace {
// A few lines of a few dozen characters: a smaller window is no use for editing.
constexpr QSize kLeastUsableSize(240, 150);
} // namespace

void showNewChild(QMdiArea &area, QMdiSubWindow *child)
{
    int others = 0;
    for (const QMdiSubWindow *window : area.subWindowList())
        if (window != child && window->isVisible())
            ++others;
    // Each next window one title bar further down and right, as a cascade steps.
    const int step = child->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, child) +
                     child->style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, child);
    child->setGeometry(newChildRect(area.viewport()->size(), others, step, kLeastUsableSize));
    child->show();
}

} // namespace tessaro

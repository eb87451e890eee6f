#include "shell/core/MdiArrange.h"

#include <algorithm>

namespace tessaro {

QVector<QRect> tileRects(const QRect &area, int count, bool horizontal)
{
    QVector<QRect> rects;
    if (count <= 0)
        return rects;
    const int total = horizontal ? area.height() : area.width();
    const int share = total / count;
    for (int i = 0; i < count; ++i) {
        const int start = i * share;
        const int size = i == count - 1 ? total - start : share;
        if (horizontal)
            rects.append(QRect(area.left(), area.top() + start, area.width(), size));
        else
            rects.append(QRect(area.left() + start, area.top(), size, area.height()));
    }
    return rects;
}

QVector<QRect> iconRects(const QRect &area, int count, const QSize &iconSize)
{
    QVector<QRect> rects;
    if (count <= 0 || iconSize.width() <= 0)
        return rects;
    const int perRow = std::max(1, area.width() / iconSize.width());
    for (int i = 0; i < count; ++i) {
        const int row = i / perRow;
        const int column = i % perRow;
        rects.append(QRect(area.left() + column * iconSize.width(),
                           area.top() + area.height() - (row + 1) * iconSize.height(),
                           iconSize.width(), iconSize.height()));
    }
    return rects;
}

QRect newChildRect(const QSize &area, int index, int step, const QSize &minimum)
{
    auto side = [](int available, int least) {
        return std::max(least, std::min(available, available * 3 / 4));
    };
    const QSize size(side(area.width(), minimum.width()), side(area.height(), minimum.height()));
    int positions = 1;
    if (step > 0) {
        const int room = std::min(area.width() - size.width(), area.height() - size.height());
        positions = std::max(0, room) / step + 1;
    }
    const int offset = step * (std::max(0, index) % positions);
    return QRect(QPoint(offset, offset), size);
}

} // namespace tessaro

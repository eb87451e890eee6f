#include "shell/core/ScreenFit.h"

#include <algorithm>

namespace tessaro {

namespace {

qint64 areaOf(const QRect &r) { return r.isValid() ? qint64(r.width()) * r.height() : 0; }

} // namespace

QRect fitOnScreens(const QRect &saved, const QList<QRect> &available)
{
    if (available.isEmpty() || !saved.isValid())
        return saved;
    for (const QRect &area : available)
        if (area.contains(saved))
            return saved;
    QRect screen = available.front();
    qint64 most = 0;
    for (const QRect &area : available) {
        const qint64 shared = areaOf(area.intersected(saved));
        if (shared > most) {
            most = shared;
            screen = area;
        }
    }
    const int width = std::min(saved.width(), screen.width());
    const int height = std::min(saved.height(), screen.height());
    const int left = std::clamp(saved.left(), screen.left(), screen.left() + screen.width() - width);
    const int top = std::clamp(saved.top(), screen.top(), screen.top() + screen.height() - height);
    return QRect(left, top, width, height);
}

} // namespace tessaro

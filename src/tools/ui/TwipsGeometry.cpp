#include "tools/ui/TwipsGeometry.h"

#include "platform/core/Twips.h"

#include <QWidget>

namespace tessaro::twipsgeometry {

double twipsPerPixel(const QWidget *widget)
{
    return twips::perPixel(widget->logicalDpiX());
}

void place(QWidget *widget, double left, double top, double width, double height)
{
    const double perPixel = twipsPerPixel(widget);
    widget->setGeometry(twips::toPixels(left, perPixel), twips::toPixels(top, perPixel),
                        twips::toPixels(width, perPixel), twips::toPixels(height, perPixel));
}

void setLeft(QWidget *widget, double left)
{
    widget->move(twips::toPixels(left, twipsPerPixel(widget)), widget->y());
}

double left(const QWidget *widget)
{
    return twips::fromPixels(widget->x(), twipsPerPixel(widget));
}

} // namespace tessaro::twipsgeometry

#include "shell/ui/TwipsGeometry.h"

#include "platform/core/Twips.h"

#include <QWidget>

namespace tessaro {

double twipsPerPixelOf(const QWidget *widget)
{
    return twips::perPixel(widget->logicalDpiX());
}

int twipsToPixels(double value, double twipsPerPixel)
{
    return twips::toPixels(value, twipsPerPixel);
}

void placeInTwips(QWidget *widget, const TwipsRect &rect, double twipsPerPixel)
{
    widget->setGeometry(
        twipsToPixels(rect.left, twipsPerPixel), twipsToPixels(rect.top, twipsPerPixel),
        twipsToPixels(rect.width, twipsPerPixel), twipsToPixels(rect.height, twipsPerPixel));
}

} // namespace tessaro

#pragma once

#include <QList>
#include <QRect>

namespace tessaro {

// Where a window saved at `saved` (pixels) is shown again, given the available area of
// every screen (the primary first): where it was when it lies whole on one screen;
// otherwise on the screen that holds most of it (the primary when none holds any of
// it), moved and shrunk as little as needed to lie whole on it. A window saved at one
// scale and shown at another, or on a screen that has gone, stays within reach.
QRect fitOnScreens(const QRect &saved, const QList<QRect> &available);

} // namespace tessaro

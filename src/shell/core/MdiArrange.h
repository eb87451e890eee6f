#pragma once

#include <QRect>
#include <QVector>

namespace tessaro {

// How the Window menu arranges the document windows inside the MDI area.
enum class MdiArrangeMode { Cascade = 0, TileHorizontal = 1, TileVertical = 2, ArrangeIcons = 3 };

// Tiling: the area divided among `count` windows, one above the other (horizontal
// tiling, each as wide as the area) or side by side (vertical tiling, each as high
// as the area). The last window takes what the division leaves over.
QVector<QRect> tileRects(const QRect &area, int count, bool horizontal);

// Arranging icons: `count` minimised windows of `iconSize` placed in rows from the
// bottom left corner of the area, wrapping to a new row above when a row is full.
QVector<QRect> iconRects(const QRect &area, int count, const QSize &iconSize);

// Where a new document window opens: three quarters of the area's size (never smaller
// than `minimum`, nor larger than the area unless the minimum is), at the cascade
// position for the `index`-th window (0 at the top left, each next one `step` pixels
// further down and right), starting again at the top left before a window would
// leave the area.
QRect newChildRect(const QSize &area, int index, int step, const QSize &minimum);

} // namespace tessaro

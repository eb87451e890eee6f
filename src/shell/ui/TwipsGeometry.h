#pragma once

#include "shell/core/LeftPaneLayout.h"

class QWidget;

namespace tessaro {

// The screen's twips per pixel for a widget (15 at 96 DPI).
double twipsPerPixelOf(const QWidget *widget);

// Places a widget at a position and size given in twips.
void placeInTwips(QWidget *widget, const TwipsRect &rect, double twipsPerPixel);

// The whole number of pixels nearest to a length in twips.
int twipsToPixels(double twips, double twipsPerPixel);

} // namespace tessaro

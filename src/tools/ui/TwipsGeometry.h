#pragma once

class QWidget;

namespace tessaro::twipsgeometry {

// Window geometry given in twips, as the forms are designed, converted with the
// widget's logical DPI (15 twips to a pixel at 96 DPI).
double twipsPerPixel(const QWidget *widget);
void place(QWidget *widget, double left, double top, double width, double height);
void setLeft(QWidget *widget, double left);
double left(const QWidget *widget);

} // namespace tessaro::twipsgeometry

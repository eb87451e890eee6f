#include "editor/core/ReadableColours.h"

#include <algorithm>
#include <cmath>

namespace tessaro::readable {

namespace {

double channel(int value)
{
    const double c = value / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double worstContrast(const QColor &background, const QList<QColor> &colours)
{
    double worst = 21.0;
    for (const QColor &colour : colours)
        worst = std::min(worst, contrastRatio(colour, background));
    return worst;
}

} // namespace

double relativeLuminance(const QColor &colour)
{
    const QColor rgb = colour.toRgb();
    return 0.2126 * channel(rgb.red()) + 0.7152 * channel(rgb.green()) +
           0.0722 * channel(rgb.blue());
}

double contrastRatio(const QColor &a, const QColor &b)
{
    const double la = relativeLuminance(a);
    const double lb = relativeLuminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QColor documentBackground(const QColor &paletteBase, const QList<QColor> &textColours)
{
    const QColor white(255, 255, 255);
    const double onBase = worstContrast(paletteBase, textColours);
    if (onBase >= TextContrast)
        return paletteBase;
    const double onWhite = worstContrast(white, textColours);
    return onWhite >= onBase ? white : paletteBase;
}

} // namespace tessaro::readable

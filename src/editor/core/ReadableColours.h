#pragma once

#include <QColor>
#include <QList>

namespace tessaro {

// Contrast of colours as the Web Content Accessibility Guidelines measure it: the
// relative luminance of each colour (0 black .. 1 white) and the ratio
// (lighter + 0.05) / (darker + 0.05), from 1:1 to 21:1. Text is readable from 4.5:1.
namespace readable {

constexpr double TextContrast = 4.5;

double relativeLuminance(const QColor &colour);
double contrastRatio(const QColor &a, const QColor &b);

// The background of a document whose background is the window-background system
// colour, given the palette's base colour and every colour the document draws text
// in. The document colours were chosen for the light window background of the desktop
// they come from, so the palette's base is taken only when every text colour keeps
// 4.5:1 on it; otherwise white. When a user's own text colour fails on both, the one of
// the two on which the least readable colour does better.
QColor documentBackground(const QColor &paletteBase, const QList<QColor> &textColours);

} // namespace readable
} // namespace tessaro

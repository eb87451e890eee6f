#pragma once

#include <cmath>

namespace tessaro::twips {

// Twips per pixel for a logical DPI: 1440 / DPI (15 at 96 DPI).
inline double perPixel(double logicalDpi) { return logicalDpi > 0 ? 1440.0 / logicalDpi : 15.0; }

inline int toPixels(double twips, double twipsPerPixel)
{
    return int(std::lround(twips / twipsPerPixel));
}

inline double fromPixels(int pixels, double twipsPerPixel) { return pixels * twipsPerPixel; }

} // namespace tessaro::twips

#pragma once

#include "state/core/Settings.h"

#include <QRect>

namespace tessaro {

// The main window's rectangle between the settings (twips) and the screen (pixels).
// It remembers the twips it was given, so an edge that has not moved since reads back
// exactly as it was stored rather than rounded through whole pixels.
class WindowPlacement
{
public:
    explicit WindowPlacement(double twipsPerPixel = 15.0) : m_twipsPerPixel(twipsPerPixel) {}

    // The pixel rectangle for the settings' values (left, top, width, height).
    QRect assign(const WindowRect &twips);
    // The rectangle in twips for the window's current pixel rectangle.
    WindowRect current(const QRect &pixels) const;

private:
    double m_twipsPerPixel;
    WindowRect m_assigned;
    QRect m_assignedPixels;
    bool m_hasAssigned = false;
};

} // namespace tessaro

#include "shell/core/WindowPlacement.h"

#include "platform/core/Twips.h"

namespace tessaro {

QRect WindowPlacement::assign(const WindowRect &twips)
{
    m_assigned = twips;
    m_assignedPixels = QRect(twips::toPixels(twips.left, m_twipsPerPixel),
                             twips::toPixels(twips.top, m_twipsPerPixel),
                             twips::toPixels(twips.width, m_twipsPerPixel),
                             twips::toPixels(twips.height, m_twipsPerPixel));
    m_hasAssigned = true;
    return m_assignedPixels;
}

WindowRect WindowPlacement::current(const QRect &pixels) const
{
    auto edge = [&](int now, int assignedPixels, float assignedTwips) {
        if (m_hasAssigned && now == assignedPixels)
            return assignedTwips;
        return float(twips::fromPixels(now, m_twipsPerPixel));
    };
    WindowRect r;
    r.left = edge(pixels.x(), m_assignedPixels.x(), m_assigned.left);
    r.top = edge(pixels.y(), m_assignedPixels.y(), m_assigned.top);
    r.width = edge(pixels.width(), m_assignedPixels.width(), m_assigned.width);
    r.height = edge(pixels.height(), m_assignedPixels.height(), m_assigned.height);
    return r;
}

} // namespace tessaro

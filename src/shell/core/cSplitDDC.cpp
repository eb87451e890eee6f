#include "shell/core/cSplitDDC.h"

#include "platform/core/RuntimeError.h"

#include <algorithm>
#include <cmath>

namespace tessaro {

namespace {

// Integer division of two whole numbers of twips, rounding both to whole numbers first, then truncating.
int integerDivide(double a, double b)
{
    const long long divisor = std::llround(b);
    return divisor == 0 ? 0 : int(std::llround(a) / divisor);
}

void checkBorderIndex(int type)
{
    if (type < cSplitDDC::Left || type > cSplitDDC::Bottom)
        raise(RuntimeError::SubscriptOutOfRange);
}

} // namespace

cSplitDDC::cSplitDDC(SplitScreen &screen) : m_screen(screen) {}

void cSplitDDC::setSplitObject(SplitBar *bar)
{
    m_object = bar;
    if (!m_object)
        return;
    m_object->setBarBorderStyle(0);
    applyPointer();
}

int cSplitDDC::Border(int type) const
{
    checkBorderIndex(type);
    return m_border[type - 1];
}

void cSplitDDC::setBorder(int type, int pixels)
{
    checkBorderIndex(type);
    m_border[type - 1] = pixels;
}

void cSplitDDC::setOrientation(int orientation)
{
    m_orientation = orientation;
    if (!m_object)
        return;
    applyPointer();
    const int along = vertical() ? 64 : 0;
    const int across = vertical() ? 0 : 64;
    m_border[0] = along;
    m_border[1] = across;
    m_border[2] = along;
    m_border[3] = across;
}

void cSplitDDC::applyPointer()
{
    m_object->setBarMousePointer(vertical() ? 9 : 7);
}

void cSplitDDC::SplitterMouseDown(SplitDragWindow &window, int x, int y)
{
    m_window = &window;
    window.captureMouse();
    const PixelRect windowRect = window.windowRect();
    window.confineCursor(&windowRect);
    m_mdiFrame = window.isMdiFrame();
    if (m_mdiFrame) {
        const FrameMetrics m = window.frameMetrics();
        m_area = windowRect;
        m_area.left += m.frameWidth;
        m_area.right -= m.frameWidth;
        m_area.bottom -= m.frameHeight;
        m_area.top += 3 * m.frameHeight + m.captionHeight + m.menuHeight;
    } else {
        m_area = window.clientRectOnScreen();
    }
    m_dragging = true;

    // The bar where it stands, in screen pixels.
    const TwipsRect bar = m_object ? m_object->barGeometry() : TwipsRect{};
    const double tx = m_screen.twipsPerPixelX();
    const double ty = m_screen.twipsPerPixelY();
    const int left = integerDivide(bar.left, tx) + (vertical() ? x : 0);
    const int top = integerDivide(bar.top, ty) + (vertical() ? 0 : y);
    m_last.left = m_area.left + left;
    m_last.top = m_area.top + top;
    m_last.right = m_last.left + integerDivide(bar.width, tx);
    m_last.bottom = m_last.top + integerDivide(bar.height, ty);
}

PixelRect cSplitDDC::barRectFor(PixelPoint cursor) const
{
    // Along the bar it spans the area between the borders; across it follows the
    // cursor between the two limits.
    const int low = vertical() ? m_area.left + m_border[0] : m_area.top + m_border[1];
    const int high = vertical() ? m_area.right - m_border[2] : m_area.bottom - m_border[3];
    const int at = vertical() ? cursor.x : cursor.y;
    int from;
    int to;
    if (at >= low && at <= high) {
        from = at - 2;
        to = at + 2;
    } else if (at > high) {
        from = high - 2;
        to = high + 3;
    } else {
        from = low - 2;
        to = low + 3;
    }
    PixelRect r;
    if (vertical()) {
        r = {from, m_area.top + m_border[1], to, m_area.bottom - m_border[3]};
    } else {
        r = {m_area.left + m_border[0], from, m_area.right - m_border[2], to};
    }
    return r;
}

void cSplitDDC::SplitterFormMouseMove(int, int)
{
    if (!m_dragging)
        return;
    m_screen.eraseDragRect(m_last);
    m_last = barRectFor(m_screen.cursorPos());
    m_screen.drawDragRect(m_last);
}

bool cSplitDDC::SplitterFormMouseUp(int, int)
{
    if (!m_dragging)
        return false;
    m_dragging = false;
    m_window->releaseMouse();
    m_window->confineCursor(nullptr);
    m_screen.eraseDragRect(m_last);

    PixelPoint p = m_screen.cursorPos();
    p.x = std::min(std::max(p.x, m_area.left + m_border[0]), m_area.right - m_border[2]);
    p.y = std::min(std::max(p.y, m_area.top + m_border[1]), m_area.bottom - m_border[3]);
    const PixelPoint client = m_window->screenToClient(p);
    if (m_object) {
        if (vertical())
            m_object->setBarLeft((client.x - 2) * m_screen.twipsPerPixelX());
        else
            m_object->setBarTop((client.y - 2) * m_screen.twipsPerPixelY());
    }
    return true;
}

} // namespace tessaro

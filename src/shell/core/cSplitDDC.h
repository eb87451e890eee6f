#pragma once

#include "shell/core/LeftPaneLayout.h"

namespace tessaro {

// A rectangle in screen pixels with exclusive right and bottom edges, so that
// right - left is the width.
struct PixelRect
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int width() const { return right - left; }
    int height() const { return bottom - top; }
    friend bool operator==(const PixelRect &a, const PixelRect &b)
    {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }
};

struct PixelPoint
{
    int x = 0;
    int y = 0;
};

// The bar control that a splitter moves.
class SplitBar
{
public:
    virtual ~SplitBar() = default;
    virtual TwipsRect barGeometry() const = 0;
    virtual void setBarLeft(double twips) = 0;
    virtual void setBarTop(double twips) = 0;
    virtual void setBarBorderStyle(int style) = 0;
    // 9 = size west-east, 7 = size north-south.
    virtual void setBarMousePointer(int pointer) = 0;
};

// The sizes of a frame window's decorations, in pixels.
struct FrameMetrics
{
    int frameWidth = 0;
    int frameHeight = 0;
    int captionHeight = 0;
    int menuHeight = 0;
};

// The window in which the bar is dragged.
class SplitDragWindow
{
public:
    virtual ~SplitDragWindow() = default;
    // The whole window, decorations included, on the screen.
    virtual PixelRect windowRect() const = 0;
    // Whether the window is the main MDI frame: its drag area leaves out the frame's
    // borders, caption and menu.
    virtual bool isMdiFrame() const = 0;
    virtual FrameMetrics frameMetrics() const = 0;
    // The client area on the screen (used for any other window).
    virtual PixelRect clientRectOnScreen() const = 0;
    virtual PixelPoint screenToClient(PixelPoint screen) const = 0;
    virtual void captureMouse() = 0;
    virtual void releaseMouse() = 0;
    // Keeps the cursor inside `area`; nullptr frees it.
    virtual void confineCursor(const PixelRect *area) = 0;
};

// The screen: the cursor, its twips per pixel, and the drawing of the moving bar.
class SplitScreen
{
public:
    virtual ~SplitScreen() = default;
    virtual PixelPoint cursorPos() const = 0;
    virtual double twipsPerPixelX() const = 0;
    virtual double twipsPerPixelY() const = 0;
    virtual void drawDragRect(const PixelRect &rect) = 0;
    // Removes a rectangle drawn before (a rectangle never drawn leaves nothing).
    virtual void eraseDragRect(const PixelRect &rect) = 0;
};

// A splitter: lets the user drag a bar inside a window, drawing the moving bar on the
// screen, and moves the bar where the mouse was released, never closer to the drag
// area's edges than its borders. Orientation 1 drags a vertical bar left and right,
// orientation 2 a horizontal bar up and down (any other value acts as 1).
class cSplitDDC
{
public:
    enum BorderType { Left = 1, Top = 2, Right = 3, Bottom = 4 };

    explicit cSplitDDC(SplitScreen &screen);

    SplitBar *SplitObject() const { return m_object; }
    // Sets the bar: no border, and the sizing mouse pointer of the orientation.
    void setSplitObject(SplitBar *bar);

    // The least distance in pixels between the bar and an edge of the drag area.
    // An index outside 1 to 4 raises run-time error 9.
    int Border(int type) const;
    void setBorder(int type, int pixels);

    int Orientation() const { return m_orientation; }
    // With a bar set, also sets its pointer and resets the borders: 64, 0, 64, 0 for
    // orientation 1 and 0, 64, 0, 64 for orientation 2.
    void setOrientation(int orientation);

    // Begins a drag in `window`; x and y are the mouse position on the bar.
    void SplitterMouseDown(SplitDragWindow &window, int x, int y);
    // Moves the drawn bar to the cursor, clamped to the borders.
    void SplitterFormMouseMove(int x, int y);
    // Ends a drag: moves the bar to the cursor, clamped to the borders, and returns
    // true; returns false and does nothing when no drag is in progress.
    bool SplitterFormMouseUp(int x, int y);

    bool isDragging() const { return m_dragging; }
    bool isMdiFrameArea() const { return m_mdiFrame; }
    PixelRect dragArea() const { return m_area; }
    PixelRect lastRect() const { return m_last; }

    // The bar drawn for a cursor position: 4 pixels wide (or high) around the cursor
    // inside the borders, 5 pixels at a border when the cursor lies beyond it.
    PixelRect barRectFor(PixelPoint cursor) const;

private:
    bool vertical() const { return m_orientation != 2; }
    void applyPointer();

    SplitScreen &m_screen;
    SplitBar *m_object = nullptr;
    int m_orientation = 1;
    int m_border[4] = {64, 0, 64, 0};
    SplitDragWindow *m_window = nullptr;
    PixelRect m_area;
    bool m_mdiFrame = false;
    bool m_dragging = false;
    PixelRect m_last;
};

} // namespace tessaro

#pragma once

#include "shell/core/cSplitDDC.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <functional>
#include <memory>

class QMainWindow;
class QRubberBand;
class QWidget;

namespace tessaro {

class LeftPane;

// The splitter between the left pane and the document area: a cSplitDDC whose drag
// area is the main window and whose moving bar is drawn with a rubber band overlay.
// A press on `picVert` begins the drag (the main window then takes the mouse), moves
// draw the bar, and the release moves the bar and lays the left pane out again.
class MainSplitter : public QObject, private SplitDragWindow, private SplitScreen
{
    Q_OBJECT
public:
    MainSplitter(QMainWindow &frame, LeftPane &pane);
    ~MainSplitter() override;

    cSplitDDC &splitter() { return m_split; }
    // The overlay that shows the moving bar.
    QRubberBand *dragBand() const { return m_band; }

    // Where the cursor is read from; tests give a fixed position.
    void setCursorSource(std::function<QPoint()> source) { m_cursor = std::move(source); }

    void picVert_MouseDown(int x, int y);
    void MDIForm_MouseMove(int x, int y);
    // Ends a drag and lays the left pane out; returns whether a drag ended.
    bool MDIForm_MouseUp(int x, int y);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    PixelRect windowRect() const override;
    bool isMdiFrame() const override { return true; }
    FrameMetrics frameMetrics() const override;
    PixelRect clientRectOnScreen() const override;
    PixelPoint screenToClient(PixelPoint screen) const override;
    void captureMouse() override;
    void releaseMouse() override;
    void confineCursor(const PixelRect *area) override;
    PixelPoint cursorPos() const override;
    double twipsPerPixelX() const override;
    double twipsPerPixelY() const override;
    void drawDragRect(const PixelRect &rect) override;
    void eraseDragRect(const PixelRect &rect) override;

    QMainWindow &m_frame;
    LeftPane &m_pane;
    // The bar, kept for the event filter: the filter must not ask the pane for it,
    // since the bar's events may come while the main window takes the pane down (after
    // the pane's own destructor has run).
    QPointer<QWidget> m_bar;
    cSplitDDC m_split;
    QRubberBand *m_band;
    std::function<QPoint()> m_cursor;
};

} // namespace tessaro

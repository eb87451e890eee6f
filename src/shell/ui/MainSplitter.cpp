#include "shell/ui/MainSplitter.h"

#include "shell/ui/LeftPane.h"
#include "shell/ui/TwipsGeometry.h"

#include <QCursor>
#include <QMainWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QRubberBand>

namespace tessaro {

namespace {

PixelRect toPixelRect(const QRect &r)
{
    return {r.left(), r.top(), r.right() + 1, r.bottom() + 1};
}

} // namespace

MainSplitter::MainSplitter(QMainWindow &frame, LeftPane &pane)
    : QObject(&frame), m_frame(frame), m_pane(pane), m_bar(pane.picVert()), m_split(*this),
      m_band(new QRubberBand(QRubberBand::Line, &frame)), m_cursor([] { return QCursor::pos(); })
{
    setObjectName(QStringLiteral("splitter"));
    m_band->setObjectName(QStringLiteral("splitterDragBand"));
    // The set-up the main window does at start: the bar, vertical, 32-pixel borders.
    m_split.setSplitObject(pane.splitBar());
    m_split.setOrientation(1);
    m_split.setBorder(cSplitDDC::Left, 32);
    m_split.setBorder(cSplitDDC::Right, 32);

    connect(&pane, &LeftPane::picVertPressed, this, &MainSplitter::picVert_MouseDown);
    frame.installEventFilter(this);
    pane.picVert()->installEventFilter(this);
}

// Qt drops a destroyed filter from the objects it watches.
MainSplitter::~MainSplitter() = default;

void MainSplitter::picVert_MouseDown(int x, int y)
{
    m_split.SplitterMouseDown(*this, x, y);
}

void MainSplitter::MDIForm_MouseMove(int x, int y)
{
    m_split.SplitterFormMouseMove(x, y);
}

bool MainSplitter::MDIForm_MouseUp(int x, int y)
{
    if (!m_split.SplitterFormMouseUp(x, y))
        return false;
    m_pane.Picture1_Resize();
    return true;
}

bool MainSplitter::eventFilter(QObject *watched, QEvent *event)
{
    // While the frame holds the mouse its moves and the release arrive here; the bar
    // may receive them too when the platform keeps the press's own grab.
    if (watched == &m_frame || (m_bar && watched == m_bar.data())) {
        if (event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonRelease) {
            const QPoint at = static_cast<QMouseEvent *>(event)->position().toPoint();
            if (event->type() == QEvent::MouseMove) {
                if (m_split.isDragging()) {
                    MDIForm_MouseMove(at.x(), at.y());
                    return true;
                }
            } else if (MDIForm_MouseUp(at.x(), at.y())) {
                return true;
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

PixelRect MainSplitter::windowRect() const
{
    return toPixelRect(m_frame.frameGeometry());
}

FrameMetrics MainSplitter::frameMetrics() const
{
    const QRect outer = m_frame.frameGeometry();
    const QRect inner = m_frame.geometry();
    FrameMetrics m;
    m.frameWidth = inner.left() - outer.left();
    m.frameHeight = outer.bottom() - inner.bottom();
    m.captionHeight = inner.top() - outer.top() - m.frameHeight;
    const QMenuBar *menu = m_frame.menuBar();
    m.menuHeight = menu && menu->isVisible() ? menu->height() : 0;
    return m;
}

PixelRect MainSplitter::clientRectOnScreen() const
{
    return toPixelRect(QRect(m_frame.mapToGlobal(QPoint(0, 0)), m_frame.size()));
}

PixelPoint MainSplitter::screenToClient(PixelPoint screen) const
{
    const QPoint p = m_frame.mapFromGlobal(QPoint(screen.x, screen.y));
    return {p.x(), p.y()};
}

void MainSplitter::captureMouse()
{
    if (m_frame.isVisible())
        m_frame.grabMouse();
}

void MainSplitter::releaseMouse()
{
    if (QWidget::mouseGrabber() == &m_frame)
        m_frame.releaseMouse();
}

// The cursor is not confined: the bar is clamped to the borders whatever the cursor
// does, and a desktop program should not trap the pointer.
void MainSplitter::confineCursor(const PixelRect *) {}

PixelPoint MainSplitter::cursorPos() const
{
    const QPoint p = m_cursor();
    return {p.x(), p.y()};
}

double MainSplitter::twipsPerPixelX() const
{
    return twipsPerPixelOf(&m_frame);
}

double MainSplitter::twipsPerPixelY() const
{
    return twipsPerPixelOf(&m_frame);
}

void MainSplitter::drawDragRect(const PixelRect &rect)
{
    const QPoint topLeft = m_frame.mapFromGlobal(QPoint(rect.left, rect.top));
    m_band->setGeometry(QRect(topLeft, QSize(rect.width(), rect.height())));
    m_band->show();
    m_band->raise();
}

void MainSplitter::eraseDragRect(const PixelRect &)
{
    m_band->hide();
}

} // namespace tessaro

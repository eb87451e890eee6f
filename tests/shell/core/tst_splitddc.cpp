#include "support/TestSupport.h"

#include "platform/core/RuntimeError.h"
#include "shell/core/cSplitDDC.h"

using namespace tessaro;

namespace {

class FakeBar : public SplitBar
{
public:
    TwipsRect barGeometry() const override { return geometry; }
    void setBarLeft(double twips) override
    {
        geometry.left = twips;
        ++moves;
    }
    void setBarTop(double twips) override
    {
        geometry.top = twips;
        ++moves;
    }
    void setBarBorderStyle(int style) override { borderStyle = style; }
    void setBarMousePointer(int p) override { pointer = p; }

    TwipsRect geometry{2640, 0, 48, 4095};
    int borderStyle = 1;
    int pointer = 0;
    int moves = 0;
};

// A main window at screen position (100, 50), 800 x 600 with its decorations.
class FakeWindow : public SplitDragWindow
{
public:
    PixelRect windowRect() const override { return {100, 50, 900, 650}; }
    bool isMdiFrame() const override { return mdi; }
    FrameMetrics frameMetrics() const override { return {4, 4, 20, 22}; }
    PixelRect clientRectOnScreen() const override { return {104, 74, 896, 646}; }
    PixelPoint screenToClient(PixelPoint p) const override { return {p.x - 104, p.y - 74}; }
    void captureMouse() override { captured = true; }
    void releaseMouse() override { captured = false; }
    void confineCursor(const PixelRect *area) override { confined = area != nullptr; }

    bool mdi = true;
    bool captured = false;
    bool confined = false;
};

class FakeScreen : public SplitScreen
{
public:
    PixelPoint cursorPos() const override { return cursor; }
    double twipsPerPixelX() const override { return 15; }
    double twipsPerPixelY() const override { return 15; }
    void drawDragRect(const PixelRect &r) override
    {
        drawn.append(r);
        shown = true;
    }
    void eraseDragRect(const PixelRect &r) override
    {
        erased.append(r);
        shown = false;
    }

    PixelPoint cursor;
    QList<PixelRect> drawn;
    QList<PixelRect> erased;
    bool shown = false;
};

// The splitter as the main window sets it up at start.
struct MainWindowSplitter
{
    FakeScreen screen;
    FakeBar bar;
    FakeWindow window;
    cSplitDDC split{screen};
    MainWindowSplitter()
    {
        split.setSplitObject(&bar);
        split.setOrientation(1);
        split.setBorder(cSplitDDC::Left, 32);
        split.setBorder(cSplitDDC::Right, 32);
    }
};

} // namespace

class SplitDDCTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aNewSplitterIsVerticalWithBordersOf64();
    void settingTheBarRemovesItsBorderAndSetsTheSizingPointer();
    void theOrientationResetsTheBordersOnlyWithABar();
    void aBorderOutsideOneToFourIsASubscriptError();
    void theMdiFrameDragAreaLeavesOutFrameCaptionAndMenu();
    void anyOtherWindowDragsInItsClientArea();
    void aFreeDragDrawsAFourPixelBar();
    void dragPastTheRightEdgeLeavesAFivePixelBar32PixelsInside();
    void dragPastTheLeftEdgeLeavesAFivePixelBarAtTheLeftLimit();
    void theBarSpansTheAreaBetweenTopAndBottomBorders();
    void releasingMovesTheBarToTheCursor();
    void releasingBeyondAnEdgeMovesTheBarToTheLimit();
    void releasingWithoutAPressChangesNothing();
    void aHorizontalSplitterExchangesTheAxes();
    void movingWithoutAPressDrawsNothing();
};

void SplitDDCTest::aNewSplitterIsVerticalWithBordersOf64()
{
    FakeScreen screen;
    cSplitDDC split(screen);
    QCOMPARE(split.Orientation(), 1);
    QCOMPARE(split.Border(1), 64);
    QCOMPARE(split.Border(2), 0);
    QCOMPARE(split.Border(3), 64);
    QCOMPARE(split.Border(4), 0);
    QVERIFY(!split.isDragging());
    QVERIFY(!split.SplitObject());
}

void SplitDDCTest::settingTheBarRemovesItsBorderAndSetsTheSizingPointer()
{
    FakeScreen screen;
    FakeBar bar;
    cSplitDDC split(screen);
    split.setSplitObject(&bar);
    QCOMPARE(bar.borderStyle, 0);
    QCOMPARE(bar.pointer, 9);
    split.setOrientation(2);
    QCOMPARE(bar.pointer, 7);
    FakeBar other;
    split.setSplitObject(&other);
    QCOMPARE(other.pointer, 7);
    QCOMPARE(split.SplitObject(), &other);
}

void SplitDDCTest::theOrientationResetsTheBordersOnlyWithABar()
{
    FakeScreen screen;
    cSplitDDC split(screen);
    split.setBorder(1, 5);
    split.setOrientation(2);
    QCOMPARE(split.Orientation(), 2);
    QCOMPARE(split.Border(1), 5); // no bar yet: borders untouched

    FakeBar bar;
    split.setSplitObject(&bar);
    split.setOrientation(2);
    QCOMPARE(split.Border(1), 0);
    QCOMPARE(split.Border(2), 64);
    QCOMPARE(split.Border(3), 0);
    QCOMPARE(split.Border(4), 64);
    split.setOrientation(1);
    QCOMPARE(split.Border(1), 64);
    QCOMPARE(split.Border(2), 0);
    QCOMPARE(split.Border(3), 64);
    QCOMPARE(split.Border(4), 0);

    MainWindowSplitter main;
    QCOMPARE(main.split.Border(1), 32);
    QCOMPARE(main.split.Border(3), 32);
    QCOMPARE(main.split.Border(2), 0);
    QCOMPARE(main.bar.pointer, 9);
}

void SplitDDCTest::aBorderOutsideOneToFourIsASubscriptError()
{
    FakeScreen screen;
    cSplitDDC split(screen);
    for (int index : {0, 5, -1, 1000}) {
        try {
            split.Border(index);
            QFAIL("reading the border did not fail");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(9));
        }
        try {
            split.setBorder(index, 3);
            QFAIL("setting the border did not fail");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(9));
        }
    }
    QCOMPARE(split.Border(1), 64);
}

void SplitDDCTest::theMdiFrameDragAreaLeavesOutFrameCaptionAndMenu()
{
    MainWindowSplitter m;
    m.split.SplitterMouseDown(m.window, 1, 7);
    QVERIFY(m.split.isDragging());
    QVERIFY(m.split.isMdiFrameArea());
    QVERIFY(m.window.captured);
    QVERIFY(m.window.confined);
    // left + frame, right - frame, bottom - frame, top + 3 frames + caption + menu
    QCOMPARE(m.split.dragArea(), (PixelRect{104, 50 + 12 + 20 + 22, 896, 646}));
    // The bar where it stands: 2640 / 15 = 176 plus the press offset, 3 pixels wide.
    QCOMPARE(m.split.lastRect(), (PixelRect{104 + 177, 104, 104 + 177 + 3, 104 + 273}));
}

void SplitDDCTest::anyOtherWindowDragsInItsClientArea()
{
    MainWindowSplitter m;
    m.window.mdi = false;
    m.split.SplitterMouseDown(m.window, 0, 0);
    QVERIFY(!m.split.isMdiFrameArea());
    QCOMPARE(m.split.dragArea(), (PixelRect{104, 74, 896, 646}));
}

void SplitDDCTest::aFreeDragDrawsAFourPixelBar()
{
    MainWindowSplitter m;
    m.split.SplitterMouseDown(m.window, 0, 0);
    m.screen.cursor = {400, 300};
    m.split.SplitterFormMouseMove(0, 0);
    QCOMPARE(m.screen.drawn.size(), 1);
    const PixelRect r = m.screen.drawn.last();
    QCOMPARE(r.left, 398);
    QCOMPARE(r.right, 402);
    QCOMPARE(r.width(), 4);
    // Each move takes away the bar drawn before.
    m.screen.cursor = {420, 300};
    m.split.SplitterFormMouseMove(0, 0);
    QCOMPARE(m.screen.erased.last(), r);
    QCOMPARE(m.screen.drawn.last().left, 418);
    QVERIFY(m.screen.shown);
    // Exactly on a limit the bar is still a free one.
    m.screen.cursor = {896 - 32, 300};
    m.split.SplitterFormMouseMove(0, 0);
    QCOMPARE(m.screen.drawn.last().width(), 4);
}

void SplitDDCTest::dragPastTheRightEdgeLeavesAFivePixelBar32PixelsInside()
{
    MainWindowSplitter m;
    m.split.SplitterMouseDown(m.window, 0, 0);
    for (int x : {865, 890, 2000}) {
        m.screen.cursor = {x, 300};
        m.split.SplitterFormMouseMove(0, 0);
        const PixelRect r = m.screen.drawn.last();
        const int limit = 896 - 32;
        QCOMPARE(r.left, limit - 2);
        QCOMPARE(r.right, limit + 3);
        QCOMPARE(r.width(), 5);
    }
}

void SplitDDCTest::dragPastTheLeftEdgeLeavesAFivePixelBarAtTheLeftLimit()
{
    MainWindowSplitter m;
    m.split.SplitterMouseDown(m.window, 0, 0);
    m.screen.cursor = {0, 300};
    m.split.SplitterFormMouseMove(0, 0);
    const int limit = 104 + 32;
    QCOMPARE(m.screen.drawn.last(), (PixelRect{limit - 2, 104, limit + 3, 646}));
}

void SplitDDCTest::theBarSpansTheAreaBetweenTopAndBottomBorders()
{
    MainWindowSplitter m;
    m.split.setBorder(cSplitDDC::Top, 10);
    m.split.setBorder(cSplitDDC::Bottom, 20);
    m.split.SplitterMouseDown(m.window, 0, 0);
    m.screen.cursor = {400, -50}; // the cursor's height does not matter
    m.split.SplitterFormMouseMove(0, 0);
    QCOMPARE(m.screen.drawn.last().top, 104 + 10);
    QCOMPARE(m.screen.drawn.last().bottom, 646 - 20);
}

void SplitDDCTest::releasingMovesTheBarToTheCursor()
{
    MainWindowSplitter m;
    m.split.SplitterMouseDown(m.window, 0, 0);
    m.screen.cursor = {400, 300};
    m.split.SplitterFormMouseMove(0, 0);
    QVERIFY(m.split.SplitterFormMouseUp(0, 0));
    QVERIFY(!m.split.isDragging());
    QVERIFY(!m.window.captured);
    QVERIFY(!m.window.confined);
    QVERIFY(!m.screen.shown);
    // Client x = 400 - 104 = 296; the bar's left is (296 - 2) pixels in twips.
    QCOMPARE(m.bar.geometry.left, 294.0 * 15);
    QCOMPARE(m.bar.geometry.top, 0.0);
}

void SplitDDCTest::releasingBeyondAnEdgeMovesTheBarToTheLimit()
{
    MainWindowSplitter m;
    m.split.SplitterMouseDown(m.window, 0, 0);
    m.screen.cursor = {5000, 300};
    QVERIFY(m.split.SplitterFormMouseUp(0, 0));
    QCOMPARE(m.bar.geometry.left, (896 - 32 - 104 - 2) * 15.0);

    m.split.SplitterMouseDown(m.window, 0, 0);
    m.screen.cursor = {-300, 300};
    QVERIFY(m.split.SplitterFormMouseUp(0, 0));
    QCOMPARE(m.bar.geometry.left, (104 + 32 - 104 - 2) * 15.0);
}

void SplitDDCTest::releasingWithoutAPressChangesNothing()
{
    MainWindowSplitter m;
    m.screen.cursor = {400, 300};
    QVERIFY(!m.split.SplitterFormMouseUp(400, 300));
    QCOMPARE(m.bar.moves, 0);
    QCOMPARE(m.bar.geometry.left, 2640.0);
    QVERIFY(m.screen.erased.isEmpty());
    // A second release after a completed drag is just as inert.
    m.split.SplitterMouseDown(m.window, 0, 0);
    QVERIFY(m.split.SplitterFormMouseUp(0, 0));
    const int moves = m.bar.moves;
    QVERIFY(!m.split.SplitterFormMouseUp(0, 0));
    QCOMPARE(m.bar.moves, moves);
}

void SplitDDCTest::aHorizontalSplitterExchangesTheAxes()
{
    MainWindowSplitter m;
    m.split.setOrientation(2); // borders 0, 64, 0, 64
    m.split.SplitterMouseDown(m.window, 3, 5);
    m.screen.cursor = {0, 300};
    m.split.SplitterFormMouseMove(0, 0);
    QCOMPARE(m.screen.drawn.last(), (PixelRect{104, 298, 896, 302}));
    m.screen.cursor = {0, 640}; // beyond bottom - 64
    m.split.SplitterFormMouseMove(0, 0);
    QCOMPARE(m.screen.drawn.last(), (PixelRect{104, 646 - 64 - 2, 896, 646 - 64 + 3}));
    QVERIFY(m.split.SplitterFormMouseUp(0, 0));
    QCOMPARE(m.bar.geometry.top, (646 - 64 - 74 - 2) * 15.0);
    QCOMPARE(m.bar.geometry.left, 2640.0);
}

void SplitDDCTest::movingWithoutAPressDrawsNothing()
{
    MainWindowSplitter m;
    m.screen.cursor = {400, 300};
    m.split.SplitterFormMouseMove(400, 300);
    QVERIFY(m.screen.drawn.isEmpty());
    QVERIFY(m.screen.erased.isEmpty());
}

TESSARO_CORE_TEST_MAIN(SplitDDCTest)
#include "tst_splitddc.moc"

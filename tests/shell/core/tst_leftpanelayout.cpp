#include "support/TestSupport.h"

#include "shell/core/LeftPaneLayout.h"

using namespace tessaro;

class LeftPaneLayoutTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theDesignPaneIsLaidOutStepByStep();
    void aTallerPaneStretchesEveryPage_data();
    void aTallerPaneStretchesEveryPage();
    void thePaneWidthFollowsTheSplitterBar();
    void aPaneTooSmallKeepsTheFailingControlsAtTheirPreviousSize();
    void aPaneOfExactly800TwipsGivesEmptyPages();
    void theStructureAndBrowserPagesAre120TwipsNarrower();
    void selectingATabMovesItsPageInAndTheOthersOut();
    void theDesignShowsTheFirstPageOnly();
};

void LeftPaneLayoutTest::theDesignPaneIsLaidOutStepByStep()
{
    LeftPaneGeometry g = LeftPaneGeometry::design();
    QCOMPARE(layOutLeftPane(g), 0);
    QCOMPARE(g.tbsOptions.height, 4050.0);
    QCOMPARE(g.picOptions[0].height, 3250.0);
    QCOMPARE(g.Dir1.height, 812.5);
    QCOMPARE(g.File1.top, 812.5 + 405 + 50);
    QCOMPARE(g.File1.height, 3250 * 0.67);
    QCOMPARE(g.picOptions[1].height, 3250.0);
    QCOMPARE(g.List1.height, 3250.0);
    QCOMPARE(g.picOptions[2].height, 3250.0);
    QCOMPARE(g.Code1.height, 3250.0);
    QCOMPARE(g.picVert.height, 4050.0);
    QCOMPARE(g.Picture1.width, 2640.0 + 48);
    QCOMPARE(g.tbsOptions.width, 2688.0);
    QCOMPARE(g.picOptions[0].width, 2568.0);
    QCOMPARE(g.Dir1.width, 2448.0);
    QCOMPARE(g.File1.width, 2448.0);
    QCOMPARE(g.Drive1.width, 2448.0);
    QCOMPARE(g.picOptions[1].width, 2448.0);
    QCOMPARE(g.List1.width, 2448.0);
    QCOMPARE(g.picOptions[2].width, 2448.0);
    QCOMPARE(g.Code1.width, 2448.0);
    // Positions other than the file list's top are left alone.
    QCOMPARE(g.picOptions[0].left, 120.0);
    QCOMPARE(g.Dir1.top, 405.0);
}

void LeftPaneLayoutTest::aTallerPaneStretchesEveryPage_data()
{
    QTest::addColumn<double>("paneHeight");
    QTest::newRow("one inch") << 1440.0;
    QTest::newRow("design") << 4050.0;
    QTest::newRow("tall") << 12000.0;
    QTest::newRow("huge") << 1.0e6;
}

void LeftPaneLayoutTest::aTallerPaneStretchesEveryPage()
{
    QFETCH(double, paneHeight);
    LeftPaneGeometry g = LeftPaneGeometry::design();
    g.Picture1.height = paneHeight;
    QCOMPARE(layOutLeftPane(g), 0);
    const double page = paneHeight - 800;
    QCOMPARE(g.tbsOptions.height, paneHeight);
    QCOMPARE(g.picVert.height, paneHeight);
    for (const TwipsRect &p : g.picOptions)
        QCOMPARE(p.height, page);
    QCOMPARE(g.Dir1.height, page / 4);
    QCOMPARE(g.File1.height, page * 0.67);
    QCOMPARE(g.File1.top, page / 4 + 405 + 50);
    QCOMPARE(g.Code1.height, page);
    QCOMPARE(g.List1.height, page);
}

void LeftPaneLayoutTest::thePaneWidthFollowsTheSplitterBar()
{
    LeftPaneGeometry g = LeftPaneGeometry::design();
    g.picVert.left = 6000;
    layOutLeftPane(g);
    QCOMPARE(g.Picture1.width, 6048.0);
    QCOMPARE(g.picOptions[0].width, 5928.0);
    QCOMPARE(g.Code1.width, 5808.0);

    g.picVert.left = 450; // dragged close to the left border
    layOutLeftPane(g);
    QCOMPARE(g.Picture1.width, 498.0);
    QCOMPARE(g.picOptions[0].width, 378.0);
    QCOMPARE(g.picOptions[1].width, 258.0);
    QCOMPARE(g.Dir1.width, 258.0);
}

void LeftPaneLayoutTest::aPaneTooSmallKeepsTheFailingControlsAtTheirPreviousSize()
{
    LeftPaneGeometry g = LeftPaneGeometry::design();
    layOutLeftPane(g);       // the design size first
    g.Picture1.height = 500; // less than the 800 twips the pages leave for the tabs
    g.picVert.left = 90;     // and narrower than the pages' margins
    const int skipped = layOutLeftPane(g);
    // Step 2 fails: the pages keep 3250 and everything derived from them follows it.
    QCOMPARE(g.tbsOptions.height, 500.0);
    QCOMPARE(g.picOptions[0].height, 3250.0);
    QCOMPARE(g.Dir1.height, 812.5);
    QCOMPARE(g.picOptions[2].height, 3250.0);
    QCOMPARE(g.picVert.height, 500.0);
    // The width steps run on: 138 - 120 = 18 is fine, 18 - 120 is not.
    QCOMPARE(g.Picture1.width, 138.0);
    QCOMPARE(g.tbsOptions.width, 138.0);
    QCOMPARE(g.picOptions[0].width, 18.0);
    QCOMPARE(g.Dir1.width, 2448.0);
    QCOMPARE(g.File1.width, 2448.0);
    QCOMPARE(g.Drive1.width, 2448.0);
    QCOMPARE(g.picOptions[1].width, 2448.0);
    QCOMPARE(g.List1.width, 2448.0); // copies the width it kept
    QCOMPARE(g.picOptions[2].width, 2448.0);
    QCOMPARE(g.Code1.width, 2448.0);
    QCOMPARE(skipped, 1 + 4);
}

void LeftPaneLayoutTest::aPaneOfExactly800TwipsGivesEmptyPages()
{
    LeftPaneGeometry g = LeftPaneGeometry::design();
    g.Picture1.height = 800;
    QCOMPARE(layOutLeftPane(g), 0);
    QCOMPARE(g.picOptions[0].height, 0.0);
    QCOMPARE(g.Dir1.height, 0.0);
    QCOMPARE(g.File1.top, 455.0);
}

void LeftPaneLayoutTest::theStructureAndBrowserPagesAre120TwipsNarrower()
{
    LeftPaneGeometry g = LeftPaneGeometry::design();
    layOutLeftPane(g);
    QCOMPARE(g.picOptions[0].width - g.picOptions[1].width, 120.0);
    QCOMPARE(g.picOptions[1].width, g.picOptions[2].width);
}

void LeftPaneLayoutTest::selectingATabMovesItsPageInAndTheOthersOut()
{
    LeftPaneGeometry g = LeftPaneGeometry::design();
    bool enabled[3] = {true, true, true};
    switchLeftPanePage(g, enabled, 3);
    QCOMPARE(g.picOptions[0].left, -20000.0);
    QCOMPARE(g.picOptions[1].left, -20000.0);
    QCOMPARE(g.picOptions[2].left, 120.0);
    QVERIFY(!enabled[0] && !enabled[1] && enabled[2]);
    switchLeftPanePage(g, enabled, 2);
    QCOMPARE(g.picOptions[1].left, 120.0);
    QCOMPARE(g.picOptions[2].left, -20000.0);
    QVERIFY(!enabled[0] && enabled[1] && !enabled[2]);
    // Tops and sizes stay.
    QCOMPARE(g.picOptions[2].top, 120.0);
    QCOMPARE(g.picOptions[2].width, 2415.0);
}

void LeftPaneLayoutTest::theDesignShowsTheFirstPageOnly()
{
    const LeftPaneGeometry g = LeftPaneGeometry::design();
    QCOMPARE(g.picOptions[0].left, 120.0);
    QCOMPARE(g.picOptions[1].left, -20000.0);
    QCOMPARE(g.picOptions[2].left, -20000.0);
    QCOMPARE(g.Picture1.height, 4050.0);
    QCOMPARE(g.picVert.left, 2640.0);
}

TESSARO_CORE_TEST_MAIN(LeftPaneLayoutTest)
#include "tst_leftpanelayout.moc"

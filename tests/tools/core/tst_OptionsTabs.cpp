#include "support/TestSupport.h"
#include "tools/core/OptionsTabs.h"

using namespace tessaro::optionstabs;

class tst_OptionsTabs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void selectedTabShowsItsPageAndMovesTheOthersOutOfView()
    {
        QCOMPARE(pageLefts(1, 4), (QVector<double>{210, -20000, -20000, -20000}));
        QCOMPARE(pageLefts(3, 4), (QVector<double>{-20000, -20000, 210, -20000}));
        QCOMPARE(pageLefts(4, 4), (QVector<double>{-20000, -20000, -20000, 210}));
    }

    void noSelectedTabHidesEveryPage()
    {
        QCOMPARE(pageLefts(0, 4), (QVector<double>{-20000, -20000, -20000, -20000}));
        QCOMPARE(pageLefts(5, 4), (QVector<double>{-20000, -20000, -20000, -20000}));
        QVERIFY(pageLefts(1, 0).isEmpty());
    }

    void ctrlTabStepsForwardAndCtrlShiftTabBackward()
    {
        QCOMPARE(stepForKey(true, true, false, false), TabStep::Next);
        QCOMPARE(stepForKey(true, true, true, false), TabStep::Previous);
    }

    void tabWithoutCtrlOrWithAltOrAnotherKeyDoesNothing()
    {
        QCOMPARE(stepForKey(true, false, false, false), TabStep::None);
        QCOMPARE(stepForKey(true, false, true, false), TabStep::None);
        QCOMPARE(stepForKey(true, true, false, true), TabStep::None);
        QCOMPARE(stepForKey(false, true, false, false), TabStep::None);
        QCOMPARE(stepForKey(false, true, true, false), TabStep::None);
    }

    void nextWrapsFromTheLastTabToTheFirst()
    {
        QCOMPARE(steppedTab(1, 4, TabStep::Next), 2);
        QCOMPARE(steppedTab(3, 4, TabStep::Next), 4);
        QCOMPARE(steppedTab(4, 4, TabStep::Next), 1);
    }

    void previousWrapsFromTheFirstTabToTheLast()
    {
        QCOMPARE(steppedTab(4, 4, TabStep::Previous), 3);
        QCOMPARE(steppedTab(2, 4, TabStep::Previous), 1);
        QCOMPARE(steppedTab(1, 4, TabStep::Previous), 4);
    }

    void noStepOrNoTabsKeepsTheSelection()
    {
        QCOMPARE(steppedTab(2, 4, TabStep::None), 2);
        QCOMPARE(steppedTab(1, 0, TabStep::Next), 1);
        QCOMPARE(steppedTab(1, 1, TabStep::Next), 1);
        QCOMPARE(steppedTab(1, 1, TabStep::Previous), 1);
    }
};

TESSARO_CORE_TEST_MAIN(tst_OptionsTabs)
#include "tst_OptionsTabs.moc"

// A main window saved at one scale and restored at another, or saved on a screen that
// has gone, is moved and shrunk onto a screen.

#include "shell/core/ScreenFit.h"
#include "support/TestSupport.h"

using namespace tessaro;

class ScreenFitTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aWindowThatFitsStaysWhereItWas()
    {
        const QList<QRect> screens{QRect(0, 0, 1920, 1050)};
        QCOMPARE(fitOnScreens(QRect(100, 80, 800, 600), screens), QRect(100, 80, 800, 600));
        QCOMPARE(fitOnScreens(QRect(0, 0, 1920, 1050), screens), QRect(0, 0, 1920, 1050));
    }
    void aWindowTallerThanTheScreenIsShrunkOntoIt()
    {
        // Saved at 1x, shown at 2x on a 2560x1600 screen.
        const QList<QRect> screens{QRect(0, 0, 2560, 1600)};
        QCOMPARE(fitOnScreens(QRect(0, 0, 2560, 2010), screens), QRect(0, 0, 2560, 1600));
        QCOMPARE(fitOnScreens(QRect(300, 900, 1000, 1000), screens), QRect(300, 600, 1000, 1000));
    }
    void aWindowPartlyOffTheScreenIsMovedOn()
    {
        const QList<QRect> screens{QRect(0, 0, 1280, 1000)};
        QCOMPARE(fitOnScreens(QRect(900, -50, 600, 400), screens), QRect(680, 0, 600, 400));
        QCOMPARE(fitOnScreens(QRect(-300, 700, 600, 400), screens), QRect(0, 600, 600, 400));
    }
    void theScreenHoldingMostOfItIsChosen()
    {
        const QList<QRect> screens{QRect(0, 0, 1920, 1080), QRect(1920, 0, 1280, 1024)};
        // Mostly on the second screen, and taller than it.
        QCOMPARE(fitOnScreens(QRect(1800, 100, 1000, 1100), screens),
                 QRect(1920, 0, 1000, 1024));
        // Whole on the second: kept.
        QCOMPARE(fitOnScreens(QRect(2000, 10, 500, 500), screens), QRect(2000, 10, 500, 500));
    }
    void aWindowOnAScreenThatHasGoneComesToThePrimary()
    {
        const QList<QRect> screens{QRect(0, 0, 1366, 740)};
        QCOMPARE(fitOnScreens(QRect(3000, 200, 800, 600), screens), QRect(566, 140, 800, 600));
    }
};

TESSARO_TEST_MAIN(ScreenFitTest)
#include "tst_screenfit.moc"

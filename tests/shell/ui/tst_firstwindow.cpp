// The main window as a new user first sees it: at its default size every toolbar
// button and the find box's button are in sight, the two bands lie in two rows, and the
// left pane's tabs show their whole captions.
#include "app/ui/MainWindow.h"
#include "shell/core/WindowPlacement.h"
#include "shell/ui/ReBar.h"
#include "shell/ui/TabStrip.h"
#include "shell/ui/frmMain.h"
#include "state/core/Settings.h"
#include "support/TestSupport.h"

#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

using namespace tessaro;

namespace {

template <typename T = QWidget> T *child(const QObject &parent, const char *name)
{
    return parent.findChild<T *>(QString::fromLatin1(name));
}

// Shows the window at the size a first start gives it (the settings' defaults).
void showAtDefaultSize(frmMain &frame)
{
    WindowPlacement placement(15.0);
    const QRect pixels = placement.assign(WindowRect{});
    frame.move(pixels.topLeft());
    frame.resize(pixels.size());
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
}

// True when the widget is shown and lies wholly inside the window's client area.
bool wholeInSight(const QWidget &frame, const QWidget *widget)
{
    if (!widget || !widget->isVisible() || widget->width() <= 0 || widget->height() <= 0)
        return false;
    const QRect inFrame(widget->mapTo(&frame, QPoint(0, 0)), widget->size());
    return frame.rect().contains(inFrame);
}

} // namespace

class FirstWindowTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theDefaultSizeIsTheSettingsDefault()
    {
        MainWindow frame;
        showAtDefaultSize(frame);
        QCOMPARE(frame.size(), QSize(433, 433)); // 6500 twips at 15 twips a pixel
    }

    void theBandsLieInTwoRows()
    {
        MainWindow frame;
        showAtDefaultSize(frame);
        auto *rebar = child<ReBar>(frame, "cReBar1");
        QWidget *toolbarBand = rebar->band(QStringLiteral("Toolbar1"));
        QWidget *findBand = rebar->band(QStringLiteral("Toolbar2"));
        QVERIFY(findBand->geometry().top() > toolbarBand->geometry().bottom());
        // Each band has the container's width.
        QCOMPARE(toolbarBand->x(), findBand->x());
        QCOMPARE(toolbarBand->width(), findBand->width());
        QVERIFY(toolbarBand->width() >= rebar->width() - 4);
        // The holder is as high as both rows.
        QWidget *holder = child(frame, "picHolder");
        QVERIFY(holder->height() >= findBand->geometry().bottom());
        QCOMPARE(holder->height(), rebar->height());
    }

    void atTheDefaultSizeEveryToolbarButtonIsInSight()
    {
        MainWindow frame;
        showAtDefaultSize(frame);
        auto *toolbar = child<QToolBar>(frame, "cToolbar1");
        int buttons = 0;
        for (QAction *action : toolbar->actions()) {
            if (action->isSeparator())
                continue;
            ++buttons;
            QVERIFY2(wholeInSight(frame, toolbar->widgetForAction(action)),
                     qPrintable(action->objectName()));
        }
        QCOMPARE(buttons, 9);
        // Nothing waits behind the overflow button.
        for (auto *button :
             toolbar->findChildren<QToolButton *>(QStringLiteral("qt_toolbar_ext_button")))
            QVERIFY(!button->isVisible());
    }

    void atTheDefaultSizeTheFindBoxAndItsButtonAreInSight()
    {
        MainWindow frame;
        showAtDefaultSize(frame);
        auto *find = child<QPushButton>(frame, "cmdFind");
        QVERIFY(wholeInSight(frame, find));
        QCOMPARE(find->height(), 21); // 315 twips
        QCOMPARE(find->width(), 73);  // 1095 twips
        auto *box = child<QComboBox>(frame, "fndText");
        QVERIFY(wholeInSight(frame, box));
        QVERIFY(box->width() >= 100);
        QVERIFY(box->geometry().right() < find->geometry().left());
    }

    void aWideWindowKeepsTheFindPanelsDesignGeometry()
    {
        MainWindow frame;
        frame.resize(900, 600);
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        QCOMPARE(child(frame, "Picture2")->size(), QSize(465, 21));
        QCOMPARE(child(frame, "fndText")->geometry(), QRect(0, 0, 385, 21));
        QCOMPARE(child(frame, "cmdFind")->geometry(), QRect(392, 0, 73, 21));
    }

    void theTabsShowTheirWholeCaptions_data()
    {
        QTest::addColumn<bool>("maximised");
        QTest::newRow("default size") << false;
        QTest::newRow("maximised") << true;
    }
    void theTabsShowTheirWholeCaptions()
    {
        QFETCH(bool, maximised);
        MainWindow frame;
        showAtDefaultSize(frame);
        if (maximised) {
            frame.showMaximized();
            QTest::qWait(50);
        }
        QTabBar *bar = child<TabStrip>(frame, "tbsOptions")->tabBar();
        QCOMPARE(bar->elideMode(), Qt::ElideNone);
        const QStringList captions = {"FileView", "StructView", "File Browser"};
        QCOMPARE(bar->count(), captions.size());
        for (int i = 0; i < bar->count(); ++i) {
            QCOMPARE(bar->tabText(i), captions[i]);
            QVERIFY2(bar->tabRect(i).width() > bar->fontMetrics().horizontalAdvance(captions[i]),
                     qPrintable(captions[i]));
        }
        // Each tab can be brought into sight and chosen.
        for (int i = 0; i < bar->count(); ++i) {
            bar->setCurrentIndex(i);
            QTest::qWait(10);
            QVERIFY(bar->rect().intersects(bar->tabRect(i)));
        }
    }
};

TESSARO_TEST_MAIN(FirstWindowTest)
#include "tst_firstwindow.moc"

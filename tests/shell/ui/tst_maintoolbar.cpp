#include "support/TestSupport.h"

#include "app/ui/MainWindow.h"
#include "shell/ui/MainToolbar.h"
#include "shell/ui/ToolbarIcons.h"
#include "shell/ui/frmMain.h"

#include <QAction>
#include <QImage>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>

using namespace tessaro;

namespace {

MainToolbar *toolbarOf(frmMain &frame)
{
    return frame.findChild<MainToolbar *>();
}

// Counts the triggers of every menu action and the find button's clicks.
struct CommandLog
{
    explicit CommandLog(frmMain &frame)
    {
        for (QAction *action : frame.findChildren<QAction *>()) {
            if (action->objectName().startsWith(QLatin1String("mnu")))
                QObject::connect(action, &QAction::triggered, action,
                                 [this, action] { ran << action->objectName(); });
        }
        auto *find = frame.findChild<QPushButton *>(QStringLiteral("cmdFind"));
        QObject::connect(find, &QPushButton::clicked, find,
                         [this] { ran << QStringLiteral("cmdFind"); });
    }
    QStringList ran;
};

} // namespace

class MainToolbarTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theButtonsHaveTheirKeysTooltipsAndImages();
    void buttonsHaveNoCaption();
    void everyImageOfTheListIsDrawnAndDistinct();
    void clickingEachButtonRunsItsCommand();
    void separatorsAndUnknownNumbersDoNothing();
    void theButtonDispatcherAlsoKnowsFindInFiles();
    void aRealClickOnTheToolbarDispatches();
};

void MainToolbarTest::theButtonsHaveTheirKeysTooltipsAndImages()
{
    MainWindow frame;
    QToolBar *bar = toolbarOf(frame)->toolbar();
    QCOMPARE(bar->objectName(), QStringLiteral("cToolbar1"));
    QStringList got;
    for (QAction *action : bar->actions()) {
        if (action->isSeparator()) {
            got << QStringLiteral("|");
            continue;
        }
        QCOMPARE(action->toolTip(), action->property("Key").toString());
        QCOMPARE(action->objectName(),
                 QStringLiteral("cToolbar1_") + action->property("Key").toString());
        got << action->property("Key").toString() + QLatin1Char(':') +
                   action->property("Image").toString();
    }
    QCOMPARE(got, QStringList({"New:6", "Open:7", "Save:8", "|", "Cut:0", "Copy:1", "Paste:2", "|",
                               "Print:14", "|", "Find:12", "|", "Properties:10"}));
    QCOMPARE(toolbarOf(frame)->button(11)->property("Key").toString(), QStringLiteral("Find"));
}

void MainToolbarTest::buttonsHaveNoCaption()
{
    MainWindow frame;
    for (QAction *action : toolbarOf(frame)->toolbar()->actions()) {
        QVERIFY(action->text().isEmpty());
        if (!action->isSeparator())
            QVERIFY(!action->icon().isNull());
    }
    QCOMPARE(toolbarOf(frame)->toolbar()->toolButtonStyle(), Qt::ToolButtonIconOnly);
}

void MainToolbarTest::everyImageOfTheListIsDrawnAndDistinct()
{
    MainWindow frame;
    ToolbarIcons *images = toolbarOf(frame)->images();
    QCOMPARE(images->objectName(), QStringLiteral("imlToolbarIcons"));
    QVERIFY(images->count() >= 15);
    QList<QImage> drawn;
    for (int i = 0; i < images->count(); ++i) {
        const QImage image = ToolbarIcons::render(i, 16);
        int painted = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                painted += qAlpha(image.pixel(x, y)) > 0;
        QVERIFY2(painted > 20, qPrintable(QString::number(i)));
        for (const QImage &other : drawn)
            QVERIFY2(other != image, qPrintable(QString::number(i)));
        drawn << image;
        QVERIFY(!images->icon(i).isNull());
    }
    QVERIFY(images->icon(15).isNull());
    QVERIFY(images->icon(-1).isNull());
}

void MainToolbarTest::clickingEachButtonRunsItsCommand()
{
    MainWindow frame;
    MainToolbar *toolbar = toolbarOf(frame);
    const QStringList expected = {"mnuFileNew",       "mnuFileOpen",
                                  "mnuFileSave",      "",
                                  "mnuEditCut",       "mnuEditCopy",
                                  "mnuEditPaste",     "",
                                  "mnuFilePrint",     "",
                                  "cmdFind",          "",
                                  "mnuFileProperties"};
    CommandLog log(frame);
    for (int number = 1; number <= expected.size(); ++number) {
        log.ran.clear();
        toolbar->ButtonClick(number);
        const QString want = expected[number - 1];
        QCOMPARE(log.ran, want.isEmpty() ? QStringList() : QStringList{want});
    }
}

void MainToolbarTest::separatorsAndUnknownNumbersDoNothing()
{
    MainWindow frame;
    MainToolbar *toolbar = toolbarOf(frame);
    CommandLog log(frame);
    for (int number : {0, 4, 8, 10, 12, 14, 100, -1})
        toolbar->ButtonClick(number);
    for (const char *key : {"", "new", "FindnF", "Undo", "Find "})
        toolbar->dispatchKey(QString::fromLatin1(key));
    QVERIFY(log.ran.isEmpty());
}

void MainToolbarTest::theButtonDispatcherAlsoKnowsFindInFiles()
{
    MainWindow frame;
    MainToolbar *toolbar = toolbarOf(frame);
    CommandLog log(frame);
    toolbar->dispatchButtonKey(QStringLiteral("FindnF"));
    toolbar->dispatchButtonKey(QStringLiteral("Save"));
    toolbar->dispatchButtonKey(QStringLiteral("findnf"));
    QCOMPARE(log.ran, QStringList({"mnuEditFindnF", "mnuFileSave"}));
}

void MainToolbarTest::aRealClickOnTheToolbarDispatches()
{
    MainWindow frame;
    frame.show();
    CommandLog log(frame);
    QToolBar *bar = toolbarOf(frame)->toolbar();
    auto *button = qobject_cast<QToolButton *>(bar->widgetForAction(toolbarOf(frame)->button(13)));
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(log.ran, QStringList{"mnuFileProperties"});
}

TESSARO_TEST_MAIN(MainToolbarTest)
#include "tst_maintoolbar.moc"

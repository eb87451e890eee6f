#include "support/TestSupport.h"

#include "shell/core/MdiArrange.h"
#include "shell/core/ToolbarTable.h"

using namespace tessaro;

class ToolbarTableTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theToolbarHasItsButtonsAndImagesInOrder();
    void eachKeyRunsItsCommand_data();
    void eachKeyRunsItsCommand();
    void onlyTheButtonDispatcherKnowsFindInFiles();
    void keysCompareExactly();
    void tilingShareTheAreaAmongTheWindows();
    void tilingNoWindowsGivesNothing();
    void iconsLineUpFromTheBottomLeft();
};

void ToolbarTableTest::theToolbarHasItsButtonsAndImagesInOrder()
{
    QStringList got;
    for (const ToolbarButton &b : mainToolbarButtons())
        got << (b.isSeparator() ? QStringLiteral("|") : b.key + QString::number(b.image));
    QCOMPARE(got.join(QLatin1Char(' ')),
             QStringLiteral("New6 Open7 Save8 | Cut0 Copy1 Paste2 | Print14 | Find12 | "
                            "Properties10"));
}

void ToolbarTableTest::eachKeyRunsItsCommand_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("command");
    QTest::newRow("New") << "New"
                         << "mnuFileNew";
    QTest::newRow("Open") << "Open"
                          << "mnuFileOpen";
    QTest::newRow("Save") << "Save"
                          << "mnuFileSave";
    QTest::newRow("Cut") << "Cut"
                         << "mnuEditCut";
    QTest::newRow("Copy") << "Copy"
                          << "mnuEditCopy";
    QTest::newRow("Paste") << "Paste"
                           << "mnuEditPaste";
    QTest::newRow("Print") << "Print"
                           << "mnuFilePrint";
    QTest::newRow("Find") << "Find"
                          << "cmdFind";
    QTest::newRow("Properties") << "Properties"
                                << "mnuFileProperties";
}

void ToolbarTableTest::eachKeyRunsItsCommand()
{
    QFETCH(QString, key);
    QFETCH(QString, command);
    QCOMPARE(toolbarCommandForKey(key), command);
    QCOMPARE(toolbarButtonCommandForKey(key), command);
}

void ToolbarTableTest::onlyTheButtonDispatcherKnowsFindInFiles()
{
    QCOMPARE(toolbarCommandForKey(QStringLiteral("FindnF")), QString());
    QCOMPARE(toolbarButtonCommandForKey(QStringLiteral("FindnF")), QStringLiteral("mnuEditFindnF"));
    for (const ToolbarButton &b : mainToolbarButtons())
        QVERIFY(b.key != QLatin1String("FindnF"));
}

void ToolbarTableTest::keysCompareExactly()
{
    for (const char *key : {"new", "NEW", " New", "New ", "", "Undo", "findnf", "Propertie"}) {
        QCOMPARE(toolbarCommandForKey(QString::fromLatin1(key)), QString());
        QCOMPARE(toolbarButtonCommandForKey(QString::fromLatin1(key)), QString());
    }
}

void ToolbarTableTest::tilingShareTheAreaAmongTheWindows()
{
    const QRect area(0, 0, 300, 100);
    const QVector<QRect> rows = tileRects(area, 3, true);
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows[0], QRect(0, 0, 300, 33));
    QCOMPARE(rows[1], QRect(0, 33, 300, 33));
    QCOMPARE(rows[2], QRect(0, 66, 300, 34));
    const QVector<QRect> columns = tileRects(area, 2, false);
    QCOMPARE(columns[0], QRect(0, 0, 150, 100));
    QCOMPARE(columns[1], QRect(150, 0, 150, 100));
    QCOMPARE(tileRects(area, 1, true), QVector<QRect>{area});
}

void ToolbarTableTest::tilingNoWindowsGivesNothing()
{
    QVERIFY(tileRects(QRect(0, 0, 300, 100), 0, true).isEmpty());
    QVERIFY(iconRects(QRect(0, 0, 300, 100), 0, QSize(160, 30)).isEmpty());
}

void ToolbarTableTest::iconsLineUpFromTheBottomLeft()
{
    const QVector<QRect> icons = iconRects(QRect(0, 0, 350, 200), 3, QSize(160, 30));
    QCOMPARE(icons[0], QRect(0, 170, 160, 30));
    QCOMPARE(icons[1], QRect(160, 170, 160, 30));
    QCOMPARE(icons[2], QRect(0, 140, 160, 30));
    // An area narrower than one icon still gets one icon per row.
    QCOMPARE(iconRects(QRect(0, 0, 50, 100), 2, QSize(160, 30))[1], QRect(0, 40, 160, 30));
}

TESSARO_CORE_TEST_MAIN(ToolbarTableTest)
#include "tst_toolbartable.moc"

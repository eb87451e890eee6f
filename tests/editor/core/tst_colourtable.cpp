#include "editor/core/ColourTable.h"
#include "platform/core/RuntimeError.h"
#include "support/TestSupport.h"

using namespace tessaro;

class ColourTableTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void componentsFollowThePlatformsColourOrder()
    {
        QCOMPARE(colourComponent(0x8000, 0), quint8(0));
        QCOMPARE(colourComponent(0x8000, 1), quint8(128));
        QCOMPARE(colourComponent(0x8000, 2), quint8(0));
        QCOMPARE(colourComponent(0x7F0000, 2), quint8(127));
        QCOMPARE(colourComponent(0x123456, 0), quint8(0x56));
        QCOMPARE(colourComponent(0x123456, 1), quint8(0x34));
        QCOMPARE(colourComponent(0x123456, 2), quint8(0x12));
        QCOMPARE(colourComponent(0xFFFFFF, 1), quint8(255));
        QCOMPARE(colourComponent(0xFFFFFF, 3), quint8(0));
        QCOMPARE(colourComponent(0xFFFFFF, -1), quint8(0));
    }
    void aSystemColourOverflows()
    {
        try {
            colourComponent(colour::windowBackground, 2);
            QFAIL("no error");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(6));
        }
        QVERIFY_THROWS_EXCEPTION(RuntimeError, colourComponent(0x01000000, 2));
        QCOMPARE(colourComponent(colour::windowBackground, 7), quint8(0));
    }
    void tableEntriesAreWrittenWithoutBlanks()
    {
        HighlightColours colours;
        colours.setSlot(3, 0x0A0B0C);
        QCOMPARE(colours.tableEntry(3), QString("\\red12\\green11\\blue10;"));
        QCOMPARE(colours.tableEntry(6), QString("\\red0\\green0\\blue0;"));
    }
    void theStartupTableIsExact()
    {
        HighlightColours colours;
        QCOMPARE(colours.colourSwitch(0), QString());
        colours.setStartupValues();
        QCOMPARE(colours.buildTable(),
                 QString("{\\colortbl\\red0\\green0\\blue0;\\red0\\green0\\blue255;\\red0\\green0"
                         "\\blue255;\\red0\\green128\\blue0;\\red0\\green0\\blue0;\\red0\\green0"
                         "\\blue0;\\red0\\green0\\blue0;\\red0\\green0\\blue0;}"));
        for (int n = 0; n < 7; ++n)
            QCOMPARE(colours.colourSwitch(n), QStringLiteral("\\cf%1").arg(n + 1));
    }
    void replacingTheTableKeepsTheRestByteForByte()
    {
        HighlightColours colours;
        colours.setStartupValues();
        const QString table = colours.buildTable();
        const QString before = "{\\rtf1\\ansi{\\fonttbl{\\f0 Courier;}}\r\n";
        const QString after = "\r\n\\pard x\\par\r\n}";
        QCOMPARE(
            replaceColourTable(before + "{\\colortbl;\\red255\\green0\\blue0;}" + after, table),
            before + table + after);
        // Only the first table, and only up to its first closing brace.
        QCOMPARE(replaceColourTable("a{\\colortbl;}b{\\colortbl;}", "T"),
                 QString("aTb{\\colortbl;}"));
    }
    void textWithoutATablePassesUnchanged()
    {
        const QString rtf = "{\\rtf1 {\\ColorTbl;} x}";
        QCOMPARE(replaceColourTable(rtf, "T"), rtf);
        QCOMPARE(replaceColourTable(QString(), "T"), QString());
    }
    void aTableWithoutClosingBraceKeepsTheWholeText()
    {
        QCOMPARE(replaceColourTable("ab{\\colortbl;\\red1", "T"),
                 QString("abTab{\\colortbl;\\red1"));
    }
};

TESSARO_CORE_TEST_MAIN(ColourTableTest)
#include "tst_colourtable.moc"

#include "EditorTestHelpers.h"
#include "editor/ui/srcText.h"
#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace tessaro;
using namespace tessaro::test;

namespace {

QByteArray cSource(int lines, const char *lineBreak)
{
    QByteArray out;
    for (int i = 0; i < lines; ++i) {
        out +=
            "int value" + QByteArray::number(i) + " = " + QByteArray::number(i) + "; /* a comment";
        out += lineBreak;
        out += "   going on */ // while return" + QByteArray(lineBreak);
    }
    return out;
}

} // namespace

// Loading files into the box: the bytes of the file, every break as CR LF, each line's
// own break kept for saving, no history, and a break counting two at every member
// that takes or gives a position.
class SrcTextLoadTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;

    QString write(const QString &name, const QByteArray &bytes) const
    {
        textfile::writeBytes(m_dir.filePath(name), bytes);
        return m_dir.filePath(name);
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void aLoadedFileSavesBackByteForByte_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("CR LF") << "crlf.c" << cSource(300, "\r\n");
        QTest::newRow("LF") << "lf.c" << cSource(300, "\n");
        QTest::newRow("CR only") << "cr.c" << cSource(300, "\r");
        QTest::newRow("mixed") << "mixed.c"
                               << cSource(100, "\r\n") + cSource(100, "\n") + cSource(100, "\r");
        QTest::newRow("empty") << "empty.c" << QByteArray();
        QTest::newRow("no final break") << "open.c" << cSource(50, "\n") + "int last;";
        QTest::newRow("one long line") << "long.c" << QByteArray(50000, 'x');
        QTest::newRow("blank lines") << "blank.txt" << QByteArray("\n\n\r\n\r\r\n\n");
        QTest::newRow("not C") << "plain.txt" << cSource(200, "\r\n");
    }
    void aLoadedFileSavesBackByteForByte()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        const QString file = write(name, bytes);
        srcText code;
        QSignalSpy changes(&code, &srcText::Change);
        QSignalSpy loaded(&code, &srcText::FileLoaded);
        QVERIFY(code.LoadFile(file, 1));
        QTRY_VERIFY_WITH_TIMEOUT(!code.isColouring(), 60000);
        QCOMPARE(loaded.count(), 1);
        QCOMPARE(changes.count(), 0);
        QVERIFY(!code.Modified());
        QVERIFY(!canUndo(code));
        QVERIFY(!canRedo(code));
        QCOMPARE(code.SelStart(), qsizetype(0));
        QCOMPARE(code.fileText().toLatin1(), bytes);
        QCOMPARE(code.Text().toLatin1(), withCrLfBreaks(bytes));
        // The box holds exactly the public text.
        QCOMPARE(code.RTFBox()->bytes().toByteArray(), withCrLfBreaks(bytes));
        QCOMPARE(code.LineCount(), int(scanLineEnds(QByteArrayView(bytes)).breaks.size()) + 1);
        const QString saved = m_dir.filePath(QStringLiteral("saved-") + name);
        code.SaveFile(saved);
        QVERIFY(code.Saved());
        QCOMPARE(textfile::readBytes(saved), bytes);
    }

    void everyByteRoundTripsAndShowsAsItsLatin1Character()
    {
        QByteArray bytes;
        for (int b = 0; b < 256; ++b)
            bytes += char(b);
        const QString file = write(QStringLiteral("bytes.bin"), bytes);
        srcText code;
        QVERIFY(code.LoadFile(file, 1));
        // The LF, the lone CR (13 follows 12, 14 follows 13) are breaks: the others are
        // single characters of the box, each one byte.
        const QString text = code.Text();
        for (int b = 0x80; b <= 0xFF; ++b) {
            const qsizetype at = text.indexOf(QChar(b));
            QVERIFY2(at >= 0, qPrintable(QString::number(b, 16)));
            QCOMPARE(int(quint8(code.RTFBox()->send(SourceEditBox::SCI_GETCHARAT, ulong(at)))), b);
        }
        // One of each range: a C1 control and a letter.
        code.SetSelection(text.indexOf(QChar(0x80)), text.indexOf(QChar(0x80)) + 1);
        QCOMPARE(code.SelText(), QString(QChar(0x80)));
        code.SetSelection(text.indexOf(QChar(0xE9)), text.indexOf(QChar(0xE9)) + 1);
        QCOMPARE(code.SelText(), QStringLiteral("\u00e9"));
        const QString saved = m_dir.filePath(QStringLiteral("bytes-saved.bin"));
        code.SaveFile(saved);
        QCOMPARE(textfile::readBytes(saved), bytes);
    }

    void aLineBreakCountsTwoAtEveryPositionMember_data()
    {
        QTest::addColumn<QByteArray>("lineBreak");
        QTest::newRow("CR LF") << QByteArray("\r\n");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
    }
    void aLineBreakCountsTwoAtEveryPositionMember()
    {
        QFETCH(QByteArray, lineBreak);
        const QString file = write(QStringLiteral("positions.txt"),
                                   "ab" + lineBreak + "cd" + lineBreak + lineBreak + "ef");
        srcText code;
        code.resize(300, 200);
        code.show();
        QVERIFY(QTest::qWaitForWindowExposed(&code));
        QVERIFY(code.LoadFile(file, 1));
        QCOMPARE(code.Text(), QStringLiteral("ab\r\ncd\r\n\r\nef"));
        QCOMPARE(code.CharacterCount(), qsizetype(12));
        QCOMPARE(code.Find(QStringLiteral("cd")), 4);
        QCOMPARE(code.SelStart(), qsizetype(4));
        QCOMPARE(code.SelLength(), qsizetype(2));
        QCOMPARE(code.CurrentLine(), 1);
        QCOMPARE(code.Find(QStringLiteral("ef"), 0, -1, 4), 10);
        QCOMPARE(code.CurrentLine(), 3);
        code.SetSelection(2, 6);
        QCOMPARE(code.SelText(), QStringLiteral("\r\ncd"));
        // A position on the LF of a break is the end of its line.
        code.setSelStart(3);
        QCOMPARE(code.SelStart(), qsizetype(2));
        code.setSelStart(8);
        QCOMPARE(code.CurrentLine(), 2);
        QCOMPARE(code.CurrentColumn(), 0);
        code.setSelStart(11);
        QCOMPARE(code.CurrentColumn(), 1);
        code.setSelStart(0);
        code.UpTo(QStringLiteral("e"));
        QCOMPARE(code.SelStart(), qsizetype(10));
        code.setSelStart(4);
        code.Span(QStringLiteral("cd"));
        QCOMPARE(code.SelStart(), qsizetype(4));
        QCOMPARE(code.SelLength(), qsizetype(2));
        const QPoint c = code.GetPosFromChar(4);
        QVERIFY(c.y() > code.GetPosFromChar(0).y());
        QCOMPARE(code.CharFromPos(c.x() + 1, c.y() + 2), qsizetype(4));
        code.setSelStart(6);
        code.setSelText(QStringLiteral("X"));
        QCOMPARE(code.Text(), QStringLiteral("ab\r\ncdX\r\n\r\nef"));
        code.SaveFile(m_dir.filePath(QStringLiteral("positions-saved.txt")));
        QCOMPARE(textfile::readBytes(m_dir.filePath(QStringLiteral("positions-saved.txt"))),
                 "ab" + lineBreak + "cdX" + lineBreak + lineBreak + "ef");
    }

    void aSecondLoadReplacesTheFirst()
    {
        const QString first = write(QStringLiteral("first.c"), cSource(200, "\r\n"));
        const QString second = write(QStringLiteral("second.txt"), "int second;\nint other;\n");
        srcText code;
        QVERIFY(code.LoadFile(first, 1));
        QVERIFY(code.LoadFile(second, 1));
        QCOMPARE(code.fileText().toLatin1(), QByteArray("int second;\nint other;\n"));
        QCOMPARE(code.Mode(), 9);
        QVERIFY(!canUndo(code));
        // Edits after the loads are changes of the text again.
        QSignalSpy changes(&code, &srcText::Change);
        code.Append(QStringLiteral("x"));
        QCOMPARE(changes.count(), 1);
        QCOMPARE(code.fileText().toLatin1(), QByteArray("int second;\nint other;\nx"));
    }

    void stylesNeverEnterTheUndoHistory()
    {
        QByteArray source;
        for (int i = 0; i < 4000; ++i)
            source += "int value" + QByteArray::number(i) + " = 1; // note while\n";
        const QString file = write(QStringLiteral("styles.c"), source);
        srcText code;
        QVERIFY(code.LoadFile(file, 1));
        QTRY_VERIFY_WITH_TIMEOUT(!code.isColouring(), 60000);
        QCOMPARE(colourOf(code, QStringLiteral("note")), commentColour);
        QVERIFY(!canUndo(code));
        code.SetSelection(0, 0);
        QTest::keyClicks(code.RTFBox(), QStringLiteral("/*"));
        QTRY_VERIFY_WITH_TIMEOUT(!code.isColouring(), 60000);
        QCOMPARE(colourOf(code, QStringLiteral("int value3999")), commentColour);
        // The history holds the typed characters, not the colours of 4000 lines.
        QCOMPARE(undoStepCount(code), 1);
        code.Undo();
        QTRY_VERIFY_WITH_TIMEOUT(!code.isColouring(), 60000);
        QVERIFY(!canUndo(code));
        QCOMPARE(code.fileText().toLatin1(), source);
        QCOMPARE(colourOf(code, QStringLiteral("int value3999")), keywordColour);
    }

    void theColouringRunServesEventsWhileALargeFileColours()
    {
        QByteArray bytes;
        while (bytes.size() < 10 * 1024 * 1024)
            bytes += cSource(1000, "\n");
        const QString file = write(QStringLiteral("large.c"), bytes);
        srcText code;
        int ticks = 0;
        QTimer ticker;
        connect(&ticker, &QTimer::timeout, this, [&ticks] { ++ticks; });
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        QVERIFY(code.LoadFile(file, 1));
        QVERIFY(code.isColouring());
        ticker.start(0);
        QVERIFY(complete.wait(300000));
        ticker.stop();
        // A run that held the event loop would let the ticker in once or not at all.
        QVERIFY2(ticks > 3, qPrintable(QString::number(ticks)));
        QCOMPARE(colourOf(code, QStringLiteral("going"), 1000), commentColour);
        QCOMPARE(code.TempCharacterCount(), code.CharacterCount());
    }
};

TESSARO_TEST_MAIN(SrcTextLoadTest)
#include "tst_srctext_load.moc"

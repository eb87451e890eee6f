#include "EditorTestHelpers.h"
#include "editor/ui/srcText.h"
#include "support/TestSupport.h"

#include <QScrollBar>
#include <QSignalSpy>

using namespace tessaro;

class SrcTextPositionsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void selectionPositionsCountLineBreaksAsTwo()
    {
        srcText code;
        code.setText(QStringLiteral("ab\ncd\nef"));
        QCOMPARE(code.Text(), QStringLiteral("ab\r\ncd\r\nef"));
        QCOMPARE(code.CharacterCount(), qsizetype(10));
        code.SetSelection(1, 5);
        QCOMPARE(code.SelStart(), qsizetype(1));
        QCOMPARE(code.SelLength(), qsizetype(4));
        QCOMPARE(code.SelText(), QStringLiteral("b\r\nc"));
        code.setSelStart(8);
        QCOMPARE(code.SelLength(), qsizetype(0));
        QCOMPARE(code.CurrentLine(), 2);
        QCOMPARE(code.CurrentColumn(), 0);
        code.setSelLength(2);
        QCOMPARE(code.SelText(), QStringLiteral("ef"));
        code.SetSelection(0, -1);
        QCOMPARE(code.SelLength(), qsizetype(10));
        code.SetSelection(-1, 0);
        QCOMPARE(code.SelLength(), qsizetype(0));
    }
    void replacingTheSelectionTakesCrLf()
    {
        srcText code;
        code.setText(QStringLiteral("abc"));
        code.SetSelection(1, 2);
        code.setSelText(QStringLiteral("x\r\ny"));
        QCOMPARE(code.Text(), QStringLiteral("ax\r\nyc"));
        QCOMPARE(code.LineCount(), 2);
        code.Append(QStringLiteral("\r\nend"));
        QCOMPARE(code.Text(), QStringLiteral("ax\r\nyc\r\nend"));
        code.SetSelection(0, 2);
        code.Clear();
        QCOMPARE(code.Text(), QStringLiteral("\r\nyc\r\nend"));
    }
    void findSearchesForwardWithoutCaseAndSelectsTheMatch()
    {
        srcText code;
        code.setText(QStringLiteral("aaaa"));
        // Each search starts one after the selection start, as Find Again does.
        QCOMPARE(code.Find(QStringLiteral("aa"), code.SelStart() + 1, 4), 1);
        QCOMPARE(code.SelStart(), qsizetype(1));
        QCOMPARE(code.SelLength(), qsizetype(2));
        QCOMPARE(code.Find(QStringLiteral("aa"), code.SelStart() + 1, 4), 2);
        QCOMPARE(code.Find(QStringLiteral("aa"), code.SelStart() + 1, 4), -1);
        QCOMPARE(code.SelStart(), qsizetype(2)); // a failed search leaves the selection

        code.setText(QStringLiteral("int Main;\nmain();"));
        QCOMPARE(code.Find(QStringLiteral("MAIN"), 0, -1), 4);
        QCOMPARE(code.Find(QStringLiteral("main"), 0, -1, 4), 11);
        QCOMPARE(code.Find(QStringLiteral("ain"), 0, -1, 2), -1);
        QCOMPARE(code.Find(QStringLiteral(";\r\nmain"), 0, -1), 8);
        QCOMPARE(code.Find(QStringLiteral("main"), 5, 8), -1);
        code.SetSelection(0, 0);
        QCOMPARE(code.Find(QStringLiteral("main"), 0, -1, 8), 4);
        QCOMPARE(code.SelStart(), qsizetype(0));
    }
    void findCopesWithEmptyTextsAndPositionsPastTheEnd()
    {
        srcText code;
        code.setText(QStringLiteral("abc"));
        QCOMPARE(code.Find(QString(), 0, -1), -1);
        QCOMPARE(code.Find(QStringLiteral("a"), 99, 3), -1);
        QCOMPARE(code.Find(QStringLiteral("a"), -5, 99), 0);
        srcText empty;
        QCOMPARE(empty.Find(QStringLiteral("a"), 1, 0), -1);
    }
    void upToMovesTheCaretToACharacterOfTheSet()
    {
        srcText code;
        code.setText(QStringLiteral("int x = 1;\nnext"));
        code.SetSelection(0, 0);
        code.UpTo(QStringLiteral("=;"));
        QCOMPARE(code.SelStart(), qsizetype(6));
        QCOMPARE(code.SelLength(), qsizetype(0));
        code.UpTo(QStringLiteral(" ="), true, true); // up to the first character not in the set
        QCOMPARE(code.SelStart(), qsizetype(8));
        code.UpTo(QStringLiteral("t"), false);
        QCOMPARE(code.SelStart(), qsizetype(3));
        code.SetSelection(5, 5);
        code.UpTo(QStringLiteral("\n"));
        QCOMPARE(code.CurrentLine(), 0);
        QCOMPARE(code.CurrentColumn(), 10);
    }
    void spanSelectsAcrossCharactersOfTheSet()
    {
        srcText code;
        code.setText(QStringLiteral("   word rest"));
        code.SetSelection(0, 0);
        code.Span(QStringLiteral(" "));
        QCOMPARE(code.SelLength(), qsizetype(3));
        code.SetSelection(3, 3);
        code.Span(QStringLiteral(" "), true, true);
        QCOMPARE(code.SelText(), QStringLiteral("word"));
        code.SetSelection(7, 7);
        code.Span(QStringLiteral("abcdefghijklmnopqrstuvwxyz"), false);
        QCOMPARE(code.SelText(), QStringLiteral("word"));
    }
    void pixelsAndCharactersConvertBothWays()
    {
        srcText code;
        code.resize(400, 300);
        code.show();
        code.setText(QStringLiteral("first line\nsecond line\nthird"));
        const QPoint start = code.GetPosFromChar(0);
        const QPoint second = code.GetPosFromChar(12);
        const QPoint middle = code.GetPosFromChar(15);
        QVERIFY(second.y() > start.y());
        QVERIFY(middle.x() > second.x());
        QCOMPARE(middle.y(), second.y());
        QCOMPARE(code.CharFromPos(middle.x() + 1, middle.y() + 2), qsizetype(15));
        QCOMPARE(code.CharFromPos(start.x(), start.y() + 2), qsizetype(0));
        QCOMPARE(code.GetFirstLineVisible(), 0);
    }
    void selChangeIsRaisedWhenTheCaretMoves()
    {
        srcText code;
        code.setText(QStringLiteral("abc"));
        QSignalSpy spy(&code, &srcText::SelChange);
        code.SetSelection(1, 1);
        QCOMPARE(spy.count(), 1);
        code.SetSelection(1, 1);
        QCOMPARE(spy.count(), 1);
        code.SetSelection(1, 2);
        QCOMPARE(spy.count(), 2);
    }
    void scrollingRaisesScrollEvents()
    {
        srcText code;
        code.resize(200, 100);
        code.show();
        QString text;
        for (int i = 0; i < 100; ++i)
            text += QStringLiteral("a rather long line of text number %1\n").arg(i);
        code.setText(text);
        QVERIFY(QTest::qWaitForWindowExposed(&code));
        QTest::qWait(20);
        QSignalSpy v(&code, &srcText::VScroll);
        QSignalSpy h(&code, &srcText::HScroll);
        code.SetSelection(code.CharacterCount(), code.CharacterCount());
        code.RTFBox()->send(SourceEditBox::SCI_SCROLLCARET);
        QTRY_VERIFY(v.count() >= 1);
        QVERIFY(code.GetFirstLineVisible() > 0);
        code.SetSelection(0, 0);
        code.SetSelection(36, 36);
        code.RTFBox()->send(SourceEditBox::SCI_SCROLLCARET);
        QTRY_VERIFY(h.count() >= 1);
    }
    void changeIsRaisedForEveryEditAndSetsModified()
    {
        srcText code;
        QSignalSpy spy(&code, &srcText::Change);
        code.setText(QStringLiteral("x"));
        QVERIFY(spy.count() >= 1);
        code.setModified(false);
        const int before = spy.count();
        code.Append(QStringLiteral("y"));
        QCOMPARE(spy.count(), before + 1);
        QVERIFY(code.Modified());
    }
    void theTempBoxHasItsOwnSelection()
    {
        srcText code;
        code.setMode(6);
        code.setText(QStringLiteral("ab\ncd"));
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        code.ColourDocument();
        QVERIFY(complete.wait(5000));
        QCOMPARE(code.TempCharacterCount(), qsizetype(6));
        code.SetTempSelection(1, 5);
        QCOMPARE(code.SelLength(), qsizetype(0));
    }
};

TESSARO_TEST_MAIN(SrcTextPositionsTest)
#include "tst_srctext_positions.moc"

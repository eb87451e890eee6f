#include "editor/ui/CTextBoxEx.h"
#include "editor/ui/cTextBoxEdit.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QScrollBar>

using namespace tessaro;

class TextBoxHelpersTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void linesAreCountedAndIndexedLikeAnEditBox()
    {
        QPlainTextEdit box;
        box.setPlainText(QStringLiteral("first\n\nthird line"));
        CTextBoxEx ex;
        ex.TextBox(&box);
        QCOMPARE(ex.mtxtBox(), &box);
        QCOMPARE(ex.LineCount(), 3);
        QCOMPARE(ex.GetCharFromLine(0), qsizetype(0));
        QCOMPARE(ex.GetCharFromLine(1), qsizetype(7));
        QCOMPARE(ex.GetCharFromLine(2), qsizetype(9));
        QCOMPARE(ex.GetCharFromLine(3), qsizetype(-1));
        QCOMPARE(ex.LineLen(0), 5);
        QCOMPARE(ex.LineLen(7), 0);
        QCOMPARE(ex.LineLen(12), 10);
        QCOMPARE(ex.GetLineFromChar(0), 0);
        QCOMPARE(ex.GetLineFromChar(8), 1);
        QCOMPARE(ex.GetLineFromChar(10), 2);
        QCOMPARE(ex.TopLine(), 0);
    }
    void anEmptyBoxHasOneLine()
    {
        QPlainTextEdit box;
        CTextBoxEx ex;
        ex.TextBox(&box);
        QCOMPARE(ex.LineCount(), 1);
        QCOMPARE(ex.GetLine(0), QString());
    }
    void getLineGivesTheTextOfALine()
    {
        QPlainTextEdit box;
        box.setPlainText(QStringLiteral("first\n\nthird line"));
        CTextBoxEx ex;
        ex.TextBox(&box);
        QCOMPARE(ex.GetLine(0), QStringLiteral("first"));
        QCOMPARE(ex.GetLine(2), QStringLiteral("third line"));
        QCOMPARE(ex.GetLine(1), QString()); // an empty line
        QCOMPARE(ex.GetLine(3), QString()); // a line number equal to the count
        QCOMPARE(ex.GetLine(99), QString());
    }
    void minusOneMeansTheCaretLine()
    {
        QPlainTextEdit box;
        box.setPlainText(QStringLiteral("ab\ncdef"));
        QTextCursor cursor = box.textCursor();
        cursor.setPosition(4);
        box.setTextCursor(cursor);
        CTextBoxEx ex;
        ex.TextBox(&box);
        QCOMPARE(ex.GetLineFromChar(-1), 1);
        QCOMPARE(ex.CurrentLine(), 1);
        QCOMPARE(ex.GetCharFromLine(-1), qsizetype(4));
        QCOMPARE(ex.LineLen(-1), 4);
        QCOMPARE(ex.GetLine(-1), QStringLiteral("cdef"));
    }
    void theModifiedFlagIsSetAndRead()
    {
        QPlainTextEdit box;
        CTextBoxEx ex;
        ex.TextBox(&box);
        QVERIFY(!ex.Modified());
        ex.SetModified(true);
        QVERIFY(ex.Modified());
        ex.SetModified(false);
        QVERIFY(!ex.Modified());
        box.insertPlainText(QStringLiteral("x"));
        QVERIFY(ex.Modified());
    }
    void undoOfTheExtendedBox()
    {
        QPlainTextEdit box;
        CTextBoxEx ex;
        ex.TextBox(&box);
        QVERIFY(!ex.CanUndo());
        box.insertPlainText(QStringLiteral("typed"));
        QVERIFY(ex.CanUndo());
        ex.Undo();
        QCOMPARE(box.toPlainText(), QString());
    }
    void ctrlASelectsTheWholeText()
    {
        QPlainTextEdit box;
        box.setPlainText(QStringLiteral("all of it"));
        CTextBoxEx ex;
        ex.TextBox(&box);
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(box.textCursor().selectedText(), QStringLiteral("all of it"));
    }

    void undoRunsOnlyWhenSomethingCanBeUndone()
    {
        QPlainTextEdit box;
        cTextBoxEdit edit;
        edit.Attach(&box);
        QVERIFY(!edit.CanUndo());
        edit.Undo();
        QCOMPARE(box.toPlainText(), QString());
        {
            // With nothing to undo the box is left alone: an undo would still bring the
            // caret back into view.
            QPlainTextEdit tall;
            tall.resize(200, 100);
            tall.show();
            QString lines;
            for (int i = 0; i < 200; ++i)
                lines += QStringLiteral("line %1\n").arg(i);
            tall.setPlainText(lines);
            tall.moveCursor(QTextCursor::Start);
            QApplication::processEvents();
            tall.verticalScrollBar()->setValue(tall.verticalScrollBar()->maximum());
            const int scrolled = tall.verticalScrollBar()->value();
            QVERIFY(scrolled > 0);
            cTextBoxEdit tallEdit;
            tallEdit.Attach(&tall);
            QVERIFY(!tallEdit.CanUndo());
            tallEdit.Undo();
            QApplication::processEvents();
            QCOMPARE(tall.verticalScrollBar()->value(), scrolled);
        }
        box.insertPlainText(QStringLiteral("one"));
        QVERIFY(edit.CanUndo());
        edit.Undo();
        QCOMPARE(box.toPlainText(), QString());
        // Nothing left to undo: a second Undo leaves the box alone (it does not redo).
        QVERIFY(!edit.CanUndo());
        edit.Undo();
        QCOMPARE(box.toPlainText(), QString());
        QVERIFY(box.document()->isRedoAvailable());
    }
    void replacingTheSelectionWithOrWithoutUndo()
    {
        QPlainTextEdit box;
        box.setPlainText(QStringLiteral("hello world"));
        QTextCursor cursor = box.textCursor();
        cursor.setPosition(0);
        cursor.setPosition(5, QTextCursor::KeepAnchor);
        box.setTextCursor(cursor);
        cTextBoxEdit edit;
        edit.Attach(&box);
        edit.ReplaceSelection(&box, QStringLiteral("goodbye"), true);
        QCOMPARE(box.toPlainText(), QStringLiteral("goodbye world"));
        QVERIFY(edit.CanUndo());
        edit.ReplaceSelection(&box, QStringLiteral("!"), false);
        QCOMPARE(box.toPlainText(), QStringLiteral("goodbye! world"));
        QVERIFY(!edit.CanUndo());
        cursor = box.textCursor();
        cursor.setPosition(0);
        cursor.setPosition(7, QTextCursor::KeepAnchor);
        box.setTextCursor(cursor);
        edit.ClearSelection();
        QCOMPARE(box.toPlainText(), QStringLiteral("! world"));
        QVERIFY(!edit.CanUndo());
    }
    void aDetachedHelperDoesNothing()
    {
        cTextBoxEdit edit;
        QVERIFY(!edit.CanUndo());
        edit.Undo();
        edit.ClearSelection();
        CTextBoxEx ex;
        QCOMPARE(ex.LineCount(), 0);
        QCOMPARE(ex.GetLine(0), QString());
        QVERIFY(!ex.Modified());
    }
};

TESSARO_TEST_MAIN(TextBoxHelpersTest)
#include "tst_textboxhelpers.moc"

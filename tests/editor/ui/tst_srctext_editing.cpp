#include "EditorTestHelpers.h"
#include "editor/ui/srcText.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QClipboard>
#include <QPdfWriter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace tessaro;
using namespace tessaro::test;

class SrcTextEditingTest : public QObject
{
    Q_OBJECT
private:
    // A C control holding the text, coloured, with lines first..last selected whole.
    void prepare(srcText &code, const QString &text, int mode = 6)
    {
        code.resize(400, 300);
        code.setMode(mode);
        code.setWordLists(QString(), QStringLiteral("*int*return*"));
        code.setText(text);
        QApplication::processEvents();
    }
    void selectLines(srcText &code, int first, int last)
    {
        code.SetSelection(code.RTFBox()->lineStart(first), code.RTFBox()->lineEnd(last));
    }
    static void type(srcText &code, const QString &text)
    {
        QTest::keyClicks(code.RTFBox(), text);
    }

private Q_SLOTS:
    void commentBlockMarksEverySelectedLineAtColumnZero()
    {
        srcText code;
        prepare(code, QStringLiteral("int a;\n\n    int b;\nint c;"));
        selectLines(code, 0, 2);
        code.CommentBlock();
        QCOMPARE(code.Text(), QStringLiteral("//int a;\r\n//\r\n//    int b;\r\nint c;"));
        QCOMPARE(colourOf(code, QStringLiteral("int a")), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("int b")), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("int c")), keywordColour);
        // The selection stays on the changed lines.
        QCOMPARE(code.SelStart(), qsizetype(0));
        QCOMPARE(code.SelText(), QStringLiteral("//int a;\r\n//\r\n//    int b;"));
    }
    void aSelectionEndingAtALineStartLeavesThatLineAlone()
    {
        srcText code;
        prepare(code, QStringLiteral("a\nb\nc"));
        code.SetSelection(0, 3); // "a" + CR LF
        code.CommentBlock();
        QCOMPARE(code.Text(), QStringLiteral("//a\r\nb\r\nc"));
    }
    void commentBlockWithoutASelectionCommentsTheCaretLine()
    {
        srcText code;
        prepare(code, QStringLiteral("a\nb"));
        code.SetSelection(4, 4);
        code.CommentBlock();
        QCOMPARE(code.Text(), QStringLiteral("a\r\n//b"));
    }
    void commentBlockUsesTheModesMarker()
    {
        srcText code;
        prepare(code, QStringLiteral("x = 1"), 0);
        code.SelectAll();
        code.CommentBlock();
        QCOMPARE(code.Text(), QStringLiteral("'x = 1"));
        srcText perl;
        prepare(perl, QStringLiteral("print 1;"), 5);
        perl.SelectAll();
        perl.CommentBlock();
        QCOMPARE(perl.Text(), QStringLiteral("#print 1;"));
    }
    void commentBlockDoesNothingWithoutAMarker()
    {
        srcText code;
        prepare(code, QStringLiteral("<b>"), 9);
        code.SelectAll();
        code.CommentBlock();
        QCOMPARE(code.Text(), QStringLiteral("<b>"));
    }
    void uncommentBlockRemovesOnlyTheMarker()
    {
        srcText code;
        prepare(code, QStringLiteral("\t// a\n    //b\nx // y\nplain"));
        selectLines(code, 0, 3);
        code.UncommentBlock();
        QCOMPARE(code.Text(), QStringLiteral("\t a\r\n    b\r\nx // y\r\nplain"));
        QCOMPARE(colourOf(code, QStringLiteral("a")), textColour);
    }
    void outdentNeedsAWholeIndentUnitOfBlanks()
    {
        srcText code;
        prepare(code, QStringLiteral("  two\n      six\n\ttab"));
        code.setIndentWithBlanks(true);
        selectLines(code, 0, 2);
        code.Outdent();
        QCOMPARE(code.Text(), QStringLiteral("  two\r\n  six\r\n\ttab"));
    }
    void indentAndOutdentWithTabs()
    {
        srcText code;
        prepare(code, QStringLiteral("a\n  b"));
        QVERIFY(!code.IndentWithBlanks());
        selectLines(code, 0, 1);
        code.Indent();
        QCOMPARE(code.Text(), QStringLiteral("\ta\r\n\t  b"));
        code.Outdent();
        QCOMPARE(code.Text(), QStringLiteral("a\r\n  b"));
    }
    void indentWithBlanksUsesTheIndentValue()
    {
        srcText code;
        prepare(code, QStringLiteral("a"));
        code.setIndentWithBlanks(true);
        code.setIndentValue(2);
        code.SelectAll();
        code.Indent();
        QCOMPARE(code.Text(), QStringLiteral("  a"));
    }
    void aBlockRewriteIsUndoneInOneStep()
    {
        srcText code;
        prepare(code, QStringLiteral("int a;\nint b;\nint c;"));
        code.RTFBox()->send(SourceEditBox::SCI_EMPTYUNDOBUFFER);
        type(code, QStringLiteral("x"));
        const QString before = code.Text();
        selectLines(code, 0, 2);
        code.CommentBlock();
        QVERIFY(code.Text() != before);
        code.Undo();
        QCOMPARE(code.Text(), before);
        QCOMPARE(colourOf(code, QStringLiteral("int b")), keywordColour);
    }
    void theRedrawIsOffDuringTheRewrite()
    {
        srcText code;
        prepare(code, QStringLiteral("a\nb"));
        code.show();
        bool updatesDuringChange = true;
        connect(&code, &srcText::Change, this,
                [&] { updatesDuringChange = code.RTFBox()->updatesEnabled(); });
        code.SelectAll();
        code.CommentBlock();
        QVERIFY(!updatesDuringChange);
        QVERIFY(code.RTFBox()->updatesEnabled());
        QVERIFY(!QApplication::overrideCursor());
    }

    void enterRepeatsTheIndentOfTheLine()
    {
        srcText code;
        prepare(code, QStringLiteral("\t  int x;"));
        code.SetSelection(code.CharacterCount(), code.CharacterCount());
        QSignalSpy selChange(&code, &srcText::SelChange);
        QTest::keyClick(code.RTFBox(), Qt::Key_Return);
        QCOMPARE(code.Text(), QStringLiteral("\t  int x;\r\n\t  "));
        QCOMPARE(code.CurrentLine(), 1);
        QCOMPARE(code.CurrentColumn(), 3);
        QVERIFY(selChange.count() >= 1);
    }
    void enterOnABlankLineKeepsItsWhiteSpace()
    {
        srcText code;
        prepare(code, QStringLiteral("    "));
        code.SetSelection(4, 4);
        QTest::keyClick(code.RTFBox(), Qt::Key_Return);
        QCOMPARE(code.Text(), QStringLiteral("    \r\n    "));
    }
    void withoutAutoIndentEnterIsAPlainLineBreak()
    {
        srcText code;
        prepare(code, QStringLiteral("\tx"));
        code.setAutoIndent(false);
        code.SetSelection(2, 2);
        int pressed = 0;
        connect(&code, &srcText::KeyPress, this, [&](int &ascii) { pressed = ascii; });
        QTest::keyClick(code.RTFBox(), Qt::Key_Return);
        QCOMPARE(code.Text(), QStringLiteral("\tx\r\n"));
        QCOMPARE(pressed, 13);
        QTest::keyClick(code.RTFBox(), Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(code.Text(), QStringLiteral("\tx\r\n\r\n"));
        QCOMPARE(code.LineCount(), 3);
    }

    void keyEventsComeInTheirOrder()
    {
        srcText code;
        prepare(code, QString());
        QStringList events;
        connect(&code, &srcText::KeyDown, this,
                [&](int &key, int shift) { events << QStringLiteral("down %1 %2").arg(key).arg(shift); });
        connect(&code, &srcText::KeyPress, this,
                [&](int &ascii) { events << QStringLiteral("press %1").arg(ascii); });
        connect(&code, &srcText::Change, this, [&] { events << QStringLiteral("change"); });
        connect(&code, &srcText::KeyUp, this,
                [&](int &key, int shift) { events << QStringLiteral("up %1 %2").arg(key).arg(shift); });
        QTest::keyClick(code.RTFBox(), Qt::Key_B);
        QCOMPARE(events, QStringList({"down 66 0", "press 98", "change", "up 66 0"}));
        QCOMPARE(code.Text(), QStringLiteral("b"));
    }
    void aKeyDownHandlerCanSwallowTheKey()
    {
        srcText code;
        prepare(code, QString());
        connect(&code, &srcText::KeyDown, this, [](int &key, int) {
            if (key == 'Q')
                key = 0;
        });
        connect(&code, &srcText::KeyPress, this, [](int &ascii) {
            if (ascii == 'z')
                ascii = 'y';
        });
        type(code, QStringLiteral("aqz"));
        QCOMPARE(code.Text(), QStringLiteral("ay"));
    }

    void clipboardKeysGoThroughTheControl()
    {
        srcText code;
        prepare(code, QStringLiteral("int a;  x"));
        code.SetSelection(0, 3);
        QTest::keyClick(code.RTFBox(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("int"));
        code.SetSelection(7, 7);
        QTest::keyClick(code.RTFBox(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(code.Text(), QStringLiteral("int a; int x"));
        // The pasted word is coloured at once.
        QCOMPARE(colourAt(code, 7), keywordColour);
        code.SetSelection(0, 4);
        QTest::keyClick(code.RTFBox(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(code.Text(), QStringLiteral("a; int x"));
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("int "));
    }
    void pastingSeveralLinesColoursThemAll()
    {
        srcText code;
        prepare(code, QString());
        QApplication::clipboard()->setText(QStringLiteral("int a;\n/* c */\nreturn 1;"));
        code.Paste();
        QCOMPARE(code.Text(), QStringLiteral("int a;\r\n/* c */\r\nreturn 1;"));
        QCOMPARE(colourOf(code, QStringLiteral("int")), keywordColour);
        QCOMPARE(colourOf(code, QStringLiteral("c */")), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("return")), keywordColour);
        QVERIFY(code.CanPaste());
    }

    void tabIndentsASelectionOfLinesAndShiftTabOutdents()
    {
        srcText code;
        prepare(code, QStringLiteral("a\nb"));
        code.SelectAll();
        QTest::keyClick(code.RTFBox(), Qt::Key_Tab);
        QCOMPARE(code.Text(), QStringLiteral("\ta\r\n\tb"));
        QTest::keyClick(code.RTFBox(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(code.Text(), QStringLiteral("a\r\nb"));
    }
    void tabWithoutASelectionTypesATabOrBlanksToTheNextStop()
    {
        srcText code;
        prepare(code, QStringLiteral("ab"));
        code.SetSelection(1, 1);
        QTest::keyClick(code.RTFBox(), Qt::Key_Tab);
        QCOMPARE(code.Text(), QStringLiteral("a\tb"));
        code.setIndentWithBlanks(true);
        code.setText(QStringLiteral("ab"));
        code.SetSelection(1, 1);
        QTest::keyClick(code.RTFBox(), Qt::Key_Tab);
        QCOMPARE(code.Text(), QStringLiteral("a   b"));
    }
    void backspaceInBlankIndentGoesBackOneStop()
    {
        srcText code;
        prepare(code, QStringLiteral("      x"));
        code.setIndentWithBlanks(true);
        code.SetSelection(6, 6);
        QTest::keyClick(code.RTFBox(), Qt::Key_Backspace);
        QCOMPARE(code.Text(), QStringLiteral("    x"));
        QTest::keyClick(code.RTFBox(), Qt::Key_Backspace);
        QCOMPARE(code.Text(), QStringLiteral("x"));
        code.setText(QStringLiteral("ab"));
        code.SetSelection(2, 2);
        QTest::keyClick(code.RTFBox(), Qt::Key_Backspace);
        QCOMPARE(code.Text(), QStringLiteral("a"));
    }
    void deleteRemovesTheNextCharacterOrTheLineBreak()
    {
        srcText code;
        prepare(code, QStringLiteral("a\nb"));
        code.SetSelection(1, 1);
        QTest::keyClick(code.RTFBox(), Qt::Key_Delete);
        QCOMPARE(code.Text(), QStringLiteral("ab"));
    }
    void lockedTextIgnoresTyping()
    {
        srcText code;
        prepare(code, QStringLiteral("a"));
        code.setLocked(true);
        type(code, QStringLiteral("xyz"));
        QTest::keyClick(code.RTFBox(), Qt::Key_Return);
        QCOMPARE(code.Text(), QStringLiteral("a"));
    }

    void insertBlockIndentsItsLinesLikeTheCaretLine()
    {
        srcText code;
        prepare(code, QStringLiteral("\tif (x)\n\t"));
        code.SetSelection(code.CharacterCount(), code.CharacterCount());
        code.InsertBlock(QStringLiteral("{\r\n\ty();\r\n}"), true, true);
        QCOMPARE(code.Text(), QStringLiteral("\tif (x)\r\n\t{\r\n\t\ty();\r\n\t}"));
        code.Undo();
        QCOMPARE(code.Text(), QStringLiteral("\tif (x)\r\n\t"));
    }
    void insertBlockCanKeepTheSelection()
    {
        srcText code;
        prepare(code, QStringLiteral("abc"));
        code.SetSelection(1, 2);
        code.InsertBlock(QStringLiteral("X\r\nZ"), false, false);
        QCOMPARE(code.Text(), QStringLiteral("aX\r\nZbc"));
        // The selected "b" stays selected behind the inserted block.
        QCOMPARE(code.SelText(), QStringLiteral("b"));
        QCOMPARE(code.SelStart(), qsizetype(5));
        code.SetSelection(5, 6);
        code.InsertBlock(QStringLiteral("Y"), true, false);
        QCOMPARE(code.Text(), QStringLiteral("aX\r\nZYc"));
        // Replaced, the selection is gone and the caret follows the block.
        QCOMPARE(code.SelLength(), qsizetype(0));
        QCOMPARE(code.SelStart(), qsizetype(6));
    }

    void marksFollowTheirLines()
    {
        srcText code;
        prepare(code, QStringLiteral("a\nb\nc"));
        code.SetSelection(3, 3);
        code.Mark();
        code.SetSelection(6, 6);
        code.Mark();
        QCOMPARE(code.MarkedLines(), QList<int>({1, 2}));
        QCOMPARE(code.MarkedLines().size(), 2);
        code.SetSelection(0, 0);
        code.setSelText(QStringLiteral("new\r\n"));
        QCOMPARE(code.MarkedLines(), QList<int>({2, 3}));
        code.SetSelection(8, 8); // line 2 again: the mark goes
        code.Mark();
        QCOMPARE(code.MarkedLines(), QList<int>({3}));
        code.ClearMarks();
        QVERIFY(code.MarkedLines().isEmpty());
        QVERIFY(code.MarkedLines().isEmpty());
    }
    void theCursorPositionIsRememberedAndRestored()
    {
        srcText code;
        QString text;
        for (int i = 0; i < 200; ++i)
            text += QStringLiteral("line %1\n").arg(i);
        prepare(code, text);
        code.show();
        code.SetSelection(500, 504);
        code.RTFBox()->verticalScrollBar()->setValue(40);
        code.SaveCursorPos();
        code.SetSelection(0, 0);
        code.RTFBox()->verticalScrollBar()->setValue(0);
        code.RestoreCursorPos();
        QCOMPARE(code.SelStart(), qsizetype(500));
        QCOMPARE(code.SelLength(), qsizetype(4));
        QCOMPARE(code.RTFBox()->verticalScrollBar()->value(), 40);
    }
    void fontBackColourColoursTheSelectionsBackground()
    {
        srcText code;
        prepare(code, QStringLiteral("int abc;"));
        code.SetSelection(4, 7);
        code.FontBackColour(0x00FFFF); // yellow
        QCOMPARE(backgroundAt(code, 5), QColor(255, 255, 0));
        QCOMPARE(backgroundAt(code, 3), QColor());
        QCOMPARE(backgroundAt(code, 7), QColor());
        // Colouring keeps the background.
        code.ColourDocument();
        QTRY_VERIFY(!code.isColouring());
        QCOMPARE(backgroundAt(code, 5), QColor(255, 255, 0));
    }
    void viewModesChooseTheWrapping()
    {
        srcText code;
        QCOMPARE(wrapMode(code), int(SourceEditBox::SC_WRAP_NONE));
        code.SetViewMode(1);
        QCOMPARE(wrapMode(code), int(SourceEditBox::SC_WRAP_WORD));
        code.SetViewMode(2);
        QCOMPARE(wrapMode(code), int(SourceEditBox::SC_WRAP_CHAR));
        code.SetViewMode(0);
        QCOMPARE(wrapMode(code), int(SourceEditBox::SC_WRAP_NONE));
        code.SetViewMode(7);
        QCOMPARE(code.ViewMode(), 0);
    }
    void selPrintPrintsTheSelection()
    {
        QTemporaryDir dir;
        srcText code;
        prepare(code, QStringLiteral("int printed;"));
        code.SelectAll();
        const QString file = dir.filePath(QStringLiteral("out.pdf"));
        {
            QPdfWriter writer(file);
            code.SelPrint(&writer);
        }
        QFile pdf(file);
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.readAll().startsWith("%PDF"));
        code.SelPrint(nullptr); // nothing to print on: nothing happens
    }
};

TESSARO_TEST_MAIN(SrcTextEditingTest)
#include "tst_srctext_editing.moc"

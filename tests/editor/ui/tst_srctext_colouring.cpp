#include "EditorTestHelpers.h"
#include "editor/core/DocumentColourer.h"
#include "editor/ui/srcText.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QClipboard>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTimer>

using namespace tessaro;
using namespace tessaro::test;

class SrcTextColouringTest : public QObject
{
    Q_OBJECT
private:
    static void prepare(srcText &code, const QString &text, int mode = 6)
    {
        code.setMode(mode);
        code.setWordLists(QStringLiteral("*NULL*qboolean*"), QStringLiteral("*int*while*return*ab*"));
        code.setText(text);
        QApplication::processEvents();
    }
    static void colourAll(srcText &code)
    {
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        code.ColourDocument();
        QVERIFY(complete.wait(20000));
    }
    static QString bigText(int lines)
    {
        QString text;
        text.reserve(lines * 48);
        for (int i = 0; i < lines; ++i)
            text += QStringLiteral("int v%1 = value; /* note */ while (x) {}\n").arg(i);
        return text;
    }
    // Types text; a line break is the Enter key.
    static void type(srcText &code, const QString &text)
    {
        const QStringList lines = text.split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i) {
            if (i > 0)
                QTest::keyClick(code.RTFBox(), Qt::Key_Return);
            QTest::keyClicks(code.RTFBox(), lines.at(i));
        }
    }
    // Serves the event loop until nothing waits to be coloured.
    static void settle(srcText &code)
    {
        QApplication::processEvents();
        while (code.isColouring())
            QApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    // Every character shows the colour that the typing path gives it when it colours
    // the whole text at once (a new control given the same text).
    static void verifyTypingPathColours(const srcText &code)
    {
        srcText fresh;
        prepare(fresh, code.Text());
        settle(fresh);
        const QString text = code.Text();
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text.at(i) == u'\r' || text.at(i) == u'\n')
                continue;
            if (colourAt(code, i) != colourAt(fresh, i)) {
                QFAIL(qPrintable(QStringLiteral("position %1 of \"%2\": %3, not %4")
                                     .arg(i)
                                     .arg(text)
                                     .arg(colourAt(code, i).name(), colourAt(fresh, i).name())));
            }
        }
    }

private Q_SLOTS:
    // ---- The scanners seen through the control ----------------------------------------
    void aSlashDoesNotEndAWord()
    {
        srcText code;
        prepare(code, QStringLiteral("a/b x"));
        colourAll(code);
        QCOMPARE(colourAt(code, 0), keywordColour);
        QCOMPARE(colourAt(code, 2), keywordColour);
    }
    void onlyWordsBetweenWhiteSpaceAreColoured()
    {
        srcText code;
        prepare(code, QStringLiteral("while(x) while x"));
        colourAll(code);
        QCOMPARE(colourAt(code, 0), textColour);
        QCOMPARE(colourOf(code, QStringLiteral("while"), 1), keywordColour);
    }
    void anUnterminatedBlockCommentColoursToTheEnd()
    {
        srcText code;
        prepare(code, QStringLiteral("int a;\n/* open\nint b;\nint c;"));
        colourAll(code);
        QCOMPARE(colourOf(code, QStringLiteral("int a")), keywordColour);
        QCOMPARE(colourOf(code, QStringLiteral("int b")), commentColour);
        QCOMPARE(colourAt(code, code.CharacterCount() - 1), commentColour);
    }
    void anUnterminatedQuoteSkipsToTheEnd()
    {
        srcText code;
        prepare(code, QStringLiteral("int a; \"open\nint b;"));
        colourAll(code);
        QCOMPARE(colourOf(code, QStringLiteral("int a")), keywordColour);
        QCOMPARE(colourOf(code, QStringLiteral("int b")), textColour);
    }
    void aLineCommentOnTheLastLineColoursToTheEnd()
    {
        srcText code;
        prepare(code, QStringLiteral("int a;\n// last words"));
        colourAll(code);
        QCOMPARE(colourOf(code, QStringLiteral("last")), commentColour);
        QCOMPARE(colourAt(code, code.CharacterCount() - 1), commentColour);
    }
    void aWordTakesTheSpellingOfItsList()
    {
        srcText code;
        prepare(code, QStringLiteral("x = null; y = Null ; WHILE (1) Int x"));
        colourAll(code);
        QCOMPARE(code.Text(), QStringLiteral("x = null; y = NULL ; while (1) int x"));
        QCOMPARE(colourOf(code, QStringLiteral("NULL")), textColour);
        QCOMPARE(colourOf(code, QStringLiteral("while")), keywordColour);
    }
    void aFreshControlColoursNothingUntilModeIsSet()
    {
        srcText code;
        code.setWordLists(QString(), QStringLiteral("*int*"));
        code.setText(QStringLiteral("int x; /* c */"));
        QSignalSpy started(&code, &srcText::ProgressStart);
        code.ColourDocument();
        QVERIFY(!code.isColouring());
        QTest::qWait(30);
        QCOMPARE(started.count(), 0);
        QVERIFY(colourOf(code, QStringLiteral("c */")) != commentColour);
        code.setMode(6);
        code.setWordLists(QString(), QStringLiteral("*int*"));
        colourAll(code);
        QCOMPARE(colourOf(code, QStringLiteral("c */")), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("int")), keywordColour);
    }
    void theOtherLanguagesHaveTheirOwnComments()
    {
        srcText vb;
        prepare(vb, QStringLiteral("x = 1 ' note\nREM old\nint"), 0);
        vb.setWordLists(QString(), QStringLiteral("*int*"));
        colourAll(vb);
        QCOMPARE(colourOf(vb, QStringLiteral("note")), commentColour);
        QCOMPARE(colourOf(vb, QStringLiteral("old")), commentColour);
        srcText perl;
        prepare(perl, QStringLiteral("print 1; # note\n"), 5);
        colourAll(perl);
        QCOMPARE(colourOf(perl, QStringLiteral("note")), commentColour);
    }
    void htmlIsColouredOnlyWhenAskedFor()
    {
        srcText code;
        prepare(code, QStringLiteral("<!-- note --> <b>"), 1);
        QSignalSpy started(&code, &srcText::ProgressStart);
        code.ColourDocument();
        QCOMPARE(started.count(), 0);
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        code.ColorizeWordsHTML();
        QCOMPARE(started.count(), 1);
        QVERIFY(complete.wait(5000));
    }
    void coloursFollowTheColourProperties()
    {
        srcText code;
        prepare(code, QStringLiteral("int x; // c"));
        code.setColour_Keyword(0x0000FF); // red
        code.setColour_Comment(0xFF0000); // blue
        colourAll(code);
        QCOMPARE(colourOf(code, QStringLiteral("int")), QColor(255, 0, 0));
        QCOMPARE(colourOf(code, QStringLiteral("// c")), QColor(0, 0, 255));
    }

    // ---- Runs ------------------------------------------------------------------------------
    void aRunRaisesItsProgressEventsAndShowsTheHourglass()
    {
        srcText code;
        prepare(code, bigText(4000));
        QStringList events;
        bool hourglass = false;
        bool timerRunning = false;
        connect(&code, &srcText::ProgressStart, this, [&] {
            events << QStringLiteral("start");
            timerRunning = code.findChild<QTimer *>(QStringLiteral("tmrUpdate"))->isActive();
        });
        connect(&code, &srcText::ProgressChange, this,
                [&](int percent) { events << QStringLiteral("change %1").arg(percent); });
        connect(&code, &srcText::ProgressComplete, this, [&] { events << QStringLiteral("complete"); });
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        code.ColourDocument();
        hourglass = QApplication::overrideCursor() &&
                    QApplication::overrideCursor()->shape() == Qt::WaitCursor;
        QVERIFY(complete.wait(30000));
        QVERIFY(hourglass);
        QVERIFY(timerRunning);
        QCOMPARE(events.first(), QStringLiteral("start"));
        QCOMPARE(events.last(), QStringLiteral("complete"));
        QVERIFY(!QApplication::overrideCursor());
        QVERIFY(!code.findChild<QTimer *>(QStringLiteral("tmrUpdate"))->isActive());
        QCOMPARE(colourOf(code, QStringLiteral("note"), 3999), commentColour);
        QCOMPARE(code.TempCharacterCount(), code.CharacterCount());
    }
    void progressIsReportedOnceASecond()
    {
        srcText code;
        prepare(code, bigText(60000));
        QList<int> percents;
        connect(&code, &srcText::ProgressChange, this, [&](int percent) { percents << percent; });
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        // An edit every 20 ms makes the run start over each time, so it lasts as long
        // as the edits go on, however fast the machine is.
        QTimer edits;
        connect(&edits, &QTimer::timeout, this, [&] { code.Append(QStringLiteral("x")); });
        QElapsedTimer clock;
        clock.start();
        code.ColourDocument();
        edits.start(20);
        while (clock.elapsed() < 3500)
            QApplication::processEvents(QEventLoop::AllEvents, 50);
        QVERIFY(code.isColouring());
        QCOMPARE(complete.count(), 0);
        edits.stop();
        QVERIFY(complete.wait(120000));
        const qint64 seconds = clock.elapsed() / 1000;
        QVERIFY2(percents.size() >= 2 && percents.size() <= seconds + 1,
                 qPrintable(QStringLiteral("%1 reports in %2 s").arg(percents.size()).arg(seconds)));
        for (int p : percents)
            QVERIFY(p >= 0 && p <= 100);
    }
    void theEventLoopIsServedDuringARun()
    {
        srcText code;
        prepare(code, bigText(200000));
        int ticks = 0;
        QTimer ticker;
        connect(&ticker, &QTimer::timeout, this, [&] { ++ticks; });
        ticker.start(0);
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        code.ColourDocument();
        QVERIFY(complete.wait(60000));
        QVERIFY(ticks > 3);
    }
    void cancellingStopsTheRun()
    {
        srcText code;
        prepare(code, bigText(20000));
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        code.ColourDocument();
        QVERIFY(code.isColouring());
        code.setCancelColour(true);
        QVERIFY(code.CancelColour());
        QVERIFY(complete.wait(5000));
        QVERIFY(!code.isColouring());
        QVERIFY(!code.CancelColour());
        QVERIFY(!QApplication::overrideCursor());
        // The end of the text was never reached.
        QVERIFY(colourOf(code, QStringLiteral("note"), 19999) != commentColour);
    }
    void cancellingWithoutARunChangesNothing()
    {
        srcText code;
        prepare(code, QStringLiteral("/* c */"));
        code.setCancelColour(true);
        QVERIFY(!code.CancelColour());
        colourAll(code);
        QCOMPARE(colourOf(code, QStringLiteral("c")), commentColour);
    }
    void typingDuringARunColoursTheNewText()
    {
        srcText code;
        prepare(code, bigText(20000));
        code.show();
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        code.ColourDocument();
        // The run has taken its snapshot of the text and goes on in slices: the keys
        // come before its first slice.
        QVERIFY(code.isColouring());
        code.SetSelection(0, 0);
        type(code, QStringLiteral("/* "));
        QVERIFY(complete.wait(60000));
        QCOMPARE(complete.count(), 1);
        // The result of the text before the typing was dropped and the new text
        // coloured: the opened comment runs to the first closer.
        QCOMPARE(colourAt(code, 3), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("note"), 1), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("while"), 1), keywordColour);
        QVERIFY(code.Text().startsWith(QStringLiteral("/* int v0")));
    }

    // ---- The typing path -----------------------------------------------------------------
    void typingAWordColoursIt()
    {
        srcText code;
        prepare(code, QString());
        QSignalSpy started(&code, &srcText::ProgressStart);
        type(code, QStringLiteral("int x"));
        QCOMPARE(colourAt(code, 0), keywordColour);
        QCOMPARE(colourAt(code, 4), textColour);
        type(code, QStringLiteral("\b\b\bx"));
        QCOMPARE(code.Text(), QStringLiteral("inx"));
        QCOMPARE(colourAt(code, 0), textColour);
        QCOMPARE(started.count(), 0);
    }
    void theWordUnderTheCaretKeepsItsLetters()
    {
        srcText code;
        prepare(code, QString());
        type(code, QStringLiteral("Null"));
        QCOMPARE(code.Text(), QStringLiteral("Null"));
        type(code, QStringLiteral(" "));
        QCOMPARE(code.Text(), QStringLiteral("NULL "));
    }
    void textTypedInsideACommentIsAComment()
    {
        srcText code;
        prepare(code, QStringLiteral("/* one\n\ntwo */ int x"));
        colourAll(code);
        code.SetSelection(8, 8);
        type(code, QStringLiteral("int while"));
        QCOMPARE(colourAt(code, 8), commentColour);
        QCOMPARE(colourAt(code, 12), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("int"), 1), keywordColour);
    }
    void typingACommentOpenerColoursTheLinesBelow()
    {
        srcText code;
        prepare(code, QStringLiteral("int a;\nint b;\nint c; */ int d;"));
        colourAll(code);
        code.SetSelection(0, 0);
        type(code, QStringLiteral("/*"));
        QCOMPARE(colourOf(code, QStringLiteral("int b")), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("int c")), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("int d")), keywordColour);
        // Taking the opener away gives the lines their colours back.
        type(code, QStringLiteral("\b\b"));
        QCOMPARE(colourOf(code, QStringLiteral("int b")), keywordColour);
        QCOMPARE(colourOf(code, QStringLiteral("int c")), keywordColour);
    }
    void typingACommentCloserEndsTheComment()
    {
        srcText code;
        prepare(code, QStringLiteral("/* a\nint b;\nint c;"));
        colourAll(code);
        QCOMPARE(colourOf(code, QStringLiteral("int c")), commentColour);
        code.SetSelection(4, 4);
        type(code, QStringLiteral(" */"));
        QCOMPARE(colourOf(code, QStringLiteral("int b")), keywordColour);
        QCOMPARE(colourOf(code, QStringLiteral("int c")), keywordColour);
    }
    void undoingAnEditGivesBackItsColours()
    {
        srcText code;
        prepare(code, QStringLiteral("int a;\nint b;"));
        colourAll(code);
        code.SetSelection(0, 0);
        type(code, QStringLiteral("/*"));
        QCOMPARE(colourOf(code, QStringLiteral("int b")), commentColour);
        // Undo takes the typed text back (colours never make a step of their own), and
        // the colours come back with the text.
        code.Undo();
        settle(code);
        QCOMPARE(code.Text(), QStringLiteral("int a;\r\nint b;"));
        QCOMPARE(colourOf(code, QStringLiteral("int b")), keywordColour);
        QVERIFY(!canUndo(code));
        code.Redo();
        settle(code);
        QCOMPARE(code.Text(), QStringLiteral("/*int a;\r\nint b;"));
        QCOMPARE(colourOf(code, QStringLiteral("int b")), commentColour);
        QVERIFY(!canRedo(code));
    }
    void redoGivesBackWhatUndoTook()
    {
        srcText code;
        prepare(code, QString());
        type(code, QStringLiteral("int x = 1;"));
        code.Undo();
        settle(code);
        QCOMPARE(code.Text(), QString());
        QVERIFY(canRedo(code));
        code.Redo();
        settle(code);
        QCOMPARE(code.Text(), QStringLiteral("int x = 1;"));
        QCOMPARE(colourOf(code, QStringLiteral("int")), keywordColour);
        // Three edits, three Undos, three Redos: nothing is lost on the way.
        type(code, QStringLiteral("\n/* c */"));
        code.SetSelection(0, 0);
        type(code, QStringLiteral("while "));
        const QString all = code.Text();
        for (int i = 0; i < 3; ++i) {
            code.Undo();
            settle(code);
        }
        for (int i = 0; i < 3; ++i) {
            QVERIFY(canRedo(code));
            code.Redo();
            settle(code);
        }
        QCOMPARE(code.Text(), all);
        QCOMPARE(colourOf(code, QStringLiteral("c */")), commentColour);
        QCOMPARE(colourOf(code, QStringLiteral("while")), keywordColour);
    }
    void aRespellingGoesWithTheEditBeforeIt()
    {
        srcText code;
        prepare(code, QString());
        type(code, QStringLiteral("null "));
        QCOMPARE(code.Text(), QStringLiteral("NULL "));
        code.Undo();
        settle(code);
        QCOMPARE(code.Text(), QString());
        code.Redo();
        settle(code);
        QCOMPARE(code.Text(), QStringLiteral("NULL "));
        QVERIFY(!canRedo(code));
    }
    void undoAndRedoNeverRespell()
    {
        srcText code;
        prepare(code, QString());
        // The caret stays at the inserted word's end: it keeps its letters.
        code.InsertBlock(QStringLiteral("x\r\nnull"), true, false);
        QCOMPARE(code.Text(), QStringLiteral("x\r\nnull"));
        type(code, QStringLiteral(" "));
        QCOMPARE(code.Text(), QStringLiteral("x\r\nNULL "));
        code.SetSelection(0, 0);
        code.Undo();
        // The text is as it was before the edit, and stays so: re-colouring after Undo
        // changes no letter and leaves the step to redo.
        QCOMPARE(code.Text(), QStringLiteral("x\r\nnull"));
        settle(code);
        QCOMPARE(code.Text(), QStringLiteral("x\r\nnull"));
        QVERIFY(canRedo(code));
        code.Redo();
        settle(code);
        QCOMPARE(code.Text(), QStringLiteral("x\r\nNULL "));
    }
    void colourChangesTakeNoUndoSteps()
    {
        srcText code;
        QString text;
        for (int i = 0; i < 3000; ++i)
            text += QStringLiteral("\tint v%1 = 1; // note while\n").arg(i);
        prepare(code, text);
        settle(code);
        QCOMPARE(undoStepCount(code), 0);
        code.SetSelection(0, 0);
        type(code, QStringLiteral("/*"));
        settle(code);
        QCOMPARE(colourOf(code, QStringLiteral("int v2999")), commentColour);
        // The history holds the two typed characters, not the colours of 3000 lines.
        QVERIFY2(undoStepCount(code) <= 2, qPrintable(QString::number(undoStepCount(code))));
        type(code, QStringLiteral("\b\b"));
        settle(code);
        QCOMPARE(colourOf(code, QStringLiteral("int v2999")), keywordColour);
        QVERIFY2(undoStepCount(code) <= 4, qPrintable(QString::number(undoStepCount(code))));
        code.Undo();
        settle(code);
        QCOMPARE(colourOf(code, QStringLiteral("int v2999")), commentColour);
        QVERIFY(canRedo(code));
    }

    // ---- Undo and Redo, at random -----------------------------------------------------
    // Random edits of every kind, then k Undos and k Redos: the text is what it was,
    // and the colours are always those the typing path gives the whole text.
    void undoAndRedoRestoreTheTextAndItsColours()
    {
        QRandomGenerator random(20240611);
        const QStringList snippets = {"/*", "*/", "//", "\"", "int ", "while ", "null ",
                                      "\n", "x", " ", "\t", "return 0;", "a/b "};
        for (int round = 0; round < 12; ++round) {
            srcText code;
            prepare(code, QStringLiteral("int a;\n/* b */ while (x)\n\treturn null;\n"));
            for (int op = 0; op < 14; ++op) {
                const qsizetype length = code.CharacterCount();
                const qsizetype at = random.bounded(int(length + 1));
                switch (random.bounded(7)) {
                case 0:
                case 1:
                    code.SetSelection(at, at);
                    type(code, snippets.at(random.bounded(int(snippets.size()))));
                    break;
                case 2: {
                    const qsizetype to = std::min(length, at + random.bounded(8));
                    code.SetSelection(at, to);
                    QTest::keyClick(code.RTFBox(),
                                    random.bounded(2) ? Qt::Key_Delete : Qt::Key_Backspace);
                    break;
                }
                case 3:
                    QGuiApplication::clipboard()->setText(
                        snippets.at(random.bounded(int(snippets.size()))) + QStringLiteral("\n*/ int"));
                    code.SetSelection(at, at);
                    code.Paste();
                    break;
                case 4: {
                    code.SetSelection(at, std::min(length, at + random.bounded(30)));
                    switch (random.bounded(4)) {
                    case 0: code.CommentBlock(); break;
                    case 1: code.UncommentBlock(); break;
                    case 2: code.Indent(); break;
                    default: code.Outdent(); break;
                    }
                    break;
                }
                case 5: code.Undo(); break;
                default: code.Redo(); break;
                }
                settle(code);
                verifyTypingPathColours(code);
            }
            const QString text = code.Text();
            const int k = 1 + random.bounded(5);
            for (int i = 0; i < k; ++i) {
                code.Undo();
                settle(code);
                verifyTypingPathColours(code);
            }
            for (int i = 0; i < k; ++i) {
                code.Redo();
                settle(code);
            }
            QCOMPARE(code.Text(), text);
            verifyTypingPathColours(code);
            if (QTest::currentTestFailed())
                return;
        }
    }

    void aLargeChangeIsColouredByASilentRun()
    {
        srcText code;
        prepare(code, QString());
        QSignalSpy started(&code, &srcText::ProgressStart);
        code.setText(bigText(DocumentColourer::LargeChange + 10));
        QTRY_VERIFY(!code.isColouring() &&
                    colourOf(code, QStringLiteral("note"), DocumentColourer::LargeChange + 9) ==
                        commentColour);
        QCOMPARE(started.count(), 0);
    }
    void modesSevenAndNineColourNothingWhileTyping()
    {
        for (int mode : {7, 9}) {
            srcText code;
            prepare(code, QString(), mode);
            type(code, QStringLiteral("/* int"));
            QVERIFY(colourAt(code, 4) != commentColour);
        }
    }
};

TESSARO_TEST_MAIN(SrcTextColouringTest)
#include "tst_srctext_colouring.moc"

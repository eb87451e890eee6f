#include "app/ui/MainWindow.h"
#include "editor/core/DynHighlight.h"
#include "editor/ui/EditorTestHelpers.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"
#include "platform/core/TextFile.h"
#include "platform/ui/WidgetMessageBox.h"
#include "search/ui/frmFnF.h"
#include "search/ui/frmOut.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "workspace/ui/DocumentCommands.h"
#include "workspace/ui/WorkspaceCommands.h"
#include "workspace/ui/frmDocument.h"

#include <QAbstractButton>
#include <QAction>
#include <QDirIterator>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>

using namespace tessaro;

class DocumentsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir{QDir::tempPath() + "/docs_XXXXXX"};
    std::unique_ptr<MainWindow> m_frame;

    QString writeFile(const QString &name, const QByteArray &bytes)
    {
        const QString path = m_dir.filePath(name);
        textfile::writeBytes(path, bytes);
        return path;
    }
    DocumentCommands *commands() const { return DocumentCommands::of(*m_frame); }
    QList<frmDocument *> documents() const
    {
        QList<frmDocument *> list;
        for (QMdiSubWindow *child : m_frame->mdiArea()->subWindowList())
            if (auto *document = qobject_cast<frmDocument *>(child->widget()))
                list << document;
        return list;
    }
    void trigger(const char *name)
    {
        QAction *action = m_frame->action(QLatin1String(name));
        QVERIFY2(action, name);
        action->trigger();
    }
    static void type(frmDocument *document, const QString &text)
    {
        QTest::keyClicks(document->code()->hWnd(), text);
    }
    // Closes every document the way the main window's closing does, then lets the
    // deferred deletions run.
    void closeAll()
    {
        m_frame->mdiArea()->closeAllSubWindows();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Saves the active document as `name` through the menu, then Saves it again, and
    // checks the text and the bytes at each step.
    void saveAsAndSave(frmDocument *document, const QString &name, const QByteArray &expected)
    {
        const QString before = document->code()->Text();
        test::ScriptedCommonDialog dialog;
        const QString path = m_dir.filePath(name);
        dialog.answers << path;
        trigger("mnuFileSaveAs");
        QVERIFY(document->ccode);
        QCOMPARE(textfile::readBytes(path), expected);
        QCoreApplication::processEvents();
        QCOMPARE(document->code()->Text(), before);
        // The section file's real lists colour it too, without changing a character.
        document->switchToCColouring(QStringLiteral(TESSARO_SOURCE_DIR "/data/tessaro.stx"));
        QCoreApplication::processEvents();
        QCOMPARE(document->code()->Text(), before);
        trigger("mnuFileSave");
        QCOMPARE(textfile::readBytes(path), expected);
    }
    // Closes every document without saving.
    void closeAllWithoutSaving()
    {
        test::RecordingMessageBox box;
        box.answers = QList<int>(100, mb::No);
        closeAll();
    }

private Q_SLOTS:
    void init()
    {
        resetApp();
        m_frame = std::make_unique<MainWindow>();
        m_frame->resize(900, 700);
        m_frame->show();
    }
    void cleanup()
    {
        test::RecordingMessageBox box;
        box.answers = {mb::No, mb::No, mb::No, mb::No, mb::No, mb::No};
        closeAll();
        m_frame.reset();
    }

    void newDocumentsAreNumberedFromOne()
    {
        trigger("mnuFileNew");
        QCOMPARE(documents().last()->caption(), QStringLiteral("Source 1"));
        QCOMPARE(m_frame->mdiArea()->subWindowList().last()->windowTitle(),
                 QStringLiteral("Source 1"));
        QVERIFY(app().caretMoved);
        trigger("mnuFileNew");
        QCOMPARE(documents().last()->caption(), QStringLiteral("Source 2"));
        QVERIFY(documents().last()->code());
        QCOMPARE(documents().last()->code()->objectName(), QStringLiteral("code"));
    }

    void openingAFileAdvancesTheCounterToo()
    {
        const QString path = writeFile("a.c", "int a;\r\n");
        m_frame->LoadDocument(path);
        trigger("mnuFileNew");
        QCOMPARE(documents().last()->caption(), QStringLiteral("Source 2"));
        QCOMPARE(commands()->documentCounter(), 2);
    }

    void loadDocumentTakesThePathAsCaptionAndColoursCSources_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("c");
        QTest::newRow("c") << "g_main.c" << true;
        QTest::newRow("h") << "q_shared.h" << true;
        QTest::newRow("cpp") << "tool.cpp" << true;
        QTest::newRow("upper-case C") << "X.C" << false;
        QTest::newRow("hpp") << "x.hpp" << false;
        QTest::newRow("text") << "notes.txt" << false;
    }
    void loadDocumentTakesThePathAsCaptionAndColoursCSources()
    {
        QFETCH(QString, name);
        QFETCH(bool, c);
        const QString path = writeFile(name, "int a;\r\nint b;\r\n");
        m_frame->LoadDocument(path);
        frmDocument *document = documents().last();
        QCOMPARE(document->caption(), path);
        QCOMPARE(document->ccode, c);
        QCOMPARE(document->code()->Mode(), c ? 6 : 9);
        QCOMPARE(document->code()->Text(), QStringLiteral("int a;\r\nint b;\r\n"));
        QVERIFY(!document->changed());
    }

    void aMissingFileLeavesTheEmptyWindowWithItsTemporaryCaption()
    {
        test::RecordingMessageBox box;
        const QString path = m_dir.filePath("missing.c");
        m_frame->LoadDocument(path);
        QCOMPARE(documents().size(), 1);
        QCOMPARE(documents().last()->caption(), path + " - Colour Coding...");
        QCOMPARE(documents().last()->code()->Text(), QString());
        // Only the editor control's own report.
        QCOMPARE(box.calls.size(), 1);
    }

    void aPendingCaretPositionIsTakenAndCleared()
    {
        const QString path = writeFile("caret.c", "typedef struct { int x; } a_t;\r\n");
        app().pendingCaretPosition = 5;
        m_frame->LoadDocument(path);
        QCOMPARE(documents().last()->code()->SelStart(), 5);
        QCOMPARE(app().pendingCaretPosition, 0);
        m_frame->LoadDocument(path);
        QCOMPARE(documents().last()->code()->SelStart(), 0);
    }

    void fileOpenAsksAndLoads()
    {
        const QString path = writeFile("open.c", "x\r\n");
        test::ScriptedCommonDialog dialog;
        dialog.answers << path;
        trigger("mnuFileOpen");
        QCOMPARE(dialog.requests.size(), 1);
        QCOMPARE(dialog.requests[0].kind, FileDialogRequest::Open);
        QCOMPARE(dialog.requests[0].title, QStringLiteral("Open"));
        QCOMPARE(dialog.requests[0].filter,
                 QStringLiteral("Source Files (*.c, *.h)|*.c;*.h|All Files (*.*)|*.*"));
        QVERIFY(dialog.requests[0].cancelError);
        QCOMPARE(documents().last()->caption(), path);
        // Cancel opens nothing.
        trigger("mnuFileOpen");
        QCOMPARE(documents().size(), 1);
    }

    void saveWritesATitledDocumentUnderItsCaption()
    {
        const QString path = writeFile("save.c", "one\r\n");
        m_frame->LoadDocument(path);
        frmDocument *document = documents().last();
        document->code()->setSelStart(3);
        type(document, "X");
        test::ScriptedCommonDialog dialog;
        trigger("mnuFileSave");
        QVERIFY(dialog.requests.isEmpty());
        QCOMPARE(textfile::readBytes(path), QByteArray("oneX\r\n"));
        QCOMPARE(document->caption(), path);
    }

    void saveAsksForANameForAnUntitledDocument()
    {
        trigger("mnuFileNew");
        frmDocument *document = documents().last();
        type(document, "int x;");
        test::ScriptedCommonDialog dialog;
        const QString path = m_dir.filePath("new.txt");
        dialog.answers << path;
        trigger("mnuFileSave");
        QCOMPARE(dialog.requests.size(), 1);
        QCOMPARE(dialog.requests[0].kind, FileDialogRequest::Save);
        QCOMPARE(dialog.requests[0].title, QStringLiteral("Save"));
        QCOMPARE(dialog.requests[0].filter,
                 QStringLiteral("Source Files (*.c, *.h)|*.c;*.h|All Files (*.*)|*.*"));
        QVERIFY(dialog.requests[0].cancelError);
        QCOMPARE(document->caption(), path);
        QCOMPARE(textfile::readBytes(path), QByteArray("int x;"));
        QVERIFY(!document->ccode);

        // Cancel leaves everything as it was.
        trigger("mnuFileSaveAs");
        QCOMPARE(dialog.requests.last().title, QStringLiteral("Save As"));
        QCOMPARE(document->caption(), path);
    }

    void savingAnUntitledDocumentUnderACNameSwitchesOnCColouring_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("cSource");
        QTest::newRow("x.c") << "x.c" << true;
        QTest::newRow("x.h") << "x.h" << true;
        QTest::newRow("x.txt") << "x.txt" << false;
        QTest::newRow("x.cpp") << "x.cpp" << false;
    }
    void savingAnUntitledDocumentUnderACNameSwitchesOnCColouring()
    {
        QFETCH(QString, name);
        QFETCH(bool, cSource);
        trigger("mnuFileNew");
        frmDocument *document = documents().last();
        const QString typed = QStringLiteral("    int  x = \"a b  c\" ;\t// x  y");
        type(document, typed);
        test::ScriptedCommonDialog dialog;
        const QString path = m_dir.filePath(name);
        dialog.answers << path;
        trigger("mnuFileSave");
        QCOMPARE(document->ccode, cSource);
        QCOMPARE(document->caption(), path);
        QCOMPARE(textfile::readBytes(path), typed.toLatin1());
        // Through the event loop the text stays as typed, and the next Save writes it.
        QTest::qWait(50);
        QCOMPARE(document->code()->Text(), typed);
        trigger("mnuFileSave");
        QCOMPARE(textfile::readBytes(path), typed.toLatin1());
    }
    void theLineColourerColoursTheDocumentWithTheSectionFile()
    {
        const QString stx = writeFile("c.stx", "[keywords]\r\nint\r\n[comments]\r\nsingleline=//\r\n"
                                             "multilinestart=/*\r\nmultilineend=*/\r\n"
                                             "[string delim]\r\n\"\r\n[block]\r\n;\r\n");
        dynHighlight().colours.setStartupValues(); // as the main window's start-up does
        const QString text = QStringLiteral("int  x = \"a b c\" ;\r\n// note\r\n  plain ;");
        const QString path = writeFile("plain.txt", text.toLatin1());
        m_frame->LoadDocument(path);
        frmDocument *document = documents().last();
        document->switchToCColouring(stx);
        QVERIFY(document->ccode);
        QCOMPARE(document->caption(), path);
        // The colourer writes blanks twice and drops the lone ";": the text keeps
        // its own characters and takes only the colours, which stay through the
        // event loop.
        QTest::qWait(100);
        QCOMPARE(document->code()->Text(), text);
        QVERIFY(!document->changed());
        srcText &code = *document->code();
        QCOMPARE(test::colourOf(code, "int"), QColor(0, 0, 255)); // keyword
        QCOMPARE(test::colourOf(code, "// note"), QColor(0, 128, 0)); // comment
        QCOMPARE(test::colourOf(code, "plain"), QColor(0, 0, 0));
    }
    void theLineColourersColoursStayUntilALineIsEdited()
    {
        const QString stx = writeFile("k.stx", "[keywords]\r\nint\r\n[comments]\r\n"
                                               "multilinestart=/*\r\nmultilineend=*/\r\n");
        dynHighlight().colours.setStartupValues();
        const QString path = writeFile("k.c", "int a;\nint b;\n");
        m_frame->LoadDocument(path);
        frmDocument *document = documents().last();
        srcText &code = *document->code();
        QTRY_VERIFY(!code.isColouring());
        const QColor editorKeyword(0, 0, 127), lineColourerKeyword(0, 0, 255);
        QCOMPARE(test::colourOf(code, "int a"), editorKeyword);
        document->switchToCColouring(stx);
        QTest::qWait(100);
        QCOMPARE(test::colourOf(code, "int a"), lineColourerKeyword);
        QCOMPARE(test::colourOf(code, "int b"), lineColourerKeyword);
        // An edited line is coloured by the typing path again; the others stay.
        code.SetSelection(6, 6);
        type(document, " ");
        QCOMPARE(test::colourOf(code, "int a"), editorKeyword);
        QTest::qWait(50);
        QCOMPARE(test::colourOf(code, "int b"), lineColourerKeyword);
    }
    void saveAsUnderACNameKeepsTheLineBreaksAndTheUndoHistory()
    {
        const QString path = writeFile("notes.txt", "first line\nsecond  line\n");
        m_frame->LoadDocument(path);
        frmDocument *document = documents().last();
        srcText &code = *document->code();
        code.SetSelection(0, 0);
        type(document, "new ");
        test::ScriptedCommonDialog dialog;
        const QString saved = m_dir.filePath("notes.c");
        dialog.answers << saved;
        trigger("mnuFileSaveAs");
        QVERIFY(document->ccode);
        QTest::qWait(50);
        QCOMPARE(textfile::readBytes(saved), QByteArray("new first line\nsecond  line\n"));
        code.SetSelection(code.CharacterCount(), code.CharacterCount());
        type(document, "third");
        trigger("mnuFileSave");
        QCOMPARE(textfile::readBytes(saved),
                 QByteArray("new first line\nsecond  line\nthird"));
        // Both edits, the one before Save As and the one after, can be undone.
        code.Undo();
        QCOMPARE(code.Text(), QStringLiteral("new first line\r\nsecond  line\r\n"));
        code.Undo();
        QCOMPARE(code.Text(), QStringLiteral("first line\r\nsecond  line\r\n"));
    }

    // ---- Save As under a C name never changes the text -----------------------------
    void saveAsKeepsEveryFileOfTheSampleMod()
    {
        dynHighlight().colours.setStartupValues();
        QDirIterator files(QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod"),
                           {QStringLiteral("*.c"), QStringLiteral("*.h")}, QDir::Files,
                           QDirIterator::Subdirectories);
        int count = 0;
        while (files.hasNext()) {
            const QString file = files.next();
            m_frame->LoadDocument(file);
            frmDocument *document = documents().last();
            QVERIFY(document);
            saveAsAndSave(document, QStringLiteral("copy%1.c").arg(count++),
                          textfile::readBytes(file));
            closeAllWithoutSaving();
        }
        QVERIFY(count > 10);
    }
    void saveAsKeepsBlanksTabsStringsAndComments()
    {
        dynHighlight().colours.setStartupValues();
        const QStringList texts = {
            "    int  x;\r\n\t\tint\t y ;\r\n;\r\n",
            "char *s = \"a  b   c\";  /* x  y */ // z  ;\r\n  \r\n\t \t\r\n",
            "/* open\r\n  still   open\r\n*/ int   a = \"\" ;\r\n\"unterminated  x  y\r\n",
            "{\\}  \\par  \\cf1  1 2  3\t-4 ;; ; ;\r\nend ;",
        };
        int n = 0;
        for (const QString &text : texts) {
            trigger("mnuFileNew");
            frmDocument *document = documents().last();
            document->code()->setText(text);
            saveAsAndSave(document, QStringLiteral("text%1.h").arg(n++), text.toLatin1());
            closeAllWithoutSaving();
        }
    }
    void saveAsKeepsRandomTexts()
    {
        dynHighlight().colours.setStartupValues();
        QRandomGenerator random(1618);
        const QString alphabet = QStringLiteral("    \t\tint x;\"\"/*/*//{}\\09-") + QChar(0xe9);
        for (int round = 0; round < 40; ++round) {
            QString text;
            for (int i = random.bounded(200); i > 0; --i)
                text += random.bounded(15) == 0 ? QStringLiteral("\r\n")
                                                : QString(alphabet.at(random.bounded(
                                                      int(alphabet.size()))));
            trigger("mnuFileNew");
            frmDocument *document = documents().last();
            document->code()->setText(text);
            saveAsAndSave(document, QStringLiteral("random%1.c").arg(round), text.toLatin1());
            closeAllWithoutSaving();
        }
    }

    void aCaptionBeginningWithSourceIsTreatedAsUntitled()
    {
        trigger("mnuFileNew");
        frmDocument *document = documents().last();
        document->setCaption("Source.c");
        test::ScriptedCommonDialog dialog;
        dialog.answers << m_dir.filePath("named.c");
        trigger("mnuFileSave");
        QCOMPARE(dialog.requests.size(), 1);
        QCOMPARE(document->caption(), m_dir.filePath("named.c"));
        // A full path never begins with "Source".
        const QString path = writeFile("Source.c", "s\r\n");
        m_frame->LoadDocument(path);
        trigger("mnuFileSave");
        QCOMPARE(dialog.requests.size(), 1);
    }

    void saveAndSaveAsDoNothingWithAToolWindowActive_data()
    {
        QTest::addColumn<bool>("findInFiles");
        QTest::newRow("frmFnF") << true;
        QTest::newRow("frmOut") << false;
    }
    void saveAndSaveAsDoNothingWithAToolWindowActive()
    {
        QFETCH(bool, findInFiles);
        test::RecordingMessageBox box;
        trigger("mnuFileNew");
        type(documents().last(), "unsaved");
        static const search::FindInFilesQuery query; // the window keeps a reference
        QWidget *tool =
            findInFiles ? static_cast<QWidget *>(new search::frmFnF) : new search::frmOut(query);
        QMdiSubWindow *child = m_frame->mdiArea()->addSubWindow(tool);
        child->show();
        m_frame->mdiArea()->setActiveSubWindow(child);
        QCOMPARE(m_frame->mdiArea()->currentSubWindow(), child);
        test::ScriptedCommonDialog dialog;
        trigger("mnuFileSave");
        trigger("mnuFileSaveAs");
        QVERIFY(dialog.requests.isEmpty());
        QCOMPARE(documents().last()->caption(), QStringLiteral("Source 1"));
        child->close();
    }

    void thePromptTreatsACaptionBeginningWithSourceAsUntitled()
    {
        const QString path = writeFile("prompt-titled.c", "t\r\n");
        m_frame->LoadDocument(path);
        frmDocument *document = documents().last();
        document->setCaption("Source.c");
        type(document, "x");
        test::RecordingMessageBox box;
        box.answers << mb::Yes;
        test::ScriptedCommonDialog dialog;
        dialog.answers << m_dir.filePath("chosen.c");
        trigger("mnuFileClose");
        QCOMPARE(dialog.requests.size(), 1);
        QCOMPARE(dialog.requests[0].filter, QStringLiteral("All Files (*.*)|*.*"));
        QCOMPARE(textfile::readBytes(m_dir.filePath("chosen.c")), QByteArray("xt\r\n"));
        QCOMPARE(textfile::readBytes(path), QByteArray("t\r\n"));
    }

    void saveAndCloseWithNoWindowDoNothing()
    {
        test::ScriptedCommonDialog dialog;
        trigger("mnuFileSave");
        trigger("mnuFileSaveAs");
        trigger("mnuFileClose");
        QVERIFY(dialog.requests.isEmpty());
        QVERIFY(documents().isEmpty());
    }

    void closingAnUnchangedDocumentDoesNotAsk()
    {
        test::RecordingMessageBox box;
        trigger("mnuFileNew");
        trigger("mnuFileClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(box.calls.isEmpty());
        QVERIFY(documents().isEmpty());
    }

    void thePromptAnsweredNoClosesWithoutSaving()
    {
        const QString path = writeFile("no.c", "keep\r\n");
        m_frame->LoadDocument(path);
        type(documents().last(), "Z");
        test::RecordingMessageBox box;
        box.answers << mb::No;
        trigger("mnuFileClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls[0].prompt, "Would you like to save changes made to " + path + "?");
        QCOMPARE(box.calls[0].title, QStringLiteral("Save Changes?"));
        QCOMPARE(box.calls[0].style, int(mb::YesNo));
        QCOMPARE(textfile::readBytes(path), QByteArray("keep\r\n"));
        QVERIFY(documents().isEmpty());
    }

    void escInTheSaveChangesPromptThrowsNothingAway()
    {
        // The real message box: Esc and the title bar's close button do nothing in a
        // Yes/No box, so the edit is still there; only a button answers it.
        const QString path = writeFile("esc.c", "keep\r\n");
        m_frame->LoadDocument(path);
        frmDocument *document = documents().last();
        type(document, "Z");
        WidgetMessageBox widgets;
        MessageBoxService *before = setMessageBoxService(&widgets);
        bool stillOpenAfterEsc = false;
        bool stillOpenAfterClose = false;
        QTimer::singleShot(0, this, [&] {
            QWidget *box = QApplication::activeModalWidget();
            QVERIFY(box);
            QTest::keyClick(box, Qt::Key_Escape);
            QApplication::processEvents();
            stillOpenAfterEsc =
                box->isVisible() && documents().contains(document) && document->code()->Modified();
            box->close();
            QApplication::processEvents();
            stillOpenAfterClose = box->isVisible() && documents().contains(document);
            static_cast<MessageBoxWindow *>(box)->buttonOf(mb::Yes)->click();
        });
        trigger("mnuFileClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        setMessageBoxService(before);
        QVERIFY(stillOpenAfterEsc);
        QVERIFY(stillOpenAfterClose);
        // Yes saved the edit and closed the window.
        QCOMPARE(textfile::readBytes(path), QByteArray("Zkeep\r\n"));
        QVERIFY(documents().isEmpty());
    }

    void thePromptAnsweredYesSavesATitledDocument()
    {
        const QString path = writeFile("yes.c", "keep\r\n");
        m_frame->LoadDocument(path);
        type(documents().last(), "Z");
        test::RecordingMessageBox box;
        box.answers << mb::Yes;
        test::ScriptedCommonDialog dialog;
        trigger("mnuFileClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.requests.isEmpty());
        QCOMPARE(textfile::readBytes(path), QByteArray("Zkeep\r\n"));
        QVERIFY(documents().isEmpty());
    }

    void thePromptAnsweredYesAsksForANameWithItsOwnFilter()
    {
        trigger("mnuFileNew");
        type(documents().last(), "new text");
        test::RecordingMessageBox box;
        box.answers << mb::Yes;
        test::ScriptedCommonDialog dialog;
        dialog.answers << m_dir.filePath("prompted.c");
        trigger("mnuFileClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(box.calls[0].prompt,
                 QStringLiteral("Would you like to save changes made to Source 1?"));
        QCOMPARE(dialog.requests.size(), 1);
        QCOMPARE(dialog.requests[0].title, QStringLiteral("Save"));
        QCOMPARE(dialog.requests[0].filter, QStringLiteral("All Files (*.*)|*.*"));
        QCOMPARE(textfile::readBytes(m_dir.filePath("prompted.c")), QByteArray("new text"));
        QVERIFY(documents().isEmpty());
    }

    void cancelInThePromptsDialogClosesWithoutSavingOrMessage()
    {
        const QStringList filesBefore = QDir(m_dir.path()).entryList(QDir::Files);
        trigger("mnuFileNew");
        type(documents().last(), "lost");
        test::RecordingMessageBox box;
        box.answers << mb::Yes;
        test::ScriptedCommonDialog dialog; // no answer: Cancel
        trigger("mnuFileClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(dialog.requests.size(), 1);
        QVERIFY(documents().isEmpty());
        QCOMPARE(QDir(m_dir.path()).entryList(QDir::Files), filesBefore);
    }

    void afterSaveClosingAChangedDocumentStillAsks()
    {
        const QString path = writeFile("again.c", "a\r\n");
        m_frame->LoadDocument(path);
        type(documents().last(), "b");
        trigger("mnuFileSave");
        QVERIFY(documents().last()->changed());
        test::RecordingMessageBox box;
        box.answers << mb::No;
        trigger("mnuFileClose");
        QCOMPARE(box.calls.size(), 1);
    }

    void closingTheMainWindowsDocumentsAsksForEachChangedOne()
    {
        trigger("mnuFileNew");
        type(documents().last(), "one");
        trigger("mnuFileNew");
        trigger("mnuFileNew");
        type(documents().last(), "three");
        test::RecordingMessageBox box;
        box.answers << mb::No << mb::No;
        closeAll();
        QCOMPARE(box.calls.size(), 2);
        QVERIFY(documents().isEmpty());
    }

    void closeWorkspaceLeavesDocumentsOpen()
    {
        const QString path = writeFile("ws.c", "w\r\n");
        test::ScriptedCommonDialog dialog;
        dialog.answers << m_dir.filePath("ws.tdi") << path;
        trigger("mnuFileNW");
        trigger("mnuFileInsert");
        m_frame->LoadDocument(path);
        trigger("mnuFileCW");
        QCOMPARE(documents().size(), 1);
        QVERIFY(!app().workspace.open);
    }

    void keysOfACDocumentArePendingAndSelectionMovesMarkTheCaret()
    {
        const QString c = writeFile("keys.c", "k\r\n");
        const QString t = writeFile("keys.txt", "k\r\n");
        m_frame->LoadDocument(t);
        type(documents().last(), "A");
        QCOMPARE(app().pendingKeyFlag, qint16(0));
        m_frame->LoadDocument(c);
        app().caretMoved = false;
        type(documents().last(), "B");
        QCOMPARE(app().pendingKey, qint16(Qt::Key_B));
        QCOMPARE(app().pendingKeyFlag, qint16(-1));
        QVERIFY(app().caretMoved);
    }

    void theMainTimerOpensAStructureEntryAtItsDeclaration()
    {
        const QString h = writeFile("timer.h", "int a;\ntypedef struct b_s { int b; } b_t;\n");
        const QString tdi = writeFile("timer.tdi", ("HEAD=" + h + "\r\n\r\n").toUtf8());
        test::ScriptedCommonDialog dialog;
        dialog.answers << tdi;
        trigger("mnuFileOW");
        WorkspaceCommands::of(*m_frame)->session().structNodeSelected(h + "-9");
        QCOMPARE(app().pendingOpenPath, h);
        QTRY_COMPARE_WITH_TIMEOUT(documents().size(), 1, 1000);
        frmDocument *document = documents().last();
        QCOMPARE(document->caption(), h);
        // The 1-based position puts the caret one character into "typedef struct".
        QCOMPARE(document->code()->SelStart(), 9);
        QCOMPARE(document->code()->Text().mid(8, 14), QStringLiteral("typedef struct"));
        QCOMPARE(app().pendingOpenPath, QString());
        QCOMPARE(app().pendingCaretPosition, 0);
    }

    void theResourcesGroupNodeOpensAFileNamedR()
    {
        test::RecordingMessageBox box;
        WorkspaceCommands::of(*m_frame)->session().fileNodeSelected("R");
        QTRY_COMPARE_WITH_TIMEOUT(documents().size(), 1, 1000);
        QCOMPARE(documents().last()->caption(), QStringLiteral("R - Colour Coding..."));
        QCOMPARE(box.calls.size(), 1);
    }

    void theDocumentFillsItsWindow()
    {
        trigger("mnuFileNew");
        frmDocument *document = documents().last();
        document->parentWidget()->resize(400, 300);
        QCOMPARE(document->code()->geometry(), QRect(QPoint(0, 0), document->size()));
    }
};

TESSARO_TEST_MAIN(DocumentsTest)
#include "tst_documents.moc"

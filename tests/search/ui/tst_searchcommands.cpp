#include "app/ui/MainWindow.h"
#include "editor/ui/srcText.h"
#include "platform/core/MsgBox.h"
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"
#include "search/ui/SearchCommands.h"
#include "search/ui/frmFind.h"
#include "search/ui/frmFnF.h"
#include "search/ui/frmOut.h"
#include "shell/ui/MainToolbar.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "workspace/ui/FileBrowser.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

using namespace tessaro;
using namespace tessaro::search;
using tessaro::test::RecordingMessageBox;

class SearchCommandsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<MainWindow> m_main;
    SearchCommands *m_commands = nullptr;
    QComboBox *m_box = nullptr;
    QAbstractButton *m_find = nullptr;
    QTemporaryDir m_dir;

    QMdiArea *mdi() const { return m_main->mdiArea(); }

    // A document window: a form holding the editor control "code" with the text,
    // the caret at the start.
    srcText *openDocument(const QString &text)
    {
        auto *form = new QWidget;
        form->setObjectName(QStringLiteral("frmDocument"));
        auto *editor = new srcText(form);
        editor->setObjectName(QStringLiteral("code"));
        editor->setText(text);
        editor->setSelStart(0);
        QMdiSubWindow *child = mdi()->addSubWindow(form);
        child->show();
        mdi()->setActiveSubWindow(child);
        return editor;
    }

    QString file(const QString &name, const QByteArray &contents)
    {
        const QString path = m_dir.filePath(name);
        textfile::writeBytes(path, contents);
        return path;
    }

    frmOut *findInFiles(const QString &text)
    {
        m_commands->mnuEditFindnF_Click();
        frmFnF *dialog = m_commands->findInFilesDialog();
        if (!dialog)
            return nullptr;
        dialog->txtFind()->setText(text);
        dialog->findChild<QPushButton *>(QStringLiteral("cmdFind"))->click();
        return m_commands->outputWindow();
    }

    static QMdiSubWindow *childOf(QWidget *form)
    {
        return qobject_cast<QMdiSubWindow *>(form->parentWidget());
    }

private Q_SLOTS:
    void init()
    {
        QVERIFY(m_dir.isValid());
        resetApp();
        m_main = std::make_unique<MainWindow>();
        m_box = m_main->findChild<QComboBox *>(QStringLiteral("fndText"));
        m_find = m_main->findChild<QAbstractButton *>(QStringLiteral("cmdFind"));
        m_commands = m_main->findChild<SearchCommands *>();
        QVERIFY(m_box);
        QVERIFY(m_find);
        QVERIFY(m_commands);
        m_commands->setBrowserFolderSource([] { return QStringLiteral("/mod"); });
        m_main->show();
        m_main->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_main.get()));
    }

    void cleanup() { m_main.reset(); }

    // Find and Find Again.

    void findButtonSelectsOverlappingMatchesOneAfterTheOther()
    {
        srcText *doc = openDocument(QStringLiteral("aaaa"));
        m_box->setEditText(QStringLiteral("aa"));
        m_find->click();
        QCOMPARE(doc->SelStart(), 1);
        m_find->click();
        QCOMPARE(doc->SelStart(), 2);
        m_find->click();
        QCOMPARE(doc->SelStart(), 2);
        m_main->action(QStringLiteral("mnuEditFA"))->trigger();
        QCOMPARE(doc->SelStart(), 2);
        QCOMPARE(m_box->count(), 1);
        QCOMPARE(m_box->itemText(0), QStringLiteral("aa"));
        QCOMPARE(m_box->currentText(), QStringLiteral("aa"));
    }

    void theToolbarsFindButtonSearchesLikeTheFindBoxButton()
    {
        srcText *doc = openDocument(QStringLiteral("aaaa"));
        m_box->setEditText(QStringLiteral("AA"));
        auto *toolbar = m_main->findChild<MainToolbar *>();
        QVERIFY(toolbar);
        toolbar->dispatchKey(QStringLiteral("Find"));
        QCOMPARE(doc->SelStart(), 1);
        toolbar->dispatchKey(QStringLiteral("Find"));
        QCOMPARE(doc->SelStart(), 2);
        QCOMPARE(m_box->count(), 1);
    }

    void findAgainAddsTheChangedBoxTextEveryTime()
    {
        srcText *doc = openDocument(QStringLiteral("one two one two one"));
        m_box->setEditText(QStringLiteral("one"));
        m_find->click();
        m_box->setEditText(QStringLiteral("two"));
        QAction *again = m_main->action(QStringLiteral("mnuEditFA"));
        QVERIFY(again);
        QCOMPARE(again->shortcut(), QKeySequence(Qt::Key_F3));
        again->trigger();
        again->trigger();
        QCOMPARE(m_box->count(), 3);
        QCOMPARE(m_box->itemText(1), QStringLiteral("two"));
        QCOMPARE(m_box->itemText(2), QStringLiteral("two"));
        QCOMPARE(m_box->currentText(), QStringLiteral("two"));
        QCOMPARE(doc->SelStart(), 16); // still searching for "one"
    }

    void positionsCountEveryLineBreakAsTwoCharacters()
    {
        srcText *doc = openDocument(QStringLiteral("ab\r\ncd\r\nCD"));
        m_box->setEditText(QStringLiteral("cd"));
        m_find->click();
        QCOMPARE(doc->SelStart(), 4);
        QCOMPARE(doc->SelLength(), 2);
        m_main->action(QStringLiteral("mnuEditFA"))->trigger();
        QCOMPARE(doc->SelStart(), 8);
        m_main->action(QStringLiteral("mnuEditFA"))->trigger();
        QCOMPARE(doc->SelStart(), 8); // no wrap to the top
    }

    void findAgainBeforeAnyFindDoesNothing()
    {
        srcText *doc = openDocument(QStringLiteral("score score"));
        m_box->setEditText(QStringLiteral("score"));
        m_main->action(QStringLiteral("mnuEditFA"))->trigger();
        QCOMPARE(doc->SelStart(), 0);
        QCOMPARE(doc->SelLength(), 0);
        QCOMPARE(m_box->count(), 0);
    }

    void withTheOutputWindowOrTheDialogActiveNothingHappens()
    {
        app().workspace.open = true;
        srcText *doc = openDocument(QStringLiteral("x x x"));
        m_box->setEditText(QStringLiteral("x"));
        m_find->click();
        QCOMPARE(doc->SelStart(), 2);

        m_commands->mnuEditFindnF_Click(); // the dialog is now the active child
        QCOMPARE(mdi()->currentSubWindow()->widget()->objectName(), QStringLiteral("frmFnF"));
        m_box->setEditText(QStringLiteral("y"));
        m_find->click();
        m_main->action(QStringLiteral("mnuEditFA"))->trigger();
        QCOMPARE(doc->SelStart(), 2);
        QCOMPARE(m_box->count(), 1);

        frmOut *out = findInFiles(QStringLiteral("x")); // now the output window
        QVERIFY(out);
        QCOMPARE(mdi()->currentSubWindow()->widget(), out);
        m_find->click();
        m_main->action(QStringLiteral("mnuEditFA"))->trigger();
        QCOMPARE(doc->SelStart(), 2);
        QCOMPARE(m_box->count(), 1);
        QCOMPARE(m_commands->controller().lastFindText(), QStringLiteral("x"));
    }

    void withoutAnyWindowNothingHappens()
    {
        m_box->setEditText(QStringLiteral("x"));
        m_find->click();
        QCOMPARE(m_box->count(), 0);
        QVERIFY(m_commands->controller().lastFindText().isEmpty());
    }

    void enterInTheFindBoxStartsNothing()
    {
        srcText *doc = openDocument(QStringLiteral("score score"));
        m_box->setFocus();
        m_box->setEditText(QStringLiteral("score"));
        QTest::keyClick(m_box->lineEdit(), Qt::Key_Return);
        QTest::keyClick(m_box->lineEdit(), Qt::Key_Enter);
        QCOMPARE(doc->SelStart(), 0);
        QCOMPARE(m_box->count(), 0);
        QVERIFY(m_commands->controller().lastFindText().isEmpty());
    }

    void aDocumentWithoutAnEditorIsIgnoredSilently()
    {
        auto *form = new QWidget;
        QMdiSubWindow *child = mdi()->addSubWindow(form);
        child->show();
        mdi()->setActiveSubWindow(child);
        RecordingMessageBox box;
        m_box->setEditText(QStringLiteral("x"));
        m_find->click();
        QVERIFY(box.calls.isEmpty());
        QVERIFY(m_commands->controller().lastFindText().isEmpty());
    }

    // Find in Files.

    void findInFilesWithoutAWorkspaceOnlyTellsSo()
    {
        RecordingMessageBox box;
        m_main->action(QStringLiteral("mnuEditFindnF"))->trigger();
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls[0].prompt, QStringLiteral("You'll need to open a workspace"));
        QCOMPARE(box.calls[0].style, int(mb::OKOnly));
        QCOMPARE(box.calls[0].title, QStringLiteral("Tessaro"));
        QVERIFY(!m_commands->findInFilesDialog());
        QVERIFY(mdi()->subWindowList().isEmpty());
    }

    void theDialogShowsItsControlsAndTakesTheBrowserFolder()
    {
        app().workspace.open = true;
        m_main->action(QStringLiteral("mnuEditFindnF"))->trigger();
        frmFnF *dialog = m_commands->findInFilesDialog();
        QVERIFY(dialog);
        QCOMPARE(m_commands->query().folder, QStringLiteral("/mod/"));
        QVERIFY(childOf(dialog));
        QVERIFY(childOf(dialog)->isVisible());
        QCOMPARE(childOf(dialog)->windowTitle(), QStringLiteral("Find in Files"));
        QCOMPARE(dialog->findChild<QPushButton *>(QStringLiteral("cmdFind"))->text(),
                 QStringLiteral("Find in Files"));
        QCOMPARE(dialog->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->text(),
                 QStringLiteral("Cancel"));
        QCOMPARE(dialog->findChild<QLineEdit *>(QStringLiteral("txtFind"))->text(), QString());
        QCOMPARE(dialog->findChild<QLabel *>(QStringLiteral("Label1"))->text(),
                 QStringLiteral("Find What:"));

        m_main->action(QStringLiteral("mnuEditFindnF"))->trigger(); // shown again, not twice
        QCOMPARE(mdi()->subWindowList().size(), 1);

        dialog->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
        QTRY_VERIFY(!m_commands->findInFilesDialog());
        QVERIFY(!m_commands->outputWindow());
    }

    void theSearchFolderIsTheFileBrowsersFolder()
    {
        app().workspace.open = true;
        MainWindow main;
        FileBrowser *browser = FileBrowser::install(main);
        QVERIFY(browser);
        browser->setDirPath(m_dir.path());
        auto *commands = main.findChild<SearchCommands *>();
        QVERIFY(commands);
        commands->mnuEditFindnF_Click();
        QCOMPARE(commands->query().folder, m_dir.path() + QStringLiteral("/"));
    }

    void findInFilesListsTheFilesThatHoldTheText()
    {
        app().workspace.open = true;
        const QString ai = file("ai.c", "int score; score++; SCORE;\r\n");
        const QString h = file("ai.h", "extern int Score;\r\n");
        app().workspace.game.append(ai);
        app().workspace.game.append(file("none.c", "nothing\r\n"));
        app().workspace.headers.append(h);
        app().workspace.resources.append(file("menu.rc", "score"));

        frmOut *out = findInFiles(QStringLiteral("Score"));
        QVERIFY(out);
        QVERIFY(!m_commands->findInFilesDialog() ||
                !childOf(m_commands->findInFilesDialog())->isVisible());
        QCOMPARE(out->objectName(), QStringLiteral("frmOut"));
        QVERIFY(childOf(out));
        QCOMPARE(out->timer()->objectName(), QStringLiteral("Timer1"));
        QCOMPARE(out->timer()->interval(), 100);
        QVERIFY(out->timer()->isActive());
        QVERIFY(out->isSearchPending());
        QTRY_VERIFY(!out->isSearchPending());
        const QString expected = QStringLiteral("Searching for Score...\r\nFound Score in %1\r\n"
                                                "Found Score in %2\r\n")
                                     .arg(ai, h);
        QCOMPARE(out->text(), expected);
        auto *code = out->findChild<QPlainTextEdit *>(QStringLiteral("code"));
        QVERIFY(code);
        QCOMPARE(code->toPlainText(),
                 QString(expected).replace(QLatin1String("\r\n"), QLatin1String("\n")));
        QCOMPARE(childOf(out)->windowTitle(), QStringLiteral("Output"));
        QVERIFY(out->timer()->isActive()); // keeps ticking idly
    }

    void aSecondFindInFilesWhileTheOutputIsOpenAddsNothing()
    {
        app().workspace.open = true;
        app().workspace.source.append(file("a.c", "alpha beta"));
        frmOut *out = findInFiles(QStringLiteral("alpha"));
        QTRY_VERIFY(!out->isSearchPending());
        const QString first = out->text();

        QCOMPARE(findInFiles(QStringLiteral("beta")), out);
        QTest::qWait(350);
        QCOMPARE(out->text(), first);
        QCOMPARE(mdi()->currentSubWindow()->widget(), out); // only brought forward
        QCOMPARE(m_commands->query().text, QStringLiteral("beta"));

        childOf(out)->close(); // unloaded: the next search runs in a new window
        QTRY_VERIFY(!m_commands->outputWindow());
        frmOut *again = findInFiles(QStringLiteral("beta"));
        QVERIFY(again);
        QTRY_VERIFY(!again->isSearchPending());
        QCOMPARE(again->text(), QStringLiteral("Searching for beta...\r\nFound beta in %1\r\n")
                                    .arg(app().workspace.source.at(0)));
    }

    void anEmptyWorkspaceGivesOnlyTheSearchingLine()
    {
        app().workspace.open = true;
        frmOut *out = findInFiles(QStringLiteral("score"));
        QTRY_VERIFY(!out->isSearchPending());
        QCOMPARE(out->text(), QStringLiteral("Searching for score...\r\n"));
    }

    void anEmptySearchTextReportsEveryFile()
    {
        app().workspace.open = true;
        const QString a = file("a.c", "x"), b = file("b.h", "");
        app().workspace.ui.append(a);
        app().workspace.headers.append(b);
        frmOut *out = findInFiles(QString());
        QTRY_VERIFY(!out->isSearchPending());
        QCOMPARE(out->text(),
                 QStringLiteral("Searching for ...\r\nFound  in %1\r\nFound  in %2\r\n").arg(a, b));
    }

    void latin1LettersOfEitherCaseAndBinaryFilesAreSearched()
    {
        app().workspace.open = true;
        const QString accented = file("fr.c", "/* \xc9T\xc9 */");
        const QString binary = file("blob.bin", QByteArray("\x00\xff\xe9t\xe9\x00", 6));
        app().workspace.cgame.append(file("plain.c", "ete"));
        app().workspace.cgame.append(accented);
        app().workspace.cgame.append(binary);
        const QString text = QString::fromLatin1("\xe9t\xc9");
        frmOut *out = findInFiles(text);
        QTRY_VERIFY(!out->isSearchPending());
        QCOMPARE(out->text(),
                 QStringLiteral("Searching for %1...\r\nFound %1 in %2\r\nFound %1 in %3\r\n")
                     .arg(text, accented, binary));
    }

    void aMissingFileEndsTheSearchAndLeavesItPending()
    {
        app().workspace.open = true;
        const QString a = file("a.c", "x");
        app().workspace.game.append(a);
        app().workspace.game.append(m_dir.filePath("missing.c"));
        app().workspace.headers.append(file("h.h", "x"));
        frmOut *out = findInFiles(QStringLiteral("x"));
        out->timer()->stop(); // the tick runs here, so the error reaches the test
        qint64 number = 0;
        try {
            out->Timer1_Timer();
        } catch (const RuntimeError &error) {
            number = error.number();
        }
        QCOMPARE(number, qint64(RuntimeError::FileNotFound));
        QVERIFY(out->isSearchPending());
        QCOMPARE(childOf(out)->windowTitle(), QStringLiteral("Output - Searching..."));
        QCOMPARE(out->text(), QStringLiteral("Searching for x...\r\nFound x in %1\r\n").arg(a));
    }

    // The find dialog that no command opens.

    void theFindDialogStoresItsTextAndFlag()
    {
        frmFind::resetDialogFind();
        auto *dialog = new frmFind;
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Find"));
        QCOMPARE(dialog->findChild<QLabel *>(QStringLiteral("Label1"))->text(),
                 QStringLiteral("Find What:"));
        QCOMPARE(dialog->findChild<QCheckBox *>(QStringLiteral("chkMC"))->text(),
                 QStringLiteral("Match Case"));
        QCOMPARE(dialog->findChild<QCheckBox *>(QStringLiteral("chkMWW"))->text(),
                 QStringLiteral("Match Whole Word"));
        QCOMPARE(dialog->findChild<QPushButton *>(QStringLiteral("cmdFind"))->text(),
                 QStringLiteral("Find"));
        QCOMPARE(dialog->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->text(),
                 QStringLiteral("Cancel"));
        QPointer<frmFind> alive(dialog);
        dialog->show();
        dialog->findChild<QLineEdit *>(QStringLiteral("txtFind"))->setText(QStringLiteral("frag"));
        dialog->findChild<QPushButton *>(QStringLiteral("cmdFind"))->click();
        QCOMPARE(frmFind::dialogFindText(), QStringLiteral("frag"));
        QCOMPARE(frmFind::dialogFindFlag(), qint16(1));
        QTRY_VERIFY(!alive);

        frmFind::resetDialogFind();
        auto *cancelled = new frmFind;
        alive = cancelled;
        cancelled->show();
        cancelled->findChild<QLineEdit *>(QStringLiteral("txtFind"))->setText(QStringLiteral("x"));
        cancelled->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
        QTRY_VERIFY(!alive);
        QCOMPARE(frmFind::dialogFindText(), QString());
        QCOMPARE(frmFind::dialogFindFlag(), qint16(0));
    }

    void noCommandOpensTheFindDialog()
    {
        app().workspace.open = true;
        openDocument(QStringLiteral("x"));
        m_box->setEditText(QStringLiteral("x"));
        m_find->click();
        m_main->action(QStringLiteral("mnuEditFA"))->trigger();
        m_main->action(QStringLiteral("mnuEditFindnF"))->trigger();
        QVERIFY(!m_main->findChild<frmFind *>());
        for (QWidget *top : QApplication::topLevelWidgets())
            QVERIFY(!qobject_cast<frmFind *>(top));
    }
};

TESSARO_TEST_MAIN(SearchCommandsTest)
#include "tst_searchcommands.moc"

// Recovery copies of unsaved documents in the main window: when they are written and
// removed, what an untrapped run-time error and the emergency save leave behind, and
// how the documents of an earlier session come back.
#include "app/ui/MainWindow.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"
#include "platform/core/EmergencySave.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/TextFile.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "workspace/core/RecoveryPrompt.h"
#include "workspace/core/RecoveryStore.h"
#include "workspace/ui/DocumentCommands.h"
#include "workspace/ui/DocumentRecovery.h"
#include "workspace/ui/frmDocument.h"
#include "workspace/ui/frmRecover.h"

#include <QAction>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

// Answers the recovery offer from a script and records what was offered.
class ScriptedRecoveryPrompt : public RecoveryPromptService
{
public:
    ScriptedRecoveryPrompt() : m_previous(setRecoveryPromptService(this)) {}
    ~ScriptedRecoveryPrompt() override { setRecoveryPromptService(m_previous); }
    RecoveryChoice choose(const QVector<RecoveryOffer> &offers) override
    {
        offered.append(offers);
        return answer;
    }
    QList<QVector<RecoveryOffer>> offered;
    RecoveryChoice answer;

private:
    RecoveryPromptService *m_previous;
};

} // namespace

class DocumentRecoveryTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir{QDir::tempPath() + "/recovery_XXXXXX"};
    QString m_root;
    std::unique_ptr<MainWindow> m_frame;
    DocumentRecovery *m_recovery = nullptr;

    DocumentCommands *commands() const { return DocumentCommands::of(*m_frame); }
    static void type(frmDocument *document, const QString &text)
    {
        QTest::keyClicks(document->code()->hWnd(), text);
    }
    QString copyOf(int id) const
    {
        return m_recovery->sessionFolder() + QStringLiteral("/%1.copy").arg(id);
    }
    std::optional<RecoveryCopy> copy(int id) const
    {
        return RecoveryCopy::fromBytes(test::readFile(copyOf(id)));
    }
    QList<frmDocument *> documents() const
    {
        QList<frmDocument *> list;
        for (QMdiSubWindow *child : m_frame->mdiArea()->subWindowList())
            if (auto *document = qobject_cast<frmDocument *>(child->widget()))
                list << document;
        return list;
    }
    // A session that ended without closing: its copies stay for the next start.
    void leaveEarlierCopies(const QList<RecoveryCopy> &copies)
    {
        recovery::SessionFolder crashed(m_root);
        int id = 1;
        for (const RecoveryCopy &copy : copies)
            QVERIFY(crashed.write(id++, copy));
    }
    void closeAllAnswering(int answer)
    {
        test::RecordingMessageBox box;
        for (int i = 0; i < 20; ++i)
            box.answers << answer;
        m_frame->mdiArea()->closeAllSubWindows();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private Q_SLOTS:
    void init()
    {
        resetApp();
        m_root = QDir::home().filePath("recovery");
        QDir(m_root).removeRecursively();
        m_frame = std::make_unique<MainWindow>();
        m_frame->resize(900, 700);
        m_frame->show();
        m_recovery = DocumentRecovery::install(*m_frame, m_root);
        m_recovery->setDelay(100);
    }
    void cleanup()
    {
        if (m_frame)
            closeAllAnswering(mb::No);
        m_frame.reset();
    }

    void typingWritesACopyShortlyAfterTheChange()
    {
        frmDocument *document = commands()->NewDocument();
        type(document, "int x;");
        QVERIFY(!QFileInfo::exists(copyOf(1))); // not at once
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(copyOf(1)), 10000);
        QCOMPARE(copy(1)->caption, QString("Source 1"));
        QCOMPARE(copy(1)->path, QString());
        QCOMPARE(copy(1)->text, QByteArray("int x;"));
    }

    void goingOnTypingDoesNotPutTheCopyOff()
    {
        frmDocument *document = commands()->NewDocument();
        m_recovery->setDelay(300);
        QElapsedTimer typing;
        typing.start();
        bool written = false;
        while (!written && typing.elapsed() < 20000) {
            type(document, "a");
            QTest::qWait(30);
            written = QFileInfo::exists(copyOf(1));
        }
        QVERIFY(written);
    }

    void aCopyHoldsTheFileBytesPathAndLineEndKind()
    {
        const QString path = m_dir.filePath("mixed.c");
        textfile::writeBytes(path, "a\r\nb\nc\n");
        frmDocument *document = commands()->LoadDocument(path);
        QVERIFY(document);
        document->code()->setSelStart(document->code()->CharacterCount());
        type(document, "d");
        m_recovery->writeAllNow();
        QCOMPARE(copy(1)->caption, path);
        QCOMPARE(copy(1)->path, path);
        QCOMPARE(copy(1)->text, QByteArray("a\r\nb\nc\nd"));
        QCOMPARE(copy(1)->lineEnd, LineEnd::LF);
        QVERIFY(copy(1)->cSource);
    }

    void savingRemovesTheCopyAndTheNextChangeWritesItAgain()
    {
        const QString path = m_dir.filePath("saved.c");
        textfile::writeBytes(path, "x\r\n");
        frmDocument *document = commands()->LoadDocument(path);
        type(document, "y");
        m_recovery->writeAllNow();
        QVERIFY(QFileInfo::exists(copyOf(1)));
        m_frame->action("mnuFileSave")->trigger();
        QVERIFY(!QFileInfo::exists(copyOf(1)));
        type(document, "z");
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(copyOf(1)), 10000);
    }

    void closingWithoutSavingRemovesTheCopy()
    {
        frmDocument *document = commands()->NewDocument();
        type(document, "gone");
        m_recovery->writeAllNow();
        QVERIFY(QFileInfo::exists(copyOf(1)));
        closeAllAnswering(mb::No);
        QVERIFY(!QFileInfo::exists(copyOf(1)));
    }

    void aSaveThatFailsAtCloseKeepsTheCopy()
    {
        QTemporaryDir gone;
        const QString path = gone.filePath("lost.c");
        textfile::writeBytes(path, "old\r\n");
        frmDocument *document = commands()->LoadDocument(path);
        type(document, "new ");
        QVERIFY(gone.remove()); // the save at close cannot write the file now
        closeAllAnswering(mb::Yes);
        QVERIFY(documents().isEmpty());
        QCOMPARE(copy(1)->text, QByteArray("new old\r\n"));
    }

    void anUntrappedRunTimeErrorWritesTheCopiesBeforeTheProgramEnds()
    {
        frmDocument *document = commands()->NewDocument();
        type(document, "unsaved");
        test::ProgramEndCatcher catcher;
        test::RecordingMessageBox box;
        QVERIFY_THROWS_EXCEPTION(test::ProgramEnded,
                                 untrapped([] { raise(RuntimeError::FileNotFound); }));
        QCOMPARE(copy(1)->text, QByteArray("unsaved"));
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls[0].prompt, QString("Run-time error '53':\n\nFile not found"));
    }

    void theEmergencySaveWritesOnlyChangedDocuments()
    {
        commands()->NewDocument();
        frmDocument *typedInto = commands()->NewDocument();
        type(typedInto, "t");
        runEmergencySave();
        QVERIFY(!QFileInfo::exists(copyOf(1)));
        QCOMPARE(copy(2)->text, QByteArray("t"));
    }

    void aCleanEndLeavesNoCopiesFolder()
    {
        frmDocument *document = commands()->NewDocument();
        type(document, "x");
        m_recovery->writeAllNow();
        const QString folder = m_recovery->sessionFolder();
        QVERIFY(QFileInfo::exists(folder));
        closeAllAnswering(mb::No);
        m_frame.reset();
        QVERIFY(!QFileInfo::exists(folder));
    }

    void earlierWorkComesBackAsChangedDocumentsWithTheirCaptions()
    {
        RecoveryCopy untitled;
        untitled.caption = "Source 4";
        untitled.text = "one\ntwo";
        untitled.lineEnd = LineEnd::LF;
        RecoveryCopy titled;
        titled.caption = m_dir.filePath("kept.c");
        titled.path = titled.caption;
        titled.cSource = true;
        titled.text = "int a;\r\nint b;\nint c;";
        titled.lineEnd = LineEnd::CRLF;
        leaveEarlierCopies({untitled, titled});

        ScriptedRecoveryPrompt prompt;
        prompt.answer.action = RecoveryChoice::Recover;
        prompt.answer.selected = {0, 1};
        m_recovery->offerEarlierWork();
        QCOMPARE(prompt.offered.size(), 1);
        QCOMPARE(prompt.offered[0].size(), 2);
        QCOMPARE(prompt.offered[0][0].caption, QString("Source 4"));
        QCOMPARE(prompt.offered[0][1].path, titled.path);
        QCOMPARE(prompt.offered[0][1].bytes, titled.text.size());

        const QList<frmDocument *> docs = documents();
        QCOMPARE(docs.size(), 2);
        QCOMPARE(docs[0]->caption(), QString("Source 4"));
        QCOMPARE(docs[0]->code()->fileText(), QString("one\ntwo"));
        QVERIFY(docs[0]->changed());
        QVERIFY(docs[0]->code()->Modified());
        QCOMPARE(docs[1]->caption(), titled.caption);
        QVERIFY(docs[1]->ccode);
        QCOMPARE(docs[1]->code()->fileText(), QString("int a;\r\nint b;\nint c;"));
        // New lines get the kind the document had.
        docs[0]->code()->setSelStart(docs[0]->code()->CharacterCount());
        QTest::keyClick(docs[0]->code()->hWnd(), Qt::Key_Return);
        QCOMPARE(docs[0]->code()->fileText(), QString("one\ntwo\n"));

        // The copies now belong to this session; the earlier ones are gone.
        QCOMPARE(copy(1)->caption, QString("Source 4"));
        QCOMPARE(copy(2)->caption, titled.caption);
        recovery::EarlierSessions earlier(m_root);
        QVERIFY(earlier.copies().isEmpty());

        // Closing a recovered document asks, as for any changed document.
        test::RecordingMessageBox box;
        box.answers = {mb::No, mb::No};
        m_frame->mdiArea()->closeAllSubWindows();
        QCOMPARE(box.calls.size(), 2);
    }

    void onlyTheSelectedDocumentsComeBack()
    {
        RecoveryCopy a, b;
        a.caption = "Source 1";
        b.caption = "Source 2";
        leaveEarlierCopies({a, b});
        ScriptedRecoveryPrompt prompt;
        prompt.answer.action = RecoveryChoice::Recover;
        prompt.answer.selected = {1};
        m_recovery->offerEarlierWork();
        QCOMPARE(documents().size(), 1);
        QCOMPARE(documents()[0]->caption(), QString("Source 2"));
        recovery::EarlierSessions earlier(m_root);
        QVERIFY(earlier.copies().isEmpty());
    }

    void discardGivesEverythingUpAndLaterKeepsIt()
    {
        RecoveryCopy a;
        a.caption = "Source 1";
        leaveEarlierCopies({a});
        ScriptedRecoveryPrompt prompt;
        prompt.answer.action = RecoveryChoice::Later;
        m_recovery->offerEarlierWork();
        QVERIFY(documents().isEmpty());
        prompt.answer.action = RecoveryChoice::Discard;
        m_recovery->offerEarlierWork();
        QCOMPARE(prompt.offered.size(), 2);
        QVERIFY(documents().isEmpty());
        m_recovery->offerEarlierWork();
        QCOMPARE(prompt.offered.size(), 2); // nothing left to offer
    }

    void nothingIsOfferedWithoutEarlierWork()
    {
        ScriptedRecoveryPrompt prompt;
        m_recovery->offerEarlierWork();
        QVERIFY(prompt.offered.isEmpty());
        QVERIFY(documents().isEmpty());
    }

    void theDialogListsEveryDocumentTickedAndReportsTheChoice()
    {
        const QVector<RecoveryOffer> offers{{"Source 1", QString(), 4}, {"/a/b.c", "/a/b.c", 9}};
        {
            frmRecover dialog(offers);
            auto *list = dialog.findChild<QListWidget *>("lstDocuments");
            QCOMPARE(list->count(), 2);
            QCOMPARE(list->item(1)->checkState(), Qt::Checked);
            QVERIFY(list->item(1)->text().startsWith("/a/b.c"));
            list->item(0)->setCheckState(Qt::Unchecked);
            dialog.findChild<QPushButton *>("cmdRecover")->click();
            QCOMPARE(dialog.choice().action, RecoveryChoice::Recover);
            QCOMPARE(dialog.choice().selected, QVector<int>{1});
        }
        {
            frmRecover dialog(offers);
            dialog.findChild<QPushButton *>("cmdDiscard")->click();
            QCOMPARE(dialog.choice().action, RecoveryChoice::Discard);
        }
        {
            frmRecover dialog(offers);
            dialog.reject(); // Escape or the close box
            QCOMPARE(dialog.choice().action, RecoveryChoice::Later);
        }
    }

    void theDialogShowsEachDocumentsWholePath()
    {
        const QString usual = "/home/modder/mods/samplemod/game/g_main.c";
        const QString deep = "/home/modder/projects/quake3/mods/a-rather-long-mod-name/source/"
                             "code/cgame/cg_weapons_and_effects_of_the_new_rail_gun.c";
        const QVector<RecoveryOffer> offers{{usual, usual, 12345}, {deep, deep, 9}};
        frmRecover dialog(offers);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        auto *list = dialog.findChild<QListWidget *>("lstDocuments");
        // The usual path fits whole.
        const QRect row = list->visualItemRect(list->item(0));
        QVERIFY2(row.width() >= list->fontMetrics().horizontalAdvance(list->item(0)->text()) + 20,
                 qPrintable(QString::number(row.width())));
        // A longer one keeps its file name (its middle goes) and is whole in the tooltip.
        QCOMPARE(list->textElideMode(), Qt::ElideMiddle);
        QCOMPARE(list->item(1)->toolTip(), deep);
        QVERIFY(list->item(1)->text().contains("cg_weapons_and_effects_of_the_new_rail_gun.c"));
        QVERIFY(dialog.width() <= dialog.screen()->availableGeometry().width());
    }
};

TESSARO_TEST_MAIN(DocumentRecoveryTest)
#include "tst_documentrecovery.moc"

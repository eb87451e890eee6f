#include "app/ui/MainWindow.h"
#include "build/ui/BuildCommands.h"
#include "platform/core/TextFile.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

void fill(FixedList<QString> &list, const QStringList &entries)
{
    list = FixedList<QString>(list.capacity());
    for (const QString &entry : entries)
        list.append(entry);
}

} // namespace

class BuildCommandsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_mod;
    QString modPath(const QString &relative) const { return m_mod.filePath(relative); }

    void openMod()
    {
        for (const char *folder : {"game", "cgame", "ui", "w"})
            QDir().mkpath(modPath(QLatin1String(folder)));
        AppState &state = app();
        state.workspace.open = true;
        fill(state.workspace.game, {modPath("game/a.c"), modPath("game/b.c"), modPath("game/c.c")});
        fill(state.workspace.cgame,
             {modPath("cgame/a.c"), modPath("cgame/b.c"), modPath("cgame/c.c")});
        fill(state.workspace.ui, {modPath("ui/a.c"), modPath("ui/b.c"), modPath("ui/c.c")});
        fill(state.workspace.source, {modPath("w/main.c")});
        state.tools.comPath = "q3lcc";
        state.tools.asmPath = "q3asm";
    }

private Q_SLOTS:
    void init() { resetApp(); }

    void eachBuildMenuItemWritesAndStartsItsScript_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("script");
        QTest::newRow("game") << "mnuBuildgameQVM"
                              << "game/tdicom.sh";
        QTest::newRow("cgame") << "mnuBuildcgameQVM"
                               << "cgame/tdicom.sh";
        QTest::newRow("ui") << "mnuBuilduiQVM"
                            << "ui/tdicom.sh";
        QTest::newRow("exe") << "mnuBuildEXE"
                             << "w/tdicom.sh";
    }
    void eachBuildMenuItemWritesAndStartsItsScript()
    {
        QFETCH(QString, item);
        QFETCH(QString, script);
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        openMod();
        MainWindow frame;
        QAction *action = frame.action(item);
        QVERIFY(action);
        action->trigger();
        QCOMPARE(shell.scripts, QStringList{modPath(script)});
        QVERIFY(QFile::exists(modPath(script)));
        QVERIFY(box.calls.isEmpty());
        // Chosen twice in quick succession: two script windows.
        action->trigger();
        QCOMPARE(shell.scripts.size(), 2);
    }

    void buildItemsWithoutAWorkspaceShowTheMessage()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        MainWindow frame;
        for (const char *item :
             {"mnuBuildgameQVM", "mnuBuildcgameQVM", "mnuBuilduiQVM", "mnuBuildQ2", "mnuBuildEXE"})
            frame.action(QLatin1String(item))->trigger();
        QCOMPARE(box.calls.size(), 5);
        for (const auto &call : box.calls) {
            QCOMPARE(call.prompt, QString("You need to have a Workspace Loaded"));
            QCOMPARE(call.style, 0);
            QCOMPARE(call.title, QString("Tessaro"));
        }
        QVERIFY(shell.scripts.isEmpty());
    }

    void theQuake2ItemShowsTheMessageEvenWithAWorkspaceOpen()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        openMod();
        textfile::writeBytes(modPath("q2game.sh"), "make\n");
        MainWindow frame;
        frame.action("mnuBuildQ2")->trigger();
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls.first().prompt, QString("You need to have a Workspace Loaded"));
        QVERIFY(shell.scripts.isEmpty());
    }

    void aScriptThatCannotBeWrittenEndsTheProgramWithTheRuntimeMessage()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        test::ProgramEndCatcher catcher;
        openMod();
        QDir(modPath("cgame")).removeRecursively();
        MainWindow frame;
        try {
            frame.action("mnuBuildcgameQVM")->trigger();
            QFAIL("the program went on");
        } catch (const test::ProgramEnded &ended) {
            QCOMPARE(ended.status, 1);
        }
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls.first().prompt, QString("Run-time error '76':\n\nPath not found"));
        QCOMPARE(box.calls.first().title, QString("Tessaro"));
    }

    void aScriptThatCannotBeStartedEndsTheProgram()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        test::ProgramEndCatcher catcher;
        openMod();
        shell.failing << modPath("game/tdicom.sh");
        MainWindow frame;
        QVERIFY_THROWS_EXCEPTION(test::ProgramEnded, frame.action("mnuBuildgameQVM")->trigger());
        QCOMPARE(box.calls.first().prompt, QString("Run-time error '53':\n\nFile not found"));
    }

    void propertiesOpensTheWindowWithoutWaitingAndOnlyOnce()
    {
        MainWindow frame;
        frame.show();
        auto *commands = frame.findChild<BuildCommands *>("BuildCommands");
        QVERIFY(commands);
        QVERIFY(!commands->properties());
        frame.action("mnuFileProperties")->trigger();
        frmProps *props = commands->properties();
        QVERIFY(props);
        QVERIFY(props->isVisible());
        QVERIFY(!props->isModal());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        // The main window stays usable and a second choice shows the same window.
        frame.action("mnuFileProperties")->trigger();
        QCOMPARE(commands->properties(), props);
        QCOMPARE(frame.findChildren<frmProps *>().size(), 1);
    }

    void theToolbarsPropertiesButtonOpensTheWindow()
    {
        MainWindow frame;
        frame.show();
        QAction *button = frame.findChild<QAction *>("cToolbar1_Properties");
        QVERIFY(button);
        button->trigger();
        auto *commands = frame.findChild<BuildCommands *>("BuildCommands");
        QVERIFY(commands->properties());
        QVERIFY(commands->properties()->isVisible());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

    void aBuildNeitherShowsNorFillsTheOutputPane()
    {
        test::RecordingShell shell;
        openMod();
        MainWindow frame;
        frame.show();
        QWidget *pane = frame.findChild<QWidget *>("Picture3");
        auto *list = frame.findChild<QListWidget *>("lstOut");
        QAction *viewOutput = frame.action("mnuViewOutput");
        QVERIFY(pane && list && viewOutput);
        const bool shownAtStart = pane->isVisible();
        frame.action("mnuBuildgameQVM")->trigger();
        QCOMPARE(pane->isVisible(), shownAtStart);
        QCOMPARE(list->count(), 0);
        QVERIFY(!viewOutput->isChecked());

        // Only the View menu's check mark moves the pane: first it checks (pane stays),
        // then it hides the pane; a build changes neither.
        viewOutput->trigger();
        viewOutput->trigger();
        QVERIFY(!viewOutput->isChecked());
        QVERIFY(!pane->isVisible());
        frame.action("mnuBuildEXE")->trigger();
        frame.action("mnuBuildcgameQVM")->trigger();
        QVERIFY(!pane->isVisible());
        QVERIFY(!viewOutput->isChecked());
        QCOMPARE(list->count(), 0);
        QCOMPARE(shell.scripts.size(), 3);
    }

    void eachOpeningReloadsTheBoxesFromTheSettings()
    {
        MainWindow frame;
        auto *commands = frame.findChild<BuildCommands *>("BuildCommands");
        frame.action("mnuFileProperties")->trigger();
        QPointer<frmProps> props = commands->properties();
        props->findChild<QLineEdit *>("txtftppath")->setText("typed but cancelled");
        props->close();
        QTRY_VERIFY(props.isNull());
        app().tools.comPath = "/opt/q3/q3lcc";
        frame.action("mnuFileProperties")->trigger();
        QCOMPARE(commands->properties()->findChild<QLineEdit *>("txtftppath")->text(),
                 QString("/opt/q3/q3lcc"));
    }
};

TESSARO_TEST_MAIN(BuildCommandsTest)
#include "tst_buildcommands.moc"

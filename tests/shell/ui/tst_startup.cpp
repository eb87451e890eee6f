#include "app/ui/MainWindow.h"
#include "editor/core/DynHighlight.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/RegistryStore.h"
#include "shell/core/InstanceLock.h"
#include "shell/core/InstanceServer.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "state/core/Settings.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QMap>
#include <QMdiArea>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

// Settings in memory, recording the order of reads and writes; a check can run
// before the first write.
class MemoryStore : public SettingsStore
{
public:
    QString getSetting(const QString &, const QString &, const QString &key,
                       const QString &defaultValue) override
    {
        reads << key;
        return values.value(key, defaultValue);
    }
    void saveSetting(const QString &, const QString &, const QString &key,
                     const QString &value) override
    {
        if (writes.isEmpty() && beforeFirstWrite)
            beforeFirstWrite();
        writes << key;
        values[key] = value;
    }
    QMap<QString, QString> values;
    QStringList reads, writes;
    std::function<void()> beforeFirstWrite;
};

// The event log of this test, emptied for each test function.
class EventLog
{
public:
    EventLog() : m_path(m_dir.path() + "/events")
    {
        qputenv("TESSARO_EVENT_LOG", m_path.toLocal8Bit());
    }
    ~EventLog() { qunsetenv("TESSARO_EVENT_LOG"); }
    QStringList events() const
    {
        QFile f(m_path);
        QStringList lines;
        if (f.open(QIODevice::ReadOnly))
            for (const QByteArray &line : f.readAll().split('\n'))
                if (!line.isEmpty())
                    lines << QString::fromUtf8(line.mid(line.indexOf(' ') + 1));
        return lines;
    }

private:
    QTemporaryDir m_dir;
    QString m_path;
};

// A window with everything its Load needs, in a private folder.
struct Fixture
{
    Fixture() : lock(dir.path() + "/Tessaro_APPLICATION_MUTEX")
    {
        resetApp();
        lock.acquire();
        links.lock = &lock;
        links.socketPath = dir.path() + "/Tessaro_APPLICATION";
        links.settings = &store;
    }
    QTemporaryDir dir;
    InstanceLock lock;
    MemoryStore store;
    frmMain::StartupLinks links;
    EventLog log;
};

} // namespace

class StartupTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theCaptionIsTheTitleUntilLoadAddsTheVersion()
    {
        Fixture f;
        MainWindow form;
        QCOMPARE(form.windowTitle(), QString("Tessaro"));
        form.Load(f.links);
        QCOMPARE(form.windowTitle(), QString("Tessaro v1.0"));
    }
    void loadRunsItsStepsInOrder()
    {
        Fixture f;
        f.store.values["comPath"] = "/opt/q3/q3lcc";
        MainWindow form;
        QStringList steps;
        const QString classes = RegistryStore().rootFile(reg::ClassesRoot);
        QFile::remove(classes);
        form.setLoadStep(frmMain::LoadStep::ToolbarAndBands, [&] {
            steps << "toolbar";
            QVERIFY(QFile::exists(classes));                       // step 2 before
            QCOMPARE(form.windowTitle(), QString("Tessaro v1.0")); // step 3 before
            QVERIFY(f.store.reads.isEmpty());                      // settings after
        });
        form.setLoadStep(frmMain::LoadStep::FileBrowserFolder, [&] {
            steps << "browser";
            QCOMPARE(f.store.reads.size(), 18);
            QCOMPARE(app().tools.comPath, QString("/opt/q3/q3lcc"));
            QVERIFY(!form.isMarked());
        });
        app().workspace.open = true;
        app().workspace.game.append("/x/g_main.c");
        f.links.unloadSplash = [&] {
            steps << "splash";
            QVERIFY(!app().workspace.open); // step 8 before
            QCOMPARE(app().workspace.game.count(), qint16(0));
            QVERIFY(!form.isMarked()); // step 10 after
            QCOMPARE(contactRunningCopy(f.links.socketPath, "\"/a.c\"", 2000),
                     HandOverOutcome::NoRunningCopy);
        };
        f.links.commandLine = "\"" + f.dir.path() + "/g_main.c\"";
        form.Load(f.links);
        QCOMPARE(steps, QStringList({"toolbar", "browser", "splash"}));
        QVERIFY(form.isMarked());
        const QStringList events = f.log.events();
        QVERIFY(events.indexOf("marked") >= 0);
        QVERIFY(events.indexOf("marked") < events.indexOf("open " + f.dir.path() + "/g_main.c"));
    }
    void aStartListsTheBrowsersRootOnce()
    {
        Fixture f;
        MainWindow form;
        auto *dir1 = form.findChild<QListWidget *>("Dir1");
        auto *file1 = form.findChild<QListWidget *>("File1");
        QVERIFY(dir1 && file1);
        // Each filling of a list empties its model first.
        QSignalSpy dirFills(dir1->model(), &QAbstractItemModel::modelReset);
        QSignalSpy fileFills(file1->model(), &QAbstractItemModel::modelReset);
        QCOMPARE(dir1->count(), 0); // building the window reads no folder
        form.Load(f.links);
        QCOMPARE(dirFills.count(), 1);
        QCOMPARE(fileFills.count(), 1);
        QCOMPARE(dir1->property("Path").toString(), QString("/"));
        QCOMPARE(file1->property("Path").toString(), QString("/"));
        QCOMPARE(dir1->item(0)->text(), QString("/"));
    }
    void loadGivesTheLineColourerItsStartupColours()
    {
        Fixture f;
        // Slots 5 and 6 are never set and stay black.
        for (int n = 0; n < 5; ++n)
            dynHighlight().colours.setSlot(n, 0x123456);
        MainWindow form;
        form.Load(f.links);
        QCOMPARE(dynHighlight().colours.buildTable(),
                 QString("{\\colortbl\\red0\\green0\\blue0;\\red0\\green0\\blue255;"
                         "\\red0\\green0\\blue255;\\red0\\green128\\blue0;\\red0\\green0\\blue0;"
                         "\\red0\\green0\\blue0;\\red0\\green0\\blue0;\\red0\\green0\\blue0;}"));
    }
    void aCleanAccountPlacesTheWindowAtTheDefaults()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        QCOMPARE(form.pos(), QPoint(67, 67));
        QCOMPARE(form.size(), QSize(433, 433));
        QVERIFY(form.isVisible());
        QCOMPARE(f.store.reads.mid(0, 4),
                 QStringList({"MainLeft", "MainTop", "MainWidth", "MainHeight"}));
    }
    void theStoredRectangleIsRestoredWithoutChecks()
    {
        Fixture f;
        f.store.values["MainLeft"] = "1500";
        f.store.values["MainTop"] = "-3000";
        f.store.values["MainWidth"] = "9000";
        f.store.values["MainHeight"] = "7500";
        MainWindow form;
        form.Load(f.links);
        QCOMPARE(form.pos(), QPoint(100, -200));
        QCOMPARE(form.size(), QSize(600, 500));
    }
    void aCorruptWindowValueEndsStartUpWithTypeMismatch()
    {
        Fixture f;
        f.store.values["MainLeft"] = "left";
        test::RecordingMessageBox box;
        test::ProgramEndCatcher catcher;
        MainWindow form;
        try {
            untrapped([&] { form.Load(f.links); });
            QFAIL("start-up went on");
        } catch (const test::ProgramEnded &end) {
            QCOMPARE(end.status, 1);
        }
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls[0].prompt, QString("Run-time error '13':\n\nType mismatch"));
        QCOMPARE(box.calls[0].title, QString("Tessaro"));
        QVERIFY(f.store.writes.isEmpty());
        QVERIFY(!form.isMarked());
    }
    void aCorruptSwitchEndsStartUpToo()
    {
        Fixture f;
        f.store.values["useLnk"] = "perhaps";
        MainWindow form;
        try {
            form.Load(f.links);
            QFAIL("start-up went on");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(13));
        }
    }
    void closingReleasesTheLockBeforeTheSettingsAreWritten()
    {
        Fixture f;
        MainWindow form;
        int ended = 0;
        f.links.ended = [&] { ++ended; };
        form.Load(f.links);
        QVERIFY(InstanceLock::isHeld(f.lock.path()));
        bool heldAtFirstWrite = true;
        bool markedAtFirstWrite = true;
        f.store.beforeFirstWrite = [&] {
            heldAtFirstWrite = InstanceLock::isHeld(f.lock.path());
            markedAtFirstWrite = form.isMarked();
        };
        QVERIFY(form.close());
        QVERIFY(!heldAtFirstWrite);
        QVERIFY(!markedAtFirstWrite);
        QCOMPARE(ended, 1);
        const QStringList events = f.log.events();
        QVERIFY(events.indexOf("released") < events.indexOf("unloaded"));
    }
    void everyValueIsWrittenAtEveryExitInItsOrder()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        QVERIFY(form.close());
        QCOMPARE(
            f.store.writes,
            QStringList({"MainLeft", "MainTop", "MainWidth", "MainHeight", "ftpPath", "webPath",
                         "emaPath", "comPath", "params", "asmPath", "lnkPath", "lnkparams",
                         "lrcPath", "lrcparams", "sufparam", "comLCC", "objOBJ", "useLnk"}));
        QCOMPARE(f.store.values["MainLeft"], QString("1000"));
        QCOMPARE(f.store.values["MainWidth"], QString("6500"));
        QCOMPARE(f.store.values["comLCC"], QString("True"));
    }
    void closingWhileMinimisedKeepsTheStoredRectangle()
    {
        Fixture f;
        f.store.values["MainLeft"] = "1500";
        MainWindow form;
        form.Load(f.links);
        app().tools.webPath = "/usr/bin/browser";
        form.move(300, 300);
        form.setWindowState(Qt::WindowMinimized);
        QVERIFY(form.close());
        QCOMPARE(f.store.writes.first(), QString("ftpPath"));
        QCOMPARE(f.store.writes.size(), 14);
        QCOMPARE(f.store.values["MainLeft"], QString("1500"));
        QCOMPARE(f.store.values["webPath"], QString("/usr/bin/browser"));
    }
    void aMovedWindowWritesItsNewPlace()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        form.move(200, 100);
        form.resize(640, 480);
        QVERIFY(form.close());
        QCOMPARE(f.store.values["MainLeft"], QString("3000"));
        QCOMPARE(f.store.values["MainTop"], QString("1500"));
        QCOMPARE(f.store.values["MainWidth"], QString("9600"));
        QCOMPARE(f.store.values["MainHeight"], QString("7200"));
    }
    void aWindowThatNeverLoadedWritesNothing()
    {
        Fixture f;
        {
            MainWindow form;
            form.show();
            QVERIFY(form.close());
        }
        QVERIFY(f.store.writes.isEmpty());
    }

    void aQuotedPathIsOpenedWithoutItsQuotes()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        const int before = int(form.mdiArea()->subWindowList().size());
        form.OpenCommandLine("\"" + f.dir.path() + "/a.c\"");
        QVERIFY(f.log.events().contains("open " + f.dir.path() + "/a.c"));
        QCOMPARE(int(form.mdiArea()->subWindowList().size()), before + 1);
    }
    void anUnquotedPathLosesItsFirstAndLastCharacter()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        form.OpenCommandLine("c:\\a.c");
        QVERIFY(f.log.events().contains("open :\\a."));
    }
    void aOneByteZeroHandOverOpensNothingButShowsTheWindow()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        form.hide();
        const int before = int(form.mdiArea()->subWindowList().size());
        QCOMPARE(contactRunningCopy(f.links.socketPath, QString(), 5000),
                 HandOverOutcome::HandedOver);
        QVERIFY(form.isVisible());
        QCOMPARE(int(form.mdiArea()->subWindowList().size()), before);
        QVERIFY(f.log.events().filter("open ").isEmpty());
        QCOMPARE(f.log.events().filter("activated").size(), 2);
    }
    void aHandedOverPathOpensInTheRunningWindow()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        QFile file(f.dir.path() + "/handed.c");
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("int x;\r\n");
        file.close();
        QCOMPARE(contactRunningCopy(f.links.socketPath, "\"" + file.fileName() + "\"", 5000),
                 HandOverOutcome::HandedOver);
        QVERIFY(f.log.events().contains("open " + file.fileName()));
        QCOMPARE(form.mdiArea()->subWindowList().size(), qsizetype(1));
    }
    void noArgumentsOnlyRestoresAndRaisesAVisibleWindow()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        form.setWindowState(Qt::WindowMinimized);
        QCOMPARE(contactRunningCopy(f.links.socketPath, QString(), 5000),
                 HandOverOutcome::Activated);
        QVERIFY(!(form.windowState() & Qt::WindowMinimized));
        QVERIFY(f.log.events().filter("open ").isEmpty());
    }
    void afterClosingTheWindowIsNoLongerFound()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        QVERIFY(form.close());
        QCOMPARE(contactRunningCopy(f.links.socketPath, "\"/a.c\"", 2000),
                 HandOverOutcome::NoRunningCopy);
    }

    void startUpRegistersTheAssociationsForThisProgram()
    {
        Fixture f;
        MainWindow form;
        form.Load(f.links);
        RegistryStore store;
        const auto command =
            store.queryValue(reg::ClassesRoot, "C.Source\\shell\\open\\command", "");
        QVERIFY(command);
        QCOMPARE(command->data, "\"" + QFile::encodeName(QCoreApplication::applicationDirPath()) +
                                    "/tessaro\" \"%1\"" + QByteArray(1, '\0'));
        QVERIFY(store.keyExists(reg::LocalMachine, "SOFTWARE\\Classes\\CPP.Source\\shell\\open"));
        QFile desktop(qEnvironmentVariable("XDG_DATA_HOME") + "/applications/tessaro.desktop");
        QVERIFY(desktop.open(QIODevice::ReadOnly));
        QVERIFY(desktop.readAll().contains(
            "Exec=\"" + QFile::encodeName(QCoreApplication::applicationFilePath()) + "\" %f"));
    }
    void aMachineRootWithoutRightsDoesNotStopStartUp()
    {
        const QByteArray saved = qgetenv("XDG_CONFIG_DIRS");
        QTemporaryDir dir;
        QFile blocker(dir.path() + "/etc");
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        blocker.close();
        qputenv("XDG_CONFIG_DIRS", (dir.path() + "/etc").toLocal8Bit());
        QFile::remove(RegistryStore().rootFile(reg::ClassesRoot));
        QFile::remove(qEnvironmentVariable("XDG_DATA_HOME") + "/applications/tessaro.desktop");
        {
            Fixture f;
            MainWindow form;
            form.Load(f.links);
            QVERIFY(form.isMarked());
            RegistryStore store;
            for (const char *section :
                 {".C", ".H", ".CPP", "C.Source\\shell\\open\\command",
                  "C.Header\\shell\\open\\command", "CPP.Source\\shell\\open\\command"})
                QVERIFY2(store.queryValue(reg::ClassesRoot, section, ""), section);
            QVERIFY(QFile::exists(qEnvironmentVariable("XDG_DATA_HOME") +
                                  "/applications/tessaro.desktop"));
        }
        qputenv("XDG_CONFIG_DIRS", saved);
    }
};

TESSARO_TEST_MAIN(StartupTest)
#include "tst_startup.moc"

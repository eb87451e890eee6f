// Runs the real program: two copies for the hand-over, a killed copy for a stale
// lock, a settings round, a corrupt setting and a copy of the program in another
// folder. Every run has its own private account folders; the program reports what it
// does through its event log (TESSARO_EVENT_LOG) and ends on SIGTERM the normal way.
#include "platform/core/RegistryStore.h"
#include "support/ProgramAccount.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace tessaro;

namespace {

const QString kProgram = QStringLiteral(TESSARO_BIN_DIR "/tessaro");
const QString kSampleMain = QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod/game/g_main.c");
const QString kSampleMath = QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod/game/q_math.c");

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

using Account = test::ProgramAccount;
using test::finishesQuietly;
using test::stop;

} // namespace

class TessaroProcessTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aSecondCopyHandsAQuotedPathToTheFirstAndShowsNothing()
    {
        Account account;
        auto first = account.start({});
        QVERIFY(account.waitForEvent("loaded"));
        QVERIFY(account.events().filter("open ").isEmpty());
        const int activations = int(account.events().count("activated"));

        auto second = account.startWithoutDisplay({kSampleMain});
        QVERIFY(finishesQuietly(*second));
        QCOMPARE(second->readAllStandardError(), QByteArray());
        QVERIFY(account.events().contains("later copy: handed over"));
        QVERIFY(account.events().contains("open " + kSampleMain));
        QCOMPARE(int(account.events().count("activated")), activations + 1); // brought to the front
        QCOMPARE(first->state(), QProcess::Running);

        QVERIFY(stop(*first));
        const QStringList documents = account.events().filter(QRegularExpression("^document "));
        QCOMPARE(documents.size(), 1);
        QVERIFY2(documents[0].endsWith("g_main.c"), qPrintable(documents[0]));
    }
    void relativePathsOpenTheFileInTheFolderTheyWereGivenIn()
    {
        Account account;
        const QString mod = QFileInfo(TESSARO_SOURCE_DIR "/examples/samplemod").canonicalFilePath();
        // The first copy's own argument, relative to the folder it starts in.
        auto first = account.start({"g_main.c"}, kProgram, {}, mod + "/game");
        QVERIFY(account.waitForEvent("loaded"));
        QVERIFY2(account.events().contains("open " + mod + "/game/g_main.c"),
                 qPrintable(account.events().join('\n')));
        // Later copies in another folder: the path is theirs, not the first copy's.
        auto second = account.startWithoutDisplay({"ui_main.c"}, mod + "/ui");
        QVERIFY(finishesQuietly(*second));
        QVERIFY(account.events().contains("open " + mod + "/ui/ui_main.c"));
        auto third = account.startWithoutDisplay({"./../cgame//cg_main.c"}, mod + "/ui");
        QVERIFY(finishesQuietly(*third));
        QVERIFY(account.events().contains("open " + mod + "/cgame/cg_main.c"));
        // A file that does not exist yet is looked for where it was named, too.
        auto fourth = account.startWithoutDisplay({"nosuch.c"}, mod + "/ui");
        QVERIFY(finishesQuietly(*fourth));
        QVERIFY(account.events().contains("open " + mod + "/ui/nosuch.c"));
        QVERIFY(stop(*first));
        const QByteArray errors = first->readAllStandardError();
        QCOMPARE(errors.count("File not found"), 1);
        QVERIFY2(errors.contains(QFile::encodeName(mod + "/ui/nosuch.c")), errors.constData());
        QCOMPARE(
            account.events().filter(QRegularExpression("^document ")),
            QStringList({"document " + mod + "/game/g_main.c", "document " + mod + "/ui/ui_main.c",
                         "document " + mod + "/cgame/cg_main.c",
                         "document " + mod + "/ui/nosuch.c - Colour Coding..."}));
    }
    void aSecondCopyWithoutArgumentsOnlyActivatesTheFirst()
    {
        Account account;
        auto first = account.start({kSampleMath});
        QVERIFY(account.waitForEvent("loaded"));
        const int activations = int(account.events().count("activated"));
        auto second = account.startWithoutDisplay({});
        QVERIFY(finishesQuietly(*second));
        QVERIFY(account.events().contains("later copy: activated"));
        QCOMPARE(int(account.events().count("activated")), activations + 1);
        QCOMPARE(account.events().filter("open ").size(), 1); // its own command line only
        QVERIFY(stop(*first));
        QCOMPARE(account.events().filter(QRegularExpression("^document ")).size(), 1);
    }
    void aSecondCopyWhileTheFirstIsStillLoadingEndsWithoutEffect()
    {
        Account account;
        auto first = account.start({});
        QVERIFY(account.waitForEvent("splash shown"));
        auto second = account.startWithoutDisplay({kSampleMain});
        QVERIFY(finishesQuietly(*second));
        QVERIFY(account.events().contains("later copy: no running copy"));
        QVERIFY(account.waitForEvent("loaded"));
        QVERIFY(account.events().filter("open ").isEmpty());
        QVERIFY(stop(*first));
    }
    void aRequestToEndWhileTheCommandLinesFileLoadsEndsTheNormalWay()
    {
        // A file large enough that its load serves the event loop between pieces:
        // SIGTERM arrives while start-up is still opening it.
        Account account;
        const QString large = account.path("large.c");
        QFile file(large);
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (int i = 0; i < 120000; ++i)
            file.write(QByteArray("int value") + QByteArray::number(i) +
                       " = 0; /* a comment to colour */\r\n");
        file.close();
        auto first = account.start({large});
        QVERIFY(account.waitForEvent("open " + large));
        QVERIFY(stop(*first));
        QVERIFY(account.events().contains("unloaded"));
    }
    void aKilledCopyLeavesALockThatTheNextStartTakesOver()
    {
        Account account;
        auto first = account.start({});
        QVERIFY(account.waitForEvent("loaded"));
        first->kill();
        QVERIFY(first->waitForFinished(10000));
        QVERIFY(QFile::exists(account.path("runtime/Tessaro_APPLICATION_MUTEX")));
        QVERIFY(QFile::exists(account.path("runtime/Tessaro_APPLICATION")));

        auto next = account.start({kSampleMain});
        QVERIFY(account.waitForEvent("loaded", 2));
        QVERIFY(account.events().contains("open " + kSampleMain));
        auto later = account.startWithoutDisplay({kSampleMath});
        QVERIFY(finishesQuietly(*later));
        QVERIFY(account.events().contains("open " + kSampleMath));
        QVERIFY(stop(*next));
        QCOMPARE(account.events().filter(QRegularExpression("^document ")).size(), 2);
    }
    void settingsSurviveARestart()
    {
        Account account;
        auto first = account.start({});
        QVERIFY(account.waitForEvent("loaded"));
        QVERIFY(stop(*first));
        QByteArray ini = readAll(account.settingsFile());
        QVERIFY(ini.contains("MainLeft=1000"));
        QVERIFY(ini.contains("comPath=c:\\quake3\\bin_nt\\lcc.exe"));
        QVERIFY(ini.contains("useLnk=True"));

        ini.replace("comPath=c:\\quake3\\bin_nt\\lcc.exe", "comPath=/opt/q3/q3lcc");
        ini.replace("MainLeft=1000", "MainLeft=1500");
        ini.replace("useLnk=True", "useLnk=False");
        ini.replace("params=\n", "params=-DSAMPLE\n");
        // Hand-written values with the characters other INI readers take apart.
        const QByteArray awkward = "ftpPath= /opt/My Apps/ftp;v2, \"x\" =#\\ \xC3\xBC \n";
        const qsizetype ftp = ini.indexOf("ftpPath=");
        QVERIFY(ftp >= 0);
        ini.replace(ftp, ini.indexOf('\n', ftp) + 1 - ftp, awkward);
        ini += "\n[Mine]\nnote=kept, as typed; really\n";
        QFile file(account.settingsFile());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(ini);
        file.close();

        auto second = account.start({});
        QVERIFY(account.waitForEvent("loaded", 2));
        QVERIFY(stop(*second));
        const QByteArray after = readAll(account.settingsFile());
        QVERIFY(after.contains("comPath=/opt/q3/q3lcc"));
        QVERIFY(after.contains("MainLeft=1500"));
        QVERIFY(after.contains("MainTop=1000"));
        QVERIFY(after.contains("useLnk=False"));
        QVERIFY(after.contains("params=-DSAMPLE"));
        QVERIFY(after.contains("asmPath=c:\\quake3\\bin_nt\\q3asm.exe"));
        QVERIFY2(after.contains(awkward), after.constData());
        QVERIFY(after.contains("[Mine]\nnote=kept, as typed; really\n"));
    }
    void aCorruptMainLeftEndsStartUpWithTypeMismatch()
    {
        Account account;
        QDir().mkpath(QFileInfo(account.settingsFile()).absolutePath());
        const QByteArray ini =
            "[Settings]\nMainLeft=left of centre\nMainTop=1000\ncomPath=/opt/lcc\n";
        QFile file(account.settingsFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(ini);
        file.close();

        auto process = account.start({kSampleMain});
        QVERIFY(process->waitForFinished(20000));
        QCOMPARE(process->exitStatus(), QProcess::NormalExit);
        QCOMPARE(process->exitCode(), 1);
        const QByteArray err = process->readAllStandardError();
        QVERIFY2(err.contains("Run-time error '13':"), err.constData());
        QVERIFY2(err.contains("Type mismatch"), err.constData());
        QCOMPARE(readAll(account.settingsFile()), ini);
        QVERIFY(!account.events().contains("marked"));
        QVERIFY(account.events().filter("open ").isEmpty());
    }
    void runningFromAnotherFolderRepointsTheDesktopAssociation()
    {
        Account account;
        auto first = account.start({});
        QVERIFY(account.waitForEvent("loaded"));
        QVERIFY(stop(*first));
        QVERIFY(readAll(account.desktopFile())
                    .contains("Exec=\"" + QFile::encodeName(kProgram) + "\" %f"));

        // The program and its data files in another folder.
        const QString other = account.path("elsewhere/bin");
        QCOMPARE(account.copyProgram("elsewhere/bin"), other + "/tessaro");
        auto moved = account.start({}, other + "/tessaro");
        QVERIFY(account.waitForEvent("loaded", 2));
        QVERIFY(stop(*moved));

        const QByteArray desktop = readAll(account.desktopFile());
        QVERIFY2(desktop.contains("Exec=\"" + QFile::encodeName(other) + "/tessaro\" %f"),
                 desktop.constData());
        QVERIFY(
            readAll(account.path("config/mimeapps.list")).contains("text/x-csrc=tessaro.desktop"));
        RegistryStore store(account.path("config/Tessaro/registry"),
                            account.path("etc-xdg/Tessaro/registry"));
        for (quint32 root : {quint32(reg::ClassesRoot), quint32(reg::LocalMachine)}) {
            const QString prefix = root == reg::LocalMachine ? "SOFTWARE\\Classes\\" : "";
            const auto command =
                store.queryValue(root, prefix + "C.Source\\shell\\open\\command", "");
            QVERIFY(command);
            QCOMPARE(command->data,
                     "\"" + QFile::encodeName(other) + "/tessaro\" \"%1\"" + QByteArray(1, '\0'));
        }
    }
};

TESSARO_CORE_TEST_MAIN(TessaroProcessTest)
#include "tst_tessaroprocess.moc"

#include "build/core/BuildCommand.h"
#include "platform/core/TextFile.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "workspace/core/WorkspaceSession.h"

#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

const QString kExamples = QStringLiteral(TESSARO_SOURCE_DIR "/examples");

// A copy of the examples in a folder whose name holds a blank and a quote, with the
// sample workspace written for it by the example's own script.
class SampleModCopy
{
public:
    SampleModCopy()
    {
        m_root = m_dir.filePath("sample's copy");
        QDirIterator it(kExamples, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString file = it.next();
            if (file.endsWith(QLatin1String(".tdi")))
                continue;
            const QString target = m_root + file.mid(kExamples.size());
            QDir().mkpath(QFileInfo(target).absolutePath());
            QFile::copy(file, target);
            QFile::setPermissions(target, QFile::permissions(file));
        }
        QProcess script;
        script.start("/bin/sh", {m_root + "/write-workspace.sh"});
        script.waitForFinished(30000);
        m_workspace = QString::fromUtf8(script.readAllStandardOutput()).trimmed();
    }
    QString mod() const { return m_root + "/samplemod"; }
    QString workspace() const { return m_workspace; }

private:
    QTemporaryDir m_dir;
    QString m_root;
    QString m_workspace;
};

// Single-quotes a path the way a shell reads it back.
QString quoted(const QString &path)
{
    QString text = path;
    return "'" + text.replace("'", "'\\''") + "'";
}

struct CliResult
{
    int status = -1;
    QByteArray out;
};

CliResult cli(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(TESSARO_BIN_DIR "/tessaro-cli"), QStringList{"build"} + arguments);
    if (!process.waitForFinished(60000))
        return {};
    return {process.exitCode(), process.readAllStandardOutput()};
}

} // namespace

class SampleModBuildTest : public QObject
{
    Q_OBJECT

    // The script a module of the sample mod gets: its shared files, then its list.
    QByteArray expectedScript(const SampleModCopy &copy, const QString &module,
                              const QStringList &shared, const QStringList &files)
    {
        const QString m = copy.mod();
        const QString compile = "q3lcc -DQ3_VM -S -Wf-target=bytecode -Wf-g -I" +
                                quoted(m + "/cgame") + " -I" + quoted(m + "/game") + " -I" +
                                quoted(m + "/ui") + " ";
        QString text = "#!/bin/sh\ncd " + quoted(m + "/" + module) + "\nmkdir vm\ncd vm\n";
        for (const QString &name : shared)
            text += compile + quoted(m + "/game/" + name) + "\n[ $? -eq 0 ] || exit 1\n";
        for (const QString &name : files)
            text += compile + quoted(m + "/" + module + "/" + name) + "\n[ $? -eq 0 ] || exit 1\n";
        text += compile + "\n[ $? -eq 0 ] || exit 1\n";
        text += "q3asm -f ../" + module + "\ncd ..\n\n";
        return text.toUtf8();
    }

private Q_SLOTS:
    void init() { resetApp(); }

    void theSampleModBuildsGiveTheExpectedScripts()
    {
        SampleModCopy copy;
        QVERIFY(QFile::exists(copy.workspace()));
        const QStringList settings = {"--set", "comPath=q3lcc", "--set", "asmPath=q3asm",
                                      "--print"};

        const CliResult game = cli(QStringList{"game", copy.workspace()} + settings);
        QCOMPARE(game.status, 0);
        QCOMPARE(game.out,
                 expectedScript(copy, "game", {},
                                {"g_main.c", "g_combat.c", "g_items.c", "bg_misc.c", "bg_pmove.c",
                                 "bg_slidemove.c", "bg_lib.c", "q_math.c", "q_shared.c"}));
        const CliResult cgame = cli(QStringList{"cgame", copy.workspace()} + settings);
        QCOMPARE(cgame.status, 0);
        QCOMPARE(cgame.out, expectedScript(copy, "cgame",
                                           {"bg_misc.c", "bg_pmove.c", "bg_slidemove.c", "bg_lib.c",
                                            "q_math.c", "q_shared.c"},
                                           {"cg_main.c", "cg_draw.c", "cg_view.c"}));
        const CliResult ui = cli(QStringList{"ui", copy.workspace()} + settings);
        QCOMPARE(ui.status, 0);
        QCOMPARE(ui.out,
                 expectedScript(copy, "ui", {"bg_misc.c", "bg_lib.c", "q_math.c", "q_shared.c"},
                                {"ui_main.c", "ui_menu.c", "ui_draw.c"}));
    }

    void theIdeWritesTheSameScriptsAsTheCommandLine()
    {
        SampleModCopy copy;
        test::RecordingShell shell;
        test::RecordingMessageBox box;
        WorkspaceSession session(app());
        session.openWorkspaceFile(copy.workspace());
        QVERIFY(app().workspace.open);
        app().tools.comPath = "/opt/q3/q3lcc";
        app().tools.asmPath = "/opt/q3/q3asm";
        const std::pair<build::Target, const char *> modules[] = {{build::Target::Game, "game"},
                                                                  {build::Target::CGame, "cgame"},
                                                                  {build::Target::UI, "ui"}};
        for (const auto &[target, name] : modules) {
            build::runBuild(target, app());
            const QString script = copy.mod() + "/" + name + "/tdicom.sh";
            QCOMPARE(shell.scripts.last(), script);
            const CliResult printed = cli({name, copy.workspace(), "--set", "comPath=/opt/q3/q3lcc",
                                           "--set", "asmPath=/opt/q3/q3asm", "--print"});
            QCOMPARE(textfile::readBytes(script), printed.out);
        }
        QVERIFY(box.calls.isEmpty());
    }

    void theSampleModScriptsCompileEveryFileAndAssembleEachModule()
    {
        SampleModCopy copy;
        // Stand-ins that check each file exists and record where they ran.
        QTemporaryDir tools;
        const QString log = tools.filePath("log");
        textfile::writeBytes(tools.filePath("q3lcc"),
                             "#!/bin/sh\nfor a in \"$@\"; do last=$a; done\n"
                             "case \"$last\" in -I*) ;; *) [ -f \"$last\" ] || exit 2;; esac\n"
                             "echo \"lcc $PWD $last\" >> \"$TOOL_LOG\"\n",
                             QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        textfile::writeBytes(tools.filePath("q3asm"),
                             "#!/bin/sh\n[ -f \"$2.q3asm\" ] || exit 2\n"
                             "echo \"asm $PWD $*\" >> \"$TOOL_LOG\"\n",
                             QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        qputenv("TOOL_LOG", log.toUtf8());
        for (const char *module : {"game", "cgame", "ui"}) {
            QFile::remove(log);
            QProcess run;
            run.setProcessChannelMode(QProcess::ForwardedChannels);
            run.start(QStringLiteral(TESSARO_BIN_DIR "/tessaro-cli"),
                      {"build", module, copy.workspace(), "--set",
                       "comPath=" + tools.filePath("q3lcc"), "--set",
                       "asmPath=" + tools.filePath("q3asm"), "--run"});
            QVERIFY(run.waitForFinished(60000));
            QCOMPARE(run.exitCode(), 0);
            const QStringList calls =
                QString::fromUtf8(textfile::readBytes(log)).split('\n', Qt::SkipEmptyParts);
            const QString vm = copy.mod() + "/" + module + "/vm";
            QCOMPARE(calls.last(), "asm " + vm + " -f ../" + module);
            for (const QString &call : calls)
                QVERIFY2(call.startsWith("lcc " + vm + " ") || call == calls.last(),
                         qPrintable(call));
            QVERIFY(QFileInfo(vm).isDir());
        }
        qunsetenv("TOOL_LOG");
    }
};

TESSARO_CORE_TEST_MAIN(SampleModBuildTest)
#include "tst_samplemodbuild.moc"

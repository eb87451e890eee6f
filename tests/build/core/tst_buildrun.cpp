#include "build/core/BuildCommand.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/TextFile.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"

#include <QProcess>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace tessaro;
using namespace tessaro::build;

namespace {

void fill(FixedList<QString> &list, const QStringList &entries)
{
    list = FixedList<QString>(list.capacity());
    for (const QString &entry : entries)
        list.append(entry);
}

// One call of a stand-in tool: its name, the folder it ran in and its arguments.
struct ToolCall
{
    QString tool;
    QString folder;
    QStringList arguments;
};

// Stand-in lcc, q3asm, lcclnk and lrc: each records its call in a log (fields
// separated by US, records by RS, so arguments may hold line ends), waits while
// $GATE names a file that does not exist yet, and fails when its last argument ends
// with the text in $FAIL_ON.
class StandInTools
{
public:
    StandInTools()
    {
        QDir().mkpath(folder());
        for (const char *name : {"lcc", "q3asm", "lcclnk", "lrc"}) {
            const QString path = tool(QLatin1String(name));
            textfile::writeBytes(
                path,
                "#!/bin/sh\n"
                "{ printf '%s' \"$(basename \"$0\")\"; printf '\\037%s' \"$PWD\" \"$@\"; "
                "printf '\\036'; } >> \"$TOOL_LOG\"\n"
                "for last in \"$@\"; do :; done\n"
                "i=0; while [ -n \"$GATE\" ] && [ ! -e \"$GATE\" ] && [ $i -lt 400 ]; do "
                "sleep 0.05; i=$((i+1)); done\n"
                "if [ -n \"$FAIL_ON\" ]; then case \"$last\" in *\"$FAIL_ON\") exit 3;; esac; fi\n"
                "exit 0\n",
                QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        }
    }
    QString folder() const { return m_dir.filePath("tools"); }
    QString tool(const QString &name) const { return folder() + QLatin1Char('/') + name; }
    QString log() const { return m_dir.filePath("calls.log"); }

    QList<ToolCall> calls() const
    {
        QList<ToolCall> result;
        if (!QFile::exists(log()))
            return result;
        const QString text = QString::fromUtf8(textfile::readBytes(log()));
        for (const QString &record : text.split(QChar(0x1e), Qt::SkipEmptyParts)) {
            QStringList fields = record.split(QChar(0x1f));
            ToolCall call;
            call.tool = fields.takeFirst();
            call.folder = fields.takeFirst();
            call.arguments = fields;
            result << call;
        }
        return result;
    }

    // Runs a script with /bin/sh from the given folder; returns its exit status.
    int run(const QString &script, const QString &from, const QString &failOn = QString(),
            QByteArray *errors = nullptr) const
    {
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("TOOL_LOG", log());
        env.insert("FAIL_ON", failOn);
        process.setProcessEnvironment(env);
        process.setWorkingDirectory(from);
        process.start("/bin/sh", {script});
        if (!process.waitForFinished(30000))
            return -1;
        if (errors)
            *errors = process.readAllStandardError();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

private:
    QTemporaryDir m_dir;
};

const QStringList kQvmSwitches = {"-DQ3_VM", "-S", "-Wf-target=bytecode", "-Wf-g"};

} // namespace

class BuildRunTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_mod;

    QString modPath(const QString &relative) const { return m_mod.filePath(relative); }

    // A mod with game, cgame and ui folders in the state, and the stand-in tools set.
    void setUpMod(const StandInTools &tools)
    {
        resetApp();
        for (const char *folder : {"game", "cgame", "ui"})
            QDir().mkpath(modPath(QLatin1String(folder)));
        AppState &state = app();
        state.workspace.open = true;
        state.workspace.path = modPath("mod.tdi");
        fill(state.workspace.game,
             {modPath("game/g_main.c"), modPath("game/g_cmds.c"), modPath("game/g_combat.c")});
        fill(state.workspace.cgame,
             {modPath("cgame/cg_main.c"), modPath("cgame/cg_draw.c"), modPath("cgame/cg_view.c")});
        fill(state.workspace.ui,
             {modPath("ui/ui_main.c"), modPath("ui/ui_atoms.c"), modPath("ui/ui_shared.c")});
        state.tools.comPath = tools.tool("lcc");
        state.tools.asmPath = tools.tool("q3asm");
        state.tools.lnkPath = tools.tool("lcclnk");
        state.tools.lrcPath = tools.tool("lrc");
    }

private Q_SLOTS:
    void init()
    {
        QVERIFY(m_mod.isValid());
        QDir(m_mod.path()).removeRecursively();
        QDir().mkpath(m_mod.path());
        resetApp();
    }

    // --- starting a build ---

    void withoutAWorkspaceTheMessageAppearsAndNothingIsWritten()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        app().workspace.open = false;
        for (Target t : {Target::Game, Target::CGame, Target::UI, Target::Exe}) {
            runBuild(t, app());
            QVERIFY(!QFile::exists(modPath("game/tdicom.sh")));
        }
        QCOMPARE(box.calls.size(), 4);
        for (const auto &call : box.calls) {
            QCOMPARE(call.prompt, QString("You need to have a Workspace Loaded"));
            QCOMPARE(call.style, int(mb::OKOnly));
            QCOMPARE(call.title, QString("Tessaro"));
        }
        QVERIFY(shell.scripts.isEmpty());
        QVERIFY(QDir(modPath("cgame")).isEmpty());
    }

    void quake2AlwaysEndsWithTheMessageAsTheWorkspaceFolderStaysEmpty()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        textfile::writeBytes(modPath("q2game.sh"), "make\n");
        runBuild(Target::Quake2, app());
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls.first().prompt, QString("You need to have a Workspace Loaded"));
        QVERIFY(shell.scripts.isEmpty());
        QVERIFY(!QFile::exists(modPath("q2com.sh")));
    }

    void quake2WithAWorkspaceFolderWritesAndStartsQ2com()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        textfile::writeBytes(modPath("q2game.sh"), "make\r\n");
        app().workspaceFolder = m_mod.path();
        runBuild(Target::Quake2, app());
        QVERIFY(box.calls.isEmpty());
        QCOMPARE(shell.scripts, QStringList{modPath("q2com.sh")});
        QCOMPARE(textfile::readBytes(modPath("q2com.sh")),
                 "#!/bin/sh\ncd " + m_mod.path().toUtf8() + "\nmake\n");
    }

    void aMissingQ2gameEndsTheProgramWithFileNotFound()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        test::ProgramEndCatcher catcher;
        app().workspaceFolder = m_mod.path();
        QVERIFY_THROWS_EXCEPTION(test::ProgramEnded,
                                 untrapped([] { runBuild(Target::Quake2, app()); }));
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls.first().prompt, QString("Run-time error '53':\n\nFile not found"));
        QVERIFY(shell.scripts.isEmpty());
    }

    void aBuildWritesAnExecutableScriptAndStartsIt()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        // An older script without execute permission is replaced, mode and all.
        const QString script = modPath("game/tdicom.sh");
        textfile::writeBytes(script, "old\r\n", QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        runBuild(Target::Game, app());
        QCOMPARE(shell.scripts, QStringList{script});
        QVERIFY(box.calls.isEmpty());
        struct stat info = {};
        QCOMPARE(::stat(QFile::encodeName(script).constData(), &info), 0);
        QCOMPARE(int(info.st_mode & 07777), 0755);
        const QByteArray bytes = textfile::readBytes(script);
        QVERIFY(bytes.startsWith("#!/bin/sh\ncd " + modPath("game").toUtf8() + "\n"));
        QVERIFY(!bytes.contains('\r'));
        // Nothing ran: the build only starts the script.
        QVERIFY(tools.calls().isEmpty());
        QVERIFY(!QFile::exists(modPath("game/vm")));
    }

    void buildingTwiceReplacesTheScriptAndStartsTwoWindows()
    {
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        runBuild(Target::Game, app());
        app().workspace.game.append(modPath("game/g_new.c"));
        runBuild(Target::Game, app());
        QCOMPARE(shell.scripts,
                 QStringList({modPath("game/tdicom.sh"), modPath("game/tdicom.sh")}));
        QVERIFY(textfile::readBytes(modPath("game/tdicom.sh")).contains("g_new.c"));
        // Only the script itself is left in the folder: the write leaves no temporary file.
        QCOMPARE(QDir(modPath("game")).entryList(QDir::Files), QStringList{"tdicom.sh"});
    }

    void aFullModuleListEndsTheProgramBeforeAnythingIsWritten()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        test::ProgramEndCatcher catcher;
        StandInTools tools;
        setUpMod(tools);
        for (int i = app().workspace.game.count(); i < 51; ++i)
            app().workspace.game.append(modPath(QStringLiteral("game/f%1.c").arg(i)));
        try {
            untrapped([] { runBuild(Target::Game, app()); });
            QFAIL("the program went on");
        } catch (const test::ProgramEnded &ended) {
            QCOMPARE(ended.status, 1);
        }
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls.first().prompt,
                 QString("Run-time error '9':\n\nSubscript out of range"));
        QVERIFY(!QFile::exists(modPath("game/tdicom.sh")));
        QVERIFY(shell.scripts.isEmpty());
    }

    void aScriptThatCannotBeWrittenEndsTheProgram()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        test::ProgramEndCatcher catcher;
        StandInTools tools;
        setUpMod(tools);
        QDir(modPath("ui")).removeRecursively();
        QVERIFY_THROWS_EXCEPTION(test::ProgramEnded,
                                 untrapped([] { runBuild(Target::UI, app()); }));
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls.first().prompt, QString("Run-time error '76':\n\nPath not found"));
        QVERIFY(shell.scripts.isEmpty());
    }

    void aScriptThatCannotBeStartedEndsTheProgram()
    {
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        test::ProgramEndCatcher catcher;
        StandInTools tools;
        setUpMod(tools);
        shell.failing << modPath("cgame/tdicom.sh");
        QVERIFY_THROWS_EXCEPTION(test::ProgramEnded,
                                 untrapped([] { runBuild(Target::CGame, app()); }));
        QCOMPARE(box.calls.first().prompt, QString("Run-time error '53':\n\nFile not found"));
        // The script was written before the start failed.
        QVERIFY(QFile::exists(modPath("cgame/tdicom.sh")));
    }

    void aBuildStartsItsScriptInATerminalAndReturnsAtOnce()
    {
        StandInTools tools;
        setUpMod(tools);
        // A stand-in terminal: notes the folder it was started in, then runs the command.
        QTemporaryDir terminalDir;
        const QString terminal = terminalDir.filePath("term");
        const QString terminalLog = terminalDir.filePath("started-in");
        textfile::writeBytes(
            terminal,
            "#!/bin/sh\npwd > \"$TERMINAL_LOG.tmp\"\n"
            "mv \"$TERMINAL_LOG.tmp\" \"$TERMINAL_LOG\"\nexec \"$@\" < /dev/null\n",
            QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const QString gate = terminalDir.filePath("gate");
        qputenv("TESSARO_TERMINAL", terminal.toUtf8());
        qputenv("TERMINAL_LOG", terminalLog.toUtf8());
        qputenv("TOOL_LOG", tools.log().toUtf8());
        qputenv("GATE", gate.toUtf8());

        runBuild(Target::Game, app());
        // The command returned while the compiler still waits at the gate.
        QVERIFY(tools.calls().size() <= 1);
        textfile::writeBytes(gate, "open");
        QTRY_VERIFY_WITH_TIMEOUT(tools.calls().size() == 5, 20000);
        QCOMPARE(tools.calls().last().tool, QString("q3asm"));
        QCOMPARE(tools.calls().last().folder, modPath("game/vm"));
        // No working folder was given: the terminal started where the program runs.
        QTRY_VERIFY(QFile::exists(terminalLog));
        QCOMPARE(QString::fromUtf8(textfile::readBytes(terminalLog)).trimmed(),
                 QDir::current().canonicalPath());
        for (const char *name : {"TESSARO_TERMINAL", "TERMINAL_LOG", "TOOL_LOG", "GATE"})
            qunsetenv(name);
    }

    // --- running the generated scripts ---

    void gameScriptCompilesEveryFileInOrderThenAssemblesFromVm()
    {
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        runBuild(Target::Game, app());
        QCOMPARE(tools.run(modPath("game/tdicom.sh"), QDir::tempPath()), 0);

        const QList<ToolCall> calls = tools.calls();
        QCOMPARE(calls.size(), 5);
        const QStringList includes = {"-I" + modPath("cgame"), "-I" + modPath("game"),
                                      "-I" + modPath("ui")};
        const QStringList files = {modPath("game/g_main.c"), modPath("game/g_cmds.c"),
                                   modPath("game/g_combat.c")};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(calls.at(i).tool, QString("lcc"));
            QCOMPARE(calls.at(i).folder, modPath("game/vm"));
            QCOMPARE(calls.at(i).arguments, kQvmSwitches + includes + QStringList{files.at(i)});
        }
        // The empty entry after the files: the compiler sees no file at all.
        QCOMPARE(calls.at(3).arguments, kQvmSwitches + includes);
        QCOMPARE(calls.at(4).tool, QString("q3asm"));
        QCOMPARE(calls.at(4).folder, modPath("game/vm"));
        QCOMPARE(calls.at(4).arguments, QStringList({"-f", "../game"}));
        QVERIFY(QFileInfo(modPath("game/vm")).isDir());
    }

    void theScriptEndsBackInTheModuleFolder()
    {
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        runBuild(Target::UI, app());
        // Sourcing the script shows where its last line leaves the shell.
        QProcess process;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("TOOL_LOG", tools.log());
        process.setProcessEnvironment(env);
        process.start("/bin/sh", {"-c", ". \"$1\"; pwd", "sh", modPath("ui/tdicom.sh")});
        QVERIFY(process.waitForFinished(30000));
        QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()).trimmed(),
                 QFileInfo(modPath("ui")).canonicalFilePath());
        QVERIFY(textfile::readBytes(modPath("ui/tdicom.sh")).endsWith("\ncd ..\n\n"));
    }

    void cgameAndUiScriptsCompileTheSharedFilesFirst()
    {
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        runBuild(Target::CGame, app());
        QCOMPARE(tools.run(modPath("cgame/tdicom.sh"), QDir::tempPath()), 0);
        QStringList compiled;
        for (const ToolCall &call : tools.calls())
            if (call.tool == QLatin1String("lcc"))
                compiled << (call.arguments.size() > 7 ? call.arguments.last() : QString());
        QCOMPARE(compiled, QStringList({modPath("game/bg_misc.c"), modPath("game/bg_pmove.c"),
                                        modPath("game/bg_slidemove.c"), modPath("game/bg_lib.c"),
                                        modPath("game/q_math.c"), modPath("game/q_shared.c"),
                                        modPath("cgame/cg_main.c"), modPath("cgame/cg_draw.c"),
                                        modPath("cgame/cg_view.c"), QString()}));
        QCOMPARE(tools.calls().last().arguments, QStringList({"-f", "../cgame"}));

        QFile::remove(tools.log());
        runBuild(Target::UI, app());
        QCOMPARE(tools.run(modPath("ui/tdicom.sh"), QDir::tempPath()), 0);
        compiled.clear();
        for (const ToolCall &call : tools.calls())
            if (call.tool == QLatin1String("lcc"))
                compiled << (call.arguments.size() > 7 ? call.arguments.last() : QString());
        QCOMPARE(compiled, QStringList({modPath("game/bg_misc.c"), modPath("game/bg_lib.c"),
                                        modPath("game/q_math.c"), modPath("game/q_shared.c"),
                                        modPath("ui/ui_main.c"), modPath("ui/ui_atoms.c"),
                                        modPath("ui/ui_shared.c"), QString()}));
        QCOMPARE(tools.calls().last().arguments, QStringList({"-f", "../ui"}));
    }

    void theScriptStopsAfterTheFirstFailedCompile()
    {
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        runBuild(Target::Game, app());
        QCOMPARE(tools.run(modPath("game/tdicom.sh"), QDir::tempPath(), "g_cmds.c"), 1);
        const QList<ToolCall> calls = tools.calls();
        QCOMPARE(calls.size(), 2);
        QCOMPARE(calls.at(0).arguments.last(), modPath("game/g_main.c"));
        QCOMPARE(calls.at(1).arguments.last(), modPath("game/g_cmds.c"));
    }

    void anExistingVmFolderOnlyDrawsAComplaint()
    {
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        runBuild(Target::Game, app());
        QVERIFY(QDir().mkpath(modPath("game/vm")));
        QByteArray errors;
        QCOMPARE(tools.run(modPath("game/tdicom.sh"), QDir::tempPath(), QString(), &errors), 0);
        QVERIFY(errors.contains("vm"));
        QCOMPARE(tools.calls().size(), 5);
        QCOMPARE(tools.calls().last().tool, QString("q3asm"));
    }

    void exeScriptRunsOnAfterAFailedCompileAndLinksEveryObject()
    {
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        QDir().mkpath(modPath("w"));
        fill(app().workspace.source, {modPath("w/main.c"), modPath("w/util.c")});
        fill(app().workspace.resources, {modPath("w/app.rc")});
        app().tools.params = "-O";
        app().tools.sufparam = "-g";
        app().tools.lnkparams = "-subsystem windows";
        runBuild(Target::Exe, app());
        QCOMPARE(shell.scripts, QStringList{modPath("w/tdicom.sh")});
        tools.run(modPath("w/tdicom.sh"), QDir::tempPath(), "main.c");
        const QList<ToolCall> calls = tools.calls();
        QCOMPARE(calls.size(), 4);
        QCOMPARE(calls.at(0).tool, QString("lcc"));
        QCOMPARE(calls.at(0).folder, modPath("w"));
        QCOMPARE(calls.at(0).arguments, QStringList({"-O", modPath("w/main.c"), "-g"}));
        QCOMPARE(calls.at(1).arguments, QStringList({"-O", modPath("w/util.c"), "-g"}));
        QCOMPARE(calls.at(2).tool, QString("lrc"));
        QCOMPARE(calls.at(2).arguments, QStringList({modPath("w/app.rc")}));
        QCOMPARE(calls.at(3).tool, QString("lcclnk"));
        QCOMPARE(calls.at(3).arguments, QStringList({"-subsystem", "windows", modPath("w/main.obj"),
                                                     modPath("w/util.obj"), modPath("w/app.res")}));
    }

    void pathsWithShellCharactersRunNoInjectedCommand()
    {
        test::RecordingShell shell;
        StandInTools tools;
        setUpMod(tools);
        const QString marker = modPath("INJECTED");
        const QString odd =
            QStringLiteral("we ird'q\"$(touch %1)`touch %1`;touch %1;$HOME").arg(marker);
        const QString game = modPath(odd + "/game");
        const QString cgame = modPath(odd + "/cg ame");
        const QString ui = modPath(odd + "/u;i");
        for (const QString &dir : {game, cgame, ui})
            QVERIFY(QDir().mkpath(dir));
        AppState &state = app();
        fill(state.workspace.game,
             {game + "/a b.c", game + "/$x;`y`\ntouch " + marker + ".c", game + "/it's.c"});
        fill(state.workspace.cgame, {cgame + "/c1.c", cgame + "/c2.c", cgame + "/c3.c"});
        fill(state.workspace.ui, {ui + "/u1.c", ui + "/u2.c", ui + "/u3.c"});
        fill(state.workspace.source, {game + "/a b.c", game + "/it's.c"});
        fill(state.workspace.resources, {game + "/r $(x).rc"});

        for (Target t : {Target::Game, Target::CGame, Target::UI, Target::Exe})
            runBuild(t, app());
        QCOMPARE(shell.scripts, QStringList({game + "/tdicom.sh", cgame + "/tdicom.sh",
                                             ui + "/tdicom.sh", game + "/tdicom.sh"}));
        // The EXE script replaced the game script; build the game again afterwards.
        QCOMPARE(tools.run(game + "/tdicom.sh", QDir::tempPath()), 0);
        runBuild(Target::Game, app());
        QCOMPARE(tools.run(game + "/tdicom.sh", QDir::tempPath()), 0);
        QCOMPARE(tools.run(cgame + "/tdicom.sh", QDir::tempPath()), 0);
        QCOMPARE(tools.run(ui + "/tdicom.sh", QDir::tempPath()), 0);
        QVERIFY(!QFile::exists(marker));

        const QList<ToolCall> calls = tools.calls();
        // EXE: two compiles, one resource, one link, each path one argument.
        QCOMPARE(calls.at(0).folder, game);
        QCOMPARE(calls.at(0).arguments, QStringList({game + "/a b.c"}));
        QCOMPARE(calls.at(1).arguments, QStringList({game + "/it's.c"}));
        QCOMPARE(calls.at(2).arguments, QStringList({game + "/r $(x).rc"}));
        QCOMPARE(calls.at(3).arguments,
                 QStringList({game + "/a b.obj", game + "/it's.obj", game + "/r $(x).res"}));
        // game: the three files with the includes intact.
        const QStringList includes = {"-I" + cgame, "-I" + game, "-I" + ui};
        QCOMPARE(calls.at(4).folder, game + "/vm");
        QCOMPARE(calls.at(4).arguments, kQvmSwitches + includes + QStringList{game + "/a b.c"});
        QCOMPARE(calls.at(5).arguments.last(), game + "/$x;`y`\ntouch " + marker + ".c");
        QCOMPARE(calls.at(6).arguments.last(), game + "/it's.c");
        QCOMPARE(calls.at(8).arguments, QStringList({"-f", "../game"}));
        // cgame's first shared file comes from the odd game folder.
        QCOMPARE(calls.at(9).folder, cgame + "/vm");
        QCOMPARE(calls.at(9).arguments.last(), game + "/bg_misc.c");
    }
};

TESSARO_CORE_TEST_MAIN(BuildRunTest)
#include "tst_buildrun.moc"

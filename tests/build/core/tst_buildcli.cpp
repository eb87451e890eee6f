#include "build/core/BuildCommand.h"
#include "platform/core/TextFile.h"
#include "state/core/Settings.h"
#include "state/core/WorkspaceState.h"
#include "support/CliRun.h"
#include "support/TestSupport.h"

#include <QProcess>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace tessaro;

namespace {

using CliResult = test::CliRun;

CliResult cli(const QStringList &arguments, const QProcessEnvironment &extra = {})
{
    return test::runCli(QStringList{"build"} + arguments, QString(), extra);
}

// Writes the user's settings store as the IDE leaves it at exit.
void storeSettings(const ToolSettings &tools)
{
    IniSettingsStore store;
    saveSettings(store, tools, std::nullopt);
}

} // namespace

class BuildCliTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString path(const QString &relative) const { return m_dir.filePath(relative); }

    // A workspace of a mod: three files per module (created, as opening scans them),
    // two sources and a resource.
    QString writeWorkspace(const QString &folder)
    {
        QByteArray text;
        auto add = [&](const char *tag, const QString &file) {
            QDir().mkpath(folder + "/" + file.section('/', 0, -2));
            textfile::writeBytes(folder + "/" + file, "int x;\n");
            text += tag + (folder + "/" + file).toUtf8() + "\r\n";
        };
        for (const char *f : {"game/g_main.c", "game/g_cmds.c", "game/g_combat.c"})
            add("GAME=", f);
        for (const char *f : {"cgame/cg_main.c", "cgame/cg_draw.c", "cgame/cg_view.c"})
            add("CAME=", f);
        for (const char *f : {"ui/ui_main.c", "ui/ui_atoms.c", "ui/ui_shared.c"})
            add("USER=", f);
        add("SOUR=", "tool/main.c");
        add("SOUR=", "tool/util.c");
        add("RESC=", "tool/app.rc");
        text += "\r\n";
        const QString workspace = folder + "/mod.tdi";
        textfile::writeBytes(workspace, text);
        return workspace;
    }

    // The lists as opening that workspace fills them.
    WorkspaceState stateOf(const QString &folder)
    {
        WorkspaceState ws;
        ws.open = true;
        for (const char *f : {"game/g_main.c", "game/g_cmds.c", "game/g_combat.c"})
            ws.game.append(folder + "/" + f);
        for (const char *f : {"cgame/cg_main.c", "cgame/cg_draw.c", "cgame/cg_view.c"})
            ws.cgame.append(folder + "/" + f);
        for (const char *f : {"ui/ui_main.c", "ui/ui_atoms.c", "ui/ui_shared.c"})
            ws.ui.append(folder + "/" + f);
        ws.source.append(folder + "/tool/main.c");
        ws.source.append(folder + "/tool/util.c");
        ws.resources.append(folder + "/tool/app.rc");
        return ws;
    }

private Q_SLOTS:
    void init()
    {
        QVERIFY(m_dir.isValid());
        QDir(m_dir.path()).removeRecursively();
        QDir().mkpath(m_dir.path());
        QFile::remove(IniSettingsStore::filePath("Tessaro"));
    }

    void printGivesTheScriptTheIdeWritesWithTheStoredSettings_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<int>("kind");
        QTest::newRow("game") << "game" << int(build::Target::Game);
        QTest::newRow("cgame") << "cgame" << int(build::Target::CGame);
        QTest::newRow("ui") << "ui" << int(build::Target::UI);
        QTest::newRow("exe") << "exe" << int(build::Target::Exe);
    }
    void printGivesTheScriptTheIdeWritesWithTheStoredSettings()
    {
        QFETCH(QString, target);
        QFETCH(int, kind);
        ToolSettings tools;
        tools.comPath = "/opt/q3/q3lcc";
        tools.asmPath = "/opt/q3/q3asm";
        tools.lnkPath = "ld";
        tools.params = "-c";
        tools.objOBJ = false;
        storeSettings(tools);
        const QString workspace = writeWorkspace(path("mod"));
        const CliResult result = cli({target, workspace, "--print"});
        QCOMPARE(result.status, 0);
        const auto expected =
            build::composeBuild(build::Target(kind), stateOf(path("mod")), tools, QString());
        QVERIFY(expected);
        QCOMPARE(result.out, expected->bytes);
        // Printing writes nothing.
        QVERIFY(!QFile::exists(expected->path));
    }

    void setOverridesTheStoredSettings()
    {
        ToolSettings tools;
        tools.comPath = "/stored/lcc";
        storeSettings(tools);
        const QString workspace = writeWorkspace(path("mod"));
        const CliResult result = cli({"game", workspace, "--set", "comPath=/over/q3lcc",
                                      "--set=asmPath=/over/q3 asm", "--print"});
        QCOMPARE(result.status, 0);
        QVERIFY(result.out.contains("\n/over/q3lcc -DQ3_VM"));
        QVERIFY(!result.out.contains("/stored/lcc"));
        QVERIFY(result.out.contains("\n/over/q3 asm -f ../game\n"));

        const CliResult exe = cli({"exe", workspace, "--set", "useLnk=False", "--set", "objOBJ=0",
                                   "--set", "lnkPath=ld", "--print"});
        QCOMPARE(exe.status, 0);
        QVERIFY(!exe.out.contains("ld "));
        QVERIFY(exe.out.endsWith("\n\n\n"));
    }

    void withoutPrintTheScriptIsWrittenWhereTheIdeWouldAndItsPathPrinted()
    {
        const QString workspace = writeWorkspace(path("mod"));
        const CliResult result = cli({"cgame", workspace});
        QCOMPARE(result.status, 0);
        const QString script = path("mod/cgame/tdicom.sh");
        QCOMPARE(result.out, script.toUtf8() + "\n");
        struct stat info = {};
        QCOMPARE(::stat(QFile::encodeName(script).constData(), &info), 0);
        QCOMPARE(int(info.st_mode & 07777), 0755);
        const auto expected = build::composeBuild(build::Target::CGame, stateOf(path("mod")),
                                                  ToolSettings(), QString());
        QCOMPARE(textfile::readBytes(script), expected->bytes);
    }

    void runRunsTheScriptInTheForegroundAndReturnsItsStatus()
    {
        // Stand-in tools that print their arguments; the compiler fails on g_cmds.c.
        QDir().mkpath(path("tools"));
        textfile::writeBytes(path("tools/lcc"),
                             "#!/bin/sh\nfor a in \"$@\"; do last=$a; done\necho \"lcc $last\"\n"
                             "case \"$last\" in *$FAIL_ON) exit 4;; esac\nexit 0\n",
                             QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        textfile::writeBytes(path("tools/q3asm"), "#!/bin/sh\necho \"q3asm $* in $PWD\"\n",
                             QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        const QString workspace = writeWorkspace(path("mod"));
        const QStringList settings = {"--set", "comPath=" + path("tools/lcc"), "--set",
                                      "asmPath=" + path("tools/q3asm")};
        QProcessEnvironment env;
        env.insert("FAIL_ON", "nothing-fails");
        CliResult result = cli(QStringList{"game", workspace, "--run"} + settings, env);
        QCOMPARE(result.status, 0);
        const QString vm = path("mod/game/vm");
        QCOMPARE(QString::fromUtf8(result.out),
                 "lcc " + path("mod/game/g_main.c") + "\nlcc " + path("mod/game/g_cmds.c") +
                     "\nlcc " + path("mod/game/g_combat.c") + "\nlcc -I" + path("mod/ui") +
                     "\nq3asm -f ../game in " + vm + "\n");

        env.insert("FAIL_ON", "g_cmds.c");
        result = cli(QStringList{"game", workspace, "--run"} + settings, env);
        QCOMPARE(result.status, 1);
        QCOMPARE(QString::fromUtf8(result.out),
                 "lcc " + path("mod/game/g_main.c") + "\nlcc " + path("mod/game/g_cmds.c") + "\n");
    }

    void aWorkspaceThatCannotBeOpenedGivesTheMessage()
    {
        const CliResult result = cli({"game", path("missing.tdi")});
        QCOMPARE(result.status, 1);
        QVERIFY(result.err.contains("You need to have a Workspace Loaded\n"));
        QVERIFY(result.err.contains("run-time error 53"));
        QVERIFY(result.out.isEmpty());
    }

    void anEmptyWorkspaceFileCannotBeOpened()
    {
        textfile::writeBytes(path("empty.tdi"), QByteArray());
        const CliResult result = cli({"exe", path("empty.tdi"), "--print"});
        QCOMPARE(result.status, 1);
        QVERIFY(result.err.contains("You need to have a Workspace Loaded\n"));
        QVERIFY(result.out.isEmpty());
    }

    void aBinaryWorkspaceOpensWithoutFilesAndPrintsTheEmptyFolderScript()
    {
        QByteArray noise;
        for (int i = 0; i < 4096; ++i)
            noise += char((i * 7919 + 13) % 256);
        textfile::writeBytes(path("noise.tdi"), noise + "\r\n");
        const CliResult result = cli({"game", path("noise.tdi"), "--print", "--set", "comPath=lcc",
                                      "--set", "asmPath=q3asm"});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, QByteArray("#!/bin/sh\ncd \nmkdir vm\ncd vm\n"
                                        "lcc -DQ3_VM -S -Wf-target=bytecode -Wf-g -I -I -I \n"
                                        "[ $? -eq 0 ] || exit 1\nq3asm -f ../game\ncd ..\n\n"));
    }

    void quake2GivesTheMessageAsTheIdeDoes()
    {
        const QString workspace = writeWorkspace(path("mod"));
        textfile::writeBytes(path("mod/q2game.sh"), "make\n");
        const CliResult result = cli({"q2", workspace});
        QCOMPARE(result.status, 1);
        QCOMPARE(result.err, QByteArray("You need to have a Workspace Loaded\n"));
        QVERIFY(!QFile::exists(path("mod/q2com.sh")));
    }

    void aFullModuleListStopsWithSubscriptOutOfRangeAndWritesNothing()
    {
        QDir().mkpath(path("mod/game"));
        QByteArray text;
        for (int i = 0; i < 51; ++i) {
            const QString file = path(QStringLiteral("mod/game/f%1.c").arg(i));
            textfile::writeBytes(file, "\n");
            text += "GAME=" + file.toUtf8() + "\r\n";
        }
        textfile::writeBytes(path("mod/full.tdi"), text + "\r\n");
        const CliResult result = cli({"game", path("mod/full.tdi")});
        QCOMPARE(result.status, 1);
        QVERIFY(result.err.contains("run-time error 9: Subscript out of range"));
        QVERIFY(!QFile::exists(path("mod/game/tdicom.sh")));
    }

    void badArgumentsAreUsageErrors_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("nothing") << QStringList{};
        QTest::newRow("no workspace") << QStringList{"game"};
        QTest::newRow("unknown target") << QStringList{"qvm", "x.tdi"};
        QTest::newRow("set without value") << QStringList{"game", "x.tdi", "--set"};
        QTest::newRow("set without equals") << QStringList{"game", "x.tdi", "--set", "comPath"};
        QTest::newRow("unknown key") << QStringList{"game", "x.tdi", "--set", "MainLeft=1"};
        QTest::newRow("bad switch") << QStringList{"game", "x.tdi", "--set", "useLnk=maybe"};
        QTest::newRow("unknown option") << QStringList{"game", "x.tdi", "--fast"};
        QTest::newRow("print and run") << QStringList{"game", "x.tdi", "--print", "--run"};
    }
    void badArgumentsAreUsageErrors()
    {
        QFETCH(QStringList, arguments);
        const CliResult result = cli(arguments);
        QCOMPARE(result.status, 2);
        QVERIFY(result.out.isEmpty());
        QVERIFY(!result.err.isEmpty());
    }

    void aBrokenSettingsStoreIsReported()
    {
        const QString ini = IniSettingsStore::filePath("Tessaro");
        QDir().mkpath(QFileInfo(ini).path());
        textfile::writeBytes(ini, "[Settings]\nuseLnk=perhaps\n");
        const CliResult result = cli({"game", writeWorkspace(path("mod")), "--print"});
        QCOMPARE(result.status, 1);
        QVERIFY(result.err.contains("run-time error 13"));
    }
};

TESSARO_CORE_TEST_MAIN(BuildCliTest)
#include "tst_buildcli.moc"

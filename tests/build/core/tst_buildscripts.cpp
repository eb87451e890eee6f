#include "build/core/BuildCommand.h"
#include "build/core/ExeBuild.h"
#include "build/core/Quake2Build.h"
#include "build/core/QvmBuild.h"
#include "build/core/ShellWord.h"
#include "platform/core/TextFile.h"
#include "state/core/Settings.h"
#include "state/core/WorkspaceState.h"
#include "support/TestSupport.h"

#include <QTemporaryDir>

using namespace tessaro;
using namespace tessaro::build;

namespace {

// Replaces the list by a fresh one holding exactly the entries.
void fill(FixedList<QString> &list, const QStringList &entries)
{
    list = FixedList<QString>(list.capacity());
    for (const QString &entry : entries)
        list.append(entry);
}

QStringList lines(const Script &script)
{
    return QString::fromUtf8(script.bytes).split(QLatin1Char('\n'));
}

const QString kCompile = QStringLiteral(" -DQ3_VM -S -Wf-target=bytecode -Wf-g -I");
const QString kStop = QStringLiteral("[ $? -eq 0 ] || exit 1");

// The three module lists of a usual mod under /mod.
WorkspaceState modWorkspace()
{
    WorkspaceState ws;
    ws.open = true;
    fill(ws.game, {"/mod/game/g_main.c", "/mod/game/g_cmds.c", "/mod/game/g_combat.c"});
    fill(ws.cgame, {"/mod/cgame/cg_main.c", "/mod/cgame/cg_draw.c", "/mod/cgame/cg_view.c"});
    fill(ws.ui, {"/mod/ui/ui_main.c", "/mod/ui/ui_atoms.c", "/mod/ui/ui_shared.c"});
    return ws;
}

ToolSettings q3Tools()
{
    ToolSettings tools;
    tools.comPath = "q3lcc";
    tools.asmPath = "q3asm";
    return tools;
}

} // namespace

class BuildScriptsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void plainPathsStandAsTheyAre()
    {
        QCOMPARE(shellWord("/mod/game/g_main.c"), QString("/mod/game/g_main.c"));
        QCOMPARE(shellWord("A-Za-z0-9_./+,:=@%-"), QString("A-Za-z0-9_./+,:=@%-"));
        QCOMPARE(shellWord(""), QString(""));
    }
    void unusualPathsAreSingleQuoted_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("word");
        QTest::newRow("blank") << "/my mod/g.c"
                               << "'/my mod/g.c'";
        QTest::newRow("quote") << "/it's/g.c"
                               << "'/it'\\''s/g.c'";
        QTest::newRow("double quote") << "/a\"b"
                                      << "'/a\"b'";
        QTest::newRow("dollar") << "/$HOME/g.c"
                                << "'/$HOME/g.c'";
        QTest::newRow("backquote") << "/`id`/g.c"
                                   << "'/`id`/g.c'";
        QTest::newRow("semicolon") << "/a;rm x"
                                   << "'/a;rm x'";
        QTest::newRow("non-ascii")
            << QString::fromUtf8("/m\u00f6d") << QString::fromUtf8("'/m\u00f6d'");
        QTest::newRow("line feed") << "/a\nrm x"
                                   << "'/a\nrm x'";
        QTest::newRow("tilde") << "~/g.c"
                               << "'~/g.c'";
        QTest::newRow("only a quote") << "'"
                                      << "''\\'''";
    }
    void unusualPathsAreSingleQuoted()
    {
        QFETCH(QString, path);
        QFETCH(QString, word);
        QCOMPARE(shellWord(path), word);
    }
    void trimBlanksRemovesOnlyBlanks()
    {
        QCOMPARE(trimBlanks("  /a b  "), QString("/a b"));
        QCOMPARE(trimBlanks("\t/a\t"), QString("\t/a\t"));
        QCOMPARE(trimBlanks("   "), QString());
    }

    // --- QVM builds ---

    void gameBuildMatchesTheWorkedExampleByteForByte()
    {
        WorkspaceState ws;
        ws.open = true;
        fill(ws.game,
             {"/Q3/src/game/g_main.c", "/Q3/src/game/g_cmds.c", "/Q3/src/game/g_combat.c"});
        fill(ws.cgame,
             {"/Q3/src/cgame/cg_main.c", "/Q3/src/cgame/cg_draw.c", "/Q3/src/cgame/cg_view.c"});
        fill(ws.ui, {"/Q3/src/ui/ui_atoms.c", "/Q3/src/ui/ui_gameinfo.c", "/Q3/src/ui/ui_main.c"});
        ToolSettings tools;
        tools.comPath = "/quake3/bin/lcc";
        tools.asmPath = "/quake3/bin/q3asm";

        const Script script = composeQvmScript(QvmModule::Game, ws, tools);
        QCOMPARE(script.path, QString("/Q3/src/game/tdicom.sh"));
        const QByteArray expected =
            "#!/bin/sh\n"
            "cd /Q3/src/game\n"
            "mkdir vm\n"
            "cd vm\n"
            "/quake3/bin/lcc -DQ3_VM -S -Wf-target=bytecode -Wf-g -I/Q3/src/cgame -I/Q3/src/game "
            "-I/Q3/src/ui /Q3/src/game/g_main.c\n"
            "[ $? -eq 0 ] || exit 1\n"
            "/quake3/bin/lcc -DQ3_VM -S -Wf-target=bytecode -Wf-g -I/Q3/src/cgame -I/Q3/src/game "
            "-I/Q3/src/ui /Q3/src/game/g_cmds.c\n"
            "[ $? -eq 0 ] || exit 1\n"
            "/quake3/bin/lcc -DQ3_VM -S -Wf-target=bytecode -Wf-g -I/Q3/src/cgame -I/Q3/src/game "
            "-I/Q3/src/ui /Q3/src/game/g_combat.c\n"
            "[ $? -eq 0 ] || exit 1\n"
            "/quake3/bin/lcc -DQ3_VM -S -Wf-target=bytecode -Wf-g -I/Q3/src/cgame -I/Q3/src/game "
            "-I/Q3/src/ui \n"
            "[ $? -eq 0 ] || exit 1\n"
            "/quake3/bin/q3asm -f ../game\n"
            "cd ..\n"
            "\n";
        QCOMPARE(script.bytes, expected);
    }

    void cgameCompilesTheSharedGameFilesFirst()
    {
        const Script script = composeQvmScript(QvmModule::CGame, modWorkspace(), q3Tools());
        QCOMPARE(script.path, QString("/mod/cgame/tdicom.sh"));
        const QStringList l = lines(script);
        QCOMPARE(l.at(1), QString("cd /mod/cgame"));
        const QString compile = "q3lcc" + kCompile + "/mod/cgame -I/mod/game -I/mod/ui ";
        const QStringList expectedFiles = {"/mod/game/bg_misc.c",      "/mod/game/bg_pmove.c",
                                           "/mod/game/bg_slidemove.c", "/mod/game/bg_lib.c",
                                           "/mod/game/q_math.c",       "/mod/game/q_shared.c",
                                           "/mod/cgame/cg_main.c",     "/mod/cgame/cg_draw.c",
                                           "/mod/cgame/cg_view.c",     ""};
        for (int i = 0; i < expectedFiles.size(); ++i) {
            QCOMPARE(l.at(4 + 2 * i), compile + expectedFiles.at(i));
            QCOMPARE(l.at(5 + 2 * i), kStop);
        }
        QCOMPARE(l.at(24), QString("q3asm -f ../cgame"));
        QCOMPARE(l.at(25), QString("cd .."));
        QCOMPARE(l.mid(26), QStringList({"", ""}));
    }

    void uiCompilesItsFourSharedFilesFirst()
    {
        const Script script = composeQvmScript(QvmModule::UI, modWorkspace(), q3Tools());
        QCOMPARE(script.path, QString("/mod/ui/tdicom.sh"));
        const QStringList l = lines(script);
        const QString compile = "q3lcc" + kCompile + "/mod/cgame -I/mod/game -I/mod/ui ";
        const QStringList expectedFiles = {"/mod/game/bg_misc.c", "/mod/game/bg_lib.c",
                                           "/mod/game/q_math.c",  "/mod/game/q_shared.c",
                                           "/mod/ui/ui_main.c",   "/mod/ui/ui_atoms.c",
                                           "/mod/ui/ui_shared.c", ""};
        for (int i = 0; i < expectedFiles.size(); ++i)
            QCOMPARE(l.at(4 + 2 * i), compile + expectedFiles.at(i));
        QCOMPARE(l.at(20), QString("q3asm -f ../ui"));
        QCOMPARE(l.at(21), QString("cd .."));
    }

    void gameCompilesNoSharedFiles()
    {
        const QStringList l = lines(composeQvmScript(QvmModule::Game, modWorkspace(), q3Tools()));
        QCOMPARE(l.at(4),
                 "q3lcc" + kCompile + "/mod/cgame -I/mod/game -I/mod/ui /mod/game/g_main.c");
        QCOMPARE(l.filter("bg_").size(), 0);
    }

    void foldersComeFromTheThirdEntryOfEachList()
    {
        WorkspaceState ws = modWorkspace();
        fill(ws.game, {"/first/g_main.c", "/second/g_cmds.c", " /third/game/g_combat.c  "});
        fill(ws.cgame, {"/x/a.c", "/y/b.c", "/cg folder/c.c", "/z/d.c"});
        const Script script = composeQvmScript(QvmModule::Game, ws, q3Tools());
        QCOMPARE(script.path, QString("/third/game/tdicom.sh"));
        const QStringList l = lines(script);
        QCOMPARE(l.at(1), QString("cd /third/game"));
        QCOMPARE(l.at(4),
                 "q3lcc" + kCompile + "'/cg folder' -I/third/game -I/mod/ui /first/g_main.c");
        // Entries are used as stored, not trimmed: the blanks make the path a quoted word.
        QCOMPARE(l.at(8), "q3lcc" + kCompile +
                              "'/cg folder' -I/third/game -I/mod/ui ' /third/game/g_combat.c  '");
    }

    void moduleListsWithFewerThanThreeFilesLeaveTheFolderEmpty_data()
    {
        QTest::addColumn<int>("files");
        QTest::newRow("0 files") << 0;
        QTest::newRow("1 file") << 1;
        QTest::newRow("2 files") << 2;
    }
    void moduleListsWithFewerThanThreeFilesLeaveTheFolderEmpty()
    {
        QFETCH(int, files);
        WorkspaceState ws = modWorkspace();
        QStringList entries;
        for (int i = 0; i < files; ++i)
            entries << QStringLiteral("/mod/cgame/f%1.c").arg(i);
        fill(ws.cgame, entries);
        const Script script = composeQvmScript(QvmModule::CGame, ws, q3Tools());
        // The script lands in the root folder.
        QCOMPARE(script.path, QString("/tdicom.sh"));
        const QStringList l = lines(script);
        QCOMPARE(l.at(0), QString("#!/bin/sh"));
        QCOMPARE(l.at(1), QString("cd "));
        // A bare -I in every compile line, the shared files under the game folder.
        QCOMPARE(l.at(4), "q3lcc" + kCompile + " -I/mod/game -I/mod/ui /mod/game/bg_misc.c");
        // n files give n + 1 lines of the module's own.
        for (int i = 0; i <= files; ++i)
            QCOMPARE(l.at(16 + 2 * i), "q3lcc" + kCompile + " -I/mod/game -I/mod/ui " +
                                           (i < files ? entries.at(i) : QString()));
        QCOMPARE(l.at(16 + 2 * (files + 1)), QString("q3asm -f ../cgame"));

        // The other modules see an empty cgame folder as a bare -I too.
        const QStringList game = lines(composeQvmScript(QvmModule::Game, ws, q3Tools()));
        QCOMPARE(game.at(4), "q3lcc" + kCompile + " -I/mod/game -I/mod/ui /mod/game/g_main.c");
    }

    void aListOfNFilesGivesNPlusOneCompileLines_data()
    {
        QTest::addColumn<int>("files");
        for (int n : {0, 1, 3, 10, 50})
            QTest::addRow("%d files", n) << n;
    }
    void aListOfNFilesGivesNPlusOneCompileLines()
    {
        QFETCH(int, files);
        WorkspaceState ws = modWorkspace();
        QStringList entries;
        for (int i = 0; i < files; ++i)
            entries << QStringLiteral("/mod/game/f%1.c").arg(i);
        fill(ws.game, entries);
        const QStringList l = lines(composeQvmScript(QvmModule::Game, ws, q3Tools()));
        const QStringList compiles = l.filter(QRegularExpression("^q3lcc "));
        QCOMPARE(compiles.size(), files + 1);
        QVERIFY(compiles.last().endsWith(QLatin1String(" -I/mod/ui ")));
        QCOMPARE(l.filter(kStop).size(), files + 1);
    }

    void theExtraLineCompilesOlderTextLeftAboveTheCount()
    {
        WorkspaceState ws = modWorkspace();
        ws.game.set(3, "/mod/game/removed.c");
        const QStringList l = lines(composeQvmScript(QvmModule::Game, ws, q3Tools()));
        QCOMPARE(l.at(10),
                 "q3lcc" + kCompile + "/mod/cgame -I/mod/game -I/mod/ui /mod/game/removed.c");
    }

    void aFullModuleListRaisesSubscriptOutOfRange()
    {
        WorkspaceState ws = modWorkspace();
        for (int i = ws.ui.count(); i < 51; ++i)
            ws.ui.append(QStringLiteral("/mod/ui/f%1.c").arg(i));
        QCOMPARE(ws.ui.count(), qint16(51));
        try {
            composeQvmScript(QvmModule::UI, ws, q3Tools());
            QFAIL("no error");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(9));
        }
        // The other modules still build.
        QVERIFY(!composeQvmScript(QvmModule::Game, ws, q3Tools()).bytes.isEmpty());
    }

    void toolPathsAreWrittenExactlyAsStored()
    {
        ToolSettings tools;
        tools.comPath = " /opt/my tools/q3lcc ";
        tools.asmPath = "/opt/q3asm $X";
        const QStringList l = lines(composeQvmScript(QvmModule::Game, modWorkspace(), tools));
        QVERIFY(l.at(4).startsWith(QLatin1String(" /opt/my tools/q3lcc  -DQ3_VM")));
        QCOMPARE(l.at(12), QString("/opt/q3asm $X -f ../game"));
    }

    void theDefaultToolPathsAreWrittenAsTheyAre()
    {
        const QStringList l =
            lines(composeQvmScript(QvmModule::Game, modWorkspace(), ToolSettings()));
        QVERIFY(l.at(4).startsWith(QLatin1String("c:\\quake3\\bin_nt\\lcc.exe -DQ3_VM")));
        QCOMPARE(l.at(12), QString("c:\\quake3\\bin_nt\\q3asm.exe -f ../game"));
    }

    void scriptsUseLineFeedsOnly()
    {
        for (QvmModule m : {QvmModule::Game, QvmModule::CGame, QvmModule::UI}) {
            const Script s = composeQvmScript(m, modWorkspace(), q3Tools());
            QVERIFY(!s.bytes.contains('\r'));
            QVERIFY(s.bytes.startsWith("#!/bin/sh\n"));
            QVERIFY(s.bytes.endsWith("cd ..\n\n"));
        }
    }

    void unusualPathsAreQuotedOnEveryLine()
    {
        WorkspaceState ws;
        ws.open = true;
        const QString dir = QStringLiteral("/m o'd/$(x)`y`;z/game");
        fill(ws.game, {dir + "/a.c", dir + "/b.c", dir + "/c.c"});
        const QStringList l = lines(composeQvmScript(QvmModule::Game, ws, q3Tools()));
        QCOMPARE(l.at(1), QString("cd '/m o'\\''d/$(x)`y`;z/game'"));
        QCOMPARE(l.at(4), "q3lcc" + kCompile +
                              " -I'/m o'\\''d/$(x)`y`;z/game' -I '/m o'\\''d/$(x)`y`;z/game/a.c'");
    }

    void pathsAreWrittenInTheFileSystemEncoding()
    {
        WorkspaceState ws = modWorkspace();
        const QString dir = QString::fromUtf8("/m\u00f6d/game");
        fill(ws.game, {dir + "/a.c", dir + "/b.c", dir + "/c.c"});
        const Script s = composeQvmScript(QvmModule::Game, ws, q3Tools());
        QVERIFY(s.bytes.contains("cd '/m\xc3\xb6"
                                 "d/game'\n"));
        QCOMPARE(s.path, dir + "/tdicom.sh");
    }

    // --- EXE/DLL builds ---

    void exeBuildMatchesTheWorkedExampleByteForByte()
    {
        WorkspaceState ws;
        ws.open = true;
        fill(ws.source, {"/w/main.c", "/w/util.c"});
        fill(ws.resources, {"/w/app.rc"});
        ToolSettings tools;
        tools.comPath = "lcc";
        tools.params = "";
        tools.sufparam = "";
        tools.lrcPath = "lrc";
        tools.lrcparams = "";
        tools.lnkPath = "lcclnk";
        tools.lnkparams = "-subsystem windows";
        tools.objOBJ = true;
        tools.useLnk = true;
        const Script script = composeExeScript(ws, tools);
        QCOMPARE(script.path, QString("/w/tdicom.sh"));
        QCOMPARE(script.bytes,
                 QByteArray("#!/bin/sh\n"
                            "cd /w\n"
                            "lcc  /w/main.c \n"
                            "lcc  /w/util.c \n"
                            "lrc  /w/app.rc\n"
                            "lcclnk -subsystem windows /w/main.obj /w/util.obj /w/app.res \n"
                            "\n"));
    }

    void compilerParametersStandBeforeAndAfterTheFile()
    {
        WorkspaceState ws;
        ws.open = true;
        fill(ws.source, {"/w/main.c"});
        ToolSettings tools;
        tools.comPath = "gcc";
        tools.params = "-c -O2";
        tools.sufparam = "-o main.o";
        tools.lnkPath = "gcc";
        tools.lnkparams = "-o app";
        tools.lrcparams = "-x";
        tools.objOBJ = false;
        const QStringList l = lines(composeExeScript(ws, tools));
        QCOMPARE(l.at(2), QString("gcc -c -O2 /w/main.c -o main.o"));
        QCOMPARE(l.at(3), QString("gcc -o app /w/main.o "));
        QCOMPARE(l.mid(4), QStringList({"", ""}));
    }

    void withoutTheLinkerTheScriptEndsAfterTheLastCompileOrResourceLine()
    {
        WorkspaceState ws;
        ws.open = true;
        fill(ws.source, {"/w/main.c", "/w/util.c"});
        fill(ws.resources, {"/w/app.rc"});
        ToolSettings tools;
        tools.comPath = "lcc";
        tools.lrcPath = "lrc";
        tools.lnkPath = "lcclnk";
        tools.useLnk = false;
        QCOMPARE(
            composeExeScript(ws, tools).bytes,
            QByteArray("#!/bin/sh\ncd /w\nlcc  /w/main.c \nlcc  /w/util.c \nlrc  /w/app.rc\n\n\n"));
    }

    void objectFilesUseDotOWhenObjIsOffAndResourcesKeepDotRes()
    {
        WorkspaceState ws;
        ws.open = true;
        fill(ws.source, {"/w/main.c", "/w/sub/util.cpp"});
        fill(ws.resources, {"/w/res/app.rc"});
        ToolSettings tools;
        tools.lnkPath = "ld";
        tools.objOBJ = false;
        const QStringList l = lines(composeExeScript(ws, tools));
        QCOMPARE(l.at(5), QString("ld  /w/main.o /w/sub/util.o /w/res/app.res "));
    }

    void anEmptySourceListWritesToTheRootFolderAndLinksOnlyResources()
    {
        WorkspaceState ws;
        ws.open = true;
        fill(ws.resources, {"/w/app.rc", "/w/more.rc"});
        ToolSettings tools;
        tools.lrcPath = "lrc";
        tools.lnkPath = "lcclnk";
        const Script script = composeExeScript(ws, tools);
        QCOMPARE(script.path, QString("/tdicom.sh"));
        QCOMPARE(script.bytes, QByteArray("#!/bin/sh\ncd \nlrc  /w/app.rc\nlrc  /w/more.rc\n"
                                          "lcclnk  /w/app.res /w/more.res \n\n"));
    }

    void aSourceWithoutExtensionGetsAnEmptyBaseName()
    {
        WorkspaceState ws;
        ws.open = true;
        fill(ws.source, {"/w/Makefile", "/w/ main.c "});
        ToolSettings tools;
        tools.comPath = "lcc";
        tools.lnkPath = "lcclnk";
        const QStringList l = lines(composeExeScript(ws, tools));
        // Entries are used as stored on the compile line; the object name is trimmed.
        QCOMPARE(l.at(3), QString("lcc  '/w/ main.c ' "));
        QCOMPARE(l.at(4), QString("lcclnk  /w/.obj /w/main.obj "));
    }

    void bothCompilerTypesWriteTheSameScript()
    {
        WorkspaceState ws;
        ws.open = true;
        fill(ws.source, {"/w/main.c"});
        ToolSettings tools;
        tools.params = "-A";
        tools.sufparam = "-B";
        tools.comLCC = true;
        const QByteArray lcc = composeExeScript(ws, tools).bytes;
        tools.comLCC = false;
        QCOMPARE(composeExeScript(ws, tools).bytes, lcc);
    }

    void fullSourceAndResourceListsAreHandled()
    {
        WorkspaceState ws;
        ws.open = true;
        for (int i = 0; i < 51; ++i) {
            ws.source.append(QStringLiteral("/w/s%1.c").arg(i));
            ws.resources.append(QStringLiteral("/w/r%1.rc").arg(i));
        }
        ToolSettings tools;
        tools.comPath = "lcc";
        tools.lrcPath = "lrc";
        tools.lnkPath = "lcclnk";
        const QStringList l = lines(composeExeScript(ws, tools));
        QCOMPARE(l.size(), 2 + 51 + 51 + 1 + 2);
        QCOMPARE(l.at(2 + 50), QString("lcc  /w/s50.c "));
        QCOMPARE(l.at(2 + 51 + 50), QString("lrc  /w/r50.rc"));
        QVERIFY(l.at(104).startsWith(QLatin1String("lcclnk  /w/s0.obj /w/s1.obj ")));
        QVERIFY(l.at(104).contains(QLatin1String("/w/s50.obj /w/r0.res ")));
        QVERIFY(l.at(104).endsWith(QLatin1String("/w/r50.res ")));
        QCOMPARE(l.at(104).count(QLatin1String(".obj")), 51);
        QCOMPARE(l.at(104).count(QLatin1String(".res")), 51);
    }

    void unusualObjectPathsAreQuoted()
    {
        WorkspaceState ws;
        ws.open = true;
        fill(ws.source, {"/my w/it's.c"});
        ToolSettings tools;
        tools.comPath = "lcc";
        tools.lnkPath = "lcclnk";
        const Script script = composeExeScript(ws, tools);
        QCOMPARE(script.path, QString("/my w/tdicom.sh"));
        const QStringList l = lines(script);
        QCOMPARE(l.at(1), QString("cd '/my w'"));
        QCOMPARE(l.at(2), QString("lcc  '/my w/it'\\''s.c' "));
        QCOMPARE(l.at(3), QString("lcclnk  '/my w/it'\\''s.obj' "));
    }

    // --- Quake 2 ---

    void theUserScriptLosesOnlyItsFinalLineEnd_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("CR LF") << QByteArray("make\r\nmv a b\r\n") << QByteArray("make\r\nmv a b");
        QTest::newRow("LF") << QByteArray("make\nmv a b\n") << QByteArray("make\nmv a b");
        QTest::newRow("no line end") << QByteArray("make all") << QByteArray("make a");
        QTest::newRow("only CR LF") << QByteArray("\r\n") << QByteArray();
        QTest::newRow("only LF") << QByteArray("\n") << QByteArray();
        QTest::newRow("two characters") << QByteArray("ab") << QByteArray();
        QTest::newRow("8-bit bytes")
            << QByteArray("echo \xe9\xff\n") << QByteArray("echo \xe9\xff");
    }
    void theUserScriptLosesOnlyItsFinalLineEnd()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, body);
        QCOMPARE(quake2UserScriptBody(file), body);
    }

    void aUserScriptShorterThanTwoCharactersRaisesAnError_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("one character") << QByteArray("x");
    }
    void aUserScriptShorterThanTwoCharactersRaisesAnError()
    {
        QFETCH(QByteArray, file);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, quake2UserScriptBody(file));
    }

    void quake2ScriptGoesIntoTheFolderAndRunsTheUserScript()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        textfile::writeBytes(dir.filePath("q2game.sh"), "make -C src\r\ncp game.so ..\r\n");
        const Script script = composeQuake2Script(dir.path());
        QCOMPARE(script.path, dir.filePath("q2com.sh"));
        QCOMPARE(script.bytes, QByteArray("#!/bin/sh\ncd ") + dir.path().toUtf8() +
                                   "\nmake -C src\r\ncp game.so ..\n");
    }

    void aUserScriptOfOnlyALineEndGivesOnlyTheFolderLines()
    {
        QTemporaryDir dir;
        textfile::writeBytes(dir.filePath("q2game.sh"), "\r\n");
        QCOMPARE(composeQuake2Script(dir.path()).bytes,
                 QByteArray("#!/bin/sh\ncd ") + dir.path().toUtf8() + "\n\n");
    }

    void aMissingUserScriptRaisesFileNotFound()
    {
        QTemporaryDir dir;
        try {
            composeQuake2Script(dir.path());
            QFAIL("no error");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(53));
        }
    }

    void anUnusualWorkspaceFolderIsQuoted()
    {
        QTemporaryDir dir;
        const QString folder = dir.filePath("q2 $mod");
        QVERIFY(QDir().mkpath(folder));
        textfile::writeBytes(folder + "/q2game.sh", "make\n");
        QCOMPARE(composeQuake2Script(folder).bytes,
                 "#!/bin/sh\ncd '" + folder.toUtf8() + "'\nmake\n");
    }

    // --- choosing what to compose ---

    void withoutAWorkspaceNothingIsComposed()
    {
        WorkspaceState ws = modWorkspace();
        ws.open = false;
        for (Target t : {Target::Game, Target::CGame, Target::UI, Target::Exe})
            QVERIFY(!composeBuild(t, ws, q3Tools(), "/somewhere"));
    }

    void quake2LooksOnlyAtTheWorkspaceFolder()
    {
        WorkspaceState ws = modWorkspace();
        QVERIFY(!composeBuild(Target::Quake2, ws, q3Tools(), QString()));
        QTemporaryDir dir;
        textfile::writeBytes(dir.filePath("q2game.sh"), "make\n");
        ws.open = false;
        const auto script = composeBuild(Target::Quake2, ws, q3Tools(), dir.path());
        QVERIFY(script);
        QCOMPARE(script->path, dir.filePath("q2com.sh"));
    }

    void eachTargetComposesItsOwnScript()
    {
        const WorkspaceState ws = modWorkspace();
        QCOMPARE(composeBuild(Target::Game, ws, q3Tools(), {})->bytes,
                 composeQvmScript(QvmModule::Game, ws, q3Tools()).bytes);
        QCOMPARE(composeBuild(Target::CGame, ws, q3Tools(), {})->bytes,
                 composeQvmScript(QvmModule::CGame, ws, q3Tools()).bytes);
        QCOMPARE(composeBuild(Target::UI, ws, q3Tools(), {})->bytes,
                 composeQvmScript(QvmModule::UI, ws, q3Tools()).bytes);
        QCOMPARE(composeBuild(Target::Exe, ws, q3Tools(), {})->bytes,
                 composeExeScript(ws, q3Tools()).bytes);
    }

    void targetNamesAreTheCommandLineWords()
    {
        QCOMPARE(targetFromName("game"), std::optional<Target>(Target::Game));
        QCOMPARE(targetFromName("cgame"), std::optional<Target>(Target::CGame));
        QCOMPARE(targetFromName("ui"), std::optional<Target>(Target::UI));
        QCOMPARE(targetFromName("exe"), std::optional<Target>(Target::Exe));
        QCOMPARE(targetFromName("q2"), std::optional<Target>(Target::Quake2));
        QVERIFY(!targetFromName("GAME"));
        QVERIFY(!targetFromName(""));
    }
};

TESSARO_CORE_TEST_MAIN(BuildScriptsTest)
#include "tst_buildscripts.moc"

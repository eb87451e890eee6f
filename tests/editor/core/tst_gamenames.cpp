#include "support/RealModWorkspace.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

const QString kDataDir = QStringLiteral(TESSARO_SOURCE_DIR "/data");

struct ScriptRun
{
    int status = -1;
    QByteArray out;
    QByteArray err;
};

// Runs data/game-names.sh with the arguments, as a maintainer does from a shell.
ScriptRun gameNames(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("/bin/sh"), QStringList{kDataDir + "/game-names.sh"} + arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

// A names file as the script writes it: one line each, LF line ends.
QByteArray lines(const QStringList &names)
{
    QByteArray bytes;
    for (const QString &name : names)
        bytes += name.toUtf8() + '\n';
    return bytes;
}

// The type names of the mod's headers, which hold some of the game's public headers
// and the modules' own.
const QStringList kRealModTypes =
    QString("animation_t byte centity_t cg_t clientConnected_t clientInfo_t "
            "clientPersistant_t clientSession_t clipHandle_t connstate_t cplane_t "
            "entityShared_t entityState_t fileHandle_t footstep_t gameExport_t gameImport_t "
            "gametype_t gclient_t gender_t gentity_t gitem_t impactSound_t itemInfo_t "
            "itemType_t leFlag_t leType_t lerpFrame_t level_locals_t localEntity_t "
            "markFragment_t markPoly_t menuaction_s menubitmap_s menucommon_s menufield_s "
            "menuframework_s menulist_s menuradiobutton_s menuslider_s menutext_s mfield_t "
            "moverState_t orientation_t playerEntity_t playerState_t playerTeamStateState_t "
            "playerTeamState_t pmove_t pmtype_t powerupInfo_t qboolean qhandle_t qtime_t "
            "score_t sfxHandle_t sharedEntity_t spectatorState_t statIndex_t team_t trType_t "
            "trace_t trajectory_t uiStatic_t usercmd_t vec2_t vec3_t vec4_t vec_t vmCvar_t "
            "voidfunc_f weaponInfo_t")
        .split(u' ');

const QStringList kRealModCalls = {
    "trap_Argc",     "trap_Argv",        "trap_Cvar_Register",
    "trap_Cvar_Set", "trap_Cvar_Update", "trap_Cvar_VariableIntegerValue",
    "trap_Error",    "trap_LinkEntity",  "trap_Milliseconds",
    "trap_Printf",   "trap_Trace",       "trap_UnlinkEntity"};

// Sources that add a name of another case to three of the mod's names: a botlib
// header's weaponinfo_t, a cgame call trap_GetUserCmd beside the game's
// trap_GetUsercmd, and a FILE pointer beside a parameter called file.
void writeClashingSources(const QString &folder)
{
    test::writeFileIn(folder, "botlib/be_ai_weap.h",
                      "typedef struct weaponinfo_s\n{\n\tint number;\n} weaponinfo_t;\n");
    test::writeFileIn(folder, "game/g_syscalls.c",
                      "void trap_GetUsercmd(int clientNum, usercmd_t *cmd)\n{\n}\n");
    test::writeFileIn(folder, "cgame/cg_syscalls.c",
                      "void trap_GetUserCmd(int cmdNumber, usercmd_t *ucmd)\n{\n}\n");
    test::writeFileIn(folder, "qcommon/files.c",
                      "#include <stdio.h>\r\nstatic FILE *logFile;\r\n"
                      "int FS_Exists(const char *file)\r\n{\r\n\treturn 0;\r\n}\r\n");
}

// A list file cut around the game's names: its lines before them (up to the line
// starting with `marker`, or with no marker up to the first line starting with
// `start`), the words of the lines starting with `start` that follow, and the rest.
struct ListParts
{
    QByteArray before;
    QStringList names;
    QByteArray after;
};

ListParts cutList(const QByteArray &bytes, const QByteArray &marker, const QByteArray &start)
{
    ListParts parts;
    enum { Before, Names, After } state = Before;
    for (qsizetype pos = 0; pos < bytes.size();) {
        const qsizetype newline = bytes.indexOf('\n', pos);
        const qsizetype end = newline < 0 ? bytes.size() : newline + 1;
        const QByteArray line = bytes.mid(pos, end - pos);
        pos = end;
        if (state == Before && marker.isEmpty() && line.startsWith(start))
            state = Names;
        if (state == Names && !line.startsWith(start))
            state = After;
        if (state == Before) {
            parts.before += line;
            if (!marker.isEmpty() && line.startsWith(marker))
                state = Names;
        } else if (state == Names) {
            for (const QByteArray &word : line.trimmed().split('*').mid(1))
                if (!word.isEmpty())
                    parts.names << QString::fromUtf8(word);
        } else {
            parts.after += line;
        }
    }
    return parts;
}

ListParts cutStx(const QByteArray &bytes)
{
    return cutList(bytes, "; The game's type names", "; *");
}

ListParts cutBlack(const QByteArray &bytes)
{
    return cutList(bytes, QByteArray(), "*trap_");
}

} // namespace

// The script that takes the game's type names, engine calls and case clashes from a
// game source tree with universal-ctags and writes them into the C word lists.
class GameNamesTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private Q_SLOTS:
    void takesTheNamesOfAGameSourceTree()
    {
        const QString names = m_dir.filePath("realmod-names");
        const ScriptRun run = gameNames({names, test::realModFolder()});
        QCOMPARE(run.status, 0);
        QVERIFY(run.out.startsWith("72 type names, 12 engine calls, 8 case clash groups\n"));
        QVERIFY(run.out.contains("case clash: Pmove pmove\n"));
        QCOMPARE(test::readFile(names + "/types.txt"), lines(kRealModTypes));
        QCOMPARE(test::readFile(names + "/syscalls.txt"), lines(kRealModCalls));
        QCOMPARE(test::readFile(names + "/case-clashes.txt"),
                 lines({"FRAMETIME frameTime frametime", "G_ERROR G_Error",
                        "PM_Friction pm_friction", "Pmove pmove", "contentMask contentmask",
                        "frameCount framecount", "powerUps powerups", "realTime realtime"}));
    }
    void leavesEveryNameOfAClashGroupOutOfTheLists()
    {
        const QString extra = m_dir.filePath("more game");
        writeClashingSources(extra);
        const QString lists = m_dir.filePath("lists");
        for (const char *file : {"tessaro.stx", "C_Black.txt"})
            test::writeFileIn(lists, file, test::readFile(kDataDir + "/" + file));

        const ScriptRun run = gameNames(
            {"--lists", lists, m_dir.filePath("clash-names"), test::realModFolder(), extra});
        QCOMPARE(run.status, 0);
        QVERIFY(run.out.contains("case clash: FILE file\n"));
        QVERIFY(run.out.contains("case clash: trap_GetUserCmd trap_GetUsercmd\n"));
        QVERIFY(run.out.contains("case clash: weaponInfo_t weaponinfo_t\n"));
        QVERIFY(run.out.endsWith("71 type names in tessaro.stx, 12 engine calls in C_Black.txt\n"));

        // The game's names are replaced; what the lists hold besides them stays as it was.
        const ListParts stx = cutStx(test::readFile(lists + "/tessaro.stx"));
        const ListParts shippedStx = cutStx(test::readFile(kDataDir + "/tessaro.stx"));
        QStringList types = kRealModTypes;
        types.removeAll("weaponInfo_t");
        QCOMPARE(stx.names, types);
        QCOMPARE(stx.before, shippedStx.before);
        QCOMPARE(stx.after, shippedStx.after);
        QVERIFY(stx.after.startsWith(";\r\n\r\n[Keywords]\r\n"));
        const ListParts black = cutBlack(test::readFile(lists + "/C_Black.txt"));
        const ListParts shippedBlack = cutBlack(test::readFile(kDataDir + "/C_Black.txt"));
        QCOMPARE(black.names, kRealModCalls);
        QCOMPARE(black.before, shippedBlack.before);
        QCOMPARE(black.after, QByteArray());
    }
    // The shipped lists are exactly what the script makes of data/game-api/.
    void theShippedListsAreMadeFromTheGameNames()
    {
        const QString lists = m_dir.filePath("shipped");
        for (const char *file : {"tessaro.stx", "C_Black.txt"})
            test::writeFileIn(lists, file, test::readFile(kDataDir + "/" + file));
        const ScriptRun run = gameNames({"--lists", lists, kDataDir + "/game-api"});
        QCOMPARE(run.status, 0);
        QVERIFY(run.out.startsWith("134 type names, 281 engine calls, 6 case clash groups\n"
                                   "case clash: CVAR_INIT Cvar_Init\n"));
        QVERIFY(
            run.out.endsWith("132 type names in tessaro.stx, 277 engine calls in C_Black.txt\n"));
        for (const char *file : {"tessaro.stx", "C_Black.txt"})
            QCOMPARE(test::readFile(lists + "/" + file), test::readFile(kDataDir + "/" + file));
    }
    // Names written in the lists by hand are kept, and reported when a clash group holds
    // them; the game's names are written as CR LF lines of asterisk-delimited words.
    void reportsListWordsWrittenByHandThatClash()
    {
        const QString names = m_dir.filePath("hand-names");
        test::writeFileIn(names, "types.txt", "gentity_t\nweaponInfo_t\n");
        test::writeFileIn(names, "syscalls.txt", "trap_Argc\n");
        test::writeFileIn(names, "case-clashes.txt",
                          "CVAR_INIT Cvar_Init\nweaponInfo_t weaponinfo_t\n");
        const QString lists = m_dir.filePath("hand-lists");
        test::writeFileIn(lists, "tessaro.stx",
                          "; *int*\r\n; The game's type names:\r\n; *old_t*\r\n; *older_t*\r\n"
                          ";\r\n; *weaponinfo_t*\r\n[Keywords]\r\nint\r\n");
        test::writeFileIn(lists, "C_Black.txt", "*CVAR_INIT*qtrue*\r\n*trap_Old*\r\n");

        const ScriptRun run = gameNames({"--lists", lists, names});
        QCOMPARE(run.status, 3);
        QVERIFY(run.out.contains("tessaro.stx: \"weaponinfo_t\" is in the case clash group: "
                                 "weaponInfo_t weaponinfo_t\n"));
        QVERIFY(run.out.contains(
            "C_Black.txt: \"CVAR_INIT\" is in the case clash group: CVAR_INIT Cvar_Init\n"));
        QCOMPARE(test::readFile(lists + "/tessaro.stx"),
                 QByteArray("; *int*\r\n; The game's type names:\r\n; *gentity_t*\r\n;\r\n"
                            "; *weaponinfo_t*\r\n[Keywords]\r\nint\r\n"));
        QCOMPARE(test::readFile(lists + "/C_Black.txt"),
                 QByteArray("*CVAR_INIT*qtrue*\r\n*trap_Argc*\r\n"));
    }
    // A black list without engine calls gets them at its end; long runs of names are
    // cut into lines of about 100 characters.
    void writesTheCallsAfterABlackListWithoutThem()
    {
        const QString names = m_dir.filePath("first-names");
        QStringList calls;
        for (int i = 0; i < 30; ++i)
            calls << QStringLiteral("trap_Call%1").arg(i, 2, 10, QLatin1Char('0'));
        test::writeFileIn(names, "types.txt", "");
        test::writeFileIn(names, "syscalls.txt", lines(calls));
        test::writeFileIn(names, "case-clashes.txt", "");
        const QString lists = m_dir.filePath("first-lists");
        test::writeFileIn(lists, "tessaro.stx", "; The game's type names:\r\n");
        test::writeFileIn(lists, "C_Black.txt", "*qtrue*qfalse*\r\n");

        const ScriptRun run = gameNames({"--lists", lists, names});
        QCOMPARE(run.status, 0);
        const QByteArray black = test::readFile(lists + "/C_Black.txt");
        QVERIFY(black.startsWith("*qtrue*qfalse*\r\n*trap_Call00*trap_Call01*"));
        QCOMPARE(cutBlack(black).names, calls);
        for (const QByteArray &line : black.split('\n'))
            QVERIFY(line.size() <= 104);
        QVERIFY(black.count("\r\n") >= 4);
        QCOMPARE(test::readFile(lists + "/tessaro.stx"),
                 QByteArray("; The game's type names:\r\n"));
    }
    void anEmptyTreeHasNoNames()
    {
        const QString names = m_dir.filePath("empty-names");
        QTemporaryDir empty;
        const ScriptRun run = gameNames({names, empty.path()});
        QCOMPARE(run.status, 0);
        QVERIFY(run.out.startsWith("0 type names, 0 engine calls, 0 case clash groups\n"));
        QCOMPARE(test::readFile(names + "/types.txt"), QByteArray());
    }
    void badArgumentsAreRefusedAndChangeNothing()
    {
        QCOMPARE(gameNames({}).status, 2);
        QVERIFY(gameNames({}).err.startsWith("Usage: "));
        QCOMPARE(gameNames({"--lists"}).status, 2);

        const QString names = m_dir.filePath("bad-names");
        ScriptRun run = gameNames({names, m_dir.filePath("no such tree")});
        QCOMPARE(run.status, 2);
        QVERIFY(run.err.contains("no such file or folder: "));
        QVERIFY(!QFileInfo::exists(names));

        run = gameNames({m_dir.filePath("no names")});
        QCOMPARE(run.status, 2);
        QVERIFY(run.err.contains("types.txt is missing"));

        // A list folder without the definition file, or one without the line the
        // game's types follow: no list is changed.
        const QString lists = m_dir.filePath("bad-lists");
        test::writeFileIn(lists, "C_Black.txt", "*qtrue*\r\n");
        run = gameNames({"--lists", lists, kDataDir + "/game-api"});
        QCOMPARE(run.status, 2);
        QVERIFY(run.err.contains("tessaro.stx is missing"));
        test::writeFileIn(lists, "tessaro.stx", "; *int*\r\n[Keywords]\r\nint\r\n");
        run = gameNames({"--lists", lists, kDataDir + "/game-api"});
        QCOMPARE(run.status, 1);
        QVERIFY(run.err.contains("no line starts with \"; The game's type names\""));
        QCOMPARE(test::readFile(lists + "/tessaro.stx"),
                 QByteArray("; *int*\r\n[Keywords]\r\nint\r\n"));
        QCOMPARE(test::readFile(lists + "/C_Black.txt"), QByteArray("*qtrue*\r\n"));
        QCOMPARE(QDir(lists).entryList(QDir::Files), QStringList({"C_Black.txt", "tessaro.stx"}));
    }
};

TESSARO_CORE_TEST_MAIN(GameNamesTest)
#include "tst_gamenames.moc"

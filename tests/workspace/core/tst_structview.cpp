#include "platform/core/ErrorTraps.h"
#include "platform/core/TextFile.h"
#include "state/core/AppState.h"
#include "support/CliRun.h"
#include "support/RealModWorkspace.h"
#include "support/TestSupport.h"
#include "workspace/core/StructScan.h"
#include "workspace/core/WorkspaceSession.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

struct Found
{
    qint32 position;
    QString name;
    bool operator==(const Found &o) const { return position == o.position && name == o.name; }
};

// Scans like the structure view: a position reported twice is refused.
QList<Found> scan(const QByteArray &text)
{
    QList<Found> found;
    structscan::scanDeclarations(structscan::withCrLfLineBreaks(text),
                                 [&](qint32 position, const QString &name) {
                                     for (const Found &f : found)
                                         if (f.position == position)
                                             throw RuntimeError(35602);
                                     found.append({position, name});
                                 });
    return found;
}

qint64 scanError(const QByteArray &text, QList<Found> *found = nullptr)
{
    QList<Found> seen;
    try {
        structscan::scanDeclarations(text, [&](qint32 position, const QString &name) {
            for (const Found &f : seen)
                if (f.position == position)
                    throw RuntimeError(35602);
            seen.append({position, name});
        });
    } catch (const RuntimeError &error) {
        if (found)
            *found = seen;
        return error.number();
    }
    return 0;
}

// The structure view's group nodes in their order: Game, CGame, Headers, UI.
QString nextGroup(const QString &key)
{
    const QStringList order{"", "G", "C", "H", "U"};
    return order.value(order.indexOf(key) + 1);
}

QString groupLine(const QString &key)
{
    static const QMap<QString, QString> texts{
        {"G", "Game"}, {"C", "CGame"}, {"H", "Headers"}, {"U", "UI"}};
    return key + QLatin1Char('\t') + texts.value(key) + QLatin1Char('\n');
}

} // namespace

QT_BEGIN_NAMESPACE
namespace QTest {
template <> inline char *toString(const Found &f)
{
    return qstrdup(QStringLiteral("%1:%2").arg(f.position).arg(f.name).toUtf8().constData());
}
} // namespace QTest
QT_END_NAMESPACE

class StructViewTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString writeFile(const QString &name, const QByteArray &bytes)
    {
        return test::writeFileIn(m_dir.path(), name, bytes);
    }

private Q_SLOTS:
    void aDeclarationIsNamedFromAfterTheClosingBrace()
    {
        QCOMPARE(scan("typedef struct player_s { int x; } player_t;"),
                 QList<Found>({{1, "player_t"}}));
    }

    void theCharacterAfterTheClosingBraceIsDropped()
    {
        QCOMPARE(scan("typedef struct {int x;}vec_t;"), QList<Found>({{1, "ec_t"}}));
    }

    void anInnerBracePairNamesTheEntryFromTheInnerBrace()
    {
        QCOMPARE(scan("typedef struct a_s {\n  union { int i; float f; } u;\n  int y;\n} a_t;"),
                 QList<Found>({{1, "u"}}));
    }

    void twoDeclarationsGiveTwoEntriesInFileOrder()
    {
        QCOMPARE(scan("x\ntypedef struct a_s { int x; } a_t;\ntypedef struct { int y; } b_t;\n"),
                 QList<Found>({{4, "a_t"}, {40, "b_t"}}));
    }

    void positionsCountLineBreaksAsTwoCharacters()
    {
        const QByteArray lf = "/* one */\n\n#include <x.h>\ntypedef struct { int y; } b_t;\n";
        QByteArray crlf = lf;
        crlf.replace("\n", "\r\n");
        QCOMPARE(scan(lf), QList<Found>({{30, "b_t"}}));
        QCOMPARE(scan(crlf), scan(lf));
        QCOMPARE(structscan::withCrLfLineBreaks("a\nb\r\nc\n"), QByteArray("a\r\nb\r\nc\r\n"));
        QCOMPARE(structscan::withCrLfLineBreaks("\n"), QByteArray("\r\n"));
        QCOMPARE(structscan::withCrLfLineBreaks("no breaks"), QByteArray("no breaks"));
    }

    void everyKindOfLineBreakCountsAsTwoCharacters()
    {
        // CR LF, a lone LF and a lone CR each end one line, as in the editor.
        const QByteArray mixed = "/* one */\r\n#include <x.h>\ntypedef struct a_s {\r int a;\n"
                                 "} a_t;\r\rtypedef struct {\r\n int b; }\rb_t;\n";
        const QByteArray crlf = "/* one */\r\n#include <x.h>\r\ntypedef struct a_s {\r\n int a;\r\n"
                                "} a_t;\r\n\r\ntypedef struct {\r\n int b; }\r\nb_t;\r\n";
        QCOMPARE(structscan::withCrLfLineBreaks(mixed), crlf);
        QCOMPARE(scan(mixed), QList<Found>({{28, "a_t"}, {69, "\nb_t"}}));
        QCOMPARE(scan(mixed), scan(crlf));
        QCOMPARE(structscan::withCrLfLineBreaks("a\rb\r\nc\nd\r"),
                 QByteArray("a\r\nb\r\nc\r\nd\r\n"));
        QCOMPARE(structscan::withCrLfLineBreaks("\r\r\n\n\r"), QByteArray("\r\n\r\n\r\n\r\n"));
        QCOMPARE(structscan::withCrLfLineBreaks("\n\r"), QByteArray("\r\n\r\n"));
        QCOMPARE(structscan::withCrLfLineBreaks(QByteArray()), QByteArray());
        // A text that holds CR LF alone comes back as it is, without a copy.
        QCOMPARE(structscan::withCrLfLineBreaks(crlf).constData(), crlf.constData());
    }

    void theSearchIsCaseSensitiveAndBlindToComments()
    {
        QCOMPARE(scan("Typedef Struct a { int x; } a_t;"), QList<Found>());
        QCOMPARE(scan("// typedef struct in a comment { } x;"), QList<Found>({{4, "x"}}));
        QCOMPARE(scan("typedef  struct a { int x; } a_t;"), QList<Found>());
    }

    void aBlankOrNoNameIsTakenAsItStands()
    {
        QCOMPARE(scan("typedef struct { int x; } ;"), QList<Found>({{1, ""}}));
        QCOMPARE(scan("typedef struct { int x; }\n\tname_t\n;"),
                 QList<Found>({{1, "\n\tname_t\r\n"}}));
    }

    void aSemicolonRightAfterTheBraceGivesTheEmptyName()
    {
        QCOMPARE(scan("typedef struct { int x; };"), QList<Found>({{1, ""}}));
    }

    void aForwardDeclarationBeforeTheBodyGivesTheEmptyNameAndTheScanGoesOn()
    {
        // The "{" and "}" found are those of the structure's body; the ";" right after
        // the "}" selects nothing. The scan goes on from that ";".
        QCOMPARE(scan("typedef struct gentity_s gentity_t;\nstruct gentity_s { int health; };\n"),
                 QList<Found>({{1, ""}}));
        QCOMPARE(scan("typedef struct gentity_s gentity_t;\n"
                      "typedef struct gclient_s gclient_t;\n"
                      "struct gentity_s { gclient_t *client; };\n"
                      "typedef struct { int time; } level_locals_t;\n"
                      "struct gclient_s { int ps; };\n"),
                 QList<Found>({{1, ""}, {117, "level_locals_t"}}));
    }

    void aHeaderEndingInAForwardDeclarationAndItsBodyIsScannedToTheEnd()
    {
        QCOMPARE(scan("typedef struct a_s { int x; } a_t;\n"
                      "typedef struct b_s b_t;\n"
                      "struct b_s { int y; };\n"),
                 QList<Found>({{1, "a_t"}, {37, ""}}));
    }

    void aHeaderEndingInAForwardDeclarationAfterOtherStructuresStops()
    {
        // With no "{" after the last declaration, its "}" and ";" are found from the
        // start of the text, the search comes back to that declaration and the
        // repeated position stops the scan.
        QList<Found> found;
        QCOMPARE(scanError("typedef struct a_s { int x; } a_t;\n"
                           "struct b_s { int y; };\n"
                           "typedef struct b_s b_t;\n",
                           &found),
                 qint64(35602));
        QCOMPARE(found, QList<Found>({{1, "a_t"}, {59, "a_t"}}));
        // The first "}" of the text with its ";" right after it selects nothing.
        QCOMPARE(scanError("struct a_s { int x; };\n"
                           "struct b_s { int y; };\n"
                           "typedef struct a_s a_t;\n",
                           &found),
                 qint64(35602));
        QCOMPARE(found, QList<Found>({{47, ""}}));
    }

    void aDeclarationWithoutSemicolonGetsTheEmptyNameThenRaisesInvalidCall()
    {
        // No ";" selects nothing; the search then goes on from position 0, which
        // BASIC's InStr refuses.
        QList<Found> found;
        QCOMPARE(
            scanError("typedef struct a { int x; } a_t;\ntypedef struct b { int y; } b_t", &found),
            qint64(5));
        QCOMPARE(found, QList<Found>({{1, "a_t"}, {34, ""}}));
    }

    void aDeclarationWithoutBracesSearchesFromTheStart()
    {
        // No "{" after the second declaration: the "}" and ";" are found from the start
        // of the text, so the first entry's name comes again, for the second position;
        // the search then returns to that position and the repeat ends the scan.
        QList<Found> found;
        const QByteArray text = "typedef struct a { int x; } a_t;\ntypedef struct b b_t;";
        QCOMPARE(scanError(text, &found), qint64(35602));
        QCOMPARE(found, QList<Found>({{1, "a_t"}, {34, "a_t"}}));
        // Alone, the "}" search finds nothing and the name runs from the second
        // character of the text up to the first ";".
        QCOMPARE(scan("typedef struct b b_t;"), QList<Found>({{1, "ypedef struct b b_t"}}));
        QCOMPARE(scan("typedef struct b { int x; b_t;"),
                 QList<Found>({{1, "ypedef struct b { int x"}}));
    }

    void aWorkspaceOfRealLookingModSourcesOpens()
    {
        // Forward declarations in q_shared.h, g_local.h and cg_local.h; the entry of a
        // forward declaration takes whatever its positions select: nothing, or the
        // next structure's name (whose own declaration the scan then passes over).
        const struct
        {
            const char *file;
            qint32 position;
            const char *name;
        } entries[] = {
            {"game/g_main.c", 117, "cvarTable_t"},
            {"game/g_utils.c", 83, "shaderRemap_t"},
            {"game/bg_pmove.c", 333, "pml_t"},
            {"cgame/cg_main.c", 1873, "cvarTable_t"},
            {"cgame/cg_draw.c", 522, "lagometer_t"},
            {"game/q_shared.h", 1090, ""},
            {"game/q_shared.h", 1736, "trace_t"},
            {"game/q_shared.h", 2306, "markFragment_t"},
            {"game/q_shared.h", 2380, "orientation_t"},
            {"game/q_shared.h", 2676, "trajectory_t"},
            {"game/q_shared.h", 2976, "playerState_t"},
            {"game/q_shared.h", 3926, "usercmd_t"},
            {"game/q_shared.h", 4245, "entityState_t"},
            {"game/q_shared.h", 5613, "qtime_t"},
            {"game/bg_public.h", 1652, "pmove_t"},
            {"game/bg_public.h", 3597, "gitem_t"},
            {"game/bg_public.h", 4366, "animation_t"},
            {"game/g_public.h", 925, "entityShared_t"},
            {"game/g_public.h", 2386, "sharedEntity_t"},
            {"game/g_local.h", 1041, ""},
            {"game/g_local.h", 4094, "playerTeamState_t"},
            {"game/g_local.h", 4891, "clientSession_t"},
            {"game/g_local.h", 5389, "clientPersistant_t"},
            {"game/g_local.h", 8352, "level_locals_t"},
            {"cgame/cg_local.h", 1892, "lerpFrame_t"},
            {"cgame/cg_local.h", 2337, "playerEntity_t"},
            {"cgame/cg_local.h", 2855, "centity_t"},
            {"cgame/cg_local.h", 3999, "markPoly_t"},
            {"cgame/cg_local.h", 4589, "light"},
            {"cgame/cg_local.h", 5283, "score_t"},
            {"cgame/cg_local.h", 7691, "weaponInfo_t"},
            {"cgame/cg_local.h", 8714, "itemInfo_t"},
            {"cgame/cg_local.h", 8827, "powerupInfo_t"},
            {"cgame/cg_local.h", 9229, "cg_t"},
            {"ui/ui_local.h", 2440, "menuframework_s"},
            {"ui/ui_local.h", 2702, "menucommon_s"},
            {"ui/ui_local.h", 3019, "mfield_t"},
            {"ui/ui_local.h", 3146, "menufield_s"},
            {"ui/ui_local.h", 3224, "menuslider_s"},
            {"ui/ui_local.h", 3358, "menulist_s"},
            {"ui/ui_local.h", 3568, "menuaction_s"},
            {"ui/ui_local.h", 3629, "menuradiobutton_s"},
            {"ui/ui_local.h", 3711, "menubitmap_s"},
            {"ui/ui_local.h", 3901, "menutext_s"},
            {"ui/ui_local.h", 4792, "uiStatic_t"},
            {"ui/ui_main.c", 1104, "cvarTable_t"},
            {"ui/ui_mainmenu.c", 469, "mainmenu_t"},
        };
        QString expected;
        QString group;
        for (const auto &entry : entries) {
            const QString file = QLatin1String(entry.file);
            const QString key = file.endsWith(".h")         ? "H"
                                : file.startsWith("game/")  ? "G"
                                : file.startsWith("cgame/") ? "C"
                                                            : "U";
            for (; group != key; group = nextGroup(group))
                expected += groupLine(nextGroup(group));
            expected += QStringLiteral("  %1/%2-%3\t%4\n")
                            .arg(test::realModFolder(), file)
                            .arg(entry.position)
                            .arg(QLatin1String(entry.name));
        }
        for (; group != "U"; group = nextGroup(group))
            expected += groupLine(nextGroup(group));

        const QString tdi = test::writeRealModWorkspace(m_dir.filePath("realmod.tdi"));
        AppState state;
        WorkspaceSession session(state);
        QVERIFY(trapped([&] { session.openWorkspaceFile(tdi); }));
        QVERIFY(state.workspace.open);
        QCOMPARE(session.structView().listing(), expected);

        const test::CliRun structs = test::runCli({"structs", tdi});
        QCOMPARE(structs.err, QByteArray());
        QCOMPARE(structs.status, 0);
        QCOMPARE(QString::fromUtf8(structs.out), expected);
    }

    void theCommandLineToolReportsAHeaderThatStopsTheBuilding()
    {
        const QString g = writeFile("fwd/game/g_main.c", "typedef struct { int a; } a_t;\n");
        const QString h = writeFile("fwd/game/g_local.h", "typedef struct a_s { int x; } a_t;\n"
                                                          "struct b_s { int y; };\n"
                                                          "typedef struct b_s b_t;\n");
        const QString tdi =
            writeFile("fwd.tdi", ("GAME=" + g + "\r\nHEAD=" + h + "\r\n\r\n").toUtf8());
        const test::CliRun structs = test::runCli({"structs", tdi});
        QCOMPARE(structs.status, 1);
        QCOMPARE(QString::fromUtf8(structs.out),
                 QStringLiteral("G\tGame\n  %1-1\ta_t\nC\tCGame\nH\tHeaders\n  %2-1\ta_t\n"
                                "  %2-61\ta_t\n")
                     .arg(g, h));
        QCOMPARE(structs.err,
                 QByteArray("tessaro-cli structs: stopped by run-time error 35602: Key is not "
                            "unique in collection\n"));
    }

    void basicStringFunctions()
    {
        QCOMPARE(structscan::inStr(1, "abcabc", "c"), 3);
        QCOMPARE(structscan::inStr(4, "abcabc", "c"), 6);
        QCOMPARE(structscan::inStr(7, "abcabc", "c"), 0);
        QCOMPARE(structscan::inStr(100, "abcabc", "c"), 0);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, structscan::inStr(0, "abc", "c"));
        QCOMPARE(structscan::mid("abcdef", 2, 3), QStringLiteral("bcd"));
        QCOMPARE(structscan::mid("abcdef", 5, 10), QStringLiteral("ef"));
        QCOMPARE(structscan::mid("abcdef", 10, 1), QString());
        QVERIFY_THROWS_EXCEPTION(RuntimeError, structscan::mid("abc", 0, 1));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, structscan::mid("abc", 1, -1));
        QCOMPARE(structscan::val("123"), 123);
        QCOMPARE(structscan::val("  42abc"), 42);
        QCOMPARE(structscan::val("mod/g_main.c-40"), 0);
        QCOMPARE(structscan::val(""), 0);
        QCOMPARE(structscan::val("-7"), -7);
        QCOMPARE(structscan::val("2.5"), 2);
        QCOMPARE(structscan::val("3.5"), 4);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, structscan::val("99999999999"));
    }

    void theViewListsGroupsInFixedOrderAndSourcesAtTheTop()
    {
        const QString g =
            writeFile("mod/game/g_local.h", "typedef struct gentity_s { int x; } gentity_t;\n"
                                            "typedef struct { int y; } level_locals_t;\n");
        const QString c = writeFile("mod/cgame/cg_local.h", "typedef struct { int z; } cg_t;\n");
        const QString s = writeFile("mod/tools/pak.c", "typedef struct { int p; } pak_t;\n");
        const QString r = writeFile("mod/app.rc", "typedef struct { int r; } res_t;\n");
        const QString u = writeFile("mod/ui/ui_main.c", "int nothing;\n");
        const QString tdi = writeFile("mod.tdi", ("SOUR=" + s + "\r\nRESC=" + r + "\r\nUSER=" + u +
                                                  "\r\nCAME=" + c + "\r\nGAME=" + g + "\r\n\r\n")
                                                     .toUtf8());
        AppState state;
        WorkspaceSession session(state);
        QVERIFY(trapped([&] { session.openWorkspaceFile(tdi); }));
        QCOMPARE(session.structView().listing(), QStringLiteral("G\tGame\n"
                                                                "  %1-1\tgentity_t\n"
                                                                "  %1-49\tlevel_locals_t\n"
                                                                "C\tCGame\n"
                                                                "  %2-1\tcg_t\n"
                                                                "H\tHeaders\n"
                                                                "U\tUI\n"
                                                                "%3-1\tpak_t\n")
                                                     .arg(g, c, s));
        QCOMPARE(session.structView().node(1).image, WorkspaceSession::StructImage);
        QCOMPARE(session.structView().node(0).image, WorkspaceSession::GroupImage);
        QVERIFY(state.workspace.open);
        QCOMPARE(state.workspace.path, tdi);
    }

    void aWorkspaceWithoutFilesShowsTheFourEmptyGroups()
    {
        AppState state;
        WorkspaceSession session(state);
        QVERIFY(trapped([&] { session.openWorkspaceFile(writeFile("none.tdi", "\r\n")); }));
        QCOMPARE(session.structView().listing(),
                 QStringLiteral("G\tGame\nC\tCGame\nH\tHeaders\nU\tUI\n"));
    }

    void filesAddedAfterOpeningDoNotAppearUntilOpenedAgain()
    {
        const QString h = writeFile("late/q_shared.h", "typedef struct { float v[3]; } vec3_s;\n");
        const QString tdi = writeFile("late.tdi", "\r\n");
        AppState state;
        WorkspaceSession session(state);
        test::ScriptedCommonDialog dialog;
        dialog.answers << tdi << h;
        QVERIFY(trapped([&] { session.openWorkspace(); }));
        QVERIFY(trapped([&] { session.addFiles(); }));
        QVERIFY(session.fileView().contains(h));
        QCOMPARE(session.structView().size(), 4);
        dialog.answers << tdi;
        QVERIFY(trapped([&] { session.openWorkspace(); }));
        QCOMPARE(session.structView().listing(),
                 QStringLiteral("G\tGame\nC\tCGame\nH\tHeaders\n  %1-1\tvec3_s\nU\tUI\n").arg(h));
    }

    void anUnreadableFileStopsTheBuildingKeepingWhatWasAdded()
    {
        const QString g = writeFile("stop/game/a.c", "typedef struct { int a; } a_t;\n");
        const QString tdi = writeFile(
            "stop.tdi",
            ("GAME=" + g + "\r\nGAME=/nowhere/b.c\r\n" + "CAME=" + g + "x\r\n\r\n").toUtf8());
        AppState state;
        WorkspaceSession session(state);
        QVERIFY(!trapped([&] { session.openWorkspaceFile(tdi); }));
        QCOMPARE(session.structView().listing(), QStringLiteral("G\tGame\n  %1-1\ta_t\n").arg(g));
        QVERIFY(!state.workspace.open);
        QCOMPARE(state.workspace.path, QString());
    }

    void selectingAnEntryOpensItsFileAtTheDeclaration()
    {
        AppState state;
        WorkspaceSession session(state);
        session.structNodeSelected("/mod/game/g_local.h-49");
        QCOMPARE(state.pendingOpenPath, QStringLiteral("/mod/game/g_local.h"));
        QCOMPARE(state.pendingCaretPosition, 49);
        // The workspace folder stands before the path.
        state.workspaceFolder = "/base";
        session.structNodeSelected("/x.c-3");
        QCOMPARE(state.pendingOpenPath, QStringLiteral("/base/x.c"));
        QCOMPARE(state.pendingCaretPosition, 3);
    }

    void aPathWithADashIsCutAtItsFirstDash()
    {
        AppState state;
        WorkspaceSession session(state);
        state.pendingCaretPosition = 0;
        session.structNodeSelected("/my-mod/g_main.c-40");
        QCOMPARE(state.pendingOpenPath, QStringLiteral("/my"));
        QCOMPARE(state.pendingCaretPosition, 0);
    }

    void selectingAGroupNodeDoesNothing()
    {
        AppState state;
        WorkspaceSession session(state);
        for (const char *key : {"G", "C", "H", "U"}) {
            session.structNodeSelected(QLatin1String(key));
            QCOMPARE(state.pendingOpenPath, QString());
            QCOMPARE(state.pendingCaretPosition, 0);
        }
    }

    void theCommandLineToolPrintsBothTrees()
    {
        const QString g = writeFile("cli/game/g.c", "typedef struct { int a; } a_t;\n");
        const QString h = writeFile("cli/q.h", "typedef struct b_s {\r\n int b;\r\n} b_t;\r\n");
        const QString tdi =
            writeFile("cli.tdi", ("HEAD=" + h + "\r\nGAME=" + g + "\r\n\r\n").toUtf8());
        const QString cli = QStringLiteral(TESSARO_BIN_DIR "/tessaro-cli");

        QProcess tree;
        tree.start(cli, {"tree", tdi});
        QVERIFY(tree.waitForFinished());
        QCOMPARE(tree.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(tree.readAllStandardOutput()),
                 QStringLiteral("H\tHeaders\n  %1\tq.h\nG\tGame\n  %2\tg.c\n").arg(h, g));

        QProcess structs;
        structs.start(cli, {"structs", tdi});
        QVERIFY(structs.waitForFinished());
        QCOMPARE(structs.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(structs.readAllStandardOutput()),
                 QStringLiteral("G\tGame\n  %1-1\ta_t\nC\tCGame\nH\tHeaders\n  %2-1\tb_t\nU\tUI\n")
                     .arg(g, h));

        QProcess missing;
        missing.start(cli, {"structs", m_dir.filePath("missing.tdi")});
        QVERIFY(missing.waitForFinished());
        QCOMPARE(missing.exitCode(), 1);
        QVERIFY(missing.readAllStandardOutput().isEmpty());
        QVERIFY(missing.readAllStandardError().contains("53"));

        QProcess usage;
        usage.start(cli, {"tree"});
        QVERIFY(usage.waitForFinished());
        QCOMPARE(usage.exitCode(), 2);
    }
};

TESSARO_CORE_TEST_MAIN(StructViewTest)
#include "tst_structview.moc"

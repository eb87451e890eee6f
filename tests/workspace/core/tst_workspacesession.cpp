#include "platform/core/ErrorTraps.h"
#include "platform/core/TextFile.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "workspace/core/WorkspaceSession.h"

#include <QTemporaryDir>

using namespace tessaro;

class WorkspaceSessionTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString file(const QString &name) const { return m_dir.filePath(name); }
    QByteArray bytesOf(const QString &path) const { return textfile::readBytes(path); }

    // A session with a new, empty workspace file.
    struct Fixture
    {
        AppState state;
        WorkspaceSession session{state};
        test::ScriptedCommonDialog dialog;
    };
    void startNew(Fixture &f, const QString &name)
    {
        f.dialog.answers << file(name);
        QVERIFY(trapped([&] { f.session.newWorkspace(); }));
        QCOMPARE(f.state.workspace.path, file(name));
        f.dialog.requests.clear();
    }
    static bool add(Fixture &f, const QString &selection)
    {
        f.dialog.answers << selection;
        return trapped([&] { f.session.addFiles(); });
    }

private Q_SLOTS:
    void newWorkspaceAsksForAFileAndCreatesItEmpty()
    {
        Fixture f;
        f.dialog.answers << file("new.tdi");
        QVERIFY(trapped([&] { f.session.newWorkspace(); }));
        QCOMPARE(f.dialog.requests.size(), 1);
        const FileDialogRequest &r = f.dialog.requests.first();
        QCOMPARE(r.kind, FileDialogRequest::Save);
        QCOMPARE(r.title, QStringLiteral("New Workspace"));
        QCOMPARE(r.filter, QStringLiteral("Tessaro Dir Info (*.tdi)|*.tdi"));
        QVERIFY(!r.cancelError);
        QCOMPARE(bytesOf(file("new.tdi")), QByteArray("\r\n"));
        QVERIFY(f.state.workspace.open);
        QCOMPARE(f.state.workspace.path, file("new.tdi"));
        QVERIFY(f.session.fileView().isEmpty());
    }

    void newWorkspaceCancelledStaysOpenWithoutPathAndAddFailsSilently()
    {
        Fixture f;
        QVERIFY(trapped([&] { f.session.newWorkspace(); })); // Cancel raises no error
        QVERIFY(f.state.workspace.open);
        QCOMPARE(f.state.workspace.path, QString());
        // Add File(s) shows its dialog, adds the node and list entry, then fails at the
        // workspace file.
        QVERIFY(!add(f, "/mod/tools/pak.c"));
        QCOMPARE(f.dialog.requests.size(), 2);
        QCOMPARE(f.session.fileView().listing(), QStringLiteral("/mod/tools/pak.c\tpak.c\n"));
        QCOMPARE(f.state.workspace.source.count(), qint16(1));
    }

    void newWorkspaceClosesTheOpenOne()
    {
        Fixture f;
        startNew(f, "first.tdi");
        QVERIFY(add(f, "/mod/code/game/g_main.c"));
        f.dialog.answers << file("second.tdi");
        QVERIFY(trapped([&] { f.session.newWorkspace(); }));
        QVERIFY(f.session.fileView().isEmpty());
        QCOMPARE(f.state.workspace.game.count(), qint16(0));
        QCOMPARE(f.state.workspace.path, file("second.tdi"));
        QCOMPARE(bytesOf(file("first.tdi")), QByteArray("GAME=/mod/code/game/g_main.c\r\n\r\n"));
    }

    void addFilesAsksWithTitleFilterAndMultipleSelection()
    {
        Fixture f;
        startNew(f, "ask.tdi");
        QVERIFY(add(f, "/tools/pak.c"));
        const FileDialogRequest &r = f.dialog.requests.first();
        QCOMPARE(r.kind, FileDialogRequest::Open);
        QCOMPARE(r.title, QStringLiteral("Add Files"));
        QCOMPARE(r.filter,
                 QStringLiteral(
                     "C Files (*.c, *.cpp)|*.c;*.cpp|H Files (*.h)|*.h|RC Files (*.rc)|*.rc"));
        QVERIFY(r.allowMultiSelect);
    }

    void addFilesWithoutAWorkspaceDoesNothingNotEvenTheDialog()
    {
        Fixture f;
        QVERIFY(add(f, "/tools/pak.c"));
        QVERIFY(f.dialog.requests.isEmpty());
        QVERIFY(f.session.fileView().isEmpty());
        QCOMPARE(f.state.workspace.source.count(), qint16(0));
    }

    void addFilesCancelledAddsNothing()
    {
        Fixture f;
        startNew(f, "cancel.tdi");
        QVERIFY(!add(f, QString()));
        QCOMPARE(bytesOf(file("cancel.tdi")), QByteArray("\r\n"));
        QVERIFY(f.session.fileView().isEmpty());
    }

    void singleFilesAreSortedIntoGroups_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("tree");
        QTest::newRow("game") << "/mod/code/game/g_main.c"
                              << "GAME="
                              << "G\tGame\n  /mod/code/game/g_main.c\tg_main.c\n";
        QTest::newRow("cgame") << "/mod/code/cgame/cg_main.c"
                               << "CAME="
                               << "C\tCGame\n  /mod/code/cgame/cg_main.c\tcg_main.c\n";
        QTest::newRow("ui") << "/mod/code/ui/ui_main.c"
                            << "USER="
                            << "U\tUI\n  /mod/code/ui/ui_main.c\tui_main.c\n";
        QTest::newRow("header") << "/mod/code/q_shared.h"
                                << "HEAD="
                                << "H\tHeaders\n  /mod/code/q_shared.h\tq_shared.h\n";
        QTest::newRow("resource") << "/mod/app.rc"
                                  << "RESC="
                                  << "R\tResources\n  /mod/app.rc\tapp.rc\n";
        QTest::newRow("source") << "/tools/pak.c"
                                << "SOUR="
                                << "/tools/pak.c\tpak.c\n";
        QTest::newRow("games folder") << "/mod/games/x.c"
                                      << "GAME="
                                      << "G\tGame\n  /mod/games/x.c\tx.c\n";
        QTest::newRow("ui in build") << "/mod/build/x.c"
                                     << "USER="
                                     << "U\tUI\n  /mod/build/x.c\tx.c\n";
        QTest::newRow("hpp") << "/mod/x.hpp"
                             << "HEAD="
                             << "H\tHeaders\n  /mod/x.hpp\tx.hpp\n";
        QTest::newRow("hold folder") << "/mod/x.hold/a.c"
                                     << "HEAD="
                                     << "H\tHeaders\n  /mod/x.hold/a.c\ta.c\n";
        QTest::newRow("mark in the middle") << "/mod/game.rc.d/a.c"
                                            << "RESC="
                                            << "R\tResources\n  /mod/game.rc.d/a.c\ta.c\n";
        QTest::newRow("cgame without slash") << "/mod/mycgame2/a.c"
                                             << "CAME="
                                             << "C\tCGame\n  /mod/mycgame2/a.c\ta.c\n";
        QTest::newRow("upper case, stored as chosen")
            << "/Mod/Code/GAME/G_Main.C"
            << "GAME="
            << "G\tGame\n  /Mod/Code/GAME/G_Main.C\tG_Main.C\n";
    }
    void singleFilesAreSortedIntoGroups()
    {
        QFETCH(QString, path);
        QFETCH(QString, tag);
        QFETCH(QString, tree);
        Fixture f;
        startNew(f, "sort.tdi");
        QVERIFY(add(f, path));
        QCOMPARE(f.session.fileView().listing(), tree);
        QCOMPARE(bytesOf(file("sort.tdi")), (tag + path + "\r\n\r\n").toUtf8());
    }

    void severalFilesLandInTheGroupOfTheWholeSelection()
    {
        Fixture f;
        startNew(f, "multi.tdi");
        QVERIFY(add(f, "/mod/tools a.c b.h"));
        QCOMPARE(f.session.fileView().listing(), QStringLiteral("H\tHeaders\n"
                                                                "  /mod/tools/a.c\ta.c\n"
                                                                "  /mod/tools/b.h\tb.h\n"));
        QCOMPARE(bytesOf(file("multi.tdi")), QByteArray("HEAD=/mod/tools/a.c\r\n"
                                                        "HEAD=/mod/tools/b.h\r\n\r\n"));
        QCOMPARE(f.state.workspace.headers.count(), qint16(2));
        QCOMPARE(f.state.workspace.headers.at(0), QStringLiteral("/mod/tools/a.c"));
    }

    void aSingleFileWithABlankInItsPathIsTakenAsSeveral()
    {
        Fixture f;
        startNew(f, "blank.tdi");
        QVERIFY(add(f, "/my mods/game/g_main.c"));
        QCOMPARE(f.session.fileView().listing(),
                 QStringLiteral("G\tGame\n  /my/mods/game/g_main.c\tg_main.c\n"));
        QCOMPARE(bytesOf(file("blank.tdi")), QByteArray("GAME=/my/mods/game/g_main.c\r\n\r\n"));
    }

    void aSelectionInTheRootFolderGivesSingleSlashPaths()
    {
        Fixture f;
        startNew(f, "root.tdi");
        QVERIFY(add(f, multiSelectionText({"/a.c", "/b.c"})));
        // The folder part of "/a.c" is empty, so the joined paths have one "/" only.
        QCOMPARE(bytesOf(file("root.tdi")), QByteArray("SOUR=/a.c\r\nSOUR=/b.c\r\n\r\n"));
    }

    void addingTheSameSingleFileTwiceFailsAtTheTreeWithoutWritingTheLine()
    {
        Fixture f;
        startNew(f, "twice.tdi");
        QVERIFY(add(f, "/mod/code/game/g_main.c"));
        QVERIFY(!add(f, "/mod/code/game/g_main.c"));
        QCOMPARE(bytesOf(file("twice.tdi")), QByteArray("GAME=/mod/code/game/g_main.c\r\n\r\n"));
        QCOMPARE(f.state.workspace.game.count(), qint16(1));
        QCOMPARE(f.session.fileView().size(), 2);
    }

    void aListedFileInASelectionIsWrittenAgainBeforeTheTreeRefusesIt()
    {
        Fixture f;
        startNew(f, "again.tdi");
        QVERIFY(add(f, "/mod/game/a.c"));
        QVERIFY(!add(f, "/mod/game a.c b.c"));
        QCOMPARE(bytesOf(file("again.tdi")), QByteArray("GAME=/mod/game/a.c\r\n"
                                                        "GAME=/mod/game/a.c\r\n\r\n"));
        QCOMPARE(f.state.workspace.game.count(), qint16(1));
        QVERIFY(!f.session.fileView().contains("/mod/game/b.c"));

        // The next opening stops reading at the duplicate line.
        Fixture g;
        g.dialog.answers << file("again.tdi");
        QVERIFY(!trapped([&] { g.session.openWorkspace(); }));
        QCOMPARE(g.session.fileView().listing(), QStringLiteral("G\tGame\n  /mod/game/a.c\ta.c\n"));
        QVERIFY(!g.state.workspace.open);
        QCOMPARE(g.state.workspace.path, QString());
        QVERIFY(g.session.structView().isEmpty());
    }

    void the52ndFileOfAGroupFailsSilently()
    {
        Fixture f;
        startNew(f, "full.tdi");
        for (int i = 0; i < 51; ++i)
            QVERIFY(add(f, QStringLiteral("/mod/game/f%1.c").arg(i)));
        const QByteArray before = bytesOf(file("full.tdi"));
        // A single file: node added, list full, line not written.
        QVERIFY(!add(f, "/mod/game/f51.c"));
        QCOMPARE(bytesOf(file("full.tdi")), before);
        QVERIFY(f.session.fileView().contains("/mod/game/f51.c"));
        QCOMPARE(f.state.workspace.game.count(), qint16(51));
        // Several files: the line is written first, then the list refuses it.
        QVERIFY(!add(f, "/mod/game x.c y.c"));
        QCOMPARE(bytesOf(file("full.tdi")), before.chopped(2) + "GAME=/mod/game/x.c\r\n\r\n");
        QVERIFY(!f.session.fileView().contains("/mod/game/y.c"));
    }

    void the62ndHeaderFailsSilently()
    {
        Fixture f;
        startNew(f, "heads.tdi");
        QStringList names;
        for (int i = 0; i < 61; ++i)
            names << QStringLiteral("h%1.h").arg(i);
        QVERIFY(add(f, "/mod " + names.join(' ')));
        QCOMPARE(f.state.workspace.headers.count(), qint16(61));
        QVERIFY(!add(f, "/mod/last.h"));
        QCOMPARE(f.state.workspace.headers.count(), qint16(61));
    }

    void aGroupNodeLeftWithoutFilesRefusesTheNextFileOfItsGroup()
    {
        Fixture f;
        startNew(f, "orphan.tdi");
        QVERIFY(add(f, "/mod/x/a.c"));      // Source
        QVERIFY(!add(f, "/mod/x a.c b.h")); // Headers: a.c is already listed
        QCOMPARE(f.state.workspace.headers.count(), qint16(0));
        QVERIFY(f.session.fileView().contains("H"));
        QVERIFY(!add(f, "/mod/x/c.h")); // the group node "H" exists already
        QVERIFY(!f.session.fileView().contains("/mod/x/c.h"));
    }

    void byteExactFileAfterASequenceOfOperations()
    {
        Fixture f;
        startNew(f, "seq.tdi");
        QVERIFY(add(f, "/q3/source/game/g_main.c"));
        QVERIFY(add(f, "/q3/source/game/q_shared.h"));
        QVERIFY(add(f, "/work/tools/mkpak.c"));
        QVERIFY(add(f, "/q3/source/cgame cg_main.c cg_draw.c"));
        QVERIFY(add(f, "/q3/source/ui/ui_main.c"));
        QVERIFY(add(f, "/q3/app.rc"));
        trapped([&] { f.session.closeWorkspace(); });
        QCOMPARE(bytesOf(file("seq.tdi")), QByteArray("GAME=/q3/source/game/g_main.c\r\n"
                                                      "HEAD=/q3/source/game/q_shared.h\r\n"
                                                      "SOUR=/work/tools/mkpak.c\r\n"
                                                      "CAME=/q3/source/cgame/cg_main.c\r\n"
                                                      "CAME=/q3/source/cgame/cg_draw.c\r\n"
                                                      "USER=/q3/source/ui/ui_main.c\r\n"
                                                      "RESC=/q3/app.rc\r\n"
                                                      "\r\n"));
        // Opening it again gives the same tree as adding did (the structure view then
        // stops at the first source, which does not exist).
        f.dialog.answers << file("seq.tdi");
        QVERIFY(!trapped([&] { f.session.openWorkspace(); }));
        QCOMPARE(f.session.fileView().listing(),
                 QStringLiteral("G\tGame\n"
                                "  /q3/source/game/g_main.c\tg_main.c\n"
                                "H\tHeaders\n"
                                "  /q3/source/game/q_shared.h\tq_shared.h\n"
                                "/work/tools/mkpak.c\tmkpak.c\n"
                                "C\tCGame\n"
                                "  /q3/source/cgame/cg_main.c\tcg_main.c\n"
                                "  /q3/source/cgame/cg_draw.c\tcg_draw.c\n"
                                "U\tUI\n"
                                "  /q3/source/ui/ui_main.c\tui_main.c\n"
                                "R\tResources\n"
                                "  /q3/app.rc\tapp.rc\n"));
    }

    void openWorkspaceAsksReadsAndTakesThePath()
    {
        Fixture f;
        textfile::writeBytes(file("open.tdi"), "SOUR=/nowhere/a.c\r\n\r\n");
        f.dialog.answers << file("open.tdi");
        // The missing source stops the structure view: the path is not taken.
        QVERIFY(!trapped([&] { f.session.openWorkspace(); }));
        const FileDialogRequest &r = f.dialog.requests.first();
        QCOMPARE(r.kind, FileDialogRequest::Open);
        QCOMPARE(r.title, QStringLiteral("Open Workspace"));
        QCOMPARE(r.filter, QStringLiteral("Tessaro Dir Info (*.tdi)|*.tdi"));
        QVERIFY(r.cancelError);
        QVERIFY(!f.state.workspace.open);
        QCOMPARE(f.state.workspace.path, QString());
        QCOMPARE(f.session.fileView().size(), 1);

        // With no workspace open, the next Open Workspace closes nothing: the group
        // nodes left in the structure view refuse to be added again.
        textfile::writeBytes(file("empty.tdi"), "\r\n");
        f.dialog.answers << file("empty.tdi");
        QVERIFY(!trapped([&] { f.session.openWorkspace(); }));
        QVERIFY(!f.state.workspace.open);

        Fixture g;
        g.dialog.answers << file("empty.tdi");
        QVERIFY(trapped([&] { g.session.openWorkspace(); }));
        QVERIFY(g.state.workspace.open);
        QCOMPARE(g.state.workspace.path, file("empty.tdi"));
        QVERIFY(g.session.fileView().isEmpty());
        QCOMPARE(g.session.structView().listing(),
                 QStringLiteral("G\tGame\nC\tCGame\nH\tHeaders\nU\tUI\n"));
    }

    void openWorkspaceCancelledEndsAfterClosingTheOpenOne()
    {
        Fixture f;
        startNew(f, "c.tdi");
        QVERIFY(add(f, "/tools/pak.c"));
        QVERIFY(!trapped([&] { f.session.openWorkspace(); }));
        QVERIFY(!f.state.workspace.open);
        QVERIFY(f.session.fileView().isEmpty());
    }

    void openingAMissingWorkspaceFileLeavesNoWorkspace()
    {
        Fixture f;
        f.dialog.answers << file("missing.tdi");
        QVERIFY(!trapped([&] { f.session.openWorkspace(); }));
        QVERIFY(!f.state.workspace.open);
        QVERIFY(f.session.fileView().isEmpty());
    }

    void closeWorkspaceEmptiesTreesAndLists()
    {
        Fixture f;
        startNew(f, "close.tdi");
        QVERIFY(add(f, "/mod/code/game/g_main.c"));
        QVERIFY(add(f, "/mod/code/q_shared.h"));
        f.session.closeWorkspace();
        QVERIFY(!f.state.workspace.open);
        QCOMPARE(f.state.workspace.path, QString());
        QVERIFY(f.session.fileView().isEmpty());
        QVERIFY(f.session.structView().isEmpty());
        QCOMPARE(f.state.workspace.game.count(), qint16(0));
        QCOMPARE(f.state.workspace.game.at(0), QString());
        QCOMPARE(f.state.workspace.headers.at(0), QString());
    }

    void closeWithoutAWorkspaceDoesNothing()
    {
        Fixture f;
        f.state.workspace.game.append("/kept.c");
        f.session.closeWorkspace();
        QCOMPARE(f.state.workspace.game.count(), qint16(1));
    }

    void selectingAFileNodeSchedulesItsPath()
    {
        Fixture f;
        f.session.fileNodeSelected("/mod/game/g_main.c");
        QCOMPARE(f.state.pendingOpenPath, QStringLiteral("/mod/game/g_main.c"));
        for (const char *group : {"G", "C", "U", "H"}) {
            f.state.pendingOpenPath.clear();
            f.session.fileNodeSelected(QLatin1String(group));
            QCOMPARE(f.state.pendingOpenPath, QString());
        }
        // The Resources group node is not excluded.
        f.session.fileNodeSelected("R");
        QCOMPARE(f.state.pendingOpenPath, QStringLiteral("R"));
    }

    void classificationTestsTheMarksInOrder()
    {
        QCOMPARE(WorkspaceSession::classify("/mod/game/x.rc"), Group::Resources);
        QCOMPARE(WorkspaceSession::classify("/mod/game/x.h.rc"), Group::Headers);
        QCOMPARE(WorkspaceSession::classify("/mod/cgame/x.c"), Group::CGame);
        QCOMPARE(WorkspaceSession::classify("/mod/game/ui/x.c"), Group::Game);
        QCOMPARE(WorkspaceSession::classify("/mod/cgame/ui/x.c"), Group::CGame);
        QCOMPARE(WorkspaceSession::classify("/mod/x.c"), Group::Source);
    }
};

TESSARO_CORE_TEST_MAIN(WorkspaceSessionTest)
#include "tst_workspacesession.moc"

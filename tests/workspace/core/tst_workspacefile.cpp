#include "platform/core/ErrorTraps.h"
#include "platform/core/TextFile.h"
#include "support/TestSupport.h"
#include "workspace/core/NodeTree.h"
#include "workspace/core/WorkspaceFile.h"

#include <QTemporaryDir>

using namespace tessaro;
using namespace tessaro::workspacefile;

class WorkspaceFileTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString file(const QString &name) const { return m_dir.filePath(name); }
    QString writeFile(const QString &name, const QByteArray &bytes)
    {
        textfile::writeBytes(file(name), bytes);
        return file(name);
    }
    // Reads under a trap, as the commands do; returns whether the whole file was read.
    static bool readTrapped(const QString &path, WorkspaceState &state, NodeTree &tree)
    {
        return trapped([&] { ReadWorkspaceFile(path, state, tree); });
    }

private Q_SLOTS:
    void createWritesExactlyOneLineEnd()
    {
        CreateWorkspaceFile(file("new.tdi"));
        QCOMPARE(textfile::readBytes(file("new.tdi")), QByteArray("\r\n"));
        // Creating over an existing workspace truncates it.
        writeFile("full.tdi", "GAME=/a/game/g.c\r\n\r\n");
        CreateWorkspaceFile(file("full.tdi"));
        QCOMPARE(textfile::readBytes(file("full.tdi")), QByteArray("\r\n"));
    }

    void appendRewritesTheFileKeepingTheTrailingEmptyLine()
    {
        const QString path = file("append.tdi");
        CreateWorkspaceFile(path);
        AppendWorkspaceEntry(path, "GAME=", "/q3/source/game/g_main.c");
        QCOMPARE(textfile::readBytes(path), QByteArray("GAME=/q3/source/game/g_main.c\r\n\r\n"));
        AppendWorkspaceEntry(path, "HEAD=", "/q3/source/game/q_shared.h");
        AppendWorkspaceEntry(path, "SOUR=", "/work/tools/mkpak.c");
        QCOMPARE(textfile::readBytes(path), QByteArray("GAME=/q3/source/game/g_main.c\r\n"
                                                       "HEAD=/q3/source/game/q_shared.h\r\n"
                                                       "SOUR=/work/tools/mkpak.c\r\n"
                                                       "\r\n"));
    }

    void appendReplacesTheFileKeepingItsPermissionsAndLeavesNothingBehind()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("perm.tdi");
        CreateWorkspaceFile(path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                        QFile::ReadOther);
        const QFile::Permissions before = QFile::permissions(path);
        for (int i = 0; i < 20; ++i)
            AppendWorkspaceEntry(path, "SOUR=", QStringLiteral("/t/f%1.c").arg(i));
        QCOMPARE(QFile::permissions(path), before);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"perm.tdi"});
        QVERIFY(textfile::readBytes(path).endsWith("SOUR=/t/f19.c\r\n\r\n"));
    }

    void appendToAFileWithoutFinalLineEndGluesOntoTheShortenedLastLine()
    {
        const QString path = writeFile("glue.tdi", "GAME=/a/game/g_main.c");
        AppendWorkspaceEntry(path, "HEAD=", "/a/x.h");
        QCOMPARE(textfile::readBytes(path), QByteArray("GAME=/a/game/g_mainHEAD=/a/x.h\r\n\r\n"));
    }

    void appendToAFileShorterThanTwoBytesFailsAndLeavesIt()
    {
        for (const QByteArray &bytes : {QByteArray(), QByteArray("\n")}) {
            const QString path = writeFile("short.tdi", bytes);
            try {
                AppendWorkspaceEntry(path, "GAME=", "/a/game/g.c");
                QFAIL("no error");
            } catch (const RuntimeError &error) {
                QCOMPARE(error.number(), qint64(RuntimeError::InvalidProcedureCall));
            }
            QCOMPARE(textfile::readBytes(path), bytes);
        }
    }

    void appendToAMissingWorkspaceFileRaisesFileNotFound()
    {
        try {
            AppendWorkspaceEntry(QString(), "GAME=", "/a/game/g.c");
            QFAIL("no error");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), qint64(RuntimeError::FileNotFound));
        }
    }

    void pathsAreWrittenAndReadInTheFileSystemEncoding()
    {
        const QString path = file("enc.tdi");
        CreateWorkspaceFile(path);
        const QString name = QStringLiteral("/mod/gr\u00fc\u00dfe/\u00e9t\u00e9.c");
        AppendWorkspaceEntry(path, "SOUR=", name);
        QCOMPARE(textfile::readBytes(path), "SOUR=" + QFile::encodeName(name) + "\r\n\r\n");
        WorkspaceState state;
        NodeTree tree;
        ReadWorkspaceFile(path, state, tree);
        QCOMPARE(state.source.at(0), name);
        QCOMPARE(tree.node(0).text, QStringLiteral("\u00e9t\u00e9.c"));
    }

    void aFileOfOnlyALineEndHasNoFilesAndNoGroupNodes()
    {
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("empty.tdi", "\r\n"), state, tree));
        QVERIFY(tree.isEmpty());
        QCOMPARE(state.game.count(), qint16(0));
    }

    void readingSetsAllCountsToZeroFirst()
    {
        WorkspaceState state;
        state.game.append("/old/game/x.c");
        state.headers.append("/old/x.h");
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("one.tdi", "SOUR=/a/b.c\r\n\r\n"), state, tree));
        QCOMPARE(state.game.count(), qint16(0));
        QCOMPARE(state.headers.count(), qint16(0));
        QCOMPARE(state.source.count(), qint16(1));
    }

    void emptyAndOneByteFilesCannotBeRead()
    {
        for (const QByteArray &bytes : {QByteArray(), QByteArray("G")}) {
            WorkspaceState state;
            state.game.append("/kept/game/x.c");
            NodeTree tree;
            QVERIFY(!readTrapped(writeFile("tiny.tdi", bytes), state, tree));
            QVERIFY(tree.isEmpty());
            // The failure comes before the counts are reset.
            QCOMPARE(state.game.count(), qint16(1));
        }
    }

    void aMissingFileCannotBeRead()
    {
        WorkspaceState state;
        NodeTree tree;
        try {
            ReadWorkspaceFile(file("missing.tdi"), state, tree);
            QFAIL("no error");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), qint64(RuntimeError::FileNotFound));
        }
    }

    void theLastTwoBytesAreNeverRead()
    {
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("nofinal.tdi", "SOUR=/a/one.c\r\nGAME=/a/game/g_main.c"),
                            state, tree));
        QCOMPARE(state.game.at(0), QStringLiteral("/a/game/g_main"));
        QCOMPARE(tree.listing(),
                 QStringLiteral("/a/one.c\tone.c\nG\tGame\n  /a/game/g_main\tg_main\n"));
    }

    void tagsAreCaseSensitiveAndOtherLinesAreIgnored()
    {
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("tags.tdi", "game=/a/game/x.c\r\n"
                                                  "# a comment\r\n"
                                                  "\r\n"
                                                  "GAME\r\n"
                                                  " GAME=/a/game/y.c\r\n"
                                                  "CAME=/a/cgame/cg.c\r\n"
                                                  "\r\n"),
                            state, tree));
        QCOMPARE(state.game.count(), qint16(0));
        QCOMPARE(state.cgame.count(), qint16(1));
        QCOMPARE(tree.listing(), QStringLiteral("C\tCGame\n  /a/cgame/cg.c\tcg.c\n"));
    }

    void aTagWithNothingAfterItIsIgnoredButBlanksMakeAnEmptyPath()
    {
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("blank.tdi", "GAME=\r\nHEAD=   \r\n\r\n"), state, tree));
        QCOMPARE(state.game.count(), qint16(0));
        QCOMPARE(state.headers.count(), qint16(1));
        QCOMPARE(state.headers.at(0), QString());
        QCOMPARE(tree.listing(), QStringLiteral("H\tHeaders\n  \t\n"));
    }

    void pathsAreTrimmedOfBlanksOnly()
    {
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("trim.tdi", "SOUR=  /a/b c.c  \r\nSOUR=\t/a/t.c\r\n\r\n"),
                            state, tree));
        QCOMPARE(state.source.at(0), QStringLiteral("/a/b c.c"));
        QCOMPARE(state.source.at(1), QStringLiteral("\t/a/t.c"));
    }

    void aPathEndingInASlashGivesANodeWithEmptyText()
    {
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("slash.tdi", "USER=/a/ui/\r\n\r\n"), state, tree));
        QCOMPARE(tree.listing(), QStringLiteral("U\tUI\n  /a/ui/\t\n"));
    }

    void aPathWithoutSlashGivesANodeWithEmptyText()
    {
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("rel.tdi", "SOUR=main.c\r\n\r\n"), state, tree));
        QCOMPARE(tree.listing(), QStringLiteral("main.c\t\n"));
    }

    void groupNodesStandInFirstUseOrderAmongTopLevelSources()
    {
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("order.tdi", "SOUR=/t/one.c\r\n"
                                                   "HEAD=/m/q_shared.h\r\n"
                                                   "RESC=/m/app.rc\r\n"
                                                   "SOUR=/t/two.c\r\n"
                                                   "GAME=/m/game/g_main.c\r\n"
                                                   "HEAD=/m/bg_public.h\r\n"
                                                   "USER=/m/ui/ui_main.c\r\n"
                                                   "CAME=/m/cgame/cg_main.c\r\n"
                                                   "\r\n"),
                            state, tree));
        QCOMPARE(tree.listing(), QStringLiteral("/t/one.c\tone.c\n"
                                                "H\tHeaders\n"
                                                "  /m/q_shared.h\tq_shared.h\n"
                                                "  /m/bg_public.h\tbg_public.h\n"
                                                "R\tResources\n"
                                                "  /m/app.rc\tapp.rc\n"
                                                "/t/two.c\ttwo.c\n"
                                                "G\tGame\n"
                                                "  /m/game/g_main.c\tg_main.c\n"
                                                "U\tUI\n"
                                                "  /m/ui/ui_main.c\tui_main.c\n"
                                                "C\tCGame\n"
                                                "  /m/cgame/cg_main.c\tcg_main.c\n"));
        QCOMPARE(tree.node(tree.indexOf("G")).image, GroupImage);
        QCOMPARE(tree.node(tree.indexOf("/m/game/g_main.c")).image, FileImage);
        QCOMPARE(state.headers.count(), qint16(2));
        QCOMPARE(state.headers.at(1), QStringLiteral("/m/bg_public.h"));
    }

    void the52ndGameLineStopsTheReading_data()
    {
        QTest::addColumn<QByteArray>("tag");
        QTest::addColumn<int>("capacity");
        QTest::newRow("game") << QByteArray("GAME=") << 51;
        QTest::newRow("headers") << QByteArray("HEAD=") << 61;
    }
    void the52ndGameLineStopsTheReading()
    {
        QFETCH(QByteArray, tag);
        QFETCH(int, capacity);
        QByteArray bytes;
        for (int i = 0; i <= capacity; ++i)
            bytes += tag + "/m/game/f" + QByteArray::number(i) + ".c\r\n";
        bytes += "SOUR=/after.c\r\n\r\n";
        WorkspaceState state;
        NodeTree tree;
        try {
            ReadWorkspaceFile(writeFile("full.tdi", bytes), state, tree);
            QFAIL("no error");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), qint64(RuntimeError::SubscriptOutOfRange));
        }
        const FixedList<QString> &list = tag == "GAME=" ? state.game : state.headers;
        QCOMPARE(int(list.count()), capacity);
        QCOMPARE(tree.size(), capacity + 1);
        QCOMPARE(state.source.count(), qint16(0));
        QVERIFY(!tree.contains("/after.c"));
    }

    void aDuplicatePathStopsTheReadingAfterStoringIt()
    {
        WorkspaceState state;
        NodeTree tree;
        try {
            ReadWorkspaceFile(writeFile("dup.tdi", "GAME=/m/game/g.c\r\n"
                                                   "HEAD=/m/game/g.c\r\n"
                                                   "SOUR=/after.c\r\n\r\n"),
                              state, tree);
            QFAIL("no error");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), NodeTree::KeyNotUnique);
        }
        // The header was stored and its group node added before the tree refused it.
        QCOMPARE(state.headers.count(), qint16(1));
        QCOMPARE(tree.listing(), QStringLiteral("G\tGame\n  /m/game/g.c\tg.c\nH\tHeaders\n"));
        QCOMPARE(state.source.count(), qint16(0));
    }

    void aBinaryFileReadsWhateverLinesMatch()
    {
        QByteArray bytes;
        for (int i = 0; i < 4096; ++i)
            bytes += char((i * 7919) % 256);
        bytes += "\r\nSOUR=/bin\x01"
                 "ary.c\r\n";
        bytes += QByteArray(100, '\0');
        bytes += "\r\n\r\n";
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("binary.tdi", bytes), state, tree));
        QCOMPARE(state.source.count(), qint16(1));
        QCOMPARE(state.source.at(0), QStringLiteral("/bin\x01"
                                                    "ary.c"));
    }

    void aTenMegabyteFileIsReadToItsEnd()
    {
        QByteArray bytes;
        bytes.reserve(10 * 1024 * 1024 + 100);
        const QByteArray junk = QByteArray(200, 'x') + "\r\n";
        while (bytes.size() < 10 * 1024 * 1024)
            bytes += junk;
        bytes += "SOUR=/at/the/end.c\r\n\r\n";
        WorkspaceState state;
        NodeTree tree;
        QElapsedTimer timer;
        timer.start();
        QVERIFY(readTrapped(writeFile("big.tdi", bytes), state, tree));
        QCOMPARE(state.source.count(), qint16(1));
        QCOMPARE(state.source.at(0), QStringLiteral("/at/the/end.c"));
        QVERIFY2(timer.elapsed() < 5000, "reading 10 MB took too long");
    }

    void loneLineFeedsDoNotSplitLines()
    {
        WorkspaceState state;
        NodeTree tree;
        QVERIFY(readTrapped(writeFile("lf.tdi", "SOUR=/a.c\nSOUR=/b.c\n\r\n"), state, tree));
        QCOMPARE(state.source.count(), qint16(1));
        QCOMPARE(state.source.at(0), QStringLiteral("/a.c\nSOUR=/b.c\n"));
    }

    void nodeTreeRefusesADuplicateKeyAndKeepsItsNodes()
    {
        NodeTree tree;
        tree.add(QString(), "G", "Game", 1);
        tree.add("G", "/a/game/x.c", "x.c", 5);
        try {
            tree.add(QString(), "/a/game/x.c", "x.c", 5);
            QFAIL("no error");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), NodeTree::KeyNotUnique);
            QCOMPARE(error.description(), QStringLiteral("Key is not unique in collection"));
        }
        QCOMPARE(tree.size(), 2);
        // Keys differ by case on a case-sensitive file system; empty keys are not keys.
        tree.add(QString(), "/A/game/x.c", "x.c", 5);
        tree.add(QString(), QString(), "a", 5);
        tree.add(QString(), QString(), "b", 5);
        QCOMPARE(tree.size(), 5);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, tree.add("nope", "k", "t", 1));
    }
};

TESSARO_CORE_TEST_MAIN(WorkspaceFileTest)
#include "tst_workspacefile.moc"

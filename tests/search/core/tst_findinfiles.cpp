#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"
#include "search/core/FindInFiles.h"
#include "search/core/OutputSearch.h"
#include "support/TestSupport.h"

#include <QTemporaryDir>

#include <unistd.h>

using namespace tessaro;
using namespace tessaro::search;

namespace {

// The output window as the search sees it, recording every caption it is given.
class RecordingView : public OutputView
{
public:
    QString caption() const override { return m_caption; }
    void setCaption(const QString &caption) override
    {
        m_caption = caption;
        captions.append(caption);
    }
    void append(const QString &text) override { output += text; }

    QString m_caption = QStringLiteral("Output");
    QStringList captions;
    QString output;
};

} // namespace

class FindInFilesTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    WorkspaceState m_workspace;

    QString file(const QString &name, const QByteArray &contents)
    {
        const QString path = m_dir.filePath(name);
        textfile::writeBytes(path, contents);
        return path;
    }

    QString search(const QString &text)
    {
        QString output;
        qint32 position = 0;
        findInFiles(m_workspace, text, output, position);
        return output;
    }

    static qint64 errorNumber(const std::function<void()> &run)
    {
        try {
            run();
        } catch (const RuntimeError &error) {
            return error.number();
        }
        return 0;
    }

private Q_SLOTS:
    void init()
    {
        QVERIFY(m_dir.isValid());
        m_workspace = WorkspaceState();
        m_workspace.open = true;
    }

    void linesHaveTheirExactWordingAndLineEnds()
    {
        QCOMPARE(searchingLine(QStringLiteral("Score")),
                 QStringLiteral("Searching for Score...\r\n"));
        QCOMPARE(foundLine(QStringLiteral("Score"), QStringLiteral("/mod/game/ai.c")),
                 QStringLiteral("Found Score in /mod/game/ai.c\r\n"));
    }

    void aFileHoldingTheTextManyTimesGivesOneFoundLine()
    {
        const QString ai = file("ai.c", "score score\r\nScore SCORE\r\n");
        const QString h = file("ai.h", "int score;\r\n");
        const QString other = file("other.c", "nothing here\r\n");
        m_workspace.game.append(ai);
        m_workspace.game.append(other);
        m_workspace.game.append(h);
        QCOMPARE(
            search(QStringLiteral("Score")),
            QStringLiteral("Searching for Score...\r\nFound Score in %1\r\nFound Score in %2\r\n")
                .arg(ai, h));
    }

    void matchingIgnoresLetterCase()
    {
        const QString upper = file("upper.c", "#define SCORE 1\n");
        m_workspace.source.append(upper);
        QCOMPARE(search(QStringLiteral("score")),
                 QStringLiteral("Searching for score...\r\nFound score in %1\r\n").arg(upper));
    }

    void accentedLettersMatchInBothCases()
    {
        const QString cafe = file("cafe.c", "/* CAF\xc9 */\n");
        const QString plain = file("plain.c", "/* cafe */\n");
        m_workspace.source.append(plain);
        m_workspace.source.append(cafe);
        const QString text = QString::fromLatin1("caf\xe9");
        QCOMPARE(search(text), searchingLine(text) + foundLine(text, cafe));
    }

    void listsAreSearchedGameCGameUISourceThenHeaders()
    {
        const QByteArray hit("hit");
        const QString s = file("s.c", hit), u = file("u.c", hit), c = file("c.c", hit);
        const QString g = file("g.c", hit), h = file("h.h", hit);
        m_workspace.source.append(s);
        m_workspace.ui.append(u);
        m_workspace.cgame.append(c);
        m_workspace.game.append(g);
        m_workspace.headers.append(h);
        QCOMPARE(search(QStringLiteral("HIT")),
                 searchingLine(QStringLiteral("HIT")) + foundLine(QStringLiteral("HIT"), g) +
                     foundLine(QStringLiteral("HIT"), c) + foundLine(QStringLiteral("HIT"), u) +
                     foundLine(QStringLiteral("HIT"), s) + foundLine(QStringLiteral("HIT"), h));
    }

    void resourcesAreNeverSearched()
    {
        m_workspace.resources.append(file("menu.rc", "score"));
        // Not even opened: a missing resource file raises nothing.
        m_workspace.resources.append(m_dir.filePath("missing.rc"));
        QCOMPARE(search(QStringLiteral("score")), searchingLine(QStringLiteral("score")));
    }

    void anEmptyWorkspaceGivesOnlyTheSearchingLine()
    {
        QCOMPARE(search(QStringLiteral("score")), QStringLiteral("Searching for score...\r\n"));
    }

    void anEmptySearchTextReportsEveryListedFile()
    {
        const QString a = file("a.c", "int a;\n"), empty = file("empty.c", "");
        m_workspace.game.append(a);
        m_workspace.headers.append(empty);
        QCOMPARE(
            search(QString()),
            QStringLiteral("Searching for ...\r\nFound  in %1\r\nFound  in %2\r\n").arg(a, empty));
    }

    void pathsAreReportedAsTheListsHoldThem()
    {
        const QString path = file("My File.c", "score");
        const QString asListed = m_dir.path() + QStringLiteral("/./My File.c");
        m_workspace.game.append(asListed);
        QCOMPARE(search(QStringLiteral("score")), searchingLine(QStringLiteral("score")) +
                                                      foundLine(QStringLiteral("score"), asListed));
        QVERIFY(QFile::exists(path));
    }

    void aBinaryFileIsSearchedWholeBytes()
    {
        const QString withText = file("with.bin", QByteArray("\x00\x01\x02SCORE\x00\xff", 10));
        const QString without = file("without.bin", QByteArray("\x00\x01\x02\x1a\x00\xff", 6));
        m_workspace.cgame.append(without);
        m_workspace.cgame.append(withText);
        QCOMPARE(search(QStringLiteral("score")), searchingLine(QStringLiteral("score")) +
                                                      foundLine(QStringLiteral("score"), withText));
    }

    void aMissingFileEndsTheSearchWithFileNotFound()
    {
        const QString before = file("before.c", "score");
        const QString after = file("after.c", "score");
        m_workspace.game.append(before);
        m_workspace.game.append(m_dir.filePath("gone.c"));
        m_workspace.game.append(after);
        QString output;
        qint32 position = 0;
        QCOMPARE(errorNumber(
                     [&] { findInFiles(m_workspace, QStringLiteral("score"), output, position); }),
                 qint64(RuntimeError::FileNotFound));
        QCOMPARE(output, searchingLine(QStringLiteral("score")) +
                             foundLine(QStringLiteral("score"), before));
    }

    void anUnreadableFileEndsTheSearchWithAccessError()
    {
        m_workspace.game.append(m_dir.path()); // a folder cannot be read as a file
        QString output;
        qint32 position = 0;
        QCOMPARE(
            errorNumber([&] { findInFiles(m_workspace, QStringLiteral("x"), output, position); }),
            qint64(RuntimeError::PathFileAccessError));
        if (::geteuid() == 0)
            return; // root reads any file whatever its mode
        const QString locked = file("locked.c", "x");
        QFile::setPermissions(locked, QFileDevice::Permissions());
        m_workspace = WorkspaceState();
        m_workspace.headers.append(locked);
        QCOMPARE(
            errorNumber([&] { findInFiles(m_workspace, QStringLiteral("x"), output, position); }),
            qint64(RuntimeError::PathFileAccessError));
    }

    void aCountBeyondTheCapacityRaisesSubscriptOutOfRange()
    {
        const QString a = file("a.c", "x");
        for (int i = 0; i < 51; ++i)
            m_workspace.game.set(i, a);
        m_workspace.game.setCount(52);
        QString output;
        qint32 position = 0;
        QCOMPARE(
            errorNumber([&] { findInFiles(m_workspace, QStringLiteral("x"), output, position); }),
            qint64(RuntimeError::SubscriptOutOfRange));
        QCOMPARE(output.count(QStringLiteral("Found")), 51);
    }

    void theLastMatchPositionIsOneBasedAndZeroWhenAbsent()
    {
        m_workspace.game.append(file("a.c", "abc score"));
        QString output;
        qint32 position = -7;
        findInFiles(m_workspace, QStringLiteral("SCORE"), output, position);
        QCOMPARE(position, 5);
        m_workspace.game.append(file("b.c", "abc"));
        findInFiles(m_workspace, QStringLiteral("SCORE"), output, position);
        QCOMPARE(position, 0);
    }

    // The output window's timer.

    void aTickBeforeLoadingDoesNothing()
    {
        m_workspace.game.append(file("a.c", "x"));
        OutputSearch search;
        RecordingView view;
        search.tick({QStringLiteral("x"), QStringLiteral("/")}, m_workspace, view);
        QVERIFY(view.captions.isEmpty());
        QVERIFY(view.output.isEmpty());
    }

    void theSearchRunsOncePerLoadWithTheSearchingCaption()
    {
        const QString a = file("a.c", "x");
        m_workspace.game.append(a);
        OutputSearch search;
        RecordingView view;
        search.load();
        QVERIFY(search.isPending());
        const FindInFilesQuery query{QStringLiteral("x"), QStringLiteral("/tmp/")};
        search.tick(query, m_workspace, view);
        QCOMPARE(view.captions,
                 QStringList({QStringLiteral("Output - Searching..."), QStringLiteral("Output")}));
        QCOMPARE(view.output,
                 searchingLine(QStringLiteral("x")) + foundLine(QStringLiteral("x"), a));
        QVERIFY(!search.isPending());
        QCOMPARE(search.lastMatchPosition(), 1);

        search.tick(query, m_workspace, view); // idle ticks add nothing
        search.tick(query, m_workspace, view);
        QCOMPARE(view.captions.size(), 2);
        QCOMPARE(view.output,
                 searchingLine(QStringLiteral("x")) + foundLine(QStringLiteral("x"), a));

        search.load(); // loaded again: a new search appends below the earlier one
        search.tick({QStringLiteral("y"), QStringLiteral("/tmp/")}, m_workspace, view);
        QCOMPARE(view.output, searchingLine(QStringLiteral("x")) +
                                  foundLine(QStringLiteral("x"), a) +
                                  searchingLine(QStringLiteral("y")));
    }

    void anEmptySearchFolderPassesThroughTheCaptionAndAppendsNothing()
    {
        m_workspace.game.append(file("a.c", "x"));
        OutputSearch search;
        RecordingView view;
        search.load();
        search.tick({QStringLiteral("x"), QString()}, m_workspace, view);
        QCOMPARE(view.captions,
                 QStringList({QStringLiteral("Output - Searching..."), QStringLiteral("Output")}));
        QVERIFY(view.output.isEmpty());
        QVERIFY(!search.isPending());
    }

    void anUnreadableFileLeavesTheSearchPendingAndTheCaptionSearching()
    {
        const QString a = file("a.c", "x");
        m_workspace.game.append(a);
        m_workspace.cgame.append(m_dir.filePath("gone.c"));
        m_workspace.ui.append(file("u.c", "x"));
        OutputSearch search;
        RecordingView view;
        view.m_caption = QStringLiteral("Output");
        search.load();
        QCOMPARE(errorNumber([&] {
                     search.tick({QStringLiteral("x"), QStringLiteral("/")}, m_workspace, view);
                 }),
                 qint64(RuntimeError::FileNotFound));
        QVERIFY(search.isPending());
        QCOMPARE(view.caption(), QStringLiteral("Output - Searching..."));
        QCOMPARE(view.output,
                 searchingLine(QStringLiteral("x")) + foundLine(QStringLiteral("x"), a));
    }
};

TESSARO_CORE_TEST_MAIN(FindInFilesTest)
#include "tst_findinfiles.moc"

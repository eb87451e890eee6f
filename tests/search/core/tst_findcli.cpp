#include "platform/core/TextFile.h"
#include "search/core/FindInFiles.h"
#include "support/CliRun.h"
#include "support/TestSupport.h"

#include <QTemporaryDir>

using namespace tessaro;
using namespace tessaro::search;

namespace {

using CliResult = test::CliRun;

CliResult cli(const QStringList &arguments, const QString &folder = QString())
{
    return test::runCli(QStringList{"find"} + arguments, folder);
}

} // namespace

class FindCliTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString file(const QString &name, const QByteArray &contents)
    {
        const QString path = m_dir.filePath(name);
        textfile::writeBytes(path, contents);
        return path;
    }

    // A workspace file with one line per entry (tag and path) and the final empty line.
    QString workspace(const QList<QPair<QByteArray, QString>> &entries)
    {
        QByteArray text;
        for (const auto &entry : entries)
            text += entry.first + QFile::encodeName(entry.second) + "\r\n";
        return file(QStringLiteral("mod.tdi"), text + "\r\n");
    }

private Q_SLOTS:
    void printsWhatTheOutputWindowHoldsAfterOneSearch()
    {
        const QString g = file("g_main.c", "int Score;\r\n");
        const QString c = file("cg_main.c", "nothing\r\n");
        const QString h = file("q_shared.h", "#define SCORE_LIMIT 20\r\n");
        const QString r = file("menu.rc", "score");
        const QString s = file("tool.c", "score score score");
        const QString tdi =
            workspace({{"HEAD=", h}, {"RESC=", r}, {"SOUR=", s}, {"CAME=", c}, {"GAME=", g}});
        const CliResult result = cli({tdi, QStringLiteral("score")});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(
            QString::fromUtf8(result.out),
            QStringLiteral("Searching for score...\r\nFound score in %1\r\nFound score in %2\r\n"
                           "Found score in %3\r\n")
                .arg(g, s, h));
    }

    void anEmptyWorkspaceGivesTheSearchingLineOnly()
    {
        const CliResult result = cli({file("empty.tdi", "\r\n"), QStringLiteral("frag")});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, QByteArray("Searching for frag...\r\n"));
    }

    void theSearchTextIsPrintedAsGivenAndMatchedInEitherCase()
    {
        const QString fr = file("fr.c", "/* \xc9T\xc9 */");
        const QString text = QString::fromLatin1("\xe9t\xe9");
        const CliResult result = cli({workspace({{"USER=", fr}}), text});
        QCOMPARE(result.status, 0);
        QCOMPARE(QString::fromUtf8(result.out), searchingLine(text) + foundLine(text, fr));
    }

    void anEmptySearchTextReportsEveryFile()
    {
        const QString a = file("a.c", ""), b = file("b.c", "x");
        const CliResult result = cli({workspace({{"GAME=", a}, {"GAME=", b}}), QString()});
        QCOMPARE(result.status, 0);
        QCOMPARE(QString::fromUtf8(result.out),
                 searchingLine(QString()) + foundLine(QString(), a) + foundLine(QString(), b));
    }

    void aMissingFileStopsWithTheLinesFoundBeforeIt()
    {
        const QString a = file("a.c", "x");
        const QString gone = m_dir.filePath("gone.c");
        const QString h = file("h.h", "x");
        const CliResult result =
            cli({workspace({{"GAME=", a}, {"GAME=", gone}, {"HEAD=", h}}), "x"});
        QCOMPARE(result.status, 1);
        QCOMPARE(QString::fromUtf8(result.out), searchingLine("x") + foundLine("x", a));
        QCOMPARE(result.err,
                 QByteArray("tessaro-cli find: stopped by run-time error 53: File not found\n"));
    }

    void anUnreadableWorkspaceSearchesNothing()
    {
        const CliResult result = cli({m_dir.filePath("none.tdi"), "x"});
        QCOMPARE(result.status, 1);
        QCOMPARE(result.out, QByteArray());
        QVERIFY(result.err.startsWith("tessaro-cli find: stopped by run-time error 53"));
    }

    void wrongArgumentsShowTheUsage()
    {
        const CliResult result = cli({file("w.tdi", "\r\n")});
        QCOMPARE(result.status, 2);
        QCOMPARE(result.out, QByteArray());
        QVERIFY(result.err.startsWith("Usage: tessaro-cli find WORKSPACE TEXT\n"));
    }
};

TESSARO_CORE_TEST_MAIN(FindCliTest)
#include "tst_findcli.moc"

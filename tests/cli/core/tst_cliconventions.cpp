#include "editor/core/ModeWordLists.h"
#include "editor/core/RtfDocument.h"
#include "platform/core/TextFile.h"
#include "support/CliRun.h"
#include "support/TestSupport.h"

#include <QTemporaryDir>

using namespace tessaro;

namespace {

using Run = test::CliRun;

Run cli(const QStringList &arguments)
{
    return test::runCli(arguments);
}

const QStringList kCommands{"colour", "rtf", "tree", "structs", "find", "build"};

} // namespace

// What every command of tessaro-cli shares: help on standard output, usage errors on
// standard error, text from files printed as UTF-8.
class CliConventionsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString file(const QString &name, const QByteArray &bytes)
    {
        return test::writeFileIn(m_dir.path(), name, bytes);
    }

private Q_SLOTS:
    void theToolsHelpListsEveryCommand()
    {
        const Run run = cli({"--help"});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.err, QByteArray());
        QVERIFY(run.out.startsWith("Usage: tessaro-cli COMMAND [ARGUMENTS...]\n"));
        for (const QString &command : kCommands)
            QVERIFY2(run.out.contains("\n  " + command.toUtf8() + " "), qPrintable(command));
        QVERIFY(run.out.endsWith("tessaro-cli COMMAND --help shows the usage of one command.\n"));
        QCOMPARE(cli({"-h"}).out, run.out);
    }

    void aCommandsHelpGoesToStandardOutputWithStatusZero()
    {
        for (const QString &command : kCommands) {
            for (const char *help : {"--help", "-h"}) {
                const Run run = cli({command, help});
                QCOMPARE(run.status, 0);
                QCOMPARE(run.err, QByteArray());
                QVERIFY2(run.out.startsWith("Usage: tessaro-cli " + command.toUtf8() + " "),
                         run.out.constData());
                QVERIFY(run.out.endsWith(".\n"));
            }
        }
    }

    void usageErrorsGoToStandardErrorWithStatusTwo()
    {
        for (const QString &command : kCommands) {
            const QByteArray usage = cli({command, "--help"}).out;
            QVERIFY(usage.startsWith("Usage: tessaro-cli "));
            const Run run = cli({command});
            QCOMPARE(run.status, 2);
            QCOMPARE(run.out, QByteArray());
            QVERIFY2(run.err.endsWith(usage), qPrintable(command));
        }
        const Run tooMany = cli({"structs", "a.tdi", "b.tdi"});
        QCOMPARE(tooMany.status, 2);
        QCOMPARE(tooMany.out, QByteArray());
        const Run unknown = cli({"frobnicate"});
        QCOMPARE(unknown.status, 2);
        QCOMPARE(unknown.out, QByteArray());
        QVERIFY(unknown.err.startsWith("tessaro-cli: unknown command 'frobnicate'\n"));
        QCOMPARE(cli({}).status, 2);
    }

    void structureNamesArePrintedAsUtf8()
    {
        // The file's bytes are Latin-1 text, as the editor reads them.
        const QString h = file("utf/q.h", "typedef struct { int x; } caf\xe9_t;\r\n");
        const QString tdi = file("utf/q.tdi", ("HEAD=" + QFile::encodeName(h) + "\r\n\r\n"));
        const Run run = cli({"structs", tdi});
        QCOMPARE(run.status, 0);
        QCOMPARE(
            QString::fromUtf8(run.out),
            QStringLiteral("G\tGame\nC\tCGame\nH\tHeaders\n  %1-1\tcaf\u00e9_t\nU\tUI\n").arg(h));
    }

    void pathsArePrintedAsUtf8()
    {
        // Paths in a workspace file are in the file system's encoding (UTF-8).
        const QString h =
            file(QStringLiteral("utf/M\u00fcnchen/g_\u00e9t\u00e9.h"), "int Gr\xf6\xdf"
                                                                       "e;\r\n");
        const QString tdi = file("utf/p.tdi", ("HEAD=" + QFile::encodeName(h) + "\r\n\r\n"));
        const Run tree = cli({"tree", tdi});
        QCOMPARE(tree.status, 0);
        QCOMPARE(QString::fromUtf8(tree.out),
                 QStringLiteral("H\tHeaders\n  %1\tg_\u00e9t\u00e9.h\n").arg(h));
        const Run find = cli({"find", tdi, QStringLiteral("gr\u00d6\u00dfe")});
        QCOMPARE(find.status, 0);
        QCOMPARE(
            QString::fromUtf8(find.out),
            QStringLiteral("Searching for gr\u00d6\u00dfe...\r\nFound gr\u00d6\u00dfe in %1\r\n")
                .arg(h));
    }

    void spellingsArePrintedAsUtf8()
    {
        QTemporaryDir lists;
        textfile::writeBytes(lists.filePath("tessaro.stx"), "*Gr\xf6\xdf"
                                                            "e*");
        const QString source = file("utf/s.c", "gr\xf6\xdf"
                                               "e x;\r\n");
        const Run run = cli({"colour", source, "--lists", lists.path()});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.out, QByteArray("0 5 keyword Gr\xc3\xb6\xc3\x9f"
                                     "e\n"));
    }

    void fileFormatsArePrintedByteForByte()
    {
        const QByteArray source = "/* caf\xe9 */ int x;\r\n";
        const Run rtf = cli({"rtf", file("raw/r.c", source)});
        QCOMPARE(rtf.status, 0);
        QCOMPARE(rtf.out, textfile::toBytes(writeRtf(editorText(textfile::fromBytes(source)))));
    }
};

TESSARO_CORE_TEST_MAIN(CliConventionsTest)
#include "tst_cliconventions.moc"

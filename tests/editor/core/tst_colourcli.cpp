#include "editor/core/DynHighlight.h"
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

class Caption : public DocumentCaption
{
public:
    QString caption() const override { return m_caption; }
    void setCaption(const QString &caption) override { m_caption = caption; }

private:
    QString m_caption;
};

} // namespace

class ColourCliTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString file(const QString &name, const QByteArray &content)
    {
        const QString path = m_dir.filePath(name);
        textfile::writeBytes(path, content);
        return path;
    }

private Q_SLOTS:
    void colourPrintsOneLinePerStretchInScanOrder()
    {
        QTemporaryDir lists;
        textfile::write(lists.filePath("tessaro.stx"), "; *int*Return*\r\n");
        textfile::write(lists.filePath("C_Black.txt"), "*NULL*");
        const QString source = file("a.c", "int f(void)\n{\n\treturn null ; /* c */\n}\n");
        const Run run = cli({"colour", source, "--lists", lists.path()});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.out, QByteArray("0 3 keyword int\n17 6 keyword Return\n24 4 text NULL\n"
                                     "31 7 comment\n"));
    }
    void theFileNameChoosesTheMode()
    {
        QTemporaryDir lists;
        textfile::write(lists.filePath("tessaro.stx"), "*int*");
        for (const char *name : {"x.h", "x.cpp", "x.c"}) {
            const Run run = cli({"colour", file(name, "int x;\r\n"), "--lists", lists.path()});
            QCOMPARE(run.out, QByteArray("0 3 keyword int\n"));
        }
        for (const char *name : {"x.hpp", "x.txt", "x.C", "x"}) {
            const Run run = cli({"colour", file(name, "int x; // c\r\n"), "--lists", lists.path()});
            QCOMPARE(run.status, 0);
            QCOMPARE(run.out, QByteArray());
        }
        const Run forced = cli(
            {"colour", file("y.txt", "int x; // c\r\n"), "--mode", "6", "--lists", lists.path()});
        QCOMPARE(forced.out, QByteArray("0 3 keyword int\n7 4 comment\n"));
        textfile::write(lists.filePath("Perl_Blue.txt"), "*my*");
        const Run perl =
            cli({"colour", file("p.pl", "my $x; # c\n"), "--mode", "5", "--lists", lists.path()});
        QCOMPARE(perl.out, QByteArray("0 2 keyword my\n7 3 comment\n"));
    }
    void theListsBesideTheExecutableAreTheDefault()
    {
        const Run run = cli({"colour", file("g.c", "VEC3_T v;\r\nGentity_t *ent;\r\n")});
        QCOMPARE(run.out, QByteArray("0 6 keyword vec3_t\n11 9 keyword gentity_t\n"));
    }
    void badArgumentsAndMissingFiles()
    {
        QCOMPARE(cli({"colour"}).status, 2);
        QCOMPARE(cli({"colour", "a.c", "--mode", "x"}).status, 2);
        QCOMPARE(cli({"colour", "--line-colourer", "x.c"}).status, 2);
        QCOMPARE(cli({"rtf"}).status, 2);
        const Run missing = cli({"colour", m_dir.filePath("none.c")});
        QCOMPARE(missing.status, 1);
        QVERIFY(missing.err.contains("run-time error 53: File not found"));
        QCOMPARE(cli({"rtf", m_dir.filePath("none.c")}).status, 1);
    }
    void binaryFilesAreColouredSafely()
    {
        QByteArray bytes;
        for (int round = 0; round < 4; ++round)
            for (int c = 0; c < 256; ++c)
                bytes += char(c);
        const Run run = cli({"colour", file("bin.c", bytes)});
        QCOMPARE(run.status, 0);
        const Run rtf = cli({"rtf", file("bin.c", bytes)});
        QCOMPARE(rtf.status, 0);
        QCOMPARE(readRtf(textfile::fromBytes(rtf.out)).text,
                 editorText(textfile::fromBytes(bytes)));
    }
    void aLargeFileReadsAsTheEditorHoldsIt()
    {
        // Over 64 KiB with every kind of break, a CR LF across the 64 Ki boundary and a
        // comment across the 128 Ki one: the positions are those of the editor's text,
        // the same as for the file written with CR LF breaks.
        const char *const breaks[] = {"\r\n", "\n", "\r"};
        QByteArray bytes;
        for (int line = 0; bytes.size() < 200000; ++line)
            bytes += "int x" + QByteArray::number(line) + ";" + breaks[line % 3];
        bytes.replace(65535, 2, "\r\n");
        bytes.replace(131070, 4, "/**/");
        const QByteArray crlf = textfile::toBytes(editorText(textfile::fromBytes(bytes)));
        const Run run = cli({"colour", file("large.c", bytes)});
        QCOMPARE(run.status, 0);
        QVERIFY(run.out.contains(" comment\n"));
        QCOMPARE(run.out, cli({"colour", file("large-crlf.c", crlf)}).out);
        const Run rtf = cli({"rtf", file("large.c", bytes)});
        QCOMPARE(rtf.status, 0);
        QCOMPARE(rtf.out, textfile::toBytes(writeRtf(textfile::fromBytes(crlf))));
    }
    void rtfPrintsWhatTheWriterMakes()
    {
        const QByteArray source = "int x;\n\tchar *s = \"{\\\\}\";\n";
        const Run run = cli({"rtf", file("r.c", source)});
        QCOMPARE(run.status, 0);
        QCOMPARE(run.out, textfile::toBytes(writeRtf(editorText(textfile::fromBytes(source)))));
    }
    void theLineColourerPrintsTheColouredRtf()
    {
        const QString stx = QStringLiteral(TESSARO_BIN_DIR "/tessaro.stx");
        const QByteArray source = "int main(void)\r\n{\r\n\t// start\r\n\treturn 0;\r\n}\r\n";
        const Run run = cli({"colour", "--line-colourer", "--stx", stx, file("m.c", source)});
        QCOMPARE(run.status, 0);
        DynHighlight colourer;
        colourer.colours.setStartupValues();
        Caption caption;
        const QString expected = colourer.colourWithSectionFile(
            caption, stx, writeRtf(editorText(textfile::fromBytes(source))));
        QCOMPARE(run.out, textfile::toBytes(expected));
        // A tab is written as a control word that no blank ends, so the colourer takes
        // it and the word after it for one piece.
        QVERIFY(run.out.contains("\r\n\\cf5\\tab// \\cf5 start\\par\r\n"));
        QVERIFY(run.out.contains("\r\n\\cf5\\tab{}return \\cf5 0;\\par\r\n"));
        QVERIFY(run.out.endsWith("\\par\r\n}"));
    }
    void aMissingDefinitionFileColoursWithoutLists()
    {
        const Run run = cli({"colour", "--line-colourer", "--stx", m_dir.filePath("none.stx"),
                             file("n.c", "int x\r\n")});
        QCOMPARE(run.status, 0);
        QVERIFY(run.out.contains("\r\n\\cf5\\cf3\\cf3int \\cf5 x\\cf5\\par\r\n"));
    }
};

TESSARO_CORE_TEST_MAIN(ColourCliTest)
#include "tst_colourcli.moc"

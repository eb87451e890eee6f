#include "editor/core/RtfDocument.h"
#include "support/TestSupport.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

using namespace tessaro;

namespace {

// The first control word in a line of RTF that ends at a blank ("\\cf1 x"), or an
// empty text when every control word ends some other way.
QString controlWordEndingAtABlank(const QString &line)
{
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line.at(i) != u'\\' || i + 1 >= line.size())
            continue;
        const QChar next = line.at(i + 1);
        if (!next.isLetter()) {
            i += next == u'\'' ? 3 : 1; // a control symbol: \\, \{, \}, \'hh
            continue;
        }
        qsizetype j = i + 1;
        while (j < line.size() && line.at(j).isLetter())
            ++j;
        if (j < line.size() && line.at(j) == u'-')
            ++j;
        while (j < line.size() && line.at(j).isDigit())
            ++j;
        if (j < line.size() && line.at(j) == u' ')
            return line.mid(i, j - i + 1);
        i = j - 1;
    }
    return QString();
}

// The paragraph lines of written RTF (everything after the colour-table line).
QStringList paragraphLines(const QString &rtf)
{
    QStringList lines = rtf.split(QStringLiteral("\r\n"));
    return lines.mid(2);
}

const QString kHeader =
    QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033"
                   "{\\fonttbl{\\f0\\fmodern\\fprq1\\fcharset0 Courier New;}}\r\n");
const QString kParagraph = QStringLiteral("\\viewkind4\\uc1\\pard\\f0\\fs20\r\n");
} // namespace

class RtfTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theWriterHasTheRichEditShape()
    {
        QCOMPARE(writeRtf("int x;\r\n\r\nchar c;"),
                 kHeader + "{\\colortbl ;\\red0\\green0\\blue0;}" + kParagraph +
                     "int x;\\par\r\n\\par\r\nchar c;\\par\r\n}");
        QCOMPARE(writeRtf(QString()),
                 kHeader + "{\\colortbl ;\\red0\\green0\\blue0;}" + kParagraph + "\\par\r\n}");
    }
    void everyKindOfLineBreakEndsAParagraph()
    {
        QVERIFY(writeRtf("a\nb\rc\r\n").endsWith("a\\par\r\nb\\par\r\nc\\par\r\n\\par\r\n}"));
    }
    void specialCharactersAreEscaped()
    {
        QVERIFY(writeRtf("{\\}\t\u00e9\u20ac\x01")
                    .endsWith(kParagraph + "\\{\\\\\\}\\tab\\'e9\\u8364?\\'01\\par\r\n}"));
    }
    void colourRunsBecomeSwitchesAndATable()
    {
        const QString rtf = writeRtf("int x", {{0, 3, 0x7F0000}, {4, 1, 0x8000}});
        QVERIFY(rtf.contains("{\\colortbl ;\\red0\\green0\\blue127;\\red0\\green128\\blue0;}"));
        QVERIFY(rtf.endsWith(kParagraph + "\\cf1int\\cf0{} \\cf2x\\par\r\n}"));
    }
    void noControlWordEndsAtABlankInsideALine()
    {
        // Switches and tabs before blanks, digits, letters and hyphens: a tool that
        // cuts lines at blanks must see only the text's own blanks.
        const QString text = "\t x\t9\tint\t-1\t\t{a}\r\n  x = \"a  b\";\r\n1 2";
        const std::vector<RtfColourRun> runs{{1, 2, 0xFF}, {3, 1, 0x8000}, {5, 3, 0xFF},
                                             {16, 1, 0x8000}, {19, 4, 0xFF}, {34, 1, 0xFF}};
        const QString rtf = writeRtf(text, runs);
        for (const QString &line : paragraphLines(rtf))
            QVERIFY2(controlWordEndingAtABlank(line).isEmpty(), qPrintable(line));
        const RtfDocument doc = readRtf(rtf);
        QCOMPARE(doc.text, text);
        QCOMPARE(doc.runs, runs);
    }
    void randomTextsWithColoursReadBackExactly()
    {
        QRandomGenerator random(1807);
        const QString alphabet = QStringLiteral("  \t\tab-09 {}\\;\"/*x") + QChar(0xe9) +
                                 QChar(0x20ac);
        for (int round = 0; round < 500; ++round) {
            QString text;
            const int length = random.bounded(120);
            for (int i = 0; i < length; ++i)
                text += random.bounded(12) == 0 ? QStringLiteral("\r\n")
                                                : QString(alphabet.at(random.bounded(
                                                      int(alphabet.size()))));
            // Runs of random colours that stop at every line break, as the editor's do.
            std::vector<RtfColourRun> runs;
            for (qsizetype at = 0; at < text.size();) {
                const qsizetype length = 1 + random.bounded(6);
                qsizetype end = std::min(text.size(), at + length);
                const qsizetype lineBreak = text.indexOf(u'\r', at);
                if (lineBreak >= 0 && lineBreak < end)
                    end = lineBreak;
                if (end > at && random.bounded(2))
                    runs.push_back({at, end - at, ColourValue(random.bounded(4) * 0x3F00)});
                at = std::max(end, at + 1);
                while (at < text.size() && (text.at(at) == u'\r' || text.at(at) == u'\n'))
                    ++at;
            }
            // Neighbouring runs of one colour read back as one.
            std::vector<RtfColourRun> merged;
            for (const RtfColourRun &run : runs) {
                if (!merged.empty() && merged.back().colour == run.colour &&
                    merged.back().start + merged.back().length == run.start)
                    merged.back().length += run.length;
                else
                    merged.push_back(run);
            }
            const QString rtf = writeRtf(text, merged);
            for (const QString &line : paragraphLines(rtf))
                QVERIFY2(controlWordEndingAtABlank(line).isEmpty(), qPrintable(line));
            const RtfDocument doc = readRtf(rtf);
            QCOMPARE(doc.text, text);
            QCOMPARE(doc.runs, merged);
        }
    }
    void writtenTextReadsBackExactly()
    {
        const QString text =
            "/* c */\r\nint main(void)\r\n{\r\n\treturn \"\\\\{}\u00e9\u20ac\";\r\n}\r\n";
        const std::vector<RtfColourRun> runs{{0, 7, 0x8000}, {9, 3, 0x7F0000}, {33, 6, 0xFF}};
        const RtfDocument doc = readRtf(writeRtf(text, runs));
        QCOMPARE(doc.text, text);
        QCOMPARE(doc.runs, runs);
    }
    void theLastParagraphMarkAddsNoLineBreak()
    {
        QCOMPARE(readRtf(u"{\\rtf1 a\\par}").text, QString("a"));
        QCOMPARE(readRtf(u"{\\rtf1 a\\par\\par}").text, QString("a\r\n"));
        QCOMPARE(readRtf(u"{\\rtf1 a\\par b}").text, QString("a\r\nb"));
        QCOMPARE(readRtf(u"{\\rtf1 a\\line b}").text, QString("a\r\nb"));
    }
    void destinationsAndControlWordsAreNotText()
    {
        const RtfDocument doc =
            readRtf(u"{\\rtf1{\\fonttbl{\\f0 Courier;}}{\\*\\generator x;}{\\info{\\title t}}"
                    u"{\\stylesheet{\\s0 Normal;}}\\pard\\plain\\f0\\fs20 A\\~B\\_C\\uc1\\u-3913?D"
                    u"\\bin2 xyE{\\pict 0102}F\\'4a\\'zz}");
        QCOMPARE(doc.text, QString("A\u00a0B-C\uf0b7DE"
                                   "FJzz"));
        QVERIFY(doc.runs.empty());
    }
    void whatTheLineColourerWritesReadsBackAsColours()
    {
        const QString rtf =
            "{\\rtf1\\ansi\r\n{\\colortbl\\red0\\green0\\blue0;\\red0\\green0\\blue255;"
            "\\red0\\green0\\blue255;\\red0\\green128\\blue0;\\red0\\green0\\blue0;"
            "\\red0\\green0\\blue0;}\r\n"
            "\\cf1int \\cf5\\cf5 x\\par\r\n\\cf3// c\\par\r\n}";
        const RtfDocument doc = readRtf(rtf);
        QCOMPARE(doc.text, QString("int x\r\n// c"));
        QCOMPARE(doc.runs,
                 (std::vector<RtfColourRun>{{0, 4, 0xFF0000}, {4, 1, 0}, {7, 4, 0x8000}}));
    }
    void colourIndexesOutsideTheTableAreAutomatic()
    {
        const RtfDocument doc =
            readRtf(u"{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\cf9 a\\cf1 b"
                    u"\\cf0 c{\\cf1 d}e\\plain f}");
        QCOMPARE(doc.text, QString("abcdef"));
        QCOMPARE(doc.runs, (std::vector<RtfColourRun>{{1, 1, 0xFF}, {3, 1, 0xFF}}));
    }
    void malformedInputNeverFails()
    {
        const QStringList inputs = {"",
                                    "{",
                                    "}",
                                    "}}}}{",
                                    "\\",
                                    "{\\",
                                    "{\\rtf1 \\'",
                                    "{\\rtf1 \\'4",
                                    "\\u",
                                    "\\u-",
                                    "\\cf99999999999999999999 x",
                                    "\\bin999999999 abc",
                                    "\\bin-5 abc",
                                    "{\\*",
                                    "{\\colortbl",
                                    "{\\colortbl\\red999\\green-5\\blue",
                                    "\\uc99999999 \\u65 abc",
                                    "\\par\\par\\par",
                                    QString(100000, QLatin1Char('{')) + "x",
                                    QString(100000, QLatin1Char('}')) + "y",
                                    QString(50000, QLatin1Char('\\')),
                                    "\\" + QString(5000, QLatin1Char('a')) + " z"};
        for (const QString &input : inputs) {
            QElapsedTimer clock;
            clock.start();
            const RtfDocument doc = readRtf(input);
            QVERIFY(clock.elapsed() < 2000);
            for (const RtfColourRun &run : doc.runs)
                QVERIFY(run.start >= 0 && run.start + run.length <= doc.text.size());
        }
        QCOMPARE(readRtf(QString(100000, QLatin1Char('{')) + "x").text, QString("x"));
        QCOMPARE(readRtf(QString("\\") + QString(5000, QLatin1Char('a')) + " z").text,
                 QString("z"));
    }
    void randomBytesNeverFail()
    {
        QRandomGenerator random(99);
        const QString alphabet = "{}\\'*;0123456789abcdefu-par cf colortbl red green blue bin \r\n";
        for (int round = 0; round < 2000; ++round) {
            QString input;
            const int length = random.bounded(200);
            for (int i = 0; i < length; ++i)
                input += round % 2 ? QChar(random.bounded(256))
                                   : alphabet.at(random.bounded(int(alphabet.size())));
            const RtfDocument doc = readRtf(input);
            qsizetype previousEnd = 0;
            for (const RtfColourRun &run : doc.runs) {
                QVERIFY(run.start >= previousEnd && run.length > 0);
                previousEnd = run.start + run.length;
            }
            QVERIFY(previousEnd <= doc.text.size());
        }
    }
};

TESSARO_CORE_TEST_MAIN(RtfTest)
#include "tst_rtf.moc"

#include "editor/core/RtfDocument.h"
#include "support/TestSupport.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

using namespace tessaro;

namespace {
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
                    .endsWith(kParagraph + "\\{\\\\\\}\\tab \\'e9\\u8364?\\'01\\par\r\n}"));
    }
    void colourRunsBecomeSwitchesAndATable()
    {
        const QString rtf = writeRtf("int x", {{0, 3, 0x7F0000}, {4, 1, 0x8000}});
        QVERIFY(rtf.contains("{\\colortbl ;\\red0\\green0\\blue127;\\red0\\green128\\blue0;}"));
        QVERIFY(rtf.endsWith(kParagraph + "\\cf1 int\\cf0  \\cf2 x\\par\r\n}"));
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

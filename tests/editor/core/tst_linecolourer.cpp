#include "editor/core/DynHighlight.h"
#include "editor/core/RtfDocument.h"
#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QTemporaryDir>

using namespace tessaro;

namespace {

// A document window's caption, with every caption it was given.
class RecordingCaption : public DocumentCaption
{
public:
    explicit RecordingCaption(const QString &caption) : current(caption) {}
    QString caption() const override { return current; }
    void setCaption(const QString &caption) override
    {
        current = caption;
        history << caption;
    }
    QString current;
    QStringList history;
};

} // namespace

const QString kBlock = QStringLiteral("[comments]\r\nmultilinestart=/*\r\nmultilineend=*/\r\n");

class LineColourerTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    // A colourer with the start-up colours and the definitions given, by default
    // with the usual block comment delimiters (without them every line is a block).
    std::unique_ptr<DynHighlight> colourer(const QString &definitions, bool blockDelimiters = true)
    {
        auto module = std::make_unique<DynHighlight>();
        module->colours.setStartupValues();
        module->colours.buildTable();
        const QString path = m_dir.filePath("t.stx");
        textfile::write(path, definitions + (blockDelimiters ? kBlock : QString()));
        module->definitions.load(path);
        module->definitions.buildJoinedLists();
        return module;
    }

private Q_SLOTS:
    void aLineStartingWithALineCommentMarkerIsAComment()
    {
        auto m = colourer("[comments]\r\nsingleline=//\r\n");
        QCOMPARE(m->lines.colourLine("// x"), QString("\\cf3// x"));
        QCOMPARE(m->lines.colourLine("  // x"), QString("\\cf3  // x"));
    }
    void aKeywordTakesTheKeywordSwitchAndEveryBlankIsWrittenTwice()
    {
        auto m = colourer("[keywords]\r\nint\r\n");
        QCOMPARE(m->lines.colourLine("int x"), QString("\\cf1int \\cf5\\cf5 x"));
        QCOMPARE(m->lines.colourLine("a  b"), QString("\\cf5a   \\cf5 b"));
        QCOMPARE(m->lines.colourLine(" a"), QString(" \\cf5 a"));
        QCOMPARE(m->lines.colourLine(QString()), QString());
    }
    void operatorsFunctionsAndKeywordsNestTheirSwitches()
    {
        auto m = colourer("[keywords]\r\nsizeof\r\n[operators]\r\nsizeof\r\n+\r\n"
                          "[func subs]\r\nprintf\r\n");
        QCOMPARE(m->lines.colourLine("sizeof"), QString("\\cf1\\cf6sizeof\\cf5\\cf5"));
        QCOMPARE(m->lines.colourLine("a + b"), QString("\\cf5a \\cf5\\cf6 + \\cf5\\cf5 b"));
        QCOMPARE(m->lines.colourLine("Printf x"), QString("\\cf2Printf \\cf5\\cf5 x"));
    }
    void keywordsMatchAsSubstringsOfTheJoinedList()
    {
        auto m = colourer("[keywords]\r\nwhile\r\nint\r\n");
        QCOMPARE(m->lines.colourLine("ein"), QString("\\cf1ein\\cf5"));
        QCOMPARE(m->lines.colourLine("intw"), QString("\\cf5intw"));
    }
    void aCommentMarkerInsideTheLineColoursTheRestOfIt()
    {
        auto m = colourer("[comments]\r\nsingleline=//\r\n");
        QCOMPARE(m->lines.colourLine("x //y z"), QString("\\cf5x \\cf3 //y \\cf5\\cf3 z\\cf5"));
        QVERIFY(m->lines.inLineComment());
        // The next line's first piece ends the line comment.
        QCOMPARE(m->lines.colourLine("a b"), QString("\\cf5a \\cf5 b"));
        QVERIFY(!m->lines.inLineComment());
    }
    void aKeywordStartingLikeACommentMarkerStaysAKeyword()
    {
        auto m = colourer("[keywords]\r\n#include\r\n[comments]\r\nsingleline=#!\r\n");
        QCOMPARE(m->lines.colourLine("x #include"), QString("\\cf5x \\cf1 #include\\cf5"));
        QVERIFY(!m->lines.inLineComment());
    }
    void blockCommentsColourWholeLines()
    {
        auto m = colourer("[keywords]\r\nint\r\n[comments]\r\nmultilinestart=/*\r\n"
                          "multilineend=*/\r\n");
        QCOMPARE(m->lines.colourLine("/* start int"), QString("\\cf3/* start int"));
        QVERIFY(m->lines.inBlockComment());
        QCOMPARE(m->lines.colourLine("int middle"), QString("int middle"));
        // The closing line is then cut into pieces like any other.
        QCOMPARE(m->lines.colourLine("end */"), QString("\\cf5\\cf3end \\cf5 */\\cf5"));
        QVERIFY(!m->lines.inBlockComment());
        // A one-line block comment gets both and is then cut into pieces.
        QCOMPARE(m->lines.colourLine("/* int */"),
                 QString("\\cf5\\cf3\\cf3/* \\cf1 int \\cf5\\cf5 */\\cf5"));
    }
    void emptyBlockDelimitersMatchEveryLine()
    {
        auto m = colourer("[keywords]\r\nint\r\n", false);
        m->lines.setFlags(false, false, true);
        QCOMPARE(m->lines.colourLine("x"), QString("\\cf5\\cf3\\cf3x\\cf5"));
        QVERIFY(!m->lines.inBlockComment());
    }
    void stringContentsAreNotColoured()
    {
        auto m = colourer("[keywords]\r\nint\r\n[string delim]\r\n\"\r\n");
        // Inside the string a piece without the delimiter comes back as it is, its
        // leading blank with it, so that blank shows twice.
        QCOMPARE(m->lines.colourLine("x = \"a int c\";"),
                 QString("\\cf5x \\cf5 = \\cf5 \"a  int \\cf5 c\";"));
        QVERIFY(!m->lines.inString());
        QCOMPARE(m->lines.colourLine("s = \"open int"),
                 QString("\\cf5s \\cf5 = \\cf5 \"open  int"));
        QVERIFY(m->lines.inString());
        QCOMPARE(m->lines.colourLine("int"), QString("int"));
        QCOMPARE(m->lines.colourLine("close\" int"), QString("\\cf5close\" \\cf1 int\\cf5"));
        QVERIFY(!m->lines.inString());
    }
    void anEmptyStringOrAWordWithTwoDelimitersLeavesTheStringState()
    {
        auto m = colourer("[string delim]\r\n\"\r\n");
        QCOMPARE(m->lines.colourLine("\"\"x"), QString("\\cf5\"\"x"));
        QVERIFY(!m->lines.inString());
        QCOMPARE(m->lines.colourLine("\"a\""), QString("\\cf5\"a\""));
        QVERIFY(!m->lines.inString());
    }
    void anEmptyDelimiterIsFoundAtTheStartOfEveryWord()
    {
        auto m = colourer("[keywords]\r\nint\r\n");
        // A one-character word holds the delimiter once and toggles the string state;
        // a longer word holds it again at its second position and does not.
        QCOMPARE(m->lines.colourLine("a"), QString("\\cf5a"));
        QVERIFY(m->lines.inString());
        QCOMPARE(m->lines.colourLine("int"), QString("\\cf1int\\cf5"));
        QVERIFY(m->lines.inString());
        QCOMPARE(m->lines.colourLine("b"), QString("\\cf5b"));
        QVERIFY(!m->lines.inString());
    }
    void theBlockSuffixIsCutOffAndPutBackUncoloured()
    {
        auto m = colourer("[keywords]\r\nreturn\r\n[block]\r\n ;\r\n");
        QCOMPARE(m->definitions.blockSuffix(), QString(";"));
        QCOMPARE(m->lines.colourLine("return;"), QString("\\cf1return\\cf5;"));
        QCOMPARE(m->lines.colourLine("x;"), QString("\\cf5x;"));
        // A piece that is only the suffix loses it.
        QCOMPARE(m->lines.colourLine("x ;"), QString("\\cf5x  "));
    }

    // --- the document walk -----------------------------------------------------------
    void theDocumentWalkColoursParagraphLinesAndKeepsTheRest()
    {
        auto m = colourer("[keywords]\r\nint\r\n");
        RecordingCaption caption("g_main.c");
        QString out;
        const QString in = "{\\rtf1\\ansi\r\n{\\colortbl;\\red255\\green0\\blue0;}\r\n"
                           "int x\\par\r\n\\par\r\nlast line\r\n}";
        QCOMPARE(m->colourDocumentRtf(caption, in, out), 0);
        HighlightColours table;
        table.setStartupValues();
        QCOMPARE(out, "{\\rtf1\\ansi\r\n" + table.buildTable() +
                          "\r\n\\cf1int \\cf5\\cf5 x\\par\r\n\\par\r\nlast line\r\n}");
        QCOMPARE(caption.history, QStringList{"g_main.c - Color Coding..."});
    }
    void theTailAfterTheLastLineBreakIsDroppedAndABraceAppended()
    {
        auto m = colourer(QString());
        RecordingCaption caption("x");
        QString out;
        m->colourDocumentRtf(caption, "a\\par\r\n}", out);
        QCOMPARE(out, QString("\\cf5a\\par\r\n}"));
        m->colourDocumentRtf(caption, "no line break at all", out);
        QCOMPARE(out, QString("}"));
    }
    void aFailedJoinShowsErrorHighlightingFileAndGoesOn()
    {
        test::RecordingMessageBox box;
        DynHighlight m;
        m.colours.setStartupValues();
        textfile::write(m_dir.filePath("k.stx"), "[keywords]\r\nint\r\n" + kBlock);
        QVERIFY(m.definitions.load(m_dir.filePath("k.stx")));
        QVERIFY(!m.definitions.load(m_dir.filePath("missing.stx")));
        RecordingCaption caption("doc");
        QString out;
        QCOMPARE(m.colourDocumentRtf(caption, "int\\par\r\n", out), 0);
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls[0].prompt, QString("Error highlighting file"));
        QCOMPARE(box.calls[0].style, int(mb::OKOnly | mb::Exclamation));
        QCOMPARE(out, QString("\\cf5int\\par\r\n}"));
    }
    void theSectionFileRunRestoresTheCaptionAndClearsTheDefinitions()
    {
        DynHighlight m;
        m.colours.setStartupValues();
        textfile::write(m_dir.filePath("c.stx"), "[keywords]\r\nint\r\n" + kBlock);
        RecordingCaption caption("new.c");
        const QString out =
            m.colourWithSectionFile(caption, m_dir.filePath("c.stx"), writeRtf("int x"));
        QVERIFY(out.contains("\\cf1int \\cf5\\cf5 x\\par\r\n"));
        QCOMPARE(caption.current, QString("new.c"));
        QCOMPARE(caption.history, (QStringList{"new.c - Color Coding...", "new.c"}));
        QCOMPARE(m.definitions.keywordCount(), qint16(0));
        // A missing section file colours with no lists and no delimiters at all.
        const QString plain =
            m.colourWithSectionFile(caption, m_dir.filePath("none.stx"), writeRtf("int x"));
        QVERIFY(plain.contains("\r\n\\cf5\\cf3\\cf3int \\cf5 x\\cf5\\par\r\n}"));
    }
    void aDocumentEndingInsideABlockCommentLeavesTheFlagForTheNext()
    {
        DynHighlight m;
        m.colours.setStartupValues();
        textfile::write(m_dir.filePath("b.stx"),
                        "[comments]\r\nmultilinestart=/*\r\nmultilineend=*/\r\n");
        RecordingCaption caption("a.c");
        m.colourWithSectionFile(caption, m_dir.filePath("b.stx"), writeRtf("/* open"));
        QVERIFY(m.lines.inBlockComment());
        const QString next =
            m.colourWithSectionFile(caption, m_dir.filePath("b.stx"), writeRtf("int x"));
        QVERIFY(next.contains("\r\nint x\\par\r\n"));
    }
    void theColouredRtfReadsBackWithTheTablesColours()
    {
        DynHighlight m;
        m.colours.setStartupValues();
        textfile::write(m_dir.filePath("r.stx"),
                        "[keywords]\r\nint\r\n[comments]\r\nsingleline=//\r\n" + kBlock);
        RecordingCaption caption("r.c");
        const QString text = "int x;\r\n// note\r\nx";
        const RtfDocument doc =
            readRtf(m.colourWithSectionFile(caption, m_dir.filePath("r.stx"), writeRtf(text)));
        QCOMPARE(doc.text, QString("int x;\r\n// note\r\nx"));
        QCOMPARE(doc.runs, (std::vector<RtfColourRun>{
                               {0, 4, 0xFF0000}, {4, 2, 0}, {8, 7, 0x8000}, {17, 1, 0}}));
    }
};

TESSARO_CORE_TEST_MAIN(LineColourerTest)
#include "tst_linecolourer.moc"

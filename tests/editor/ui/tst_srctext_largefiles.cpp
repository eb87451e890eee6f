// Large files in the editor control: every character of a file over 10 MB gets the
// colour the scanners give it (the same stretches `tessaro-cli colour` prints), up to
// its very last line.

#include "EditorTestHelpers.h"
#include "editor/core/ColourScan.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/ModeWordLists.h"
#include "editor/core/StyleTable.h"
#include "editor/ui/srcText.h"
#include "platform/core/AppInfo.h"
#include "platform/core/TextFile.h"
#include "support/MemoryStyledText.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace tessaro;
using namespace tessaro::test;

namespace {

// About `bytes` of C with CR LF line breaks: functions, keywords, strings holding
// comment marks, line comments and block comments over several lines.
QByteArray largeCSource(qsizetype bytes)
{
    static const char *const unit =
        "/*\r\n"
        " * Block comment over lines: while return int\r\n"
        " */\r\n"
        "static int value%1(int a, char *b)\r\n"
        "{\r\n"
        "    // a line comment with if and else\r\n"
        "    const char *s = \"not /* a comment */ here\";\r\n"
        "    if (a > %1) { return a; } else { while (a--) b[a] = 'x'; }\r\n"
        "    for (int i = 0; i < a; ++i) { switch (i) { case 1: break; default: continue; } }\r\n"
        "    return sizeof(struct item%1) + (unsigned)a; /* trailing */\r\n"
        "}\r\n";
    QByteArray out;
    out.reserve(bytes + 1024);
    for (int i = 0; out.size() < bytes; ++i)
        out += QString::fromLatin1(unit).arg(i).toLatin1();
    return out;
}

QColor stretchColour(StretchKind kind)
{
    switch (kind) {
    case StretchKind::Comment: return commentColour;
    case StretchKind::Keyword: return keywordColour;
    case StretchKind::Text: return textColour;
    }
    return textColour;
}

} // namespace

class SrcTextLargeFilesTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;

    // Loads the file into a shown control, waits for its colouring run and counts the
    // characters of the last `tail` whose colour differs from the stretches the
    // command-line colourer gives for the same file.
    qsizetype wrongColoursAtTheEnd(const QByteArray &bytes, qsizetype tail)
    {
        const QString file = m_dir.filePath(QStringLiteral("large.c"));
        textfile::writeBytes(file, bytes);

        ScanRequest request;
        request.text = editorText(textfile::read(file));
        request.mode = mode::C;
        EditorWordLists lists;
        lists.applyMode(mode::C, programFolder());
        request.black = lists.black;
        request.blue = lists.blue;
        const std::vector<ColourStretch> stretches = scanText(request);

        m_code = std::make_unique<srcText>();
        srcText &code = *m_code;
        code.resize(800, 600);
        code.show();
        code.LoadFile(file, 1);
        QDeadlineTimer deadline(240000);
        while (code.isColouring() && !deadline.hasExpired())
            QApplication::processEvents(QEventLoop::AllEvents, 50);
        if (code.isColouring() || code.Text().size() != request.text.size())
            return -1;

        const qsizetype from = request.text.size() - tail;
        std::vector<QColor> expected(std::size_t(tail), textColour);
        for (const ColourStretch &s : stretches) {
            const qsizetype a = std::max(s.start, from);
            const qsizetype b = std::min(s.start + s.length, request.text.size());
            for (qsizetype p = a; p < b; ++p)
                expected[std::size_t(p - from)] = stretchColour(s.kind);
        }
        qsizetype wrong = 0;
        for (qsizetype p = from; p < request.text.size(); ++p) {
            const QChar c = request.text.at(p);
            if (c == u'\r' || c == u'\n')
                continue;
            if (colourAt(code, p) != expected[std::size_t(p - from)]) {
                if (wrong == 0)
                    qWarning("first wrong colour at %lld of %lld", qint64(p),
                             qint64(request.text.size()));
                ++wrong;
            }
        }
        return wrong;
    }
    // The colour of the first character of the last occurrence of a word.
    QColor lastColourOf(const QString &word) const
    {
        const qsizetype at = m_code->Text().lastIndexOf(word);
        return at < 0 ? QColor() : colourAt(*m_code, at);
    }
    std::unique_ptr<srcText> m_code;

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void theEndOfAFileOverTenMegabytesIsColouredAsTheCliSays()
    {
        const QByteArray bytes = largeCSource(10 * 1024 * 1024 + 300 * 1024);
        QVERIFY(bytes.size() > 10 * 1000 * 1000);
        QCOMPARE(wrongColoursAtTheEnd(bytes, 128 * 1024), qsizetype(0));
        QCOMPARE(lastColourOf(QStringLiteral("/* trailing */")), commentColour);
        QCOMPARE(lastColourOf(QStringLiteral("// a line comment")), commentColour);
    }

    void aQuoteLeftOpenNearTheEndLeavesTheRestUncolouredAsTheCliSays()
    {
        // A double quote opens a string up to the next double quote, or to the end of
        // the text: a character literal '"' with no quote after it (as in a file cut
        // in the middle) leaves every later comment and keyword uncoloured, in the
        // document as in the command-line colourer's stretches.
        QByteArray bytes = largeCSource(10 * 1024 * 1024 + 300 * 1024);
        bytes += "#define isquote(x) ((x)=='\"'||(x)=='\\'')\r\n";
        const QByteArray after = "/* no comment */ while (x) return;\r\n";
        while (bytes.size() < 10 * 1024 * 1024 + 348 * 1024)
            bytes += after;
        QCOMPARE(wrongColoursAtTheEnd(bytes, 128 * 1024), qsizetype(0));
        QCOMPARE(lastColourOf(QStringLiteral("/* trailing */")), commentColour);
        QCOMPARE(lastColourOf(QStringLiteral("/* no comment */")), textColour);
    }

    void progressTellsTheShareOfTheRunReallyDone()
    {
        // The run copies, scans and then styles the lines; the percentage reported
        // grows through all of it and reaches 100 only when the run is over.
        MemoryStyledText text(largeCSource(4 * 1024 * 1024));
        StyleTable styles;
        QTimer progressTimer;
        DocumentColourer colourer(text, styles, &progressTimer);
        ScanRequest request;
        request.mode = mode::C;
        EditorWordLists lists;
        lists.applyMode(mode::C, programFolder());
        request.black = lists.black;
        request.blue = lists.blue;
        colourer.setRequest(request);
        QVERIFY(colourer.start(false, true));
        QList<int> percents;
        QDeadlineTimer deadline(240000);
        while (colourer.isRunning() && !deadline.hasExpired()) {
            percents << colourer.percentComplete();
            QApplication::processEvents(); // one slice at a time
        }
        QVERIFY(!colourer.isRunning());
        QCOMPARE(colourer.restarts(), 0);
        QVERIFY(percents.size() > 2);
        for (qsizetype i = 0; i < percents.size(); ++i) {
            QVERIFY2(
                percents.at(i) >= 0 && percents.at(i) < 100,
                qPrintable(QStringLiteral("%1 percent while the run goes on").arg(percents.at(i))));
            if (i > 0)
                QVERIFY(percents.at(i) >= percents.at(i - 1));
        }
        QVERIFY(percents.last() > percents.first()); // the share grew as the run went on
        QCOMPARE(colourer.percentComplete(), 0);
    }

    void resizingLeavesUnwrappedLinesWholeAndReachable()
    {
        srcText code;
        code.setText(QString(3000, u'x') + QStringLiteral("\r\nint y;"));
        code.resize(800, 400);
        code.show();
        QApplication::processEvents();
        SourceEditBox *box = code.RTFBox();
        for (const QSize size : {QSize(300, 200), QSize(1600, 900), QSize(500, 300)}) {
            code.resize(size);
            QApplication::processEvents();
            box->viewport()->repaint();
            QCOMPARE(box->send(SourceEditBox::SCI_WRAPCOUNT, 0), 1L);
            QVERIFY(box->horizontalScrollBar()->maximum() > 0);
            box->horizontalScrollBar()->setValue(box->horizontalScrollBar()->maximum());
            QApplication::processEvents();
            QVERIFY(box->horizontalScrollBar()->value() > 0);
            box->horizontalScrollBar()->setValue(0);
        }
    }
};

TESSARO_TEST_MAIN(SrcTextLargeFilesTest)
#include "tst_srctext_largefiles.moc"

// A colouring run takes a copy of the text and scans it over several slices of the
// event loop: the copy must equal the text whatever its line breaks, an edit or a
// cancel while the run works from its copy must leave nothing half done,
// and the styles at the end must be those of a run given the same text afresh.

#include "editor/core/ColourScan.h"
#include "editor/core/DocumentColourer.h"
#include "editor/core/StyleTable.h"
#include "support/MemoryStyledText.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <functional>
#include <memory>

using namespace tessaro;
using namespace tessaro::test;

namespace {

// A text and the colourer that styles it, in C mode.
struct Colouring
{
    MemoryStyledText text;
    StyleTable styles;
    QTimer progressTimer;
    std::unique_ptr<DocumentColourer> colourer;

    explicit Colouring(const QByteArray &bytes) : text(bytes)
    {
        colourer = std::make_unique<DocumentColourer>(text, styles, &progressTimer);
        ScanRequest request;
        request.mode = mode::C;
        request.blue = WordListIndex(QStringLiteral("*int*while*return*"));
        colourer->setRequest(request);
    }

    // Runs a full colouring; `during` is called at every turn of the event loop while
    // the run works from its copy of the text (it has taken it and not yet styled
    // anything: more than 0 % and less than 55 % done) until it returns true.
    bool run(const std::function<bool()> &during = {})
    {
        if (!colourer->start(false, true))
            return false;
        bool acted = !during;
        QDeadlineTimer deadline(240000);
        while (colourer->isRunning() && !deadline.hasExpired()) {
            const int done = colourer->percentComplete();
            if (!acted && done > 0 && done < 55)
                acted = during();
            QApplication::processEvents(); // one slice at a time
        }
        return !colourer->isRunning() && acted;
    }
};

QByteArray largeText(int lines, const QByteArray &lineBreak)
{
    QByteArray text;
    text.reserve(qsizetype(lines) * 64);
    for (int i = 0; i < lines; ++i)
        text += "int v" + QByteArray::number(i) + " = " + QByteArray::number(i) +
                "; /* note */ while (v" + QByteArray::number(i) + ") return;" + lineBreak;
    return text;
}

} // namespace

class DocumentColourerTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theCopyIsTheText_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("one line") << QByteArray("int x; /* c */");
        QTest::newRow("empty lines") << QByteArray("\r\n\r\nint\r\n");
        QTest::newRow("comment over lines") << QByteArray("int a; /* c\r\n b */ while\r\nint");
        QTest::newRow("no-break space kept") << QByteArray("int\xa0"
                                                           "a;/* x */\r\n");
        QTest::newRow("many slices") << largeText(40000, "\r\n");
        QTest::newRow("one line longer than a slice")
            << QByteArray(3 * 1024 * 1024, 'x') + "\r\nint /* c */";
    }
    void theCopyIsTheText()
    {
        QFETCH(QByteArray, text);
        Colouring c(text);
        QVERIFY(c.run());
        QCOMPARE(c.colourer->restarts(), 0);
        QCOMPARE(c.colourer->snapshot(), text);
        // The styles are those the scanners give for the same text in one piece.
        ScanRequest request = c.colourer->request();
        request.text = QString::fromLatin1(text);
        QByteArray expected(text.size(), char(StyleTable::Plain));
        const char comment = char(c.styles.styleFor(colour::comment));
        const char keyword = char(c.styles.styleFor(colour::keyword));
        for (const ColourStretch &s : scanText(request))
            for (qsizetype i = s.start; i < s.start + s.length; ++i)
                if (s.kind != StretchKind::Text && text[i] != '\r' && text[i] != '\n')
                    expected[i] = s.kind == StretchKind::Comment ? comment : keyword;
        QVERIFY(c.text.styles() == expected);
    }

    void anEditDuringTheScanStartsTheRunOver()
    {
        Colouring c(largeText(60000, "\r\n"));
        QVERIFY(c.run([&] {
            // The user opens a comment at the top while the run scans its copy.
            c.text.insert(0, "/* ");
            c.colourer->noteChange(0, 0, 3);
            return true;
        }));
        QCOMPARE(c.colourer->restarts(), 1);
        QVERIFY(c.text.bytes().startsWith("/* int v0"));
        QCOMPARE(c.colourer->snapshot(), c.text.bytes().toByteArray());
        Colouring fresh(c.text.bytes().toByteArray());
        QVERIFY(fresh.run());
        QVERIFY(c.text.styles() == fresh.text.styles());
    }

    void aCancelDuringTheScanEndsTheRun()
    {
        Colouring c(largeText(60000, "\r\n"));
        QVERIFY(c.run([&] {
            c.colourer->cancel();
            return true;
        }));
        QCOMPARE(c.colourer->percentComplete(), 0);
        // Nothing was coloured, and the next run colours everything.
        QCOMPARE(c.text.styles().count(char(StyleTable::Plain)), c.text.length());
        QVERIFY(c.run());
        QVERIFY(c.text.styles().count(char(StyleTable::Plain)) < c.text.length());
        QCOMPARE(c.colourer->snapshot(), c.text.bytes().toByteArray());
    }
};

TESSARO_TEST_MAIN(DocumentColourerTest)
#include "tst_documentcolourer.moc"

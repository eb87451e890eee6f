// A colouring run takes a copy of the document and turns it into CR LF text for the
// scanners over several slices of the event loop: the copy must equal the document's
// text whatever its line breaks, an edit or a cancel while the copy is turned must
// leave nothing half done, and the colours at the end must be those of a run given
// the same text afresh.

#include "editor/core/ColourScan.h"
#include "editor/core/ColouredLines.h"
#include "editor/core/DocumentColourer.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>

#include <functional>
#include <memory>

using namespace tessaro;

namespace {

// A document, its hidden copy and the colourer that joins them, in C mode.
struct Colouring
{
    QTextDocument document;
    QTextDocument snapshot;
    QTimer progressTimer;
    std::unique_ptr<DocumentColourer> colourer;

    explicit Colouring(const QString &rawText)
    {
        // Inserted as it stands: U+2029 starts a new line, U+2028 stays inside one.
        QTextCursor(&document).insertText(rawText);
        colourer = std::make_unique<DocumentColourer>(&document, &snapshot, &progressTimer);
        ScanRequest request;
        request.mode = mode::C;
        request.blue = WordListIndex(QStringLiteral("*int*while*return*"));
        colourer->setRequest(request);
    }

    // Runs a full colouring; `during` is called at every turn of the event loop while
    // the run still copies the text (the first 5 % of the run) until it returns true.
    bool run(const std::function<bool()> &during = {})
    {
        if (!colourer->start(false, true))
            return false;
        bool acted = !during;
        QDeadlineTimer deadline(240000);
        while (colourer->isRunning() && !deadline.hasExpired()) {
            if (!acted && colourer->percentComplete() < 5)
                acted = during();
            QApplication::processEvents(); // one slice at a time
        }
        return !colourer->isRunning() && acted;
    }

    // Every line's colours, in order.
    QList<ColouredLines::Ranges> lineColours() const
    {
        QList<ColouredLines::Ranges> all;
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
            all << ColouredLines::colours(block);
        return all;
    }
};

QString largeText(int lines, const QString &lineBreak)
{
    QString text;
    text.reserve(qsizetype(lines) * 64);
    for (int i = 0; i < lines; ++i)
        text += QStringLiteral("int v%1 = %1; /* note */ while (v%1) return;").arg(i) + lineBreak;
    return text;
}

bool sameRanges(const QList<ColouredLines::Ranges> &a, const QList<ColouredLines::Ranges> &b)
{
    if (a.size() != b.size())
        return false;
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (a.at(i).size() != b.at(i).size())
            return false;
        for (qsizetype r = 0; r < a.at(i).size(); ++r) {
            const QTextLayout::FormatRange &x = a.at(i).at(r);
            const QTextLayout::FormatRange &y = b.at(i).at(r);
            if (x.start != y.start || x.length != y.length ||
                x.format.foreground() != y.format.foreground())
                return false;
        }
    }
    return true;
}

} // namespace

class DocumentColourerTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theCopyIsTheDocumentsText_data()
    {
        QTest::addColumn<QString>("text");
        const QChar line = QChar::ParagraphSeparator;
        QTest::newRow("empty") << QString();
        QTest::newRow("one line") << QStringLiteral("int x; /* c */");
        QTest::newRow("empty lines") << QString(line) + line + QStringLiteral("int") + line;
        QTest::newRow("line separator inside a line")
            << QStringLiteral("int a;") + QChar(QChar::LineSeparator) + QStringLiteral("/* c */ b") +
                   line + QStringLiteral("while");
        QTest::newRow("no-break space and a lone CR kept")
            << QStringLiteral("int") + QChar(0xA0) + QStringLiteral("a;\r/* x */") + line;
        QTest::newRow("many slices") << largeText(20000, line);
        QTest::newRow("one line longer than a slice")
            << QString(300 * 1024, u'x') + line + QStringLiteral("int /* c */");
    }
    void theCopyIsTheDocumentsText()
    {
        QFETCH(QString, text);
        Colouring c(text);
        QVERIFY(c.run());
        QCOMPARE(c.colourer->restarts(), 0);
        QCOMPARE(c.colourer->snapshotDocument()->toRawText(), c.document.toRawText());
        // The colours are those of a run given the same text in one piece.
        Colouring whole(c.document.toRawText());
        QVERIFY(whole.run());
        QVERIFY(sameRanges(c.lineColours(), whole.lineColours()));
    }

    void anEditDuringTheCopyStartsTheRunOver()
    {
        Colouring c(largeText(60000, QChar(QChar::ParagraphSeparator)));
        QVERIFY(c.run([&] {
            // The user opens a comment at the top while the run copies the text.
            QTextCursor(&c.document).insertText(QStringLiteral("/* "));
            c.colourer->noteChange(0, 0, 3);
            return true;
        }));
        QCOMPARE(c.colourer->restarts(), 1);
        QVERIFY(c.document.toRawText().startsWith(QStringLiteral("/* int v0")));
        QCOMPARE(c.colourer->snapshotDocument()->toRawText(), c.document.toRawText());
        Colouring fresh(c.document.toRawText());
        QVERIFY(fresh.run());
        QVERIFY(sameRanges(c.lineColours(), fresh.lineColours()));
    }

    void aCancelDuringTheCopyEndsTheRun()
    {
        Colouring c(largeText(60000, QChar(QChar::ParagraphSeparator)));
        QVERIFY(c.run([&] {
            c.colourer->cancel();
            return true;
        }));
        QCOMPARE(c.colourer->percentComplete(), 0);
        // Nothing was coloured, and the next run colours everything.
        QVERIFY(ColouredLines::colours(c.document.lastBlock().previous()).isEmpty());
        QVERIFY(c.run());
        QVERIFY(!ColouredLines::colours(c.document.lastBlock().previous()).isEmpty());
        QCOMPARE(c.colourer->snapshotDocument()->toRawText(), c.document.toRawText());
    }
};

TESSARO_TEST_MAIN(DocumentColourerTest)
#include "tst_documentcolourer.moc"

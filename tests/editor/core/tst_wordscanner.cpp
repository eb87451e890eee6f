#include "editor/core/WordScanner.h"
#include "support/StretchDescription.h"
#include "support/TestSupport.h"

using namespace tessaro;

namespace {

// A scanner built only from the shared frame: blanks end words, a double quote
// skips to its partner (backslashes escape when asked), "#" comments to the end of
// the line, "{" comments to the next "}", everything else is a word character.
class FrameScanner : public WordScanner
{
public:
    FrameScanner(const ScanRequest &request, std::vector<ColourStretch> &out,
                 bool backslashEscapes = false)
        : WordScanner(request, out, 0, request.text.size()), m_escapes(backslashEscapes)
    {
    }

    void scan(qsizetype until) override
    {
        walk(until, [this](qsizetype i, qsizetype) {
            const char16_t c = m_chars[i];
            if (isSeparator(c)) {
                endWord(i);
                return i + 1;
            }
            if (c == u'"') {
                interruptWord(i);
                return afterQuote(i, m_escapes);
            }
            if (c == u'#')
                return lineComment(i, i + 1);
            if (c == u'{') {
                const qsizetype close = find(u'}', i + 1);
                return comment(i, close < 0 ? m_end : close + 1);
            }
            return wordChar(i);
        });
    }

private:
    bool m_escapes;
};

ScanRequest request(const QString &text, const QString &blue = QString())
{
    ScanRequest r;
    r.text = text;
    r.blue = WordListIndex(blue);
    return r;
}

// Scans the whole text in one call.
QString scanAll(const ScanRequest &r, bool escapes = false)
{
    std::vector<ColourStretch> out;
    FrameScanner scanner(r, out, escapes);
    scanner.scan(r.text.size());
    return describeStretches(out);
}

} // namespace

class WordScannerTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void walkStopsAtUntilAndResumesThere()
    {
        const ScanRequest r = request("if x then if\r\n", "*if*then*");
        std::vector<ColourStretch> out;
        FrameScanner scanner(r, out);
        scanner.scan(1);
        QCOMPARE(scanner.position(), qsizetype(1));
        QVERIFY(out.empty()); // "if" is still being collected
        scanner.scan(4);
        QCOMPARE(scanner.position(), qsizetype(4));
        QVERIFY(!scanner.atEnd());
        scanner.scan(r.text.size());
        QVERIFY(scanner.atEnd());
        QCOMPARE(describeStretches(out), scanAll(r));
        QCOMPARE(out.size(), size_t(3));
    }

    void walkToAnEarlierPointDoesNothing()
    {
        const ScanRequest r = request("one two", "*one*");
        std::vector<ColourStretch> out;
        FrameScanner scanner(r, out);
        scanner.scan(5);
        scanner.scan(2);
        QCOMPARE(scanner.position(), qsizetype(5));
        QCOMPARE(out.size(), size_t(1));
    }

    void aSkipPastTheEndLeavesThePositionAtTheEnd()
    {
        const ScanRequest r = request("ab \"never closed");
        std::vector<ColourStretch> out;
        FrameScanner scanner(r, out);
        scanner.scan(4);
        QCOMPARE(scanner.position(), r.text.size());
        QVERIFY(scanner.atEnd());
    }

    void aQuoteClosesAtTheNextQuote()
    {
        // The quote after the backslash closes, so "b" is a word of its own and the
        // last quote runs to the end.
        QCOMPARE(scanAll(request("\"a\\\"b \"x", "*b*")), QStringLiteral("4 1 keyword b"));
    }

    void aBackslashedQuoteDoesNotCloseWhenEscapesAreOn()
    {
        QCOMPARE(scanAll(request("\"a\\\"b \"x", "*b*"), true), QString());
    }

    void aCommentSwallowsTheWordInProgress()
    {
        QCOMPARE(scanAll(request("if#x\r\nif ", "*if*")),
                 QStringLiteral("2 2 comment \n6 2 keyword if"));
        QCOMPARE(scanAll(request("if{x}\r\n", "*if*")), QStringLiteral("2 3 comment "));
    }

    void aLineCommentRunsToTheEndOfTheRangeWithoutALineBreak()
    {
        QCOMPARE(scanAll(request("x #tail")), QStringLiteral("2 5 comment "));
        QCOMPARE(scanAll(request("x {open")), QStringLiteral("2 5 comment "));
    }

    void aWordInterruptedByAQuoteKeepsTheQuotedText()
    {
        QCOMPARE(scanAll(request("i\"zz\"f x", "*IF*")), QStringLiteral("0 6 keyword I\"zz\"F"));
    }
};

QTEST_GUILESS_MAIN(WordScannerTest)
#include "tst_wordscanner.moc"

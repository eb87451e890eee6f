#include "editor/core/ColourTransfer.h"
#include "editor/core/DynHighlight.h"
#include "editor/core/RtfDocument.h"
#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QDirIterator>
#include <QRandomGenerator>

using namespace tessaro;

namespace {

class FixedCaption : public DocumentCaption
{
public:
    QString caption() const override { return m_caption; }
    void setCaption(const QString &caption) override { m_caption = caption; }

private:
    QString m_caption = QStringLiteral("doc");
};

const QString kSectionFile = QStringLiteral(TESSARO_SOURCE_DIR "/data/tessaro.stx");

// What the section-file line colourer makes of a text written as RTF, read back.
RtfDocument colouredByTheLineColourer(const QString &text)
{
    DynHighlight module;
    module.colours.setStartupValues();
    FixedCaption caption;
    return readRtf(module.colourWithSectionFile(caption, kSectionFile, writeRtf(text)));
}

// The colour each character of the text gets, or -1 for none.
std::vector<qint64> colourPerCharacter(qsizetype length, const std::vector<RtfColourRun> &runs)
{
    std::vector<qint64> colours(size_t(length), -1);
    for (const RtfColourRun &run : runs)
        for (qsizetype i = run.start; i < run.start + run.length; ++i)
            colours[size_t(i)] = run.colour;
    return colours;
}

} // namespace

class ColourTransferTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theSameTextKeepsItsRuns()
    {
        const RtfDocument copy{QStringLiteral("int x;"), {{0, 3, 0xFF0000}, {4, 2, 0}}};
        QCOMPARE(transferColours(copy.text, copy), copy.runs);
    }
    void extraBlanksOfTheCopyArePassedOver()
    {
        // "a b  c" written by the colourer as "a  b    c" with "b" and "c" coloured.
        const RtfDocument copy{QStringLiteral("a  b    c"), {{3, 1, 0xFF}, {8, 1, 0x8000}}};
        QCOMPARE(transferColours(QStringLiteral("a b  c"), copy),
                 (std::vector<RtfColourRun>{{2, 1, 0xFF}, {5, 1, 0x8000}}));
    }
    void aCharacterTheCopyLacksTakesTheColourBeforeIt()
    {
        // The lone ";" at the end was dropped with the block suffix.
        const RtfDocument copy{QStringLiteral("x  \r\ny"), {{0, 3, 0xFF}, {5, 1, 0x8000}}};
        QCOMPARE(transferColours(QStringLiteral("x ;\r\ny"), copy),
                 (std::vector<RtfColourRun>{{0, 3, 0xFF}, {5, 1, 0x8000}}));
        QVERIFY(transferColours(QStringLiteral(";"), RtfDocument{}).empty());
    }
    void runsNeverLeaveTheText()
    {
        QRandomGenerator random(4242);
        for (int round = 0; round < 300; ++round) {
            QString text, other;
            for (int i = random.bounded(40); i > 0; --i)
                text += QChar(u"ab ;\t\r\n"[random.bounded(7)]);
            for (int i = random.bounded(60); i > 0; --i)
                other += QChar(u"ab ;\t\r\n"[random.bounded(7)]);
            RtfDocument copy{other, {}};
            for (qsizetype at = 0; at < other.size(); at += 3)
                copy.runs.push_back({at, std::min<qsizetype>(2, other.size() - at), 0xFF});
            qsizetype end = 0;
            for (const RtfColourRun &run : transferColours(text, copy)) {
                QVERIFY(run.start >= end && run.length > 0);
                end = run.start + run.length;
            }
            QVERIFY(end <= text.size());
        }
    }

    // The line colourer writes blanks twice in runs of blanks and inside strings and
    // drops a piece that is only the block suffix (";"): the colours still land on
    // the characters they were found for.
    void theLineColourersColoursLandOnTheirWords()
    {
        const QString text = QStringLiteral("    int  q = \"a b c\" ;\r\n// note\r\n;\r\nreturn q;");
        const RtfDocument copy = colouredByTheLineColourer(text);
        QVERIFY(copy.text != text); // the colourer's own text differs
        const std::vector<qint64> colours =
            colourPerCharacter(text.size(), transferColours(text, copy));
        const qint64 blue = 0xFF0000, green = 0x008000;
        QCOMPARE(colours[size_t(text.indexOf("int"))], blue);
        QCOMPARE(colours[size_t(text.indexOf("int") + 2)], blue);
        QCOMPARE(colours[size_t(text.indexOf("note"))], green);
        QCOMPARE(colours[size_t(text.indexOf("return"))], blue);
        QCOMPARE(colours[size_t(text.indexOf("="))], qint64(0)); // an operator: black
    }
    void everyTextOfTheSampleModIsColouredWithoutLosingAPlace()
    {
        QDirIterator files(QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod"),
                           {QStringLiteral("*.c"), QStringLiteral("*.h")}, QDir::Files,
                           QDirIterator::Subdirectories);
        int count = 0;
        while (files.hasNext()) {
            const QString text = textfile::read(files.next()).replace("\r\n", "\n").replace(
                "\n", "\r\n");
            const RtfDocument copy = colouredByTheLineColourer(text);
            QCOMPARE(copy.text.count(QStringLiteral("\r\n")), text.count(QStringLiteral("\r\n")));
            const std::vector<RtfColourRun> runs = transferColours(text, copy);
            QVERIFY(!runs.empty());
            QVERIFY(runs.back().start + runs.back().length <= text.size());
            ++count;
        }
        QVERIFY(count > 10);
    }
};

TESSARO_CORE_TEST_MAIN(ColourTransferTest)
#include "tst_colourtransfer.moc"

#include "editor/core/BlockEdit.h"
#include "editor/core/EditorPositions.h"
#include "editor/core/LineEnds.h"
#include "editor/core/PropertyBag.h"
#include "editor/core/PropertyColour.h"
#include "support/TestSupport.h"

#include <QTextDocument>

using namespace tessaro;

class EditorTextTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lineEndsListEveryBreakInOrder()
    {
        const LineEnds ends = scanLineEnds(QStringLiteral("a\r\nb\nc\rd\r\n"));
        QCOMPARE(ends.breaks.size(), std::size_t(4));
        QCOMPARE(ends.breaks[0], LineEnd::CRLF);
        QCOMPARE(ends.breaks[1], LineEnd::LF);
        QCOMPARE(ends.breaks[2], LineEnd::CR);
        QCOMPARE(ends.breaks[3], LineEnd::CRLF);
        QCOMPARE(ends.usual, LineEnd::CRLF);
        QVERIFY(!ends.uniform);
    }
    void lineEndsOfAnLfFileAreLf()
    {
        const LineEnds ends = scanLineEnds(QStringLiteral("int x;\nint y;\n"));
        QCOMPARE(ends.usual, LineEnd::LF);
        QVERIFY(ends.uniform);
        QCOMPARE(lineEndText(ends.usual), QStringLiteral("\n"));
    }
    void aTextWithoutBreaksUsesCrLf()
    {
        const LineEnds ends = scanLineEnds(QStringLiteral("one line"));
        QVERIFY(ends.breaks.empty());
        QCOMPARE(ends.usual, LineEnd::CRLF);
        QVERIFY(ends.uniform);
    }

    void theDecoderGivesTheEditorsTextHoweverTheFileIsCut()
    {
        // Every byte is one character, every break CR LF, also a CR LF split between
        // two pieces; the result is what withCrLfBreaks makes of the decoded file.
        const QByteArray bytes("a\r\nb\nc\rd\r\r\n\n\xe9\xff\0e\r", 17);
        const QString expected = withCrLfBreaks(QString::fromLatin1(bytes));
        QCOMPARE(expected, QString::fromLatin1("a\r\nb\r\nc\r\nd\r\n\r\n\r\n\xe9\xff\0e\r\n", 22));
        for (qsizetype cut = 1; cut <= bytes.size(); ++cut) {
            CrLfTextDecoder decoder;
            for (qsizetype from = 0; from < bytes.size(); from += cut) {
                decoder.add(bytes.mid(from, cut));
                decoder.add(QByteArrayView());
            }
            QCOMPARE(decoder.take(), expected);
        }
        CrLfTextDecoder nothing(100);
        QCOMPARE(nothing.take(), QString());
    }

    void publicPositionsCountALineBreakAsTwo()
    {
        QTextDocument doc;
        doc.setPlainText(QStringLiteral("ab\ncd\n\nef"));
        QCOMPARE(positions::publicText(doc), QStringLiteral("ab\r\ncd\r\n\r\nef"));
        QCOMPARE(positions::publicLength(doc), qsizetype(12));
        QCOMPARE(positions::toPublic(doc, 0), qsizetype(0));
        QCOMPARE(positions::toPublic(doc, 3), qsizetype(4));  // "c"
        QCOMPARE(positions::toPublic(doc, 6), qsizetype(8));  // the empty line
        QCOMPARE(positions::toPublic(doc, 9), qsizetype(12)); // the end
        QCOMPARE(positions::toDocument(doc, 4), 3);
        QCOMPARE(positions::toDocument(doc, 2), 2); // on the CR: the end of "ab"
        QCOMPARE(positions::toDocument(doc, 3), 2); // on the LF: still the end of "ab"
        QCOMPARE(positions::toDocument(doc, 10), 7);
        QCOMPARE(positions::toDocument(doc, 99), 9);
        QCOMPARE(positions::toDocument(doc, -5), 0);
        for (int d = 0; d < doc.characterCount(); ++d)
            QCOMPARE(positions::toDocument(doc, positions::toPublic(doc, d)), d);
    }
    void propertyBagGivesDefaultsAndStoresOnlyWhatDiffers()
    {
        PropertyBag bag;
        QCOMPARE(bag.ReadProperty(QStringLiteral("Indent"), 4).toInt(), 4);
        bag.WriteProperty(QStringLiteral("Indent"), 4, 4);
        QVERIFY(!bag.contains(QStringLiteral("Indent")));
        bag.WriteProperty(QStringLiteral("Indent"), 8, 4);
        QCOMPARE(bag.ReadProperty(QStringLiteral("Indent"), 4).toInt(), 8);
        QCOMPARE(bag.readOrder(), QStringList({"Indent", "Indent"}));
        QCOMPARE(bag.writeOrder(), QStringList({"Indent", "Indent"}));
    }

    void getIndentKeepsBlanksAndTabsAsTheyStand()
    {
        QCOMPARE(blockedit::GetIndent(QStringLiteral("\t  int x;")), QStringLiteral("\t  "));
        QCOMPARE(blockedit::GetIndent(QStringLiteral("int x;")), QString());
        QCOMPARE(blockedit::GetIndent(QStringLiteral("   ")), QStringLiteral("   "));
        QCOMPARE(blockedit::GetIndent(QString()), QString());
    }
    void firstNonBlankCountsFromTheStart()
    {
        QCOMPARE(blockedit::firstNonBlank(QStringLiteral("  //x"), 0, QStringLiteral("//")), 3);
        QCOMPARE(blockedit::firstNonBlank(QStringLiteral("  //x"), 2, QStringLiteral("//")), 2);
        QCOMPARE(blockedit::firstNonBlank(QStringLiteral("//"), 1, QStringLiteral("//")), 1);
        QCOMPARE(blockedit::firstNonBlank(QStringLiteral(" x //"), 1, QStringLiteral("//")), -1);
        QCOMPARE(blockedit::firstNonBlank(QStringLiteral(" \t "), 1, QStringLiteral("//")), -2);
        QCOMPARE(blockedit::firstNonBlank(QString(), 1, QStringLiteral("//")), -2);
    }
    void removingAMarkerLeavesTheIndentAndTheRest()
    {
        const auto r = blockedit::markerRemoval(QStringLiteral("\t// a"), QStringLiteral("//"));
        QCOMPARE(r.offset, 1);
        QCOMPARE(r.length, 2);
        QCOMPARE(blockedit::markerRemoval(QStringLiteral("x // y"), QStringLiteral("//")).offset,
                 -1);
        QCOMPARE(blockedit::markerRemoval(QStringLiteral("    "), QStringLiteral("//")).offset, -1);
    }
    void blankOutdentNeedsTheWholeIndentUnit()
    {
        const QString four(4, u' ');
        QCOMPARE(blockedit::markerRemoval(QStringLiteral("  x"), four).offset, -1);
        QCOMPARE(blockedit::markerRemoval(QStringLiteral("      x"), four).offset, 0);
        QCOMPARE(blockedit::markerRemoval(QStringLiteral("      x"), four).length, 4);
        QCOMPARE(blockedit::markerRemoval(QStringLiteral("\tx"), four).offset, -1);
    }
    void tabOutdentSkipsLeadingBlanks()
    {
        QCOMPARE(blockedit::markerRemoval(QStringLiteral("  \tx"), QStringLiteral("\t")).offset, 2);
        QCOMPARE(blockedit::markerRemoval(QStringLiteral("    x"), QStringLiteral("\t")).offset,
                 -1);
    }

    void colourValuesAreBlueGreenRed()
    {
        const QPalette palette;
        QCOMPARE(propertycolour::toColor(0x7F0000, palette), QColor(0, 0, 127));
        QCOMPARE(propertycolour::toColor(32768, palette), QColor(0, 128, 0));
        QCOMPARE(propertycolour::fromColor(QColor(0, 0, 255)), 0xFF0000u);
        QVERIFY(propertycolour::isSystem(propertycolour::WindowBackground));
        QCOMPARE(propertycolour::toColor(propertycolour::WindowBackground, palette),
                 palette.color(QPalette::Base));
    }
};

TESSARO_CORE_TEST_MAIN(EditorTextTest)
#include "tst_editortext.moc"

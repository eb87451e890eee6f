#include "editor/core/CaselessPattern.h"
#include "editor/ui/srcText.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>

using namespace tessaro;
using tessaro::CaselessPattern;

// Find without options in an editor control agrees with a plain search of its text
// (lines joined by CR LF) between the same positions, wherever the positions fall.
class DocumentFindTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void findAgreesWithASearchOfTheJoinedText()
    {
        const QStringList pieces = {QStringLiteral("a"),         QStringLiteral("A"),
                                    QStringLiteral("b"),         QString::fromLatin1("\xe9"),
                                    QString::fromLatin1("\xc9"), QStringLiteral("\r\n"),
                                    QStringLiteral(" ")};
        QRandomGenerator random(99);
        srcText code;
        for (int round = 0; round < 400; ++round) {
            QString text;
            const int size = random.bounded(40);
            for (int i = 0; i < size; ++i)
                text += pieces[random.bounded(int(pieces.size()))];
            code.setText(text);
            QCOMPARE(code.Text(), text);
            QString what;
            const int length = 1 + random.bounded(3);
            for (int i = 0; i < length; ++i)
                what += pieces[random.bounded(5)]; // letters only, no line break
            const int start = random.bounded(-2, int(text.size()) + 3);
            const int end = random.bounded(-1, int(text.size()) + 3);
            const qsizetype last = (end < 0 || end > text.size()) ? text.size() : end;
            const qsizetype expected =
                CaselessPattern(what).indexIn(text, std::max(0, start), last);
            code.SetSelection(0, 0);
            QCOMPARE(qsizetype(code.Find(what, start, end)), expected);
            if (expected >= 0) {
                QCOMPARE(code.SelStart(), expected);
                QCOMPARE(code.SelLength(), what.size());
            } else {
                QCOMPARE(code.SelStart(), 0);
            }
        }
    }

    void aTextOutsideLatin1IsFoundAsTheTextHoldsIt()
    {
        // The text is 8-bit: a character beyond Latin-1 is held as "?", as a file
        // would be written, and a search for it finds nothing.
        srcText code;
        code.setText(QStringLiteral("x\r\n\u0100bc \u0101BC"));
        QCOMPARE(code.Text(), QStringLiteral("x\r\n?bc ?BC"));
        QCOMPARE(code.Find(QStringLiteral("\u0101bc"), 0, -1), -1);
        QCOMPARE(code.Find(QStringLiteral("?bc"), 0, -1), 3);
        QCOMPARE(code.Find(QStringLiteral("?bc"), 4, -1), 7);
        QCOMPARE(code.Find(QStringLiteral("?BC"), 0, -1, 4), 7);
    }
};

TESSARO_TEST_MAIN(DocumentFindTest)
#include "tst_documentfind.moc"

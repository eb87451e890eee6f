#include "editor/core/CaselessPattern.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>

using tessaro::CaselessPattern;
using tessaro::foldLatin1;

namespace {

QByteArray latin1(const QString &text)
{
    return text.toLatin1();
}

// The obvious search, one position after the other, as the reference.
qsizetype naiveIndex(const QByteArray &haystack, const QByteArray &needle)
{
    for (qsizetype i = 0; i + needle.size() <= haystack.size(); ++i) {
        bool same = true;
        for (qsizetype k = 0; k < needle.size() && same; ++k)
            same = foldLatin1(uchar(haystack[i + k])) == foldLatin1(uchar(needle[k]));
        if (same)
            return i;
    }
    return -1;
}

} // namespace

class CaselessPatternTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lettersMatchInEitherCase()
    {
        QCOMPARE(CaselessPattern(QStringLiteral("score")).indexIn(QByteArray("int SCORE;")), 4);
        QCOMPARE(CaselessPattern(QStringLiteral("SCORE")).indexIn(QByteArray("int score;")), 4);
        QCOMPARE(CaselessPattern(QStringLiteral("sCoRe")).indexIn(QByteArray("ScOrE")), 0);
    }

    void aMatchMayLieInsideALongerWord()
    {
        QCOMPARE(CaselessPattern(QStringLiteral("core")).indexIn(QByteArray("highscores")), 5);
    }

    void textThatIsAbsentGivesMinusOne()
    {
        QCOMPARE(CaselessPattern(QStringLiteral("frag")).indexIn(QByteArray("int score;")), -1);
        QCOMPARE(CaselessPattern(QStringLiteral("longer than it")).indexIn(QByteArray("it")), -1);
        QCOMPARE(CaselessPattern(QStringLiteral("x")).indexIn(QByteArray()), -1);
    }

    void accentedLatin1LettersMatchInBothCases()
    {
        const QString lower = QString::fromLatin1("\xe0\xe9\xee\xf5\xfc\xe7\xf1\xfe");
        const QString upper = QString::fromLatin1("\xc0\xc9\xce\xd5\xdc\xc7\xd1\xde");
        QCOMPARE(CaselessPattern(lower).indexIn(latin1(QStringLiteral("x") + upper)), 1);
        QCOMPARE(CaselessPattern(upper).indexIn(latin1(QStringLiteral("x") + lower)), 1);
        QCOMPARE(CaselessPattern(QString::fromLatin1("\xc9")).indexIn(QByteArray("caf\xe9")), 3);
    }

    void multiplicationAndDivisionSignsAreNotOneLetter()
    {
        QCOMPARE(CaselessPattern(QString::fromLatin1("\xd7")).indexIn(QByteArray("\xf7")), -1);
        QCOMPARE(CaselessPattern(QString::fromLatin1("\xf7")).indexIn(QByteArray("\xd7")), -1);
    }

    void lettersWithoutALatin1CapitalMatchOnlyThemselves()
    {
        QCOMPARE(CaselessPattern(QString::fromLatin1("\xdf")).indexIn(QByteArray("SS\xdf")), 2);
        QCOMPARE(CaselessPattern(QString::fromLatin1("\xff")).indexIn(QByteArray("\xdf\xff")), 1);
    }

    void emptyTextIsFoundAtTheStart()
    {
        const CaselessPattern empty{QString()};
        QVERIFY(empty.isEmpty());
        QCOMPARE(empty.indexIn(QByteArray("abc")), 0);
        QCOMPARE(empty.indexIn(QByteArray()), 0);
    }

    void textOutsideLatin1MatchesNothing()
    {
        const CaselessPattern euro(QStringLiteral("\u20ac5"));
        QVERIFY(!euro.isEmpty());
        QCOMPARE(euro.indexIn(QByteArray("\x80\x35 \xa4\x35")), -1);
        QCOMPARE(euro.indexIn(QStringLiteral("\u20ac5"), 0, 2), -1);
    }

    void binaryBytesAreSearchedLikeAnyOther()
    {
        const QByteArray bytes("\x00\x01\xffSCORE\x00\x7f", 10);
        QCOMPARE(CaselessPattern(QStringLiteral("score")).indexIn(bytes), 3);
        QCOMPARE(CaselessPattern(QString::fromLatin1("\x00\x01", 2)).indexIn(bytes), 0);
        QCOMPARE(CaselessPattern(QStringLiteral("frag")).indexIn(bytes), -1);
    }

    void agreesWithTheObviousSearchOnRandomText()
    {
        // A small alphabet with letters of both cases gives many partial matches; the
        // lengths and offsets cross every block boundary of the fast scan.
        const QByteArray alphabet("aAbB\xe9\xc9 \x00", 8);
        QRandomGenerator random(20240601);
        for (int round = 0; round < 3000; ++round) {
            QByteArray haystack;
            const int size = random.bounded(80);
            for (int i = 0; i < size; ++i)
                haystack.append(alphabet[random.bounded(alphabet.size())]);
            QByteArray needle;
            const int length = 1 + random.bounded(5);
            for (int i = 0; i < length; ++i)
                needle.append(alphabet[random.bounded(alphabet.size())]);
            const CaselessPattern pattern(QString::fromLatin1(needle));
            QCOMPARE(pattern.indexIn(haystack), naiveIndex(haystack, needle));
            const QString text = QString::fromLatin1(haystack);
            const qsizetype from = random.bounded(size + 1);
            const qsizetype expected = naiveIndex(haystack.mid(from), needle);
            QCOMPARE(pattern.indexIn(text, from, text.size()), expected < 0 ? -1 : from + expected);
        }
    }

    void textSearchStaysBetweenStartAndEnd()
    {
        const QString text = QStringLiteral("aaaa");
        const CaselessPattern aa(QStringLiteral("aa"));
        QCOMPARE(aa.indexIn(text, 1, 4), 1);
        QCOMPARE(aa.indexIn(text, 2, 4), 2);
        QCOMPARE(aa.indexIn(text, 3, 4), -1);
        QCOMPARE(aa.indexIn(text, 0, 1), -1);
        QCOMPARE(aa.indexIn(text, 5, 4), -1);
        QCOMPARE(aa.indexIn(text, -3, 99), 0);
    }

    void textCharactersOutsideLatin1MatchNothing()
    {
        const QString text = QStringLiteral("\u0100bc abc");
        QCOMPARE(CaselessPattern(QStringLiteral("abc")).indexIn(text, 0, text.size()), 4);
        QCOMPARE(CaselessPattern(QStringLiteral("ABC")).indexIn(text, 0, text.size()), 4);
    }

    void findsAMatchFarIntoALongText()
    {
        QByteArray bytes(1 << 20, 'x');
        bytes.append("RareWord");
        bytes.append(QByteArray(1000, 'y'));
        QCOMPARE(CaselessPattern(QStringLiteral("rareword")).indexIn(bytes), 1 << 20);
        const QString text = QString::fromLatin1(bytes);
        QCOMPARE(CaselessPattern(QStringLiteral("RAREWORD")).indexIn(text, 0, text.size()),
                 1 << 20);
    }
};

TESSARO_CORE_TEST_MAIN(CaselessPatternTest)
#include "tst_caselesspattern.moc"

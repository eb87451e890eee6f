#include "editor/core/ColourScan.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>

using namespace tessaro;

namespace {

// The answer of the plain search that the index stands in for.
bool literalFind(const QString &list, const QString &word, QString *spelling)
{
    const qsizetype at =
        list.indexOf(QLatin1Char('*') + word + QLatin1Char('*'), 0, Qt::CaseInsensitive);
    if (at < 0)
        return false;
    *spelling = list.mid(at + 1, word.size());
    return true;
}

QString randomText(QRandomGenerator &random, int length, const QString &alphabet)
{
    QString text;
    for (int i = 0; i < length; ++i)
        text += alphabet.at(random.bounded(int(alphabet.size())));
    return text;
}

} // namespace

class WordListIndexTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void findsAWordBetweenAsterisksInAnyCase()
    {
        const WordListIndex list(QStringLiteral("*If*Else*while*"));
        QString spelling;
        QVERIFY(list.find(QStringLiteral("IF"), &spelling));
        QCOMPARE(spelling, QStringLiteral("If"));
        QVERIFY(list.find(QStringLiteral("else"), &spelling));
        QCOMPARE(spelling, QStringLiteral("Else"));
        QVERIFY(list.find(QStringLiteral("WHILE"), &spelling));
        QCOMPARE(spelling, QStringLiteral("while"));
        QVERIFY(!list.find(QStringLiteral("whil")));
        QVERIFY(!list.find(QStringLiteral("for")));
    }

    void wordsOutsideTheAsterisksAreNotFound()
    {
        const WordListIndex list(QStringLiteral("head*if*tail"));
        QVERIFY(list.find(QStringLiteral("if")));
        QVERIFY(!list.find(QStringLiteral("head")));
        QVERIFY(!list.find(QStringLiteral("tail")));
    }

    void theFirstOccurrenceGivesTheSpelling()
    {
        const WordListIndex list(QStringLiteral("*Int*INT*int*"));
        QString spelling;
        QVERIFY(list.find(QStringLiteral("int"), &spelling));
        QCOMPARE(spelling, QStringLiteral("Int"));
        QCOMPARE(list.spellingPosition(u"iNT"), qsizetype(1));
    }

    void aWordWithAsterisksSpansNeighbouringEntries()
    {
        const WordListIndex list(QStringLiteral("*char*Ptr*x**y*"));
        QString spelling;
        QVERIFY(list.find(QStringLiteral("CHAR*ptr"), &spelling));
        QCOMPARE(spelling, QStringLiteral("char*Ptr"));
        QVERIFY(list.find(QStringLiteral("*y"), &spelling));
        QCOMPARE(spelling, QStringLiteral("*y"));
        QVERIFY(list.find(QStringLiteral("x*"), &spelling));
        QCOMPARE(spelling, QStringLiteral("x*"));
        QVERIFY(!list.find(QStringLiteral("y*")));
        QVERIFY(!list.find(QStringLiteral("ptr*char")));
    }

    void anEmptyListFindsNothing()
    {
        const WordListIndex none;
        QVERIFY(none.isEmpty());
        QVERIFY(!none.find(QStringLiteral("if")));
        QVERIFY(!none.find(QString()));
        const WordListIndex stars(QStringLiteral("**"));
        QVERIFY(stars.find(QString()));
    }

    void lineBreaksArePartOfTheList()
    {
        const WordListIndex list(QStringLiteral("*if*\r\n*else*"));
        QVERIFY(list.find(QStringLiteral("if")));
        QVERIFY(list.find(QStringLiteral("else")));
        QVERIFY(list.find(QStringLiteral("\r\n")));
    }

    void copiesShareTheIndex()
    {
        const WordListIndex list(QStringLiteral("*a*"));
        WordListIndex copy;
        copy = list;
        QVERIFY(copy.find(QStringLiteral("A")));
        QCOMPARE(copy.text(), list.text());
    }

    void answersEqualThePlainSearchForRandomLatin1Words()
    {
        QRandomGenerator random(4711);
        QString everyCharacter;
        for (int c = 0; c < 256; ++c)
            everyCharacter += QChar(c);
        const QString small = QStringLiteral("aAbB*sS\u00e9\u00c9\u00df\u00b5\u00ff");
        for (int round = 0; round < 300; ++round) {
            const QString &alphabet = round % 2 ? small : everyCharacter;
            const QString list = randomText(random, 1 + random.bounded(200), alphabet);
            const WordListIndex index(list);
            for (int w = 0; w < 60; ++w) {
                QString word = randomText(random, random.bounded(5), alphabet);
                if (w % 3 == 0) { // a piece of the list itself
                    const int from = random.bounded(int(list.size()));
                    word = list.mid(from, random.bounded(8));
                }
                QString expected, actual;
                const bool literal = literalFind(list, word, &expected);
                QCOMPARE(index.find(word, &actual), literal);
                if (literal)
                    QCOMPARE(actual, expected);
            }
        }
    }

    void answersEqualThePlainSearchBeyondLatin1()
    {
        const QString list = QStringLiteral("*\u03bc*\u0130*K*\U00010400*stra\u00dfe*\u017f*");
        const QStringList words = {
            QStringLiteral("\u00b5"), QStringLiteral("\u039c"),     QStringLiteral("\u212a"),
            QStringLiteral("k"),      QStringLiteral("\U00010428"), QStringLiteral("STRASSE"),
            QStringLiteral("S"),      QStringLiteral("i\u0307"),    QStringLiteral("\u0130")};
        const WordListIndex index(list);
        for (const QString &word : words) {
            QString expected, actual;
            const bool literal = literalFind(list, word, &expected);
            QCOMPARE(index.find(word, &actual), literal);
            if (literal)
                QCOMPARE(actual, expected);
        }
    }

    void aListOfFortyThousandWordsFindsEachOfThem()
    {
        QString list = QStringLiteral("*");
        QStringList words;
        for (int i = 0; i < 40000; ++i) {
            const QString word = QStringLiteral("Word%1_t").arg(i);
            words << word;
            list += word + QLatin1Char('*');
        }
        const WordListIndex index(list);
        for (const QString &word : std::as_const(words)) {
            QString spelling;
            QVERIFY(index.find(word.toUpper(), &spelling));
            QCOMPARE(spelling, word);
        }
        QVERIFY(!index.find(QStringLiteral("word40000_t")));
        QVERIFY(index.find(QStringLiteral("word1_t*word2_t")));
        QVERIFY(!index.find(QStringLiteral("word2_t*word1_t")));
        QCOMPARE(index.spellingPosition(u"word0_t"), qsizetype(1));
    }
};

TESSARO_CORE_TEST_MAIN(WordListIndexTest)
#include "tst_wordlistindex.moc"

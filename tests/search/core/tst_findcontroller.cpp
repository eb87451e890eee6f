#include "editor/core/CaselessPattern.h"
#include "search/core/FindController.h"
#include "support/TestSupport.h"

using namespace tessaro::search;
using tessaro::CaselessPattern;

namespace {

class FakeFindBox : public FindBox
{
public:
    QString text() const override { return edit; }
    void addItem(const QString &text) override { items.append(text); }

    QString edit;
    QStringList items;
};

// A document that searches like the editor: forward between the positions,
// ignoring case, selecting the match; it records every call.
class FakeDocument : public FindTarget
{
public:
    explicit FakeDocument(QString t) : text(std::move(t)) {}
    qint32 selStart() const override { return selectionStart; }
    qint32 textLength() const override { return qint32(text.size()); }
    void find(const QString &what, qint32 start, qint32 end) override
    {
        calls.append({what, start, end});
        const qsizetype at = CaselessPattern(what).indexIn(text, start, end);
        if (at >= 0) {
            selectionStart = qint32(at);
            selectionLength = qint32(what.size());
        }
    }

    struct Call
    {
        QString text;
        qint32 start;
        qint32 end;
        bool operator==(const Call &o) const
        {
            return text == o.text && start == o.start && end == o.end;
        }
    };
    QString text;
    qint32 selectionStart = 0;
    qint32 selectionLength = 0;
    QList<Call> calls;
};

} // namespace

class FindControllerTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void findSearchesFromOneAfterTheSelectionStartToTheEnd()
    {
        FindController controller;
        FakeFindBox box;
        FakeDocument doc(QStringLiteral("int score;\r\nscore = 1;\r\n"));
        doc.selectionStart = 3;
        box.edit = QStringLiteral("SCORE");
        controller.find(box, &doc);
        QCOMPARE(doc.calls.size(), 1);
        QVERIFY((doc.calls[0] == FakeDocument::Call{QStringLiteral("SCORE"), 4, 24}));
        QCOMPARE(doc.selectionStart, 4);
        QCOMPARE(box.items, QStringList{QStringLiteral("SCORE")});
        QCOMPARE(controller.lastFindText(), QStringLiteral("SCORE"));
    }

    void findingTheSameTextTwiceAddsItToTheListOnce()
    {
        FindController controller;
        FakeFindBox box;
        FakeDocument doc(QStringLiteral("score score score"));
        box.edit = QStringLiteral("score");
        controller.find(box, &doc);
        controller.find(box, &doc);
        QCOMPARE(box.items, QStringList{QStringLiteral("score")});
        QCOMPARE(doc.calls.size(), 2);
        QCOMPARE(doc.selectionStart, 12);
    }

    void overlappingMatchesAreFoundOneCharacterApart()
    {
        FindController controller;
        FakeFindBox box;
        FakeDocument doc(QStringLiteral("aaaa"));
        box.edit = QStringLiteral("aa");
        controller.find(box, &doc);
        QCOMPARE(doc.selectionStart, 1); // the match at the caret (0) is skipped
        controller.find(box, &doc);
        QCOMPARE(doc.selectionStart, 2);
        controller.find(box, &doc);
        QCOMPARE(doc.selectionStart, 2); // no match from 3: nothing changes
        controller.findAgain(box, &doc);
        QCOMPARE(doc.selectionStart, 2);
        QCOMPARE(box.items, QStringList{QStringLiteral("aa")});
    }

    void afterTheLastOccurrenceNothingWrapsToTheTop()
    {
        FindController controller;
        FakeFindBox box;
        FakeDocument doc(QStringLiteral("frag x frag y"));
        box.edit = QStringLiteral("frag");
        doc.selectionStart = 5;
        controller.find(box, &doc);
        QCOMPARE(doc.selectionStart, 7);
        for (int i = 0; i < 3; ++i) {
            controller.find(box, &doc);
            controller.findAgain(box, &doc);
            QCOMPARE(doc.selectionStart, 7);
            QCOMPARE(doc.selectionLength, 4);
        }
    }

    void findAgainBeforeAnyFindDoesNothing()
    {
        FindController controller;
        FakeFindBox box;
        FakeDocument doc(QStringLiteral("score"));
        box.edit = QStringLiteral("score");
        controller.findAgain(box, &doc);
        QVERIFY(doc.calls.isEmpty());
        QVERIFY(box.items.isEmpty());
    }

    void findAgainRecordsAChangedBoxEveryTimeButSearchesTheLastFindText()
    {
        FindController controller;
        FakeFindBox box;
        FakeDocument doc(QStringLiteral("one two one two one"));
        box.edit = QStringLiteral("one");
        controller.find(box, &doc);
        box.edit = QStringLiteral("two");
        controller.findAgain(box, &doc);
        controller.findAgain(box, &doc);
        QCOMPARE(box.items, QStringList({QStringLiteral("one"), QStringLiteral("two"),
                                         QStringLiteral("two")}));
        QCOMPARE(controller.lastFindText(), QStringLiteral("one"));
        QCOMPARE(doc.calls.last().text, QStringLiteral("one"));
        QCOMPARE(doc.selectionStart, 16);
    }

    void findAgainWithTheSameTextAddsNothing()
    {
        FindController controller;
        FakeFindBox box;
        FakeDocument doc(QStringLiteral("x x x"));
        box.edit = QStringLiteral("x");
        controller.find(box, &doc);
        controller.findAgain(box, &doc);
        QCOMPARE(box.items, QStringList{QStringLiteral("x")});
        QCOMPARE(doc.selectionStart, 4);
    }

    void withoutADocumentNeitherCommandDoesAnything()
    {
        FindController controller;
        FakeFindBox box;
        box.edit = QStringLiteral("score");
        controller.find(box, nullptr);
        QVERIFY(box.items.isEmpty());
        QVERIFY(controller.lastFindText().isEmpty());

        FakeDocument doc(QStringLiteral("score"));
        controller.find(box, &doc);
        box.edit = QStringLiteral("other");
        controller.findAgain(box, nullptr);
        QCOMPARE(box.items, QStringList{QStringLiteral("score")});
    }

    void anEmptyBoxIsSearchedAndListedWhenItDiffersFromTheLastText()
    {
        FindController controller;
        FakeFindBox box;
        FakeDocument doc(QStringLiteral("abc"));
        controller.find(box, &doc); // "" equals the initial last text: searched, not listed
        QVERIFY(box.items.isEmpty());
        QCOMPARE(doc.calls.size(), 1);
        QCOMPARE(doc.calls[0].text, QString());

        box.edit = QStringLiteral("b");
        controller.find(box, &doc);
        box.edit.clear();
        controller.find(box, &doc);
        QCOMPARE(box.items, QStringList({QStringLiteral("b"), QString()}));
        QVERIFY(controller.lastFindText().isEmpty());
        controller.findAgain(box, &doc); // the last text is empty again: F3 does nothing
        QCOMPARE(doc.calls.size(), 3);
    }

    void comparisonOfTextsIsCaseSensitive()
    {
        FindController controller;
        FakeFindBox box;
        FakeDocument doc(QStringLiteral("Score score"));
        box.edit = QStringLiteral("score");
        controller.find(box, &doc);
        box.edit = QStringLiteral("Score");
        controller.find(box, &doc);
        QCOMPARE(box.items, QStringList({QStringLiteral("score"), QStringLiteral("Score")}));
    }
};

TESSARO_CORE_TEST_MAIN(FindControllerTest)
#include "tst_findcontroller.moc"

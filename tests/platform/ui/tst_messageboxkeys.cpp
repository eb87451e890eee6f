// Message boxes answer Esc and the title bar's close button as boxes of their kind do:
// a Yes/No or Abort/Retry/Ignore box has no escape (neither key nor close does
// anything), OK alone answers OK, and a box with Cancel answers Cancel.

#include "platform/core/MsgBox.h"
#include "platform/ui/WidgetMessageBox.h"
#include "support/TestSupport.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPushButton>
#include <QTest>

using namespace tessaro;

class MessageBoxKeysTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyKindHasItsEscape_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("escape");
        QTest::newRow("OK") << int(mb::OKOnly) << int(mb::OK);
        QTest::newRow("OK/Cancel") << int(mb::OKCancel) << int(mb::Cancel);
        QTest::newRow("Abort/Retry/Ignore") << int(mb::AbortRetryIgnore) << 0;
        QTest::newRow("Yes/No/Cancel") << int(mb::YesNoCancel) << int(mb::Cancel);
        QTest::newRow("Yes/No") << int(mb::YesNo) << 0;
        QTest::newRow("Retry/Cancel") << int(mb::RetryCancel) << int(mb::Cancel);
        QTest::newRow("Yes/No, a question") << int(mb::YesNo | mb::Question) << 0;
        QTest::newRow("OK, critical") << int(mb::OKOnly | mb::Critical) << int(mb::OK);
    }
    void everyKindHasItsEscape()
    {
        QFETCH(int, style);
        QFETCH(int, escape);
        QCOMPARE(mb::escapeAnswer(style), escape);
    }

    void escAndCloseGiveTheEscapeOrNothing_data() { everyKindHasItsEscape_data(); }
    void escAndCloseGiveTheEscapeOrNothing()
    {
        QFETCH(int, style);
        QFETCH(int, escape);
        for (const bool byKey : {true, false}) {
            MessageBoxWindow box(QStringLiteral("Question?"), style, QStringLiteral("Tessaro"));
            QCOMPARE(box.buttons().size(), mb::buttonsOf(style).size());
            box.open();
            QVERIFY(QTest::qWaitForWindowExposed(&box));
            if (byKey)
                QTest::keyClick(&box, Qt::Key_Escape);
            else
                box.close();
            QApplication::processEvents();
            if (escape == 0) {
                // Nothing happened: the box waits for one of its buttons.
                QVERIFY(box.isVisible());
                const int first = mb::buttonsOf(style).constFirst();
                box.buttonOf(first)->click();
                QApplication::processEvents();
                QVERIFY(!box.isVisible());
                QCOMPARE(box.answer(), first);
            } else {
                QVERIFY(!box.isVisible());
                QCOMPARE(box.answer(), escape);
            }
        }
    }

    void eachButtonGivesItsAnswer_data() { everyKindHasItsEscape_data(); }
    void eachButtonGivesItsAnswer()
    {
        QFETCH(int, style);
        for (int answer : mb::buttonsOf(style)) {
            MessageBoxWindow box(QStringLiteral("Question?"), style, QStringLiteral("Tessaro"));
            box.open();
            QVERIFY(box.buttonOf(answer));
            box.buttonOf(answer)->click();
            QCOMPARE(box.answer(), answer);
        }
    }

    void theDefaultButtonIsTheFirst()
    {
        MessageBoxWindow box(QStringLiteral("Save?"), mb::YesNo, QStringLiteral("Tessaro"));
        QCOMPARE(static_cast<QAbstractButton *>(box.defaultButton()), box.buttonOf(mb::Yes));
        MessageBoxWindow retry(QStringLiteral("Retry?"), mb::RetryCancel,
                               QStringLiteral("Tessaro"));
        QCOMPARE(static_cast<QAbstractButton *>(retry.defaultButton()), retry.buttonOf(mb::Retry));
    }
};

TESSARO_TEST_MAIN(MessageBoxKeysTest)
#include "tst_messageboxkeys.moc"

#include "platform/core/RuntimeError.h"
#include "support/TestSupport.h"
#include "workspace/core/DocumentRules.h"

using namespace tessaro;
using namespace tessaro::documents;

class DocumentRulesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void untitledDocumentsCountFromOne()
    {
        qint32 counter = 0;
        QCOMPARE(untitledCaption(nextDocumentNumber(counter)), QStringLiteral("Source 1"));
        QCOMPARE(untitledCaption(nextDocumentNumber(counter)), QStringLiteral("Source 2"));
        counter = 2147483647;
        QVERIFY_THROWS_EXCEPTION(RuntimeError, nextDocumentNumber(counter));
    }

    void cColouringOnOpenIsDecidedOnTheExactEnding_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("c");
        QTest::newRow(".c") << "/m/g_main.c" << true;
        QTest::newRow(".h") << "/m/q_shared.h" << true;
        QTest::newRow(".cpp") << "/m/tool.cpp" << true;
        QTest::newRow(".C") << "/m/X.C" << false;
        QTest::newRow(".H") << "/m/X.H" << false;
        QTest::newRow(".hpp") << "/m/x.hpp" << false;
        QTest::newRow(".txt") << "/m/readme.txt" << false;
        QTest::newRow(".cc") << "/m/a.cc" << false;
    }
    void cColouringOnOpenIsDecidedOnTheExactEnding()
    {
        QFETCH(QString, name);
        QFETCH(bool, c);
        QCOMPARE(opensAsCSource(name), c);
    }

    void savingAsCOrHSwitchesToC()
    {
        QVERIFY(savesAsCSource("/m/x.c"));
        QVERIFY(savesAsCSource("/m/x.h"));
        QVERIFY(!savesAsCSource("/m/x.cpp"));
        QVERIFY(!savesAsCSource("/m/x.txt"));
        QVERIFY(!savesAsCSource("/m/X.C"));
    }

    void untitledIsTheFirstSixCharacters()
    {
        QVERIFY(isUntitled("Source 1"));
        QVERIFY(isUntitled("Source.c"));
        QVERIFY(isUntitled("Sourcery.c"));
        QVERIFY(!isUntitled("/home/me/Source.c"));
        QVERIFY(!isUntitled("source 1"));
        QVERIFY(!isUntitled("Sourc"));
    }

    void dialogTextsAndThePrompt()
    {
        QCOMPARE(sourceFileFilter(),
                 QStringLiteral("Source Files (*.c, *.h)|*.c;*.h|All Files (*.*)|*.*"));
        QCOMPARE(promptSaveFilter(), QStringLiteral("All Files (*.*)|*.*"));
        QCOMPARE(openTitle(), QStringLiteral("Open"));
        QCOMPARE(saveTitle(), QStringLiteral("Save"));
        QCOMPARE(saveAsTitle(), QStringLiteral("Save As"));
        QCOMPARE(saveChangesPrompt("Source 1"),
                 QStringLiteral("Would you like to save changes made to Source 1?"));
        QCOMPARE(saveChangesTitle(), QStringLiteral("Save Changes?"));
        QCOMPARE(loadingCaption("/m/a.c"), QStringLiteral("/m/a.c - Colour Coding..."));
    }
};

TESSARO_CORE_TEST_MAIN(DocumentRulesTest)
#include "tst_documentrules.moc"

// The editor box's styles: style 0 is plain text, every colour gets a style of its own
// the first time it is asked for, the box's own styles (32-39) are never given out, and
// colours beyond the box's 247 share the last style.

#include "editor/core/StyleTable.h"
#include "support/TestSupport.h"

#include <set>

using namespace tessaro;

class StyleTableTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aColourKeepsItsStyle()
    {
        StyleTable table;
        const int comment = table.styleFor(0x8000);
        const int keyword = table.styleFor(0x7F0000);
        QVERIFY(comment != StyleTable::Plain);
        QVERIFY(keyword != comment);
        QCOMPARE(table.styleFor(0x8000), comment);
        QCOMPARE(table.colourOf(keyword), std::optional<ColourValue>(0x7F0000));
        QCOMPARE(table.colourOf(StyleTable::Plain), std::nullopt);
        QCOMPARE(table.colourOf(200), std::nullopt);
        QCOMPARE(table.styles().size(), std::size_t(2));
    }
    void theBoxsOwnStylesAreNeverGivenOut()
    {
        StyleTable table;
        std::set<int> given;
        for (int i = 0; i < StyleTable::capacity(); ++i)
            given.insert(table.styleFor(ColourValue(i + 1)));
        QCOMPARE(int(given.size()), StyleTable::capacity());
        QCOMPARE(*given.begin(), 1);
        QCOMPARE(*given.rbegin(), 255);
        for (int own = 32; own <= 39; ++own)
            QVERIFY(!given.count(own));
        // One colour more shares the last style.
        QCOMPARE(table.styleFor(0xABCDEF), 255);
        QCOMPARE(table.colourOf(255), std::optional<ColourValue>(StyleTable::capacity()));
    }
};

TESSARO_TEST_MAIN(StyleTableTest)
#include "tst_styletable.moc"

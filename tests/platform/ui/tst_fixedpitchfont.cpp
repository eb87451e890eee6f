// Documents and the output window line up in columns whatever font the desktop calls
// its fixed font.

#include "platform/ui/FixedPitchFont.h"
#include "support/TestSupport.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>

using namespace tessaro;

class FixedPitchFontTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aProportionalSystemFontIsReplacedByAMonospaceOne()
    {
        QFont proportional(QStringLiteral("DejaVu Sans"));
        proportional.setPointSize(11);
        QVERIFY2(!QFontInfo(proportional).fixedPitch(), "the test needs a proportional font");
        const QFont font = fixedPitchFont(proportional);
        QVERIFY(QFontInfo(font).fixedPitch());
        const QFontMetrics metrics(font);
        QCOMPARE(metrics.horizontalAdvance(QStringLiteral("iiii")),
                 metrics.horizontalAdvance(QStringLiteral("WWWW")));
        QCOMPARE(font.pointSize(), 11);
    }
    void aFixedPitchSystemFontIsKept()
    {
        QFont mono(QStringLiteral("DejaVu Sans Mono"));
        mono.setPointSize(9);
        QVERIFY(QFontInfo(mono).fixedPitch());
        QCOMPARE(fixedPitchFont(mono), mono);
    }
    void theDesktopsFixedFontGivesAFixedPitchFont()
    {
        QVERIFY(QFontInfo(fixedPitchFont()).fixedPitch());
    }
};

TESSARO_TEST_MAIN(FixedPitchFontTest)
#include "tst_fixedpitchfont.moc"

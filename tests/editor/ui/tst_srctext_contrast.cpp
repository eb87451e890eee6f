// Documents stay readable under any colour scheme: with a dark and with a grey palette
// set on the application before the window is built, every kind of text (comment,
// keyword, normal text) is drawn at 4.5:1 or more against the document's background,
// measured on the rendered glyphs.

#include "editor/core/ReadableColours.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QImage>
#include <QTest>

using namespace tessaro;

namespace {

QPalette darkPalette()
{
    QPalette p;
    p.setColor(QPalette::Window, QColor(0x35, 0x35, 0x35));
    p.setColor(QPalette::WindowText, Qt::white);
    p.setColor(QPalette::Base, QColor(0x2b, 0x2b, 0x2b));
    p.setColor(QPalette::AlternateBase, QColor(0x35, 0x35, 0x35));
    p.setColor(QPalette::Text, Qt::white);
    p.setColor(QPalette::Button, QColor(0x35, 0x35, 0x35));
    p.setColor(QPalette::ButtonText, Qt::white);
    return p;
}

QPalette greyPalette()
{
    QPalette p;
    p.setColor(QPalette::Window, QColor(0xd4, 0xd4, 0xd4));
    p.setColor(QPalette::Base, QColor(0xc8, 0xc8, 0xc8));
    p.setColor(QPalette::Text, Qt::black);
    return p;
}

struct Measured
{
    QColor background;
    QColor glyph;
    double contrast = 0;
};

// Renders the control and finds the background (the most common colour) and the
// glyphs' own colour (the pixel that stands out most from it: anti-aliased edges lie
// between the two).
Measured measure(srcText &code)
{
    // The caret is drawn in the text colour: it is left out.
    code.RTFBox()->send(SourceEditBox::SCI_SETCARETSTYLE, SourceEditBox::CARETSTYLE_INVISIBLE);
    // The text's two lines, nothing of the scroll bars.
    const int lineHeight = int(code.RTFBox()->send(SourceEditBox::SCI_TEXTHEIGHT, 0));
    const QRect lines(0, 0, 300, 2 * lineHeight);
    const QImage image = code.grab(lines).toImage().convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    Measured m;
    int most = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        if (it.value() > most) {
            most = it.value();
            m.background = QColor::fromRgb(it.key());
        }
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        const double c = readable::contrastRatio(QColor::fromRgb(it.key()), m.background);
        if (c > m.contrast) {
            m.contrast = c;
            m.glyph = QColor::fromRgb(it.key());
        }
    }
    return m;
}

} // namespace

class SrcTextContrastTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyKindOfTextIsReadable_data()
    {
        QTest::addColumn<QString>("scheme");
        QTest::addColumn<QString>("text");
        for (const char *scheme : {"dark", "grey"}) {
            QTest::addRow("%s, comment only", scheme)
                << scheme << QStringLiteral("/* a comment\r\n   over lines */");
            QTest::addRow("%s, keywords only", scheme)
                << scheme << QStringLiteral("while return\r\nint while ");
            QTest::addRow("%s, normal text only", scheme)
                << scheme << QStringLiteral("value = other;\r\nname(x);");
        }
    }
    void everyKindOfTextIsReadable()
    {
        QFETCH(QString, scheme);
        QFETCH(QString, text);
        const QPalette before = QApplication::palette();
        QApplication::setPalette(scheme == QLatin1String("dark") ? darkPalette() : greyPalette());
        {
            srcText code;
            code.resize(400, 120);
            code.setMode(6);
            code.setWordLists(QString(), QStringLiteral("*int*while*return*"));
            code.setText(text);
            code.show();
            QVERIFY(QTest::qWaitForWindowExposed(&code));
            QTRY_VERIFY(!code.isColouring());
            const Measured m = measure(code);
            qInfo("%s: glyphs %s on %s: %.2f:1", qPrintable(QTest::currentDataTag()),
                  qPrintable(m.glyph.name()), qPrintable(m.background.name()), m.contrast);
            QVERIFY2(m.contrast >= readable::TextContrast,
                     qPrintable(QStringLiteral("%1:1").arg(m.contrast)));
        }
        QApplication::setPalette(before);
    }

    void theRuleKeepsALightBaseAndLeavesADarkOne()
    {
        const QList<QColor> defaults{QColor(0, 0, 0), QColor(0, 128, 0), QColor(0, 0, 127)};
        QCOMPARE(readable::documentBackground(QColor(255, 255, 255), defaults), QColor(Qt::white));
        // A light cream base keeps every default colour readable: it stays.
        QCOMPARE(readable::documentBackground(QColor(0xff, 0xfb, 0xf0), defaults),
                 QColor(0xff, 0xfb, 0xf0));
        QCOMPARE(readable::documentBackground(QColor(0x2b, 0x2b, 0x2b), defaults),
                 QColor(Qt::white));
        QCOMPARE(readable::documentBackground(QColor(0xc8, 0xc8, 0xc8), defaults),
                 QColor(Qt::white));
        // A user's own light text colour is readable on the dark base only: it stays.
        const QList<QColor> light{QColor(0xee, 0xee, 0xee), QColor(0x80, 0xff, 0x80)};
        QCOMPARE(readable::documentBackground(QColor(0x2b, 0x2b, 0x2b), light),
                 QColor(0x2b, 0x2b, 0x2b));
        QVERIFY(qAbs(readable::contrastRatio(Qt::black, Qt::white) - 21.0) < 0.01);
        QVERIFY(qAbs(readable::contrastRatio(QColor(0, 128, 0), Qt::white) - 5.14) < 0.01);
    }

    void aBackColorOfItsOwnIsKept()
    {
        const QPalette before = QApplication::palette();
        QApplication::setPalette(darkPalette());
        srcText code;
        code.setBackColor(0x00FFFF); // yellow, chosen by the user
        code.resize(200, 80);
        code.setText(QStringLiteral("x"));
        code.show();
        QVERIFY(QTest::qWaitForWindowExposed(&code));
        QCOMPARE(measure(code).background, QColor(255, 255, 0));
        QApplication::setPalette(before);
    }
};

TESSARO_TEST_MAIN(SrcTextContrastTest)
#include "tst_srctext_contrast.moc"

// The keys of the editor box: the keys of a plain rich-edit box and nothing of
// Scintilla's own key map (which cuts, swaps, duplicates and re-cases lines), and its
// tab stops every half inch.

#include "EditorTestHelpers.h"
#include "editor/ui/srcText.h"
#include "platform/core/Twips.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

using namespace tessaro;
using namespace tessaro::test;

class SrcTextKeysTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QGuiApplication::clipboard()->clear(); }

    void noOtherKeyWithCtrlOrAltChangesTheText()
    {
        srcText code;
        code.resize(400, 300);
        code.setMode(6);
        const QString text = QStringLiteral("int abc;\r\n\tline two\r\nthird line");
        QList<int> keys;
        for (int k = Qt::Key_A; k <= Qt::Key_Z; ++k)
            keys << k;
        for (int k = Qt::Key_0; k <= Qt::Key_9; ++k)
            keys << k;
        for (int k = Qt::Key_F1; k <= Qt::Key_F12; ++k)
            keys << k;
        keys << Qt::Key_Up << Qt::Key_Down << Qt::Key_Left << Qt::Key_Right << Qt::Key_Home
             << Qt::Key_End << Qt::Key_PageUp << Qt::Key_PageDown << Qt::Key_Insert
             << Qt::Key_Escape << Qt::Key_Tab << Qt::Key_Slash << Qt::Key_Backslash
             << Qt::Key_BracketLeft << Qt::Key_BracketRight << Qt::Key_Minus << Qt::Key_Equal
             << Qt::Key_Plus << Qt::Key_Comma << Qt::Key_Period << Qt::Key_Semicolon
             << Qt::Key_Apostrophe << Qt::Key_QuoteLeft << Qt::Key_Space << Qt::Key_Backspace
             << Qt::Key_Delete;
        const QList<Qt::KeyboardModifiers> combinations{
            Qt::ControlModifier,
            Qt::ControlModifier | Qt::ShiftModifier,
            Qt::AltModifier,
            Qt::AltModifier | Qt::ShiftModifier,
            Qt::ControlModifier | Qt::AltModifier,
            Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier,
            Qt::MetaModifier,
        };
        // The box's own keys that change the text: cut and paste, words deleted with
        // Ctrl, Tab that indents the selected lines (Alt or not), and Alt or Meta with
        // a character types the character (AltGr is Ctrl+Alt on some keyboards), as
        // in any text box.
        auto changes = [](int key, Qt::KeyboardModifiers mods) {
            const bool ctrl = (mods & Qt::ControlModifier) && !(mods & Qt::AltModifier);
            if (ctrl && (key == Qt::Key_X || key == Qt::Key_V))
                return true;
            if (mods == Qt::ControlModifier && (key == Qt::Key_Backspace || key == Qt::Key_Delete))
                return true;
            const bool alt = mods & (Qt::AltModifier | Qt::MetaModifier);
            if (alt && key == Qt::Key_Tab)
                return true;
            const bool printable = (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde);
            return alt && printable;
        };
        QStringList changed;
        for (Qt::KeyboardModifiers mods : combinations) {
            for (int key : keys) {
                if (changes(key, mods))
                    continue;
                code.setText(text);
                code.SetSelection(6, 14); // across a line break
                QTest::keyClick(code.RTFBox(), Qt::Key(key), mods);
                if (code.Text() != text)
                    changed << QKeySequence(key | mods.toInt()).toString();
            }
        }
        QVERIFY2(changed.isEmpty(), qPrintable(changed.join(u' ')));
    }

    void theBoxsOwnKeysStillEdit()
    {
        srcText code;
        code.setText(QStringLiteral("one two"));
        code.setSelStart(7);
        QTest::keyClick(code.RTFBox(), Qt::Key_Backspace, Qt::ControlModifier);
        QCOMPARE(code.Text(), QStringLiteral("one "));
        code.setSelStart(0);
        QTest::keyClick(code.RTFBox(), Qt::Key_Delete, Qt::ControlModifier);
        QCOMPARE(code.Text(), QStringLiteral(""));
        QTest::keyClicks(code.RTFBox(), QStringLiteral("ab"));
        QTest::keyClick(code.RTFBox(), Qt::Key_Left);
        QTest::keyClick(code.RTFBox(), Qt::Key_Delete);
        QTest::keyClick(code.RTFBox(), Qt::Key_Home);
        QTest::keyClick(code.RTFBox(), Qt::Key_End, Qt::ShiftModifier);
        QCOMPARE(code.SelText(), QStringLiteral("a"));
        QTest::keyClick(code.RTFBox(), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(code.SelLength(), qsizetype(1));
    }

    void tabStopsLieEveryHalfInch()
    {
        srcText code;
        QFont font(QStringLiteral("DejaVu Sans Mono"));
        font.setPointSize(10);
        code.setFontProperty(font);
        const SourceEditBox *box = code.RTFBox();
        const long columns = box->send(SourceEditBox::SCI_GETTABWIDTH);
        const long blank = box->SendScintilla(SourceEditBox::SCI_TEXTWIDTH,
                                              uintptr_t(SourceEditBox::STYLE_DEFAULT), " ");
        const int halfInch = twips::toPixels(720, twips::perPixel(box->logicalDpiX()));
        // The stop nearest to half an inch that the box's blanks can make.
        QVERIFY2(std::abs(columns * blank - halfInch) * 2 <= blank,
                 qPrintable(QStringLiteral("%1 x %2 px").arg(columns).arg(blank)));
        // A larger font keeps the stops where they are: fewer blanks a tab.
        font.setPointSize(20);
        code.setFontProperty(font);
        QVERIFY(box->send(SourceEditBox::SCI_GETTABWIDTH) < columns);
    }
};

TESSARO_TEST_MAIN(SrcTextKeysTest)
#include "tst_srctext_keys.moc"

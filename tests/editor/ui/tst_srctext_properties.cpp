#include "editor/core/PropertyColour.h"
#include "shell/ui/ActiveDocument.h"
#include "editor/core/PropertyBag.h"
#include "editor/ui/srcText.h"
#include "platform/core/RuntimeError.h"
#include "support/TestSupport.h"

#include "editor/ui/SourceEditBox.h"
#include <QApplication>
#include <QClipboard>

#include <QTimer>

using namespace tessaro;

class SrcTextPropertiesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theControlHasItsNamedParts()
    {
        srcText code;
        auto *box = code.findChild<SourceEditBox *>(QStringLiteral("rtfMain"));
        QVERIFY(box);
        QCOMPARE(box, code.RTFBox());
        // The colouring's snapshot (rtfTemp) is text the run keeps, not a second box.
        QCOMPARE(code.findChildren<QsciScintillaBase *>().size(), 1);
        QCOMPARE(code.TempCharacterCount(), qsizetype(0));
        auto *insert = code.findChild<QTimer *>(QStringLiteral("tmrInsert"));
        auto *update = code.findChild<QTimer *>(QStringLiteral("tmrUpdate"));
        QVERIFY(insert);
        QVERIFY(update);
        QCOMPARE(insert->interval(), 50);
        QVERIFY(!insert->isActive());
        QCOMPARE(update->interval(), 1000);
        QVERIFY(!update->isActive());
        QCOMPARE(code.Version(), QStringLiteral("0.50"));
    }

    void aNewControlStartsWithModeNineAndTheWindowBackground()
    {
        QWidget container;
        QFont ambient = container.font();
        ambient.setPointSize(ambient.pointSize() + 3);
        container.setFont(ambient);
        srcText code(&container);
        QCOMPARE(code.Mode(), 9);
        QCOMPARE(code.BackColor(), 0x80000005u);
        const long back =
            code.RTFBox()->send(SourceEditBox::SCI_STYLEGETBACK, SourceEditBox::STYLE_DEFAULT);
        QCOMPARE(SourceEditBox::colourOf(back),
                 code.palette().color(QPalette::Base));
        QVERIFY(!code.TabStop());
        QVERIFY(!code.Locked());
        QVERIFY(code.Enabled());
        QCOMPARE(code.Font(), ambient);
        QCOMPARE(code.Colour_Comment(), 0x8000u);
        QCOMPARE(code.Colour_Keyword(), 0x7F0000u);
        QCOMPARE(code.Colour_Text(), 0u);
        QVERIFY(!code.Border());
        QVERIFY(code.AutoIndent());
        QCOMPARE(code.IndentValue(), 4);
        QVERIFY(code.IgnoreVBHeader());
        QVERIFY(!code.Saved());
        QVERIFY(!code.Modified());
        QVERIFY(!code.CancelColour());
        QCOMPARE(code.Text(), QString());
    }

    void propertiesAreReadInTheirOrderWithTheirDefaults()
    {
        srcText code;
        PropertyBag bag;
        code.ReadProperties(bag);
        QCOMPARE(bag.readOrder(),
                 QStringList({"Text", "TabStop", "Locked", "Enabled", "Font", "Mode",
                              "Colour_Comment", "Colour_Keyword", "Colour_Text", "Border",
                              "AutoIndent", "Indent", "IgnoreVBHeader"}));
        // A control read from a bag without a stored Mode has Mode 0, not 9.
        QCOMPARE(code.Mode(), 0);
        QCOMPARE(code.CommentMarker(), QStringLiteral("'"));
        QCOMPARE(code.IndentValue(), 4);
        QCOMPARE(code.Colour_Comment(), 32768u);
    }

    void storedPropertiesReachTheControl()
    {
        srcText code;
        QFont font(QStringLiteral("Monospace"), 13);
        PropertyBag bag(QVariantMap{{"Text", "int x;\r\nint y;"},
                                    {"TabStop", true},
                                    {"Locked", -1},
                                    {"Enabled", false},
                                    {"Font", font},
                                    {"Mode", 6},
                                    {"Colour_Comment", 255u},
                                    {"Colour_Keyword", 65280u},
                                    {"Colour_Text", 128u},
                                    {"Border", true},
                                    {"AutoIndent", false},
                                    {"Indent", 8},
                                    {"IgnoreVBHeader", false}});
        code.ReadProperties(bag);
        QCOMPARE(code.Text(), QStringLiteral("int x;\r\nint y;"));
        QVERIFY(code.TabStop());
        QVERIFY(code.Locked());
        QVERIFY(code.RTFBox()->isReadOnly());
        QVERIFY(!code.Enabled());
        QCOMPARE(code.Font(), font);
        QCOMPARE(code.Mode(), 6);
        QCOMPARE(code.Colour_Comment(), 255u);
        QCOMPARE(code.Colour_Keyword(), 65280u);
        QCOMPARE(code.Colour_Text(), 128u);
        QVERIFY(code.Border());
        QVERIFY(!code.AutoIndent());
        QCOMPARE(code.IndentValue(), 8);
        QVERIFY(!code.IgnoreVBHeader());
    }

    void propertiesAreWrittenInTheirOrderAndOnlyWhenNotDefault()
    {
        srcText code;
        PropertyBag bag;
        code.WriteProperties(bag);
        QCOMPARE(bag.writeOrder(),
                 QStringList({"Enabled", "Locked", "Text", "TabStop", "Font", "Mode",
                              "Colour_Comment", "Colour_Keyword", "Colour_Text", "Border",
                              "AutoIndent", "Indent", "IgnoreVBHeader"}));
        // A new control differs from the defaults only in its Mode.
        QCOMPARE(bag.values().keys(), QStringList({"Mode"}));
        QCOMPARE(bag.values().value("Mode").toInt(), 9);

        code.setText(QStringLiteral("a\r\nb"));
        code.setIndentValue(2);
        code.setLocked(true);
        PropertyBag second;
        code.WriteProperties(second);
        QCOMPARE(second.values().value("Text").toString(), QStringLiteral("a\r\nb"));
        QCOMPARE(second.values().value("Indent").toInt(), 2);
        QVERIFY(second.values().value("Locked").toInt() != 0);

        srcText copy;
        copy.ReadProperties(second);
        QCOMPARE(copy.Text(), code.Text());
        QCOMPARE(copy.IndentValue(), 2);
        QVERIFY(copy.Locked());
        QCOMPARE(copy.Mode(), 9);
    }

    void aSixteenBitPropertyOutOfRangeIsAnOverflow()
    {
        srcText code;
        PropertyBag bag(QVariantMap{{"Indent", 70000}});
        try {
            code.ReadProperties(bag);
            QFAIL("no error");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), qint64(RuntimeError::Overflow));
        }
    }

    void modeSetsTheCommentMarkerOfItsLanguage()
    {
        srcText code;
        QCOMPARE(code.CommentMarker(), QString());
        code.setMode(0);
        QCOMPARE(code.CommentMarker(), QStringLiteral("'"));
        code.setMode(6);
        QCOMPARE(code.CommentMarker(), QStringLiteral("'")); // C leaves the marker alone
        code.setMode(5);
        QCOMPARE(code.CommentMarker(), QStringLiteral("#"));
        code.setMode(1);
        QCOMPARE(code.CommentMarker(), QStringLiteral("#"));
        code.setMode(4);
        QCOMPARE(code.CommentMarker(), QStringLiteral("'"));
        code.setMode(9);
        QCOMPARE(code.Mode(), 9);
        QCOMPARE(code.CommentMarker(), QStringLiteral("'"));
    }

    void theMainWindowReachesMembersByNameButNotCutOrPrintDoc()
    {
        srcText code;
        code.setText(QStringLiteral("hello"));
        code.SetSelection(0, 5);
        QVERIFY(callByName(&code, "Copy"));
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("hello"));
        code.SetSelection(5, 5);
        QVERIFY(callByName(&code, "Paste"));
        QCOMPARE(code.Text(), QStringLiteral("hellohello"));
        QVERIFY(callByName(&code, "Undo"));
        QCOMPARE(code.Text(), QStringLiteral("hello"));
        code.SetSelection(0, 5);
        QVERIFY(!callByName(&code, "Cut"));
        QVERIFY(!callByName(&code, "PrintDoc", {QStringLiteral("Source 1")}));
        QCOMPARE(code.Text(), QStringLiteral("hello"));
    }

    void propertiesAreReadableByName()
    {
        srcText code;
        code.setText(QStringLiteral("ab\r\ncd"));
        code.SetSelection(4, 5);
        QCOMPARE(readByName(&code, "Text").toString(), QStringLiteral("ab\r\ncd"));
        QCOMPARE(readByName(&code, "SelStart").toInt(), 4);
        QCOMPARE(readByName(&code, "SelLength").toInt(), 1);
        QCOMPARE(readByName(&code, "CurrentLine").toInt(), 1);
        QCOMPARE(readByName(&code, "LineCount").toInt(), 2);
        QCOMPARE(readByName(&code, "Mode").toInt(), 9);
        QCOMPARE(readByName(&code, "Version").toString(), QStringLiteral("0.50"));
        QVERIFY(code.setProperty("SelStart", 1));
        QCOMPARE(code.SelStart(), qsizetype(1));
        QVERIFY(callByName(&code, "Find", {QStringLiteral("CD"), 1, 6}));
        QCOMPARE(code.SelStart(), qsizetype(4));
    }

    void flagsAreStoredAndReported()
    {
        srcText code;
        code.setSaved(true);
        code.setModified(true);
        QVERIFY(code.Saved());
        QVERIFY(code.Modified());
        code.setModified(false);
        QVERIFY(!code.Modified());
    }
};

TESSARO_TEST_MAIN(SrcTextPropertiesTest)
#include "tst_srctext_properties.moc"

#include "EditorTestHelpers.h"
#include "editor/ui/srcText.h"
#include "platform/core/RuntimeError.h"
#include "editor/core/RtfDocument.h"
#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace tessaro;
using namespace tessaro::test;

class SrcTextFilesTest : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;

    QString path(const QString &name) const { return m_dir.filePath(name); }
    QString write(const QString &name, const QByteArray &bytes) const
    {
        textfile::writeBytes(path(name), bytes);
        return path(name);
    }
    // Loads and saves a file and gives the saved bytes.
    QByteArray roundTrip(const QByteArray &bytes, const QString &name = QStringLiteral("in.txt"))
    {
        srcText code;
        code.LoadFile(write(name, bytes), 1);
        code.SaveFile(path(QStringLiteral("out.txt")), 1);
        return textfile::readBytes(path(QStringLiteral("out.txt")));
    }

private Q_SLOTS:
    void anLfFileSavesWithLf()
    {
        const QByteArray bytes("int x;\nint y;\n");
        QCOMPARE(roundTrip(bytes), bytes);
    }
    void aCrLfFileSavesWithCrLf()
    {
        const QByteArray bytes("int x;\r\nint y;\r\n\r\n");
        QCOMPARE(roundTrip(bytes), bytes);
    }
    void mixedLineBreaksSaveAsTheyWere()
    {
        const QByteArray bytes("a\r\nb\nc\rd\n\r\ne");
        QCOMPARE(roundTrip(bytes), bytes);
    }
    void everyByteValueSavesBackByteForByte()
    {
        QByteArray bytes;
        for (int round = 0; round < 3; ++round)
            for (int b = 0; b < 256; ++b)
                bytes.append(char(b));
        QCOMPARE(roundTrip(bytes), bytes);
    }
    void aBinaryFileSavesBackByteForByte()
    {
        QByteArray bytes(64 * 1024, '\0');
        QRandomGenerator generator(20261121);
        for (char &c : bytes)
            c = char(generator.bounded(256));
        QCOMPARE(roundTrip(bytes, QStringLiteral("blob.c")), bytes);
    }
    void anEmptyFileLoadsAndSavesEmpty()
    {
        QCOMPARE(roundTrip(QByteArray()), QByteArray());
    }

    void theTextJoinsLinesWithCrLfWhateverTheFileHas()
    {
        srcText code;
        code.LoadFile(write(QStringLiteral("lf.txt"), "one\ntwo\n"), 1);
        QCOMPARE(code.Text(), QStringLiteral("one\r\ntwo\r\n"));
        QCOMPARE(code.CharacterCount(), qsizetype(10));
    }

    void aNewTextSavesWithCrLf()
    {
        srcText code;
        code.setText(QStringLiteral("a\nb"));
        code.SaveFile(path(QStringLiteral("new.c")), 1);
        QCOMPARE(textfile::readBytes(path(QStringLiteral("new.c"))), QByteArray("a\r\nb"));
        QVERIFY(code.Saved());
        QVERIFY(!code.Modified());
    }
    void linesTypedIntoAnLfFileGetLf()
    {
        srcText code;
        code.LoadFile(write(QStringLiteral("typed.txt"), "a\nb"), 1);
        code.SetSelection(1, 1);
        code.setSelText(QStringLiteral("\r\nx"));
        code.SaveFile(path(QStringLiteral("typed-out.txt")), 1);
        QCOMPARE(textfile::readBytes(path(QStringLiteral("typed-out.txt"))),
                 QByteArray("a\nx\nb"));
    }

    void loadingSetsTheNameAndTellsTheContainer()
    {
        srcText code;
        QSignalSpy loaded(&code, &srcText::FileLoaded);
        QSignalSpy changed(&code, &srcText::Change);
        const QString file = write(QStringLiteral("notes.txt"), "hello");
        QVERIFY(code.LoadFile(file, 1));
        QCOMPARE(code.FileName(), file);
        QCOMPARE(code.FileTitle(), QStringLiteral("notes.txt"));
        QCOMPARE(loaded.count(), 1);
        QCOMPARE(loaded.at(0).at(0).toString(), file);
        QCOMPARE(changed.count(), 0);
        QVERIFY(!code.Modified());
    }

    void aFileNamedHppGetsModeNineAndNoColour()
    {
        srcText code;
        QSignalSpy started(&code, &srcText::ProgressStart);
        code.LoadFile(write(QStringLiteral("x.hpp"), "/* note */ int x;\n"), 1);
        QCOMPARE(code.Mode(), 9);
        QVERIFY(!code.isColouring());
        QTest::qWait(50);
        QCOMPARE(started.count(), 0);
        QVERIFY(colourOf(code, QStringLiteral("note")) != commentColour);
    }
    void anUpperCaseExtensionIsNoCSource()
    {
        srcText code;
        code.LoadFile(write(QStringLiteral("X.C"), "/* note */\n"), 1);
        QCOMPARE(code.Mode(), 9);
    }
    void cSourcesGetModeSixAndAreColouredAtOnce()
    {
        for (const QString &name : {QStringLiteral("a.c"), QStringLiteral("a.h"),
                                   QStringLiteral("a.cpp")}) {
            srcText code;
            QSignalSpy complete(&code, &srcText::ProgressComplete);
            code.LoadFile(write(name, "int x; /* note */\n"), 1);
            QCOMPARE(code.Mode(), 6);
            QVERIFY(code.isColouring());
            QVERIFY(complete.wait(5000));
            QCOMPARE(colourOf(code, QStringLiteral("note")), commentColour);
            QCOMPARE(colourOf(code, QStringLiteral("x;")), textColour);
        }
    }

    void aMissingFileIsReportedAndEndsTheCallersCommand()
    {
        RecordingMessageBox box;
        srcText code;
        code.setText(QStringLiteral("kept"));
        QSignalSpy loaded(&code, &srcText::FileLoaded);
        try {
            code.LoadFile(path(QStringLiteral("missing.c")), 1);
            QFAIL("no error");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), qint64(RuntimeError::FileNotFound));
        }
        QCOMPARE(box.calls.size(), 1);
        QVERIFY(box.calls.at(0).prompt.startsWith(QStringLiteral("File not found")));
        QCOMPARE(code.Text(), QStringLiteral("kept"));
        QCOMPARE(code.FileName(), QString());
        QCOMPARE(loaded.count(), 0);
    }

    void richTextCarriesTheTextAndItsColours()
    {
        srcText code;
        code.setMode(6);
        code.setWordLists(QString(), QStringLiteral("*int*"));
        code.setText(QStringLiteral("int x;\r\n// note"));
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        code.ColourDocument();
        QVERIFY(complete.wait(5000));
        code.SetSelection(0, 3);
        code.FontBackColour(0x00FFFF);
        const QString rtf = code.TextRTF();
        QVERIFY(rtf.startsWith(QStringLiteral("{\\rtf")));
        QVERIFY(rtf.contains(QStringLiteral("\\par")));
        srcText copy;
        copy.setTextRTF(rtf);
        QCOMPARE(copy.Text(), code.Text());
        QCOMPARE(colourOf(copy, QStringLiteral("note")), commentColour);
        QCOMPARE(colourOf(copy, QStringLiteral("int")), keywordColour);
        QCOMPARE(colourOf(copy, QStringLiteral("x;")), textColour);
        // The copy's colours stay: nothing colours its lines again.
        QTest::qWait(30);
        QCOMPARE(colourOf(copy, QStringLiteral("int")), keywordColour);
        code.SetSelection(8, 15);
        srcText part;
        part.setSelRTF(code.SelRTF());
        QCOMPARE(part.Text(), QStringLiteral("// note"));
        QCOMPARE(colourAt(part, 3), commentColour);
    }
    void richTextOfTheSameTextChangesTheColoursOnly()
    {
        srcText code;
        code.LoadFile(write(QStringLiteral("same.txt"), "int x;\nint y;\n"), 1);
        QSignalSpy changed(&code, &srcText::Change);
        code.SetSelection(0, 0);
        QTest::keyClicks(code.RTFBox(), QStringLiteral("a"));
        code.setTextRTF(writeRtf(code.Text(), {{0, 4, 0xFF}}));
        QCOMPARE(colourAt(code, 1), QColor(255, 0, 0));
        QCOMPARE(changed.count(), 1); // the typed "a" alone
        QVERIFY(canUndo(code));
        code.Undo();
        QCOMPARE(code.Text(), QStringLiteral("int x;\r\nint y;\r\n"));
        code.SaveFile(path(QStringLiteral("same-out.txt")), 1);
        QCOMPARE(textfile::readBytes(path(QStringLiteral("same-out.txt"))),
                 QByteArray("int x;\nint y;\n"));
    }
    void fileTypeZeroReadsRichTextThroughTheReader()
    {
        const QString rtf = writeRtf(QStringLiteral("int x;\r\n// note"), {{9, 7, 0x8000}});
        const QString file = write(QStringLiteral("coloured.txt"), rtf.toLatin1());
        srcText rich;
        rich.LoadFile(file, 0);
        QCOMPARE(rich.Text(), QStringLiteral("int x;\r\n// note"));
        QCOMPARE(colourOf(rich, QStringLiteral("note")), commentColour);
        QVERIFY(!rich.Modified());
        // Type 1 reads the same file as the text it is.
        srcText plain;
        plain.LoadFile(file, 1);
        QCOMPARE(plain.Text(), rtf);
        // Type 0 reads a file that is not rich text as plain text.
        srcText notRich;
        notRich.LoadFile(write(QStringLiteral("plain0.txt"), "a\nb {\\x}"), 0);
        QCOMPARE(notRich.Text(), QStringLiteral("a\r\nb {\\x}"));
        notRich.SaveFile(path(QStringLiteral("plain0-out.txt")), 1);
        QCOMPARE(textfile::readBytes(path(QStringLiteral("plain0-out.txt"))),
                 QByteArray("a\nb {\\x}"));
    }

    void savingIgnoresItsErrors()
    {
        srcText code;
        code.setText(QStringLiteral("text"));
        code.SaveFile(path(QStringLiteral("no/such/folder/x.c")), 1);
        QVERIFY(!code.Saved());
        QVERIFY(!QFile::exists(path(QStringLiteral("no/such/folder/x.c"))));
    }
    void savingWritesPlainTextWithoutColours()
    {
        srcText code;
        QSignalSpy complete(&code, &srcText::ProgressComplete);
        const QByteArray bytes("/* comment */\r\nint main(void) { return 0; }\r\n");
        code.LoadFile(write(QStringLiteral("plain.c"), bytes), 1);
        QVERIFY(complete.wait(5000));
        code.SaveFile(path(QStringLiteral("plain-out.c")), 1);
        QCOMPARE(textfile::readBytes(path(QStringLiteral("plain-out.c"))), bytes);
    }
    void savingReplacesTheFileWhole()
    {
        srcText code;
        const QString file = write(QStringLiteral("whole.txt"), "a much longer old text\n");
        code.setText(QStringLiteral("new"));
        code.SaveFile(file, 1);
        QCOMPARE(textfile::readBytes(file), QByteArray("new"));
    }
};

TESSARO_TEST_MAIN(SrcTextFilesTest)
#include "tst_srctext_files.moc"

#include "platform/core/CommonDialog.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/FixedList.h"
#include "platform/core/Paths.h"
#include "platform/core/Prefault.h"
#include "platform/core/TextFile.h"
#include "platform/core/Twips.h"
#include "support/TestSupport.h"

#include <QTemporaryDir>

using namespace tessaro;

class PlatformTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pathHelpersScanFromTheEnd_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("dir");
        QTest::newRow("absolute") << "/mod/game/g_main.c"
                                  << "g_main.c"
                                  << "/mod/game";
        QTest::newRow("no separator") << "g_main.c"
                                      << ""
                                      << "";
        QTest::newRow("trailing separator") << "/mod/game/"
                                            << ""
                                            << "/mod/game";
        QTest::newRow("root") << "/"
                              << ""
                              << "";
        QTest::newRow("empty") << ""
                               << ""
                               << "";
    }
    void pathHelpersScanFromTheEnd()
    {
        QFETCH(QString, path);
        QFETCH(QString, file);
        QFETCH(QString, dir);
        QCOMPARE(paths::filePart(path), file);
        QCOMPARE(paths::directoryPart(path), dir);
    }
    void nameWithoutExtensionCutsAtTheLastDot()
    {
        QCOMPARE(paths::nameWithoutExtension("g_main.c"), QString("g_main"));
        QCOMPARE(paths::nameWithoutExtension("a.b.c"), QString("a.b"));
        QCOMPARE(paths::nameWithoutExtension("Makefile"), QString());
        QCOMPARE(paths::nameWithoutExtension(".c"), QString());
    }

    void fixedListRaisesNinePastItsCapacity()
    {
        FixedList<QString> list(3);
        list.append("a");
        list.append("b");
        list.append("c");
        QCOMPARE(list.count(), qint16(3));
        try {
            list.append("d");
            QFAIL("no error");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(9));
            QCOMPARE(e.description(), QString("Subscript out of range"));
        }
        QCOMPARE(list.count(), qint16(3));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, list.at(-1));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, list.at(3));
    }
    void fixedListKeepsEntriesAboveTheCount()
    {
        FixedList<QString> list(3);
        list.append("a");
        list.append("b");
        list.setCount(0);
        QCOMPARE(list.at(1), QString("b"));
        QVERIFY(list.used().isEmpty());
        QCOMPARE(list.at(2), QString());
    }
    void sixteenBitCountsOverflowPast32767()
    {
        qint16 count = 32766;
        incrementCount(count);
        QCOMPARE(count, qint16(32767));
        try {
            incrementCount(count);
            QFAIL("no error");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(6));
            QCOMPARE(e.description(), QString("Overflow"));
        }
    }

    void everyByteRoundTrips()
    {
        QTemporaryDir dir;
        QByteArray bytes;
        for (int i = 0; i < 256; ++i)
            bytes.append(char(i));
        bytes += "\r\n\n\r";
        const QString path = dir.filePath("bytes.bin");
        textfile::writeBytes(path, bytes);
        const QString text = textfile::read(path);
        QCOMPARE(text.size(), bytes.size());
        QCOMPARE(text.at(0xE9), QChar(0xE9));
        textfile::write(dir.filePath("copy.bin"), text);
        QCOMPARE(textfile::readBytes(dir.filePath("copy.bin")), bytes);
    }
    void readingAMissingFileRaisesFileNotFound()
    {
        QTemporaryDir dir;
        try {
            textfile::read(dir.filePath("nothing.c"));
            QFAIL("no error");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(53));
        }
    }
    void readingAFolderRaisesAccessError()
    {
        QTemporaryDir dir;
        try {
            textfile::read(dir.path());
            QFAIL("no error");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(75));
        }
    }
    void writingIntoAMissingFolderRaisesPathNotFound()
    {
        QTemporaryDir dir;
        try {
            textfile::write(dir.filePath("no/such/folder/x.c"), "x");
            QFAIL("no error");
        } catch (const RuntimeError &e) {
            QCOMPARE(e.number(), qint64(76));
        }
    }
    void writingReplacesTheWholeFile()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath("x.c");
        textfile::write(path, "a much longer first text");
        textfile::write(path, "short");
        QCOMPARE(textfile::readBytes(path), QByteArray("short"));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{"x.c"});
    }

    void prefaultingKeepsTheBuffersBytes()
    {
        // Unaligned ends, a buffer smaller than a page and nothing at all are fine.
        QByteArray buffer(3 * 1024 * 1024 + 123, Qt::Uninitialized);
        for (qsizetype i = 0; i < buffer.size(); i += 4093)
            buffer[i] = char(i % 251);
        const QByteArray before = buffer;
        prefaultForWriting(buffer.data() + 1, buffer.size() - 2);
        prefaultForWriting(buffer.data() + 5, 100);
        prefaultForWriting(nullptr, 0);
        QCOMPARE(buffer, before);
        QString text;
        text.reserve(1024 * 1024);
        prefaultForWriting(text.data(), text.capacity() * qsizetype(sizeof(QChar)));
        text.fill(u'x', 1024 * 1024);
        QCOMPARE(text.count(u'x'), qsizetype(1024 * 1024));
    }

    void twipsAreFifteenToAPixelAt96Dpi()
    {
        QCOMPARE(twips::perPixel(96), 15.0);
        QCOMPARE(twips::toPixels(1440, 15.0), 96);
        QCOMPARE(twips::toPixels(2655, 15.0), 177);
        QCOMPARE(twips::fromPixels(32, 15.0), 480.0);
    }

    void trappedCommandsEndSilentlyKeepingTheirWork()
    {
        int done = 0;
        const bool finished = trapped([&] {
            done = 1;
            raise(RuntimeError::FileNotFound);
        });
        QVERIFY(!finished);
        QCOMPARE(done, 1);
    }
    void untrappedErrorsShowTheRuntimeMessageAndEndWithStatusOne()
    {
        test::RecordingMessageBox box;
        test::ProgramEndCatcher catcher;
        try {
            untrapped([] { raise(RuntimeError::FileNotFound); });
            QFAIL("the program did not end");
        } catch (const test::ProgramEnded &ended) {
            QCOMPARE(ended.status, 1);
        }
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls[0].prompt, QString("Run-time error '53':\n\nFile not found"));
        QCOMPARE(box.calls[0].title, QString("Tessaro"));
    }

    void cancelRaisesOnlyWhenAsked()
    {
        test::ScriptedCommonDialog dialog;
        FileDialogRequest request;
        request.title = "Open";
        QCOMPARE(showFileDialog(request), QString());
        request.cancelError = true;
        QVERIFY_THROWS_EXCEPTION(RuntimeError, showFileDialog(request));
        dialog.answers << "/tmp/a.c";
        QCOMPARE(showFileDialog(request), QString("/tmp/a.c"));
        QCOMPARE(dialog.requests.size(), 3);
    }
    void pipeFiltersBecomeQtFilters()
    {
        QCOMPARE(qtNameFilters("Source Files (*.c, *.h)|*.c;*.h|All Files (*.*)|*.*"),
                 (QStringList{"Source Files (*.c *.h)", "All Files (*)"}));
        QCOMPARE(qtNameFilters("Executables|*"), QStringList{"Executables (*)"});
        // "*.*" is every file wherever it stands; other patterns with dots stay.
        QCOMPARE(qtNameFilters("Mixed|*.c;*.*;*.h"), QStringList{"Mixed (*.c * *.h)"});
        QCOMPARE(qtNameFilters("Dotted|*.*.bak"), QStringList{"Dotted (*.*.bak)"});
    }
    void severalChosenFilesGiveTheFolderAndTheNames()
    {
        QCOMPARE(multiSelectionText({"/mod/tools/a.c"}), QString("/mod/tools/a.c"));
        QCOMPARE(multiSelectionText({"/mod/tools/a.c", "/mod/tools/b.h"}),
                 QString("/mod/tools a.c b.h"));
        QCOMPARE(multiSelectionText({}), QString());
    }
};

TESSARO_CORE_TEST_MAIN(PlatformTest)
#include "tst_platform.moc"

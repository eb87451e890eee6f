#include "platform/core/FileReader.h"
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QTemporaryDir>

using namespace tessaro;
using tessaro::FileReader;

class FileReaderTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    QString file(const QString &name, const QByteArray &contents)
    {
        const QString path = m_dir.filePath(name);
        textfile::writeBytes(path, contents);
        return path;
    }

    static qint64 errorOf(FileReader &reader, const QString &path)
    {
        try {
            reader.read(path);
        } catch (const RuntimeError &error) {
            return error.number();
        }
        return 0;
    }

private Q_SLOTS:
    void readsEachFileWholeWhateverCameBefore()
    {
        FileReader reader;
        QByteArray big(300000, 'x');
        big[299999] = '\0';
        QCOMPARE(reader.read(file("big.bin", big)).toByteArray(), big);
        QCOMPARE(reader.read(file("small.c", "int a;\r\n")).toByteArray(),
                 QByteArray("int a;\r\n"));
        QCOMPARE(reader.read(file("empty.c", "")).size(), 0);
        QCOMPARE(reader.read(file("bytes.bin", QByteArray("\x00\xff\x1a\r\n", 5))).toByteArray(),
                 QByteArray("\x00\xff\x1a\r\n", 5));
    }

    void readsInPiecesWhatItReadsWhole()
    {
        FileReader reader;
        QByteArray big(200000, 'x');
        for (qsizetype i = 0; i < big.size(); i += 7)
            big[i] = char(i % 256);
        for (const QByteArray &contents : {big, QByteArray("int a;\r\n"), QByteArray()}) {
            const QString path = file("pieces.bin", contents);
            QByteArray joined;
            qsizetype pieces = 0;
            reader.readInPieces(path, [&](QByteArrayView piece) {
                QVERIFY(!piece.isEmpty());
                joined += piece.toByteArray();
                ++pieces;
            });
            QCOMPARE(joined, contents);
            QCOMPARE(joined, reader.read(path).toByteArray());
            QVERIFY(pieces <= 1 || contents.size() > 64 * 1024);
        }
        QByteArray status;
        reader.readInPieces(QStringLiteral("/proc/self/status"),
                            [&](QByteArrayView piece) { status += piece.toByteArray(); });
        QVERIFY(status.contains("Name:"));
    }

    void readingInPiecesRaisesAsReadingWhole()
    {
        FileReader reader;
        const auto errorInPieces = [&](const QString &path) -> qint64 {
            try {
                reader.readInPieces(path, [](QByteArrayView) {});
            } catch (const RuntimeError &error) {
                return error.number();
            }
            return 0;
        };
        QCOMPARE(errorInPieces(m_dir.filePath("gone.c")), qint64(RuntimeError::FileNotFound));
        QCOMPARE(errorInPieces(QString()), qint64(RuntimeError::FileNotFound));
        QCOMPARE(errorInPieces(m_dir.path()), qint64(RuntimeError::PathFileAccessError));
    }

    void readsFilesThatReportNoSize()
    {
        FileReader reader;
        QVERIFY(reader.read(QStringLiteral("/proc/self/status")).toByteArray().contains("Name:"));
    }

    void aMissingFileIsFileNotFound()
    {
        FileReader reader;
        QCOMPARE(errorOf(reader, m_dir.filePath("gone.c")), qint64(RuntimeError::FileNotFound));
        QCOMPARE(errorOf(reader, QString()), qint64(RuntimeError::FileNotFound));
        const QString plain = file("plain.c", "x");
        QCOMPARE(errorOf(reader, plain + QStringLiteral("/below.c")),
                 qint64(RuntimeError::FileNotFound));
    }

    void aFolderIsAnAccessError()
    {
        FileReader reader;
        QCOMPARE(errorOf(reader, m_dir.path()), qint64(RuntimeError::PathFileAccessError));
    }
};

TESSARO_CORE_TEST_MAIN(FileReaderTest)
#include "tst_filereader.moc"

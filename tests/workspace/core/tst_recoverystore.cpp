// The recovery copies on disk: their format, this program's own copies folder and
// the copies that earlier sessions left behind.
#include "support/TestSupport.h"
#include "workspace/core/RecoveryCopy.h"
#include "workspace/core/RecoveryPrompt.h"
#include "workspace/core/RecoveryStore.h"

#include <QDir>
#include <QFile>

#include <memory>

using namespace tessaro;
using namespace tessaro::recovery;

namespace {

RecoveryCopy sampleCopy(const QString &caption, const QByteArray &text = "int x;\r\n")
{
    RecoveryCopy copy;
    copy.caption = caption;
    copy.path = caption.startsWith(QLatin1String("Source")) ? QString() : caption;
    copy.text = text;
    return copy;
}

QStringList entries(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                                  QDir::Name);
}

} // namespace

class RecoveryStoreTest : public QObject
{
    Q_OBJECT

    QString m_root;

private Q_SLOTS:
    void init()
    {
        m_root = QDir::home().filePath("recovery-root");
        QDir(m_root).removeRecursively();
    }

    void aCopyKeepsEveryFieldExactly_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("lineEnd");
        QTest::newRow("untitled") << "Source 3" << QByteArray("a\r\nb") << int(LineEnd::CRLF);
        QTest::newRow("path with blanks and percent")
            << "/home/u/my mod/%20 x=y.c" << QByteArray("x\ny\n") << int(LineEnd::LF);
        QTest::newRow("line breaks in the caption")
            << "/odd\nname\r.c" << QByteArray("\r") << int(LineEnd::CR);
        QTest::newRow("non-ASCII") << QString::fromUtf8("/h/j\xc3\xbcrgen/\xe6\x97\xa5.c")
                                   << QByteArray("caf\xe9\r\n") << int(LineEnd::CRLF);
        QByteArray binary;
        for (int i = 0; i < 256; ++i)
            binary += char(i);
        QTest::newRow("every byte") << "/bin.dat" << binary.repeated(3) << int(LineEnd::LF);
        QTest::newRow("empty text") << "Source 1" << QByteArray() << int(LineEnd::CRLF);
        QTest::newRow("text that looks like a header")
            << "/a.c" << QByteArray("Tessaro recovery copy 1\ncaption=x\n\n") << int(LineEnd::LF);
    }
    void aCopyKeepsEveryFieldExactly()
    {
        QFETCH(QString, caption);
        QFETCH(QByteArray, text);
        QFETCH(int, lineEnd);
        RecoveryCopy copy = sampleCopy(caption, text);
        copy.lineEnd = LineEnd(lineEnd);
        copy.cSource = caption.endsWith(QLatin1String(".c"));
        const auto read = RecoveryCopy::fromBytes(copy.toBytes());
        QVERIFY(read);
        QVERIFY(*read == copy);
    }

    void bytesThatAreNoCopyAreRefused()
    {
        QVERIFY(!RecoveryCopy::fromBytes(QByteArray()));
        QVERIFY(!RecoveryCopy::fromBytes("something else\ncaption=x\n\ntext"));
        QVERIFY(!RecoveryCopy::fromBytes("Tessaro recovery copy 1\ncaption=x\n")); // cut off
        QVERIFY(!RecoveryCopy::fromBytes("Tessaro recovery copy 1\npath=/a\n\ntext"));
        const auto withUnknownKey =
            RecoveryCopy::fromBytes("Tessaro recovery copy 1\nfuture=1\nno equals\ncaption=A\n\nT");
        QVERIFY(withUnknownKey);
        QCOMPARE(withUnknownKey->caption, QString("A"));
        QCOMPARE(withUnknownKey->text, QByteArray("T"));
    }

    void theFolderIsBelowTheStateHome()
    {
        const QByteArray state = qgetenv("XDG_STATE_HOME");
        QVERIFY(!state.isEmpty());
        QCOMPARE(folder(), QString::fromLocal8Bit(state) + "/Tessaro/recovery");
        qunsetenv("XDG_STATE_HOME");
        QCOMPARE(folder(), QDir::homePath() + "/.local/state/Tessaro/recovery");
        qputenv("XDG_STATE_HOME", "relative/state");
        QCOMPARE(folder(), QDir::homePath() + "/.local/state/Tessaro/recovery");
        qputenv("XDG_STATE_HOME", state);
    }

    void nothingIsMadeBeforeTheFirstCopy()
    {
        {
            SessionFolder session(m_root);
            QVERIFY(session.path().isEmpty());
            session.remove(1);
            session.close();
        }
        QVERIFY(!QFileInfo::exists(m_root));
    }

    void copiesAreWrittenReplacedAndRemoved()
    {
        SessionFolder session(m_root);
        QVERIFY(session.write(1, sampleCopy("Source 1", "first")));
        QVERIFY(session.write(1, sampleCopy("Source 1", "second")));
        QVERIFY(session.write(2, sampleCopy("/a.c")));
        QVERIFY(session.has(1) && session.has(2));
        QCOMPARE(entries(session.path()), (QStringList{"1.copy", "2.copy", "lock"}));
        QFile file(session.path() + "/1.copy");
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(RecoveryCopy::fromBytes(file.readAll())->text, QByteArray("second"));
        session.remove(1);
        QVERIFY(!session.has(1));
        QCOMPARE(QFile::permissions(m_root) & (QFile::ReadOther | QFile::ReadGroup),
                 QFile::Permissions());
    }

    void aCleanEndRemovesAnEmptyFolderAndKeepsOneWithACopy()
    {
        QString emptied, kept;
        {
            SessionFolder session(m_root);
            QVERIFY(session.write(1, sampleCopy("Source 1")));
            emptied = session.path();
            session.remove(1);
            session.close();
        }
        QVERIFY(!QFileInfo::exists(emptied));
        {
            SessionFolder session(m_root);
            QVERIFY(session.write(7, sampleCopy("Source 7")));
            kept = session.path();
            session.close();
        }
        QVERIFY(QFileInfo::exists(kept + "/7.copy"));
    }

    void aRunningSessionsCopiesAreNotOffered()
    {
        SessionFolder running(m_root);
        QVERIFY(running.write(1, sampleCopy("Source 1")));
        EarlierSessions earlier(m_root);
        QVERIFY(earlier.copies().isEmpty());
    }

    void anEndedSessionsCopiesAreOfferedInDocumentOrder()
    {
        {
            // Ends without close(): as a killed program leaves its folder.
            SessionFolder crashed(m_root);
            for (int id : {10, 2, 9})
                QVERIFY(crashed.write(id, sampleCopy(QStringLiteral("Source %1").arg(id))));
        }
        {
            EarlierSessions earlier(m_root);
            QCOMPARE(earlier.copies().size(), 3);
            QCOMPARE(earlier.copies()[0].copy.caption, QString("Source 2"));
            QCOMPARE(earlier.copies()[1].copy.caption, QString("Source 9"));
            QCOMPARE(earlier.copies()[2].copy.caption, QString("Source 10"));
            // A second start at the same moment finds them taken.
            EarlierSessions other(m_root);
            QVERIFY(other.copies().isEmpty());
        }
        // Nothing was decided: they are offered again.
        EarlierSessions again(m_root);
        QCOMPARE(again.copies().size(), 3);
    }

    void discardedCopiesGoAndTheirEmptiedFolderWithThem()
    {
        {
            SessionFolder crashed(m_root);
            QVERIFY(crashed.write(1, sampleCopy("Source 1")));
            QVERIFY(crashed.write(2, sampleCopy("Source 2")));
        }
        {
            EarlierSessions earlier(m_root);
            earlier.discard(earlier.copies()[0].file);
            QCOMPARE(earlier.copies().size(), 1);
        }
        {
            EarlierSessions earlier(m_root);
            QCOMPARE(earlier.copies().size(), 1);
            earlier.discard(earlier.copies()[0].file);
        }
        QCOMPARE(entries(m_root), QStringList());
    }

    void brokenFilesAndHalfMadeFoldersAreNoCopies()
    {
        QDir().mkpath(m_root + "/123-456");
        QFile junk(m_root + "/123-456/1.copy");
        QVERIFY(junk.open(QIODevice::WriteOnly));
        junk.write("\x7f"
                   "ELF binary junk");
        junk.close();
        QDir().mkpath(m_root + "/.new-99-1");
        {
            EarlierSessions earlier(m_root);
            QVERIFY(earlier.copies().isEmpty());
        }
        QCOMPARE(entries(m_root), QStringList());
    }

    void aCopyThatCannotBeWrittenIsReported()
    {
        QDir().mkpath(QFileInfo(m_root).path());
        QFile blocker(m_root);
        QVERIFY(blocker.open(QIODevice::WriteOnly)); // a file where the folder should be
        blocker.close();
        SessionFolder session(m_root);
        QVERIFY(!session.write(1, sampleCopy("Source 1")));
        QVERIFY(!session.has(1));
        QFile::remove(m_root);
    }

    void withoutADialogEveryDocumentIsRecovered()
    {
        const RecoveryChoice choice = chooseRecovery(
            {RecoveryOffer{"Source 1", QString(), 3}, RecoveryOffer{"/a.c", "/a.c", 9}});
        QCOMPARE(choice.action, RecoveryChoice::Recover);
        QCOMPARE(choice.selected, (QVector<int>{0, 1}));
    }
};

TESSARO_CORE_TEST_MAIN(RecoveryStoreTest)
#include "tst_recoverystore.moc"

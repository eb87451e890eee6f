// Every file the program writes is replaced atomically: a write that fails (a full
// file system, a read-only folder, a file size limit) leaves the old file whole and
// no temporary file behind. Checked for the three kinds of writer: a document save
// (the shared text file writer), Add File(s) appending to the workspace file, and the
// settings file.
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"
#include "state/core/PlainIniFormat.h"
#include "support/ScratchMount.h"
#include "support/TestSupport.h"
#include "workspace/core/WorkspaceFile.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include <csignal>
#include <functional>
#include <sys/resource.h>

using namespace tessaro;
using namespace tessaro::test;

namespace {

const QByteArray kOldWorkspace = "GAME=/mod/game/g_main.c\r\nHEAD=/mod/game/q_shared.h\r\n\r\n";

// One way of replacing a file that already holds kOldWorkspace; true when it wrote.
using Writer = std::function<bool(const QString &path)>;

bool raisesAccessError(const std::function<void()> &write)
{
    try {
        write();
        return true;
    } catch (const RuntimeError &error) {
        if (error.number() != RuntimeError::PathFileAccessError)
            qWarning() << "unexpected error" << error.number();
        return false;
    }
}

bool saveDocument(const QString &path)
{
    return raisesAccessError(
        [&] { textfile::write(path, QString(QLatin1Char('x')).repeated(300000)); });
}

bool appendToWorkspace(const QString &path)
{
    return raisesAccessError([&] {
        workspacefile::AppendWorkspaceEntry(path, QStringLiteral("SOUR="),
                                            QStringLiteral("/mod/") +
                                                QString(QLatin1Char('a')).repeated(300000));
    });
}

bool writeSettings(const QString &path)
{
    QSettings settings(path, plainini::format());
    settings.setValue(QStringLiteral("Settings/params"),
                      QString(QLatin1Char('p')).repeated(300000));
    settings.sync();
    return settings.status() == QSettings::NoError;
}

void addWriters()
{
    QTest::addColumn<Writer>("writer");
    QTest::newRow("document save") << Writer(saveDocument);
    QTest::newRow("Add File(s)") << Writer(appendToWorkspace);
    QTest::newRow("settings") << Writer(writeSettings);
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
}

} // namespace

class FailingWritesTest : public QObject
{
    Q_OBJECT

    QString freshFolder(const QString &name)
    {
        const QString folder = QDir::home().filePath(name);
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
        return folder;
    }

private Q_SLOTS:
    void aWriteThatSucceedsReplacesTheFile_data() { addWriters(); }
    void aWriteThatSucceedsReplacesTheFile()
    {
        QFETCH(Writer, writer);
        const QString folder = freshFolder("ok");
        const QString path = folder + "/target";
        textfile::writeBytes(path, kOldWorkspace);
        QVERIFY(writer(path));
        QVERIFY(textfile::readBytes(path).size() >= 300000);
        QCOMPARE(filesIn(folder), QStringList{"target"});
    }

    void aReplacedFileKeepsItsPermissions_data() { addWriters(); }
    void aReplacedFileKeepsItsPermissions()
    {
        QFETCH(Writer, writer);
        const QString folder = freshFolder("mode");
        const QString path = folder + "/target";
        textfile::writeBytes(path, kOldWorkspace);
        const auto mode = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
        QVERIFY(QFile::setPermissions(path, mode));
        QVERIFY(writer(path));
        // Owner, group and other bits (the "user" bits repeat the owner's for us).
        const QFile::Permissions modeBits(0x7077);
        QCOMPARE(QFile(path).permissions() & modeBits, QFile::Permissions(mode));
    }

    void aFullFileSystemLeavesTheOldFileWhole_data() { addWriters(); }
    void aFullFileSystemLeavesTheOldFileWhole()
    {
        QFETCH(Writer, writer);
        const QString folder = freshFolder("full");
        ScratchMount mount(folder, 256);
        if (!mount.isMounted())
            QSKIP(qPrintable("no full file system to test with: " + mount.why()));
        const QString path = folder + "/target";
        textfile::writeBytes(path, kOldWorkspace);
        mount.fill();
        QVERIFY(!writer(path));
        QCOMPARE(textfile::readBytes(path), kOldWorkspace);
        QCOMPARE(filesIn(folder), (QStringList{"filler", "target"}));
    }

    void aReadOnlyFolderLeavesTheOldFileWhole_data() { addWriters(); }
    void aReadOnlyFolderLeavesTheOldFileWhole()
    {
        QFETCH(Writer, writer);
        const QString folder = freshFolder("readonly");
        const QString path = folder + "/target";
        std::unique_ptr<ScratchMount> mount;
        if (runsAsRoot()) {
            // Permission bits do not stop root: make the file system itself read-only.
            mount = std::make_unique<ScratchMount>(folder, 256);
            if (!mount->isMounted())
                QSKIP(qPrintable("root needs a read-only mount for this test: " + mount->why()));
            textfile::writeBytes(path, kOldWorkspace);
            QVERIFY(mount->makeReadOnly());
        } else {
            textfile::writeBytes(path, kOldWorkspace);
            QVERIFY(QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner));
        }
        QVERIFY(!writer(path));
        QCOMPARE(textfile::readBytes(path), kOldWorkspace);
        QCOMPARE(filesIn(folder), QStringList{"target"});
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void aWriteFailingPartWayLeavesTheOldFileWhole_data() { addWriters(); }
    void aWriteFailingPartWayLeavesTheOldFileWhole()
    {
        // The injected error: a file size limit makes the write fail after 64 KiB.
        QFETCH(Writer, writer);
        const QString folder = freshFolder("limit");
        const QString path = folder + "/target";
        textfile::writeBytes(path, kOldWorkspace);

        const auto previousHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit previous = {};
        QCOMPARE(::getrlimit(RLIMIT_FSIZE, &previous), 0);
        rlimit limited = previous;
        limited.rlim_cur = 65536;
        QCOMPARE(::setrlimit(RLIMIT_FSIZE, &limited), 0);
        const bool wrote = writer(path);
        ::setrlimit(RLIMIT_FSIZE, &previous);
        std::signal(SIGXFSZ, previousHandler);

        QVERIFY(!wrote);
        QCOMPARE(textfile::readBytes(path), kOldWorkspace);
        QCOMPARE(filesIn(folder), QStringList{"target"});
    }
};

TESSARO_CORE_TEST_MAIN(FailingWritesTest)
#include "tst_failingwrites.moc"

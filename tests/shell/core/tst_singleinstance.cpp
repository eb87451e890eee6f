#include "shell/core/HandOver.h"
#include "shell/core/InstanceLock.h"
#include "shell/core/InstanceServer.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

using namespace tessaro;
using namespace tessaro::handover;

namespace {
// A listening server in a private folder that records what it is asked to do.
struct RecordingServer
{
    explicit RecordingServer(bool visible) : server(dir.path() + "/Tessaro_APPLICATION")
    {
        server.setVisibility([visible] { return visible; });
        server.setHandlers(
            [this](const QByteArray &bytes) {
                received << bytes;
                tokens << qgetenv("XDG_ACTIVATION_TOKEN");
            },
            [this] {
                ++activations;
                tokens << qgetenv("XDG_ACTIVATION_TOKEN");
            });
    }
    QTemporaryDir dir;
    InstanceServer server;
    QByteArrayList received;
    // The activation token each handler found in the environment.
    QByteArrayList tokens;
    int activations = 0;
};
} // namespace

class SingleInstanceTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theNamesAreComposedFromTheProductName()
    {
        QCOMPARE(instanceLockName(), QString("Tessaro_APPLICATION_MUTEX"));
        QCOMPARE(instanceSocketName(), QString("Tessaro_APPLICATION"));
        const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
        QCOMPARE(instanceLockPath(), runtime + "/Tessaro_APPLICATION_MUTEX");
        QCOMPARE(instanceSocketPath(), runtime + "/Tessaro_APPLICATION");
    }
    void everyArgumentIsQuotedAndJoinedByOneBlank()
    {
        QCOMPARE(commandLineText({}), QString());
        QCOMPARE(commandLineText({"/home/u/mod/g_main.c"}), QString("\"/home/u/mod/g_main.c\""));
        QCOMPARE(commandLineText({"/a b/c.c", "x"}), QString("\"/a b/c.c\" \"x\""));
        QCOMPARE(commandLineText({""}), QString("\"\""));
    }
    void anEmptyCommandLineIsHandedOverAsOneZeroByte()
    {
        QCOMPARE(commandLineBytes(QString()), QByteArray(1, '\0'));
        QCOMPARE(commandLineBytes("\"/tmp/caf\u00e9.c\""),
                 QFile::encodeName("\"/tmp/caf\u00e9.c\""));
        QCOMPARE(commandLineFromBytes(QFile::encodeName("\"/tmp/caf\u00e9.c\"")),
                 QString("\"/tmp/caf\u00e9.c\""));
    }
    void aLaterCopyHandsOverWhenItHasArgumentsOrTheWindowIsHidden()
    {
        QVERIFY(shouldHandOver("\"a\"", true));
        QVERIFY(shouldHandOver("\"a\"", false));
        QVERIFY(shouldHandOver(QString(), false));
        QVERIFY(!shouldHandOver(QString(), true));
    }
    void theFirstAndLastCharacterAreAlwaysDropped()
    {
        QCOMPARE(*commandLinePath("\"/home/u/g_main.c\""), QString("/home/u/g_main.c"));
        QCOMPARE(*commandLinePath("c:\\a.c"), QString(":\\a."));
        QCOMPARE(*commandLinePath("   \"/x y/z.c\"  "), QString("/x y/z.c"));
        QCOMPARE(*commandLinePath("abc"), QString("b"));
        // Two arguments: only the outer quotes go.
        QCOMPARE(*commandLinePath("\"/a.c\" \"/b.c\""), QString("/a.c\" \"/b.c"));
    }
    void aOneByteZeroHandOverOrBlankTextOpensNothing()
    {
        QVERIFY(!commandLinePath(commandLineFromBytes(QByteArray(1, '\0'))));
        QVERIFY(!commandLinePath(QString()));
        QVERIFY(!commandLinePath("     "));
        QVERIFY(!commandLinePath("\"\""));
        QVERIFY(!commandLinePath("x"));
    }
    void requestsAreReadWhateverPiecesTheyArriveIn()
    {
        const QByteArray message = dataMessage("\"/tmp/a.c\"");
        RequestReader reader;
        for (int i = 0; i < message.size() - 1; ++i)
            QCOMPARE(reader.feed(message.mid(i, 1)), RequestReader::State::Incomplete);
        QCOMPARE(reader.feed(message.right(1)), RequestReader::State::HandOver);
        QCOMPARE(reader.payload(), QByteArray("\"/tmp/a.c\""));

        RequestReader zero;
        QCOMPARE(zero.feed(dataMessage(QByteArray(1, '\0'))), RequestReader::State::HandOver);
        QCOMPARE(zero.payload(), QByteArray(1, '\0'));

        RequestReader activate;
        QCOMPARE(activate.feed(activateMessage()), RequestReader::State::Activate);
    }
    void anActivationTokenMayComeFirst()
    {
        const QByteArray message = tokenMessage("token-1") + dataMessage("\"/tmp/a.c\"");
        RequestReader reader;
        for (int i = 0; i < message.size() - 1; ++i)
            QCOMPARE(reader.feed(message.mid(i, 1)), RequestReader::State::Incomplete);
        QCOMPARE(reader.feed(message.right(1)), RequestReader::State::HandOver);
        QCOMPARE(reader.token(), QByteArray("token-1"));
        QCOMPARE(reader.payload(), QByteArray("\"/tmp/a.c\""));

        RequestReader activate;
        QCOMPARE(activate.feed(tokenMessage("t") + activateMessage()),
                 RequestReader::State::Activate);
        QCOMPARE(activate.token(), QByteArray("t"));
        QVERIFY(tokenMessage(QByteArray()).isEmpty());

        RequestReader twice;
        QCOMPARE(twice.feed(tokenMessage("a") + tokenMessage("b") + activateMessage()),
                 RequestReader::State::Invalid);
        RequestReader empty;
        QCOMPARE(empty.feed(QByteArray("T\0\0\0\0A", 6)), RequestReader::State::Invalid);
        RequestReader long_;
        QCOMPARE(long_.feed(QByteArray("T\0\0\x10\x01", 5)), RequestReader::State::Invalid);
    }
    void theLaterCopysTokenIsTheWindowsWhileItComesToTheFront()
    {
        RecordingServer s(true);
        QVERIFY(s.server.listen());
        qunsetenv("XDG_ACTIVATION_TOKEN");
        QCOMPARE(contactRunningCopy(s.server.path(), "\"/tmp/a.c\"", 5000, "wayland-token"),
                 HandOverOutcome::HandedOver);
        QCOMPARE(contactRunningCopy(s.server.path(), QString(), 5000, "second"),
                 HandOverOutcome::Activated);
        QCOMPARE(contactRunningCopy(s.server.path(), QString(), 5000), HandOverOutcome::Activated);
        QCOMPARE(s.tokens, QByteArrayList({"wayland-token", "second", QByteArray()}));
        // No one else gets it afterwards.
        QVERIFY(qgetenv("XDG_ACTIVATION_TOKEN").isEmpty());
    }
    void malformedRequestsAreRefused()
    {
        RequestReader unknown;
        QCOMPARE(unknown.feed("Zzz"), RequestReader::State::Invalid);
        RequestReader negative;
        QCOMPARE(negative.feed(QByteArray("D\xff\xff\xff\xff", 5)), RequestReader::State::Invalid);
        RequestReader huge;
        QCOMPARE(huge.feed(QByteArray("D\x7f\x00\x00\x00", 5)), RequestReader::State::Invalid);
        RequestReader trailing;
        QCOMPARE(trailing.feed(dataMessage("ab") + "x"), RequestReader::State::Invalid);
        RequestReader activateAndMore;
        QCOMPARE(activateAndMore.feed("AA"), RequestReader::State::Invalid);
    }

    void onlyOneLockHolderAtATime()
    {
        QTemporaryDir dir;
        const QString path = dir.path() + "/Tessaro_APPLICATION_MUTEX";
        InstanceLock first(path);
        InstanceLock second(path);
        QVERIFY(!InstanceLock::isHeld(path));
        QVERIFY(first.acquire());
        QVERIFY(first.held());
        QVERIFY(InstanceLock::isHeld(path));
        QVERIFY(!second.acquire());
        QVERIFY(!second.held());
        first.release();
        QVERIFY(!InstanceLock::isHeld(path));
        QVERIFY(second.acquire());
        QCOMPARE(QFile(path).exists(), true);
    }
    void aLockThatCannotBeCreatedCountsAsTheFirstCopy()
    {
        QTemporaryDir dir;
        QFile blocker(dir.path() + "/file");
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        InstanceLock lock(dir.path() + "/file/Tessaro_APPLICATION_MUTEX");
        QVERIFY(lock.acquire());
        QVERIFY(!lock.held());
    }

    void noRunningCopyMeansNothingHappens()
    {
        QTemporaryDir dir;
        QCOMPARE(contactRunningCopy(dir.path() + "/Tessaro_APPLICATION", "\"/a.c\"", 5000),
                 HandOverOutcome::NoRunningCopy);
        // A socket left behind by a copy that died.
        {
            QLocalServer dead;
            QVERIFY(dead.listen(dir.path() + "/stale"));
            dead.setSocketOptions(QLocalServer::UserAccessOption);
        }
        QCOMPARE(contactRunningCopy(dir.path() + "/stale", "\"/a.c\"", 5000),
                 HandOverOutcome::NoRunningCopy);
    }
    void aServerThatDoesNotListenYetIsNotFound()
    {
        QTemporaryDir dir;
        InstanceServer server(dir.path() + "/Tessaro_APPLICATION");
        int calls = 0;
        server.setHandlers([&](const QByteArray &) { ++calls; }, [&] { ++calls; });
        QCOMPARE(contactRunningCopy(server.path(), "\"/a.c\"", 5000),
                 HandOverOutcome::NoRunningCopy);
        QCOMPARE(calls, 0);
    }
    void aCommandLineIsHandedOverAndAnsweredAfterItWasHandled()
    {
        RecordingServer s(true);
        InstanceServer &server = s.server;
        QVERIFY(server.listen());
        QCOMPARE(contactRunningCopy(server.path(), "\"/tmp/g main.c\"", 5000),
                 HandOverOutcome::HandedOver);
        QCOMPARE(s.received, QByteArrayList{"\"/tmp/g main.c\""});
        QCOMPARE(s.activations, 0);
    }
    void noArgumentsAndAVisibleWindowOnlyActivate()
    {
        RecordingServer s(true);
        InstanceServer &server = s.server;
        QVERIFY(server.listen());
        QCOMPARE(contactRunningCopy(server.path(), QString(), 5000), HandOverOutcome::Activated);
        QVERIFY(s.received.isEmpty());
        QCOMPARE(s.activations, 1);
    }
    void noArgumentsAndAHiddenWindowSendOneZeroByte()
    {
        RecordingServer s(false);
        InstanceServer &server = s.server;
        QVERIFY(server.listen());
        QCOMPARE(contactRunningCopy(server.path(), QString(), 5000), HandOverOutcome::HandedOver);
        QCOMPARE(s.received, QByteArrayList{QByteArray(1, '\0')});
        QCOMPARE(s.activations, 0);
    }
    void aSocketLeftByADeadCopyIsReplacedWhenListening()
    {
        QTemporaryDir dir;
        const QString path = dir.path() + "/Tessaro_APPLICATION";
        {
            QLocalServer dead;
            dead.setSocketOptions(QLocalServer::UserAccessOption);
            QVERIFY(dead.listen(path));
        }
        QFile leftover(path);
        if (!leftover.exists()) { // Qt removed it on close: leave a plain file instead
            QVERIFY(leftover.open(QIODevice::WriteOnly));
            leftover.close();
        }
        InstanceServer server(path);
        QVERIFY(server.listen());
        server.setHandlers([](const QByteArray &) {}, [] {});
        QCOMPARE(contactRunningCopy(path, QString(), 5000), HandOverOutcome::HandedOver);
    }
    void aClosedServerNoLongerAnswers()
    {
        QTemporaryDir dir;
        InstanceServer server(dir.path() + "/Tessaro_APPLICATION");
        QVERIFY(server.listen());
        server.close();
        QVERIFY(!server.isListening());
        QCOMPARE(contactRunningCopy(server.path(), "\"/a.c\"", 5000),
                 HandOverOutcome::NoRunningCopy);
    }
    void theSameUserIsRecognisedOnTheOtherEnd()
    {
        QTemporaryDir dir;
        QLocalServer server;
        QVERIFY(server.listen(dir.path() + "/peer"));
        QLocalSocket client;
        client.connectToServer(server.fullServerName());
        QVERIFY(client.waitForConnected(2000));
        QVERIFY(server.waitForNewConnection(2000));
        QLocalSocket *peer = server.nextPendingConnection();
        QVERIFY(peerIsSameUser(peer->socketDescriptor()));
        QVERIFY(!peerIsSameUser(-1));
    }
};

TESSARO_CORE_TEST_MAIN(SingleInstanceTest)
#include "tst_singleinstance.moc"

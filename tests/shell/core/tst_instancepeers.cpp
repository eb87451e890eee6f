// Runs the real program and talks to its single-instance socket the way no later copy
// would: peers that go away while a message box is up, say nothing, send garbage, send
// 100 MB, or connect a thousand times. The owner must never crash, must drop what is
// no request, and must still take a real later copy's hand-over afterwards.
#include "shell/core/HandOver.h"
#include "support/LocalPeer.h"
#include "support/ProgramAccount.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QtEndian>

#include <memory>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

using namespace tessaro;
using test::LocalPeer;
using test::ProgramAccount;

namespace {

const QString kSampleMain = QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod/game/g_main.c");
const QString kSampleMath = QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod/game/q_math.c");
constexpr qint64 kHundredMegabytes = 100LL * 1024 * 1024;

// A first copy, loaded and listening, on an account of its own.
struct RunningOwner
{
    explicit RunningOwner(const QProcessEnvironment &extra = {})
    {
        QProcessEnvironment env = account.environment();
        for (const QString &name : extra.keys())
            env.insert(name, extra.value(name));
        process = account.start({}, test::programPath(), env);
    }
    bool loaded() const { return account.waitForEvent("loaded"); }
    bool running() const { return process->state() == QProcess::Running; }
    // A real later copy hands a file over; true when the owner opened it.
    bool takesAHandOver(const QString &path) const
    {
        const int before = int(account.events().count("open " + path));
        auto later = account.startWithoutDisplay({path});
        return test::finishesQuietly(*later) &&
               account.events().count("open " + path) == before + 1;
    }
    qint64 openDescriptors() const
    {
        return QDir(QStringLiteral("/proc/%1/fd").arg(process->processId()))
            .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
            .size();
    }
    qint64 residentKilobytes() const
    {
        QFile status(QStringLiteral("/proc/%1/status").arg(process->processId()));
        if (!status.open(QIODevice::ReadOnly))
            return -1;
        for (const QByteArray &line : status.readAll().split('\n'))
            if (line.startsWith("VmRSS:"))
                return line.mid(6).trimmed().split(' ').first().toLongLong();
        return -1;
    }

    ProgramAccount account;
    std::unique_ptr<QProcess> process;
};

// A peer that has been greeted by the owner.
std::unique_ptr<LocalPeer> greetedPeer(const RunningOwner &owner)
{
    auto peer = std::make_unique<LocalPeer>(owner.account.socketPath());
    if (!peer->isConnected() || peer->readByte(10000) != handover::kVisible)
        return nullptr;
    return peer;
}

QByteArray lengthHeader(qint32 length)
{
    QByteArray header = handover::dataMessage(QByteArray());
    qToBigEndian(length, header.data() + 1);
    return header;
}

} // namespace

class InstancePeersTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aLaterCopyThatGivesUpWhileAMessageBoxIsUpDoesNotCrashTheOwner()
    {
        // The box stays up longer than the later copy waits for its answer.
        QProcessEnvironment slowBox;
        slowBox.insert("TESSARO_HEADLESS_MSGBOX_WAIT_MS", "6500");
        RunningOwner owner(slowBox);
        QVERIFY(owner.loaded());
        const QString elsewhere = owner.account.path("elsewhere");
        QDir().mkpath(elsewhere);
        auto later = owner.account.startWithoutDisplay({"nosuch.c"}, elsewhere);
        // While the box is up, other peers come and go: one says nothing, one talks
        // nonsense (dropped at once, from inside the box's event loop).
        QVERIFY(owner.account.waitForEvent("open " + elsewhere + "/nosuch.c"));
        auto silent = greetedPeer(owner);
        auto garbage = greetedPeer(owner);
        QVERIFY(silent && garbage);
        garbage->send("Zzz", 5000);
        QVERIFY(garbage->waitForClose(4000) >= 0);
        QVERIFY(test::finishesQuietly(*later));
        QVERIFY(owner.account.events().contains("later copy: no answer"));
        // OK is pressed after the later copy has gone; the owner answers nobody.
        QVERIFY(owner.account.waitForEvent("message box answered"));
        QVERIFY(silent->waitForClose(10000) >= 0);
        QVERIFY(owner.takesAHandOver(kSampleMain));
        QVERIFY(owner.running());
        QVERIFY(test::stop(*owner.process));
        const QByteArray errors = owner.process->readAllStandardError();
        QVERIFY2(errors.contains("File not found"), errors.constData());
        QVERIFY2(errors.contains(QFile::encodeName(elsewhere + "/nosuch.c")), errors.constData());
    }

    void aPeerMayGoAwayAtAnyStep()
    {
        RunningOwner owner;
        QVERIFY(owner.loaded());
        { // before the greeting
            LocalPeer peer(owner.account.socketPath());
            QVERIFY(peer.isConnected());
        }
        { // after the greeting
            QVERIFY(greetedPeer(owner));
        }
        { // in the middle of the length
            auto peer = greetedPeer(owner);
            QVERIFY(peer);
            QCOMPARE(peer->send(lengthHeader(40).left(3), 5000), 3);
        }
        { // in the middle of the path
            auto peer = greetedPeer(owner);
            QVERIFY(peer);
            const QByteArray request = handover::dataMessage("\"" + QFile::encodeName(kSampleMath));
            QCOMPARE(peer->send(request.left(request.size() - 4), 5000), request.size() - 4);
        }
        { // right after a whole request, without waiting for the answer
            auto peer = greetedPeer(owner);
            QVERIFY(peer);
            const QByteArray request =
                handover::dataMessage("\"" + QFile::encodeName(kSampleMath) + "\"");
            QCOMPARE(peer->send(request, 5000), request.size());
        }
        { // right after asking for the window
            auto peer = greetedPeer(owner);
            QVERIFY(peer);
            QCOMPARE(peer->send(handover::activateMessage(), 5000), 1);
        }
        QVERIFY(owner.account.waitForEvent("open " + kSampleMath));
        QVERIFY(owner.takesAHandOver(kSampleMain));
        QVERIFY(owner.running());
        QVERIFY(test::stop(*owner.process));
        // The half-sent path was never opened.
        QCOMPARE(int(owner.account.events().filter("open ").size()), 2);
    }

    void aPeerThatSaysNothingIsDroppedAfterTheTimeOut()
    {
        RunningOwner owner;
        QVERIFY(owner.loaded());
        QElapsedTimer sinceConnect;
        sinceConnect.start();
        auto silent = greetedPeer(owner);
        auto halfway = greetedPeer(owner);
        QVERIFY(silent && halfway);
        QCOMPARE(halfway->send(lengthHeader(100), 5000), 5);
        QVERIFY(halfway->send("\"/tmp/", 5000) == 6);
        const qint64 silentClosed = silent->waitForClose(20000);
        QVERIFY(silentClosed >= 0);
        QVERIFY2(sinceConnect.elapsed() >= handover::kTimeoutMs - 50,
                 qPrintable(QString::number(sinceConnect.elapsed())));
        QVERIFY(halfway->waitForClose(5000) >= 0);
        QVERIFY(owner.takesAHandOver(kSampleMain));
        QVERIFY(test::stop(*owner.process));
        QCOMPARE(int(owner.account.events().filter("open ").size()), 1);
    }

    void garbageIsDroppedAtOnce_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("unknown request") << QByteArray("Zzz");
        QTest::newRow("a text line") << QByteArray("GET / HTTP/1.0\r\n\r\n");
        QTest::newRow("negative length") << QByteArray("D\xff\xff\xff\xff", 5);
        QTest::newRow("length beyond the limit") << lengthHeader(handover::kMaxBytes + 1);
        QTest::newRow("more than the length said") << handover::dataMessage("\"/a.c\"") + "x";
        QTest::newRow("activation and more") << QByteArray("AA");
        QTest::newRow("zero bytes") << QByteArray(64, '\0');
        QByteArray random(4096, '\0');
        QRandomGenerator generator(20240612);
        for (char &c : random)
            c = char(generator.bounded(256));
        random[0] = 'Q'; // no request begins with it
        QTest::newRow("random bytes") << random;
    }
    void garbageIsDroppedAtOnce()
    {
        QFETCH(QByteArray, bytes);
        RunningOwner owner;
        QVERIFY(owner.loaded());
        const int activations = int(owner.account.events().count("activated"));
        auto peer = greetedPeer(owner);
        QVERIFY(peer);
        peer->send(bytes, 5000);
        // Closed well before a silent peer would be.
        const qint64 closedAfter = peer->waitForClose(handover::kTimeoutMs - 1000);
        QVERIFY2(closedAfter >= 0, "the owner kept the connection");
        QCOMPARE(int(owner.account.events().count("activated")), activations);
        QVERIFY(owner.takesAHandOver(kSampleMain));
        QVERIFY(test::stop(*owner.process));
        QCOMPARE(int(owner.account.events().filter("open ").size()), 1);
    }

    void aHundredMegabytesAreCutOff_data()
    {
        QTest::addColumn<QByteArray>("header");
        QTest::addColumn<QByteArray>("pattern");
        QTest::newRow("a length of 100 MB")
            << lengthHeader(qint32(kHundredMegabytes)) << QByteArray("a");
        QTest::newRow("the longest length, then more")
            << lengthHeader(handover::kMaxBytes) << QByteArray("\"/tmp/x.c\" ");
        QTest::newRow("no request at all") << QByteArray() << QByteArray("garbage ");
        QTest::newRow("activation, then more") << handover::activateMessage() << QByteArray("A");
    }
    void aHundredMegabytesAreCutOff()
    {
        QFETCH(QByteArray, header);
        QFETCH(QByteArray, pattern);
        RunningOwner owner;
        QVERIFY(owner.loaded());
        const qint64 memoryBefore = owner.residentKilobytes();
        auto peer = greetedPeer(owner);
        QVERIFY(peer);
        QCOMPARE(peer->send(header, 5000), header.size());
        const qint64 sent = peer->sendRepeated(pattern, kHundredMegabytes, 60000);
        // The owner stopped reading long before the end and closed the connection.
        QVERIFY2(sent < kHundredMegabytes, qPrintable(QString::number(sent)));
        QVERIFY(peer->waitForClose(10000) >= 0);
        QVERIFY(owner.running());
        QVERIFY2(owner.residentKilobytes() < memoryBefore + 32 * 1024,
                 qPrintable(QStringLiteral("%1 kB, was %2 kB")
                                .arg(owner.residentKilobytes())
                                .arg(memoryBefore)));
        QVERIFY(owner.takesAHandOver(kSampleMain));
        QVERIFY(test::stop(*owner.process));
        // (A flood that happens to end a request exactly at its length is a hand-over of
        // a name that does not exist: harmless, and not what is checked here.)
        QCOMPARE(int(owner.account.events().count("open " + kSampleMain)), 1);
    }

    void aThousandConnectionsNeitherCrashTheOwnerNorLockOutALaterCopy()
    {
        constexpr int kConnections = 1000;
        rlimit limit{};
        QCOMPARE(::getrlimit(RLIMIT_NOFILE, &limit), 0);
        if (limit.rlim_cur < kConnections + 200) {
            limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, kConnections + 200);
            ::setrlimit(RLIMIT_NOFILE, &limit);
            ::getrlimit(RLIMIT_NOFILE, &limit);
        }
        if (limit.rlim_cur < kConnections + 100)
            QSKIP("this account may not hold a thousand open connections");

        RunningOwner owner;
        QVERIFY(owner.loaded());
        std::vector<int> connections;
        QElapsedTimer timer;
        timer.start();
        while (int(connections.size()) < kConnections && timer.elapsed() < 60000) {
            const int fd = test::connectWithoutWaiting(owner.account.socketPath());
            if (fd >= 0)
                connections.push_back(fd);
            else
                ::usleep(1000); // the queue is full: the owner takes them one by one
        }
        QCOMPARE(int(connections.size()), kConnections);
        // All of them are still open on this side; the owner holds only a few.
        QVERIFY(owner.takesAHandOver(kSampleMain));
        QVERIFY2(owner.openDescriptors() < 200,
                 qPrintable(QString::number(owner.openDescriptors())));
        for (int fd : connections)
            ::close(fd);
        QVERIFY(owner.takesAHandOver(kSampleMath));
        QVERIFY(owner.running());
        QVERIFY(test::stop(*owner.process));
    }
};

TESSARO_CORE_TEST_MAIN(InstancePeersTest)
#include "tst_instancepeers.moc"

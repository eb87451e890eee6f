// Runs the real program under a Wayland compositor (weston's headless back end): it
// starts, opens the file of its command line, takes a later copy's hand-over and ends
// the normal way. Skips, saying why, where weston or Qt's Wayland plugin is missing.

#include "support/ProgramAccount.h"
#include "support/TestSupport.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QLibraryInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>

using namespace tessaro;

namespace {

const QString kSampleMain = QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod/game/g_main.c");
const QString kSampleMath = QStringLiteral(TESSARO_SOURCE_DIR "/examples/samplemod/game/q_math.c");
const QString kSocket = QStringLiteral("tessaro-test-wayland");

// Why the test cannot run here, or "" when it can.
QString missing()
{
    if (QStandardPaths::findExecutable(QStringLiteral("weston")).isEmpty())
        return QStringLiteral("weston is not installed (Debian: weston)");
    const QString plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath);
    if (!QFile::exists(plugins + QStringLiteral("/platforms/libqwayland-generic.so")))
        return QStringLiteral("Qt's Wayland plugin is not installed (Debian: qt6-wayland)");
    return QString();
}

} // namespace

class WaylandProcessTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        const QString why = missing();
        if (!why.isEmpty())
            QSKIP(qPrintable(why));
    }

    void startsOpensTakesAHandOverAndEnds()
    {
        test::ProgramAccount account;
        QProcessEnvironment env = account.environment();
        QProcess compositor;
        compositor.setProcessEnvironment(env);
        compositor.start(QStringLiteral("weston"),
                         {QStringLiteral("--backend=headless-backend.so"),
                          QStringLiteral("--socket=") + kSocket, QStringLiteral("--idle-time=0")});
        QVERIFY(compositor.waitForStarted());
        const QString socket = account.path(QStringLiteral("runtime/") + kSocket);
        QDeadlineTimer up(10000);
        while (!QFile::exists(socket) && !up.hasExpired())
            QThread::msleep(20);
        QVERIFY2(QFile::exists(socket), compositor.readAllStandardError().constData());

        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
        env.insert(QStringLiteral("WAYLAND_DISPLAY"), kSocket);
        env.remove(QStringLiteral("DISPLAY"));
        auto first = account.start({kSampleMain}, test::programPath(), env);
        QVERIFY2(account.waitForEvent(QStringLiteral("loaded")),
                 first->readAllStandardError().constData());
        QVERIFY(account.events().contains(QStringLiteral("open ") + kSampleMain));

        // The later copy hands its activation token over with the file (weston offers
        // no activation, so the window's coming to the front is not seen here).
        QProcessEnvironment later = env;
        later.insert(QStringLiteral("XDG_ACTIVATION_TOKEN"), QStringLiteral("tessaro-test-token"));
        auto second = account.start({kSampleMath}, test::programPath(), later);
        QVERIFY(test::finishesQuietly(*second));
        QVERIFY(account.events().contains(QStringLiteral("later copy: handed over")));
        QVERIFY(account.waitForEvent(QStringLiteral("open ") + kSampleMath));
        QCOMPARE(first->state(), QProcess::Running);

        QVERIFY(test::stop(*first));
        QVERIFY(account.events().contains(QStringLiteral("unloaded")));
        compositor.terminate();
        compositor.waitForFinished(5000);
    }
};

TESSARO_TEST_MAIN(WaylandProcessTest)
#include "tst_waylandprocess.moc"

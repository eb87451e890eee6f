#include "app/ui/Startup.h"

#include "app/ui/MainWindow.h"
#include "platform/core/AppInfo.h"
#include "platform/core/EmergencySave.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/EventLog.h"
#include "platform/core/Paths.h"
#include "platform/core/TerminationSignal.h"
#include "platform/ui/WidgetDialogs.h"
#include "shell/core/HandOver.h"
#include "shell/core/InstanceLock.h"
#include "shell/core/InstanceServer.h"
#include "shell/ui/ApplicationIcon.h"
#include "shell/ui/frmSplash.h"
#include "workspace/ui/DocumentRecovery.h"
#include "workspace/ui/frmRecover.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMdiArea>
#include <QPointer>
#include <QTimer>

#include <memory>

namespace tessaro {

namespace {

// Records the first time the main window's document area is painted (for the
// start-up benchmark; only while the event log is on).
class FirstPaintProbe : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            logEvent(QStringLiteral("painted"));
            watched->removeEventFilter(this);
            deleteLater();
        }
        return false;
    }
};

QString outcomeText(HandOverOutcome outcome)
{
    switch (outcome) {
    case HandOverOutcome::NoRunningCopy: return QStringLiteral("no running copy");
    case HandOverOutcome::HandedOver: return QStringLiteral("handed over");
    case HandOverOutcome::Activated: return QStringLiteral("activated");
    case HandOverOutcome::NoAnswer: return QStringLiteral("no answer");
    }
    return QString();
}

int runLaterCopy(int argc, char **argv, const QString &commandLine)
{
    // No window system is touched: a core application is enough for the socket.
    QCoreApplication application(argc, argv);
    const HandOverOutcome outcome = contactRunningCopy(
        instanceSocketPath(), commandLine, handover::kTimeoutMs, qgetenv("XDG_ACTIVATION_TOKEN"));
    logEvent(QStringLiteral("later copy: ") + outcomeText(outcome));
    return 0;
}

} // namespace

int Main(int argc, char **argv)
{
    // A relative path names a file in this process's working folder, which the running
    // copy does not share: every argument goes over as an absolute path (as a file
    // association passes it).
    const QString workingFolder = QDir::currentPath();
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << paths::absoluteFrom(workingFolder, QFile::decodeName(argv[i]));
    const QString commandLine = handover::commandLineText(arguments);

    InstanceLock lock;
    if (!lock.acquire())
        return runLaterCopy(argc, argv, commandLine);

    QApplication application(argc, argv);
    QApplication::setApplicationName(appTitle());
    QApplication::setOrganizationName(appTitle());
    installApplicationIcon();
    // The splash closes before the main window is shown; the program ends when the
    // main window's Unload says so.
    QApplication::setQuitOnLastWindowClosed(false);
    installWidgetDialogs();
    installRecoveryDialog();

    std::unique_ptr<MainWindow> mainWindow;
    bool ended = false;
    QPointer<frmSplash> splash;
    splash = new frmSplash([&] {
        logEvent(QStringLiteral("splash timer"));
        mainWindow = std::make_unique<MainWindow>();
        DocumentRecovery *recovery = DocumentRecovery::install(*mainWindow);
        if (eventLogEnabled())
            mainWindow->mdiArea()->viewport()->installEventFilter(
                new FirstPaintProbe(mainWindow.get()));
        frmMain::StartupLinks links;
        links.lock = &lock;
        links.socketPath = instanceSocketPath();
        links.commandLine = commandLine;
        links.unloadSplash = [&] {
            if (splash)
                splash->close();
        };
        links.ended = [&ended] {
            ended = true;
            QCoreApplication::quit();
        };
        untrapped([&] { mainWindow->Load(links); });
        // A request to end while Load opened the command line's file has closed the
        // window already: nothing is shown or offered any more.
        if (ended)
            return;
        mainWindow->show();
        // Work an earlier session left unsaved is offered once the window is up.
        QTimer::singleShot(0, recovery, [recovery] { recovery->offerEarlierWork(); });
    });
    splash->show();
    logEvent(QStringLiteral("splash shown"));

    // A request to end (SIGTERM, SIGINT) keeps the unsaved documents' recovery copies,
    // then closes the main window the normal way, so the settings are written; before
    // the main window exists the program just ends. A hang-up keeps the copies and
    // ends the program as a hang-up does.
    TerminationSignal termination;
    QObject::connect(&termination, &TerminationSignal::hangUp, &application, [] {
        runEmergencySave();
        TerminationSignal::endByHangUp();
    });
    QObject::connect(&termination, &TerminationSignal::requested, &application, [&] {
        runEmergencySave();
        if (mainWindow && mainWindow->isMarked())
            mainWindow->close();
        else
            QCoreApplication::quit();
    });

    const int status = application.exec();
    mainWindow.reset();
    delete splash;
    return status;
}

} // namespace tessaro

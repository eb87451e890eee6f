#include "platform/core/MsgBox.h"
#include "shell/ui/frmAbout.h"
#include "shell/ui/frmSplash.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

using namespace tessaro;

namespace {
QString labelText(const QWidget &w, const char *name)
{
    const auto *label = w.findChild<QLabel *>(QLatin1String(name));
    return label ? label->text() : QStringLiteral("<no %1>").arg(QLatin1String(name));
}

void setMachineText(RegistryStore &store, const QString &key, const QString &name,
                    const QString &value)
{
    QVERIFY(store.createKey(reg::LocalMachine, key));
    QVERIFY(store.setValue(reg::LocalMachine, key, name,
                           RegistryValue{reg::Sz, value.toLocal8Bit() + '\0'}));
}
} // namespace

class SplashAboutTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theSplashShowsTheVersionWithItsRevision()
    {
        frmSplash splash(nullptr);
        QCOMPARE(labelText(splash, "lblVersion"), QString("Version 1.0.0"));
        QCOMPARE(frmSplash::versionText(), QString("Version 1.0.0"));
        QCOMPARE(labelText(splash, "lblPlatform"), QString("Win 98/NT/2000"));
        QCOMPARE(labelText(splash, "Label1"), QString());
        QCOMPARE(labelText(splash, "Label2"), QString());
        QCOMPARE(splash.timer()->interval(), 1000);
        QVERIFY(splash.timer()->isActive());
    }
    void theSplashShowsTheMainWindowAfterOneSecond()
    {
        QElapsedTimer clock;
        qint64 shownAfter = -1;
        clock.start();
        frmSplash splash([&] { shownAfter = clock.elapsed(); });
        splash.show();
        QTRY_VERIFY_WITH_TIMEOUT(shownAfter >= 0, 5000);
        QVERIFY2(shownAfter >= 1000, qPrintable(QString::number(shownAfter)));
    }
    void theSplashShowsTheMainWindowOnceOnlyHoweverLongItStays()
    {
        int shown = 0;
        frmSplash splash([&] { ++shown; });
        splash.show();
        QTest::qWait(3300);
        QCOMPARE(shown, 1);
        QVERIFY(splash.timer()->isActive());
    }

    void theAboutBoxShowsTitleAndVersion()
    {
        frmAbout about;
        QCOMPARE(about.windowTitle(), QString("About Tessaro"));
        QCOMPARE(about.objectName(), QString("frmAbout"));
        QCOMPARE(labelText(about, "lblTitle"), QString("Tessaro"));
        QCOMPARE(labelText(about, "lblVersion"), QString("Version 1.0.0"));
        QCOMPARE(labelText(about, "lblDescription"),
                 QString("An Intergrated Development Environment designed especially for "
                         "game/software coding"));
        QCOMPARE(about.findChild<QPushButton *>("cmdSysInfo")->text(), QString("&System Info..."));
        QVERIFY(about.findChild<QPushButton *>("cmdOK"));
        QVERIFY(about.findChild<QLabel *>("picIcon"));
        QCOMPARE(about.findChildren<QFrame *>("Line1").size(), qsizetype(2));
    }
    void okUnloadsTheAboutBox()
    {
        frmAbout about;
        QTimer::singleShot(0, &about, [&] { about.findChild<QPushButton *>("cmdOK")->click(); });
        QCOMPARE(about.exec(), int(QDialog::Accepted));
        QVERIFY(!about.isVisible());
    }
    void withoutEitherValueSystemInfoIsUnavailable()
    {
        QTemporaryDir dir;
        frmAbout about(nullptr, RegistryStore(dir.path() + "/u", dir.path() + "/m"));
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        about.findChild<QPushButton *>("cmdSysInfo")->click();
        QCOMPARE(box.calls.size(), 1);
        QCOMPARE(box.calls[0].prompt, QString("System Information Is Unavailable At This Time"));
        QCOMPARE(box.calls[0].style, int(mb::OKOnly));
        QVERIFY(shell.programs.isEmpty());
    }
    void systemInfoStartsTheToolNamedByItsPath()
    {
        QTemporaryDir dir;
        RegistryStore store(dir.path() + "/u", dir.path() + "/m");
        setMachineText(store, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH",
                       "/usr/bin/hardinfo");
        frmAbout about(nullptr, store);
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        about.findChild<QPushButton *>("cmdSysInfo")->click();
        QCOMPARE(shell.programs, QStringList{"/usr/bin/hardinfo"});
        QVERIFY(box.calls.isEmpty());
    }
    void systemInfoFallsBackToTheToolsLocation()
    {
        QTemporaryDir dir;
        RegistryStore store(dir.path() + "/u", dir.path() + "/m");
        setMachineText(store, "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO", dir.path());
        frmAbout about(nullptr, store);
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        about.findChild<QPushButton *>("cmdSysInfo")->click();
        QCOMPARE(box.calls.size(), 1); // the folder has no MSINFO32.EXE yet
        QFile tool(dir.path() + "/MSINFO32.EXE");
        QVERIFY(tool.open(QIODevice::WriteOnly));
        tool.close();
        about.findChild<QPushButton *>("cmdSysInfo")->click();
        QCOMPARE(shell.programs, QStringList{dir.path() + "/MSINFO32.EXE"});
    }
    void aToolThatCannotStartIsIgnored()
    {
        QTemporaryDir dir;
        RegistryStore store(dir.path() + "/u", dir.path() + "/m");
        setMachineText(store, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", "/missing/tool");
        frmAbout about(nullptr, store);
        test::RecordingMessageBox box;
        test::RecordingShell shell;
        shell.failing << "/missing/tool";
        test::ProgramEndCatcher catcher;
        about.findChild<QPushButton *>("cmdSysInfo")->click(); // raises 53 inside: ignored
        QVERIFY(shell.programs.isEmpty());
        QVERIFY(box.calls.isEmpty());
    }
};

TESSARO_TEST_MAIN(SplashAboutTest)
#include "tst_splashabout.moc"

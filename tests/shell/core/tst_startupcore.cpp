#include "shell/core/SystemInfo.h"
#include "shell/core/WindowPlacement.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

using namespace tessaro;

namespace {
void setText(RegistryStore &store, const QString &key, const QString &name, const QByteArray &text)
{
    QVERIFY(store.createKey(reg::LocalMachine, key));
    QVERIFY(store.setValue(reg::LocalMachine, key, name, RegistryValue{reg::Sz, text + '\0'}));
}
} // namespace

class StartupCoreTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theDefaultRectangleIsAssignedInPixels()
    {
        WindowPlacement placement(15.0);
        QCOMPARE(placement.assign(WindowRect()), QRect(67, 67, 433, 433));
    }
    void anUnmovedWindowReadsBackTheTwipsItWasGiven()
    {
        WindowPlacement placement(15.0);
        const QRect pixels = placement.assign(WindowRect{1000, 1001, 6500, 6499});
        const WindowRect back = placement.current(pixels);
        QCOMPARE(back.left, 1000.f);
        QCOMPARE(back.top, 1001.f);
        QCOMPARE(back.width, 6500.f);
        QCOMPARE(back.height, 6499.f);
    }
    void aMovedOrResizedEdgeReadsInTwipsOfItsPixels()
    {
        WindowPlacement placement(15.0);
        placement.assign(WindowRect{1000, 1000, 6500, 6500});
        const WindowRect back = placement.current(QRect(10, 67, 800, 433));
        QCOMPARE(back.left, 150.f);
        QCOMPARE(back.top, 1000.f);
        QCOMPARE(back.width, 12000.f);
        QCOMPARE(back.height, 6500.f);
        WindowPlacement highDpi(1440.0 / 192.0);
        QCOMPARE(highDpi.current(QRect(0, 0, 192, 96)).width, 1440.f);
    }

    void theSystemInformationToolComesFromItsPathValue()
    {
        QTemporaryDir dir;
        RegistryStore store(dir.path() + "/u", dir.path() + "/m");
        QVERIFY(!systemInfoToolPath(store));
        setText(store, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH",
                "/usr/bin/sysinfo-tool");
        QCOMPARE(*systemInfoToolPath(store), QString("/usr/bin/sysinfo-tool"));
    }
    void elseFromTheToolsLocationWhenTheProgramIsThere()
    {
        QTemporaryDir dir;
        RegistryStore store(dir.path() + "/u", dir.path() + "/m");
        setText(store, "SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO",
                dir.path().toLocal8Bit());
        QVERIFY(!systemInfoToolPath(store));
        QFile tool(dir.path() + "/MSINFO32.EXE");
        QVERIFY(tool.open(QIODevice::WriteOnly));
        tool.close();
        QCOMPARE(*systemInfoToolPath(store), dir.path() + "/MSINFO32.EXE");
    }
    void numbersReadAsHexadecimalText()
    {
        QTemporaryDir dir;
        RegistryStore store(dir.path() + "/u", dir.path() + "/m");
        QVERIFY(store.createKey(reg::LocalMachine, "K"));
        QByteArray four(4, '\0');
        qToLittleEndian(quint32(0xBEEF), four.data());
        QVERIFY(store.setValue(reg::LocalMachine, "K", "N", RegistryValue{reg::DWord, four}));
        QCOMPARE(*localMachineValue(store, "k", "n"), QString("&hBEEF"));
        QVERIFY(store.setValue(reg::LocalMachine, "K", "S",
                               RegistryValue{reg::Sz, QByteArray("ab\0", 3)}));
        QCOMPARE(*localMachineValue(store, "K", "S"), QString("ab"));
        QVERIFY(!localMachineValue(store, "K", "missing"));
        QCOMPARE(systemInfoUnavailableText(),
                 QString("System Information Is Unavailable At This Time"));
    }
};

TESSARO_CORE_TEST_MAIN(StartupCoreTest)
#include "tst_startupcore.moc"

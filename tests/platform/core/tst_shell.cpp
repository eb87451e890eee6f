// The real program starts: programs by path or by a bare name found on PATH, and build
// scripts in a terminal named by TESSARO_TERMINAL. Stand-in programs record how they
// were started.
#include "platform/core/RuntimeError.h"
#include "platform/core/Shell.h"
#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

constexpr QFileDevice::Permissions kExecutable =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

// Sets an environment variable for the life of the object.
class ScopedVariable
{
public:
    ScopedVariable(const char *name, const QByteArray &value)
        : m_name(name), m_had(qEnvironmentVariableIsSet(name)), m_old(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~ScopedVariable()
    {
        if (m_had)
            qputenv(m_name, m_old);
        else
            qunsetenv(m_name);
    }

private:
    const char *m_name;
    bool m_had;
    QByteArray m_old;
};

qint64 runtimeErrorOf(const std::function<void()> &action)
{
    return test::errorOf(action).number();
}

QByteArray waitForFile(const QString &path)
{
    if (!QTest::qWaitFor([&] { return QFile::exists(path); }, 20000))
        return QByteArray();
    return textfile::readBytes(path);
}

} // namespace

class ShellTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

    // A program on a search path of its own that notes it ran.
    QString writeStandIn(const QString &folder, const QString &name)
    {
        QDir().mkpath(folder);
        const QString path = folder + "/" + name;
        textfile::writeBytes(path,
                             "#!/bin/sh\necho ran > \"$STANDIN_MARK.tmp\"\n"
                             "mv \"$STANDIN_MARK.tmp\" \"$STANDIN_MARK\"\n",
                             kExecutable);
        return path;
    }
    // A stand-in for xterm: it runs what follows its "-e" and refuses anything else,
    // as the real one does ("bad command line option"). Enter is pressed at once.
    QString writeTerminal(const QString &folder, const QString &name = "xterm")
    {
        QDir().mkpath(folder);
        const QString path = folder + "/" + name;
        textfile::writeBytes(
            path,
            "#!/bin/sh\n"
            "if [ \"$1\" != \"-e\" ]; then\n"
            "  echo \"xterm: bad command line option \\\"$1\\\"\" > \"$TERM_LOG\"\n"
            "  exit 1\n"
            "fi\n"
            "shift\n"
            "echo | \"$@\" > \"$TERM_LOG.tmp\" 2>&1\n"
            "mv \"$TERM_LOG.tmp\" \"$TERM_LOG\"\n",
            kExecutable);
        return path;
    }
    // A build script that notes it ran and ends with status 3.
    QString writeScript()
    {
        const QString path = m_dir.filePath("tdicom.sh");
        textfile::writeBytes(path, "#!/bin/sh\necho compiled\nexit 3\n", kExecutable);
        return path;
    }

private Q_SLOTS:
    void aBareNameIsLookedUpOnThePath()
    {
        const QString bin = m_dir.filePath("bin");
        const QString program = writeStandIn(bin, "tessaro-standin-browser");
        ScopedVariable path("PATH", QFile::encodeName(bin) + ":/usr/bin:/bin");
        QCOMPARE(programPath("tessaro-standin-browser"), program);
        QCOMPARE(programPath("./tessaro-standin-browser"), QString("./tessaro-standin-browser"));
        QCOMPARE(programPath(program), program);
        QCOMPARE(programPath(QString()), QString());
        QCOMPARE(programPath("tessaro-nowhere-at-all"), QString());

        const QString mark = m_dir.filePath("browser-ran");
        ScopedVariable markVariable("STANDIN_MARK", QFile::encodeName(mark));
        QVERIFY(Shell("tessaro-standin-browser", 1) > 0);
        QCOMPARE(waitForFile(mark), QByteArray("ran\n"));
    }

    void aNameFoundNowhereStillRaisesFileNotFound()
    {
        const QString bin = m_dir.filePath("empty-bin");
        QDir().mkpath(bin);
        ScopedVariable path("PATH", QFile::encodeName(bin));
        QCOMPARE(runtimeErrorOf([] { Shell("firefox", 1); }), 53);
        QCOMPARE(runtimeErrorOf([] { Shell("tessaro-nowhere-at-all", 1); }), 53);
        // A folder of that name on the path is no program.
        QDir().mkpath(bin + "/folder-not-program");
        QCOMPARE(runtimeErrorOf([] { Shell("folder-not-program", 1); }), 53);
        // A program in the working folder is not found by its bare name.
        const QString here = m_dir.filePath("here");
        writeStandIn(here, "local-program");
        const QString before = QDir::currentPath();
        QDir::setCurrent(here);
        const int error = runtimeErrorOf([] { Shell("local-program", 1); });
        QDir::setCurrent(before);
        QCOMPARE(error, 53);
        QCOMPARE(runtimeErrorOf([] { Shell(QString(), 1); }), 53);
    }

    void aPathWithASlashIsTakenAsItIs()
    {
        const QString program = writeStandIn(m_dir.filePath("tools"), "client");
        const QString mark = m_dir.filePath("client-ran");
        ScopedVariable markVariable("STANDIN_MARK", QFile::encodeName(mark));
        QVERIFY(Shell(program, 1) > 0);
        QCOMPARE(waitForFile(mark), QByteArray("ran\n"));
        QCOMPARE(runtimeErrorOf([&] { Shell(m_dir.filePath("tools/missing"), 1); }), 53);
        QCOMPARE(runtimeErrorOf([&] { Shell(m_dir.filePath("tools"), 1); }), 53);
    }

    void aTerminalNamedWithItsRunSwitchRunsTheScriptAndWaitsForEnter()
    {
        const QString terminal = writeTerminal(m_dir.filePath("terms"));
        const QString log = m_dir.filePath("with-switch.log");
        ScopedVariable variable("TESSARO_TERMINAL", QFile::encodeName(terminal) + " -e");
        ScopedVariable logVariable("TERM_LOG", QFile::encodeName(log));
        QCOMPARE(terminalCommand(), QStringList({terminal, "-e"}));
        QVERIFY(ShellScript(writeScript()) > 0);
        const QByteArray output = waitForFile(log);
        QVERIFY2(output.startsWith("compiled\n"), output.constData());
        QVERIFY2(output.contains("[exit status 3] Press Enter to close."), output.constData());
    }

    void aKnownTerminalNamedAloneGetsItsRunSwitch()
    {
        const QString terminal = writeTerminal(m_dir.filePath("alone"));
        const QString log = m_dir.filePath("alone.log");
        ScopedVariable variable("TESSARO_TERMINAL", QFile::encodeName(terminal));
        ScopedVariable logVariable("TERM_LOG", QFile::encodeName(log));
        QCOMPARE(terminalCommand(), QStringList({terminal, "-e"}));
        QVERIFY(ShellScript(writeScript()) > 0);
        const QByteArray output = waitForFile(log);
        QVERIFY2(!output.contains("bad command line option"), output.constData());
        QVERIFY2(output.contains("[exit status 3]"), output.constData());

        ScopedVariable other("TESSARO_TERMINAL", "gnome-terminal");
        QCOMPARE(terminalCommand(), QStringList({"gnome-terminal", "--"}));
        ScopedVariable konsole("TESSARO_TERMINAL", "/usr/bin/konsole");
        QCOMPARE(terminalCommand(), QStringList({"/usr/bin/konsole", "-e"}));
        // An unknown program is taken as the whole command.
        ScopedVariable unknown("TESSARO_TERMINAL", "/opt/myterm");
        QCOMPARE(terminalCommand(), QStringList({"/opt/myterm"}));
    }

    void theTerminalCommandMayQuoteABlank()
    {
        const QString terminal = writeTerminal(m_dir.filePath("my terminals"));
        const QString log = m_dir.filePath("quoted.log");
        ScopedVariable variable("TESSARO_TERMINAL", "\"" + QFile::encodeName(terminal) + "\" -e");
        ScopedVariable logVariable("TERM_LOG", QFile::encodeName(log));
        QCOMPARE(terminalCommand(), QStringList({terminal, "-e"}));
        QVERIFY(ShellScript(writeScript()) > 0);
        QVERIFY(waitForFile(log).contains("[exit status 3]"));
    }

    void aTerminalThatCannotBeStartedRaisesFileNotFound()
    {
        const QString script = writeScript();
        {
            ScopedVariable variable("TESSARO_TERMINAL", "/nonexistent/xterm -e");
            QCOMPARE(runtimeErrorOf([&] { ShellScript(script); }), 53);
        }
        {
            ScopedVariable variable("TESSARO_TERMINAL", QFile::encodeName(m_dir.path()) + " -e");
            QCOMPARE(runtimeErrorOf([&] { ShellScript(script); }), 53);
        }
        {
            ScopedVariable variable("TESSARO_TERMINAL", "\"\"");
            QCOMPARE(runtimeErrorOf([&] { ShellScript(script); }), 53);
        }
        {
            // No terminal set and none on the path.
            ScopedVariable variable("TESSARO_TERMINAL", "");
            ScopedVariable path("PATH", QFile::encodeName(m_dir.filePath("no-terminals")));
            QCOMPARE(terminalCommand(), QStringList());
            QCOMPARE(runtimeErrorOf([&] { ShellScript(script); }), 53);
        }
    }
};

TESSARO_CORE_TEST_MAIN(ShellTest)
#include "tst_shell.moc"

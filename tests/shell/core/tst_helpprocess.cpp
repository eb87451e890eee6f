// Runs the real program on a private X display and chooses Help > Contents and Help >
// Search For Help On... as a user would. A recording xdg-open on PATH stands in for
// the desktop's opener of web pages: the program in the build tree hands it its
// manual's index and search pages, an installed program the installed manual; a copy
// of the program without a manual beside it shows the message and opens nothing.
#include "support/ProgramAccount.h"
#include "support/TestSupport.h"
#include "support/XServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QUrl>

#include <memory>

using namespace tessaro;

namespace {

const QString kManualIndex = QStringLiteral(TESSARO_BIN_DIR "/manual/index.html");
const QString kManualSearch = QStringLiteral(TESSARO_BIN_DIR "/manual/search.html");

// An account whose PATH starts with a folder holding a recording xdg-open.
class Account : public test::ProgramAccount
{
public:
    Account()
    {
        QDir().mkpath(path("bin"));
        QFile opener(path("bin/xdg-open"));
        if (opener.open(QIODevice::WriteOnly))
            opener.write("#!/bin/sh\nprintf '%s\\n' \"$@\" >>\"$HOME/opened\"\n");
        opener.close();
        opener.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QProcessEnvironment environment(const test::XServer &display) const
    {
        QProcessEnvironment env = ProgramAccount::environment();
        env.insert("QT_QPA_PLATFORM", "xcb");
        env.insert("DISPLAY", display.name());
        env.insert("PATH", path("bin") + ":" + env.value("PATH"));
        // Whatever desktop the test runs in, the opener is looked up on PATH.
        env.remove("XDG_CURRENT_DESKTOP");
        env.remove("DESKTOP_SESSION");
        env.remove("BROWSER");
        env.remove("DEFAULT_BROWSER");
        return env;
    }

    // The arguments the opener was given, one a line.
    QStringList opened() const
    {
        QFile file(path("opened"));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    }
    bool waitForOpened(int count) const
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 20000) {
            if (opened().size() >= count)
                return true;
            QTest::qWait(100);
        }
        return false;
    }
};

QString url(const QString &path)
{
    return QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded());
}

} // namespace

class HelpProcessTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<test::XServer> m_display;

    // Chooses Help > (the item with the underlined `key`) in the running program.
    bool chooseHelp(const QString &key) const
    {
        const QString main = m_display->window("^Tessaro v");
        if (main.isEmpty())
            return false;
        m_display->xdotool({"windowfocus", "--sync", main});
        m_display->xdotool({"key", "alt+h"});
        QTest::qWait(300);
        m_display->xdotool({"key", key});
        return true;
    }

private Q_SLOTS:
    void initTestCase() { m_display = std::make_unique<test::XServer>(); }
    void init()
    {
        if (!m_display->isUp())
            QSKIP(qPrintable(m_display->why()));
    }
    void cleanupTestCase() { m_display.reset(); }

    void contentsAndSearchHandTheManualsPagesToTheDesktopsOpener()
    {
        Account account;
        auto program = account.start({}, test::programPath(), account.environment(*m_display));
        QVERIFY(account.waitForEvent("loaded"));
        QVERIFY(account.events().contains("help file " + kManualIndex));

        QVERIFY(chooseHelp("c"));
        QVERIFY2(account.waitForOpened(1), program->readAllStandardError().constData());
        QVERIFY(chooseHelp("s"));
        QVERIFY2(account.waitForOpened(2), program->readAllStandardError().constData());
        QCOMPARE(account.opened(), QStringList({url(kManualIndex), url(kManualSearch)}));

        QVERIFY(test::stop(*program));
        QVERIFY(!program->readAllStandardError().contains("Unable to display Help Contents"));
    }

    void anInstalledProgramOpensTheInstalledManual()
    {
        Account account;
        const QString prefix = account.path("prefix");
        QProcess install;
        install.start(QStringLiteral(CMAKE_COMMAND_PATH),
                      {"--install", QStringLiteral(TESSARO_BUILD_DIR), "--prefix", prefix});
        QVERIFY(install.waitForFinished(120000));
        QVERIFY2(install.exitCode() == 0, install.readAllStandardError().constData());
        const QString index = prefix + "/share/doc/tessaro/manual/index.html";
        QVERIFY(QFileInfo(index).isFile());

        auto program = account.start({}, prefix + "/bin/tessaro", account.environment(*m_display));
        QVERIFY(account.waitForEvent("loaded"));
        QVERIFY(chooseHelp("c"));
        QVERIFY2(account.waitForOpened(1), program->readAllStandardError().constData());
        QCOMPARE(account.opened(), QStringList({url(index)}));
        QVERIFY(test::stop(*program));
    }

    void aProgramWithoutAManualKeepsTheMessage()
    {
        Account account;
        // The program and its data files in a folder of their own, without the manual.
        const QString copy = account.copyProgram("elsewhere/bin");
        QVERIFY(QFileInfo(copy).isExecutable());
        QVERIFY(QFileInfo::exists(account.path("elsewhere/bin/tessaro.stx")));
        QVERIFY(!QFileInfo::exists(account.path("elsewhere/bin/manual")));

        auto program = account.start({}, copy, account.environment(*m_display));
        QVERIFY(account.waitForEvent("loaded"));
        QVERIFY(account.events().contains("no help file"));

        QByteArray messages;
        const QByteArray expected = "Unable to display Help Contents. There is no Help "
                                    "associated with this project.";
        QVERIFY(chooseHelp("c"));
        QElapsedTimer timer;
        timer.start();
        while (!messages.contains(expected) && timer.elapsed() < 20000) {
            program->waitForReadyRead(200);
            messages += program->readAllStandardError();
        }
        QVERIFY2(messages.contains(expected), messages.constData());
        QVERIFY(test::stop(*program));
        QVERIFY(account.opened().isEmpty());
    }
};

TESSARO_CORE_TEST_MAIN(HelpProcessTest)
#include "tst_helpprocess.moc"

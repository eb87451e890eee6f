// Runs the real program on a private X display (Xvfb), types into a document with
// xdotool as a user would, and ends the program the hard ways: SIGKILL, an untrapped
// run-time error. The next start offers the unsaved text back (with the headless
// message boxes every kept document is recovered), and a clean exit leaves nothing.
#include "support/ProgramAccount.h"
#include "support/TestSupport.h"
#include "support/XServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <memory>

#include <csignal>

using namespace tessaro;

namespace {

const QString kProgram = QStringLiteral(TESSARO_BIN_DIR "/tessaro");

using test::XServer;

// The program's own account (home, XDG folders, event log) with a source file, on a
// display of its own when given one.
class Account : public test::ProgramAccount
{
public:
    Account()
    {
        QDir().mkpath(path("config/Tessaro"));
        QFile source(sourceFile());
        if (source.open(QIODevice::WriteOnly))
            source.write("int kept;\n");
    }
    QString sourceFile() const { return path("notes.c"); }
    QString recoveryFolder() const { return path("state/Tessaro/recovery"); }

    QProcessEnvironment environment(const XServer *display) const
    {
        QProcessEnvironment env = ProgramAccount::environment();
        env.insert("QT_FONT_DPI", "96");
        if (display) {
            env.insert("QT_QPA_PLATFORM", "xcb");
            env.insert("DISPLAY", display->name());
        }
        return env;
    }

    std::unique_ptr<QProcess> start(const XServer *display) const
    {
        return ProgramAccount::start({sourceFile()}, kProgram, environment(display));
    }

    bool waitForEvent(const QString &event) const
    {
        return ProgramAccount::waitForEvent(event, 1, 30000);
    }

    // The next start's events only.
    void forgetEvents() const { QFile::remove(path("events")); }

    // Every recovery copy's bytes.
    QList<QByteArray> copies() const
    {
        QList<QByteArray> found;
        QDir root(recoveryFolder());
        for (const QString &session : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            for (const QString &name : QDir(root.filePath(session)).entryList({"*.copy"}))
                found << test::readFile(root.filePath(session) + "/" + name);
        return found;
    }
    bool waitForCopyHolding(const QByteArray &text, int timeoutMs = 30000) const
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < timeoutMs) {
            for (const QByteArray &copy : copies())
                if (copy.endsWith(text))
                    return true;
            QTest::qWait(100);
        }
        return false;
    }
};

// Types into the document that the program opened from its command line.
bool typeIntoTheDocument(const XServer &display, const QString &text)
{
    const QString main = display.window("^Tessaro v");
    if (main.isEmpty())
        return false;
    display.xdotool({"windowfocus", "--sync", main});
    display.xdotool({"type", "--delay", "40", text});
    return true;
}

// Starts the program again without a display, lets it recover what there is and asks
// it to end: a recovered document is changed, so the headless prompt saves it.
QByteArray recoverAndSave(const Account &account)
{
    account.forgetEvents();
    auto again = account.start(nullptr);
    if (!account.waitForEvent("loaded"))
        return "no start";
    // The offer runs once the window is shown.
    QByteArray messages;
    QElapsedTimer timer;
    timer.start();
    while (!messages.contains("recovering unsaved work") && timer.elapsed() < 20000) {
        again->waitForReadyRead(200);
        messages += again->readAllStandardError();
    }
    QTest::qWait(200);
    again->terminate();
    again->waitForFinished(30000);
    return messages + again->readAllStandardError();
}

} // namespace

class RecoveryProcessTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<XServer> m_display;

    // The program started on the display with the account's source file, and `text`
    // typed into that document; nullptr when it did not get that far.
    std::unique_ptr<QProcess> startAndType(const Account &account, const QString &text) const
    {
        auto process = account.start(m_display.get());
        if (!account.waitForEvent("open " + account.sourceFile()) ||
            !typeIntoTheDocument(*m_display, text))
            return nullptr;
        return process;
    }

private Q_SLOTS:
    void initTestCase() { m_display = std::make_unique<XServer>(); }
    void init()
    {
        if (!m_display->isUp())
            QSKIP(qPrintable(m_display->why()));
    }
    void cleanupTestCase() { m_display.reset(); }

    void typingSurvivesAKill()
    {
        Account account;
        auto first = startAndType(account, "typed ");
        QVERIFY(first);
        // The copy is there within the interval (2 s) after the typing.
        QVERIFY(account.waitForCopyHolding("typed int kept;\n"));
        first->kill();
        QVERIFY(first->waitForFinished(10000));

        const QByteArray messages = recoverAndSave(account);
        QVERIFY2(messages.contains("recovering unsaved work: " + account.sourceFile().toUtf8()),
                 messages.constData());
        QCOMPARE(test::readFile(account.sourceFile()), QByteArray("typed int kept;\n"));
        // Saved and closed: nothing is left to recover.
        QVERIFY(account.copies().isEmpty());
    }

    void anUntrappedRunTimeErrorLeavesACopy()
    {
        Account account;
        QFile settings(account.path("config/Tessaro/Tessaro.ini"));
        QVERIFY(settings.open(QIODevice::WriteOnly));
        settings.write("[Settings]\nwebPath=/nonexistent/web browser\n");
        settings.close();

        auto first = startAndType(account, "lost? ");
        QVERIFY(first);
        // Build > Publish Mod..., Next >, then Execute on the web browser page.
        m_display->xdotool({"key", "alt+b"});
        m_display->xdotool({"key", "p"});
        const QString checklist = m_display->window("^Mod Publishing Wizard$");
        QVERIFY(!checklist.isEmpty());
        m_display->xdotool({"mousemove", "--window", checklist, "363", "307", "click", "1"});
        QTest::qWait(500);
        const QString webPage = m_display->window("^Mod Publishing Wizard$");
        QVERIFY(!webPage.isEmpty());
        m_display->xdotool({"mousemove", "--window", webPage, "435", "243", "click", "1"});

        QVERIFY(first->waitForFinished(30000));
        QCOMPARE(first->exitStatus(), QProcess::NormalExit);
        QCOMPARE(first->exitCode(), 1);
        QVERIFY(first->readAllStandardError().contains("Run-time error '53':"));
        QVERIFY(account.waitForCopyHolding("lost? int kept;\n", 1000));
        // The settings were not written by that end.
        QVERIFY(test::readFile(account.path("config/Tessaro/Tessaro.ini"))
                    .startsWith("[Settings]\nwebPath"));
    }

    void aHangUpKeepsTheTypingAndEndsAsAHangUpDoes()
    {
        Account account;
        auto first = startAndType(account, "hup ");
        QVERIFY(first);
        QTest::qWait(300);
        ::kill(pid_t(first->processId()), SIGHUP);
        QVERIFY(first->waitForFinished(30000));
        QCOMPARE(first->exitStatus(), QProcess::CrashExit); // ended by the signal
        QVERIFY(account.waitForCopyHolding("hup int kept;\n", 1000));
        QVERIFY(!test::readFile(account.path("events")).contains("unloaded"));
    }

    void aCleanExitLeavesNoCopy()
    {
        Account account;
        auto first = startAndType(account, "saved ");
        QVERIFY(first);
        QVERIFY(account.waitForCopyHolding("saved int kept;\n"));
        // SIGTERM closes the window the normal way; the headless prompt saves.
        first->terminate();
        QVERIFY(first->waitForFinished(30000));
        QCOMPARE(first->exitCode(), 0);
        QCOMPARE(test::readFile(account.sourceFile()), QByteArray("saved int kept;\n"));
        QVERIFY(account.copies().isEmpty());
        QVERIFY(
            QDir(account.recoveryFolder()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
    }
};

TESSARO_CORE_TEST_MAIN(RecoveryProcessTest)
#include "tst_recoveryprocess.moc"

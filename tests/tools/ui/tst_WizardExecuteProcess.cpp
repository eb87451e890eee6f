// Starts this test program again as a child process that opens a wizard page, puts a
// path that cannot be started into the box and clicks Execute, and checks from outside
// that the child shows the run-time's message and ends at once.

#include "platform/ui/WidgetDialogs.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "tools/ui/PublishingWizard.h"
#include "tools/ui/ToolWizardPage.h"

#include <QApplication>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>

#include <cstdio>

using namespace tessaro;

namespace {

const char *const childVariable = "TESSARO_WIZARD_EXECUTE_CHILD";

// The child: the real message box (which, with TESSARO_HEADLESS_MSGBOX set, writes
// to the error stream), the real program start and the real end of the program.
int runChild(int argc, char **argv)
{
    QApplication application(argc, argv);
    installWidgetDialogs();
    const QString badPath = qEnvironmentVariable(childVariable);
    const int number = qEnvironmentVariableIntValue("TESSARO_WIZARD_PAGE");
    app().tools.webPath = QStringLiteral("/usr/bin/previous");
    auto *page = qobject_cast<ToolWizardPage *>(wizard::showPage(number));
    if (!page)
        return 3;
    page->pathBox()->setText(badPath);
    std::printf("clicking Execute on %s\n", qPrintable(page->objectName()));
    std::fflush(stdout);
    QTest::mouseClick(page->findChild<QPushButton *>(QStringLiteral("cmdExec")), Qt::LeftButton);
    // Only reached when the program was not ended.
    std::printf("still running; next page %s\n",
                wizard::loadedPage(number + 1) ? "shown" : "not shown");
    return 0;
}

struct ChildResult
{
    int exitCode = -1;
    QProcess::ExitStatus exitStatus = QProcess::CrashExit;
    QString out;
    QString err;
};

ChildResult runChildWith(const QString &path, int page)
{
    QProcess child;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QLatin1String(childVariable), path);
    env.insert(QStringLiteral("TESSARO_WIZARD_PAGE"), QString::number(page));
    env.insert(QStringLiteral("TESSARO_HEADLESS_MSGBOX"), QStringLiteral("1"));
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    child.setProcessEnvironment(env);
    child.start(QCoreApplication::applicationFilePath(), {});
    ChildResult result;
    if (!child.waitForFinished(60000)) {
        child.kill();
        child.waitForFinished();
        return result;
    }
    result.exitCode = child.exitCode();
    result.exitStatus = child.exitStatus();
    result.out = QString::fromLocal8Bit(child.readAllStandardOutput());
    result.err = QString::fromLocal8Bit(child.readAllStandardError());
    return result;
}

} // namespace

class tst_WizardExecuteProcess : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void executeWithAMissingProgramShowsTheRuntimeMessageAndEndsTheProgram_data()
    {
        QTest::addColumn<int>("page");
        QTest::newRow("web browser") << 2;
        QTest::newRow("ftp client") << 3;
        QTest::newRow("email client") << 4;
    }

    void executeWithAMissingProgramShowsTheRuntimeMessageAndEndsTheProgram()
    {
        QFETCH(int, page);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const ChildResult result =
            runChildWith(dir.filePath(QStringLiteral("no-such-program")), page);
        QCOMPARE(result.exitStatus, QProcess::NormalExit);
        QVERIFY2(result.out.contains(QStringLiteral("clicking Execute on frmMP%1").arg(page)),
                 qPrintable(result.out));
        QVERIFY2(!result.out.contains(QStringLiteral("still running")), qPrintable(result.out));
        QVERIFY2(
            result.err.contains(QStringLiteral("Tessaro: Run-time error '53':\n\nFile not found")),
            qPrintable(result.err));
        QCOMPARE(result.exitCode, 1);
    }

    void executeWithAFolderEndsTheProgramToo()
    {
        QTemporaryDir dir;
        const ChildResult result = runChildWith(dir.path(), 2);
        QVERIFY2(result.err.contains(QStringLiteral("Run-time error '53':")),
                 qPrintable(result.err));
        QCOMPARE(result.exitCode, 1);
    }

    void theChildGoesOnWhenTheProgramStarts()
    {
        // The same child with a program that exists keeps running after Execute, so the
        // ends seen above come from the failed start.
        const ChildResult result = runChildWith(QStringLiteral("/bin/true"), 3);
        QCOMPARE(result.exitCode, 0);
        QVERIFY2(result.out.contains(QStringLiteral("still running; next page shown")),
                 qPrintable(result.out));
        QVERIFY2(!result.err.contains(QStringLiteral("Run-time error")), qPrintable(result.err));
    }
};

int main(int argc, char **argv)
{
    test::ensurePrivateHome();
    if (qEnvironmentVariableIsSet(childVariable))
        return runChild(argc, argv);
    QApplication application(argc, argv);
    tst_WizardExecuteProcess tc;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&tc, argc, argv);
}

#include "tst_WizardExecuteProcess.moc"

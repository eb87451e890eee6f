#pragma once

#include "platform/core/CommonDialog.h"
#include "platform/core/MsgBox.h"
#include "platform/core/Shell.h"

#include "platform/core/RuntimeError.h"
#include <QList>
#include <QString>
#include <QStringList>

#include <QtTest/QtTest>

#include <functional>
#include <stdexcept>

namespace tessaro::test {

// Makes sure the private home that CTest gives each test exists (HOME and the XDG
// folders), and stops the test when HOME is not inside the build tree, so a test run
// by hand can never touch the real user's files.
void ensurePrivateHome();

// A file's bytes; empty when it is missing or cannot be read (tests compare contents
// and never want the program's own error for that).
QByteArray readFile(const QString &path);

// Writes a file of the given bytes at name inside the folder, making the folders
// between, and returns its path.
QString writeFileIn(const QString &folder, const QString &name, const QByteArray &bytes);

// A message box that records every call and answers from a script (then the
// default button once the script is used up).
class RecordingMessageBox : public MessageBoxService
{
public:
    struct Call
    {
        QString prompt;
        int style;
        QString title;
    };
    RecordingMessageBox();
    ~RecordingMessageBox() override;
    int show(const QString &prompt, int style, const QString &title) override;

    QList<Call> calls;
    QList<int> answers;

private:
    MessageBoxService *m_previous;
};

// A common dialog that records the requests and returns scripted file names ("" =
// Cancel).
class ScriptedCommonDialog : public CommonDialogService
{
public:
    ScriptedCommonDialog();
    ~ScriptedCommonDialog() override;
    QString fileName(const FileDialogRequest &request) override;
    bool printerSetup(const QString &title) override;

    QList<FileDialogRequest> requests;
    QStringList printerTitles;
    QStringList answers;
    bool printerAnswer = false;

private:
    CommonDialogService *m_previous;
};

// A shell that records the programs and scripts it was asked to start; paths listed
// in failing raise 53 as a real start would.
class RecordingShell : public ShellService
{
public:
    RecordingShell();
    ~RecordingShell() override;
    qint64 startProgram(const QString &path) override;
    qint64 startScript(const QString &scriptPath) override;

    QStringList programs;
    QStringList scripts;
    QStringList failing;

private:
    ShellService *m_previous;
};

// The run-time error an action raises; number 0 when it raises none.
RuntimeError errorOf(const std::function<void()> &action);

// Thrown instead of ending the process while a ProgramEndCatcher is alive.
struct ProgramEnded : std::runtime_error
{
    explicit ProgramEnded(int s) : std::runtime_error("program ended"), status(s) {}
    int status;
};

// While alive, the run-time error handler throws ProgramEnded instead of ending
// the test program.
class ProgramEndCatcher
{
public:
    ProgramEndCatcher();
    ~ProgramEndCatcher();
};

} // namespace tessaro::test

// QTEST_MAIN with the private home checked first.
#define TESSARO_TEST_MAIN(TestClass)                                                               \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        tessaro::test::ensurePrivateHome();                                                        \
        QApplication app(argc, argv);                                                              \
        app.setAttribute(Qt::AA_Use96Dpi, true);                                                   \
        TestClass tc;                                                                              \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return QTest::qExec(&tc, argc, argv);                                                      \
    }

// For tests of the widget-free core: no QApplication, only a core application.
#define TESSARO_CORE_TEST_MAIN(TestClass)                                                          \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        tessaro::test::ensurePrivateHome();                                                        \
        QCoreApplication app(argc, argv);                                                          \
        TestClass tc;                                                                              \
        QTEST_SET_MAIN_SOURCE_PATH                                                                 \
        return QTest::qExec(&tc, argc, argv);                                                      \
    }

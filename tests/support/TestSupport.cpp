#include "support/TestSupport.h"

#include "platform/core/ErrorTraps.h"
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

namespace tessaro::test {

QString writeFileIn(const QString &folder, const QString &name, const QByteArray &bytes)
{
    const QString path = QDir(folder).filePath(name);
    QDir().mkpath(QFileInfo(path).absolutePath());
    textfile::writeBytes(path, bytes);
    return path;
}

void ensurePrivateHome()
{
    const QString home = qEnvironmentVariable("HOME");
    const QString buildTree = QDir::cleanPath(QStringLiteral(TESSARO_TEST_HOME_ROOT));
    if (!QDir::cleanPath(home).startsWith(buildTree)) {
        std::fprintf(stderr,
                     "Refusing to run: HOME (%s) is not a private test home under %s. "
                     "Run the tests through ctest.\n",
                     qPrintable(home), qPrintable(buildTree));
        std::exit(2);
    }
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                             "XDG_STATE_HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_DIRS"}) {
        const QString dir = qEnvironmentVariable(name);
        if (!dir.isEmpty())
            QDir().mkpath(dir);
    }
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty())
        QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

RecordingMessageBox::RecordingMessageBox() : m_previous(setMessageBoxService(this)) {}
RecordingMessageBox::~RecordingMessageBox()
{
    setMessageBoxService(m_previous);
}

int RecordingMessageBox::show(const QString &prompt, int style, const QString &title)
{
    calls.append({prompt, style, title});
    return answers.isEmpty() ? defaultAnswer(style) : answers.takeFirst();
}

ScriptedCommonDialog::ScriptedCommonDialog() : m_previous(setCommonDialogService(this)) {}
ScriptedCommonDialog::~ScriptedCommonDialog()
{
    setCommonDialogService(m_previous);
}

QString ScriptedCommonDialog::fileName(const FileDialogRequest &request)
{
    requests.append(request);
    return answers.isEmpty() ? QString() : answers.takeFirst();
}

bool ScriptedCommonDialog::printerSetup(const QString &title)
{
    printerTitles.append(title);
    return printerAnswer;
}

RecordingShell::RecordingShell() : m_previous(setShellService(this)) {}
RecordingShell::~RecordingShell()
{
    setShellService(m_previous);
}

qint64 RecordingShell::startProgram(const QString &path)
{
    if (failing.contains(path))
        throw RuntimeError(RuntimeError::FileNotFound);
    programs.append(path);
    return 1000 + programs.size();
}

qint64 RecordingShell::startScript(const QString &scriptPath)
{
    if (failing.contains(scriptPath))
        throw RuntimeError(RuntimeError::FileNotFound);
    scripts.append(scriptPath);
    return 2000 + scripts.size();
}

RuntimeError errorOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const RuntimeError &error) {
        return error;
    }
    return RuntimeError(0, QString(), QString());
}

ProgramEndCatcher::ProgramEndCatcher()
{
    setProgramEnd([](int status) { throw ProgramEnded(status); });
}

ProgramEndCatcher::~ProgramEndCatcher()
{
    setProgramEnd(nullptr);
}

} // namespace tessaro::test

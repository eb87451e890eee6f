#include "support/ProgramAccount.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QtTest/QtTest>

namespace tessaro::test {

QString programPath()
{
    return QStringLiteral(TESSARO_TEST_BIN_DIR "/tessaro");
}

ProgramAccount::ProgramAccount() : m_dir(QDir::homePath() + "/account-XXXXXX")
{
    for (const char *sub : {"config", "data", "runtime", "etc-xdg", "cache", "state"})
        QDir().mkpath(m_dir.path() + "/" + sub);
    QFile::setPermissions(m_dir.path() + "/runtime",
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QProcessEnvironment ProgramAccount::environment() const
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("HOME", m_dir.path());
    env.insert("XDG_CONFIG_HOME", path("config"));
    env.insert("XDG_DATA_HOME", path("data"));
    env.insert("XDG_CACHE_HOME", path("cache"));
    env.insert("XDG_STATE_HOME", path("state"));
    env.insert("XDG_RUNTIME_DIR", path("runtime"));
    env.insert("XDG_CONFIG_DIRS", path("etc-xdg"));
    env.insert("QT_QPA_PLATFORM", "offscreen");
    env.insert("TESSARO_HEADLESS_MSGBOX", "1");
    env.insert("TESSARO_EVENT_LOG", path("events"));
    return env;
}

std::unique_ptr<QProcess> ProgramAccount::start(const QStringList &arguments,
                                                const QString &program, QProcessEnvironment env,
                                                const QString &workingFolder) const
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(env.isEmpty() ? environment() : env);
    if (!workingFolder.isEmpty())
        process->setWorkingDirectory(workingFolder);
    process->start(program, arguments);
    process->waitForStarted(10000);
    return process;
}

std::unique_ptr<QProcess> ProgramAccount::startWithoutDisplay(const QStringList &arguments,
                                                              const QString &workingFolder) const
{
    QProcessEnvironment env = environment();
    env.insert("QT_QPA_PLATFORM", "xcb");
    env.remove("DISPLAY");
    env.remove("WAYLAND_DISPLAY");
    return start(arguments, programPath(), env, workingFolder);
}

QString ProgramAccount::copyProgram(const QString &sub) const
{
    const QString folder = path(sub);
    QDir().mkpath(folder);
    const QFileInfo program(programPath());
    for (const QFileInfo &info : program.dir().entryInfoList(QDir::Files))
        if (!info.isExecutable() || info.fileName() == program.fileName())
            QFile::copy(info.filePath(), folder + "/" + info.fileName());
    return folder + "/" + program.fileName();
}

QStringList ProgramAccount::events() const
{
    QFile file(path("events"));
    QStringList lines;
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    for (const QByteArray &line : file.readAll().split('\n'))
        if (!line.isEmpty())
            lines << QString::fromUtf8(line.mid(line.indexOf(' ') + 1));
    return lines;
}

bool ProgramAccount::waitForEvent(const QString &event, int count, int timeoutMs) const
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < timeoutMs) {
        if (events().count(event) >= count)
            return true;
        QTest::qWait(25);
    }
    return false;
}

bool stop(QProcess &process)
{
    process.terminate();
    return process.waitForFinished(20000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

bool finishesQuietly(QProcess &process)
{
    return process.waitForFinished(15000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

} // namespace tessaro::test

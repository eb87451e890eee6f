#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

namespace tessaro::test {

// What a run of tessaro-cli left: its exit status (-1 when it did not end normally
// within a minute) and everything it printed.
struct CliRun
{
    int status = -1;
    QByteArray out;
    QByteArray err;
};

// Runs the tessaro-cli beside the tests with the arguments, in the folder when one is
// given, with the extra environment variables added to the test's own.
inline CliRun runCli(const QStringList &arguments, const QString &folder = QString(),
                     const QProcessEnvironment &extra = QProcessEnvironment())
{
    QProcess process;
    if (!folder.isEmpty())
        process.setWorkingDirectory(folder);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const QString &key : extra.keys())
        env.insert(key, extra.value(key));
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(TESSARO_BIN_DIR "/tessaro-cli"), arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace tessaro::test

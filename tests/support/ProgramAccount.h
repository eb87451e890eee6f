#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace tessaro::test {

// The real program, as the build put it beside the tests.
QString programPath();

// A user account of its own for running the real program: home, XDG folders and an
// event log (TESSARO_EVENT_LOG), on Qt's offscreen platform with message boxes on the
// error stream (TESSARO_HEADLESS_MSGBOX).
class ProgramAccount
{
public:
    ProgramAccount();

    QString path(const QString &sub) const { return m_dir.path() + "/" + sub; }
    QString settingsFile() const { return path("config/Tessaro/Tessaro.ini"); }
    QString desktopFile() const { return path("data/applications/tessaro.desktop"); }
    QString socketPath() const { return path("runtime/Tessaro_APPLICATION"); }

    QProcessEnvironment environment() const;

    // Starts the program (or another one) with the account's environment, or `env`.
    std::unique_ptr<QProcess> start(const QStringList &arguments,
                                    const QString &program = programPath(),
                                    QProcessEnvironment env = QProcessEnvironment(),
                                    const QString &workingFolder = QString()) const;
    // A later copy that could not open a window even if it tried: no display at all.
    std::unique_ptr<QProcess> startWithoutDisplay(const QStringList &arguments,
                                                  const QString &workingFolder = QString()) const;

    // A copy of the program and the data files beside it (word lists, definition file;
    // not the manual's folder) in the account's folder `sub`; the copy's path.
    QString copyProgram(const QString &sub) const;

    // The events logged so far, without their times.
    QStringList events() const;
    // Waits until the event has been logged `count` times.
    bool waitForEvent(const QString &event, int count = 1, int timeoutMs = 20000) const;

private:
    QTemporaryDir m_dir;
};

// Asks a running copy to end (SIGTERM closes its main window normally); true when it
// ended with status 0.
bool stop(QProcess &process);
// True when the process ends by itself, soon, with status 0.
bool finishesQuietly(QProcess &process);

} // namespace tessaro::test

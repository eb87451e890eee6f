#include "support/XServer.h"

#include <QElapsedTimer>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QtTest/QtTest>

namespace tessaro::test {

XServer::XServer()
{
    if (QStandardPaths::findExecutable("Xvfb").isEmpty()) {
        m_why = "Xvfb is not installed (scripts/install-deps.sh installs it)";
        return;
    }
    if (QStandardPaths::findExecutable("xdotool").isEmpty()) {
        m_why = "xdotool is not installed (scripts/install-deps.sh installs it)";
        return;
    }
    // -displayfd 1: the server picks a free display and writes its number.
    m_server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"});
    m_server.waitForStarted(10000);
    QElapsedTimer timer;
    timer.start();
    while (m_name.isEmpty() && timer.elapsed() < 20000 && m_server.state() == QProcess::Running) {
        m_server.waitForReadyRead(200);
        m_output += m_server.readAllStandardOutput();
        if (m_output.contains('\n'))
            m_name = ":" + QString::fromLatin1(m_output.trimmed());
    }
    if (m_name.isEmpty())
        m_why = "Xvfb did not start: " + QString::fromLocal8Bit(m_server.readAllStandardError());
}

XServer::~XServer()
{
    m_server.terminate();
    if (!m_server.waitForFinished(5000))
        m_server.kill();
}

QString XServer::xdotool(const QStringList &arguments, int timeoutMs) const
{
    QProcess tool;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("DISPLAY", m_name);
    tool.setProcessEnvironment(env);
    tool.start("xdotool", arguments);
    if (!tool.waitForFinished(timeoutMs))
        tool.kill();
    return QString::fromLocal8Bit(tool.readAllStandardOutput()).trimmed();
}

QString XServer::window(const QString &namePattern) const
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 20000) {
        const QString ids = xdotool({"search", "--onlyvisible", "--name", namePattern});
        if (!ids.isEmpty())
            return ids.split('\n').constFirst();
        QTest::qWait(100);
    }
    return QString();
}

} // namespace tessaro::test

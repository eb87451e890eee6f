#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace tessaro::test {

// A private X server (Xvfb) for the length of a test, with xdotool to act on it as a
// user would. isUp() is false, and why() says why, when Xvfb or xdotool is missing or
// the server did not start.
class XServer
{
public:
    XServer();
    ~XServer();
    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;

    bool isUp() const { return !m_name.isEmpty(); }
    QString why() const { return m_why; }
    // The display's name, such as ":3".
    QString name() const { return m_name; }

    // Runs xdotool on this display; its standard output.
    QString xdotool(const QStringList &arguments, int timeoutMs = 20000) const;
    // The first visible window whose name matches, waiting for it to appear; "" when
    // none appeared within 20 s.
    QString window(const QString &namePattern) const;

private:
    QProcess m_server;
    QByteArray m_output;
    QString m_name;
    QString m_why;
};

} // namespace tessaro::test

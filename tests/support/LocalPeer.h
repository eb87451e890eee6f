#pragma once

#include <QByteArray>
#include <QString>

namespace tessaro::test {

// One end of a connection to a local (Unix domain) socket, made with plain system calls
// so it can behave as no well-mannered client would: say nothing, send far too much,
// send garbage, or go away at any moment. Nothing it does blocks longer than the
// time-out it is given.
class LocalPeer
{
public:
    // Connects; isConnected() tells whether that worked.
    explicit LocalPeer(const QString &socketPath, int timeoutMs = 5000);
    ~LocalPeer();
    LocalPeer(const LocalPeer &) = delete;
    LocalPeer &operator=(const LocalPeer &) = delete;

    bool isConnected() const { return m_fd >= 0; }
    // The next byte from the other end; -1 when none came within the time-out or the
    // other end closed.
    int readByte(int timeoutMs);
    // Sends the bytes; returns how many the other end took before it closed the
    // connection or the time-out passed.
    qint64 send(const QByteArray &bytes, int timeoutMs);
    // Sends `total` bytes made of `pattern` repeated, the same way.
    qint64 sendRepeated(const QByteArray &pattern, qint64 total, int timeoutMs);
    // Waits until the other end closes the connection, reading and dropping whatever it
    // sends; the milliseconds that took, or -1 when it was still open at the time-out.
    qint64 waitForClose(int timeoutMs);
    // Closes this end at once.
    void close();

private:
    bool waitFor(short events, int timeoutMs);

    int m_fd = -1;
};

// Connects without waiting: the connection's descriptor, or -1 when the other end's
// queue is full or nobody listens. The caller closes it.
int connectWithoutWaiting(const QString &socketPath);

// Milliseconds from connecting to the greeting byte of a new connection: how long the
// listening program took to get round to a newcomer. -1 when no greeting came within
// the time-out.
double greetingDelayMs(const QString &socketPath, int timeoutMs);

} // namespace tessaro::test

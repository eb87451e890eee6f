#include "support/LocalPeer.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace tessaro::test {

namespace {

bool fillAddress(const QString &socketPath, sockaddr_un &address)
{
    const QByteArray name = QFile::encodeName(socketPath);
    if (name.size() >= int(sizeof address.sun_path))
        return false;
    std::memset(&address, 0, sizeof address);
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.constData(), size_t(name.size()));
    return true;
}

int newSocket()
{
    return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

int remaining(const QElapsedTimer &timer, int timeoutMs)
{
    return int(std::max<qint64>(0, timeoutMs - timer.elapsed()));
}

} // namespace

int connectWithoutWaiting(const QString &socketPath)
{
    sockaddr_un address;
    if (!fillAddress(socketPath, address))
        return -1;
    const int fd = newSocket();
    if (fd < 0)
        return -1;
    if (::connect(fd, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

LocalPeer::LocalPeer(const QString &socketPath, int timeoutMs)
{
    QElapsedTimer timer;
    timer.start();
    // A full queue refuses a connection without waiting: try again until the time-out.
    do {
        m_fd = connectWithoutWaiting(socketPath);
        if (m_fd >= 0 || (errno != EAGAIN && errno != ECONNREFUSED))
            return;
        ::usleep(2000);
    } while (timer.elapsed() < timeoutMs);
}

LocalPeer::~LocalPeer()
{
    close();
}

void LocalPeer::close()
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

bool LocalPeer::waitFor(short events, int timeoutMs)
{
    pollfd entry{m_fd, events, 0};
    int ready;
    do {
        ready = ::poll(&entry, 1, timeoutMs);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

int LocalPeer::readByte(int timeoutMs)
{
    if (m_fd < 0 || !waitFor(POLLIN, timeoutMs))
        return -1;
    unsigned char byte = 0;
    return ::recv(m_fd, &byte, 1, 0) == 1 ? int(byte) : -1;
}

qint64 LocalPeer::send(const QByteArray &bytes, int timeoutMs)
{
    return sendRepeated(bytes, bytes.size(), timeoutMs);
}

qint64 LocalPeer::sendRepeated(const QByteArray &pattern, qint64 total, int timeoutMs)
{
    if (m_fd < 0 || pattern.isEmpty())
        return 0;
    // A block of whole patterns, sent again and again.
    QByteArray block;
    while (block.size() < 64 * 1024 && block.size() < total)
        block += pattern;
    QElapsedTimer timer;
    timer.start();
    qint64 sent = 0;
    while (sent < total) {
        if (!waitFor(POLLOUT, remaining(timer, timeoutMs)))
            break;
        const qint64 offset = sent % block.size();
        const size_t length = size_t(std::min<qint64>(block.size() - offset, total - sent));
        const ssize_t n = ::send(m_fd, block.constData() + offset, length, MSG_NOSIGNAL);
        if (n < 0) {
            if (errno == EAGAIN || errno == EINTR)
                continue;
            break; // the other end closed
        }
        sent += n;
    }
    return sent;
}

qint64 LocalPeer::waitForClose(int timeoutMs)
{
    QElapsedTimer timer;
    timer.start();
    char buffer[4096];
    while (m_fd >= 0) {
        if (!waitFor(POLLIN, remaining(timer, timeoutMs)))
            return -1;
        const ssize_t n = ::recv(m_fd, buffer, sizeof buffer, 0);
        if (n == 0 || (n < 0 && errno != EAGAIN && errno != EINTR))
            return timer.elapsed();
    }
    return timer.elapsed();
}

double greetingDelayMs(const QString &socketPath, int timeoutMs)
{
    QElapsedTimer timer;
    timer.start();
    LocalPeer peer(socketPath, timeoutMs);
    if (!peer.isConnected() || peer.readByte(remaining(timer, timeoutMs)) < 0)
        return -1;
    return double(timer.nsecsElapsed()) / 1e6;
}

} // namespace tessaro::test

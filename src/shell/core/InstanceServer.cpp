#include "shell/core/InstanceServer.h"

#include "shell/core/HandOver.h"
#include "shell/core/InstanceConnection.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>

#include <algorithm>

#include <sys/socket.h>
#include <sys/types.h>
#include <unistd.h>

namespace tessaro {

bool peerIsSameUser(qintptr socketDescriptor)
{
    struct ucred credentials = {};
    socklen_t size = sizeof credentials;
    if (::getsockopt(int(socketDescriptor), SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0)
        return false;
    return credentials.uid == ::getuid();
}

namespace {

// A local server that hands every accepted descriptor to its owner as it is, so a peer
// of another user is refused before any socket object exists for it.
class DescriptorServer : public QLocalServer
{
public:
    DescriptorServer(std::function<void(qintptr)> accept, QObject *parent)
        : QLocalServer(parent), m_accept(std::move(accept))
    {
    }

protected:
    void incomingConnection(quintptr descriptor) override { m_accept(qintptr(descriptor)); }

private:
    std::function<void(qintptr)> m_accept;
};

} // namespace

InstanceServer::InstanceServer(QString path, QObject *parent)
    : QObject(parent), m_path(std::move(path)),
      m_server(new DescriptorServer([this](qintptr descriptor) { accept(descriptor); }, this))
{
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
}

InstanceServer::~InstanceServer()
{
    close();
}

void InstanceServer::setHandlers(std::function<void(const QByteArray &)> handOver,
                                 std::function<void()> activate)
{
    m_handOver = std::move(handOver);
    m_activate = std::move(activate);
}

bool InstanceServer::listen()
{
    if (m_server->isListening())
        return true;
    QLocalServer::removeServer(m_path);
    return m_server->listen(m_path);
}

void InstanceServer::close()
{
    if (m_server->isListening())
        m_server->close();
}

bool InstanceServer::isListening() const
{
    return m_server->isListening();
}

int InstanceServer::connectionCount() const
{
    int count = 0;
    for (const QPointer<InstanceConnection> &connection : m_connections)
        if (connection)
            ++count;
    return count;
}

void InstanceServer::accept(qintptr descriptor)
{
    if (!peerIsSameUser(descriptor)) {
        ::close(int(descriptor));
        return;
    }
    m_connections.removeAll(nullptr);
    if (m_connections.size() >= kMaxConnections) {
        const auto waiting =
            std::find_if(m_connections.begin(), m_connections.end(),
                         [](const QPointer<InstanceConnection> &c) { return !c->isCarryingOut(); });
        if (waiting == m_connections.end()) {
            ::close(int(descriptor));
            return;
        }
        QPointer<InstanceConnection> oldest = *waiting;
        m_connections.erase(waiting);
        oldest->drop();
    }
    const bool visible = m_visible ? m_visible() : false;
    auto *connection = new InstanceConnection(
        descriptor, visible ? handover::kVisible : handover::kHidden, handover::kTimeoutMs, this);
    // Carried out from the event loop, never inside the socket's signal; a connection
    // that is gone by then (the server with it) takes its call with it.
    connect(
        connection, &InstanceConnection::requestReady, connection,
        [this, connection] { carryOut(connection); }, Qt::QueuedConnection);
    m_connections.append(connection);
}

void InstanceServer::carryOut(QPointer<InstanceConnection> connection)
{
    if (!connection)
        return;
    using State = handover::RequestReader::State;
    const State state = connection->request().state();
    const QByteArray payload = connection->request().payload();
    // The later copy's activation token is where Qt's Wayland window takes one from
    // while the window comes to the front; it is no one's afterwards.
    const QByteArray token = connection->request().token();
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token);
    // Copies: the handler may end the server (the window closes) while it runs.
    if (state == State::HandOver && !payload.isEmpty()) {
        if (const auto handOver = m_handOver)
            handOver(payload);
    } else if (state == State::Activate) {
        if (const auto activate = m_activate)
            activate();
    }
    if (!token.isEmpty())
        qunsetenv("XDG_ACTIVATION_TOKEN");
    // The peer may have gone, or the server with every connection, meanwhile.
    if (connection)
        connection->answer();
}

namespace {

// Waits in a local event loop (so a running copy in the same process can answer)
// until the socket has at least `count` bytes or the deadline passes.
bool waitForBytes(QLocalSocket &socket, qint64 count, const QDeadlineTimer &deadline)
{
    while (socket.bytesAvailable() < count) {
        if (deadline.hasExpired() || socket.state() != QLocalSocket::ConnectedState)
            return socket.bytesAvailable() >= count;
        QEventLoop loop;
        QTimer timer;
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
        QObject::connect(&socket, &QLocalSocket::readyRead, &loop, &QEventLoop::quit);
        QObject::connect(&socket, &QLocalSocket::disconnected, &loop, &QEventLoop::quit);
        timer.start(int(qMax<qint64>(1, deadline.remainingTime())));
        loop.exec();
    }
    return true;
}

} // namespace

HandOverOutcome contactRunningCopy(const QString &socketPath, const QString &commandLine,
                                   int timeoutMs, const QByteArray &activationToken)
{
    const QDeadlineTimer deadline(timeoutMs);
    QLocalSocket socket;
    socket.connectToServer(socketPath);
    if (socket.state() != QLocalSocket::ConnectedState && !socket.waitForConnected(timeoutMs))
        return HandOverOutcome::NoRunningCopy;
    if (!waitForBytes(socket, 1, deadline))
        return HandOverOutcome::NoRunningCopy;
    const bool visible = socket.read(1) == QByteArray(1, handover::kVisible);
    const bool handOver = handover::shouldHandOver(commandLine, visible);
    socket.write(handover::tokenMessage(activationToken) +
                 (handOver ? handover::dataMessage(handover::commandLineBytes(commandLine))
                           : handover::activateMessage()));
    socket.flush();
    if (!waitForBytes(socket, 1, deadline) || socket.read(1) != QByteArray(1, handover::kDone))
        return HandOverOutcome::NoAnswer;
    return handOver ? HandOverOutcome::HandedOver : HandOverOutcome::Activated;
}

} // namespace tessaro

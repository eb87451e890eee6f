#include "shell/core/InstanceServer.h"

#include "shell/core/HandOver.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>

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

InstanceServer::InstanceServer(QString path, QObject *parent)
    : QObject(parent), m_path(std::move(path)), m_server(new QLocalServer(this))
{
    m_server->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_server, &QLocalServer::newConnection, this, &InstanceServer::accept);
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

void InstanceServer::accept()
{
    while (QLocalSocket *socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (!peerIsSameUser(socket->socketDescriptor())) {
            socket->abort();
            continue;
        }
        serve(socket);
    }
}

void InstanceServer::serve(QLocalSocket *socket)
{
    const bool visible = m_visible ? m_visible() : false;
    socket->write(QByteArray(1, visible ? handover::kVisible : handover::kHidden));
    socket->flush();
    auto reader = std::make_shared<handover::RequestReader>();
    connect(socket, &QLocalSocket::readyRead, this, [this, socket, reader] {
        using State = handover::RequestReader::State;
        const State state = reader->feed(socket->readAll());
        if (state == State::Incomplete)
            return;
        if (state == State::HandOver && m_handOver && !reader->payload().isEmpty())
            m_handOver(reader->payload());
        else if (state == State::Activate && m_activate)
            m_activate();
        // The handlers may have closed the server (and the window) meanwhile; the
        // socket lives on until it is disconnected.
        if (state != State::Invalid)
            socket->write(QByteArray(1, handover::kDone));
        socket->flush();
        socket->disconnectFromServer();
    });
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
                                   int timeoutMs)
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
    socket.write(handOver ? handover::dataMessage(handover::commandLineBytes(commandLine))
                          : handover::activateMessage());
    socket.flush();
    if (!waitForBytes(socket, 1, deadline) || socket.read(1) != QByteArray(1, handover::kDone))
        return HandOverOutcome::NoAnswer;
    return handOver ? HandOverOutcome::HandedOver : HandOverOutcome::Activated;
}

} // namespace tessaro

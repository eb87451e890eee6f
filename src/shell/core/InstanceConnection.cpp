#include "shell/core/InstanceConnection.h"

#include <QLocalSocket>

namespace tessaro {

namespace {
// What the socket keeps of unread bytes: a request is read as it arrives, so this only
// bounds what a peer that goes on sending after its request can make the owner hold.
constexpr qint64 kReadBufferBytes = 64 * 1024;
} // namespace

InstanceConnection::InstanceConnection(qintptr descriptor, char greeting, int timeoutMs,
                                       QObject *parent)
    : QObject(parent), m_socket(new QLocalSocket(this))
{
    m_socket->setReadBufferSize(kReadBufferBytes);
    connect(m_socket, &QLocalSocket::readyRead, this, &InstanceConnection::readRequest);
    connect(m_socket, &QLocalSocket::disconnected, this, &InstanceConnection::finish);
    connect(m_socket, &QLocalSocket::errorOccurred, this, &InstanceConnection::drop);
    m_deadline.setSingleShot(true);
    m_deadline.setTimerType(Qt::PreciseTimer); // never before the time-out
    m_deadline.setInterval(timeoutMs);
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        if (!m_carryingOut)
            drop();
    });
    if (!m_socket->setSocketDescriptor(descriptor)) {
        finish();
        return;
    }
    m_deadline.start();
    m_socket->write(QByteArray(1, greeting));
    m_socket->flush();
}

InstanceConnection::~InstanceConnection() = default;

void InstanceConnection::readRequest()
{
    using State = handover::RequestReader::State;
    if (m_finished || m_reader.state() != State::Incomplete)
        return; // what follows a whole request is not read
    const State state = m_reader.feed(m_socket->readAll());
    if (state == State::Incomplete)
        return;
    if (state == State::Invalid) {
        drop();
        return;
    }
    m_deadline.stop();
    m_carryingOut = true; // from now on the connection waits for the server's answer()
    Q_EMIT requestReady();
}

void InstanceConnection::answer()
{
    m_carryingOut = false;
    if (!m_finished && m_socket->state() == QLocalSocket::ConnectedState) {
        m_socket->write(QByteArray(1, handover::kDone));
        m_socket->flush();
        m_socket->disconnectFromServer();
    }
    if (m_finished || m_socket->state() == QLocalSocket::UnconnectedState) {
        finish();
        return;
    }
    // The answer is on its way; a peer that never lets the connection close is dropped.
    m_deadline.start();
}

void InstanceConnection::drop()
{
    if (m_socket->state() != QLocalSocket::UnconnectedState)
        m_socket->abort();
    finish();
}

void InstanceConnection::finish()
{
    m_finished = true;
    m_deadline.stop();
    if (!m_carryingOut)
        deleteLater();
}

} // namespace tessaro

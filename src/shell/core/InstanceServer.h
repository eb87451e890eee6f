#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QLocalServer;

namespace tessaro {

class InstanceConnection;

// The running copy's end of the single-instance socket. It is created when the main
// window loads and starts listening only when the window is marked as the running
// copy; connections from other users are refused. Every request is answered after
// it has been carried out.
//
// Any local process of the user can connect, so the server trusts no peer: requests
// are carried out from the event loop, never from inside a socket's signal, and a
// connection is only touched again after a check that it still exists (the handler
// may run a modal message box while the peer times out and goes). At most
// kMaxConnections peers are served at once; a newcomer beyond that takes the place of
// the oldest one that is still waiting, so a flood of connections neither exhausts the
// owner's file descriptors nor locks a real later copy out for good.
class InstanceServer : public QObject
{
    Q_OBJECT
public:
    explicit InstanceServer(QString path, QObject *parent = nullptr);
    ~InstanceServer() override;

    // Whether the owner's window is visible, told to every later copy.
    void setVisibility(std::function<bool()> visible) { m_visible = std::move(visible); }
    // What a hand-over does (the bytes as sent) and what an activation does.
    void setHandlers(std::function<void(const QByteArray &)> handOver,
                     std::function<void()> activate);

    // Starts listening; a socket file left by a copy that died is replaced (the caller
    // holds the instance lock, so no live copy owns it).
    bool listen();
    void close();
    bool isListening() const;
    const QString &path() const { return m_path; }

    static constexpr int kMaxConnections = 32;
    // The peers being served now.
    int connectionCount() const;

private:
    void accept(qintptr descriptor);
    void carryOut(QPointer<InstanceConnection> connection);

    QString m_path;
    QLocalServer *m_server;
    QList<QPointer<InstanceConnection>> m_connections;
    std::function<bool()> m_visible;
    std::function<void(const QByteArray &)> m_handOver;
    std::function<void()> m_activate;
};

// The later copy's end: connects to the running copy, learns whether its window is
// visible, and hands over the command line or asks for activation, waiting for the
// answer at most the time-out. The outcome is only for tests: the later copy ends
// whatever happened. An activation token (the later copy's XDG_ACTIVATION_TOKEN) goes
// with the request.
enum class HandOverOutcome { NoRunningCopy, HandedOver, Activated, NoAnswer };
HandOverOutcome contactRunningCopy(const QString &socketPath, const QString &commandLine,
                                   int timeoutMs, const QByteArray &activationToken = {});

// True when the peer of a connected local socket runs as the same user.
bool peerIsSameUser(qintptr socketDescriptor);

} // namespace tessaro

#pragma once

#include "shell/core/HandOver.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class QLocalSocket;

namespace tessaro {

// One later copy's conversation with the running copy, on the running copy's side:
// the peer is greeted at once, its request is read as it arrives, the server carries it
// out and the connection answers and closes. Whatever the peer does (says nothing,
// sends bytes that are no request, sends far too much, goes away in the middle) costs
// the owner no more than reading what arrived: a peer that has not made a whole request
// within the time-out is dropped, and one that sends anything else is dropped at once.
//
// The connection deletes itself once it is over, but never while the server is
// carrying out its request (that may open a modal message box, and the peer may go
// away meanwhile); the server holds it through a QPointer.
class InstanceConnection : public QObject
{
    Q_OBJECT
public:
    // Takes over an accepted socket descriptor and greets the peer with `greeting`.
    InstanceConnection(qintptr descriptor, char greeting, int timeoutMs, QObject *parent = nullptr);
    ~InstanceConnection() override;

    // The request once it is complete (state HandOver or Activate).
    const handover::RequestReader &request() const { return m_reader; }
    // True from a whole request until answer(): the connection stays alive however the
    // peer behaves meanwhile.
    bool isCarryingOut() const { return m_carryingOut; }
    // Ends the carrying out: tells the peer it is done when it is still there, then
    // closes.
    void answer();
    // Closes at once, without an answer.
    void drop();

Q_SIGNALS:
    // The peer has made a whole request; emitted once.
    void requestReady();

private:
    void readRequest();
    void finish();

    QLocalSocket *m_socket;
    handover::RequestReader m_reader;
    QTimer m_deadline;
    bool m_carryingOut = false;
    bool m_finished = false;
};

} // namespace tessaro

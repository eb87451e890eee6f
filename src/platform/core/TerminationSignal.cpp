#include "platform/core/TerminationSignal.h"

#include <QSocketNotifier>

#include <csignal>
#include <cstdlib>
#include <sys/socket.h>
#include <unistd.h>

namespace tessaro {

namespace {
int g_pipe[2] = {-1, -1};

constexpr char kTerminate = 1;
constexpr char kHangUp = 2;

// Only async-signal-safe work here: one byte into the pipe.
void onSignal(int number)
{
    const char byte = number == SIGHUP ? kHangUp : kTerminate;
    (void)!::write(g_pipe[0], &byte, 1);
}
} // namespace

TerminationSignal::TerminationSignal(QObject *parent) : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_pipe) != 0)
        return;
    m_notifier = new QSocketNotifier(g_pipe[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        if (::read(g_pipe[1], &byte, 1) != 1)
            return;
        if (byte == kHangUp)
            Q_EMIT hangUp();
        else
            Q_EMIT requested();
    });
    struct sigaction action = {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGTERM, &action, nullptr);
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGHUP, &action, nullptr);
}

void TerminationSignal::endByHangUp()
{
    ::signal(SIGHUP, SIG_DFL);
    ::raise(SIGHUP);
    std::_Exit(128 + SIGHUP); // not reached: the default action ends the process
}

TerminationSignal::~TerminationSignal()
{
    ::signal(SIGTERM, SIG_DFL);
    ::signal(SIGINT, SIG_DFL);
    ::signal(SIGHUP, SIG_DFL);
    delete m_notifier;
    for (int &fd : g_pipe)
        if (fd >= 0) {
            ::close(fd);
            fd = -1;
        }
}

} // namespace tessaro

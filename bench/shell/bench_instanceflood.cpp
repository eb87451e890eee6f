// How long the running copy's window is kept waiting while other local processes
// misbehave on its single-instance socket. The real program runs on its own account;
// while each attack goes on in a thread of its own, this program connects again and
// again as a newcomer would and times the greeting: the owner greets from its event
// loop, so the delay is how long that loop (the window) was kept from its work.
//
//   bench_instanceflood [probe interval ms]      (see bench/shell/instance-flood.sh)
#include "shell/core/HandOver.h"
#include "support/LocalPeer.h"
#include "support/ProgramAccount.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QtEndian>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

using namespace tessaro;
using test::LocalPeer;

namespace {

constexpr double kTargetMs = 100;
constexpr qint64 kHundredMegabytes = 100LL * 1024 * 1024;

QByteArray lengthHeader(qint32 length)
{
    QByteArray header = handover::dataMessage(QByteArray());
    qToBigEndian(length, header.data() + 1);
    return header;
}

struct Attack
{
    const char *name;
    std::function<void(const QString &socket)> run;
};

void flood(const QString &socket, const QByteArray &header, const QByteArray &pattern)
{
    LocalPeer peer(socket);
    peer.readByte(5000);
    peer.send(header, 5000);
    peer.sendRepeated(pattern, kHundredMegabytes, 60000);
}

std::vector<Attack> attacks()
{
    return {
        {"nothing (baseline, 2 s)", [](const QString &) { ::usleep(2000 * 1000); }},
        {"30 peers that say nothing",
         [](const QString &socket) {
             std::vector<std::unique_ptr<LocalPeer>> peers;
             for (int i = 0; i < 30; ++i)
                 peers.push_back(std::make_unique<LocalPeer>(socket));
             for (auto &peer : peers)
                 peer->waitForClose(10000);
         }},
        {"200 peers sending 4 KiB of garbage",
         [](const QString &socket) {
             QByteArray garbage(4096, '\0');
             for (char &c : garbage)
                 c = char(QRandomGenerator::global()->bounded(256));
             garbage[0] = 'Q';
             for (int i = 0; i < 200; ++i) {
                 LocalPeer peer(socket);
                 peer.readByte(5000);
                 peer.send(garbage, 5000);
                 peer.waitForClose(5000);
             }
         }},
        {"100 MB after a 100 MB length",
         [](const QString &socket) {
             flood(socket, lengthHeader(qint32(kHundredMegabytes)), "a");
         }},
        {"100 MB after the longest length",
         [](const QString &socket) {
             flood(socket, lengthHeader(handover::kMaxBytes), "\"/tmp/x.c\" ");
         }},
        {"100 MB of text, no request", [](const QString &socket) { flood(socket, {}, "text "); }},
        {"1000 connections held open",
         [](const QString &socket) {
             std::vector<int> connections;
             QElapsedTimer timer;
             timer.start();
             while (connections.size() < 1000 && timer.elapsed() < 60000) {
                 const int fd = test::connectWithoutWaiting(socket);
                 if (fd >= 0)
                     connections.push_back(fd);
                 else
                     ::usleep(500);
             }
             ::usleep(500 * 1000);
             for (int fd : connections)
                 ::close(fd);
         }},
    };
}

double percentile(std::vector<double> values, double fraction)
{
    if (values.empty())
        return -1;
    std::sort(values.begin(), values.end());
    const size_t index = std::min(values.size() - 1, size_t(fraction * double(values.size())));
    return values[index];
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const int intervalMs = argc > 1 ? std::max(1, atoi(argv[1])) : 10;
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 4096);
    ::setrlimit(RLIMIT_NOFILE, &limit);

    test::ProgramAccount account;
    auto owner = account.start({});
    if (!account.waitForEvent("loaded", 1, 60000)) {
        std::fprintf(stderr, "the program did not start\n");
        return 1;
    }
    const QString socket = account.socketPath();
    std::printf("%-38s %7s %9s %9s %9s  %s\n", "attack", "probes", "median", "p99", "max",
                "target");
    bool allMet = true;
    for (const Attack &attack : attacks()) {
        std::atomic<bool> done{false};
        std::thread attacker([&] {
            attack.run(socket);
            done = true;
        });
        std::vector<double> delays;
        int unanswered = 0;
        while (!done) {
            const double delay = test::greetingDelayMs(socket, 10000);
            if (delay < 0)
                ++unanswered;
            else
                delays.push_back(delay);
            ::usleep(useconds_t(intervalMs) * 1000);
        }
        attacker.join();
        const double worst = delays.empty() ? -1 : *std::max_element(delays.begin(), delays.end());
        const bool met = unanswered == 0 && worst >= 0 && worst <= kTargetMs;
        allMet = allMet && met;
        std::printf(
            "%-38s %7zu %7.2f ms %6.2f ms %6.2f ms  %s%s\n", attack.name, delays.size(),
            percentile(delays, 0.5), percentile(delays, 0.99), worst, met ? "met" : "MISSED",
            unanswered ? qPrintable(QStringLiteral(" (%1 unanswered)").arg(unanswered)) : "");
        std::fflush(stdout);
    }
    const bool alive = owner->state() == QProcess::Running;
    std::printf("owner still running: %s\n", alive ? "yes" : "NO");
    test::stop(*owner);
    return allMet && alive ? 0 : 1;
}

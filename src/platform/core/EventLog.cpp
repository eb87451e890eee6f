#include "platform/core/EventLog.h"

#include <QFile>

#include <ctime>

namespace tessaro {

namespace {
QString logPath()
{
    return qEnvironmentVariable("TESSARO_EVENT_LOG");
}
} // namespace

bool eventLogEnabled()
{
    return !logPath().isEmpty();
}

void logEvent(const QString &event)
{
    const QString path = logPath();
    if (path.isEmpty())
        return;
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const double ms = double(now.tv_sec) * 1000.0 + double(now.tv_nsec) / 1e6;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    file.write(QByteArray::number(ms, 'f', 3) + ' ' + event.toUtf8() + '\n');
}

} // namespace tessaro

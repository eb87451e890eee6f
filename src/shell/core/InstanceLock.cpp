#include "shell/core/InstanceLock.h"

#include "platform/core/AppInfo.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tessaro {

QString instanceFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty())
        return runtime;
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

QString instanceLockName()
{
    return appTitle() + QStringLiteral("_APPLICATION_MUTEX");
}
QString instanceSocketName()
{
    return appTitle() + QStringLiteral("_APPLICATION");
}
QString instanceLockPath()
{
    return instanceFolder() + QLatin1Char('/') + instanceLockName();
}
QString instanceSocketPath()
{
    return instanceFolder() + QLatin1Char('/') + instanceSocketName();
}

namespace {
int openLockFile(const QString &path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    return ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
}
} // namespace

InstanceLock::InstanceLock(QString path) : m_path(std::move(path)) {}

InstanceLock::~InstanceLock()
{
    release();
}

bool InstanceLock::acquire()
{
    if (held())
        return true;
    const int fd = openLockFile(m_path);
    if (fd < 0)
        return true;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const bool taken = errno == EWOULDBLOCK;
        ::close(fd);
        return !taken;
    }
    m_fd = fd;
    // The holder's process id, for whoever looks at the file.
    const QByteArray pid = QByteArray::number(qint64(::getpid())) + '\n';
    if (::ftruncate(fd, 0) == 0)
        (void)!::pwrite(fd, pid.constData(), size_t(pid.size()), 0);
    return true;
}

void InstanceLock::release()
{
    if (m_fd < 0)
        return;
    ::flock(m_fd, LOCK_UN);
    ::close(m_fd);
    m_fd = -1;
}

bool InstanceLock::isHeld(const QString &path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool held = ::flock(fd, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(fd);
    return held;
}

} // namespace tessaro

#pragma once

#include <QString>

namespace tessaro {

// Where one user's running copy keeps its lock and its socket: the user's runtime
// folder ($XDG_RUNTIME_DIR, or Qt's per-user fallback when it is not set).
QString instanceFolder();
// "Tessaro_APPLICATION_MUTEX" and "Tessaro_APPLICATION", composed from the
// application title.
QString instanceLockName();
QString instanceSocketName();
// The full paths of both in the instance folder.
QString instanceLockPath();
QString instanceSocketPath();

// The single-instance lock: a file locked with flock(). The kernel drops the lock
// when its process ends, however it ends, so the lock of a dead copy is free.
class InstanceLock
{
public:
    explicit InstanceLock(QString path = instanceLockPath());
    ~InstanceLock();
    InstanceLock(const InstanceLock &) = delete;
    InstanceLock &operator=(const InstanceLock &) = delete;

    // Takes the lock; true when this copy is the first. A lock file that cannot be
    // created or locked for any reason other than another holder counts as the first
    // copy too (it then holds nothing).
    bool acquire();
    // Lets the lock go; a later start becomes the first copy.
    void release();
    bool held() const { return m_fd >= 0; }
    const QString &path() const { return m_path; }

    // True when some process holds the lock at path (for tests and diagnostics).
    static bool isHeld(const QString &path);

private:
    QString m_path;
    int m_fd = -1;
};

} // namespace tessaro

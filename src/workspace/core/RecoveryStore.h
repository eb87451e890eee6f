#pragma once

#include "workspace/core/RecoveryCopy.h"

#include <QString>
#include <QVector>

namespace tessaro::recovery {

// The folder that holds the recovery copies: $XDG_STATE_HOME/Tessaro/recovery, or
// ~/.local/state/Tessaro/recovery when the variable is not set.
QString folder();

// The copies of one running program: a folder of its own below the recovery folder,
// created on the first write and locked (flock) for as long as the program runs. The
// kernel lets the lock go when the process ends in any way, so a later start can tell
// the copies of a session that ended from those of a copy still running.
class SessionFolder
{
public:
    explicit SessionFolder(const QString &root = folder());
    ~SessionFolder();
    SessionFolder(const SessionFolder &) = delete;
    SessionFolder &operator=(const SessionFolder &) = delete;

    // Replaces document id's copy atomically and durably; false when it could not be
    // written (the folder could not be made, the disk is full).
    bool write(int id, const RecoveryCopy &copy);
    void remove(int id);
    bool has(int id) const;
    // The session's folder; empty until the first write.
    QString path() const { return m_path; }
    // At a clean end: removes the folder when no copy is left in it and lets the lock
    // go. Copies still there (a save that failed at close) stay for the next start.
    void close();

private:
    bool open();
    QString fileOf(int id) const;

    QString m_root;
    QString m_path;
    int m_lock = -1;
};

// The copies of earlier sessions that no running program owns. Each such session is
// locked while this object lives, so two programs starting at once never offer the
// same copies; the destructor lets the locks go and removes the session folders that
// hold no copy any more.
class EarlierSessions
{
public:
    struct Copy
    {
        QString file;
        RecoveryCopy copy;
    };

    explicit EarlierSessions(const QString &root = folder());
    ~EarlierSessions();
    EarlierSessions(const EarlierSessions &) = delete;
    EarlierSessions &operator=(const EarlierSessions &) = delete;

    // Oldest session first, in each session in the order the documents were made.
    const QVector<Copy> &copies() const { return m_copies; }
    // Deletes a copy once it has been recovered or given up.
    void discard(const QString &file);

private:
    struct Session
    {
        QString path;
        int lock = -1;
    };
    QVector<Session> m_sessions;
    QVector<Copy> m_copies;
};

} // namespace tessaro::recovery

#include "workspace/core/RecoveryStore.h"

#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tessaro::recovery {

namespace {

const QString kLockName = QStringLiteral("lock");
const QString kCopySuffix = QStringLiteral(".copy");
// A session folder is made under this prefix and renamed once it is locked, so a
// start that looks at the same moment never takes it for an abandoned one.
const QString kNewPrefix = QStringLiteral(".new-");

// Opens the folder's lock file and takes the lock without waiting; -1 when another
// process holds it (or it cannot be opened).
int takeLock(const QString &folder)
{
    const QByteArray name = QFile::encodeName(folder + QLatin1Char('/') + kLockName);
    const int fd = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0)
        return -1;
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

void releaseLock(int &fd)
{
    if (fd >= 0)
        ::close(fd); // closing the last descriptor lets the lock go
    fd = -1;
}

QStringList copyFiles(const QString &folder)
{
    return QDir(folder).entryList({QLatin1Char('*') + kCopySuffix}, QDir::Files, QDir::Name);
}

// Numbers sort as numbers: "10.copy" after "9.copy".
bool byNumber(const QString &a, const QString &b)
{
    return a.section(QLatin1Char('.'), 0, 0).toLongLong() <
           b.section(QLatin1Char('.'), 0, 0).toLongLong();
}

} // namespace

QString folder()
{
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (state.isEmpty() || QDir::isRelativePath(state))
        state = QDir::homePath() + QStringLiteral("/.local/state");
    return state + QStringLiteral("/Tessaro/recovery");
}

SessionFolder::SessionFolder(const QString &root) : m_root(root) {}

SessionFolder::~SessionFolder()
{
    releaseLock(m_lock);
}

bool SessionFolder::open()
{
    if (!m_path.isEmpty())
        return true;
    if (!QDir().mkpath(m_root))
        return false;
    QFile::setPermissions(m_root, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString name = QStringLiteral("%1-%2")
                             .arg(QCoreApplication::applicationPid())
                             .arg(QDateTime::currentMSecsSinceEpoch());
    const QString making = m_root + QLatin1Char('/') + kNewPrefix + name;
    const QString made = m_root + QLatin1Char('/') + name;
    if (!QDir().mkdir(making))
        return false;
    m_lock = takeLock(making);
    if (m_lock < 0 || !QDir().rename(making, made)) {
        releaseLock(m_lock);
        QDir(making).removeRecursively();
        return false;
    }
    m_path = made;
    return true;
}

QString SessionFolder::fileOf(int id) const
{
    return m_path + QLatin1Char('/') + QString::number(id) + kCopySuffix;
}

bool SessionFolder::write(int id, const RecoveryCopy &copy)
{
    if (!open())
        return false;
    try {
        textfile::writeBytes(fileOf(id), copy.toBytes());
        return true;
    } catch (const RuntimeError &) {
        return false;
    }
}

void SessionFolder::remove(int id)
{
    if (!m_path.isEmpty())
        QFile::remove(fileOf(id));
}

bool SessionFolder::has(int id) const
{
    return !m_path.isEmpty() && QFileInfo::exists(fileOf(id));
}

void SessionFolder::close()
{
    if (!m_path.isEmpty() && copyFiles(m_path).isEmpty())
        QDir(m_path).removeRecursively();
    releaseLock(m_lock);
    m_path.clear();
}

EarlierSessions::EarlierSessions(const QString &root)
{
    const QDir dir(root);
    const QFileInfoList folders = dir.entryInfoList(
        QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Time | QDir::Reversed);
    for (const QFileInfo &info : folders) {
        Session session{info.absoluteFilePath(), takeLock(info.absoluteFilePath())};
        if (session.lock < 0)
            continue; // a running program's own
        if (info.fileName().startsWith(kNewPrefix)) {
            // A session that ended while its folder was being made holds nothing.
            QDir(session.path).removeRecursively();
            releaseLock(session.lock);
            continue;
        }
        QStringList files = copyFiles(session.path);
        std::sort(files.begin(), files.end(), byNumber);
        for (const QString &name : files) {
            const QString file = session.path + QLatin1Char('/') + name;
            QFile in(file);
            if (!in.open(QIODevice::ReadOnly))
                continue;
            if (const auto copy = RecoveryCopy::fromBytes(in.readAll()))
                m_copies.append(Copy{file, *copy});
        }
        m_sessions.append(session);
    }
}

EarlierSessions::~EarlierSessions()
{
    for (Session &session : m_sessions) {
        bool holdsACopy = false;
        for (const Copy &copy : m_copies)
            holdsACopy = holdsACopy || QFileInfo(copy.file).path() == session.path;
        if (!holdsACopy)
            QDir(session.path).removeRecursively();
        releaseLock(session.lock);
    }
}

void EarlierSessions::discard(const QString &file)
{
    QFile::remove(file);
    for (qsizetype i = 0; i < m_copies.size(); ++i)
        if (m_copies[i].file == file) {
            m_copies.removeAt(i);
            break;
        }
}

} // namespace tessaro::recovery

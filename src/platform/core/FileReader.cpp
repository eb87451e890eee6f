#include "platform/core/FileReader.h"

#include "platform/core/RuntimeError.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessaro {

namespace {

// Closes the descriptor on every way out.
struct Descriptor
{
    int fd;
    ~Descriptor()
    {
        if (fd >= 0)
            ::close(fd);
    }
};

} // namespace

QByteArrayView FileReader::read(const QString &path)
{
    m_length = 0;
    if (path.isEmpty())
        throw RuntimeError(RuntimeError::FileNotFound);
    Descriptor file{::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC)};
    if (file.fd < 0)
        throw RuntimeError(errno == ENOENT || errno == ENOTDIR ? RuntimeError::FileNotFound
                                                               : RuntimeError::PathFileAccessError);
    struct stat info;
    if (::fstat(file.fd, &info) != 0 || S_ISDIR(info.st_mode))
        throw RuntimeError(RuntimeError::PathFileAccessError);

    // One byte more than the size, so a file that has grown meanwhile is noticed
    // and read on to its end.
    const qsizetype capacity = qsizetype(info.st_size) + 1;
    if (m_buffer.size() < capacity)
        m_buffer.resize(capacity);
    qsizetype length = 0;
    for (;;) {
        if (length == m_buffer.size())
            m_buffer.resize(m_buffer.size() * 2);
        const ssize_t n =
            ::read(file.fd, m_buffer.data() + length, size_t(m_buffer.size() - length));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            throw RuntimeError(RuntimeError::PathFileAccessError);
        if (n == 0)
            break;
        length += n;
    }
    m_length = length;
    return QByteArrayView(m_buffer.constData(), length);
}

QByteArray FileReader::take()
{
    m_buffer.truncate(m_length);
    m_length = 0;
    return std::move(m_buffer);
}

} // namespace tessaro

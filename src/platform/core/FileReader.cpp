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

// Opens a file for reading and gives its size, raising 53 or 75.
Descriptor openFile(const QString &path, qsizetype *size)
{
    if (path.isEmpty())
        throw RuntimeError(RuntimeError::FileNotFound);
    Descriptor file{::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC)};
    if (file.fd < 0)
        throw RuntimeError(errno == ENOENT || errno == ENOTDIR ? RuntimeError::FileNotFound
                                                               : RuntimeError::PathFileAccessError);
    struct stat info;
    if (::fstat(file.fd, &info) != 0 || S_ISDIR(info.st_mode))
        throw RuntimeError(RuntimeError::PathFileAccessError);
    *size = qsizetype(info.st_size);
    return file;
}

// Reads once into the buffer; returns the count read, 0 at the end of the
// file. Raises 75 when the file cannot be read.
qsizetype readSome(int fd, char *buffer, qsizetype room)
{
    for (;;) {
        const ssize_t n = ::read(fd, buffer, size_t(room));
        if (n >= 0)
            return qsizetype(n);
        if (errno != EINTR)
            throw RuntimeError(RuntimeError::PathFileAccessError);
    }
}

} // namespace

QByteArrayView FileReader::read(const QString &path)
{
    m_length = 0;
    qsizetype size = 0;
    const Descriptor file = openFile(path, &size);

    // One byte more than the size, so a file that has grown meanwhile is noticed
    // and read on to its end.
    const qsizetype capacity = size + 1;
    if (m_buffer.size() < capacity)
        m_buffer.resize(capacity);
    qsizetype length = 0;
    for (;;) {
        if (length == m_buffer.size())
            m_buffer.resize(m_buffer.size() * 2);
        const qsizetype n = readSome(file.fd, m_buffer.data() + length, m_buffer.size() - length);
        if (n == 0)
            break;
        length += n;
    }
    m_length = length;
    return QByteArrayView(m_buffer.constData(), length);
}

void FileReader::readInPieces(const QString &path, const std::function<void(QByteArrayView)> &use)
{
    m_length = 0;
    qsizetype size = 0;
    const Descriptor file = openFile(path, &size);
    // Small enough to stay in the processor's cache between reading and use.
    constexpr qsizetype piece = 64 * 1024;
    if (m_buffer.size() < piece)
        m_buffer.resize(piece);
    while (const qsizetype n = readSome(file.fd, m_buffer.data(), m_buffer.size()))
        use(QByteArrayView(m_buffer.constData(), n));
}

QByteArray FileReader::take()
{
    m_buffer.truncate(m_length);
    m_length = 0;
    return std::move(m_buffer);
}

} // namespace tessaro

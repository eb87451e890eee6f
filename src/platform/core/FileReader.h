#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>

namespace tessaro {

// Reads files whole into one buffer that it keeps: reading hundreds of files one
// after the other then costs one system read each and no allocation, which is what
// keeps Find in Files within a frame or two. Raises 53 "File not found" for a name
// that does not exist and 75 "Path/File access error" for anything that cannot be
// read (a folder, no permission).
class FileReader
{
public:
    // The file's bytes, valid until the next read.
    QByteArrayView read(const QString &path);
    // The bytes of the last read, leaving the reader empty.
    QByteArray take();
    // Reads the file in pieces through a small buffer, handing each piece to use() in
    // order: for a large file read once, no buffer of the whole file is filled. Raises
    // as read() does.
    void readInPieces(const QString &path, const std::function<void(QByteArrayView)> &use);

private:
    QByteArray m_buffer;
    qsizetype m_length = 0;
};

} // namespace tessaro
